// dst = src1 * src2.
#include "orvs/arith.h"

#include "tests/arith/caller_state.h"
#include "tests/arith/endless.h"
#include "tests/arith/large.h"
#include "tests/arith/products.h"

#include <gtest/gtest.h>

namespace orvtest {
namespace {

// ---- Results

const auto integer_product_as_float = [](Orv16s a, Orv16s b) { return static_cast<Orv32f>(a * b); };

TEST(Mul_8u_Sfs, exact) { EXPECT_TRUE(sweep_products(ORV_EXPORT(orvsMul_8u_Sfs))); }
TEST(Mul_8u_ISfs, exact) { EXPECT_TRUE(sweep_products(ORV_EXPORT(orvsMul_8u_ISfs))); }
TEST(Mul_16u_Sfs, exact) { EXPECT_TRUE(sweep_products(ORV_EXPORT(orvsMul_16u_Sfs))); }
TEST(Mul_16u_ISfs, exact) { EXPECT_TRUE(sweep_products(ORV_EXPORT(orvsMul_16u_ISfs))); }
TEST(Mul_16s, exact) { EXPECT_TRUE(sweep_products(ORV_EXPORT(orvsMul_16s))); }
TEST(Mul_16s_I, exact) { EXPECT_TRUE(sweep_products(ORV_EXPORT(orvsMul_16s_I))); }
TEST(Mul_16s_Sfs, exact) { EXPECT_TRUE(sweep_products(ORV_EXPORT(orvsMul_16s_Sfs))); }
TEST(Mul_16s_ISfs, exact) { EXPECT_TRUE(sweep_products(ORV_EXPORT(orvsMul_16s_ISfs))); }
TEST(Mul_16sc_Sfs, exact) { EXPECT_TRUE(sweep_products(ORV_EXPORT(orvsMul_16sc_Sfs))); }
TEST(Mul_16sc_ISfs, exact) { EXPECT_TRUE(sweep_products(ORV_EXPORT(orvsMul_16sc_ISfs))); }
TEST(Mul_32s_Sfs, exact) { EXPECT_TRUE(sweep_products(ORV_EXPORT(orvsMul_32s_Sfs))); }
TEST(Mul_32s_ISfs, exact) { EXPECT_TRUE(sweep_products(ORV_EXPORT(orvsMul_32s_ISfs))); }
TEST(Mul_Low_32s_Sfs, exact) { EXPECT_TRUE(sweep_products(ORV_EXPORT(orvsMul_Low_32s_Sfs))); }
TEST(Mul_32sc_Sfs, exact) { EXPECT_TRUE(sweep_products(ORV_EXPORT(orvsMul_32sc_Sfs))); }
TEST(Mul_32sc_ISfs, exact) { EXPECT_TRUE(sweep_products(ORV_EXPORT(orvsMul_32sc_ISfs))); }

TEST(Mul_8u16u, exact) { EXPECT_TRUE(sweep_products(ORV_EXPORT(orvsMul_8u16u))); }
TEST(Mul_16s32s_Sfs, exact) { EXPECT_TRUE(sweep_products(ORV_EXPORT(orvsMul_16s32s_Sfs))); }
TEST(Mul_16u16s_Sfs, exact) { EXPECT_TRUE(sweep_products(ORV_EXPORT(orvsMul_16u16s_Sfs))); }
TEST(Mul_32s32sc_Sfs, exact) { EXPECT_TRUE(sweep_products(ORV_EXPORT(orvsMul_32s32sc_Sfs))); }
TEST(Mul_32s32sc_ISfs, exact) { EXPECT_TRUE(sweep_products(ORV_EXPORT(orvsMul_32s32sc_ISfs))); }
TEST(Mul_16s32f, rounds_the_exact_product)
{
    EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsMul_16s32f), integer_product_as_float, family_lengths()));
}

/// The first factor of a complex product in place is the destination.
constexpr Product in_place = product_with_second_first;

TEST(Mul_32f, ieee) { EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsMul_32f), product, family_lengths())); }
TEST(Mul_32f_I, ieee) { EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsMul_32f_I), in_place, family_lengths())); }
TEST(Mul_32fc, fused) { EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsMul_32fc), product, family_lengths())); }
TEST(Mul_32fc_I, fused) { EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsMul_32fc_I), in_place, family_lengths())); }
TEST(Mul_64f, ieee) { EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsMul_64f), product, family_lengths())); }
TEST(Mul_64f_I, ieee) { EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsMul_64f_I), in_place, family_lengths())); }
TEST(Mul_64fc, fused) { EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsMul_64fc), product, family_lengths())); }
TEST(Mul_64fc_I, fused) { EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsMul_64fc_I), in_place, family_lengths())); }
TEST(Mul_32f32fc, ieee) { EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsMul_32f32fc), product, family_lengths())); }
TEST(Mul_32f32fc_I, ieee) { EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsMul_32f32fc_I), product, family_lengths())); }

// ---- Both sources and the destination may be one array

/// Squares at one scale, the destination an array of its own and that of the sources.
template <class S, class D>
bool sweep_squares(const Export<OrvStatus, const S*, const S*, D*, int, int>& f, int scale)
{
    const auto square = [=](auto g, const S* src, D* dst, int n) { return g(src, src, dst, n, scale); };
    return sweep_elements(f.as(square), [=](const S& a) { return ScaledProduct<D>()(a, a, scale); });
}
template <class S, class D>
bool sweep_squares(const Export<OrvStatus, const S*, const S*, D*, int>& f)
{
    const auto square = [](auto g, const S* src, D* dst, int n) { return g(src, src, dst, n); };
    return sweep_elements(f.as(square), [](const S& a) { return product(a, a); });
}

TEST(Mul, a_source_may_be_given_twice)
{
    for (const int scale : {-20, 0, 1, 5}) {
        EXPECT_TRUE(sweep_squares(ORV_EXPORT(orvsMul_8u_Sfs), scale));
        EXPECT_TRUE(sweep_squares(ORV_EXPORT(orvsMul_16s_Sfs), scale));
        EXPECT_TRUE(sweep_squares(ORV_EXPORT(orvsMul_16sc_Sfs), scale));
        EXPECT_TRUE(sweep_squares(ORV_EXPORT(orvsMul_32s_Sfs), scale));
    }
    EXPECT_TRUE(sweep_squares(ORV_EXPORT(orvsMul_16u_Sfs), 16));
    EXPECT_TRUE(sweep_squares(ORV_EXPORT(orvsMul_32sc_Sfs), 31));
    EXPECT_TRUE(sweep_squares(ORV_EXPORT(orvsMul_16s32s_Sfs), 0));
    EXPECT_TRUE(sweep_squares(ORV_EXPORT(orvsMul_32f)));
    EXPECT_TRUE(sweep_squares(ORV_EXPORT(orvsMul_32fc)));
    EXPECT_TRUE(sweep_squares(ORV_EXPORT(orvsMul_64f)));
    EXPECT_TRUE(sweep_squares(ORV_EXPORT(orvsMul_64fc)));
}

// ---- Order of checks

TEST(Mul, checks_pointers_before_length)
{
    expect_pointers_before_length(ORV_EXPORT(orvsMul_16s), 4);
    expect_pointers_before_length(ORV_EXPORT(orvsMul_16s_I), 4);
    expect_pointers_before_length(ORV_EXPORT(orvsMul_8u16u), 4);
    expect_pointers_before_length(ORV_EXPORT(orvsMul_16s32f), 4);
    expect_pointers_before_length(ORV_EXPORT(orvsMul_32f), 4);
    expect_pointers_before_length(ORV_EXPORT(orvsMul_32f_I), 4);
    expect_pointers_before_length(ORV_EXPORT(orvsMul_32fc), 4);
    expect_pointers_before_length(ORV_EXPORT(orvsMul_32fc_I), 4);
    expect_pointers_before_length(ORV_EXPORT(orvsMul_64f), 4);
    expect_pointers_before_length(ORV_EXPORT(orvsMul_64f_I), 4);
    expect_pointers_before_length(ORV_EXPORT(orvsMul_64fc), 4);
    expect_pointers_before_length(ORV_EXPORT(orvsMul_64fc_I), 4);
    expect_pointers_before_length(ORV_EXPORT(orvsMul_32f32fc), 4);
    expect_pointers_before_length(ORV_EXPORT(orvsMul_32f32fc_I), 4);
}

/// The checks come before the roads: scales that need no arithmetic change nothing.
TEST(Mul, checks_come_first_at_every_scale)
{
    for (const int scale : {INT_MIN, -100, -31, -16, -8, -1, 0, 1, 17, 31, 33, 64, 100, INT_MAX}) {
        expect_pointers_before_length(ORV_EXPORT(orvsMul_8u_Sfs), 4, scale);
        expect_pointers_before_length(ORV_EXPORT(orvsMul_8u_ISfs), 4, scale);
        expect_pointers_before_length(ORV_EXPORT(orvsMul_16u_Sfs), 4, scale);
        expect_pointers_before_length(ORV_EXPORT(orvsMul_16u_ISfs), 4, scale);
        expect_pointers_before_length(ORV_EXPORT(orvsMul_16s_Sfs), 4, scale);
        expect_pointers_before_length(ORV_EXPORT(orvsMul_16s_ISfs), 4, scale);
        expect_pointers_before_length(ORV_EXPORT(orvsMul_16sc_Sfs), 4, scale);
        expect_pointers_before_length(ORV_EXPORT(orvsMul_16sc_ISfs), 4, scale);
        expect_pointers_before_length(ORV_EXPORT(orvsMul_32s_Sfs), 4, scale);
        expect_pointers_before_length(ORV_EXPORT(orvsMul_32s_ISfs), 4, scale);
        expect_pointers_before_length(ORV_EXPORT(orvsMul_Low_32s_Sfs), 4, scale);
        expect_pointers_before_length(ORV_EXPORT(orvsMul_32sc_Sfs), 4, scale);
        expect_pointers_before_length(ORV_EXPORT(orvsMul_32sc_ISfs), 4, scale);
        expect_pointers_before_length(ORV_EXPORT(orvsMul_16s32s_Sfs), 4, scale);
        expect_pointers_before_length(ORV_EXPORT(orvsMul_16u16s_Sfs), 4, scale);
        expect_pointers_before_length(ORV_EXPORT(orvsMul_32s32sc_Sfs), 4, scale);
        expect_pointers_before_length(ORV_EXPORT(orvsMul_32s32sc_ISfs), 4, scale);
    }
}

/// In place of a source, where another body may make the checks.
TEST(Mul, of_16sc_checks_pointers_before_length_in_place_too)
{
    const auto f = ORV_EXPORT(orvsMul_16sc_Sfs);
    Orv16sc d = {7, 8};
    for (const int length : {1, 0, -3}) {
        EXPECT_EQ(f(nullptr, &d, &d, length, 0), orvErrNullPointer) << length;
        EXPECT_EQ(f(&d, nullptr, &d, length, 0), orvErrNullPointer) << length;
        EXPECT_EQ(f(&d, nullptr, nullptr, length, 0), orvErrNullPointer) << length;
        EXPECT_EQ(f(nullptr, &d, nullptr, length, 0), orvErrNullPointer) << length;
        EXPECT_EQ(f(nullptr, nullptr, nullptr, length, 0), orvErrNullPointer) << length;
    }
    EXPECT_EQ(f(&d, &d, &d, 0, 0), orvErrBadLength);
    EXPECT_EQ(f(&d, &d, &d, -1, 40), orvErrBadLength);
    expect_value(f, d, {7, 8});
}

// ---- Notable products

TEST(Mul, of_8u_at_notable_scales)
{
    const auto f = ORV_EXPORT(orvsMul_8u_Sfs);
    EXPECT_EQ(result_of(f, 16, 16, 0), 255);
    EXPECT_EQ(result_of(f, 15, 17, 0), 255);
    EXPECT_EQ(result_of(f, 1, 1, 1), 0);       // one half
    EXPECT_EQ(result_of(f, 3, 1, 1), 2);       // 1.5
    EXPECT_EQ(result_of(f, 5, 1, 1), 2);       // 2.5
    EXPECT_EQ(result_of(f, 255, 255, 8), 254); // 254.004
    EXPECT_EQ(result_of(f, 255, 255, 9), 127); // 127.002
    EXPECT_EQ(result_of(f, 128, 128, 15), 0);  // one half
    EXPECT_EQ(result_of(f, 255, 255, 16), 1);  // 0.99
    EXPECT_EQ(result_of(f, 255, 129, 16), 1);  // just above one half
    EXPECT_EQ(result_of(f, 255, 255, 17), 0);
    EXPECT_EQ(result_of(f, 1, 1, -7), 128);
    EXPECT_EQ(result_of(f, 2, 1, -7), 255);
    for (const int scale : {-8, -9, -16, -31, -32, -33, INT_MIN}) {
        EXPECT_EQ(result_of(f, 1, 1, scale), 255) << scale;
        EXPECT_EQ(result_of(f, 16, 16, scale), 255) << scale; // 256 is not 0
        EXPECT_EQ(result_of(f, 255, 0, scale), 0) << scale;
    }
}

TEST(Mul, of_16s_at_notable_scales)
{
    const auto f = ORV_EXPORT(orvsMul_16s_Sfs);
    EXPECT_EQ(result_of(f, -32768, -32768, 0), 32767);
    EXPECT_EQ(result_of(f, -32768, 32767, 0), -32768);
    EXPECT_EQ(result_of(f, -32768, -1, 0), 32767);
    EXPECT_EQ(result_of(f, -32768, 1, 0), -32768);
    EXPECT_EQ(result_of(f, 1, 1, 1), 0);   // one half
    EXPECT_EQ(result_of(f, 3, 1, 1), 2);   // 1.5
    EXPECT_EQ(result_of(f, -5, 1, 1), -2); // -2.5
    EXPECT_EQ(result_of(f, 7, -1, 1), -4); // -3.5
    EXPECT_EQ(result_of(f, 32767, 3, 1), 32767);
    EXPECT_EQ(result_of(f, -32768, -32768, 15), 32767); // 32768
    EXPECT_EQ(result_of(f, -32768, 32767, 15), -32767);
    EXPECT_EQ(result_of(f, 16384, 1, 15), 0); // one half
    EXPECT_EQ(result_of(f, 16384, 3, 15), 2); // 1.5
    EXPECT_EQ(result_of(f, -16384, 3, 15), -2);
    EXPECT_EQ(result_of(f, 16384, 5, 15), 2);         // 2.5
    EXPECT_EQ(result_of(f, 32767, 32767, 16), 16383); // 16383.00002
    EXPECT_EQ(result_of(f, -32768, -32768, 29), 2);
    EXPECT_EQ(result_of(f, -32768, -32768, 30), 1);
    EXPECT_EQ(result_of(f, -32768, 32767, 30), -1);
    EXPECT_EQ(result_of(f, -32768, -16384, 30), 0); // one half
    EXPECT_EQ(result_of(f, -32768, -16385, 30), 1);
    for (const int scale : {31, 32, 33, 63, 64, INT_MAX}) {
        EXPECT_EQ(result_of(f, -32768, -32768, scale), 0) << scale; // at 31 one half
        EXPECT_EQ(result_of(f, -32768, 32767, scale), 0) << scale;
    }
    EXPECT_EQ(result_of(f, 1, 1, -14), 16384);
    EXPECT_EQ(result_of(f, -1, 1, -15), -32768);
    for (const int scale : {-15, -16, -17, -31, -32, -33, -64, INT_MIN}) {
        EXPECT_EQ(result_of(f, 1, 1, scale), 32767) << scale;
        EXPECT_EQ(result_of(f, 1, -1, scale), -32768) << scale;
        EXPECT_EQ(result_of(f, -32768, 0, scale), 0) << scale;
        EXPECT_EQ(result_of(f, 256, 256, scale), 32767) << scale; // its low half is 0
        EXPECT_EQ(result_of(f, 256, -256, scale), -32768) << scale;
        EXPECT_EQ(result_of(f, -32768, -32768, scale), 32767) << scale;
    }
}

TEST(Mul, of_16u_at_notable_scales)
{
    const auto f = ORV_EXPORT(orvsMul_16u_Sfs);
    EXPECT_EQ(result_of(f, 256, 256, 0), 65535);
    EXPECT_EQ(result_of(f, 255, 257, 0), 65535);
    EXPECT_EQ(result_of(f, 3, 1, 1), 2);              // 1.5
    EXPECT_EQ(result_of(f, 65535, 3, 1), 65535);      // 98302.5
    EXPECT_EQ(result_of(f, 65535, 65535, 16), 65534); // 65534.00002
    EXPECT_EQ(result_of(f, 65535, 65535, 31), 2);     // 1.99994
    EXPECT_EQ(result_of(f, 65535, 65535, 32), 1);     // 0.99997
    EXPECT_EQ(result_of(f, 32768, 65535, 32), 0);     // just below one half
    EXPECT_EQ(result_of(f, 46341, 46341, 32), 1);     // just above
    EXPECT_EQ(result_of(f, 32768, 32768, 31), 0);     // one half
    EXPECT_EQ(result_of(f, 65535, 65535, 33), 0);
    EXPECT_EQ(result_of(f, 1, 1, -15), 32768);
    for (const int scale : {-16, -17, -32, -33, INT_MIN}) {
        EXPECT_EQ(result_of(f, 1, 1, scale), 65535) << scale;
        EXPECT_EQ(result_of(f, 256, 256, scale), 65535) << scale;
        EXPECT_EQ(result_of(f, 65535, 0, scale), 0) << scale;
    }
}

TEST(Mul, of_16u16s_at_notable_scales)
{
    const auto f = ORV_EXPORT(orvsMul_16u16s_Sfs);
    EXPECT_EQ(result_of(f, 65535, -1, 0), -32768);
    EXPECT_EQ(result_of(f, 32768, 1, 0), 32767);
    EXPECT_EQ(result_of(f, 32768, -1, 0), -32768);
    EXPECT_EQ(result_of(f, 65535, -1, 1), -32768);    // -32767.5
    EXPECT_EQ(result_of(f, 65533, 1, 1), 32766);      // 32766.5
    EXPECT_EQ(result_of(f, 65535, 32767, 16), 32767); // 32766.50002
    EXPECT_EQ(result_of(f, 65535, -32768, 16), -32768);
    EXPECT_EQ(result_of(f, 65535, -32768, 31), -1); // -0.99998
    EXPECT_EQ(result_of(f, 65535, 32767, 31), 1);
    EXPECT_EQ(result_of(f, 32768, -32768, 31), 0); // minus one half
    for (const int scale : {32, 33, 64, INT_MAX}) EXPECT_EQ(result_of(f, 65535, -32768, scale), 0) << scale;
    EXPECT_EQ(result_of(f, 1, 1, -14), 16384);
    for (const int scale : {-15, -16, -32, -33, INT_MIN}) {
        EXPECT_EQ(result_of(f, 1, 1, scale), 32767) << scale;
        EXPECT_EQ(result_of(f, 65535, -1, scale), -32768) << scale;
        EXPECT_EQ(result_of(f, 256, 256, scale), 32767) << scale;
        EXPECT_EQ(result_of(f, 65535, 0, scale), 0) << scale;
    }
}

TEST(Mul, of_16s32s_at_notable_scales)
{
    const auto f = ORV_EXPORT(orvsMul_16s32s_Sfs);
    EXPECT_EQ(result_of(f, -32768, -32768, 0), 1 << 30);
    EXPECT_EQ(result_of(f, -32768, 32767, 0), -(1 << 30) + 32768);
    EXPECT_EQ(result_of(f, -32768, -32768, -1), INT32_MAX);
    EXPECT_EQ(result_of(f, -32768, 32767, -1), INT32_MIN + 65536);
    EXPECT_EQ(result_of(f, 3, 5, 1), 8); // 7.5
    EXPECT_EQ(result_of(f, -32768, -32768, 30), 1);
    EXPECT_EQ(result_of(f, -32768, -32768, 31), 0); // one half
    EXPECT_EQ(result_of(f, 1, 1, -30), 1 << 30);
    for (const int scale : {-31, -32, -33, -64, INT_MIN}) {
        EXPECT_EQ(result_of(f, 1, 1, scale), INT32_MAX) << scale;
        EXPECT_EQ(result_of(f, 1, -1, scale), INT32_MIN) << scale;
        EXPECT_EQ(result_of(f, -32768, 0, scale), 0) << scale;
    }
}

void expect_notable_products_of_32s(const Export<OrvStatus, const Orv32s*, const Orv32s*, Orv32s*, int, int>& f)
{
    EXPECT_EQ(result_of(f, INT32_MIN, INT32_MIN, 0), INT32_MAX);
    EXPECT_EQ(result_of(f, INT32_MIN, INT32_MAX, 0), INT32_MIN);
    EXPECT_EQ(result_of(f, INT32_MIN, -1, 0), INT32_MAX);
    EXPECT_EQ(result_of(f, 65536, 65536, 0), INT32_MAX);
    EXPECT_EQ(result_of(f, 3, 5, 1), 8);   // 7.5
    EXPECT_EQ(result_of(f, -3, 3, 1), -4); // -4.5
    EXPECT_EQ(result_of(f, INT32_MIN, INT32_MIN, 31), INT32_MAX);
    EXPECT_EQ(result_of(f, INT32_MIN, INT32_MAX, 31), -INT32_MAX);
    EXPECT_EQ(result_of(f, 1 << 30, 1, 31), 0); // one half
    EXPECT_EQ(result_of(f, 1 << 30, 3, 31), 2); // 1.5
    EXPECT_EQ(result_of(f, -(1 << 30), 3, 31), -2);
    EXPECT_EQ(result_of(f, INT32_MAX, INT32_MAX, 32), (1 << 30) - 1); // 2^30 - 1 + 2^-32
    EXPECT_EQ(result_of(f, INT32_MIN, 1, 32), 0);                     // minus one half
    EXPECT_EQ(result_of(f, INT32_MIN, INT32_MIN, 61), 2);
    EXPECT_EQ(result_of(f, INT32_MIN, INT32_MIN, 62), 1);
    EXPECT_EQ(result_of(f, INT32_MIN, INT32_MAX, 62), -1);
    EXPECT_EQ(result_of(f, INT32_MIN, 1 << 30, 62), 0); // minus one half
    EXPECT_EQ(result_of(f, INT32_MIN, (1 << 30) + 1, 62), -1);
    for (const int scale : {63, 64, 65, 127, 128, INT_MAX}) {
        EXPECT_EQ(result_of(f, INT32_MIN, INT32_MIN, scale), 0) << scale; // at 63 one half
        EXPECT_EQ(result_of(f, INT32_MIN, INT32_MAX, scale), 0) << scale;
    }
    EXPECT_EQ(result_of(f, 1, 1, -30), 1 << 30);
    EXPECT_EQ(result_of(f, -1, 1, -31), INT32_MIN);
    for (const int scale : {-31, -32, -33, -63, -64, -65, INT_MIN}) {
        EXPECT_EQ(result_of(f, 1, 1, scale), INT32_MAX) << scale;
        EXPECT_EQ(result_of(f, 1, -1, scale), INT32_MIN) << scale;
        EXPECT_EQ(result_of(f, INT32_MIN, 0, scale), 0) << scale;
        EXPECT_EQ(result_of(f, 65536, 65536, scale), INT32_MAX) << scale; // its low half is 0
        EXPECT_EQ(result_of(f, 65536, -65536, scale), INT32_MIN) << scale;
        EXPECT_EQ(result_of(f, INT32_MIN, INT32_MIN, scale), INT32_MAX) << scale;
    }
}

TEST(Mul, of_32s_at_notable_scales) { expect_notable_products_of_32s(ORV_EXPORT(orvsMul_32s_Sfs)); }
TEST(Mul, of_low_32s_at_notable_scales) { expect_notable_products_of_32s(ORV_EXPORT(orvsMul_Low_32s_Sfs)); }

/// Sums of two products with all factors at their limits.
TEST(Mul, of_16sc_beyond_32_bits)
{
    const auto f = ORV_EXPORT(orvsMul_16sc_Sfs);
    constexpr Orv16sc corner = {-32768, -32768}, other = {-32768, 32767};
    expect_value(f, result_of(f, corner, corner, 0), {0, 32767}); // 0 and 2^31
    expect_value(f, result_of(f, corner, corner, 1), {0, 32767});
    expect_value(f, result_of(f, corner, corner, 15), {0, 32767});
    expect_value(f, result_of(f, corner, corner, 16), {0, 32767});
    expect_value(f, result_of(f, corner, corner, 17), {0, 16384});
    expect_value(f, result_of(f, corner, corner, 30), {0, 2});
    expect_value(f, result_of(f, corner, corner, 31), {0, 1});
    expect_value(f, result_of(f, corner, corner, 32), {0, 0});       // one half
    expect_value(f, result_of(f, corner, other, 0), {32767, 32767}); // 2^31 - 2^15 and 2^15
    expect_value(f, result_of(f, corner, other, 16), {32767, 0});    // 32767.5 and one half
    expect_value(f, result_of(f, corner, other, 17), {16384, 0});    // 16383.75
    expect_value(f, result_of(f, corner, other, 31), {1, 0});
    expect_value(f, result_of(f, other, other, 16), {1, -32767}); // 0.99998 and -2^15 + 1
    for (const int scale : {-15, -16, -31, -32, -40, INT_MIN}) {
        expect_value(f, result_of(f, corner, corner, scale), {0, 32767});
        expect_value(f, result_of(f, other, other, scale), {32767, -32768});
        expect_value(f, result_of(f, {3, 2}, {2, 3}, scale), {0, 32767});
    }
    expect_value(f, result_of(f, corner, corner, INT_MAX), {0, 0});
}

TEST(Mul, of_32sc_beyond_64_bits)
{
    const auto f = ORV_EXPORT(orvsMul_32sc_Sfs);
    constexpr Orv32sc corner = {INT32_MIN, INT32_MIN}, other = {INT32_MIN, INT32_MAX};
    for (const int scale : {0, 1, 31, 32}) expect_value(f, result_of(f, corner, corner, scale), {0, INT32_MAX}); // 2^63
    expect_value(f, result_of(f, corner, corner, 33), {0, 1 << 30});
    expect_value(f, result_of(f, corner, corner, 62), {0, 2});
    expect_value(f, result_of(f, corner, corner, 63), {0, 1});
    expect_value(f, result_of(f, corner, corner, 64), {0, 0});        // one half
    expect_value(f, result_of(f, corner, other, 32), {INT32_MAX, 0}); // 2^31 - 1/2 and one half
    expect_value(f, result_of(f, corner, other, 33), {1 << 30, 0});   // 2^30 - 1/4
    expect_value(f, result_of(f, corner, other, 63), {1, 0});
    for (const int scale : {-31, -32, -63, -64, -70, INT_MIN}) {
        expect_value(f, result_of(f, corner, corner, scale), {0, INT32_MAX});
        expect_value(f, result_of(f, other, other, scale), {INT32_MAX, INT32_MIN});
        expect_value(f, result_of(f, {3, 2}, {2, 3}, scale), {0, INT32_MAX});
    }
    expect_value(f, result_of(f, corner, corner, INT_MAX), {0, 0});
}

TEST(Mul, of_complex_minima_at_every_scale)
{
    expect_products_of_minima(ORV_EXPORT(orvsMul_16sc_Sfs), Orv16sc{-32768, -32768});
    expect_products_of_minima(ORV_EXPORT(orvsMul_32sc_Sfs), Orv32sc{INT32_MIN, INT32_MIN});
}

TEST(Mul, of_32s32sc_multiplies_both_parts)
{
    const auto f = ORV_EXPORT(orvsMul_32s32sc_Sfs);
    expect_value(f, result_of(f, 10, {1, -2}, 0), {10, -20});
    expect_value(f, result_of(f, -5, {1, 3}, 1), {-2, -8}); // -2.5 and -7.5
    expect_value(f, result_of(f, INT32_MIN, {INT32_MIN, INT32_MAX}, 62), {1, -1});
    expect_value(f, result_of(f, INT32_MIN, {INT32_MIN, INT32_MAX}, 63), {0, 0});
    expect_value(f, result_of(f, -1, {1, 0}, -31), {INT32_MIN, 0});
}

/// Parts that say where they come from, at every place.
TEST(Mul, of_complex_values_puts_parts_in_their_places)
{
    const std::vector<Orv32fc> a(37, {1, 2}), b(37, {10, 100}), want(37, {-190, 120});
    std::vector<Orv32fc> d(37);
    EXPECT_EQ(ORV_EXPORT(orvsMul_32fc)(a.data(), b.data(), d.data(), 37), orvOk);
    expect_elements(ORV_EXPORT(orvsMul_32fc), d, want);
    const std::vector<Orv32f> factor(37, 10);
    EXPECT_EQ(ORV_EXPORT(orvsMul_32f32fc)(factor.data(), a.data(), d.data(), 37), orvOk);
    expect_elements(ORV_EXPORT(orvsMul_32f32fc), d, std::vector<Orv32fc>(37, {10, 20}));
    expect_value(ORV_EXPORT(orvsMul_16sc_Sfs), result_of(ORV_EXPORT(orvsMul_16sc_Sfs), {1, 2}, {10, 100}, 0),
                 {-190, 120});
}

/// The inner product of each part is rounded, the outer one is not; and it tells which factor is the first.
TEST(Mul, of_complex_floats_rounds_the_inner_product_only)
{
    constexpr Orv32f step = std::numeric_limits<Orv32f>::epsilon(), above = 1 + step;
    // re: (1 + step)^2 - (1 + 2 step), which is (1 + step)^2 rounded. im: the same with a sum.
    const std::vector<Orv32fc> a(9, {above, above}), b(9, {above, above});
    std::vector<Orv32fc> d(9);
    EXPECT_EQ(ORV_EXPORT(orvsMul_32fc)(a.data(), b.data(), d.data(), 9), orvOk);
    expect_elements(ORV_EXPORT(orvsMul_32fc), d, std::vector<Orv32fc>(9, {step * step, 2 + 4 * step}));

    // im: a.im * b.re is rounded to 1 + 2 step, and b.im * a.re = -1 - 2 step is exact.
    const std::vector<Orv32fc> c(9, {-1, above}), e(9, {above, 1 + 2 * step});
    EXPECT_EQ(ORV_EXPORT(orvsMul_32fc)(c.data(), e.data(), d.data(), 9), orvOk);
    EXPECT_EQ(d[8].im, 0);
    // The factors changed over: e.im * c.re is exact, and c.im * e.re keeps its last bits.
    EXPECT_EQ(ORV_EXPORT(orvsMul_32fc)(e.data(), c.data(), d.data(), 9), orvOk);
    EXPECT_EQ(d[8].im, step * step);
    // In place the destination is the first factor.
    d = c;
    EXPECT_EQ(ORV_EXPORT(orvsMul_32fc_I)(e.data(), d.data(), 9), orvOk);
    EXPECT_EQ(d[8].im, 0);
    d = e;
    EXPECT_EQ(ORV_EXPORT(orvsMul_32fc_I)(c.data(), d.data(), 9), orvOk);
    EXPECT_EQ(d[8].im, step * step);
    // Whichever source lies in the destination's place, src1 is the first factor.
    d = e;
    EXPECT_EQ(ORV_EXPORT(orvsMul_32fc)(c.data(), d.data(), d.data(), 9), orvOk);
    EXPECT_EQ(d[8].im, 0);
}

TEST(Mul, of_floats_at_their_limits)
{
    constexpr Orv32f infinity = std::numeric_limits<Orv32f>::infinity(), largest = std::numeric_limits<Orv32f>::max();
    constexpr Orv32f least = std::numeric_limits<Orv32f>::denorm_min(), nan = std::numeric_limits<Orv32f>::quiet_NaN();
    const std::vector<Orv32f> a = {infinity, infinity, infinity, largest, largest, least, least, -0.0f, -0.0f, nan, 3};
    const std::vector<Orv32f> b = {infinity, -infinity, 0, 2, -largest, 0.5f, -0.25f, 1, -1, 0, 0x1p-149f};
    const std::vector<Orv32f> want = {infinity, -infinity, nan,  infinity, -infinity, 0,
                                      -0.0f,    -0.0f,     0.0f, nan,      0x3p-149f};
    std::vector<Orv32f> d(a.size());
    EXPECT_EQ(ORV_EXPORT(orvsMul_32f)(a.data(), b.data(), d.data(), static_cast<int>(d.size())), orvOk);
    expect_elements(ORV_EXPORT(orvsMul_32f), d, want);
}

/// Products of 16 bits have up to 31 bits, a float 24.
TEST(Mul, of_16s32f_rounds_to_even)
{
    const std::vector<Orv16s> a = {32767, -32768, -32768, 4097, 0, -3, 16385, 16387, -16387};
    const std::vector<Orv16s> b = {32767, -32768, 32767, 4097, -5, 0, 1025, 1025, 1025};
    std::vector<Orv32f> d(a.size());
    EXPECT_EQ(ORV_EXPORT(orvsMul_16s32f)(a.data(), b.data(), d.data(), static_cast<int>(d.size())), orvOk);
    // 32767^2 = 2^30 - 2^16 + 1; 4097^2 = 2^24 + 2^13 + 1 and 16385 * 1025 = 2^24 + 17409 are ties.
    expect_elements(ORV_EXPORT(orvsMul_16s32f), d,
                    {1073676288, 1073741824, -1073709056, 16785408, 0, 0, 16794624, 16796676, -16796676});
}

// ---- Every pair of a set of operands

TEST(Mul, of_all_pairs_of_8u)
{
    const Pairs pairs(all_bytes<Orv8u>(), all_bytes<Orv8u>());
    expect_all_pairs(ORV_EXPORT(orvsMul_8u_Sfs), pairs, -10, 18, scaled_product<Orv8u>);
    std::vector<Orv16u> wide(pairs.first.size()), want;
    for (std::size_t i = 0; i < wide.size(); ++i) want.push_back(static_cast<Orv16u>(pairs.first[i] * pairs.second[i]));
    const auto f = ORV_EXPORT(orvsMul_8u16u);
    EXPECT_EQ(f(pairs.first.data(), pairs.second.data(), wide.data(), static_cast<int>(wide.size())), orvOk);
    expect_elements(f, wide, want);
}
TEST(Mul, of_critical_pairs_of_16s)
{
    const auto values = critical_values<Orv16s>(3, 150);
    expect_all_pairs(ORV_EXPORT(orvsMul_16s_Sfs), Pairs(values, values), -17, 33, scaled_product<Orv16s>);
    expect_all_pairs(ORV_EXPORT(orvsMul_16s32s_Sfs), Pairs(values, values), -32, 33, scaled_product<Orv32s>);
}
TEST(Mul, of_critical_pairs_of_16u)
{
    const auto values = critical_values<Orv16u>(3, 150);
    expect_all_pairs(ORV_EXPORT(orvsMul_16u_Sfs), Pairs(values, values), -17, 34, scaled_product<Orv16u>);
    const auto signed_values = critical_values<Orv16s>(2, 150);
    expect_all_pairs(ORV_EXPORT(orvsMul_16u16s_Sfs), Pairs(values, signed_values), -17, 34, scaled_product<Orv16s>);
}
TEST(Mul, of_critical_pairs_of_32s)
{
    const Pairs pairs(critical_values<Orv32s>(1, 20), critical_values<Orv32s>(0, 5, 4));
    expect_all_pairs(ORV_EXPORT(orvsMul_32s_Sfs), pairs, -33, 65, ScaledProduct<Orv32s>());
    const Pairs few(critical_values<Orv32s>(0, 20), critical_values<Orv32s>(0, 5, 9));
    expect_all_pairs(ORV_EXPORT(orvsMul_Low_32s_Sfs), few, -33, 65, ScaledProduct<Orv32s>());
}
TEST(Mul, of_critical_pairs_of_16sc)
{
    const auto values = complex_values<Orv16sc>(critical_parts<Orv16s>());
    expect_all_pairs(ORV_EXPORT(orvsMul_16sc_Sfs), Pairs(values, values), -34, 34, ScaledProduct<Orv16sc>());
}
TEST(Mul, of_critical_pairs_of_32sc)
{
    const auto values = complex_values<Orv32sc>(critical_parts<Orv32s>());
    expect_all_pairs(ORV_EXPORT(orvsMul_32sc_Sfs), Pairs(values, values), -34, 66, ScaledProduct<Orv32sc>());
    const Pairs mixed(critical_values<Orv32s>(0, 10, 3), values);
    expect_all_pairs(ORV_EXPORT(orvsMul_32s32sc_Sfs), mixed, -34, 65, ScaledProduct<Orv32sc>());
}

// ---- Large arrays

TEST(Mul, of_large_integer_arrays)
{
    for (const int scale : {-40, -3, 0, 1, 12, 40}) {
        EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsMul_8u_Sfs), product, scale));
        EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsMul_16s_Sfs), product, scale));
        EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsMul_32s_Sfs), product, scale));
    }
    EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsMul_8u_ISfs), product, 8));
    EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsMul_16u_Sfs), product, 16));
    EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsMul_16u_ISfs), product, 1));
    EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsMul_16s), product));
    EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsMul_16s_I), product));
    EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsMul_16s_ISfs), product, 15));
    EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsMul_16sc_Sfs), product, 15));
    EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsMul_16sc_ISfs), product, 0));
    EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsMul_32s_ISfs), product, 31));
    EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsMul_Low_32s_Sfs), product, 31));
    EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsMul_32sc_Sfs), product, 31));
    EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsMul_32sc_ISfs), product, 0));
    EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsMul_8u16u), product));
    EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsMul_16s32s_Sfs), product, 0));
    EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsMul_16s32s_Sfs), product, 9));
    EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsMul_16u16s_Sfs), product, 16));
    EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsMul_32s32sc_Sfs), product, 31));
    EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsMul_32s32sc_ISfs), product, 1));
}

TEST(Mul, of_large_float_arrays)
{
    EXPECT_TRUE(check_large(ORV_EXPORT(orvsMul_16s32f).with(), integer_product_as_float));
    EXPECT_TRUE(check_large(ORV_EXPORT(orvsMul_32f).with(), product));
    EXPECT_TRUE(check_large(ORV_EXPORT(orvsMul_32f_I).with(), in_place));
    EXPECT_TRUE(check_large(ORV_EXPORT(orvsMul_32fc).with(), product));
    EXPECT_TRUE(check_large(ORV_EXPORT(orvsMul_32fc_I).with(), in_place));
    EXPECT_TRUE(check_large(ORV_EXPORT(orvsMul_64f).with(), product));
    EXPECT_TRUE(check_large(ORV_EXPORT(orvsMul_64f_I).with(), in_place));
    EXPECT_TRUE(check_large(ORV_EXPORT(orvsMul_64fc).with(), product));
    EXPECT_TRUE(check_large(ORV_EXPORT(orvsMul_64fc_I).with(), in_place));
    EXPECT_TRUE(check_large(ORV_EXPORT(orvsMul_32f32fc).with(), product));
    EXPECT_TRUE(check_large(ORV_EXPORT(orvsMul_32f32fc_I).with(), product));
}

#if ORV_ENDLESS_ARRAYS
/// Twice the length of these does not fit the type of lengths.
TEST(Mul, of_complex_arrays_with_more_parts_than_a_length_can_tell)
{
    const auto integers = [](auto f, const Orv32sc* src, Orv32sc* dst, int n) { return f(src, src, dst, n, 31); };
    expect_right_without_end(ORV_EXPORT(orvsMul_32sc_Sfs).as(integers),
                             [](const Orv32sc& a) { return ScaledProduct<Orv32sc>()(a, a, 31); });
    const auto floats = [](auto f, const Orv32fc* src, Orv32fc* dst, int n) { return f(src, src, dst, n); };
    expect_right_without_end(ORV_EXPORT(orvsMul_32fc).as(floats), [](const Orv32fc& a) { return product(a, a); });
}
#endif

// ---- The caller's floating-point state

TEST(Mul, follows_the_callers_state)
{
    expect_products_to_follow_the_state(ORV_EXPORT(orvsMul_32f).with());
    expect_products_to_follow_the_state(ORV_EXPORT(orvsMul_32f_I).with());
    expect_products_to_follow_the_state(ORV_EXPORT(orvsMul_32fc).with());
    expect_products_to_follow_the_state(ORV_EXPORT(orvsMul_32fc_I).with());
    expect_products_to_follow_the_state(ORV_EXPORT(orvsMul_64f).with());
    expect_products_to_follow_the_state(ORV_EXPORT(orvsMul_64f_I).with());
    expect_products_to_follow_the_state(ORV_EXPORT(orvsMul_64fc).with());
    expect_products_to_follow_the_state(ORV_EXPORT(orvsMul_64fc_I).with());
    expect_products_to_follow_the_state(ORV_EXPORT(orvsMul_32f32fc).with());
    expect_products_to_follow_the_state(ORV_EXPORT(orvsMul_32f32fc_I).with());
}

TEST(Mul, is_ieee_in_other_states)
{
    EXPECT_TRUE(sweep_in_states(ORV_EXPORT(orvsMul_32f).with(), product));
    EXPECT_TRUE(sweep_in_states(ORV_EXPORT(orvsMul_32f_I).with(), in_place));
    EXPECT_TRUE(sweep_in_states(ORV_EXPORT(orvsMul_32fc).with(), product));
    EXPECT_TRUE(sweep_in_states(ORV_EXPORT(orvsMul_32fc_I).with(), in_place));
    EXPECT_TRUE(sweep_in_states(ORV_EXPORT(orvsMul_64f).with(), product));
    EXPECT_TRUE(sweep_in_states(ORV_EXPORT(orvsMul_64f_I).with(), in_place));
    EXPECT_TRUE(sweep_in_states(ORV_EXPORT(orvsMul_64fc).with(), product));
    EXPECT_TRUE(sweep_in_states(ORV_EXPORT(orvsMul_64fc_I).with(), in_place));
    EXPECT_TRUE(sweep_in_states(ORV_EXPORT(orvsMul_32f32fc).with(), product));
    EXPECT_TRUE(sweep_in_states(ORV_EXPORT(orvsMul_32f32fc_I).with(), product));
    EXPECT_TRUE(sweep_in_states(ORV_EXPORT(orvsMul_16s32f).with(), integer_product_as_float));
}

TEST(Mul, of_integers_is_the_same_in_all_states)
{
    for (const int scale : {-2, 0, 1, 9}) {
        EXPECT_TRUE(sweep_products_in_states(ORV_EXPORT(orvsMul_8u_Sfs), scale));
        EXPECT_TRUE(sweep_products_in_states(ORV_EXPORT(orvsMul_16u_Sfs), scale));
        EXPECT_TRUE(sweep_products_in_states(ORV_EXPORT(orvsMul_16s_Sfs), scale));
        EXPECT_TRUE(sweep_products_in_states(ORV_EXPORT(orvsMul_16sc_Sfs), scale));
        EXPECT_TRUE(sweep_products_in_states(ORV_EXPORT(orvsMul_32s_Sfs), scale));
        EXPECT_TRUE(sweep_products_in_states(ORV_EXPORT(orvsMul_32sc_Sfs), scale));
        EXPECT_TRUE(sweep_products_in_states(ORV_EXPORT(orvsMul_16s32s_Sfs), scale));
        EXPECT_TRUE(sweep_products_in_states(ORV_EXPORT(orvsMul_16u16s_Sfs), scale));
        EXPECT_TRUE(sweep_products_in_states(ORV_EXPORT(orvsMul_32s32sc_Sfs), scale));
    }
}

TEST(Mul, raises_no_flags_on_exact_products)
{
    expect_no_flags(ORV_EXPORT(orvsMul_32f).with());
    expect_no_flags(ORV_EXPORT(orvsMul_32f_I).with());
    expect_no_flags(ORV_EXPORT(orvsMul_32fc).with());
    expect_no_flags(ORV_EXPORT(orvsMul_32fc_I).with());
    expect_no_flags(ORV_EXPORT(orvsMul_64f).with());
    expect_no_flags(ORV_EXPORT(orvsMul_64f_I).with());
    expect_no_flags(ORV_EXPORT(orvsMul_64fc).with());
    expect_no_flags(ORV_EXPORT(orvsMul_64fc_I).with());
    expect_no_flags(ORV_EXPORT(orvsMul_32f32fc).with());
    expect_no_flags(ORV_EXPORT(orvsMul_32f32fc_I).with());
}

} // namespace
} // namespace orvtest
