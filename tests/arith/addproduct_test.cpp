// srcDst = srcDst + src1 * src2.
#include "orvs/arith.h"

#include "tests/arith/caller_state.h"
#include "tests/arith/family.h"
#include "tests/arith/large.h"

#include <gtest/gtest.h>

namespace orvtest {
namespace {

// ---- Results

const auto exact_product_sum = [](const Wide& a, const Wide& b, const Wide& accumulator) {
    return accumulator + a * b;
};

/// Rounded once; a complex sum in the order of the fused operations, the imaginary part of the first factor first.
struct FusedProductSum {
    template <std::floating_point T>
    T operator()(T a, T b, T accumulator) const
    {
        return std::fma(a, b, accumulator);
    }
    template <Complex T>
    T operator()(const T& a, const T& b, const T& accumulator) const
    {
        return {std::fma(a.re, b.re, std::fma(-a.im, b.im, accumulator.re)),
                std::fma(a.re, b.im, std::fma(a.im, b.re, accumulator.im))};
    }
};
constexpr FusedProductSum fused_product_sum;

/// The interface fills with zeros from 63 on, though (2^62 + 2^31 - 1) / 2^63 would round to 1.
constexpr int zero_from_32s = 63;

TEST(AddProduct_16s_Sfs, exact)
{
    EXPECT_TRUE(sweep_exact(ORV_EXPORT(orvsAddProduct_16s_Sfs), exact_product_sum, family_lengths()));
}
TEST(AddProduct_16s32s_Sfs, exact)
{
    EXPECT_TRUE(sweep_exact(ORV_EXPORT(orvsAddProduct_16s32s_Sfs), exact_product_sum, family_lengths()));
}
/// Far beyond the scales of other sums of 32 bits: products have 64.
TEST(AddProduct_32s_Sfs, exact_below_scale_63)
{
    EXPECT_TRUE(sweep_exact_below(zero_from_32s, ORV_EXPORT(orvsAddProduct_32s_Sfs), exact_product_sum, 70));
}

TEST(AddProduct_32f, fused)
{
    EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsAddProduct_32f), fused_product_sum, family_lengths()));
}
TEST(AddProduct_32fc, fused)
{
    EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsAddProduct_32fc), fused_product_sum, family_lengths()));
}
TEST(AddProduct_64f, fused)
{
    EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsAddProduct_64f), fused_product_sum, family_lengths()));
}
TEST(AddProduct_64fc, fused)
{
    EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsAddProduct_64fc), fused_product_sum, family_lengths()));
}
TEST(AddProductC_32f, fused)
{
    EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsAddProductC_32f), fused_product_sum, family_lengths()));
}

// ---- All three may be one array

TEST(AddProduct, a_source_may_be_given_twice)
{
    const auto words = [](auto f, const Orv16s* src, Orv16s* dst, int n) { return f(src, src, dst, n, 5); };
    const auto wanted = [](Orv16s a, Orv16s d) { return limited<Orv16s>(nearest_even(std::int64_t{a} * a + d, 5)); };
    EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsAddProduct_16s_Sfs).as(words), wanted));
    const auto floats = [](auto f, const Orv32f* src, Orv32f* dst, int n) { return f(src, src, dst, n); };
    EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsAddProduct_32f).as(floats),
                               [](Orv32f a, Orv32f d) { return std::fma(a, a, d); }));
    const auto complex = [](auto f, const Orv32fc* src, Orv32fc* dst, int n) { return f(src, src, dst, n); };
    EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsAddProduct_32fc).as(complex),
                               [](const Orv32fc& a, const Orv32fc& d) { return fused_product_sum(a, a, d); }));
}

// ---- Order of checks

TEST(AddProduct, checks_pointers_before_length)
{
    expect_pointers_before_length(ORV_EXPORT(orvsAddProduct_32f), 4);
    expect_pointers_before_length(ORV_EXPORT(orvsAddProduct_32fc), 4);
    expect_pointers_before_length(ORV_EXPORT(orvsAddProduct_64f), 4);
    expect_pointers_before_length(ORV_EXPORT(orvsAddProduct_64fc), 4);
    for (const int scale : {INT_MIN, -31, -15, -1, 0, 1, 31, 33, 63, INT_MAX}) {
        expect_pointers_before_length(ORV_EXPORT(orvsAddProduct_16s_Sfs), 4, scale);
        expect_pointers_before_length(ORV_EXPORT(orvsAddProduct_16s32s_Sfs), 4, scale);
        expect_pointers_before_length(ORV_EXPORT(orvsAddProduct_32s_Sfs), 4, scale);
    }
}
TEST(AddProductC, checks_pointers_before_length)
{
    expect_pointers_before_length(ORV_EXPORT(orvsAddProductC_32f), 5.0f, 4);
}

// ---- Notable sums

/// The sum d + a * b by f, the same at each place of vectors of several lengths.
template <class S, class D>
D product_sum_of(const Export<OrvStatus, const S*, const S*, D*, int, int>& f, std::type_identity_t<S> a,
                 std::type_identity_t<S> b, std::type_identity_t<D> d, int scale)
{
    D first = {};
    for (const std::size_t n : {std::size_t{1}, std::size_t{7}, std::size_t{40}, std::size_t{300}}) {
        const std::vector<S> as(n, a), bs(n, b);
        std::vector<D> ds(n, d);
        EXPECT_EQ(f(as.data(), bs.data(), ds.data(), static_cast<int>(n), scale), orvOk) << f.name();
        if (n == 1) first = ds[0];
        expect_elements(f, ds, std::vector<D>(n, first));
    }
    return first;
}

TEST(AddProduct, of_16s_at_notable_scales)
{
    const auto f = ORV_EXPORT(orvsAddProduct_16s_Sfs);
    EXPECT_EQ(product_sum_of(f, -32768, -32768, 0, 0), 32767);
    EXPECT_EQ(product_sum_of(f, 256, -256, -5, 0), -32768);
    EXPECT_EQ(product_sum_of(f, 3, 4, 1, 1), 6);                // 6.5
    EXPECT_EQ(product_sum_of(f, 3, 5, 0, 1), 8);                // 7.5
    EXPECT_EQ(product_sum_of(f, -3, 4, -1, 1), -6);             // -6.5
    EXPECT_EQ(product_sum_of(f, 200, 300, -32768, 1), 13616);   // the sum of both saturates, not the product alone
    EXPECT_EQ(product_sum_of(f, -32768, -32768, 32767, 31), 1); // 2^30 + 2^15 - 1
    EXPECT_EQ(product_sum_of(f, -32768, -32768, 0, 31), 0);     // one half
    EXPECT_EQ(product_sum_of(f, -32768, -32768, 1, 31), 1);
    EXPECT_EQ(product_sum_of(f, -32768, 32767, -32768, 31), 0); // -2^30: minus one half
    EXPECT_EQ(product_sum_of(f, -32768, -32768, 32767, 32), 0);
    EXPECT_EQ(product_sum_of(f, 1, 1, 0, -14), 16384);
    for (const int scale : {-15, -16, -17, -32, INT_MIN}) {
        EXPECT_EQ(product_sum_of(f, 1, 1, 0, scale), 32767) << scale;
        EXPECT_EQ(product_sum_of(f, 1, -1, 0, scale), -32768) << scale;
        EXPECT_EQ(product_sum_of(f, 4, 5, -20, scale), 0) << scale;
        EXPECT_EQ(product_sum_of(f, 100, -200, 20000, scale), 0) << scale;
        EXPECT_EQ(product_sum_of(f, -32768, -32768, -32768, scale), 32767) << scale;
        EXPECT_EQ(product_sum_of(f, -32768, 32767, 32767, scale), -32768) << scale;
    }
}

TEST(AddProduct, of_16s32s_at_notable_scales)
{
    const auto f = ORV_EXPORT(orvsAddProduct_16s32s_Sfs);
    EXPECT_EQ(product_sum_of(f, -32768, -32768, INT32_MAX, 0), INT32_MAX);
    EXPECT_EQ(product_sum_of(f, -32768, 32767, INT32_MIN, 0), INT32_MIN);
    EXPECT_EQ(product_sum_of(f, -32768, -32768, INT32_MAX, 1), 1610612736); // 2^30 + 2^29 - 1/2
    EXPECT_EQ(product_sum_of(f, -32768, -32768, INT32_MAX, 31), 1);         // 1.5 - 2^-31
    EXPECT_EQ(product_sum_of(f, -32768, -32768, INT32_MAX, 32), 1);         // 0.75
    EXPECT_EQ(product_sum_of(f, -32768, 32767, INT32_MIN, 32), -1);
    EXPECT_EQ(product_sum_of(f, -32768, -32768, 1 << 30, 32), 0); // one half
    EXPECT_EQ(product_sum_of(f, 0, 0, INT32_MIN, 32), 0);         // minus one half
    EXPECT_EQ(product_sum_of(f, -32768, -32768, INT32_MAX, 33), 0);
    EXPECT_EQ(product_sum_of(f, 1, 1, 0, -30), 1 << 30);
    for (const int scale : {-31, -32, -33, -64, INT_MIN}) {
        EXPECT_EQ(product_sum_of(f, 1, 1, 0, scale), INT32_MAX) << scale;
        EXPECT_EQ(product_sum_of(f, 1, -1, 0, scale), INT32_MIN) << scale;
        EXPECT_EQ(product_sum_of(f, 4, 5, -20, scale), 0) << scale;
        EXPECT_EQ(product_sum_of(f, -32768, -32768, INT32_MAX, scale), INT32_MAX) << scale; // above 2^31
    }
}

TEST(AddProduct, of_32s_at_notable_scales)
{
    const auto f = ORV_EXPORT(orvsAddProduct_32s_Sfs);
    EXPECT_EQ(product_sum_of(f, INT32_MIN, INT32_MIN, INT32_MAX, 0), INT32_MAX);
    EXPECT_EQ(product_sum_of(f, INT32_MIN, INT32_MAX, INT32_MIN, 0), INT32_MIN);
    EXPECT_EQ(product_sum_of(f, 65536, 65536, INT32_MIN, 1), 1 << 30);
    EXPECT_EQ(product_sum_of(f, 3, 5, 0, 1), 8);                                  // 7.5
    EXPECT_EQ(product_sum_of(f, -3, 5, 2, 1), -6);                                // -6.5
    EXPECT_EQ(product_sum_of(f, INT32_MIN, INT32_MIN, INT32_MAX, 31), INT32_MAX); // 2^31 + 1 - 2^-31
    EXPECT_EQ(product_sum_of(f, INT32_MIN, INT32_MIN, INT32_MAX, 62), 1);
    EXPECT_EQ(product_sum_of(f, INT32_MIN, 1 << 30, 0, 62), 0); // minus one half
    EXPECT_EQ(product_sum_of(f, INT32_MIN, 1 << 30, -1, 62), -1);
    EXPECT_EQ(product_sum_of(f, 1, 1, 0, -30), 1 << 30);
    for (const int scale : {-31, -32, -33, -63, -64, INT_MIN}) {
        EXPECT_EQ(product_sum_of(f, 1, 1, 0, scale), INT32_MAX) << scale;
        EXPECT_EQ(product_sum_of(f, 1, -1, 0, scale), INT32_MIN) << scale;
        EXPECT_EQ(product_sum_of(f, 4, 5, -20, scale), 0) << scale;
        EXPECT_EQ(product_sum_of(f, 65536, 65536, 0, scale), INT32_MAX) << scale; // its low half is 0
    }
}

TEST(AddProduct, of_32s_is_0_from_scale_63_on)
{
    for (const int scale : {63, 64, 65, 128, INT_MAX})
        EXPECT_EQ(product_sum_of(ORV_EXPORT(orvsAddProduct_32s_Sfs), INT32_MIN, INT32_MIN, INT32_MAX, scale), 0)
            << scale;
}

/// A product whose rounding would lose what the sum needs.
TEST(AddProduct, of_floats_rounds_once)
{
    const Orv32f step = std::numeric_limits<Orv32f>::epsilon(), above = 1 + step;
    const std::vector<Orv32f> factors(20, above), wanted(20, step * step);
    std::vector<Orv32f> d(20, -(1 + 2 * step)); // (1 + step)^2 = 1 + 2 step + step^2
    EXPECT_EQ(ORV_EXPORT(orvsAddProduct_32f)(factors.data(), factors.data(), d.data(), 20), orvOk);
    expect_elements(ORV_EXPORT(orvsAddProduct_32f), d, wanted);
    d.assign(20, -(1 + 2 * step));
    EXPECT_EQ(ORV_EXPORT(orvsAddProductC_32f)(factors.data(), above, d.data(), 20), orvOk);
    expect_elements(ORV_EXPORT(orvsAddProductC_32f), d, wanted);

    const Orv64f step64 = std::numeric_limits<Orv64f>::epsilon();
    const std::vector<Orv64f> factors64(20, 1 + step64), wanted64(20, step64 * step64);
    std::vector<Orv64f> d64(20, -(1 + 2 * step64));
    EXPECT_EQ(ORV_EXPORT(orvsAddProduct_64f)(factors64.data(), factors64.data(), d64.data(), 20), orvOk);
    expect_elements(ORV_EXPORT(orvsAddProduct_64f), d64, wanted64);
}

/// Operands of which each order of the two fused operations gives another result.
TEST(AddProduct, of_complex_floats_takes_the_imaginary_part_of_the_first_factor_first)
{
    constexpr Orv32f big = 0x1p60f;
    const std::vector<Orv32fc> a(9, {big, big}), b(9, {1, 1});
    // re: 3 - big is -big, and big comes back to 0. im: 3 + big is big, and 2 big remain.
    std::vector<Orv32fc> d(9, {3, 3});
    EXPECT_EQ(ORV_EXPORT(orvsAddProduct_32fc)(a.data(), b.data(), d.data(), 9), orvOk);
    expect_elements(ORV_EXPORT(orvsAddProduct_32fc), d, std::vector<Orv32fc>(9, {0, 2 * big}));

    // re: -big first takes big away exactly, so that what is left of the other product survives.
    const std::vector<Orv32fc> c(9, {1, big}), e(9, {3, 1});
    d.assign(9, {big, -3 * big});
    EXPECT_EQ(ORV_EXPORT(orvsAddProduct_32fc)(c.data(), e.data(), d.data(), 9), orvOk);
    expect_elements(ORV_EXPORT(orvsAddProduct_32fc), d, std::vector<Orv32fc>(9, {3, 1}));

    constexpr Orv64f big64 = 0x1p100;
    const std::vector<Orv64fc> c64(9, {1, big64}), e64(9, {3, 1});
    std::vector<Orv64fc> d64(9, {big64, -3 * big64});
    EXPECT_EQ(ORV_EXPORT(orvsAddProduct_64fc)(c64.data(), e64.data(), d64.data(), 9), orvOk);
    expect_elements(ORV_EXPORT(orvsAddProduct_64fc), d64, std::vector<Orv64fc>(9, {3, 1}));
}

// ---- Every triple from sets of operands

template <class S, class D, class Wanted>
void expect_all_triples(const Export<OrvStatus, const S*, const S*, D*, int, int>& f, const std::vector<S>& factors,
                        const std::vector<D>& accumulators, int lowest, int highest, const Wanted& wanted)
{
    const Pairs<S> pairs(factors, factors);
    const std::size_t n = pairs.first.size();
    for (int scale = lowest; scale <= highest; ++scale)
        for (const D accumulator : accumulators) {
            std::vector<D> results(n, accumulator);
            ASSERT_EQ(f(pairs.first.data(), pairs.second.data(), results.data(), static_cast<int>(n), scale), orvOk);
            for (std::size_t i = 0; i < n; ++i) {
                const D want = wanted(pairs.first[i], pairs.second[i], accumulator, scale);
                if (results[i] != want)
                    FAIL() << f.name() << " of " << pairs.first[i] << " * " << pairs.second[i] << " + " << accumulator
                           << " at scale " << scale << " is " << results[i] << ", not " << want;
            }
        }
}

TEST(AddProduct, of_critical_triples_of_16s)
{
    const auto wanted = [](Orv16s a, Orv16s b, Orv16s d, int scale) {
        return limited<Orv16s>(nearest_even(std::int64_t{a} * b + d, scale));
    };
    expect_all_triples(ORV_EXPORT(orvsAddProduct_16s_Sfs), critical_values<Orv16s>(0, 10),
                       critical_values<Orv16s>(0, 5, 4), -17, 33, wanted);
}
TEST(AddProduct, of_critical_triples_of_16s32s)
{
    const auto wanted = [](Orv16s a, Orv16s b, Orv32s d, int scale) {
        return saturate<Orv32s>(scale_law(Wide(a) * b + d, scale));
    };
    expect_all_triples(ORV_EXPORT(orvsAddProduct_16s32s_Sfs), critical_values<Orv16s>(0, 5, 3),
                       critical_values<Orv32s>(0, 4, 9), -33, 34, wanted);
}
TEST(AddProduct, of_critical_triples_of_32s)
{
    const auto wanted = [](Orv32s a, Orv32s b, Orv32s d, int scale) {
        return scale >= zero_from_32s ? 0 : saturate<Orv32s>(scale_law(Wide(a) * b + d, scale));
    };
    expect_all_triples(ORV_EXPORT(orvsAddProduct_32s_Sfs), critical_values<Orv32s>(0, 5, 7),
                       critical_values<Orv32s>(0, 3, 12), -33, 65, wanted);
}

// ---- Large arrays

TEST(AddProduct, of_large_arrays)
{
    for (const int scale : {-40, -3, 0, 1, 12, 40}) {
        EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsAddProduct_16s_Sfs), exact_product_sum, scale));
        EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsAddProduct_16s32s_Sfs), exact_product_sum, scale));
        EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsAddProduct_32s_Sfs), exact_product_sum, scale));
    }
    EXPECT_TRUE(check_large(ORV_EXPORT(orvsAddProduct_32f).with(), fused_product_sum));
    EXPECT_TRUE(check_large(ORV_EXPORT(orvsAddProduct_32fc).with(), fused_product_sum));
    EXPECT_TRUE(check_large(ORV_EXPORT(orvsAddProduct_64f).with(), fused_product_sum));
    EXPECT_TRUE(check_large(ORV_EXPORT(orvsAddProduct_64fc).with(), fused_product_sum));
    EXPECT_TRUE(check_large(ORV_EXPORT(orvsAddProductC_32f).with(), fused_product_sum));
}

// ---- The caller's floating-point state

TEST(AddProduct, follows_the_callers_state)
{
    const auto real = [](auto a, auto b) { return std::tuple(b, decltype(a){1}, a); };
    const auto complex = [](auto a, auto b) { return std::tuple(b, decltype(a){1, 0}, a); };
    expect_to_follow_the_state(ORV_EXPORT(orvsAddProduct_32f).with(), real);
    expect_to_follow_the_state(ORV_EXPORT(orvsAddProduct_64f).with(), real);
    expect_to_follow_the_state(ORV_EXPORT(orvsAddProduct_32fc).with(), complex);
    expect_to_follow_the_state(ORV_EXPORT(orvsAddProduct_64fc).with(), complex);
    expect_to_follow_the_state(ORV_EXPORT(orvsAddProductC_32f).with(), real);
}

TEST(AddProduct, is_ieee_in_other_states)
{
    EXPECT_TRUE(sweep_in_states(ORV_EXPORT(orvsAddProduct_32f).with(), fused_product_sum));
    EXPECT_TRUE(sweep_in_states(ORV_EXPORT(orvsAddProduct_64f).with(), fused_product_sum));
    EXPECT_TRUE(sweep_in_states(ORV_EXPORT(orvsAddProduct_32fc).with(), fused_product_sum));
    EXPECT_TRUE(sweep_in_states(ORV_EXPORT(orvsAddProduct_64fc).with(), fused_product_sum));
    EXPECT_TRUE(sweep_in_states(ORV_EXPORT(orvsAddProductC_32f).with(), fused_product_sum));
}

TEST(AddProduct, raises_no_flags_on_exact_sums)
{
    expect_no_flags(ORV_EXPORT(orvsAddProduct_32f).with());
    expect_no_flags(ORV_EXPORT(orvsAddProduct_64f).with());
    expect_no_flags(ORV_EXPORT(orvsAddProduct_32fc).with());
    expect_no_flags(ORV_EXPORT(orvsAddProduct_64fc).with());
    expect_no_flags(ORV_EXPORT(orvsAddProductC_32f).with());
}

} // namespace
} // namespace orvtest
