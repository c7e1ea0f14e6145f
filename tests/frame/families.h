// The families of fills and moves, one export after another, and what their tests share.
#pragma once

#include "orvs/core.h"
#include "orvs/frame.h"

#include "tests/support/elementwise.h"

#include <algorithm>
#include <cstring>
#include <gtest/gtest.h>

namespace orvtest {

/// visit takes an Export<OrvStatus, T*, int>.
template <class Visit>
void for_each_zero(const Visit& visit)
{
    visit(ORV_EXPORT(orvsZero_8u));
    visit(ORV_EXPORT(orvsZero_16s));
    visit(ORV_EXPORT(orvsZero_16sc));
    visit(ORV_EXPORT(orvsZero_32s));
    visit(ORV_EXPORT(orvsZero_32sc));
    visit(ORV_EXPORT(orvsZero_64s));
    visit(ORV_EXPORT(orvsZero_64sc));
    visit(ORV_EXPORT(orvsZero_32f));
    visit(ORV_EXPORT(orvsZero_32fc));
    visit(ORV_EXPORT(orvsZero_64f));
    visit(ORV_EXPORT(orvsZero_64fc));
}

/// visit takes an Export<OrvStatus, T, T*, int>.
template <class Visit>
void for_each_set(const Visit& visit)
{
    visit(ORV_EXPORT(orvsSet_8u));
    visit(ORV_EXPORT(orvsSet_16s));
    visit(ORV_EXPORT(orvsSet_16sc));
    visit(ORV_EXPORT(orvsSet_32s));
    visit(ORV_EXPORT(orvsSet_32sc));
    visit(ORV_EXPORT(orvsSet_64s));
    visit(ORV_EXPORT(orvsSet_64sc));
    visit(ORV_EXPORT(orvsSet_32f));
    visit(ORV_EXPORT(orvsSet_32fc));
    visit(ORV_EXPORT(orvsSet_64f));
    visit(ORV_EXPORT(orvsSet_64fc));
}

/// visit takes an Export<OrvStatus, const T*, T*, int>.
template <class Visit>
void for_each_copy(const Visit& visit)
{
    visit(ORV_EXPORT(orvsCopy_8u));
    visit(ORV_EXPORT(orvsCopy_16s));
    visit(ORV_EXPORT(orvsCopy_16sc));
    visit(ORV_EXPORT(orvsCopy_32s));
    visit(ORV_EXPORT(orvsCopy_32sc));
    visit(ORV_EXPORT(orvsCopy_64s));
    visit(ORV_EXPORT(orvsCopy_64sc));
    visit(ORV_EXPORT(orvsCopy_32f));
    visit(ORV_EXPORT(orvsCopy_32fc));
    visit(ORV_EXPORT(orvsCopy_64f));
    visit(ORV_EXPORT(orvsCopy_64fc));
}

/// visit takes an Export<OrvStatus, const T*, T*, int>.
template <class Visit>
void for_each_move(const Visit& visit)
{
    visit(ORV_EXPORT(orvsMove_8u));
    visit(ORV_EXPORT(orvsMove_16s));
    visit(ORV_EXPORT(orvsMove_16sc));
    visit(ORV_EXPORT(orvsMove_32s));
    visit(ORV_EXPORT(orvsMove_32sc));
    visit(ORV_EXPORT(orvsMove_64s));
    visit(ORV_EXPORT(orvsMove_64sc));
    visit(ORV_EXPORT(orvsMove_32f));
    visit(ORV_EXPORT(orvsMove_32fc));
    visit(ORV_EXPORT(orvsMove_64f));
    visit(ORV_EXPORT(orvsMove_64fc));
}

/// visit takes an Export<T*, int>.
template <class Visit>
void for_each_malloc(const Visit& visit)
{
    visit(ORV_EXPORT(orvsMalloc_8u));
    visit(ORV_EXPORT(orvsMalloc_8s));
    visit(ORV_EXPORT(orvsMalloc_16u));
    visit(ORV_EXPORT(orvsMalloc_16s));
    visit(ORV_EXPORT(orvsMalloc_16sc));
    visit(ORV_EXPORT(orvsMalloc_32u));
    visit(ORV_EXPORT(orvsMalloc_32s));
    visit(ORV_EXPORT(orvsMalloc_32sc));
    visit(ORV_EXPORT(orvsMalloc_64s));
    visit(ORV_EXPORT(orvsMalloc_64sc));
    visit(ORV_EXPORT(orvsMalloc_32f));
    visit(ORV_EXPORT(orvsMalloc_32fc));
    visit(ORV_EXPORT(orvsMalloc_64f));
    visit(ORV_EXPORT(orvsMalloc_64fc));
    visit(ORV_EXPORT(orvsMalloc_8sc));
}

/// Above so many bytes a fill asks for the size of the caches.
constexpr std::size_t asking_bytes = 0x200000;

/// Element-wise sweeps of a family whose road is chosen by bytes, whatever the type: all bits count, and lengths lie
/// around the sizes at which a road may begin.
template <class T>
SweepOptions options_by_bytes()
{
    std::vector<int> thresholds;
    for (const std::size_t bytes : {96u, 128u, 160u, 192u, 256u, 320u, 512u, 0x4000u, 0x8000u})
        thresholds.push_back(static_cast<int>(bytes / sizeof(T)));
    SweepOptions options;
    options.lengths = lengths_around(thresholds);
    options.nans = NanView::bits;
    return options;
}

/// Bytes by their place, so that no two windows of 8 bytes are alike.
std::vector<std::byte> random_bytes(std::size_t n);

/// An element with different bytes at every place.
template <class T>
T telling_value()
{
    constexpr unsigned char bytes[] = {0x83, 0xA5, 0xC7, 0x39, 0x1B, 0x6D, 0x4F, 0xE1,
                                       0x92, 0xB4, 0xD6, 0x28, 0x0A, 0x7C, 0x5E, 0xF0};
    T value;
    std::memcpy(&value, bytes, sizeof value);
    return value;
}

/// A fill of a large array whose result is compared at the speed of memory.
class AnyLargeFill {
public:
    /// Fills n elements there, and says whether all was right.
    bool check(std::size_t n, Placement placement);

protected:
    /// The arguments before the destination are none, or the value.
    AnyLargeFill(AnyCall fill, std::vector<AnyArgument> before, std::vector<std::byte> value, std::size_t most)
        : fill_(std::move(fill)), before_(std::move(before)), value_(std::move(value)), block_(most * value_.size())
    {}

private:
    const AnyCall fill_;
    const std::vector<AnyArgument> before_;
    const std::vector<std::byte> value_;
    GuardedBlock block_;
};

template <class T>
class LargeFill : public AnyLargeFill {
public:
    LargeFill(const Export<OrvStatus, T*, int>& zero, std::size_t most)
        : AnyLargeFill(zero.with(), {}, std::vector<std::byte>(sizeof(T)), most)
    {}
    LargeFill(const Export<OrvStatus, T, T*, int>& set, std::size_t most)
        : AnyLargeFill(set.with(), {AnyArgument::of(telling_value<T>())}, repeated<T>(telling_value<T>(), 1).bytes,
                       most)
    {}
};

/// A copy between two large arrays.
class AnyLargeCopy {
public:
    /// The source for the checks that follow: n elements.
    void place_source(std::size_t n, Placement placement);

    /// Copies there, and says whether all was right.
    bool check(Placement placement);

protected:
    AnyLargeCopy(AnyCall copy, std::size_t element_size, std::size_t most);

private:
    const AnyCall copy_;
    const std::size_t element_size_;
    const std::vector<std::byte> content_;
    GuardedBlock source_block_, destination_block_;
    std::size_t n_ = 0;
    Placement source_placement_ = before_guard;
    std::byte* source_ = nullptr;
};

template <class T>
class LargeCopy : public AnyLargeCopy {
public:
    LargeCopy(const Export<OrvStatus, const T*, T*, int>& copy, std::size_t most)
        : AnyLargeCopy(copy.with(), sizeof(T), most)
    {}
};

/// More bytes than the largest cache holds, on a machine whose caches are not unusually large.
inline std::size_t bytes_beyond_caches()
{
    int cache = 0;
    const bool known = orvGetMaxCacheSizeB(&cache) == orvOk && cache > 0;
    constexpr std::size_t least = std::size_t{4} << 20, most = std::size_t{64} << 20;
    return known ? std::clamp(static_cast<std::size_t>(cache) + (std::size_t{1} << 20), least, most) : most;
}

} // namespace orvtest
