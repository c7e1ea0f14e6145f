// 128-bit magnitudes: the products of 64-bit values, one element at a time.
#ifndef ORV_ARITH_WIDE_INTEGER_H
#define ORV_ARITH_WIDE_INTEGER_H

#include "simd/saturate.h"

namespace ORV_VARIANT {

/// high * 2^64 + low.
struct Magnitude {
    Orv64u high, low;
};

ORV_INLINE Magnitude multiply_magnitudes(Orv64u a, Orv64u b)
{
#ifdef __SIZEOF_INT128__
    __extension__ using Word = unsigned __int128;
    const Word product = Word(a) * b;
    return {Orv64u(product >> 64), Orv64u(product)};
#else
    const Orv64u mask = 0xffffffff;
    const Orv64u low = (a & mask) * (b & mask);
    const Orv64u cross1 = (a >> 32) * (b & mask) + (low >> 32);
    const Orv64u cross2 = (a & mask) * (b >> 32) + (cross1 & mask);
    return {(a >> 32) * (b >> 32) + (cross1 >> 32) + (cross2 >> 32), cross2 << 32 | (low & mask)};
#endif
}

/// 0 <= n <= 127.
ORV_INLINE Magnitude shift_right(Magnitude x, int n)
{
    if (n == 0) return x;
    if (n >= 64) return {0, x.high >> (n - 64)};
    return {x.high >> n, x.high << (64 - n) | x.low >> n};
}

ORV_INLINE Magnitude operator+(Magnitude x, Magnitude y)
{
    const Orv64u low = x.low + y.low;
    return {x.high + y.high + (low < x.low), low};
}

ORV_INLINE Orv64u magnitude(Orv64s x) { return x < 0 ? 0 - Orv64u(x) : Orv64u(x); }

/// The magnitude with a sign, stopped at the limits of 64 bits.
ORV_INLINE Orv64s with_sign(Magnitude x, bool negative)
{
    const Orv64u limit = Orv64u(max_of<Orv64s>) + negative;
    const Orv64u kept = x.high != 0 || x.low > limit ? limit : x.low;
    return Orv64s(negative ? 0 - kept : kept);
}

/// 2^n - 1, 0 <= n <= 127.
ORV_INLINE Magnitude ones(int n)
{
    return n == 0 ? Magnitude{0, 0} : shift_right(Magnitude{max_of<Orv64u>, max_of<Orv64u>}, 128 - n);
}

/// x * 2^-scale to nearest, ties to even, for x <= 2^126 and any scale; some value of 2^64 or more where it is that
/// large.
ORV_INLINE Magnitude scaled(Magnitude x, int scale)
{
    if (scale > 126) return {0, 0}; // at most one half
    if (scale > 0) {
        const Magnitude below_half = ones(scale - 1), odd = {0, shift_right(x, scale).low & 1};
        return shift_right(x + below_half + odd, scale);
    }
    const bool fits = scale > -64 && x.high == 0 && x.low <= max_of<Orv64u> >> -scale;
    return fits ? Magnitude{0, x.low << -scale} : Magnitude{x.high | x.low, 0};
}

/// srcDst[i] = op(srcDst[i]), one element at a time and at any alignment.
template <class Op>
ORV_INLINE void replace_each(Orv64s* srcDst, int len, Op op)
{
    for (int i = 0; i < len; ++i) put_element(srcDst + i, op(element_at(srcDst + i)));
}

} // namespace ORV_VARIANT

#endif
