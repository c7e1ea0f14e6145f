#include "operands.h"

#include <algorithm>

namespace orvtest {

std::vector<Operand> draw_operands(std::span<const OperandType> types, Draw from)
{
    std::vector<Operand> operands;
    for (const OperandType& type : types) {
        const std::size_t size = type.element.size();
        const bool is_scalar = type.role == Role::scalar;
        const std::size_t n = is_scalar ? 1 : from.length;
        Operand& operand = operands.emplace_back(Operand{type, std::vector<std::byte>(n * size)});
        draw_elements(from.random, type.element, n, from.floats, operand.bytes.data());
        if (!is_scalar) continue;
        // The value drawn follows the notable ones.
        std::vector<std::byte> values = notable_elements(type.element, from.floats);
        values.insert(values.end(), operand.bytes.begin(), operand.bytes.end());
        std::copy_n(&values[from.round % (values.size() / size) * size], size, operand.bytes.begin());
    }
    return operands;
}

OrvStatus call_with(const AnyCall& call, std::span<const Operand> operands, std::span<std::byte* const> addresses,
                    std::size_t length)
{
    std::vector<AnyArgument> arguments;
    std::size_t array = 0;
    for (const Operand& operand : operands)
        arguments.push_back(operand.is_array() ? AnyArgument::of(addresses[array++])
                                               : AnyArgument::of_bytes(operand.bytes.data(), operand.bytes.size()));
    arguments.push_back(AnyArgument::of(static_cast<int>(length)));
    return call.callee->call(arguments.data());
}

std::size_t find_destination(std::span<const Operand> operands)
{
    const auto is_destination = [](const Operand& operand) { return operand.type.role == Role::destination; };
    const auto found = std::find_if(operands.begin(), operands.end(), is_destination);
    return static_cast<std::size_t>(found - operands.begin());
}

std::vector<std::byte> AnyOracle::results(std::span<const Operand> operands, std::size_t length) const
{
    std::vector<Column> columns;
    for (const Operand& operand : operands)
        columns.push_back({operand.bytes.data(), operand.is_array() ? operand.type.element.size() : 0});
    std::vector<std::byte> results(length * operands[find_destination(operands)].type.element.size());
    loop(oracle, columns.data(), results.data(), length);
    return results;
}

} // namespace orvtest
