/* Element-wise arithmetic: sums, differences, products and quotients of vectors, of a vector and a scalar; sums of
 * products; products of packed spectra; squares, roots, magnitudes, exponentials, logarithms, arctangents; bitwise logic;
 * shifts.
 *
 *     Orv16s mix[480];
 *     orvsAdd_16s_Sfs(speech, noise, mix, 480, 1);     // mix[i] = (speech[i] + noise[i]) / 2, to nearest, ties to even
 *
 * The law of scale factors. A form with Sfs computes the exact result x of its operation and delivers x * 2^-scale,
 * rounded to nearest with ties to even, and saturated to the destination's type last; so scale > 0 divides and
 * scale < 0 multiplies. Every scale is accepted. Integer forms without Sfs saturate likewise, as with scale 0. Complex
 * integers saturate part by part. Integer results of integers do not depend on the caller's floating-point state;
 * floating forms follow IEEE 754 in it.
 *
 * Exp, Ln, 10Log10, SumLn, Cubrt and Arctan work in the standard state of IEEE 754 whatever the caller has set: their
 * results do not depend on it, no exception interrupts, and the control bits come back as they were; the work may leave
 * exception flags raised.
 *
 * Common to the whole header: arrays have any alignment; a source and the destination coincide exactly or do not
 * overlap; forms with I write over their last source, srcDst. Every function checks before it writes, has no state,
 * allocates nothing, and may be called from many threads on different data. Every function runs on the calling thread,
 * but those divisions and roots whose comment names a length from which a team of threads shares the work: as many as
 * orvSetNumThreads of orvs/core.h allows, two at most where nothing else is said.
 * Out-of-place results too large for the caches are stored past them.
 *
 *     orvErrNullPointer    a pointer is null
 *     orvErrBadLength      len < 1
 *
 * in this order, before all other checks; the complex forms of Add and Sub (16sc, 32sc, 32fc, 64fc) test the length first. */
#ifndef ORVS_ARITH_H
#define ORVS_ARITH_H

#include "orvs/types.h"

/* ---- Add                                                                                             arith/add.cpp */

/** @name Add
 * dst[i] = src1[i] + src2[i], or srcDst[i] + src[i]; with Sfs times 2^-scale, rounded and saturated.
 * 8u16u and 16s32f widen, and their results are exact.
 * @retval orvErrNullPointer a pointer is null
 * @retval orvErrBadLength   len < 1; for 16sc, 32sc, 32fc, 64fc this is the first check
 * @note A sum of 64s with scale >= 64 is 0, also where the exact quotient would round to 1 or -1.
 * @{ */
ORVAPI(OrvStatus, orvsAdd_8u_Sfs,    (const Orv8u* src1, const Orv8u* src2, Orv8u* dst, int len, int scale))
ORVAPI(OrvStatus, orvsAdd_8u_ISfs,   (const Orv8u* src, Orv8u* srcDst, int len, int scale))
ORVAPI(OrvStatus, orvsAdd_16u,       (const Orv16u* src1, const Orv16u* src2, Orv16u* dst, int len))
ORVAPI(OrvStatus, orvsAdd_16u_Sfs,   (const Orv16u* src1, const Orv16u* src2, Orv16u* dst, int len, int scale))
ORVAPI(OrvStatus, orvsAdd_16u_ISfs,  (const Orv16u* src, Orv16u* srcDst, int len, int scale))
ORVAPI(OrvStatus, orvsAdd_16s,       (const Orv16s* src1, const Orv16s* src2, Orv16s* dst, int len))
ORVAPI(OrvStatus, orvsAdd_16s_I,     (const Orv16s* src, Orv16s* srcDst, int len))
ORVAPI(OrvStatus, orvsAdd_16s_Sfs,   (const Orv16s* src1, const Orv16s* src2, Orv16s* dst, int len, int scale))
ORVAPI(OrvStatus, orvsAdd_16s_ISfs,  (const Orv16s* src, Orv16s* srcDst, int len, int scale))
ORVAPI(OrvStatus, orvsAdd_16sc_Sfs,  (const Orv16sc* src1, const Orv16sc* src2, Orv16sc* dst, int len, int scale))
ORVAPI(OrvStatus, orvsAdd_16sc_ISfs, (const Orv16sc* src, Orv16sc* srcDst, int len, int scale))
ORVAPI(OrvStatus, orvsAdd_32u,       (const Orv32u* src1, const Orv32u* src2, Orv32u* dst, int len))
ORVAPI(OrvStatus, orvsAdd_32s_Sfs,   (const Orv32s* src1, const Orv32s* src2, Orv32s* dst, int len, int scale))
ORVAPI(OrvStatus, orvsAdd_32s_ISfs,  (const Orv32s* src, Orv32s* srcDst, int len, int scale))
ORVAPI(OrvStatus, orvsAdd_32sc_Sfs,  (const Orv32sc* src1, const Orv32sc* src2, Orv32sc* dst, int len, int scale))
ORVAPI(OrvStatus, orvsAdd_32sc_ISfs, (const Orv32sc* src, Orv32sc* srcDst, int len, int scale))
ORVAPI(OrvStatus, orvsAdd_64s_Sfs,   (const Orv64s* src1, const Orv64s* src2, Orv64s* dst, int len, int scale))
ORVAPI(OrvStatus, orvsAdd_32f,       (const Orv32f* src1, const Orv32f* src2, Orv32f* dst, int len))
ORVAPI(OrvStatus, orvsAdd_32f_I,     (const Orv32f* src, Orv32f* srcDst, int len))
ORVAPI(OrvStatus, orvsAdd_32fc,      (const Orv32fc* src1, const Orv32fc* src2, Orv32fc* dst, int len))
ORVAPI(OrvStatus, orvsAdd_32fc_I,    (const Orv32fc* src, Orv32fc* srcDst, int len))
ORVAPI(OrvStatus, orvsAdd_64f,       (const Orv64f* src1, const Orv64f* src2, Orv64f* dst, int len))
ORVAPI(OrvStatus, orvsAdd_64f_I,     (const Orv64f* src, Orv64f* srcDst, int len))
ORVAPI(OrvStatus, orvsAdd_64fc,      (const Orv64fc* src1, const Orv64fc* src2, Orv64fc* dst, int len))
ORVAPI(OrvStatus, orvsAdd_64fc_I,    (const Orv64fc* src, Orv64fc* srcDst, int len))
ORVAPI(OrvStatus, orvsAdd_8u16u,     (const Orv8u* src1, const Orv8u* src2, Orv16u* dst, int len))
ORVAPI(OrvStatus, orvsAdd_16s32f,    (const Orv16s* src1, const Orv16s* src2, Orv32f* dst, int len))
ORVAPI(OrvStatus, orvsAdd_16s32s_I,  (const Orv16s* src, Orv32s* srcDst, int len))
/** @} */

/* ---- Sub                                                                                             arith/sub.cpp */

/** @name Sub
 * dst[i] = src2[i] - src1[i]: the first operand is subtracted from the second; in place srcDst[i] - src[i].
 * With Sfs times 2^-scale, rounded and saturated; unsigned types saturate at 0.
 * @retval orvErrNullPointer a pointer is null
 * @retval orvErrBadLength   len < 1; for 16sc, 32sc, 32fc, 64fc this is the first check
 * @{ */
ORVAPI(OrvStatus, orvsSub_8u_Sfs,    (const Orv8u* src1, const Orv8u* src2, Orv8u* dst, int len, int scale))
ORVAPI(OrvStatus, orvsSub_8u_ISfs,   (const Orv8u* src, Orv8u* srcDst, int len, int scale))
ORVAPI(OrvStatus, orvsSub_16u_Sfs,   (const Orv16u* src1, const Orv16u* src2, Orv16u* dst, int len, int scale))
ORVAPI(OrvStatus, orvsSub_16u_ISfs,  (const Orv16u* src, Orv16u* srcDst, int len, int scale))
ORVAPI(OrvStatus, orvsSub_16s,       (const Orv16s* src1, const Orv16s* src2, Orv16s* dst, int len))
ORVAPI(OrvStatus, orvsSub_16s_I,     (const Orv16s* src, Orv16s* srcDst, int len))
ORVAPI(OrvStatus, orvsSub_16s_Sfs,   (const Orv16s* src1, const Orv16s* src2, Orv16s* dst, int len, int scale))
ORVAPI(OrvStatus, orvsSub_16s_ISfs,  (const Orv16s* src, Orv16s* srcDst, int len, int scale))
ORVAPI(OrvStatus, orvsSub_16sc_Sfs,  (const Orv16sc* src1, const Orv16sc* src2, Orv16sc* dst, int len, int scale))
ORVAPI(OrvStatus, orvsSub_16sc_ISfs, (const Orv16sc* src, Orv16sc* srcDst, int len, int scale))
ORVAPI(OrvStatus, orvsSub_32s_Sfs,   (const Orv32s* src1, const Orv32s* src2, Orv32s* dst, int len, int scale))
ORVAPI(OrvStatus, orvsSub_32s_ISfs,  (const Orv32s* src, Orv32s* srcDst, int len, int scale))
ORVAPI(OrvStatus, orvsSub_32sc_Sfs,  (const Orv32sc* src1, const Orv32sc* src2, Orv32sc* dst, int len, int scale))
ORVAPI(OrvStatus, orvsSub_32sc_ISfs, (const Orv32sc* src, Orv32sc* srcDst, int len, int scale))
ORVAPI(OrvStatus, orvsSub_32f,       (const Orv32f* src1, const Orv32f* src2, Orv32f* dst, int len))
ORVAPI(OrvStatus, orvsSub_32f_I,     (const Orv32f* src, Orv32f* srcDst, int len))
ORVAPI(OrvStatus, orvsSub_32fc,      (const Orv32fc* src1, const Orv32fc* src2, Orv32fc* dst, int len))
ORVAPI(OrvStatus, orvsSub_32fc_I,    (const Orv32fc* src, Orv32fc* srcDst, int len))
ORVAPI(OrvStatus, orvsSub_64f,       (const Orv64f* src1, const Orv64f* src2, Orv64f* dst, int len))
ORVAPI(OrvStatus, orvsSub_64f_I,     (const Orv64f* src, Orv64f* srcDst, int len))
ORVAPI(OrvStatus, orvsSub_64fc,      (const Orv64fc* src1, const Orv64fc* src2, Orv64fc* dst, int len))
ORVAPI(OrvStatus, orvsSub_64fc_I,    (const Orv64fc* src, Orv64fc* srcDst, int len))
ORVAPI(OrvStatus, orvsSub_16s32f,    (const Orv16s* src1, const Orv16s* src2, Orv32f* dst, int len))
/** @} */

/* ---- AddC                                                                                           arith/addc.cpp */

/** @name AddC
 * dst[i] = src[i] + val, or srcDst[i] + val; with Sfs times 2^-scale, rounded and saturated.
 * @retval orvErrNullPointer a pointer is null
 * @retval orvErrBadLength   len < 1
 * @note A sum of 8u with scale >= 9 is 0, although 510 / 512 would round to 1.
 * @note 64s and 64u round by rndMode: orvRndZero, orvRndNear, and any other value as orvRndFinancial. They refuse only
 *       len == 0; a negative len processes nothing and returns orvOk.
 * @{ */
ORVAPI(OrvStatus, orvsAddC_8u_Sfs,    (const Orv8u* src, Orv8u val, Orv8u* dst, int len, int scale))
ORVAPI(OrvStatus, orvsAddC_8u_ISfs,   (Orv8u val, Orv8u* srcDst, int len, int scale))
ORVAPI(OrvStatus, orvsAddC_16u_Sfs,   (const Orv16u* src, Orv16u val, Orv16u* dst, int len, int scale))
ORVAPI(OrvStatus, orvsAddC_16u_ISfs,  (Orv16u val, Orv16u* srcDst, int len, int scale))
ORVAPI(OrvStatus, orvsAddC_16s_I,     (Orv16s val, Orv16s* srcDst, int len))
ORVAPI(OrvStatus, orvsAddC_16s_Sfs,   (const Orv16s* src, Orv16s val, Orv16s* dst, int len, int scale))
ORVAPI(OrvStatus, orvsAddC_16s_ISfs,  (Orv16s val, Orv16s* srcDst, int len, int scale))
ORVAPI(OrvStatus, orvsAddC_16sc_Sfs,  (const Orv16sc* src, Orv16sc val, Orv16sc* dst, int len, int scale))
ORVAPI(OrvStatus, orvsAddC_16sc_ISfs, (Orv16sc val, Orv16sc* srcDst, int len, int scale))
ORVAPI(OrvStatus, orvsAddC_32s_Sfs,   (const Orv32s* src, Orv32s val, Orv32s* dst, int len, int scale))
ORVAPI(OrvStatus, orvsAddC_32s_ISfs,  (Orv32s val, Orv32s* srcDst, int len, int scale))
ORVAPI(OrvStatus, orvsAddC_32sc_Sfs,  (const Orv32sc* src, Orv32sc val, Orv32sc* dst, int len, int scale))
ORVAPI(OrvStatus, orvsAddC_32sc_ISfs, (Orv32sc val, Orv32sc* srcDst, int len, int scale))
ORVAPI(OrvStatus, orvsAddC_64u_Sfs,   (const Orv64u* src, Orv64u val, Orv64u* dst, int len, int scale, OrvRoundMode rndMode))
ORVAPI(OrvStatus, orvsAddC_64s_Sfs,   (const Orv64s* src, Orv64s val, Orv64s* dst, int len, int scale, OrvRoundMode rndMode))
ORVAPI(OrvStatus, orvsAddC_32f,       (const Orv32f* src, Orv32f val, Orv32f* dst, int len))
ORVAPI(OrvStatus, orvsAddC_32f_I,     (Orv32f val, Orv32f* srcDst, int len))
ORVAPI(OrvStatus, orvsAddC_32fc,      (const Orv32fc* src, Orv32fc val, Orv32fc* dst, int len))
ORVAPI(OrvStatus, orvsAddC_32fc_I,    (Orv32fc val, Orv32fc* srcDst, int len))
ORVAPI(OrvStatus, orvsAddC_64f,       (const Orv64f* src, Orv64f val, Orv64f* dst, int len))
ORVAPI(OrvStatus, orvsAddC_64f_I,     (Orv64f val, Orv64f* srcDst, int len))
ORVAPI(OrvStatus, orvsAddC_64fc,      (const Orv64fc* src, Orv64fc val, Orv64fc* dst, int len))
ORVAPI(OrvStatus, orvsAddC_64fc_I,    (Orv64fc val, Orv64fc* srcDst, int len))
/** @} */

/* ---- SubC                                                                                           arith/subc.cpp */

/** @name SubC
 * dst[i] = src[i] - val, or srcDst[i] - val; with Sfs times 2^-scale, rounded and saturated.
 * @retval orvErrNullPointer a pointer is null
 * @retval orvErrBadLength   len < 1
 * @{ */
ORVAPI(OrvStatus, orvsSubC_8u_Sfs,    (const Orv8u* src, Orv8u val, Orv8u* dst, int len, int scale))
ORVAPI(OrvStatus, orvsSubC_8u_ISfs,   (Orv8u val, Orv8u* srcDst, int len, int scale))
ORVAPI(OrvStatus, orvsSubC_16u_Sfs,   (const Orv16u* src, Orv16u val, Orv16u* dst, int len, int scale))
ORVAPI(OrvStatus, orvsSubC_16u_ISfs,  (Orv16u val, Orv16u* srcDst, int len, int scale))
ORVAPI(OrvStatus, orvsSubC_16s_I,     (Orv16s val, Orv16s* srcDst, int len))
ORVAPI(OrvStatus, orvsSubC_16s_Sfs,   (const Orv16s* src, Orv16s val, Orv16s* dst, int len, int scale))
ORVAPI(OrvStatus, orvsSubC_16s_ISfs,  (Orv16s val, Orv16s* srcDst, int len, int scale))
ORVAPI(OrvStatus, orvsSubC_16sc_Sfs,  (const Orv16sc* src, Orv16sc val, Orv16sc* dst, int len, int scale))
ORVAPI(OrvStatus, orvsSubC_16sc_ISfs, (Orv16sc val, Orv16sc* srcDst, int len, int scale))
ORVAPI(OrvStatus, orvsSubC_32s_Sfs,   (const Orv32s* src, Orv32s val, Orv32s* dst, int len, int scale))
ORVAPI(OrvStatus, orvsSubC_32s_ISfs,  (Orv32s val, Orv32s* srcDst, int len, int scale))
ORVAPI(OrvStatus, orvsSubC_32sc_Sfs,  (const Orv32sc* src, Orv32sc val, Orv32sc* dst, int len, int scale))
ORVAPI(OrvStatus, orvsSubC_32sc_ISfs, (Orv32sc val, Orv32sc* srcDst, int len, int scale))
ORVAPI(OrvStatus, orvsSubC_32f,       (const Orv32f* src, Orv32f val, Orv32f* dst, int len))
ORVAPI(OrvStatus, orvsSubC_32f_I,     (Orv32f val, Orv32f* srcDst, int len))
ORVAPI(OrvStatus, orvsSubC_32fc,      (const Orv32fc* src, Orv32fc val, Orv32fc* dst, int len))
ORVAPI(OrvStatus, orvsSubC_32fc_I,    (Orv32fc val, Orv32fc* srcDst, int len))
ORVAPI(OrvStatus, orvsSubC_64f,       (const Orv64f* src, Orv64f val, Orv64f* dst, int len))
ORVAPI(OrvStatus, orvsSubC_64f_I,     (Orv64f val, Orv64f* srcDst, int len))
ORVAPI(OrvStatus, orvsSubC_64fc,      (const Orv64fc* src, Orv64fc val, Orv64fc* dst, int len))
ORVAPI(OrvStatus, orvsSubC_64fc_I,    (Orv64fc val, Orv64fc* srcDst, int len))
/** @} */

/* ---- SubCRev                                                                                        arith/subc.cpp */

/** @name SubCRev
 * dst[i] = val - src[i], or val - srcDst[i]; with Sfs times 2^-scale, rounded and saturated.
 * @retval orvErrNullPointer a pointer is null
 * @retval orvErrBadLength   len < 1
 * @{ */
ORVAPI(OrvStatus, orvsSubCRev_8u_Sfs,    (const Orv8u* src, Orv8u val, Orv8u* dst, int len, int scale))
ORVAPI(OrvStatus, orvsSubCRev_8u_ISfs,   (Orv8u val, Orv8u* srcDst, int len, int scale))
ORVAPI(OrvStatus, orvsSubCRev_16u_Sfs,   (const Orv16u* src, Orv16u val, Orv16u* dst, int len, int scale))
ORVAPI(OrvStatus, orvsSubCRev_16u_ISfs,  (Orv16u val, Orv16u* srcDst, int len, int scale))
ORVAPI(OrvStatus, orvsSubCRev_16s_Sfs,   (const Orv16s* src, Orv16s val, Orv16s* dst, int len, int scale))
ORVAPI(OrvStatus, orvsSubCRev_16s_ISfs,  (Orv16s val, Orv16s* srcDst, int len, int scale))
ORVAPI(OrvStatus, orvsSubCRev_16sc_Sfs,  (const Orv16sc* src, Orv16sc val, Orv16sc* dst, int len, int scale))
ORVAPI(OrvStatus, orvsSubCRev_16sc_ISfs, (Orv16sc val, Orv16sc* srcDst, int len, int scale))
ORVAPI(OrvStatus, orvsSubCRev_32s_Sfs,   (const Orv32s* src, Orv32s val, Orv32s* dst, int len, int scale))
ORVAPI(OrvStatus, orvsSubCRev_32s_ISfs,  (Orv32s val, Orv32s* srcDst, int len, int scale))
ORVAPI(OrvStatus, orvsSubCRev_32sc_Sfs,  (const Orv32sc* src, Orv32sc val, Orv32sc* dst, int len, int scale))
ORVAPI(OrvStatus, orvsSubCRev_32sc_ISfs, (Orv32sc val, Orv32sc* srcDst, int len, int scale))
ORVAPI(OrvStatus, orvsSubCRev_32f,       (const Orv32f* src, Orv32f val, Orv32f* dst, int len))
ORVAPI(OrvStatus, orvsSubCRev_32f_I,     (Orv32f val, Orv32f* srcDst, int len))
ORVAPI(OrvStatus, orvsSubCRev_32fc,      (const Orv32fc* src, Orv32fc val, Orv32fc* dst, int len))
ORVAPI(OrvStatus, orvsSubCRev_32fc_I,    (Orv32fc val, Orv32fc* srcDst, int len))
ORVAPI(OrvStatus, orvsSubCRev_64f,       (const Orv64f* src, Orv64f val, Orv64f* dst, int len))
ORVAPI(OrvStatus, orvsSubCRev_64f_I,     (Orv64f val, Orv64f* srcDst, int len))
ORVAPI(OrvStatus, orvsSubCRev_64fc,      (const Orv64fc* src, Orv64fc val, Orv64fc* dst, int len))
ORVAPI(OrvStatus, orvsSubCRev_64fc_I,    (Orv64fc val, Orv64fc* srcDst, int len))
/** @} */

/* ---- AddProduct                                                                              arith/addproduct.cpp */

/** @name AddProduct
 * srcDst[i] = srcDst[i] + src1[i] * src2[i]. With Sfs the whole exact sum times 2^-scale, rounded and saturated.
 * Floating forms use fused multiply-add: 32f and 64f are fma(src1, src2, srcDst), rounded once; complex forms are
 *     re = fma(re1, re2, fma(-im1, im2, re)),    im = fma(re1, im2, fma(im1, re2, im)).
 * @retval orvErrNullPointer a pointer is null
 * @retval orvErrBadLength   len < 1
 * @note 32s with scale >= 63 gives 0, also where the exact quotient would round to 1.
 * @{ */
ORVAPI(OrvStatus, orvsAddProduct_16s_Sfs,    (const Orv16s* src1, const Orv16s* src2, Orv16s* srcDst, int len, int scale))
ORVAPI(OrvStatus, orvsAddProduct_32s_Sfs,    (const Orv32s* src1, const Orv32s* src2, Orv32s* srcDst, int len, int scale))
ORVAPI(OrvStatus, orvsAddProduct_32f,        (const Orv32f* src1, const Orv32f* src2, Orv32f* srcDst, int len))
ORVAPI(OrvStatus, orvsAddProduct_32fc,       (const Orv32fc* src1, const Orv32fc* src2, Orv32fc* srcDst, int len))
ORVAPI(OrvStatus, orvsAddProduct_64f,        (const Orv64f* src1, const Orv64f* src2, Orv64f* srcDst, int len))
ORVAPI(OrvStatus, orvsAddProduct_64fc,       (const Orv64fc* src1, const Orv64fc* src2, Orv64fc* srcDst, int len))
ORVAPI(OrvStatus, orvsAddProduct_16s32s_Sfs, (const Orv16s* src1, const Orv16s* src2, Orv32s* srcDst, int len, int scale))
/** @} */

/* ---- AddProductC                                                                             arith/addproduct.cpp */

/** @name AddProductC
 * srcDst[i] = fma(val, src[i], srcDst[i]): the sum of the vector and a scaled vector, rounded once.
 * @retval orvErrNullPointer a pointer is null
 * @retval orvErrBadLength   len < 1
 * @{ */
ORVAPI(OrvStatus, orvsAddProductC_32f, (const Orv32f* src, Orv32f val, Orv32f* srcDst, int len))
/** @} */

/* ---- Mul                                                                                             arith/mul.cpp */

/** @name Mul
 * dst[i] = src1[i] * src2[i], or srcDst[i] * src[i]; with Sfs times 2^-scale, rounded and saturated. Exact for every
 * operand: products of 32-bit values and sums of two products are formed in full before they are scaled.
 *
 * 8u16u and 16s32s widen; 16s32f rounds the exact product to Orv32f. 16u16s multiplies unsigned by signed values.
 * 32f32fc and 32s32sc multiply a real by a complex vector. Complex floats are a * b by two fused operations,
 * re = fma(a.re, b.re, -(a.im * b.im)) and im = fma(b.im, a.re, a.im * b.re), the inner product rounded first; a is
 * src1, or srcDst in place.
 * @retval orvErrNullPointer a pointer is null
 * @retval orvErrBadLength   len < 1
 * @note Low_32s allows a result that is less exact. Here it has none to offer that would be faster, and gives the same
 *       as 32s.
 * @{ */
ORVAPI(OrvStatus, orvsMul_8u_Sfs,       (const Orv8u* src1, const Orv8u* src2, Orv8u* dst, int len, int scale))
ORVAPI(OrvStatus, orvsMul_8u_ISfs,      (const Orv8u* src, Orv8u* srcDst, int len, int scale))
ORVAPI(OrvStatus, orvsMul_16u_Sfs,      (const Orv16u* src1, const Orv16u* src2, Orv16u* dst, int len, int scale))
ORVAPI(OrvStatus, orvsMul_16u_ISfs,     (const Orv16u* src, Orv16u* srcDst, int len, int scale))
ORVAPI(OrvStatus, orvsMul_16s,          (const Orv16s* src1, const Orv16s* src2, Orv16s* dst, int len))
ORVAPI(OrvStatus, orvsMul_16s_I,        (const Orv16s* src, Orv16s* srcDst, int len))
ORVAPI(OrvStatus, orvsMul_16s_Sfs,      (const Orv16s* src1, const Orv16s* src2, Orv16s* dst, int len, int scale))
ORVAPI(OrvStatus, orvsMul_16s_ISfs,     (const Orv16s* src, Orv16s* srcDst, int len, int scale))
ORVAPI(OrvStatus, orvsMul_16sc_Sfs,     (const Orv16sc* src1, const Orv16sc* src2, Orv16sc* dst, int len, int scale))
ORVAPI(OrvStatus, orvsMul_16sc_ISfs,    (const Orv16sc* src, Orv16sc* srcDst, int len, int scale))
ORVAPI(OrvStatus, orvsMul_32s_Sfs,      (const Orv32s* src1, const Orv32s* src2, Orv32s* dst, int len, int scale))
ORVAPI(OrvStatus, orvsMul_32s_ISfs,     (const Orv32s* src, Orv32s* srcDst, int len, int scale))
ORVAPI(OrvStatus, orvsMul_Low_32s_Sfs,  (const Orv32s* src1, const Orv32s* src2, Orv32s* dst, int len, int scale))
ORVAPI(OrvStatus, orvsMul_32sc_Sfs,     (const Orv32sc* src1, const Orv32sc* src2, Orv32sc* dst, int len, int scale))
ORVAPI(OrvStatus, orvsMul_32sc_ISfs,    (const Orv32sc* src, Orv32sc* srcDst, int len, int scale))
ORVAPI(OrvStatus, orvsMul_32f,          (const Orv32f* src1, const Orv32f* src2, Orv32f* dst, int len))
ORVAPI(OrvStatus, orvsMul_32f_I,        (const Orv32f* src, Orv32f* srcDst, int len))
ORVAPI(OrvStatus, orvsMul_32fc,         (const Orv32fc* src1, const Orv32fc* src2, Orv32fc* dst, int len))
ORVAPI(OrvStatus, orvsMul_32fc_I,       (const Orv32fc* src, Orv32fc* srcDst, int len))
ORVAPI(OrvStatus, orvsMul_64f,          (const Orv64f* src1, const Orv64f* src2, Orv64f* dst, int len))
ORVAPI(OrvStatus, orvsMul_64f_I,        (const Orv64f* src, Orv64f* srcDst, int len))
ORVAPI(OrvStatus, orvsMul_64fc,         (const Orv64fc* src1, const Orv64fc* src2, Orv64fc* dst, int len))
ORVAPI(OrvStatus, orvsMul_64fc_I,       (const Orv64fc* src, Orv64fc* srcDst, int len))
ORVAPI(OrvStatus, orvsMul_8u16u,        (const Orv8u* src1, const Orv8u* src2, Orv16u* dst, int len))
ORVAPI(OrvStatus, orvsMul_16s32f,       (const Orv16s* src1, const Orv16s* src2, Orv32f* dst, int len))
ORVAPI(OrvStatus, orvsMul_16s32s_Sfs,   (const Orv16s* src1, const Orv16s* src2, Orv32s* dst, int len, int scale))
ORVAPI(OrvStatus, orvsMul_16u16s_Sfs,   (const Orv16u* src1, const Orv16s* src2, Orv16s* dst, int len, int scale))
ORVAPI(OrvStatus, orvsMul_32s32sc_Sfs,  (const Orv32s* src1, const Orv32sc* src2, Orv32sc* dst, int len, int scale))
ORVAPI(OrvStatus, orvsMul_32s32sc_ISfs, (const Orv32s* src, Orv32sc* srcDst, int len, int scale))
ORVAPI(OrvStatus, orvsMul_32f32fc,      (const Orv32f* src1, const Orv32fc* src2, Orv32fc* dst, int len))
ORVAPI(OrvStatus, orvsMul_32f32fc_I,    (const Orv32f* src, Orv32fc* srcDst, int len))
/** @} */

/* ---- MulPack, MulPerm, MulPackConj                                                                arith/mulpack.cpp */

/** @name MulPack, MulPerm, MulPackConj
 * The product of two spectra of real signals in packed formats, value by value; in place srcDst * src. A spectrum of a
 * signal of len samples is kept in len elements, because its values at negative frequencies are conjugates:
 *
 * | format | len even                                   | len odd                        |
 * |--------|--------------------------------------------|--------------------------------|
 * | Pack   | R0, R1, I1, R2, I2 ..., R(len/2)           | R0, R1, I1, R2, I2 ...         |
 * | Perm   | R0, R(len/2), R1, I1, R2, I2 ...           | R0, R1, I1, R2, I2 ...         |
 *
 * R0 and R(len/2) are real and give plain products, the others complex ones, with the roundings of orvsMul_32fc and
 * orvsMul_64fc. MulPackConj multiplies srcDst by the conjugate of src: re = ar * br + ai * bi, im = ai * br - ar * bi for
 * srcDst = a, src = b, each with one fused step; that is the spectrum of a correlation. With Sfs times 2^-scale, as
 * orvsMul_16s_Sfs and orvsMul_16sc_Sfs. Where dst is one of the sources, it is the first factor.
 * @retval orvErrNullPointer a pointer is null
 * @retval orvErrBadLength   len < 1
 * @{ */
ORVAPI(OrvStatus, orvsMulPack_16s_Sfs,   (const Orv16s* src1, const Orv16s* src2, Orv16s* dst, int len, int scale))
ORVAPI(OrvStatus, orvsMulPack_16s_ISfs,  (const Orv16s* src, Orv16s* srcDst, int len, int scale))
ORVAPI(OrvStatus, orvsMulPack_32f,       (const Orv32f* src1, const Orv32f* src2, Orv32f* dst, int len))
ORVAPI(OrvStatus, orvsMulPack_32f_I,     (const Orv32f* src, Orv32f* srcDst, int len))
ORVAPI(OrvStatus, orvsMulPack_64f,       (const Orv64f* src1, const Orv64f* src2, Orv64f* dst, int len))
ORVAPI(OrvStatus, orvsMulPack_64f_I,     (const Orv64f* src, Orv64f* srcDst, int len))
ORVAPI(OrvStatus, orvsMulPerm_16s_Sfs,   (const Orv16s* src1, const Orv16s* src2, Orv16s* dst, int len, int scale))
ORVAPI(OrvStatus, orvsMulPerm_16s_ISfs,  (const Orv16s* src, Orv16s* srcDst, int len, int scale))
ORVAPI(OrvStatus, orvsMulPerm_32f,       (const Orv32f* src1, const Orv32f* src2, Orv32f* dst, int len))
ORVAPI(OrvStatus, orvsMulPerm_32f_I,     (const Orv32f* src, Orv32f* srcDst, int len))
ORVAPI(OrvStatus, orvsMulPerm_64f,       (const Orv64f* src1, const Orv64f* src2, Orv64f* dst, int len))
ORVAPI(OrvStatus, orvsMulPerm_64f_I,     (const Orv64f* src, Orv64f* srcDst, int len))
ORVAPI(OrvStatus, orvsMulPackConj_32f_I, (const Orv32f* src, Orv32f* srcDst, int len))
ORVAPI(OrvStatus, orvsMulPackConj_64f_I, (const Orv64f* src, Orv64f* srcDst, int len))
/** @} */

/* ---- MulC                                                                                           arith/mulc.cpp */

/** @name MulC
 * dst[i] = src[i] * val, or srcDst[i] * val; with Sfs times 2^-scale, rounded and saturated. Integer forms give zeros for
 * val = 0 at every scale. Complex floats are a * b as in Mul, a from src and b = val.
 *
 * 32f16s forms the exact product of two floats, which a double holds, and rounds once; the factor 2^-scale is built in
 * the exponent of an Orv32f, so scale belongs to -127 ... 126 and wraps beyond. A NaN gives -32768.
 * Low_32f16s rounds the product to Orv32f and then to an integer, both in the caller's rounding state.
 * 64f64s multiplies Orv64s values by an Orv64f; the exact product is rounded once. An infinite val gives the limits of
 * Orv64s by the sign of the product and keeps zeros; a NaN gives zeros.
 * @retval orvErrNullPointer a pointer is null
 * @retval orvErrBadLength   len < 1; 64s and 64f64s refuse only len == 0, and process nothing for a negative len
 * @{ */
ORVAPI(OrvStatus, orvsMulC_8u_Sfs,      (const Orv8u* src, Orv8u val, Orv8u* dst, int len, int scale))
ORVAPI(OrvStatus, orvsMulC_8u_ISfs,     (Orv8u val, Orv8u* srcDst, int len, int scale))
ORVAPI(OrvStatus, orvsMulC_16u_Sfs,     (const Orv16u* src, Orv16u val, Orv16u* dst, int len, int scale))
ORVAPI(OrvStatus, orvsMulC_16u_ISfs,    (Orv16u val, Orv16u* srcDst, int len, int scale))
ORVAPI(OrvStatus, orvsMulC_16s_I,       (Orv16s val, Orv16s* srcDst, int len))
ORVAPI(OrvStatus, orvsMulC_16s_Sfs,     (const Orv16s* src, Orv16s val, Orv16s* dst, int len, int scale))
ORVAPI(OrvStatus, orvsMulC_16s_ISfs,    (Orv16s val, Orv16s* srcDst, int len, int scale))
ORVAPI(OrvStatus, orvsMulC_16sc_Sfs,    (const Orv16sc* src, Orv16sc val, Orv16sc* dst, int len, int scale))
ORVAPI(OrvStatus, orvsMulC_16sc_ISfs,   (Orv16sc val, Orv16sc* srcDst, int len, int scale))
ORVAPI(OrvStatus, orvsMulC_32s_Sfs,     (const Orv32s* src, Orv32s val, Orv32s* dst, int len, int scale))
ORVAPI(OrvStatus, orvsMulC_32s_ISfs,    (Orv32s val, Orv32s* srcDst, int len, int scale))
ORVAPI(OrvStatus, orvsMulC_32sc_Sfs,    (const Orv32sc* src, Orv32sc val, Orv32sc* dst, int len, int scale))
ORVAPI(OrvStatus, orvsMulC_32sc_ISfs,   (Orv32sc val, Orv32sc* srcDst, int len, int scale))
ORVAPI(OrvStatus, orvsMulC_64s_ISfs,    (Orv64s val, Orv64s* srcDst, int len, int scale))
ORVAPI(OrvStatus, orvsMulC_32f,         (const Orv32f* src, Orv32f val, Orv32f* dst, int len))
ORVAPI(OrvStatus, orvsMulC_32f_I,       (Orv32f val, Orv32f* srcDst, int len))
ORVAPI(OrvStatus, orvsMulC_32fc,        (const Orv32fc* src, Orv32fc val, Orv32fc* dst, int len))
ORVAPI(OrvStatus, orvsMulC_32fc_I,      (Orv32fc val, Orv32fc* srcDst, int len))
ORVAPI(OrvStatus, orvsMulC_64f,         (const Orv64f* src, Orv64f val, Orv64f* dst, int len))
ORVAPI(OrvStatus, orvsMulC_64f_I,       (Orv64f val, Orv64f* srcDst, int len))
ORVAPI(OrvStatus, orvsMulC_64fc,        (const Orv64fc* src, Orv64fc val, Orv64fc* dst, int len))
ORVAPI(OrvStatus, orvsMulC_64fc_I,      (Orv64fc val, Orv64fc* srcDst, int len))
ORVAPI(OrvStatus, orvsMulC_32f16s_Sfs,  (const Orv32f* src, Orv32f val, Orv16s* dst, int len, int scale))
ORVAPI(OrvStatus, orvsMulC_Low_32f16s,  (const Orv32f* src, Orv32f val, Orv16s* dst, int len))
ORVAPI(OrvStatus, orvsMulC_64f64s_ISfs, (Orv64f val, Orv64s* srcDst, int len, int scale))
/** @} */

/* ---- Div                                                             arith/div.cpp (floats), arith/div_integers.cpp */

/** @name Div
 * dst[i] = src2[i] / src1[i]: the first operand is the divisor; in place srcDst[i] / src[i]. With Sfs times 2^-scale,
 * rounded and saturated: integer quotients are exact to the tie, whatever the scale. 32s16s divides 32-bit by 16-bit
 * values.
 *
 * An element divided by zero does not stop the vector; the status is then orvWrnDivByZero. Integers become the limit of
 * the type on the dividend's side, and 0 / 0 is 0; complex integers part by part. Floats become an infinity whose sign is
 * the product of the operands' signs, 0 / 0 a NaN, and a NaN stays; complex floats part by part, and the divisor's sign is
 * that of its real part.
 *
 * 32f is formed from the processor's estimate of the reciprocal and three fused steps, which leaves an error of 1 to 2
 * units in the last place, and needs divisors from 2^-126 to below 2^126 in magnitude: outside a quotient may be 0 or a
 * NaN. Divide in 64f where such divisors occur. 64f is the IEEE quotient.
 *
 * Complex floats are a * conj(b) / |b|^2 with fused products, within a few units in the last place of |a / b|, for every
 * finite b (64fc: no subnormal one). The parts of a belong to 2^-90 ... 2^90 (64fc: 2^-750 ... 2^750) in magnitude or are
 * 0; outside the result may lose digits or overflow.
 * @retval orvErrNullPointer a pointer is null
 * @retval orvErrBadLength   len < 1
 * @retval orvWrnDivByZero   a divisor is zero; the vector is complete
 * @note 16u with scale < -31 gives 65535 for every dividend over a divisor other than zero, also for the dividend 0. 16sc
 *       with scale > 64 is filled with zeros without a look at the divisors.
 * @note From 4096 elements of 32f, 256 of 16sc, and 1024 of the other types except 16u up, two threads share the work. To
 *       hand it over takes 1 to 2 us, and much more while the other processors are busy: it pays from some ten thousand
 *       elements on. A program that divides short vectors calls orvSetNumThreads(1).
 * @{ */
ORVAPI(OrvStatus, orvsDiv_8u_Sfs,     (const Orv8u* src1, const Orv8u* src2, Orv8u* dst, int len, int scale))
ORVAPI(OrvStatus, orvsDiv_8u_ISfs,    (const Orv8u* src, Orv8u* srcDst, int len, int scale))
ORVAPI(OrvStatus, orvsDiv_16u_Sfs,    (const Orv16u* src1, const Orv16u* src2, Orv16u* dst, int len, int scale))
ORVAPI(OrvStatus, orvsDiv_16u_ISfs,   (const Orv16u* src, Orv16u* srcDst, int len, int scale))
ORVAPI(OrvStatus, orvsDiv_16s_Sfs,    (const Orv16s* src1, const Orv16s* src2, Orv16s* dst, int len, int scale))
ORVAPI(OrvStatus, orvsDiv_16s_ISfs,   (const Orv16s* src, Orv16s* srcDst, int len, int scale))
ORVAPI(OrvStatus, orvsDiv_16sc_Sfs,   (const Orv16sc* src1, const Orv16sc* src2, Orv16sc* dst, int len, int scale))
ORVAPI(OrvStatus, orvsDiv_16sc_ISfs,  (const Orv16sc* src, Orv16sc* srcDst, int len, int scale))
ORVAPI(OrvStatus, orvsDiv_32s_Sfs,    (const Orv32s* src1, const Orv32s* src2, Orv32s* dst, int len, int scale))
ORVAPI(OrvStatus, orvsDiv_32s_ISfs,   (const Orv32s* src, Orv32s* srcDst, int len, int scale))
ORVAPI(OrvStatus, orvsDiv_32s16s_Sfs, (const Orv16s* src1, const Orv32s* src2, Orv16s* dst, int len, int scale))
ORVAPI(OrvStatus, orvsDiv_32f,        (const Orv32f* src1, const Orv32f* src2, Orv32f* dst, int len))
ORVAPI(OrvStatus, orvsDiv_32f_I,      (const Orv32f* src, Orv32f* srcDst, int len))
ORVAPI(OrvStatus, orvsDiv_32fc,       (const Orv32fc* src1, const Orv32fc* src2, Orv32fc* dst, int len))
ORVAPI(OrvStatus, orvsDiv_32fc_I,     (const Orv32fc* src, Orv32fc* srcDst, int len))
ORVAPI(OrvStatus, orvsDiv_64f,        (const Orv64f* src1, const Orv64f* src2, Orv64f* dst, int len))
ORVAPI(OrvStatus, orvsDiv_64f_I,      (const Orv64f* src, Orv64f* srcDst, int len))
ORVAPI(OrvStatus, orvsDiv_64fc,       (const Orv64fc* src1, const Orv64fc* src2, Orv64fc* dst, int len))
ORVAPI(OrvStatus, orvsDiv_64fc_I,     (const Orv64fc* src, Orv64fc* srcDst, int len))
/** @} */

/* ---- Div_Round                                                                               arith/div_integers.cpp */

/** @name Div_Round
 * dst[i] = src2[i] / src1[i] times 2^-scale as in Div, rounded by rndMode and saturated. Every rounding is exact.
 * @retval orvErrNullPointer  a pointer is null
 * @retval orvErrBadLength    len < 1
 * @retval orvErrBadRoundMode rndMode is not one of its three values
 * @retval orvWrnDivByZero    a divisor is zero; the elements are as in Div
 * @note With scale < -30 every quotient other than zero saturates, also the few of 16u that would stay below 65535.
 * @note From 512 elements of 8u and 1024 of 16u and 16s up, the team has as many threads as the core library allows.
 * @{ */
ORVAPI(OrvStatus, orvsDiv_Round_8u_Sfs,   (const Orv8u* src1, const Orv8u* src2, Orv8u* dst, int len, OrvRoundMode rndMode, int scale))
ORVAPI(OrvStatus, orvsDiv_Round_8u_ISfs,  (const Orv8u* src, Orv8u* srcDst, int len, OrvRoundMode rndMode, int scale))
ORVAPI(OrvStatus, orvsDiv_Round_16u_Sfs,  (const Orv16u* src1, const Orv16u* src2, Orv16u* dst, int len, OrvRoundMode rndMode, int scale))
ORVAPI(OrvStatus, orvsDiv_Round_16u_ISfs, (const Orv16u* src, Orv16u* srcDst, int len, OrvRoundMode rndMode, int scale))
ORVAPI(OrvStatus, orvsDiv_Round_16s_Sfs,  (const Orv16s* src1, const Orv16s* src2, Orv16s* dst, int len, OrvRoundMode rndMode, int scale))
ORVAPI(OrvStatus, orvsDiv_Round_16s_ISfs, (const Orv16s* src, Orv16s* srcDst, int len, OrvRoundMode rndMode, int scale))
/** @} */

/* ---- DivC                                                                                           arith/divc.cpp */

/** @name DivC
 * dst[i] = src[i] / val, or srcDst[i] / val. Integer quotients are times 2^-scale, exact to the tie, and saturated.
 *
 * Floats are multiplied by the rounded reciprocal: dst[i] = src[i] * (1 / val), two roundings. A complex val has the
 * reciprocal (re * s, -(s * im)) with s = 1 / fma(re, re, im * im), and the product is that of MulC.
 * @retval orvErrNullPointer a pointer is null
 * @retval orvErrBadLength   len < 1; 64s refuses only len == 0, and processes nothing for a negative len
 * @retval orvErrDivisorZero val is zero, or for complex floats so small that re^2 + im^2 is
 * @retval orvWrnDivByZero   64s only, val is zero: positive elements become 2^63 - 1, negative ones -2^63, zeros stay
 * @note 16u looks at scale and val first. For a val other than 0, scale > 16 fills with zeros and scale < -31 with 65535:
 *       of the pointers only src is tested, then the fill tests dst and len. A scale of 0 with val = 1 copies.
 * @note From 4096 elements of 8u and 16s and 1024 of 16sc up, two threads share the work.
 * @{ */
ORVAPI(OrvStatus, orvsDivC_8u_Sfs,    (const Orv8u* src, Orv8u val, Orv8u* dst, int len, int scale))
ORVAPI(OrvStatus, orvsDivC_8u_ISfs,   (Orv8u val, Orv8u* srcDst, int len, int scale))
ORVAPI(OrvStatus, orvsDivC_16u_Sfs,   (const Orv16u* src, Orv16u val, Orv16u* dst, int len, int scale))
ORVAPI(OrvStatus, orvsDivC_16u_ISfs,  (Orv16u val, Orv16u* srcDst, int len, int scale))
ORVAPI(OrvStatus, orvsDivC_16s_Sfs,   (const Orv16s* src, Orv16s val, Orv16s* dst, int len, int scale))
ORVAPI(OrvStatus, orvsDivC_16s_ISfs,  (Orv16s val, Orv16s* srcDst, int len, int scale))
ORVAPI(OrvStatus, orvsDivC_16sc_Sfs,  (const Orv16sc* src, Orv16sc val, Orv16sc* dst, int len, int scale))
ORVAPI(OrvStatus, orvsDivC_16sc_ISfs, (Orv16sc val, Orv16sc* srcDst, int len, int scale))
ORVAPI(OrvStatus, orvsDivC_64s_ISfs,  (Orv64s val, Orv64s* srcDst, int len, int scale))
ORVAPI(OrvStatus, orvsDivC_32f,       (const Orv32f* src, Orv32f val, Orv32f* dst, int len))
ORVAPI(OrvStatus, orvsDivC_32f_I,     (Orv32f val, Orv32f* srcDst, int len))
ORVAPI(OrvStatus, orvsDivC_32fc,      (const Orv32fc* src, Orv32fc val, Orv32fc* dst, int len))
ORVAPI(OrvStatus, orvsDivC_32fc_I,    (Orv32fc val, Orv32fc* srcDst, int len))
ORVAPI(OrvStatus, orvsDivC_64f,       (const Orv64f* src, Orv64f val, Orv64f* dst, int len))
ORVAPI(OrvStatus, orvsDivC_64f_I,     (Orv64f val, Orv64f* srcDst, int len))
ORVAPI(OrvStatus, orvsDivC_64fc,      (const Orv64fc* src, Orv64fc val, Orv64fc* dst, int len))
ORVAPI(OrvStatus, orvsDivC_64fc_I,    (Orv64fc val, Orv64fc* srcDst, int len))
/** @} */

/* ---- DivCRev                                                            arith/div.cpp (32f), arith/div_integers.cpp */

/** @name DivCRev
 * dst[i] = val / src[i], or val / srcDst[i]: 32f by the steps of Div_32f; 16u to nearest, ties to even. Zero elements as
 * in Div.
 * @retval orvErrNullPointer a pointer is null
 * @retval orvErrBadLength   len < 1
 * @retval orvWrnDivByZero   an element is zero; the vector is complete
 * @note From 4096 elements of 32f and 2048 of 16u up, two threads share the work.
 * @{ */
ORVAPI(OrvStatus, orvsDivCRev_16u,   (const Orv16u* src, Orv16u val, Orv16u* dst, int len))
ORVAPI(OrvStatus, orvsDivCRev_16u_I, (Orv16u val, Orv16u* srcDst, int len))
ORVAPI(OrvStatus, orvsDivCRev_32f,   (const Orv32f* src, Orv32f val, Orv32f* dst, int len))
ORVAPI(OrvStatus, orvsDivCRev_32f_I, (Orv32f val, Orv32f* srcDst, int len))
/** @} */

/* ---- Sqr                                                                                             arith/sqr.cpp */

/** @name Sqr
 * dst[i] = src[i]^2, or srcDst[i]^2; with Sfs times 2^-scale, rounded and saturated: bit for bit Mul of the vector with
 * itself. Complex floats are fused like products: re = fma(re, re, -(im * im)), im = fma(im, re, im * re).
 * @retval orvErrNullPointer a pointer is null
 * @retval orvErrBadLength   len < 1
 * @{ */
ORVAPI(OrvStatus, orvsSqr_8u_Sfs,    (const Orv8u* src, Orv8u* dst, int len, int scale))
ORVAPI(OrvStatus, orvsSqr_8u_ISfs,   (Orv8u* srcDst, int len, int scale))
ORVAPI(OrvStatus, orvsSqr_16u_Sfs,   (const Orv16u* src, Orv16u* dst, int len, int scale))
ORVAPI(OrvStatus, orvsSqr_16u_ISfs,  (Orv16u* srcDst, int len, int scale))
ORVAPI(OrvStatus, orvsSqr_16s_Sfs,   (const Orv16s* src, Orv16s* dst, int len, int scale))
ORVAPI(OrvStatus, orvsSqr_16s_ISfs,  (Orv16s* srcDst, int len, int scale))
ORVAPI(OrvStatus, orvsSqr_16sc_Sfs,  (const Orv16sc* src, Orv16sc* dst, int len, int scale))
ORVAPI(OrvStatus, orvsSqr_16sc_ISfs, (Orv16sc* srcDst, int len, int scale))
ORVAPI(OrvStatus, orvsSqr_32f,       (const Orv32f* src, Orv32f* dst, int len))
ORVAPI(OrvStatus, orvsSqr_32f_I,     (Orv32f* srcDst, int len))
ORVAPI(OrvStatus, orvsSqr_32fc,      (const Orv32fc* src, Orv32fc* dst, int len))
ORVAPI(OrvStatus, orvsSqr_32fc_I,    (Orv32fc* srcDst, int len))
ORVAPI(OrvStatus, orvsSqr_64f,       (const Orv64f* src, Orv64f* dst, int len))
ORVAPI(OrvStatus, orvsSqr_64f_I,     (Orv64f* srcDst, int len))
ORVAPI(OrvStatus, orvsSqr_64fc,      (const Orv64fc* src, Orv64fc* dst, int len))
ORVAPI(OrvStatus, orvsSqr_64fc_I,    (Orv64fc* srcDst, int len))
/** @} */

/* ---- Sqrt                                        arith/sqrt.cpp (32f, 64f, 32fc, 64fc), arith/sqrt_integers.cpp */

/** @name Sqrt
 * dst[i] = sqrt(src[i]), or sqrt(srcDst[i]); with Sfs times 2^-scale, rounded and saturated: integer roots are exact to
 * the tie, whatever the scale. 32s16s and 64s16s give 16-bit roots of wider values.
 *
 * A negative real element does not stop the vector; the status is then orvWrnSqrtOfNegative. Integers become 0, floats
 * a NaN. -0 is not negative, and its root is -0. 32f and 64f are IEEE roots.
 *
 * The root of a complex z is the principal one, t + i * u in the first quadrant and
 *
 *     re = t, im = u or -u    for z.re >= 0                    t = sqrt((|z| + |z.re|) / 2)
 *     re = u, im = t or -t    for z.re < 0                     u = |z.im| / (2 * t)
 *
 * so re >= 0, and im has the sign of z.im. The branch cut is the negative real axis, where the sign of a zero z.im
 * tells the side: of -4 + 0i the root is 2i, of -4 - 0i it is -2i. Complex integers have no -0, and the root of -4 is
 * 2i.
 *
 * Both parts of complex floats are within one unit in their last place of the exact ones, for all z whose parts are 0
 * or belong to 2^-25 ... 2^25 (64fc: 2^-204 ... 2^204) in magnitude, and within three for every other finite z: nothing
 * overflows on the way, nor vanishes. An infinite z.im gives an infinite re and an infinite im of its sign, whatever
 * z.re is; an infinite z.re gives one part that is infinite and one that is 0, or a NaN where z.im is one; other NaNs
 * give two NaNs. Complex forms have no warning.
 *
 * Floating-point exceptions stay masked during the work, whatever the caller has set: none interrupts it.
 * @retval orvErrNullPointer    a pointer is null
 * @retval orvErrBadLength      len < 1
 * @retval orvWrnSqrtOfNegative a real element is negative; the vector is complete
 * @note From a length on, two threads share the work: 4096 elements of 32f; 2048 of 8u, 16u and 16s; 1024 of 32s16s;
 *       512 of 64f, 32fc and 64s16s; 256 of 16sc and 64s; 64 of 64fc. To hand it over takes 1 to 2 us, and much more
 *       while the other processors are busy. A program that works on short vectors calls orvSetNumThreads(1).
 * @{ */
ORVAPI(OrvStatus, orvsSqrt_8u_Sfs,     (const Orv8u* src, Orv8u* dst, int len, int scale))
ORVAPI(OrvStatus, orvsSqrt_8u_ISfs,    (Orv8u* srcDst, int len, int scale))
ORVAPI(OrvStatus, orvsSqrt_16u_Sfs,    (const Orv16u* src, Orv16u* dst, int len, int scale))
ORVAPI(OrvStatus, orvsSqrt_16u_ISfs,   (Orv16u* srcDst, int len, int scale))
ORVAPI(OrvStatus, orvsSqrt_16s_Sfs,    (const Orv16s* src, Orv16s* dst, int len, int scale))
ORVAPI(OrvStatus, orvsSqrt_16s_ISfs,   (Orv16s* srcDst, int len, int scale))
ORVAPI(OrvStatus, orvsSqrt_16sc_Sfs,   (const Orv16sc* src, Orv16sc* dst, int len, int scale))
ORVAPI(OrvStatus, orvsSqrt_16sc_ISfs,  (Orv16sc* srcDst, int len, int scale))
ORVAPI(OrvStatus, orvsSqrt_32s16s_Sfs, (const Orv32s* src, Orv16s* dst, int len, int scale))
ORVAPI(OrvStatus, orvsSqrt_64s16s_Sfs, (const Orv64s* src, Orv16s* dst, int len, int scale))
ORVAPI(OrvStatus, orvsSqrt_64s_Sfs,    (const Orv64s* src, Orv64s* dst, int len, int scale))
ORVAPI(OrvStatus, orvsSqrt_64s_ISfs,   (Orv64s* srcDst, int len, int scale))
ORVAPI(OrvStatus, orvsSqrt_32f,        (const Orv32f* src, Orv32f* dst, int len))
ORVAPI(OrvStatus, orvsSqrt_32f_I,      (Orv32f* srcDst, int len))
ORVAPI(OrvStatus, orvsSqrt_32fc,       (const Orv32fc* src, Orv32fc* dst, int len))
ORVAPI(OrvStatus, orvsSqrt_32fc_I,     (Orv32fc* srcDst, int len))
ORVAPI(OrvStatus, orvsSqrt_64f,        (const Orv64f* src, Orv64f* dst, int len))
ORVAPI(OrvStatus, orvsSqrt_64f_I,      (Orv64f* srcDst, int len))
ORVAPI(OrvStatus, orvsSqrt_64fc,       (const Orv64fc* src, Orv64fc* dst, int len))
ORVAPI(OrvStatus, orvsSqrt_64fc_I,     (Orv64fc* srcDst, int len))
/** @} */

/* ---- Abs                                                                                             arith/abs.cpp */

/** @name Abs
 * dst[i] = |src[i]|, or |srcDst[i]|. Integers saturate: of the lowest value of the type the result is the largest.
 * Floats lose their sign bit and nothing else, so a NaN keeps its payload.
 * @retval orvErrNullPointer a pointer is null
 * @retval orvErrBadLength   len < 1
 * @{ */
ORVAPI(OrvStatus, orvsAbs_16s,   (const Orv16s* src, Orv16s* dst, int len))
ORVAPI(OrvStatus, orvsAbs_16s_I, (Orv16s* srcDst, int len))
ORVAPI(OrvStatus, orvsAbs_32s,   (const Orv32s* src, Orv32s* dst, int len))
ORVAPI(OrvStatus, orvsAbs_32s_I, (Orv32s* srcDst, int len))
ORVAPI(OrvStatus, orvsAbs_32f,   (const Orv32f* src, Orv32f* dst, int len))
ORVAPI(OrvStatus, orvsAbs_32f_I, (Orv32f* srcDst, int len))
ORVAPI(OrvStatus, orvsAbs_64f,   (const Orv64f* src, Orv64f* dst, int len))
ORVAPI(OrvStatus, orvsAbs_64f_I, (Orv64f* srcDst, int len))
/** @} */

/* ---- Cubrt                                                                                          arith/cubrt.cpp */

/** @name Cubrt
 * dst[i] = the cube root of src[i], with its sign.
 *
 * 32f: within 1.1 units in the last place; a signed zero, an infinity and a NaN stay what they are. It does not depend on
 * the caller's floating-point state. 32s16s times 2^-scale, rounded to nearest with ties to even and saturated to 16 bits,
 * which is right for every input; the factor 2^-scale is formed in a single-precision exponent, which has it for scales
 * from -127 to 126. Below that the scale counts modulo 128; above, the exponent wraps into the sign: 127 gives zeros, 128
 * an infinite negative factor, 129 -2^127 and so on.
 * @retval orvErrNullPointer a pointer is null
 * @retval orvErrBadLength   len < 1
 * @{ */
ORVAPI(OrvStatus, orvsCubrt_32f,        (const Orv32f* src, Orv32f* dst, int len))
ORVAPI(OrvStatus, orvsCubrt_32s16s_Sfs, (const Orv32s* src, Orv16s* dst, int len, int scale))
/** @} */

/* ---- Exp                                                                                              arith/exp.cpp */

/** @name Exp
 * dst[i] = e^src[i]. With Sfs times 2^-scale, rounded to nearest with ties to even and saturated; integer results are right
 * for every input and scale.
 *
 * Floats: 32f within 0.75, 64f and 32f64f (which computes in double precision) within 0.7 units in the last place, also
 * where results are subnormal. What is too large becomes an infinity, what is too small 0; a NaN stays a NaN. The results
 * do not depend on the caller's floating-point state.
 * @retval orvErrNullPointer a pointer is null
 * @retval orvErrBadLength   len < 1
 * @note 32s with scale > 31 is filled with zeros, whatever the arguments.
 * @{ */
ORVAPI(OrvStatus, orvsExp_16s_Sfs,  (const Orv16s* src, Orv16s* dst, int len, int scale))
ORVAPI(OrvStatus, orvsExp_16s_ISfs, (Orv16s* srcDst, int len, int scale))
ORVAPI(OrvStatus, orvsExp_32s_Sfs,  (const Orv32s* src, Orv32s* dst, int len, int scale))
ORVAPI(OrvStatus, orvsExp_32s_ISfs, (Orv32s* srcDst, int len, int scale))
ORVAPI(OrvStatus, orvsExp_64s_Sfs,  (const Orv64s* src, Orv64s* dst, int len, int scale))
ORVAPI(OrvStatus, orvsExp_64s_ISfs, (Orv64s* srcDst, int len, int scale))
ORVAPI(OrvStatus, orvsExp_32f,      (const Orv32f* src, Orv32f* dst, int len))
ORVAPI(OrvStatus, orvsExp_32f_I,    (Orv32f* srcDst, int len))
ORVAPI(OrvStatus, orvsExp_64f,      (const Orv64f* src, Orv64f* dst, int len))
ORVAPI(OrvStatus, orvsExp_64f_I,    (Orv64f* srcDst, int len))
ORVAPI(OrvStatus, orvsExp_32f64f,   (const Orv32f* src, Orv64f* dst, int len))
/** @} */

/* ---- Ln                                                                                                arith/ln.cpp */

/** @name Ln
 * dst[i] = the natural logarithm of src[i]. With Sfs times 2^-scale, rounded to nearest with ties to even and saturated;
 * integer results are right for every input and scale.
 *
 * Floats: 32f within 1.25 units in the last place, 64f within 0.52, 64f32f within 0.51 of the result's type, subnormal
 * arguments included. An infinity and a NaN stay what they are. The results do not depend on the caller's floating-point
 * state.
 *
 * An element that has no logarithm does not stop the vector. Zero gives minus infinity and a negative number a NaN; both
 * give the lowest value of an integer type, whatever the scale. The first such element decides the status.
 * @retval orvErrNullPointer   a pointer is null
 * @retval orvErrBadLength     len < 1
 * @retval orvWrnLnOfZero      the first element that is not positive is a zero; the vector is complete
 * @retval orvWrnLnOfNegative  it is a negative number; the vector is complete
 * @{ */
ORVAPI(OrvStatus, orvsLn_16s_Sfs,    (const Orv16s* src, Orv16s* dst, int len, int scale))
ORVAPI(OrvStatus, orvsLn_16s_ISfs,   (Orv16s* srcDst, int len, int scale))
ORVAPI(OrvStatus, orvsLn_32s_Sfs,    (const Orv32s* src, Orv32s* dst, int len, int scale))
ORVAPI(OrvStatus, orvsLn_32s_ISfs,   (Orv32s* srcDst, int len, int scale))
ORVAPI(OrvStatus, orvsLn_32s16s_Sfs, (const Orv32s* src, Orv16s* dst, int len, int scale))
ORVAPI(OrvStatus, orvsLn_32f,        (const Orv32f* src, Orv32f* dst, int len))
ORVAPI(OrvStatus, orvsLn_32f_I,      (Orv32f* srcDst, int len))
ORVAPI(OrvStatus, orvsLn_64f,        (const Orv64f* src, Orv64f* dst, int len))
ORVAPI(OrvStatus, orvsLn_64f_I,      (Orv64f* srcDst, int len))
ORVAPI(OrvStatus, orvsLn_64f32f,     (const Orv64f* src, Orv32f* dst, int len))
/** @} */

/* ---- 10Log10                                                                                           arith/ln.cpp */

/** @name 10Log10
 * dst[i] = 10 * log10(src[i]) * 2^-scale: decibels of a power, rounded to nearest with ties to even and saturated; right
 * for every input and scale. Elements that are not positive are treated as by Ln.
 * @retval orvErrNullPointer   a pointer is null
 * @retval orvErrBadLength     len < 1
 * @retval orvWrnLnOfZero      the first element that is not positive is a zero; the vector is complete
 * @retval orvWrnLnOfNegative  it is a negative number; the vector is complete
 * @{ */
ORVAPI(OrvStatus, orvs10Log10_32s_Sfs,  (const Orv32s* src, Orv32s* dst, int len, int scale))
ORVAPI(OrvStatus, orvs10Log10_32s_ISfs, (Orv32s* srcDst, int len, int scale))
/** @} */

/* ---- SumLn                                                                                             arith/ln.cpp */

/** @name SumLn
 * *sum = the sum of ln(src[i]). The logarithms are those of Ln in the type of the source (of 32f for 16s, of 64f for
 * 32f64f); they are added in double precision in an order that depends on len alone, so that equal vectors have equal
 * sums.
 *
 * The work is done in blocks of 512 elements. It ends with the first block that has an element without a logarithm: a zero
 * makes the sum plus infinity (a choice: the limit would be minus infinity), a negative number makes it a NaN; the first
 * of both in the block decides. A block with a NaN ends the work too, and the sum is a NaN whose sign bit is set, without
 * a warning.
 * @retval orvErrNullPointer   a pointer is null
 * @retval orvErrBadLength     len < 1
 * @retval orvWrnLnOfZero      an element is zero
 * @retval orvWrnLnOfNegative  an element is negative
 * @{ */
ORVAPI(OrvStatus, orvsSumLn_16s32f, (const Orv16s* src, int len, Orv32f* sum))
ORVAPI(OrvStatus, orvsSumLn_32f,    (const Orv32f* src, int len, Orv32f* sum))
ORVAPI(OrvStatus, orvsSumLn_64f,    (const Orv64f* src, int len, Orv64f* sum))
ORVAPI(OrvStatus, orvsSumLn_32f64f, (const Orv32f* src, int len, Orv64f* sum))
/** @} */

/* ---- Arctan                                                                                        arith/arctan.cpp */

/** @name Arctan
 * dst[i] = arctan(src[i]), from -pi/2 to pi/2. 32f within 2 units in the last place, 64f within 1. A signed zero and a
 * NaN stay what they are, infinities give +-pi/2. The results do not depend on the caller's floating-point state.
 * @retval orvErrNullPointer a pointer is null
 * @retval orvErrBadLength   len < 1
 * @{ */
ORVAPI(OrvStatus, orvsArctan_32f,   (const Orv32f* src, Orv32f* dst, int len))
ORVAPI(OrvStatus, orvsArctan_32f_I, (Orv32f* srcDst, int len))
ORVAPI(OrvStatus, orvsArctan_64f,   (const Orv64f* src, Orv64f* dst, int len))
ORVAPI(OrvStatus, orvsArctan_64f_I, (Orv64f* srcDst, int len))
/** @} */

/* ---- And                                                                                         arith/logic.cpp */

/** @name And
 * dst[i] = src1[i] & src2[i], or srcDst[i] & src[i], bit by bit.
 * @retval orvErrNullPointer a pointer is null
 * @retval orvErrBadLength   len < 1
 * @{ */
ORVAPI(OrvStatus, orvsAnd_8u,    (const Orv8u* src1, const Orv8u* src2, Orv8u* dst, int len))
ORVAPI(OrvStatus, orvsAnd_8u_I,  (const Orv8u* src, Orv8u* srcDst, int len))
ORVAPI(OrvStatus, orvsAnd_16u,   (const Orv16u* src1, const Orv16u* src2, Orv16u* dst, int len))
ORVAPI(OrvStatus, orvsAnd_16u_I, (const Orv16u* src, Orv16u* srcDst, int len))
ORVAPI(OrvStatus, orvsAnd_32u,   (const Orv32u* src1, const Orv32u* src2, Orv32u* dst, int len))
ORVAPI(OrvStatus, orvsAnd_32u_I, (const Orv32u* src, Orv32u* srcDst, int len))
/** @} */

/* ---- AndC                                                                                        arith/logic.cpp */

/** @name AndC
 * dst[i] = src[i] & val, or srcDst[i] & val, bit by bit.
 * @retval orvErrNullPointer a pointer is null
 * @retval orvErrBadLength   len < 1
 * @{ */
ORVAPI(OrvStatus, orvsAndC_8u,    (const Orv8u* src, Orv8u val, Orv8u* dst, int len))
ORVAPI(OrvStatus, orvsAndC_8u_I,  (Orv8u val, Orv8u* srcDst, int len))
ORVAPI(OrvStatus, orvsAndC_16u,   (const Orv16u* src, Orv16u val, Orv16u* dst, int len))
ORVAPI(OrvStatus, orvsAndC_16u_I, (Orv16u val, Orv16u* srcDst, int len))
ORVAPI(OrvStatus, orvsAndC_32u,   (const Orv32u* src, Orv32u val, Orv32u* dst, int len))
ORVAPI(OrvStatus, orvsAndC_32u_I, (Orv32u val, Orv32u* srcDst, int len))
/** @} */

/* ---- Or                                                                                          arith/logic.cpp */

/** @name Or
 * dst[i] = src1[i] | src2[i], or srcDst[i] | src[i], bit by bit.
 * @retval orvErrNullPointer a pointer is null
 * @retval orvErrBadLength   len < 1
 * @{ */
ORVAPI(OrvStatus, orvsOr_8u,    (const Orv8u* src1, const Orv8u* src2, Orv8u* dst, int len))
ORVAPI(OrvStatus, orvsOr_8u_I,  (const Orv8u* src, Orv8u* srcDst, int len))
ORVAPI(OrvStatus, orvsOr_16u,   (const Orv16u* src1, const Orv16u* src2, Orv16u* dst, int len))
ORVAPI(OrvStatus, orvsOr_16u_I, (const Orv16u* src, Orv16u* srcDst, int len))
ORVAPI(OrvStatus, orvsOr_32u,   (const Orv32u* src1, const Orv32u* src2, Orv32u* dst, int len))
ORVAPI(OrvStatus, orvsOr_32u_I, (const Orv32u* src, Orv32u* srcDst, int len))
/** @} */

/* ---- OrC                                                                                         arith/logic.cpp */

/** @name OrC
 * dst[i] = src[i] | val, or srcDst[i] | val, bit by bit.
 * @retval orvErrNullPointer a pointer is null
 * @retval orvErrBadLength   len < 1
 * @{ */
ORVAPI(OrvStatus, orvsOrC_8u,    (const Orv8u* src, Orv8u val, Orv8u* dst, int len))
ORVAPI(OrvStatus, orvsOrC_8u_I,  (Orv8u val, Orv8u* srcDst, int len))
ORVAPI(OrvStatus, orvsOrC_16u,   (const Orv16u* src, Orv16u val, Orv16u* dst, int len))
ORVAPI(OrvStatus, orvsOrC_16u_I, (Orv16u val, Orv16u* srcDst, int len))
ORVAPI(OrvStatus, orvsOrC_32u,   (const Orv32u* src, Orv32u val, Orv32u* dst, int len))
ORVAPI(OrvStatus, orvsOrC_32u_I, (Orv32u val, Orv32u* srcDst, int len))
/** @} */

/* ---- Xor                                                                                         arith/logic.cpp */

/** @name Xor
 * dst[i] = src1[i] ^ src2[i], or srcDst[i] ^ src[i], bit by bit.
 * @retval orvErrNullPointer a pointer is null
 * @retval orvErrBadLength   len < 1
 * @{ */
ORVAPI(OrvStatus, orvsXor_8u,    (const Orv8u* src1, const Orv8u* src2, Orv8u* dst, int len))
ORVAPI(OrvStatus, orvsXor_8u_I,  (const Orv8u* src, Orv8u* srcDst, int len))
ORVAPI(OrvStatus, orvsXor_16u,   (const Orv16u* src1, const Orv16u* src2, Orv16u* dst, int len))
ORVAPI(OrvStatus, orvsXor_16u_I, (const Orv16u* src, Orv16u* srcDst, int len))
ORVAPI(OrvStatus, orvsXor_32u,   (const Orv32u* src1, const Orv32u* src2, Orv32u* dst, int len))
ORVAPI(OrvStatus, orvsXor_32u_I, (const Orv32u* src, Orv32u* srcDst, int len))
/** @} */

/* ---- XorC                                                                                        arith/logic.cpp */

/** @name XorC
 * dst[i] = src[i] ^ val, or srcDst[i] ^ val, bit by bit.
 * @retval orvErrNullPointer a pointer is null
 * @retval orvErrBadLength   len < 1
 * @{ */
ORVAPI(OrvStatus, orvsXorC_8u,    (const Orv8u* src, Orv8u val, Orv8u* dst, int len))
ORVAPI(OrvStatus, orvsXorC_8u_I,  (Orv8u val, Orv8u* srcDst, int len))
ORVAPI(OrvStatus, orvsXorC_16u,   (const Orv16u* src, Orv16u val, Orv16u* dst, int len))
ORVAPI(OrvStatus, orvsXorC_16u_I, (Orv16u val, Orv16u* srcDst, int len))
ORVAPI(OrvStatus, orvsXorC_32u,   (const Orv32u* src, Orv32u val, Orv32u* dst, int len))
ORVAPI(OrvStatus, orvsXorC_32u_I, (Orv32u val, Orv32u* srcDst, int len))
/** @} */

/* ---- Not                                                                                         arith/logic.cpp */

/** @name Not
 * dst[i] = ~src[i], or ~srcDst[i].
 * @retval orvErrNullPointer a pointer is null
 * @retval orvErrBadLength   len < 1
 * @{ */
ORVAPI(OrvStatus, orvsNot_8u,    (const Orv8u* src, Orv8u* dst, int len))
ORVAPI(OrvStatus, orvsNot_8u_I,  (Orv8u* srcDst, int len))
ORVAPI(OrvStatus, orvsNot_16u,   (const Orv16u* src, Orv16u* dst, int len))
ORVAPI(OrvStatus, orvsNot_16u_I, (Orv16u* srcDst, int len))
ORVAPI(OrvStatus, orvsNot_32u,   (const Orv32u* src, Orv32u* dst, int len))
ORVAPI(OrvStatus, orvsNot_32u_I, (Orv32u* srcDst, int len))
/** @} */

/* ---- LShiftC                                                                                     arith/shift.cpp */

/** @name LShiftC
 * dst[i] = src[i] * 2^val modulo 2^bits, or the same of srcDst[i]: bits that leave the type are lost, nothing saturates.
 * A count of 0 copies and a count of the type's width or more fills with zeros; these two are looked at first, so the
 * fill tests dst and len only. Otherwise the checks are:
 * @retval orvErrNullPointer a pointer is null
 * @retval orvErrBadLength   len < 1
 * @retval orvErrBadShift    val < 0
 * @{ */
ORVAPI(OrvStatus, orvsLShiftC_8u,    (const Orv8u* src, int val, Orv8u* dst, int len))
ORVAPI(OrvStatus, orvsLShiftC_8u_I,  (int val, Orv8u* srcDst, int len))
ORVAPI(OrvStatus, orvsLShiftC_16u,   (const Orv16u* src, int val, Orv16u* dst, int len))
ORVAPI(OrvStatus, orvsLShiftC_16u_I, (int val, Orv16u* srcDst, int len))
ORVAPI(OrvStatus, orvsLShiftC_16s,   (const Orv16s* src, int val, Orv16s* dst, int len))
ORVAPI(OrvStatus, orvsLShiftC_16s_I, (int val, Orv16s* srcDst, int len))
ORVAPI(OrvStatus, orvsLShiftC_32s,   (const Orv32s* src, int val, Orv32s* dst, int len))
ORVAPI(OrvStatus, orvsLShiftC_32s_I, (int val, Orv32s* srcDst, int len))
/** @} */

/* ---- RShiftC                                                                                     arith/shift.cpp */

/** @name RShiftC
 * dst[i] = floor(src[i] / 2^val), or the same of srcDst[i]: signed types keep their sign, so a count of the width or more
 * gives 0 or -1. A count of 0 copies; for unsigned types a count of the width or more fills with zeros. These are looked
 * at first, so the fill tests dst and len only. Otherwise the checks are:
 * @retval orvErrNullPointer a pointer is null
 * @retval orvErrBadLength   len < 1
 * @retval orvErrBadShift    val < 0
 * @{ */
ORVAPI(OrvStatus, orvsRShiftC_8u,    (const Orv8u* src, int val, Orv8u* dst, int len))
ORVAPI(OrvStatus, orvsRShiftC_8u_I,  (int val, Orv8u* srcDst, int len))
ORVAPI(OrvStatus, orvsRShiftC_16u,   (const Orv16u* src, int val, Orv16u* dst, int len))
ORVAPI(OrvStatus, orvsRShiftC_16u_I, (int val, Orv16u* srcDst, int len))
ORVAPI(OrvStatus, orvsRShiftC_16s,   (const Orv16s* src, int val, Orv16s* dst, int len))
ORVAPI(OrvStatus, orvsRShiftC_16s_I, (int val, Orv16s* srcDst, int len))
ORVAPI(OrvStatus, orvsRShiftC_32s,   (const Orv32s* src, int val, Orv32s* dst, int len))
ORVAPI(OrvStatus, orvsRShiftC_32s_I, (int val, Orv32s* srcDst, int len))
/** @} */

#endif
