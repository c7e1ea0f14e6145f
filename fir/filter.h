// A block through a floating filter: which road it takes, and in which pieces.
#ifndef ORV_FIR_FILTER_H
#define ORV_FIR_FILTER_H

#include "fir/direct_road.h"
#include "fir/overlap_save.h"
#include "frame/checks.h"

namespace ORV_VARIANT {

/// Whether direct sums of a form are spread over threads.
enum class DirectSums { alone, shared };

template <class T>
void filter_by_sums(DirectSums sums, FirState<T>& s, const T* src, T* dst, int len)
{
    using Engine = fir_engine<T>;
    const int threads = sums == DirectSums::shared && len > Engine::shared ? ownGetNumThreads() : 1;
    direct_road(typename Engine::Sums{s.taps, s.tapsLen}, s, src, dst, len, threads);
}

/// Whether a block of len samples, or what is left behind one, is enough for the FFT.
template <class T>
bool takes_fft(const FirState<T>& s, int len)
{
    return len >= fir_engine<T>::fft_block && s.whole.fftLen > 0;
}

/// The FFT takes a piece if enough samples are left behind it; so the last piece always goes by sums.
template <class T>
OrvStatus filter_in_place(DirectSums sums, FirState<T>& s, T* srcDst, int len)
{
    OrvStatus status = orvOk;
    while (len > 0 && status == orvOk) {
        const int n = len < bounce_len ? len : bounce_len;
        len -= n;
        if (takes_fft(s, len)) status = overlap_save(s, srcDst, s.bounce, n, 0);
        else filter_by_sums(sums, s, srcDst, s.bounce, n);
        copy_array(s.bounce, srcDst, std::size_t(n));
        srcDst += n;
    }
    return status;
}

// ---- Samples of another type than the filter computes in; src may be dst

/// In pieces through the record's buffer: half of it for the input, half for the output.
template <class T, class Sample>
void filter_by_converted_sums(FirState<T>& s, const Sample* src, Sample* dst, int len, int scale)
{
    constexpr int most = bounce_len / 2;
    T *const input = s.bounce, *const output = s.bounce + most;
    for (int n; len > 0; len -= n, src += n, dst += n) {
        n = len < most ? len : most;
        to_compute(src, input, n);
        filter_by_sums(DirectSums::shared, s, input, output, n);
        from_compute(output, dst, n, scale);
    }
}

template <class T, class Sample>
OrvStatus filter_converted(FirState<T>& s, const Sample* src, Sample* dst, int len, int scale)
{
    if (!takes_fft(s, len)) {
        filter_by_converted_sums(s, src, dst, len, scale);
        return orvOk;
    }
    if (src != dst) return overlap_save(s, src, dst, len, scale);
    constexpr int most = int(bounce_len * sizeof(T) / sizeof(Sample));
    Sample* const output = reinterpret_cast<Sample*>(s.bounce);
    OrvStatus status = orvOk;
    while (len > 0 && status == orvOk) {
        const int n = len < most ? len : most;
        status = overlap_save(s, dst, output, n, scale);
        copy_array(output, dst, std::size_t(n));
        len -= n, dst += n;
    }
    return status;
}

/// The next block of the stream, in the samples of the form.
template <class Form, class Sample>
OrvStatus filter_stream(FirState<typename Form::Compute>& s, const Sample* src, Sample* dst, int len, int scale)
{
    using T = typename Form::Compute;
    if constexpr (std::is_same_v<Sample, T>) {
        constexpr auto sums = std::is_same_v<T, Orv32f> ? DirectSums::alone : DirectSums::shared;
        if (src == dst) return filter_in_place(sums, s, dst, len);
        if (takes_fft(s, len)) return overlap_save(s, src, dst, len, scale);
        filter_by_sums(sums, s, src, dst, len);
        return orvOk;
    } else {
        return filter_converted(s, src, dst, len, scale);
    }
}

} // namespace ORV_VARIANT

#endif
