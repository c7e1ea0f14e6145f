// FIR filters over single samples, alone and between blocks.
#include "tests/fir/forms.h"
#include "tests/support/threads.h"

#include <cmath>

namespace orvtest {
namespace {

Values some_taps(const FirForm& form, std::size_t n)
{
    Random random(seed_of(form.form, n));
    return drawn(random, form.taps, n, form.taps.number == Number::binary_float ? 1 : 32767);
}

TEST(FirOne, samples)
{
    for (const FirForm& form : fir_forms()) {
        std::vector<std::size_t> lengths = {63, 64, 65, 100, 255, 1000};
        for (std::size_t n = 1; n <= 50; ++n) lengths.push_back(n);
        for (const std::size_t n : lengths) {
            Random random(seed_of("samples", n));
            const Values taps = some_taps(form, n);
            const double most = form.is_scaled() ? 32767 : 1;
            const Values past = drawn(random, form.samples, n, most);
            const Values x = drawn(random, form.samples, 2 * n + 7, most);
            const FirIntegerTaps held = form.is_integer() ? integer_taps(form, taps, 2) : FirIntegerTaps{taps, 0};
            const int scale = form.is_integer() ? held.factor + 17 : form.is_scaled() ? 4 : 0;
            const FirBounds want = fir_bounds(form, held.taps, held.factor, past, x, scale);
            FirFilter filter(form, taps, {2, past}, before_guard);
            if (!expect_within(form.one, form, filter.one_by_one(x, scale), want, std::to_string(n) + " taps")) return;
            filter.expect_no_damage("single samples");
            expect_same(form.get_delay, form, filter.delay(), newest(form.samples, past, x, n), "the past");
        }
    }
}

/// The start of the line moves with samples, and a block goes on from there.
TEST(FirOne, between_blocks)
{
    const Threads scope(1);
    for (const FirForm& form : fir_forms())
        for (const std::size_t n : {1u, 2u, 6u, 17u, 70u})
            for (const std::size_t samples : {std::size_t{1}, n - 1, n, n + 1, 2 * n + 3})
                for (const std::size_t block : {1u, 4u, 30u, 600u}) {
                    Random random(seed_of(form.form, n));
                    const double most = form.is_scaled() ? 10000 : 1;
                    const Values taps = some_taps(form, n);
                    const Values x = drawn(random, form.samples, 2 * samples + 2 * block, most);
                    const FirIntegerTaps held =
                        form.is_integer() ? integer_taps(form, taps, 0) : FirIntegerTaps{taps, 0};
                    const int scale = form.is_integer() ? held.factor + 16 : form.is_scaled() ? 4 : 0;
                    const FirBounds want = fir_bounds(form, held.taps, held.factor, {}, x, scale);
                    FirFilter filter(form, taps);
                    Values y;
                    const auto put = [&](const Values& some) { y.insert(y.end(), some.begin(), some.end()); };
                    put(filter.one_by_one(part(form.samples, x, 0, samples), scale));
                    put(filter.filter(part(form.samples, x, samples, block), scale));
                    put(filter.one_by_one(part(form.samples, x, samples + block, samples), scale));
                    put(filter.filter_in_place(part(form.samples, x, 2 * samples + block, block), scale));
                    const std::string what = std::to_string(n) + " taps, " + std::to_string(samples) + " samples, " +
                                             std::to_string(block) + " in a block";
                    if (!expect_within(form.one, form, y, want, what)) return;
                }
}

/// The destination may be where the sample was.
TEST(FirOne, result_takes_any_place)
{
    for (const FirForm& form : fir_forms()) {
        const Values taps = some_taps(form, 5);
        Random random(1);
        const Values x = drawn(random, form.samples, 1, 100);
        FirFilter filter(form, taps);
        const Values want = filter.one_by_one(x);
        const std::vector<std::byte> sample = encoded(form.samples, x);
        for (int bytes = 0; bytes < 16; ++bytes) {
            filter.set_delay({});
            GuardedBlock block(form.samples.size());
            std::byte* place = block.place(form.samples.size(), misaligned(bytes));
            const AnyArgument arguments[] = {AnyArgument::of_bytes(sample.data(), sample.size()),
                                             AnyArgument::of(place), AnyArgument::of(filter.state()),
                                             AnyArgument::of(0)};
            expect_status(form.one, form.one.callee()->call(arguments), orvOk);
            expect_same(form.one, form, decoded(form.samples, place, 1), want, "any place");
            EXPECT_EQ(block.damage(), "") << form.one.name();
        }
    }
}

} // namespace
} // namespace orvtest
