// dst = src2 - src1: the first operand is subtracted from the second.
#include "orvs/arith.h"

#include "arith/complex.h"
#include "arith/sums.h"
#include "frame/checks.h"
#include "orvs/frame.h"

using namespace ORV_VARIANT;

// ---- 16s

ORV_KERNEL void ownsSub_16s(const Orv16s* src1, const Orv16s* src2, Orv16s* dst, int len)
{
    map_saturated(Difference{}, dst, len, src2, src1);
}
ORV_KERNEL void ownsSub_16s_PosSfs(const Orv16s* src1, const Orv16s* src2, Orv16s* dst, int len, int scale)
{
    if (scale == 1) return map_halved(Difference{}, dst, len, src2, src1);
    map_rounded(Difference{}, dst, len, scale, src2, src1);
}
ORV_KERNEL void ownsSub_16s_NegSfs(const Orv16s* src1, const Orv16s* src2, Orv16s* dst, int len, int left)
{
    map_shifted(Difference{}, dst, len, left, src2, src1);
}
ORV_KERNEL void ownsSub_16s_Bound(const Orv16s* src1, const Orv16s* src2, Orv16s* dst, int len)
{
    map_bound(Difference{}, dst, len, src2, src1);
}

OrvStatus orvsSub_16s_Sfs(const Orv16s* src1, const Orv16s* src2, Orv16s* dst, int len, int scale)
{
    if (const OrvStatus bad = check(len, src1, src2, dst)) return bad;
    if (scale > 16) return orvsZero_16s(dst, len); // 65535 / 2^17 is below one half
    if (scale == 0) ownsSub_16s(src1, src2, dst, len);
    else if (scale > 0) ownsSub_16s_PosSfs(src1, src2, dst, len, scale);
    else if (scale >= -15) ownsSub_16s_NegSfs(src1, src2, dst, len, -scale);
    else ownsSub_16s_Bound(src1, src2, dst, len);
    return orvOk;
}
OrvStatus orvsSub_16s_ISfs(const Orv16s* src, Orv16s* srcDst, int len, int scale)
{
    return orvsSub_16s_Sfs(src, srcDst, srcDst, len, scale);
}
OrvStatus orvsSub_16s(const Orv16s* src1, const Orv16s* src2, Orv16s* dst, int len)
{
    return orvsSub_16s_Sfs(src1, src2, dst, len, 0);
}
OrvStatus orvsSub_16s_I(const Orv16s* src, Orv16s* srcDst, int len)
{
    return orvsSub_16s_Sfs(src, srcDst, srcDst, len, 0);
}

// ---- 8u

ORV_KERNEL void ownsSub_8u(const Orv8u* src1, const Orv8u* src2, Orv8u* dst, int len)
{
    map_saturated(Difference{}, dst, len, src2, src1);
}
ORV_KERNEL void ownsSub_8u_PosSfs(const Orv8u* src1, const Orv8u* src2, Orv8u* dst, int len, int scale)
{
    if (scale == 1) return map_halved(Difference{}, dst, len, src2, src1);
    map_rounded(Difference{}, dst, len, scale, src2, src1);
}
ORV_KERNEL void ownsSub_8u_NegSfs(const Orv8u* src1, const Orv8u* src2, Orv8u* dst, int len, int left)
{
    map_shifted(Difference{}, dst, len, left, src2, src1);
}
ORV_KERNEL void ownsSub_8u_Bound(const Orv8u* src1, const Orv8u* src2, Orv8u* dst, int len)
{
    map_bound(Difference{}, dst, len, src2, src1);
}

OrvStatus orvsSub_8u_Sfs(const Orv8u* src1, const Orv8u* src2, Orv8u* dst, int len, int scale)
{
    if (const OrvStatus bad = check(len, src1, src2, dst)) return bad;
    if (scale > 8) return orvsZero_8u(dst, len); // 255 / 2^9 is below one half
    if (scale == 0) ownsSub_8u(src1, src2, dst, len);
    else if (scale > 0) ownsSub_8u_PosSfs(src1, src2, dst, len, scale);
    else if (scale >= -7) ownsSub_8u_NegSfs(src1, src2, dst, len, -scale);
    else ownsSub_8u_Bound(src1, src2, dst, len);
    return orvOk;
}
OrvStatus orvsSub_8u_ISfs(const Orv8u* src, Orv8u* srcDst, int len, int scale)
{
    return orvsSub_8u_Sfs(src, srcDst, srcDst, len, scale);
}

// ---- 16u: one kernel for every scale

ORV_KERNEL void ownps_Sub_16u_Sfs(const Orv16u* src1, const Orv16u* src2, Orv16u* dst, int len, int scale)
{
    map_scaled(Difference{}, dst, len, scale, src2, src1);
}

OrvStatus orvsSub_16u_Sfs(const Orv16u* src1, const Orv16u* src2, Orv16u* dst, int len, int scale)
{
    if (const OrvStatus bad = check(len, src1, src2, dst)) return bad;
    if (scale > 16) return orvsZero_16s(reinterpret_cast<Orv16s*>(dst), len); // 65535 / 2^17 is below one half
    ownps_Sub_16u_Sfs(src1, src2, dst, len, scale);
    return orvOk;
}
OrvStatus orvsSub_16u_ISfs(const Orv16u* src, Orv16u* srcDst, int len, int scale)
{
    return orvsSub_16u_Sfs(src, srcDst, srcDst, len, scale);
}

// ---- 32s

OrvStatus orvsSub_32s_Sfs(const Orv32s* src1, const Orv32s* src2, Orv32s* dst, int len, int scale)
{
    if (const OrvStatus bad = check(len, src1, src2, dst)) return bad;
    if (scale > 32) return orvsZero_32s(dst, len);
    map_scaled(Difference{}, dst, len, scale, src2, src1);
    return orvOk;
}
OrvStatus orvsSub_32s_ISfs(const Orv32s* src, Orv32s* srcDst, int len, int scale)
{
    return orvsSub_32s_Sfs(src, srcDst, srcDst, len, scale);
}

// ---- Complex integers

OrvStatus orvsSub_16sc_Sfs(const Orv16sc* src1, const Orv16sc* src2, Orv16sc* dst, int len, int scale)
{
    return by_parts(orvsSub_16s_Sfs, src1, src2, dst, len, scale);
}
OrvStatus orvsSub_16sc_ISfs(const Orv16sc* src, Orv16sc* srcDst, int len, int scale)
{
    return by_parts(orvsSub_16s_Sfs, src, srcDst, srcDst, len, scale);
}
OrvStatus orvsSub_32sc_Sfs(const Orv32sc* src1, const Orv32sc* src2, Orv32sc* dst, int len, int scale)
{
    return by_parts(orvsSub_32s_Sfs, src1, src2, dst, len, scale);
}
OrvStatus orvsSub_32sc_ISfs(const Orv32sc* src, Orv32sc* srcDst, int len, int scale)
{
    return by_parts(orvsSub_32s_Sfs, src, srcDst, srcDst, len, scale);
}

// ---- A difference in another type

OrvStatus orvsSub_16s32f(const Orv16s* src1, const Orv16s* src2, Orv32f* dst, int len)
{
    if (const OrvStatus bad = check(len, src1, src2, dst)) return bad;
    map([](auto a, auto b) ORV_INLINE_LAMBDA { return to_float(widen(b) - widen(a)); }, dst, len, src1, src2);
    return orvOk;
}

// ---- Floating point

template <class T>
ORV_INLINE OrvStatus sub_floats(const T* src1, const T* src2, T* dst, int len)
{
    if (const OrvStatus bad = check(len, src1, src2, dst)) return bad;
    map([](auto a, auto b) ORV_INLINE_LAMBDA { return b - a; }, dst, len, src1, src2);
    return orvOk;
}

OrvStatus orvsSub_32f(const Orv32f* src1, const Orv32f* src2, Orv32f* dst, int len)
{
    return sub_floats(src1, src2, dst, len);
}
OrvStatus orvsSub_32f_I(const Orv32f* src, Orv32f* srcDst, int len) { return orvsSub_32f(src, srcDst, srcDst, len); }
OrvStatus orvsSub_64f(const Orv64f* src1, const Orv64f* src2, Orv64f* dst, int len)
{
    return sub_floats(src1, src2, dst, len);
}
OrvStatus orvsSub_64f_I(const Orv64f* src, Orv64f* srcDst, int len) { return orvsSub_64f(src, srcDst, srcDst, len); }
OrvStatus orvsSub_32fc(const Orv32fc* src1, const Orv32fc* src2, Orv32fc* dst, int len)
{
    return by_parts(orvsSub_32f, src1, src2, dst, len);
}
OrvStatus orvsSub_32fc_I(const Orv32fc* src, Orv32fc* srcDst, int len)
{
    return by_parts(orvsSub_32f, src, srcDst, srcDst, len);
}
OrvStatus orvsSub_64fc(const Orv64fc* src1, const Orv64fc* src2, Orv64fc* dst, int len)
{
    return by_parts(orvsSub_64f, src1, src2, dst, len);
}
OrvStatus orvsSub_64fc_I(const Orv64fc* src, Orv64fc* srcDst, int len)
{
    return by_parts(orvsSub_64f, src, srcDst, srcDst, len);
}
