// dst = |src|.
#include "orvs/arith.h"

#include "tests/arith/caller_state.h"
#include "tests/arith/large.h"

#include <bit>
#include <gtest/gtest.h>

namespace orvtest {
namespace {

struct Magnitude {
    Wide operator()(const Wide& x) const { return x.negative() ? -x : x; }
};
constexpr Magnitude magnitude;

/// As bytes: a NaN that passes through a floating register may change.
template <class Bits, class T>
std::vector<T> without_signs(std::vector<T> values)
{
    for (T& x : values) {
        Bits bits;
        std::memcpy(&bits, &x, sizeof bits);
        bits &= static_cast<Bits>(-1) >> 1;
        std::memcpy(&x, &bits, sizeof bits);
    }
    return values;
}

struct WithoutSign {
    template <class T>
    T operator()(const T& x) const
    {
        return std::abs(x);
    }
};

// ---- Results

TEST(Abs_16s, exact) { EXPECT_TRUE(sweep_exact(ORV_EXPORT(orvsAbs_16s), magnitude, family_lengths())); }
TEST(Abs_16s_I, exact) { EXPECT_TRUE(sweep_exact(ORV_EXPORT(orvsAbs_16s_I), magnitude, family_lengths())); }
TEST(Abs_32s, exact) { EXPECT_TRUE(sweep_exact(ORV_EXPORT(orvsAbs_32s), magnitude, family_lengths())); }
TEST(Abs_32s_I, exact) { EXPECT_TRUE(sweep_exact(ORV_EXPORT(orvsAbs_32s_I), magnitude, family_lengths())); }
TEST(Abs_32f, exact) { EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsAbs_32f), WithoutSign(), family_lengths())); }
TEST(Abs_32f_I, exact) { EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsAbs_32f_I), WithoutSign(), family_lengths())); }
TEST(Abs_64f, exact) { EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsAbs_64f), WithoutSign(), family_lengths())); }
TEST(Abs_64f_I, exact) { EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsAbs_64f_I), WithoutSign(), family_lengths())); }

TEST(Abs, of_the_lowest_value_is_the_largest)
{
    for (const int n : {1, 5, 16, 33, 100}) {
        const auto count = static_cast<std::size_t>(n);
        const std::vector<Orv16s> words(count, INT16_MIN);
        std::vector<Orv16s> d(count);
        EXPECT_EQ(orvsAbs_16s(words.data(), d.data(), n), orvOk);
        expect_elements(ORV_EXPORT(orvsAbs_16s), d, std::vector<Orv16s>(count, INT16_MAX));
        std::vector<Orv32s> e(count, INT32_MIN);
        EXPECT_EQ(orvsAbs_32s_I(e.data(), n), orvOk);
        expect_elements(ORV_EXPORT(orvsAbs_32s_I), e, std::vector<Orv32s>(count, INT32_MAX));
    }
}

TEST(Abs, of_all_words)
{
    std::vector<Orv16s> x, d(65536), want;
    for (int i = INT16_MIN; i <= INT16_MAX; ++i) {
        x.push_back(static_cast<Orv16s>(i));
        want.push_back(limited<Orv16s>(std::abs(i)));
    }
    EXPECT_EQ(orvsAbs_16s(x.data(), d.data(), 65536), orvOk);
    expect_elements(ORV_EXPORT(orvsAbs_16s), d, want);
}

/// Quiet and signalling NaNs lose the sign and keep the payload.
template <class Bits, class T>
void expect_payloads(const Export<OrvStatus, const T*, T*, int>& f, const Export<OrvStatus, T*, int>& in_place)
{
    for (const std::size_t n : {1u, 3u, 8u, 21u, 200u, 2000u}) {
        Random random(n);
        const std::vector<T> x = inputs<T>(random, n), want = without_signs<Bits>(x);
        std::vector<T> d(n), e = x;
        EXPECT_EQ(f(x.data(), d.data(), static_cast<int>(n)), orvOk);
        expect_elements(f, d, want, NanView::bits);
        EXPECT_EQ(in_place(e.data(), static_cast<int>(n)), orvOk);
        expect_elements(in_place, e, want, NanView::bits);
    }
}
TEST(Abs, keeps_the_payload_of_a_nan)
{
    expect_payloads<std::uint32_t>(ORV_EXPORT(orvsAbs_32f), ORV_EXPORT(orvsAbs_32f_I));
    expect_payloads<std::uint64_t>(ORV_EXPORT(orvsAbs_64f), ORV_EXPORT(orvsAbs_64f_I));
}

// ---- Order of checks

TEST(Abs, checks_pointers_before_length)
{
    expect_pointers_before_length(ORV_EXPORT(orvsAbs_16s), 4);
    expect_pointers_before_length(ORV_EXPORT(orvsAbs_16s_I), 4);
    expect_pointers_before_length(ORV_EXPORT(orvsAbs_32s), 4);
    expect_pointers_before_length(ORV_EXPORT(orvsAbs_32s_I), 4);
    expect_pointers_before_length(ORV_EXPORT(orvsAbs_32f), 4);
    expect_pointers_before_length(ORV_EXPORT(orvsAbs_32f_I), 4);
    expect_pointers_before_length(ORV_EXPORT(orvsAbs_64f), 4);
    expect_pointers_before_length(ORV_EXPORT(orvsAbs_64f_I), 4);
}

// ---- Large arrays, and the caller's floating-point state

TEST(Abs, of_large_arrays)
{
    EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsAbs_16s), magnitude));
    EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsAbs_32s_I), magnitude));
    EXPECT_TRUE(check_large(ORV_EXPORT(orvsAbs_32f).with(), WithoutSign()));
    EXPECT_TRUE(check_large(ORV_EXPORT(orvsAbs_64f).with(), WithoutSign()));
}

/// Only bits are changed: subnormal numbers stay, and signalling NaNs do not signal.
TEST(Abs, computes_nothing)
{
    const CallerState scope(flush_to_zero | denormals_are_zero);
    const std::vector<Orv64f> x(50, -std::numeric_limits<Orv64f>::denorm_min());
    std::vector<Orv64f> d(50);
    EXPECT_EQ(orvsAbs_64f(x.data(), d.data(), 50), orvOk);
    expect_elements(ORV_EXPORT(orvsAbs_64f), d, without_signs<std::uint64_t>(x));
    Random random(9);
    const std::vector<Orv32f> y = inputs<Orv32f>(random, 500);
    std::vector<Orv32f> e(500);
    _mm_setcsr(_mm_getcsr() & ~flag_bits);
    EXPECT_EQ(orvsAbs_32f(y.data(), e.data(), 500), orvOk);
    EXPECT_EQ(_mm_getcsr() & flag_bits, 0u);
}

} // namespace
} // namespace orvtest
