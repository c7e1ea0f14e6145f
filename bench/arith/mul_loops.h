// Plain loops as peers of Mul and MulC: what a program has without a library, compiled for the same processor.
#ifndef ORV_BENCH_ARITH_MUL_LOOPS_H
#define ORV_BENCH_ARITH_MUL_LOOPS_H

#include "orvs/types.h"

namespace loops {

// T is Orv16s, which saturates, Orv32f, Orv64f, Orv16sc, which saturates too, Orv32fc or Orv64fc.

template <class T>
void mul(const T* src1, const T* src2, T* dst, int n);

// T is Orv8u, Orv16s, Orv32s or Orv16sc, scale at least 1: rounded to nearest, ties to even, and saturated.

template <class T>
void mul_scaled(const T* src1, const T* src2, T* dst, int n, int scale);

// T is Orv32f, Orv64f, Orv32fc or Orv64fc.

template <class T>
void mulc(const T* src, T value, T* dst, int n);

void mulc_scaled(const Orv16s* src, Orv16s value, Orv16s* dst, int n, int scale);
void mul_real_complex(const Orv32f* src1, const Orv32fc* src2, Orv32fc* dst, int n);

} // namespace loops

#endif
