// dst = src1 * src2.
#include "orvs/arith.h"

#include "arith/forms.h"
#include "arith/products.h"
#include "orvs/frame.h"

using namespace ORV_VARIANT;

// ---- 16s

ORV_KERNEL void ownsMul_16s(const Orv16s* src1, const Orv16s* src2, Orv16s* dst, int len)
{
    map_saturated(Product{}, dst, len, src1, src2);
}
ORV_KERNEL void ownsMul_16s_1Sfs(const Orv16s* src1, const Orv16s* src2, Orv16s* dst, int len)
{
    map_halved(Product{}, dst, len, src1, src2);
}
ORV_KERNEL void ownsMul_16s_PosSfs(const Orv16s* src1, const Orv16s* src2, Orv16s* dst, int len, int scale)
{
    map_rounded(Product{}, dst, len, scale, src1, src2);
}
ORV_KERNEL void ownsMul_16s_NegSfs(const Orv16s* src1, const Orv16s* src2, Orv16s* dst, int len, int left)
{
    map_shifted(Product{}, dst, len, left, src1, src2);
}
ORV_KERNEL void ownsMul_16s_Bound(const Orv16s* src1, const Orv16s* src2, Orv16s* dst, int len)
{
    map_bound(Product{}, dst, len, src1, src2);
}

OrvStatus orvsMul_16s_Sfs(const Orv16s* src1, const Orv16s* src2, Orv16s* dst, int len, int scale)
{
    if (const OrvStatus bad = check(len, src1, src2, dst)) return bad;
    if (scale > 30) return orvsZero_16s(dst, len); // 2^30 / 2^31 is a tie, to the even 0
    if (scale == 0) ownsMul_16s(src1, src2, dst, len);
    else if (scale == 1) ownsMul_16s_1Sfs(src1, src2, dst, len);
    else if (scale > 1) ownsMul_16s_PosSfs(src1, src2, dst, len, scale);
    else if (scale >= -15) ownsMul_16s_NegSfs(src1, src2, dst, len, -scale);
    else ownsMul_16s_Bound(src1, src2, dst, len);
    return orvOk;
}
OrvStatus orvsMul_16s_ISfs(const Orv16s* src, Orv16s* srcDst, int len, int scale)
{
    return orvsMul_16s_Sfs(src, srcDst, srcDst, len, scale);
}
OrvStatus orvsMul_16s(const Orv16s* src1, const Orv16s* src2, Orv16s* dst, int len)
{
    return orvsMul_16s_Sfs(src1, src2, dst, len, 0);
}
OrvStatus orvsMul_16s_I(const Orv16s* src, Orv16s* srcDst, int len)
{
    return orvsMul_16s_Sfs(src, srcDst, srcDst, len, 0);
}

// ---- Other integers. Above the last scale the largest product comes to one half at most.

OrvStatus orvsMul_8u_Sfs(const Orv8u* src1, const Orv8u* src2, Orv8u* dst, int len, int scale)
{
    return scaled_form(Product{}, dst, len, scale, 16, src1, src2);
}
OrvStatus orvsMul_8u_ISfs(const Orv8u* src, Orv8u* srcDst, int len, int scale)
{
    return orvsMul_8u_Sfs(src, srcDst, srcDst, len, scale);
}
OrvStatus orvsMul_16u_Sfs(const Orv16u* src1, const Orv16u* src2, Orv16u* dst, int len, int scale)
{
    return scaled_form(Product{}, dst, len, scale, 32, src1, src2);
}
OrvStatus orvsMul_16u_ISfs(const Orv16u* src, Orv16u* srcDst, int len, int scale)
{
    return orvsMul_16u_Sfs(src, srcDst, srcDst, len, scale);
}
OrvStatus orvsMul_32s_Sfs(const Orv32s* src1, const Orv32s* src2, Orv32s* dst, int len, int scale)
{
    return scaled_form(Product{}, dst, len, scale, 62, src1, src2);
}
OrvStatus orvsMul_32s_ISfs(const Orv32s* src, Orv32s* srcDst, int len, int scale)
{
    return orvsMul_32s_Sfs(src, srcDst, srcDst, len, scale);
}
OrvStatus orvsMul_Low_32s_Sfs(const Orv32s* src1, const Orv32s* src2, Orv32s* dst, int len, int scale)
{
    return orvsMul_32s_Sfs(src1, src2, dst, len, scale); // the exact product costs no more than a part of it
}

// ---- Complex integers. In place is a call of its own, in the order of arguments that it takes.

OrvStatus orvsMul_16sc_Sfs(const Orv16sc* src1, const Orv16sc* src2, Orv16sc* dst, int len, int scale)
{
    if (src2 == dst) return orvsMul_16sc_ISfs(src1, dst, len, scale);
    if (src1 == dst) return orvsMul_16sc_ISfs(src2, dst, len, scale);
    return scaled_form(ComplexProduct{}, dst, len, scale, 31, src1, src2);
}
OrvStatus orvsMul_16sc_ISfs(const Orv16sc* src, Orv16sc* srcDst, int len, int scale)
{
    return scaled_form(ComplexProduct{}, srcDst, len, scale, 31, src, static_cast<const Orv16sc*>(srcDst));
}
OrvStatus orvsMul_32sc_Sfs(const Orv32sc* src1, const Orv32sc* src2, Orv32sc* dst, int len, int scale)
{
    return scaled_form(ComplexProduct{}, dst, len, scale, 63, src1, src2);
}
OrvStatus orvsMul_32sc_ISfs(const Orv32sc* src, Orv32sc* srcDst, int len, int scale)
{
    return orvsMul_32sc_Sfs(src, srcDst, srcDst, len, scale);
}

// ---- Products of one type in another, or of two types

OrvStatus orvsMul_8u16u(const Orv8u* src1, const Orv8u* src2, Orv16u* dst, int len)
{
    if (const OrvStatus bad = check(len, src1, src2, dst)) return bad;
    map([](auto a, auto b) ORV_INLINE_LAMBDA { return multiply_wide(a, b); }, dst, len, src1, src2);
    return orvOk;
}
OrvStatus orvsMul_16s32f(const Orv16s* src1, const Orv16s* src2, Orv32f* dst, int len)
{
    if (const OrvStatus bad = check(len, src1, src2, dst)) return bad;
    map([](auto a, auto b) ORV_INLINE_LAMBDA { return to_float(multiply_wide(a, b)); }, dst, len, src1, src2);
    return orvOk;
}
OrvStatus orvsMul_16s32s_Sfs(const Orv16s* src1, const Orv16s* src2, Orv32s* dst, int len, int scale)
{
    return scaled_form(Product{}, dst, len, scale, 30, src1, src2);
}
OrvStatus orvsMul_16u16s_Sfs(const Orv16u* src1, const Orv16s* src2, Orv16s* dst, int len, int scale)
{
    return scaled_form(Product{}, dst, len, scale, 31, src1, src2);
}
OrvStatus orvsMul_32s32sc_Sfs(const Orv32s* src1, const Orv32sc* src2, Orv32sc* dst, int len, int scale)
{
    return scaled_form(RealByComplexProduct{}, whole(dst), len, scale, 62, src1, whole(src2));
}
OrvStatus orvsMul_32s32sc_ISfs(const Orv32s* src, Orv32sc* srcDst, int len, int scale)
{
    return orvsMul_32s32sc_Sfs(src, srcDst, srcDst, len, scale);
}
OrvStatus orvsMul_32f32fc(const Orv32f* src1, const Orv32fc* src2, Orv32fc* dst, int len)
{
    if (const OrvStatus bad = check(len, src1, src2, dst)) return bad;
    map(RealByComplexProduct{}, whole(dst), len, src1, whole(src2));
    return orvOk;
}
OrvStatus orvsMul_32f32fc_I(const Orv32f* src, Orv32fc* srcDst, int len)
{
    return orvsMul_32f32fc(src, srcDst, srcDst, len);
}

// ---- Floating point

template <class T>
ORV_INLINE OrvStatus multiply_floats(const T* src1, const T* src2, T* dst, int len)
{
    return float_form([](auto a, auto b) ORV_INLINE_LAMBDA { return a * b; }, dst, len, src1, src2);
}

OrvStatus orvsMul_32f(const Orv32f* src1, const Orv32f* src2, Orv32f* dst, int len)
{
    return multiply_floats(src1, src2, dst, len);
}
OrvStatus orvsMul_32f_I(const Orv32f* src, Orv32f* srcDst, int len) { return orvsMul_32f(srcDst, src, srcDst, len); }
OrvStatus orvsMul_64f(const Orv64f* src1, const Orv64f* src2, Orv64f* dst, int len)
{
    return multiply_floats(src1, src2, dst, len);
}
OrvStatus orvsMul_64f_I(const Orv64f* src, Orv64f* srcDst, int len) { return orvsMul_64f(srcDst, src, srcDst, len); }
OrvStatus orvsMul_32fc(const Orv32fc* src1, const Orv32fc* src2, Orv32fc* dst, int len)
{
    return float_form(ComplexProduct{}, dst, len, src1, src2);
}
OrvStatus orvsMul_32fc_I(const Orv32fc* src, Orv32fc* srcDst, int len)
{
    return orvsMul_32fc(srcDst, src, srcDst, len);
}
OrvStatus orvsMul_64fc(const Orv64fc* src1, const Orv64fc* src2, Orv64fc* dst, int len)
{
    return float_form(ComplexProduct{}, dst, len, src1, src2);
}
OrvStatus orvsMul_64fc_I(const Orv64fc* src, Orv64fc* srcDst, int len)
{
    return orvsMul_64fc(srcDst, src, srcDst, len);
}
