// Calls whose arrays differ in length, type or number: two destinations, channels, packed samples, strings of bits.
//
// Each array of a call holds some elements before it and has to hold some after it, bit for bit; a source holds the
// same. The call is made with the arrays at many places, and each time everything around them has to stay as it was.
#pragma once

#include "orvs/core.h"

#include "tests/support/compare.h"
#include "tests/support/guarded.h"
#include "tests/support/inputs.h"

#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <span>

namespace orvtest {

struct CallArray {
    ElementType type;
    std::vector<std::byte> before, after;
    bool is_result;
};

template <class T>
CallArray source(const std::vector<T>& elements)
{
    return {element_type<T>(), bytes_of(elements), bytes_of(elements), false};
}
/// What it holds before does not matter.
template <class T>
CallArray result(const std::vector<T>& wanted)
{
    std::vector<std::byte> before = bytes_of(wanted);
    for (std::byte& b : before) b = ~b;
    return {element_type<T>(), before, bytes_of(wanted), true};
}
template <class T>
CallArray changed(const std::vector<T>& before, const std::vector<T>& wanted)
{
    return {element_type<T>(), bytes_of(before), bytes_of(wanted), true};
}

/// Takes the addresses of the arrays.
using ArrayCall = std::function<OrvStatus(std::span<std::byte* const>)>;

template <class T>
const T* in(std::byte* address)
{
    return reinterpret_cast<const T*>(address);
}
template <class T>
T* out(std::byte* address)
{
    return reinterpret_cast<T*>(address);
}

class ArrayCalls {
public:
    template <class AnyExport>
    ArrayCalls(const AnyExport& f, std::string text, std::vector<CallArray> arrays, ArrayCall call)
        : name_(f.name()), text_(std::move(text)), arrays_(std::move(arrays)), call_(std::move(call))
    {
        for (const CallArray& array : arrays_) blocks_.push_back(std::make_unique<GuardedBlock>(array.before.size()));
    }

    /// With every array there; says whether all was right.
    bool at(Placement placement) { return at(std::vector(arrays_.size(), placement)); }

    /// Against unreadable pages at both sides, and at some distances from a boundary, of which the arrays take
    /// different ones.
    bool at_many_places(int distances = 5);

    bool at(const std::vector<Placement>& placements);

private:
    std::string find_fault(std::size_t i, const std::byte* got);

    const char* name_;
    std::string text_;
    std::vector<CallArray> arrays_;
    ArrayCall call_;
    std::vector<std::unique_ptr<GuardedBlock>> blocks_;
    bool looked_ = false;
};

/// Every length of one to a few blocks of any function here, and some that take a loop round.
std::vector<int> layout_lengths();

/// So many elements that the results go past the caches.
std::size_t bytes_of_half_beyond_caches();
template <class T>
int length_beyond_caches()
{
    return static_cast<int>(bytes_of_half_beyond_caches() / sizeof(T)) | 1;
}

} // namespace orvtest
