// dst = src * src.
#include "orvs/arith.h"

#include "tests/arith/caller_state.h"
#include "tests/arith/large.h"
#include "tests/arith/products.h"

#include <gtest/gtest.h>

namespace orvtest {
namespace {

struct Square {
    template <class T>
    T operator()(const T& x) const
    {
        return product(x, x);
    }
};
constexpr Square square;

// ---- Results

/// Sweeps an integer export as sweep_products does.
template <class... Args>
bool sweep_squares(const Export<OrvStatus, Args...>& f)
{
    using Result = DestinationElement<Args...>;
    constexpr std::size_t component_size = element_type<Result>().component_size;
    constexpr int bits = 8 * static_cast<int>(component_size), reach = product_reach(component_size);
    for (const int scale : scales(reach)) {
        const bool upper_half = scale == bits || scale == bits - 1;
        const SweepOptions all = family_lengths();
        const SweepOptions options = upper_half ? all : options_at_scale(all, scale, reach);
        if (!sweep_elements(f.with(scale), ScaledOracle<Result, Square>{square, scale}, options)) return false;
    }
    return true;
}

TEST(Sqr_8u_Sfs, exact) { EXPECT_TRUE(sweep_squares(ORV_EXPORT(orvsSqr_8u_Sfs))); }
TEST(Sqr_8u_ISfs, exact) { EXPECT_TRUE(sweep_squares(ORV_EXPORT(orvsSqr_8u_ISfs))); }
TEST(Sqr_16u_Sfs, exact) { EXPECT_TRUE(sweep_squares(ORV_EXPORT(orvsSqr_16u_Sfs))); }
TEST(Sqr_16u_ISfs, exact) { EXPECT_TRUE(sweep_squares(ORV_EXPORT(orvsSqr_16u_ISfs))); }
TEST(Sqr_16s_Sfs, exact) { EXPECT_TRUE(sweep_squares(ORV_EXPORT(orvsSqr_16s_Sfs))); }
TEST(Sqr_16s_ISfs, exact) { EXPECT_TRUE(sweep_squares(ORV_EXPORT(orvsSqr_16s_ISfs))); }
TEST(Sqr_16sc_Sfs, exact) { EXPECT_TRUE(sweep_squares(ORV_EXPORT(orvsSqr_16sc_Sfs))); }
TEST(Sqr_16sc_ISfs, exact) { EXPECT_TRUE(sweep_squares(ORV_EXPORT(orvsSqr_16sc_ISfs))); }

TEST(Sqr_32f, ieee) { EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsSqr_32f), square, family_lengths())); }
TEST(Sqr_32f_I, ieee) { EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsSqr_32f_I), square, family_lengths())); }
TEST(Sqr_64f, ieee) { EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsSqr_64f), square, family_lengths())); }
TEST(Sqr_64f_I, ieee) { EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsSqr_64f_I), square, family_lengths())); }
TEST(Sqr_32fc, fused) { EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsSqr_32fc), square, family_lengths())); }
TEST(Sqr_32fc_I, fused) { EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsSqr_32fc_I), square, family_lengths())); }
TEST(Sqr_64fc, fused) { EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsSqr_64fc), square, family_lengths())); }
TEST(Sqr_64fc_I, fused) { EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsSqr_64fc_I), square, family_lengths())); }

/// All squares of a type of 8 or 16 bits at all scales.
template <std::integral T>
void expect_all_squares(const Export<OrvStatus, const T*, T*, int, int>& f)
{
    std::vector<T> values, results(std::size_t{1} << 8 * sizeof(T));
    for (std::size_t i = 0; i < results.size(); ++i) values.push_back(static_cast<T>(i));
    for (int scale = -18; scale <= 34; ++scale) {
        ASSERT_EQ(f(values.data(), results.data(), static_cast<int>(values.size()), scale), orvOk);
        for (std::size_t i = 0; i < values.size(); ++i)
            ASSERT_EQ(results[i], scaled_product<T>(values[i], values[i], scale))
                << f.name() << " of " << values[i] << " at scale " << scale;
    }
}
TEST(Sqr, of_all_values)
{
    expect_all_squares(ORV_EXPORT(orvsSqr_8u_Sfs));
    expect_all_squares(ORV_EXPORT(orvsSqr_16u_Sfs));
    expect_all_squares(ORV_EXPORT(orvsSqr_16s_Sfs));
}

/// The product of a vector with itself, bit for bit.
template <class T, class... Last>
void expect_product_with_itself(const Export<OrvStatus, const T*, T*, int, Last...>& f,
                                const Export<OrvStatus, const T*, const T*, T*, int, Last...>& product,
                                const std::vector<T>& x, std::type_identity_t<Last>... last)
{
    const auto n = static_cast<int>(x.size());
    std::vector<T> want(x.size()), got(x.size());
    EXPECT_EQ(product(x.data(), x.data(), want.data(), n, last...), orvOk);
    EXPECT_EQ(f(x.data(), got.data(), n, last...), orvOk);
    expect_elements(f, got, want);
}
TEST(Sqr, is_the_product_with_itself)
{
    Random random(4);
    const std::vector<Orv16sc> parts = complex_values<Orv16sc>(critical_parts<Orv16s>());
    for (int scale = -20; scale <= 33; ++scale)
        expect_product_with_itself(ORV_EXPORT(orvsSqr_16sc_Sfs), ORV_EXPORT(orvsMul_16sc_Sfs), parts, scale);
    expect_product_with_itself(ORV_EXPORT(orvsSqr_32f), ORV_EXPORT(orvsMul_32f), inputs<Orv32f>(random, 5000));
    expect_product_with_itself(ORV_EXPORT(orvsSqr_64f), ORV_EXPORT(orvsMul_64f), inputs<Orv64f>(random, 5000));
    expect_product_with_itself(ORV_EXPORT(orvsSqr_32fc), ORV_EXPORT(orvsMul_32fc), inputs<Orv32fc>(random, 5000));
    expect_product_with_itself(ORV_EXPORT(orvsSqr_64fc), ORV_EXPORT(orvsMul_64fc), inputs<Orv64fc>(random, 5000));
}

// ---- Order of checks

TEST(Sqr, checks_pointers_before_length)
{
    for (const int scale : {INT_MIN, -16, -8, 0, 1, 17, 31, 32, 33, INT_MAX}) {
        expect_pointers_before_length(ORV_EXPORT(orvsSqr_8u_Sfs), 4, scale);
        expect_pointers_before_length(ORV_EXPORT(orvsSqr_8u_ISfs), 4, scale);
        expect_pointers_before_length(ORV_EXPORT(orvsSqr_16u_Sfs), 4, scale);
        expect_pointers_before_length(ORV_EXPORT(orvsSqr_16u_ISfs), 4, scale);
        expect_pointers_before_length(ORV_EXPORT(orvsSqr_16s_Sfs), 4, scale);
        expect_pointers_before_length(ORV_EXPORT(orvsSqr_16s_ISfs), 4, scale);
        expect_pointers_before_length(ORV_EXPORT(orvsSqr_16sc_Sfs), 4, scale);
        expect_pointers_before_length(ORV_EXPORT(orvsSqr_16sc_ISfs), 4, scale);
    }
    expect_pointers_before_length(ORV_EXPORT(orvsSqr_32f), 4);
    expect_pointers_before_length(ORV_EXPORT(orvsSqr_32f_I), 4);
    expect_pointers_before_length(ORV_EXPORT(orvsSqr_32fc), 4);
    expect_pointers_before_length(ORV_EXPORT(orvsSqr_32fc_I), 4);
    expect_pointers_before_length(ORV_EXPORT(orvsSqr_64f), 4);
    expect_pointers_before_length(ORV_EXPORT(orvsSqr_64f_I), 4);
    expect_pointers_before_length(ORV_EXPORT(orvsSqr_64fc), 4);
    expect_pointers_before_length(ORV_EXPORT(orvsSqr_64fc_I), 4);
}

// ---- Large arrays, and the caller's floating-point state

TEST(Sqr, of_large_arrays)
{
    EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsSqr_8u_Sfs), square, 3));
    EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsSqr_16s_Sfs), square, 15));
    EXPECT_TRUE(check_large_exact(ORV_EXPORT(orvsSqr_16sc_Sfs), square, 16));
    EXPECT_TRUE(check_large(ORV_EXPORT(orvsSqr_32f).with(), square));
    EXPECT_TRUE(check_large(ORV_EXPORT(orvsSqr_64fc).with(), square));
}

TEST(Sqr, of_floats_follows_the_callers_state)
{
    EXPECT_TRUE(sweep_in_states(ORV_EXPORT(orvsSqr_32f).with(), square));
    EXPECT_TRUE(sweep_in_states(ORV_EXPORT(orvsSqr_32f_I).with(), square));
    EXPECT_TRUE(sweep_in_states(ORV_EXPORT(orvsSqr_64f).with(), square));
    EXPECT_TRUE(sweep_in_states(ORV_EXPORT(orvsSqr_64f_I).with(), square));
    EXPECT_TRUE(sweep_in_states(ORV_EXPORT(orvsSqr_32fc).with(), square));
    EXPECT_TRUE(sweep_in_states(ORV_EXPORT(orvsSqr_64fc).with(), square));
}

TEST(Sqr, of_exact_floats_sets_no_flags)
{
    expect_no_flags(ORV_EXPORT(orvsSqr_32f).with());
    expect_no_flags(ORV_EXPORT(orvsSqr_64f_I).with());
    expect_no_flags(ORV_EXPORT(orvsSqr_32fc).with());
    expect_no_flags(ORV_EXPORT(orvsSqr_64fc_I).with());
}

} // namespace
} // namespace orvtest
