// Complex floats with their parts in vectors of their own: two registers of (re, im) pairs, taken apart when they are
// loaded and put together when they are stored. Their order is that of the instructions; it serves element-wise work.
#ifndef ORV_SIMD_PLANAR_H
#define ORV_SIMD_PLANAR_H

#include "simd/lanes.h"

namespace ORV_VARIANT {

/// A complex element of an array that is worked on like that.
template <class T>
struct Planar {
    T re, im;
};
using Planar32 = Planar<Orv32f>;
using Planar64 = Planar<Orv64f>;

ORV_INLINE const Planar32* as_planar(const Orv32fc* z) { return reinterpret_cast<const Planar32*>(z); }
ORV_INLINE const Planar64* as_planar(const Orv64fc* z) { return reinterpret_cast<const Planar64*>(z); }
ORV_INLINE Planar32* as_planar(Orv32fc* z) { return reinterpret_cast<Planar32*>(z); }
ORV_INLINE Planar64* as_planar(Orv64fc* z) { return reinterpret_cast<Planar64*>(z); }

template <class T>
inline constexpr int register_lanes<Planar<T>> = register_lanes<T>;

template <class T, int lanes>
requires(lanes == register_lanes<T>) struct vec<Planar<T>, lanes> {
    static constexpr int N = lanes;
    using lane = Planar<T>;
    vec<T> re, im;
};

// ---- Between pairs and parts

template <class T>
ORV_INLINE vec<Planar<T>> take_apart(vec<T> first, vec<T> second)
{
    return {even_lanes(first, second), odd_lanes(first, second)};
}
template <class T>
ORV_INLINE two<T> put_together(vec<Planar<T>> z)
{
    return {unpack_low(z.re, z.im), unpack_high(z.re, z.im)};
}

// ---- Loads and stores

template <class T>
ORV_INLINE T* as_parts(Planar<T>* z)
{
    return reinterpret_cast<T*>(z);
}
template <class T>
ORV_INLINE const T* as_parts(const Planar<T>* z)
{
    return reinterpret_cast<const T*>(z);
}

template <class P, int N>
requires std::is_same_v<P, Planar<decltype(P::re)>> ORV_INLINE vec<P, N> load(const P* z)
{
    const auto* p = as_parts(z);
    return take_apart(load(p), load(p + N));
}
template <class T>
ORV_INLINE void store(Planar<T>* z, vec<Planar<T>> v)
{
    const auto pairs = put_together(v);
    store(as_parts(z), pairs.first);
    store(as_parts(z) + register_lanes<T>, pairs.second);
}
template <class T>
ORV_INLINE void stream(Planar<T>* z, vec<Planar<T>> v)
{
    const auto pairs = put_together(v);
    stream(as_parts(z), pairs.first);
    stream(as_parts(z) + register_lanes<T>, pairs.second);
}

// Of n elements, the first and the last that a register holds, or, where there are fewer, all in both registers.

template <class P, int N>
requires std::is_same_v<P, Planar<decltype(P::re)>> ORV_INLINE vec<P, N> load_n(const P* z, int n)
{
    const auto* p = as_parts(z);
    if (n >= N / 2) return take_apart(load(p), load(p + 2 * n - N));
    const auto all = load_n(p, 2 * n);
    return take_apart(all, all);
}
template <class T>
ORV_INLINE void store_n(Planar<T>* z, vec<Planar<T>> v, int n)
{
    constexpr int N = register_lanes<T>;
    const auto pairs = put_together(v);
    if (n < N / 2) return store_n(as_parts(z), pairs.first, 2 * n);
    store(as_parts(z), pairs.first);
    store(as_parts(z) + 2 * n - N, pairs.second);
}

} // namespace ORV_VARIANT

#endif
