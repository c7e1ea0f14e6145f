// Where the largest and the smallest value or magnitude is first.
#include "orvs/stats.h"

#include "tests/stats/extremes.h"
#include "tests/stats/reductions.h"
#include "tests/support/compare.h"

#include <gtest/gtest.h>

namespace orvtest {
namespace {

template <class T>
using One = Export<OrvStatus, const T*, int, T*, Orv32s*>;
template <class T>
using Both = Export<OrvStatus, const T*, int, T*, Orv32s*, T*, Orv32s*>;
template <class T>
using Plain = Export<OrvStatus, const T*, int, T*>;

/// f of each function, the same without a place, and the order that they look for.
template <class F>
void for_integers(const F& f)
{
    f(ORV_EXPORT(orvsMaxIndx_16s), ORV_EXPORT(orvsMax_16s), Greater());
    f(ORV_EXPORT(orvsMaxIndx_32s), ORV_EXPORT(orvsMax_32s), Greater());
    f(ORV_EXPORT(orvsMinIndx_16s), ORV_EXPORT(orvsMin_16s), Less());
    f(ORV_EXPORT(orvsMinIndx_32s), ORV_EXPORT(orvsMin_32s), Less());
}
template <class F>
void for_floats(const F& f)
{
    f(ORV_EXPORT(orvsMaxIndx_32f), ORV_EXPORT(orvsMax_32f), Greater());
    f(ORV_EXPORT(orvsMaxIndx_64f), ORV_EXPORT(orvsMax_64f), Greater());
    f(ORV_EXPORT(orvsMinIndx_32f), ORV_EXPORT(orvsMin_32f), Less());
    f(ORV_EXPORT(orvsMinIndx_64f), ORV_EXPORT(orvsMin_64f), Less());
}
template <class F>
void for_magnitudes(const F& f)
{
    f(ORV_EXPORT(orvsMaxAbsIndx_16s), ORV_EXPORT(orvsMaxAbs_16s), Greater());
    f(ORV_EXPORT(orvsMaxAbsIndx_32s), ORV_EXPORT(orvsMaxAbs_32s), Greater());
    f(ORV_EXPORT(orvsMinAbsIndx_16s), ORV_EXPORT(orvsMinAbs_16s), Less());
    f(ORV_EXPORT(orvsMinAbsIndx_32s), ORV_EXPORT(orvsMinAbs_32s), Less());
}
template <class F>
void for_both(const F& f)
{
    f(ORV_EXPORT(orvsMinMaxIndx_8u));
    f(ORV_EXPORT(orvsMinMaxIndx_16s));
    f(ORV_EXPORT(orvsMinMaxIndx_16u));
    f(ORV_EXPORT(orvsMinMaxIndx_32s));
    f(ORV_EXPORT(orvsMinMaxIndx_32u));
    f(ORV_EXPORT(orvsMinMaxIndx_32f));
    f(ORV_EXPORT(orvsMinMaxIndx_64f));
}

template <class T, class Order>
bool expect_first(const One<T>& f, const std::vector<T>& x, Order order)
{
    return reduction(f, x).gives(extreme(x, order), static_cast<Orv32s>(first_place(x, order)));
}
template <class T>
bool expect_first(const Both<T>& f, const std::vector<T>& x)
{
    return reduction(f, x).gives(extreme(x, Less()), static_cast<Orv32s>(first_place(x, Less())), extreme(x, Greater()),
                                 static_cast<Orv32s>(first_place(x, Greater())));
}

// ---- Numbers

TEST(Indices, one_extreme)
{
    const auto check = []<class T, class Order>(const One<T>& f, const auto&, Order order) {
        for (const int length : lengths_of_searches()) {
            const auto n = static_cast<std::size_t>(length);
            if (!expect_first(f, values<T>(n, Floats::finite), order) || !expect_first(f, repetitive<T>(n), order) ||
                !expect_first(f, std::vector<T>(n, 5), order))
                return;
        }
    };
    for_integers(check);
    for_floats(check);
}

TEST(Indices, both_extremes)
{
    for_both([]<class T>(const Both<T>& f) {
        for (const int length : lengths_of_searches()) {
            const auto n = static_cast<std::size_t>(length);
            if (!expect_first(f, values<T>(n)) || !expect_first(f, repetitive<T>(n)) ||
                !expect_first(f, std::vector<T>(n, 5)))
                return;
        }
    });
}

/// 16-bit magnitudes are limited before they are compared, 32-bit ones afterwards.
TEST(Indices, magnitudes)
{
    for_magnitudes([]<class T, class Order>(const One<T>& f, const auto&, Order order) {
        constexpr T lowest = std::numeric_limits<T>::min(), highest = std::numeric_limits<T>::max();
        for (const int length : lengths_of_searches()) {
            const auto n = static_cast<std::size_t>(length);
            std::vector<T> large = repetitive<T>(n); // both limits, one of them rarely
            for (T& value : large) value = value == 3 ? lowest : highest;
            for (const std::vector<T>& x : {values<T>(n), repetitive<T>(n), large, std::vector<T>(n, lowest)}) {
                std::vector<std::int64_t> m = magnitudes(x);
                if (sizeof(T) == 2)
                    for (std::int64_t& value : m) value = limited<T>(value);
                const auto place = static_cast<Orv32s>(first_place(m, order));
                if (!reduction(f, x).gives(limited<T>(extreme(m, order)), place)) return;
            }
        }
    });
    const auto check = [](const auto& f, auto a, auto b, auto value, Orv32s place) {
        EXPECT_TRUE(reduction(f, std::vector{a, b}).gives(value, place));
    };
    for (const auto& [a, b] : {std::pair{Orv16s{32767}, Orv16s{-32768}}, {-32768, 32767}}) {
        check(ORV_EXPORT(orvsMaxAbsIndx_16s), a, b, Orv16s{32767}, 0);
        check(ORV_EXPORT(orvsMinAbsIndx_16s), a, b, Orv16s{32767}, 0);
    }
    check(ORV_EXPORT(orvsMaxAbsIndx_32s), INT_MAX, INT_MIN, INT_MAX, 1);
    check(ORV_EXPORT(orvsMaxAbsIndx_32s), INT_MIN, INT_MAX, INT_MAX, 0);
    check(ORV_EXPORT(orvsMinAbsIndx_32s), INT_MIN, INT_MAX, INT_MAX, 1);
    check(ORV_EXPORT(orvsMinAbsIndx_32s), INT_MAX, INT_MIN, INT_MAX, 0);
}

/// The extreme at each place of each length, and again behind it.
TEST(Indices, extreme_at_every_place)
{
    const auto check = []<class T, class Order>(const One<T>& f, const auto&, Order order) {
        for (std::size_t n = 1; n <= 80; ++n)
            for (std::size_t i = 0; i < n; ++i) {
                std::vector<T> x = repetitive<T>(n);
                for (const std::size_t place : {i, i + 1, (i + n) / 2, i + 8, n - 1})
                    if (place >= i && place < n) x[place] = Order::is_of_maximum ? 100 : 1;
                const auto [value, index] = reduction(f, x).results();
                if (!expect_value(f, value, extreme(x, order)) || !expect_value(f, index, static_cast<Orv32s>(i)))
                    return;
            }
    };
    for_integers(check);
    for_floats(check);
    for_magnitudes(check);
    for_both([]<class T>(const Both<T>& f) {
        for (std::size_t n = 2; n <= 80; ++n)
            for (std::size_t i = 0; i < n; ++i) {
                const std::size_t other = (i + 1 + n / 3) % n;
                if (other == i) continue;
                std::vector<T> x = repetitive<T>(n);
                x[i] = 100;
                x[other] = 1;
                const auto [min, min_index, max, max_index] = reduction(f, x).results();
                if (!expect_value(f, min, 1) || !expect_value(f, min_index, static_cast<Orv32s>(other)) ||
                    !expect_value(f, max, 100) || !expect_value(f, max_index, static_cast<Orv32s>(i)))
                    return;
            }
    });
}

/// Zeros are equal whatever their signs.
TEST(Indices, of_zeros_is_the_first)
{
    const auto zeros = []<class T>(T, std::size_t n) {
        std::vector<T> x(n, T(0));
        for (std::size_t i = n % 2; i < n; i += 3) x[i] = -T(0);
        return x;
    };
    for_floats([&]<class T, class Order>(const One<T>& f, const auto&, Order) {
        for (std::size_t n = 1; n < 100; ++n) {
            const auto [value, index] = reduction(f, zeros(T(), n)).results();
            EXPECT_EQ(value, 0) << f.name();
            EXPECT_EQ(index, 0) << f.name() << ", length " << n;
        }
    });
    const auto check = [&]<class T>(const Both<T>& f) {
        for (std::size_t n = 1; n < 100; ++n) {
            const auto [min, min_index, max, max_index] = reduction(f, zeros(T(), n)).results();
            EXPECT_TRUE(min == 0 && max == 0 && min_index == 0 && max_index == 0) << f.name() << ", length " << n;
        }
    };
    check(ORV_EXPORT(orvsMinMaxIndx_32f));
    check(ORV_EXPORT(orvsMinMaxIndx_64f));
}

TEST(Indices, of_infinities)
{
    for_floats([]<class T, class Order>(const One<T>& f, const auto&, Order order) {
        constexpr T infinity = std::numeric_limits<T>::infinity();
        for (const std::size_t n : {1u, 5u, 17u, 33u, 34u, 64u, 75u})
            for (const std::size_t i : {std::size_t{0}, n / 2, n - 1}) {
                std::vector<T> x = signal<T>(n, n);
                x[i] = infinity;
                x[n - 1 - i] = -infinity;
                if (!expect_first(f, x, order)) return;
            }
    });
    const std::vector<Orv32f> x = {std::numeric_limits<Orv32f>::infinity()};
    EXPECT_TRUE(expect_first(ORV_EXPORT(orvsMinIndx_32f), x, Less()));
    EXPECT_TRUE(expect_first(ORV_EXPORT(orvsMinMaxIndx_32f), x));
}

// ---- Floats that are no numbers

template <class T>
constexpr T nan = std::numeric_limits<T>::quiet_NaN();

/// Vectors of one lane per 32 bytes are those from this length on, of elements at a multiple of their size.
template <class T>
bool is_long(std::size_t n, std::size_t address)
{
    return sizeof(T) == 4 ? n >= 34 : n >= 32 && address % 8 == 0;
}

/// In short vectors one is passed over, but for the first element, which no comparison replaces.
template <class T, class Order>
std::tuple<T, Orv32s> first_of_short(const std::vector<T>& x, Order order)
{
    return {extreme(x, order), static_cast<Orv32s>(first_place(x, order))};
}

/// In long ones each lane of a vector of 32 bytes takes its elements in order, aligned ones if the elements are. One
/// that is no number replaces what its lane holds, and is replaced by what follows; only numbers that are better than
/// a number before them move the lane's place.
template <class T, class Order>
std::tuple<T, Orv32s> first_of_long(const std::vector<T>& x, std::size_t address, Order order)
{
    constexpr std::size_t lanes = 32 / sizeof(T);
    constexpr T infinity = std::numeric_limits<T>::infinity();
    const std::size_t before = elements_before(address, sizeof(T));
    const std::size_t first =
        before == 0 ? 0 : lanes - before; // lanes of the first vector that are filled up, behind it
    T best = 0;
    std::size_t place = x.size();
    for (std::size_t k = 0; k < lanes; ++k) {
        const bool is_filled = first != 0 && k >= before;
        T held = is_filled ? (Order::is_of_maximum ? -infinity : infinity) : x[k];
        std::size_t at = k;
        for (std::size_t i = (first != 0 ? before : lanes) + k; i < x.size(); i += lanes) {
            if (order(x[i], held)) at = i;
            if (!order(held, x[i])) held = x[i];
        }
        if (k == 0 || order(held, best) || (held == best && at < place)) {
            best = held;
            place = at;
        }
    }
    return {best, static_cast<Orv32s>(place)};
}

/// None is among the last ones of the lanes.
TEST(Indices, not_a_number_is_passed_over)
{
    for_floats([]<class T, class Order>(const One<T>& f, const auto&, Order order) {
        for (std::size_t n = 1; n <= 130; ++n)
            for (const unsigned seed : {0u, 1u, 2u}) {
                std::vector<T> x = signal<T>(n + seed, n);
                Random random(n);
                const std::size_t among = is_long<T>(n, 0) ? n - 17 : n;
                for (unsigned k = 0; k <= seed; ++k) x[static_cast<std::size_t>(random.below(among))] = nan<T>;
                if (n % 7 == 0 && seed == 1) x[0] = nan<T>;
                const auto want = [&](std::size_t address) {
                    return is_long<T>(n, address) ? first_of_long(x, address, order) : first_of_short(x, order);
                };
                if (!reduction(f, x).gives_at(want)) return;
            }
    });
}

TEST(Indices, of_not_a_numbers_is_the_first)
{
    for_floats([]<class T, class Order>(const One<T>& f, const auto&, Order) {
        for (const std::size_t n : {1u, 2u, 8u, 17u, 31u})
            if (!reduction(f, std::vector<T>(n, nan<T>)).gives(nan<T>, 0)) return;
    });
    const auto check = []<class T>(const Both<T>& f) {
        for (const std::size_t n : {1u, 2u, 8u, 17u, 33u, 64u, 1203u})
            if (!reduction(f, std::vector<T>(n, nan<T>)).gives(nan<T>, 0, nan<T>, 0)) return;
    };
    check(ORV_EXPORT(orvsMinMaxIndx_32f));
    check(ORV_EXPORT(orvsMinMaxIndx_64f));
}

/// Both extremes are those without places, and their places the first of what is equal; 0 of what is no number.
TEST(Indices, both_of_not_a_numbers)
{
    const auto check = []<class T>(const Both<T>& f, const Export<OrvStatus, const T*, int, T*, T*>& values_only) {
        for (std::size_t n = 1; n <= 130; ++n)
            for (const std::size_t i : {std::size_t{0}, n / 3, n - 1}) {
                std::vector<T> x = signal<T>(n, n);
                x[i] = nan<T>;
                const auto [want_min, want_max] = reduction(values_only, x).results();
                const auto place = [&](T value) {
                    const auto found = std::find(x.begin(), x.end(), value);
                    return found == x.end() ? 0 : static_cast<Orv32s>(found - x.begin());
                };
                const auto [min, min_index, max, max_index] = reduction(f, x).results();
                if (!expect_value(f, min, want_min) || !expect_value(f, max, want_max) ||
                    !expect_value(f, min_index, place(min)) || !expect_value(f, max_index, place(max)))
                    return;
            }
    };
    check(ORV_EXPORT(orvsMinMaxIndx_32f), ORV_EXPORT(orvsMinMax_32f));
    check(ORV_EXPORT(orvsMinMaxIndx_64f), ORV_EXPORT(orvsMinMax_64f));
}

// ---- Many elements

/// Places beyond 2^24 are what additions of 8 in single precision make of them.
TEST(Indices, of_more_floats_than_exact_places)
{
    constexpr std::size_t exact = 1 << 24, n = exact + 4000;
    std::vector<Orv32f> memory(n + 8);
    Orv32f* x = memory.data();
    while (reinterpret_cast<std::size_t>(x) % 32 != 0) ++x;
    const auto check = [&](const One<Orv32f>& f, Orv32f value) {
        for (const std::size_t i : {exact - 1, exact, exact + 1, exact + 3, exact + 6, exact + 1003}) {
            Orv32f place = static_cast<Orv32f>(i % 8);
            for (std::size_t k = 0; k < i / 8; ++k) place += 8;
            x[i] = value;
            Orv32f got = 0;
            Orv32s index = -1;
            EXPECT_EQ(f(x, static_cast<int>(n), &got, &index), orvOk);
            x[i] = 0;
            expect_value(f, got, value);
            expect_value(f, index, static_cast<Orv32s>(place));
        }
    };
    check(ORV_EXPORT(orvsMaxIndx_32f), 3);
    check(ORV_EXPORT(orvsMinIndx_32f), -3);

    // Doubles and integers count on, and so does the search for both.
    const One<Orv32s> of_integers = ORV_EXPORT(orvsMaxIndx_32s);
    const std::vector<Orv32s> integers = [&] {
        std::vector<Orv32s> all(n);
        all[exact + 3] = 1;
        return all;
    }();
    Orv32s largest = 0, index = -1;
    EXPECT_EQ(of_integers(integers.data(), static_cast<int>(n), &largest, &index), orvOk);
    expect_value(of_integers, index, static_cast<Orv32s>(exact + 3));
    x[exact + 3] = 1;
    Orv32f min = 1, max = 0;
    Orv32s min_index = -1;
    EXPECT_EQ(ORV_EXPORT(orvsMinMaxIndx_32f)(x, static_cast<int>(n), &min, &min_index, &max, &index), orvOk);
    expect_value(ORV_EXPORT(orvsMinMaxIndx_32f), index, static_cast<Orv32s>(exact + 3));
}

// ---- Calls

/// It asks for the value only.
TEST(Indices, null_index)
{
    const auto check = []<class T>(const One<T>& f, const Plain<T>& plain, auto) {
        for (const std::size_t n : {1u, 7u, 16u, 40u, 333u}) {
            const std::vector<T> x = values<T>(n);
            T got, want;
            EXPECT_EQ(f(x.data(), static_cast<int>(n), &got, nullptr), orvOk);
            EXPECT_EQ(plain(x.data(), static_cast<int>(n), &want), orvOk);
            expect_value(f, got, want);
        }
        EXPECT_EQ(f(nullptr, 0, nullptr, nullptr), orvErrNullPointer);
        const std::vector<T> x(4);
        T value = 77;
        EXPECT_EQ(f(x.data(), 0, &value, nullptr), orvErrBadLength);
        EXPECT_EQ(f(x.data(), 4, nullptr, nullptr), orvErrNullPointer);
        EXPECT_EQ(f(nullptr, 4, &value, nullptr), orvErrNullPointer);
        EXPECT_EQ(value, 77);
    };
    for_integers(check);
    for_floats(check);
    for_magnitudes(check);
}

TEST(Indices, checks_pointers_before_length)
{
    const auto check = [](const auto& f, const auto&, auto) {
        ArgumentChecks(f, 4)
            .template bad<0>(nullptr, orvErrNullPointer)
            .template bad<2>(nullptr, orvErrNullPointer)
            .template bad<1>(0, orvErrBadLength)
            .template bad<1>(-1, orvErrBadLength)
            .template bad<1>(INT_MIN, orvErrBadLength)
            .run();
    };
    for_integers(check);
    for_floats(check);
    for_magnitudes(check);
    for_both([](const auto& f) { expect_checks(f); });
}

} // namespace
} // namespace orvtest
