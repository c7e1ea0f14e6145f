// What runs when the library is loaded and unloaded.
#include "orvs/core.h"

// In a build that merges several variants this would choose the column of a wider slot table. Here the table has one
// column: the index is written and never read.
extern int orvJumpIndexForMergedDLL __asm__(ORV_BUILD_PREFIX "orvJumpIndexForMergedDLL");
int orvJumpIndexForMergedDLL = 0;

extern "C" int _init();
extern "C" void _fini();

/// Lets the core library identify the processor, and notes whether AVX2 with FMA may be used. Choosing a variant that
/// suits the processor is the business of whoever loads it, so the library stays usable either way.
extern "C" int _init()
{
    orvGetCpuFeatures(nullptr, nullptr);
    const Orv64u features = orvGetEnabledCpuFeatures();
    orvJumpIndexForMergedDLL = (features & 0x20) != 0 && (features & 0x10) != 0 ? 1 : 0;
    return 1;
}

extern "C" void _fini() {}
