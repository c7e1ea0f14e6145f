// The meter of transforms proves itself on transforms that are wrong by a known amount.
#include "fft_meter.h"

#include <gtest/gtest.h>

namespace orvtest {
namespace {

template <class T, class F>
std::vector<ComplexOf<T>> rounded(const LongSignal& x, F alter)
{
    std::vector<ComplexOf<T>> result;
    for (const LongComplex& value : x) {
        const LongComplex altered = alter(value);
        result.push_back({static_cast<T>(altered.re), static_cast<T>(altered.im)});
    }
    return result;
}

/// The exact transform, each value of which is altered and then rounded.
template <class T, class F>
Fft<T> altered(Direction direction, F alter)
{
    return [=](std::vector<ComplexOf<T>> x) {
        const bool forward = direction == Direction::forward;
        if (!forward) std::reverse(x.begin() + 1, x.end()); // turns the direction round
        return rounded<T>(spectrum(widened(x)), alter);
    };
}

/// In units of eps alone.
template <class T, class F>
void expect_error(F alter, double least, double most)
{
    for (const Direction direction : directions) {
        for (const Kind kind : {Kind::real, Kind::complex}) {
            for (const int order : {3, 4, 9, 14}) {
                const auto errors = fft_errors<T>({altered<T>(direction, alter)}, order, direction, kind);
                EXPECT_GT(errors.front() * std::sqrt(order), least) << order;
                EXPECT_LT(errors.front() * std::sqrt(order), most) << order;
            }
        }
    }
}

LongComplex unaltered(LongComplex x) { return x; }

/// Rounding moves a number by up to half a spacing, evenly, and the spacing of x is between eps x / 2 and eps x.
TEST(FftMeter, finds_one_rounding)
{
    expect_error<float>(unaltered, 0.5 / std::sqrt(12), 1 / std::sqrt(12));
    expect_error<double>(unaltered, 0.5 / std::sqrt(12), 1 / std::sqrt(12));
}

TEST(FftMeter, finds_a_relative_error)
{
    expect_error<float>([](LongComplex x) { return (1 + 0x1p-13L) * x; }, 1023.9, 1024.1);
    expect_error<double>([](LongComplex x) { return (1 + 0x1p-42L) * x; }, 1023.9, 1024.1);
    expect_error<double>([](LongComplex x) { return LongComplex{1, 0x1p-42L} * x; }, 1023.9, 1024.1);
}

TEST(FftMeter, finds_results_that_are_no_numbers)
{
    using Limits = std::numeric_limits<long double>;
    for (const long double bad : {Limits::quiet_NaN(), Limits::infinity()}) {
        const auto spoilt = [=](LongComplex x) { return x.re > 0 ? x : LongComplex{x.re, bad}; };
        const auto fft = altered<float>(Direction::forward, spoilt);
        const auto errors = fft_errors<float>({fft}, 3, Direction::forward, Kind::complex);
        EXPECT_EQ(errors.front(), std::numeric_limits<double>::infinity());
    }
}

TEST(FftMeter, measures_all_on_the_same_noise)
{
    const auto once = altered<float>(Direction::forward, unaltered);
    const auto worse = altered<float>(Direction::forward, [](LongComplex x) { return (1 + 0x1p-20L) * x; });
    const auto errors = fft_errors<float>({once, worse, once}, 6, Direction::forward, Kind::complex);
    ASSERT_EQ(errors.size(), 3u);
    EXPECT_EQ(errors[0], errors[2]);
    EXPECT_GT(errors[1], errors[0]);
}

/// Through the layout CCS and back: what a transform of real signals gets and returns is enough.
TEST(FftMeter, gives_real_signals_and_the_halves_of_their_spectra)
{
    const auto forward = of_real_signals<double>(Direction::forward, [](const std::vector<double>& x) {
        const auto all = rounded<double>(spectrum(widened(x)), unaltered);
        return packed(Layout::ccs, all, x.size());
    });
    const auto inverse = of_real_signals<double>(Direction::inverse, [](const std::vector<double>& ccs) {
        const std::size_t n = ccs.size() - 2;
        LongSignal all(n);
        for (std::size_t k = 0; k <= n / 2; ++k) {
            const LongComplex value = {ccs[2 * k], ccs[2 * k + 1]};
            all[(n - k) % n] = value; // those of the other direction
            all[k] = conjugated(value);
        }
        return real_parts(rounded<double>(spectrum(all), unaltered));
    });
    for (const int order : {1, 2, 5}) {
        EXPECT_LT(fft_errors<double>({forward}, order, Direction::forward, Kind::real).front(), 0.3) << order;
        EXPECT_LT(fft_errors<double>({inverse}, order, Direction::inverse, Kind::real).front(), 0.3) << order;
    }
}

} // namespace
} // namespace orvtest
