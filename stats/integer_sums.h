// Exact sums over integers, real and complex, and what becomes of them. Sums of 32 bits take in so many vectors
// as cannot overflow them, and go to 64 bits then.
#ifndef ORV_STATS_INTEGER_SUMS_H
#define ORV_STATS_INTEGER_SUMS_H

#include <limits>

#include "frame/reduce.h"
#include "simd/saturate.h"

namespace ORV_VARIANT {

// ---- What is summed. Each takes `lanes` elements at a time, up to most_steps times; totals() gives the sums of both
//      lanes in each of four places.

inline constexpr int most_steps = 1 << 15;

/// Sums of lanes 2k and 2k + 1 of either half stay apart: complex kinds use them for two results.
ORV_INLINE vec<Orv64s> widened(vec<Orv32s> v) { return widen(low_half(v)) + widen(high_half(v)); }
ORV_INLINE vec<Orv64s> widened(vec<Orv32u> v) { return as<Orv64s>(widen(low_half(v)) + widen(high_half(v))); }

ORV_INLINE vec<Orv32s> pair_sums(vec<Orv16s> v) { return multiply_add_pairs(v, splat(Orv16s(1))); }

/// Of a complex vector: two real parts, then their two imaginary parts, and so on.
ORV_INLINE vec<Orv16s> group_parts(vec<Orv16s> v)
{
    return shuffle_bytes(v, twice({{0, 1, 4, 5, 2, 3, 6, 7, 8, 9, 12, 13, 10, 11, 14, 15}}));
}

/// x.
struct ValueSums {
    static constexpr int lanes = 16;
    vec<Orv32s> sum = splat(Orv32s(0));

    ORV_INLINE void add(vec<Orv16s> x) { sum = sum + pair_sums(x); }
    ORV_INLINE vec<Orv64s> totals(int) const { return widened(sum); }
};

/// The real parts in even places, the imaginary ones in odd places.
struct ComplexValueSums : ValueSums {
    static constexpr int lanes = 8;

    ORV_INLINE void add(vec<Orv16s> x) { ValueSums::add(group_parts(x)); }
};

/// |x|.
struct MagnitudeSums {
    static constexpr int lanes = 16;
    vec<Orv32s> sum = splat(Orv32s(0));

    ORV_INLINE void add(vec<Orv16s> x)
    {
        const vec<Orv16s> sign = {_mm256_sign_epi16(splat(Orv16s(1)).r, x.r)};
        sum = sum + multiply_add_pairs(x, sign);
    }
    ORV_INLINE vec<Orv64s> totals(int) const { return widened(sum); }
};

/// Sums of 32-bit values, from what they are modulo 2^32 and from those of the upper halves. Held, or the compiler adds
/// the vectors of several steps first, for which 32-bit code has no registers.
template <class T>
struct WordSums {
    vec<T> low = splat(T(0)), high = low;

    ORV_INLINE void add(vec<T> x)
    {
        low = held(low + x);
        high = held(high + shift_right(x, by(16)));
    }
    /// The sum of the lower halves is below 2^31.
    ORV_INLINE vec<Orv64s> totals() const
    {
        const vec<T> below = low - shift_left(high, by(16));
        return widened(as<Orv32u>(below)) + shift_left(widened(high), by(16));
    }
};

/// x of 32 bits.
struct WideValueSums {
    static constexpr int lanes = 8;
    WordSums<Orv32s> sum;

    ORV_INLINE void add(vec<Orv32s> x) { sum.add(held(x)); }
    ORV_INLINE vec<Orv64s> totals(int) const { return sum.totals(); }
};

/// x^2.
struct SquareSums {
    static constexpr int lanes = 16;
    WordSums<Orv32u> sum;

    ORV_INLINE void add(vec<Orv16s> x) { sum.add(as<Orv32u>(multiply_add_pairs(x, x))); } // at most 2^31
    ORV_INLINE vec<Orv64s> totals(int) const { return sum.totals(); }
};

/// x * y. Pairs of products reach 2^31, but nothing below 1 - 2^31: less one, they fit.
struct ProductSums16 {
    static constexpr int lanes = 16;
    WordSums<Orv32s> sum;

    ORV_INLINE void add(vec<Orv16s> x, vec<Orv16s> y) { sum.add(multiply_add_pairs(x, y) - splat(Orv32s(1))); }
    ORV_INLINE vec<Orv64s> totals(int steps) const { return sum.totals() + splat(2 * Orv64s(steps)); }
};

/// x * y of a real x: re in even places, im in odd ones.
struct RealComplexSums : ProductSums16 {
    static constexpr int lanes = 8;

    ORV_INLINE void add(vec<Orv16s, 8> x, vec<Orv16s> y)
    {
        const vec<Orv32s> twice_each = as_pairs(vec<Orv32s, 4>{x.r});
        ProductSums16::add(as<Orv16s>(twice_each), group_parts(y));
    }
};

/// x * y of complex values: re is what the even places have more than the odd ones of `same`, im is all of `cross`.
struct ComplexSums16 {
    static constexpr int lanes = 8;
    ProductSums16 same, cross;

    ORV_INLINE void add(vec<Orv16s> x, vec<Orv16s> y)
    {
        const vec<Orv16s> a = group_parts(x), b = group_parts(y);
        same.add(a, b);
        cross.add(a, as<Orv16s>(swap_pairs(as<Orv32f>(b))));
    }
    ORV_INLINE even_odd<Orv64s> totals(int steps) const { return {same.totals(steps), cross.totals(steps)}; }
};

/// |x - y|, which takes 16 bits without a sign.
ORV_INLINE vec<Orv16s> distance(vec<Orv16s> x, vec<Orv16s> y) { return max(x, y) - min(x, y); }

/// Sums of unsigned values, less 2^15 each.
struct UnsignedSums {
    vec<Orv32s> sum = splat(Orv32s(0));

    ORV_INLINE void add(vec<Orv16s> x) { sum = sum + pair_sums(x ^ splat(Orv16s(-0x8000))); }
    ORV_INLINE vec<Orv64s> totals(int steps) const { return widened(sum) + splat(Orv64s(steps) << 17); }
};

struct DistanceSums {
    static constexpr int lanes = 16;
    UnsignedSums sum;

    ORV_INLINE void add(vec<Orv16s> x, vec<Orv16s> y) { sum.add(distance(x, y)); }
    ORV_INLINE vec<Orv64s> totals(int steps) const { return sum.totals(steps); }
};

/// |x - y|^2, in halves.
struct SquaredDistanceSums {
    static constexpr int lanes = 16;
    UnsignedSums low, high;

    ORV_INLINE void add(vec<Orv16s> x, vec<Orv16s> y)
    {
        const vec<Orv16s> d = distance(x, y);
        low.add(multiply_low(d, d));
        high.add({_mm256_mulhi_epu16(d.r, d.r)});
    }
    ORV_INLINE vec<Orv64s> totals(int steps) const
    {
        return low.totals(steps) + shift_left(high.totals(steps), by(16));
    }
};

// ---- The sums

ORV_INLINE even_odd<Orv64s> operator+(even_odd<Orv64s> a, even_odd<Orv64s> b)
{
    return {a.even + b.even, a.odd + b.odd};
}

/// n elements of each source.
template <class Sums, class... Source>
auto exact_totals(std::ptrdiff_t n, const Source*... source)
{
    constexpr int lanes = Sums::lanes, unroll = 4;
    decltype(Sums().totals(0)) totals = {};
    for (std::ptrdiff_t i = 0; i < n;) {
        Sums sums;
        const std::ptrdiff_t first = i, most = std::ptrdiff_t(lanes) * most_steps, end = n - i < most ? n : i + most;
        const auto take = [&](auto, std::ptrdiff_t at)
                              ORV_INLINE_LAMBDA { sums.add(load_elements<lanes>(source + at)...); };
        i = accumulate<unroll, lanes>(i, end, take);
        i = accumulate<1, lanes>(i, end, take);
        int steps = int((i - first) / lanes);
        if (i < end) {
            sums.add(load_first_elements<lanes>(source + i, int(end - i))...);
            ++steps;
            i = end;
        }
        totals = totals + sums.totals(steps);
    }
    return totals;
}

template <class Sums, class... Source>
ORV_INLINE Orv64s exact_total(std::ptrdiff_t n, const Source*... source)
{
    return sum_of_lanes(exact_totals<Sums>(n, source...));
}

// ---- Results

template <class T>
ORV_INLINE T saturated(Orv64s x)
{
    constexpr Orv64s least = std::numeric_limits<T>::min(), most = std::numeric_limits<T>::max();
    return T(x < least ? least : x > most ? most : x);
}

/// total * 2^-scale, to nearest with ties to even, saturated.
template <class T>
inline T scaled_total(Orv64s total, int scale)
{
    if (scale > 0) {
        const int s = scale < 63 ? scale : 63;
        const Orv64s quotient = total >> s, rest = total - (quotient << s), half = Orv64s(1) << (s - 1);
        return saturated<T>(quotient + (rest > half || (rest == half && (quotient & 1))));
    }
    const int s = scale > -63 ? -scale : 63;
    constexpr Orv64s least = std::numeric_limits<Orv64s>::min(), most = std::numeric_limits<Orv64s>::max();
    if (total > most >> s) return std::numeric_limits<T>::max();
    if (total < least >> s) return std::numeric_limits<T>::min();
    return saturated<T>(Orv64s(Orv64u(total) << s));
}

} // namespace ORV_VARIANT

#endif
