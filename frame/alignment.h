// Where vectors of a destination are aligned.
#ifndef ORV_FRAME_ALIGNMENT_H
#define ORV_FRAME_ALIGNMENT_H

#include <cstddef>

#include "simd/vec.h"

namespace ORV_VARIANT {

template <class T>
ORV_INLINE bool is_aligned(const T* p)
{
    return reinterpret_cast<std::size_t>(p) % 32 == 0;
}

/// p, or the first address behind it that is a multiple of a power of two.
template <class P>
ORV_INLINE P* aligned_up(P* p, std::size_t alignment)
{
    return reinterpret_cast<P*>((reinterpret_cast<std::size_t>(p) + (alignment - 1)) & ~(alignment - 1));
}

/// How many elements lie before the next multiple of `bytes`; 0 if whole ones, of unit values each, do not reach it.
template <int unit = 1, class T>
ORV_INLINE std::ptrdiff_t elements_before(std::size_t bytes, const T* p)
{
    const auto address = reinterpret_cast<std::size_t>(p);
    return address % (unit * sizeof(T)) == 0 ? std::ptrdiff_t(-address % bytes / sizeof(T)) : 0;
}

/// The last i from 1 to N, a multiple of unit, for which d + i is aligned; N if there is none. (So it is N if d itself
/// is aligned, and then sources that lie like d are read as well aligned as they are.) unit is the number of lanes that
/// belong together: 2 for complex values.
template <std::ptrdiff_t N, int unit, class T>
ORV_INLINE std::ptrdiff_t last_aligned(const T* d)
{
    // size * i = -address modulo 32, and an odd number has an inverse there: x * (2 - x * x) is right in six bits.
    constexpr auto size = unsigned(sizeof(T)) * unit, even = size & (0 - size), odd = size / even;
    constexpr unsigned inverse = odd * (2 - odd * odd), period = even < 32 ? 32 / even : 1;
    const auto address = unsigned(reinterpret_cast<std::size_t>(d));
    static_assert(N / unit % period == 0);
    if (address % even % 32 != 0) return N;
    const unsigned beyond = address / even * inverse % period; // d[-beyond * unit] is aligned
    return N - std::ptrdiff_t(beyond) * unit;
}

} // namespace ORV_VARIANT

#endif
