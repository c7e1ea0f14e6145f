// dst = src + val.
#include "orvs/arith.h"

#include "tests/arith/caller_state.h"
#include "tests/arith/endless.h"
#include "tests/arith/family.h"
#include "tests/arith/large.h"

#include <bit>
#include <gtest/gtest.h>

namespace orvtest {
namespace {

// ---- Results

/// The interface fills with zeros from 9 on, though (255 + 255) / 512 would round to 1.
constexpr int zero_from_8u = 9;

TEST(AddC_8u_Sfs, exact_below_scale_9)
{
    EXPECT_TRUE(sweep_exact_below(zero_from_8u, ORV_EXPORT(orvsAddC_8u_Sfs), sum));
}
TEST(AddC_8u_ISfs, exact_below_scale_9)
{
    EXPECT_TRUE(sweep_exact_below(zero_from_8u, ORV_EXPORT(orvsAddC_8u_ISfs), sum));
}
TEST(AddC_16u_Sfs, exact) { EXPECT_TRUE(sweep_exact(ORV_EXPORT(orvsAddC_16u_Sfs), sum, family_lengths())); }
TEST(AddC_16u_ISfs, exact) { EXPECT_TRUE(sweep_exact(ORV_EXPORT(orvsAddC_16u_ISfs), sum, family_lengths())); }
TEST(AddC_16s_I, exact) { EXPECT_TRUE(sweep_exact(ORV_EXPORT(orvsAddC_16s_I), sum, family_lengths())); }
TEST(AddC_16s_Sfs, exact) { EXPECT_TRUE(sweep_exact(ORV_EXPORT(orvsAddC_16s_Sfs), sum, family_lengths())); }
TEST(AddC_16s_ISfs, exact) { EXPECT_TRUE(sweep_exact(ORV_EXPORT(orvsAddC_16s_ISfs), sum, family_lengths())); }
TEST(AddC_16sc_Sfs, exact) { EXPECT_TRUE(sweep_exact(ORV_EXPORT(orvsAddC_16sc_Sfs), sum, family_lengths())); }
TEST(AddC_16sc_ISfs, exact) { EXPECT_TRUE(sweep_exact(ORV_EXPORT(orvsAddC_16sc_ISfs), sum, family_lengths())); }
TEST(AddC_32s_Sfs, exact) { EXPECT_TRUE(sweep_exact(ORV_EXPORT(orvsAddC_32s_Sfs), sum, family_lengths())); }
TEST(AddC_32s_ISfs, exact) { EXPECT_TRUE(sweep_exact(ORV_EXPORT(orvsAddC_32s_ISfs), sum, family_lengths())); }
TEST(AddC_32sc_Sfs, exact) { EXPECT_TRUE(sweep_exact(ORV_EXPORT(orvsAddC_32sc_Sfs), sum, family_lengths())); }
TEST(AddC_32sc_ISfs, exact) { EXPECT_TRUE(sweep_exact(ORV_EXPORT(orvsAddC_32sc_ISfs), sum, family_lengths())); }
TEST(AddC_64s_Sfs, exact) { EXPECT_TRUE(sweep_exact(ORV_EXPORT(orvsAddC_64s_Sfs), sum)); }
TEST(AddC_64u_Sfs, exact) { EXPECT_TRUE(sweep_exact(ORV_EXPORT(orvsAddC_64u_Sfs), sum)); }

TEST(AddC_32f, ieee) { EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsAddC_32f), sum, family_lengths())); }
TEST(AddC_32f_I, ieee) { EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsAddC_32f_I), sum, family_lengths())); }
TEST(AddC_32fc, ieee) { EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsAddC_32fc), sum, family_lengths())); }
TEST(AddC_32fc_I, ieee) { EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsAddC_32fc_I), sum, family_lengths())); }
TEST(AddC_64f, ieee) { EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsAddC_64f), sum, family_lengths())); }
TEST(AddC_64f_I, ieee) { EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsAddC_64f_I), sum, family_lengths())); }
TEST(AddC_64fc, ieee) { EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsAddC_64fc), sum, family_lengths())); }
TEST(AddC_64fc_I, ieee) { EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsAddC_64fc_I), sum, family_lengths())); }

// ---- Order of checks

TEST(AddC, checks_pointers_before_length)
{
    expect_pointers_before_length(ORV_EXPORT(orvsAddC_8u_Sfs), Orv8u{5}, 4, 0);
    expect_pointers_before_length(ORV_EXPORT(orvsAddC_8u_ISfs), Orv8u{5}, 4, 0);
    expect_pointers_before_length(ORV_EXPORT(orvsAddC_16u_Sfs), Orv16u{5}, 4, 0);
    expect_pointers_before_length(ORV_EXPORT(orvsAddC_16u_ISfs), Orv16u{5}, 4, 0);
    expect_pointers_before_length(ORV_EXPORT(orvsAddC_16s_I), Orv16s{5}, 4);
    expect_pointers_before_length(ORV_EXPORT(orvsAddC_16s_Sfs), Orv16s{5}, 4, 0);
    expect_pointers_before_length(ORV_EXPORT(orvsAddC_16s_ISfs), Orv16s{5}, 4, 0);
    expect_pointers_before_length(ORV_EXPORT(orvsAddC_16sc_Sfs), Orv16sc{5, 6}, 4, 0);
    expect_pointers_before_length(ORV_EXPORT(orvsAddC_16sc_ISfs), Orv16sc{5, 6}, 4, 0);
    expect_pointers_before_length(ORV_EXPORT(orvsAddC_32s_Sfs), 5, 4, 0);
    expect_pointers_before_length(ORV_EXPORT(orvsAddC_32s_ISfs), 5, 4, 0);
    expect_pointers_before_length(ORV_EXPORT(orvsAddC_32sc_Sfs), Orv32sc{5, 6}, 4, 0);
    expect_pointers_before_length(ORV_EXPORT(orvsAddC_32sc_ISfs), Orv32sc{5, 6}, 4, 0);
    expect_pointers_before_length(ORV_EXPORT(orvsAddC_32f), 5.0f, 4);
    expect_pointers_before_length(ORV_EXPORT(orvsAddC_32f_I), 5.0f, 4);
    expect_pointers_before_length(ORV_EXPORT(orvsAddC_32fc), Orv32fc{5, 6}, 4);
    expect_pointers_before_length(ORV_EXPORT(orvsAddC_32fc_I), Orv32fc{5, 6}, 4);
    expect_pointers_before_length(ORV_EXPORT(orvsAddC_64f), 5.0, 4);
    expect_pointers_before_length(ORV_EXPORT(orvsAddC_64f_I), 5.0, 4);
    expect_pointers_before_length(ORV_EXPORT(orvsAddC_64fc), Orv64fc{5, 6}, 4);
    expect_pointers_before_length(ORV_EXPORT(orvsAddC_64fc_I), Orv64fc{5, 6}, 4);
}

TEST(AddC, checks_come_first_at_every_scale)
{
    for (const int scale : {INT_MIN, -100, -16, -8, -1, 1, 9, 17, 100, INT_MAX})
        for (const int value : {0, 1}) {
            expect_pointers_before_length(ORV_EXPORT(orvsAddC_8u_Sfs), static_cast<Orv8u>(value), 4, scale);
            expect_pointers_before_length(ORV_EXPORT(orvsAddC_16u_Sfs), static_cast<Orv16u>(value), 4, scale);
            expect_pointers_before_length(ORV_EXPORT(orvsAddC_16s_Sfs), static_cast<Orv16s>(value), 4, scale);
            expect_pointers_before_length(ORV_EXPORT(orvsAddC_32s_Sfs), value, 4, scale);
        }
}

TEST(AddC, of_64_bits_refuses_null_pointers_and_then_only_the_length_0)
{
    for (const int scale : {INT_MIN, -1, 0, 1, 5, 64, 65, 66})
        for (const OrvRoundMode mode : {orvRndZero, orvRndNear, orvRndFinancial}) {
            const auto f_signed = ORV_EXPORT(orvsAddC_64s_Sfs);
            ArgumentChecks(f_signed, Orv64s{5}, 4, scale, mode).null_pointers().bad<3>(0, orvErrBadLength).run();
            const auto f_unsigned = ORV_EXPORT(orvsAddC_64u_Sfs);
            ArgumentChecks(f_unsigned, Orv64u{5}, 4, scale, mode).null_pointers().bad<3>(0, orvErrBadLength).run();
        }
}

template <class T>
void expect_nothing_at_negative_lengths(const Export<OrvStatus, const T*, T, T*, int, int, OrvRoundMode>& f)
{
    const std::vector<T> before = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10};
    const GuardedArray<T> a(before);
    GuardedArray<T> d(before);
    for (const int length : {-1, -2, -4, -8, -1000, INT_MIN + 1, INT_MIN})
        for (const int scale : {INT_MIN, -63, -1, 0, 1, 2, 63, 64, 65, 66, INT_MAX}) {
            EXPECT_EQ(f(a.data(), 7, d.data(), length, scale, orvRndNear), orvOk) << length << ", scale " << scale;
            EXPECT_TRUE(expect_elements(f, d, before)) << length << ", scale " << scale;
            EXPECT_EQ(f(nullptr, 7, d.data(), length, scale, orvRndNear), orvErrNullPointer) << length;
            EXPECT_EQ(f(a.data(), 7, nullptr, length, scale, orvRndNear), orvErrNullPointer) << length;
        }
}

TEST(AddC, of_64_bits_accepts_a_negative_length_and_does_nothing)
{
    expect_nothing_at_negative_lengths(ORV_EXPORT(orvsAddC_64s_Sfs));
    expect_nothing_at_negative_lengths(ORV_EXPORT(orvsAddC_64u_Sfs));
}

// ---- Notable sums

TEST(AddC, of_8u_at_notable_scales)
{
    const auto f = ORV_EXPORT(orvsAddC_8u_Sfs);
    EXPECT_EQ(result_of(f, 1, 0, 1), 0); // one half
    EXPECT_EQ(result_of(f, 3, 0, 1), 2);
    EXPECT_EQ(result_of(f, 255, 255, 8), 2); // 510 / 256
    EXPECT_EQ(result_of(f, 64, 64, 8), 0);   // one half
    EXPECT_EQ(result_of(f, 64, 65, 8), 1);
    EXPECT_EQ(result_of(f, 1, 0, -7), 128);
    EXPECT_EQ(result_of(f, 1, 0, -8), 255); // val 0: the source decides
    EXPECT_EQ(result_of(f, 0, 0, -8), 0);
    EXPECT_EQ(result_of(f, 0, 1, -8), 255); // val not 0: it decides alone
    EXPECT_EQ(result_of(f, 0, 1, INT_MIN), 255);
    EXPECT_EQ(result_of(f, 0, 0, INT_MIN), 0);
}

/// A sum with a scalar is 0 at scale 9; the same sum of vectors is 1.
TEST(AddC, of_8u_is_0_from_scale_9_on)
{
    for (const int scale : {9, 10, 11, 32, INT_MAX}) {
        EXPECT_EQ(result_of(ORV_EXPORT(orvsAddC_8u_Sfs), 255, 255, scale), 0) << scale;
        Orv8u d = 255;
        EXPECT_EQ(ORV_EXPORT(orvsAddC_8u_ISfs)(255, &d, 1, scale), orvOk);
        EXPECT_EQ(d, 0) << scale;
    }
    EXPECT_EQ(result_of(ORV_EXPORT(orvsAdd_8u_Sfs), 255, 255, 9), 1);
}

TEST(AddC, of_16_bits_at_notable_scales)
{
    const auto f = ORV_EXPORT(orvsAddC_16s_Sfs);
    EXPECT_EQ(result_of(f, 32767, 32767, 16), 1);
    EXPECT_EQ(result_of(f, -32768, -32768, 16), -1);
    EXPECT_EQ(result_of(f, 32767, 32767, 17), 0);
    EXPECT_EQ(result_of(f, 32767, 1, 0), 32767);
    EXPECT_EQ(result_of(f, -32768, -1, 0), -32768);
    EXPECT_EQ(result_of(f, -3, 0, 0), -3);
    EXPECT_EQ(result_of(f, 2, -1, -15), 32767);
    EXPECT_EQ(result_of(f, -2, 1, -16), -32768);
    EXPECT_EQ(result_of(f, -2, 2, -16), 0);

    const auto g = ORV_EXPORT(orvsAddC_16u_Sfs);
    EXPECT_EQ(result_of(g, 65535, 65535, 17), 1);
    EXPECT_EQ(result_of(g, 32768, 32768, 17), 0); // one half
    EXPECT_EQ(result_of(g, 65535, 65535, 18), 0);
    EXPECT_EQ(result_of(g, 0, 1, -15), 32768);
    EXPECT_EQ(result_of(g, 0, 1, -16), 65535);
    EXPECT_EQ(result_of(g, 1, 0, -16), 65535);
    EXPECT_EQ(result_of(g, 0, 0, -16), 0);
    EXPECT_EQ(result_of(g, 0, 0, INT_MIN), 0);
}

TEST(AddC, of_32s_at_notable_scales)
{
    const auto f = ORV_EXPORT(orvsAddC_32s_Sfs);
    EXPECT_EQ(result_of(f, INT32_MAX, 1, 0), INT32_MAX);
    EXPECT_EQ(result_of(f, INT32_MIN, INT32_MIN, 1), INT32_MIN);
    EXPECT_EQ(result_of(f, INT32_MIN, INT32_MIN, 32), -1);
    EXPECT_EQ(result_of(f, INT32_MIN, INT32_MIN, 33), 0);
    EXPECT_EQ(result_of(f, 1, 0, -31), INT32_MAX);
    EXPECT_EQ(result_of(f, -1, 0, -31), INT32_MIN);
}

/// A complex scalar's parts go to their own places, at every alignment and length (16sc parts are 1 and 2, then 10
/// and 20).
TEST(AddC, of_complex_values_adds_part_to_part)
{
    const std::vector<Orv16sc> a(37, {1, 2}), want(37, {11, 22});
    std::vector<Orv16sc> d(37);
    EXPECT_EQ(ORV_EXPORT(orvsAddC_16sc_Sfs)(a.data(), {10, 20}, d.data(), 37, 0), orvOk);
    expect_elements(ORV_EXPORT(orvsAddC_16sc_Sfs), d, want);
    const std::vector<Orv64fc> b(5, {1, 2}), sum_of_b(5, {11, 22});
    std::vector<Orv64fc> e(5);
    EXPECT_EQ(ORV_EXPORT(orvsAddC_64fc)(b.data(), {10, 20}, e.data(), 5), orvOk);
    expect_elements(ORV_EXPORT(orvsAddC_64fc), e, sum_of_b);
}

// ---- 64 bits: three modes of rounding

/// What f makes of one pair by truncation, to nearest even, and to nearest with ties away from zero.
template <class T>
std::array<T, 3> in_all_modes(const Export<OrvStatus, const T*, T, T*, int, int, OrvRoundMode>& f,
                              std::type_identity_t<T> a, std::type_identity_t<T> value, int scale)
{
    std::array<T, 3> results = {};
    for (std::size_t mode = 0; mode < 3; ++mode)
        for (const std::size_t n : {std::size_t{1}, std::size_t{4}, std::size_t{11}, std::size_t{100}}) {
            const std::vector<T> as(n, a);
            std::vector<T> d(n, 99);
            EXPECT_EQ(f(as.data(), value, d.data(), static_cast<int>(n), scale, static_cast<OrvRoundMode>(mode)),
                      orvOk);
            if (n == 1) results[mode] = d[0];
            expect_elements(f, d, std::vector<T>(n, results[mode]));
        }
    return results;
}
using Signed = std::array<Orv64s, 3>;
using Unsigned = std::array<Orv64u, 3>;

TEST(AddC_64s_Sfs, ties)
{
    const auto f = ORV_EXPORT(orvsAddC_64s_Sfs);
    EXPECT_EQ(in_all_modes(f, 4, 1, 1), (Signed{2, 2, 3})); // 2.5
    EXPECT_EQ(in_all_modes(f, 6, 1, 1), (Signed{3, 4, 4})); // 3.5
    EXPECT_EQ(in_all_modes(f, -4, -1, 1), (Signed{-2, -2, -3}));
    EXPECT_EQ(in_all_modes(f, -6, -1, 1), (Signed{-3, -4, -4}));
    EXPECT_EQ(in_all_modes(f, -1, 0, 1), (Signed{0, 0, -1})); // -0.5
    EXPECT_EQ(in_all_modes(f, 5, 5, 2), (Signed{2, 2, 3}));   // 2.5
    EXPECT_EQ(in_all_modes(f, -5, -5, 2), (Signed{-2, -2, -3}));
    EXPECT_EQ(in_all_modes(f, -5, -6, 2), (Signed{-2, -3, -3})); // -2.75
    EXPECT_EQ(in_all_modes(f, -4, -5, 2), (Signed{-2, -2, -2})); // -2.25
    EXPECT_EQ(in_all_modes(f, INT64_MAX, INT64_MAX, 1), (Signed{INT64_MAX, INT64_MAX, INT64_MAX}));
    EXPECT_EQ(in_all_modes(f, INT64_MAX, INT64_MAX - 1, 1), (Signed{INT64_MAX - 1, INT64_MAX - 1, INT64_MAX}));
    EXPECT_EQ(in_all_modes(f, INT64_MIN, INT64_MIN + 1, 1), (Signed{INT64_MIN + 1, INT64_MIN, INT64_MIN}));
}

TEST(AddC_64s_Sfs, at_the_last_scales_that_are_not_0)
{
    const auto f = ORV_EXPORT(orvsAddC_64s_Sfs);
    EXPECT_EQ(in_all_modes(f, INT64_MIN, INT64_MIN, 63), (Signed{-2, -2, -2}));
    EXPECT_EQ(in_all_modes(f, INT64_MIN / 2, 0, 63), (Signed{0, 0, -1}));           // minus one half
    EXPECT_EQ(in_all_modes(f, INT64_MIN, INT64_MIN / 2, 63), (Signed{-1, -2, -2})); // -1.5

    EXPECT_EQ(in_all_modes(f, INT64_MIN, INT64_MIN, 64), (Signed{-1, -1, -1}));
    EXPECT_EQ(in_all_modes(f, INT64_MIN, INT64_MIN + 1, 64), (Signed{0, -1, -1}));
    EXPECT_EQ(in_all_modes(f, INT64_MIN, 0, 64), (Signed{0, 0, -1})); // minus one half
    EXPECT_EQ(in_all_modes(f, INT64_MIN, -1, 64), (Signed{0, -1, -1}));
    EXPECT_EQ(in_all_modes(f, INT64_MIN, 1, 64), (Signed{0, 0, 0}));
    EXPECT_EQ(in_all_modes(f, INT64_MAX, INT64_MAX, 64), (Signed{0, 1, 1}));
    EXPECT_EQ(in_all_modes(f, INT64_MAX, 1, 64), (Signed{0, 0, 1})); // one half
    EXPECT_EQ(in_all_modes(f, INT64_MAX, 0, 64), (Signed{0, 0, 0}));

    EXPECT_EQ(in_all_modes(f, INT64_MIN, INT64_MIN, 65), (Signed{0, 0, -1})); // minus one half, the only one
    EXPECT_EQ(in_all_modes(f, INT64_MIN + 1, INT64_MIN, 65), (Signed{0, 0, 0}));
    EXPECT_EQ(in_all_modes(f, INT64_MIN, INT64_MIN + 1, 65), (Signed{0, 0, 0}));
    EXPECT_EQ(in_all_modes(f, INT64_MAX, INT64_MAX, 65), (Signed{0, 0, 0}));
    for (const int scale : {66, 67, 127, 128, 129, 1000, INT_MAX}) {
        EXPECT_EQ(in_all_modes(f, INT64_MIN, INT64_MIN, scale), (Signed{0, 0, 0})) << scale;
        EXPECT_EQ(in_all_modes(f, INT64_MAX, INT64_MAX, scale), (Signed{0, 0, 0})) << scale;
    }
}

TEST(AddC_64s_Sfs, at_negative_scales)
{
    const auto f = ORV_EXPORT(orvsAddC_64s_Sfs);
    EXPECT_EQ(in_all_modes(f, 3, -1, -2), (Signed{8, 8, 8}));
    EXPECT_EQ(in_all_modes(f, INT64_MAX, 1, -1), (Signed{INT64_MAX, INT64_MAX, INT64_MAX}));
    EXPECT_EQ(in_all_modes(f, INT64_MIN, INT64_MIN, -1), (Signed{INT64_MIN, INT64_MIN, INT64_MIN}));
    EXPECT_EQ(in_all_modes(f, -1, 0, -63), (Signed{INT64_MIN, INT64_MIN, INT64_MIN}));
    for (const int scale : {-63, -64, -65, -1000, INT_MIN}) {
        EXPECT_EQ(in_all_modes(f, 2, -1, scale), (Signed{INT64_MAX, INT64_MAX, INT64_MAX})) << scale;
        EXPECT_EQ(in_all_modes(f, 1, -1, scale), (Signed{0, 0, 0})) << scale;
        EXPECT_EQ(in_all_modes(f, 1, -2, scale), (Signed{INT64_MIN, INT64_MIN, INT64_MIN})) << scale;
    }
}

TEST(AddC_64u_Sfs, at_notable_scales)
{
    const auto f = ORV_EXPORT(orvsAddC_64u_Sfs);
    constexpr Orv64u half = Orv64u{1} << 63;
    EXPECT_EQ(in_all_modes(f, UINT64_MAX, 1, 0), (Unsigned{UINT64_MAX, UINT64_MAX, UINT64_MAX}));
    EXPECT_EQ(in_all_modes(f, 4, 1, 1), (Unsigned{2, 2, 3}));
    EXPECT_EQ(in_all_modes(f, 6, 1, 1), (Unsigned{3, 4, 4}));
    EXPECT_EQ(in_all_modes(f, UINT64_MAX, UINT64_MAX - 1, 1), (Unsigned{UINT64_MAX - 1, UINT64_MAX - 1, UINT64_MAX}));
    EXPECT_EQ(in_all_modes(f, half, 0, 64), (Unsigned{0, 0, 1}));              // one half
    EXPECT_EQ(in_all_modes(f, UINT64_MAX, half + 1, 64), (Unsigned{1, 2, 2})); // 1.5
    EXPECT_EQ(in_all_modes(f, UINT64_MAX, UINT64_MAX, 64), (Unsigned{1, 2, 2}));
    EXPECT_EQ(in_all_modes(f, half, half, 65), (Unsigned{0, 0, 1})); // one half
    EXPECT_EQ(in_all_modes(f, half, half + 1, 65), (Unsigned{0, 1, 1}));
    EXPECT_EQ(in_all_modes(f, half, half - 1, 65), (Unsigned{0, 0, 0}));
    EXPECT_EQ(in_all_modes(f, UINT64_MAX, UINT64_MAX, 65), (Unsigned{0, 1, 1}));
    for (const int scale : {66, 67, 128, 129, INT_MAX})
        EXPECT_EQ(in_all_modes(f, UINT64_MAX, UINT64_MAX, scale), (Unsigned{0, 0, 0})) << scale;
    EXPECT_EQ(in_all_modes(f, 1, 0, -63), (Unsigned{half, half, half}));
    for (const int scale : {-64, -65, -1000, INT_MIN}) {
        EXPECT_EQ(in_all_modes(f, 1, 0, scale), (Unsigned{UINT64_MAX, UINT64_MAX, UINT64_MAX})) << scale;
        EXPECT_EQ(in_all_modes(f, 0, 0, scale), (Unsigned{0, 0, 0})) << scale;
    }
}

/// Any mode that is neither to zero nor to nearest is financial, as a caller in C may pass it.
template <class T>
bool other_modes_are_financial(const Export<OrvStatus, const T*, T, T*, int, int, OrvRoundMode>& f)
{
    SweepOptions options;
    options.lengths = {1, 2, 3, 4, 5, 7, 8, 9, 15, 33};
    options.few_placements = true;
    for (const int number : {3, 4, 32, -1, INT_MIN, INT_MAX})
        for (const int scale : {-64, -2, 0, 1, 2, 3, 31, 33, 63, 64, 65, 66}) {
            const auto mode = std::bit_cast<OrvRoundMode>(number);
            const auto financial = [=](T a, T value) {
                return saturate<T>(scale_law(Wide(a) + value, scale, orvRndFinancial));
            };
            if (!sweep_elements(f.with(scale, mode), financial, options)) return false;
        }
    return true;
}

TEST(AddC, of_64_bits_takes_unknown_modes_as_financial)
{
    EXPECT_TRUE(other_modes_are_financial(ORV_EXPORT(orvsAddC_64s_Sfs)));
    EXPECT_TRUE(other_modes_are_financial(ORV_EXPORT(orvsAddC_64u_Sfs)));
}

template <class T>
void expect_critical_pairs_in_all_modes(const Export<OrvStatus, const T*, T, T*, int, int, OrvRoundMode>& f)
{
    const std::vector<T> values = critical_values<T>(0, 10), scalars = critical_values<T>(0, 1, 12);
    std::vector<T> results(values.size()), want(values.size());
    for (const OrvRoundMode mode : {orvRndZero, orvRndNear, orvRndFinancial})
        for (int scale = -65; scale <= 66; ++scale)
            for (const T value : scalars) {
                ASSERT_EQ(f(values.data(), value, results.data(), static_cast<int>(values.size()), scale, mode), orvOk);
                for (std::size_t i = 0; i < values.size(); ++i)
                    want[i] = saturate<T>(scale_law(Wide(values[i]) + value, scale, mode));
                if (results == want) continue;
                for (std::size_t i = 0; i < values.size(); ++i)
                    ASSERT_EQ(results[i], want[i]) << f.name() << " of " << values[i] << " and " << value
                                                   << " at scale " << scale << " in mode " << mode;
            }
}

TEST(AddC, of_critical_pairs_of_64s) { expect_critical_pairs_in_all_modes(ORV_EXPORT(orvsAddC_64s_Sfs)); }
TEST(AddC, of_critical_pairs_of_64u) { expect_critical_pairs_in_all_modes(ORV_EXPORT(orvsAddC_64u_Sfs)); }

// ---- Every pair of narrow operands

template <class T>
T scaled_sum(T a, T b, int scale)
{
    return limited<T>(nearest_even(std::int64_t{a} + b, scale));
}

TEST(AddC, of_all_pairs_of_8u)
{
    const Pairs<Orv8u> pairs(all_bytes<Orv8u>(), all_bytes<Orv8u>());
    const auto wanted = [](Orv8u a, Orv8u b, int scale) {
        return scale >= zero_from_8u ? Orv8u{0} : scaled_sum(a, b, scale);
    };
    expect_all_pairs(ORV_EXPORT(orvsAddC_8u_Sfs), pairs, -10, 11, wanted);
}
TEST(AddC, of_critical_pairs_of_16s)
{
    const Pairs pairs(critical_values<Orv16s>(3, 150), critical_values<Orv16s>(0, 20));
    expect_all_pairs(ORV_EXPORT(orvsAddC_16s_Sfs), pairs, -17, 19, scaled_sum<Orv16s>);
}
TEST(AddC, of_critical_pairs_of_16u)
{
    const Pairs pairs(critical_values<Orv16u>(3, 150), critical_values<Orv16u>(0, 20));
    expect_all_pairs(ORV_EXPORT(orvsAddC_16u_Sfs), pairs, -17, 19, scaled_sum<Orv16u>);
}
TEST(AddC, of_critical_pairs_of_32s)
{
    const Pairs pairs(critical_values<Orv32s>(1, 20), critical_values<Orv32s>(0, 5, 4));
    const auto wanted = [](Orv32s a, Orv32s b, int scale) { return saturate<Orv32s>(scale_law(Wide(a) + b, scale)); };
    expect_all_pairs(ORV_EXPORT(orvsAddC_32s_Sfs), pairs, -33, 34, wanted);
}

// ---- Large arrays

TEST(AddC, of_large_integer_arrays)
{
    for (const int scale : {-40, -3, 0, 1, 2, 40}) {
        EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsAddC_8u_Sfs), sum, scale));
        EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsAddC_16s_Sfs), sum, scale));
    }
    EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsAddC_8u_ISfs), sum, 1));
    EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsAddC_16u_Sfs), sum, 1));
    EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsAddC_16u_ISfs), sum, 1));
    EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsAddC_16s_I), sum));
    EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsAddC_16s_ISfs), sum, 1));
    EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsAddC_16sc_Sfs), sum, 1));
    EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsAddC_16sc_ISfs), sum, 1));
    EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsAddC_32s_Sfs), sum, 1));
    EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsAddC_32s_ISfs), sum, 1));
    EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsAddC_32sc_Sfs), sum, 1));
    EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsAddC_32sc_ISfs), sum, 1));
    EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsAddC_64s_Sfs), sum, 1, orvRndNear));
    EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsAddC_64s_Sfs), sum, 7, orvRndNear));
    EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsAddC_64u_Sfs), sum, 65, orvRndNear));
}

TEST(AddC, of_large_float_arrays)
{
    EXPECT_TRUE(check_large(ORV_EXPORT(orvsAddC_32f).with(), sum));
    EXPECT_TRUE(check_large(ORV_EXPORT(orvsAddC_32f_I).with(), sum));
    EXPECT_TRUE(check_large(ORV_EXPORT(orvsAddC_32fc).with(), sum));
    EXPECT_TRUE(check_large(ORV_EXPORT(orvsAddC_32fc_I).with(), sum));
    EXPECT_TRUE(check_large(ORV_EXPORT(orvsAddC_64f).with(), sum));
    EXPECT_TRUE(check_large(ORV_EXPORT(orvsAddC_64f_I).with(), sum));
    EXPECT_TRUE(check_large(ORV_EXPORT(orvsAddC_64fc).with(), sum));
    EXPECT_TRUE(check_large(ORV_EXPORT(orvsAddC_64fc_I).with(), sum));
}

#if ORV_ENDLESS_ARRAYS
/// Twice the length of these does not fit the type of lengths.
TEST(AddC, of_complex_arrays_with_more_parts_than_a_length_can_tell)
{
    const auto f = [](auto add, const Orv32fc* src, Orv32fc* dst, int n) { return add(src, {1, 2}, dst, n); };
    expect_right_without_end(ORV_EXPORT(orvsAddC_32fc).as(f), [](const Orv32fc& a) { return sum(a, {1, 2}); });
}
#endif

// ---- The caller's floating-point state

TEST(AddC, follows_the_callers_state)
{
    const auto in_place = [](auto a, auto b) { return std::tuple(b, a); };
    const auto apart = [](auto a, auto b) { return std::tuple(a, b, a); };
    expect_to_follow_the_state(ORV_EXPORT(orvsAddC_32f).with(), apart);
    expect_to_follow_the_state(ORV_EXPORT(orvsAddC_32f_I).with(), in_place);
    expect_to_follow_the_state(ORV_EXPORT(orvsAddC_32fc).with(), apart);
    expect_to_follow_the_state(ORV_EXPORT(orvsAddC_32fc_I).with(), in_place);
    expect_to_follow_the_state(ORV_EXPORT(orvsAddC_64f).with(), apart);
    expect_to_follow_the_state(ORV_EXPORT(orvsAddC_64f_I).with(), in_place);
    expect_to_follow_the_state(ORV_EXPORT(orvsAddC_64fc).with(), apart);
    expect_to_follow_the_state(ORV_EXPORT(orvsAddC_64fc_I).with(), in_place);
}

TEST(AddC, is_ieee_in_other_states)
{
    EXPECT_TRUE(sweep_in_states(ORV_EXPORT(orvsAddC_32f).with(), sum));
    EXPECT_TRUE(sweep_in_states(ORV_EXPORT(orvsAddC_32f_I).with(), sum));
    EXPECT_TRUE(sweep_in_states(ORV_EXPORT(orvsAddC_32fc).with(), sum));
    EXPECT_TRUE(sweep_in_states(ORV_EXPORT(orvsAddC_32fc_I).with(), sum));
    EXPECT_TRUE(sweep_in_states(ORV_EXPORT(orvsAddC_64f).with(), sum));
    EXPECT_TRUE(sweep_in_states(ORV_EXPORT(orvsAddC_64f_I).with(), sum));
    EXPECT_TRUE(sweep_in_states(ORV_EXPORT(orvsAddC_64fc).with(), sum));
    EXPECT_TRUE(sweep_in_states(ORV_EXPORT(orvsAddC_64fc_I).with(), sum));
}

TEST(AddC, raises_no_flags_on_exact_sums)
{
    expect_no_flags(ORV_EXPORT(orvsAddC_32f).with());
    expect_no_flags(ORV_EXPORT(orvsAddC_32f_I).with());
    expect_no_flags(ORV_EXPORT(orvsAddC_32fc).with());
    expect_no_flags(ORV_EXPORT(orvsAddC_32fc_I).with());
    expect_no_flags(ORV_EXPORT(orvsAddC_64f).with());
    expect_no_flags(ORV_EXPORT(orvsAddC_64f_I).with());
    expect_no_flags(ORV_EXPORT(orvsAddC_64fc).with());
    expect_no_flags(ORV_EXPORT(orvsAddC_64fc_I).with());
}

} // namespace
} // namespace orvtest
