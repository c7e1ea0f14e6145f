// Byte order.
#include "tests/arith/large.h"
#include "tests/convert/arrays.h"
#include "tests/support/checks.h"
#include "tests/support/elementwise.h"

#include "orvs/convert.h"

#include <algorithm>

namespace orvtest {
namespace {

constexpr auto swapped = []<class T>(T x) {
    T y = 0;
    for (std::size_t i = 0; i < sizeof x; ++i) y = static_cast<T>(y << 8 | (x >> 8 * i & 0xff));
    return y;
};

TEST(SwapBytes, words)
{
    const SweepOptions options = {.lengths = lengths_around({96, 127, 256, 1000})};
    EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsSwapBytes_16u), swapped, options));
    EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsSwapBytes_32u), swapped, options));
    EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsSwapBytes_64u), swapped, options));
    EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsSwapBytes_16u_I), swapped, options));
    EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsSwapBytes_32u_I), swapped, options));
    EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsSwapBytes_64u_I), swapped, options));
}
TEST(SwapBytes, of_large_arrays)
{
    EXPECT_TRUE(check_large(ORV_EXPORT(orvsSwapBytes_16u).with(), swapped));
    EXPECT_TRUE(check_large(ORV_EXPORT(orvsSwapBytes_32u).with(), swapped));
    EXPECT_TRUE(check_large(ORV_EXPORT(orvsSwapBytes_64u).with(), swapped));
}

void expect_swapped24(int length, bool everywhere)
{
    const auto f = ORV_EXPORT(orvsSwapBytes_24u);
    const auto in_place = ORV_EXPORT(orvsSwapBytes_24u_I);
    Random random(seed_of(f.name(), static_cast<std::uint64_t>(length)));
    const std::vector<Orv8u> src = inputs<Orv8u>(random, 3 * static_cast<std::size_t>(length));
    std::vector<Orv8u> want = src;
    for (std::size_t i = 0; i < want.size(); i += 3) std::swap(want[i], want[i + 2]);

    const std::string text = std::to_string(length);
    ArrayCalls apart(f, text, {source(src), result(want)},
                     [=](auto p) { return f(in<Orv8u>(p[0]), out<Orv8u>(p[1]), length); });
    ArrayCalls same(f, text + ", in place", {changed(src, want)},
                    [=](auto p) { return f(in<Orv8u>(p[0]), out<Orv8u>(p[0]), length); });
    ArrayCalls own(in_place, text, {changed(src, want)}, [=](auto p) { return in_place(out<Orv8u>(p[0]), length); });
    if (everywhere) EXPECT_TRUE(apart.at_many_places(33) && same.at_many_places(9) && own.at_many_places(33));
    else
        EXPECT_TRUE(apart.at(before_guard) && apart.at(misaligned(0)) && apart.at(misaligned(1)) &&
                    own.at(misaligned(2)));
}

TEST(SwapBytes, packed_samples)
{
    for (const int n : layout_lengths()) expect_swapped24(n, true);
    expect_swapped24(length_beyond_caches<Orv8u>() / 3, false);
}

TEST(SwapBytes, checks)
{
    const auto all = [](const auto&... f) { (ArgumentChecks(f, 4).null_pointers().bad_lengths().run(), ...); };
    all(ORV_EXPORT(orvsSwapBytes_16u), ORV_EXPORT(orvsSwapBytes_24u), ORV_EXPORT(orvsSwapBytes_32u),
        ORV_EXPORT(orvsSwapBytes_64u));
    all(ORV_EXPORT(orvsSwapBytes_16u_I), ORV_EXPORT(orvsSwapBytes_24u_I), ORV_EXPORT(orvsSwapBytes_32u_I),
        ORV_EXPORT(orvsSwapBytes_64u_I));
}

} // namespace
} // namespace orvtest
