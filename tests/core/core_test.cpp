// The core library through its exported functions, and the reading of CPUID words on made-up processors.
#include "orvs/core.h"

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <climits>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <string_view>
#include <thread>
#include <utility>
#include <vector>

#include <gtest/gtest.h>
#include <sched.h>
#include <sys/syscall.h>
#include <unistd.h>

#include "core/cache_size.h"
#include "core/features.h"

using namespace orv::core;

// ---- A machine with more processors than the real one

namespace {

int g_pretended_processors = 0; // 0: the real machine
int g_set_meanwhile = 0;        // a number of threads that somebody sets while the kernel is asked; 0: nobody

} // namespace

/// Stands in front of the C library's function, also for the core library. The kernel, too, answers EINVAL as long as
/// the set is smaller than its own.
extern "C" __attribute__((visibility("default"))) int sched_getaffinity(pid_t pid, size_t bytes,
                                                                        cpu_set_t* set) noexcept
{
    if (g_set_meanwhile) orvSetNumThreads(g_set_meanwhile);
    std::memset(set, 0, bytes);
    if (g_pretended_processors == 0) return syscall(SYS_sched_getaffinity, pid, bytes, set) < 0 ? -1 : 0;
    if (bytes * 8 < static_cast<size_t>(g_pretended_processors)) {
        errno = EINVAL;
        return -1;
    }
    for (int i = 0; i < g_pretended_processors; ++i) CPU_SET_S(static_cast<size_t>(i), bytes, set);
    return 0;
}

namespace {

// ---- Memory

TEST(orvMalloc, aligned_and_writable_to_the_last_byte)
{
    std::vector<int> sizes;
    for (int size = 1; size <= 300; ++size) sizes.push_back(size);
    for (int power = 512; power <= 1 << 22; power *= 2) sizes.insert(sizes.end(), {power - 1, power, power + 1});

    std::vector<unsigned char*> blocks;
    for (size_t i = 0; i < sizes.size(); ++i) {
        auto* block = static_cast<unsigned char*>(orvMalloc(sizes[i]));
        ASSERT_NE(block, nullptr) << "size " << sizes[i];
        EXPECT_EQ(reinterpret_cast<uintptr_t>(block) % 64, 0u) << "size " << sizes[i];
        std::memset(block, static_cast<int>(i % 251), static_cast<size_t>(sizes[i]));
        blocks.push_back(block);
    }
    for (size_t i = 0; i < sizes.size(); ++i) { // each block still holds what it alone was given
        const auto* block = blocks[i];
        const std::vector<unsigned char> expected(static_cast<size_t>(sizes[i]), static_cast<unsigned char>(i % 251));
        EXPECT_EQ(std::memcmp(block, expected.data(), expected.size()), 0) << "size " << sizes[i];
        orvFree(blocks[i]);
    }
}

TEST(orvMalloc, no_memory_for_sizes_below_one)
{
    for (int size : {0, -1, -64, INT_MIN}) EXPECT_EQ(orvMalloc(size), nullptr) << "size " << size;
}

TEST(orvMalloc, the_largest_size_is_given_or_refused)
{
    void* const block = orvMalloc(INT_MAX); // there may be no room for it
    EXPECT_EQ(reinterpret_cast<uintptr_t>(block) % 64, 0u);
    if (block) {
        static_cast<volatile char*>(block)[INT_MAX - 1] = 1;
    }
    orvFree(block);
}

TEST(orvMalloc, null_when_memory_is_exhausted)
{
    if (sizeof(void*) != 4) GTEST_SKIP() << "only a 32-bit address space is quickly exhausted";
    std::vector<void*> blocks;
    constexpr int size = 256 << 20;
    void* block = orvMalloc(size);
    for (; block && blocks.size() < 16; block = orvMalloc(size)) blocks.push_back(block);
    EXPECT_EQ(block, nullptr);
    for (void* each : blocks) orvFree(each);
    block = orvMalloc(size); // there is room again
    EXPECT_NE(block, nullptr);
    orvFree(block);
}

TEST(orvFree, accepts_null)
{
    orvFree(nullptr);
    void* const block = orvMalloc(64); // and the allocator is in order afterwards
    EXPECT_NE(block, nullptr);
    orvFree(block);
}

uintptr_t aligned(uintptr_t address, int alignment)
{
    return reinterpret_cast<uintptr_t>(orvAlignPtr(reinterpret_cast<void*>(address), alignment));
}

TEST(orvAlignPtr, rounds_up_to_the_next_multiple)
{
    for (int alignment : {1, 2, 4, 8, 16, 32, 64, 128, 4096}) {
        uintptr_t multiple = 0; // the smallest one that is not below the address
        for (uintptr_t address = 0; address < 10000; ++address) {
            if (multiple < address) multiple += static_cast<uintptr_t>(alignment);
            ASSERT_EQ(aligned(address, alignment), multiple) << address << " to " << alignment;
        }
    }
    constexpr int largest = 1 << 30;
    EXPECT_EQ(aligned(0, largest), 0u);
    EXPECT_EQ(aligned(1, largest), uintptr_t{1} << 30);
    EXPECT_EQ(aligned((uintptr_t{1} << 30) + 1, largest), uintptr_t{2} << 30);
}

TEST(orvAlignPtr, end_of_the_address_space)
{
    constexpr uintptr_t last = UINTPTR_MAX;
    EXPECT_EQ(aligned(last, 1), last);
    EXPECT_EQ(aligned(last - 63, 64), last - 63);
    EXPECT_EQ(aligned(last - 64, 64), last - 63);
    EXPECT_EQ(aligned(last - 62, 64), 0u);
    EXPECT_EQ(aligned(last, 64), 0u);
}

TEST(orvAlignPtr, other_alignments_change_nothing)
{
    for (int alignment : {0, -1, -32, INT_MIN, 3, 6, 33, 48, 100, INT_MAX}) {
        for (uintptr_t address : {uintptr_t{0}, uintptr_t{1}, uintptr_t{4097}, UINTPTR_MAX}) {
            EXPECT_EQ(aligned(address, alignment), address) << address << " to " << alignment;
        }
    }
}

// ---- Features of this processor

struct KernelName {
    const char* flag;
    OrvCpuFeature feature;
};
constexpr KernelName kernel_names[] = {
    {"sse2", orvCpuSse2},    {"pni", orvCpuSse3},      {"ssse3", orvCpuSsse3},     {"sse4_1", orvCpuSse41},
    {"sse4_2", orvCpuSse42}, {"popcnt", orvCpuPopcnt}, {"avx", orvCpuAvx},         {"avx2", orvCpuAvx2},
    {"fma", orvCpuFma},      {"f16c", orvCpuF16c},     {"avx512f", orvCpuAvx512f},
};

Orv64u all_features()
{
    Orv64u mask = 0;
    for (const KernelName& name : kernel_names) mask |= name.feature;
    return mask;
}

Orv64u present_mask()
{
    Orv64u mask = ~Orv64u{0};
    EXPECT_EQ(orvGetCpuFeatures(&mask, nullptr), orvOk);
    return mask;
}

TEST(orvGetEnabledCpuFeatures, same_as_the_kernel_found)
{
    std::ifstream cpuinfo("/proc/cpuinfo");
    std::string line;
    while (std::getline(cpuinfo, line) && line.rfind("flags", 0) != 0) {
    }
    if (!cpuinfo) GTEST_SKIP() << "/proc/cpuinfo tells no flags";

    std::istringstream words(line.substr(line.find(':') + 1));
    std::set<std::string> flags;
    for (std::string word; words >> word;) flags.insert(word);
    for (const KernelName& name : kernel_names) {
        EXPECT_EQ((orvGetEnabledCpuFeatures() & name.feature) != 0, flags.count(name.flag) == 1) << name.flag;
    }
}

TEST(orvGetEnabledCpuFeatures, same_as_the_compiler_found)
{
    __builtin_cpu_init();
    const std::pair<bool, OrvCpuFeature> supported[] = {
        {__builtin_cpu_supports("sse2"), orvCpuSse2},    {__builtin_cpu_supports("sse3"), orvCpuSse3},
        {__builtin_cpu_supports("ssse3"), orvCpuSsse3},  {__builtin_cpu_supports("sse4.1"), orvCpuSse41},
        {__builtin_cpu_supports("sse4.2"), orvCpuSse42}, {__builtin_cpu_supports("popcnt"), orvCpuPopcnt},
        {__builtin_cpu_supports("avx"), orvCpuAvx},      {__builtin_cpu_supports("avx2"), orvCpuAvx2},
        {__builtin_cpu_supports("fma"), orvCpuFma},      {__builtin_cpu_supports("avx512f"), orvCpuAvx512f},
    };
    for (const auto& [expected, feature] : supported) {
        EXPECT_EQ((orvGetEnabledCpuFeatures() & feature) != 0, expected) << "feature " << feature;
    }
}

TEST(orvGetEnabledCpuFeatures, part_of_what_is_present)
{
    EXPECT_EQ(orvGetEnabledCpuFeatures() & ~present_mask(), 0u);
    EXPECT_EQ(present_mask() & ~all_features(), 0u);
}

TEST(orvGetCpuFeatures, stores_what_is_wanted)
{
    EXPECT_EQ(orvGetCpuFeatures(nullptr, nullptr), orvOk);

    Orv64u features = 0;
    Orv32u registers[ORV_CPU_REGISTERS + 1];
    constexpr Orv32u canary = 0x5a5a5a5a;
    registers[ORV_CPU_REGISTERS] = canary;
    EXPECT_EQ(orvGetCpuFeatures(&features, registers), orvOk);
    EXPECT_EQ(registers[ORV_CPU_REGISTERS], canary);

    unsigned leaf1[4] = {}, leaf7[4] = {}; // all zero where the leaf does not exist
    __get_cpuid(1, &leaf1[0], &leaf1[1], &leaf1[2], &leaf1[3]);
    __get_cpuid_count(7, 0, &leaf7[0], &leaf7[1], &leaf7[2], &leaf7[3]);
    for (size_t i = 0; i < 4; ++i) {
        // The upper byte of ebx numbers the processor that executed the instruction.
        const Orv32u compared = i == 1 ? 0x00ffffff : 0xffffffff;
        EXPECT_EQ(registers[i] & compared, leaf1[i] & compared) << "word " << i;
        EXPECT_EQ(registers[4 + i], leaf7[i]) << "word " << 4 + i;
    }

    Orv32u only_registers[ORV_CPU_REGISTERS] = {};
    EXPECT_EQ(orvGetCpuFeatures(nullptr, only_registers), orvOk);
    EXPECT_EQ(only_registers[3], registers[3]);
    EXPECT_EQ(features, present_mask());
}

TEST(ownGetFeature, every_bit_of_the_mask_counts)
{
    const Orv64u enabled = orvGetEnabledCpuFeatures();
    for (int bit = 0; bit < 64; ++bit) {
        const Orv64u mask = Orv64u{1} << bit;
        EXPECT_EQ(ownGetFeature(mask) != 0, (enabled & mask) != 0) << "bit " << bit;
        EXPECT_EQ(ownGetFeature(enabled | mask) != 0, (enabled & mask) != 0) << "bit " << bit;
    }
    EXPECT_NE(ownGetFeature(enabled), 0);
    EXPECT_EQ(ownGetFeature(0), 0);
    EXPECT_EQ(ownGetFeature(~Orv64u{0}), 0);
}

// ---- Made-up processors

/// Answers from a table. A leaf that is not in it is all zero, except those above the highest basic leaf, for which
/// real processors repeat the highest one.
struct MadeUpProcessor {
    std::map<std::pair<Orv32u, Orv32u>, CpuidWords> leaves;

    CpuidWords operator()(Orv32u leaf, Orv32u subleaf) const
    {
        const auto found = leaves.find({leaf, subleaf});
        if (found != leaves.end()) return found->second;
        const Orv32u highest = leaves.count({0, 0}) ? leaves.at({0, 0}).eax : 0;
        const bool repeats = leaf > highest && leaves.count({highest, 0}) && leaf < 0x80000000;
        return repeats ? leaves.at({highest, 0}) : CpuidWords{};
    }
};

constexpr Orv32u osxsave = 1u << 27;

TEST(Features, one_word_bit_one_feature)
{
    const std::pair<IdentificationWords, Orv32u> cases[] = {
        {{{0, 0, 0, 1u << 26}, {}}, 1u << 0},  // SSE2
        {{{0, 0, 1u << 0, 0}, {}}, 1u << 1},   // SSE3
        {{{0, 0, 1u << 9, 0}, {}}, 1u << 2},   // SSSE3
        {{{0, 0, 1u << 19, 0}, {}}, 1u << 3},  // SSE4.1
        {{{}, {0, 1u << 5, 0, 0}}, 1u << 4},   // AVX2
        {{{0, 0, 1u << 12, 0}, {}}, 1u << 5},  // FMA
        {{{0, 0, 1u << 20, 0}, {}}, 1u << 6},  // SSE4.2
        {{{0, 0, 1u << 23, 0}, {}}, 1u << 7},  // POPCNT
        {{{0, 0, 1u << 28, 0}, {}}, 1u << 8},  // AVX
        {{{}, {0, 1u << 16, 0, 0}}, 1u << 9},  // AVX-512F
        {{{0, 0, 1u << 29, 0}, {}}, 1u << 14}, // F16C
    };
    Orv32u all = 0;
    for (const auto& [words, feature] : cases) {
        EXPECT_EQ(present_features(words), feature);
        all |= feature;
    }
    EXPECT_EQ(present_features({}), 0u);
    EXPECT_EQ(present_features({{~0u, ~0u, ~0u, ~0u}, {~0u, ~0u, ~0u, ~0u}}), all);
}

TEST(Features, registers_that_the_system_does_not_save)
{
    const auto all = static_cast<Orv32u>(all_features());
    const Orv32u ymm = orvCpuAvx | orvCpuAvx2 | orvCpuFma | orvCpuF16c;
    EXPECT_EQ(enabled_features(all, 0), all & ~ymm & ~Orv32u{orvCpuAvx512f});
    EXPECT_EQ(enabled_features(all, 0x3), all & ~ymm & ~Orv32u{orvCpuAvx512f});
    EXPECT_EQ(enabled_features(all, 0x5), all & ~ymm & ~Orv32u{orvCpuAvx512f});
    EXPECT_EQ(enabled_features(all, 0xe1), all & ~ymm & ~Orv32u{orvCpuAvx512f});
    for (Orv32u incomplete : {0x07u, 0x67u, 0xa7u, 0xc7u}) {
        EXPECT_EQ(enabled_features(all, incomplete), all & ~Orv32u{orvCpuAvx512f}) << incomplete;
    }
    EXPECT_EQ(enabled_features(all, 0xe7), all);
    EXPECT_EQ(enabled_features(0, 0xe7), 0u);
    EXPECT_EQ(enabled_features(orvCpuAvx2, 0x7), Orv32u{orvCpuAvx2});
    EXPECT_EQ(enabled_features(orvCpuFma, 0x7), Orv32u{orvCpuFma});

    EXPECT_TRUE(has_osxsave({{0, 0, osxsave, 0}, {}}));
    EXPECT_FALSE(has_osxsave({{~0u, ~0u, ~osxsave, ~0u}, {~0u, ~0u, ~0u, ~0u}}));
}

TEST(Features, leaves_above_the_highest_count_as_zero)
{
    const CpuidWords ones = {~0u, ~0u, ~0u, ~0u};
    const IdentificationWords none = read_identification(MadeUpProcessor{{{{0, 0}, {0, ~0u, ~0u, ~0u}}}});
    EXPECT_EQ(present_features(none), 0u);

    const IdentificationWords old =
        read_identification(MadeUpProcessor{{{{0, 0}, {2, 0, 0, 0}}, {{1, 0}, ones}, {{2, 0}, ones}}});
    EXPECT_EQ(old.leaf1.ebx, ~0u);
    EXPECT_EQ(old.leaf7.ebx, 0u);

    const IdentificationWords recent =
        read_identification(MadeUpProcessor{{{{0, 0}, {7, 0, 0, 0}}, {{7, 0}, {2, 3, 4, 5}}, {{7, 1}, ones}}});
    EXPECT_EQ(recent.leaf1.ecx, 0u);
    EXPECT_EQ(recent.leaf7.eax, 2u);
    EXPECT_EQ(recent.leaf7.ebx, 3u);
    EXPECT_EQ(recent.leaf7.ecx, 4u);
    EXPECT_EQ(recent.leaf7.edx, 5u);
}

enum CacheType : Orv32u { data = 1, instruction = 2, unified = 3 };

/// The words of a cache. The other fields of eax (level, sharing) are filled to show that they are not used.
CpuidWords cache(Orv32u type, Orv64u ways, Orv64u partitions, Orv64u line, Orv64u sets)
{
    return {0xffffffe0u | type, static_cast<Orv32u>((ways - 1) << 22 | (partitions - 1) << 12 | (line - 1)),
            static_cast<Orv32u>(sets - 1), 0xffffffffu};
}

constexpr CpuidWords l1_data = {0x121, 0x01c0003f, 63, 0}; // 8 ways of 64 lines of 64 bytes: 32 KiB
constexpr CpuidWords l1_instruction = {0x122, 0x01c0003f, 63, 0};
constexpr CpuidWords l2 = {0x143, 0x01c0003f, 1023, 2};    // 512 KiB
constexpr CpuidWords l3 = {0x3c163, 0x03c0003f, 32767, 1}; // 16 ways: 32 MiB

MadeUpProcessor with_leaf4(std::vector<CpuidWords> caches, Orv32u highest = 0x16)
{
    MadeUpProcessor cpu{{{{0, 0}, {highest, 0, 0, 0}}, {{0x80000000, 0}, {0x80000008, 0, 0, 0}}}};
    for (Orv32u i = 0; i < caches.size(); ++i) cpu.leaves[{4, i}] = caches[i];
    return cpu;
}

MadeUpProcessor with_extended_leaf(std::vector<CpuidWords> caches)
{
    MadeUpProcessor cpu{
        {{{0, 0}, {0x10, 0, 0, 0}}, {{0x80000000, 0}, {0x80000023, 0, 0, 0}}, {{0x80000001, 0}, {0, 0, 1u << 22, 0}}}};
    for (Orv32u i = 0; i < caches.size(); ++i) cpu.leaves[{0x8000001d, i}] = caches[i];
    return cpu;
}

TEST(LargestCache, all_levels_of_either_leaf)
{
    for (auto made_with : {+[](std::vector<CpuidWords> c) { return with_leaf4(std::move(c)); },
                           +[](std::vector<CpuidWords> c) { return with_extended_leaf(std::move(c)); }}) {
        EXPECT_EQ(largest_cache(made_with({l1_data, l1_instruction, l2, l3})), 32u << 20);
        EXPECT_EQ(largest_cache(made_with({l3, l2, l1_instruction, l1_data})), 32u << 20);
        EXPECT_EQ(largest_cache(made_with({l1_data, l1_instruction, l2})), 512u << 10);
        EXPECT_EQ(largest_cache(made_with({l1_data})), 32u << 10);
        EXPECT_EQ(largest_cache(made_with({l1_instruction})), 0u);
        EXPECT_EQ(largest_cache(made_with({})), 0u);
        EXPECT_EQ(largest_cache(made_with({l1_data, {}, l3})), 32u << 10) << "nothing counts after the end";
    }
}

TEST(LargestCache, size_is_the_product_of_the_four_numbers)
{
    EXPECT_EQ(cache_bytes(cache(unified, 1, 1, 1, 1)), 1u);
    EXPECT_EQ(cache_bytes(cache(data, 12, 1, 64, 64)), 48u << 10);
    EXPECT_EQ(cache_bytes(cache(unified, 3, 5, 7, 11)), 3u * 5 * 7 * 11);
    EXPECT_EQ(cache_bytes(cache(unified, 1024, 1, 1, 1)), 1024u);
    EXPECT_EQ(cache_bytes(cache(unified, 1, 1024, 1, 1)), 1024u);
    EXPECT_EQ(cache_bytes(cache(unified, 1, 1, 4096, 1)), 4096u);
    EXPECT_EQ(cache_bytes(cache(unified, 1, 1, 1, INT_MAX)), Orv32u{INT_MAX});
}

TEST(LargestCache, only_data_and_unified_caches_count)
{
    for (Orv32u type = 0; type < 32; ++type) {
        EXPECT_EQ(cache_bytes(cache(type, 8, 1, 64, 64)), type == data || type == unified ? 32u << 10 : 0u) << type;
    }
    constexpr Orv64u sets = 1 << 20;
    const MadeUpProcessor cpu = with_leaf4({cache(instruction, 16, 1, 64, sets), cache(4, 16, 1, 64, sets), l2});
    EXPECT_EQ(largest_cache(cpu), 512u << 10);
}

TEST(LargestCache, sizes_above_the_largest_int_are_cut)
{
    EXPECT_EQ(cache_bytes(cache(unified, 1, 1, 1, Orv64u{1} << 31)), Orv32u{INT_MAX});
    EXPECT_EQ(cache_bytes(cache(unified, 1, 1, 1, Orv64u{1} << 32)), Orv32u{INT_MAX});
    EXPECT_EQ(cache_bytes(cache(unified, 1024, 1024, 4096, 1)), Orv32u{INT_MAX});
    EXPECT_EQ(cache_bytes(cache(unified, 1024, 1024, 4096, Orv64u{1} << 32)), Orv32u{INT_MAX}); // 2^64 bytes
    EXPECT_EQ(cache_bytes(cache(unified, 16, 1, 64, Orv64u{1} << 22)), Orv32u{INT_MAX});        // 2^32 bytes
}

TEST(LargestCache, list_without_end)
{
    Orv32u asked = 0;
    const auto endless = [&](Orv32u leaf, Orv32u) {
        ++asked;
        return leaf == 0 ? CpuidWords{4, 0, 0, 0} : l2;
    };
    EXPECT_EQ(largest_cache(endless), 512u << 10);
    EXPECT_LT(asked, 100u);

    asked = 0;
    const auto endless_without_data = [&](Orv32u leaf, Orv32u) {
        ++asked;
        if (leaf == 0) return CpuidWords{4, 0, 0, 0};
        if (leaf == 0x80000000) return CpuidWords{0x8000001d, 0, 0, 0};
        if (leaf == 0x80000001) return CpuidWords{0, 0, ~0u, 0};
        return l1_instruction;
    };
    EXPECT_EQ(largest_cache(endless_without_data), 0u);
    EXPECT_LT(asked, 200u);
}

TEST(LargestCache, leaf_must_be_announced)
{
    EXPECT_EQ(largest_cache(with_leaf4({l3}, 4)), 32u << 20);
    EXPECT_EQ(largest_cache(with_leaf4({l3}, 3)), 0u) << "leaf 4 lies above the highest leaf";

    MadeUpProcessor no_topology = with_extended_leaf({l3});
    no_topology.leaves[{0x80000001, 0}].ecx = ~(1u << 22);
    EXPECT_EQ(largest_cache(no_topology), 0u);

    for (Orv32u highest : {0u, 0x00657a01u, 0x7fffffffu, 0x8000001cu, 0x8000001du, 0x80000023u, 0xffffffffu}) {
        MadeUpProcessor cpu = with_extended_leaf({l3});
        cpu.leaves[{0x80000000, 0}].eax = highest;
        const bool announced = highest == 0x8000001d || highest == 0x80000023;
        EXPECT_EQ(largest_cache(cpu), announced ? 32u << 20 : 0u) << std::hex << highest;
    }

    MadeUpProcessor both = with_leaf4({l2});
    both.leaves.merge(with_extended_leaf({l3}).leaves);
    EXPECT_EQ(largest_cache(both), 512u << 10) << "leaf 4 has the word where it is populated";
    EXPECT_EQ(largest_cache(MadeUpProcessor{}), 0u);
}

// ---- Facts that are kept

TEST(Remembered, found_out_once_whatever_the_fact)
{
    for (Orv32u fact : {0u, 1u, Orv32u{INT_MAX}}) {
        Remembered remembered;
        int found = 0;
        for (int i = 0; i < 3; ++i) {
            EXPECT_EQ(remembered.get([&] { return ++found, fact; }), fact);
        }
        EXPECT_EQ(found, 1) << fact;
    }
}

// ---- Cache size of this processor

TEST(orvGetMaxCacheSizeB, same_as_the_kernel_found)
{
    Orv64s largest = 0;
    for (int i = 0; i < 16; ++i) {
        const std::string folder = "/sys/devices/system/cpu/cpu0/cache/index" + std::to_string(i);
        std::ifstream size_file(folder + "/size"), type_file(folder + "/type");
        Orv64s size = 0;
        char unit = 0;
        std::string type;
        if (!(size_file >> size >> unit) || !(type_file >> type) || type == "Instruction") continue;
        ASSERT_TRUE(unit == 'K' || unit == 'M') << unit;
        largest = std::max(largest, size << (unit == 'K' ? 10 : 20));
    }
    if (largest == 0) GTEST_SKIP() << "sysfs describes no cache";

    int bytes = -1;
    EXPECT_EQ(orvGetMaxCacheSizeB(&bytes), orvOk);
    EXPECT_EQ(bytes, std::min(largest, Orv64s{INT_MAX}));
}

TEST(orvGetMaxCacheSizeB, status_and_size_agree)
{
    int first = -1, second = -2;
    const OrvStatus status = orvGetMaxCacheSizeB(&first);
    EXPECT_EQ(status, first > 0 ? orvOk : orvErrBadArgument);
    EXPECT_GE(first, 0);
    EXPECT_EQ(orvGetMaxCacheSizeB(&second), status);
    EXPECT_EQ(second, first);
    EXPECT_EQ(static_cast<Orv32u>(first), largest_cache(cpuid));
}

TEST(orvGetMaxCacheSizeB, null_pointer) { EXPECT_EQ(orvGetMaxCacheSizeB(nullptr), orvErrNullPointer); }

// ---- Number of threads

/// Tests that need a process in which the core library was not called yet: they run in a copy of this program, which
/// executes the one test again up to its EXPECT_EXIT.
class FreshProcess : public ::testing::Test {
protected:
    FreshProcess() { GTEST_FLAG_SET(death_test_style, "threadsafe"); }

    /// Ends the copy with what it found out, past the work of exit handlers.
    [[noreturn]] static void report(const char* what, int value)
    {
        std::fprintf(stderr, "%s=%d;\n", what, value);
        _exit(0);
    }
};

/// Processors in the affinity of a thread (0: the caller), asked of the kernel.
int processors_of(pid_t thread)
{
    std::vector<unsigned long> set(1 << 12);
    const long bytes = syscall(SYS_sched_getaffinity, thread, set.size() * sizeof set[0], set.data());
    EXPECT_GT(bytes, 0);
    int count = 0;
    for (unsigned long word : set) count += __builtin_popcountl(word);
    return count;
}

/// Binds the calling thread to the first processor that it may run on.
void bind_to_one_processor()
{
    cpu_set_t all[64], one[64] = {}; // for 65536 processors
    ASSERT_EQ(sched_getaffinity(0, sizeof all, all), 0);
    size_t first = 0;
    while (!CPU_ISSET_S(first, sizeof all, all)) ++first;
    CPU_SET_S(first, sizeof one, one);
    ASSERT_EQ(sched_setaffinity(0, sizeof one, one), 0);
}

using Threads = FreshProcess;

TEST_F(Threads, by_default_as_many_as_processors)
{
    const std::string expected = "^count=" + std::to_string(processors_of(0)) + ";";
    EXPECT_EXIT(report("count", ownGetNumThreads()), ::testing::ExitedWithCode(0), expected);
    EXPECT_EXIT(report("count", orvGetNumThreads()), ::testing::ExitedWithCode(0), expected);
}

TEST_F(Threads, by_default_one_on_a_single_processor)
{
    EXPECT_EXIT(
        {
            bind_to_one_processor();
            report("count", orvGetNumThreads());
        },
        ::testing::ExitedWithCode(0), "^count=1;");
}

TEST_F(Threads, default_does_not_depend_on_the_thread_that_asks_first)
{
    EXPECT_EXIT(
        {
            int count = 0;
            std::thread([&] {
                bind_to_one_processor();
                count = orvGetNumThreads();
            }).join();
            report("count", count);
        },
        ::testing::ExitedWithCode(0), "^count=" + std::to_string(processors_of(getpid())) + ";");
}

TEST_F(Threads, default_on_machines_of_any_size)
{
    for (int processors : {1, 1023, 1024, 1025, 5000, 70000}) {
        EXPECT_EXIT(
            {
                g_pretended_processors = processors;
                report("count", orvGetNumThreads());
            },
            ::testing::ExitedWithCode(0), "^count=" + std::to_string(processors) + ";");
    }
}

TEST_F(Threads, one_when_the_system_does_not_tell)
{
    EXPECT_EXIT(
        {
            g_pretended_processors = INT_MAX; // more than any set is tried for
            report("count", orvGetNumThreads());
        },
        ::testing::ExitedWithCode(0), "^count=1;");
}

TEST_F(Threads, a_set_number_keeps_the_default_away)
{
    EXPECT_EXIT(
        {
            orvSetNumThreads(321);
            report("count", orvGetNumThreads());
        },
        ::testing::ExitedWithCode(0), "^count=321;");
}

TEST_F(Threads, a_number_set_while_the_default_is_found_out_survives)
{
    EXPECT_EXIT(
        {
            g_set_meanwhile = 321;
            const int first = orvGetNumThreads();
            report("count", first == orvGetNumThreads() ? first : 0);
        },
        ::testing::ExitedWithCode(0), "^count=321;");
}

TEST_F(Threads, set_and_get)
{
    const int before = orvGetNumThreads();
    ASSERT_GE(before, 1);
    for (int count : {1, 2, 3, 7, 1000, INT_MAX, 1}) {
        EXPECT_EQ(orvSetNumThreads(count), orvOk);
        EXPECT_EQ(orvGetNumThreads(), count);
        EXPECT_EQ(ownGetNumThreads(), count);
        for (int bad : {0, -1, -count, INT_MIN}) {
            EXPECT_EQ(orvSetNumThreads(bad), orvErrBadArgument);
            EXPECT_EQ(orvGetNumThreads(), count) << "after " << bad;
        }
        int elsewhere = 0;
        std::thread([&] { elsewhere = ownGetNumThreads(); }).join();
        EXPECT_EQ(elsewhere, count);
    }
    EXPECT_EQ(orvSetNumThreads(before), orvOk);
}

// ---- Many threads at once, and very early

struct Facts {
    Orv64u present, enabled;
    int cache, f16c;
    OrvStatus cache_status;
    bool operator==(const Facts&) const = default;
};

Facts ask()
{
    Facts facts = {};
    orvGetCpuFeatures(&facts.present, nullptr);
    facts.enabled = orvGetEnabledCpuFeatures();
    facts.f16c = ownGetFeature(orvCpuF16c);
    facts.cache_status = orvGetMaxCacheSizeB(&facts.cache);
    return facts;
}

/// Uses everything for a while with numbers of threads of 1000 and more, and counts wrong answers.
int hammer(int self, const Facts& facts)
{
    int wrong = 0;
    for (int i = 0; i < 2000; ++i) {
        wrong += !(ask() == facts);
        wrong += orvSetNumThreads(1000 + self) != orvOk;
        wrong += orvSetNumThreads(-self) != orvErrBadArgument;
        wrong += orvGetNumThreads() < 1000; // also the number of another thread is one of ours, never the default
        const int size = 1 + (i * 37 + self) % 5000;
        auto* block = static_cast<unsigned char*>(orvMalloc(size));
        std::memset(block, self, static_cast<size_t>(size));
        wrong += orvAlignPtr(block, 64) != block;
        for (int k = 0; k < size; ++k) wrong += block[k] != self;
        orvFree(block);
    }
    return wrong;
}

/// Starts count threads that begin body(self) as simultaneously as threads can.
template <class Body>
void at_once(int count, Body body)
{
    std::atomic<int> waiting{count};
    std::vector<std::thread> threads;
    threads.reserve(static_cast<size_t>(count));
    for (int self = 0; self < count; ++self) {
        threads.emplace_back([&, self] {
            for (--waiting; waiting > 0;) std::this_thread::yield();
            body(self);
        });
    }
    for (std::thread& thread : threads) thread.join();
}

TEST(ManyThreads, everything_from_everywhere)
{
    const Facts facts = ask();
    const int before = orvGetNumThreads();
    std::atomic<int> wrong{0};
    at_once(8, [&](int self) { wrong += hammer(self, facts); });
    EXPECT_EQ(wrong, 0);
    orvSetNumThreads(before);
}

using ManyThreadsFirst = FreshProcess;

TEST_F(ManyThreadsFirst, same_facts_for_all)
{
    EXPECT_EXIT(
        {
            Facts facts[8];
            int counts[8];
            at_once(8, [&](int self) {
                counts[self] = orvGetNumThreads();
                facts[self] = ask();
            });
            int different = 0;
            for (int i = 1; i < 8; ++i) different += !(facts[i] == facts[0]) + (counts[i] != counts[0]);
            report("different", different);
        },
        ::testing::ExitedWithCode(0), "^different=0;");
}

constexpr const char* early_variable = "ORV_CORE_TEST_EARLY=1";
Facts g_early_facts;
int g_early_count = 0, g_early_block_is_good = 0;

// Runs before the constructors of all shared libraries, also the C library's own, when the environment asks for it.
void call_early(int, char**, char** environment)
{
    const std::string_view wanted = early_variable;
    while (*environment && wanted != *environment) ++environment;
    if (!*environment) return;
    g_early_facts = ask();
    g_early_count = ownGetNumThreads();
    void* const block = orvMalloc(100);
    g_early_block_is_good = block && orvAlignPtr(block, 64) == block;
    orvFree(block);
}
__attribute__((section(".preinit_array"), used)) void (*const g_call_early)(int, char**, char**) = call_early;

using Early = FreshProcess;

TEST_F(Early, before_constructors)
{
    ASSERT_EQ(setenv("ORV_CORE_TEST_EARLY", "1", 1), 0);
    EXPECT_EXIT(
        {
            const bool good = g_early_facts == ask() && g_early_count == ownGetNumThreads() && g_early_block_is_good;
            report("good", good ? g_early_count : 0);
        },
        ::testing::ExitedWithCode(0), "^good=" + std::to_string(processors_of(0)) + ";");
    unsetenv("ORV_CORE_TEST_EARLY");
}

#ifdef __i386__

// ---- Callers of old

/// Calls function(first, second) with the stack offset bytes below where today's ABI aligns it to 16.
extern "C" Orv32u call_with_stack_offset(int offset, const void* function, Orv32u first, Orv32u second);
__asm__(R"(
    .text
    .type call_with_stack_offset, @function
call_with_stack_offset:
    pushl %ebp
    movl %esp, %ebp
    movl 12(%ebp), %eax
    andl $-16, %esp
    subl $8, %esp
    subl 8(%ebp), %esp
    pushl 20(%ebp)
    pushl 16(%ebp)
    call *%eax
    leave
    ret
    .size call_with_stack_offset, .-call_with_stack_offset
)");

Orv32u address(const void* object) { return static_cast<Orv32u>(reinterpret_cast<uintptr_t>(object)); }

/// Uses every function at its first use; gives the number of wrong answers.
int use_everything(int offset)
{
    const auto call = [&](auto function, Orv32u first, Orv32u second) {
        return call_with_stack_offset(offset, reinterpret_cast<const void*>(function), first, second);
    };
    Facts facts = {};
    Orv32u registers[ORV_CPU_REGISTERS] = {};
    const auto count = static_cast<int>(call(ownGetNumThreads, 0, 0));
    facts.cache_status = static_cast<OrvStatus>(call(orvGetMaxCacheSizeB, address(&facts.cache), 0));
    facts.enabled = call(orvGetEnabledCpuFeatures, 0, 0);
    facts.f16c = static_cast<int>(call(ownGetFeature, orvCpuF16c, 0));
    call(orvGetCpuFeatures, address(&facts.present), address(registers));
    const Orv32u block = call(orvMalloc, 1000, 0);

    int wrong = (count != processors_of(0)) + !(facts == ask()) + (registers[0] == 0) + (block == 0);
    wrong += call(orvAlignPtr, block + 1, 64) != block + 64;
    wrong += call(orvSetNumThreads, 5, 0) != orvOk;
    wrong += call(orvGetNumThreads, 0, 0) != 5;
    call(orvFree, block, 0);
    return wrong;
}

using OldCallers = FreshProcess;

TEST_F(OldCallers, stack_aligned_to_4_bytes)
{
    for (int offset : {0, 4, 8, 12}) {
        EXPECT_EXIT(report("wrong", use_everything(offset)), ::testing::ExitedWithCode(0), "^wrong=0;") << offset;
    }
}

#endif

} // namespace
