// Arrays larger than the caches, where results may be stored past them. Lengths of sweeps stay far below.
#pragma once

#include "tests/arith/family.h"
#include "tests/support/guarded.h"
#include "tests/support/operands.h"

namespace orvtest {

/// A call on arrays that repeat the same operands from end to end. Their number is prime, so that no two copies lie
/// alike in vectors and cache lines.
class LargeCall {
public:
    static constexpr std::size_t period = 65521;

    /// Draws the operands and computes the wanted results.
    template <class... Args, class Oracle>
    LargeCall(const Call<Args...>& call, const Oracle& oracle)
        : LargeCall(call, operand_types<Args...>, any_oracle<Args...>(oracle))
    {}

    LargeCall(const LargeCall&) = delete;
    LargeCall& operator=(const LargeCall&) = delete;

    /// Whether the destination, which is not read, may take the place of the first source, which is no scalar.
    bool can_be_in_place() const { return can_be_in_place_; }

    /// Calls on arrays of so many bytes together, the destination there, or there in the place of the first source. The
    /// other sources end at unreadable pages. Says whether all was right.
    bool check(std::size_t bytes, Placement placement, bool in_place = false);

private:
    LargeCall(const AnyCall& call, std::span<const OperandType> types, const AnyOracle& oracle);
    std::string find_fault(std::size_t i, const std::byte* address, const GuardedBlock& block) const;

    const AnyCall call_;
    std::vector<Operand> operands_;      // of one period
    std::vector<const Operand*> arrays_; // among them
    std::vector<std::byte> results_;
    std::size_t destination_ = 0; // among the arrays
    std::size_t length_ = 0;
    bool can_be_in_place_ = false;
};

/// Checks on large arrays: aligned by element and not at all, and in place of the first source where that is another
/// way of calling. Says whether all was right.
bool check_at_large_sizes(LargeCall& call);

template <class... Args, class Oracle>
bool check_large(const Call<Args...>& call, const Oracle& oracle)
{
    LargeCall large(call, oracle);
    return check_at_large_sizes(large);
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
