// sin(2 pi k / 1024) for k = 0 ... 256, and the factors exp(-2 pi i k / n) for small n, known to the compiler.
#ifndef ORV_TRANSFORM_SINE_H
#define ORV_TRANSFORM_SINE_H

#include "transform/roads.h"

namespace ORV_VARIANT {

inline constexpr int fixed_order = 10;

template <class T>
struct FixedSines {
    T value[(1 << fixed_order) / 4 + 1];
};

/// The series of the sine (first = 1) and of the cosine (first = 0), for small angles.
constexpr long double sine_series(long double x, int first)
{
    long double term = first == 1 ? x : 1, sum = term;
    for (int n = first + 2; n < first + 30; n += 2) sum += term *= -x * x / (n * (n - 1));
    return sum;
}

template <class T>
constexpr FixedSines<T> fixed_sines()
{
    constexpr int quarter = (1 << fixed_order) / 4;
    constexpr long double two_pi = 6.28318530717958647692528676655900577L;
    FixedSines<T> table = {};
    for (int k = 0; k <= quarter; ++k) {
        const bool low = 2 * k <= quarter; // the other half are cosines of the complementary angle
        const long double angle = two_pi * (low ? k : quarter - k) / (1 << fixed_order);
        table.value[k] = T(sine_series(angle, low ? 1 : 0));
    }
    return table;
}

inline constexpr FixedSines<Orv32f> fft_fix_twiddle_table_32f = fixed_sines<Orv32f>();
inline constexpr FixedSines<Orv64f> fft_fix_twiddle_table_64f = fixed_sines<Orv64f>();

template <class T>
constexpr const T* fixed_table()
{
    if constexpr (is_single<T>) {
        return fft_fix_twiddle_table_32f.value;
    } else {
        return fft_fix_twiddle_table_64f.value;
    }
}

template <class T>
struct Factor {
    T re, im;
};

/// The factors exp(-2 pi i k / n), from a table of sin(2 pi k / 2^order) for a quarter of a turn.
template <class T>
class Factors {
public:
    constexpr Factors(const T* sines, int order) : sines_(sines), turn_(std::ptrdiff_t(1) << order) {}

    /// 0 <= k < n, and n divides 2^order.
    constexpr Factor<T> at(std::ptrdiff_t k, std::ptrdiff_t n) const
    {
        const std::ptrdiff_t angle = k * (turn_ / n);
        return {sine(angle + turn_ / 4), -sine(angle)};
    }

private:
    constexpr T sine(std::ptrdiff_t angle) const
    {
        const std::ptrdiff_t half = turn_ / 2;
        if (angle >= turn_) angle -= turn_;
        return angle < half ? sine_of_half_turn(angle) : -sine_of_half_turn(angle - half);
    }
    constexpr T sine_of_half_turn(std::ptrdiff_t angle) const
    {
        return sines_[angle <= turn_ / 4 ? angle : turn_ / 2 - angle];
    }

    const T* sines_;
    std::ptrdiff_t turn_;
};

template <class T>
constexpr Factors<T> fixed_factors{fixed_table<T>(), fixed_order};

} // namespace ORV_VARIANT

#endif
