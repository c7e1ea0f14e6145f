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

/// A call with all its operands in memory of their own.
class CallerArrays {
public:
    CallerArrays(const AnyCall& call, std::vector<Operand> operands, std::size_t n);

    /// Calls in this state and returns what stands in MXCSR afterwards.
    unsigned call_in(unsigned state);

    OrvStatus status() const { return status_; }
    const std::byte* results() const;

private:
    const AnyCall& call_;
    std::vector<Operand> operands_;
    const std::size_t n_;
    std::vector<std::byte*> addresses_;
    OrvStatus status_ = orvOk;
};

/// Expects that the call in this state gives the wanted element n times, and leaves the state as it was.
void expect_in_state(const AnyCall& call, std::vector<Operand> operands, std::size_t n, unsigned state,
                     const ElementType& type, const void* wanted);

/// Expects that f computes telling sums a + b as the caller's state wants them, and leaves the state as it was.
/// arrange(a, b) gives the values of all arguments before the length, that of the destination included.
template <class... Args, class Arrange>
void expect_to_follow_the_state(const Call<Args...>& f, const Arrange& arrange)
{
    using Result = DestinationElement<Args...>;
    constexpr ElementType type = element_type<Result>();
    using Component = std::conditional_t<type.component_size == 4, float, double>;
    for (const TellingSum<Component>& sum : telling_sums<Component>())
        for (const std::size_t n :
             {std::size_t{1}, std::size_t{3}, std::size_t{9}, std::size_t{40}, std::size_t{300}}) {
            const auto operands = [&](const auto&... value) { return std::vector{repeated<Args>(value, n)...}; };
            const auto values = arrange(element_of<Result>(sum.a), element_of<Result>(sum.b));
            const Result want = element_of<Result>(sum.want);
            expect_in_state(f, std::apply(operands, values), n, sum.state, type, &want);
        }
}

/// Expects that f, on operands whose results are exact, meets none of what the flags tell: at no length it computes
/// with anything that is not an operand.
void expect_no_flags(const AnyCall& f, std::span<const OperandType> types);

template <class... Args>
void expect_no_flags(const Call<Args...>& f)
{
    expect_no_flags(f, operand_types<Args...>);
}

/// Sweeps in some states other than the usual one; the oracle is computed in the same state.
bool sweep_in_states(const AnyCall& f, std::span<const OperandType> types, const AnyOracle& oracle);

template <class... Args, class Oracle>
bool sweep_in_states(const Call<Args...>& f, const Oracle& oracle)
{
    return sweep_in_states(f, operand_types<Args...>, any_oracle<Args...>(oracle));
}

} // namespace orvtest
