// Which FIR functions allocate memory, and that a refusal of it does no harm.
#include "tests/support/allocator.h"

#include "tests/fir/direct.h"
#include "tests/fir/forms.h"
#include "tests/support/threads.h"

#include <cmath>

namespace orvtest {
namespace {

constexpr std::size_t taps_lengths[] = {1, 8, 15, 16, 31, 32, 63, 64, 100, 513};

Values some_taps(const FirTypes& form, std::size_t n)
{
    Random random(seed_of(form.form, n));
    return drawn(random, form.taps, n, form.taps.number == Number::binary_float ? 1 : 32767);
}

struct Made {
    OrvStatus status;
    void* state;
};

Made make(const FirForm& form, std::size_t n, const Values& taps)
{
    const std::vector<std::byte> bytes = encoded(form.taps, taps);
    const void* silence = nullptr;
    void* state = nullptr;
    const auto taps_len = static_cast<int>(n);
    const OrvStatus status = form.has_factor ? form.init_alloc(&state, bytes.data(), taps_len, 0, silence)
                                             : form.init_alloc(&state, bytes.data(), taps_len, silence);
    return {status, state};
}

TEST(FirMemory, free_gives_all_back)
{
    const Threads scope(1);
    for (const FirForm& form : fir_forms())
        for (const std::size_t n : taps_lengths) {
            forget();
            const Made made = make(form, n, some_taps(form, n));
            expect_status(form.init_alloc, made.status, orvOk);
            const bool has_fft = form.fft_taps != 0 && n >= static_cast<std::size_t>(form.fft_taps);
            EXPECT_GE(allocator().allocations, has_fft ? 2 : 1) << form.init_alloc.name() << ", " << n << " taps";
            expect_status(form.free, form.free(made.state), orvOk);
            EXPECT_TRUE(allocator().blocks.empty()) << form.free.name() << ", " << n << " taps";
        }
    forget();
}

/// Without memory for the record there is no filter; without memory for the FFT it does without.
TEST(FirMemory, init_alloc_survives_each_refusal)
{
    const Threads scope(1);
    for (const FirForm& form : fir_forms())
        for (const std::size_t n : taps_lengths) {
            const Values taps = some_taps(form, n);
            Random random(n);
            const Values x = drawn(random, form.samples, 700, form.is_scaled() ? 1000 : 1);
            const FirIntegerTaps held = form.is_integer() ? integer_taps(form, taps, 0) : FirIntegerTaps{taps, 0};
            const int scale = form.is_integer() ? held.factor + 16 : 0;
            const FirBounds want = fir_bounds(form, held.taps, held.factor, {}, x, scale);
            const std::vector<std::byte> src = encoded(form.samples, x);

            forget();
            const Made first = make(form, n, taps);
            const int allocations = allocator().allocations;
            expect_status(form.free, form.free(first.state), orvOk);
            int refusals = 0, without_fft = 0;
            for (int refused = 0; refused < allocations; ++refused) {
                forget();
                allocator().refused = refused;
                const Made made = make(form, n, taps);
                const std::string what = std::to_string(n) + " taps, allocation " + std::to_string(refused);
                if (made.status == orvErrNoMemory) {
                    ++refusals;
                    expect_status(form.init_alloc, made.status, orvErrNoMemory, what);
                    EXPECT_EQ(made.state, nullptr) << form.init_alloc.name() << ", " << what;
                    EXPECT_TRUE(allocator().blocks.empty()) << form.init_alloc.name() << ", " << what;
                    continue;
                }
                ++without_fft;
                if (!expect_status(form.init_alloc, made.status, orvOk, what)) continue;
                std::vector<std::byte> dst(src.size());
                expect_status(form.filter, form.filter(src.data(), dst.data(), 700, made.state, scale), orvOk, what);
                expect_within(form.filter, form, decoded(form.samples, dst.data(), 700), want, what);
                const std::vector<std::byte> again = encoded(form.taps, taps);
                expect_status(form.set_taps, form.set_taps(again.data(), made.state, 0), orvOk, what);
                const void* silence = nullptr;
                expect_status(form.set_delay, form.set_delay(made.state, silence), orvOk, what);
                expect_status(form.filter, form.filter(src.data(), dst.data(), 700, made.state, scale), orvOk, what);
                expect_within(form.filter, form, decoded(form.samples, dst.data(), 700), want, what);
                expect_status(form.free, form.free(made.state), orvOk, what);
                EXPECT_TRUE(allocator().blocks.empty()) << form.free.name() << ", " << what;
            }
            const bool has_fft = form.fft_taps != 0 && n >= static_cast<std::size_t>(form.fft_taps);
            EXPECT_GE(refusals, 1) << form.init_alloc.name() << ", " << n << " taps";
            EXPECT_EQ(without_fft > 0, has_fft) << form.init_alloc.name() << ", " << n << " taps";
        }
    forget();
}

TEST(FirMemory, init_alloc_allocates_nothing_for_bad_arguments)
{
    for (const FirForm& form : fir_forms()) {
        forget();
        void* state = nullptr;
        const void* none = nullptr;
        const std::vector<std::byte> taps = encoded(form.taps, some_taps(form, 4));
        EXPECT_EQ(form.init_alloc(none, taps.data(), 4, 0, none), orvErrNullPointer) << form.init_alloc.name();
        EXPECT_EQ(form.init_alloc(&state, none, 4, 0, none), orvErrNullPointer) << form.init_alloc.name();
        EXPECT_EQ(form.init_alloc(&state, taps.data(), 0, 0, none), orvErrBadFirLength) << form.init_alloc.name();
        EXPECT_EQ(allocator().allocations, 0) << form.init_alloc.name();
        EXPECT_EQ(state, nullptr) << form.init_alloc.name();
    }
}

TEST(FirMemory, filters_allocate_nothing)
{
    const Threads scope(1);
    for (const FirForm& form : fir_forms())
        for (const std::size_t n : taps_lengths) {
            const Values taps = some_taps(form, n);
            for (const bool is_init : {false, true}) {
                forget();
                std::unique_ptr<FirFilter> filter;
                if (is_init) filter = std::make_unique<FirFilter>(form, taps, FirStart{}, before_guard);
                else filter = std::make_unique<FirFilter>(form, taps);
                const int before = allocator().allocations;
                EXPECT_EQ(before == 0, is_init) << form.init.name() << ", " << n << " taps";
                for (const std::size_t len : {1u, 100u, 700u, 1700u, 9000u}) {
                    const Values x(len * static_cast<std::size_t>(form.samples.components), 1);
                    filter->filter(x);
                    filter->filter_in_place(x);
                }
                filter->one_by_one(Values(4, 1));
                filter->set_taps(taps);
                filter->taps();
                filter->set_delay({});
                filter->set_delay(filter->delay());
                EXPECT_EQ(allocator().allocations, before) << form.form << ", " << n << " taps";
            }
        }
    forget();
}

/// Only the roads through a record do, and they give it back.
TEST(FirMemory, direct_forms_allocate_where_they_are_told_to)
{
    const Threads scope(1);
    for (const FirDirectForm& form : fir_direct_forms())
        for (const std::size_t n : {1u, 5u, 15u, 16u, 17u, 31u, 32u, 33u, 64u, 100u}) {
            const Values taps = some_taps(form, n), past(n * static_cast<std::size_t>(form.samples.components));
            for (const std::size_t len : {std::size_t{1}, n - 1, n, n + 1, std::size_t{127}, std::size_t{128},
                                          std::size_t{255}, std::size_t{256}, std::size_t{1700}}) {
                if (len == 0) continue;
                forget();
                const Values x(len * static_cast<std::size_t>(form.samples.components), 1);
                const DirectRoad road = direct_road(form, n, len);
                const bool has_record = road == DirectRoad::record || road == DirectRoad::newest_first;
                DirectFilter filter(form, taps, 0, past, 0);
                for (const bool in_place : {false, true}) {
                    if (in_place) filter.filter_in_place(x, 0);
                    else filter.filter(x, 0);
                    EXPECT_EQ(allocator().allocations > 0, has_record)
                        << (in_place ? form.filter_in_place : form.filter).name() << ", " << n << " taps, " << len
                        << " samples";
                    EXPECT_TRUE(allocator().blocks.empty()) << form.filter.name();
                    forget();
                }
            }
            forget();
            DirectFilter filter(form, taps, 0, past, 0);
            filter.one_by_one(Values(4, 1), 0);
            filter.one_by_one_in_place(Values(4, 1), 0);
            EXPECT_EQ(allocator().allocations, 0) << form.one.name();
        }
    forget();
}

TEST(FirMemory, direct_forms_survive_each_refusal)
{
    const Threads scope(1);
    for (const FirDirectForm& form : fir_direct_forms())
        for (const std::size_t n : {3u, 16u, 32u, 64u, 100u})
            for (const std::size_t len : {101u, 300u, 900u}) {
                const DirectRoad road = direct_road(form, n, len);
                if (road != DirectRoad::record && road != DirectRoad::newest_first) continue;
                Random random(n);
                const Values taps = some_taps(form, n);
                const Values past = drawn(random, form.samples, n, form.is_scaled() ? 1000 : 1);
                const Values x = drawn(random, form.samples, len, form.is_scaled() ? 1000 : 1);
                const FirBounds want =
                    fir_bounds(form, taps, direct_factor(form, 0), past, x, 0, fir_form(form.form).fft_taps);
                for (const bool in_place : {false, true}) {
                    const AnyExport& f = in_place ? form.filter_in_place : form.filter;
                    int refusals = 0;
                    for (int refused = 0;; ++refused) {
                        DirectFilter filter(form, taps, 0, past, 2);
                        if (road == DirectRoad::newest_first) filter.set_line_of_blocks(past, 2);
                        filter.may_lack_memory = true;
                        forget();
                        allocator().refused = refused;
                        const Values y = in_place ? filter.filter_in_place(x, 0) : filter.filter(x, 0);
                        EXPECT_TRUE(allocator().blocks.empty()) << f.name();
                        const std::string what = std::to_string(n) + " taps, allocation " + std::to_string(refused);
                        if (filter.status == orvErrNoMemory) {
                            ++refusals;
                            expect_status(f, filter.status, orvErrNoMemory, what);
                        } else if (!expect_within(f, form, y, want, what)) {
                            return;
                        }
                        if (allocator().allocations <= refused) break; // none was refused
                    }
                    EXPECT_GE(refusals, 1) << f.name() << ", " << n << " taps, " << len << " samples";
                }
            }
    forget();
}

} // namespace
} // namespace orvtest
