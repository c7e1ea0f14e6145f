// Sums of values and of their squares, in the orders that the interface fixes.
#ifndef ORV_STATS_MOMENTS_H
#define ORV_STATS_MOMENTS_H

#include <algorithm>

#include "stats/float_sums.h"
#include "stats/integer_sums.h"

namespace ORV_VARIANT {

template <class T>
struct Moments {
    T sum = 0, squares = 0;

    ORV_INLINE void add(T x)
    {
        sum += x;
        squares += x * x;
    }
};

/// The same in lanes.
template <class T>
struct MomentLanes {
    vec<T> sum = splat(T(0)), squares = sum;

    ORV_INLINE void add(vec<T> x)
    {
        sum = sum + x;
        squares = squares + x * x;
    }
    ORV_INLINE void join(const MomentLanes& other)
    {
        sum = sum + other.sum;
        squares = squares + other.squares;
    }
};

ORV_INLINE MomentLanes<Orv64f> lowest_lanes(const Moments<Orv64f>& m)
{
    return {lowest_lanes(Total<1>{{m.sum}}), lowest_lanes(Total<1>{{m.squares}})};
}
ORV_INLINE Moments<Orv64f> moments_of(const MomentLanes<Orv64f>& m)
{
    return {total_of<1>(m.sum).part[0], total_of<1>(m.squares).part[0]};
}

/// One after the other, in double precision.
template <class T>
ORV_INLINE Moments<Orv64f> add_each(const T* x, std::ptrdiff_t n)
{
    Moments<Orv64f> m;
    for (std::ptrdiff_t i = 0; i < n; ++i) m.add(element_at(x + i));
    return m;
}

/// Each value widened before it is added: up to three one by one to a multiple of 16 bytes, then eight a step, in two
/// vectors by turns; the rest by 4, 2 and 1.
inline Moments<Orv64f> moments_accurate(const Orv32f* x, std::ptrdiff_t n)
{
    const std::ptrdiff_t before = std::min(elements_before(16, x), n);
    const auto widened = [=](std::ptrdiff_t at)
                             ORV_INLINE_LAMBDA { return convert_to<Orv64f>(load<Orv32f, 4>(x + at)); };
    MomentLanes<Orv64f> lanes[2] = {lowest_lanes(add_each(x, before))};
    std::ptrdiff_t i =
        accumulate<2, 4>(before, n, [&](auto k, std::ptrdiff_t at) ORV_INLINE_LAMBDA { lanes[k].add(widened(at)); });
    lanes[0].join(lanes[1]);
    if (n - i >= 4) {
        lanes[0].add(widened(i));
        i += 4;
    }
    Moments<Orv64f> m = moments_of(lanes[0]);
    for (; i < n; ++i) m.add(element_at(x + i));
    return m;
}

/// In single precision up to 8192 values, which then go to doubles; up to seven in double precision to a multiple of 32
/// bytes before them. Sixteen a step, in two vectors by turns; the rest by 8, 4, 2 and 1.
inline Moments<Orv64f> moments_fast(const Orv32f* x, std::ptrdiff_t n)
{
    constexpr int block = 8192;
    std::ptrdiff_t i = std::min(elements_before(32, x), n);
    MomentLanes<Orv64f> flushed = lowest_lanes(add_each(x, i));
    const auto flush = [&](const MomentLanes<Orv32f>& m) ORV_INLINE_LAMBDA {
        flushed.join({widened_halves(m.sum), widened_halves(m.squares)});
    };
    const auto add = [=](MomentLanes<Orv32f>(&lanes)[2], std::ptrdiff_t from, std::ptrdiff_t to) ORV_INLINE_LAMBDA {
        const std::ptrdiff_t at = accumulate<2, 8>(
            from, to, [&](auto k, std::ptrdiff_t place) ORV_INLINE_LAMBDA { lanes[k].add(load(x + place)); });
        lanes[0].join(lanes[1]);
        return at;
    };
    while (n - i >= block) {
        MomentLanes<Orv32f> lanes[2];
        i = add(lanes, i, i + block);
        flush(lanes[0]);
    }
    MomentLanes<Orv32f> lanes[2];
    i = add(lanes, i, n);
    for (const int count : {8, 4, 2, 1}) {
        if (!((n - i) & count)) continue;
        lanes[0].add(load_first(x + i, count));
        i += count;
    }
    flush(lanes[0]);
    return moments_of(flushed);
}

/// One by itself to a multiple of 16 bytes, then eight values a step in four sums of two lanes each, joined as (0 + 2)
/// + (1 + 3); the rest by 4, 2 and 1.
inline Moments<Orv64f> moments_of_doubles(const Orv64f* x, std::ptrdiff_t n)
{
    const std::ptrdiff_t before = std::min(elements_before(16, x), n);
    MomentLanes<Orv64f> lanes[2] = {lowest_lanes(add_each(x, before))}; // two of the four each
    std::ptrdiff_t i =
        accumulate<2, 4>(before, n, [&](auto k, std::ptrdiff_t at) ORV_INLINE_LAMBDA { lanes[k].add(load(x + at)); });
    lanes[0].join(lanes[1]);
    lanes[0].join({swap_halves(lanes[0].sum), swap_halves(lanes[0].squares)});
    MomentLanes<Orv64f> pair = lanes[0]; // in the lower two lanes
    for (; n - i >= 2; i += 2) pair.add({_mm256_castpd128_pd256(_mm_loadu_pd(x + i))});
    Moments<Orv64f> m = {pair.sum.r[0] + pair.sum.r[1], pair.squares.r[0] + pair.squares.r[1]};
    if (i < n) m.add(element_at(x + i));
    return m;
}

/// 16-bit values, exact.
struct IntegerMoments {
    static constexpr int lanes = 16;
    ValueSums sum;
    SquareSums squares;

    ORV_INLINE void add(vec<Orv16s> x)
    {
        sum.add(x);
        squares.add(x);
    }
    ORV_INLINE even_odd<Orv64s> totals(int steps) const { return {sum.totals(steps), squares.totals(steps)}; }
};
inline Moments<Orv64s> exact_moments(const Orv16s* x, std::ptrdiff_t n)
{
    const auto totals = exact_totals<IntegerMoments>(n, x);
    return {sum_of_lanes(totals.even), sum_of_lanes(totals.odd)};
}

} // namespace ORV_VARIANT

#endif
