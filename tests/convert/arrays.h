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
std::vector<std::byte> bytes_of(const std::vector<T>& elements)
{
    const auto* first = reinterpret_cast<const std::byte*>(elements.data());
    return {first, first + elements.size() * sizeof(T)};
}

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
    bool at_many_places(int distances = 5)
    {
        if (!at(before_guard) || !at(after_guard)) return false;
        for (int k = 0; k < distances; ++k) {
            std::vector<Placement> placements;
            for (std::size_t i = 0; i < arrays_.size(); ++i)
                placements.push_back(misaligned((13 * k + (k % 2) * 7 * static_cast<int>(i)) % 64));
            if (!at(placements)) return false;
        }
        return true;
    }

    bool at(const std::vector<Placement>& placements)
    {
        std::vector<std::byte*> addresses;
        for (std::size_t i = 0; i < arrays_.size(); ++i) {
            const std::vector<std::byte>& before = arrays_[i].before;
            addresses.push_back(blocks_[i]->place(before.size(), placements[i]));
            std::copy(before.begin(), before.end(), addresses[i]);
        }
        const auto describe = [&] {
            std::string text = std::string(name_) + ": " + text_;
            for (const Placement& p : placements) text += "\n  " + placement_text(p);
            return text;
        };
        const CallNote note(describe);
        const OrvStatus status = call_(addresses);
        std::string fault = status == orvOk ? "" : "status " + std::to_string(status);
        for (std::size_t i = 0; i < arrays_.size() && fault.empty(); ++i) fault = find_fault(i, addresses[i]);
        if (!fault.empty()) ADD_FAILURE() << describe() << "\n" << fault;
        return fault.empty();
    }

private:
    std::string find_fault(std::size_t i, const std::byte* got)
    {
        const CallArray& array = arrays_[i];
        const std::size_t n = array.after.size() / array.type.size();
        if (array.is_result && !looked_) look_at(name_, array.type, got, n, NanView::bits);
        if (i + 1 == arrays_.size()) looked_ = true;
        const std::size_t k = first_difference(array.type, got, array.after.data(), n, NanView::bits);
        if (k != n)
            return "element " + std::to_string(k) + " of array " + std::to_string(i) + " is " +
                   element_text(array.type, got + k * array.type.size()) + ", not " +
                   element_text(array.type, array.after.data() + k * array.type.size());
        const std::string damage = blocks_[i]->damage();
        return damage.empty() ? "" : "a byte outside array " + std::to_string(i) + " has changed: " + damage;
    }

    const char* name_;
    std::string text_;
    std::vector<CallArray> arrays_;
    ArrayCall call_;
    std::vector<std::unique_ptr<GuardedBlock>> blocks_;
    bool looked_ = false;
};

/// Every length of one to a few blocks of any function here, and some that take a loop round.
inline std::vector<int> layout_lengths()
{
    std::vector<int> lengths;
    for (int n = 1; n <= 140; ++n) lengths.push_back(n);
    for (const int n : {159, 160, 161, 255, 256, 257, 1000, 1023, 1024, 1025, 4097}) lengths.push_back(n);
    return lengths;
}

/// So many elements that the results go past the caches.
template <class T>
int length_beyond_caches()
{
    int cache = 0;
    EXPECT_EQ(orvGetMaxCacheSizeB(&cache), orvOk);
    const auto largest = static_cast<std::size_t>(std::max(cache, 0));
    const std::size_t bytes = std::clamp(largest + largest / 16, std::size_t{4} << 20, std::size_t{64} << 20);
    return static_cast<int>(bytes / 2 / sizeof(T)) | 1;
}

} // namespace orvtest
