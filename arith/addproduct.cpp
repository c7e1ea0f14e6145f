// srcDst = srcDst + src1 * src2.
#include "orvs/arith.h"

#include "arith/complex.h"
#include "frame/checks.h"
#include "frame/scale.h"
#include "orvs/frame.h"

using namespace ORV_VARIANT;

namespace {

/// acc + a * b for narrow lanes: exact in wide ones.
struct ProductSum {
    template <class T>
    ORV_INLINE vec<T> saturated(vec<T> a, vec<T> b, vec<T> acc) const
    {
        return pack_sat(multiply_add_wide(a, b, acc));
    }
    template <class T>
    ORV_INLINE auto exact(vec<T> a, vec<T> b, vec<T> acc) const
    {
        return multiply_add_wide(a, b, acc);
    }
};

/// acc + a * b where the product fills the lanes of acc: one bit more than they hold.
struct WideProductSum {
    ORV_INLINE vec<Orv32s> saturated(vec<Orv16s, 8> a, vec<Orv16s, 8> b, vec<Orv32s> acc) const
    {
        return add_sat(multiply_wide(a, b), acc);
    }
    ORV_INLINE half_odd<Orv32s> exact(vec<Orv16s, 8> a, vec<Orv16s, 8> b, vec<Orv32s> acc) const
    {
        return exact_sum(multiply_wide(a, b), acc);
    }
};

/// The complex product sum on interleaved parts; fused, the imaginary part of a first:
/// re = fma(are, bre, fma(-aim, bim, re)), im = fma(are, bim, fma(aim, bre, im)).
struct ComplexProductSum {
    template <class T>
    ORV_INLINE vec<T> operator()(vec<T> a, vec<T> b, vec<T> acc) const
    {
        const auto crossed = fma(negate_even(odd_twice(a)), swap_pairs(b), acc);
        return fma(even_twice(a), b, crossed);
    }
};

} // namespace

// ---- 16s

ORV_KERNEL void ownsAddProduct_16s(const Orv16s* src1, const Orv16s* src2, Orv16s* srcDst, int len)
{
    map_saturated(ProductSum{}, srcDst, len, src1, src2, srcDst);
}
ORV_KERNEL void ownsAddProduct_16s_PosSfs(const Orv16s* src1, const Orv16s* src2, Orv16s* srcDst, int len, int scale)
{
    if (scale == 1) return map_halved(ProductSum{}, srcDst, len, src1, src2, srcDst);
    map_rounded(ProductSum{}, srcDst, len, scale, src1, src2, srcDst);
}
ORV_KERNEL void ownsAddProduct_16s_NegSfs(const Orv16s* src1, const Orv16s* src2, Orv16s* srcDst, int len, int left)
{
    map_shifted(ProductSum{}, srcDst, len, left, src1, src2, srcDst);
}
ORV_KERNEL void ownsAddProduct_16s_Bound(const Orv16s* src1, const Orv16s* src2, Orv16s* srcDst, int len)
{
    map_bound(ProductSum{}, srcDst, len, src1, src2, srcDst);
}

OrvStatus orvsAddProduct_16s_Sfs(const Orv16s* src1, const Orv16s* src2, Orv16s* srcDst, int len, int scale)
{
    if (const OrvStatus bad = check(len, src1, src2, srcDst)) return bad;
    if (scale > 31) return orvsZero_16s(srcDst, len); // (2^30 + 2^15) / 2^32 is below one half
    if (scale == 0) ownsAddProduct_16s(src1, src2, srcDst, len);
    else if (scale > 0) ownsAddProduct_16s_PosSfs(src1, src2, srcDst, len, scale);
    else if (scale >= -14) ownsAddProduct_16s_NegSfs(src1, src2, srcDst, len, -scale);
    else ownsAddProduct_16s_Bound(src1, src2, srcDst, len);
    return orvOk;
}

// ---- 16s in 32s

ORV_KERNEL void ownsAddProduct_16s32s(const Orv16s* src1, const Orv16s* src2, Orv32s* srcDst, int len)
{
    map_saturated(WideProductSum{}, srcDst, len, src1, src2, srcDst);
}
ORV_KERNEL void ownsAddProduct_16s32s_PosSfs(const Orv16s* src1, const Orv16s* src2, Orv32s* srcDst, int len, int scale)
{
    if (scale == 1) return map_halved(WideProductSum{}, srcDst, len, src1, src2, srcDst);
    map_rounded(WideProductSum{}, srcDst, len, scale, src1, src2, srcDst);
}
ORV_KERNEL void ownsAddProduct_16s32s_NegSfs(const Orv16s* src1, const Orv16s* src2, Orv32s* srcDst, int len, int left)
{
    map_shifted(WideProductSum{}, srcDst, len, left, src1, src2, srcDst);
}
ORV_KERNEL void ownsAddProduct_16s32s_Bound(const Orv16s* src1, const Orv16s* src2, Orv32s* srcDst, int len)
{
    map_bound(WideProductSum{}, srcDst, len, src1, src2, srcDst);
}

OrvStatus orvsAddProduct_16s32s_Sfs(const Orv16s* src1, const Orv16s* src2, Orv32s* srcDst, int len, int scale)
{
    if (const OrvStatus bad = check(len, src1, src2, srcDst)) return bad;
    if (scale > 32) return orvsZero_32s(srcDst, len); // (2^31 + 2^30) / 2^33 is below one half
    if (scale == 0) ownsAddProduct_16s32s(src1, src2, srcDst, len);
    else if (scale > 0) ownsAddProduct_16s32s_PosSfs(src1, src2, srcDst, len, scale);
    else if (scale >= -30) ownsAddProduct_16s32s_NegSfs(src1, src2, srcDst, len, -scale);
    else ownsAddProduct_16s32s_Bound(src1, src2, srcDst, len);
    return orvOk;
}

// ---- 32s

ORV_KERNEL void ownsAddProduct_32s(const Orv32s* src1, const Orv32s* src2, Orv32s* srcDst, int len)
{
    map_saturated(ProductSum{}, srcDst, len, src1, src2, srcDst);
}
ORV_KERNEL void ownsAddProduct_32s_Sfs(const Orv32s* src1, const Orv32s* src2, Orv32s* srcDst, int len, int scale)
{
    if (scale == 1) return map_halved(ProductSum{}, srcDst, len, src1, src2, srcDst);
    map_rounded(ProductSum{}, srcDst, len, scale, src1, src2, srcDst);
}
ORV_KERNEL void ownsAddProduct_32s_NegSfs(const Orv32s* src1, const Orv32s* src2, Orv32s* srcDst, int len, int left)
{
    map_shifted(ProductSum{}, srcDst, len, left, src1, src2, srcDst);
}
ORV_KERNEL void ownsAddProduct_32s_Bound(const Orv32s* src1, const Orv32s* src2, Orv32s* srcDst, int len)
{
    map_bound(ProductSum{}, srcDst, len, src1, src2, srcDst);
}

OrvStatus orvsAddProduct_32s_Sfs(const Orv32s* src1, const Orv32s* src2, Orv32s* srcDst, int len, int scale)
{
    if (const OrvStatus bad = check(len, src1, src2, srcDst)) return bad;
    if (scale > 62) return orvsZero_32s(srcDst, len); // also where (2^62 + 2^31) / 2^63 would round to 1
    if (scale == 0) ownsAddProduct_32s(src1, src2, srcDst, len);
    else if (scale > 0) ownsAddProduct_32s_Sfs(src1, src2, srcDst, len, scale);
    else if (scale >= -30) ownsAddProduct_32s_NegSfs(src1, src2, srcDst, len, -scale);
    else ownsAddProduct_32s_Bound(src1, src2, srcDst, len);
    return orvOk;
}

// ---- Floating point

template <class T>
ORV_INLINE OrvStatus add_product_floats(const T* src1, const T* src2, T* srcDst, int len)
{
    if (const OrvStatus bad = check(len, src1, src2, srcDst)) return bad;
    map([](auto a, auto b, auto acc) ORV_INLINE_LAMBDA { return fma(a, b, acc); }, srcDst, len, src1, src2, srcDst);
    return orvOk;
}
template <class C>
ORV_INLINE OrvStatus add_product_complex(const C* src1, const C* src2, C* srcDst, int len)
{
    if (const OrvStatus bad = check(len, src1, src2, srcDst)) return bad;
    return for_parts(len, [=](std::ptrdiff_t at, int n) ORV_INLINE_LAMBDA {
        map<2>(ComplexProductSum{}, parts(srcDst) + at, n, parts(src1) + at, parts(src2) + at, parts(srcDst) + at);
        return orvOk;
    });
}

OrvStatus orvsAddProduct_32f(const Orv32f* src1, const Orv32f* src2, Orv32f* srcDst, int len)
{
    return add_product_floats(src1, src2, srcDst, len);
}
OrvStatus orvsAddProduct_64f(const Orv64f* src1, const Orv64f* src2, Orv64f* srcDst, int len)
{
    return add_product_floats(src1, src2, srcDst, len);
}
OrvStatus orvsAddProduct_32fc(const Orv32fc* src1, const Orv32fc* src2, Orv32fc* srcDst, int len)
{
    return add_product_complex(src1, src2, srcDst, len);
}
OrvStatus orvsAddProduct_64fc(const Orv64fc* src1, const Orv64fc* src2, Orv64fc* srcDst, int len)
{
    return add_product_complex(src1, src2, srcDst, len);
}
OrvStatus orvsAddProductC_32f(const Orv32f* src, Orv32f val, Orv32f* srcDst, int len)
{
    if (const OrvStatus bad = check(len, src, srcDst)) return bad;
    const auto v = splat(val);
    map([=](auto x, auto acc) ORV_INLINE_LAMBDA { return fma(v, x, acc); }, srcDst, len, src, srcDst);
    return orvOk;
}
