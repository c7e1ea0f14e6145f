// dst = arctan src.
#include "frame/checks.h"
#include "orvs/arith.h"
#include "vmath/vmath.h"

using namespace ORV_VARIANT;

OrvStatus orvsArctan_32f(const Orv32f* src, Orv32f* dst, int len)
{
    if (const OrvStatus bad = check(len, src, dst)) return bad;
    own_orvs_sAtan_S9LAynn(src, dst, len);
    return orvOk;
}
OrvStatus orvsArctan_32f_I(Orv32f* srcDst, int len) { return orvsArctan_32f(srcDst, srcDst, len); }

OrvStatus orvsArctan_64f(const Orv64f* src, Orv64f* dst, int len)
{
    if (const OrvStatus bad = check(len, src, dst)) return bad;
    own_orvs_dAtan_S9LAynn(src, dst, len);
    return orvOk;
}
OrvStatus orvsArctan_64f_I(Orv64f* srcDst, int len) { return orvsArctan_64f(srcDst, srcDst, len); }
