// Several values as one, like std::tuple, whose functions need not be inlined: in a loop, that would be a call a step.
#ifndef ORV_FRAME_BUNDLE_H
#define ORV_FRAME_BUNDLE_H

#include <cstddef>
#include <utility>

#include "simd/vec.h"

namespace ORV_VARIANT {

template <std::size_t k, class T>
struct bundle_member {
    T value;
};

template <class Numbers, class... T>
struct bundle_members;

template <std::size_t... k, class... T>
struct bundle_members<std::index_sequence<k...>, T...> : bundle_member<k, T>... {
    /// f(first, second, ...).
    template <class F>
    ORV_INLINE auto apply(F f) const
    {
        return f(static_cast<const bundle_member<k, T>&>(*this).value...);
    }
    template <class F>
    ORV_INLINE auto apply(F f)
    {
        return f(static_cast<bundle_member<k, T>&>(*this).value...);
    }

    /// f(a, b) for each pair of values of this bundle and another one.
    template <class Other, class F>
    ORV_INLINE void each_with(Other& other, F f)
    {
        (f(member<k>(*this), member<k>(other)), ...);
    }

    template <std::size_t i, class U>
    ORV_INLINE static U& in(bundle_member<i, U>& member)
    {
        return member.value;
    }
    template <std::size_t i, class Bundle>
    ORV_INLINE static auto& member(Bundle& bundle)
    {
        return in<i>(bundle);
    }
};

template <class... T>
struct bundle : bundle_members<std::index_sequence_for<T...>, T...> {};

/// The arrays of a loop.
template <class... T>
ORV_INLINE bundle<T*...> arrays(T*... p)
{
    return {{{p}...}};
}

} // namespace ORV_VARIANT

#endif
