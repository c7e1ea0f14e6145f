// Sums and means.
#include "orvs/stats.h"

#include "frame/checks.h"
#include "frame/complex.h"
#include "frame/float_state.h"
#include "simd/float.h"
#include "stats/float_sums.h"
#include "stats/integer_sums.h"
#include "stats/results.h"

using namespace ORV_VARIANT;

namespace {

// ---- Floats

template <class T>
Total<values_of<T>> sum_of(const T* src, int len, Orv32s hint)
{
    constexpr int unit = values_of<T>;
    const std::ptrdiff_t n = unit * std::ptrdiff_t(len);
    if constexpr (std::is_same_v<value_of<T>, Orv64f>) return sum_doubles<unit>(values(src), n);
    else return hint == hint_of_speed ? sum_fast<unit>(values(src), n) : sum_accurate<unit>(values(src), n);
}

/// One rounding a part.
template <class T>
ORV_INLINE void put_total(T* result, const Total<values_of<T>>& total)
{
    if constexpr (std::is_class_v<T>) {
        put_element(result, {value_of<T>(total.part[0]), value_of<T>(total.part[1])});
    } else {
        put_element(result, T(total.part[0]));
    }
}

template <class T>
OrvStatus sum(const T* src, int len, T* result, Orv32s hint = 0)
{
    if (const OrvStatus bad = check(len, src, result)) return bad;
    put_total(result, sum_of(src, len, hint));
    return orvOk;
}

template <class T>
OrvStatus mean(const T* src, int len, T* result, Orv32s hint = 0)
{
    if (const OrvStatus bad = check(len, src, result)) return bad;
    put_total(result, sum_of(src, len, hint) / len);
    return orvOk;
}

// ---- Integers

ORV_INLINE Orv64s exact_sum_of(const Orv32s* src, int len) { return exact_total<WideValueSums>(len, src); }
ORV_INLINE Orv64s exact_sum_of(const Orv16s* src, int len) { return exact_total<ValueSums>(len, src); }
ORV_INLINE Orv64sc exact_sum_of(const Orv16sc* src, int len)
{
    const auto sums = sum_by_parity(exact_totals<ComplexValueSums>(len, src));
    return {sums.even, sums.odd};
}

template <class T, class D>
OrvStatus sum_scaled(const T* src, int len, D* result, int scale)
{
    if (const OrvStatus bad = check(len, src, result)) return bad;
    put_parts(result, exact_sum_of(src, len), [=](Orv64s total) { return scaled_total<value_of<D>>(total, scale); });
    return orvOk;
}

/// To nearest with ties to even, whatever the state of the processor.
ORV_INLINE Orv64f rounded(Orv64f x) { return to_nearest(splat(x)).r[0]; }
ORV_INLINE Orv64f clamped(Orv64f x, Orv64f least, Orv64f most) { return x < least ? least : x > most ? most : x; }

/// total * 2^-scale / len. The product is exact as long as it is a finite normal number.
ORV_INLINE Orv64f scaled_mean(Orv64s total, int scale, int len)
{
    if (total == 0) return 0; // also where the power is infinite
    const int s = scale > 1023 ? 1023 : scale < -1024 ? -1024 : scale;
    return Orv64f(total) * std::bit_cast<Orv64f>(Orv64u(1023 - s) << 52) / len;
}

template <class T>
OrvStatus mean_scaled(const T* src, int len, T* result, int scale)
{
    if (const OrvStatus bad = check(len, src, result)) return bad;
    const IntegerState state;
    put_parts(result, exact_sum_of(src, len), [=](Orv64s total) {
        return Orv16s(rounded(clamped(scaled_mean(inside_state(total), scale, len), -32768, 32767)));
    });
    return orvOk;
}

/// m / len to nearest with ties to even, for a magnitude m.
ORV_INLINE Orv64u rounded_quotient(Orv64u m, int len)
{
    const Orv64u divisor = Orv32u(len), q = m / divisor, twice = 2 * (m % divisor);
    return q + (twice > divisor || (twice == divisor && (q & 1)));
}
ORV_INLINE Orv64u magnitude_of(Orv64s x) { return x < 0 ? 0 - Orv64u(x) : Orv64u(x); }
ORV_INLINE Orv64s with_sign_of(Orv64s sign, Orv64u m) { return sign < 0 ? -Orv64s(m) : Orv64s(m); }

/// The mean first, then the shift of its magnitude, with ties up: the two roundings differ.
Orv32s mean_shifted_right(Orv64s total, int len, int scale)
{
    Orv64u m = rounded_quotient(magnitude_of(total), len);
    if (scale > 0) m = (m + (m & Orv64u(1) << ((scale - 1) % 32))) >> (scale % 32);
    return saturated<Orv32s>(with_sign_of(total, m));
}

/// scale < 0. A total of 32 bits is shifted before it is divided, which keeps the fraction of the mean.
Orv32s mean_shifted_left(Orv64s total, int len, int scale)
{
    const auto mean_of = [=](Orv64s x) { return with_sign_of(x, rounded_quotient(magnitude_of(x), len)); };
    if (scale <= -32) {
        const Orv64s mean = mean_of(total);
        return mean > 0 ? std::numeric_limits<Orv32s>::max() : mean < 0 ? std::numeric_limits<Orv32s>::min() : 0;
    }
    const Orv64s factor = Orv64s(1) << -scale;
    return saturated<Orv32s>(total == Orv32s(total) ? mean_of(total * factor) : mean_of(total) * factor);
}

} // namespace

// ---- Sum

OrvStatus orvsSum_32f(const Orv32f* src, int len, Orv32f* sum, Orv32s hint) { return ::sum(src, len, sum, hint); }
OrvStatus orvsSum_64f(const Orv64f* src, int len, Orv64f* sum) { return ::sum(src, len, sum); }
OrvStatus orvsSum_32fc(const Orv32fc* src, int len, Orv32fc* sum, Orv32s hint) { return ::sum(src, len, sum, hint); }
OrvStatus orvsSum_64fc(const Orv64fc* src, int len, Orv64fc* sum) { return ::sum(src, len, sum); }
OrvStatus orvsSum_16s_Sfs(const Orv16s* src, int len, Orv16s* sum, int scale)
{
    return sum_scaled(src, len, sum, scale);
}
OrvStatus orvsSum_16sc_Sfs(const Orv16sc* src, int len, Orv16sc* sum, int scale)
{
    return sum_scaled(src, len, sum, scale);
}
OrvStatus orvsSum_16s32s_Sfs(const Orv16s* src, int len, Orv32s* sum, int scale)
{
    return sum_scaled(src, len, sum, scale);
}
OrvStatus orvsSum_16sc32sc_Sfs(const Orv16sc* src, int len, Orv32sc* sum, int scale)
{
    return sum_scaled(src, len, sum, scale);
}
OrvStatus orvsSum_32s_Sfs(const Orv32s* src, int len, Orv32s* sum, int scale)
{
    return sum_scaled(src, len, sum, scale);
}

// ---- Mean

OrvStatus orvsMean_32f(const Orv32f* src, int len, Orv32f* mean, Orv32s hint) { return ::mean(src, len, mean, hint); }
OrvStatus orvsMean_64f(const Orv64f* src, int len, Orv64f* mean) { return ::mean(src, len, mean); }
OrvStatus orvsMean_32fc(const Orv32fc* src, int len, Orv32fc* mean, Orv32s hint)
{
    return ::mean(src, len, mean, hint);
}
OrvStatus orvsMean_64fc(const Orv64fc* src, int len, Orv64fc* mean)
{
    if (const OrvStatus bad = check(len, src, mean)) return bad;
    const Total<2> total = sum_of(src, len, 0);
    const Orv64f factor = 1.0 / len; // not a division each, as in the other forms
    put_element(mean, {total.part[0] * factor, total.part[1] * factor});
    return orvOk;
}
OrvStatus orvsMean_16s_Sfs(const Orv16s* src, int len, Orv16s* mean, int scale)
{
    return mean_scaled(src, len, mean, scale);
}
OrvStatus orvsMean_16sc_Sfs(const Orv16sc* src, int len, Orv16sc* mean, int scale)
{
    return mean_scaled(src, len, mean, scale);
}
OrvStatus orvsMean_32s_Sfs(const Orv32s* src, int len, Orv32s* mean, int scale)
{
    if (const OrvStatus bad = check(len, src, mean)) return bad;
    const Orv64s total = exact_sum_of(src, len);
    put_element(mean, scale >= 0 ? mean_shifted_right(total, len, scale) : mean_shifted_left(total, len, scale));
    return orvOk;
}
