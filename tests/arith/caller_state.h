// The floating-point state of the caller, which functions follow and leave as it is.
#pragma once

#include "tests/support/elementwise.h"

#include <gtest/gtest.h>
#include <x86intrin.h>

namespace orvtest {

/// Bits of MXCSR.
enum : unsigned {
    to_nearest = 0,
    flag_bits = 0x003F, ///< what operations have met: invalid, denormal, division by zero, overflow, underflow, inexact
    denormals_are_zero = 0x0040,
    round_down = 0x2000,
    round_up = 0x4000,
    round_to_zero = 0x6000,
    flush_to_zero = 0x8000
};

/// While it lives, the thread works in this state.
class CallerState {
public:
    explicit CallerState(unsigned bits) : before_(_mm_getcsr())
    {
        _mm_setcsr((before_ & ~(flag_bits | round_to_zero | flush_to_zero | denormals_are_zero)) | bits);
    }
    ~CallerState() { _mm_setcsr(before_); }
    CallerState(const CallerState&) = delete;
    CallerState& operator=(const CallerState&) = delete;

private:
    unsigned before_;
};

/// A sum whose result tells the state in which it was computed.
template <class T>
struct TellingSum {
    unsigned state;
    T a, b, want;
};

template <class T>
std::vector<TellingSum<T>> telling_sums()
{
    const T step = std::numeric_limits<T>::epsilon(); // from 1 to its successor
    const T least = std::numeric_limits<T>::min();    // the least normal number
    const T above = 1 + step, below = -1 - step;
    return {{to_nearest, 1, step * T(0.75), above},
            {to_nearest, -1, step * T(-0.25), -1},
            {round_to_zero, 1, step * T(0.75), 1},
            {round_to_zero, -1, step * T(-0.75), -1},
            {round_up, 1, step * T(0.25), above},
            {round_up, -1, step * T(-0.75), -1},
            {round_down, 1, step * T(0.75), 1},
            {round_down, -1, step * T(-0.25), below},
            {to_nearest, least * T(1.5), -least, least / 2},
            {flush_to_zero, least * T(1.5), -least, 0},
            {to_nearest, least / 2, least / 4, least * T(0.75)},
            {denormals_are_zero, least / 2, least / 4, 0}};
}

/// A real value as an element: complex elements have it in both parts.
template <Element T, class Component>
T element_of(Component x)
{
    if constexpr (Complex<T>) return {x, x};
    else return x;
}

/// All operands of a call, in memory of their own.
template <class... Args>
class CallerArrays {
public:
    CallerArrays(const Call<Args...>& call, std::tuple<Operand<Args>...> operands, std::size_t n)
        : call_(call), operands_(std::move(operands)), n_(n)
    {
        std::size_t arrays = 0;
        const auto add = [&](auto& operand) {
            if constexpr (requires { operand.array; }) {
                operand.array = arrays++;
                memory_.push_back(operand.bytes());
            }
        };
        std::apply([&](auto&... operand) { (add(operand), ...); }, operands_);
        for (std::vector<std::byte>& bytes : memory_) addresses_.push_back(bytes.data());
    }

    /// Calls in this state and returns what stands in MXCSR afterwards.
    unsigned call_in(unsigned state)
    {
        const auto call = [&](const auto&... operand) {
            return call_.function(operand.argument(addresses_)..., static_cast<int>(n_));
        };
        const CallerState scope(state);
        status_ = std::apply(call, operands_);
        return _mm_getcsr();
    }

    OrvStatus status() const { return status_; }
    std::vector<DestinationElement<Args...>> results() const
    {
        const std::byte* at = addresses_[std::get<find_destination<Args...>()>(operands_).array];
        std::vector<DestinationElement<Args...>> results(n_);
        std::memcpy(results.data(), at, n_ * sizeof results[0]);
        return results;
    }

private:
    const Call<Args...>& call_;
    std::tuple<Operand<Args>...> operands_;
    const std::size_t n_;
    std::vector<std::vector<std::byte>> memory_;
    std::vector<std::byte*> addresses_;
    OrvStatus status_ = orvOk;
};

/// The same value at each place.
template <class Argument, class Value>
Operand<Argument> repeated(const Value& value, std::size_t n)
{
    Operand<Argument> operand;
    if constexpr (requires { operand.values; }) operand.values.assign(n, value);
    else operand.value = value;
    return operand;
}

/// Expects that f computes telling sums a + b as the caller's state wants them, and leaves the state as it was.
/// arrange(a, b) gives the values of all arguments before the length, that of the destination included.
template <class... Args, class Arrange>
void expect_to_follow_the_state(const Call<Args...>& f, const Arrange& arrange)
{
    using Result = DestinationElement<Args...>;
    constexpr std::size_t component_size = element_type<Result>().component_size;
    using Component = std::conditional_t<component_size == 4, float, double>;
    for (const TellingSum<Component>& sum : telling_sums<Component>())
        for (const std::size_t n :
             {std::size_t{1}, std::size_t{3}, std::size_t{9}, std::size_t{40}, std::size_t{300}}) {
            const auto values = arrange(element_of<Result>(sum.a), element_of<Result>(sum.b));
            const auto operands = [&](const auto&... value) { return std::tuple(repeated<Args>(value, n)...); };
            CallerArrays<Args...> arrays(f, std::apply(operands, values), n);
            const unsigned after = arrays.call_in(sum.state);
            EXPECT_EQ(arrays.status(), orvOk) << f.name;
            EXPECT_EQ(after & ~flag_bits & (round_to_zero | flush_to_zero | denormals_are_zero), sum.state) << f.name;

            const std::vector<Result> want(n, element_of<Result>(sum.want)), got = arrays.results();
            const std::size_t i = first_difference(element_type<Result>(), got.data(), want.data(), n);
            EXPECT_EQ(i, n) << f.name << " in the state " << std::hex << sum.state << ": "
                            << element_text(element_type<Result>(), &got[std::min(i, n - 1)]) << ", not "
                            << element_text(element_type<Result>(), &want[0]);
        }
}

/// Expects that f, on operands whose results are exact, meets none of what the flags tell: at no length it computes
/// with anything that is not an operand.
template <class... Args>
void expect_no_flags(const Call<Args...>& f)
{
    for (std::size_t n = 1; n <= 70; ++n) {
        Draw from = {Random(seed_of(f.name, n)), n, n, Floats::small_integers};
        std::tuple<Operand<Args>...> operands;
        std::apply([&](auto&... operand) { (operand.draw(from), ...); }, operands);
        CallerArrays<Args...> arrays(f, operands, n);
        EXPECT_EQ(arrays.call_in(to_nearest) & flag_bits, 0u) << f.name << " of length " << n;
    }
}

/// Sweeps in some states other than the usual one; the oracle is computed in the same state.
template <class... Args, class Oracle>
bool sweep_in_states(const Call<Args...>& f, const Oracle& oracle)
{
    SweepOptions options;
    options.lengths = {1, 2, 3, 4, 5, 7, 8, 11, 16, 17, 31, 32, 33, 64, 67, 257};
    for (const unsigned state : {round_to_zero | flush_to_zero, round_up | denormals_are_zero, round_down | 0u}) {
        const CallerState scope(state);
        if (!sweep_elements(f, oracle, options)) return false;
    }
    return true;
}

} // namespace orvtest
