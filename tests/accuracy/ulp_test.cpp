// Known errors: at ordinary numbers, at powers of two, where numbers become subnormal, and where they overflow.
#include "ulp.h"

#include <gtest/gtest.h>

namespace orvtest {
namespace {

using W = long double;

template <class T>
struct Notable {
    using Limits = std::numeric_limits<T>;
    static constexpr T largest = Limits::max(), least_normal = Limits::min(), least = Limits::denorm_min();
    static constexpr T infinity = Limits::infinity(), nan = Limits::quiet_NaN(), zero = 0;
    static constexpr W eps = Limits::epsilon();

    /// Between the two largest numbers.
    static W top_spacing() { return std::ldexp(1.0L, Limits::max_exponent - Limits::digits); }

    static T after(T x) { return std::nextafter(x, infinity); }
    static T before(T x) { return std::nextafter(x, -infinity); }
};

/// The test in both precisions.
template <class Test>
void in_both(Test test)
{
    test(Notable<float>(), float());
    test(Notable<double>(), double());
}

TEST(Ulp, none_where_both_are_equal)
{
    in_both([]<class T>(auto n, T) {
        for (const T x : {T(1), T(-0.7), n.largest, n.least, n.least_normal}) EXPECT_EQ(ulp_error(x, W{x}), 0) << x;
    });
}

TEST(Ulp, counts_neighbours_and_fractions)
{
    in_both([]<class T>(auto n, T) {
        const T x = T(1.6);
        EXPECT_EQ(ulp_error(n.after(x), W{x}), 1);
        EXPECT_EQ(ulp_error(n.before(n.before(x)), W{x}), 2);
        EXPECT_EQ(ulp_error(x, x + n.eps / 4), 0.25);
        EXPECT_EQ(ulp_error(-x, -x + n.eps / 2), 0.5);
        EXPECT_EQ(ulp_error(-x, W{x}), static_cast<double>(2 * x / n.eps));
    });
}

TEST(Ulp, halves_below_a_power_of_two)
{
    in_both([]<class T>(auto n, T) {
        const T four = 4;
        EXPECT_EQ(ulp_error(n.after(four), 4.0L), 1);
        EXPECT_EQ(ulp_error(n.before(four), 4.0L), 0.5); // at 4, the spacing is that of the numbers from 4 on
        EXPECT_EQ(ulp_error(four, W{n.before(four)}), 1);
        EXPECT_EQ(ulp_error(four, 4 - n.eps / 2), 0.25);
    });
}

TEST(Ulp, is_the_spacing_of_subnormal_numbers_below_the_normal_range)
{
    in_both([]<class T>(auto n, T) {
        const W least = n.least, normal = n.least_normal;
        EXPECT_EQ(ulp_error(n.least, least / 4), 0.75);
        EXPECT_EQ(ulp_error(n.zero, least / 4), 0.25);
        EXPECT_EQ(ulp_error(n.least, 3 * least), 2);
        EXPECT_EQ(ulp_error(n.zero, normal / 2), static_cast<double>(1 / n.eps / 2)); // flushed to zero
        EXPECT_EQ(ulp_error(n.least_normal, normal - least), 1);
        EXPECT_EQ(ulp_error(n.before(n.least_normal), normal), 1);
    });
}

TEST(Ulp, takes_infinity_where_the_exact_value_rounds_to_it)
{
    in_both([]<class T>(auto n, T) {
        const W largest = n.largest, top = n.top_spacing();
        EXPECT_EQ(ulp_error(n.infinity, largest + top), 0);
        EXPECT_EQ(ulp_error(n.infinity, largest + top / 2), 0); // a tie to even
        EXPECT_EQ(ulp_error(n.largest, largest + top / 2), wrong);
        EXPECT_EQ(ulp_error(n.infinity, -2 * largest), wrong);
        EXPECT_EQ(ulp_error(-n.infinity, -2 * largest), 0);
        EXPECT_EQ(ulp_error(n.nan, 2 * largest), wrong);

        EXPECT_EQ(ulp_error(n.largest, largest + top / 4), 0.25);
        EXPECT_EQ(ulp_error(n.infinity, largest + top / 4), 0.75); // too early, as if it were a number
        EXPECT_EQ(ulp_error(n.infinity, largest), 1);
        EXPECT_EQ(ulp_error(-n.infinity, -largest), 1);
        EXPECT_GT(ulp_error(-n.infinity, largest), 1e6);
    });
}

TEST(Ulp, takes_special_values_as_they_are)
{
    in_both([]<class T>(auto n, T) {
        const W infinity = n.infinity, nan = n.nan;
        EXPECT_EQ(ulp_error(n.infinity, infinity), 0);
        EXPECT_EQ(ulp_error(-n.infinity, infinity), wrong);
        EXPECT_EQ(ulp_error(n.largest, infinity), wrong);
        EXPECT_EQ(ulp_error(n.nan, nan), 0);
        EXPECT_EQ(ulp_error(-n.nan, nan), 0);
        EXPECT_EQ(ulp_error(n.nan, 1.0L), wrong);
        EXPECT_EQ(ulp_error(T(1), nan), wrong);
        EXPECT_EQ(ulp_error(n.infinity, nan), wrong);
    });
}

TEST(Ulp, takes_zeros_with_their_sign)
{
    in_both([]<class T>(auto n, T) {
        EXPECT_EQ(ulp_error(n.zero, 0.0L), 0);
        EXPECT_EQ(ulp_error(-n.zero, -0.0L), 0);
        EXPECT_EQ(ulp_error(-n.zero, 0.0L), wrong);
        EXPECT_EQ(ulp_error(n.zero, -0.0L), wrong);
        EXPECT_EQ(ulp_error(n.least, 0.0L), wrong);
        EXPECT_EQ(ulp_error(-n.zero, W{n.least} / 4), wrong);
        EXPECT_EQ(ulp_error(n.zero, -0x1p-5000L), wrong);
        EXPECT_EQ(ulp_error(n.zero, 0x1p-5000L), 0); // next to nothing
    });
}

TEST(Ulp, adds_the_part_that_the_wider_type_does_not_hold)
{
    using Value = Exact<W>;
    in_both([]<class T>(auto n, T) {
        EXPECT_EQ(ulp_error(T(1), Value{1, n.eps / 8}), 0.125);
        // Just below 2, where the head is below 2 as well, and the spacing half of that above.
        const W below = std::nextafter(2.0L, 0.0L), rest = (2 - below) * 0.75L;
        EXPECT_NEAR(ulp_error(n.after(T(2)), Value{below, rest}), 2, 1e-3);
        EXPECT_NEAR(ulp_error(n.after(T(2)), Value{2, rest}), 1, 1e-3);
    });
}

} // namespace
} // namespace orvtest
