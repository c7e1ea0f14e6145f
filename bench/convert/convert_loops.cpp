// A file of their own, so that no caller's constants reach the loops.
#include "bench/convert/convert_loops.h"

#include <immintrin.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>

namespace loops {
namespace {

template <class D, class S>
S limited(S x)
{
    const S low = static_cast<S>(std::numeric_limits<D>::min()), high = static_cast<S>(std::numeric_limits<D>::max());
    return x < low ? low : x > high ? high : x;
}

Orv32f float_of(Orv16f h)
{
    const Orv32u sign = Orv32u(h & 0x8000) << 16, magnitude = h & 0x7fff;
    if (magnitude < 0x0400) {
        const Orv32f x = static_cast<Orv32f>(magnitude) * 0x1p-24f;
        return sign ? -x : x;
    }
    const Orv32u bias = magnitude < 0x7c00 ? 112u << 23 : 224u << 23;
    return std::bit_cast<Orv32f>(sign | ((magnitude << 13) + bias));
}

Orv16f half_of(Orv32f x)
{
    const Orv32u bits = std::bit_cast<Orv32u>(x), sign = bits >> 16 & 0x8000, magnitude = bits & 0x7fffffff;
    if (magnitude > 0x7f800000) return static_cast<Orv16f>(sign | 0x7e00);
    if (magnitude >= 0x477ff000) return static_cast<Orv16f>(sign | 0x7c00);
    if (magnitude < 0x38800000) {
        const Orv32f sum = std::bit_cast<Orv32f>(magnitude) + 0.5f;
        return static_cast<Orv16f>(sign | (std::bit_cast<Orv32u>(sum) - 0x3f000000));
    }
    const Orv32u shifted = magnitude - (112u << 23);
    return static_cast<Orv16f>(sign | ((shifted + 0x0fff + (shifted >> 13 & 1)) >> 13));
}

} // namespace

template <class S, class D>
void convert(const S* __restrict src, D* __restrict dst, int n)
{
    for (int i = 0; i < n; ++i) dst[i] = static_cast<D>(src[i]);
}

template <class S, class D>
void convert_near(const S* __restrict src, D* __restrict dst, int n)
{
    for (int i = 0; i < n; ++i) dst[i] = static_cast<D>(std::nearbyint(limited<D>(src[i])));
}

void convert_financial(const Orv32f* __restrict src, Orv16s* __restrict dst, int n)
{
    for (int i = 0; i < n; ++i) dst[i] = static_cast<Orv16s>(std::round(limited<Orv16s>(src[i])));
}

void narrow_scaled(const Orv32s* __restrict src, Orv16s* __restrict dst, int n, int scale)
{
    const Orv64s half = Orv64s{1} << (scale - 1);
    for (int i = 0; i < n; ++i) {
        const Orv64s x = src[i];
        dst[i] = static_cast<Orv16s>(limited<Orv16s>((x + half - 1 + ((x >> scale) & 1)) >> scale));
    }
}

void convert_24s32f(const Orv8u* __restrict src, Orv32f* __restrict dst, int n)
{
    for (int i = 0; i < n; ++i) {
        const Orv32u upper = Orv32u{src[3 * i]} << 8 | Orv32u{src[3 * i + 1]} << 16 | Orv32u{src[3 * i + 2]} << 24;
        dst[i] = static_cast<Orv32f>(static_cast<Orv32s>(upper) >> 8);
    }
}

void convert_32f24s(const Orv32f* __restrict src, Orv8u* __restrict dst, int n)
{
    for (int i = 0; i < n; ++i) {
        const Orv32f limited = src[i] < -0x1p23f ? -0x1p23f : src[i] > 0x7fffff ? 0x7fffff : src[i];
        const auto x = static_cast<Orv32s>(std::nearbyint(limited));
        dst[3 * i] = static_cast<Orv8u>(x);
        dst[3 * i + 1] = static_cast<Orv8u>(x >> 8);
        dst[3 * i + 2] = static_cast<Orv8u>(x >> 16);
    }
}

void convert_16f32f(const Orv16f* __restrict src, Orv32f* __restrict dst, int n)
{
    for (int i = 0; i < n; ++i) dst[i] = float_of(src[i]);
}

void convert_32f16f(const Orv32f* __restrict src, Orv16f* __restrict dst, int n)
{
    for (int i = 0; i < n; ++i) dst[i] = half_of(src[i]);
}

[[gnu::target("f16c")]] void f16c_16f32f(const Orv16f* __restrict src, Orv32f* __restrict dst, int n)
{
    for (int i = 0; i + 8 <= n; i += 8)
        _mm256_storeu_ps(dst + i, _mm256_cvtph_ps(_mm_loadu_si128(reinterpret_cast<const __m128i*>(src + i))));
}

[[gnu::target("f16c")]] void f16c_32f16f(const Orv32f* __restrict src, Orv16f* __restrict dst, int n)
{
    for (int i = 0; i + 8 <= n; i += 8)
        _mm_storeu_si128(reinterpret_cast<__m128i*>(dst + i), _mm256_cvtps_ph(_mm256_loadu_ps(src + i), 0));
}

template void convert(const Orv16s*, Orv32f*, int);
template void convert(const Orv32s*, Orv32f*, int);
template void convert(const Orv32f*, Orv64f*, int);
template void convert(const Orv64f*, Orv32f*, int);
template void convert(const Orv8u*, Orv32f*, int);
template void convert_near(const Orv32f*, Orv16s*, int);
template void convert_near(const Orv32f*, Orv32s*, int);
template void convert_near(const Orv32f*, Orv8u*, int);
template void convert_near(const Orv64f*, Orv64s*, int);

} // namespace loops
