// How much memory a record takes: for T taps and N threads, with what the FFT needs.
#ifndef ORV_FIR_SIZES_H
#define ORV_FIR_SIZES_H

#include "fir/engine.h"

namespace ORV_VARIANT {

/// What the FFT of a record needs; all 0 without one.
struct FftNeeds {
    int order = 0;
    Orv64s len = 0;                      ///< 2^order
    Orv32s spec = 0, init = 0, work = 0; ///< in bytes
};

template <class T>
FftNeeds fft_needs_of_order(int order)
{
    FftNeeds needs = {order, Orv64s(1) << order, 0, 0, 0};
    if (fir_engine<T>::get_size(order, ORV_FFT_SCALE_INV, ORV_HINT_ANY, &needs.spec, &needs.init, &needs.work))
        return {};
    return needs;
}

/// A transform of the least power of two above tapsLen, doubled: more than half of its outputs count.
template <class T>
FftNeeds fft_needs(int tapsLen, int fewest_taps)
{
    if (tapsLen < fewest_taps) return {};
    int order = 3;
    while (Orv64s(1) << (order - 1) <= tapsLen) ++order;
    return fft_needs_of_order<T>(order);
}

constexpr Orv64s round_up(Orv64s bytes, int unit) { return (bytes + unit - 1) & -Orv64s(unit); }

/// The sizes count on records of 96 bytes; those with wider pointers add what they have more.
template <class Record>
inline constexpr Orv64s wider_record = sizeof(Record) > 96 ? round_up(Orv64s(sizeof(Record)) - 96, 32) : 0;

// The formulas are part of the interface.

inline Orv64s record_bytes(const FftNeeds& fft, Orv64s T, Orv64s N, Orv32f)
{
    return (fft.work + round_up(4 * fft.len, 16) + 16) * N + fft.spec + fft.init + round_up(4 * N, 32) +
           ((T + 16) & -8) * 36 + ((32 * T + 63) & -32) + ((32 * T + 120) & -128) + round_up(4 * fft.len, 16) + 17024;
}
inline Orv64s record_bytes(const FftNeeds& fft, Orv64s T, Orv64s N, Orv32fc)
{
    return (fft.work + round_up(8 * fft.len, 16) + 64) * N + fft.spec + fft.init + round_up(4 * N, 16) +
           ((24 * T + 47) & -16) + round_up(8 * T, 16) * 13 + round_up(8 * fft.len, 16) + 33952;
}
inline Orv64s record_bytes(const FftNeeds& fft, Orv64s T, Orv64s N, Orv64f)
{
    return ((T + 2) & -2) * 48 + fft.spec + fft.init + round_up(4 * N, 16) + 48 * N + ((24 * T + 63) & -32) +
           round_up(8 * fft.len, 16) + N * (fft.work + round_up(8 * fft.len, 16)) + 33920;
}
inline Orv64s record_bytes(const FftNeeds& fft, Orv64s T, Orv64s N, Orv64fc)
{
    return fft.spec + fft.init + round_up(4 * N, 16) + ((48 * T + 95) & -32) + ((16 * T + 31) >> 5) * 128 +
           ((16 * T + 31) & -32) + 16 * fft.len + N * (fft.work + 16 * fft.len) + 67744;
}
/// Of a _32s filter in the caller's memory, which has no FFT.
inline Orv64s record_bytes_32s(Orv64s T, Orv64s N)
{
    return ((24 * T + 47) & -16) + round_up(8 * T, 16) * 5 + 112 + 48 * N + 33775;
}

/// The transform of half the length, for short blocks of long filters. It comes in where any such block is told to take
/// the FFT and the formulas leave room for it: for the same filters in all variants, however they are made.
template <class T>
FftNeeds half_needs(const FftNeeds& fft, int tapsLen)
{
    if (fft.len / 2 - (tapsLen - 1) < fir_engine<T>::fft_block) return {};
    const FftNeeds half = fft_needs_of_order<T>(fft.order - 1);
    constexpr Orv64s fixed = 1024 + bounce_len * Orv64s(sizeof(T)); // the record, short blocks, and all alignments
    const Orv64s elements = 4 * Orv64s(tapsLen) + 2 * fft.len + half.len;
    const Orv64s taken = fixed + elements * Orv64s(sizeof(T)) + fft.spec + fft.init + fft.work + half.spec;
    return taken <= record_bytes(fft, tapsLen, 1, T()) ? half : FftNeeds{};
}

inline constexpr int least_threads(int threads) { return threads > 1 ? threads : 1; }

/// Of the record of a form in the caller's memory, FFT included.
template <class T>
Orv64s buffer_bytes(const FftNeeds& fft, int tapsLen, int threads)
{
    return record_bytes(fft, tapsLen, threads, T()) + wider_record<FirState<T>>;
}

} // namespace ORV_VARIANT

#endif
