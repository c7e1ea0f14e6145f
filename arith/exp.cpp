// dst = e^src.
#include "orvs/arith.h"

#include <limits>

#include "frame/checks.h"
#include "frame/fill.h"
#include "frame/float_state.h"
#include "frame/map.h"
#include "simd/lanes.h"
#include "simd/saturate.h"
#include "vmath/double_double.h"
#include "vmath/exp.h"
#include "vmath/vmath.h"

using namespace ORV_VARIANT;

// ---- Floating point

OrvStatus orvsExp_32f(const Orv32f* src, Orv32f* dst, int len)
{
    if (const OrvStatus bad = check(len, src, dst)) return bad;
    orvsExp_32f_A21(src, dst, len);
    return orvOk;
}
OrvStatus orvsExp_32f_I(Orv32f* srcDst, int len) { return orvsExp_32f(srcDst, srcDst, len); }

OrvStatus orvsExp_64f(const Orv64f* src, Orv64f* dst, int len)
{
    if (const OrvStatus bad = check(len, src, dst)) return bad;
    orvsExp_64f_A52(src, dst, len);
    return orvOk;
}
OrvStatus orvsExp_64f_I(Orv64f* srcDst, int len) { return orvsExp_64f(srcDst, srcDst, len); }

OrvStatus orvsExp_32f64f(const Orv32f* src, Orv64f* dst, int len)
{
    if (const OrvStatus bad = check(len, src, dst)) return bad;
    own_orvs_sdExp_S9LAynn(src, dst, len);
    return orvOk;
}

// ---- Integers. At one scale few arguments give neither 0 nor the largest value: those are a table.

namespace {

/// The results for the arguments first, first + 1 ...: 0 for all below, the limit for all above.
template <int size>
struct Results {
    Orv64s first;
    Orv64s at[size];
};

/// Rounds e^x * 2^-scale, for which (high + low) * 2^exponent is known to 2^-58; at most limit.
Orv64s round_result(Orv64s x, int scale, DoubleDouble e, Orv64s exponent, Orv64s limit)
{
    if (exponent - scale > 64) return limit;
    if (exponent - scale < -2) return 0;
    const auto result = [=](DoubleDouble mantissa, Orv64s n) {
        return scaled(mantissa, power_of_two<Orv64f>(int(scale - n)));
    };
    const DoubleDouble y = result(e, exponent), error = {y.high * 0x1p-56};
    const Orv64s lower = round_to_integer(y + -error, limit), upper = round_to_integer(y + error, limit);
    if (lower == upper) return upper;
    const WideFloat wide = exp_exactly({Orv64f(x)});
    return round_to_integer(result(wide.mantissa, wide.exponent), limit);
}

/// The table for a scale; `lowest` and `highest` are those of the arguments' type.
template <int size>
[[gnu::noinline]] void make_results(Results<size>& results, int scale, Orv64s limit, Orv64s lowest, Orv64s highest)
{
    // 2^(scale - 1) is half the least result other than 0.
    Orv64f first_x = first(to_nearest(splat((Orv64f(scale) - 1) * 0x1.62e42fefa39efp-1))) - 1;
    first_x = first_x < Orv64f(lowest) ? Orv64f(lowest) : first_x > Orv64f(highest) ? Orv64f(highest) : first_x;
    results.first = Orv64s(first_x);
    for (int i = 0; i < size; i += 4) {
        const vec<Orv64f> x = {_mm256_add_pd(_mm256_set1_pd(first_x), _mm256_setr_pd(i, i + 1, i + 2, i + 3))};
        const auto e = exp_parts<Level::HA>(x);
        Orv64f high[4], low[4], n[4];
        store(high, e.high);
        store(low, e.low);
        store(n, e.shifted - splat(magic<Orv64f>));
        for (int k = 0; k < 4; ++k) {
            const DoubleDouble mantissa = quick_sum(high[k], low[k]);
            results.at[i + k] = round_result(results.first + i + k, scale, mantissa, Orv64s(n[k]), limit);
        }
    }
}

} // namespace

ORV_KERNEL void ownorvsExp_16s(const Orv16s* src, Orv16s* dst, int len, int scale)
{
    const StandardState state;
    // From the last argument with the result 0 to the first with 32767 is less than ln(2^16) + 3.
    Results<16> results;
    make_results(results, scale, 32767, -32768, 32767);
    byte_pattern low, high;
    for (int i = 0; i < 16; ++i) low.byte[i] = Orv8u(results.at[i]), high.byte[i] = Orv8u(results.at[i] >> 8);
    const auto low_bytes = twice(low), high_bytes = twice(high);
    const auto first_x = splat(Orv16s(results.first));
    map(
        [=](auto x) ORV_INLINE_LAMBDA {
            const auto i = min(max(sub_sat(x, first_x), splat(Orv16s(0))), splat(Orv16s(15)));
            // The lower byte of each lane from one table, the upper byte from the other.
            const auto lower = shuffle_bytes(low_bytes, as<Orv8u>(i | splat(min_of<Orv16s>)));
            const auto upper = shuffle_bytes(high_bytes, as<Orv8u>(shift_left_by<8>(i) | splat(Orv16s(0x80))));
            return as<Orv16s>(lower | upper);
        },
        dst, len, src);
}
OrvStatus orvsExp_16s_Sfs(const Orv16s* src, Orv16s* dst, int len, int scale)
{
    if (const OrvStatus bad = check(len, src, dst)) return bad;
    ownorvsExp_16s(src, dst, len, scale);
    return orvOk;
}
OrvStatus orvsExp_16s_ISfs(Orv16s* srcDst, int len, int scale) { return orvsExp_16s_Sfs(srcDst, srcDst, len, scale); }

namespace {

/// size covers the arguments from the last with the result 0 to the first with the limit.
template <int size, class T>
[[gnu::noinline]] void look_up_results(const T* src, T* dst, int len, int scale)
{
    const StandardState state;
    Results<size> results;
    make_results(results, scale, max_of<T>, min_of<T>, max_of<T>);
    for (int i = 0; i < len; ++i) {
        const Orv64s x = element_at(src + i);
        const Orv64s below = results.first, above = below + (size - 1); // no overflow: |first| < 2^31
        put_element(dst + i, T(results.at[(x < below ? below : x > above ? above : x) - below]));
    }
}

} // namespace

OrvStatus orvsExp_32s_Sfs(const Orv32s* src, Orv32s* dst, int len, int scale)
{
    if (const OrvStatus bad = check(len, src, dst)) return bad;
    if (scale > 31) return zero(dst, len);
    look_up_results<28>(src, dst, len, scale);
    return orvOk;
}
OrvStatus orvsExp_32s_ISfs(Orv32s* srcDst, int len, int scale) { return orvsExp_32s_Sfs(srcDst, srcDst, len, scale); }

OrvStatus orvsExp_64s_Sfs(const Orv64s* src, Orv64s* dst, int len, int scale)
{
    if (const OrvStatus bad = check(len, src, dst)) return bad;
    look_up_results<48>(src, dst, len, scale);
    return orvOk;
}
OrvStatus orvsExp_64s_ISfs(Orv64s* srcDst, int len, int scale) { return orvsExp_64s_Sfs(srcDst, srcDst, len, scale); }
