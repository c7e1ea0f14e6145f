// A file of their own, so that no caller's constants reach the loops.
#include "bench/arith/add_loops.h"

#include "bench/arith/scaled_loop.h"
#include "orvs/types.h"

namespace loops {

template <class T>
void add(const T* __restrict src1, const T* __restrict src2, T* __restrict dst, int n)
{
    for (int i = 0; i < n; ++i) dst[i] = saturate<T>(wide<T>{src1[i]} + src2[i]);
}

template <class T>
void sub(const T* __restrict src1, const T* __restrict src2, T* __restrict dst, int n)
{
    for (int i = 0; i < n; ++i) dst[i] = saturate<T>(wide<T>{src2[i]} - src1[i]);
}

template <class T>
void addc(const T* __restrict src, T value, T* __restrict dst, int n)
{
    for (int i = 0; i < n; ++i) dst[i] = saturate<T>(wide<T>{src[i]} + value);
}

template <class T>
void add_scaled(const T* __restrict src1, const T* __restrict src2, T* __restrict dst, int n, int scale)
{
    for (int i = 0; i < n; ++i) dst[i] = scaled<T>(wide<T>{src1[i]} + src2[i], scale);
}

template <class T>
void sub_scaled(const T* __restrict src1, const T* __restrict src2, T* __restrict dst, int n, int scale)
{
    for (int i = 0; i < n; ++i) dst[i] = scaled<T>(wide<T>{src2[i]} - src1[i], scale);
}

template <class T>
void addc_scaled(const T* __restrict src, T value, T* __restrict dst, int n, int scale)
{
    for (int i = 0; i < n; ++i) dst[i] = scaled<T>(wide<T>{src[i]} + value, scale);
}

template <class T>
void addproduct(const T* __restrict src1, const T* __restrict src2, T* __restrict srcDst, int n)
{
    for (int i = 0; i < n; ++i) srcDst[i] += src1[i] * src2[i];
}

template void add(const Orv8u*, const Orv8u*, Orv8u*, int);
template void add(const Orv16s*, const Orv16s*, Orv16s*, int);
template void add(const Orv32s*, const Orv32s*, Orv32s*, int);
template void add(const Orv32f*, const Orv32f*, Orv32f*, int);
template void add(const Orv64f*, const Orv64f*, Orv64f*, int);
template void sub(const Orv8u*, const Orv8u*, Orv8u*, int);
template void sub(const Orv16s*, const Orv16s*, Orv16s*, int);
template void sub(const Orv32s*, const Orv32s*, Orv32s*, int);
template void sub(const Orv32f*, const Orv32f*, Orv32f*, int);
template void sub(const Orv64f*, const Orv64f*, Orv64f*, int);
template void addc(const Orv8u*, Orv8u, Orv8u*, int);
template void addc(const Orv16s*, Orv16s, Orv16s*, int);
template void addc(const Orv32s*, Orv32s, Orv32s*, int);
template void addc(const Orv32f*, Orv32f, Orv32f*, int);
template void addc(const Orv64f*, Orv64f, Orv64f*, int);
template void add_scaled(const Orv8u*, const Orv8u*, Orv8u*, int, int);
template void add_scaled(const Orv16s*, const Orv16s*, Orv16s*, int, int);
template void add_scaled(const Orv32s*, const Orv32s*, Orv32s*, int, int);
template void sub_scaled(const Orv8u*, const Orv8u*, Orv8u*, int, int);
template void sub_scaled(const Orv16s*, const Orv16s*, Orv16s*, int, int);
template void sub_scaled(const Orv32s*, const Orv32s*, Orv32s*, int, int);
template void addc_scaled(const Orv8u*, Orv8u, Orv8u*, int, int);
template void addc_scaled(const Orv16s*, Orv16s, Orv16s*, int, int);
template void addc_scaled(const Orv32s*, Orv32s, Orv32s*, int, int);
template void addproduct(const Orv32f*, const Orv32f*, Orv32f*, int);
template void addproduct(const Orv64f*, const Orv64f*, Orv64f*, int);

} // namespace loops
