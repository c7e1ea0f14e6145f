// From the words of the identification leaves to a mask of OrvCpuFeature bits.
#ifndef ORV_CORE_FEATURES_H
#define ORV_CORE_FEATURES_H

#include "core/cpuid.h"
#include "orvs/core.h"

namespace orv::core {

/// The register block of orvGetCpuFeatures: leaf 1, then leaf 7.0.
struct IdentificationWords {
    CpuidWords leaf1, leaf7;
};

/// @param cpuid  called as cpuid(leaf, subleaf), gives CpuidWords
template <class Cpuid>
IdentificationWords read_identification(Cpuid cpuid)
{
    const Orv32u highest = cpuid(0, 0).eax;
    IdentificationWords words = {};
    if (highest >= 1) words.leaf1 = cpuid(1, 0);
    if (highest >= 7) words.leaf7 = cpuid(7, 0);
    return words;
}

/// The features that the processor has.
inline Orv32u present_features(const IdentificationWords& words)
{
    const auto bit = [](Orv32u word, int number, Orv32u feature) { return word >> number & 1 ? feature : 0; };
    const CpuidWords &leaf1 = words.leaf1, &leaf7 = words.leaf7;
    return bit(leaf1.edx, 26, orvCpuSse2) |   //
           bit(leaf1.ecx, 0, orvCpuSse3) |    //
           bit(leaf1.ecx, 9, orvCpuSsse3) |   //
           bit(leaf1.ecx, 12, orvCpuFma) |    //
           bit(leaf1.ecx, 19, orvCpuSse41) |  //
           bit(leaf1.ecx, 20, orvCpuSse42) |  //
           bit(leaf1.ecx, 23, orvCpuPopcnt) | //
           bit(leaf1.ecx, 28, orvCpuAvx) |    //
           bit(leaf1.ecx, 29, orvCpuF16c) |   //
           bit(leaf7.ebx, 5, orvCpuAvx2) |    //
           bit(leaf7.ebx, 16, orvCpuAvx512f);
}

/// Whether the operating system uses XSAVE; only then XGETBV may be executed.
inline bool has_osxsave(const IdentificationWords& words) { return words.leaf1.ecx >> 27 & 1; }

/// The features that remain when the operating system saves the register states of xcr0 (0 where there is no XSAVE).
inline Orv32u enabled_features(Orv32u present, Orv32u xcr0)
{
    constexpr Orv32u ymm_state = 0x06;        // xmm, upper halves of ymm
    constexpr Orv32u zmm_state = 0xe0 | 0x06; // mask registers, upper halves of zmm, zmm16 to zmm31
    if ((xcr0 & ymm_state) != ymm_state) present &= ~Orv32u{orvCpuAvx | orvCpuAvx2 | orvCpuFma | orvCpuF16c};
    if ((xcr0 & zmm_state) != zmm_state) present &= ~Orv32u{orvCpuAvx512f};
    return present;
}

} // namespace orv::core

#endif
