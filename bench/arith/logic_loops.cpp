// A file of their own, so that no caller's constants reach the loops.
#include "bench/arith/logic_loops.h"

#include "orvs/types.h"

namespace loops {

template <class T>
void bit_and(const T* __restrict src1, const T* __restrict src2, T* __restrict dst, int n)
{
    for (int i = 0; i < n; ++i) dst[i] = static_cast<T>(src1[i] & src2[i]);
}
template <class T>
void bit_xor_with(const T* __restrict src, T value, T* __restrict dst, int n)
{
    for (int i = 0; i < n; ++i) dst[i] = static_cast<T>(src[i] ^ value);
}
template <class T>
void bit_not(const T* __restrict src, T* __restrict dst, int n)
{
    for (int i = 0; i < n; ++i) dst[i] = static_cast<T>(~src[i]);
}
template <class T>
void shift_left(const T* __restrict src, int count, T* __restrict dst, int n)
{
    for (int i = 0; i < n; ++i) dst[i] = static_cast<T>(src[i] << count);
}
template <class T>
void shift_right(const T* __restrict src, int count, T* __restrict dst, int n)
{
    for (int i = 0; i < n; ++i) dst[i] = static_cast<T>(src[i] >> count);
}

template void bit_and(const Orv8u*, const Orv8u*, Orv8u*, int);
template void bit_and(const Orv32u*, const Orv32u*, Orv32u*, int);
template void bit_xor_with(const Orv16u*, Orv16u, Orv16u*, int);
template void bit_not(const Orv8u*, Orv8u*, int);
template void shift_left(const Orv8u*, int, Orv8u*, int);
template void shift_left(const Orv32s*, int, Orv32s*, int);
template void shift_right(const Orv8u*, int, Orv8u*, int);
template void shift_right(const Orv16s*, int, Orv16s*, int);

} // namespace loops
