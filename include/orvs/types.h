/* Element types, statuses and the declaration macro shared by all headers of the library.
 *
 * Every function works on plain arrays that belong to the caller. Arrays have no header, any alignment is accepted,
 * and lengths count elements. A function's whole report is the status that it returns. */
#ifndef ORVS_TYPES_H
#define ORVS_TYPES_H

#include <stdint.h>

/* ---- Element types ------------------------------------------------------------------------------------------------ */

typedef uint8_t Orv8u;
typedef int8_t Orv8s;
typedef uint16_t Orv16u;
typedef int16_t Orv16s;
typedef uint32_t Orv32u;
typedef int32_t Orv32s;
typedef uint64_t Orv64u;
typedef int64_t Orv64s;
typedef uint16_t Orv16f; /**< IEEE 754 binary16 as a raw 16-bit word; only conversions look inside */
typedef float Orv32f;
typedef double Orv64f;

/** Complex values: the real part first, then the imaginary part, without padding. */
typedef struct { Orv8s re, im; } Orv8sc;
typedef struct { Orv16s re, im; } Orv16sc;
typedef struct { Orv32s re, im; } Orv32sc;
typedef struct { Orv64s re, im; } Orv64sc;
typedef struct { Orv32f re, im; } Orv32fc;
typedef struct { Orv64f re, im; } Orv64fc;

/** How a fraction becomes an integer. */
typedef enum {
    orvRndZero = 0,      /**< truncate toward zero */
    orvRndNear = 1,      /**< to nearest, ties to even */
    orvRndFinancial = 2  /**< to nearest, ties away from zero */
} OrvRoundMode;

/* ---- Statuses ----------------------------------------------------------------------------------------------------- */

/** Zero is success. A negative status is an error: nothing was computed and nothing was written. A positive status is a
 * warning: the output is complete, and the offending elements have the value that the function documents. */
typedef enum {
    orvOk = 0,

    orvWrnSqrtOfNegative = 3,   /**< a square root met a negative element */
    orvWrnInverseOfZero = 4,    /**< an element equal to zero was inverted */
    orvWrnEvenMedianWindow = 5, /**< the median window had an even length */
    orvWrnDivByZero = 6,        /**< a divisor had an element equal to zero */
    orvWrnLnOfZero = 7,         /**< a logarithm met a zero */
    orvWrnLnOfNegative = 8,     /**< a logarithm met an element below zero */
    orvWrnNanInData = 9,        /**< the data held a not-a-number */

    orvErrBadArgument = -5,         /**< a value outside what the function accepts */
    orvErrBadLength = -6,           /**< the length is below the minimum, as a rule below 1 */
    orvErrOutOfRange = -7,          /**< an enumerated argument outside its set */
    orvErrNullPointer = -8,         /**< a required pointer is null */
    orvErrNoMemory = -9,            /**< an internal allocation failed */
    orvErrDivisorZero = -10,        /**< a scalar divisor or normalising factor is zero */
    orvErrBadCauchyConstant = -11,  /**< the Cauchy constant is not positive */
    orvErrBadDataType = -12,        /**< an unsupported element type selector */
    orvErrBadLeadTap = -13,         /**< the scaling tap of an integer IIR filter is negative */
    orvErrBadFftOrder = -15,        /**< an FFT order outside the accepted range */
    orvErrBadFftFlag = -16,         /**< an FFT or DFT normalisation flag outside its set */
    orvErrWrongContext = -17,       /**< a spec or state record of another kind */
    orvErrThresholdOrder = -18,     /**< the low threshold is above the high one */
    orvErrNegativeLevel = -19,      /**< a threshold level below zero */
    orvErrBadDelayIndex = -24,      /**< a delay-line index outside the delay line */
    orvErrBadIirOrder = -25,        /**< an IIR order below the minimum */
    orvErrBadFirLength = -26,       /**< an FIR tap count below the minimum */
    orvErrBadRelFrequency = -27,    /**< a relative frequency outside its range */
    orvErrBadFirmrPhase = -28,      /**< a multi-rate phase outside 0 to factor - 1 */
    orvErrBadFirmrFactor = -29,     /**< a multi-rate factor below one */
    orvErrBadSamplePhase = -30,     /**< a sampling phase outside 0 to factor - 1 */
    orvErrBadSampleFactor = -31,    /**< a sampling factor below one */
    orvErrBadShift = -32,           /**< a shift count below zero */
    orvErrBadWindowSize = -33,      /**< a window length below one */
    orvErrBadWtOffset = -35,        /**< a wavelet offset below -1 */
    orvErrBadJaehneMagnitude = -38, /**< a Jaehne magnitude below zero */
    orvErrBadKaiserAlpha = -39,     /**< a Kaiser parameter too large for the window length */
    orvErrBadTriangleAsym = -40,    /**< a triangle asymmetry outside its range */
    orvErrBadTrianglePhase = -41,   /**< a triangle phase outside its range */
    orvErrBadTriangleFreq = -42,    /**< a triangle frequency outside its range */
    orvErrBadTriangleMagnitude = -43, /**< a triangle magnitude that is not positive */
    orvErrBadTonePhase = -44,       /**< a tone phase outside its range */
    orvErrBadToneFreq = -45,        /**< a tone frequency outside its range */
    orvErrBadToneMagnitude = -46,   /**< a tone magnitude that is not positive */
    orvErrBadScaleValue = -47,      /**< a channel count below 1, integer planar IIR */
    orvErrBadChannelCount = -53,    /**< a channel count below 1, float planar IIR */
    orvErrBadMatrixSize = -182,     /**< bad matrix dimensions in filter design */
    orvErrBadSparsePosition = -194, /**< sparse tap positions not ascending, or negative */
    orvErrSingularMatrix = -195,    /**< a pivot below machine epsilon in filter design */
    orvErrBadIirGenOrder = -206,    /**< a filter order outside 1 to 12 */
    orvErrBadIirGenCutoff = -208,   /**< a cut-off frequency outside its open interval */
    orvErrBadIirGenRipple = -209,   /**< a pass-band ripple outside its range */
    orvErrBadRoundMode = -213,      /**< a rounding mode that the function does not support */
    orvErrBadAlgorithm = -228       /**< an algorithm selector outside its set */
} OrvStatus;

/* ---- Declarations ------------------------------------------------------------------------------------------------- */

/** ORVAPI(type, name, args) declares one exported function.
 *
 * For a program it is an ordinary C declaration. When the library itself is built, ORV_BUILD_PREFIX names the variant:
 * the same line then declares the body, a private symbol that stands behind the exported entry of the same name. */
#ifdef __cplusplus
#define ORV_EXTERN_C extern "C"
#else
#define ORV_EXTERN_C extern
#endif
#ifdef ORV_BUILD_PREFIX
#define ORVAPI(type, name, args) \
    ORV_EXTERN_C type name args __asm__(ORV_BUILD_PREFIX #name) __attribute__((visibility("hidden")));
#else
#define ORVAPI(type, name, args) ORV_EXTERN_C type name args;
#endif

#endif
