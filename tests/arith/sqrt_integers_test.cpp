// Integer roots: dst = sqrt(src) * 2^-scale.
#include "orvs/arith.h"

#include "tests/arith/caller_state.h"
#include "tests/arith/large.h"
#include "tests/arith/products.h"
#include "tests/arith/roots.h"

#include <gtest/gtest.h>

namespace orvtest {
namespace {

// ---- Sweeps

/// At all scales from lowest to highest and at the limits of the type.
template <class... Args>
bool sweep_scales(const Export<OrvStatus, Args...>& f, int lowest, int highest)
{
    for (const int scale : scales_between(lowest, highest)) {
        const SweepOptions options = lengths_at_scale(scale, {INT_MIN, lowest + 3, -3, 0, 2, INT_MAX});
        const WantedRoot<DestinationElement<Args...>> element = {scale};
        if (!sweep_elements(with_negatives(f.with(scale)), element, options)) return false;
    }
    return true;
}

TEST(Sqrt_8u_Sfs, exact) { EXPECT_TRUE(sweep_scales(ORV_EXPORT(orvsSqrt_8u_Sfs), -10, 7)); }
TEST(Sqrt_8u_ISfs, exact) { EXPECT_TRUE(sweep_scales(ORV_EXPORT(orvsSqrt_8u_ISfs), -10, 7)); }
TEST(Sqrt_16u_Sfs, exact) { EXPECT_TRUE(sweep_scales(ORV_EXPORT(orvsSqrt_16u_Sfs), -18, 11)); }
TEST(Sqrt_16u_ISfs, exact) { EXPECT_TRUE(sweep_scales(ORV_EXPORT(orvsSqrt_16u_ISfs), -18, 11)); }
TEST(Sqrt_16s_Sfs, exact) { EXPECT_TRUE(sweep_scales(ORV_EXPORT(orvsSqrt_16s_Sfs), -17, 11)); }
TEST(Sqrt_16s_ISfs, exact) { EXPECT_TRUE(sweep_scales(ORV_EXPORT(orvsSqrt_16s_ISfs), -17, 11)); }
TEST(Sqrt_16sc_Sfs, exact) { EXPECT_TRUE(sweep_scales(ORV_EXPORT(orvsSqrt_16sc_Sfs), -28, 11)); }
TEST(Sqrt_16sc_ISfs, exact) { EXPECT_TRUE(sweep_scales(ORV_EXPORT(orvsSqrt_16sc_ISfs), -28, 11)); }
TEST(Sqrt_32s16s_Sfs, exact) { EXPECT_TRUE(sweep_scales(ORV_EXPORT(orvsSqrt_32s16s_Sfs), -17, 19)); }
TEST(Sqrt_64s16s_Sfs, exact) { EXPECT_TRUE(sweep_scales(ORV_EXPORT(orvsSqrt_64s16s_Sfs), -17, 35)); }
TEST(Sqrt_64s_Sfs, exact) { EXPECT_TRUE(sweep_scales(ORV_EXPORT(orvsSqrt_64s_Sfs), -65, 35)); }
TEST(Sqrt_64s_ISfs, exact) { EXPECT_TRUE(sweep_scales(ORV_EXPORT(orvsSqrt_64s_ISfs), -65, 35)); }

// ---- Every value, and every value next to a change of rounding

/// All values of a type of 8 or 16 bits, in ascending order. Their roots ascend as well, so one comparison of squares
/// tells each from the one before; 64 bits hold them as long as anything is in the range of the type.
template <std::integral T>
void expect_all_values(const Export<OrvStatus, const T*, T*, int, int>& f)
{
    constexpr int lowest_scale = 8 * static_cast<int>(sizeof(T));
    constexpr std::uint64_t highest = static_cast<std::uint64_t>(std::numeric_limits<T>::max());
    const int count = 1 << lowest_scale;
    std::vector<T> values;
    for (int i = 0; i < count; ++i) values.push_back(static_cast<T>(std::numeric_limits<T>::min() + i));
    for (int scale = -lowest_scale; scale <= 12; ++scale) {
        std::uint64_t y = 0;
        const auto reaches = [&](std::uint64_t x, std::uint64_t c) { // sqrt(x) * 2^-scale rounds to c or more
            const std::uint64_t left = 4 * x << (scale < 0 ? -2 * scale : 0);
            const std::uint64_t right = (2 * c - 1) * (2 * c - 1) << (scale > 0 ? 2 * scale : 0);
            return left > right || (left == right && c % 2 == 0);
        };
        EXPECT_TRUE(expect_roots(root(f, scale), values, [&](T x) {
            while (x > 0 && y < highest && reaches(static_cast<std::uint64_t>(x), y + 1)) ++y;
            return static_cast<T>(y);
        }));
    }
}

TEST(SqrtIntegers, of_all_8_and_16_bit_values)
{
    expect_all_values(ORV_EXPORT(orvsSqrt_8u_Sfs));
    expect_all_values(ORV_EXPORT(orvsSqrt_16u_Sfs));
    expect_all_values(ORV_EXPORT(orvsSqrt_16s_Sfs));
}

/// Squares, squares of halves of odd numbers, and their neighbours.
template <class S, class D>
void expect_near_ties(const Export<OrvStatus, const S*, D*, int, int>& f, int lowest, int highest)
{
    for (int scale = lowest; scale <= highest; ++scale)
        EXPECT_TRUE(expect_roots(root(f, scale), near_radicands<S>(scale, 1000, 1), WantedRoot<D>{scale}));
}

TEST(SqrtIntegers, next_to_ties)
{
    expect_near_ties(ORV_EXPORT(orvsSqrt_32s16s_Sfs), -17, 18);
    expect_near_ties(ORV_EXPORT(orvsSqrt_64s16s_Sfs), -17, 34);
    expect_near_ties(ORV_EXPORT(orvsSqrt_64s_Sfs), -64, 34);
}

/// Every tie and every value next to it of a 32-bit radicand; and that of many in 64 bits.
TEST(SqrtIntegers, next_to_every_tie_of_32_bits)
{
    for (int scale = -2; scale <= 16; ++scale) {
        std::vector<Orv32s> values;
        for (std::int64_t k = 0;; ++k) {
            const std::int64_t half = 2 * k + 1; // of the tie k + 1/2
            const std::int64_t square = scale > 0 ? half * half << 2 * (scale - 1) : half * half >> (2 - 2 * scale);
            if (square > INT32_MAX) break;
            for (const std::int64_t x : {square - 1, square, square + 1})
                if (x >= 0 && x <= INT32_MAX) values.push_back(static_cast<Orv32s>(x));
        }
        EXPECT_TRUE(expect_roots(root(ORV_EXPORT(orvsSqrt_32s16s_Sfs), scale), values, WantedRoot<Orv16s>{scale}));
    }
}

/// Real and imaginary numbers, squares of complex integers and of their halves (the ties), and their neighbours.
TEST(SqrtIntegers, of_complex_values_next_to_ties)
{
    const auto f = ORV_EXPORT(orvsSqrt_16sc_Sfs);
    Random random(16);
    for (int scale = -26; scale <= 9; ++scale) {
        std::vector<Orv16sc> values = complex_values<Orv16sc>({-32768, -32767, -4, -1, 0, 1, 2, 9, 32767});
        for (int i = 0; i < 4000; ++i) {
            const auto t = static_cast<std::int64_t>(random.below(400)),
                       u = static_cast<std::int64_t>(random.below(400));
            const std::int64_t re = t * t - u * u, im = 2 * t * u;
            const int shift = static_cast<int>(random.below(4)) & ~1;
            for (int distance = -1; distance <= 1; ++distance)
                values.push_back(
                    {limited<Orv16s>((re >> shift) + distance), limited<Orv16s>((i % 2 ? im : -im) >> shift)});
            values.push_back({static_cast<Orv16s>(random.bits()), static_cast<Orv16s>(random.bits() >> (i % 16 + 1))});
        }
        EXPECT_TRUE(expect_roots(root(f, scale), values, WantedRoot<Orv16sc>{scale}));
    }
}

// ---- Notable roots

TEST(SqrtIntegers, of_8u_at_notable_scales)
{
    const auto at = [](int scale) { return root(ORV_EXPORT(orvsSqrt_8u_Sfs), scale); };
    const int at_0[] = {0, 1, 1, 2, 2, 2, 2, 3}, at_1[] = {0, 2, 3, 3, 4, 4, 5, 5};
    const int at_4[] = {0, 16, 23, 28, 32, 36, 39, 42}, at_5[] = {0, 32, 45, 55, 64, 72, 78, 85};
    const int at_6[] = {0, 64, 91, 111, 128, 143, 157, 169}, at_7[] = {0, 128, 181, 222, 255, 255, 255, 255};
    for (Orv8u i = 0; i < 8; ++i) {
        EXPECT_EQ(result_of_one(at(0), i), at_0[i]) << int{i};
        EXPECT_EQ(result_of_one(at(-1), i), at_1[i]) << int{i};
        EXPECT_EQ(result_of_one(at(-4), i), at_4[i]) << int{i};
        EXPECT_EQ(result_of_one(at(-5), i), at_5[i]) << int{i};
        EXPECT_EQ(result_of_one(at(-6), i), at_6[i]) << int{i};
        EXPECT_EQ(result_of_one(at(-7), i), at_7[i]) << int{i};
    }
    for (const int scale : {-8, -9, -40, INT_MIN}) {
        EXPECT_EQ(result_of_one(at(scale), 0), 0) << scale;
        EXPECT_EQ(result_of_one(at(scale), 1), 255) << scale;
    }
    EXPECT_EQ(result_of_one(at(1), 1), 0);  // one half
    EXPECT_EQ(result_of_one(at(1), 9), 2);  // 1.5
    EXPECT_EQ(result_of_one(at(1), 25), 2); // 2.5
    EXPECT_EQ(result_of_one(at(4), 64), 0); // one half
    EXPECT_EQ(result_of_one(at(4), 65), 1);
    for (const int scale : {5, 6, 40, INT_MAX}) EXPECT_EQ(result_of_one(at(scale), 255), 0) << scale;
}

TEST(SqrtIntegers, of_16s_at_notable_scales)
{
    const auto at = [](int scale) { return root(ORV_EXPORT(orvsSqrt_16s_Sfs), scale); };
    EXPECT_EQ(result_of_one(at(0), 32767), 181);
    EXPECT_EQ(result_of_one(at(0), 2), 1);
    EXPECT_EQ(result_of_one(at(0), 3), 2);
    EXPECT_EQ(result_of_one(at(-14), 1), 16384);
    EXPECT_EQ(result_of_one(at(-14), 3), 28378);
    EXPECT_EQ(result_of_one(at(-14), 4), 32767);
    EXPECT_EQ(result_of_one(at(8), 16384), 0); // one half
    EXPECT_EQ(result_of_one(at(8), 16385), 1);
    for (const int scale : {-15, -16, -40, INT_MIN}) {
        EXPECT_EQ(result_of_one(at(scale), 1), 32767) << scale;
        EXPECT_EQ(result_of_one(at(scale), 0), 0) << scale;
    }
    for (const int scale : {9, 10, 40, INT_MAX}) EXPECT_EQ(result_of_one(at(scale), 32767), 0) << scale;
    for (const int scale : {INT_MIN, -15, -14, -3, 0, 1, 8, 9, INT_MAX}) {
        EXPECT_EQ(result_of_one(at(scale), -1, orvWrnSqrtOfNegative), 0) << scale;
        EXPECT_EQ(result_of_one(at(scale), -32768, orvWrnSqrtOfNegative), 0) << scale;
    }
}

TEST(SqrtIntegers, of_wide_values_at_notable_scales)
{
    const auto of_64s = [](int scale) { return root(ORV_EXPORT(orvsSqrt_64s_Sfs), scale); };
    EXPECT_EQ(result_of_one(of_64s(0), INT64_MAX), 3037000500);
    EXPECT_EQ(result_of_one(of_64s(32), INT64_MAX), 1);
    EXPECT_EQ(result_of_one(of_64s(32), std::int64_t{1} << 62), 0); // one half
    EXPECT_EQ(result_of_one(of_64s(32), (std::int64_t{1} << 62) + 1), 1);
    EXPECT_EQ(result_of_one(of_64s(33), INT64_MAX), 0);
    EXPECT_EQ(result_of_one(of_64s(-62), 1), std::int64_t{1} << 62);
    EXPECT_EQ(result_of_one(of_64s(-62), 2), 6521908912666391106);
    EXPECT_EQ(result_of_one(of_64s(-62), 4), INT64_MAX);
    EXPECT_EQ(result_of_one(of_64s(-63), 1), INT64_MAX);
    EXPECT_EQ(result_of_one(of_64s(-32), (std::int64_t{1} << 62) - 1), INT64_MAX);
    EXPECT_EQ(result_of_one(of_64s(-37), (std::int64_t{1} << 52) - 2), 9223372036854773760);
    const auto of_64s16s = [](int scale) { return root(ORV_EXPORT(orvsSqrt_64s16s_Sfs), scale); };
    EXPECT_EQ(result_of_one(of_64s16s(0), INT64_MAX), 32767);
    EXPECT_EQ(result_of_one(of_64s16s(17), INT64_MAX), 23170);
    EXPECT_EQ(result_of_one(of_64s16s(16), INT64_MAX), 32767);
    const auto of_32s16s = [](int scale) { return root(ORV_EXPORT(orvsSqrt_32s16s_Sfs), scale); };
    EXPECT_EQ(result_of_one(of_32s16s(0), INT32_MAX), 32767);
    EXPECT_EQ(result_of_one(of_32s16s(1), INT32_MAX), 23170);
    EXPECT_EQ(result_of_one(of_32s16s(16), INT32_MAX), 1);
    EXPECT_EQ(result_of_one(of_32s16s(17), INT32_MAX), 0);
    for (const int scale : {INT_MIN, -63, -15, -14, 0, 5, 16, 17, 32, 33, INT_MAX}) {
        EXPECT_EQ(result_of_one(of_64s(scale), INT64_MIN, orvWrnSqrtOfNegative), 0) << scale;
        EXPECT_EQ(result_of_one(of_64s(scale), -1, orvWrnSqrtOfNegative), 0) << scale;
        EXPECT_EQ(result_of_one(of_64s16s(scale), -1, orvWrnSqrtOfNegative), 0) << scale;
        EXPECT_EQ(result_of_one(of_32s16s(scale), INT32_MIN, orvWrnSqrtOfNegative), 0) << scale;
        EXPECT_EQ(result_of_one(of_64s(scale), 0), 0) << scale;
        EXPECT_EQ(result_of_one(of_64s16s(scale), 0), 0) << scale;
        EXPECT_EQ(result_of_one(of_32s16s(scale), 0), 0) << scale;
    }
}

TEST(SqrtIntegers, of_16sc_in_numbers)
{
    const auto f = ORV_EXPORT(orvsSqrt_16sc_Sfs);
    const auto expect_root = [&](int scale, Orv16sc z, Orv16sc want) {
        expect_value(f, result_of_one(root(f, scale), z), want);
        const auto in_place = root(ORV_EXPORT(orvsSqrt_16sc_ISfs), scale);
        expect_value(ORV_EXPORT(orvsSqrt_16sc_ISfs), result_of_one(in_place, z), want);
    };
    expect_root(0, {-5, 12}, {2, 3});
    expect_root(0, {-5, -12}, {2, -3});
    expect_root(0, {5, -12}, {3, -2});
    expect_root(-4, {3, 4}, {32, 16});
    expect_root(0, {-4, 0}, {0, 2}); // no -0: above the cut
    expect_root(0, {4, 0}, {2, 0});
    expect_root(1, {9, 0}, {2, 0});               // 1.5
    expect_root(1, {-25, 0}, {0, 2});             // 2.5
    expect_root(0, {-32768, -32768}, {82, -199}); // 82.38, 198.88
    expect_root(0, {0, 0}, {0, 0});
    expect_root(-40, {0, 0}, {0, 0});
    expect_root(-40, {32767, 1}, {32767, 32767});
    expect_root(-40, {32767, -1}, {32767, -32768});
    expect_root(-40, {-1, 0}, {0, 32767});
    expect_root(INT_MIN, {-1, 0}, {0, 32767});
    expect_root(8, {-32768, -32768}, {0, -1});
    expect_root(9, {-32768, -32768}, {0, 0});
    expect_root(INT_MAX, {-32768, -32768}, {0, 0});
}

TEST(SqrtIntegers, a_negative_element_anywhere)
{
    for (const int scale : {-40, -3, 0, 2, 40}) {
        expect_negatives_anywhere(root(ORV_EXPORT(orvsSqrt_16s_Sfs), scale), WantedRoot<Orv16s>{scale});
        expect_negatives_anywhere(root(ORV_EXPORT(orvsSqrt_16s_ISfs), scale), WantedRoot<Orv16s>{scale});
        expect_negatives_anywhere(root(ORV_EXPORT(orvsSqrt_32s16s_Sfs), scale), WantedRoot<Orv16s>{scale});
        expect_negatives_anywhere(root(ORV_EXPORT(orvsSqrt_64s16s_Sfs), scale), WantedRoot<Orv16s>{scale});
        expect_negatives_anywhere(root(ORV_EXPORT(orvsSqrt_64s_Sfs), scale), WantedRoot<Orv64s>{scale});
        expect_negatives_anywhere(root(ORV_EXPORT(orvsSqrt_64s_ISfs), scale), WantedRoot<Orv64s>{scale});
    }
}

TEST(SqrtIntegers, the_status_of_a_negative_element_is_3)
{
    const Orv16s x = -7;
    Orv16s d = 5;
    const auto f = ORV_EXPORT(orvsSqrt_16s_Sfs);
    expect_value(f, Orv32s{f(&x, &d, 1, 0)}, 3);
    EXPECT_EQ(d, 0);
}

// ---- Order of checks

TEST(SqrtIntegers, checks_pointers_before_length)
{
    for (const int scale : {INT_MIN, -63, -24, -16, -15, -8, -7, 0, 1, 5, 9, 17, 33, INT_MAX}) {
        expect_pointers_before_length(ORV_EXPORT(orvsSqrt_8u_Sfs), 4, scale);
        expect_pointers_before_length(ORV_EXPORT(orvsSqrt_8u_ISfs), 4, scale);
        expect_pointers_before_length(ORV_EXPORT(orvsSqrt_16u_Sfs), 4, scale);
        expect_pointers_before_length(ORV_EXPORT(orvsSqrt_16u_ISfs), 4, scale);
        expect_pointers_before_length(ORV_EXPORT(orvsSqrt_16s_Sfs), 4, scale);
        expect_pointers_before_length(ORV_EXPORT(orvsSqrt_16s_ISfs), 4, scale);
        expect_pointers_before_length(ORV_EXPORT(orvsSqrt_16sc_Sfs), 4, scale);
        expect_pointers_before_length(ORV_EXPORT(orvsSqrt_16sc_ISfs), 4, scale);
        expect_pointers_before_length(ORV_EXPORT(orvsSqrt_32s16s_Sfs), 4, scale);
        expect_pointers_before_length(ORV_EXPORT(orvsSqrt_64s16s_Sfs), 4, scale);
        expect_pointers_before_length(ORV_EXPORT(orvsSqrt_64s_Sfs), 4, scale);
        expect_pointers_before_length(ORV_EXPORT(orvsSqrt_64s_ISfs), 4, scale);
    }
}

// ---- Large arrays

template <class... Args>
void expect_large(const Export<OrvStatus, Args...>& f, int scale)
{
    EXPECT_TRUE(check_large(with_negatives(f.with(scale)), WantedRoot<DestinationElement<Args...>>{scale}));
}
TEST(SqrtIntegers, of_large_arrays)
{
    ASSERT_EQ(orvSetNumThreads(2), orvOk);
    expect_large(ORV_EXPORT(orvsSqrt_8u_Sfs), -3);
    expect_large(ORV_EXPORT(orvsSqrt_8u_ISfs), 0);
    expect_large(ORV_EXPORT(orvsSqrt_16u_Sfs), 0);
    expect_large(ORV_EXPORT(orvsSqrt_16s_Sfs), -3);
    expect_large(ORV_EXPORT(orvsSqrt_16s_Sfs), -20);
    expect_large(ORV_EXPORT(orvsSqrt_16s_Sfs), 20);
    expect_large(ORV_EXPORT(orvsSqrt_16sc_Sfs), -3);
    expect_large(ORV_EXPORT(orvsSqrt_32s16s_Sfs), 2);
    expect_large(ORV_EXPORT(orvsSqrt_64s16s_Sfs), 17);
    expect_large(ORV_EXPORT(orvsSqrt_64s_Sfs), 0);
    orvSetNumThreads(1);
}

// ---- The caller's floating-point state

template <class S, class D>
void expect_in_any_state(const Root<S, D>& f, const std::vector<S>& values, int scale, Exceptions exceptions)
{
    std::vector<D> want;
    for (const S& x : values) want.push_back(WantedRoot<D>{scale}(x));
    const bool negative = std::any_of(values.begin(), values.end(), [](const S& x) { return is_negative(x); });
    const auto call = [&](D* results, int n) { return f.function(values.data(), results, n); };
    expect_the_same_in_any_state(f.name, want, negative ? orvWrnSqrtOfNegative : orvOk, call, exceptions);
}
void expect_integers_in_any_state(Exceptions exceptions)
{
    for (const int scale : {-62, -20, -14, -3, 0, 1, 5, 16, 40}) {
        expect_in_any_state(root(ORV_EXPORT(orvsSqrt_8u_Sfs), scale), all_bytes<Orv8u>(), scale, exceptions);
        expect_in_any_state(root(ORV_EXPORT(orvsSqrt_16u_Sfs), scale), critical_values<Orv16u>(1, 300), scale,
                            exceptions);
        expect_in_any_state(root(ORV_EXPORT(orvsSqrt_16s_Sfs), scale), critical_values<Orv16s>(1, 300), scale,
                            exceptions);
        expect_in_any_state(root(ORV_EXPORT(orvsSqrt_16sc_Sfs), scale),
                            complex_values<Orv16sc>(critical_parts<Orv16s>()), scale, exceptions);
        expect_in_any_state(root(ORV_EXPORT(orvsSqrt_32s16s_Sfs), scale), near_radicands<Orv32s>(scale, 100, 2), scale,
                            exceptions);
        expect_in_any_state(root(ORV_EXPORT(orvsSqrt_64s16s_Sfs), scale), critical_values<Orv64s>(1, 300), scale,
                            exceptions);
        expect_in_any_state(root(ORV_EXPORT(orvsSqrt_64s_Sfs), scale), near_radicands<Orv64s>(scale, 100, 3), scale,
                            exceptions);
        expect_in_any_state(root(ORV_EXPORT(orvsSqrt_64s_ISfs), scale), critical_values<Orv64s>(1, 300), scale,
                            exceptions);
    }
}

TEST(SqrtIntegers, does_not_depend_on_the_callers_state) { expect_integers_in_any_state(Exceptions::masked); }
TEST(SqrtIntegers, raises_no_exception) { expect_integers_in_any_state(Exceptions::unmasked); }

} // namespace
} // namespace orvtest
