// Sums of floating values in the orders that the interface fixes. unit is 1 for real values and 2 for complex ones,
// whose parts lie in alternate lanes, so that each part has a sum of its own; n counts parts.
#ifndef ORV_STATS_FLOAT_SUMS_H
#define ORV_STATS_FLOAT_SUMS_H

#include "frame/alignment.h"
#include "frame/reduce.h"
#include "simd/convert.h"

namespace ORV_VARIANT {

inline constexpr Orv32s hint_of_speed = 1; // any other one asks for accuracy

/// A sum a part.
template <int unit>
struct Total {
    Orv64f part[unit] = {};

    ORV_INLINE Total operator/(Orv64f x) const
    {
        Total quotient = *this;
        for (Orv64f& p : quotient.part) p /= x;
        return quotient;
    }
};

/// The parts in the lowest lanes, zeros in the others.
template <int unit>
ORV_INLINE vec<Orv64f> lowest_lanes(const Total<unit>& total)
{
    return {_mm256_setr_pd(total.part[0], unit > 1 ? total.part[unit - 1] : 0, 0, 0)};
}

/// Lanes 0 + 2 and 1 + 3, and these added if they are of one part.
template <int unit>
ORV_INLINE Total<unit> total_of(vec<Orv64f> sums)
{
    const vec<Orv64f> pair = sums + swap_halves(sums);
    if constexpr (unit == 2) return {{pair.r[0], pair.r[1]}};
    else return {{pair.r[0] + pair.r[1]}};
}

/// One after the other.
template <int unit, class T>
ORV_INLINE void add_each(const T* x, std::ptrdiff_t n, Total<unit>& total)
{
    for (std::ptrdiff_t i = 0; i < n; i += unit) {
        for (int k = 0; k < unit; ++k) total.part[k] += element_at(x + i + k);
    }
}

ORV_INLINE bool is_on_float(const Orv32f* x) { return reinterpret_cast<std::size_t>(x) % sizeof(Orv32f) == 0; }

// ---- Single precision, each value widened before it is added

/// Two vectors of sums take four values each by turns; what the elements before them came to begins the first.
template <int unit>
Total<unit> sum_widened(const Orv32f* x, std::ptrdiff_t n, std::ptrdiff_t before)
{
    Total<unit> total;
    add_each(x, before, total);
    vec<Orv64f> sums[2] = {lowest_lanes(total), splat(0.0)};
    const auto widened = [=](std::ptrdiff_t at)
                             ORV_INLINE_LAMBDA { return convert_to<Orv64f>(load<Orv32f, 4>(x + at)); };
    std::ptrdiff_t i = accumulate<4, 4>(
        before, n, [&](auto k, std::ptrdiff_t at) ORV_INLINE_LAMBDA { sums[k % 2] = sums[k % 2] + widened(at); });
    total = total_of<unit>(sums[0] + sums[1]);
    if (n - i >= 4) {
        vec<Orv64f> sum = lowest_lanes(total);
        for (; n - i >= 4; i += 4) sum = sum + widened(i);
        total = total_of<unit>(sum);
    }
    add_each(x + i, n - i, total);
    return total;
}

/// Fewer than 16 parts, and arrays between the places of floats, are added one by one; from 57 on the vectors begin at
/// a multiple of 32 bytes.
template <int unit>
Total<unit> sum_accurate(const Orv32f* x, std::ptrdiff_t n)
{
    if (n < 16 || !is_on_float(x)) {
        Total<unit> total;
        add_each(x, n, total);
        return total;
    }
    return sum_widened<unit>(x, n, n < 57 ? 0 : elements_before<unit>(32, x));
}

// ---- Single precision, with doubles for no more than every 256th sum

ORV_INLINE vec<Orv64f> widened_halves(vec<Orv32f> v)
{
    return convert_to<Orv64f>(low_half(v)) + convert_to<Orv64f>(high_half(v));
}

/// Four vectors of sums, of which each takes every fourth vector.
struct FourSums {
    vec<Orv32f> sum[4] = {splat(0.0f), splat(0.0f), splat(0.0f), splat(0.0f)};

    /// Returns where less than four vectors are left.
    ORV_INLINE std::ptrdiff_t add(const Orv32f* x, std::ptrdiff_t i, std::ptrdiff_t end)
    {
        return accumulate<4, 8>(i, end,
                                [&](auto k, std::ptrdiff_t at) ORV_INLINE_LAMBDA { sum[k] = sum[k] + load(x + at); });
    }
    ORV_INLINE vec<Orv32f> even() const { return sum[0] + sum[2]; }
    ORV_INLINE vec<Orv32f> odd() const { return sum[1] + sum[3]; }
};

template <int unit>
Total<unit> sum_fast(const Orv32f* x, std::ptrdiff_t n)
{
    if (!is_on_float(x)) return n < 16 ? sum_accurate<unit>(x, n) : sum_widened<unit>(x, n, 0);

    constexpr int block = 8192;
    std::ptrdiff_t i = elements_before<unit>(32, x);
    if (i > n) i = n;
    Orv32f before[unit] = {};
    for (std::ptrdiff_t k = 0; k < i; ++k) before[k % unit] += x[k];
    Total<unit> total;
    for (int k = 0; k < unit; ++k) total.part[k] = before[k];
    vec<Orv64f> flushed = lowest_lanes(total);

    while (n - i >= block) {
        FourSums s;
        i = s.add(x, i, i + block);
        flushed = flushed + widened_halves(s.even() + s.odd());
    }

    FourSums s;
    i = s.add(x, i, n);
    vec<Orv32f> even = s.even(), odd = s.odd();
    if ((n - i) & 16) {
        even = even + load(x + i);
        odd = odd + load(x + i + 8);
        i += 16;
    }
    vec<Orv32f> sum = even + odd;
    repeat<4>([&](auto k) ORV_INLINE_LAMBDA {
        constexpr int count = 8 >> k;
        if (!((n - i) & count)) return;
        sum = sum + load_first(x + i, count);
        i += count;
    });
    return total_of<unit>(flushed + widened_halves(sum));
}

// ---- Double precision

/// Four vectors of sums, 16 values a step, joined as (0 + 2) + (1 + 3); the rest by 8, 4, 2 and 1.
template <int unit>
Total<unit> sum_doubles(const Orv64f* x, std::ptrdiff_t n)
{
    vec<Orv64f> s[4] = {splat(0.0), splat(0.0), splat(0.0), splat(0.0)};
    std::ptrdiff_t i =
        accumulate<4, 4>(0, n, [&](auto k, std::ptrdiff_t at) ORV_INLINE_LAMBDA { s[k] = s[k] + load(x + at); });
    vec<Orv64f> even = s[0] + s[2], odd = s[1] + s[3];
    if ((n - i) & 8) {
        even = even + load(x + i);
        odd = odd + load(x + i + 4);
        i += 8;
    }
    vec<Orv64f> sum = even + odd;
    if ((n - i) & 4) {
        sum = sum + load(x + i);
        i += 4;
    }
    Total<unit> total = total_of<unit>(sum);
    if constexpr (unit == 1) {
        if ((n - i) & 2) {
            total.part[0] += element_at(x + i) + element_at(x + i + 1);
            i += 2;
        }
    }
    add_each(x + i, n - i, total);
    return total;
}

} // namespace ORV_VARIANT

#endif
