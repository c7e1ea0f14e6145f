// What a kernel has met on its way and a status tells: a zero divisor, a negative radicand.
#ifndef ORV_ARITH_SEEN_H
#define ORV_ARITH_SEEN_H

#include "simd/vec.h"

namespace ORV_VARIANT {

/// Whether any lane of any vector was set.
class Seen {
public:
    template <class T>
    ORV_INLINE void add(vec<T> mask)
    {
        all_ = all_ | as<Orv8u>(mask);
    }
    ORV_INLINE bool any() const { return any_bit(all_); }

private:
    vec<Orv8u> all_ = splat(Orv8u(0));
};

} // namespace ORV_VARIANT

#endif
