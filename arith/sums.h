// The operations of this family, as the law of scale factors wants them.
#ifndef ORV_ARITH_SUMS_H
#define ORV_ARITH_SUMS_H

#include "frame/scale.h"

namespace ORV_VARIANT {

/// a + b.
struct Sum {
    template <class T>
    ORV_INLINE vec<T> saturated(vec<T> a, vec<T> b) const
    {
        return add_sat(a, b);
    }
    template <class T>
    ORV_INLINE half_odd<T> exact(vec<T> a, vec<T> b) const
    {
        return exact_sum(a, b);
    }
};

/// a - b. Unsigned differences below 0 end at 0 whatever the scale, so they may stop there at once.
struct Difference {
    template <class T>
    ORV_INLINE vec<T> saturated(vec<T> a, vec<T> b) const
    {
        return sub_sat(a, b);
    }
    template <class T>
    ORV_INLINE half_odd<T> exact(vec<T> a, vec<T> b) const
    {
        if constexpr (std::is_signed_v<T>) {
            return exact_difference(a, b);
        } else {
            return exact_lane(sub_sat(a, b));
        }
    }
};

} // namespace ORV_VARIANT

#endif
