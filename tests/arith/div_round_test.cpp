// dst = src2 / src1 as in Div, rounded in one of three modes.
#include "orvs/arith.h"

#include "tests/arith/caller_state.h"
#include "tests/arith/large.h"
#include "tests/arith/quotients.h"

#include <gtest/gtest.h>

namespace orvtest {
namespace {

constexpr OrvRoundMode modes[] = {orvRndZero, orvRndNear, orvRndFinancial};

/// Below -30 every quotient other than 0 is the limit, also those of unsigned words that would stay below it.
template <class T>
struct Wanted {
    OrvRoundMode mode;
    int scale;

    T operator()(T b, T a) const
    {
        if (std::is_same_v<T, Orv16u> && scale < -30 && a != 0) return std::numeric_limits<T>::max();
        return quotient<T>(a, b, scale, mode);
    }
};

// ---- Sweeps

template <class... Args>
bool sweep_modes_and_scales(const Export<OrvStatus, Args...>& f)
{
    for (const OrvRoundMode mode : modes)
        for (const int scale : scales_between(-34, 20)) {
            SweepOptions options = options_at_scale({}, scale, 34);
            if (scale == -16 || scale == -30) options = {};
            const Wanted<DestinationElement<Args...>> element = {mode, scale};
            if (!sweep_elements(with_zeros<0>(f.with(mode, scale)), element, options)) return false;
        }
    return true;
}

TEST(Div_Round_8u_Sfs, exact) { EXPECT_TRUE(sweep_modes_and_scales(ORV_EXPORT(orvsDiv_Round_8u_Sfs))); }
TEST(Div_Round_8u_ISfs, exact) { EXPECT_TRUE(sweep_modes_and_scales(ORV_EXPORT(orvsDiv_Round_8u_ISfs))); }
TEST(Div_Round_16u_Sfs, exact) { EXPECT_TRUE(sweep_modes_and_scales(ORV_EXPORT(orvsDiv_Round_16u_Sfs))); }
TEST(Div_Round_16u_ISfs, exact) { EXPECT_TRUE(sweep_modes_and_scales(ORV_EXPORT(orvsDiv_Round_16u_ISfs))); }
TEST(Div_Round_16s_Sfs, exact) { EXPECT_TRUE(sweep_modes_and_scales(ORV_EXPORT(orvsDiv_Round_16s_Sfs))); }
TEST(Div_Round_16s_ISfs, exact) { EXPECT_TRUE(sweep_modes_and_scales(ORV_EXPORT(orvsDiv_Round_16s_ISfs))); }

// ---- Order of checks

template <class... Args>
void expect_mode_checked_last(const Export<OrvStatus, Args...>& f)
{
    constexpr std::size_t mode_index = sizeof...(Args) - 2;
    for (const int scale : {INT_MIN, -31, -30, 0, 5, 16, 17, INT_MAX}) {
        for (const int number : {3, -1, 4, INT_MAX, INT_MIN}) {
            const auto bad_mode = std::bit_cast<OrvRoundMode>(number);
            ArgumentChecks checks(f, 4, orvRndNear, scale);
            checks.null_pointers().bad_lengths().template bad<mode_index>(bad_mode, orvErrBadRoundMode).run();
        }
        for (const OrvRoundMode mode : modes) expect_pointers_before_length(f, 4, mode, scale);
    }
}

TEST(Div_Round, checks_pointers_then_length_then_mode)
{
    expect_mode_checked_last(ORV_EXPORT(orvsDiv_Round_8u_Sfs));
    expect_mode_checked_last(ORV_EXPORT(orvsDiv_Round_8u_ISfs));
    expect_mode_checked_last(ORV_EXPORT(orvsDiv_Round_16u_Sfs));
    expect_mode_checked_last(ORV_EXPORT(orvsDiv_Round_16u_ISfs));
    expect_mode_checked_last(ORV_EXPORT(orvsDiv_Round_16s_Sfs));
    expect_mode_checked_last(ORV_EXPORT(orvsDiv_Round_16s_ISfs));
}

// ---- Notable quotients

/// The results in all modes: to zero, to nearest even, to nearest with ties away from zero.
template <class... Args>
std::array<int, 3> in_all_modes(const Export<OrvStatus, Args...>& f, int b, int a, int scale, OrvStatus status = orvOk)
{
    using T = DestinationElement<Args...>;
    std::array<int, 3> results = {};
    for (std::size_t i = 0; i < 3; ++i)
        results[i] = result_of_one(division(f, modes[i], scale), static_cast<T>(b), static_cast<T>(a), status);
    return results;
}
using Results = std::array<int, 3>;

TEST(Div_Round, ties)
{
    const auto f = ORV_EXPORT(orvsDiv_Round_16s_Sfs);
    EXPECT_EQ(in_all_modes(f, 2, 1, 0), (Results{0, 0, 1}));
    EXPECT_EQ(in_all_modes(f, 2, 3, 0), (Results{1, 2, 2}));
    EXPECT_EQ(in_all_modes(f, 2, 5, 0), (Results{2, 2, 3}));
    EXPECT_EQ(in_all_modes(f, 2, -5, 0), (Results{-2, -2, -3}));
    EXPECT_EQ(in_all_modes(f, -2, 5, 0), (Results{-2, -2, -3}));
    EXPECT_EQ(in_all_modes(f, -2, -7, 0), (Results{3, 4, 4}));
    EXPECT_EQ(in_all_modes(f, 3, 5, 0), (Results{1, 2, 2}));     // 1.67
    EXPECT_EQ(in_all_modes(f, 3, -4, 0), (Results{-1, -1, -1})); // -1.33
    EXPECT_EQ(in_all_modes(f, 3, 15, 1), (Results{2, 2, 3}));
    EXPECT_EQ(in_all_modes(f, 8, 5, -2), (Results{2, 2, 3}));
    EXPECT_EQ(in_all_modes(f, 32767, 32766, 0), (Results{0, 1, 1}));
    EXPECT_EQ(in_all_modes(f, 1, -32768, 16), (Results{0, 0, -1})); // minus one half
    EXPECT_EQ(in_all_modes(f, 1, 32767, 16), (Results{0, 0, 0}));
    EXPECT_EQ(in_all_modes(f, 1, -32768, 15), (Results{-1, -1, -1}));
    EXPECT_EQ(in_all_modes(f, 1, 32767, 15), (Results{0, 1, 1}));
    EXPECT_EQ(in_all_modes(ORV_EXPORT(orvsDiv_Round_16u_Sfs), 1, 32768, 16), (Results{0, 0, 1})); // one half
    EXPECT_EQ(in_all_modes(ORV_EXPORT(orvsDiv_Round_16u_Sfs), 65534, 32767, 0), (Results{0, 0, 1}));
    EXPECT_EQ(in_all_modes(ORV_EXPORT(orvsDiv_Round_8u_Sfs), 254, 127, 0), (Results{0, 0, 1}));
    EXPECT_EQ(in_all_modes(ORV_EXPORT(orvsDiv_Round_8u_Sfs), 2, 255, 0), (Results{127, 128, 128}));
}

TEST(Div_Round, at_the_limits)
{
    const auto f16s = ORV_EXPORT(orvsDiv_Round_16s_Sfs);
    const auto f16u = ORV_EXPORT(orvsDiv_Round_16u_Sfs);
    const auto f8u = ORV_EXPORT(orvsDiv_Round_8u_Sfs);
    EXPECT_EQ(in_all_modes(f16s, -1, -32768, 0), (Results{32767, 32767, 32767}));
    EXPECT_EQ(in_all_modes(f16s, 1, -32768, 0), (Results{-32768, -32768, -32768}));
    EXPECT_EQ(in_all_modes(f16s, -32768, 1, -30), (Results{-32768, -32768, -32768}));
    EXPECT_EQ(in_all_modes(f16s, -32768, 1, -29), (Results{-16384, -16384, -16384}));
    EXPECT_EQ(in_all_modes(f16s, 32767, 1, -29), (Results{16384, 16385, 16385})); // 16384.5 and 2^-16
    EXPECT_EQ(in_all_modes(f16u, 65535, 1, -30), (Results{16384, 16384, 16384})); // 16384.25 and 2^-18
    EXPECT_EQ(in_all_modes(f16u, 65535, 1, -31), (Results{65535, 65535, 65535})); // 32768.5 saturates all the same
    EXPECT_EQ(in_all_modes(f16u, 1, 65535, 17), (Results{0, 0, 0}));
    EXPECT_EQ(in_all_modes(f8u, 255, 255, -8), (Results{255, 255, 255}));
    EXPECT_EQ(in_all_modes(f8u, 255, 254, -8), (Results{254, 255, 255})); // 254.996
    EXPECT_EQ(in_all_modes(f8u, 1, 255, 9), (Results{0, 0, 0}));
    for (const int scale : {-31, -32, -100, INT_MIN}) {
        EXPECT_EQ(in_all_modes(f16s, 5, 0, scale), (Results{0, 0, 0})) << scale;
        EXPECT_EQ(in_all_modes(f16s, -32768, -1, scale), (Results{32767, 32767, 32767})) << scale;
        EXPECT_EQ(in_all_modes(f16s, -5, 3, scale), (Results{-32768, -32768, -32768})) << scale;
        EXPECT_EQ(in_all_modes(f16u, 5, 0, scale), (Results{0, 0, 0})) << scale; // unlike Div
        EXPECT_EQ(in_all_modes(f16u, 5, 1, scale), (Results{65535, 65535, 65535})) << scale;
        EXPECT_EQ(in_all_modes(f8u, 5, 0, scale), (Results{0, 0, 0})) << scale;
        EXPECT_EQ(in_all_modes(f8u, 255, 1, scale), (Results{255, 255, 255})) << scale;
    }
    for (const int scale : {INT_MIN, -32, -31, -30, -16, 0, 16, 17, INT_MAX}) {
        EXPECT_EQ(in_all_modes(f16s, 0, 0, scale, orvWrnDivByZero), (Results{0, 0, 0})) << scale;
        EXPECT_EQ(in_all_modes(f16s, 0, 3, scale, orvWrnDivByZero), (Results{32767, 32767, 32767})) << scale;
        EXPECT_EQ(in_all_modes(f16s, 0, -3, scale, orvWrnDivByZero), (Results{-32768, -32768, -32768})) << scale;
        EXPECT_EQ(in_all_modes(f16u, 0, 0, scale, orvWrnDivByZero), (Results{0, 0, 0})) << scale;
        EXPECT_EQ(in_all_modes(f16u, 0, 1, scale, orvWrnDivByZero), (Results{65535, 65535, 65535})) << scale;
        EXPECT_EQ(in_all_modes(f8u, 0, 0, scale, orvWrnDivByZero), (Results{0, 0, 0})) << scale;
        EXPECT_EQ(in_all_modes(f8u, 0, 1, scale, orvWrnDivByZero), (Results{255, 255, 255})) << scale;
    }
}

TEST(Div_Round, zeros_anywhere)
{
    for (const OrvRoundMode mode : modes) {
        for (const int scale : {-40, -8, 0, 40}) {
            expect_zeros_anywhere(division(ORV_EXPORT(orvsDiv_Round_8u_Sfs), mode, scale), Wanted<Orv8u>{mode, scale});
            expect_zeros_anywhere(division(ORV_EXPORT(orvsDiv_Round_16u_Sfs), mode, scale),
                                  Wanted<Orv16u>{mode, scale});
            expect_zeros_anywhere(division(ORV_EXPORT(orvsDiv_Round_16s_Sfs), mode, scale),
                                  Wanted<Orv16s>{mode, scale});
        }
        expect_zeros_anywhere(division(ORV_EXPORT(orvsDiv_Round_8u_ISfs), mode, 0), Wanted<Orv8u>{mode, 0});
        expect_zeros_anywhere(division(ORV_EXPORT(orvsDiv_Round_16u_ISfs), mode, 0), Wanted<Orv16u>{mode, 0});
        expect_zeros_anywhere(division(ORV_EXPORT(orvsDiv_Round_16s_ISfs), mode, 0), Wanted<Orv16s>{mode, 0});
    }
}

// ---- Sets of operands

TEST(Div_Round, of_all_pairs_of_8u)
{
    const Pairs<Orv8u> pairs(all_bytes<Orv8u>(), all_bytes<Orv8u>());
    for (const OrvRoundMode mode : modes)
        for (int scale = -33; scale <= 18; ++scale)
            ASSERT_TRUE(expect_quotients(division(ORV_EXPORT(orvsDiv_Round_8u_Sfs), mode, scale), pairs.first,
                                         pairs.second, Wanted<Orv8u>{mode, scale}));
}

template <class T>
void expect_near_operands(const Export<OrvStatus, const T*, const T*, T*, int, OrvRoundMode, int>& f, int bits)
{
    const std::vector<T> divisors = all_words<T>();
    for (int scale = -33; scale <= 18; ++scale) {
        const Operands<T, T> operands = near_operands<T>(divisors, 4, bits, scale);
        for (const OrvRoundMode mode : modes)
            ASSERT_TRUE(expect_quotients(division(f, mode, scale), operands, Wanted<T>{mode, scale}));
    }
}
TEST(Div_Round, of_16s_near_ties_for_every_divisor) { expect_near_operands(ORV_EXPORT(orvsDiv_Round_16s_Sfs), 15); }
TEST(Div_Round, of_16u_near_ties_for_every_divisor) { expect_near_operands(ORV_EXPORT(orvsDiv_Round_16u_Sfs), 16); }

/// Every dividend, over some divisors of each magnitude.
template <class T>
void expect_every_dividend(const Export<OrvStatus, const T*, const T*, T*, int, OrvRoundMode, int>& f)
{
    const std::vector<T> words = all_words<T>();
    for (const int divisor : {0, 1, 2, -3, 7, 10, 256, -1000, 12345, 32767, -32768})
        for (const int scale : {-30, -16, -8, -1, 0, 1, 4, 16})
            for (const OrvRoundMode mode : modes) {
                const std::vector<T> b(words.size(), static_cast<T>(divisor));
                ASSERT_TRUE(expect_quotients(division(f, mode, scale), b, words, Wanted<T>{mode, scale}));
            }
}
TEST(Div_Round, of_every_dividend_of_16_bits)
{
    expect_every_dividend(ORV_EXPORT(orvsDiv_Round_16s_Sfs));
    expect_every_dividend(ORV_EXPORT(orvsDiv_Round_16u_Sfs));
}

// ---- Large arrays

template <class... Args>
void expect_large(const Export<OrvStatus, Args...>& f)
{
    for (const auto& [mode, scale] :
         {std::pair(orvRndFinancial, 0), {orvRndNear, -8}, {orvRndZero, 2}, {orvRndNear, 40}}) {
        const Wanted<DestinationElement<Args...>> element = {mode, scale};
        EXPECT_TRUE(check_large(with_zeros<0>(f.with(mode, scale)), element));
    }
}
TEST(Div_Round, of_large_arrays)
{
    ASSERT_EQ(orvSetNumThreads(2), orvOk);
    expect_large(ORV_EXPORT(orvsDiv_Round_8u_Sfs));
    expect_large(ORV_EXPORT(orvsDiv_Round_8u_ISfs));
    expect_large(ORV_EXPORT(orvsDiv_Round_16u_Sfs));
    expect_large(ORV_EXPORT(orvsDiv_Round_16u_ISfs));
    expect_large(ORV_EXPORT(orvsDiv_Round_16s_Sfs));
    expect_large(ORV_EXPORT(orvsDiv_Round_16s_ISfs));
    orvSetNumThreads(1);
}

// ---- The caller's floating-point state

template <class T, class... Args>
void expect_in_any_state(const Export<OrvStatus, Args...>& f, const std::vector<T>& divisors, int bits,
                         Exceptions exceptions)
{
    for (const OrvRoundMode mode : modes)
        for (const int scale : {-31, -16, -3, 0, 1, 5, 17}) {
            const auto call = division(f, mode, scale);
            auto operands = near_operands<T>(divisors, 1, bits, scale);
            expect_the_same_in_any_state(call, operands, Wanted<T>{mode, scale}, exceptions);
            operands.add(0, 5);
            operands.add(0, 0);
            expect_the_same_in_any_state(call, operands, Wanted<T>{mode, scale}, exceptions);
        }
}
void expect_all_in_any_state(Exceptions exceptions)
{
    expect_in_any_state(ORV_EXPORT(orvsDiv_Round_8u_Sfs), all_bytes<Orv8u>(), 8, exceptions);
    expect_in_any_state(ORV_EXPORT(orvsDiv_Round_8u_ISfs), all_bytes<Orv8u>(), 8, exceptions);
    expect_in_any_state(ORV_EXPORT(orvsDiv_Round_16u_Sfs), critical_values<Orv16u>(1, 300), 16, exceptions);
    expect_in_any_state(ORV_EXPORT(orvsDiv_Round_16u_ISfs), critical_values<Orv16u>(1, 300), 16, exceptions);
    expect_in_any_state(ORV_EXPORT(orvsDiv_Round_16s_Sfs), critical_values<Orv16s>(1, 300), 15, exceptions);
    expect_in_any_state(ORV_EXPORT(orvsDiv_Round_16s_ISfs), critical_values<Orv16s>(1, 300), 15, exceptions);
}
TEST(Div_Round, does_not_depend_on_the_callers_state) { expect_all_in_any_state(Exceptions::masked); }
TEST(Div_Round, raises_no_exception) { expect_all_in_any_state(Exceptions::unmasked); }

} // namespace
} // namespace orvtest
