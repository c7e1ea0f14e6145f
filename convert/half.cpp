// Half precision: by the processor's instructions where there are any, otherwise by integers. Both give the same bits.
#include "simd/half.h"

#include <algorithm>

#include "convert/kernels.h"
#include "orvs/convert.h"
#include "orvs/core.h"

using namespace ORV_VARIANT;

namespace {

bool has_instructions() { return ownGetFeature(orvCpuF16c) != 0; }

template <class By>
ORV_INLINE vec<Orv32f, 16> widen_half(vec<Orv16f> v)
{
    return {By::widen(low_half(v)), By::widen(high_half(v))};
}
template <class By, OrvRoundMode mode>
ORV_INLINE halves<Orv16f> narrow_to_half(vec<Orv32f, 16> v)
{
    return {By::template narrow<mode>(v.low), By::template narrow<mode>(v.high)};
}

/// The instruction rounds as it is told; by integers, subnormal values need the state.
template <class By, OrvRoundMode mode>
struct HalfState {};
template <>
struct HalfState<HalfByIntegers, orvRndNear> : NearestState {};
template <>
struct HalfState<HalfByIntegers, orvRndZero> : TowardZeroState {};

template <class By>
[[gnu::noinline]] void convert_16f32f(const Orv16f* src, Orv32f* dst, int len)
{
    map([](auto x) ORV_INLINE_LAMBDA { return By::widen(x); }, dst, len, src);
}

/// S is Orv32f or Orv16s.
template <class By, OrvRoundMode mode, class S>
[[gnu::noinline]] void convert_to_half(const S* src, Orv16f* dst, int len)
{
    [[maybe_unused]] const HalfState<By, mode> state;
    map([](auto x) ORV_INLINE_LAMBDA { return narrow_to_half<By, mode>(convert_to<Orv32f>(x)); }, dst, len, src);
}

template <class By, OrvRoundMode mode>
[[gnu::noinline]] void convert_16f16s(const Orv16f* src, Orv16s* dst, int len, int scale)
{
    const StateOf<mode> state;
    const auto f = splat(power_of_two<Orv32f>(scale));
    const auto times_factor = [=](vec<Orv32f> x) ORV_INLINE_LAMBDA { return x * f; };
    map([=](auto x) ORV_INLINE_LAMBDA { return round_to<Orv16s, mode>(each(times_factor, widen_half<By>(x))); }, dst,
        len, src);
}

/// Every mode but orvRndNear truncates.
template <class S>
ORV_INLINE OrvStatus to_half_form(const S* src, Orv16f* dst, int len, OrvRoundMode mode)
{
    if (const OrvStatus bad = check(len, src, dst)) return bad;
    if (mode == orvRndFinancial) return orvErrBadRoundMode;
    const bool near = mode == orvRndNear;
    if (has_instructions()) {
        if (near) convert_to_half<HalfByInstruction, orvRndNear>(src, dst, len);
        else convert_to_half<HalfByInstruction, orvRndZero>(src, dst, len);
    } else {
        if (near) convert_to_half<HalfByIntegers, orvRndNear>(src, dst, len);
        else convert_to_half<HalfByIntegers, orvRndZero>(src, dst, len);
    }
    return orvOk;
}

} // namespace

OrvStatus orvsConvert_16f32f(const Orv16f* src, Orv32f* dst, int len)
{
    if (const OrvStatus bad = check(len, src, dst)) return bad;
    if (has_instructions()) convert_16f32f<HalfByInstruction>(src, dst, len);
    else convert_16f32f<HalfByIntegers>(src, dst, len);
    return orvOk;
}
OrvStatus orvsConvert_32f16f(const Orv32f* src, Orv16f* dst, int len, OrvRoundMode rndMode)
{
    return to_half_form(src, dst, len, rndMode);
}
OrvStatus orvsConvert_16s16f(const Orv16s* src, Orv16f* dst, int len, OrvRoundMode rndMode)
{
    return to_half_form(src, dst, len, rndMode);
}
OrvStatus orvsConvert_16f16s_Sfs(const Orv16f* src, Orv16s* dst, int len, OrvRoundMode rndMode, int scale)
{
    if (const OrvStatus bad = check(len, src, dst)) return bad;
    if (rndMode == orvRndFinancial) return orvErrBadRoundMode;
    // Halves reach from 2^-24 to 2^16: beyond these scales nothing changes any more.
    scale = std::clamp(scale, -64, 64);
    const bool near = rndMode == orvRndNear;
    if (has_instructions()) {
        if (near) convert_16f16s<HalfByInstruction, orvRndNear>(src, dst, len, scale);
        else convert_16f16s<HalfByInstruction, orvRndZero>(src, dst, len, scale);
    } else {
        if (near) convert_16f16s<HalfByIntegers, orvRndNear>(src, dst, len, scale);
        else convert_16f16s<HalfByIntegers, orvRndZero>(src, dst, len, scale);
    }
    return orvOk;
}
