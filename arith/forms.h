// The bodies that most forms share: checks, the fill with zeros, the loop, for real and complex elements.
#ifndef ORV_ARITH_FORMS_H
#define ORV_ARITH_FORMS_H

#include "arith/complex.h"
#include "frame/checks.h"
#include "frame/fill.h"
#include "frame/scale.h"

namespace ORV_VARIANT {

/// An integer form with a scale factor: dst = op(src...). Complex elements are worked on by their parts.
template <class Op, class T, class... S>
ORV_INLINE OrvStatus scaled_form(Op op, T* dst, int len, int scale, int zero_above, const S*... src)
{
    if (const OrvStatus bad = check(len, src..., dst)) return bad;
    if (scale > zero_above) return zero(dst, len);
    if constexpr (std::is_integral_v<T>) {
        map_scaled(op, dst, len, scale, src...);
        return orvOk;
    } else {
        return for_parts(len, [=](std::ptrdiff_t at, int n) ORV_INLINE_LAMBDA {
            map_scaled<2>(op, parts(dst) + at, n, scale, parts(src) + at...);
            return orvOk;
        });
    }
}

/// A floating form.
template <class Op, class T, class... S>
ORV_INLINE OrvStatus float_form(Op op, T* dst, int len, const S*... src)
{
    if (const OrvStatus bad = check(len, src..., dst)) return bad;
    if constexpr (is_float<T>) {
        map(op, dst, len, src...);
        return orvOk;
    } else {
        return for_parts(len, [=](std::ptrdiff_t at, int n) ORV_INLINE_LAMBDA {
            map<2>(op, parts(dst) + at, n, parts(src) + at...);
            return orvOk;
        });
    }
}

} // namespace ORV_VARIANT

#endif
