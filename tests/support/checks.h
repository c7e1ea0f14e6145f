// The order of argument checks. A bad argument gives its status, of several bad ones the check that comes first
// decides, and no byte of any array changes.
//
//     ArgumentChecks(ORV_EXPORT(orvsAdd_16s_Sfs), 4, 0).null_pointers().bad_lengths().run();
//
// The values are a valid call's arguments other than arrays, in order: here length 4 and scale 0. Then follow the
// checks, first check first. A single bad value is told with the index of its argument: bad<4>(rounding_mode_3,
// orvErrBadRoundMode).
#pragma once

#include "api.h"
#include "guarded.h"

#include <gtest/gtest.h>
#include <memory>
#include <vector>

namespace orvtest {

/// The checks of any export.
class AnyArgumentChecks {
public:
    /// Makes the calls: each bad value alone, each pair, all at once, and at last the valid call, which must pass.
    void run() const;

protected:
    /// Makes the arrays of the valid call, whose pointers stand where is_pointer says.
    AnyArgumentChecks(const char* name, std::shared_ptr<const Callee> f, std::initializer_list<bool> is_pointer,
                      std::initializer_list<AnyArgument> others);

    void add_null_pointers();
    void add_bad_lengths(std::size_t index);
    void add(std::size_t index, const AnyArgument& value, const std::string& value_text, OrvStatus status);
    void set_pointer(std::size_t index, const AnyArgument& pointer) { valid_[index] = pointer; }

private:
    struct Check {
        std::size_t argument;
        AnyArgument value;
        std::string text;
        OrvStatus status;
    };
    struct Array {
        std::unique_ptr<GuardedBlock> block;
        std::byte* data;
        std::vector<std::byte> content;
    };

    std::byte* make_array();
    std::vector<const Check*> first_of_each_argument() const;
    bool refused(const std::vector<const Check*>& spoilt) const;

    const char* name_;
    std::shared_ptr<const Callee> f_;
    std::vector<bool> is_pointer_;
    std::vector<AnyArgument> valid_;
    std::vector<Array> arrays_;
    std::vector<Check> checks_;
};

template <class... Args>
class ArgumentChecks : public AnyArgumentChecks {
public:
    template <class... Others>
    explicit ArgumentChecks(const Export<OrvStatus, Args...>& f, Others... others)
        : ArgumentChecks(f, std::index_sequence_for<Others...>(), others...)
    {
        static_assert((int{!std::is_pointer_v<Args>} + ...) == sizeof...(Others), "all arguments other than pointers");
    }

    /// Each pointer, null: orvErrNullPointer.
    [[nodiscard]] ArgumentChecks& null_pointers()
    {
        add_null_pointers();
        return *this;
    }

    /// The length, which follows the last pointer, below 1: orvErrBadLength.
    [[nodiscard]] ArgumentChecks& bad_lengths()
    {
        static_assert(std::is_same_v<Argument<length_index>, int>);
        add_bad_lengths(length_index);
        return *this;
    }

    /// One bad value of the argument with this index.
    template <std::size_t index, class Value>
    [[nodiscard]] ArgumentChecks& bad(Value value, OrvStatus status)
    {
        add(index, any_argument<Argument<index>>(value), testing::PrintToString(value), status);
        return *this;
    }

    /// A pointer for the valid call, instead of an array made here: a context record, say.
    template <std::size_t index, class Pointer>
    [[nodiscard]] ArgumentChecks& with_pointer(Pointer pointer)
    {
        set_pointer(index, any_argument<Argument<index>>(pointer));
        return *this;
    }

private:
    template <std::size_t index>
    using Argument = std::tuple_element_t<index, std::tuple<Args...>>;

    static constexpr bool is_pointer[sizeof...(Args)] = {std::is_pointer_v<Args>...};
    static constexpr std::size_t length_index = [] {
        std::size_t behind_pointers = 0;
        for (std::size_t i = 0; i < sizeof...(Args); ++i)
            if (is_pointer[i]) behind_pointers = i + 1;
        return behind_pointers;
    }();

    /// The index of this one of the arguments other than pointers.
    static constexpr std::size_t find_other(std::size_t number)
    {
        std::size_t index = 0;
        for (;; ++index)
            if (!is_pointer[index] && number-- == 0) return index;
    }

    template <std::size_t... N, class... Others>
    ArgumentChecks(const Export<OrvStatus, Args...>& f, std::index_sequence<N...>, Others... others)
        : AnyArgumentChecks(f.name(), f.callee(), {std::is_pointer_v<Args>...},
                            {any_argument<Argument<find_other(N)>>(others)...})
    {}
};

} // namespace orvtest
