// FIR filters on several threads: which blocks are spread over a team, that it may be smaller than asked for, and that
// filters of different threads do not meet.
#include "tests/arith/threads.h"
#include "tests/fir/direct.h"
#include "tests/fir/forms.h"

#include <thread>

namespace orvtest {
namespace {

Values some_taps(const FirTypes& form, std::size_t n)
{
    Random random(seed_of(form.form, n));
    return drawn(random, form.taps, n, form.taps.number == Number::binary_float ? 1 : 32767);
}

Values some_samples(const FirTypes& form, std::size_t n)
{
    Random random(seed_of("samples", n));
    return drawn(random, form.samples, n, form.is_scaled() ? 10000 : 1);
}

/// How many teams work on a block, one after another, of a filter of 10 taps, which never uses the FFT, or of 100.
int teams_of(const FirForm& form, std::size_t taps_len, std::size_t len, bool in_place)
{
    if (form.is_integer()) return 0;
    const std::size_t most = form.is_complex() ? 800 : 1600; // on one thread
    const std::size_t least_fft = form.is_complex() ? 256 : 512;
    const std::size_t compute_size = form.engine == FirEngine::single_precision ? 4 : 8;
    const auto counted = [&](std::size_t size, const auto& forks) {
        int count = 0;
        for (std::size_t begin = 0; begin < len; begin += size) {
            const std::size_t n = std::min(size, len - begin);
            if (n > most && forks(len - begin - n)) ++count;
        }
        return count;
    };
    const auto always = [](std::size_t) { return true; };
    if (form.is_mixed()) {
        if (taps_len < 64 || len < least_fft) return counted(2112, always);
        return counted(in_place ? 4224 * compute_size / form.samples.component_size : len, always);
    }
    return counted(in_place ? 4224 : len, [&](std::size_t rest) {
        return std::string(form.form) != "32f" || (taps_len >= 64 && (in_place ? rest : len) >= least_fft);
    });
}

TEST(FirThreads, long_blocks_have_teams)
{
    for (const FirForm& form : fir_forms())
        for (const std::size_t n : {10u, 100u})
            for (const std::size_t len : {300u, 800u, 801u, 1600u, 1601u, 2112u, 3000u, 3713u, 5000u, 9000u, 18600u})
                for (const bool in_place : {false, true}) {
                    const Values x = some_samples(form, len);
                    Values want;
                    for (const int threads : {1, 2, 8}) {
                        const Threads scope(threads);
                        FirFilter filter(form, some_taps(form, n));
                        teams = 0;
                        const AnyExport& f = in_place ? form.filter_in_place : form.filter;
                        const Values got = in_place ? filter.filter_in_place(x) : filter.filter(x);
                        EXPECT_EQ(teams, threads == 1 ? 0 : teams_of(form, n, len, in_place))
                            << f.name() << ", " << n << " taps, " << len << " samples, " << threads << " threads";
                        EXPECT_TRUE(teams == 0 || team_size == threads) << f.name();
                        if (threads == 1) want = got;
                        expect_same(f, form, got, want, std::to_string(threads) + " threads");
                        EXPECT_EQ(filter.delay(), newest(form.samples, Values(), x, n)) << form.form;
                    }
                }
}

/// More threads than there are blocks.
TEST(FirThreads, more_than_there_is_work_for)
{
    for (const FirForm& form : fir_forms())
        for (const std::size_t n : {10u, 100u, 300u, 1000u}) {
            const Values x = some_samples(form, 1700);
            Values want;
            for (const int threads : {1, 7, 16}) {
                const Threads scope(threads);
                FirFilter filter(form, some_taps(form, n), {}, before_guard);
                const Values got = filter.filter(x);
                if (threads == 1) want = got;
                expect_same(form.filter, form, got, want, std::to_string(threads) + " threads");
                filter.expect_no_damage(std::to_string(threads) + " threads");
            }
        }
}

/// A team may be smaller than asked for.
TEST(FirThreads, fewer_are_granted)
{
    for (const FirForm& form : fir_forms())
        for (const std::size_t n : {10u, 100u}) {
            const Values x = some_samples(form, 5000);
            Values want, want_in_place;
            for (const int most : {8, 3, 2, 1}) {
                const Threads scope(4);
                FirFilter filter(form, some_taps(form, n), {}, before_guard);
                granted = most;
                const Values got = filter.filter(x), got_in_place = filter.filter_in_place(x);
                granted = INT_MAX;
                if (want.empty()) {
                    want = got;
                    want_in_place = got_in_place;
                }
                expect_same(form.filter, form, got, want, std::to_string(most) + " granted");
                expect_same(form.filter_in_place, form, got_in_place, want_in_place, std::to_string(most) + " granted");
                filter.expect_no_damage(std::to_string(most) + " granted");
            }
        }
}

TEST(FirThreads, direct_forms_have_teams)
{
    for (const FirDirectForm& form : fir_direct_forms()) {
        const std::string name = form.form;
        const bool forks = name == "64f" || name == "32fc" || name == "64fc";
        const std::size_t least = form.is_complex() ? 801 : 1601;
        for (const std::size_t n : {1u, 2u, 15u})
            for (const std::size_t len : {least - 1, least, least + 1, std::size_t{5000}}) {
                const Values x = some_samples(form, len), past(n * static_cast<std::size_t>(form.samples.components));
                Values want;
                for (const int threads : {1, 2, 5}) {
                    const Threads scope(threads);
                    if (direct_road(form, n, len) == DirectRoad::record) continue;
                    DirectFilter filter(form, some_taps(form, n), 0, past, 0);
                    teams = 0;
                    const Values got = filter.filter(x, 0);
                    EXPECT_EQ(teams, forks && threads > 1 && len >= least ? 1 : 0)
                        << form.filter.name() << ", " << n << " taps, " << len << " samples, " << threads << " threads";
                    if (want.empty()) want = got;
                    expect_same(form.filter, form, got, want, std::to_string(threads) + " threads");
                }
            }
    }
}

// ---- Threads of the caller

/// A stream in blocks and single samples, with nothing but the library called on the thread.
struct Worker {
    Worker(const FirForm& f, std::size_t n, std::size_t number)
        : form(f),
          filter(f, some_taps(f, n)),
          src(encoded(f.samples, some_samples(f, samples + number))),
          dst(src.size())
    {}

    void run()
    {
        const std::size_t size = form.samples.size();
        std::size_t at = 0;
        for (std::size_t k = 0; at < samples; ++k) {
            constexpr std::size_t lengths[] = {1, 700, 33, 2, 1800, 300};
            const std::size_t len = std::min(lengths[k % std::size(lengths)], samples - at);
            const AnyArgument one[] = {AnyArgument::of_bytes(&src[at * size], size), AnyArgument::of(&dst[at * size]),
                                       AnyArgument::of(filter.state()), AnyArgument::of(1)};
            const OrvStatus status =
                len == 1 ? form.one.callee()->call(one)
                         : form.filter(&src[at * size], &dst[at * size], static_cast<int>(len), filter.state(), 1);
            worst = std::min<Orv32s>(worst, status);
            at += len;
        }
    }

    static constexpr std::size_t samples = 12000;
    const FirForm& form;
    FirFilter filter;
    std::vector<std::byte> src, dst;
    Orv32s worst = orvOk;
};

TEST(FirThreads, each_has_a_filter_of_its_own)
{
    for (const int inside : {1, 2})
        for (const FirForm& form : fir_forms())
            for (const std::size_t n : {12u, 100u}) {
                const Threads scope(inside);
                std::vector<std::unique_ptr<Worker>> alone, together;
                for (std::size_t i = 0; i < 3; ++i) {
                    alone.push_back(std::make_unique<Worker>(form, n + i, i));
                    together.push_back(std::make_unique<Worker>(form, n + i, i));
                }
                for (const auto& worker : alone) worker->run();
                {
                    std::vector<std::thread> threads;
                    for (const auto& worker : together) threads.emplace_back([&] { worker->run(); });
                    for (std::thread& thread : threads) thread.join();
                }
                for (std::size_t i = 0; i < alone.size(); ++i) {
                    const auto values = [&](const Worker& w) {
                        return decoded(form.samples, w.dst.data(), Worker::samples);
                    };
                    EXPECT_EQ(together[i]->worst, orvOk) << form.form;
                    expect_same(form.filter, form, values(*together[i]), values(*alone[i]), "threads of the caller");
                }
            }
}

} // namespace
} // namespace orvtest
