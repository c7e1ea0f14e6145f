// The direct sum of real filters: y[n] = taps[0] * x[n] + taps[1] * x[n-1] + ...
#ifndef ORV_FIR_REAL_SUMS_H
#define ORV_FIR_REAL_SUMS_H

#include "simd/convert.h"
#include "simd/lanes.h"
#include "simd/vec.h"

namespace ORV_VARIANT {

/// Samples of another type are converted as they are loaded.
template <class T, class Sample = T>
struct RealSums {
    const T* taps;
    int tapsLen;

    static constexpr int lanes = vec<T>::N;
    /// Vectors of outputs that grow side by side: a multiply-add takes four cycles, and two begin in each.
    static constexpr int widest = sizeof(void*) == 8 ? 8 : 7;
    /// Taps that registers hold beside them.
    static constexpr int most_taps = sizeof(void*) == 8 ? 4 : 1;

    /// Adds the terms of taps tap[0], tap[lanes], ..., `count` of them. These see the input whole vectors apart, so
    /// that one vector of input serves `count` of outputs: loads are dear, because most cross a cache line.
    template <int vectors, int count>
    ORV_INLINE static void add_terms(vec<T> (&sum)[vectors], const Sample* x, const T* tap)
    {
        __asm__("" : "+r"(x)); // nothing is kept for the next step: there is no register for it
        vec<T> factor[count];
        repeat<count>([&](auto k) ORV_INLINE_LAMBDA { factor[k] = in_register(splat(element_at(tap + k * lanes))); });
        repeat<vectors + count - 1>([&](auto step) ORV_INLINE_LAMBDA {
            constexpr int place = vectors - 1 - step; // descending, so that each output takes its taps in order
            const vec<T> input = in_register(convert_to<T>(load<Sample, lanes>(x + place * lanes)));
            repeat<count>([&](auto k) ORV_INLINE_LAMBDA {
                constexpr int output = place + k;
                if constexpr (output >= 0 && output < vectors) sum[output] = fma(input, factor[k], sum[output]);
            });
        });
    }

    /// The order of terms is the same for every output: taps 0, lanes, 2 * lanes, ..., then 1, lanes + 1, ...
    template <int vectors>
    [[gnu::noinline]] void tile(const Sample* x, T* dst) const
    {
        vec<T> sum[vectors];
        repeat<vectors>([&](auto i) ORV_INLINE_LAMBDA { sum[i] = splat(T(0)); });
        for (int first = 0; first < lanes && first < tapsLen; ++first) {
            const T* tap = taps + first;
            const Sample* input = x - first;
            int left = (tapsLen - first + lanes - 1) / lanes;
            const auto add = [&](auto count) ORV_INLINE_LAMBDA {
                add_terms<vectors, count>(sum, input, tap);
                tap += count * lanes;
                input -= count * lanes;
                left -= count;
            };
            while (left >= most_taps) add(std::integral_constant<int, most_taps>{});
            if constexpr (most_taps > 2) {
                if (left >= 2) add(std::integral_constant<int, 2>{});
            }
            if constexpr (most_taps > 1) {
                if (left > 0) add(std::integral_constant<int, 1>{});
            }
        }
        repeat<vectors>([&](auto i) ORV_INLINE_LAMBDA { store(dst + i * lanes, sum[i]); });
    }
};

} // namespace ORV_VARIANT

#endif
