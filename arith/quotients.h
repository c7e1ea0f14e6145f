// Integer quotients through floating point, exact to the last tie.
//
// The integers are exact in their floating type F, and y is the quotient a * 2^-scale / b rounded to F (in the case of
// floats, as good as rounded: a quotient that F holds comes out exact, others within one unit in the last place).
// Rounding y once more, to an integer, goes wrong only where y has met a tie or an integer that the exact quotient is
// merely close to. How close can it be? With n bits an operand, and t a tie or an integer,
//
//     |a * 2^-scale / b - t| >= |quotient| * 2^-n                     for scale > 0,
//                            >= |quotient| * 2^(scale - 1 - n)        for scale <= 0,
//
// because the numerator of the difference is an integer, or half of one. F tells them apart for all scales but the
// lowest. There the rounded y is off by one at most, and the exact remainder a * 2^-scale - y * b, which a fused
// operation gives without an error, tells where.
#ifndef ORV_ARITH_QUOTIENTS_H
#define ORV_ARITH_QUOTIENTS_H

#include "arith/seen.h"
#include "arith/wide_lanes.h"
#include "simd/convert.h"

namespace ORV_VARIANT {

/// A divisor with its reciprocal, which saves divisions: the quotient is corrected by its own remainder.
template <class F>
struct Divisor {
    vec<F> value, reciprocal;
};

/// From the processor's estimate of 12 bits by one step of Newton's iteration.
ORV_INLINE Divisor<Orv32f> estimated_divisor(vec<Orv32f> b)
{
    const auto estimate = estimate_reciprocal(b);
    const auto error = fnma(b, estimate, splat(1.0f));
    return {b, fma(estimate, error, estimate)};
}
template <class F>
ORV_INLINE Divisor<F> exact_divisor(vec<F> b)
{
    return {b, splat(F(1)) / b};
}

template <class F>
ORV_INLINE vec<F> quotient(vec<F> a, Divisor<F> b)
{
    const auto y = a * b.reciprocal;
    const auto remainder = fnma(b.value, y, a);
    return fma(remainder, b.reciprocal, y);
}
template <class F>
ORV_INLINE vec<F> quotient(vec<F> a, vec<F> b)
{
    return a / b;
}

/// The scales from which on y decides, for operands of that many bits: the relative error of y stays below 2^-23 or
/// 2^-52.
template <class F>
inline constexpr int lowest_close_scale(int bits)
{
    return bits - (sizeof(F) == 4 ? 21 : 51);
}

/// a * 2^-scale / b rounded by mode, as a number that a conversion to nearest makes the integer; close tells that the
/// scale is a close one. Results beyond the limits stop there, or where the lanes are packed.
template <class F, OrvRoundMode mode, bool close>
struct ScaledQuotient {
    vec<F> power, lowest, highest;

    ScaledQuotient(int scale, F low, F high)
        : power(splat(power_of_two<F>(scale))), lowest(splat(low)), highest(splat(high))
    {}

    /// b in the form that is the fastest here.
    ORV_INLINE static auto divisor(vec<F> b)
    {
        if constexpr (sizeof(F) == 4) return estimated_divisor(b);
        else if constexpr (close) return b;
        else return exact_divisor(b);
    }

    /// b is what divisor gives, or any Divisor.
    template <class B>
    ORV_INLINE vec<F> operator()(vec<F> a, B b) const
    {
        const auto dividend = a * power;
        const auto y = quotient(dividend, b);
        if constexpr (!close) return limited(corrected(round(y), dividend, b));
        else return mode == orvRndNear ? limited(y) : round(limited(y));
    }

private:
    ORV_INLINE vec<F> limited(vec<F> y) const
    {
        if constexpr (close && sizeof(F) == 4) return y; // below 2^21: an integer of 32 bits in any case
        else return max(lowest, min(highest, y));
    }

    ORV_INLINE static vec<F> round(vec<F> y)
    {
        if constexpr (mode == orvRndNear) return to_nearest(y);
        else if constexpr (mode == orvRndZero) return toward_zero(y);
        else return toward_zero(y + (splat(F(0.5)) | sign_bit(y))); // no y is so close to a tie that the sum meets it
    }

    /// One step back where the rounded quotient has gone too far: past the dividend, or more than half a divisor off.
    /// As a fraction of the divisor, the remainder is then at least (1 + 1 / b) / 2, and otherwise at most 1 / 2; a
    /// factor just below 1 keeps a tie where it is.
    ORV_INLINE static vec<F> corrected(vec<F> rounded, vec<F> dividend, Divisor<F> b)
    {
        const auto remainder = fnma(rounded, b.value, dividend);
        if constexpr (mode == orvRndZero) {
            const auto step = splat(F(1)) | sign_bit(remainder ^ b.value);
            return rounded + (step & is_greater(splat(F(0)), remainder * dividend));
        } else {
            constexpr F below_one = sizeof(F) == 4 ? F(1 - 0x1p-18) : F(1 - 0x1p-33);
            return rounded + to_nearest(remainder * b.reciprocal * splat(below_one));
        }
    }
};

// ---- Complex quotients a * conj(b) / |b|^2, both parts from exact numerators

/// re = a.re * b.re + a.im * b.im, im = a.im * b.re - a.re * b.im. Only the real part can be 2^31, where all four parts
/// are -2^15; it is taken for 2^31 - 1 then, and over a divisor of 2^31 that rounds to the same at every scale.
ORV_INLINE even_odd<Orv32s> multiply_conjugate(vec<Orv16s> a, vec<Orv16s> b)
{
    // -b.im might overflow, ~b.im = -b.im - 1 never does; a.re makes up for the 1.
    const __m256i conjugate = _mm256_xor_si256(b.r, _mm256_set1_epi32(-0x10000));
    const __m256i a_re = _mm256_srai_epi32(_mm256_slli_epi32(a.r, 16), 16);
    const __m256i im = _mm256_add_epi32(_mm256_madd_epi16(swap_pairs(a).r, conjugate), a_re);
    return {step_below_top(vec<Orv32s>{_mm256_madd_epi16(a.r, b.r)}), {im}};
}

/// re^2 + im^2 as doubles; the sum of two times 2^30 has wrapped, and only its sign is wrong.
ORV_INLINE vec<Orv64f, 8> norms(vec<Orv16s> b, vec<Orv32s> one_for_zero)
{
    const auto squares = convert_to<Orv64f>(vec<Orv32s>{_mm256_madd_epi16(b.r, b.r)} + one_for_zero);
    return {magnitude(squares.low), magnitude(squares.high)};
}

/// q divides by the norms of b, low and high.
template <class Q, class Norm>
ORV_INLINE vec<Orv16s> complex_quotients(Q q, vec<Orv16s> a, vec<Orv16s> b, Norm low, Norm high)
{
    const auto numerators = multiply_conjugate(a, b);
    const auto re = convert_to<Orv64f>(numerators.even), im = convert_to<Orv64f>(numerators.odd);
    return pack_sat(even_odd<Orv32s>{join(to_32s(q(re.low, low)), to_32s(q(re.high, high))),
                                     join(to_32s(q(im.low, low)), to_32s(q(im.high, high)))});
}

/// Quotients of 16-bit parts saturate, or round to 0, at these scales and beyond.
ORV_INLINE int limited_complex_scale(int scale) { return scale < -64 ? -64 : scale > 64 ? 64 : scale; }

// ---- Zero divisors

/// What a / 0 is: the limit on a's side, 0 for 0. The instructions before have divided by the 1 in the zero's place.
template <class T>
ORV_INLINE vec<T> with_zero_divisors(vec<T> is_zero, vec<T> dividend, vec<T> result)
{
    return blend(is_zero, sign_limit(dividend), result);
}

ORV_INLINE OrvStatus division_status(int zero_divisors) { return zero_divisors ? orvWrnDivByZero : orvOk; }

} // namespace ORV_VARIANT

#endif
