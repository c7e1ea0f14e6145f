/* Version, memory, fill and move: the services that every other family builds on.
 *
 *     Orv16s* x = orvsMalloc_16s(len);
 *     if (!x) return orvErrNoMemory;
 *     orvsSet_16s(100, x, len);
 *     orvsFree(x);
 *
 * Types differ only in the size of an element here: a form of a family fills or copies len * sizeof(element) bytes. */
#ifndef ORVS_FRAME_H
#define ORVS_FRAME_H

#include "orvs/types.h"

/* ---- Version                                                                                     frame/version.cpp */

/** The version record of the loaded variant. */
typedef struct {
    int major;             /**< 8 */
    int minor;             /**< 2 */
    int majorBuild;        /**< 0 */
    int build;             /**< 43166 */
    char targetCpu[4];     /**< the variant's code letters, padded with zero bytes */
    const char* name;      /**< the variant in words */
    const char* version;   /**< major.minor.majorBuild and the build, as text */
    const char* buildDate; /**< in the form of the preprocessor's date */
} OrvLibraryVersion;

/** The version record: constant, never null, the same pointer on every call; not to be freed. Any thread, any time. */
ORVAPI(const OrvLibraryVersion*, orvsGetLibVersion, (void))

/* ---- Memory                                                                                       frame/memory.cpp */

/** @name Malloc
 * Memory for len elements, aligned to 64 bytes, contents undefined; null when len < 1 or when memory is exhausted.
 * The size in bytes is computed in 32 bits without an overflow check: len * sizeof(element) has to stay below 2^31.
 * Goes back through orvsFree only. Any thread.
 * @{ */
ORVAPI(Orv8u*, orvsMalloc_8u, (int len))
ORVAPI(Orv8s*, orvsMalloc_8s, (int len))
ORVAPI(Orv8sc*, orvsMalloc_8sc, (int len))
ORVAPI(Orv16u*, orvsMalloc_16u, (int len))
ORVAPI(Orv16s*, orvsMalloc_16s, (int len))
ORVAPI(Orv16sc*, orvsMalloc_16sc, (int len))
ORVAPI(Orv32u*, orvsMalloc_32u, (int len))
ORVAPI(Orv32s*, orvsMalloc_32s, (int len))
ORVAPI(Orv32sc*, orvsMalloc_32sc, (int len))
ORVAPI(Orv64s*, orvsMalloc_64s, (int len))
ORVAPI(Orv64sc*, orvsMalloc_64sc, (int len))
ORVAPI(Orv32f*, orvsMalloc_32f, (int len))
ORVAPI(Orv32fc*, orvsMalloc_32fc, (int len))
ORVAPI(Orv64f*, orvsMalloc_64f, (int len))
ORVAPI(Orv64fc*, orvsMalloc_64fc, (int len))
/** @} */

/** Releases what an orvsMalloc form returned, and nothing else. Null is accepted and does nothing. Any thread. */
ORVAPI(void, orvsFree, (void* ptr))

/* ---- Zero                                                                                          frame/fill.cpp
 * Fills above 2 MiB that are larger than the largest cache bypass the caches with non-temporal stores, so that the
 * caller's working set stays where it is; the stores are visible to all threads when the function returns. */

/** @name Zero
 * dst[i] = 0 for i in [0, len). Any alignment. One thread.
 * @retval orvErrNullPointer dst is null
 * @retval orvErrBadLength   len < 1; the checks come in this order, and nothing is written then
 * @{ */
ORVAPI(OrvStatus, orvsZero_8u,   (Orv8u* dst, int len))
ORVAPI(OrvStatus, orvsZero_16s,  (Orv16s* dst, int len))
ORVAPI(OrvStatus, orvsZero_16sc, (Orv16sc* dst, int len))
ORVAPI(OrvStatus, orvsZero_32s,  (Orv32s* dst, int len))
ORVAPI(OrvStatus, orvsZero_32sc, (Orv32sc* dst, int len))
ORVAPI(OrvStatus, orvsZero_64s,  (Orv64s* dst, int len))
ORVAPI(OrvStatus, orvsZero_64sc, (Orv64sc* dst, int len))
ORVAPI(OrvStatus, orvsZero_32f,  (Orv32f* dst, int len))
ORVAPI(OrvStatus, orvsZero_32fc, (Orv32fc* dst, int len))
ORVAPI(OrvStatus, orvsZero_64f,  (Orv64f* dst, int len))
ORVAPI(OrvStatus, orvsZero_64fc, (Orv64fc* dst, int len))
/** @} */

/* ---- Set                                                                                           frame/fill.cpp */

/** @name Set
 * dst[i] = val for i in [0, len); the bits of val are copied, not-a-numbers included. Any alignment. One thread.
 * @retval orvErrNullPointer dst is null
 * @retval orvErrBadLength   len < 1; the checks come in this order, and nothing is written then
 * @{ */
ORVAPI(OrvStatus, orvsSet_8u,   (Orv8u val, Orv8u* dst, int len))
ORVAPI(OrvStatus, orvsSet_16s,  (Orv16s val, Orv16s* dst, int len))
ORVAPI(OrvStatus, orvsSet_16sc, (Orv16sc val, Orv16sc* dst, int len))
ORVAPI(OrvStatus, orvsSet_32s,  (Orv32s val, Orv32s* dst, int len))
ORVAPI(OrvStatus, orvsSet_32sc, (Orv32sc val, Orv32sc* dst, int len))
ORVAPI(OrvStatus, orvsSet_64s,  (Orv64s val, Orv64s* dst, int len))
ORVAPI(OrvStatus, orvsSet_64sc, (Orv64sc val, Orv64sc* dst, int len))
ORVAPI(OrvStatus, orvsSet_32f,  (Orv32f val, Orv32f* dst, int len))
ORVAPI(OrvStatus, orvsSet_32fc, (Orv32fc val, Orv32fc* dst, int len))
ORVAPI(OrvStatus, orvsSet_64f,  (Orv64f val, Orv64f* dst, int len))
ORVAPI(OrvStatus, orvsSet_64fc, (Orv64fc val, Orv64fc* dst, int len))
/** @} */

/* ---- Copy                                                                                          frame/copy.cpp */

/** @name Copy
 * dst[i] = src[i] for i in [0, len). Any alignment. src and dst coincide exactly or do not overlap; orvsMove is the
 * function for arrays that overlap. Copies too large for the caches bypass them. One thread.
 * @retval orvErrNullPointer src or dst is null
 * @retval orvErrBadLength   len < 1; the checks come in this order, and nothing is written then
 * @{ */
ORVAPI(OrvStatus, orvsCopy_8u,   (const Orv8u* src, Orv8u* dst, int len))
ORVAPI(OrvStatus, orvsCopy_16s,  (const Orv16s* src, Orv16s* dst, int len))
ORVAPI(OrvStatus, orvsCopy_16sc, (const Orv16sc* src, Orv16sc* dst, int len))
ORVAPI(OrvStatus, orvsCopy_32s,  (const Orv32s* src, Orv32s* dst, int len))
ORVAPI(OrvStatus, orvsCopy_32sc, (const Orv32sc* src, Orv32sc* dst, int len))
ORVAPI(OrvStatus, orvsCopy_64s,  (const Orv64s* src, Orv64s* dst, int len))
ORVAPI(OrvStatus, orvsCopy_64sc, (const Orv64sc* src, Orv64sc* dst, int len))
ORVAPI(OrvStatus, orvsCopy_32f,  (const Orv32f* src, Orv32f* dst, int len))
ORVAPI(OrvStatus, orvsCopy_32fc, (const Orv32fc* src, Orv32fc* dst, int len))
ORVAPI(OrvStatus, orvsCopy_64f,  (const Orv64f* src, Orv64f* dst, int len))
ORVAPI(OrvStatus, orvsCopy_64fc, (const Orv64fc* src, Orv64fc* dst, int len))
/** @} */

/* ---- Move                                                                                          frame/copy.cpp */

/** @name Move
 * dst[i] = src[i] for i in [0, len), as if src had been copied aside first: the arrays may overlap in any way.
 * Any alignment. One thread.
 * @retval orvErrNullPointer src or dst is null
 * @retval orvErrBadLength   len < 1; the checks come in this order, and nothing is written then
 * @{ */
ORVAPI(OrvStatus, orvsMove_8u,   (const Orv8u* src, Orv8u* dst, int len))
ORVAPI(OrvStatus, orvsMove_16s,  (const Orv16s* src, Orv16s* dst, int len))
ORVAPI(OrvStatus, orvsMove_16sc, (const Orv16sc* src, Orv16sc* dst, int len))
ORVAPI(OrvStatus, orvsMove_32s,  (const Orv32s* src, Orv32s* dst, int len))
ORVAPI(OrvStatus, orvsMove_32sc, (const Orv32sc* src, Orv32sc* dst, int len))
ORVAPI(OrvStatus, orvsMove_64s,  (const Orv64s* src, Orv64s* dst, int len))
ORVAPI(OrvStatus, orvsMove_64sc, (const Orv64sc* src, Orv64sc* dst, int len))
ORVAPI(OrvStatus, orvsMove_32f,  (const Orv32f* src, Orv32f* dst, int len))
ORVAPI(OrvStatus, orvsMove_32fc, (const Orv32fc* src, Orv32fc* dst, int len))
ORVAPI(OrvStatus, orvsMove_64f,  (const Orv64f* src, Orv64f* dst, int len))
ORVAPI(OrvStatus, orvsMove_64fc, (const Orv64fc* src, Orv64fc* dst, int len))
/** @} */

#endif
