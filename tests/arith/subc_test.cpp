// dst = src - val, and dst = val - src.
#include "orvs/arith.h"

#include "tests/arith/caller_state.h"
#include "tests/arith/family.h"
#include "tests/arith/large.h"

#include <gtest/gtest.h>

namespace orvtest {
namespace {

// ---- Results. The order of the operands in the argument list: src, val out of place, and val, srcDst in place.

TEST(SubC_8u_Sfs, exact)
{
    EXPECT_TRUE(sweep_exact(ORV_EXPORT(orvsSubC_8u_Sfs), first_minus_second, family_lengths()));
}
TEST(SubC_8u_ISfs, exact)
{
    EXPECT_TRUE(sweep_exact(ORV_EXPORT(orvsSubC_8u_ISfs), second_minus_first, family_lengths()));
}
TEST(SubC_16u_Sfs, exact)
{
    EXPECT_TRUE(sweep_exact(ORV_EXPORT(orvsSubC_16u_Sfs), first_minus_second, family_lengths()));
}
TEST(SubC_16u_ISfs, exact)
{
    EXPECT_TRUE(sweep_exact(ORV_EXPORT(orvsSubC_16u_ISfs), second_minus_first, family_lengths()));
}
TEST(SubC_16s_I, exact) { EXPECT_TRUE(sweep_exact(ORV_EXPORT(orvsSubC_16s_I), second_minus_first, family_lengths())); }
TEST(SubC_16s_Sfs, exact)
{
    EXPECT_TRUE(sweep_exact(ORV_EXPORT(orvsSubC_16s_Sfs), first_minus_second, family_lengths()));
}
TEST(SubC_16s_ISfs, exact)
{
    EXPECT_TRUE(sweep_exact(ORV_EXPORT(orvsSubC_16s_ISfs), second_minus_first, family_lengths()));
}
TEST(SubC_16sc_Sfs, exact)
{
    EXPECT_TRUE(sweep_exact(ORV_EXPORT(orvsSubC_16sc_Sfs), first_minus_second, family_lengths()));
}
TEST(SubC_16sc_ISfs, exact)
{
    EXPECT_TRUE(sweep_exact(ORV_EXPORT(orvsSubC_16sc_ISfs), second_minus_first, family_lengths()));
}
TEST(SubC_32s_Sfs, exact)
{
    EXPECT_TRUE(sweep_exact(ORV_EXPORT(orvsSubC_32s_Sfs), first_minus_second, family_lengths()));
}
TEST(SubC_32s_ISfs, exact)
{
    EXPECT_TRUE(sweep_exact(ORV_EXPORT(orvsSubC_32s_ISfs), second_minus_first, family_lengths()));
}
TEST(SubC_32sc_Sfs, exact)
{
    EXPECT_TRUE(sweep_exact(ORV_EXPORT(orvsSubC_32sc_Sfs), first_minus_second, family_lengths()));
}
TEST(SubC_32sc_ISfs, exact)
{
    EXPECT_TRUE(sweep_exact(ORV_EXPORT(orvsSubC_32sc_ISfs), second_minus_first, family_lengths()));
}

TEST(SubC_32f, ieee) { EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsSubC_32f), first_minus_second, family_lengths())); }
TEST(SubC_32f_I, ieee)
{
    EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsSubC_32f_I), second_minus_first, family_lengths()));
}
TEST(SubC_32fc, ieee) { EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsSubC_32fc), first_minus_second, family_lengths())); }
TEST(SubC_32fc_I, ieee)
{
    EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsSubC_32fc_I), second_minus_first, family_lengths()));
}
TEST(SubC_64f, ieee) { EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsSubC_64f), first_minus_second, family_lengths())); }
TEST(SubC_64f_I, ieee)
{
    EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsSubC_64f_I), second_minus_first, family_lengths()));
}
TEST(SubC_64fc, ieee) { EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsSubC_64fc), first_minus_second, family_lengths())); }
TEST(SubC_64fc_I, ieee)
{
    EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsSubC_64fc_I), second_minus_first, family_lengths()));
}

TEST(SubCRev_8u_Sfs, exact)
{
    EXPECT_TRUE(sweep_exact(ORV_EXPORT(orvsSubCRev_8u_Sfs), second_minus_first, family_lengths()));
}
TEST(SubCRev_8u_ISfs, exact)
{
    EXPECT_TRUE(sweep_exact(ORV_EXPORT(orvsSubCRev_8u_ISfs), first_minus_second, family_lengths()));
}
TEST(SubCRev_16u_Sfs, exact)
{
    EXPECT_TRUE(sweep_exact(ORV_EXPORT(orvsSubCRev_16u_Sfs), second_minus_first, family_lengths()));
}
TEST(SubCRev_16u_ISfs, exact)
{
    EXPECT_TRUE(sweep_exact(ORV_EXPORT(orvsSubCRev_16u_ISfs), first_minus_second, family_lengths()));
}
TEST(SubCRev_16s_Sfs, exact)
{
    EXPECT_TRUE(sweep_exact(ORV_EXPORT(orvsSubCRev_16s_Sfs), second_minus_first, family_lengths()));
}
TEST(SubCRev_16s_ISfs, exact)
{
    EXPECT_TRUE(sweep_exact(ORV_EXPORT(orvsSubCRev_16s_ISfs), first_minus_second, family_lengths()));
}
TEST(SubCRev_16sc_Sfs, exact)
{
    EXPECT_TRUE(sweep_exact(ORV_EXPORT(orvsSubCRev_16sc_Sfs), second_minus_first, family_lengths()));
}
TEST(SubCRev_16sc_ISfs, exact)
{
    EXPECT_TRUE(sweep_exact(ORV_EXPORT(orvsSubCRev_16sc_ISfs), first_minus_second, family_lengths()));
}
TEST(SubCRev_32s_Sfs, exact)
{
    EXPECT_TRUE(sweep_exact(ORV_EXPORT(orvsSubCRev_32s_Sfs), second_minus_first, family_lengths()));
}
TEST(SubCRev_32s_ISfs, exact)
{
    EXPECT_TRUE(sweep_exact(ORV_EXPORT(orvsSubCRev_32s_ISfs), first_minus_second, family_lengths()));
}
TEST(SubCRev_32sc_Sfs, exact)
{
    EXPECT_TRUE(sweep_exact(ORV_EXPORT(orvsSubCRev_32sc_Sfs), second_minus_first, family_lengths()));
}
TEST(SubCRev_32sc_ISfs, exact)
{
    EXPECT_TRUE(sweep_exact(ORV_EXPORT(orvsSubCRev_32sc_ISfs), first_minus_second, family_lengths()));
}

TEST(SubCRev_32f, ieee)
{
    EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsSubCRev_32f), second_minus_first, family_lengths()));
}
TEST(SubCRev_32f_I, ieee)
{
    EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsSubCRev_32f_I), first_minus_second, family_lengths()));
}
TEST(SubCRev_32fc, ieee)
{
    EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsSubCRev_32fc), second_minus_first, family_lengths()));
}
TEST(SubCRev_32fc_I, ieee)
{
    EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsSubCRev_32fc_I), first_minus_second, family_lengths()));
}
TEST(SubCRev_64f, ieee)
{
    EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsSubCRev_64f), second_minus_first, family_lengths()));
}
TEST(SubCRev_64f_I, ieee)
{
    EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsSubCRev_64f_I), first_minus_second, family_lengths()));
}
TEST(SubCRev_64fc, ieee)
{
    EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsSubCRev_64fc), second_minus_first, family_lengths()));
}
TEST(SubCRev_64fc_I, ieee)
{
    EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsSubCRev_64fc_I), first_minus_second, family_lengths()));
}

/// The operands' order once more, in numbers.
TEST(SubC, subtracts_the_scalar)
{
    const std::vector<Orv32f> a = {1, 10, 100};
    std::vector<Orv32f> d(3);
    EXPECT_EQ(ORV_EXPORT(orvsSubC_32f)(a.data(), 7, d.data(), 3), orvOk);
    expect_elements(ORV_EXPORT(orvsSubC_32f), d, {-6, 3, 93});
    const std::vector<Orv16s> words = {1, 10, 100};
    std::vector<Orv16s> differences = words;
    EXPECT_EQ(ORV_EXPORT(orvsSubC_16s_I)(7, differences.data(), 3), orvOk);
    expect_elements(ORV_EXPORT(orvsSubC_16s_I), differences, {-6, 3, 93});
}
TEST(SubCRev, subtracts_from_the_scalar)
{
    const std::vector<Orv32f> a = {1, 10, 100};
    std::vector<Orv32f> d(3);
    EXPECT_EQ(ORV_EXPORT(orvsSubCRev_32f)(a.data(), 7, d.data(), 3), orvOk);
    expect_elements(ORV_EXPORT(orvsSubCRev_32f), d, {6, -3, -93});
    std::vector<Orv16s> words = {1, 10, 100};
    EXPECT_EQ(ORV_EXPORT(orvsSubCRev_16s_ISfs)(7, words.data(), 3, 0), orvOk);
    expect_elements(ORV_EXPORT(orvsSubCRev_16s_ISfs), words, {6, -3, -93});
}

// ---- Order of checks

TEST(SubC, checks_pointers_before_length)
{
    expect_pointers_before_length(ORV_EXPORT(orvsSubC_8u_Sfs), Orv8u{5}, 4, 0);
    expect_pointers_before_length(ORV_EXPORT(orvsSubC_8u_ISfs), Orv8u{5}, 4, 0);
    expect_pointers_before_length(ORV_EXPORT(orvsSubC_16u_Sfs), Orv16u{5}, 4, 0);
    expect_pointers_before_length(ORV_EXPORT(orvsSubC_16u_ISfs), Orv16u{5}, 4, 0);
    expect_pointers_before_length(ORV_EXPORT(orvsSubC_16s_I), Orv16s{5}, 4);
    expect_pointers_before_length(ORV_EXPORT(orvsSubC_16s_Sfs), Orv16s{5}, 4, 0);
    expect_pointers_before_length(ORV_EXPORT(orvsSubC_16s_ISfs), Orv16s{5}, 4, 0);
    expect_pointers_before_length(ORV_EXPORT(orvsSubC_16sc_Sfs), Orv16sc{5, 6}, 4, 0);
    expect_pointers_before_length(ORV_EXPORT(orvsSubC_16sc_ISfs), Orv16sc{5, 6}, 4, 0);
    expect_pointers_before_length(ORV_EXPORT(orvsSubC_32s_Sfs), 5, 4, 0);
    expect_pointers_before_length(ORV_EXPORT(orvsSubC_32s_ISfs), 5, 4, 0);
    expect_pointers_before_length(ORV_EXPORT(orvsSubC_32sc_Sfs), Orv32sc{5, 6}, 4, 0);
    expect_pointers_before_length(ORV_EXPORT(orvsSubC_32sc_ISfs), Orv32sc{5, 6}, 4, 0);
    expect_pointers_before_length(ORV_EXPORT(orvsSubC_32f), 5.0f, 4);
    expect_pointers_before_length(ORV_EXPORT(orvsSubC_32f_I), 5.0f, 4);
    expect_pointers_before_length(ORV_EXPORT(orvsSubC_32fc), Orv32fc{5, 6}, 4);
    expect_pointers_before_length(ORV_EXPORT(orvsSubC_32fc_I), Orv32fc{5, 6}, 4);
    expect_pointers_before_length(ORV_EXPORT(orvsSubC_64f), 5.0, 4);
    expect_pointers_before_length(ORV_EXPORT(orvsSubC_64f_I), 5.0, 4);
    expect_pointers_before_length(ORV_EXPORT(orvsSubC_64fc), Orv64fc{5, 6}, 4);
    expect_pointers_before_length(ORV_EXPORT(orvsSubC_64fc_I), Orv64fc{5, 6}, 4);
}
TEST(SubCRev, checks_pointers_before_length)
{
    expect_pointers_before_length(ORV_EXPORT(orvsSubCRev_8u_Sfs), Orv8u{5}, 4, 0);
    expect_pointers_before_length(ORV_EXPORT(orvsSubCRev_8u_ISfs), Orv8u{5}, 4, 0);
    expect_pointers_before_length(ORV_EXPORT(orvsSubCRev_16u_Sfs), Orv16u{5}, 4, 0);
    expect_pointers_before_length(ORV_EXPORT(orvsSubCRev_16u_ISfs), Orv16u{5}, 4, 0);
    expect_pointers_before_length(ORV_EXPORT(orvsSubCRev_16s_Sfs), Orv16s{5}, 4, 0);
    expect_pointers_before_length(ORV_EXPORT(orvsSubCRev_16s_ISfs), Orv16s{5}, 4, 0);
    expect_pointers_before_length(ORV_EXPORT(orvsSubCRev_16sc_Sfs), Orv16sc{5, 6}, 4, 0);
    expect_pointers_before_length(ORV_EXPORT(orvsSubCRev_16sc_ISfs), Orv16sc{5, 6}, 4, 0);
    expect_pointers_before_length(ORV_EXPORT(orvsSubCRev_32s_Sfs), 5, 4, 0);
    expect_pointers_before_length(ORV_EXPORT(orvsSubCRev_32s_ISfs), 5, 4, 0);
    expect_pointers_before_length(ORV_EXPORT(orvsSubCRev_32sc_Sfs), Orv32sc{5, 6}, 4, 0);
    expect_pointers_before_length(ORV_EXPORT(orvsSubCRev_32sc_ISfs), Orv32sc{5, 6}, 4, 0);
    expect_pointers_before_length(ORV_EXPORT(orvsSubCRev_32f), 5.0f, 4);
    expect_pointers_before_length(ORV_EXPORT(orvsSubCRev_32f_I), 5.0f, 4);
    expect_pointers_before_length(ORV_EXPORT(orvsSubCRev_32fc), Orv32fc{5, 6}, 4);
    expect_pointers_before_length(ORV_EXPORT(orvsSubCRev_32fc_I), Orv32fc{5, 6}, 4);
    expect_pointers_before_length(ORV_EXPORT(orvsSubCRev_64f), 5.0, 4);
    expect_pointers_before_length(ORV_EXPORT(orvsSubCRev_64f_I), 5.0, 4);
    expect_pointers_before_length(ORV_EXPORT(orvsSubCRev_64fc), Orv64fc{5, 6}, 4);
    expect_pointers_before_length(ORV_EXPORT(orvsSubCRev_64fc_I), Orv64fc{5, 6}, 4);
}

TEST(SubC, checks_come_first_at_every_scale)
{
    for (const int scale : {INT_MIN, -100, -16, -8, -1, 1, 9, 17, 100, INT_MAX})
        for (const int value : {0, 1}) {
            expect_pointers_before_length(ORV_EXPORT(orvsSubC_8u_Sfs), static_cast<Orv8u>(value), 4, scale);
            expect_pointers_before_length(ORV_EXPORT(orvsSubC_16u_Sfs), static_cast<Orv16u>(value), 4, scale);
            expect_pointers_before_length(ORV_EXPORT(orvsSubC_16s_Sfs), static_cast<Orv16s>(value), 4, scale);
            expect_pointers_before_length(ORV_EXPORT(orvsSubC_32s_Sfs), value, 4, scale);
            expect_pointers_before_length(ORV_EXPORT(orvsSubCRev_8u_Sfs), static_cast<Orv8u>(value), 4, scale);
            expect_pointers_before_length(ORV_EXPORT(orvsSubCRev_16u_Sfs), static_cast<Orv16u>(value), 4, scale);
            expect_pointers_before_length(ORV_EXPORT(orvsSubCRev_16s_Sfs), static_cast<Orv16s>(value), 4, scale);
            expect_pointers_before_length(ORV_EXPORT(orvsSubCRev_32s_Sfs), value, 4, scale);
        }
}

// ---- Notable differences

TEST(SubC, at_notable_scales)
{
    const auto f8 = ORV_EXPORT(orvsSubC_8u_Sfs);
    EXPECT_EQ(result_of(f8, 255, 0, 8), 1); // 255 / 256
    EXPECT_EQ(result_of(f8, 128, 0, 8), 0); // one half
    EXPECT_EQ(result_of(f8, 129, 0, 8), 1);
    EXPECT_EQ(result_of(f8, 255, 0, 9), 0);
    EXPECT_EQ(result_of(f8, 1, 2, -8), 0);
    EXPECT_EQ(result_of(f8, 2, 1, -8), 255);

    const auto f16 = ORV_EXPORT(orvsSubC_16s_Sfs);
    EXPECT_EQ(result_of(f16, 32767, -1, 0), 32767);
    EXPECT_EQ(result_of(f16, 0, -32768, 0), 32767); // the scalar has no opposite
    EXPECT_EQ(result_of(f16, -1, -32768, 0), 32767);
    EXPECT_EQ(result_of(f16, -32768, -32768, 0), 0);
    EXPECT_EQ(result_of(f16, 32767, -32768, 16), 1);
    EXPECT_EQ(result_of(f16, 32767, -32768, 17), 0);
    EXPECT_EQ(result_of(f16, 0, -32768, 16), 0); // one half
    EXPECT_EQ(result_of(f16, 0, 1, -15), -32768);
    EXPECT_EQ(result_of(f16, 0, -1, -16), 32767);

    const auto f16u = ORV_EXPORT(orvsSubC_16u_Sfs);
    EXPECT_EQ(result_of(f16u, 65535, 0, 16), 1);
    EXPECT_EQ(result_of(f16u, 65535, 0, 17), 0);
    EXPECT_EQ(result_of(f16u, 5, 6, -16), 0);

    const auto f32 = ORV_EXPORT(orvsSubC_32s_Sfs);
    EXPECT_EQ(result_of(f32, 0, INT32_MIN, 0), INT32_MAX);
    EXPECT_EQ(result_of(f32, INT32_MAX, INT32_MIN, 32), 1);
    EXPECT_EQ(result_of(f32, 0, INT32_MIN, 32), 0); // one half
    EXPECT_EQ(result_of(f32, 0, 1, -31), INT32_MIN);
}

TEST(SubCRev, at_notable_scales)
{
    const auto f8 = ORV_EXPORT(orvsSubCRev_8u_Sfs);
    EXPECT_EQ(result_of(f8, 0, 255, 8), 1);
    EXPECT_EQ(result_of(f8, 0, 128, 8), 0); // one half
    EXPECT_EQ(result_of(f8, 0, 255, 9), 0);
    EXPECT_EQ(result_of(f8, 2, 1, -8), 0);
    EXPECT_EQ(result_of(f8, 1, 2, -8), 255);

    const auto f16 = ORV_EXPORT(orvsSubCRev_16s_Sfs);
    EXPECT_EQ(result_of(f16, -1, 32767, 0), 32767);
    EXPECT_EQ(result_of(f16, -32768, 0, 0), 32767); // the source has no opposite
    EXPECT_EQ(result_of(f16, -32768, 32767, 16), 1);
    EXPECT_EQ(result_of(f16, -32768, 0, 16), 0); // one half
    EXPECT_EQ(result_of(f16, 1, 0, -15), -32768);
    EXPECT_EQ(result_of(f16, -1, 0, -16), 32767);

    const auto f16u = ORV_EXPORT(orvsSubCRev_16u_Sfs);
    EXPECT_EQ(result_of(f16u, 0, 65535, 16), 1);
    EXPECT_EQ(result_of(f16u, 6, 5, -16), 0);

    const auto f32 = ORV_EXPORT(orvsSubCRev_32s_Sfs);
    EXPECT_EQ(result_of(f32, INT32_MIN, 0, 0), INT32_MAX);
    EXPECT_EQ(result_of(f32, INT32_MIN, INT32_MAX, 32), 1);
    EXPECT_EQ(result_of(f32, 1, 0, -31), INT32_MIN);
}

/// 0 - x is no change of sign: the zeros come out positive.
TEST(SubCRev, from_0_keeps_ieee_zeros)
{
    const std::vector<Orv32f> a = {0.0f, -0.0f, 1, -1};
    std::vector<Orv32f> d(4);
    EXPECT_EQ(ORV_EXPORT(orvsSubCRev_32f)(a.data(), 0, d.data(), 4), orvOk);
    expect_elements(ORV_EXPORT(orvsSubCRev_32f), d, {0.0f, 0.0f, -1, 1});
    EXPECT_EQ(ORV_EXPORT(orvsSubC_32f)(a.data(), 0, d.data(), 4), orvOk);
    expect_elements(ORV_EXPORT(orvsSubC_32f), d, {0.0f, -0.0f, 1, -1});
}

// ---- Every pair of narrow operands

template <class T>
T scaled_difference(T a, T b, int scale)
{
    return limited<T>(nearest_even(std::int64_t{a} - b, scale));
}
template <class T>
T scaled_reverse_difference(T a, T b, int scale)
{
    return scaled_difference(b, a, scale);
}

TEST(SubC, of_all_pairs_of_8u)
{
    const Pairs<Orv8u> pairs(all_bytes<Orv8u>(), all_bytes<Orv8u>());
    expect_all_pairs(ORV_EXPORT(orvsSubC_8u_Sfs), pairs, -10, 11, scaled_difference<Orv8u>);
    expect_all_pairs(ORV_EXPORT(orvsSubCRev_8u_Sfs), pairs, -10, 11, scaled_reverse_difference<Orv8u>);
}
TEST(SubC, of_critical_pairs_of_16s)
{
    const Pairs pairs(critical_values<Orv16s>(3, 150), critical_values<Orv16s>(0, 20));
    expect_all_pairs(ORV_EXPORT(orvsSubC_16s_Sfs), pairs, -17, 19, scaled_difference<Orv16s>);
    expect_all_pairs(ORV_EXPORT(orvsSubCRev_16s_Sfs), pairs, -17, 19, scaled_reverse_difference<Orv16s>);
}
TEST(SubC, of_critical_pairs_of_16u)
{
    const Pairs pairs(critical_values<Orv16u>(3, 150), critical_values<Orv16u>(0, 20));
    expect_all_pairs(ORV_EXPORT(orvsSubC_16u_Sfs), pairs, -17, 19, scaled_difference<Orv16u>);
    expect_all_pairs(ORV_EXPORT(orvsSubCRev_16u_Sfs), pairs, -17, 19, scaled_reverse_difference<Orv16u>);
}
TEST(SubC, of_critical_pairs_of_32s)
{
    const Pairs pairs(critical_values<Orv32s>(1, 20), critical_values<Orv32s>(0, 5, 4));
    const auto wanted = [](Orv32s a, Orv32s b, int scale) { return saturate<Orv32s>(scale_law(Wide(a) - b, scale)); };
    const auto reverse = [&](Orv32s a, Orv32s b, int scale) { return wanted(b, a, scale); };
    expect_all_pairs(ORV_EXPORT(orvsSubC_32s_Sfs), pairs, -33, 34, wanted);
    expect_all_pairs(ORV_EXPORT(orvsSubCRev_32s_Sfs), pairs, -33, 34, reverse);
}

// ---- Large arrays

TEST(SubC, of_large_integer_arrays)
{
    EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsSubC_8u_Sfs), first_minus_second, 1));
    EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsSubC_8u_ISfs), second_minus_first, 1));
    EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsSubC_16u_Sfs), first_minus_second, 1));
    EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsSubC_16u_ISfs), second_minus_first, 1));
    EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsSubC_16s_I), second_minus_first));
    EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsSubC_16s_Sfs), first_minus_second, 1));
    EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsSubC_16s_ISfs), second_minus_first, 1));
    EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsSubC_16sc_Sfs), first_minus_second, 1));
    EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsSubC_16sc_ISfs), second_minus_first, 1));
    EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsSubC_32s_Sfs), first_minus_second, 1));
    EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsSubC_32s_ISfs), second_minus_first, 1));
    EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsSubC_32sc_Sfs), first_minus_second, 1));
    EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsSubC_32sc_ISfs), second_minus_first, 1));
}
TEST(SubCRev, of_large_integer_arrays)
{
    EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsSubCRev_8u_Sfs), second_minus_first, 1));
    EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsSubCRev_8u_ISfs), first_minus_second, 1));
    EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsSubCRev_16u_Sfs), second_minus_first, 1));
    EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsSubCRev_16u_ISfs), first_minus_second, 1));
    EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsSubCRev_16s_Sfs), second_minus_first, 1));
    EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsSubCRev_16s_ISfs), first_minus_second, 1));
    EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsSubCRev_16sc_Sfs), second_minus_first, 1));
    EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsSubCRev_16sc_ISfs), first_minus_second, 1));
    EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsSubCRev_32s_Sfs), second_minus_first, 1));
    EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsSubCRev_32s_ISfs), first_minus_second, 1));
    EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsSubCRev_32sc_Sfs), second_minus_first, 1));
    EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsSubCRev_32sc_ISfs), first_minus_second, 1));
}
TEST(SubC, of_large_float_arrays)
{
    EXPECT_TRUE(check_large(ORV_EXPORT(orvsSubC_32f).with(), first_minus_second));
    EXPECT_TRUE(check_large(ORV_EXPORT(orvsSubC_32f_I).with(), second_minus_first));
    EXPECT_TRUE(check_large(ORV_EXPORT(orvsSubC_32fc).with(), first_minus_second));
    EXPECT_TRUE(check_large(ORV_EXPORT(orvsSubC_32fc_I).with(), second_minus_first));
    EXPECT_TRUE(check_large(ORV_EXPORT(orvsSubC_64f).with(), first_minus_second));
    EXPECT_TRUE(check_large(ORV_EXPORT(orvsSubC_64f_I).with(), second_minus_first));
    EXPECT_TRUE(check_large(ORV_EXPORT(orvsSubC_64fc).with(), first_minus_second));
    EXPECT_TRUE(check_large(ORV_EXPORT(orvsSubC_64fc_I).with(), second_minus_first));
}
TEST(SubCRev, of_large_float_arrays)
{
    EXPECT_TRUE(check_large(ORV_EXPORT(orvsSubCRev_32f).with(), second_minus_first));
    EXPECT_TRUE(check_large(ORV_EXPORT(orvsSubCRev_32f_I).with(), first_minus_second));
    EXPECT_TRUE(check_large(ORV_EXPORT(orvsSubCRev_32fc).with(), second_minus_first));
    EXPECT_TRUE(check_large(ORV_EXPORT(orvsSubCRev_32fc_I).with(), first_minus_second));
    EXPECT_TRUE(check_large(ORV_EXPORT(orvsSubCRev_64f).with(), second_minus_first));
    EXPECT_TRUE(check_large(ORV_EXPORT(orvsSubCRev_64f_I).with(), first_minus_second));
    EXPECT_TRUE(check_large(ORV_EXPORT(orvsSubCRev_64fc).with(), second_minus_first));
    EXPECT_TRUE(check_large(ORV_EXPORT(orvsSubCRev_64fc_I).with(), first_minus_second));
}

// ---- The caller's floating-point state

TEST(SubC, follows_the_callers_state)
{
    const auto in_place = [](auto a, auto b) { return std::tuple(first_minus_second({}, b), a); };
    const auto apart = [](auto a, auto b) { return std::tuple(a, first_minus_second({}, b), a); };
    expect_to_follow_the_state(ORV_EXPORT(orvsSubC_32f).with(), apart);
    expect_to_follow_the_state(ORV_EXPORT(orvsSubC_32f_I).with(), in_place);
    expect_to_follow_the_state(ORV_EXPORT(orvsSubC_32fc).with(), apart);
    expect_to_follow_the_state(ORV_EXPORT(orvsSubC_32fc_I).with(), in_place);
    expect_to_follow_the_state(ORV_EXPORT(orvsSubC_64f).with(), apart);
    expect_to_follow_the_state(ORV_EXPORT(orvsSubC_64f_I).with(), in_place);
    expect_to_follow_the_state(ORV_EXPORT(orvsSubC_64fc).with(), apart);
    expect_to_follow_the_state(ORV_EXPORT(orvsSubC_64fc_I).with(), in_place);
}
TEST(SubCRev, follows_the_callers_state)
{
    const auto in_place = [](auto a, auto b) { return std::tuple(a, first_minus_second({}, b)); };
    const auto apart = [](auto a, auto b) { return std::tuple(first_minus_second({}, b), a, a); };
    expect_to_follow_the_state(ORV_EXPORT(orvsSubCRev_32f).with(), apart);
    expect_to_follow_the_state(ORV_EXPORT(orvsSubCRev_32f_I).with(), in_place);
    expect_to_follow_the_state(ORV_EXPORT(orvsSubCRev_32fc).with(), apart);
    expect_to_follow_the_state(ORV_EXPORT(orvsSubCRev_32fc_I).with(), in_place);
    expect_to_follow_the_state(ORV_EXPORT(orvsSubCRev_64f).with(), apart);
    expect_to_follow_the_state(ORV_EXPORT(orvsSubCRev_64f_I).with(), in_place);
    expect_to_follow_the_state(ORV_EXPORT(orvsSubCRev_64fc).with(), apart);
    expect_to_follow_the_state(ORV_EXPORT(orvsSubCRev_64fc_I).with(), in_place);
}

TEST(SubC, is_ieee_in_other_states)
{
    EXPECT_TRUE(sweep_in_states(ORV_EXPORT(orvsSubC_32f).with(), first_minus_second));
    EXPECT_TRUE(sweep_in_states(ORV_EXPORT(orvsSubC_32f_I).with(), second_minus_first));
    EXPECT_TRUE(sweep_in_states(ORV_EXPORT(orvsSubC_32fc).with(), first_minus_second));
    EXPECT_TRUE(sweep_in_states(ORV_EXPORT(orvsSubC_32fc_I).with(), second_minus_first));
    EXPECT_TRUE(sweep_in_states(ORV_EXPORT(orvsSubC_64f).with(), first_minus_second));
    EXPECT_TRUE(sweep_in_states(ORV_EXPORT(orvsSubC_64f_I).with(), second_minus_first));
    EXPECT_TRUE(sweep_in_states(ORV_EXPORT(orvsSubC_64fc).with(), first_minus_second));
    EXPECT_TRUE(sweep_in_states(ORV_EXPORT(orvsSubC_64fc_I).with(), second_minus_first));
}
TEST(SubCRev, is_ieee_in_other_states)
{
    EXPECT_TRUE(sweep_in_states(ORV_EXPORT(orvsSubCRev_32f).with(), second_minus_first));
    EXPECT_TRUE(sweep_in_states(ORV_EXPORT(orvsSubCRev_32f_I).with(), first_minus_second));
    EXPECT_TRUE(sweep_in_states(ORV_EXPORT(orvsSubCRev_32fc).with(), second_minus_first));
    EXPECT_TRUE(sweep_in_states(ORV_EXPORT(orvsSubCRev_32fc_I).with(), first_minus_second));
    EXPECT_TRUE(sweep_in_states(ORV_EXPORT(orvsSubCRev_64f).with(), second_minus_first));
    EXPECT_TRUE(sweep_in_states(ORV_EXPORT(orvsSubCRev_64f_I).with(), first_minus_second));
    EXPECT_TRUE(sweep_in_states(ORV_EXPORT(orvsSubCRev_64fc).with(), second_minus_first));
    EXPECT_TRUE(sweep_in_states(ORV_EXPORT(orvsSubCRev_64fc_I).with(), first_minus_second));
}

TEST(SubC, raises_no_flags_on_exact_differences)
{
    expect_no_flags(ORV_EXPORT(orvsSubC_32f).with());
    expect_no_flags(ORV_EXPORT(orvsSubC_32f_I).with());
    expect_no_flags(ORV_EXPORT(orvsSubC_32fc).with());
    expect_no_flags(ORV_EXPORT(orvsSubC_32fc_I).with());
    expect_no_flags(ORV_EXPORT(orvsSubC_64f).with());
    expect_no_flags(ORV_EXPORT(orvsSubC_64f_I).with());
    expect_no_flags(ORV_EXPORT(orvsSubC_64fc).with());
    expect_no_flags(ORV_EXPORT(orvsSubC_64fc_I).with());
}
TEST(SubCRev, raises_no_flags_on_exact_differences)
{
    expect_no_flags(ORV_EXPORT(orvsSubCRev_32f).with());
    expect_no_flags(ORV_EXPORT(orvsSubCRev_32f_I).with());
    expect_no_flags(ORV_EXPORT(orvsSubCRev_32fc).with());
    expect_no_flags(ORV_EXPORT(orvsSubCRev_32fc_I).with());
    expect_no_flags(ORV_EXPORT(orvsSubCRev_64f).with());
    expect_no_flags(ORV_EXPORT(orvsSubCRev_64f_I).with());
    expect_no_flags(ORV_EXPORT(orvsSubCRev_64fc).with());
    expect_no_flags(ORV_EXPORT(orvsSubCRev_64fc_I).with());
}

} // namespace
} // namespace orvtest
