#include "checks.h"

#include "inputs.h"

#include <algorithm>
#include <climits>

namespace orvtest {
namespace {

constexpr std::size_t array_bytes = 1024;

} // namespace

AnyArgumentChecks::AnyArgumentChecks(const char* name, std::shared_ptr<const Callee> f,
                                     std::initializer_list<bool> is_pointer, std::initializer_list<AnyArgument> others)
    : name_(name), f_(std::move(f)), is_pointer_(is_pointer)
{
    const AnyArgument* other = others.begin();
    for (const bool pointer : is_pointer_) valid_.push_back(pointer ? AnyArgument::of(make_array()) : *other++);
}

std::byte* AnyArgumentChecks::make_array()
{
    Array& array = arrays_.emplace_back();
    array.block = std::make_unique<GuardedBlock>(array_bytes);
    array.data = array.block->place(array_bytes, misaligned(0));
    Random random(seed_of(name_, arrays_.size()));
    for (const Orv8u byte : inputs<Orv8u>(random, array_bytes)) array.content.push_back(std::byte{byte});
    std::copy(array.content.begin(), array.content.end(), array.data);
    return array.data;
}

void AnyArgumentChecks::add_null_pointers()
{
    for (std::size_t i = 0; i < is_pointer_.size(); ++i)
        if (is_pointer_[i]) add(i, AnyArgument::of<std::byte*>(nullptr), "(nullptr)", orvErrNullPointer);
}

void AnyArgumentChecks::add_bad_lengths(std::size_t index)
{
    for (const int length : {0, -1, INT_MIN})
        add(index, AnyArgument::of(length), std::to_string(length), orvErrBadLength);
}

void AnyArgumentChecks::add(std::size_t index, const AnyArgument& value, const std::string& value_text,
                            OrvStatus status)
{
    checks_.push_back({index, value, "argument " + std::to_string(index) + " = " + value_text, status});
}

void AnyArgumentChecks::run() const
{
    for (std::size_t i = 0; i < checks_.size(); ++i)
        if (!refused({&checks_[i]})) return;
    for (std::size_t i = 0; i < checks_.size(); ++i)
        for (std::size_t j = i + 1; j < checks_.size(); ++j)
            if (checks_[i].argument != checks_[j].argument && !refused({&checks_[i], &checks_[j]})) return;
    if (!refused(first_of_each_argument())) return;
    EXPECT_GE(f_->call(valid_.data()), orvOk) << name_ << " refuses the valid call";
}

std::vector<const AnyArgumentChecks::Check*> AnyArgumentChecks::first_of_each_argument() const
{
    std::vector<const Check*> firsts;
    for (const Check& check : checks_) {
        const auto same = [&](const Check* other) { return other->argument == check.argument; };
        if (std::none_of(firsts.begin(), firsts.end(), same)) firsts.push_back(&check);
    }
    return firsts;
}

/// Calls with these arguments spoilt, of which the first decides, and says whether all was right.
bool AnyArgumentChecks::refused(const std::vector<const Check*>& spoilt) const
{
    std::vector<AnyArgument> arguments = valid_;
    std::string text = name_;
    for (const Check* check : spoilt) {
        arguments[check->argument] = check->value;
        text += ", " + check->text;
    }
    const CallNote note([&] { return text; });
    const OrvStatus status = f_->call(arguments.data());
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

} // namespace orvtest
