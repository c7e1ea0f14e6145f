// The floating-point state of the caller, which functions follow and leave as it is.
#pragma once

#include "tests/support/api.h"

#include <gtest/gtest.h>
#include <x86intrin.h>

namespace orvtest {

/// Bits of MXCSR.
enum : unsigned {
    flag_bits = 0x003F, ///< what operations have met: invalid, denormal, division by zero, overflow, underflow, inexact
    denormals_are_zero = 0x0040,
    round_down = 0x2000,
    round_up = 0x4000,
    round_to_zero = 0x6000,
    flush_to_zero = 0x8000
};

/// While it lives, the thread works in this state.
class CallerState {
public:
    explicit CallerState(unsigned bits) : before_(_mm_getcsr())
    {
        _mm_setcsr((before_ & ~(flag_bits | round_to_zero | flush_to_zero | denormals_are_zero)) | bits);
    }
    ~CallerState() { _mm_setcsr(before_); }
    CallerState(const CallerState&) = delete;
    CallerState& operator=(const CallerState&) = delete;

    /// What the thread's operations have met so far.
    static unsigned flags() { return _mm_getcsr() & flag_bits; }

private:
    unsigned before_;
};

} // namespace orvtest
