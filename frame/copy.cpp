// Copy and move. Both ends are read before anything is written, so the aligned middle may overlap them.
#include "frame/fill.h"
#include "orvs/frame.h"

#include "frame/caches.h"
#include "simd/vec.h"

using namespace ORV_VARIANT;

namespace {

/// Up to 128 bytes: everything is read, then everything is written, so any overlap is right.
ORV_INLINE void copy_short(const Orv8u* s, Orv8u* d, std::size_t n)
{
    if (n < 32) {
        if (n > 0) store_n(d, load_n(s, int(n)), int(n));
        return;
    }
    const auto first = load(s), last = load(s + n - 32);
    if (n > 64) {
        const auto second = load(s + 32), third = load(s + n - 64);
        store(d + 32, second);
        store(d + n - 64, third);
    }
    store(d, first);
    store(d + n - 32, last);
}

struct PlainStore {
    ORV_INLINE void operator()(Orv8u* p, vec<Orv8u> v) const { store(p, v); }
};
struct StreamingStore {
    ORV_INLINE void operator()(Orv8u* p, vec<Orv8u> v) const { stream(p, v); }
};

/// More than 128 bytes, d <= s or apart: a store never reaches what is still to be read.
template <class Put>
ORV_INLINE void copy_forward(const Orv8u* s, Orv8u* d, std::size_t n, Put put)
{
    Orv8u* const last_vector = d + n - 32;
    const std::size_t k = 32 - reinterpret_cast<std::size_t>(d) % 32;
    const auto first = load(s), second = load(s + k), last = load(s + n - 32);
    store(d, first);
    store(d + k, second);
    d += k + 32;
    s += k + 32;
    std::size_t left = n - (k + 32);
    for (; left >= 128; left -= 128, d += 128, s += 128) {
        put(d, load(s));
        put(d + 32, load(s + 32));
        put(d + 64, load(s + 64));
        put(d + 96, load(s + 96));
    }
    for (; left > 32; left -= 32, d += 32, s += 32) put(d, load(s));
    store(last_vector, last);
}

/// More than 128 bytes, d above s.
ORV_INLINE void copy_backward(const Orv8u* s, Orv8u* d, std::size_t n)
{
    const std::size_t k = reinterpret_cast<std::size_t>(d + n) % 32; // what the last whole vector leaves at the end
    std::size_t i = n - k;
    const auto first = load(s), last = load(s + n - 32), second = load(s + i - 32);
    store(d + n - 32, last);
    store(d + i - 32, second);
    for (i -= 32; i >= 128; i -= 128) {
        store(d + i - 32, load(s + i - 32));
        store(d + i - 64, load(s + i - 64));
        store(d + i - 96, load(s + i - 96));
        store(d + i - 128, load(s + i - 128));
    }
    for (; i > 32; i -= 32) store(d + i - 32, load(s + i - 32));
    store(d, first);
}

} // namespace

// ---- Services

ORV_KERNEL void ownsCopy_8u_G9(const Orv8u* src, Orv8u* dst, std::size_t bytes)
{
    if (bytes <= 128) copy_short(src, dst, bytes);
    else copy_forward(src, dst, bytes, PlainStore{});
}

/// From 32 KiB up. The processor's string move is no faster than wide loads and stores where source and destination are
/// aligned alike, and ten times slower on some processors where they are not, so it is not used.
ORV_KERNEL void ownsCopy_8u_large(const Orv8u* src, Orv8u* dst, std::size_t bytes)
{
    if (src == dst) return;
    if (worth_bypassing(2 * bytes)) {
        copy_forward(src, dst, bytes, StreamingStore{});
        store_fence();
    } else {
        copy_forward(src, dst, bytes, PlainStore{});
    }
}

Orv8u* ownsCopy_8u(const Orv8u* src, Orv8u* dst, std::size_t bytes)
{
    if (bytes >= 0x8000) ownsCopy_8u_large(src, dst, bytes);
    else ownsCopy_8u_G9(src, dst, bytes);
    return dst;
}

Orv8u* ownsMove_8u(const Orv8u* src, Orv8u* dst, std::size_t bytes)
{
    const std::size_t distance = reinterpret_cast<std::size_t>(dst) - reinterpret_cast<std::size_t>(src);
    if (bytes <= 128) copy_short(src, dst, bytes);
    else if (distance < bytes) copy_backward(src, dst, bytes);                               // dst begins within src
    else if (distance > std::size_t(0) - bytes) copy_forward(src, dst, bytes, PlainStore{}); // src begins within dst
    else ownsCopy_8u(src, dst, bytes);
    return dst;
}

// ---- Copy: every type as bytes

template <class T>
ORV_INLINE OrvStatus copy_checked(const T* src, T* dst, int len)
{
    if (const OrvStatus bad = check(len, src, dst)) return bad;
    ownsCopy_8u(reinterpret_cast<const Orv8u*>(src), reinterpret_cast<Orv8u*>(dst), std::size_t(len) * sizeof(T));
    return orvOk;
}

OrvStatus orvsCopy_8u(const Orv8u* src, Orv8u* dst, int len) { return copy_checked(src, dst, len); }
OrvStatus orvsCopy_16s(const Orv16s* src, Orv16s* dst, int len) { return copy_checked(src, dst, len); }
OrvStatus orvsCopy_16sc(const Orv16sc* src, Orv16sc* dst, int len) { return copy_checked(src, dst, len); }
OrvStatus orvsCopy_32s(const Orv32s* src, Orv32s* dst, int len) { return copy_checked(src, dst, len); }
OrvStatus orvsCopy_32sc(const Orv32sc* src, Orv32sc* dst, int len) { return copy_checked(src, dst, len); }
OrvStatus orvsCopy_32f(const Orv32f* src, Orv32f* dst, int len) { return copy_checked(src, dst, len); }
OrvStatus orvsCopy_32fc(const Orv32fc* src, Orv32fc* dst, int len) { return copy_checked(src, dst, len); }
OrvStatus orvsCopy_64s(const Orv64s* src, Orv64s* dst, int len) { return copy_checked(src, dst, len); }
OrvStatus orvsCopy_64sc(const Orv64sc* src, Orv64sc* dst, int len) { return copy_checked(src, dst, len); }
OrvStatus orvsCopy_64f(const Orv64f* src, Orv64f* dst, int len) { return copy_checked(src, dst, len); }
OrvStatus orvsCopy_64fc(const Orv64fc* src, Orv64fc* dst, int len) { return copy_checked(src, dst, len); }

// ---- Move

template <class T>
ORV_INLINE OrvStatus move_checked(const T* src, T* dst, int len)
{
    if (const OrvStatus bad = check(len, src, dst)) return bad;
    ownsMove_8u(reinterpret_cast<const Orv8u*>(src), reinterpret_cast<Orv8u*>(dst), std::size_t(len) * sizeof(T));
    return orvOk;
}

OrvStatus orvsMove_8u(const Orv8u* src, Orv8u* dst, int len) { return move_checked(src, dst, len); }
OrvStatus orvsMove_16s(const Orv16s* src, Orv16s* dst, int len) { return move_checked(src, dst, len); }
OrvStatus orvsMove_16sc(const Orv16sc* src, Orv16sc* dst, int len) { return move_checked(src, dst, len); }
OrvStatus orvsMove_32s(const Orv32s* src, Orv32s* dst, int len) { return move_checked(src, dst, len); }
OrvStatus orvsMove_32sc(const Orv32sc* src, Orv32sc* dst, int len) { return move_checked(src, dst, len); }
OrvStatus orvsMove_32f(const Orv32f* src, Orv32f* dst, int len) { return move_checked(src, dst, len); }
OrvStatus orvsMove_32fc(const Orv32fc* src, Orv32fc* dst, int len) { return move_checked(src, dst, len); }
OrvStatus orvsMove_64s(const Orv64s* src, Orv64s* dst, int len) { return move_checked(src, dst, len); }
OrvStatus orvsMove_64sc(const Orv64sc* src, Orv64sc* dst, int len) { return move_checked(src, dst, len); }
OrvStatus orvsMove_64f(const Orv64f* src, Orv64f* dst, int len) { return move_checked(src, dst, len); }
OrvStatus orvsMove_64fc(const Orv64fc* src, Orv64fc* dst, int len) { return move_checked(src, dst, len); }
