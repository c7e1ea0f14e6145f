// Floats in [-1, 1) as integers of a given number of bits: 1 corresponds to 2^(bits - 1), one more than the largest.
#ifndef ORV_CONVERT_FULL_SCALE_H
#define ORV_CONVERT_FULL_SCALE_H

#include "simd/convert.h"

namespace ORV_VARIANT {

/// x * 2^(bits - 1) in the thread's rounding; above, it stops at the largest integer of so many bits, below, at the
/// least 32-bit one, and that is what comes of a NaN. At most 25 bits.
template <int bits>
ORV_INLINE vec<Orv32s> from_unit_range(vec<Orv32f> x)
{
    constexpr auto scale = Orv32f(1 << (bits - 1)), highest = (scale - 1) / scale; // exact in a float
    return to_32s(min(splat(highest), x) * splat(scale));                          // a NaN passes the minimum
}

/// x * 2^-bits: exact for integers of up to 24 significant bits.
template <int bits>
ORV_INLINE vec<Orv32f> to_unit_range(vec<Orv32s> x)
{
    constexpr auto scale = 1 / Orv32f(1u << bits);
    return to_float(x) * splat(scale);
}

} // namespace ORV_VARIANT

#endif
