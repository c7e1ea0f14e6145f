// Square roots of floats, real and complex.
#include "orvs/arith.h"

#include <limits>

#include "arith/extreme.h"
#include "arith/roots.h"
#include "frame/float_state.h"
#include "frame/map.h"
#include "simd/planar.h"

using namespace ORV_VARIANT;

namespace {

// ---- Real floats

template <class T>
struct RealRoot {
    vec<T> least = splat(T(0)); ///< of all elements that are not NaNs

    ORV_INLINE vec<T> operator()(vec<T> x)
    {
        least = min(x, least);
        return square_root(x);
    }
};

template <class T>
ORV_INLINE int root_each(const T* src, T* dst, int len)
{
    const MaskedState state;
    const auto done = map(RealRoot<T>{}, dst, len, src);
    return any(is_greater(splat(T(0)), done.least));
}

// ---- Complex floats. With z = |re| + i * |im| in the first quadrant, the root t + i * u has
//
//     t = sqrt((|z| + |re|) / 2), u = |im| / (2 * t),
//
// which is free of cancellation, and the quadrant of z tells how the parts are to be placed.

/// t + i * u, corrected by one step of Newton's iteration: the sum with (z - w^2) / (2 * w), w the root so far. What
/// the formula leaves is a few units in the last place; the fused remainder z - w^2 tells them. norm is |z|^2, and not
/// extreme.
template <class T>
ORV_INLINE vec<Planar<T>> root_in_quadrant(vec<T> re, vec<T> im, vec<T> norm)
{
    const auto half = splat(T(0.5));
    const auto modulus = square_root(norm);
    const auto t = square_root(half * (modulus + re));
    const auto inverse = half / (modulus * t); // one division for 1 / (2 * t) and 1 / (2 * |w|^2)
    const auto u = im * (inverse * modulus);

    const auto rest_re = fma(u, u, fnma(t, t, re)), rest_im = fnma(t + t, u, im);
    const auto factor = inverse * t;
    return {fma(fma(t, rest_re, u * rest_im), factor, t), fma(fnma(u, rest_re, t * rest_im), factor, u)};
}

/// The same for any z, zeros, infinities and NaNs as well, by way of z * power, which is not extreme.
ORV_INLINE vec<Planar64> root_by_power(vec<Orv64f> re, vec<Orv64f> im, vec<Orv64f> power, vec<Orv64f> root_of_power)
{
    const auto zero = splat(0.0), infinity = splat(std::numeric_limits<Orv64f>::infinity());
    const auto scaled_re = re * power, scaled_im = im * power;
    const auto norm = fma(scaled_re, scaled_re, scaled_im * scaled_im);
    const auto finite = root_in_quadrant(scaled_re, scaled_im, norm).re * root_of_power;
    const auto is_infinite = is_equal(re, infinity) | is_equal(im, infinity), is_zero = is_equal(re + im, zero);
    const auto t = blend(is_infinite, infinity, and_not(is_zero, finite));

    // The smaller part comes from the whole im: the power may have taken bits from it.
    const auto u = blend(is_equal(im, infinity), infinity, im / (t + t));
    return {t, and_not(is_zero, u)};
}
[[gnu::noinline, gnu::cold]] vec<Planar64> extreme_root_in_quadrant(vec<Orv64f> re, vec<Orv64f> im)
{
    const auto is_large = is_greater(max(re, im), splat(1.0));
    return root_by_power(re, im, blend(is_large, splat(0x1p-600), splat(0x1p600)),
                         blend(is_large, splat(0x1p300), splat(0x1p-300)));
}
/// In doubles nothing of floats is extreme.
[[gnu::noinline, gnu::cold]] vec<Planar32> extreme_root_in_quadrant(vec<Orv32f> re, vec<Orv32f> im)
{
    const auto one = splat(1.0);
    const auto x = convert_to<Orv64f>(re), y = convert_to<Orv64f>(im);
    const auto low = root_by_power(x.low, y.low, one, one), high = root_by_power(x.high, y.high, one, one);
    return {round_together(low.re, high.re), round_together(low.im, high.im)};
}

/// The principal root: re >= 0, im with the sign of z.im, also that of a zero.
template <class T>
ORV_INLINE vec<Planar<T>> principal_root(vec<Planar<T>> z)
{
    const auto re = magnitude(z.re), im = magnitude(z.im);
    const auto norm = fma(z.re, z.re, z.im * z.im);
    auto w = root_in_quadrant(re, im, norm);
    const auto extreme = is_extreme(norm);
    if (any(extreme)) [[unlikely]] {
        const auto other = extreme_root_in_quadrant(re, im);
        w = {blend(extreme, other.re, w.re), blend(extreme, other.im, w.im)};
    }
    const auto smaller = magnitude(w.im); // a caller who rounds down may have got -0
    return {blend_by_sign(z.re, smaller, w.re), blend_by_sign(z.re, w.re, smaller) | sign_bit(z.im)};
}

template <class T>
ORV_INLINE int root_each(const Planar<T>* src, Planar<T>* dst, int len)
{
    const FloatState<> state(0, FloatState<>::mask_all); // the flags of extreme values do not reach the caller either
    map([](vec<Planar<T>> z) ORV_INLINE_LAMBDA { return principal_root(z); }, dst, len, src);
    return 0;
}

} // namespace

ORV_KERNEL int ownorvsSqrt_32f(const Orv32f* src, Orv32f* dst, int len) { return root_each(src, dst, len); }
OrvStatus orvsSqrt_32f(const Orv32f* src, Orv32f* dst, int len)
{
    if (const OrvStatus bad = check(len, src, dst)) return bad;
    return take_roots<ownorvsSqrt_32f>(4096, src, dst, len);
}
OrvStatus orvsSqrt_32f_I(Orv32f* srcDst, int len) { return orvsSqrt_32f(srcDst, srcDst, len); }

ORV_KERNEL int ownorvsSqrt_64f(const Orv64f* src, Orv64f* dst, int len) { return root_each(src, dst, len); }
OrvStatus orvsSqrt_64f(const Orv64f* src, Orv64f* dst, int len)
{
    if (const OrvStatus bad = check(len, src, dst)) return bad;
    return take_roots<ownorvsSqrt_64f>(512, src, dst, len);
}
OrvStatus orvsSqrt_64f_I(Orv64f* srcDst, int len) { return orvsSqrt_64f(srcDst, srcDst, len); }

ORV_KERNEL int ownorvsSqrt_32fc(const Orv32fc* src, Orv32fc* dst, int len)
{
    return root_each(as_planar(src), as_planar(dst), len);
}
OrvStatus orvsSqrt_32fc(const Orv32fc* src, Orv32fc* dst, int len)
{
    if (const OrvStatus bad = check(len, src, dst)) return bad;
    return take_roots<ownorvsSqrt_32fc>(512, src, dst, len);
}
OrvStatus orvsSqrt_32fc_I(Orv32fc* srcDst, int len) { return orvsSqrt_32fc(srcDst, srcDst, len); }

ORV_KERNEL int ownorvsSqrt_64fc(const Orv64fc* src, Orv64fc* dst, int len)
{
    return root_each(as_planar(src), as_planar(dst), len);
}
OrvStatus orvsSqrt_64fc(const Orv64fc* src, Orv64fc* dst, int len)
{
    if (const OrvStatus bad = check(len, src, dst)) return bad;
    return take_roots<ownorvsSqrt_64fc>(64, src, dst, len);
}
OrvStatus orvsSqrt_64fc_I(Orv64fc* srcDst, int len) { return orvsSqrt_64fc(srcDst, srcDst, len); }
