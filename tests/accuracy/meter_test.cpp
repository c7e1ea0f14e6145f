// The meter proves itself: on the C library, whose errors are known, and on functions that are wrong by a known amount.
#include "c_library.h"

#include "orvs/types.h"

#include <gtest/gtest.h>
#include <numbers>

namespace orvtest {
namespace {

template <class T>
Report<T> sampled(const Subject<T>& subject)
{
    return measure(subject, Arguments<T>(subject.function, Extent::sample));
}

/// The reference computes what MPFR does.
template <class T>
void expect_sound(const Subject<T>& subject, const Report<T>& report)
{
    EXPECT_LT(report.reference_error, 0.01) << subject.name;
    const bool has_exact = subject.function.exact != nullptr;
    EXPECT_EQ(report.confirmed, has_exact) << subject.name;
    EXPECT_GE(report.compared, has_exact ? report.arguments / 4096 : 0) << subject.name;
}

/// Functions of the C library have at least the half of a rounding, and at most an ulp or few. Its sine and cosine of
/// double precision lose digits of huge numbers close to multiples of pi/2.
template <class T>
void check_c_library(double most)
{
    for (Subject<T>& subject : c_library<T>()) {
        if (subject.function.exact == functions::sine.exact || subject.function.exact == functions::cosine.exact)
            subject.domain = {-1e8, 1e8};
        const Report<T> report = sampled(subject);
        EXPECT_GT(report.worst.error, 0.49) << subject.name;
        EXPECT_LT(report.worst.error, most) << subject.name << ": " << text(report.worst, subject.function.arity);
        expect_sound(subject, report);
    }
}

TEST(Meter, knows_the_c_library_in_single_precision) { check_c_library<float>(1.5); }
TEST(Meter, knows_the_c_library_in_double_precision) { check_c_library<double>(4); }

// ---- Functions that are wrong by a known amount

template <class T>
T exactly_rounded_ln(T x)
{
    return static_cast<T>(std::log(Wider<T>{x}));
}

TEST(Meter, finds_half_an_ulp_in_results_rounded_once)
{
    const auto report = sampled(of_numbers("ln", functions::logarithm, exactly_rounded_ln<float>));
    EXPECT_GT(report.worst.error, 0.4999);
    EXPECT_LE(report.worst.error, 0.5001);
}

TEST(Meter, finds_three_ulp_at_one_argument)
{
    const auto f = [](double x) { return std::exp(x) * (x == 1 ? 1 + 3 * 0x1p-52 : 1); };
    const auto report = sampled(of_numbers<double>("exp", functions::exponential, f));
    EXPECT_NEAR(report.worst.error, 3, 1);
    EXPECT_EQ(report.worst.x, 1);
}

TEST(Meter, finds_results_that_are_flushed_to_zero)
{
    const auto f = [](float x) {
        const float y = std::exp(x);
        return y < std::numeric_limits<float>::min() ? 0 : y;
    };
    const auto report = sampled(of_numbers<float>("exp", functions::exponential, f));
    EXPECT_NEAR(report.worst.error, 0x1p23, 0x1p13);
    EXPECT_NEAR(report.worst.x, -87.3365f, 0.001f);
}

TEST(Meter, finds_arguments_that_are_flushed_to_zero)
{
    const auto f = [](double x) { return std::fpclassify(x) == FP_SUBNORMAL ? std::copysign(0, x) : std::atan(x); };
    const auto report = sampled(of_numbers<double>("atan", functions::arctangent, f));
    EXPECT_NEAR(report.worst.error, 0x1p52, 1);
}

TEST(Meter, finds_wrong_special_values)
{
    const auto at_infinity = [](float x) { return std::isinf(x) ? 0 : std::sin(x); };
    EXPECT_EQ(sampled(of_numbers<float>("sin", functions::sine, at_infinity)).worst.error, wrong);
    const auto at_minus_zero = [](float x) { return x == 0 ? 0 : std::cbrt(x); };
    const auto report = sampled(of_numbers<float>("cbrt", functions::cube_root, at_minus_zero));
    EXPECT_EQ(report.worst.error, wrong);
    EXPECT_TRUE(report.worst.x == 0 && std::signbit(report.worst.x));
    const auto at_nan = [](float y, float x) { return std::isnan(y) ? 1 : std::atan2(y, x); };
    EXPECT_EQ(sampled(of_numbers<float>("atan2", functions::arctangent2, at_nan)).worst.error, wrong);
}

TEST(Meter, finds_a_poor_reduction_of_huge_angles)
{
    const auto f = [](float x) { return std::cos(std::fmod(x, 2 * std::numbers::pi_v<float>)); };
    EXPECT_GT(sampled(of_numbers<float>("cos", functions::cosine, f)).worst.error, 1e6);
}

// ---- Ways to ask

TEST(Meter, leaves_arguments_outside_the_domain_alone)
{
    auto subject = of_numbers<float>("exp", functions::exponential, [](float x) { return x > 1 ? 0 : std::exp(x); });
    EXPECT_EQ(sampled(subject).worst.error, wrong);
    subject.domain = {-10, 1}; // infinity is special, and measured all the same
    EXPECT_TRUE(std::isinf(sampled(subject).worst.x));
    subject = of_numbers<float>("exp", functions::exponential,
                                [](float x) { return x > 1 && std::isfinite(x) ? 0 : std::exp(x); });
    subject.domain = {-10, 1};
    EXPECT_LT(sampled(subject).worst.error, 1);
}

OrvStatus both(const float* src, float* dst_sin, float* dst_cos, int n)
{
    for (int i = 0; i < n; ++i) {
        dst_sin[i] = std::sin(src[i]);
        dst_cos[i] = std::cos(src[i]);
    }
    return orvOk;
}
OrvStatus of_two(const float* y, const float* x, float* dst, int n)
{
    for (int i = 0; i < n; ++i) dst[i] = std::atan2(y[i], x[i]);
    return orvOk;
}

TEST(Meter, takes_two_results_and_two_sources)
{
    EXPECT_LT(sampled(of_vectors("sincos", functions::sine, both, 1)).worst.error, 1);
    EXPECT_LT(sampled(of_vectors("sincos", functions::cosine, both, 2)).worst.error, 1);
    EXPECT_EQ(sampled(of_vectors("sincos", functions::cosine, both, 1)).worst.error, wrong);
    EXPECT_LT(sampled(of_vectors("atan2", functions::arctangent2, of_two)).worst.error, 1.5);
}

TEST(Meter, finds_the_same_on_any_number_of_threads)
{
    const auto subject = of_numbers<double>("exp", functions::exponential, [](double x) { return std::exp(x); });
    const Arguments<double> arguments(subject.function, Extent::sample);
    const auto one = measure(subject, arguments, 1), three = measure(subject, arguments, 3);
    EXPECT_EQ(one.worst.error, three.worst.error);
    EXPECT_EQ(one.worst.x, three.worst.x);
    EXPECT_EQ(one.arguments, three.arguments);
    EXPECT_EQ(one.compared, three.compared);
}

} // namespace
} // namespace orvtest
