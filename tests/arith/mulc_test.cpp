// dst = src * val.
#include "orvs/arith.h"

#include "tests/arith/caller_state.h"
#include "tests/arith/endless.h"
#include "tests/arith/large.h"
#include "tests/arith/products.h"

#include <bit>
#include <gtest/gtest.h>

namespace orvtest {
namespace {

// ---- Results

TEST(MulC_8u_Sfs, exact) { EXPECT_TRUE(sweep_products(ORV_EXPORT(orvsMulC_8u_Sfs))); }
TEST(MulC_8u_ISfs, exact) { EXPECT_TRUE(sweep_products(ORV_EXPORT(orvsMulC_8u_ISfs))); }
TEST(MulC_16u_Sfs, exact) { EXPECT_TRUE(sweep_products(ORV_EXPORT(orvsMulC_16u_Sfs))); }
TEST(MulC_16u_ISfs, exact) { EXPECT_TRUE(sweep_products(ORV_EXPORT(orvsMulC_16u_ISfs))); }
TEST(MulC_16s_I, exact) { EXPECT_TRUE(sweep_products(ORV_EXPORT(orvsMulC_16s_I))); }
TEST(MulC_16s_Sfs, exact) { EXPECT_TRUE(sweep_products(ORV_EXPORT(orvsMulC_16s_Sfs))); }
TEST(MulC_16s_ISfs, exact) { EXPECT_TRUE(sweep_products(ORV_EXPORT(orvsMulC_16s_ISfs))); }
TEST(MulC_16sc_Sfs, exact) { EXPECT_TRUE(sweep_products(ORV_EXPORT(orvsMulC_16sc_Sfs))); }
TEST(MulC_16sc_ISfs, exact) { EXPECT_TRUE(sweep_products(ORV_EXPORT(orvsMulC_16sc_ISfs))); }
TEST(MulC_32s_Sfs, exact) { EXPECT_TRUE(sweep_products(ORV_EXPORT(orvsMulC_32s_Sfs))); }
TEST(MulC_32s_ISfs, exact) { EXPECT_TRUE(sweep_products(ORV_EXPORT(orvsMulC_32s_ISfs))); }
TEST(MulC_32sc_Sfs, exact) { EXPECT_TRUE(sweep_products(ORV_EXPORT(orvsMulC_32sc_Sfs))); }
TEST(MulC_32sc_ISfs, exact) { EXPECT_TRUE(sweep_products(ORV_EXPORT(orvsMulC_32sc_ISfs))); }
TEST(MulC_64s_ISfs, exact) { EXPECT_TRUE(sweep_products(ORV_EXPORT(orvsMulC_64s_ISfs))); }

/// The first factor of a complex product is the vector's element, which follows the scalar in place.
constexpr Product in_place = product_with_second_first;

TEST(MulC_32f, ieee) { EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsMulC_32f), product, family_lengths())); }
TEST(MulC_32f_I, ieee) { EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsMulC_32f_I), in_place, family_lengths())); }
TEST(MulC_32fc, fused) { EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsMulC_32fc), product, family_lengths())); }
TEST(MulC_32fc_I, fused) { EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsMulC_32fc_I), in_place, family_lengths())); }
TEST(MulC_64f, ieee) { EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsMulC_64f), product, family_lengths())); }
TEST(MulC_64f_I, ieee) { EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsMulC_64f_I), in_place, family_lengths())); }
TEST(MulC_64fc, fused) { EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsMulC_64fc), product, family_lengths())); }
TEST(MulC_64fc_I, fused) { EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsMulC_64fc_I), in_place, family_lengths())); }

// ---- Results of mixed forms, from exact products of mantissas

/// mantissa * 2^exponent.
struct Dyadic {
    Wide mantissa;
    int exponent;

    friend Dyadic operator*(const Dyadic& a, const Dyadic& b)
    {
        return {a.mantissa * b.mantissa, a.exponent + b.exponent};
    }
};

Dyadic dyadic(Orv64f finite)
{
    int exponent = 0;
    const Orv64f fraction = std::frexp(finite, &exponent);
    return {static_cast<Orv64s>(std::ldexp(fraction, 53)), exponent - 53};
}

/// x * 2^-scale to nearest, ties to even.
Wide scaled(const Dyadic& x, int scale)
{
    const std::int64_t halvings = std::int64_t{scale} - x.exponent;
    return scale_law(x.mantissa, static_cast<int>(std::clamp<std::int64_t>(halvings, -64, 240)));
}

/// x as an integer, rounded as the processor is set.
Wide rounded_in_state(const Dyadic& x)
{
    const int places = std::min(-x.exponent, 240); // behind the point
    if (places <= 0) return scaled(x, 0);
    const Wide floor = x.mantissa >> places;
    const bool whole = (floor << places) == x.mantissa;
    switch (_mm_getcsr() & round_to_zero) {
    case round_down: return floor;
    case round_up: return whole ? floor : floor + 1;
    case round_to_zero: return scale_law(x.mantissa, places, orvRndZero);
    default: return scale_law(x.mantissa, places);
    }
}

/// The elements of MulC_32f16s_Sfs.
struct ScaledFloatProduct {
    int scale;

    Orv16s operator()(Orv32f a, Orv32f val) const
    {
        // The field of the exponent wraps: from an infinity to zero, and to negative factors.
        const auto factor = std::bit_cast<Orv32f>(0x3F800000u - (static_cast<Orv32u>(scale) << 23));
        bool any_zero = false, any_infinite = false, negative = false;
        Dyadic product = {1, 0};
        for (const Orv32f x : {a, val, factor}) {
            if (std::isnan(x)) return -32768;
            any_zero |= x == 0;
            any_infinite |= std::isinf(x);
            negative ^= std::signbit(x);
            if (std::isfinite(x)) product = product * dyadic(x);
        }
        if (any_infinite) return any_zero || negative ? -32768 : 32767;
        return saturate<Orv16s>(scaled(product, 0));
    }
};

/// The elements of MulC_Low_32f16s: two roundings.
const auto low_float_product = [](Orv32f a, Orv32f val) {
    const Orv32f product = a * val;
    if (std::isnan(product)) return Orv16s{-32768};
    if (std::isinf(product)) return product > 0 ? Orv16s{32767} : Orv16s{-32768};
    const bool hidden = std::abs(product) < std::numeric_limits<Orv32f>::min() && _mm_getcsr() & denormals_are_zero;
    if (hidden) return Orv16s{0};
    return saturate<Orv16s>(rounded_in_state(dyadic(product)));
};

/// The elements of MulC_64f64s_ISfs.
struct IntegerTimesFloat {
    int scale;

    Orv64s operator()(Orv64f val, Orv64s x) const
    {
        if (std::isnan(val) || x == 0) return 0;
        if (std::isinf(val)) return (val > 0) == (x > 0) ? INT64_MAX : INT64_MIN;
        return saturate<Orv64s>(scaled(dyadic(val) * Dyadic{x, 0}, scale));
    }
};
/// The same of a pair.
const auto integer_times_float = [](Orv64s x, Orv64f val, int scale) { return IntegerTimesFloat{scale}(val, x); };

/// Sweeps a mixed form at all scales from -reach to reach, the limits of their type and some others, in full at a few.
template <class Element, class... Args>
bool sweep_mixed(const Export<OrvStatus, Args...>& f, int reach, const std::vector<int>& other_scales)
{
    std::vector<int> all = scales(reach);
    all.insert(all.end(), other_scales.begin(), other_scales.end());
    for (const int scale : all)
        if (!sweep_elements(f.with(scale), Element{scale}, options_at_scale(family_lengths(), scale, reach)))
            return false;
    return true;
}

/// Beyond -128 to 126 the factor is an infinity, zero or negative; at 256 and 512 it is -1 and 1.
TEST(MulC_32f16s_Sfs, rounds_the_exact_product)
{
    EXPECT_TRUE(sweep_mixed<ScaledFloatProduct>(ORV_EXPORT(orvsMulC_32f16s_Sfs), 130, {-256, -12, 255, 256, 257, 512}));
}
TEST(MulC_Low_32f16s, rounds_the_rounded_product)
{
    EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsMulC_Low_32f16s), low_float_product, family_lengths()));
}
TEST(MulC_64f64s_ISfs, rounds_the_exact_product)
{
    EXPECT_TRUE(sweep_mixed<IntegerTimesFloat>(ORV_EXPORT(orvsMulC_64f64s_ISfs), 134, {-1100, -1000, -500, 500, 1000}));
}

// ---- Order of checks

TEST(MulC, checks_pointers_before_length)
{
    for (const Orv32f value : {0.0f, 1.0f, 5.0f, std::numeric_limits<Orv32f>::quiet_NaN()}) {
        expect_pointers_before_length(ORV_EXPORT(orvsMulC_32f), value, 4);
        expect_pointers_before_length(ORV_EXPORT(orvsMulC_32f_I), value, 4);
        expect_pointers_before_length(ORV_EXPORT(orvsMulC_32fc), Orv32fc{value, value}, 4);
        expect_pointers_before_length(ORV_EXPORT(orvsMulC_32fc_I), Orv32fc{value, value}, 4);
        expect_pointers_before_length(ORV_EXPORT(orvsMulC_64f), Orv64f{value}, 4);
        expect_pointers_before_length(ORV_EXPORT(orvsMulC_64f_I), Orv64f{value}, 4);
        expect_pointers_before_length(ORV_EXPORT(orvsMulC_64fc), Orv64fc{value, value}, 4);
        expect_pointers_before_length(ORV_EXPORT(orvsMulC_64fc_I), Orv64fc{value, value}, 4);
        expect_pointers_before_length(ORV_EXPORT(orvsMulC_Low_32f16s), value, 4);
        for (const int scale : {INT_MIN, -12, 0, 3, 200, INT_MAX})
            expect_pointers_before_length(ORV_EXPORT(orvsMulC_32f16s_Sfs), value, 4, scale);
    }
}

/// The checks come before the roads: neither values nor scales that need no arithmetic change anything.
TEST(MulC, checks_come_first_at_every_scale)
{
    for (const Orv8u value : {Orv8u{0}, Orv8u{1}, Orv8u{5}}) {
        const Orv16s value_16s = value;
        expect_pointers_before_length(ORV_EXPORT(orvsMulC_16s_I), value_16s, 4);
        for (const int scale : {INT_MIN, -100, -31, -20, -16, -8, -1, 0, 1, 17, 31, 33, 64, 100, INT_MAX}) {
            expect_pointers_before_length(ORV_EXPORT(orvsMulC_8u_Sfs), value, 4, scale);
            expect_pointers_before_length(ORV_EXPORT(orvsMulC_8u_ISfs), value, 4, scale);
            expect_pointers_before_length(ORV_EXPORT(orvsMulC_16u_Sfs), Orv16u{value}, 4, scale);
            expect_pointers_before_length(ORV_EXPORT(orvsMulC_16u_ISfs), Orv16u{value}, 4, scale);
            expect_pointers_before_length(ORV_EXPORT(orvsMulC_16s_Sfs), value_16s, 4, scale);
            expect_pointers_before_length(ORV_EXPORT(orvsMulC_16s_ISfs), value_16s, 4, scale);
            expect_pointers_before_length(ORV_EXPORT(orvsMulC_16sc_Sfs), Orv16sc{value_16s, value}, 4, scale);
            expect_pointers_before_length(ORV_EXPORT(orvsMulC_16sc_ISfs), Orv16sc{0, value}, 4, scale);
            expect_pointers_before_length(ORV_EXPORT(orvsMulC_32s_Sfs), Orv32s{value}, 4, scale);
            expect_pointers_before_length(ORV_EXPORT(orvsMulC_32s_ISfs), Orv32s{value}, 4, scale);
            expect_pointers_before_length(ORV_EXPORT(orvsMulC_32sc_Sfs), Orv32sc{value, value}, 4, scale);
            expect_pointers_before_length(ORV_EXPORT(orvsMulC_32sc_ISfs), Orv32sc{0, value}, 4, scale);
        }
    }
}

TEST(MulC, of_64_bits_refuses_null_pointers_and_then_only_the_length_0)
{
    for (const int scale : {INT_MIN, -63, -1, 0, 1, 5, 64, 127, 128, INT_MAX}) {
        for (const Orv64s value : {0, 1, 5}) {
            const auto f = ORV_EXPORT(orvsMulC_64s_ISfs);
            ArgumentChecks(f, value, 4, scale).null_pointers().bad<2>(0, orvErrBadLength).run();
        }
        for (const Orv64f value : {0.0, 1.0, 0.3, HUGE_VAL, std::nan("")}) {
            const auto f = ORV_EXPORT(orvsMulC_64f64s_ISfs);
            ArgumentChecks(f, value, 4, scale).null_pointers().bad<2>(0, orvErrBadLength).run();
        }
    }
}

template <class T>
void expect_nothing_at_negative_lengths(const Export<OrvStatus, T, Orv64s*, int, int>& f,
                                        const std::vector<std::type_identity_t<T>>& values)
{
    const std::vector<Orv64s> before = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10};
    GuardedArray<Orv64s> d(before);
    for (const T value : values)
        for (const int length : {-1, -2, -4, -8, -1000, INT_MIN + 1, INT_MIN})
            for (const int scale : {INT_MIN, -63, -1, 0, 1, 2, 63, 64, 127, 128, INT_MAX}) {
                EXPECT_EQ(f(value, d.data(), length, scale), orvOk) << length << ", scale " << scale;
                EXPECT_TRUE(expect_elements(f, d, before)) << length << ", scale " << scale;
                EXPECT_EQ(f(value, nullptr, length, scale), orvErrNullPointer) << length;
            }
}

TEST(MulC, of_64_bits_accepts_a_negative_length_and_does_nothing)
{
    expect_nothing_at_negative_lengths(ORV_EXPORT(orvsMulC_64s_ISfs), {0, 1, -7, INT64_MIN});
    expect_nothing_at_negative_lengths(ORV_EXPORT(orvsMulC_64f64s_ISfs), {0.0, 1.0, -7.5, HUGE_VAL, std::nan("")});
}

// ---- Notable products

TEST(MulC, by_0_is_0_at_every_scale)
{
    for (const int scale : {INT_MIN, -64, -33, -20, -16, -8, -1, 0, 1, 8, 31, 64, INT_MAX}) {
        EXPECT_EQ(result_of(ORV_EXPORT(orvsMulC_8u_Sfs), 255, 0, scale), 0) << scale;
        EXPECT_EQ(result_of(ORV_EXPORT(orvsMulC_16u_Sfs), 65535, 0, scale), 0) << scale;
        EXPECT_EQ(result_of(ORV_EXPORT(orvsMulC_16s_Sfs), -32768, 0, scale), 0) << scale;
        EXPECT_EQ(result_of(ORV_EXPORT(orvsMulC_16s_ISfs), 32767, 0, scale), 0) << scale;
        EXPECT_EQ(result_of(ORV_EXPORT(orvsMulC_32s_Sfs), INT32_MIN, 0, scale), 0) << scale;
        EXPECT_EQ(result_of(ORV_EXPORT(orvsMulC_64s_ISfs), INT64_MIN, 0, scale), 0) << scale;
        EXPECT_EQ(result_of(ORV_EXPORT(orvsMulC_64f64s_ISfs), INT64_MIN, 0.0, scale), 0) << scale;
        EXPECT_EQ(result_of(ORV_EXPORT(orvsMulC_64f64s_ISfs), INT64_MAX, -0.0, scale), 0) << scale;
        const auto f = ORV_EXPORT(orvsMulC_16sc_Sfs);
        expect_value(f, result_of(f, {-32768, 32767}, {0, 0}, scale), {0, 0});
        const auto g = ORV_EXPORT(orvsMulC_32sc_Sfs);
        expect_value(g, result_of(g, {INT32_MIN, INT32_MAX}, {0, 0}, scale), {0, 0});
    }
}

TEST(MulC, of_8u_at_notable_scales)
{
    const auto f = ORV_EXPORT(orvsMulC_8u_Sfs);
    EXPECT_EQ(result_of(f, 77, 1, 0), 77);
    EXPECT_EQ(result_of(f, 128, 2, 0), 255);
    EXPECT_EQ(result_of(f, 5, 1, 1), 2);      // 2.5
    EXPECT_EQ(result_of(f, 7, 1, 1), 4);      // 3.5
    EXPECT_EQ(result_of(f, 255, 255, 16), 1); // 0.99
    EXPECT_EQ(result_of(f, 255, 255, 17), 0);
    EXPECT_EQ(result_of(f, 1, 1, -7), 128);
    for (const int scale : {-8, -9, -32, INT_MIN}) {
        EXPECT_EQ(result_of(f, 1, 1, scale), 255) << scale;
        EXPECT_EQ(result_of(f, 128, 2, scale), 255) << scale; // 256 is not 0
        EXPECT_EQ(result_of(f, 0, 255, scale), 0) << scale;
    }
}

TEST(MulC, of_16_bits_at_notable_scales)
{
    const auto f = ORV_EXPORT(orvsMulC_16s_Sfs);
    EXPECT_EQ(result_of(f, -1234, 1, 0), -1234);
    EXPECT_EQ(result_of(f, -32768, -1, 0), 32767);
    EXPECT_EQ(result_of(f, -32768, -32768, 0), 32767);
    EXPECT_EQ(result_of(f, 5, 1, 1), 2);                // 2.5
    EXPECT_EQ(result_of(f, 5, -1, 1), -2);              // -2.5
    EXPECT_EQ(result_of(f, 16384, 3, 15), 2);           // 1.5
    EXPECT_EQ(result_of(f, -32768, -32768, 15), 32767); // 32768
    EXPECT_EQ(result_of(f, -32768, -32768, 30), 1);
    EXPECT_EQ(result_of(f, -32768, 32767, 30), -1);
    for (const int scale : {31, 32, 64, INT_MAX}) EXPECT_EQ(result_of(f, -32768, -32768, scale), 0) << scale;
    EXPECT_EQ(result_of(f, -1, 1, -15), -32768);
    for (const int scale : {-15, -16, -17, -32, -33, INT_MIN})
        for (const Orv16s value : {Orv16s{1}, Orv16s{256}, Orv16s{32767}}) {
            const auto opposite = static_cast<Orv16s>(-value);
            EXPECT_EQ(result_of(f, 256, value, scale), 32767) << scale;
            EXPECT_EQ(result_of(f, -256, value, scale), -32768) << scale;
            EXPECT_EQ(result_of(f, 256, opposite, scale), -32768) << scale;
            EXPECT_EQ(result_of(f, -32768, opposite, scale), 32767) << scale;
            EXPECT_EQ(result_of(f, 0, value, scale), 0) << scale;
            EXPECT_EQ(result_of(f, 0, opposite, scale), 0) << scale;
        }

    const auto g = ORV_EXPORT(orvsMulC_16u_Sfs);
    EXPECT_EQ(result_of(g, 256, 256, 0), 65535);
    EXPECT_EQ(result_of(g, 65535, 65535, 16), 65534); // 65534.00002
    EXPECT_EQ(result_of(g, 65535, 65535, 32), 1);
    EXPECT_EQ(result_of(g, 65535, 65535, 33), 0);
    EXPECT_EQ(result_of(g, 1, 1, -15), 32768);
    EXPECT_EQ(result_of(g, 256, 256, -16), 65535);
    EXPECT_EQ(result_of(g, 0, 65535, INT_MIN), 0);
}

TEST(MulC, of_32s_at_notable_scales)
{
    const auto f = ORV_EXPORT(orvsMulC_32s_Sfs);
    EXPECT_EQ(result_of(f, -123456789, 1, 0), -123456789);
    EXPECT_EQ(result_of(f, INT32_MIN, -1, 0), INT32_MAX);
    EXPECT_EQ(result_of(f, 65536, 65536, 0), INT32_MAX);
    EXPECT_EQ(result_of(f, INT32_MIN, INT32_MIN, 31), INT32_MAX);
    EXPECT_EQ(result_of(f, 1 << 30, 3, 31), 2);         // 1.5
    EXPECT_EQ(result_of(f, INT32_MIN, 1 << 30, 62), 0); // minus one half
    EXPECT_EQ(result_of(f, INT32_MIN, INT32_MIN, 62), 1);
    for (const int scale : {63, 64, 65, INT_MAX}) EXPECT_EQ(result_of(f, INT32_MIN, INT32_MIN, scale), 0) << scale;
    for (const int scale : {-31, -32, -33, -64, INT_MIN}) {
        EXPECT_EQ(result_of(f, 65536, 65536, scale), INT32_MAX) << scale; // its low half is 0
        EXPECT_EQ(result_of(f, 65536, -65536, scale), INT32_MIN) << scale;
        EXPECT_EQ(result_of(f, 0, -65536, scale), 0) << scale;
    }
}

TEST(MulC, of_complex_integers_beyond_twice_their_width)
{
    const auto f = ORV_EXPORT(orvsMulC_16sc_Sfs);
    expect_value(f, result_of(f, {1, 2}, {10, 100}, 0), {-190, 120});
    constexpr Orv16sc corner = {-32768, -32768};
    for (const int scale : {0, 1, 15, 16}) expect_value(f, result_of(f, corner, corner, scale), {0, 32767}); // 2^31
    expect_value(f, result_of(f, corner, corner, 17), {0, 16384});
    expect_value(f, result_of(f, corner, corner, 31), {0, 1});
    expect_value(f, result_of(f, corner, corner, 32), {0, 0}); // one half
    expect_value(f, result_of(f, corner, corner, INT_MAX), {0, 0});
    expect_value(f, result_of(f, corner, {-32768, 32767}, 17), {16384, 0}); // 2^14 - 1/4 and 1/4
    for (const int scale : {-1, -16, -32, INT_MIN}) expect_value(f, result_of(f, corner, corner, scale), {0, 32767});

    const auto g = ORV_EXPORT(orvsMulC_32sc_Sfs);
    expect_value(g, result_of(g, {1, 2}, {10, 100}, 0), {-190, 120});
    constexpr Orv32sc corner_32 = {INT32_MIN, INT32_MIN};
    for (const int scale : {0, 1, 31, 32})
        expect_value(g, result_of(g, corner_32, corner_32, scale), {0, INT32_MAX}); // 2^63
    expect_value(g, result_of(g, corner_32, corner_32, 33), {0, 1 << 30});
    expect_value(g, result_of(g, corner_32, corner_32, 63), {0, 1});
    expect_value(g, result_of(g, corner_32, corner_32, 64), {0, 0}); // one half
    expect_value(g, result_of(g, corner_32, corner_32, INT_MAX), {0, 0});
    for (const int scale : {-1, -32, -64, INT_MIN})
        expect_value(g, result_of(g, corner_32, corner_32, scale), {0, INT32_MAX});
}

TEST(MulC, of_complex_minima_at_every_scale)
{
    expect_products_of_minima(ORV_EXPORT(orvsMulC_16sc_Sfs), Orv16sc{-32768, -32768});
    expect_products_of_minima(ORV_EXPORT(orvsMulC_32sc_Sfs), Orv32sc{INT32_MIN, INT32_MIN});
}

TEST(MulC, of_64s_at_notable_scales)
{
    const auto f = ORV_EXPORT(orvsMulC_64s_ISfs);
    constexpr Orv64s two_to_32 = Orv64s{1} << 32;
    EXPECT_EQ(result_of(f, -1234567890123, 1, 0), -1234567890123);
    EXPECT_EQ(result_of(f, INT64_MIN, -1, 0), INT64_MAX);
    EXPECT_EQ(result_of(f, INT64_MIN, INT64_MIN, 0), INT64_MAX);
    EXPECT_EQ(result_of(f, INT64_MIN, INT64_MAX, 0), INT64_MIN);
    EXPECT_EQ(result_of(f, two_to_32, two_to_32, 0), INT64_MAX); // its low half is 0
    EXPECT_EQ(result_of(f, two_to_32, -two_to_32, 0), INT64_MIN);
    EXPECT_EQ(result_of(f, 3, 5, 1), 8);   // 7.5
    EXPECT_EQ(result_of(f, 3, -3, 1), -4); // -4.5
    EXPECT_EQ(result_of(f, two_to_32, two_to_32 / 2, 63), 1);
    EXPECT_EQ(result_of(f, INT64_MIN, INT64_MIN, 63), INT64_MAX); // 2^63
    EXPECT_EQ(result_of(f, INT64_MIN, INT64_MAX, 63), -INT64_MAX);
    EXPECT_EQ(result_of(f, INT64_MIN, INT64_MIN, 64), Orv64s{1} << 62);
    EXPECT_EQ(result_of(f, two_to_32, two_to_32, 64), 1);
    EXPECT_EQ(result_of(f, two_to_32, two_to_32, 65), 0); // one half
    EXPECT_EQ(result_of(f, two_to_32, 3 * two_to_32, 65), 2);
    EXPECT_EQ(result_of(f, two_to_32 + 1, two_to_32, 65), 1); // above one half
    EXPECT_EQ(result_of(f, INT64_MIN, 1, 64), 0);             // minus one half
    EXPECT_EQ(result_of(f, INT64_MIN, 3, 64), -2);            // -1.5
    EXPECT_EQ(result_of(f, INT64_MIN, INT64_MIN, 125), 2);
    EXPECT_EQ(result_of(f, INT64_MIN, INT64_MIN, 126), 1);
    EXPECT_EQ(result_of(f, INT64_MIN, INT64_MAX, 126), -1);
    EXPECT_EQ(result_of(f, INT64_MIN, INT64_MIN / 2, 126), 0);     // one half
    EXPECT_EQ(result_of(f, INT64_MIN, INT64_MIN / 2 - 1, 126), 1); // a single bit above
    for (const int scale : {127, 128, 129, 192, 256, INT_MAX}) {
        EXPECT_EQ(result_of(f, INT64_MIN, INT64_MIN, scale), 0) << scale; // at 127 one half
        EXPECT_EQ(result_of(f, INT64_MIN, INT64_MAX, scale), 0) << scale;
    }
    EXPECT_EQ(result_of(f, 1, 1, -62), Orv64s{1} << 62);
    EXPECT_EQ(result_of(f, -1, 1, -63), INT64_MIN);
    for (const int scale : {-63, -64, -65, -127, -128, -129, INT_MIN}) {
        EXPECT_EQ(result_of(f, 1, 1, scale), INT64_MAX) << scale;
        EXPECT_EQ(result_of(f, 1, -1, scale), INT64_MIN) << scale;
        EXPECT_EQ(result_of(f, 0, -1, scale), 0) << scale;
        EXPECT_EQ(result_of(f, two_to_32, two_to_32, scale), INT64_MAX) << scale;
        EXPECT_EQ(result_of(f, INT64_MIN, INT64_MIN, scale), INT64_MAX) << scale;
    }
}

TEST(MulC, of_64s_by_floats)
{
    const auto f = ORV_EXPORT(orvsMulC_64f64s_ISfs);
    EXPECT_EQ(result_of(f, 3, 0.5, 0), 2);   // 1.5
    EXPECT_EQ(result_of(f, 5, 0.5, 0), 2);   // 2.5
    EXPECT_EQ(result_of(f, 5, -0.5, 0), -2); // -2.5
    EXPECT_EQ(result_of(f, 5, 1, 1), 2);
    EXPECT_EQ(result_of(f, 100, 0.01, -1), 2);
    // All bits of the integers count.
    EXPECT_EQ(result_of(f, INT64_MAX - 1, 1, 0), INT64_MAX - 1);
    EXPECT_EQ(result_of(f, INT64_MIN + 1, -1, 0), INT64_MAX);
    EXPECT_EQ(result_of(f, INT64_MIN, -1, 0), INT64_MAX);
    EXPECT_EQ(result_of(f, INT64_MIN, 1, 0), INT64_MIN);
    EXPECT_EQ(result_of(f, (Orv64s{1} << 53) + 1, 3, 0), (Orv64s{3} << 53) + 3);
    EXPECT_EQ(result_of(f, Orv64s{1} << 62, 1, 63), 0);           // one half
    EXPECT_EQ(result_of(f, (Orv64s{1} << 62) + 1, 1, 63), 1);     // a single bit above
    EXPECT_EQ(result_of(f, Orv64s{1} << 62, 1 + 0x1p-52, 63), 1); // the same in the factor
    EXPECT_EQ(result_of(f, INT64_MIN / 2, 1 + 0x1p-52, 63), -1);
    EXPECT_EQ(result_of(f, INT64_MIN / 2, 1 - 0x1p-53, 63), 0);
    EXPECT_EQ(result_of(f, INT64_MAX, 0x1p63, 126), 1);
    EXPECT_EQ(result_of(f, INT64_MAX, 0x1p63, 63), INT64_MAX);
    EXPECT_EQ(result_of(f, INT64_MAX - 1, 0x1p-200, -200), INT64_MAX - 1);
}

TEST(MulC, of_64s_by_floats_at_their_limits)
{
    const auto f = ORV_EXPORT(orvsMulC_64f64s_ISfs);
    using Limits = std::numeric_limits<Orv64f>;
    for (const int scale : {INT_MIN, -2000, -1074, -64, -1, 0, 1, 64, 1024, 2000, INT_MAX}) {
        EXPECT_EQ(result_of(f, 1, Limits::infinity(), scale), INT64_MAX) << scale;
        EXPECT_EQ(result_of(f, -5, Limits::infinity(), scale), INT64_MIN) << scale;
        EXPECT_EQ(result_of(f, INT64_MAX, -Limits::infinity(), scale), INT64_MIN) << scale;
        EXPECT_EQ(result_of(f, INT64_MIN, -Limits::infinity(), scale), INT64_MAX) << scale;
        EXPECT_EQ(result_of(f, 0, Limits::infinity(), scale), 0) << scale;
        EXPECT_EQ(result_of(f, 0, -Limits::infinity(), scale), 0) << scale;
        EXPECT_EQ(result_of(f, 1, Limits::quiet_NaN(), scale), 0) << scale;
        EXPECT_EQ(result_of(f, INT64_MIN, -Limits::quiet_NaN(), scale), 0) << scale;
    }
    // The least subnormal number, 2^-1074.
    EXPECT_EQ(result_of(f, 3, Limits::denorm_min(), -1074), 3);
    EXPECT_EQ(result_of(f, 3, Limits::denorm_min(), -1073), 2); // 1.5
    EXPECT_EQ(result_of(f, 5, -Limits::denorm_min(), -1073), -2);
    EXPECT_EQ(result_of(f, INT64_MIN, Limits::denorm_min(), -1011), -1);
    EXPECT_EQ(result_of(f, INT64_MIN, Limits::denorm_min(), -1010), 0); // minus one half
    EXPECT_EQ(result_of(f, INT64_MIN, Limits::denorm_min(), 0), 0);
    EXPECT_EQ(result_of(f, 1, Limits::denorm_min(), -1136), Orv64s{1} << 62);
    EXPECT_EQ(result_of(f, 1, Limits::denorm_min(), -1137), INT64_MAX);
    EXPECT_EQ(result_of(f, 1, 0x0.fffffffffffffp-1022, -1074), (Orv64s{1} << 52) - 1); // the largest subnormal one
    // The largest number, 2^1024 - 2^971.
    EXPECT_EQ(result_of(f, 1, Limits::max(), 971), (Orv64s{1} << 53) - 1);
    EXPECT_EQ(result_of(f, -1, Limits::max(), 1024), -1);
    EXPECT_EQ(result_of(f, 1, Limits::max(), 1025), 0); // just below one half
    EXPECT_EQ(result_of(f, INT64_MIN, Limits::max(), 1087), -1);
    EXPECT_EQ(result_of(f, INT64_MIN, Limits::max(), 1088), 0);
    EXPECT_EQ(result_of(f, -1, Limits::max(), 0), INT64_MIN);
    // Scales where their difference to an exponent has left the type int.
    for (const Orv64f value : {Limits::denorm_min(), 1.0, Limits::max()})
        for (const int distance : {0, 1, 1000, 1200}) {
            EXPECT_EQ(result_of(f, 1, value, INT_MIN + distance), INT64_MAX) << value;
            EXPECT_EQ(result_of(f, 1, -value, INT_MIN + distance), INT64_MIN) << value;
            EXPECT_EQ(result_of(f, 0, -value, INT_MIN + distance), 0) << value;
            EXPECT_EQ(result_of(f, INT64_MIN, value, INT_MAX - distance), 0) << value;
        }
}

TEST(MulC, of_32f16s_rounds_and_saturates)
{
    const auto f = ORV_EXPORT(orvsMulC_32f16s_Sfs);
    constexpr Orv32f infinity = std::numeric_limits<Orv32f>::infinity(), nan = std::numeric_limits<Orv32f>::quiet_NaN();
    EXPECT_EQ(result_of(f, 2.5f, 1, 0), 2);
    EXPECT_EQ(result_of(f, 3.5f, 1, 0), 4);
    EXPECT_EQ(result_of(f, 2.5f, -1, 0), -2);
    EXPECT_EQ(result_of(f, 5, 1, 1), 2);
    EXPECT_EQ(result_of(f, 0.75f, 2, -2), 6);
    EXPECT_EQ(result_of(f, 32767.25f, 1, 0), 32767);
    EXPECT_EQ(result_of(f, 32767.5f, 1, 0), 32767);
    EXPECT_EQ(result_of(f, 65534, 0.5f, 0), 32767);
    EXPECT_EQ(result_of(f, 32768.5f, -1, 0), -32768);
    EXPECT_EQ(result_of(f, 32769, -1, 0), -32768);
    for (const Orv32f large : {40000.0f, 0x1p31f, 0x1p32f, 0x1p63f, 1e30f, std::numeric_limits<Orv32f>::max()})
        for (const Orv32f value : {1.0f, 2.0f, 1e15f, 1e30f}) {
            EXPECT_EQ(result_of(f, large, value, 0), 32767) << large;
            EXPECT_EQ(result_of(f, large, -value, 0), -32768) << large;
            EXPECT_EQ(result_of(f, -large, -value, -100), 32767) << large;
        }
    EXPECT_EQ(result_of(f, infinity, 1, 0), 32767);
    EXPECT_EQ(result_of(f, infinity, -1, 126), -32768);
    EXPECT_EQ(result_of(f, -infinity, infinity, 3), -32768);
    EXPECT_EQ(result_of(f, nan, 1, 0), -32768);
    EXPECT_EQ(result_of(f, 1, nan, 0), -32768);
    EXPECT_EQ(result_of(f, 0, infinity, 0), -32768); // no number
    EXPECT_EQ(result_of(f, infinity, 0, 5), -32768);
    // Products beyond the range of floats that come back by their scale.
    EXPECT_EQ(result_of(f, 0x1p70f, 0x1p70f, 126), 16384);
    EXPECT_EQ(result_of(f, -0x1p70f, 0x1.8p57f, 126), -3);
    EXPECT_EQ(result_of(f, 0x1.8p-100f, 0x1p-27f, -127), 2);                                // 1.5
    EXPECT_EQ(result_of(f, 0x1.7ffffep-100f, 0x1p-27f, -127), 1);                           // just below
    EXPECT_EQ(result_of(f, std::numeric_limits<Orv32f>::denorm_min(), 0x1.8p22f, -127), 2); // 1.5
}

TEST(MulC, of_32f16s_takes_scales_as_the_exponent_of_a_float_does)
{
    const auto f = ORV_EXPORT(orvsMulC_32f16s_Sfs);
    EXPECT_EQ(result_of(f, 0x1p100f, 0x1p26f, 126), 1);
    EXPECT_EQ(result_of(f, 1e30f, -1e30f, 127), 0);
    EXPECT_EQ(result_of(f, 1e-30f, 1, -128), 32767);
    EXPECT_EQ(result_of(f, 1e-30f, -1, -128), -32768);
    EXPECT_EQ(result_of(f, 3, 5, 256), -15);
    EXPECT_EQ(result_of(f, 3, 5, 512), 15);
    EXPECT_EQ(result_of(f, 3, 5, INT_MIN), 15);
    EXPECT_EQ(result_of(f, 3, 5, INT_MAX), 30);
}

/// Products near ties: what a float rounds to the tie itself is on one of its sides.
TEST(MulC, of_32f16s_rounds_once_and_low_rounds_twice)
{
    const auto f = ORV_EXPORT(orvsMulC_32f16s_Sfs);
    const auto low = ORV_EXPORT(orvsMulC_Low_32f16s);
    for (const Orv32f value : {3.0f, -7.0f, 1.1f, 0.3f, 77.7f}) {
        std::vector<Orv32f> src;
        std::vector<Orv16s> once, twice;
        for (int i = 0; i < 3000; ++i) {
            src.push_back((static_cast<Orv32f>(i) + 0.5f) / value);
            once.push_back(ScaledFloatProduct{0}(src.back(), value));
            twice.push_back(low_float_product(src.back(), value));
        }
        EXPECT_NE(once, twice);
        const int n = static_cast<int>(src.size());
        std::vector<Orv16s> d(src.size());
        EXPECT_EQ(f(src.data(), value, d.data(), n, 0), orvOk);
        expect_elements(f, d, once);
        EXPECT_EQ(f(src.data(), value * 0x1p20f, d.data(), n, 20), orvOk);
        expect_elements(f, d, once);
        EXPECT_EQ(f(src.data(), value * 0x1p-100f, d.data(), n, -100), orvOk);
        expect_elements(f, d, once);
        EXPECT_EQ(low(src.data(), value, d.data(), n), orvOk);
        expect_elements(low, d, twice);
    }
    EXPECT_EQ(result_of(f, 3, 0x1.555556p-3f, 0), 1); // 0.50000001
    EXPECT_EQ(result_of(f, 3, 0x1.2aaaaap+0f, 0), 3); // 3.4999999
}

TEST(MulC, of_low_32f16s_saturates)
{
    const auto f = ORV_EXPORT(orvsMulC_Low_32f16s);
    constexpr Orv32f infinity = std::numeric_limits<Orv32f>::infinity(), nan = std::numeric_limits<Orv32f>::quiet_NaN();
    const std::vector<Orv32f> src = {2.5f,  3.5f,   -2.5f, 32767.25f, 32767.5f,  -32768.5f, 40000, -40000, 0x1p31f,
                                     1e30f, -1e30f, 1e38f, infinity,  -infinity, nan,       0,     -0.0f};
    const std::vector<Orv16s> want = {2,     4,      -2,    32767, 32767,  -32768, 32767, -32768, 32767,
                                      32767, -32768, 32767, 32767, -32768, -32768, 0,     0};
    std::vector<Orv16s> opposite, d(src.size());
    for (const Orv32f x : src) opposite.push_back(low_float_product(x, -1));
    const int n = static_cast<int>(src.size());
    EXPECT_EQ(f(src.data(), 1, d.data(), n), orvOk);
    expect_elements(f, d, want);
    EXPECT_EQ(f(src.data(), -1, d.data(), n), orvOk);
    expect_elements(f, d, opposite);
    const std::vector<Orv32f> large(41, 1e30f), zeros(41, 0.0f);
    std::vector<Orv16s> e(41);
    EXPECT_EQ(f(large.data(), -1e30f, e.data(), 41), orvOk);
    expect_elements(f, e, std::vector<Orv16s>(41, -32768));
    EXPECT_EQ(f(zeros.data(), infinity, e.data(), 41), orvOk);
    expect_elements(f, e, std::vector<Orv16s>(41, -32768));
}

/// The order of the fused operations: the scalar is the second factor.
TEST(MulC, of_complex_floats_takes_the_scalar_as_the_second_factor)
{
    constexpr Orv64f step = std::numeric_limits<Orv64f>::epsilon(), above = 1 + step;
    // im: a.im * b.re is rounded to 1 + 2 step, and b.im * a.re = -1 - 2 step is exact.
    const Orv64fc a = {-1, above}, b = {above, 1 + 2 * step};
    const std::vector<Orv64fc> as(9, a), bs(9, b);
    std::vector<Orv64fc> d(9);
    EXPECT_EQ(ORV_EXPORT(orvsMulC_64fc)(as.data(), b, d.data(), 9), orvOk);
    EXPECT_EQ(d[8].im, 0);
    EXPECT_EQ(ORV_EXPORT(orvsMulC_64fc)(bs.data(), a, d.data(), 9), orvOk);
    EXPECT_EQ(d[8].im, step * step);
    d = as;
    EXPECT_EQ(ORV_EXPORT(orvsMulC_64fc_I)(b, d.data(), 9), orvOk);
    EXPECT_EQ(d[8].im, 0);
    d = bs;
    EXPECT_EQ(ORV_EXPORT(orvsMulC_64fc_I)(a, d.data(), 9), orvOk);
    EXPECT_EQ(d[8].im, step * step);
}

// ---- Every pair of a set of operands

TEST(MulC, of_all_pairs_of_8u)
{
    const Pairs pairs(all_bytes<Orv8u>(), all_bytes<Orv8u>());
    expect_all_pairs(ORV_EXPORT(orvsMulC_8u_Sfs), pairs, -10, 18, scaled_product<Orv8u>);
}
TEST(MulC, of_critical_pairs_of_16s)
{
    const Pairs pairs(critical_values<Orv16s>(3, 150), critical_values<Orv16s>(1, 20));
    expect_all_pairs(ORV_EXPORT(orvsMulC_16s_Sfs), pairs, -17, 33, scaled_product<Orv16s>);
}
TEST(MulC, of_critical_pairs_of_16u)
{
    const Pairs pairs(critical_values<Orv16u>(3, 150), critical_values<Orv16u>(1, 20));
    expect_all_pairs(ORV_EXPORT(orvsMulC_16u_Sfs), pairs, -17, 34, scaled_product<Orv16u>);
}
TEST(MulC, of_critical_pairs_of_32s)
{
    const Pairs pairs(critical_values<Orv32s>(1, 20), critical_values<Orv32s>(0, 5, 4));
    expect_all_pairs(ORV_EXPORT(orvsMulC_32s_Sfs), pairs, -33, 65, ScaledProduct<Orv32s>());
}
TEST(MulC, of_critical_pairs_of_16sc)
{
    const auto values = complex_values<Orv16sc>(critical_parts<Orv16s>());
    expect_all_pairs(ORV_EXPORT(orvsMulC_16sc_Sfs), Pairs(values, values), -34, 34, ScaledProduct<Orv16sc>());
}
TEST(MulC, of_critical_pairs_of_32sc)
{
    const auto values = complex_values<Orv32sc>(critical_parts<Orv32s>());
    expect_all_pairs(ORV_EXPORT(orvsMulC_32sc_Sfs), Pairs(values, values), -34, 66, ScaledProduct<Orv32sc>());
}
TEST(MulC, of_critical_pairs_of_64s)
{
    const Pairs pairs(critical_values<Orv64s>(0, 20), critical_values<Orv64s>(0, 5, 5));
    expect_all_pairs(ORV_EXPORT(orvsMulC_64s_ISfs), pairs, -130, 130, ScaledProduct<Orv64s>());
}
/// At the scales where the product of the largest elements comes down to a few bits, where that of 1 meets the limits,
/// and between; and at the limits of scales.
TEST(MulC, of_critical_pairs_of_64s_and_64f)
{
    using Limits = std::numeric_limits<Orv64f>;
    const auto values = critical_values<Orv64s>(0, 20, 3);
    std::vector<Orv64f> factors = {
        Limits::denorm_min(), -3 * Limits::denorm_min(), Limits::min(), Limits::max(), 1, -1};
    factors.insert(factors.end(), {-0.0, HUGE_VAL, -HUGE_VAL, 0.3, -1e17, 0x1.fffffffffffffp0, 0x1p63, -0x1p-63});
    Random random(64);
    for (int i = 0; i < 6; ++i) factors.push_back(inputs<Orv64f>(random, 1, Floats::finite)[0]);
    for (const Orv64f factor : factors) {
        const int exponent = std::isfinite(factor) ? dyadic(factor).exponent + 53 : 0;
        std::vector<int> around = {INT_MIN, INT_MIN + 1, -2200, 2200, INT_MAX - 1, INT_MAX};
        for (int scale = exponent - 130; scale <= exponent + 130; ++scale) around.push_back(scale);
        expect_all_pairs(ORV_EXPORT(orvsMulC_64f64s_ISfs), Pairs(values, std::vector(1, factor)), around,
                         integer_times_float);
    }
}

// ---- Large arrays

TEST(MulC, of_large_integer_arrays)
{
    for (const int scale : {-40, -3, 0, 1, 12, 40}) {
        EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsMulC_8u_Sfs), product, scale));
        EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsMulC_16s_Sfs), product, scale));
        EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsMulC_32s_Sfs), product, scale));
    }
    EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsMulC_8u_ISfs), product, 8));
    EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsMulC_16u_Sfs), product, 16));
    EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsMulC_16u_ISfs), product, 1));
    EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsMulC_16s_I), product));
    EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsMulC_16s_ISfs), product, 15));
    EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsMulC_16sc_Sfs), product, 15));
    EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsMulC_16sc_ISfs), product, 0));
    EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsMulC_32s_ISfs), product, 31));
    EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsMulC_32sc_Sfs), product, 31));
    EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsMulC_32sc_ISfs), product, 0));
    EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsMulC_64s_ISfs), product, 63));
    EXPECT_TRUE(check_large(ORV_EXPORT(orvsMulC_64f64s_ISfs).with(3), IntegerTimesFloat{3}));
    EXPECT_TRUE(check_large(ORV_EXPORT(orvsMulC_32f16s_Sfs).with(-12), ScaledFloatProduct{-12}));
    EXPECT_TRUE(check_large(ORV_EXPORT(orvsMulC_Low_32f16s).with(), low_float_product));
}

TEST(MulC, of_large_float_arrays)
{
    EXPECT_TRUE(check_large(ORV_EXPORT(orvsMulC_32f).with(), product));
    EXPECT_TRUE(check_large(ORV_EXPORT(orvsMulC_32f_I).with(), in_place));
    EXPECT_TRUE(check_large(ORV_EXPORT(orvsMulC_32fc).with(), product));
    EXPECT_TRUE(check_large(ORV_EXPORT(orvsMulC_32fc_I).with(), in_place));
    EXPECT_TRUE(check_large(ORV_EXPORT(orvsMulC_64f).with(), product));
    EXPECT_TRUE(check_large(ORV_EXPORT(orvsMulC_64f_I).with(), in_place));
    EXPECT_TRUE(check_large(ORV_EXPORT(orvsMulC_64fc).with(), product));
    EXPECT_TRUE(check_large(ORV_EXPORT(orvsMulC_64fc_I).with(), in_place));
}

#if ORV_ENDLESS_ARRAYS
/// Twice the length of these does not fit the type of lengths.
TEST(MulC, of_complex_arrays_with_more_parts_than_a_length_can_tell)
{
    const auto integers = [](auto f, const Orv32sc* src, Orv32sc* dst, int n) { return f(src, {3, 5}, dst, n, 2); };
    expect_right_without_end(ORV_EXPORT(orvsMulC_32sc_Sfs).as(integers), [](const Orv32sc& a) {
        return ScaledProduct<Orv32sc>()(a, Orv32sc{3, 5}, 2);
    });
    const auto floats = [](auto f, const Orv32fc* src, Orv32fc* dst, int n) { return f(src, {3, 5}, dst, n); };
    expect_right_without_end(ORV_EXPORT(orvsMulC_32fc).as(floats), [](const Orv32fc& a) {
        return product(a, Orv32fc{3, 5});
    });
}
#endif

// ---- The caller's floating-point state

TEST(MulC, follows_the_callers_state)
{
    expect_products_to_follow_the_state(ORV_EXPORT(orvsMulC_32f).with());
    expect_products_to_follow_the_state(ORV_EXPORT(orvsMulC_32f_I).with());
    expect_products_to_follow_the_state(ORV_EXPORT(orvsMulC_32fc).with());
    expect_products_to_follow_the_state(ORV_EXPORT(orvsMulC_32fc_I).with());
    expect_products_to_follow_the_state(ORV_EXPORT(orvsMulC_64f).with());
    expect_products_to_follow_the_state(ORV_EXPORT(orvsMulC_64f_I).with());
    expect_products_to_follow_the_state(ORV_EXPORT(orvsMulC_64fc).with());
    expect_products_to_follow_the_state(ORV_EXPORT(orvsMulC_64fc_I).with());
}

TEST(MulC, is_ieee_in_other_states)
{
    EXPECT_TRUE(sweep_in_states(ORV_EXPORT(orvsMulC_32f).with(), product));
    EXPECT_TRUE(sweep_in_states(ORV_EXPORT(orvsMulC_32f_I).with(), in_place));
    EXPECT_TRUE(sweep_in_states(ORV_EXPORT(orvsMulC_32fc).with(), product));
    EXPECT_TRUE(sweep_in_states(ORV_EXPORT(orvsMulC_32fc_I).with(), in_place));
    EXPECT_TRUE(sweep_in_states(ORV_EXPORT(orvsMulC_64f).with(), product));
    EXPECT_TRUE(sweep_in_states(ORV_EXPORT(orvsMulC_64f_I).with(), in_place));
    EXPECT_TRUE(sweep_in_states(ORV_EXPORT(orvsMulC_64fc).with(), product));
    EXPECT_TRUE(sweep_in_states(ORV_EXPORT(orvsMulC_64fc_I).with(), in_place));
    EXPECT_TRUE(sweep_in_states(ORV_EXPORT(orvsMulC_Low_32f16s).with(), low_float_product));
}

TEST(MulC, of_integers_is_the_same_in_all_states)
{
    for (const int scale : {-2, 0, 1, 9}) {
        EXPECT_TRUE(sweep_products_in_states(ORV_EXPORT(orvsMulC_8u_Sfs), scale));
        EXPECT_TRUE(sweep_products_in_states(ORV_EXPORT(orvsMulC_16u_Sfs), scale));
        EXPECT_TRUE(sweep_products_in_states(ORV_EXPORT(orvsMulC_16s_Sfs), scale));
        EXPECT_TRUE(sweep_products_in_states(ORV_EXPORT(orvsMulC_16sc_Sfs), scale));
        EXPECT_TRUE(sweep_products_in_states(ORV_EXPORT(orvsMulC_32s_Sfs), scale));
        EXPECT_TRUE(sweep_products_in_states(ORV_EXPORT(orvsMulC_32sc_Sfs), scale));
        EXPECT_TRUE(sweep_products_in_states(ORV_EXPORT(orvsMulC_64s_ISfs), scale));
    }
}

/// Sweeps a mixed form whose results do not depend on the caller's rounding.
template <class Element, class... Args>
bool sweep_in_roundings(const Export<OrvStatus, Args...>& f, int scale)
{
    SweepOptions options;
    options.few_placements = true;
    for (const unsigned state : {round_to_zero, round_up, round_down}) {
        const CallerState scope(state);
        if (!sweep_elements(f.with(scale), Element{scale}, options)) return false;
    }
    return true;
}

TEST(MulC, of_mixed_forms_is_the_same_in_all_roundings)
{
    for (const int scale : {-12, -1, 0, 1, 7}) {
        EXPECT_TRUE(sweep_in_roundings<ScaledFloatProduct>(ORV_EXPORT(orvsMulC_32f16s_Sfs), scale));
        EXPECT_TRUE(sweep_in_roundings<IntegerTimesFloat>(ORV_EXPORT(orvsMulC_64f64s_ISfs), scale));
    }
}

/// Low rounds as the caller does, both times.
TEST(MulC, of_low_32f16s_rounds_as_the_caller_does)
{
    const auto f = ORV_EXPORT(orvsMulC_Low_32f16s);
    struct Telling {
        unsigned state;
        Orv32f a, value;
        Orv16s want;
    };
    constexpr Orv32f above = 0x1.555556p-3f; // three times this is just above one half
    for (const Telling& telling :
         {Telling{to_nearest, 2.75f, 1, 3}, Telling{to_nearest, 2.5f, 1, 2}, Telling{round_down, 2.75f, 1, 2},
          Telling{round_down, 2.25f, -1, -3}, Telling{round_up, 2.25f, 1, 3}, Telling{round_up, 2.75f, -1, -2},
          Telling{round_to_zero, 2.75f, 1, 2}, Telling{round_to_zero, 2.75f, -1, -2},
          Telling{round_up, 32766.25f, 1, 32767}, Telling{round_up, 40000, 1, 32767},
          Telling{round_down, 32767.75f, -1, -32768}, Telling{round_down, 1e30f, -1e30f, -32768},
          Telling{round_to_zero, 1e30f, 1e30f, 32767}, Telling{to_nearest, 3, above, 0}, Telling{round_up, 3, above, 1},
          Telling{round_up, 1e-30f, 1e-30f, 1}})
        for (const std::size_t n : {std::size_t{1}, std::size_t{7}, std::size_t{40}, std::size_t{300}}) {
            const std::vector<Orv32f> src(n, telling.a);
            std::vector<Orv16s> d(n, 77);
            {
                const CallerState scope(telling.state);
                EXPECT_EQ(f(src.data(), telling.value, d.data(), static_cast<int>(n)), orvOk);
                EXPECT_EQ(_mm_getcsr() & round_to_zero, telling.state);
            }
            expect_elements(f, d, std::vector<Orv16s>(n, telling.want));
        }
}

/// Conversions that do not succeed set a flag and may be told to trap; the caller sees neither.
TEST(MulC, of_32f16s_gives_the_callers_control_word_back)
{
    const auto f = ORV_EXPORT(orvsMulC_32f16s_Sfs);
    constexpr unsigned invalid_flag = 0x0001, inexact_flag = 0x0020, mask_invalid = 0x0080;
    const std::vector<Orv32f> src = {1.5f, 1e30f, -1e30f, HUGE_VALF, -HUGE_VALF, std::nanf(""), 0.3f, 1e-30f, 3};
    std::vector<Orv16s> d(src.size());
    for (const unsigned state : {0u + to_nearest, 0u + round_down, 0u + round_up, 0u + round_to_zero})
        for (const unsigned flags : {0u, inexact_flag, invalid_flag})
            for (const unsigned unmasked : {0u, mask_invalid}) {
                unsigned before = 0, after = 0;
                {
                    const CallerState scope(state | flags);
                    _mm_setcsr(_mm_getcsr() & ~unmasked);
                    before = _mm_getcsr();
                    EXPECT_EQ(f(src.data(), 1e5f, d.data(), static_cast<int>(d.size()), 0), orvOk);
                    after = _mm_getcsr();
                }
                // Where the caller has seen an invalid operation before, it may find other flags raised too.
                const unsigned seen = flags & invalid_flag ? ~(flag_bits & ~invalid_flag) : ~0u;
                EXPECT_EQ(after & seen, before & seen) << std::hex << before;
                expect_elements(f, d, {32767, 32767, -32768, 32767, -32768, -32768, 30000, 0, 32767});
            }
}

TEST(MulC, raises_no_flags_on_exact_products)
{
    expect_no_flags(ORV_EXPORT(orvsMulC_32f).with());
    expect_no_flags(ORV_EXPORT(orvsMulC_32f_I).with());
    expect_no_flags(ORV_EXPORT(orvsMulC_32fc).with());
    expect_no_flags(ORV_EXPORT(orvsMulC_32fc_I).with());
    expect_no_flags(ORV_EXPORT(orvsMulC_64f).with());
    expect_no_flags(ORV_EXPORT(orvsMulC_64f_I).with());
    expect_no_flags(ORV_EXPORT(orvsMulC_64fc).with());
    expect_no_flags(ORV_EXPORT(orvsMulC_64fc_I).with());
    expect_no_flags(ORV_EXPORT(orvsMulC_32f16s_Sfs).with(0));
    expect_no_flags(ORV_EXPORT(orvsMulC_Low_32f16s).with());
}

} // namespace
} // namespace orvtest
