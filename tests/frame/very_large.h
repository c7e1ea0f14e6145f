// An array of more than 2 GiB that needs little memory.
#pragma once

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <cstring>
#include <span>
#include <string>
#include <sys/mman.h>
#include <system_error>
#include <unistd.h>
#include <vector>

namespace orvtest {

/// A little more than 2 GiB. Windows at the begin, around the largest signed 32-bit count and at the end have memory of
/// their own and show what was written there. All between them is one piece of memory over and over again: what is
/// written there is seen at many places, and nobody looks at it.
///
/// The array ends at an unreadable page and begins behind some bytes with a known pattern.
class VeryLargeArray {
public:
    static constexpr std::size_t bytes = 0x80000040; // as 32-bit elements, 16 more than 2^29

    VeryLargeArray()
    {
        void* all = mmap(nullptr, mapped + page, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
        if (all == MAP_FAILED) return;
        pages_ = static_cast<std::byte*>(all);
        map(0, window, MAP_PRIVATE | MAP_ANONYMOUS, -1);
        map(last_window, mapped - last_window, MAP_PRIVATE | MAP_ANONYMOUS, -1);
        const int file = memfd_create("repeated", MFD_CLOEXEC);
        if (file < 0 || ftruncate(file, piece) != 0) fail();
        for (std::size_t at = window; at < last_window; at += piece)
            map(at, std::min<std::size_t>(piece, last_window - at), MAP_SHARED, file);
        close(file);
        std::memset(pages_, canary, before);
    }
    ~VeryLargeArray()
    {
        if (pages_) munmap(pages_, mapped + page);
    }
    VeryLargeArray(const VeryLargeArray&) = delete;
    VeryLargeArray& operator=(const VeryLargeArray&) = delete;

    /// Has the address space room for it?
    bool fits() const { return pages_ != nullptr; }

    template <class T>
    T* data() const
    {
        return reinterpret_cast<T*>(pages_ + before);
    }
    template <class T>
    int length() const
    {
        return static_cast<int>(bytes / sizeof(T));
    }

    /// Writes byte i of the array as content(i), where it is shown.
    template <class Content>
    void write_shown(const Content& content) const
    {
        for (const std::span<std::byte> shown : windows())
            for (std::byte& b : shown) b = content(place(b));
    }

    /// The first shown place where byte i of the array is not wanted(i); empty when there is none.
    template <class Wanted>
    std::string first_other_than(const Wanted& wanted) const
    {
        for (std::size_t i = 0; i < before; ++i)
            if (pages_[i] != std::byte{canary}) return std::to_string(before - i) + " bytes before the array";
        for (const std::span<std::byte> shown : windows())
            for (const std::byte& b : shown)
                if (b != wanted(place(b)))
                    return "byte " + std::to_string(place(b)) + " is " + std::to_string(std::to_integer<int>(b));
        return "";
    }

private:
    static constexpr std::size_t page = 4096, piece = std::size_t{4} << 20;
    static constexpr std::size_t mapped = (bytes + page - 1) / page * page;
    static constexpr std::size_t before = mapped - bytes;
    static constexpr std::size_t window = 16 * page, last_window = 0x7FFF0000;
    static constexpr int canary = 0xC5;

    std::vector<std::span<std::byte>> windows() const
    {
        return {{pages_ + before, window - before}, {pages_ + last_window, mapped - last_window}};
    }
    std::size_t place(const std::byte& b) const { return static_cast<std::size_t>(&b - pages_) - before; }

    void map(std::size_t at, std::size_t size, int flags, int file) const
    {
        if (mmap(pages_ + at, size, PROT_READ | PROT_WRITE, flags | MAP_FIXED, file, 0) == MAP_FAILED) fail();
    }
    [[noreturn]] static void fail() { throw std::system_error(errno, std::generic_category(), "very large array"); }

    std::byte* pages_ = nullptr;
};

} // namespace orvtest
