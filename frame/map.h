// The loop of element-wise work: d[i] = op(s0[i], s1[i], ...) for i in [0, n), whole vectors at a time.
//
// It touches exactly [0, n) of each array. Each source may be d itself (an accumulating operation lists d among its
// sources), and no result depends on where an element stands: short arrays and both ends go through the same op.
#ifndef ORV_FRAME_MAP_H
#define ORV_FRAME_MAP_H

#include <cstddef>

#include "frame/alignment.h"
#include "frame/caches.h"
#include "simd/vec.h"

namespace ORV_VARIANT {

/// map for n > 2N. The ends overlap their neighbours, so whatever an early store could change is read first.
template <int unit, class Op, class D, class... S>
ORV_INLINE Op map_vectors(Op op, D* d, std::ptrdiff_t n, const S*... s)
{
    constexpr std::ptrdiff_t N = vec<D>::N;
    const auto at = [&](std::ptrdiff_t i) ORV_INLINE_LAMBDA { return op(load<S, N>(s + i)...); };

    std::ptrdiff_t i = last_aligned<N, unit>(d);
    const auto last = at(n - N);
    const auto first = at(0);
    const auto second = at(i);
    store(d, first);
    store(d + i, second);
    for (i += N; i <= n - 2 * N; i += 2 * N) {
        store(d + i, at(i));
        store(d + i + N, at(i + N));
    }
    for (; i < n - N; i += N) store(d + i, at(i));
    store(d + n - N, last);
    return op;
}

/// map for arrays that may be larger than the caches. Memory sets the pace, so the loops are plain.
template <int unit, class Op, class D, class... S>
[[gnu::noinline]] Op map_large(Op given, D* d, std::ptrdiff_t n, const S*... s)
{
    constexpr std::ptrdiff_t N = vec<D>::N;
    Op op = given; // a copy that nothing can refer to stays in registers; the argument and the result are in memory
    const auto at = [&](std::ptrdiff_t i) ORV_INLINE_LAMBDA { return op(load<S, N>(s + i)...); };

    std::ptrdiff_t i = last_aligned<N, unit>(d);
    const bool in_place = (... || (static_cast<const void*>(s) == d));
    const bool bypass =
        !in_place && is_aligned(d + i) && worth_bypassing(std::size_t(n) * (sizeof(D) + ... + sizeof(S)));

    const auto last = at(n - N);
    const auto second = at(i);
    store(d, at(0));
    store(d + i, second);
    i += N;
    if (bypass) {
        for (; i < n - N; i += N) stream(d + i, at(i));
        store_fence();
    } else {
        for (; i < n - N; i += N) store(d + i, at(i));
    }
    store(d + n - N, last);
    return Op(op);
}

/// unit is the number of lanes that belong together: 2 for complex values. Returns op, with what it has gathered on its
/// way in members of its own: these stay in registers, and what it refers to might not.
template <int unit = 1, class Op, class D, class... S>
ORV_INLINE Op map(Op op, D* d, int n, const S*... s)
{
    constexpr int N = vec<D>::N;
    if (n < N) {
        store_n(d, op(load_n<S, N>(s, n)...), n);
    } else if (n <= 2 * N) {
        const auto last = op(load<S, N>(s + (n - N))...);
        store(d, op(load<S, N>(s)...));
        store(d + (n - N), last);
    } else if (std::size_t(n) <= bypass_minimum / (sizeof(D) + ... + sizeof(S))) {
        return map_vectors<unit>(op, d, n, s...);
    } else {
        return map_large<unit>(op, d, n, s...);
    }
    return op;
}

} // namespace ORV_VARIANT

#endif
