// ln x = k * ln 2 + ln m, x = 2^k * m, m near 1.
//
// Single precision: m lies in [2/3, 4/3), in one of four intervals with a factor f near the reciprocal of their middle,
// so that ln m = -ln f + ln(1 + r) with r = m * f - 1, |r| < 0.11. The factors are such that their logarithms are
// multiples of 2^-16 to within 2^-32 (S. Gal's accurate tables). (P. T. P. Tang, Table-driven implementation of the
// logarithm function in IEEE floating-point arithmetic, ACM TOMS 16, 1990.)
//
// Double precision: m lies in [sqrt(1/2), sqrt(2)), ln m = 2 artanh(s) with s = (m - 1) / (m + 1).
//
// The polynomials are minimax ones, made with Sollya.
#ifndef ORV_VMATH_LN_H
#define ORV_VMATH_LN_H

#include "simd/lanes.h"
#include "simd/polynomial.h"
#include "vmath/level.h"

/// The codes of a logarithm's companion.
enum LnCode { ln_of_zero = 2, ln_of_negative = 4 };

int vsln_cout_rare(Orv32f x, Orv32f* y);
int vdln_cout_rare(Orv64f x, Orv64f* y);

namespace ORV_VARIANT {

/// A value as the sum of two, low at most half an ulp of high.
struct Sum64 {
    vec<Orv64f> high, low;
};

/// ln x for positive normal x, plus k0 * ln 2, to 2^-60 of the result.
template <Level level = Level::HA>
ORV_INLINE Sum64 ln_parts(vec<Orv64f> x, Orv64f k0 = 0)
{
    // The bits of x less those of sqrt(1/2): k, with the bias 1023, above the mantissa of m less that of sqrt(1/2).
    constexpr Orv64s one = 0x3ff0000000000000, root_half = 0x3fe6a09e667f3bcd, two_to_52 = 0x4330000000000000;
    const auto above = as<Orv64s>(x) + splat(one - root_half);
    const auto m = as<Orv64f>((above & splat(Orv64s(0x000fffffffffffff))) + splat(root_half));
    const auto biased = as<Orv64s>(shift_right_by<52>(as<Orv64u>(above)));
    const auto k = as<Orv64f>(biased | splat(two_to_52)) - splat(0x1p52 + 1023 - k0);

    const auto f = m - splat(1.0), d = m + splat(1.0);
    if constexpr (level == Level::EP) {
        const auto s = f / d, z = s * s;
        const auto p =
            horner(z, 0x1.5555554b8ed6fp-1, 0x1.9999ec10019e4p-2, 0x1.245c01dbf9fe6p-2, 0x1.dddae4bba1c04p-3);
        return {k * splat(0x1.62e42fefa39efp-1), fma(s * z, p, s + s)};
    } else {
        const auto reciprocal = splat(1.0) / d, s = f * reciprocal, z = s * s;
        const auto d_rest = m - (d - splat(1.0));
        const auto s_rest = fnma(s, d_rest, fnma(s, d, f)) * reciprocal;
        const auto p =
            horner_by_two(z, 0x1.5555555555555p-1, 0x1.9999999999d58p-2, 0x1.249249242f0a3p-2, 0x1.c71c725c1a07p-3,
                          0x1.745cdb9028218p-3, 0x1.3b2153d48def6p-3, 0x1.0f4a9be5a1d17p-3, 0x1.101e903bde7cp-3);
        const auto twice_rest = fma(s_rest + s_rest, z, s_rest + s_rest); // times the slope of artanh
        const auto k_ln2 = k * splat(0x1.62e42fefa3p-1), twice = s + s;   // the product is exact
        const auto high = k_ln2 + twice;
        const auto low = (k_ln2 - high) + twice;
        return {high, low + fma(s * z, p, fma(k, splat(0x1.3de6af278ece6p-42), twice_rest))};
    }
}

/// At most 0.52 ulp at HA and LA, 2^-32 of the result at EP.
template <Level level>
struct Ln64 {
    using lane = Orv64f;

    ORV_INLINE vec<Orv64f> operator()(vec<Orv64f> x) const
    {
        const auto ln = ln_parts<level>(x);
        return ln.high + ln.low;
    }
    ORV_INLINE static vec<Orv64s> off_path(vec<Orv64f> x)
    {
        // The upper word of x as an unsigned number, less that of the least normal one, is not below that of infinity.
        const auto words = as<Orv32s>(as<Orv64s>(x) + splat(Orv64s(0x7ff0000000000000)));
        return as<Orv64s>(is_greater(words, splat(-0x00200001)));
    }
    static int companion(Orv64f x, Orv64f* y) { return vdln_cout_rare(x, y); }
};

/// At most 1.25 ulp at LA, 1.8 ulp at EP.
template <Level level>
struct Ln32 {
    using lane = Orv32f;

    ORV_INLINE vec<Orv32f> operator()(vec<Orv32f> x) const
    {
        if constexpr (level == Level::HA) return by_doubles(Ln64<Level::EP>(), x);

        constexpr Orv32s two_thirds = 0x3f2aaaab;
        const auto above = as<Orv32s>(x) - splat(two_thirds);
        const auto m = as<Orv32f>((above & splat(0x007fffff)) + splat(two_thirds));
        const auto k = convert_to<Orv32f>(shift_right_by<23>(above));

        const auto factors = table_of_four(0x1.5e5108p+0f, 0x1.2b4c84p+0f, 1, 0x1.a8ccc2p-1f);
        const auto logarithms = table_of_four(-0x1.413p-2f, -0x1.4008p-3f, 0, 0x1.7e6p-3f);
        const auto interval = shift_right_by<21>(above); // in the last two bits
        const auto logarithm = one_of_four(logarithms, interval);

        const auto r = fma(m, one_of_four(factors, interval), splat(-1.0f));
        const auto r2 = r * r;
        const auto q = horner_by_two(r, -0.5f, 0x1.5553f8p-2f, -0x1.00011cp-2f, 0x1.9d8e2ap-3f, -0x1.560f4ap-3f);
        const auto y = fma(r2, q, r);
        if constexpr (level == Level::EP) return fma(k, splat(0x1.62e43p-1f), logarithm) + y;
        // Exact, for k * 0x1.62e4p-1 and the logarithm are multiples of 2^-16.
        return fma(k, splat(0x1.62e4p-1f), logarithm) + fma(k, splat(0x1.7f7d1cp-20f), y);
    }
    ORV_INLINE static vec<Orv32s> off_path(vec<Orv32f> x)
    {
        return is_greater(as<Orv32s>(x) + splat(0x7f800000), splat(-0x01000001)); // as Ln64
    }
    static int companion(Orv32f x, Orv32f* y) { return vsln_cout_rare(x, y); }
};

} // namespace ORV_VARIANT

#endif
