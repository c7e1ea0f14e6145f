// A file of their own, so that no caller's constants reach the loops, and that they alone may be reordered.
#include "bench/stats/norm_loops.h"

#include <cmath>

namespace loops {

void norm_inf(const Orv32f* __restrict src, int n, Orv32f* __restrict norm)
{
    Orv32f most = 0;
    for (int i = 0; i < n; ++i) most = std::fabs(src[i]) > most ? std::fabs(src[i]) : most;
    *norm = most;
}

void norm_l1(const Orv32f* __restrict src, int n, Orv32f* __restrict norm)
{
    Orv32f sum = 0;
    for (int i = 0; i < n; ++i) sum += std::fabs(src[i]);
    *norm = sum;
}

void norm_l2(const Orv32f* __restrict src, int n, Orv32f* __restrict norm)
{
    Orv32f sum = 0;
    for (int i = 0; i < n; ++i) sum += src[i] * src[i];
    *norm = std::sqrt(sum);
}

void norm_l2(const Orv32fc* __restrict src, int n, Orv64f* __restrict norm)
{
    const auto* parts = reinterpret_cast<const Orv32f*>(src);
    Orv64f sum = 0;
    for (int i = 0; i < 2 * n; ++i) sum += Orv64f{parts[i]} * parts[i];
    *norm = std::sqrt(sum);
}

void norm_l2(const Orv16s* __restrict src, int n, Orv32f* __restrict norm)
{
    Orv64s sum = 0;
    for (int i = 0; i < n; ++i) sum += src[i] * src[i];
    *norm = static_cast<Orv32f>(std::sqrt(static_cast<Orv64f>(sum)));
}

void norm_diff_l2(const Orv32f* __restrict src1, const Orv32f* __restrict src2, int n, Orv32f* __restrict norm)
{
    Orv32f sum = 0;
    for (int i = 0; i < n; ++i) {
        const Orv32f difference = src1[i] - src2[i];
        sum += difference * difference;
    }
    *norm = std::sqrt(sum);
}

} // namespace loops
