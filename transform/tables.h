// The tables of a spec. Each builder writes at a multiple of 64 and returns the first such address behind its table, so
// that tables follow one another. They round in the caller's floating-point state.
#ifndef ORV_TRANSFORM_TABLES_H
#define ORV_TRANSFORM_TABLES_H

#include "frame/alignment.h"
#include "transform/sine.h"

namespace ORV_VARIANT {

/// p rounded up to where a table may begin.
template <class P>
ORV_INLINE P* aligned(P* p)
{
    return aligned_up(p, 64);
}

/// sin(2 pi k / 2^order) for k = 0 ... 2^order / 4; order >= 11.
template <class T>
void build_sines(int order, T* table);

/// 2 * rev(i) for the 2^(order - 2) numbers i, of order - 2 bits, and a 0.
template <class T>
T* build_bit_reversal(int order, Orv32s* table);
/// rev(i) << shift for the numbers i of order - 2 * shift bits.
template <class T>
T* build_tile_reversal(int order, int shift, Orv32s* table);

/// The factors of the passes, one after the other: of a vector of butterflies each W^m of m = 1 ... radix - 1, of each
/// the real and the imaginary parts.
template <class T>
T* build_twiddles(int order, const Factors<T>& factors, T* table);

/// The factors of one level of the large road, in the order in which its strips read them.
template <class T>
T* build_step_twiddles(int order, const Factors<T>& factors, T* table);

/// The factors of the recombination: for k = 1 ... 2^order / 4 the pair A = cos(t) / 2, B = 1 / 2 - sin(t) / 2,
/// t = 2 pi k / 2^order; the entries of k = 2 and 1, 4 and 3 and so on exchanged. From two_level_order on two tables:
/// cos(t), -sin(t) for the first k in the same order, then for every fine_factors-th k from 0 on. The inverse
/// recombination has -A for A, and so -cos(t) in the fine table and sin(t) in the coarse one.
template <class T>
T* build_recombination(int order, const Factors<T>& factors, bool inverse, T* table);

} // namespace ORV_VARIANT

#endif
