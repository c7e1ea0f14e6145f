// dst = the smaller or the larger one of src1 and src2, element by element.
#include "orvs/stats.h"

#include "frame/checks.h"
#include "frame/map.h"
#include "stats/extremes.h"

using namespace ORV_VARIANT;

namespace {

template <class Op, class T>
ORV_INLINE OrvStatus every(const T* src1, const T* src2, T* dst, Orv32u len)
{
    if (any_null(src1, src2, dst)) return orvErrNullPointer;
    if (len == 0) return orvErrBadLength;
    constexpr Orv32u most = 0x40000000;
    const auto op = [](vec<T> x, vec<T> y) ORV_INLINE_LAMBDA { return Op::better(x, y); }; // y for not-a-numbers
    Orv32u at = 0;
    do { // one piece as a rule, and one place for it in the code
        const Orv32u n = len - at < most ? len - at : most;
        map(op, dst + at, int(n), src1 + at, src2 + at);
        at += n;
    } while (at < len);
    return orvOk;
}

/// A negative length is as bad as none.
ORV_INLINE Orv32u not_negative(int len) { return len < 0 ? 0 : Orv32u(len); }

} // namespace

// ---- MinEvery

OrvStatus orvsMinEvery_8u(const Orv8u* src1, const Orv8u* src2, Orv8u* dst, Orv32u len)
{
    return every<Smallest>(src1, src2, dst, len);
}
OrvStatus orvsMinEvery_8u_I(const Orv8u* src, Orv8u* srcDst, int len)
{
    return orvsMinEvery_8u(src, srcDst, srcDst, not_negative(len));
}
OrvStatus orvsMinEvery_16u(const Orv16u* src1, const Orv16u* src2, Orv16u* dst, Orv32u len)
{
    return every<Smallest>(src1, src2, dst, len);
}
OrvStatus orvsMinEvery_16u_I(const Orv16u* src, Orv16u* srcDst, int len)
{
    return orvsMinEvery_16u(src, srcDst, srcDst, not_negative(len));
}
OrvStatus orvsMinEvery_16s_I(const Orv16s* src, Orv16s* srcDst, int len)
{
    return every<Smallest>(src, srcDst, srcDst, not_negative(len));
}
OrvStatus orvsMinEvery_32s_I(const Orv32s* src, Orv32s* srcDst, int len)
{
    return every<Smallest>(src, srcDst, srcDst, not_negative(len));
}
OrvStatus orvsMinEvery_32f(const Orv32f* src1, const Orv32f* src2, Orv32f* dst, Orv32u len)
{
    return every<Smallest>(src1, src2, dst, len);
}
OrvStatus orvsMinEvery_32f_I(const Orv32f* src, Orv32f* srcDst, int len)
{
    return orvsMinEvery_32f(src, srcDst, srcDst, not_negative(len));
}
OrvStatus orvsMinEvery_64f(const Orv64f* src1, const Orv64f* src2, Orv64f* dst, Orv32u len)
{
    return every<Smallest>(src1, src2, dst, len);
}
OrvStatus orvsMinEvery_64f_I(const Orv64f* src, Orv64f* srcDst, Orv32u len)
{
    return orvsMinEvery_64f(src, srcDst, srcDst, len);
}

// ---- MaxEvery

OrvStatus orvsMaxEvery_8u(const Orv8u* src1, const Orv8u* src2, Orv8u* dst, Orv32u len)
{
    return every<Largest>(src1, src2, dst, len);
}
OrvStatus orvsMaxEvery_8u_I(const Orv8u* src, Orv8u* srcDst, int len)
{
    return orvsMaxEvery_8u(src, srcDst, srcDst, not_negative(len));
}
OrvStatus orvsMaxEvery_16u(const Orv16u* src1, const Orv16u* src2, Orv16u* dst, Orv32u len)
{
    return every<Largest>(src1, src2, dst, len);
}
OrvStatus orvsMaxEvery_16u_I(const Orv16u* src, Orv16u* srcDst, int len)
{
    return orvsMaxEvery_16u(src, srcDst, srcDst, not_negative(len));
}
OrvStatus orvsMaxEvery_16s_I(const Orv16s* src, Orv16s* srcDst, int len)
{
    return every<Largest>(src, srcDst, srcDst, not_negative(len));
}
OrvStatus orvsMaxEvery_32s_I(const Orv32s* src, Orv32s* srcDst, int len)
{
    return every<Largest>(src, srcDst, srcDst, not_negative(len));
}
OrvStatus orvsMaxEvery_32f(const Orv32f* src1, const Orv32f* src2, Orv32f* dst, Orv32u len)
{
    return every<Largest>(src1, src2, dst, len);
}
OrvStatus orvsMaxEvery_32f_I(const Orv32f* src, Orv32f* srcDst, int len)
{
    return orvsMaxEvery_32f(src, srcDst, srcDst, not_negative(len));
}
OrvStatus orvsMaxEvery_64f(const Orv64f* src1, const Orv64f* src2, Orv64f* dst, Orv32u len)
{
    return every<Largest>(src1, src2, dst, len);
}
OrvStatus orvsMaxEvery_64f_I(const Orv64f* src, Orv64f* srcDst, Orv32u len)
{
    return orvsMaxEvery_64f(src, srcDst, srcDst, len);
}
