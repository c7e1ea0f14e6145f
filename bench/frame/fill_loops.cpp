// A file of their own, so that no caller's constants reach the loops. bench/CMakeLists.txt keeps the compiler from
// replacing them by calls of memcpy and memset, which have entries of their own.
#include "bench/frame/fill_loops.h"

namespace loops {

void copy(const Orv8u* __restrict src, Orv8u* __restrict dst, int n)
{
    for (int i = 0; i < n; ++i) dst[i] = src[i];
}

void set(Orv32f value, Orv32f* __restrict dst, int n)
{
    for (int i = 0; i < n; ++i) dst[i] = value;
}

void zero(Orv8u* __restrict dst, int n)
{
    for (int i = 0; i < n; ++i) dst[i] = 0;
}

} // namespace loops
