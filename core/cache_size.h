// The largest cache, from the leaves that describe the caches one by one.
#ifndef ORV_CORE_CACHE_SIZE_H
#define ORV_CORE_CACHE_SIZE_H

#include <algorithm>
#include <climits>

#include "core/cpuid.h"

namespace orv::core {

/// Bytes of the cache that one subleaf describes, at most INT_MAX; 0 if it does not hold data. Each number is stored
/// less one: bytes = ways * partitions * bytes of a line * sets.
inline Orv32u cache_bytes(const CpuidWords& words)
{
    enum { Data = 1, Unified = 3 };
    const Orv32u type = words.eax & 31;
    if (type != Data && type != Unified) return 0;

    const Orv64u ways = (words.ebx >> 22) + 1;
    const Orv64u partitions = (words.ebx >> 12 & 0x3ff) + 1;
    const Orv64u line = (words.ebx & 0xfff) + 1;
    // The other three give up to 2^32. So does the number of sets, which is cut to keep the product below 2^64.
    const Orv64u sets = std::min(Orv64u{words.ecx} + 1, Orv64u{1} << 31);
    return static_cast<Orv32u>(std::min(ways * partitions * line * sets, Orv64u{INT_MAX}));
}

/// The largest cache in the list of one leaf, which ends at a subleaf of type 0; 0 if the list has none.
template <class Cpuid>
Orv32u largest_cache_in(Cpuid cpuid, Orv32u leaf)
{
    constexpr Orv32u max_caches = 32; // several times what exists, in case that the list has no end
    Orv32u largest = 0;
    for (Orv32u i = 0; i < max_caches; ++i) {
        const CpuidWords words = cpuid(leaf, i);
        if ((words.eax & 31) == 0) break;
        largest = std::max(largest, cache_bytes(words));
    }
    return largest;
}

/// Bytes of the largest data or unified cache, at most INT_MAX; 0 if the processor does not tell.
///
/// Leaf 4 has the list; processors that leave it empty may have one of the same form in leaf 0x8000001D, and announce
/// it as topology extensions.
/// @param cpuid  called as cpuid(leaf, subleaf), gives CpuidWords
template <class Cpuid>
Orv32u largest_cache(Cpuid cpuid)
{
    constexpr Orv32u caches = 4, extended_features = 0x80000001, extended_caches = 0x8000001d;
    constexpr Orv32u topology_extensions = Orv32u{1} << 22;

    if (cpuid(0, 0).eax >= caches) {
        if (const Orv32u bytes = largest_cache_in(cpuid, caches)) return bytes;
    }
    // Processors without extended leaves answer with words of another leaf, hence the test of the upper half.
    const Orv32u highest = cpuid(0x80000000, 0).eax;
    if (highest >> 16 == 0x8000 && highest >= extended_caches &&
        (cpuid(extended_features, 0).ecx & topology_extensions)) {
        return largest_cache_in(cpuid, extended_caches);
    }
    return 0;
}

} // namespace orv::core

#endif
