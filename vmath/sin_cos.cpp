// Sine and cosine.
#include "vmath/sin_cos.h"

#include <limits>

#include "frame/blocks.h"
#include "vmath/over_array.h"
#include "vmath/vmath.h"

using namespace ORV_VARIANT;

namespace {

/// 2 / pi in digits of 32 bits, the first of them worth 2^-32.
constexpr Orv32u two_per_pi[] = {0xa2f9836e, 0x4e441529, 0xfc2757d1, 0xf534ddc0, 0xdb629599, 0x3c439041, 0xfe5163ab,
                                 0xdebbc561, 0xb7246e3a, 0x424dd2e0, 0x06492eea, 0x09d1921c, 0xfe1deb1c, 0xb129a73e,
                                 0xe88235f5, 0x2ebb4484, 0xe99c7026, 0xb45f7e41, 0x3991d639, 0x835339f4, 0x9c845f8b,
                                 0xbdf9283b, 0x1ff897ff, 0xde05980f, 0xef2f118b, 0x5a0a6d1f, 0x6d367ecf, 0x27cb09b7,
                                 0x4f463f66, 0x9e5fea2d, 0x7527bac7, 0xebe5f17b, 0x3d0739f7, 0x8a5292ea, 0x6bfb5fb1,
                                 0x1f8d5d08, 0x56033046, 0xfc7b6bab, 0xf0cfbc20, 0x9af4361d, 0xa9e39161, 0x38a98fbe};

/// size = m * 2^e with a 53-bit m. Of size * 2 / pi the multiples of 4 are of no interest, so the digits of 2 / pi that
/// make only such are left out; eight digits from there on give the fraction to 2^-168, and it is never below 2^-62.
Reduced<Orv64f> reduce_large(Orv64f size)
{
    const auto bits = std::bit_cast<Orv64u>(size);
    const int e = int(bits >> 52) - 1075;
    const Orv64u m = (bits & 0x000fffffffffffff) | 0x0010000000000000;
    const int skipped = e > 33 ? (e - 2) / 32 : 0;

    // The product, last digit first: ten digits in units of 2^(e - 32 * (skipped + 8)).
    constexpr int digits = 8;
    Orv32u product[digits + 2] = {};
    for (const int half : {0, 1}) {
        const Orv64u factor = half == 0 ? m & 0xffffffff : m >> 32;
        Orv64u carry = 0;
        for (int i = 0; i < digits; ++i) {
            carry += factor * two_per_pi[skipped + digits - 1 - i] + product[i + half];
            product[i + half] = Orv32u(carry);
            carry >>= 32;
        }
        product[digits + half] = Orv32u(carry);
    }

    // Shifted left so that the two bits of the quarter turns come first.
    const int unit = 32 * (skipped + digits) - e; // below the binary point
    const int shift = 32 * (digits + 2) - 2 - unit;
    const auto digit = [&](int from_top) -> Orv64u {
        const int i = digits + 1 - from_top - shift / 32, s = shift % 32;
        const Orv64u here = i >= 0 ? product[i] : 0, below = i >= 1 ? product[i - 1] : 0;
        return ((here << 32 | below) << s >> 32) & 0xffffffff;
    };
    Orv64u quarters = digit(0) >> 30;
    // To the nearest quarter turn: a fraction of one half or more is negative.
    const bool negative = (digit(0) >> 29 & 1) != 0;
    quarters += negative;

    // The first four digits of the fraction's size that are not all zero, 2^-30 being the first digit's unit.
    Orv64u fraction[8];
    for (int i = 0; i < 8; ++i)
        fraction[i] = (i == 0 ? digit(0) & 0x3fffffff : digit(i)) ^ (negative ? (i == 0 ? 0x3fffffff : 0xffffffff) : 0);
    int first_digit = 0;
    while (first_digit < 3 && fraction[first_digit] == 0) ++first_digit;
    const Orv64u* f = fraction + first_digit;
    const Orv64u upper = f[0] << 32 | f[1];
    const Orv64f weight = power_of_two<Orv64f>(62 + 32 * first_digit); // of the last bit of upper
    const Orv64f high = Orv64f(upper & ~Orv64u(0x7ff)) * weight;
    const Orv64f low = (Orv64f(upper & 0x7ff) + (Orv64f(f[2]) + Orv64f(f[3]) * 0x1p-32) * 0x1p-32) * weight;

    const auto& part = half_pi_parts<Orv64f>;
    const Orv64f product_high = high * part[0];
    const Orv64f product_low = __builtin_fma(high, part[0], -product_high) + (high * part[1] + low * part[0]);
    const Orv64f r = product_high + product_low, rest = (product_high - r) + product_low;
    return {splat(negative ? -r : r), splat(negative ? -rest : rest), splat(Orv64s(quarters))};
}

template <Wave wave>
Orv64f of_large(Orv64f x)
{
    const Orv64f size = __builtin_fabs(x);
    if (!(size < std::numeric_limits<Orv64f>::infinity())) return std::numeric_limits<Orv64f>::quiet_NaN();
    const auto reduced = reduce_large(size);
    const auto both = sin_cos_of<Level::HA>(reduced.r, reduced.rest);
    const Orv64f y = first(of_quarter<wave>(both, reduced.quarters));
    return wave == Wave::sine && x < 0 ? -y : y;
}

} // namespace

// Arguments of 2^17 or 2^28 and more, infinities, not-a-numbers.

int vdsin_cout_rare(Orv64f x, Orv64f* y)
{
    *y = of_large<Wave::sine>(x);
    return 0;
}
int vdcos_cout_rare(Orv64f x, Orv64f* y)
{
    *y = of_large<Wave::cosine>(x);
    return 0;
}
int vssin_cout_rare(Orv32f x, Orv32f* y)
{
    *y = Orv32f(of_large<Wave::sine>(Orv64f(x)));
    return 0;
}
int vscos_cout_rare(Orv32f x, Orv32f* y)
{
    *y = Orv32f(of_large<Wave::cosine>(Orv64f(x)));
    return 0;
}

namespace {

template <class T>
void finish(const T* x, const word_of<T>* marks, T* sine, T* cosine)
{
    for (int i = 0; i < vec<T>::N; ++i) {
        if (marks[i] >= 0) continue;
        sine[i] = T(of_large<Wave::sine>(Orv64f(x[i])));
        cosine[i] = T(of_large<Wave::cosine>(Orv64f(x[i])));
    }
}

} // namespace

void ORV_VARIANT::finish_sin_cos(const Orv32f* x, const Orv32s* marks, Orv32f* sine, Orv32f* cosine)
{
    finish(x, marks, sine, cosine);
}
void ORV_VARIANT::finish_sin_cos(const Orv64f* x, const Orv64s* marks, Orv64f* sine, Orv64f* cosine)
{
    finish(x, marks, sine, cosine);
}

namespace {

template <Wave wave, Level level>
ORV_INLINE int over_array(const Orv32f* src, Orv32f* dst, int len)
{
    return over_array(SinOrCos32<wave, level>(), src, dst, len);
}
template <Wave wave, Level level>
ORV_INLINE int over_array(const Orv64f* src, Orv64f* dst, int len)
{
    return over_array(SinOrCos64<wave, level>(), src, dst, len);
}

} // namespace

int own_orvs_sSin_S9HAynn(const Orv32f* src, Orv32f* dst, int len)
{
    return over_array<Wave::sine, Level::HA>(src, dst, len);
}
int own_orvs_sSin_S9LAynn(const Orv32f* src, Orv32f* dst, int len)
{
    return over_array<Wave::sine, Level::LA>(src, dst, len);
}
int own_orvs_sSin_S9EPnnn(const Orv32f* src, Orv32f* dst, int len) { return own_orvs_sSin_S9LAynn(src, dst, len); }
int own_orvs_sCos_S9HAynn(const Orv32f* src, Orv32f* dst, int len)
{
    return over_array<Wave::cosine, Level::HA>(src, dst, len);
}
int own_orvs_sCos_S9LAynn(const Orv32f* src, Orv32f* dst, int len)
{
    return over_array<Wave::cosine, Level::LA>(src, dst, len);
}
int own_orvs_sCos_S9EPnnn(const Orv32f* src, Orv32f* dst, int len) { return own_orvs_sCos_S9LAynn(src, dst, len); }
int own_orvs_dSin_S9HAynn(const Orv64f* src, Orv64f* dst, int len)
{
    return over_array<Wave::sine, Level::HA>(src, dst, len);
}
int own_orvs_dSin_S9LAynn(const Orv64f* src, Orv64f* dst, int len)
{
    return over_array<Wave::sine, Level::LA>(src, dst, len);
}
int own_orvs_dSin_S9EPnnn(const Orv64f* src, Orv64f* dst, int len)
{
    return over_array<Wave::sine, Level::EP>(src, dst, len);
}
int own_orvs_dCos_S9HAynn(const Orv64f* src, Orv64f* dst, int len)
{
    return over_array<Wave::cosine, Level::HA>(src, dst, len);
}
int own_orvs_dCos_S9LAynn(const Orv64f* src, Orv64f* dst, int len)
{
    return over_array<Wave::cosine, Level::LA>(src, dst, len);
}
int own_orvs_dCos_S9EPnnn(const Orv64f* src, Orv64f* dst, int len)
{
    return over_array<Wave::cosine, Level::EP>(src, dst, len);
}

namespace {

template <class T>
struct Both {
    static constexpr int N = vec<T>::N;

    ORV_INLINE SinCos<T> read(const T* x) const { return sin_and_cos(load(x)); }
    template <class Put>
    ORV_INLINE void write(Put put, SinCos<T> both, T* sine, T* cosine) const
    {
        put(sine, both.sine);
        put(cosine, both.cosine);
    }
};

template <class T>
ORV_INLINE int both_over_array(const T* src, T* sine, T* cosine, int len)
{
    const StandardState state;
    map_blocks(Both<T>(), len, arrays(src), arrays(sine, cosine));
    return 0;
}

} // namespace

int own_orvs_sSinCos_S9LAynn(const Orv32f* src, Orv32f* sine, Orv32f* cosine, int len)
{
    return both_over_array(src, sine, cosine, len);
}
int own_orvs_dSinCos_S9LAynn(const Orv64f* src, Orv64f* sine, Orv64f* cosine, int len)
{
    return both_over_array(src, sine, cosine, len);
}
