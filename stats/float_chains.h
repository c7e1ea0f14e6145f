// What norms and inner products of floats add up, as chains of a reduction: several grow side by side and are joined at
// the end. T is the type of the sums; sources of other types are converted as they are loaded.
#ifndef ORV_STATS_FLOAT_CHAINS_H
#define ORV_STATS_FLOAT_CHAINS_H

#include "frame/reduce.h"
#include "simd/convert.h"
#include "simd/float.h"

namespace ORV_VARIANT {

/// sum + a * b, rounded after each. Products of widened values are exact, so that the fused step has the same result.
template <class Source, class T>
ORV_INLINE vec<T> add_product(vec<T> a, vec<T> b, vec<T> sum)
{
    if constexpr (std::is_same_v<typename Source::lane, Orv32f> && std::is_same_v<T, Orv64f>) return fma(a, b, sum);
    else return sum + a * b;
}

template <class T>
struct SumChain {
    using type = T;
    vec<T> sum = splat(T(0));

    ORV_INLINE void join(const SumChain& other) { sum = sum + other.sum; }
    ORV_INLINE T total() const { return sum_of_lanes(sum); }
};

template <class T>
struct MaxChain {
    using type = T;
    vec<T> max = splat(T(0));

    /// A not-a-number is passed over.
    ORV_INLINE void take(vec<T> x) { max = ORV_VARIANT::max(x, max); }
    ORV_INLINE void join(const MaxChain& other) { take(other.max); }
    ORV_INLINE T total() const
    {
        return fold([](vec<T> a, vec<T> b) ORV_INLINE_LAMBDA { return ORV_VARIANT::max(a, b); }, max);
    }
};

// ---- Of values

/// |x|.
template <class T>
struct Magnitudes : SumChain<T> {
    static constexpr int lanes = vec<T>::N;
    template <class X>
    ORV_INLINE void add(X x)
    {
        this->sum = this->sum + magnitude(convert_to<T>(x));
    }
};

/// x^2.
template <class T>
struct Squares : SumChain<T> {
    static constexpr int lanes = vec<T>::N;
    template <class X>
    ORV_INLINE void add(X x)
    {
        const vec<T> value = convert_to<T>(x);
        this->sum = add_product<X>(value, value, this->sum);
    }
};

template <class T>
struct LargestMagnitude : MaxChain<T> {
    static constexpr int lanes = vec<T>::N;
    ORV_INLINE void add(vec<T> x) { this->take(magnitude(x)); }
};

// ---- Of complex values

/// re^2 + im^2 in both lanes of each.
template <class T>
ORV_INLINE vec<T> squared_magnitudes(vec<T> z)
{
    const vec<T> squares = z * z;
    return squares + swap_pairs(squares);
}

/// re^2 + im^2.
template <class T>
struct LargestSquaredMagnitude : MaxChain<T> {
    static constexpr int lanes = vec<T>::N / 2;
    ORV_INLINE void add(vec<T> z) { this->take(squared_magnitudes(z)); }
};

/// sqrt(re^2 + im^2), of two vectors at once: a root takes as long of whole vectors as of half ones.
struct ComplexMagnitudes : SumChain<Orv64f> {
    static constexpr int lanes = 4;
    template <class Z>
    ORV_INLINE void add(Z z)
    {
        const auto both = convert_to<Orv64f>(z);
        const vec<Orv64f> squared = {
            _mm256_blend_pd(squared_magnitudes(both.low).r, squared_magnitudes(both.high).r, 0xa)};
        sum = sum + square_root(squared);
    }
};

// ---- Of differences

template <class T, int N>
ORV_INLINE vec<T, N> minus(vec<T, N> a, vec<T, N> b)
{
    if constexpr (N > vec<T>::N) return {minus(a.low, b.low), minus(a.high, b.high)};
    else return a - b;
}

/// Chain of x - y, which is formed in the type of the sums.
template <class Chain>
struct Difference : Chain {
    using T = typename Chain::type;
    template <class X>
    ORV_INLINE void add(X x, X y)
    {
        Chain::add(minus(convert_to<T>(x), convert_to<T>(y)));
    }
};

// ---- Products: rounded, then added

/// x * y; of a real x and a complex y both parts, in even and in odd lanes.
template <class T, bool real_complex = false>
struct Products : SumChain<T> {
    static constexpr int lanes = vec<T>::N / (real_complex ? 2 : 1);
    template <class X, class Y>
    ORV_INLINE void add(X x, Y y)
    {
        if constexpr (real_complex) this->sum = add_product<X>(convert_to<T>(as_pairs(x)), convert_to<T>(y), this->sum);
        else this->sum = add_product<X>(convert_to<T>(x), convert_to<T>(y), this->sum);
    }
};

/// x * y of complex values: the real part is what the even lanes of `same` have more than the odd ones, the imaginary
/// part all of `cross`.
template <class T>
struct ComplexProducts {
    static constexpr int lanes = vec<T>::N / 2;
    vec<T> same = splat(T(0)), cross = same;

    template <class X, class Y>
    ORV_INLINE void add(X x, Y y)
    {
        const vec<T> a = convert_to<T>(x), b = convert_to<T>(y);
        same = add_product<X>(a, b, same);
        cross = add_product<X>(a, swap_pairs(b), cross);
    }
    ORV_INLINE void join(const ComplexProducts& other)
    {
        same = same + other.same;
        cross = cross + other.cross;
    }
};

} // namespace ORV_VARIANT

#endif
