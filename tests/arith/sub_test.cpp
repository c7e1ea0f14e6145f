// dst = src2 - src1: the first operand is subtracted from the second.
#include "orvs/arith.h"

#include "tests/arith/caller_state.h"
#include "tests/arith/family.h"
#include "tests/arith/large.h"

#include <gtest/gtest.h>

namespace orvtest {
namespace {

// ---- Results

const auto integer_difference_as_float = [](Orv16s a, Orv16s b) { return static_cast<Orv32f>(b - a); };

TEST(Sub_8u_Sfs, exact) { EXPECT_TRUE(sweep_exact(ORV_EXPORT(orvsSub_8u_Sfs), second_minus_first, family_lengths())); }
TEST(Sub_8u_ISfs, exact)
{
    EXPECT_TRUE(sweep_exact(ORV_EXPORT(orvsSub_8u_ISfs), second_minus_first, family_lengths()));
}
TEST(Sub_16u_Sfs, exact)
{
    EXPECT_TRUE(sweep_exact(ORV_EXPORT(orvsSub_16u_Sfs), second_minus_first, family_lengths()));
}
TEST(Sub_16u_ISfs, exact)
{
    EXPECT_TRUE(sweep_exact(ORV_EXPORT(orvsSub_16u_ISfs), second_minus_first, family_lengths()));
}
TEST(Sub_16s, exact) { EXPECT_TRUE(sweep_exact(ORV_EXPORT(orvsSub_16s), second_minus_first, family_lengths())); }
TEST(Sub_16s_I, exact) { EXPECT_TRUE(sweep_exact(ORV_EXPORT(orvsSub_16s_I), second_minus_first, family_lengths())); }
TEST(Sub_16s_Sfs, exact)
{
    EXPECT_TRUE(sweep_exact(ORV_EXPORT(orvsSub_16s_Sfs), second_minus_first, family_lengths()));
}
TEST(Sub_16s_ISfs, exact)
{
    EXPECT_TRUE(sweep_exact(ORV_EXPORT(orvsSub_16s_ISfs), second_minus_first, family_lengths()));
}
TEST(Sub_16sc_Sfs, exact)
{
    EXPECT_TRUE(sweep_exact(ORV_EXPORT(orvsSub_16sc_Sfs), second_minus_first, family_lengths()));
}
TEST(Sub_16sc_ISfs, exact)
{
    EXPECT_TRUE(sweep_exact(ORV_EXPORT(orvsSub_16sc_ISfs), second_minus_first, family_lengths()));
}
TEST(Sub_32s_Sfs, exact)
{
    EXPECT_TRUE(sweep_exact(ORV_EXPORT(orvsSub_32s_Sfs), second_minus_first, family_lengths()));
}
TEST(Sub_32s_ISfs, exact)
{
    EXPECT_TRUE(sweep_exact(ORV_EXPORT(orvsSub_32s_ISfs), second_minus_first, family_lengths()));
}
TEST(Sub_32sc_Sfs, exact)
{
    EXPECT_TRUE(sweep_exact(ORV_EXPORT(orvsSub_32sc_Sfs), second_minus_first, family_lengths()));
}
TEST(Sub_32sc_ISfs, exact)
{
    EXPECT_TRUE(sweep_exact(ORV_EXPORT(orvsSub_32sc_ISfs), second_minus_first, family_lengths()));
}
TEST(Sub_16s32f, exact)
{
    EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsSub_16s32f), integer_difference_as_float, family_lengths()));
}

TEST(Sub_32f, ieee) { EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsSub_32f), second_minus_first, family_lengths())); }
TEST(Sub_32f_I, ieee) { EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsSub_32f_I), second_minus_first, family_lengths())); }
TEST(Sub_32fc, ieee) { EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsSub_32fc), second_minus_first, family_lengths())); }
TEST(Sub_32fc_I, ieee)
{
    EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsSub_32fc_I), second_minus_first, family_lengths()));
}
TEST(Sub_64f, ieee) { EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsSub_64f), second_minus_first, family_lengths())); }
TEST(Sub_64f_I, ieee) { EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsSub_64f_I), second_minus_first, family_lengths())); }
TEST(Sub_64fc, ieee) { EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsSub_64fc), second_minus_first, family_lengths())); }
TEST(Sub_64fc_I, ieee)
{
    EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsSub_64fc_I), second_minus_first, family_lengths()));
}

/// The operands' order once more, in numbers: sources that say who they are.
TEST(Sub, subtracts_the_first_operand_from_the_second)
{
    const std::vector<Orv32f> floats1 = {1, 10, 100}, floats2 = {5, 4, 3};
    std::vector<Orv32f> floats(3);
    EXPECT_EQ(ORV_EXPORT(orvsSub_32f)(floats1.data(), floats2.data(), floats.data(), 3), orvOk);
    expect_elements(ORV_EXPORT(orvsSub_32f), floats, {4, -6, -97});
    floats = floats2;
    EXPECT_EQ(ORV_EXPORT(orvsSub_32f_I)(floats1.data(), floats.data(), 3), orvOk);
    expect_elements(ORV_EXPORT(orvsSub_32f_I), floats, {4, -6, -97});

    const std::vector<Orv16s> words1 = {1, 10, 100}, words2 = {5, 4, 3};
    std::vector<Orv16s> words(3);
    EXPECT_EQ(ORV_EXPORT(orvsSub_16s)(words1.data(), words2.data(), words.data(), 3), orvOk);
    expect_elements(ORV_EXPORT(orvsSub_16s), words, {4, -6, -97});
    words = words2;
    EXPECT_EQ(ORV_EXPORT(orvsSub_16s_I)(words1.data(), words.data(), 3), orvOk);
    expect_elements(ORV_EXPORT(orvsSub_16s_I), words, {4, -6, -97});
    EXPECT_EQ(ORV_EXPORT(orvsSub_16s32f)(words1.data(), words2.data(), floats.data(), 3), orvOk);
    expect_elements(ORV_EXPORT(orvsSub_16s32f), floats, {4, -6, -97});
}

TEST(Sub, of_one_array_from_itself_is_0)
{
    const auto bytes = [](auto f, const Orv8u* src, Orv8u* dst, int n) { return f(src, src, dst, n, -3); };
    EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsSub_8u_Sfs).as(bytes), [](Orv8u) { return Orv8u{0}; }));
    const auto words = [](auto f, const Orv16s* src, Orv16s* dst, int n) { return f(src, src, dst, n, 1); };
    EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsSub_16s_Sfs).as(words), [](Orv16s) { return Orv16s{0}; }));
    const auto floats = [](auto f, const Orv32f* src, Orv32f* dst, int n) { return f(src, src, dst, n); };
    EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsSub_32f).as(floats), [](Orv32f a) { return a - a; }));
}

// ---- Order of checks

TEST(Sub, checks_pointers_before_length)
{
    expect_pointers_before_length(ORV_EXPORT(orvsSub_8u_Sfs), 4, 0);
    expect_pointers_before_length(ORV_EXPORT(orvsSub_8u_ISfs), 4, 0);
    expect_pointers_before_length(ORV_EXPORT(orvsSub_16u_Sfs), 4, 0);
    expect_pointers_before_length(ORV_EXPORT(orvsSub_16u_ISfs), 4, 0);
    expect_pointers_before_length(ORV_EXPORT(orvsSub_16s), 4);
    expect_pointers_before_length(ORV_EXPORT(orvsSub_16s_I), 4);
    expect_pointers_before_length(ORV_EXPORT(orvsSub_16s_Sfs), 4, 0);
    expect_pointers_before_length(ORV_EXPORT(orvsSub_16s_ISfs), 4, 0);
    expect_pointers_before_length(ORV_EXPORT(orvsSub_32s_Sfs), 4, 0);
    expect_pointers_before_length(ORV_EXPORT(orvsSub_32s_ISfs), 4, 0);
    expect_pointers_before_length(ORV_EXPORT(orvsSub_16s32f), 4);
    expect_pointers_before_length(ORV_EXPORT(orvsSub_32f), 4);
    expect_pointers_before_length(ORV_EXPORT(orvsSub_32f_I), 4);
    expect_pointers_before_length(ORV_EXPORT(orvsSub_64f), 4);
    expect_pointers_before_length(ORV_EXPORT(orvsSub_64f_I), 4);
}

TEST(Sub, complex_forms_check_length_before_pointers)
{
    expect_length_before_pointers(ORV_EXPORT(orvsSub_16sc_Sfs), 4, 0);
    expect_length_before_pointers(ORV_EXPORT(orvsSub_16sc_ISfs), 4, 0);
    expect_length_before_pointers(ORV_EXPORT(orvsSub_32sc_Sfs), 4, 0);
    expect_length_before_pointers(ORV_EXPORT(orvsSub_32sc_ISfs), 4, 0);
    expect_length_before_pointers(ORV_EXPORT(orvsSub_32fc), 4);
    expect_length_before_pointers(ORV_EXPORT(orvsSub_32fc_I), 4);
    expect_length_before_pointers(ORV_EXPORT(orvsSub_64fc), 4);
    expect_length_before_pointers(ORV_EXPORT(orvsSub_64fc_I), 4);
}

TEST(Sub, checks_come_first_at_every_scale)
{
    for (const int scale : {INT_MIN, -100, -16, -1, 1, 17, 100, INT_MAX}) {
        expect_pointers_before_length(ORV_EXPORT(orvsSub_8u_Sfs), 4, scale);
        expect_pointers_before_length(ORV_EXPORT(orvsSub_16u_Sfs), 4, scale);
        expect_pointers_before_length(ORV_EXPORT(orvsSub_16s_Sfs), 4, scale);
        expect_pointers_before_length(ORV_EXPORT(orvsSub_32s_Sfs), 4, scale);
        expect_length_before_pointers(ORV_EXPORT(orvsSub_16sc_Sfs), 4, scale);
        expect_length_before_pointers(ORV_EXPORT(orvsSub_32sc_Sfs), 4, scale);
    }
}

// ---- Notable differences

TEST(Sub, halves_go_to_the_even_neighbour)
{
    const auto f = ORV_EXPORT(orvsSub_16s_Sfs);
    EXPECT_EQ(result_of(f, 1, 4, 1), 2);  // 1.5
    EXPECT_EQ(result_of(f, 1, 6, 1), 2);  // 2.5
    EXPECT_EQ(result_of(f, 4, 1, 1), -2); // -1.5
    EXPECT_EQ(result_of(f, 6, 1, 1), -2); // -2.5
    EXPECT_EQ(result_of(f, 8, 1, 1), -4); // -3.5
}

TEST(Sub, of_16s_at_notable_scales)
{
    const auto f = ORV_EXPORT(orvsSub_16s_Sfs);
    EXPECT_EQ(result_of(f, -1, 32767, 0), 32767);
    EXPECT_EQ(result_of(f, 1, -32768, 0), -32768);
    EXPECT_EQ(result_of(f, -32768, 32767, 1), 32767); // 32767.5
    EXPECT_EQ(result_of(f, -32768, 32767, 16), 1);    // 65535 / 65536
    EXPECT_EQ(result_of(f, 32767, -32768, 16), -1);
    EXPECT_EQ(result_of(f, -32768, 0, 16), 0); // one half
    EXPECT_EQ(result_of(f, -32768, 1, 16), 1);
    EXPECT_EQ(result_of(f, -32768, 32767, 17), 0);
    for (const int scale : {-15, -16, -32, INT_MIN}) {
        EXPECT_EQ(result_of(f, 0, 1, scale), 32767) << scale;
        EXPECT_EQ(result_of(f, 1, 0, scale), -32768) << scale;
        EXPECT_EQ(result_of(f, 5, 5, scale), 0) << scale;
    }
}

TEST(Sub, of_unsigned_values_stops_at_0)
{
    const auto f8 = ORV_EXPORT(orvsSub_8u_Sfs);
    const auto f16 = ORV_EXPORT(orvsSub_16u_Sfs);
    for (const int scale : {INT_MIN, -16, -8, -1, 0, 1, 2, 8, 16, INT_MAX}) {
        EXPECT_EQ(result_of(f8, 255, 0, scale), 0) << scale;
        EXPECT_EQ(result_of(f8, 1, 0, scale), 0) << scale;
        EXPECT_EQ(result_of(f16, 65535, 0, scale), 0) << scale;
        EXPECT_EQ(result_of(f16, 1, 0, scale), 0) << scale;
    }
    EXPECT_EQ(result_of(f8, 0, 255, 8), 1); // 255 / 256
    EXPECT_EQ(result_of(f8, 0, 128, 8), 0); // one half
    EXPECT_EQ(result_of(f8, 0, 255, 9), 0);
    EXPECT_EQ(result_of(f8, 0, 1, -8), 255);
    EXPECT_EQ(result_of(f16, 0, 65535, 16), 1);
    EXPECT_EQ(result_of(f16, 0, 32768, 16), 0); // one half
    EXPECT_EQ(result_of(f16, 0, 65535, 17), 0);
    EXPECT_EQ(result_of(f16, 0, 1, -16), 65535);
}

TEST(Sub, of_32s_at_notable_scales)
{
    const auto f = ORV_EXPORT(orvsSub_32s_Sfs);
    EXPECT_EQ(result_of(f, -1, INT32_MAX, 0), INT32_MAX);
    EXPECT_EQ(result_of(f, INT32_MIN, 0, 0), INT32_MAX); // 2^31
    EXPECT_EQ(result_of(f, INT32_MIN, INT32_MAX, 1), INT32_MAX);
    EXPECT_EQ(result_of(f, INT32_MAX, INT32_MIN, 1), INT32_MIN); // -2^31 + 1/2 goes down to even
    EXPECT_EQ(result_of(f, INT32_MIN, INT32_MAX, 32), 1);
    EXPECT_EQ(result_of(f, INT32_MIN, 0, 32), 0); // one half
    EXPECT_EQ(result_of(f, INT32_MIN, INT32_MAX, 33), 0);
    EXPECT_EQ(result_of(f, 0, 1, -31), INT32_MAX);
    EXPECT_EQ(result_of(f, 1, 0, -31), INT32_MIN);
}

TEST(Sub, of_floats_at_their_limits)
{
    constexpr Orv64f infinity = std::numeric_limits<Orv64f>::infinity(), largest = std::numeric_limits<Orv64f>::max();
    constexpr Orv64f least = std::numeric_limits<Orv64f>::denorm_min(), nan = std::numeric_limits<Orv64f>::quiet_NaN();
    const std::vector<Orv64f> a = {infinity, -infinity, largest, least, 1, 0.0, 0.0, -0.0, nan, 1};
    const std::vector<Orv64f> b = {infinity, infinity, -largest, -least, 1, 0.0, -0.0, -0.0, 1, nan};
    const std::vector<Orv64f> want = {nan, infinity, -infinity, -2 * least, 0.0, 0.0, -0.0, 0.0, nan, nan};
    std::vector<Orv64f> d(a.size());
    EXPECT_EQ(ORV_EXPORT(orvsSub_64f)(a.data(), b.data(), d.data(), static_cast<int>(d.size())), orvOk);
    expect_elements(ORV_EXPORT(orvsSub_64f), d, want);
}

// ---- Every pair of operands

template <class T>
T scaled_difference(T a, T b, int scale)
{
    return limited<T>(nearest_even(std::int64_t{b} - a, scale));
}

TEST(Sub, of_all_pairs_of_8u)
{
    const Pairs<Orv8u> pairs(all_bytes<Orv8u>(), all_bytes<Orv8u>());
    expect_all_pairs(ORV_EXPORT(orvsSub_8u_Sfs), pairs, -10, 11, scaled_difference<Orv8u>);
}
TEST(Sub, of_critical_pairs_of_16s)
{
    const auto values = critical_values<Orv16s>(3, 150);
    expect_all_pairs(ORV_EXPORT(orvsSub_16s_Sfs), Pairs(values, values), -17, 19, scaled_difference<Orv16s>);
}
TEST(Sub, of_critical_pairs_of_16u)
{
    const auto values = critical_values<Orv16u>(3, 150);
    expect_all_pairs(ORV_EXPORT(orvsSub_16u_Sfs), Pairs(values, values), -17, 19, scaled_difference<Orv16u>);
}
TEST(Sub, of_critical_pairs_of_32s)
{
    const auto values = critical_values<Orv32s>(1, 20);
    const auto wanted = [](Orv32s a, Orv32s b, int scale) { return saturate<Orv32s>(scale_law(Wide(b) - a, scale)); };
    expect_all_pairs(ORV_EXPORT(orvsSub_32s_Sfs), Pairs(values, critical_values<Orv32s>(0, 5, 2)), -33, 34, wanted);
}

// ---- Large arrays

TEST(Sub, of_large_integer_arrays)
{
    for (const int scale : {-40, -3, 0, 1, 2, 40}) {
        EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsSub_8u_Sfs), second_minus_first, scale));
        EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsSub_16s_Sfs), second_minus_first, scale));
    }
    EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsSub_8u_ISfs), second_minus_first, 1));
    EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsSub_16u_Sfs), second_minus_first, 1));
    EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsSub_16u_ISfs), second_minus_first, 1));
    EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsSub_16s), second_minus_first));
    EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsSub_16s_I), second_minus_first));
    EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsSub_16s_ISfs), second_minus_first, 1));
    EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsSub_16sc_Sfs), second_minus_first, 1));
    EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsSub_16sc_ISfs), second_minus_first, 1));
    EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsSub_32s_Sfs), second_minus_first, 1));
    EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsSub_32s_ISfs), second_minus_first, 1));
    EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsSub_32sc_Sfs), second_minus_first, 1));
    EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsSub_32sc_ISfs), second_minus_first, 1));
}

TEST(Sub, of_large_float_arrays)
{
    EXPECT_TRUE(check_large(ORV_EXPORT(orvsSub_16s32f).with(), integer_difference_as_float));
    EXPECT_TRUE(check_large(ORV_EXPORT(orvsSub_32f).with(), second_minus_first));
    EXPECT_TRUE(check_large(ORV_EXPORT(orvsSub_32f_I).with(), second_minus_first));
    EXPECT_TRUE(check_large(ORV_EXPORT(orvsSub_32fc).with(), second_minus_first));
    EXPECT_TRUE(check_large(ORV_EXPORT(orvsSub_32fc_I).with(), second_minus_first));
    EXPECT_TRUE(check_large(ORV_EXPORT(orvsSub_64f).with(), second_minus_first));
    EXPECT_TRUE(check_large(ORV_EXPORT(orvsSub_64f_I).with(), second_minus_first));
    EXPECT_TRUE(check_large(ORV_EXPORT(orvsSub_64fc).with(), second_minus_first));
    EXPECT_TRUE(check_large(ORV_EXPORT(orvsSub_64fc_I).with(), second_minus_first));
}

// ---- The caller's floating-point state

TEST(Sub, follows_the_callers_state)
{
    const auto pair = [](auto a, auto b) { return std::tuple(first_minus_second({}, b), a); };
    const auto triple = [](auto a, auto b) { return std::tuple(first_minus_second({}, b), a, a); };
    expect_to_follow_the_state(ORV_EXPORT(orvsSub_32f).with(), triple);
    expect_to_follow_the_state(ORV_EXPORT(orvsSub_32f_I).with(), pair);
    expect_to_follow_the_state(ORV_EXPORT(orvsSub_32fc).with(), triple);
    expect_to_follow_the_state(ORV_EXPORT(orvsSub_32fc_I).with(), pair);
    expect_to_follow_the_state(ORV_EXPORT(orvsSub_64f).with(), triple);
    expect_to_follow_the_state(ORV_EXPORT(orvsSub_64f_I).with(), pair);
    expect_to_follow_the_state(ORV_EXPORT(orvsSub_64fc).with(), triple);
    expect_to_follow_the_state(ORV_EXPORT(orvsSub_64fc_I).with(), pair);
}

TEST(Sub, is_ieee_in_other_states)
{
    EXPECT_TRUE(sweep_in_states(ORV_EXPORT(orvsSub_32f).with(), second_minus_first));
    EXPECT_TRUE(sweep_in_states(ORV_EXPORT(orvsSub_32f_I).with(), second_minus_first));
    EXPECT_TRUE(sweep_in_states(ORV_EXPORT(orvsSub_32fc).with(), second_minus_first));
    EXPECT_TRUE(sweep_in_states(ORV_EXPORT(orvsSub_32fc_I).with(), second_minus_first));
    EXPECT_TRUE(sweep_in_states(ORV_EXPORT(orvsSub_64f).with(), second_minus_first));
    EXPECT_TRUE(sweep_in_states(ORV_EXPORT(orvsSub_64f_I).with(), second_minus_first));
    EXPECT_TRUE(sweep_in_states(ORV_EXPORT(orvsSub_64fc).with(), second_minus_first));
    EXPECT_TRUE(sweep_in_states(ORV_EXPORT(orvsSub_64fc_I).with(), second_minus_first));
    EXPECT_TRUE(sweep_in_states(ORV_EXPORT(orvsSub_16s32f).with(), integer_difference_as_float));
}

TEST(Sub, raises_no_flags_on_exact_differences)
{
    expect_no_flags(ORV_EXPORT(orvsSub_32f).with());
    expect_no_flags(ORV_EXPORT(orvsSub_32f_I).with());
    expect_no_flags(ORV_EXPORT(orvsSub_32fc).with());
    expect_no_flags(ORV_EXPORT(orvsSub_32fc_I).with());
    expect_no_flags(ORV_EXPORT(orvsSub_64f).with());
    expect_no_flags(ORV_EXPORT(orvsSub_64f_I).with());
    expect_no_flags(ORV_EXPORT(orvsSub_64fc).with());
    expect_no_flags(ORV_EXPORT(orvsSub_64fc_I).with());
    expect_no_flags(ORV_EXPORT(orvsSub_16s32f).with());
}

} // namespace
} // namespace orvtest
