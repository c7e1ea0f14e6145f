// The natural logarithm.
#include "vmath/ln.h"

#include <limits>

#include "vmath/over_array.h"
#include "vmath/vmath.h"

using namespace ORV_VARIANT;

// Zeros, negative numbers, infinity, not-a-numbers, subnormals.

int vdln_cout_rare(Orv64f x, Orv64f* y)
{
    constexpr Orv64f infinity = std::numeric_limits<Orv64f>::infinity();
    if (x == 0) {
        *y = -infinity;
        return ln_of_zero;
    }
    if (x < 0) {
        *y = std::numeric_limits<Orv64f>::quiet_NaN();
        return ln_of_negative;
    }
    if (!(x < infinity)) {
        *y = x + x;
        return 0;
    }
    const auto ln = ln_parts(splat(x * 0x1p54), -54);
    *y = first(ln.high + ln.low);
    return 0;
}

int vsln_cout_rare(Orv32f x, Orv32f* y)
{
    Orv64f wide;
    int code = 0;
    if (x > 0 && x < std::numeric_limits<Orv32f>::infinity()) wide = first(Ln64<Level::HA>()(splat(Orv64f(x))));
    else code = vdln_cout_rare(Orv64f(x), &wide);
    *y = Orv32f(wide);
    return code;
}

int own_orvs_sLn_S9HAynn(const Orv32f* src, Orv32f* dst, int len)
{
    return over_array(Ln32<Level::HA>(), src, dst, len);
}
int own_orvs_sLn_S9LAynn(const Orv32f* src, Orv32f* dst, int len)
{
    return over_array(Ln32<Level::LA>(), src, dst, len);
}
int own_orvs_sLn_S9EPnnn(const Orv32f* src, Orv32f* dst, int len)
{
    return over_array(Ln32<Level::EP>(), src, dst, len);
}
int own_orvs_dLn_S9HAynn(const Orv64f* src, Orv64f* dst, int len)
{
    return over_array(Ln64<Level::HA>(), src, dst, len);
}
// There is no faster one within 1 ulp.
int own_orvs_dLn_S9LAynn(const Orv64f* src, Orv64f* dst, int len) { return own_orvs_dLn_S9HAynn(src, dst, len); }
int own_orvs_dLn_S9EPnnn(const Orv64f* src, Orv64f* dst, int len)
{
    return over_array(Ln64<Level::EP>(), src, dst, len);
}
int own_orvs_sdLn_S9LAynn(const Orv32f* src, Orv64f* dst, int len)
{
    return over_array(Ln64<Level::LA>(), src, dst, len);
}
int own_orvs_dsLn_S9LAynn(const Orv64f* src, Orv32f* dst, int len)
{
    return over_array(Ln64<Level::LA>(), src, dst, len);
}
