// Inputs of the statistics' tests, and exact sums of them.
#pragma once

#include "tests/support/inputs.h"
#include "tests/support/sweep.h"
#include "tests/support/wide.h"

#include <cmath>
#include <cstdint>
#include <string_view>
#include <type_traits>
#include <vector>

namespace orvtest {

/// The type of a part of an element.
template <Element T>
struct PartType {
    using type = T;
};
template <Complex T>
struct PartType<T> {
    using type = decltype(T::re);
};
template <Element T>
using PartOf = typename PartType<T>::type;

/// How many parts an element has.
template <Element T>
constexpr std::size_t unit_of = Complex<T> ? 2 : 1;

/// The parts, one behind another.
template <Element T>
const PartOf<T>* parts(const std::vector<T>& x)
{
    return reinterpret_cast<const PartOf<T>*>(x.data());
}

/// Elements of integers within a limit, uniform.
template <Element T>
std::vector<T> whole_numbers(std::uint64_t seed, std::size_t n, int limit)
{
    Random random(seed);
    std::vector<T> x(n);
    auto* part = reinterpret_cast<PartOf<T>*>(x.data());
    for (std::size_t i = 0; i < n * unit_of<T>; ++i) {
        const auto choices = 2 * static_cast<unsigned>(limit) + 1;
        part[i] = static_cast<PartOf<T>>(static_cast<int>(random.below(choices)) - limit);
    }
    return x;
}

/// Floating elements with all bits of their mantissas, of magnitudes up to 1 with mean zero, or about a mean.
template <Element T>
std::vector<T> signal(std::uint64_t seed, std::size_t n, double mean = 0)
{
    Random random(seed);
    std::vector<T> x(n);
    auto* part = reinterpret_cast<PartOf<T>*>(x.data());
    for (std::size_t i = 0; i < n * unit_of<T>; ++i) {
        const double uniform = static_cast<double>(static_cast<std::int64_t>(random.bits()) >> 11) * 0x1p-52;
        part[i] = static_cast<PartOf<T>>(mean + uniform);
    }
    return x;
}

/// Values of many sizes, each with its opposite somewhere, and some small ones: what is left of the sum are its
/// rounding errors, in double precision too, so that every change of its order shows.
template <Element T>
std::vector<T> cancelling(std::uint64_t seed, std::size_t n)
{
    Random random(seed);
    std::vector<T> x = signal<T>(seed, n);
    for (std::size_t i = 0; i + 2 < n; i += 2) {
        auto* part = reinterpret_cast<PartOf<T>*>(&x[i]);
        for (std::size_t k = 0; k < unit_of<T>; ++k) {
            part[k] = std::ldexp(part[k], static_cast<int>(random.below(75)));
            part[k + unit_of<T>] = -part[k];
        }
    }
    for (std::size_t i = n; i > 1; --i) std::swap(x[i - 1], x[static_cast<std::size_t>(random.below(i))]);
    return x;
}

/// Integers or floats of all kinds that support the function of this name.
template <Element T>
std::vector<T> drawn(std::string_view name, std::size_t n, Floats floats = Floats::finite)
{
    Random random(seed_of(name, n));
    return inputs<T>(random, n, floats);
}

/// Lengths for exact sums: all short ones, and both sides of lengths at which blocks and vectors end.
inline std::vector<int> lengths_of_sums() { return lengths_around({100, 128, 185, 253, 256, 313, 1000, 1200, 2400}); }

/// The exact sum of each part.
struct ExactSums {
    std::int64_t part[2] = {};
};
template <Element T>
ExactSums exact_sums(const std::vector<T>& x)
{
    ExactSums sums;
    for (std::size_t i = 0; i < x.size() * unit_of<T>; ++i) sums.part[i % unit_of<T>] += parts(x)[i];
    return sums;
}

/// D with a function's value of each part.
template <Element D, class F>
D by_part(const F& f)
{
    if constexpr (Complex<D>) return {f(0), f(1)};
    else return f(0);
}

} // namespace orvtest
