// What the tests of products share: the operation on any kind of value, sweeps over the scales that products need, and
// products that tell the state in which they were computed.
#pragma once

#include "tests/arith/caller_state.h"
#include "tests/arith/family.h"

#include <tuple>

namespace orvtest {

// ---- The operation

/// a * b, exact on exact integers. A product of complex floats has two fused operations, the inner product rounded
/// first; a is the first argument, or the second one if reversed. A real factor multiplies part by part.
struct Product {
    bool reversed;

    template <class T>
    T operator()(const T& first, const T& second) const
    {
        const T& a = reversed ? second : first;
        const T& b = reversed ? first : second;
        if constexpr (is_complex_float<T>())
            return {std::fma(a.re, b.re, -kept(a.im * b.im)), std::fma(b.im, a.re, a.im * b.re)};
        else return a * b;
    }
    template <class T, Complex C>
    requires(!Complex<T>) C operator()(const T& factor, const C& z) const { return {factor * z.re, factor * z.im}; }

private:
    /// The rounded x: a compiler may take -(p * q) for (-p) * q, which is not the same where rounding is directed.
    template <std::floating_point T>
    static T kept(T x)
    {
        asm volatile("" : "+x"(x));
        return x;
    }
    template <class T>
    static constexpr bool is_complex_float()
    {
        if constexpr (Complex<T>) return std::floating_point<decltype(T::re)>;
        else return false;
    }
};

constexpr Product product = {false};
constexpr Product product_with_second_first = {true};

/// The law of scale factors over the exact product of one pair.
template <class Result>
struct ScaledProduct {
    template <class A, class B>
    Result operator()(const A& a, const B& b, int scale) const
    {
        return ScaledOracle<Result, Product>{product, scale}(a, b);
    }
};
/// The same for factors of 8 and 16 bits, faster; |a * b| * 2^-scale must stay below 2^63.
template <std::integral Result>
Result scaled_product(std::int64_t a, std::int64_t b, int scale)
{
    return limited<Result>(nearest_even(a * b, scale));
}

// ---- Sweeps

/// Scales beyond which all products are zeros or limits: they have twice the bits of their factors.
constexpr int product_reach(std::size_t component_size)
{
    return component_size < 4 ? 40 : component_size == 4 ? 70 : 134;
}

/// Sweeps an integer export: at scale 0 if it has none, otherwise at all scales up to the reach. All lengths are tried
/// at those of options_at_scale, and where the result is the upper half of the product, or half of that.
template <class... Args>
bool sweep_products(const Export<OrvStatus, Args...>& f, const Product& oracle = product)
{
    using Result = DestinationElement<Args...>;
    using Element = ScaledOracle<Result, Product>;
    if constexpr (arguments_behind_length<Args...>() == 0)
        return sweep_elements(f.with(), Element{oracle, 0}, family_lengths());
    else {
        constexpr std::size_t component_size = element_type<Result>().component_size;
        constexpr int bits = 8 * static_cast<int>(component_size), reach = product_reach(component_size);
        for (const int scale : scales(reach)) {
            const bool upper_half = scale == bits || scale == bits - 1;
            const SweepOptions all = family_lengths();
            const SweepOptions options = upper_half ? all : options_at_scale(all, scale, reach);
            if (!sweep_elements(f.with(scale), Element{oracle, scale}, options)) return false;
        }
        return true;
    }
}

// ---- Sets of operands

/// Complex values of all pairs of these parts.
template <Complex T>
std::vector<T> complex_values(const std::vector<decltype(T::re)>& parts)
{
    std::vector<T> values;
    for (const auto re : parts)
        for (const auto im : parts) values.push_back({re, im});
    return values;
}

/// Parts whose products, sums and differences of products meet the limits of their types and those of twice the width.
template <std::signed_integral T>
std::vector<T> critical_parts()
{
    constexpr T lowest = std::numeric_limits<T>::min(), highest = std::numeric_limits<T>::max();
    constexpr T middle = static_cast<T>(T{1} << (4 * sizeof(T) - 1));
    return {lowest, static_cast<T>(lowest + 1), static_cast<T>(lowest / 2), -3, -1, 0, 1, middle, highest};
}

/// Compares f with the law at every scale where all parts of all factors are the lowest of their type. The sums of
/// their products are the largest of all.
template <class F, Complex T>
void expect_products_of_minima(const F& f, const T& lowest)
{
    for (const int scale : scales(product_reach(element_type<T>().component_size)))
        expect_value(f, result_of(f, lowest, lowest, scale), ScaledProduct<T>()(lowest, lowest, scale));
}

// ---- The caller's floating-point state

/// A product whose result tells the state in which it was computed; the same in each part of complex values.
template <class T>
struct TellingProduct {
    unsigned state;
    T a, b, want;
};

template <class T>
std::vector<TellingProduct<T>> telling_products()
{
    const T step = std::numeric_limits<T>::epsilon(); // from 1 to its successor
    const T least = std::numeric_limits<T>::min();    // the least normal number
    const T a = 1 + step, b = T(1.5);                 // their product is between these two, a tie
    const T below = b + step, above = b + 2 * step;
    return {
        {to_nearest, a, b, above},         {to_nearest, a, -b, -above},       {round_to_zero, a, b, below},
        {round_to_zero, -a, b, -below},    {round_up, a, b, above},           {round_up, -a, b, -below},
        {round_down, a, b, below},         {round_down, a, -b, -above},       {to_nearest, least, T(0.5), least / 2},
        {flush_to_zero, least, T(0.5), 0}, {to_nearest, least / 2, 2, least}, {denormals_are_zero, least / 2, 2, 0}};
}

/// A real value as an element, without an imaginary part.
template <Element T, class Component>
T real_element(Component x)
{
    if constexpr (Complex<T>) return {x, 0};
    else return x;
}

/// Expects that f computes telling products as the caller's state wants them, and leaves the state as it was. The
/// factors are its first two arguments.
template <class First, class Second, class... Rest>
void expect_products_to_follow_the_state(const Call<First, Second, Rest...>& f)
{
    using Result = DestinationElement<First, Second, Rest...>;
    constexpr ElementType type = element_type<Result>();
    using Component = std::conditional_t<type.component_size == 4, float, double>;
    for (const TellingProduct<Component>& telling : telling_products<Component>())
        for (const std::size_t n : {std::size_t{1}, std::size_t{3}, std::size_t{9}, std::size_t{40}}) {
            const std::vector operands = {repeated<First>(real_element<ElementOf<First>>(telling.a), n),
                                          repeated<Second>(element_of<ElementOf<Second>>(telling.b), n),
                                          repeated<Rest>(Result{}, n)...};
            const Result want = element_of<Result>(telling.want);
            expect_in_state(f, operands, n, telling.state, type, &want);
        }
}

/// Sweeps an integer export at one scale while the caller rounds otherwise and hides subnormal numbers.
template <class... Args>
bool sweep_products_in_states(const Export<OrvStatus, Args...>& f, int scale, const Product& oracle = product)
{
    return sweep_in_states(f.with(scale), ScaledOracle<DestinationElement<Args...>, Product>{oracle, scale});
}

} // namespace orvtest
