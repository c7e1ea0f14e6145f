// How records come to be: one block of memory, the caller's or an allocated one, cut into the record and its arrays.
#ifndef ORV_FIR_BUILD_H
#define ORV_FIR_BUILD_H

#include <cstddef>

#include "fir/delay.h"
#include "fir/direct_road.h"
#include "fir/sizes.h"
#include "fir/taps.h"
#include "frame/alignment.h"
#include "orvs/frame.h"

namespace ORV_VARIANT {

/// Cuts arrays from a block, one behind the other.
class Cutter {
public:
    explicit Cutter(Orv8u* block) : at_(block) {}

    /// The next len elements, at a multiple of alignment.
    template <class T>
    T* take(std::size_t len, int alignment)
    {
        Orv8u* const taken = aligned_up(at_, std::size_t(alignment));
        at_ = taken + len * sizeof(T);
        return reinterpret_cast<T*>(taken);
    }

private:
    Orv8u* at_;
};

/// What transforms begin at: threads that share one would wait for each other.
inline constexpr int cache_line = 64;

/// A spec in memory of the caller's block, or, without, allocated.
template <class T>
void open_transform(FirTransform<T>& transform, const FftNeeds& fft, Orv8u* specMem, Orv8u* initBuf)
{
    using Engine = fir_engine<T>;
    const OrvStatus bad =
        specMem ? Engine::init_spec(&transform.fftSpec, fft.order, ORV_FFT_SCALE_INV, ORV_HINT_ANY, specMem, initBuf)
                : Engine::allocate_spec(&transform.fftSpec, fft.order, ORV_FFT_SCALE_INV, ORV_HINT_ANY);
    if (bad) transform = {-1, nullptr, nullptr};
    else transform.fftLen = Orv32s(fft.len);
}

template <class T>
void open_transforms(FirState<T>& s, Cutter& rest, const FftNeeds& fft)
{
    if (fft.len == 0) return;
    const auto take_spec = [&](int bytes) { return s.allocated ? nullptr : rest.take<Orv8u>(std::size_t(bytes), 1); };

    s.whole.fftTaps = rest.take<T>(std::size_t(fft.len), cache_line);
    Orv8u *const specMem = take_spec(fft.spec), *const initBuf = take_spec(fft.init);
    open_transform(s.whole, fft, specMem, initBuf);

    const FftNeeds half = half_needs<T>(fft, s.tapsLen);
    if (s.whole.fftLen <= 0 || half.len == 0) return;
    s.half.fftTaps = rest.take<T>(std::size_t(half.len), cache_line);
    open_transform(s.half, half, take_spec(half.spec), initBuf);
}

/// A record without taps and past.
template <class T>
FirState<T>& lay_out(Orv8u* block, Orv32u id, int tapsLen, const FftNeeds& fft, int threads, bool allocated)
{
    constexpr int lanes = fir_engine<T>::Sums::lanes;
    const auto taps = std::size_t(tapsLen), teams = fft.len > 0 ? std::size_t(threads) : 0;

    Cutter rest(block);
    auto& s = *rest.take<FirState<T>>(1, fir_engine<T>::alignment);
    s.bounce = rest.take<T>(bounce_len, 32);
    s.id = id;
    s.tapsLen = tapsLen;
    s.directLimit = ((tapsLen + lanes - 1) & -lanes) + 1;
    s.dlyIndex = 0;
    s.tapsTable = rest.take<T>(taps, 16);
    s.taps = rest.take<T>(taps, 16);
    const int behind = room_behind_past<typename fir_engine<T>::Sums>(s.directLimit);
    s.dlyLine = rest.take<T>(taps + std::size_t(behind), 16);
    zero(s.dlyLine, tapsLen + behind); // a short block computes on what is behind it
    s.allocated = allocated;
    s.threads = threads;
    s.threadStatus = rest.take<Orv32s>(teams, 4);
    s.fftData = rest.take<T>(std::size_t(fft.len) * teams, cache_line);
    s.fftWorkSize = fft.work;
    s.fftWork = rest.take<Orv8u>(std::size_t(fft.work) * teams, 1);
    s.whole = s.half = {-1, nullptr, nullptr};
    open_transforms(s, rest, fft);
    return s;
}

inline constexpr Orv64s largest_size = 0x7fffffff;

/// From how many taps on a form has an FFT.
template <class Form>
inline constexpr int fft_taps_of = std::is_same_v<Form, Fir_32s> ? 32 : fir_engine<typename Form::Compute>::fft_taps;

/// What a filter in the caller's memory takes: the FFT's needs, and the bytes of all.
template <class Form>
struct Needs {
    FftNeeds fft;
    int threads = least_threads(ownGetNumThreads());
    Orv64s bytes;

    explicit Needs(int tapsLen)
    {
        using T = typename Form::Compute;
        if constexpr (std::is_same_v<Form, Fir_32s>) {
            bytes = record_bytes_32s(tapsLen, threads) + wider_record<FirState<T>>;
        } else {
            fft = fft_needs<T>(tapsLen, fft_taps_of<Form>);
            bytes = buffer_bytes<T>(fft, tapsLen, threads);
        }
    }
};

/// A record with memory of its own, without taps and past. Without memory for its FFT it does without.
template <class Form, class T = typename Form::Compute>
OrvStatus allocate(FirState<T>** made, int tapsLen)
{
    const FftNeeds fft = fft_needs<T>(tapsLen, fft_taps_of<Form>);
    FftNeeds in_block = fft;
    in_block.spec = in_block.init = 0; // specs have blocks of their own
    const int threads = least_threads(ownGetNumThreads());
    const Orv64s bytes = buffer_bytes<T>(in_block, tapsLen, threads);
    if (bytes > largest_size) return orvErrBadFirLength;
    Orv8u* const block = orvsMalloc_8u(int(bytes));
    if (!block) return orvErrNoMemory;
    *made = &lay_out<T>(block, Form::id, tapsLen, fft, threads, true);
    return orvOk;
}

template <class T>
void release(FirState<T>* s)
{
    close_fft_road(*s);
    orvsFree(s);
}

} // namespace ORV_VARIANT

#endif
