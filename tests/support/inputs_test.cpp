#include "digest.h"
#include "inputs.h"
#include "sweep.h"

#include <algorithm>
#include <bit>
#include <climits>
#include <cmath>
#include <gtest/gtest.h>
#include <set>

namespace orvtest {
namespace {

template <class T>
bool has(const std::vector<T>& values, T wanted)
{
    return std::find(values.begin(), values.end(), wanted) != values.end();
}

template <class T>
std::uint64_t hash_of(const std::vector<T>& elements)
{
    std::uint64_t hash = 0;
    for (const T& element : elements)
        for (int k = 0; k < element_type<T>().components; ++k)
            hash = scramble(hash ^ component_bits(element_type<T>(), &element, k, NanView::bits));
    return hash;
}

TEST(Inputs, are_the_same_everywhere)
{
    Random random(seed_of("orvsAdd_16s_Sfs", 70));
    EXPECT_EQ(hash_of(inputs<Orv16s>(random, 100)), 18103775324908429271u);
    EXPECT_EQ(hash_of(inputs<Orv64fc>(random, 100)), 18323721484942574973u);
    EXPECT_NE(seed_of("a", 1), seed_of("a", 2));
    EXPECT_NE(seed_of("a", 1), seed_of("b", 1));
}

template <class T>
void expect_extremes()
{
    Random random(1);
    const auto values = inputs<T>(random, 2000);
    constexpr T lowest = std::numeric_limits<T>::min(), highest = std::numeric_limits<T>::max();
    for (const T extreme : {lowest, T(lowest + 1), T(0), T(1), T(highest - 1), highest})
        EXPECT_TRUE(has(values, extreme));
    for (const T power : {T(16), T(64)}) {
        EXPECT_TRUE(has(values, T(power - 1))) << +power;
        EXPECT_TRUE(has(values, power)) << +power;
        EXPECT_TRUE(has(values, T(power + 1))) << +power;
    }
    EXPECT_GT(std::set<T>(values.begin(), values.end()).size(), sizeof(T) == 1 ? 200u : 800u);
}

TEST(Inputs, of_integers_meet_extremes_and_powers_of_two)
{
    expect_extremes<Orv8u>();
    expect_extremes<Orv8s>();
    expect_extremes<Orv16u>();
    expect_extremes<Orv16s>();
    expect_extremes<Orv32u>();
    expect_extremes<Orv32s>();
    expect_extremes<Orv64u>();
    expect_extremes<Orv64s>();
}

TEST(Inputs, of_integers_meet_ties_at_every_scale)
{
    Random random(2);
    const auto values = inputs<Orv64s>(random, 20000);
    for (int scale = 1; scale < 64; ++scale) {
        const Orv64u half = Orv64u{1} << (scale - 1);
        const auto tie = [&](Orv64s x) { return (static_cast<Orv64u>(x) & (2 * half - 1)) == half; };
        EXPECT_GE(std::count_if(values.begin(), values.end(), tie), 5) << scale;
    }
}

template <class T>
void expect_classes(Floats floats, bool infinities, bool nans)
{
    Random random(3);
    const auto values = inputs<T>(random, 2000, floats);
    const auto any = [&](auto is) { return std::any_of(values.begin(), values.end(), is); };
    EXPECT_EQ(any([](T x) { return std::isnan(x); }), nans);
    EXPECT_EQ(any([](T x) { return std::isinf(x); }), infinities);
    EXPECT_TRUE(any([](T x) { return x == 0 && std::signbit(x); }));
    EXPECT_TRUE(any([](T x) { return x == 0 && !std::signbit(x); }));
    EXPECT_TRUE(any([](T x) { return std::fpclassify(x) == FP_SUBNORMAL; }));
    EXPECT_TRUE(any([](T x) { return std::isfinite(x) && std::abs(x) > std::numeric_limits<T>::max() / 1024; }));
    EXPECT_TRUE(any([](T x) { return x != 0 && x == std::floor(x) && std::abs(x) <= 1000; }));
}

TEST(Inputs, of_floats_meet_all_classes_of_numbers)
{
    expect_classes<Orv32f>(Floats::any, true, true);
    expect_classes<Orv64f>(Floats::any, true, true);
    expect_classes<Orv32f>(Floats::no_nan, true, false);
    expect_classes<Orv64f>(Floats::no_nan, true, false);
    expect_classes<Orv32f>(Floats::finite, false, false);
    expect_classes<Orv64f>(Floats::finite, false, false);
}

TEST(Inputs, of_floats_keep_signalling_nans)
{
    Random random(4);
    const auto values = inputs<Orv32f>(random, 2000);
    const auto signalling = [](const Orv32f& x) {
        const std::uint64_t bits = component_bits(element_type<Orv32f>(), &x, 0, NanView::bits);
        return (bits & 0x7FC00000u) == 0x7F800000u && (bits & 0x003FFFFFu) != 0;
    };
    EXPECT_TRUE(std::any_of(values.begin(), values.end(), signalling));
}

TEST(Inputs, small_integers_are_exact)
{
    Random random(5);
    for (const Orv32f x : inputs<Orv32f>(random, 500, Floats::small_integers)) {
        EXPECT_EQ(x, std::floor(x));
        EXPECT_LE(std::abs(x), 1000);
    }
}

TEST(NotableValues, have_zero_first_and_the_limits)
{
    EXPECT_EQ(notable_values<Orv16s>(), (std::vector<Orv16s>{0, 1, 32767, -32768, -1}));
    EXPECT_EQ(notable_values<Orv8u>(), (std::vector<Orv8u>{0, 1, 255, 0, 255}));
    EXPECT_EQ(notable_values<Orv32f>(Floats::finite), (std::vector<Orv32f>{0, 1, 0.75f}));
    const auto complex = notable_values<Orv16sc>();
    EXPECT_EQ(complex[0].re, 0);
    EXPECT_EQ(complex[0].im, 0);
    EXPECT_EQ(complex[1].re, 1);
    EXPECT_EQ(complex[1].im, 32767);
}

TEST(Sweep, lengths_have_both_sides_of_each_threshold)
{
    const auto lengths = lengths_around({1185, 40});
    for (int n = 1; n <= 70; ++n) EXPECT_EQ(lengths[static_cast<std::size_t>(n - 1)], n);
    EXPECT_EQ(std::vector(lengths.begin() + 70, lengths.end()), (std::vector{1184, 1185, 1186}));
    EXPECT_EQ(lengths_around({71}).size(), 72u);
}

TEST(Sweep, short_arrays_meet_every_misalignment)
{
    for (const int size : {1, 2, 4, 8, 16}) {
        const auto bytes = misalignments(size, 70);
        for (int b = 0; b < 32; ++b) EXPECT_TRUE(has(bytes, b));
        for (int b = 0; b < 64; b += size) EXPECT_TRUE(has(bytes, b));
        const auto few = misalignments(size, 71);
        EXPECT_LT(few.size(), 10u);
        EXPECT_TRUE(has(few, 0) && has(few, 1) && has(few, size));
        for (const int b : few) EXPECT_TRUE(b >= 0 && b < 64);
    }
}

TEST(Sweep, scales_have_the_extremes_of_int)
{
    const auto all = scales(40);
    for (int scale = -40; scale <= 40; ++scale) EXPECT_TRUE(has(all, scale));
    for (const int scale : {INT_MIN, INT_MIN + 1, INT_MAX}) EXPECT_TRUE(has(all, scale));
    EXPECT_EQ(all.size(), 84u);
}

} // namespace
} // namespace orvtest
