// Bit strings: a byte pointer and the number of the first bit. Bit k lies in byte k / 8, in little order (LE) as its
// bit of weight 2^(k % 8), in big order (BE) as that of weight 2^(7 - k % 8).
#include "orvs/convert.h"

#include <limits>

#include "frame/checks.h"
#include "frame/fill.h"
#include "frame/map.h"

using namespace ORV_VARIANT;

namespace {

/// How bits lie in a byte: earlier moves them k places toward the first bit, later away from it; bits that leave the
/// byte do not matter. span has the bits first to first + n - 1.
struct LittleOrder {
    ORV_INLINE static unsigned earlier(unsigned byte, int k) { return byte >> k; }
    ORV_INLINE static unsigned later(unsigned byte, int k) { return byte << k; }
    ORV_INLINE static vec<Orv8u> earlier(vec<Orv8u> v, shift_count k) { return shift_right_logical(v, k); }
    ORV_INLINE static vec<Orv8u> later(vec<Orv8u> v, shift_count k) { return shift_left(v, k); }
    ORV_INLINE static unsigned span(int first, int n) { return ((1u << n) - 1) << first; }
};
struct BigOrder {
    ORV_INLINE static unsigned earlier(unsigned byte, int k) { return byte << k; }
    ORV_INLINE static unsigned later(unsigned byte, int k) { return byte >> k; }
    ORV_INLINE static vec<Orv8u> earlier(vec<Orv8u> v, shift_count k) { return shift_left(v, k); }
    ORV_INLINE static vec<Orv8u> later(vec<Orv8u> v, shift_count k) { return shift_right_logical(v, k); }
    ORV_INLINE static unsigned span(int first, int n) { return ((1u << n) - 1) << (8 - first - n); }
};

/// n bits from bit `from` of s to bit `to` of the byte d, both 0 to 7, n >= 1 and all in d. Only bytes that hold some
/// of the bits are read.
template <class Order>
ORV_INLINE void copy_within_byte(const Orv8u* s, int from, Orv8u* d, int to, int n)
{
    unsigned bits = from >= to ? Order::earlier(s[0], from - to) : Order::later(s[0], to - from);
    if (from + n > 8) bits |= Order::later(s[1], 8 - (from - to)); // then from > to
    const unsigned mask = Order::span(to, n);
    *d = Orv8u((*d & ~mask) | (bits & mask));
}

template <class Order>
ORV_INLINE void copy_bits(const Orv8u* src, int from, Orv8u* dst, int to, int len)
{
    src += from / 8, from %= 8, dst += to / 8, to %= 8;
    if (to > 0) { // up to the first whole byte of the destination
        const int n = len < 8 - to ? len : 8 - to;
        copy_within_byte<Order>(src, from, dst, to, n);
        from += n, src += from / 8, from %= 8, ++dst, len -= n;
    }
    const int bytes = len / 8, rest = len % 8;
    if (bytes > 0) {
        if (from == 0) {
            ownsCopy_8u(src, dst, std::size_t(bytes));
        } else {
            // Each byte has bits of two; the second of the last one is part of the string as well.
            const shift_count k = by(from), left = by(8 - from);
            map([=](auto a, auto b) ORV_INLINE_LAMBDA { return Order::earlier(a, k) | Order::later(b, left); }, dst,
                bytes, src, src + 1);
        }
    }
    if (rest > 0) copy_within_byte<Order>(src + bytes, from, dst + bytes, 0, rest);
}

ORV_KERNEL void ownsCopy_1u_W7(const Orv8u* src, int from, Orv8u* dst, int to, int len)
{
    copy_bits<LittleOrder>(src, from, dst, to, len);
}

ORV_INLINE OrvStatus check_strings(const Orv8u* src, int srcBitOffset, const Orv8u* dst, int dstBitOffset, int len)
{
    if (any_null(src, dst)) return orvErrNullPointer;
    return len < 1 || srcBitOffset < 0 || dstBitOffset < 0 ? orvErrBadLength : orvOk;
}

/// The lower widths[i] bits of the words, one behind the other in little order, from bit `first` of dst on; returns how
/// many. A step writes eight bytes to a buffer, whether they are full or not, so it needs no branch on the widths.
ORV_INLINE Orv64s pack_words(const Orv32u* src, const int* widths, int len, Orv8u* dst, int first)
{
    constexpr int piece = 64;
    Orv8u buffer[4 * piece + 16];
    Orv64u waiting = first > 0 ? *dst & ((1u << first) - 1) : 0; // for their byte, below 8 bits between steps
    auto pending = unsigned(first);
    Orv64s total = -Orv64s(first);
    for (int at = 0; at < len; at += piece) {
        const int end = len - at < piece ? len : at + piece;
        Orv8u* next = buffer;
        for (int i = at; i < end; ++i) {
            const int wanted = element_at(widths + i);
            const auto width = unsigned(wanted < 0 ? 0 : wanted > 32 ? 32 : wanted);
            waiting |= (element_at(src + i) & ((Orv64u(1) << width) - 1)) << pending;
            poke(reinterpret_cast<char*>(next), waiting);
            pending += width;
            next += pending / 8, waiting >>= pending / 8 * 8, pending %= 8;
        }
        const auto full = std::size_t(next - buffer);
        ownsCopy_8u(buffer, dst, full);
        dst += full, total += 8 * Orv64s(full);
    }
    if (pending > 0) { // the bits behind them stay as they are
        const unsigned mask = (1u << pending) - 1;
        *dst = Orv8u((*dst & ~mask) | (unsigned(waiting) & mask));
    }
    return total + pending;
}

} // namespace

// ---- Copy

OrvStatus orvsCopy_1u(const Orv8u* src, int srcBitOffset, Orv8u* dst, int dstBitOffset, int len)
{
    if (const OrvStatus bad = check_strings(src, srcBitOffset, dst, dstBitOffset, len)) return bad;
    ownsCopy_1u_W7(src, srcBitOffset, dst, dstBitOffset, len);
    return orvOk;
}
OrvStatus orvsCopyLE_1u(const Orv8u* src, int srcBitOffset, Orv8u* dst, int dstBitOffset, int len)
{
    return orvsCopy_1u(src, srcBitOffset, dst, dstBitOffset, len);
}
OrvStatus orvsCopyBE_1u(const Orv8u* src, int srcBitOffset, Orv8u* dst, int dstBitOffset, int len)
{
    if (const OrvStatus bad = check_strings(src, srcBitOffset, dst, dstBitOffset, len)) return bad;
    copy_bits<BigOrder>(src, srcBitOffset, dst, dstBitOffset, len);
    return orvOk;
}

// ---- PackBits

OrvStatus orvsPackBits_32u8u(const Orv32u* src, const int* widths, int len, Orv8u* dst, int dstBitOffset, int* bits)
{
    if (any_null(src, widths, dst, bits)) return orvErrNullPointer;
    if (len < 1 || dstBitOffset < 0) return orvErrBadLength;
    *bits = 0;
    int i = 0;
    while (i < len && element_at(widths + i) < 1) ++i;
    if (i == len) return orvOk; // there may be no byte at the offset

    const Orv64s total = pack_words(src + i, widths + i, len - i, dst + dstBitOffset / 8, dstBitOffset % 8);
    constexpr Orv64s most = std::numeric_limits<int>::max();
    *bits = int(total < most ? total : most);
    return orvOk;
}
