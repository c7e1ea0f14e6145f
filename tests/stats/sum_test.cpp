// *sum = src[0] + ... + src[len-1].
#include "orvs/stats.h"

#include "tests/arith/caller_state.h"
#include "tests/arith/endless.h"
#include "tests/stats/float_sums.h"
#include "tests/stats/inputs.h"
#include "tests/stats/reductions.h"
#include "tests/support/compare.h"

#include <gtest/gtest.h>

namespace orvtest {
namespace {

template <class T>
using FloatSum = Export<OrvStatus, const T*, int, T*, Orv32s>;
template <class S, class D>
using IntegerSum = Export<OrvStatus, const S*, int, D*, int>;

template <class F>
void for_all_integers(const F& f)
{
    f(ORV_EXPORT(orvsSum_16s_Sfs));
    f(ORV_EXPORT(orvsSum_16sc_Sfs));
    f(ORV_EXPORT(orvsSum_16s32s_Sfs));
    f(ORV_EXPORT(orvsSum_16sc32sc_Sfs));
    f(ORV_EXPORT(orvsSum_32s_Sfs));
}

// ---- Floats

/// Every road: one by one, vectors with and without elements before them, blocks, and what is left of them.
std::vector<std::size_t> lengths_of_roads()
{
    std::vector<std::size_t> lengths = {127,  128,  255,  1023, 4095, 4096,  4097,  4104,  8191,  8192,
                                        8193, 8199, 8200, 8223, 8224, 16383, 16391, 16447, 65536, 65567};
    for (std::size_t n = 1; n <= 100; ++n) lengths.push_back(n);
    return lengths;
}

template <class T>
T single(const Sums& sums)
{
    return by_part<T>([&](int k) { return static_cast<PartOf<T>>(sums.part[k]); });
}

template <class T>
bool expect_in_order(const FloatSum<T>& f, const std::vector<T>& x, int hint, unsigned state = to_nearest)
{
    return reduction(f, x).with(hint).in_state(state).gives_at([&](std::size_t address) {
        return single<T>(ordered_sum(parts(x), x.size() * unit_of<T>, unit_of<T>, address, hint));
    });
}
template <class T>
bool expect_in_order(const Export<OrvStatus, const T*, int, T*>& f, const std::vector<T>& x,
                     unsigned state = to_nearest)
{
    return reduction(f, x).in_state(state).gives_at(
        [&](std::size_t) { return single<T>(ordered_sum(parts(x), x.size() * unit_of<T>, unit_of<T>)); });
}

template <class T>
void expect_order(const FloatSum<T>& f)
{
    for (std::size_t n = 12; n <= 64; ++n) // both sides of the roads' limits
        for (const std::uint64_t seed : {1u, 2u, 3u, 4u, 5u})
            for (const int hint : {accurate, fast})
                if (!expect_in_order(f, cancelling<T>(1000 * seed + n, n), hint)) return;
    for (const std::size_t n : lengths_of_roads())
        for (const int hint : {accurate, fast})
            if (!expect_in_order(f, signal<T>(n, n), hint) || !expect_in_order(f, cancelling<T>(n, n), hint) ||
                !expect_in_order(f, signal<T>(n, n, 100), hint) || !expect_in_order(f, drawn<T>(f.name(), n), hint) ||
                !expect_in_order(f, drawn<T>(f.name(), n, Floats::any), hint))
                return;
}
template <class T>
void expect_order(const Export<OrvStatus, const T*, int, T*>& f)
{
    for (const std::size_t n : lengths_of_roads())
        if (!expect_in_order(f, signal<T>(n, n)) || !expect_in_order(f, cancelling<T>(n, n)) ||
            !expect_in_order(f, drawn<T>(f.name(), n)) || !expect_in_order(f, drawn<T>(f.name(), n, Floats::any)))
            return;
}

TEST(Sum, adds_floats_in_order) { expect_order(ORV_EXPORT(orvsSum_32f)); }
TEST(Sum, adds_complex_floats_in_order) { expect_order(ORV_EXPORT(orvsSum_32fc)); }
TEST(Sum, adds_doubles_in_order) { expect_order(ORV_EXPORT(orvsSum_64f)); }
TEST(Sum, adds_complex_doubles_in_order) { expect_order(ORV_EXPORT(orvsSum_64fc)); }

TEST(Sum, every_hint_but_one_asks_for_accuracy)
{
    const auto check = []<class T>(const FloatSum<T>& f) {
        for (const std::size_t n : {1u, 15u, 16u, 60u, 9000u}) {
            const std::vector<T> x = signal<T>(n, n, 10);
            const T want = reduction(f, x).with(accurate).result();
            for (const int hint : {2, 3, 4, -1, 0x101, INT_MIN, INT_MAX})
                expect_value(f, reduction(f, x).with(hint).result(), want);
        }
    };
    check(ORV_EXPORT(orvsSum_32f));
    check(ORV_EXPORT(orvsSum_32fc));
}

/// 2^24 + 1 + 1 ...: single precision would stay where it is, and the fast road loses no more than what a block does.
TEST(Sum, small_floats_are_not_lost)
{
    std::vector<Orv32f> x(1 << 20, 1);
    x[0] = 0x1p24f;
    EXPECT_TRUE(reduction(ORV_EXPORT(orvsSum_32f), x).with(accurate).gives(0x1p24f + 0x1p20f)); // less 1: a tie
    const Orv32f quick = reduction(ORV_EXPORT(orvsSum_32f), x).with(fast).result();
    EXPECT_NEAR(quick, 0x1.1p24f, 256);
}

TEST(Sum, of_one_element_is_the_element)
{
    const auto check = []<class T, class... Last>(const Export<OrvStatus, const T*, int, T*, Last...>& f) {
        for (const T x : drawn<T>(f.name(), 100, Floats::no_nan)) {
            const T want = by_part<T>([&](int k) { return reinterpret_cast<const PartOf<T>*>(&x)[k] + PartOf<T>(0); });
            auto call = reduction(f, std::vector{x});
            if constexpr (sizeof...(Last) != 0) {
                if (!call.with(fast).gives(want) || !call.with(accurate).gives(want)) return;
            } else if (!call.gives(want)) return;
        }
    };
    check(ORV_EXPORT(orvsSum_32f));
    check(ORV_EXPORT(orvsSum_32fc));
    check(ORV_EXPORT(orvsSum_64f));
    check(ORV_EXPORT(orvsSum_64fc));
}

TEST(Sum, floats_follow_the_state)
{
    for (const unsigned state :
         {0u + round_up, 0u + round_down, round_to_zero | flush_to_zero, 0u + denormals_are_zero})
        for (const std::size_t n : {1u, 5u, 17u, 30u, 60u, 103u, 8300u}) {
            for (const int hint : {accurate, fast}) {
                expect_in_order(ORV_EXPORT(orvsSum_32f), signal<Orv32f>(n, n), hint, state);
                expect_in_order(ORV_EXPORT(orvsSum_32f), drawn<Orv32f>("state", n), hint, state);
                expect_in_order(ORV_EXPORT(orvsSum_32fc), signal<Orv32fc>(n, n), hint, state);
            }
            expect_in_order(ORV_EXPORT(orvsSum_64f), signal<Orv64f>(n, n), state);
            expect_in_order(ORV_EXPORT(orvsSum_64fc), drawn<Orv64fc>("state", n), state);
        }
}

// ---- Integers

/// The law of scale factors over the exact sum.
template <class D, class S>
D scaled_sum(const std::vector<S>& x, int scale)
{
    const ExactSums sums = exact_sums(x);
    return by_part<D>([&](int k) { return saturate<PartOf<D>>(scale_law(Wide(sums.part[k]), scale)); });
}

template <class S, class D>
bool expect_scaled(const IntegerSum<S, D>& f, const std::vector<S>& x, int scale, unsigned state = to_nearest)
{
    return reduction(f, x).with(scale).in_state(state).gives(scaled_sum<D>(x, scale));
}

TEST(Sum, integers_are_summed_exactly)
{
    for_all_integers([]<class S, class D>(const IntegerSum<S, D>& f) {
        for (const int length : lengths_of_sums()) {
            const auto n = static_cast<std::size_t>(length);
            const std::vector<S> any = drawn<S>(f.name(), n), small = whole_numbers<S>(n, n, 9);
            for (const int scale : {0, 1, 3, 16})
                if (!expect_scaled(f, any, scale) || !expect_scaled(f, small, scale)) return;
        }
    });
}

TEST(Sum, all_scales)
{
    for_all_integers([]<class S, class D>(const IntegerSum<S, D>& f) {
        for (const int scale : scales(70))
            for (const std::size_t n : {1u, 2u, 3u, 7u, 8u, 16u, 33u, 64u, 100u})
                for (const int limit : {1, 3, 100, 32767}) {
                    const std::vector<S> x = whole_numbers<S>(seed_of("scales", n), n, limit);
                    const D want = scaled_sum<D>(x, scale), got = reduction(f, x).with(scale).result();
                    if (!expect_value(f, got, want)) {
                        ADD_FAILURE() << f.name() << ", length " << n << ", scale " << scale;
                        return;
                    }
                }
    });
}

/// Ties, and both sides of where results saturate.
TEST(Sum, rounds_to_even_and_saturates)
{
    const auto check = [](std::vector<Orv32s> x, int scale, Orv32s want) {
        EXPECT_TRUE(reduction(ORV_EXPORT(orvsSum_32s_Sfs), x).with(scale).gives(want));
    };
    check(std::vector<Orv32s>(1024, 1 << 30), 0, INT_MAX); // 2^40
    check(std::vector<Orv32s>(1024, -(1 << 30)), 0, INT_MIN);
    check(std::vector<Orv32s>(1024, 1 << 30), 10, 1 << 30);
    check({0x40000000}, -1, INT_MAX);
    check({0x3FFFFFFF}, -1, 0x7FFFFFFE);
    check({-0x40000000}, -1, INT_MIN);
    check({3}, 1, 2);
    check({1, 2}, 1, 2);
    check({1}, 1, 0);
    check({-1}, 1, 0);
    check({-3}, 1, -2);
    check({5}, 1, 2);
    check({1}, -31, INT_MAX);
    check({-1}, -31, INT_MIN);
    check({-1}, INT_MIN, INT_MIN);
    check({0}, INT_MIN, 0);
    check({INT_MAX, INT_MAX}, 32, 1);
    check({INT_MIN, INT_MIN}, 32, -1);
    check({INT_MIN}, 32, 0); // half
    check({INT_MAX, 1, 1}, 0, INT_MAX);
    check({INT_MIN, -1}, 0, INT_MIN);

    // Sums that are no results: each part of a complex one for itself.
    const std::vector<Orv16sc> z = {{32767, -32768}, {1, -1}};
    EXPECT_TRUE(reduction(ORV_EXPORT(orvsSum_16sc_Sfs), z).with(0).gives({32767, -32768}));
    EXPECT_TRUE(reduction(ORV_EXPORT(orvsSum_16sc_Sfs), z).with(1).gives({16384, -16384})); // -16384.5
    EXPECT_TRUE(reduction(ORV_EXPORT(orvsSum_16sc32sc_Sfs), z).with(-16).gives({INT_MAX, INT_MIN}));
    EXPECT_TRUE(reduction(ORV_EXPORT(orvsSum_16sc32sc_Sfs), z).with(-15).gives({1 << 30, -32769 * (1 << 15)}));
    EXPECT_TRUE(reduction(ORV_EXPORT(orvsSum_16sc32sc_Sfs), z).with(1200).gives({0, 0}));
    EXPECT_TRUE(reduction(ORV_EXPORT(orvsSum_16s32s_Sfs), std::vector<Orv16s>{1}).with(-1100).gives(INT_MAX));
    EXPECT_TRUE(reduction(ORV_EXPORT(orvsSum_16s32s_Sfs), std::vector<Orv16s>{0}).with(-1100).gives(0));
}

/// More than 32-bit lanes hold.
TEST(Sum, long_vectors_of_extremes)
{
    for (const std::size_t n : {32767u, 65535u, 65536u, 65537u, 131072u, 524287u, 524288u, 1048591u, 2100000u})
        for (const Orv16s value : {Orv16s{-32768}, Orv16s{32767}}) {
            const std::vector<Orv16s> x(n, value);
            const std::vector<Orv16sc> z(n, {value, static_cast<Orv16s>(~value)});
            for (const int scale : {0, 12, 16}) {
                if (!expect_scaled(ORV_EXPORT(orvsSum_16s32s_Sfs), x, scale)) return;
                if (!expect_scaled(ORV_EXPORT(orvsSum_16sc32sc_Sfs), z, scale)) return;
            }
            if (!expect_scaled(ORV_EXPORT(orvsSum_16s_Sfs), x, 21)) return;
            if (!expect_scaled(ORV_EXPORT(orvsSum_16sc_Sfs), z, 21)) return;
            const std::vector<Orv32s> wide(n, value * 65536);
            if (!expect_scaled(ORV_EXPORT(orvsSum_32s_Sfs), wide, 20)) return;
        }
}

TEST(Sum, integers_do_not_depend_on_the_state)
{
    for_all_integers([]<class S, class D>(const IntegerSum<S, D>& f) {
        for (const unsigned state : {0u + round_up, 0u + round_down, 0u + round_to_zero})
            for (const std::size_t n : {1u, 2u, 9u, 40u, 333u})
                for (const int scale : {-3, 0, 1, 5, 12})
                    if (!expect_scaled(f, whole_numbers<S>(n, n, 3000), scale, state)) return;
    });
}

// ---- Calls

#ifdef ORV_ENDLESS_ARRAYS
/// More parts than an int counts: zeros, and something at both ends.
TEST(Sum, without_end)
{
    EndlessArray<Orv32fc> array;
    Orv32fc* x = array.data();
    constexpr int n = EndlessArray<Orv32fc>::length;
    x[0] = {1, 2};
    x[n - 1] = {4, 8};
    for (const int hint : {accurate, fast}) {
        Orv32fc sum = {};
        EXPECT_EQ(ORV_EXPORT(orvsSum_32fc)(x, n, &sum, hint), orvOk);
        EXPECT_TRUE(sum.re == 5 && sum.im == 10) << sum.re << ", " << sum.im;
    }
}
#endif

TEST(Sum, checks_pointers_before_length)
{
    expect_checks(ORV_EXPORT(orvsSum_32f));
    expect_checks(ORV_EXPORT(orvsSum_32fc));
    expect_checks(ORV_EXPORT(orvsSum_64f));
    expect_checks(ORV_EXPORT(orvsSum_64fc));
    for_all_integers([](const auto& f) { expect_checks(f); });
}

} // namespace
} // namespace orvtest
