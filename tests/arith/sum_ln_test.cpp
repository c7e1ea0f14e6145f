// *sum = the sum of ln src[i].
#include "orvs/arith.h"

#include "tests/accuracy/ulp.h"
#include "tests/arith/caller_state.h"
#include "tests/support/checks.h"
#include "tests/support/compare.h"

#include <bit>
#include <gtest/gtest.h>
#include <x86intrin.h>

namespace orvtest {
namespace {

template <class S, class D>
using SumExport = Export<OrvStatus, const S*, int, D*>;

/// f for each of the family.
template <class F>
void for_all(const F& f)
{
    f(ORV_EXPORT(orvsSumLn_16s32f));
    f(ORV_EXPORT(orvsSumLn_32f));
    f(ORV_EXPORT(orvsSumLn_64f));
    f(ORV_EXPORT(orvsSumLn_32f64f));
}

template <class D>
std::uint64_t bits(D x)
{
    return component_bits(element_type<D>(), &x, 0, NanView::bits);
}

template <class D>
D nan_with_sign(bool negative)
{
    return std::copysign(std::numeric_limits<D>::quiet_NaN(), negative ? D(-1) : D(1));
}

/// The sum, and that it has this status.
template <class S, class D>
D sum_of(const SumExport<S, D>& f, const std::vector<S>& src, OrvStatus status = orvOk)
{
    D sum = 77;
    EXPECT_EQ(f(src.data(), static_cast<int>(src.size()), &sum), status) << f.name() << " of length " << src.size();
    look_at(f.name(), &sum, 1);
    return sum;
}

/// Positive numbers of many sizes; their logarithms have both signs where S has fractions.
template <class S>
std::vector<S> positive_numbers(std::size_t n)
{
    Random random(n + sizeof(S));
    std::vector<S> values;
    for (std::size_t i = 0; i < n; ++i) {
        const std::uint64_t bits = random.bits();
        if constexpr (std::integral<S>) values.push_back(static_cast<S>(1 + bits % 32767));
        else
            values.push_back(std::ldexp(static_cast<S>(1 + static_cast<double>(bits >> 11) * 0x1p-53),
                                        static_cast<int>(bits % 40) - 20));
    }
    return values;
}

constexpr std::size_t lengths[] = {1,   2,    3,    4,    5,    6,    7,    8,    9,    15,   16,   17,  31,
                                   33,  63,   65,   127,  255,  500,  511,  512,  513,  514,  515,  516, 517,
                                   600, 1023, 1024, 1025, 1026, 1027, 1028, 1535, 1536, 1537, 2048, 4099};

// ---- Sums

/// The error is that of the logarithms, and of additions in double precision.
TEST(SumLn, is_close_to_the_exact_sum)
{
    for_all([]<class S, class D>(const SumExport<S, D>& f) {
        constexpr bool single = sizeof(D) == 4 || std::is_same_v<S, Orv16s>;
        for (const std::size_t n : lengths) {
            const std::vector<S> src = positive_numbers<S>(n);
            long double exact = 0, sizes = 0, errors = 0;
            for (const S x : src) {
                const long double y = std::log(static_cast<long double>(x));
                exact += y;
                sizes += std::fabs(y);
                errors += single ? 1.25L * ulp<float>(y) : 0.52L * ulp<double>(y);
            }
            errors += sizes * static_cast<long double>(n / 4 + 5) * 0x1p-53L + ulp<D>(exact) * 0.5L;
            EXPECT_LE(std::fabs(static_cast<long double>(sum_of(f, src)) - exact), errors)
                << f.name() << ", length " << n;
        }
    });
}

/// Equal vectors have equal sums wherever they lie; nothing outside them is read or written.
TEST(SumLn, is_the_same_at_every_address)
{
    for_all([]<class S, class D>(const SumExport<S, D>& f) {
        for (const std::size_t n : lengths) {
            const std::vector<S> src = positive_numbers<S>(n);
            const D want = sum_of(f, src);
            GuardedArray<S> array(n);
            GuardedArray<D> sum(1);
            const auto check = [&](Placement of_array, Placement of_sum) {
                const CallNote note([&] { return std::string(f.name()) + ", " + placement_text(of_array); });
                array.place(n, of_array);
                array.fill(src);
                sum.place(1, of_sum);
                sum.fill({77});
                EXPECT_EQ(f(array.data(), static_cast<int>(n), sum.data()), orvOk);
                expect_elements(f, sum, {want});
                EXPECT_EQ(array.damage(), "");
                EXPECT_EQ(first_difference(element_type<S>(), array.data(), src.data(), n), n);
            };
            check(before_guard, before_guard);
            check(after_guard, after_guard);
            for (const int distance : misalignments(sizeof(S), static_cast<int>(n)))
                check(misaligned(distance), misaligned((distance + 3) % 64));
        }
    });
}

TEST(SumLn, of_ones_is_zero)
{
    for_all([]<class S, class D>(const SumExport<S, D>& f) {
        for (const std::size_t n : lengths) expect_value(f, sum_of(f, std::vector<S>(n, S(1))), D(0));
    });
}

/// Logarithms as Ln gives them, and in double precision where the sum is.
TEST(SumLn, of_one_element_is_its_logarithm)
{
    for (const Orv32f x : positive_numbers<Orv32f>(300)) {
        Orv32f y = 0;
        ORV_EXPORT(orvsLn_32f)(&x, &y, 1);
        expect_value(ORV_EXPORT(orvsSumLn_32f), sum_of(ORV_EXPORT(orvsSumLn_32f), std::vector{x}), y);
        const Orv64f wide = x, got = sum_of(ORV_EXPORT(orvsSumLn_32f64f), std::vector{x});
        EXPECT_LE(ulp_error(got, std::log(static_cast<long double>(wide))), 0.52) << x;
    }
    for (const Orv64f x : positive_numbers<Orv64f>(300)) {
        Orv64f y = 0;
        ORV_EXPORT(orvsLn_64f)(&x, &y, 1);
        expect_value(ORV_EXPORT(orvsSumLn_64f), sum_of(ORV_EXPORT(orvsSumLn_64f), std::vector{x}), y);
    }
    for (int x = 1; x <= 32767; x += x < 100 ? 1 : 37) {
        const auto wide = static_cast<Orv32f>(x);
        Orv32f y = 0;
        ORV_EXPORT(orvsLn_32f)(&wide, &y, 1);
        expect_value(ORV_EXPORT(orvsSumLn_16s32f),
                     sum_of(ORV_EXPORT(orvsSumLn_16s32f), std::vector{static_cast<Orv16s>(x)}), y);
    }
}

/// In double precision: many small logarithms beside a large one are not lost, and carried from block to block.
TEST(SumLn, adds_in_double_precision)
{
    std::vector<Orv32f> src(20'000, 1 + 0x1p-22f);
    src[0] = 0x1p126f;
    Orv32f one = 0;
    ORV_EXPORT(orvsLn_32f)(&src[1], &one, 1);
    const double exact = 126 * 0.69314718055994531 + 19'999.0 * double{one};
    EXPECT_NEAR(double{sum_of(ORV_EXPORT(orvsSumLn_32f), src)}, exact, 8e-6);
    EXPECT_NEAR(sum_of(ORV_EXPORT(orvsSumLn_32f64f), src), 126 * 0.69314718055994531 + 19'999.0 * std::log1p(0x1p-22),
                1e-11);
}

TEST(SumLn, of_infinity_is_infinity)
{
    const auto check = []<class S, class D>(const SumExport<S, D>& f) {
        for (const unsigned n : {1u, 5u, 513u}) {
            std::vector<S> src(n, S(0.5));
            src[n / 2] = std::numeric_limits<S>::infinity();
            expect_value(f, sum_of(f, src), std::numeric_limits<D>::infinity());
        }
    };
    check(ORV_EXPORT(orvsSumLn_32f));
    check(ORV_EXPORT(orvsSumLn_64f));
    check(ORV_EXPORT(orvsSumLn_32f64f));
}

// ---- Elements without a logarithm

/// Zeros make plus infinity, negative numbers a not-a-number whose sign bit is clear.
template <class S, class D>
void expect_outcome(const SumExport<S, D>& f, const std::vector<S>& src, OrvStatus status)
{
    const D got = sum_of(f, src, status);
    const D want = status == orvWrnLnOfZero ? std::numeric_limits<D>::infinity() : nan_with_sign<D>(status == orvOk);
    EXPECT_EQ(bits(got), bits(want)) << f.name() << ", length " << src.size();
}

constexpr std::size_t places[] = {0,   1,   3,   4,   7,   8,   15,  100,  505,  508,
                                  510, 511, 512, 513, 519, 520, 900, 1023, 1024, 1030};

TEST(SumLn, warns_of_one_element_anywhere)
{
    for_all([]<class S, class D>(const SumExport<S, D>& f) {
        for (const std::size_t n : lengths)
            for (const std::size_t place : places) {
                if (place >= n) continue;
                std::vector<S> src = positive_numbers<S>(n);
                src[place] = 0;
                expect_outcome(f, src, orvWrnLnOfZero);
                src[place] = -1;
                expect_outcome(f, src, orvWrnLnOfNegative);
                src[place] = std::numeric_limits<S>::lowest();
                expect_outcome(f, src, orvWrnLnOfNegative);
                if constexpr (std::floating_point<S>) {
                    src[place] = -S(0);
                    expect_outcome(f, src, orvWrnLnOfZero);
                    src[place] = -std::numeric_limits<S>::denorm_min();
                    expect_outcome(f, src, orvWrnLnOfNegative);
                    src[place] = -std::numeric_limits<S>::infinity();
                    expect_outcome(f, src, orvWrnLnOfNegative);
                }
            }
    });
}

TEST(SumLn, the_first_warning_decides)
{
    for_all([]<class S, class D>(const SumExport<S, D>& f) {
        for (const std::size_t first : places)
            for (const std::size_t second : places) {
                if (second <= first) continue;
                std::vector<S> src = positive_numbers<S>(1031);
                src[first] = 0;
                src[second] = -5;
                expect_outcome(f, src, orvWrnLnOfZero);
                std::swap(src[first], src[second]);
                expect_outcome(f, src, orvWrnLnOfNegative);
            }
    });
}

/// Without a warning: a not-a-number with its sign bit set, of whatever sign the element is.
TEST(SumLn, of_a_not_a_number_is_one_without_a_warning)
{
    const auto check = []<class S, class D>(const SumExport<S, D>& f) {
        for (const bool negative : {false, true})
            for (const std::size_t n : lengths)
                for (const std::size_t place : places) {
                    if (place >= n) continue;
                    std::vector<S> src = positive_numbers<S>(n);
                    src[place] = nan_with_sign<S>(negative);
                    expect_outcome(f, src, orvOk);
                }
    };
    check(ORV_EXPORT(orvsSumLn_32f));
    check(ORV_EXPORT(orvsSumLn_64f));
    check(ORV_EXPORT(orvsSumLn_32f64f));
}

/// Blocks of 512: in one block a warning counts more than a not-a-number; the first block with either ends the work.
TEST(SumLn, the_first_block_decides)
{
    const auto check = []<class S, class D>(const SumExport<S, D>& f) {
        const auto outcome = [&](std::size_t of_nan, std::size_t of_other, S other, OrvStatus status) {
            std::vector<S> src = positive_numbers<S>(1600);
            src[of_nan] = nan_with_sign<S>(false);
            src[of_other] = other;
            expect_outcome(f, src, status);
        };
        for (const unsigned block : {0u, 512u, 1024u})
            for (const auto& [a, b] : {std::pair{0, 1}, {0, 511}, {3, 4}, {255, 256}, {100, 90}, {511, 0}}) {
                const auto nan = block + static_cast<std::size_t>(a), other = block + static_cast<std::size_t>(b);
                outcome(nan, other, 0, orvWrnLnOfZero);
                outcome(nan, other, -1, orvWrnLnOfNegative);
            }
        outcome(511, 512, 0, orvOk);
        outcome(0, 1599, -1, orvOk);
        outcome(1023, 1024, -1, orvOk);
        outcome(512, 511, 0, orvWrnLnOfZero);
        outcome(512, 511, -1, orvWrnLnOfNegative);
    };
    check(ORV_EXPORT(orvsSumLn_32f));
    check(ORV_EXPORT(orvsSumLn_64f));
    check(ORV_EXPORT(orvsSumLn_32f64f));
}

// ---- Calls

/// The length stands between the pointers.
TEST(SumLn, checks_pointers_before_length)
{
    for_all([](const auto& f) {
        ArgumentChecks(f, 4)
            .null_pointers()
            .template bad<1>(0, orvErrBadLength)
            .template bad<1>(-1, orvErrBadLength)
            .template bad<1>(INT_MIN, orvErrBadLength)
            .run();
    });
}

TEST(SumLn, does_not_depend_on_the_state)
{
    for_all([]<class S, class D>(const SumExport<S, D>& f) {
        for (const unsigned n : {1u, 3u, 8u, 511u, 513u, 1025u})
            for (const int special : {0, 1, 2, 3, 4}) {
                std::vector<S> src = positive_numbers<S>(n);
                if (special == 1) src[n / 2] = 0;
                if (special == 2) src[n / 2] = -1;
                if constexpr (std::floating_point<S>) {
                    if (special == 3) src[n / 2] = std::numeric_limits<S>::signaling_NaN();
                    if (special == 4) src[n / 2] = std::numeric_limits<S>::denorm_min();
                }
                D want, got;
                const OrvStatus status = f(src.data(), static_cast<int>(n), &want);
                for (const unsigned rounding : {to_nearest + 0u, round_down + 0u, round_up + 0u, round_to_zero + 0u})
                    for (const unsigned word :
                         {rounding | 0x1F80, rounding, rounding | flush_to_zero | denormals_are_zero}) {
                        const unsigned before = _mm_getcsr();
                        got = 77;
                        _mm_setcsr(word);
                        const OrvStatus now = f(src.data(), static_cast<int>(n), &got);
                        const unsigned after = _mm_getcsr();
                        _mm_setcsr(before);
                        EXPECT_EQ(now, status) << f.name() << std::hex << word;
                        EXPECT_EQ(bits(got), bits(want)) << f.name() << " in the state " << std::hex << word;
                        EXPECT_EQ(after & ~flag_bits, word) << f.name() << std::hex;
                    }
            }
    });
}

} // namespace
} // namespace orvtest
