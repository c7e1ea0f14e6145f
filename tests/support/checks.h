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
#include "inputs.h"

#include <climits>
#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <vector>

namespace orvtest {

template <class... Args>
class ArgumentChecks {
public:
    template <class... Others>
    explicit ArgumentChecks(const Export<OrvStatus, Args...>& f, Others... others) : f_(f)
    {
        static_assert((int{!std::is_pointer_v<Args>} + ...) == sizeof...(Others), "all arguments other than pointers");
        make_arguments(std::tuple(others...), std::index_sequence_for<Args...>());
    }

    /// Each pointer, null: orvErrNullPointer.
    [[nodiscard]] ArgumentChecks& null_pointers()
    {
        add_null_pointers(std::index_sequence_for<Args...>());
        return *this;
    }

    /// The length, which follows the last pointer, below 1: orvErrBadLength.
    [[nodiscard]] ArgumentChecks& bad_lengths()
    {
        for (const int length : {0, -1, INT_MIN}) add<length_index>(length, orvErrBadLength);
        return *this;
    }

    /// One bad value of the argument with this index.
    template <std::size_t index, class Value>
    [[nodiscard]] ArgumentChecks& bad(Value value, OrvStatus status)
    {
        add<index>(value, status);
        return *this;
    }

    /// A pointer for the valid call, instead of an array made here: a context record, say.
    template <std::size_t index, class Pointer>
    [[nodiscard]] ArgumentChecks& with_pointer(Pointer pointer)
    {
        std::get<index>(valid_) = pointer;
        return *this;
    }

    /// Makes the calls: each bad value alone, each pair, all at once, and at last the valid call, which must pass.
    void run()
    {
        for (std::size_t i = 0; i < checks_.size(); ++i)
            if (!refused({&checks_[i]})) return;
        for (std::size_t i = 0; i < checks_.size(); ++i)
            for (std::size_t j = i + 1; j < checks_.size(); ++j)
                if (checks_[i].argument != checks_[j].argument && !refused({&checks_[i], &checks_[j]})) return;
        if (!refused(first_of_each_argument())) return;
        EXPECT_GE(std::apply(f_, valid_), orvOk) << f_.name() << " refuses the valid call";
    }

private:
    using Arguments = std::tuple<Args...>;

    struct Check {
        std::size_t argument;
        std::string text;
        OrvStatus status;
        std::function<void(Arguments&)> spoil;
    };

    struct Array {
        std::unique_ptr<GuardedBlock> block;
        std::byte* data;
        std::vector<std::byte> content;
    };

    static constexpr std::size_t array_bytes = 1024;
    static constexpr std::size_t length_index = [] {
        std::size_t last_pointer = 0, i = 0;
        ((last_pointer = std::is_pointer_v<Args> ? i : last_pointer, ++i), ...);
        return last_pointer + 1;
    }();

    template <class Others, std::size_t... I>
    void make_arguments(const Others& others, std::index_sequence<I...>)
    {
        constexpr std::size_t pointers_before[] = {pointers_among_first(I)...};
        (make_argument<I, I - pointers_before[I]>(others), ...);
    }
    template <std::size_t index, std::size_t other_index, class Others>
    void make_argument(const Others& others)
    {
        if constexpr (std::is_pointer_v<std::tuple_element_t<index, Arguments>>)
            std::get<index>(valid_) = reinterpret_cast<std::tuple_element_t<index, Arguments>>(make_array());
        else std::get<index>(valid_) = std::get<other_index>(others);
    }
    static constexpr std::size_t pointers_among_first(std::size_t n)
    {
        std::size_t pointers = 0, i = 0;
        ((pointers += i++ < n && std::is_pointer_v<Args>), ...);
        return pointers;
    }

    std::byte* make_array()
    {
        Array& array = arrays_.emplace_back();
        array.block = std::make_unique<GuardedBlock>(array_bytes);
        array.data = array.block->place(array_bytes, misaligned(0));
        Random random(seed_of(f_.name(), arrays_.size()));
        for (const Orv8u byte : inputs<Orv8u>(random, array_bytes)) array.content.push_back(std::byte{byte});
        std::copy(array.content.begin(), array.content.end(), array.data);
        return array.data;
    }

    template <std::size_t... I>
    void add_null_pointers(std::index_sequence<I...>)
    {
        (add_null_pointer<I>(), ...);
    }
    template <std::size_t index>
    void add_null_pointer()
    {
        if constexpr (std::is_pointer_v<std::tuple_element_t<index, Arguments>>) add<index>(nullptr, orvErrNullPointer);
    }
    template <std::size_t index, class Value>
    void add(Value value, OrvStatus status)
    {
        checks_.push_back({index, "argument " + std::to_string(index) + " = " + testing::PrintToString(value), status,
                           [value](Arguments& arguments) { std::get<index>(arguments) = value; }});
    }

    std::vector<const Check*> first_of_each_argument() const
    {
        std::vector<const Check*> firsts;
        for (const Check& check : checks_) {
            const auto same = [&](const Check* other) { return other->argument == check.argument; };
            if (std::none_of(firsts.begin(), firsts.end(), same)) firsts.push_back(&check);
        }
        return firsts;
    }

    /// Calls with these arguments spoilt, of which the first decides, and says whether all was right.
    bool refused(const std::vector<const Check*>& spoilt)
    {
        Arguments arguments = valid_;
        std::string text = f_.name();
        for (const Check* check : spoilt) {
            check->spoil(arguments);
            text += ", " + check->text;
        }
        const CallNote note([&] { return text; });
        const OrvStatus status = std::apply(f_, arguments);
        if (status != spoilt.front()->status) {
            ADD_FAILURE() << text << ": status " << status << ", not " << spoilt.front()->status;
            return false;
        }
        for (std::size_t i = 0; i < arrays_.size(); ++i) {
            const Array& array = arrays_[i];
            if (std::equal(array.content.begin(), array.content.end(), array.data) && array.block->damage().empty())
                continue;
            ADD_FAILURE() << text << ": has written to array " << i << " though it failed";
            return false;
        }
        return true;
    }

    const Export<OrvStatus, Args...> f_;
    Arguments valid_;
    std::vector<Array> arrays_;
    std::vector<Check> checks_;
};

} // namespace orvtest
