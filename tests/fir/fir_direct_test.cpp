// FIR filters without a record: their results, and what becomes of the delay line and its index.
#include "tests/arith/caller_state.h"
#include "tests/fir/checks.h"
#include "tests/fir/direct.h"
#include "tests/fir/forms.h"
#include "tests/support/digest.h"
#include "tests/support/threads.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace orvtest {
namespace {

struct Signal {
    Values taps, past, x;
    int factor = 0, scale = 0;
};

Signal signal_of(const FirDirectForm& form, std::size_t taps_len, std::size_t len)
{
    Random random(seed_of(form.form, taps_len));
    Signal s;
    const bool is_float = form.taps.number == Number::binary_float;
    const double size = is_float ? 1 : form.taps.component_size == 2 ? 32767 : 1e6;
    s.taps = drawn(random, form.taps, taps_len, size);
    const double most = !form.is_scaled() ? 1 : form.samples.component_size == 2 ? 32767 : 2147483647;
    s.past = drawn(random, form.samples, taps_len, most);
    s.x = drawn(random, form.samples, len, most);
    s.factor = -14;
    if (form.is_integer()) s.scale = 3;
    else if (form.is_scaled()) s.scale = 2;
    return s;
}

/// The FFT is used where the record of the same form uses it.
FirBounds bounds_of(const FirDirectForm& form, const Signal& s, bool exact = false)
{
    return fir_bounds(form, s.taps, direct_factor(form, s.factor), s.past, s.x, s.scale, fir_form(form.form).fft_taps,
                      exact);
}

FirBounds first(const FirTypes& form, const FirBounds& bounds, std::size_t n)
{
    const auto end = static_cast<std::ptrdiff_t>(n) * form.samples.components;
    return {{bounds.low.begin(), bounds.low.begin() + end}, {bounds.high.begin(), bounds.high.begin() + end}};
}

std::string words(std::size_t taps, std::size_t samples, int index)
{
    return std::to_string(taps) + " taps, " + std::to_string(samples) + " samples, index " + std::to_string(index);
}

/// After the call the line has the past where the road leaves it: in the window behind the index, and, for single
/// samples that have gone around, in front of it.
void expect_line(const AnyExport& f, const FirTypes& form, const DirectFilter& filter, const Values& past,
                 DirectRoad road, int index_before, std::size_t len, const std::string& what)
{
    const std::size_t n = count(form.samples, past);
    const Values line = filter.line();
    look_at(f.name(), element_type<Orv64f>(), line.data(), line.size());
    if (road == DirectRoad::newest_first) {
        EXPECT_EQ(filter.index(), 0) << f.name() << ", " << what;
        EXPECT_EQ(part(form.samples, line, 0, n), past) << f.name() << ", " << what;
        return;
    }
    const auto taps_len = static_cast<int>(n);
    const int moved = static_cast<int>((static_cast<std::size_t>(index_before) + len) % n);
    const int want = road == DirectRoad::samples ? moved : road == DirectRoad::lanes ? taps_len - 1 : index_before;
    ASSERT_EQ(filter.index(), want) << f.name() << ", " << what;
    for (std::size_t i = 0; i < static_cast<std::size_t>(want) + n; ++i) {
        const std::size_t age = n - 1 - (i + n - static_cast<std::size_t>(want)) % n;
        ASSERT_EQ(part(form.samples, line, i, 1), part(form.samples, past, age, 1))
            << f.name() << ", " << what << ": element " << i << " of the line";
    }
}

constexpr std::size_t taps_lengths[] = {1, 2, 3, 7, 8, 9, 15, 16, 17, 31, 32, 33, 64, 100};

std::vector<std::size_t> block_lengths(std::size_t n)
{
    std::vector<std::size_t> all = {1, 2, n, n + 1, 2 * n};
    if (n > 1) all.push_back(n - 1);
    for (const std::size_t limit : {128u, 256u, 801u, 1601u})
        for (const std::size_t len : {limit - 1, limit, limit + 1}) all.push_back(len);
    return all;
}

TEST(FirDirect, blocks)
{
    const Threads scope(1);
    for (const FirDirectForm& form : fir_direct_forms())
        for (const std::size_t n : taps_lengths) {
            const Signal s = signal_of(form, n, 1602);
            const FirBounds want = bounds_of(form, s);
            const auto last = static_cast<int>(n) - 1;
            for (const int index : {0, last / 2, last}) {
                DirectFilter filter(form, s.taps, s.factor, s.past, index);
                for (const std::size_t len : block_lengths(n))
                    for (const bool in_place : {false, true}) {
                        const Values x = part(form.samples, s.x, 0, len);
                        const DirectRoad road = direct_road(form, n, len);
                        if (road == DirectRoad::newest_first) filter.set_line_of_blocks(s.past, index);
                        else filter.set_line(s.past, index);
                        const AnyExport& f = in_place ? form.filter_in_place : form.filter;
                        const Values y = in_place ? filter.filter_in_place(x, s.scale) : filter.filter(x, s.scale);
                        const std::string what = words(n, len, index);
                        if (!expect_within(f, form, y, first(form, want, len), what)) return;
                        const Values past = newest(form.samples, s.past, x, n);
                        expect_line(f, form, filter, past, road, index, len, what);
                        if (testing::Test::HasFatalFailure()) return;
                    }
                filter.expect_no_damage();
            }
        }
}

TEST(FirOneDirect, samples)
{
    for (const FirDirectForm& form : fir_direct_forms())
        for (const std::size_t n : taps_lengths) {
            const Signal s = signal_of(form, n, 2 * n + 3);
            const FirBounds want = bounds_of(form, s);
            const auto last = static_cast<int>(n) - 1;
            for (const int index : {0, last / 2, last}) {
                DirectFilter filter(form, s.taps, s.factor, s.past, index),
                    other(form, s.taps, s.factor, s.past, index);
                const std::string what = words(n, 2 * n + 3, index);
                if (!expect_within(form.one, form, filter.one_by_one(s.x, s.scale), want, what)) return;
                if (!expect_within(form.one_in_place, form, other.one_by_one_in_place(s.x, s.scale), want, what))
                    return;
                const Values past = newest(form.samples, s.past, s.x, n);
                expect_line(form.one, form, filter, past, DirectRoad::samples, index, 2 * n + 3, what);
                expect_line(form.one_in_place, form, other, past, DirectRoad::samples, index, 2 * n + 3, what);
                if (testing::Test::HasFatalFailure()) return;
                filter.expect_no_damage();
                other.expect_no_damage();
            }
        }
}

/// A single sample is stored in two places, and the rest of the line stays as it is.
TEST(FirOneDirect, stores_a_sample_twice)
{
    for (const FirDirectForm& form : fir_direct_forms())
        for (const std::size_t n : {1u, 2u, 5u, 33u})
            for (std::size_t index = 0; index < n; ++index) {
                const Signal s = signal_of(form, n, 1);
                DirectFilter filter(form, s.taps, s.factor, s.past, static_cast<int>(index));
                Values want = filter.line();
                const auto components = static_cast<std::size_t>(form.samples.components);
                for (const std::size_t place : {index, index + n})
                    std::copy(s.x.begin(), s.x.end(), want.begin() + static_cast<std::ptrdiff_t>(place * components));
                if (index % 2 == 0) filter.one_by_one(s.x, s.scale);
                else filter.one_by_one_in_place(s.x, s.scale);
                EXPECT_EQ(filter.line(), want) << form.one.name() << ", " << words(n, 1, static_cast<int>(index));
                EXPECT_EQ(filter.index(), static_cast<int>((index + 1) % n)) << form.one.name();
            }
}

/// Blocks and samples in any mix make one stream. In the 16s form blocks and samples do not mix.
TEST(FirDirect, streams_are_cut_anywhere)
{
    const Threads scope(2);
    for (const FirDirectForm& form : fir_direct_forms())
        for (const std::size_t n : {1u, 2u, 5u, 15u, 16u, 20u, 31u, 32u, 40u, 70u}) {
            const Signal s = signal_of(form, n, 5000);
            const FirBounds want = bounds_of(form, s);
            const bool mixes = std::string(form.form) != "16s";
            for (std::uint64_t seed = 0; seed < 4; ++seed) {
                Random random(seed_of("cuts", seed));
                DirectFilter filter(form, s.taps, s.factor, s.past, static_cast<int>(seed * 3 % n));
                if (!mixes) filter.set_line_of_blocks(s.past, static_cast<int>(seed * 3 % n));
                Values y;
                for (std::size_t at = 0; at < 5000;) {
                    const std::uint64_t most = random.below(3) == 0 ? 900 : random.below(2) == 0 ? n + 1 : 2 * n;
                    const auto len = std::min(static_cast<std::size_t>(1 + random.below(most)), 5000 - at);
                    const Values x = part(form.samples, s.x, at, len);
                    at += len;
                    const std::uint64_t way = random.below(mixes ? 4 : 2);
                    const Values some = way == 0   ? filter.filter(x, s.scale)
                                        : way == 1 ? filter.filter_in_place(x, s.scale)
                                        : way == 2 ? filter.one_by_one(x, s.scale)
                                                   : filter.one_by_one_in_place(x, s.scale);
                    y.insert(y.end(), some.begin(), some.end());
                }
                if (!expect_within(form.filter, form, y, want, words(n, 5000, 0) + ", in pieces")) return;
                filter.expect_no_damage();
            }
        }
}

TEST(FirDirect, arrays_lie_anywhere)
{
    const Threads scope(1);
    for (const FirDirectForm& form : fir_direct_forms())
        for (const std::size_t n : {1u, 6u, 16u, 33u})
            for (const std::size_t len : {1u, 5u, 6u, 7u, 16u, 17u, 34u, 50u, 130u, 257u}) {
                const Signal s = signal_of(form, n, len);
                const bool blocks = std::string(form.form) == "16s";
                DirectFilter filter(form, s.taps, s.factor, s.past, 0);
                const auto again = [&] { blocks ? filter.set_line_of_blocks(s.past, 0) : filter.set_line(s.past, 0); };
                again();
                const Values want = filter.filter(s.x, s.scale);
                again();
                const Values want_in_place = filter.filter_in_place(s.x, s.scale);
                for (const FirPlaces& at :
                     {FirPlaces{after_guard, after_guard}, FirPlaces{misaligned(1), misaligned(7)},
                      FirPlaces{misaligned(12), misaligned(24)}}) {
                    again();
                    const Values got = filter.filter(s.x, s.scale, at);
                    if (!expect_same(form.filter, form, got, want, words(n, len, 0))) return;
                    again();
                    const Values got_in_place = filter.filter_in_place(s.x, s.scale, at.source);
                    if (!expect_same(form.filter_in_place, form, got_in_place, want_in_place, words(n, len, 0))) return;
                }
            }
}

TEST(FirDirect, any_number_of_threads_gives_the_same)
{
    for (const FirDirectForm& form : fir_direct_forms())
        for (const std::size_t n : {1u, 7u, 15u, 31u, 40u, 100u})
            for (const std::size_t len : {801u, 1601u, 1700u, 5001u}) {
                const Signal s = signal_of(form, n, len);
                Values want, want_in_place;
                for (const int threads : {1, 2, 3}) {
                    const Threads scope(threads);
                    DirectFilter filter(form, s.taps, s.factor, s.past, 0);
                    const Values got = filter.filter(s.x, s.scale);
                    filter.set_line(s.past, 0);
                    const Values got_in_place = filter.filter_in_place(s.x, s.scale);
                    if (threads == 1) {
                        want = got;
                        want_in_place = got_in_place;
                    }
                    expect_same(form.filter, form, got, want, words(n, len, 0));
                    expect_same(form.filter_in_place, form, got_in_place, want_in_place, words(n, len, 0));
                }
            }
}

TEST(FirDirect, any_state_gives_the_same_on_all_threads)
{
    for (const FirDirectForm& form : fir_direct_forms())
        for (const std::size_t n : {7u, 40u}) {
            const Signal s = signal_of(form, n, 2000);
            for (const unsigned bits : {unsigned{round_up}, unsigned{round_down}, unsigned{flush_to_zero}}) {
                Values want;
                for (const int threads : {1, 2, 3}) {
                    const Threads scope(threads);
                    DirectFilter filter(form, s.taps, s.factor, s.past, 0);
                    const CallerState state(bits);
                    const Values got = filter.filter(s.x, s.scale);
                    if (threads == 1) want = got;
                    else expect_same(form.filter, form, got, want, "state " + std::to_string(bits));
                }
            }
        }
}

/// What is not finite shows only in the outputs that it enters, as long as the FFT is not used.
TEST(FirDirect, infinities_and_nans_stay_where_they_are)
{
    const Threads scope(1);
    for (const FirDirectForm& form : fir_direct_forms()) {
        if (form.is_scaled()) continue;
        const auto components = static_cast<std::size_t>(form.samples.components);
        for (const std::size_t n : {1u, 2u, 7u, 13u, 15u, 20u, 31u, 33u}) {
            const std::size_t len = 110; // the FFT takes more
            const Signal s = signal_of(form, n, len);
            DirectFilter filter(form, s.taps, 0, s.past, 0);
            for (std::size_t at = 0; at < len; at += 3)
                for (const double value :
                     {std::numeric_limits<double>::infinity(), std::numeric_limits<double>::quiet_NaN()}) {
                    const auto with = [&](double sample, bool in_place) {
                        Values x = s.x;
                        x[at * components] = sample;
                        filter.set_line(s.past, 0);
                        return in_place ? filter.filter_in_place(x, 0) : filter.filter(x, 0);
                    };
                    for (const bool in_place : {false, true}) {
                        const Values silent = with(0, in_place), spoilt = with(value, in_place);
                        for (std::size_t i = 0; i < silent.size(); ++i) {
                            const std::size_t sample = i / components;
                            if (sample >= at && sample < at + n ? components == 2 || !std::isfinite(spoilt[i])
                                                                : spoilt[i] == silent[i])
                                continue;
                            ADD_FAILURE() << form.filter.name() << ", " << words(n, len, 0) << ", " << value << " at "
                                          << at << " shows at " << sample;
                            return;
                        }
                    }
                }
        }
    }
}

TEST(FirDirect, scales)
{
    const Threads scope(1);
    for (const FirDirectForm& form : fir_direct_forms()) {
        if (!form.is_scaled()) continue;
        for (const std::size_t n : {1u, 5u, 18u}) {
            Signal s = signal_of(form, n, 60);
            const bool of_blocks = std::string(form.form) == "16s";
            for (double& tap : s.taps)
                if (!form.is_integer()) tap = std::nearbyint(7 * tap);
            for (double& sample : s.past) sample = std::nearbyint(std::fmod(sample, 1000));
            for (std::size_t i = 0; i < s.x.size(); i += 1 + i % 2) s.x[i] = std::nearbyint(std::fmod(s.x[i], 20));
            if (!form.is_integer())
                for (double& sample : s.x) sample = std::nearbyint(std::fmod(sample, 32768));
            DirectFilter filter(form, s.taps, s.factor, s.past, 0);
            for (s.scale = -40; s.scale <= 40; ++s.scale) {
                const FirBounds want = bounds_of(form, s, true);
                const std::string what = "scale " + std::to_string(s.scale);
                for (const bool in_place : {false, true}) {
                    if (of_blocks) filter.set_line_of_blocks(s.past, 0);
                    else filter.set_line(s.past, 0);
                    const AnyExport& f = in_place ? form.filter_in_place : form.filter;
                    expect_within(f, form,
                                  in_place ? filter.filter_in_place(s.x, s.scale) : filter.filter(s.x, s.scale), want,
                                  what);
                    if (of_blocks) continue;
                    filter.set_line(s.past, 0);
                    const AnyExport& one = in_place ? form.one_in_place : form.one;
                    expect_within(one, form,
                                  in_place ? filter.one_by_one_in_place(s.x, s.scale) : filter.one_by_one(s.x, s.scale),
                                  want, what);
                }
            }
        }
    }
}

/// The shift of single samples counts modulo 32.
TEST(FirOneDirect, scale_of_16s_wraps)
{
    const FirDirectForm& form = fir_direct_form("16s");
    for (const std::size_t n : {1u, 5u, 40u}) {
        Signal s = signal_of(form, n, 50);
        for (std::size_t i = 0; i < s.x.size(); i += 2) s.x[i] = std::nearbyint(std::fmod(s.x[i], 5));
        const std::vector<Orv64s> sums = integer_sums(form, s.taps, s.past, s.x);
        DirectFilter filter(form, s.taps, 0, s.past, 0);
        for (int scale = -70; scale <= 70; ++scale) {
            FirBounds want;
            for (const Orv64s sum : sums) want.low.push_back(shifted_sum(sum, -((scale + 15) & 31)));
            want.high = want.low;
            const std::string what = "scale " + std::to_string(scale);
            filter.set_line(s.past, 0);
            expect_within(form.one, form, filter.one_by_one(s.x, scale), want, what);
            filter.set_line(s.past, 0);
            expect_within(form.one_in_place, form, filter.one_by_one_in_place(s.x, scale), want, what);
        }
    }
}

/// Taps of 32 bits are not brought into 16; only the low 32 bits of sums count.
TEST(FirDirect, integer_taps_have_32_bits)
{
    for (const char* name : {"32s_16s", "32sc_16sc"}) {
        const FirDirectForm& form = fir_direct_form(name);
        for (const double tap : {1.0, 32767.0, 65536.0, 65537.0, 8388607.0, 2147483647.0, -2147483648.0}) {
            Signal s = signal_of(form, 9, 70);
            for (std::size_t i = 0; i < s.taps.size(); i += 2) s.taps[i] = tap;
            for (s.factor = -33; s.factor <= 33; s.factor += 3) {
                const FirBounds want = bounds_of(form, s);
                DirectFilter filter(form, s.taps, s.factor, s.past, 4);
                expect_within(form.filter, form, filter.filter(s.x, s.scale), want, "taps of 32 bits");
                filter.set_line(s.past, 4);
                expect_within(form.one, form, filter.one_by_one(s.x, s.scale), want, "taps of 32 bits");
            }
        }
    }
}

// ---- The sum of orvsFIR_Direct_32f

/// Products in single precision, added in double precision, and one rounding at the end.
TEST(FirDirect32f, adds_in_double_precision)
{
    const FirDirectForm& form = fir_direct_form("32f");
    const auto both = [&](const Values& taps, const Values& x, double want) {
        const std::size_t n = taps.size();
        const Values past(n);
        DirectFilter filter(form, taps, 0, past, 0);
        EXPECT_EQ(filter.filter(x, 0).back(), want) << form.filter.name() << ", " << n << " taps";
        filter.set_line(past, 0);
        EXPECT_EQ(filter.filter_in_place(x, 0).back(), want) << form.filter_in_place.name() << ", " << n << " taps";
    };
    // In single precision the small term would be lost beside the large ones, wherever they stand.
    for (const std::size_t n : {3u, 4u, 8u, 15u, 16u, 17u, 33u, 64u})
        for (std::size_t shift = 0; shift < n; ++shift) {
            Values taps(n, 1.0), x(n);
            x[shift] = 0x1p30;
            x[(shift + 1) % n] = 0x1p-20;
            x[(shift + 2) % n] = -0x1p30;
            both(taps, x, 0x1p-20);
        }
    // The exact product has 2^-46 more than the single one, and nothing else is left.
    const double above = 1 + 0x1p-23;
    both({above, 1}, {-(1 + 0x1p-22), above}, 0);
}

/// Over random signals the sum is right to the last bit or its neighbour.
TEST(FirDirect32f, rounds_once)
{
    const FirDirectForm& form = fir_direct_form("32f");
    for (const std::size_t n : {1u, 2u, 4u, 7u, 15u, 16u, 17u, 31u, 33u, 64u, 200u, 1000u}) {
        const Signal s = signal_of(form, n, 500);
        Values stream = reversed(form.samples, s.past);
        stream.insert(stream.end(), s.x.begin(), s.x.end());
        FirBounds want;
        for (std::size_t i = 0; i < 500; ++i) {
            long double sum = 0, size = 0;
            for (std::size_t k = 0; k < n; ++k) {
                const float product = static_cast<float>(s.taps[k]) * static_cast<float>(stream[n + i - k]);
                sum += product;
                size += std::abs(product);
            }
            // The double sum may be on the other side of a tie, if it is that close.
            const long double off = static_cast<long double>(n) * size * 0x1p-53L;
            want.low.push_back(static_cast<float>(sum - off));
            want.high.push_back(static_cast<float>(sum + off));
        }
        DirectFilter filter(form, s.taps, 0, s.past, static_cast<int>(n / 3));
        expect_within(form.filter, form, filter.filter(s.x, 0), want, words(n, 500, 0));
        filter.set_line(s.past, static_cast<int>(n / 2));
        expect_within(form.filter_in_place, form, filter.filter_in_place(s.x, 0), want, words(n, 500, 0));
    }
}

// ---- Arguments

TEST(FirDirect, checks)
{
    alignas(8) static Orv8u zeros[1024] = {};
    for (const FirDirectForm& form : fir_direct_forms()) {
        const bool looks_at_index = std::string(form.form) == "16s";
        const AnyArgument len = AnyArgument::of(6), n = AnyArgument::of(3), more = AnyArgument::of(0);
        int index = 0;
        int bad_indices[] = {-1, 3, 4, INT_MAX, INT_MIN};
        // Behind the taps: their number, the factor or nothing, the line and its index, the scale.
        const auto run = [&](FirChecks& checks, std::size_t taps, bool one) {
            const std::size_t line = taps + (form.has_factor ? 3 : 2);
            checks.pointer(taps, zeros).pointer(line, zeros).pointer(line + 1, &index);
            if (one && looks_at_index) checks.null({taps, line, line + 1}).lengths(taps + 1, orvErrBadFirLength);
            else checks.null({taps}).lengths(taps + 1, orvErrBadFirLength).null({line, line + 1});
            if (looks_at_index)
                for (int& bad : bad_indices)
                    checks.bad(line + 1, AnyArgument::of(&bad), std::to_string(bad), orvErrBadDelayIndex);
            checks.run();
            index = 0;
        };
        const bool f = form.has_factor; // a number more
        FirChecks apart(form.filter, {true, true, false, true, false, !f, true, f, false}, {len, n, more, more});
        run(apart.pointer(0, zeros).null({0, 1}).lengths(2, orvErrBadLength), 3, false);
        FirChecks in_place(form.filter_in_place, {true, false, true, false, !f, true, f, false}, {len, n, more, more});
        run(in_place.null({0}).lengths(1, orvErrBadLength), 2, false);
        FirChecks one(form.one, {false, true, true, false, !f, true, f, false}, {AnyArgument(), n, more, more});
        run(one.null({1}), 2, true);
        FirChecks one_in_place(form.one_in_place, {true, true, false, !f, true, f, false}, {n, more, more});
        run(one_in_place.null({0}), 1, true);
    }
}

/// Only the 16s forms look at it.
TEST(FirDirect, bad_index)
{
    const FirDirectForm& form = fir_direct_form("16s");
    for (const int bad : {-1, 5, 6, 10, INT_MAX, INT_MIN}) {
        const Signal s = signal_of(form, 5, 20);
        Orv16s line[10] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10};
        const Values before = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10};
        const std::vector<std::byte> taps = encoded(form.taps, s.taps);
        std::vector<std::byte> x = encoded(form.samples, s.x), y(x.size());
        const std::vector<std::byte> x_before = x, y_before = y;
        int index = bad;
        const auto refused = [&](const AnyExport& f, OrvStatus status) {
            expect_status(f, status, orvErrBadDelayIndex, std::to_string(bad));
            EXPECT_TRUE(x == x_before && y == y_before && index == bad) << f.name();
            EXPECT_TRUE(std::equal(before.begin(), before.end(), line)) << f.name();
        };
        refused(form.filter, form.filter(x.data(), y.data(), 20, taps.data(), 5, &line[0], &index, 0));
        refused(form.filter_in_place, form.filter_in_place(x.data(), 20, taps.data(), 5, &line[0], &index, 0));
        refused(form.one, form.one(Orv16s{3}, y.data(), taps.data(), 5, &line[0], &index, 0));
        refused(form.one_in_place, form.one_in_place(x.data(), taps.data(), 5, &line[0], &index, 0));
    }
}

} // namespace
} // namespace orvtest
