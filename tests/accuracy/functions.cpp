#include "function.h"

#include <numbers>
#ifdef ORV_HAVE_MPFR
#include <mpfr.h>
#endif

namespace orvtest {
namespace {

// ---- Exact values

#ifdef ORV_HAVE_MPFR

/// 192 bits leave more than 128 behind the last of a long double.
class Number {
public:
    explicit Number(long double x = 0)
    {
        mpfr_init2(value_, 192);
        mpfr_set_ld(value_, x, MPFR_RNDN);
    }
    ~Number() { mpfr_clear(value_); }
    Number(const Number&) = delete;
    Number& operator=(const Number&) = delete;

    mpfr_ptr get() { return value_; }

private:
    mpfr_t value_;
};

/// MPFR keeps constants for each thread.
struct Caches {
    ~Caches() { mpfr_free_cache(); }
};

template <class F>
Exact<long double> in_192_bits(F f, long double x, long double y)
{
    [[maybe_unused]] thread_local const Caches freed_with_the_thread;
    Number a(x), b(y), result;
    if constexpr (std::is_invocable_v<F, mpfr_ptr, mpfr_ptr, mpfr_rnd_t>) f(result.get(), a.get(), MPFR_RNDN);
    else f(result.get(), a.get(), b.get(), MPFR_RNDN);

    const long double head = mpfr_get_ld(result.get(), MPFR_RNDZ);
    if (!std::isfinite(head)) return {head};
    mpfr_sub(result.get(), result.get(), Number(head).get(), MPFR_RNDN);
    return {head, mpfr_get_ld(result.get(), MPFR_RNDN)};
}

#endif

using ExactFunction = Exact<long double> (*)(long double x, long double y);

/// f is a lambda with auto parameters: the MPFR functions in it are looked up only where there is MPFR.
template <class F>
constexpr ExactFunction exactly(F)
{
#ifdef ORV_HAVE_MPFR
    return [](long double x, long double y) { return in_192_bits(F{}, x, y); };
#else
    return nullptr;
#endif
}

// ---- Hard arguments

constexpr long double half_pi = std::numbers::pi_v<long double> / 2;

/// Numbers of 53 and of 24 bits, up to the largest ones, that come close to a multiple of pi/2: m 2^e, where m is the
/// denominator of a convergent of 2^(e+1)/pi (Kahan: Minimizing q m - n, 1983). The one at 2^849 comes closest of all
/// doubles: its cosine is 4.7e-19.
constexpr double close_to_multiples_of_half_pi[] = {
    0x1.17cc5p11,          0x1.6c6cbc45dc8dep11,  0x1.04ccbcp18,         0x1.4ac55cp22,         0x1.b951f1572eba5p23,
    0x1.08ecc2p28,         0x1.1ffa28p31,         0x1.47d0fep34,         0x1.47d0fep35,         0x1.47d0fep38,
    0x1.628d4cp40,         0x1.628d4cp42,         0x1.206ap48,           0x1.705312p48,         0x1.56a4aa740a5a7p53,
    0x1.0f79ap57,          0x1.0f79ap59,          0x1.a7624cp68,         0x1.5c0e66p73,         0x1.13093p76,
    0x1.8dc776p83,         0x1.32ede2p85,         0x1.32ede2p88,         0x1.abb4bp90,          0x1.66bd5424e5655p94,
    0x1.f37c8ap95,         0x1.f37c8ap96,         0x1.f37c8ap97,         0x1.f37c8ap98,         0x1.7f4134p102,
    0x1.df43b8p107,        0x1.b08c4ap113,        0x1.80fea8p116,        0x1.2ceb8p119,         0x1.504cac51f1eafp131,
    0x1.504cac51f1eafp135, 0x1.d28d5c4c5e73bp176, 0x1.b13bfee95a2bcp215, 0x1.68ff564c9209p258,  0x1.c45cd11154dfdp299,
    0x1.1cb1497fca4fep339, 0x1.e2b9b851ea7fcp380, 0x1.6dd6b29edc33ap421, 0x1.a4668a5fe38e7p463, 0x1.60507de0cf1d1p504,
    0x1.3b4801fd74c7ep544, 0x1.4c96c11134d36p577, 0x1.959cedbbee908p584, 0x1.ae30cc2e55861p627, 0x1.e7e16d0c96f8ap667,
    0x1.01b5d89b91aeap708, 0x1.cc7c4385f6695p750, 0x1.0a93ff27aa5f8p790, 0x1.6fb0d0ab996fap832, 0x1.6ac5b262ca1ffp849,
    0x1.6ac5b262ca1ffp850, 0x1.6ac5b262ca1ffp851, 0x1.a5de46db774e4p872, 0x1.56601b74c07a1p914, 0x1.e1987122b7e06p954,
    0x1.e009c53148be1p991, 0x1.e009c53148be1p996};

std::vector<long double> hard_angles()
{
    std::vector<long double> angles(std::begin(close_to_multiples_of_half_pi), std::end(close_to_multiples_of_half_pi));
    for (long double k = 1; k < 500; ++k) angles.push_back(k * half_pi);
    for (long double k = 500; k < 0x1p60L; k *= 1.75L) angles.push_back(std::floor(k) * half_pi);
    for (long double quarter = half_pi / 2; quarter < 50; quarter += half_pi) angles.push_back(quarter);
    return angles;
}

/// Where results of either type are the largest, the least normal, and the least number of all.
template <class F>
std::vector<long double> where_results_end(F inverse)
{
    std::vector<long double> thresholds;
    const auto add = [&]<class T>(T) {
        using Limits = std::numeric_limits<T>;
        for (const long double result :
             {static_cast<long double>(Limits::max()), static_cast<long double>(Limits::min()),
              static_cast<long double>(Limits::denorm_min()), Limits::denorm_min() / 2.0L})
            thresholds.push_back(inverse(result));
    };
    add(float());
    add(double());
    return thresholds;
}

std::vector<long double> hard_exponents()
{
    std::vector<long double> exponents = where_results_end([](long double x) { return std::log(x); });
    // Between two multiples of ln 2 the reduction goes from one to the other, and so it may between smaller parts.
    constexpr long double ln2 = std::numbers::ln2_v<long double>;
    for (int n = -100; n <= 100; ++n) exponents.push_back((n + 0.5L) * ln2);
    for (int n = -200; n <= 200; ++n) exponents.push_back(n * ln2 / 64);
    return exponents;
}

std::vector<long double> powers_of_two()
{
    std::vector<long double> powers;
    for (int e = -1074; e < 1024; ++e) powers.push_back(std::ldexp(1.0L, e));
    for (int n = 1; n < 256; ++n) powers.push_back(1 + n / 256.0L); // where tables change from one entry to the next
    powers.push_back(std::numbers::sqrt2_v<long double>);
    powers.push_back(std::numbers::sqrt2_v<long double> / 2);
    return powers;
}

std::vector<long double> powers_of_ten()
{
    std::vector<long double> powers = powers_of_two();
    for (long double power = 1; power < 1e300L; power *= 10) powers.push_back(power);
    return powers;
}

std::vector<long double> cubes()
{
    std::vector<long double> cubes = powers_of_two();
    for (long double n = 2; n < 1000; ++n) cubes.push_back(n * n * n);
    return cubes;
}

/// Where arctangents are reduced: tangents of multiples of pi/16, and simple fractions.
std::vector<long double> hard_tangents()
{
    std::vector<long double> tangents;
    for (int n = 1; n < 16; ++n) {
        tangents.push_back(std::tan(n * half_pi / 16));
        tangents.push_back(n / 16.0L);
        tangents.push_back(16.0L / n);
    }
    for (int e = -70; e < 70; ++e) tangents.push_back(std::ldexp(1.0L, e));
    return tangents;
}

/// f is for any type of the C library.
template <class F>
constexpr Function function(const char* name, F, ExactFunction exact, std::vector<long double> (*hard)(),
                            Span exponents, Span values, bool near_one = false)
{
    constexpr bool one = std::is_invocable_v<F, double>;
    constexpr auto call = [](auto x, [[maybe_unused]] auto y) {
        if constexpr (one) return F{}(x);
        else return F{}(x, y);
    };
    return {name, one ? 1 : 2, call, call, exact, exponents, values, near_one, hard};
}

} // namespace

namespace functions {

constinit const Function sine =
    function("sin", [](auto x) { return std::sin(x); }, exactly([](auto... x) { mpfr_sin(x...); }), hard_angles,
             {-30, 60}, {-100, 100});

constinit const Function cosine =
    function("cos", [](auto x) { return std::cos(x); }, exactly([](auto... x) { mpfr_cos(x...); }), hard_angles,
             {-30, 60}, {-100, 100});

constinit const Function exponential =
    function("exp", [](auto x) { return std::exp(x); }, exactly([](auto... x) { mpfr_exp(x...); }), hard_exponents,
             {-56, 10}, {-746, 710});

constinit const Function logarithm = function(
    "ln", [](auto x) { return std::log(x); }, exactly([](auto... x) { mpfr_log(x...); }), powers_of_two, {-60, 60},
    {0, 10}, true);

constinit const Function decibels = function(
    "10log10", [](auto x) { return 10 * std::log10(x); }, exactly([](auto result, auto x, auto rounding) {
        mpfr_log10(result, x, rounding);
        mpfr_mul_ui(result, result, 10, rounding);
    }),
    powers_of_ten, {-60, 60}, {0, 10}, true);

constinit const Function arctangent = function(
    "atan", [](auto x) { return std::atan(x); }, exactly([](auto... x) { mpfr_atan(x...); }), hard_tangents, {-30, 56},
    {-8, 8}, true);

constinit const Function arctangent2 =
    function("atan2", [](auto y, auto x) { return std::atan2(y, x); },
             exactly([](auto result, auto y, auto x, auto rounding) { mpfr_atan2(result, y, x, rounding); }),
             hard_tangents, {-30, 30}, {-1, 1});

constinit const Function cube_root =
    function("cbrt", [](auto x) { return std::cbrt(x); }, exactly([](auto... x) { mpfr_cbrt(x...); }), cubes, {-60, 60},
             {-1000, 1000});

} // namespace functions

} // namespace orvtest
