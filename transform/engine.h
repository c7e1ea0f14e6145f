// The engine of radices 4 and 8: decimation in time, with the bit reversal in the first pass.
//
// The first pass reads the caller's array at bit-reversed places, does the butterflies of spans of 8, which need no
// factors, and writes blocks (BlockArray). Passes with factors follow in place, over spans 4 or 8 times as long each;
// the last one writes the caller's destination. A span of radix * part elements consists of as many finished transforms
// of part elements, in the bit-reversed order of their offsets.
//
// While data are in the first-level cache, passes of radix 4 are the fastest: the factors of a vector of butterflies
// stay in registers for all spans. From there on there are fewer passes of radix 8.
#ifndef ORV_TRANSFORM_ENGINE_H
#define ORV_TRANSFORM_ENGINE_H

#include "transform/layouts.h"
#include "transform/transpose.h"

namespace ORV_VARIANT {

/// log2 of the spans of the first pass.
inline constexpr int first_pass_levels = 3;

/// Spans of up to 2^so many elements are finished one after the other before longer ones are begun: they stay in the
/// first-level cache.
template <class T>
inline constexpr int sweep_order = is_single<T> ? 11 : 10;

/// How many levels, that is butterflies of radix 2, the next pass over a span of 2^order elements does when `done` are
/// done: 2 for radix 4, 3 for radix 8.
template <class T>
constexpr int pass_levels(int order, int done)
{
    int swept = order; // the order of spans that are swept
    while (swept > sweep_order<T>) swept -= 3;
    return done >= swept || swept - done == 3 ? 3 : 2;
}

/// Values in the table of a pass with spans of 2^order.
constexpr std::ptrdiff_t pass_factors(int levels, int order)
{
    const std::ptrdiff_t radix = std::ptrdiff_t(1) << levels;
    return 2 * (radix - 1) << (order - levels);
}

/// The scale of the last pass, where there is none.
struct Unscaled {};
template <class C>
ORV_INLINE C scaled(C x, Unscaled)
{
    return x;
}
template <class C, class T>
requires std::is_arithmetic_v<T> ORV_INLINE C scaled(C x, T factor) { return x * factor; }

// ---- Passes with factors

/// The factors W^m of a vector of butterflies, m = 1 ... radix - 1, in a table.
template <class T>
struct FactorsInTable {
    const T* w;

    ORV_INLINE Complex<T> operator()(int m) const
    {
        constexpr int N = vec<T>::N;
        return {in_register(load(w + 2 * (m - 1) * N)), in_register(load(w + (2 * m - 1) * N))};
    }
};

/// The butterfly of parts after their products with factors: from(m) is the part of offset m, factor(m) its factor.
template <Direction d, std::size_t radix, class T, class From, class Factor>
ORV_INLINE void butterfly_of_products(Complex<T> (&x)[radix], From from, Factor factor)
{
    butterfly_of_parts<d>(x,
                          [=](int m) ORV_INLINE_LAMBDA { return m == 0 ? from(m) : multiply<d>(from(m), factor(m)); });
}

/// One span: from its parts in `from` to the transform of all in `to`, which may be the same array. Returns what is
/// behind its factors.
template <Direction d, int radix, class T, class From, class To, class Scale = Unscaled>
ORV_INLINE const T* combine_parts(From from, To to, std::ptrdiff_t part, const T* factors, Scale scale = {})
{
    constexpr int N = vec<T>::N;
    for (std::ptrdiff_t k = 0; k < part; k += N, factors += 2 * (radix - 1) * N) {
        Complex<T> x[radix];
        butterfly_of_products<d>(
            x, [=](auto m) ORV_INLINE_LAMBDA { return from.load(k + reversed_in<radix>(m) * part); },
            FactorsInTable<T>{factors});
        repeat<radix>([&](auto j) ORV_INLINE_LAMBDA { to.store(k + j * part, scaled(x[j], scale)); });
    }
    return factors;
}

/// The same in place, by itself.
template <Direction d, class T, class Array>
[[gnu::noinline]] const T* combine_in_place(Array data, int levels, std::ptrdiff_t span, const T* factors)
{
    return levels == 3 ? combine_parts<d, 8>(data, data, span / 8, factors)
                       : combine_parts<d, 4>(data, data, span / 4, factors);
}

/// All spans of n elements, by radix 4.
template <Direction d, class T, class Array>
[[gnu::noinline]] const T* radix4_pass(Array data, std::ptrdiff_t n, std::ptrdiff_t span, const T* factors)
{
    constexpr int N = vec<T>::N;
    const std::ptrdiff_t part = span / 4;
    for (std::ptrdiff_t k = 0; k < part; k += N, factors += 6 * N) {
        const FactorsInTable<T> table = {factors};
        const Complex<T> w[4] = {{}, table(1), table(2), table(3)};
        for (Array at = data + k, end = at + n; at.precedes(end); at = at + span) {
            Complex<T> x[4];
            butterfly_of_products<d>(
                x, [=](auto m) ORV_INLINE_LAMBDA { return at.load(reversed_in<4>(m) * part); },
                [&](auto m) ORV_INLINE_LAMBDA { return w[m]; });
            repeat<4>([&](auto j) ORV_INLINE_LAMBDA { at.store(j * part, x[j]); });
        }
    }
    return factors;
}

/// The passes over 2^order elements from spans of 2^done to spans of 2^until. Returns what is behind the factors.
template <Direction d, class T, class Array>
ORV_INLINE const T* sweep(Array data, int order, int done, int until, const T* factors)
{
    while (done < until) {
        const int levels = pass_levels<T>(order, done);
        done += levels;
        const std::ptrdiff_t n = std::ptrdiff_t(1) << order, span = std::ptrdiff_t(1) << done;
        factors = span < n ? radix4_pass<d>(data, n, span, factors) : combine_in_place<d>(data, levels, span, factors);
    }
    return factors;
}

/// All passes over a span of 2^order elements, depth first: eighths are finished one after the other.
template <Direction d, class T, class Array>
const T* finish_span(Array data, int order, int done, const T* factors)
{
    if (order <= sweep_order<T>) return sweep<d>(data, order, done, order, factors);
    const std::ptrdiff_t n = std::ptrdiff_t(1) << order;
    const T* end = factors;
    for (int i = 0; i < 8; ++i) end = finish_span<d>(data + i * (n / 8), order - 3, done, factors);
    return combine_in_place<d>(data, 3, n, end);
}

// ---- The first pass
//
// Each step takes the elements at a run of offsets r that fills a line of the source. The spans that they begin lie far
// apart: those of offset r + j in part reversed_in<N>(j) of N of the destination.

/// From parts.
template <Direction d, class T, class Source>
ORV_INLINE void first_pass(Source src, BlockArray<T> work, std::ptrdiff_t n, const Orv32s* bit_reversed)
{
    constexpr int N = vec<T>::N;
    const std::ptrdiff_t eighth = n / 8, spans = eighth / N;
    for (std::ptrdiff_t i = 0; i < spans; ++i) {
        const std::ptrdiff_t r = bit_reversed[2 * i] >> 1;
        Complex<T> x[8];
        butterfly_of_parts<d>(x, [=](int k) ORV_INLINE_LAMBDA { return src.load(r + k * eighth); });
        repeat<8 / N>([&](auto piece) ORV_INLINE_LAMBDA {
            Complex<T> square[N];
            repeat<N>([&](auto k) ORV_INLINE_LAMBDA { square[k] = x[piece * N + k]; });
            transpose(square);
            repeat<N>([&](auto lane) ORV_INLINE_LAMBDA {
                constexpr int place = reversed_in<N>(element_of_lane<T>(lane));
                work.store((place * spans + i) * 8 + piece * N, square[lane]);
            });
        });
    }
}
/// From pairs, which saves taking most of them apart.
template <Direction d, class T>
ORV_INLINE void first_pass(InterleavedArray<T> src, BlockArray<T> work, std::ptrdiff_t n, const Orv32s* bit_reversed)
{
    constexpr int N = vec<T>::N, P = Pairs<T>::N;
    const std::ptrdiff_t eighth = n / 8, spans = eighth / N;
    for (std::ptrdiff_t i = 0; i < spans; ++i) {
        const std::ptrdiff_t r = bit_reversed[2 * i] >> 1;
        repeat<2>([&](auto half_line) ORV_INLINE_LAMBDA {
            Pairs<T> x[8];
            butterfly_of_parts<d>(x, [=](int k)
                                         ORV_INLINE_LAMBDA { return src.load_pairs(r + half_line * P + k * eighth); });
            repeat<8 / N>([&](auto piece) ORV_INLINE_LAMBDA {
                Pairs<T> columns[N];
                Complex<T> rows[P];
                repeat<N>([&](auto k) ORV_INLINE_LAMBDA { columns[k] = x[piece * N + k]; });
                transpose_to_parts(columns, rows);
                repeat<P>([&](auto j) ORV_INLINE_LAMBDA {
                    constexpr int place = reversed_in<N>(half_line * P + j);
                    work.store((place * spans + i) * 8 + piece * N, rows[j]);
                });
            });
        });
    }
}

// ---- The whole transform

/// dst = the transform of src, which may be the same array; order >= 7. work is an array of as many elements apart from
/// src; it may be where dst is.
template <Direction d, class T, class Source, class Target, class Scale>
void transform_by_passes(Source src, Target dst, int order, const T* factors, const Orv32s* bit_reversed,
                         BlockArray<T> work, Scale scale)
{
    const std::ptrdiff_t n = std::ptrdiff_t(1) << order;
    first_pass<d>(src, work, n, bit_reversed);
    if (order <= sweep_order<T>) {
        const int last_levels = order % 2 == 0 ? 3 : 2; // what passes of radix 4 leave after the first pass
        factors = sweep<d>(work, order, first_pass_levels, order - last_levels, factors);
        if (last_levels == 2) {
            combine_parts<d, 4>(work, dst, n / 4, factors, scale);
            return;
        }
    } else {
        const T* first = factors;
        for (int i = 0; i < 8; ++i) factors = finish_span<d>(work + i * (n / 8), order - 3, first_pass_levels, first);
    }
    combine_parts<d, 8>(work, dst, n / 8, factors, scale);
}

} // namespace ORV_VARIANT

#endif
