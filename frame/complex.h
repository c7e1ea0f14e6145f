// Complex arrays as arrays of their parts: re, im, re, im, ...
#ifndef ORV_FRAME_COMPLEX_H
#define ORV_FRAME_COMPLEX_H

#include <cstddef>
#include <type_traits>

#include "simd/vec.h"

namespace ORV_VARIANT {

template <class C>
using part_of = decltype(C::re);

template <class C>
ORV_INLINE part_of<C>* parts(C* z)
{
    return reinterpret_cast<part_of<C>*>(z);
}
template <class C>
ORV_INLINE const part_of<C>* parts(const C* z)
{
    return reinterpret_cast<const part_of<C>*>(z);
}

/// The complex type of 16-bit integers or floats.
template <class T>
using complex_of = std::conditional_t<sizeof(T) == 2, Orv16sc, std::conditional_t<sizeof(T) == 4, Orv32fc, Orv64fc>>;

/// Values of an element, real or complex, and their type.
template <class T>
inline constexpr int values_of = std::is_class_v<T> ? 2 : 1;
template <class T>
struct value_type {
    using type = T;
};
template <class C>
requires std::is_class_v<C>
struct value_type<C> {
    using type = part_of<C>;
};
template <class T>
using value_of = typename value_type<T>::type;

/// An array of elements as one of values.
template <class T>
ORV_INLINE auto values(T* elements)
{
    if constexpr (std::is_class_v<std::remove_const_t<T>>) return parts(elements);
    else return elements;
}

/// The same as an array of 64-bit lanes, a complex value each.
ORV_INLINE Orv64s* whole(Orv32sc* z) { return reinterpret_cast<Orv64s*>(z); }
ORV_INLINE Orv64s* whole(Orv32fc* z) { return reinterpret_cast<Orv64s*>(z); }
ORV_INLINE const Orv64s* whole(const Orv32sc* z) { return reinterpret_cast<const Orv64s*>(z); }
ORV_INLINE const Orv64s* whole(const Orv32fc* z) { return reinterpret_cast<const Orv64s*>(z); }

template <class C>
requires std::is_class_v<C> ORV_INLINE vec<part_of<C>> splat(C z) { return splat_pair(z.re, z.im); }

/// Calls run(first, count) for pieces of the 2 * len parts, each with a count that is a length again.
template <class Run>
ORV_INLINE OrvStatus for_parts(int len, Run run)
{
    constexpr int most = 0x3ffffffe;
    OrvStatus status;
    std::ptrdiff_t at = 0;
    do { // one piece as a rule, and one place for it in the code
        const int n = len < most ? len : most;
        status = run(2 * at, 2 * n);
        at += n;
        len -= n;
    } while (len > 0 && status == orvOk);
    return status;
}

} // namespace ORV_VARIANT

#endif
