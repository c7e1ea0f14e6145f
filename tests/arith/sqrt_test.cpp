// Square roots of floats, real and complex.
#include "orvs/arith.h"

#include "tests/arith/caller_state.h"
#include "tests/arith/large.h"
#include "tests/arith/roots.h"

#include <gtest/gtest.h>

namespace orvtest {
namespace {

/// By instructions that follow MXCSR: in 32-bit programs the language's root does not.
struct IeeeRoot {
    [[gnu::target("sse2")]] Orv32f operator()(Orv32f x) const { return _mm_cvtss_f32(_mm_sqrt_ss(_mm_set_ss(x))); }
    [[gnu::target("sse2")]] Orv64f operator()(Orv64f x) const { return _mm_cvtsd_f64(_mm_sqrt_pd(_mm_set1_pd(x))); }
};
constexpr IeeeRoot ieee_root;

/// The function's own result for one element. Its accuracy is another matter; what is wanted in sweeps is that elements
/// do not depend on their place.
template <class T>
struct OnItsOwn {
    Root<T, T> f;

    T operator()(const T& x) const
    {
        T result;
        f.function(&x, &result, 1);
        return result;
    }
};

// ---- Sweeps

template <class... Args>
bool sweep_ieee(const Export<OrvStatus, Args...>& f)
{
    return sweep_elements(with_negatives(f.with()), ieee_root, family_lengths());
}
template <class T, class... Args>
bool sweep_complex(const Export<OrvStatus, Args...>& f, const Export<OrvStatus, const T*, T*, int>& on_its_own)
{
    return sweep_elements(f, OnItsOwn<T>{root(on_its_own)}, family_lengths());
}

TEST(Sqrt_32f, ieee) { EXPECT_TRUE(sweep_ieee(ORV_EXPORT(orvsSqrt_32f))); }
TEST(Sqrt_32f_I, ieee) { EXPECT_TRUE(sweep_ieee(ORV_EXPORT(orvsSqrt_32f_I))); }
TEST(Sqrt_64f, ieee) { EXPECT_TRUE(sweep_ieee(ORV_EXPORT(orvsSqrt_64f))); }
TEST(Sqrt_64f_I, ieee) { EXPECT_TRUE(sweep_ieee(ORV_EXPORT(orvsSqrt_64f_I))); }

TEST(Sqrt_32fc, the_same_at_each_place)
{
    EXPECT_TRUE(sweep_complex(ORV_EXPORT(orvsSqrt_32fc), ORV_EXPORT(orvsSqrt_32fc)));
}
TEST(Sqrt_32fc_I, the_same_at_each_place)
{
    EXPECT_TRUE(sweep_complex(ORV_EXPORT(orvsSqrt_32fc_I), ORV_EXPORT(orvsSqrt_32fc)));
}
TEST(Sqrt_64fc, the_same_at_each_place)
{
    EXPECT_TRUE(sweep_complex(ORV_EXPORT(orvsSqrt_64fc), ORV_EXPORT(orvsSqrt_64fc)));
}
TEST(Sqrt_64fc_I, the_same_at_each_place)
{
    EXPECT_TRUE(sweep_complex(ORV_EXPORT(orvsSqrt_64fc_I), ORV_EXPORT(orvsSqrt_64fc)));
}

// ---- Negative elements

template <class T>
void expect_warnings(const Root<T, T>& f)
{
    constexpr T infinity = std::numeric_limits<T>::infinity(), nan = std::numeric_limits<T>::quiet_NaN();
    expect_negatives_anywhere(f, ieee_root);
    for (const T x : {-infinity, -std::numeric_limits<T>::max(), -std::numeric_limits<T>::denorm_min(), T{-4}})
        EXPECT_TRUE(std::isnan(result_of_one(f, x, orvWrnSqrtOfNegative))) << f.name << " of " << x;
    for (const T x : {nan, -nan}) EXPECT_TRUE(std::isnan(result_of_one(f, x))) << f.name;
    EXPECT_EQ(result_of_one(f, infinity), infinity) << f.name;
    EXPECT_TRUE(std::signbit(result_of_one(f, -T{0}))) << f.name;
    EXPECT_FALSE(std::signbit(result_of_one(f, T{0}))) << f.name;
}
TEST(Sqrt, warns_of_negative_elements)
{
    expect_warnings(root(ORV_EXPORT(orvsSqrt_32f)));
    expect_warnings(root(ORV_EXPORT(orvsSqrt_32f_I)));
    expect_warnings(root(ORV_EXPORT(orvsSqrt_64f)));
    expect_warnings(root(ORV_EXPORT(orvsSqrt_64f_I)));
}

TEST(Sqrt, the_status_of_a_negative_element_is_3)
{
    const std::vector<Orv32f> x = {4, -1, 9};
    std::vector<Orv32f> d(3);
    const auto f = ORV_EXPORT(orvsSqrt_32f);
    expect_value(f, Orv32s{f(x.data(), d.data(), 3)}, 3);
    expect_elements(f, d, {2, std::numeric_limits<Orv32f>::quiet_NaN(), 3});
}

// ---- Accuracy of complex roots

/// The distance from the exact part in units of the last place of it, which is that of subnormal numbers at least.
template <class T>
long double units_off(T got, long double exact)
{
    using Limits = std::numeric_limits<T>;
    int exponent = 0;
    std::frexp(exact, &exponent);
    const int unit = std::max(exponent - Limits::digits, Limits::min_exponent - Limits::digits);
    return std::abs(std::ldexp(static_cast<long double>(got) - exact, -unit));
}

/// A part with an exponent from lowest to highest and either sign, now and then 0.
template <class T>
T draw_part(Random& random, int lowest, int highest)
{
    const T mantissa = static_cast<T>(random.bits() >> 11) * T(0x1p-54) + T(0.5); // 1/2 to 1
    const auto exponents = static_cast<std::uint64_t>(highest - lowest + 1);
    const T x = random.below(50) == 0 ? 0 : std::ldexp(mantissa, lowest + static_cast<int>(random.below(exponents)));
    return random.below(2) == 0 ? x : -x;
}

/// The largest distance of any part of the roots of z of many sizes, real to imaginary parts in many ratios.
template <class C>
long double worst_distance(const Root<C, C>& f, int lowest, int highest)
{
    using T = decltype(C::re);
    constexpr int n = 100000;
    Random random(seed_of(f.name, 5));
    std::vector<C> z(n), w(n);
    for (C& element : z) element = {draw_part<T>(random, lowest, highest), draw_part<T>(random, lowest, highest)};
    EXPECT_EQ(f.function(z.data(), w.data(), n), orvOk);
    long double worst = 0;
    for (int i = 0; i < n; ++i) {
        const auto k = static_cast<std::size_t>(i);
        const auto exact = std::sqrt(std::complex<long double>(z[k].re, z[k].im));
        worst = std::max({worst, units_off(w[k].re, exact.real()), units_off(w[k].im, exact.imag())});
        EXPECT_FALSE(std::signbit(w[k].re)) << f.name;
        EXPECT_EQ(std::signbit(w[k].im), std::signbit(z[k].im)) << f.name;
    }
    return worst;
}

template <class C>
void expect_accurate(const Root<C, C>& f)
{
    using Limits = std::numeric_limits<decltype(C::re)>;
    EXPECT_LT(worst_distance(f, 0, 0), 0.7L);
    EXPECT_LT(worst_distance(f, -9, 9), 0.7L);
    EXPECT_LT(worst_distance(f, Limits::min_exponent / 5, Limits::max_exponent / 5), 0.7L);
    EXPECT_LT(worst_distance(f, Limits::min_exponent - Limits::digits, Limits::max_exponent), 3.0L);
    EXPECT_LT(worst_distance(f, Limits::max_exponent - 3, Limits::max_exponent), 2.0L);
    EXPECT_LT(worst_distance(f, Limits::min_exponent - 3, Limits::min_exponent), 2.0L);
}
TEST(Sqrt, of_complex_values_is_accurate)
{
    expect_accurate(root(ORV_EXPORT(orvsSqrt_32fc)));
    expect_accurate(root(ORV_EXPORT(orvsSqrt_64fc)));
}

/// Squares of small Gaussian integers have exact roots.
template <class C>
void expect_exact_squares(const Root<C, C>& f)
{
    std::vector<C> z, w;
    for (int t = 0; t <= 40; ++t)
        for (int u = -40; u <= 40; ++u) {
            if (t == 0 && u < 0) continue; // its root is -u * i
            using T = decltype(C::re);
            z.push_back({static_cast<T>(t * t - u * u), static_cast<T>(2 * t * u)});
            w.push_back({static_cast<T>(t), static_cast<T>(u)});
        }
    std::vector<C> got(z.size());
    EXPECT_EQ(f.function(z.data(), got.data(), static_cast<int>(z.size())), orvOk);
    for (std::size_t i = 0; i < z.size(); ++i) {
        EXPECT_EQ(got[i].re, w[i].re) << f.name << " of " << z[i].re << ", " << z[i].im;
        EXPECT_EQ(got[i].im, w[i].im) << f.name << " of " << z[i].re << ", " << z[i].im;
    }
}
TEST(Sqrt, of_exact_complex_squares)
{
    expect_exact_squares(root(ORV_EXPORT(orvsSqrt_32fc)));
    expect_exact_squares(root(ORV_EXPORT(orvsSqrt_32fc_I)));
    expect_exact_squares(root(ORV_EXPORT(orvsSqrt_64fc)));
    expect_exact_squares(root(ORV_EXPORT(orvsSqrt_64fc_I)));
}

// ---- The branch cut and special values

template <class T>
bool same_part(T got, T want)
{
    if (std::isnan(want)) return std::isnan(got);
    if (std::signbit(got) != std::signbit(want)) return false;
    return got == want || std::abs(got - want) <= std::abs(want) * 4 * std::numeric_limits<T>::epsilon();
}

/// Zeros, infinities, NaNs and numbers in all pairs, against the C library; the sign of a NaN and that beside it, which
/// the standard leaves open, are not looked at.
template <class C>
void expect_special_values(const Root<C, C>& f)
{
    using T = decltype(C::re);
    using Limits = std::numeric_limits<T>;
    constexpr T infinity = Limits::infinity(), nan = Limits::quiet_NaN();
    const T parts[] = {
        0, T(-0.0), 1, -4, infinity, -infinity, nan, Limits::denorm_min(), Limits::max(), -Limits::max()};
    for (const T re : parts)
        for (const T im : parts) {
            const C got = result_of_one(f, C{re, im});
            const std::complex<long double> exact = std::sqrt(std::complex<long double>(re, im));
            const T want_re = static_cast<T>(exact.real()), want_im = static_cast<T>(exact.imag());
            EXPECT_TRUE(same_part(got.re, want_re)) << f.name << " of " << re << ", " << im << ": " << got.re;
            const bool open = std::isnan(im) && std::isinf(want_im);
            EXPECT_TRUE(open ? std::isinf(got.im) : same_part(got.im, want_im))
                << f.name << " of " << re << ", " << im << ": " << got.im;
        }
}
TEST(Sqrt, of_special_complex_values)
{
    expect_special_values(root(ORV_EXPORT(orvsSqrt_32fc)));
    expect_special_values(root(ORV_EXPORT(orvsSqrt_64fc)));
}

TEST(Sqrt, of_complex_values_on_the_cut)
{
    const auto f = ORV_EXPORT(orvsSqrt_32fc);
    const auto at = [&](Orv32f re, Orv32f im) { return result_of_one(root(f), {re, im}); };
    expect_value(f, at(-4, 0.0f), {0, 2});
    expect_value(f, at(-4, -0.0f), {0, -2});
    expect_value(f, at(4, -0.0f), {2, -0.0f});
    expect_value(f, at(3, 4), {2, 1});
    expect_value(f, at(-3, -4), {1, -2});
    expect_value(f, at(0x1p100f, 0), {0x1p50f, 0});
    expect_value(f, at(-0x1p-140f, 0), {0, 0x1p-70f});
}

/// No element is warned of, and a caller's directed rounding does not turn a zero part into -0.
TEST(Sqrt, of_complex_values_in_directed_rounding)
{
    for (const unsigned state : {unsigned{round_up}, unsigned{round_down}, unsigned{round_to_zero}}) {
        const CallerState scope(state);
        const auto f = ORV_EXPORT(orvsSqrt_64fc);
        expect_value(f, result_of_one(root(f), {-4, 0}), {0, 2});
        expect_value(f, result_of_one(root(f), {9, 0}), {3, 0});
        expect_value(f, result_of_one(root(f), {0, 0}), {0, 0});
    }
}

// ---- Order of checks

TEST(Sqrt, checks_pointers_before_length)
{
    expect_pointers_before_length(ORV_EXPORT(orvsSqrt_32f), 4);
    expect_pointers_before_length(ORV_EXPORT(orvsSqrt_32f_I), 4);
    expect_pointers_before_length(ORV_EXPORT(orvsSqrt_32fc), 4);
    expect_pointers_before_length(ORV_EXPORT(orvsSqrt_32fc_I), 4);
    expect_pointers_before_length(ORV_EXPORT(orvsSqrt_64f), 4);
    expect_pointers_before_length(ORV_EXPORT(orvsSqrt_64f_I), 4);
    expect_pointers_before_length(ORV_EXPORT(orvsSqrt_64fc), 4);
    expect_pointers_before_length(ORV_EXPORT(orvsSqrt_64fc_I), 4);
}

// ---- Large arrays

TEST(Sqrt, of_large_arrays)
{
    ASSERT_EQ(orvSetNumThreads(2), orvOk);
    EXPECT_TRUE(check_large(with_negatives(ORV_EXPORT(orvsSqrt_32f).with()), ieee_root));
    EXPECT_TRUE(check_large(with_negatives(ORV_EXPORT(orvsSqrt_64f_I).with()), ieee_root));
    const OnItsOwn<Orv32fc> of_32fc = {root(ORV_EXPORT(orvsSqrt_32fc))};
    EXPECT_TRUE(check_large(ORV_EXPORT(orvsSqrt_32fc).with(), of_32fc));
    const OnItsOwn<Orv64fc> of_64fc = {root(ORV_EXPORT(orvsSqrt_64fc))};
    EXPECT_TRUE(check_large(ORV_EXPORT(orvsSqrt_64fc).with(), of_64fc));
    orvSetNumThreads(1);
}

// ---- The caller's floating-point state

TEST(Sqrt, of_floats_follows_the_callers_state)
{
    EXPECT_TRUE(sweep_in_states(with_negatives(ORV_EXPORT(orvsSqrt_32f).with()), ieee_root));
    EXPECT_TRUE(sweep_in_states(with_negatives(ORV_EXPORT(orvsSqrt_32f_I).with()), ieee_root));
    EXPECT_TRUE(sweep_in_states(with_negatives(ORV_EXPORT(orvsSqrt_64f).with()), ieee_root));
    EXPECT_TRUE(sweep_in_states(with_negatives(ORV_EXPORT(orvsSqrt_64f_I).with()), ieee_root));
}

/// No exception ends the program, and the caller's control word is as it was.
template <class T>
void expect_no_exception(const Root<T, T>& f, const T& x, OrvStatus status)
{
    for (const int n : {1, 9, 100}) {
        const std::vector<T> xs(static_cast<std::size_t>(n), x);
        std::vector<T> d(xs.size());
        const ControlWord scope(static_cast<unsigned>(Exceptions::unmasked));
        EXPECT_EQ(f.function(xs.data(), d.data(), n), status) << f.name;
        EXPECT_EQ(_mm_getcsr() & 0x1F80, 0u) << f.name;
    }
}
TEST(Sqrt, raises_no_exception)
{
    expect_no_exception<Orv32f>(root(ORV_EXPORT(orvsSqrt_32f)), -3, orvWrnSqrtOfNegative);
    expect_no_exception<Orv64f>(root(ORV_EXPORT(orvsSqrt_64f)), -3, orvWrnSqrtOfNegative);
    expect_no_exception<Orv32f>(root(ORV_EXPORT(orvsSqrt_32f)), 3, orvOk);
    expect_no_exception<Orv32fc>(root(ORV_EXPORT(orvsSqrt_32fc)), {0, 0}, orvOk);
    expect_no_exception<Orv64fc>(root(ORV_EXPORT(orvsSqrt_64fc)), {1e-310, 1e308}, orvOk);
}

} // namespace
} // namespace orvtest
