// Plain loops as peers of Sqr, Sqrt and Abs: what a program has without a library, compiled for the same processor.
#ifndef ORV_BENCH_ARITH_ROOTS_LOOPS_H
#define ORV_BENCH_ARITH_ROOTS_LOOPS_H

#include "orvs/types.h"

namespace loops {

/// T is Orv32f or Orv32fc.
template <class T>
void sqr(const T* src, T* dst, int n);

/// src^2 * 2^-scale, rounded to nearest, ties to even, and saturated; T is Orv16s, scale at least 1.
template <class T>
void sqr_scaled(const T* src, T* dst, int n, int scale);

/// T is Orv32f or Orv64f: the processor's instruction for a whole register and nothing else; Orv32fc or Orv64fc: the
/// root that the language has.
template <class T>
void sqrt(const T* src, T* dst, int n);

/// sqrt(src) * 2^-scale to nearest and saturated, by way of a double. From S to D is Orv8u, Orv16u or Orv16s to itself,
/// or Orv32s to Orv16s.
template <class S, class D>
void sqrt_scaled(const S* src, D* dst, int n, int scale);
/// sqrt(src) to nearest, exact: the double is corrected by comparing squares.
void sqrt_exact(const Orv64s* src, Orv64s* dst, int n);
/// Each part of the principal root times 2^-scale.
void sqrt_scaled(const Orv16sc* src, Orv16sc* dst, int n, int scale);

/// T is Orv16s or Orv32s, which saturate, or Orv32f.
template <class T>
void abs(const T* src, T* dst, int n);

} // namespace loops

#endif
