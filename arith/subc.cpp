// dst = src - val, and dst = val - src.
#include "orvs/arith.h"

#include "arith/constant.h"
#include "arith/forms.h"
#include "orvs/frame.h"

using namespace ORV_VARIANT;

// ---- SubC, 16s

ORV_KERNEL void ownsSubC_16s(const Orv16s* src, Orv16s val, Orv16s* dst, int len)
{
    map_saturated(minus(val), dst, len, src);
}
ORV_KERNEL void ownsSubC_16s_PosSfs(const Orv16s* src, Orv16s val, Orv16s* dst, int len, int scale)
{
    if (scale == 1) return map_halved(minus(val), dst, len, src);
    map_rounded(minus(val), dst, len, scale, src);
}
ORV_KERNEL void ownsSubC_16s_NegSfs(const Orv16s* src, Orv16s val, Orv16s* dst, int len, int left)
{
    map_shifted(minus(val), dst, len, left, src);
}
ORV_KERNEL void ownsSubC_16s_Bound(const Orv16s* src, Orv16s val, Orv16s* dst, int len)
{
    map_bound(minus(val), dst, len, src);
}

OrvStatus orvsSubC_16s_Sfs(const Orv16s* src, Orv16s val, Orv16s* dst, int len, int scale)
{
    if (const OrvStatus bad = check(len, src, dst)) return bad;
    if (scale > 16) return orvsZero_16s(dst, len);
    if (scale == 0 && val == 0) return orvsCopy_16s(src, dst, len);
    if (scale == 0) ownsSubC_16s(src, val, dst, len);
    else if (scale > 0) ownsSubC_16s_PosSfs(src, val, dst, len, scale);
    else if (scale >= -15) ownsSubC_16s_NegSfs(src, val, dst, len, -scale);
    else ownsSubC_16s_Bound(src, val, dst, len);
    return orvOk;
}
OrvStatus orvsSubC_16s_ISfs(Orv16s val, Orv16s* srcDst, int len, int scale)
{
    return orvsSubC_16s_Sfs(srcDst, val, srcDst, len, scale);
}
OrvStatus orvsSubC_16s_I(Orv16s val, Orv16s* srcDst, int len) { return orvsSubC_16s_Sfs(srcDst, val, srcDst, len, 0); }

// ---- SubC, other integers: the largest difference, just below 2^bits, rounds to 0 above scale = bits

OrvStatus orvsSubC_8u_Sfs(const Orv8u* src, Orv8u val, Orv8u* dst, int len, int scale)
{
    return scaled_form(minus(val), dst, len, scale, 8, src);
}
OrvStatus orvsSubC_8u_ISfs(Orv8u val, Orv8u* srcDst, int len, int scale)
{
    return orvsSubC_8u_Sfs(srcDst, val, srcDst, len, scale);
}
OrvStatus orvsSubC_16u_Sfs(const Orv16u* src, Orv16u val, Orv16u* dst, int len, int scale)
{
    return scaled_form(minus(val), dst, len, scale, 16, src);
}
OrvStatus orvsSubC_16u_ISfs(Orv16u val, Orv16u* srcDst, int len, int scale)
{
    return orvsSubC_16u_Sfs(srcDst, val, srcDst, len, scale);
}
OrvStatus orvsSubC_32s_Sfs(const Orv32s* src, Orv32s val, Orv32s* dst, int len, int scale)
{
    return scaled_form(minus(val), dst, len, scale, 32, src);
}
OrvStatus orvsSubC_32s_ISfs(Orv32s val, Orv32s* srcDst, int len, int scale)
{
    return orvsSubC_32s_Sfs(srcDst, val, srcDst, len, scale);
}
OrvStatus orvsSubC_16sc_Sfs(const Orv16sc* src, Orv16sc val, Orv16sc* dst, int len, int scale)
{
    return scaled_form(minus(val), dst, len, scale, 16, src);
}
OrvStatus orvsSubC_16sc_ISfs(Orv16sc val, Orv16sc* srcDst, int len, int scale)
{
    return orvsSubC_16sc_Sfs(srcDst, val, srcDst, len, scale);
}
OrvStatus orvsSubC_32sc_Sfs(const Orv32sc* src, Orv32sc val, Orv32sc* dst, int len, int scale)
{
    return scaled_form(minus(val), dst, len, scale, 32, src);
}
OrvStatus orvsSubC_32sc_ISfs(Orv32sc val, Orv32sc* srcDst, int len, int scale)
{
    return orvsSubC_32sc_Sfs(srcDst, val, srcDst, len, scale);
}

// ---- SubCRev, integers

OrvStatus orvsSubCRev_8u_Sfs(const Orv8u* src, Orv8u val, Orv8u* dst, int len, int scale)
{
    return scaled_form(minus_from(val), dst, len, scale, 8, src);
}
OrvStatus orvsSubCRev_8u_ISfs(Orv8u val, Orv8u* srcDst, int len, int scale)
{
    return orvsSubCRev_8u_Sfs(srcDst, val, srcDst, len, scale);
}
OrvStatus orvsSubCRev_16u_Sfs(const Orv16u* src, Orv16u val, Orv16u* dst, int len, int scale)
{
    return scaled_form(minus_from(val), dst, len, scale, 16, src);
}
OrvStatus orvsSubCRev_16u_ISfs(Orv16u val, Orv16u* srcDst, int len, int scale)
{
    return orvsSubCRev_16u_Sfs(srcDst, val, srcDst, len, scale);
}
OrvStatus orvsSubCRev_16s_Sfs(const Orv16s* src, Orv16s val, Orv16s* dst, int len, int scale)
{
    return scaled_form(minus_from(val), dst, len, scale, 16, src);
}
OrvStatus orvsSubCRev_16s_ISfs(Orv16s val, Orv16s* srcDst, int len, int scale)
{
    return orvsSubCRev_16s_Sfs(srcDst, val, srcDst, len, scale);
}
OrvStatus orvsSubCRev_32s_Sfs(const Orv32s* src, Orv32s val, Orv32s* dst, int len, int scale)
{
    return scaled_form(minus_from(val), dst, len, scale, 32, src);
}
OrvStatus orvsSubCRev_32s_ISfs(Orv32s val, Orv32s* srcDst, int len, int scale)
{
    return orvsSubCRev_32s_Sfs(srcDst, val, srcDst, len, scale);
}
OrvStatus orvsSubCRev_16sc_Sfs(const Orv16sc* src, Orv16sc val, Orv16sc* dst, int len, int scale)
{
    return scaled_form(minus_from(val), dst, len, scale, 16, src);
}
OrvStatus orvsSubCRev_16sc_ISfs(Orv16sc val, Orv16sc* srcDst, int len, int scale)
{
    return orvsSubCRev_16sc_Sfs(srcDst, val, srcDst, len, scale);
}
OrvStatus orvsSubCRev_32sc_Sfs(const Orv32sc* src, Orv32sc val, Orv32sc* dst, int len, int scale)
{
    return scaled_form(minus_from(val), dst, len, scale, 32, src);
}
OrvStatus orvsSubCRev_32sc_ISfs(Orv32sc val, Orv32sc* srcDst, int len, int scale)
{
    return orvsSubCRev_32sc_Sfs(srcDst, val, srcDst, len, scale);
}

// ---- SubC, floating point

OrvStatus orvsSubC_32f(const Orv32f* src, Orv32f val, Orv32f* dst, int len)
{
    const auto v = splat(val);
    return float_form([=](auto x) ORV_INLINE_LAMBDA { return x - v; }, dst, len, src);
}
OrvStatus orvsSubC_32f_I(Orv32f val, Orv32f* srcDst, int len) { return orvsSubC_32f(srcDst, val, srcDst, len); }
OrvStatus orvsSubC_64f(const Orv64f* src, Orv64f val, Orv64f* dst, int len)
{
    const auto v = splat(val);
    return float_form([=](auto x) ORV_INLINE_LAMBDA { return x - v; }, dst, len, src);
}
OrvStatus orvsSubC_64f_I(Orv64f val, Orv64f* srcDst, int len) { return orvsSubC_64f(srcDst, val, srcDst, len); }
OrvStatus orvsSubC_32fc(const Orv32fc* src, Orv32fc val, Orv32fc* dst, int len)
{
    const auto v = splat(val);
    return float_form([=](auto x) ORV_INLINE_LAMBDA { return x - v; }, dst, len, src);
}
OrvStatus orvsSubC_32fc_I(Orv32fc val, Orv32fc* srcDst, int len) { return orvsSubC_32fc(srcDst, val, srcDst, len); }
OrvStatus orvsSubC_64fc(const Orv64fc* src, Orv64fc val, Orv64fc* dst, int len)
{
    const auto v = splat(val);
    return float_form([=](auto x) ORV_INLINE_LAMBDA { return x - v; }, dst, len, src);
}
OrvStatus orvsSubC_64fc_I(Orv64fc val, Orv64fc* srcDst, int len) { return orvsSubC_64fc(srcDst, val, srcDst, len); }

// ---- SubCRev, floating point

OrvStatus orvsSubCRev_32f(const Orv32f* src, Orv32f val, Orv32f* dst, int len)
{
    const auto v = splat(val);
    return float_form([=](auto x) ORV_INLINE_LAMBDA { return v - x; }, dst, len, src);
}
OrvStatus orvsSubCRev_32f_I(Orv32f val, Orv32f* srcDst, int len) { return orvsSubCRev_32f(srcDst, val, srcDst, len); }
OrvStatus orvsSubCRev_64f(const Orv64f* src, Orv64f val, Orv64f* dst, int len)
{
    const auto v = splat(val);
    return float_form([=](auto x) ORV_INLINE_LAMBDA { return v - x; }, dst, len, src);
}
OrvStatus orvsSubCRev_64f_I(Orv64f val, Orv64f* srcDst, int len) { return orvsSubCRev_64f(srcDst, val, srcDst, len); }
OrvStatus orvsSubCRev_32fc(const Orv32fc* src, Orv32fc val, Orv32fc* dst, int len)
{
    const auto v = splat(val);
    return float_form([=](auto x) ORV_INLINE_LAMBDA { return v - x; }, dst, len, src);
}
OrvStatus orvsSubCRev_32fc_I(Orv32fc val, Orv32fc* srcDst, int len)
{
    return orvsSubCRev_32fc(srcDst, val, srcDst, len);
}
OrvStatus orvsSubCRev_64fc(const Orv64fc* src, Orv64fc val, Orv64fc* dst, int len)
{
    const auto v = splat(val);
    return float_form([=](auto x) ORV_INLINE_LAMBDA { return v - x; }, dst, len, src);
}
OrvStatus orvsSubCRev_64fc_I(Orv64fc val, Orv64fc* srcDst, int len)
{
    return orvsSubCRev_64fc(srcDst, val, srcDst, len);
}
