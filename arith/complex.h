// Bodies of complex forms that are those of real ones over the parts.
#ifndef ORV_ARITH_COMPLEX_H
#define ORV_ARITH_COMPLEX_H

#include "frame/complex.h"

namespace ORV_VARIANT {

/// The real body over the parts of complex vectors. The length is tested here, the pointers in the body.
template <class R, class C, class... Rest>
ORV_INLINE OrvStatus by_parts(OrvStatus (*body)(const R*, const R*, R*, int, Rest...), const C* src1, const C* src2,
                              C* dst, int len, std::type_identity_t<Rest>... rest)
{
    if (len < 1) return orvErrBadLength;
    return for_parts(len, [=](std::ptrdiff_t at, int n) ORV_INLINE_LAMBDA {
        return body(parts(src1) + at, parts(src2) + at, parts(dst) + at, n, rest...);
    });
}

} // namespace ORV_VARIANT

#endif
