// Companding as programs have it: the formulas of ITU-T G.711 sample by sample, and tables.
#ifndef ORV_BENCH_CONVERT_COMPANDING_LOOPS_H
#define ORV_BENCH_CONVERT_COMPANDING_LOOPS_H

#include "orvs/types.h"

namespace loops {

void alaw_encode(const Orv16s* src, Orv8u* dst, int n);
void alaw_decode(const Orv8u* src, Orv16s* dst, int n);
void mulaw_encode(const Orv16s* src, Orv8u* dst, int n);
void mulaw_encode(const Orv32f* src, Orv8u* dst, int n);
void mulaw_decode(const Orv8u* src, Orv16s* dst, int n);

/// dst[i] = table[src[i]]; the table has a value for each code, or for each sample as an unsigned number.
void look_up(const Orv16s* table, const Orv8u* src, Orv16s* dst, int n);
void look_up(const Orv32f* table, const Orv8u* src, Orv32f* dst, int n);
void look_up(const Orv8u* table, const Orv8u* src, Orv8u* dst, int n);
void look_up(const Orv8u* table, const Orv16s* src, Orv8u* dst, int n);

} // namespace loops

#endif
