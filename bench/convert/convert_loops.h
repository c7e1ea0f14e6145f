// Plain loops as peers of the conversions: what a program has without a library, compiled for the same processor.
#ifndef ORV_BENCH_CONVERT_CONVERT_LOOPS_H
#define ORV_BENCH_CONVERT_CONVERT_LOOPS_H

#include "orvs/types.h"

namespace loops {

/// dst = src, for types that need no limits.
template <class S, class D>
void convert(const S* src, D* dst, int n);

/// Floating to integer: to nearest in the processor's state, saturated.
template <class S, class D>
void convert_near(const S* src, D* dst, int n);

/// To nearest, ties away from zero, saturated.
void convert_financial(const Orv32f* src, Orv16s* dst, int n);

/// Times 2^-scale to nearest, ties to even, saturated.
void narrow_scaled(const Orv32s* src, Orv16s* dst, int n, int scale);

void convert_24s32f(const Orv8u* src, Orv32f* dst, int n);
void convert_32f24s(const Orv32f* src, Orv8u* dst, int n);

// Half precision by shifts of bits, one value at a time, and by the processor's instructions.
void convert_16f32f(const Orv16f* src, Orv32f* dst, int n);
void convert_32f16f(const Orv32f* src, Orv16f* dst, int n);
void f16c_16f32f(const Orv16f* src, Orv32f* dst, int n);
void f16c_32f16f(const Orv32f* src, Orv16f* dst, int n);

} // namespace loops

#endif
