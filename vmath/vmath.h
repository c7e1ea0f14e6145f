// Elementary functions over vectors: sine, cosine, exponential, logarithm, arctangent, cube root.
//
// A kernel own_orvs_<p><Name>_S9<level> takes the precision p (s single, d double) and one of three levels of accuracy:
//
//   HA  high accuracy           at most 0.55 ulp
//   LA  low accuracy            at most 1 ulp, but in single precision for the logarithm (1.25), the sine, the cosine
//                               (1.6) and arctangents (2), in double precision for the sine and the cosine (2.2) and
//                               the angle of a point (2)
//   EP  enhanced performance    at most 4 ulp single, half the bits double
//
// docs/accuracy.md has the errors measured. All compute dst[i] = f(src[i]) for i in [0, len), any len and alignment,
// dst equal to src or apart from it. No argument is refused: infinities, not-a-numbers, subnormals and signed zeros
// give what IEEE 754 recommends, huge arguments are reduced exactly. No result depends on the place of an element or on
// the caller's floating-point state, which is back afterwards, but for exception flags that the work may leave raised.
//
// The result of a kernel is 0, or, where the function is a logarithm, the code of the first element that is no positive
// number: 2 for a zero, 4 for a negative one; not-a-numbers are not reported.
#ifndef ORV_VMATH_VMATH_H
#define ORV_VMATH_VMATH_H

#include "frame/checks.h"

// ---- Levels

ORV_SERVICE(int, own_orvs_sSin_S9HAynn, (const Orv32f* src, Orv32f* dst, int len))
ORV_SERVICE(int, own_orvs_sSin_S9LAynn, (const Orv32f* src, Orv32f* dst, int len))
ORV_SERVICE(int, own_orvs_sSin_S9EPnnn, (const Orv32f* src, Orv32f* dst, int len))
ORV_SERVICE(int, own_orvs_sCos_S9HAynn, (const Orv32f* src, Orv32f* dst, int len))
ORV_SERVICE(int, own_orvs_sCos_S9LAynn, (const Orv32f* src, Orv32f* dst, int len))
ORV_SERVICE(int, own_orvs_sCos_S9EPnnn, (const Orv32f* src, Orv32f* dst, int len))
ORV_SERVICE(int, own_orvs_dSin_S9HAynn, (const Orv64f* src, Orv64f* dst, int len))
ORV_SERVICE(int, own_orvs_dSin_S9LAynn, (const Orv64f* src, Orv64f* dst, int len))
ORV_SERVICE(int, own_orvs_dSin_S9EPnnn, (const Orv64f* src, Orv64f* dst, int len))
ORV_SERVICE(int, own_orvs_dCos_S9HAynn, (const Orv64f* src, Orv64f* dst, int len))
ORV_SERVICE(int, own_orvs_dCos_S9LAynn, (const Orv64f* src, Orv64f* dst, int len))
ORV_SERVICE(int, own_orvs_dCos_S9EPnnn, (const Orv64f* src, Orv64f* dst, int len))
ORV_SERVICE(int, own_orvs_sExp_S9HAynn, (const Orv32f* src, Orv32f* dst, int len))
ORV_SERVICE(int, own_orvs_sExp_S9LAynn, (const Orv32f* src, Orv32f* dst, int len))
ORV_SERVICE(int, own_orvs_sExp_S9EPnnn, (const Orv32f* src, Orv32f* dst, int len))
ORV_SERVICE(int, own_orvs_dExp_S9HAynn, (const Orv64f* src, Orv64f* dst, int len))
ORV_SERVICE(int, own_orvs_dExp_S9LAynn, (const Orv64f* src, Orv64f* dst, int len))
ORV_SERVICE(int, own_orvs_dExp_S9EPnnn, (const Orv64f* src, Orv64f* dst, int len))
ORV_SERVICE(int, own_orvs_sLn_S9HAynn, (const Orv32f* src, Orv32f* dst, int len))
ORV_SERVICE(int, own_orvs_sLn_S9LAynn, (const Orv32f* src, Orv32f* dst, int len))
ORV_SERVICE(int, own_orvs_sLn_S9EPnnn, (const Orv32f* src, Orv32f* dst, int len))
ORV_SERVICE(int, own_orvs_dLn_S9HAynn, (const Orv64f* src, Orv64f* dst, int len))
ORV_SERVICE(int, own_orvs_dLn_S9LAynn, (const Orv64f* src, Orv64f* dst, int len))
ORV_SERVICE(int, own_orvs_dLn_S9EPnnn, (const Orv64f* src, Orv64f* dst, int len))

// ---- One level

ORV_SERVICE(int, own_orvs_sAtan_S9LAynn, (const Orv32f* src, Orv32f* dst, int len))
ORV_SERVICE(int, own_orvs_dAtan_S9LAynn, (const Orv64f* src, Orv64f* dst, int len))
ORV_SERVICE(int, own_orvs_sCbrt_S9LAynn, (const Orv32f* src, Orv32f* dst, int len))

// dst = the angle of the point (x, y), from -pi to pi; sine and cosine at a time.
ORV_SERVICE(int, own_orvs_sAtan2_S9LAynn, (const Orv32f* y, const Orv32f* x, Orv32f* dst, int len))
ORV_SERVICE(int, own_orvs_dAtan2_S9LAynn, (const Orv64f* y, const Orv64f* x, Orv64f* dst, int len))
ORV_SERVICE(int, own_orvs_sSinCos_S9LAynn, (const Orv32f* src, Orv32f* sine, Orv32f* cosine, int len))
ORV_SERVICE(int, own_orvs_dSinCos_S9LAynn, (const Orv64f* src, Orv64f* sine, Orv64f* cosine, int len))

// Single precision on one side: of the argument, whose function is computed in double precision, or of the result.
ORV_SERVICE(int, own_orvs_sdExp_S9LAynn, (const Orv32f* src, Orv64f* dst, int len))
ORV_SERVICE(int, own_orvs_sdLn_S9LAynn, (const Orv32f* src, Orv64f* dst, int len))
ORV_SERVICE(int, own_orvs_dsLn_S9LAynn, (const Orv64f* src, Orv32f* dst, int len))

// ---- Tables of levels, in the order LA, HA, EP, and who takes a level by the bits that are asked for

using orv_skernel = int (*)(const Orv32f* src, Orv32f* dst, int len);
using orv_dkernel = int (*)(const Orv64f* src, Orv64f* dst, int len);

extern const orv_skernel own_orvs_sSin_S9_ttab[3], own_orvs_sCos_S9_ttab[3], own_orvs_sExp_S9_ttab[3],
    own_orvs_sLn_S9_ttab[3];
extern const orv_dkernel own_orvs_dSin_S9_ttab[3], own_orvs_dCos_S9_ttab[3], own_orvs_dExp_S9_ttab[3],
    own_orvs_dLn_S9_ttab[3];

ORV_SERVICE(int, orvsSin_32f_A24, (const Orv32f* src, Orv32f* dst, int len))
ORV_SERVICE(int, orvsCos_32f_A24, (const Orv32f* src, Orv32f* dst, int len))
ORV_SERVICE(int, orvsSin_64f_A53, (const Orv64f* src, Orv64f* dst, int len))
ORV_SERVICE(int, orvsCos_64f_A53, (const Orv64f* src, Orv64f* dst, int len))
ORV_SERVICE(int, orvsExp_32f_A21, (const Orv32f* src, Orv32f* dst, int len))
ORV_SERVICE(int, orvsLn_32f_A21, (const Orv32f* src, Orv32f* dst, int len))
// At most 0.7 and 0.52 ulp.
ORV_SERVICE(int, orvsExp_64f_A52, (const Orv64f* src, Orv64f* dst, int len))
ORV_SERVICE(int, orvsLn_64f_A53, (const Orv64f* src, Orv64f* dst, int len))

#endif
