// Division on several threads: who works on how many, and that results and statuses are those of one thread.
#include "orvs/arith.h"

#include "tests/arith/quotients.h"
#include "tests/arith/threads.h"

#include <atomic>
#include <gtest/gtest.h>
#include <thread>

namespace orvtest {
namespace {

/// Operands for all lengths; the divisors are not 0.
template <class B, class A>
struct Data {
    std::vector<B> divisors;
    std::vector<A> dividends;

    explicit Data(std::uint64_t seed)
    {
        Random random(seed);
        divisors = inputs<B>(random, longest, Floats::small_integers);
        dividends = inputs<A>(random, longest, Floats::small_integers);
        for (B& b : divisors)
            if (is_zero(b)) std::memset(&b, 0x40, sizeof b); // a plain number in every type
    }
};

/// visit takes a Work<R>; the calls that are to be had from f, apart or in place.
template <class B, class A, class R, class Visit>
void with_divisors(const Division<B, A, R>& f, Spread spread, const Visit& visit)
{
    Data<B, A> data(seed_of(f.name, 1));
    B saved = {};
    visit(Work<R>{f.name,
                  [&](std::size_t first, R* dst, int n) {
                      return f.function(&data.divisors[first], &data.dividends[first], dst, n);
                  },
                  [&](std::size_t place) { saved = std::exchange(data.divisors[place], B{}); },
                  [&](std::size_t place) { data.divisors[place] = saved; }, spread});
}

/// DivC, apart: the sources are dividends.
template <class T, class... Last, class Visit>
void with_scalar(const Export<OrvStatus, const T*, T, T*, int, Last...>& f, T val, Spread spread, const Visit& visit,
                 std::type_identity_t<Last>... last)
{
    const Data<T, T> data(seed_of(f.name(), 1));
    visit(Work<T>{
        f.name(),
        [&, last...](std::size_t first, T* dst, int n) { return f(&data.dividends[first], val, dst, n, last...); },
        {},
        {},
        spread});
}
/// DivC in place.
template <class T, class... Last, class Visit>
void with_scalar(const Export<OrvStatus, T, T*, int, Last...>& f, T val, Spread spread, const Visit& visit,
                 std::type_identity_t<Last>... last)
{
    const Data<T, T> data(seed_of(f.name(), 1));
    visit(Work<T>{f.name(),
                  [&, last...](std::size_t first, T* dst, int n) {
                      std::copy_n(&data.dividends[first], n, dst);
                      return f(val, dst, n, last...);
                  },
                  {},
                  {},
                  spread});
}

/// DivCRev, apart and in place: the sources are divisors.
template <class T, class Visit>
void with_scalar_dividend(const Export<OrvStatus, const T*, T, T*, int>& f,
                          const Export<OrvStatus, T, T*, int>& in_place, T val, Spread spread, const Visit& visit)
{
    Data<T, T> data(seed_of(f.name(), 1));
    T saved = {};
    const auto put_zero = [&](std::size_t place) { saved = std::exchange(data.divisors[place], T{}); };
    const auto restore = [&](std::size_t place) { data.divisors[place] = saved; };
    visit(Work<T>{f.name(), [&](std::size_t first, T* dst, int n) { return f(&data.divisors[first], val, dst, n); },
                  put_zero, restore, spread});
    visit(Work<T>{in_place.name(),
                  [&](std::size_t first, T* dst, int n) {
                      std::copy_n(&data.divisors[first], n, dst);
                      return in_place(val, dst, n);
                  },
                  put_zero, restore, spread});
}

/// Every operation that is spread, once or at a few scales.
template <class Visit>
void for_each_spread(const Visit& visit)
{
    with_divisors(division(ORV_EXPORT(orvsDiv_32f)), {4096}, visit);
    with_divisors(division(ORV_EXPORT(orvsDiv_32f_I)), {4096}, visit);
    with_divisors(division(ORV_EXPORT(orvsDiv_64f)), {1024}, visit);
    with_divisors(division(ORV_EXPORT(orvsDiv_64f_I)), {1024}, visit);
    with_divisors(division(ORV_EXPORT(orvsDiv_32fc)), {1024}, visit);
    with_divisors(division(ORV_EXPORT(orvsDiv_32fc_I)), {1024}, visit);
    with_divisors(division(ORV_EXPORT(orvsDiv_64fc)), {1024}, visit);
    with_divisors(division(ORV_EXPORT(orvsDiv_64fc_I)), {1024}, visit);
    with_divisors(division(ORV_EXPORT(orvsDiv_8u_Sfs), -2), {1024}, visit);
    with_divisors(division(ORV_EXPORT(orvsDiv_8u_ISfs), 0), {1024}, visit);
    with_divisors(division(ORV_EXPORT(orvsDiv_16s_Sfs), -8), {1024}, visit);
    with_divisors(division(ORV_EXPORT(orvsDiv_16s_ISfs), 0), {1024}, visit);
    with_divisors(division(ORV_EXPORT(orvsDiv_16sc_Sfs), -8), {256}, visit);
    with_divisors(division(ORV_EXPORT(orvsDiv_16sc_ISfs), 0), {256}, visit);
    with_divisors(division(ORV_EXPORT(orvsDiv_32s_Sfs), -8), {1024}, visit);
    with_divisors(division(ORV_EXPORT(orvsDiv_32s_ISfs), 0), {1024}, visit);
    with_divisors(division(ORV_EXPORT(orvsDiv_32s16s_Sfs), 4), {1024}, visit);
    for (const OrvRoundMode mode : {orvRndZero, orvRndNear, orvRndFinancial}) {
        with_divisors(division(ORV_EXPORT(orvsDiv_Round_8u_Sfs), mode, -2), {512, all_threads}, visit);
        with_divisors(division(ORV_EXPORT(orvsDiv_Round_16u_Sfs), mode, -2), {1024, all_threads}, visit);
        with_divisors(division(ORV_EXPORT(orvsDiv_Round_16s_Sfs), mode, -2), {1024, all_threads}, visit);
    }
    with_divisors(division(ORV_EXPORT(orvsDiv_Round_8u_ISfs), orvRndNear, 0), {512, all_threads}, visit);
    with_divisors(division(ORV_EXPORT(orvsDiv_Round_16u_ISfs), orvRndNear, 0), {1024, all_threads}, visit);
    with_divisors(division(ORV_EXPORT(orvsDiv_Round_16s_ISfs), orvRndNear, 0), {1024, all_threads}, visit);

    with_scalar<Orv8u>(ORV_EXPORT(orvsDivC_8u_Sfs), 7, {4096}, visit, -2);
    with_scalar<Orv8u>(ORV_EXPORT(orvsDivC_8u_ISfs), 7, {4096}, visit, 1);
    with_scalar<Orv16s>(ORV_EXPORT(orvsDivC_16s_Sfs), -7, {4096}, visit, -8);
    with_scalar<Orv16s>(ORV_EXPORT(orvsDivC_16s_ISfs), 300, {4096}, visit, 0);
    with_scalar<Orv16sc>(ORV_EXPORT(orvsDivC_16sc_Sfs), {3, -4}, {1024}, visit, -2);
    with_scalar<Orv16sc>(ORV_EXPORT(orvsDivC_16sc_ISfs), {30, 7}, {1024}, visit, 0);
    with_scalar_dividend<Orv16u>(ORV_EXPORT(orvsDivCRev_16u), ORV_EXPORT(orvsDivCRev_16u_I), 50000, {2048}, visit);
    with_scalar_dividend<Orv32f>(ORV_EXPORT(orvsDivCRev_32f), ORV_EXPORT(orvsDivCRev_32f_I), 7.5f, {4096}, visit);
}

// ---- Tests

TEST(DivThreads, teams_of_the_right_size_with_the_results_of_one_thread)
{
    for_each_spread([](const auto& work) { work.check(); });
}

TEST(DivThreads, functions_that_use_one_thread)
{
    const auto check = [](const auto& work) { work.check(); };
    constexpr Spread never = {INT_MAX};
    with_divisors(division(ORV_EXPORT(orvsDiv_16u_Sfs), 0), never, check);
    with_divisors(division(ORV_EXPORT(orvsDiv_16u_ISfs), -3), never, check);
    with_scalar<Orv16u>(ORV_EXPORT(orvsDivC_16u_Sfs), 7, never, check, -2);
    with_scalar<Orv16u>(ORV_EXPORT(orvsDivC_16u_ISfs), 7, never, check, 0);
    with_scalar<Orv64s>(ORV_EXPORT(orvsDivC_64s_ISfs), -7, never, check, 2);
    with_scalar<Orv32f>(ORV_EXPORT(orvsDivC_32f), 3, never, check);
    with_scalar<Orv64f>(ORV_EXPORT(orvsDivC_64f_I), 3, never, check);
    with_scalar<Orv32fc>(ORV_EXPORT(orvsDivC_32fc), {3, 4}, never, check);
    with_scalar<Orv64fc>(ORV_EXPORT(orvsDivC_64fc_I), {3, 4}, never, check);
}

/// Scales at which no element is divided.
TEST(DivThreads, plain_loops_use_one_thread)
{
    const auto check = [](const auto& work) { work.check(); };
    constexpr Spread never = {INT_MAX};
    for (const int scale : {-31, 16}) {
        with_divisors(division(ORV_EXPORT(orvsDiv_16s_Sfs), scale), never, check);
        with_divisors(division(ORV_EXPORT(orvsDiv_16s_ISfs), scale), never, check);
    }
    for (const int scale : {-16, 9}) with_divisors(division(ORV_EXPORT(orvsDiv_8u_Sfs), scale), never, check);
    for (const int scale : {-63, 33}) with_divisors(division(ORV_EXPORT(orvsDiv_32s_Sfs), scale), never, check);
    for (const int scale : {-30, 32}) with_divisors(division(ORV_EXPORT(orvsDiv_32s16s_Sfs), scale), never, check);
    for (const int scale : {-31, 17}) {
        with_divisors(division(ORV_EXPORT(orvsDiv_Round_8u_Sfs), orvRndNear, scale), never, check);
        with_divisors(division(ORV_EXPORT(orvsDiv_Round_16u_Sfs), orvRndZero, scale), never, check);
        with_divisors(division(ORV_EXPORT(orvsDiv_Round_16s_Sfs), orvRndFinancial, scale), never, check);
    }
    for (const int scale : {-30, 16}) with_scalar<Orv16s>(ORV_EXPORT(orvsDivC_16s_Sfs), 3, never, check, scale);
    with_scalar<Orv8u>(ORV_EXPORT(orvsDivC_8u_Sfs), 3, never, check, -16);
}

/// The last scales on either side at which elements are divided.
TEST(DivThreads, kernels_use_threads_up_to_their_last_scale)
{
    const auto check = [](const auto& work) { work.check_threshold(); };
    for (const int scale : {-30, 15}) with_divisors(division(ORV_EXPORT(orvsDiv_16s_Sfs), scale), {1024}, check);
    for (const int scale : {-15, 8}) with_divisors(division(ORV_EXPORT(orvsDiv_8u_Sfs), scale), {1024}, check);
    for (const int scale : {-62, 32}) with_divisors(division(ORV_EXPORT(orvsDiv_32s_Sfs), scale), {1024}, check);
    for (const int scale : {-29, 31}) with_divisors(division(ORV_EXPORT(orvsDiv_32s16s_Sfs), scale), {1024}, check);
    for (const int scale : {-30, 16}) {
        with_divisors(division(ORV_EXPORT(orvsDiv_Round_8u_Sfs), orvRndNear, scale), {512, all_threads}, check);
        with_divisors(division(ORV_EXPORT(orvsDiv_Round_16u_Sfs), orvRndZero, scale), {1024, all_threads}, check);
        with_divisors(division(ORV_EXPORT(orvsDiv_Round_16s_Sfs), orvRndFinancial, scale), {1024, all_threads}, check);
    }
    for (const int scale : {-29, 15}) with_scalar<Orv16s>(ORV_EXPORT(orvsDivC_16s_Sfs), 3, {4096}, check, scale);
    for (const int scale : {-15, 8}) with_scalar<Orv8u>(ORV_EXPORT(orvsDivC_8u_Sfs), 3, {4096}, check, scale);
}

TEST(DivThreads, the_callers_state_holds_on_all_threads)
{
    for_each_spread([](const auto& work) { work.check_in_states(); });
}

// ---- Inside of other teams, and several callers

/// What callers do at once: a float and two integer divisions, one with a zero divisor.
struct Calls {
    static constexpr int n = 5003;
    Data<Orv32f, Orv32f> floats{11};
    Data<Orv16s, Orv16s> words{12};
    Data<Orv8u, Orv8u> bytes{13};
    std::vector<Orv32f> of_floats = std::vector<Orv32f>(n);
    std::vector<Orv16s> of_words = std::vector<Orv16s>(n);
    std::vector<Orv8u> of_bytes = std::vector<Orv8u>(n);

    Calls()
    {
        const Threads one(1);
        words.divisors[n - 1] = 0;
        orvsDiv_32f(floats.divisors.data(), floats.dividends.data(), of_floats.data(), n);
        orvsDiv_16s_Sfs(words.divisors.data(), words.dividends.data(), of_words.data(), n, -3);
        orvsDiv_Round_8u_Sfs(bytes.divisors.data(), bytes.dividends.data(), of_bytes.data(), n, orvRndFinancial, -1);
    }

    /// Says how often something was wrong.
    int run() const
    {
        std::vector<Orv32f> f(n);
        std::vector<Orv16s> w(n);
        std::vector<Orv8u> b(n);
        int wrong = 0;
        wrong += orvsDiv_32f(floats.divisors.data(), floats.dividends.data(), f.data(), n) != orvOk;
        wrong += orvsDiv_16s_Sfs(words.divisors.data(), words.dividends.data(), w.data(), n, -3) != orvWrnDivByZero;
        wrong += orvsDiv_Round_8u_Sfs(bytes.divisors.data(), bytes.dividends.data(), b.data(), n, orvRndFinancial,
                                      -1) != orvOk;
        return wrong + (f != of_floats) + (w != of_words) + (b != of_bytes);
    }
};

TEST(DivThreads, from_many_threads_at_once)
{
    const Calls calls;
    const Threads scope(3);
    std::atomic<int> wrong = 0;
    std::vector<std::thread> callers;
    for (int caller = 0; caller < 6; ++caller)
        callers.emplace_back([&] {
            for (int turn = 0; turn < 20; ++turn) wrong += calls.run();
        });
    for (std::thread& caller : callers) caller.join();
    EXPECT_EQ(wrong, 0);
}

std::atomic<int> runs_in_region = 0, wrong_in_region = 0;

/// The region of a caller that uses OpenMP itself.
void callers_region(Orv32s*, Orv32s*, const Calls* calls)
{
    wrong_in_region += calls->run();
    ++runs_in_region;
}

TEST(DivThreads, inside_of_a_region_of_the_caller)
{
    struct Source { // where a region stands in the source, as the runtime wants to know it
        Orv32s reserved1, flags, reserved2, reserved3;
        const char* text;
    };
    static const Source source = {0, 2, 0, 0, ";caller;region;0;0;;"};
    using Region = void (*)(Orv32s*, Orv32s*, const Calls*);
    const auto thread_number = of_runtime<Orv32s(const Source*)>("__kmpc_global_thread_num");
    const auto fork = of_runtime<void(const Source*, Orv32s, Region, ...)>("__kmpc_fork_call");
    ASSERT_TRUE(thread_number && fork);

    const Calls calls;
    for (const int threads : {1, 2, 4}) {
        const Threads scope(threads);
        for (int turn = 0; turn < 5; ++turn) {
            runs_in_region = wrong_in_region = 0;
            __kmpc_push_num_threads(&source, thread_number(&source), 3);
            fork(&source, 1, &callers_region, &calls);
            EXPECT_EQ(runs_in_region, 3);
            EXPECT_EQ(wrong_in_region, 0);
        }
    }
}

} // namespace
} // namespace orvtest
