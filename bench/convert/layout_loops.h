// Plain loops as peers of layout functions.
#ifndef ORV_BENCH_CONVERT_LAYOUT_LOOPS_H
#define ORV_BENCH_CONVERT_LAYOUT_LOOPS_H

#include "orvs/types.h"

namespace loops {

void real(const Orv32fc* src, Orv32f* dst, int n);
void imag(const Orv16sc* src, Orv16s* dst, int n);
void parts_to_complex(const Orv32f* re, const Orv32f* im, Orv32fc* dst, int n);
void complex_to_parts(const Orv32fc* src, Orv32f* re, Orv32f* im, int n);
void conj(const Orv32fc* src, Orv32fc* dst, int n);

// T is Orv8u or Orv32f.
template <class T>
void flip(const T* src, T* dst, int n);

// T is Orv16u, Orv32u or Orv64u.
template <class T>
void swap_bytes(const T* src, T* dst, int n);
void swap_bytes24(const Orv8u* src, Orv8u* dst, int n);

/// n bytes that begin at bit shift, 1 to 7, of src, least significant bit first.
void copy_bits(const Orv8u* src, int shift, Orv8u* dst, int n);
void pack_bits(const Orv32u* src, const int* widths, Orv8u* dst, int n);

void join2(const Orv32f* left, const Orv32f* right, Orv16s* dst, int n);
void join6(const Orv32f* const* channels, Orv16s* dst, int n);
void join2_24(const Orv32f* left, const Orv32f* right, Orv8u* dst, int n);
void split2(const Orv16s* src, Orv32f* left, Orv32f* right, int n);
void split6(const Orv16s* src, Orv32f* const* channels, int n);
void split2_24(const Orv8u* src, Orv32f* left, Orv32f* right, int n);

} // namespace loops

#endif
