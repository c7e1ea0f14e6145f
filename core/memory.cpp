#include <cstdint>
#include <cstdlib>

#include "orvs/core.h"

void* orvMalloc(int size)
{
    constexpr std::size_t alignment = 64;
    void* ptr = nullptr;
    if (size < 1 || posix_memalign(&ptr, alignment, static_cast<std::size_t>(size)) != 0) return nullptr;
    return ptr;
}

void orvFree(void* ptr) { std::free(ptr); }

void* orvAlignPtr(void* ptr, int alignment)
{
    const bool power_of_two = alignment > 0 && (alignment & (alignment - 1)) == 0;
    if (!power_of_two) return ptr;
    const std::uintptr_t below = static_cast<std::uintptr_t>(alignment) - 1;
    return reinterpret_cast<void*>((reinterpret_cast<std::uintptr_t>(ptr) + below) & ~below);
}
