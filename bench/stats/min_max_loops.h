// Plain loops as peers of the extremes, compiled for the same processor. There are no not-a-numbers among the elements.
#ifndef ORV_BENCH_STATS_MIN_MAX_LOOPS_H
#define ORV_BENCH_STATS_MIN_MAX_LOOPS_H

#include "orvs/types.h"

namespace loops {

// T is Orv16s, Orv32s, Orv32f or Orv64f.

template <class T>
void max(const T* src, int n, T* max);

void max_abs(const Orv16s* src, int n, Orv16s* max_abs);

// T is Orv8u, Orv16s or Orv32f.

template <class T>
void min_max(const T* src, int n, T* min, T* max);

// In two passes, of which each has vectors: the extreme, then the least place that has it. T is Orv16s, Orv32f or
// Orv64f.

template <class T>
void max_index(const T* src, int n, T* max, Orv32s* index);

void min_max_index(const Orv32f* src, int n, Orv32f* min, Orv32s* min_index, Orv32f* max, Orv32s* max_index);

void min_every(const Orv8u* src1, const Orv8u* src2, Orv8u* dst, int n);
void max_every(const Orv32f* src1, const Orv32f* src2, Orv32f* dst, int n);

// All elements are finite.

void max_order(const Orv16s* src, int n, Orv32s* order);
void max_order(const Orv32f* src, int n, Orv32s* order);

} // namespace loops

#endif
