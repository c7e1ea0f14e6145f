// dst = src2 / src1: the first operand is the divisor.
#include "orvs/arith.h"

#include "tests/arith/caller_state.h"
#include "tests/arith/large.h"
#include "tests/arith/quotients.h"

#include <gtest/gtest.h>

namespace orvtest {
namespace {

// ---- What is wanted

/// Unsigned words below the range become their limit even where the dividend is 0.
template <class R, class B, class A>
R wanted(const B& b, const A& a, int scale)
{
    if constexpr (Complex<R>) {
        return scale > 64 ? R{} : complex_quotient(a, b, scale);
    } else {
        if (std::is_same_v<R, Orv16u> && scale < -31 && b != 0) return std::numeric_limits<R>::max();
        return quotient<R>(a, b, scale);
    }
}

template <class R>
struct Wanted {
    int scale;

    template <class B, class A>
    R operator()(const B& b, const A& a) const
    {
        return wanted<R>(b, a, scale);
    }
};

struct IeeeQuotient {
    Orv64f operator()(Orv64f b, Orv64f a) const { return a / b; }
};
constexpr IeeeQuotient ieee_quotient;

/// The function's own result for one pair of operands. Its accuracy is another matter; what is wanted in sweeps is that
/// elements do not depend on their place.
template <class T>
struct OnItsOwn {
    Division<T, T, T> f;

    T operator()(const T& b, const T& a) const
    {
        T result;
        f.function(&b, &a, &result, 1);
        return result;
    }
};

// ---- Sweeps

/// At all scales from lowest to highest and at the limits of the type; zeros are warned of up to the scale
/// warning_up_to.
template <class... Args>
bool sweep_scales(const Export<OrvStatus, Args...>& f, int lowest, int highest, int warning_up_to = INT_MAX)
{
    for (const int scale : scales_between(lowest, highest)) {
        const SweepOptions options = lengths_at_scale(scale, {INT_MIN, -33, -16, -8, 16, 31, INT_MAX});
        const Wanted<DestinationElement<Args...>> element = {scale};
        const OrvStatus of_zero = scale > warning_up_to ? orvOk : orvWrnDivByZero;
        if (!sweep_elements(with_zeros<0>(f.with(scale), of_zero), element, options)) return false;
    }
    return true;
}

TEST(Div_8u_Sfs, exact) { EXPECT_TRUE(sweep_scales(ORV_EXPORT(orvsDiv_8u_Sfs), -18, 12)); }
TEST(Div_8u_ISfs, exact) { EXPECT_TRUE(sweep_scales(ORV_EXPORT(orvsDiv_8u_ISfs), -18, 12)); }
TEST(Div_16u_Sfs, exact) { EXPECT_TRUE(sweep_scales(ORV_EXPORT(orvsDiv_16u_Sfs), -35, 20)); }
TEST(Div_16u_ISfs, exact) { EXPECT_TRUE(sweep_scales(ORV_EXPORT(orvsDiv_16u_ISfs), -35, 20)); }
TEST(Div_16s_Sfs, exact) { EXPECT_TRUE(sweep_scales(ORV_EXPORT(orvsDiv_16s_Sfs), -35, 20)); }
TEST(Div_16s_ISfs, exact) { EXPECT_TRUE(sweep_scales(ORV_EXPORT(orvsDiv_16s_ISfs), -35, 20)); }
TEST(Div_16sc_Sfs, exact) { EXPECT_TRUE(sweep_scales(ORV_EXPORT(orvsDiv_16sc_Sfs), -40, 68, 64)); }
TEST(Div_16sc_ISfs, exact) { EXPECT_TRUE(sweep_scales(ORV_EXPORT(orvsDiv_16sc_ISfs), -40, 68, 64)); }
TEST(Div_32s_Sfs, exact) { EXPECT_TRUE(sweep_scales(ORV_EXPORT(orvsDiv_32s_Sfs), -66, 36)); }
TEST(Div_32s_ISfs, exact) { EXPECT_TRUE(sweep_scales(ORV_EXPORT(orvsDiv_32s_ISfs), -66, 36)); }
TEST(Div_32s16s_Sfs, exact) { EXPECT_TRUE(sweep_scales(ORV_EXPORT(orvsDiv_32s16s_Sfs), -35, 36)); }

TEST(Div_32f, the_steps)
{
    const auto f = ORV_EXPORT(orvsDiv_32f);
    EXPECT_TRUE(sweep_elements(with_zeros<0>(f.with()), quotient_in_steps, family_lengths()));
}
TEST(Div_32f_I, the_steps)
{
    const auto f = ORV_EXPORT(orvsDiv_32f_I);
    EXPECT_TRUE(sweep_elements(with_zeros<0>(f.with()), quotient_in_steps, family_lengths()));
}
TEST(Div_64f, ieee)
{
    const auto f = ORV_EXPORT(orvsDiv_64f);
    EXPECT_TRUE(sweep_elements(with_zeros<0>(f.with()), ieee_quotient, family_lengths()));
}
TEST(Div_64f_I, ieee)
{
    const auto f = ORV_EXPORT(orvsDiv_64f_I);
    EXPECT_TRUE(sweep_elements(with_zeros<0>(f.with()), ieee_quotient, family_lengths()));
}

TEST(Div_32fc, the_same_at_each_place)
{
    const auto f = ORV_EXPORT(orvsDiv_32fc);
    EXPECT_TRUE(sweep_elements(with_zeros<0>(f.with()), OnItsOwn<Orv32fc>{division(f)}, family_lengths()));
}
TEST(Div_32fc_I, the_same_at_each_place)
{
    const auto f = ORV_EXPORT(orvsDiv_32fc_I);
    const OnItsOwn<Orv32fc> apart = {division(ORV_EXPORT(orvsDiv_32fc))};
    EXPECT_TRUE(sweep_elements(with_zeros<0>(f.with()), apart, family_lengths()));
}
TEST(Div_64fc, the_same_at_each_place)
{
    const auto f = ORV_EXPORT(orvsDiv_64fc);
    EXPECT_TRUE(sweep_elements(with_zeros<0>(f.with()), OnItsOwn<Orv64fc>{division(f)}, family_lengths()));
}
TEST(Div_64fc_I, the_same_at_each_place)
{
    const auto f = ORV_EXPORT(orvsDiv_64fc_I);
    const OnItsOwn<Orv64fc> apart = {division(ORV_EXPORT(orvsDiv_64fc))};
    EXPECT_TRUE(sweep_elements(with_zeros<0>(f.with()), apart, family_lengths()));
}

/// The operands' order once more, in numbers: sources that say who they are.
TEST(Div, divides_the_second_operand_by_the_first)
{
    const auto check = []<class T>(const Export<OrvStatus, const T*, const T*, T*, int, int>& f,
                                   const Export<OrvStatus, const T*, T*, int, int>& in_place) {
        const std::vector<T> divisors = {2, 5, 1}, dividends = {8, 100, 3};
        std::vector<T> d(3);
        EXPECT_EQ(f(divisors.data(), dividends.data(), d.data(), 3, 0), orvOk);
        expect_elements(f, d, {4, 20, 3});
        d = dividends;
        EXPECT_EQ(in_place(divisors.data(), d.data(), 3, 0), orvOk);
        expect_elements(in_place, d, {4, 20, 3});
    };
    check(ORV_EXPORT(orvsDiv_8u_Sfs), ORV_EXPORT(orvsDiv_8u_ISfs));
    check(ORV_EXPORT(orvsDiv_16u_Sfs), ORV_EXPORT(orvsDiv_16u_ISfs));
    check(ORV_EXPORT(orvsDiv_16s_Sfs), ORV_EXPORT(orvsDiv_16s_ISfs));
    check(ORV_EXPORT(orvsDiv_32s_Sfs), ORV_EXPORT(orvsDiv_32s_ISfs));

    const Orv16s divisor = 5;
    const Orv32s dividend = 100000;
    EXPECT_EQ(result_of_one(division(ORV_EXPORT(orvsDiv_32s16s_Sfs), 0), divisor, dividend), 20000);
    EXPECT_EQ(result_of_one(division(ORV_EXPORT(orvsDiv_64f)), 4, 1), 0.25);
    EXPECT_EQ(result_of_one(division(ORV_EXPORT(orvsDiv_64f_I)), 4, 1), 0.25);
    EXPECT_EQ(result_of_one(division(ORV_EXPORT(orvsDiv_32f)), 4, 1), 0.25f);
    EXPECT_EQ(result_of_one(division(ORV_EXPORT(orvsDiv_32f_I)), 4, 1), 0.25f);
}

TEST(Div, of_complex_values_in_numbers)
{
    // (7 + 24i) / (3 + 4i) = (117 + 44i) / 25, and (3 + 4i) * (1 + 2i) = -5 + 10i
    const auto f = division(ORV_EXPORT(orvsDiv_16sc_Sfs), 0), in_place = division(ORV_EXPORT(orvsDiv_16sc_ISfs), 0);
    for (const auto& call : {f, in_place}) {
        expect_value(ORV_EXPORT(orvsDiv_16sc_Sfs), result_of_one(call, {3, 4}, {7, 24}), {5, 2}); // 4.68, 1.76
        expect_value(ORV_EXPORT(orvsDiv_16sc_Sfs), result_of_one(call, {3, 4}, {-5, 10}), {1, 2});
        expect_value(ORV_EXPORT(orvsDiv_16sc_Sfs), result_of_one(call, {1, 2}, {-5, 10}), {3, 4});
    }
    const auto shifted = division(ORV_EXPORT(orvsDiv_16sc_Sfs), -4);
    expect_value(ORV_EXPORT(orvsDiv_16sc_Sfs), result_of_one(shifted, {3, 4}, {7, 24}), {75, 28}); // 74.88, 28.16
    for (const auto& call : {division(ORV_EXPORT(orvsDiv_32fc)), division(ORV_EXPORT(orvsDiv_32fc_I))})
        expect_value(ORV_EXPORT(orvsDiv_32fc), result_of_one(call, {3, 4}, {-5, 10}), {1, 2});
    for (const auto& call : {division(ORV_EXPORT(orvsDiv_64fc)), division(ORV_EXPORT(orvsDiv_64fc_I))})
        expect_value(ORV_EXPORT(orvsDiv_64fc), result_of_one(call, {1, 2}, {-5, 10}), {3, 4});
}

// ---- Order of checks

TEST(Div, checks_pointers_before_length)
{
    for (const int scale : {INT_MIN, -63, -32, -31, -16, -8, 0, 1, 9, 16, 17, 33, 65, INT_MAX}) {
        expect_pointers_before_length(ORV_EXPORT(orvsDiv_8u_Sfs), 4, scale);
        expect_pointers_before_length(ORV_EXPORT(orvsDiv_8u_ISfs), 4, scale);
        expect_pointers_before_length(ORV_EXPORT(orvsDiv_16u_Sfs), 4, scale);
        expect_pointers_before_length(ORV_EXPORT(orvsDiv_16u_ISfs), 4, scale);
        expect_pointers_before_length(ORV_EXPORT(orvsDiv_16s_Sfs), 4, scale);
        expect_pointers_before_length(ORV_EXPORT(orvsDiv_16s_ISfs), 4, scale);
        expect_pointers_before_length(ORV_EXPORT(orvsDiv_16sc_Sfs), 4, scale);
        expect_pointers_before_length(ORV_EXPORT(orvsDiv_16sc_ISfs), 4, scale);
        expect_pointers_before_length(ORV_EXPORT(orvsDiv_32s_Sfs), 4, scale);
        expect_pointers_before_length(ORV_EXPORT(orvsDiv_32s_ISfs), 4, scale);
        expect_pointers_before_length(ORV_EXPORT(orvsDiv_32s16s_Sfs), 4, scale);
    }
    expect_pointers_before_length(ORV_EXPORT(orvsDiv_32f), 4);
    expect_pointers_before_length(ORV_EXPORT(orvsDiv_32f_I), 4);
    expect_pointers_before_length(ORV_EXPORT(orvsDiv_32fc), 4);
    expect_pointers_before_length(ORV_EXPORT(orvsDiv_32fc_I), 4);
    expect_pointers_before_length(ORV_EXPORT(orvsDiv_64f), 4);
    expect_pointers_before_length(ORV_EXPORT(orvsDiv_64f_I), 4);
    expect_pointers_before_length(ORV_EXPORT(orvsDiv_64fc), 4);
    expect_pointers_before_length(ORV_EXPORT(orvsDiv_64fc_I), 4);
}

// ---- Notable quotients

TEST(Div, the_status_of_a_zero_divisor_is_6)
{
    const Orv16s zero = 0, one = 1;
    Orv16s d = 0;
    const auto f = ORV_EXPORT(orvsDiv_16s_Sfs);
    expect_value(f, Orv32s{f(&zero, &one, &d, 1, 0)}, 6);
    EXPECT_EQ(d, 32767);
}

TEST(Div, halves_go_to_the_even_neighbour)
{
    const auto f = division(ORV_EXPORT(orvsDiv_16s_Sfs), 0);
    EXPECT_EQ(result_of_one(f, 2, 1), 0);
    EXPECT_EQ(result_of_one(f, 2, 3), 2);
    EXPECT_EQ(result_of_one(f, 2, 5), 2);
    EXPECT_EQ(result_of_one(f, -2, 3), -2);
    EXPECT_EQ(result_of_one(f, -2, -5), 2);
    EXPECT_EQ(result_of_one(f, 6, -15), -2);                                        // -2.5
    EXPECT_EQ(result_of_one(division(ORV_EXPORT(orvsDiv_16s_Sfs), 1), 3, 15), 2);   // 2.5
    EXPECT_EQ(result_of_one(division(ORV_EXPORT(orvsDiv_16s_Sfs), -1), 4, 5), 2);   // 2.5
    EXPECT_EQ(result_of_one(division(ORV_EXPORT(orvsDiv_16s_Sfs), -1), 4, -7), -4); // -3.5
}

TEST(Div, of_16s_at_notable_scales)
{
    const auto at = [](int scale) { return division(ORV_EXPORT(orvsDiv_16s_Sfs), scale); };
    EXPECT_EQ(result_of_one(at(0), -1, -32768), 32767);
    EXPECT_EQ(result_of_one(at(0), 1, -32768), -32768);
    EXPECT_EQ(result_of_one(at(15), 1, -32768), -1);
    EXPECT_EQ(result_of_one(at(15), 1, 16384), 0); // one half
    EXPECT_EQ(result_of_one(at(15), 1, 16385), 1);
    EXPECT_EQ(result_of_one(at(16), 1, -32768), 0);
    EXPECT_EQ(result_of_one(at(-15), -32768, 1), -1);
    EXPECT_EQ(result_of_one(at(-30), -32768, 1), -32768);
    EXPECT_EQ(result_of_one(at(-29), 32767, 1), 16385); // 16384.5 and 2^-16
    EXPECT_EQ(result_of_one(at(-29), -32767, 1), -16385);
    for (const int scale : {-31, -32, -100, INT_MIN}) {
        EXPECT_EQ(result_of_one(at(scale), 5, 0), 0) << scale;
        EXPECT_EQ(result_of_one(at(scale), -5, 0), 0) << scale;
        EXPECT_EQ(result_of_one(at(scale), -5, -3), 32767) << scale;
        EXPECT_EQ(result_of_one(at(scale), -5, 3), -32768) << scale;
        EXPECT_EQ(result_of_one(at(scale), 5, -3), -32768) << scale;
        EXPECT_EQ(result_of_one(at(scale), 5, 3), 32767) << scale;
    }
    for (const int scale : {INT_MIN, -31, -30, -8, 0, 1, 15, 16, 100, INT_MAX}) {
        EXPECT_EQ(result_of_one(at(scale), 0, 0, orvWrnDivByZero), 0) << scale;
        EXPECT_EQ(result_of_one(at(scale), 0, 1, orvWrnDivByZero), 32767) << scale;
        EXPECT_EQ(result_of_one(at(scale), 0, -1, orvWrnDivByZero), -32768) << scale;
    }
    for (const int scale : {16, 17, 100, INT_MAX}) EXPECT_EQ(result_of_one(at(scale), 1, 32767), 0) << scale;
}

TEST(Div, of_unsigned_values_at_notable_scales)
{
    const auto of_16u = [](int scale) { return division(ORV_EXPORT(orvsDiv_16u_Sfs), scale); };
    for (const int scale : {-32, -33, -100, INT_MIN}) {
        EXPECT_EQ(result_of_one(of_16u(scale), 5, 0), 65535) << scale;
        EXPECT_EQ(result_of_one(of_16u(scale), 5, 1), 65535) << scale;
    }
    EXPECT_EQ(result_of_one(of_16u(-31), 5, 0), 0);
    EXPECT_EQ(result_of_one(of_16u(-31), 65535, 1), 32769); // 32768.5 and 2^-17
    EXPECT_EQ(result_of_one(of_16u(16), 1, 65535), 1);
    EXPECT_EQ(result_of_one(of_16u(16), 1, 32768), 0); // one half
    EXPECT_EQ(result_of_one(of_16u(17), 1, 65535), 0);
    EXPECT_EQ(result_of_one(of_16u(0), 65535, 65534), 1);

    const auto of_8u = [](int scale) { return division(ORV_EXPORT(orvsDiv_8u_Sfs), scale); };
    EXPECT_EQ(result_of_one(of_8u(8), 1, 255), 1);
    EXPECT_EQ(result_of_one(of_8u(8), 1, 128), 0); // one half
    EXPECT_EQ(result_of_one(of_8u(9), 1, 255), 0);
    EXPECT_EQ(result_of_one(of_8u(-15), 255, 1), 129); // 128.502
    EXPECT_EQ(result_of_one(of_8u(-16), 255, 1), 255);
    EXPECT_EQ(result_of_one(of_8u(-16), 255, 0), 0);

    for (const int scale : {INT_MIN, -32, -31, -16, -15, 0, 8, 9, 16, 17, INT_MAX}) {
        EXPECT_EQ(result_of_one(of_16u(scale), 0, 0, orvWrnDivByZero), 0) << scale;
        EXPECT_EQ(result_of_one(of_16u(scale), 0, 1, orvWrnDivByZero), 65535) << scale;
        EXPECT_EQ(result_of_one(of_8u(scale), 0, 0, orvWrnDivByZero), 0) << scale;
        EXPECT_EQ(result_of_one(of_8u(scale), 0, 1, orvWrnDivByZero), 255) << scale;
    }
}

TEST(Div, of_32_bits_at_notable_scales)
{
    const auto of_32s = [](int scale) { return division(ORV_EXPORT(orvsDiv_32s_Sfs), scale); };
    EXPECT_EQ(result_of_one(of_32s(0), -1, INT32_MIN), INT32_MAX);
    EXPECT_EQ(result_of_one(of_32s(0), INT32_MIN, INT32_MIN), 1);
    EXPECT_EQ(result_of_one(of_32s(32), 1, INT32_MIN), 0); // minus one half
    EXPECT_EQ(result_of_one(of_32s(31), 1, INT32_MIN), -1);
    EXPECT_EQ(result_of_one(of_32s(-31), INT32_MIN, 1), -1);
    EXPECT_EQ(result_of_one(of_32s(-62), INT32_MIN, 1), INT32_MIN);
    EXPECT_EQ(result_of_one(of_32s(-61), INT32_MAX, -1), -1073741825); // -2^30 - 1/2 and a little
    EXPECT_EQ(result_of_one(of_32s(0), 3, INT32_MAX), 715827882);      // 715827882 1/3
    const auto of_32s16s = [](int scale) { return division(ORV_EXPORT(orvsDiv_32s16s_Sfs), scale); };
    EXPECT_EQ(result_of_one(of_32s16s(0), -1, INT32_MIN), 32767);
    EXPECT_EQ(result_of_one(of_32s16s(31), -1, INT32_MIN), 1);
    EXPECT_EQ(result_of_one(of_32s16s(32), -1, INT32_MIN), 0); // one half
    EXPECT_EQ(result_of_one(of_32s16s(-30), -32768, 1), -32768);
    EXPECT_EQ(result_of_one(of_32s16s(16), 1, INT32_MAX), 32767);
    for (const int scale : {INT_MIN, -63, -62, -30, 0, 31, 32, 33, INT_MAX}) {
        EXPECT_EQ(result_of_one(of_32s(scale), 0, 0, orvWrnDivByZero), 0) << scale;
        EXPECT_EQ(result_of_one(of_32s(scale), 0, 7, orvWrnDivByZero), INT32_MAX) << scale;
        EXPECT_EQ(result_of_one(of_32s(scale), 0, -7, orvWrnDivByZero), INT32_MIN) << scale;
        EXPECT_EQ(result_of_one(of_32s16s(scale), 0, 0, orvWrnDivByZero), 0) << scale;
        EXPECT_EQ(result_of_one(of_32s16s(scale), 0, 70000, orvWrnDivByZero), 32767) << scale;
        EXPECT_EQ(result_of_one(of_32s16s(scale), 0, -65536, orvWrnDivByZero), -32768) << scale;
    }
}

TEST(Div, of_16sc_at_notable_scales)
{
    const auto f = ORV_EXPORT(orvsDiv_16sc_Sfs);
    const auto at = [&](int scale) { return division(f, scale); };
    expect_value(f, result_of_one(at(0), {-32768, -32768}, {-32768, 32767}), {0, -1});  // 2^-16, a little less than 1
    expect_value(f, result_of_one(at(0), {0, 1}, {-32768, -32768}), {-32768, 32767});   // 32768 * (-1 + i)
    expect_value(f, result_of_one(at(0), {0, -1}, {-32768, -32768}), {32767, -32768});  // 32768 * (1 - i)
    expect_value(f, result_of_one(at(0), {1, 1}, {3, 0}), {2, -2});                     // 1.5, -1.5
    expect_value(f, result_of_one(at(0), {1, 1}, {5, 0}), {2, -2});                     // 2.5, -2.5
    expect_value(f, result_of_one(at(-31), {-32768, -32768}, {1, 0}), {-32768, 32767}); // -2^15, 2^15
    expect_value(f, result_of_one(at(-16), {-32768, -32768}, {1, 0}), {-1, 1});
    expect_value(f, result_of_one(at(16), {1, 1}, {-32768, -32768}), {0, 0}); // -1/2 and 0
    for (const int scale : {INT_MIN, -100, -33, 0, 16, 33, 64}) {
        expect_value(f, result_of_one(at(scale), {0, 0}, {-3, 5}, orvWrnDivByZero), {-32768, 32767});
        expect_value(f, result_of_one(at(scale), {0, 0}, {0, -1}, orvWrnDivByZero), {0, -32768});
        expect_value(f, result_of_one(at(scale), {0, 0}, {0, 0}, orvWrnDivByZero), {0, 0});
    }
    for (const int scale : {65, 66, 1000, INT_MAX}) {
        expect_value(f, result_of_one(at(scale), {0, 0}, {-3, 5}), {0, 0});
        expect_value(f, result_of_one(at(scale), {1, 0}, {-32768, 32767}), {0, 0});
    }
}

// ---- Zeros

TEST(Div, zeros_of_integers_anywhere)
{
    for (const int scale : {-40, -8, 0, 3, 40}) {
        expect_zeros_anywhere(division(ORV_EXPORT(orvsDiv_8u_Sfs), scale), Wanted<Orv8u>{scale});
        expect_zeros_anywhere(division(ORV_EXPORT(orvsDiv_16u_Sfs), scale), Wanted<Orv16u>{scale});
        expect_zeros_anywhere(division(ORV_EXPORT(orvsDiv_16s_Sfs), scale), Wanted<Orv16s>{scale});
        expect_zeros_anywhere(division(ORV_EXPORT(orvsDiv_16sc_Sfs), scale), Wanted<Orv16sc>{scale});
        expect_zeros_anywhere(division(ORV_EXPORT(orvsDiv_32s_Sfs), scale), Wanted<Orv32s>{scale});
        expect_zeros_anywhere(division(ORV_EXPORT(orvsDiv_32s16s_Sfs), scale), Wanted<Orv16s>{scale});
    }
    expect_zeros_anywhere(division(ORV_EXPORT(orvsDiv_8u_ISfs), 0), Wanted<Orv8u>{0});
    expect_zeros_anywhere(division(ORV_EXPORT(orvsDiv_16u_ISfs), 0), Wanted<Orv16u>{0});
    expect_zeros_anywhere(division(ORV_EXPORT(orvsDiv_16s_ISfs), 0), Wanted<Orv16s>{0});
    expect_zeros_anywhere(division(ORV_EXPORT(orvsDiv_16sc_ISfs), 0), Wanted<Orv16sc>{0});
    expect_zeros_anywhere(division(ORV_EXPORT(orvsDiv_32s_ISfs), 0), Wanted<Orv32s>{0});
}

struct PartsOverZero {
    template <class T>
    T operator()(const T& b, const T& a) const
    {
        if constexpr (Complex<T>) return {a.re / b.re, a.im / b.re};
        else return a / b;
    }
};

TEST(Div, zeros_of_floats_anywhere)
{
    expect_zeros_anywhere(division(ORV_EXPORT(orvsDiv_32f)), PartsOverZero());
    expect_zeros_anywhere(division(ORV_EXPORT(orvsDiv_32f_I)), PartsOverZero());
    expect_zeros_anywhere(division(ORV_EXPORT(orvsDiv_64f)), PartsOverZero());
    expect_zeros_anywhere(division(ORV_EXPORT(orvsDiv_64f_I)), PartsOverZero());
    expect_zeros_anywhere(division(ORV_EXPORT(orvsDiv_32fc)), PartsOverZero());
    expect_zeros_anywhere(division(ORV_EXPORT(orvsDiv_32fc_I)), PartsOverZero());
    expect_zeros_anywhere(division(ORV_EXPORT(orvsDiv_64fc)), PartsOverZero());
    expect_zeros_anywhere(division(ORV_EXPORT(orvsDiv_64fc_I)), PartsOverZero());
}

/// Both zeros under every kind of dividend: the signs of an infinity multiply, and a NaN keeps its payload.
template <class T>
void expect_signs_of_zeros(const Division<T, T, T>& f)
{
    constexpr T infinity = std::numeric_limits<T>::infinity(), nan = std::numeric_limits<T>::quiet_NaN();
    constexpr T largest = std::numeric_limits<T>::max(), least = std::numeric_limits<T>::denorm_min();
    using Bits = std::conditional_t<sizeof(T) == 4, std::uint32_t, std::uint64_t>;
    for (const T positive : {T{1}, largest, std::numeric_limits<T>::min(), least, infinity}) {
        EXPECT_EQ(result_of_one(f, T{0}, positive, orvWrnDivByZero), infinity) << f.name << " of " << positive;
        EXPECT_EQ(result_of_one(f, T{0}, -positive, orvWrnDivByZero), -infinity) << f.name << " of " << -positive;
        EXPECT_EQ(result_of_one(f, -T{0}, positive, orvWrnDivByZero), -infinity) << f.name << " of " << positive;
        EXPECT_EQ(result_of_one(f, -T{0}, -positive, orvWrnDivByZero), infinity) << f.name << " of " << -positive;
    }
    for (const T zero : {T{0}, -T{0}}) {
        EXPECT_TRUE(std::isnan(result_of_one(f, zero, T{0}, orvWrnDivByZero))) << f.name;
        EXPECT_TRUE(std::isnan(result_of_one(f, zero, -T{0}, orvWrnDivByZero))) << f.name;
        for (const Bits mark : {Bits{0}, Bits{0x12345}, Bits{1} << (8 * sizeof(T) - 1)}) {
            const T marked = std::bit_cast<T>(static_cast<Bits>(std::bit_cast<Bits>(nan) ^ mark));
            const T result = result_of_one(f, zero, marked, orvWrnDivByZero);
            EXPECT_EQ(std::bit_cast<Bits>(result), std::bit_cast<Bits>(marked)) << f.name;
        }
    }
}
TEST(Div, of_floats_by_both_zeros)
{
    expect_signs_of_zeros(division(ORV_EXPORT(orvsDiv_32f)));
    expect_signs_of_zeros(division(ORV_EXPORT(orvsDiv_32f_I)));
    expect_signs_of_zeros(division(ORV_EXPORT(orvsDiv_64f)));
    expect_signs_of_zeros(division(ORV_EXPORT(orvsDiv_64f_I)));
}

template <class T>
void expect_signs_of_complex_zeros(const Division<T, T, T>& f)
{
    using Part = decltype(T::re);
    constexpr Part infinity = std::numeric_limits<Part>::infinity(), nan = std::numeric_limits<Part>::quiet_NaN();
    const auto expect = [&](const T& b, const T& a, const T& want) {
        const T got = result_of_one(f, b, a, orvWrnDivByZero);
        EXPECT_TRUE(same_element(element_type<T>(), &got, &want))
            << f.name << " of " << element_text(element_type<T>(), &a) << " and " << element_text(element_type<T>(), &b)
            << " is " << element_text(element_type<T>(), &got) << ", not " << element_text(element_type<T>(), &want);
    };
    constexpr Part zero = 0;
    for (const Part im : {zero, -zero}) { // which has no say
        expect({zero, im}, {3, -5}, {infinity, -infinity});
        expect({-zero, im}, {3, -5}, {-infinity, infinity});
        expect({zero, im}, {0, 7}, {nan, infinity});
        expect({-zero, im}, {7, 0}, {-infinity, nan});
        expect({-zero, im}, {-zero, nan}, {nan, nan});
        expect({zero, im}, {nan, -1}, {nan, -infinity});
        expect({zero, im}, {-infinity, 1}, {-infinity, infinity});
    }
}
TEST(Div, of_complex_floats_by_all_zeros)
{
    expect_signs_of_complex_zeros(division(ORV_EXPORT(orvsDiv_32fc)));
    expect_signs_of_complex_zeros(division(ORV_EXPORT(orvsDiv_32fc_I)));
    expect_signs_of_complex_zeros(division(ORV_EXPORT(orvsDiv_64fc)));
    expect_signs_of_complex_zeros(division(ORV_EXPORT(orvsDiv_64fc_I)));
}

/// A divisor whose one part is 0 has a magnitude, and so has the smallest number, whose quotients may be anything.
template <class T>
void expect_quotients_of_one_part(const Division<T, T, T>& f, const T& smallest)
{
    const auto expect = [&](const T& b, const T& a, const T& want) {
        const T got = result_of_one(f, b, a);
        EXPECT_TRUE(same_element(element_type<T>(), &got, &want))
            << f.name << " is " << element_text(element_type<T>(), &got);
    };
    expect({0, 2}, {4, 6}, {3, -2});
    expect({2, 0}, {4, 6}, {2, 3});
    expect({0, -0x1p40f}, {0x1p42f, 0x1p41f}, {-2, 4});
    expect({0x1p-40f, 0}, {0x1p-39f, 0x1p-38f}, {2, 4});
    const T zero = {};
    T result;
    EXPECT_EQ(f.function(&smallest, &zero, &result, 1), orvOk) << f.name;
}
TEST(Div, complex_divisors_that_are_not_zero)
{
    constexpr Orv32f least = std::numeric_limits<Orv32f>::denorm_min();
    for (const Orv32fc& smallest : {Orv32fc{least, 0}, {0, -least}}) {
        expect_quotients_of_one_part(division(ORV_EXPORT(orvsDiv_32fc)), smallest);
        expect_quotients_of_one_part(division(ORV_EXPORT(orvsDiv_32fc_I)), smallest);
    }
    constexpr Orv64f least64 = std::numeric_limits<Orv64f>::denorm_min();
    for (const Orv64fc& smallest : {Orv64fc{least64, 0}, {0, -least64}}) {
        expect_quotients_of_one_part(division(ORV_EXPORT(orvsDiv_64fc)), smallest);
        expect_quotients_of_one_part(division(ORV_EXPORT(orvsDiv_64fc_I)), smallest);
    }
}

// ---- Sets of operands

TEST(Div, of_all_pairs_of_8u)
{
    const Pairs<Orv8u> pairs(all_bytes<Orv8u>(), all_bytes<Orv8u>());
    for (int scale = -17; scale <= 10; ++scale)
        for (const auto& f :
             {division(ORV_EXPORT(orvsDiv_8u_Sfs), scale), division(ORV_EXPORT(orvsDiv_8u_ISfs), scale)})
            ASSERT_TRUE(expect_quotients(f, pairs.first, pairs.second, Wanted<Orv8u>{scale}));
}

TEST(Div, of_16s_near_ties_for_every_divisor)
{
    const std::vector<Orv16s> divisors = all_words<Orv16s>();
    for (int scale = -32; scale <= 18; ++scale) {
        const auto operands = near_operands<Orv16s>(divisors, 6, 15, scale);
        const auto f = division(ORV_EXPORT(orvsDiv_16s_Sfs), scale);
        ASSERT_TRUE(expect_quotients(f, operands, Wanted<Orv16s>{scale}));
    }
}
TEST(Div, of_16u_near_ties_for_every_divisor)
{
    const std::vector<Orv16u> divisors = all_words<Orv16u>();
    for (int scale = -33; scale <= 18; ++scale) {
        const auto operands = near_operands<Orv16u>(divisors, 6, 16, scale);
        const auto f = division(ORV_EXPORT(orvsDiv_16u_Sfs), scale);
        ASSERT_TRUE(expect_quotients(f, operands, Wanted<Orv16u>{scale}));
    }
}
/// Every dividend, over some divisors of each magnitude.
TEST(Div, of_every_dividend_of_16_bits)
{
    const std::vector<Orv16s> words = all_words<Orv16s>();
    const std::vector<Orv16u> unsigned_words = all_words<Orv16u>();
    for (const int divisor : {0, 1, 2, 3, -3, 7, 10, 255, 256, -1000, 4095, 12345, 32767, -32768, -1}) {
        const std::vector<Orv16s> b(words.size(), static_cast<Orv16s>(divisor));
        const std::vector<Orv16u> c(words.size(), static_cast<Orv16u>(divisor));
        for (const int scale : {-30, -24, -16, -15, -8, -6, -5, -1, 0, 1, 4, 15}) {
            const auto f = division(ORV_EXPORT(orvsDiv_16s_Sfs), scale);
            ASSERT_TRUE(expect_quotients(f, b, words, Wanted<Orv16s>{scale}));
            const auto g = division(ORV_EXPORT(orvsDiv_16u_Sfs), scale);
            ASSERT_TRUE(expect_quotients(g, c, unsigned_words, Wanted<Orv16u>{scale}));
        }
    }
}

template <std::integral T>
std::vector<T> divisors_of(std::size_t random_values)
{
    std::vector<T> values = critical_values<T>(1, random_values);
    Random random(77);
    for (std::size_t i = 0; i < random_values; ++i) // of every magnitude
        values.push_back(static_cast<T>(static_cast<T>(random.bits()) >> random.below(8 * sizeof(T) - 1)));
    std::erase(values, 0);
    return values;
}

TEST(Div, of_32s_near_ties)
{
    const std::vector<Orv32s> divisors = divisors_of<Orv32s>(1000);
    for (int scale = -64; scale <= 34; ++scale) {
        const auto operands = near_operands<Orv32s>(divisors, 8, 31, scale);
        ASSERT_TRUE(expect_quotients(division(ORV_EXPORT(orvsDiv_32s_Sfs), scale), operands, Wanted<Orv32s>{scale}));
    }
}
/// Quotients of 31 bits next to a tie by less than 2^-60 of theirs: these need large divisors, and are rare.
TEST(Div, of_32s_nearest_ties)
{
    Random random(78);
    std::vector<Orv32s> divisors;
    for (int i = 0; i < 20000; ++i) divisors.push_back(static_cast<Orv32s>(0x60000001 | (random.bits() & 0x1FFFFFFF)));
    for (int scale = -44; scale <= -20; ++scale) {
        const auto operands = near_operands<Orv32s>(divisors, 2, 31, scale);
        ASSERT_TRUE(expect_quotients(division(ORV_EXPORT(orvsDiv_32s_Sfs), scale), operands, Wanted<Orv32s>{scale}));
    }
}
TEST(Div, of_critical_pairs_of_32s)
{
    const Pairs<Orv32s> pairs(critical_values<Orv32s>(0, 20), critical_values<Orv32s>(0, 10));
    for (int scale = -64; scale <= 34; ++scale)
        ASSERT_TRUE(expect_quotients(division(ORV_EXPORT(orvsDiv_32s_Sfs), scale), pairs.first, pairs.second,
                                     Wanted<Orv32s>{scale}));
}
TEST(Div, of_32s16s_near_ties)
{
    const std::vector<Orv16s> divisors = divisors_of<Orv16s>(3000);
    for (int scale = -34; scale <= 34; ++scale) {
        const auto operands = near_operands<Orv32s>(divisors, 8, 15, scale);
        const auto f = division(ORV_EXPORT(orvsDiv_32s16s_Sfs), scale);
        ASSERT_TRUE(expect_quotients(f, operands, Wanted<Orv16s>{scale}));
    }
}
TEST(Div, of_critical_pairs_of_32s16s)
{
    Operands<Orv16s, Orv32s> operands;
    for (const Orv16s b : critical_values<Orv16s>(0, 10))
        for (const Orv32s a : critical_values<Orv32s>(0, 10)) operands.add(b, a);
    for (int scale = -34; scale <= 34; ++scale)
        ASSERT_TRUE(expect_quotients(division(ORV_EXPORT(orvsDiv_32s16s_Sfs), scale), operands, Wanted<Orv16s>{scale}));
}

Operands<Orv16sc, Orv16sc> complex_operands(int scale)
{
    Operands<Orv16sc, Orv16sc> operands;
    Random random(static_cast<std::uint64_t>(scale + 1000));
    for (int i = 0; i < 2000; ++i) {
        const Orv16sc b = coprime_divisor(random);
        for (int k = 0; k < 4; ++k) operands.add(b, near_complex_dividend(random, b, scale));
    }
    return operands;
}
TEST(Div, of_16sc_near_ties)
{
    for (int scale = -36; scale <= 66; ++scale)
        ASSERT_TRUE(expect_quotients(division(ORV_EXPORT(orvsDiv_16sc_Sfs), scale), complex_operands(scale),
                                     Wanted<Orv16sc>{scale}));
}
TEST(Div, of_critical_pairs_of_16sc)
{
    std::vector<Orv16sc> values;
    for (const int re : {0, 1, -1, 2, 3, 180, 181, -256, 12345, 16384, 32766, 32767, -32767, -32768})
        for (const int im : {0, -1, 1, 2, -3, 128, -181, 23170, -30000, 32767, -32768})
            values.push_back({static_cast<Orv16s>(re), static_cast<Orv16s>(im)});
    Operands<Orv16sc, Orv16sc> operands;
    for (const Orv16sc& b : values)
        for (const Orv16sc& a : values) operands.add(b, a);
    for (int scale = -36; scale <= 64; ++scale)
        ASSERT_TRUE(expect_quotients(division(ORV_EXPORT(orvsDiv_16sc_Sfs), scale), operands, Wanted<Orv16sc>{scale}));
}

// ---- Accuracy of floats

/// How far a result is from x, in units of x's last place.
Orv64f units_off(Orv32f got, long double x)
{
    const int exponent = std::max(std::ilogb(x), -126);
    return static_cast<Orv64f>(std::fabs(static_cast<long double>(got) - x) / std::ldexp(1.0L, exponent - 23));
}

TEST(Div_32f, within_two_units_for_every_mantissa_of_divisors)
{
    constexpr std::uint32_t block = 1 << 20;
    std::vector<Orv32f> b(block), a(block), d(block);
    Random random(1);
    for (std::uint32_t first = 0; first < 1u << 23; first += block) {
        for (std::uint32_t i = 0; i < block; ++i) {
            const std::uint64_t bits = random.bits();
            b[i] = std::bit_cast<Orv32f>(0x3F800000u + first + i);
            a[i] = std::bit_cast<Orv32f>(0x3F800000u + static_cast<std::uint32_t>(bits >> 41));
        }
        ASSERT_EQ(orvsDiv_32f(b.data(), a.data(), d.data(), block), orvOk);
        for (std::uint32_t i = 0; i < block; ++i) {
            const Orv64f quotient = Orv64f{a[i]} / b[i], unit = quotient < 1 ? 0x1p-24 : 0x1p-23;
            if (std::fabs(d[i] - quotient) > 2 * unit) FAIL() << a[i] << " / " << b[i] << " is " << d[i];
        }
    }
}

TEST(Div_32f, within_two_units_for_all_exponents)
{
    Operands<Orv32f, Orv32f> operands;
    Random random(2);
    const auto power = [&](int exponent) {
        const auto mantissa = static_cast<Orv32f>(random.bits() >> 41) * 0x1p-23f;
        return std::ldexp(random.bits() % 2 != 0 ? 1 + mantissa : -1 - mantissa, exponent);
    };
    for (int of_divisor = -126; of_divisor < 126; ++of_divisor)
        for (int of_quotient = -125; of_quotient < 127; ++of_quotient)
            for (int i = 0; i < 4; ++i) {
                const int of_dividend = of_divisor + of_quotient;
                if (of_dividend >= -126 && of_dividend <= 127) operands.add(power(of_divisor), power(of_dividend));
            }
    operands.add(0x1.fffffep125f, 0x1.fffffep127f);
    operands.add(-0x1p-126f, 1.5f);
    std::vector<Orv32f> d(operands.divisors.size());
    ASSERT_EQ(orvsDiv_32f(operands.divisors.data(), operands.dividends.data(), d.data(), static_cast<int>(d.size())),
              orvOk);
    for (std::size_t i = 0; i < d.size(); ++i) {
        const Orv64f quotient = Orv64f{operands.dividends[i]} / operands.divisors[i];
        if (std::fabs(quotient) < 0x1p-126 || std::fabs(quotient) > 0x1p127) continue;
        ASSERT_LE(units_off(d[i], quotient), 2) << operands.dividends[i] << " / " << operands.divisors[i];
    }
}

/// |result - a / b| in halves of the last place of |a / b|, with products and sums of 64 bits.
template <class T>
Orv64f half_units_off(const T& result, const T& b, const T& a)
{
    using Long = long double;
    const Long norm = Long{b.re} * b.re + Long{b.im} * b.im;
    const Long re = (Long{a.re} * b.re + Long{a.im} * b.im) / norm, im = (Long{a.im} * b.re - Long{a.re} * b.im) / norm;
    const Long unit = std::hypot(re, im) * std::numeric_limits<decltype(T::re)>::epsilon() / 2;
    return static_cast<Orv64f>(std::hypot(result.re - re, result.im - im) / unit);
}

/// The exponents of dividends go to limit on either side, those of divisors over all normal numbers.
template <class T>
void expect_accurate_complex_quotients(const Division<T, T, T>& f, int limit)
{
    using Part = decltype(T::re);
    constexpr int lowest = std::numeric_limits<Part>::min_exponent - 1, digits = std::numeric_limits<Part>::digits;
    constexpr int highest = std::numeric_limits<Part>::max_exponent - 1;
    Random random(3);
    const auto part = [&](int exponent) { // its magnitude is at least a quarter of the power
        const auto mantissa = std::ldexp(static_cast<Part>(random.bits() >> (65 - digits)), 1 - digits);
        const Part x = std::ldexp(1 + mantissa, exponent - static_cast<int>(random.below(3)));
        return random.bits() % 2 != 0 ? x : -x;
    };
    Operands<T, T> operands;
    const auto add = [&](const T& b, const T& a, int of_quotient) {
        if (of_quotient > lowest + digits && of_quotient < highest - 2) operands.add(b, a);
    };
    const int step = highest / 31;
    for (int of_divisor = lowest + 2; of_divisor <= highest; of_divisor += step)
        for (int of_dividend = -limit + 2; of_dividend < limit; of_dividend += step)
            for (int i = 0; i < 50; ++i) {
                const int of_quotient = of_dividend - of_divisor;
                add({part(of_divisor), part(of_divisor)}, {part(of_dividend), part(of_dividend)}, of_quotient);
                add({part(of_divisor), 0}, {part(of_dividend), part(of_dividend)}, of_quotient);
                add({part(of_divisor), part(lowest + 2)}, {0, part(of_dividend)}, of_quotient);
                add({part(0), part(of_divisor)}, {part(of_dividend), part(-limit + 2)},
                    of_dividend - std::max(of_divisor, 0));
            }
    for (int i = 0; i < 20000; ++i) { // one part of the quotient all but vanishes
        const T b = {part(0), part(0)};
        const Part factor = part(5);
        const T a = {b.re * factor, b.im * factor};
        operands.add(b, i % 2 != 0 ? a : T{-a.im, a.re});
    }
    std::vector<T> d(operands.divisors.size());
    ASSERT_EQ(f.function(operands.divisors.data(), operands.dividends.data(), d.data(), static_cast<int>(d.size())),
              orvOk);
    for (std::size_t i = 0; i < d.size(); ++i) {
        const T &b = operands.divisors[i], &a = operands.dividends[i];
        ASSERT_LE(half_units_off(d[i], b, a), 4)
            << "(" << a.re << ", " << a.im << ") / (" << b.re << ", " << b.im << ")";
    }
}

TEST(Div_32fc, within_a_few_units_of_the_norm)
{
    expect_accurate_complex_quotients(division(ORV_EXPORT(orvsDiv_32fc)), 90);
}
TEST(Div_64fc, within_a_few_units_of_the_norm)
{
    expect_accurate_complex_quotients(division(ORV_EXPORT(orvsDiv_64fc)), 750);
}

TEST(Div_32fc, overflows_only_in_the_end)
{
    const auto f = division(ORV_EXPORT(orvsDiv_32fc));
    const auto expect = [&](const Orv32fc& b, const Orv32fc& a, const Orv32fc& want) {
        expect_value(ORV_EXPORT(orvsDiv_32fc), result_of_one(f, b, a), want);
    };
    constexpr Orv32f infinity = std::numeric_limits<Orv32f>::infinity();
    expect({0x1p-100f, 0}, {0x1p90f, -0x1p90f}, {infinity, -infinity});
    expect({0x1p100f, 0x1p100f}, {0x1p-48f, 0}, {0x1p-149f, -0x1p-149f});
    expect({0x1p127f, 0}, {0x1p90f, -0x1p-10f}, {0x1p-37f, -0x1p-137f});
    expect({0, 0x1p-126f}, {0x1p-90f, 0x1p-80f}, {0x1p46f, -0x1p36f});
}

// ---- Large arrays

template <class R, class... Args>
void expect_large(const Export<OrvStatus, Args...>& f, int scale)
{
    EXPECT_TRUE(check_large(with_zeros<0>(f.with(scale)), Wanted<R>{scale}));
}
TEST(Div, of_large_arrays)
{
    ASSERT_EQ(orvSetNumThreads(2), orvOk);
    expect_large<Orv8u>(ORV_EXPORT(orvsDiv_8u_Sfs), -3);
    expect_large<Orv8u>(ORV_EXPORT(orvsDiv_8u_ISfs), 0);
    expect_large<Orv16u>(ORV_EXPORT(orvsDiv_16u_Sfs), -3);
    expect_large<Orv16u>(ORV_EXPORT(orvsDiv_16u_ISfs), -40);
    expect_large<Orv16s>(ORV_EXPORT(orvsDiv_16s_Sfs), -3);
    expect_large<Orv16s>(ORV_EXPORT(orvsDiv_16s_Sfs), -16);
    expect_large<Orv16s>(ORV_EXPORT(orvsDiv_16s_Sfs), -40);
    expect_large<Orv16s>(ORV_EXPORT(orvsDiv_16s_ISfs), 40);
    expect_large<Orv16sc>(ORV_EXPORT(orvsDiv_16sc_Sfs), -3);
    expect_large<Orv16sc>(ORV_EXPORT(orvsDiv_16sc_ISfs), 0);
    expect_large<Orv32s>(ORV_EXPORT(orvsDiv_32s_Sfs), -3);
    expect_large<Orv32s>(ORV_EXPORT(orvsDiv_32s_ISfs), 1);
    expect_large<Orv16s>(ORV_EXPORT(orvsDiv_32s16s_Sfs), 3);
    EXPECT_TRUE(check_large(with_zeros<0>(ORV_EXPORT(orvsDiv_32f).with()), quotient_in_steps));
    EXPECT_TRUE(check_large(with_zeros<0>(ORV_EXPORT(orvsDiv_32f_I).with()), quotient_in_steps));
    EXPECT_TRUE(check_large(with_zeros<0>(ORV_EXPORT(orvsDiv_64f).with()), ieee_quotient));
    EXPECT_TRUE(check_large(with_zeros<0>(ORV_EXPORT(orvsDiv_64f_I).with()), ieee_quotient));
    const OnItsOwn<Orv32fc> of_32fc = {division(ORV_EXPORT(orvsDiv_32fc))};
    EXPECT_TRUE(check_large(with_zeros<0>(ORV_EXPORT(orvsDiv_32fc).with()), of_32fc));
    EXPECT_TRUE(check_large(with_zeros<0>(ORV_EXPORT(orvsDiv_32fc_I).with()), of_32fc));
    const OnItsOwn<Orv64fc> of_64fc = {division(ORV_EXPORT(orvsDiv_64fc))};
    EXPECT_TRUE(check_large(with_zeros<0>(ORV_EXPORT(orvsDiv_64fc).with()), of_64fc));
    EXPECT_TRUE(check_large(with_zeros<0>(ORV_EXPORT(orvsDiv_64fc_I).with()), of_64fc));
    orvSetNumThreads(1);
}

// ---- The caller's floating-point state

template <class T, class... Args>
void expect_in_any_state(const Export<OrvStatus, Args...>& f, const std::vector<T>& divisors, int bits,
                         Exceptions exceptions)
{
    for (const int scale : {-16, -3, 0, 1, 5}) {
        auto operands = near_operands<T>(divisors, 1, bits, scale);
        expect_the_same_in_any_state(division(f, scale), operands, Wanted<T>{scale}, exceptions);
        operands.add(0, 5);
        operands.add(0, 0);
        operands.add(1, std::numeric_limits<T>::max());
        expect_the_same_in_any_state(division(f, scale), operands, Wanted<T>{scale}, exceptions);
    }
}
void expect_integers_in_any_state(Exceptions exceptions)
{
    expect_in_any_state(ORV_EXPORT(orvsDiv_8u_Sfs), all_bytes<Orv8u>(), 8, exceptions);
    expect_in_any_state(ORV_EXPORT(orvsDiv_8u_ISfs), all_bytes<Orv8u>(), 8, exceptions);
    expect_in_any_state(ORV_EXPORT(orvsDiv_16u_Sfs), critical_values<Orv16u>(1, 300), 16, exceptions);
    expect_in_any_state(ORV_EXPORT(orvsDiv_16u_ISfs), critical_values<Orv16u>(1, 300), 16, exceptions);
    expect_in_any_state(ORV_EXPORT(orvsDiv_16s_Sfs), critical_values<Orv16s>(1, 300), 15, exceptions);
    expect_in_any_state(ORV_EXPORT(orvsDiv_16s_ISfs), critical_values<Orv16s>(1, 300), 15, exceptions);
    expect_in_any_state(ORV_EXPORT(orvsDiv_32s_Sfs), critical_values<Orv32s>(1, 300), 31, exceptions);
    expect_in_any_state(ORV_EXPORT(orvsDiv_32s_ISfs), critical_values<Orv32s>(1, 300), 31, exceptions);
    for (const int scale : {-40, -16, -3, 0, 1, 5, 40}) {
        auto mixed = near_operands<Orv32s>(critical_values<Orv16s>(1, 300), 1, 15, scale);
        const auto f = division(ORV_EXPORT(orvsDiv_32s16s_Sfs), scale);
        expect_the_same_in_any_state(f, mixed, Wanted<Orv16s>{scale}, exceptions);
        mixed.add(0, -7);
        expect_the_same_in_any_state(f, mixed, Wanted<Orv16s>{scale}, exceptions);

        auto complex = complex_operands(scale);
        const auto g = division(ORV_EXPORT(orvsDiv_16sc_Sfs), scale);
        const auto in_place = division(ORV_EXPORT(orvsDiv_16sc_ISfs), scale);
        expect_the_same_in_any_state(g, complex, Wanted<Orv16sc>{scale}, exceptions);
        complex.add({0, 0}, {-7, 0});
        expect_the_same_in_any_state(g, complex, Wanted<Orv16sc>{scale}, exceptions);
        expect_the_same_in_any_state(in_place, complex, Wanted<Orv16sc>{scale}, exceptions);
    }
}

TEST(Div, of_integers_does_not_depend_on_the_callers_state) { expect_integers_in_any_state(Exceptions::masked); }
TEST(Div, of_integers_raises_no_exception) { expect_integers_in_any_state(Exceptions::unmasked); }

TEST(Div, of_floats_follows_the_callers_state)
{
    EXPECT_TRUE(sweep_in_states(with_zeros<0>(ORV_EXPORT(orvsDiv_32f).with()), quotient_in_steps));
    EXPECT_TRUE(sweep_in_states(with_zeros<0>(ORV_EXPORT(orvsDiv_32f_I).with()), quotient_in_steps));
    EXPECT_TRUE(sweep_in_states(with_zeros<0>(ORV_EXPORT(orvsDiv_64f).with()), ieee_quotient));
    EXPECT_TRUE(sweep_in_states(with_zeros<0>(ORV_EXPORT(orvsDiv_64f_I).with()), ieee_quotient));
}

/// On quotients without anything to tell: no division by zero or of it, no overflow; exact ones are not even inexact.
template <class T>
void expect_quiet(const Division<T, T, T>& f, const T& b, const T& a, unsigned allowed)
{
    for (std::size_t n = 1; n <= 70; ++n) {
        const std::vector<T> bs(n, b), as(n, a);
        std::vector<T> d(n);
        const CallerState scope(to_nearest);
        EXPECT_EQ(f.function(bs.data(), as.data(), d.data(), static_cast<int>(n)), orvOk);
        EXPECT_EQ(_mm_getcsr() & flag_bits & ~allowed, 0u) << f.name << " of length " << n;
    }
}
TEST(Div, of_floats_raises_no_flags_without_reason)
{
    constexpr unsigned inexact = 0x20;
    expect_quiet<Orv32f>(division(ORV_EXPORT(orvsDiv_32f)), 3, 7, inexact);
    expect_quiet<Orv32f>(division(ORV_EXPORT(orvsDiv_32f_I)), 3, 7, inexact);
    expect_quiet<Orv64f>(division(ORV_EXPORT(orvsDiv_64f)), 4, 7, 0);
    expect_quiet<Orv64f>(division(ORV_EXPORT(orvsDiv_64f_I)), 4, 7, 0);
    expect_quiet<Orv32fc>(division(ORV_EXPORT(orvsDiv_32fc)), {3, 4}, {-5, 10}, inexact);
    expect_quiet<Orv32fc>(division(ORV_EXPORT(orvsDiv_32fc_I)), {3, 4}, {-5, 10}, inexact);
    expect_quiet<Orv64fc>(division(ORV_EXPORT(orvsDiv_64fc)), {3, 4}, {-5, 10}, inexact);
    expect_quiet<Orv64fc>(division(ORV_EXPORT(orvsDiv_64fc_I)), {3, 4}, {-5, 10}, inexact);
}

} // namespace
} // namespace orvtest
