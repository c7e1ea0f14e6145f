// The exponential.
#include "vmath/exp.h"

#include <limits>

#include "vmath/over_array.h"
#include "vmath/vmath.h"

using namespace ORV_VARIANT;

// Overflow, subnormal results, infinities, not-a-numbers.

int vdexp_cout_rare(Orv64f x, Orv64f* y)
{
    if (!(x < 0x1.62e42fefa39fp9)) { // not below 1024 * ln 2
        *y = x != x ? x + x : std::numeric_limits<Orv64f>::infinity();
        return 0;
    }
    if (x < -746) {
        *y = 0;
        return 0;
    }
    const auto e = exp_parts<Level::HA>(splat(x));
    const Orv64f high = first(e.high), low = first(e.low);
    const int n = int(first(e.shifted) - magic<Orv64f>);
    if (n > 0) {
        *y = (high + low) * power_of_two<Orv64f>(1 - n) * 2;
        return 0;
    }
    // In the sum with 1, which stands for 2^-1022, the last bit has the weight of the smallest subnormal.
    const Orv64f factor = power_of_two<Orv64f>(-1022 - n);
    const Orv64f scaled = high * factor, whole = 1 + scaled;
    const Orv64f sum = whole + (((1 - whole) + scaled) + low * factor);
    *y = scaled >= 1 ? (high + low) * factor * 0x1p-1022 : (sum - 1) * 0x1p-1022;
    return 0;
}

int vsexp_cout_rare(Orv32f x, Orv32f* y)
{
    if (!(x < 89)) *y = x != x ? x + x : std::numeric_limits<Orv32f>::infinity();
    else if (x < -104) *y = 0;
    else *y = Orv32f(first(Exp64<Level::HA>()(splat(Orv64f(x)))));
    return 0;
}

int own_orvs_sExp_S9HAynn(const Orv32f* src, Orv32f* dst, int len)
{
    return over_array(Exp32<Level::HA>(), src, dst, len);
}
int own_orvs_sExp_S9LAynn(const Orv32f* src, Orv32f* dst, int len)
{
    return over_array(Exp32<Level::LA>(), src, dst, len);
}
int own_orvs_sExp_S9EPnnn(const Orv32f* src, Orv32f* dst, int len)
{
    return over_array(Exp32<Level::EP>(), src, dst, len);
}
int own_orvs_dExp_S9HAynn(const Orv64f* src, Orv64f* dst, int len)
{
    return over_array(Exp64<Level::HA>(), src, dst, len);
}
int own_orvs_dExp_S9LAynn(const Orv64f* src, Orv64f* dst, int len)
{
    return over_array(Exp64<Level::LA>(), src, dst, len);
}
int own_orvs_dExp_S9EPnnn(const Orv64f* src, Orv64f* dst, int len)
{
    return over_array(Exp64<Level::EP>(), src, dst, len);
}
int own_orvs_sdExp_S9LAynn(const Orv32f* src, Orv64f* dst, int len)
{
    return over_array(Exp64<Level::LA>(), src, dst, len);
}
