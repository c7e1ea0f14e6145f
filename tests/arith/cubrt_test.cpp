// dst = cube root of src.
#include "orvs/arith.h"

#include "tests/arith/functions.h"
#include "tests/arith/real_functions.h"

#include <bit>

namespace orvtest {
namespace {

// ---- Single precision

TEST(Cubrt_32f, the_same_at_each_place)
{
    const auto f = ORV_EXPORT(orvsCubrt_32f);
    EXPECT_TRUE(sweep_values(f.with(), telling_floats<Orv32f>(), alone(f)));
}

TEST(Cubrt_32f, keeps_its_accuracy) { expect_accuracy(ORV_EXPORT(orvsCubrt_32f), functions::cube_root, 1.1); }

TEST(Cubrt_32f, of_special_values)
{
    using Limits = std::numeric_limits<Orv32f>;
    constexpr Orv32f infinity = Limits::infinity(), nan = Limits::quiet_NaN();
    expect_special<Orv32f, Orv32f>(ORV_EXPORT(orvsCubrt_32f), {{0.0f, 0.0f},
                                                               {-0.0f, -0.0f},
                                                               {infinity, infinity},
                                                               {-infinity, -infinity},
                                                               {1.0f, 1.0f},
                                                               {-1.0f, -1.0f},
                                                               {8.0f, 2.0f},
                                                               {-27.0f, -3.0f},
                                                               {0x1p-147f, 0x1p-49f},
                                                               {-0x1p-126f, -0x1p-42f},
                                                               {0x1p126f, 0x1p42f},
                                                               {nan, nan},
                                                               {-nan, nan},
                                                               {Limits::signaling_NaN(), nan}});
}

// ---- Integers

/// 2^-scale as a float, by its exponent: below 0 the scale counts modulo 128, above 126 the exponent wraps.
Orv32f scale_factor(int scale)
{
    const auto bits = static_cast<std::uint32_t>(scale);
    if (scale < 0) return std::bit_cast<Orv32f>(((0u - bits) % 128 << 23) + 0x3F800000);
    return std::bit_cast<Orv32f>(0x3F800000 - (bits << 23));
}

/// Where a wrapped factor is infinite, 0 has no result.
struct ScaledRoot {
    int scale;

    Orv16s operator()(Orv32s x) const
    {
        const Orv32f factor = scale_factor(scale);
        if (factor == 0 || x == 0) return 0;
        const int exponent = std::isinf(factor) ? 200 : std::ilogb(factor);
        return nearest<Orv16s>(CubeRoot(), std::signbit(factor) ? -std::int64_t{x} : x, -exponent);
    }
};

/// Arguments whose roots are at or next to halves of multiples of 2^scale.
std::vector<Orv32s> near_ties(int scale)
{
    std::vector<Orv32s> values = {0};
    const auto add_around = [&](long double x) {
        if (std::fabs(x) >= 0x1p32L) return;
        for (int distance = -2; distance <= 2; ++distance)
            values.push_back(limited<Orv32s>(std::llround(x) + distance));
    };
    Random random(static_cast<std::uint64_t>(scale + 1000));
    const long double step = std::ldexp(1.0L, scale), highest = 1291 / step;
    const auto add_tie = [&](long double k) {
        const long double root = (k + 0.5L) * step;
        add_around(root * root * root);
        add_around(-root * root * root);
    };
    for (int k = 0; k < 40; ++k) {
        add_tie(k);
        add_tie(std::floor(highest) - k);
        add_tie(std::floor(highest * static_cast<long double>(random.below(1 << 24)) * 0x1p-24L));
    }
    return values;
}

std::vector<Orv32s> cubes_and_others()
{
    std::vector<Orv32s> values = critical_values<Orv32s>(3, 3000);
    for (Orv32s n = 0; n <= 1290; ++n)
        for (const Orv32s distance : {-1, 0, 1}) {
            values.push_back(n * n * n + distance);
            values.push_back(-n * n * n + distance);
        }
    return values;
}

TEST(Cubrt_32s16s_Sfs, exact)
{
    const auto f = ORV_EXPORT(orvsCubrt_32s16s_Sfs);
    const auto values = critical_values<Orv32s>(2, 1000);
    for (const int scale : {-20, -9, -5, -3, -1, 0, 1, 2, 3, 5, 9, 12})
        EXPECT_TRUE(
            sweep_values(f.with(scale), values, ScaledRoot{scale}, options_at_scale(function_lengths(), scale, 40)));
}

TEST(Cubrt_32s16s_Sfs, exact_next_to_ties)
{
    const auto f = ORV_EXPORT(orvsCubrt_32s16s_Sfs);
    const auto values = cubes_and_others();
    for (int scale = -40; scale <= 20; ++scale) {
        if (!expect_values(f.with(scale), values, ScaledRoot{scale})) return;
        if (!expect_values(f.with(scale), near_ties(scale), ScaledRoot{scale})) return;
    }
}

TEST(Cubrt_32s16s_Sfs, dense)
{
    const auto f = ORV_EXPORT(orvsCubrt_32s16s_Sfs);
    std::vector<Orv32s> values;
    for (std::int64_t x = INT_MIN; x <= INT_MAX; x += 20'011) values.push_back(static_cast<Orv32s>(x));
    for (const int scale : {-6, -4, 0, 4}) EXPECT_TRUE(expect_values(f.with(scale), values, ScaledRoot{scale}));
}

TEST(Cubrt_32s16s_Sfs, its_factor_wraps)
{
    const auto f = ORV_EXPORT(orvsCubrt_32s16s_Sfs);
    std::vector<Orv32s> values = {1, -1, 2, -2, 8, 1000, -1000, 0x7FFFFFFF, INT_MIN};
    for (int i = 0; i < 30; ++i) values.push_back(3 * i * i * i - 1000);
    for (const int scale :
         {-130, -129, -128, -127, -126, -100, 100,  125,   126,     127,         128,     129,         130,
          250,  254,  255,  256,  257,  260,  300,  384,   512,     1000,        -135,    -200,        -254,
          -255, -256, -257, -260, -383, -384, -385, -1000, INT_MAX, INT_MAX - 1, INT_MIN, INT_MIN + 1, INT_MIN + 2})
        expect_values(f.with(scale), values, ScaledRoot{scale});
}

TEST(Cubrt_32s16s_Sfs, at_notable_scales)
{
    const auto check = [](Orv32s x, int scale, Orv16s want) {
        expect_values(ORV_EXPORT(orvsCubrt_32s16s_Sfs).with(scale), std::vector<Orv32s>(19, x),
                      [=](Orv32s) { return want; });
    };
    check(1, 1, 0);     // one half
    check(27, 1, 2);    // 1.5
    check(125, 1, 2);   // 2.5
    check(-125, 1, -2); // -2.5
    check(-343, 1, -4); // -3.5
    check(1, -14, 16384);
    check(1, -15, 32767);
    check(-1, -15, -32768);
    check(-1, -16, -32768);
    check(0, -40, 0);
    check(INT_MAX, 0, 1290);
    check(INT_MIN, 0, -1290);
    check(INT_MIN, 11, -1);
    check(INT_MIN, 12, 0);
}

// ---- Both

TEST(Cubrt, checks_pointers_before_length)
{
    expect_pointers_before_length(ORV_EXPORT(orvsCubrt_32f), 4);
    for (const int scale : {INT_MIN, -128, -1, 0, 1, 127, INT_MAX})
        expect_pointers_before_length(ORV_EXPORT(orvsCubrt_32s16s_Sfs), 4, scale);
}

TEST(Cubrt, does_not_depend_on_the_state)
{
    expect_the_same_in_any_state(ORV_EXPORT(orvsCubrt_32f).with(), telling_floats<Orv32f>());
    for (const int scale : {-20, -3, 0, 2, 126})
        expect_the_same_in_any_state(ORV_EXPORT(orvsCubrt_32s16s_Sfs).with(scale), cubes_and_others());
}

} // namespace
} // namespace orvtest
