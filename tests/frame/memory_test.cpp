// orvsMalloc and orvsFree.
#include "families.h"

#include "tests/support/compare.h"

#include <climits>

namespace orvtest {
namespace {

/// What can be told of an allocation: null 0, a block at an address of the wanted alignment 1, any other -1.
Orv32s kind_of(const void* block)
{
    if (!block) return 0;
    return reinterpret_cast<std::uintptr_t>(block) % 64 == 0 ? 1 : -1;
}

TEST(Malloc, aligned_and_writable_to_the_last_byte)
{
    for_each_malloc([]<class T>(const Export<T*, int>& allocate) {
        std::vector<int> lengths = lengths_around({128, 1000, 4096, 65536});
        std::vector<std::byte*> blocks;
        for (std::size_t i = 0; i < lengths.size(); ++i) {
            T* block = allocate(lengths[i]);
            if (!expect_value(allocate, kind_of(block), 1)) return;
            blocks.push_back(reinterpret_cast<std::byte*>(block));
            std::memset(blocks.back(), static_cast<int>(i % 251), static_cast<std::size_t>(lengths[i]) * sizeof(T));
        }
        for (std::size_t i = 0; i < lengths.size(); ++i) { // each block still holds what it alone was given
            const std::size_t bytes = static_cast<std::size_t>(lengths[i]) * sizeof(T);
            const std::vector<std::byte> want(bytes, static_cast<std::byte>(i % 251));
            EXPECT_EQ(std::memcmp(blocks[i], want.data(), bytes), 0) << allocate.name() << " of " << lengths[i];
            orvsFree(blocks[i]);
        }
    });
}

TEST(Malloc, null_for_lengths_below_one)
{
    for_each_malloc([](const auto& allocate) {
        for (const int length : {0, -1, -64, INT_MIN}) expect_value(allocate, kind_of(allocate(length)), 0);
    });
}

TEST(Malloc, size_wraps_in_32_bits)
{
    const auto complex = ORV_EXPORT(orvsMalloc_64fc);
    expect_value(complex, kind_of(complex(0x10000000)), 0); // 2^32 bytes: a request for none
    expect_value(complex, kind_of(complex(0x08000000)), 0); // 2^31 bytes: a negative request

    const auto real = ORV_EXPORT(orvsMalloc_64f);
    Orv64f* block = real(0x20000001); // 2^32 + 8 bytes: a request for 8
    if (expect_value(real, kind_of(block), 1)) *block = 1;
    orvsFree(block);
}

TEST(Free, memory_can_be_had_again)
{
    const auto release = ORV_EXPORT(orvsFree);
    constexpr int blocks = 100, bytes = 64 << 20; // more than a 32-bit address space holds
    Orv32s had = 0;
    for (int i = 0; i < blocks; ++i) {
        Orv8u* block = orvsMalloc_8u(bytes);
        had += block != nullptr;
        if (block) block[0] = block[bytes - 1] = 1;
        release(block);
    }
    expect_value(release, had, blocks);
}

TEST(Free, accepts_null)
{
    const auto release = ORV_EXPORT(orvsFree);
    release(nullptr);
    Orv32s* block = orvsMalloc_32s(3); // and the allocator is in order afterwards
    expect_value(release, kind_of(block), 1);
    release(block);
}

} // namespace
} // namespace orvtest
