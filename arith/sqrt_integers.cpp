// Integer square roots: dst = sqrt(src) * 2^-scale, to nearest, ties to even; complex ones part by part.
//
// k is the integer part of an estimate of the exact y = sqrt(x) * 2^-scale that is less than one half off. Then the
// tie k + 1/2 is the only one that y may be taken for the wrong side of, and integers decide: y rounds to k + 1 if
//
//     scale <= 0:  x * 4^-scale > k * (k + 1)           the integer part of (k + 1/2)^2; there are no ties
//     scale > 0:   x > (k * (k + 1) + 1/4) * 4^scale    or both are equal, a tie, and k is odd
//
// and otherwise to k. Either side of a comparison may wrap, but their difference is of the order of k and does not.
#include "orvs/arith.h"

#include "arith/complex.h"
#include "arith/roots.h"
#include "arith/wide_lanes.h"
#include "frame/fill.h"
#include "frame/float_state.h"
#include "frame/map.h"
#include "simd/convert.h"

using namespace ORV_VARIANT;

namespace {

// ---- The decision between k and k + 1

/// The constants of a scale for lanes of T. ties: scale > 0.
template <class T, bool ties>
struct Decision {
    shift_count shift;
    vec<T> quarter; // of 4^scale

    explicit Decision(int scale)
        : shift(by(2 * (ties ? scale : -scale))), quarter(splat(T(ties ? T(1) << 2 * (scale - 1) : 0)))
    {}

    /// product is k * (k + 1).
    ORV_INLINE vec<T> operator()(vec<T> x, vec<T> k, vec<T> product) const
    {
        const auto zero = splat(T(0));
        if constexpr (ties) {
            const auto odd = k & splat(T(1));
            return k - is_greater(x - shift_left(product, shift) + (odd - quarter), zero);
        } else {
            return k - is_greater(shift_left(x, shift) - product, zero);
        }
    }
};

// ---- Lanes of 8 and 16 bits: roots up to 256; larger ones of 8 bits saturate

/// The estimate of the reciprocal root is enough: it makes 256 * 1.5 * 2^-12 of an error. Its infinity for 0 makes a
/// NaN, which converts to an integer below 0, and that packs to 0. sign: that of the scale.
template <int sign>
struct SmallRoots {
    Decision<Orv16s, (sign > 0)> decide;
    vec<Orv32f> power;

    explicit SmallRoots(int scale) : decide(scale), power(splat(power_of_two<Orv32f>(scale))) {}

    template <class T>
    requires(sizeof(T) == 2) ORV_INLINE vec<T>
    operator()(vec<T> x) const
    {
        const auto estimate = [this](vec<Orv32f> f) ORV_INLINE_LAMBDA {
            const auto root = f * estimate_reciprocal_root(f);
            return to_32s<false>(sign == 0 ? root : root * power);
        };
        const auto k = as<Orv16s>(by_floats(estimate, as<Orv16u>(x)));
        return as<T>(decide(as<Orv16s>(x), k, multiply_low(k, k) + k));
    }
    ORV_INLINE vec<Orv8u> operator()(vec<Orv8u> x) const
    {
        const auto words = unpack(x);
        return pack_unsigned(as<Orv16s>((*this)(words.low)), as<Orv16s>((*this)(words.high)));
    }
};

// ---- Lanes of 32 bits, and narrower ones in them: roots up to 2^16; larger ones saturate in 16 bits

/// One step of Newton's iteration makes the estimate good for 22 bits.
template <bool ties>
struct Roots {
    Decision<Orv32s, ties> decide;
    vec<Orv32f> power;

    explicit Roots(int scale) : decide(scale), power(splat(power_of_two<Orv32f>(scale))) {}

    ORV_INLINE vec<Orv32s> operator()(vec<Orv32s> x) const
    {
        const auto half = splat(0.5f);
        const auto f = max(to_float(x), splat(0x1p-64f)); // 0 has no reciprocal root
        const auto r = estimate_reciprocal_root(f);
        const auto root = f * r;
        const auto lack = fnma(root, half * r, half);
        const auto k = to_32s<false>(fma(root, lack, root) * power);
        return decide(x, k, multiply_low(k, k) + k);
    }
    template <class T>
    requires(sizeof(T) < 4) ORV_INLINE vec<T>
    operator()(vec<T> x) const { return by_words(*this, x); }
};

// ---- Lanes of 64 bits

/// To nearest, for magnitudes below 2^51.
ORV_INLINE vec<Orv64s> to_integer(vec<Orv64f> v)
{
    const auto last_is_1 = splat(0x1.8p52);
    return as<Orv64s>(v + last_is_1) - as<Orv64s>(last_is_1);
}

/// x as the exact sum of two doubles: a multiple of 2^32, and less than 2^32.
struct TwoDoubles {
    vec<Orv64f> high, low;

    ORV_INLINE explicit TwoDoubles(vec<Orv64s> x)
    {
        const auto last_is_1 = splat(0x1p52), last_is_2_32 = splat(0x1p84);
        const auto lower_word = blend_words<0xaa>(as<Orv32s>(x), as<Orv32s>(as<Orv64s>(last_is_1)));
        low = as<Orv64f>(as<Orv64s>(lower_word)) - last_is_1;
        high = as<Orv64f>(as<Orv64s>(shift_right_by<32>(as<Orv64u>(x))) | as<Orv64s>(last_is_2_32)) - last_is_2_32;
    }
};

/// Roots of up to 32 bits, or for a D of 16 bits of any size: beyond 2^16 they saturate.
template <class D, bool ties>
struct LongRoots {
    Decision<Orv64s, ties> decide;
    vec<Orv64f> power;

    explicit LongRoots(int scale) : decide(scale), power(splat(power_of_two<Orv64f>(scale))) {}

    ORV_INLINE vec<Orv64s> operator()(vec<Orv64s> x) const
    {
        const TwoDoubles d(x);
        auto root = square_root(d.high + d.low) * power;
        if constexpr (sizeof(D) == 2) root = min(root, splat(0x1p16));
        const auto k = to_integer(root - splat(0.5));
        return decide(x, k, vec<Orv64s>{_mm256_mul_epu32(k.r, k.r)} + k);
    }
};

/// Roots of up to 63 bits, for scale < 0: from a root of twice the precision of a double.
struct LongestRoots {
    shift_count shift;
    vec<Orv64f> power;
    vec<Orv64s> highest; ///< the last x whose root does not saturate

    explicit LongestRoots(int scale)
        : shift(by(-2 * scale - 1)),
          power(splat(power_of_two<Orv64f>(scale))),
          highest(splat(scale > -32 ? max_of<Orv64s> : (Orv64s(1) << (126 + 2 * scale)) - 1))
    {}

    ORV_INLINE vec<Orv64s> operator()(vec<Orv64s> x) const
    {
        // y = (root + rest) * 2^-scale; a fused operation gives the remainder of root^2.
        const TwoDoubles d(x);
        const auto sum = d.high + d.low, lost = d.low - (sum - d.high);
        const auto root = square_root(sum);
        const auto remainder = fnma(root, root, sum) + lost;
        const auto rest = remainder / max(root + root, splat(0x1p-64)); // 0 has none

        // The root's share of y is a double; its integral part, and the few units of what is left.
        const auto share = root * power;
        const auto whole = toward_zero(min(share, splat(0x1p63 - 0x1p10)));
        const auto units = fma(rest, power, share - whole);
        const auto k = to_64s<true>(whole) + to_integer(units - splat(0.5));

        // The sides' difference may need 65 bits, but both sides are even.
        const auto one = splat(Orv64s(1));
        const auto half_product = multiply_low(as<Orv64s>(shift_right_by<1>(as<Orv64u>(k + one))), k | one);
        const auto y = k - is_greater(shift_left(x, shift) - half_product, splat(Orv64s(0)));
        return blend(is_greater(x, highest), splat(max_of<Orv64s>), y);
    }
};

// ---- Complex values

/// t + i * u = ((|z| + |re|) / 2)^(1/2) + i * |im| / (2 * t) in doubles, and the signs and places that the quadrant of
/// z tells. All operands up to t are exact, and so is every t and u that is a tie; a double has told all others from
/// ties where it was tried, which is for all values of 16 bits and all scales.
struct ComplexRoots {
    vec<Orv64f> power;

    explicit ComplexRoots(int scale) : power(splat(power_of_two<Orv64f>(scale))) {}

    ORV_INLINE vec<Orv16s> operator()(vec<Orv16s> z) const
    {
        const auto pairs = as<Orv32s>(z);
        const auto re = convert_to<Orv64f>(shift_right_by<16>(shift_left_by<16>(pairs)));
        const auto im = convert_to<Orv64f>(shift_right_by<16>(pairs));
        const auto low = parts_of_root(re.low, im.low), high = parts_of_root(re.high, im.high);
        return pack_sat(even_odd<Orv32s>{join(low.re, high.re), join(low.im, high.im)});
    }

private:
    struct Parts {
        vec<Orv32s, 4> re, im;
    };

    ORV_INLINE Parts parts_of_root(vec<Orv64f> re, vec<Orv64f> im) const
    {
        const auto modulus = square_root(fma(re, re, im * im));
        const auto t = square_root(splat(0.5) * (modulus + magnitude(re)));
        const auto u = magnitude(im) / max(t + t, splat(0x1p-64)); // 0 / 0 is 0 here
        const auto beyond = splat(0x1p15);
        const auto larger = min(t * power, beyond), smaller = min(u * power, beyond);
        return {to_32s(blend_by_sign(re, smaller, larger)), to_32s(blend_by_sign(re, larger, smaller) | sign_bit(im))};
    }
};

// ---- The loops. Each returns whether an element was negative; negative elements count as 0.

template <class D, class S, int N>
ORV_INLINE vec<D, N> narrow(vec<S, N> v)
{
    return saturate_to<D>(v);
}
/// From 64 bits, of which no root uses more than 31.
template <class D>
requires(sizeof(D) == 2) ORV_INLINE vec<D> narrow(vec<Orv64s, 16> v)
{
    const auto words = [](vec<Orv64s, 8> w) ORV_INLINE_LAMBDA {
        return cross_quarters(even_lanes(as<Orv32s>(w.low), as<Orv32s>(w.high)));
    };
    return saturate_to<D>(join(words(v.low), words(v.high)));
}

/// op takes roots in lanes of S, which may be over several registers.
template <class Op, class S, class D>
struct RootsOf {
    Op op;
    Seen negatives;

    template <int N>
    ORV_INLINE vec<D, N> operator()(vec<S, N> x)
    {
        const auto take = [this](vec<S> v) ORV_INLINE_LAMBDA {
            if constexpr (std::is_signed_v<S>) {
                const auto negative = sign_mask(v);
                negatives.add(negative);
                return op(and_not(negative, v));
            } else {
                return op(v);
            }
        };
        return narrow<D>(each(take, x));
    }
};

template <class Op, class D, class S>
ORV_INLINE int map_roots(Op op, const S* src, D* dst, int len)
{
    return map(RootsOf<Op, S, D>{op, {}}, dst, len, src).negatives.any();
}

/// Where every root other than 0 saturates.
template <class D, class S>
ORV_KERNEL int roots_to_limit(const S* src, D* dst, int len)
{
    return map_roots([](vec<S> x) ORV_INLINE_LAMBDA { return and_not(is_equal(x, splat(S(0))), splat(S(max_of<D>))); },
                     src, dst, len);
}
/// Where every root rounds to 0.
template <class D, class S>
ORV_KERNEL int roots_to_zero(const S* src, D* dst, int len)
{
    return map_roots([](vec<S>) ORV_INLINE_LAMBDA { return splat(S(0)); }, src, dst, len);
}

/// Roots in lanes of 16 bits if they hold them, and the difference of squares: they do for 8u, and for 16s and 16u from
/// scale 0 on.
template <class T>
ORV_INLINE int small_roots(const T* src, T* dst, int len, int scale)
{
    if (scale > 0) return map_roots(SmallRoots<1>(scale), src, dst, len);
    if (scale == 0) return map_roots(SmallRoots<0>(0), src, dst, len);
    if constexpr (sizeof(T) == 1) return map_roots(SmallRoots<-1>(scale), src, dst, len);
    else return map_roots(Roots<false>(scale), src, dst, len);
}

/// The scales between which a body takes roots, and the length from which two threads do it.
struct Roads {
    int lowest, highest, threshold;
};

template <auto kernel, class D, class S>
ORV_INLINE OrvStatus choose_road(Roads roads, const S* src, D* dst, int len, int scale)
{
    if (const OrvStatus bad = check(len, src, dst)) return bad;
    if (scale < roads.lowest) return root_status(roots_to_limit(src, dst, len));
    if (scale > roads.highest) return root_status(roots_to_zero(src, dst, len));
    return take_roots<kernel>(roads.threshold, src, dst, len, scale);
}

} // namespace

// ---- One type

ORV_KERNEL int ownorvsSqrt_8u(const Orv8u* src, Orv8u* dst, int len, int scale)
{
    const IntegerState state;
    return small_roots(src, dst, len, scale);
}
OrvStatus orvsSqrt_8u_Sfs(const Orv8u* src, Orv8u* dst, int len, int scale)
{
    return choose_road<ownorvsSqrt_8u>({-7, 4, 2048}, src, dst, len, scale);
}
OrvStatus orvsSqrt_8u_ISfs(Orv8u* srcDst, int len, int scale) { return orvsSqrt_8u_Sfs(srcDst, srcDst, len, scale); }

ORV_KERNEL int ownorvsSqrt_16u(const Orv16u* src, Orv16u* dst, int len, int scale)
{
    const IntegerState state;
    if (scale == 8) return map_roots(Roots<true>(scale), src, dst, len); // x - 2^14 takes 17 bits
    return small_roots(src, dst, len, scale);
}
OrvStatus orvsSqrt_16u_Sfs(const Orv16u* src, Orv16u* dst, int len, int scale)
{
    return choose_road<ownorvsSqrt_16u>({-15, 8, 2048}, src, dst, len, scale);
}
OrvStatus orvsSqrt_16u_ISfs(Orv16u* srcDst, int len, int scale) { return orvsSqrt_16u_Sfs(srcDst, srcDst, len, scale); }

ORV_KERNEL int ownorvsSqrt_16s(const Orv16s* src, Orv16s* dst, int len, int scale)
{
    const IntegerState state;
    return small_roots(src, dst, len, scale);
}
OrvStatus orvsSqrt_16s_Sfs(const Orv16s* src, Orv16s* dst, int len, int scale)
{
    return choose_road<ownorvsSqrt_16s>({-14, 8, 2048}, src, dst, len, scale);
}
OrvStatus orvsSqrt_16s_ISfs(Orv16s* srcDst, int len, int scale) { return orvsSqrt_16s_Sfs(srcDst, srcDst, len, scale); }

ORV_KERNEL int ownorvsSqrt_64s(const Orv64s* src, Orv64s* dst, int len, int scale)
{
    const IntegerState state;
    if (scale > 0) return map_roots(LongRoots<Orv64s, true>(scale), src, dst, len);
    if (scale == 0) return map_roots(LongRoots<Orv64s, false>(0), src, dst, len);
    return map_roots(LongestRoots(scale), src, dst, len);
}
OrvStatus orvsSqrt_64s_Sfs(const Orv64s* src, Orv64s* dst, int len, int scale)
{
    return choose_road<ownorvsSqrt_64s>({-62, 32, 256}, src, dst, len, scale);
}
OrvStatus orvsSqrt_64s_ISfs(Orv64s* srcDst, int len, int scale) { return orvsSqrt_64s_Sfs(srcDst, srcDst, len, scale); }

// ---- To 16 bits

ORV_KERNEL int ownorvsSqrt_32s16s(const Orv32s* src, Orv16s* dst, int len, int scale)
{
    const IntegerState state;
    if (scale > 0) return map_roots(Roots<true>(scale), src, dst, len);
    return map_roots(Roots<false>(scale), src, dst, len);
}
OrvStatus orvsSqrt_32s16s_Sfs(const Orv32s* src, Orv16s* dst, int len, int scale)
{
    return choose_road<ownorvsSqrt_32s16s>({-14, 16, 1024}, src, dst, len, scale);
}

ORV_KERNEL int ownorvsSqrt_64s16s(const Orv64s* src, Orv16s* dst, int len, int scale)
{
    const IntegerState state;
    if (scale > 0) return map_roots(LongRoots<Orv16s, true>(scale), src, dst, len);
    return map_roots(LongRoots<Orv16s, false>(scale), src, dst, len);
}
OrvStatus orvsSqrt_64s16s_Sfs(const Orv64s* src, Orv16s* dst, int len, int scale)
{
    return choose_road<ownorvsSqrt_64s16s>({-14, 32, 512}, src, dst, len, scale);
}

// ---- Complex: the real part is not negative, the imaginary part has the sign of the source's

ORV_KERNEL int ownorvsSqrt_16sc(const Orv16sc* src, Orv16sc* dst, int len, int scale)
{
    const IntegerState state;
    const ComplexRoots roots(scale);
    return for_parts(len, [=](std::ptrdiff_t at, int n) ORV_INLINE_LAMBDA {
        map<2>(roots, parts(dst) + at, n, parts(src) + at);
        return orvOk;
    });
}
OrvStatus orvsSqrt_16sc_Sfs(const Orv16sc* src, Orv16sc* dst, int len, int scale)
{
    if (const OrvStatus bad = check(len, src, dst)) return bad;
    if (scale > 8) return zero(dst, len);
    // Every part other than 0 saturates at scales below -23.
    return take_roots<ownorvsSqrt_16sc>(256, src, dst, len, scale < -24 ? -24 : scale);
}
OrvStatus orvsSqrt_16sc_ISfs(Orv16sc* srcDst, int len, int scale)
{
    return orvsSqrt_16sc_Sfs(srcDst, srcDst, len, scale);
}
