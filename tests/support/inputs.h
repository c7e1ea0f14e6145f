// Deterministic inputs: the same in every variant and in every run.
#pragma once

#include "elements.h"

#include <cstring>
#include <limits>
#include <string_view>
#include <vector>

namespace orvtest {

/// A bijection of 64-bit words in which each input bit moves each output bit with probability near 1/2: the output
/// function of SplitMix64 (Steele, Lea, Flood: Fast Splittable Pseudorandom Number Generators, 2014).
std::uint64_t scramble(std::uint64_t x);

/// The generator of the same paper.
class Random {
public:
    explicit Random(std::uint64_t seed) : state_(seed) {}

    std::uint64_t bits();
    std::uint64_t below(std::uint64_t n) { return bits() % n; }

private:
    std::uint64_t state_;
};

/// A seed that depends on a name (of the export, as a rule) and a number (the length).
std::uint64_t seed_of(std::string_view name, std::uint64_t number);

/// Which special values floating inputs may have.
enum class Floats {
    any,           ///< finite values, infinities, quiet and signalling NaNs
    no_nan,        ///< finite values and infinities
    finite,        ///< with both zeros and subnormal numbers
    small_integers ///< -1000 to 1000: sums and products of a few are exact
};

/// The bits of one component: a mix of uniform values, small ones, extremes, neighbours of powers of two, multiples of
/// powers of two (they meet the ties of rounding); for floats of all classes of numbers.
std::uint64_t draw_component(Random& random, const ElementType& type, Floats floats);

/// A vector of such elements. They are written as bytes: a float that passes through a function result may lose its
/// signalling bit on the way.
template <Element T>
std::vector<T> inputs(Random& random, std::size_t n, Floats floats = Floats::any)
{
    constexpr ElementType type = element_type<T>();
    std::vector<T> elements(n);
    auto* at = reinterpret_cast<std::byte*>(elements.data());
    for (std::size_t i = 0; i < n * static_cast<std::size_t>(type.components); ++i, at += type.component_size) {
        const std::uint64_t component = draw_component(random, type, floats);
        std::memcpy(at, &component, type.component_size); // little-endian
    }
    return elements;
}

/// Values that a scalar argument should take in any case: 0, 1, the limits and -1; for floats 0, 1, a fraction and, as
/// far as floats allows, infinity and NaN. A complex scalar pairs them.
template <Element T>
std::vector<T> notable_values(Floats floats = Floats::any)
{
    std::vector<T> values;
    if constexpr (Complex<T>) {
        const auto parts = notable_values<decltype(T::re)>(floats);
        for (std::size_t i = 0; i < parts.size(); ++i) values.push_back({parts[i], parts[2 * i % parts.size()]});
    } else if constexpr (std::floating_point<T>) {
        values = {0, 1, T(0.75)};
        if (floats == Floats::small_integers) values.back() = -3;
        if (floats == Floats::no_nan || floats == Floats::any) values.push_back(-std::numeric_limits<T>::infinity());
        if (floats == Floats::any) values.push_back(std::numeric_limits<T>::quiet_NaN());
    } else {
        values = {0, 1, std::numeric_limits<T>::max(), std::numeric_limits<T>::min(), static_cast<T>(-1)};
    }
    return values;
}

} // namespace orvtest
