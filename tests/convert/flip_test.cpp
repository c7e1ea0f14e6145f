// Vectors in reverse order.
#include "tests/convert/arrays.h"
#include "tests/support/checks.h"

#include "orvs/convert.h"

#include <algorithm>

namespace orvtest {
namespace {

template <class T>
void expect_flipped(const Export<OrvStatus, const T*, T*, int>& f, const Export<OrvStatus, T*, int>& in_place,
                    int length, bool everywhere)
{
    Random random(seed_of(f.name(), static_cast<std::uint64_t>(length)));
    const std::vector<T> src = inputs<T>(random, static_cast<std::size_t>(length));
    std::vector<std::byte> want_bytes;
    for (std::size_t i = src.size(); i-- > 0;) {
        const auto* element = reinterpret_cast<const std::byte*>(&src[i]);
        want_bytes.insert(want_bytes.end(), element, element + sizeof(T));
    }
    std::vector<T> want(src.size());
    std::memcpy(want.data(), want_bytes.data(), want_bytes.size());

    const std::string text = std::to_string(length);
    ArrayCalls apart(f, text, {source(src), result(want)},
                     [=](auto p) { return f(in<T>(p[0]), out<T>(p[1]), length); });
    ArrayCalls same(f, text + ", in place", {changed(src, want)},
                    [=](auto p) { return f(in<T>(p[0]), out<T>(p[0]), length); });
    ArrayCalls own(in_place, text, {changed(src, want)}, [=](auto p) { return in_place(out<T>(p[0]), length); });
    if (everywhere) EXPECT_TRUE(apart.at_many_places(17) && same.at_many_places(3) && own.at_many_places(17));
    else EXPECT_TRUE(apart.at(before_guard) && apart.at(misaligned(0)) && own.at(misaligned(1)));
}

template <class T>
void expect_family(const Export<OrvStatus, const T*, T*, int>& f, const Export<OrvStatus, T*, int>& in_place)
{
    for (const int n : layout_lengths()) expect_flipped(f, in_place, n, true);
    expect_flipped(f, in_place, length_beyond_caches<T>(), false);
    ArgumentChecks(f, 4).null_pointers().bad_lengths().run();
    ArgumentChecks(in_place, 4).null_pointers().bad_lengths().run();

    // One array for both goes to the form in place, whose checks are the same.
    expect_value(f, Orv32s{f(nullptr, nullptr, 4)}, orvErrNullPointer);
    T element = {};
    expect_value(f, Orv32s{f(&element, &element, 0)}, orvErrBadLength);
}

TEST(Flip, bytes) { expect_family(ORV_EXPORT(orvsFlip_8u), ORV_EXPORT(orvsFlip_8u_I)); }
TEST(Flip, words) { expect_family(ORV_EXPORT(orvsFlip_16u), ORV_EXPORT(orvsFlip_16u_I)); }
TEST(Flip, floats)
{
    expect_family(ORV_EXPORT(orvsFlip_32f), ORV_EXPORT(orvsFlip_32f_I));
    expect_family(ORV_EXPORT(orvsFlip_64f), ORV_EXPORT(orvsFlip_64f_I));
}
TEST(Flip, complex)
{
    expect_family(ORV_EXPORT(orvsFlip_32fc), ORV_EXPORT(orvsFlip_32fc_I));
    expect_family(ORV_EXPORT(orvsFlip_64fc), ORV_EXPORT(orvsFlip_64fc_I));
}

TEST(Flip, an_odd_length_keeps_the_middle)
{
    const auto f = ORV_EXPORT(orvsFlip_32f_I);
    std::vector<Orv32f> x = {1, 2, 3, 4, 5};
    expect_value(f, Orv32s{f(x.data(), 5)}, orvOk);
    expect_elements(f, x, {5, 4, 3, 2, 1});
}

} // namespace
} // namespace orvtest
