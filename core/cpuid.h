// Identification of the processor by its CPUID instruction.
#ifndef ORV_CORE_CPUID_H
#define ORV_CORE_CPUID_H

#include <atomic>

#include <cpuid.h>

#include "orvs/types.h"

namespace orv::core {

struct CpuidWords {
    Orv32u eax, ebx, ecx, edx;
};

/// Asks this processor. A leaf above the highest one gives arbitrary words, so callers check the highest one first.
inline CpuidWords cpuid(Orv32u leaf, Orv32u subleaf)
{
    CpuidWords words;
    __cpuid_count(leaf, subleaf, words.eax, words.ebx, words.ecx, words.edx);
    return words;
}

/// A fact of up to 31 bits that is found out at first use. CPUID costs tens of nanoseconds, and on a virtual machine
/// an exit to the hypervisor, so the answer is kept. The top bit tells that it is there: one word holds everything, so
/// relaxed order is enough. Threads that race at first use find and store the same value.
class Remembered {
public:
    template <class Find>
    Orv32u get(Find find)
    {
        Orv32u word = word_.load(std::memory_order_relaxed);
        if (word == 0) {
            word = find() | known;
            word_.store(word, std::memory_order_relaxed);
        }
        return word & ~known;
    }

private:
    static constexpr Orv32u known = Orv32u{1} << 31;
    std::atomic<Orv32u> word_{0};
};

} // namespace orv::core

#endif
