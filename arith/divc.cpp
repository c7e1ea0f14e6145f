// dst = src / val.
#include "orvs/arith.h"

#include "arith/complex.h"
#include "arith/quotients.h"
#include "arith/wide_integer.h"
#include "frame/checks.h"
#include "frame/fill.h"
#include "frame/float_state.h"
#include "frame/map.h"
#include "frame/team.h"
#include "orvs/frame.h"

using namespace ORV_VARIANT;

// ---- 8u, 16u, 16s

namespace {

template <bool close, class T>
ORV_INLINE void divide_at(const T* src, T val, T* dst, int len, int scale)
{
    const ScaledQuotient<Orv32f, orvRndNear, close> q(scale, min_of<T>, max_of<T>);
    const IntegerState state;
    const auto constant = exact_divisor(splat(Orv32f(inside_state(val))));
    const auto quotient = [=](auto x) ORV_INLINE_LAMBDA { return to_32s(q(x, constant)); };
    map([=](auto a) ORV_INLINE_LAMBDA { return by_floats(quotient, a); }, dst, len, src);
}

template <class T>
ORV_INLINE void divide(const T* src, T val, T* dst, int len, int scale)
{
    if (scale >= lowest_close_scale<Orv32f>(bits_of<T>)) divide_at<true>(src, val, dst, len, scale);
    else divide_at<false>(src, val, dst, len, scale);
}

/// Where every quotient other than 0 saturates.
template <class T>
ORV_INLINE OrvStatus divide_to_limits(const T* src, T val, T* dst, int len)
{
    const auto divisor = splat(val);
    map(
        [=](auto a) ORV_INLINE_LAMBDA {
            const auto is_nothing = is_equal(a, splat(T(0)));
            if constexpr (std::is_signed_v<T>) return and_not(is_nothing, limit_by_sign(a ^ divisor));
            else return ~is_nothing;
        },
        dst, len, src);
    return orvOk;
}

/// The scales between which a body divides: beyond them every quotient other than 0 saturates, or all round to 0.
template <auto kernel, class T>
ORV_INLINE OrvStatus choose_road(int lowest, int highest, const T* src, T val, T* dst, int len, int scale)
{
    if (const OrvStatus bad = check(len, src, dst)) return bad;
    if (val == 0) return orvErrDivisorZero;
    if (scale < lowest) return divide_to_limits(src, val, dst, len);
    if (scale > highest) return zero(dst, len);
    if (len < 4096) kernel(src, val, dst, len, scale);
    else
        on_team(TeamSize::two, len,
                [=](int first, int count) { return kernel(src + first, val, dst + first, count, scale); });
    return orvOk;
}

} // namespace

ORV_KERNEL int ownorvsDivC_8u(const Orv8u* src, Orv8u val, Orv8u* dst, int len, int scale)
{
    divide(src, val, dst, len, scale);
    return 0;
}
OrvStatus orvsDivC_8u_Sfs(const Orv8u* src, Orv8u val, Orv8u* dst, int len, int scale)
{
    return choose_road<ownorvsDivC_8u>(-15, 8, src, val, dst, len, scale); // 255 / 2^9 is below one half
}
OrvStatus orvsDivC_8u_ISfs(Orv8u val, Orv8u* srcDst, int len, int scale)
{
    return orvsDivC_8u_Sfs(srcDst, val, srcDst, len, scale);
}

ORV_KERNEL int ownorvsDivC_16s(const Orv16s* src, Orv16s val, Orv16s* dst, int len, int scale)
{
    divide(src, val, dst, len, scale);
    return 0;
}
OrvStatus orvsDivC_16s_Sfs(const Orv16s* src, Orv16s val, Orv16s* dst, int len, int scale)
{
    return choose_road<ownorvsDivC_16s>(-29, 15, src, val, dst, len, scale); // 32768 / 2^16 is a tie, to the even 0
}
OrvStatus orvsDivC_16s_ISfs(Orv16s val, Orv16s* srcDst, int len, int scale)
{
    return orvsDivC_16s_Sfs(srcDst, val, srcDst, len, scale);
}

ORV_KERNEL void ownps_DivC_16u_Sfs(const Orv16u* src, Orv16u val, Orv16u* dst, int len, int scale)
{
    divide(src, val, dst, len, scale);
}
/// The extreme scales come first, so a fill looks at dst and len, and the copy at everything.
OrvStatus orvsDivC_16u_Sfs(const Orv16u* src, Orv16u val, Orv16u* dst, int len, int scale)
{
    Orv16s* const words = reinterpret_cast<Orv16s*>(dst);
    if (scale > 16 && val != 0) return src ? orvsZero_16s(words, len) : orvErrNullPointer;
    if (scale < -31 && val != 0) return src ? orvsSet_16s(-1, words, len) : orvErrNullPointer; // 65535
    if (scale == 0 && val == 1) return orvsCopy_16s(reinterpret_cast<const Orv16s*>(src), words, len);

    if (const OrvStatus bad = check(len, src, dst)) return bad;
    if (val == 0) return orvErrDivisorZero;
    if (val == 1) return orvsMulC_16u_Sfs(src, 1, dst, len, scale);
    ownps_DivC_16u_Sfs(src, val, dst, len, scale);
    return orvOk;
}
OrvStatus orvsDivC_16u_ISfs(Orv16u val, Orv16u* srcDst, int len, int scale)
{
    return orvsDivC_16u_Sfs(srcDst, val, srcDst, len, scale);
}

// ---- 16sc

namespace {

template <bool close>
ORV_INLINE void divide_complex_at(const Orv16s* src, Orv16sc val, Orv16s* dst, int parts, int scale)
{
    const ScaledQuotient<Orv64f, orvRndNear, close> q(scale, min_of<Orv16s>, max_of<Orv16s>);
    const IntegerState state;
    const auto divisor = splat(val);
    const Orv64f re = inside_state(val.re), im = inside_state(val.im);
    const auto norm = exact_divisor(splat(re * re + im * im));
    map<2>([=](auto a) ORV_INLINE_LAMBDA { return complex_quotients(q, a, divisor, norm, norm); }, dst, parts, src);
}

} // namespace

ORV_KERNEL int ownorvsDivC_16sc(const Orv16sc* src, Orv16sc val, Orv16sc* dst, int len, int scale)
{
    for_parts(len, [=](std::ptrdiff_t at, int n) ORV_INLINE_LAMBDA {
        const int within = limited_complex_scale(scale);
        if (within >= lowest_close_scale<Orv64f>(32)) {
            divide_complex_at<true>(parts(src) + at, val, parts(dst) + at, n, within);
        } else {
            divide_complex_at<false>(parts(src) + at, val, parts(dst) + at, n, within);
        }
        return orvOk;
    });
    return 0;
}
OrvStatus orvsDivC_16sc_Sfs(const Orv16sc* src, Orv16sc val, Orv16sc* dst, int len, int scale)
{
    if (const OrvStatus bad = check(len, src, dst)) return bad;
    if (val.re == 0 && val.im == 0) return orvErrDivisorZero;
    if (len < 1024) ownorvsDivC_16sc(src, val, dst, len, scale);
    else
        on_team(TeamSize::two, len,
                [=](int first, int count) { return ownorvsDivC_16sc(src + first, val, dst + first, count, scale); });
    return orvOk;
}
OrvStatus orvsDivC_16sc_ISfs(Orv16sc val, Orv16sc* srcDst, int len, int scale)
{
    return orvsDivC_16sc_Sfs(srcDst, val, srcDst, len, scale);
}

// ---- 64s

namespace {

/// a / b * 2^-scale to nearest, ties to even, for any scale; some value of 2^63 or more where it is that large.
Magnitude divide_magnitudes(Orv64u a, Orv64u b, int scale)
{
    Orv64u quotient = a / b, remainder = a % b;
    if (scale > 63) return {0, 0}; // at most one half
    if (scale > 0) {
        const Orv64u integer = quotient >> scale, fraction = quotient & ~(max_of<Orv64u> << scale);
        const Orv64u half = Orv64u(1) << (scale - 1);
        const bool up = fraction > half || (fraction == half && (remainder != 0 || integer % 2 != 0));
        return {0, integer + up};
    }
    // Long division in binary: each step of scale is a bit of the quotient.
    for (; scale < 0 && remainder != 0 && quotient >> 63 == 0; ++scale) {
        const bool bit = remainder >= b - remainder;
        remainder = bit ? remainder - (b - remainder) : 2 * remainder;
        quotient = 2 * quotient + bit;
    }
    if (scale < 0) return scaled({0, quotient}, scale);
    const bool up = remainder > b - remainder || (remainder == b - remainder && quotient % 2 != 0);
    return Magnitude{0, quotient} + Magnitude{0, up};
}

} // namespace

// Only len = 0 is refused; a negative length finds nothing to do.
OrvStatus orvsDivC_64s_ISfs(Orv64s val, Orv64s* srcDst, int len, int scale)
{
    if (!srcDst) return orvErrNullPointer;
    if (len == 0) return orvErrBadLength;
    if (val == 0) {
        if (len > 0) map([](auto x) ORV_INLINE_LAMBDA { return sign_limit(x); }, srcDst, len, srcDst);
        return orvWrnDivByZero;
    }
    replace_each(srcDst, len, [=](Orv64s x) ORV_INLINE_LAMBDA {
        return with_sign(divide_magnitudes(magnitude(x), magnitude(val), scale), (x < 0) != (val < 0));
    });
    return orvOk;
}

// ---- Floating point: a product with the reciprocal

namespace {

/// -x behind the product that gave x: a compiler may take -(a * b) for (-a) * b, which rounds otherwise where the
/// caller rounds up or down.
template <class T>
ORV_INLINE T negated(T x)
{
    __asm__("" : "+x"(x));
    return -x;
}

} // namespace

OrvStatus orvsDivC_32f(const Orv32f* src, Orv32f val, Orv32f* dst, int len)
{
    if (const OrvStatus bad = check(len, src, dst)) return bad;
    if (val == 0) return orvErrDivisorZero;
    return orvsMulC_32f(src, 1 / val, dst, len);
}
OrvStatus orvsDivC_32f_I(Orv32f val, Orv32f* srcDst, int len) { return orvsDivC_32f(srcDst, val, srcDst, len); }
OrvStatus orvsDivC_64f(const Orv64f* src, Orv64f val, Orv64f* dst, int len)
{
    if (const OrvStatus bad = check(len, src, dst)) return bad;
    if (val == 0) return orvErrDivisorZero;
    return orvsMulC_64f(src, 1 / val, dst, len);
}
OrvStatus orvsDivC_64f_I(Orv64f val, Orv64f* srcDst, int len) { return orvsDivC_64f(srcDst, val, srcDst, len); }

OrvStatus orvsDivC_32fc(const Orv32fc* src, Orv32fc val, Orv32fc* dst, int len)
{
    if (const OrvStatus bad = check(len, src, dst)) return bad;
    const Orv32f norm = __builtin_fmaf(val.re, val.re, val.im * val.im);
    if (norm == 0) return orvErrDivisorZero;
    const Orv32f s = 1 / norm;
    return orvsMulC_32fc(src, {val.re * s, negated(s * val.im)}, dst, len);
}
OrvStatus orvsDivC_32fc_I(Orv32fc val, Orv32fc* srcDst, int len) { return orvsDivC_32fc(srcDst, val, srcDst, len); }
OrvStatus orvsDivC_64fc(const Orv64fc* src, Orv64fc val, Orv64fc* dst, int len)
{
    if (const OrvStatus bad = check(len, src, dst)) return bad;
    const Orv64f norm = __builtin_fma(val.re, val.re, val.im * val.im);
    if (norm == 0) return orvErrDivisorZero;
    const Orv64f s = 1 / norm;
    return orvsMulC_64fc(src, {val.re * s, negated(s * val.im)}, dst, len);
}
OrvStatus orvsDivC_64fc_I(Orv64fc val, Orv64fc* srcDst, int len) { return orvsDivC_64fc(srcDst, val, srcDst, len); }
