// Packed spectra, expanded. The oracle packs a full spectrum, element by element as the layouts are defined.
#include "tests/convert/arrays.h"
#include "tests/convert/conjugates.h"
#include "tests/support/checks.h"

#include "orvs/convert.h"

namespace orvtest {
namespace {

enum class Layout { pack, perm, ccs };

template <class C>
using PartOf = decltype(C::re);

/// A conjugate-symmetric spectrum of n elements. In CCS the stored imaginary parts of real elements are copied, so they
/// may be anything there.
template <class C>
std::vector<C> spectrum(Random& random, std::size_t n, Layout layout)
{
    std::vector<C> x = inputs<C>(random, n);
    if (layout != Layout::ccs) {
        x[0].im = 0;
        if (n % 2 == 0) x[n / 2].im = 0;
    }
    for (std::size_t k = 1; 2 * k < n; ++k) x[n - k] = conjugate(x[k]);
    return x;
}

template <class C>
std::vector<PartOf<C>> packed(const std::vector<C>& x, Layout layout)
{
    using T = PartOf<C>;
    std::vector<T> parts;
    const auto add = [&](const T& part) { // as bytes
        parts.push_back({});
        std::memcpy(&parts.back(), &part, sizeof part);
    };
    const std::size_t n = x.size(), half = n / 2;
    const bool even = n % 2 == 0;
    add(x[0].re);
    if (layout == Layout::ccs) add(x[0].im);
    if (layout == Layout::perm && even) add(x[half].re);
    for (std::size_t k = 1; 2 * k < n; ++k) {
        add(x[k].re);
        add(x[k].im);
    }
    if (layout == Layout::pack && even) add(x[half].re);
    if (layout == Layout::ccs && even) {
        add(x[half].re);
        add(x[half].im);
    }
    return parts;
}

template <class C>
void expect_expanded(const Export<OrvStatus, const C*, C*, int>& f, const Export<OrvStatus, C*, int>& in_place,
                     Layout layout, int length, bool everywhere)
{
    using T = PartOf<C>;
    Random random(seed_of(f.name(), static_cast<std::uint64_t>(length)));
    const std::vector<C> want = spectrum<C>(random, static_cast<std::size_t>(length), layout);
    const std::vector<T> parts = packed(want, layout);

    // In place the array has room for all elements; CCS takes two of them when one is wanted.
    std::vector<C> before = inputs<C>(random, want.size());
    std::memcpy(before.data(), parts.data(), parts.size() * sizeof(T));

    const std::string text = std::to_string(length);
    ArrayCalls apart(f, text, {source(parts), result(want)},
                     [=](auto p) { return f(in<C>(p[0]), out<C>(p[1]), length); });
    ArrayCalls same(f, text + ", in place", {changed(before, want)},
                    [=](auto p) { return f(in<C>(p[0]), out<C>(p[0]), length); });
    ArrayCalls own(in_place, text, {changed(before, want)}, [=](auto p) { return in_place(out<C>(p[0]), length); });
    if (everywhere) EXPECT_TRUE(apart.at_many_places(9) && same.at_many_places(2) && own.at_many_places(9)) << text;
    else EXPECT_TRUE(apart.at(before_guard) && apart.at(misaligned(0)) && own.at(misaligned(16)));
}

template <class C>
void expect_layout(const Export<OrvStatus, const C*, C*, int>& f, const Export<OrvStatus, C*, int>& in_place,
                   Layout layout)
{
    for (const int n : layout_lengths()) expect_expanded(f, in_place, layout, n, true);
    expect_expanded(f, in_place, layout, length_beyond_caches<C>() + (layout == Layout::perm ? 1 : 0), false);
    ArgumentChecks(f, 4).null_pointers().bad_lengths().run();
    ArgumentChecks(in_place, 4).null_pointers().bad_lengths().run();
    expect_value(f, Orv32s{f(nullptr, nullptr, 4)}, orvErrNullPointer);
}

TEST(ConjPack, values)
{
    expect_layout(ORV_EXPORT(orvsConjPack_16sc), ORV_EXPORT(orvsConjPack_16sc_I), Layout::pack);
    expect_layout(ORV_EXPORT(orvsConjPack_32fc), ORV_EXPORT(orvsConjPack_32fc_I), Layout::pack);
    expect_layout(ORV_EXPORT(orvsConjPack_64fc), ORV_EXPORT(orvsConjPack_64fc_I), Layout::pack);
}
TEST(ConjPerm, values)
{
    expect_layout(ORV_EXPORT(orvsConjPerm_16sc), ORV_EXPORT(orvsConjPerm_16sc_I), Layout::perm);
    expect_layout(ORV_EXPORT(orvsConjPerm_32fc), ORV_EXPORT(orvsConjPerm_32fc_I), Layout::perm);
    expect_layout(ORV_EXPORT(orvsConjPerm_64fc), ORV_EXPORT(orvsConjPerm_64fc_I), Layout::perm);
}
TEST(ConjCcs, values)
{
    expect_layout(ORV_EXPORT(orvsConjCcs_16sc), ORV_EXPORT(orvsConjCcs_16sc_I), Layout::ccs);
    expect_layout(ORV_EXPORT(orvsConjCcs_32fc), ORV_EXPORT(orvsConjCcs_32fc_I), Layout::ccs);
    expect_layout(ORV_EXPORT(orvsConjCcs_64fc), ORV_EXPORT(orvsConjCcs_64fc_I), Layout::ccs);
}

TEST(PackedSpectra, of_four_elements)
{
    const std::vector<Orv32fc> want = {{1, 0}, {2, 3}, {4, 0}, {2, -3}};
    const auto expect = [&](const auto& f, std::vector<Orv32f> parts) {
        parts.resize(8);
        std::vector<Orv32fc> dst(4);
        expect_value(f, Orv32s{f(reinterpret_cast<const Orv32fc*>(parts.data()), dst.data(), 4)}, orvOk);
        expect_elements(f, dst, want, NanView::bits);
    };
    expect(ORV_EXPORT(orvsConjPack_32fc), {1, 2, 3, 4});
    expect(ORV_EXPORT(orvsConjPerm_32fc), {1, 4, 2, 3});
    expect(ORV_EXPORT(orvsConjCcs_32fc), {1, 0, 2, 3, 4, 0});
}

} // namespace
} // namespace orvtest
