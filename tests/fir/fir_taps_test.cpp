// Taps of FIR filters: what GetTaps tells of them, how integer filters hold them, and that SetTaps is as good as Init.
#include "tests/fir/forms.h"
#include "tests/support/digest.h"
#include "tests/support/threads.h"

#include <algorithm>
#include <cmath>

namespace orvtest {
namespace {

/// GetTaps tells what was given, with the factor beside it, or multiplied by it if there is no place for it.
void expect_taps(const FirForm& form, const FirFilter& filter, const Values& taps, int factor, const std::string& what)
{
    const FirIntegerTaps got = filter.taps();
    if (!form.is_integer()) {
        EXPECT_EQ(got.taps, taps) << form.get_taps.name() << ", " << what;
        return;
    }
    FirIntegerTaps want = integer_taps(form, taps, factor);
    if (form.has_factor) EXPECT_EQ(got.factor, want.factor) << form.get_taps.name() << ", " << what;
    else
        for (double& tap : want.taps) tap = std::ldexp(tap, -want.factor);
    EXPECT_EQ(got.taps, want.taps) << form.get_taps.name() << ", " << what;
}

double full_scale(const FirForm& form)
{
    if (form.taps.number == Number::binary_float) return 1e6;
    return form.taps.component_size == 2 ? 32767 : 2147483647;
}

TEST(FirTaps, come_back)
{
    for (const FirForm& form : fir_forms())
        for (const std::size_t n : {1u, 2u, 3u, 7u, 8u, 9u, 16u, 31u, 64u, 65u, 130u, 1000u}) {
            Random random(seed_of(form.form, n));
            const Values first = drawn(random, form.taps, n, full_scale(form));
            const Values second = drawn(random, form.taps, n, full_scale(form) / 1000);
            const std::string what = std::to_string(n) + " taps";
            FirFilter made(form, first, {-3, {}}, before_guard);
            expect_taps(form, made, first, -3, what);
            FirFilter filter(form, first, {5, {}});
            expect_taps(form, filter, first, 5, what);
            filter.set_taps(second, 9);
            expect_taps(form, filter, second, 9, what);
            filter.set_taps(first, -100);
            expect_taps(form, filter, first, -100, what);
            made.expect_no_damage(what);
        }
}

/// Calls of all roads after SetTaps give what a new filter with these taps and this past gives.
TEST(FirSetTaps, keeps_the_past)
{
    const Threads scope(1);
    for (const FirForm& form : fir_forms())
        for (const std::size_t n : {1u, 3u, 8u, 33u, 64u, 100u, 513u}) {
            Random random(seed_of(form.form, n));
            const double size = form.taps.number == Number::binary_float ? 1 : full_scale(form) / 100;
            const Values first = drawn(random, form.taps, n, size), second = drawn(random, form.taps, n, size);
            const Values before = drawn(random, form.samples, 700, 1000),
                         after = drawn(random, form.samples, 700, 1000);
            const int scale = form.is_integer() ? 4 : 0;
            const std::string what = std::to_string(n) + " taps";
            for (const bool to_samples : {false, true}) {
                FirFilter filter(form, first, {2, {}});
                if (to_samples) filter.one_by_one(part(form.samples, before, 0, n), scale);
                else filter.filter(before, scale);
                const Values past = filter.delay();
                filter.set_taps(second, 3);
                EXPECT_EQ(filter.delay(), past) << form.set_taps.name() << ", " << what;
                FirFilter other(form, second, {3, past});
                expect_same(form.set_taps, form, filter.one_by_one(part(form.samples, after, 0, 5), scale),
                            other.one_by_one(part(form.samples, after, 0, 5), scale), what);
                expect_same(form.set_taps, form, filter.filter(after, scale), other.filter(after, scale), what);
                expect_same(form.set_taps, form, filter.filter_in_place(after, scale),
                            other.filter_in_place(after, scale), what);
            }
        }
}

// ---- Integer filters

/// The taps of one size, alone, with small ones, and with their negatives.
std::vector<Values> taps_of_size(const FirForm& form, double size)
{
    std::vector<Values> all;
    for (const double sign : {1.0, -1.0}) {
        all.push_back({sign * size});
        all.push_back({1, -1, sign * size, 3, -3, 0, 2, -2, 5, -7});
        all.push_back({sign * size, sign * size});
    }
    all.push_back({-size, size, 100, -101});
    const double least = form.taps.component_size == 2 ? -32768.0 : -2147483648.0;
    const double most = -least - 1;
    for (Values& taps : all) {
        for (double& tap : taps)
            if (form.taps.number != Number::binary_float) tap = std::clamp(tap, least, most);
        if (form.taps.components == 1) continue;
        Values complex; // the size is in real parts first, then in imaginary ones
        for (std::size_t i = 0; i < taps.size(); ++i) {
            complex.push_back(i % 2 == 0 ? taps[i] : 1);
            complex.push_back(i % 2 == 0 ? -2 : taps[i]);
        }
        taps = complex;
    }
    return all;
}

const std::vector<const FirForm*>& integer_forms()
{
    static const std::vector<const FirForm*> forms = [] {
        std::vector<const FirForm*> some;
        for (const FirForm& form : fir_forms())
            if (form.is_integer()) some.push_back(&form);
        return some;
    }();
    return forms;
}

/// What is held shows in GetTaps and in outputs.
void expect_held(const FirForm& form, const Values& taps, const std::string& what)
{
    const std::size_t n = count(form.taps, taps);
    Random random(n);
    const Values x = drawn(random, form.samples, 40, 32767);
    for (const int factor : {0, -2, 6}) {
        FirFilter filter(form, taps, {factor, {}});
        expect_taps(form, filter, taps, factor, what);
        FirFilter later(form, Values(taps.size(), 1.0), {1, {}}, before_guard);
        later.set_taps(taps, factor);
        expect_taps(form, later, taps, factor, what);
        const FirIntegerTaps held = integer_taps(form, taps, factor);
        for (const int scale : {0, held.factor, held.factor + 14}) {
            const FirBounds want = fir_bounds(form, held.taps, held.factor, {}, x, scale);
            filter.set_delay({});
            later.set_delay({});
            expect_within(form.filter, form, filter.filter(x, scale), want, what);
            expect_within(form.filter_in_place, form, later.filter_in_place(x, scale), want, what);
            filter.set_delay({});
            expect_within(form.one, form, filter.one_by_one(x, scale), want, what);
        }
    }
}

TEST(FirTaps, integers_are_held_in_16_bits)
{
    for (const FirForm* form : integer_forms()) {
        if (form->taps.number == Number::binary_float) continue;
        std::vector<double> sizes = {0, 1, 2, 255, 16383, 16384, 32765, 32766, 32767, 32768};
        if (form->taps.component_size == 4)
            sizes.insert(sizes.end(), {32769, 65533, 65534, 65535, 65536, 131069, 1e6, 1073741823, 1073741824,
                                       2147418112, 2147483646, 2147483647, 2147483648});
        for (const double size : sizes)
            for (const Values& taps : taps_of_size(*form, size))
                expect_held(*form, taps, "taps of " + std::to_string(size));
    }
}

TEST(FirTaps, all_lowest_are_halved)
{
    const FirForm& form = fir_form("16s");
    for (const std::size_t n : {1u, 5u, 40u}) {
        const Values taps(n, -32768);
        FirFilter filter(form, taps, {-15, {}});
        const FirIntegerTaps got = filter.taps();
        EXPECT_EQ(got.taps, Values(n, -16384));
        EXPECT_EQ(got.factor, -14);
        expect_held(form, taps, "all the lowest");
    }
    FirFilter filter(form, {-32768, 3, -3, 32767}, {});
    EXPECT_EQ(filter.taps().taps, (Values{-16384, 1, -2, 16383}));
    filter.set_taps({-32767, 3, -3, 32767}, 4);
    EXPECT_EQ(filter.taps().taps, (Values{-32767, 3, -3, 32767}));
    EXPECT_EQ(filter.taps().factor, 4);
}

TEST(FirTaps, floats_are_held_in_16_bits)
{
    for (const FirForm* form : integer_forms()) {
        if (form->taps.number != Number::binary_float) continue;
        for (const double size :
             {0.0,           1.0,     0.5,     0.1,     3.14159, 16383.0, 16383.5, 16383.75, 16384.0,
              32766.5,       32767.0, 32767.5, 32768.0, 65534.0, 65535.0, 1e6,     1e9,      0x1p31,
              0x1.fffffep46, 0x1p47,  1e-3,    1e-5,    0x1p-18, 0x1p-19, 0x1p-20, 1e-10,    1e-30})
            for (Values taps : taps_of_size(*form, size)) {
                for (double& tap : taps) tap = static_cast<float>(tap);
                expect_held(*form, taps, "taps of " + std::to_string(size));
            }
    }
}

/// Halves are rounded away from zero.
TEST(FirTaps, ties_of_floats)
{
    for (const FirForm* form : integer_forms()) {
        if (form->taps.number != Number::binary_float) continue;
        const Values taps = {20000, 0.5, -0.5, 1.5, -1.5, 2.5, -2.5, 0.49, -0.49, 100.5, -100.5, 0};
        expect_held(*form, taps, "ties");
        FirFilter filter(*form, taps, {});
        EXPECT_EQ(filter.taps().taps, (Values{20000, 1, -1, 2, -2, 3, -3, 0, 0, 101, -101, 0})) << form->form;
    }
}

/// Those that 33 halvings do not bring into 16 bits.
TEST(FirTaps, enormous_floats_saturate)
{
    for (const FirForm* form : integer_forms()) {
        if (form->taps.number != Number::binary_float) continue;
        FirFilter filter(*form, {0x1p49, -0x1p60, 0x1p34, -0x1p33, 0x1p127, -0x1p127}, {});
        const double unit = 0x1p-33; // GetTaps multiplies by it again
        const Values want = {32767 * unit, -32767 * unit, 2 * unit, -1 * unit, 32767 * unit, -32767 * unit};
        EXPECT_EQ(filter.taps().taps, want) << form->form;
    }
}

/// The same record and the same calls serve integer and floating taps.
TEST(FirTaps, of_both_kinds_serve_one_record)
{
    for (const auto& [integer, floating] : {std::pair{"32s_16s", "32s_16s32f"}, {"32sc_16sc", "32sc_16sc32fc"}}) {
        const FirForm &integers = fir_form(integer), &floats = fir_form(floating);
        Random random(5);
        const std::size_t n = 12;
        const Values whole = drawn(random, integers.taps, n, 1e7), real = drawn(random, floats.taps, n, 1);
        FirFilter filter(integers, whole, {3, {}});
        const auto bytes = encoded(floats.taps, real);
        expect_status(floats.set_taps, floats.set_taps(bytes.data(), filter.state()), orvOk);
        const FirIntegerTaps held = integer_taps(floats, real, 0);
        const FirIntegerTaps got = filter.taps();
        EXPECT_EQ(got.taps, held.taps) << floating;
        EXPECT_EQ(got.factor, held.factor) << floating;
        FirFilter other(floats, real);
        std::vector<std::byte> taps(n * integers.taps.size());
        int factor = 0;
        expect_status(integers.get_taps, integers.get_taps(other.state(), taps.data(), &factor), orvOk);
        EXPECT_EQ(decoded(integers.taps, taps.data(), n), held.taps) << integer;
        EXPECT_EQ(factor, held.factor) << integer;
    }
}

} // namespace
} // namespace orvtest
