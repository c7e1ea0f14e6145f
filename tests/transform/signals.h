// Signals to transform. T is the type of real values.
#pragma once

#include "tests/support/inputs.h"
#include "tests/transform/fft.h"
#include "tests/transform/reference.h"

#include <cmath>
#include <limits>

namespace orvtest {

/// A value from -1 to 1 with so many bits behind the point.
template <class T>
T noise_value(Random& random, int bits = std::numeric_limits<T>::digits)
{
    const auto uniform = static_cast<std::int64_t>(random.bits()) >> (63 - bits);
    return std::ldexp(static_cast<T>(uniform), -bits);
}

template <class T>
std::vector<T> noise(Random& random, std::size_t n)
{
    std::vector<T> x(n);
    for (T& value : x) value = noise_value<T>(random);
    return x;
}
template <class T>
std::vector<ComplexOf<T>> complex_noise(Random& random, std::size_t n)
{
    std::vector<ComplexOf<T>> x(n);
    for (ComplexOf<T>& value : x) {
        value.re = noise_value<T>(random);
        value.im = noise_value<T>(random);
    }
    return x;
}

template <Element E>
std::vector<E> impulse(std::size_t n, std::size_t place, const E& value)
{
    std::vector<E> x(n);
    x[place] = value;
    return x;
}

/// exp(2 * pi * i * frequency * n / N), rounded.
template <class T>
std::vector<ComplexOf<T>> exponential(int order, std::size_t frequency)
{
    const Roots roots(order);
    std::vector<ComplexOf<T>> x(std::size_t{1} << order);
    for (std::size_t n = 0; n < x.size(); ++n) {
        const LongComplex value = conjugated(roots[frequency * n & (x.size() - 1)]);
        x[n] = {static_cast<T>(value.re), static_cast<T>(value.im)};
    }
    return x;
}

/// Factor times x; exact for powers of two.
template <Element E, class T>
std::vector<E> scaled(std::vector<E> x, T factor)
{
    for (E& value : x) {
        if constexpr (Complex<E>) value = {value.re * factor, value.im * factor};
        else value *= factor;
    }
    return x;
}

template <class C>
auto real_parts(const std::vector<C>& x)
{
    std::vector<decltype(C::re)> parts;
    for (const C& value : x) parts.push_back(value.re);
    return parts;
}
template <class C>
auto imaginary_parts(const std::vector<C>& x)
{
    std::vector<decltype(C::im)> parts;
    for (const C& value : x) parts.push_back(value.im);
    return parts;
}

/// Places worth an impulse, and frequencies worth an exponential: all of short signals, some of long ones.
inline std::vector<std::size_t> notable_places(std::size_t n, std::size_t short_length)
{
    std::vector<std::size_t> places;
    if (n <= short_length)
        for (std::size_t k = 0; k < n; ++k) places.push_back(k);
    else places = {0, 1, 2, 3, n / 8 + 1, n / 4, n / 3, n / 2 - 1, n / 2, n / 2 + 1, n - 2, n - 1};
    return places;
}

} // namespace orvtest
