#include "core/features.h"

#include <cstring>

using namespace orv::core;

namespace {

constinit Remembered s_present;
constinit Remembered s_enabled;

// Written out because the intrinsic would need a target newer than the processors that this library must run on.
Orv32u xgetbv0()
{
    Orv32u low, high;
    __asm__ volatile("xgetbv" : "=a"(low), "=d"(high) : "c"(0));
    return low;
}

Orv32u present()
{
    return s_present.get([] { return present_features(read_identification(cpuid)); });
}

Orv32u enabled()
{
    return s_enabled.get([] {
        const IdentificationWords words = read_identification(cpuid);
        return enabled_features(present_features(words), has_osxsave(words) ? xgetbv0() : 0);
    });
}

} // namespace

OrvStatus orvGetCpuFeatures(Orv64u* features, Orv32u* registers)
{
    const Orv32u mask = present();
    if (features) *features = mask;
    if (registers) {
        const IdentificationWords words = read_identification(cpuid);
        static_assert(sizeof words == ORV_CPU_REGISTERS * sizeof *registers);
        std::memcpy(registers, &words, sizeof words);
    }
    return orvOk;
}

Orv64u orvGetEnabledCpuFeatures() { return enabled(); }

int ownGetFeature(Orv64u mask) { return mask != 0 && (mask & ~Orv64u{enabled()}) == 0; }
