#include "elements.h"

#include <bit>
#include <cstdio>
#include <cstring>

namespace orvtest {
namespace {

bool is_nan(std::uint64_t bits, std::size_t size)
{
    const std::uint64_t infinity = size == 4 ? 0x7F800000u : 0x7FF0000000000000u;
    const std::uint64_t magnitude = bits & (size == 4 ? 0x7FFFFFFFu : 0x7FFFFFFFFFFFFFFFu);
    return magnitude > infinity;
}

const std::byte* component_address(const ElementType& type, const void* element, int k)
{
    return static_cast<const std::byte*>(element) + type.component_size * static_cast<std::size_t>(k);
}

std::string component_text(const ElementType& type, const void* element, int k)
{
    const std::uint64_t bits = component_bits(type, element, k, NanView::bits);
    const int size = static_cast<int>(type.component_size);
    char text[64];
    switch (type.number) {
    case Number::unsigned_integer: std::snprintf(text, sizeof text, "%ju", static_cast<std::uintmax_t>(bits)); break;
    case Number::signed_integer: {
        const int unused_bits = 64 - 8 * size;
        const auto value = static_cast<std::int64_t>(bits << unused_bits) >> unused_bits;
        std::snprintf(text, sizeof text, "%jd", static_cast<std::intmax_t>(value));
        break;
    }
    case Number::binary_float: {
        const double value =
            size == 4 ? double{std::bit_cast<float>(static_cast<std::uint32_t>(bits))} : std::bit_cast<double>(bits);
        std::snprintf(text, sizeof text, "%.*g [0x%0*jx]", size == 4 ? 9 : 17, value, 2 * size,
                      static_cast<std::uintmax_t>(bits));
        break;
    }
    }
    return text;
}

} // namespace

std::uint64_t component_bits(const ElementType& type, const void* element, int k, NanView nans)
{
    std::uint64_t bits = 0;
    std::memcpy(&bits, component_address(type, element, k), type.component_size); // little-endian
    const bool one_nan = nans == NanView::one_value && type.number == Number::binary_float;
    if (one_nan && is_nan(bits, type.component_size))
        return type.component_size == 4 ? 0x7FC00000u : 0x7FF8000000000000u;
    return bits;
}

bool same_element(const ElementType& type, const void* a, const void* b, NanView nans)
{
    for (int k = 0; k < type.components; ++k)
        if (component_bits(type, a, k, nans) != component_bits(type, b, k, nans)) return false;
    return true;
}

std::string element_text(const ElementType& type, const void* element)
{
    std::string text = component_text(type, element, 0);
    if (type.components == 2) text.append(", ").append(component_text(type, element, 1));
    return type.components == 1 ? text : '(' + text + ')';
}

std::size_t first_difference(const ElementType& type, const void* a, const void* b, std::size_t n, NanView nans)
{
    const std::size_t size = type.size();
    if (n == 0 || std::memcmp(a, b, n * size) == 0) return n;
    const auto* x = static_cast<const std::byte*>(a);
    const auto* y = static_cast<const std::byte*>(b);
    for (std::size_t i = 0; i < n; ++i)
        if (!same_element(type, x + i * size, y + i * size, nans)) return i;
    return n;
}

} // namespace orvtest
