// dst[i] = the smaller or the larger one of src1[i] and src2[i].
#include "orvs/stats.h"

#include "tests/arith/caller_state.h"
#include "tests/arith/endless.h"
#include "tests/support/checks.h"
#include "tests/support/compare.h"
#include "tests/support/elementwise.h"

#include <climits>
#include <gtest/gtest.h>

namespace orvtest {
namespace {

template <class T>
using OutOfPlace = Export<OrvStatus, const T*, const T*, T*, Orv32u>;
template <class T, class Length>
using InPlace = Export<OrvStatus, const T*, T*, Length>;

// The second value is stored where the comparison is false: of equal zeros, and where one is no number.
constexpr auto smaller = []<class T>(T a, T b) { return a < b ? a : b; };
constexpr auto larger = []<class T>(T a, T b) { return a > b ? a : b; };

/// f of each function that has a destination of its own, and what it computes.
template <class F>
void for_out_of_place(const F& f)
{
    f(ORV_EXPORT(orvsMinEvery_8u), smaller);
    f(ORV_EXPORT(orvsMinEvery_16u), smaller);
    f(ORV_EXPORT(orvsMinEvery_32f), smaller);
    f(ORV_EXPORT(orvsMinEvery_64f), smaller);
    f(ORV_EXPORT(orvsMaxEvery_8u), larger);
    f(ORV_EXPORT(orvsMaxEvery_16u), larger);
    f(ORV_EXPORT(orvsMaxEvery_32f), larger);
    f(ORV_EXPORT(orvsMaxEvery_64f), larger);
}
template <class F>
void for_in_place(const F& f)
{
    f(ORV_EXPORT(orvsMinEvery_8u_I), smaller);
    f(ORV_EXPORT(orvsMinEvery_16u_I), smaller);
    f(ORV_EXPORT(orvsMinEvery_16s_I), smaller);
    f(ORV_EXPORT(orvsMinEvery_32s_I), smaller);
    f(ORV_EXPORT(orvsMinEvery_32f_I), smaller);
    f(ORV_EXPORT(orvsMinEvery_64f_I), smaller);
    f(ORV_EXPORT(orvsMaxEvery_8u_I), larger);
    f(ORV_EXPORT(orvsMaxEvery_16u_I), larger);
    f(ORV_EXPORT(orvsMaxEvery_16s_I), larger);
    f(ORV_EXPORT(orvsMaxEvery_32s_I), larger);
    f(ORV_EXPORT(orvsMaxEvery_32f_I), larger);
    f(ORV_EXPORT(orvsMaxEvery_64f_I), larger);
}

/// The call with a length of type int.
template <class T>
auto call_of(const OutOfPlace<T>& f)
{
    return f.as([](auto g, const T* src1, const T* src2, T* dst, int len) {
        return g(src1, src2, dst, static_cast<Orv32u>(len));
    });
}
template <class T, class Length>
auto call_of(const InPlace<T, Length>& f)
{
    return f.as([](auto g, const T* src, T* dst, int len) { return g(src, dst, static_cast<Length>(len)); });
}

TEST(Every, out_of_place)
{
    for_out_of_place([]<class T>(const OutOfPlace<T>& f, const auto& oracle) {
        sweep_elements(call_of(f), oracle, {.lengths = lengths_around({96, 128, 256, 1000, 4096})});
    });
}
TEST(Every, in_place)
{
    for_in_place([]<class T, class Length>(const InPlace<T, Length>& f, const auto& oracle) {
        sweep_elements(call_of(f), oracle, {.lengths = lengths_around({96, 128, 256, 1000, 4096})});
    });
}

// ---- Floats

/// In each place of a pair, beside a number and beside each other; the sign tells zeros apart.
template <class T>
struct Pairs {
    std::vector<T> first, second, smaller, larger;
};
template <class T>
Pairs<T> pairs_of_specials(std::size_t n)
{
    constexpr T nan = std::numeric_limits<T>::quiet_NaN(), infinity = std::numeric_limits<T>::infinity();
    const T rows[][4] = {{nan, 1, 1, 1},
                         {1, nan, nan, nan},
                         {nan, nan, nan, nan},
                         {T(0), -T(0), -T(0), -T(0)},
                         {-T(0), T(0), T(0), T(0)},
                         {infinity, 1, 1, infinity},
                         {1, -infinity, -infinity, 1},
                         {nan, -infinity, -infinity, -infinity}};
    Pairs<T> pairs;
    for (std::size_t i = 0; i < n; ++i) {
        const auto& row = rows[i % std::size(rows)];
        pairs.first.push_back(row[0]);
        pairs.second.push_back(row[1]);
        pairs.smaller.push_back(row[2]);
        pairs.larger.push_back(row[3]);
    }
    return pairs;
}

TEST(Every, second_is_stored_of_what_does_not_compare)
{
    const auto check = []<class T, class Length>(const OutOfPlace<T>& f, const InPlace<T, Length>& in_place,
                                                 std::vector<T> Pairs<T>::*want) {
        for (const std::size_t n : {1u, 2u, 5u, 8u, 11u, 16u, 33u, 64u, 100u}) {
            const Pairs<T> pairs = pairs_of_specials<T>(n);
            std::vector<T> dst(n);
            EXPECT_EQ(f(pairs.first.data(), pairs.second.data(), dst.data(), static_cast<Orv32u>(n)), orvOk);
            expect_elements(f, dst, pairs.*want);
            dst = pairs.second;
            EXPECT_EQ(in_place(pairs.first.data(), dst.data(), static_cast<Length>(n)), orvOk);
            expect_elements(in_place, dst, pairs.*want);
        }
    };
    check(ORV_EXPORT(orvsMinEvery_32f), ORV_EXPORT(orvsMinEvery_32f_I), &Pairs<Orv32f>::smaller);
    check(ORV_EXPORT(orvsMinEvery_64f), ORV_EXPORT(orvsMinEvery_64f_I), &Pairs<Orv64f>::smaller);
    check(ORV_EXPORT(orvsMaxEvery_32f), ORV_EXPORT(orvsMaxEvery_32f_I), &Pairs<Orv32f>::larger);
    check(ORV_EXPORT(orvsMaxEvery_64f), ORV_EXPORT(orvsMaxEvery_64f_I), &Pairs<Orv64f>::larger);
}

/// What is compared are the elements, and nothing beside them.
TEST(Every, meets_no_exception)
{
    expect_no_flags(call_of(ORV_EXPORT(orvsMinEvery_32f)));
    expect_no_flags(call_of(ORV_EXPORT(orvsMinEvery_64f)));
    expect_no_flags(call_of(ORV_EXPORT(orvsMaxEvery_32f_I)));
    expect_no_flags(call_of(ORV_EXPORT(orvsMaxEvery_64f_I)));
}

// ---- Calls

#ifdef ORV_ENDLESS_ARRAYS
/// Lengths are unsigned.
TEST(Every, lengths_beyond_int)
{
    EndlessArray<Orv32fc> first, second, result;
    Random random(1);
    first.fill(random);
    second.fill(random);
    constexpr std::size_t bytes = EndlessArray<Orv32fc>::length * sizeof(Orv32fc), length = 0x80000005;
    const auto end_of = [](EndlessArray<Orv32fc>& array) {
        return reinterpret_cast<Orv8u*>(array.data()) + bytes - length;
    };
    const auto check = [&](const OutOfPlace<Orv8u>& f, const auto& oracle) {
        const Orv8u *a = end_of(first), *b = end_of(second);
        Orv8u* dst = end_of(result);
        std::memset(dst + length - 1'000'000, 0, 1'000'000);
        ASSERT_EQ(f(a, b, dst, static_cast<Orv32u>(length)), orvOk);
        for (std::size_t i = length - 1'000'000; i < length; ++i)
            ASSERT_EQ(dst[i], oracle(a[i], b[i])) << f.name() << ", element " << i;
    };
    check(ORV_EXPORT(orvsMinEvery_8u), smaller);
    check(ORV_EXPORT(orvsMaxEvery_8u), larger);
}
#endif

TEST(Every, checks_pointers_before_length)
{
    for_out_of_place([](const auto& f, const auto&) {
        ArgumentChecks(f, 4u).null_pointers().template bad<3>(0u, orvErrBadLength).run();
    });
    for_in_place([]<class T, class Length>(const InPlace<T, Length>& f, const auto&) {
        if constexpr (std::is_signed_v<Length>) ArgumentChecks(f, 4).null_pointers().bad_lengths().run();
        else ArgumentChecks(f, 4u).null_pointers().template bad<2>(0u, orvErrBadLength).run();
    });
}

} // namespace
} // namespace orvtest
