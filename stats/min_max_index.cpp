// The largest and the smallest value or magnitude, and the first place that has it.
#include "orvs/stats.h"

#include "frame/checks.h"
#include "stats/search.h"

using namespace ORV_VARIANT;

namespace {

/// A result and its place.
template <class T>
ORV_INLINE OrvStatus put(T* value, T x, Orv32s* index, std::ptrdiff_t i)
{
    put_element(value, x);
    put_element(index, Orv32s(i));
    return orvOk;
}

// ---- One extreme; not-a-numbers are passed over

template <class Op, class Of = Value, class T>
ORV_INLINE std::ptrdiff_t first_place(const T* src, int len)
{
    const Filled<T> x(src, len);
    FirstPlace<Op, T, Of> place(element_at(src));
    take_blocks(x.data(), x.size(), place);
    return place.index(x.data(), x.size());
}

template <class Op, class T>
ORV_INLINE OrvStatus indexed_extreme(const T* src, int len, T* value, Orv32s* index)
{
    if (const OrvStatus bad = check(len, src, value)) return bad;
    const std::ptrdiff_t i = first_place<Op>(src, len);
    return put(value, element_at(src + i), index, i);
}

template <class Op, class Of, class T>
ORV_INLINE OrvStatus indexed_magnitude(const T* src, int len, T* value, Orv32s* index)
{
    if (const OrvStatus bad = check(len, src, value)) return bad;
    const std::ptrdiff_t i = first_place<Op, Of>(src, len);
    return put(value, first_lane(abs_sat(splat(element_at(src + i)))), index, i);
}

// ---- One extreme of many floats

ORV_INLINE bool is_long(const Orv32f*, int len) { return len >= 34; }
ORV_INLINE bool is_long(const Orv64f* src, int len)
{
    return len >= 32 && reinterpret_cast<std::size_t>(src) % sizeof *src == 0;
}

/// As place_by_lanes has it. Where the lanes do not matter, blocks are faster. They matter for not-a-numbers; for
/// zeros, which are equal but may differ in sign; and where places are not exact in T.
template <class Op, class T>
OrvStatus indexed_extreme_of_many(const T* src, int len, T* value, Orv32s* index)
{
    constexpr Orv64s exact_places = Orv64s(1) << std::numeric_limits<T>::digits;
    if (len <= exact_places) {
        FirstPlace<Op, T> place(element_at(src));
        UnorderedSeen<T> unordered;
        take_blocks(src, len, place, unordered);
        const T best = first_lane(place.held);
        if (!any(unordered.seen) && best != 0) return put(value, best, index, place.index(src, len));
    }
    T best;
    const std::ptrdiff_t i = place_by_lanes<Op>(src, len, best);
    return put(value, best, index, i);
}

template <class Op, class T>
ORV_INLINE OrvStatus indexed_extreme_of_floats(const T* src, int len, T* value, Orv32s* index)
{
    if (const OrvStatus bad = check(len, src, value)) return bad;
    if (is_long(src, len)) return indexed_extreme_of_many<Op>(src, len, value, index);
    return indexed_extreme<Op>(src, len, value, index);
}

// ---- Both extremes

/// Where the value is first; 0 for a not-a-number.
template <class T>
std::ptrdiff_t first_place_of(T value, const T* src, int len)
{
    const Filled<T> x(src, len);
    const std::ptrdiff_t i = first_equal<Value>(x.data(), x.size(), splat(value));
    return i < 0 ? 0 : i;
}

/// The value decides which zero and which not-a-number it is.
template <class T>
ORV_INLINE OrvStatus both_indexed_by_value(const T* src, int len, T* min, Orv32s* minIndex, T* max, Orv32s* maxIndex)
{
    with_extremes<Chains<Smallest, T>, Chains<Largest, T>>(src, len, [=](T least, T most) ORV_INLINE_LAMBDA {
        put(min, least, minIndex, first_place_of(least, src, len));
        put(max, most, maxIndex, first_place_of(most, src, len));
    });
    return orvOk;
}

template <class T>
ORV_INLINE OrvStatus both_indexed(const T* src, int len, T* min, Orv32s* minIndex, T* max, Orv32s* maxIndex)
{
    if (const OrvStatus bad = check(len, src, min, max, minIndex, maxIndex)) return bad;
    const Filled<T> x(src, len);
    const T first = element_at(src);
    FirstPlace<Smallest, T> least(first);
    FirstPlace<Largest, T> most(first);
    if constexpr (is_float<T>) {
        UnorderedSeen<T> unordered;
        take_blocks(x.data(), x.size(), least, most, unordered);
        if (any(unordered.seen) || first_lane(least.held) == 0 || first_lane(most.held) == 0) {
            return both_indexed_by_value(src, len, min, minIndex, max, maxIndex);
        }
    } else {
        take_blocks(x.data(), x.size(), least, most);
    }
    put(min, first_lane(least.held), minIndex, least.index(x.data(), x.size()));
    return put(max, first_lane(most.held), maxIndex, most.index(x.data(), x.size()));
}

} // namespace

// ---- MaxIndx, MinIndx

OrvStatus orvsMaxIndx_16s(const Orv16s* src, int len, Orv16s* max, Orv32s* index)
{
    if (!index) return orvsMax_16s(src, len, max);
    return indexed_extreme<Largest>(src, len, max, index);
}
OrvStatus orvsMaxIndx_32s(const Orv32s* src, int len, Orv32s* max, Orv32s* index)
{
    if (!index) return orvsMax_32s(src, len, max);
    return indexed_extreme<Largest>(src, len, max, index);
}
OrvStatus orvsMaxIndx_32f(const Orv32f* src, int len, Orv32f* max, Orv32s* index)
{
    if (!index) return orvsMax_32f(src, len, max);
    return indexed_extreme_of_floats<Largest>(src, len, max, index);
}
OrvStatus orvsMaxIndx_64f(const Orv64f* src, int len, Orv64f* max, Orv32s* index)
{
    if (!index) return orvsMax_64f(src, len, max);
    return indexed_extreme_of_floats<Largest>(src, len, max, index);
}

OrvStatus orvsMinIndx_16s(const Orv16s* src, int len, Orv16s* min, Orv32s* index)
{
    if (!index) return orvsMin_16s(src, len, min);
    return indexed_extreme<Smallest>(src, len, min, index);
}
OrvStatus orvsMinIndx_32s(const Orv32s* src, int len, Orv32s* min, Orv32s* index)
{
    if (!index) return orvsMin_32s(src, len, min);
    return indexed_extreme<Smallest>(src, len, min, index);
}
OrvStatus orvsMinIndx_32f(const Orv32f* src, int len, Orv32f* min, Orv32s* index)
{
    if (!index) return orvsMin_32f(src, len, min);
    return indexed_extreme_of_floats<Smallest>(src, len, min, index);
}
OrvStatus orvsMinIndx_64f(const Orv64f* src, int len, Orv64f* min, Orv32s* index)
{
    if (!index) return orvsMin_64f(src, len, min);
    return indexed_extreme_of_floats<Smallest>(src, len, min, index);
}

// ---- MaxAbsIndx, MinAbsIndx: 2^15 and 2^15 - 1 are equal, 2^31 and 2^31 - 1 are not

OrvStatus orvsMaxAbsIndx_16s(const Orv16s* src, int len, Orv16s* maxAbs, Orv32s* index)
{
    if (!index) return orvsMaxAbs_16s(src, len, maxAbs);
    return indexed_magnitude<Largest, LimitedMagnitude>(src, len, maxAbs, index);
}
OrvStatus orvsMaxAbsIndx_32s(const Orv32s* src, int len, Orv32s* maxAbs, Orv32s* index)
{
    if (!index) return orvsMaxAbs_32s(src, len, maxAbs);
    return indexed_magnitude<Largest, Magnitude>(src, len, maxAbs, index);
}
OrvStatus orvsMinAbsIndx_16s(const Orv16s* src, int len, Orv16s* minAbs, Orv32s* index)
{
    if (!index) return orvsMinAbs_16s(src, len, minAbs);
    return indexed_magnitude<Smallest, LimitedMagnitude>(src, len, minAbs, index);
}
OrvStatus orvsMinAbsIndx_32s(const Orv32s* src, int len, Orv32s* minAbs, Orv32s* index)
{
    if (!index) return orvsMinAbs_32s(src, len, minAbs);
    return indexed_magnitude<Smallest, Magnitude>(src, len, minAbs, index);
}

// ---- MinMaxIndx

OrvStatus orvsMinMaxIndx_8u(const Orv8u* src, int len, Orv8u* min, Orv32s* minIndex, Orv8u* max, Orv32s* maxIndex)
{
    return both_indexed(src, len, min, minIndex, max, maxIndex);
}
OrvStatus orvsMinMaxIndx_16s(const Orv16s* src, int len, Orv16s* min, Orv32s* minIndex, Orv16s* max, Orv32s* maxIndex)
{
    return both_indexed(src, len, min, minIndex, max, maxIndex);
}
OrvStatus orvsMinMaxIndx_16u(const Orv16u* src, int len, Orv16u* min, Orv32s* minIndex, Orv16u* max, Orv32s* maxIndex)
{
    return both_indexed(src, len, min, minIndex, max, maxIndex);
}
OrvStatus orvsMinMaxIndx_32s(const Orv32s* src, int len, Orv32s* min, Orv32s* minIndex, Orv32s* max, Orv32s* maxIndex)
{
    return both_indexed(src, len, min, minIndex, max, maxIndex);
}
OrvStatus orvsMinMaxIndx_32u(const Orv32u* src, int len, Orv32u* min, Orv32s* minIndex, Orv32u* max, Orv32s* maxIndex)
{
    return both_indexed(src, len, min, minIndex, max, maxIndex);
}
OrvStatus orvsMinMaxIndx_32f(const Orv32f* src, int len, Orv32f* min, Orv32s* minIndex, Orv32f* max, Orv32s* maxIndex)
{
    return both_indexed(src, len, min, minIndex, max, maxIndex);
}
OrvStatus orvsMinMaxIndx_64f(const Orv64f* src, int len, Orv64f* min, Orv32s* minIndex, Orv64f* max, Orv32s* maxIndex)
{
    return both_indexed(src, len, min, minIndex, max, maxIndex);
}
