// Shifts of a vector by one count.
#include "tests/support/checks.h"
#include "tests/support/compare.h"
#include "tests/support/elementwise.h"

#include "orvs/arith.h"

#include <climits>

namespace orvtest {
namespace {

/// Counts from none to more than any width, and the largest.
std::vector<int> counts()
{
    std::vector<int> all = {INT_MAX, INT_MAX - 1, 256, 64};
    for (int n = 0; n <= 40; ++n) all.push_back(n);
    return all;
}

/// x * 2^n modulo the type: by arithmetic, and wide enough for every count.
template <class T>
T shifted_left(T x, int n)
{
    if (n > 64) return 0;
    return static_cast<T>((Wide(x) << n).low64());
}
/// floor(x / 2^n).
template <class T>
T shifted_right(T x, int n)
{
    return static_cast<T>((Wide(x) >> (n > 200 ? 200 : n)).low64());
}

/// Every count in turn, over a few lengths each; the count stands before the array, so it is made part of the call.
template <class T, class F, class G>
void expect_shifts(const F& f, const G& in_place, T (*oracle)(T, int))
{
    int turn = 0;
    for (const int count : counts()) {
        SweepOptions options;
        options.few_placements = count != 3;
        if (count != 3) options.lengths = {1 + turn % 70, 71 + turn, 256 + turn, 953 + turn % 3};
        ++turn;
        const std::string text = "count " + std::to_string(count);
        const auto wanted = [=](T x) { return oracle(x, count); };
        sweep_elements(f.as([=](auto g, const T* src, T* dst, int len) { return g(src, count, dst, len); }, text),
                       wanted, options);
        sweep_elements(in_place.as([=](auto g, T* dst, int len) { return g(count, dst, len); }, text), wanted, options);
    }
}

TEST(LShiftC, all_counts)
{
    expect_shifts<Orv8u>(ORV_EXPORT(orvsLShiftC_8u), ORV_EXPORT(orvsLShiftC_8u_I), shifted_left);
    expect_shifts<Orv16u>(ORV_EXPORT(orvsLShiftC_16u), ORV_EXPORT(orvsLShiftC_16u_I), shifted_left);
    expect_shifts<Orv16s>(ORV_EXPORT(orvsLShiftC_16s), ORV_EXPORT(orvsLShiftC_16s_I), shifted_left);
    expect_shifts<Orv32s>(ORV_EXPORT(orvsLShiftC_32s), ORV_EXPORT(orvsLShiftC_32s_I), shifted_left);
}
TEST(RShiftC, all_counts)
{
    expect_shifts<Orv8u>(ORV_EXPORT(orvsRShiftC_8u), ORV_EXPORT(orvsRShiftC_8u_I), shifted_right);
    expect_shifts<Orv16u>(ORV_EXPORT(orvsRShiftC_16u), ORV_EXPORT(orvsRShiftC_16u_I), shifted_right);
    expect_shifts<Orv16s>(ORV_EXPORT(orvsRShiftC_16s), ORV_EXPORT(orvsRShiftC_16s_I), shifted_right);
    expect_shifts<Orv32s>(ORV_EXPORT(orvsRShiftC_32s), ORV_EXPORT(orvsRShiftC_32s_I), shifted_right);
}

TEST(RShiftC, beyond_the_width_leaves_the_sign)
{
    const auto f = ORV_EXPORT(orvsRShiftC_16s);
    const std::vector<Orv16s> src = {-1, 1, -32768, 32767};
    std::vector<Orv16s> dst(4);
    expect_value(f, Orv32s{f(src.data(), 20, dst.data(), 4)}, orvOk);
    expect_elements(f, dst, {-1, 0, -1, 0});
}

// ---- The order of checks: count 0, then a count that clears, then pointers, length, negative count

template <class T>
void expect_checks(const Export<OrvStatus, const T*, int, T*, int>& f, bool clears)
{
    constexpr int width = 8 * int{sizeof(T)};
    ArgumentChecks(f, 3, 4).null_pointers().bad_lengths().template bad<1>(-1, orvErrBadShift).run();
    ArgumentChecks(f, 3, 4).null_pointers().bad_lengths().template bad<1>(INT_MIN, orvErrBadShift).run();
    ArgumentChecks(f, 0, 4).null_pointers().bad_lengths().run();
    if (clears) {
        // The fill looks at what it writes only.
        T element = 77;
        expect_value(f, Orv32s{f(nullptr, width, nullptr, 0)}, orvErrNullPointer);
        expect_value(f, Orv32s{f(nullptr, width, &element, 0)}, orvErrBadLength);
        EXPECT_EQ(element, T{77});
        expect_value(f, Orv32s{f(nullptr, width, &element, 1)}, orvOk);
        EXPECT_EQ(element, T{0});
    } else {
        ArgumentChecks(f, width, 4).null_pointers().bad_lengths().run();
        ArgumentChecks(f, INT_MAX, 4).null_pointers().bad_lengths().run();
    }
}
template <class T>
void expect_checks(const Export<OrvStatus, int, T*, int>& f)
{
    constexpr int width = 8 * int{sizeof(T)};
    ArgumentChecks(f, 3, 4).null_pointers().bad_lengths().template bad<0>(-1, orvErrBadShift).run();
    ArgumentChecks(f, 0, 4).null_pointers().bad_lengths().run();
    ArgumentChecks(f, width, 4).null_pointers().bad_lengths().run();
    ArgumentChecks(f, INT_MAX, 4).null_pointers().bad_lengths().run();
}

TEST(LShiftC, checks)
{
    expect_checks(ORV_EXPORT(orvsLShiftC_8u), true);
    expect_checks(ORV_EXPORT(orvsLShiftC_16u), true);
    expect_checks(ORV_EXPORT(orvsLShiftC_16s), true);
    expect_checks(ORV_EXPORT(orvsLShiftC_32s), true);
    expect_checks(ORV_EXPORT(orvsLShiftC_8u_I));
    expect_checks(ORV_EXPORT(orvsLShiftC_16u_I));
    expect_checks(ORV_EXPORT(orvsLShiftC_16s_I));
    expect_checks(ORV_EXPORT(orvsLShiftC_32s_I));
}
TEST(RShiftC, checks)
{
    expect_checks(ORV_EXPORT(orvsRShiftC_8u), true);
    expect_checks(ORV_EXPORT(orvsRShiftC_16u), true);
    expect_checks(ORV_EXPORT(orvsRShiftC_16s), false);
    expect_checks(ORV_EXPORT(orvsRShiftC_32s), false);
    expect_checks(ORV_EXPORT(orvsRShiftC_8u_I));
    expect_checks(ORV_EXPORT(orvsRShiftC_16u_I));
    expect_checks(ORV_EXPORT(orvsRShiftC_16s_I));
    expect_checks(ORV_EXPORT(orvsRShiftC_32s_I));
}

} // namespace
} // namespace orvtest
