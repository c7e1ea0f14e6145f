// dst = ln src, 10 log10 src; the sum of logarithms.
#include "orvs/arith.h"

#include <limits>

#include "frame/checks.h"
#include "frame/float_state.h"
#include "frame/map.h"
#include "simd/convert.h"
#include "simd/lanes.h"
#include "vmath/double_double.h"
#include "vmath/ln.h"
#include "vmath/vmath.h"

using namespace ORV_VARIANT;

namespace {

/// The status of a kernel's code.
OrvStatus ln_status(int code)
{
    if (code == 0) return orvOk;
    return code == ln_of_zero ? orvWrnLnOfZero : orvWrnLnOfNegative;
}

} // namespace

// ---- Floating point

OrvStatus orvsLn_32f(const Orv32f* src, Orv32f* dst, int len)
{
    if (const OrvStatus bad = check(len, src, dst)) return bad;
    return ln_status(orvsLn_32f_A21(src, dst, len));
}
OrvStatus orvsLn_32f_I(Orv32f* srcDst, int len) { return orvsLn_32f(srcDst, srcDst, len); }

OrvStatus orvsLn_64f(const Orv64f* src, Orv64f* dst, int len)
{
    if (const OrvStatus bad = check(len, src, dst)) return bad;
    return ln_status(orvsLn_64f_A53(src, dst, len));
}
OrvStatus orvsLn_64f_I(Orv64f* srcDst, int len) { return orvsLn_64f(srcDst, srcDst, len); }

OrvStatus orvsLn_64f32f(const Orv64f* src, Orv32f* dst, int len)
{
    if (const OrvStatus bad = check(len, src, dst)) return bad;
    return ln_status(own_orvs_dsLn_S9LAynn(src, dst, len));
}

// ---- Integers: vectors of estimates, and for those that may round either way something better

namespace {

/// What the logarithms have in common: factor * ln x.
struct Ln {
    static constexpr DoubleDouble factor = {1};

    static DoubleDouble exactly(Orv32s x) { return ln_exactly(x); }
};
struct Decibel {
    static constexpr DoubleDouble factor = {0x1.15f2ced384f29p+2, -0x1.02bea6b55233cp-53}; // 10 / ln 10

    /// Powers of ten have whole results, which may be halfway between two when they are scaled down.
    static DoubleDouble exactly(Orv32s x)
    {
        Orv64f whole = 0;
        for (; x % 10 == 0; x /= 10) whole += 10;
        if (x == 1) return {whole};
        return ln_exactly(x) * factor + DoubleDouble{whole};
    }
};

/// The result for one x > 0.
template <class Function>
[[gnu::noinline]] Orv32s scaled_logarithm(Orv32s x, Orv64f power, Orv32s limit)
{
    const auto parts = ln_parts(splat(Orv64f(x)));
    const DoubleDouble y = scaled(quick_sum(first(parts.high), first(parts.low)) * Function::factor, power);
    const DoubleDouble error = {y.high * 0x1p-56};
    const Orv64s lower = round_to_integer(y + -error, limit), upper = round_to_integer(y + error, limit);
    if (lower == upper) return Orv32s(upper);
    return Orv32s(round_to_integer(scaled(Function::exactly(x), power), limit));
}

/// The first element of src that has no logarithm decides; 0 if there is none.
template <class T>
[[gnu::noinline, gnu::cold]] int code_of_first(const T* src, int n)
{
    for (int i = 0; i < n; ++i) {
        const T x = element_at(src + i);
        if (x <= 0) return x == 0 ? ln_of_zero : ln_of_negative;
    }
    return 0;
}

/// The code of a block: as a rule no element is below 1.
template <class T>
ORV_INLINE int code_of(const T* src, int n)
{
    constexpr int N = vec<T>::N;
    if (n < N) return code_of_first(src, n);
    const auto one = splat(T(1));
    auto below = is_greater(one, load(src + n - N));
    for (int i = 0; i < n - N; i += N) below = below | is_greater(one, load(src + i));
    return any_bit(below) ? code_of_first(src, n) : 0;
}

/// dst = op(src), op on vectors; returns the code of the first element that has no logarithm. In blocks, because src
/// may be dst and is looked at first.
template <class Op, class S, class D>
ORV_INLINE int map_logarithm(Op op, const S* src, D* dst, int len)
{
    constexpr int block = 1 << 12;
    const StandardState state;
    int code = 0;
    for (int at = 0, n; at < len; at += n) {
        n = len - at < block ? len - at : block;
        if (code == 0) code = code_of(src + at, n);
        map(op, dst + at, n, src + at);
    }
    return code;
}

/// Some results of a vector again, which stood between two integers too closely.
template <class Function>
[[gnu::noinline, gnu::cold]] vec<Orv32s> decide(vec<Orv32s> x, vec<Orv32s> unsure, vec<Orv32s> result, Orv64f power,
                                                Orv32s limit)
{
    Orv32s arguments[8], marks[8], results[8];
    store(arguments, x), store(marks, unsure), store(results, result);
    for (int i = 0; i < 8; ++i) {
        if (marks[i] < 0) results[i] = scaled_logarithm<Function>(arguments[i], power, limit);
    }
    return load(results);
}

/// Eight results of at most limit, which is below 2^16, by estimates in single precision.
template <class Function>
struct Narrow {
    Orv64f power;

    ORV_INLINE vec<Orv32s> operator()(vec<Orv32s> x) const
    {
        constexpr Orv32s limit = max_of<Orv16s>;
        const auto y = min(splat(Orv32f(limit)), Ln32<Level::LA>()(to_float(x)) * splat(Orv32f(power)));
        const auto rounded = to_nearest(y);
        // A distance above 1/2 less the error of y may be one above 1/2.
        const auto sure = fnma(y, splat(0x1p-21f), splat(0.5f));
        const auto positive = is_greater(x, splat(0));
        const auto unsure = as<Orv32s>(is_not_within(magnitude(y - rounded), sure)) & positive;
        auto result = to_32s(rounded);
        if (any_sign(unsure)) [[unlikely]]
            result = decide<Function>(x, unsure, result, power, limit);
        return blend(positive, result, splat(min_of<Orv32s>));
    }
};

/// Eight results of up to 31 bits, by estimates in double precision.
template <class Function>
struct Wide {
    Orv64f power;

    ORV_INLINE vec<Orv32s> operator()(vec<Orv32s> x) const
    {
        constexpr Orv32s limit = max_of<Orv32s>;
        const auto factor = splat(Function::factor.high * power), highest = splat(Orv64f(limit));
        const auto half = [=](vec<Orv32s, 4> v) ORV_INLINE_LAMBDA {
            const auto y = min(highest, Ln64<Level::LA>()(convert_to<Orv64f>(v)) * factor);
            const auto rounded = to_nearest(y);
            const auto sure = fnma(y, splat(0x1p-50), splat(0.5));
            return vec<Orv64f, 8>{rounded, is_not_within(magnitude(y - rounded), sure)};
        };
        const auto low = half(low_half(x)), high = half(high_half(x));
        const auto positive = is_greater(x, splat(0));
        const auto unsure = cross_quarters(odd_lanes(as<Orv32s>(low.high), as<Orv32s>(high.high))) & positive;
        auto result = join(to_32s(low.low), to_32s(high.low));
        if (any_sign(unsure)) [[unlikely]]
            result = decide<Function>(x, unsure, result, power, limit);
        return blend(positive, result, splat(min_of<Orv32s>));
    }
};

/// How many of the bounds an element reaches: ln x rounded, as the bounds are e^(k + 1/2) rounded up.
template <int count, class T>
ORV_INLINE vec<T> count_reached(vec<T> x, const T (&bounds)[count])
{
    auto n = splat(T(0));
    repeat<count>([&](auto k) ORV_INLINE_LAMBDA { n = n - is_greater(x, splat(T(bounds[k] - 1))); });
    return blend(is_greater(x, splat(T(0))), n, splat(min_of<T>));
}
constexpr Orv16s bounds_16s[] = {2, 5, 13, 34, 91, 245, 666, 1809, 4915, 13360};
constexpr Orv32s bounds_32s[] = {2,       5,       13,       34,       91,        245,       666,
                                 1809,    4915,    13360,    36316,    98716,     268338,    729417,
                                 1982760, 5389699, 14650720, 39824785, 108254988, 294267567, 799902178};

/// 2^-scale, as far as it makes a difference: at the ends all results but 0 saturate, or all are 0.
Orv64f bounded_power(int scale, int lowest, int highest)
{
    return power_of_two<Orv64f>(scale < lowest ? lowest : scale > highest ? highest : scale);
}

} // namespace

ORV_KERNEL int ownorvsLn_16s(const Orv16s* src, Orv16s* dst, int len, int scale)
{
    if (scale == 0) {
        return map_logarithm([](auto x) ORV_INLINE_LAMBDA { return count_reached(x, bounds_16s); }, src, dst, len);
    }
    const Narrow<Ln> ln = {bounded_power(scale, -16, 8)};
    return map_logarithm(
        [=](auto x) ORV_INLINE_LAMBDA {
            return saturate_to<Orv16s>(join(ln(convert_to<Orv32s>(low_half(x))), ln(convert_to<Orv32s>(high_half(x)))));
        },
        src, dst, len);
}
OrvStatus orvsLn_16s_Sfs(const Orv16s* src, Orv16s* dst, int len, int scale)
{
    if (const OrvStatus bad = check(len, src, dst)) return bad;
    return ln_status(ownorvsLn_16s(src, dst, len, scale));
}
OrvStatus orvsLn_16s_ISfs(Orv16s* srcDst, int len, int scale) { return orvsLn_16s_Sfs(srcDst, srcDst, len, scale); }

ORV_KERNEL int ownorvsLn_32s16s(const Orv32s* src, Orv16s* dst, int len, int scale)
{
    const Narrow<Ln> ln = {bounded_power(scale, -16, 8)};
    return map_logarithm([=](auto x) ORV_INLINE_LAMBDA { return saturate_to<Orv16s>(join(ln(x.low), ln(x.high))); },
                         src, dst, len);
}
OrvStatus orvsLn_32s16s_Sfs(const Orv32s* src, Orv16s* dst, int len, int scale)
{
    if (const OrvStatus bad = check(len, src, dst)) return bad;
    return ln_status(ownorvsLn_32s16s(src, dst, len, scale));
}

ORV_KERNEL int ownorvsLn_32s(const Orv32s* src, Orv32s* dst, int len, int scale)
{
    if (scale == 0) {
        return map_logarithm([](auto x) ORV_INLINE_LAMBDA { return count_reached(x, bounds_32s); }, src, dst, len);
    }
    return map_logarithm(Wide<Ln>{bounded_power(scale, -33, 8)}, src, dst, len);
}
OrvStatus orvsLn_32s_Sfs(const Orv32s* src, Orv32s* dst, int len, int scale)
{
    if (const OrvStatus bad = check(len, src, dst)) return bad;
    return ln_status(ownorvsLn_32s(src, dst, len, scale));
}
OrvStatus orvsLn_32s_ISfs(Orv32s* srcDst, int len, int scale) { return orvsLn_32s_Sfs(srcDst, srcDst, len, scale); }

// ---- 10Log10

ORV_KERNEL int ownorvs10Log10_32s(const Orv32s* src, Orv32s* dst, int len, int scale)
{
    return map_logarithm(Wide<Decibel>{bounded_power(scale, -33, 9)}, src, dst, len);
}
OrvStatus orvs10Log10_32s_Sfs(const Orv32s* src, Orv32s* dst, int len, int scale)
{
    if (const OrvStatus bad = check(len, src, dst)) return bad;
    return ln_status(ownorvs10Log10_32s(src, dst, len, scale));
}
OrvStatus orvs10Log10_32s_ISfs(Orv32s* srcDst, int len, int scale)
{
    return orvs10Log10_32s_Sfs(srcDst, srcDst, len, scale);
}

// ---- SumLn

namespace {

/// The sum of n elements: four sums, of the elements whose places are alike modulo 4, added from the first to the last.
template <class T>
ORV_INLINE Orv64f sum_of_block(const T* x, int n)
{
    auto sums = splat(0.0);
    int i = 0;
    for (; i <= n - 4; i += 4) sums = sums + convert_to<Orv64f>(load<T, 4>(x + i));
    Orv64f lanes[4];
    store(lanes, sums);
    for (int k = 0; i < n; ++i, ++k) lanes[k] += element_at(x + i);
    return ((lanes[0] + lanes[1]) + lanes[2]) + lanes[3];
}

/// kernel(src, logarithms, n) for blocks of up to 512 elements; Log is the type of the logarithms.
template <class Log, class S, class Kernel>
ORV_INLINE OrvStatus sum_logarithms(const S* src, int len, Orv64f& sum, Kernel kernel)
{
    constexpr int block = 512;
    constexpr Orv64f infinity = std::numeric_limits<Orv64f>::infinity(), nan = std::numeric_limits<Orv64f>::quiet_NaN();
    Log logarithms[block];
    sum = 0;
    for (int at = 0, n; at < len; at += n) {
        n = len - at < block ? len - at : block;
        const int code = kernel(src + at, logarithms, n);
        if (code == ln_of_zero) return sum = infinity, orvWrnLnOfZero;
        if (code == ln_of_negative) return sum = nan, orvWrnLnOfNegative;
        sum += sum_of_block(logarithms, n);
        if (sum != sum) return sum = -nan, orvOk; // one of the elements was a not-a-number
    }
    return orvOk;
}

template <class Log, class S, class D, class Kernel>
ORV_INLINE OrvStatus sum_form(const S* src, int len, D* sum, Kernel kernel)
{
    if (const OrvStatus bad = check(len, src, sum)) return bad;
    const StandardState state; // for the conversion to D too
    Orv64f result;
    const OrvStatus status = sum_logarithms<Log>(src, len, result, kernel);
    put_element(sum, D(result));
    return status;
}

int ln_of_16s(const Orv16s* src, Orv32f* dst, int n)
{
    map([](auto x) ORV_INLINE_LAMBDA { return convert_to<Orv32f>(x); }, dst, n, src);
    return orvsLn_32f_A21(dst, dst, n);
}

} // namespace

OrvStatus orvsSumLn_32f(const Orv32f* src, int len, Orv32f* sum)
{
    return sum_form<Orv32f>(src, len, sum, orvsLn_32f_A21);
}
OrvStatus orvsSumLn_64f(const Orv64f* src, int len, Orv64f* sum)
{
    return sum_form<Orv64f>(src, len, sum, orvsLn_64f_A53);
}
OrvStatus orvsSumLn_32f64f(const Orv32f* src, int len, Orv64f* sum)
{
    return sum_form<Orv64f>(src, len, sum, own_orvs_sdLn_S9LAynn);
}
OrvStatus orvsSumLn_16s32f(const Orv16s* src, int len, Orv32f* sum)
{
    return sum_form<Orv32f>(src, len, sum, ln_of_16s);
}
