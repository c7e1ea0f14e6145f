// The past of the stream in FIR filters: in the order told, whatever was called before, and used by what is called
// next.
#include "tests/fir/forms.h"
#include "tests/support/threads.h"

#include <limits>

namespace orvtest {
namespace {

constexpr std::size_t lengths[] = {1, 2, 3, 4, 7, 8, 9, 12, 16, 17, 31, 32, 33, 64, 65, 129, 300};

Values ones(const ElementType& type, std::size_t n)
{
    return Values(n * static_cast<std::size_t>(type.components), 1.0);
}

double highest(const FirForm& form)
{
    if (!form.is_scaled()) return 1;
    return form.samples.component_size == 2 ? 32767 : 2147483647;
}

TEST(FirDelay, comes_back)
{
    for (const FirForm& form : fir_forms())
        for (const std::size_t n : lengths) {
            Random random(seed_of(form.form, n));
            const Values first = drawn(random, form.samples, n, highest(form));
            const Values second = drawn(random, form.samples, n, highest(form));
            const Values silence(first.size());
            const std::string what = std::to_string(n) + " taps";
            FirFilter filter(form, ones(form.taps, n), {0, first}),
                made(form, ones(form.taps, n), {0, first}, before_guard);
            EXPECT_EQ(filter.delay(), first) << form.init_alloc.name() << ", " << what;
            EXPECT_EQ(made.delay(), first) << form.init.name() << ", " << what;
            for (FirFilter* each : {&filter, &made}) {
                each->set_delay(second);
                EXPECT_EQ(each->delay(), second) << form.set_delay.name() << ", " << what;
                each->set_delay({});
                EXPECT_EQ(each->delay(), silence) << form.set_delay.name() << ", " << what;
            }
            made.expect_no_damage(what);
        }
}

TEST(FirDelay, begins_in_silence)
{
    for (const FirForm& form : fir_forms())
        for (const std::size_t n : {1u, 5u, 70u}) {
            const Values taps = ones(form.taps, n);
            const Values silence(n * static_cast<std::size_t>(form.samples.components));
            EXPECT_EQ(FirFilter(form, taps).delay(), silence) << form.init_alloc.name();
            EXPECT_EQ(FirFilter(form, taps, {}, before_guard).delay(), silence) << form.init.name();
        }
}

/// After each call the past is what has gone through, newest first.
TEST(FirDelay, follows_the_stream)
{
    const Threads scope(2);
    for (const FirForm& form : fir_forms())
        for (const std::size_t n : lengths) {
            Random random(seed_of(form.form, n));
            Values past = drawn(random, form.samples, n, highest(form));
            FirFilter filter(form, ones(form.taps, n), {0, past}, before_guard);
            enum { apart, in_place, ones_only };
            for (const int way : {apart, ones_only, in_place, ones_only, apart, apart, ones_only, in_place, in_place}) {
                for (std::size_t len : {1u, 2u, 5u, 9u, 40u, 700u}) {
                    if (way == ones_only && len == 40) len = n;
                    if (way == ones_only && len == 700) len = 2 * n + 1;
                    const Values x = drawn(random, form.samples, len, highest(form));
                    if (way == apart) filter.filter(x);
                    else if (way == in_place) filter.filter_in_place(x);
                    else filter.one_by_one(x);
                    past = newest(form.samples, past, x, n);
                    if (filter.delay() == past) continue;
                    ADD_FAILURE() << form.get_delay.name() << ", " << n << " taps, " << len << " samples, way " << way;
                    return;
                }
            }
        }
}

/// What SetDlyLine sets is what outputs are made of, wherever the filter stood before.
TEST(FirDelay, is_what_outputs_are_made_of)
{
    const Threads scope(1);
    for (const FirForm& form : fir_forms())
        for (const std::size_t n : lengths) {
            Random random(seed_of(form.form, n));
            const bool is_float = form.taps.number == Number::binary_float;
            const Values taps = drawn(random, form.taps, n, is_float ? 1 : 20000);
            const FirIntegerTaps held = form.is_integer() ? integer_taps(form, taps, 0) : FirIntegerTaps{taps, 0};
            const Values past = drawn(random, form.samples, n, highest(form));
            const std::string what = std::to_string(n) + " taps";
            FirFilter filter(form, taps);
            for (const std::size_t len : {1u, 3u, 50u, 600u})
                for (const bool by_samples : {false, true}) {
                    if (by_samples && len > 50) continue;
                    const Values x = drawn(random, form.samples, len, highest(form));
                    const int scale = form.is_scaled() ? 3 : 0;
                    const FirBounds want = fir_bounds(form, held.taps, held.factor, past, x, scale);
                    filter.one_by_one(part(form.samples, past, 0, n / 2), scale); // moves the start of the line
                    filter.set_delay(past);
                    expect_within(by_samples ? form.one : form.filter, form,
                                  by_samples ? filter.one_by_one(x, scale) : filter.filter(x, scale), want, what);
                }
        }
}

/// The last element of the line is kept though no output wants it.
TEST(FirDelay, of_one_tap_is_a_sample)
{
    for (const FirForm& form : fir_forms()) {
        Random random(seed_of(form.form, 1));
        const Values taps = ones(form.taps, 1);
        const Values past = drawn(random, form.samples, 1, 100), x = drawn(random, form.samples, 3, 100);
        FirFilter filter(form, taps, {0, past}), silent(form, taps);
        const int scale = -2;
        expect_same(form.filter, form, filter.filter(x, scale), silent.filter(x, scale), "one tap");
        EXPECT_EQ(filter.delay(), part(form.samples, x, 2, 1)) << form.get_delay.name();
    }
}

/// Even infinity and NaN, in the element that enters no output.
TEST(FirDelay, oldest_element_enters_no_output)
{
    for (const FirForm& form : fir_forms()) {
        if (form.is_scaled()) continue;
        for (const std::size_t n : {1u, 2u, 9u, 40u, 70u}) {
            Values past(n * static_cast<std::size_t>(form.samples.components));
            past.back() = std::numeric_limits<double>::infinity();
            const Values x = ones(form.samples, 600);
            FirFilter filter(form, ones(form.taps, n), {0, past}), silent(form, ones(form.taps, n));
            expect_same(form.filter, form, filter.filter(x), silent.filter(x), std::to_string(n) + " taps");
            filter.set_delay(past);
            silent.set_delay({});
            expect_same(form.one, form, filter.one_by_one(x), silent.one_by_one(x), std::to_string(n) + " taps");
        }
    }
}

} // namespace
} // namespace orvtest
