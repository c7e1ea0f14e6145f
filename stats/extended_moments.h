// Mean and deviation of floats in the processor's extended precision, at the speed of double precision.
//
// What the caller gets is defined by steps of 64 bits of fraction, one value after the other, which take a few cycles
// each. Two more roads lead to the same bits nearly always: sums in double precision and a bound of how far they may be
// from those of the steps. Every operation behind the sums grows or falls with each of them, also when it rounds: if
// both ends of the bounds lead to the same floats, so do the steps (A. Ziv, "Fast evaluation of elementary mathematical
// functions with correctly rounded last bit", 1991, has the idea). Otherwise the steps are taken.
#ifndef ORV_STATS_EXTENDED_MOMENTS_H
#define ORV_STATS_EXTENDED_MOMENTS_H

#include <optional>

#include "frame/float_state.h"
#include "stats/moments.h"

namespace ORV_VARIANT {

// ---- The steps

/// sqrt((n * squares - sum^2) / (n * (n - 1))), and 0 where rounding makes the difference negative.
inline long double deviation(const Moments<long double>& m, int len)
{
    const long double n = len, above = n * m.squares - m.sum * m.sum;
    return above < 0 ? 0 : __builtin_sqrtl(above / (n * (n - 1))); // a not-a-number stays one
}

/// Elements of even and of odd place apart, four a step; the rest one by one.
inline Moments<long double> extended_moments(const Orv32f* x, int n)
{
    Moments<long double> even, odd;
    int i = 0;
    for (; i + 4 <= n; i += 4) {
        even.add(element_at(x + i));
        odd.add(element_at(x + i + 1));
        even.add(element_at(x + i + 2));
        odd.add(element_at(x + i + 3));
    }
    Moments<long double> m = {even.sum + odd.sum, even.squares + odd.squares};
    for (; i < n; ++i) m.add(element_at(x + i));
    return m;
}

// ---- The short road

/// A sum of doubles whose rounding errors are summed as well (D. E. Knuth, The Art of Computer Programming, volume 2,
/// 4.2.2).
struct CompensatedLanes {
    vec<Orv64f> sum = splat(0.0), error = sum;

    ORV_INLINE void add(vec<Orv64f> x)
    {
        const vec<Orv64f> total = sum + x, added = total - sum;
        error = error + ((sum - (total - added)) + (x - added));
        sum = total;
    }
    ORV_INLINE long double total() const
    {
        long double all = 0;
        for (int k = 0; k < 4; ++k) all += (long double)sum.r[k] + error.r[k];
        return all;
    }
};

/// A sum as an interval.
struct Bounds {
    long double least, most;
};

/// Of both sums of the steps.
struct MomentBounds {
    Bounds sum, squares;

    /// Neither an overflow nor a not-a-number, nor values that are lost where the caller has set subnormals to zero.
    bool are_certain(long double n) const
    {
        if (!(squares.most <= 0x1p250L)) return false;
        return squares.least > n * n * 0x1p-140L || !(read_control_word() & FloatState<>::subnormals_are_zero);
    }
};

inline MomentBounds bound_moments(const Orv32f* x, int n)
{
    // Each lane takes run values before its sum goes to the compensated ones. 32-bit code has registers for three
    // chains.
    constexpr int chains = sizeof(void*) == 8 ? 4 : 3, run = 64, block = chains * 4 * run;
    CompensatedLanes sum, squares;
    const auto widened = [=](std::ptrdiff_t at)
                             ORV_INLINE_LAMBDA { return convert_to<Orv64f>(load<Orv32f, 4>(x + at)); };
    for (std::ptrdiff_t i = 0; i < n;) {
        const std::ptrdiff_t end = n - i < block ? n : i + block;
        MomentLanes<Orv64f> lanes[chains];
        const auto take = [&](auto k, std::ptrdiff_t at) ORV_INLINE_LAMBDA {
            const vec<Orv64f> value = widened(at);
            lanes[k].sum = lanes[k].sum + value;
            lanes[k].squares = fma(value, value, lanes[k].squares); // the square is exact
        };
        i = accumulate<chains, 4>(i, end, take);
        i = accumulate<1, 4>(i, end, take);
        if (i < end) lanes[1].add(convert_to<Orv64f>(load_first<Orv32f, 4>(x + i, int(end - i))));
        i = end;
        join_chains(lanes);
        sum.add(lanes[0].sum);
        squares.add(lanes[0].squares);
    }
    // Relative to the sum of magnitudes: at most run + 8 additions of doubles, in any rounding, and what the
    // compensation leaves; then the n additions of the steps.
    const long double s = sum.total(), q = squares.total(), most = q > 0 ? __builtin_sqrtl(q * n) : 0;
    const long double relative = (run + 8) * 0x1p-52L + n * 0x1p-63L;
    const long double s_error = 1.02L * relative * most, q_error = 1.02L * relative * q;
    return {{s - s_error, s + s_error}, {q - q_error, q + q_error}};
}

// ---- Both

struct MeanDeviation {
    Orv32f mean, deviation;

    ORV_INLINE bool operator==(const MeanDeviation& other) const
    {
        return std::bit_cast<Orv64u>(*this) == std::bit_cast<Orv64u>(other);
    }
};
ORV_INLINE MeanDeviation narrowed(long double sum, const Moments<long double>& m, int len)
{
    return {Orv32f(sum / len), Orv32f(deviation(m, len))};
}

/// What both ends of the bounds lead to, if that is the same.
inline std::optional<MeanDeviation> certain_mean_deviation(const MomentBounds& bounds, int n)
{
    if (!bounds.are_certain(n)) return std::nullopt;
    const auto [sum, squares] = bounds;
    const long double nearest = sum.least > 0 ? sum.least : sum.most < 0 ? sum.most : 0;
    const long double farthest = -sum.least > sum.most ? sum.least : sum.most;
    const MeanDeviation low = narrowed(sum.least, {farthest, squares.least}, n);
    const MeanDeviation high = narrowed(sum.most, {nearest, squares.most}, n);
    return low == high ? std::optional(low) : std::nullopt;
}

inline MeanDeviation mean_deviation(const Orv32f* x, int n)
{
    if (n >= 128) { // below, the steps take no longer
        if (const auto certain = certain_mean_deviation(bound_moments(x, n), n)) return *certain;
    }
    const Moments<long double> m = extended_moments(x, n);
    return narrowed(m.sum, m, n);
}

} // namespace ORV_VARIANT

#endif
