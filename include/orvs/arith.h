/* Element-wise arithmetic: sums and differences of vectors, of a vector and a scalar, sums of products, bitwise logic,
 * shifts.
 *
 *     Orv16s mix[480];
 *     orvsAdd_16s_Sfs(speech, noise, mix, 480, 1);     // mix[i] = (speech[i] + noise[i]) / 2, to nearest, ties to even
 *
 * The law of scale factors. A form with Sfs computes the exact result x of its operation and delivers x * 2^-scale,
 * rounded to nearest with ties to even, and saturated to the destination's type last; so scale > 0 divides and
 * scale < 0 multiplies. Every scale is accepted. Integer forms without Sfs saturate likewise, as with scale 0. Complex
 * integers saturate part by part. Floating forms follow IEEE 754 in the caller's rounding state.
 *
 * Common to the whole header: arrays have any alignment; a source and the destination coincide exactly or do not
 * overlap; forms with I write over their last source, srcDst. Every function checks before it writes, has no state,
 * allocates nothing, runs on the calling thread, and may be called from many threads on different data.
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
