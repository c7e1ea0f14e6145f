// Work on lanes of 8 and 16 bits that is done in lanes of 32 bits, as integers or as floats.
#ifndef ORV_ARITH_WIDE_LANES_H
#define ORV_ARITH_WIDE_LANES_H

#include "simd/lanes.h"
#include "simd/saturate.h"

namespace ORV_VARIANT {

ORV_INLINE split<Orv32s> unpack(vec<Orv16u> v)
{
    const auto zero = splat(Orv16u(0));
    return {as<Orv32s>(unpack_low(v, zero)), as<Orv32s>(unpack_high(v, zero))};
}
ORV_INLINE split<Orv32s> unpack(vec<Orv16s> v)
{
    const auto sign = sign_mask(v);
    return {as<Orv32s>(unpack_low(v, sign)), as<Orv32s>(unpack_high(v, sign))};
}
ORV_INLINE split<Orv16u> unpack(vec<Orv8u> v)
{
    const auto zero = splat(Orv8u(0));
    return {as<Orv16u>(unpack_low(v, zero)), as<Orv16u>(unpack_high(v, zero))};
}

/// op takes vectors of 32-bit lanes and gives one, which saturates in T.
template <class T, class Op, class... Rest>
ORV_INLINE vec<T> by_words(Op op, vec<T> v, Rest... rest)
{
    if constexpr (sizeof(T) == 1) {
        return pack_sat(split<Orv16u>{by_words(op, unpack(v).low, unpack(rest).low...),
                                      by_words(op, unpack(v).high, unpack(rest).high...)});
    } else {
        const auto low = op(unpack(v).low, unpack(rest).low...);
        const auto high = op(unpack(v).high, unpack(rest).high...);
        if constexpr (std::is_signed_v<T>) return pack_sat(split<Orv32s>{low, high});
        else return {_mm256_packus_epi32(low.r, high.r)};
    }
}

/// The same for an op that takes floats.
template <class T, class Op, class... Rest>
ORV_INLINE vec<T> by_floats(Op op, vec<T> v, Rest... rest)
{
    return by_words([=](auto... w) ORV_INLINE_LAMBDA { return op(to_float(w)...); }, v, rest...);
}

} // namespace ORV_VARIANT

#endif
