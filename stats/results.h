// Results to the caller: real, or both parts of a complex one.
#ifndef ORV_STATS_RESULTS_H
#define ORV_STATS_RESULTS_H

#include "frame/complex.h"

namespace ORV_VARIANT {

/// *result = make(total), part by part.
template <class D, class Total, class Make>
ORV_INLINE void put_parts(D* result, const Total& total, Make make)
{
    if constexpr (std::is_class_v<D>) put_element(result, {make(total.re), make(total.im)});
    else put_element(result, make(total));
}

} // namespace ORV_VARIANT

#endif
