// What integer filters are built from.
#ifndef ORV_FIR_INTEGER_ENGINE_H
#define ORV_FIR_INTEGER_ENGINE_H

#include <algorithm>

#include "fir/direct_road.h"
#include "fir/integer_sums.h"
#include "fir/state.h"

namespace ORV_VARIANT {

template <Orv32u identifier, class SampleType, class TapsType>
struct IntegerForm {
    static constexpr Orv32u id = identifier;
    using Sample = SampleType; ///< the taps are held in this type, too
    using Taps = TapsType;
    using Record = FirState32s<Sample>;
};

using Fir_16s = IntegerForm<fir_id("FI29"), Orv16s, Orv16s>;
using Fir32s_16s = IntegerForm<fir_id("FI09"), Orv16s, Orv32s>;
using Fir32s_16s32f = IntegerForm<fir_id("FI09"), Orv16s, Orv32f>;
using Fir32sc_16sc = IntegerForm<fir_id("FI10"), Orv16sc, Orv32sc>;
using Fir32sc_16sc32fc = IntegerForm<fir_id("FI10"), Orv16sc, Orv32fc>;

// ---- Taps of 16 bits with a power of two in common. Each function fills `stored` and returns the power.

inline constexpr Orv64s magnitude(Orv64s tap) { return tap < 0 ? -tap : tap; }

/// 32-bit taps are shifted to the right until the largest is at most 32766.
inline int store_taps(const Orv32s* taps, Orv16s* stored, int count)
{
    Orv64s largest = 0;
    for (int k = 0; k < count; ++k) largest = std::max(largest, magnitude(element_at(taps + k)));
    int shift = 0;
    for (; largest > 32766; largest >>= 1) ++shift;
    for (int k = 0; k < count; ++k) stored[k] = Orv16s(element_at(taps + k) >> shift);
    return shift;
}

/// -32768 is the one 16-bit value that cannot stand: a pair of its squares does not fit the sum.
inline int store_taps(const Orv16s* taps, Orv16s* stored, int count)
{
    int shift = 0;
    for (int k = 0; k < count; ++k) shift |= element_at(taps + k) == -32768;
    for (int k = 0; k < count; ++k) stored[k] = Orv16s(element_at(taps + k) >> shift);
    return shift;
}

/// Floating taps are scaled by a power of two so that the largest comes as near to 32767 as 33 doublings or halvings
/// bring it, and rounded to nearest, ties away from zero.
inline int store_taps(const Orv32f* taps, Orv16s* stored, int count)
{
    constexpr int most = 33;
    constexpr Orv64f limit = 32767;
    Orv64f largest = 0, factor = 1;
    for (int k = 0; k < count; ++k) largest = std::max(largest, Orv64f(__builtin_fabsf(element_at(taps + k))));
    int power = 0;
    if (largest > limit) {
        for (; largest > limit && power < most; largest *= 0.5, factor *= 0.5) ++power;
    } else {
        for (; limit > 2 * largest && power > -most; largest *= 2, factor *= 2) --power;
    }
    for (int k = 0; k < count; ++k) {
        const Orv64f tap = Orv64f(element_at(taps + k)) * factor;
        const Orv64f away = tap < 0 ? tap - 0.5 : tap + 0.5;
        stored[k] = away >= limit ? Orv16s(32767) : away > -limit ? Orv16s(away) : Orv16s(-32767);
    }
    return power;
}

// ---- Tables

inline Orv32s pair_of(int low, int high) { return Orv32s(Orv32u(Orv16u(high)) << 16 | Orv16u(low)); }

inline void build_lane_table(const Orv16s* tapsRev, int tapsLen, Orv32s* table)
{
    const auto tap = [=](int k) { return k >= 0 && k < tapsLen ? int(tapsRev[tapsLen - 1 - k]) : 0; };
    for (int k = 0; k < 2 * IntegerSums<Orv16s>::steps(tapsLen); k += 2) {
        table[k] = pair_of(tap(k), tap(k - 1));
        table[k + 1] = pair_of(tap(k + 1), tap(k));
    }
}
inline void build_lane_table(const Orv16sc* tapsRev, int tapsLen, Orv32s* table)
{
    for (int k = tapsLen - 1; k >= 0; --k, table += 2) {
        const Orv16sc tap = tapsRev[k];
        table[0] = pair_of(tap.re, -tap.im);
        table[1] = pair_of(tap.im, tap.re);
    }
}

/// Of taps that stand in tapsTable in their own order.
template <class T>
void arrange_taps(FirState32s<T>& s)
{
    reverse(s.tapsTable, s.tapsLen);
    build_lane_table(s.tapsTable, s.tapsLen, s.laneTable);
}

/// tapsFactor is the caller's.
template <class T, class Taps>
void set_taps(FirState32s<T>& s, const Taps* taps, int tapsFactor)
{
    const int power = store_taps(values(taps), values(s.tapsTable), s.tapsLen * values_of<T>);
    s.tapsFactor = Orv32s(Orv32u(tapsFactor) + Orv32u(power));
    arrange_taps(s);
}

// ---- Filtering

template <class T>
void filter_block(FirState32s<T>& s, const T* src, T* dst, int len, int scale)
{
    const IntegerSums<T> sums = {s.laneTable, s.tapsLen, SumShift(s.tapsFactor, scale)};
    direct_road(sums, s, src, dst, len, 1);
}

template <class Form, class T>
OrvStatus filter_stream(FirState32s<T>& s, const T* src, T* dst, int len, int scale)
{
    if (src != dst) {
        filter_block(s, src, dst, len, scale);
        len = 0;
    }
    while (len > 0) {
        const int n = len < bounce_len ? len : bounce_len;
        filter_block(s, dst, s.bounce, n, scale);
        copy_array(s.bounce, dst, std::size_t(n));
        len -= n, dst += n;
    }
    return orvOk;
}

} // namespace ORV_VARIANT

#endif
