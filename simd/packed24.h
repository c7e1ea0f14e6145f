// Packed 24-bit samples: three bytes, least significant first. A vector of them has 32 samples, which fill three
// registers in memory.
#ifndef ORV_SIMD_PACKED24_H
#define ORV_SIMD_PACKED24_H

#include <cstddef>

#include "simd/vec.h"

namespace ORV_VARIANT {

/// Word is the type of a lane that holds one sample: Orv32s or Orv32u.
template <class Word>
struct packed24 {
    Orv8u bytes[3];
};
using Int24 = packed24<Orv32s>;
using UInt24 = packed24<Orv32u>;

ORV_INLINE const Int24* as_24s(const Orv8u* p) { return reinterpret_cast<const Int24*>(p); }
ORV_INLINE const UInt24* as_24u(const Orv8u* p) { return reinterpret_cast<const UInt24*>(p); }
ORV_INLINE Int24* as_24s(Orv8u* p) { return reinterpret_cast<Int24*>(p); }
ORV_INLINE UInt24* as_24u(Orv8u* p) { return reinterpret_cast<UInt24*>(p); }

template <class Word>
inline constexpr int register_lanes<packed24<Word>> = 8;
template <class Word>
inline constexpr int vector_lanes<packed24<Word>> = 32;

/// Eight samples on their way: four in bytes 0 to 11 of the lower half, four in bytes 4 to 15 of the upper half. So two
/// plain loads of 16 bytes bring 24 bytes and no other.
template <class Word>
struct vec<packed24<Word>, 8> {
    static constexpr int N = 8;
    using lane = packed24<Word>;
    __m256i r;
};

/// One sample a lane, in its upper three bytes, above zeros.
template <class Word>
ORV_INLINE vec<Word> unpack24_upper(vec<packed24<Word>, 8> v)
{
    constexpr char no = -1;
    const __m256i order = _mm256_setr_epi8(no, 0, 1, 2, no, 3, 4, 5, no, 6, 7, 8, no, 9, 10, 11, // lower half
                                           no, 4, 5, 6, no, 7, 8, 9, no, 10, 11, 12, no, 13, 14, 15);
    return {_mm256_shuffle_epi8(v.r, order)};
}
/// One sample a lane: sign or zeros above it.
template <class Word>
ORV_INLINE vec<Word> unpack24(vec<packed24<Word>, 8> v)
{
    const __m256i upper = unpack24_upper(v).r;
    if constexpr (std::is_signed_v<Word>) {
        return {_mm256_srai_epi32(upper, 8)};
    } else {
        return {_mm256_srli_epi32(upper, 8)};
    }
}

/// The lower three bytes of each lane.
template <class D, class T>
ORV_INLINE vec<D, 8> pack24(vec<T> v)
{
    constexpr char no = -1;
    const __m256i order = _mm256_setr_epi8(0, 1, 2, 4, 5, 6, 8, 9, 10, 12, 13, 14, no, no, no, no, // lower half
                                           no, no, no, no, 0, 1, 2, 4, 5, 6, 8, 9, 10, 12, 13, 14);
    return {_mm256_shuffle_epi8(v.r, order)};
}

// ---- Loads and stores: exactly the bytes of the samples

template <class T, int N>
requires(sizeof(T) == 3 && N == 8) ORV_INLINE vec<T, N> load(const T* samples)
{
    const char* p = reinterpret_cast<const char*>(samples);
    return {_mm256_loadu2_m128i(reinterpret_cast<const __m128i*>(p + 8), reinterpret_cast<const __m128i*>(p))};
}

template <class T, int N>
requires(sizeof(T) == 3 && N == 8) ORV_INLINE vec<T, N> load_n(const T* samples, int n)
{
    const char* p = reinterpret_cast<const char*>(samples);
    const char* end = p + std::ptrdiff_t(3) * n;
    if (n >= 4) {
        const __m128i front =
            _mm_insert_epi32(_mm_loadl_epi64(reinterpret_cast<const __m128i*>(p)), peek<int>(p + 8), 2);
        const __m128i back = _mm_unpacklo_epi64(_mm_slli_epi64(_mm_cvtsi32_si128(peek<int>(end - 12)), 32),
                                                _mm_loadl_epi64(reinterpret_cast<const __m128i*>(end - 8)));
        return {_mm256_set_m128i(back, front)};
    }
    // Twelve bytes: the first two samples and the last two, or the only one four times.
    Orv64u front, back;
    if (n >= 2) {
        front = peek<Orv32u>(p) | Orv64u(peek<Orv16u>(p + 4)) << 32;
        back = peek<Orv32u>(end - 6) | Orv64u(peek<Orv16u>(end - 2)) << 32;
    } else {
        const Orv64u sample = Orv64u(peek<Orv16u>(p)) | Orv64u(peek<Orv8u>(p + 2)) << 16;
        front = back = sample | sample << 24;
    }
    const __m128i four =
        _mm_unpacklo_epi64(_mm_set1_epi64x(Orv64s(front | back << 48)), _mm_cvtsi32_si128(int(back >> 16)));
    return {_mm256_set_m128i(_mm_slli_si128(four, 4), four)};
}

template <class Word>
ORV_INLINE void store(packed24<Word>* samples, vec<packed24<Word>, 8> v)
{
    char* p = reinterpret_cast<char*>(samples);
    const __m128i low = _mm256_castsi256_si128(v.r);
    _mm_storeu_si128(reinterpret_cast<__m128i*>(p + 8), _mm256_extracti128_si256(v.r, 1));
    _mm_storel_epi64(reinterpret_cast<__m128i*>(p), low);
    poke(p + 8, _mm_extract_epi32(low, 2));
}
template <class Word>
ORV_INLINE void store(packed24<Word>* p, vec<packed24<Word>, 16> v)
{
    store(p, v.low);
    store(p + 8, v.high);
}

/// The 96 bytes of a whole vector.
struct three_registers {
    __m256i r[3];
};
template <class Word>
ORV_INLINE three_registers closed_up(vec<packed24<Word>, 32> v)
{
    // The four times six doublewords, each where it stands among the twenty-four.
    const auto move = [](__m256i x, int a, int b, int c, int d, int e, int f, int g, int h) {
        return _mm256_permutevar8x32_epi32(x, _mm256_setr_epi32(a, b, c, d, e, f, g, h));
    };
    const __m256i a = move(v.low.low.r, 0, 1, 2, 5, 6, 7, 7, 7);
    const __m256i b = move(v.low.high.r, 2, 5, 6, 7, 7, 7, 0, 1);
    const __m256i c = move(v.high.low.r, 6, 7, 7, 7, 0, 1, 2, 5);
    const __m256i d = move(v.high.high.r, 7, 7, 0, 1, 2, 5, 6, 7);
    return {_mm256_blend_epi32(a, b, 0xc0), _mm256_blend_epi32(b, c, 0xf0), _mm256_blend_epi32(c, d, 0xfc)};
}
template <class Word>
ORV_INLINE void store(packed24<Word>* samples, vec<packed24<Word>, 32> v)
{
    const auto all = closed_up(v);
    for (int k = 0; k < 3; ++k) _mm256_storeu_si256(reinterpret_cast<__m256i*>(samples) + k, all.r[k]);
}
template <class Word>
ORV_INLINE void stream(packed24<Word>* samples, vec<packed24<Word>, 32> v)
{
    const auto all = closed_up(v);
    for (int k = 0; k < 3; ++k) _mm256_stream_si256(reinterpret_cast<__m256i*>(samples) + k, all.r[k]);
}

template <class Word>
ORV_INLINE void store_n(packed24<Word>* samples, vec<packed24<Word>, 8> v, int n)
{
    char* p = reinterpret_cast<char*>(samples);
    char* end = p + std::ptrdiff_t(3) * n;
    const __m128i low = _mm256_castsi256_si128(v.r), high = _mm256_extracti128_si256(v.r, 1);
    if (n >= 4) {
        _mm_storel_epi64(reinterpret_cast<__m128i*>(p), low);
        poke(p + 8, _mm_extract_epi32(low, 2));
        poke(end - 12, _mm_extract_epi32(high, 1));
        _mm_storel_epi64(reinterpret_cast<__m128i*>(end - 8), _mm_unpackhi_epi64(high, high));
    } else if (n >= 2) {
        poke(p, _mm_cvtsi128_si32(low));
        poke(p + 4, Orv16u(_mm_extract_epi16(low, 2)));
        poke(end - 6, Orv16u(_mm_extract_epi16(low, 3)));
        poke(end - 4, _mm_extract_epi32(low, 2));
    } else {
        poke(p, Orv16u(_mm_cvtsi128_si32(low)));
        p[2] = char(_mm_extract_epi8(low, 2));
    }
}
template <class Word>
ORV_INLINE void store_n(packed24<Word>* samples, vec<packed24<Word>, 32> v, int n)
{
    if (n >= 16) {
        store(samples, v.low);
        store(samples + n - 16, v.high);
    } else if (n >= 8) {
        store(samples, v.low.low);
        store(samples + n - 8, v.low.high);
    } else {
        store_n(samples, v.low.low, n);
    }
}

} // namespace ORV_VARIANT

#endif
