// Arrays between two unreadable pages, at any address within.
#pragma once

#include "elements.h"

#include <cstddef>
#include <cstring>
#include <span>
#include <string>
#include <vector>

namespace orvtest {

/// Where in its block an array lies.
struct Placement {
    enum class Where {
        before_guard, ///< its last byte is the last readable one
        after_guard,  ///< its first byte is the first readable one
        misaligned    ///< some bytes behind a 64-byte boundary
    };
    Where where;
    int bytes = 0; ///< behind the boundary, 0 to 63
};

constexpr Placement before_guard{Placement::Where::before_guard};
constexpr Placement after_guard{Placement::Where::after_guard};
constexpr Placement misaligned(int bytes) { return {Placement::Where::misaligned, bytes}; }

std::string placement_text(Placement placement);

/// Readable pages between two unreadable ones. What the array leaves free of them is filled with a known pattern, which
/// shows writes outside the array. Blocks are kept and used again, so a sweep may make as many as it likes.
class GuardedBlock {
public:
    explicit GuardedBlock(std::size_t largest_array);
    ~GuardedBlock();
    GuardedBlock(const GuardedBlock&) = delete;
    GuardedBlock& operator=(const GuardedBlock&) = delete;

    /// Moves the array, which has so many bytes now, and returns its address. The pattern closes over its former place;
    /// damage elsewhere stays.
    std::byte* place(std::size_t bytes, Placement placement);

    /// Tells the first byte outside the array that has changed; empty when there is none.
    std::string damage() const;

private:
    void lay_pattern(std::size_t from, std::size_t to);

    std::byte* pages_;
    std::size_t size_; // of the readable pages
    std::byte* array_;
    std::size_t array_bytes_ = 0;
};

/// A guarded array of elements. Its elements may lie at any byte address, so read and write them through the members.
template <Element T>
class GuardedArray {
public:
    explicit GuardedArray(std::size_t n, Placement placement = before_guard) : block_(n * sizeof(T))
    {
        place(n, placement);
    }
    explicit GuardedArray(const std::vector<T>& elements, Placement placement = before_guard)
        : GuardedArray(elements.size(), placement)
    {
        fill(elements);
    }

    /// Moves the array, now of n elements and at most as many as at first. Its content is the pattern.
    void place(std::size_t n, Placement placement)
    {
        size_ = n;
        data_ = block_.place(n * sizeof(T), placement);
    }

    T* data() { return reinterpret_cast<T*>(data_); }
    const T* data() const { return reinterpret_cast<const T*>(data_); }
    std::size_t size() const { return size_; }

    void fill(const std::vector<T>& elements) { std::memcpy(data_, elements.data(), elements.size() * sizeof(T)); }

    std::vector<T> elements() const
    {
        std::vector<T> copy(size_);
        std::memcpy(copy.data(), data_, size_ * sizeof(T));
        return copy;
    }

    /// Tells the first byte outside the array that has changed; empty when there is none.
    std::string damage() const { return block_.damage(); }

private:
    GuardedBlock block_;
    std::size_t size_ = 0;
    std::byte* data_ = nullptr;
};

} // namespace orvtest
