// Where a vector has a value first, and where it has its first extreme.
#ifndef ORV_STATS_SEARCH_H
#define ORV_STATS_SEARCH_H

#include <bit>

#include "stats/extremes.h"

namespace ORV_VARIANT {

/// A vector as it is if it fills lanes; a shorter one as a copy that repeats the first element behind the last one,
/// which changes no first place.
template <class T>
class Filled {
public:
    ORV_INLINE Filled(const T* x, std::ptrdiff_t n) : data_(x), n_(n)
    {
        if (n >= N) return;
        for (std::ptrdiff_t i = 0; i < N; ++i) lanes_[i] = element_at(x + (i < n ? i : 0));
        data_ = lanes_;
        n_ = N;
    }
    Filled(const Filled&) = delete;
    Filled& operator=(const Filled&) = delete;

    ORV_INLINE const T* data() const { return data_; }
    ORV_INLINE std::ptrdiff_t size() const { return n_; }

private:
    static constexpr std::ptrdiff_t N = vec<T>::N;

    const T* data_;
    std::ptrdiff_t n_;
    T lanes_[N];
};

// ---- The first element with a value

/// Among n >= N; -1 if there is none.
template <class Of, class T, class Key>
ORV_INLINE std::ptrdiff_t first_equal(const T* x, std::ptrdiff_t n, vec<Key> value)
{
    constexpr std::ptrdiff_t N = vec<T>::N;
    for (std::ptrdiff_t i = 0;; i += N) {
        if (i > n - N) i = n - N; // the elements before are others
        const Orv32u equal = top_bits_of_bytes(as<Orv8u>(is_equal(Of::key(load(x + i)), value)));
        if (equal != 0) return i + std::countr_zero(equal) / int(sizeof(T));
        if (i == n - N) return -1;
    }
}

// ---- The first extreme

/// The best element so far, and the block in which it is: only a block that has a better one is looked at again.
/// Not-a-numbers are passed over, but nothing is better than a first element that is one.
template <class Op, class T, class Of = Value>
struct FirstPlace {
    using Key = decltype(Of::key(vec<T>{}));
    Key held, even, odd;
    std::ptrdiff_t block = 0;

    ORV_INLINE explicit FirstPlace(T first) : held(Of::key(splat(first))) {}

    ORV_INLINE void begin_block() { even = odd = held; }
    ORV_INLINE void take_even(vec<T> x) { even = Op::better(Of::key(x), even); } // the held one where none is better
    ORV_INLINE void take_odd(vec<T> x) { odd = Op::better(Of::key(x), odd); }
    ORV_INLINE void end_block(std::ptrdiff_t at)
    {
        const Key best = Op::better(odd, even);
        if (!any_bit(as<Orv8u>(best) ^ as<Orv8u>(held))) return;
        held = splat(fold([](Key a, Key b) ORV_INLINE_LAMBDA { return Op::better(a, b); }, best));
        block = at;
    }
    /// Among all n elements, n >= N.
    ORV_INLINE std::ptrdiff_t index(const T* x, std::ptrdiff_t n) const
    {
        const std::ptrdiff_t found = first_equal<Of>(x + block, n - block, held);
        return found < 0 ? 0 : block + found; // a not-a-number equals nothing: then it is the first element
    }
};

/// Whether there are not-a-numbers.
template <class T>
struct UnorderedSeen {
    vec<T> seen = splat(T(0)), last = seen;

    ORV_INLINE void begin_block() {}
    ORV_INLINE void take_even(vec<T> x) { last = x; }
    ORV_INLINE void take_odd(vec<T> x) { seen = seen | is_unordered(last, x); }
    ORV_INLINE void end_block(std::ptrdiff_t) {}
};

/// Shows all elements, n >= N, to the places.
template <class T, class... P>
ORV_INLINE void take_blocks(const T* x, std::ptrdiff_t n, P&... places)
{
    constexpr std::ptrdiff_t N = vec<T>::N, block = 32 * N;
    const auto take = [&](std::ptrdiff_t at) ORV_INLINE_LAMBDA {
        const auto v = load(x + at);
        (places.take_even(v), ...);
        (places.take_odd(v), ...);
    };
    (places.begin_block(), ...);
    take(0);
    (places.end_block(0), ...);
    std::ptrdiff_t i = last_aligned<N, 1>(x);
    for (; n - i >= block; i += block) {
        (places.begin_block(), ...);
        take_pairs(x, i, i + block, places...);
        (places.end_block(i), ...);
    }
    const std::ptrdiff_t last = i < n - N ? i : n - N;
    (places.begin_block(), ...);
    i = take_pairs(x, i, n, places...);
    if (n - i >= N) take(i);
    take(n - N);
    (places.end_block(last), ...);
}

// ---- The extreme of lanes, each with its place

/// Lanes take vectors of elements in order. A not-a-number replaces what its lane holds and leaves the place; the next
/// element replaces the not-a-number and leaves the place too. Places are counted in T. Vectors are aligned if the
/// elements are; n >= N.
template <class Op, class T>
ORV_INLINE std::ptrdiff_t place_by_lanes(const T* x, std::ptrdiff_t n, T& value)
{
    constexpr int N = vec<T>::N;
    constexpr T infinity = std::numeric_limits<T>::infinity();
    const auto padding = splat(Op::template worst<T> < 0 ? -infinity : infinity); // never better
    T lane[N], place[N];
    for (int k = 0; k < N; ++k) place[k] = T(k);

    std::ptrdiff_t i = elements_before(32, x);
    if (i == 0) i = N;
    vec<T> held = load_first(x, i, padding), at = load(place), next = at + splat(T(i));
    const auto take = [&](vec<T> v) ORV_INLINE_LAMBDA {
        at = blend(Op::is_better(v, held), next, at);
        held = Op::better(held, v);
        next = next + splat(T(N));
    };
    for (; n - i >= N; i += N) take(load(x + i));
    if (n > i) take(load_first(x + i, n - i, padding));

    store(lane, held);
    store(place, at);
    for (int half = N / 2; half > 0; half /= 2) {
        for (int k = 0; k < half; ++k) {
            const T low = lane[k], high = lane[k + half];
            const bool low_stays = Op::is_better(low, high);
            if (low == high ? place[k + half] < place[k] : !low_stays) place[k] = place[k + half];
            if (!low_stays) lane[k] = high;
        }
    }
    value = lane[0];
    return value == value ? std::ptrdiff_t(place[0]) : 0;
}

} // namespace ORV_VARIANT

#endif
