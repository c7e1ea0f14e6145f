// Norms of vectors and of differences.
#include "orvs/stats.h"

#include "frame/checks.h"
#include "stats/float_chains.h"
#include "stats/integer_sums.h"
#include "stats/results.h"

using namespace ORV_VARIANT;

namespace {

// ---- Floats. One source is a vector, two are a difference.

template <class... S>
constexpr bool is_complex = (std::is_class_v<S> && ...);

template <class Chain, class... S>
using of_sources = std::conditional_t<sizeof...(S) == 2, Difference<Chain>, Chain>;

/// Six sums hide how long an addition takes; 32-bit code has registers for them.
template <class Chain, class S, class... S2>
auto total_of_values(int len, const S* src, const S2*... src2)
{
    const std::ptrdiff_t n = std::ptrdiff_t(len) * values_of<S>;
    return reduce<6, of_sources<Chain, S, S2...>>(n, values(src), values(src2)...).total();
}
/// The same of complex values as such.
template <class Chain, class... S>
auto total_of_elements(int len, const S*... src)
{
    return reduce<2, of_sources<Chain, S...>>(len, src...).total();
}

ORV_INLINE Orv32f root(Orv32f x) { return __builtin_sqrtf(x); }
ORV_INLINE Orv64f root(Orv64f x) { return __builtin_sqrt(x); }

template <class D, class... S>
OrvStatus norm_inf(D* norm, int len, const S*... src)
{
    if (const OrvStatus bad = check(len, src..., norm)) return bad;
    if constexpr (is_complex<S...>) {
        put_element(norm, root(total_of_elements<LargestSquaredMagnitude<D>>(len, src...)));
    } else {
        put_element(norm, total_of_values<LargestMagnitude<D>>(len, src...));
    }
    return orvOk;
}

template <class D, class... S>
OrvStatus norm_l1(D* norm, int len, const S*... src)
{
    if (const OrvStatus bad = check(len, src..., norm)) return bad;
    if constexpr (is_complex<S...>) put_element(norm, total_of_elements<ComplexMagnitudes>(len, src...));
    else put_element(norm, total_of_values<Magnitudes<D>>(len, src...));
    return orvOk;
}

template <class D, class... S>
OrvStatus norm_l2(D* norm, int len, const S*... src)
{
    if (const OrvStatus bad = check(len, src..., norm)) return bad;
    put_element(norm, root(total_of_values<Squares<D>>(len, src...)));
    return orvOk;
}

// ---- 16-bit integers: exact, and then as the result wants it

Orv32s largest_magnitude(int len, const Orv16s* src)
{
    Orv16s min = 0, max = 0;
    orvsMinMax_16s(src, len, &min, &max);
    return -min > max ? -min : max;
}
struct LargestDistance {
    static constexpr int lanes = 16;
    vec<Orv16u> max = splat(Orv16u(0));

    ORV_INLINE void add(vec<Orv16s> x, vec<Orv16s> y) { max = ORV_VARIANT::max(max, as<Orv16u>(distance(x, y))); }
    ORV_INLINE void join(const LargestDistance& other) { max = ORV_VARIANT::max(max, other.max); }
};
Orv32s largest_magnitude(int len, const Orv16s* src1, const Orv16s* src2)
{
    const auto greater = [](vec<Orv16u> a, vec<Orv16u> b) ORV_INLINE_LAMBDA { return max(a, b); };
    return fold(greater, reduce<2, LargestDistance>(len, src1, src2).max);
}

Orv64s sum_of_magnitudes(int len, const Orv16s* src) { return exact_total<MagnitudeSums>(len, src); }
Orv64s sum_of_magnitudes(int len, const Orv16s* src1, const Orv16s* src2)
{
    return exact_total<DistanceSums>(len, src1, src2);
}

Orv64s sum_of_squares(int len, const Orv16s* src) { return exact_total<SquareSums>(len, src); }
Orv64s sum_of_squares(int len, const Orv16s* src1, const Orv16s* src2)
{
    return exact_total<SquaredDistanceSums>(len, src1, src2);
}

/// *norm = make(exact(len, src...)).
template <class Exact, class Make, class D, class... S>
OrvStatus integer_norm(Exact exact, Make make, D* norm, int len, const S*... src)
{
    if (const OrvStatus bad = check(len, src..., norm)) return bad;
    put_element(norm, make(exact(len, src...)));
    return orvOk;
}

// Overload sets as values.
constexpr auto largest = [](auto... x) { return largest_magnitude(x...); };
constexpr auto magnitudes = [](auto... x) { return sum_of_magnitudes(x...); };
constexpr auto squares = [](auto... x) { return sum_of_squares(x...); };

constexpr auto as_float = [](auto norm) { return Orv32f(norm); };
constexpr auto root_as_float = [](Orv64s sum) { return Orv32f(root(Orv64f(sum))); };

/// A shift that truncates.
struct Shifted {
    int scale;

    Orv32s operator()(Orv32s norm) const
    {
        if (scale >= 0) return scale < 32 ? norm >> scale : 0;
        return saturated<Orv32s>(Orv64s(norm) << (scale < -30 ? 31 : -scale));
    }
};

template <class D>
struct Scaled {
    int scale;

    D operator()(Orv64s sum) const { return scaled_total<D>(sum, scale); }
};

/// The root, with a factor whose exponent is taken modulo 32, in the caller's rounding.
struct ScaledRoot {
    int scale;

    Orv32s operator()(Orv64s sum) const
    {
        const Orv64f power = Orv32u(1) << (Orv32u(scale < 0 ? -Orv32u(scale) : Orv32u(scale)) % 32);
        const Orv64f norm = root(Orv64f(sum));
        const Orv64f scaled = scale < 0 ? norm * power : norm / power;
        return scaled > 2147483647.0 ? 2147483647 : _mm_cvtsd_si32(_mm_set_sd(scaled));
    }
};

} // namespace

// ---- Norm

OrvStatus orvsNorm_Inf_16s32f(const Orv16s* src, int len, Orv32f* norm)
{
    return integer_norm(largest, as_float, norm, len, src);
}
OrvStatus orvsNorm_Inf_16s32s_Sfs(const Orv16s* src, int len, Orv32s* norm, int scale)
{
    return integer_norm(largest, Shifted{scale}, norm, len, src);
}
OrvStatus orvsNorm_Inf_32f(const Orv32f* src, int len, Orv32f* norm) { return norm_inf(norm, len, src); }
OrvStatus orvsNorm_Inf_32fc32f(const Orv32fc* src, int len, Orv32f* norm) { return norm_inf(norm, len, src); }
OrvStatus orvsNorm_Inf_64f(const Orv64f* src, int len, Orv64f* norm) { return norm_inf(norm, len, src); }
OrvStatus orvsNorm_Inf_64fc64f(const Orv64fc* src, int len, Orv64f* norm) { return norm_inf(norm, len, src); }
OrvStatus orvsNorm_L1_16s32f(const Orv16s* src, int len, Orv32f* norm)
{
    return integer_norm(magnitudes, as_float, norm, len, src);
}
OrvStatus orvsNorm_L1_16s32s_Sfs(const Orv16s* src, int len, Orv32s* norm, int scale)
{
    return integer_norm(magnitudes, Scaled<Orv32s>{scale}, norm, len, src);
}
OrvStatus orvsNorm_L1_16s64s_Sfs(const Orv16s* src, int len, Orv64s* norm, int scale)
{
    return integer_norm(magnitudes, Scaled<Orv64s>{scale}, norm, len, src);
}
OrvStatus orvsNorm_L1_32f(const Orv32f* src, int len, Orv32f* norm) { return norm_l1(norm, len, src); }
OrvStatus orvsNorm_L1_32fc64f(const Orv32fc* src, int len, Orv64f* norm) { return norm_l1(norm, len, src); }
OrvStatus orvsNorm_L1_64f(const Orv64f* src, int len, Orv64f* norm) { return norm_l1(norm, len, src); }
OrvStatus orvsNorm_L1_64fc64f(const Orv64fc* src, int len, Orv64f* norm) { return norm_l1(norm, len, src); }
OrvStatus orvsNorm_L2Sqr_16s64s_Sfs(const Orv16s* src, int len, Orv64s* norm, int scale)
{
    return integer_norm(squares, Scaled<Orv64s>{scale}, norm, len, src);
}
OrvStatus orvsNorm_L2_16s32f(const Orv16s* src, int len, Orv32f* norm)
{
    return integer_norm(squares, root_as_float, norm, len, src);
}
OrvStatus orvsNorm_L2_16s32s_Sfs(const Orv16s* src, int len, Orv32s* norm, int scale)
{
    return integer_norm(squares, ScaledRoot{scale}, norm, len, src);
}
OrvStatus orvsNorm_L2_32f(const Orv32f* src, int len, Orv32f* norm) { return norm_l2(norm, len, src); }
OrvStatus orvsNorm_L2_32fc64f(const Orv32fc* src, int len, Orv64f* norm) { return norm_l2(norm, len, src); }
OrvStatus orvsNorm_L2_64f(const Orv64f* src, int len, Orv64f* norm) { return norm_l2(norm, len, src); }
OrvStatus orvsNorm_L2_64fc64f(const Orv64fc* src, int len, Orv64f* norm) { return norm_l2(norm, len, src); }

// ---- NormDiff

OrvStatus orvsNormDiff_Inf_16s32f(const Orv16s* src1, const Orv16s* src2, int len, Orv32f* norm)
{
    return integer_norm(largest, as_float, norm, len, src1, src2);
}
OrvStatus orvsNormDiff_Inf_16s32s_Sfs(const Orv16s* src1, const Orv16s* src2, int len, Orv32s* norm, int scale)
{
    return integer_norm(largest, Shifted{scale}, norm, len, src1, src2);
}
OrvStatus orvsNormDiff_Inf_32f(const Orv32f* src1, const Orv32f* src2, int len, Orv32f* norm)
{
    return norm_inf(norm, len, src1, src2);
}
OrvStatus orvsNormDiff_Inf_32fc32f(const Orv32fc* src1, const Orv32fc* src2, int len, Orv32f* norm)
{
    return norm_inf(norm, len, src1, src2);
}
OrvStatus orvsNormDiff_Inf_64f(const Orv64f* src1, const Orv64f* src2, int len, Orv64f* norm)
{
    return norm_inf(norm, len, src1, src2);
}
OrvStatus orvsNormDiff_Inf_64fc64f(const Orv64fc* src1, const Orv64fc* src2, int len, Orv64f* norm)
{
    return norm_inf(norm, len, src1, src2);
}
OrvStatus orvsNormDiff_L1_16s32f(const Orv16s* src1, const Orv16s* src2, int len, Orv32f* norm)
{
    return integer_norm(magnitudes, as_float, norm, len, src1, src2);
}
OrvStatus orvsNormDiff_L1_16s32s_Sfs(const Orv16s* src1, const Orv16s* src2, int len, Orv32s* norm, int scale)
{
    return integer_norm(magnitudes, Scaled<Orv32s>{scale}, norm, len, src1, src2);
}
OrvStatus orvsNormDiff_L1_16s64s_Sfs(const Orv16s* src1, const Orv16s* src2, int len, Orv64s* norm, int scale)
{
    return integer_norm(magnitudes, Scaled<Orv64s>{scale}, norm, len, src1, src2);
}
OrvStatus orvsNormDiff_L1_32f(const Orv32f* src1, const Orv32f* src2, int len, Orv32f* norm)
{
    return norm_l1(norm, len, src1, src2);
}
OrvStatus orvsNormDiff_L1_32fc64f(const Orv32fc* src1, const Orv32fc* src2, int len, Orv64f* norm)
{
    return norm_l1(norm, len, src1, src2);
}
OrvStatus orvsNormDiff_L1_64f(const Orv64f* src1, const Orv64f* src2, int len, Orv64f* norm)
{
    return norm_l1(norm, len, src1, src2);
}
OrvStatus orvsNormDiff_L1_64fc64f(const Orv64fc* src1, const Orv64fc* src2, int len, Orv64f* norm)
{
    return norm_l1(norm, len, src1, src2);
}
OrvStatus orvsNormDiff_L2Sqr_16s64s_Sfs(const Orv16s* src1, const Orv16s* src2, int len, Orv64s* norm, int scale)
{
    return integer_norm(squares, Scaled<Orv64s>{scale}, norm, len, src1, src2);
}
OrvStatus orvsNormDiff_L2_16s32f(const Orv16s* src1, const Orv16s* src2, int len, Orv32f* norm)
{
    return integer_norm(squares, root_as_float, norm, len, src1, src2);
}
OrvStatus orvsNormDiff_L2_16s32s_Sfs(const Orv16s* src1, const Orv16s* src2, int len, Orv32s* norm, int scale)
{
    return integer_norm(squares, ScaledRoot{scale}, norm, len, src1, src2);
}
OrvStatus orvsNormDiff_L2_32f(const Orv32f* src1, const Orv32f* src2, int len, Orv32f* norm)
{
    return norm_l2(norm, len, src1, src2);
}
OrvStatus orvsNormDiff_L2_32fc64f(const Orv32fc* src1, const Orv32fc* src2, int len, Orv64f* norm)
{
    return norm_l2(norm, len, src1, src2);
}
OrvStatus orvsNormDiff_L2_64f(const Orv64f* src1, const Orv64f* src2, int len, Orv64f* norm)
{
    return norm_l2(norm, len, src1, src2);
}
OrvStatus orvsNormDiff_L2_64fc64f(const Orv64fc* src1, const Orv64fc* src2, int len, Orv64f* norm)
{
    return norm_l2(norm, len, src1, src2);
}
