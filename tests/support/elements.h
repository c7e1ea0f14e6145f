// What the support knows about an element type at run time: enough to compare, print and digest arrays of bytes.
#pragma once

#include "orvs/types.h"

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace orvtest {

template <class T>
concept Real = (std::integral<T> || std::same_as<T, float> || std::same_as<T, double>)&&!std::same_as<T, bool>;

template <class T>
concept Complex = requires(T z)
{
    z.re;
    z.im;
};

/// A packed sample of 24 bits, least significant byte first.
template <bool has_sign>
struct Sample24 {
    std::uint8_t bytes[3];

    static Sample24 of(std::int32_t value)
    {
        const auto bits = static_cast<std::uint32_t>(value);
        return {{static_cast<std::uint8_t>(bits), static_cast<std::uint8_t>(bits >> 8),
                 static_cast<std::uint8_t>(bits >> 16)}};
    }
    std::int32_t value() const
    {
        const std::int32_t bits = bytes[0] + bytes[1] * 0x100 + bytes[2] * 0x10000;
        return has_sign && bits > 0x7FFFFF ? bits - 0x1000000 : bits;
    }
};
using Sample24s = Sample24<true>;
using Sample24u = Sample24<false>;

template <class T>
concept Packed = std::same_as<T, Sample24s> || std::same_as<T, Sample24u>;

template <class T>
concept Element = Real<T> || Complex<T> || Packed<T>;

enum class Number { signed_integer, unsigned_integer, binary_float };

struct ElementType {
    Number number;
    std::size_t component_size; ///< bytes of one component
    int components;             ///< 1, or 2 for complex types: re, im

    constexpr std::size_t size() const { return component_size * static_cast<std::size_t>(components); }
    friend constexpr bool operator==(const ElementType&, const ElementType&) = default;
};

template <Element T>
constexpr ElementType element_type()
{
    if constexpr (Complex<T>) {
        ElementType type = element_type<decltype(T::re)>();
        type.components = 2;
        return type;
    } else if constexpr (std::floating_point<T>) {
        return {Number::binary_float, sizeof(T), 1};
    } else if constexpr (Packed<T>) {
        return {std::same_as<T, Sample24s> ? Number::signed_integer : Number::unsigned_integer, 3, 1};
    } else {
        return {std::signed_integral<T> ? Number::signed_integer : Number::unsigned_integer, sizeof(T), 1};
    }
}

/// How not-a-numbers are seen: as one value, or by their sign and payload (for moves and fills).
enum class NanView { one_value, bits };

/// The bits of component k of the element at any address. Reads bytes only, so a signalling NaN passes unharmed.
std::uint64_t component_bits(const ElementType& type, const void* element, int k, NanView nans = NanView::one_value);

bool same_element(const ElementType& type, const void* a, const void* b, NanView nans = NanView::one_value);

/// The element for a reader: decimal, and the bits of floating values.
std::string element_text(const ElementType& type, const void* element);

/// The index of the first of n elements that differ, or n.
std::size_t first_difference(const ElementType& type, const void* a, const void* b, std::size_t n,
                             NanView nans = NanView::one_value);

/// The bytes of an array.
template <class T>
std::vector<std::byte> bytes_of(const std::vector<T>& elements)
{
    const auto* first = reinterpret_cast<const std::byte*>(elements.data());
    return {first, first + elements.size() * sizeof(T)};
}

} // namespace orvtest
