// The taps of floating filters: both orders, and their transform.
#ifndef ORV_FIR_TAPS_H
#define ORV_FIR_TAPS_H

#include "fir/engine.h"
#include "fir/samples.h"

namespace ORV_VARIANT {

template <class T>
OrvStatus transform_taps(const FirState<T>& s, const FirTransform<T>& transform)
{
    if (transform.fftLen <= 0) return orvOk;
    copy_array(s.taps, s.fftData, std::size_t(s.tapsLen));
    zero(s.fftData + s.tapsLen, transform.fftLen - s.tapsLen);
    return fir_engine<T>::forward(s.fftData, transform.fftTaps, transform.fftSpec, s.fftWork);
}

/// Gives the spec back if it is allocated. Without transforms a filter goes on along the direct road.
template <class T>
void close_transform(FirTransform<T>& transform, bool allocated)
{
    if (transform.fftSpec && allocated) fir_engine<T>::free_spec(transform.fftSpec);
    transform = {-1, nullptr, nullptr};
}
template <class T>
void close_fft_road(FirState<T>& s)
{
    close_transform(s.whole, s.allocated);
    close_transform(s.half, s.allocated);
}

template <class T, class Taps>
OrvStatus set_taps(FirState<T>& s, const Taps* taps)
{
    to_compute(taps, s.taps, s.tapsLen);
    copy_array(s.taps, s.tapsTable, std::size_t(s.tapsLen));
    reverse(s.tapsTable, s.tapsLen);
    OrvStatus status = transform_taps(s, s.whole);
    if (status == orvOk) status = transform_taps(s, s.half);
    if (status != orvOk) close_fft_road(s);
    return status;
}

} // namespace ORV_VARIANT

#endif
