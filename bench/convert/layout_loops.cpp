// A file of their own, so that no caller's constants reach the loops.
#include "bench/convert/layout_loops.h"

#include <algorithm>
#include <cmath>

namespace loops {
namespace {

/// x times full scale as an integer, to nearest and saturated.
template <int bits>
Orv32s quantized(Orv32f x)
{
    constexpr Orv32f scale = 1 << (bits - 1);
    return static_cast<Orv32s>(std::nearbyint(std::min(std::max(x * scale, -scale), scale - 1)));
}

void put24(Orv8u* dst, Orv32s x)
{
    dst[0] = static_cast<Orv8u>(x);
    dst[1] = static_cast<Orv8u>(x >> 8);
    dst[2] = static_cast<Orv8u>(x >> 16);
}

} // namespace

void real(const Orv32fc* __restrict src, Orv32f* __restrict dst, int n)
{
    for (int i = 0; i < n; ++i) dst[i] = src[i].re;
}
void imag(const Orv16sc* __restrict src, Orv16s* __restrict dst, int n)
{
    for (int i = 0; i < n; ++i) dst[i] = src[i].im;
}
void parts_to_complex(const Orv32f* __restrict re, const Orv32f* __restrict im, Orv32fc* __restrict dst, int n)
{
    for (int i = 0; i < n; ++i) dst[i] = {re[i], im[i]};
}
void complex_to_parts(const Orv32fc* __restrict src, Orv32f* __restrict re, Orv32f* __restrict im, int n)
{
    for (int i = 0; i < n; ++i) {
        re[i] = src[i].re;
        im[i] = src[i].im;
    }
}
void conj(const Orv32fc* __restrict src, Orv32fc* __restrict dst, int n)
{
    for (int i = 0; i < n; ++i) dst[i] = {src[i].re, -src[i].im};
}

template <class T>
void flip(const T* __restrict src, T* __restrict dst, int n)
{
    for (int i = 0; i < n; ++i) dst[i] = src[n - 1 - i];
}

template <class T>
void swap_bytes(const T* __restrict src, T* __restrict dst, int n)
{
    for (int i = 0; i < n; ++i) {
        if constexpr (sizeof(T) == 2) dst[i] = __builtin_bswap16(src[i]);
        else if constexpr (sizeof(T) == 4) dst[i] = __builtin_bswap32(src[i]);
        else dst[i] = __builtin_bswap64(src[i]);
    }
}
void swap_bytes24(const Orv8u* __restrict src, Orv8u* __restrict dst, int n)
{
    for (int i = 0; i < n; ++i) {
        dst[3 * i] = src[3 * i + 2];
        dst[3 * i + 1] = src[3 * i + 1];
        dst[3 * i + 2] = src[3 * i];
    }
}

void copy_bits(const Orv8u* __restrict src, int shift, Orv8u* __restrict dst, int n)
{
    for (int i = 0; i < n; ++i) dst[i] = static_cast<Orv8u>(src[i] >> shift | src[i + 1] << (8 - shift));
}
void pack_bits(const Orv32u* __restrict src, const int* __restrict widths, Orv8u* __restrict dst, int n)
{
    Orv64u bits = 0;
    int pending = 0;
    for (int i = 0; i < n; ++i) {
        bits |= (src[i] & ((Orv64u{1} << widths[i]) - 1)) << pending;
        for (pending += widths[i]; pending >= 8; pending -= 8, bits >>= 8) *dst++ = static_cast<Orv8u>(bits);
    }
    if (pending > 0) *dst = static_cast<Orv8u>(bits);
}

void join2(const Orv32f* __restrict left, const Orv32f* __restrict right, Orv16s* __restrict dst, int n)
{
    for (int i = 0; i < n; ++i) {
        dst[2 * i] = static_cast<Orv16s>(quantized<16>(left[i]));
        dst[2 * i + 1] = static_cast<Orv16s>(quantized<16>(right[i]));
    }
}
void join6(const Orv32f* const* __restrict channels, Orv16s* __restrict dst, int n)
{
    for (int i = 0; i < n; ++i)
        for (int c = 0; c < 6; ++c) dst[6 * i + c] = static_cast<Orv16s>(quantized<16>(channels[c][i]));
}
void join2_24(const Orv32f* __restrict left, const Orv32f* __restrict right, Orv8u* __restrict dst, int n)
{
    for (int i = 0; i < n; ++i) {
        put24(dst + 6 * i, quantized<24>(left[i]));
        put24(dst + 6 * i + 3, quantized<24>(right[i]));
    }
}
void split2(const Orv16s* __restrict src, Orv32f* __restrict left, Orv32f* __restrict right, int n)
{
    for (int i = 0; i < n; ++i) {
        left[i] = static_cast<Orv32f>(src[2 * i]) * 0x1p-15f;
        right[i] = static_cast<Orv32f>(src[2 * i + 1]) * 0x1p-15f;
    }
}
void split6(const Orv16s* __restrict src, Orv32f* const* __restrict channels, int n)
{
    for (int i = 0; i < n; ++i)
        for (int c = 0; c < 6; ++c) channels[c][i] = static_cast<Orv32f>(src[6 * i + c]) * 0x1p-15f;
}
void split2_24(const Orv8u* __restrict src, Orv32f* __restrict left, Orv32f* __restrict right, int n)
{
    const auto at = [=](int i) {
        const Orv32u word = Orv32u{src[i]} << 8 | Orv32u{src[i + 1]} << 16 | Orv32u{src[i + 2]} << 24;
        return static_cast<Orv32f>(static_cast<Orv32s>(word)) * 0x1p-31f;
    };
    for (int i = 0; i < n; ++i) {
        left[i] = at(6 * i);
        right[i] = at(6 * i + 3);
    }
}

template void flip(const Orv8u*, Orv8u*, int);
template void flip(const Orv32f*, Orv32f*, int);
template void swap_bytes(const Orv16u*, Orv16u*, int);
template void swap_bytes(const Orv32u*, Orv32u*, int);
template void swap_bytes(const Orv64u*, Orv64u*, int);

} // namespace loops
