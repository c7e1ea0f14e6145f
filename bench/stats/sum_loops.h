// Plain loops as peers of Sum, Mean, StdDev and MeanStdDev: what a program has without a library, compiled for the same
// processor and with leave to add in any order.
#ifndef ORV_BENCH_STATS_SUM_LOOPS_H
#define ORV_BENCH_STATS_SUM_LOOPS_H

#include "orvs/types.h"

namespace loops {

// Sums are formed in S. (S, T) is (Orv32f, Orv32f), (Orv64f, Orv32f), (Orv64f, Orv64f), (Orv64s, Orv16s) or
// (Orv64s, Orv32s); integer results are saturated.

template <class S, class T, class D>
void sum(const T* src, int n, D* result);
template <class S, class T>
void mean(const T* src, int n, T* result);

void sum_complex(const Orv32fc* src, int n, Orv32fc* result);

// The mean may be null. (S, T, D) is (Orv32f, Orv32f, Orv32f), (Orv64f, Orv32f, Orv32f), (Orv64f, Orv64f, Orv64f) or
// (Orv64s, Orv16s, Orv32s).

template <class S, class T, class D>
void mean_deviation(const T* src, int n, D* mean, D* deviation);

} // namespace loops

#endif
