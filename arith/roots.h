// What the bodies of square roots share: the status, and the road to a team of threads.
#ifndef ORV_ARITH_ROOTS_H
#define ORV_ARITH_ROOTS_H

#include "arith/seen.h"
#include "frame/checks.h"
#include "frame/team.h"

namespace ORV_VARIANT {

ORV_INLINE OrvStatus root_status(int negatives) { return negatives ? orvWrnSqrtOfNegative : orvOk; }

/// kernel(src, dst, len, how...) on this thread or, from the threshold on, on two. The kernel tells whether it has met
/// a negative element.
template <auto kernel, class S, class D, class... How>
ORV_INLINE OrvStatus take_roots(int threshold, const S* src, D* dst, int len, How... how)
{
    if (len < threshold) return root_status(kernel(src, dst, len, how...));
    return root_status(on_team(TeamSize::two, len,
                               [=](int first, int count) { return kernel(src + first, dst + first, count, how...); }));
}

} // namespace ORV_VARIANT

#endif
