// Plain loops as peers of the filters: what a program has without a library, compiled for the same processor.
#ifndef ORV_BENCH_FIR_FIR_LOOPS_H
#define ORV_BENCH_FIR_FIR_LOOPS_H

#include <algorithm>
#include <cstddef>
#include <vector>

#include "orvs/types.h"

namespace loops {

// dst[i] = taps[0] * x[i] + taps[1] * x[i-1] + ... for i = 0 ... len-1; the taps_len - 1 samples before x are its past.
// Each pass adds a few taps to 512 sums in the first-level cache: a loop over outputs vectorises without any reordering
// of sums, and this one was the fastest of those tried.

/// T is Orv32f, Orv64f or Orv32fc.
template <class T>
void fir(const T* x, T* dst, int len, const T* taps, int taps_len);

/// Sums of 32 bits, shifted right by scale >= 1 to nearest, ties to even, and saturated.
void fir_scaled(const Orv16s* x, Orv16s* dst, int len, const Orv16s* taps, int taps_len, int scale);

/// The same from reversed taps, a sum over taps for four outputs at a time: pairwise multiply-adds, and lanes to be
/// added at the end, which pays with many taps.
void fir_scaled_dot(const Orv16s* x, Orv16s* dst, int len, const Orv16s* reversed, int taps_len, int scale);

/// A filter for one sample at a time. Each sample is stored twice, so that the past is always in one piece.
class Ring {
public:
    Ring(const Orv32f* taps, int taps_len)
        : reversed_(taps, taps + taps_len), line_(2 * std::size_t(taps_len)), len_(taps_len)
    {
        std::reverse(reversed_.begin(), reversed_.end());
    }
    Orv32f push(Orv32f sample);

private:
    std::vector<Orv32f> reversed_, line_;
    int len_, next_ = 0;
};

} // namespace loops

#endif
