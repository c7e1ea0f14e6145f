// dst = |src|.
#include "orvs/arith.h"

#include "frame/checks.h"
#include "frame/map.h"
#include "simd/float.h"
#include "simd/saturate.h"

using namespace ORV_VARIANT;

// ---- Integers

namespace {

template <class T>
ORV_INLINE void map_magnitudes(const T* src, T* dst, int len)
{
    map([](vec<T> x) ORV_INLINE_LAMBDA { return abs_sat(x); }, dst, len, src);
}

} // namespace

ORV_KERNEL void ownorvsAbs_16s(const Orv16s* src, Orv16s* dst, int len) { map_magnitudes(src, dst, len); }
OrvStatus orvsAbs_16s(const Orv16s* src, Orv16s* dst, int len)
{
    if (const OrvStatus bad = check(len, src, dst)) return bad;
    ownorvsAbs_16s(src, dst, len);
    return orvOk;
}
OrvStatus orvsAbs_16s_I(Orv16s* srcDst, int len) { return orvsAbs_16s(srcDst, srcDst, len); }

ORV_KERNEL void ownorvsAbs_32s(const Orv32s* src, Orv32s* dst, int len) { map_magnitudes(src, dst, len); }
OrvStatus orvsAbs_32s(const Orv32s* src, Orv32s* dst, int len)
{
    if (const OrvStatus bad = check(len, src, dst)) return bad;
    ownorvsAbs_32s(src, dst, len);
    return orvOk;
}
OrvStatus orvsAbs_32s_I(Orv32s* srcDst, int len) { return orvsAbs_32s(srcDst, srcDst, len); }

// ---- Floating point: the sign bit is cleared, whatever the value

namespace {

template <class T>
ORV_INLINE OrvStatus clear_signs(const T* src, T* dst, int len)
{
    if (const OrvStatus bad = check(len, src, dst)) return bad;
    map([](vec<T> x) ORV_INLINE_LAMBDA { return magnitude(x); }, dst, len, src);
    return orvOk;
}

} // namespace

OrvStatus orvsAbs_32f(const Orv32f* src, Orv32f* dst, int len) { return clear_signs(src, dst, len); }
OrvStatus orvsAbs_32f_I(Orv32f* srcDst, int len) { return orvsAbs_32f(srcDst, srcDst, len); }
OrvStatus orvsAbs_64f(const Orv64f* src, Orv64f* dst, int len) { return clear_signs(src, dst, len); }
OrvStatus orvsAbs_64f_I(Orv64f* srcDst, int len) { return orvsAbs_64f(srcDst, srcDst, len); }
