#include "vmath/double_double.h"

#include "vmath/ln.h"

namespace ORV_VARIANT {
namespace {

constexpr DoubleDouble ln_2 = {0x1.62e42fefa39efp-1, 0x1.abc9e3b39803fp-56};
constexpr Orv64f ln_2_rest = 0x1.7b57a079a1934p-111; // of both

} // namespace

WideFloat exp_exactly(DoubleDouble x)
{
    const Orv64f n = first(to_nearest(splat(x.high * 0x1.71547652b82fep+0)));
    DoubleDouble r = x + -exact_product(n, ln_2.high);
    r = r + -exact_product(n, ln_2.low);
    r = r + DoubleDouble{-n * ln_2_rest};

    // e^(r / 64) - 1 by its series, then (1 + y)^2 - 1 = y * (2 + y) six times, which keeps small results exact.
    r = scaled(r, 0x1p-6);
    DoubleDouble y = {0}, term = {1};
    for (int k = 1; k <= 14; ++k) {
        term = term * r / k;
        y = y + term;
    }
    for (int i = 0; i < 6; ++i) y = y * (y + DoubleDouble{2});
    return {y + DoubleDouble{1}, Orv64s(n)};
}

DoubleDouble ln_exactly(Orv64f x)
{
    // One Newton step for e^y = x from a good y: the error x * e^-y - 1 is so small that it is its own logarithm.
    const auto estimate = ln_parts(splat(x));
    const DoubleDouble y = quick_sum(first(estimate.high), first(estimate.low));
    const WideFloat e = exp_exactly(-y);
    const DoubleDouble quotient = DoubleDouble{x * power_of_two<Orv64f>(int(-e.exponent))} * e.mantissa;
    return y + (quotient + DoubleDouble{-1});
}

} // namespace ORV_VARIANT
