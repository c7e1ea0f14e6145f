// A file of their own, so that no caller's constants reach the loops, and that they alone may be reordered.
#include "bench/stats/min_max_loops.h"

#include <algorithm>
#include <bit>
#include <cstdlib>

namespace loops {
namespace {

/// From the distance to the end, which compilers make vectors of.
template <class T>
int first_place(const T* src, int n, T value)
{
    int longest = 0;
    for (int i = 0; i < n; ++i) {
        const int distance = src[i] == value ? n - i : 0;
        longest = distance > longest ? distance : longest;
    }
    return n - longest;
}

} // namespace

template <class T>
void max(const T* __restrict src, int n, T* __restrict max)
{
    T most = src[0];
    for (int i = 1; i < n; ++i) most = src[i] > most ? src[i] : most;
    *max = most;
}

void max_abs(const Orv16s* __restrict src, int n, Orv16s* __restrict max_abs)
{
    Orv16s least = 0, most = 0;
    for (int i = 0; i < n; ++i) {
        least = std::min(least, src[i]);
        most = std::max(most, src[i]);
    }
    *max_abs = static_cast<Orv16s>(std::min(32767, std::max(-int{least}, int{most})));
}

template <class T>
void min_max(const T* __restrict src, int n, T* __restrict min, T* __restrict max)
{
    T least = src[0], most = src[0];
    for (int i = 1; i < n; ++i) {
        least = src[i] < least ? src[i] : least;
        most = src[i] > most ? src[i] : most;
    }
    *min = least;
    *max = most;
}

template <class T>
void max_index(const T* __restrict src, int n, T* __restrict max, Orv32s* __restrict index)
{
    loops::max(src, n, max);
    *index = first_place(src, n, *max);
}

void min_max_index(const Orv32f* __restrict src, int n, Orv32f* __restrict min, Orv32s* __restrict min_index,
                   Orv32f* __restrict max, Orv32s* __restrict max_index)
{
    min_max(src, n, min, max);
    *min_index = first_place(src, n, *min);
    *max_index = first_place(src, n, *max);
}

void min_every(const Orv8u* __restrict src1, const Orv8u* __restrict src2, Orv8u* __restrict dst, int n)
{
    for (int i = 0; i < n; ++i) dst[i] = src1[i] < src2[i] ? src1[i] : src2[i];
}
void max_every(const Orv32f* __restrict src1, const Orv32f* __restrict src2, Orv32f* __restrict dst, int n)
{
    for (int i = 0; i < n; ++i) dst[i] = src1[i] > src2[i] ? src1[i] : src2[i];
}

void max_order(const Orv16s* __restrict src, int n, Orv32s* __restrict order)
{
    Orv16s least = 0, most = 0;
    min_max(src, n, &least, &most);
    *order = Orv32s(std::bit_width(unsigned(std::abs(int{least}) | std::abs(int{most}))));
}
void max_order(const Orv32f* __restrict src, int n, Orv32s* __restrict order)
{
    Orv32s most = 0;
    for (int i = 0; i < n; ++i) most = std::max(most, std::bit_cast<Orv32s>(src[i]) & 0x7fffffff);
    *order = most == 0 ? 0 : (most >> 23) - 126;
}

template void max(const Orv16s*, int, Orv16s*);
template void max(const Orv32s*, int, Orv32s*);
template void max(const Orv32f*, int, Orv32f*);
template void max(const Orv64f*, int, Orv64f*);
template void min_max(const Orv8u*, int, Orv8u*, Orv8u*);
template void min_max(const Orv16s*, int, Orv16s*, Orv16s*);
template void min_max(const Orv32f*, int, Orv32f*, Orv32f*);
template void max_index(const Orv16s*, int, Orv16s*, Orv32s*);
template void max_index(const Orv32f*, int, Orv32f*, Orv32s*);
template void max_index(const Orv64f*, int, Orv64f*, Orv32s*);

} // namespace loops
