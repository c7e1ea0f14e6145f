// Floating-point lanes: limits, signs, rounding to integral values, reciprocals, roots.
#ifndef ORV_SIMD_FLOAT_H
#define ORV_SIMD_FLOAT_H

#include <bit>

#include "simd/vec.h"

namespace ORV_VARIANT {

// ---- Limits; where an operand is a NaN, the second one is the result

ORV_INLINE vec<Orv32f> min(vec<Orv32f> a, vec<Orv32f> b) { return {_mm256_min_ps(a.r, b.r)}; }
ORV_INLINE vec<Orv64f> min(vec<Orv64f> a, vec<Orv64f> b) { return {_mm256_min_pd(a.r, b.r)}; }
ORV_INLINE vec<Orv32f> max(vec<Orv32f> a, vec<Orv32f> b) { return {_mm256_max_ps(a.r, b.r)}; }
ORV_INLINE vec<Orv64f> max(vec<Orv64f> a, vec<Orv64f> b) { return {_mm256_max_pd(a.r, b.r)}; }

// ---- Bits. Masks of comparisons are lanes of the same type.

ORV_INLINE vec<Orv32f> operator&(vec<Orv32f> a, vec<Orv32f> b) { return {_mm256_and_ps(a.r, b.r)}; }
ORV_INLINE vec<Orv64f> operator&(vec<Orv64f> a, vec<Orv64f> b) { return {_mm256_and_pd(a.r, b.r)}; }
ORV_INLINE vec<Orv32f> operator|(vec<Orv32f> a, vec<Orv32f> b) { return {_mm256_or_ps(a.r, b.r)}; }
ORV_INLINE vec<Orv64f> operator|(vec<Orv64f> a, vec<Orv64f> b) { return {_mm256_or_pd(a.r, b.r)}; }
ORV_INLINE vec<Orv32f> operator^(vec<Orv32f> a, vec<Orv32f> b) { return {_mm256_xor_ps(a.r, b.r)}; }
ORV_INLINE vec<Orv64f> operator^(vec<Orv64f> a, vec<Orv64f> b) { return {_mm256_xor_pd(a.r, b.r)}; }
ORV_INLINE vec<Orv32f> and_not(vec<Orv32f> a, vec<Orv32f> b) { return {_mm256_andnot_ps(a.r, b.r)}; }
ORV_INLINE vec<Orv64f> and_not(vec<Orv64f> a, vec<Orv64f> b) { return {_mm256_andnot_pd(a.r, b.r)}; }

template <class T>
requires is_float<T> ORV_INLINE vec<T> sign_bit(vec<T> v) { return v & splat(T(-0.0)); }
template <class T>
requires is_float<T> ORV_INLINE vec<T> magnitude(vec<T> v) { return and_not(splat(T(-0.0)), v); }

/// a == b and a > b, without an exception for quiet NaNs, which are neither.
ORV_INLINE vec<Orv32f> is_equal(vec<Orv32f> a, vec<Orv32f> b) { return {_mm256_cmp_ps(a.r, b.r, _CMP_EQ_OQ)}; }
ORV_INLINE vec<Orv64f> is_equal(vec<Orv64f> a, vec<Orv64f> b) { return {_mm256_cmp_pd(a.r, b.r, _CMP_EQ_OQ)}; }
ORV_INLINE vec<Orv32f> is_greater(vec<Orv32f> a, vec<Orv32f> b) { return {_mm256_cmp_ps(a.r, b.r, _CMP_GT_OQ)}; }
ORV_INLINE vec<Orv64f> is_greater(vec<Orv64f> a, vec<Orv64f> b) { return {_mm256_cmp_pd(a.r, b.r, _CMP_GT_OQ)}; }

/// Not a <= b: greater, or a not-a-number among them.
ORV_INLINE vec<Orv32f> is_not_within(vec<Orv32f> a, vec<Orv32f> b) { return {_mm256_cmp_ps(a.r, b.r, _CMP_NLE_UQ)}; }
ORV_INLINE vec<Orv64f> is_not_within(vec<Orv64f> a, vec<Orv64f> b) { return {_mm256_cmp_pd(a.r, b.r, _CMP_NLE_UQ)}; }

/// A not-a-number among them.
ORV_INLINE vec<Orv32f> is_unordered(vec<Orv32f> a, vec<Orv32f> b) { return {_mm256_cmp_ps(a.r, b.r, _CMP_UNORD_Q)}; }
ORV_INLINE vec<Orv64f> is_unordered(vec<Orv64f> a, vec<Orv64f> b) { return {_mm256_cmp_pd(a.r, b.r, _CMP_UNORD_Q)}; }

/// Whether a mask has any lane.
ORV_INLINE bool any(vec<Orv32f> mask) { return _mm256_movemask_ps(mask.r) != 0; }
ORV_INLINE bool any(vec<Orv64f> mask) { return _mm256_movemask_pd(mask.r) != 0; }

/// mask ? a : b.
ORV_INLINE vec<Orv32f> blend(vec<Orv32f> mask, vec<Orv32f> a, vec<Orv32f> b)
{
    return {_mm256_blendv_ps(b.r, a.r, mask.r)};
}
ORV_INLINE vec<Orv64f> blend(vec<Orv64f> mask, vec<Orv64f> a, vec<Orv64f> b)
{
    return {_mm256_blendv_pd(b.r, a.r, mask.r)};
}

/// sign of mask ? a : b.
template <class T>
requires is_float<T> ORV_INLINE vec<T> blend_by_sign(vec<T> mask, vec<T> a, vec<T> b) { return blend(mask, a, b); }

// ---- Rounding to an integral value, whatever the state of the processor

ORV_INLINE vec<Orv32f> to_nearest(vec<Orv32f> v) { return {_mm256_round_ps(v.r, _MM_FROUND_TO_NEAREST_INT | 8)}; }
ORV_INLINE vec<Orv64f> to_nearest(vec<Orv64f> v) { return {_mm256_round_pd(v.r, _MM_FROUND_TO_NEAREST_INT | 8)}; }
ORV_INLINE vec<Orv32f> toward_zero(vec<Orv32f> v) { return {_mm256_round_ps(v.r, _MM_FROUND_TO_ZERO | 8)}; }
ORV_INLINE vec<Orv64f> toward_zero(vec<Orv64f> v) { return {_mm256_round_pd(v.r, _MM_FROUND_TO_ZERO | 8)}; }

// ---- Numbers that kernels begin with

/// 2^-scale by arithmetic on the exponent, which wraps where the type has no such power.
template <class T>
requires is_float<T> ORV_INLINE T power_of_two(int scale)
{
    if constexpr (sizeof(T) == 4) {
        return std::bit_cast<T>(0x3f800000u - (Orv32u(scale) << 23));
    } else {
        return std::bit_cast<T>(0x3ff0000000000000u - (Orv64u(Orv64s(scale)) << 52));
    }
}

/// 1 / v within 1.5 * 2^-12.
ORV_INLINE vec<Orv32f> estimate_reciprocal(vec<Orv32f> v) { return {_mm256_rcp_ps(v.r)}; }

/// 1 / sqrt(v) within 1.5 * 2^-12; infinity for 0.
ORV_INLINE vec<Orv32f> estimate_reciprocal_root(vec<Orv32f> v) { return {_mm256_rsqrt_ps(v.r)}; }

/// Rounded once.
ORV_INLINE vec<Orv32f> square_root(vec<Orv32f> v) { return {_mm256_sqrt_ps(v.r)}; }
ORV_INLINE vec<Orv64f> square_root(vec<Orv64f> v) { return {_mm256_sqrt_pd(v.r)}; }

} // namespace ORV_VARIANT

#endif
