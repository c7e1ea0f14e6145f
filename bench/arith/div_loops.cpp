// A file of their own, so that no caller's constants reach the loops.
#include "bench/arith/div_loops.h"

#include <algorithm>
#include <limits>
#include <type_traits>

namespace loops {
namespace {

/// The textbook's quotient: a * conj(b) / |b|^2.
Orv32fc quotient(const Orv32fc& a, const Orv32fc& b)
{
    const float norm = b.re * b.re + b.im * b.im;
    return {(a.re * b.re + a.im * b.im) / norm, (a.im * b.re - a.re * b.im) / norm};
}
template <class T>
T quotient(T a, T b)
{
    return a / b;
}

/// Holds a dividend that is shifted left by up to 15.
template <class T>
using wide = std::conditional_t<sizeof(T) < 4, Orv32s, Orv64s>;

/// n / d by the remainder: to zero, to nearest with ties to even, or to nearest with ties away from zero.
template <class T>
T rounded(wide<T> n, wide<T> d, OrvRoundMode mode)
{
    using W = wide<T>;
    const W quotient = n / d, rest = n % d;
    const W twice = 2 * (rest < 0 ? -rest : rest), divisor = d < 0 ? -d : d;
    const bool up = twice > divisor || (twice == divisor && (mode == orvRndFinancial || (quotient & 1) != 0));
    const W away = (n < 0) == (d < 0) ? 1 : -1;
    const W nearest = mode == orvRndZero || !up ? quotient : quotient + away;
    return static_cast<T>(std::clamp<W>(nearest, std::numeric_limits<T>::min(), std::numeric_limits<T>::max()));
}

template <class T>
T scaled(wide<T> n, wide<T> d, OrvRoundMode mode, int scale)
{
    return scale < 0 ? rounded<T>(n << -scale, d, mode) : rounded<T>(n, d << scale, mode);
}

} // namespace

template <class T>
void div(const T* __restrict src1, const T* __restrict src2, T* __restrict dst, int n)
{
    for (int i = 0; i < n; ++i) dst[i] = quotient(src2[i], src1[i]);
}

template <class T>
void div_scaled(const T* __restrict src1, const T* __restrict src2, T* __restrict dst, int n, OrvRoundMode mode,
                int scale)
{
    for (int i = 0; i < n; ++i) dst[i] = scaled<T>(src2[i], src1[i], mode, scale);
}

template <class T>
void divc(const T* __restrict src, T value, T* __restrict dst, int n)
{
    for (int i = 0; i < n; ++i) dst[i] = src[i] / value;
}

template <class T>
void divc_scaled(const T* __restrict src, T value, T* __restrict dst, int n, int scale)
{
    for (int i = 0; i < n; ++i) dst[i] = scaled<T>(src[i], value, orvRndNear, scale);
}

template <class T>
void divcrev(const T* __restrict src, T value, T* __restrict dst, int n)
{
    for (int i = 0; i < n; ++i) dst[i] = value / src[i];
}

template void div(const Orv32f*, const Orv32f*, Orv32f*, int);
template void div(const Orv64f*, const Orv64f*, Orv64f*, int);
template void div(const Orv32fc*, const Orv32fc*, Orv32fc*, int);
template void div_scaled(const Orv8u*, const Orv8u*, Orv8u*, int, OrvRoundMode, int);
template void div_scaled(const Orv16u*, const Orv16u*, Orv16u*, int, OrvRoundMode, int);
template void div_scaled(const Orv16s*, const Orv16s*, Orv16s*, int, OrvRoundMode, int);
template void div_scaled(const Orv32s*, const Orv32s*, Orv32s*, int, OrvRoundMode, int);
template void divc(const Orv32f*, Orv32f, Orv32f*, int);
template void divc_scaled(const Orv16s*, Orv16s, Orv16s*, int, int);
template void divcrev(const Orv32f*, Orv32f, Orv32f*, int);

} // namespace loops
