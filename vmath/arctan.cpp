// The arctangent.
#include "vmath/arctan.h"

#include "vmath/over_array.h"
#include "vmath/vmath.h"

using namespace ORV_VARIANT;

int own_orvs_sAtan_S9LAynn(const Orv32f* src, Orv32f* dst, int len) { return over_array(Arctan32(), src, dst, len); }
int own_orvs_dAtan_S9LAynn(const Orv64f* src, Orv64f* dst, int len) { return over_array(Arctan64(), src, dst, len); }
