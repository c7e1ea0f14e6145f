// Exact integers for oracles: 256 bits in two's complement, the same in 32-bit and 64-bit builds.
//
// Values up to 2^191 in magnitude leave room for everything here: sums and products of 64-bit values, and the left
// shifts of the law of scale factors. The code follows the definitions and makes no attempt at speed.
#pragma once

#include "elements.h"

#include <algorithm>
#include <compare>
#include <concepts>
#include <cstdint>
#include <limits>
#include <utility>

namespace orvtest {

class Wide {
public:
    constexpr Wide() = default;

    template <std::integral T>
    constexpr Wide(T value) // implicit, so that oracles mix integers and exact values
    {
        const auto low = static_cast<std::uint64_t>(value);
        std::fill(limbs_, limbs_ + count, std::cmp_less(value, 0) ? ~0u : 0u);
        limbs_[0] = static_cast<std::uint32_t>(low);
        limbs_[1] = static_cast<std::uint32_t>(low >> 32);
    }

    constexpr bool negative() const { return limbs_[count - 1] >> 31 != 0; }
    constexpr bool odd() const { return (limbs_[0] & 1) != 0; }

    /// The value modulo 2^64.
    constexpr std::uint64_t low64() const { return limbs_[0] | std::uint64_t{limbs_[1]} << 32; }

    friend constexpr Wide operator+(const Wide& a, const Wide& b)
    {
        Wide sum;
        std::uint64_t carry = 0;
        for (int i = 0; i < count; ++i) {
            carry += std::uint64_t{a.limbs_[i]} + b.limbs_[i];
            sum.limbs_[i] = static_cast<std::uint32_t>(carry);
            carry >>= 32;
        }
        return sum;
    }
    friend constexpr Wide operator-(const Wide& a)
    {
        Wide complement;
        for (int i = 0; i < count; ++i) complement.limbs_[i] = ~a.limbs_[i];
        return complement + Wide(1);
    }
    friend constexpr Wide operator-(const Wide& a, const Wide& b) { return a + -b; }

    friend constexpr Wide operator*(const Wide& a, const Wide& b) // schoolbook, modulo 2^256
    {
        Wide product;
        for (int i = 0; i < count; ++i) {
            std::uint64_t carry = 0;
            for (int j = 0; i + j < count; ++j) {
                carry += std::uint64_t{a.limbs_[i]} * b.limbs_[j] + product.limbs_[i + j];
                product.limbs_[i + j] = static_cast<std::uint32_t>(carry);
                carry >>= 32;
            }
        }
        return product;
    }

    /// a * 2^n, n from 0 to 255.
    friend constexpr Wide operator<<(const Wide& a, int n)
    {
        Wide shifted;
        for (int i = 0; i < count; ++i) shifted.set_limb(i, a.limb_pair(i - n / 32 - 1) >> (32 - n % 32));
        return shifted;
    }
    /// floor(a * 2^-n), n from 0 to 255.
    friend constexpr Wide operator>>(const Wide& a, int n)
    {
        Wide shifted;
        for (int i = 0; i < count; ++i) shifted.set_limb(i, a.limb_pair(i + n / 32) >> (n % 32));
        return shifted;
    }

    friend constexpr bool operator==(const Wide&, const Wide&) = default;
    friend constexpr std::strong_ordering operator<=>(const Wide& a, const Wide& b)
    {
        if (a.negative() != b.negative()) return b.negative() <=> a.negative();
        for (int i = count - 1; i >= 0; --i)
            if (a.limbs_[i] != b.limbs_[i]) return a.limbs_[i] <=> b.limbs_[i];
        return std::strong_ordering::equal;
    }

private:
    static constexpr int count = 8;

    /// Limb i of the number without end: zeros below, copies of the sign above.
    constexpr std::uint32_t limb(int i) const
    {
        if (i < 0) return 0;
        if (i >= count) return negative() ? ~0u : 0u;
        return limbs_[i];
    }
    constexpr std::uint64_t limb_pair(int i) const { return std::uint64_t{limb(i + 1)} << 32 | limb(i); }
    constexpr void set_limb(int i, std::uint64_t low_half) { limbs_[i] = static_cast<std::uint32_t>(low_half); }

    std::uint32_t limbs_[count] = {}; // least significant first
};

/// An exact complex integer.
struct WideComplex {
    Wide re, im;

    friend constexpr WideComplex operator+(const WideComplex& a, const WideComplex& b)
    {
        return {a.re + b.re, a.im + b.im};
    }
    friend constexpr WideComplex operator-(const WideComplex& a, const WideComplex& b)
    {
        return {a.re - b.re, a.im - b.im};
    }
    friend constexpr WideComplex operator*(const WideComplex& a, const WideComplex& b)
    {
        return {a.re * b.re - a.im * b.im, a.re * b.im + a.im * b.re};
    }
    friend constexpr bool operator==(const WideComplex&, const WideComplex&) = default;
};

/// The exact value of an integer element, real or complex.
template <std::integral T>
constexpr Wide exact(T x)
{
    return Wide(x);
}
template <Complex T>
constexpr WideComplex exact(const T& z)
{
    return {Wide(z.re), Wide(z.im)};
}

/// The law of scale factors: x * 2^-scale as an integer, rounded by the mode. Any scale is allowed; from 64 doublings
/// on the result is large enough to saturate every type, and so large it stays.
constexpr Wide scale_law(const Wide& x, int scale, OrvRoundMode mode = orvRndNear)
{
    if (scale <= 0) return x << (scale < -64 ? 64 : -scale);

    const int halvings = std::min(scale, 240); // |x| < 2^191 has long come to 0 by then
    const Wide divisor = Wide(1) << halvings;
    const Wide floor = x >> halvings;
    const Wide remainder = x - floor * divisor; // 0 <= remainder < divisor
    const std::strong_ordering half = remainder * 2 <=> divisor;
    switch (mode) {
    case orvRndZero: return x.negative() && remainder != 0 ? floor + 1 : floor;
    case orvRndNear: return half > 0 || (half == 0 && floor.odd()) ? floor + 1 : floor;
    case orvRndFinancial: return half > 0 || (half == 0 && !x.negative()) ? floor + 1 : floor;
    }
    return x;
}
constexpr WideComplex scale_law(const WideComplex& z, int scale, OrvRoundMode mode = orvRndNear)
{
    return {scale_law(z.re, scale, mode), scale_law(z.im, scale, mode)};
}

/// The nearest value of an integer element type; complex types by component.
template <std::integral T>
constexpr T saturate(const Wide& x)
{
    constexpr T lowest = std::numeric_limits<T>::min();
    constexpr T highest = std::numeric_limits<T>::max();
    if (x < lowest) return lowest;
    if (x > highest) return highest;
    return static_cast<T>(x.low64());
}
template <Complex T>
constexpr T saturate(const WideComplex& z)
{
    using Component = decltype(T::re);
    return {saturate<Component>(z.re), saturate<Component>(z.im)};
}

} // namespace orvtest
