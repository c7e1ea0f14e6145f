// IEEE binary16 and binary32: by the processor's instructions (F16C), and by integer work for processors without.
#ifndef ORV_SIMD_HALF_H
#define ORV_SIMD_HALF_H

#include "simd/vec.h"

namespace ORV_VARIANT {

/// By instruction, for a caller who knows that there is one. Written as assembly, because the variant is not compiled
/// for F16C and the compiler must not use it anywhere else.
struct HalfByInstruction {
    ORV_INLINE static vec<Orv32f> widen(vec<Orv16f, 8> v)
    {
        __m256 r;
        __asm__("vcvtph2ps %1, %0" : "=x"(r) : "x"(v.r));
        return {r};
    }

    /// mode: orvRndNear, or truncation; overflow gives infinity to nearest, and the largest finite value by truncation.
    template <OrvRoundMode mode>
    ORV_INLINE static vec<Orv16f, 8> narrow(vec<Orv32f> v)
    {
        __m128i r;
        __asm__("vcvtps2ph %2, %1, %0" : "=x"(r) : "x"(v.r), "i"(mode == orvRndNear ? 0 : 3));
        return {r};
    }
};

/// The same bits by shifts of exponents, with one floating operation for subnormal values; the idea is in F. Giesen's
/// conversions between half and float (2012, public domain).
struct HalfByIntegers {
    ORV_INLINE static vec<Orv32f> widen(vec<Orv16f, 8> v)
    {
        const __m256i half = _mm256_cvtepu16_epi32(v.r);
        const __m256i magnitude = _mm256_and_si256(half, _mm256_set1_epi32(0x7fff));
        const __m256i sign = _mm256_slli_epi32(_mm256_xor_si256(half, magnitude), 16);

        // The exponent's bias grows by 112. Subnormal values are so many times 2^-24; infinity and not-a-numbers take
        // the largest exponent, and the latter become quiet.
        const __m256i normal = _mm256_add_epi32(_mm256_slli_epi32(magnitude, 13), _mm256_set1_epi32(112 << 23));
        const __m256i subnormal =
            _mm256_castps_si256(_mm256_mul_ps(_mm256_cvtepi32_ps(magnitude), _mm256_set1_ps(0x1p-24f)));
        const __m256i is_subnormal = _mm256_cmpgt_epi32(_mm256_set1_epi32(0x0400), magnitude);
        const __m256i is_special = _mm256_cmpgt_epi32(magnitude, _mm256_set1_epi32(0x7bff));
        const __m256i is_nan = _mm256_cmpgt_epi32(magnitude, _mm256_set1_epi32(0x7c00));
        const __m256i special = _mm256_or_si256(_mm256_and_si256(is_special, _mm256_set1_epi32(0x7f800000)),
                                                _mm256_and_si256(is_nan, _mm256_set1_epi32(0x00400000)));
        const __m256i value = _mm256_or_si256(_mm256_blendv_epi8(normal, subnormal, is_subnormal), special);
        return {_mm256_castsi256_ps(_mm256_or_si256(value, sign))};
    }

    /// In a floating-point state that rounds as mode says.
    template <OrvRoundMode mode>
    ORV_INLINE static vec<Orv16f, 8> narrow(vec<Orv32f> v)
    {
        constexpr bool nearest = mode == orvRndNear;
        const __m256i bits = _mm256_castps_si256(v.r);
        const __m256i magnitude = _mm256_and_si256(bits, _mm256_set1_epi32(0x7fffffff));
        const __m256i sign = _mm256_srli_epi32(_mm256_xor_si256(bits, magnitude), 16);

        // Below 2^-14: in the sum with 1/2 the last bit has the weight 2^-24, that of a subnormal half's last bit.
        const __m256 one_half = _mm256_set1_ps(0.5f);
        const __m256i least_normal = _mm256_set1_epi32(0x38800000);
        const __m256 small = _mm256_castsi256_ps(_mm256_min_epi32(magnitude, least_normal));
        const __m256i subnormal =
            _mm256_sub_epi32(_mm256_castps_si256(_mm256_add_ps(small, one_half)), _mm256_castps_si256(one_half));

        // Otherwise the fraction loses 13 bits, and the exponent's bias 112. What is too large becomes infinity, or by
        // truncation, if it is finite, the largest value.
        const __m256i infinity = _mm256_set1_epi32(0x7f800000);
        const __m256i limit = _mm256_set1_epi32(nearest ? 0x47800000 : 0x477fffff); // 65536, or just below
        __m256i normal = _mm256_sub_epi32(_mm256_min_epi32(magnitude, limit), _mm256_set1_epi32(112 << 23));
        if constexpr (nearest) { // ties go to the even one
            const __m256i last = _mm256_and_si256(_mm256_srli_epi32(normal, 13), _mm256_set1_epi32(1));
            normal = _mm256_add_epi32(_mm256_add_epi32(normal, _mm256_set1_epi32(0x0fff)), last);
        }
        normal = _mm256_srli_epi32(normal, 13);

        const __m256i is_subnormal = _mm256_cmpgt_epi32(least_normal, magnitude);
        __m256i value = _mm256_blendv_epi8(normal, subnormal, is_subnormal);
        if constexpr (!nearest) {
            const __m256i is_infinity = _mm256_cmpeq_epi32(magnitude, infinity);
            value = _mm256_sub_epi32(value, is_infinity); // 0x7bff + 1
        }
        // A not-a-number becomes quiet and keeps the upper bits of its payload.
        const __m256i payload = _mm256_and_si256(_mm256_srli_epi32(magnitude, 13), _mm256_set1_epi32(0x03ff));
        const __m256i quiet = _mm256_or_si256(payload, _mm256_set1_epi32(0x7e00));
        value = _mm256_blendv_epi8(value, quiet, _mm256_cmpgt_epi32(magnitude, infinity));
        value = _mm256_or_si256(value, sign);
        return {_mm_packus_epi32(_mm256_castsi256_si128(value), _mm256_extracti128_si256(value, 1))};
    }
};

} // namespace ORV_VARIANT

#endif
