// The direct sum of integer filters: products of 16 bits, sums modulo 2^32, which are shifted and saturated at the end.
#ifndef ORV_FIR_INTEGER_SUMS_H
#define ORV_FIR_INTEGER_SUMS_H

#include "fir/state.h"
#include "simd/lanes.h"
#include "simd/saturate.h"
#include "simd/vec.h"

namespace ORV_VARIANT {

/// sum * 2^shift: to the left modulo 2^32, to the right to nearest with ties to even.
struct SumShift {
    int left, right;

    explicit SumShift(int shift)
        : left(shift > 31  ? 31
               : shift > 0 ? shift
                           : 0),
          right(shift < -31 ? 31
                : shift < 0 ? -shift
                            : 0)
    {}
    /// y = sum * 2^(tapsFactor - scale).
    SumShift(int tapsFactor, int scale) : SumShift(clamped(Orv64s(tapsFactor) - scale)) {}

    ORV_INLINE vec<Orv32s> to_left(vec<Orv32s> sum) const { return shift_left(sum, by(left)); }
    /// right > 0. The quotient is rounded up where the fraction and a little less than one half, or one half, carry.
    ORV_INLINE vec<Orv32s> to_right(vec<Orv32s> sum) const
    {
        const auto quotient = shift_right(sum, by(right));
        const auto fraction = sum & splat(Orv32s((Orv32u(1) << right) - 1));
        const auto half = splat(Orv32s((Orv32u(1) << (right - 1)) - 1)) + (quotient & splat(Orv32s(1)));
        return quotient + shift_right_logical(fraction + half, by(right));
    }

    /// The same for one output, saturated.
    ORV_INLINE Orv16s operator()(Orv32s sum) const
    {
        const Orv64s below_half = (Orv64s(1) << right >> 1) - 1, odd = sum >> right & 1;
        const Orv64s y = right > 0 ? (sum + below_half + odd) >> right : Orv64s(Orv32s(Orv32u(sum) << left));
        return y > 32767 ? Orv16s(32767) : y < -32768 ? Orv16s(-32768) : Orv16s(y);
    }
    ORV_INLINE Orv16sc operator()(Orv32sc sum) const { return {(*this)(sum.re), (*this)(sum.im)}; }

private:
    static int clamped(Orv64s shift) { return shift > 31 ? 31 : shift < -31 ? -31 : int(shift); }
};

/// Each input vector of 16-bit values is taken twice, times pairs of taps: for outputs of even and of odd place, or for
/// their real and imaginary parts.
///
/// A real output of even place takes its input in the pairs (x[n], x[n+1]), (x[n-2], x[n-1]), ... times (taps[0], 0),
/// (taps[2], taps[1]), ..., the next output the same pairs times (taps[1], taps[0]), (taps[3], taps[2]), ... A complex
/// output takes (re, im) times (re, -im) for its real part and times (im, re) for its imaginary part.
template <class T>
struct IntegerSums {
    const Orv32s* laneTable;
    int tapsLen;
    SumShift shift;

    static constexpr bool complex = sizeof(T) == 4;
    static constexpr int lanes = complex ? 8 : 16;
    static constexpr int widest = sizeof(void*) == 8 ? 4 : 2;

    /// Two words a step, for input that is two 16-bit values older each time.
    static constexpr int steps(int tapsLen) { return complex ? tapsLen : tapsLen / 2 + 1; }

    template <int vectors>
    [[gnu::noinline]] void tile(const T* input, T* output) const
    {
        vec<Orv32s> even[vectors], odd[vectors];
        repeat<vectors>([&](auto i) ORV_INLINE_LAMBDA { even[i] = odd[i] = splat(Orv32s(0)); });
        const Orv16s* x = reinterpret_cast<const Orv16s*>(input);
        const Orv32s *pair = laneTable, *const end = laneTable + 2 * std::ptrdiff_t(steps(tapsLen));
        for (; pair != end; pair += 2, x -= 2) {
            const auto for_even = as<Orv16s>(splat(pair[0])), for_odd = as<Orv16s>(splat(pair[1]));
            repeat<vectors>([&](auto i) ORV_INLINE_LAMBDA {
                const auto in = held(load(x + i * 16));
                even[i] = held(even[i] + multiply_add_pairs(in, for_even));
                odd[i] = held(odd[i] + multiply_add_pairs(in, for_odd));
            });
        }
        Orv16s* const y = reinterpret_cast<Orv16s*>(output);
        const SumShift by_all = shift;
        if (by_all.right > 0) {
            repeat<vectors>([&](auto i) ORV_INLINE_LAMBDA {
                store(y + i * 16, pack_sat(even_odd<Orv32s>{by_all.to_right(even[i]), by_all.to_right(odd[i])}));
            });
        } else {
            repeat<vectors>([&](auto i) ORV_INLINE_LAMBDA {
                store(y + i * 16, pack_sat(even_odd<Orv32s>{by_all.to_left(even[i]), by_all.to_left(odd[i])}));
            });
        }
    }
};

} // namespace ORV_VARIANT

#endif
