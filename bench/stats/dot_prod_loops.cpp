// A file of their own, so that no caller's constants reach the loops, and that they alone may be reordered.
#include "bench/stats/dot_prod_loops.h"

#include <cmath>

#include "bench/arith/scaled_loop.h"

namespace loops {
namespace {

/// Of 16-bit numbers in 32 bits, where it fits.
template <class Wide, class T>
Wide product(T a, T b)
{
    if constexpr (sizeof(T) == 2) return a * b;
    else return Wide{a} * Wide{b};
}

} // namespace

template <class T, class D>
void dot(const T* __restrict src1, const T* __restrict src2, int n, D* __restrict dp)
{
    D sum = 0;
    for (int i = 0; i < n; ++i) sum += product<D>(src1[i], src2[i]);
    *dp = sum;
}

template <class T, class D>
void dot_complex(const T* __restrict src1, const T* __restrict src2, int n, D* __restrict dp)
{
    using Wide = decltype(D::re);
    Wide re = 0, im = 0;
    for (int i = 0; i < n; ++i) {
        re += product<Wide>(src1[i].re, src2[i].re) - product<Wide>(src1[i].im, src2[i].im);
        im += product<Wide>(src1[i].re, src2[i].im) + product<Wide>(src1[i].im, src2[i].re);
    }
    *dp = {re, im};
}

void dot_scaled(const Orv32s* __restrict src1, const Orv32s* __restrict src2, int n, Orv32s* __restrict dp, int scale)
{
    Orv64f sum = 0;
    for (int i = 0; i < n; ++i) sum += Orv64f(src1[i]) * src2[i];
    *dp = rounded<Orv32s>(std::ldexp(sum, -scale));
}

template void dot(const Orv32f*, const Orv32f*, int, Orv32f*);
template void dot(const Orv64f*, const Orv64f*, int, Orv64f*);
template void dot(const Orv32f*, const Orv32f*, int, Orv64f*);
template void dot(const Orv16s*, const Orv16s*, int, Orv64s*);
template void dot_complex(const Orv32fc*, const Orv32fc*, int, Orv32fc*);
template void dot_complex(const Orv32fc*, const Orv32fc*, int, Orv64fc*);
template void dot_complex(const Orv16sc*, const Orv16sc*, int, Orv64sc*);

} // namespace loops
