// The largest and the smallest value or magnitude.
#include "orvs/stats.h"

#include "frame/checks.h"
#include "stats/extremes.h"

using namespace ORV_VARIANT;

namespace {

template <class Op, class T>
ORV_INLINE OrvStatus extreme(const T* src, int len, T* result)
{
    if (const OrvStatus bad = check(len, src, result)) return bad;
    if constexpr (std::is_same_v<T, Orv32f>) {
        put_element(result, padded_extreme<Op>(src, len));
    } else {
        with_extremes<Chains<Op, T>>(src, len, [=](T x) ORV_INLINE_LAMBDA { put_element(result, x); });
    }
    return orvOk;
}

template <class Op, class T>
ORV_INLINE OrvStatus extreme_magnitude(const T* src, int len, T* result)
{
    if (const OrvStatus bad = check(len, src, result)) return bad;
    constexpr auto most = unsigned_of<T>(max_of<T>);
    with_extremes<Chains<Op, T, Magnitude>>(
        src, len, [=](auto m) ORV_INLINE_LAMBDA { put_element(result, T(m < most ? m : most)); });
    return orvOk;
}

template <class T>
ORV_INLINE OrvStatus both_extremes(const T* src, int len, T* min, T* max)
{
    if (const OrvStatus bad = check(len, src, min, max)) return bad;
    with_extremes<Chains<Smallest, T>, Chains<Largest, T>>(src, len, [=](T least, T most) ORV_INLINE_LAMBDA {
        put_element(min, least);
        put_element(max, most);
    });
    return orvOk;
}

} // namespace

// ---- Max, Min

OrvStatus orvsMax_16s(const Orv16s* src, int len, Orv16s* max) { return extreme<Largest>(src, len, max); }
OrvStatus orvsMax_32s(const Orv32s* src, int len, Orv32s* max) { return extreme<Largest>(src, len, max); }
OrvStatus orvsMax_32f(const Orv32f* src, int len, Orv32f* max) { return extreme<Largest>(src, len, max); }
OrvStatus orvsMax_64f(const Orv64f* src, int len, Orv64f* max) { return extreme<Largest>(src, len, max); }

OrvStatus orvsMin_16s(const Orv16s* src, int len, Orv16s* min) { return extreme<Smallest>(src, len, min); }
OrvStatus orvsMin_32s(const Orv32s* src, int len, Orv32s* min) { return extreme<Smallest>(src, len, min); }
OrvStatus orvsMin_32f(const Orv32f* src, int len, Orv32f* min) { return extreme<Smallest>(src, len, min); }
OrvStatus orvsMin_64f(const Orv64f* src, int len, Orv64f* min) { return extreme<Smallest>(src, len, min); }

// ---- MaxAbs, MinAbs

OrvStatus orvsMaxAbs_16s(const Orv16s* src, int len, Orv16s* maxAbs)
{
    return extreme_magnitude<Largest>(src, len, maxAbs);
}
OrvStatus orvsMaxAbs_32s(const Orv32s* src, int len, Orv32s* maxAbs)
{
    return extreme_magnitude<Largest>(src, len, maxAbs);
}
OrvStatus orvsMinAbs_16s(const Orv16s* src, int len, Orv16s* minAbs)
{
    return extreme_magnitude<Smallest>(src, len, minAbs);
}
OrvStatus orvsMinAbs_32s(const Orv32s* src, int len, Orv32s* minAbs)
{
    return extreme_magnitude<Smallest>(src, len, minAbs);
}

// ---- MinMax

OrvStatus orvsMinMax_8u(const Orv8u* src, int len, Orv8u* min, Orv8u* max) { return both_extremes(src, len, min, max); }
OrvStatus orvsMinMax_16s(const Orv16s* src, int len, Orv16s* min, Orv16s* max)
{
    return both_extremes(src, len, min, max);
}
OrvStatus orvsMinMax_16u(const Orv16u* src, int len, Orv16u* min, Orv16u* max)
{
    return both_extremes(src, len, min, max);
}
OrvStatus orvsMinMax_32s(const Orv32s* src, int len, Orv32s* min, Orv32s* max)
{
    return both_extremes(src, len, min, max);
}
OrvStatus orvsMinMax_32u(const Orv32u* src, int len, Orv32u* min, Orv32u* max)
{
    return both_extremes(src, len, min, max);
}
OrvStatus orvsMinMax_32f(const Orv32f* src, int len, Orv32f* min, Orv32f* max)
{
    return both_extremes(src, len, min, max);
}
OrvStatus orvsMinMax_64f(const Orv64f* src, int len, Orv64f* min, Orv64f* max)
{
    return both_extremes(src, len, min, max);
}
