// dst = src * val.
#include "orvs/arith.h"

#include <bit>

#include "arith/constant.h"
#include "arith/forms.h"
#include "arith/products.h"
#include "arith/wide_integer.h"
#include "frame/float_state.h"
#include "simd/convert.h"

using namespace ORV_VARIANT;

// ---- Integers

namespace {

template <class T>
ORV_INLINE bool equals(T val, int x)
{
    if constexpr (std::is_class_v<T>) return val.re == x && val.im == 0;
    else return val == x;
}

/// The body of a form with Product or ComplexProduct. A val of 0 is settled before the scale.
template <class Op, class T>
ORV_INLINE OrvStatus scaled_product(const T* src, T val, T* dst, int len, int scale, int zero_above)
{
    if (const OrvStatus bad = check(len, src, dst)) return bad;
    if (equals(val, 0)) return zero(dst, len);
    if (equals(val, 1) && scale == 0) {
        ownsCopy_8u(reinterpret_cast<const Orv8u*>(src), reinterpret_cast<Orv8u*>(dst), std::size_t(len) * sizeof(T));
        return orvOk;
    }
    const auto v = splat(val);
    return scaled_form(Second<Op, typename decltype(v)::lane>{v}, dst, len, scale, zero_above, src);
}

} // namespace

OrvStatus orvsMulC_8u_Sfs(const Orv8u* src, Orv8u val, Orv8u* dst, int len, int scale)
{
    return scaled_product<Product>(src, val, dst, len, scale, 16);
}
OrvStatus orvsMulC_8u_ISfs(Orv8u val, Orv8u* srcDst, int len, int scale)
{
    return orvsMulC_8u_Sfs(srcDst, val, srcDst, len, scale);
}
ORV_KERNEL OrvStatus ownps_MulC_16u_Sfs(const Orv16u* src, Orv16u val, Orv16u* dst, int len, int scale)
{
    return scaled_product<Product>(src, val, dst, len, scale, 32);
}
OrvStatus orvsMulC_16u_Sfs(const Orv16u* src, Orv16u val, Orv16u* dst, int len, int scale)
{
    return ownps_MulC_16u_Sfs(src, val, dst, len, scale);
}
OrvStatus orvsMulC_16u_ISfs(Orv16u val, Orv16u* srcDst, int len, int scale)
{
    return orvsMulC_16u_Sfs(srcDst, val, srcDst, len, scale);
}
OrvStatus orvsMulC_16s_Sfs(const Orv16s* src, Orv16s val, Orv16s* dst, int len, int scale)
{
    return scaled_product<Product>(src, val, dst, len, scale, 30);
}
OrvStatus orvsMulC_16s_ISfs(Orv16s val, Orv16s* srcDst, int len, int scale)
{
    return orvsMulC_16s_Sfs(srcDst, val, srcDst, len, scale);
}
OrvStatus orvsMulC_16s_I(Orv16s val, Orv16s* srcDst, int len) { return orvsMulC_16s_Sfs(srcDst, val, srcDst, len, 0); }
OrvStatus orvsMulC_16sc_Sfs(const Orv16sc* src, Orv16sc val, Orv16sc* dst, int len, int scale)
{
    return scaled_product<ComplexProduct>(src, val, dst, len, scale, 31);
}
OrvStatus orvsMulC_16sc_ISfs(Orv16sc val, Orv16sc* srcDst, int len, int scale)
{
    return orvsMulC_16sc_Sfs(srcDst, val, srcDst, len, scale);
}
OrvStatus orvsMulC_32s_Sfs(const Orv32s* src, Orv32s val, Orv32s* dst, int len, int scale)
{
    return scaled_product<Product>(src, val, dst, len, scale, 62);
}
OrvStatus orvsMulC_32s_ISfs(Orv32s val, Orv32s* srcDst, int len, int scale)
{
    return orvsMulC_32s_Sfs(srcDst, val, srcDst, len, scale);
}
OrvStatus orvsMulC_32sc_Sfs(const Orv32sc* src, Orv32sc val, Orv32sc* dst, int len, int scale)
{
    return scaled_product<ComplexProduct>(src, val, dst, len, scale, 63);
}
OrvStatus orvsMulC_32sc_ISfs(Orv32sc val, Orv32sc* srcDst, int len, int scale)
{
    return orvsMulC_32sc_Sfs(srcDst, val, srcDst, len, scale);
}

// ---- 64s: products of up to 126 bits. Only len = 0 is refused; the kernels find nothing to do for a negative one.

namespace {

/// srcDst * factor * 2^-scale, where negative is the sign of the factor.
ORV_INLINE void multiply_scaled(Orv64u factor, bool negative, Orv64s* srcDst, int len, int scale)
{
    replace_each(srcDst, len, [=](Orv64s x) ORV_INLINE_LAMBDA {
        return with_sign(scaled(multiply_magnitudes(magnitude(x), factor), scale), (x < 0) != negative);
    });
}

} // namespace

ORV_KERNEL void ownsMulC_64s_ISfs_V8(Orv64s val, Orv64s* srcDst, int len, int scale)
{
    multiply_scaled(magnitude(val), val < 0, srcDst, len, scale);
}
OrvStatus orvsMulC_64s_ISfs(Orv64s val, Orv64s* srcDst, int len, int scale)
{
    if (!srcDst) return orvErrNullPointer;
    if (len == 0) return orvErrBadLength;
    ownsMulC_64s_ISfs_V8(val, srcDst, len, scale);
    return orvOk;
}

/// A finite val is an integer of 53 bits times 2^exponent, so the product is one of integers at another scale.
ORV_KERNEL void ownsMulC_64f64s_ISfs_V8(Orv64f val, Orv64s* srcDst, int len, int scale)
{
    const Orv64u word = std::bit_cast<Orv64u>(val);
    const Orv64u fraction = word & 0xfffffffffffff;
    const int exponent = int(word >> 52 & 0x7ff);
    const bool negative = word >> 63 != 0;
    if (exponent == 0x7ff) { // infinity, or a NaN, which multiplies by 0
        return multiply_scaled(fraction == 0, negative, srcDst, len, -64);
    }
    const Orv64u factor = exponent == 0 ? fraction : fraction | Orv64u(1) << 52;
    const Orv64s shift = Orv64s(scale) - ((exponent == 0 ? 1 : exponent) - 1075);
    const int within = shift < -64 ? -64 : shift > 127 ? 127 : int(shift); // beyond, nothing changes
    multiply_scaled(factor, negative, srcDst, len, within);
}
OrvStatus orvsMulC_64f64s_ISfs(Orv64f val, Orv64s* srcDst, int len, int scale)
{
    if (!srcDst) return orvErrNullPointer;
    if (len == 0) return orvErrBadLength;
    ownsMulC_64f64s_ISfs_V8(val, srcDst, len, scale);
    return orvOk;
}

// ---- Floats into 16s

/// The product of two floats has 48 bits and is exact in a double, so it is rounded once.
OrvStatus orvsMulC_32f16s_Sfs(const Orv32f* src, Orv32f val, Orv16s* dst, int len, int scale)
{
    if (const OrvStatus bad = check(len, src, dst)) return bad;
    const NearestState state;
    const auto factor = splat(Orv64f(inside_state(val)) * power_of_two<Orv32f>(scale));
    const auto product = [=](vec<Orv64f> x) ORV_INLINE_LAMBDA { return x * factor; };
    map([=](auto x) ORV_INLINE_LAMBDA { return round_to<Orv16s, orvRndNear>(each(product, convert_to<Orv64f>(x))); },
        dst, len, src);
    return orvOk;
}
/// In the caller's state: "nearest" is the conversion that follows it.
OrvStatus orvsMulC_Low_32f16s(const Orv32f* src, Orv32f val, Orv16s* dst, int len)
{
    if (const OrvStatus bad = check(len, src, dst)) return bad;
    const auto factor = splat(val);
    const auto product = [=](vec<Orv32f> x) ORV_INLINE_LAMBDA { return x * factor; };
    map([=](auto x) ORV_INLINE_LAMBDA { return round_to<Orv16s, orvRndNear>(each(product, x)); }, dst, len, src);
    return orvOk;
}

// ---- Floating point

namespace {

template <class T>
ORV_INLINE OrvStatus float_product(const T* src, T val, T* dst, int len)
{
    const auto v = splat(val);
    if constexpr (is_float<T>) {
        return float_form([=](auto x) ORV_INLINE_LAMBDA { return x * v; }, dst, len, src);
    } else {
        return float_form([=](auto x) ORV_INLINE_LAMBDA { return ComplexProduct{}(x, v); }, dst, len, src);
    }
}

} // namespace

OrvStatus orvsMulC_32f(const Orv32f* src, Orv32f val, Orv32f* dst, int len)
{
    return float_product(src, val, dst, len);
}
OrvStatus orvsMulC_32f_I(Orv32f val, Orv32f* srcDst, int len) { return orvsMulC_32f(srcDst, val, srcDst, len); }
OrvStatus orvsMulC_32fc(const Orv32fc* src, Orv32fc val, Orv32fc* dst, int len)
{
    return float_product(src, val, dst, len);
}
OrvStatus orvsMulC_32fc_I(Orv32fc val, Orv32fc* srcDst, int len) { return orvsMulC_32fc(srcDst, val, srcDst, len); }
OrvStatus orvsMulC_64f(const Orv64f* src, Orv64f val, Orv64f* dst, int len)
{
    return float_product(src, val, dst, len);
}
OrvStatus orvsMulC_64f_I(Orv64f val, Orv64f* srcDst, int len) { return orvsMulC_64f(srcDst, val, srcDst, len); }
OrvStatus orvsMulC_64fc(const Orv64fc* src, Orv64fc val, Orv64fc* dst, int len)
{
    return float_product(src, val, dst, len);
}
OrvStatus orvsMulC_64fc_I(Orv64fc val, Orv64fc* srcDst, int len) { return orvsMulC_64fc(srcDst, val, srcDst, len); }
