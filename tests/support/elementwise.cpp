#include "elementwise.h"

#include <algorithm>
#include <array>
#include <gtest/gtest.h>
#include <memory>

namespace orvtest {
namespace {

/// One call with its arrays in memory, at one placement after another.
class PlacementSweep {
public:
    PlacementSweep(const PlacedCall& placed, const SweepOptions& options)
        : placed_(placed), options_(options), count_(placed.arrays.size()), addresses_(count_)
    {
        for (std::size_t i = 0; i < count_; ++i) {
            if (placed_.arrays[i].is_destination) destination_ = i;
            blocks_.push_back(std::make_unique<GuardedBlock>(placed_.arrays[i].before.size()));
        }
    }

    bool run()
    {
        const CallNote note([this] { return description(); });
        if (!try_placements(std::vector(count_, before_guard))) return false;
        look_at_results();
        if (!try_placements(std::vector(count_, after_guard))) return false;

        const int size = static_cast<int>(placed_.arrays[destination_].type.size());
        const int length = options_.few_placements ? longest_dense_length + 1 : placed_.length;
        for (const int bytes : misalignments(size, length)) {
            std::vector<Placement> placements(count_, misaligned(bytes));
            if (!try_placements(placements)) return false;
            // The same for the destination, but each source has a phase of its own.
            for (std::size_t i = 0; i < count_; ++i)
                if (i != destination_) placements[i] = misaligned((bytes + size * (2 * static_cast<int>(i) + 3)) % 64);
            if (!try_placements(placements)) return false;
        }
        return true;
    }

private:
    /// The array whose block array i lies in: its own, or the destination's.
    std::size_t home(std::size_t i) const { return placed_.in_place_of == i ? destination_ : i; }

    bool try_placements(const std::vector<Placement>& placements)
    {
        placements_ = placements;
        for (std::size_t i = 0; i < count_; ++i) {
            if (home(i) != i) continue;
            const std::vector<std::byte>& before = placed_.arrays[i].before;
            addresses_[i] = blocks_[i]->place(before.size(), placements[i]);
            std::copy(before.begin(), before.end(), addresses_[i]);
        }
        for (std::size_t i = 0; i < count_; ++i) addresses_[i] = addresses_[home(i)];

        const int state_failures_before = state_failures();
        status_ = placed_.call(addresses_);
        if (state_failures() != state_failures_before) return false; // reported already
        const std::string fault = find_fault();
        if (!fault.empty()) ADD_FAILURE() << description() << "\n" << fault;
        return fault.empty();
    }

    void look_at_results() const
    {
        const Orv32s status = status_;
        const ArrayArgument& array = placed_.arrays[destination_];
        look_at(placed_.name, &status, 1);
        look_at(placed_.name, array.type, addresses_[destination_], static_cast<std::size_t>(placed_.length),
                options_.nans);
    }

    std::string find_fault() const
    {
        if (status_ != options_.status)
            return "status " + std::to_string(status_) + ", not " + std::to_string(options_.status);
        for (std::size_t i = 0; i < count_; ++i) {
            if (home(i) != i) continue;
            std::string fault = i == destination_ ? wrong_element() : changed_source(i);
            if (fault.empty() && !(fault = blocks_[i]->damage()).empty())
                fault = "a byte outside " + array_name(i) + " has changed: " + fault;
            if (!fault.empty()) return fault;
        }
        return "";
    }

    std::string wrong_element() const
    {
        const ArrayArgument& array = placed_.arrays[destination_];
        const auto n = static_cast<std::size_t>(placed_.length);
        const std::size_t i =
            first_difference(array.type, addresses_[destination_], array.after.data(), n, options_.nans);
        if (i == n) return "";
        const std::size_t at = i * array.type.size();
        std::string fault = "element " + std::to_string(i) + " is " +
                            element_text(array.type, addresses_[destination_] + at) + ", not " +
                            element_text(array.type, array.after.data() + at);
        for (std::size_t k = 0; k < count_; ++k) {
            const ArrayArgument& operand = placed_.arrays[k];
            fault += "; " + array_name(k) + " was " +
                     element_text(operand.type, operand.before.data() + i * operand.type.size());
        }
        return fault;
    }

    std::string changed_source(std::size_t i) const
    {
        const std::vector<std::byte>& before = placed_.arrays[i].before;
        const auto [changed, original] = std::mismatch(addresses_[i], addresses_[i] + before.size(), before.begin());
        if (original == before.end()) return "";
        return array_name(i) + " has changed at byte " + std::to_string(changed - addresses_[i]);
    }

    std::string array_name(std::size_t i) const
    {
        return i == destination_ ? "the destination" : "source " + std::to_string(i < destination_ ? i + 1 : i);
    }

    std::string description() const
    {
        std::string text =
            std::string(placed_.name) + ": length " + std::to_string(placed_.length) + placed_.parameters;
        for (std::size_t i = 0; i < count_; ++i) {
            text += "\n  " + array_name(i) + " ";
            text += home(i) == i ? placement_text(placements_[i]) : "is the destination";
        }
        return text;
    }

    const PlacedCall& placed_;
    const SweepOptions& options_;
    const std::size_t count_;
    std::size_t destination_ = 0;
    std::vector<std::unique_ptr<GuardedBlock>> blocks_;
    std::vector<std::byte*> addresses_;
    std::vector<Placement> placements_;
    OrvStatus status_ = orvOk;
};

/// The sweep of a call over lengths.
class OperandSweep {
public:
    OperandSweep(const AnyCall& call, std::span<const OperandType> types, const AnyOracle& oracle,
                 const SweepOptions& options)
        : call_(call), types_(types), oracle_(oracle), options_(options)
    {}

    bool run() const
    {
        for (std::size_t round = 0; round < options_.lengths.size(); ++round)
            if (!run_length(static_cast<std::size_t>(options_.lengths[round]), round)) return false;
        return true;
    }

private:
    bool run_length(std::size_t n, std::size_t round) const
    {
        const Random random(seed_of(call_.name + call_.parameters, n));
        const std::vector<Operand> operands = draw_operands(types_, {random, n, round, options_.floats});
        if (!check(operands, n, std::nullopt)) return false;
        if (!options_.in_place) return true;

        // The destination in the place of each source of its type.
        const std::size_t destination = find_destination(operands);
        std::size_t array = 0;
        for (const Operand& operand : operands) {
            if (operand.type.role == Role::source && operand.type.element == operands[destination].type.element) {
                std::vector<Operand> shared = operands;
                shared[destination].bytes = operand.bytes;
                if (!check(shared, n, array)) return false;
            }
            array += operand.is_array();
        }
        return true;
    }

    bool check(const std::vector<Operand>& operands, std::size_t n, std::optional<std::size_t> in_place_of) const
    {
        PlacedCall placed = {};
        placed.name = call_.name;
        placed.length = static_cast<int>(n);
        placed.in_place_of = in_place_of;
        for (const Operand& operand : operands) {
            const ElementType& type = operand.type.element;
            const bool is_destination = operand.type.role == Role::destination;
            if (operand.is_array())
                placed.arrays.push_back({type, is_destination, operand.bytes,
                                         is_destination ? oracle_.results(operands, n) : operand.bytes});
            else placed.parameters += ", scalar " + element_text(type, operand.bytes.data());
        }
        if (!call_.parameters.empty()) placed.parameters += ", behind the length " + call_.parameters;
        placed.call = [&](std::span<std::byte* const> addresses) { return call_with(call_, operands, addresses, n); };
        return check_placements(placed, options_);
    }

    const AnyCall& call_;
    const std::span<const OperandType> types_;
    const AnyOracle& oracle_;
    const SweepOptions& options_;
};

} // namespace

bool sweep_operands(const AnyCall& call, std::span<const OperandType> types, const AnyOracle& oracle,
                    const SweepOptions& options)
{
    return OperandSweep(call, types, oracle, options).run();
}

bool check_placements(const PlacedCall& placed_call, const SweepOptions& options)
{
    return PlacementSweep(placed_call, options).run();
}

SweepOptions options_at_scale(const SweepOptions& options, int scale, int reach)
{
    SweepOptions chosen = options;
    for (const int thorough : {-reach, -3, 0, 1, 2, 5, reach})
        if (scale == thorough) return chosen;
    // Each scalar meets one length with whole vectors and one short length.
    chosen.lengths.clear();
    const std::size_t turn = static_cast<std::size_t>((scale % 6 + 6) % 6);
    for (const std::array<int, 6>& lengths : {std::array{67, 61, 53, 47, 70, 59}, std::array{1, 2, 5, 9, 17, 32}})
        for (std::size_t i = 0; i < 6; ++i) chosen.lengths.push_back(lengths[(i + turn) % 6]);
    chosen.few_placements = true;
    return chosen;
}

} // namespace orvtest
