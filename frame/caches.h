// When results should go past the caches: they are larger than all of them, so keeping them would only evict what the
// caller works on, and a plain store would read each line before it writes it.
#ifndef ORV_FRAME_CACHES_H
#define ORV_FRAME_CACHES_H

#include <cstddef>

#include "orvs/core.h"

namespace ORV_VARIANT {

/// Below this many bytes the size of the caches is not even asked for.
inline constexpr std::size_t bypass_minimum = 0x200000;

/// Are so many bytes more than the largest cache holds? No, if its size is not known.
inline bool beyond_caches(std::size_t bytes)
{
    if (bytes <= bypass_minimum) return false;
    int cache = 0;
    return orvGetMaxCacheSizeB(&cache) == orvOk && cache > 0 && bytes > std::size_t(cache);
}

/// Should the results of work that touches so many bytes go past the caches? From half the largest cache on: it is
/// shared with others, and with the sources and the destination in it little of the caller's own data would stay.
inline bool worth_bypassing(std::size_t touched) { return touched > bypass_minimum && beyond_caches(2 * touched); }

} // namespace ORV_VARIANT

#endif
