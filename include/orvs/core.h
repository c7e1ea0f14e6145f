/* The core library, liborvcore: aligned memory, facts about the processor, and the number of threads.
 *
 * The signal-processing library calls the first eight functions; a program needs orvSetNumThreads and
 * orvGetNumThreads, and may use the others. Every function may be called from any thread at any time, also while
 * libraries are still being loaded and their constructors have not run. None of them takes a lock of its own. */
#ifndef ORVS_CORE_H
#define ORVS_CORE_H

#include "orvs/types.h"

#ifdef __cplusplus
extern "C" {
#endif
#pragma GCC visibility push(default)

/* ---- Memory ---------------------------------------------------------------------------------- core/memory.cpp */

/** Allocates size bytes at an address that is a multiple of 64: a cache line, and the widest vector register.
 *
 * The contents are undefined. The memory goes back through orvFree.
 * @return the memory, or null when size < 1 or memory is exhausted. */
void* orvMalloc(int size);

/** Gives back memory that came from orvMalloc. A null pointer is accepted, and nothing happens. */
void orvFree(void* ptr);

/** Rounds a pointer up to a multiple of alignment bytes; a multiple comes back as it is, and so does null.
 *
 * The alignment is a power of two; with any other value (0, negative, not a power of two) ptr comes back unchanged.
 * Near the end of the address space, where no multiple is left, the result is null. No memory is touched. */
void* orvAlignPtr(void* ptr, int alignment);

/* ---- Processor features ------------------------------------------------------------------- core/features.cpp */

/** Bits of a feature mask. All other bits are zero.
 *
 * AVX2 and FMA are separate bits: code that needs both asks for both. */
typedef enum {
    orvCpuSse2 = 1 << 0,
    orvCpuSse3 = 1 << 1,
    orvCpuSsse3 = 1 << 2,
    orvCpuSse41 = 1 << 3,
    orvCpuAvx2 = 1 << 4,
    orvCpuFma = 1 << 5,     /**< fused multiply-add of three operands */
    orvCpuSse42 = 1 << 6,
    orvCpuPopcnt = 1 << 7,
    orvCpuAvx = 1 << 8,
    orvCpuAvx512f = 1 << 9, /**< the foundation of the 512-bit instructions */
    orvCpuF16c = 1 << 14    /**< conversion between binary16 and binary32 */
} OrvCpuFeature;

/** Number of words that orvGetCpuFeatures stores in its register block. */
#define ORV_CPU_REGISTERS 8

/** Tells what the processor has, whatever the operating system makes of it.
 *
 * @param features   receives the mask of OrvCpuFeature bits; may be null.
 * @param registers  receives ORV_CPU_REGISTERS words as the CPUID instruction gave them: eax, ebx, ecx, edx of leaf 1,
 *                   then eax, ebx, ecx, edx of leaf 7, subleaf 0; zeros for a leaf that the processor lacks. They are
 *                   read anew in each call, on the processor that the caller happens to run on. May be null.
 * @return orvOk. With two null pointers the processor is identified, and nothing else happens. */
OrvStatus orvGetCpuFeatures(Orv64u* features, Orv32u* registers);

/** Tells which features programs may use: the mask of orvGetCpuFeatures without those whose registers the operating
 * system does not save (256-bit registers: AVX, AVX2, FMA, F16C; 512-bit and mask registers: AVX-512). */
Orv64u orvGetEnabledCpuFeatures(void);

/** Tells whether every feature of a mask is in orvGetEnabledCpuFeatures.
 *
 * @return 1 if so; 0 if one is not enabled or not known here, and for an empty mask. */
int ownGetFeature(Orv64u mask);

/* ---- Cache size -------------------------------------------------------------------------- core/cache_size.cpp */

/** Tells the size in bytes of the largest data or unified cache that the processor can reach.
 *
 * A size above the largest int is given as the largest int. The processor is asked once, at the first call.
 * @return orvOk; or, in this order,
 *         orvErrNullPointer: bytes is null;
 *         orvErrBadArgument: the processor does not describe its caches; unlike elsewhere, *bytes is set then, to 0. */
OrvStatus orvGetMaxCacheSizeB(int* bytes);

/* ---- Number of threads ---------------------------------------------------------------------- core/threads.cpp */

/** Tells how many threads a function of the library may use at most; at least 1.
 *
 * Without a call of orvSetNumThreads it is the number of processors that the process may run on (the affinity of its
 * main thread), found out at the first call and kept. */
int ownGetNumThreads(void);

/** Sets the number of threads for the whole process. Calls that begin afterwards, in any thread, see the new number.
 *
 * @return orvOk, or orvErrBadArgument: count < 1, and the number stays as it was. */
OrvStatus orvSetNumThreads(int count);

/** The same number as ownGetNumThreads. */
int orvGetNumThreads(void);

#pragma GCC visibility pop
#ifdef __cplusplus
}
#endif

#endif
