// The discrete Fourier transform in extended precision: by its definition, and in O(N log N) for long signals.
#pragma once

#include "tests/support/elements.h"

#include <cstddef>
#include <vector>

namespace orvtest {

struct LongComplex {
    long double re, im;
};
inline LongComplex operator+(LongComplex a, LongComplex b) { return {a.re + b.re, a.im + b.im}; }
inline LongComplex operator-(LongComplex a, LongComplex b) { return {a.re - b.re, a.im - b.im}; }
inline LongComplex operator*(LongComplex a, LongComplex b)
{
    return {a.re * b.re - a.im * b.im, a.re * b.im + a.im * b.re};
}
inline LongComplex operator*(long double a, LongComplex b) { return {a * b.re, a * b.im}; }
inline LongComplex conjugated(LongComplex z) { return {z.re, -z.im}; }

using LongSignal = std::vector<LongComplex>;

/// An element without its type.
template <Element T>
LongComplex widened(const T& x)
{
    if constexpr (Complex<T>) return {x.re, x.im};
    else return {x, 0};
}
template <Element T>
LongSignal widened(const std::vector<T>& x)
{
    LongSignal wide;
    wide.reserve(x.size());
    for (const T& element : x) wide.push_back(widened(element));
    return wide;
}

/// exp(-2 * pi * i * k / 2^order), from the sine and the cosine of an angle in the first octant.
LongComplex root_of_unity(std::size_t k, int order);

/// The powers of exp(-2 * pi * i / 2^order): from a table, which for high orders has every 4096th, and one of those
/// between.
class Roots {
public:
    explicit Roots(int order);

    LongComplex operator[](std::size_t k) const { return coarse_[k >> fine_order_] * fine_[k & (fine_.size() - 1)]; }

private:
    int fine_order_;
    std::vector<LongComplex> coarse_, fine_;
};

/// X[k] = sum over n of x[n] * exp(-2 * pi * i * n * k / N). The length N is a power of two.
LongSignal spectrum_by_definition(const LongSignal& x);
/// The same, by splitting the sum into those over even and odd n.
LongSignal spectrum(const LongSignal& x);

/// The sums with the other sign in the exponent.
LongSignal inverse_by_definition(LongSignal x);

/// Real values, or complex ones whose parts lie in one array or in two, each so many steps behind the one before it.
template <class T>
struct Values {
    const T *re, *im; ///< im is null for real values
    std::size_t step;

    LongComplex operator[](std::size_t k) const { return {re[k * step], im ? im[k * step] : 0}; }
};
template <Element E>
auto values_of(const std::vector<E>& x)
{
    if constexpr (Complex<E>) return Values<decltype(E::re)>{&x.data()->re, &x.data()->im, 2};
    else return Values<E>{x.data(), nullptr, 1};
}

/// How far values are from the wanted ones.
class Deviation {
public:
    void add(LongComplex got, LongComplex want)
    {
        const LongComplex difference = got - want;
        const long double square = difference.re * difference.re + difference.im * difference.im;
        ++count_;
        square_of_differences_ += square;
        square_of_wanted_ += want.re * want.re + want.im * want.im;
        if (square > worst_square_) worst_square_ = square;
    }
    /// Adds as many values as are wanted; these are factor * want.
    template <class T>
    void add(const Values<T>& got, const LongSignal& want, long double factor = 1);

    /// The root mean square of the differences, relative to that of the wanted values.
    double rms() const;
    /// The largest difference, relative to the root mean square of the wanted values.
    double worst() const;

private:
    std::size_t count_ = 0;
    long double square_of_differences_ = 0, square_of_wanted_ = 0, worst_square_ = 0;
};

template <Element E>
Deviation deviation(const std::vector<E>& got, const LongSignal& want, long double factor = 1)
{
    Deviation of;
    of.add(values_of(got), want, factor);
    return of;
}

} // namespace orvtest
