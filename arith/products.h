// Products, as the law of scale factors wants them, and the complex product of floats.
#ifndef ORV_ARITH_PRODUCTS_H
#define ORV_ARITH_PRODUCTS_H

#include "frame/scale.h"

namespace ORV_VARIANT {

/// a * b. The product has twice the bits: of two signed values at most 2^30 or 2^62 in magnitude, a quarter of what the
/// wide lanes hold; of unsigned values almost all of it.
struct Product {
    template <class A, class B>
    ORV_INLINE auto saturated(A a, B b) const
    {
        return pack_each(multiply_wide(a, b), [](auto x) ORV_INLINE_LAMBDA { return x; });
    }
    template <class A, class B>
    ORV_INLINE auto exact(A a, B b) const
    {
        constexpr bool both_signed = std::is_signed_v<typename A::lane> && std::is_signed_v<typename B::lane>;
        constexpr bool bytes = sizeof(typename A::lane) == 1;
        if constexpr (both_signed || bytes) {
            return roomy<decltype(multiply_wide(a, b))>{multiply_wide(a, b)};
        } else {
            return multiply_wide(a, b);
        }
    }
};

/// a * b for complex a and b of interleaved parts. A part can be twice the largest product, and fills its lane.
struct ComplexProduct {
    template <class T>
    ORV_INLINE vec<T> saturated(vec<T> a, vec<T> b) const
    {
        return pack_sat(multiply_complex(a, b));
    }
    template <class T>
    ORV_INLINE auto exact(vec<T> a, vec<T> b) const
    {
        return multiply_complex(a, b);
    }

    /// re = fma(a.re, b.re, -(a.im * b.im)), im = fma(b.im, a.re, a.im * b.re): the inner product is rounded first.
    template <class T>
    requires is_float<T> ORV_INLINE vec<T>
    operator()(vec<T> a, vec<T> b) const { return fma_subtract_add(even_twice(a), b, odd_twice(a) * swap_pairs(b)); }
};

/// a * conj(b): re = fma(a.re, b.re, a.im * b.im), im = fma(a.im, b.re, -(a.re * b.im)).
struct ConjugateProduct {
    template <class T>
    requires is_float<T> ORV_INLINE vec<T>
    operator()(vec<T> a, vec<T> b) const { return fma_add_subtract(even_twice(b), a, odd_twice(b) * swap_pairs(a)); }
};

/// a * b for real a and complex b, a lane of 64 bits each.
struct RealByComplexProduct {
    ORV_INLINE auto saturated(vec<Orv32s, 4> a, vec<Orv64s> b) const
    {
        return Product{}.saturated(as_pairs(a), as<Orv32s>(b));
    }
    ORV_INLINE auto exact(vec<Orv32s, 4> a, vec<Orv64s> b) const { return Product{}.exact(as_pairs(a), as<Orv32s>(b)); }
    ORV_INLINE vec<Orv64s> operator()(vec<Orv32f, 4> a, vec<Orv64s> b) const
    {
        return as<Orv64s>(as_pairs(a) * as<Orv32f>(b));
    }
};

} // namespace ORV_VARIANT

#endif
