// Plain loops as peers of DotProd, compiled for the same processor and with leave to add in any order.
#ifndef ORV_BENCH_STATS_DOT_PROD_LOOPS_H
#define ORV_BENCH_STATS_DOT_PROD_LOOPS_H

#include "orvs/types.h"

namespace loops {

// (T, D) is (Orv32f, Orv32f), (Orv64f, Orv64f), (Orv32f, Orv64f) or (Orv16s, Orv64s): products and sums are of type D.

template <class T, class D>
void dot(const T* src1, const T* src2, int n, D* dp);

// (T, D) is (Orv32fc, Orv32fc), (Orv32fc, Orv64fc) or (Orv16sc, Orv64sc).

template <class T, class D>
void dot_complex(const T* src1, const T* src2, int n, D* dp);

void dot_scaled(const Orv32s* src1, const Orv32s* src2, int n, Orv32s* dp, int scale);

} // namespace loops

#endif
