// Complex numbers in lanes, three ways: the parts in a vector each, (re, im) pairs in one vector, and a single number.
// Butterflies are written once for all of them.
#ifndef ORV_TRANSFORM_COMPLEX_LANES_H
#define ORV_TRANSFORM_COMPLEX_LANES_H

#include "simd/float.h"
#include "simd/lanes.h"
#include "transform/roads.h"

namespace ORV_VARIANT {

/// Parts in vectors of their own: multiplications by i cost nothing.
template <class T>
struct Complex {
    using value = T;
    vec<T> re, im;
};

/// Pairs: nothing to do at loads and stores.
template <class T>
struct Pairs {
    using value = T;
    static constexpr int N = vec<T>::N / 2;
    vec<T> v;
};

/// One number.
template <class T>
struct Single {
    using value = T;
    T re, im;
};

// ---- Sums

template <class T>
ORV_INLINE Complex<T> operator+(Complex<T> a, Complex<T> b)
{
    return {a.re + b.re, a.im + b.im};
}
template <class T>
ORV_INLINE Complex<T> operator-(Complex<T> a, Complex<T> b)
{
    return {a.re - b.re, a.im - b.im};
}
template <class T>
ORV_INLINE Pairs<T> operator+(Pairs<T> a, Pairs<T> b)
{
    return {a.v + b.v};
}
template <class T>
ORV_INLINE Pairs<T> operator-(Pairs<T> a, Pairs<T> b)
{
    return {a.v - b.v};
}
template <class T>
ORV_INLINE Single<T> operator+(Single<T> a, Single<T> b)
{
    return {a.re + b.re, a.im + b.im};
}
template <class T>
ORV_INLINE Single<T> operator-(Single<T> a, Single<T> b)
{
    return {a.re - b.re, a.im - b.im};
}

// ---- a + i b and a - i b

template <class C>
ORV_INLINE C plus_i_times(C a, C b)
{
    return {a.re - b.im, a.im + b.re};
}
template <class C>
ORV_INLINE C minus_i_times(C a, C b)
{
    return {a.re + b.im, a.im - b.re};
}
template <class T>
ORV_INLINE Pairs<T> plus_i_times(Pairs<T> a, Pairs<T> b)
{
    return {plus_i_times(a.v, b.v)};
}
template <class T>
ORV_INLINE Pairs<T> minus_i_times(Pairs<T> a, Pairs<T> b)
{
    return {minus_i_times(a.v, b.v)};
}

/// a + w b and a - w b for the quarter turn w of the direction: -i forward, i inverse.
template <Direction d, class C>
ORV_INLINE C plus_turned(C a, C b)
{
    return d == Direction::forward ? minus_i_times(a, b) : plus_i_times(a, b);
}
template <Direction d, class C>
ORV_INLINE C minus_turned(C a, C b)
{
    return d == Direction::forward ? plus_i_times(a, b) : minus_i_times(a, b);
}

// ---- Products with real numbers

template <class T>
ORV_INLINE Complex<T> operator*(Complex<T> a, T s)
{
    return {a.re * splat(s), a.im * splat(s)};
}
template <class T>
ORV_INLINE Pairs<T> operator*(Pairs<T> a, T s)
{
    return {a.v * splat(s)};
}
template <class T>
ORV_INLINE Single<T> operator*(Single<T> a, T s)
{
    return {a.re * s, a.im * s};
}

/// a + s b and a - s b.
template <class T>
ORV_INLINE Complex<T> add_scaled(Complex<T> a, T s, Complex<T> b)
{
    return {fma(splat(s), b.re, a.re), fma(splat(s), b.im, a.im)};
}
template <class T>
ORV_INLINE Complex<T> subtract_scaled(Complex<T> a, T s, Complex<T> b)
{
    return {fnma(splat(s), b.re, a.re), fnma(splat(s), b.im, a.im)};
}
template <class T>
ORV_INLINE Pairs<T> add_scaled(Pairs<T> a, T s, Pairs<T> b)
{
    return {fma(splat(s), b.v, a.v)};
}
template <class T>
ORV_INLINE Pairs<T> subtract_scaled(Pairs<T> a, T s, Pairs<T> b)
{
    return {fnma(splat(s), b.v, a.v)};
}

template <class T>
ORV_INLINE Single<T> add_scaled(Single<T> a, T s, Single<T> b)
{
    return {fma(s, b.re, a.re), fma(s, b.im, a.im)};
}
template <class T>
ORV_INLINE Single<T> subtract_scaled(Single<T> a, T s, Single<T> b)
{
    return add_scaled(a, -s, b);
}

// ---- Products with factors, which are those of the forward transform: the inverse one takes their conjugates

template <Direction d, class T>
ORV_INLINE Complex<T> multiply(Complex<T> a, Complex<T> w)
{
    if constexpr (d == Direction::forward) {
        return {fnma(a.im, w.im, a.re * w.re), fma(a.im, w.re, a.re * w.im)};
    } else {
        return {fma(a.im, w.im, a.re * w.re), fnma(a.re, w.im, a.im * w.re)};
    }
}

/// Factors of pairs, each part twice.
template <class T>
struct TwiceParts {
    vec<T> re, im;
};
template <Direction d, class T>
ORV_INLINE Pairs<T> multiply(Pairs<T> a, TwiceParts<T> w)
{
    const auto crossed = swap_pairs(a.v) * w.im;
    if constexpr (d == Direction::forward) {
        return {fma_subtract_add(a.v, w.re, crossed)};
    } else {
        return {fma_add_subtract(a.v, w.re, crossed)};
    }
}

// ---- Butterflies: x[k] = sum of x[j] * exp(-+ 2 pi i j k / n)

template <Direction, class C>
ORV_INLINE void butterfly(C (&x)[2])
{
    const C a = x[0], b = x[1];
    x[0] = a + b, x[1] = a - b;
}
/// The butterfly of part(0), part(1) and so on, which are computed as they are needed, for want of registers.
template <Direction d, class C, class Part>
ORV_INLINE void butterfly_of_parts(C (&x)[4], Part part)
{
    const C first = part(1), third = part(3), sum = first + third, difference = first - third;
    const C second = part(2), own = part(0), a = own + second, b = own - second;
    x[0] = a + sum, x[1] = plus_turned<d>(b, difference);
    x[2] = a - sum, x[3] = minus_turned<d>(b, difference);
}
/// x = the transform of 8 from those of the elements of even and of odd place.
template <Direction d, class C>
ORV_INLINE void combine_halves(const C (&even)[4], const C (&odd)[4], C (&x)[8])
{
    using T = typename C::value;
    constexpr T root_half = T(0.707106781186547524400844362104849L);
    const C first = plus_turned<d>(odd[1], odd[1]), third = minus_turned<d>(odd[3], odd[3]);
    x[0] = even[0] + odd[0], x[4] = even[0] - odd[0];
    x[1] = add_scaled(even[1], root_half, first), x[5] = subtract_scaled(even[1], root_half, first);
    x[2] = plus_turned<d>(even[2], odd[2]), x[6] = minus_turned<d>(even[2], odd[2]);
    x[3] = subtract_scaled(even[3], root_half, third), x[7] = add_scaled(even[3], root_half, third);
}
template <Direction d, class C, class Part>
ORV_INLINE void butterfly_of_parts(C (&x)[8], Part part)
{
    C odd[4], even[4];
    butterfly_of_parts<d>(odd, [=](int k) ORV_INLINE_LAMBDA { return part(2 * k + 1); });
    butterfly_of_parts<d>(even, [=](int k) ORV_INLINE_LAMBDA { return part(2 * k); });
    combine_halves<d>(even, odd, x);
}

template <Direction d, class C, std::size_t n>
requires(n > 2) ORV_INLINE void butterfly(C (&x)[n])
{
    C parts[n];
    repeat<n>([&](auto k) ORV_INLINE_LAMBDA { parts[k] = x[k]; });
    butterfly_of_parts<d>(x, [&](int k) ORV_INLINE_LAMBDA { return parts[k]; });
}

} // namespace ORV_VARIANT

#endif
