// What the tests of quotients and of roots share: calls that warn of some operands, at many scales, and in any state of
// the processor.
#pragma once

#include "orvs/core.h"

#include "tests/arith/caller_state.h"
#include "tests/arith/family.h"

#include <gtest/gtest.h>
#include <x86intrin.h>

namespace orvtest {

/// One thread is enough for nearly all that is tested here, and much faster on a busy machine.
[[maybe_unused]] inline const OrvStatus one_thread_from_the_start = orvSetNumThreads(1);

// ---- Statuses

/// What a call returns to a sweep, which wants orvOk: that for the right status.
template <class... Args>
OrvStatus told(const Call<Args...>& call, OrvStatus status, OrvStatus want, int n)
{
    if (status == want) return orvOk;
    ADD_FAILURE() << call.name << " of length " << n << ": status " << status << ", not " << want;
    return status == orvOk ? want : status;
}

// ---- Sweeps over scales

/// The lengths of one scale: all of them at the scales named and at a few more, otherwise some.
inline SweepOptions lengths_at_scale(int scale, std::initializer_list<int> thorough)
{
    const SweepOptions options = family_lengths();
    constexpr int none = 1000;
    const bool all = std::find(thorough.begin(), thorough.end(), scale) != thorough.end();
    return all ? options : options_at_scale(options, scale, none);
}
inline std::vector<int> scales_between(int lowest, int highest)
{
    std::vector<int> all = {INT_MIN, INT_MIN + 1, INT_MAX};
    for (int scale = lowest; scale <= highest; ++scale) all.push_back(scale);
    return all;
}

// ---- The caller's floating-point state, which integers do not depend on

/// The whole of MXCSR in a scope.
class ControlWord {
public:
    explicit ControlWord(unsigned word) : before_(_mm_getcsr()) { _mm_setcsr(word); }
    ~ControlWord() { _mm_setcsr(before_); }
    ControlWord(const ControlWord&) = delete;
    ControlWord& operator=(const ControlWord&) = delete;

private:
    unsigned before_;
};

constexpr unsigned inexact_flag = 0x20;

/// Which exceptions a caller has masked.
enum class Exceptions : unsigned { masked = 0x1F80, unmasked = 0 };

/// Makes a call in each rounding of a caller, with subnormal numbers and without, and compares with the wanted results.
/// The control bits are the same afterwards, and of the flags none but those allowed has come up. An exception that is
/// not masked would end the program.
template <class R, class Function>
void expect_the_same_in_any_state(const char* name, const std::vector<R>& wanted, OrvStatus status,
                                  const Function& function, Exceptions exceptions = Exceptions::masked,
                                  unsigned allowed = inexact_flag)
{
    constexpr unsigned no_subnormals = flush_to_zero | denormals_are_zero;
    const CallNote note([name] { return std::string("exceptions as the caller has them, ") + name; });
    std::vector<R> results(wanted.size());
    for (const unsigned rounding : {0u, 1u, 2u, 3u})
        for (const unsigned subnormals : {0u, no_subnormals}) {
            const unsigned word = static_cast<unsigned>(exceptions) | rounding * round_down | subnormals;
            std::fill(results.begin(), results.end(), R{});
            unsigned after = 0;
            OrvStatus got = orvOk;
            {
                const ControlWord scope(word);
                got = function(results.data(), static_cast<int>(results.size()));
                after = _mm_getcsr();
            }
            EXPECT_EQ(got, status) << name << " in the state " << std::hex << word;
            EXPECT_EQ(after & ~allowed, word) << name << std::hex;
            const std::size_t i = first_difference(element_type<R>(), results.data(), wanted.data(), wanted.size());
            EXPECT_EQ(i, wanted.size()) << name << " in the state " << std::hex << word << ": "
                                        << element_text(element_type<R>(), &results[std::min(i, wanted.size() - 1)]);
        }
}

} // namespace orvtest
