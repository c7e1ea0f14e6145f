// Fill and copy as services for the other rooms; what the exported functions do after their checks.
#ifndef ORV_FRAME_FILL_H
#define ORV_FRAME_FILL_H

#include <cstddef>

#include "frame/checks.h"

// Each returns the start of the destination, but ownsSet_64s, which returns its end.
ORV_SERVICE(Orv8u*, ownsZero_8u, (Orv8u * dst, std::size_t bytes))
ORV_SERVICE(Orv8u*, ownsSet_8u, (Orv8u val, Orv8u* dst, std::size_t len))
ORV_SERVICE(Orv16u*, ownsSet_16u, (Orv16u val, Orv16u* dst, std::size_t len))
ORV_SERVICE(Orv32s*, ownsSet_32s, (Orv32s val, Orv32s* dst, std::size_t len))
ORV_SERVICE(Orv64s*, ownsSet_64s, (Orv64s val, Orv64s* dst, std::size_t len))
ORV_SERVICE(Orv64sc*, ownsSet_64sc, (Orv64sc val, Orv64sc* dst, std::size_t len))
ORV_SERVICE(Orv8u*, ownsCopy_8u, (const Orv8u* src, Orv8u* dst, std::size_t bytes))
ORV_SERVICE(Orv8u*, ownsMove_8u, (const Orv8u* src, Orv8u* dst, std::size_t bytes))

namespace ORV_VARIANT {

/// A vector of zeros after the checks of any body.
template <class T>
inline OrvStatus zero(T* dst, int len)
{
    ownsZero_8u(reinterpret_cast<Orv8u*>(dst), std::size_t(len) * sizeof(T));
    return orvOk;
}

template <class T>
inline void copy_array(const T* src, T* dst, std::size_t len)
{
    ownsCopy_8u(reinterpret_cast<const Orv8u*>(src), reinterpret_cast<Orv8u*>(dst), len * sizeof(T));
}
/// The same where the arrays may overlap.
template <class T>
inline void move_array(const T* src, T* dst, std::size_t len)
{
    ownsMove_8u(reinterpret_cast<const Orv8u*>(src), reinterpret_cast<Orv8u*>(dst), len * sizeof(T));
}

} // namespace ORV_VARIANT

#endif
