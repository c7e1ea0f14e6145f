// The road of the largest lengths, whose arrays exceed the caches: three sweeps over memory.
//
//   1. The bit reversal, by tiles: side rows of side elements, at distances of n / side in the source and again in the
//      destination. While a tile is in the cache its columns are transformed, which does the passes of the shortest
//      spans as well.
//   2. Blocks of n / 16 or n / 256 elements are finished one after the other: by the passes of the engine, or, where
//      they are large themselves, by this road from here on.
//   3. The blocks are combined by passes of radix 4 over strips of side columns, one strip after the other.
//
// The idea is that of D. H. Bailey, "FFTs in external or hierarchical memory" (1990).
#ifndef ORV_TRANSFORM_LARGE_H
#define ORV_TRANSFORM_LARGE_H

#include "transform/engine.h"
#include "transform/sine.h"
#include "transform/spec.h"

namespace ORV_VARIANT {

// ---- 1. Tiles

/// What columns of tiles are transformed to: spans of 2^tile_levels, by the first two passes of the engine at once.
inline constexpr int tile_levels = 5;

/// The factors exp(-2 pi i j k / n) of j < rows, k < columns.
template <class T, int rows, int columns>
struct ColumnFactors {
    Factor<T> at[rows][columns];
};
template <class T, int rows, int columns>
inline constexpr ColumnFactors<T, rows, columns> column_factors = [] {
    ColumnFactors<T, rows, columns> factors = {};
    for (int j = 0; j < rows; ++j)
        for (int k = 0; k < columns; ++k) factors.at[j][k] = fixed_factors<T>.at(j * k, rows * columns);
    return factors;
}();

/// The columns of a tile as spans of 32 elements, each a matrix of rows as long as a vector: the elements of a span are
/// the rows at distances of the number of spans. One vector of columns at a time; put(lane, k, x) takes vectors of the
/// result of the column in a lane, from element k on, in the bit-reversed order of spans.
template <Direction d, class T, class Put>
ORV_INLINE void transform_columns(BlockArray<T> tile, Put put)
{
    constexpr int N = vec<T>::N, side = tile_side<T>, span = 1 << tile_levels, count = span / N, spans = side / span;
    alignas(32) T memory[2 * N * side];
    const BlockArray<T> temporary = {memory};
    for (int s = 0; s < spans; ++s) {
        for (int j = 0; j < count; ++j) {
            Complex<T> x[N];
            repeat<N>([&](auto k) ORV_INLINE_LAMBDA {
                x[k] = tile.load(((k * count + j) * spans + s) * std::ptrdiff_t(side));
            });
            butterfly<d>(x);
            repeat<N>([&](auto k) ORV_INLINE_LAMBDA {
                const auto& w = column_factors<T, N, count>.at[k][j];
                temporary.store((k * count + j) * N, multiply<d>(x[k], Complex<T>{splat(w.re), splat(w.im)}));
            });
        }
        for (int k = 0; k < N; ++k) {
            Complex<T> x[count];
            repeat<count>([&](auto j) ORV_INLINE_LAMBDA { x[j] = temporary.load((k * count + j) * N); });
            butterfly<d>(x);
            repeat<count>([&](auto j) ORV_INLINE_LAMBDA { temporary.store((k * count + j) * N, x[j]); });
        }
        for (int j = 0; j < count; ++j) {
            Complex<T> x[N];
            repeat<N>([&](auto k) ORV_INLINE_LAMBDA { x[k] = temporary.load((k * count + j) * N); });
            transpose(x);
            repeat<N>([&](auto lane) ORV_INLINE_LAMBDA { put(lane, reversed_in<spans>(s) * span + j * N, x[lane]); });
        }
    }
}

/// How tiles lie in an array of 2^order elements.
template <class T>
class Tiles {
public:
    static constexpr std::ptrdiff_t side = tile_side<T>, elements = side * side;

    Tiles(int order, const Orv32s* reversed) : order_(order), reversed_(reversed) {}

    std::ptrdiff_t count() const { return std::ptrdiff_t(1) << (order_ - 2 * tile_order<T>); }
    /// The tile that tile i becomes.
    std::ptrdiff_t partner(std::ptrdiff_t i) const { return reversed_[i] >> tile_order<T>; }

    /// Copies a tile to the work array, as blocks.
    template <class Source>
    void gather(Source src, std::ptrdiff_t tile, BlockArray<T> work) const
    {
        for (std::ptrdiff_t row = 0; row < side; ++row) {
            const Source line = src + (row * distance() + tile * side);
            for (std::ptrdiff_t k = 0; k < side; k += vec<T>::N) work.store(row * side + k, line.load(k));
        }
    }
    /// Transforms the columns of a gathered tile; column c becomes row rev(c) of a tile of dst.
    template <Direction d, class Target>
    void scatter(BlockArray<T> work, Target dst, std::ptrdiff_t tile) const
    {
        constexpr std::ptrdiff_t N = vec<T>::N;
        alignas(32) T memory[2 * N * side]; // so that whole rows can be written, line after line
        const BlockArray<T> rows = {memory};
        for (std::ptrdiff_t column = 0; column < side; column += N) {
            transform_columns<d>(work + column, [=](auto lane, int k, Complex<T> x)
                                                    ORV_INLINE_LAMBDA { rows.store(lane * side + k, x); });
            for (int lane = 0; lane < N; ++lane) {
                const std::ptrdiff_t row = reversed_in<tile_side<T>>(int(column) + element_of_lane<T>(lane));
                const Target line = dst + (row * distance() + tile * side);
                for (std::ptrdiff_t k = 0; k < side; k += N) line.store(k, rows.load(lane * side + k));
            }
        }
    }

private:
    std::ptrdiff_t distance() const { return std::ptrdiff_t(1) << (order_ - tile_order<T>); }

    int order_;
    const Orv32s* reversed_;
};

/// dst = src in bit-reversed order, after the passes of spans up to 2^tile_levels.
template <Direction d, class T, class Source, class Target>
void reverse_by_tiles(const Tiles<T>& tiles, Source src, Target dst, bool in_place, BlockArray<T> work)
{
    const BlockArray<T> other = work + tiles.elements;
    for (std::ptrdiff_t i = 0; i < tiles.count(); ++i) {
        const std::ptrdiff_t partner = tiles.partner(i);
        if (in_place && partner < i) continue; // done together
        const bool exchange = in_place && partner != i;
        tiles.gather(src, i, work);
        if (exchange) tiles.gather(src, partner, other);
        tiles.template scatter<d>(work, dst, partner);
        if (exchange) tiles.template scatter<d>(other, dst, i);
    }
}

// ---- 3. Strips

/// The factors W, W^2, W^3 of a vector of butterflies, where a table has only the first ones.
template <class T>
class PowersOfFirst {
public:
    ORV_INLINE explicit PowersOfFirst(const T* w) : first_{load(w), load(w + vec<T>::N)}
    {
        second_ = multiply<Direction::forward>(first_, first_);
        third_ = multiply<Direction::forward>(second_, first_);
    }
    ORV_INLINE Complex<T> operator()(int m) const { return m == 1 ? first_ : m == 2 ? second_ : third_; }

private:
    Complex<T> first_, second_, third_;
};

/// One pass of radix 4 over a strip: rows at distances of quarter are combined. from and to say where a row is, Factors
/// makes those of a vector of butterflies from the table. Returns what is behind them.
template <Direction d, template <class> class Factors, int factors_each, class T, class From, class To, class Scale>
ORV_INLINE const T* strip_pass(From from, To to, int rows, int quarter, const T* table, Scale scale)
{
    constexpr int N = vec<T>::N, width = tile_side<T>;
    for (int row = 0; row < quarter; ++row) {
        for (int span = row; span < rows; span += 4 * quarter) {
            const T* w = table;
            for (int k = 0; k < width; k += N, w += 2 * factors_each * N) {
                Complex<T> x[4];
                butterfly_of_products<d>(
                    x, [=](auto m) ORV_INLINE_LAMBDA { return from(span + reversed_in<4>(m) * quarter).load(k); },
                    Factors<T>{w});
                repeat<4>([&](auto j) ORV_INLINE_LAMBDA { to(span + j * quarter).store(k, scaled(x[j], scale)); });
            }
        }
        table += 2 * factors_each * width;
    }
    return table;
}

/// Combines 2^block_order finished blocks of block elements: data to dst, which are the same place.
template <Direction d, class T, class Array, class Target, class Scale>
[[gnu::noinline]] void combine_blocks(Array data, Target dst, std::ptrdiff_t block, int block_order, const T* twiddles,
                                      BlockArray<T> work, Scale scale)
{
    constexpr int width = tile_side<T>;
    const int rows = 1 << block_order;
    for (std::ptrdiff_t column = 0; column < block; column += width) {
        const auto in_data = [=](int row) ORV_INLINE_LAMBDA { return data + (row * block + column); };
        const auto in_work = [=](int row) ORV_INLINE_LAMBDA { return work + row * std::ptrdiff_t(width); };
        const auto in_dst = [=](int row) ORV_INLINE_LAMBDA { return dst + (row * block + column); };
        int quarter = 1;
        twiddles = strip_pass<d, FactorsInTable, 3>(in_data, in_work, rows, quarter, twiddles, Unscaled());
        for (quarter *= 4; 4 * quarter < rows; quarter *= 4)
            twiddles = strip_pass<d, FactorsInTable, 3>(in_work, in_work, rows, quarter, twiddles, Unscaled());
        twiddles = strip_pass<d, PowersOfFirst, 1>(in_work, in_dst, rows, quarter, twiddles, scale);
    }
}

// ---- 2. Blocks, and all together

/// From the tiles on: finishes 2^order elements, in place, but for the layout of dst. level counts the tables of
/// strips.
template <Direction d, class T, class Array, class Target, class Scale>
void finish_large(const FftSpec<T>& spec, int level, int order, Array data, Target dst, BlockArray<T> work, Scale scale)
{
    const int block_order = tbl_blk_order<T>(order), inner_order = order - block_order;
    const std::ptrdiff_t block = std::ptrdiff_t(1) << inner_order;
    for (int i = 0; i < 1 << block_order; ++i) {
        const Array part = data + i * block;
        if (inner_order >= large_order<T>) {
            finish_large<d>(spec, level + 1, inner_order, part, part, work, Unscaled());
        } else {
            const T* factors = spec.tabTwd + pass_factors(tile_levels - first_pass_levels, tile_levels);
            finish_span<d>(part, inner_order, tile_levels, factors);
        }
    }
    combine_blocks<d>(data, dst, block, block_order, static_cast<const T*>(spec.tabStepTwd[level]), work, scale);
}

/// What the passes after the first work on, in the place of the destination.
template <class T>
BlockArray<T> working_layout(InterleavedArray<T> dst)
{
    return {dst.p};
}
template <class T>
SplitBlockArray<T> working_layout(SplitArray<T> dst)
{
    return {dst.re, dst.im};
}

/// dst = the transform of src of 2^order elements, which may be the same array; order >= large_order.
template <Direction d, class T, class Array, class Scale>
void large_transform(const FftSpec<T>& spec, int order, Array src, Array dst, bool in_place, BlockArray<T> work,
                     Scale scale)
{
    const Tiles<T> tiles(order, spec.tabBitRev);
    const auto data = working_layout(dst);
    reverse_by_tiles<d>(tiles, src, data, in_place, work);
    finish_large<d>(spec, 0, order, data, dst, work, scale);
}

} // namespace ORV_VARIANT

#endif
