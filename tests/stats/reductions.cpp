#include "tests/stats/reductions.h"

#include "tests/arith/caller_state.h"
#include "tests/support/guarded.h"
#include "tests/support/sweep.h"

#include <gtest/gtest.h>
#include <map>
#include <set>

namespace orvtest {

AnyReduction::AnyReduction(const char* name, std::shared_ptr<const Callee> callee, int length,
                           std::vector<Operand> sources, std::vector<ElementType> results)
    : name_(name),
      callee_(std::move(callee)),
      length_(length),
      sources_(std::move(sources)),
      results_(std::move(results))
{}

void AnyReduction::set_last(int value) { last_ = {value}; }

std::string AnyReduction::text() const
{
    std::string text = std::string(name_) + ", length " + std::to_string(length_);
    for (const int value : last_) text += ", last argument " + std::to_string(value);
    if (state_ != 0) text += ", state " + std::to_string(state_);
    return text;
}

std::size_t AnyReduction::bytes_of_results() const
{
    std::size_t bytes = 0;
    for (const ElementType& type : results_) bytes += type.size();
    return bytes;
}

/// Those of sweeps, and of floating sources every place of a component in 32 bytes: orders of additions depend on it.
std::vector<Placement> AnyReduction::placements() const
{
    const ElementType type = sources_[0].type.element;
    std::vector<Placement> all = {misaligned(0), before_guard, after_guard};
    const std::vector<int> distances = misalignments(static_cast<int>(type.size()), length_);
    std::set<int> bytes(distances.begin(), distances.end());
    if (type.number == Number::binary_float)
        for (std::size_t k = 0; k < 32; k += type.component_size) bytes.insert(static_cast<int>(k));
    bytes.erase(0);
    for (const int distance : bytes) all.push_back(misaligned(distance));
    return all;
}

OrvStatus AnyReduction::call_at(const std::vector<std::byte*>& sources, const std::vector<std::byte*>& results) const
{
    std::vector<AnyArgument> arguments;
    for (std::byte* source : sources) arguments.push_back(AnyArgument::of(source));
    arguments.push_back(AnyArgument::of(length_));
    for (std::byte* result : results) arguments.push_back(AnyArgument::of(result));
    for (const int value : last_) arguments.push_back(AnyArgument::of(value));
    const CallerState scope(state_);
    return callee_->call(arguments.data());
}

bool AnyReduction::check(const Wanted& wanted) const
{
    std::vector<std::unique_ptr<GuardedBlock>> blocks;
    for (const Operand& source : sources_) blocks.push_back(std::make_unique<GuardedBlock>(source.bytes.size()));
    for (const ElementType& type : results_) blocks.push_back(std::make_unique<GuardedBlock>(type.size()));
    std::map<std::size_t, std::vector<std::byte>> known;

    bool is_first = true;
    for (const Placement placement : placements()) {
        // Equal addresses where they are multiples of 64, and all different otherwise.
        std::size_t count = 0;
        const auto next_place = [&](std::size_t bytes) {
            const std::size_t k = count++;
            const int factor = static_cast<int>(2 * k + 1);
            const int shift = k < sources_.size() ? 0 : static_cast<int>(k + 2);
            const bool within = placement.where == Placement::Where::misaligned;
            return blocks[k]->place(bytes, within ? misaligned((placement.bytes * factor + shift) % 64) : placement);
        };
        std::vector<std::byte*> sources, results;
        for (const Operand& source : sources_) {
            sources.push_back(next_place(source.bytes.size()));
            std::memcpy(sources.back(), source.bytes.data(), source.bytes.size());
        }
        for (const ElementType& type : results_) results.push_back(next_place(type.size()));

        const std::string what = text() + ", " + placement_text(placement);
        const CallNote note([&] { return what; });
        const OrvStatus status = call_at(sources, results);
        if (status != status_) {
            ADD_FAILURE() << what << ": status " << status << ", not " << status_;
            return false;
        }

        std::vector<std::byte>& want = known[reinterpret_cast<std::size_t>(sources[0]) % 64];
        if (want.empty()) {
            want.resize(bytes_of_results());
            const CallerState scope(state_);
            wanted(reinterpret_cast<std::size_t>(sources[0]) % 64, want.data());
        }
        const std::byte* at = want.data();
        for (std::size_t k = 0; k < results.size(); ++k) {
            if (is_first) look_at(name_, results_[k], results[k], 1);
            if (!same_element(results_[k], results[k], at)) {
                ADD_FAILURE() << what << ": result " << k << " is " << element_text(results_[k], results[k]) << ", not "
                              << element_text(results_[k], at);
                return false;
            }
            at += results_[k].size();
        }
        for (std::size_t k = 0; k < sources.size(); ++k)
            if (std::memcmp(sources[k], sources_[k].bytes.data(), sources_[k].bytes.size()) != 0) {
                ADD_FAILURE() << what << ": has changed source " << k;
                return false;
            }
        for (const auto& block : blocks)
            if (const std::string damage = block->damage(); !damage.empty()) {
                ADD_FAILURE() << what << ": has written " << damage;
                return false;
            }
        is_first = false;
    }
    return true;
}

void AnyReduction::call(std::byte* results) const
{
    std::vector<std::unique_ptr<GuardedBlock>> blocks;
    std::vector<std::byte*> sources, places;
    for (const Operand& source : sources_) {
        blocks.push_back(std::make_unique<GuardedBlock>(source.bytes.size()));
        sources.push_back(blocks.back()->place(source.bytes.size(), misaligned(0)));
        std::memcpy(sources.back(), source.bytes.data(), source.bytes.size());
    }
    for (const ElementType& type : results_) {
        places.push_back(results);
        results += type.size();
    }
    const CallNote note([&] { return text(); });
    const OrvStatus status = call_at(sources, places);
    if (status != status_) ADD_FAILURE() << text() << ": status " << status << ", not " << status_;
    for (std::size_t k = 0; k < places.size(); ++k) look_at(name_, results_[k], places[k], 1);
}

} // namespace orvtest
