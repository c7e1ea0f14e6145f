// Vectors of lanes over 256-bit registers: the words that kernels are written in.
//
// vec<T> holds 32 bytes of lanes of T. vec<T, N> with fewer bytes is what a widening conversion starts from, and one
// with more, over several registers, what a narrowing one starts from. Every function here is one to a few instructions
// and inlines; nothing here knows a status, a length or a family.
#ifndef ORV_SIMD_VEC_H
#define ORV_SIMD_VEC_H

#include <cstddef>
#include <immintrin.h>
#include <limits>
#include <type_traits>

#include "orvs/types.h"

// Kernels are built from small pieces that have to disappear: functions, and lambdas in a loop.
#define ORV_INLINE [[gnu::always_inline]] inline
#define ORV_INLINE_LAMBDA __attribute__((always_inline))

namespace ORV_VARIANT {

// ---- The types

template <class T, int bytes>
struct reg_of {
    using type = __m256i;
};
template <class T>
struct reg_of<T, 16> {
    using type = __m128i;
};
template <class T>
struct reg_of<T, 8> { // the lower half of a register
    using type = __m128i;
};
template <>
struct reg_of<Orv32f, 32> {
    using type = __m256;
};
template <>
struct reg_of<Orv64f, 32> {
    using type = __m256d;
};

/// How many lanes of T a register has, and how many a vector that is not told otherwise.
template <class T>
inline constexpr int register_lanes = 32 / int(sizeof(T));
template <class T>
inline constexpr int vector_lanes = register_lanes<T>;

template <class T, int lanes = vector_lanes<T>>
struct vec {
    static constexpr int N = lanes;
    using lane = T;
    using reg = typename reg_of<T, lanes* int(sizeof(T))>::type;
    reg r;
};

/// More lanes than a register has: two vectors of half as many, in order. For a source of wider elements than the
/// destination's.
template <class T, int lanes>
requires(lanes > register_lanes<T>) struct vec<T, lanes> {
    static constexpr int N = lanes;
    using lane = T;
    vec<T, lanes / 2> low, high;
};

template <class T>
inline constexpr bool is_float = std::is_floating_point_v<T>;
template <class T>
inline constexpr int bits_of = 8 * int(sizeof(T));
template <class T>
using unsigned_of = std::make_unsigned_t<T>;
template <class T>
using signed_of = std::make_signed_t<T>;
/// The signed integers as wide as a floating type.
template <class T>
using word_of = std::conditional_t<sizeof(T) == 4, Orv32s, Orv64s>;

/// The same 32 bytes read as lanes of U.
template <class U, class T>
ORV_INLINE vec<U> as(vec<T> v)
{
    if constexpr (is_float<T> == is_float<U> && (!is_float<T> || sizeof(T) == sizeof(U))) {
        return {v.r};
    } else {
        return {reinterpret_cast<typename vec<U>::reg>(v.r)};
    }
}

// ---- Halves

template <class T, int N>
ORV_INLINE vec<T, N / 2> low_half(vec<T, N> v)
{
    if constexpr (N > register_lanes<T>) {
        return v.low;
    } else {
        static_assert(sizeof v.r == 32);
        return {_mm256_castsi256_si128(reinterpret_cast<__m256i>(v.r))};
    }
}
template <class T, int N>
ORV_INLINE vec<T, N / 2> high_half(vec<T, N> v)
{
    if constexpr (N > register_lanes<T>) {
        return v.high;
    } else {
        static_assert(sizeof v.r == 32);
        return {_mm256_extracti128_si256(reinterpret_cast<__m256i>(v.r), 1)};
    }
}
template <class T, int N>
ORV_INLINE vec<T, 2 * N> join(vec<T, N> low, vec<T, N> high)
{
    if constexpr (2 * N > register_lanes<T>) {
        return {low, high};
    } else {
        static_assert(sizeof low.r == 16 && 2 * N == register_lanes<T>);
        return {reinterpret_cast<typename vec<T>::reg>(_mm256_set_m128i(high.r, low.r))};
    }
}

/// A vector whose halves come from instructions of their own. They are stored one by one: to join them would cost more.
template <class T>
struct halves {
    vec<T, vec<T>::N / 2> low, high;
};

/// f of every register of v, in order.
template <class F, class T, int N>
ORV_INLINE auto each(F f, vec<T, N> v)
{
    if constexpr (N > register_lanes<T>) {
        return join(each(f, v.low), each(f, v.high));
    } else {
        return f(v);
    }
}

// ---- Loads and stores: any alignment

template <class T>
requires std::is_arithmetic_v<T> ORV_INLINE vec<T> splat(T x)
{
    if constexpr (std::is_same_v<T, Orv32f>) {
        return {_mm256_set1_ps(x)};
    } else if constexpr (std::is_same_v<T, Orv64f>) {
        return {_mm256_set1_pd(x)};
    } else if constexpr (sizeof(T) == 1) {
        return {_mm256_set1_epi8(char(x))};
    } else if constexpr (sizeof(T) == 2) {
        return {_mm256_set1_epi16(short(x))};
    } else if constexpr (sizeof(T) == 4) {
        return {_mm256_set1_epi32(int(x))};
    } else {
        return {_mm256_set1_epi64x(Orv64s(x))};
    }
}

/// The pair (re, im) in every pair of lanes.
template <class T>
ORV_INLINE vec<T> splat_pair(T re, T im)
{
    struct {
        T re, im;
    } pair = {re, im};
    if constexpr (sizeof(T) == 8) {
        return {reinterpret_cast<typename vec<T>::reg>(
            _mm256_broadcastsi128_si256(_mm_loadu_si128(reinterpret_cast<const __m128i*>(&pair))))};
    } else {
        using Word = std::conditional_t<sizeof(T) == 4, Orv64s, Orv32s>;
        Word word;
        __builtin_memcpy(&word, &pair, sizeof word);
        return as<T>(splat(word));
    }
}

template <class T, int N = vec<T>::N>
ORV_INLINE vec<T, N> load(const T* p)
{
    using V = vec<T, N>;
    if constexpr (N > register_lanes<T>) {
        return {load<T, N / 2>(p), load<T, N / 2>(p + N / 2)};
    } else if constexpr (N * int(sizeof(T)) == 8) {
        return {_mm_loadl_epi64(reinterpret_cast<const __m128i*>(p))};
    } else if constexpr (sizeof(typename V::reg) == 16) {
        return {_mm_loadu_si128(reinterpret_cast<const __m128i*>(p))};
    } else {
        return {reinterpret_cast<typename V::reg>(_mm256_loadu_si256(reinterpret_cast<const __m256i*>(p)))};
    }
}

/// v, held in a register from here on. Of a vector that is used more than once the compiler thinks that reading it
/// again costs nothing; where loads set the pace, it does.
template <class T>
ORV_INLINE vec<T> held(vec<T> v)
{
    __asm__("" : "+x"(v.r));
    return v;
}
/// The same where 32-bit code, with its eight registers, does better to read again.
template <class T>
ORV_INLINE vec<T> in_register(vec<T> v)
{
    return sizeof(void*) == 8 ? held(v) : v;
}

template <class T>
ORV_INLINE void store(T* p, vec<T> v)
{
    _mm256_storeu_si256(reinterpret_cast<__m256i*>(p), reinterpret_cast<__m256i>(v.r));
}

/// Half a register.
template <class T>
ORV_INLINE void store(T* p, vec<T, register_lanes<T> / 2> v)
{
    _mm_storeu_si128(reinterpret_cast<__m128i*>(p), v.r);
}

/// Stores past the caches; p is aligned to 32 bytes, and a store_fence ends the run of such stores.
template <class T>
ORV_INLINE void stream(T* p, vec<T> v)
{
    _mm256_stream_si256(reinterpret_cast<__m256i*>(p), reinterpret_cast<__m256i>(v.r));
}

template <class T>
ORV_INLINE void store(T* p, halves<T> v)
{
    store(p, v.low);
    store(p + vec<T>::N / 2, v.high);
}
template <class T>
ORV_INLINE void stream(T* p, halves<T> v)
{
    stream(p, join(v.low, v.high));
}

ORV_INLINE void store_fence() { _mm_sfence(); }

/// All bits of the first n lanes, 0 <= n <= N.
template <class T>
requires(sizeof(T) >= 4) ORV_INLINE vec<word_of<T>> first_lanes(std::ptrdiff_t n)
{
    static constexpr Orv32s words[16] = {-1, -1, -1, -1, -1, -1, -1, -1};
    return {_mm256_loadu_si256(reinterpret_cast<const __m256i*>(words + 8 - n * std::ptrdiff_t(sizeof(T) / 4)))};
}
/// The lanes that the mask has, and zeros. Nothing else is read.
template <class T>
ORV_INLINE vec<T> load_masked(const T* p, vec<word_of<T>> mask)
{
    return {reinterpret_cast<typename vec<T>::reg>(_mm256_maskload_epi32(reinterpret_cast<const int*>(p), mask.r))};
}

/// A piece of memory as a value, at any alignment.
template <class Word>
ORV_INLINE Word peek(const char* p)
{
    Word w;
    __builtin_memcpy(&w, p, sizeof w);
    return w;
}
template <class Word>
ORV_INLINE void poke(char* p, Word w)
{
    __builtin_memcpy(p, &w, sizeof w);
}
/// An element of an array at any alignment.
template <class T>
ORV_INLINE T element_at(const T* p)
{
    return peek<T>(reinterpret_cast<const char*>(p));
}
template <class T>
ORV_INLINE void put_element(T* p, std::type_identity_t<T> x)
{
    poke(reinterpret_cast<char*>(p), x);
}

/// The n elements at p, 0 < n < N, and nothing around them. Their order in the lanes serves element-wise work only, and
/// store_n undoes it: the largest power of two of elements that fits is taken twice, from the front and from the back,
/// and the other lanes repeat them. So no lane holds a value that is not in the array. For equal N the order is the
/// same in all types.
template <class T, int N = vec<T>::N>
requires(std::is_arithmetic_v<T>&& N <= register_lanes<T>) ORV_INLINE vec<T, N> load_n(const T* elements, int n)
{
    using V = vec<T, N>;
    constexpr int half = N * int(sizeof(T)) / 2;
    const char* p = reinterpret_cast<const char*>(elements);
    const char* end = reinterpret_cast<const char*>(elements + n);
    const int bytes = n * int(sizeof(T));

    const auto repeat = [](__m128i v) -> V {
        if constexpr (half == 16) {
            return {reinterpret_cast<typename V::reg>(_mm256_broadcastsi128_si256(v))};
        } else {
            return {v};
        }
    };
    if constexpr (half == 16) {
        if (bytes >= 16) {
            const __m128i front = _mm_loadu_si128(reinterpret_cast<const __m128i*>(p));
            const __m128i back = _mm_loadu_si128(reinterpret_cast<const __m128i*>(end - 16));
            return {reinterpret_cast<typename V::reg>(_mm256_set_m128i(back, front))};
        }
    }
    if constexpr (half >= 8) {
        if (bytes >= 8) {
            const __m128i front = _mm_loadl_epi64(reinterpret_cast<const __m128i*>(p));
            const __m128i back = _mm_loadl_epi64(reinterpret_cast<const __m128i*>(end - 8));
            return repeat(_mm_unpacklo_epi64(front, back));
        }
    }
    if constexpr (sizeof(T) <= 4) {
        if (bytes >= 4) {
            const __m128i pair = _mm_insert_epi32(_mm_cvtsi32_si128(peek<int>(p)), peek<int>(end - 4), 1);
            return repeat(_mm_broadcastq_epi64(pair));
        }
    }
    if constexpr (sizeof(T) <= 2) {
        if (bytes >= 2) {
            const int pair = peek<Orv16u>(p) | int(Orv32u(peek<Orv16u>(end - 2)) << 16);
            return repeat(_mm_set1_epi32(pair));
        }
    }
    return repeat(_mm_set1_epi8(*p)); // one byte: only 8-bit types come here
}
template <class T, int N>
requires(N > register_lanes<T>) ORV_INLINE vec<T, N> load_n(const T* elements, int n)
{
    if (n >= N / 2) return {load<T, N / 2>(elements), load<T, N / 2>(elements + (n - N / 2))};
    const auto all = load_n<T, N / 2>(elements, n);
    return {all, all};
}

/// Stores what load_n arranged: n elements, 0 < n < N, and nothing around them.
template <class T>
ORV_INLINE void store_n(T* elements, vec<T> v, int n)
{
    char* p = reinterpret_cast<char*>(elements);
    char* end = reinterpret_cast<char*>(elements + n);
    const int bytes = n * int(sizeof(T));
    const __m256i all = reinterpret_cast<__m256i>(v.r);
    const __m128i low = _mm256_castsi256_si128(all);
    if (bytes >= 16) {
        _mm_storeu_si128(reinterpret_cast<__m128i*>(p), low);
        _mm_storeu_si128(reinterpret_cast<__m128i*>(end - 16), _mm256_extracti128_si256(all, 1));
        return;
    }
    if (bytes >= 8) {
        _mm_storel_epi64(reinterpret_cast<__m128i*>(p), low);
        _mm_storel_epi64(reinterpret_cast<__m128i*>(end - 8), _mm_unpackhi_epi64(low, low));
        return;
    }
    if constexpr (sizeof(T) <= 4) {
        if (bytes >= 4) {
            poke(p, _mm_cvtsi128_si32(low));
            poke(end - 4, _mm_extract_epi32(low, 1));
            return;
        }
    }
    if constexpr (sizeof(T) <= 2) {
        if (bytes >= 2) {
            poke(p, Orv16u(_mm_extract_epi16(low, 0)));
            poke(end - 2, Orv16u(_mm_extract_epi16(low, 1)));
            return;
        }
    }
    if constexpr (sizeof(T) == 1) *p = char(_mm_extract_epi8(low, 0));
}
template <class T>
ORV_INLINE void store_n(T* elements, halves<T> v, int n)
{
    store_n(elements, join(v.low, v.high), n);
}

// ---- Arithmetic, lane by lane; integers wrap

template <class T>
ORV_INLINE vec<T> operator+(vec<T> a, vec<T> b)
{
    if constexpr (is_float<T>) {
        return {a.r + b.r};
    } else if constexpr (sizeof(T) == 1) {
        return {_mm256_add_epi8(a.r, b.r)};
    } else if constexpr (sizeof(T) == 2) {
        return {_mm256_add_epi16(a.r, b.r)};
    } else if constexpr (sizeof(T) == 4) {
        return {_mm256_add_epi32(a.r, b.r)};
    } else {
        return {_mm256_add_epi64(a.r, b.r)};
    }
}

template <class T>
ORV_INLINE vec<T> operator-(vec<T> a, vec<T> b)
{
    if constexpr (is_float<T>) {
        return {a.r - b.r};
    } else if constexpr (sizeof(T) == 1) {
        return {_mm256_sub_epi8(a.r, b.r)};
    } else if constexpr (sizeof(T) == 2) {
        return {_mm256_sub_epi16(a.r, b.r)};
    } else if constexpr (sizeof(T) == 4) {
        return {_mm256_sub_epi32(a.r, b.r)};
    } else {
        return {_mm256_sub_epi64(a.r, b.r)};
    }
}

template <class T>
ORV_INLINE vec<T> operator&(vec<T> a, vec<T> b)
{
    return {_mm256_and_si256(a.r, b.r)};
}
template <class T>
ORV_INLINE vec<T> operator|(vec<T> a, vec<T> b)
{
    return {_mm256_or_si256(a.r, b.r)};
}
template <class T>
ORV_INLINE vec<T> operator^(vec<T> a, vec<T> b)
{
    return {_mm256_xor_si256(a.r, b.r)};
}
template <class T>
ORV_INLINE vec<T> operator~(vec<T> a)
{
    return a ^ splat(T(-1));
}
/// ~a & b.
template <class T>
ORV_INLINE vec<T> and_not(vec<T> a, vec<T> b)
{
    return {_mm256_andnot_si256(a.r, b.r)};
}

ORV_INLINE vec<Orv32f> operator*(vec<Orv32f> a, vec<Orv32f> b) { return {a.r * b.r}; }
ORV_INLINE vec<Orv64f> operator*(vec<Orv64f> a, vec<Orv64f> b) { return {a.r * b.r}; }
ORV_INLINE vec<Orv32f> operator/(vec<Orv32f> a, vec<Orv32f> b) { return {a.r / b.r}; }
ORV_INLINE vec<Orv64f> operator/(vec<Orv64f> a, vec<Orv64f> b) { return {a.r / b.r}; }

/// a * b + c and c - a * b, rounded once.
ORV_INLINE vec<Orv32f> fma(vec<Orv32f> a, vec<Orv32f> b, vec<Orv32f> c) { return {_mm256_fmadd_ps(a.r, b.r, c.r)}; }
ORV_INLINE vec<Orv64f> fma(vec<Orv64f> a, vec<Orv64f> b, vec<Orv64f> c) { return {_mm256_fmadd_pd(a.r, b.r, c.r)}; }
ORV_INLINE vec<Orv32f> fnma(vec<Orv32f> a, vec<Orv32f> b, vec<Orv32f> c) { return {_mm256_fnmadd_ps(a.r, b.r, c.r)}; }
ORV_INLINE vec<Orv64f> fnma(vec<Orv64f> a, vec<Orv64f> b, vec<Orv64f> c) { return {_mm256_fnmadd_pd(a.r, b.r, c.r)}; }

/// The same of single values.
ORV_INLINE Orv32f fma(Orv32f a, Orv32f b, Orv32f c) { return __builtin_fmaf(a, b, c); }
ORV_INLINE Orv64f fma(Orv64f a, Orv64f b, Orv64f c) { return __builtin_fma(a, b, c); }

// ---- Pairs of lanes: complex numbers as (re, im)

template <class T>
ORV_INLINE vec<T> even_twice(vec<T> v)
{
    if constexpr (sizeof(T) == 4) {
        return {_mm256_moveldup_ps(v.r)};
    } else {
        return {_mm256_movedup_pd(v.r)};
    }
}
template <class T>
ORV_INLINE vec<T> odd_twice(vec<T> v)
{
    if constexpr (sizeof(T) == 4) {
        return {_mm256_movehdup_ps(v.r)};
    } else {
        return {_mm256_permute_pd(v.r, 0xf)};
    }
}
template <class T>
ORV_INLINE vec<T> swap_pairs(vec<T> v)
{
    if constexpr (sizeof(T) == 2) {
        const __m128i order = _mm_setr_epi8(2, 3, 0, 1, 6, 7, 4, 5, 10, 11, 8, 9, 14, 15, 12, 13);
        return {_mm256_shuffle_epi8(v.r, _mm256_broadcastsi128_si256(order))};
    } else if constexpr (sizeof(T) == 4) {
        return {_mm256_permute_ps(v.r, 0xb1)};
    } else {
        return {_mm256_permute_pd(v.r, 0x5)};
    }
}
/// re = a.re * b.re - c.re, im = a.im * b.im + c.im, each rounded once.
ORV_INLINE vec<Orv32f> fma_subtract_add(vec<Orv32f> a, vec<Orv32f> b, vec<Orv32f> c)
{
    return {_mm256_fmaddsub_ps(a.r, b.r, c.r)};
}
ORV_INLINE vec<Orv64f> fma_subtract_add(vec<Orv64f> a, vec<Orv64f> b, vec<Orv64f> c)
{
    return {_mm256_fmaddsub_pd(a.r, b.r, c.r)};
}
/// re = a.re * b.re + c.re, im = a.im * b.im - c.im, each rounded once.
ORV_INLINE vec<Orv32f> fma_add_subtract(vec<Orv32f> a, vec<Orv32f> b, vec<Orv32f> c)
{
    return {_mm256_fmsubadd_ps(a.r, b.r, c.r)};
}
ORV_INLINE vec<Orv64f> fma_add_subtract(vec<Orv64f> a, vec<Orv64f> b, vec<Orv64f> c)
{
    return {_mm256_fmsubadd_pd(a.r, b.r, c.r)};
}
/// a + i b and a - i b.
template <class T>
ORV_INLINE vec<T> plus_i_times(vec<T> a, vec<T> b)
{
    return fma_subtract_add(a, splat(T(1)), swap_pairs(b));
}
template <class T>
ORV_INLINE vec<T> minus_i_times(vec<T> a, vec<T> b)
{
    return fma_add_subtract(a, splat(T(1)), swap_pairs(b));
}
/// Each of four lanes as a pair.
template <class T>
ORV_INLINE vec<T> as_pairs(vec<T, 4> v)
{
    static_assert(sizeof(T) == 4);
    const __m256i lanes =
        _mm256_permutevar8x32_epi32(_mm256_castsi128_si256(v.r), _mm256_setr_epi32(0, 0, 1, 1, 2, 2, 3, 3));
    return {reinterpret_cast<typename vec<T>::reg>(lanes)};
}
template <class T>
requires(sizeof(T) == 8) ORV_INLINE vec<T> as_pairs(vec<T, 2> v)
{
    return {reinterpret_cast<typename vec<T>::reg>(_mm256_permute4x64_epi64(_mm256_castsi128_si256(v.r), 0x50))};
}
/// The same of two lanes, in half a register.
template <class T>
requires(sizeof(T) == 4) ORV_INLINE vec<T, 4> as_pairs(vec<T, 2> v) { return {_mm_unpacklo_epi32(v.r, v.r)}; }
/// -re, im: flips the sign bit, so it is exact for every value.
template <class T>
ORV_INLINE vec<T> negate_even(vec<T> v)
{
    const auto signs = splat_pair(T(-0.0), T(0.0));
    if constexpr (sizeof(T) == 4) {
        return {_mm256_xor_ps(v.r, signs.r)};
    } else {
        return {_mm256_xor_pd(v.r, signs.r)};
    }
}

// ---- Comparisons and choice: all bits of a lane set, or none

template <class T>
ORV_INLINE vec<T> is_equal(vec<T> a, vec<T> b)
{
    if constexpr (sizeof(T) == 1) {
        return {_mm256_cmpeq_epi8(a.r, b.r)};
    } else if constexpr (sizeof(T) == 2) {
        return {_mm256_cmpeq_epi16(a.r, b.r)};
    } else if constexpr (sizeof(T) == 4) {
        return {_mm256_cmpeq_epi32(a.r, b.r)};
    } else {
        return {_mm256_cmpeq_epi64(a.r, b.r)};
    }
}

/// a > b in signed lanes.
template <class T>
ORV_INLINE vec<T> is_greater(vec<T> a, vec<T> b)
{
    static_assert(std::is_signed_v<T>);
    if constexpr (sizeof(T) == 1) {
        return {_mm256_cmpgt_epi8(a.r, b.r)};
    } else if constexpr (sizeof(T) == 2) {
        return {_mm256_cmpgt_epi16(a.r, b.r)};
    } else if constexpr (sizeof(T) == 4) {
        return {_mm256_cmpgt_epi32(a.r, b.r)};
    } else {
        return {_mm256_cmpgt_epi64(a.r, b.r)};
    }
}

/// mask ? a : b, where the lanes of mask are all ones or all zeros.
template <class T>
ORV_INLINE vec<T> blend(vec<T> mask, vec<T> a, vec<T> b)
{
    return {_mm256_blendv_epi8(b.r, a.r, mask.r)};
}

/// Whether any bit is set.
template <class T>
ORV_INLINE bool any_bit(vec<T> v)
{
    return !_mm256_testz_si256(v.r, v.r);
}
/// A bit a byte: its top bit.
ORV_INLINE Orv32u top_bits_of_bytes(vec<Orv8u> v) { return Orv32u(_mm256_movemask_epi8(v.r)); }
/// Whether any lane is negative.
ORV_INLINE bool any_sign(vec<Orv32s> v) { return _mm256_movemask_ps(_mm256_castsi256_ps(v.r)) != 0; }
ORV_INLINE bool any_sign(vec<Orv64s> v) { return _mm256_movemask_pd(_mm256_castsi256_pd(v.r)) != 0; }

/// sign of mask ? a : b, lane by lane.
template <class T>
ORV_INLINE vec<T> blend_by_sign(vec<T> mask, vec<T> a, vec<T> b)
{
    if constexpr (sizeof(T) == 4) {
        return {_mm256_castps_si256(
            _mm256_blendv_ps(_mm256_castsi256_ps(b.r), _mm256_castsi256_ps(a.r), _mm256_castsi256_ps(mask.r)))};
    } else {
        static_assert(sizeof(T) == 8);
        return {_mm256_castpd_si256(
            _mm256_blendv_pd(_mm256_castsi256_pd(b.r), _mm256_castsi256_pd(a.r), _mm256_castsi256_pd(mask.r)))};
    }
}

// ---- Shifts by one count for all lanes; a count of bits_of<T> or more gives 0 (or the sign)

struct shift_count {
    __m128i r;
};
ORV_INLINE shift_count by(int count) { return {_mm_cvtsi32_si128(count)}; }

/// Byte 0 in every byte: what a shift of 16-bit lanes may keep of each 8-bit lane.
ORV_INLINE __m256i byte_mask(__m256i v) { return _mm256_shuffle_epi8(v, _mm256_setzero_si256()); }

template <class T>
ORV_INLINE vec<T> shift_left(vec<T> v, shift_count n)
{
    if constexpr (sizeof(T) == 1) {
        const __m256i kept = byte_mask(_mm256_sll_epi16(_mm256_set1_epi16(0xff), n.r));
        return {_mm256_and_si256(_mm256_sll_epi16(v.r, n.r), kept)};
    } else if constexpr (sizeof(T) == 2) {
        return {_mm256_sll_epi16(v.r, n.r)};
    } else if constexpr (sizeof(T) == 4) {
        return {_mm256_sll_epi32(v.r, n.r)};
    } else {
        return {_mm256_sll_epi64(v.r, n.r)};
    }
}

/// Right shift that fills with zeros, whatever the sign of T.
template <class T>
ORV_INLINE vec<T> shift_right_logical(vec<T> v, shift_count n)
{
    if constexpr (sizeof(T) == 1) {
        const __m256i kept = byte_mask(_mm256_srl_epi16(_mm256_set1_epi16(0xff), n.r));
        return {_mm256_and_si256(_mm256_srl_epi16(v.r, n.r), kept)};
    } else if constexpr (sizeof(T) == 2) {
        return {_mm256_srl_epi16(v.r, n.r)};
    } else if constexpr (sizeof(T) == 4) {
        return {_mm256_srl_epi32(v.r, n.r)};
    } else {
        return {_mm256_srl_epi64(v.r, n.r)};
    }
}

/// Right shift that keeps the sign of a signed T and fills with zeros for an unsigned one.
template <class T>
ORV_INLINE vec<T> shift_right(vec<T> v, shift_count n)
{
    if constexpr (std::is_unsigned_v<T>) {
        return shift_right_logical(v, n);
    } else if constexpr (sizeof(T) == 2) {
        return {_mm256_sra_epi16(v.r, n.r)};
    } else if constexpr (sizeof(T) == 4) {
        return {_mm256_sra_epi32(v.r, n.r)};
    } else {
        // There is no 64-bit arithmetic shift: move the sign bit's weight by hand.
        static_assert(sizeof(T) == 8);
        const vec<T> sign = shift_right_logical(splat(T(1) << 63), n);
        return (shift_right_logical(v, n) ^ sign) - sign;
    }
}

// ---- Widening and narrowing; exact, or saturating where the name says so

template <class T, int N>
ORV_INLINE auto widen(vec<T, N> v)
{
    static_assert(sizeof v.r == 16);
    if constexpr (std::is_same_v<T, Orv8u>) {
        return vec<Orv16u>{_mm256_cvtepu8_epi16(v.r)};
    } else if constexpr (std::is_same_v<T, Orv16s>) {
        return vec<Orv32s>{_mm256_cvtepi16_epi32(v.r)};
    } else if constexpr (std::is_same_v<T, Orv32u>) {
        return vec<Orv64u>{_mm256_cvtepu32_epi64(v.r)};
    } else {
        static_assert(std::is_same_v<T, Orv32s>);
        return vec<Orv64s>{_mm256_cvtepi32_epi64(v.r)};
    }
}

ORV_INLINE vec<Orv32f> to_float(vec<Orv32s> v) { return {_mm256_cvtepi32_ps(v.r)}; }

/// Two vectors of wide lanes for one of narrow lanes. The instructions that unpack and pack work within each half of a
/// register; low and high hold what they give, so that an unpack and a pack cancel.
template <class T>
struct split {
    using lane = T;
    vec<T> low, high;
};
/// The same as those of the even and of the odd narrow lanes: of 64-bit lanes, of real and imaginary parts.
template <class T>
struct even_odd {
    using lane = T;
    vec<T> even, odd;
};

/// a * b * 2^-15 to nearest, halves up.
ORV_INLINE vec<Orv16s> multiply_q15(vec<Orv16s> a, vec<Orv16s> b) { return {_mm256_mulhrs_epi16(a.r, b.r)}; }

/// a[2k] * b[2k] + a[2k+1] * b[2k+1], which wraps only where all four are -2^15.
ORV_INLINE vec<Orv32s> multiply_add_pairs(vec<Orv16s> a, vec<Orv16s> b) { return {_mm256_madd_epi16(a.r, b.r)}; }

/// a * b of eight 16-bit values.
ORV_INLINE vec<Orv32s> multiply_wide(vec<Orv16s, 8> a, vec<Orv16s, 8> b)
{
    // Each 16-bit value stands beside a zero: the sum of two products is the one.
    return {_mm256_madd_epi16(_mm256_cvtepu16_epi32(a.r), _mm256_cvtepu16_epi32(b.r))};
}
/// a * b, exact.
ORV_INLINE vec<Orv16u> multiply_wide(vec<Orv8u, 16> a, vec<Orv8u, 16> b)
{
    return {_mm256_mullo_epi16(_mm256_cvtepu8_epi16(a.r), _mm256_cvtepu8_epi16(b.r))};
}
ORV_INLINE split<Orv16u> multiply_wide(vec<Orv8u> a, vec<Orv8u> b)
{
    const __m256i zero = _mm256_setzero_si256();
    return {{_mm256_mullo_epi16(_mm256_unpacklo_epi8(a.r, zero), _mm256_unpacklo_epi8(b.r, zero))},
            {_mm256_mullo_epi16(_mm256_unpackhi_epi8(a.r, zero), _mm256_unpackhi_epi8(b.r, zero))}};
}
ORV_INLINE split<Orv32s> multiply_wide(vec<Orv16s> a, vec<Orv16s> b)
{
    const __m256i low = _mm256_mullo_epi16(a.r, b.r), high = _mm256_mulhi_epi16(a.r, b.r);
    return {{_mm256_unpacklo_epi16(low, high)}, {_mm256_unpackhi_epi16(low, high)}};
}
ORV_INLINE split<Orv32u> multiply_wide(vec<Orv16u> a, vec<Orv16u> b)
{
    const __m256i low = _mm256_mullo_epi16(a.r, b.r), high = _mm256_mulhi_epu16(a.r, b.r);
    return {{_mm256_unpacklo_epi16(low, high)}, {_mm256_unpackhi_epi16(low, high)}};
}
ORV_INLINE split<Orv32s> multiply_wide(vec<Orv16u> a, vec<Orv16s> b)
{
    // An unsigned product takes a negative b for b + 2^16.
    const __m256i low = _mm256_mullo_epi16(a.r, b.r);
    const __m256i excess = _mm256_and_si256(a.r, _mm256_srai_epi16(b.r, 15));
    const __m256i high = _mm256_sub_epi16(_mm256_mulhi_epu16(a.r, b.r), excess);
    return {{_mm256_unpacklo_epi16(low, high)}, {_mm256_unpackhi_epi16(low, high)}};
}
ORV_INLINE even_odd<Orv64s> multiply_wide(vec<Orv32s> a, vec<Orv32s> b)
{
    const auto odd = [](vec<Orv32s> v) { return _mm256_srli_epi64(v.r, 32); };
    return {{_mm256_mul_epi32(a.r, b.r)}, {_mm256_mul_epi32(odd(a), odd(b))}};
}

/// 2^(bits - 1), which has wrapped to the minimum, becomes the maximum below it.
template <class T>
ORV_INLINE vec<T> step_below_top(vec<T> x)
{
    return x + is_equal(x, splat(std::numeric_limits<T>::min()));
}

/// The product of complex values, exact but for one pair of operands. The real part lies in -2^31 + 2^15 ... 2^31 -
/// 2^15. The imaginary part reaches 2^31 where all four parts are -2^15, and nothing else wraps to the minimum; it is
/// taken for 2^31 - 1, which rounds to the same 16-bit value at every scale.
ORV_INLINE even_odd<Orv32s> multiply_complex(vec<Orv16s> a, vec<Orv16s> b)
{
    // -b.im might overflow, ~b.im = -b.im - 1 never does; a.im makes up for the 1.
    const __m256i conjugate = _mm256_xor_si256(b.r, _mm256_set1_epi32(-0x10000));
    const __m256i re = _mm256_add_epi32(_mm256_madd_epi16(a.r, conjugate), _mm256_srai_epi32(a.r, 16));
    const __m256i im = _mm256_madd_epi16(a.r, swap_pairs(b).r);
    return {{re}, step_below_top(vec<Orv32s>{im})};
}
/// The same for 32-bit parts: 2^63, of four times -2^31, is taken for 2^63 - 1.
ORV_INLINE even_odd<Orv64s> multiply_complex(vec<Orv32s> a, vec<Orv32s> b)
{
    const __m256i a_im = _mm256_srli_epi64(a.r, 32), b_im = _mm256_srli_epi64(b.r, 32);
    const __m256i re = _mm256_sub_epi64(_mm256_mul_epi32(a.r, b.r), _mm256_mul_epi32(a_im, b_im));
    const __m256i im = _mm256_add_epi64(_mm256_mul_epi32(a.r, b_im), _mm256_mul_epi32(a_im, b.r));
    return {{re}, step_below_top(vec<Orv64s>{im})};
}

/// a * b + c, exact: at most 2^30 + 2^15.
ORV_INLINE split<Orv32s> multiply_add_wide(vec<Orv16s> a, vec<Orv16s> b, vec<Orv16s> c)
{
    const __m256i one = _mm256_set1_epi16(1); // the pairs (a, c) and (b, 1) give a * b + c * 1
    return {{_mm256_madd_epi16(_mm256_unpacklo_epi16(a.r, c.r), _mm256_unpacklo_epi16(b.r, one))},
            {_mm256_madd_epi16(_mm256_unpackhi_epi16(a.r, c.r), _mm256_unpackhi_epi16(b.r, one))}};
}
/// a * b + c, exact: at most 2^62 + 2^31.
ORV_INLINE even_odd<Orv64s> multiply_add_wide(vec<Orv32s> a, vec<Orv32s> b, vec<Orv32s> c)
{
    const __m256i one = _mm256_set1_epi32(1); // c * 1 is c in 64 bits
    const auto odd = [](vec<Orv32s> v) { return _mm256_srli_epi64(v.r, 32); };
    return {{_mm256_add_epi64(_mm256_mul_epi32(a.r, b.r), _mm256_mul_epi32(c.r, one))},
            {_mm256_add_epi64(_mm256_mul_epi32(odd(a), odd(b)), _mm256_mul_epi32(odd(c), one))}};
}

/// All bits of a lane become its sign bit.
template <class T>
ORV_INLINE vec<T> sign_mask(vec<T> v)
{
    if constexpr (sizeof(T) == 2) {
        return {_mm256_srai_epi16(v.r, 15)};
    } else if constexpr (sizeof(T) == 4) {
        return {_mm256_srai_epi32(v.r, 31)};
    } else {
        return is_greater(splat(T(0)), v);
    }
}

} // namespace ORV_VARIANT

#endif
