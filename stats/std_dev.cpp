// Deviation of a sample, alone and with its mean.
#include "orvs/stats.h"

#include "frame/checks.h"
#include "stats/extended_moments.h"
#include "stats/moments.h"

using namespace ORV_VARIANT;

namespace {

template <class... T>
OrvStatus check_sample(int len, const T*... pointers)
{
    if (any_null(pointers...)) return orvErrNullPointer;
    if (len < 2) return orvErrBadLength;
    return orvOk;
}

// ---- Floats

/// The parts of (n * squares - sum^2) / (n * (n - 1)) in double precision, and not below 0.
struct Variance {
    Orv64f above, below;
};
ORV_INLINE Variance variance_of(const Moments<Orv64f>& m, Orv64f n)
{
    const Orv64f above = n * m.squares - m.sum * m.sum;
    return {above < 0 ? 0 : above, n * (n - 1)};
}

/// Quotient and root in single precision.
ORV_INLINE Orv32f deviation_32f(const Moments<Orv64f>& m, int len)
{
    const Variance v = variance_of(m, len);
    return __builtin_sqrtf(Orv32f(v.above) / Orv32f(v.below));
}
ORV_INLINE Orv64f deviation_64f(const Moments<Orv64f>& m, int len)
{
    const Variance v = variance_of(m, len);
    return __builtin_sqrt(v.above / v.below);
}

// ---- 16-bit integers, exact up to the variance, which is computed in extended precision

/// x * 2^-scale to nearest, saturated. No x other than 0 is so small or large that a scale beyond the limits matters.
Orv32s scaled(long double x, int scale)
{
    x *= power_of_two<Orv64f>(scale < -100 ? -100 : scale > 100 ? 100 : scale);
    if (x >= 2147483647.5L) return 2147483647;
    if (x <= -2147483648.5L) return -2147483647 - 1;
    constexpr long double shift = 0x1.8p63L; // where a unit is the last place
    return Orv32s(Orv64s((x + shift) - shift));
}

struct ScaledMoments {
    Orv32s mean, deviation;
};
ScaledMoments scaled_moments(const Orv16s* src, int len, int scale)
{
    const Moments<Orv64s> exact = exact_moments(src, len);
    const Moments<long double> m = {(long double)exact.sum, (long double)exact.squares};
    return {scaled(m.sum / len, scale), scaled(deviation(m, len), scale)};
}

} // namespace

// ---- StdDev

OrvStatus orvsStdDev_32f(const Orv32f* src, int len, Orv32f* stdDev, Orv32s hint)
{
    if (const OrvStatus bad = check_sample(len, src, stdDev)) return bad;
    put_element(stdDev,
                deviation_32f(hint == hint_of_speed ? moments_fast(src, len) : moments_accurate(src, len), len));
    return orvOk;
}
OrvStatus orvsStdDev_64f(const Orv64f* src, int len, Orv64f* stdDev)
{
    if (const OrvStatus bad = check_sample(len, src, stdDev)) return bad;
    put_element(stdDev, deviation_64f(moments_of_doubles(src, len), len));
    return orvOk;
}
OrvStatus orvsStdDev_16s_Sfs(const Orv16s* src, int len, Orv16s* stdDev, int scale)
{
    if (const OrvStatus bad = check_sample(len, src, stdDev)) return bad;
    put_element(stdDev, saturated<Orv16s>(scaled_moments(src, len, scale).deviation));
    return orvOk;
}
OrvStatus orvsStdDev_16s32s_Sfs(const Orv16s* src, int len, Orv32s* stdDev, int scale)
{
    if (const OrvStatus bad = check_sample(len, src, stdDev)) return bad;
    put_element(stdDev, scaled_moments(src, len, scale).deviation);
    return orvOk;
}

// ---- MeanStdDev

OrvStatus orvsMeanStdDev_32f(const Orv32f* src, int len, Orv32f* mean, Orv32f* stdDev, Orv32s)
{
    if (const OrvStatus bad = check_sample(len, src, mean, stdDev)) return bad;
    const MeanDeviation m = mean_deviation(src, len);
    put_element(mean, m.mean);
    put_element(stdDev, m.deviation);
    return orvOk;
}
OrvStatus orvsMeanStdDev_64f(const Orv64f* src, int len, Orv64f* mean, Orv64f* stdDev)
{
    if (const OrvStatus bad = check_sample(len, src, mean, stdDev)) return bad;
    const Moments<Orv64f> m = moments_of_doubles(src, len);
    put_element(mean, m.sum / len);
    put_element(stdDev, deviation_64f(m, len));
    return orvOk;
}
OrvStatus orvsMeanStdDev_16s_Sfs(const Orv16s* src, int len, Orv16s* mean, Orv16s* stdDev, int scale)
{
    if (const OrvStatus bad = check_sample(len, src, mean, stdDev)) return bad;
    const ScaledMoments m = scaled_moments(src, len, scale);
    put_element(mean, saturated<Orv16s>(m.mean));
    put_element(stdDev, saturated<Orv16s>(m.deviation));
    return orvOk;
}
OrvStatus orvsMeanStdDev_16s32s_Sfs(const Orv16s* src, int len, Orv32s* mean, Orv32s* stdDev, int scale)
{
    if (const OrvStatus bad = check_sample(len, src, mean, stdDev)) return bad;
    const ScaledMoments m = scaled_moments(src, len, scale);
    put_element(mean, m.mean);
    put_element(stdDev, m.deviation);
    return orvOk;
}
