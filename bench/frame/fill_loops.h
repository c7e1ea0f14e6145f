// Plain loops as peers of fill and move: what a program has without a library, compiled for the same processor.
#ifndef ORV_BENCH_FRAME_FILL_LOOPS_H
#define ORV_BENCH_FRAME_FILL_LOOPS_H

#include "orvs/types.h"

namespace loops {

void copy(const Orv8u* src, Orv8u* dst, int n);
void set(Orv32f value, Orv32f* dst, int n);
void zero(Orv8u* dst, int n);

} // namespace loops

#endif
