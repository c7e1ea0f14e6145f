// The direct road of a record, floating or integer: the first outputs from the record's buffer, where the new samples
// follow the past, the rest straight from the caller's array.
#ifndef ORV_FIR_DIRECT_ROAD_H
#define ORV_FIR_DIRECT_ROAD_H

#include "fir/delay.h"
#include "fir/tiles.h"
#include "frame/team.h"

namespace ORV_VARIANT {

/// Samples that dlyLine holds behind the past. So many follow directLimit that what remains for the caller's array
/// fills a vector.
template <class Sums>
constexpr int room_behind_past(int directLimit)
{
    return directLimit + Sums::lanes;
}

/// At least a vector of outputs, spread over `wanted` threads if there are so many.
template <class Sums, class T, class Out>
void filter_on_threads(const Sums& sums, const T* x, Out* dst, int count, int wanted)
{
    const int team = wanted < count / Sums::lanes ? wanted : count / Sums::lanes;
    if (team <= 1) return filter_direct(sums, x, dst, count);
    on_threads(team, [&](int me, int threads) {
        const Slice slice(count, me, threads);
        filter_direct(sums, x + slice.first, dst + slice.first, slice.count);
    });
}

/// dst is not src. `wanted` threads share what comes from src.
template <class Sums, class Record, class T, class Out>
void direct_road(const Sums& sums, Record& s, const T* src, Out* dst, int len, int wanted)
{
    rewind_delay(s);
    T* const behind_past = s.dlyLine + s.tapsLen;
    if (len <= room_behind_past<Sums>(s.directLimit)) {
        copy_array(src, behind_past, std::size_t(len));
        filter_direct(sums, behind_past, dst, len);
        move_array(s.dlyLine + len, s.dlyLine, std::size_t(s.tapsLen));
        return;
    }
    const int first = s.directLimit - 1;
    copy_array(src, behind_past, std::size_t(s.directLimit));
    filter_direct(sums, behind_past, dst, first);
    filter_on_threads(sums, src + first, dst + first, len - first, wanted);
    advance_delay(s, src, len);
}

} // namespace ORV_VARIANT

#endif
