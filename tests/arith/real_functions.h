// Real functions of integers under the law of scale factors: f(x) * 2^-scale, rounded to nearest with ties to even,
// then saturated. A long double decides nearly always; where it might err, integers of 256 bits do.
#pragma once

#include "tests/support/wide.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <vector>

namespace orvtest {

// ---- The exponential function exactly

/// A positive number: mantissa * 2^(exponent - bits), the mantissa near 2^bits.
struct FixedPoint {
    static constexpr int bits = 110;

    Wide mantissa;
    std::int64_t exponent;
};

/// Arguments have so many bits behind the point.
constexpr int argument_bits = 150;

/// The 192 bits behind the point of a number below 1, in three words, as an argument.
constexpr Wide argument_of_words(std::uint64_t first, std::uint64_t second, std::uint64_t third)
{
    return ((Wide(first) << 128) + (Wide(second) << 64) + Wide(third)) >> (192 - argument_bits);
}
constexpr Wide ln_2 = argument_of_words(0xB17217F7D1CF79AB, 0xC9E3B39803F2F6AF, 0x40F343267298B62D);
constexpr Wide tenth_of_ln_10 = argument_of_words(0x3AF238BF111044D5, 0xF755EF449ABAD0DD, 0x276CC530BDBF306C);

/// 1 / k in units of 2^-bits, by long division.
constexpr Wide reciprocal(unsigned k, int bits)
{
    Wide quotient;
    unsigned rest = 1;
    for (int i = 0; i < bits; ++i) {
        rest *= 2;
        quotient = quotient + quotient + Wide(rest / k);
        rest %= k;
    }
    return quotient;
}

/// e^(t * 2^-argument_bits) to 2^-100 of it, by the series, for magnitudes up to 2^32.
inline FixedPoint exponential(const Wide& t)
{
    constexpr int bits = FixedPoint::bits, terms = 30;
    static const std::vector<Wide> reciprocals = [] {
        std::vector<Wide> table = {0, Wide(1) << bits};
        for (unsigned k = 2; k <= terms; ++k) table.push_back(reciprocal(k, bits));
        return table;
    }();
    const auto coarse = static_cast<std::int64_t>((t >> (argument_bits - 22)).low64());
    const auto n = std::llround(static_cast<double>(coarse) * 0x1p-22 / 0.6931471805599453);
    const Wide r = (t - ln_2 * n) >> (argument_bits - bits); // |r| <= ln 2 / 2, nearly
    const Wide one = Wide(1) << bits;
    Wide series = one;
    for (std::size_t k = terms; k > 0; --k) series = one + (((r * series >> bits) * reciprocals[k]) >> bits);
    return {series, n};
}

/// The sign of e - factor * 2^exponent; both are of about the same size, and equal only if e is exactly 1.
inline int compare(const FixedPoint& e, const Wide& factor, std::int64_t exponent)
{
    const std::int64_t shift = exponent - e.exponent + FixedPoint::bits;
    if (shift < 0 || shift > FixedPoint::bits + 4) {
        ADD_FAILURE() << "the oracle compares numbers that are far apart";
        return 0;
    }
    const Wide other = factor << static_cast<int>(shift), difference = e.mantissa - other;
    const Wide size = difference.negative() ? -difference : difference;
    if (size == 0 && e.exponent == 0 && e.mantissa == Wide(1) << FixedPoint::bits) return 0;
    EXPECT_GT(size, Wide(1) << (FixedPoint::bits - 98)) << "the oracle cannot decide";
    return difference.negative() ? -1 : 1;
}

// ---- Functions
//
// scaled(x, scale) is f(x) * 2^-scale with an error below 2^-61 of it; compare(x, factor, exponent) is the sign of
// f(x) - factor * 2^exponent, where both are nearly equal.

/// y * 2^-scale, far beyond all limits where the scale is extreme; y from 0 to 2^31.
inline long double scale_down(long double y, int scale)
{
    return std::scalbn(y, static_cast<int>(std::clamp<std::int64_t>(-std::int64_t{scale}, -8000, 8000)));
}

class Exponential {
public:
    long double scaled(std::int64_t x, int scale) const
    {
        const double log_2 = static_cast<double>(x) * 1.4426950408889634 - scale;
        if (log_2 < -4) return 0.01L;
        if (log_2 > 70) return 0x1p70L;
        if (std::abs(x) < 11000 && std::abs(std::int64_t{scale}) < 16000)
            return std::scalbn(std::exp(static_cast<long double>(x)), -scale);
        const FixedPoint& e = of(x);
        const auto upper = static_cast<long double>((e.mantissa >> (FixedPoint::bits - 63)).low64());
        return std::scalbn(upper, static_cast<int>(e.exponent - scale - 63));
    }
    int compare(std::int64_t x, const Wide& factor, std::int64_t exponent) const
    {
        return orvtest::compare(of(x), factor, exponent);
    }

private:
    /// The last one is kept.
    const FixedPoint& of(std::int64_t x) const
    {
        if (x != x_) {
            x_ = x;
            e_ = exponential(Wide(x) << argument_bits);
        }
        return e_;
    }

    mutable std::int64_t x_ = 0;
    mutable FixedPoint e_ = {Wide(1) << FixedPoint::bits, 0};
};

/// factor * 2^(exponent + argument_bits); the exponent is not below -argument_bits.
inline Wide argument(const Wide& factor, std::int64_t exponent)
{
    return factor << static_cast<int>(exponent + argument_bits);
}

/// Of positive numbers.
struct NaturalLogarithm {
    long double scaled(std::int64_t x, int scale) const
    {
        return scale_down(std::log(static_cast<long double>(x)), scale);
    }
    int compare(std::int64_t x, const Wide& factor, std::int64_t exponent) const
    {
        return -orvtest::compare(exponential(argument(factor, exponent)), Wide(x), 0);
    }
};

/// 10 log10 x of positive numbers.
struct Decibels {
    long double scaled(std::int64_t x, int scale) const
    {
        return scale_down(10 * std::log10(static_cast<long double>(x)), scale);
    }
    int compare(std::int64_t x, const Wide& factor, std::int64_t exponent) const
    {
        if (const int whole = exactly(x); whole >= 0) {
            const int shift = static_cast<int>(std::abs(exponent));
            const Wide decibels = Wide(whole) << (exponent < 0 ? shift : 0),
                       other = factor << (exponent > 0 ? shift : 0);
            return decibels < other ? -1 : decibels == other ? 0 : 1;
        }
        // x is compared with 10^(y / 10) = e^(y * ln 10 / 10).
        const Wide t = exponent < 0 ? (factor * tenth_of_ln_10) >> static_cast<int>(-exponent)
                                    : (factor * tenth_of_ln_10) << static_cast<int>(exponent);
        return -orvtest::compare(exponential(t), Wide(x), 0);
    }

private:
    /// Of a power of ten; -1 of any other number.
    static int exactly(std::int64_t x)
    {
        int whole = 0;
        for (; x % 10 == 0; x /= 10) whole += 10;
        return x == 1 ? whole : -1;
    }
};

/// With its sign.
struct CubeRoot {
    long double scaled(std::int64_t x, int scale) const
    {
        return scale_down(std::cbrt(static_cast<long double>(x)), scale);
    }
    int compare(std::int64_t x, const Wide& factor, std::int64_t exponent) const
    {
        const int shift = static_cast<int>(3 * std::abs(exponent));
        const Wide cube = (factor * factor * factor) << (exponent > 0 ? shift : 0);
        const Wide argument = Wide(x) << (exponent < 0 ? shift : 0);
        return argument < cube ? -1 : argument == cube ? 0 : 1;
    }
};

// ---- The law

/// f(x) * 2^-scale to the nearest R.
template <std::signed_integral R, class Function>
R nearest(const Function& f, std::int64_t x, int scale)
{
    constexpr R lowest = std::numeric_limits<R>::min(), highest = std::numeric_limits<R>::max();
    const long double y = f.scaled(x, scale), error = std::fabs(y) * 0x1p-59L;
    if (y - error >= highest) return highest;
    if (y + error <= lowest) return lowest;
    // It is at least this; upwards as long as f(x) lies beyond the middle of two.
    auto n = static_cast<std::int64_t>(std::ceil(y - error - 0.5L));
    for (; n < highest && static_cast<long double>(n) + 0.5L <= y + error; ++n) {
        const int order = f.compare(x, Wide(n) * 2 + 1, std::int64_t{scale} - 1);
        if (order == 0) n += n % 2 != 0;
        if (order <= 0) break;
    }
    return static_cast<R>(std::clamp<std::int64_t>(n, lowest, highest));
}

} // namespace orvtest
