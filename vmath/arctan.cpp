// The arctangent of one argument and of two.
#include "vmath/arctan.h"

#include "frame/map.h"
#include "vmath/over_array.h"
#include "vmath/vmath.h"

using namespace ORV_VARIANT;

namespace {

/// The angle by the ratio of its sides alone: 1 to 0 or 1 to 1 for infinities, 0 to 1 for zeros.
template <class T>
T angle_of_extremes(T y, T x)
{
    constexpr T infinity = std::numeric_limits<T>::infinity();
    if (x != x || y != y) return x + y;
    T a = first(magnitude(splat(y))), b = first(magnitude(splat(x)));
    if (a == infinity || b == infinity) a = a == infinity, b = b == infinity;
    if (a == 0 && b == 0) b = 1;
    for (; a > T(0x1p60) || b > T(0x1p60); a *= T(0x1p-60), b *= T(0x1p-60)) {
    }
    for (; a < T(0x1p-60) && b < T(0x1p-60); a *= T(0x1p60), b *= T(0x1p60)) {
    }
    const T angle = first(ordinary_angle(splat(a), splat(__builtin_signbit(x) ? -b : b)));
    return __builtin_signbit(y) ? -angle : angle;
}

template <class T>
void finish(const T* y, const T* x, const word_of<T>* marks, T* angle)
{
    for (int i = 0; i < vec<T>::N; ++i) {
        if (marks[i] < 0) angle[i] = angle_of_extremes(y[i], x[i]);
    }
}

template <class T>
ORV_INLINE int angles_over_array(const T* y, const T* x, T* dst, int len)
{
    const StandardState state;
    map([](auto a, auto b) ORV_INLINE_LAMBDA { return angle_of(a, b); }, dst, len, y, x);
    return 0;
}

} // namespace

void ORV_VARIANT::finish_angles(const Orv32f* y, const Orv32f* x, const Orv32s* marks, Orv32f* angle)
{
    finish(y, x, marks, angle);
}
void ORV_VARIANT::finish_angles(const Orv64f* y, const Orv64f* x, const Orv64s* marks, Orv64f* angle)
{
    finish(y, x, marks, angle);
}

int own_orvs_sAtan_S9LAynn(const Orv32f* src, Orv32f* dst, int len) { return over_array(Arctan32(), src, dst, len); }
int own_orvs_dAtan_S9LAynn(const Orv64f* src, Orv64f* dst, int len) { return over_array(Arctan64(), src, dst, len); }
int own_orvs_sAtan2_S9LAynn(const Orv32f* y, const Orv32f* x, Orv32f* dst, int len)
{
    return angles_over_array(y, x, dst, len);
}
int own_orvs_dAtan2_S9LAynn(const Orv64f* y, const Orv64f* x, Orv64f* dst, int len)
{
    return angles_over_array(y, x, dst, len);
}
