#include "guarded.h"

#include "inputs.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <map>
#include <sys/mman.h>
#include <system_error>

namespace orvtest {
namespace {

constexpr std::size_t page_size = 4096;
constexpr std::size_t boundary = 64;

/// The pattern of every page: bytes without visible order, so that a canary is not like its neighbour.
const std::array<std::byte, page_size>& pattern()
{
    static const std::array<std::byte, page_size> bytes = [] {
        std::array<std::byte, page_size> filled;
        Random random(1);
        for (std::byte& b : filled) b = static_cast<std::byte>(random.bits() >> 56);
        return filled;
    }();
    return bytes;
}

std::byte* map_pages(std::size_t size)
{
    void* all = mmap(nullptr, size + 2 * page_size, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (all == MAP_FAILED) throw std::system_error(errno, std::generic_category(), "mmap");
    std::byte* readable = static_cast<std::byte*>(all) + page_size;
    if (mprotect(readable, size, PROT_READ | PROT_WRITE) != 0)
        throw std::system_error(errno, std::generic_category(), "mprotect");
    return readable;
}

/// Blocks that nobody uses now, by size.
std::map<std::size_t, std::vector<std::byte*>>& spare_blocks()
{
    static std::map<std::size_t, std::vector<std::byte*>> spare;
    return spare;
}

} // namespace

std::string placement_text(Placement placement)
{
    switch (placement.where) {
    case Placement::Where::before_guard: return "ends at an unreadable page";
    case Placement::Where::after_guard: return "begins after an unreadable page";
    case Placement::Where::misaligned: break;
    }
    return "begins " + std::to_string(placement.bytes) + " bytes after a 64-byte boundary";
}

GuardedBlock::GuardedBlock(std::size_t largest_array)
{
    const std::size_t needed = largest_array + 3 * boundary; // canaries on both sides of any misaligned array
    size_ = (needed + page_size - 1) / page_size * page_size;
    std::vector<std::byte*>& spare = spare_blocks()[size_];
    if (spare.empty()) spare.push_back(map_pages(size_));
    array_ = pages_ = spare.back();
    spare.pop_back();
    lay_pattern(0, size_);
}

GuardedBlock::~GuardedBlock() { spare_blocks()[size_].push_back(pages_); }

void GuardedBlock::lay_pattern(std::size_t from, std::size_t to)
{
    while (from < to) {
        const std::size_t in_page = from % page_size;
        const std::size_t n = std::min(to - from, page_size - in_page);
        std::memcpy(pages_ + from, pattern().data() + in_page, n);
        from += n;
    }
}

std::byte* GuardedBlock::place(std::size_t bytes, Placement placement)
{
    const auto left = static_cast<std::size_t>(array_ - pages_);
    lay_pattern(left, left + array_bytes_);
    array_bytes_ = bytes;
    switch (placement.where) {
    case Placement::Where::before_guard: array_ = pages_ + size_ - bytes; break;
    case Placement::Where::after_guard: array_ = pages_; break;
    case Placement::Where::misaligned: array_ = pages_ + boundary + placement.bytes; break;
    }
    return array_;
}

std::string GuardedBlock::damage() const
{
    const auto first = static_cast<std::size_t>(array_ - pages_);
    const std::size_t last = first + array_bytes_;
    for (std::size_t page = 0; page < size_; page += page_size) {
        const std::byte* at = pages_ + page;
        // The page without its part of the array: the bytes [0, head) and [tail, page_size).
        const std::size_t head = std::clamp(first, page, page + page_size) - page;
        const std::size_t tail = std::clamp(last, page, page + page_size) - page;
        const auto intact = [&](std::size_t from, std::size_t to) {
            return std::memcmp(at + from, pattern().data() + from, to - from) == 0;
        };
        if (intact(0, head) && intact(tail, page_size)) continue;
        for (std::size_t i = 0; i < page_size; ++i) {
            if ((i >= head && i < tail) || at[i] == pattern()[i]) continue;
            const std::size_t place = page + i;
            return place < first ? std::to_string(first - place) + " bytes before the first byte"
                                 : std::to_string(place - last + 1) + " bytes after the last byte";
        }
    }
    return "";
}

} // namespace orvtest
