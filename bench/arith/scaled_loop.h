// Rounding and saturation as plain loops write them.
#ifndef ORV_BENCH_ARITH_SCALED_LOOP_H
#define ORV_BENCH_ARITH_SCALED_LOOP_H

#include <algorithm>
#include <cmath>
#include <limits>
#include <type_traits>

#include "orvs/types.h"

namespace loops {

/// Holds every sum, difference and product of two T. T is Orv8u, Orv16s, Orv32s, Orv32f or Orv64f.
template <class T>
using wide = std::conditional_t<std::is_floating_point_v<T>, T, std::conditional_t<sizeof(T) < 4, Orv32s, Orv64s>>;

template <class T, class Wide = wide<T>>
T saturate(Wide x)
{
    if constexpr (std::is_floating_point_v<T>) {
        return x;
    } else {
        return static_cast<T>(std::clamp<Wide>(x, std::numeric_limits<T>::min(), std::numeric_limits<T>::max()));
    }
}

/// To nearest: adds just below one half, and a little more when the integer part is odd, then rounds down.
template <class T, class Wide = wide<T>>
T scaled(Wide x, int scale)
{
    const Wide half = Wide{1} << (scale - 1);
    return saturate<T>((x + half - 1 + ((x >> scale) & 1)) >> scale);
}

/// By the processor's rounding, to nearest.
template <class D>
D rounded(double x)
{
    return static_cast<D>(
        std::lrint(std::clamp<double>(x, std::numeric_limits<D>::min(), std::numeric_limits<D>::max())));
}

} // namespace loops

#endif
