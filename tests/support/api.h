// Calling exports. ORV_EXPORT(name) is the export with its name; every call through it checks that the processor state
// which belongs to the caller comes back untouched.
#pragma once

#include "orvs/types.h"

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <tuple>
#include <type_traits>
#include <utility>

namespace orvtest {

/// From construction to destruction the processor state must be the same: the control bits of MXCSR (not its sticky
/// exception flags), the x87 control word, a clear direction flag, an empty x87 register stack. What is not is reported
/// as a failure of the named export, and repaired.
class StateGuard {
public:
    explicit StateGuard(const char* export_name);
    ~StateGuard();
    StateGuard(const StateGuard&) = delete;
    StateGuard& operator=(const StateGuard&) = delete;

private:
    const char* outer_name_;
    std::uint32_t mxcsr_;
    std::uint16_t x87_control_;
};

/// How many calls have failed that check so far.
int state_failures();

/// Makes an invalid memory access tell which export was running, with the note of the sweep, before it ends the
/// program.
void install_fault_reporter();

/// Says what is being called, for the fault reporter, while it lives.
class CallNote {
public:
    explicit CallNote(std::function<std::string()> text);
    ~CallNote();
    CallNote(const CallNote&) = delete;
    CallNote& operator=(const CallNote&) = delete;

private:
    std::function<std::string()> text_;
};

/// A call over vectors of a common length, as sweeps make it. Args are the arguments before the length; those behind it
/// are fixed already.
template <class... Args>
struct Call {
    const char* name;       ///< of the export
    std::string parameters; ///< the fixed arguments, for messages
    std::function<OrvStatus(Args..., int length)> function;
};

/// An exported function with its name.
template <class Result, class... Args>
class Export {
    static_assert(!std::floating_point<Result>, "in 32-bit code such a result comes on the x87 stack");

public:
    Export(const char* name, Result (*function)(Args...)) : name_(name), function_(function) {}

    const char* name() const { return name_; }

    Result operator()(Args... args) const
    {
        const StateGuard guard(name_);
        return function_(args...);
    }

    /// The call with the arguments behind the length fixed: orvsAdd_16s_Sfs.with(3) adds at scale 3.
    template <class... Last>
    auto with(Last... last) const
    {
        static_assert(sizeof...(Args) > sizeof...(Last), "the length is not among the fixed arguments");
        return with_leading(std::make_index_sequence<sizeof...(Args) - sizeof...(Last) - 1>(), last...);
    }

    /// The call as a lambda makes it, which takes the export and then arguments of explicit types, the length last:
    /// as([=](auto f, const Orv32f* src, Orv32f* dst, int len) { return f(dst, src, len, hint); }, "hint 1")
    template <class Lambda>
    auto as(Lambda lambda, std::string parameters = "") const
    {
        return as_lambda(lambda, std::move(parameters), &Lambda::template operator()<Export>);
    }

private:
    template <std::size_t... I, class... Last>
    auto with_leading(std::index_sequence<I...>, Last... last) const
    {
        using All = std::tuple<Args...>;
        static_assert(std::is_same_v<std::tuple_element_t<sizeof...(I), All>, int>,
                      "the length stands before the fixed");
        std::string parameters;
        ((parameters += (parameters.empty() ? "" : ", ") + std::to_string(last)), ...);
        return Call<std::tuple_element_t<I, All>...>{
            name_, parameters, [self = *this, last...](std::tuple_element_t<I, All>... first, int length) {
                return self(first..., length, last...);
            }};
    }

    template <class Lambda, class... All>
    auto as_lambda(Lambda lambda, std::string parameters, OrvStatus (Lambda::*)(Export, All...) const) const
    {
        return as_leading<Lambda, std::tuple<All...>>(lambda, std::move(parameters),
                                                      std::make_index_sequence<sizeof...(All) - 1>());
    }
    template <class Lambda, class All, std::size_t... I>
    auto as_leading(Lambda lambda, std::string parameters, std::index_sequence<I...>) const
    {
        return Call<std::tuple_element_t<I, All>...>{
            name_, std::move(parameters), [self = *this, lambda](std::tuple_element_t<I, All>... first, int length) {
                return lambda(self, first..., length);
            }};
    }

    const char* name_;
    Result (*function_)(Args...);
};

} // namespace orvtest

#define ORV_EXPORT(function_name) (::orvtest::Export(#function_name, &function_name))
