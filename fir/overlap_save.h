// The FFT road: overlap-save (T. G. Stockham, "High-speed convolution and correlation", 1966). A transform of F
// samples, of which the first tapsLen - 1 belong to the outputs before, gives F - tapsLen + 1 outputs.
#ifndef ORV_FIR_OVERLAP_SAVE_H
#define ORV_FIR_OVERLAP_SAVE_H

#include "fir/delay.h"
#include "fir/engine.h"
#include "frame/team.h"

namespace ORV_VARIANT {

/// Outputs at, at + 1, ... of the call, as many as a transform gives. data and work belong to the calling thread.
template <class T, class Sample>
OrvStatus save_block(const FirState<T>& s, const Sample* src, Sample* dst, int len, int scale, int at, T* data,
                     Orv8u* work)
{
    using Engine = fir_engine<T>;
    const int history = s.tapsLen - 1, most = s.whole.fftLen - history, count = len - at < most ? len - at : most;

    const FirTransform<T>& transform = count <= s.half.fftLen - history ? s.half : s.whole;
    const int room = transform.fftLen - history;

    const T* segment = data;
    bool straight = false;
    if constexpr (std::is_same_v<Sample, T>) {
        straight = at > 0 && count == room;
        if (straight) segment = src + (at - history);
    }
    if (!straight) {
        const int there = at > 0 ? 0 : history; // of the segment lie in the record
        copy_array(s.dlyLine + 1, data, std::size_t(there));
        to_compute(src + (at - history + there), data + there, history - there + count);
        zero(data + history + count, room - count);
    }
    OrvStatus status = Engine::forward(segment, data, transform.fftSpec, work);
    if (status == orvOk) status = Engine::multiply(transform.fftTaps, data, transform.fftLen);
    if (status == orvOk) status = Engine::inverse(data, transform.fftSpec, work);
    if (status == orvOk) from_compute(data + history, dst + at, count, scale);
    return status;
}

/// dst is not src. Each thread takes neighbouring blocks: they share cache lines of dst. The worst status counts.
template <class T, class Sample>
OrvStatus overlap_save(FirState<T>& s, const Sample* src, Sample* dst, int len, int scale)
{
    const int step = s.whole.fftLen - (s.tapsLen - 1), blocks = (len - 1) / step + 1;
    const auto share = [&](int me, int threads) {
        T* const data = s.fftData + std::ptrdiff_t(me) * s.whole.fftLen;
        Orv8u* const work = s.fftWork + std::ptrdiff_t(me) * s.fftWorkSize;
        const Slice slice(blocks, me, threads);
        OrvStatus worst = orvOk;
        for (int block = slice.first; block < slice.first + slice.count; ++block) {
            const OrvStatus status = save_block(s, src, dst, len, scale, block * step, data, work);
            if (status < worst) worst = status;
        }
        s.threadStatus[me] = worst;
    };

    rewind_delay(s);
    const int wanted = len > fir_engine<T>::shared ? ownGetNumThreads() : 1,
              team = wanted < s.threads ? wanted : s.threads;
    for (int t = 0; t < s.threads; ++t) s.threadStatus[t] = orvOk; // those of threads that were not granted stay so
    if (team > 1) on_threads(team, share);
    else share(0, 1);
    advance_delay(s, src, len);

    OrvStatus worst = orvOk;
    for (int t = 0; t < s.threads; ++t) {
        if (s.threadStatus[t] < worst) worst = OrvStatus(s.threadStatus[t]);
    }
    return worst;
}

} // namespace ORV_VARIANT

#endif
