// The law of scale factors, once for all integer families.
//
// A form with a scale factor delivers x * 2^-scale for the exact result x of its operation: rounded to nearest with
// ties to even, saturated last. An operation that follows the law gives two things on vectors of operands:
//
//     saturated(a, b, ...)    x, stopped at the limits of the type
//     exact(a, b, ...)        x itself, in one of the forms below
//
// and the roads follow: scale = 0 is saturated; scale > 0 rounds exact; scale < 0 shifts saturated to the left, which
// is right because a value that has met a limit stays at it; far below zero only the sign counts, and far above zero
// the quotient is 0 for every operand.
#ifndef ORV_FRAME_SCALE_H
#define ORV_FRAME_SCALE_H

#include "frame/map.h"
#include "simd/saturate.h"

namespace ORV_VARIANT {

// ---- Exact values

/// 2 * half + bit 0 of odd: one bit more than a lane holds, which is what sums and differences of lanes need. The other
/// bits of odd are noise; low is the value without its top bit.
template <class T>
struct half_odd {
    using lane = T;
    vec<T> half, odd, low;
};

/// a + b, for signed and unsigned lanes: bits in common count twice, the others once.
template <class T>
ORV_INLINE half_odd<T> exact_sum(vec<T> a, vec<T> b)
{
    const auto differing = a ^ b;
    return {(a & b) + shift_right(differing, by(1)), differing, a + b};
}

/// a - b for signed lanes: a ^ b counts the bits of ~a & b as positive, and they are negative.
template <class T>
ORV_INLINE half_odd<T> exact_difference(vec<T> a, vec<T> b)
{
    static_assert(std::is_signed_v<T>);
    const auto differing = a ^ b;
    return {shift_right(differing, by(1)) - and_not(a, b), differing, a - b};
}

/// An exact value that fits its lane.
template <class T>
ORV_INLINE half_odd<T> exact_lane(vec<T> x)
{
    return {shift_right(x, by(1)), x, x};
}

/// The exact value less its lowest bit, which is kept as a trace: rounding it with one scale less gives the same, as
/// long as that scale is 2 at least.
template <class T>
ORV_INLINE half_odd<T> with_trace(half_odd<T> x)
{
    return {shift_right(x.half, by(1)), x.half | x.odd, x.half | (x.odd & splat(T(1)))};
}

// ---- Rounding shifts: x / 2^scale

/// The constants of a shift by scale, 2 <= scale <= bits of the lane.
template <class T>
struct rounding {
    shift_count shift; // scale - 1, because half is halved already
    vec<T> fraction;   // the bits that fall off
    vec<T> below_half; // the largest fraction of half that is less than one half

    explicit rounding(int scale) : shift(by(scale - 1))
    {
        using U = unsigned_of<T>;
        const U one_half = U(U(1) << (scale - 2));
        fraction = splat(T(2 * one_half - 1));
        below_half = splat(T(one_half - 1));
    }
};

template <>
struct rounding<Orv16s> {
    vec<Orv16s> factor;            // 2^-(scale - 1) with 15 fractional bits
    vec<Orv16s> low_bits, low_tie; // the bits that fall off, and what they are in a tie

    explicit rounding(int scale)
        : factor(splat(Orv16s(1 << (16 - scale)))),
          low_bits(splat(Orv16s((1 << scale) - 1))),
          low_tie(splat(Orv16s(1 << (scale - 1))))
    {}
};

/// The quotient is rounded up where this carries out of the fraction; adding to the fraction alone cannot overflow.
///   to nearest: the fraction is more than one half, or is one half and the tie goes up: to an even quotient, or, in
///   the
///               financial mode, away from zero;
///   toward zero: the value is negative and there is a fraction at all.
template <OrvRoundMode mode = orvRndNear, class T>
ORV_INLINE vec<T> round_shift(half_odd<T> x, const rounding<T>& c)
{
    const auto quotient = shift_right(x.half, c.shift);
    const auto fraction = x.half & c.fraction;
    const auto one = splat(T(1));
    const auto round_up = [&](vec<T> ties_up) ORV_INLINE_LAMBDA {
        return quotient + shift_right_logical(fraction + (c.below_half + (ties_up & one)), c.shift);
    };
    if constexpr (mode == orvRndNear) {
        return round_up(quotient | x.odd);
    } else if constexpr (mode == orvRndFinancial && std::is_signed_v<T>) {
        return round_up(~sign_mask(x.half) | x.odd);
    } else if constexpr (mode == orvRndFinancial) {
        return round_up(one);
    } else if constexpr (std::is_signed_v<T>) {
        const auto negative = sign_mask(x.half);
        return quotient + shift_right_logical(fraction + (c.fraction & negative) + (x.odd & negative & one), c.shift);
    } else {
        return quotient;
    }
}

/// To nearest in 16-bit lanes, where an instruction multiplies by 2^-shift and rounds halves up: only the ties that
/// came out odd are left to correct.
ORV_INLINE vec<Orv16s> round_shift(half_odd<Orv16s> x, const rounding<Orv16s>& c)
{
    const auto halves_up = multiply_q15(x.half, c.factor);
    const auto is_tie = is_equal(x.low & c.low_bits, c.low_tie);
    return and_not(is_tie & splat(Orv16s(1)), halves_up);
}

/// The same for scale = 1, where an odd x is a tie. The largest difference of signed lanes rounds beyond them.
template <OrvRoundMode mode = orvRndNear, class T>
ORV_INLINE vec<T> round_half(half_odd<T> x)
{
    const auto tie = x.odd & splat(T(1));
    if constexpr (mode == orvRndNear) {
        return step_up_sat(x.half, x.half & tie);
    } else if constexpr (std::is_unsigned_v<T>) {
        return mode == orvRndFinancial ? x.half + tie : x.half;
    } else if constexpr (mode == orvRndFinancial) {
        return step_up_sat(x.half, and_not(sign_mask(x.half), tie));
    } else {
        return x.half + (tie & sign_mask(x.half));
    }
}

/// Exact values in wide lanes: each is rounded there, and saturated when the lanes are packed.
ORV_INLINE vec<Orv16s> round_shift(split<Orv32s> x, const rounding<Orv32s>& c)
{
    return pack_sat(split<Orv32s>{round_shift(exact_lane(x.low), c), round_shift(exact_lane(x.high), c)});
}
ORV_INLINE vec<Orv16s> round_half(split<Orv32s> x)
{
    return pack_sat(split<Orv32s>{round_half(exact_lane(x.low)), round_half(exact_lane(x.high))});
}
ORV_INLINE vec<Orv32s> round_shift(even_odd<Orv64s> x, const rounding<Orv64s>& c)
{
    return pack_sat(even_odd<Orv64s>{round_shift(exact_lane(x.even), c), round_shift(exact_lane(x.odd), c)});
}
ORV_INLINE vec<Orv32s> round_half(even_odd<Orv64s> x)
{
    return pack_sat(even_odd<Orv64s>{round_half(exact_lane(x.even)), round_half(exact_lane(x.odd))});
}

// ---- The roads

template <int unit = 1, class Op, class D, class... S>
ORV_INLINE void map_saturated(Op op, D* d, int n, const S*... s)
{
    map<unit>([=](auto... x) ORV_INLINE_LAMBDA { return op.saturated(x...); }, d, n, s...);
}

template <int unit = 1, class Op, class D, class... S>
ORV_INLINE void map_halved(Op op, D* d, int n, const S*... s)
{
    map<unit>([=](auto... x) ORV_INLINE_LAMBDA { return round_half(op.exact(x...)); }, d, n, s...);
}

/// 2 <= scale <= bits of the lane of exact.
template <int unit = 1, class Op, class D, class... S>
ORV_INLINE void map_rounded(Op op, D* d, int n, int scale, const S*... s)
{
    using Lane = typename decltype(op.exact(vec<S, vec<D>::N>{}...))::lane;
    const rounding<Lane> c(scale);
    map<unit>([=](auto... x) ORV_INLINE_LAMBDA { return round_shift(op.exact(x...), c); }, d, n, s...);
}

/// left = -scale > 0.
template <int unit = 1, class Op, class D, class... S>
ORV_INLINE void map_shifted(Op op, D* d, int n, int left, const S*... s)
{
    const shift_count c = by(left);
    map<unit>([=](auto... x) ORV_INLINE_LAMBDA { return shift_left_sat(op.saturated(x...), c); }, d, n, s...);
}

template <int unit = 1, class Op, class D, class... S>
ORV_INLINE void map_bound(Op op, D* d, int n, const S*... s)
{
    map<unit>([=](auto... x) ORV_INLINE_LAMBDA { return sign_limit(op.saturated(x...)); }, d, n, s...);
}

/// All roads for lanes whose exact value is a half_odd of the destination's type. The caller has filled with zeros
/// above the largest scale that needs a look: bits of the lane, or one more for a sum of unsigned values.
template <int unit = 1, class Op, class D, class... S>
ORV_INLINE void map_scaled(Op op, D* d, int n, int scale, const S*... s)
{
    if (scale == 0) {
        map_saturated<unit>(op, d, n, s...);
    } else if (scale == 1) {
        map_halved<unit>(op, d, n, s...);
    } else if (std::is_unsigned_v<D> && scale > bits_of<D>) {
        const rounding<D> c(scale - 1);
        map<unit>([=](auto... x) ORV_INLINE_LAMBDA { return round_shift(with_trace(op.exact(x...)), c); }, d, n, s...);
    } else if (scale > 0) {
        map_rounded<unit>(op, d, n, scale, s...);
    } else if (scale > -bits_of<D>) {
        map_shifted<unit>(op, d, n, -scale, s...);
    } else {
        map_bound<unit>(op, d, n, s...);
    }
}

} // namespace ORV_VARIANT

#endif
