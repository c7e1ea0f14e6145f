// FIR filters over blocks: what they compute, on which road, in which pieces, on how many threads.
#include "tests/arith/caller_state.h"
#include "tests/fir/forms.h"
#include "tests/support/threads.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <limits>

namespace orvtest {
namespace {

/// Taps, a past and a stream, so large that the sums fill the range of the samples but seldom leave it.
struct Signal {
    Values taps, past, x;
    FirIntegerTaps held; ///< what integer filters make of the taps
    int factor = 0, scale = 0;
};

Signal signal_of(const FirForm& form, std::size_t taps_len, std::size_t len)
{
    Random random(seed_of(form.form, taps_len));
    Signal s;
    const bool short_taps = form.taps.component_size == 2;
    const double size = form.taps.number == Number::binary_float ? 1 : short_taps ? 32767 : 2147483647;
    s.taps = drawn(random, form.taps, taps_len, size);
    const double most = !form.is_scaled() ? 1 : form.samples.component_size == 2 ? 32767 : 2147483647;
    s.past = drawn(random, form.samples, taps_len, most);
    s.x = drawn(random, form.samples, len, most);
    if (form.is_integer()) {
        s.factor = -12;
        s.held = integer_taps(form, s.taps, s.factor);
        s.scale = s.held.factor + 17; // sums lose 17 bits
    } else {
        s.held = {s.taps, 0};
        if (form.is_scaled()) s.scale = 2 + (size > 1 ? 31 : 0);
    }
    return s;
}

FirBounds bounds_of(const FirForm& form, const Signal& s)
{
    return fir_bounds(form, s.held.taps, s.held.factor, s.past, s.x, s.scale);
}

FirStart start_of(const Signal& s) { return {s.factor, s.past}; }

std::string words(std::size_t taps, std::size_t samples)
{
    return std::to_string(taps) + " taps, " + std::to_string(samples) + " samples";
}

// ---- Values

/// Blocks on both sides of whatever decides about them.
std::vector<std::size_t> block_lengths(std::size_t taps_len)
{
    std::vector<std::size_t> all = {1, 2, 3, 5, taps_len, taps_len + 1, 2 * taps_len};
    if (taps_len > 1) all.push_back(taps_len - 1);
    for (const std::size_t unit : {4u, 8u})
        for (const std::size_t more : {0u, 1u, 2u}) all.push_back((taps_len + unit - 1) / unit * unit + more);
    all.push_back((taps_len + 11) / 8 * 8); // the new samples that go into the delay line of integer filters
    all.push_back((taps_len + 11) / 8 * 8 + 1);
    std::vector<std::size_t> limits = {256, 512, 801, 1601, 2112, 4224, 4224 + 256, 4224 + 512, 8448};
    if (taps_len >= 128) limits.push_back(16896); // for the buffer that the FFT works through in place
    for (const std::size_t limit : limits)
        for (const std::size_t n : {limit - 1, limit, limit + 1}) all.push_back(n);
    std::sort(all.begin(), all.end());
    all.erase(std::unique(all.begin(), all.end()), all.end());
    return all;
}

TEST(Fir, blocks)
{
    const Threads scope(1);
    for (const FirForm& form : fir_forms())
        for (const std::size_t n : {1u, 2u, 3u, 7u, 8u, 9u, 15u, 16u, 17u, 31u, 32u, 33u, 63u, 64u, 65u, 128u, 200u}) {
            const std::vector<std::size_t> lengths = block_lengths(n);
            const Signal s = signal_of(form, n, lengths.back());
            const FirBounds want = bounds_of(form, s);
            FirFilter filter(form, s.taps, start_of(s));
            for (const std::size_t len : lengths) {
                const Values x = part(form.samples, s.x, 0, len);
                filter.set_delay(s.past);
                if (!expect_within(form.filter, form, filter.filter(x, s.scale), want, words(n, len))) return;
                filter.set_delay(s.past);
                if (!expect_within(form.filter_in_place, form, filter.filter_in_place(x, s.scale), want, words(n, len)))
                    return;
            }
        }
}

TEST(Fir, long_blocks_and_many_taps)
{
    const Threads scope(2);
    for (const FirForm& form : fir_forms())
        for (const auto& [n, len] : {std::pair<std::size_t, std::size_t>{300, 20000}, {1000, 5000}, {2049, 4000}}) {
            const Signal s = signal_of(form, n, len);
            const FirBounds want = bounds_of(form, s);
            FirFilter filter(form, s.taps, start_of(s));
            expect_within(form.filter, form, filter.filter(s.x, s.scale), want, words(n, len));
            filter.set_delay(s.past);
            expect_within(form.filter_in_place, form, filter.filter_in_place(s.x, s.scale), want, words(n, len));
        }
}

/// Blocks on both sides of what one transform takes, and of what one of half the length would.
TEST(Fir, blocks_of_the_fft)
{
    const Threads scope(1);
    for (const FirForm& form : fir_forms()) {
        if (form.is_integer()) continue;
        for (const std::size_t n : {64u, 100u, 128u, 257u, 513u, 600u, 1100u}) {
            std::size_t transform = 8;
            while (transform / 2 <= n) transform *= 2;
            const std::size_t whole = transform - (n - 1), half = transform / 2 - (n - 1);
            const Signal s = signal_of(form, n, 2 * whole + half + 1);
            const FirBounds want = bounds_of(form, s);
            FirFilter filter(form, s.taps, start_of(s)), made(form, s.taps, start_of(s), before_guard);
            for (const std::size_t limit : {half, whole, whole + 1, whole + half, 2 * whole, 2 * whole + half})
                for (const std::size_t len : {limit - 1, limit, limit + 1}) {
                    if (len == 0) continue;
                    const Values x = part(form.samples, s.x, 0, len);
                    filter.set_delay(s.past);
                    if (!expect_within(form.filter, form, filter.filter(x, s.scale), want, words(n, len))) return;
                    EXPECT_EQ(filter.delay(), newest(form.samples, s.past, x, n)) << form.form << ", " << words(n, len);
                    made.set_delay(s.past);
                    if (!expect_within(form.filter, form, made.filter(x, s.scale), want, words(n, len))) return;
                    made.set_delay(s.past);
                    if (!expect_within(form.filter_in_place, form, made.filter_in_place(x, s.scale), want,
                                       words(n, len)))
                        return;
                }
            made.expect_no_damage(words(n, 0));
        }
    }
}

/// Arrays at any address, and against unreadable pages: the same bits.
TEST(Fir, arrays_lie_anywhere)
{
    const Threads scope(1);
    for (const FirForm& form : fir_forms())
        for (const std::size_t n : {1u, 5u, 13u, 33u, 64u, 100u}) {
            const Signal s = signal_of(form, n, 2120);
            FirFilter filter(form, s.taps, start_of(s));
            std::vector<std::size_t> lengths = {300, 513, 600, 2113};
            for (std::size_t len = 1; len <= 40; ++len) lengths.push_back(len);
            for (const std::size_t len : lengths) {
                const Values x = part(form.samples, s.x, 0, len);
                const auto again = [&] { filter.set_delay(s.past); };
                again();
                const Values want = filter.filter(x, s.scale);
                again();
                const Values want_in_place = filter.filter_in_place(x, s.scale);
                const int odd = static_cast<int>(len % 63) + 1;
                const FirPlaces places[] = {{after_guard, after_guard},
                                            {misaligned(odd), misaligned(3 * odd % 64)},
                                            {misaligned(5 * odd % 64), before_guard}};
                for (const FirPlaces& at : places) {
                    const std::string what = words(n, len) + ", source " + placement_text(at.source);
                    again();
                    if (!expect_same(form.filter, form, filter.filter(x, s.scale, at), want, what)) return;
                    again();
                    const Values got = filter.filter_in_place(x, s.scale, at.source);
                    if (!expect_same(form.filter_in_place, form, got, want_in_place, what)) return;
                }
            }
        }
}

// ---- Streams

/// Cuts of a stream into blocks, long and short.
std::vector<std::size_t> cuts(Random& random, std::size_t len, std::size_t longest)
{
    std::vector<std::size_t> pieces;
    for (std::size_t left = len; left > 0; left -= pieces.back()) {
        const std::size_t most = random.below(3) == 0 ? longest : random.below(2) == 0 ? 20 : 150;
        const auto n = static_cast<std::size_t>(random.below(std::min(most, longest)));
        pieces.push_back(std::min(left, n + 1));
    }
    return pieces;
}

enum : unsigned { apart = 1, in_place = 2, by_samples = 4 };

/// The stream in pieces, each taken in one of these ways.
Values in_pieces(const FirForm& form, FirFilter& filter, const Signal& s, std::uint64_t seed, unsigned ways,
                 std::size_t longest)
{
    Random random(seed);
    Values y;
    std::size_t at = 0;
    for (const std::size_t n : cuts(random, count(form.samples, s.x), longest)) {
        const Values x = part(form.samples, s.x, at, n);
        at += n;
        unsigned way = 0;
        while ((way & ways) == 0) way = 1u << random.below(3);
        if (n > 200 && way == by_samples && ways != by_samples) way = ways & apart ? apart : in_place;
        const Values some = way == apart      ? filter.filter(x, s.scale)
                            : way == in_place ? filter.filter_in_place(x, s.scale)
                                              : filter.one_by_one(x, s.scale);
        y.insert(y.end(), some.begin(), some.end());
    }
    return y;
}

TEST(Fir, streams_are_cut_anywhere)
{
    const Threads scope(2);
    for (const FirForm& form : fir_forms())
        for (const std::size_t n : {1u, 2u, 5u, 11u, 12u, 16u, 31u, 40u, 64u, 100u, 257u}) {
            const Signal s = signal_of(form, n, 6000);
            const FirBounds want = bounds_of(form, s);
            for (std::uint64_t seed = 0; seed < 4; ++seed) {
                FirFilter filter(form, s.taps, start_of(s));
                const Values y = in_pieces(form, filter, s, seed, apart | in_place | by_samples, 2500);
                if (!expect_within(form.filter, form, y, want, words(n, 6000) + " in pieces")) return;
                expect_same(form.get_delay, form, filter.delay(), newest(form.samples, s.past, s.x, n), "the past");
            }
        }
}

/// Direct sums are the same bits wherever the blocks begin.
TEST(Fir, direct_sums_do_not_depend_on_cuts)
{
    const Threads scope(1);
    for (const FirForm& form : fir_forms())
        for (const std::size_t n : {1u, 2u, 5u, 8u, 12u, 15u, 20u, 31u, 40u, 63u, 90u}) {
            const bool has_fft = form.fft_taps != 0 && n >= static_cast<std::size_t>(form.fft_taps);
            const std::size_t longest = has_fft ? 255 : 1000;
            const Signal s = signal_of(form, n, has_fft ? 255 : 3000);
            FirFilter filter(form, s.taps, start_of(s));
            const Values want = filter.filter(s.x, s.scale);
            for (std::uint64_t seed = 0; seed < 3; ++seed) {
                filter.set_delay(s.past);
                const unsigned ways = apart | in_place | (form.is_integer() ? by_samples : 0u);
                const Values got = in_pieces(form, filter, s, seed, ways, longest);
                if (!expect_same(form.filter, form, got, want, words(n, longest) + " at most")) return;
            }
        }
}

// ---- Integer samples

/// Conversions from floats multiply by a number whose exponent wraps; so scales are not endless with them.
std::vector<int> scales_of(const FirForm& form)
{
    std::vector<int> all = {-100, 100};
    if (form.is_integer()) all.insert(all.end(), {-2000, 2000, INT_MIN, INT_MIN + 1, INT_MAX});
    for (int scale = -40; scale <= 40; ++scale) all.push_back(scale);
    return all;
}

/// All scales, on the three ways. Sums of the floating filters are exact here.
TEST(Fir, scales)
{
    const Threads scope(1);
    for (const FirForm& form : fir_forms()) {
        if (!form.is_scaled()) continue;
        for (const std::size_t n : {1u, 5u, 18u}) {
            Random random(seed_of(form.form, n));
            Values taps = drawn(random, form.taps, n, form.is_integer() ? 32767 : 7);
            for (double& tap : taps)
                if (!form.is_integer()) tap = std::nearbyint(tap);
            Values x = drawn(random, form.samples, 70, 32767);
            for (std::size_t i = 0; i < x.size(); i += 2) // small ones, odd multiples of powers of two
                x[i] = static_cast<double>(random.below(16)) - 7;
            const FirIntegerTaps held = form.is_integer() ? integer_taps(form, taps, -3) : FirIntegerTaps{taps, 0};
            FirFilter filter(form, taps, {-3, {}});
            for (const int scale : scales_of(form)) {
                const FirBounds want = fir_bounds(form, held.taps, held.factor, {}, x, scale, true);
                const std::string what = "scale " + std::to_string(scale);
                filter.set_delay({});
                expect_within(form.filter, form, filter.filter(x, scale), want, what);
                filter.set_delay({});
                expect_within(form.filter_in_place, form, filter.filter_in_place(x, scale), want, what);
                filter.set_delay({});
                expect_within(form.one, form, filter.one_by_one(x, scale), want, what);
            }
        }
    }
}

/// Halves go to even neighbours, on both sides of zero and of the limits.
TEST(Fir, ties)
{
    for (const FirForm& form : fir_forms()) {
        if (!form.is_scaled()) continue;
        const double highest = form.samples.component_size == 2 ? 32767 : 2147483647;
        Values x;
        for (const double value : {0.0, 1.0, 2.0, 3.0, 5.0, 6.0, 7.0, 9.0, 10.0, 11.0, 13.0, 14.0})
            x.insert(x.end(), {value, -value});
        x.insert(x.end(), {highest, -highest, -highest - 1, highest - 1, highest - 2, 2 - highest});
        const Values one(static_cast<std::size_t>(form.taps.components), 1.0);
        Values taps = one;
        if (form.is_complex()) taps[1] = 0;
        FirFilter filter(form, taps);
        const FirIntegerTaps held = form.is_integer() ? integer_taps(form, taps, 0) : FirIntegerTaps{taps, 0};
        for (int scale = 0; scale <= 4; ++scale) {
            const FirBounds want = fir_bounds(form, held.taps, held.factor, {}, x, scale, true);
            filter.set_delay({});
            expect_within(form.filter, form, filter.filter(x, scale), want, "ties");
            filter.set_delay({});
            expect_within(form.one, form, filter.one_by_one(x, scale), want, "ties");
        }
    }
}

/// Sums of integer filters are taken modulo 2^32, and only what is left of them is shifted and saturated.
TEST(Fir, integer_sums_wrap)
{
    const Threads scope(1);
    for (const FirForm& form : fir_forms()) {
        if (!form.is_integer()) continue;
        for (const std::size_t n : {2u, 3u, 4u, 17u, 40u, 100u})
            for (const double sign : {1.0, -1.0}) {
                const double tap = form.taps.number == Number::binary_float ? 32766 : 32767;
                const Values taps(n * static_cast<std::size_t>(form.taps.components), sign * tap);
                const Values x(150 * static_cast<std::size_t>(form.samples.components), -32768);
                const FirIntegerTaps held = integer_taps(form, taps, 0);
                FirFilter filter(form, taps);
                for (const int scale : {0, 1, 14, 15, 16, 31, -1, -16}) {
                    const FirBounds want = fir_bounds(form, held.taps, held.factor, {}, x, scale);
                    filter.set_delay({});
                    expect_within(form.filter, form, filter.filter(x, scale), want, words(n, 150));
                    filter.set_delay({});
                    expect_within(form.one, form, filter.one_by_one(x, scale), want, words(n, 150));
                }
            }
    }
}

// ---- Roads

struct Piece {
    std::size_t begin, end;
    bool by_fft;
};

/// The pieces in which a block of so many samples is worked on, and who works on each.
std::vector<Piece> pieces_of(const FirForm& form, std::size_t taps_len, std::size_t len, bool is_in_place)
{
    const std::size_t least = form.is_complex() ? 256 : 512;
    const bool has_fft = form.fft_taps != 0 && taps_len >= static_cast<std::size_t>(form.fft_taps);
    std::vector<Piece> pieces;
    if (form.is_mixed() || !is_in_place) {
        pieces.push_back({0, len, has_fft && len >= least});
    } else {
        for (std::size_t begin = 0; begin < len; begin += 4224) { // what is left behind the piece decides
            const std::size_t end = std::min<std::size_t>(len, begin + 4224);
            pieces.push_back({begin, end, has_fft && len - end >= least});
        }
    }
    return pieces;
}

/// Which of the pieces go through the FFT. A sample at the end of each piece, with a tap of 1 and an enormous last one,
/// has outputs that are exactly zero wherever sums are direct; the FFT leaves noise there.
std::vector<bool> noisy(const FirForm& form, FirFilter& filter, std::size_t len, bool is_in_place,
                        const std::vector<Piece>& pieces)
{
    const auto components = static_cast<std::size_t>(form.samples.components);
    Values x(len * components);
    std::vector<bool> may_be_anything(len);
    for (const Piece& piece : pieces) {
        const std::size_t last = piece.end - 1, echo = last + filter.taps_len() - 1;
        x[last * components] = !form.is_scaled() ? 1 : form.samples.component_size == 2 ? 0x1p14 : 0x1p30;
        may_be_anything[last] = true;
        if (echo < len) may_be_anything[echo] = true;
    }
    filter.set_delay({});
    const Values y = is_in_place ? filter.filter_in_place(x) : filter.filter(x);
    std::vector<bool> all;
    for (const Piece& piece : pieces) {
        bool noise = false;
        for (std::size_t i = piece.begin * components; i < piece.end * components; ++i)
            noise = noise || (y[i] != 0 && !may_be_anything[i / components]);
        all.push_back(noise);
    }
    return all;
}

Values taps_that_tell_the_road(const FirForm& form, std::size_t n)
{
    const auto components = static_cast<std::size_t>(form.taps.components);
    Values taps(n * components);
    taps[0] = 1;
    taps[(n - 1) * components] = form.taps.number == Number::binary_float ? 0x1p80 : 2147483647;
    return taps;
}

TEST(Fir, fft_takes_long_blocks_and_many_taps)
{
    const Threads scope(1);
    for (const FirForm& form : fir_forms()) {
        if (form.is_integer()) continue;
        const auto fft_taps = static_cast<std::size_t>(form.fft_taps);
        const std::size_t least = form.is_complex() ? 256 : 512;
        for (const std::size_t n : {fft_taps - 1, fft_taps, std::size_t{100}}) {
            FirFilter filter(form, taps_that_tell_the_road(form, n));
            for (const std::size_t len :
                 {least - 1, least, least + 40, std::size_t{1700}, std::size_t{2112}, 2112 + least - 1, 2112 + least,
                  std::size_t{4224}, 4224 + least - 1, 4224 + least, std::size_t{8448}, 8448 + least})
                for (const bool is_in_place : {false, true}) {
                    const std::vector<Piece> pieces = pieces_of(form, n, len, is_in_place);
                    const std::vector<bool> got = noisy(form, filter, len, is_in_place, pieces);
                    for (std::size_t i = 0; i < pieces.size(); ++i)
                        EXPECT_EQ(got[i], pieces[i].by_fft)
                            << form.form << ", " << words(n, len) << ", in place " << is_in_place << ", piece " << i;
                }
        }
    }
}

TEST(Fir, init_of_32s_does_without_the_fft)
{
    const Threads scope(1);
    const FirForm& form = fir_form("32s");
    for (const std::size_t n : {32u, 64u, 100u})
        for (const std::size_t len : {512u, 2112u, 4000u, 9000u}) {
            FirFilter filter(form, taps_that_tell_the_road(form, n), {}, before_guard);
            for (const bool is_in_place : {false, true})
                for (const bool noise : noisy(form, filter, len, is_in_place, pieces_of(form, n, len, is_in_place)))
                    EXPECT_FALSE(noise) << words(n, len);
            const Signal s = signal_of(form, n, len);
            FirFilter other(form, s.taps, start_of(s), before_guard);
            expect_within(form.filter, form, other.filter(s.x, s.scale), bounds_of(form, s), words(n, len));
            other.expect_no_damage("a block");
        }
}

/// New taps go through the FFT as the first ones did.
TEST(FirSetTaps, keeps_the_road)
{
    const Threads scope(1);
    for (const FirForm& form : fir_forms()) {
        if (form.is_integer()) continue;
        Values taps(100 * static_cast<std::size_t>(form.taps.components), 1);
        FirFilter filter(form, taps);
        filter.set_taps(taps_that_tell_the_road(form, 100));
        EXPECT_TRUE(noisy(form, filter, 700, false, {{0, 700, true}})[0]) << form.set_taps.name();
        EXPECT_FALSE(noisy(form, filter, 200, false, {{0, 200, false}})[0]) << form.set_taps.name();
    }
}

// ---- Special values

/// What is not finite spoils the outputs that it enters and no other one, unless the FFT is used.
TEST(Fir, infinities_and_nans_stay_where_they_are)
{
    const Threads scope(1);
    for (const FirForm& form : fir_forms()) {
        if (form.is_scaled()) continue;
        const auto components = static_cast<std::size_t>(form.samples.components);
        for (const std::size_t n : {1u, 2u, 3u, 7u, 8u, 13u, 33u, 60u, 70u})
            for (const std::size_t len : {90u, 600u}) {
                if (len == 600 && n >= static_cast<std::size_t>(form.fft_taps)) continue;
                const Signal s = signal_of(form, n, len);
                FirFilter filter(form, s.taps, start_of(s));
                for (std::size_t at = 0; at < len; at += len == 90 ? 1 : 37)
                    for (const double value :
                         {std::numeric_limits<double>::infinity(), std::numeric_limits<double>::quiet_NaN()}) {
                        Values silent = s.x, spoilt = s.x;
                        silent[at * components] = 0;
                        spoilt[at * components] = value;
                        filter.set_delay(s.past);
                        const Values want = filter.filter(silent);
                        filter.set_delay(s.past);
                        const Values got = filter.filter(spoilt);
                        filter.set_delay(s.past);
                        const Values got_in_place = filter.filter_in_place(spoilt);
                        for (std::size_t i = 0; i < got.size(); ++i) {
                            const std::size_t sample = i / components;
                            const bool is_spoilt = sample >= at && sample < at + n;
                            // A complex product with an infinity has at least one part that is not finite.
                            const bool fits = is_spoilt ? components == 2 || !std::isfinite(got[i]) : got[i] == want[i];
                            const bool same =
                                got_in_place[i] == got[i] || (std::isnan(got_in_place[i]) && std::isnan(got[i]));
                            if (fits && same) continue;
                            ADD_FAILURE() << form.filter.name() << ", " << words(n, len) << ", " << value << " at "
                                          << at << " shows at " << sample;
                            return;
                        }
                    }
            }
    }
}

// ---- The caller's floating-point state

/// Sums of positive values lie on the side of the exact one that the state says.
TEST(Fir, rounds_as_the_caller_wants)
{
    for (const FirForm& form : fir_forms()) {
        if (form.is_integer() || form.is_scaled() || form.is_complex()) continue;
        for (const std::size_t n : {1u, 5u, 12u, 40u}) {
            Signal s = signal_of(form, n, 2000);
            for (Values* values : {&s.taps, &s.past, &s.x})
                for (double& value : *values) value = std::abs(value);
            const FirBounds exact = fir_bounds(form, s.taps, 0, s.past, s.x, 0, true);
            for (const int threads : {1, 2}) {
                const Threads scope(threads);
                FirFilter filter(form, s.taps, start_of(s));
                const auto in_state = [&](unsigned bits, auto work) {
                    filter.set_delay(s.past);
                    const CallerState state(bits);
                    return work();
                };
                const auto blocks = [&] { return filter.filter(s.x); };
                const auto ones = [&] { return filter.one_by_one(s.x); };
                const Values up = in_state(round_up, blocks), up_ones = in_state(round_up, ones);
                const Values down = in_state(round_down, blocks), down_ones = in_state(round_down, ones);
                for (std::size_t i = 0; i < up.size(); ++i) {
                    const bool fits = up[i] >= exact.low[i] && up_ones[i] >= exact.low[i] && down[i] <= exact.low[i] &&
                                      down_ones[i] <= exact.low[i];
                    EXPECT_TRUE(fits) << form.filter.name() << ", " << n << " taps, " << i;
                    if (!fits) return;
                }
                EXPECT_NE(up, down) << form.filter.name();
                EXPECT_NE(up_ones, down_ones) << form.one.name();
            }
        }
    }
}

TEST(Fir, any_state_gives_the_same_on_all_threads)
{
    for (const FirForm& form : fir_forms())
        for (const std::size_t n : {6u, 40u, 100u}) {
            const Signal s = signal_of(form, n, 2500);
            for (const unsigned bits : {unsigned{round_up}, unsigned{round_down}, unsigned{round_to_zero},
                                        unsigned{flush_to_zero | denormals_are_zero}}) {
                Values want;
                for (const int threads : {1, 2, 3}) {
                    const Threads scope(threads);
                    FirFilter filter(form, s.taps, start_of(s));
                    const CallerState state(bits);
                    const Values got = filter.filter(s.x, s.scale);
                    if (threads == 1) want = got;
                    else expect_same(form.filter, form, got, want, "state " + std::to_string(bits));
                }
            }
        }
}

TEST(Fir, subnormal_numbers_are_the_callers_choice)
{
    for (const FirForm& form : fir_forms()) {
        if (form.is_mixed() || form.is_integer()) continue;
        const double least = form.engine == FirEngine::single_precision ? 0x1p-130 : 0x1p-1030;
        const auto components = static_cast<std::size_t>(form.samples.components);
        Values taps(3 * components), x(2000 * components);
        taps[2 * components] = 0x1p-20;
        for (std::size_t i = 0; i < x.size(); i += components) x[i] = least * 0x1p20;
        for (const int threads : {1, 2}) {
            const Threads scope(threads);
            FirFilter filter(form, taps);
            const Values kept = filter.filter(x);
            filter.set_delay({});
            const CallerState state(flush_to_zero);
            const Values flushed = filter.filter(x);
            for (std::size_t i = 2 * components; i < x.size(); i += components)
                EXPECT_TRUE(kept[i] == least && flushed[i] == 0) << form.filter.name() << ", " << i;
        }
    }
}

} // namespace
} // namespace orvtest
