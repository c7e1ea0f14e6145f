/* Transforms: the fast Fourier transform of complex and of real signals whose length is a power of two.
 *
 * A transform runs on a spec: tables that are computed once for one length, which is N = 2^order. A caller either has
 * one allocated,
 *
 *     OrvsFFTSpec_R_32f* spec;
 *     Orv32f frame[1024], spectrum[1026];
 *     orvsFFTInitAlloc_R_32f(&spec, 10, ORV_FFT_SCALE_INV, ORV_HINT_ANY);
 *     orvsFFTFwd_RToCCS_32f(frame, spectrum, spec, 0);     // X[k] = (spectrum[2 * k], spectrum[2 * k + 1]), k = 0 ... 512
 *     orvsFFTFree_R_32f(spec);
 *
 * or provides all memory: GetSize tells how much, Init builds the spec in it, and each call of a transform gets a work
 * buffer of the size that GetSize or GetBufSize reports.
 *
 * The transforms, with i the imaginary unit:
 *
 *     forward   X[k] = f * sum over n of x[n] * exp(-2 * pi * i * n * k / N)
 *     inverse   x[n] = f * sum over k of X[k] * exp(+2 * pi * i * n * k / N)
 *
 * where f is what the flag given to Init asks for.
 *
 * Common to the whole header: arrays, spec memory and buffers have any alignment (a destination at a multiple of 32
 * bytes is the fastest); source and destination coincide exactly or do not overlap, and a source that is not the
 * destination is left as it is. Results depend on the data, the length and the flag only: not on alignment, nor on
 * whether the transform works in place, nor on who provides the buffer. Transforms round as the caller's floating-point
 * state says; specs are the same in every state. Infinities and not-a-numbers spread as arithmetic makes them.
 *
 * A built spec is only read, so threads may share it; each needs a work buffer of its own. Everything runs on the
 * calling thread. Memory is allocated by InitAlloc, and by a transform that needs a buffer and is given none.
 *
 * Accuracy: the relative root-mean-square error of a transform grows with the square root of order; docs/accuracy.md
 * has the figures.
 *
 * Literature: J. W. Cooley, J. W. Tukey, "An algorithm for the machine calculation of complex Fourier series" (1965);
 * D. H. Bailey, "FFTs in external or hierarchical memory" (1990); H. V. Sorensen, D. L. Jones, M. T. Heideman,
 * C. S. Burrus, "Real-valued fast Fourier transform algorithms" (1987). */
#ifndef ORVS_TRANSFORM_H
#define ORVS_TRANSFORM_H

#include "orvs/types.h"

/** What a transform multiplies its result by: the argument flag. No other value is accepted. */
enum {
    ORV_FFT_SCALE_FWD = 1,  /**< forward by 1 / N, inverse by 1 */
    ORV_FFT_SCALE_INV = 2,  /**< forward by 1, inverse by 1 / N */
    ORV_FFT_SCALE_SQRT = 4, /**< both by 1 / sqrt(N) */
    ORV_FFT_SCALE_NONE = 8  /**< both by 1: a forward transform and an inverse one give N times the signal */
};

/** What matters most. Floating-point transforms take any value and do the same for each. */
typedef enum {
    ORV_HINT_ANY = 0,
    ORV_HINT_SPEED = 1,
    ORV_HINT_PRECISION = 2
} OrvHintAlgorithm;

/* A spec type for each kind of transform: C complex, R real; fc complex elements, f real ones (in a C type, real and
 * imaginary parts in two arrays). A transform refuses a spec of another type. */
typedef struct OrvsFFTSpec_C_32fc OrvsFFTSpec_C_32fc;
typedef struct OrvsFFTSpec_C_32f OrvsFFTSpec_C_32f;
typedef struct OrvsFFTSpec_R_32f OrvsFFTSpec_R_32f;
typedef struct OrvsFFTSpec_C_64fc OrvsFFTSpec_C_64fc;
typedef struct OrvsFFTSpec_C_64f OrvsFFTSpec_C_64f;
typedef struct OrvsFFTSpec_R_64f OrvsFFTSpec_R_64f;

/* ---- Specs                                                                                transform/fft_spec.cpp */

/** @name FFTGetSize
 * Tells how many bytes a transform of length 2^order wants: *pSpecSize for the spec, *pInitSize for Init to work in and
 * *pWorkSize for each transform; 0 where nothing is needed. The sizes hold for memory of any alignment.
 * @param order of the length: at most 28 (C_32fc, C_32f, R_64f), 29 (R_32f) or 27 (C_64fc, C_64f)
 * @param flag  one of ORV_FFT_SCALE_...
 * @param hint  not looked at
 * @retval orvErrBadFftOrder order < 0 or > 30; and, as the last check, order above the type's maximum
 * @retval orvErrNullPointer a pointer is null
 * @retval orvErrBadFftFlag  flag is none of the four values
 * @{ */
ORVAPI(OrvStatus, orvsFFTGetSize_C_32fc, (int order, int flag, OrvHintAlgorithm hint, Orv32s* pSpecSize,
                                          Orv32s* pInitSize, Orv32s* pWorkSize))
ORVAPI(OrvStatus, orvsFFTGetSize_C_32f,  (int order, int flag, OrvHintAlgorithm hint, Orv32s* pSpecSize,
                                          Orv32s* pInitSize, Orv32s* pWorkSize))
ORVAPI(OrvStatus, orvsFFTGetSize_R_32f,  (int order, int flag, OrvHintAlgorithm hint, Orv32s* pSpecSize,
                                          Orv32s* pInitSize, Orv32s* pWorkSize))
ORVAPI(OrvStatus, orvsFFTGetSize_C_64fc, (int order, int flag, OrvHintAlgorithm hint, Orv32s* pSpecSize,
                                          Orv32s* pInitSize, Orv32s* pWorkSize))
ORVAPI(OrvStatus, orvsFFTGetSize_C_64f,  (int order, int flag, OrvHintAlgorithm hint, Orv32s* pSpecSize,
                                          Orv32s* pInitSize, Orv32s* pWorkSize))
ORVAPI(OrvStatus, orvsFFTGetSize_R_64f,  (int order, int flag, OrvHintAlgorithm hint, Orv32s* pSpecSize,
                                          Orv32s* pInitSize, Orv32s* pWorkSize))
/** @} */

/** @name FFTInit
 * Builds a spec in specMem, of the size that GetSize told, and stores its address, which lies inside specMem, in
 * *ppSpec. initBuf, of the size that GetSize told, is free afterwards; it may be null where that size is 0. The spec is
 * valid for as long as specMem is, and must not be moved.
 * @retval orvErrNullPointer ppSpec is null
 * @retval orvErrBadFftOrder order < 0 or above the type's maximum
 * @retval orvErrNullPointer specMem is null
 * @retval orvErrBadFftFlag  flag is none of the four values; specMem holds no valid spec then
 * @retval orvErrNullPointer initBuf is null and needed; specMem holds no valid spec then
 * @{ */
ORVAPI(OrvStatus, orvsFFTInit_C_32fc, (OrvsFFTSpec_C_32fc** ppSpec, int order, int flag, OrvHintAlgorithm hint,
                                       Orv8u* specMem, Orv8u* initBuf))
ORVAPI(OrvStatus, orvsFFTInit_C_32f,  (OrvsFFTSpec_C_32f** ppSpec, int order, int flag, OrvHintAlgorithm hint,
                                       Orv8u* specMem, Orv8u* initBuf))
ORVAPI(OrvStatus, orvsFFTInit_R_32f,  (OrvsFFTSpec_R_32f** ppSpec, int order, int flag, OrvHintAlgorithm hint,
                                       Orv8u* specMem, Orv8u* initBuf))
ORVAPI(OrvStatus, orvsFFTInit_C_64fc, (OrvsFFTSpec_C_64fc** ppSpec, int order, int flag, OrvHintAlgorithm hint,
                                       Orv8u* specMem, Orv8u* initBuf))
ORVAPI(OrvStatus, orvsFFTInit_C_64f,  (OrvsFFTSpec_C_64f** ppSpec, int order, int flag, OrvHintAlgorithm hint,
                                       Orv8u* specMem, Orv8u* initBuf))
ORVAPI(OrvStatus, orvsFFTInit_R_64f,  (OrvsFFTSpec_R_64f** ppSpec, int order, int flag, OrvHintAlgorithm hint,
                                       Orv8u* specMem, Orv8u* initBuf))
/** @} */

/** @name FFTInitAlloc
 * Allocates a spec, builds it and stores its address in *ppSpec. It goes back through Free.
 * @retval orvErrNullPointer ppSpec is null
 * @retval orvErrBadFftOrder order < 0 or > 30
 * @retval orvErrBadFftFlag  flag is none of the four values
 * @retval orvErrBadFftOrder order above the type's maximum
 * @retval orvErrNoMemory    an allocation failed; nothing stays allocated
 * @{ */
ORVAPI(OrvStatus, orvsFFTInitAlloc_C_32fc, (OrvsFFTSpec_C_32fc** ppSpec, int order, int flag, OrvHintAlgorithm hint))
ORVAPI(OrvStatus, orvsFFTInitAlloc_C_32f,  (OrvsFFTSpec_C_32f** ppSpec, int order, int flag, OrvHintAlgorithm hint))
ORVAPI(OrvStatus, orvsFFTInitAlloc_R_32f,  (OrvsFFTSpec_R_32f** ppSpec, int order, int flag, OrvHintAlgorithm hint))
ORVAPI(OrvStatus, orvsFFTInitAlloc_C_64fc, (OrvsFFTSpec_C_64fc** ppSpec, int order, int flag, OrvHintAlgorithm hint))
ORVAPI(OrvStatus, orvsFFTInitAlloc_C_64f,  (OrvsFFTSpec_C_64f** ppSpec, int order, int flag, OrvHintAlgorithm hint))
ORVAPI(OrvStatus, orvsFFTInitAlloc_R_64f,  (OrvsFFTSpec_R_64f** ppSpec, int order, int flag, OrvHintAlgorithm hint))
/** @} */

/** @name FFTFree
 * Ends the life of a spec: every later use of it, while its memory exists, is refused with orvErrWrongContext. The
 * memory of a spec that InitAlloc made is given back; that of another one belongs to the caller.
 * @retval orvErrNullPointer spec is null
 * @retval orvErrWrongContext spec is of another type, or was freed
 * @{ */
ORVAPI(OrvStatus, orvsFFTFree_C_32fc, (OrvsFFTSpec_C_32fc* spec))
ORVAPI(OrvStatus, orvsFFTFree_C_32f,  (OrvsFFTSpec_C_32f* spec))
ORVAPI(OrvStatus, orvsFFTFree_R_32f,  (OrvsFFTSpec_R_32f* spec))
ORVAPI(OrvStatus, orvsFFTFree_C_64fc, (OrvsFFTSpec_C_64fc* spec))
ORVAPI(OrvStatus, orvsFFTFree_C_64f,  (OrvsFFTSpec_C_64f* spec))
ORVAPI(OrvStatus, orvsFFTFree_R_64f,  (OrvsFFTSpec_R_64f* spec))
/** @} */

/** @name FFTGetBufSize
 * Tells the size in bytes of the work buffer that a transform on this spec asks for: 0 if it needs none.
 * @retval orvErrNullPointer spec or pSize is null
 * @retval orvErrWrongContext spec is of another type, or was freed
 * @{ */
ORVAPI(OrvStatus, orvsFFTGetBufSize_C_32fc, (const OrvsFFTSpec_C_32fc* spec, Orv32s* pSize))
ORVAPI(OrvStatus, orvsFFTGetBufSize_C_32f,  (const OrvsFFTSpec_C_32f* spec, Orv32s* pSize))
ORVAPI(OrvStatus, orvsFFTGetBufSize_R_32f,  (const OrvsFFTSpec_R_32f* spec, Orv32s* pSize))
ORVAPI(OrvStatus, orvsFFTGetBufSize_C_64fc, (const OrvsFFTSpec_C_64fc* spec, Orv32s* pSize))
ORVAPI(OrvStatus, orvsFFTGetBufSize_C_64f,  (const OrvsFFTSpec_C_64f* spec, Orv32s* pSize))
ORVAPI(OrvStatus, orvsFFTGetBufSize_R_64f,  (const OrvsFFTSpec_R_64f* spec, Orv32s* pSize))
/** @} */

/* ---- Complex signals                                                                  transform/fft_complex.cpp */

/** @name FFTFwd_CToC, FFTInv_CToC
 * The transform of N complex values. The fc forms take them as elements, the f forms with the real and the imaginary
 * parts in two arrays each; dstRe and dstIm coincide with srcRe and srcIm or lie apart from both.
 * @param buffer of the size that GetBufSize tells, or null: then the transform allocates one for its time, if it needs
 *               it (orders below 7 do not)
 * @retval orvErrNullPointer  spec is null
 * @retval orvErrWrongContext spec is of another type, or was freed
 * @retval orvErrNullPointer  an array is null
 * @retval orvErrNoMemory     buffer is null, and no memory could be allocated; dst is as it was
 * @{ */
ORVAPI(OrvStatus, orvsFFTFwd_CToC_32fc,   (const Orv32fc* src, Orv32fc* dst, const OrvsFFTSpec_C_32fc* spec, Orv8u* buffer))
ORVAPI(OrvStatus, orvsFFTFwd_CToC_32fc_I, (Orv32fc* srcDst, const OrvsFFTSpec_C_32fc* spec, Orv8u* buffer))
ORVAPI(OrvStatus, orvsFFTFwd_CToC_32f,    (const Orv32f* srcRe, const Orv32f* srcIm, Orv32f* dstRe, Orv32f* dstIm,
                                           const OrvsFFTSpec_C_32f* spec, Orv8u* buffer))
ORVAPI(OrvStatus, orvsFFTFwd_CToC_32f_I,  (Orv32f* srcDstRe, Orv32f* srcDstIm, const OrvsFFTSpec_C_32f* spec, Orv8u* buffer))
ORVAPI(OrvStatus, orvsFFTFwd_CToC_64fc,   (const Orv64fc* src, Orv64fc* dst, const OrvsFFTSpec_C_64fc* spec, Orv8u* buffer))
ORVAPI(OrvStatus, orvsFFTFwd_CToC_64fc_I, (Orv64fc* srcDst, const OrvsFFTSpec_C_64fc* spec, Orv8u* buffer))
ORVAPI(OrvStatus, orvsFFTFwd_CToC_64f,    (const Orv64f* srcRe, const Orv64f* srcIm, Orv64f* dstRe, Orv64f* dstIm,
                                           const OrvsFFTSpec_C_64f* spec, Orv8u* buffer))
ORVAPI(OrvStatus, orvsFFTFwd_CToC_64f_I,  (Orv64f* srcDstRe, Orv64f* srcDstIm, const OrvsFFTSpec_C_64f* spec, Orv8u* buffer))
ORVAPI(OrvStatus, orvsFFTInv_CToC_32fc,   (const Orv32fc* src, Orv32fc* dst, const OrvsFFTSpec_C_32fc* spec, Orv8u* buffer))
ORVAPI(OrvStatus, orvsFFTInv_CToC_32fc_I, (Orv32fc* srcDst, const OrvsFFTSpec_C_32fc* spec, Orv8u* buffer))
ORVAPI(OrvStatus, orvsFFTInv_CToC_32f,    (const Orv32f* srcRe, const Orv32f* srcIm, Orv32f* dstRe, Orv32f* dstIm,
                                           const OrvsFFTSpec_C_32f* spec, Orv8u* buffer))
ORVAPI(OrvStatus, orvsFFTInv_CToC_32f_I,  (Orv32f* srcDstRe, Orv32f* srcDstIm, const OrvsFFTSpec_C_32f* spec, Orv8u* buffer))
ORVAPI(OrvStatus, orvsFFTInv_CToC_64fc,   (const Orv64fc* src, Orv64fc* dst, const OrvsFFTSpec_C_64fc* spec, Orv8u* buffer))
ORVAPI(OrvStatus, orvsFFTInv_CToC_64fc_I, (Orv64fc* srcDst, const OrvsFFTSpec_C_64fc* spec, Orv8u* buffer))
ORVAPI(OrvStatus, orvsFFTInv_CToC_64f,    (const Orv64f* srcRe, const Orv64f* srcIm, Orv64f* dstRe, Orv64f* dstIm,
                                           const OrvsFFTSpec_C_64f* spec, Orv8u* buffer))
ORVAPI(OrvStatus, orvsFFTInv_CToC_64f_I,  (Orv64f* srcDstRe, Orv64f* srcDstIm, const OrvsFFTSpec_C_64f* spec, Orv8u* buffer))
/** @} */

/* ---- Real signals                                                                        transform/fft_real.cpp */

/** @name FFTFwd_RToPerm, FFTFwd_RToPack, FFTFwd_RToCCS, FFTInv_PermToR, FFTInv_PackToR, FFTInv_CCSToR
 * The transform of N real values to the half of the spectrum that determines it, since X[N - k] is the conjugate of
 * X[k], and back. With R[k] and I[k] for the parts of X[k], the layouts are
 *
 *     Perm   R[0], R[N/2], R[1], I[1], R[2], I[2], ..., R[N/2-1], I[N/2-1]         N elements
 *     Pack   R[0], R[1], I[1], R[2], I[2], ..., R[N/2-1], I[N/2-1], R[N/2]         N elements
 *     CCS    R[0], 0, R[1], I[1], R[2], I[2], ..., R[N/2-1], I[N/2-1], R[N/2], 0   N + 2 elements
 *
 * where a transform of N = 1 has R[0] alone (CCS: R[0], 0). Perm is the fastest, then CCS. The inverse does not look at
 * the two imaginary parts that are 0. In place, the array of a CCS form holds N + 2 elements.
 * @param buffer of the size that GetBufSize tells, or null: then the transform allocates one for its time, if it needs
 *               it (orders below 8 do not)
 * @retval orvErrNullPointer  spec is null
 * @retval orvErrWrongContext spec is of another type, or was freed
 * @retval orvErrNullPointer  an array is null
 * @retval orvErrNoMemory     buffer is null, and no memory could be allocated; dst is as it was
 * @{ */
ORVAPI(OrvStatus, orvsFFTFwd_RToPerm_32f,   (const Orv32f* src, Orv32f* dst, const OrvsFFTSpec_R_32f* spec, Orv8u* buffer))
ORVAPI(OrvStatus, orvsFFTFwd_RToPerm_32f_I, (Orv32f* srcDst, const OrvsFFTSpec_R_32f* spec, Orv8u* buffer))
ORVAPI(OrvStatus, orvsFFTFwd_RToPack_32f,   (const Orv32f* src, Orv32f* dst, const OrvsFFTSpec_R_32f* spec, Orv8u* buffer))
ORVAPI(OrvStatus, orvsFFTFwd_RToPack_32f_I, (Orv32f* srcDst, const OrvsFFTSpec_R_32f* spec, Orv8u* buffer))
ORVAPI(OrvStatus, orvsFFTFwd_RToCCS_32f,    (const Orv32f* src, Orv32f* dst, const OrvsFFTSpec_R_32f* spec, Orv8u* buffer))
ORVAPI(OrvStatus, orvsFFTFwd_RToCCS_32f_I,  (Orv32f* srcDst, const OrvsFFTSpec_R_32f* spec, Orv8u* buffer))
ORVAPI(OrvStatus, orvsFFTFwd_RToPerm_64f,   (const Orv64f* src, Orv64f* dst, const OrvsFFTSpec_R_64f* spec, Orv8u* buffer))
ORVAPI(OrvStatus, orvsFFTFwd_RToPerm_64f_I, (Orv64f* srcDst, const OrvsFFTSpec_R_64f* spec, Orv8u* buffer))
ORVAPI(OrvStatus, orvsFFTFwd_RToPack_64f,   (const Orv64f* src, Orv64f* dst, const OrvsFFTSpec_R_64f* spec, Orv8u* buffer))
ORVAPI(OrvStatus, orvsFFTFwd_RToPack_64f_I, (Orv64f* srcDst, const OrvsFFTSpec_R_64f* spec, Orv8u* buffer))
ORVAPI(OrvStatus, orvsFFTFwd_RToCCS_64f,    (const Orv64f* src, Orv64f* dst, const OrvsFFTSpec_R_64f* spec, Orv8u* buffer))
ORVAPI(OrvStatus, orvsFFTFwd_RToCCS_64f_I,  (Orv64f* srcDst, const OrvsFFTSpec_R_64f* spec, Orv8u* buffer))
ORVAPI(OrvStatus, orvsFFTInv_PermToR_32f,   (const Orv32f* src, Orv32f* dst, const OrvsFFTSpec_R_32f* spec, Orv8u* buffer))
ORVAPI(OrvStatus, orvsFFTInv_PermToR_32f_I, (Orv32f* srcDst, const OrvsFFTSpec_R_32f* spec, Orv8u* buffer))
ORVAPI(OrvStatus, orvsFFTInv_PackToR_32f,   (const Orv32f* src, Orv32f* dst, const OrvsFFTSpec_R_32f* spec, Orv8u* buffer))
ORVAPI(OrvStatus, orvsFFTInv_PackToR_32f_I, (Orv32f* srcDst, const OrvsFFTSpec_R_32f* spec, Orv8u* buffer))
ORVAPI(OrvStatus, orvsFFTInv_CCSToR_32f,    (const Orv32f* src, Orv32f* dst, const OrvsFFTSpec_R_32f* spec, Orv8u* buffer))
ORVAPI(OrvStatus, orvsFFTInv_CCSToR_32f_I,  (Orv32f* srcDst, const OrvsFFTSpec_R_32f* spec, Orv8u* buffer))
ORVAPI(OrvStatus, orvsFFTInv_PermToR_64f,   (const Orv64f* src, Orv64f* dst, const OrvsFFTSpec_R_64f* spec, Orv8u* buffer))
ORVAPI(OrvStatus, orvsFFTInv_PermToR_64f_I, (Orv64f* srcDst, const OrvsFFTSpec_R_64f* spec, Orv8u* buffer))
ORVAPI(OrvStatus, orvsFFTInv_PackToR_64f,   (const Orv64f* src, Orv64f* dst, const OrvsFFTSpec_R_64f* spec, Orv8u* buffer))
ORVAPI(OrvStatus, orvsFFTInv_PackToR_64f_I, (Orv64f* srcDst, const OrvsFFTSpec_R_64f* spec, Orv8u* buffer))
ORVAPI(OrvStatus, orvsFFTInv_CCSToR_64f,    (const Orv64f* src, Orv64f* dst, const OrvsFFTSpec_R_64f* spec, Orv8u* buffer))
ORVAPI(OrvStatus, orvsFFTInv_CCSToR_64f_I,  (Orv64f* srcDst, const OrvsFFTSpec_R_64f* spec, Orv8u* buffer))
/** @} */

#endif
