// The error of a computed number in units in the last place.
//
// An ulp is the spacing of T at the exact value: the distance between the two neighbours in T that enclose it, and
// below the normal range the spacing of subnormal numbers. (Muller et al., Handbook of Floating-Point Arithmetic, 2.6,
// has the definitions in use; they differ at powers of two only, where this one is the strict one.)
#pragma once

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <type_traits>

namespace orvtest {

/// An error that no bound allows.
constexpr double wrong = std::numeric_limits<double>::infinity();

/// An exact value in two parts: head is the value rounded toward zero, rest what is missing. In W alone, the value is
/// as exact as W is wide.
template <class W>
struct Exact {
    W head, rest = 0;
};

/// The power of two at |x| or next below, for finite x; of a subnormal number, any that is subnormal too, or 0.
inline double binade(double x)
{
    return std::bit_cast<double>(std::bit_cast<std::uint64_t>(x) & 0x7ff0'0000'0000'0000);
}
inline long double binade(long double x) { return x == 0 ? 0 : std::ldexp(1.0L, std::ilogb(x)); }

/// The spacing of T at x, which is finite.
template <class T, class W>
W ulp(W x)
{
    using Limits = std::numeric_limits<T>;
    return std::max(binade(x), W{Limits::min()}) * W{Limits::epsilon()};
}

/// Whether x rounds to an infinity of T: halfway from the largest number to the power of two behind it, or further.
template <class T, class W>
bool overflows(W x)
{
    using Limits = std::numeric_limits<T>;
    constexpr W half_spacing = W{Limits::epsilon()} / Limits::min(); // 1 / min is half the largest power of two
    return std::fabs(x) >= W{Limits::max()} + half_spacing;
}

/// The error of computed, or `wrong`. Wrong is
///   * a number for a not-a-number, and the other way round;
///   * anything but infinity where the exact value rounds to infinity, and anything but the same zero where it is zero;
///   * a zero of the other sign.
/// An infinity where the exact value rounds to a number counts as the power of two behind the largest number.
template <class T, class W>
double ulp_error(T computed, Exact<W> exact)
{
    static_assert(std::numeric_limits<W>::digits > std::numeric_limits<T>::digits);
    if (std::isnan(exact.head) || std::isnan(computed))
        return std::isnan(exact.head) && std::isnan(computed) ? 0 : wrong;
    const bool same_sign = std::signbit(computed) == std::signbit(exact.head);
    if (exact.head == 0) return computed == 0 && same_sign ? 0 : wrong;
    if (overflows<T>(exact.head)) return std::isinf(computed) && same_sign ? 0 : wrong;
    if (computed == 0 && !same_sign) return wrong;

    W value = computed;
    if (std::isinf(computed)) value = std::copysign(2 * binade(W{std::numeric_limits<T>::max()}), value);
    const W difference = (value - exact.head) - exact.rest; // the first is exact where it matters: the two are close
    return static_cast<double>(std::fabs(difference) / ulp<T>(exact.head));
}

/// The same for an exact value that W holds, or holds closely enough.
template <class T, class W>
double ulp_error(T computed, W exact) requires std::is_floating_point_v<W>
{
    return ulp_error(computed, Exact<W>{exact});
}

} // namespace orvtest
