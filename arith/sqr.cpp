// dst = src * src.
#include "orvs/arith.h"

#include "arith/forms.h"
#include "arith/products.h"

using namespace ORV_VARIANT;

namespace {

/// A product of two equal factors.
template <class P>
struct Squared {
    template <class T>
    ORV_INLINE auto saturated(vec<T> a) const
    {
        return P{}.saturated(a, a);
    }
    template <class T>
    ORV_INLINE auto exact(vec<T> a) const
    {
        return P{}.exact(a, a);
    }
    template <class T>
    ORV_INLINE auto operator()(vec<T> a) const
    {
        return P{}(a, a);
    }
};

using Square = Squared<Product>;
using ComplexSquare = Squared<ComplexProduct>;

} // namespace

// ---- Integers. Above the last scale the largest square comes to one half at most.

OrvStatus orvsSqr_8u_Sfs(const Orv8u* src, Orv8u* dst, int len, int scale)
{
    return scaled_form(Square{}, dst, len, scale, 16, src);
}
OrvStatus orvsSqr_8u_ISfs(Orv8u* srcDst, int len, int scale) { return orvsSqr_8u_Sfs(srcDst, srcDst, len, scale); }
OrvStatus orvsSqr_16u_Sfs(const Orv16u* src, Orv16u* dst, int len, int scale)
{
    return scaled_form(Square{}, dst, len, scale, 32, src);
}
OrvStatus orvsSqr_16u_ISfs(Orv16u* srcDst, int len, int scale) { return orvsSqr_16u_Sfs(srcDst, srcDst, len, scale); }

ORV_KERNEL OrvStatus ownorvsSqr_16s(const Orv16s* src, Orv16s* dst, int len, int scale)
{
    return scaled_form(Square{}, dst, len, scale, 30, src);
}
OrvStatus orvsSqr_16s_Sfs(const Orv16s* src, Orv16s* dst, int len, int scale)
{
    return ownorvsSqr_16s(src, dst, len, scale);
}
OrvStatus orvsSqr_16s_ISfs(Orv16s* srcDst, int len, int scale) { return ownorvsSqr_16s(srcDst, srcDst, len, scale); }

ORV_KERNEL OrvStatus ownorvsSqr_16sc(const Orv16sc* src, Orv16sc* dst, int len, int scale)
{
    return scaled_form(ComplexSquare{}, dst, len, scale, 31, src);
}
OrvStatus orvsSqr_16sc_Sfs(const Orv16sc* src, Orv16sc* dst, int len, int scale)
{
    return ownorvsSqr_16sc(src, dst, len, scale);
}
OrvStatus orvsSqr_16sc_ISfs(Orv16sc* srcDst, int len, int scale) { return ownorvsSqr_16sc(srcDst, srcDst, len, scale); }

// ---- Floating point

namespace {

template <class T>
ORV_INLINE OrvStatus square_floats(const T* src, T* dst, int len)
{
    return float_form([](auto a) ORV_INLINE_LAMBDA { return a * a; }, dst, len, src);
}

} // namespace

OrvStatus orvsSqr_32f(const Orv32f* src, Orv32f* dst, int len) { return square_floats(src, dst, len); }
OrvStatus orvsSqr_32f_I(Orv32f* srcDst, int len) { return orvsSqr_32f(srcDst, srcDst, len); }
OrvStatus orvsSqr_64f(const Orv64f* src, Orv64f* dst, int len) { return square_floats(src, dst, len); }
OrvStatus orvsSqr_64f_I(Orv64f* srcDst, int len) { return orvsSqr_64f(srcDst, srcDst, len); }
OrvStatus orvsSqr_32fc(const Orv32fc* src, Orv32fc* dst, int len) { return float_form(ComplexSquare{}, dst, len, src); }
OrvStatus orvsSqr_32fc_I(Orv32fc* srcDst, int len) { return orvsSqr_32fc(srcDst, srcDst, len); }
OrvStatus orvsSqr_64fc(const Orv64fc* src, Orv64fc* dst, int len) { return float_form(ComplexSquare{}, dst, len, src); }
OrvStatus orvsSqr_64fc_I(Orv64fc* srcDst, int len) { return orvsSqr_64fc(srcDst, srcDst, len); }
