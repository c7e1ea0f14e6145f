// *order = how many bits the largest magnitude takes.
#include "orvs/stats.h"

#include "tests/arith/caller_state.h"
#include "tests/stats/extremes.h"
#include "tests/stats/reductions.h"
#include "tests/support/compare.h"

#include <bit>
#include <gtest/gtest.h>

namespace orvtest {
namespace {

template <class T>
using Order = Export<OrvStatus, const T*, int, Orv32s*>;

template <class F>
void for_integers(const F& f)
{
    f(ORV_EXPORT(orvsMaxOrder_16s));
    f(ORV_EXPORT(orvsMaxOrder_32s));
}
template <class F>
void for_floats(const F& f)
{
    f(ORV_EXPORT(orvsMaxOrder_32f));
    f(ORV_EXPORT(orvsMaxOrder_64f));
}

/// The order of one integer or finite float. Subnormal numbers have that of their exponent field.
template <class T>
Orv32s order_of(T x)
{
    if constexpr (std::integral<T>) {
        Orv32s order = 0;
        for (std::int64_t m = std::abs(std::int64_t{x}); m > 0; m /= 2) ++order;
        return order;
    } else {
        const T m = std::fabs(x);
        if (m == 0) return 0;
        if (m < std::numeric_limits<T>::min()) return std::numeric_limits<T>::min_exponent - 1;
        int order = 0;
        std::frexp(m, &order);
        return order;
    }
}

/// That of the largest finite magnitude.
template <class T>
Orv32s max_order(const std::vector<T>& x)
{
    bool all_zero = true;
    Orv32s order = INT_MIN;
    for (const T value : x) {
        if constexpr (std::floating_point<T>) {
            if (!std::isfinite(value)) continue;
        }
        if (value == 0) continue;
        all_zero = false;
        order = std::max(order, order_of(value));
    }
    return all_zero ? 0 : order;
}

template <class T>
bool expect_order(const Order<T>& f, const std::vector<T>& x)
{
    OrvStatus status = orvOk;
    if constexpr (std::floating_point<T>) {
        if (!std::all_of(x.begin(), x.end(), [](T value) { return std::isfinite(value); })) status = orvWrnNanInData;
    }
    return reduction(f, x).expecting(status).gives(max_order(x));
}

TEST(MaxOrder, of_integers)
{
    for_integers([]<class T>(const Order<T>& f) {
        for (const int length : lengths_of_searches()) {
            const auto n = static_cast<std::size_t>(length);
            if (!expect_order(f, drawn<T>("orders", n)) || !expect_order(f, repetitive<T>(n)) ||
                !expect_order(f, std::vector<T>(n)))
                return;
        }
    });
}

TEST(MaxOrder, of_floats)
{
    for_floats([]<class T>(const Order<T>& f) {
        for (const int length : lengths_of_searches()) {
            const auto n = static_cast<std::size_t>(length);
            if (!expect_order(f, drawn<T>("orders", n, Floats::finite)) || !expect_order(f, signal<T>(n, n)) ||
                !expect_order(f, drawn<T>("orders", n, Floats::any)) || !expect_order(f, std::vector<T>(n, -T(0))))
                return;
        }
    });
}

/// Every order of the type, alone and at any place among smaller ones.
TEST(MaxOrder, of_powers_of_two)
{
    for_integers([]<class T>(const Order<T>& f) {
        for (int bit = 0; bit < 8 * static_cast<int>(sizeof(T)); ++bit) {
            const std::int64_t power = std::int64_t{1} << bit;
            for (const std::int64_t value : {power, power - 1, -power, 1 - power}) {
                const auto x = static_cast<T>(value);
                if (x != value) continue;
                expect_value(f, reduction(f, std::vector{x}).result(), order_of(x));
                std::vector<T> many(53);
                many[static_cast<std::size_t>(bit) % 53] = x;
                expect_value(f, reduction(f, many).result(), order_of(x));
            }
        }
    });
    for_floats([]<class T>(const Order<T>& f) {
        using Limits = std::numeric_limits<T>;
        for (int exponent = Limits::min_exponent - 1; exponent < Limits::max_exponent; ++exponent) {
            const T power = std::ldexp(T(1), exponent), below = std::nextafter(power, T(0));
            expect_value(f, reduction(f, std::vector{-power}).result(), exponent + 1);
            expect_value(f, reduction(f, std::vector{below, T(0), below}).result(), exponent); // subnormal or not
        }
    });
}

TEST(MaxOrder, of_known_values)
{
    const auto check = [](const auto& f, auto x, Orv32s want, OrvStatus status = orvOk) {
        EXPECT_TRUE(reduction(f, x).expecting(status).gives(want));
    };
    check(ORV_EXPORT(orvsMaxOrder_16s), std::vector<Orv16s>{-32768}, 16);
    check(ORV_EXPORT(orvsMaxOrder_16s), std::vector<Orv16s>{32767}, 15);
    check(ORV_EXPORT(orvsMaxOrder_16s), std::vector<Orv16s>{-32767}, 15);
    check(ORV_EXPORT(orvsMaxOrder_16s), std::vector<Orv16s>{1}, 1);
    check(ORV_EXPORT(orvsMaxOrder_16s), std::vector<Orv16s>{0, 0, 0}, 0);
    check(ORV_EXPORT(orvsMaxOrder_32s), std::vector<Orv32s>{INT_MIN}, 32);
    check(ORV_EXPORT(orvsMaxOrder_32s), std::vector<Orv32s>{INT_MAX, 5}, 31);

    constexpr Orv32f infinity = std::numeric_limits<Orv32f>::infinity();
    constexpr Orv32f nan = std::numeric_limits<Orv32f>::quiet_NaN();
    const auto single = [&](std::vector<Orv32f> x, Orv32s want, OrvStatus status = orvOk) {
        check(ORV_EXPORT(orvsMaxOrder_32f), x, want, status);
        check(ORV_EXPORT(orvsMaxOrder_64f), std::vector<Orv64f>(x.begin(), x.end()), want, status);
    };
    single({1}, 1);
    single({0.5f}, 0);
    single({0.25f}, -1);
    single({0}, 0);
    single({infinity}, 0, orvWrnNanInData);
    single({infinity, 1}, 1, orvWrnNanInData);
    single({-infinity, 0, 8}, 4, orvWrnNanInData);
    single({nan}, 0, orvWrnNanInData);
    single({-nan, 0.25f}, -1, orvWrnNanInData);
    check(ORV_EXPORT(orvsMaxOrder_32f), std::vector<Orv32f>{std::numeric_limits<Orv32f>::denorm_min()}, -126);
    check(ORV_EXPORT(orvsMaxOrder_64f), std::vector<Orv64f>{std::numeric_limits<Orv64f>::denorm_min()}, -1022);
    check(ORV_EXPORT(orvsMaxOrder_32f), std::vector<Orv32f>{std::numeric_limits<Orv32f>::max()}, 128);
    check(ORV_EXPORT(orvsMaxOrder_64f), std::vector<Orv64f>{std::numeric_limits<Orv64f>::max()}, 1024);
}

/// One at any place, with the largest number beside it.
TEST(MaxOrder, leaves_out_what_is_not_finite)
{
    for_floats([]<class T>(const Order<T>& f) {
        for (const T special : {std::numeric_limits<T>::infinity(), -std::numeric_limits<T>::infinity(),
                                std::numeric_limits<T>::quiet_NaN(), -std::numeric_limits<T>::quiet_NaN()})
            for (std::size_t n = 1; n <= 70; ++n)
                for (std::size_t i = 0; i < n; ++i) {
                    std::vector<T> x = signal<T>(n, n);
                    x[(i + 1) % n] = 1000;
                    x[i] = special;
                    const Orv32s want = n == 1 ? 0 : 10;
                    if (!expect_value(f, reduction(f, x).expecting(orvWrnNanInData).result(), want)) return;
                }
    });
}

/// No operation flag is left, and no state matters.
TEST(MaxOrder, leaves_no_flags)
{
    for_floats([]<class T>(const Order<T>& f) {
        for (const unsigned state : {0u + to_nearest, round_up | flush_to_zero, 0u + denormals_are_zero})
            for (const std::size_t n : {1u, 7u, 16u, 33u, 100u}) {
                std::vector<T> x = signal<T>(n, n);
                x[n / 2] = std::numeric_limits<T>::denorm_min();
                OrvStatus status = orvOk;
                if (n > 1) {
                    x[0] = std::numeric_limits<T>::signaling_NaN();
                    x[n - 1] = std::numeric_limits<T>::infinity();
                    status = orvWrnNanInData;
                }
                Orv32s order = INT_MIN;
                unsigned after;
                {
                    const CallerState scope(state);
                    EXPECT_EQ(f(x.data(), static_cast<int>(n), &order), status);
                    after = _mm_getcsr();
                }
                EXPECT_EQ(after & 1, 0u) << f.name() << ": invalid operation, length " << n;
                expect_value(f, order, max_order(x));
            }
    });
}

// ---- Calls

/// Unlike all others.
TEST(MaxOrder, checks_length_before_pointers)
{
    const auto check = [](const auto& f) {
        ArgumentChecks(f, 4)
            .template bad<1>(0, orvErrBadLength)
            .template bad<1>(-1, orvErrBadLength)
            .template bad<1>(INT_MIN, orvErrBadLength)
            .null_pointers()
            .run();
    };
    for_integers(check);
    for_floats(check);
}

} // namespace
} // namespace orvtest
