// The thread's floating-point control word (MXCSR) around kernels that need a certain rounding or may meet values that
// no integer holds. It is written only where it has to change, because writing it stops the processor for a while.
#ifndef ORV_FRAME_FLOAT_STATE_H
#define ORV_FRAME_FLOAT_STATE_H

#include "orvs/types.h"
#include "simd/vec.h"

namespace ORV_VARIANT {

/// The state within a scope; the destructor gives the caller's word back, with its flags. The barriers keep loads and
/// stores, and so all work on arrays, inside.
class FloatState {
public:
    /// Clears and then sets bits of the control word.
    ORV_INLINE FloatState(Orv32u clear, Orv32u set) : saved_(read())
    {
        const Orv32u wanted = (saved_ & ~clear) | set;
        changed_ = wanted != saved_;
        if (changed_) write(wanted);
    }
    ORV_INLINE ~FloatState()
    {
        if (changed_ || ((read() ^ saved_) & watched) != 0) write(saved_);
    }
    FloatState(const FloatState&) = delete;
    FloatState& operator=(const FloatState&) = delete;

    static constexpr Orv32u invalid_flag = 0x0001, mask_invalid = 0x0080, mask_all = 0x1f80;
    static constexpr Orv32u rounding = 0x6000, toward_zero = 0x6000;

private:
    static constexpr Orv32u watched = rounding | mask_all | invalid_flag;

    ORV_INLINE static Orv32u read()
    {
        Orv32u word;
        __asm__ volatile("vstmxcsr %0" : "=m"(word) : : "memory");
        return word;
    }
    ORV_INLINE static void write(Orv32u word) { __asm__ volatile("vldmxcsr %0" : : "m"(word) : "memory"); }

    Orv32u saved_;
    bool changed_;
};

/// x, known from here on only: what is computed from it stays behind the setting of the state before.
template <class T>
ORV_INLINE T inside_state(T x)
{
    __asm__ volatile("" : "+m"(x));
    return x;
}

/// Roundings to nearest, ties to even, whatever the caller has set; conversions of values out of range are silent.
struct NearestState : FloatState {
    ORV_INLINE NearestState() : FloatState(rounding, mask_invalid) {}
};

/// For integers that pass through floating point: to nearest, and no exception reaches the caller.
struct IntegerState : FloatState {
    ORV_INLINE IntegerState() : FloatState(rounding, mask_all) {}
};

/// The caller's rounding; only conversions of values out of range are made silent.
struct SilentState : FloatState {
    ORV_INLINE SilentState() : FloatState(0, mask_invalid) {}
};

/// Every operation rounds toward zero.
struct TowardZeroState : FloatState {
    ORV_INLINE TowardZeroState() : FloatState(rounding, toward_zero | mask_invalid) {}
};

} // namespace ORV_VARIANT

#endif
