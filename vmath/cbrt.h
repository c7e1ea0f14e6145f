// The cube root.
//
// The bits of a float, as a number, are nearly its logarithm; minus a third of them and a constant give x^(-1/3)
// to 3.5% (the idea of W. Kahan's cube root, 1991). With u = 1 - x * y^3 a polynomial for (1 - u)^(-1/3) makes it y to
// 2^-17, and one Newton step with an exact remainder gives the root c = x * y^2 - (c^3 - x) * y^2 / 3.
#ifndef ORV_VMATH_CBRT_H
#define ORV_VMATH_CBRT_H

#include "simd/polynomial.h"
#include "vmath/level.h"

int vscbrt_cout_rare(Orv32f x, Orv32f* y);

namespace ORV_VARIANT {

/// size^(-1/3) to 2^-17, size normal; and something finite for 0.
ORV_INLINE vec<Orv32f> reciprocal_cbrt(vec<Orv32f> size)
{
    const auto bits = convert_to<Orv32f>(as<Orv32s>(size));
    const auto y = as<Orv32f>(to_32s(fma(bits, splat(-1.0f / 3), splat(0x1.5287cp+30f))));
    const auto u = fnma(size * y, y * y, splat(1.0f));
    return fma(y, u * horner(u, 0x1.55541ep-2f, 0x1.c9cf2p-3f, 0x1.65e26cp-3f), y);
}

/// At most 1.1 ulp.
struct Cbrt32 {
    using lane = Orv32f;

    ORV_INLINE vec<Orv32f> operator()(vec<Orv32f> x) const
    {
        const auto size = magnitude(x), y = reciprocal_cbrt(size);
        const auto slope = y * y, root = size * slope;
        const auto remainder = fma(root * root, root, splat(0.0f) - size);
        return fnma(remainder * splat(1.0f / 3), slope, root) | sign_bit(x);
    }
    /// Subnormal numbers but not 0; infinities and not-a-numbers.
    ORV_INLINE static vec<Orv32s> off_path(vec<Orv32f> x)
    {
        const auto size = as<Orv32s>(magnitude(x)), subnormal = is_greater(splat(0x00800000), size);
        return and_not(is_equal(size, splat(0)), subnormal) | is_greater(size, splat(0x7f7fffff));
    }
    static int companion(Orv32f x, Orv32f* y) { return vscbrt_cout_rare(x, y); }
};

} // namespace ORV_VARIANT

#endif
