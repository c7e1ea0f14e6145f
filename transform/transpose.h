// Transposition of squares of lanes.
#ifndef ORV_TRANSFORM_TRANSPOSE_H
#define ORV_TRANSFORM_TRANSPOSE_H

#include "transform/layouts.h"

namespace ORV_VARIANT {

/// Eight vectors of eight lanes.
ORV_INLINE void transpose(vec<Orv32f> (&x)[8])
{
    vec<Orv32s> rows[8];
    repeat<8>([&](auto k) ORV_INLINE_LAMBDA { rows[k] = as<Orv32s>(x[k]); });
    interleave_rows(rows);
    repeat<8>([&](auto k) ORV_INLINE_LAMBDA { x[k] = as<Orv32f>(rows[k]); });
}
/// Four vectors of four lanes.
ORV_INLINE void transpose(vec<Orv64f> (&x)[4])
{
    const auto a = unpack_low(x[0], x[1]), b = unpack_high(x[0], x[1]);
    const auto c = unpack_low(x[2], x[3]), d = unpack_high(x[2], x[3]);
    x[0] = low_halves(a, c), x[1] = low_halves(b, d);
    x[2] = high_halves(a, c), x[3] = high_halves(b, d);
}

/// i with its bits in reverse order; 0 <= i < n. Without a loop, so that a constant i gives a constant.
template <int n>
ORV_INLINE constexpr int reversed_in(int i)
{
    if constexpr (n == 1) return 0;
    else return (i & 1) * (n / 2) + reversed_in<n / 2>(i >> 1);
}

/// Element k of the column in a lane is that of vector k; the columns come out with their elements in the order of
/// passes.
template <class T, std::size_t n>
ORV_INLINE void transpose(Complex<T> (&x)[n])
{
    vec<T> re[n], im[n];
    repeat<n>([&](auto k) ORV_INLINE_LAMBDA {
        const auto& from = x[element_of_lane<T>(k)];
        re[k] = from.re, im[k] = from.im;
    });
    transpose(re);
    transpose(im);
    repeat<n>([&](auto k) ORV_INLINE_LAMBDA { x[k] = {re[k], im[k]}; });
}
/// Squares of pairs: four vectors of four, or two of two.
ORV_INLINE void transpose(Pairs<Orv32f> (&x)[4])
{
    vec<Orv64f> rows[4];
    repeat<4>([&](auto k) ORV_INLINE_LAMBDA { rows[k] = as<Orv64f>(x[k].v); });
    transpose(rows);
    repeat<4>([&](auto k) ORV_INLINE_LAMBDA { x[k] = {as<Orv32f>(rows[k])}; });
}
ORV_INLINE void transpose(Pairs<Orv64f> (&x)[2])
{
    const auto a = x[0].v, b = x[1].v;
    x[0] = {low_halves(a, b)}, x[1] = {high_halves(a, b)};
}

// ---- From pairs to parts: of the numbers at one place of all vectors, in the order of passes

/// Four vectors of four numbers, in halves: rows[0] has places 0 and 2, rows[1] places 1 and 3.
ORV_INLINE void parts_in_halves(Pairs<Orv32f> x0, Pairs<Orv32f> x1, Pairs<Orv32f> x2, Pairs<Orv32f> x3,
                                Complex<Orv32f> (&rows)[2])
{
    const auto a = as<Orv64f>(x0.v), b = as<Orv64f>(x1.v), c = as<Orv64f>(x2.v), d = as<Orv64f>(x3.v);
    const auto row = [](vec<Orv64f> front, vec<Orv64f> back) ORV_INLINE_LAMBDA {
        const auto f = as<Orv32f>(front), g = as<Orv32f>(back);
        return Complex<Orv32f>{even_lanes(f, g), odd_lanes(f, g)};
    };
    rows[0] = row(unpack_low(a, b), unpack_low(c, d));
    rows[1] = row(unpack_high(a, b), unpack_high(c, d));
}
ORV_INLINE void transpose_to_parts(const Pairs<Orv32f> (&x)[8], Complex<Orv32f> (&rows)[4])
{
    Complex<Orv32f> low[2], high[2];
    parts_in_halves(x[0], x[1], x[4], x[5], low);
    parts_in_halves(x[2], x[3], x[6], x[7], high);
    repeat<2>([&](auto k) ORV_INLINE_LAMBDA {
        rows[k] = {low_halves(low[k].re, high[k].re), low_halves(low[k].im, high[k].im)};
        rows[k + 2] = {high_halves(low[k].re, high[k].re), high_halves(low[k].im, high[k].im)};
    });
}
ORV_INLINE void transpose_to_parts(const Pairs<Orv64f> (&x)[4], Complex<Orv64f> (&rows)[2])
{
    const auto re02 = unpack_low(x[0].v, x[2].v), re13 = unpack_low(x[1].v, x[3].v);
    const auto im02 = unpack_high(x[0].v, x[2].v), im13 = unpack_high(x[1].v, x[3].v);
    rows[0] = {low_halves(re02, re13), low_halves(im02, im13)};
    rows[1] = {high_halves(re02, re13), high_halves(im02, im13)};
}

} // namespace ORV_VARIANT

#endif
