// How much memory specs and transforms want.
#ifndef ORV_TRANSFORM_SIZES_H
#define ORV_TRANSFORM_SIZES_H

#include "transform/roads.h"
#include "transform/spec.h"

namespace ORV_VARIANT {

struct FftSizes {
    Orv32s spec, init, work; ///< bytes; work without the slack for its alignment
};

constexpr Orv32s down_to(Orv32s multiple, Orv32s size) { return size & ~(multiple - 1); }

/// What the alignment of a block and a record of up to 128 bytes take.
inline constexpr Orv32s record_and_slack = 192;

/// A spec that needs no table. The addend beyond the record is 88 bytes, of which 63 are for its alignment.
template <class T>
constexpr Orv32s bare_spec_size = Orv32s(sizeof(FftSpec<T>)) + 88;

template <class T>
constexpr Orv32s bit_reversal_size(Orv32s n)
{
    return down_to(64, n + 67);
}
template <class T>
constexpr Orv32s twiddles_size(Orv32s n)
{
    constexpr Orv32s element = 2 * Orv32s(sizeof(T));
    return down_to(64, element * n + element + 63);
}
/// Of the engine: all elements.
template <class T>
constexpr Orv32s engine_work_size(Orv32s n)
{
    return down_to(64, 2 * Orv32s(sizeof(T)) * n + 63);
}
/// The table of sines for a quarter of a turn that Init works in.
template <class T>
constexpr Orv32s sines_size(Orv32s n)
{
    constexpr Orv32s value = Orv32s(sizeof(T));
    return down_to(64, value / 4 * n + value + 63) + 64;
}

struct LargeSizes {
    Orv32s tables, work;
};
/// Of a level of the large road and those below it.
template <class T>
constexpr LargeSizes large_level_sizes(int order)
{
    constexpr Orv32s element = 2 * Orv32s(sizeof(T));
    const int inner = order - tbl_blk_order<T>(order);
    const Orv32s inner_length = Orv32s(1) << inner, strip = element << tbl_buf_order<T>(order);
    LargeSizes sizes = inner < large_order<T>
                           ? LargeSizes{twiddles_size<T>(inner_length), engine_work_size<T>(inner_length)}
                           : large_level_sizes<T>(inner);
    sizes.tables += element << (order - 1);
    if (sizes.work < strip) sizes.work = strip;
    return sizes;
}
/// The bit reversal by tiles has tables of its own, and works on two tiles.
template <class T>
constexpr LargeSizes large_sizes(int order)
{
    constexpr Orv32s two_tiles = 2 * 2 * Orv32s(sizeof(T)) * tile_side<T> * tile_side<T>;
    LargeSizes sizes = large_level_sizes<T>(order);
    const Orv32s tiles = Orv32s(1) << (order - 2 * tile_order<T>);
    sizes.tables += 4 * tiles + (is_single<T> ? 4160 : 1088);
    if (sizes.work < two_tiles) sizes.work = two_tiles;
    return sizes;
}

template <class T>
constexpr FftSizes complex_sizes(int order)
{
    const Orv32s n = Orv32s(1) << order, init = order < computed_factors_order ? 0 : sines_size<T>(n);
    if (order < engine_order) return {bare_spec_size<T>, 0, 0};
    if (order < large_order<T>) {
        return {twiddles_size<T>(n) + bit_reversal_size<T>(n) + record_and_slack, init, engine_work_size<T>(n)};
    }
    const LargeSizes large = large_sizes<T>(order);
    return {large.tables + record_and_slack, init, large.work};
}

template <class T>
constexpr Orv32s recombination_size(int order)
{
    const Orv32s n = Orv32s(1) << order;
    if (order < two_level_order) return down_to(128, Orv32s(sizeof(T)) * n + 126);
    return down_to(128, n / (is_single<T> ? 256 : 64) + 16510);
}

template <class T>
constexpr FftSizes real_sizes(int order)
{
    if (order < recombined_order) return {bare_spec_size<T>, 0, 0};
    const Orv32s init = order < computed_factors_order ? 0 : sines_size<T>(Orv32s(1) << order);
    const FftSizes half = complex_sizes<T>(order - 1);
    const bool has_tables = order > engine_order;
    return {(has_tables ? half.spec : record_and_slack) + recombination_size<T>(order), init, half.work};
}

} // namespace ORV_VARIANT

#endif
