#include "core/cache_size.h"

#include "orvs/core.h"

using namespace orv::core;

namespace {

constinit Remembered s_largest;

} // namespace

OrvStatus orvGetMaxCacheSizeB(int* bytes)
{
    if (!bytes) return orvErrNullPointer;
    const Orv32u largest = s_largest.get([] { return largest_cache(cpuid); });
    *bytes = static_cast<int>(largest);
    return largest > 0 ? orvOk : orvErrBadArgument;
}
