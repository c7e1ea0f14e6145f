// The arctangent of a quotient y / x of sizes, from 0 to pi / 2, and what is made of it.
//
// Where y > x, it is pi / 2 - arctan(x / y). In double precision quotients from 1/2 to 2 are moved by pi / 4 instead,
// to arctan((y - x) / (y + x)), and a second number keeps what the quotient lost. The polynomials are minimax ones,
// made with Sollya.
#ifndef ORV_VMATH_ARCTAN_H
#define ORV_VMATH_ARCTAN_H

#include <limits>

#include "simd/polynomial.h"
#include "simd/saturate.h"
#include "vmath/level.h"

namespace ORV_VARIANT {

/// An angle as base + t + small, from the largest part to the smallest; base is a multiple of pi / 4 and has a rest.
template <class T>
struct AngleParts {
    vec<T> base, base_rest, t, small;
};

/// arctan(y / x), where y and x are not negative and not both zero or infinite (in double precision neither is
/// infinite); a not-a-number as y is the result.
ORV_INLINE AngleParts<Orv32f> arctan_parts(vec<Orv32f> y, vec<Orv32f> x)
{
    // As integers, which are in the same order: the units for products are busy.
    const auto i = as<Orv32s>(y), j = as<Orv32s>(x);
    const auto turned = as<Orv32f>(is_greater(i, j));
    const auto t = (as<Orv32f>(min(i, j)) / as<Orv32f>(max(i, j))) ^ (turned & splat(-0.0f));
    const auto& half_pi = half_pi_parts<Orv32f>;
    const auto base = turned & splat(half_pi[0]), base_rest = turned & splat(half_pi[1]);
    const auto z = t * t;
    const auto p = horner_by_two(z, -0x1.555554p-2f, 0x1.99984cp-3f, -0x1.246f74p-3f, 0x1.c423eep-4f, -0x1.636df2p-4f,
                                 0x1.01e514p-4f, -0x1.2a759ap-5f, 0x1.c62ea6p-7f, -0x1.449a16p-9f);
    return {base, base_rest, t, t * z * p};
}

ORV_INLINE AngleParts<Orv64f> arctan_parts(vec<Orv64f> y, vec<Orv64f> x)
{
    // Moved from 1/2 to pi / 2 - 1/2, where an ulp of the result outweighs what the quotient loses.
    const auto turned = is_greater(y, x * splat(0x1.d49ad7e47c0a3p+0)); // tan(pi / 2 - 1/2)
    const auto moved = and_not(turned, is_greater(y, x * splat(0x1.17b4f5bf3474ap-1)));
    const auto t = blend(turned, splat(-0.0) ^ x, y - (moved & x)) / blend(turned, y, x + (moved & y));
    const auto z = t * t;
    const auto p = horner_by_two(
        z, -0x1.5555555555555p-2, 0x1.99999999995b3p-3, -0x1.24924924617b7p-3, 0x1.c71c71a9ddf5fp-4,
        -0x1.745d12bfd801cp-4, 0x1.3b1346b132049p-4, -0x1.110ac18ffde12p-4, 0x1.e160cddfa60dcp-5, -0x1.ab967958c6f1bp-5,
        0x1.7464b6091789p-5, -0x1.26bdf76d63802p-5, 0x1.67d4c0e393db4p-6, -0x1.dca500cd3c6c4p-8);

    // 0, pi / 4 or pi / 2.
    const auto& half_pi = half_pi_parts<Orv64f>;
    const auto base = (turned & splat(half_pi[0])) | (moved & splat(half_pi[0] / 2));
    const auto base_rest = (turned & splat(half_pi[1])) | (moved & splat(half_pi[1] / 2));
    return {base, base_rest, t, t * z * p};
}

ORV_INLINE vec<Orv32f> sum(AngleParts<Orv32f> a) { return a.base + (a.t + (a.small + a.base_rest)); }
ORV_INLINE vec<Orv64f> sum(AngleParts<Orv64f> a)
{
    const auto sum = a.base + a.t, sum_rest = (a.base - sum) + a.t;
    return sum + (a.small + (sum_rest + a.base_rest));
}

/// At most 2 ulp.
struct Arctan32 {
    using lane = Orv32f;

    ORV_INLINE vec<Orv32f> operator()(vec<Orv32f> x) const
    {
        return sum(arctan_parts(magnitude(x), splat(1.0f))) | sign_bit(x);
    }
};

/// At most 1 ulp.
struct Arctan64 {
    using lane = Orv64f;

    ORV_INLINE vec<Orv64f> operator()(vec<Orv64f> x) const
    {
        return sum(arctan_parts(magnitude(x), splat(1.0))) | sign_bit(x);
    }
};

/// angle[i] for the lanes with a mark, in a vector of either precision: zeros, infinities, not-a-numbers, extreme
/// sizes.
void finish_angles(const Orv32f* y, const Orv32f* x, const Orv32s* marks, Orv32f* angle);
void finish_angles(const Orv64f* y, const Orv64f* x, const Orv64s* marks, Orv64f* angle);

/// The angle of the point (x, y), from -pi to pi, where neither is extreme.
template <class T>
ORV_INLINE vec<T> ordinary_angle(vec<T> y, vec<T> x)
{
    // On the left side, also where x is -0, it is pi less the one on the right.
    const auto left = as<T>(is_greater(splat(word_of<T>(0)), as<word_of<T>>(x))), flip = left & splat(T(-0.0));
    const auto a = arctan_parts(magnitude(y), magnitude(x));
    const auto base = blend(left, splat(2 * half_pi_parts<T>[0]) - a.base, a.base);
    const auto base_rest = blend(left, splat(2 * half_pi_parts<T>[1]) - a.base_rest, a.base_rest);
    return sum({base, base_rest, a.t ^ flip, a.small ^ flip}) | sign_bit(y);
}

/// For all y and x: at most 2 ulp.
template <class T>
ORV_INLINE vec<T> angle_of(vec<T> y, vec<T> x)
{
    auto angle = ordinary_angle(y, x);
    const auto larger = max(magnitude(y), magnitude(x)), least = splat(std::numeric_limits<T>::min());
    const auto highest = splat(sizeof(T) == 4 ? std::numeric_limits<T>::max() : T(0x1p1000));
    const auto off = as<word_of<T>>(is_not_within(larger, highest) | is_greater(least, larger) |
                                    is_not_within(magnitude(y), highest));
    if (any_sign(off)) [[unlikely]] {
        constexpr int N = vec<T>::N;
        T ys[N], xs[N], angles[N];
        word_of<T> marks[N];
        store(ys, y), store(xs, x), store(marks, off), store(angles, angle);
        finish_angles(ys, xs, marks, angles);
        angle = load(angles);
    }
    return angle;
}

} // namespace ORV_VARIANT

#endif
