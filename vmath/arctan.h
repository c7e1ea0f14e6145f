// The arctangent of a quotient y / x of sizes, from 0 to pi / 2, and what is made of it.
//
// Where y > x, it is pi / 2 - arctan(x / y). In double precision quotients from 1/2 to 2 are moved by pi / 4 instead,
// to arctan((y - x) / (y + x)), and a second number keeps what the quotient lost. The polynomials are minimax ones,
// made with Sollya.
#ifndef ORV_VMATH_ARCTAN_H
#define ORV_VMATH_ARCTAN_H

#include "simd/polynomial.h"
#include "simd/saturate.h"
#include "vmath/level.h"

namespace ORV_VARIANT {

/// y and x are not negative and not both zero or infinite (in double precision neither is infinite); a not-a-number as
/// y is the result.
ORV_INLINE vec<Orv32f> arctan_of_sizes(vec<Orv32f> y, vec<Orv32f> x)
{
    // As integers, which are in the same order: the units for products are busy.
    const auto i = as<Orv32s>(y), j = as<Orv32s>(x);
    const auto turned = as<Orv32f>(is_greater(i, j));
    const auto t = (as<Orv32f>(min(i, j)) / as<Orv32f>(max(i, j))) ^ (turned & splat(-0.0f));
    const auto base = turned & splat(0x1.921fb6p+0f), base_rest = turned & splat(-0x1.777a5cp-25f);
    const auto z = t * t;
    const auto p = horner_by_two(z, -0x1.555554p-2f, 0x1.99984cp-3f, -0x1.246f74p-3f, 0x1.c423eep-4f, -0x1.636df2p-4f,
                                 0x1.01e514p-4f, -0x1.2a759ap-5f, 0x1.c62ea6p-7f, -0x1.449a16p-9f);
    return base + (t + fma(t * z, p, base_rest));
}

ORV_INLINE vec<Orv64f> arctan_of_sizes(vec<Orv64f> y, vec<Orv64f> x)
{
    const auto turned = is_greater(y, x + x), moved = and_not(turned, is_greater(y + y, x));
    const auto from_x = moved & x, from_y = moved & y;
    const auto sum_of_sizes = x + from_y;
    const auto numerator = blend(turned, splat(-0.0) ^ x, y - from_x), denominator = blend(turned, y, sum_of_sizes);

    // The difference is exact, the sum is not.
    const auto lost = from_y - (sum_of_sizes - x);
    const auto reciprocal = splat(1.0) / denominator, t = numerator * reciprocal;
    const auto t_rest = fnma(t, lost, fnma(t, denominator, numerator)) * reciprocal;

    const auto z = t * t;
    const auto p = horner_by_two(
        z, -0x1.5555555555555p-2, 0x1.999999999980ep-3, -0x1.24924924820d9p-3, 0x1.c71c71bd78acep-4,
        -0x1.745d15b0b165ep-4, 0x1.3b13883effee1p-4, -0x1.110e579e08a0ep-4, 0x1.e1a290a626affp-5, -0x1.ad274c4ef44dbp-5,
        0x1.7aaed06b62c63p-5, -0x1.36be06e0fbf96p-5, 0x1.9690121a7b70cp-6, -0x1.2a054608cdf19p-7);
    const auto small = fma(t * z, p, fnma(t_rest, z, t_rest)); // t_rest times the slope, roughly

    // 0, pi / 4 or pi / 2.
    const auto base = (turned & splat(0x1.921fb54442d18p+0)) | (moved & splat(0x1.921fb54442d18p-1));
    const auto base_rest = (turned & splat(0x1.1a62633145c07p-54)) | (moved & splat(0x1.1a62633145c07p-55));
    const auto sum = base + t, sum_rest = (base - sum) + t;
    return sum + (small + (sum_rest + base_rest));
}

/// At most 1.7 ulp.
struct Arctan32 {
    using lane = Orv32f;

    ORV_INLINE vec<Orv32f> operator()(vec<Orv32f> x) const
    {
        return arctan_of_sizes(magnitude(x), splat(1.0f)) | sign_bit(x);
    }
};

/// At most 0.56 ulp.
struct Arctan64 {
    using lane = Orv64f;

    ORV_INLINE vec<Orv64f> operator()(vec<Orv64f> x) const
    {
        const auto size = min(splat(0x1p70), magnitude(x)); // an infinite one would have no rest
        return arctan_of_sizes(size, splat(1.0)) | sign_bit(x);
    }
};

} // namespace ORV_VARIANT

#endif
