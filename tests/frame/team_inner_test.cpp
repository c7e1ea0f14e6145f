// Slices of a team of threads, with pretended numbers of threads.
#include "frame/team.h"

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <deque>
#include <gtest/gtest.h>
#include <immintrin.h>
#include <mutex>
#include <numeric>
#include <string>
#include <thread>
#include <vector>

extern "C" {
void omp_set_num_threads(int);
void omp_set_dynamic(int);
void omp_set_max_active_levels(int);
int omp_get_level();
}

// ---- What the core library and the runtime say here: definitions of the program come before those of libraries

namespace {

std::mutex answers_mutex;
std::deque<int> answers = {1}; // the last one stays
std::atomic<bool> may_fork = true;
std::atomic<int> questions = 0; // whether it may fork

void pretend_threads(std::deque<int> counts)
{
    const std::scoped_lock lock(answers_mutex);
    answers = std::move(counts);
}

} // namespace

int ownGetNumThreads()
{
    const std::scoped_lock lock(answers_mutex);
    const int answer = answers.front();
    if (answers.size() > 1) answers.pop_front();
    return answer;
}

Orv32s __kmpc_ok_to_fork(const ident_t*)
{
    ++questions;
    return may_fork;
}

namespace {

using ORV_VARIANT::on_team;
using ORV_VARIANT::TeamSize;

// ---- What a kernel sees

struct Slice {
    int first, count;
    std::thread::id thread;
    int team; ///< as the runtime tells inside
};

/// The slices of one call, in ascending order, and what the call returned.
struct TeamCall {
    std::vector<Slice> slices;
    int result;
};

/// The kernel returns warning(first, count). All regions are left when the call returns.
template <class Warning>
TeamCall run(TeamSize size, int len, const Warning& warning)
{
    TeamCall made = {};
    std::mutex mutex;
    const int level = omp_get_level();
    made.result = on_team(size, len, [&](int first, int count) {
        const std::scoped_lock lock(mutex);
        made.slices.push_back({first, count, std::this_thread::get_id(), omp_get_num_threads()});
        return warning(first, count);
    });
    EXPECT_EQ(omp_get_level(), level);
    std::sort(made.slices.begin(), made.slices.end(),
              [](const Slice& a, const Slice& b) { return std::pair(a.first, a.count) < std::pair(b.first, b.count); });
    return made;
}
TeamCall run(TeamSize size, int len)
{
    return run(size, len, [](int, int) { return 0; });
}

/// Expects a vector cut for a team: equal slices, the last with the rest, each on a thread of its own, the first on
/// the caller's.
void expect_slices(const TeamCall& made, int len, int team)
{
    ASSERT_EQ(made.slices.size(), static_cast<std::size_t>(team)) << "length " << len;
    std::vector<std::thread::id> threads;
    for (int i = 0; i < team; ++i) {
        const Slice& slice = made.slices[static_cast<std::size_t>(i)];
        EXPECT_EQ(slice.first, i * (len / team)) << "length " << len << ", slice " << i << " of " << team;
        EXPECT_EQ(slice.count, i < team - 1 ? len / team : len - (team - 1) * (len / team))
            << "length " << len << ", slice " << i << " of " << team;
        threads.push_back(slice.thread);
    }
    EXPECT_EQ(threads.front(), std::this_thread::get_id());
    std::sort(threads.begin(), threads.end());
    EXPECT_EQ(std::adjacent_find(threads.begin(), threads.end()), threads.end()) << "a thread has two slices";
}

/// Expects disjoint slices that cover [0, len); their number is the runtime's business.
void expect_cover(const TeamCall& made, int len)
{
    int next = 0;
    for (const Slice& slice : made.slices) {
        EXPECT_EQ(slice.first, next);
        next += slice.count;
    }
    EXPECT_EQ(next, len);
}

// ---- Tests

TEST(OnTeam, one_thread_does_all_itself)
{
    for (const int wanted : {1, 0, -1}) {
        pretend_threads({wanted});
        for (const TeamSize size : {TeamSize::two, TeamSize::all})
            for (const int len : {1, 2, 4097}) {
                const int before = questions;
                expect_slices(run(size, len), len, 1);
                EXPECT_EQ(questions, before) << "the runtime has no part in it";
            }
    }
}

TEST(OnTeam, equal_slices_and_the_last_has_the_rest)
{
    for (const int wanted : {2, 3, 8}) {
        pretend_threads({wanted});
        std::vector<int> lengths(70);
        std::iota(lengths.begin(), lengths.end(), wanted);
        lengths.insert(lengths.end(), {4095, 4096, 4097, 65535, 100003, 0x7FFFFFFF});
        for (const int len : lengths) {
            expect_slices(run(TeamSize::all, len), len, wanted);
            expect_slices(run(TeamSize::two, len), len, 2);
        }
    }
}

TEST(OnTeam, slices_of_4097)
{
    pretend_threads({8});
    const TeamCall made = run(TeamSize::two, 4097);
    ASSERT_EQ(made.slices.size(), 2u);
    EXPECT_EQ(made.slices[0].first, 0);
    EXPECT_EQ(made.slices[0].count, 2048);
    EXPECT_EQ(made.slices[1].first, 2048);
    EXPECT_EQ(made.slices[1].count, 2049);
}

TEST(OnTeam, a_vector_shorter_than_the_number_of_threads_is_not_cut)
{
    for (const int wanted : {2, 3, 8}) {
        pretend_threads({wanted});
        const int before = questions;
        for (int len = 1; len < wanted; ++len) {
            expect_slices(run(TeamSize::all, len), len, 1);
            expect_slices(run(TeamSize::two, len), len, 1); // also if it is longer than the team would be
        }
        EXPECT_EQ(questions, before) << "the runtime has no part in it";
        expect_slices(run(TeamSize::all, wanted), wanted, wanted);
        expect_slices(run(TeamSize::two, wanted), wanted, 2);
    }
}

TEST(OnTeam, a_warning_of_any_slice_is_a_warning)
{
    for (const int wanted : {1, 2, 3, 8}) {
        pretend_threads({wanted});
        for (const TeamSize size : {TeamSize::two, TeamSize::all}) {
            constexpr int len = 1003;
            EXPECT_EQ(run(size, len).result, 0);
            EXPECT_NE(run(size, len, [](int, int) { return 6; }).result, 0);
            for (const Slice& slice : run(size, len).slices)
                for (const int value : {1, -1, 256}) {
                    const auto warning = [&](int first, int) { return first == slice.first ? value : 0; };
                    EXPECT_NE(run(size, len, warning).result, 0) << "slice at " << slice.first << " of " << wanted;
                }
        }
    }
}

TEST(OnTeam, results_of_all_slices_are_there_when_it_returns)
{
    pretend_threads({3});
    for (int round = 0; round < 200; ++round) {
        std::vector<int> elements(1000 + static_cast<std::size_t>(round));
        on_team(TeamSize::all, static_cast<int>(elements.size()), [&](int first, int count) {
            for (int i = first; i < first + count; ++i) elements[static_cast<std::size_t>(i)] += i + 1;
            return 0;
        });
        std::vector<int> want(elements.size());
        std::iota(want.begin(), want.end(), 1);
        ASSERT_EQ(elements, want);
    }
}

TEST(OnTeam, slices_compute_in_the_state_of_the_caller)
{
    constexpr unsigned flags = 0x3f, toward_zero_and_flush = 0xe040;
    const unsigned own = _mm_getcsr();
    pretend_threads({4});
    for (const unsigned word : {own | toward_zero_and_flush, own}) {
        std::mutex mutex;
        std::vector<unsigned> seen;
        _mm_setcsr(word);
        on_team(TeamSize::all, 1000, [&](int, int) {
            const std::scoped_lock lock(mutex);
            seen.push_back(_mm_getcsr() & ~flags);
            return 0;
        });
        EXPECT_EQ(_mm_getcsr() & ~flags, word & ~flags);
        _mm_setcsr(own);
        EXPECT_EQ(seen, std::vector<unsigned>(4, word & ~flags));
    }
}

TEST(OnTeam, a_runtime_that_must_not_fork)
{
    may_fork = false;
    pretend_threads({8});
    for (const TeamSize size : {TeamSize::two, TeamSize::all})
        for (const int len : {8, 100, 4097}) {
            const TeamCall made = run(size, len, [](int, int) { return 1; });
            expect_slices(made, len, 1);
            EXPECT_NE(made.result, 0);
            EXPECT_EQ(run(size, len).result, 0);
        }
    may_fork = true;
    expect_slices(run(TeamSize::all, 100), 100, 8); // the region has been left
}

TEST(OnTeam, the_number_of_threads_changes_between_two_looks)
{
    for (const TeamSize size : {TeamSize::two, TeamSize::all}) {
        pretend_threads({8, 1});
        expect_slices(run(size, 100), 100, 1);
        pretend_threads({2, 8});
        expect_slices(run(size, 100), 100, size == TeamSize::two ? 2 : 8);
        pretend_threads({2, 8}); // more threads than elements
        expect_cover(run(size, 5), 5);
    }
}

// ---- Inside of other teams, and several callers

TEST(OnTeam, inside_of_a_slice)
{
    pretend_threads({3});
    std::mutex mutex;
    int inner_runs = 0;
    const TeamCall outer = run(TeamSize::all, 300, [&](int, int count) {
        const TeamCall inner = run(TeamSize::all, count, [](int first, int) { return first == 0; });
        const std::scoped_lock lock(mutex);
        ++inner_runs;
        expect_cover(inner, count);
        EXPECT_NE(inner.result, 0);
        return 0;
    });
    expect_cover(outer, 300);
    EXPECT_EQ(outer.result, 0);
    EXPECT_EQ(inner_runs, static_cast<int>(outer.slices.size()));
}

std::mutex region_mutex;
std::vector<TeamCall> region_runs;

/// The region of a caller that uses OpenMP itself.
void callers_region(Orv32s*, Orv32s*, const int* len)
{
    const TeamCall made = run(TeamSize::all, *len, [](int, int) { return 1; });
    const std::scoped_lock lock(region_mutex);
    region_runs.push_back(made);
}

TEST(OnTeam, inside_of_a_region_of_the_caller)
{
    pretend_threads({4});
    region_runs.clear();
    const int len = 1001;
    const ident_t* source = &ORV_VARIANT::team_source;
    __kmpc_push_num_threads(source, __kmpc_global_thread_num(source), 3);
    __kmpc_fork_call(source, 1, reinterpret_cast<kmpc_micro>(&callers_region), &len);
    EXPECT_EQ(region_runs.size(), 3u);
    for (const TeamCall& made : region_runs) {
        expect_cover(made, len);
        EXPECT_NE(made.result, 0);
    }
}

TEST(OnTeam, from_many_threads_at_once)
{
    pretend_threads({3});
    std::vector<std::thread> callers;
    for (int caller = 0; caller < 8; ++caller)
        callers.emplace_back([caller] {
            for (int round = 0; round < 30; ++round) {
                const int len = 100 + 31 * caller + round, marked = round % 3;
                const TeamCall made =
                    run(TeamSize::all, len, [&](int first, int) { return first == marked * (len / 3) && marked > 0; });
                expect_slices(made, len, 3);
                EXPECT_EQ(made.result != 0, marked > 0);
            }
        });
    for (std::thread& caller : callers) caller.join();
}

// ---- A runtime that gives fewer threads than asked for; each case in a process of its own

class FewerThreadsDeathTest : public testing::Test {
protected:
    FewerThreadsDeathTest() { GTEST_FLAG_SET(death_test_style, "threadsafe"); }

    /// Ends the copy: with 0 if no expectation has failed there.
    [[noreturn]] static void end() { std::_Exit(HasFailure()); }
};

TEST_F(FewerThreadsDeathTest, a_limit_of_one)
{
    ASSERT_EQ(setenv("OMP_THREAD_LIMIT", "1", 1), 0);
    const auto with_limit = [] {
        pretend_threads({8});
        for (const TeamSize size : {TeamSize::two, TeamSize::all})
            for (const int len : {8, 4097}) {
                const TeamCall made = run(size, len, [](int, int) { return 1; });
                expect_slices(made, len, 1);
                EXPECT_EQ(made.slices[0].team, 1);
                EXPECT_NE(made.result, 0);
            }
        end();
    };
    EXPECT_EXIT(with_limit(), testing::ExitedWithCode(0), "");
    unsetenv("OMP_THREAD_LIMIT");
}

TEST_F(FewerThreadsDeathTest, a_limit_of_three)
{
    ASSERT_EQ(setenv("OMP_THREAD_LIMIT", "3", 1), 0);
    const auto with_limit = [] {
        pretend_threads({8});
        for (const int len : {8, 9, 10, 11, 4097}) {
            expect_slices(run(TeamSize::all, len), len, 3);
            expect_slices(run(TeamSize::two, len), len, 2);
        }
        end();
    };
    EXPECT_EXIT(with_limit(), testing::ExitedWithCode(0), "");
    unsetenv("OMP_THREAD_LIMIT");
}

TEST_F(FewerThreadsDeathTest, settings_of_the_caller)
{
    const auto with_settings = [] {
        pretend_threads({8});
        omp_set_num_threads(1); // the size that a region asks for comes first
        expect_slices(run(TeamSize::all, 1000), 1000, 8);
        omp_set_dynamic(1); // now it is what the runtime finds good
        for (int len = 8; len < 200; ++len) expect_cover(run(TeamSize::all, len), len);
        omp_set_dynamic(0);
        omp_set_max_active_levels(0); // no region may fork
        expect_slices(run(TeamSize::all, 1000), 1000, 1);
        end();
    };
    EXPECT_EXIT(with_settings(), testing::ExitedWithCode(0), "");
}

} // namespace
