// Complex transforms of up to 64 elements, unrolled, in one pass: src may be dst.
#ifndef ORV_TRANSFORM_TINY_H
#define ORV_TRANSFORM_TINY_H

#include "transform/layouts.h"
#include "transform/sine.h"
#include "transform/transpose.h"

namespace ORV_VARIANT {

// ---- Up to 4 elements, one by one

template <Direction d, int n, class Source, class Target, class Scale>
ORV_INLINE void transform_singles(Source src, Target dst, Scale scale)
{
    Single<typename Source::value> x[n];
    repeat<n>([&](auto k) ORV_INLINE_LAMBDA { x[k] = src.load_single(k); });
    if constexpr (n > 1) butterfly<d>(x);
    repeat<n>([&](auto k) ORV_INLINE_LAMBDA { dst.store_single(k, scaled(x[k], scale)); });
}

// ---- Rows by columns
//
// Element columns * j + k of the source stands in row j and column k. The columns are transformed, element j of column
// k multiplied by exp(-2 pi i j k / n), and then the rows: with the matrix transposed, these are columns again, and
// they leave the result in its order. A vector holds a piece of a row.

template <class T, int rows, int columns>
struct MatrixFactors {
    static constexpr int N = Pairs<T>::N;
    T re[rows][2 * columns], im[rows][2 * columns]; ///< each twice

    ORV_INLINE TwiceParts<T> at(int row, int piece) const
    {
        return {load(&re[row][2 * N * piece]), load(&im[row][2 * N * piece])};
    }
};
template <class T, int rows, int columns>
inline constexpr MatrixFactors<T, rows, columns> matrix_factors = [] {
    MatrixFactors<T, rows, columns> factors = {};
    for (int j = 0; j < rows; ++j) {
        for (int k = 0; k < columns; ++k) {
            const auto w = fixed_factors<T>.at(j * k, rows * columns);
            factors.re[j][2 * k] = factors.re[j][2 * k + 1] = w.re;
            factors.im[j][2 * k] = factors.im[j][2 * k + 1] = w.im;
        }
    }
    return factors;
}();

template <class T, int rows, int columns>
struct Matrix {
    static constexpr int N = Pairs<T>::N, pieces = columns / N;
    Pairs<T> piece[pieces][rows];

    template <class Source>
    ORV_INLINE void load(Source src)
    {
        repeat<rows>([&](auto j) ORV_INLINE_LAMBDA {
            repeat<pieces>([&](auto k) ORV_INLINE_LAMBDA { piece[k][j] = src.load_pairs(j * columns + k * N); });
        });
    }
    template <class Target, class Scale>
    ORV_INLINE void store(Target dst, Scale scale) const
    {
        repeat<rows>([&](auto j) ORV_INLINE_LAMBDA {
            repeat<pieces>([&](auto k)
                               ORV_INLINE_LAMBDA { dst.store_pairs(j * columns + k * N, scaled(piece[k][j], scale)); });
        });
    }
    template <Direction d>
    ORV_INLINE void transform_columns()
    {
        repeat<pieces>([&](auto k) ORV_INLINE_LAMBDA { butterfly<d>(piece[k]); });
    }
    template <Direction d>
    ORV_INLINE void multiply_by_factors()
    {
        repeat<pieces>([&](auto k) ORV_INLINE_LAMBDA {
            repeat<rows - 1>([&](auto j) ORV_INLINE_LAMBDA {
                piece[k][j + 1] = multiply<d>(piece[k][j + 1], matrix_factors<T, rows, columns>.at(j + 1, k));
            });
        });
    }
    ORV_INLINE Matrix<T, columns, rows> transposed() const
    {
        Matrix<T, columns, rows> result;
        repeat<pieces>([&](auto k) ORV_INLINE_LAMBDA {
            repeat<rows / N>([&](auto j) ORV_INLINE_LAMBDA {
                Pairs<T> square[N];
                repeat<N>([&](auto i) ORV_INLINE_LAMBDA { square[i] = piece[k][j * N + i]; });
                transpose(square);
                repeat<N>([&](auto i) ORV_INLINE_LAMBDA { result.piece[j][k * N + i] = square[i]; });
            });
        });
        return result;
    }
};

template <Direction d, int rows, int columns, class Source, class Target, class Scale>
ORV_INLINE void transform_matrix(Source src, Target dst, Scale scale)
{
    Matrix<typename Source::value, rows, columns> x;
    x.load(src);
    x.template transform_columns<d>();
    x.template multiply_by_factors<d>();
    auto y = x.transposed();
    y.template transform_columns<d>();
    y.store(dst, scale);
}

// ---- 8 elements in two vectors

/// Two rows of four: the columns first, then each row, both at a time.
template <Direction d, class Source, class Target, class Scale>
ORV_INLINE void transform_8(Source src, Target dst, Scale scale)
{
    Matrix<Orv32f, 2, 4> x;
    x.load(src);
    x.template transform_columns<d>();
    x.template multiply_by_factors<d>();
    const auto a = x.piece[0][0].v, b = x.piece[0][1].v;
    const Pairs<Orv32f> front = {low_halves(a, b)}, back = {high_halves(a, b)}; // elements 0 1, and 2 3
    const auto sums = as<Orv64f>((front + back).v), differences = as<Orv64f>((front - back).v);
    const Pairs<Orv32f> even = {as<Orv32f>(unpack_low(sums, differences))};
    const Pairs<Orv32f> odd = {as<Orv32f>(unpack_high(sums, differences))};
    // The second pair of odd, which comes from the differences, is to be turned by a quarter.
    const Orv32f re = d == Direction::forward ? 0.0f : -0.0f, im = d == Direction::forward ? -0.0f : 0.0f;
    const auto signs = vec<Orv32f>{_mm256_setr_ps(0, 0, re, im, 0, 0, re, im)};
    const Pairs<Orv32f> turned = {vec<Orv32f>{_mm256_permute_ps(odd.v.r, 0xb4)} ^ signs};
    const auto in_order = [](Pairs<Orv32f> y) ORV_INLINE_LAMBDA { return Pairs<Orv32f>{cross_quarters(y.v)}; };
    dst.store_pairs(0, scaled(in_order(even + turned), scale));
    dst.store_pairs(4, scaled(in_order(even - turned), scale));
}

// ---- All

template <Direction d, int order, class Source, class Target, class Scale>
ORV_INLINE void transform_tiny(Source src, Target dst, Scale scale)
{
    if constexpr (order <= 2) transform_singles<d, 1 << order>(src, dst, scale);
    else if constexpr (order == 3 && is_single<typename Source::value>) transform_8<d>(src, dst, scale);
    else if constexpr (order == 3) transform_matrix<d, 4, 2>(src, dst, scale);
    else if constexpr (order == 4) transform_matrix<d, 4, 4>(src, dst, scale);
    else if constexpr (order == 5) transform_matrix<d, 8, 4>(src, dst, scale);
    else transform_matrix<d, 8, 8>(src, dst, scale);
}

} // namespace ORV_VARIANT

#endif
