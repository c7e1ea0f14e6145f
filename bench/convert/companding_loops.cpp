// A file of their own, so that no caller's constants reach the loops.
#include "bench/convert/companding_loops.h"

#include <algorithm>
#include <cmath>

namespace loops {
namespace {

Orv8u alaw_code(int sample)
{
    const int x = sample >> 3, mask = x < 0 ? 0x55 : 0xd5, v = x < 0 ? ~x : x;
    int segment = 0;
    for (int end = 31; v > end; end = 2 * end + 1) ++segment;
    return static_cast<Orv8u>(((v >> std::max(segment, 1) & 15) | segment << 4) ^ mask);
}

Orv8u mulaw_code(int sample)
{
    const int v = std::min(((sample < 0 ? ~sample : sample) >> 2) + 33, 8191);
    int segment = 1;
    for (int rest = v >> 6; rest != 0; rest >>= 1) ++segment;
    const int code = (8 - segment) << 4 | (15 - (v >> segment & 15));
    return static_cast<Orv8u>(code | (sample < 0 ? 0 : 0x80));
}

} // namespace

void alaw_encode(const Orv16s* __restrict src, Orv8u* __restrict dst, int n)
{
    for (int i = 0; i < n; ++i) dst[i] = alaw_code(src[i]);
}
void mulaw_encode(const Orv16s* __restrict src, Orv8u* __restrict dst, int n)
{
    for (int i = 0; i < n; ++i) dst[i] = mulaw_code(src[i]);
}
void mulaw_encode(const Orv32f* __restrict src, Orv8u* __restrict dst, int n)
{
    for (int i = 0; i < n; ++i) {
        dst[i] = mulaw_code(static_cast<int>(std::nearbyint(std::clamp(src[i] * 32768.0f, -32768.0f, 32767.0f))));
    }
}
void alaw_decode(const Orv8u* __restrict src, Orv16s* __restrict dst, int n)
{
    for (int i = 0; i < n; ++i) {
        const int code = src[i] ^ 0x55, segment = code >> 4 & 7, interval = (code & 15) << 4;
        const int value = segment == 0 ? interval + 8 : (interval + 264) << (segment - 1);
        dst[i] = static_cast<Orv16s>(code & 0x80 ? value : -value);
    }
}
void mulaw_decode(const Orv8u* __restrict src, Orv16s* __restrict dst, int n)
{
    for (int i = 0; i < n; ++i) {
        const int code = ~src[i], value = (((code & 15) << 3) + 132) << (code >> 4 & 7);
        dst[i] = static_cast<Orv16s>(code & 0x80 ? 132 - value : value - 132);
    }
}

void look_up(const Orv16s* __restrict table, const Orv8u* __restrict src, Orv16s* __restrict dst, int n)
{
    for (int i = 0; i < n; ++i) dst[i] = table[src[i]];
}
void look_up(const Orv32f* __restrict table, const Orv8u* __restrict src, Orv32f* __restrict dst, int n)
{
    for (int i = 0; i < n; ++i) dst[i] = table[src[i]];
}
void look_up(const Orv8u* __restrict table, const Orv8u* __restrict src, Orv8u* __restrict dst, int n)
{
    for (int i = 0; i < n; ++i) dst[i] = table[src[i]];
}
void look_up(const Orv8u* __restrict table, const Orv16s* __restrict src, Orv8u* __restrict dst, int n)
{
    for (int i = 0; i < n; ++i) dst[i] = table[static_cast<Orv16u>(src[i])];
}

} // namespace loops
