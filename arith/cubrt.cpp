// dst = cube root of src.
#include "orvs/arith.h"

#include "frame/checks.h"
#include "frame/float_state.h"
#include "frame/map.h"
#include "simd/convert.h"
#include "vmath/cbrt.h"
#include "vmath/vmath.h"

using namespace ORV_VARIANT;

OrvStatus orvsCubrt_32f(const Orv32f* src, Orv32f* dst, int len)
{
    if (const OrvStatus bad = check(len, src, dst)) return bad;
    own_orvs_sCbrt_S9LAynn(src, dst, len);
    return orvOk;
}

namespace {

/// The root of whole numbers of up to 31 bits and a sign to 2^-48, and of cubes exactly. y is nearly |x|^(-1/3).
ORV_INLINE vec<Orv64f> cbrt_of_integers(vec<Orv64f> x, vec<Orv64f> y)
{
    const auto third_slope = y * y * splat(1.0 / 3);
    auto root = x * (y * y);
    root = fnma(fma(root * root, root, splat(0.0) - x), third_slope, root);
    root = fnma(fma(root * root, root, splat(0.0) - x), third_slope, root);
    const auto whole = to_nearest(root);
    return blend(is_equal(whole * whole * whole, x), whole, root);
}

} // namespace

ORV_KERNEL void ownorvsCubrt_32s16s(const Orv32s* src, Orv16s* dst, int len, Orv32f factor)
{
    const StandardState state;
    const auto power = splat(Orv64f(factor)), lowest = splat(-32768.0), highest = splat(32767.0);
    const auto eight = [=](vec<Orv32s> v) ORV_INLINE_LAMBDA {
        const auto x = convert_to<Orv64f>(v), y = convert_to<Orv64f>(reciprocal_cbrt(magnitude(to_float(v))));
        const auto half = [=](vec<Orv64f> a, vec<Orv64f> b) ORV_INLINE_LAMBDA {
            return to_32s(max(lowest, min(highest, cbrt_of_integers(a, b) * power)));
        };
        return join(half(x.low, y.low), half(x.high, y.high));
    };
    map([=](auto x) ORV_INLINE_LAMBDA { return saturate_to<Orv16s>(join(eight(x.low), eight(x.high))); }, dst, len,
        src);
}
OrvStatus orvsCubrt_32s16s_Sfs(const Orv32s* src, Orv16s* dst, int len, int scale)
{
    if (const OrvStatus bad = check(len, src, dst)) return bad;
    const int wrapped = scale < 0 ? -int(-Orv32u(scale) % 128) : scale;
    ownorvsCubrt_32s16s(src, dst, len, power_of_two<Orv32f>(wrapped));
    return orvOk;
}
