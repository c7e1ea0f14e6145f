// A file of their own, so that no caller's constants reach the loops.
#include "bench/arith/roots_loops.h"

#include <cmath>
#include <complex>
#include <immintrin.h>
#include <type_traits>

#include "bench/arith/scaled_loop.h"

namespace loops {
namespace {

template <class T>
T square(T x)
{
    return x * x;
}
Orv32fc square(const Orv32fc& z) { return {z.re * z.re - z.im * z.im, 2 * z.re * z.im}; }

void root_of_register(const float* src, float* dst) { _mm256_storeu_ps(dst, _mm256_sqrt_ps(_mm256_loadu_ps(src))); }
void root_of_register(const double* src, double* dst) { _mm256_storeu_pd(dst, _mm256_sqrt_pd(_mm256_loadu_pd(src))); }

} // namespace

template <class T>
void sqr(const T* __restrict src, T* __restrict dst, int n)
{
    for (int i = 0; i < n; ++i) dst[i] = square(src[i]);
}

template <class T>
void sqr_scaled(const T* __restrict src, T* __restrict dst, int n, int scale)
{
    for (int i = 0; i < n; ++i) dst[i] = scaled<T>(wide<T>(src[i]) * src[i], scale);
}

template <class T>
void sqrt(const T* __restrict src, T* __restrict dst, int n)
{
    if constexpr (std::is_floating_point_v<T>) {
        constexpr int lanes = 32 / int(sizeof(T));
        int i = 0;
        for (; i <= n - lanes; i += lanes) root_of_register(src + i, dst + i);
        for (; i < n; ++i) dst[i] = std::sqrt(src[i]);
    } else {
        for (int i = 0; i < n; ++i) {
            const auto w = std::sqrt(std::complex(src[i].re, src[i].im));
            dst[i] = {w.real(), w.imag()};
        }
    }
}

template <class S, class D>
void sqrt_scaled(const S* __restrict src, D* __restrict dst, int n, int scale)
{
    const double factor = std::ldexp(1.0, -scale);
    for (int i = 0; i < n; ++i) dst[i] = rounded<D>(std::sqrt(double(src[i])) * factor);
}

void sqrt_exact(const Orv64s* __restrict src, Orv64s* __restrict dst, int n)
{
    for (int i = 0; i < n; ++i) {
        const auto x = static_cast<Orv64u>(src[i]);
        auto root = static_cast<Orv64u>(std::sqrt(double(src[i])));
        while (root * root > x) --root;
        while (root * (root + 1) < x) ++root;
        dst[i] = static_cast<Orv64s>(root);
    }
}

void sqrt_scaled(const Orv16sc* __restrict src, Orv16sc* __restrict dst, int n, int scale)
{
    const double factor = std::ldexp(1.0, -scale);
    for (int i = 0; i < n; ++i) {
        const double re = src[i].re, im = src[i].im, modulus = std::sqrt(re * re + im * im);
        const double smaller = std::copysign(std::sqrt((modulus - re) / 2), im);
        dst[i] = {rounded<Orv16s>(std::sqrt((modulus + re) / 2) * factor), rounded<Orv16s>(smaller * factor)};
    }
}

template <class T>
void abs(const T* __restrict src, T* __restrict dst, int n)
{
    for (int i = 0; i < n; ++i) {
        if constexpr (std::is_floating_point_v<T>) dst[i] = std::fabs(src[i]);
        else dst[i] = src[i] >= 0 ? src[i] : static_cast<T>(-std::max<T>(src[i], -std::numeric_limits<T>::max()));
    }
}

template void sqr(const Orv32f*, Orv32f*, int);
template void sqr(const Orv32fc*, Orv32fc*, int);
template void sqr_scaled(const Orv16s*, Orv16s*, int, int);
template void sqrt(const Orv32f*, Orv32f*, int);
template void sqrt(const Orv64f*, Orv64f*, int);
template void sqrt(const Orv32fc*, Orv32fc*, int);
template void sqrt(const Orv64fc*, Orv64fc*, int);
template void sqrt_scaled(const Orv8u*, Orv8u*, int, int);
template void sqrt_scaled(const Orv16u*, Orv16u*, int, int);
template void sqrt_scaled(const Orv16s*, Orv16s*, int, int);
template void sqrt_scaled(const Orv32s*, Orv16s*, int, int);
template void abs(const Orv16s*, Orv16s*, int);
template void abs(const Orv32s*, Orv32s*, int);
template void abs(const Orv32f*, Orv32f*, int);

} // namespace loops
