// A file of their own, so that no caller's constants reach the loops, and that they alone may be reordered.
#include "bench/stats/sum_loops.h"

#include <cmath>

#include "bench/arith/scaled_loop.h"

namespace loops {

template <class S, class T, class D>
void sum(const T* __restrict src, int n, D* __restrict result)
{
    S s = 0;
    for (int i = 0; i < n; ++i) s += src[i];
    if constexpr (std::is_integral_v<D>) *result = saturate<D, S>(s);
    else *result = static_cast<D>(s);
}

template <class S, class T>
void mean(const T* __restrict src, int n, T* __restrict result)
{
    S s = 0;
    for (int i = 0; i < n; ++i) s += src[i];
    if constexpr (std::is_integral_v<T>) *result = rounded<T>(double(s) / n);
    else *result = static_cast<T>(double(s) / n);
}

void sum_complex(const Orv32fc* __restrict src, int n, Orv32fc* __restrict result)
{
    Orv32f re = 0, im = 0;
    for (int i = 0; i < n; ++i) {
        re += src[i].re;
        im += src[i].im;
    }
    *result = {re, im};
}

template <class S, class T, class D>
void mean_deviation(const T* __restrict src, int n, D* __restrict mean, D* __restrict deviation)
{
    S s = 0, q = 0;
    for (int i = 0; i < n; ++i) {
        s += src[i];
        q += wide<T>{src[i]} * src[i];
    }
    const double sum = double(s), squares = double(q), variance = (n * squares - sum * sum) / (double(n) * (n - 1));
    const double root = variance > 0 ? std::sqrt(variance) : 0;
    if constexpr (std::is_integral_v<D>) {
        *deviation = rounded<D>(root);
        if (mean) *mean = rounded<D>(sum / n);
    } else {
        *deviation = static_cast<D>(root);
        if (mean) *mean = static_cast<D>(sum / n);
    }
}

template void sum<Orv32f>(const Orv32f*, int, Orv32f*);
template void sum<Orv64f>(const Orv32f*, int, Orv32f*);
template void sum<Orv64f>(const Orv64f*, int, Orv64f*);
template void sum<Orv64s>(const Orv16s*, int, Orv32s*);
template void sum<Orv64s>(const Orv32s*, int, Orv32s*);
template void mean<Orv32f>(const Orv32f*, int, Orv32f*);
template void mean<Orv64f>(const Orv64f*, int, Orv64f*);
template void mean<Orv64s>(const Orv16s*, int, Orv16s*);
template void mean<Orv64s>(const Orv32s*, int, Orv32s*);
template void mean_deviation<Orv32f>(const Orv32f*, int, Orv32f*, Orv32f*);
template void mean_deviation<Orv64f>(const Orv32f*, int, Orv32f*, Orv32f*);
template void mean_deviation<Orv64f>(const Orv64f*, int, Orv64f*, Orv64f*);
template void mean_deviation<Orv64s>(const Orv16s*, int, Orv32s*, Orv32s*);

} // namespace loops
