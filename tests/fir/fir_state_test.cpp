// Records of FIR filters: what memory they want, how they lie in it, who refuses them.
#include "tests/fir/checks.h"
#include "tests/fir/forms.h"
#include "tests/support/threads.h"

#include "orvs/transform.h"

#include <algorithm>
#include <cstring>
#include <numeric>

namespace orvtest {
namespace {

constexpr bool wide_pointers = sizeof(void*) == 8;

// ---- Sizes

constexpr Orv64s up(Orv64s bytes, Orv64s unit) { return (bytes + unit - 1) / unit * unit; }
constexpr Orv64s down(Orv64s bytes, Orv64s unit) { return bytes / unit * unit; }

/// Of the FFT that a filter wants; all 0 if it wants none.
struct FftSizes {
    Orv64s length = 0, spec = 0, init = 0, work = 0;
};

FftSizes fft_sizes(const FirForm& form, Orv64s taps_len)
{
    if (form.fft_taps == 0 || taps_len < form.fft_taps) return {};
    int order = 2;
    while ((Orv64s{1} << order) <= taps_len) ++order;
    ++order;
    const bool is_single = form.engine == FirEngine::single_precision;
    const auto f = form.is_complex() ? (is_single ? orvsFFTGetSize_C_32fc : orvsFFTGetSize_C_64fc)
                                     : (is_single ? orvsFFTGetSize_R_32f : orvsFFTGetSize_R_64f);
    Orv32s spec = 0, init = 0, work = 0;
    if (f(order, ORV_FFT_SCALE_INV, ORV_HINT_ANY, &spec, &init, &work) != orvOk) return {};
    return {Orv64s{1} << order, spec, init, work};
}

Orv64s wanted_size(const FirForm& form, Orv64s n, Orv64s threads)
{
    const std::string name = form.form;
    if (name == "16s") return up(2 * n, 16) + down((down(n + 11, 8) + 2 * n) * 2 + 23, 16) + (n + 11) / 8 * 64 + 16992;
    if (name == "32s_16s" || name == "32s_16s32f")
        return up(4 * n, 16) + down((down(n + 11, 8) + 2 * n) * 2 + 23, 16) + (n + 11) / 8 * 64 + 16992;
    if (form.is_integer()) return ((12 * n + 31) / 16 + n + (8 * n + 15) / 16) * 16 + 16992;
    if (name == "32s") return down(24 * n + 47, 16) + up(8 * n, 16) * 5 + 112 + 48 * threads + 33775;

    const FftSizes fft = fft_sizes(form, n);
    const Orv64s tables = fft.spec + fft.init;
    if (form.engine == FirEngine::single_precision) {
        if (form.is_complex())
            return (fft.work + up(8 * fft.length, 16) + 64) * threads + tables + up(4 * threads, 16) +
                   down(24 * n + 47, 16) + up(8 * n, 16) * 13 + up(8 * fft.length, 16) + 33952;
        return (fft.work + up(4 * fft.length, 16) + 16) * threads + tables + up(4 * threads, 32) +
               down(n + 16, 8) * 36 + down(32 * n + 63, 32) + down(32 * n + 120, 128) + up(4 * fft.length, 16) + 17024;
    }
    if (form.is_complex())
        return tables + up(4 * threads, 16) + down(48 * n + 95, 32) + (16 * n + 31) / 32 * 128 + down(16 * n + 31, 32) +
               16 * fft.length + threads * (fft.work + 16 * fft.length) + 67744;
    return down(n + 2, 2) * 48 + tables + up(4 * threads, 16) + 48 * threads + down(24 * n + 63, 32) +
           up(8 * fft.length, 16) + threads * (fft.work + up(8 * fft.length, 16)) + 33920;
}

/// Numbers of taps on both sides of all that depends on them.
std::vector<std::size_t> many_lengths()
{
    std::vector<std::size_t> all(80);
    std::iota(all.begin(), all.end(), 1u);
    for (const std::size_t n : {127u, 128u, 129u, 255u, 256u, 257u, 513u, 769u, 770u, 1000u, 1100u}) all.push_back(n);
    return all;
}

/// Wider pointers may take more room.
void expect_size(const FirForm& form, Orv64s got, Orv64s want, std::size_t taps_len)
{
    EXPECT_GE(got, want) << form.get_size.name() << ", " << taps_len << " taps";
    EXPECT_LE(got, want + (wide_pointers ? 128 : 0)) << form.get_size.name() << ", " << taps_len << " taps";
}

TEST(FirGetStateSize, is_that_of_the_tables)
{
    for (const int threads : {1, 2, 3}) {
        const Threads scope(threads);
        std::vector<std::size_t> lengths = many_lengths();
        for (const std::size_t n : {4095u, 4096u, 100000u}) lengths.push_back(n);
        for (const FirForm& form : fir_forms())
            for (const std::size_t n : lengths) {
                int size = -1;
                expect_status(form.get_size, form.get_size(static_cast<int>(n), &size), orvOk);
                expect_size(form, size, wanted_size(form, static_cast<Orv64s>(n), threads), n);
            }
    }
}

TEST(FirGetStateSize, more_than_31_bits_are_refused)
{
    const Threads scope(2);
    for (const FirForm& form : fir_forms())
        for (int bits = 17; bits <= 31; ++bits)
            for (const Orv64s n : {(Orv64s{1} << bits) - 1, (Orv64s{1} << bits) - 777}) {
                const Orv64s want = wanted_size(form, n, 2);
                if (want <= INT_MAX && want > INT_MAX - 128) continue;
                int size = -1;
                const OrvStatus status = form.get_size(static_cast<int>(n), &size);
                expect_status(form.get_size, status, want > INT_MAX ? orvErrBadFirLength : orvOk, std::to_string(n));
                if (want <= INT_MAX) expect_size(form, size, want, static_cast<std::size_t>(n));
                else EXPECT_EQ(size, -1) << form.get_size.name() << ", " << n << " taps";
            }
}

TEST(FirInitAlloc, more_than_31_bits_are_refused)
{
    const Threads scope(1);
    const float tap = 1; // no more is read
    for (const FirForm& form : fir_forms()) {
        void* state = nullptr;
        const void* none = nullptr;
        const OrvStatus status = form.has_factor ? form.init_alloc(&state, &tap, INT_MAX, 0, none)
                                                 : form.init_alloc(&state, &tap, INT_MAX, none);
        expect_status(form.init_alloc, status, orvErrBadFirLength);
        EXPECT_EQ(state, nullptr) << form.init_alloc.name();
    }
}

// ---- Records in the caller's memory

Values some_taps(const FirForm& form, std::size_t n)
{
    Random random(seed_of(form.form, n));
    return drawn(random, form.taps, n, form.taps.number == Number::binary_float ? 1 : 30000);
}

/// All roads, one after another: blocks and samples of one stream.
Values run(const FirForm& form, FirFilter& filter, const Values& stream)
{
    Values y;
    std::size_t at = 0;
    const auto take = [&](std::size_t n) { return part(form.samples, stream, std::exchange(at, at + n), n); };
    const auto put = [&](const Values& some) { y.insert(y.end(), some.begin(), some.end()); };
    const int scale = form.is_integer() ? 8 : 0;
    put(filter.filter(take(5), scale));
    put(filter.filter(take(600), scale));
    put(filter.one_by_one(take(3), scale));
    put(filter.filter(take(1700), scale));
    put(filter.filter_in_place(take(600), scale));
    put(filter.one_by_one(take(1), scale));
    put(filter.filter(take(filter.taps_len() + 9), scale));
    EXPECT_EQ(at, count(form.samples, stream));
    return y;
}

Values stream_of(const FirForm& form, std::size_t taps_len)
{
    Random random(seed_of("stream", taps_len));
    return drawn(random, form.samples, 5 + 600 + 3 + 1700 + 600 + 1 + taps_len + 9, form.is_scaled() ? 1000 : 1);
}

TEST(FirInit, record_fits_the_size_told)
{
    for (const FirForm& form : fir_forms())
        for (const std::size_t n : many_lengths()) {
            const Values taps = some_taps(form, n), stream = stream_of(form, n);
            Values want;
            for (const int threads : {1, 2}) {
                const Threads scope(threads);
                const Placement places[] = {before_guard, after_guard, misaligned(static_cast<int>(n * 7 % 64))};
                for (const Placement place : places) {
                    FirFilter filter(form, taps, {}, place);
                    const Values got = run(form, filter, stream);
                    if (want.empty()) want = got;
                    const std::string what =
                        std::to_string(n) + " taps, " + std::to_string(threads) + " threads, " + placement_text(place);
                    filter.expect_no_damage(what);
                    if (!expect_same(form.filter, form, got, want, what)) return;
                }
            }
        }
}

TEST(FirInit, works_in_memory_of_any_alignment)
{
    const Threads scope(2);
    for (const FirForm& form : fir_forms())
        for (const std::size_t n : {3u, 18u, 70u, 513u}) {
            const Values taps = some_taps(form, n), stream = stream_of(form, n);
            Values want;
            for (int bytes = 0; bytes < 64; ++bytes) {
                FirFilter filter(form, taps, {}, misaligned(bytes));
                if (want.empty()) want = run(form, filter, stream);
                else if (!expect_same(form.filter, form, run(form, filter, stream), want, "any alignment")) return;
                filter.expect_no_damage("misaligned by " + std::to_string(bytes));
            }
        }
}

/// What transforms a filter has depends on its taps only, not on the place of its record, nor on threads.
TEST(FirInit, bits_of_long_filters)
{
    for (const char* name : {"32f", "32fc", "64f", "64fc", "64f_32f", "64fc_32fc"})
        for (const std::size_t n : {256u, 300u, 512u, 531u, 532u, 700u, 1024u, 1500u, 2512u, 2513u, 3000u}) {
            const FirForm& form = fir_form(name);
            const Values taps = some_taps(form, n);
            Random random(n);
            const Values x = drawn(random, form.samples, 580, 1);
            FirFilter allocated(form, taps);
            const Values want = allocated.filter(x);
            for (const int threads : {1, 2, 3}) {
                const Threads scope(threads);
                FirFilter other(form, taps);
                const std::string what = std::to_string(n) + " taps, " + std::to_string(threads) + " threads";
                expect_same(form.filter, form, other.filter(x), want, what);
                for (const int bytes : {0, 1, 15, 16, 17, 31, 32, 33, 48, 63}) {
                    FirFilter filter(form, taps, {}, misaligned(bytes));
                    if (!expect_same(form.filter, form, filter.filter(x), want, what)) break;
                    filter.expect_no_damage(what);
                }
            }
        }
}

TEST(FirInit, record_is_the_first_aligned_place)
{
    for (const FirForm& form : fir_forms())
        for (int bytes = 0; bytes < 64; ++bytes) {
            const std::size_t size = fir_state_size(form, 5);
            GuardedArray<Orv8u> block(size, misaligned(bytes));
            const std::vector<std::byte> taps = encoded(form.taps, some_taps(form, 5));
            Orv32u* state = nullptr;
            const void* none = nullptr;
            const OrvStatus status = form.has_factor ? form.init(&state, taps.data(), 5, 0, none, block.data())
                                                     : form.init(&state, taps.data(), 5, none, block.data());
            expect_status(form.init, status, orvOk);
            const int unit = form.engine == FirEngine::double_precision ? 32 : 16;
            const auto distance = reinterpret_cast<std::byte*>(state) - reinterpret_cast<std::byte*>(block.data());
            EXPECT_EQ(distance, (unit - bytes % unit) % unit) << form.init.name() << ", " << bytes;
            const std::string id = form.id;
            Orv32u number = 0;
            for (const char c : id) number = number << 8 | static_cast<Orv8u>(c);
            EXPECT_EQ(*state, number) << form.init.name();
        }
}

TEST(FirInit, is_init_alloc)
{
    for (const FirForm& form : fir_forms()) {
        if (std::string(form.form) == "32s") continue; // Init does without the FFT
        for (const std::size_t n : {1u, 2u, 15u, 16u, 31u, 32u, 63u, 64u, 65u, 257u, 513u, 700u, 1100u})
            for (const int threads : {1, 2}) {
                const Threads scope(threads);
                const Values taps = some_taps(form, n), stream = stream_of(form, n);
                Random random(7);
                const FirStart start = {0, drawn(random, form.samples, n, 1000)};
                FirFilter made(form, taps, start, before_guard), allocated(form, taps, start);
                const Values want = run(form, made, stream);
                expect_same(form.filter, form, run(form, allocated, stream), want, std::to_string(n) + " taps");
            }
    }
}

TEST(FirInit, number_of_threads_may_change_later)
{
    for (const FirForm& form : fir_forms())
        for (const std::size_t n : {7u, 40u, 100u, 513u}) {
            const Values taps = some_taps(form, n), stream = stream_of(form, n);
            Values want;
            for (const int made_for : {1, 2, 3})
                for (const int used_with : {1, 2, 3}) {
                    std::unique_ptr<FirFilter> filter;
                    {
                        const Threads scope(made_for);
                        filter = std::make_unique<FirFilter>(form, taps, FirStart{}, before_guard);
                    }
                    const Threads scope(used_with);
                    const Values got = run(form, *filter, stream);
                    if (want.empty()) want = got;
                    const std::string what =
                        "made for " + std::to_string(made_for) + " threads, used with " + std::to_string(used_with);
                    expect_same(form.filter, form, got, want, what);
                    filter->expect_no_damage(what);
                }
        }
}

TEST(FirFree, leaves_the_callers_records_alone)
{
    for (const FirForm& form : fir_forms()) {
        FirFilter filter(form, some_taps(form, 70), {}, before_guard);
        const std::vector<std::byte> before = filter.memory();
        expect_status(form.free, form.free(filter.state()), orvOk);
        expect_status(form.free, form.free(filter.state()), orvOk);
        EXPECT_TRUE(filter.memory() == before) << form.free.name();
        Random random(3);
        const Values x = drawn(random, form.samples, 20, 100);
        FirFilter other(form, some_taps(form, 70));
        expect_same(form.filter, form, filter.filter(x), other.filter(x), "after Free");
    }
}

// ---- Arguments

constexpr int taps_len = 4;

alignas(8) constinit Orv8u zeros[1024] = {};

TEST(FirGetStateSize, checks)
{
    for (const FirForm& form : fir_forms())
        FirChecks(form.get_size, {false, true}, {AnyArgument::of(taps_len)})
            .null({1})
            .lengths(0, orvErrBadFirLength)
            .run();
}

TEST(FirInit, checks)
{
    for (const FirForm& form : fir_forms()) {
        std::vector<Orv8u> buffer(fir_state_size(form, taps_len));
        if (form.has_factor)
            FirChecks(form.init, {true, true, false, false, true, true},
                      {AnyArgument::of(taps_len), AnyArgument::of(0)})
                .pointer(1, zeros)
                .pointer(5, buffer.data())
                .null({0, 1, 5})
                .lengths(2, orvErrBadFirLength)
                .run();
        else
            FirChecks(form.init, {true, true, false, true, true}, {AnyArgument::of(taps_len)})
                .pointer(1, zeros)
                .pointer(4, buffer.data())
                .null({0, 1, 4})
                .lengths(2, orvErrBadFirLength)
                .run();
    }
}

TEST(FirInitAlloc, checks)
{
    for (const FirForm& form : fir_forms()) {
        void* state = nullptr;
        FirChecks(form.init_alloc, {true, true, false, !form.has_factor, form.has_factor},
                  {AnyArgument::of(taps_len), AnyArgument::of(0)})
            .pointer(0, &state)
            .pointer(1, zeros)
            .null({0, 1})
            .lengths(2, orvErrBadFirLength)
            .run();
        expect_status(form.free, form.free(state), orvOk);
    }
}

TEST(FirFree, null)
{
    for (const FirForm& form : fir_forms())
        expect_status(form.free, form.free(static_cast<void*>(nullptr)), orvErrNullPointer);
}

/// A record of four zero taps, and one of any other kind.
struct Records {
    explicit Records(const FirForm& form)
        : right(form, Values(taps_len * static_cast<std::size_t>(form.taps.components)), {}, before_guard)
    {
        const FirForm& other = fir_form(std::string(form.form) == "64f" ? "32f" : "64f");
        wrong = std::make_unique<FirFilter>(other, Values(taps_len), FirStart{}, before_guard);
    }
    FirFilter right;
    std::unique_ptr<FirFilter> wrong;

    void run(FirChecks& checks, std::size_t index) const
    {
        checks.pointer(index, right.state());
        checks.bad(index, AnyArgument::of(wrong->state()), "another record", orvErrWrongContext);
        const std::vector<std::byte> before = wrong->memory();
        checks.run();
        EXPECT_TRUE(wrong->memory() == before);
    }
};

TEST(FirTaps, checks)
{
    for (const FirForm& form : fir_forms()) {
        const Records records(form);
        FirChecks set(form.set_taps, {true, true, false}, {AnyArgument::of(0)});
        records.run(set.pointer(0, zeros).null({0, 1}), 1);
        FirChecks get(form.get_taps, {true, true, form.has_factor}, {AnyArgument::of(0)});
        if (form.has_factor) records.run(get.null({0, 1, 2}), 0);
        else records.run(get.null({0, 1}), 0);
    }
}

TEST(FirDelay, checks)
{
    for (const FirForm& form : fir_forms()) {
        const Records records(form);
        FirChecks set(form.set_delay, {true, true}, {});
        records.run(set.pointer(1, zeros).null({0}), 0);
        FirChecks get(form.get_delay, {true, true}, {});
        records.run(get.null({0, 1}), 0);
    }
}

TEST(Fir, checks)
{
    for (const FirForm& form : fir_forms()) {
        const Records records(form);
        const AnyArgument len = AnyArgument::of(4), scale = AnyArgument::of(0);
        FirChecks apart(form.filter, {true, true, false, true, false}, {len, scale});
        records.run(apart.pointer(0, zeros).null({0, 1, 3}).lengths(2, orvErrBadLength), 3);
        FirChecks in_place(form.filter_in_place, {true, false, true, false}, {len, scale});
        records.run(in_place.pointer(0, zeros).null({0, 2}).lengths(1, orvErrBadLength), 2);
        FirChecks one(form.one, {false, true, true, false}, {AnyArgument(), scale});
        records.run(one.null({1, 2}), 2);
    }
}

// ---- Which records are refused

/// All functions of a form refuse the memory as a record, and write nothing.
void expect_refused(const FirForm& form, void* record, const std::string& what)
{
    std::vector<std::byte> a(4096, std::byte{1}), b(4096, std::byte{2});
    const std::vector<std::byte> a_before = a, b_before = b;
    int factor = 77;
    const auto refused = [&](const AnyExport& f, OrvStatus status) {
        expect_status(f, status, orvErrWrongContext, what);
        EXPECT_TRUE(a == a_before && b == b_before && factor == 77) << f.name() << ", " << what;
    };
    refused(form.free, form.free(record));
    refused(form.set_taps, form.set_taps(a.data(), record, 0));
    refused(form.get_taps, form.get_taps(record, a.data(), &factor));
    refused(form.set_delay, form.set_delay(record, a.data()));
    refused(form.get_delay, form.get_delay(record, a.data()));
    refused(form.filter, form.filter(a.data(), b.data(), 5, record, 0));
    refused(form.filter_in_place, form.filter_in_place(a.data(), 5, record, 0));
    const AnyArgument one[] = {AnyArgument(), AnyArgument::of(b.data()), AnyArgument::of(record), AnyArgument::of(0)};
    refused(form.one, form.one.callee()->call(one));
}

TEST(FirRecord, others_are_refused)
{
    for (const FirForm& owner : fir_forms()) {
        FirFilter filter(owner, some_taps(owner, 66), {}, before_guard);
        const std::vector<std::byte> before = filter.memory();
        for (const FirForm& form : fir_forms()) {
            if (std::string(form.id) == owner.id) continue;
            expect_refused(form, filter.state(), std::string("a record of ") + owner.form);
            EXPECT_TRUE(filter.memory() == before) << form.form << ", a record of " << owner.form;
        }
    }
    alignas(64) Orv8u nothing[512] = {};
    for (const FirForm& form : fir_forms()) expect_refused(form, nothing, "zeros");
}

TEST(FirRecord, an_unknown_identifier_is_refused)
{
    for (const FirForm& form : fir_forms()) {
        FirFilter filter(form, some_taps(form, 66), {}, before_guard);
        Orv32u own = 0;
        std::memcpy(&own, filter.state(), sizeof own);
        for (const Orv32u id : {own | 0x80000000, own ^ 0x20, 0x46493939u}) { // the last one is FI99
            std::memcpy(filter.state(), &id, sizeof id);
            expect_refused(form, filter.state(), "identifier " + std::to_string(id));
        }
        std::memcpy(filter.state(), &own, sizeof own);
    }
}

/// A single sample is for filters of one rate only.
TEST(FirOne, refuses_records_of_several_rates)
{
    for (const FirForm& form : fir_forms()) {
        FirFilter filter(form, some_taps(form, 6), {}, before_guard);
        Orv32u own = 0;
        std::memcpy(&own, filter.state(), sizeof own);
        std::string rates = form.id; // FI01 ... have FI03 ..., FI29 has FI30
        const int number = std::stoi(rates.substr(2)) + (rates == "FI29" ? 1 : 2);
        rates = std::string("FI") + (number < 10 ? "0" : "") + std::to_string(number);
        Orv32u id = 0;
        for (const char c : rates) id = id << 8 | static_cast<Orv8u>(c);
        std::memcpy(filter.state(), &id, sizeof id);
        Orv64fc y = {7, 7};
        const AnyArgument arguments[] = {AnyArgument(), AnyArgument::of(&y), AnyArgument::of(filter.state()),
                                         AnyArgument::of(0)};
        expect_status(form.one, form.one.callee()->call(arguments), orvErrWrongContext, rates);
        EXPECT_TRUE(y.re == 7 && y.im == 7) << form.one.name();
        std::memcpy(filter.state(), &own, sizeof own);
    }
}

/// 32s filters are 64f_32s filters whose taps are integers.
TEST(FirRecord, of_32s_serves_64f_32s)
{
    const FirForm &integers = fir_form("32s"), &reals = fir_form("64f_32s");
    const Values taps = some_taps(integers, 70), x = stream_of(integers, 70);
    FirFilter filter(integers, taps, {}, before_guard), other(reals, taps, {}, before_guard);
    const auto src = encoded(integers.samples, x);
    std::vector<std::byte> got(src.size()), want(src.size());
    const int n = static_cast<int>(count(integers.samples, x));
    expect_status(reals.filter, reals.filter(src.data(), got.data(), n, filter.state(), 20), orvOk);
    expect_status(integers.filter, integers.filter(src.data(), want.data(), n, other.state(), 20), orvOk);
    const FirBounds bounds = fir_bounds(integers, taps, 0, {}, x, 20);
    const auto samples = static_cast<std::size_t>(n);
    expect_within(reals.filter, reals, decoded(reals.samples, got.data(), samples), bounds, "a record of 32s");
    expect_within(integers.filter, reals, decoded(reals.samples, want.data(), samples), bounds, "a record of 64f_32s");
}

} // namespace
} // namespace orvtest
