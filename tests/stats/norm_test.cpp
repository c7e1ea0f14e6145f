// Norms of a vector and of the difference of two.
#include "orvs/stats.h"

#include "tests/arith/caller_state.h"
#include "tests/arith/endless.h"
#include "tests/stats/inputs.h"
#include "tests/stats/reductions.h"
#include "tests/support/compare.h"

#include <gtest/gtest.h>

namespace orvtest {
namespace {

enum class Kind { inf, l1, l2 };

/// The norm of one vector, and of a difference; last is nothing or the scale.
template <class S, class D, class... Last>
struct Forms {
    using Norm = Export<OrvStatus, const S*, int, D*, Last...>;
    using OfDifference = Export<OrvStatus, const S*, const S*, int, D*, Last...>;
    Forms(const Norm& f, const OfDifference& g) : norm(f), difference(g) {}

    Norm norm;
    OfDifference difference;
};
template <class S, class D, class... Last>
Forms(const Export<OrvStatus, const S*, int, D*, Last...>&,
      const Export<OrvStatus, const S*, const S*, int, D*, Last...>&) -> Forms<S, D, Last...>;

/// x as a difference: x = a - b, exactly as far as it can be.
template <class S>
struct Difference {
    std::vector<S> a, b;
};

// ---- Integers

/// Exact values of the three kinds; that of L2 is its square.
struct ExactNorms {
    std::int64_t inf = 0, l1 = 0, squares = 0;
};
ExactNorms exact_norms(const std::vector<Orv16s>& a, const std::vector<Orv16s>& b = {})
{
    ExactNorms norms;
    for (std::size_t i = 0; i < a.size(); ++i) {
        const std::int64_t d = std::abs(a[i] - (b.empty() ? 0 : int{b[i]}));
        norms.inf = std::max(norms.inf, d);
        norms.l1 += d;
        norms.squares += d * d;
    }
    return norms;
}

// What becomes of them. Only the largest magnitude is truncated.
Orv32f inf_as_float(const ExactNorms& x) { return static_cast<Orv32f>(x.inf); }
Orv32f l1_as_float(const ExactNorms& x) { return static_cast<Orv32f>(x.l1); }
Orv32f l2_as_float(const ExactNorms& x) { return static_cast<Orv32f>(std::sqrt(static_cast<double>(x.squares))); }
Orv32s inf_scaled(const ExactNorms& x, int scale)
{
    if (scale >= 0) return static_cast<Orv32s>(scale > 31 ? 0 : x.inf >> scale);
    return saturate<Orv32s>(Wide(x.inf) << (scale < -30 ? 31 : -scale));
}
template <class D>
D l1_scaled(const ExactNorms& x, int scale)
{
    return saturate<D>(scale_law(Wide(x.l1), scale));
}
Orv64s squares_scaled(const ExactNorms& x, int scale) { return saturate<Orv64s>(scale_law(Wide(x.squares), scale)); }
/// The divisor or factor is 2 to the scale modulo 32.
Orv32s l2_scaled(const ExactNorms& x, int scale)
{
    const int power = scale < 0 ? static_cast<int>(-static_cast<unsigned>(scale) % 32) : -(scale % 32);
    const double scaled = std::ldexp(std::sqrt(static_cast<double>(x.squares)), power);
    return scaled >= INT_MAX ? INT_MAX : static_cast<Orv32s>(std::nearbyint(scaled));
}

template <class F>
void for_floats_of_integers(const F& f)
{
    f(Forms{ORV_EXPORT(orvsNorm_Inf_16s32f), ORV_EXPORT(orvsNormDiff_Inf_16s32f)}, inf_as_float);
    f(Forms{ORV_EXPORT(orvsNorm_L1_16s32f), ORV_EXPORT(orvsNormDiff_L1_16s32f)}, l1_as_float);
    f(Forms{ORV_EXPORT(orvsNorm_L2_16s32f), ORV_EXPORT(orvsNormDiff_L2_16s32f)}, l2_as_float);
}
template <class F>
void for_scaled(const F& f)
{
    f(Forms{ORV_EXPORT(orvsNorm_Inf_16s32s_Sfs), ORV_EXPORT(orvsNormDiff_Inf_16s32s_Sfs)}, inf_scaled);
    f(Forms{ORV_EXPORT(orvsNorm_L1_16s32s_Sfs), ORV_EXPORT(orvsNormDiff_L1_16s32s_Sfs)}, l1_scaled<Orv32s>);
    f(Forms{ORV_EXPORT(orvsNorm_L1_16s64s_Sfs), ORV_EXPORT(orvsNormDiff_L1_16s64s_Sfs)}, l1_scaled<Orv64s>);
    f(Forms{ORV_EXPORT(orvsNorm_L2_16s32s_Sfs), ORV_EXPORT(orvsNormDiff_L2_16s32s_Sfs)}, l2_scaled);
    f(Forms{ORV_EXPORT(orvsNorm_L2Sqr_16s64s_Sfs), ORV_EXPORT(orvsNormDiff_L2Sqr_16s64s_Sfs)}, squares_scaled);
}

/// A vector and another one to subtract.
Difference<Orv16s> integers(std::size_t n, int limit)
{
    if (limit > 32767) return {drawn<Orv16s>("a", n), drawn<Orv16s>("b", n)};
    return {whole_numbers<Orv16s>(n, n, limit), whole_numbers<Orv16s>(n + 1, n, limit)};
}

template <class D, class Oracle>
bool expect_norms(const Forms<Orv16s, D>& f, const Difference<Orv16s>& x, const Oracle& oracle,
                  unsigned state = to_nearest)
{
    return reduction(f.norm, x.a).in_state(state).gives(oracle(exact_norms(x.a))) &&
           reduction(f.difference, x.a, x.b).in_state(state).gives(oracle(exact_norms(x.a, x.b)));
}
template <class D, class Oracle>
bool expect_norms(const Forms<Orv16s, D, int>& f, const Difference<Orv16s>& x, const Oracle& oracle, int scale,
                  unsigned state = to_nearest)
{
    return reduction(f.norm, x.a).with(scale).in_state(state).gives(oracle(exact_norms(x.a), scale)) &&
           reduction(f.difference, x.a, x.b).with(scale).in_state(state).gives(oracle(exact_norms(x.a, x.b), scale));
}

TEST(Norm, of_integers_in_floats)
{
    for_floats_of_integers([](const auto& f, const auto& oracle) {
        for (const int length : lengths_of_sums())
            for (const int limit : {3, 1000, 40000})
                if (!expect_norms(f, integers(static_cast<std::size_t>(length), limit), oracle)) return;
    });
}

TEST(Norm, of_integers_scaled)
{
    for_scaled([](const auto& f, const auto& oracle) {
        for (const int length : lengths_of_sums())
            for (const int limit : {3, 40000})
                for (const int scale : {0, 1, 4, -2})
                    if (!expect_norms(f, integers(static_cast<std::size_t>(length), limit), oracle, scale)) return;
    });
}

TEST(Norm, of_integers_at_all_scales)
{
    for_scaled([](const auto& f, const auto& oracle) {
        for (const int scale : scales(70))
            for (const std::size_t n : {1u, 3u, 16u, 41u})
                for (const int limit : {0, 1, 200, 40000})
                    if (!expect_norms(f, integers(n, limit), oracle, scale)) return;
    });
}

TEST(Norm, of_integers_rounds_and_saturates)
{
    const auto inf = [](std::vector<Orv16s> x, int scale, Orv32s want) {
        EXPECT_TRUE(reduction(ORV_EXPORT(orvsNorm_Inf_16s32s_Sfs), x).with(scale).gives(want));
    };
    inf({-32768}, 0, 32768);
    inf({-32768}, 1, 16384);
    inf({3}, 1, 1); // truncated
    inf({-3}, 1, 1);
    inf({1}, -30, 1 << 30);
    inf({1}, -31, INT_MAX);
    inf({0}, INT_MIN, 0);
    inf({1}, INT_MIN, INT_MAX);
    inf({-32768}, 15, 1);
    inf({-32768}, 31, 0);
    inf({-32768}, 32, 0);
    inf({-32768}, INT_MAX, 0);
    const auto distance = [](Orv16s a, Orv16s b, int scale, Orv32s want) {
        EXPECT_TRUE(
            reduction(ORV_EXPORT(orvsNormDiff_Inf_16s32s_Sfs), std::vector{a}, std::vector{b}).with(scale).gives(want));
        EXPECT_TRUE(
            reduction(ORV_EXPORT(orvsNormDiff_L1_16s32s_Sfs), std::vector{b}, std::vector{a}).with(scale).gives(want));
    };
    distance(32767, -32768, 0, 65535);
    distance(-32768, 32767, 0, 65535);
    distance(0, -32768, 0, 32768);

    const auto squares = [](std::vector<Orv16s> x, int scale, Orv64s want) {
        EXPECT_TRUE(reduction(ORV_EXPORT(orvsNorm_L2Sqr_16s64s_Sfs), x).with(scale).gives(want));
    };
    squares({1, 2}, 1, 2); // 2.5: to even
    squares({1, 1, 1}, 1, 2);
    squares({-32768}, -32, Orv64s{1} << 62);
    squares({-32768}, -33, std::numeric_limits<Orv64s>::max());
    squares({1}, -63, std::numeric_limits<Orv64s>::max());
    squares({-32768}, 31, 0); // half
    squares({-32768, -32768, -32768}, 31, 2);
    squares({0}, INT_MIN, 0);
    const auto l2 = [](std::vector<Orv16s> x, int scale, Orv32s want) {
        EXPECT_TRUE(reduction(ORV_EXPORT(orvsNorm_L2_16s32s_Sfs), x).with(scale).gives(want));
    };
    l2({3, 4}, 0, 5);
    l2({3, -4}, 1, 2); // to even
    l2({30, 40}, -1, 100);
    l2({1, 1}, -30, 1518500250);
    l2({3, 4}, 32, 5); // the scale is taken modulo 32
    l2({3, 4}, -32, 5);
    l2({2, 0}, -30, INT_MAX);
}

/// The sum of magnitudes is beyond 32 bits, then beyond what 32-bit lanes of 65,536 values hold.
TEST(Norm, long_vectors_of_extremes)
{
    for (const std::size_t n : {65535u, 65536u, 65537u, 131072u, 131073u, 200'001u}) {
        const std::vector<Orv16s> low(n, -32768), high(n, 32767);
        for_floats_of_integers([&](const auto& f, const auto& oracle) {
            expect_norms(f, {low, high}, oracle);
            expect_norms(f, {drawn<Orv16s>("a", n), drawn<Orv16s>("b", n)}, oracle);
        });
        for_scaled([&](const auto& f, const auto& oracle) {
            expect_norms(f, {low, high}, oracle, 3);
            expect_norms(f, {high, low}, oracle, 0);
        });
    }
}

TEST(Norm, integers_do_not_depend_on_the_state)
{
    for_scaled([](const auto& f, const auto& oracle) {
        if (std::string(f.norm.name()).find("L2_") != std::string::npos) return; // see below
        for (const unsigned state : {0u + round_up, 0u + round_down, 0u + round_to_zero})
            for (const std::size_t n : {1u, 2u, 9u, 40u, 333u})
                for (const int scale : {-3, 0, 1, 5})
                    if (!expect_norms(f, integers(n, 300), oracle, scale, state)) return;
    });
}

/// The integer of a root is rounded as the caller wants it.
TEST(Norm, rounding_of_a_root_follows_the_state)
{
    const auto check = [](unsigned state, Orv32s want) {
        const std::vector<Orv16s> x = {0, 3}, y = {-4, 0};
        EXPECT_TRUE(reduction(ORV_EXPORT(orvsNormDiff_L2_16s32s_Sfs), x, y).with(1).in_state(state).gives(want)); // 2.5
        EXPECT_TRUE(reduction(ORV_EXPORT(orvsNorm_L2_16s32s_Sfs), std::vector<Orv16s>{3, -4})
                        .with(1)
                        .in_state(state)
                        .gives(want));
    };
    check(to_nearest, 2);
    check(round_up, 3);
    check(round_down, 2);
    check(round_to_zero, 2);
}

// ---- Floats

template <class F>
void for_real(const F& f)
{
    f(Kind::inf, Forms{ORV_EXPORT(orvsNorm_Inf_32f), ORV_EXPORT(orvsNormDiff_Inf_32f)});
    f(Kind::inf, Forms{ORV_EXPORT(orvsNorm_Inf_64f), ORV_EXPORT(orvsNormDiff_Inf_64f)});
    f(Kind::l1, Forms{ORV_EXPORT(orvsNorm_L1_32f), ORV_EXPORT(orvsNormDiff_L1_32f)});
    f(Kind::l1, Forms{ORV_EXPORT(orvsNorm_L1_64f), ORV_EXPORT(orvsNormDiff_L1_64f)});
    f(Kind::l2, Forms{ORV_EXPORT(orvsNorm_L2_32f), ORV_EXPORT(orvsNormDiff_L2_32f)});
    f(Kind::l2, Forms{ORV_EXPORT(orvsNorm_L2_64f), ORV_EXPORT(orvsNormDiff_L2_64f)});
}
template <class F>
void for_complex(const F& f)
{
    f(Kind::inf, Forms{ORV_EXPORT(orvsNorm_Inf_32fc32f), ORV_EXPORT(orvsNormDiff_Inf_32fc32f)});
    f(Kind::inf, Forms{ORV_EXPORT(orvsNorm_Inf_64fc64f), ORV_EXPORT(orvsNormDiff_Inf_64fc64f)});
    f(Kind::l1, Forms{ORV_EXPORT(orvsNorm_L1_32fc64f), ORV_EXPORT(orvsNormDiff_L1_32fc64f)});
    f(Kind::l1, Forms{ORV_EXPORT(orvsNorm_L1_64fc64f), ORV_EXPORT(orvsNormDiff_L1_64fc64f)});
    f(Kind::l2, Forms{ORV_EXPORT(orvsNorm_L2_32fc64f), ORV_EXPORT(orvsNormDiff_L2_32fc64f)});
    f(Kind::l2, Forms{ORV_EXPORT(orvsNorm_L2_64fc64f), ORV_EXPORT(orvsNormDiff_L2_64fc64f)});
}

template <class S>
long double magnitude(const S& a, const S& b)
{
    if constexpr (Complex<S>) {
        const long double re = static_cast<long double>(a.re) - static_cast<long double>(b.re);
        const long double im = static_cast<long double>(a.im) - static_cast<long double>(b.im);
        return std::sqrt(re * re + im * im);
    } else {
        return std::fabs(static_cast<long double>(a) - static_cast<long double>(b));
    }
}

template <class S>
long double exact_norm(Kind kind, const std::vector<S>& a, const std::vector<S>& b)
{
    long double result = 0;
    for (std::size_t i = 0; i < a.size(); ++i) {
        const long double m = magnitude(a[i], b[i]);
        result = kind == Kind::inf ? std::max(result, m) : result + (kind == Kind::l1 ? m : m * m);
    }
    return kind == Kind::l2 ? std::sqrt(result) : result;
}

/// Elements whose magnitudes are integers, as the difference of others.
template <class S>
Difference<S> with_whole_magnitudes(std::size_t n)
{
    constexpr int triples[][2] = {{3, 4}, {-5, 12}, {8, -15}, {0, 1}, {-7, 0}, {-20, -21}, {0, 0}};
    Random random(n);
    Difference<S> x = {std::vector<S>(n), whole_numbers<S>(n, n, 100)};
    for (std::size_t i = 0; i < n; ++i) {
        const auto& [p, q] = triples[random.below(std::size(triples))];
        if constexpr (Complex<S>) {
            x.a[i] = {x.b[i].re + static_cast<PartOf<S>>(p), x.b[i].im + static_cast<PartOf<S>>(q)};
        } else {
            x.a[i] = x.b[i] + static_cast<S>(p);
        }
    }
    return x;
}

/// a - b, and zeros.
template <class S>
Difference<S> subtracted(const Difference<S>& x)
{
    Difference<S> y = {x.a, std::vector<S>(x.a.size())};
    for (std::size_t i = 0; i < x.a.size(); ++i) {
        if constexpr (Complex<S>) y.a[i] = {x.a[i].re - x.b[i].re, x.a[i].im - x.b[i].im};
        else y.a[i] = x.a[i] - x.b[i];
    }
    return y;
}

/// Where all sums are exact, every order gives the same, rounded once by a root.
TEST(Norm, of_small_integers_in_floats_is_exact)
{
    const auto check = []<class S, class D>(Kind kind, const Forms<S, D>& f) {
        std::vector<int> lengths = lengths_of_sums();
        lengths.push_back(8200);
        for (const int length : lengths) {
            const Difference<S> x = with_whole_magnitudes<S>(static_cast<std::size_t>(length));
            const D want = static_cast<D>(exact_norm(kind, x.a, x.b));
            if (!reduction(f.norm, subtracted(x).a).gives(want) || !reduction(f.difference, x.a, x.b).gives(want))
                return;
        }
    };
    for_real(check);
    for_complex(check);
}

/// Bits of the result do not depend on where the sources lie; its error is that of as many additions.
template <class R, class D>
bool expect_near(Kind kind, const R& call, long double exact, std::size_t n, D)
{
    const D got = call.result();
    const long double roundings = kind == Kind::inf ? 4 : 4 + static_cast<long double>(n);
    const long double error = roundings * static_cast<long double>(std::numeric_limits<D>::epsilon()) * exact;
    if (!(std::fabs(static_cast<long double>(got) - exact) <= error)) {
        ADD_FAILURE() << call.text() << ": " << got << " is too far from " << exact;
        return false;
    }
    return call.gives(got);
}

TEST(Norm, of_floats_is_near_and_the_same_everywhere)
{
    const auto check = []<class S, class D>(Kind kind, const Forms<S, D>& f) {
        for (const std::size_t n :
             {1u, 2u, 3u, 4u, 5u, 7u, 8u, 9u, 15u, 16u, 17u, 31u, 33u, 63u, 64u, 65u, 100u, 1000u, 5003u}) {
            const Difference<S> x = {signal<S>(n, n), signal<S>(n + 1, n, 0.25)};
            if (!expect_near(kind, reduction(f.norm, x.a), exact_norm(kind, x.a, std::vector<S>(n)), n, D()) ||
                !expect_near(kind, reduction(f.difference, x.a, x.b), exact_norm(kind, x.a, x.b), n, D()))
                return;
        }
    };
    for_real(check);
    for_complex(check);
}

/// The largest of any numbers, infinities among them.
TEST(Norm, largest_magnitude_is_exact)
{
    const auto check = []<class S, class D>(Kind kind, const Forms<S, D>& f) {
        if (kind != Kind::inf) return;
        for (const int length : lengths_of_sums()) {
            const auto n = static_cast<std::size_t>(length);
            const std::vector<S> x = drawn<S>(f.norm.name(), n, Floats::no_nan), one(n, 1);
            const std::vector<S> y = drawn<S>("no infinities", n, Floats::finite);
            if (!reduction(f.norm, x).gives(static_cast<D>(exact_norm(kind, x, std::vector<S>(n)))) ||
                !reduction(f.norm, y).gives(static_cast<D>(exact_norm(kind, y, std::vector<S>(n)))) ||
                !reduction(f.difference, y, y).gives(0) ||
                !reduction(f.difference, std::vector<S>(n), y)
                     .gives(static_cast<D>(exact_norm(kind, y, std::vector<S>(n)))))
                return;
        }
        // At every place of a vector.
        for (std::size_t i = 0; i < 70; ++i) {
            std::vector<S> x = signal<S>(i, 70);
            x[i] = -7;
            expect_value(f.norm, reduction(f.norm, x).result(), 7);
        }
    };
    for_real(check);
}

TEST(Norm, of_what_is_no_number_is_none)
{
    const auto check = []<class S, class D>(Kind kind, const Forms<S, D>& f) {
        if (kind == Kind::inf) return; // comparisons may pass it over
        for (const std::size_t n : {1u, 3u, 8u, 17u, 70u})
            for (std::size_t i = 0; i < n; ++i) {
                std::vector<S> x = signal<S>(n, n);
                if constexpr (Complex<S>) x[i].im = std::numeric_limits<PartOf<S>>::quiet_NaN();
                else x[i] = std::numeric_limits<S>::quiet_NaN();
                constexpr D nan = std::numeric_limits<D>::quiet_NaN();
                const std::vector<S> y = signal<S>(n + 1, n);
                if (!expect_value(f.norm, reduction(f.norm, x).result(), nan) ||
                    !expect_value(f.difference, reduction(f.difference, y, x).result(), nan))
                    return;
            }
    };
    for_real(check);
    for_complex(check);
}

/// Squares of single precision are summed in the type of the result.
TEST(Norm, wide_results_do_not_overflow)
{
    const std::vector<Orv32f> x = {0x1p100f, 0x1p100f, 0x1p100f, 0x1p100f};
    EXPECT_TRUE(reduction(ORV_EXPORT(orvsNorm_L2_32f), x).gives(std::numeric_limits<Orv32f>::infinity()));
    const std::vector<Orv32fc> z = {{0x1.8p100f, 0x1p101f}, {0, 0}};
    EXPECT_TRUE(reduction(ORV_EXPORT(orvsNorm_L1_32fc64f), z).gives(0x1.4p101));
    EXPECT_TRUE(reduction(ORV_EXPORT(orvsNorm_L2_32fc64f), z).gives(0x1.4p101));
    // And so are differences.
    const std::vector<Orv32fc> large = {{0x1p60f, 1}}, small = {{1, 0x1p60f}};
    const double part = 0x1p60 - 1;
    EXPECT_TRUE(
        reduction(ORV_EXPORT(orvsNormDiff_L1_32fc64f), large, small).gives(std::sqrt(part * part + part * part)));
}

/// An element at any place takes part once.
TEST(Norm, every_element_counts)
{
    const auto check = []<class S, class D>(Kind, const Forms<S, D>& f) {
        for (std::size_t n = 1; n <= 70; ++n)
            for (std::size_t i = 0; i < n; ++i) {
                std::vector<S> x(n);
                if constexpr (Complex<S>) x[i] = {-4, 3};
                else x[i] = -5;
                const std::vector<S> zeros(n);
                if (!expect_value(f.norm, reduction(f.norm, x).result(), 5) ||
                    !expect_value(f.difference, reduction(f.difference, zeros, x).result(), 5))
                    return;
            }
    };
    for_real(check);
    for_complex(check);
}

// ---- Calls

#ifdef ORV_ENDLESS_ARRAYS
/// More parts than an int counts: zeros, and something at both ends.
TEST(Norm, without_end)
{
    EndlessArray<Orv32fc> array;
    Orv32fc* x = array.data();
    constexpr int n = EndlessArray<Orv32fc>::length;
    x[0] = {3, 4};
    x[n - 1] = {0, -12};
    Orv64f norm = 0;
    EXPECT_EQ(ORV_EXPORT(orvsNorm_L2_32fc64f)(x, n, &norm), orvOk);
    EXPECT_EQ(norm, 13);
}
#endif

TEST(Norm, checks_pointers_before_length)
{
    const auto check = [](const auto& f) {
        expect_checks(f.norm);
        expect_checks(f.difference);
    };
    for_floats_of_integers([&](const auto& f, const auto&) { check(f); });
    for_scaled([&](const auto& f, const auto&) { check(f); });
    for_real([&](Kind, const auto& f) { check(f); });
    for_complex([&](Kind, const auto& f) { check(f); });
}

} // namespace
} // namespace orvtest
