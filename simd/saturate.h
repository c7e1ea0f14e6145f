// Integer arithmetic that stops at the limits of the lane's type instead of wrapping.
#ifndef ORV_SIMD_SATURATE_H
#define ORV_SIMD_SATURATE_H

#include <limits>

#include "simd/vec.h"

namespace ORV_VARIANT {

template <class T>
inline constexpr T max_of = std::numeric_limits<T>::max();
template <class T>
inline constexpr T min_of = std::numeric_limits<T>::min();

/// The limit on the side of v's sign: the maximum for v >= 0, the minimum below.
template <class T>
ORV_INLINE vec<T> limit_by_sign(vec<T> v)
{
    return sign_mask(v) ^ splat(max_of<T>);
}

/// The smaller one.
template <class T>
requires(!is_float<T>) ORV_INLINE vec<T> min(vec<T> a, vec<T> b)
{
    if constexpr (std::is_same_v<T, Orv8u>) {
        return {_mm256_min_epu8(a.r, b.r)};
    } else if constexpr (std::is_same_v<T, Orv16s>) {
        return {_mm256_min_epi16(a.r, b.r)};
    } else if constexpr (std::is_same_v<T, Orv16u>) {
        return {_mm256_min_epu16(a.r, b.r)};
    } else if constexpr (std::is_same_v<T, Orv32s>) {
        return {_mm256_min_epi32(a.r, b.r)};
    } else if constexpr (std::is_same_v<T, Orv32u>) {
        return {_mm256_min_epu32(a.r, b.r)};
    } else {
        static_assert(std::is_same_v<T, Orv64s>);
        return blend(is_greater(a, b), b, a);
    }
}

/// The larger one.
ORV_INLINE vec<Orv8u> max(vec<Orv8u> a, vec<Orv8u> b) { return {_mm256_max_epu8(a.r, b.r)}; }
ORV_INLINE vec<Orv16s> max(vec<Orv16s> a, vec<Orv16s> b) { return {_mm256_max_epi16(a.r, b.r)}; }
ORV_INLINE vec<Orv16u> max(vec<Orv16u> a, vec<Orv16u> b) { return {_mm256_max_epu16(a.r, b.r)}; }
ORV_INLINE vec<Orv32s> max(vec<Orv32s> a, vec<Orv32s> b) { return {_mm256_max_epi32(a.r, b.r)}; }
ORV_INLINE vec<Orv32u> max(vec<Orv32u> a, vec<Orv32u> b) { return {_mm256_max_epu32(a.r, b.r)}; }
ORV_INLINE vec<Orv64s> max(vec<Orv64s> a, vec<Orv64s> b) { return blend(is_greater(a, b), a, b); }

template <class T>
ORV_INLINE vec<T> add_sat(vec<T> a, vec<T> b)
{
    if constexpr (std::is_same_v<T, Orv8u>) {
        return {_mm256_adds_epu8(a.r, b.r)};
    } else if constexpr (std::is_same_v<T, Orv16u>) {
        return {_mm256_adds_epu16(a.r, b.r)};
    } else if constexpr (std::is_same_v<T, Orv16s>) {
        return {_mm256_adds_epi16(a.r, b.r)};
    } else if constexpr (std::is_same_v<T, Orv32u>) {
        return {_mm256_add_epi32(_mm256_min_epu32(a.r, (~b).r), b.r)}; // a stays below what b leaves of the range
    } else if constexpr (std::is_same_v<T, Orv64u>) {
        // There is a carry where both top bits are set, or one is and the sum's is not.
        const auto sum = a + b;
        return sum | as<T>(sign_mask(as<Orv64s>((a & b) | and_not(sum, a | b))));
    } else {
        // The sum has overflowed where both operands have the sign that it has not.
        const auto sum = a + b;
        return blend_by_sign((a ^ sum) & (b ^ sum), limit_by_sign(a), sum);
    }
}

/// a - b.
template <class T>
ORV_INLINE vec<T> sub_sat(vec<T> a, vec<T> b)
{
    if constexpr (std::is_same_v<T, Orv8u>) {
        return {_mm256_subs_epu8(a.r, b.r)};
    } else if constexpr (std::is_same_v<T, Orv16u>) {
        return {_mm256_subs_epu16(a.r, b.r)};
    } else if constexpr (std::is_same_v<T, Orv16s>) {
        return {_mm256_subs_epi16(a.r, b.r)};
    } else {
        // The difference has overflowed where the operands differ in sign and it has not the sign of a.
        static_assert(std::is_signed_v<T>);
        const auto difference = a - b;
        return blend_by_sign((a ^ b) & (a ^ difference), limit_by_sign(a), difference);
    }
}

/// The magnitude, whatever the value.
ORV_INLINE vec<Orv16u> magnitude(vec<Orv16s> v) { return {_mm256_abs_epi16(v.r)}; }
ORV_INLINE vec<Orv32u> magnitude(vec<Orv32s> v) { return {_mm256_abs_epi32(v.r)}; }

/// The magnitude; that of the minimum is the maximum.
ORV_INLINE vec<Orv16s> abs_sat(vec<Orv16s> v)
{
    return {_mm256_min_epu16(_mm256_abs_epi16(v.r), splat(max_of<Orv16s>).r)};
}
ORV_INLINE vec<Orv32s> abs_sat(vec<Orv32s> v)
{
    return {_mm256_min_epu32(_mm256_abs_epi32(v.r), splat(max_of<Orv32s>).r)};
}

/// v + step for steps of 0 and 1 that carry no unsigned v beyond its type.
template <class T>
ORV_INLINE vec<T> step_up_sat(vec<T> v, vec<T> step)
{
    if constexpr (std::is_unsigned_v<T>) {
        return v + step;
    } else if constexpr (sizeof(T) == 2) {
        return add_sat(v, step);
    } else {
        const auto next = v + step;
        return next + is_greater(v, next); // wrapped to the minimum, and one step back
    }
}

/// Wide lanes back in narrow ones.
ORV_INLINE vec<Orv8u> pack_sat(split<Orv16u> w)
{
    // The instruction takes its operands for signed ones.
    const __m256i limit = _mm256_set1_epi16(max_of<Orv8u>);
    return {_mm256_packus_epi16(_mm256_min_epu16(w.low.r, limit), _mm256_min_epu16(w.high.r, limit))};
}
ORV_INLINE vec<Orv16u> pack_sat(split<Orv32u> w)
{
    const __m256i limit = _mm256_set1_epi32(max_of<Orv16u>);
    return {_mm256_packus_epi32(_mm256_min_epu32(w.low.r, limit), _mm256_min_epu32(w.high.r, limit))};
}
ORV_INLINE vec<Orv16s> pack_sat(split<Orv32s> w) { return {_mm256_packs_epi32(w.low.r, w.high.r)}; }
ORV_INLINE vec<Orv16s> pack_sat(even_odd<Orv32s> w)
{
    // Four even lanes, then four odd ones, in each half.
    const __m128i order = _mm_setr_epi8(0, 1, 8, 9, 2, 3, 10, 11, 4, 5, 12, 13, 6, 7, 14, 15);
    return {_mm256_shuffle_epi8(_mm256_packs_epi32(w.even.r, w.odd.r), _mm256_broadcastsi128_si256(order))};
}
ORV_INLINE vec<Orv32s> pack_sat(even_odd<Orv64s> w)
{
    const auto clamp = [](vec<Orv64s> v) {
        const auto high = splat(Orv64s(max_of<Orv32s>));
        const auto low = splat(Orv64s(min_of<Orv32s>));
        v = blend(is_greater(v, high), high, v);
        return blend(is_greater(low, v), low, v);
    };
    return {_mm256_blend_epi32(clamp(w.even).r, _mm256_slli_epi64(clamp(w.odd).r, 32), 0xaa)};
}

/// v * 2^n, n >= 0.
template <class T>
ORV_INLINE vec<T> shift_left_sat(vec<T> v, shift_count n)
{
    const auto shifted = shift_left(v, n);
    const auto fits = is_equal(shift_right(shifted, n), v);
    if constexpr (std::is_signed_v<T>) {
        return blend(fits, shifted, limit_by_sign(v));
    } else {
        return shifted | ~fits;
    }
}

/// v * 2^n for an n that leaves only the sign: the maximum for v > 0, the minimum for v < 0, 0 for 0.
template <class T>
ORV_INLINE vec<T> sign_limit(vec<T> v)
{
    const auto is_zero = is_equal(v, splat(T(0)));
    if constexpr (std::is_signed_v<T>) {
        return and_not(is_zero, limit_by_sign(v));
    } else {
        return ~is_zero;
    }
}

} // namespace ORV_VARIANT

#endif
