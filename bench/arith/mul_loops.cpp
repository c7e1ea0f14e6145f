// A file of their own, so that no caller's constants reach the loops.
#include "bench/arith/mul_loops.h"

#include "bench/arith/scaled_loop.h"

namespace loops {
namespace {

template <class T>
auto product(T a, T b)
{
    return wide<T>{a} * b;
}
template <class T>
requires std::is_floating_point_v<decltype(T::re)> T product(T a, T b)
{
    return {a.re * b.re - a.im * b.im, a.re * b.im + a.im * b.re};
}
/// The sum of two products of 16-bit values has one bit more than 32.
Orv64sc product(Orv16sc a, Orv16sc b) { return {Orv64s{a.re * b.re} - a.im * b.im, Orv64s{a.re * b.im} + a.im * b.re}; }

template <class T, class Wide>
T stopped(Wide x)
{
    if constexpr (std::is_same_v<T, Orv16sc>) return {saturate<Orv16s>(x.re), saturate<Orv16s>(x.im)};
    else if constexpr (std::is_class_v<T>) return x;
    else return saturate<T>(x);
}

template <class T, class Wide>
T rounded(Wide x, int scale)
{
    if constexpr (std::is_same_v<T, Orv16sc>) return {scaled<Orv16s>(x.re, scale), scaled<Orv16s>(x.im, scale)};
    else return scaled<T>(x, scale);
}

} // namespace

template <class T>
void mul(const T* __restrict src1, const T* __restrict src2, T* __restrict dst, int n)
{
    for (int i = 0; i < n; ++i) dst[i] = stopped<T>(product(src1[i], src2[i]));
}

template <class T>
void mul_scaled(const T* __restrict src1, const T* __restrict src2, T* __restrict dst, int n, int scale)
{
    for (int i = 0; i < n; ++i) dst[i] = rounded<T>(product(src1[i], src2[i]), scale);
}

template <class T>
void mulc(const T* __restrict src, T value, T* __restrict dst, int n)
{
    for (int i = 0; i < n; ++i) dst[i] = product(src[i], value);
}

void mulc_scaled(const Orv16s* __restrict src, Orv16s value, Orv16s* __restrict dst, int n, int scale)
{
    for (int i = 0; i < n; ++i) dst[i] = scaled<Orv16s>(product(src[i], value), scale);
}

void mul_real_complex(const Orv32f* __restrict src1, const Orv32fc* __restrict src2, Orv32fc* __restrict dst, int n)
{
    for (int i = 0; i < n; ++i) dst[i] = {src1[i] * src2[i].re, src1[i] * src2[i].im};
}

template void mul(const Orv16s*, const Orv16s*, Orv16s*, int);
template void mul(const Orv32f*, const Orv32f*, Orv32f*, int);
template void mul(const Orv64f*, const Orv64f*, Orv64f*, int);
template void mul(const Orv16sc*, const Orv16sc*, Orv16sc*, int);
template void mul(const Orv32fc*, const Orv32fc*, Orv32fc*, int);
template void mul(const Orv64fc*, const Orv64fc*, Orv64fc*, int);
template void mul_scaled(const Orv8u*, const Orv8u*, Orv8u*, int, int);
template void mul_scaled(const Orv16s*, const Orv16s*, Orv16s*, int, int);
template void mul_scaled(const Orv32s*, const Orv32s*, Orv32s*, int, int);
template void mul_scaled(const Orv16sc*, const Orv16sc*, Orv16sc*, int, int);
template void mulc(const Orv32f*, Orv32f, Orv32f*, int);
template void mulc(const Orv64f*, Orv64f, Orv64f*, int);
template void mulc(const Orv32fc*, Orv32fc, Orv32fc*, int);
template void mulc(const Orv64fc*, Orv64fc, Orv64fc*, int);

} // namespace loops
