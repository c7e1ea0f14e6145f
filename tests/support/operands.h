// The arguments before the length with their content, as bytes of known types, and oracles over them: what a call is
// made with and what it has to compute. Only the loop of an oracle over its elements is compiled for each type.
#pragma once

#include "api.h"
#include "elements.h"
#include "inputs.h"

#include <span>
#include <tuple>
#include <type_traits>
#include <vector>

namespace orvtest {

/// What an argument before the length is: a pointer to const is a source, the other pointer the destination.
enum class Role { source, destination, scalar };

struct OperandType {
    ElementType element;
    Role role;
};

template <class Argument>
using ElementOf = std::remove_const_t<std::remove_pointer_t<Argument>>;

template <class Argument>
constexpr Role role_of()
{
    if (!std::is_pointer_v<Argument>) return Role::scalar;
    return std::is_const_v<std::remove_pointer_t<Argument>> ? Role::source : Role::destination;
}
template <class Argument>
constexpr OperandType operand_type()
{
    return {element_type<ElementOf<Argument>>(), role_of<Argument>()};
}

template <class... Args>
constexpr OperandType operand_types[] = {operand_type<Args>()...};

/// An argument before the length. A scalar has one element, which counts at each place.
struct Operand {
    OperandType type;
    std::vector<std::byte> bytes;

    bool is_array() const { return type.role != Role::scalar; }
};

/// What the operands of one length are drawn from.
struct Draw {
    Random random;
    std::size_t length;
    std::size_t round; ///< the number of the length in the sweep: scalars take their notable values in turn
    Floats floats;
};
std::vector<Operand> draw_operands(std::span<const OperandType> types, Draw from);

/// The operand with the same value at each place.
template <class Argument>
Operand repeated(const std::type_identity_t<ElementOf<Argument>>& value, std::size_t n)
{
    constexpr OperandType type = operand_type<Argument>();
    Operand operand = {type, {}};
    const auto* bytes = reinterpret_cast<const std::byte*>(&value);
    for (std::size_t i = 0; i < (type.role == Role::scalar ? 1 : n); ++i)
        operand.bytes.insert(operand.bytes.end(), bytes, bytes + sizeof value);
    return operand;
}

/// Calls with these operands. The arrays lie at the addresses, in their order.
OrvStatus call_with(const AnyCall& call, std::span<const Operand> operands, std::span<std::byte* const> addresses,
                    std::size_t length);

/// The index of the destination among the arguments.
template <class... Args>
constexpr std::size_t find_destination()
{
    constexpr Role roles[] = {role_of<Args>()...};
    std::size_t found = 0, destinations = 0;
    for (std::size_t i = 0; i < sizeof...(Args); ++i)
        if (roles[i] == Role::destination) {
            found = i;
            ++destinations;
        }
    return destinations == 1 ? found : sizeof...(Args);
}
std::size_t find_destination(std::span<const Operand> operands);

template <class... Args>
using DestinationElement = ElementOf<std::tuple_element_t<find_destination<Args...>(), std::tuple<Args...>>>;

// ---- Oracles

/// Where the elements of an operand lie.
struct Column {
    const std::byte* first;
    std::size_t step; ///< from one element to the next: 0 for a scalar
};

/// The argument of an oracle that is the element of the operand with this index.
template <std::size_t operand, class E>
struct OracleArgument {
    static const E& at(const Column* columns, std::size_t i)
    {
        return *reinterpret_cast<const E*>(columns[operand].first + i * columns[operand].step);
    }
};

/// Computes the wanted result at each of n places.
using OracleLoop = void (*)(const void* oracle, const Column* operands, std::byte* results, std::size_t n);

template <class Oracle, class Result, class... OracleArguments>
void loop_over(const void* oracle, [[maybe_unused]] const Column* operands, std::byte* results, std::size_t n)
{
    const Oracle& wanted = *reinterpret_cast<Oracle*>(const_cast<void*>(oracle)); // an object or a function
    Result* result = reinterpret_cast<Result*>(results);
    for (std::size_t i = 0; i < n; ++i) result[i] = wanted(OracleArguments::at(operands, i)...);
}

/// An oracle of any type; it has to stay alive. Its parameters are the elements of all operands, or of all but the
/// destination.
struct AnyOracle {
    const void* oracle;
    OracleLoop loop;
    bool reads_destination;

    /// What the oracle says of operands of this length, as bytes.
    std::vector<std::byte> results(std::span<const Operand> operands, std::size_t length) const;
};

template <class Oracle, class... Args>
constexpr bool reads_destination = requires(const Oracle& oracle, const ElementOf<Args>&... elements)
{
    oracle(elements...);
};

/// The operand that is the oracle's parameter with this index, if one operand is left out.
constexpr std::size_t operand_of(std::size_t parameter, std::size_t left_out)
{
    return parameter < left_out ? parameter : parameter + 1;
}
template <class... Args, class Oracle, std::size_t... I>
AnyOracle any_oracle(const Oracle& oracle, std::index_sequence<I...>)
{
    constexpr std::size_t destination = find_destination<Args...>();
    static_assert(destination < sizeof...(Args), "a sweep needs one destination");
    constexpr bool all = reads_destination<Oracle, Args...>;
    [[maybe_unused]] constexpr std::size_t left_out = all ? sizeof...(Args) : destination;
    return {
        reinterpret_cast<const void*>(&oracle),
        &loop_over<Oracle, DestinationElement<Args...>,
                   OracleArgument<operand_of(I, left_out),
                                  ElementOf<std::tuple_element_t<operand_of(I, left_out), std::tuple<Args...>>>>...>,
        all};
}

/// The oracle for a call with these arguments before the length.
template <class... Args, class Oracle>
AnyOracle any_oracle(const Oracle& oracle)
{
    constexpr std::size_t parameters = sizeof...(Args) - !reads_destination<Oracle, Args...>;
    return any_oracle<Args...>(oracle, std::make_index_sequence<parameters>());
}

} // namespace orvtest
