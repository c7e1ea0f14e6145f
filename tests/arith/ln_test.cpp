// dst = ln src, 10 log10 src.
#include "orvs/arith.h"

#include "tests/arith/functions.h"
#include "tests/arith/real_functions.h"

namespace orvtest {
namespace {

// ---- What is wanted

template <class R, class Function>
struct ScaledLogarithm {
    int scale;

    template <class S>
    R operator()(S x) const
    {
        return x > 0 ? nearest<R>(Function(), x, scale) : std::numeric_limits<R>::min();
    }
};

/// Where the result changes at this scale, to and fro: the whole numbers around inverse((k + 1/2) * 2^scale), with k
/// small, large and in between.
template <class Inverse>
std::vector<Orv32s> near_ties(int scale, long double largest_result, const Inverse& inverse)
{
    std::vector<Orv32s> values;
    Random random(static_cast<std::uint64_t>(scale + 1000));
    const long double step = std::ldexp(1.0L, scale), last = std::floor(largest_result / step);
    const auto add_tie = [&](long double k) {
        const long double x = inverse((k + 0.5L) * step);
        for (int distance = -1; distance <= 2; ++distance)
            values.push_back(static_cast<Orv32s>(
                std::clamp(std::floor(x) + static_cast<long double>(distance), 1.0L, 2147483647.0L)));
    };
    for (int k = 0; k < 30; ++k) {
        add_tie(k);
        add_tie(last - k);
    }
    for (int k = 0; k < 400; ++k)
        add_tie(std::floor(last * static_cast<long double>(random.below(1 << 30)) * 0x1p-30L));
    return values;
}

/// Both ends, powers of 2 and of 10, and what lies between, without any order.
std::vector<Orv32s> numbers_and_neighbours()
{
    std::vector<Orv32s> values = critical_values<Orv32s>(2, 2000);
    for (std::int64_t power = 1; power <= INT_MAX; power *= 10)
        for (const std::int64_t multiple : {1, 2, 3, 5, 7})
            for (const std::int64_t distance : {-1, 0, 1})
                values.push_back(limited<Orv32s>(power * multiple + distance));
    for (Orv32s x = 1; x <= 3000; ++x) values.push_back(x);
    return values;
}

std::vector<Orv32s> dense_numbers()
{
    std::vector<Orv32s> values;
    for (std::int64_t x = 1; x <= INT_MAX; x += 10'007) values.push_back(static_cast<Orv32s>(x));
    return values;
}

std::vector<Orv16s> all_words()
{
    std::vector<Orv16s> values;
    for (int x = 32767; x >= -32768; --x) values.push_back(static_cast<Orv16s>(x));
    return values;
}

constexpr int all_roads[] = {INT_MIN, INT_MIN + 1, -1000, -64, -60, -34, -33, -32, INT_MAX, INT_MAX - 1, 1000, 64, 40};

/// At every scale with the values that are hard at it.
template <class Function, class... Args, class Inverse>
void expect_rounded(const Export<OrvStatus, Args...>& f, long double largest, const Inverse& inverse)
{
    using R = DestinationElement<Args...>;
    const auto values = numbers_and_neighbours();
    for (int scale = -31; scale <= 20; ++scale) {
        const ScaledLogarithm<R, Function> oracle = {scale};
        if (!expect_values(f.with(scale), values, oracle, LogarithmWarning())) return;
        if (!expect_values(f.with(scale), near_ties(scale, largest, inverse), oracle, LogarithmWarning())) return;
    }
    for (const int scale : all_roads)
        if (!expect_values(f.with(scale), values, ScaledLogarithm<R, Function>{scale}, LogarithmWarning())) return;
    for (const int scale : {-26, -24, -12, -3, 0, 1}) // each is another road or another number of bits
        if (!expect_values(f.with(scale), dense_numbers(), ScaledLogarithm<R, Function>{scale}, LogarithmWarning()))
            return;
}

const auto natural = [](long double y) { return std::exp(y); };
const auto decimal = [](long double y) { return std::pow(10.0L, y / 10); };
constexpr long double largest_natural = 21.487562597L, largest_decimal = 93.3192991L; // of 2^31

// ---- Integers

TEST(Ln_16s_Sfs, all_arguments)
{
    const auto f = ORV_EXPORT(orvsLn_16s_Sfs);
    const auto values = all_words();
    const auto check = [&](int scale) {
        return expect_values(f.with(scale), values, ScaledLogarithm<Orv16s, NaturalLogarithm>{scale},
                             LogarithmWarning());
    };
    for (int scale = -40; scale <= 20; ++scale)
        if (!check(scale)) return;
    for (const int scale : all_roads)
        if (!check(scale)) return;
}
TEST(Ln_16s_ISfs, all_arguments)
{
    const auto f = ORV_EXPORT(orvsLn_16s_ISfs);
    const auto values = all_words();
    for (const int scale : {INT_MIN, -20, -16, -15, -14, -9, -3, -1, 0, 1, 2, 3, 4, 5, 10, INT_MAX})
        if (!expect_values(f.with(scale), values, ScaledLogarithm<Orv16s, NaturalLogarithm>{scale}, LogarithmWarning()))
            return;
}

TEST(Ln_32s_Sfs, exact) { expect_rounded<NaturalLogarithm>(ORV_EXPORT(orvsLn_32s_Sfs), largest_natural, natural); }
TEST(Ln_32s_ISfs, exact) { expect_rounded<NaturalLogarithm>(ORV_EXPORT(orvsLn_32s_ISfs), largest_natural, natural); }
TEST(Ln_32s16s_Sfs, exact)
{
    expect_rounded<NaturalLogarithm>(ORV_EXPORT(orvsLn_32s16s_Sfs), largest_natural, natural);
}
TEST(Decibels_32s_Sfs, exact) { expect_rounded<Decibels>(ORV_EXPORT(orvs10Log10_32s_Sfs), largest_decimal, decimal); }
TEST(Decibels_32s_ISfs, exact) { expect_rounded<Decibels>(ORV_EXPORT(orvs10Log10_32s_ISfs), largest_decimal, decimal); }

/// An argument and the scale at which its result lies nearest to the middle of two, of all arguments.
struct HardCase {
    int scale;
    Orv32s x;
};

template <class Function, class S, class R>
void expect_hard_cases(const Export<OrvStatus, const S*, R*, int, int>& f, std::initializer_list<HardCase> cases)
{
    for (const auto& [scale, x] : cases)
        expect_values(f.with(scale), std::vector<S>(9, x), ScaledLogarithm<R, Function>{scale});
}

// By trying all arguments, with 113 bits for those that are close.
TEST(Ln, exact_where_results_are_nearest_to_ties)
{
    expect_hard_cases<NaturalLogarithm>(
        ORV_EXPORT(orvsLn_32s_Sfs),
        {{-27, 5374524},    {-27, 3515620},    {-26, 2140137919}, {-26, 2112334211}, {-25, 1886148233},
         {-25, 1811396070}, {-24, 501498027},  {-24, 1212087439}, {-23, 577148290},  {-23, 1867891414},
         {-22, 345118926},  {-22, 1410027242}, {-21, 1705772503}, {-21, 197284330},  {-20, 1746991201},
         {-20, 1988303766}, {-19, 544287073},  {-19, 58037908},   {-18, 1842840090}, {-18, 1985665068},
         {-17, 817095827},  {-17, 134476480},  {-16, 115980378},  {-15, 1086435078}, {-15, 1061170679},
         {-14, 964306903},  {-14, 888849273},  {-13, 536275560},  {-13, 674284440},  {-10, 1919802746}});
    expect_hard_cases<NaturalLogarithm>(ORV_EXPORT(orvsLn_32s16s_Sfs), {{-10, 1919802746}});
}
TEST(Decibels, exact_where_results_are_nearest_to_ties)
{
    expect_hard_cases<Decibels>(ORV_EXPORT(orvs10Log10_32s_Sfs),
                                {{-25, 692775},     {-25, 550553},     {-24, 742952899},  {-24, 779920723},
                                 {-23, 656894591},  {-23, 1625041716}, {-22, 836949903},  {-22, 550635301},
                                 {-21, 1502313776}, {-21, 544861642},  {-20, 647206587},  {-20, 230497073},
                                 {-19, 1191485633}, {-19, 815536898},  {-18, 820883021},  {-18, 400873119},
                                 {-17, 529317624},  {-17, 1666203852}, {-16, 810853533},  {-16, 738524174},
                                 {-15, 1491925900}, {-15, 1710148219}, {-14, 1109138963}, {-14, 1302231242},
                                 {-13, 2007046216}, {-13, 938359780},  {-12, 1345002664}, {-12, 1633237400},
                                 {-10, 605316374},  {-9, 513392144},   {-9, 840449685}});
}

/// Few values without a logarithm, so that statuses differ.
template <class T>
std::vector<T> nearly_all_positive()
{
    std::vector<T> values = critical_values<T>(2, 500, 3);
    for (T& x : values) x = x == std::numeric_limits<T>::min() ? T(9) : static_cast<T>(x < 0 ? -x : x);
    std::replace(values.begin(), values.end(), T(0), T(1));
    values.push_back(0);
    values.push_back(-1);
    values.push_back(std::numeric_limits<T>::min());
    return values;
}

template <class Function, class R, class S, class... Args>
void expect_at_all_places(const Export<OrvStatus, Args...>& f, std::initializer_list<int> scales)
{
    const auto values = nearly_all_positive<S>();
    for (const int scale : scales) {
        const SweepOptions options = options_at_scale(function_lengths(), scale, 40);
        const ScaledLogarithm<R, Function> oracle = {scale};
        if (!sweep_values(f.with(scale), values, oracle, options, LogarithmWarning())) return;
    }
}

TEST(Ln_16s_Sfs, at_all_places)
{
    expect_at_all_places<NaturalLogarithm, Orv16s, Orv16s>(ORV_EXPORT(orvsLn_16s_Sfs),
                                                           {-40, -15, -11, -3, 0, 1, 4, 40});
}
TEST(Ln_16s_ISfs, at_all_places)
{
    expect_at_all_places<NaturalLogarithm, Orv16s, Orv16s>(ORV_EXPORT(orvsLn_16s_ISfs), {-15, -11, 0, 1, 4});
}
TEST(Ln_32s_Sfs, at_all_places)
{
    expect_at_all_places<NaturalLogarithm, Orv32s, Orv32s>(ORV_EXPORT(orvsLn_32s_Sfs),
                                                           {-40, -26, -11, -3, 0, 1, 4, 40});
}
TEST(Ln_32s_ISfs, at_all_places)
{
    expect_at_all_places<NaturalLogarithm, Orv32s, Orv32s>(ORV_EXPORT(orvsLn_32s_ISfs), {-26, -11, 0, 1, 4});
}
TEST(Ln_32s16s_Sfs, at_all_places)
{
    expect_at_all_places<NaturalLogarithm, Orv16s, Orv32s>(ORV_EXPORT(orvsLn_32s16s_Sfs), {-40, -11, -3, 0, 1, 4, 40});
}
TEST(Decibels_32s_Sfs, at_all_places)
{
    expect_at_all_places<Decibels, Orv32s, Orv32s>(ORV_EXPORT(orvs10Log10_32s_Sfs), {-40, -24, -3, 0, 1, 2, 5, 40});
}
TEST(Decibels_32s_ISfs, at_all_places)
{
    expect_at_all_places<Decibels, Orv32s, Orv32s>(ORV_EXPORT(orvs10Log10_32s_ISfs), {-24, 0, 1, 2, 5});
}

/// Ten times a whole number of bels, halfway between two results when it is scaled down.
TEST(Decibels, of_powers_of_ten_are_whole)
{
    const auto f = ORV_EXPORT(orvs10Log10_32s_Sfs);
    const std::vector<Orv32s> src = {1, 10, 100, 1000, 10000, 100000, 1000000, 10000000, 100000000, 1000000000};
    const auto check = [&](int scale, const std::vector<Orv32s>& want) {
        std::vector<Orv32s> d(src.size());
        EXPECT_EQ(f(src.data(), d.data(), static_cast<int>(src.size()), scale), orvOk);
        expect_elements(f, d, want);
    };
    check(0, {0, 10, 20, 30, 40, 50, 60, 70, 80, 90});
    check(1, {0, 5, 10, 15, 20, 25, 30, 35, 40, 45});
    check(2, {0, 2, 5, 8, 10, 12, 15, 18, 20, 22});
    check(3, {0, 1, 2, 4, 5, 6, 8, 9, 10, 11});
    check(-1, {0, 20, 40, 60, 80, 100, 120, 140, 160, 180});
}

TEST(Ln, at_notable_scales)
{
    const auto of_16s = [](int scale, Orv16s x, Orv16s want) {
        expect_values(
            ORV_EXPORT(orvsLn_16s_Sfs).with(scale), std::vector<Orv16s>(19, x), [=](Orv16s) { return want; },
            LogarithmWarning());
    };
    constexpr std::pair<Orv16s, Orv16s> steps[] = {{1, 0},     {2, 1},      {4, 1},     {5, 2},    {12, 2},   {13, 3},
                                                   {33, 3},    {34, 4},     {90, 4},    {91, 5},   {244, 5},  {245, 6},
                                                   {665, 6},   {666, 7},    {1808, 7},  {1809, 8}, {4914, 8}, {4915, 9},
                                                   {13359, 9}, {13360, 10}, {32767, 10}};
    for (const auto& [x, want] : steps) of_16s(0, x, want);
    of_16s(-15, 1, 0);
    of_16s(-15, 2, 22713);
    of_16s(-15, 3, 32767);
    of_16s(-15, 32767, 32767);
    for (const int scale : {INT_MIN, -15, 0, 3, INT_MAX}) {
        of_16s(scale, 0, -32768);
        of_16s(scale, -1, -32768);
        of_16s(scale, -32768, -32768);
    }
    const auto of_32s = [](Orv32s x, Orv32s want) {
        expect_values(
            ORV_EXPORT(orvsLn_32s_Sfs).with(0), std::vector<Orv32s>(19, x), [=](Orv32s) { return want; },
            LogarithmWarning());
    };
    Orv32s want = 1;
    for (const Orv32s bound :
         {2,     5,      13,     34,      91,      245,      666,      1809,      4915,      13360,    36316,
          98716, 268338, 729417, 1982760, 5389699, 14650720, 39824785, 108254988, 294267567, 799902178}) {
        of_32s(bound - 1, want - 1);
        of_32s(bound, want++);
    }
    of_32s(INT_MAX, 21);
    of_32s(0, INT_MIN);
    of_32s(-5, INT_MIN);
}

TEST(Ln, of_integers_warns_of_the_first)
{
    for (const int scale : {-15, 0, 1}) {
        const ScaledLogarithm<Orv16s, NaturalLogarithm> words = {scale};
        const ScaledLogarithm<Orv32s, NaturalLogarithm> longs = {scale};
        expect_first_to_warn(ORV_EXPORT(orvsLn_16s_Sfs).with(scale), 9, words);
        expect_first_to_warn(ORV_EXPORT(orvsLn_16s_ISfs).with(scale), 9, words);
        expect_first_to_warn(ORV_EXPORT(orvsLn_32s_Sfs).with(scale), 9, longs);
        expect_first_to_warn(ORV_EXPORT(orvsLn_32s_ISfs).with(scale), 9, longs);
        expect_first_to_warn(ORV_EXPORT(orvsLn_32s16s_Sfs).with(scale), 9, words);
    }
}
TEST(Decibels, warn_of_the_first)
{
    const ScaledLogarithm<Orv32s, Decibels> longs = {-3};
    expect_first_to_warn(ORV_EXPORT(orvs10Log10_32s_Sfs).with(-3), 9, longs);
    expect_first_to_warn(ORV_EXPORT(orvs10Log10_32s_ISfs).with(-3), 9, longs);
}

// ---- Floating point

TEST(Ln_32f, the_same_at_each_place)
{
    const auto f = ORV_EXPORT(orvsLn_32f);
    EXPECT_TRUE(sweep_values(f.with(), telling_floats<Orv32f>(), alone(f), function_lengths(), LogarithmWarning()));
}
TEST(Ln_32f_I, the_same_as_apart)
{
    const auto apart = alone(ORV_EXPORT(orvsLn_32f));
    EXPECT_TRUE(sweep_values(ORV_EXPORT(orvsLn_32f_I).with(), telling_floats<Orv32f>(), apart, function_lengths(),
                             LogarithmWarning()));
}
TEST(Ln_64f, the_same_at_each_place)
{
    const auto f = ORV_EXPORT(orvsLn_64f);
    EXPECT_TRUE(sweep_values(f.with(), telling_floats<Orv64f>(), alone(f), function_lengths(), LogarithmWarning()));
}
TEST(Ln_64f_I, the_same_as_apart)
{
    const auto apart = alone(ORV_EXPORT(orvsLn_64f));
    EXPECT_TRUE(sweep_values(ORV_EXPORT(orvsLn_64f_I).with(), telling_floats<Orv64f>(), apart, function_lengths(),
                             LogarithmWarning()));
}
TEST(Ln_64f32f, the_same_at_each_place)
{
    const auto f = ORV_EXPORT(orvsLn_64f32f);
    EXPECT_TRUE(sweep_values(f.with(), telling_floats<Orv64f>(), alone(f), function_lengths(), LogarithmWarning()));
}

TEST(Ln, keeps_its_accuracy)
{
    expect_accuracy(ORV_EXPORT(orvsLn_32f), functions::logarithm, 1.25);
    expect_accuracy(ORV_EXPORT(orvsLn_64f), functions::logarithm, 0.52);
    expect_accuracy_of_result(ORV_EXPORT(orvsLn_64f32f), functions::logarithm, 0.51);
}

template <class S, class D>
void expect_special_logarithms(const Export<OrvStatus, const S*, D*, int>& f)
{
    using Limits = std::numeric_limits<S>;
    constexpr S nan = Limits::quiet_NaN(), infinity = Limits::infinity();
    constexpr D no_number = std::numeric_limits<D>::quiet_NaN(), no_end = std::numeric_limits<D>::infinity();
    expect_special<S, D>(f, {{1, D(0)},
                             {0, -no_end},
                             {-S(0), -no_end},
                             {-1, no_number},
                             {-Limits::denorm_min(), no_number},
                             {-Limits::max(), no_number},
                             {-infinity, no_number},
                             {infinity, no_end},
                             {nan, no_number},
                             {-nan, no_number},
                             {Limits::signaling_NaN(), no_number}});
}

TEST(Ln, of_special_values)
{
    expect_special_logarithms(ORV_EXPORT(orvsLn_32f));
    expect_special_logarithms(ORV_EXPORT(orvsLn_64f));
    expect_special_logarithms(ORV_EXPORT(orvsLn_64f32f));
}

/// Of special values among others: negative ones of all kinds, and not-a-numbers, which are not warned of.
template <class... Args>
void expect_warnings_of_floats(const Call<Args...>& f)
{
    using T = SourceOf<Args...>;
    using Limits = std::numeric_limits<T>;
    constexpr T nan = Limits::quiet_NaN(), least = Limits::denorm_min();
    const auto status = [&](std::vector<T> src) {
        std::vector<ResultOf<Args...>> results;
        return call_on(f, src, results);
    };
    for (std::size_t n = 2; n <= 40; ++n)
        for (std::size_t i = 0; i + 1 < n; ++i) {
            std::vector<T> src(n, T(2));
            const auto of = [&](T first, T second) {
                src[i] = first;
                src[n - 1] = second;
                return status(src);
            };
            EXPECT_EQ(of(nan, 2), orvOk) << f.name;
            EXPECT_EQ(of(-nan, Limits::infinity()), orvOk) << f.name;
            EXPECT_EQ(of(least, Limits::max()), orvOk) << f.name;
            EXPECT_EQ(of(nan, T(0)), orvWrnLnOfZero) << f.name;
            EXPECT_EQ(of(-nan, -least), orvWrnLnOfNegative) << f.name;
            EXPECT_EQ(of(-T(0), -1), orvWrnLnOfZero) << f.name;
            EXPECT_EQ(of(-Limits::infinity(), 0), orvWrnLnOfNegative) << f.name;
            EXPECT_EQ(of(-least, T(0)), orvWrnLnOfNegative) << f.name;
            if (testing::Test::HasFailure()) return;
        }
}

TEST(Ln, of_floats_warns_of_the_first)
{
    expect_first_to_warn(ORV_EXPORT(orvsLn_32f).with(), 9, alone(ORV_EXPORT(orvsLn_32f)));
    expect_first_to_warn(ORV_EXPORT(orvsLn_32f_I).with(), 9, alone(ORV_EXPORT(orvsLn_32f)));
    expect_first_to_warn(ORV_EXPORT(orvsLn_64f).with(), 9, alone(ORV_EXPORT(orvsLn_64f)));
    expect_first_to_warn(ORV_EXPORT(orvsLn_64f_I).with(), 9, alone(ORV_EXPORT(orvsLn_64f)));
    expect_first_to_warn(ORV_EXPORT(orvsLn_64f32f).with(), 9, alone(ORV_EXPORT(orvsLn_64f32f)));
    expect_warnings_of_floats(ORV_EXPORT(orvsLn_32f).with());
    expect_warnings_of_floats(ORV_EXPORT(orvsLn_32f_I).with());
    expect_warnings_of_floats(ORV_EXPORT(orvsLn_64f).with());
    expect_warnings_of_floats(ORV_EXPORT(orvsLn_64f_I).with());
    expect_warnings_of_floats(ORV_EXPORT(orvsLn_64f32f).with());
}

// ---- Both

TEST(Ln, checks_pointers_before_length)
{
    expect_pointers_before_length(ORV_EXPORT(orvsLn_32f), 4);
    expect_pointers_before_length(ORV_EXPORT(orvsLn_32f_I), 4);
    expect_pointers_before_length(ORV_EXPORT(orvsLn_64f), 4);
    expect_pointers_before_length(ORV_EXPORT(orvsLn_64f_I), 4);
    expect_pointers_before_length(ORV_EXPORT(orvsLn_64f32f), 4);
    for (const int scale : {INT_MIN, -15, 0, 1, 40, INT_MAX}) {
        expect_pointers_before_length(ORV_EXPORT(orvsLn_16s_Sfs), 4, scale);
        expect_pointers_before_length(ORV_EXPORT(orvsLn_16s_ISfs), 4, scale);
        expect_pointers_before_length(ORV_EXPORT(orvsLn_32s_Sfs), 4, scale);
        expect_pointers_before_length(ORV_EXPORT(orvsLn_32s_ISfs), 4, scale);
        expect_pointers_before_length(ORV_EXPORT(orvsLn_32s16s_Sfs), 4, scale);
        expect_pointers_before_length(ORV_EXPORT(orvs10Log10_32s_Sfs), 4, scale);
        expect_pointers_before_length(ORV_EXPORT(orvs10Log10_32s_ISfs), 4, scale);
    }
}

TEST(Ln, of_16s_checks_a_null_array_in_place_of_itself)
{
    EXPECT_EQ(ORV_EXPORT(orvsLn_16s_Sfs)(nullptr, nullptr, 0, 0), orvErrNullPointer);
    EXPECT_EQ(ORV_EXPORT(orvsLn_16s_Sfs)(nullptr, nullptr, 4, 0), orvErrNullPointer);
}

TEST(Ln, does_not_depend_on_the_state)
{
    expect_the_same_in_any_state(ORV_EXPORT(orvsLn_32f).with(), telling_floats<Orv32f>());
    expect_the_same_in_any_state(ORV_EXPORT(orvsLn_32f_I).with(), telling_floats<Orv32f>());
    expect_the_same_in_any_state(ORV_EXPORT(orvsLn_64f).with(), telling_floats<Orv64f>());
    expect_the_same_in_any_state(ORV_EXPORT(orvsLn_64f_I).with(), telling_floats<Orv64f>());
    expect_the_same_in_any_state(ORV_EXPORT(orvsLn_64f32f).with(), telling_floats<Orv64f>());
    for (const int scale : {INT_MIN, -24, -12, 0, 3}) {
        expect_the_same_in_any_state(ORV_EXPORT(orvsLn_16s_Sfs).with(scale), all_words());
        expect_the_same_in_any_state(ORV_EXPORT(orvsLn_16s_ISfs).with(scale), all_words());
        expect_the_same_in_any_state(ORV_EXPORT(orvsLn_32s_Sfs).with(scale), numbers_and_neighbours());
        expect_the_same_in_any_state(ORV_EXPORT(orvsLn_32s_ISfs).with(scale), numbers_and_neighbours());
        expect_the_same_in_any_state(ORV_EXPORT(orvsLn_32s16s_Sfs).with(scale), numbers_and_neighbours());
        expect_the_same_in_any_state(ORV_EXPORT(orvs10Log10_32s_Sfs).with(scale), numbers_and_neighbours());
        expect_the_same_in_any_state(ORV_EXPORT(orvs10Log10_32s_ISfs).with(scale), numbers_and_neighbours());
    }
}

} // namespace
} // namespace orvtest
