#include "bench/support/arrays.h"

#include <sys/mman.h>

#include <cstdio>

namespace bench {

void* Arrays::allocate(std::size_t bytes)
{
    constexpr std::size_t huge_page = std::size_t{2} << 20;
    const std::size_t size = (bytes + huge_page - 1) / huge_page * huge_page;
    void* block = std::aligned_alloc(huge_page, size);
    if (!block) {
        std::fprintf(stderr, "no memory for an array of %zu bytes\n", bytes);
        std::exit(1);
    }
    madvise(block, size, MADV_HUGEPAGE); // a wish: the rows work without
    blocks.emplace_back(block);
    return block;
}

} // namespace bench
