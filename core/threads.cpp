#include <algorithm>
#include <atomic>
#include <cerrno>

#include <sched.h>
#include <unistd.h>

#include "orvs/core.h"

namespace {

constinit std::atomic<int> s_count{0}; // 0: not set and not found out yet

// The processors in the affinity of the main thread; 1 if the system does not tell. Not the calling thread's, because a
// worker that happens to ask first may be bound to one processor.
int processors_of_this_process()
{
    constexpr int first_try = 1024, last_try = 1 << 20;
    for (int processors = first_try; processors <= last_try; processors *= 2) {
        cpu_set_t* set = CPU_ALLOC(static_cast<std::size_t>(processors));
        if (!set) return 1;
        const std::size_t bytes = CPU_ALLOC_SIZE(static_cast<std::size_t>(processors));
        const bool done = sched_getaffinity(getpid(), bytes, set) == 0;
        const bool too_small = !done && errno == EINVAL;
        const int found = done ? CPU_COUNT_S(bytes, set) : 0;
        CPU_FREE(set);
        if (!too_small) return std::max(found, 1);
    }
    return 1;
}

int thread_count()
{
    int count = s_count.load(std::memory_order_relaxed);
    if (count == 0) {
        // Exchanged, not stored: a number set meanwhile by another thread must survive, and is then loaded into count.
        const int found = processors_of_this_process();
        if (s_count.compare_exchange_strong(count, found, std::memory_order_relaxed)) count = found;
    }
    return count;
}

} // namespace

int ownGetNumThreads() { return thread_count(); }

OrvStatus orvSetNumThreads(int count)
{
    if (count < 1) return orvErrBadArgument;
    s_count.store(count, std::memory_order_relaxed);
    return orvOk;
}

int orvGetNumThreads() { return thread_count(); }
