// The order of lanes: reversing, joining and parting vectors, look-ups of bytes; and a few words on lanes with
// constants.
#ifndef ORV_SIMD_LANES_H
#define ORV_SIMD_LANES_H

#include <cstddef>
#include <utility>

#include "simd/vec.h"

namespace ORV_VARIANT {

/// f(0), f(1), ..., f(count - 1), each with a constant: a loop over an array of vectors that stays in registers.
template <int count, class F>
ORV_INLINE void repeat(F f)
{
    [&]<int... k>(std::integer_sequence<int, k...>) ORV_INLINE_LAMBDA { (f(std::integral_constant<int, k>{}), ...); }
    (std::make_integer_sequence<int, count>{});
}

// ---- Bytes

/// Byte i of the result is byte pattern[i] of v, or 0 where pattern[i] has its top bit; both within 16 bytes. With a
/// table as v it looks up: the low four bits of an index choose.
template <class T>
ORV_INLINE vec<T> shuffle_bytes(vec<T> v, vec<Orv8u> pattern)
{
    return {reinterpret_cast<typename vec<T>::reg>(_mm256_shuffle_epi8(reinterpret_cast<__m256i>(v.r), pattern.r))};
}

/// Sixteen bytes for both halves of a register.
struct byte_pattern {
    Orv8u byte[16];
};
ORV_INLINE vec<Orv8u> twice(const byte_pattern& p)
{
    return {_mm256_broadcastsi128_si256(_mm_loadu_si128(reinterpret_cast<const __m128i*>(p.byte)))};
}

/// The pattern that takes byte i ^ k to i.
template <int k>
inline constexpr byte_pattern exchange = [] {
    byte_pattern p = {};
    for (int i = 0; i < 16; ++i) p.byte[i] = Orv8u(i ^ k);
    return p;
}();

/// The bytes of each lane in reverse order.
template <class T>
ORV_INLINE vec<T> swap_bytes(vec<T> v)
{
    return shuffle_bytes(v, twice(exchange<int(sizeof(T)) - 1>));
}

// ---- Halves

/// 16 bytes from p, then 16 bytes from q.
template <class T>
ORV_INLINE vec<T> load_halves(const T* p, const T* q)
{
    const __m128i low = _mm_loadu_si128(reinterpret_cast<const __m128i*>(p));
    const __m128i high = _mm_loadu_si128(reinterpret_cast<const __m128i*>(q));
    return {reinterpret_cast<typename vec<T>::reg>(_mm256_set_m128i(high, low))};
}

/// The low halves of a and b; the high halves.
template <class T>
ORV_INLINE vec<T> low_halves(vec<T> a, vec<T> b)
{
    return {reinterpret_cast<typename vec<T>::reg>(
        _mm256_permute2x128_si256(reinterpret_cast<__m256i>(a.r), reinterpret_cast<__m256i>(b.r), 0x20))};
}
template <class T>
ORV_INLINE vec<T> high_halves(vec<T> a, vec<T> b)
{
    return {reinterpret_cast<typename vec<T>::reg>(
        _mm256_permute2x128_si256(reinterpret_cast<__m256i>(a.r), reinterpret_cast<__m256i>(b.r), 0x31))};
}

/// The high half of v, then its low half.
template <class T>
ORV_INLINE vec<T> swap_halves(vec<T> v)
{
    return {reinterpret_cast<typename vec<T>::reg>(
        _mm256_permute2x128_si256(reinterpret_cast<__m256i>(v.r), reinterpret_cast<__m256i>(v.r), 0x01))};
}

/// The low half of a, the high half of b.
template <class T>
ORV_INLINE vec<T> halves_low_high(vec<T> a, vec<T> b)
{
    return {reinterpret_cast<typename vec<T>::reg>(
        _mm256_blend_epi32(reinterpret_cast<__m256i>(a.r), reinterpret_cast<__m256i>(b.r), 0xf0))};
}

/// Quarters 0, 2, 1, 3: what an unpack of halves wants, and what undoes the order of a pack.
template <class T>
ORV_INLINE vec<T> cross_quarters(vec<T> v)
{
    return {reinterpret_cast<typename vec<T>::reg>(_mm256_permute4x64_epi64(reinterpret_cast<__m256i>(v.r), 0xd8))};
}

/// The same in eighths for two unpacks one after the other: 0, 2, 4, 6, 1, 3, 5, 7.
template <class T>
ORV_INLINE vec<T> cross_eighths(vec<T> v)
{
    const __m256i order = _mm256_setr_epi32(0, 2, 4, 6, 1, 3, 5, 7);
    return {reinterpret_cast<typename vec<T>::reg>(_mm256_permutevar8x32_epi32(reinterpret_cast<__m256i>(v.r), order))};
}

// ---- One lane for all

template <class T>
ORV_INLINE T first_lane(vec<T> v)
{
    if constexpr (is_float<T> || sizeof(T) == 8) {
        return T(v.r[0]);
    } else {
        return T(_mm256_cvtsi256_si32(v.r));
    }
}

/// Lane k + distance in the place of each k below distance, a power of two.
template <int distance, class T>
ORV_INLINE vec<T> lanes_from(vec<T> v)
{
    constexpr int bytes = distance * int(sizeof(T));
    if constexpr (bytes == 16) return swap_halves(v);
    else if constexpr (bytes == 8) return as<T>(swap_pairs(as<Orv64f>(v)));
    else if constexpr (bytes == 4) return as<T>(swap_pairs(as<Orv32f>(v)));
    else if constexpr (bytes == 2) return as<T>(shift_right_logical(as<Orv32u>(v), by(16)));
    else return as<T>(shift_right_logical(as<Orv16u>(v), by(8)));
}

/// f of all lanes, or, in the first ones, of every unit-th lane: of the lower half of them and the upper half, of what
/// that gives, and so on.
template <int unit = 1, class F, class T>
ORV_INLINE vec<T> fold_lanes(F f, vec<T> v)
{
    const auto step = [&](auto next, auto distance) ORV_INLINE_LAMBDA -> void {
        v = f(v, lanes_from<distance>(v));
        if constexpr (distance > unit) next(next, std::integral_constant<int, distance / 2>{});
    };
    step(step, std::integral_constant<int, vec<T>::N / 2>{});
    return v;
}
template <class F, class T>
ORV_INLINE T fold(F f, vec<T> v)
{
    return first_lane(fold_lanes(f, v));
}

/// All lanes added.
template <class T>
ORV_INLINE T sum_of_lanes(vec<T> v)
{
    return fold([](vec<T> a, vec<T> b) ORV_INLINE_LAMBDA { return a + b; }, v);
}

/// The even lanes added, and the odd ones.
template <class T>
struct sums_by_parity {
    T even, odd;
};
template <class T>
ORV_INLINE sums_by_parity<T> sum_by_parity(vec<T> v)
{
    v = fold_lanes<2>([](vec<T> a, vec<T> b) ORV_INLINE_LAMBDA { return a + b; }, v);
    return {first_lane(v), first_lane(lanes_from<1>(v))};
}

// ---- Reversal

/// The lanes in reverse order, where unit lanes keep together. For partial vectors too: what load_n arranges comes out
/// as store_n wants it, because both take the same elements from the front as from the back.
template <int unit = 1, class T>
ORV_INLINE vec<T> reverse(vec<T> v)
{
    constexpr int bytes = unit * int(sizeof(T));
    if constexpr (bytes < 16) v = shuffle_bytes(v, twice(exchange<16 - bytes>));
    return swap_halves(v);
}

// ---- Two vectors in one order, and back

template <class T>
struct two {
    vec<T> first, second;
};

/// Lanes of a and b in turn, within each half of the registers: from the lower (upper) parts of the halves.
template <class T>
ORV_INLINE vec<T> unpack_low(vec<T> a, vec<T> b)
{
    const auto x = reinterpret_cast<__m256i>(a.r), y = reinterpret_cast<__m256i>(b.r);
    const auto unpacked = [=] {
        if constexpr (sizeof(T) == 1) return _mm256_unpacklo_epi8(x, y);
        else if constexpr (sizeof(T) == 2) return _mm256_unpacklo_epi16(x, y);
        else if constexpr (sizeof(T) == 4) return _mm256_unpacklo_epi32(x, y);
        else return _mm256_unpacklo_epi64(x, y);
    }();
    return {reinterpret_cast<typename vec<T>::reg>(unpacked)};
}
template <class T>
ORV_INLINE vec<T> unpack_high(vec<T> a, vec<T> b)
{
    const auto x = reinterpret_cast<__m256i>(a.r), y = reinterpret_cast<__m256i>(b.r);
    const auto unpacked = [=] {
        if constexpr (sizeof(T) == 1) return _mm256_unpackhi_epi8(x, y);
        else if constexpr (sizeof(T) == 2) return _mm256_unpackhi_epi16(x, y);
        else if constexpr (sizeof(T) == 4) return _mm256_unpackhi_epi32(x, y);
        else return _mm256_unpackhi_epi64(x, y);
    }();
    return {reinterpret_cast<typename vec<T>::reg>(unpacked)};
}

/// The lanes of even (odd) place of a, then those of b, within each half of the registers.
template <class T>
ORV_INLINE vec<T> even_lanes(vec<T> a, vec<T> b)
{
    if constexpr (sizeof(T) == 8) {
        return unpack_low(a, b);
    } else {
        static_assert(sizeof(T) == 4);
        return as<T>(vec<Orv32f>{_mm256_shuffle_ps(as<Orv32f>(a).r, as<Orv32f>(b).r, 0x88)});
    }
}
template <class T>
ORV_INLINE vec<T> odd_lanes(vec<T> a, vec<T> b)
{
    if constexpr (sizeof(T) == 8) {
        return unpack_high(a, b);
    } else {
        static_assert(sizeof(T) == 4);
        return as<T>(vec<Orv32f>{_mm256_shuffle_ps(as<Orv32f>(a).r, as<Orv32f>(b).r, 0xdd)});
    }
}

/// a0 b0 a1 b1 ...
template <class T>
ORV_INLINE two<T> interleave(vec<T> a, vec<T> b)
{
    const auto low = unpack_low(a, b), high = unpack_high(a, b);
    return {low_halves(low, high), high_halves(low, high)};
}

/// The same of half a vector each: a0 b0 a1 b1 ... in one vector; and back.
template <class T>
ORV_INLINE vec<T> interleave_halves(vec<T, vec<T>::N / 2> a, vec<T, vec<T>::N / 2> b)
{
    if constexpr (sizeof(T) == 4) {
        return join<T, vec<T>::N / 2>({_mm_unpacklo_epi32(a.r, b.r)}, {_mm_unpackhi_epi32(a.r, b.r)});
    } else {
        static_assert(sizeof(T) == 8);
        return join<T, vec<T>::N / 2>({_mm_unpacklo_epi64(a.r, b.r)}, {_mm_unpackhi_epi64(a.r, b.r)});
    }
}
template <class T>
ORV_INLINE halves<T> deinterleave_halves(vec<T> v)
{
    const auto low = low_half(v), high = high_half(v);
    if constexpr (sizeof(T) == 4) {
        const __m128 a = _mm_castsi128_ps(low.r), b = _mm_castsi128_ps(high.r);
        return {{_mm_castps_si128(_mm_shuffle_ps(a, b, 0x88))}, {_mm_castps_si128(_mm_shuffle_ps(a, b, 0xdd))}};
    } else {
        static_assert(sizeof(T) == 8);
        return {{_mm_unpacklo_epi64(low.r, high.r)}, {_mm_unpackhi_epi64(low.r, high.r)}};
    }
}

/// The lanes of even place and those of odd place among the 2 * N at p.
template <class T>
ORV_INLINE two<T> load_deinterleaved(const T* p)
{
    // The instructions work within halves, so the quarters of what they give are out of order.
    const auto a = load(p), b = load(p + vec<T>::N);
    if constexpr (sizeof(T) == 2) {
        const auto even = _mm256_packus_epi32((a & splat_pair(T(-1), T(0))).r, (b & splat_pair(T(-1), T(0))).r);
        const auto odd = _mm256_packus_epi32(_mm256_srli_epi32(a.r, 16), _mm256_srli_epi32(b.r, 16));
        return {cross_quarters(vec<T>{even}), cross_quarters(vec<T>{odd})};
    } else {
        return {cross_quarters(even_lanes(a, b)), cross_quarters(odd_lanes(a, b))};
    }
}

// ---- Three vectors in one order, and back, in units of one or two 32-bit words
//
// Element j of row r is number 3 * j + r. The numbers of a row lie in different places of a vector, since 3 has an
// inverse modulo a power of two; so one permutation brings a row to its places, and blends do the rest.

struct word_pattern {
    Orv32u word[8];
};

template <int unit, int row>
inline constexpr word_pattern places_of_row = [] {
    word_pattern p = {};
    for (int i = 0; i < 8; ++i) p.word[i] = Orv32u((i / unit - row) * 3 & (8 / unit - 1)) * unit + Orv32u(i % unit);
    return p;
}();
template <int unit, int row>
inline constexpr word_pattern row_of_places = [] {
    word_pattern p = {};
    for (int i = 0; i < 8; ++i) p.word[i] = Orv32u((3 * (i / unit) + row) & (8 / unit - 1)) * unit + Orv32u(i % unit);
    return p;
}();
/// The words of vector v that belong to this row.
template <int unit, int v, int row>
inline constexpr int words_of_row = [] {
    int words = 0;
    for (int i = 0; i < 8; ++i) words |= int((8 / unit * v + i / unit) % 3 == row) << i;
    return words;
}();

ORV_INLINE vec<Orv32s> permute(vec<Orv32s> v, const word_pattern& p)
{
    return {_mm256_permutevar8x32_epi32(v.r, _mm256_loadu_si256(reinterpret_cast<const __m256i*>(p.word)))};
}
/// The words of mask from b, the others from a.
template <int mask>
ORV_INLINE vec<Orv32s> blend_words(vec<Orv32s> a, vec<Orv32s> b)
{
    return {_mm256_blend_epi32(a.r, b.r, mask)};
}

template <int unit>
ORV_INLINE void interleave_three(vec<Orv32s>& a, vec<Orv32s>& b, vec<Orv32s>& c)
{
    const auto x = permute(a, places_of_row<unit, 0>), y = permute(b, places_of_row<unit, 1>);
    const auto z = permute(c, places_of_row<unit, 2>);
    const auto number = [=](auto v) ORV_INLINE_LAMBDA {
        return blend_words<words_of_row<unit, v, 2>>(blend_words<words_of_row<unit, v, 1>>(x, y), z);
    };
    a = number(std::integral_constant<int, 0>{});
    b = number(std::integral_constant<int, 1>{});
    c = number(std::integral_constant<int, 2>{});
}
template <int unit>
ORV_INLINE void deinterleave_three(vec<Orv32s>& a, vec<Orv32s>& b, vec<Orv32s>& c)
{
    const auto x = a, y = b, z = c;
    const auto row = [=](auto r) ORV_INLINE_LAMBDA {
        const auto places = blend_words<words_of_row<unit, 2, r>>(blend_words<words_of_row<unit, 1, r>>(x, y), z);
        return permute(places, row_of_places<unit, r>);
    };
    a = row(std::integral_constant<int, 0>{});
    b = row(std::integral_constant<int, 1>{});
    c = row(std::integral_constant<int, 2>{});
}

// ---- Transposition of 1, 2, 3, 4, 6 or 8 rows of eight 32-bit words

/// Four by four words within the halves of registers.
ORV_INLINE void transpose_halves(vec<Orv32s>& a, vec<Orv32s>& b, vec<Orv32s>& c, vec<Orv32s>& d)
{
    const auto ab_low = as<Orv64s>(unpack_low(a, b)), ab_high = as<Orv64s>(unpack_high(a, b));
    const auto cd_low = as<Orv64s>(unpack_low(c, d)), cd_high = as<Orv64s>(unpack_high(c, d));
    a = as<Orv32s>(unpack_low(ab_low, cd_low)), b = as<Orv32s>(unpack_high(ab_low, cd_low));
    c = as<Orv32s>(unpack_low(ab_high, cd_high)), d = as<Orv32s>(unpack_high(ab_high, cd_high));
}
/// The low halves of a and b in a, the high ones in b.
ORV_INLINE void exchange_halves(vec<Orv32s>& a, vec<Orv32s>& b)
{
    const auto x = a, y = b;
    a = low_halves(x, y), b = high_halves(x, y);
}
ORV_INLINE void interleave_pair(vec<Orv32s>& a, vec<Orv32s>& b)
{
    const auto both = interleave(a, b);
    a = both.first, b = both.second;
}
ORV_INLINE void deinterleave_pair(vec<Orv32s>& a, vec<Orv32s>& b)
{
    exchange_halves(a, b);
    const auto x = a, y = b;
    a = even_lanes(x, y), b = odd_lanes(x, y);
}
ORV_INLINE void swap(vec<Orv32s>& a, vec<Orv32s>& b)
{
    const auto x = a;
    a = b, b = x;
}

/// Rows become the columns, one after another: of two rows, a0 b0 a1 b1 a2 b2 a3 b3 and a4 b4 ...
template <std::size_t rows>
ORV_INLINE void interleave_rows(vec<Orv32s> (&x)[rows])
{
    static_assert(rows == 1 || rows == 2 || rows == 3 || rows == 4 || rows == 6 || rows == 8);
    if constexpr (rows == 2) {
        interleave_pair(x[0], x[1]);
    } else if constexpr (rows == 3) {
        interleave_three<1>(x[0], x[1], x[2]);
    } else if constexpr (rows == 4) { // each half a column: 0 and 4, 1 and 5, 2 and 6, 3 and 7
        transpose_halves(x[0], x[1], x[2], x[3]);
        exchange_halves(x[0], x[1]);
        exchange_halves(x[2], x[3]);
        swap(x[1], x[2]);
    } else if constexpr (rows == 6) {
        interleave_pair(x[0], x[1]), interleave_pair(x[2], x[3]), interleave_pair(x[4], x[5]);
        interleave_three<2>(x[0], x[2], x[4]), interleave_three<2>(x[1], x[3], x[5]);
        const auto second = x[1], third = x[2], fourth = x[3], fifth = x[4]; // 0 2 4, then 1 3 5
        x[1] = third, x[2] = fifth, x[3] = second, x[4] = fourth;
    } else if constexpr (rows == 8) { // each half one half of a column
        transpose_halves(x[0], x[1], x[2], x[3]);
        transpose_halves(x[4], x[5], x[6], x[7]);
        exchange_halves(x[0], x[4]), exchange_halves(x[1], x[5]);
        exchange_halves(x[2], x[6]), exchange_halves(x[3], x[7]);
    }
}

/// The inverse.
template <std::size_t rows>
ORV_INLINE void deinterleave_rows(vec<Orv32s> (&x)[rows])
{
    if constexpr (rows == 2) {
        deinterleave_pair(x[0], x[1]);
    } else if constexpr (rows == 3) {
        deinterleave_three<1>(x[0], x[1], x[2]);
    } else if constexpr (rows == 4) {
        swap(x[1], x[2]);
        exchange_halves(x[0], x[1]);
        exchange_halves(x[2], x[3]);
        transpose_halves(x[0], x[1], x[2], x[3]);
    } else if constexpr (rows == 6) {
        const auto second = x[1], third = x[2], fourth = x[3], fifth = x[4];
        x[2] = second, x[4] = third, x[1] = fourth, x[3] = fifth;
        deinterleave_three<2>(x[0], x[2], x[4]), deinterleave_three<2>(x[1], x[3], x[5]);
        deinterleave_pair(x[0], x[1]), deinterleave_pair(x[2], x[3]), deinterleave_pair(x[4], x[5]);
    } else {
        interleave_rows(x); // a square, or nothing to do
    }
}

// ---- Integers

/// The lower halves of products.
ORV_INLINE vec<Orv16s> multiply_low(vec<Orv16s> a, vec<Orv16s> b) { return {_mm256_mullo_epi16(a.r, b.r)}; }
ORV_INLINE vec<Orv32s> multiply_low(vec<Orv32s> a, vec<Orv32s> b) { return {_mm256_mullo_epi32(a.r, b.r)}; }
ORV_INLINE vec<Orv64s> multiply_low(vec<Orv64s> a, vec<Orv64s> b)
{
    const __m256i a_high = _mm256_srli_epi64(a.r, 32), b_high = _mm256_srli_epi64(b.r, 32);
    const __m256i crossed = _mm256_add_epi64(_mm256_mul_epu32(a_high, b.r), _mm256_mul_epu32(a.r, b_high));
    return {_mm256_add_epi64(_mm256_mul_epu32(a.r, b.r), _mm256_slli_epi64(crossed, 32))};
}

/// Lanes of 0 to 255 as bytes: the halves of a beside those of b.
ORV_INLINE vec<Orv8u> pack_unsigned(vec<Orv16s> a, vec<Orv16s> b) { return {_mm256_packus_epi16(a.r, b.r)}; }

/// v >> n and v << n with n known to the compiler, which saves a register. To the right with the sign of a signed T,
/// which has 16 or 32 bits, and with zeros for an unsigned one.
template <int n, class T>
ORV_INLINE vec<T> shift_right_by(vec<T> v)
{
    if constexpr (sizeof(T) == 1) {
        static_assert(std::is_unsigned_v<T>);
        return vec<T>{_mm256_srli_epi16(v.r, n)} & splat(T(0xff >> n));
    } else if constexpr (sizeof(T) == 2) {
        return {std::is_signed_v<T> ? _mm256_srai_epi16(v.r, n) : _mm256_srli_epi16(v.r, n)};
    } else if constexpr (sizeof(T) == 4) {
        return {std::is_signed_v<T> ? _mm256_srai_epi32(v.r, n) : _mm256_srli_epi32(v.r, n)};
    } else {
        static_assert(std::is_unsigned_v<T>);
        return {_mm256_srli_epi64(v.r, n)};
    }
}
template <int n, class T>
ORV_INLINE vec<T> shift_left_by(vec<T> v)
{
    if constexpr (sizeof(T) == 2) {
        return {_mm256_slli_epi16(v.r, n)};
    } else if constexpr (sizeof(T) == 4) {
        return {_mm256_slli_epi32(v.r, n)};
    } else {
        static_assert(sizeof(T) == 8);
        return {_mm256_slli_epi64(v.r, n)};
    }
}

/// table[index % 4] of a table that stands in both halves.
ORV_INLINE vec<Orv32f> one_of_four(vec<Orv32f> table, vec<Orv32s> index)
{
    return {_mm256_permutevar_ps(table.r, index.r)};
}
ORV_INLINE vec<Orv32f> table_of_four(Orv32f a, Orv32f b, Orv32f c, Orv32f d)
{
    return {_mm256_setr_ps(a, b, c, d, a, b, c, d)};
}

} // namespace ORV_VARIANT

#endif
