// *stdDev = sqrt((len * Q - S * S) / (len * (len - 1))), with S the sum of values and Q that of their squares.
#include "orvs/stats.h"

#include "tests/arith/caller_state.h"
#include "tests/stats/float_sums.h"
#include "tests/stats/inputs.h"
#include "tests/stats/reductions.h"
#include "tests/support/compare.h"

#include <gtest/gtest.h>

namespace orvtest {
namespace {

/// Every road: vectors and what is left of them, blocks, elements before them.
std::vector<std::size_t> lengths_of_roads()
{
    std::vector<std::size_t> lengths = {127,  128,  255,  1023, 4096,  8190,  8191,  8192,  8193, 8194,
                                        8199, 8200, 8207, 8208, 16383, 16384, 16391, 24576, 65536};
    for (std::size_t n = 2; n <= 100; ++n) lengths.push_back(n);
    return lengths;
}

// ---- Floats

bool expect_deviation(const std::vector<Orv32f>& x, int hint, unsigned state = to_nearest)
{
    return reduction(ORV_EXPORT(orvsStdDev_32f), x).with(hint).in_state(state).gives_at([&](std::size_t address) {
        return ordered_deviation(x.data(), x.size(), address, hint);
    });
}
bool expect_deviation(const std::vector<Orv64f>& x, unsigned state = to_nearest)
{
    const auto both = [&](std::size_t address) { return ordered_deviation(x.data(), x.size(), address); };
    return reduction(ORV_EXPORT(orvsStdDev_64f), x).in_state(state).gives_at([&](std::size_t address) {
        return both(address).deviation;
    }) && reduction(ORV_EXPORT(orvsMeanStdDev_64f), x).in_state(state).gives_at([&](std::size_t address) {
        return std::tuple(both(address).mean, both(address).deviation);
    });
}
bool expect_extended(const std::vector<Orv32f>& x, int hint, unsigned state = to_nearest)
{
    const SingleMeanAndDeviation want = extended_deviation(x.data(), x.size());
    return reduction(ORV_EXPORT(orvsMeanStdDev_32f), x).with(hint).in_state(state).gives(want.mean, want.deviation);
}

TEST(StdDev, of_floats_adds_in_order)
{
    for (const std::size_t n : lengths_of_roads())
        for (const int hint : {accurate, fast})
            for (const double mean : {0.0, 1.0, 300.0, 2e5})
                if (!expect_deviation(signal<Orv32f>(n, n, mean), hint)) return;
}
TEST(StdDev, of_doubles_adds_in_order)
{
    for (const std::size_t n : lengths_of_roads())
        for (const double mean : {0.0, 1.0, 3e5})
            if (!expect_deviation(signal<Orv64f>(n, n, mean))) return;
}
TEST(MeanStdDev, of_floats_adds_in_extended_precision)
{
    for (const std::size_t n : lengths_of_roads())
        for (const double mean : {0.0, 1.0, 3e4})
            if (!expect_extended(signal<Orv32f>(n, n, mean), accurate)) return;
}

bool expect_extended_once(const std::vector<Orv32f>& x, unsigned state = to_nearest)
{
    const SingleMeanAndDeviation want = extended_deviation(x.data(), x.size());
    const auto& f = ORV_EXPORT(orvsMeanStdDev_32f);
    const auto [mean, deviation] = reduction(f, x).with(0).in_state(state).results();
    return expect_value(f, mean, want.mean) && expect_value(f, deviation, want.deviation);
}

/// Whatever road makes it fast, the bits are those of extended precision, also where digits are lost.
TEST(MeanStdDev, of_many_vectors_of_floats)
{
    for (const std::size_t n : {2u, 60u, 127u, 128u, 129u, 131u, 200u, 1000u, 1025u, 5000u})
        for (const double mean : {0.0, 1.0, 1e3, 1e5, 1e7, -3e12})
            for (std::uint64_t seed = 0; seed < 100; ++seed)
                if (!expect_extended_once(signal<Orv32f>(scramble(seed) + n, n, mean))) {
                    ADD_FAILURE() << "length " << n << ", mean " << mean << ", seed " << seed;
                    return;
                }
}

/// Small integers meet ties of the last rounding: means halfway between two floats.
TEST(MeanStdDev, of_integers_in_floats)
{
    for (const std::size_t n : {128u, 256u, 1024u, 4096u})
        for (const int limit : {1, 2, 9, 3000, 1 << 20})
            for (std::uint64_t seed = 0; seed < 100; ++seed) {
                std::vector<Orv32f> x = whole_numbers<Orv32f>(seed + n, n, limit);
                if (seed % 3 == 1)
                    for (Orv32f& value : x) value += 0x1p23f;
                if (seed % 3 == 2) std::fill(x.begin() + 1, x.end(), 1.0f);
                if (!expect_extended_once(x)) {
                    ADD_FAILURE() << "length " << n << ", limit " << limit << ", seed " << seed;
                    return;
                }
            }
}

/// From subnormal to the largest numbers, infinities and others that are no numbers; in any state.
TEST(MeanStdDev, of_floats_of_all_sizes)
{
    for (const unsigned state :
         {0u + to_nearest, 0u + round_up, 0u + round_down, 0u + round_to_zero, flush_to_zero | denormals_are_zero})
        for (const std::size_t n : {2u, 9u, 127u, 128u, 333u, 1000u}) {
            for (const double factor : {0x1p-149, 0x1p-145, 0x1p-127, 0x1p-100, 0x1p-70, 0x1p60, 0x1p126}) {
                std::vector<Orv32f> x = signal<Orv32f>(n, n);
                for (Orv32f& value : x) value = static_cast<Orv32f>(value * 16 * factor / 9);
                if (!expect_extended_once(x, state)) {
                    ADD_FAILURE() << "length " << n << ", factor " << factor << ", state " << state;
                    return;
                }
                x = signal<Orv32f>(n, n);
                x[n / 2] = static_cast<Orv32f>(factor);
                if (!expect_extended_once(x, state)) return;
            }
            if (!expect_extended_once(drawn<Orv32f>("all", n, Floats::finite), state) ||
                !expect_extended_once(drawn<Orv32f>("all", n, Floats::no_nan), state) ||
                !expect_extended_once(drawn<Orv32f>("all", n, Floats::any), state) ||
                !expect_extended_once(std::vector<Orv32f>(n), state) ||
                !expect_extended_once(std::vector<Orv32f>(n, 0.1f), state))
                return;
        }
}

TEST(StdDev, every_hint_but_one_asks_for_accuracy)
{
    const std::vector<Orv32f> x = signal<Orv32f>(1, 9000, 30);
    const Orv32f want = reduction(ORV_EXPORT(orvsStdDev_32f), x).with(accurate).result();
    for (const int hint : {2, 3, 4, -1, 0x101, INT_MIN, INT_MAX})
        expect_value(ORV_EXPORT(orvsStdDev_32f), reduction(ORV_EXPORT(orvsStdDev_32f), x).with(hint).result(), want);
    EXPECT_NE(reduction(ORV_EXPORT(orvsStdDev_32f), x).with(fast).result(), want) << "single precision should show";
}
TEST(MeanStdDev, of_floats_does_not_look_at_the_hint)
{
    for (const std::size_t n : {2u, 7u, 100u, 9000u})
        for (const int hint : {fast, 2, -1, INT_MIN, INT_MAX})
            if (!expect_extended(signal<Orv32f>(n, n, 30), hint)) return;
}

/// Exact where squares and their sums are.
TEST(StdDev, of_known_vectors)
{
    const std::vector<Orv32f> x = {2, 4, 4, 4, 5, 5, 7, 9, 5}; // sum 45, squares 257: variance 4
    for (const int hint : {accurate, fast}) EXPECT_TRUE(reduction(ORV_EXPORT(orvsStdDev_32f), x).with(hint).gives(2));
    EXPECT_TRUE(reduction(ORV_EXPORT(orvsMeanStdDev_32f), x).with(0).gives(5, 2));
    const std::vector<Orv64f> wide(x.begin(), x.end());
    EXPECT_TRUE(reduction(ORV_EXPORT(orvsStdDev_64f), wide).gives(2));
    EXPECT_TRUE(reduction(ORV_EXPORT(orvsMeanStdDev_64f), wide).gives(5, 2));
    const std::vector<Orv16s> integers(x.begin(), x.end());
    EXPECT_TRUE(reduction(ORV_EXPORT(orvsStdDev_16s_Sfs), integers).with(0).gives(2));
    EXPECT_TRUE(reduction(ORV_EXPORT(orvsStdDev_16s32s_Sfs), integers).with(-3).gives(16));
    EXPECT_TRUE(reduction(ORV_EXPORT(orvsMeanStdDev_16s_Sfs), integers).with(0).gives(5, 2));
    EXPECT_TRUE(reduction(ORV_EXPORT(orvsMeanStdDev_16s_Sfs), integers).with(1).gives(2, 1)); // 2.5: to even
    EXPECT_TRUE(reduction(ORV_EXPORT(orvsMeanStdDev_16s32s_Sfs), integers).with(-2).gives(20, 8));
}

/// What rounding leaves of a difference that is zero is small and no not-a-number.
TEST(StdDev, of_a_constant_is_small)
{
    for (const std::size_t n : {2u, 3u, 7u, 10u, 100u, 9001u})
        for (const Orv32f value : {1.0f, 0.1f, -3.7f, 12345.678f, 1e-12f, 3e17f}) {
            const std::vector<Orv32f> x(n, value);
            for (const int hint : {accurate, fast}) {
                if (!expect_deviation(x, hint)) return;
                const Orv32f got = reduction(ORV_EXPORT(orvsStdDev_32f), x).with(hint).result();
                EXPECT_GE(got, 0);
                EXPECT_LE(got, std::fabs(value) * (hint == fast ? 0.02f : 1e-6f)) << value << " of length " << n;
            }
            if (!expect_extended(x, 0) || !expect_deviation(std::vector<Orv64f>(n, value))) return;
        }
    EXPECT_TRUE(reduction(ORV_EXPORT(orvsStdDev_32f), std::vector<Orv32f>(40, 3)).with(accurate).gives(0));
    EXPECT_TRUE(reduction(ORV_EXPORT(orvsStdDev_64f), std::vector<Orv64f>(40, 3)).gives(0));
    EXPECT_TRUE(reduction(ORV_EXPORT(orvsStdDev_16s_Sfs), std::vector<Orv16s>(40, -32768)).with(-8).gives(0));
}

/// Numerators beyond single precision come out as infinity, of numbers whose deviation is none.
TEST(StdDev, of_large_floats)
{
    const std::vector<Orv32f> x = {1e25f, -2e25f, 3e25f, 4e25f, -5e25f};
    if (!expect_deviation(x, accurate)) return;
    EXPECT_TRUE(std::isinf(reduction(ORV_EXPORT(orvsStdDev_32f), x).with(accurate).result()));
    expect_extended(x, accurate);
}

TEST(StdDev, of_what_is_no_number_is_none)
{
    constexpr Orv32f nan = std::numeric_limits<Orv32f>::quiet_NaN();
    for (const std::size_t n : {2u, 5u, 40u, 200u, 8200u})
        for (const Orv32f special : {nan, std::numeric_limits<Orv32f>::infinity()})
            for (const std::size_t i : {std::size_t{0}, n / 2, n - 1}) {
                std::vector<Orv32f> x = signal<Orv32f>(n, n);
                x[i] = special;
                const std::vector<Orv64f> wide(x.begin(), x.end());
                for (const int hint : {accurate, fast})
                    if (!reduction(ORV_EXPORT(orvsStdDev_32f), x).with(hint).gives(nan)) return;
                if (!reduction(ORV_EXPORT(orvsMeanStdDev_32f), x).with(0).gives(special, nan) ||
                    !reduction(ORV_EXPORT(orvsStdDev_64f), wide).gives(Orv64f{nan}) ||
                    !reduction(ORV_EXPORT(orvsMeanStdDev_64f), wide).gives(Orv64f{special}, Orv64f{nan}))
                    return;
            }
}

TEST(StdDev, floats_follow_the_state)
{
    for (const unsigned state :
         {0u + round_up, 0u + round_down, round_to_zero | flush_to_zero, 0u + denormals_are_zero})
        for (const std::size_t n : {2u, 5u, 17u, 30u, 103u, 8300u}) {
            for (const int hint : {accurate, fast}) expect_deviation(signal<Orv32f>(n, n, 1), hint, state);
            expect_deviation(signal<Orv64f>(n, n, 1), state);
            expect_extended(signal<Orv32f>(n, n, 1), 0, state); // another unit computes: its state is the usual one
        }
}

// ---- Integers

struct IntegerMoments {
    std::int64_t sum = 0, squares = 0;
};
IntegerMoments moments(const std::vector<Orv16s>& x)
{
    IntegerMoments total;
    for (const Orv16s value : x) {
        total.sum += value;
        total.squares += std::int64_t{value} * value;
    }
    return total;
}

/// x * 2^-scale to nearest with ties to even, saturated.
template <class T>
T scaled(long double x, int scale)
{
    const long double product = std::nearbyint(std::ldexp(x, -std::clamp(scale, -200, 200)));
    constexpr T lowest = std::numeric_limits<T>::min(), highest = std::numeric_limits<T>::max();
    if (product <= lowest) return lowest;
    if (product >= highest) return highest;
    return static_cast<T>(product);
}

template <class D>
struct IntegerForms {
    Export<OrvStatus, const Orv16s*, int, D*, int> deviation;
    Export<OrvStatus, const Orv16s*, int, D*, D*, int> both;
};
const IntegerForms<Orv16s> to_16_bits = {ORV_EXPORT(orvsStdDev_16s_Sfs), ORV_EXPORT(orvsMeanStdDev_16s_Sfs)};
const IntegerForms<Orv32s> to_32_bits = {ORV_EXPORT(orvsStdDev_16s32s_Sfs), ORV_EXPORT(orvsMeanStdDev_16s32s_Sfs)};

template <class D>
bool expect_scaled(const IntegerForms<D>& forms, const std::vector<Orv16s>& x, int scale, unsigned state = to_nearest)
{
    const IntegerMoments total = moments(x);
    const auto sum = static_cast<long double>(total.sum), squares = static_cast<long double>(total.squares);
    const D deviation = scaled<D>(extended_deviation(sum, squares, x.size()), scale);
    const D mean = scaled<D>(sum / static_cast<long double>(x.size()), scale);
    return reduction(forms.deviation, x).with(scale).in_state(state).gives(deviation) &&
           reduction(forms.both, x).with(scale).in_state(state).gives(mean, deviation);
}

template <class F>
void for_both(const F& f)
{
    f(to_16_bits);
    f(to_32_bits);
}

TEST(StdDev, of_integers_is_exact_but_for_the_root)
{
    for_both([](const auto& forms) {
        for (const int length : lengths_of_sums()) {
            if (length < 2) continue;
            const auto n = static_cast<std::size_t>(length);
            for (const int scale : {0, 2, -5})
                if (!expect_scaled(forms, drawn<Orv16s>("deviations", n), scale) ||
                    !expect_scaled(forms, whole_numbers<Orv16s>(n, n, 20), scale))
                    return;
        }
    });
}

TEST(StdDev, of_integers_at_all_scales)
{
    for_both([](const auto& forms) {
        for (const int scale : scales(70))
            for (const std::size_t n : {2u, 3u, 40u})
                for (const int limit : {1, 1000, 32767})
                    if (!expect_scaled(forms, whole_numbers<Orv16s>(n, n, limit), scale)) return;
    });
}

TEST(StdDev, of_integers_rounds_to_even_and_saturates)
{
    const auto check = [](std::vector<Orv16s> x, int scale, Orv32s mean, Orv32s deviation) {
        EXPECT_TRUE(reduction(to_32_bits.both, x).with(scale).gives(mean, deviation));
        const auto limited = [](Orv32s value) { return static_cast<Orv16s>(std::clamp(value, -32768, 32767)); };
        EXPECT_TRUE(reduction(to_16_bits.both, x).with(scale).gives(limited(mean), limited(deviation)));
        EXPECT_TRUE(reduction(to_16_bits.deviation, x).with(scale).gives(limited(deviation)));
    };
    check({0, 1, 2}, 0, 1, 1);
    check({0, 1, 2}, 1, 0, 0); // halves
    check({0, 3, 6}, 1, 2, 2);
    check({0, 5, 10}, 1, 2, 2);
    check({0, -5, -10}, 1, -2, 2);
    check({-32768, 32767}, 0, 0, 46340);
    check({-32768, -32768}, -15, -1 << 30, 0);
    check({-32768, -32768}, -16, INT_MIN, 0);
    check({-32768, -32768}, -17, INT_MIN, 0);
    check({32767, 32767}, -17, INT_MAX, 0);
    check({-32768, 32767}, -16, -32768, INT_MAX); // 46340.2 * 65536
    check({0, 1, 2}, INT_MIN, INT_MAX, INT_MAX);
    check({0, -1, -2}, INT_MIN, INT_MIN, INT_MAX);
    check({-1, 1}, INT_MIN, 0, INT_MAX);
    check({5, 5}, INT_MAX, 0, 0);
}

/// Squares of 2^30 each, more than 65,536 of them.
TEST(StdDev, long_vectors_of_extremes)
{
    for (const std::size_t n : {65535u, 65536u, 65537u, 131079u, 400'000u}) {
        std::vector<Orv16s> x(n, -32768);
        if (!expect_scaled(to_32_bits, x, -3) || !expect_scaled(to_16_bits, x, 0)) return;
        for (std::size_t i = 0; i < n; i += 2) x[i] = 32767;
        if (!expect_scaled(to_32_bits, x, -10) || !expect_scaled(to_16_bits, x, 3)) return;
        if (!expect_scaled(to_32_bits, drawn<Orv16s>("long", n), -10)) return;
    }
}

TEST(StdDev, integers_do_not_depend_on_the_state)
{
    for_both([](const auto& forms) {
        for (const unsigned state : {0u + round_up, 0u + round_down, 0u + round_to_zero})
            for (const std::size_t n : {2u, 9u, 40u, 333u})
                for (const int scale : {-3, 0, 1, 5})
                    if (!expect_scaled(forms, whole_numbers<Orv16s>(n, n, 300), scale, state)) return;
    });
}

// ---- Calls

TEST(StdDev, checks_pointers_before_length)
{
    expect_checks(ORV_EXPORT(orvsStdDev_32f), 2);
    expect_checks(ORV_EXPORT(orvsStdDev_64f), 2);
    expect_checks(ORV_EXPORT(orvsMeanStdDev_32f), 2);
    expect_checks(ORV_EXPORT(orvsMeanStdDev_64f), 2);
    for_both([](const auto& forms) {
        expect_checks(forms.deviation, 2);
        expect_checks(forms.both, 2);
    });
}

} // namespace
} // namespace orvtest
