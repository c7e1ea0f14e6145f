// Sine and cosine.
//
// x = n * pi / 2 + r, |r| <= pi / 4; n tells which of sin r and cos r is the result, and its sign. n * pi / 2 is
// subtracted in three parts; the first difference is exact, so r keeps its relative accuracy where x is near a zero of
// the function (W. J. Cody and W. Waite, Software Manual for the Elementary Functions, 1980; with fused steps no part
// needs trailing zeros). In double precision a second number keeps what r lost.
//
// Larger arguments belong to the companions, which reduce by as many digits of 2 / pi as it takes (M. H. Payne and R.
// N. Hanek, Radian reduction for trigonometric functions, ACM SIGNUM Newsletter 18, 1983).
//
// The polynomials are minimax ones, made with Sollya.
#ifndef ORV_VMATH_SIN_COS_H
#define ORV_VMATH_SIN_COS_H

#include "simd/lanes.h"
#include "simd/polynomial.h"
#include "vmath/level.h"

int vssin_cout_rare(Orv32f x, Orv32f* y);
int vscos_cout_rare(Orv32f x, Orv32f* y);
int vdsin_cout_rare(Orv64f x, Orv64f* y);
int vdcos_cout_rare(Orv64f x, Orv64f* y);

namespace ORV_VARIANT {

enum class Wave { sine, cosine };

template <class T>
struct SinCos {
    vec<T> sine, cosine;
};

/// x - n * pi / 2 as r + rest, with n in the last bits of quarters. In single precision there is no rest.
template <class T>
struct Reduced {
    vec<T> r, rest;
    vec<word_of<T>> quarters;
};

/// The largest size for which reduce is right.
template <class T>
inline constexpr T largest_reduced = sizeof(T) == 4 ? T(0x1p17) : T(0x1p28);

template <class T>
ORV_INLINE Reduced<T> reduce(vec<T> size)
{
    const auto& part = half_pi_parts<T>;
    const auto shifted = fma(size, splat(T(0x1.45f306dc9c883p-1)), splat(magic<T>));
    const auto n = shifted - splat(magic<T>);
    const auto r0 = fnma(n, splat(part[0]), size);
    const auto quarters = as<word_of<T>>(shifted);
    if constexpr (sizeof(T) == 4) {
        const auto r = fnma(n, splat(part[1]), r0);
        return {fnma(n, splat(part[2]), r), splat(T(0)), quarters};
    } else {
        // The second product exactly: near a zero of the function r is much smaller than it.
        const auto product = n * splat(part[1]), product_rest = fma(n, splat(part[1]), splat(T(0)) - product);
        const auto r = r0 - product;
        return {r, fnma(n, splat(part[2]), ((r0 - r) - product) - product_rest), quarters};
    }
}

// ---- Both functions up to a quarter of pi

template <Level>
ORV_INLINE SinCos<Orv32f> sin_cos_of(vec<Orv32f> r, vec<Orv32f>)
{
    const auto z = r * r;
    const auto p = horner(z, -0x1.555552p-3f, 0x1.110be6p-7f, -0x1.9ab408p-13f);
    return {fma(r * z, p, r), horner(z, 1.0f, -0.5f, 0x1.555554p-5f, -0x1.6c129ep-10f, 0x1.9bc76ap-16f)};
}

template <Level level>
ORV_INLINE SinCos<Orv64f> sin_cos_of(vec<Orv64f> r, vec<Orv64f> rest)
{
    const auto z = r * r;
    if constexpr (level == Level::EP) {
        const auto p =
            horner(z, -0x1.555555545e47ap-3, 0x1.11110def75fb5p-7, -0x1.a013a7b720e1cp-13, 0x1.6dbe065f0cd92p-19);
        const auto cosine = horner(z, 1.0, -0.5, 0x1.5555555502dcbp-5, -0x1.6c16bf54ffca6p-10, 0x1.a015c47c66af1p-16,
                                   -0x1.2524464002502p-22);
        return {r + fma(r * z, p, rest), cosine};
    }
    const auto z2 = z * z;
    const auto half = z * splat(0.5);
    const auto weighed_rest = fnma(half, rest, rest); // times cos r
    vec<Orv64f> sine, slope = r;                      // of the cosine
    if constexpr (level == Level::HA) {
        // r - r^3 / 6 as exactly as two numbers can be.
        const auto cube = r * z, cube_rest = fma(r, z, splat(0.0) - cube) + r * fma(r, r, splat(0.0) - z);
        const auto third = splat(-0x1.5555555555555p-3), third_rest = splat(-0x1.5555555555555p-57);
        const auto term = cube * third;
        const auto term_rest = fma(cube_rest, third, fma(cube, third_rest, fma(cube, third, splat(0.0) - term)));
        const auto p = horner_by_two(z, 0x1.1111111111111p-7, -0x1.a01a01a019ea6p-13, 0x1.71de3a5505e44p-19,
                                     -0x1.ae645527795e3p-26, 0x1.612250eeb2e1fp-33, -0x1.ab8de37483133p-41);
        const auto whole = r + term;
        slope = whole;
        sine = whole + (((r - whole) + term) + fma(cube * z, p, term_rest + weighed_rest));
    } else {
        const auto p =
            horner_by_two(z, -0x1.5555555555555p-3, 0x1.111111111101ep-7, -0x1.a01a019fe886p-13, 0x1.71de3a1036d87p-19,
                          -0x1.ae63f7febd1aap-26, 0x1.60e5cb8bd617fp-33, -0x1.8d51710df5547p-41);
        sine = r + fma(r * z, p, weighed_rest);
    }
    const auto q = horner_by_two(z, 0x1.5555555555555p-5, -0x1.6c16c16c168ccp-10, 0x1.a01a019f38af2p-16,
                                 -0x1.27e4fa036c215p-22, 0x1.1eeb584f2865ap-29, -0x1.9073d30c22701p-37);
    const auto whole = splat(1.0) - half;
    auto lost = (splat(1.0) - whole) - half;
    if constexpr (level == Level::HA) { // what z lost, times the slope of the series in z
        lost = fnma(fma(r, r, splat(0.0) - z), fma(z, splat(-1.0 / 12), splat(0.5)), lost);
    }
    return {sine, whole + fma(z2, q, fnma(slope, rest, lost))};
}

/// The one that belongs to the quarter turn in the last two bits, with its sign.
template <Wave wave, class T>
ORV_INLINE vec<T> of_quarter(SinCos<T> both, vec<word_of<T>> quarters)
{
    if constexpr (wave == Wave::cosine) quarters = quarters + splat(word_of<T>(1));
    const auto odd = as<T>(shift_left_by<bits_of<T> - 1>(quarters)); // by its sign
    return blend(odd, both.cosine, both.sine) ^ sign_bit(as<T>(shift_left_by<bits_of<T> - 2>(quarters)));
}

// ---- The functions

/// The sine takes the sign of x, so -0 stays -0.
template <Wave wave, Level level, class T>
ORV_INLINE vec<T> sin_or_cos(vec<T> x)
{
    const auto reduced = reduce(magnitude(x));
    const auto y = of_quarter<wave>(sin_cos_of<level>(reduced.r, reduced.rest), reduced.quarters);
    return wave == Wave::sine ? y ^ sign_bit(x) : y;
}

/// In double precision and alone: x = n * pi + r, with a whole n for the sine, half an odd one for the cosine. Then the
/// result is +-sin r, one longer series in place of two.
template <Wave wave>
ORV_INLINE vec<Orv64f> sin_or_cos_by_half_turns(vec<Orv64f> x)
{
    const auto& part = half_pi_parts<Orv64f>;
    const auto size = magnitude(x), per_pi = splat(0x1.45f306dc9c883p-2), shift = splat(magic<Orv64f>);
    const auto shifted = wave == Wave::sine ? fma(size, per_pi, shift) : fma(size, per_pi, splat(-0.5)) + shift;
    const auto n = wave == Wave::sine ? shifted - shift : (shifted - shift) + splat(0.5);
    const auto r0 = fnma(n, splat(2 * part[0]), size);
    const auto r = fnma(n, splat(2 * part[2]), fnma(n, splat(2 * part[1]), r0));
    const auto z = r * r;
    const auto p =
        horner_by_two(z, -0x1.5555555555555p-3, 0x1.11111111110b9p-7, -0x1.a01a01a013538p-13, 0x1.71de3a51c2545p-19,
                      -0x1.ae64545abc37dp-26, 0x1.6123aa905d889p-33, -0x1.ae39c489f9b92p-41, 0x1.871b8da856a4bp-49);
    const auto odd = as<Orv64f>(shift_left_by<63>(as<Orv64s>(shifted)));
    const auto y = max(splat(-1.0), min(splat(1.0), fma(r * z, p, r))); // near +-1 it may have rounded past them
    return y ^ odd ^ (wave == Wave::sine ? sign_bit(x) : splat(-0.0));
}

/// At most 0.55 ulp at HA, 2.2 ulp at LA; 2^-32 of the result at EP.
template <Wave wave, Level level>
struct SinOrCos64 {
    using lane = Orv64f;

    ORV_INLINE vec<Orv64f> operator()(vec<Orv64f> x) const
    {
        if constexpr (level == Level::LA) return sin_or_cos_by_half_turns<wave>(x);
        else return sin_or_cos<wave, level>(x);
    }
    ORV_INLINE static vec<Orv64s> off_path(vec<Orv64f> x)
    {
        return as<Orv64s>(is_not_within(magnitude(x), splat(largest_reduced<Orv64f>)));
    }
    static int companion(Orv64f x, Orv64f* y)
    {
        return wave == Wave::sine ? vdsin_cout_rare(x, y) : vdcos_cout_rare(x, y);
    }
};

/// At most 1.6 ulp at LA. The EP kernels are the same: a term less costs more than 4 ulp.
template <Wave wave, Level level>
struct SinOrCos32 {
    using lane = Orv32f;

    ORV_INLINE vec<Orv32f> operator()(vec<Orv32f> x) const
    {
        if constexpr (level == Level::HA) return by_doubles(SinOrCos64<wave, Level::EP>(), x);
        else return sin_or_cos<wave, level>(x);
    }
    ORV_INLINE static vec<Orv32s> off_path(vec<Orv32f> x)
    {
        return as<Orv32s>(is_not_within(magnitude(x), splat(largest_reduced<Orv32f>)));
    }
    static int companion(Orv32f x, Orv32f* y)
    {
        return wave == Wave::sine ? vssin_cout_rare(x, y) : vscos_cout_rare(x, y);
    }
};

/// Both for the lanes of a vector with a mark: large arguments, infinities, not-a-numbers.
void finish_sin_cos(const Orv32f* x, const Orv32s* marks, Orv32f* sine, Orv32f* cosine);
void finish_sin_cos(const Orv64f* x, const Orv64s* marks, Orv64f* sine, Orv64f* cosine);

/// Both functions of all x: at most 1.6 ulp single, 0.8 ulp double.
template <class T>
ORV_INLINE SinCos<T> sin_and_cos(vec<T> x)
{
    const auto size = magnitude(x);
    const auto reduced = reduce(size);
    const auto both = sin_cos_of<Level::LA>(reduced.r, reduced.rest);
    SinCos<T> result = {of_quarter<Wave::sine>(both, reduced.quarters) ^ sign_bit(x),
                        of_quarter<Wave::cosine>(both, reduced.quarters)};
    const auto off = as<word_of<T>>(is_not_within(size, splat(largest_reduced<T>)));
    if (any_sign(off)) [[unlikely]] {
        constexpr int N = vec<T>::N;
        T xs[N], sines[N], cosines[N];
        word_of<T> marks[N];
        store(xs, x), store(marks, off), store(sines, result.sine), store(cosines, result.cosine);
        finish_sin_cos(xs, marks, sines, cosines);
        result = {load(sines), load(cosines)};
    }
    return result;
}

} // namespace ORV_VARIANT

#endif
