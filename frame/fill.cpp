// Zero and set: a pattern of 1 to 16 bytes, repeated.
#include "frame/fill.h"
#include "orvs/frame.h"

#include "frame/cache_descriptors.h"
#include "frame/caches.h"
#include "simd/vec.h"

using namespace ORV_VARIANT;

namespace {

using Bytes = vec<Orv8u>;

/// The pattern as it continues k bytes into it; without work where the period divides k.
template <int period>
ORV_INLINE Bytes advanced(Bytes pattern, std::size_t k)
{
    if (k % period == 0) return pattern;
    Orv8u twice[64];
    store(twice, pattern);
    store(twice + 32, pattern);
    return load(twice + k % period);
}

/// Fills n bytes, a multiple of the period, with a pattern that begins at d. Both ends are single stores that overlap
/// the aligned middle; a whole number of periods from either end, so the pattern stays in phase.
template <int period>
ORV_INLINE void fill(Orv8u* d, std::size_t n, Bytes pattern)
{
    if (n < 32) {
        if (n > 0) store_n(d, pattern, int(n));
        return;
    }
    Orv8u* const end = d + n;
    store(d, pattern);
    if (n > 64) {
        store(d + 32, pattern);
        store(end - 64, pattern);
        if (n > 128) {
            const std::size_t k = 32 - reinterpret_cast<std::size_t>(d) % 32;
            const Bytes middle = advanced<period>(pattern, k);
            Orv8u* p = d + k;
            for (; p < end - 128; p += 128) {
                store(p, middle);
                store(p + 32, middle);
                store(p + 64, middle);
                store(p + 96, middle);
            }
            for (; p < end - 64; p += 32) store(p, middle);
        }
    }
    store(end - 32, pattern);
}

/// The same past the caches, for n of 256 and more.
template <int period>
void fill_past_caches(Orv8u* d, std::size_t n, Bytes pattern)
{
    Orv8u* const end = d + n;
    const std::size_t k = 64 - reinterpret_cast<std::size_t>(d) % 64;
    const Bytes middle = advanced<period>(pattern, k);
    store(d, pattern);
    store(d + 32, pattern);
    Orv8u* p = d + k;
    for (; p < end - 64; p += 64) {
        stream(p, middle);
        stream(p + 32, middle);
    }
    store(end - 64, pattern);
    store(end - 32, pattern);
    store_fence();
}

template <int period>
ORV_INLINE void fill_by_size(Orv8u* d, std::size_t n, Bytes pattern)
{
    if (n > bypass_minimum && beyond_caches(n)) fill_past_caches<period>(d, n, pattern);
    else fill<period>(d, n, pattern);
}

/// One value as the pattern, and its array as bytes.
template <class T>
ORV_INLINE Bytes pattern_of(T val)
{
    return as<Orv8u>(splat(val));
}
template <class T>
ORV_INLINE Orv8u* bytes(T* p)
{
    return reinterpret_cast<Orv8u*>(p);
}

} // namespace

// ---- Services

ORV_KERNEL void ownsZero_8u_G9(Orv8u* dst, std::size_t bytes) { fill<1>(dst, bytes, splat(Orv8u(0))); }
ORV_KERNEL void ownsSet_8u_G9(Orv8u val, Orv8u* dst, std::size_t len) { fill<1>(dst, len, splat(val)); }

Orv8u* ownsZero_8u(Orv8u* dst, std::size_t bytes)
{
    if (bytes > bypass_minimum && beyond_caches(bytes)) fill_past_caches<1>(dst, bytes, splat(Orv8u(0)));
    else ownsZero_8u_G9(dst, bytes);
    return dst;
}
Orv8u* ownsSet_8u(Orv8u val, Orv8u* dst, std::size_t len)
{
    if (len > bypass_minimum && beyond_caches(len)) fill_past_caches<1>(dst, len, splat(val));
    else ownsSet_8u_G9(val, dst, len);
    return dst;
}
Orv16u* ownsSet_16u(Orv16u val, Orv16u* dst, std::size_t len)
{
    fill_by_size<2>(bytes(dst), 2 * len, pattern_of(val));
    return dst;
}
Orv32s* ownsSet_32s(Orv32s val, Orv32s* dst, std::size_t len)
{
    fill_by_size<4>(bytes(dst), 4 * len, pattern_of(val));
    return dst;
}
Orv64s* ownsSet_64s(Orv64s val, Orv64s* dst, std::size_t len)
{
    fill_by_size<8>(bytes(dst), 8 * len, pattern_of(val));
    return dst + len;
}
Orv64sc* ownsSet_64sc(Orv64sc val, Orv64sc* dst, std::size_t len)
{
    const Bytes pattern = as<Orv8u>(splat_pair(val.re, val.im));
    // Here the processor's own descriptors decide, where it has them.
    constexpr std::size_t smallest = 0x10000;
    const Orv32s cache = len > smallest ? described_cache_size() : -1;
    const bool past_caches = cache != -1 ? len > std::size_t(cache) / 16 : beyond_caches(16 * len);
    if (past_caches) fill_past_caches<16>(bytes(dst), 16 * len, pattern);
    else fill<16>(bytes(dst), 16 * len, pattern);
    return dst;
}

// ---- Zero

template <class T>
ORV_INLINE OrvStatus zero_checked(T* dst, int len)
{
    if (const OrvStatus bad = check(len, dst)) return bad;
    return zero(dst, len);
}

OrvStatus orvsZero_8u(Orv8u* dst, int len) { return zero_checked(dst, len); }
OrvStatus orvsZero_16s(Orv16s* dst, int len) { return zero_checked(dst, len); }
OrvStatus orvsZero_16sc(Orv16sc* dst, int len) { return zero_checked(dst, len); }
OrvStatus orvsZero_32s(Orv32s* dst, int len) { return zero_checked(dst, len); }
OrvStatus orvsZero_32sc(Orv32sc* dst, int len) { return zero_checked(dst, len); }
OrvStatus orvsZero_32f(Orv32f* dst, int len) { return zero_checked(dst, len); }
OrvStatus orvsZero_32fc(Orv32fc* dst, int len) { return zero_checked(dst, len); }
OrvStatus orvsZero_64s(Orv64s* dst, int len) { return zero_checked(dst, len); }
OrvStatus orvsZero_64sc(Orv64sc* dst, int len) { return zero_checked(dst, len); }
OrvStatus orvsZero_64f(Orv64f* dst, int len) { return zero_checked(dst, len); }
OrvStatus orvsZero_64fc(Orv64fc* dst, int len) { return zero_checked(dst, len); }

// ---- Set: each type through the kernel of its element size

/// The bits of a value as another type of the same size.
template <class To, class From>
ORV_INLINE To bits(From value)
{
    return __builtin_bit_cast(To, value);
}

OrvStatus orvsSet_8u(Orv8u val, Orv8u* dst, int len)
{
    if (const OrvStatus bad = check(len, dst)) return bad;
    ownsSet_8u(bits<Orv8u>(val), reinterpret_cast<Orv8u*>(dst), std::size_t(len));
    return orvOk;
}
OrvStatus orvsSet_16s(Orv16s val, Orv16s* dst, int len)
{
    if (const OrvStatus bad = check(len, dst)) return bad;
    ownsSet_16u(bits<Orv16u>(val), reinterpret_cast<Orv16u*>(dst), std::size_t(len));
    return orvOk;
}
OrvStatus orvsSet_16sc(Orv16sc val, Orv16sc* dst, int len)
{
    if (const OrvStatus bad = check(len, dst)) return bad;
    ownsSet_32s(bits<Orv32s>(val), reinterpret_cast<Orv32s*>(dst), std::size_t(len));
    return orvOk;
}
OrvStatus orvsSet_32s(Orv32s val, Orv32s* dst, int len)
{
    if (const OrvStatus bad = check(len, dst)) return bad;
    ownsSet_32s(bits<Orv32s>(val), reinterpret_cast<Orv32s*>(dst), std::size_t(len));
    return orvOk;
}
OrvStatus orvsSet_32f(Orv32f val, Orv32f* dst, int len)
{
    if (const OrvStatus bad = check(len, dst)) return bad;
    ownsSet_32s(bits<Orv32s>(val), reinterpret_cast<Orv32s*>(dst), std::size_t(len));
    return orvOk;
}
OrvStatus orvsSet_32sc(Orv32sc val, Orv32sc* dst, int len)
{
    if (const OrvStatus bad = check(len, dst)) return bad;
    ownsSet_64s(bits<Orv64s>(val), reinterpret_cast<Orv64s*>(dst), std::size_t(len));
    return orvOk;
}
OrvStatus orvsSet_32fc(Orv32fc val, Orv32fc* dst, int len)
{
    if (const OrvStatus bad = check(len, dst)) return bad;
    ownsSet_64s(bits<Orv64s>(val), reinterpret_cast<Orv64s*>(dst), std::size_t(len));
    return orvOk;
}
OrvStatus orvsSet_64s(Orv64s val, Orv64s* dst, int len)
{
    if (const OrvStatus bad = check(len, dst)) return bad;
    ownsSet_64s(bits<Orv64s>(val), reinterpret_cast<Orv64s*>(dst), std::size_t(len));
    return orvOk;
}
OrvStatus orvsSet_64f(Orv64f val, Orv64f* dst, int len)
{
    if (const OrvStatus bad = check(len, dst)) return bad;
    ownsSet_64s(bits<Orv64s>(val), reinterpret_cast<Orv64s*>(dst), std::size_t(len));
    return orvOk;
}
OrvStatus orvsSet_64sc(Orv64sc val, Orv64sc* dst, int len)
{
    if (const OrvStatus bad = check(len, dst)) return bad;
    ownsSet_64sc(bits<Orv64sc>(val), reinterpret_cast<Orv64sc*>(dst), std::size_t(len));
    return orvOk;
}
OrvStatus orvsSet_64fc(Orv64fc val, Orv64fc* dst, int len)
{
    if (const OrvStatus bad = check(len, dst)) return bad;
    ownsSet_64sc(bits<Orv64sc>(val), reinterpret_cast<Orv64sc*>(dst), std::size_t(len));
    return orvOk;
}
