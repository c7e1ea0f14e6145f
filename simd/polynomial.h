// Polynomials c0 + c1 * x + c2 * x^2 + ... by fused steps.
#ifndef ORV_SIMD_POLYNOMIAL_H
#define ORV_SIMD_POLYNOMIAL_H

#include "simd/vec.h"

namespace ORV_VARIANT {

/// By Horner's rule: the fewest operations, each waiting for the one before.
template <class T>
ORV_INLINE vec<T> horner(vec<T>, std::type_identity_t<T> c0)
{
    return splat(c0);
}
template <class T, class... C>
ORV_INLINE vec<T> horner(vec<T> x, std::type_identity_t<T> c0, std::type_identity_t<T> c1, C... more)
{
    return fma(horner<T>(x, c1, more...), x, splat(c0));
}

/// The terms c0, c2, c4 ... as a polynomial in x2.
template <class T>
ORV_INLINE vec<T> every_second(vec<T>, std::type_identity_t<T> c0)
{
    return splat(c0);
}
template <class T>
ORV_INLINE vec<T> every_second(vec<T>, std::type_identity_t<T> c0, std::type_identity_t<T>)
{
    return splat(c0);
}
template <class T, class... C>
ORV_INLINE vec<T> every_second(vec<T> x2, std::type_identity_t<T> c0, std::type_identity_t<T>,
                               std::type_identity_t<T> c2, C... more)
{
    return fma(every_second<T>(x2, c2, more...), x2, splat(c0));
}

/// As the even terms and x times the odd ones, each by Horner's rule in x^2: a product more, and half as many steps
/// that wait for each other.
template <class T, class... C>
ORV_INLINE vec<T> horner_by_two(vec<T> x, std::type_identity_t<T> c0, C... more)
{
    const auto x2 = x * x;
    return fma(every_second<T>(x2, more...), x, every_second<T>(x2, c0, more...));
}

} // namespace ORV_VARIANT

#endif
