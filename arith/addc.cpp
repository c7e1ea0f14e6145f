// dst = src + val.
#include "orvs/arith.h"

#include "arith/constant.h"
#include "arith/forms.h"
#include "orvs/frame.h"

using namespace ORV_VARIANT;

// ---- 16s

ORV_KERNEL void ownsAddC_16s(const Orv16s* src, Orv16s val, Orv16s* dst, int len)
{
    map_saturated(plus(val), dst, len, src);
}
ORV_KERNEL void ownsAddC_16s_1Sfs(const Orv16s* src, Orv16s val, Orv16s* dst, int len)
{
    map_halved(plus(val), dst, len, src);
}
ORV_KERNEL void ownsAddC_16s_PosSfs(const Orv16s* src, Orv16s val, Orv16s* dst, int len, int scale)
{
    map_rounded(plus(val), dst, len, scale, src);
}
ORV_KERNEL void ownsAddC_16s_NegSfs(const Orv16s* src, Orv16s val, Orv16s* dst, int len, int left)
{
    map_shifted(plus(val), dst, len, left, src);
}
ORV_KERNEL void ownsAddC_16s_Bound(const Orv16s* src, Orv16s val, Orv16s* dst, int len)
{
    map_bound(plus(val), dst, len, src);
}

OrvStatus orvsAddC_16s_Sfs(const Orv16s* src, Orv16s val, Orv16s* dst, int len, int scale)
{
    if (const OrvStatus bad = check(len, src, dst)) return bad;
    if (scale > 16) return orvsZero_16s(dst, len);
    if (scale == 0 && val == 0) return orvsCopy_16s(src, dst, len);
    if (scale == 0) ownsAddC_16s(src, val, dst, len);
    else if (scale == 1) ownsAddC_16s_1Sfs(src, val, dst, len);
    else if (scale > 1) ownsAddC_16s_PosSfs(src, val, dst, len, scale);
    else if (scale >= -15) ownsAddC_16s_NegSfs(src, val, dst, len, -scale);
    else ownsAddC_16s_Bound(src, val, dst, len);
    return orvOk;
}
OrvStatus orvsAddC_16s_ISfs(Orv16s val, Orv16s* srcDst, int len, int scale)
{
    return orvsAddC_16s_Sfs(srcDst, val, srcDst, len, scale);
}
OrvStatus orvsAddC_16s_I(Orv16s val, Orv16s* srcDst, int len) { return orvsAddC_16s_Sfs(srcDst, val, srcDst, len, 0); }

// ---- 8u

ORV_KERNEL void ownsAddC_8u(const Orv8u* src, Orv8u val, Orv8u* dst, int len)
{
    map_saturated(plus(val), dst, len, src);
}
ORV_KERNEL void ownsAddC_8u_1Sfs(const Orv8u* src, Orv8u val, Orv8u* dst, int len)
{
    map_halved(plus(val), dst, len, src);
}
ORV_KERNEL void ownsAddC_8u_PosSfs(const Orv8u* src, Orv8u val, Orv8u* dst, int len, int scale)
{
    map_rounded(plus(val), dst, len, scale, src);
}
ORV_KERNEL void ownsAddC_8u_NegSfs(const Orv8u* src, Orv8u val, Orv8u* dst, int len, int left)
{
    map_shifted(plus(val), dst, len, left, src);
}
ORV_KERNEL void ownsAddC_8u_Bound(const Orv8u* src, Orv8u val, Orv8u* dst, int len)
{
    map_bound(plus(val), dst, len, src);
}

OrvStatus orvsAddC_8u_Sfs(const Orv8u* src, Orv8u val, Orv8u* dst, int len, int scale)
{
    if (const OrvStatus bad = check(len, src, dst)) return bad;
    if (scale > 8) return orvsZero_8u(dst, len); // also at 9, where 510 / 512 would round to 1: the interface's choice
    if (scale == 0 && val == 0) return orvsCopy_8u(src, dst, len);
    if (scale == 0) ownsAddC_8u(src, val, dst, len);
    else if (scale == 1) ownsAddC_8u_1Sfs(src, val, dst, len);
    else if (scale > 1) ownsAddC_8u_PosSfs(src, val, dst, len, scale);
    else if (scale >= -7) ownsAddC_8u_NegSfs(src, val, dst, len, -scale);
    else if (val != 0) return orvsSet_8u(255, dst, len);
    else ownsAddC_8u_Bound(src, val, dst, len);
    return orvOk;
}
OrvStatus orvsAddC_8u_ISfs(Orv8u val, Orv8u* srcDst, int len, int scale)
{
    return orvsAddC_8u_Sfs(srcDst, val, srcDst, len, scale);
}

// ---- 16u: one kernel for every scale

ORV_KERNEL void ownps_AddC_16u_Sfs(const Orv16u* src, Orv16u val, Orv16u* dst, int len, int scale)
{
    map_scaled(plus(val), dst, len, scale, src);
}

OrvStatus orvsAddC_16u_Sfs(const Orv16u* src, Orv16u val, Orv16u* dst, int len, int scale)
{
    if (const OrvStatus bad = check(len, src, dst)) return bad;
    Orv16s* const words = reinterpret_cast<Orv16s*>(dst);
    if (scale > 17) return orvsZero_16s(words, len); // 131070 / 2^18 is below one half
    if (scale == 0 && val == 0) return orvsCopy_16s(reinterpret_cast<const Orv16s*>(src), words, len);
    if (scale < -15 && val != 0) return orvsSet_16s(-1, words, len); // 65535
    ownps_AddC_16u_Sfs(src, val, dst, len, scale);
    return orvOk;
}
OrvStatus orvsAddC_16u_ISfs(Orv16u val, Orv16u* srcDst, int len, int scale)
{
    return orvsAddC_16u_Sfs(srcDst, val, srcDst, len, scale);
}

// ---- 32s and complex integers

OrvStatus orvsAddC_32s_Sfs(const Orv32s* src, Orv32s val, Orv32s* dst, int len, int scale)
{
    if (const OrvStatus bad = check(len, src, dst)) return bad;
    if (scale > 32) return orvsZero_32s(dst, len);
    if (scale == 0 && val == 0) return orvsCopy_32s(src, dst, len);
    map_scaled(plus(val), dst, len, scale, src);
    return orvOk;
}
OrvStatus orvsAddC_32s_ISfs(Orv32s val, Orv32s* srcDst, int len, int scale)
{
    return orvsAddC_32s_Sfs(srcDst, val, srcDst, len, scale);
}
OrvStatus orvsAddC_16sc_Sfs(const Orv16sc* src, Orv16sc val, Orv16sc* dst, int len, int scale)
{
    return scaled_form(plus(val), dst, len, scale, 16, src);
}
OrvStatus orvsAddC_16sc_ISfs(Orv16sc val, Orv16sc* srcDst, int len, int scale)
{
    return orvsAddC_16sc_Sfs(srcDst, val, srcDst, len, scale);
}
OrvStatus orvsAddC_32sc_Sfs(const Orv32sc* src, Orv32sc val, Orv32sc* dst, int len, int scale)
{
    return scaled_form(plus(val), dst, len, scale, 32, src);
}
OrvStatus orvsAddC_32sc_ISfs(Orv32sc val, Orv32sc* srcDst, int len, int scale)
{
    return orvsAddC_32sc_Sfs(srcDst, val, srcDst, len, scale);
}

// ---- 64s, 64u: every rounding mode

/// The general road. A sum has 65 bits, so one scale more than the lane has bits still leaves something: at scale 65
/// the tie of the most negative sum, or a quotient that rounds to 1 without a sign.
template <OrvRoundMode mode, class T>
ORV_INLINE void add_rounded(const T* src, T val, T* dst, int len, int scale)
{
    const auto v = splat(val);
    if (scale == 1) {
        map([=](auto x) ORV_INLINE_LAMBDA { return round_half<mode>(exact_sum(x, v)); }, dst, len, src);
    } else if (scale == 65) {
        const rounding<T> c(64);
        map([=](auto x) ORV_INLINE_LAMBDA { return round_shift<mode>(with_trace(exact_sum(x, v)), c); }, dst, len, src);
    } else {
        const rounding<T> c(scale);
        map([=](auto x) ORV_INLINE_LAMBDA { return round_shift<mode>(exact_sum(x, v), c); }, dst, len, src);
    }
}

template <class T>
ORV_INLINE void add_scaled(const T* src, T val, T* dst, int len, int scale, OrvRoundMode mode)
{
    if (scale > 65) zero(dst, len);
    else if (scale <= -64) map_bound(plus(val), dst, len, src);
    else if (scale < 0) map_shifted(plus(val), dst, len, -scale, src);
    else if (scale == 0) map_saturated(plus(val), dst, len, src);
    else if (mode == orvRndZero) add_rounded<orvRndZero>(src, val, dst, len, scale);
    else if (mode == orvRndNear) add_rounded<orvRndNear>(src, val, dst, len, scale);
    else add_rounded<orvRndFinancial>(src, val, dst, len, scale);
}

ORV_KERNEL void ownsAddC_64s_Sfs_px(const Orv64s* src, Orv64s val, Orv64s* dst, int len, int scale, OrvRoundMode mode)
{
    add_scaled(src, val, dst, len, scale, mode);
}
ORV_KERNEL void ownsAddC_64u_Sfs_px(const Orv64u* src, Orv64u val, Orv64u* dst, int len, int scale, OrvRoundMode mode)
{
    add_scaled(src, val, dst, len, scale, mode);
}

// Only len = 0 is refused; a negative length reaches the kernel, which finds nothing to do.
OrvStatus orvsAddC_64s_Sfs(const Orv64s* src, Orv64s val, Orv64s* dst, int len, int scale, OrvRoundMode rndMode)
{
    if (any_null(src, dst)) return orvErrNullPointer;
    if (len == 0) return orvErrBadLength;
    if (len > 0) ownsAddC_64s_Sfs_px(src, val, dst, len, scale, rndMode);
    return orvOk;
}
OrvStatus orvsAddC_64u_Sfs(const Orv64u* src, Orv64u val, Orv64u* dst, int len, int scale, OrvRoundMode rndMode)
{
    if (any_null(src, dst)) return orvErrNullPointer;
    if (len == 0) return orvErrBadLength;
    if (len > 0) ownsAddC_64u_Sfs_px(src, val, dst, len, scale, rndMode);
    return orvOk;
}

// ---- Floating point

OrvStatus orvsAddC_32f(const Orv32f* src, Orv32f val, Orv32f* dst, int len)
{
    const auto v = splat(val);
    return float_form([=](auto x) ORV_INLINE_LAMBDA { return x + v; }, dst, len, src);
}
OrvStatus orvsAddC_32f_I(Orv32f val, Orv32f* srcDst, int len) { return orvsAddC_32f(srcDst, val, srcDst, len); }
OrvStatus orvsAddC_64f(const Orv64f* src, Orv64f val, Orv64f* dst, int len)
{
    const auto v = splat(val);
    return float_form([=](auto x) ORV_INLINE_LAMBDA { return x + v; }, dst, len, src);
}
OrvStatus orvsAddC_64f_I(Orv64f val, Orv64f* srcDst, int len) { return orvsAddC_64f(srcDst, val, srcDst, len); }
OrvStatus orvsAddC_32fc(const Orv32fc* src, Orv32fc val, Orv32fc* dst, int len)
{
    const auto v = splat(val);
    return float_form([=](auto x) ORV_INLINE_LAMBDA { return x + v; }, dst, len, src);
}
OrvStatus orvsAddC_32fc_I(Orv32fc val, Orv32fc* srcDst, int len) { return orvsAddC_32fc(srcDst, val, srcDst, len); }
OrvStatus orvsAddC_64fc(const Orv64fc* src, Orv64fc val, Orv64fc* dst, int len)
{
    const auto v = splat(val);
    return float_form([=](auto x) ORV_INLINE_LAMBDA { return x + v; }, dst, len, src);
}
OrvStatus orvsAddC_64fc_I(Orv64fc val, Orv64fc* srcDst, int len) { return orvsAddC_64fc(srcDst, val, srcDst, len); }
