// The bytes of each element in reverse order.
#include "orvs/convert.h"

#include "frame/blocks.h"
#include "frame/checks.h"
#include "frame/map.h"
#include "simd/lanes.h"
#include "simd/packed24.h"

using namespace ORV_VARIANT;

namespace {

template <class T>
ORV_INLINE OrvStatus swap(const T* src, T* dst, int len)
{
    if (const OrvStatus bad = check(len, src, dst)) return bad;
    map([](auto x) ORV_INLINE_LAMBDA { return swap_bytes(x); }, dst, len, src);
    return orvOk;
}

/// What the third `to` of 48 bytes takes from the third `from`: byte j comes from j + 2, j or j - 2.
template <int to, int from>
constexpr byte_pattern part_of_third = [] {
    byte_pattern p = {};
    for (int i = 0; i < 16; ++i) {
        const int j = 16 * to + i, source = j + 2 - j % 3 * 2;
        p.byte[i] = source / 16 == from ? Orv8u(source % 16) : Orv8u(0x80);
    }
    return p;
}();

/// 32 samples: twice 48 bytes, one in each half of the registers.
struct Swap24 {
    static constexpr int N = 32;

    struct Thirds {
        vec<Orv8u> third[3];
    };

    template <int to, int from>
    ORV_INLINE static vec<Orv8u> piece(const Thirds& x)
    {
        return shuffle_bytes(x.third[from], twice(part_of_third<to, from>));
    }

    ORV_INLINE Thirds read(const UInt24* s) const
    {
        const Orv8u* p = s->bytes;
        const Thirds x = {{load_halves(p, p + 48), load_halves(p + 16, p + 64), load_halves(p + 32, p + 80)}};
        return {{piece<0, 0>(x) | piece<0, 1>(x), piece<1, 0>(x) | piece<1, 1>(x) | piece<1, 2>(x),
                 piece<2, 1>(x) | piece<2, 2>(x)}};
    }
    template <class Put>
    ORV_INLINE void write(Put put, const Thirds& y, UInt24* d) const
    {
        Orv8u* p = d->bytes;
        put(p, low_halves(y.third[0], y.third[1]));
        put(p + 32, halves_low_high(y.third[2], y.third[0]));
        put(p + 64, high_halves(y.third[1], y.third[2]));
    }
};

ORV_KERNEL void ownsSwapBytes_24u(const Orv8u* src, Orv8u* dst, int len)
{
    map_blocks(Swap24{}, len, arrays(as_24u(src)), arrays(as_24u(dst)));
}

ORV_INLINE OrvStatus swap24(const Orv8u* src, Orv8u* dst, int len)
{
    if (const OrvStatus bad = check(len, src, dst)) return bad;
    ownsSwapBytes_24u(src, dst, len);
    return orvOk;
}

} // namespace

OrvStatus orvsSwapBytes_16u(const Orv16u* src, Orv16u* dst, int len) { return swap(src, dst, len); }
OrvStatus orvsSwapBytes_16u_I(Orv16u* srcDst, int len) { return swap(srcDst, srcDst, len); }
OrvStatus orvsSwapBytes_24u(const Orv8u* src, Orv8u* dst, int len) { return swap24(src, dst, len); }
OrvStatus orvsSwapBytes_24u_I(Orv8u* srcDst, int len) { return swap24(srcDst, srcDst, len); }
OrvStatus orvsSwapBytes_32u(const Orv32u* src, Orv32u* dst, int len) { return swap(src, dst, len); }
OrvStatus orvsSwapBytes_32u_I(Orv32u* srcDst, int len) { return swap(srcDst, srcDst, len); }
OrvStatus orvsSwapBytes_64u(const Orv64u* src, Orv64u* dst, int len) { return swap(src, dst, len); }
OrvStatus orvsSwapBytes_64u_I(Orv64u* srcDst, int len) { return swap(srcDst, srcDst, len); }
