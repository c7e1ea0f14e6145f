// The law of scale factors, once for all integer families.
//
// A form with a scale factor delivers x * 2^-scale for the exact result x of its operation: rounded to nearest with
// ties to even, saturated last. An operation that follows the law gives two things on vectors of operands:
//
//     saturated(a, b, ...)    x, stopped at the limits of the type
//     exact(a, b, ...)        x itself, in one of the forms below: half_odd, split or even_odd lanes, roomy
//
// and the roads follow: scale = 0 is saturated; scale > 0 rounds exact; scale < 0 shifts saturated to the left, which
// is right because a value that has met a limit stays at it; far below zero only the sign counts, and far above zero
// the quotient is 0 for every operand.
#ifndef ORV_FRAME_SCALE_H
#define ORV_FRAME_SCALE_H

#include <utility>

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
struct lane_rounding {
    shift_count shift; // scale - 1, because half is halved already
    vec<T> fraction;   // the bits that fall off
    vec<T> below_half; // the largest fraction of half that is less than one half

    explicit lane_rounding(int scale) : shift(by(scale - 1))
    {
        using U = unsigned_of<T>;
        const U one_half = U(U(1) << (scale - 2));
        fraction = splat(T(2 * one_half - 1));
        below_half = splat(T(one_half - 1));
    }
};

/// The same, or what serves better where all that is wanted is rounding to nearest.
template <class T>
struct rounding : lane_rounding<T> {
    using lane_rounding<T>::lane_rounding;
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
///   to nearest: the fraction is more than one half, or one half and the tie goes up: to an even quotient, or, in the
///       financial mode, away from zero;
///   toward zero: the value is negative and there is a fraction at all.
template <OrvRoundMode mode = orvRndNear, class T>
ORV_INLINE vec<T> round_shift(half_odd<T> x, const lane_rounding<T>& c)
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

// ---- Exact values in wide lanes: each is rounded there, and saturated when the lanes are packed

template <class T, class Round>
ORV_INLINE auto pack_each(split<T> x, Round round)
{
    return pack_sat(split<T>{round(x.low), round(x.high)});
}
template <class T, class Round>
ORV_INLINE auto pack_each(even_odd<T> x, Round round)
{
    return pack_sat(even_odd<T>{round(x.even), round(x.odd)});
}
template <class T, class Round>
ORV_INLINE auto pack_each(vec<T> x, Round round)
{
    return round(x);
}

template <template <class> class Wide, class T>
requires(!std::is_same_v<Wide<T>, half_odd<T>>) ORV_INLINE auto round_shift(Wide<T> x, const rounding<T>& c)
{
    return pack_each(x, [&](auto lanes) ORV_INLINE_LAMBDA { return round_shift(exact_lane(lanes), c); });
}
template <template <class> class Wide, class T>
requires(!std::is_same_v<Wide<T>, half_odd<T>>) ORV_INLINE auto round_half(Wide<T> x)
{
    return pack_each(x, [](auto lanes) ORV_INLINE_LAMBDA { return round_half(exact_lane(lanes)); });
}

// ---- The same where the lanes have room

/// Exact values that leave room for the addition which rounds them: signed ones of at most a quarter of the lane's
/// range with scales up to bits - 2, and any in 16-bit unsigned lanes, where the average instruction has a bit more.
template <class Wide>
struct roomy {
    using lane = typename Wide::lane;
    Wide x;
};

/// The constants of a shift by scale, 1 <= scale.
template <class T>
struct plain_rounding {
    shift_count shift;
    vec<T> below_half; // the largest fraction that is less than one half

    explicit plain_rounding(int scale) : shift(by(scale)), below_half(splat(T((T(1) << (scale - 1)) - 1))) {}
};

/// Adds just below one half, and the rest of it where the quotient is odd, so that only the ties there go up.
template <class T>
ORV_INLINE vec<T> round_plain(vec<T> x, const plain_rounding<T>& c)
{
    const auto odd = shift_right_logical(x, c.shift) & splat(T(1));
    return shift_right(x + (c.below_half + odd), c.shift);
}

/// (a + b + 1) / 2 with a carry is the first step of the shift; scale >= 2.
template <>
struct plain_rounding<Orv16u> {
    shift_count shift, shift_less_one;
    vec<Orv16u> below_half_less_one;

    explicit plain_rounding(int scale)
        : shift(by(scale)), shift_less_one(by(scale - 1)), below_half_less_one(splat(Orv16u((1 << (scale - 1)) - 2)))
    {}
};
ORV_INLINE vec<Orv16u> round_plain(vec<Orv16u> x, const plain_rounding<Orv16u>& c)
{
    const auto odd = shift_right_logical(x, c.shift) & splat(Orv16u(1));
    const vec<Orv16u> first_step = {_mm256_avg_epu16(x.r, (c.below_half_less_one + odd).r)};
    return shift_right_logical(first_step, c.shift_less_one);
}

/// To nearest at scale 1.
template <class T>
ORV_INLINE vec<T> halve_plain(vec<T> x)
{
    return shift_right(x + (shift_right_logical(x, by(1)) & splat(T(1))), by(1));
}

template <class Wide>
ORV_INLINE auto round_shift(roomy<Wide> x, const plain_rounding<typename Wide::lane>& c)
{
    return pack_each(x.x, [&](auto lanes) ORV_INLINE_LAMBDA { return round_plain(lanes, c); });
}
template <class Wide>
ORV_INLINE auto round_half(roomy<Wide> x)
{
    return pack_each(x.x, [](auto lanes) ORV_INLINE_LAMBDA { return halve_plain(lanes); });
}

template <class Exact>
struct rounding_for {
    using type = rounding<typename Exact::lane>;
};
template <class Wide>
struct rounding_for<roomy<Wide>> {
    using type = plain_rounding<typename Wide::lane>;
};

// ---- The roads. Lanes of D may be pairs of narrower lanes, which the operation takes apart.

template <int unit = 1, class Op, class D, class... S>
ORV_INLINE void map_saturated(Op op, D* d, int n, const S*... s)
{
    map<unit>([=](auto... x) ORV_INLINE_LAMBDA { return as<D>(op.saturated(x...)); }, d, n, s...);
}

template <int unit = 1, class Op, class D, class... S>
ORV_INLINE void map_halved(Op op, D* d, int n, const S*... s)
{
    map<unit>([=](auto... x) ORV_INLINE_LAMBDA { return as<D>(round_half(op.exact(x...))); }, d, n, s...);
}

/// What the operation gives for sources of the types S and a destination of type D.
template <class Op, class D, class... S>
using exact_of = decltype(std::declval<Op>().exact(vec<S, vec<D>::N>{}...));

/// 2 <= scale <= bits of the lane of exact.
template <int unit = 1, class Op, class D, class... S>
ORV_INLINE void map_rounded(Op op, D* d, int n, int scale, const S*... s)
{
    const typename rounding_for<exact_of<Op, D, S...>>::type c(scale);
    map<unit>([=](auto... x) ORV_INLINE_LAMBDA { return as<D>(round_shift(op.exact(x...), c)); }, d, n, s...);
}

/// The same for a scale of one more, which sums of unsigned lanes need.
template <int unit = 1, class Op, class D, class... S>
ORV_INLINE void map_rounded_far(Op op, D* d, int n, int scale, const S*... s)
{
    const rounding<D> c(scale - 1);
    map<unit>([=](auto... x) ORV_INLINE_LAMBDA { return round_shift(with_trace(op.exact(x...)), c); }, d, n, s...);
}

/// left = -scale > 0.
template <int unit = 1, class Op, class D, class... S>
ORV_INLINE void map_shifted(Op op, D* d, int n, int left, const S*... s)
{
    const shift_count c = by(left);
    map<unit>([=](auto... x) ORV_INLINE_LAMBDA { return as<D>(shift_left_sat(op.saturated(x...), c)); }, d, n, s...);
}

template <int unit = 1, class Op, class D, class... S>
ORV_INLINE void map_bound(Op op, D* d, int n, const S*... s)
{
    map<unit>([=](auto... x) ORV_INLINE_LAMBDA { return as<D>(sign_limit(op.saturated(x...))); }, d, n, s...);
}

/// All roads. The caller has filled with zeros above the largest scale that needs a look: bits of the lane of exact, or
/// one more for a sum of unsigned values.
template <int unit = 1, class Op, class D, class... S>
ORV_INLINE void map_scaled(Op op, D* d, int n, int scale, const S*... s)
{
    constexpr bool is_unsigned_sum = std::is_same_v<exact_of<Op, D, S...>, half_odd<D>> && std::is_unsigned_v<D>;
    if (scale == 0) {
        map_saturated<unit>(op, d, n, s...);
    } else if (scale == 1) {
        map_halved<unit>(op, d, n, s...);
    } else if (scale > 0) {
        if constexpr (is_unsigned_sum) {
            if (scale > bits_of<D>) return map_rounded_far<unit>(op, d, n, scale, s...);
        }
        map_rounded<unit>(op, d, n, scale, s...);
    } else if (scale > -bits_of<D>) {
        map_shifted<unit>(op, d, n, -scale, s...);
    } else {
        map_bound<unit>(op, d, n, s...);
    }
}

} // namespace ORV_VARIANT

#endif
