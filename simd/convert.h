// Lanes of one type as lanes of another.
//
//     convert_to<D>(v)        exact, or rounded to a floating type in the processor's rounding state
//     round_to<D, mode>(v)    floating to integer, rounded by mode and saturated
//     saturate_to<D>(v)       integer to integer, saturated
//
// Each takes and returns equally many lanes, in order, over as many registers as they need.
#ifndef ORV_SIMD_CONVERT_H
#define ORV_SIMD_CONVERT_H

#include <limits>

#include "simd/float.h"
#include "simd/lanes.h"
#include "simd/packed24.h"
#include "simd/saturate.h"

namespace ORV_VARIANT {

// ---- Exact, or rounded to a floating type

/// All 64 bits of integers as doubles: rounded once.
ORV_INLINE vec<Orv64f> to_double(vec<Orv64s> v)
{
    // The lower 32 bits as the fraction of 2^52 and the upper ones as that of 2^84: 2^52 + low and 2^84 + 2^63 +
    // 2^32 high are exact, and so is the difference of the latter and the surplus of both.
    const __m256i two52 = _mm256_castpd_si256(_mm256_set1_pd(0x1p52));
    const __m256i two84_two63 = _mm256_castpd_si256(_mm256_set1_pd(0x1p84 + 0x1p63));
    const __m256d low = _mm256_castsi256_pd(_mm256_blend_epi32(v.r, two52, 0xaa));
    const __m256d high = _mm256_castsi256_pd(_mm256_xor_si256(_mm256_srli_epi64(v.r, 32), two84_two63));
    const __m256d sum = _mm256_add_pd(_mm256_sub_pd(high, _mm256_set1_pd(0x1p84 + 0x1p63 + 0x1p52)), low);
    // In the state that rounds down, the sum of opposite values is -0.
    const __m256i is_zero = _mm256_cmpeq_epi64(v.r, _mm256_setzero_si256());
    return {_mm256_castsi256_pd(_mm256_andnot_si256(is_zero, _mm256_castpd_si256(sum)))};
}

template <class D, class S, int N>
ORV_INLINE auto convert_to(vec<S, N> v)
{
    using std::is_same_v;
    constexpr bool from_24 = sizeof(S) == 3;
    if constexpr (is_same_v<D, S>) {
        return v;
    } else if constexpr (N > register_lanes<D>) {
        return join(convert_to<D>(low_half(v)), convert_to<D>(high_half(v)));
    } else if constexpr (is_same_v<D, Orv32f> && is_same_v<S, Orv64f>) {
        if constexpr (N == 4) return vec<D, 4>{_mm_castps_si128(_mm256_cvtpd_ps(v.r))};
        else return halves<D>{convert_to<D>(v.low), convert_to<D>(v.high)};
    } else if constexpr (is_same_v<D, Orv32f> && from_24) {
        return convert_to<Orv32f>(as<Orv32s>(unpack24(v)));
    } else if constexpr (is_same_v<D, Orv32f>) {
        return to_float(convert_to<Orv32s>(v));
    } else if constexpr (is_same_v<D, Orv64f> && is_same_v<S, Orv64s>) {
        return to_double(v);
    } else if constexpr (is_same_v<D, Orv64f> && is_same_v<S, Orv32f>) {
        return vec<D>{_mm256_cvtps_pd(_mm_castsi128_ps(v.r))};
    } else if constexpr (is_same_v<D, Orv64f> && is_same_v<S, Orv32s>) {
        return vec<D>{_mm256_cvtepi32_pd(v.r)};
    } else if constexpr (is_same_v<D, Orv64f> && is_same_v<S, Orv16s>) {
        return vec<D>{_mm256_cvtepi32_pd(_mm_cvtepi16_epi32(v.r))};
    } else if constexpr (is_same_v<D, Orv32s> && is_same_v<S, Orv16s>) {
        return vec<D>{_mm256_cvtepi16_epi32(v.r)};
    } else if constexpr (is_same_v<D, Orv32s> && is_same_v<S, Orv16u>) {
        return vec<D>{_mm256_cvtepu16_epi32(v.r)};
    } else if constexpr (is_same_v<D, Orv32s> && is_same_v<S, Orv8s>) {
        return vec<D>{_mm256_cvtepi8_epi32(v.r)};
    } else if constexpr (is_same_v<D, Orv32s> && is_same_v<S, Orv8u>) {
        return vec<D>{_mm256_cvtepu8_epi32(v.r)};
    } else if constexpr (is_same_v<D, Orv16s> && is_same_v<S, Orv8s>) {
        return vec<D>{_mm256_cvtepi8_epi16(v.r)};
    } else {
        static_assert(from_24 && is_same_v<packed24<D>, S>);
        return unpack24(v);
    }
}

/// Two vectors of doubles as one of floats, rounded.
ORV_INLINE vec<Orv32f> round_together(vec<Orv64f> first, vec<Orv64f> second)
{
    const auto both = convert_to<Orv32f>(join(first, second));
    return join(both.low, both.high);
}

// ---- Integers to narrower ones, saturated

/// limited_above: no value is above the limit of D.
template <class D, bool limited_above = false, class S, int N>
ORV_INLINE vec<D, N> saturate_to(vec<S, N> v)
{
    using std::is_same_v;
    // Packing works within the halves of registers: what comes out is put in order once, at the end.
    constexpr int in_order = 0xd8; // quadwords 0, 2, 1, 3
    if constexpr (is_same_v<D, S>) {
        return v;
    } else if constexpr (sizeof(D) == 3) {
        constexpr bool has_sign = is_same_v<D, Int24>;
        const auto clamp_and_pack = [](vec<S> x) ORV_INLINE_LAMBDA {
            if constexpr (!limited_above) x = min(x, splat(S(has_sign ? 0x7fffff : 0xffffff)));
            if constexpr (std::is_signed_v<S>) x = max(x, splat(S(has_sign ? -0x800000 : 0)));
            return pack24<D>(x);
        };
        return each(clamp_and_pack, v);
    } else if constexpr (is_same_v<D, Orv32s>) {
        // The lower halves are the values where the upper halves repeat their sign.
        static_assert(is_same_v<S, Orv64s> && N == 8);
        const auto lower = even_lanes(as<Orv32s>(v.low), as<Orv32s>(v.high));
        const auto upper = odd_lanes(as<Orv32s>(v.low), as<Orv32s>(v.high));
        const auto value = blend(is_equal(upper, sign_mask(lower)), lower, limit_by_sign(upper));
        return {_mm256_permute4x64_epi64(value.r, in_order)};
    } else if constexpr (is_same_v<D, Orv16s> || is_same_v<D, Orv16u>) {
        static_assert(is_same_v<S, Orv32s> && N == 16);
        const __m256i packed =
            is_same_v<D, Orv16s> ? _mm256_packs_epi32(v.low.r, v.high.r) : _mm256_packus_epi32(v.low.r, v.high.r);
        return {_mm256_permute4x64_epi64(packed, in_order)};
    } else if constexpr (is_same_v<S, Orv16s>) {
        static_assert(is_same_v<D, Orv8s> && N == 32);
        return {_mm256_permute4x64_epi64(_mm256_packs_epi16(v.low.r, v.high.r), in_order)};
    } else {
        static_assert(is_same_v<S, Orv32s> && sizeof(D) == 1 && N == 32);
        const __m256i low = _mm256_packs_epi32(v.low.low.r, v.low.high.r);
        const __m256i high = _mm256_packs_epi32(v.high.low.r, v.high.high.r);
        const __m256i packed = is_same_v<D, Orv8s> ? _mm256_packs_epi16(low, high) : _mm256_packus_epi16(low, high);
        return {_mm256_permutevar8x32_epi32(packed, _mm256_setr_epi32(0, 4, 1, 5, 2, 6, 3, 7))};
    }
}

// ---- Floating to integer

/// v + 1/2 with the sign of v.
ORV_INLINE vec<Orv32f> away_by_half(vec<Orv32f> v)
{
    return {_mm256_add_ps(v.r, _mm256_blendv_ps(_mm256_set1_ps(0.5f), _mm256_set1_ps(-0.5f), v.r))};
}
ORV_INLINE vec<Orv64f> away_by_half(vec<Orv64f> v)
{
    return {_mm256_add_pd(v.r, _mm256_blendv_pd(_mm256_set1_pd(0.5), _mm256_set1_pd(-0.5), v.r))};
}

/// v >= limit, as the bits of an integer lane.
ORV_INLINE vec<Orv32s> reaches(vec<Orv32f> v, Orv32f limit)
{
    return {_mm256_castps_si256(_mm256_cmp_ps(v.r, _mm256_set1_ps(limit), _CMP_GE_OQ))};
}
ORV_INLINE vec<Orv64s> reaches(vec<Orv64f> v, Orv64f limit)
{
    return {_mm256_castpd_si256(_mm256_cmp_pd(v.r, _mm256_set1_pd(limit), _CMP_GE_OQ))};
}

// By the processor's state, which is to nearest as a rule, or by truncation. Values that the type does not hold and
// not-a-numbers give the lowest value, the processor's indefinite integer.
template <bool nearest = true>
ORV_INLINE vec<Orv32s> to_32s(vec<Orv32f> v)
{
    return {nearest ? _mm256_cvtps_epi32(v.r) : _mm256_cvttps_epi32(v.r)};
}
template <bool nearest = true>
ORV_INLINE vec<Orv32s, 4> to_32s(vec<Orv64f> v)
{
    return {nearest ? _mm256_cvtpd_epi32(v.r) : _mm256_cvttpd_epi32(v.r)};
}
/// To 64 bits, for which there is no instruction; saturated.
template <bool nearest>
ORV_INLINE vec<Orv64s> to_64s(vec<Orv64f> v)
{
    // In the sum with 1.5 * 2^52 the last bit has the weight 1. The sum's sign and exponent tell whether this was all.
    const auto small = splat(0x1.8p52);
    const auto whole = nearest ? v : toward_zero(v);
    const auto moved = as<Orv64s>(whole + small);
    const auto upper_bits = splat(Orv64s(-1) << 52);
    if (_mm256_testz_si256((moved ^ as<Orv64s>(small)).r, upper_bits.r)) [[likely]]
        return moved - as<Orv64s>(small);

    // In the sum with 1.5 * 2^84 the last bit has the weight 2^32: it shows x / 2^32 as an integer and leaves a rest of
    // at most 2^32. Not-a-numbers and small values are taken as -2^63, large ones as 2^63, which wraps to it.
    const auto large = splat(0x1.8p84);
    const auto x = min(max(whole, splat(-0x1p63)), splat(0x1p63));
    const auto sum = x + large;
    const auto rest = x - (sum - large);
    const vec<Orv64s> upper{_mm256_slli_epi64(as<Orv64s>(sum).r, 32)};
    const auto lower = as<Orv64s>(rest + small) - as<Orv64s>(small);
    return (upper + lower) ^ reaches(v, 0x1p63); // all bits but the sign
}

/// The one conversion of floating lanes to integers.
///
///   +infinity, too large    the type's largest value: by a minimum in the floating type, or, where that type does not
///                           have the largest value, after the conversion
///   -infinity, too small    the type's lowest value: saturation of the indefinite integer, the lowest of its type
///   not-a-number            the same: the minimum lets it pass, and it converts to the indefinite integer
///
/// To nearest the processor's state is to nearest; in the financial mode it truncates, so that the sum with 1/2 does
/// not round up to an integer that it does not reach.
template <class D, OrvRoundMode mode, class S, int N>
ORV_INLINE auto round_to(vec<S, N> v)
{
    constexpr bool nearest = mode == orvRndNear;
    constexpr int digits = sizeof(D) == 3 ? (std::is_same_v<D, Int24> ? 23 : 24) : std::numeric_limits<D>::digits;
    constexpr bool has_limit = digits <= std::numeric_limits<S>::digits;
    constexpr S end = S(Orv64u(1) << digits); // one more than the largest value

    const auto to_word = [](vec<S> x) ORV_INLINE_LAMBDA {
        if constexpr (has_limit) x = min(splat(end - 1), x); // x where it is a not-a-number
        if constexpr (mode == orvRndFinancial) x = away_by_half(x);
        if constexpr (sizeof(D) == 8) {
            return to_64s<nearest>(x);
        } else if constexpr (!has_limit) {
            return to_32s<nearest>(x) ^ reaches(x, end); // all bits but the sign
        } else {
            return to_32s<nearest>(x);
        }
    };
    if constexpr (sizeof(D) == 4 && sizeof(S) == 8) {
        return halves<D>{to_word(v.low), to_word(v.high)};
    } else {
        return saturate_to<D, has_limit>(each(to_word, v));
    }
}

} // namespace ORV_VARIANT

#endif
