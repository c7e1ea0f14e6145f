// Inner products.
#include "orvs/stats.h"

#include "frame/checks.h"
#include "frame/float_state.h"
#include "stats/float_chains.h"
#include "stats/integer_sums.h"
#include "stats/results.h"

using namespace ORV_VARIANT;

namespace {

// ---- In T, which is float or double

template <class T, class A, class B>
auto product_sum(const A* src1, const B* src2, int len)
{
    using Complex = complex_of<T>;
    if constexpr (std::is_class_v<A>) {
        const auto sums = reduce<3, ComplexProducts<T>>(len, src1, src2);
        const auto same = sum_by_parity(sums.same);
        return Complex{same.even - same.odd, sum_of_lanes(sums.cross)};
    } else if constexpr (std::is_class_v<B>) {
        const auto sums = sum_by_parity(reduce<4, Products<T, true>>(len, src1, src2).sum);
        return Complex{sums.even, sums.odd};
    } else {
        return reduce<4, Products<T>>(len, src1, src2).total();
    }
}

/// T is the type of the result.
template <class D, class A, class B>
OrvStatus dot(const A* src1, const B* src2, int len, D* dp)
{
    if (const OrvStatus bad = check(len, src1, src2, dp)) return bad;
    put_element(dp, product_sum<value_of<D>>(src1, src2, len));
    return orvOk;
}

/// Of 32-bit integers, in double precision.
template <class D, class A, class B>
OrvStatus dot_in_doubles(const A* src1, const B* src2, int len, D* dp, int scale)
{
    if (const OrvStatus bad = check(len, src1, src2, dp)) return bad;
    const IntegerState state;
    const Orv64f factor = power_of_two<Orv64f>(scale < -31 ? -31 : scale > 93 ? 93 : scale);
    put_parts(dp, product_sum<Orv64f>(src1, src2, inside_state(len)), [=](Orv64f sum) {
        constexpr Orv64f least = -2147483648.0, most = 2147483647.0;
        const Orv64f x = sum * factor;
        return Orv32s(to_nearest(splat(x < least ? least : x > most ? most : x)).r[0]);
    });
    return orvOk;
}

// ---- Of 16-bit integers, exact

Orv64s exact_dot(const Orv16s* src1, const Orv16s* src2, int len)
{
    return exact_total<ProductSums16>(len, src1, src2);
}
Orv64sc exact_dot(const Orv16s* src1, const Orv16sc* src2, int len)
{
    const auto sums = sum_by_parity(exact_totals<RealComplexSums>(len, src1, src2));
    return {sums.even, sums.odd};
}
Orv64sc exact_dot(const Orv16sc* src1, const Orv16sc* src2, int len)
{
    const auto totals = exact_totals<ComplexSums16>(len, src1, src2);
    const auto same = sum_by_parity(totals.even);
    return {same.even - same.odd, sum_of_lanes(totals.odd)};
}

/// *dp = make(the sum), part by part.
template <class Make, class D, class A, class B>
OrvStatus integer_dot(Make make, const A* src1, const B* src2, int len, D* dp)
{
    if (const OrvStatus bad = check(len, src1, src2, dp)) return bad;
    put_parts(dp, exact_dot(src1, src2, len), make);
    return orvOk;
}

constexpr auto as_it_is = [](Orv64s sum) { return sum; };
constexpr auto as_float = [](Orv64s sum) { return Orv32f(sum); };

template <class D, class A, class B>
OrvStatus scaled_dot(const A* src1, const B* src2, int len, D* dp, int scale)
{
    return integer_dot([=](Orv64s sum) { return scaled_total<value_of<D>>(sum, scale); }, src1, src2, len, dp);
}

} // namespace

OrvStatus orvsDotProd_16s16sc32fc(const Orv16s* src1, const Orv16sc* src2, int len, Orv32fc* dp)
{
    return integer_dot(as_float, src1, src2, len, dp);
}
OrvStatus orvsDotProd_16s16sc32sc_Sfs(const Orv16s* src1, const Orv16sc* src2, int len, Orv32sc* dp, int scale)
{
    return scaled_dot(src1, src2, len, dp, scale);
}
OrvStatus orvsDotProd_16s16sc64sc(const Orv16s* src1, const Orv16sc* src2, int len, Orv64sc* dp)
{
    return integer_dot(as_it_is, src1, src2, len, dp);
}
OrvStatus orvsDotProd_16s16sc_Sfs(const Orv16s* src1, const Orv16sc* src2, int len, Orv16sc* dp, int scale)
{
    return scaled_dot(src1, src2, len, dp, scale);
}
OrvStatus orvsDotProd_16s32f(const Orv16s* src1, const Orv16s* src2, int len, Orv32f* dp)
{
    return integer_dot(as_float, src1, src2, len, dp);
}
OrvStatus orvsDotProd_16s32s32s_Sfs(const Orv16s* src1, const Orv32s* src2, int len, Orv32s* dp, int scale)
{
    return dot_in_doubles(src1, src2, len, dp, scale);
}
OrvStatus orvsDotProd_16s32s_Sfs(const Orv16s* src1, const Orv16s* src2, int len, Orv32s* dp, int scale)
{
    return scaled_dot(src1, src2, len, dp, scale);
}
OrvStatus orvsDotProd_16s64s(const Orv16s* src1, const Orv16s* src2, int len, Orv64s* dp)
{
    return integer_dot(as_it_is, src1, src2, len, dp);
}
OrvStatus orvsDotProd_16s_Sfs(const Orv16s* src1, const Orv16s* src2, int len, Orv16s* dp, int scale)
{
    return scaled_dot(src1, src2, len, dp, scale);
}
OrvStatus orvsDotProd_16sc32fc(const Orv16sc* src1, const Orv16sc* src2, int len, Orv32fc* dp)
{
    return integer_dot(as_float, src1, src2, len, dp);
}
OrvStatus orvsDotProd_16sc32sc_Sfs(const Orv16sc* src1, const Orv16sc* src2, int len, Orv32sc* dp, int scale)
{
    return scaled_dot(src1, src2, len, dp, scale);
}
OrvStatus orvsDotProd_16sc64sc(const Orv16sc* src1, const Orv16sc* src2, int len, Orv64sc* dp)
{
    return integer_dot(as_it_is, src1, src2, len, dp);
}
OrvStatus orvsDotProd_16sc_Sfs(const Orv16sc* src1, const Orv16sc* src2, int len, Orv16sc* dp, int scale)
{
    return scaled_dot(src1, src2, len, dp, scale);
}
OrvStatus orvsDotProd_32f(const Orv32f* src1, const Orv32f* src2, int len, Orv32f* dp)
{
    return dot(src1, src2, len, dp);
}
OrvStatus orvsDotProd_32f32fc(const Orv32f* src1, const Orv32fc* src2, int len, Orv32fc* dp)
{
    return dot(src1, src2, len, dp);
}
OrvStatus orvsDotProd_32f32fc64fc(const Orv32f* src1, const Orv32fc* src2, int len, Orv64fc* dp)
{
    return dot(src1, src2, len, dp);
}
OrvStatus orvsDotProd_32f64f(const Orv32f* src1, const Orv32f* src2, int len, Orv64f* dp)
{
    return dot(src1, src2, len, dp);
}
OrvStatus orvsDotProd_32fc(const Orv32fc* src1, const Orv32fc* src2, int len, Orv32fc* dp)
{
    return dot(src1, src2, len, dp);
}
OrvStatus orvsDotProd_32fc64fc(const Orv32fc* src1, const Orv32fc* src2, int len, Orv64fc* dp)
{
    return dot(src1, src2, len, dp);
}
OrvStatus orvsDotProd_32s32sc_Sfs(const Orv32s* src1, const Orv32sc* src2, int len, Orv32sc* dp, int scale)
{
    return dot_in_doubles(src1, src2, len, dp, scale);
}
OrvStatus orvsDotProd_32s_Sfs(const Orv32s* src1, const Orv32s* src2, int len, Orv32s* dp, int scale)
{
    return dot_in_doubles(src1, src2, len, dp, scale);
}
OrvStatus orvsDotProd_32sc_Sfs(const Orv32sc* src1, const Orv32sc* src2, int len, Orv32sc* dp, int scale)
{
    return dot_in_doubles(src1, src2, len, dp, scale);
}
OrvStatus orvsDotProd_64f(const Orv64f* src1, const Orv64f* src2, int len, Orv64f* dp)
{
    return dot(src1, src2, len, dp);
}
OrvStatus orvsDotProd_64f64fc(const Orv64f* src1, const Orv64fc* src2, int len, Orv64fc* dp)
{
    return dot(src1, src2, len, dp);
}
OrvStatus orvsDotProd_64fc(const Orv64fc* src1, const Orv64fc* src2, int len, Orv64fc* dp)
{
    return dot(src1, src2, len, dp);
}
