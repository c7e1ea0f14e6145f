// One output: the taps in reverse order times the window of samples, oldest first. The newest sample comes as a value,
// so that nothing waits for its store.
#ifndef ORV_FIR_DOT_H
#define ORV_FIR_DOT_H

#include "fir/complex_sums.h"
#include "frame/reduce.h"

namespace ORV_VARIANT {

/// a * b + c; each part takes two products, rounded once each.
template <class C>
requires std::is_class_v<C> ORV_INLINE C fma(C a, C b, C c)
{
    return {fma(-a.im, b.im, fma(a.re, b.re, c.re)), fma(a.im, b.re, fma(a.re, b.im, c.im))};
}

/// What a vector of products adds to two sums, and how these come together.
template <class T>
struct ProductSums {
    static constexpr int lanes = vec<T>::N;
    vec<T> even = splat(T(0)), odd = splat(T(0)); // vectors by turns

    ORV_INLINE void add(const T* a, const T* b, bool to_odd)
    {
        auto& sum = to_odd ? odd : even;
        sum = fma(load(a), load(b), sum);
    }
    ORV_INLINE T total() const { return sum_of_lanes(even + odd); }
};
template <class C>
requires std::is_class_v<C>
struct ProductSums<C> {
    using T = part_of<C>;
    static constexpr int lanes = vec<T>::N / 2;
    vec<T> by_re = splat(T(0)), by_im = splat(T(0));

    ORV_INLINE void add(const C* taps, const C* x, bool)
    {
        const vec<T> tap = load(parts(taps)), input = load(parts(x));
        by_re = fma(input, even_twice(tap), by_re);
        by_im = fma(input, odd_twice(tap), by_im);
    }
    ORV_INLINE C total() const
    {
        const auto sum = sum_by_parity(plus_i_times(by_re, by_im));
        return {sum.even, sum.odd};
    }
};

/// Up to 11 taps are added one by one from the oldest sample on.
template <class T>
ORV_INLINE T window_sum(const T* tapsRev, const T* window, int tapsLen, T newest)
{
    const int older = tapsLen - 1;
    T sum = {};
    int i = 0;
    if (tapsLen >= 12) {
        constexpr int lanes = ProductSums<T>::lanes;
        ProductSums<T> sums;
        for (; i + 2 * lanes <= older; i += 2 * lanes) {
            sums.add(tapsRev + i, window + i, false);
            sums.add(tapsRev + i + lanes, window + i + lanes, true);
        }
        if (i + lanes <= older) {
            sums.add(tapsRev + i, window + i, false);
            i += lanes;
        }
        sum = sums.total();
    }
    for (; i < older; ++i) sum = fma(tapsRev[i], window[i], sum);
    return fma(tapsRev[older], newest, sum);
}

} // namespace ORV_VARIANT

#endif
