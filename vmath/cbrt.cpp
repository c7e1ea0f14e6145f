// The cube root.
#include "vmath/cbrt.h"

#include <limits>

#include "vmath/over_array.h"
#include "vmath/vmath.h"

using namespace ORV_VARIANT;

// Infinities, not-a-numbers, subnormals.
int vscbrt_cout_rare(Orv32f x, Orv32f* y)
{
    if (!(__builtin_fabsf(x) < std::numeric_limits<Orv32f>::infinity())) *y = x + x;
    else *y = first(Cbrt32()(splat(x * 0x1p24f))) * 0x1p-8f;
    return 0;
}

int own_orvs_sCbrt_S9LAynn(const Orv32f* src, Orv32f* dst, int len) { return over_array(Cbrt32(), src, dst, len); }
