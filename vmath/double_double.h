// Numbers of 106 bits as the sum of two doubles, for what double precision cannot decide; the state rounds to nearest.
// (T. J. Dekker, A floating-point technique for extending the available precision, Numerische Mathematik 18, 1971.)
#ifndef ORV_VMATH_DOUBLE_DOUBLE_H
#define ORV_VMATH_DOUBLE_DOUBLE_H

#include "vmath/level.h"

namespace ORV_VARIANT {

struct DoubleDouble {
    Orv64f high, low = 0;
};

/// a + b, where a is the larger one in magnitude or 0.
inline DoubleDouble quick_sum(Orv64f a, Orv64f b)
{
    const Orv64f sum = a + b;
    return {sum, b - (sum - a)};
}
inline DoubleDouble exact_sum(Orv64f a, Orv64f b)
{
    const Orv64f sum = a + b, from_b = sum - a;
    return {sum, (a - (sum - from_b)) + (b - from_b)};
}
inline DoubleDouble exact_product(Orv64f a, Orv64f b)
{
    const Orv64f product = a * b;
    return {product, __builtin_fma(a, b, -product)};
}

inline DoubleDouble operator+(DoubleDouble a, DoubleDouble b)
{
    const DoubleDouble high = exact_sum(a.high, b.high), low = exact_sum(a.low, b.low);
    const DoubleDouble sum = quick_sum(high.high, high.low + low.high);
    return quick_sum(sum.high, sum.low + low.low);
}
inline DoubleDouble operator-(DoubleDouble a) { return {-a.high, -a.low}; }
inline DoubleDouble operator*(DoubleDouble a, DoubleDouble b)
{
    const DoubleDouble product = exact_product(a.high, b.high);
    return quick_sum(product.high, product.low + (a.high * b.low + a.low * b.high));
}
inline DoubleDouble operator/(DoubleDouble a, Orv64f b)
{
    const Orv64f quotient = a.high / b, rest = __builtin_fma(-quotient, b, a.high) + a.low;
    return quick_sum(quotient, rest / b);
}
/// Times a power of two.
inline DoubleDouble scaled(DoubleDouble a, Orv64f power) { return {a.high * power, a.low * power}; }

/// a >= 0 to the nearest integer, ties to even, but no more than limit.
inline Orv64s round_to_integer(DoubleDouble a, Orv64s limit)
{
    if (a.high >= Orv64f(limit)) return limit; // limit rounded up where a double does not hold it
    const auto nearest = [](Orv64f x) { return first(to_nearest(splat(x))); };
    const Orv64f whole = nearest(a.high), rest = (a.high - whole) + a.low, more = nearest(rest), tie = rest - more;
    const Orv64s n = Orv64s(whole) + Orv64s(more);
    if ((tie == 0.5 || tie == -0.5) && n % 2 != 0) return n + (tie > 0 ? 1 : -1);
    return n;
}

/// mantissa * 2^exponent.
struct WideFloat {
    DoubleDouble mantissa;
    Orv64s exponent;
};

/// e^x to 2^-95, where |x| < 2^31. The exponent needs more than 32 bits.
WideFloat exp_exactly(DoubleDouble x);

/// ln x to 2^-90, where x is a positive normal number.
DoubleDouble ln_exactly(Orv64f x);

} // namespace ORV_VARIANT

#endif
