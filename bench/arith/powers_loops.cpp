// A file of their own, so that no caller's constants reach the loops.
#include "bench/arith/powers_loops.h"

#include <cmath>

#include "bench/arith/scaled_loop.h"

namespace loops {

template <class T>
void exp_scaled(const T* __restrict src, T* __restrict dst, int n, int scale)
{
    const double factor = std::ldexp(1.0, -scale);
    for (int i = 0; i < n; ++i) dst[i] = rounded<T>(std::exp(double(src[i])) * factor);
}

template <class S, class D>
void ln_scaled(const S* __restrict src, D* __restrict dst, int n, int scale)
{
    const double factor = std::ldexp(1.0, -scale);
    for (int i = 0; i < n; ++i) dst[i] = rounded<D>(std::log(double(src[i])) * factor);
}

void decibels_scaled(const Orv32s* __restrict src, Orv32s* __restrict dst, int n, int scale)
{
    const double factor = std::ldexp(10.0, -scale);
    for (int i = 0; i < n; ++i) dst[i] = rounded<Orv32s>(std::log10(double(src[i])) * factor);
}

void cbrt_scaled(const Orv32s* __restrict src, Orv16s* __restrict dst, int n, int scale)
{
    const double factor = std::ldexp(1.0, -scale);
    for (int i = 0; i < n; ++i) dst[i] = rounded<Orv16s>(std::cbrt(double(src[i])) * factor);
}

void sum_ln(const Orv16s* __restrict src, int n, Orv32f* __restrict sum)
{
    double s = 0;
    for (int i = 0; i < n; ++i) s += double(std::log(float(src[i])));
    *sum = float(s);
}

template void exp_scaled(const Orv16s*, Orv16s*, int, int);
template void exp_scaled(const Orv32s*, Orv32s*, int, int);
template void ln_scaled(const Orv16s*, Orv16s*, int, int);
template void ln_scaled(const Orv32s*, Orv16s*, int, int);
template void ln_scaled(const Orv32s*, Orv32s*, int, int);

} // namespace loops
