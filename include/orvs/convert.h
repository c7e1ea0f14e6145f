/* Conversions between element types, layouts, byte orders and companded samples.
 *
 *     Orv16s pcm[480];
 *     orvsConvert_32f16s_Sfs(mix, pcm, 480, orvRndNear, -15);    // [-1, 1) to 16 bits: pcm[i] = mix[i] * 2^15
 *
 * Common to the whole header: arrays have any alignment, and nothing outside them is touched, not even read. A source
 * and the destination do not overlap; if their elements have the same size, they may also be the same array. Every
 * function checks before it writes, has no state, allocates nothing, runs on the calling thread, and may be called from
 * many threads on different data. Results too large for the caches are stored past them.
 *
 *     orvErrNullPointer    a pointer is null
 *     orvErrBadLength      len < 1
 *
 * in this order, before all other checks. */
#ifndef ORVS_CONVERT_H
#define ORVS_CONVERT_H

#include "orvs/types.h"

/* ---- Convert                                                                                 convert/convert.cpp
 *
 * Names tell source and destination: 16s32f takes Orv16s and gives Orv32f. 24s and 24u are packed samples of three
 * bytes, least significant first; len counts samples. 16f is half precision (IEEE binary16). */

/** @name Convert: exact
 * dst[i] = src[i]. Every value of the source is one of the destination. 32f64f keeps infinities, and not-a-numbers
 * become quiet.
 * @retval orvErrNullPointer a pointer is null
 * @retval orvErrBadLength   len < 1
 * @{ */
ORVAPI(OrvStatus, orvsConvert_8s16s,  (const Orv8s* src, Orv16s* dst, int len))
ORVAPI(OrvStatus, orvsConvert_16s32s, (const Orv16s* src, Orv32s* dst, int len))
ORVAPI(OrvStatus, orvsConvert_24s32s, (const Orv8u* src, Orv32s* dst, int len))
ORVAPI(OrvStatus, orvsConvert_24u32u, (const Orv8u* src, Orv32u* dst, int len))
ORVAPI(OrvStatus, orvsConvert_8s32f,  (const Orv8s* src, Orv32f* dst, int len))
ORVAPI(OrvStatus, orvsConvert_8u32f,  (const Orv8u* src, Orv32f* dst, int len))
ORVAPI(OrvStatus, orvsConvert_16s32f, (const Orv16s* src, Orv32f* dst, int len))
ORVAPI(OrvStatus, orvsConvert_16u32f, (const Orv16u* src, Orv32f* dst, int len))
ORVAPI(OrvStatus, orvsConvert_24s32f, (const Orv8u* src, Orv32f* dst, int len))
ORVAPI(OrvStatus, orvsConvert_24u32f, (const Orv8u* src, Orv32f* dst, int len))
ORVAPI(OrvStatus, orvsConvert_32s64f, (const Orv32s* src, Orv64f* dst, int len))
ORVAPI(OrvStatus, orvsConvert_32f64f, (const Orv32f* src, Orv64f* dst, int len))
/** @} */

/** @name Convert: rounded to a floating type
 * dst[i] = src[i], rounded once in the caller's rounding state. 64f32f follows IEEE 754 for values out of range,
 * infinities and not-a-numbers.
 * @retval orvErrNullPointer a pointer is null
 * @retval orvErrBadLength   len < 1
 * @{ */
ORVAPI(OrvStatus, orvsConvert_32s32f, (const Orv32s* src, Orv32f* dst, int len))
ORVAPI(OrvStatus, orvsConvert_64f32f, (const Orv64f* src, Orv32f* dst, int len))
ORVAPI(OrvStatus, orvsConvert_64s64f, (const Orv64s* src, Orv64f* dst, int len))
/** @} */

/** @name Convert: integer to floating with scale
 * dst[i] = src[i] * 2^-scale. Exact, but that 32s32f rounds src[i] to Orv32f in the caller's rounding state first.
 * The scale is limited to [-112, 126] for 16s32f and to [-96, 126] for 32s32f, so that no product leaves the type. For
 * 16s64f and 32s64f it is taken as it is: the factor is the number whose exponent field and sign, twelve bits, are
 * 1023 - scale modulo 2^12, so that scales from -1022 to 1022 give 2^-scale.
 * @retval orvErrNullPointer a pointer is null
 * @retval orvErrBadLength   len < 1
 * @{ */
ORVAPI(OrvStatus, orvsConvert_16s32f_Sfs, (const Orv16s* src, Orv32f* dst, int len, int scale))
ORVAPI(OrvStatus, orvsConvert_16s64f_Sfs, (const Orv16s* src, Orv64f* dst, int len, int scale))
ORVAPI(OrvStatus, orvsConvert_32s32f_Sfs, (const Orv32s* src, Orv32f* dst, int len, int scale))
ORVAPI(OrvStatus, orvsConvert_32s64f_Sfs, (const Orv32s* src, Orv64f* dst, int len, int scale))
/** @} */

/** @name Convert: floating to integer
 * dst[i] = saturate(round(src[i] * 2^-scale)).
 *
 * Rounding, whatever the caller's rounding state: orvRndNear to nearest, ties to even; orvRndZero toward zero; every
 * other value as orvRndFinancial to nearest, ties away from zero. 64f64s takes values that are none of the three as
 * orvRndZero. The 24-bit forms round to nearest, ties to even.
 *
 * Values beyond the destination's range and infinities give its largest or lowest value. A not-a-number gives the
 * lowest value: the most negative one, or 0 of an unsigned type. There is no status for it, and the caller's
 * floating-point flag for invalid operations stays as it was.
 *
 * The factor is a number of the source's type with an exponent field and sign of 127 - scale modulo 2^9 (of Orv64f:
 * 1023 - scale modulo 2^12), so that scales from -126 to 126 (-1022 to 1022) give 2^-scale.
 * @retval orvErrNullPointer a pointer is null
 * @retval orvErrBadLength   len < 1
 * @{ */
ORVAPI(OrvStatus, orvsConvert_32f8s_Sfs,  (const Orv32f* src, Orv8s* dst, int len, OrvRoundMode rndMode, int scale))
ORVAPI(OrvStatus, orvsConvert_32f8u_Sfs,  (const Orv32f* src, Orv8u* dst, int len, OrvRoundMode rndMode, int scale))
ORVAPI(OrvStatus, orvsConvert_32f16s_Sfs, (const Orv32f* src, Orv16s* dst, int len, OrvRoundMode rndMode, int scale))
ORVAPI(OrvStatus, orvsConvert_32f16u_Sfs, (const Orv32f* src, Orv16u* dst, int len, OrvRoundMode rndMode, int scale))
ORVAPI(OrvStatus, orvsConvert_32f32s_Sfs, (const Orv32f* src, Orv32s* dst, int len, OrvRoundMode rndMode, int scale))
ORVAPI(OrvStatus, orvsConvert_64f16s_Sfs, (const Orv64f* src, Orv16s* dst, int len, OrvRoundMode rndMode, int scale))
ORVAPI(OrvStatus, orvsConvert_64f32s_Sfs, (const Orv64f* src, Orv32s* dst, int len, OrvRoundMode rndMode, int scale))
ORVAPI(OrvStatus, orvsConvert_64f64s_Sfs, (const Orv64f* src, Orv64s* dst, int len, OrvRoundMode rndMode, int scale))
ORVAPI(OrvStatus, orvsConvert_32f24s_Sfs, (const Orv32f* src, Orv8u* dst, int len, int scale))
ORVAPI(OrvStatus, orvsConvert_32f24u_Sfs, (const Orv32f* src, Orv8u* dst, int len, int scale))
/** @} */

/** @name Convert: integer to a narrower integer
 * dst[i] = saturate(round(src[i] * 2^-scale)); 32s16s only saturates.
 *
 * 16s8s and 64s32s round by rndMode: orvRndZero, orvRndNear, and every other value as orvRndFinancial; any scale is
 * exact. The forms from 32 bits round to nearest, ties to even.
 * @retval orvErrNullPointer a pointer is null
 * @retval orvErrBadLength   len < 1
 * @note The forms from 32 bits take a scale above 31 as 31.
 * @{ */
ORVAPI(OrvStatus, orvsConvert_16s8s_Sfs,  (const Orv16s* src, Orv8s* dst, int len, OrvRoundMode rndMode, int scale))
ORVAPI(OrvStatus, orvsConvert_32s16s,     (const Orv32s* src, Orv16s* dst, int len))
ORVAPI(OrvStatus, orvsConvert_32s16s_Sfs, (const Orv32s* src, Orv16s* dst, int len, int scale))
ORVAPI(OrvStatus, orvsConvert_32s24s_Sfs, (const Orv32s* src, Orv8u* dst, int len, int scale))
ORVAPI(OrvStatus, orvsConvert_32u24u_Sfs, (const Orv32u* src, Orv8u* dst, int len, int scale))
ORVAPI(OrvStatus, orvsConvert_64s32s_Sfs, (const Orv64s* src, Orv32s* dst, int len, OrvRoundMode rndMode, int scale))
/** @} */

/* ---- Convert                                                                                    convert/half.cpp */

/** @name Convert: half precision
 * 16f32f is exact; not-a-numbers become quiet and keep sign and payload.
 *
 * 32f16f and 16s16f round by rndMode, whatever the caller's rounding state: orvRndNear to nearest, ties to even; every
 * other value but orvRndFinancial toward zero. Too large values give infinity to nearest, and the largest finite value
 * (65504) toward zero; not-a-numbers become quiet and keep sign and the upper bits of their payload.
 *
 * 16f16s: dst[i] = saturate(round(src[i] * 2^-scale)), rounded by rndMode in the same way; any scale is exact. A
 * not-a-number gives -32768.
 *
 * The processor's instructions (F16C) are used where ownGetFeature(orvCpuF16c) says so; the results are the same.
 * @retval orvErrNullPointer  a pointer is null
 * @retval orvErrBadLength    len < 1
 * @retval orvErrBadRoundMode rndMode is orvRndFinancial
 * @{ */
ORVAPI(OrvStatus, orvsConvert_16f32f,     (const Orv16f* src, Orv32f* dst, int len))
ORVAPI(OrvStatus, orvsConvert_32f16f,     (const Orv32f* src, Orv16f* dst, int len, OrvRoundMode rndMode))
ORVAPI(OrvStatus, orvsConvert_16s16f,     (const Orv16s* src, Orv16f* dst, int len, OrvRoundMode rndMode))
ORVAPI(OrvStatus, orvsConvert_16f16s_Sfs, (const Orv16f* src, Orv16s* dst, int len, OrvRoundMode rndMode, int scale))
/** @} */

#endif
