// What the tests of roots share: exact integer roots, operands next to a change of rounding, the signs that decide the
// status.
#pragma once

#include "tests/arith/calls.h"

#include <cmath>
#include <complex>

namespace orvtest {

// ---- Exact roots

/// Whether the root of x > 0, times 2^-scale, rounds to c > 0 or more: whether it is above c - 1/2, or equal and c is
/// even. Scales are from -64 to 64.
inline bool rounds_to_at_least(std::uint64_t c, const Wide& x, int scale)
{
    const Wide odd = Wide(c) * 2 - 1; // 4 * x * 4^-scale against (2 * c - 1)^2
    const Wide squared = scale > 0 ? odd * odd << 2 * scale : odd * odd;
    const std::strong_ordering order = (scale < 0 ? x << (2 - 2 * scale) : x << 2) <=> squared;
    return order > 0 || (order == 0 && c % 2 == 0);
}

/// sqrt(x) * 2^-scale to nearest, ties to even, as an R; 0 for x <= 0. The estimate in long doubles is corrected.
template <std::integral R, std::integral S>
R exact_root(S x, int scale)
{
    constexpr auto highest = static_cast<std::uint64_t>(std::numeric_limits<R>::max());
    if (x <= 0 || scale > 64) return 0;
    const int s = std::max(scale, -64); // everything saturates
    if (rounds_to_at_least(highest, x, s)) return std::numeric_limits<R>::max();
    const long double estimate = std::ldexp(std::sqrt(static_cast<long double>(x)), -s);
    std::uint64_t y = std::min(static_cast<std::uint64_t>(estimate), highest - 1);
    while (rounds_to_at_least(y + 1, x, s)) ++y;
    while (y > 0 && !rounds_to_at_least(y, x, s)) --y;
    return static_cast<R>(y);
}

/// The same for complex values. With z = re + i * im and m = |z| the root's parts are sqrt((m + re) / 2) and
/// sqrt((m - re) / 2), so the comparison of a part with c - 1/2 = h / 2 is that of m with h^2 * 4^scale / 2 -+ re, and
/// that of re^2 + im^2 with its square where it is positive.
inline bool complex_part_at_least(std::uint64_t c, const Orv16sc& z, bool imaginary, int scale)
{
    const int e = scale < 0 ? -scale : 0, t = scale > 0 ? scale : 0;
    const Wide odd = Wide(c) * 2 - 1;
    const Wide limit = (odd * odd << 2 * t) - (Wide(imaginary ? -z.re : z.re) << (1 + 2 * e)); // times 2 * 4^e
    if (limit.negative()) return true;
    const Wide norm = Wide(z.re) * Wide(z.re) + Wide(z.im) * Wide(z.im);
    const std::strong_ordering order = (norm << (2 + 4 * e)) <=> limit * limit;
    return order > 0 || (order == 0 && c % 2 == 0);
}
inline Orv16sc exact_root(const Orv16sc& z, int scale)
{
    if (scale > 16) return {0, 0};
    const int s = std::max(scale, -28); // everything other than 0 saturates
    const auto root = std::sqrt(std::complex<long double>(z.re, z.im));
    const auto part = [&](long double estimate, bool imaginary, std::uint64_t highest) {
        std::uint64_t y = static_cast<std::uint64_t>(std::min<long double>(std::ldexp(estimate, -s), 40000));
        y = std::min(y, highest);
        if (estimate == 0) return y;
        while (y < highest && complex_part_at_least(y + 1, z, imaginary, s)) ++y;
        while (y > 0 && !complex_part_at_least(y, z, imaginary, s)) --y;
        return y;
    };
    const auto re = part(root.real(), false, 32767);
    const auto im = static_cast<int>(part(std::abs(root.imag()), true, z.im < 0 ? 32768 : 32767));
    return {static_cast<Orv16s>(re), static_cast<Orv16s>(z.im < 0 ? -im : im)};
}

/// An oracle at one scale.
template <class R>
struct WantedRoot {
    int scale;

    template <class S>
    R operator()(const S& x) const
    {
        if constexpr (Complex<R>) return exact_root(x, scale);
        else return exact_root<R>(x, scale);
    }
};

// ---- Radicands at which the rounded root changes

/// Up to 2^63 - 1 and at least 0: the squares of some k and k + 1/2 in units of 2^scale and their neighbours, small and
/// large values, both ends.
template <std::integral S>
std::vector<S> near_radicands(int scale, std::size_t count, std::uint64_t seed)
{
    constexpr auto highest = static_cast<std::uint64_t>(std::numeric_limits<S>::max());
    std::vector<S> values;
    const auto add = [&](const Wide& center) {
        for (int distance = -2; distance <= 2; ++distance) {
            const Wide x = center + distance;
            if (!x.negative() && x <= highest) values.push_back(static_cast<S>(x.low64()));
        }
    };
    Random random(seed + static_cast<std::uint64_t>(scale + 1000));
    add(0);
    add(highest);
    for (std::size_t i = 0; i < count; ++i) {
        const Wide k = random.bits() >> random.below(64);
        for (const Wide& twice_root : {k << 1, (k << 1) + 1}) { // its square is 4 * x * 4^-scale
            const Wide square = twice_root * twice_root;
            add(scale > 0 ? square << 2 * scale >> 2 : square >> (2 - 2 * scale));
        }
        values.push_back(static_cast<S>(random.bits() % (highest + (highest != ~std::uint64_t{0}))));
    }
    return values;
}

// ---- Negative elements

template <class T>
bool is_negative(const T& x)
{
    if constexpr (Complex<T>) return false; // complex roots do not care
    else return x < 0;
}

/// The call for sweeps over operands some of which are negative: it wants orvWrnSqrtOfNegative where one is, and orvOk
/// otherwise.
template <class... Args>
Call<Args...> with_negatives(const Call<Args...>& call)
{
    return {call.name, call.parameters, [call](Args... args, int n) {
                const auto* elements = std::get<0>(std::tuple(args...)); // at any address
                using T = std::remove_cvref_t<decltype(*elements)>;
                bool negative = false;
                for (int i = 0; i < n; ++i) {
                    T x;
                    std::memcpy(&x,
                                reinterpret_cast<const std::byte*>(elements) + sizeof x * static_cast<std::size_t>(i),
                                sizeof x);
                    negative = negative || is_negative(x);
                }
                return told(call, call.function(args..., n), negative ? orvWrnSqrtOfNegative : orvOk, n);
            }};
}

// ---- Calls of either shape as one

/// f(src, dst, n)
template <class S, class D>
using Root = Call<const S*, D*>;

template <class S, class D, class... Last>
Root<S, D> root(const Export<OrvStatus, const S*, D*, int, Last...>& f, std::type_identity_t<Last>... last)
{
    return f.with(last...);
}
/// In place: the radicands are copied to where the roots will be.
template <class T, class... Last>
Root<T, T> root(const Export<OrvStatus, T*, int, Last...>& f, std::type_identity_t<Last>... last)
{
    const auto call = f.with(last...);
    return {call.name, call.parameters, [call](const T* src, T* dst, int n) {
                std::copy_n(src, n, dst);
                return call.function(dst, n);
            }};
}

/// The result for one radicand, which stands at every place of vectors of several lengths.
template <class S, class D>
D result_of_one(const Root<S, D>& f, std::type_identity_t<S> x, OrvStatus status = orvOk)
{
    D first = {};
    for (const std::size_t n : {std::size_t{1}, std::size_t{7}, std::size_t{40}, std::size_t{300}}) {
        const std::vector<S> xs(n, x);
        std::vector<D> d(n);
        EXPECT_EQ(f.function(xs.data(), d.data(), static_cast<int>(n)), status)
            << f.name << " (" << f.parameters << ")";
        if (n == 1) first = d[0];
        EXPECT_EQ(first_difference(element_type<D>(), d.data(), std::vector<D>(n, first).data(), n), n)
            << f.name << " (" << f.parameters << ") is not the same at each place of " << n;
    }
    return first;
}

/// Compares with wanted(x) in one call over all values.
template <class S, class D, class Wanted>
bool expect_roots(const Root<S, D>& f, const std::vector<S>& values, const Wanted& wanted)
{
    std::vector<D> results(values.size());
    const OrvStatus status = f.function(values.data(), results.data(), static_cast<int>(values.size()));
    const bool negative = std::any_of(values.begin(), values.end(), [](const S& x) { return is_negative(x); });
    EXPECT_EQ(status, negative ? orvWrnSqrtOfNegative : orvOk) << f.name << " (" << f.parameters << ")";
    for (std::size_t i = 0; i < values.size(); ++i) {
        const D want = wanted(values[i]);
        if (same_element(element_type<D>(), &results[i], &want)) continue;
        ADD_FAILURE() << f.name << " (" << f.parameters << ") of " << element_text(element_type<S>(), &values[i])
                      << " is " << element_text(element_type<D>(), &results[i]) << ", not "
                      << element_text(element_type<D>(), &want);
        return false;
    }
    return true;
}

/// A negative element at each place of vectors in turn: the status tells, and the other elements stay as they are.
template <class S, class D, class Wanted>
void expect_negatives_anywhere(const Root<S, D>& f, const Wanted& wanted)
{
    for (std::size_t n = 1; n <= 130; n += n < 70 ? 1 : 15) {
        std::vector<S> x(n, S(100));
        std::vector<D> want(n, wanted(x[0])), got(n);
        const auto length = static_cast<int>(n);
        ASSERT_EQ(f.function(x.data(), got.data(), length), orvOk) << f.name << " of length " << n;
        for (std::size_t place = 0; place < n; ++place) {
            x[place] = S(-1);
            want[place] = wanted(x[place]);
            ASSERT_EQ(f.function(x.data(), got.data(), length), orvWrnSqrtOfNegative)
                << f.name << " of length " << n << ", -1 at " << place;
            const std::size_t i = first_difference(element_type<D>(), got.data(), want.data(), n);
            ASSERT_EQ(i, n) << f.name << " of length " << n << ", -1 at " << place << ": "
                            << element_text(element_type<D>(), &got[i]);
            x[place] = S(100);
            want[place] = want[(place + 1) % n];
            if (n == 1) want[place] = wanted(x[place]);
        }
    }
}

} // namespace orvtest
