#include "inputs.h"

#include <bit>
#include <cmath>

// Each draw is a statement of its own: within an expression the compiler would choose the order of the draws.

namespace orvtest {
namespace {

std::uint64_t low_bits(int n) { return n >= 64 ? ~std::uint64_t{0} : (std::uint64_t{1} << n) - 1; }

std::uint64_t draw_integer(Random& random, int width)
{
    const std::uint64_t half = std::uint64_t{1} << (width - 1); // the lowest of the signed type
    const std::uint64_t uniform = random.bits();
    const std::uint64_t choice = random.below(8);
    const std::uint64_t detail = random.bits();
    switch (choice) {
    case 0: return detail % 17 - 8; // small, or near the upper limit of an unsigned type
    case 1: return detail % 256;
    case 2:
    case 3: {
        const std::uint64_t extremes[] = {0,    1,        half - 2,          half - 1,
                                          half, half + 1, ~std::uint64_t{1}, ~std::uint64_t{0}};
        return extremes[detail % std::size(extremes)];
    }
    case 4: {
        const std::uint64_t near_power = (std::uint64_t{1} << detail % static_cast<unsigned>(width)) + uniform % 3 - 1;
        return uniform >> 63 ? -near_power : near_power;
    }
    case 5: return uniform & ~low_bits(static_cast<int>(detail % static_cast<unsigned>(width)));
    default: return uniform;
    }
}

struct FloatFormat {
    int mantissa_bits;
    std::uint64_t bias;
    std::uint64_t exponent_of_infinity;
};

std::uint64_t small_integer_bits(std::uint64_t draw, std::size_t size)
{
    const double value = static_cast<double>(static_cast<int>(draw % 2001) - 1000);
    return size == 4 ? std::bit_cast<std::uint32_t>(static_cast<float>(value)) : std::bit_cast<std::uint64_t>(value);
}

std::uint64_t draw_float(Random& random, std::size_t size, Floats floats)
{
    const FloatFormat format = size == 4 ? FloatFormat{23, 127, 255} : FloatFormat{52, 1023, 2047};
    const std::uint64_t uniform = random.bits();
    const std::uint64_t choice = random.below(32);
    const std::uint64_t detail = random.bits();
    const std::uint64_t mantissa = uniform & low_bits(format.mantissa_bits);
    const std::uint64_t sign = (detail >> 63) << (8 * size - 1);
    const auto finite = [&](std::uint64_t exponent) { return sign | exponent << format.mantissa_bits | mantissa; };
    const auto infinity = sign | format.exponent_of_infinity << format.mantissa_bits;

    if (floats == Floats::small_integers) return small_integer_bits(detail >> 1, size);
    switch (choice) {
    case 0:
        if (floats == Floats::any) return infinity | mantissa | 1; // NaN, quiet or signalling
        break;
    case 1:
        if (floats == Floats::any || floats == Floats::no_nan) return infinity;
        break;
    case 2: return sign; // zero
    case 3:
    case 4: return finite(0);                                                                       // subnormal
    case 5: return sign | (detail % (format.exponent_of_infinity - 1) + 1) << format.mantissa_bits; // power of two
    case 6:
    case 7:
    case 8:
    case 9: return small_integer_bits(detail >> 1, size);
    case 10:
    case 11:
    case 12:
    case 13: return finite(detail % (format.exponent_of_infinity - 1) + 1); // any normal number
    default: break;
    }
    return finite(format.bias - 4 + detail % 6); // magnitudes from 1/16 to 4
}

std::vector<std::uint64_t> notable_components(const ElementType& type, Floats floats)
{
    const int width = 8 * static_cast<int>(type.component_size);
    if (type.number == Number::binary_float) {
        const auto bits = [&](double x) {
            return width == 32 ? std::bit_cast<std::uint32_t>(static_cast<float>(x)) : std::bit_cast<std::uint64_t>(x);
        };
        std::vector<std::uint64_t> values = {bits(0), bits(1), bits(floats == Floats::small_integers ? -3 : 0.75)};
        if (floats == Floats::no_nan || floats == Floats::any) values.push_back(bits(-HUGE_VAL));
        if (floats == Floats::any) values.push_back(bits(NAN));
        return values;
    }
    const std::uint64_t half = std::uint64_t{1} << (width - 1), ones = low_bits(width);
    if (type.number == Number::unsigned_integer) return {0, 1, ones, 0, ones};
    return {0, 1, half - 1, half, ones};
}

} // namespace

std::uint64_t scramble(std::uint64_t x)
{
    x = (x ^ (x >> 30)) * 0xBF58476D1CE4E5B9u;
    x = (x ^ (x >> 27)) * 0x94D049BB133111EBu;
    return x ^ (x >> 31);
}

std::uint64_t Random::bits() { return scramble(state_ += 0x9E3779B97F4A7C15u); }

std::uint64_t seed_of(std::string_view name, std::uint64_t number)
{
    std::uint64_t seed = number;
    for (const char c : name) seed = scramble(seed + static_cast<unsigned char>(c) + 0x9E3779B97F4A7C15u);
    return seed;
}

std::uint64_t draw_component(Random& random, const ElementType& type, Floats floats)
{
    if (type.number == Number::binary_float) return draw_float(random, type.component_size, floats);
    return draw_integer(random, 8 * static_cast<int>(type.component_size));
}

void draw_elements(Random& random, const ElementType& type, std::size_t n, Floats floats, std::byte* elements)
{
    const std::size_t components = n * static_cast<std::size_t>(type.components);
    for (std::size_t i = 0; i < components; ++i, elements += type.component_size) {
        const std::uint64_t component = draw_component(random, type, floats);
        std::memcpy(elements, &component, type.component_size); // little-endian
    }
}

std::vector<std::byte> notable_elements(const ElementType& type, Floats floats)
{
    const std::vector<std::uint64_t> parts = notable_components(type, floats);
    std::vector<std::byte> elements(parts.size() * type.size());
    std::byte* at = elements.data();
    for (std::size_t i = 0; i < parts.size(); ++i)
        for (std::size_t k = 0; k < static_cast<std::size_t>(type.components); ++k, at += type.component_size)
            std::memcpy(at, &parts[(k + 1) * i % parts.size()], type.component_size); // little-endian
    return elements;
}

} // namespace orvtest
