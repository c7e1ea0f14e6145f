// Conversions by their definitions, in arithmetic wide enough to be exact, and what the tests of the family share.
#pragma once

#include "tests/arith/caller_state.h"
#include "tests/arith/large.h"
#include "tests/support/checks.h"
#include "tests/support/compare.h"
#include "tests/support/elementwise.h"

#include <bit>
#include <cmath>
#include <set>

namespace orvtest {

// ---- Rounding and saturation. A long double has 64 bits: it holds every source and every destination.

/// y as an integer.
inline long double rounded(long double y, OrvRoundMode mode)
{
    const long double whole = std::trunc(y);
    const long double rest = std::fabs(y - whole);
    const auto is_odd = [&] { return std::fmod(whole, 2.0L) != 0; };
    const bool away =
        mode == orvRndNear ? rest > 0.5L || (rest == 0.5L && is_odd()) : mode != orvRndZero && rest >= 0.5L;
    return away ? whole + std::copysign(1.0L, y) : whole;
}

template <class T>
constexpr long double lowest_of = static_cast<long double>(std::numeric_limits<T>::min());
template <class T>
constexpr long double highest_of = static_cast<long double>(std::numeric_limits<T>::max());
template <>
inline constexpr long double lowest_of<Sample24s> = -0x800000;
template <>
inline constexpr long double highest_of<Sample24s> = 0x7FFFFF;
template <>
inline constexpr long double lowest_of<Sample24u> = 0;
template <>
inline constexpr long double highest_of<Sample24u> = 0xFFFFFF;

/// An integer as an element: the nearest of the type, and the lowest for a not-a-number.
template <class T>
T saturated(long double y)
{
    const long double value = std::isnan(y) || y < lowest_of<T> ? lowest_of<T> : y > highest_of<T> ? highest_of<T> : y;
    if constexpr (Packed<T>) return T::of(static_cast<Orv32s>(value));
    else return static_cast<T>(value);
}

template <class T>
long double value_of(const T& x)
{
    if constexpr (Packed<T>) return x.value();
    else return static_cast<long double>(x);
}

/// The factor of a scale: sign and exponent field, as one number of as many bits, are those of 1 less the scale.
template <std::floating_point T>
long double factor_of(int scale)
{
    constexpr int fields = sizeof(T) == 4 ? 9 : 12, bias = sizeof(T) == 4 ? 127 : 1023;
    const std::int64_t modulus = std::int64_t{1} << fields;
    const std::int64_t field = ((bias - std::int64_t{scale}) % modulus + modulus) % modulus;
    const std::int64_t exponent = field % (modulus / 2);
    const long double sign = field >= modulus / 2 ? -1 : 1;
    if (exponent == 0) return sign * 0.0L;
    if (exponent == modulus / 2 - 1) return sign * std::numeric_limits<long double>::infinity();
    return sign * std::ldexp(1.0L, static_cast<int>(exponent) - bias);
}

/// Floating to integer. What the product loses below the least normal number rounds to 0 anyway.
template <class D, std::floating_point S>
D to_integer(S x, OrvRoundMode mode, int scale)
{
    return saturated<D>(rounded(value_of(x) * factor_of<S>(scale), mode));
}

/// x as a T, rounded as the bits of MXCSR say.
template <std::floating_point T>
T to_floating(long double x, unsigned state)
{
    const T nearest = static_cast<T>(x); // this is the x87's work, and its state stays to nearest
    if (std::isnan(x) || static_cast<long double>(nearest) == x) return nearest;
    const T up = std::numeric_limits<T>::infinity();
    const bool above = static_cast<long double>(nearest) > x;
    switch (state & round_to_zero) {
    case round_up: return above ? nearest : std::nextafter(nearest, up);
    case round_down: return above ? std::nextafter(nearest, -up) : nearest;
    case round_to_zero: return above == (x > 0) ? std::nextafter(nearest, T(0)) : nearest;
    default: return nearest;
    }
}

// ---- Calls

constexpr auto rnd_7 = std::bit_cast<OrvRoundMode>(7); // none of the three

/// A vector has up to 32 elements, and up to two of them are a road of their own.
inline SweepOptions convert_lengths()
{
    std::set<int> lengths;
    for (const int n : lengths_around()) lengths.insert(n);
    for (int n = longest_dense_length + 1; n <= 200; ++n) lengths.insert(n);
    SweepOptions options;
    options.lengths.assign(lengths.begin(), lengths.end());
    return options;
}

/// An export on packed samples takes bytes: the same call on samples.
template <class S, class D, class... Args, class... Last>
auto on_samples(const Export<OrvStatus, Args...>& f, Last... last)
{
    const auto bytes = []<class T>(T* p) {
        if constexpr (std::same_as<T, D> && Packed<D>) return reinterpret_cast<Orv8u*>(p);
        else if constexpr (Packed<S> && std::same_as<T, const S>) return reinterpret_cast<const Orv8u*>(p);
        else return p;
    };
    std::string parameters;
    ((parameters += (parameters.empty() ? "" : ", ") + std::to_string(last)), ...);
    return f.as([=](auto g, const S* src, D* dst, int len) { return g(bytes(src), bytes(dst), len, last...); },
                parameters);
}

/// One call over all these values, compared with the oracle. Says whether all was right.
template <class S, class D, class Oracle>
bool expect_all(const Call<const S*, D*>& f, const std::vector<S>& values, const Oracle& oracle,
                NanView nans = NanView::one_value)
{
    std::vector<D> got(values.size()), want(values.size());
    for (std::size_t i = 0; i < values.size(); ++i) want[i] = oracle(values[i]);
    EXPECT_EQ(f.function(values.data(), got.data(), static_cast<int>(values.size())), orvOk) << f.name;
    look_at(f.name, got.data(), got.size(), nans);
    const std::size_t i = first_difference(element_type<D>(), got.data(), want.data(), got.size(), nans);
    if (i == values.size()) return true;
    ADD_FAILURE() << f.name << " (" << f.parameters << ") of " << element_text(element_type<S>(), &values[i]) << " is "
                  << element_text(element_type<D>(), &got[i]) << ", not " << element_text(element_type<D>(), &want[i]);
    return false;
}

/// Every pattern of an 8- or 16-bit type.
template <std::integral T>
std::vector<T> all_patterns()
{
    std::vector<T> values;
    for (int i = 0; i < 1 << 8 * sizeof(T); ++i) values.push_back(static_cast<T>(i));
    return values;
}

/// x with its neighbours on both sides, and the same with the other sign.
template <std::floating_point T>
void add_around(std::vector<T>& values, T x, int neighbours = 2)
{
    const T up = std::numeric_limits<T>::infinity();
    T above = x, below = x;
    for (int i = 0; i <= neighbours; ++i) {
        for (const T y : {above, below}) values.insert(values.end(), {y, -y});
        above = std::nextafter(above, up);
        below = std::nextafter(below, -up);
    }
}

/// Where conversions change: around every power of two, the integers and ties next to it, all limits of integer types,
/// special values, and values without any order.
template <std::floating_point T>
std::vector<T> critical_floats()
{
    using Limits = std::numeric_limits<T>;
    std::vector<T> values;
    for (int e = Limits::min_exponent - Limits::digits; e <= Limits::max_exponent; ++e) {
        const T power = std::ldexp(T(1), e - 1);
        for (const T factor : {T(1), T(1.5), T(1.25), T(1.75)}) add_around(values, power * factor);
        if (e < 0 || e > Limits::digits + 12) continue;
        for (const T distance : {T(0.5), T(1), T(1.5), T(2), T(2.5), T(3.5), T(32768), T(32768.5)}) {
            add_around(values, power + distance);
            add_around(values, power - distance);
        }
    }
    for (const T x : {T(0), Limits::infinity(), Limits::max(), Limits::denorm_min(), T(0.5), T(2.5)}) {
        add_around(values, x);
    }
    Random random(sizeof(T));
    for (const T x : inputs<T>(random, 100000)) values.push_back(x);
    using Bits = std::conditional_t<sizeof(T) == 4, std::uint32_t, std::uint64_t>;
    const std::size_t n = values.size();
    values.resize(n + 100000);
    for (std::size_t i = n; i < values.size(); ++i) {
        const auto bits = static_cast<Bits>(random.bits());
        std::memcpy(&values[i], &bits, sizeof bits);
    }
    return values;
}

/// Every integer from low to high and every tie between them, with neighbours.
template <std::floating_point T>
std::vector<T> dense_ties(int low, int high)
{
    std::vector<T> values;
    for (int k = low; k <= high; ++k) {
        add_around(values, static_cast<T>(k), 1);
        add_around(values, static_cast<T>(k) + T(0.5));
    }
    return values;
}

// ---- The processor's state

/// The states of rounding that a caller may have.
constexpr unsigned rounding_states[] = {to_nearest, round_down, round_up, round_to_zero};
constexpr unsigned invalid_flag = 1;

/// Expects the results of f to be the same in every state, and the flag of invalid operations to be as before.
template <class S, class D>
void expect_no_dependence_on_state(const Call<const S*, D*>& f, const std::vector<S>& values)
{
    std::vector<D> want(values.size()), got(values.size());
    const auto n = static_cast<int>(values.size());
    ASSERT_EQ(f.function(values.data(), want.data(), n), orvOk);
    look_at(f.name, want.data(), want.size());
    for (const unsigned state : rounding_states)
        for (const unsigned flag : {0u, invalid_flag}) {
            unsigned after;
            {
                const CallerState scope(state | flag);
                f.function(values.data(), got.data(), n);
                after = _mm_getcsr();
            }
            EXPECT_EQ(after & round_to_zero, state) << f.name << " " << f.parameters;
            EXPECT_EQ(after & invalid_flag, flag) << f.name << " " << f.parameters;
            EXPECT_EQ(std::memcmp(got.data(), want.data(), want.size() * sizeof want[0]), 0)
                << f.name << " (" << f.parameters << ") in state " << state;
        }
}

/// Expects f with the destination in the place of the source, of elements of the same size, to do the same.
template <class S, class D>
void expect_same_in_place(const Call<const S*, D*>& f)
{
    static_assert(sizeof(S) == sizeof(D));
    for (const int n : {1, 2, 3, 5, 8, 9, 15, 16, 17, 31, 32, 33, 63, 64, 65, 70, 127, 200, 1023, 700001}) {
        Random random(seed_of(f.name, static_cast<std::uint64_t>(n)));
        const auto values = inputs<S>(random, static_cast<std::size_t>(n));
        std::vector<D> want(values.size());
        ASSERT_EQ(f.function(values.data(), want.data(), n), orvOk);
        auto shared = values;
        ASSERT_EQ(f.function(shared.data(), reinterpret_cast<D*>(shared.data()), n), orvOk);
        EXPECT_EQ(std::memcmp(shared.data(), want.data(), want.size() * sizeof want[0]), 0)
            << f.name << ", length " << n;
    }
}

} // namespace orvtest
