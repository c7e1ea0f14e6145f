// Which road a length takes, and the numbers that the roads are cut by.
#ifndef ORV_TRANSFORM_ROADS_H
#define ORV_TRANSFORM_ROADS_H

#include "simd/vec.h"

namespace ORV_VARIANT {

/// Which way a transform goes: with exp(-i...) or with exp(+i...).
enum class Direction { forward, inverse };

template <class T>
inline constexpr bool is_single = sizeof(T) == 4;

// ---- Complex transforms: unrolled kernels below engine_order, the engine below large_order, then the large road

inline constexpr int engine_order = 7;
template <class T>
inline constexpr int large_order = is_single<T> ? 19 : 18;
template <class T>
inline constexpr int complex_maximum_order = is_single<T> ? 28 : 27;

// ---- Real transforms: unrolled kernels below, then a complex transform of half the length and a recombination

inline constexpr int recombined_order = 5;
/// From here on the factors of the recombination are products of a fine and a coarse one.
inline constexpr int two_level_order = 18;
/// Fine factors in each of the two tables.
template <class T>
inline constexpr int fine_factors = is_single<T> ? 1024 : 512;

// ---- Factors

/// Below this order factors come from the table of constants, from it on from a table that is computed.
inline constexpr int computed_factors_order = 11;

// ---- The large road

/// Rows and columns of a tile of the bit reversal.
template <class T>
inline constexpr int tile_order = is_single<T> ? 6 : 5;
template <class T>
inline constexpr int tile_side = 1 << tile_order<T>;

/// A transform of 2^order is split into 2^block_order inner ones, which an outer one combines ...
template <class T>
constexpr int tbl_blk_order(int order)
{
    return order < large_order<T> ? 0 : order < large_order<T> + 4 ? 4 : 8;
}
/// ... in strips of 2^buffer_order elements in all.
template <class T>
constexpr int tbl_buf_order(int order)
{
    return order < large_order<T> ? 0 : tbl_blk_order<T>(order) + tile_order<T>;
}

} // namespace ORV_VARIANT

#endif
