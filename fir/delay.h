// The past of the stream in a record, floating or integer: oldest first, with room for new samples behind it.
#ifndef ORV_FIR_DELAY_H
#define ORV_FIR_DELAY_H

#include "fir/samples.h"

namespace ORV_VARIANT {

/// Brings the past to the front of dlyLine, where blocks expect it. Only single samples move it away.
template <class Record>
inline void rewind_delay(Record& s)
{
    if (s.dlyIndex == 0) return;
    move_array(s.dlyLine + s.dlyIndex, s.dlyLine, std::size_t(s.tapsLen));
    s.dlyIndex = 0;
}

/// The last samples of src become the past.
template <class Record, class T>
inline void advance_delay(Record& s, const T* src, int len)
{
    const int kept = len < s.tapsLen ? s.tapsLen - len : 0, taken = s.tapsLen - kept;
    if (kept > 0) move_array(s.dlyLine + len, s.dlyLine, std::size_t(kept));
    to_compute(src + (len - taken), s.dlyLine + kept, taken);
}

/// dlyLine has the newest sample first; null stands for silence.
template <class Record, class Sample>
inline void set_delay(Record& s, const Sample* dlyLine)
{
    s.dlyIndex = 0;
    if (!dlyLine) {
        zero(s.dlyLine, s.tapsLen);
        return;
    }
    to_compute(dlyLine, s.dlyLine, s.tapsLen);
    reverse(s.dlyLine, s.tapsLen);
}

template <class Record, class Sample>
inline void get_delay(const Record& s, Sample* dlyLine)
{
    from_compute(s.dlyLine + s.dlyIndex, dlyLine, s.tapsLen, 0);
    reverse(dlyLine, s.tapsLen);
}

} // namespace ORV_VARIANT

#endif
