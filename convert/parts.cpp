// Real and imaginary parts: out of complex vectors, and together into them.
#include "orvs/convert.h"

#include "frame/blocks.h"
#include "frame/checks.h"
#include "frame/complex.h"
#include "simd/lanes.h"

using namespace ORV_VARIANT;

namespace {

// ---- Complex to parts

template <class C>
struct Parts {
    using T = part_of<C>;
    static constexpr int N = vec<T>::N;

    ORV_INLINE two<T> read(const C* z) const { return load_deinterleaved(parts(z)); }
};
template <class C>
struct RealPart : Parts<C> {
    template <class Put, class T>
    ORV_INLINE void write(Put put, two<T> z, T* re) const
    {
        put(re, z.first);
    }
};
template <class C>
struct ImagPart : Parts<C> {
    template <class Put, class T>
    ORV_INLINE void write(Put put, two<T> z, T* im) const
    {
        put(im, z.second);
    }
};
template <class C>
struct BothParts : Parts<C> {
    template <class Put, class T>
    ORV_INLINE void write(Put put, two<T> z, T* re, T* im) const
    {
        put(re, z.first);
        put(im, z.second);
    }
};

template <template <class> class Op, class C, class... T>
ORV_INLINE OrvStatus to_parts(const C* src, int len, T*... dst)
{
    if (const OrvStatus bad = check(len, src, dst...)) return bad;
    map_blocks(Op<C>{}, len, arrays(src), arrays(dst...));
    return orvOk;
}

// ---- Parts to complex

template <class C>
struct ToComplex {
    using T = part_of<C>;
    static constexpr int N = vec<T>::N;

    template <class Put>
    ORV_INLINE void write(Put put, two<T> z, C* dst) const
    {
        put(parts(dst), z.first);
        put(parts(dst) + N, z.second);
    }
};
template <class C>
struct FromBoth : ToComplex<C> {
    template <class T>
    ORV_INLINE two<T> read(const T* re, const T* im) const
    {
        return interleave(load(re), load(im));
    }
};
template <class C>
struct FromReal : ToComplex<C> {
    template <class T>
    ORV_INLINE two<T> read(const T* re) const
    {
        return interleave(load(re), splat(T(0)));
    }
};
template <class C>
struct FromImag : ToComplex<C> {
    template <class T>
    ORV_INLINE two<T> read(const T* im) const
    {
        return interleave(splat(T(0)), load(im));
    }
};

template <class C, class T>
ORV_INLINE OrvStatus from_parts(const T* re, const T* im, C* dst, int len)
{
    if (const OrvStatus bad = check(len, dst)) return bad;
    if (re && im) map_blocks(FromBoth<C>{}, len, arrays(re, im), arrays(dst));
    else if (re) map_blocks(FromReal<C>{}, len, arrays(re), arrays(dst));
    else if (im) map_blocks(FromImag<C>{}, len, arrays(im), arrays(dst));
    else return orvErrNullPointer;
    return orvOk;
}

} // namespace

// ---- Real

OrvStatus orvsReal_16sc(const Orv16sc* src, Orv16s* dst, int len) { return to_parts<RealPart>(src, len, dst); }
OrvStatus orvsReal_32fc(const Orv32fc* src, Orv32f* dst, int len) { return to_parts<RealPart>(src, len, dst); }
OrvStatus orvsReal_64fc(const Orv64fc* src, Orv64f* dst, int len) { return to_parts<RealPart>(src, len, dst); }

// ---- Imag

OrvStatus orvsImag_16sc(const Orv16sc* src, Orv16s* dst, int len) { return to_parts<ImagPart>(src, len, dst); }
OrvStatus orvsImag_32fc(const Orv32fc* src, Orv32f* dst, int len) { return to_parts<ImagPart>(src, len, dst); }
OrvStatus orvsImag_64fc(const Orv64fc* src, Orv64f* dst, int len) { return to_parts<ImagPart>(src, len, dst); }

// ---- CplxToReal

OrvStatus orvsCplxToReal_16sc(const Orv16sc* src, Orv16s* dstRe, Orv16s* dstIm, int len)
{
    return to_parts<BothParts>(src, len, dstRe, dstIm);
}
OrvStatus orvsCplxToReal_32fc(const Orv32fc* src, Orv32f* dstRe, Orv32f* dstIm, int len)
{
    return to_parts<BothParts>(src, len, dstRe, dstIm);
}
OrvStatus orvsCplxToReal_64fc(const Orv64fc* src, Orv64f* dstRe, Orv64f* dstIm, int len)
{
    return to_parts<BothParts>(src, len, dstRe, dstIm);
}

// ---- RealToCplx

OrvStatus orvsRealToCplx_16s(const Orv16s* srcRe, const Orv16s* srcIm, Orv16sc* dst, int len)
{
    return from_parts(srcRe, srcIm, dst, len);
}
OrvStatus orvsRealToCplx_32f(const Orv32f* srcRe, const Orv32f* srcIm, Orv32fc* dst, int len)
{
    return from_parts(srcRe, srcIm, dst, len);
}
OrvStatus orvsRealToCplx_64f(const Orv64f* srcRe, const Orv64f* srcIm, Orv64fc* dst, int len)
{
    return from_parts(srcRe, srcIm, dst, len);
}
