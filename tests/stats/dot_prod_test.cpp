// *dp = src1[0] * src2[0] + ... + src1[len-1] * src2[len-1].
#include "orvs/stats.h"

#include "tests/arith/caller_state.h"
#include "tests/arith/endless.h"
#include "tests/stats/inputs.h"
#include "tests/stats/reductions.h"
#include "tests/support/compare.h"

#include <gtest/gtest.h>

namespace orvtest {
namespace {

template <class A, class B, class D>
using Dot = Export<OrvStatus, const A*, const B*, int, D*>;
template <class A, class B, class D>
using ScaledDot = Export<OrvStatus, const A*, const B*, int, D*, int>;

template <class F>
void for_plain_integers(const F& f)
{
    f(ORV_EXPORT(orvsDotProd_16s64s));
    f(ORV_EXPORT(orvsDotProd_16sc64sc));
    f(ORV_EXPORT(orvsDotProd_16s16sc64sc));
    f(ORV_EXPORT(orvsDotProd_16s32f));
    f(ORV_EXPORT(orvsDotProd_16sc32fc));
    f(ORV_EXPORT(orvsDotProd_16s16sc32fc));
}
template <class F>
void for_scaled_16_bits(const F& f)
{
    f(ORV_EXPORT(orvsDotProd_16s_Sfs));
    f(ORV_EXPORT(orvsDotProd_16s32s_Sfs));
    f(ORV_EXPORT(orvsDotProd_16sc_Sfs));
    f(ORV_EXPORT(orvsDotProd_16sc32sc_Sfs));
    f(ORV_EXPORT(orvsDotProd_16s16sc_Sfs));
    f(ORV_EXPORT(orvsDotProd_16s16sc32sc_Sfs));
}
/// These compute in double precision.
template <class F>
void for_scaled_32_bits(const F& f)
{
    f(ORV_EXPORT(orvsDotProd_32s_Sfs));
    f(ORV_EXPORT(orvsDotProd_32sc_Sfs));
    f(ORV_EXPORT(orvsDotProd_32s32sc_Sfs));
    f(ORV_EXPORT(orvsDotProd_16s32s32s_Sfs));
}
template <class F>
void for_floats(const F& f)
{
    f(ORV_EXPORT(orvsDotProd_32f));
    f(ORV_EXPORT(orvsDotProd_32fc));
    f(ORV_EXPORT(orvsDotProd_32f32fc));
    f(ORV_EXPORT(orvsDotProd_32f64f));
    f(ORV_EXPORT(orvsDotProd_32fc64fc));
    f(ORV_EXPORT(orvsDotProd_32f32fc64fc));
    f(ORV_EXPORT(orvsDotProd_64f));
    f(ORV_EXPORT(orvsDotProd_64fc));
    f(ORV_EXPORT(orvsDotProd_64f64fc));
}

// ---- Oracles

/// Parts of an element, of a real one with zero.
template <class V, Element T>
std::pair<V, V> parts_as(const T& x)
{
    if constexpr (Complex<T>) return {static_cast<V>(x.re), static_cast<V>(x.im)};
    else return {static_cast<V>(x), V(0)};
}

/// The sum of products, and that of the products' magnitudes, in V.
template <class V>
struct Products {
    V part[2] = {}, size[2] = {};
};
template <class V, class A, class B>
Products<V> products(const std::vector<A>& a, const std::vector<B>& b)
{
    Products<V> total;
    const auto add = [&](int k, V product, V sign) {
        total.part[k] += sign * product;
        total.size[k] += product < 0 ? -product : product;
    };
    for (std::size_t i = 0; i < a.size(); ++i) {
        const auto [ar, ai] = parts_as<V>(a[i]);
        const auto [br, bi] = parts_as<V>(b[i]);
        add(0, ar * br, 1);
        add(0, ai * bi, -1);
        add(1, ar * bi, 1);
        add(1, ai * br, 1);
    }
    return total;
}

/// As the result holds an exact sum.
template <class D, class A, class B>
D exact_dot(const std::vector<A>& a, const std::vector<B>& b)
{
    const auto total = products<std::int64_t>(a, b);
    return by_part<D>([&](int k) { return static_cast<PartOf<D>>(total.part[k]); });
}
template <class D, class A, class B>
D scaled_dot(const std::vector<A>& a, const std::vector<B>& b, int scale)
{
    const auto total = products<std::int64_t>(a, b);
    return by_part<D>([&](int k) { return saturate<PartOf<D>>(scale_law(Wide(total.part[k]), scale)); });
}

/// Integers of any kind, or small ones.
template <class T>
std::vector<T> integers(std::size_t n, int limit, std::uint64_t seed)
{
    if (limit == 0) return drawn<T>(seed == 1 ? "first" : "second", n);
    return whole_numbers<T>(seed_of("integers", n) + seed, n, limit);
}

// ---- 16-bit integers

TEST(DotProd, of_16_bits_is_exact)
{
    for_plain_integers([]<class A, class B, class D>(const Dot<A, B, D>& f) {
        for (const int length : lengths_of_sums())
            for (const int limit : {0, 100}) {
                const auto n = static_cast<std::size_t>(length);
                const std::vector<A> a = integers<A>(n, limit, 1);
                const std::vector<B> b = integers<B>(n, limit, 2);
                if (!reduction(f, a, b).gives(exact_dot<D>(a, b))) return;
            }
    });
}

TEST(DotProd, of_16_bits_scaled)
{
    for_scaled_16_bits([]<class A, class B, class D>(const ScaledDot<A, B, D>& f) {
        for (const int length : lengths_of_sums())
            for (const int scale : {0, 1, 9, 25}) {
                const auto n = static_cast<std::size_t>(length);
                const int limit = scale < 2 ? 7 : scale == 9 ? 300 : 0;
                const std::vector<A> a = integers<A>(n, limit, 1);
                const std::vector<B> b = integers<B>(n, limit, 2);
                if (!reduction(f, a, b).with(scale).gives(scaled_dot<D>(a, b, scale))) return;
            }
    });
}

TEST(DotProd, of_16_bits_at_all_scales)
{
    for_scaled_16_bits([]<class A, class B, class D>(const ScaledDot<A, B, D>& f) {
        for (const int scale : scales(70))
            for (const std::size_t n : {1u, 2u, 9u, 16u, 41u})
                for (const int limit : {0, 1, 3, 200, 8000}) {
                    const std::vector<A> a = integers<A>(n, limit, 1);
                    const std::vector<B> b = integers<B>(n, limit, 2);
                    if (!expect_value(f, reduction(f, a, b).with(scale).result(), scaled_dot<D>(a, b, scale))) {
                        ADD_FAILURE() << f.name() << ", length " << n << ", scale " << scale;
                        return;
                    }
                }
    });
}

TEST(DotProd, of_16_bits_rounds_to_even_and_saturates)
{
    const auto check = [](std::vector<Orv16s> a, std::vector<Orv16s> b, int scale, Orv32s want) {
        EXPECT_TRUE(reduction(ORV_EXPORT(orvsDotProd_16s32s_Sfs), a, b).with(scale).gives(want));
        const auto limited = static_cast<Orv16s>(std::clamp(want, -32768, 32767));
        EXPECT_TRUE(reduction(ORV_EXPORT(orvsDotProd_16s_Sfs), a, b).with(scale).gives(limited));
    };
    check({5}, {1}, 1, 2);
    check({3, 2}, {1, 1}, 1, 2);
    check({-5}, {1}, 1, -2);
    check({7}, {-1}, 1, -4);
    check({-32768}, {-32768}, 0, 1 << 30);
    check({-32768}, {-32768}, -1, INT_MAX);
    check({-32768, -32768}, {-32768, -32768}, 0, INT_MAX);
    check({-32768, -32768}, {-32768, -32768}, 1, 1 << 30);
    check({-32768, -32768}, {32767, 32767}, 0, -2147418112);
    check({-32768, -32768, -32768}, {32767, 32767, 32767}, 0, INT_MIN);
    check({1}, {1}, -15, 32768);
    check({-1}, {1}, -15, -32768);
    check({1}, {1}, -16, 65536);
    check({-1}, {1}, INT_MIN, INT_MIN);
    check({0}, {1}, INT_MIN, 0);
    check({-32768}, {-32768}, 31, 0); // half
    check({-32768}, {-32768}, 30, 1);

    // (-32768 - 32768 i)^2 = 2^31 i
    const std::vector<Orv16sc> z = {{-32768, -32768}};
    EXPECT_TRUE(reduction(ORV_EXPORT(orvsDotProd_16sc64sc), z, z).gives({0, Orv64s{1} << 31}));
    EXPECT_TRUE(reduction(ORV_EXPORT(orvsDotProd_16sc32sc_Sfs), z, z).with(0).gives({0, INT_MAX}));
    EXPECT_TRUE(reduction(ORV_EXPORT(orvsDotProd_16sc_Sfs), z, z).with(17).gives({0, 16384}));
    const std::vector<Orv16sc> conjugate = {{-32768, 32767}};
    EXPECT_TRUE(reduction(ORV_EXPORT(orvsDotProd_16sc64sc), z, conjugate).gives({2147450880, 32768}));
}

/// More products of extremes than 32-bit lanes hold.
TEST(DotProd, long_vectors_of_extremes)
{
    for (const std::size_t n : {32767u, 65536u, 65537u, 131073u, 300'000u})
        for (const Orv16s x : {Orv16s{-32768}, Orv16s{32767}})
            for (const Orv16s y : {Orv16s{-32768}, Orv16s{32767}}) {
                for_plain_integers([&]<class A, class B, class D>(const Dot<A, B, D>& f) {
                    const auto element = [](auto value, auto other, auto type) {
                        if constexpr (Complex<decltype(type)>) return decltype(type){value, other};
                        else return value;
                    };
                    const std::vector<A> a(n, element(x, y, A()));
                    const std::vector<B> b(n, element(y, x, B()));
                    expect_value(f, reduction(f, a, b).result(), exact_dot<D>(a, b));
                });
            }
}

#ifdef ORV_ENDLESS_ARRAYS
/// As many of the largest products as an int counts: nearly 2^61.
TEST(DotProd, without_end)
{
    EndlessArray<Orv32fc> pages;
    auto* x = reinterpret_cast<Orv16s*>(pages.data());
    std::fill(x, x + INT_MAX, Orv16s{-32768});
    Orv64s got = 0;
    ASSERT_EQ(ORV_EXPORT(orvsDotProd_16s64s)(x, x, INT_MAX, &got), orvOk);
    EXPECT_EQ(got, Orv64s{INT_MAX} << 30);
}
#endif

// ---- 32-bit integers

TEST(DotProd, of_32_bits_is_exact_within_53_bits)
{
    for_scaled_32_bits([]<class A, class B, class D>(const ScaledDot<A, B, D>& f) {
        for (const int length : lengths_of_sums())
            for (const int scale : {0, 1, 12, -3}) {
                const auto n = static_cast<std::size_t>(length);
                const int limit = scale < 2 ? 9 : 30000;
                const std::vector<A> a = integers<A>(n, limit, 1);
                const std::vector<B> b = integers<B>(n, limit, 2);
                if (!reduction(f, a, b).with(scale).gives(scaled_dot<D>(a, b, scale))) return;
            }
    });
}

/// The scale counts from -31 to 93 only.
TEST(DotProd, of_32_bits_at_all_scales)
{
    for_scaled_32_bits([]<class A, class B, class D>(const ScaledDot<A, B, D>& f) {
        for (const int scale : scales(120))
            for (const std::size_t n : {1u, 2u, 9u, 16u, 41u})
                for (const int limit : {1, 3, 200, 30000}) {
                    const std::vector<A> a = integers<A>(n, limit, 1);
                    const std::vector<B> b = integers<B>(n, limit, 2);
                    const D want = scaled_dot<D>(a, b, std::clamp(scale, -31, 93));
                    if (!expect_value(f, reduction(f, a, b).with(scale).result(), want)) {
                        ADD_FAILURE() << f.name() << ", length " << n << ", scale " << scale;
                        return;
                    }
                }
    });
}

/// Products beyond 53 bits: an error of some roundings of the sum, then one to the integer.
TEST(DotProd, of_32_bits_is_near)
{
    for_scaled_32_bits([]<class A, class B, class D>(const ScaledDot<A, B, D>& f) {
        for (const std::size_t n : {1u, 2u, 3u, 5u, 8u, 17u, 64u, 100u, 1001u})
            for (const int scale : {32, 36, 40}) {
                const std::vector<A> a = integers<A>(n, 0, 1);
                const std::vector<B> b = integers<B>(n, 0, 2);
                const auto exact = products<long double>(a, b);
                auto call = reduction(f, a, b);
                const D got = call.with(scale).result();
                const auto* part = reinterpret_cast<const Orv32s*>(&got);
                for (std::size_t k = 0; k < unit_of<D>; ++k) {
                    const long double want =
                        std::clamp<long double>(std::ldexp(exact.part[k], -scale), INT_MIN, INT_MAX);
                    const long double error =
                        0.5L + std::ldexp(exact.size[k], -scale) * static_cast<long double>(2 * n) * 0x1p-53L;
                    EXPECT_LE(std::fabs(static_cast<long double>(part[k]) - want), error) << call.text();
                }
                if (!call.gives(got)) return;
            }
    });
}

TEST(DotProd, of_32_bits_rounds_to_even_and_saturates)
{
    const auto check = [](std::vector<Orv32s> a, std::vector<Orv32s> b, int scale, Orv32s want) {
        EXPECT_TRUE(reduction(ORV_EXPORT(orvsDotProd_32s_Sfs), a, b).with(scale).gives(want));
    };
    check({5}, {1}, 1, 2);
    check({-7}, {1}, 1, -4);
    check({INT_MIN}, {INT_MIN}, 62, 1);
    check({INT_MIN}, {INT_MIN}, 63, 0); // half
    check({INT_MIN}, {INT_MIN}, 31, INT_MAX);
    check({INT_MIN}, {INT_MAX}, 30, INT_MIN);
    check({INT_MIN}, {1}, 0, INT_MIN);
    check({INT_MIN}, {-1}, 0, INT_MAX);
    check({1}, {1}, -31, INT_MAX);
    check({-1}, {1}, -31, INT_MIN);
    check({-1}, {1}, INT_MIN, INT_MIN);
    check({INT_MIN, INT_MIN}, {INT_MIN, INT_MIN}, INT_MAX, 0);
}

TEST(DotProd, integers_do_not_depend_on_the_state)
{
    const auto check = []<class A, class B, class D>(const ScaledDot<A, B, D>& f) {
        for (const unsigned state : {0u + round_up, 0u + round_down, 0u + round_to_zero})
            for (const std::size_t n : {1u, 2u, 9u, 40u, 333u})
                for (const int scale : {-3, 0, 1, 5}) {
                    const std::vector<A> a = integers<A>(n, 30, 1);
                    const std::vector<B> b = integers<B>(n, 30, 2);
                    if (!reduction(f, a, b).with(scale).in_state(state).gives(scaled_dot<D>(a, b, scale))) return;
                }
    };
    for_scaled_16_bits(check);
    for_scaled_32_bits(check);
}

/// Nor do the roundings of sums beyond 53 bits, which show where large products cancel.
TEST(DotProd, roundings_do_not_depend_on_the_state)
{
    for_scaled_32_bits([]<class A, class B, class D>(const ScaledDot<A, B, D>& f) {
        for (const std::size_t n : {2u, 9u, 40u, 333u}) {
            std::vector<A> a = integers<A>(n, 0, 1);
            std::vector<B> b = integers<B>(n, 0, 2);
            const std::vector<A> again = a;
            a.insert(a.end(), again.begin(), again.end());
            auto* part = reinterpret_cast<Orv32s*>(b.data());
            for (std::size_t i = 0; i < n * unit_of<B>; ++i) part[i] = std::max(part[i], -INT_MAX);
            for (std::size_t i = 0; i < n; ++i) {
                B opposite = b[i];
                if constexpr (Complex<B>) opposite = {-opposite.re, -opposite.im};
                else opposite = -opposite;
                b.push_back(opposite);
            }
            a.insert(a.begin(), by_part<A>([](int) { return PartOf<A>{3}; }));
            b.insert(b.begin(), by_part<B>([](int) { return PartOf<B>{5}; }));
            auto call = reduction(f, a, b);
            const D want = call.with(0).result();
            for (const unsigned state : {0u + round_up, 0u + round_down, 0u + round_to_zero})
                if (!call.in_state(state).gives(want)) return;
        }
    });
}

// ---- Floats

/// Where all sums are exact, every order gives the same.
TEST(DotProd, of_small_integers_in_floats_is_exact)
{
    for_floats([]<class A, class B, class D>(const Dot<A, B, D>& f) {
        std::vector<int> lengths = lengths_of_sums();
        lengths.push_back(8200);
        for (const int length : lengths) {
            const auto n = static_cast<std::size_t>(length);
            const std::vector<A> a = whole_numbers<A>(n, n, 20);
            const std::vector<B> b = whole_numbers<B>(n + 1, n, 20);
            if (!reduction(f, a, b).gives(exact_dot<D>(a, b))) return;
        }
    });
}

/// Bits of the result do not depend on where the sources lie; its error is that of as many products and additions.
TEST(DotProd, of_floats_is_near_and_the_same_everywhere)
{
    for_floats([]<class A, class B, class D>(const Dot<A, B, D>& f) {
        for (const std::size_t n :
             {1u, 2u, 3u, 5u, 7u, 8u, 9u, 15u, 16u, 17u, 31u, 32u, 33u, 64u, 65u, 100u, 1000u, 5003u}) {
            const std::vector<A> a = signal<A>(n, n);
            const std::vector<B> b = signal<B>(n + 1, n, 0.25);
            const auto exact = products<long double>(a, b);
            const auto call = reduction(f, a, b);
            const D got = call.result();
            const auto* part = reinterpret_cast<const PartOf<D>*>(&got);
            for (std::size_t k = 0; k < unit_of<D>; ++k) {
                const long double eps = std::numeric_limits<PartOf<D>>::epsilon() / 2;
                const long double error = exact.size[k] * eps * static_cast<long double>(2 * n + 1);
                EXPECT_LE(std::fabs(static_cast<long double>(part[k]) - exact.part[k]), error) << call.text();
            }
            if (!call.gives(got)) return;
        }
    });
}

/// Two rounded products that cancel leave nothing, wherever they are: no product is fused into an addition.
TEST(DotProd, products_are_rounded)
{
    const auto element = [](auto value, auto type) {
        using T = decltype(type);
        if constexpr (Complex<T>) return T{static_cast<PartOf<T>>(value), 0};
        else return static_cast<T>(value);
    };
    for_floats([&]<class A, class B, class D>(const Dot<A, B, D>& f) {
        const A a = element(sizeof(PartOf<A>) == 4 ? 1 + 0x1.8p-22 : 1 + 0x1.8p-51, A());
        const B b = element(sizeof(PartOf<B>) == 4 ? 1 + 0x1.4p-21 : 1 + 0x1.4p-50, B());
        const B minus_b = element(-(sizeof(PartOf<B>) == 4 ? 1 + 0x1.4p-21 : 1 + 0x1.4p-50), B());
        for (const std::size_t n : {2u, 9u, 40u, 70u})
            for (std::size_t i = 0; i < n; ++i)
                for (std::size_t j = i + 1; j < n; ++j) {
                    std::vector<A> x(n);
                    std::vector<B> y(n);
                    x[i] = x[j] = a;
                    y[i] = b;
                    y[j] = minus_b;
                    if (!expect_value(f, reduction(f, x, y).result(), D())) {
                        ADD_FAILURE() << f.name() << ", elements " << i << " and " << j << " of " << n;
                        return;
                    }
                }
    });
}

/// An element at any place takes part once.
TEST(DotProd, every_element_counts)
{
    for_floats([]<class A, class B, class D>(const Dot<A, B, D>& f) {
        for (std::size_t n = 1; n <= 70; ++n)
            for (std::size_t i = 0; i < n; ++i) {
                std::vector<A> a(n);
                const std::vector<B> b = whole_numbers<B>(n, n, 50);
                a[i] = whole_numbers<A>(i, 1, 50)[0];
                if (!expect_value(f, reduction(f, a, b).result(), exact_dot<D>(a, b))) return;
            }
    });
}

TEST(DotProd, of_what_is_no_number_is_none)
{
    for_floats([]<class A, class B, class D>(const Dot<A, B, D>& f) {
        for (const std::size_t n : {1u, 3u, 8u, 17u, 70u})
            for (std::size_t i = 0; i < n; ++i) {
                const std::vector<A> a = signal<A>(n, n);
                std::vector<B> b = signal<B>(n, n);
                constexpr auto nan = std::numeric_limits<PartOf<B>>::quiet_NaN();
                if constexpr (Complex<B>) b[i] = {nan, nan};
                else b[i] = nan;
                constexpr auto none = static_cast<PartOf<D>>(nan);
                if (!expect_value(f, reduction(f, a, b).result(), by_part<D>([](int) { return none; }))) return;
            }
    });
}

/// Wider results hold what the sources' type does not.
TEST(DotProd, wide_results_lose_nothing)
{
    const std::vector<Orv32f> x = {0x1p100f, 1 + 0x1p-23f}, y = {0x1p100f, 1 + 0x1p-23f};
    EXPECT_TRUE(reduction(ORV_EXPORT(orvsDotProd_32f64f), x, y).gives(0x1p200));
    const std::vector<Orv32f> small = {1 + 0x1p-23f};
    EXPECT_TRUE(reduction(ORV_EXPORT(orvsDotProd_32f64f), small, small).gives(1 + 0x1p-22 + 0x1p-46));
    const std::vector<Orv32fc> z = {{1 + 0x1p-23f, 0x1p-30f}};
    EXPECT_TRUE(
        reduction(ORV_EXPORT(orvsDotProd_32f32fc64fc), small, z).gives({1 + 0x1p-22 + 0x1p-46, 0x1p-30 + 0x1p-53}));
    EXPECT_TRUE(
        reduction(ORV_EXPORT(orvsDotProd_32fc64fc), z, z).gives({1 + 0x1p-22 + 0x1p-46 - 0x1p-60, 0x1p-29 + 0x1p-52}));
    EXPECT_TRUE(reduction(ORV_EXPORT(orvsDotProd_32f), small, small).gives(1 + 0x1p-22f));
}

// ---- Calls

TEST(DotProd, checks_pointers_before_length)
{
    const auto check = [](const auto& f) { expect_checks(f); };
    for_plain_integers(check);
    for_scaled_16_bits(check);
    for_scaled_32_bits(check);
    for_floats(check);
}

} // namespace
} // namespace orvtest
