/* Conversions between element types, layouts, byte orders and companded samples.
 *
 *     Orv16s pcm[480];
 *     orvsConvert_32f16s_Sfs(mix, pcm, 480, orvRndNear, -15);    // [-1, 1) to 16 bits: pcm[i] = mix[i] * 2^15
 *
 *     Orv32f re[256], im[256];
 *     orvsCplxToReal_32fc(iq, re, im, 256);                      // re[i] = iq[i].re, im[i] = iq[i].im
 *
 *     const Orv32f* stereo[] = {left, right};
 *     orvsJoinScaled_32f16s_D2L(stereo, 2, len, interleaved);    // left[0] * 2^15, right[0] * 2^15, left[1] * 2^15, ...
 *
 * Functions that only move values keep every bit of them, not-a-numbers included.
 *
 * Common to the whole header: arrays have any alignment, and nothing outside them is touched, not even read. Forms with I
 * write over srcDst. In the others a source and a destination whose elements have the same size are the same array or do
 * not overlap; others do not overlap. Every function checks before it writes, has no state, allocates nothing, runs on
 * the calling thread, and may be called from many threads on different data. Results too large for the caches are stored
 * past them.
 *
 *     orvErrNullPointer    a pointer is null
 *     orvErrBadLength      len < 1
 *
 * in this order, before all other checks, unless told otherwise. */
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

/* ---- Real                                                                                        convert/parts.cpp */

/** @name Real
 * dst[i] = src[i].re.
 * @retval orvErrNullPointer a pointer is null
 * @retval orvErrBadLength   len < 1
 * @{ */
ORVAPI(OrvStatus, orvsReal_16sc, (const Orv16sc* src, Orv16s* dst, int len))
ORVAPI(OrvStatus, orvsReal_32fc, (const Orv32fc* src, Orv32f* dst, int len))
ORVAPI(OrvStatus, orvsReal_64fc, (const Orv64fc* src, Orv64f* dst, int len))
/** @} */

/* ---- Imag                                                                                        convert/parts.cpp */

/** @name Imag
 * dst[i] = src[i].im.
 * @retval orvErrNullPointer a pointer is null
 * @retval orvErrBadLength   len < 1
 * @{ */
ORVAPI(OrvStatus, orvsImag_16sc, (const Orv16sc* src, Orv16s* dst, int len))
ORVAPI(OrvStatus, orvsImag_32fc, (const Orv32fc* src, Orv32f* dst, int len))
ORVAPI(OrvStatus, orvsImag_64fc, (const Orv64fc* src, Orv64f* dst, int len))
/** @} */

/* ---- CplxToReal                                                                                  convert/parts.cpp */

/** @name CplxToReal
 * dstRe[i] = src[i].re and dstIm[i] = src[i].im.
 * @retval orvErrNullPointer a pointer is null
 * @retval orvErrBadLength   len < 1
 * @{ */
ORVAPI(OrvStatus, orvsCplxToReal_16sc, (const Orv16sc* src, Orv16s* dstRe, Orv16s* dstIm, int len))
ORVAPI(OrvStatus, orvsCplxToReal_32fc, (const Orv32fc* src, Orv32f* dstRe, Orv32f* dstIm, int len))
ORVAPI(OrvStatus, orvsCplxToReal_64fc, (const Orv64fc* src, Orv64f* dstRe, Orv64f* dstIm, int len))
/** @} */

/* ---- RealToCplx                                                                                  convert/parts.cpp */

/** @name RealToCplx
 * dst[i] = srcRe[i] + j * srcIm[i]. One of the sources may be null: its parts are 0.
 * @retval orvErrNullPointer dst is null; or, found last, both sources are
 * @retval orvErrBadLength   len < 1
 * @{ */
ORVAPI(OrvStatus, orvsRealToCplx_16s, (const Orv16s* srcRe, const Orv16s* srcIm, Orv16sc* dst, int len))
ORVAPI(OrvStatus, orvsRealToCplx_32f, (const Orv32f* srcRe, const Orv32f* srcIm, Orv32fc* dst, int len))
ORVAPI(OrvStatus, orvsRealToCplx_64f, (const Orv64f* srcRe, const Orv64f* srcIm, Orv64fc* dst, int len))
/** @} */

/* ---- Conj                                                                                         convert/conj.cpp */

/** @name Conj
 * dst[i] = src[i].re - j * src[i].im, or the same of srcDst[i]. The sign bit of a floating imaginary part is inverted,
 * whatever it is; an imaginary part of -32768 saturates to 32767.
 * @retval orvErrNullPointer a pointer is null
 * @retval orvErrBadLength   len < 1
 * @{ */
ORVAPI(OrvStatus, orvsConj_16sc,   (const Orv16sc* src, Orv16sc* dst, int len))
ORVAPI(OrvStatus, orvsConj_16sc_I, (Orv16sc* srcDst, int len))
ORVAPI(OrvStatus, orvsConj_32fc,   (const Orv32fc* src, Orv32fc* dst, int len))
ORVAPI(OrvStatus, orvsConj_32fc_I, (Orv32fc* srcDst, int len))
ORVAPI(OrvStatus, orvsConj_64fc,   (const Orv64fc* src, Orv64fc* dst, int len))
ORVAPI(OrvStatus, orvsConj_64fc_I, (Orv64fc* srcDst, int len))
/** @} */

/* ---- ConjFlip                                                                                     convert/flip.cpp */

/** @name ConjFlip
 * dst[i] = the conjugate of src[len - 1 - i], as Conj has it.
 * @retval orvErrNullPointer a pointer is null
 * @retval orvErrBadLength   len < 1
 * @{ */
ORVAPI(OrvStatus, orvsConjFlip_16sc, (const Orv16sc* src, Orv16sc* dst, int len))
ORVAPI(OrvStatus, orvsConjFlip_32fc, (const Orv32fc* src, Orv32fc* dst, int len))
ORVAPI(OrvStatus, orvsConjFlip_64fc, (const Orv64fc* src, Orv64fc* dst, int len))
/** @} */

/* The spectrum X of a real signal of len samples is conjugate-symmetric: X[len - k] = conj(X[k]), X[0] is real, and for
 * even len so is X[len / 2]. The three packed layouts keep its first half. With R for real and I for imaginary parts:
 *
 *             even len                                                      odd len, h = (len - 1) / 2
 *     Pack    R[0] R[1] I[1] ... R[len/2-1] I[len/2-1] R[len/2]             R[0] R[1] I[1] ... R[h] I[h]
 *     Perm    R[0] R[len/2] R[1] I[1] ... R[len/2-1] I[len/2-1]             the same
 *     CCS     R[0] 0 R[1] I[1] ... R[len/2-1] I[len/2-1] R[len/2] 0         R[0] 0 R[1] I[1] ... R[h] I[h]
 *
 * Pack and Perm take len real numbers, CCS len + 2 for even and len + 1 for odd len. The functions below expand a layout
 * to all len complex elements; no more of src than the layout takes is read. In place, the packed numbers stand at the
 * start of srcDst, which has room for len elements. src == dst works in place as well. */

/* ---- ConjPack                                                                              convert/packed_conj.cpp */

/** @name ConjPack
 * dst = X for the Pack layout at src, or at the start of srcDst. Conjugates are those of Conj.
 * @retval orvErrNullPointer a pointer is null
 * @retval orvErrBadLength   len < 1; len counts the elements of the result
 * @{ */
ORVAPI(OrvStatus, orvsConjPack_16sc,   (const Orv16sc* src, Orv16sc* dst, int len))
ORVAPI(OrvStatus, orvsConjPack_16sc_I, (Orv16sc* srcDst, int len))
ORVAPI(OrvStatus, orvsConjPack_32fc,   (const Orv32fc* src, Orv32fc* dst, int len))
ORVAPI(OrvStatus, orvsConjPack_32fc_I, (Orv32fc* srcDst, int len))
ORVAPI(OrvStatus, orvsConjPack_64fc,   (const Orv64fc* src, Orv64fc* dst, int len))
ORVAPI(OrvStatus, orvsConjPack_64fc_I, (Orv64fc* srcDst, int len))
/** @} */

/* ---- ConjPerm                                                                              convert/packed_conj.cpp */

/** @name ConjPerm
 * dst = X for the Perm layout at src, or at the start of srcDst. Conjugates are those of Conj.
 * @retval orvErrNullPointer a pointer is null
 * @retval orvErrBadLength   len < 1; len counts the elements of the result
 * @{ */
ORVAPI(OrvStatus, orvsConjPerm_16sc,   (const Orv16sc* src, Orv16sc* dst, int len))
ORVAPI(OrvStatus, orvsConjPerm_16sc_I, (Orv16sc* srcDst, int len))
ORVAPI(OrvStatus, orvsConjPerm_32fc,   (const Orv32fc* src, Orv32fc* dst, int len))
ORVAPI(OrvStatus, orvsConjPerm_32fc_I, (Orv32fc* srcDst, int len))
ORVAPI(OrvStatus, orvsConjPerm_64fc,   (const Orv64fc* src, Orv64fc* dst, int len))
ORVAPI(OrvStatus, orvsConjPerm_64fc_I, (Orv64fc* srcDst, int len))
/** @} */

/* ---- ConjCcs                                                                               convert/packed_conj.cpp */

/** @name ConjCcs
 * dst = X for the CCS layout at src, or at the start of srcDst. Conjugates are those of Conj; the imaginary parts that
 * the layout stores for X[0] and X[len / 2] are copied.
 * @retval orvErrNullPointer a pointer is null
 * @retval orvErrBadLength   len < 1; len counts the elements of the result
 * @{ */
ORVAPI(OrvStatus, orvsConjCcs_16sc,   (const Orv16sc* src, Orv16sc* dst, int len))
ORVAPI(OrvStatus, orvsConjCcs_16sc_I, (Orv16sc* srcDst, int len))
ORVAPI(OrvStatus, orvsConjCcs_32fc,   (const Orv32fc* src, Orv32fc* dst, int len))
ORVAPI(OrvStatus, orvsConjCcs_32fc_I, (Orv32fc* srcDst, int len))
ORVAPI(OrvStatus, orvsConjCcs_64fc,   (const Orv64fc* src, Orv64fc* dst, int len))
ORVAPI(OrvStatus, orvsConjCcs_64fc_I, (Orv64fc* srcDst, int len))
/** @} */

/* ---- Flip                                                                                         convert/flip.cpp */

/** @name Flip
 * dst[i] = src[len - 1 - i], or the same within srcDst.
 * @retval orvErrNullPointer a pointer is null
 * @retval orvErrBadLength   len < 1
 * @{ */
ORVAPI(OrvStatus, orvsFlip_8u,     (const Orv8u* src, Orv8u* dst, int len))
ORVAPI(OrvStatus, orvsFlip_8u_I,   (Orv8u* srcDst, int len))
ORVAPI(OrvStatus, orvsFlip_16u,    (const Orv16u* src, Orv16u* dst, int len))
ORVAPI(OrvStatus, orvsFlip_16u_I,  (Orv16u* srcDst, int len))
ORVAPI(OrvStatus, orvsFlip_32f,    (const Orv32f* src, Orv32f* dst, int len))
ORVAPI(OrvStatus, orvsFlip_32f_I,  (Orv32f* srcDst, int len))
ORVAPI(OrvStatus, orvsFlip_32fc,   (const Orv32fc* src, Orv32fc* dst, int len))
ORVAPI(OrvStatus, orvsFlip_32fc_I, (Orv32fc* srcDst, int len))
ORVAPI(OrvStatus, orvsFlip_64f,    (const Orv64f* src, Orv64f* dst, int len))
ORVAPI(OrvStatus, orvsFlip_64f_I,  (Orv64f* srcDst, int len))
ORVAPI(OrvStatus, orvsFlip_64fc,   (const Orv64fc* src, Orv64fc* dst, int len))
ORVAPI(OrvStatus, orvsFlip_64fc_I, (Orv64fc* srcDst, int len))
/** @} */

/* ---- SwapBytes                                                                              convert/swap_bytes.cpp */

/** @name SwapBytes
 * The bytes of each element in reverse order: between little-endian and big-endian. An element of 24u has three bytes,
 * so its arrays have 3 * len.
 * @retval orvErrNullPointer a pointer is null
 * @retval orvErrBadLength   len < 1
 * @{ */
ORVAPI(OrvStatus, orvsSwapBytes_16u,   (const Orv16u* src, Orv16u* dst, int len))
ORVAPI(OrvStatus, orvsSwapBytes_16u_I, (Orv16u* srcDst, int len))
ORVAPI(OrvStatus, orvsSwapBytes_24u,   (const Orv8u* src, Orv8u* dst, int len))
ORVAPI(OrvStatus, orvsSwapBytes_24u_I, (Orv8u* srcDst, int len))
ORVAPI(OrvStatus, orvsSwapBytes_32u,   (const Orv32u* src, Orv32u* dst, int len))
ORVAPI(OrvStatus, orvsSwapBytes_32u_I, (Orv32u* srcDst, int len))
ORVAPI(OrvStatus, orvsSwapBytes_64u,   (const Orv64u* src, Orv64u* dst, int len))
ORVAPI(OrvStatus, orvsSwapBytes_64u_I, (Orv64u* srcDst, int len))
/** @} */

/* A bit string is a byte pointer and the number of its first bit, from 0 on: bits are numbered through the bytes, and an
 * offset may lie in any byte. In little order (LE, and orvsCopy_1u) bit k is the bit of weight 2^(k % 8) in byte k / 8,
 * least significant first; in big order (BE) it is that of weight 2^(7 - k % 8), as the digits are written.
 *
 *     const Orv8u src[] = {0xB4};             //  bits 0, 1, 2 ...   LE: 0 0 1 0 1 1 0 1   BE: 1 0 1 1 0 1 0 0
 *     Orv8u dst[] = {0, 0};
 *     orvsCopyLE_1u(src, 2, dst, 7, 4);       //  1 0 1 1 to bits 7 to 10: dst = {0x80, 0x06}
 *     orvsCopyBE_1u(src, 2, dst, 7, 4);       //  1 1 0 1 there, into zeros: dst = {0x01, 0xA0}
 */

/* ---- Copy of bits                                                                                 convert/bits.cpp */

/** @name Copy of bits
 * Bit dstBitOffset + k of dst = bit srcBitOffset + k of src for k in [0, len). The other bits of dst stay as they are,
 * and only bytes that hold some of the bits are read. The strings do not overlap.
 * @retval orvErrNullPointer a pointer is null
 * @retval orvErrBadLength   len < 1 or an offset < 0
 * @{ */
ORVAPI(OrvStatus, orvsCopy_1u,   (const Orv8u* src, int srcBitOffset, Orv8u* dst, int dstBitOffset, int len))
ORVAPI(OrvStatus, orvsCopyLE_1u, (const Orv8u* src, int srcBitOffset, Orv8u* dst, int dstBitOffset, int len))
ORVAPI(OrvStatus, orvsCopyBE_1u, (const Orv8u* src, int srcBitOffset, Orv8u* dst, int dstBitOffset, int len))
/** @} */

/* ---- PackBits                                                                                     convert/bits.cpp */

/** @name PackBits
 * The widths[i] lower bits of each src[i], one word behind the other and each least significant bit first, as a bit
 * string in little order from bit dstBitOffset of dst on. So orvsCopy_1u copies what orvsPackBits has packed, and the
 * bits of a DEFLATE stream (RFC 1951) lie like this. Of the widths, those below 1 add nothing and those above 32 count
 * as 32. *bits = how many bits were written, at most 2^31 - 1. The other bits of dst stay as they are.
 *
 *     const Orv32u words[] = {5, 0, 9};      //  101, 0, 1001
 *     const int widths[] = {3, 2, 4};
 *     orvsPackBits_32u8u(words, widths, 3, dst, 0, &bits);    //  1 0 1  0 0  1 0 0 1: dst = {0x25, 0x01}, bits = 9
 *
 * @retval orvErrNullPointer a pointer is null
 * @retval orvErrBadLength   len < 1 or dstBitOffset < 0
 * @{ */
ORVAPI(OrvStatus, orvsPackBits_32u8u, (const Orv32u* src, const int* widths, int len, Orv8u* dst, int dstBitOffset, int* bits))
/** @} */

/* ---- JoinScaled                                                                               convert/channels.cpp */

/** @name JoinScaled
 * Channels of floats to interleaved samples: dst[i * nChannels + c] = srcs[c][i] * full scale for i in [0, len), rounded
 * to nearest with ties to even in any rounding state, and saturated. Full scale is 32768 for 16s and 8388608 for 24s, so
 * -1 gives the least integer, and 1 the largest; a not-a-number gives the least. A sample of 24s has three bytes, least
 * significant first: dst has 3 * nChannels * len bytes. One, two, four and eight channels are the fastest.
 * @retval orvErrNullPointer dst is null; after the counts: srcs is, or one of its pointers
 * @retval orvErrBadLength   nChannels < 1 or len < 1
 * @{ */
ORVAPI(OrvStatus, orvsJoinScaled_32f16s_D2L, (const Orv32f* const* srcs, int nChannels, int len, Orv16s* dst))
ORVAPI(OrvStatus, orvsJoinScaled_32f24s_D2L, (const Orv32f* const* srcs, int nChannels, int len, Orv8u* dst))
/** @} */

/* ---- SplitScaled                                                                              convert/channels.cpp */

/** @name SplitScaled
 * Interleaved samples to channels of floats in [-1, 1): dsts[c][i] = src[i * nChannels + c] / full scale for i in
 * [0, len), which is exact. Full scale and the samples of 24s are those of JoinScaled, which gives the samples back.
 * @retval orvErrNullPointer src is null; after the counts: dsts is, or one of its pointers
 * @retval orvErrBadLength   nChannels < 1 or len < 1
 * @{ */
ORVAPI(OrvStatus, orvsSplitScaled_16s32f_D2L, (const Orv16s* src, Orv32f* const* dsts, int nChannels, int len))
ORVAPI(OrvStatus, orvsSplitScaled_24s32f_D2L, (const Orv8u* src, Orv32f* const* dsts, int nChannels, int len))
/** @} */

/* Companding after ITU-T Recommendation G.711 (11/1988). Linear samples are 16-bit integers, of which A-law keeps 13 bits
 * and mu-law 14, left-aligned; or floats, of which 1 corresponds to 32768. Codes are bytes as they are transmitted, with
 * the inversions of the Recommendation. */

/* ---- ALawToLin, MuLawToLin                                                                  convert/companding.cpp */

/** @name ALawToLin and MuLawToLin
 * dst[i] = the value of the code src[i]: the middle of its interval, +-8 to +-32256 in A-law, 0 to +-32124 in mu-law,
 * which has two codes for 0 (127 and 255); for 32f times 2^-15, which is exact.
 * @retval orvErrNullPointer a pointer is null
 * @retval orvErrBadLength   len < 1
 * @{ */
ORVAPI(OrvStatus, orvsALawToLin_8u16s,  (const Orv8u* src, Orv16s* dst, int len))
ORVAPI(OrvStatus, orvsALawToLin_8u32f,  (const Orv8u* src, Orv32f* dst, int len))
ORVAPI(OrvStatus, orvsMuLawToLin_8u16s, (const Orv8u* src, Orv16s* dst, int len))
ORVAPI(OrvStatus, orvsMuLawToLin_8u32f, (const Orv8u* src, Orv32f* dst, int len))
/** @} */

/* ---- LinToALaw, LinToMuLaw                                                                  convert/companding.cpp */

/** @name LinToALaw and LinToMuLaw
 * dst[i] = the code of src[i]. Decoding and encoding gives a code back, but for 127 in mu-law, which becomes 255.
 * A float is first multiplied by 32768, rounded to nearest with ties to even in any rounding state, and saturated to
 * 16 bits; a not-a-number counts as -32768.
 * @retval orvErrNullPointer a pointer is null
 * @retval orvErrBadLength   len < 1
 * @{ */
ORVAPI(OrvStatus, orvsLinToALaw_16s8u,  (const Orv16s* src, Orv8u* dst, int len))
ORVAPI(OrvStatus, orvsLinToALaw_32f8u,  (const Orv32f* src, Orv8u* dst, int len))
ORVAPI(OrvStatus, orvsLinToMuLaw_16s8u, (const Orv16s* src, Orv8u* dst, int len))
ORVAPI(OrvStatus, orvsLinToMuLaw_32f8u, (const Orv32f* src, Orv8u* dst, int len))
/** @} */

/* ---- ALawToMuLaw, MuLawToALaw                                                               convert/companding.cpp */

/** @name ALawToMuLaw and MuLawToALaw
 * dst[i] = the code of the other law for src[i], by tables 4 and 3 of the Recommendation. There and back, at most the
 * last bit of a code changes. src and dst may be the same array.
 * @retval orvErrNullPointer a pointer is null
 * @retval orvErrBadLength   len < 1
 * @{ */
ORVAPI(OrvStatus, orvsALawToMuLaw_8u, (const Orv8u* src, Orv8u* dst, int len))
ORVAPI(OrvStatus, orvsMuLawToALaw_8u, (const Orv8u* src, Orv8u* dst, int len))
/** @} */

#endif
