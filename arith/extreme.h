// Complex floats whose |z|^2 leaves the range of its type.
#ifndef ORV_ARITH_EXTREME_H
#define ORV_ARITH_EXTREME_H

#include <limits>

#include "simd/convert.h"

namespace ORV_VARIANT {

/// Where |z|^2 might not be a normal number, or products with a factor of its size might not: a quarter of the
/// exponents is left on each side. One comparison of the bits as integers serves for both ends.
template <class T>
ORV_INLINE auto is_extreme(vec<T> norm)
{
    using I = word_of<T>;
    constexpr int digits = std::numeric_limits<T>::digits - 1, bias = std::numeric_limits<T>::max_exponent - 1;
    constexpr I lowest = I(bias / 2) << digits, highest = I(bias + bias / 2) << digits;
    return as<T>(is_greater(as<I>(norm) - splat(I(lowest + min_of<I>)), splat(I(highest - lowest + min_of<I>))));
}

} // namespace ORV_VARIANT

#endif
