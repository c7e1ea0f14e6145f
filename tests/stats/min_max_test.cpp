// The largest and the smallest value or magnitude.
#include "orvs/stats.h"

#include "tests/stats/extremes.h"
#include "tests/stats/reductions.h"
#include "tests/support/compare.h"

#include <gtest/gtest.h>

namespace orvtest {
namespace {

template <class T>
using One = Export<OrvStatus, const T*, int, T*>;
template <class T>
using Both = Export<OrvStatus, const T*, int, T*, T*>;

/// f of each function and the order that it looks for.
template <class F>
void for_integers(const F& f)
{
    f(ORV_EXPORT(orvsMax_16s), Greater());
    f(ORV_EXPORT(orvsMax_32s), Greater());
    f(ORV_EXPORT(orvsMin_16s), Less());
    f(ORV_EXPORT(orvsMin_32s), Less());
}
template <class F>
void for_single(const F& f)
{
    f(ORV_EXPORT(orvsMax_32f), Greater());
    f(ORV_EXPORT(orvsMin_32f), Less());
}
template <class F>
void for_double(const F& f)
{
    f(ORV_EXPORT(orvsMax_64f), Greater());
    f(ORV_EXPORT(orvsMin_64f), Less());
}
template <class F>
void for_floats(const F& f)
{
    for_single(f);
    for_double(f);
}
template <class F>
void for_magnitudes(const F& f)
{
    f(ORV_EXPORT(orvsMaxAbs_16s), Greater());
    f(ORV_EXPORT(orvsMaxAbs_32s), Greater());
    f(ORV_EXPORT(orvsMinAbs_16s), Less());
    f(ORV_EXPORT(orvsMinAbs_32s), Less());
}
template <class F>
void for_both(const F& f)
{
    f(ORV_EXPORT(orvsMinMax_8u));
    f(ORV_EXPORT(orvsMinMax_16s));
    f(ORV_EXPORT(orvsMinMax_16u));
    f(ORV_EXPORT(orvsMinMax_32s));
    f(ORV_EXPORT(orvsMinMax_32u));
    f(ORV_EXPORT(orvsMinMax_32f));
    f(ORV_EXPORT(orvsMinMax_64f));
}

/// That of finite values, but for a few infinities.
template <class T>
std::vector<T> mixed(std::size_t n)
{
    return values<T>(n, n % 3 == 0 ? Floats::no_nan : Floats::finite);
}

/// Vectors of single precision are filled up with finite values, which are better than infinities of the other sign.
template <class Order>
Orv32f padded_extreme(const std::vector<Orv32f>& x, std::size_t address, Order order)
{
    std::size_t before = elements_before(address, 4);
    if (before > x.size()) before = 0;
    const bool is_padded = before > 0 || (x.size() - before) % 8 != 0;
    constexpr Orv32f most = std::numeric_limits<Orv32f>::max();
    const Orv32f padding = Order::is_of_maximum ? -most : most, found = extreme(x, order);
    return is_padded && order(padding, found) ? padding : found;
}

TEST(MinMax, one_extreme)
{
    const auto check = []<class T, class Order>(const One<T>& f, Order order) {
        for (const int length : lengths_of_searches()) {
            const auto n = static_cast<std::size_t>(length);
            for (const std::vector<T>& x : {mixed<T>(n), repetitive<T>(n)}) {
                const auto want = [&](std::size_t address) {
                    if constexpr (std::is_same_v<T, Orv32f>) return padded_extreme(x, address, order);
                    else return extreme(x, order);
                };
                if (!reduction(f, x).gives_at(want)) return;
            }
        }
    };
    for_integers(check);
    for_floats(check);
}

TEST(MinMax, both_extremes)
{
    for_both([]<class T>(const Both<T>& f) {
        for (const int length : lengths_of_searches()) {
            const auto n = static_cast<std::size_t>(length);
            for (const std::vector<T>& x : {mixed<T>(n), repetitive<T>(n)})
                if (!reduction(f, x).gives(extreme(x, Less()), extreme(x, Greater()))) return;
        }
    });
}

/// Limited to what the type holds.
TEST(MinMax, magnitudes)
{
    for_magnitudes([]<class T, class Order>(const One<T>& f, Order order) {
        constexpr T lowest = std::numeric_limits<T>::min(), highest = std::numeric_limits<T>::max();
        for (const int length : lengths_of_searches()) {
            const auto n = static_cast<std::size_t>(length);
            std::vector<T> large = repetitive<T>(n);
            for (T& value : large) value = static_cast<T>(value % 2 == 0 ? lowest + value - 4 : highest - value + 3);
            for (const std::vector<T>& x : {values<T>(n), repetitive<T>(n), large, std::vector<T>(n, lowest)})
                if (!reduction(f, x).gives(limited<T>(extreme(magnitudes(x), order)))) return;
        }
    });
    EXPECT_TRUE(reduction(ORV_EXPORT(orvsMaxAbs_16s), std::vector<Orv16s>{-32768}).gives(32767));
    EXPECT_TRUE(reduction(ORV_EXPORT(orvsMaxAbs_32s), std::vector<Orv32s>{INT_MIN}).gives(INT_MAX));
    EXPECT_TRUE(reduction(ORV_EXPORT(orvsMinAbs_16s), std::vector<Orv16s>{-32768}).gives(32767));
    EXPECT_TRUE(reduction(ORV_EXPORT(orvsMinAbs_32s), std::vector<Orv32s>{INT_MIN, -5}).gives(5));
}

/// The extreme at each place of each length.
TEST(MinMax, extreme_at_every_place)
{
    const auto spoilt = []<class T>(T, std::size_t n, std::size_t i, int value) {
        std::vector<T> x = repetitive<T>(n);
        x[i] = static_cast<T>(value);
        return x;
    };
    const auto check = [&]<class T, class Order>(const One<T>& f, Order) {
        for (std::size_t n = 1; n <= 80; ++n)
            for (std::size_t i = 0; i < n; ++i) {
                const int value = Order::is_of_maximum ? 100 : 1;
                if (!expect_value(f, reduction(f, spoilt(T(), n, i, value)).result(), static_cast<T>(value))) return;
            }
    };
    for_integers(check);
    for_floats(check);
    for_magnitudes(check);
    for_both([&]<class T>(const Both<T>& f) {
        for (std::size_t n = 2; n <= 80; ++n)
            for (std::size_t i = 0; i < n; ++i) {
                std::vector<T> x = spoilt(T(), n, i, 100);
                x[(i + n / 2) % n] = 1;
                const auto [min, max] = reduction(f, x).results();
                if (!expect_value(f, min, 1) || !expect_value(f, max, 100)) return;
            }
    });
}

// ---- Floats that are no numbers

template <class T>
constexpr T nan = std::numeric_limits<T>::quiet_NaN();

/// One that is followed by whole vectors is forgotten, and perhaps what was before it.
TEST(MinMax, not_a_number_is_forgotten)
{
    const auto check = []<class T, class Order>(const auto& f, T, Order order, std::size_t which) {
        for (const std::size_t n : {100u, 101u, 107u, 333u})
            for (std::size_t i = 0; i + 70 < n; ++i) {
                std::vector<T> x = signal<T>(n, n);
                x[i] = nan<T>;
                T got;
                if constexpr (requires { reduction(f, x).result(); }) got = reduction(f, x).result();
                else got = which == 0 ? std::get<0>(reduction(f, x).results()) : std::get<1>(reduction(f, x).results());
                EXPECT_EQ(std::count(x.begin(), x.end(), got), 1) << f.name() << ", length " << n << ", place " << i;
                const std::vector<T> behind(x.begin() + static_cast<std::ptrdiff_t>(i + 70), x.end());
                EXPECT_FALSE(order(extreme(behind, order), got)) << f.name() << ", length " << n << ", place " << i;
            }
    };
    for_floats([&]<class T, class Order>(const One<T>& f, Order order) { check(f, T(), order, 0); });
    for (const std::size_t which : {0u, 1u}) {
        const auto both = [&](const auto& f, auto type) {
            if (which == 0) check(f, type, Less(), which);
            else check(f, type, Greater(), which);
        };
        both(ORV_EXPORT(orvsMinMax_32f), Orv32f());
        both(ORV_EXPORT(orvsMinMax_64f), Orv64f());
    }
}

TEST(MinMax, of_whole_vectors_of_not_a_numbers_is_one)
{
    for_double([]<class T, class Order>(const One<T>& f, Order) {
        for (const std::size_t n : {1u, 3u, 4u, 8u, 64u, 67u})
            if (!reduction(f, std::vector<T>(n, nan<T>)).gives(nan<T>)) return;
    });
    for (const std::size_t n : {1u, 3u, 8u, 9u, 64u, 67u}) {
        const std::vector<Orv32f> x(n, nan<Orv32f>);
        EXPECT_TRUE(reduction(ORV_EXPORT(orvsMinMax_32f), x).gives(nan<Orv32f>, nan<Orv32f>));
        const std::vector<Orv64f> y(n, nan<Orv64f>);
        EXPECT_TRUE(reduction(ORV_EXPORT(orvsMinMax_64f), y).gives(nan<Orv64f>, nan<Orv64f>));
    }
    // At a multiple of 32 bytes nothing is filled up.
    for_single([](const auto& f, auto) {
        for (const std::size_t n : {8u, 16u, 24u, 64u})
            expect_value(f, reduction(f, std::vector<Orv32f>(n, nan<Orv32f>)).result(), nan<Orv32f>);
    });
}

/// Infinities are values like others, but for what single vectors are filled up with.
TEST(MinMax, of_infinities)
{
    for_floats([]<class T, class Order>(const One<T>& f, Order order) {
        constexpr T infinity = std::numeric_limits<T>::infinity();
        for (const std::size_t n : {1u, 2u, 3u, 4u, 7u, 8u, 9u, 15u, 16u, 17u, 32u, 50u})
            for (const T value : {infinity, -infinity}) {
                const std::vector<T> x(n, value);
                const auto want = [&](std::size_t address) {
                    if constexpr (std::is_same_v<T, Orv32f>) return padded_extreme(x, address, order);
                    else return value;
                };
                if (!reduction(f, x).gives_at(want)) return;
            }
    });
}

TEST(MinMax, of_zeros_of_both_signs_is_a_zero)
{
    for_floats([]<class T, class Order>(const One<T>& f, Order) {
        for (std::size_t n = 1; n < 40; ++n) {
            std::vector<T> x(n, T(0));
            for (std::size_t i = 0; i < n; i += 3) x[i] = -T(0);
            EXPECT_EQ(reduction(f, x).result(), 0);
        }
    });
}

// ---- Calls

TEST(MinMax, checks_pointers_before_length)
{
    const auto check = [](const auto& f, auto) { expect_checks(f); };
    for_integers(check);
    for_floats(check);
    for_magnitudes(check);
    for_both([](const auto& f) { expect_checks(f); });
}

} // namespace
} // namespace orvtest
