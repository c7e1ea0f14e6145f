// The levels of accuracy, and single precision by way of double.
#ifndef ORV_VMATH_LEVEL_H
#define ORV_VMATH_LEVEL_H

#include "simd/convert.h"
#include "simd/float.h"

namespace ORV_VARIANT {

enum class Level { LA, HA, EP };

/// A shift of the exponent: whole numbers n of up to half the mantissa, added to magic, stand in its last bits.
template <class T>
inline constexpr T magic = sizeof(T) == 4 ? T(0x1.8p23) : T(0x1.8p52);

/// pi / 2 in three parts.
template <class T>
inline constexpr T half_pi_parts[] = {0x1.921fb6p+0f, -0x1.777a5cp-25f, -0x1.ee59dap-50f};
template <>
inline constexpr Orv64f half_pi_parts<Orv64f>[] = {0x1.921fb54442d18p+0, 0x1.1a62633145c07p-54,
                                                   -0x1.f1976b7ed8fbcp-110};

/// f of each half in double precision, rounded to single once.
template <class F>
ORV_INLINE vec<Orv32f> by_doubles(F f, vec<Orv32f> x)
{
    const auto wide = convert_to<Orv64f>(x);
    return round_together(f(wide.low), f(wide.high));
}

/// The first lane.
ORV_INLINE Orv32f first(vec<Orv32f> v) { return v.r[0]; }
ORV_INLINE Orv64f first(vec<Orv64f> v) { return v.r[0]; }

} // namespace ORV_VARIANT

#endif
