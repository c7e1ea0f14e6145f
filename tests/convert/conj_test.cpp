// Conjugates, element by element and with the order reversed.
#include "tests/arith/large.h"
#include "tests/convert/arrays.h"
#include "tests/convert/conjugates.h"
#include "tests/support/checks.h"
#include "tests/support/elementwise.h"

#include "orvs/convert.h"

#include <algorithm>

namespace orvtest {
namespace {

const SweepOptions bitwise = {.lengths = lengths_around({96, 127, 256, 1000}), .nans = NanView::bits};

TEST(Conj, values)
{
    EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsConj_16sc), conjugate, bitwise));
    EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsConj_32fc), conjugate, bitwise));
    EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsConj_64fc), conjugate, bitwise));
    EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsConj_16sc_I), conjugate, bitwise));
    EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsConj_32fc_I), conjugate, bitwise));
    EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsConj_64fc_I), conjugate, bitwise));
}
TEST(Conj, of_large_arrays)
{
    EXPECT_TRUE(check_large(ORV_EXPORT(orvsConj_16sc).with(), conjugate));
    EXPECT_TRUE(check_large(ORV_EXPORT(orvsConj_32fc).with(), conjugate));
    EXPECT_TRUE(check_large(ORV_EXPORT(orvsConj_64fc).with(), conjugate));
}
TEST(Conj, signs_and_limits)
{
    const auto f = ORV_EXPORT(orvsConj_16sc);
    const std::vector<Orv16sc> src = {{-32768, -32768}, {1, 32767}, {0, 0}};
    std::vector<Orv16sc> dst(3);
    expect_value(f, Orv32s{f(src.data(), dst.data(), 3)}, orvOk);
    expect_elements(f, dst, {{-32768, 32767}, {1, -32767}, {0, 0}});

    const auto g = ORV_EXPORT(orvsConj_32fc_I);
    std::vector<Orv32fc> z = {{1, 0}, {-0.0f, -0.0f}};
    expect_value(g, Orv32s{g(z.data(), 2)}, orvOk);
    expect_elements(g, z, {{1, -0.0f}, {-0.0f, 0}}, NanView::bits);
}

template <class C>
void expect_flipped(const Export<OrvStatus, const C*, C*, int>& f, int length, bool everywhere)
{
    Random random(seed_of(f.name(), static_cast<std::uint64_t>(length)));
    const std::vector<C> src = inputs<C>(random, static_cast<std::size_t>(length));
    std::vector<C> want = src;
    std::reverse(want.begin(), want.end());
    for (C& z : want) z = conjugate(z);
    ArrayCalls apart(f, std::to_string(length), {source(src), result(want)},
                     [=](auto p) { return f(in<C>(p[0]), out<C>(p[1]), length); });
    ArrayCalls same(f, std::to_string(length) + ", in place", {changed(src, want)},
                    [=](auto p) { return f(in<C>(p[0]), out<C>(p[0]), length); });
    if (everywhere) EXPECT_TRUE(apart.at_many_places(17) && same.at_many_places(9));
    else EXPECT_TRUE(apart.at(before_guard) && apart.at(misaligned(0)) && same.at(misaligned(8)));
}

TEST(ConjFlip, values)
{
    const auto check = []<class C>(const Export<OrvStatus, const C*, C*, int>& f) {
        for (const int n : layout_lengths()) expect_flipped(f, n, true);
        expect_flipped(f, length_beyond_caches<C>(), false);
    };
    check(ORV_EXPORT(orvsConjFlip_16sc));
    check(ORV_EXPORT(orvsConjFlip_32fc));
    check(ORV_EXPORT(orvsConjFlip_64fc));
}

TEST(Conj, checks)
{
    const auto all = [](const auto&... f) { (ArgumentChecks(f, 4).null_pointers().bad_lengths().run(), ...); };
    all(ORV_EXPORT(orvsConj_16sc), ORV_EXPORT(orvsConj_32fc), ORV_EXPORT(orvsConj_64fc));
    all(ORV_EXPORT(orvsConj_16sc_I), ORV_EXPORT(orvsConj_32fc_I), ORV_EXPORT(orvsConj_64fc_I));
    all(ORV_EXPORT(orvsConjFlip_16sc), ORV_EXPORT(orvsConjFlip_32fc), ORV_EXPORT(orvsConjFlip_64fc));
}

} // namespace
} // namespace orvtest
