// dst = e^src.
#include "orvs/arith.h"

#include "tests/arith/functions.h"
#include "tests/arith/real_functions.h"

namespace orvtest {
namespace {

// ---- Floating point

TEST(Exp_32f, the_same_at_each_place)
{
    const auto f = ORV_EXPORT(orvsExp_32f);
    EXPECT_TRUE(sweep_values(f.with(), telling_floats<Orv32f>(), alone(f)));
}
TEST(Exp_32f_I, the_same_as_apart)
{
    const auto apart = alone(ORV_EXPORT(orvsExp_32f));
    EXPECT_TRUE(sweep_values(ORV_EXPORT(orvsExp_32f_I).with(), telling_floats<Orv32f>(), apart));
}
TEST(Exp_64f, the_same_at_each_place)
{
    const auto f = ORV_EXPORT(orvsExp_64f);
    EXPECT_TRUE(sweep_values(f.with(), telling_floats<Orv64f>(), alone(f)));
}
TEST(Exp_64f_I, the_same_as_apart)
{
    const auto apart = alone(ORV_EXPORT(orvsExp_64f));
    EXPECT_TRUE(sweep_values(ORV_EXPORT(orvsExp_64f_I).with(), telling_floats<Orv64f>(), apart));
}
TEST(Exp_32f64f, the_same_at_each_place)
{
    const auto f = ORV_EXPORT(orvsExp_32f64f);
    EXPECT_TRUE(sweep_values(f.with(), telling_floats<Orv32f>(), alone(f)));
}

TEST(Exp, keeps_its_accuracy)
{
    expect_accuracy(ORV_EXPORT(orvsExp_32f), functions::exponential, 0.75);
    expect_accuracy(ORV_EXPORT(orvsExp_64f), functions::exponential, 0.7);
    expect_accuracy_of_result(ORV_EXPORT(orvsExp_32f64f), functions::exponential, 0.7);
}

/// overflow is the first argument with an infinite result, underflow the last with the result 0.
template <class S, class D>
void expect_special_exponentials(const Export<OrvStatus, const S*, D*, int>& f, S overflow, S underflow)
{
    using Limits = std::numeric_limits<S>;
    constexpr S infinity = Limits::infinity(), nan = Limits::quiet_NaN(), least = Limits::denorm_min();
    constexpr D no_end = std::numeric_limits<D>::infinity(), no_number = std::numeric_limits<D>::quiet_NaN();
    expect_special<S, D>(f, {{0, D(1)},
                             {-S(0), D(1)},
                             {infinity, no_end},
                             {-infinity, D(0)},
                             {Limits::max(), no_end},
                             {-Limits::max(), D(0)},
                             {overflow, no_end},
                             {underflow, D(0)},
                             {underflow * 2, D(0)},
                             {least, D(1)},
                             {-least, D(1)},
                             {nan, no_number},
                             {-nan, no_number},
                             {Limits::signaling_NaN(), no_number}});
}

TEST(Exp, of_special_values)
{
    expect_special_exponentials(ORV_EXPORT(orvsExp_32f), 0x1.62e43p+6f, -0x1.9fe36ap+6f);
    expect_special_exponentials(ORV_EXPORT(orvsExp_64f), 0x1.62e42fefa39f0p+9, -0x1.74910d52d3052p+9);
    expect_special_exponentials(ORV_EXPORT(orvsExp_32f64f), 0x1.62e43p+9f, -0x1.74910ep+9f);
}

// ---- Integers

template <class R>
class ScaledExponential {
public:
    explicit ScaledExponential(int scale) : scale_(scale) {}

    R operator()(R x) const
    {
        if (std::is_same_v<R, Orv32s> && scale_ > 31) return 0;
        return nearest<R>(exponential_, x, scale_);
    }

private:
    int scale_;
    Exponential exponential_;
};

/// All arguments at which the result at this scale is neither 0 nor the limit, some on both sides, and the limits.
template <class T>
std::vector<T> arguments_at(int scale)
{
    using Limits = std::numeric_limits<T>;
    std::vector<T> values = {0, 1, -1, Limits::max(), Limits::max() - 1, Limits::min(), Limits::min() + 1};
    const double first = (scale - 1) * 0.6931471805599453;
    constexpr int results = 1 + static_cast<int>(8 * sizeof(T) * 0.7);
    for (int i = -8; i < results + 8; ++i) {
        const double x = std::floor(first) + i;
        if (x >= static_cast<double>(Limits::min()) && x < static_cast<double>(Limits::max()))
            values.push_back(static_cast<T>(x));
    }
    Random random(static_cast<std::uint64_t>(scale) & 0xFFFF'FFFF);
    for (int i = 0; i < 20; ++i) values.push_back(static_cast<T>(random.bits()));
    return values;
}

constexpr int far_scales[] = {INT_MIN,    INT_MIN + 1, INT_MIN + 40, -1'488'522'243, -2'000'000'000,
                              -1'000'000, -50'000,     -47'300,      -47'274,        -20'000,
                              -11'000,    200,         1000,         11'000,         47'273,
                              47'274,     50'000,      1'000'000,    INT_MAX - 1,    INT_MAX};

template <class... Args>
void expect_all_results(const Export<OrvStatus, Args...>& f, int lowest, int highest)
{
    using T = DestinationElement<Args...>;
    for (int scale = lowest; scale <= highest; ++scale)
        if (!expect_values(f.with(scale), arguments_at<T>(scale), ScaledExponential<T>(scale))) return;
    for (const int scale : far_scales)
        if (!expect_values(f.with(scale), arguments_at<T>(scale), ScaledExponential<T>(scale))) return;
    Random random(seed_of(f.name(), 0));
    for (int i = 0; i < 200; ++i) {
        const int scale = static_cast<int>(random.bits()) >> random.below(16);
        if (!expect_values(f.with(scale), arguments_at<T>(scale), ScaledExponential<T>(scale))) return;
    }
}

std::vector<Orv16s> all_words()
{
    std::vector<Orv16s> values;
    for (int x = -32768; x <= 32767; ++x) values.push_back(static_cast<Orv16s>(x));
    return values;
}

TEST(Exp_16s_Sfs, all_arguments)
{
    const auto f = ORV_EXPORT(orvsExp_16s_Sfs);
    const std::vector<Orv16s> values = all_words();
    const auto check = [&](int scale) {
        return expect_values(f.with(scale), values, ScaledExponential<Orv16s>(scale));
    };
    for (int scale = -40; scale <= 20; ++scale)
        if (!check(scale)) return;
    for (const int scale : {INT_MIN, INT_MAX, -47'300, -47'290, -47'275, -1000, 40, 1000, 47'270, 47'274, 47'300})
        if (!check(scale)) return;
}
TEST(Exp_16s_Sfs, all_results) { expect_all_results(ORV_EXPORT(orvsExp_16s_Sfs), -2000, 2000); }
TEST(Exp_16s_ISfs, all_results) { expect_all_results(ORV_EXPORT(orvsExp_16s_ISfs), -2000, 64); }
TEST(Exp_32s_Sfs, all_results) { expect_all_results(ORV_EXPORT(orvsExp_32s_Sfs), -2000, 64); }
TEST(Exp_32s_ISfs, all_results) { expect_all_results(ORV_EXPORT(orvsExp_32s_ISfs), -2000, 64); }
TEST(Exp_64s_Sfs, all_results) { expect_all_results(ORV_EXPORT(orvsExp_64s_Sfs), -2000, 2000); }
TEST(Exp_64s_ISfs, all_results) { expect_all_results(ORV_EXPORT(orvsExp_64s_ISfs), -2000, 64); }

template <class... Args>
void expect_at_all_places(const Export<OrvStatus, Args...>& f)
{
    using T = DestinationElement<Args...>;
    for (const int scale : {INT_MIN, -70, -20, -3, 0, 1, 2, 15, 31, 32, 40, 70, INT_MAX}) {
        const SweepOptions options = options_at_scale(function_lengths(), scale, 70);
        if (!sweep_values(f.with(scale), arguments_at<T>(scale), ScaledExponential<T>(scale), options)) {
            ADD_FAILURE() << "at scale " << scale;
            return;
        }
    }
}

TEST(Exp_16s_Sfs, at_all_places) { expect_at_all_places(ORV_EXPORT(orvsExp_16s_Sfs)); }
TEST(Exp_16s_ISfs, at_all_places) { expect_at_all_places(ORV_EXPORT(orvsExp_16s_ISfs)); }
TEST(Exp_32s_Sfs, at_all_places) { expect_at_all_places(ORV_EXPORT(orvsExp_32s_Sfs)); }
TEST(Exp_32s_ISfs, at_all_places) { expect_at_all_places(ORV_EXPORT(orvsExp_32s_ISfs)); }
TEST(Exp_64s_Sfs, at_all_places) { expect_at_all_places(ORV_EXPORT(orvsExp_64s_Sfs)); }
TEST(Exp_64s_ISfs, at_all_places) { expect_at_all_places(ORV_EXPORT(orvsExp_64s_ISfs)); }

TEST(Exp, at_notable_scales)
{
    const auto check = []<class T>(const Export<OrvStatus, const T*, T*, int, int>& f,
                                   const Export<OrvStatus, T*, int, int>& in_place, int scale,
                                   std::type_identity_t<T> x, std::type_identity_t<T> want) {
        for (const std::size_t n : {std::size_t{1}, std::size_t{33}}) {
            const std::vector<T> src(n, x);
            std::vector<T> d(n);
            EXPECT_EQ(f(src.data(), d.data(), static_cast<int>(n), scale), orvOk);
            expect_elements(f, d, std::vector<T>(n, want));
            d = src;
            EXPECT_EQ(in_place(d.data(), static_cast<int>(n), scale), orvOk);
            expect_elements(in_place, d, std::vector<T>(n, want));
        }
    };
    const auto of_16s = [&](int scale, Orv16s x, Orv16s want) {
        check(ORV_EXPORT(orvsExp_16s_Sfs), ORV_EXPORT(orvsExp_16s_ISfs), scale, x, want);
    };
    const auto of_32s = [&](int scale, Orv32s x, Orv32s want) {
        check(ORV_EXPORT(orvsExp_32s_Sfs), ORV_EXPORT(orvsExp_32s_ISfs), scale, x, want);
    };
    const auto of_64s = [&](int scale, Orv64s x, Orv64s want) {
        check(ORV_EXPORT(orvsExp_64s_Sfs), ORV_EXPORT(orvsExp_64s_ISfs), scale, x, want);
    };
    of_16s(0, 0, 1);
    of_16s(1, 0, 0); // one half
    of_16s(0, 1, 3); // 2.718
    of_16s(0, -1, 0);
    of_16s(-1, -1, 1); // 0.736
    of_16s(0, 10, 22026);
    of_16s(0, 11, 32767);
    of_16s(1, 11, 29937);
    of_16s(-14, 0, 16384);
    of_16s(-15, 0, 32767);
    of_16s(-15, -1, 12055);
    of_32s(0, 21, 1318815734);
    of_32s(0, 22, 2147483647);
    of_32s(31, 22, 2); // 1.67
    of_32s(32, 22, 0); // though 0.83
    of_32s(32, 1000, 0);
    of_32s(-31, 0, 2147483647);
    of_32s(-30, 0, 1073741824);
    of_64s(0, 43, 4727839468229346561); // ...561.47
    of_64s(0, 44, 9223372036854775807);
    of_64s(-62, 0, 4611686018427387904);
    of_64s(-63, 0, 9223372036854775807);
    of_64s(64, 44, 1); // 0.70
    of_64s(1, 0, 0);
}

// ---- Both

TEST(Exp, checks_pointers_before_length)
{
    expect_pointers_before_length(ORV_EXPORT(orvsExp_32f), 4);
    expect_pointers_before_length(ORV_EXPORT(orvsExp_32f_I), 4);
    expect_pointers_before_length(ORV_EXPORT(orvsExp_64f), 4);
    expect_pointers_before_length(ORV_EXPORT(orvsExp_64f_I), 4);
    expect_pointers_before_length(ORV_EXPORT(orvsExp_32f64f), 4);
    for (const int scale : {INT_MIN, -1, 0, 1, 31, 32, 64, INT_MAX}) {
        expect_pointers_before_length(ORV_EXPORT(orvsExp_16s_Sfs), 4, scale);
        expect_pointers_before_length(ORV_EXPORT(orvsExp_16s_ISfs), 4, scale);
        expect_pointers_before_length(ORV_EXPORT(orvsExp_32s_Sfs), 4, scale);
        expect_pointers_before_length(ORV_EXPORT(orvsExp_32s_ISfs), 4, scale);
        expect_pointers_before_length(ORV_EXPORT(orvsExp_64s_Sfs), 4, scale);
        expect_pointers_before_length(ORV_EXPORT(orvsExp_64s_ISfs), 4, scale);
    }
}

TEST(Exp, does_not_depend_on_the_state)
{
    expect_the_same_in_any_state(ORV_EXPORT(orvsExp_32f).with(), telling_floats<Orv32f>());
    expect_the_same_in_any_state(ORV_EXPORT(orvsExp_32f_I).with(), telling_floats<Orv32f>());
    expect_the_same_in_any_state(ORV_EXPORT(orvsExp_64f).with(), telling_floats<Orv64f>());
    expect_the_same_in_any_state(ORV_EXPORT(orvsExp_64f_I).with(), telling_floats<Orv64f>());
    expect_the_same_in_any_state(ORV_EXPORT(orvsExp_32f64f).with(), telling_floats<Orv32f>());
    for (const int scale : {INT_MIN, -1000, -16, 0, 3, 40}) {
        expect_the_same_in_any_state(ORV_EXPORT(orvsExp_16s_Sfs).with(scale), arguments_at<Orv16s>(scale));
        expect_the_same_in_any_state(ORV_EXPORT(orvsExp_16s_ISfs).with(scale), arguments_at<Orv16s>(scale));
        expect_the_same_in_any_state(ORV_EXPORT(orvsExp_32s_Sfs).with(scale), arguments_at<Orv32s>(scale));
        expect_the_same_in_any_state(ORV_EXPORT(orvsExp_32s_ISfs).with(scale), arguments_at<Orv32s>(scale));
        expect_the_same_in_any_state(ORV_EXPORT(orvsExp_64s_Sfs).with(scale), arguments_at<Orv64s>(scale));
        expect_the_same_in_any_state(ORV_EXPORT(orvsExp_64s_ISfs).with(scale), arguments_at<Orv64s>(scale));
    }
}

/// The oracle itself, beside the C library and, where there is one, a library of long numbers.
TEST(Exponential, of_the_tests_is_exact)
{
    for (const int x : {-10000, -700, -45, -1, 0, 1, 2, 20, 43, 700, 10000}) {
        const FixedPoint e = exponential(Wide(x) << argument_bits);
        const auto upper = static_cast<long double>((e.mantissa >> (FixedPoint::bits - 63)).low64());
        const long double y = std::scalbn(upper, static_cast<int>(e.exponent) - 63);
        EXPECT_LE(std::fabs(y / std::exp(static_cast<long double>(x)) - 1), 0x1p-62L) << x;
        if (const auto exactly = functions::exponential.exact) {
            const Exact<long double> exact = exactly(x, 0);
            // Both parts as whole numbers of the same unit; the second has 64 bits of its own.
            const auto units = [&](long double part) {
                const long double scaled = std::scalbn(part, FixedPoint::bits - static_cast<int>(e.exponent));
                const long double high = std::floor(scaled * 0x1p-48L), low = scaled - high * 0x1p48L;
                return (Wide(static_cast<std::int64_t>(high)) << 48) + Wide(static_cast<std::int64_t>(low));
            };
            const Wide difference = units(exact.head) + units(exact.rest) - e.mantissa;
            EXPECT_LT(difference, Wide(1) << 8) << x;
            EXPECT_GT(difference, -(Wide(1) << 8)) << x;
        }
    }
}

} // namespace
} // namespace orvtest
