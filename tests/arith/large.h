// Arrays larger than the caches, where results may be stored past them. Lengths of sweeps stay far below.
#pragma once

#include "orvs/core.h"

#include "tests/arith/family.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <memory>

namespace orvtest {

/// Bytes of all arrays of a call, more than the largest cache holds. A machine with very large caches is not tested
/// to its limit.
inline std::size_t bytes_beyond_caches()
{
    int cache = 0;
    EXPECT_EQ(orvGetMaxCacheSizeB(&cache), orvOk);
    const auto largest = static_cast<std::size_t>(std::max(cache, 0));
    return std::clamp(largest + largest / 16, std::size_t{4} << 20, std::size_t{64} << 20);
}

/// Above 2 MiB loops for large arrays begin, whatever the size of the caches.
constexpr std::size_t bytes_beyond_small = (std::size_t{2} << 20) + (std::size_t{1} << 18);

/// A call on arrays that repeat the same operands from end to end. Their number is prime, so that no two copies lie
/// alike in vectors and cache lines.
class LargeCall {
public:
    static constexpr std::size_t period = 65521;

    /// Draws the operands and computes the wanted results.
    template <class... Args, class Oracle>
    LargeCall(const Call<Args...>& call, const Oracle& oracle);

    /// Whether the destination, which is not read, may take the place of the first source, which is no scalar.
    bool can_be_in_place() const { return can_be_in_place_; }

    /// Calls on arrays of so many bytes together, the destination there, or there in the place of the first source. The
    /// other sources end at unreadable pages. Says whether all was right.
    bool check(std::size_t bytes, Placement placement, bool in_place = false)
    {
        std::size_t bytes_of_element = 0;
        for (const ArrayArgument& array : arrays_) bytes_of_element += array.type.size();
        length_ = (bytes / bytes_of_element) | 1; // odd, so that both ends of an array are aligned differently

        const std::size_t left_out = in_place ? 0 : arrays_.size(); // the array that has no memory of its own
        std::vector<std::unique_ptr<GuardedBlock>> blocks;
        std::vector<std::byte*> addresses;
        for (std::size_t i = 0; i < arrays_.size(); ++i) {
            blocks.push_back(std::make_unique<GuardedBlock>(size(i)));
            addresses.push_back(blocks[i]->place(size(i), i == destination_ ? placement : before_guard));
            repeat(addresses[i], arrays_[in_place && i == destination_ ? 0 : i].before, size(i));
        }
        if (in_place) addresses[0] = addresses[destination_];

        const std::string text = text_ + ": " + std::to_string(length_) + " elements, the destination " +
                                 placement_text(placement) + (in_place ? " and is source 1" : "");
        const CallNote note([&] { return text; });
        const OrvStatus status = call_(addresses, static_cast<int>(length_));
        std::string fault = status == orvOk ? "" : "status " + std::to_string(status);
        for (std::size_t i = 0; i < arrays_.size() && fault.empty(); ++i)
            if (i != left_out) fault = find_fault(i, addresses[i], *blocks[i]);
        if (!fault.empty()) ADD_FAILURE() << text << ": " << fault;
        return fault.empty();
    }

private:
    std::size_t size(std::size_t array) const { return length_ * arrays_[array].type.size(); }

    static void repeat(std::byte* to, const std::vector<std::byte>& content, std::size_t bytes)
    {
        for (std::size_t at = 0; at < bytes; at += content.size())
            std::memcpy(to + at, content.data(), std::min(content.size(), bytes - at));
    }

    std::string find_fault(std::size_t i, const std::byte* address, const GuardedBlock& block) const
    {
        const ArrayArgument& array = arrays_[i];
        for (std::size_t at = 0; at < length_; at += period) {
            const std::size_t n = std::min(period, length_ - at);
            const std::size_t k = first_difference(array.type, address + at * array.type.size(), array.after.data(), n);
            if (k == n) continue;
            const std::size_t byte = k * array.type.size();
            return "element " + std::to_string(at + k) + " of array " + std::to_string(i + 1) + " is " +
                   element_text(array.type, address + at * array.type.size() + byte) + ", not " +
                   element_text(array.type, array.after.data() + byte);
        }
        const std::string damage = block.damage();
        return damage.empty() ? "" : "a byte outside array " + std::to_string(i + 1) + " has changed: " + damage;
    }

    std::string text_;
    std::vector<ArrayArgument> arrays_; // of one period
    std::size_t destination_ = 0;
    std::size_t length_ = 0;
    bool can_be_in_place_ = false;
    std::function<OrvStatus(std::span<std::byte* const> addresses, int length)> call_;
};

template <class... Args, class Oracle>
LargeCall::LargeCall(const Call<Args...>& call, const Oracle& oracle)
    : text_(std::string(call.name) + " (" + call.parameters + ")")
{
    using Result = DestinationElement<Args...>;
    constexpr bool reads_destination =
        std::is_invocable_v<const Oracle&, decltype(std::declval<const Operand<Args>&>()[0])...>;
    can_be_in_place_ =
        !reads_destination && std::is_same_v<std::tuple_element_t<0, std::tuple<Args...>>, const Result*>;

    Draw from = {Random(seed_of(call.name, period)), period, 5, Floats::finite};
    PlacedCall placed = {};
    std::tuple<Operand<Args>...> operands;
    std::apply([&](auto&... operand) { ((operand.draw(from), operand.add_to(placed)), ...); }, operands);
    arrays_ = std::move(placed.arrays);

    Operand<Result*> results;
    for (std::size_t i = 0; i < period; ++i) {
        const auto elements = [&](const auto&... operand) {
            return std::tuple_cat(oracle_argument<reads_destination>(operand, i)...);
        };
        results.values.push_back(std::apply(oracle, std::apply(elements, operands)));
    }
    destination_ = std::get<find_destination<Args...>()>(operands).array;
    arrays_[destination_].after = results.bytes();

    call_ = [call, operands](std::span<std::byte* const> addresses, int length) {
        return std::apply([&](const auto&... operand) { return call.function(operand.argument(addresses)..., length); },
                          operands);
    };
}

/// Calls on large arrays: aligned by element and not at all, and in place of the first source where that is another
/// way of calling. Says whether all was right.
template <class... Args, class Oracle>
bool check_large(const Call<Args...>& call, const Oracle& oracle)
{
    LargeCall large(call, oracle);
    for (const std::size_t bytes : {bytes_beyond_small, bytes_beyond_caches()}) {
        if (!large.check(bytes, before_guard) || !large.check(bytes, misaligned(33))) return false;
        if (large.can_be_in_place() && !large.check(bytes, before_guard, true)) return false;
    }
    return true;
}

/// The same for an integer export under the law of scale factors, its scale and mode of rounding following.
template <class... Args, class Oracle, class... Mode>
bool check_large_exact(const Export<OrvStatus, Args...>& f, const Oracle& oracle, int scale, Mode... mode)
{
    const ScaledOracle<DestinationElement<Args...>, Oracle> element = {oracle, scale};
    return check_large(f.with(scale, mode...), element);
}
/// The same for an integer export without a scale.
template <class... Args, class Oracle>
bool check_large_exact(const Export<OrvStatus, Args...>& f, const Oracle& oracle)
{
    const ScaledOracle<DestinationElement<Args...>, Oracle> element = {oracle, 0};
    return check_large(f.with(), element);
}

} // namespace orvtest
