// Deterministic inputs: the same in every variant and in every run.
#pragma once

#include "elements.h"

#include <cstring>
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

/// n such elements, as bytes: a float that passes through a function result may lose its signalling bit on the way.
void draw_elements(Random& random, const ElementType& type, std::size_t n, Floats floats, std::byte* elements);

template <Element T>
std::vector<T> inputs(Random& random, std::size_t n, Floats floats = Floats::any)
{
    std::vector<T> elements(n);
    draw_elements(random, element_type<T>(), n, floats, reinterpret_cast<std::byte*>(elements.data()));
    return elements;
}

/// Values that a scalar argument should take in any case, one element behind another: 0, 1, the limits and -1; for
/// floats 0, 1, a fraction and, as far as floats allows, infinity and NaN. A complex scalar pairs them.
std::vector<std::byte> notable_elements(const ElementType& type, Floats floats);

template <Element T>
std::vector<T> notable_values(Floats floats = Floats::any)
{
    const std::vector<std::byte> bytes = notable_elements(element_type<T>(), floats);
    std::vector<T> values(bytes.size() / sizeof(T));
    std::memcpy(values.data(), bytes.data(), bytes.size());
    return values;
}

} // namespace orvtest
