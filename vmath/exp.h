// e^x = 2^(n/4) * e^r: n the integer nearest to x * 4 / ln 2 (single) or, without the 4, to x / ln 2 (double), so that
// |r| <= ln 2 / 8 or ln 2 / 2, and a polynomial. (P. T. P. Tang, Table-driven implementation of the exponential
// function in IEEE floating-point arithmetic, ACM TOMS 15, 1989.) The polynomials are minimax ones, made with Sollya.
#ifndef ORV_VMATH_EXP_H
#define ORV_VMATH_EXP_H

#include "simd/lanes.h"
#include "simd/polynomial.h"
#include "vmath/level.h"

int vsexp_cout_rare(Orv32f x, Orv32f* y);
int vdexp_cout_rare(Orv64f x, Orv64f* y);

namespace ORV_VARIANT {

/// e^x in double precision as (high + low) * 2^n, where n is in the last bits of shifted.
struct ExpParts {
    vec<Orv64f> high, low, shifted;
};

template <Level level>
ORV_INLINE ExpParts exp_parts(vec<Orv64f> x)
{
    const auto shifted = fma(x, splat(0x1.71547652b82fep+0), splat(magic<Orv64f>));
    const auto n = shifted - splat(magic<Orv64f>);
    const auto r0 = fnma(n, splat(0x1.62e42fefa39efp-1), x); // exact: x is a multiple of what the product ends in
    const auto r = fnma(n, splat(0x1.abc9e3b39803fp-56), r0);
    if constexpr (level == Level::EP) {
        const auto q = horner(r, 0x1.0000000b90436p-1, 0x1.555555742c064p-3, 0x1.5554e90da7461p-5, 0x1.1110ab774b3cdp-7,
                              0x1.6d4318d27610ap-10, 0x1.a17df96a2c2bdp-13);
        return {splat(1.0), fma(r * r, q, r), shifted};
    }
    const auto r2 = r * r;
    const auto rest = fnma(n, splat(0x1.abc9e3b39803fp-56), r0 - r); // what r lost
    const auto high = splat(1.0) + r;
    const auto low = fma(rest, high, (splat(1.0) - high) + r);
    if constexpr (level == Level::LA) {
        const auto q =
            horner_by_two(r, 0.5, 0x1.5555555555557p-3, 0x1.5555555555557p-5, 0x1.1111111110052p-7,
                          0x1.6c16c16c156a5p-10, 0x1.a01a01ac1d20bp-13, 0x1.a01a01ab98777p-16, 0x1.71de01afd80f8p-19,
                          0x1.27e4cfaf4c4d3p-22, 0x1.af4ec432279f2p-26, 0x1.1f86f00ad3c42p-29);
        return {high, fma(r2, q, low), shifted};
    } else {
        // r^2 / 2 as exactly as two numbers can be.
        const auto half_r = r * splat(0.5), term = r * half_r, term_rest = fma(r, half_r, splat(0.0) - term);
        const auto q =
            horner_by_two(r, 0x1.5555555555556p-3, 0x1.5555555555556p-5, 0x1.111111111070bp-7, 0x1.6c16c16c15f3fp-10,
                          0x1.a01a01a90235bp-13, 0x1.a01a01a89ff9dp-16, 0x1.71de0a3cdd794p-19, 0x1.27e4d64ca7f0dp-22,
                          0x1.af3f0646fa55fp-26, 0x1.1f7c9e07d081cp-29);
        const auto sum = high + term, sum_rest = (high - sum) + term;
        return {sum, fma(term * r, q + q, (low + sum_rest) + term_rest), shifted};
    }
}

/// At most 0.55 ulp at HA, 0.7 ulp at LA; 2^-32 of the result at EP.
template <Level level>
struct Exp64 {
    using lane = Orv64f;

    ORV_INLINE vec<Orv64f> operator()(vec<Orv64f> x) const
    {
        const auto e = exp_parts<level>(x);
        return as<Orv64f>(as<Orv64s>(e.high + e.low) + shift_left_by<52>(as<Orv64s>(e.shifted)));
    }
    ORV_INLINE static vec<Orv64s> off_path(vec<Orv64f> x)
    {
        return as<Orv64s>(is_not_within(magnitude(x), splat(708.0)));
    }
    static int companion(Orv64f x, Orv64f* y) { return vdexp_cout_rare(x, y); }
};

/// At most 0.75 ulp at LA, 1.2 ulp at EP.
template <Level level>
struct Exp32 {
    using lane = Orv32f;

    ORV_INLINE vec<Orv32f> operator()(vec<Orv32f> x) const
    {
        if constexpr (level == Level::HA) return by_doubles(Exp64<Level::EP>(), x);

        const auto shifted = fma(x, splat(0x1.715476p+2f), splat(magic<Orv32f>));
        const auto n = shifted - splat(magic<Orv32f>);
        auto r = fnma(n, splat(0x1.62e4p-3f), x);
        r = fnma(n, splat(0x1.7f7d1cp-22f), r);
        const auto p = horner(r, 0x1.fffffep-1f, 0x1.000002p-1f, 0x1.557638p-3f, 0x1.5551cap-5f);

        // 2^(j/4), j the last two bits of n: the nearest single, from whose bits j << 21 is taken, and the relative
        // rest.
        const auto powers = table_of_four(std::bit_cast<Orv32f>(0x3f800000), std::bit_cast<Orv32f>(0x3f7837f0),
                                          std::bit_cast<Orv32f>(0x3f7504f3), std::bit_cast<Orv32f>(0x3f7744fd));
        const auto rests = table_of_four(0, 0x1.125002p-25f, 0x1.26055cp-26f, -0x1.f9c304p-27f);
        const auto bits = as<Orv32s>(shifted);
        const auto scale = as<Orv32f>(as<Orv32s>(one_of_four(powers, bits)) + shift_left_by<21>(bits));
        if constexpr (level == Level::EP) return fma(scale, p * r, scale);
        return fma(scale, fma(p, r, one_of_four(rests, bits)), scale);
    }
    ORV_INLINE static vec<Orv32s> off_path(vec<Orv32f> x)
    {
        return as<Orv32s>(is_not_within(magnitude(x), splat(87.0f)));
    }
    static int companion(Orv32f x, Orv32f* y) { return vsexp_cout_rare(x, y); }
};

} // namespace ORV_VARIANT

#endif
