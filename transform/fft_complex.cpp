// Fast Fourier transforms of complex signals.
#include "transform/complex_transform.h"

using namespace ORV_VARIANT;

namespace {

template <Direction d, class Spec, class Array>
OrvStatus transform(const Spec* spec, bool has_null, Array src, Array dst, Orv8u* buffer)
{
    using T = typename Spec::value;
    if (const OrvStatus bad = check_transform(spec, has_null)) return bad;
    const FftSpec<T>& record = *spec;
    if (record.order < engine_order) { // before all else: it takes little longer than a call
        transform_short<d>(record, record.order, src, dst);
        return orvOk;
    }
    return with_work(record, buffer, [=](const FftSpec<T>& on, T* work) {
        transform_with_tables<d>(on, on.order, src, dst, work, scales<d>(on));
    });
}

template <Direction d, class T, class Spec>
OrvStatus transform_interleaved(const void* src, void* dst, const Spec* spec, Orv8u* buffer)
{
    return transform<d>(spec, any_null(src, dst), interleaved<T>(src), interleaved<T>(dst), buffer);
}
template <Direction d, class T, class Spec>
OrvStatus transform_split(const T* srcRe, const T* srcIm, T* dstRe, T* dstIm, const Spec* spec, Orv8u* buffer)
{
    return transform<d>(spec, any_null(srcRe, srcIm, dstRe, dstIm), split_arrays(srcRe, srcIm),
                        split_arrays(dstRe, dstIm), buffer);
}

} // namespace

// ---- Forward

OrvStatus orvsFFTFwd_CToC_32fc(const Orv32fc* src, Orv32fc* dst, const OrvsFFTSpec_C_32fc* spec, Orv8u* buffer)
{
    return transform_interleaved<Direction::forward, Orv32f>(src, dst, spec, buffer);
}
OrvStatus orvsFFTFwd_CToC_32fc_I(Orv32fc* srcDst, const OrvsFFTSpec_C_32fc* spec, Orv8u* buffer)
{
    return orvsFFTFwd_CToC_32fc(srcDst, srcDst, spec, buffer);
}
OrvStatus orvsFFTFwd_CToC_32f(const Orv32f* srcRe, const Orv32f* srcIm, Orv32f* dstRe, Orv32f* dstIm,
                              const OrvsFFTSpec_C_32f* spec, Orv8u* buffer)
{
    return transform_split<Direction::forward>(srcRe, srcIm, dstRe, dstIm, spec, buffer);
}
OrvStatus orvsFFTFwd_CToC_32f_I(Orv32f* srcDstRe, Orv32f* srcDstIm, const OrvsFFTSpec_C_32f* spec, Orv8u* buffer)
{
    return orvsFFTFwd_CToC_32f(srcDstRe, srcDstIm, srcDstRe, srcDstIm, spec, buffer);
}
OrvStatus orvsFFTFwd_CToC_64fc(const Orv64fc* src, Orv64fc* dst, const OrvsFFTSpec_C_64fc* spec, Orv8u* buffer)
{
    return transform_interleaved<Direction::forward, Orv64f>(src, dst, spec, buffer);
}
OrvStatus orvsFFTFwd_CToC_64fc_I(Orv64fc* srcDst, const OrvsFFTSpec_C_64fc* spec, Orv8u* buffer)
{
    return orvsFFTFwd_CToC_64fc(srcDst, srcDst, spec, buffer);
}
OrvStatus orvsFFTFwd_CToC_64f(const Orv64f* srcRe, const Orv64f* srcIm, Orv64f* dstRe, Orv64f* dstIm,
                              const OrvsFFTSpec_C_64f* spec, Orv8u* buffer)
{
    return transform_split<Direction::forward>(srcRe, srcIm, dstRe, dstIm, spec, buffer);
}
OrvStatus orvsFFTFwd_CToC_64f_I(Orv64f* srcDstRe, Orv64f* srcDstIm, const OrvsFFTSpec_C_64f* spec, Orv8u* buffer)
{
    return orvsFFTFwd_CToC_64f(srcDstRe, srcDstIm, srcDstRe, srcDstIm, spec, buffer);
}

// ---- Inverse

OrvStatus orvsFFTInv_CToC_32fc(const Orv32fc* src, Orv32fc* dst, const OrvsFFTSpec_C_32fc* spec, Orv8u* buffer)
{
    return transform_interleaved<Direction::inverse, Orv32f>(src, dst, spec, buffer);
}
OrvStatus orvsFFTInv_CToC_32fc_I(Orv32fc* srcDst, const OrvsFFTSpec_C_32fc* spec, Orv8u* buffer)
{
    return orvsFFTInv_CToC_32fc(srcDst, srcDst, spec, buffer);
}
OrvStatus orvsFFTInv_CToC_32f(const Orv32f* srcRe, const Orv32f* srcIm, Orv32f* dstRe, Orv32f* dstIm,
                              const OrvsFFTSpec_C_32f* spec, Orv8u* buffer)
{
    return transform_split<Direction::inverse>(srcRe, srcIm, dstRe, dstIm, spec, buffer);
}
OrvStatus orvsFFTInv_CToC_32f_I(Orv32f* srcDstRe, Orv32f* srcDstIm, const OrvsFFTSpec_C_32f* spec, Orv8u* buffer)
{
    return orvsFFTInv_CToC_32f(srcDstRe, srcDstIm, srcDstRe, srcDstIm, spec, buffer);
}
OrvStatus orvsFFTInv_CToC_64fc(const Orv64fc* src, Orv64fc* dst, const OrvsFFTSpec_C_64fc* spec, Orv8u* buffer)
{
    return transform_interleaved<Direction::inverse, Orv64f>(src, dst, spec, buffer);
}
OrvStatus orvsFFTInv_CToC_64fc_I(Orv64fc* srcDst, const OrvsFFTSpec_C_64fc* spec, Orv8u* buffer)
{
    return orvsFFTInv_CToC_64fc(srcDst, srcDst, spec, buffer);
}
OrvStatus orvsFFTInv_CToC_64f(const Orv64f* srcRe, const Orv64f* srcIm, Orv64f* dstRe, Orv64f* dstIm,
                              const OrvsFFTSpec_C_64f* spec, Orv8u* buffer)
{
    return transform_split<Direction::inverse>(srcRe, srcIm, dstRe, dstIm, spec, buffer);
}
OrvStatus orvsFFTInv_CToC_64f_I(Orv64f* srcDstRe, Orv64f* srcDstIm, const OrvsFFTSpec_C_64f* spec, Orv8u* buffer)
{
    return orvsFFTInv_CToC_64f(srcDstRe, srcDstIm, srcDstRe, srcDstIm, spec, buffer);
}
