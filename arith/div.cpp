// Floating-point quotients: dst = src2 / src1, dst = val / src.
#include "orvs/arith.h"

#include <limits>

#include "arith/extreme.h"
#include "arith/quotients.h"
#include "frame/checks.h"
#include "frame/map.h"
#include "frame/team.h"
#include "simd/planar.h"

using namespace ORV_VARIANT;

namespace {

/// a / b for a zero b: an infinity by the signs of both; a NaN for 0 / 0, and a itself where it is one.
template <class T>
ORV_INLINE vec<T> over_zero(vec<T> a, vec<T> b)
{
    const auto infinity = splat(std::numeric_limits<T>::infinity()) | sign_bit(a ^ b);
    const auto quotient = blend(is_equal(a, splat(T(0))), splat(std::numeric_limits<T>::quiet_NaN()), infinity);
    return blend(is_equal(a, a), quotient, a);
}

// ---- Real floats

/// a / b from the estimate of the reciprocal r and e = 1 - b * r: a * r * (1 + e + e^2), since 1 / b = r / (1 - e).
ORV_INLINE vec<Orv32f> divide_by_estimate(vec<Orv32f> a, vec<Orv32f> b)
{
    const auto r = estimate_reciprocal(b);
    const auto y0 = a * r;
    const auto e = fnma(b, r, splat(1.0f));
    const auto y1 = fma(y0, e, y0);
    return fma(y1, e, y0);
}

ORV_INLINE vec<Orv32f> divide(vec<Orv32f> a, vec<Orv32f> b, Seen& zeros)
{
    const auto is_zero = is_equal(b, splat(0.0f));
    if (any(is_zero)) [[unlikely]] { // 1 in place of 0
        zeros.add(is_zero);
        return blend(is_zero, over_zero(a, b), divide_by_estimate(a, blend(is_zero, splat(1.0f), b)));
    }
    return divide_by_estimate(a, b);
}

ORV_INLINE vec<Orv64f> divide(vec<Orv64f> a, vec<Orv64f> b, Seen& zeros)
{
    zeros.add(is_equal(b, splat(0.0)));
    return a / b;
}

// ---- Complex floats: a * conj(b) / |b|^2

/// re = fma(a.re, b.re, a.im * b.im) * r, im = fma(-a.re, b.im, a.im * b.re) * r, where
/// r = 1 / fma(b.re, b.re, b.im * b.im).
template <class T>
struct ComplexQuotient {
    vec<T> re, im, norm;

    ORV_INLINE ComplexQuotient(vec<T> a_re, vec<T> a_im, vec<T> b_re, vec<T> b_im) : norm(fma(b_re, b_re, b_im * b_im))
    {
        const auto r = splat(T(1)) / norm;
        re = fma(a_re, b_re, a_im * b_im) * r;
        im = fnma(a_re, b_im, a_im * b_re) * r;
    }
};

/// The quotient for extreme b, in doubles, where nothing of floats overflows or vanishes.
[[gnu::noinline, gnu::cold]] vec<Planar32> divide_extreme(vec<Planar32> a, vec<Planar32> b)
{
    const auto a_re = convert_to<Orv64f>(a.re), a_im = convert_to<Orv64f>(a.im);
    const auto b_re = convert_to<Orv64f>(b.re), b_im = convert_to<Orv64f>(b.im);
    const ComplexQuotient<Orv64f> low(a_re.low, a_im.low, b_re.low, b_im.low);
    const ComplexQuotient<Orv64f> high(a_re.high, a_im.high, b_re.high, b_im.high);
    return {round_together(low.re, high.re), round_together(low.im, high.im)};
}
/// By way of b * 2^k, whose larger part lies in [2, 4).
[[gnu::noinline, gnu::cold]] vec<Planar64> divide_extreme(vec<Planar64> a, vec<Planar64> b)
{
    const auto infinity = splat(std::numeric_limits<Orv64f>::infinity()); // all bits of the exponent
    const auto larger = max(b.re & infinity, b.im & infinity);
    const auto power = as<Orv64f>(as<Orv64s>(infinity) - as<Orv64s>(larger));
    const ComplexQuotient<Orv64f> q(a.re, a.im, b.re * power, b.im * power);
    return {q.re * power, q.im * power};
}

template <class T>
ORV_INLINE vec<Planar<T>> divide(vec<Planar<T>> a, vec<Planar<T>> b, Seen& zeros)
{
    const ComplexQuotient<T> q(a.re, a.im, b.re, b.im);
    const auto extreme = is_extreme(q.norm);
    if (any(extreme)) [[unlikely]] {
        const auto zero = splat(T(0));
        const auto is_zero = is_equal(b.re, zero) & is_equal(b.im, zero);
        zeros.add(is_zero);
        const auto other = divide_extreme(a, b);
        return {blend(extreme, blend(is_zero, over_zero(a.re, b.re), other.re), q.re),
                blend(extreme, blend(is_zero, over_zero(a.im, b.re), other.im), q.im)};
    }
    return {q.re, q.im};
}

/// The kernel of a form.
template <class T>
ORV_INLINE int divide_each(const T* src1, const T* src2, T* dst, int len)
{
    Seen zeros;
    map([&](auto b, auto a) ORV_INLINE_LAMBDA { return divide(a, b, zeros); }, dst, len, src1, src2);
    return zeros.any();
}

/// The body of a form: kernel(src1, src2, dst, len) on this thread or, from the threshold on, on two.
template <class T>
ORV_INLINE OrvStatus divide_vectors(int (*kernel)(const T*, const T*, T*, int), int threshold, const T* src1,
                                    const T* src2, T* dst, int len)
{
    if (const OrvStatus bad = check(len, src1, src2, dst)) return bad;
    if (len < threshold) return division_status(kernel(src1, src2, dst, len));
    return division_status(on_team(TeamSize::two, len, [=](int first, int count) {
        return kernel(src1 + first, src2 + first, dst + first, count);
    }));
}

} // namespace

// ---- Div

ORV_KERNEL int ownorvsDiv_32f(const Orv32f* src1, const Orv32f* src2, Orv32f* dst, int len)
{
    return divide_each(src1, src2, dst, len);
}
OrvStatus orvsDiv_32f(const Orv32f* src1, const Orv32f* src2, Orv32f* dst, int len)
{
    return divide_vectors(ownorvsDiv_32f, 4096, src1, src2, dst, len);
}
OrvStatus orvsDiv_32f_I(const Orv32f* src, Orv32f* srcDst, int len) { return orvsDiv_32f(src, srcDst, srcDst, len); }

ORV_KERNEL int ownorvsDiv_64f(const Orv64f* src1, const Orv64f* src2, Orv64f* dst, int len)
{
    return divide_each(src1, src2, dst, len);
}
OrvStatus orvsDiv_64f(const Orv64f* src1, const Orv64f* src2, Orv64f* dst, int len)
{
    return divide_vectors(ownorvsDiv_64f, 1024, src1, src2, dst, len);
}
OrvStatus orvsDiv_64f_I(const Orv64f* src, Orv64f* srcDst, int len) { return orvsDiv_64f(src, srcDst, srcDst, len); }

ORV_KERNEL int ownorvsDiv_32fc(const Orv32fc* src1, const Orv32fc* src2, Orv32fc* dst, int len)
{
    return divide_each(as_planar(src1), as_planar(src2), as_planar(dst), len);
}
OrvStatus orvsDiv_32fc(const Orv32fc* src1, const Orv32fc* src2, Orv32fc* dst, int len)
{
    return divide_vectors(ownorvsDiv_32fc, 1024, src1, src2, dst, len);
}
OrvStatus orvsDiv_32fc_I(const Orv32fc* src, Orv32fc* srcDst, int len)
{
    return orvsDiv_32fc(src, srcDst, srcDst, len);
}

ORV_KERNEL int ownorvsDiv_64fc(const Orv64fc* src1, const Orv64fc* src2, Orv64fc* dst, int len)
{
    return divide_each(as_planar(src1), as_planar(src2), as_planar(dst), len);
}
OrvStatus orvsDiv_64fc(const Orv64fc* src1, const Orv64fc* src2, Orv64fc* dst, int len)
{
    return divide_vectors(ownorvsDiv_64fc, 1024, src1, src2, dst, len);
}
OrvStatus orvsDiv_64fc_I(const Orv64fc* src, Orv64fc* srcDst, int len)
{
    return orvsDiv_64fc(src, srcDst, srcDst, len);
}

// ---- DivCRev

ORV_KERNEL int ownorvsDivCRev_32f(const Orv32f* src, Orv32f val, Orv32f* dst, int len)
{
    const auto dividend = splat(val);
    Seen zeros;
    map([&, dividend](auto b) ORV_INLINE_LAMBDA { return divide(dividend, b, zeros); }, dst, len, src);
    return zeros.any();
}
OrvStatus orvsDivCRev_32f(const Orv32f* src, Orv32f val, Orv32f* dst, int len)
{
    if (const OrvStatus bad = check(len, src, dst)) return bad;
    if (len < 4096) return division_status(ownorvsDivCRev_32f(src, val, dst, len));
    return division_status(on_team(TeamSize::two, len, [=](int first, int count) {
        return ownorvsDivCRev_32f(src + first, val, dst + first, count);
    }));
}
OrvStatus orvsDivCRev_32f_I(Orv32f val, Orv32f* srcDst, int len) { return orvsDivCRev_32f(srcDst, val, srcDst, len); }
