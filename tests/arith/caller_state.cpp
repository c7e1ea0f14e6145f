#include "tests/arith/caller_state.h"

#include <algorithm>
#include <ios>

namespace orvtest {

CallerArrays::CallerArrays(const AnyCall& call, std::vector<Operand> operands, std::size_t n)
    : call_(call), operands_(std::move(operands)), n_(n)
{
    for (Operand& operand : operands_)
        if (operand.is_array()) addresses_.push_back(operand.bytes.data());
}

unsigned CallerArrays::call_in(unsigned state)
{
    const CallerState scope(state);
    status_ = call_with(call_, operands_, addresses_, n_);
    return _mm_getcsr();
}

const std::byte* CallerArrays::results() const { return operands_[find_destination(operands_)].bytes.data(); }

void expect_in_state(const AnyCall& call, std::vector<Operand> operands, std::size_t n, unsigned state,
                     const ElementType& type, const void* wanted)
{
    CallerArrays arrays(call, std::move(operands), n);
    const unsigned after = arrays.call_in(state);
    EXPECT_EQ(arrays.status(), orvOk) << call.name;
    EXPECT_EQ(after & (round_to_zero | flush_to_zero | denormals_are_zero), state) << call.name;

    for (std::size_t i = 0; i < n; ++i) {
        const std::byte* got = arrays.results() + i * type.size();
        if (same_element(type, got, wanted)) continue;
        ADD_FAILURE() << call.name << " in the state " << std::hex << state << std::dec << ": element " << i << " of "
                      << n << " is " << element_text(type, got) << ", not " << element_text(type, wanted);
        return;
    }
}

void expect_no_flags(const AnyCall& f, std::span<const OperandType> types)
{
    for (std::size_t n = 1; n <= 70; ++n) {
        const Random random(seed_of(f.name, n));
        CallerArrays arrays(f, draw_operands(types, {random, n, n, Floats::small_integers}), n);
        EXPECT_EQ(arrays.call_in(to_nearest) & flag_bits, 0u) << f.name << " of length " << n;
    }
}

bool sweep_in_states(const AnyCall& f, std::span<const OperandType> types, const AnyOracle& oracle)
{
    SweepOptions options;
    options.lengths = {1, 2, 3, 4, 5, 7, 8, 11, 16, 17, 31, 32, 33, 64, 67, 257};
    for (const unsigned state : {round_to_zero | flush_to_zero, round_up | denormals_are_zero, round_down | 0u}) {
        const CallerState scope(state);
        if (!sweep_operands(f, types, oracle, options)) return false;
    }
    return true;
}

} // namespace orvtest
