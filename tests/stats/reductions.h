// Calls of functions that make some values of vectors: f(sources..., len, results..., hint or scale).
//
//     reduction(ORV_EXPORT(orvsSum_16s_Sfs), src).with(scale).gives(sum);
//     reduction(ORV_EXPORT(orvsDotProd_32f), src1, src2).gives(product);
//
// A call is made with sources and results at many addresses, also odd ones and against unreadable pages. The status,
// each result bit for bit (any NaN for any NaN), the sources and all that lies around are looked at.
#pragma once

#include "tests/support/api.h"
#include "tests/support/checks.h"
#include "tests/support/guarded.h"
#include "tests/support/operands.h"

#include <algorithm>
#include <climits>
#include <cstring>
#include <functional>
#include <string>
#include <tuple>
#include <vector>

namespace orvtest {

/// A call of any signature, with its sources.
class AnyReduction {
public:
    /// Writes the wanted results, one behind another, for a first source at an address with this remainder modulo 64.
    using Wanted = std::function<void(std::size_t address, std::byte* results)>;

    const char* name() const { return name_; }
    int length() const { return length_; }
    std::string text() const;

protected:
    AnyReduction(const char* name, std::shared_ptr<const Callee> callee, int length, std::vector<Operand> sources,
                 std::vector<ElementType> results);

    void set_last(int value);
    void set_status(OrvStatus status) { status_ = status; }
    void set_state(unsigned state) { state_ = state; }

    /// Calls at all placements. Says whether all was right; reports the first that was not.
    bool check(const Wanted& wanted) const;
    /// Calls once.
    void call(std::byte* results) const;

private:
    std::size_t bytes_of_results() const;
    std::vector<Placement> placements() const;
    OrvStatus call_at(const std::vector<std::byte*>& sources, const std::vector<std::byte*>& results) const;

    const char* name_;
    std::shared_ptr<const Callee> callee_;
    int length_;
    std::vector<Operand> sources_;
    std::vector<ElementType> results_;
    std::vector<int> last_; // none or one
    OrvStatus status_ = orvOk;
    unsigned state_ = 0;
};

template <class... R>
class Reduction : public AnyReduction {
public:
    using AnyReduction::AnyReduction;
    Reduction(const char* name, std::shared_ptr<const Callee> callee, int length, std::vector<Operand> sources)
        : AnyReduction(name, std::move(callee), length, std::move(sources), {element_type<R>()...})
    {}

    /// Sets the argument behind the results.
    Reduction& with(int last)
    {
        set_last(last);
        return *this;
    }
    /// Sets the status that is expected, orvOk at first.
    Reduction& expecting(OrvStatus status)
    {
        set_status(status);
        return *this;
    }
    /// Sets the state of the processor (MXCSR) in which it is called, and in which gives_at() asks for wanted values.
    Reduction& in_state(unsigned state)
    {
        set_state(state);
        return *this;
    }

    /// Expects these results everywhere.
    bool gives(const R&... want) const
    {
        return check([&](std::size_t, std::byte* results) { put(results, want...); });
    }
    /// Expects what a function of the first source's address modulo 64 says.
    template <class F>
    bool gives_at(const F& want) const
    {
        return check([&](std::size_t address, std::byte* results) { put(results, want(address)); });
    }

    /// The results of one call with sources at multiples of 64 bytes.
    std::tuple<R...> results() const
    {
        std::byte all[(sizeof(R) + ...)];
        call(all);
        const std::byte* at = all;
        std::tuple<R...> values;
        const auto take = [&](auto& value) {
            std::memcpy(&value, at, sizeof value);
            at += sizeof value;
        };
        std::apply([&](auto&... value) { (take(value), ...); }, values);
        return values;
    }
    /// The only one.
    auto result() const requires(sizeof...(R) == 1) { return std::get<0>(results()); }

private:
    template <class... V>
    static void put(std::byte* at, const V&... value)
    {
        ((std::memcpy(at, &value, sizeof value), at += sizeof value), ...);
    }
    template <class... V>
    static void put(std::byte* at, const std::tuple<V...>& values)
    {
        std::apply([&](const V&... value) { put(at, value...); }, values);
    }
};

template <class... Lists>
struct ReductionOfTuple;
template <class... R>
struct ReductionOfTuple<std::tuple<R...>> {
    using type = Reduction<R...>;
};

/// The results of a function with these arguments: its pointers to what is not const.
template <class Argument>
using ResultTuple =
    std::conditional_t<role_of<Argument>() == Role::destination, std::tuple<ElementOf<Argument>>, std::tuple<>>;
template <class... Args>
using ReductionOf = typename ReductionOfTuple<decltype(std::tuple_cat(std::declval<ResultTuple<Args>>()...))>::type;

/// The call over all elements of these sources, which have one length and the types of the function's.
template <class... Args, class... S>
ReductionOf<Args...> reduction(const Export<OrvStatus, Args...>& f, const std::vector<S>&... sources)
{
    static_assert((int{role_of<Args>() == Role::source} + ...) == sizeof...(S));
    const std::size_t length = std::get<0>(std::tie(sources...)).size();
    return {f.name(), f.callee(), static_cast<int>(length), {Operand{operand_type<const S*>(), bytes_of(sources)}...}};
}

/// Null pointers first, then lengths below the least one, wherever the length stands.
template <class... Args>
void expect_checks(const Export<OrvStatus, Args...>& f, int least_length = 1)
{
    constexpr bool is_pointer[] = {std::is_pointer_v<Args>...};
    constexpr auto length = static_cast<std::size_t>(std::find(is_pointer, std::end(is_pointer), false) - is_pointer);
    const auto run = [=](auto checks) {
        checks.null_pointers()
            .template bad<length>(least_length - 1, orvErrBadLength)
            .template bad<length>(0, orvErrBadLength)
            .template bad<length>(-1, orvErrBadLength)
            .template bad<length>(INT_MIN, orvErrBadLength)
            .run();
    };
    if constexpr ((int{!std::is_pointer_v<Args>} + ...) == 1) run(ArgumentChecks(f, 4));
    else run(ArgumentChecks(f, 4, 0));
}

} // namespace orvtest
