// Plain loops as peers of the integer forms of Exp, Ln, 10Log10, SumLn and Cubrt: the C library's functions in double
// precision. Near halves they may round the wrong way.
#ifndef ORV_BENCH_ARITH_POWERS_LOOPS_H
#define ORV_BENCH_ARITH_POWERS_LOOPS_H

#include "orvs/types.h"

namespace loops {

/// T is Orv16s or Orv32s.
template <class T>
void exp_scaled(const T* src, T* dst, int n, int scale);
/// src > 0; S and D are Orv16s or Orv32s.
template <class S, class D>
void ln_scaled(const S* src, D* dst, int n, int scale);
void decibels_scaled(const Orv32s* src, Orv32s* dst, int n, int scale);
void cbrt_scaled(const Orv32s* src, Orv16s* dst, int n, int scale);
void sum_ln(const Orv16s* src, int n, Orv32f* sum);

} // namespace loops

#endif
