// Conversions between integers and floating types; half precision has a program of its own.
#include "orvs/convert.h"

#include "oracles.h"

#include <gtest/gtest.h>

namespace orvtest {
namespace {

constexpr OrvRoundMode all_modes[] = {orvRndZero, orvRndNear, orvRndFinancial, rnd_7};

// ---- Widening

/// The destination holds the value.
template <class D>
constexpr auto same_value = [](const auto& x) { return static_cast<D>(value_of(x)); };

template <class S, class D, class F>
void expect_widening(const F& f)
{
    EXPECT_TRUE(sweep_elements(on_samples<S, D>(f), same_value<D>, convert_lengths()));
}

TEST(Convert, widens)
{
    expect_widening<Orv8s, Orv16s>(ORV_EXPORT(orvsConvert_8s16s));
    expect_widening<Orv16s, Orv32s>(ORV_EXPORT(orvsConvert_16s32s));
    expect_widening<Sample24s, Orv32s>(ORV_EXPORT(orvsConvert_24s32s));
    expect_widening<Sample24u, Orv32u>(ORV_EXPORT(orvsConvert_24u32u));
    expect_widening<Orv8s, Orv32f>(ORV_EXPORT(orvsConvert_8s32f));
    expect_widening<Orv8u, Orv32f>(ORV_EXPORT(orvsConvert_8u32f));
    expect_widening<Orv16s, Orv32f>(ORV_EXPORT(orvsConvert_16s32f));
    expect_widening<Orv16u, Orv32f>(ORV_EXPORT(orvsConvert_16u32f));
    expect_widening<Sample24s, Orv32f>(ORV_EXPORT(orvsConvert_24s32f));
    expect_widening<Sample24u, Orv32f>(ORV_EXPORT(orvsConvert_24u32f));
    expect_widening<Orv32s, Orv64f>(ORV_EXPORT(orvsConvert_32s64f));
    expect_widening<Orv32f, Orv64f>(ORV_EXPORT(orvsConvert_32f64f));
}

template <class S, class D, class F>
void expect_all_patterns(const F& f)
{
    expect_all(on_samples<S, D>(f), all_patterns<S>(), same_value<D>);
}

TEST(Convert, widens_every_pattern)
{
    expect_all_patterns<Orv8s, Orv16s>(ORV_EXPORT(orvsConvert_8s16s));
    expect_all_patterns<Orv8s, Orv32f>(ORV_EXPORT(orvsConvert_8s32f));
    expect_all_patterns<Orv8u, Orv32f>(ORV_EXPORT(orvsConvert_8u32f));
    expect_all_patterns<Orv16s, Orv32s>(ORV_EXPORT(orvsConvert_16s32s));
    expect_all_patterns<Orv16s, Orv32f>(ORV_EXPORT(orvsConvert_16s32f));
    expect_all_patterns<Orv16u, Orv32f>(ORV_EXPORT(orvsConvert_16u32f));
}

TEST(Convert, reads_samples_of_24_bits)
{
    const Orv8u bytes[] = {0x01, 0x02, 0x03, 0xff, 0xff, 0xff, 0x00, 0x00, 0x80, 0xff, 0xff, 0x7f};
    std::vector<Orv32s> s(4);
    EXPECT_EQ(ORV_EXPORT(orvsConvert_24s32s)(bytes, s.data(), 4), orvOk);
    expect_elements(ORV_EXPORT(orvsConvert_24s32s), s, {0x030201, -1, -0x800000, 0x7fffff});
    std::vector<Orv32u> u(4);
    EXPECT_EQ(ORV_EXPORT(orvsConvert_24u32u)(bytes, u.data(), 4), orvOk);
    expect_elements(ORV_EXPORT(orvsConvert_24u32u), u, {0x030201, 0xffffff, 0x800000, 0x7fffff});
}

// ---- Rounded to a floating type

template <class S, class D, class F>
void expect_to_follow_rounding(const F& f, const std::vector<S>& values)
{
    for (const unsigned state : rounding_states) {
        const CallerState scope(state);
        const auto oracle = [=](S x) { return to_floating<D>(static_cast<long double>(x), state); };
        EXPECT_TRUE(expect_all(f.with(), values, oracle)) << "in state " << state;
        EXPECT_TRUE(sweep_elements(f, oracle, convert_lengths())) << "in state " << state;
    }
}

template <std::integral T>
std::vector<T> critical_integers()
{
    Random random(3);
    auto values = critical_values<T>(4, 10000);
    for (const T x : inputs<T>(random, 20000)) values.push_back(x);
    return values;
}

TEST(Convert, rounds_to_floating_types_as_the_caller_wants)
{
    expect_to_follow_rounding<Orv32s, Orv32f>(ORV_EXPORT(orvsConvert_32s32f), critical_integers<Orv32s>());
    expect_to_follow_rounding<Orv64s, Orv64f>(ORV_EXPORT(orvsConvert_64s64f), critical_integers<Orv64s>());
    auto doubles = critical_floats<Orv64f>();
    for (const Orv32f x : critical_floats<Orv32f>()) { // between two floats, and just beside one
        const Orv64f y = x, next = std::nextafter(x, Orv32f{0});
        for (const Orv64f z : {y, (y + next) / 2, std::nextafter(y, 0.0), std::nextafter((y + next) / 2, 0.0)})
            doubles.push_back(z);
    }
    expect_to_follow_rounding<Orv64f, Orv32f>(ORV_EXPORT(orvsConvert_64f32f), doubles);
}

/// The sum of opposite values may be -0.
TEST(Convert_64s64f, zero_is_positive_in_every_state)
{
    const std::vector<Orv64s> zeros(37);
    const std::vector<Orv64f> want(37, 0.0);
    for (const unsigned state : rounding_states) {
        const CallerState scope(state);
        std::vector<Orv64f> got(37, 1.0);
        EXPECT_EQ(ORV_EXPORT(orvsConvert_64s64f)(zeros.data(), got.data(), 37), orvOk);
        expect_elements(ORV_EXPORT(orvsConvert_64s64f), got, want);
    }
}

// ---- Integer to floating with scale

template <class S, class D, class F>
void expect_scaled(const F& f, int lowest, int highest, const std::vector<S>& values)
{
    for (const int scale : scales(130)) {
        const long double factor = factor_of<D>(std::clamp(scale, lowest, highest));
        const auto oracle = [=](S x) { return static_cast<D>(to_floating<D>(x, to_nearest) * factor); };
        const auto call = f.with(scale);
        if (!sweep_elements(call, oracle, options_at_scale(convert_lengths(), scale, 130))) return;
        if (scale % 16 == 0 || scale > 120 || scale < -90)
            if (!expect_all(call, values, oracle)) return;
    }
}

TEST(Convert, scales_integers)
{
    expect_scaled<Orv16s, Orv32f>(ORV_EXPORT(orvsConvert_16s32f_Sfs), -112, 126, all_patterns<Orv16s>());
    expect_scaled<Orv32s, Orv32f>(ORV_EXPORT(orvsConvert_32s32f_Sfs), -96, 126, critical_integers<Orv32s>());
    expect_scaled<Orv16s, Orv64f>(ORV_EXPORT(orvsConvert_16s64f_Sfs), INT_MIN, INT_MAX, all_patterns<Orv16s>());
    expect_scaled<Orv32s, Orv64f>(ORV_EXPORT(orvsConvert_32s64f_Sfs), INT_MIN, INT_MAX, critical_integers<Orv32s>());
}

TEST(Convert_32s32f_Sfs, rounds_before_it_scales)
{
    for (const unsigned state : rounding_states) {
        const CallerState scope(state);
        const auto oracle = [=](Orv32s x) { return std::ldexp(to_floating<Orv32f>(x, state), -5); };
        expect_all(ORV_EXPORT(orvsConvert_32s32f_Sfs).with(5), critical_integers<Orv32s>(), oracle);
    }
}

TEST(Convert, scales_to_doubles_as_far_as_their_exponents_reach)
{
    for (const int scale : {-1022, -992, -500, 500, 1000, 1022, 1023, 1024, 1025, 2046, 4096, -1023, -1024, -3000}) {
        const long double factor = factor_of<Orv64f>(scale);
        const auto oracle = [=](auto x) { return static_cast<Orv64f>(static_cast<long double>(x) * factor); };
        expect_all(ORV_EXPORT(orvsConvert_16s64f_Sfs).with(scale), all_patterns<Orv16s>(), oracle);
        expect_all(ORV_EXPORT(orvsConvert_32s64f_Sfs).with(scale), critical_integers<Orv32s>(), oracle);
    }
}

// ---- Floating to integer

/// The mode that 64f64s, unlike the others, makes of values that are none of the three.
template <class D>
OrvRoundMode mode_taken(OrvRoundMode mode)
{
    if (mode != rnd_7) return mode;
    return std::same_as<D, Orv64s> ? orvRndZero : orvRndFinancial;
}

template <class S, class D>
auto integer_oracle(OrvRoundMode mode, int scale)
{
    return [=](S x) { return to_integer<D>(x, mode_taken<D>(mode), scale); };
}

/// With mode and scale; the forms of 24 bits have only a scale and round to nearest.
template <class S, class D, class F>
auto rounding_call(const F& f, OrvRoundMode mode, int scale)
{
    if constexpr (Packed<D>) return on_samples<S, D>(f, scale);
    else return f.with(mode, scale);
}

/// f of the other functions: expects(f, S(), D()) for every conversion from a floating type to an integer.
template <class Expect>
void for_each_to_integer(const Expect& expect)
{
    expect(ORV_EXPORT(orvsConvert_32f8s_Sfs), Orv32f{}, Orv8s{});
    expect(ORV_EXPORT(orvsConvert_32f8u_Sfs), Orv32f{}, Orv8u{});
    expect(ORV_EXPORT(orvsConvert_32f16s_Sfs), Orv32f{}, Orv16s{});
    expect(ORV_EXPORT(orvsConvert_32f16u_Sfs), Orv32f{}, Orv16u{});
    expect(ORV_EXPORT(orvsConvert_32f32s_Sfs), Orv32f{}, Orv32s{});
    expect(ORV_EXPORT(orvsConvert_32f24s_Sfs), Orv32f{}, Sample24s{});
    expect(ORV_EXPORT(orvsConvert_32f24u_Sfs), Orv32f{}, Sample24u{});
    expect(ORV_EXPORT(orvsConvert_64f16s_Sfs), Orv64f{}, Orv16s{});
    expect(ORV_EXPORT(orvsConvert_64f32s_Sfs), Orv64f{}, Orv32s{});
    expect(ORV_EXPORT(orvsConvert_64f64s_Sfs), Orv64f{}, Orv64s{});
}

/// The modes that a form has.
template <class D>
std::vector<OrvRoundMode> modes_of()
{
    if (Packed<D>) return {orvRndNear};
    return {std::begin(all_modes), std::end(all_modes)};
}

TEST(Convert, rounds_at_every_place)
{
    for_each_to_integer([]<class S, class D>(const auto& f, S, D) {
        for (const OrvRoundMode mode : modes_of<D>())
            for (const int scale : scales(130)) {
                const SweepOptions how = options_at_scale(convert_lengths(), scale, 130);
                if (!sweep_elements(rounding_call<S, D>(f, mode, scale), integer_oracle<S, D>(mode, scale), how))
                    return;
            }
    });
}

TEST(Convert, rounds_critical_values)
{
    const auto floats = critical_floats<Orv32f>();
    const auto doubles = critical_floats<Orv64f>();
    for_each_to_integer([&]<class S, class D>(const auto& f, S, D) {
        const auto& values = [&]() -> const std::vector<S>& {
            if constexpr (std::same_as<S, Orv32f>) return floats;
            else return doubles;
        }();
        for (const OrvRoundMode mode : modes_of<D>())
            for (const int scale : {0, 3, -3, -16, 16, -33, 126, -126})
                if (!expect_all(rounding_call<S, D>(f, mode, scale), values, integer_oracle<S, D>(mode, scale))) return;
    });
}

TEST(Convert, rounds_every_tie)
{
    const auto floats = dense_ties<Orv32f>(0, 66000);
    const auto doubles = dense_ties<Orv64f>(0, 33000);
    for_each_to_integer([&]<class S, class D>(const auto& f, S, D) {
        const auto& values = [&]() -> const std::vector<S>& {
            if constexpr (std::same_as<S, Orv32f>) return floats;
            else return doubles;
        }();
        for (const OrvRoundMode mode : modes_of<D>())
            for (const int scale : {0, 4})
                if (!expect_all(rounding_call<S, D>(f, mode, scale), values, integer_oracle<S, D>(mode, scale))) return;
    });
}

TEST(Convert, to_integers_is_the_same_in_every_state)
{
    for_each_to_integer([]<class S, class D>(const auto& f, S, D) {
        auto values = critical_floats<S>();
        for (const OrvRoundMode mode : modes_of<D>())
            for (const int scale : {0, 5, -5})
                expect_no_dependence_on_state(Call<const S*, D*>(rounding_call<S, D>(f, mode, scale)), values);
    });
}

TEST(Convert_32f16s_Sfs, notable_values)
{
    const auto f = ORV_EXPORT(orvsConvert_32f16s_Sfs);
    const Orv32f infinity = std::numeric_limits<Orv32f>::infinity(), nan = std::numeric_limits<Orv32f>::quiet_NaN();
    const std::vector<Orv32f> src = {2.5f, 3.5f, -2.5f, 2.9f, 40000.0f, -40000.0f, nan, infinity, -infinity, 1e30f};
    std::vector<Orv16s> dst(src.size());
    const auto expect = [&](OrvRoundMode mode, const std::vector<Orv16s>& want) {
        EXPECT_EQ(f(src.data(), dst.data(), static_cast<int>(src.size()), mode, 0), orvOk);
        expect_elements(f, dst, want);
    };
    expect(orvRndNear, {2, 4, -2, 3, 32767, -32768, -32768, 32767, -32768, 32767});
    expect(orvRndZero, {2, 3, -2, 2, 32767, -32768, -32768, 32767, -32768, 32767});
    expect(orvRndFinancial, {3, 4, -3, 3, 32767, -32768, -32768, 32767, -32768, 32767});
    expect(rnd_7, {3, 4, -3, 3, 32767, -32768, -32768, 32767, -32768, 32767});
}

TEST(Convert, of_not_a_number_to_unsigned_is_0)
{
    const std::vector<Orv32f> src(50, std::numeric_limits<Orv32f>::quiet_NaN());
    for (const OrvRoundMode mode : all_modes) {
        std::vector<Orv8u> bytes(50, 9);
        std::vector<Orv16u> words(50, 9);
        EXPECT_EQ(ORV_EXPORT(orvsConvert_32f8u_Sfs)(src.data(), bytes.data(), 50, mode, 0), orvOk);
        expect_elements(ORV_EXPORT(orvsConvert_32f8u_Sfs), bytes, std::vector<Orv8u>(50, 0));
        EXPECT_EQ(ORV_EXPORT(orvsConvert_32f16u_Sfs)(src.data(), words.data(), 50, mode, 0), orvOk);
        expect_elements(ORV_EXPORT(orvsConvert_32f16u_Sfs), words, std::vector<Orv16u>(50, 0));
    }
}

// ---- Integer narrowing

/// The law of scale factors, with the limits of the form.
template <class S, class D>
auto narrowing_oracle(OrvRoundMode mode, int scale)
{
    constexpr bool from_32 = sizeof(S) == 4;
    if (from_32 && scale > 31) scale = 31;
    return [=](S x) {
        const Wide y = scale_law(Wide(x), scale, mode);
        if constexpr (Packed<D>) {
            const Wide lowest(static_cast<Orv32s>(lowest_of<D>)), highest(static_cast<Orv32s>(highest_of<D>));
            const Wide limited = y < lowest ? lowest : y > highest ? highest : y;
            return D::of(static_cast<Orv32s>(limited.low64()));
        } else {
            return saturate<D>(y);
        }
    };
}

template <class S, class D, class F>
void expect_narrowing(const F& f, const std::vector<S>& values)
{
    for (const int scale : scales(70)) {
        const auto call = on_samples<S, D>(f, scale);
        const auto oracle = narrowing_oracle<S, D>(orvRndNear, scale);
        if (!sweep_elements(call, oracle, options_at_scale(convert_lengths(), scale, 70))) return;
        if (!expect_all(call, values, oracle)) return;
    }
}
template <class S, class D, class F>
void expect_narrowing_in_modes(const F& f, const std::vector<S>& values)
{
    for (const OrvRoundMode mode : all_modes)
        for (const int scale : scales(70)) {
            const auto call = f.with(mode, scale);
            const auto oracle = narrowing_oracle<S, D>(mode_taken<D>(mode), scale);
            if (!sweep_elements(call, oracle, options_at_scale(convert_lengths(), scale, 70))) return;
            if (!expect_all(call, values, oracle)) return;
        }
}

TEST(Convert_32s16s, saturates)
{
    const auto oracle = narrowing_oracle<Orv32s, Orv16s>(orvRndNear, 0);
    EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsConvert_32s16s), oracle, convert_lengths()));
    expect_all(ORV_EXPORT(orvsConvert_32s16s).with(), critical_integers<Orv32s>(), oracle);
}
TEST(Convert_32s16s_Sfs, exact)
{
    expect_narrowing<Orv32s, Orv16s>(ORV_EXPORT(orvsConvert_32s16s_Sfs), critical_values<Orv32s>(2, 500));
}
TEST(Convert_32s24s_Sfs, exact)
{
    expect_narrowing<Orv32s, Sample24s>(ORV_EXPORT(orvsConvert_32s24s_Sfs), critical_values<Orv32s>(2, 500));
}
TEST(Convert_32u24u_Sfs, exact)
{
    expect_narrowing<Orv32u, Sample24u>(ORV_EXPORT(orvsConvert_32u24u_Sfs), critical_values<Orv32u>(2, 500));
}
TEST(Convert_16s8s_Sfs, exact)
{
    expect_narrowing_in_modes<Orv16s, Orv8s>(ORV_EXPORT(orvsConvert_16s8s_Sfs), critical_values<Orv16s>(2, 500));
}
TEST(Convert_64s32s_Sfs, exact)
{
    expect_narrowing_in_modes<Orv64s, Orv32s>(ORV_EXPORT(orvsConvert_64s32s_Sfs), critical_values<Orv64s>(2, 500));
}
TEST(Convert_16s8s_Sfs, every_pattern)
{
    for (const OrvRoundMode mode : all_modes)
        for (int scale = -9; scale <= 18; ++scale) {
            const OrvRoundMode taken = mode == rnd_7 ? orvRndFinancial : mode;
            const auto oracle = [=](Orv16s x) {
                return saturated<Orv8s>(rounded(std::ldexp(static_cast<long double>(x), -scale), taken));
            };
            if (!expect_all(ORV_EXPORT(orvsConvert_16s8s_Sfs).with(mode, scale), all_patterns<Orv16s>(), oracle))
                return;
        }
}

TEST(Convert, from_32_bits_takes_a_scale_above_31_as_31)
{
    const Orv32s src[] = {INT32_MAX, INT32_MIN, 1 << 30, (1 << 30) + 1};
    for (const int scale : {31, 32, 40, INT_MAX}) {
        std::vector<Orv16s> dst(4, 9);
        EXPECT_EQ(ORV_EXPORT(orvsConvert_32s16s_Sfs)(src, dst.data(), 4, scale), orvOk);
        expect_elements(ORV_EXPORT(orvsConvert_32s16s_Sfs), dst, {1, -1, 0, 1});
    }
}

// ---- The source's place, large arrays

TEST(Convert, in_place_of_a_source_of_the_same_size)
{
    expect_same_in_place(ORV_EXPORT(orvsConvert_32s32f).with());
    expect_same_in_place(ORV_EXPORT(orvsConvert_32s32f_Sfs).with(3));
    expect_same_in_place(ORV_EXPORT(orvsConvert_64s64f).with());
    for (const OrvRoundMode mode : all_modes) {
        expect_same_in_place(ORV_EXPORT(orvsConvert_32f32s_Sfs).with(mode, -20));
        expect_same_in_place(ORV_EXPORT(orvsConvert_64f64s_Sfs).with(mode, -40));
    }
}

TEST(Convert, large)
{
    EXPECT_TRUE(check_large(ORV_EXPORT(orvsConvert_8u32f).with(), same_value<Orv32f>));
    EXPECT_TRUE(check_large(ORV_EXPORT(orvsConvert_16s64f_Sfs).with(0), same_value<Orv64f>));
    EXPECT_TRUE(check_large(on_samples<Sample24s, Orv32f>(ORV_EXPORT(orvsConvert_24s32f)), same_value<Orv32f>));
    for_each_to_integer([]<class S, class D>(const auto& f, S, D) {
        EXPECT_TRUE(check_large(rounding_call<S, D>(f, orvRndNear, -10), integer_oracle<S, D>(orvRndNear, -10)));
    });
    EXPECT_TRUE(
        check_large(ORV_EXPORT(orvsConvert_32s16s_Sfs).with(3), narrowing_oracle<Orv32s, Orv16s>(orvRndNear, 3)));
    EXPECT_TRUE(check_large(on_samples<Orv32u, Sample24u>(ORV_EXPORT(orvsConvert_32u24u_Sfs), 9),
                            narrowing_oracle<Orv32u, Sample24u>(orvRndNear, 9)));
}

// ---- Order of checks

TEST(Convert, checks_pointers_before_length)
{
    expect_pointers_before_length(ORV_EXPORT(orvsConvert_8s16s), 4);
    expect_pointers_before_length(ORV_EXPORT(orvsConvert_16s32s), 4);
    expect_pointers_before_length(ORV_EXPORT(orvsConvert_24s32s), 4);
    expect_pointers_before_length(ORV_EXPORT(orvsConvert_24u32u), 4);
    expect_pointers_before_length(ORV_EXPORT(orvsConvert_8s32f), 4);
    expect_pointers_before_length(ORV_EXPORT(orvsConvert_8u32f), 4);
    expect_pointers_before_length(ORV_EXPORT(orvsConvert_16s32f), 4);
    expect_pointers_before_length(ORV_EXPORT(orvsConvert_16u32f), 4);
    expect_pointers_before_length(ORV_EXPORT(orvsConvert_24s32f), 4);
    expect_pointers_before_length(ORV_EXPORT(orvsConvert_24u32f), 4);
    expect_pointers_before_length(ORV_EXPORT(orvsConvert_32s64f), 4);
    expect_pointers_before_length(ORV_EXPORT(orvsConvert_32f64f), 4);
    expect_pointers_before_length(ORV_EXPORT(orvsConvert_32s32f), 4);
    expect_pointers_before_length(ORV_EXPORT(orvsConvert_64f32f), 4);
    expect_pointers_before_length(ORV_EXPORT(orvsConvert_64s64f), 4);
    expect_pointers_before_length(ORV_EXPORT(orvsConvert_32s16s), 4);
    for (const int scale : {INT_MIN, -40, 0, 1, 5, 17, 100, INT_MAX}) {
        expect_pointers_before_length(ORV_EXPORT(orvsConvert_16s32f_Sfs), 4, scale);
        expect_pointers_before_length(ORV_EXPORT(orvsConvert_16s64f_Sfs), 4, scale);
        expect_pointers_before_length(ORV_EXPORT(orvsConvert_32s32f_Sfs), 4, scale);
        expect_pointers_before_length(ORV_EXPORT(orvsConvert_32s64f_Sfs), 4, scale);
        expect_pointers_before_length(ORV_EXPORT(orvsConvert_32f24s_Sfs), 4, scale);
        expect_pointers_before_length(ORV_EXPORT(orvsConvert_32f24u_Sfs), 4, scale);
        expect_pointers_before_length(ORV_EXPORT(orvsConvert_32s16s_Sfs), 4, scale);
        expect_pointers_before_length(ORV_EXPORT(orvsConvert_32s24s_Sfs), 4, scale);
        expect_pointers_before_length(ORV_EXPORT(orvsConvert_32u24u_Sfs), 4, scale);
        for (const OrvRoundMode mode : all_modes) {
            expect_pointers_before_length(ORV_EXPORT(orvsConvert_32f8s_Sfs), 4, mode, scale);
            expect_pointers_before_length(ORV_EXPORT(orvsConvert_32f8u_Sfs), 4, mode, scale);
            expect_pointers_before_length(ORV_EXPORT(orvsConvert_32f16s_Sfs), 4, mode, scale);
            expect_pointers_before_length(ORV_EXPORT(orvsConvert_32f16u_Sfs), 4, mode, scale);
            expect_pointers_before_length(ORV_EXPORT(orvsConvert_32f32s_Sfs), 4, mode, scale);
            expect_pointers_before_length(ORV_EXPORT(orvsConvert_64f16s_Sfs), 4, mode, scale);
            expect_pointers_before_length(ORV_EXPORT(orvsConvert_64f32s_Sfs), 4, mode, scale);
            expect_pointers_before_length(ORV_EXPORT(orvsConvert_64f64s_Sfs), 4, mode, scale);
            expect_pointers_before_length(ORV_EXPORT(orvsConvert_16s8s_Sfs), 4, mode, scale);
            expect_pointers_before_length(ORV_EXPORT(orvsConvert_64s32s_Sfs), 4, mode, scale);
        }
    }
}

} // namespace
} // namespace orvtest
