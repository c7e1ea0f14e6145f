// Half precision, with the processor's instructions and without: this program answers what the library asks about them.
#include "orvs/convert.h"
#include "orvs/core.h"

#include "oracles.h"

#include <gtest/gtest.h>

namespace {

bool grant_instructions = false;
int questions = 0;

bool have_instructions() { return (orvGetEnabledCpuFeatures() & orvCpuF16c) != 0; }

} // namespace

// In front of the core library's function of this name.
int ownGetFeature(Orv64u mask)
{
    if (mask == 0x4000) ++questions;
    return mask == 0x4000 && grant_instructions;
}

namespace orvtest {
namespace {

/// Both roads in turn, or the one that this processor has.
template <class Expect>
void on_each_road(const Expect& expect)
{
    for (const bool granted : {false, true}) {
        if (granted && !have_instructions()) continue;
        grant_instructions = granted;
        const int before = questions;
        expect();
        EXPECT_GT(questions, before);
    }
    grant_instructions = false;
}

// ---- By definition: sign, five bits of exponent, ten of fraction

Orv32f value_of_half(Orv16f h)
{
    const std::uint32_t sign = static_cast<std::uint32_t>(h >> 15) << 31;
    const int exponent = h >> 10 & 31, fraction = h & 1023;
    if (exponent == 31) {
        const std::uint32_t quiet = fraction ? 0x400000u : 0u;
        return std::bit_cast<Orv32f>(sign | 0x7F800000u | quiet | static_cast<std::uint32_t>(fraction) << 13);
    }
    const double magnitude = exponent == 0 ? std::ldexp(fraction, -24) : std::ldexp(1024 + fraction, exponent - 25);
    return static_cast<Orv32f>(sign ? -magnitude : magnitude);
}

Orv16f half_of(Orv32f x, OrvRoundMode mode)
{
    const auto bits = std::bit_cast<std::uint32_t>(x);
    const auto sign = static_cast<Orv16f>(bits >> 16 & 0x8000);
    if ((bits & 0x7FFFFFFF) > 0x7F800000) return static_cast<Orv16f>(sign | 0x7E00 | (bits >> 13 & 0x3FF));
    const long double magnitude = std::fabs(static_cast<long double>(x));
    if (std::isinf(x)) return sign | 0x7C00;
    if (magnitude == 0) return sign;
    const int exponent = std::max(std::ilogb(magnitude), -14);
    const long double value = std::ldexp(rounded(std::ldexp(magnitude, 10 - exponent), mode), exponent - 10);
    if (value >= 65536) return static_cast<Orv16f>(sign | (mode == orvRndNear ? 0x7C00 : 0x7BFF));
    // The halves from 0 up to infinity are numbered by their bits.
    if (value < 0x1p-14L) return static_cast<Orv16f>(sign | static_cast<int>(std::ldexp(value, 24)));
    const int e = std::ilogb(value);
    const int fraction = static_cast<int>(std::ldexp(value, 10 - e)) - 1024;
    return static_cast<Orv16f>(sign | ((e + 15) << 10) | fraction);
}

constexpr OrvRoundMode minus_1 = std::bit_cast<OrvRoundMode>(-1);
constexpr OrvRoundMode half_modes[] = {orvRndZero, orvRndNear, rnd_7, minus_1};

/// Every mode but to nearest truncates.
OrvRoundMode taken(OrvRoundMode mode) { return mode == orvRndNear ? orvRndNear : orvRndZero; }

// ---- Results

TEST(Half, oracle_undoes_itself)
{
    for (const Orv16f h : all_patterns<Orv16f>()) {
        const bool is_nan = (h & 0x7FFF) > 0x7C00;
        for (const OrvRoundMode mode : {orvRndZero, orvRndNear})
            ASSERT_EQ(half_of(value_of_half(h), mode), is_nan ? h | 0x200 : h);
    }
}

TEST(Convert_16f32f, every_pattern)
{
    on_each_road([] {
        const auto f = ORV_EXPORT(orvsConvert_16f32f);
        expect_all(f.with(), all_patterns<Orv16f>(), value_of_half, NanView::bits);
        SweepOptions options = convert_lengths();
        options.nans = NanView::bits;
        sweep_elements(f, value_of_half, options);
    });
}

/// Around every half and every middle of two, and what is special.
std::vector<Orv32f> floats_around_halves()
{
    auto values = critical_floats<Orv32f>();
    for (Orv16f h = 0; h < 0x7C00; ++h) {
        const Orv32f x = value_of_half(h), next = h == 0x7BFF ? 65536 : value_of_half(static_cast<Orv16f>(h + 1));
        add_around(values, x);
        add_around(values, (x + next) / 2);
    }
    for (std::uint32_t payload = 1; payload < 0x800000; payload = payload * 3 + 1)
        for (const std::uint32_t sign : {0u, 0x80000000u}) {
            values.push_back(0);
            const std::uint32_t bits = sign | 0x7F800000 | payload;
            std::memcpy(&values.back(), &bits, sizeof bits);
        }
    return values;
}

TEST(Convert_32f16f, every_tie)
{
    const auto values = floats_around_halves();
    on_each_road([&] {
        const auto f = ORV_EXPORT(orvsConvert_32f16f);
        for (const OrvRoundMode mode : half_modes) {
            const auto oracle = [=](const Orv32f& x) { return half_of(x, taken(mode)); };
            expect_all(f.with(mode), values, oracle);
            sweep_elements(f.with(mode), oracle, convert_lengths());
        }
    });
}

TEST(Convert_16s16f, every_pattern)
{
    on_each_road([] {
        const auto f = ORV_EXPORT(orvsConvert_16s16f);
        for (const OrvRoundMode mode : half_modes) {
            const auto oracle = [=](Orv16s x) { return half_of(x, taken(mode)); };
            expect_all(f.with(mode), all_patterns<Orv16s>(), oracle);
            sweep_elements(f.with(mode), oracle, convert_lengths());
        }
    });
}

TEST(Convert_16f16s_Sfs, every_pattern)
{
    on_each_road([] {
        const auto f = ORV_EXPORT(orvsConvert_16f16s_Sfs);
        for (const OrvRoundMode mode : {orvRndZero, orvRndNear})
            for (const int scale : scales(42)) {
                const int clamped = std::clamp(scale, -1000, 1000);
                const auto oracle = [=](Orv16f h) {
                    const auto x = static_cast<long double>(value_of_half(h));
                    return saturated<Orv16s>(rounded(std::ldexp(x, -clamped), mode));
                };
                if (!expect_all(f.with(mode, scale), all_patterns<Orv16f>(), oracle)) return;
                if (!sweep_elements(f.with(mode, scale), oracle, options_at_scale(convert_lengths(), scale, 42)))
                    return;
            }
        for (const OrvRoundMode mode : {rnd_7, minus_1}) {
            const auto oracle = [=](Orv16f h) {
                return saturated<Orv16s>(rounded(static_cast<long double>(value_of_half(h)), orvRndZero));
            };
            expect_all(f.with(mode, 0), all_patterns<Orv16f>(), oracle);
        }
    });
}

TEST(Half, is_the_same_in_every_state)
{
    // A signalling not-a-number is an invalid operation to the instructions.
    auto floats = floats_around_halves();
    std::erase_if(floats, [](Orv32f x) { return std::isnan(x); });
    auto halves = all_patterns<Orv16f>();
    std::erase_if(halves, [](Orv16f h) { return (h & 0x7FFF) > 0x7C00; });
    on_each_road([&] {
        expect_no_dependence_on_state(ORV_EXPORT(orvsConvert_16f32f).with(), halves);
        for (const OrvRoundMode mode : {orvRndZero, orvRndNear}) {
            expect_no_dependence_on_state(ORV_EXPORT(orvsConvert_32f16f).with(mode), floats);
            expect_no_dependence_on_state(ORV_EXPORT(orvsConvert_16s16f).with(mode), all_patterns<Orv16s>());
            for (const int scale : {0, 3, -3})
                expect_no_dependence_on_state(ORV_EXPORT(orvsConvert_16f16s_Sfs).with(mode, scale),
                                              all_patterns<Orv16f>());
        }
    });
}

TEST(Half, subnormal_values_stay_where_the_caller_flushes_them)
{
    on_each_road([] {
        const CallerState scope(denormals_are_zero | flush_to_zero);
        expect_all(ORV_EXPORT(orvsConvert_16f32f).with(), all_patterns<Orv16f>(), value_of_half);
        std::vector<Orv32f> values;
        for (Orv16f h = 0; h < 0x0800; ++h) values.push_back(value_of_half(h));
        const auto oracle = [](Orv32f x) { return half_of(x, orvRndNear); };
        expect_all(ORV_EXPORT(orvsConvert_32f16f).with(orvRndNear), values, oracle);
    });
}

TEST(Half, in_place)
{
    on_each_road([] {
        expect_same_in_place(ORV_EXPORT(orvsConvert_16s16f).with(orvRndNear));
        expect_same_in_place(ORV_EXPORT(orvsConvert_16f16s_Sfs).with(orvRndNear, 2));
    });
}

TEST(Half, large)
{
    on_each_road([] {
        EXPECT_TRUE(check_large(ORV_EXPORT(orvsConvert_16f32f).with(), value_of_half));
        EXPECT_TRUE(check_large(ORV_EXPORT(orvsConvert_32f16f).with(orvRndNear),
                                [](Orv32f x) { return half_of(x, orvRndNear); }));
    });
}

// ---- Order of checks

TEST(Half, checks_pointers_then_length_then_mode)
{
    on_each_road([] {
        expect_pointers_before_length(ORV_EXPORT(orvsConvert_16f32f), 4);
        for (const OrvRoundMode mode : half_modes) {
            const auto refused = [=](const auto& f, auto... scale) {
                ArgumentChecks(f, 4, mode, scale...)
                    .null_pointers()
                    .bad_lengths()
                    .template bad<3>(orvRndFinancial, orvErrBadRoundMode)
                    .run();
            };
            refused(ORV_EXPORT(orvsConvert_32f16f));
            refused(ORV_EXPORT(orvsConvert_16s16f));
            for (const int scale : {INT_MIN, -14, 0, 3, INT_MAX}) refused(ORV_EXPORT(orvsConvert_16f16s_Sfs), scale);
        }
    });
}

TEST(Half, asks_in_each_call)
{
    const Orv16f half = 0x3C00;
    Orv32f x = 0;
    for (int call = 1; call <= 3; ++call) {
        const int before = questions;
        EXPECT_EQ(ORV_EXPORT(orvsConvert_16f32f)(&half, &x, 1), orvOk);
        EXPECT_EQ(questions, before + 1);
    }
    expect_value(ORV_EXPORT(orvsConvert_16f32f), x, 1);
}

} // namespace
} // namespace orvtest
