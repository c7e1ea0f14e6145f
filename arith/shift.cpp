// Shifts by one count for the whole vector.
#include "orvs/arith.h"

#include "frame/checks.h"
#include "frame/map.h"
#include "orvs/frame.h"

using namespace ORV_VARIANT;

namespace {

/// The vector as one of signed values, for which there are copies and fills of every size.
template <class T>
ORV_INLINE auto as_stored(T* p)
{
    using Value = std::remove_const_t<T>;
    using Stored = std::conditional_t<sizeof(T) == 1, Orv8u, signed_of<Value>>;
    return reinterpret_cast<std::conditional_t<std::is_const_v<T>, const Stored, Stored>*>(p);
}

ORV_INLINE OrvStatus copy(const Orv8u* src, Orv8u* dst, int len) { return orvsCopy_8u(src, dst, len); }
ORV_INLINE OrvStatus copy(const Orv16s* src, Orv16s* dst, int len) { return orvsCopy_16s(src, dst, len); }
ORV_INLINE OrvStatus copy(const Orv32s* src, Orv32s* dst, int len) { return orvsCopy_32s(src, dst, len); }
ORV_INLINE OrvStatus clear(Orv8u* dst, int len) { return orvsZero_8u(dst, len); }
ORV_INLINE OrvStatus clear(Orv16s* dst, int len) { return orvsZero_16s(dst, len); }
ORV_INLINE OrvStatus clear(Orv32s* dst, int len) { return orvsZero_32s(dst, len); }

// The copy and the fill make the checks of their own arguments.

template <class T>
ORV_INLINE OrvStatus shift_left_form(const T* src, int val, T* dst, int len)
{
    if (val == 0) return copy(as_stored(src), as_stored(dst), len);
    if (val >= bits_of<T>) return clear(as_stored(dst), len);
    if (const OrvStatus bad = check(len, src, dst)) return bad;
    if (val < 0) return orvErrBadShift;
    const shift_count count = by(val);
    map([=](auto x) ORV_INLINE_LAMBDA { return shift_left(x, count); }, dst, len, src);
    return orvOk;
}

template <class T>
ORV_INLINE OrvStatus shift_right_form(const T* src, int val, T* dst, int len)
{
    if (val == 0) return copy(as_stored(src), as_stored(dst), len);
    if (std::is_unsigned_v<T> && val >= bits_of<T>) return clear(as_stored(dst), len);
    if (const OrvStatus bad = check(len, src, dst)) return bad;
    if (val < 0) return orvErrBadShift;
    const shift_count count = by(val); // of a signed type, a larger count leaves the sign
    map([=](auto x) ORV_INLINE_LAMBDA { return shift_right(x, count); }, dst, len, src);
    return orvOk;
}

} // namespace

// ---- LShiftC

OrvStatus orvsLShiftC_8u(const Orv8u* src, int val, Orv8u* dst, int len) { return shift_left_form(src, val, dst, len); }
OrvStatus orvsLShiftC_8u_I(int val, Orv8u* srcDst, int len) { return shift_left_form(srcDst, val, srcDst, len); }
OrvStatus orvsLShiftC_16u(const Orv16u* src, int val, Orv16u* dst, int len)
{
    return shift_left_form(src, val, dst, len);
}
OrvStatus orvsLShiftC_16u_I(int val, Orv16u* srcDst, int len) { return shift_left_form(srcDst, val, srcDst, len); }
OrvStatus orvsLShiftC_16s(const Orv16s* src, int val, Orv16s* dst, int len)
{
    return shift_left_form(src, val, dst, len);
}
OrvStatus orvsLShiftC_16s_I(int val, Orv16s* srcDst, int len) { return shift_left_form(srcDst, val, srcDst, len); }
OrvStatus orvsLShiftC_32s(const Orv32s* src, int val, Orv32s* dst, int len)
{
    return shift_left_form(src, val, dst, len);
}
OrvStatus orvsLShiftC_32s_I(int val, Orv32s* srcDst, int len) { return shift_left_form(srcDst, val, srcDst, len); }

// ---- RShiftC

OrvStatus orvsRShiftC_8u(const Orv8u* src, int val, Orv8u* dst, int len)
{
    return shift_right_form(src, val, dst, len);
}
OrvStatus orvsRShiftC_8u_I(int val, Orv8u* srcDst, int len) { return shift_right_form(srcDst, val, srcDst, len); }
OrvStatus orvsRShiftC_16u(const Orv16u* src, int val, Orv16u* dst, int len)
{
    return shift_right_form(src, val, dst, len);
}
OrvStatus orvsRShiftC_16u_I(int val, Orv16u* srcDst, int len) { return shift_right_form(srcDst, val, srcDst, len); }
OrvStatus orvsRShiftC_16s(const Orv16s* src, int val, Orv16s* dst, int len)
{
    return shift_right_form(src, val, dst, len);
}
OrvStatus orvsRShiftC_16s_I(int val, Orv16s* srcDst, int len) { return shift_right_form(srcDst, val, srcDst, len); }
OrvStatus orvsRShiftC_32s(const Orv32s* src, int val, Orv32s* dst, int len)
{
    return shift_right_form(src, val, dst, len);
}
OrvStatus orvsRShiftC_32s_I(int val, Orv32s* srcDst, int len) { return shift_right_form(srcDst, val, srcDst, len); }
