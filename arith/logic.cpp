// Bitwise and, or, exclusive or, and complement.
#include "orvs/arith.h"

#include "frame/checks.h"
#include "frame/map.h"

using namespace ORV_VARIANT;

namespace {

struct And {
    template <class T>
    ORV_INLINE vec<T> operator()(vec<T> a, vec<T> b) const
    {
        return a & b;
    }
};
struct Or {
    template <class T>
    ORV_INLINE vec<T> operator()(vec<T> a, vec<T> b) const
    {
        return a | b;
    }
};
struct Xor {
    template <class T>
    ORV_INLINE vec<T> operator()(vec<T> a, vec<T> b) const
    {
        return a ^ b;
    }
};

template <class Op, class T>
ORV_INLINE OrvStatus with_vector(Op op, const T* src1, const T* src2, T* dst, int len)
{
    if (const OrvStatus bad = check(len, src1, src2, dst)) return bad;
    map(op, dst, len, src1, src2);
    return orvOk;
}

template <class Op, class T>
ORV_INLINE OrvStatus with_scalar(Op op, const T* src, T val, T* dst, int len)
{
    if (const OrvStatus bad = check(len, src, dst)) return bad;
    const auto v = splat(val);
    map([=](auto x) ORV_INLINE_LAMBDA { return op(x, v); }, dst, len, src);
    return orvOk;
}

template <class T>
ORV_INLINE OrvStatus complement(const T* src, T* dst, int len)
{
    if (const OrvStatus bad = check(len, src, dst)) return bad;
    map([](auto x) ORV_INLINE_LAMBDA { return ~x; }, dst, len, src);
    return orvOk;
}

} // namespace

// ---- And

OrvStatus orvsAnd_8u(const Orv8u* src1, const Orv8u* src2, Orv8u* dst, int len)
{
    return with_vector(And{}, src1, src2, dst, len);
}
OrvStatus orvsAnd_8u_I(const Orv8u* src, Orv8u* srcDst, int len)
{
    return with_vector(And{}, src, srcDst, srcDst, len);
}
OrvStatus orvsAnd_16u(const Orv16u* src1, const Orv16u* src2, Orv16u* dst, int len)
{
    return with_vector(And{}, src1, src2, dst, len);
}
OrvStatus orvsAnd_16u_I(const Orv16u* src, Orv16u* srcDst, int len)
{
    return with_vector(And{}, src, srcDst, srcDst, len);
}
OrvStatus orvsAnd_32u(const Orv32u* src1, const Orv32u* src2, Orv32u* dst, int len)
{
    return with_vector(And{}, src1, src2, dst, len);
}
OrvStatus orvsAnd_32u_I(const Orv32u* src, Orv32u* srcDst, int len)
{
    return with_vector(And{}, src, srcDst, srcDst, len);
}

// ---- AndC

OrvStatus orvsAndC_8u(const Orv8u* src, Orv8u val, Orv8u* dst, int len)
{
    return with_scalar(And{}, src, val, dst, len);
}
OrvStatus orvsAndC_8u_I(Orv8u val, Orv8u* srcDst, int len) { return with_scalar(And{}, srcDst, val, srcDst, len); }
OrvStatus orvsAndC_16u(const Orv16u* src, Orv16u val, Orv16u* dst, int len)
{
    return with_scalar(And{}, src, val, dst, len);
}
OrvStatus orvsAndC_16u_I(Orv16u val, Orv16u* srcDst, int len) { return with_scalar(And{}, srcDst, val, srcDst, len); }
OrvStatus orvsAndC_32u(const Orv32u* src, Orv32u val, Orv32u* dst, int len)
{
    return with_scalar(And{}, src, val, dst, len);
}
OrvStatus orvsAndC_32u_I(Orv32u val, Orv32u* srcDst, int len) { return with_scalar(And{}, srcDst, val, srcDst, len); }

// ---- Or

OrvStatus orvsOr_8u(const Orv8u* src1, const Orv8u* src2, Orv8u* dst, int len)
{
    return with_vector(Or{}, src1, src2, dst, len);
}
OrvStatus orvsOr_8u_I(const Orv8u* src, Orv8u* srcDst, int len) { return with_vector(Or{}, src, srcDst, srcDst, len); }
OrvStatus orvsOr_16u(const Orv16u* src1, const Orv16u* src2, Orv16u* dst, int len)
{
    return with_vector(Or{}, src1, src2, dst, len);
}
OrvStatus orvsOr_16u_I(const Orv16u* src, Orv16u* srcDst, int len)
{
    return with_vector(Or{}, src, srcDst, srcDst, len);
}
OrvStatus orvsOr_32u(const Orv32u* src1, const Orv32u* src2, Orv32u* dst, int len)
{
    return with_vector(Or{}, src1, src2, dst, len);
}
OrvStatus orvsOr_32u_I(const Orv32u* src, Orv32u* srcDst, int len)
{
    return with_vector(Or{}, src, srcDst, srcDst, len);
}

// ---- OrC

OrvStatus orvsOrC_8u(const Orv8u* src, Orv8u val, Orv8u* dst, int len) { return with_scalar(Or{}, src, val, dst, len); }
OrvStatus orvsOrC_8u_I(Orv8u val, Orv8u* srcDst, int len) { return with_scalar(Or{}, srcDst, val, srcDst, len); }
OrvStatus orvsOrC_16u(const Orv16u* src, Orv16u val, Orv16u* dst, int len)
{
    return with_scalar(Or{}, src, val, dst, len);
}
OrvStatus orvsOrC_16u_I(Orv16u val, Orv16u* srcDst, int len) { return with_scalar(Or{}, srcDst, val, srcDst, len); }
OrvStatus orvsOrC_32u(const Orv32u* src, Orv32u val, Orv32u* dst, int len)
{
    return with_scalar(Or{}, src, val, dst, len);
}
OrvStatus orvsOrC_32u_I(Orv32u val, Orv32u* srcDst, int len) { return with_scalar(Or{}, srcDst, val, srcDst, len); }

// ---- Xor

OrvStatus orvsXor_8u(const Orv8u* src1, const Orv8u* src2, Orv8u* dst, int len)
{
    return with_vector(Xor{}, src1, src2, dst, len);
}
OrvStatus orvsXor_8u_I(const Orv8u* src, Orv8u* srcDst, int len)
{
    return with_vector(Xor{}, src, srcDst, srcDst, len);
}
OrvStatus orvsXor_16u(const Orv16u* src1, const Orv16u* src2, Orv16u* dst, int len)
{
    return with_vector(Xor{}, src1, src2, dst, len);
}
OrvStatus orvsXor_16u_I(const Orv16u* src, Orv16u* srcDst, int len)
{
    return with_vector(Xor{}, src, srcDst, srcDst, len);
}
OrvStatus orvsXor_32u(const Orv32u* src1, const Orv32u* src2, Orv32u* dst, int len)
{
    return with_vector(Xor{}, src1, src2, dst, len);
}
OrvStatus orvsXor_32u_I(const Orv32u* src, Orv32u* srcDst, int len)
{
    return with_vector(Xor{}, src, srcDst, srcDst, len);
}

// ---- XorC

OrvStatus orvsXorC_8u(const Orv8u* src, Orv8u val, Orv8u* dst, int len)
{
    return with_scalar(Xor{}, src, val, dst, len);
}
OrvStatus orvsXorC_8u_I(Orv8u val, Orv8u* srcDst, int len) { return with_scalar(Xor{}, srcDst, val, srcDst, len); }
OrvStatus orvsXorC_16u(const Orv16u* src, Orv16u val, Orv16u* dst, int len)
{
    return with_scalar(Xor{}, src, val, dst, len);
}
OrvStatus orvsXorC_16u_I(Orv16u val, Orv16u* srcDst, int len) { return with_scalar(Xor{}, srcDst, val, srcDst, len); }
OrvStatus orvsXorC_32u(const Orv32u* src, Orv32u val, Orv32u* dst, int len)
{
    return with_scalar(Xor{}, src, val, dst, len);
}
OrvStatus orvsXorC_32u_I(Orv32u val, Orv32u* srcDst, int len) { return with_scalar(Xor{}, srcDst, val, srcDst, len); }

// ---- Not

OrvStatus orvsNot_8u(const Orv8u* src, Orv8u* dst, int len) { return complement(src, dst, len); }
OrvStatus orvsNot_8u_I(Orv8u* srcDst, int len) { return complement(srcDst, srcDst, len); }
OrvStatus orvsNot_16u(const Orv16u* src, Orv16u* dst, int len) { return complement(src, dst, len); }
OrvStatus orvsNot_16u_I(Orv16u* srcDst, int len) { return complement(srcDst, srcDst, len); }
OrvStatus orvsNot_32u(const Orv32u* src, Orv32u* dst, int len) { return complement(src, dst, len); }
OrvStatus orvsNot_32u_I(Orv32u* srcDst, int len) { return complement(srcDst, srcDst, len); }
