#include "tests/arith/large.h"

#include "orvs/core.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <memory>

namespace orvtest {
namespace {

/// Bytes of all arrays of a call, more than the largest cache holds. A machine with very large caches is not tested
/// to its limit.
std::size_t bytes_beyond_caches()
{
    int cache = 0;
    EXPECT_EQ(orvGetMaxCacheSizeB(&cache), orvOk);
    const auto largest = static_cast<std::size_t>(std::max(cache, 0));
    return std::clamp(largest + largest / 16, std::size_t{4} << 20, std::size_t{64} << 20);
}

/// Above 2 MiB loops for large arrays begin, whatever the size of the caches.
constexpr std::size_t bytes_beyond_small = (std::size_t{2} << 20) + (std::size_t{1} << 18);

void repeat(std::byte* to, const std::vector<std::byte>& content, std::size_t bytes)
{
    for (std::size_t at = 0; at < bytes; at += content.size())
        std::memcpy(to + at, content.data(), std::min(content.size(), bytes - at));
}

} // namespace

LargeCall::LargeCall(const AnyCall& call, std::span<const OperandType> types, const AnyOracle& oracle)
    : call_(call),
      operands_(draw_operands(types, {Random(seed_of(call.name, period)), period, 5, Floats::finite})),
      results_(oracle.results(operands_, period))
{
    for (const Operand& operand : operands_) {
        if (operand.type.role == Role::destination) destination_ = arrays_.size();
        if (operand.is_array()) arrays_.push_back(&operand);
    }
    const OperandType &first = types.front(), &result = arrays_[destination_]->type;
    can_be_in_place_ = !oracle.reads_destination && first.role == Role::source && first.element == result.element;
}

bool LargeCall::check(std::size_t bytes, Placement placement, bool in_place)
{
    std::size_t bytes_of_element = 0;
    for (const Operand* array : arrays_) bytes_of_element += array->type.element.size();
    length_ = (bytes / bytes_of_element) | 1; // odd, so that both ends of an array are aligned differently

    const std::size_t left_out = in_place ? 0 : arrays_.size(); // the array that has no memory of its own
    std::vector<std::unique_ptr<GuardedBlock>> blocks;
    std::vector<std::byte*> addresses;
    for (std::size_t i = 0; i < arrays_.size(); ++i) {
        const std::size_t size = length_ * arrays_[i]->type.element.size();
        blocks.push_back(std::make_unique<GuardedBlock>(size));
        addresses.push_back(blocks[i]->place(size, i == destination_ ? placement : before_guard));
        repeat(addresses[i], arrays_[in_place && i == destination_ ? 0 : i]->bytes, size);
    }
    if (in_place) addresses[0] = addresses[destination_];

    const std::string text = std::string(call_.name) + " (" + call_.parameters + "): " + std::to_string(length_) +
                             " elements, the destination " + placement_text(placement) +
                             (in_place ? " and is source 1" : "");
    const CallNote note([&] { return text; });
    const OrvStatus status = call_with(call_, operands_, addresses, length_);
    std::string fault = status == orvOk ? "" : "status " + std::to_string(status);
    for (std::size_t i = 0; i < arrays_.size() && fault.empty(); ++i)
        if (i != left_out) fault = find_fault(i, addresses[i], *blocks[i]);
    if (!fault.empty()) ADD_FAILURE() << text << ": " << fault;
    return fault.empty();
}

std::string LargeCall::find_fault(std::size_t i, const std::byte* address, const GuardedBlock& block) const
{
    const ElementType& type = arrays_[i]->type.element;
    const std::byte* wanted = i == destination_ ? results_.data() : arrays_[i]->bytes.data();
    for (std::size_t at = 0; at < length_; at += period) {
        const std::size_t n = std::min(period, length_ - at);
        const std::byte* got = address + at * type.size();
        const std::size_t k = first_difference(type, got, wanted, n);
        if (k == n) continue;
        return "element " + std::to_string(at + k) + " of array " + std::to_string(i + 1) + " is " +
               element_text(type, got + k * type.size()) + ", not " + element_text(type, wanted + k * type.size());
    }
    const std::string damage = block.damage();
    return damage.empty() ? "" : "a byte outside array " + std::to_string(i + 1) + " has changed: " + damage;
}

bool check_at_large_sizes(LargeCall& call)
{
    for (const std::size_t bytes : {bytes_beyond_small, bytes_beyond_caches()}) {
        if (!call.check(bytes, before_guard) || !call.check(bytes, misaligned(33))) return false;
        if (call.can_be_in_place() && !call.check(bytes, before_guard, true)) return false;
    }
    return true;
}

} // namespace orvtest
