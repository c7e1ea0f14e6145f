#include "tests/stats/float_sums.h"

#include <cmath>
#include <initializer_list>

namespace orvtest {
namespace {

constexpr std::size_t block = 8192; // values between two flushes of single-precision sums

/// Vectors of 32 bytes.
template <class T>
struct Lanes {
    static constexpr std::size_t count = 32 / sizeof(T);
    T lane[count] = {};

    /// Adds some values to the lowest lanes.
    template <class S>
    void add(const S* x, std::size_t n = count)
    {
        for (std::size_t k = 0; k < n; ++k) lane[k] += static_cast<T>(x[k]);
    }
    /// The same of squares, each computed in the type of the lanes.
    template <class S>
    void add_squares(const S* x, std::size_t n = count)
    {
        for (std::size_t k = 0; k < n; ++k) {
            const T square = static_cast<T>(x[k]) * static_cast<T>(x[k]);
            lane[k] += square;
        }
    }
    friend Lanes operator+(const Lanes& a, const Lanes& b)
    {
        Lanes sum;
        for (std::size_t k = 0; k < count; ++k) sum.lane[k] = a.lane[k] + b.lane[k];
        return sum;
    }
};

/// Adds the eight lanes to four wide ones: 0 + 4, 1 + 5, 2 + 6, 3 + 7.
void flush(const Lanes<float>& narrow, Lanes<double>& wide)
{
    for (std::size_t k = 0; k < 4; ++k) wide.lane[k] += double{narrow.lane[k]} + double{narrow.lane[k + 4]};
}

/// Lanes 0 + 2 and 1 + 3; of real elements the two are added.
Sums reduced(const Lanes<double>& v, std::size_t unit)
{
    const double even = v.lane[0] + v.lane[2], odd = v.lane[1] + v.lane[3];
    if (unit == 2) return {{even, odd}};
    return {{even + odd, 0}};
}

template <class T>
void add_one_by_one(Sums& sums, const T* x, std::size_t n, std::size_t unit)
{
    for (std::size_t i = 0; i < n; ++i) sums.part[i % unit] += double{x[i]};
}

/// How many parts lie before the next multiple of a number of bytes.
std::size_t parts_before(std::size_t address, std::size_t boundary, std::size_t part_size)
{
    return (boundary - address % boundary) % boundary / part_size;
}

// ---- Sums

/// Each value is widened. Vectors of four values go to two vectors of sums in turn, 16 values a step; then those of
/// four values that are left, in one vector that begins with the total; then single values.
Sums widened_sum(const float* x, std::size_t n, std::size_t unit, std::size_t before)
{
    Lanes<double> sums[2];
    for (std::size_t i = 0; i < before; ++i) sums[0].lane[i % unit] += double{x[i]};
    std::size_t i = before;
    for (; n - i >= 16; i += 16)
        for (std::size_t k = 0; k < 4; ++k) sums[k % 2].add(x + i + 4 * k);
    Sums total = reduced(sums[0] + sums[1], unit);
    if (n - i >= 4) {
        Lanes<double> rest;
        for (std::size_t k = 0; k < unit; ++k) rest.lane[k] = total.part[k];
        for (; n - i >= 4; i += 4) rest.add(x + i);
        total = reduced(rest, unit);
    }
    for (std::size_t k = 0; i + k < n; ++k) total.part[k % unit] += double{x[i + k]};
    return total;
}

Sums accurate_sum(const float* x, std::size_t n, std::size_t unit, std::size_t address)
{
    if (n < 16 || address % 4 != 0) {
        Sums one_by_one = {};
        add_one_by_one(one_by_one, x, n, unit);
        return one_by_one;
    }
    const bool reaches_boundary = n >= 57 && address % (4 * unit) == 0;
    return widened_sum(x, n, unit, reaches_boundary ? parts_before(address, 32, 4) : 0);
}

/// Elements between the places of floats are widened each, from 16 parts on in vectors.
Sums fast_sum(const float* x, std::size_t n, std::size_t unit, std::size_t address)
{
    if (address % 4 != 0) return n < 16 ? accurate_sum(x, n, unit, address) : widened_sum(x, n, unit, 0);

    std::size_t i = address % (4 * unit) == 0 ? parts_before(address, 32, 4) : 0;
    if (i > n) i = n;
    float before[2] = {};
    for (std::size_t k = 0; k < i; ++k) before[k % unit] += x[k];
    Lanes<double> flushed;
    for (std::size_t k = 0; k < unit; ++k) flushed.lane[k] = double{before[k]};

    for (; n - i >= block; i += block) {
        Lanes<float> s[4];
        for (std::size_t k = 0; k < block / 8; ++k) s[k % 4].add(x + i + 8 * k);
        flush((s[0] + s[2]) + (s[1] + s[3]), flushed);
    }
    Lanes<float> s[4];
    for (; n - i >= 32; i += 32)
        for (std::size_t k = 0; k < 4; ++k) s[k].add(x + i + 8 * k);
    Lanes<float> even = s[0] + s[2], odd = s[1] + s[3];
    if (n - i >= 16) {
        even.add(x + i);
        odd.add(x + i + 8);
        i += 16;
    }
    Lanes<float> sum = even + odd;
    for (const std::size_t count : {8u, 4u, 2u, 1u})
        if (n - i >= count) {
            sum.add(x + i, count);
            i += count;
        }
    flush(sum, flushed);
    return reduced(flushed, unit);
}

// ---- Deviations

/// Wide sums of values and of their squares.
struct Moments {
    double sum, squares;
};

double numerator(const Moments& of, double n)
{
    const double scaled = n * of.squares, square = of.sum * of.sum;
    const double difference = scaled - square;
    return difference < 0 ? 0 : difference;
}

/// Eight values a step: the first four and the last four have sums of their own.
Moments accurate_moments(const float* x, std::size_t n, std::size_t address)
{
    Lanes<double> sum[2], squares[2];
    std::size_t i = address % 4 == 0 ? parts_before(address, 16, 4) : 0;
    if (i > n) i = n;
    for (std::size_t k = 0; k < i; ++k) {
        sum[0].add(x + k, 1);
        squares[0].add_squares(x + k, 1);
    }
    for (; n - i >= 8; i += 8)
        for (std::size_t k = 0; k < 2; ++k) {
            sum[k].add(x + i + 4 * k);
            squares[k].add_squares(x + i + 4 * k);
        }
    Lanes<double> s = sum[0] + sum[1], q = squares[0] + squares[1];
    if (n - i >= 4) {
        s.add(x + i);
        q.add_squares(x + i);
        i += 4;
    }
    Moments total = {reduced(s, 1).part[0], reduced(q, 1).part[0]};
    for (; i < n; ++i) {
        const double value = double{x[i]}, square = value * value;
        total.sum += value;
        total.squares += square;
    }
    return total;
}

/// In single precision but for the values before the first boundary, 16 values a step.
Moments fast_moments(const float* x, std::size_t n, std::size_t address)
{
    Lanes<double> flushed_sum, flushed_squares;
    std::size_t i = address % 4 == 0 ? parts_before(address, 32, 4) : 0;
    if (i > n) i = n;
    for (std::size_t k = 0; k < i; ++k) {
        flushed_sum.add(x + k, 1);
        flushed_squares.add_squares(x + k, 1);
    }
    Lanes<float> s[2], q[2];
    const auto step = [&] {
        for (std::size_t k = 0; k < 2; ++k) {
            s[k].add(x + i + 8 * k);
            q[k].add_squares(x + i + 8 * k);
        }
        i += 16;
    };
    while (n - i >= block) {
        s[0] = s[1] = q[0] = q[1] = {};
        for (std::size_t k = 0; k < block / 16; ++k) step();
        flush(s[0] + s[1], flushed_sum);
        flush(q[0] + q[1], flushed_squares);
    }
    s[0] = s[1] = q[0] = q[1] = {};
    while (n - i >= 16) step();
    Lanes<float> sum = s[0] + s[1], squares = q[0] + q[1];
    for (const std::size_t count : {8u, 4u, 2u, 1u})
        if (n - i >= count) {
            sum.add(x + i, count);
            squares.add_squares(x + i, count);
            i += count;
        }
    flush(sum, flushed_sum);
    flush(squares, flushed_squares);
    return {reduced(flushed_sum, 1).part[0], reduced(flushed_squares, 1).part[0]};
}

} // namespace

Sums ordered_sum(const float* x, std::size_t n, std::size_t unit, std::size_t address, int hint)
{
    return hint == fast ? fast_sum(x, n, unit, address) : accurate_sum(x, n, unit, address);
}

/// 16 values a step in four vectors of sums; the rest by 8, 4, 2 and 1, of which two real ones are added to each other
/// first.
Sums ordered_sum(const double* x, std::size_t n, std::size_t unit)
{
    Lanes<double> s[4];
    std::size_t i = 0;
    for (; n - i >= 16; i += 16)
        for (std::size_t k = 0; k < 4; ++k) s[k].add(x + i + 4 * k);
    Lanes<double> even = s[0] + s[2], odd = s[1] + s[3];
    if (n - i >= 8) {
        even.add(x + i);
        odd.add(x + i + 4);
        i += 8;
    }
    Lanes<double> sum = even + odd;
    if (n - i >= 4) {
        sum.add(x + i);
        i += 4;
    }
    Sums total = reduced(sum, unit);
    if (unit == 1 && n - i >= 2) {
        const double pair = x[i] + x[i + 1];
        total.part[0] += pair;
        i += 2;
    }
    add_one_by_one(total, x + i, n - i, unit);
    return total;
}

/// The last steps are in single precision.
float ordered_deviation(const float* x, std::size_t n, std::size_t address, int hint)
{
    const Moments moments = hint == fast ? fast_moments(x, n, address) : accurate_moments(x, n, address);
    const auto count = static_cast<double>(n);
    const auto above = static_cast<float>(numerator(moments, count)), below = static_cast<float>(count * (count - 1));
    const float variance = above / below;
    return std::sqrt(variance);
}

/// Four vectors of two sums, eight values a step. One value before a multiple of 16 bytes begins the first.
MeanAndDeviation ordered_deviation(const double* x, std::size_t n, std::size_t address)
{
    double s[4][2] = {}, q[4][2] = {};
    std::size_t i = 0;
    const auto add = [&](std::size_t vector, std::size_t lane, double value) {
        const double square = value * value;
        s[vector][lane] += value;
        q[vector][lane] += square;
    };
    if (address % 16 == 8) add(0, 0, x[i++]);
    for (; n - i >= 8; i += 8)
        for (std::size_t k = 0; k < 8; ++k) add(k / 2, k % 2, x[i + k]);
    for (std::size_t k = 0; k < 2; ++k) {
        s[0][k] = (s[0][k] + s[2][k]) + (s[1][k] + s[3][k]);
        q[0][k] = (q[0][k] + q[2][k]) + (q[1][k] + q[3][k]);
    }
    for (; n - i >= 2; i += 2)
        for (std::size_t k = 0; k < 2; ++k) add(0, k, x[i + k]);
    Moments total = {s[0][0] + s[0][1], q[0][0] + q[0][1]};
    if (i < n) {
        const double square = x[i] * x[i];
        total.sum += x[i];
        total.squares += square;
    }
    const auto count = static_cast<double>(n);
    const double variance = numerator(total, count) / (count * (count - 1));
    return {total.sum / count, std::sqrt(variance)};
}

/// Values of even and of odd place have sums of their own; those behind the last four are added to the total.
SingleMeanAndDeviation extended_deviation(const float* x, std::size_t n)
{
    long double s[2] = {}, q[2] = {};
    std::size_t i = 0;
    for (; i < n / 4 * 4; ++i) {
        const long double value = x[i];
        s[i % 2] += value;
        q[i % 2] += value * value;
    }
    long double sum = s[0] + s[1], squares = q[0] + q[1];
    for (; i < n; ++i) {
        const long double value = x[i];
        sum += value;
        squares += value * value;
    }
    return {static_cast<float>(sum / static_cast<long double>(n)),
            static_cast<float>(extended_deviation(sum, squares, n))};
}

long double extended_deviation(long double sum, long double squares, std::size_t n)
{
    const auto count = static_cast<long double>(n);
    const long double variance = (count * squares - sum * sum) / (count * (count - 1));
    return variance < 0 ? 0 : std::sqrt(variance);
}

} // namespace orvtest
