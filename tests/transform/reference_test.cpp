// The references prove themselves: roots by their algebra, the fast transform by the defining sums.
#include "tests/transform/reference.h"

#include "tests/transform/signals.h"

#include <gtest/gtest.h>

namespace orvtest {
namespace {

constexpr double close = 1e-17;

TEST(Roots, are_exact_at_eighths_of_the_circle)
{
    for (int order = 3; order <= 20; ++order) {
        const std::size_t eighth = std::size_t{1} << (order - 3);
        const auto expect = [&](std::size_t eighths, long double re, long double im) {
            const LongComplex root = root_of_unity(eighths * eighth, order);
            EXPECT_EQ(root.re, re);
            EXPECT_EQ(root.im, im);
        };
        expect(0, 1, 0);
        expect(2, 0, -1);
        expect(4, -1, 0);
        expect(6, 0, 1);
        EXPECT_NEAR(static_cast<double>(root_of_unity(3 * eighth, order).re + std::sqrt(0.5L)), 0, 1e-19);
    }
    EXPECT_EQ(root_of_unity(0, 0).re, 1);
    EXPECT_EQ(root_of_unity(1, 1).re, -1);
    EXPECT_EQ(root_of_unity(3, 2).im, 1);
}

TEST(Roots, multiply_like_powers)
{
    for (const int order : {4, 7, 11, 12, 13, 16, 20}) {
        const Roots roots(order);
        const LongComplex first = root_of_unity(1, order);
        for (std::size_t k = 0; k < (std::size_t{1} << order) - 1; k += 1 + k / 1000) {
            const LongComplex next = roots[k] * first;
            EXPECT_NEAR(static_cast<double>(next.re - roots[k + 1].re), 0, close);
            EXPECT_NEAR(static_cast<double>(next.im - roots[k + 1].im), 0, close);
        }
    }
}

TEST(Spectrum, of_one_exponential_has_one_value)
{
    const Roots roots(4);
    LongSignal x;
    for (std::size_t n = 0; n < 16; ++n) x.push_back(conjugated(roots[3 * n & 15]));
    LongSignal want(16);
    want[3] = {16, 0};
    EXPECT_LT(deviation(spectrum_by_definition(x), want).rms(), close);
    want[3] = {};
    want[13] = {16, 0};
    EXPECT_LT(deviation(inverse_by_definition(x), want).rms(), close);
}

TEST(Spectrum, is_that_of_the_definition)
{
    Random random(1);
    for (int order = 0; order <= 12; ++order) {
        const LongSignal x = widened(complex_noise<Orv64f>(random, std::size_t{1} << order));
        EXPECT_LT(deviation(spectrum(x), spectrum_by_definition(x)).rms(), close) << order;
    }
}

TEST(Deviation, of_known_values)
{
    const LongSignal want = {{3, 0}, {0, 4}, {0, 0}, {0, 0}};
    EXPECT_EQ(deviation(want, want).rms(), 0);
    EXPECT_EQ(deviation(want, want).worst(), 0);
    LongSignal got = want;
    got[2] = {0, -1};
    EXPECT_DOUBLE_EQ(deviation(got, want).rms(), 0.2);
    EXPECT_DOUBLE_EQ(deviation(got, want).worst(), 0.4);
    EXPECT_DOUBLE_EQ(deviation(want, want, 2).rms(), 0.5);
    got[1].re = NAN;
    EXPECT_TRUE(std::isnan(deviation(got, want).rms()));
}

} // namespace
} // namespace orvtest
