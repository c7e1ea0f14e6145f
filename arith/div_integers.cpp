// Integer quotients: dst = src2 / src1, rounded to nearest or as told; dst = val / src.
#include "orvs/arith.h"

#include <type_traits>

#include "arith/complex.h"
#include "arith/quotients.h"
#include "frame/checks.h"
#include "frame/fill.h"
#include "frame/float_state.h"
#include "frame/map.h"
#include "frame/team.h"

using namespace ORV_VARIANT;

namespace {

// ---- One vector of quotients a / b, where no b is zero

/// The operation for lanes of T, and the floating type that holds its operands.
template <class T>
using working_type = std::conditional_t<sizeof(T) < 4, Orv32f, Orv64f>;

template <class Q>
ORV_INLINE vec<Orv32s> by_doubles(Q q, vec<Orv32s> a, vec<Orv32s> b)
{
    const auto x = convert_to<Orv64f>(a), y = convert_to<Orv64f>(b);
    return join(to_32s(q(x.low, q.divisor(y.low))), to_32s(q(x.high, q.divisor(y.high))));
}

template <class Q, class T>
ORV_INLINE vec<T> quotients(Q q, vec<T> a, vec<T> b)
{
    if constexpr (sizeof(T) == 4) {
        return by_doubles(q, a, b);
    } else {
        return by_floats([=](auto x, auto y) ORV_INLINE_LAMBDA { return to_32s(q(x, q.divisor(y))); }, a, b);
    }
}
template <class Q>
ORV_INLINE vec<Orv16s> quotients(Q q, vec<Orv32s, 16> a, vec<Orv16s> b)
{
    const auto divisors = convert_to<Orv32s>(b);
    return saturate_to<Orv16s>(join(by_doubles(q, a.low, divisors.low), by_doubles(q, a.high, divisors.high)));
}

// ---- The loops. Each returns whether a divisor was zero.

/// The dividend as far as its sign tells: lanes of the destination's type.
template <class T>
ORV_INLINE vec<T> sign_of_dividend(vec<T> a)
{
    return a;
}
ORV_INLINE vec<Orv16s> sign_of_dividend(vec<Orv32s, 16> a) { return saturate_to<Orv16s>(a); }

template <class Op, class D, class B, class A>
ORV_INLINE int map_divided(Op op, const B* src1, const A* src2, D* dst, int len)
{
    Seen zeros;
    map(
        [=, &zeros](auto b, auto a) ORV_INLINE_LAMBDA {
            const auto is_zero = is_equal(b, splat(B(0)));
            zeros.add(is_zero);
            return op(a, b, is_zero);
        },
        dst, len, src1, src2);
    return zeros.any();
}

template <OrvRoundMode mode, bool close, class D, class B, class A>
ORV_INLINE int divide_at(const B* src1, const A* src2, D* dst, int len, int scale)
{
    using F = working_type<A>;
    const ScaledQuotient<F, mode, close> q(scale, F(min_of<D>), F(max_of<D>));
    const IntegerState state;
    return map_divided(
        [=](auto a, auto b, auto is_zero) ORV_INLINE_LAMBDA {
            const auto result = quotients(q, a, b - is_zero); // 1 in place of 0
            return with_zero_divisors(is_zero, sign_of_dividend(a), result);
        },
        src1, src2, dst, len);
}

template <OrvRoundMode mode, class D, class B, class A>
ORV_INLINE int divide(const B* src1, const A* src2, D* dst, int len, int scale)
{
    const int lowest_close = lowest_close_scale<working_type<A>>(bits_of<A>);
    if (scale >= lowest_close) return divide_at<mode, true>(src1, src2, dst, len, scale);
    return divide_at<mode, false>(src1, src2, dst, len, scale);
}

/// Where every quotient other than 0 saturates, by the signs of the operands.
template <class D, class B, class A>
ORV_KERNEL int divide_to_limits(const B* src1, const A* src2, D* dst, int len)
{
    return map_divided(
        [](auto a, [[maybe_unused]] auto b, auto) ORV_INLINE_LAMBDA {
            const auto dividend = sign_of_dividend(a);
            const auto is_nothing = is_equal(dividend, splat(D(0)));
            if constexpr (std::is_signed_v<D>) return and_not(is_nothing, limit_by_sign(dividend ^ b));
            else return ~is_nothing;
        },
        src1, src2, dst, len);
}

/// Where every quotient rounds to 0, if the divisor is not zero.
template <class D, class B, class A>
ORV_KERNEL int divide_to_zero(const B* src1, const A* src2, D* dst, int len)
{
    return map_divided([](auto a, auto, auto is_zero)
                           ORV_INLINE_LAMBDA { return is_zero & sign_limit(sign_of_dividend(a)); },
                       src1, src2, dst, len);
}

/// The scales between which a body divides, and the length from which a team does it.
struct Roads {
    int lowest, highest, threshold;
    TeamSize size = TeamSize::two;
};

/// The roads of a body after its checks. how: the arguments of the kernel that follow the length.
template <auto kernel, class D, class B, class A, class... How>
ORV_INLINE OrvStatus choose_road(Roads roads, int scale, const B* src1, const A* src2, D* dst, int len, How... how)
{
    if (scale < roads.lowest) return division_status(divide_to_limits(src1, src2, dst, len));
    if (scale > roads.highest) return division_status(divide_to_zero(src1, src2, dst, len));
    if (len < roads.threshold) return division_status(kernel(src1, src2, dst, len, how...));
    return division_status(on_team(roads.size, len, [=](int first, int count) {
        return kernel(src1 + first, src2 + first, dst + first, count, how...);
    }));
}

constexpr int never = max_of<int>; // a threshold that keeps a body on the calling thread

} // namespace

// ---- Div

ORV_KERNEL int ownorvsDiv_8u(const Orv8u* src1, const Orv8u* src2, Orv8u* dst, int len, int scale)
{
    return divide<orvRndNear>(src1, src2, dst, len, scale);
}
OrvStatus orvsDiv_8u_Sfs(const Orv8u* src1, const Orv8u* src2, Orv8u* dst, int len, int scale)
{
    if (const OrvStatus bad = check(len, src1, src2, dst)) return bad;
    return choose_road<ownorvsDiv_8u>({-15, 8, 1024}, scale, src1, src2, dst, len, scale);
}
OrvStatus orvsDiv_8u_ISfs(const Orv8u* src, Orv8u* srcDst, int len, int scale)
{
    return orvsDiv_8u_Sfs(src, srcDst, srcDst, len, scale);
}

ORV_KERNEL int ownps_Div_16u_Sfs(const Orv16u* src1, const Orv16u* src2, Orv16u* dst, int len, int scale)
{
    return divide<orvRndNear>(src1, src2, dst, len, scale);
}
/// Far below zero every dividend over a divisor other than zero gives 65535, a zero as well: the interface's choice.
ORV_KERNEL int divide_16u_to_limits(const Orv16u* src1, const Orv16u* src2, Orv16u* dst, int len)
{
    return map_divided([](auto a, auto, auto is_zero)
                           ORV_INLINE_LAMBDA { return and_not(is_zero, splat(Orv16u(-1))) | sign_limit(a); },
                       src1, src2, dst, len);
}
OrvStatus orvsDiv_16u_Sfs(const Orv16u* src1, const Orv16u* src2, Orv16u* dst, int len, int scale)
{
    if (const OrvStatus bad = check(len, src1, src2, dst)) return bad;
    if (scale < -31) return division_status(divide_16u_to_limits(src1, src2, dst, len));
    return choose_road<ownps_Div_16u_Sfs>({-31, 16, never}, scale, src1, src2, dst, len, scale);
}
OrvStatus orvsDiv_16u_ISfs(const Orv16u* src, Orv16u* srcDst, int len, int scale)
{
    return orvsDiv_16u_Sfs(src, srcDst, srcDst, len, scale);
}

ORV_KERNEL int ownorvsDiv_16s(const Orv16s* src1, const Orv16s* src2, Orv16s* dst, int len, int scale)
{
    return divide<orvRndNear>(src1, src2, dst, len, scale);
}
OrvStatus orvsDiv_16s_Sfs(const Orv16s* src1, const Orv16s* src2, Orv16s* dst, int len, int scale)
{
    if (const OrvStatus bad = check(len, src1, src2, dst)) return bad;
    return choose_road<ownorvsDiv_16s>({-30, 15, 1024}, scale, src1, src2, dst, len, scale);
}
OrvStatus orvsDiv_16s_ISfs(const Orv16s* src, Orv16s* srcDst, int len, int scale)
{
    return orvsDiv_16s_Sfs(src, srcDst, srcDst, len, scale);
}

ORV_KERNEL int ownorvsDiv_32s(const Orv32s* src1, const Orv32s* src2, Orv32s* dst, int len, int scale)
{
    return divide<orvRndNear>(src1, src2, dst, len, scale);
}
OrvStatus orvsDiv_32s_Sfs(const Orv32s* src1, const Orv32s* src2, Orv32s* dst, int len, int scale)
{
    if (const OrvStatus bad = check(len, src1, src2, dst)) return bad;
    return choose_road<ownorvsDiv_32s>({-62, 32, 1024}, scale, src1, src2, dst, len, scale);
}
OrvStatus orvsDiv_32s_ISfs(const Orv32s* src, Orv32s* srcDst, int len, int scale)
{
    return orvsDiv_32s_Sfs(src, srcDst, srcDst, len, scale);
}

ORV_KERNEL int ownorvsDiv_32s16s(const Orv16s* src1, const Orv32s* src2, Orv16s* dst, int len, int scale)
{
    return divide<orvRndNear>(src1, src2, dst, len, scale);
}
OrvStatus orvsDiv_32s16s_Sfs(const Orv16s* src1, const Orv32s* src2, Orv16s* dst, int len, int scale)
{
    if (const OrvStatus bad = check(len, src1, src2, dst)) return bad;
    return choose_road<ownorvsDiv_32s16s>({-29, 31, 1024}, scale, src1, src2, dst, len, scale);
}

// ---- Div of complex integers

namespace {

template <bool close>
ORV_INLINE int divide_complex_at(const Orv16s* src1, const Orv16s* src2, Orv16s* dst, int parts, int scale)
{
    const ScaledQuotient<Orv64f, orvRndNear, close> q(scale, min_of<Orv16s>, max_of<Orv16s>);
    const IntegerState state;
    Seen zeros;
    map<2>(
        [=, &zeros](auto b, auto a) ORV_INLINE_LAMBDA {
            const auto is_zero = is_equal(as<Orv32s>(b), splat(Orv32s(0)));
            zeros.add(is_zero);
            const auto squares = norms(b, splat(Orv32s(0)) - is_zero); // 1 in place of 0
            return with_zero_divisors(as<Orv16s>(is_zero), a,
                                      complex_quotients(q, a, b, q.divisor(squares.low), q.divisor(squares.high)));
        },
        dst, parts, src1, src2);
    return zeros.any();
}

} // namespace

ORV_KERNEL int ownorvsDiv_16sc(const Orv16sc* src1, const Orv16sc* src2, Orv16sc* dst, int len, int scale)
{
    int zero_divisors = 0;
    for_parts(len, [&](std::ptrdiff_t at, int n) ORV_INLINE_LAMBDA {
        const int within = limited_complex_scale(scale);
        zero_divisors |= within >= lowest_close_scale<Orv64f>(32)
                             ? divide_complex_at<true>(parts(src1) + at, parts(src2) + at, parts(dst) + at, n, within)
                             : divide_complex_at<false>(parts(src1) + at, parts(src2) + at, parts(dst) + at, n, within);
        return orvOk;
    });
    return zero_divisors;
}
OrvStatus orvsDiv_16sc_Sfs(const Orv16sc* src1, const Orv16sc* src2, Orv16sc* dst, int len, int scale)
{
    if (const OrvStatus bad = check(len, src1, src2, dst)) return bad;
    if (scale > 64) return zero(dst, len); // and no look at the divisors
    const auto kernel = [=](int first, int count) {
        return ownorvsDiv_16sc(src1 + first, src2 + first, dst + first, count, scale);
    };
    return division_status(len < 256 ? kernel(0, len) : on_team(TeamSize::two, len, kernel));
}
OrvStatus orvsDiv_16sc_ISfs(const Orv16sc* src, Orv16sc* srcDst, int len, int scale)
{
    return orvsDiv_16sc_Sfs(src, srcDst, srcDst, len, scale);
}

// ---- Div_Round

namespace {

template <class T>
ORV_INLINE int divide_by_mode(const T* src1, const T* src2, T* dst, int len, OrvRoundMode mode, int scale)
{
    if (mode == orvRndZero) return divide<orvRndZero>(src1, src2, dst, len, scale);
    if (mode == orvRndNear) return divide<orvRndNear>(src1, src2, dst, len, scale);
    return divide<orvRndFinancial>(src1, src2, dst, len, scale);
}

template <class T>
ORV_INLINE OrvStatus check_rounding(const T* src1, const T* src2, const T* dst, int len, OrvRoundMode mode)
{
    if (const OrvStatus bad = check(len, src1, src2, dst)) return bad;
    if (mode != orvRndZero && mode != orvRndNear && mode != orvRndFinancial) return orvErrBadRoundMode;
    return orvOk;
}

} // namespace

ORV_KERNEL int ownorvsDiv_Round_8u(const Orv8u* src1, const Orv8u* src2, Orv8u* dst, int len, OrvRoundMode mode,
                                   int scale)
{
    return divide_by_mode(src1, src2, dst, len, mode, scale);
}
OrvStatus orvsDiv_Round_8u_Sfs(const Orv8u* src1, const Orv8u* src2, Orv8u* dst, int len, OrvRoundMode rndMode,
                               int scale)
{
    if (const OrvStatus bad = check_rounding(src1, src2, dst, len, rndMode)) return bad;
    return choose_road<ownorvsDiv_Round_8u>({-30, 16, 512, TeamSize::all}, scale, src1, src2, dst, len, rndMode, scale);
}
OrvStatus orvsDiv_Round_8u_ISfs(const Orv8u* src, Orv8u* srcDst, int len, OrvRoundMode rndMode, int scale)
{
    return orvsDiv_Round_8u_Sfs(src, srcDst, srcDst, len, rndMode, scale);
}

ORV_KERNEL int ownorvsDiv_Round_16u(const Orv16u* src1, const Orv16u* src2, Orv16u* dst, int len, OrvRoundMode mode,
                                    int scale)
{
    return divide_by_mode(src1, src2, dst, len, mode, scale);
}
OrvStatus orvsDiv_Round_16u_Sfs(const Orv16u* src1, const Orv16u* src2, Orv16u* dst, int len, OrvRoundMode rndMode,
                                int scale)
{
    if (const OrvStatus bad = check_rounding(src1, src2, dst, len, rndMode)) return bad;
    return choose_road<ownorvsDiv_Round_16u>({-30, 16, 1024, TeamSize::all}, scale, src1, src2, dst, len, rndMode,
                                             scale);
}
OrvStatus orvsDiv_Round_16u_ISfs(const Orv16u* src, Orv16u* srcDst, int len, OrvRoundMode rndMode, int scale)
{
    return orvsDiv_Round_16u_Sfs(src, srcDst, srcDst, len, rndMode, scale);
}

ORV_KERNEL int ownorvsDiv_Round_16s(const Orv16s* src1, const Orv16s* src2, Orv16s* dst, int len, OrvRoundMode mode,
                                    int scale)
{
    return divide_by_mode(src1, src2, dst, len, mode, scale);
}
OrvStatus orvsDiv_Round_16s_Sfs(const Orv16s* src1, const Orv16s* src2, Orv16s* dst, int len, OrvRoundMode rndMode,
                                int scale)
{
    if (const OrvStatus bad = check_rounding(src1, src2, dst, len, rndMode)) return bad;
    return choose_road<ownorvsDiv_Round_16s>({-30, 16, 1024, TeamSize::all}, scale, src1, src2, dst, len, rndMode,
                                             scale);
}
OrvStatus orvsDiv_Round_16s_ISfs(const Orv16s* src, Orv16s* srcDst, int len, OrvRoundMode rndMode, int scale)
{
    return orvsDiv_Round_16s_Sfs(src, srcDst, srcDst, len, rndMode, scale);
}

// ---- DivCRev

ORV_KERNEL int ownorvsDivCRev_16u(const Orv16u* src, Orv16u val, Orv16u* dst, int len)
{
    const ScaledQuotient<Orv32f, orvRndNear, true> q(0, 0, max_of<Orv16u>);
    const auto dividend = splat(val);
    const IntegerState state;
    Seen zeros;
    map(
        [=, &zeros](auto b) ORV_INLINE_LAMBDA {
            const auto is_zero = is_equal(b, splat(Orv16u(0)));
            zeros.add(is_zero);
            return with_zero_divisors(is_zero, dividend, quotients(q, dividend, b - is_zero));
        },
        dst, len, src);
    return zeros.any();
}
OrvStatus orvsDivCRev_16u(const Orv16u* src, Orv16u val, Orv16u* dst, int len)
{
    if (const OrvStatus bad = check(len, src, dst)) return bad;
    const auto kernel = [=](int first, int count) { return ownorvsDivCRev_16u(src + first, val, dst + first, count); };
    return division_status(len < 2048 ? kernel(0, len) : on_team(TeamSize::two, len, kernel));
}
OrvStatus orvsDivCRev_16u_I(Orv16u val, Orv16u* srcDst, int len) { return orvsDivCRev_16u(srcDst, val, srcDst, len); }
