// The extremes of a vector: what is looked for, of what, and how it is found.
#ifndef ORV_STATS_EXTREMES_H
#define ORV_STATS_EXTREMES_H

#include <cstddef>

#include "frame/alignment.h"
#include "simd/float.h"
#include "simd/lanes.h"
#include "simd/saturate.h"

namespace ORV_VARIANT {

// ---- What is looked for: held > x ? held : x, or the same with <. So x it is where none is greater.

struct Largest {
    template <class V>
    ORV_INLINE static V better(V held, V x)
    {
        return max(held, x);
    }
    template <class T>
    ORV_INLINE static bool is_better(T x, T held)
    {
        return x > held;
    }
    template <class T>
    ORV_INLINE static vec<T> is_better(vec<T> x, vec<T> held)
    {
        return is_greater(x, held);
    }
    /// No finite number is worse.
    template <class T>
    static constexpr T worst = std::numeric_limits<T>::lowest();
};

struct Smallest {
    template <class V>
    ORV_INLINE static V better(V held, V x)
    {
        return min(held, x);
    }
    template <class T>
    ORV_INLINE static bool is_better(T x, T held)
    {
        return x < held;
    }
    template <class T>
    ORV_INLINE static vec<T> is_better(vec<T> x, vec<T> held)
    {
        return is_greater(held, x);
    }
    template <class T>
    static constexpr T worst = std::numeric_limits<T>::max();
};

// ---- Of what

struct Value {
    template <class V>
    ORV_INLINE static V key(V v)
    {
        return v;
    }
};
/// As unsigned numbers, which hold that of the lowest integer too.
struct Magnitude {
    template <class T>
    ORV_INLINE static vec<unsigned_of<T>> key(vec<T> v)
    {
        return magnitude(v);
    }
};
/// That of the lowest integer is taken for the highest integer.
struct LimitedMagnitude {
    template <class T>
    ORV_INLINE static vec<T> key(vec<T> v)
    {
        return abs_sat(v);
    }
};

// ---- One result

/// Two vectors that take vectors of elements by turns.
template <class Op, class T, class Of = Value>
struct Chains {
    using Key = decltype(Of::key(vec<T>{}));
    Key even, odd;

    ORV_INLINE explicit Chains(vec<T> x) : even(Of::key(x)), odd(even) {}

    ORV_INLINE void take_even(vec<T> x) { even = Op::better(even, Of::key(x)); }
    ORV_INLINE void take_odd(vec<T> x) { odd = Op::better(odd, Of::key(x)); }
    ORV_INLINE void join() { even = Op::better(even, odd); }
    ORV_INLINE auto result() const
    {
        return fold([](Key a, Key b) ORV_INLINE_LAMBDA { return Op::better(a, b); }, even);
    }
};

/// An even number of vectors from x + i on, as long as they end before n; returns where the next begins.
template <class T, class... C>
ORV_INLINE std::ptrdiff_t take_pairs(const T* x, std::ptrdiff_t i, std::ptrdiff_t n, C&... chains)
{
    constexpr std::ptrdiff_t N = vec<T>::N;
    const auto pair = [&](std::ptrdiff_t at) ORV_INLINE_LAMBDA {
        const auto first = load(x + at), second = load(x + at + N);
        (chains.take_even(first), ...);
        (chains.take_odd(second), ...);
    };
    for (; n - i >= 8 * N; i += 8 * N) repeat<4>([&](auto k) ORV_INLINE_LAMBDA { pair(i + 2 * N * k); });
    for (; n - i >= 2 * N; i += 2 * N) pair(i);
    return i;
}

/// All elements, n >= N. Both ends overlap their neighbours.
template <class T, class... C>
ORV_INLINE void take_all(const T* x, std::ptrdiff_t n, C&... chains)
{
    constexpr std::ptrdiff_t N = vec<T>::N;
    const std::ptrdiff_t i = take_pairs(x, last_aligned<N, 1>(x), n, chains...);
    (chains.join(), ...);
    const auto take = [&](std::ptrdiff_t at) ORV_INLINE_LAMBDA {
        const auto v = load(x + at);
        (chains.take_even(v), ...);
    };
    if (n - i >= N) take(i);
    take(n - N);
}

/// f of the extremes that chains of the given types find.
template <class... C, class T, class F>
ORV_INLINE void with_extremes(const T* x, std::ptrdiff_t n, F f)
{
    constexpr std::ptrdiff_t N = vec<T>::N;
    if (n < N) return f(C(load_n(x, int(n))).result()...);
    const auto found = [&](C... chains) ORV_INLINE_LAMBDA {
        take_all(x, n, chains...);
        f(chains.result()...);
    };
    const auto first = load(x);
    found(C(first)...);
}

// ---- Lanes that do not overlap: so a not-a-number has an effect that can be told

/// The first n elements at p, 0 <= n <= N, and the other lanes of others.
template <class T>
ORV_INLINE vec<T> load_first(const T* p, std::ptrdiff_t n, vec<T> others)
{
    const auto mask = first_lanes<T>(n);
    return blend(as<T>(mask), load_masked(p, mask), others);
}

/// All lanes begin with the first element. Vectors are aligned if the floats are; what is less than a vector, at either
/// end, is filled up with the worst finite number.
template <class Op>
ORV_INLINE Orv32f padded_extreme(const Orv32f* x, std::ptrdiff_t n)
{
    constexpr std::ptrdiff_t N = vec<Orv32f>::N;
    const auto worst = splat(Op::template worst<Orv32f>);
    Chains<Op, Orv32f> chains(splat(element_at(x)));
    std::ptrdiff_t i = elements_before(32, x);
    if (i > n) i = 0;
    if (i > 0) chains.take_even(load_first(x, i, worst));
    i = take_pairs(x, i, n, chains);
    chains.join();
    if (n - i >= N) {
        chains.take_even(load(x + i));
        i += N;
    }
    if (n > i) chains.take_even(load_first(x + i, n - i, worst));
    return chains.result();
}

} // namespace ORV_VARIANT

#endif
