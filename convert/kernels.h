// The kernels of the family, one for each way to convert, over source and destination types. What happens to a lane is
// in simd/convert.h.
#ifndef ORV_CONVERT_KERNELS_H
#define ORV_CONVERT_KERNELS_H

#include "frame/checks.h"
#include "frame/float_state.h"
#include "frame/scale.h"
#include "simd/convert.h"

namespace ORV_VARIANT {

/// dst = src: exact, or rounded to a floating type in the caller's state.
template <class S, class D>
[[gnu::noinline]] void convert_plain(const S* src, D* dst, int len)
{
    map([](auto x) ORV_INLINE_LAMBDA { return convert_to<D>(x); }, dst, len, src);
}

/// dst = src * factor, floating: src is rounded to the type of dst first.
template <class S, class D>
[[gnu::noinline]] void convert_scaled(const S* src, D* dst, int len, D factor)
{
    const auto f = splat(factor);
    map([=](auto x) ORV_INLINE_LAMBDA { return convert_to<D>(x) * f; }, dst, len, src);
}

/// What the processor's state has to be for round_to<D, mode>.
template <OrvRoundMode mode>
using StateOf = std::conditional_t<mode == orvRndNear, NearestState,
                                   std::conditional_t<mode == orvRndZero, SilentState, TowardZeroState>>;

/// dst = src * 2^-scale, floating to integer, rounded by mode and saturated.
template <OrvRoundMode mode, class S, class D>
[[gnu::noinline]] void convert_rounded(const S* src, D* dst, int len, int scale)
{
    const StateOf<mode> state;
    if (scale == 0) {
        map([](auto x) ORV_INLINE_LAMBDA { return round_to<D, mode>(x); }, dst, len, src);
    } else {
        const auto f = splat(power_of_two<S>(scale));
        const auto times_factor = [=](vec<S> x) ORV_INLINE_LAMBDA { return x * f; };
        map([=](auto x) ORV_INLINE_LAMBDA { return round_to<D, mode>(each(times_factor, x)); }, dst, len, src);
    }
}

/// dst = src * 2^-scale, integer to a narrower integer, rounded by mode and saturated. scale is at most the bits of S.
template <OrvRoundMode mode, class S, class D>
[[gnu::noinline]] void narrow_rounded(const S* src, D* dst, int len, int scale)
{
    if (scale == 0) {
        map([](auto x) ORV_INLINE_LAMBDA { return saturate_to<D>(x); }, dst, len, src);
    } else if (mode == orvRndNear && scale > 0 && scale <= bits_of<S> - bits_of<D>) {
        // Values too near the end of the type to be rounded by an addition end at the limit anyway.
        const plain_rounding<S> c(scale);
        const auto highest = splat(S(max_of<S> - (S(1) << (scale - 1))));
        const auto round = [=](vec<S> x) ORV_INLINE_LAMBDA { return round_plain(min(x, highest), c); };
        map([=](auto x) ORV_INLINE_LAMBDA { return saturate_to<D>(each(round, x)); }, dst, len, src);
    } else if (scale == 1) {
        const auto halve = [](vec<S> x) ORV_INLINE_LAMBDA { return round_half<mode>(exact_lane(x)); };
        map([=](auto x) ORV_INLINE_LAMBDA { return saturate_to<D>(each(halve, x)); }, dst, len, src);
    } else if (scale > 1) {
        const lane_rounding<S> c(scale);
        const auto round = [=](vec<S> x) ORV_INLINE_LAMBDA { return round_shift<mode>(exact_lane(x), c); };
        map([=](auto x) ORV_INLINE_LAMBDA { return saturate_to<D>(each(round, x)); }, dst, len, src);
    } else {
        const auto c = by(-scale);
        const auto shift = [=](vec<S> x) ORV_INLINE_LAMBDA { return shift_left_sat(x, c); };
        map(
            [=](auto x) ORV_INLINE_LAMBDA {
                if constexpr (sizeof(D) == 2 || sizeof(D) == 4) return shift_left_sat(saturate_to<D>(x), c);
                else return saturate_to<D>(each(shift, x)); // there are no shifts of 8 and of 24 bits
            },
            dst, len, src);
    }
}

} // namespace ORV_VARIANT

#endif
