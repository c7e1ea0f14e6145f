// The layouts of complex arrays that a transform meets, as one kind of thing: index i counts complex elements.
//
// Passes have the elements of a vector in an order of their own, which costs interleaved arrays the fewest
// instructions: lane k holds element element_of_lane(k) of a run. load and store go from and to that order.
#ifndef ORV_TRANSFORM_LAYOUTS_H
#define ORV_TRANSFORM_LAYOUTS_H

#include <cstddef>

#include "transform/complex_lanes.h"

namespace ORV_VARIANT {

/// 0 1 4 5 2 3 6 7, or 0 2 1 3. It is its own inverse.
template <class T>
constexpr int element_of_lane(int k)
{
    return is_single<T> ? (k & 1) | (k & 4) >> 1 | (k & 2) << 1 : (k & 1) << 1 | k >> 1;
}

/// (re, im) pairs, as callers have them.
template <class T>
struct InterleavedArray {
    using value = T;
    static constexpr int N = vec<T>::N;
    T* p;

    ORV_INLINE InterleavedArray operator+(std::ptrdiff_t i) const { return {p + 2 * i}; }

    ORV_INLINE Complex<T> load(std::ptrdiff_t i) const
    {
        const auto a = ORV_VARIANT::load(p + 2 * i), b = ORV_VARIANT::load(p + 2 * i + N);
        return {even_lanes(a, b), odd_lanes(a, b)};
    }
    ORV_INLINE void store(std::ptrdiff_t i, Complex<T> x) const
    {
        ORV_VARIANT::store(p + 2 * i, unpack_low(x.re, x.im));
        ORV_VARIANT::store(p + 2 * i + N, unpack_high(x.re, x.im));
    }

    ORV_INLINE Pairs<T> load_pairs(std::ptrdiff_t i) const { return {ORV_VARIANT::load(p + 2 * i)}; }
    ORV_INLINE void store_pairs(std::ptrdiff_t i, Pairs<T> x) const { ORV_VARIANT::store(p + 2 * i, x.v); }

    ORV_INLINE Single<T> load_single(std::ptrdiff_t i) const
    {
        return {element_at(p + 2 * i), element_at(p + 2 * i + 1)};
    }
    ORV_INLINE void store_single(std::ptrdiff_t i, Single<T> x) const
    {
        put_element(p + 2 * i, x.re);
        put_element(p + 2 * i + 1, x.im);
    }
};

/// Real and imaginary parts in two arrays, as callers have them.
template <class T>
struct SplitArray {
    using value = T;
    static constexpr int N = vec<T>::N;
    T *re, *im;

    ORV_INLINE SplitArray operator+(std::ptrdiff_t i) const { return {re + i, im + i}; }

    ORV_INLINE Complex<T> load(std::ptrdiff_t i) const
    {
        return {cross_quarters(ORV_VARIANT::load(re + i)), cross_quarters(ORV_VARIANT::load(im + i))};
    }
    ORV_INLINE void store(std::ptrdiff_t i, Complex<T> x) const
    {
        ORV_VARIANT::store(re + i, cross_quarters(x.re));
        ORV_VARIANT::store(im + i, cross_quarters(x.im));
    }

    ORV_INLINE Pairs<T> load_pairs(std::ptrdiff_t i) const
    {
        return {interleave_halves(ORV_VARIANT::load<T, N / 2>(re + i), ORV_VARIANT::load<T, N / 2>(im + i))};
    }
    ORV_INLINE void store_pairs(std::ptrdiff_t i, Pairs<T> x) const
    {
        const auto parts = deinterleave_halves(x.v);
        ORV_VARIANT::store(re + i, parts.low);
        ORV_VARIANT::store(im + i, parts.high);
    }

    ORV_INLINE Single<T> load_single(std::ptrdiff_t i) const { return {element_at(re + i), element_at(im + i)}; }
    ORV_INLINE void store_single(std::ptrdiff_t i, Single<T> x) const
    {
        put_element(re + i, x.re);
        put_element(im + i, x.im);
    }
};

// ---- Between passes: i is a multiple of N, and nothing is to be done at loads and stores

/// Blocks of a vector of real parts and one of imaginary parts.
template <class T>
struct BlockArray {
    using value = T;
    static constexpr int N = vec<T>::N;
    T* p;

    ORV_INLINE BlockArray operator+(std::ptrdiff_t i) const { return {p + 2 * i}; }
    ORV_INLINE bool precedes(BlockArray end) const { return p < end.p; }

    ORV_INLINE Complex<T> load(std::ptrdiff_t i) const
    {
        return {in_register(ORV_VARIANT::load(p + 2 * i)), in_register(ORV_VARIANT::load(p + 2 * i + N))};
    }
    ORV_INLINE void store(std::ptrdiff_t i, Complex<T> x) const
    {
        ORV_VARIANT::store(p + 2 * i, x.re);
        ORV_VARIANT::store(p + 2 * i + N, x.im);
    }
};

/// The same in two arrays.
template <class T>
struct SplitBlockArray {
    using value = T;
    T *re, *im;

    ORV_INLINE SplitBlockArray operator+(std::ptrdiff_t i) const { return {re + i, im + i}; }
    ORV_INLINE bool precedes(SplitBlockArray end) const { return re < end.re; }

    ORV_INLINE Complex<T> load(std::ptrdiff_t i) const
    {
        return {in_register(ORV_VARIANT::load(re + i)), in_register(ORV_VARIANT::load(im + i))};
    }
    ORV_INLINE void store(std::ptrdiff_t i, Complex<T> x) const
    {
        ORV_VARIANT::store(re + i, x.re);
        ORV_VARIANT::store(im + i, x.im);
    }
};

} // namespace ORV_VARIANT

#endif
