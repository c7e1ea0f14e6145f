// The thread's floating-point control word (MXCSR) around kernels that need a certain rounding or may meet values that
// no integer holds. It is written only where it has to change, because writing it stops the processor for a while.
#ifndef ORV_FRAME_FLOAT_STATE_H
#define ORV_FRAME_FLOAT_STATE_H

#include "orvs/types.h"
#include "simd/vec.h"

namespace ORV_VARIANT {

ORV_INLINE Orv32u read_control_word()
{
    Orv32u word;
    __asm__ volatile("vstmxcsr %0" : "=m"(word) : : "memory");
    return word;
}
ORV_INLINE void write_control_word(Orv32u word) { __asm__ volatile("vldmxcsr %0" : : "m"(word) : "memory"); }

/// What a state does with the flags that a kernel raises.
enum class Flags { restored, left };

/// The state within a scope, by bits of the control word that are cleared and then set; the destructor gives the
/// caller's word back. The barriers keep loads and stores, and so all work on arrays, inside.
template <Flags flags = Flags::restored>
class FloatState {
public:
    ORV_INLINE FloatState(Orv32u clear, Orv32u set) : saved_(read_control_word())
    {
        const Orv32u wanted = (saved_ & ~clear) | set;
        changed_ = wanted != saved_;
        if (changed_) write_control_word(wanted);
    }
    ORV_INLINE ~FloatState()
    {
        if (changed_ || (flags == Flags::restored && ((read_control_word() ^ saved_) & watched) != 0)) {
            write_control_word(saved_);
        }
    }
    FloatState(const FloatState&) = delete;
    FloatState& operator=(const FloatState&) = delete;

    static constexpr Orv32u invalid_flag = 0x0001, mask_invalid = 0x0080, mask_all = 0x1f80;
    static constexpr Orv32u rounding = 0x6000, toward_zero = 0x6000;
    static constexpr Orv32u subnormals_are_zero = 0x8040; // flushed as results, taken for zeros as operands

private:
    static constexpr Orv32u watched = rounding | mask_all | invalid_flag;

    Orv32u saved_;
    bool changed_;
};

/// The caller's rounding, all exceptions masked. A caller who masks them all finds the flags of the work; another one
/// gets the old word back.
class MaskedState {
public:
    ORV_INLINE MaskedState() : saved_(read_control_word())
    {
        if (!masks_all()) write_control_word((saved_ | FloatState<>::mask_all) & ~flags);
    }
    ORV_INLINE ~MaskedState()
    {
        if (!masks_all()) write_control_word(saved_);
    }
    MaskedState(const MaskedState&) = delete;
    MaskedState& operator=(const MaskedState&) = delete;

private:
    static constexpr Orv32u flags = 0x003f;

    ORV_INLINE bool masks_all() const { return (saved_ & FloatState<>::mask_all) == FloatState<>::mask_all; }

    Orv32u saved_;
};

/// x, known from here on only: what is computed from it stays behind the setting of the state before.
template <class T>
ORV_INLINE T inside_state(T x)
{
    __asm__ volatile("" : "+m"(x));
    return x;
}

/// Roundings to nearest, ties to even, whatever the caller has set; conversions of values out of range are silent.
struct NearestState : FloatState<> {
    ORV_INLINE NearestState() : FloatState(rounding, mask_invalid) {}
};

/// For integers that pass through floating point: to nearest, and no exception reaches the caller.
struct IntegerState : FloatState<> {
    ORV_INLINE IntegerState() : FloatState(rounding, mask_all) {}
};

/// The caller's rounding; only conversions of values out of range are made silent.
struct SilentState : FloatState<> {
    ORV_INLINE SilentState() : FloatState(0, mask_invalid) {}
};

/// Every operation rounds toward zero.
struct TowardZeroState : FloatState<> {
    ORV_INLINE TowardZeroState() : FloatState(rounding, toward_zero | mask_invalid) {}
};

/// All as IEEE 754 begins with: to nearest, subnormals as they are, no exceptions. What it raises may stay in the
/// flags.
struct StandardState : FloatState<Flags::left> {
    ORV_INLINE StandardState() : FloatState(rounding | subnormals_are_zero, mask_all) {}
};

} // namespace ORV_VARIANT

#endif
