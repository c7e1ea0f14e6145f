// Products of real-signal spectra in packed formats.
#include "orvs/arith.h"

#include "arith/complex.h"
#include "arith/forms.h"
#include "arith/products.h"
#include "frame/checks.h"

using namespace ORV_VARIANT;

namespace {

/// Where a format has the values at frequency 0 and, if len is even, at half the sample rate; between or behind them
/// are complex values.
struct Layout {
    int half_rate;     ///< 0 if there is none
    int first_complex; ///< elements in front of the complex values
    int complex_count;
};
Layout pack_layout(int len) { return {len % 2 == 0 ? len - 1 : 0, 1, (len - 1) / 2}; }
Layout perm_layout(int len) { return len % 2 == 0 ? Layout{1, 2, (len - 1) / 2} : Layout{0, 1, (len - 1) / 2}; }

template <class T>
auto* complex_values(T* spectrum, const Layout& layout)
{
    using Complex = complex_of<std::remove_const_t<T>>;
    using Pointer = std::conditional_t<std::is_const_v<T>, const Complex*, Complex*>;
    return reinterpret_cast<Pointer>(spectrum + layout.first_complex);
}

/// real and complex multiply vectors of values of the one kind and the other: f(src1, src2, dst, count).
template <class T, class Real, class Complex>
OrvStatus multiply(const Layout& layout, const T* src1, const T* src2, T* dst, Real real, Complex complex)
{
    real(src1, src2, dst, 1);
    if (const int i = layout.half_rate) real(src1 + i, src2 + i, dst + i, 1);
    if (layout.complex_count > 0) {
        complex(complex_values(src1, layout), complex_values(src2, layout), complex_values(dst, layout),
                layout.complex_count);
    }
    return orvOk;
}

/// A form of floats. In place the destination is the first factor, whichever argument it was.
template <auto real, auto complex, class T>
OrvStatus product(Layout (*layout)(int), const T* src1, const T* src2, T* dst, int len)
{
    if (src2 == dst) src2 = src1, src1 = dst;
    if (const OrvStatus bad = check(len, src1, src2, dst)) return bad;
    return multiply(layout(len), src1, src2, dst, real, complex);
}

OrvStatus scaled_product(Layout (*layout)(int), const Orv16s* src1, const Orv16s* src2, Orv16s* dst, int len, int scale)
{
    if (const OrvStatus bad = check(len, src1, src2, dst)) return bad;
    return multiply(
        layout(len), src1, src2, dst, [=](auto... x) { orvsMul_16s_Sfs(x..., scale); },
        [=](auto... x) { orvsMul_16sc_Sfs(x..., scale); });
}

template <class C>
OrvStatus multiply_conjugate(const C* src1, const C* src2, C* dst, int len)
{
    return float_form(ConjugateProduct{}, dst, len, src1, src2);
}

} // namespace

// ---- MulPack

OrvStatus orvsMulPack_16s_Sfs(const Orv16s* src1, const Orv16s* src2, Orv16s* dst, int len, int scale)
{
    return scaled_product(pack_layout, src1, src2, dst, len, scale);
}
OrvStatus orvsMulPack_16s_ISfs(const Orv16s* src, Orv16s* srcDst, int len, int scale)
{
    return scaled_product(pack_layout, srcDst, src, srcDst, len, scale);
}
OrvStatus orvsMulPack_32f(const Orv32f* src1, const Orv32f* src2, Orv32f* dst, int len)
{
    return product<orvsMul_32f, orvsMul_32fc>(pack_layout, src1, src2, dst, len);
}
OrvStatus orvsMulPack_32f_I(const Orv32f* src, Orv32f* srcDst, int len)
{
    return product<orvsMul_32f, orvsMul_32fc>(pack_layout, srcDst, src, srcDst, len);
}
OrvStatus orvsMulPack_64f(const Orv64f* src1, const Orv64f* src2, Orv64f* dst, int len)
{
    return product<orvsMul_64f, orvsMul_64fc>(pack_layout, src1, src2, dst, len);
}
OrvStatus orvsMulPack_64f_I(const Orv64f* src, Orv64f* srcDst, int len)
{
    return product<orvsMul_64f, orvsMul_64fc>(pack_layout, srcDst, src, srcDst, len);
}

// ---- MulPerm

OrvStatus orvsMulPerm_16s_Sfs(const Orv16s* src1, const Orv16s* src2, Orv16s* dst, int len, int scale)
{
    return scaled_product(perm_layout, src1, src2, dst, len, scale);
}
OrvStatus orvsMulPerm_16s_ISfs(const Orv16s* src, Orv16s* srcDst, int len, int scale)
{
    return scaled_product(perm_layout, srcDst, src, srcDst, len, scale);
}
OrvStatus orvsMulPerm_32f(const Orv32f* src1, const Orv32f* src2, Orv32f* dst, int len)
{
    return product<orvsMul_32f, orvsMul_32fc>(perm_layout, src1, src2, dst, len);
}
OrvStatus orvsMulPerm_32f_I(const Orv32f* src, Orv32f* srcDst, int len)
{
    return product<orvsMul_32f, orvsMul_32fc>(perm_layout, srcDst, src, srcDst, len);
}
OrvStatus orvsMulPerm_64f(const Orv64f* src1, const Orv64f* src2, Orv64f* dst, int len)
{
    return product<orvsMul_64f, orvsMul_64fc>(perm_layout, src1, src2, dst, len);
}
OrvStatus orvsMulPerm_64f_I(const Orv64f* src, Orv64f* srcDst, int len)
{
    return product<orvsMul_64f, orvsMul_64fc>(perm_layout, srcDst, src, srcDst, len);
}

// ---- MulPackConj

OrvStatus orvsMulPackConj_32f_I(const Orv32f* src, Orv32f* srcDst, int len)
{
    if (const OrvStatus bad = check(len, src, srcDst)) return bad;
    return multiply(pack_layout(len), srcDst, src, srcDst, orvsMul_32f, multiply_conjugate<Orv32fc>);
}
OrvStatus orvsMulPackConj_64f_I(const Orv64f* src, Orv64f* srcDst, int len)
{
    if (const OrvStatus bad = check(len, src, srcDst)) return bad;
    return multiply(pack_layout(len), srcDst, src, srcDst, orvsMul_64f, multiply_conjugate<Orv64fc>);
}
