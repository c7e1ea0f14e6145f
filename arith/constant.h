// Sums and differences with a scalar: the operations with one operand fixed, and what their bodies share.
#ifndef ORV_ARITH_CONSTANT_H
#define ORV_ARITH_CONSTANT_H

#include "arith/complex.h"
#include "arith/sums.h"
#include "frame/checks.h"
#include "frame/fill.h"

namespace ORV_VARIANT {

/// Op with its second operand fixed: a + val, a - val.
template <class Op, class T>
struct Second {
    vec<T> val;
    ORV_INLINE vec<T> saturated(vec<T> a) const { return Op{}.saturated(a, val); }
    ORV_INLINE half_odd<T> exact(vec<T> a) const { return Op{}.exact(a, val); }
};

/// Op with its first operand fixed: val - b.
template <class Op, class T>
struct First {
    vec<T> val;
    ORV_INLINE vec<T> saturated(vec<T> b) const { return Op{}.saturated(val, b); }
    ORV_INLINE half_odd<T> exact(vec<T> b) const { return Op{}.exact(val, b); }
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

/// The body of a scaled integer form with a scalar: checks, the fill with zeros, the other roads.
template <class Op, class T>
ORV_INLINE OrvStatus scaled_constant_form(Op op, const T* src, T* dst, int len, int scale, int zero_above)
{
    if (const OrvStatus bad = check(len, src, dst)) return bad;
    if (scale > zero_above) return zero(dst, len);
    if constexpr (std::is_integral_v<T>) {
        map_scaled(op, dst, len, scale, src);
        return orvOk;
    } else {
        return for_parts(len, [=](std::ptrdiff_t at, int n) {
            map_scaled<2>(op, parts(dst) + at, n, scale, parts(src) + at);
            return orvOk;
        });
    }
}

/// The body of a floating form with a scalar.
template <class Op, class T>
ORV_INLINE OrvStatus float_constant_form(Op op, const T* src, T* dst, int len)
{
    if (const OrvStatus bad = check(len, src, dst)) return bad;
    if constexpr (is_float<T>) {
        map(op, dst, len, src);
        return orvOk;
    } else {
        return for_parts(len, [=](std::ptrdiff_t at, int n) {
            map<2>(op, parts(dst) + at, n, parts(src) + at);
            return orvOk;
        });
    }
}

} // namespace ORV_VARIANT

#endif
