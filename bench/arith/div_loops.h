// Plain loops as peers of Div, Div_Round, DivC and DivCRev: the division that the language has, compiled for the same
// processor. Divisors are not 0.
#ifndef ORV_BENCH_ARITH_DIV_LOOPS_H
#define ORV_BENCH_ARITH_DIV_LOOPS_H

#include "orvs/types.h"

namespace loops {

/// dst = src2 / src1; T is Orv32f, Orv64f or Orv32fc.
template <class T>
void div(const T* src1, const T* src2, T* dst, int n);

/// The same times 2^-scale, rounded by the mode and saturated; T is Orv8u, Orv16u, Orv16s or Orv32s.
template <class T>
void div_scaled(const T* src1, const T* src2, T* dst, int n, OrvRoundMode mode, int scale);

/// dst = src / value; T is Orv32f.
template <class T>
void divc(const T* src, T value, T* dst, int n);

/// The same times 2^-scale, rounded to nearest, ties to even, and saturated; T is Orv16s.
template <class T>
void divc_scaled(const T* src, T value, T* dst, int n, int scale);

/// dst = value / src; T is Orv32f.
template <class T>
void divcrev(const T* src, T value, T* dst, int n);

} // namespace loops

#endif
