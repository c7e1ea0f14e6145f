// Reductions of arrays to one value: the loop that all of them share, and what becomes of the lanes at its end.
#ifndef ORV_FRAME_REDUCE_H
#define ORV_FRAME_REDUCE_H

#include <cstddef>

#include "frame/complex.h"
#include "simd/lanes.h"
#include "simd/vec.h"

namespace ORV_VARIANT {

// ---- Loads of what does not fill a vector

/// The n values at p, 0 < n <= N, and zeros. Nothing around them is read.
template <class T, int N = vec<T>::N>
ORV_INLINE vec<T, N> load_first(const T* p, int n)
{
    constexpr int bytes = N * int(sizeof(T)), half = N / 2;
    if (n == N) return load<T, N>(p);
    if constexpr (bytes > 32) {
        if (n <= half) return {load_first<T, half>(p, n), splat(T(0))};
        return {load<T, half>(p), load_first<T, half>(p + half, n - half)};
    } else if constexpr (bytes == 32 && sizeof(T) >= 4) {
        return load_masked(p, first_lanes<T>(n));
    } else if constexpr (bytes == 32) {
        if (n <= half) return {_mm256_zextsi128_si256(load_first<T, half>(p, n).r)};
        return {_mm256_set_m128i(load_first<T, half>(p + half, n - half).r, load<T, half>(p).r)};
    } else {
        // The first half of the values, and what is left, shifted down in a load that ends with the last value.
        const auto begin = reinterpret_cast<const char*>(p), end = reinterpret_cast<const char*>(p + n);
        const int size = n * int(sizeof(T));
        Orv64u low = 0, high = 0;
        if (size >= 8) {
            low = peek<Orv64u>(begin);
            if (size > 8) high = peek<Orv64u>(end - 8) >> (8 * (16 - size));
        } else if (size >= 4) {
            low = peek<Orv32u>(begin) | Orv64u(peek<Orv32u>(end - 4)) << (8 * (size - 4));
        } else {
            for (int k = size - 1; k >= 0; --k) low = low << 8 | Orv8u(begin[k]);
        }
        return {_mm_set_epi64x(Orv64s(high), Orv64s(low))};
    }
}

/// `lanes` elements; of complex ones, their parts.
template <int lanes, class T>
ORV_INLINE auto load_elements(const T* p)
{
    return load<value_of<T>, lanes * values_of<T>>(values(p));
}
/// The n elements at p, 0 < n <= lanes, and zeros.
template <int lanes, class T>
ORV_INLINE auto load_first_elements(const T* p, int n)
{
    return load_first<value_of<T>, lanes * values_of<T>>(values(p), n * values_of<T>);
}

// ---- The loop

/// take(k, i) adds the vector at element i to the k-th of several results that grow side by side, so that no addition
/// waits for the one before it. Returns where less than a whole round is left.
template <int chains, int lanes, class Take>
ORV_INLINE std::ptrdiff_t accumulate(std::ptrdiff_t i, std::ptrdiff_t n, Take take)
{
    constexpr std::ptrdiff_t step = lanes, round = chains * step;
    for (; n - i >= round; i += round) repeat<chains>([&](auto k) ORV_INLINE_LAMBDA { take(k, i + k * step); });
    return i;
}

/// chain[0] takes in all others, half of them at a time.
template <int chains, class Chain>
ORV_INLINE void join_chains(Chain (&chain)[chains])
{
    const auto join = [&](auto join_rest, auto count) ORV_INLINE_LAMBDA -> void {
        constexpr int kept = (count + 1) / 2;
        repeat<count - kept>([&](auto k) ORV_INLINE_LAMBDA { chain[k].join(chain[k + kept]); });
        if constexpr (kept > 1) join_rest(join_rest, std::integral_constant<int, kept>{});
    };
    if constexpr (chains > 1) join(join, std::integral_constant<int, chains>{});
}

/// What Chain makes of n elements of each source: it takes Chain::lanes of them at a time by add, and another chain by
/// join. Zeros stand for elements behind the end.
template <int chains, class Chain, class... Source>
ORV_INLINE Chain reduce(std::ptrdiff_t n, const Source*... source)
{
    constexpr int lanes = Chain::lanes;
    Chain chain[chains];
    const auto take = [&](auto k, std::ptrdiff_t at)
                          ORV_INLINE_LAMBDA { chain[k].add(load_elements<lanes>(source + at)...); };
    std::ptrdiff_t i = accumulate<chains, lanes>(0, n, take);
    repeat<chains - 1>([&](auto k) ORV_INLINE_LAMBDA {
        if (n - i >= lanes) {
            take(k, i);
            i += lanes;
        }
    });
    if (i < n) chain[chains - 1].add(load_first_elements<lanes>(source + i, int(n - i))...);
    join_chains(chain);
    return chain[0];
}

} // namespace ORV_VARIANT

#endif
