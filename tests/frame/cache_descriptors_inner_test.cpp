// The size of a cache by the descriptors of identification leaf 2, on made-up words and on this machine.
#include "frame/cache_descriptors.h"

#include "tests/support/inputs.h"

#include <array>
#include <cpuid.h>
#include <gtest/gtest.h>
#include <iterator>
#include <set>

namespace orvtest {
namespace {

using ORV_VARIANT::described_cache_size;
using Words = std::array<Orv32u, 4>;

Orv32s size_of(const std::vector<CacheDescriptor>& rows, const Words& words)
{
    std::vector<CacheDescriptor> table = rows;
    table.push_back({0, 0});
    table.push_back({0x55, 555}); // behind the end
    return described_cache_size(table.data(), words.data());
}

TEST(DescribedCacheSize, finds_a_descriptor_in_any_byte_but_the_count)
{
    for (std::size_t word = 0; word < 4; ++word)
        for (int byte = word == 0 ? 1 : 0; byte < 4; ++byte) {
            Words words = {1, 0, 0, 0};
            words[word] |= Orv32u{0x4D} << (8 * byte);
            EXPECT_EQ(size_of({{0x2C, 10}, {0x4D, 20}, {0x22, 30}}, words), 20) << "byte " << byte << " of " << word;
        }
    EXPECT_EQ(size_of({{0x01, 10}}, {1, 0x4D, 0, 0}), -1); // the count is not a descriptor
}

TEST(DescribedCacheSize, only_a_count_of_one)
{
    for (Orv32u count = 0; count < 256; ++count)
        EXPECT_EQ(size_of({{0x4D, 20}}, {0x4D4D4D00 | count, 0x4D, 0, 0}), count == 1 ? 20 : -1) << "count " << count;
    EXPECT_EQ(size_of({{0x4D, 20}}, {0, 0, 0, 0}), -1);
}

TEST(DescribedCacheSize, words_with_the_top_bit_hold_nothing)
{
    EXPECT_EQ(size_of({{0x4D, 20}}, {1, 0x8000004D, 0, 0}), -1);
    EXPECT_EQ(size_of({{0x4D, 20}}, {1, 0x8000004D, 0, 0x4D00}), 20);
    EXPECT_EQ(size_of({{0x4D, 20}}, {1, 0x7F00004D, 0, 0}), 20);
    EXPECT_EQ(size_of({{0x4D, 20}}, {0x80004D01, 0x22, 0, 0}), -1); // the first word, though its count is still read
    EXPECT_EQ(size_of({{0x22, 30}}, {0x80004D01, 0x22, 0, 0}), 30);
}

TEST(DescribedCacheSize, the_order_of_the_table_decides)
{
    // Neither the size nor the place of the descriptor matters.
    EXPECT_EQ(size_of({{0x22, 30}, {0x4D, 99}}, {0x00224D01, 0, 0, 0}), 30);
    EXPECT_EQ(size_of({{0x22, 30}, {0x4D, 99}}, {0x004D2201, 0, 0, 0}), 30);
    EXPECT_EQ(size_of({{0x4D, 99}, {0x22, 30}}, {0x00224D01, 0, 0, 0}), 99);
    EXPECT_EQ(size_of({{0x4D, 5}, {0x4D, 6}}, {0x00224D01, 0, 0, 0}), 5);
    EXPECT_EQ(size_of({{0x22, 30}, {0x4D, 99}}, {1, 0x4D, 0x22, 0x4D4D}), 30);
}

TEST(DescribedCacheSize, the_low_byte_of_a_descriptor_counts)
{
    EXPECT_EQ(size_of({{0x1234, 30}}, {0x00003401, 0, 0, 0}), 30);
    EXPECT_EQ(size_of({{0x100, 30}}, {1, 0, 0, 0}), 30);             // the first word always gives three bytes
    EXPECT_EQ(size_of({{0x100, 30}}, {0x4D4D4D01, 0x22, 0, 0}), 30); // so does any other with zeros in it
    EXPECT_EQ(size_of({{0x100, 30}}, {0x4D4D4D01, 0, 0, 0}), -1);    // words of zeros give none
    EXPECT_EQ(size_of({{0x100, 30}}, {0x80000001, 0, 0, 0}), -1);    // an empty list
}

TEST(DescribedCacheSize, the_row_of_zero_ends_the_table)
{
    EXPECT_EQ(size_of({}, {0x00005501, 0, 0, 0}), -1); // 0x55 stands behind the end
    EXPECT_EQ(size_of({{0x4D, 20}, {0x22, 30}}, {0x00005501, 0, 0, 0}), -1);
}

/// The same by sets: the first row whose descriptor's low byte is among the bytes.
Orv32s size_by_sets(const std::vector<CacheDescriptor>& rows, const Words& words)
{
    std::set<Orv32u> bytes;
    for (std::size_t i = 0; i < 4; ++i)
        if (words[i] != 0 && words[i] < 0x80000000)
            for (int k = i == 0 ? 1 : 0; k < 4; ++k) bytes.insert(words[i] >> (8 * k) & 0xFF);
    if (words[0] % 256 != 1) return -1;
    for (const CacheDescriptor& row : rows)
        if (bytes.count(static_cast<Orv32u>(row.descriptor) & 0xFF)) return row.size;
    return -1;
}

TEST(DescribedCacheSize, random_words_and_tables)
{
    Random random(2);
    int found = 0;
    for (int round = 0; round < 20000; ++round) {
        std::vector<CacheDescriptor> rows;
        for (std::uint64_t i = random.below(12); i > 0; --i)
            rows.push_back({static_cast<Orv32s>(1 + random.below(32)), static_cast<Orv32s>(1 + random.below(1000))});
        Words words;
        for (Orv32u& word : words) {
            const auto bits = static_cast<Orv32u>(random.bits());
            word = random.below(4) == 0 ? 0 : bits & (random.below(4) == 0 ? 0x9F1F1F1F : 0x1F1F1F1F);
        }
        if (random.below(8) != 0) words[0] = (words[0] & 0xFFFFFF00) | 1;
        const Orv32s want = size_by_sets(rows, words);
        found += want != -1;
        ASSERT_EQ(size_of(rows, words), want) << "round " << round;
    }
    EXPECT_GT(found, 2000);
}

// ---- This machine

/// All descriptors there are, each with a size of its own.
std::vector<CacheDescriptor> all_descriptors()
{
    std::vector<CacheDescriptor> rows;
    for (Orv32s descriptor = 1; descriptor < 256; ++descriptor) rows.push_back({descriptor, 1000 + descriptor});
    return rows;
}

TEST(GetCacheSize, is_the_size_that_this_processor_describes)
{
    Words words = {};
    __get_cpuid(2, &words[0], &words[1], &words[2], &words[3]);
    std::vector<CacheDescriptor> rows = all_descriptors();
    const Orv32s want = size_by_sets(rows, words);
    rows.push_back({0, 0});
    EXPECT_EQ(ownGetCacheSize(rows.data()), want);

    const CacheDescriptor no_rows[] = {{0, 0}};
    EXPECT_EQ(ownGetCacheSize(no_rows), -1);
}

TEST(GetCacheSize, of_the_known_caches_is_minus_one_or_a_size_of_the_table)
{
    constexpr Orv32s kib[] = {24576, 18432, 16384, 12288, 8192, 6144, 4096, 3072, 2048, 1024, 512};
    std::set<Orv32s> sizes = {-1};
    for (const Orv32s size : kib) sizes.insert(size * 1024);
    const Orv32s size = described_cache_size();
    EXPECT_EQ(sizes.count(size), 1u) << size;

    unsigned highest, vendor[3];
    ASSERT_TRUE(__get_cpuid(0, &highest, &vendor[0], &vendor[2], &vendor[1]));
    const bool describes_caches = std::memcmp(vendor, "GenuineIntel", sizeof vendor) == 0;
    EXPECT_TRUE(size == -1 || describes_caches) << size;
}

} // namespace
} // namespace orvtest
