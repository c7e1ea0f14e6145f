/* Finite-impulse-response filters of streams: a record holds the taps and the past of the stream, and each call filters
 * the next samples of it, a block or a single one.
 *
 *     OrvsFIRState* filter;
 *     orvsFIRInitAlloc_32f(&filter, taps, 101, 0);          // 0: the stream begins in silence
 *     while (read_block(in, 512)) {
 *         orvsFIR_32f(in, out, 512, filter);
 *         write_block(out, 512);
 *     }
 *     orvsFIRFree_32f(filter);
 *
 * Every function here computes, with T = tapsLen,
 *
 *     y[n] = taps[0] * x[n] + taps[1] * x[n-1] + ... + taps[T-1] * x[n-T+1]
 *
 * where x is the whole stream, across calls. How the stream is cut into calls, blocks and single samples in any mix, does
 * not matter: integer filters give the same bits, floating ones the same values within the rounding of their compute
 * type. No output depends on a later sample, except for rounding where the FFT is used.
 *
 * A form is named by its taps and its samples:
 *
 *     form                           taps       samples   computes in
 *     _32f, _32fc, _64f, _64fc       the same   the same  the same
 *     32f_16s, 32fc_16sc             32f, 32fc  16s, 16sc 32f, 32fc
 *     64f_32f, 64fc_32fc             64f, 64fc  32f, 32fc 64f, 64fc
 *     64f_32s, 64fc_32sc             64f, 64fc  32s, 32sc 64f, 64fc
 *     64f_16s, 64fc_16sc             64f, 64fc  16s, 16sc 64f, 64fc
 *     _32s                           32s        32s       64f
 *     _16s                           16s        16s       16-bit taps, sums modulo 2^32
 *     32s_16s, 32sc_16sc             32s, 32sc  16s, 16sc 16-bit taps, sums modulo 2^32
 *     32s_16s32f, 32sc_16sc32fc      32f, 32fc  16s, 16sc the same record and calls as 32s_16s, 32sc_16sc
 *
 * Integer samples come out of forms with Sfs: y * 2^-scale, to nearest with ties to even, saturated.
 *
 * Roads. Blocks of at least 512 samples (complex: 256) go through the FFT by the overlap-save method if the filter has at
 * least 64 taps (32fc: 16, 64fc: 32), the rest through direct sums. In place, the forms whose samples are of the compute
 * type work in pieces of 4224 samples; there the FFT takes a piece if at least 512 (256) samples follow it, and the last
 * piece is always summed directly.
 *
 * Threads. A record serves one call at a time; different records, any. Blocks of more than 1600 samples (complex: 800)
 * are spread over as many threads as orvGetNumThreads tells: through the FFT always; by direct sums in all floating forms
 * but _32f, where forms whose samples are not of the compute type count pieces of 2112 samples. Results are the same bits
 * with any number of threads.
 *
 * Sums of floating types use fused multiply-adds and round as the caller's floating-point state says, on all threads.
 *
 * Shapes: taps is an array of tapsLen elements, taps[0] first; src, dst and srcDst have len samples; a dlyLine that goes
 * into a record or comes out of one has tapsLen samples, newest first.
 *
 * Common to the whole header: arrays have any alignment, and nothing outside them is touched, not even read. Source and
 * destination are the same array or do not overlap. Block calls allocate nothing, unless told otherwise.
 *
 * Literature: T. G. Stockham, "High-speed convolution and correlation" (1966); A. V. Oppenheim, R. W. Schafer,
 * "Discrete-Time Signal Processing", chapter 8. */
#ifndef ORVS_FIR_H
#define ORVS_FIR_H

#include "orvs/types.h"

/** The record of a filter that computes in a floating type. Each form has an identifier in it and refuses others'. */
typedef struct OrvsFIRState OrvsFIRState;
/** The record of a filter that computes in integers: _16s, 32s_16s and 32sc_16sc. */
typedef struct OrvsFIRState32s OrvsFIRState32s;

/* ---- The life of a filter                                                                       fir/fir_state.cpp */

/** @name FIRGetStateSize
 * Tells how many bytes Init wants for a filter of tapsLen taps. Room for the FFT is part of them; so they depend on the
 * number of threads, and Init belongs to the same setting of orvSetNumThreads. (Later it may change: a record never uses
 * more threads than it was made for.)
 * @retval orvErrNullPointer  size is null
 * @retval orvErrBadFirLength tapsLen < 1, or so large that the size has more than 31 bits
 * @{ */
ORVAPI(OrvStatus, orvsFIRGetStateSize_32f,          (int tapsLen, int* size))
ORVAPI(OrvStatus, orvsFIRGetStateSize_32fc,         (int tapsLen, int* size))
ORVAPI(OrvStatus, orvsFIRGetStateSize_64f,          (int tapsLen, int* size))
ORVAPI(OrvStatus, orvsFIRGetStateSize_64fc,         (int tapsLen, int* size))
ORVAPI(OrvStatus, orvsFIRGetStateSize32f_16s,       (int tapsLen, int* size))
ORVAPI(OrvStatus, orvsFIRGetStateSize32fc_16sc,     (int tapsLen, int* size))
ORVAPI(OrvStatus, orvsFIRGetStateSize64f_32f,       (int tapsLen, int* size))
ORVAPI(OrvStatus, orvsFIRGetStateSize64fc_32fc,     (int tapsLen, int* size))
ORVAPI(OrvStatus, orvsFIRGetStateSize64f_32s,       (int tapsLen, int* size))
ORVAPI(OrvStatus, orvsFIRGetStateSize64fc_32sc,     (int tapsLen, int* size))
ORVAPI(OrvStatus, orvsFIRGetStateSize64f_16s,       (int tapsLen, int* size))
ORVAPI(OrvStatus, orvsFIRGetStateSize64fc_16sc,     (int tapsLen, int* size))
ORVAPI(OrvStatus, orvsFIRGetStateSize_32s,          (int tapsLen, int* size))
ORVAPI(OrvStatus, orvsFIRGetStateSize_16s,          (int tapsLen, int* size))
ORVAPI(OrvStatus, orvsFIRGetStateSize32s_16s,       (int tapsLen, int* size))
ORVAPI(OrvStatus, orvsFIRGetStateSize32sc_16sc,     (int tapsLen, int* size))
ORVAPI(OrvStatus, orvsFIRGetStateSize32s_16s32f,    (int tapsLen, int* size))
ORVAPI(OrvStatus, orvsFIRGetStateSize32sc_16sc32fc, (int tapsLen, int* size))
/** @} */

/** @name FIRInit
 * Makes a filter in the caller's memory: buffer has the size that GetStateSize told and any alignment. The record's
 * address, which lies inside buffer, goes to *state; it is valid for as long as buffer is, and must not be moved. taps
 * are copied. dlyLine is the past of the stream, newest first: dlyLine[k] = x[-1-k], k = 0 ... T-1; null stands for
 * zeros. (Its last element enters no output.)
 *
 * Integer filters hold their taps in 16 bits with a common power of two, which the output gets back:
 *
 *     _16s                 the taps themselves, y = sum * 2^tapsFactor. If one of them is -32768, all are halved (rounded
 *                          down) and tapsFactor counts one more.
 *     32s_16s, 32sc_16sc   the taps shifted right by e, which is how often the largest magnitude is halved, rounded
 *                          down, until it is at most 32766; y = sum * 2^(tapsFactor + e)
 *     ..._16s32f, ...32fc  the taps times the power of two, from 2^-33 to 2^33, that brings the largest magnitude to 32767
 *                          at most and, if it can, to 16383.5 at least; to nearest, ties away from zero. The factor
 *                          follows from it. Taps that are still larger saturate.
 *
 * orvsFIRInit_32s never uses the FFT; orvsFIRInitAlloc_32s does from 32 taps.
 * @retval orvErrNullPointer  state, taps or buffer is null
 * @retval orvErrBadFirLength tapsLen < 1
 * @{ */
ORVAPI(OrvStatus, orvsFIRInit_32f,          (OrvsFIRState** state, const Orv32f* taps, int tapsLen,
                                             const Orv32f* dlyLine, Orv8u* buffer))
ORVAPI(OrvStatus, orvsFIRInit_32fc,         (OrvsFIRState** state, const Orv32fc* taps, int tapsLen,
                                             const Orv32fc* dlyLine, Orv8u* buffer))
ORVAPI(OrvStatus, orvsFIRInit_64f,          (OrvsFIRState** state, const Orv64f* taps, int tapsLen,
                                             const Orv64f* dlyLine, Orv8u* buffer))
ORVAPI(OrvStatus, orvsFIRInit_64fc,         (OrvsFIRState** state, const Orv64fc* taps, int tapsLen,
                                             const Orv64fc* dlyLine, Orv8u* buffer))
ORVAPI(OrvStatus, orvsFIRInit32f_16s,       (OrvsFIRState** state, const Orv32f* taps, int tapsLen,
                                             const Orv16s* dlyLine, Orv8u* buffer))
ORVAPI(OrvStatus, orvsFIRInit32fc_16sc,     (OrvsFIRState** state, const Orv32fc* taps, int tapsLen,
                                             const Orv16sc* dlyLine, Orv8u* buffer))
ORVAPI(OrvStatus, orvsFIRInit64f_32f,       (OrvsFIRState** state, const Orv64f* taps, int tapsLen,
                                             const Orv32f* dlyLine, Orv8u* buffer))
ORVAPI(OrvStatus, orvsFIRInit64fc_32fc,     (OrvsFIRState** state, const Orv64fc* taps, int tapsLen,
                                             const Orv32fc* dlyLine, Orv8u* buffer))
ORVAPI(OrvStatus, orvsFIRInit64f_32s,       (OrvsFIRState** state, const Orv64f* taps, int tapsLen,
                                             const Orv32s* dlyLine, Orv8u* buffer))
ORVAPI(OrvStatus, orvsFIRInit64fc_32sc,     (OrvsFIRState** state, const Orv64fc* taps, int tapsLen,
                                             const Orv32sc* dlyLine, Orv8u* buffer))
ORVAPI(OrvStatus, orvsFIRInit64f_16s,       (OrvsFIRState** state, const Orv64f* taps, int tapsLen,
                                             const Orv16s* dlyLine, Orv8u* buffer))
ORVAPI(OrvStatus, orvsFIRInit64fc_16sc,     (OrvsFIRState** state, const Orv64fc* taps, int tapsLen,
                                             const Orv16sc* dlyLine, Orv8u* buffer))
ORVAPI(OrvStatus, orvsFIRInit_32s,          (OrvsFIRState** state, const Orv32s* taps, int tapsLen,
                                             const Orv32s* dlyLine, Orv8u* buffer))
ORVAPI(OrvStatus, orvsFIRInit_16s,          (OrvsFIRState32s** state, const Orv16s* taps, int tapsLen, int tapsFactor,
                                             const Orv16s* dlyLine, Orv8u* buffer))
ORVAPI(OrvStatus, orvsFIRInit32s_16s,       (OrvsFIRState32s** state, const Orv32s* taps, int tapsLen, int tapsFactor,
                                             const Orv16s* dlyLine, Orv8u* buffer))
ORVAPI(OrvStatus, orvsFIRInit32sc_16sc,     (OrvsFIRState32s** state, const Orv32sc* taps, int tapsLen, int tapsFactor,
                                             const Orv16sc* dlyLine, Orv8u* buffer))
ORVAPI(OrvStatus, orvsFIRInit32s_16s32f,    (OrvsFIRState32s** state, const Orv32f* taps, int tapsLen,
                                             const Orv16s* dlyLine, Orv8u* buffer))
ORVAPI(OrvStatus, orvsFIRInit32sc_16sc32fc, (OrvsFIRState32s** state, const Orv32fc* taps, int tapsLen,
                                             const Orv16sc* dlyLine, Orv8u* buffer))
/** @} */

/** @name FIRInitAlloc
 * Init in memory of its own, which goes back through Free. If there is no memory for the FFT, the filter does without.
 * @retval orvErrNullPointer  state or taps is null
 * @retval orvErrBadFirLength tapsLen < 1, or so large that the size has more than 31 bits
 * @retval orvErrNoMemory     an allocation failed; nothing stays allocated
 * @{ */
ORVAPI(OrvStatus, orvsFIRInitAlloc_32f,          (OrvsFIRState** state, const Orv32f* taps, int tapsLen,
                                                  const Orv32f* dlyLine))
ORVAPI(OrvStatus, orvsFIRInitAlloc_32fc,         (OrvsFIRState** state, const Orv32fc* taps, int tapsLen,
                                                  const Orv32fc* dlyLine))
ORVAPI(OrvStatus, orvsFIRInitAlloc_64f,          (OrvsFIRState** state, const Orv64f* taps, int tapsLen,
                                                  const Orv64f* dlyLine))
ORVAPI(OrvStatus, orvsFIRInitAlloc_64fc,         (OrvsFIRState** state, const Orv64fc* taps, int tapsLen,
                                                  const Orv64fc* dlyLine))
ORVAPI(OrvStatus, orvsFIRInitAlloc32f_16s,       (OrvsFIRState** state, const Orv32f* taps, int tapsLen,
                                                  const Orv16s* dlyLine))
ORVAPI(OrvStatus, orvsFIRInitAlloc32fc_16sc,     (OrvsFIRState** state, const Orv32fc* taps, int tapsLen,
                                                  const Orv16sc* dlyLine))
ORVAPI(OrvStatus, orvsFIRInitAlloc64f_32f,       (OrvsFIRState** state, const Orv64f* taps, int tapsLen,
                                                  const Orv32f* dlyLine))
ORVAPI(OrvStatus, orvsFIRInitAlloc64fc_32fc,     (OrvsFIRState** state, const Orv64fc* taps, int tapsLen,
                                                  const Orv32fc* dlyLine))
ORVAPI(OrvStatus, orvsFIRInitAlloc64f_32s,       (OrvsFIRState** state, const Orv64f* taps, int tapsLen,
                                                  const Orv32s* dlyLine))
ORVAPI(OrvStatus, orvsFIRInitAlloc64fc_32sc,     (OrvsFIRState** state, const Orv64fc* taps, int tapsLen,
                                                  const Orv32sc* dlyLine))
ORVAPI(OrvStatus, orvsFIRInitAlloc64f_16s,       (OrvsFIRState** state, const Orv64f* taps, int tapsLen,
                                                  const Orv16s* dlyLine))
ORVAPI(OrvStatus, orvsFIRInitAlloc64fc_16sc,     (OrvsFIRState** state, const Orv64fc* taps, int tapsLen,
                                                  const Orv16sc* dlyLine))
ORVAPI(OrvStatus, orvsFIRInitAlloc_32s,          (OrvsFIRState** state, const Orv32s* taps, int tapsLen,
                                                  const Orv32s* dlyLine))
ORVAPI(OrvStatus, orvsFIRInitAlloc_16s,          (OrvsFIRState32s** state, const Orv16s* taps, int tapsLen,
                                                  int tapsFactor, const Orv16s* dlyLine))
ORVAPI(OrvStatus, orvsFIRInitAlloc32s_16s,       (OrvsFIRState32s** state, const Orv32s* taps, int tapsLen,
                                                  int tapsFactor, const Orv16s* dlyLine))
ORVAPI(OrvStatus, orvsFIRInitAlloc32sc_16sc,     (OrvsFIRState32s** state, const Orv32sc* taps, int tapsLen,
                                                  int tapsFactor, const Orv16sc* dlyLine))
ORVAPI(OrvStatus, orvsFIRInitAlloc32s_16s32f,    (OrvsFIRState32s** state, const Orv32f* taps, int tapsLen,
                                                  const Orv16s* dlyLine))
ORVAPI(OrvStatus, orvsFIRInitAlloc32sc_16sc32fc, (OrvsFIRState32s** state, const Orv32fc* taps, int tapsLen,
                                                  const Orv16sc* dlyLine))
/** @} */

/** @name FIRFree
 * Gives back what InitAlloc allocated. A record that Init made belongs to the caller and stays as it is. The forms 32s_16s
 * and 32sc_16sc also serve records made with floating taps.
 * @retval orvErrNullPointer  state is null
 * @retval orvErrWrongContext state is the record of another form
 * @{ */
ORVAPI(OrvStatus, orvsFIRFree_32f,      (OrvsFIRState* state))
ORVAPI(OrvStatus, orvsFIRFree_32fc,     (OrvsFIRState* state))
ORVAPI(OrvStatus, orvsFIRFree_64f,      (OrvsFIRState* state))
ORVAPI(OrvStatus, orvsFIRFree_64fc,     (OrvsFIRState* state))
ORVAPI(OrvStatus, orvsFIRFree32f_16s,   (OrvsFIRState* state))
ORVAPI(OrvStatus, orvsFIRFree32fc_16sc, (OrvsFIRState* state))
ORVAPI(OrvStatus, orvsFIRFree64f_32f,   (OrvsFIRState* state))
ORVAPI(OrvStatus, orvsFIRFree64fc_32fc, (OrvsFIRState* state))
ORVAPI(OrvStatus, orvsFIRFree64f_32s,   (OrvsFIRState* state))
ORVAPI(OrvStatus, orvsFIRFree64fc_32sc, (OrvsFIRState* state))
ORVAPI(OrvStatus, orvsFIRFree64f_16s,   (OrvsFIRState* state))
ORVAPI(OrvStatus, orvsFIRFree64fc_16sc, (OrvsFIRState* state))
ORVAPI(OrvStatus, orvsFIRFree_32s,      (OrvsFIRState* state))
ORVAPI(OrvStatus, orvsFIRFree_16s,      (OrvsFIRState32s* state))
ORVAPI(OrvStatus, orvsFIRFree32s_16s,   (OrvsFIRState32s* state))
ORVAPI(OrvStatus, orvsFIRFree32sc_16sc, (OrvsFIRState32s* state))
/** @} */

/* ---- Taps                                                                                        fir/fir_taps.cpp */

/** @name FIRSetTaps
 * Replaces the taps, as many as there are, and keeps the past of the stream.
 * @retval orvErrNullPointer  taps or state is null
 * @retval orvErrWrongContext state is the record of another form
 * @retval orvErrNoMemory     as every failure of the transform of the taps: the filter has its new taps and works without
 *                            the FFT from now on
 * @{ */
ORVAPI(OrvStatus, orvsFIRSetTaps_32f,          (const Orv32f* taps, OrvsFIRState* state))
ORVAPI(OrvStatus, orvsFIRSetTaps_32fc,         (const Orv32fc* taps, OrvsFIRState* state))
ORVAPI(OrvStatus, orvsFIRSetTaps_64f,          (const Orv64f* taps, OrvsFIRState* state))
ORVAPI(OrvStatus, orvsFIRSetTaps_64fc,         (const Orv64fc* taps, OrvsFIRState* state))
ORVAPI(OrvStatus, orvsFIRSetTaps32f_16s,       (const Orv32f* taps, OrvsFIRState* state))
ORVAPI(OrvStatus, orvsFIRSetTaps32fc_16sc,     (const Orv32fc* taps, OrvsFIRState* state))
ORVAPI(OrvStatus, orvsFIRSetTaps64f_32f,       (const Orv64f* taps, OrvsFIRState* state))
ORVAPI(OrvStatus, orvsFIRSetTaps64fc_32fc,     (const Orv64fc* taps, OrvsFIRState* state))
ORVAPI(OrvStatus, orvsFIRSetTaps64f_32s,       (const Orv64f* taps, OrvsFIRState* state))
ORVAPI(OrvStatus, orvsFIRSetTaps64fc_32sc,     (const Orv64fc* taps, OrvsFIRState* state))
ORVAPI(OrvStatus, orvsFIRSetTaps64f_16s,       (const Orv64f* taps, OrvsFIRState* state))
ORVAPI(OrvStatus, orvsFIRSetTaps64fc_16sc,     (const Orv64fc* taps, OrvsFIRState* state))
ORVAPI(OrvStatus, orvsFIRSetTaps_32s,          (const Orv32s* taps, OrvsFIRState* state))
ORVAPI(OrvStatus, orvsFIRSetTaps_16s,          (const Orv16s* taps, OrvsFIRState32s* state, int tapsFactor))
ORVAPI(OrvStatus, orvsFIRSetTaps32s_16s,       (const Orv32s* taps, OrvsFIRState32s* state, int tapsFactor))
ORVAPI(OrvStatus, orvsFIRSetTaps32sc_16sc,     (const Orv32sc* taps, OrvsFIRState32s* state, int tapsFactor))
ORVAPI(OrvStatus, orvsFIRSetTaps32s_16s32f,    (const Orv32f* taps, OrvsFIRState32s* state))
ORVAPI(OrvStatus, orvsFIRSetTaps32sc_16sc32fc, (const Orv32fc* taps, OrvsFIRState32s* state))
/** @} */

/** @name FIRGetTaps
 * Copies the taps, taps[0] first. Integer forms give the 16-bit taps that the filter holds, and in *tapsFactor the power
 * of two that belongs to them; the forms of floating taps give stored * 2^-factor (note the sign: it undoes no factor but
 * 0, as the output multiplies by 2^+factor).
 * @retval orvErrNullPointer  a pointer is null
 * @retval orvErrWrongContext state is the record of another form
 * @{ */
ORVAPI(OrvStatus, orvsFIRGetTaps_32f,          (const OrvsFIRState* state, Orv32f* taps))
ORVAPI(OrvStatus, orvsFIRGetTaps_32fc,         (const OrvsFIRState* state, Orv32fc* taps))
ORVAPI(OrvStatus, orvsFIRGetTaps_64f,          (const OrvsFIRState* state, Orv64f* taps))
ORVAPI(OrvStatus, orvsFIRGetTaps_64fc,         (const OrvsFIRState* state, Orv64fc* taps))
ORVAPI(OrvStatus, orvsFIRGetTaps32f_16s,       (const OrvsFIRState* state, Orv32f* taps))
ORVAPI(OrvStatus, orvsFIRGetTaps32fc_16sc,     (const OrvsFIRState* state, Orv32fc* taps))
ORVAPI(OrvStatus, orvsFIRGetTaps64f_32f,       (const OrvsFIRState* state, Orv64f* taps))
ORVAPI(OrvStatus, orvsFIRGetTaps64fc_32fc,     (const OrvsFIRState* state, Orv64fc* taps))
ORVAPI(OrvStatus, orvsFIRGetTaps64f_32s,       (const OrvsFIRState* state, Orv64f* taps))
ORVAPI(OrvStatus, orvsFIRGetTaps64fc_32sc,     (const OrvsFIRState* state, Orv64fc* taps))
ORVAPI(OrvStatus, orvsFIRGetTaps64f_16s,       (const OrvsFIRState* state, Orv64f* taps))
ORVAPI(OrvStatus, orvsFIRGetTaps64fc_16sc,     (const OrvsFIRState* state, Orv64fc* taps))
ORVAPI(OrvStatus, orvsFIRGetTaps_32s,          (const OrvsFIRState* state, Orv32s* taps))
ORVAPI(OrvStatus, orvsFIRGetTaps_16s,          (const OrvsFIRState32s* state, Orv16s* taps, int* tapsFactor))
ORVAPI(OrvStatus, orvsFIRGetTaps32s_16s,       (const OrvsFIRState32s* state, Orv32s* taps, int* tapsFactor))
ORVAPI(OrvStatus, orvsFIRGetTaps32sc_16sc,     (const OrvsFIRState32s* state, Orv32sc* taps, int* tapsFactor))
ORVAPI(OrvStatus, orvsFIRGetTaps32s_16s32f,    (const OrvsFIRState32s* state, Orv32f* taps))
ORVAPI(OrvStatus, orvsFIRGetTaps32sc_16sc32fc, (const OrvsFIRState32s* state, Orv32fc* taps))
/** @} */

/* ---- The past of the stream                                                                     fir/fir_delay.cpp */

/** @name FIRSetDlyLine, FIRGetDlyLine
 * Sets, or tells, the last T samples of the stream, newest first: dlyLine[k] = x[-1-k]. SetDlyLine takes null for zeros.
 * The 64f_32s forms also serve records of _32s.
 * @retval orvErrNullPointer  state is null; GetDlyLine: dlyLine is null
 * @retval orvErrWrongContext state is the record of another form
 * @{ */
ORVAPI(OrvStatus, orvsFIRSetDlyLine_32f,      (OrvsFIRState* state, const Orv32f* dlyLine))
ORVAPI(OrvStatus, orvsFIRSetDlyLine_32fc,     (OrvsFIRState* state, const Orv32fc* dlyLine))
ORVAPI(OrvStatus, orvsFIRSetDlyLine_64f,      (OrvsFIRState* state, const Orv64f* dlyLine))
ORVAPI(OrvStatus, orvsFIRSetDlyLine_64fc,     (OrvsFIRState* state, const Orv64fc* dlyLine))
ORVAPI(OrvStatus, orvsFIRSetDlyLine32f_16s,   (OrvsFIRState* state, const Orv16s* dlyLine))
ORVAPI(OrvStatus, orvsFIRSetDlyLine32fc_16sc, (OrvsFIRState* state, const Orv16sc* dlyLine))
ORVAPI(OrvStatus, orvsFIRSetDlyLine64f_32f,   (OrvsFIRState* state, const Orv32f* dlyLine))
ORVAPI(OrvStatus, orvsFIRSetDlyLine64fc_32fc, (OrvsFIRState* state, const Orv32fc* dlyLine))
ORVAPI(OrvStatus, orvsFIRSetDlyLine64f_32s,   (OrvsFIRState* state, const Orv32s* dlyLine))
ORVAPI(OrvStatus, orvsFIRSetDlyLine64fc_32sc, (OrvsFIRState* state, const Orv32sc* dlyLine))
ORVAPI(OrvStatus, orvsFIRSetDlyLine64f_16s,   (OrvsFIRState* state, const Orv16s* dlyLine))
ORVAPI(OrvStatus, orvsFIRSetDlyLine64fc_16sc, (OrvsFIRState* state, const Orv16sc* dlyLine))
ORVAPI(OrvStatus, orvsFIRSetDlyLine_16s,      (OrvsFIRState32s* state, const Orv16s* dlyLine))
ORVAPI(OrvStatus, orvsFIRSetDlyLine32s_16s,   (OrvsFIRState32s* state, const Orv16s* dlyLine))
ORVAPI(OrvStatus, orvsFIRSetDlyLine32sc_16sc, (OrvsFIRState32s* state, const Orv16sc* dlyLine))
ORVAPI(OrvStatus, orvsFIRGetDlyLine_32f,      (const OrvsFIRState* state, Orv32f* dlyLine))
ORVAPI(OrvStatus, orvsFIRGetDlyLine_32fc,     (const OrvsFIRState* state, Orv32fc* dlyLine))
ORVAPI(OrvStatus, orvsFIRGetDlyLine_64f,      (const OrvsFIRState* state, Orv64f* dlyLine))
ORVAPI(OrvStatus, orvsFIRGetDlyLine_64fc,     (const OrvsFIRState* state, Orv64fc* dlyLine))
ORVAPI(OrvStatus, orvsFIRGetDlyLine32f_16s,   (const OrvsFIRState* state, Orv16s* dlyLine))
ORVAPI(OrvStatus, orvsFIRGetDlyLine32fc_16sc, (const OrvsFIRState* state, Orv16sc* dlyLine))
ORVAPI(OrvStatus, orvsFIRGetDlyLine64f_32f,   (const OrvsFIRState* state, Orv32f* dlyLine))
ORVAPI(OrvStatus, orvsFIRGetDlyLine64fc_32fc, (const OrvsFIRState* state, Orv32fc* dlyLine))
ORVAPI(OrvStatus, orvsFIRGetDlyLine64f_32s,   (const OrvsFIRState* state, Orv32s* dlyLine))
ORVAPI(OrvStatus, orvsFIRGetDlyLine64fc_32sc, (const OrvsFIRState* state, Orv32sc* dlyLine))
ORVAPI(OrvStatus, orvsFIRGetDlyLine64f_16s,   (const OrvsFIRState* state, Orv16s* dlyLine))
ORVAPI(OrvStatus, orvsFIRGetDlyLine64fc_16sc, (const OrvsFIRState* state, Orv16sc* dlyLine))
ORVAPI(OrvStatus, orvsFIRGetDlyLine_16s,      (const OrvsFIRState32s* state, Orv16s* dlyLine))
ORVAPI(OrvStatus, orvsFIRGetDlyLine32s_16s,   (const OrvsFIRState32s* state, Orv16s* dlyLine))
ORVAPI(OrvStatus, orvsFIRGetDlyLine32sc_16sc, (const OrvsFIRState32s* state, Orv16sc* dlyLine))
/** @} */

/* ---- Filtering                                                                                    fir/fir.cpp */

/** @name FIR
 * Filters the next len samples of the stream. In forms with Sfs, scale divides by 2^scale; integer filters shift their
 * sum by tapsFactor - scale, taken within -31 ... 31: to the left modulo 2^32, to the right to nearest with ties to even.
 * @retval orvErrNullPointer  an array or state is null
 * @retval orvErrBadLength    len < 1
 * @retval orvErrWrongContext state is the record of another form
 * @{ */
ORVAPI(OrvStatus, orvsFIR_32f,           (const Orv32f* src, Orv32f* dst, int len, OrvsFIRState* state))
ORVAPI(OrvStatus, orvsFIR_32fc,          (const Orv32fc* src, Orv32fc* dst, int len, OrvsFIRState* state))
ORVAPI(OrvStatus, orvsFIR_64f,           (const Orv64f* src, Orv64f* dst, int len, OrvsFIRState* state))
ORVAPI(OrvStatus, orvsFIR_64fc,          (const Orv64fc* src, Orv64fc* dst, int len, OrvsFIRState* state))
ORVAPI(OrvStatus, orvsFIR32f_16s_Sfs,    (const Orv16s* src, Orv16s* dst, int len, OrvsFIRState* state, int scale))
ORVAPI(OrvStatus, orvsFIR32fc_16sc_Sfs,  (const Orv16sc* src, Orv16sc* dst, int len, OrvsFIRState* state, int scale))
ORVAPI(OrvStatus, orvsFIR64f_32f,        (const Orv32f* src, Orv32f* dst, int len, OrvsFIRState* state))
ORVAPI(OrvStatus, orvsFIR64fc_32fc,      (const Orv32fc* src, Orv32fc* dst, int len, OrvsFIRState* state))
ORVAPI(OrvStatus, orvsFIR64f_32s_Sfs,    (const Orv32s* src, Orv32s* dst, int len, OrvsFIRState* state, int scale))
ORVAPI(OrvStatus, orvsFIR64fc_32sc_Sfs,  (const Orv32sc* src, Orv32sc* dst, int len, OrvsFIRState* state, int scale))
ORVAPI(OrvStatus, orvsFIR64f_16s_Sfs,    (const Orv16s* src, Orv16s* dst, int len, OrvsFIRState* state, int scale))
ORVAPI(OrvStatus, orvsFIR64fc_16sc_Sfs,  (const Orv16sc* src, Orv16sc* dst, int len, OrvsFIRState* state, int scale))
ORVAPI(OrvStatus, orvsFIR_32s_Sfs,       (const Orv32s* src, Orv32s* dst, int len, OrvsFIRState* state, int scale))
ORVAPI(OrvStatus, orvsFIR_16s_Sfs,       (const Orv16s* src, Orv16s* dst, int len, OrvsFIRState32s* state, int scale))
ORVAPI(OrvStatus, orvsFIR32s_16s_Sfs,    (const Orv16s* src, Orv16s* dst, int len, OrvsFIRState32s* state, int scale))
ORVAPI(OrvStatus, orvsFIR32sc_16sc_Sfs,  (const Orv16sc* src, Orv16sc* dst, int len, OrvsFIRState32s* state, int scale))
ORVAPI(OrvStatus, orvsFIR_32f_I,         (Orv32f* srcDst, int len, OrvsFIRState* state))
ORVAPI(OrvStatus, orvsFIR_32fc_I,        (Orv32fc* srcDst, int len, OrvsFIRState* state))
ORVAPI(OrvStatus, orvsFIR_64f_I,         (Orv64f* srcDst, int len, OrvsFIRState* state))
ORVAPI(OrvStatus, orvsFIR_64fc_I,        (Orv64fc* srcDst, int len, OrvsFIRState* state))
ORVAPI(OrvStatus, orvsFIR32f_16s_ISfs,   (Orv16s* srcDst, int len, OrvsFIRState* state, int scale))
ORVAPI(OrvStatus, orvsFIR32fc_16sc_ISfs, (Orv16sc* srcDst, int len, OrvsFIRState* state, int scale))
ORVAPI(OrvStatus, orvsFIR64f_32f_I,      (Orv32f* srcDst, int len, OrvsFIRState* state))
ORVAPI(OrvStatus, orvsFIR64fc_32fc_I,    (Orv32fc* srcDst, int len, OrvsFIRState* state))
ORVAPI(OrvStatus, orvsFIR64f_32s_ISfs,   (Orv32s* srcDst, int len, OrvsFIRState* state, int scale))
ORVAPI(OrvStatus, orvsFIR64fc_32sc_ISfs, (Orv32sc* srcDst, int len, OrvsFIRState* state, int scale))
ORVAPI(OrvStatus, orvsFIR64f_16s_ISfs,   (Orv16s* srcDst, int len, OrvsFIRState* state, int scale))
ORVAPI(OrvStatus, orvsFIR64fc_16sc_ISfs, (Orv16sc* srcDst, int len, OrvsFIRState* state, int scale))
ORVAPI(OrvStatus, orvsFIR_32s_ISfs,      (Orv32s* srcDst, int len, OrvsFIRState* state, int scale))
ORVAPI(OrvStatus, orvsFIR_16s_ISfs,      (Orv16s* srcDst, int len, OrvsFIRState32s* state, int scale))
ORVAPI(OrvStatus, orvsFIR32s_16s_ISfs,   (Orv16s* srcDst, int len, OrvsFIRState32s* state, int scale))
ORVAPI(OrvStatus, orvsFIR32sc_16sc_ISfs, (Orv16sc* srcDst, int len, OrvsFIRState32s* state, int scale))
/** @} */

/** @name FIROne
 * Filters the next sample of the stream: *dst = y. Several samples at once are faster.
 * @retval orvErrNullPointer  dst or state is null
 * @retval orvErrWrongContext state is the record of another form
 * @{ */
ORVAPI(OrvStatus, orvsFIROne_32f,          (Orv32f src, Orv32f* dst, OrvsFIRState* state))
ORVAPI(OrvStatus, orvsFIROne_32fc,         (Orv32fc src, Orv32fc* dst, OrvsFIRState* state))
ORVAPI(OrvStatus, orvsFIROne_64f,          (Orv64f src, Orv64f* dst, OrvsFIRState* state))
ORVAPI(OrvStatus, orvsFIROne_64fc,         (Orv64fc src, Orv64fc* dst, OrvsFIRState* state))
ORVAPI(OrvStatus, orvsFIROne32f_16s_Sfs,   (Orv16s src, Orv16s* dst, OrvsFIRState* state, int scale))
ORVAPI(OrvStatus, orvsFIROne32fc_16sc_Sfs, (Orv16sc src, Orv16sc* dst, OrvsFIRState* state, int scale))
ORVAPI(OrvStatus, orvsFIROne64f_32f,       (Orv32f src, Orv32f* dst, OrvsFIRState* state))
ORVAPI(OrvStatus, orvsFIROne64fc_32fc,     (Orv32fc src, Orv32fc* dst, OrvsFIRState* state))
ORVAPI(OrvStatus, orvsFIROne64f_32s_Sfs,   (Orv32s src, Orv32s* dst, OrvsFIRState* state, int scale))
ORVAPI(OrvStatus, orvsFIROne64fc_32sc_Sfs, (Orv32sc src, Orv32sc* dst, OrvsFIRState* state, int scale))
ORVAPI(OrvStatus, orvsFIROne64f_16s_Sfs,   (Orv16s src, Orv16s* dst, OrvsFIRState* state, int scale))
ORVAPI(OrvStatus, orvsFIROne64fc_16sc_Sfs, (Orv16sc src, Orv16sc* dst, OrvsFIRState* state, int scale))
ORVAPI(OrvStatus, orvsFIROne_32s_Sfs,      (Orv32s src, Orv32s* dst, OrvsFIRState* state, int scale))
ORVAPI(OrvStatus, orvsFIROne_16s_Sfs,      (Orv16s src, Orv16s* dst, OrvsFIRState32s* state, int scale))
ORVAPI(OrvStatus, orvsFIROne32s_16s_Sfs,   (Orv16s src, Orv16s* dst, OrvsFIRState32s* state, int scale))
ORVAPI(OrvStatus, orvsFIROne32sc_16sc_Sfs, (Orv16sc src, Orv16sc* dst, OrvsFIRState32s* state, int scale))
/** @} */

/* ---- Without a record                                                                          fir/fir_direct.cpp
 *
 * The Direct forms work on the caller's taps, in their order, and on a delay line of 2 * tapsLen samples with an index
 * *dlyIndex, 0 <= *dlyIndex < tapsLen, both kept from call to call; a stream that begins in silence starts with zeros and
 * *dlyIndex = 0. The tapsLen samples from dlyLine + *dlyIndex on are the past, oldest first. One form serves a stream
 * from block to block and from sample to sample in any mix, except for _16s: its block forms hold the past newest first
 * there, and a stream is either filtered by blocks or by samples. An index out of range is found by the _16s forms only.
 *
 * Forms with integer taps shift the sum as above, where their factor is
 *
 *     _16s                 -15: taps are fractions of 2^15. FIROne shifts right by (scale + 15) modulo 32.
 *     32s_16s, 32sc_16sc   tapsFactor. Taps have 32 bits; products and sums are taken modulo 2^32.
 *
 * orvsFIR_Direct_32f and _32f_I round each product to single precision and add the products in double precision, in eight
 * sums, the j-th term from the oldest sample on in sum j modulo 8, joined pairwise at the end. */

/** @name FIR_Direct
 * Filters the next len samples of the stream. Forms with floating taps are faster where src is not dst. The forms _64f,
 * _32fc and _64fc allocate a record for the time of a call from 32 taps on (_64fc: 16) if len > tapsLen; 64f_32f from 256
 * samples on, 64fc_32fc from 128; _16s always. Records work as above; without one, blocks of more than 1600 samples
 * (complex: 800) are spread over threads in _64f, _32fc and _64fc if src is not dst.
 * @retval orvErrNullPointer   an array is null
 * @retval orvErrBadLength     len < 1
 * @retval orvErrNullPointer   taps is null
 * @retval orvErrBadFirLength  tapsLen < 1
 * @retval orvErrNullPointer   dlyLine or dlyIndex is null
 * @retval orvErrBadDelayIndex _16s: *dlyIndex < 0 or >= tapsLen
 * @retval orvErrNoMemory      no memory for the record; nothing has changed
 * @{ */
ORVAPI(OrvStatus, orvsFIR_Direct_32f,           (const Orv32f* src, Orv32f* dst, int len, const Orv32f* taps,
                                                 int tapsLen, Orv32f* dlyLine, int* dlyIndex))
ORVAPI(OrvStatus, orvsFIR_Direct_64f,           (const Orv64f* src, Orv64f* dst, int len, const Orv64f* taps,
                                                 int tapsLen, Orv64f* dlyLine, int* dlyIndex))
ORVAPI(OrvStatus, orvsFIR_Direct_32fc,          (const Orv32fc* src, Orv32fc* dst, int len, const Orv32fc* taps,
                                                 int tapsLen, Orv32fc* dlyLine, int* dlyIndex))
ORVAPI(OrvStatus, orvsFIR_Direct_64fc,          (const Orv64fc* src, Orv64fc* dst, int len, const Orv64fc* taps,
                                                 int tapsLen, Orv64fc* dlyLine, int* dlyIndex))
ORVAPI(OrvStatus, orvsFIR32f_Direct_16s_Sfs,    (const Orv16s* src, Orv16s* dst, int len, const Orv32f* taps,
                                                 int tapsLen, Orv16s* dlyLine, int* dlyIndex, int scale))
ORVAPI(OrvStatus, orvsFIR32fc_Direct_16sc_Sfs,  (const Orv16sc* src, Orv16sc* dst, int len, const Orv32fc* taps,
                                                 int tapsLen, Orv16sc* dlyLine, int* dlyIndex, int scale))
ORVAPI(OrvStatus, orvsFIR64f_Direct_32f,        (const Orv32f* src, Orv32f* dst, int len, const Orv64f* taps,
                                                 int tapsLen, Orv32f* dlyLine, int* dlyIndex))
ORVAPI(OrvStatus, orvsFIR64fc_Direct_32fc,      (const Orv32fc* src, Orv32fc* dst, int len, const Orv64fc* taps,
                                                 int tapsLen, Orv32fc* dlyLine, int* dlyIndex))
ORVAPI(OrvStatus, orvsFIR64f_Direct_32s_Sfs,    (const Orv32s* src, Orv32s* dst, int len, const Orv64f* taps,
                                                 int tapsLen, Orv32s* dlyLine, int* dlyIndex, int scale))
ORVAPI(OrvStatus, orvsFIR64fc_Direct_32sc_Sfs,  (const Orv32sc* src, Orv32sc* dst, int len, const Orv64fc* taps,
                                                 int tapsLen, Orv32sc* dlyLine, int* dlyIndex, int scale))
ORVAPI(OrvStatus, orvsFIR64f_Direct_16s_Sfs,    (const Orv16s* src, Orv16s* dst, int len, const Orv64f* taps,
                                                 int tapsLen, Orv16s* dlyLine, int* dlyIndex, int scale))
ORVAPI(OrvStatus, orvsFIR64fc_Direct_16sc_Sfs,  (const Orv16sc* src, Orv16sc* dst, int len, const Orv64fc* taps,
                                                 int tapsLen, Orv16sc* dlyLine, int* dlyIndex, int scale))
ORVAPI(OrvStatus, orvsFIR_Direct_16s_Sfs,       (const Orv16s* src, Orv16s* dst, int len, const Orv16s* taps,
                                                 int tapsLen, Orv16s* dlyLine, int* dlyIndex, int scale))
ORVAPI(OrvStatus, orvsFIR32s_Direct_16s_Sfs,    (const Orv16s* src, Orv16s* dst, int len, const Orv32s* taps,
                                                 int tapsLen, int tapsFactor, Orv16s* dlyLine, int* dlyIndex,
                                                 int scale))
ORVAPI(OrvStatus, orvsFIR32sc_Direct_16sc_Sfs,  (const Orv16sc* src, Orv16sc* dst, int len, const Orv32sc* taps,
                                                 int tapsLen, int tapsFactor, Orv16sc* dlyLine, int* dlyIndex,
                                                 int scale))
ORVAPI(OrvStatus, orvsFIR_Direct_32f_I,         (Orv32f* srcDst, int len, const Orv32f* taps, int tapsLen,
                                                 Orv32f* dlyLine, int* dlyIndex))
ORVAPI(OrvStatus, orvsFIR_Direct_64f_I,         (Orv64f* srcDst, int len, const Orv64f* taps, int tapsLen,
                                                 Orv64f* dlyLine, int* dlyIndex))
ORVAPI(OrvStatus, orvsFIR_Direct_32fc_I,        (Orv32fc* srcDst, int len, const Orv32fc* taps, int tapsLen,
                                                 Orv32fc* dlyLine, int* dlyIndex))
ORVAPI(OrvStatus, orvsFIR_Direct_64fc_I,        (Orv64fc* srcDst, int len, const Orv64fc* taps, int tapsLen,
                                                 Orv64fc* dlyLine, int* dlyIndex))
ORVAPI(OrvStatus, orvsFIR32f_Direct_16s_ISfs,   (Orv16s* srcDst, int len, const Orv32f* taps, int tapsLen,
                                                 Orv16s* dlyLine, int* dlyIndex, int scale))
ORVAPI(OrvStatus, orvsFIR32fc_Direct_16sc_ISfs, (Orv16sc* srcDst, int len, const Orv32fc* taps, int tapsLen,
                                                 Orv16sc* dlyLine, int* dlyIndex, int scale))
ORVAPI(OrvStatus, orvsFIR64f_Direct_32f_I,      (Orv32f* srcDst, int len, const Orv64f* taps, int tapsLen,
                                                 Orv32f* dlyLine, int* dlyIndex))
ORVAPI(OrvStatus, orvsFIR64fc_Direct_32fc_I,    (Orv32fc* srcDst, int len, const Orv64fc* taps, int tapsLen,
                                                 Orv32fc* dlyLine, int* dlyIndex))
ORVAPI(OrvStatus, orvsFIR64f_Direct_32s_ISfs,   (Orv32s* srcDst, int len, const Orv64f* taps, int tapsLen,
                                                 Orv32s* dlyLine, int* dlyIndex, int scale))
ORVAPI(OrvStatus, orvsFIR64fc_Direct_32sc_ISfs, (Orv32sc* srcDst, int len, const Orv64fc* taps, int tapsLen,
                                                 Orv32sc* dlyLine, int* dlyIndex, int scale))
ORVAPI(OrvStatus, orvsFIR64f_Direct_16s_ISfs,   (Orv16s* srcDst, int len, const Orv64f* taps, int tapsLen,
                                                 Orv16s* dlyLine, int* dlyIndex, int scale))
ORVAPI(OrvStatus, orvsFIR64fc_Direct_16sc_ISfs, (Orv16sc* srcDst, int len, const Orv64fc* taps, int tapsLen,
                                                 Orv16sc* dlyLine, int* dlyIndex, int scale))
ORVAPI(OrvStatus, orvsFIR_Direct_16s_ISfs,      (Orv16s* srcDst, int len, const Orv16s* taps, int tapsLen,
                                                 Orv16s* dlyLine, int* dlyIndex, int scale))
ORVAPI(OrvStatus, orvsFIR32s_Direct_16s_ISfs,   (Orv16s* srcDst, int len, const Orv32s* taps, int tapsLen,
                                                 int tapsFactor, Orv16s* dlyLine, int* dlyIndex, int scale))
ORVAPI(OrvStatus, orvsFIR32sc_Direct_16sc_ISfs, (Orv16sc* srcDst, int len, const Orv32sc* taps, int tapsLen,
                                                 int tapsFactor, Orv16sc* dlyLine, int* dlyIndex, int scale))
/** @} */

/** @name FIROne_Direct
 * Filters the next sample of the stream.
 * @retval orvErrNullPointer   dst (srcDst) is null
 * @retval orvErrNullPointer   taps is null
 * @retval orvErrBadFirLength  tapsLen < 1
 * @retval orvErrNullPointer   dlyLine or dlyIndex is null; in the _16s forms before tapsLen is looked at
 * @retval orvErrBadDelayIndex _16s: *dlyIndex < 0 or >= tapsLen
 * @{ */
ORVAPI(OrvStatus, orvsFIROne_Direct_32f,           (Orv32f src, Orv32f* dst, const Orv32f* taps, int tapsLen,
                                                    Orv32f* dlyLine, int* dlyIndex))
ORVAPI(OrvStatus, orvsFIROne_Direct_64f,           (Orv64f src, Orv64f* dst, const Orv64f* taps, int tapsLen,
                                                    Orv64f* dlyLine, int* dlyIndex))
ORVAPI(OrvStatus, orvsFIROne_Direct_32fc,          (Orv32fc src, Orv32fc* dst, const Orv32fc* taps, int tapsLen,
                                                    Orv32fc* dlyLine, int* dlyIndex))
ORVAPI(OrvStatus, orvsFIROne_Direct_64fc,          (Orv64fc src, Orv64fc* dst, const Orv64fc* taps, int tapsLen,
                                                    Orv64fc* dlyLine, int* dlyIndex))
ORVAPI(OrvStatus, orvsFIROne32f_Direct_16s_Sfs,    (Orv16s src, Orv16s* dst, const Orv32f* taps, int tapsLen,
                                                    Orv16s* dlyLine, int* dlyIndex, int scale))
ORVAPI(OrvStatus, orvsFIROne32fc_Direct_16sc_Sfs,  (Orv16sc src, Orv16sc* dst, const Orv32fc* taps, int tapsLen,
                                                    Orv16sc* dlyLine, int* dlyIndex, int scale))
ORVAPI(OrvStatus, orvsFIROne64f_Direct_32f,        (Orv32f src, Orv32f* dst, const Orv64f* taps, int tapsLen,
                                                    Orv32f* dlyLine, int* dlyIndex))
ORVAPI(OrvStatus, orvsFIROne64fc_Direct_32fc,      (Orv32fc src, Orv32fc* dst, const Orv64fc* taps, int tapsLen,
                                                    Orv32fc* dlyLine, int* dlyIndex))
ORVAPI(OrvStatus, orvsFIROne64f_Direct_32s_Sfs,    (Orv32s src, Orv32s* dst, const Orv64f* taps, int tapsLen,
                                                    Orv32s* dlyLine, int* dlyIndex, int scale))
ORVAPI(OrvStatus, orvsFIROne64fc_Direct_32sc_Sfs,  (Orv32sc src, Orv32sc* dst, const Orv64fc* taps, int tapsLen,
                                                    Orv32sc* dlyLine, int* dlyIndex, int scale))
ORVAPI(OrvStatus, orvsFIROne64f_Direct_16s_Sfs,    (Orv16s src, Orv16s* dst, const Orv64f* taps, int tapsLen,
                                                    Orv16s* dlyLine, int* dlyIndex, int scale))
ORVAPI(OrvStatus, orvsFIROne64fc_Direct_16sc_Sfs,  (Orv16sc src, Orv16sc* dst, const Orv64fc* taps, int tapsLen,
                                                    Orv16sc* dlyLine, int* dlyIndex, int scale))
ORVAPI(OrvStatus, orvsFIROne_Direct_16s_Sfs,       (Orv16s src, Orv16s* dst, const Orv16s* taps, int tapsLen,
                                                    Orv16s* dlyLine, int* dlyIndex, int scale))
ORVAPI(OrvStatus, orvsFIROne32s_Direct_16s_Sfs,    (Orv16s src, Orv16s* dst, const Orv32s* taps, int tapsLen,
                                                    int tapsFactor, Orv16s* dlyLine, int* dlyIndex, int scale))
ORVAPI(OrvStatus, orvsFIROne32sc_Direct_16sc_Sfs,  (Orv16sc src, Orv16sc* dst, const Orv32sc* taps, int tapsLen,
                                                    int tapsFactor, Orv16sc* dlyLine, int* dlyIndex, int scale))
ORVAPI(OrvStatus, orvsFIROne_Direct_32f_I,         (Orv32f* srcDst, const Orv32f* taps, int tapsLen, Orv32f* dlyLine,
                                                    int* dlyIndex))
ORVAPI(OrvStatus, orvsFIROne_Direct_64f_I,         (Orv64f* srcDst, const Orv64f* taps, int tapsLen, Orv64f* dlyLine,
                                                    int* dlyIndex))
ORVAPI(OrvStatus, orvsFIROne_Direct_32fc_I,        (Orv32fc* srcDst, const Orv32fc* taps, int tapsLen, Orv32fc* dlyLine,
                                                    int* dlyIndex))
ORVAPI(OrvStatus, orvsFIROne_Direct_64fc_I,        (Orv64fc* srcDst, const Orv64fc* taps, int tapsLen, Orv64fc* dlyLine,
                                                    int* dlyIndex))
ORVAPI(OrvStatus, orvsFIROne32f_Direct_16s_ISfs,   (Orv16s* srcDst, const Orv32f* taps, int tapsLen, Orv16s* dlyLine,
                                                    int* dlyIndex, int scale))
ORVAPI(OrvStatus, orvsFIROne32fc_Direct_16sc_ISfs, (Orv16sc* srcDst, const Orv32fc* taps, int tapsLen, Orv16sc* dlyLine,
                                                    int* dlyIndex, int scale))
ORVAPI(OrvStatus, orvsFIROne64f_Direct_32f_I,      (Orv32f* srcDst, const Orv64f* taps, int tapsLen, Orv32f* dlyLine,
                                                    int* dlyIndex))
ORVAPI(OrvStatus, orvsFIROne64fc_Direct_32fc_I,    (Orv32fc* srcDst, const Orv64fc* taps, int tapsLen, Orv32fc* dlyLine,
                                                    int* dlyIndex))
ORVAPI(OrvStatus, orvsFIROne64f_Direct_32s_ISfs,   (Orv32s* srcDst, const Orv64f* taps, int tapsLen, Orv32s* dlyLine,
                                                    int* dlyIndex, int scale))
ORVAPI(OrvStatus, orvsFIROne64fc_Direct_32sc_ISfs, (Orv32sc* srcDst, const Orv64fc* taps, int tapsLen, Orv32sc* dlyLine,
                                                    int* dlyIndex, int scale))
ORVAPI(OrvStatus, orvsFIROne64f_Direct_16s_ISfs,   (Orv16s* srcDst, const Orv64f* taps, int tapsLen, Orv16s* dlyLine,
                                                    int* dlyIndex, int scale))
ORVAPI(OrvStatus, orvsFIROne64fc_Direct_16sc_ISfs, (Orv16sc* srcDst, const Orv64fc* taps, int tapsLen, Orv16sc* dlyLine,
                                                    int* dlyIndex, int scale))
ORVAPI(OrvStatus, orvsFIROne_Direct_16s_ISfs,      (Orv16s* srcDst, const Orv16s* taps, int tapsLen, Orv16s* dlyLine,
                                                    int* dlyIndex, int scale))
ORVAPI(OrvStatus, orvsFIROne32s_Direct_16s_ISfs,   (Orv16s* srcDst, const Orv32s* taps, int tapsLen, int tapsFactor,
                                                    Orv16s* dlyLine, int* dlyIndex, int scale))
ORVAPI(OrvStatus, orvsFIROne32sc_Direct_16sc_ISfs, (Orv16sc* srcDst, const Orv32sc* taps, int tapsLen, int tapsFactor,
                                                    Orv16sc* dlyLine, int* dlyIndex, int scale))
/** @} */

#endif
