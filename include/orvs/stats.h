/* Statistics: sums, means and deviations, extremes and where they are, norms, and inner products.
 *
 *     Orv32f mean, deviation;
 *     orvsMeanStdDev_32f(x, 480, &mean, &deviation, ORV_HINT_ANY);
 *
 *     Orv16s loudest;
 *     Orv32s where;
 *     orvsMaxAbsIndx_16s(pcm, 480, &loudest, &where);           // |pcm[where]| = loudest, the first one
 *
 * Results are the same bits on every machine and in both variants. The order in which floats are added is fixed; in
 * Sum, Mean, StdDev and MeanStdDev it depends on the address of src modulo 32 as well (stats/float_sums.h and
 * stats/moments.h have it), and elsewhere on nothing but the length.
 *
 * Common to the whole header: sources are only read and have any alignment; results go through pointers. Every
 * function checks before it writes, has no state, allocates nothing, runs on the calling thread, and may be called
 * from many threads. scale divides by 2^scale (a negative one multiplies).
 *
 *     orvErrNullPointer    a pointer is null
 *     orvErrBadLength      len < 1
 *
 * in this order, unless told otherwise.
 *
 * Literature: N. J. Higham, "The accuracy of floating point summation" (1993). */
#ifndef ORVS_STATS_H
#define ORVS_STATS_H

#include "orvs/types.h"

/* ---- Sum, Mean                                                                                       stats/sum.cpp */

/** @name Sum
 * *sum = src[0] + ... + src[len-1]. Real and imaginary parts are summed apart.
 *
 *     _32f, _32fc      in double precision, rounded once. hint 1 (ORV_HINT_SPEED) sums up to 256 values in single
 *                      precision before they go to a double; every other hint widens each value first.
 *     _64f, _64fc      in double precision
 *     integers         exact as long as the sum fits 53 bits (_32s: 63), then * 2^-scale, to nearest with ties to even,
 *                      saturated
 * @retval orvErrNullPointer a pointer is null
 * @retval orvErrBadLength   len < 1
 * @{ */
ORVAPI(OrvStatus, orvsSum_32f,          (const Orv32f* src, int len, Orv32f* sum, Orv32s hint))
ORVAPI(OrvStatus, orvsSum_64f,          (const Orv64f* src, int len, Orv64f* sum))
ORVAPI(OrvStatus, orvsSum_32fc,         (const Orv32fc* src, int len, Orv32fc* sum, Orv32s hint))
ORVAPI(OrvStatus, orvsSum_64fc,         (const Orv64fc* src, int len, Orv64fc* sum))
ORVAPI(OrvStatus, orvsSum_16s_Sfs,      (const Orv16s* src, int len, Orv16s* sum, int scale))
ORVAPI(OrvStatus, orvsSum_16sc_Sfs,     (const Orv16sc* src, int len, Orv16sc* sum, int scale))
ORVAPI(OrvStatus, orvsSum_16s32s_Sfs,   (const Orv16s* src, int len, Orv32s* sum, int scale))
ORVAPI(OrvStatus, orvsSum_16sc32sc_Sfs, (const Orv16sc* src, int len, Orv32sc* sum, int scale))
ORVAPI(OrvStatus, orvsSum_32s_Sfs,      (const Orv32s* src, int len, Orv32s* sum, int scale))
/** @} */

/** @name Mean
 * *mean = sum / len. _32f, _32fc and _64f divide the sum in double precision; _64fc multiplies it by 1 / len. _16s and
 * _16sc scale the exact sum and divide, to nearest with ties to even, saturated. _32s divides exactly: for scale >= 0
 * the quotient is rounded, ties to even, and its magnitude then shifted by scale modulo 32, ties up; for scale < 0 a
 * sum that fits 32 bits is shifted first, which keeps the mean's fraction.
 * @retval orvErrNullPointer a pointer is null
 * @retval orvErrBadLength   len < 1
 * @{ */
ORVAPI(OrvStatus, orvsMean_32f,      (const Orv32f* src, int len, Orv32f* mean, Orv32s hint))
ORVAPI(OrvStatus, orvsMean_64f,      (const Orv64f* src, int len, Orv64f* mean))
ORVAPI(OrvStatus, orvsMean_32fc,     (const Orv32fc* src, int len, Orv32fc* mean, Orv32s hint))
ORVAPI(OrvStatus, orvsMean_64fc,     (const Orv64fc* src, int len, Orv64fc* mean))
ORVAPI(OrvStatus, orvsMean_16s_Sfs,  (const Orv16s* src, int len, Orv16s* mean, int scale))
ORVAPI(OrvStatus, orvsMean_16sc_Sfs, (const Orv16sc* src, int len, Orv16sc* mean, int scale))
ORVAPI(OrvStatus, orvsMean_32s_Sfs,  (const Orv32s* src, int len, Orv32s* mean, int scale))
/** @} */

/* ---- StdDev, MeanStdDev                                                                          stats/std_dev.cpp */

/** @name StdDev, MeanStdDev
 * The deviation of the sample, from one pass: with S the sum of values and Q that of their squares,
 *
 *     *stdDev = sqrt((len * Q - S * S) / (len * (len - 1))),    *mean = S / len
 *
 * and 0 where rounding makes the difference negative. Data with a mean far from zero lose digits to that difference.
 * StdDev_32f sums in double precision, with hint 1 mostly in single, and divides and takes the root in single
 * precision; MeanStdDev_32f works in the processor's extended precision and does not look at hint. From 128 elements on
 * it does so at the speed of double precision, as long as the deviation is not far smaller than the mean: then, and for
 * constant data, it takes some 4 times as long. Integers are summed exactly.
 * @retval orvErrNullPointer a pointer is null
 * @retval orvErrBadLength   len < 2
 * @{ */
ORVAPI(OrvStatus, orvsStdDev_32f,        (const Orv32f* src, int len, Orv32f* stdDev, Orv32s hint))
ORVAPI(OrvStatus, orvsStdDev_64f,        (const Orv64f* src, int len, Orv64f* stdDev))
ORVAPI(OrvStatus, orvsStdDev_16s_Sfs,    (const Orv16s* src, int len, Orv16s* stdDev, int scale))
ORVAPI(OrvStatus, orvsStdDev_16s32s_Sfs, (const Orv16s* src, int len, Orv32s* stdDev, int scale))
ORVAPI(OrvStatus, orvsMeanStdDev_32f,        (const Orv32f* src, int len, Orv32f* mean, Orv32f* stdDev, Orv32s hint))
ORVAPI(OrvStatus, orvsMeanStdDev_64f,        (const Orv64f* src, int len, Orv64f* mean, Orv64f* stdDev))
ORVAPI(OrvStatus, orvsMeanStdDev_16s_Sfs,    (const Orv16s* src, int len, Orv16s* mean, Orv16s* stdDev, int scale))
ORVAPI(OrvStatus, orvsMeanStdDev_16s32s_Sfs, (const Orv16s* src, int len, Orv32s* mean, Orv32s* stdDev, int scale))
/** @} */

/* ---- Extremes                                                                                    stats/min_max.cpp */

/** @name Max, Min, MaxAbs, MinAbs, MinMax
 * The largest and the smallest value or magnitude. The result of a magnitude is limited to the highest integer: that
 * of the lowest integer does not fit. Not-a-numbers: each lane of a vector takes its values in order as held > x ?
 * held : x (< for the minimum), so one is forgotten at the next value, and the values before it in its lane with it.
 * Max_32f and Min_32f fill vectors at the ends up with the lowest and the highest finite number: that may be the
 * result where all values are infinities beyond it.
 * @retval orvErrNullPointer a pointer is null
 * @retval orvErrBadLength   len < 1
 * @{ */
ORVAPI(OrvStatus, orvsMax_16s, (const Orv16s* src, int len, Orv16s* max))
ORVAPI(OrvStatus, orvsMax_32s, (const Orv32s* src, int len, Orv32s* max))
ORVAPI(OrvStatus, orvsMax_32f, (const Orv32f* src, int len, Orv32f* max))
ORVAPI(OrvStatus, orvsMax_64f, (const Orv64f* src, int len, Orv64f* max))
ORVAPI(OrvStatus, orvsMin_16s, (const Orv16s* src, int len, Orv16s* min))
ORVAPI(OrvStatus, orvsMin_32s, (const Orv32s* src, int len, Orv32s* min))
ORVAPI(OrvStatus, orvsMin_32f, (const Orv32f* src, int len, Orv32f* min))
ORVAPI(OrvStatus, orvsMin_64f, (const Orv64f* src, int len, Orv64f* min))
ORVAPI(OrvStatus, orvsMaxAbs_16s, (const Orv16s* src, int len, Orv16s* maxAbs))
ORVAPI(OrvStatus, orvsMaxAbs_32s, (const Orv32s* src, int len, Orv32s* maxAbs))
ORVAPI(OrvStatus, orvsMinAbs_16s, (const Orv16s* src, int len, Orv16s* minAbs))
ORVAPI(OrvStatus, orvsMinAbs_32s, (const Orv32s* src, int len, Orv32s* minAbs))
ORVAPI(OrvStatus, orvsMinMax_8u,  (const Orv8u* src, int len, Orv8u* min, Orv8u* max))
ORVAPI(OrvStatus, orvsMinMax_16s, (const Orv16s* src, int len, Orv16s* min, Orv16s* max))
ORVAPI(OrvStatus, orvsMinMax_16u, (const Orv16u* src, int len, Orv16u* min, Orv16u* max))
ORVAPI(OrvStatus, orvsMinMax_32s, (const Orv32s* src, int len, Orv32s* min, Orv32s* max))
ORVAPI(OrvStatus, orvsMinMax_32u, (const Orv32u* src, int len, Orv32u* min, Orv32u* max))
ORVAPI(OrvStatus, orvsMinMax_32f, (const Orv32f* src, int len, Orv32f* min, Orv32f* max))
ORVAPI(OrvStatus, orvsMinMax_64f, (const Orv64f* src, int len, Orv64f* min, Orv64f* max))
/** @} */

/* ---- Extremes and their places                                                            stats/min_max_index.cpp */

/** @name MaxIndx, MinIndx, MaxAbsIndx, MinAbsIndx, MinMaxIndx
 * The same and where: the first place that has the value. Magnitudes of _16s are limited before they are compared;
 * _32s compares the true ones and limits the result, so that the lowest integer counts as larger than the highest. Of
 * single precision the place is exact up to 2^24 elements: longer vectors count in floats. A null index asks for the
 * value only (not in MinMaxIndx).
 * Not-a-numbers: a first element that is one stays, others are passed over. Longer vectors (_32f: from 34 elements on,
 * _64f: from 32 on if src is aligned) work by lanes as above; the value after a not-a-number does not move the place.
 * MinMaxIndx has the values of MinMax, and 0 for the place of a not-a-number.
 * @retval orvErrNullPointer another pointer is null
 * @retval orvErrBadLength   len < 1
 * @{ */
ORVAPI(OrvStatus, orvsMaxIndx_16s, (const Orv16s* src, int len, Orv16s* max, Orv32s* index))
ORVAPI(OrvStatus, orvsMaxIndx_32s, (const Orv32s* src, int len, Orv32s* max, Orv32s* index))
ORVAPI(OrvStatus, orvsMaxIndx_32f, (const Orv32f* src, int len, Orv32f* max, Orv32s* index))
ORVAPI(OrvStatus, orvsMaxIndx_64f, (const Orv64f* src, int len, Orv64f* max, Orv32s* index))
ORVAPI(OrvStatus, orvsMinIndx_16s, (const Orv16s* src, int len, Orv16s* min, Orv32s* index))
ORVAPI(OrvStatus, orvsMinIndx_32s, (const Orv32s* src, int len, Orv32s* min, Orv32s* index))
ORVAPI(OrvStatus, orvsMinIndx_32f, (const Orv32f* src, int len, Orv32f* min, Orv32s* index))
ORVAPI(OrvStatus, orvsMinIndx_64f, (const Orv64f* src, int len, Orv64f* min, Orv32s* index))
ORVAPI(OrvStatus, orvsMaxAbsIndx_16s, (const Orv16s* src, int len, Orv16s* maxAbs, Orv32s* index))
ORVAPI(OrvStatus, orvsMaxAbsIndx_32s, (const Orv32s* src, int len, Orv32s* maxAbs, Orv32s* index))
ORVAPI(OrvStatus, orvsMinAbsIndx_16s, (const Orv16s* src, int len, Orv16s* minAbs, Orv32s* index))
ORVAPI(OrvStatus, orvsMinAbsIndx_32s, (const Orv32s* src, int len, Orv32s* minAbs, Orv32s* index))
ORVAPI(OrvStatus, orvsMinMaxIndx_8u,  (const Orv8u* src, int len, Orv8u* min, Orv32s* minIndex, Orv8u* max,
                                       Orv32s* maxIndex))
ORVAPI(OrvStatus, orvsMinMaxIndx_16s, (const Orv16s* src, int len, Orv16s* min, Orv32s* minIndex, Orv16s* max,
                                       Orv32s* maxIndex))
ORVAPI(OrvStatus, orvsMinMaxIndx_16u, (const Orv16u* src, int len, Orv16u* min, Orv32s* minIndex, Orv16u* max,
                                       Orv32s* maxIndex))
ORVAPI(OrvStatus, orvsMinMaxIndx_32s, (const Orv32s* src, int len, Orv32s* min, Orv32s* minIndex, Orv32s* max,
                                       Orv32s* maxIndex))
ORVAPI(OrvStatus, orvsMinMaxIndx_32u, (const Orv32u* src, int len, Orv32u* min, Orv32s* minIndex, Orv32u* max,
                                       Orv32s* maxIndex))
ORVAPI(OrvStatus, orvsMinMaxIndx_32f, (const Orv32f* src, int len, Orv32f* min, Orv32s* minIndex, Orv32f* max,
                                       Orv32s* maxIndex))
ORVAPI(OrvStatus, orvsMinMaxIndx_64f, (const Orv64f* src, int len, Orv64f* min, Orv32s* minIndex, Orv64f* max,
                                       Orv32s* maxIndex))
/** @} */

/* ---- MinEvery, MaxEvery                                                                            stats/every.cpp */

/** @name MinEvery, MaxEvery
 * dst[i] = src1[i] < src2[i] ? src1[i] : src2[i], with > for MaxEvery; in place src is src1 and srcDst is src2. So
 * where one of two floats is a not-a-number, the second is stored.
 * @retval orvErrNullPointer a pointer is null
 * @retval orvErrBadLength   len < 1
 * @{ */
ORVAPI(OrvStatus, orvsMinEvery_8u,    (const Orv8u* src1, const Orv8u* src2, Orv8u* dst, Orv32u len))
ORVAPI(OrvStatus, orvsMinEvery_8u_I,  (const Orv8u* src, Orv8u* srcDst, int len))
ORVAPI(OrvStatus, orvsMinEvery_16u,   (const Orv16u* src1, const Orv16u* src2, Orv16u* dst, Orv32u len))
ORVAPI(OrvStatus, orvsMinEvery_16u_I, (const Orv16u* src, Orv16u* srcDst, int len))
ORVAPI(OrvStatus, orvsMinEvery_16s_I, (const Orv16s* src, Orv16s* srcDst, int len))
ORVAPI(OrvStatus, orvsMinEvery_32s_I, (const Orv32s* src, Orv32s* srcDst, int len))
ORVAPI(OrvStatus, orvsMinEvery_32f,   (const Orv32f* src1, const Orv32f* src2, Orv32f* dst, Orv32u len))
ORVAPI(OrvStatus, orvsMinEvery_32f_I, (const Orv32f* src, Orv32f* srcDst, int len))
ORVAPI(OrvStatus, orvsMinEvery_64f,   (const Orv64f* src1, const Orv64f* src2, Orv64f* dst, Orv32u len))
ORVAPI(OrvStatus, orvsMinEvery_64f_I, (const Orv64f* src, Orv64f* srcDst, Orv32u len))
ORVAPI(OrvStatus, orvsMaxEvery_8u,    (const Orv8u* src1, const Orv8u* src2, Orv8u* dst, Orv32u len))
ORVAPI(OrvStatus, orvsMaxEvery_8u_I,  (const Orv8u* src, Orv8u* srcDst, int len))
ORVAPI(OrvStatus, orvsMaxEvery_16u,   (const Orv16u* src1, const Orv16u* src2, Orv16u* dst, Orv32u len))
ORVAPI(OrvStatus, orvsMaxEvery_16u_I, (const Orv16u* src, Orv16u* srcDst, int len))
ORVAPI(OrvStatus, orvsMaxEvery_16s_I, (const Orv16s* src, Orv16s* srcDst, int len))
ORVAPI(OrvStatus, orvsMaxEvery_32s_I, (const Orv32s* src, Orv32s* srcDst, int len))
ORVAPI(OrvStatus, orvsMaxEvery_32f,   (const Orv32f* src1, const Orv32f* src2, Orv32f* dst, Orv32u len))
ORVAPI(OrvStatus, orvsMaxEvery_32f_I, (const Orv32f* src, Orv32f* srcDst, int len))
ORVAPI(OrvStatus, orvsMaxEvery_64f,   (const Orv64f* src1, const Orv64f* src2, Orv64f* dst, Orv32u len))
ORVAPI(OrvStatus, orvsMaxEvery_64f_I, (const Orv64f* src, Orv64f* srcDst, Orv32u len))
/** @} */

/* ---- MaxOrder                                                                                  stats/max_order.cpp */

/** @name MaxOrder
 * *order tells how many bits the largest magnitude m takes: m < 2^order, and m >= 2^(order-1). It is 0 for zeros.
 * Subnormal floats count as if their exponent were the field that they have: -126, and -1022 in double precision.
 * Infinities and not-a-numbers are left out. No invalid-operation flag is left.
 * @retval orvErrBadLength   len < 1; this is looked at first
 * @retval orvErrNullPointer a pointer is null
 * @retval orvWrnNanInData   _32f, _64f: src has an infinity or a not-a-number
 * @{ */
ORVAPI(OrvStatus, orvsMaxOrder_16s, (const Orv16s* src, int len, Orv32s* order))
ORVAPI(OrvStatus, orvsMaxOrder_32s, (const Orv32s* src, int len, Orv32s* order))
ORVAPI(OrvStatus, orvsMaxOrder_32f, (const Orv32f* src, int len, Orv32s* order))
ORVAPI(OrvStatus, orvsMaxOrder_64f, (const Orv64f* src, int len, Orv32s* order))
/** @} */

/* ---- Norms                                                                                          stats/norm.cpp */

/** @name Norm, NormDiff
 * Of a vector, or of the difference src1 - src2:
 *
 *     Inf      the largest magnitude               L1       the sum of the magnitudes
 *     L2       sqrt(the sum of the squares)        L2Sqr    the sum of the squares
 *
 * A complex magnitude is sqrt(re^2 + im^2). Floats are summed in the type of the result. Integers are summed exactly;
 * then 16s32f rounds once (L2: after a root in double precision). Inf_16s32s shifts by scale and truncates. L2_16s32s
 * takes the root in double precision, multiplies by 2^-scale with the scale's magnitude modulo 32, and rounds as the
 * caller's floating-point state says. Others round to nearest with ties to even. All saturate. A not-a-number is
 * passed over by Inf, and stays in L1 and L2; squares that overflow give infinity.
 * @retval orvErrNullPointer a pointer is null
 * @retval orvErrBadLength   len < 1
 * @{ */
ORVAPI(OrvStatus, orvsNorm_Inf_16s32f,       (const Orv16s* src, int len, Orv32f* norm))
ORVAPI(OrvStatus, orvsNorm_Inf_16s32s_Sfs,   (const Orv16s* src, int len, Orv32s* norm, int scale))
ORVAPI(OrvStatus, orvsNorm_Inf_32f,          (const Orv32f* src, int len, Orv32f* norm))
ORVAPI(OrvStatus, orvsNorm_Inf_32fc32f,      (const Orv32fc* src, int len, Orv32f* norm))
ORVAPI(OrvStatus, orvsNorm_Inf_64f,          (const Orv64f* src, int len, Orv64f* norm))
ORVAPI(OrvStatus, orvsNorm_Inf_64fc64f,      (const Orv64fc* src, int len, Orv64f* norm))
ORVAPI(OrvStatus, orvsNorm_L1_16s32f,        (const Orv16s* src, int len, Orv32f* norm))
ORVAPI(OrvStatus, orvsNorm_L1_16s32s_Sfs,    (const Orv16s* src, int len, Orv32s* norm, int scale))
ORVAPI(OrvStatus, orvsNorm_L1_16s64s_Sfs,    (const Orv16s* src, int len, Orv64s* norm, int scale))
ORVAPI(OrvStatus, orvsNorm_L1_32f,           (const Orv32f* src, int len, Orv32f* norm))
ORVAPI(OrvStatus, orvsNorm_L1_32fc64f,       (const Orv32fc* src, int len, Orv64f* norm))
ORVAPI(OrvStatus, orvsNorm_L1_64f,           (const Orv64f* src, int len, Orv64f* norm))
ORVAPI(OrvStatus, orvsNorm_L1_64fc64f,       (const Orv64fc* src, int len, Orv64f* norm))
ORVAPI(OrvStatus, orvsNorm_L2Sqr_16s64s_Sfs, (const Orv16s* src, int len, Orv64s* norm, int scale))
ORVAPI(OrvStatus, orvsNorm_L2_16s32f,        (const Orv16s* src, int len, Orv32f* norm))
ORVAPI(OrvStatus, orvsNorm_L2_16s32s_Sfs,    (const Orv16s* src, int len, Orv32s* norm, int scale))
ORVAPI(OrvStatus, orvsNorm_L2_32f,           (const Orv32f* src, int len, Orv32f* norm))
ORVAPI(OrvStatus, orvsNorm_L2_32fc64f,       (const Orv32fc* src, int len, Orv64f* norm))
ORVAPI(OrvStatus, orvsNorm_L2_64f,           (const Orv64f* src, int len, Orv64f* norm))
ORVAPI(OrvStatus, orvsNorm_L2_64fc64f,       (const Orv64fc* src, int len, Orv64f* norm))
ORVAPI(OrvStatus, orvsNormDiff_Inf_16s32f,       (const Orv16s* src1, const Orv16s* src2, int len, Orv32f* norm))
ORVAPI(OrvStatus, orvsNormDiff_Inf_16s32s_Sfs,   (const Orv16s* src1, const Orv16s* src2, int len, Orv32s* norm,
                                                  int scale))
ORVAPI(OrvStatus, orvsNormDiff_Inf_32f,          (const Orv32f* src1, const Orv32f* src2, int len, Orv32f* norm))
ORVAPI(OrvStatus, orvsNormDiff_Inf_32fc32f,      (const Orv32fc* src1, const Orv32fc* src2, int len, Orv32f* norm))
ORVAPI(OrvStatus, orvsNormDiff_Inf_64f,          (const Orv64f* src1, const Orv64f* src2, int len, Orv64f* norm))
ORVAPI(OrvStatus, orvsNormDiff_Inf_64fc64f,      (const Orv64fc* src1, const Orv64fc* src2, int len, Orv64f* norm))
ORVAPI(OrvStatus, orvsNormDiff_L1_16s32f,        (const Orv16s* src1, const Orv16s* src2, int len, Orv32f* norm))
ORVAPI(OrvStatus, orvsNormDiff_L1_16s32s_Sfs,    (const Orv16s* src1, const Orv16s* src2, int len, Orv32s* norm,
                                                  int scale))
ORVAPI(OrvStatus, orvsNormDiff_L1_16s64s_Sfs,    (const Orv16s* src1, const Orv16s* src2, int len, Orv64s* norm,
                                                  int scale))
ORVAPI(OrvStatus, orvsNormDiff_L1_32f,           (const Orv32f* src1, const Orv32f* src2, int len, Orv32f* norm))
ORVAPI(OrvStatus, orvsNormDiff_L1_32fc64f,       (const Orv32fc* src1, const Orv32fc* src2, int len, Orv64f* norm))
ORVAPI(OrvStatus, orvsNormDiff_L1_64f,           (const Orv64f* src1, const Orv64f* src2, int len, Orv64f* norm))
ORVAPI(OrvStatus, orvsNormDiff_L1_64fc64f,       (const Orv64fc* src1, const Orv64fc* src2, int len, Orv64f* norm))
ORVAPI(OrvStatus, orvsNormDiff_L2Sqr_16s64s_Sfs, (const Orv16s* src1, const Orv16s* src2, int len, Orv64s* norm,
                                                  int scale))
ORVAPI(OrvStatus, orvsNormDiff_L2_16s32f,        (const Orv16s* src1, const Orv16s* src2, int len, Orv32f* norm))
ORVAPI(OrvStatus, orvsNormDiff_L2_16s32s_Sfs,    (const Orv16s* src1, const Orv16s* src2, int len, Orv32s* norm,
                                                  int scale))
ORVAPI(OrvStatus, orvsNormDiff_L2_32f,           (const Orv32f* src1, const Orv32f* src2, int len, Orv32f* norm))
ORVAPI(OrvStatus, orvsNormDiff_L2_32fc64f,       (const Orv32fc* src1, const Orv32fc* src2, int len, Orv64f* norm))
ORVAPI(OrvStatus, orvsNormDiff_L2_64f,           (const Orv64f* src1, const Orv64f* src2, int len, Orv64f* norm))
ORVAPI(OrvStatus, orvsNormDiff_L2_64fc64f,       (const Orv64fc* src1, const Orv64fc* src2, int len, Orv64f* norm))
/** @} */

/* ---- Inner products                                                                             stats/dot_prod.cpp */

/** @name DotProd
 * *dp = src1[0] * src2[0] + ... + src1[len-1] * src2[len-1]; nothing is conjugated. A name with several types ends
 * with that of the result. Floats are multiplied and added in the type of the result, one rounding each. 16-bit
 * integers are summed exactly in 64 bits, then * 2^-scale, to nearest with ties to even, saturated. 32-bit integers
 * are multiplied and summed in double precision, with scale taken within -31 ... 93.
 * @retval orvErrNullPointer a pointer is null
 * @retval orvErrBadLength   len < 1
 * @{ */
ORVAPI(OrvStatus, orvsDotProd_16s16sc32fc,     (const Orv16s* src1, const Orv16sc* src2, int len, Orv32fc* dp))
ORVAPI(OrvStatus, orvsDotProd_16s16sc32sc_Sfs, (const Orv16s* src1, const Orv16sc* src2, int len, Orv32sc* dp,
                                                int scale))
ORVAPI(OrvStatus, orvsDotProd_16s16sc64sc,     (const Orv16s* src1, const Orv16sc* src2, int len, Orv64sc* dp))
ORVAPI(OrvStatus, orvsDotProd_16s16sc_Sfs,     (const Orv16s* src1, const Orv16sc* src2, int len, Orv16sc* dp,
                                                int scale))
ORVAPI(OrvStatus, orvsDotProd_16s32f,          (const Orv16s* src1, const Orv16s* src2, int len, Orv32f* dp))
ORVAPI(OrvStatus, orvsDotProd_16s32s32s_Sfs,   (const Orv16s* src1, const Orv32s* src2, int len, Orv32s* dp, int scale))
ORVAPI(OrvStatus, orvsDotProd_16s32s_Sfs,      (const Orv16s* src1, const Orv16s* src2, int len, Orv32s* dp, int scale))
ORVAPI(OrvStatus, orvsDotProd_16s64s,          (const Orv16s* src1, const Orv16s* src2, int len, Orv64s* dp))
ORVAPI(OrvStatus, orvsDotProd_16s_Sfs,         (const Orv16s* src1, const Orv16s* src2, int len, Orv16s* dp, int scale))
ORVAPI(OrvStatus, orvsDotProd_16sc32fc,        (const Orv16sc* src1, const Orv16sc* src2, int len, Orv32fc* dp))
ORVAPI(OrvStatus, orvsDotProd_16sc32sc_Sfs,    (const Orv16sc* src1, const Orv16sc* src2, int len, Orv32sc* dp,
                                                int scale))
ORVAPI(OrvStatus, orvsDotProd_16sc64sc,        (const Orv16sc* src1, const Orv16sc* src2, int len, Orv64sc* dp))
ORVAPI(OrvStatus, orvsDotProd_16sc_Sfs,        (const Orv16sc* src1, const Orv16sc* src2, int len, Orv16sc* dp,
                                                int scale))
ORVAPI(OrvStatus, orvsDotProd_32f,             (const Orv32f* src1, const Orv32f* src2, int len, Orv32f* dp))
ORVAPI(OrvStatus, orvsDotProd_32f32fc,         (const Orv32f* src1, const Orv32fc* src2, int len, Orv32fc* dp))
ORVAPI(OrvStatus, orvsDotProd_32f32fc64fc,     (const Orv32f* src1, const Orv32fc* src2, int len, Orv64fc* dp))
ORVAPI(OrvStatus, orvsDotProd_32f64f,          (const Orv32f* src1, const Orv32f* src2, int len, Orv64f* dp))
ORVAPI(OrvStatus, orvsDotProd_32fc,            (const Orv32fc* src1, const Orv32fc* src2, int len, Orv32fc* dp))
ORVAPI(OrvStatus, orvsDotProd_32fc64fc,        (const Orv32fc* src1, const Orv32fc* src2, int len, Orv64fc* dp))
ORVAPI(OrvStatus, orvsDotProd_32s32sc_Sfs,     (const Orv32s* src1, const Orv32sc* src2, int len, Orv32sc* dp,
                                                int scale))
ORVAPI(OrvStatus, orvsDotProd_32s_Sfs,         (const Orv32s* src1, const Orv32s* src2, int len, Orv32s* dp, int scale))
ORVAPI(OrvStatus, orvsDotProd_32sc_Sfs,        (const Orv32sc* src1, const Orv32sc* src2, int len, Orv32sc* dp,
                                                int scale))
ORVAPI(OrvStatus, orvsDotProd_64f,             (const Orv64f* src1, const Orv64f* src2, int len, Orv64f* dp))
ORVAPI(OrvStatus, orvsDotProd_64f64fc,         (const Orv64f* src1, const Orv64fc* src2, int len, Orv64fc* dp))
ORVAPI(OrvStatus, orvsDotProd_64fc,            (const Orv64fc* src1, const Orv64fc* src2, int len, Orv64fc* dp))
/** @} */

#endif
