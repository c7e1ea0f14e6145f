// Records of integer filters: their size, and how a block is cut.
#ifndef ORV_FIR_INTEGER_BUILD_H
#define ORV_FIR_INTEGER_BUILD_H

#include "fir/build.h"
#include "fir/integer_engine.h"

namespace ORV_VARIANT {

/// The formulas are part of the interface.
template <class Form>
Orv64s integer_record_bytes(Orv64s T)
{
    constexpr Orv64s wider = wider_record<typename Form::Record>;
    if constexpr (std::is_same_v<typename Form::Sample, Orv16sc>) {
        return (((12 * T + 31) >> 4) + T + ((8 * T + 15) >> 4)) * 16 + 16992 + wider;
    } else {
        const Orv64s taps = round_up((std::is_same_v<Form, Fir_16s> ? 2 : 4) * T, 16);
        return taps + (((((T + 11) & -8) + 2 * T) * 2 + 23) & -16) + ((T + 11) >> 3) * 64 + 16992 + wider;
    }
}

/// A record without taps and past.
template <class Form>
typename Form::Record& lay_out(Orv8u* block, int tapsLen)
{
    using T = typename Form::Sample;
    using Sums = IntegerSums<T>;
    const auto count = std::size_t(tapsLen);

    Cutter rest(block);
    auto& s = *rest.take<typename Form::Record>(1, 16);
    s.bounce = rest.take<T>(bounce_len, 4);
    s.id = Form::id;
    s.tapsLen = tapsLen;
    s.directLimit = (tapsLen + 11) & -8;
    s.dlyIndex = 0;
    s.laneTable = rest.take<Orv32s>(2 * std::size_t(Sums::steps(tapsLen)), 4);
    s.tapsTable = rest.take<T>(count, 4);
    const int behind = room_behind_past<Sums>(s.directLimit);
    s.dlyLine = rest.take<T>(count + std::size_t(behind), 4);
    zero(s.dlyLine, tapsLen + behind); // a short block computes on what is behind the past
    s.allocated = 0;
    return s;
}

template <class T>
void release(FirState32s<T>* s)
{
    orvsFree(s);
}

} // namespace ORV_VARIANT

#endif
