// What the tests of quotients share: exact integer quotients under the law of scale factors, dividends next to a change
// of rounding, the steps of the reciprocal iteration, and statuses that depend on the divisors.
#pragma once

#include "tests/arith/calls.h"

#include <bit>
#include <gtest/gtest.h>
#include <numeric>
#include <x86intrin.h>

namespace orvtest {

// ---- Exact quotients

/// n / d * 2^-scale of magnitudes up to 2^63, d not 0, rounded by the mode; exact up to 2^63, and above that for what
/// is left of it. Bit by bit where it is doubled, so that 64 bits are enough.
constexpr std::uint64_t scaled_quotient(std::uint64_t n, std::uint64_t d, int scale, OrvRoundMode mode)
{
    constexpr std::uint64_t enough = std::uint64_t{1} << 63;
    std::uint64_t whole = n / d, rest = n - whole * d;
    std::strong_ordering half = std::strong_ordering::less; // how the fraction compares with it
    if (scale > 64) return 0;                               // at most a quarter
    if (scale > 0) {
        const std::uint64_t fraction = scale == 64 ? whole : whole & ((std::uint64_t{1} << scale) - 1);
        half = fraction <=> std::uint64_t{1} << (scale - 1);
        if (half == 0 && rest != 0) half = std::strong_ordering::greater;
        whole = scale == 64 ? 0 : whole >> scale;
    } else {
        for (; scale < 0 && whole < enough && (whole != 0 || rest != 0); ++scale) {
            const bool carry = rest >= d - rest;
            rest = carry ? rest - (d - rest) : rest + rest;
            whole = 2 * whole + carry;
        }
        half = rest <=> d - rest;
    }
    if (whole >= enough) return whole;
    const bool up = half > 0 || (half == 0 && (mode == orvRndFinancial || whole % 2 != 0));
    return whole + (up && mode != orvRndZero);
}

constexpr std::uint64_t magnitude(std::int64_t x)
{
    return x < 0 ? 0 - static_cast<std::uint64_t>(x) : static_cast<std::uint64_t>(x);
}

/// n / d * 2^-scale as a T; the limit on the dividend's side when d is 0, and 0 for 0 / 0.
template <std::integral T>
constexpr T quotient(std::int64_t n, std::int64_t d, int scale, OrvRoundMode mode = orvRndNear)
{
    constexpr T lowest = std::numeric_limits<T>::min(), highest = std::numeric_limits<T>::max();
    if (n == 0) return 0;
    if (d == 0) return n > 0 ? highest : lowest;
    const std::uint64_t x = scaled_quotient(magnitude(n), magnitude(d), scale, mode);
    if ((n < 0) == (d < 0)) return x > magnitude(highest) ? highest : static_cast<T>(x);
    return x >= magnitude(lowest) ? lowest : static_cast<T>(-static_cast<std::int64_t>(x));
}

/// a / b of complex values, each part rounded and saturated by itself; part by part when b is 0.
constexpr Orv16sc complex_quotient(const Orv16sc& a, const Orv16sc& b, int scale)
{
    const std::int64_t re = std::int64_t{a.re} * b.re + std::int64_t{a.im} * b.im;
    const std::int64_t im = std::int64_t{a.im} * b.re - std::int64_t{a.re} * b.im;
    const std::int64_t norm = std::int64_t{b.re} * b.re + std::int64_t{b.im} * b.im;
    if (norm == 0) return {quotient<Orv16s>(a.re, 0, scale), quotient<Orv16s>(a.im, 0, scale)};
    return {quotient<Orv16s>(re, norm, scale), quotient<Orv16s>(im, norm, scale)};
}

// ---- Dividends at which the rounded quotient changes

/// The largest dividend whose quotient by d is not far beyond 2^bits at this scale.
constexpr std::uint64_t dividends_up_to(std::uint64_t d, int bits, int scale)
{
    const int shift = bits + scale;
    if (shift >= std::countl_zero(d)) return ~std::uint64_t{0};
    return (shift >= 0 ? d << shift : d >> std::min(-shift, 63)) + 1;
}

/// A dividend, at most most, whose n / d * 2^-scale lies on or as close as can be to a half or an integer, on either
/// side; now and then one at the upper end, or any. d is at most 2^62.
///
/// Where the quotient is doubled t times, n * 2^t has to leave a certain rest modulo d. Without their common twos, d is
/// odd and has an inverse of 2, so n is that rest halved t times modulo d.
inline std::uint64_t near_dividend(Random& random, std::uint64_t d, int scale, std::uint64_t most)
{
    const std::uint64_t choice = random.bits();
    const std::uint64_t detail = random.bits();
    const auto any = [&] { return most == ~std::uint64_t{0} ? detail : detail % (most + 1); };
    const int doublings = std::clamp(-scale, 0, 70), common = std::min(doublings, std::countr_zero(d));
    const std::uint64_t odd = d >> common;
    if (scale >= std::countl_zero(odd)) return any(); // the quotient is next to 0
    const std::uint64_t period = scale > 0 ? odd << scale : odd;

    std::uint64_t n = 0;
    switch (choice % 10) {
    case 0:
    case 1: n = period / 2; break;
    case 2:
    case 3: n = period / 2 + 1; break;
    case 4: n = period / 2 - (period > 1); break;
    case 5: n = 1; break;
    case 6: n = period - 1; break;
    case 7: n = 0; break;
    case 8: return most - std::min(most, detail % 3);
    default: return any();
    }
    n %= period;
    for (int i = common; i < doublings; ++i) n = n / 2 + (n % 2 != 0 ? period / 2 + 1 : 0);
    if (n > most) return any();
    const std::uint64_t repetitions = (most - n) / period;
    switch (choice >> 32 & 3) {
    case 0: return n;
    case 1: return n + repetitions * period;
    case 2: return n + (repetitions - std::min(repetitions, detail % 4)) * period;
    default: return n + (repetitions == ~std::uint64_t{0} ? detail : detail % (repetitions + 1)) * period;
    }
}

/// Operands of a division; those at one index belong together.
template <class B, class A>
struct Operands {
    std::vector<B> divisors;
    std::vector<A> dividends;

    void add(B b, A a)
    {
        divisors.push_back(b);
        dividends.push_back(a);
    }
};

/// For each divisor other than 0 some dividends near ties and near integers, of either sign if A has one, where
/// quotients have so many bits.
template <std::integral A, std::integral B>
Operands<B, A> near_operands(const std::vector<B>& divisors, int each, int bits, int scale, std::uint64_t seed = 0)
{
    constexpr auto most = static_cast<std::uint64_t>(std::numeric_limits<A>::max());
    Random random(seed + static_cast<std::uint64_t>(scale + 1000));
    Operands<B, A> operands;
    for (const B b : divisors)
        for (int i = 0; i < (b == 0 ? 0 : each); ++i) {
            const std::uint64_t d = magnitude(static_cast<std::int64_t>(b));
            const std::uint64_t n = near_dividend(random, d, scale, std::min(most, dividends_up_to(d, bits, scale)));
            const bool negative = std::signed_integral<A> && random.bits() % 2 != 0;
            operands.add(b, static_cast<A>(negative ? 0 - n : n));
        }
    return operands;
}

/// Every value of a type of 16 bits.
template <std::integral T>
std::vector<T> all_words()
{
    std::vector<T> values;
    for (int i = 0; i < 65536; ++i) values.push_back(static_cast<T>(i));
    return values;
}

/// A complex dividend whose quotient by b has one part near a tie or an integer: near_dividend gives the part's
/// numerator, Euclid's algorithm an a with that numerator, and a is made small along the numerator's line. b's parts
/// have no common divisor.
inline Orv16sc near_complex_dividend(Random& random, const Orv16sc& b, int scale)
{
    std::int64_t x = 1, y = 0, next_x = 0, next_y = 1; // x * b.re + y * b.im is the last rest
    for (std::int64_t rest = b.re, next = b.im; next != 0;) {
        const std::int64_t q = rest / next;
        rest = std::exchange(next, rest - q * next);
        x = std::exchange(next_x, x - q * next_x);
        y = std::exchange(next_y, y - q * next_y);
    }
    const std::int64_t norm = std::int64_t{b.re} * b.re + std::int64_t{b.im} * b.im;
    const auto d = static_cast<std::uint64_t>(norm);
    const auto reachable = static_cast<std::uint64_t>(30000 * std::sqrt(static_cast<double>(norm)));
    const std::uint64_t most = std::min(reachable, dividends_up_to(d, 15, scale));
    const std::int64_t n = static_cast<std::int64_t>(near_dividend(random, d, scale, most));
    x *= n;
    y *= n;
    const double along = static_cast<double>(x) * b.im - static_cast<double>(y) * b.re;
    const auto steps = static_cast<std::int64_t>(std::floor(along / static_cast<double>(norm) + 0.5));
    const Orv16s re = limited<Orv16s>(x - steps * b.im), im = limited<Orv16s>(y + steps * b.re);
    switch (random.bits() % 4) { // a, -a, i * a, -i * a: either part, either sign
    case 0: return {re, im};
    case 1: return {limited<Orv16s>(-re), limited<Orv16s>(-im)};
    case 2: return {limited<Orv16s>(-im), re};
    default: return {im, limited<Orv16s>(-re)};
    }
}

/// A complex divisor of any magnitude whose parts have no common divisor.
inline Orv16sc coprime_divisor(Random& random)
{
    for (;;) {
        const std::uint64_t bits = random.bits();
        const int shift = static_cast<int>(bits >> 32) & 15;
        const auto re = static_cast<Orv16s>(static_cast<Orv16s>(bits) >> shift);
        const auto im = static_cast<Orv16s>(static_cast<Orv16s>(bits >> 16) >> shift);
        if (std::gcd(int{re}, int{im}) == 1) return {re, im};
    }
}

// ---- Floats

/// a / b by the reciprocal's estimate and two steps: y2 = y0 + y0 * e + y0 * e^2 with e what the estimate lacks. A zero
/// divisor is divided by.
[[gnu::target("fma")]] inline Orv32f quotient_in_steps(Orv32f b, Orv32f a)
{
    if (b == 0) return a / b;
    const __m128 divisor = _mm_set1_ps(b);
    const __m128 r = _mm_rcp_ps(divisor);
    const __m128 y0 = _mm_mul_ps(_mm_set1_ps(a), r);
    const __m128 e = _mm_fnmadd_ps(divisor, r, _mm_set1_ps(1));
    const __m128 y1 = _mm_fmadd_ps(y0, e, y0);
    return _mm_cvtss_f32(_mm_fmadd_ps(y1, e, y0));
}

// ---- Statuses

template <class T>
bool is_zero(const T& x)
{
    if constexpr (Complex<T>) return x.re == 0 && x.im == 0;
    else return x == 0;
}
/// Whether an argument, which is a scalar or an array at any address, has a zero.
template <class Argument>
bool has_zero(const Argument& argument, int n)
{
    if constexpr (std::is_pointer_v<Argument>) {
        const auto* bytes = reinterpret_cast<const std::byte*>(argument);
        std::remove_const_t<std::remove_pointer_t<Argument>> element;
        for (int i = 0; i < n; ++i, bytes += sizeof element) {
            std::memcpy(&element, bytes, sizeof element);
            if (is_zero(element)) return true;
        }
        return false;
    } else {
        return is_zero(argument);
    }
}

/// The call for sweeps over operands some of which are 0: it wants the status of_zero if the divisor, which is the
/// argument with this index, has a zero, and orvOk otherwise.
template <std::size_t divisor, class... Args>
Call<Args...> with_zeros(const Call<Args...>& call, OrvStatus of_zero = orvWrnDivByZero)
{
    return {call.name, call.parameters, [call, of_zero](Args... args, int n) {
                const OrvStatus want = has_zero(std::get<divisor>(std::tuple(args...)), n) ? of_zero : orvOk;
                return told(call, call.function(args..., n), want, n);
            }};
}

// ---- Divisions of either shape as one

/// f(divisors, dividends, results, n)
template <class B, class A, class R>
using Division = Call<const B*, const A*, R*>;

template <class B, class A, class R, class... Last>
Division<B, A, R> division(const Export<OrvStatus, const B*, const A*, R*, int, Last...>& f,
                           std::type_identity_t<Last>... last)
{
    return f.with(last...);
}
/// In place: the dividends are copied to where the results will be.
template <class B, class R, class... Last>
Division<B, R, R> division(const Export<OrvStatus, const B*, R*, int, Last...>& f, std::type_identity_t<Last>... last)
{
    const auto call = f.with(last...);
    return {call.name, call.parameters, [call](const B* b, const R* a, R* dst, int n) {
                std::copy_n(a, n, dst);
                return call.function(b, dst, n);
            }};
}

/// The result for one pair of operands, which stand at every place of vectors of several lengths.
template <class B, class A, class R>
R result_of_one(const Division<B, A, R>& f, std::type_identity_t<B> b, std::type_identity_t<A> a,
                OrvStatus status = orvOk)
{
    R first = {};
    for (const std::size_t n : {std::size_t{1}, std::size_t{7}, std::size_t{40}, std::size_t{300}}) {
        const std::vector<B> bs(n, b);
        const std::vector<A> as(n, a);
        std::vector<R> d(n);
        EXPECT_EQ(f.function(bs.data(), as.data(), d.data(), static_cast<int>(n)), status)
            << f.name << " (" << f.parameters << ")";
        if (n == 1) first = d[0];
        EXPECT_EQ(first_difference(element_type<R>(), d.data(), std::vector<R>(n, first).data(), n), n)
            << f.name << " (" << f.parameters << ") is not the same at each place of " << n;
    }
    return first;
}

/// Compares with wanted(divisor, dividend) in one call over all operands.
template <class B, class A, class R, class Wanted>
bool expect_quotients(const Division<B, A, R>& f, const std::vector<B>& b, const std::vector<A>& a,
                      const Wanted& wanted)
{
    const auto n = static_cast<int>(b.size());
    std::vector<R> results(b.size());
    const OrvStatus status = f.function(b.data(), a.data(), results.data(), n);
    EXPECT_EQ(status, has_zero(b.data(), n) ? orvWrnDivByZero : orvOk) << f.name << " (" << f.parameters << ")";
    for (std::size_t i = 0; i < b.size(); ++i) {
        const R want = wanted(b[i], a[i]);
        if (same_element(element_type<R>(), &results[i], &want)) continue;
        ADD_FAILURE() << f.name << " (" << f.parameters << "): " << element_text(element_type<A>(), &a[i]) << " / "
                      << element_text(element_type<B>(), &b[i]) << " is "
                      << element_text(element_type<R>(), &results[i]) << ", not "
                      << element_text(element_type<R>(), &want);
        return false;
    }
    return true;
}
template <class B, class A, class R, class Wanted>
bool expect_quotients(const Division<B, A, R>& f, const Operands<B, A>& operands, const Wanted& wanted)
{
    return expect_quotients(f, operands.divisors, operands.dividends, wanted);
}

// ---- Zero divisors

/// A zero divisor at each place of vectors in turn: the status tells, and the other elements stay as they are.
template <class B, class A, class R, class Wanted>
void expect_zeros_anywhere(const Division<B, A, R>& f, const Wanted& wanted)
{
    for (std::size_t n = 1; n <= 130; n += n < 70 ? 1 : 15) {
        Random random(seed_of(f.name, n));
        std::vector<B> b = inputs<B>(random, n, Floats::small_integers);
        const std::vector<A> a = inputs<A>(random, n, Floats::small_integers);
        for (B& element : b)
            if (is_zero(element)) std::memset(&element, 0x40, sizeof element); // a plain number in every type
        std::vector<R> without(n), with(n);
        const auto length = static_cast<int>(n);
        ASSERT_EQ(f.function(b.data(), a.data(), without.data(), length), orvOk) << f.name << " of length " << n;
        for (std::size_t place = 0; place < n; ++place) {
            const B before = std::exchange(b[place], B{});
            std::vector<R> want = without;
            want[place] = wanted(b[place], a[place]);
            ASSERT_EQ(f.function(b.data(), a.data(), with.data(), length), orvWrnDivByZero)
                << f.name << " of length " << n << ", 0 at " << place;
            const std::size_t i = first_difference(element_type<R>(), with.data(), want.data(), n);
            ASSERT_EQ(i, n) << f.name << " of length " << n << ", 0 at " << place << ": "
                            << element_text(element_type<R>(), &with[i]) << ", not "
                            << element_text(element_type<R>(), &want[i]);
            b[place] = before;
        }
    }
}

// ---- The caller's floating-point state, which integers do not depend on

template <class B, class A, class R, class Wanted>
void expect_the_same_in_any_state(const Division<B, A, R>& f, const Operands<B, A>& operands, const Wanted& wanted,
                                  Exceptions exceptions = Exceptions::masked)
{
    std::vector<R> want;
    for (std::size_t i = 0; i < operands.divisors.size(); ++i)
        want.push_back(wanted(operands.divisors[i], operands.dividends[i]));
    const auto n = static_cast<int>(want.size());
    const OrvStatus status = has_zero(operands.divisors.data(), n) ? orvWrnDivByZero : orvOk;
    const auto call = [&](R* results, int count) {
        return f.function(operands.divisors.data(), operands.dividends.data(), results, count);
    };
    expect_the_same_in_any_state(f.name, want, status, call, exceptions);
}

} // namespace orvtest
