// *mean = (src[0] + ... + src[len-1]) / len.
#include "orvs/stats.h"

#include "tests/arith/caller_state.h"
#include "tests/stats/float_sums.h"
#include "tests/stats/inputs.h"
#include "tests/stats/reductions.h"
#include "tests/support/compare.h"

#include <gtest/gtest.h>

namespace orvtest {
namespace {

// ---- Floats

constexpr std::size_t lengths_of_roads[] = {
    1,  2,  3,  4,  5,  6,  7,  8,  9,   11,  15,  16,  17,  20,   23,   28,   29,   31,   33,   49,    55,
    56, 57, 58, 63, 64, 65, 71, 97, 100, 127, 128, 129, 255, 1000, 1023, 8191, 8192, 8193, 8200, 16415, 65536};

template <class T>
using FloatMean = Export<OrvStatus, const T*, int, T*, Orv32s>;

/// Each part of the sum is divided in double precision, then rounded.
template <class T>
bool expect_mean(const FloatMean<T>& f, const std::vector<T>& x, int hint, unsigned state = to_nearest)
{
    return reduction(f, x).with(hint).in_state(state).gives_at([&](std::size_t address) {
        const Sums sums = ordered_sum(parts(x), x.size() * unit_of<T>, unit_of<T>, address, hint);
        return by_part<T>([&](int k) { return static_cast<PartOf<T>>(sums.part[k] / static_cast<double>(x.size())); });
    });
}
bool expect_mean(const std::vector<Orv64f>& x, unsigned state = to_nearest)
{
    return reduction(ORV_EXPORT(orvsMean_64f), x).in_state(state).gives_at([&](std::size_t) {
        return ordered_sum(x.data(), x.size(), 1).part[0] / static_cast<double>(x.size());
    });
}
/// Complex doubles are multiplied by the reciprocal of the length.
bool expect_mean(const std::vector<Orv64fc>& x, unsigned state = to_nearest)
{
    return reduction(ORV_EXPORT(orvsMean_64fc), x).in_state(state).gives_at([&](std::size_t) {
        const Sums sums = ordered_sum(parts(x), 2 * x.size(), 2);
        const double factor = 1.0 / static_cast<double>(x.size());
        return Orv64fc{sums.part[0] * factor, sums.part[1] * factor};
    });
}

TEST(Mean, of_floats_divides_the_sum)
{
    for (const std::size_t n : lengths_of_roads)
        for (const int hint : {accurate, fast})
            if (!expect_mean(ORV_EXPORT(orvsMean_32f), signal<Orv32f>(n, n, 1), hint) ||
                !expect_mean(ORV_EXPORT(orvsMean_32f), cancelling<Orv32f>(n, n), hint) ||
                !expect_mean(ORV_EXPORT(orvsMean_32f), drawn<Orv32f>("any", n, Floats::any), hint) ||
                !expect_mean(ORV_EXPORT(orvsMean_32fc), cancelling<Orv32fc>(n, n), hint) ||
                !expect_mean(ORV_EXPORT(orvsMean_32fc), signal<Orv32fc>(n, n, 1), hint) ||
                !expect_mean(ORV_EXPORT(orvsMean_32fc), drawn<Orv32fc>("any", n, Floats::any), hint))
                return;
}
TEST(Mean, of_doubles_divides_the_sum)
{
    for (const std::size_t n : lengths_of_roads)
        if (!expect_mean(signal<Orv64f>(n, n, 1)) || !expect_mean(drawn<Orv64f>("any", n, Floats::any))) return;
}
TEST(Mean, of_complex_doubles_multiplies_the_sum)
{
    for (const std::size_t n : lengths_of_roads)
        if (!expect_mean(signal<Orv64fc>(n, n, 1)) || !expect_mean(drawn<Orv64fc>("any", n, Floats::any))) return;
}

/// 49 * (1 / 49) is not 1.
TEST(Mean, complex_forms_round_differently)
{
    const std::vector<Orv64fc> wide(49, {1, -3});
    const double factor = 1.0 / 49;
    ASSERT_NE(49 * factor, 1);
    EXPECT_TRUE(reduction(ORV_EXPORT(orvsMean_64fc), wide).gives({49 * factor, -147 * factor}));
    EXPECT_TRUE(reduction(ORV_EXPORT(orvsMean_64f), std::vector<Orv64f>(49, 1)).gives(1));
    const std::vector<Orv32fc> narrow(49, {1, -3});
    EXPECT_TRUE(reduction(ORV_EXPORT(orvsMean_32fc), narrow).with(accurate).gives({1, -3}));
    EXPECT_TRUE(reduction(ORV_EXPORT(orvsMean_32fc), narrow).with(fast).gives({1, -3}));
}

TEST(Mean, every_hint_but_one_asks_for_accuracy)
{
    const std::vector<Orv32f> x = signal<Orv32f>(1, 9000, 10);
    const std::vector<Orv32fc> z = signal<Orv32fc>(1, 9000, 10);
    const Orv32f want = reduction(ORV_EXPORT(orvsMean_32f), x).with(accurate).result();
    const Orv32fc want_complex = reduction(ORV_EXPORT(orvsMean_32fc), z).with(accurate).result();
    for (const int hint : {2, 3, 4, -1, 0x101, INT_MIN, INT_MAX}) {
        expect_value(ORV_EXPORT(orvsMean_32f), reduction(ORV_EXPORT(orvsMean_32f), x).with(hint).result(), want);
        expect_value(ORV_EXPORT(orvsMean_32fc), reduction(ORV_EXPORT(orvsMean_32fc), z).with(hint).result(),
                     want_complex);
    }
}

TEST(Mean, floats_follow_the_state)
{
    for (const unsigned state :
         {0u + round_up, 0u + round_down, round_to_zero | flush_to_zero, 0u + denormals_are_zero})
        for (const std::size_t n : {1u, 5u, 17u, 30u, 60u, 103u, 8300u}) {
            for (const int hint : {accurate, fast}) {
                expect_mean(ORV_EXPORT(orvsMean_32f), signal<Orv32f>(n, n), hint, state);
                expect_mean(ORV_EXPORT(orvsMean_32fc), drawn<Orv32fc>("state", n), hint, state);
            }
            expect_mean(signal<Orv64f>(n, n), state);
            expect_mean(drawn<Orv64fc>("state", n), state);
        }
}

// ---- Integers of 16 bits

/// numerator / denominator to nearest with ties to even, saturated.
template <class T>
T rounded_quotient(const Wide& numerator, const Wide& denominator)
{
    // The least integer within the type from which on twice the next half lies above, by bisection.
    std::int64_t low = std::numeric_limits<T>::min(), high = std::numeric_limits<T>::max();
    while (low < high) {
        const std::int64_t middle = low + (high - low) / 2;
        // Is the quotient nearer to middle, or below it? Of a tie, the even one.
        const auto order = numerator * 2 <=> Wide(2 * middle + 1) * denominator;
        if (order < 0 || (order == 0 && middle % 2 == 0)) high = middle;
        else low = middle + 1;
    }
    return static_cast<T>(low);
}

template <class T>
T scaled_mean(const std::vector<T>& x, int scale)
{
    const ExactSums sums = exact_sums(x);
    const int right = std::clamp(scale, 0, 100), left = -std::clamp(scale, -100, 0);
    return by_part<T>(
        [&](int k) { return rounded_quotient<Orv16s>(Wide(sums.part[k]) << left, Wide(x.size()) << right); });
}

template <class T>
using IntegerMean = Export<OrvStatus, const T*, int, T*, int>;

template <class F>
void for_16_bits(const F& f)
{
    f(ORV_EXPORT(orvsMean_16s_Sfs));
    f(ORV_EXPORT(orvsMean_16sc_Sfs));
}

TEST(Mean, of_16_bits_is_exact)
{
    for_16_bits([]<class T>(const IntegerMean<T>& f) {
        for (const int length : lengths_of_sums()) {
            const auto n = static_cast<std::size_t>(length);
            const std::vector<T> any = drawn<T>(f.name(), n), small = whole_numbers<T>(n, n, 3);
            for (const int scale : {0, 1, -2})
                if (!reduction(f, any).with(scale).gives(scaled_mean(any, scale)) ||
                    !reduction(f, small).with(scale).gives(scaled_mean(small, scale)))
                    return;
        }
    });
}

TEST(Mean, of_16_bits_at_all_scales)
{
    for_16_bits([]<class T>(const IntegerMean<T>& f) {
        for (const int scale : scales(70))
            for (const std::size_t n : {1u, 2u, 3u, 4u, 6u, 8u, 12u, 33u, 64u, 100u, 1000u})
                for (const int limit : {1, 100, 32767}) {
                    const std::vector<T> x = whole_numbers<T>(seed_of("scales", n), n, limit);
                    if (!expect_value(f, reduction(f, x).with(scale).result(), scaled_mean(x, scale))) {
                        ADD_FAILURE() << f.name() << ", length " << n << ", scale " << scale;
                        return;
                    }
                }
    });
}

TEST(Mean, of_16_bits_rounds_to_even_and_saturates)
{
    const auto check = [](std::vector<Orv16s> x, int scale, Orv16s want) {
        EXPECT_TRUE(reduction(ORV_EXPORT(orvsMean_16s_Sfs), x).with(scale).gives(want));
        std::vector<Orv16sc> z;
        for (const Orv16s part : x) z.push_back({part, 0});
        EXPECT_TRUE(reduction(ORV_EXPORT(orvsMean_16sc_Sfs), z).with(scale).gives({want, 0}));
        for (Orv16sc& element : z) std::swap(element.re, element.im);
        EXPECT_TRUE(reduction(ORV_EXPORT(orvsMean_16sc_Sfs), z).with(scale).gives({0, want}));
    };
    check({1, 0}, 0, 0);
    check({1, 2}, 0, 2);
    check({2, 3}, 0, 2);
    check({-1, -2}, 0, -2);
    check({-1, 0}, 0, 0);
    check({5}, 1, 2);
    check({7}, 1, 4);
    check({1, 0}, -1, 1);
    check({32767}, -1, 32767);
    check({-32768}, -1, -32768);
    check({-32768}, 0, -32768);
    check({16384}, -1, 32767);
    check({-16384}, -1, -32768);
    check({-1}, -1100, -32768);
    check({1}, INT_MIN, 32767);
    check({0}, INT_MIN, 0);
    check({-32768}, 1100, 0);
    check({-32768}, INT_MAX, 0);
}

TEST(Mean, long_vectors_of_extremes)
{
    for (const std::size_t n : {65535u, 65536u, 65537u, 524288u, 1048591u})
        for (const Orv16s value : {Orv16s{-32768}, Orv16s{32767}}) {
            EXPECT_TRUE(reduction(ORV_EXPORT(orvsMean_16s_Sfs), std::vector<Orv16s>(n, value)).with(0).gives(value));
            const Orv16sc pair = {value, static_cast<Orv16s>(~value)};
            EXPECT_TRUE(reduction(ORV_EXPORT(orvsMean_16sc_Sfs), std::vector<Orv16sc>(n, pair)).with(0).gives(pair));
            EXPECT_TRUE(reduction(ORV_EXPORT(orvsMean_32s_Sfs), std::vector<Orv32s>(n, value * 65536))
                            .with(0)
                            .gives(value * 65536));
        }
}

// ---- Integers of 32 bits

/// Half to even, by the magnitude.
std::int64_t half_to_even(std::int64_t x, std::int64_t divisor)
{
    const std::int64_t m = x < 0 ? -x : x, q = m / divisor, r = m % divisor;
    const std::int64_t rounded = q + (2 * r > divisor || (2 * r == divisor && q % 2 != 0) ? 1 : 0);
    return x < 0 ? -rounded : rounded;
}

/// To the right the rounded mean is shifted, its magnitude with ties up and by the scale modulo 32. To the left a sum
/// of 32 bits is shifted before it is divided, others after it.
Orv32s mean_of_32_bits(const std::vector<Orv32s>& x, int scale)
{
    const std::int64_t sum = exact_sums(x).part[0], n = static_cast<std::int64_t>(x.size());
    const std::int64_t mean = half_to_even(sum, n);
    const auto saturated = [](std::int64_t value) { return saturate<Orv32s>(Wide(value)); };
    if (scale == 0) return saturated(mean);
    if (scale > 0) {
        const std::int64_t m = mean < 0 ? -mean : mean, half = std::int64_t{1} << (scale - 1) % 32;
        const std::int64_t shifted = (m + (m & half)) >> scale % 32;
        return saturated(mean < 0 ? -shifted : shifted);
    }
    if (scale <= -32) return mean > 0 ? INT_MAX : mean < 0 ? INT_MIN : 0;
    const std::int64_t factor = std::int64_t{1} << -scale;
    if (sum >= INT_MIN && sum <= INT_MAX) return saturated(half_to_even(sum * factor, n));
    return saturated(mean * factor);
}

TEST(Mean, of_32_bits_is_exact)
{
    for (const int length : lengths_of_sums()) {
        const auto n = static_cast<std::size_t>(length);
        const std::vector<Orv32s> any = drawn<Orv32s>("any", n), small = whole_numbers<Orv32s>(n, n, 5);
        for (const int scale : {0, 1, 2, -1, -5})
            for (const auto& x : {any, small})
                if (!reduction(ORV_EXPORT(orvsMean_32s_Sfs), x).with(scale).gives(mean_of_32_bits(x, scale))) return;
    }
}

TEST(Mean, of_32_bits_at_all_scales)
{
    for (const int scale : scales(70))
        for (const std::size_t n : {1u, 2u, 3u, 4u, 6u, 7u, 8u, 12u, 33u, 184u, 185u, 1000u}) {
            std::vector<std::vector<Orv32s>> inputs = {drawn<Orv32s>("scales", n), std::vector<Orv32s>(n, INT_MAX),
                                                       std::vector<Orv32s>(n, INT_MAX / static_cast<int>(n))};
            for (const int limit : {1, 100, 100'000'000}) inputs.push_back(whole_numbers<Orv32s>(n, n, limit));
            for (const std::vector<Orv32s>& x : inputs)
                if (!expect_value(ORV_EXPORT(orvsMean_32s_Sfs),
                                  reduction(ORV_EXPORT(orvsMean_32s_Sfs), x).with(scale).result(),
                                  mean_of_32_bits(x, scale))) {
                    ADD_FAILURE() << "length " << n << ", scale " << scale;
                    return;
                }
        }
}

TEST(Mean, of_32_bits_rounds_twice)
{
    const auto check = [](std::vector<Orv32s> x, int scale, Orv32s want) {
        EXPECT_TRUE(reduction(ORV_EXPORT(orvsMean_32s_Sfs), x).with(scale).gives(want));
    };
    check({3}, 1, 2); // up
    check({5}, 1, 3); // up, where even would be 2
    check({-5}, 1, -3);
    check({4, 5}, 0, 4); // to even
    check({4, 5}, 1, 2);
    check({5, 6}, 0, 6);
    check({-4, -5}, 0, -4);
    check({6}, 2, 2); // 1.5
    check({2}, 2, 1); // 0.5
    check({5}, 33, 3);
    check({5}, 32, 5);
    check({1, 0}, -1, 1); // the half is kept
    check({1, 0, 0}, -2, 1);
    check({INT_MAX, 1}, -1, INT_MAX); // 2^30 after the division
    check({INT_MAX, 2, 0, 0}, -1, 1 << 30);
    check({INT_MAX, 0, 0, 0}, -1, 1 << 30); // (2^31 - 1) / 2 = 2^30 - 0.5: to even
    check({7}, -40, INT_MAX);
    check({-7}, -40, INT_MIN);
    check({1, -1}, -40, 0);
    check({1, 0}, -40, 0); // the mean, rounded to even, is zero
    check({1, 2}, -40, INT_MAX);
    check({7}, INT_MIN, INT_MAX);
    check({-7}, INT_MIN, INT_MIN);
    check({0}, INT_MIN, 0);
    check({INT_MIN}, 0, INT_MIN);
    check({INT_MIN, INT_MIN}, 1, INT_MIN / 2);
    check({INT_MIN}, 31, -1);
    check({-1}, -31, INT_MIN);
}

// ---- Calls

TEST(Mean, integers_do_not_depend_on_the_state)
{
    for (const unsigned state : {0u + round_up, 0u + round_down, 0u + round_to_zero})
        for (const std::size_t n : {1u, 2u, 9u, 40u, 333u})
            for (const int scale : {-3, 0, 1, 5}) {
                for_16_bits([&]<class T>(const IntegerMean<T>& f) {
                    const std::vector<T> x = whole_numbers<T>(n, n, 50);
                    reduction(f, x).with(scale).in_state(state).gives(scaled_mean(x, scale));
                });
                const std::vector<Orv32s> x = whole_numbers<Orv32s>(n, n, 50);
                reduction(ORV_EXPORT(orvsMean_32s_Sfs), x).with(scale).in_state(state).gives(mean_of_32_bits(x, scale));
            }
}

TEST(Mean, checks_pointers_before_length)
{
    expect_checks(ORV_EXPORT(orvsMean_32f));
    expect_checks(ORV_EXPORT(orvsMean_64f));
    expect_checks(ORV_EXPORT(orvsMean_32fc));
    expect_checks(ORV_EXPORT(orvsMean_64fc));
    expect_checks(ORV_EXPORT(orvsMean_16s_Sfs));
    expect_checks(ORV_EXPORT(orvsMean_16sc_Sfs));
    expect_checks(ORV_EXPORT(orvsMean_32s_Sfs));
}

} // namespace
} // namespace orvtest
