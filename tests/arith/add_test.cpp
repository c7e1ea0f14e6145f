// dst = src1 + src2.
#include "orvs/arith.h"

#include "tests/arith/caller_state.h"
#include "tests/arith/endless.h"
#include "tests/arith/family.h"
#include "tests/arith/large.h"

#include <gtest/gtest.h>
#include <thread>

namespace orvtest {
namespace {

// ---- Results

const auto integer_sum_as_float = [](Orv16s a, Orv16s b) { return static_cast<Orv32f>(a + b); };

TEST(Add_8u_Sfs, exact) { EXPECT_TRUE(sweep_exact(ORV_EXPORT(orvsAdd_8u_Sfs), sum, family_lengths())); }
TEST(Add_8u_ISfs, exact) { EXPECT_TRUE(sweep_exact(ORV_EXPORT(orvsAdd_8u_ISfs), sum, family_lengths())); }
TEST(Add_16u, exact) { EXPECT_TRUE(sweep_exact(ORV_EXPORT(orvsAdd_16u), sum, family_lengths())); }
TEST(Add_16u_Sfs, exact) { EXPECT_TRUE(sweep_exact(ORV_EXPORT(orvsAdd_16u_Sfs), sum, family_lengths())); }
TEST(Add_16u_ISfs, exact) { EXPECT_TRUE(sweep_exact(ORV_EXPORT(orvsAdd_16u_ISfs), sum, family_lengths())); }
TEST(Add_16s, exact) { EXPECT_TRUE(sweep_exact(ORV_EXPORT(orvsAdd_16s), sum, family_lengths())); }
TEST(Add_16s_I, exact) { EXPECT_TRUE(sweep_exact(ORV_EXPORT(orvsAdd_16s_I), sum, family_lengths())); }
TEST(Add_16s_Sfs, exact) { EXPECT_TRUE(sweep_exact(ORV_EXPORT(orvsAdd_16s_Sfs), sum, family_lengths())); }
TEST(Add_16s_ISfs, exact) { EXPECT_TRUE(sweep_exact(ORV_EXPORT(orvsAdd_16s_ISfs), sum, family_lengths())); }
TEST(Add_16sc_Sfs, exact) { EXPECT_TRUE(sweep_exact(ORV_EXPORT(orvsAdd_16sc_Sfs), sum, family_lengths())); }
TEST(Add_16sc_ISfs, exact) { EXPECT_TRUE(sweep_exact(ORV_EXPORT(orvsAdd_16sc_ISfs), sum, family_lengths())); }
TEST(Add_32u, exact) { EXPECT_TRUE(sweep_exact(ORV_EXPORT(orvsAdd_32u), sum, family_lengths())); }
TEST(Add_32s_Sfs, exact) { EXPECT_TRUE(sweep_exact(ORV_EXPORT(orvsAdd_32s_Sfs), sum, family_lengths())); }
TEST(Add_32s_ISfs, exact) { EXPECT_TRUE(sweep_exact(ORV_EXPORT(orvsAdd_32s_ISfs), sum, family_lengths())); }
TEST(Add_32sc_Sfs, exact) { EXPECT_TRUE(sweep_exact(ORV_EXPORT(orvsAdd_32sc_Sfs), sum, family_lengths())); }
TEST(Add_32sc_ISfs, exact) { EXPECT_TRUE(sweep_exact(ORV_EXPORT(orvsAdd_32sc_ISfs), sum, family_lengths())); }
TEST(Add_64s_Sfs, exact_below_scale_64) { EXPECT_TRUE(sweep_exact_below(64, ORV_EXPORT(orvsAdd_64s_Sfs), sum)); }

TEST(Add_8u16u, exact) { EXPECT_TRUE(sweep_exact(ORV_EXPORT(orvsAdd_8u16u), sum, family_lengths())); }
TEST(Add_16s32s_I, exact) { EXPECT_TRUE(sweep_exact(ORV_EXPORT(orvsAdd_16s32s_I), sum, family_lengths())); }
TEST(Add_16s32f, exact)
{
    EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsAdd_16s32f), integer_sum_as_float, family_lengths()));
}

TEST(Add_32f, ieee) { EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsAdd_32f), sum, family_lengths())); }
TEST(Add_32f_I, ieee) { EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsAdd_32f_I), sum, family_lengths())); }
TEST(Add_32fc, ieee) { EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsAdd_32fc), sum, family_lengths())); }
TEST(Add_32fc_I, ieee) { EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsAdd_32fc_I), sum, family_lengths())); }
TEST(Add_64f, ieee) { EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsAdd_64f), sum, family_lengths())); }
TEST(Add_64f_I, ieee) { EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsAdd_64f_I), sum, family_lengths())); }
TEST(Add_64fc, ieee) { EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsAdd_64fc), sum, family_lengths())); }
TEST(Add_64fc_I, ieee) { EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsAdd_64fc_I), sum, family_lengths())); }

// ---- Both sources and the destination may be one array

TEST(Add, a_source_may_be_given_twice)
{
    const auto twice = [](auto a) { return a + a; };
    const auto bytes = [](auto f, const Orv8u* src, Orv8u* dst, int n) { return f(src, src, dst, n, 0); };
    EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsAdd_8u_Sfs).as(bytes), [&](Orv8u a) { return limited<Orv8u>(a + a); }));
    const auto words = [](auto f, const Orv16s* src, Orv16s* dst, int n) { return f(src, src, dst, n, 1); };
    EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsAdd_16s_Sfs).as(words), [](Orv16s a) { return a; }));
    const auto floats = [](auto f, const Orv32f* src, Orv32f* dst, int n) { return f(src, src, dst, n); };
    EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsAdd_32f).as(floats), twice));
    const auto complex = [](auto f, const Orv64fc* src, Orv64fc* dst, int n) { return f(src, src, dst, n); };
    EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsAdd_64fc).as(complex), [](const Orv64fc& a) { return sum(a, a); }));
}

// ---- Order of checks

TEST(Add, checks_pointers_before_length)
{
    expect_pointers_before_length(ORV_EXPORT(orvsAdd_8u_Sfs), 4, 0);
    expect_pointers_before_length(ORV_EXPORT(orvsAdd_8u_ISfs), 4, 0);
    expect_pointers_before_length(ORV_EXPORT(orvsAdd_16u), 4);
    expect_pointers_before_length(ORV_EXPORT(orvsAdd_16u_Sfs), 4, 0);
    expect_pointers_before_length(ORV_EXPORT(orvsAdd_16u_ISfs), 4, 0);
    expect_pointers_before_length(ORV_EXPORT(orvsAdd_16s), 4);
    expect_pointers_before_length(ORV_EXPORT(orvsAdd_16s_I), 4);
    expect_pointers_before_length(ORV_EXPORT(orvsAdd_16s_Sfs), 4, 0);
    expect_pointers_before_length(ORV_EXPORT(orvsAdd_16s_ISfs), 4, 0);
    expect_pointers_before_length(ORV_EXPORT(orvsAdd_32u), 4);
    expect_pointers_before_length(ORV_EXPORT(orvsAdd_32s_Sfs), 4, 0);
    expect_pointers_before_length(ORV_EXPORT(orvsAdd_32s_ISfs), 4, 0);
    expect_pointers_before_length(ORV_EXPORT(orvsAdd_64s_Sfs), 4, 0);
    expect_pointers_before_length(ORV_EXPORT(orvsAdd_8u16u), 4);
    expect_pointers_before_length(ORV_EXPORT(orvsAdd_16s32s_I), 4);
    expect_pointers_before_length(ORV_EXPORT(orvsAdd_16s32f), 4);
    expect_pointers_before_length(ORV_EXPORT(orvsAdd_32f), 4);
    expect_pointers_before_length(ORV_EXPORT(orvsAdd_32f_I), 4);
    expect_pointers_before_length(ORV_EXPORT(orvsAdd_64f), 4);
    expect_pointers_before_length(ORV_EXPORT(orvsAdd_64f_I), 4);
}

TEST(Add, complex_forms_check_length_before_pointers)
{
    expect_length_before_pointers(ORV_EXPORT(orvsAdd_16sc_Sfs), 4, 0);
    expect_length_before_pointers(ORV_EXPORT(orvsAdd_16sc_ISfs), 4, 0);
    expect_length_before_pointers(ORV_EXPORT(orvsAdd_32sc_Sfs), 4, 0);
    expect_length_before_pointers(ORV_EXPORT(orvsAdd_32sc_ISfs), 4, 0);
    expect_length_before_pointers(ORV_EXPORT(orvsAdd_32fc), 4);
    expect_length_before_pointers(ORV_EXPORT(orvsAdd_32fc_I), 4);
    expect_length_before_pointers(ORV_EXPORT(orvsAdd_64fc), 4);
    expect_length_before_pointers(ORV_EXPORT(orvsAdd_64fc_I), 4);
}

/// The checks come before the roads: scales that need no arithmetic change nothing.
TEST(Add, checks_come_first_at_every_scale)
{
    for (const int scale : {INT_MIN, -100, -16, -1, 1, 17, 100, INT_MAX}) {
        expect_pointers_before_length(ORV_EXPORT(orvsAdd_8u_Sfs), 4, scale);
        expect_pointers_before_length(ORV_EXPORT(orvsAdd_16u_Sfs), 4, scale);
        expect_pointers_before_length(ORV_EXPORT(orvsAdd_16s_Sfs), 4, scale);
        expect_pointers_before_length(ORV_EXPORT(orvsAdd_32s_Sfs), 4, scale);
        expect_pointers_before_length(ORV_EXPORT(orvsAdd_64s_Sfs), 4, scale);
        expect_length_before_pointers(ORV_EXPORT(orvsAdd_16sc_Sfs), 4, scale);
        expect_length_before_pointers(ORV_EXPORT(orvsAdd_32sc_Sfs), 4, scale);
    }
}

TEST(Add, a_null_pointer_wins_over_a_bad_length)
{
    const Orv16s a = 1;
    Orv16s d = 7;
    EXPECT_EQ(ORV_EXPORT(orvsAdd_16s_Sfs)(nullptr, &a, &d, 0, 0), orvErrNullPointer);
    EXPECT_EQ(ORV_EXPORT(orvsAdd_16s_Sfs)(&a, nullptr, &d, -3, 0), orvErrNullPointer);
    EXPECT_EQ(ORV_EXPORT(orvsAdd_16s_Sfs)(&a, &a, nullptr, 0, 99), orvErrNullPointer);
    EXPECT_EQ(d, 7);
}

TEST(Add, a_bad_length_wins_over_null_pointers_in_32fc)
{
    EXPECT_EQ(ORV_EXPORT(orvsAdd_32fc)(nullptr, nullptr, nullptr, 0), orvErrBadLength);
    EXPECT_EQ(ORV_EXPORT(orvsAdd_32fc)(nullptr, nullptr, nullptr, 1), orvErrNullPointer);
}

// ---- Notable sums

TEST(Add, halves_go_to_the_even_neighbour)
{
    const auto f = ORV_EXPORT(orvsAdd_16s_Sfs);
    EXPECT_EQ(result_of(f, 1, 2, 1), 2);    // 1.5
    EXPECT_EQ(result_of(f, 2, 3, 1), 2);    // 2.5
    EXPECT_EQ(result_of(f, 3, 2, 1), 2);    // 2.5
    EXPECT_EQ(result_of(f, 3, 4, 1), 4);    // 3.5
    EXPECT_EQ(result_of(f, -1, -2, 1), -2); // -1.5
    EXPECT_EQ(result_of(f, -2, -3, 1), -2); // -2.5
    EXPECT_EQ(result_of(f, -3, -4, 1), -4); // -3.5
}

TEST(Add, of_16s_at_the_last_scales_that_are_not_0)
{
    const auto f = ORV_EXPORT(orvsAdd_16s_Sfs);
    EXPECT_EQ(result_of(f, 32767, 32767, 16), 1);
    EXPECT_EQ(result_of(f, -32768, -32768, 16), -1);
    EXPECT_EQ(result_of(f, 16384, 16384, 16), 0);   // exactly one half
    EXPECT_EQ(result_of(f, 16384, 16385, 16), 1);   // just above
    EXPECT_EQ(result_of(f, -16384, -16384, 16), 0); // exactly minus one half
    EXPECT_EQ(result_of(f, -16384, -16385, 16), -1);
    EXPECT_EQ(result_of(f, 32767, 32767, 17), 0);
    EXPECT_EQ(result_of(f, -32768, -32768, 17), 0);
}

TEST(Add, of_16s_at_scales_that_leave_the_sign)
{
    const auto f = ORV_EXPORT(orvsAdd_16s_Sfs);
    for (const int scale : {-15, -16, -17, -31, -32, -33, -1000, INT_MIN}) {
        EXPECT_EQ(result_of(f, 1, 0, scale), 32767) << scale;
        EXPECT_EQ(result_of(f, 0, -1, scale), -32768) << scale;
        EXPECT_EQ(result_of(f, 0, 0, scale), 0) << scale;
        EXPECT_EQ(result_of(f, -5, 5, scale), 0) << scale;
        EXPECT_EQ(result_of(f, 32767, 32767, scale), 32767) << scale;
        EXPECT_EQ(result_of(f, -32768, -32768, scale), -32768) << scale;
        EXPECT_EQ(result_of(f, 32767, -32768, scale), -32768) << scale;
    }
}

TEST(Add, of_8u_at_notable_scales)
{
    const auto f = ORV_EXPORT(orvsAdd_8u_Sfs);
    EXPECT_EQ(result_of(f, 1, 0, 1), 0); // one half
    EXPECT_EQ(result_of(f, 3, 0, 1), 2);
    EXPECT_EQ(result_of(f, 255, 254, 1), 254); // 254.5, a sum beyond 8 bits
    EXPECT_EQ(result_of(f, 255, 255, 0), 255);
    EXPECT_EQ(result_of(f, 255, 255, 9), 1); // 510 / 512
    EXPECT_EQ(result_of(f, 128, 128, 9), 0); // one half
    EXPECT_EQ(result_of(f, 128, 129, 9), 1);
    EXPECT_EQ(result_of(f, 255, 255, 10), 0);
    EXPECT_EQ(result_of(f, 1, 0, -7), 128);
    EXPECT_EQ(result_of(f, 1, 1, -7), 255);
    EXPECT_EQ(result_of(f, 1, 0, -8), 255);
    EXPECT_EQ(result_of(f, 0, 0, -8), 0);
    EXPECT_EQ(result_of(f, 128, 128, -40), 255); // 256 is not 0
}

TEST(Add, of_16u_at_notable_scales)
{
    const auto f = ORV_EXPORT(orvsAdd_16u_Sfs);
    EXPECT_EQ(result_of(f, 65535, 65535, 0), 65535);
    EXPECT_EQ(result_of(f, 65535, 65534, 1), 65534); // 65534.5
    EXPECT_EQ(result_of(f, 65535, 65535, 1), 65535);
    EXPECT_EQ(result_of(f, 65535, 65535, 16), 2); // 1.99997
    EXPECT_EQ(result_of(f, 32768, 65535, 16), 1); // 1.49998
    EXPECT_EQ(result_of(f, 49152, 49152, 16), 2); // 1.5
    EXPECT_EQ(result_of(f, 65535, 65535, 17), 1); // 0.99998
    EXPECT_EQ(result_of(f, 32768, 32768, 17), 0); // one half
    EXPECT_EQ(result_of(f, 32768, 32769, 17), 1);
    EXPECT_EQ(result_of(f, 65535, 65535, 18), 0);
    EXPECT_EQ(result_of(f, 1, 0, -15), 32768);
    EXPECT_EQ(result_of(f, 1, 0, -16), 65535);
    EXPECT_EQ(result_of(f, 0, 0, -16), 0);
}

TEST(Add, of_32s_at_notable_scales)
{
    const auto f = ORV_EXPORT(orvsAdd_32s_Sfs);
    EXPECT_EQ(result_of(f, INT32_MAX, 1, 0), INT32_MAX);
    EXPECT_EQ(result_of(f, INT32_MIN, -1, 0), INT32_MIN);
    EXPECT_EQ(result_of(f, INT32_MAX, INT32_MAX, 1), INT32_MAX);
    EXPECT_EQ(result_of(f, INT32_MAX, INT32_MAX - 1, 1), INT32_MAX - 1); // a half below the limit goes down to even
    EXPECT_EQ(result_of(f, INT32_MAX, INT32_MAX, 2), 1 << 30);           // 2^30 - 1/2
    EXPECT_EQ(result_of(f, INT32_MAX, INT32_MAX, 32), 1);
    EXPECT_EQ(result_of(f, 1 << 30, 1 << 30, 32), 0); // one half
    EXPECT_EQ(result_of(f, INT32_MIN, INT32_MIN, 32), -1);
    EXPECT_EQ(result_of(f, INT32_MIN, INT32_MIN, 33), 0); // minus one half
    EXPECT_EQ(result_of(f, 1, 0, -30), 1 << 30);
    EXPECT_EQ(result_of(f, -1, -1, -30), INT32_MIN);
    EXPECT_EQ(result_of(f, 1, 0, -31), INT32_MAX);
    EXPECT_EQ(result_of(f, -1, 0, -31), INT32_MIN);
    EXPECT_EQ(result_of(f, 1, -1, -31), 0);
}

TEST(Add, of_64s_keeps_the_65th_bit)
{
    const auto f = ORV_EXPORT(orvsAdd_64s_Sfs);
    EXPECT_EQ(result_of(f, INT64_MAX, INT64_MAX, 0), INT64_MAX);
    EXPECT_EQ(result_of(f, INT64_MIN, -1, 0), INT64_MIN);
    EXPECT_EQ(result_of(f, INT64_MAX, INT64_MAX, 1), INT64_MAX);
    EXPECT_EQ(result_of(f, INT64_MIN, INT64_MIN, 1), INT64_MIN);
    EXPECT_EQ(result_of(f, INT64_MIN, INT64_MIN + 1, 1), INT64_MIN); // a tie
    EXPECT_EQ(result_of(f, INT64_MIN + 1, INT64_MIN + 2, 1), INT64_MIN + 2);
    EXPECT_EQ(result_of(f, INT64_MAX, INT64_MAX, 63), 2); // 2 - 2^-62
    EXPECT_EQ(result_of(f, INT64_MIN, INT64_MIN, 63), -2);
    EXPECT_EQ(result_of(f, INT64_MIN, INT64_MIN / 2, 63), -2); // -1.5
    EXPECT_EQ(result_of(f, INT64_MIN / 2, 0, 63), 0);          // minus one half
    EXPECT_EQ(result_of(f, INT64_MIN / 2, -1, 63), -1);
    EXPECT_EQ(result_of(f, -1, 0, -62), INT64_MIN / 2);
    EXPECT_EQ(result_of(f, 1, 0, -63), INT64_MAX);
    EXPECT_EQ(result_of(f, -1, 0, -63), INT64_MIN);
    EXPECT_EQ(result_of(f, INT64_MAX, INT64_MIN, -63), INT64_MIN);
}

/// The interface fills with zeros from 64 on, though the quotient of two large values would still round to 1 or -1.
TEST(Add, of_64s_is_0_from_scale_64_on)
{
    const auto f = ORV_EXPORT(orvsAdd_64s_Sfs);
    for (const int scale : {64, 65, 66, 127, 128, INT_MAX}) {
        EXPECT_EQ(result_of(f, INT64_MAX, INT64_MAX, scale), 0) << scale;
        EXPECT_EQ(result_of(f, INT64_MIN, INT64_MIN, scale), 0) << scale;
    }
}

TEST(Add, of_floats_at_their_limits)
{
    constexpr Orv32f infinity = std::numeric_limits<Orv32f>::infinity(), largest = std::numeric_limits<Orv32f>::max();
    constexpr Orv32f least = std::numeric_limits<Orv32f>::denorm_min(), nan = std::numeric_limits<Orv32f>::quiet_NaN();
    const std::vector<Orv32f> a = {infinity, infinity, largest, least, least, -0.0f, -0.0f, 1, nan, 16777216};
    const std::vector<Orv32f> b = {infinity, -infinity, largest, least, -least, -0.0f, 0.0f, -1, 1, 1};
    const std::vector<Orv32f> want = {infinity, nan, infinity, 2 * least, 0.0f, -0.0f, 0.0f, 0.0f, nan, 16777216};
    std::vector<Orv32f> d(a.size());
    EXPECT_EQ(ORV_EXPORT(orvsAdd_32f)(a.data(), b.data(), d.data(), static_cast<int>(d.size())), orvOk);
    expect_elements(ORV_EXPORT(orvsAdd_32f), d, want);
}

// ---- Every pair of operands

template <class T>
T scaled_sum(T a, T b, int scale)
{
    return limited<T>(nearest_even(std::int64_t{a} + b, scale));
}

TEST(Add, of_all_pairs_of_8u)
{
    const Pairs<Orv8u> pairs(all_bytes<Orv8u>(), all_bytes<Orv8u>());
    expect_all_pairs(ORV_EXPORT(orvsAdd_8u_Sfs), pairs, -10, 11, scaled_sum<Orv8u>);
}
TEST(Add, of_critical_pairs_of_16s)
{
    const auto values = critical_values<Orv16s>(3, 150);
    expect_all_pairs(ORV_EXPORT(orvsAdd_16s_Sfs), Pairs(values, values), -17, 19, scaled_sum<Orv16s>);
}
TEST(Add, of_critical_pairs_of_16u)
{
    const auto values = critical_values<Orv16u>(3, 150);
    expect_all_pairs(ORV_EXPORT(orvsAdd_16u_Sfs), Pairs(values, values), -17, 19, scaled_sum<Orv16u>);
}
TEST(Add, of_critical_pairs_of_32s)
{
    const auto values = critical_values<Orv32s>(1, 20);
    const auto wanted = [](Orv32s a, Orv32s b, int scale) { return saturate<Orv32s>(scale_law(Wide(a) + b, scale)); };
    expect_all_pairs(ORV_EXPORT(orvsAdd_32s_Sfs), Pairs(values, critical_values<Orv32s>(0, 5, 2)), -33, 34, wanted);
}
TEST(Add, of_critical_pairs_of_64s)
{
    const auto values = critical_values<Orv64s>(0, 20);
    const auto wanted = [](Orv64s a, Orv64s b, int scale) {
        return scale >= 64 ? 0 : saturate<Orv64s>(scale_law(Wide(a) + b, scale));
    };
    expect_all_pairs(ORV_EXPORT(orvsAdd_64s_Sfs), Pairs(values, critical_values<Orv64s>(0, 0, 4)), -65, 66, wanted);
}

// ---- Large arrays

TEST(Add, of_large_integer_arrays)
{
    for (const int scale : {-40, -3, 0, 1, 2, 40}) {
        EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsAdd_8u_Sfs), sum, scale));
        EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsAdd_16s_Sfs), sum, scale));
    }
    EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsAdd_8u_ISfs), sum, 1));
    EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsAdd_16u), sum));
    EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsAdd_16u_Sfs), sum, 17));
    EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsAdd_16u_ISfs), sum, 1));
    EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsAdd_16s), sum));
    EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsAdd_16s_I), sum));
    EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsAdd_16s_ISfs), sum, 3));
    EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsAdd_16sc_Sfs), sum, 1));
    EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsAdd_16sc_ISfs), sum, 1));
    EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsAdd_32u), sum));
    EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsAdd_32s_Sfs), sum, 2));
    EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsAdd_32s_ISfs), sum, 2));
    EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsAdd_32sc_Sfs), sum, 1));
    EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsAdd_32sc_ISfs), sum, 1));
    EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsAdd_64s_Sfs), sum, 5));
    EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsAdd_8u16u), sum));
    EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsAdd_16s32s_I), sum));
}

TEST(Add, of_large_float_arrays)
{
    EXPECT_TRUE(check_large(ORV_EXPORT(orvsAdd_16s32f).with(), integer_sum_as_float));
    EXPECT_TRUE(check_large(ORV_EXPORT(orvsAdd_32f).with(), sum));
    EXPECT_TRUE(check_large(ORV_EXPORT(orvsAdd_32f_I).with(), sum));
    EXPECT_TRUE(check_large(ORV_EXPORT(orvsAdd_32fc).with(), sum));
    EXPECT_TRUE(check_large(ORV_EXPORT(orvsAdd_32fc_I).with(), sum));
    EXPECT_TRUE(check_large(ORV_EXPORT(orvsAdd_64f).with(), sum));
    EXPECT_TRUE(check_large(ORV_EXPORT(orvsAdd_64f_I).with(), sum));
    EXPECT_TRUE(check_large(ORV_EXPORT(orvsAdd_64fc).with(), sum));
    EXPECT_TRUE(check_large(ORV_EXPORT(orvsAdd_64fc_I).with(), sum));
}

TEST(Add, of_eight_million_elements)
{
    constexpr std::size_t elements = std::size_t{8} << 20;
    LargeCall floats(ORV_EXPORT(orvsAdd_32f).with(), sum);
    for (const int bytes : {0, 4, 30}) EXPECT_TRUE(floats.check(12 * elements, misaligned(bytes)));
    EXPECT_TRUE(floats.check(12 * elements, misaligned(4), true));

    LargeCall integers(ORV_EXPORT(orvsAdd_16s).with(), [](Orv16s a, Orv16s b) { return limited<Orv16s>(a + b); });
    for (const int bytes : {0, 2, 31}) EXPECT_TRUE(integers.check(6 * elements, misaligned(bytes)));
    EXPECT_TRUE(integers.check(6 * elements, misaligned(2), true));
}

#if ORV_ENDLESS_ARRAYS
/// Twice the length of these does not fit the type of lengths.
TEST(Add, of_complex_arrays_with_more_parts_than_a_length_can_tell)
{
    const auto integers = [](auto f, const Orv32sc* src, Orv32sc* dst, int n) { return f(src, src, dst, n, 1); };
    expect_right_without_end(ORV_EXPORT(orvsAdd_32sc_Sfs).as(integers), [](const Orv32sc& a) { return a; });
    const auto floats = [](auto f, const Orv32fc* src, Orv32fc* dst, int n) { return f(src, src, dst, n); };
    expect_right_without_end(ORV_EXPORT(orvsAdd_32fc).as(floats), [](const Orv32fc& a) { return sum(a, a); });
}
#endif

// ---- The caller's floating-point state

TEST(Add, follows_the_callers_state)
{
    const auto pair = [](auto a, auto b) { return std::tuple(a, b); };
    const auto triple = [](auto a, auto b) { return std::tuple(a, b, a); };
    expect_to_follow_the_state(ORV_EXPORT(orvsAdd_32f).with(), triple);
    expect_to_follow_the_state(ORV_EXPORT(orvsAdd_32f_I).with(), pair);
    expect_to_follow_the_state(ORV_EXPORT(orvsAdd_32fc).with(), triple);
    expect_to_follow_the_state(ORV_EXPORT(orvsAdd_32fc_I).with(), pair);
    expect_to_follow_the_state(ORV_EXPORT(orvsAdd_64f).with(), triple);
    expect_to_follow_the_state(ORV_EXPORT(orvsAdd_64f_I).with(), pair);
    expect_to_follow_the_state(ORV_EXPORT(orvsAdd_64fc).with(), triple);
    expect_to_follow_the_state(ORV_EXPORT(orvsAdd_64fc_I).with(), pair);
}

TEST(Add, is_ieee_in_other_states)
{
    EXPECT_TRUE(sweep_in_states(ORV_EXPORT(orvsAdd_32f).with(), sum));
    EXPECT_TRUE(sweep_in_states(ORV_EXPORT(orvsAdd_32f_I).with(), sum));
    EXPECT_TRUE(sweep_in_states(ORV_EXPORT(orvsAdd_32fc).with(), sum));
    EXPECT_TRUE(sweep_in_states(ORV_EXPORT(orvsAdd_32fc_I).with(), sum));
    EXPECT_TRUE(sweep_in_states(ORV_EXPORT(orvsAdd_64f).with(), sum));
    EXPECT_TRUE(sweep_in_states(ORV_EXPORT(orvsAdd_64f_I).with(), sum));
    EXPECT_TRUE(sweep_in_states(ORV_EXPORT(orvsAdd_64fc).with(), sum));
    EXPECT_TRUE(sweep_in_states(ORV_EXPORT(orvsAdd_64fc_I).with(), sum));
    EXPECT_TRUE(sweep_in_states(ORV_EXPORT(orvsAdd_16s32f).with(), integer_sum_as_float));
}

TEST(Add, raises_no_flags_on_exact_sums)
{
    expect_no_flags(ORV_EXPORT(orvsAdd_32f).with());
    expect_no_flags(ORV_EXPORT(orvsAdd_32f_I).with());
    expect_no_flags(ORV_EXPORT(orvsAdd_32fc).with());
    expect_no_flags(ORV_EXPORT(orvsAdd_32fc_I).with());
    expect_no_flags(ORV_EXPORT(orvsAdd_64f).with());
    expect_no_flags(ORV_EXPORT(orvsAdd_64f_I).with());
    expect_no_flags(ORV_EXPORT(orvsAdd_64fc).with());
    expect_no_flags(ORV_EXPORT(orvsAdd_64fc_I).with());
    expect_no_flags(ORV_EXPORT(orvsAdd_16s32f).with());
}

// ---- Threads

/// What one thread works on: its own data for several functions, and how often a result was wrong.
struct ThreadWork {
    static constexpr int n = 3001;
    std::vector<Orv16s> a16, b16, sum16;
    std::vector<Orv8u> a8, reverse8;
    std::vector<Orv32f> a32f, b32f, difference32f;
    std::vector<Orv64s> a64, sum64;
    std::vector<Orv32s> a32, b32, accumulated32;
    Orv64s value64 = 0;
    Orv8u value8 = 0;
    int wrong = 0;

    explicit ThreadWork(std::uint64_t seed)
    {
        Random random(seed);
        a16 = inputs<Orv16s>(random, n);
        b16 = inputs<Orv16s>(random, n);
        a8 = inputs<Orv8u>(random, n);
        a32f = inputs<Orv32f>(random, n, Floats::finite);
        b32f = inputs<Orv32f>(random, n, Floats::finite);
        a64 = inputs<Orv64s>(random, n);
        a32 = inputs<Orv32s>(random, n);
        b32 = inputs<Orv32s>(random, n);
        value64 = inputs<Orv64s>(random, 1)[0];
        value8 = inputs<Orv8u>(random, 1)[0];
        for (int i = 0; i < n; ++i) {
            const auto k = static_cast<std::size_t>(i);
            sum16.push_back(scaled_sum(a16[k], b16[k], 3));
            reverse8.push_back(limited<Orv8u>(nearest_even(value8 - a8[k], 1)));
            difference32f.push_back(b32f[k] - a32f[k]);
            sum64.push_back(saturate<Orv64s>(scale_law(Wide(a64[k]) + value64, 7, orvRndFinancial)));
            accumulated32.push_back(saturate<Orv32s>(scale_law(Wide(a32[k]) * b32[k] + a32[k], 20)));
        }
    }

    void run()
    {
        std::vector<Orv16s> d16(n);
        std::vector<Orv8u> d8(n);
        std::vector<Orv32f> d32f(n);
        std::vector<Orv64s> d64(n);
        std::vector<Orv32s> d32(n);
        for (int turn = 0; turn < 300; ++turn) {
            orvsAdd_16s_Sfs(a16.data(), b16.data(), d16.data(), n, 3);
            orvsSubCRev_8u_Sfs(a8.data(), value8, d8.data(), n, 1);
            orvsSub_32f(a32f.data(), b32f.data(), d32f.data(), n);
            orvsAddC_64s_Sfs(a64.data(), value64, d64.data(), n, 7, orvRndFinancial);
            d32 = a32;
            orvsAddProduct_32s_Sfs(a32.data(), b32.data(), d32.data(), n, 20);
            wrong += d16 != sum16 || d8 != reverse8 || d32f != difference32f || d64 != sum64 || d32 != accumulated32;
            std::fill(d16.begin(), d16.end(), Orv16s{-1});
            std::fill(d32f.begin(), d32f.end(), -1.0f);
        }
    }
};

TEST(Arith, threads_do_not_disturb_each_other)
{
    std::vector<ThreadWork> works;
    for (std::uint64_t seed = 1; seed <= 4; ++seed) works.emplace_back(seed);
    std::vector<std::thread> threads;
    for (ThreadWork& work : works) threads.emplace_back([&work] { work.run(); });
    for (std::thread& thread : threads) thread.join();
    for (const ThreadWork& work : works) EXPECT_EQ(work.wrong, 0);
}

} // namespace
} // namespace orvtest
