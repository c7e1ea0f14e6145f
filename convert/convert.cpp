// Element types converted into each other: widened, rounded, scaled, saturated. Half precision is in half.cpp.
#include "orvs/convert.h"

#include <algorithm>

#include "convert/kernels.h"
#include "frame/fill.h"

using namespace ORV_VARIANT;

namespace {

template <class S, class D>
ORV_INLINE OrvStatus plain_form(const S* src, D* dst, int len)
{
    if (const OrvStatus bad = check(len, src, dst)) return bad;
    convert_plain(src, dst, len);
    return orvOk;
}

template <class S, class D>
ORV_INLINE OrvStatus scaled_form(const S* src, D* dst, int len, int scale)
{
    if (const OrvStatus bad = check(len, src, dst)) return bad;
    convert_scaled(src, dst, len, power_of_two<D>(scale));
    return orvOk;
}

/// Floating to integer. Every mode but two is the financial one.
template <class S, class D>
ORV_INLINE OrvStatus rounded_form(const S* src, D* dst, int len, OrvRoundMode mode, int scale)
{
    if (const OrvStatus bad = check(len, src, dst)) return bad;
    if (mode == orvRndNear) convert_rounded<orvRndNear>(src, dst, len, scale);
    else if (mode == orvRndZero) convert_rounded<orvRndZero>(src, dst, len, scale);
    else convert_rounded<orvRndFinancial>(src, dst, len, scale);
    return orvOk;
}

/// Integers of 32 bits to nearest. The interface takes scales above 31 as 31.
template <class S, class D>
ORV_INLINE OrvStatus narrowed_form(const S* src, D* dst, int len, int scale)
{
    if (const OrvStatus bad = check(len, src, dst)) return bad;
    narrow_rounded<orvRndNear>(src, dst, len, std::clamp(scale, -31, 31)); // below, nothing but 0 fits any more
    return orvOk;
}

/// Integers by every mode of rounding.
template <class S, class D>
ORV_INLINE OrvStatus narrowed_form(const S* src, D* dst, int len, OrvRoundMode mode, int scale)
{
    if (const OrvStatus bad = check(len, src, dst)) return bad;
    if (scale > bits_of<S>) return zero(dst, len); // less than one half
    scale = std::max(scale, -bits_of<S>);
    if (mode == orvRndNear) narrow_rounded<orvRndNear>(src, dst, len, scale);
    else if (mode == orvRndZero) narrow_rounded<orvRndZero>(src, dst, len, scale);
    else narrow_rounded<orvRndFinancial>(src, dst, len, scale);
    return orvOk;
}

} // namespace

// ---- Exact widening

OrvStatus orvsConvert_8s16s(const Orv8s* src, Orv16s* dst, int len) { return plain_form(src, dst, len); }
OrvStatus orvsConvert_16s32s(const Orv16s* src, Orv32s* dst, int len) { return plain_form(src, dst, len); }
OrvStatus orvsConvert_24s32s(const Orv8u* src, Orv32s* dst, int len) { return plain_form(as_24s(src), dst, len); }
OrvStatus orvsConvert_24u32u(const Orv8u* src, Orv32u* dst, int len) { return plain_form(as_24u(src), dst, len); }
OrvStatus orvsConvert_8s32f(const Orv8s* src, Orv32f* dst, int len) { return plain_form(src, dst, len); }
OrvStatus orvsConvert_8u32f(const Orv8u* src, Orv32f* dst, int len) { return plain_form(src, dst, len); }
OrvStatus orvsConvert_16s32f(const Orv16s* src, Orv32f* dst, int len) { return plain_form(src, dst, len); }
OrvStatus orvsConvert_16u32f(const Orv16u* src, Orv32f* dst, int len) { return plain_form(src, dst, len); }
OrvStatus orvsConvert_24s32f(const Orv8u* src, Orv32f* dst, int len) { return plain_form(as_24s(src), dst, len); }
OrvStatus orvsConvert_24u32f(const Orv8u* src, Orv32f* dst, int len) { return plain_form(as_24u(src), dst, len); }
OrvStatus orvsConvert_32s64f(const Orv32s* src, Orv64f* dst, int len) { return plain_form(src, dst, len); }
OrvStatus orvsConvert_32f64f(const Orv32f* src, Orv64f* dst, int len) { return plain_form(src, dst, len); }

// ---- Rounded to a floating type

OrvStatus orvsConvert_32s32f(const Orv32s* src, Orv32f* dst, int len) { return plain_form(src, dst, len); }
OrvStatus orvsConvert_64f32f(const Orv64f* src, Orv32f* dst, int len) { return plain_form(src, dst, len); }
OrvStatus orvsConvert_64s64f(const Orv64s* src, Orv64f* dst, int len) { return plain_form(src, dst, len); }

// ---- Integer to floating with scale: within these limits of the float's exponent neither factor nor product leave it

OrvStatus orvsConvert_16s32f_Sfs(const Orv16s* src, Orv32f* dst, int len, int scale)
{
    return scaled_form(src, dst, len, std::clamp(scale, -112, 126));
}
OrvStatus orvsConvert_32s32f_Sfs(const Orv32s* src, Orv32f* dst, int len, int scale)
{
    return scaled_form(src, dst, len, std::clamp(scale, -96, 126));
}
OrvStatus orvsConvert_16s64f_Sfs(const Orv16s* src, Orv64f* dst, int len, int scale)
{
    return scaled_form(src, dst, len, scale);
}
OrvStatus orvsConvert_32s64f_Sfs(const Orv32s* src, Orv64f* dst, int len, int scale)
{
    return scaled_form(src, dst, len, scale);
}

// ---- Floating to integer

OrvStatus orvsConvert_32f8s_Sfs(const Orv32f* src, Orv8s* dst, int len, OrvRoundMode rndMode, int scale)
{
    return rounded_form(src, dst, len, rndMode, scale);
}
OrvStatus orvsConvert_32f8u_Sfs(const Orv32f* src, Orv8u* dst, int len, OrvRoundMode rndMode, int scale)
{
    return rounded_form(src, dst, len, rndMode, scale);
}
OrvStatus orvsConvert_32f16s_Sfs(const Orv32f* src, Orv16s* dst, int len, OrvRoundMode rndMode, int scale)
{
    return rounded_form(src, dst, len, rndMode, scale);
}
OrvStatus orvsConvert_32f16u_Sfs(const Orv32f* src, Orv16u* dst, int len, OrvRoundMode rndMode, int scale)
{
    return rounded_form(src, dst, len, rndMode, scale);
}
OrvStatus orvsConvert_32f32s_Sfs(const Orv32f* src, Orv32s* dst, int len, OrvRoundMode rndMode, int scale)
{
    return rounded_form(src, dst, len, rndMode, scale);
}
OrvStatus orvsConvert_64f16s_Sfs(const Orv64f* src, Orv16s* dst, int len, OrvRoundMode rndMode, int scale)
{
    return rounded_form(src, dst, len, rndMode, scale);
}
OrvStatus orvsConvert_64f32s_Sfs(const Orv64f* src, Orv32s* dst, int len, OrvRoundMode rndMode, int scale)
{
    return rounded_form(src, dst, len, rndMode, scale);
}
// Unlike its kin, this one truncates in modes that are none of the three.
OrvStatus orvsConvert_64f64s_Sfs(const Orv64f* src, Orv64s* dst, int len, OrvRoundMode rndMode, int scale)
{
    const bool other = rndMode != orvRndNear && rndMode != orvRndFinancial;
    return rounded_form(src, dst, len, other ? orvRndZero : rndMode, scale);
}
OrvStatus orvsConvert_32f24s_Sfs(const Orv32f* src, Orv8u* dst, int len, int scale)
{
    return rounded_form(src, as_24s(dst), len, orvRndNear, scale);
}
OrvStatus orvsConvert_32f24u_Sfs(const Orv32f* src, Orv8u* dst, int len, int scale)
{
    return rounded_form(src, as_24u(dst), len, orvRndNear, scale);
}

// ---- Integer narrowing

OrvStatus orvsConvert_32s16s(const Orv32s* src, Orv16s* dst, int len) { return narrowed_form(src, dst, len, 0); }
OrvStatus orvsConvert_32s16s_Sfs(const Orv32s* src, Orv16s* dst, int len, int scale)
{
    return narrowed_form(src, dst, len, scale);
}
OrvStatus orvsConvert_32s24s_Sfs(const Orv32s* src, Orv8u* dst, int len, int scale)
{
    return narrowed_form(src, as_24s(dst), len, scale);
}
OrvStatus orvsConvert_32u24u_Sfs(const Orv32u* src, Orv8u* dst, int len, int scale)
{
    return narrowed_form(src, as_24u(dst), len, scale);
}
OrvStatus orvsConvert_16s8s_Sfs(const Orv16s* src, Orv8s* dst, int len, OrvRoundMode rndMode, int scale)
{
    return narrowed_form(src, dst, len, rndMode, scale);
}
OrvStatus orvsConvert_64s32s_Sfs(const Orv64s* src, Orv32s* dst, int len, OrvRoundMode rndMode, int scale)
{
    return narrowed_form(src, dst, len, rndMode, scale);
}
