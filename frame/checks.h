// What every body begins with, and how kernels are marked.
#ifndef ORV_FRAME_CHECKS_H
#define ORV_FRAME_CHECKS_H

#include "orvs/types.h"

// A kernel stands as a function of its own, so that its name shows in a debugger and in a profile.
#define ORV_KERNEL [[gnu::noinline]] static

// A service of this library for its other rooms: a private symbol with the variant's prefix, like a body.
#define ORV_SERVICE(type, name, args) ORVAPI(type, name, args)

namespace ORV_VARIANT {

template <class... T>
[[gnu::always_inline]] inline bool any_null(const T*... pointers)
{
    return (... || !pointers);
}

/// The checks of most functions, in their order.
template <class... T>
[[gnu::always_inline]] inline OrvStatus check(int len, const T*... pointers)
{
    if (any_null(pointers...)) return orvErrNullPointer;
    if (len < 1) return orvErrBadLength;
    return orvOk;
}

} // namespace ORV_VARIANT

#endif
