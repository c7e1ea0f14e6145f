// The loops that turn the order of a vector, of elements that are unit lanes of T each. n counts lanes.
#ifndef ORV_CONVERT_REVERSAL_H
#define ORV_CONVERT_REVERSAL_H

#include "frame/blocks.h"
#include "simd/lanes.h"

namespace ORV_VARIANT {

/// d[i] = op(s[n - 1 - i]), d apart from s.
template <int unit, class T, class Op>
ORV_INLINE void reverse_to(const T* s, T* d, std::ptrdiff_t n, Op op)
{
    constexpr std::ptrdiff_t N = vec<T>::N;
    if (n < N) return store_n(d, op(reverse<unit>(load_n(s, int(n)))), int(n));

    const T* const end = s + n;
    const auto read = [=](std::ptrdiff_t i) ORV_INLINE_LAMBDA { return op(reverse<unit>(load(end - i - N))); };
    const auto write = [=](auto put, std::ptrdiff_t i, auto v) ORV_INLINE_LAMBDA { put(d + i, v); };
    const std::ptrdiff_t second = last_aligned<N, unit>(d);
    const std::size_t touched = 2 * std::size_t(n) * sizeof(T);
    if (is_aligned(d + second) && worth_bypassing(touched)) return cover_streaming<N>(second, n, read, write);
    cover<N, 2>(PlainStore{}, second, n, read, write);
}

/// The same in place, from both ends to the middle.
template <int unit, class T, class Op>
ORV_INLINE void reverse_in_place(T* d, std::ptrdiff_t n, Op op)
{
    constexpr std::ptrdiff_t N = vec<T>::N;
    const auto exchange_ends = [=](T* front, T* back) ORV_INLINE_LAMBDA {
        const auto a = load(front), b = load(back);
        store(front, op(reverse<unit>(b)));
        store(back, op(reverse<unit>(a)));
    };
    for (; n >= 2 * N; d += N, n -= 2 * N) exchange_ends(d, d + n - N);
    if (n >= N) exchange_ends(d, d + n - N); // where they overlap, both store the same
    else if (n > 0) store_n(d, op(reverse<unit>(load_n(d, int(n)))), int(n));
}

} // namespace ORV_VARIANT

#endif
