// Plain loops as peers of Norm and NormDiff, compiled for the same processor and with leave to add in any order.
#ifndef ORV_BENCH_STATS_NORM_LOOPS_H
#define ORV_BENCH_STATS_NORM_LOOPS_H

#include "orvs/types.h"

namespace loops {

void norm_inf(const Orv32f* src, int n, Orv32f* norm);
void norm_l1(const Orv32f* src, int n, Orv32f* norm);
void norm_l2(const Orv32f* src, int n, Orv32f* norm);
void norm_l2(const Orv32fc* src, int n, Orv64f* norm);
void norm_l2(const Orv16s* src, int n, Orv32f* norm);
void norm_diff_l2(const Orv32f* src1, const Orv32f* src2, int n, Orv32f* norm);

} // namespace loops

#endif
