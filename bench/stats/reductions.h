// Rows of reductions: one vector or two become a result or several, and only reading is limited by memory.
#ifndef ORV_BENCH_STATS_REDUCTIONS_H
#define ORV_BENCH_STATS_REDUCTIONS_H

#include <cstddef>
#include <tuple>
#include <type_traits>

#include "bench/support/shapes.h"

namespace bench {

/// What an element takes besides reading it.
struct Work {
    int products_16s = 0; ///< 16-bit multiplications, whose results are added in pairs
    int widened_32f = 0;  ///< conversions of floats to doubles
};

struct Reduction : Kind {
    Work work;
};

inline Reduction stats(const char* name, Work work = {}) { return {{"stats", name}, work}; }

inline void limit_work(Row& row, const Work& work, int n)
{
    if (work.products_16s > 0) row.limit_operations<Orv16s>(2.0 * work.products_16s * n);
    if (work.widened_32f > 0) row.limit_widening(double(work.widened_32f) * n);
}

/// n elements of noise, which may be complex.
template <class T>
T* elements(Row& row, int n)
{
    if constexpr (std::is_class_v<T>) return reinterpret_cast<T*>(row.array<decltype(T::re)>(2 * n));
    else return row.array<T>(n);
}

/// f(src, n, results...), with results of the types D.
template <class T, class... D, class Ours, class... Peers>
void of_one_source(const Reduction& kind, Ours ours, Peers... peers)
{
    rows(kind.family, kind.name, kind.sizes, [=](Row& row, int n) {
        const T* src = elements<T>(row, n);
        row.limit({src}, nullptr, std::size_t(n) * sizeof(T));
        limit_work(row, kind.work, n);
        const auto entries = [&](D*... results) {
            row.ours([=] { return ours(src, n, results...); });
            (add_peer(row, peers, src, n, results...), ...);
        };
        entries(elements<D>(row, 1)...);
    });
}

/// f(src1, src2, n, result).
template <class T, class D, class Ours, class... Peers>
void of_two_sources(const Reduction& kind, Ours ours, Peers... peers)
{
    rows(kind.family, kind.name, kind.sizes, [=](Row& row, int n) {
        const T* src1 = elements<T>(row, n);
        const T* src2 = elements<T>(row, n);
        D* result = elements<D>(row, 1);
        row.limit({src1, src2}, nullptr, std::size_t(n) * sizeof(T));
        limit_work(row, kind.work, n);
        row.ours([=] { return ours(src1, src2, n, result); });
        (add_peer(row, peers, src1, src2, n, result), ...);
    });
}

} // namespace bench

#endif
