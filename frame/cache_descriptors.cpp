// Leaf 2 packs up to fifteen one-byte descriptors in four words; their meaning is a table in the processor manuals.
#include "frame/cache_descriptors.h"

#include <cpuid.h>

using namespace ORV_VARIANT;

namespace {

constexpr Orv32s KiB = 1024;

/// Largest first, so that the first match is the outermost cache.
constexpr CacheDescriptor known_caches[] = {
    {0xec, 24576 * KiB}, {0xeb, 18432 * KiB}, {0x4d, 16384 * KiB}, {0xea, 12288 * KiB},
    {0x4c, 12288 * KiB}, {0xe4, 8192 * KiB},  {0xde, 8192 * KiB},  {0x4b, 8192 * KiB},
    {0x47, 8192 * KiB},  {0x4e, 6144 * KiB},  {0x4a, 6144 * KiB},  {0xe3, 4096 * KiB},
    {0xdd, 4096 * KiB},  {0xd8, 4096 * KiB},  {0x49, 4096 * KiB},  {0x29, 4096 * KiB},
    {0x46, 4096 * KiB},  {0x48, 3072 * KiB},  {0xe2, 2048 * KiB},  {0xdc, 2048 * KiB},
    {0xd7, 2048 * KiB},  {0xd2, 2048 * KiB},  {0x25, 2048 * KiB},  {0x7d, 2048 * KiB},
    {0x85, 2048 * KiB},  {0x45, 2048 * KiB},  {0xd6, 1024 * KiB},  {0xd1, 1024 * KiB},
    {0x23, 1024 * KiB},  {0x87, 1024 * KiB},  {0x7c, 1024 * KiB},  {0x78, 1024 * KiB},
    {0x84, 1024 * KiB},  {0x44, 1024 * KiB},  {0xd0, 512 * KiB},   {0x22, 512 * KiB},
    {0x7b, 512 * KiB},   {0x80, 512 * KiB},   {0x86, 512 * KiB},   {0x3e, 512 * KiB},
    {0x7f, 512 * KiB},   {0x83, 512 * KiB},   {0x43, 512 * KiB},   {0, 0},
};

} // namespace

Orv32s ORV_VARIANT::described_cache_size(const CacheDescriptor* table, const Orv32u words[4])
{
    if ((words[0] & 0xff) != 1) return -1;

    // A word with its top bit set holds no descriptors. The low byte of the first word is the count just tested.
    Orv8u bytes[16];
    int count = 0;
    for (int w = 0; w < 4; w++) {
        if (words[w] == 0 || (words[w] & 0x80000000) != 0) continue;
        for (int b = w == 0 ? 1 : 0; b < 4; b++) bytes[count++] = Orv8u(words[w] >> (8 * b));
    }

    for (; table->descriptor != 0; table++) {
        for (int i = count - 1; i >= 0; i--) {
            if (bytes[i] == Orv8u(table->descriptor)) return table->size;
        }
    }
    return -1;
}

Orv32s ownGetCacheSize(const CacheDescriptor* table)
{
    Orv32u words[4];
    if (!__get_cpuid(2, &words[0], &words[1], &words[2], &words[3])) return -1;
    return described_cache_size(table, words);
}

Orv32s ORV_VARIANT::described_cache_size()
{
    Orv32u highest, b, c, d;
    if (!__get_cpuid(0, &highest, &b, &c, &d)) return -1;
    if (b != signature_INTEL_ebx || c != signature_INTEL_ecx || d != signature_INTEL_edx) return -1;
    return ownGetCacheSize(known_caches);
}
