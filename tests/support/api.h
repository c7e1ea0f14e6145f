// Calling exports. ORV_EXPORT(name) is the export with its name; every call through it checks that the processor state
// which belongs to the caller comes back untouched.
#pragma once

#include "orvs/types.h"

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <functional>
#include <initializer_list>
#include <memory>
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

/// The value of any one argument, as bytes: what is done for all signatures alike is compiled once.
class AnyArgument {
public:
    template <class T>
    static AnyArgument of(const T& value)
    {
        static_assert(sizeof(T) <= sizeof bytes_ && std::is_trivially_copyable_v<T>);
        return of_bytes(&value, sizeof value);
    }
    static AnyArgument of_bytes(const void* value, std::size_t size)
    {
        AnyArgument argument;
        std::memcpy(argument.bytes_, value, size);
        return argument;
    }

    /// By reference: a float that passes through a function result may lose its signalling bit on the way.
    template <class T>
    const T& as() const
    {
        return *reinterpret_cast<const T*>(bytes_);
    }

private:
    alignas(8) std::byte bytes_[16] = {};
};

/// A value, converted to the type of the argument.
template <class T>
AnyArgument any_argument(std::type_identity_t<T> value)
{
    return AnyArgument::of(value);
}

/// A function of any signature.
class Callee {
public:
    Callee() = default;
    virtual ~Callee() = default;
    Callee(const Callee&) = delete;
    Callee& operator=(const Callee&) = delete;

    virtual OrvStatus call(const AnyArgument* arguments) const = 0;
};

/// A function object with parameters of these types.
template <class Function, class Indices, class... Args>
class CalleeOf;
template <class Function, std::size_t... I, class... Args>
class CalleeOf<Function, std::index_sequence<I...>, Args...> final : public Callee {
public:
    explicit CalleeOf(const Function& function) : function_(function) {}
    OrvStatus call(const AnyArgument* arguments) const override
    {
        return function_(arguments[I].template as<Args>()...);
    }

private:
    const Function function_;
};

template <class... Args, class Function>
std::shared_ptr<const Callee> make_callee(const Function& function)
{
    const Callee* callee = new CalleeOf<Function, std::index_sequence_for<Args...>, Args...>(function);
    return std::shared_ptr<const Callee>(callee);
}

/// A call over vectors of a common length, as sweeps make it. The callee takes the arguments before the length and the
/// length; those behind it are fixed already.
struct AnyCall {
    const char* name;       ///< of the export
    std::string parameters; ///< the fixed arguments, for messages
    std::shared_ptr<const Callee> callee;
};

/// The same of known types. Args are the arguments before the length.
template <class... Args>
struct Call : AnyCall {
    explicit Call(AnyCall call) : AnyCall(std::move(call)) {}
    template <class Function>
    Call(const char* export_name, std::string fixed, const Function& f)
        : AnyCall{export_name, std::move(fixed), make_callee<Args..., int>(f)}
    {}

    OrvStatus function(Args... args, int length) const
    {
        const AnyArgument arguments[] = {AnyArgument::of(args)..., AnyArgument::of(length)};
        return callee->call(arguments);
    }
};

/// A fixed argument with its text.
struct FixedArgument {
    std::string text;
    AnyArgument value;
};
/// The call of f with so many arguments before the length, the last ones fixed.
AnyCall call_with_last(const char* name, std::shared_ptr<const Callee> f, std::size_t before_length,
                       std::initializer_list<FixedArgument> last);

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

    /// The export for all that does not depend on its signature.
    std::shared_ptr<const Callee> callee() const { return make_callee<Args...>(*this); }

    /// The call with the arguments behind the length fixed: orvsAdd_16s_Sfs.with(3) adds at scale 3.
    template <class... Last>
    auto with(Last... last) const
    {
        static_assert(sizeof...(Args) > sizeof...(Last), "the length is not among the fixed arguments");
        return with_leading(std::make_index_sequence<sizeof...(Args) - sizeof...(Last) - 1>(),
                            std::index_sequence_for<Last...>(), last...);
    }

    /// The call as a lambda makes it, which takes the export and then arguments of explicit types, the length last:
    /// as([=](auto f, const Orv32f* src, Orv32f* dst, int len) { return f(dst, src, len, hint); }, "hint 1")
    template <class Lambda>
    auto as(Lambda lambda, std::string parameters = "") const
    {
        return as_lambda(lambda, std::move(parameters), &Lambda::template operator()<Export>);
    }

private:
    template <std::size_t i>
    using Argument = std::tuple_element_t<i, std::tuple<Args...>>;

    template <std::size_t... I, std::size_t... L, class... Last>
    auto with_leading(std::index_sequence<I...>, std::index_sequence<L...>, Last... last) const
    {
        constexpr std::size_t length = sizeof...(I);
        static_assert(std::is_same_v<Argument<length>, int>, "the length stands before the fixed");
        return Call<Argument<I>...>(call_with_last(
            name_, callee(), length, {{std::to_string(last), any_argument<Argument<length + 1 + L>>(last)}...}));
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
        return Call<std::tuple_element_t<I, All>...>(
            name_, std::move(parameters), [self = *this, lambda](std::tuple_element_t<I, All>... first, int length) {
                return lambda(self, first..., length);
            });
    }

    const char* name_;
    Result (*function_)(Args...);
};

} // namespace orvtest

#define ORV_EXPORT(function_name) (::orvtest::Export(#function_name, &function_name))
