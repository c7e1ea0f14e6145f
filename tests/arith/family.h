// What the tests of sums, differences and products share: operations on any kind of value, orders of argument
// checks, the exceptions from the law of scale factors, and dense sets of operands for narrow integers.
#pragma once

#include "tests/support/checks.h"
#include "tests/support/compare.h"
#include "tests/support/elementwise.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <utility>

namespace orvtest {

// ---- Operations, exact on exact integers, rounded once on floats; complex values by parts

struct Sum {
    template <class T>
    T operator()(const T& a, const T& b) const
    {
        if constexpr (Complex<T>) return {a.re + b.re, a.im + b.im};
        else return a + b;
    }
};
/// One type for both orders, so that templates over it are compiled once.
struct Difference {
    bool reversed;

    template <class T>
    T operator()(const T& first, const T& second) const
    {
        const T& a = reversed ? second : first;
        const T& b = reversed ? first : second;
        if constexpr (Complex<T>) return {a.re - b.re, a.im - b.im};
        else return a - b;
    }
};

constexpr Sum sum;
constexpr Difference first_minus_second = {false};
constexpr Difference second_minus_first = {true};

// ---- Sweeps

/// Lengths for all of this family: every one up to four whole vectors of bytes and the tails behind them, and both
/// sides of those at which a loop may begin to align its destination, to prefetch or to go round once more.
SweepOptions family_lengths();

/// The law of scale factors over an oracle of exact values, as an oracle of elements. From zero_from on it gives 0,
/// also where the law rounds to 1 or -1.
template <class Result, class Oracle>
struct ScaledOracle {
    Oracle oracle;
    int scale;
    int zero_from = INT_MAX;

    template <class... E>
    requires std::invocable<const Oracle&, decltype(exact(std::declval<const E&>()))...>
        Result operator()(const E&... elements) const
    {
        if (scale >= zero_from) return {};
        return saturate<Result>(scale_law(oracle(exact(elements)...), scale));
    }
};

/// Sweeps like sweep_exact, but an export that gives 0 from the scale zero_from on, whatever the law says. The scales
/// go from -reach to reach, and to the limits of their type.
template <class... Args, class Oracle>
bool sweep_exact_below(int zero_from, const Export<OrvStatus, Args...>& f, const Oracle& oracle,
                       int reach = scale_reach(element_type<DestinationElement<Args...>>().component_size))
{
    using Result = DestinationElement<Args...>;
    for (const int scale : scales(reach)) {
        const ScaledOracle<Result, Oracle> element = {oracle, scale, zero_from};
        if (!sweep_elements(f.with(scale), element, options_at_scale(family_lengths(), scale, reach))) return false;
    }
    return true;
}

// ---- Argument checks. The values are those of the valid call: scalars, the length, the scale.

template <class... Args, class... Others>
void expect_pointers_before_length(const Export<OrvStatus, Args...>& f, Others... others)
{
    ArgumentChecks(f, others...).null_pointers().bad_lengths().run();
}
template <class... Args, class... Others>
void expect_length_before_pointers(const Export<OrvStatus, Args...>& f, Others... others)
{
    ArgumentChecks(f, others...).bad_lengths().null_pointers().run();
}

// ---- Single operands

/// What a destination holds before the call.
template <Element T>
constexpr T filler()
{
    if constexpr (Complex<T>) return {77, 78};
    else return 77;
}

/// The result of f for one pair of operands. They stand at every place of vectors of several lengths, and the result is
/// expected to be the same at each.
template <class A, class B, class D>
D result_of(const Export<OrvStatus, const A*, const B*, D*, int, int>& f, std::type_identity_t<A> a,
            std::type_identity_t<B> b, int scale)
{
    D first = {};
    for (const std::size_t n : {std::size_t{1}, std::size_t{7}, std::size_t{40}, std::size_t{300}}) {
        const std::vector<A> as(n, a);
        const std::vector<B> bs(n, b);
        std::vector<D> d(n, filler<D>());
        EXPECT_EQ(f(as.data(), bs.data(), d.data(), static_cast<int>(n), scale), orvOk) << f.name();
        if (n == 1) first = d[0];
        expect_elements(f, d, std::vector<D>(n, first));
    }
    return first;
}
/// The same for a vector of values and a scalar.
template <class A, class B, class D>
D result_of(const Export<OrvStatus, const A*, B, D*, int, int>& f, std::type_identity_t<A> a,
            std::type_identity_t<B> value, int scale)
{
    D first = {};
    for (const std::size_t n : {std::size_t{1}, std::size_t{7}, std::size_t{40}, std::size_t{300}}) {
        const std::vector<A> as(n, a);
        std::vector<D> d(n, filler<D>());
        EXPECT_EQ(f(as.data(), value, d.data(), static_cast<int>(n), scale), orvOk) << f.name();
        if (n == 1) first = d[0];
        expect_elements(f, d, std::vector<D>(n, first));
    }
    return first;
}
/// The same in place.
template <class B, class D>
D result_of(const Export<OrvStatus, B, D*, int, int>& f, std::type_identity_t<D> a, std::type_identity_t<B> value,
            int scale)
{
    D first = {};
    for (const std::size_t n : {std::size_t{1}, std::size_t{7}, std::size_t{40}, std::size_t{300}}) {
        std::vector<D> d(n, a);
        EXPECT_EQ(f(value, d.data(), static_cast<int>(n), scale), orvOk) << f.name();
        if (n == 1) first = d[0];
        expect_elements(f, d, std::vector<D>(n, first));
    }
    return first;
}

// ---- Every pair of a set of operands

/// The law of scale factors on 64 bits, by its definition: fast enough for millions of operands, and an oracle of its
/// own beside scale_law. |x| * 2^-scale must stay below 2^63.
constexpr std::int64_t nearest_even(std::int64_t x, int scale)
{
    if (scale <= 0) return x * (std::int64_t{1} << -scale);
    const std::int64_t divisor = std::int64_t{1} << scale;
    const std::int64_t floor = x >> scale;
    const std::int64_t twice_rest = 2 * (x - floor * divisor);
    return twice_rest > divisor || (twice_rest == divisor && floor % 2 != 0) ? floor + 1 : floor;
}

template <std::integral T>
constexpr T limited(std::int64_t x)
{
    return static_cast<T>(std::clamp<std::int64_t>(x, std::numeric_limits<T>::min(), std::numeric_limits<T>::max()));
}

/// All 256 values of an 8-bit type.
template <std::integral T>
std::vector<T> all_bytes()
{
    std::vector<T> values;
    for (int i = 0; i < 256; ++i) values.push_back(static_cast<T>(i));
    return values;
}

/// The values of an integer type at which sums, shifts and roundings change: around zero and both limits, around
/// multiples of powers of two (where shifted values meet ties and limits), and some without any order. The distances
/// reach up to near; of the powers, each step-th is taken. All are the low bits of words, in the order of the type.
std::vector<std::uint64_t> critical_words(const ElementType& type, int near, std::size_t random_values, int step);

template <std::integral T>
std::vector<T> critical_values(int near, std::size_t random_values, int step = 1)
{
    std::vector<T> values;
    for (const std::uint64_t word : critical_words(element_type<T>(), near, random_values, step))
        values.push_back(static_cast<T>(word));
    return values;
}

/// All pairs from two sets: rows of the first set, one row for each value of the second.
template <class A, class B = A>
struct Pairs {
    std::vector<A> first;
    std::vector<B> second;
    std::size_t row;

    Pairs(const std::vector<A>& firsts, const std::vector<B>& seconds) : row(firsts.size())
    {
        for (const B& value : seconds) {
            first.insert(first.end(), firsts.begin(), firsts.end());
            second.insert(second.end(), firsts.size(), value);
        }
    }
};

/// One call over all pairs.
template <class A, class B, class D>
void call_on_pairs(const Export<OrvStatus, const A*, const B*, D*, int, int>& f, const Pairs<A, B>& pairs,
                   std::vector<D>& results, int scale)
{
    const auto n = static_cast<int>(pairs.first.size());
    ASSERT_EQ(f(pairs.first.data(), pairs.second.data(), results.data(), n, scale), orvOk);
}
/// One call for each row, the second value as the scalar.
template <class A, class B, class D>
void call_on_pairs(const Export<OrvStatus, const A*, B, D*, int, int>& f, const Pairs<A, B>& pairs,
                   std::vector<D>& results, int scale)
{
    for (std::size_t i = 0; i < pairs.first.size(); i += pairs.row)
        ASSERT_EQ(f(&pairs.first[i], pairs.second[i], &results[i], static_cast<int>(pairs.row), scale), orvOk);
}
/// The same in place.
template <class B, class D>
void call_on_pairs(const Export<OrvStatus, B, D*, int, int>& f, const Pairs<D, B>& pairs, std::vector<D>& results,
                   int scale)
{
    results = pairs.first;
    for (std::size_t i = 0; i < pairs.first.size(); i += pairs.row)
        ASSERT_EQ(f(pairs.second[i], &results[i], static_cast<int>(pairs.row), scale), orvOk);
}

/// A typed element for messages.
struct AnyElement {
    ElementType type;
    const void* element;
};
template <Element T>
AnyElement any_element(const T& element)
{
    return {element_type<T>(), &element};
}
void add_pair_failure(const char* name, AnyElement a, AnyElement b, int scale, AnyElement got, AnyElement want);

/// Compares f with wanted(a, b, scale) for all pairs and all these scales.
template <class A, class B, class... Args, class Wanted>
void expect_all_pairs(const Export<OrvStatus, Args...>& f, const Pairs<A, B>& pairs, const std::vector<int>& scales,
                      const Wanted& wanted)
{
    using Result = DestinationElement<Args...>;
    static_assert(element_type<Result>().number != Number::binary_float, "compared by their bytes");
    std::vector<Result> results(pairs.first.size());
    for (const int scale : scales) {
        call_on_pairs(f, pairs, results, scale);
        for (std::size_t i = 0; i < results.size(); ++i) {
            const Result want = wanted(pairs.first[i], pairs.second[i], scale);
            if (std::memcmp(&results[i], &want, sizeof want) == 0) continue;
            add_pair_failure(f.name(), any_element(pairs.first[i]), any_element(pairs.second[i]), scale,
                             any_element(results[i]), any_element(want));
            return;
        }
    }
}
/// The same from one scale to another.
template <class A, class B, class... Args, class Wanted>
void expect_all_pairs(const Export<OrvStatus, Args...>& f, const Pairs<A, B>& pairs, int lowest, int highest,
                      const Wanted& wanted)
{
    std::vector<int> scales;
    for (int scale = lowest; scale <= highest; ++scale) scales.push_back(scale);
    expect_all_pairs(f, pairs, scales, wanted);
}

} // namespace orvtest
