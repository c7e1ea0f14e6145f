// Operations with one operand fixed: sums, differences and products with a scalar.
#ifndef ORV_ARITH_CONSTANT_H
#define ORV_ARITH_CONSTANT_H

#include "arith/complex.h"
#include "arith/sums.h"

namespace ORV_VARIANT {

/// Op with its second operand fixed: a + val, a - val, a * val.
template <class Op, class T>
struct Second {
    vec<T> val;
    ORV_INLINE vec<T> saturated(vec<T> a) const { return Op{}.saturated(a, val); }
    ORV_INLINE auto exact(vec<T> a) const { return Op{}.exact(a, val); }
};

/// Op with its first operand fixed: val - b.
template <class Op, class T>
struct First {
    vec<T> val;
    ORV_INLINE vec<T> saturated(vec<T> b) const { return Op{}.saturated(val, b); }
    ORV_INLINE auto exact(vec<T> b) const { return Op{}.exact(val, b); }
};

/// src + val, src - val, val - src for a real or complex val.
template <class T>
ORV_INLINE auto plus(T val)
{
    const auto v = splat(val);
    return Second<Sum, typename decltype(v)::lane>{v};
}
template <class T>
ORV_INLINE auto minus(T val)
{
    const auto v = splat(val);
    return Second<Difference, typename decltype(v)::lane>{v};
}
template <class T>
ORV_INLINE auto minus_from(T val)
{
    const auto v = splat(val);
    return First<Difference, typename decltype(v)::lane>{v};
}

} // namespace ORV_VARIANT

#endif
