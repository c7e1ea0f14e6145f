// dst = src1 + src2.
#include "orvs/arith.h"

#include "arith/complex.h"
#include "arith/sums.h"
#include "frame/checks.h"
#include "orvs/frame.h"

using namespace ORV_VARIANT;

// ---- 16s

ORV_KERNEL void ownsAdd_16s(const Orv16s* src1, const Orv16s* src2, Orv16s* dst, int len)
{
    map_saturated(Sum{}, dst, len, src1, src2);
}
ORV_KERNEL void ownsAdd_16s_PosSfs(const Orv16s* src1, const Orv16s* src2, Orv16s* dst, int len, int scale)
{
    if (scale == 1) return map_halved(Sum{}, dst, len, src1, src2);
    map_rounded(Sum{}, dst, len, scale, src1, src2);
}
ORV_KERNEL void ownsAdd_16s_NegSfs(const Orv16s* src1, const Orv16s* src2, Orv16s* dst, int len, int left)
{
    map_shifted(Sum{}, dst, len, left, src1, src2);
}
ORV_KERNEL void ownsAdd_16s_Bound(const Orv16s* src1, const Orv16s* src2, Orv16s* dst, int len)
{
    map_bound(Sum{}, dst, len, src1, src2);
}

OrvStatus orvsAdd_16s_Sfs(const Orv16s* src1, const Orv16s* src2, Orv16s* dst, int len, int scale)
{
    if (const OrvStatus bad = check(len, src1, src2, dst)) return bad;
    if (scale > 16) return orvsZero_16s(dst, len); // 65534 / 2^17 is below one half
    if (scale == 0) ownsAdd_16s(src1, src2, dst, len);
    else if (scale > 0) ownsAdd_16s_PosSfs(src1, src2, dst, len, scale);
    else if (scale >= -15) ownsAdd_16s_NegSfs(src1, src2, dst, len, -scale);
    else ownsAdd_16s_Bound(src1, src2, dst, len);
    return orvOk;
}
OrvStatus orvsAdd_16s_ISfs(const Orv16s* src, Orv16s* srcDst, int len, int scale)
{
    return orvsAdd_16s_Sfs(src, srcDst, srcDst, len, scale);
}
OrvStatus orvsAdd_16s(const Orv16s* src1, const Orv16s* src2, Orv16s* dst, int len)
{
    return orvsAdd_16s_Sfs(src1, src2, dst, len, 0);
}
OrvStatus orvsAdd_16s_I(const Orv16s* src, Orv16s* srcDst, int len)
{
    return orvsAdd_16s_Sfs(src, srcDst, srcDst, len, 0);
}

// ---- 8u

ORV_KERNEL void ownsAdd_8u(const Orv8u* src1, const Orv8u* src2, Orv8u* dst, int len)
{
    map_saturated(Sum{}, dst, len, src1, src2);
}
ORV_KERNEL void ownsAdd_8u_1Sfs(const Orv8u* src1, const Orv8u* src2, Orv8u* dst, int len)
{
    // The average instruction rounds up; that is one too many where the sum ends in the bits 01.
    const auto three = splat(Orv8u(3)), one = splat(Orv8u(1));
    map(
        [=](auto a, auto b) ORV_INLINE_LAMBDA {
            const decltype(a) rounded_up = {_mm256_avg_epu8(a.r, b.r)};
            return rounded_up + is_equal((a + b) & three, one);
        },
        dst, len, src1, src2);
}
ORV_KERNEL void ownsAdd_8u_PosSfs(const Orv8u* src1, const Orv8u* src2, Orv8u* dst, int len, int scale)
{
    map_scaled(Sum{}, dst, len, scale, src1, src2);
}
ORV_KERNEL void ownsAdd_8u_NegSfs(const Orv8u* src1, const Orv8u* src2, Orv8u* dst, int len, int left)
{
    map_shifted(Sum{}, dst, len, left, src1, src2);
}
ORV_KERNEL void ownsAdd_8u_Bound(const Orv8u* src1, const Orv8u* src2, Orv8u* dst, int len)
{
    map_bound(Sum{}, dst, len, src1, src2);
}

OrvStatus orvsAdd_8u_Sfs(const Orv8u* src1, const Orv8u* src2, Orv8u* dst, int len, int scale)
{
    if (const OrvStatus bad = check(len, src1, src2, dst)) return bad;
    if (scale > 9) return orvsZero_8u(dst, len); // 510 / 2^10 is below one half
    if (scale == 0) ownsAdd_8u(src1, src2, dst, len);
    else if (scale == 1) ownsAdd_8u_1Sfs(src1, src2, dst, len);
    else if (scale > 1) ownsAdd_8u_PosSfs(src1, src2, dst, len, scale);
    else if (scale >= -7) ownsAdd_8u_NegSfs(src1, src2, dst, len, -scale);
    else ownsAdd_8u_Bound(src1, src2, dst, len);
    return orvOk;
}
OrvStatus orvsAdd_8u_ISfs(const Orv8u* src, Orv8u* srcDst, int len, int scale)
{
    return orvsAdd_8u_Sfs(src, srcDst, srcDst, len, scale);
}

// ---- 16u: one kernel for every scale

ORV_KERNEL void ownps_Add_16u_Sfs(const Orv16u* src1, const Orv16u* src2, Orv16u* dst, int len, int scale)
{
    map_scaled(Sum{}, dst, len, scale, src1, src2);
}

OrvStatus orvsAdd_16u_Sfs(const Orv16u* src1, const Orv16u* src2, Orv16u* dst, int len, int scale)
{
    if (const OrvStatus bad = check(len, src1, src2, dst)) return bad;
    if (scale > 17) return orvsZero_16s(reinterpret_cast<Orv16s*>(dst), len); // 131070 / 2^18 is below one half
    ownps_Add_16u_Sfs(src1, src2, dst, len, scale);
    return orvOk;
}
OrvStatus orvsAdd_16u_ISfs(const Orv16u* src, Orv16u* srcDst, int len, int scale)
{
    return orvsAdd_16u_Sfs(src, srcDst, srcDst, len, scale);
}
OrvStatus orvsAdd_16u(const Orv16u* src1, const Orv16u* src2, Orv16u* dst, int len)
{
    return orvsAdd_16u_Sfs(src1, src2, dst, len, 0);
}

// ---- 32s, 32u, 64s

OrvStatus orvsAdd_32s_Sfs(const Orv32s* src1, const Orv32s* src2, Orv32s* dst, int len, int scale)
{
    if (const OrvStatus bad = check(len, src1, src2, dst)) return bad;
    if (scale > 32) return orvsZero_32s(dst, len);
    map_scaled(Sum{}, dst, len, scale, src1, src2);
    return orvOk;
}
OrvStatus orvsAdd_32s_ISfs(const Orv32s* src, Orv32s* srcDst, int len, int scale)
{
    return orvsAdd_32s_Sfs(src, srcDst, srcDst, len, scale);
}
OrvStatus orvsAdd_32u(const Orv32u* src1, const Orv32u* src2, Orv32u* dst, int len)
{
    if (const OrvStatus bad = check(len, src1, src2, dst)) return bad;
    map_saturated(Sum{}, dst, len, src1, src2);
    return orvOk;
}
OrvStatus orvsAdd_64s_Sfs(const Orv64s* src1, const Orv64s* src2, Orv64s* dst, int len, int scale)
{
    if (const OrvStatus bad = check(len, src1, src2, dst)) return bad;
    if (scale >= 64) return orvsZero_64s(dst, len);
    map_scaled(Sum{}, dst, len, scale, src1, src2);
    return orvOk;
}

// ---- Complex integers

OrvStatus orvsAdd_16sc_Sfs(const Orv16sc* src1, const Orv16sc* src2, Orv16sc* dst, int len, int scale)
{
    return by_parts(orvsAdd_16s_Sfs, src1, src2, dst, len, scale);
}
OrvStatus orvsAdd_16sc_ISfs(const Orv16sc* src, Orv16sc* srcDst, int len, int scale)
{
    return by_parts(orvsAdd_16s_Sfs, src, srcDst, srcDst, len, scale);
}
OrvStatus orvsAdd_32sc_Sfs(const Orv32sc* src1, const Orv32sc* src2, Orv32sc* dst, int len, int scale)
{
    return by_parts(orvsAdd_32s_Sfs, src1, src2, dst, len, scale);
}
OrvStatus orvsAdd_32sc_ISfs(const Orv32sc* src, Orv32sc* srcDst, int len, int scale)
{
    return by_parts(orvsAdd_32s_Sfs, src, srcDst, srcDst, len, scale);
}

// ---- Sums of one type in another

OrvStatus orvsAdd_8u16u(const Orv8u* src1, const Orv8u* src2, Orv16u* dst, int len)
{
    if (const OrvStatus bad = check(len, src1, src2, dst)) return bad;
    map([](auto a, auto b) ORV_INLINE_LAMBDA { return widen(a) + widen(b); }, dst, len, src1, src2);
    return orvOk;
}
OrvStatus orvsAdd_16s32f(const Orv16s* src1, const Orv16s* src2, Orv32f* dst, int len)
{
    if (const OrvStatus bad = check(len, src1, src2, dst)) return bad;
    map([](auto a, auto b) ORV_INLINE_LAMBDA { return to_float(widen(a) + widen(b)); }, dst, len, src1, src2);
    return orvOk;
}
OrvStatus orvsAdd_16s32s_I(const Orv16s* src, Orv32s* srcDst, int len)
{
    if (const OrvStatus bad = check(len, src, srcDst)) return bad;
    map([](auto a, auto b) ORV_INLINE_LAMBDA { return add_sat(widen(a), b); }, srcDst, len, src, srcDst);
    return orvOk;
}

// ---- Floating point

template <class T>
ORV_INLINE OrvStatus add_floats(const T* src1, const T* src2, T* dst, int len)
{
    if (const OrvStatus bad = check(len, src1, src2, dst)) return bad;
    map([](auto a, auto b) ORV_INLINE_LAMBDA { return a + b; }, dst, len, src1, src2);
    return orvOk;
}

OrvStatus orvsAdd_32f(const Orv32f* src1, const Orv32f* src2, Orv32f* dst, int len)
{
    return add_floats(src1, src2, dst, len);
}
OrvStatus orvsAdd_32f_I(const Orv32f* src, Orv32f* srcDst, int len) { return orvsAdd_32f(src, srcDst, srcDst, len); }
OrvStatus orvsAdd_64f(const Orv64f* src1, const Orv64f* src2, Orv64f* dst, int len)
{
    return add_floats(src1, src2, dst, len);
}
OrvStatus orvsAdd_64f_I(const Orv64f* src, Orv64f* srcDst, int len) { return orvsAdd_64f(src, srcDst, srcDst, len); }
OrvStatus orvsAdd_32fc(const Orv32fc* src1, const Orv32fc* src2, Orv32fc* dst, int len)
{
    return by_parts(orvsAdd_32f, src1, src2, dst, len);
}
OrvStatus orvsAdd_32fc_I(const Orv32fc* src, Orv32fc* srcDst, int len)
{
    return by_parts(orvsAdd_32f, src, srcDst, srcDst, len);
}
OrvStatus orvsAdd_64fc(const Orv64fc* src1, const Orv64fc* src2, Orv64fc* dst, int len)
{
    return by_parts(orvsAdd_64f, src1, src2, dst, len);
}
OrvStatus orvsAdd_64fc_I(const Orv64fc* src, Orv64fc* srcDst, int len)
{
    return by_parts(orvsAdd_64f, src, srcDst, srcDst, len);
}
