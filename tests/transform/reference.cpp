#include "tests/transform/reference.h"

#include <algorithm>
#include <bit>
#include <cmath>

namespace orvtest {
namespace {

constexpr long double two_pi = 6.283185307179586476925286766559005768L;

int order_of(const LongSignal& x) { return std::countr_zero(x.size()); }

/// Writes the spectrum of x[0], x[step], x[2 * step] ...
void transform(const LongComplex* x, std::size_t step, LongComplex* to, std::size_t n, const Roots& roots)
{
    if (n == 1) {
        to[0] = x[0];
        return;
    }
    const std::size_t half = n / 2;
    transform(x, 2 * step, to, half, roots);
    transform(x + step, 2 * step, to + half, half, roots);
    for (std::size_t k = 0; k < half; ++k) {
        const LongComplex even = to[k], odd = roots[k * step] * to[half + k];
        to[k] = even + odd;
        to[half + k] = even - odd;
    }
}

} // namespace

LongComplex root_of_unity(std::size_t k, int order)
{
    const int eighth_order = std::max(order - 3, 0);
    if (order < 3) k <<= 3 - order;
    const std::size_t eighth = std::size_t{1} << eighth_order;
    const std::size_t octant = k >> eighth_order & 7, rest = k & (eighth - 1);
    const std::size_t reduced = octant % 2 ? eighth - rest : rest;
    const long double angle = two_pi * (static_cast<long double>(reduced) / static_cast<long double>(8 * eighth));
    const long double c = std::cos(angle), s = std::sin(angle);
    switch (octant) {
    case 0: return {c, -s};
    case 1: return {s, -c};
    case 2: return {-s, -c};
    case 3: return {-c, -s};
    case 4: return {-c, s};
    case 5: return {-s, c};
    case 6: return {s, c};
    default: return {c, s};
    }
}

Roots::Roots(int order) : fine_order_(std::min(order, 12))
{
    for (std::size_t k = 0; k < std::size_t{1} << fine_order_; ++k) fine_.push_back(root_of_unity(k, order));
    for (std::size_t k = 0; k < std::size_t{1} << (order - fine_order_); ++k)
        coarse_.push_back(root_of_unity(k, order - fine_order_));
}

LongSignal spectrum_by_definition(const LongSignal& x)
{
    LongSignal roots(x.size()), sums(x.size());
    for (std::size_t k = 0; k < x.size(); ++k) roots[k] = root_of_unity(k, order_of(x));
    for (std::size_t k = 0; k < x.size(); ++k)
        for (std::size_t n = 0; n < x.size(); ++n) sums[k] = sums[k] + x[n] * roots[n * k & (x.size() - 1)];
    return sums;
}

LongSignal spectrum(const LongSignal& x)
{
    LongSignal values(x.size());
    transform(x.data(), 1, values.data(), x.size(), Roots(order_of(x)));
    return values;
}

LongSignal inverse_by_definition(LongSignal x)
{
    for (LongComplex& value : x) value = conjugated(value);
    LongSignal sums = spectrum_by_definition(x);
    for (LongComplex& value : sums) value = conjugated(value);
    return sums;
}

template <class T>
void Deviation::add(const Values<T>& got, const LongSignal& want, long double factor)
{
    for (std::size_t k = 0; k < want.size(); ++k) add(got[k], factor * want[k]);
}
template void Deviation::add(const Values<Orv32f>& got, const LongSignal& want, long double factor);
template void Deviation::add(const Values<Orv64f>& got, const LongSignal& want, long double factor);
template void Deviation::add(const Values<long double>& got, const LongSignal& want, long double factor);

double Deviation::rms() const
{
    if (square_of_differences_ == 0) return 0;
    return static_cast<double>(std::sqrt(square_of_differences_ / square_of_wanted_));
}

double Deviation::worst() const
{
    if (worst_square_ == 0) return 0;
    return static_cast<double>(std::sqrt(worst_square_ * static_cast<long double>(count_) / square_of_wanted_));
}

} // namespace orvtest
