// Work that is spread over threads: who works on how many elements, and that the results are those of one thread.
//
// The runtime's entry that takes the size of the next team is defined here as well. A program's own definition comes
// first, so that the library's calls end here; they are counted and handed on. So only one file of a program includes
// this one.
#pragma once

#include "tests/arith/calls.h"
#include "tests/support/threads.h"

#include <algorithm>
#include <atomic>
#include <climits>
#include <dlfcn.h>
#include <gtest/gtest.h>

namespace orvtest {

/// A function of the OpenMP runtime, which the library has loaded.
template <class Function>
Function* of_runtime(const char* name)
{
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

inline std::atomic<int> teams = 0;         ///< asked for since it was last set to 0
inline std::atomic<int> team_size = 0;     ///< of the last one
inline std::atomic<int> granted = INT_MAX; ///< threads of a team at most, however many are asked for

} // namespace orvtest

extern "C" [[gnu::visibility("default")]] void __kmpc_push_num_threads(const void* source, Orv32s thread, Orv32s count);

void __kmpc_push_num_threads(const void* source, Orv32s thread, Orv32s count)
{
    ++orvtest::teams;
    orvtest::team_size = count;
    orvtest::of_runtime<decltype(__kmpc_push_num_threads)>("__kmpc_push_num_threads")(
        source, thread, std::min(count, orvtest::granted.load()));
}

namespace orvtest {

inline constexpr std::size_t longest = 100003;

/// How an operation is spread over threads.
struct Spread {
    int threshold; ///< the least length for a team; INT_MAX: there is never one
    int most = 2;  ///< threads of a team
};
inline constexpr int all_threads = INT_MAX;

/// An operation on its own data: f(first, dst, n) processes n elements from the first on.
template <class R>
struct Work {
    const char* name;
    std::function<OrvStatus(std::size_t first, R* dst, int n)> f;
    std::function<void(std::size_t)> put_notable; ///< makes one element that is warned of; empty where there is none
    std::function<void(std::size_t)> restore;
    Spread spread;
    OrvStatus warning = orvWrnDivByZero;

    /// The results for the first n elements, from pieces that are too short for a team.
    std::vector<R> on_one_thread(int n) const
    {
        const Threads one(1);
        std::vector<R> results(static_cast<std::size_t>(n));
        for (std::size_t at = 0; at < results.size(); at += 100)
            f(at, &results[at], static_cast<int>(std::min<std::size_t>(100, results.size() - at)));
        return results;
    }

    void expect(int n, int threads, const std::vector<R>& want, OrvStatus status) const
    {
        const Threads scope(threads);
        std::vector<R> got(static_cast<std::size_t>(n));
        teams = 0;
        EXPECT_EQ(f(0, got.data(), n), status) << name << ", " << n << " elements, " << threads << " threads";
        if (threads == 1 || n < spread.threshold) {
            EXPECT_EQ(teams, 0) << name << ", " << n << " elements, " << threads << " threads";
        } else {
            EXPECT_EQ(teams, 1) << name << ", " << n << " elements, " << threads << " threads";
            EXPECT_EQ(team_size, std::min(threads, spread.most)) << name;
        }
        const std::size_t i = first_difference(element_type<R>(), got.data(), want.data(), got.size());
        EXPECT_EQ(i, got.size()) << name << ", " << n << " elements, " << threads << " threads";
    }

    std::vector<int> lengths() const
    {
        std::vector<int> all = {4097, static_cast<int>(longest)};
        if (spread.threshold != INT_MAX)
            for (const int n : {spread.threshold - 1, spread.threshold, spread.threshold + 1}) all.push_back(n);
        return all;
    }

    /// From the threshold on there is a team.
    void check_threshold() const
    {
        const int n = spread.threshold;
        expect(n, 8, on_one_thread(n), orvOk);
    }

    /// Floats of all threads are rounded as the caller wants, and integers by their own law.
    void check_in_states() const
    {
        for (const unsigned state :
             {unsigned{round_up}, unsigned{round_down}, unsigned{round_to_zero}, unsigned{flush_to_zero}}) {
            const CallerState scope(state);
            const std::vector<R> want = on_one_thread(10007);
            for (const int threads : {2, 8}) expect(10007, threads, want, orvOk);
        }
    }

    void check() const
    {
        for (const int n : lengths()) {
            const std::vector<R> want = on_one_thread(n);
            for (const int threads : {1, 2, 3, 8}) expect(n, threads, want, orvOk);
            if (!put_notable) continue;
            const auto length = static_cast<std::size_t>(n);
            for (const std::size_t place : {std::size_t{0}, length / 2 - 1, length / 2, length - 1}) {
                put_notable(place);
                const std::vector<R> want_with_notable = on_one_thread(n);
                for (const int threads : {1, 2, 8}) expect(n, threads, want_with_notable, warning);
                restore(place);
            }
        }
    }
};

} // namespace orvtest
