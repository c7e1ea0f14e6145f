// dst = src / val and dst = val / src.
#include "orvs/arith.h"

#include "tests/arith/caller_state.h"
#include "tests/arith/large.h"
#include "tests/arith/quotients.h"

#include <gtest/gtest.h>

namespace orvtest {
namespace {

// ---- What is wanted

/// x / val of integers; unsigned words below the range become their limit even where x is 0.
template <class T>
T wanted(const T& x, const T& val, int scale)
{
    if constexpr (Complex<T>) {
        return complex_quotient(x, val, scale);
    } else {
        if (std::is_same_v<T, Orv16u> && scale < -31 && val != 0) return std::numeric_limits<T>::max();
        return quotient<T>(x, val, scale);
    }
}

/// As an oracle of either shape; a refused call leaves the destination as it was.
template <class T>
struct Wanted {
    int scale;

    T operator()(const T& x, const T& val, const T& before) const
    {
        return is_zero(val) ? before : wanted(x, val, scale);
    }
    T operator()(const T& val, const T& x) const { return is_zero(val) ? x : wanted(x, val, scale); }
};

/// A product that is rounded before its sign may change: inlined, the compiler would negate a factor instead, which is
/// another number where rounding is directed.
template <class T>
[[gnu::noinline]] T rounded_product(T a, T b)
{
    return a * b;
}

/// x * (1 / val), each operation rounded. A complex product is formed by two fused operations.
struct ByReciprocal {
    template <class T>
    static T product(const T& x, const T& val)
    {
        if constexpr (Complex<T>) {
            const auto s = 1 / std::fma(val.re, val.re, val.im * val.im);
            const auto re = val.re * s, im = -rounded_product(s, val.im);
            return {std::fma(x.re, re, -rounded_product(x.im, im)), std::fma(im, x.re, x.im * re)};
        } else {
            return x * (1 / val);
        }
    }
    template <class T>
    static bool refused(const T& val)
    {
        if constexpr (Complex<T>) return std::fma(val.re, val.re, val.im * val.im) == 0;
        else return val == 0;
    }

    template <class T>
    T operator()(const T& x, const T& val, const T& before) const
    {
        return refused(val) ? before : product(x, val);
    }
    template <class T>
    T operator()(const T& val, const T& x) const
    {
        return refused(val) ? x : product(x, val);
    }
};

/// val / x as an oracle of either shape.
struct IntegerReverse {
    Orv16u operator()(Orv16u x, Orv16u val, Orv16u) const { return quotient<Orv16u>(val, x, 0); }
    Orv16u operator()(Orv16u val, Orv16u x) const { return quotient<Orv16u>(val, x, 0); }
};
struct FloatReverse {
    Orv32f operator()(Orv32f x, Orv32f val, Orv32f) const { return quotient_in_steps(x, val); }
    Orv32f operator()(Orv32f val, Orv32f x) const { return quotient_in_steps(x, val); }
};

/// The status that a sweep wants for a refused scalar.
template <std::size_t scalar, class... Args>
Call<Args...> with_refusal(const Call<Args...>& call)
{
    return {call.name, call.parameters, [call](Args... args, int n) {
                const bool refused = ByReciprocal::refused(std::get<scalar>(std::tuple(args...)));
                return told(call, call.function(args..., n), refused ? orvErrDivisorZero : orvOk, n);
            }};
}

// ---- Sweeps

template <std::size_t scalar, class... Args>
bool sweep_scales(const Export<OrvStatus, Args...>& f, int lowest, int highest)
{
    for (const int scale : scales_between(lowest, highest)) {
        const SweepOptions options = lengths_at_scale(scale, {INT_MIN, -33, -16, 16, INT_MAX});
        const Wanted<DestinationElement<Args...>> element = {scale};
        if (!sweep_elements(with_zeros<scalar>(f.with(scale), orvErrDivisorZero), element, options)) return false;
    }
    return true;
}

TEST(DivC_8u_Sfs, exact) { EXPECT_TRUE(sweep_scales<1>(ORV_EXPORT(orvsDivC_8u_Sfs), -18, 12)); }
TEST(DivC_8u_ISfs, exact) { EXPECT_TRUE(sweep_scales<0>(ORV_EXPORT(orvsDivC_8u_ISfs), -18, 12)); }
TEST(DivC_16u_Sfs, exact) { EXPECT_TRUE(sweep_scales<1>(ORV_EXPORT(orvsDivC_16u_Sfs), -35, 20)); }
TEST(DivC_16u_ISfs, exact) { EXPECT_TRUE(sweep_scales<0>(ORV_EXPORT(orvsDivC_16u_ISfs), -35, 20)); }
TEST(DivC_16s_Sfs, exact) { EXPECT_TRUE(sweep_scales<1>(ORV_EXPORT(orvsDivC_16s_Sfs), -35, 20)); }
TEST(DivC_16s_ISfs, exact) { EXPECT_TRUE(sweep_scales<0>(ORV_EXPORT(orvsDivC_16s_ISfs), -35, 20)); }
TEST(DivC_16sc_Sfs, exact) { EXPECT_TRUE(sweep_scales<1>(ORV_EXPORT(orvsDivC_16sc_Sfs), -40, 68)); }
TEST(DivC_16sc_ISfs, exact) { EXPECT_TRUE(sweep_scales<0>(ORV_EXPORT(orvsDivC_16sc_ISfs), -40, 68)); }

/// Division by 0 is not refused here: signs become limits.
TEST(DivC_64s_ISfs, exact)
{
    const auto f = ORV_EXPORT(orvsDivC_64s_ISfs);
    for (const int scale : scales_between(-130, 130)) {
        const auto element = [scale](const Orv64s& val, const Orv64s& x) { return quotient<Orv64s>(x, val, scale); };
        const SweepOptions options = lengths_at_scale(scale, {INT_MIN, -64, -16, 16, 63, 64, INT_MAX});
        ASSERT_TRUE(sweep_elements(with_zeros<0>(f.with(scale)), element, options));
    }
}

TEST(DivC_32f, by_the_reciprocal)
{
    const auto f = ORV_EXPORT(orvsDivC_32f);
    EXPECT_TRUE(sweep_elements(with_refusal<1>(f.with()), ByReciprocal(), family_lengths()));
}
TEST(DivC_32f_I, by_the_reciprocal)
{
    const auto f = ORV_EXPORT(orvsDivC_32f_I);
    EXPECT_TRUE(sweep_elements(with_refusal<0>(f.with()), ByReciprocal(), family_lengths()));
}
TEST(DivC_32fc, by_the_reciprocal)
{
    const auto f = ORV_EXPORT(orvsDivC_32fc);
    EXPECT_TRUE(sweep_elements(with_refusal<1>(f.with()), ByReciprocal(), family_lengths()));
}
TEST(DivC_32fc_I, by_the_reciprocal)
{
    const auto f = ORV_EXPORT(orvsDivC_32fc_I);
    EXPECT_TRUE(sweep_elements(with_refusal<0>(f.with()), ByReciprocal(), family_lengths()));
}
TEST(DivC_64f, by_the_reciprocal)
{
    const auto f = ORV_EXPORT(orvsDivC_64f);
    EXPECT_TRUE(sweep_elements(with_refusal<1>(f.with()), ByReciprocal(), family_lengths()));
}
TEST(DivC_64f_I, by_the_reciprocal)
{
    const auto f = ORV_EXPORT(orvsDivC_64f_I);
    EXPECT_TRUE(sweep_elements(with_refusal<0>(f.with()), ByReciprocal(), family_lengths()));
}
TEST(DivC_64fc, by_the_reciprocal)
{
    const auto f = ORV_EXPORT(orvsDivC_64fc);
    EXPECT_TRUE(sweep_elements(with_refusal<1>(f.with()), ByReciprocal(), family_lengths()));
}
TEST(DivC_64fc_I, by_the_reciprocal)
{
    const auto f = ORV_EXPORT(orvsDivC_64fc_I);
    EXPECT_TRUE(sweep_elements(with_refusal<0>(f.with()), ByReciprocal(), family_lengths()));
}

TEST(DivCRev_16u, exact)
{
    const auto f = ORV_EXPORT(orvsDivCRev_16u);
    EXPECT_TRUE(sweep_elements(with_zeros<0>(f.with()), IntegerReverse(), family_lengths()));
}
TEST(DivCRev_16u_I, exact)
{
    const auto f = ORV_EXPORT(orvsDivCRev_16u_I);
    EXPECT_TRUE(sweep_elements(with_zeros<1>(f.with()), IntegerReverse(), family_lengths()));
}
TEST(DivCRev_32f, the_steps)
{
    const auto f = ORV_EXPORT(orvsDivCRev_32f);
    EXPECT_TRUE(sweep_elements(with_zeros<0>(f.with()), FloatReverse(), family_lengths()));
}
TEST(DivCRev_32f_I, the_steps)
{
    const auto f = ORV_EXPORT(orvsDivCRev_32f_I);
    EXPECT_TRUE(sweep_elements(with_zeros<1>(f.with()), FloatReverse(), family_lengths()));
}

// ---- Either shape as one: f(src, val, dst, n)

template <class T>
using ScalarDivision = Call<const T*, T, T*>;

template <class T, class... Last>
ScalarDivision<T> scalar_division(const Export<OrvStatus, const T*, T, T*, int, Last...>& f,
                                  std::type_identity_t<Last>... last)
{
    return f.with(last...);
}
template <class T, class... Last>
ScalarDivision<T> scalar_division(const Export<OrvStatus, T, T*, int, Last...>& f, std::type_identity_t<Last>... last)
{
    const auto call = f.with(last...);
    return {call.name, call.parameters, [call](const T* src, T val, T* dst, int n) {
                if (n > 0) std::copy_n(src, n, dst);
                return call.function(val, dst, n);
            }};
}

/// The result for one pair of operands, which is the same at each place of vectors of several lengths.
template <class T>
T result_of_one(const ScalarDivision<T>& f, std::type_identity_t<T> x, std::type_identity_t<T> val,
                OrvStatus status = orvOk)
{
    T first = {};
    for (const std::size_t n : {std::size_t{1}, std::size_t{7}, std::size_t{40}, std::size_t{300}}) {
        const std::vector<T> src(n, x);
        std::vector<T> d(n);
        EXPECT_EQ(f.function(src.data(), val, d.data(), static_cast<int>(n)), status)
            << f.name << " (" << f.parameters << ")";
        if (n == 1) first = d[0];
        EXPECT_EQ(first_difference(element_type<T>(), d.data(), std::vector<T>(n, first).data(), n), n)
            << f.name << " (" << f.parameters << ") is not the same at each place of " << n;
    }
    return first;
}

/// Compares with element(x, val) in one call.
template <class T, class Element>
bool expect_quotients(const ScalarDivision<T>& f, const std::vector<T>& src, T val, const Element& element,
                      OrvStatus status = orvOk)
{
    std::vector<T> results(src.size());
    EXPECT_EQ(f.function(src.data(), val, results.data(), static_cast<int>(src.size())), status)
        << f.name << " (" << f.parameters << ")";
    for (std::size_t i = 0; i < src.size(); ++i) {
        const T want = element(src[i], val);
        if (same_element(element_type<T>(), &results[i], &want)) continue;
        ADD_FAILURE() << f.name << " (" << f.parameters << ") of " << element_text(element_type<T>(), &src[i])
                      << " and " << element_text(element_type<T>(), &val) << " is "
                      << element_text(element_type<T>(), &results[i]) << ", not "
                      << element_text(element_type<T>(), &want);
        return false;
    }
    return true;
}

// ---- Order of checks

/// Pointers, then the length, then the scalar; also where the scale alone decides the results.
template <class T, class... Args>
void expect_scalar_checked_last(const Export<OrvStatus, Args...>& f, const std::vector<T>& scalars, auto... scale)
{
    constexpr std::size_t scalar_index = std::is_pointer_v<std::tuple_element_t<0, std::tuple<Args...>>> ? 1 : 0;
    for (const T& scalar : scalars) {
        ArgumentChecks checks(f, scalar, 4, scale...);
        std::ignore = checks.null_pointers().bad_lengths();
        checks.run();
    }
    // A zero scalar is found by a call of its own: messages cannot show complex scalars.
    std::vector<T> src(20, T{}), before = src;
    const auto call = [&](const T* source, T val, T* dst, int n) {
        if constexpr (scalar_index == 1) return f(source, val, dst, n, scale...);
        else return f(val, source != nullptr ? dst : nullptr, n, scale...);
    };
    std::memset(static_cast<void*>(src.data()), 0x33, src.size() * sizeof(T));
    before = src;
    std::vector<T> dst = src;
    expect_value(f, Orv32s{call(src.data(), T{}, dst.data(), 20)}, orvErrDivisorZero);
    expect_elements(f, dst, before);
    EXPECT_EQ(call(src.data(), T{}, dst.data(), 0), orvErrBadLength);
    EXPECT_EQ(call(src.data(), T{}, dst.data(), -1), orvErrBadLength);
    EXPECT_EQ(call(src.data(), T{}, nullptr, 20), orvErrNullPointer);
    EXPECT_EQ(call(src.data(), T{}, nullptr, 0), orvErrNullPointer);
    EXPECT_EQ(call(nullptr, T{}, dst.data(), 20), orvErrNullPointer);
    EXPECT_EQ(call(nullptr, T{}, dst.data(), 0), orvErrNullPointer);
    expect_elements(f, dst, before);
}

TEST(DivC, checks_pointers_then_length_then_scalar)
{
    for (const int scale : {INT_MIN, -100, -32, -31, -30, -16, -15, -1, 0, 1, 8, 9, 15, 16, 17, 65, INT_MAX}) {
        expect_scalar_checked_last<Orv8u>(ORV_EXPORT(orvsDivC_8u_Sfs), {1, 2, 255}, scale);
        expect_scalar_checked_last<Orv8u>(ORV_EXPORT(orvsDivC_8u_ISfs), {1, 2, 255}, scale);
        expect_scalar_checked_last<Orv16u>(ORV_EXPORT(orvsDivC_16u_Sfs), {1, 2, 65535}, scale);
        expect_scalar_checked_last<Orv16u>(ORV_EXPORT(orvsDivC_16u_ISfs), {1, 2, 65535}, scale);
        expect_scalar_checked_last<Orv16s>(ORV_EXPORT(orvsDivC_16s_Sfs), {1, 2, -1}, scale);
        expect_scalar_checked_last<Orv16s>(ORV_EXPORT(orvsDivC_16s_ISfs), {1, 2, -1}, scale);
        expect_scalar_checked_last<Orv16sc>(ORV_EXPORT(orvsDivC_16sc_Sfs), {{1, 0}, {0, -1}, {5, 7}}, scale);
        expect_scalar_checked_last<Orv16sc>(ORV_EXPORT(orvsDivC_16sc_ISfs), {{1, 0}, {0, -1}, {5, 7}}, scale);
    }
    expect_scalar_checked_last<Orv32f>(ORV_EXPORT(orvsDivC_32f), {1, -3});
    expect_scalar_checked_last<Orv32f>(ORV_EXPORT(orvsDivC_32f_I), {1, -3});
    expect_scalar_checked_last<Orv32fc>(ORV_EXPORT(orvsDivC_32fc), {{1, 0}, {0, 5}});
    expect_scalar_checked_last<Orv32fc>(ORV_EXPORT(orvsDivC_32fc_I), {{1, 0}, {0, 5}});
    expect_scalar_checked_last<Orv64f>(ORV_EXPORT(orvsDivC_64f), {1, -3});
    expect_scalar_checked_last<Orv64f>(ORV_EXPORT(orvsDivC_64f_I), {1, -3});
    expect_scalar_checked_last<Orv64fc>(ORV_EXPORT(orvsDivC_64fc), {{1, 0}, {0, 5}});
    expect_scalar_checked_last<Orv64fc>(ORV_EXPORT(orvsDivC_64fc_I), {{1, 0}, {0, 5}});
}

/// Zeros of either sign, and complex scalars whose norm vanishes.
TEST(DivC, of_floats_refuses_all_zeros)
{
    const auto refuses = []<class T>(const ScalarDivision<T>& f, const T& val) {
        const std::vector<T> src(9, T{});
        std::vector<T> dst(9);
        return f.function(src.data(), val, dst.data(), 9) == orvErrDivisorZero;
    };
    const Orv32f least32 = std::numeric_limits<Orv32f>::denorm_min();
    const Orv64f least64 = std::numeric_limits<Orv64f>::denorm_min();
    EXPECT_TRUE(refuses(scalar_division(ORV_EXPORT(orvsDivC_32f)), -0.0f));
    EXPECT_TRUE(refuses(scalar_division(ORV_EXPORT(orvsDivC_64f)), -0.0));
    EXPECT_FALSE(refuses(scalar_division(ORV_EXPORT(orvsDivC_32f)), least32));
    EXPECT_FALSE(refuses(scalar_division(ORV_EXPORT(orvsDivC_64f)), -least64));
    for (const Orv32fc& val : {Orv32fc{-0.0f, 0}, {0, -0.0f}, {least32, 0}, {1e-25f, -1e-25f}})
        EXPECT_TRUE(refuses(scalar_division(ORV_EXPORT(orvsDivC_32fc)), val)) << val.re;
    for (const Orv64fc& val : {Orv64fc{-0.0, -0.0}, {0, least64}, {1e-180, 1e-180}})
        EXPECT_TRUE(refuses(scalar_division(ORV_EXPORT(orvsDivC_64fc)), val)) << val.re;
    EXPECT_FALSE(refuses(scalar_division(ORV_EXPORT(orvsDivC_32fc)), Orv32fc{0, 1e-20f}));
    EXPECT_FALSE(refuses(scalar_division(ORV_EXPORT(orvsDivC_64fc)), Orv64fc{1e-150, 0}));
}

/// Scales that decide alone: the source is looked at first, then what a fill looks at.
TEST(DivC_16u_Sfs, fills_check_for_themselves)
{
    const auto f = ORV_EXPORT(orvsDivC_16u_Sfs);
    for (const int scale : {17, 18, 100, INT_MAX, -32, -33, -100, INT_MIN}) {
        const Orv16u fill = scale > 0 ? 0 : 65535;
        const std::vector<Orv16u> src = {0, 1, 2, 30000, 65535};
        std::vector<Orv16u> dst(5, 77);
        EXPECT_EQ(f(src.data(), 2, dst.data(), 0, scale), orvErrBadLength) << scale;
        EXPECT_EQ(f(src.data(), 2, dst.data(), -5, scale), orvErrBadLength) << scale;
        EXPECT_EQ(f(src.data(), 2, nullptr, 5, scale), orvErrNullPointer) << scale;
        EXPECT_EQ(f(nullptr, 2, dst.data(), 5, scale), orvErrNullPointer) << scale;
        EXPECT_EQ(f(nullptr, 2, dst.data(), 0, scale), orvErrNullPointer) << scale;
        EXPECT_EQ(f(src.data(), 0, dst.data(), 0, scale), orvErrBadLength) << scale;
        EXPECT_EQ(f(src.data(), 0, dst.data(), 5, scale), orvErrDivisorZero) << scale;
        expect_elements(f, dst, std::vector<Orv16u>(5, 77));
        EXPECT_EQ(f(src.data(), 2, dst.data(), 5, scale), orvOk) << scale;
        expect_elements(f, dst, std::vector<Orv16u>(5, fill));
        dst = src;
        EXPECT_EQ(orvsDivC_16u_ISfs(1, dst.data(), 5, scale), orvOk) << scale;
        expect_elements(f, dst, std::vector<Orv16u>(5, fill));
    }
    const std::vector<Orv16u> src = {0, 1, 2, 30000, 65535};
    std::vector<Orv16u> dst(5, 77);
    EXPECT_EQ(f(src.data(), 1, dst.data(), 5, 0), orvOk);
    expect_elements(f, dst, src);
    EXPECT_EQ(f(src.data(), 1, dst.data(), 0, 0), orvErrBadLength);
    EXPECT_EQ(f(nullptr, 1, dst.data(), 0, 0), orvErrNullPointer);
}

TEST(DivC_64s_ISfs, refuses_a_null_pointer_and_then_only_the_length_0)
{
    const auto f = ORV_EXPORT(orvsDivC_64s_ISfs);
    for (const int scale : {INT_MIN, -64, -1, 0, 1, 63, 64, 65, INT_MAX})
        for (const Orv64s val : {1, 7, -1, 0})
            ArgumentChecks(f, val, 4, scale).null_pointers().bad<2>(0, orvErrBadLength).run();

    const std::vector<Orv64s> before = {1, -2, 3, 0, 5, -6, 7, 8, 9, 10};
    GuardedArray<Orv64s> d(before);
    for (const int length : {-1, -2, -4, -8, -1000, INT_MIN + 1, INT_MIN})
        for (const int scale : {INT_MIN, -64, -1, 0, 1, 63, 64, 65, INT_MAX}) {
            EXPECT_EQ(f(7, d.data(), length, scale), orvOk) << length << ", scale " << scale;
            EXPECT_EQ(f(1, d.data(), length, scale), orvOk) << length << ", scale " << scale;
            EXPECT_EQ(f(0, d.data(), length, scale), orvWrnDivByZero) << length << ", scale " << scale;
            EXPECT_TRUE(expect_elements(f, d, before)) << length << ", scale " << scale;
            EXPECT_EQ(f(7, nullptr, length, scale), orvErrNullPointer) << length;
        }
}

TEST(DivCRev, checks_pointers_before_length)
{
    for (const Orv16u val : {Orv16u{0}, Orv16u{5}}) {
        expect_pointers_before_length(ORV_EXPORT(orvsDivCRev_16u), val, 4);
        expect_pointers_before_length(ORV_EXPORT(orvsDivCRev_16u_I), val, 4);
        expect_pointers_before_length(ORV_EXPORT(orvsDivCRev_32f), static_cast<Orv32f>(val), 4);
        expect_pointers_before_length(ORV_EXPORT(orvsDivCRev_32f_I), static_cast<Orv32f>(val), 4);
    }
}

// ---- Notable quotients

TEST(DivC, of_narrow_integers_in_numbers)
{
    const auto of_16s = [](int scale) { return scalar_division(ORV_EXPORT(orvsDivC_16s_Sfs), scale); };
    EXPECT_EQ(result_of_one(of_16s(0), 3, 2), 2);
    EXPECT_EQ(result_of_one(of_16s(0), 5, 2), 2);
    EXPECT_EQ(result_of_one(of_16s(0), -5, 2), -2);
    EXPECT_EQ(result_of_one(of_16s(0), -7, -2), 4);
    EXPECT_EQ(result_of_one(of_16s(0), -32768, -1), 32767);
    EXPECT_EQ(result_of_one(of_16s(1), 15, 3), 2); // 2.5
    EXPECT_EQ(result_of_one(of_16s(-2), 7, 8), 4); // 3.5
    EXPECT_EQ(result_of_one(of_16s(15), -32768, 1), -1);
    EXPECT_EQ(result_of_one(of_16s(16), -32768, 1), 0);
    EXPECT_EQ(result_of_one(of_16s(-29), 1, 32767), 16385); // 16384.5 and 2^-16
    for (const int scale : {-30, -31, -100, INT_MIN}) {
        EXPECT_EQ(result_of_one(of_16s(scale), 0, -5), 0) << scale;
        EXPECT_EQ(result_of_one(of_16s(scale), 1, -32768), -32768) << scale;
        EXPECT_EQ(result_of_one(of_16s(scale), -1, -32768), 32767) << scale;
        EXPECT_EQ(result_of_one(of_16s(scale), -1, 32767), -32768) << scale;
    }
    const auto of_8u = [](int scale) { return scalar_division(ORV_EXPORT(orvsDivC_8u_Sfs), scale); };
    EXPECT_EQ(result_of_one(of_8u(0), 255, 2), 128); // 127.5
    EXPECT_EQ(result_of_one(of_8u(8), 255, 1), 1);
    EXPECT_EQ(result_of_one(of_8u(9), 255, 1), 0);
    EXPECT_EQ(result_of_one(of_8u(-15), 1, 255), 129); // 128.502
    EXPECT_EQ(result_of_one(of_8u(-16), 1, 255), 255);
    EXPECT_EQ(result_of_one(of_8u(-16), 0, 255), 0);
    const auto of_16u = [](int scale) { return scalar_division(ORV_EXPORT(orvsDivC_16u_Sfs), scale); };
    EXPECT_EQ(result_of_one(of_16u(0), 65535, 2), 32768); // 32767.5
    EXPECT_EQ(result_of_one(of_16u(1), 65535, 1), 32768); // the scalar 1 is scaled too
    EXPECT_EQ(result_of_one(of_16u(16), 65535, 1), 1);
    EXPECT_EQ(result_of_one(of_16u(16), 32768, 1), 0); // one half
    EXPECT_EQ(result_of_one(of_16u(-3), 5, 1), 40);
    EXPECT_EQ(result_of_one(of_16u(-31), 0, 65535), 0);
    EXPECT_EQ(result_of_one(of_16u(-31), 1, 65535), 32769); // 32768.5 and 2^-17
    EXPECT_EQ(result_of_one(of_16u(-31), 1, 1), 65535);
    const auto of_16sc = [](int scale) { return scalar_division(ORV_EXPORT(orvsDivC_16sc_Sfs), scale); };
    const auto f = ORV_EXPORT(orvsDivC_16sc_Sfs);
    expect_value(f, result_of_one(of_16sc(0), {7, 24}, {3, 4}), {5, 2});    // 4.68, 1.76
    expect_value(f, result_of_one(of_16sc(-4), {7, 24}, {3, 4}), {75, 28}); // 74.88, 28.16
    expect_value(f, result_of_one(of_16sc(0), {5, 0}, {1, 1}), {2, -2});    // 2.5, -2.5
    expect_value(f, result_of_one(of_16sc(0), {-32768, -32768}, {0, 1}), {-32768, 32767});
    expect_value(f, result_of_one(of_16sc(65), {-32768, -32768}, {0, 1}), {0, 0});
}

TEST(DivC, of_64s_in_numbers)
{
    const auto at = [](int scale) { return scalar_division(ORV_EXPORT(orvsDivC_64s_ISfs), scale); };
    EXPECT_EQ(result_of_one(at(0), INT64_MIN, -1), INT64_MAX);
    EXPECT_EQ(result_of_one(at(0), INT64_MIN, 1), INT64_MIN);
    EXPECT_EQ(result_of_one(at(0), INT64_MIN, INT64_MIN), 1);
    EXPECT_EQ(result_of_one(at(0), INT64_MAX, INT64_MIN), -1);
    EXPECT_EQ(result_of_one(at(0), INT64_MAX, 2), INT64_MAX / 2 + 1); // 2^62 - 1/2
    EXPECT_EQ(result_of_one(at(0), INT64_MIN + 1, 2), INT64_MIN / 2);
    EXPECT_EQ(result_of_one(at(0), 9007199254740993, 1), 9007199254740993); // 2^53 + 1
    EXPECT_EQ(result_of_one(at(0), INT64_MAX, INT64_MAX - 1), 1);
    EXPECT_EQ(result_of_one(at(63), INT64_MIN, 1), -1);
    EXPECT_EQ(result_of_one(at(64), INT64_MIN, 1), 0); // minus one half
    EXPECT_EQ(result_of_one(at(63), INT64_MAX, 1), 1);
    EXPECT_EQ(result_of_one(at(-63), 1, INT64_MIN), -1);
    EXPECT_EQ(result_of_one(at(-126), 1, INT64_MIN), INT64_MIN);
    EXPECT_EQ(result_of_one(at(-126), 1, INT64_MAX), INT64_MAX);
    EXPECT_EQ(result_of_one(at(-125), 1, INT64_MAX), (Orv64s{1} << 62) + 1); // 2^62 + 1/2 and a little
    for (const int scale : {INT_MIN, -130, -64, 0, 5, 64, 130, INT_MAX}) {
        EXPECT_EQ(result_of_one(at(scale), 5, 0, orvWrnDivByZero), INT64_MAX) << scale;
        EXPECT_EQ(result_of_one(at(scale), -5, 0, orvWrnDivByZero), INT64_MIN) << scale;
        EXPECT_EQ(result_of_one(at(scale), 0, 0, orvWrnDivByZero), 0) << scale;
    }
}

TEST(DivC, of_floats_rounds_twice)
{
    EXPECT_EQ(result_of_one(scalar_division(ORV_EXPORT(orvsDivC_32f)), 1, 3), 1.0f * (1.0f / 3.0f));
    // 5 * (1 / 5) is 1, but 41 * (1 / 41) is not in Orv32f, nor 49 * (1 / 49) in Orv64f.
    EXPECT_EQ(result_of_one(scalar_division(ORV_EXPORT(orvsDivC_32f)), 41, 41), 41 * (1 / 41.0f));
    EXPECT_NE(result_of_one(scalar_division(ORV_EXPORT(orvsDivC_32f)), 41, 41), 1.0f);
    EXPECT_NE(result_of_one(scalar_division(ORV_EXPORT(orvsDivC_64f)), 49, 49), 1.0);
    expect_value(ORV_EXPORT(orvsDivC_32fc), result_of_one(scalar_division(ORV_EXPORT(orvsDivC_32fc)), {-4, 8}, {0, 2}),
                 {4, 2});
    expect_value(ORV_EXPORT(orvsDivC_64fc), result_of_one(scalar_division(ORV_EXPORT(orvsDivC_64fc)), {-4, 8}, {2, 2}),
                 {1, 3});
}

TEST(DivCRev, in_numbers)
{
    for (const auto& f :
         {scalar_division(ORV_EXPORT(orvsDivCRev_16u)), scalar_division(ORV_EXPORT(orvsDivCRev_16u_I))}) {
        EXPECT_EQ(result_of_one(f, 5, 100), 20);
        EXPECT_EQ(result_of_one(f, 100, 5), 0);
        EXPECT_EQ(result_of_one(f, 2, 5), 2);
        EXPECT_EQ(result_of_one(f, 2, 7), 4);
        EXPECT_EQ(result_of_one(f, 65535, 65534), 1);
        EXPECT_EQ(result_of_one(f, 2, 65535), 32768);
        EXPECT_EQ(result_of_one(f, 65534, 32767), 0); // one half
        EXPECT_EQ(result_of_one(f, 0, 0, orvWrnDivByZero), 0);
        EXPECT_EQ(result_of_one(f, 0, 1, orvWrnDivByZero), 65535);
    }
    constexpr Orv32f infinity = std::numeric_limits<Orv32f>::infinity();
    for (const auto& f :
         {scalar_division(ORV_EXPORT(orvsDivCRev_32f)), scalar_division(ORV_EXPORT(orvsDivCRev_32f_I))}) {
        EXPECT_EQ(result_of_one(f, 4, 1), 0.25f);
        EXPECT_EQ(result_of_one(f, 0, 3, orvWrnDivByZero), infinity);
        EXPECT_EQ(result_of_one(f, -0.0f, 3, orvWrnDivByZero), -infinity);
        EXPECT_EQ(result_of_one(f, -0.0f, -3, orvWrnDivByZero), infinity);
        EXPECT_EQ(result_of_one(f, 0, -infinity, orvWrnDivByZero), -infinity);
        EXPECT_TRUE(std::isnan(result_of_one(f, 0, 0, orvWrnDivByZero)));
        EXPECT_TRUE(std::isnan(result_of_one(f, -0.0f, 0, orvWrnDivByZero)));
        EXPECT_TRUE(std::isnan(result_of_one(f, 0, std::numeric_limits<Orv32f>::quiet_NaN(), orvWrnDivByZero)));
    }
}

/// A zero at each place of vectors in turn.
template <class T, class Element>
void expect_zeros_of_sources_anywhere(const ScalarDivision<T>& f, T val, const Element& element)
{
    for (std::size_t n = 1; n <= 130; n += n < 70 ? 1 : 15) {
        std::vector<T> src;
        for (std::size_t i = 0; i < n; ++i) src.push_back(static_cast<T>(i + 1));
        ASSERT_TRUE(expect_quotients(f, src, val, element));
        for (std::size_t place = 0; place < n; ++place) {
            const T before = std::exchange(src[place], T{0});
            ASSERT_TRUE(expect_quotients(f, src, val, element, orvWrnDivByZero)) << "0 at " << place << " of " << n;
            src[place] = before;
        }
    }
}
TEST(DivCRev, zeros_anywhere)
{
    const auto integer = [](Orv16u x, Orv16u val) { return quotient<Orv16u>(val, x, 0); };
    expect_zeros_of_sources_anywhere(scalar_division(ORV_EXPORT(orvsDivCRev_16u)), Orv16u{777}, integer);
    expect_zeros_of_sources_anywhere(scalar_division(ORV_EXPORT(orvsDivCRev_16u_I)), Orv16u{777}, integer);
    expect_zeros_of_sources_anywhere(scalar_division(ORV_EXPORT(orvsDivCRev_32f)), 7.5f, quotient_in_steps);
    expect_zeros_of_sources_anywhere(scalar_division(ORV_EXPORT(orvsDivCRev_32f_I)), 7.5f, quotient_in_steps);
}

// ---- Sets of operands

template <class T>
struct ScaledQuotient {
    int scale;

    T operator()(const T& x, const T& val) const { return wanted(x, val, scale); }
};

TEST(DivC, of_all_pairs_of_8u)
{
    const std::vector<Orv8u> bytes = all_bytes<Orv8u>();
    for (int scale = -18; scale <= 11; ++scale) {
        const auto f = scalar_division(ORV_EXPORT(orvsDivC_8u_Sfs), scale);
        const auto in_place = scalar_division(ORV_EXPORT(orvsDivC_8u_ISfs), scale);
        for (int val = 1; val < 256; ++val) {
            ASSERT_TRUE(expect_quotients(f, bytes, static_cast<Orv8u>(val), ScaledQuotient<Orv8u>{scale}));
            ASSERT_TRUE(expect_quotients(in_place, bytes, static_cast<Orv8u>(val), ScaledQuotient<Orv8u>{scale}));
        }
    }
}

/// All dividends over some scalars at all scales.
template <class T>
void expect_every_dividend(const Export<OrvStatus, const T*, T, T*, int, int>& f)
{
    const std::vector<T> words = all_words<T>();
    for (const int val : {1, 2, 3, 5, -3, 10, 127, 256, -1000, 4096, 12345, 32767, -32768, -1})
        for (int scale = -33; scale <= 18; ++scale)
            ASSERT_TRUE(
                expect_quotients(scalar_division(f, scale), words, static_cast<T>(val), ScaledQuotient<T>{scale}));
}
TEST(DivC, of_every_dividend_of_16_bits)
{
    expect_every_dividend(ORV_EXPORT(orvsDivC_16s_Sfs));
    expect_every_dividend(ORV_EXPORT(orvsDivC_16u_Sfs));
}

/// Near ties over each scalar, each at every fourth scale.
template <class T>
void expect_near_ties_for_every_scalar(const Export<OrvStatus, const T*, T, T*, int, int>& f, int bits)
{
    constexpr auto most = static_cast<std::uint64_t>(std::numeric_limits<T>::max());
    Random random(5);
    std::vector<T> src(17);
    for (int scale = -32; scale <= 17; ++scale) {
        const auto division_at_scale = scalar_division(f, scale);
        for (int number = 1 + (scale & 3); number < 65536; number += 4) {
            const T val = static_cast<T>(number);
            if (val == 0) continue;
            const std::uint64_t d = magnitude(val), reach = std::min(most, dividends_up_to(d, bits, scale));
            for (T& x : src) {
                const std::uint64_t n = near_dividend(random, d, scale, reach);
                x = static_cast<T>(std::signed_integral<T> && (number & 32) != 0 ? 0 - n : n);
            }
            ASSERT_TRUE(expect_quotients(division_at_scale, src, val, ScaledQuotient<T>{scale}));
        }
    }
}
TEST(DivC, of_16s_near_ties) { expect_near_ties_for_every_scalar(ORV_EXPORT(orvsDivC_16s_Sfs), 15); }
TEST(DivC, of_16u_near_ties) { expect_near_ties_for_every_scalar(ORV_EXPORT(orvsDivC_16u_Sfs), 16); }

TEST(DivC, of_16sc_near_ties)
{
    Random random(6);
    std::vector<Orv16sc> src(40);
    for (int scale = -36; scale <= 66; ++scale) {
        const auto f = scalar_division(ORV_EXPORT(orvsDivC_16sc_Sfs), scale);
        for (int i = 0; i < 300; ++i) {
            const Orv16sc val = coprime_divisor(random);
            for (Orv16sc& x : src) x = near_complex_dividend(random, val, scale);
            ASSERT_TRUE(expect_quotients(f, src, val, ScaledQuotient<Orv16sc>{scale}));
        }
        const std::vector<Orv16s> parts = critical_values<Orv16s>(0, 2, 3);
        std::vector<Orv16sc> critical;
        for (const Orv16s re : parts)
            for (const Orv16s im : {Orv16s{0}, Orv16s{1}, Orv16s{-32768}, Orv16s{32767}, re})
                critical.push_back({re, im});
        std::erase_if(critical, is_zero<Orv16sc>);
        for (const Orv16sc& val : critical)
            ASSERT_TRUE(expect_quotients(f, critical, val, ScaledQuotient<Orv16sc>{scale}));
    }
}

TEST(DivC, of_64s_near_ties_and_critical_pairs)
{
    const std::vector<Orv64s> values = critical_values<Orv64s>(0, 10);
    std::vector<Orv64s> scalars = critical_values<Orv64s>(0, 5, 3);
    Random random(7);
    for (int i = 0; i < 60; ++i) scalars.push_back(static_cast<Orv64s>(random.bits()) >> random.below(63));
    for (int scale = -130; scale <= 130; ++scale) {
        const auto f = scalar_division(ORV_EXPORT(orvsDivC_64s_ISfs), scale);
        for (const Orv64s val : scalars) {
            if (val == 0 || val == INT64_MIN) continue; // its magnitude has no room for the search
            const std::uint64_t d = magnitude(val);
            const std::uint64_t most = std::min(std::uint64_t{INT64_MAX}, dividends_up_to(d, 63, scale));
            std::vector<Orv64s> src;
            for (int k = 0; k < 13; ++k) {
                const auto n = static_cast<Orv64s>(near_dividend(random, d, scale, most));
                src.push_back(k % 2 != 0 ? n : -n);
            }
            ASSERT_TRUE(expect_quotients(f, src, val, ScaledQuotient<Orv64s>{scale}));
        }
        for (const Orv64s val : {std::int64_t{INT64_MIN}, std::int64_t{INT64_MAX}, std::int64_t{1}, std::int64_t{-1},
                                 std::int64_t{3}, std::int64_t{1} << 32, std::int64_t{-1000000007}})
            ASSERT_TRUE(expect_quotients(f, values, Orv64s{val}, ScaledQuotient<Orv64s>{scale}));
    }
}

TEST(DivCRev, of_every_divisor_of_16u)
{
    const std::vector<Orv16u> words = all_words<Orv16u>();
    std::vector<Orv16u> values = {0, 1, 2, 3, 5, 255, 256, 257, 32767, 32768, 32769, 65533, 65534, 65535};
    Random random(8);
    for (int i = 0; i < 150; ++i) values.push_back(static_cast<Orv16u>(random.bits()));
    const auto element = [](Orv16u x, Orv16u val) { return quotient<Orv16u>(val, x, 0); };
    for (const Orv16u val : values)
        ASSERT_TRUE(
            expect_quotients(scalar_division(ORV_EXPORT(orvsDivCRev_16u)), words, val, element, orvWrnDivByZero));
}

TEST(DivCRev, of_32f_is_a_quotient_of_one_dividend)
{
    Random random(9);
    const std::vector<Orv32f> src = inputs<Orv32f>(random, 3000, Floats::any);
    for (const Orv32f val : {1.0f, -3.0f, 0.0f, 1e30f, 1e-38f, 1e-42f, std::numeric_limits<Orv32f>::infinity()}) {
        std::vector<Orv32f> quotients(src.size());
        const std::vector<Orv32f> dividends(src.size(), val);
        orvsDiv_32f(src.data(), dividends.data(), quotients.data(), static_cast<int>(src.size()));
        std::vector<Orv32f> got(src.size());
        EXPECT_EQ(ORV_EXPORT(orvsDivCRev_32f)(src.data(), val, got.data(), static_cast<int>(src.size())),
                  orvWrnDivByZero);
        expect_elements(ORV_EXPORT(orvsDivCRev_32f), got, quotients);
    }
}

// ---- Large arrays

template <std::size_t scalar, class... Args>
void expect_large(const Export<OrvStatus, Args...>& f, int scale)
{
    const Wanted<DestinationElement<Args...>> element = {scale};
    EXPECT_TRUE(check_large(with_zeros<scalar>(f.with(scale), orvErrDivisorZero), element));
}
TEST(DivC, of_large_arrays)
{
    ASSERT_EQ(orvSetNumThreads(2), orvOk);
    for (const int scale : {-40, -3, 0, 2, 70}) {
        expect_large<1>(ORV_EXPORT(orvsDivC_8u_Sfs), scale);
        expect_large<0>(ORV_EXPORT(orvsDivC_8u_ISfs), scale);
        expect_large<1>(ORV_EXPORT(orvsDivC_16u_Sfs), scale);
        expect_large<0>(ORV_EXPORT(orvsDivC_16u_ISfs), scale);
        expect_large<1>(ORV_EXPORT(orvsDivC_16s_Sfs), scale);
        expect_large<0>(ORV_EXPORT(orvsDivC_16s_ISfs), scale);
        expect_large<1>(ORV_EXPORT(orvsDivC_16sc_Sfs), scale);
        expect_large<0>(ORV_EXPORT(orvsDivC_16sc_ISfs), scale);
    }
    EXPECT_TRUE(check_large(with_zeros<0>(ORV_EXPORT(orvsDivCRev_16u).with()), IntegerReverse()));
    EXPECT_TRUE(check_large(with_zeros<1>(ORV_EXPORT(orvsDivCRev_16u_I).with()), IntegerReverse()));
    EXPECT_TRUE(check_large(with_zeros<0>(ORV_EXPORT(orvsDivCRev_32f).with()), FloatReverse()));
    EXPECT_TRUE(check_large(with_zeros<1>(ORV_EXPORT(orvsDivCRev_32f_I).with()), FloatReverse()));
    orvSetNumThreads(1);
    EXPECT_TRUE(check_large(with_refusal<1>(ORV_EXPORT(orvsDivC_32f).with()), ByReciprocal()));
    EXPECT_TRUE(check_large(with_refusal<0>(ORV_EXPORT(orvsDivC_32f_I).with()), ByReciprocal()));
    EXPECT_TRUE(check_large(with_refusal<1>(ORV_EXPORT(orvsDivC_64fc).with()), ByReciprocal()));
}

// ---- The caller's floating-point state

template <class T, class... Args>
void expect_in_any_state(const Export<OrvStatus, Args...>& f, const std::vector<T>& scalars, Exceptions exceptions)
{
    Random random(10);
    const std::vector<T> src = inputs<T>(random, 150);
    for (const int scale : {-32, -16, -3, 0, 1, 5, 17})
        for (const T& val : scalars) {
            const auto call = scalar_division(f, scale);
            std::vector<T> want;
            for (const T& x : src) want.push_back(wanted(x, val, scale));
            const auto function = [&](T* d, int n) { return call.function(src.data(), val, d, n); };
            expect_the_same_in_any_state(call.name, want, orvOk, function, exceptions);
        }
}
void expect_integers_in_any_state(Exceptions exceptions)
{
    const std::vector<Orv16sc> complex = {{1, 0}, {0, -3}, {181, 4}, {-32768, 32767}};
    expect_in_any_state<Orv8u>(ORV_EXPORT(orvsDivC_8u_Sfs), {1, 2, 3, 7, 100, 255}, exceptions);
    expect_in_any_state<Orv8u>(ORV_EXPORT(orvsDivC_8u_ISfs), {1, 2, 3, 7, 100, 255}, exceptions);
    expect_in_any_state<Orv16u>(ORV_EXPORT(orvsDivC_16u_Sfs), {1, 2, 3, 7, 1000, 65535}, exceptions);
    expect_in_any_state<Orv16u>(ORV_EXPORT(orvsDivC_16u_ISfs), {1, 2, 3, 7, 1000, 65535}, exceptions);
    expect_in_any_state<Orv16s>(ORV_EXPORT(orvsDivC_16s_Sfs), {1, 2, -3, 7, 1000, -32768}, exceptions);
    expect_in_any_state<Orv16s>(ORV_EXPORT(orvsDivC_16s_ISfs), {1, 2, -3, 7, 1000, -32768}, exceptions);
    expect_in_any_state<Orv16sc>(ORV_EXPORT(orvsDivC_16sc_Sfs), complex, exceptions);
    expect_in_any_state<Orv16sc>(ORV_EXPORT(orvsDivC_16sc_ISfs), complex, exceptions);
    expect_in_any_state<Orv64s>(ORV_EXPORT(orvsDivC_64s_ISfs), {1, 2, -3, 1000, INT64_MIN, INT64_MAX}, exceptions);

    constexpr Orv16u val = 55555;
    std::vector<Orv16u> src, want;
    for (int x = 1; x < 400; ++x) src.push_back(static_cast<Orv16u>(x * 37));
    for (const Orv16u x : src) want.push_back(quotient<Orv16u>(val, x, 0));
    std::vector<Orv16u> src_with_zero = src, want_with_zero = want;
    src_with_zero[200] = 0;
    want_with_zero[200] = 65535;
    for (const auto& f :
         {scalar_division(ORV_EXPORT(orvsDivCRev_16u)), scalar_division(ORV_EXPORT(orvsDivCRev_16u_I))}) {
        const auto call = [&](Orv16u* d, int n) { return f.function(src.data(), val, d, n); };
        expect_the_same_in_any_state(f.name, want, orvOk, call, exceptions);
        const auto with_zero = [&](Orv16u* d, int n) { return f.function(src_with_zero.data(), val, d, n); };
        expect_the_same_in_any_state(f.name, want_with_zero, orvWrnDivByZero, with_zero, exceptions);
    }
}
TEST(DivC, of_integers_does_not_depend_on_the_callers_state) { expect_integers_in_any_state(Exceptions::masked); }
TEST(DivC, of_integers_raises_no_exception) { expect_integers_in_any_state(Exceptions::unmasked); }

TEST(DivC, of_floats_follows_the_callers_state)
{
    EXPECT_TRUE(sweep_in_states(with_refusal<1>(ORV_EXPORT(orvsDivC_32f).with()), ByReciprocal()));
    EXPECT_TRUE(sweep_in_states(with_refusal<0>(ORV_EXPORT(orvsDivC_32f_I).with()), ByReciprocal()));
    EXPECT_TRUE(sweep_in_states(with_refusal<1>(ORV_EXPORT(orvsDivC_64f).with()), ByReciprocal()));
    EXPECT_TRUE(sweep_in_states(with_refusal<0>(ORV_EXPORT(orvsDivC_64f_I).with()), ByReciprocal()));
    EXPECT_TRUE(sweep_in_states(with_refusal<1>(ORV_EXPORT(orvsDivC_32fc).with()), ByReciprocal()));
    EXPECT_TRUE(sweep_in_states(with_refusal<0>(ORV_EXPORT(orvsDivC_32fc_I).with()), ByReciprocal()));
    EXPECT_TRUE(sweep_in_states(with_refusal<1>(ORV_EXPORT(orvsDivC_64fc).with()), ByReciprocal()));
    EXPECT_TRUE(sweep_in_states(with_refusal<0>(ORV_EXPORT(orvsDivC_64fc_I).with()), ByReciprocal()));
}
TEST(DivCRev, of_floats_follows_the_callers_state)
{
    EXPECT_TRUE(sweep_in_states(with_zeros<0>(ORV_EXPORT(orvsDivCRev_32f).with()), FloatReverse()));
    EXPECT_TRUE(sweep_in_states(with_zeros<1>(ORV_EXPORT(orvsDivCRev_32f_I).with()), FloatReverse()));
}

} // namespace
} // namespace orvtest
