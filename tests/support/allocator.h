// Who allocates and releases memory, and what happens when it is refused.
//
// The functions of the core library that do so are defined here. A program's own definitions come first, so that the
// library's calls end here; only one file of a program includes this one, and the program exports its symbols. Blocks
// lie against unreadable pages and stay readable when they are released.
#pragma once

#include "orvs/core.h"

#include "tests/support/guarded.h"

#include <gtest/gtest.h>
#include <map>
#include <memory>

namespace orvtest {

struct Allocator {
    int allocations = 0, releases = 0;
    int refused = -1; ///< the number of the allocation that fails
    std::map<void*, std::unique_ptr<GuardedBlock>> blocks, released;
};

inline Allocator& allocator()
{
    static Allocator only;
    return only;
}

/// Begins to count anew.
inline void forget()
{
    EXPECT_TRUE(allocator().blocks.empty()) << "a block was not released";
    allocator() = Allocator();
}

} // namespace orvtest

void* orvMalloc(int size)
{
    orvtest::Allocator& all = orvtest::allocator();
    if (all.allocations++ == all.refused || size < 1) return nullptr;
    const std::size_t bytes = (static_cast<std::size_t>(size) + 63) / 64 * 64;
    auto block = std::make_unique<orvtest::GuardedBlock>(bytes);
    void* address = block->place(bytes, orvtest::before_guard);
    all.blocks[address] = std::move(block);
    return address;
}

void orvFree(void* address)
{
    if (!address) return;
    orvtest::Allocator& all = orvtest::allocator();
    ++all.releases;
    const auto block = all.blocks.find(address);
    if (block == all.blocks.end()) {
        ADD_FAILURE() << "a block is released that was not allocated";
        return;
    }
    EXPECT_EQ(block->second->damage(), "");
    all.released[address] = std::move(block->second);
    all.blocks.erase(block);
}
