// Complex floats whose |z|^2 leaves the range of its type.
#ifndef ORV_ARITH_EXTREME_H
#define ORV_ARITH_EXTREME_H

#include <limits>
#include <type_traits>

#include "simd/convert.h"

namespace ORV_VARIANT {

/// Where |z|^2 might not be a normal number, or products with a factor of its size might not: a quarter of the
/// exponents is left on each side. One comparison of the bits as integers serves for both ends.
template <class T>
ORV_INLINE auto is_extreme(vec<T> norm)
{
    using I = std::conditional_t<sizeof(T) == 4, Orv32s, Orv64s>;
    constexpr int digits = std::numeric_limits<T>::digits - 1, bias = std::numeric_limits<T>::max_exponent - 1;
    constexpr I lowest = I(bias / 2) << digits, highest = I(bias + bias / 2) << digits;
    return as<T>(is_greater(as<I>(norm) - splat(I(lowest + min_of<I>)), splat(I(highest - lowest + min_of<I>))));
}

/// Results of floats that were worked on as doubles.
ORV_INLINE vec<Orv32f> round_together(vec<Orv64f> first, vec<Orv64f> second)
{
    const auto both = convert_to<Orv32f>(join(first, second));
    return join(both.low, both.high);
}

} // namespace ORV_VARIANT

#endif
