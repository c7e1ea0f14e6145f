// Cache sizes by the one-byte descriptors of identification leaf 2, for processors that report them.
#ifndef ORV_FRAME_CACHE_DESCRIPTORS_H
#define ORV_FRAME_CACHE_DESCRIPTORS_H

#include "frame/checks.h"

/// A descriptor and the size in bytes that it stands for; the row with descriptor 0 ends a table.
struct CacheDescriptor {
    Orv32s descriptor, size;
};

// The size of the first row of the table whose descriptor this processor reports; -1 if there is none, or if the
// processor has no such descriptors.
ORV_SERVICE(Orv32s, ownGetCacheSize, (const CacheDescriptor* table))

namespace ORV_VARIANT {

/// ownGetCacheSize on given identification words (eax, ebx, ecx, edx of leaf 2).
Orv32s described_cache_size(const CacheDescriptor* table, const Orv32u words[4]);

/// The size of the largest cache by the table of known descriptors, where the processor is of a vendor that uses them.
Orv32s described_cache_size();

} // namespace ORV_VARIANT

#endif
