#include "inputs.h"
#include "wide.h"

#include <climits>
#include <gtest/gtest.h>

namespace orvtest {
namespace {

constexpr Orv64s lowest64 = INT64_MIN;
constexpr Orv64s highest64 = INT64_MAX;

TEST(Wide, holds_every_integer_type)
{
    EXPECT_EQ(saturate<Orv64s>(Wide(lowest64)), lowest64);
    EXPECT_EQ(saturate<Orv64u>(Wide(UINT64_MAX)), UINT64_MAX);
    EXPECT_EQ(saturate<Orv32s>(Wide(Orv8s{-1})), -1);
    EXPECT_EQ(saturate<Orv32s>(Wide(Orv8u{255})), 255);
    EXPECT_LT(Wide(-1), Wide(0));
    EXPECT_LT(Wide(lowest64), Wide(-1));
    EXPECT_GT(Wide(UINT64_MAX), Wide(highest64));
}

TEST(Wide, keeps_what_64_bits_would_lose)
{
    const Wide two64 = Wide(UINT64_MAX) + 1;
    EXPECT_EQ(Wide(lowest64) + lowest64, -two64);
    EXPECT_EQ(Wide(lowest64) * lowest64 * 4, two64 * two64);
    EXPECT_EQ(Wide(UINT64_MAX) * UINT64_MAX, two64 * two64 - two64 * 2 + 1);
    EXPECT_EQ(two64 - two64, Wide(0));
    EXPECT_EQ(Wide(1) << 64, two64);
    EXPECT_EQ((Wide(1) << 190) >> 126, two64);
}

TEST(Wide, shifts_right_toward_minus_infinity)
{
    EXPECT_EQ(Wide(7) >> 1, Wide(3));
    EXPECT_EQ(Wide(-7) >> 1, Wide(-4));
    EXPECT_EQ(Wide(-1) >> 255, Wide(-1));
    EXPECT_EQ(Wide(highest64) >> 63, Wide(0));
    EXPECT_EQ((Wide(-5) << 100) >> 100, Wide(-5));
    EXPECT_EQ((Wide(-5) << 32) >> 32, Wide(-5)); // a shift by whole limbs
}

#ifdef __SIZEOF_INT128__
__extension__ typedef __int128 int128;

Wide wide_of(int128 x) { return (Wide(static_cast<Orv64s>(x >> 64)) << 64) + static_cast<Orv64u>(x); }

// The formula that vector kernels use: halve towards minus infinity after adding just less than half, or half if odd.
int128 rounding_shift(int128 x, int s) { return (x + ((int128{1} << (s - 1)) - 1) + ((x >> s) & 1)) >> s; }

TEST(Wide, agrees_with_the_compilers_128_bits)
{
    Random random(128);
    for (int i = 0; i < 20000; ++i) {
        const auto v = inputs<Orv64s>(random, 2);
        const int128 a = v[0], b = v[1];
        EXPECT_EQ(Wide(v[0]) + v[1], wide_of(a + b));
        EXPECT_EQ(Wide(v[0]) - v[1], wide_of(a - b));
        EXPECT_EQ(-Wide(v[0]), wide_of(-a));
        EXPECT_EQ(Wide(v[0]) * v[1], wide_of(a * b));
        EXPECT_EQ(Wide(v[0]) * v[1] < wide_of(a), a * b < a);
        const int s = 1 + static_cast<int>(random.below(62));
        EXPECT_EQ(wide_of(a * b) >> s, wide_of((a * b) >> s));
        EXPECT_EQ(Wide(v[0]) << s, wide_of(a * (int128{1} << s)));
        EXPECT_EQ(scale_law(Wide(v[0]) + v[1], s), wide_of(rounding_shift(a + b, s)))
            << v[0] << " " << v[1] << " " << s;
        if (HasFailure()) return;
    }
}
#endif

Orv64s scaled(Orv64s x, int scale, OrvRoundMode mode = orvRndNear)
{
    return saturate<Orv64s>(scale_law(Wide(x), scale, mode));
}

TEST(ScaleLaw, rounds_to_nearest_and_ties_to_even)
{
    EXPECT_EQ(scaled(5, 1), 2); // 2.5
    EXPECT_EQ(scaled(7, 1), 4); // 3.5
    EXPECT_EQ(scaled(-5, 1), -2);
    EXPECT_EQ(scaled(-7, 1), -4);
    EXPECT_EQ(scaled(1, 1), 0);
    EXPECT_EQ(scaled(-1, 1), 0);
    EXPECT_EQ(scaled(5, 2), 1); // 1.25
    EXPECT_EQ(scaled(7, 2), 2); // 1.75
    EXPECT_EQ(scaled(-7, 2), -2);
    EXPECT_EQ(scaled(65534, 16), 1);
    EXPECT_EQ(scaled(-65536, 17), 0);   // -0.5
    EXPECT_EQ(scaled(-65537, 17), -1);  // just past the tie
    EXPECT_EQ(scaled(lowest64, 64), 0); // -0.5
    EXPECT_EQ(scaled(lowest64, 63), -1);
}

TEST(ScaleLaw, truncates)
{
    EXPECT_EQ(scaled(7, 2, orvRndZero), 1);
    EXPECT_EQ(scaled(-7, 2, orvRndZero), -1);
    EXPECT_EQ(scaled(-8, 2, orvRndZero), -2);
    EXPECT_EQ(scaled(-1, 1, orvRndZero), 0);
}

TEST(ScaleLaw, rounds_ties_away_from_zero)
{
    EXPECT_EQ(scaled(1, 1, orvRndFinancial), 1);
    EXPECT_EQ(scaled(-1, 1, orvRndFinancial), -1);
    EXPECT_EQ(scaled(5, 1, orvRndFinancial), 3);
    EXPECT_EQ(scaled(-5, 1, orvRndFinancial), -3);
    EXPECT_EQ(scaled(5, 2, orvRndFinancial), 1);
    EXPECT_EQ(scaled(-5, 2, orvRndFinancial), -1);
    EXPECT_EQ(scaled(lowest64, 64, orvRndFinancial), -1);
    // Only the sum of two lowest values is a tie one place further on.
    EXPECT_EQ(saturate<Orv64s>(scale_law(Wide(lowest64) + lowest64, 65, orvRndFinancial)), -1);
}

TEST(ScaleLaw, saturates_last)
{
    EXPECT_EQ(scaled(3, -2), 12);
    EXPECT_EQ(scaled(highest64, -1), highest64);
    EXPECT_EQ(saturate<Orv16s>(scale_law(Wide(32767) + 1, 0)), 32767);
    EXPECT_EQ(saturate<Orv16s>(scale_law(Wide(1), -15)), 32767);
    EXPECT_EQ(saturate<Orv16s>(scale_law(Wide(-1), -15)), -32768);
    EXPECT_EQ(saturate<Orv8u>(scale_law(Wide(255) + 255, 1)), 255);
    EXPECT_EQ(saturate<Orv8u>(scale_law(Wide(-1), 0)), 0);
}

TEST(ScaleLaw, takes_any_scale)
{
    for (const Orv64s x : {Orv64s{1}, highest64}) {
        EXPECT_EQ(saturate<Orv64u>(scale_law(Wide(x) * x, INT_MIN)), UINT64_MAX);
        EXPECT_EQ(scaled(-x, INT_MIN), lowest64);
        EXPECT_EQ(scaled(-x, -64), lowest64);
        for (const OrvRoundMode mode : {orvRndZero, orvRndNear, orvRndFinancial}) {
            EXPECT_EQ(scaled(x, INT_MAX, mode), 0);
            EXPECT_EQ(scaled(-x, INT_MAX, mode), 0);
        }
    }
    EXPECT_EQ(scaled(0, INT_MIN), 0);
    EXPECT_EQ(scale_law((Wide(1) << 190) * -1, INT_MAX), Wide(0));
    EXPECT_LT(scale_law((Wide(1) << 190) * -1, INT_MIN), Wide(lowest64));
}

TEST(ScaleLaw, goes_by_component)
{
    const WideComplex z = exact(Orv16sc{3, -4}) * exact(Orv16sc{2, 1}); // 10 - 5i
    EXPECT_EQ(z, (WideComplex{10, -5}));
    const auto scaled_z = saturate<Orv16sc>(scale_law(z, 2));
    EXPECT_EQ(scaled_z.re, 2); // 2.5
    EXPECT_EQ(scaled_z.im, -1);
    const auto large = saturate<Orv8sc>(WideComplex{200, -200});
    EXPECT_EQ(large.re, 127);
    EXPECT_EQ(large.im, -128);
}

} // namespace
} // namespace orvtest
