// Real transforms of up to 16 values, unrolled: each from those of its even and its odd values. Spectra are in the
// layout Perm. (H. V. Sorensen and others, "Real-valued fast Fourier transform algorithms", 1987.)
#ifndef ORV_TRANSFORM_TINY_REAL_H
#define ORV_TRANSFORM_TINY_REAL_H

#include "transform/complex_lanes.h"
#include "transform/sine.h"

namespace ORV_VARIANT {

template <class T, std::size_t n>
ORV_INLINE void part_even_and_odd(const T (&x)[n], T (&even)[n / 2], T (&odd)[n / 2])
{
    repeat<n / 2>([&](auto k) ORV_INLINE_LAMBDA { even[k] = x[2 * k], odd[k] = x[2 * k + 1]; });
}

/// a + w b and a - w b, w = exp(-2 pi i k / n).
template <int k, int n, class T>
ORV_INLINE void rotated_sum_and_difference(Single<T> a, Single<T> b, Single<T>& sum, Single<T>& difference)
{
    constexpr Factor<T> w = fixed_factors<T>.at(k, n);
    if constexpr (8 * k == n) { // w = (1 - i) / sqrt(2)
        const Single<T> turned = minus_i_times(b, b);
        sum = add_scaled(a, w.re, turned), difference = subtract_scaled(a, w.re, turned);
    } else {
        const Single<T> product = {fma(b.im, -w.im, b.re * w.re), fma(b.re, w.im, b.im * w.re)};
        sum = a + product, difference = a - product;
    }
}
/// b exp(2 pi i k / n).
template <int k, int n, class T>
ORV_INLINE Single<T> rotated_back(Single<T> b)
{
    constexpr Factor<T> w = fixed_factors<T>.at(k, n);
    if constexpr (8 * k == n) return plus_i_times(b, b) * w.re;
    else return {fma(b.im, w.im, b.re * w.re), fma(b.re, -w.im, b.im * w.re)};
}

/// The numbers k from 1 to below n / 4, each with its mirror image n / 2 - k.
template <std::size_t n>
inline constexpr int mirrored_pairs = n >= 8 ? int(n) / 4 - 1 : 0;

template <class T, std::size_t n>
ORV_INLINE void transform_real_forward(const T (&x)[n], T (&spectrum)[n])
{
    if constexpr (n == 1) {
        spectrum[0] = x[0];
    } else {
        T even[n / 2], odd[n / 2], e[n / 2], o[n / 2];
        part_even_and_odd(x, even, odd);
        transform_real_forward(even, e);
        transform_real_forward(odd, o);
        spectrum[0] = e[0] + o[0], spectrum[1] = e[0] - o[0];
        if constexpr (n >= 4) spectrum[n / 2] = e[1], spectrum[n / 2 + 1] = -o[1];
        repeat<mirrored_pairs<n>>([&](auto index) ORV_INLINE_LAMBDA {
            constexpr int k = index + 1, mirror = int(n) / 2 - k;
            Single<T> sum, difference;
            rotated_sum_and_difference<k, n>(Single<T>{e[2 * k], e[2 * k + 1]}, Single<T>{o[2 * k], o[2 * k + 1]}, sum,
                                             difference);
            spectrum[2 * k] = sum.re, spectrum[2 * k + 1] = sum.im;
            spectrum[2 * mirror] = difference.re, spectrum[2 * mirror + 1] = -difference.im;
        });
    }
}

/// The inverse, times n.
template <class T, std::size_t n>
ORV_INLINE void transform_real_back(const T (&spectrum)[n], T (&x)[n])
{
    if constexpr (n == 1) {
        x[0] = spectrum[0];
    } else {
        T even[n / 2], odd[n / 2], e[n / 2], o[n / 2];
        e[0] = spectrum[0] + spectrum[1], o[0] = spectrum[0] - spectrum[1];
        if constexpr (n >= 4) e[1] = 2 * spectrum[n / 2], o[1] = -2 * spectrum[n / 2 + 1];
        repeat<mirrored_pairs<n>>([&](auto index) ORV_INLINE_LAMBDA {
            constexpr int k = index + 1, mirror = int(n) / 2 - k;
            const Single<T> a = {spectrum[2 * k], spectrum[2 * k + 1]};
            const Single<T> b = {spectrum[2 * mirror], -spectrum[2 * mirror + 1]};
            const Single<T> sum = a + b, rotated = rotated_back<k, n>(a - b);
            e[2 * k] = sum.re, e[2 * k + 1] = sum.im;
            o[2 * k] = rotated.re, o[2 * k + 1] = rotated.im;
        });
        transform_real_back(e, even);
        transform_real_back(o, odd);
        repeat<n / 2>([&](auto k) ORV_INLINE_LAMBDA { x[2 * k] = even[k], x[2 * k + 1] = odd[k]; });
    }
}

} // namespace ORV_VARIANT

#endif
