// Complex conjugates, element by element.
#include "orvs/convert.h"

#include "convert/conjugate.h"
#include "frame/checks.h"
#include "frame/complex.h"
#include "frame/map.h"

using namespace ORV_VARIANT;

namespace {

template <class C>
ORV_INLINE OrvStatus conj(const C* src, C* dst, int len)
{
    if (const OrvStatus bad = check(len, src, dst)) return bad;
    return for_parts(len, [=](std::ptrdiff_t at, int n) ORV_INLINE_LAMBDA {
        map<2>([](auto z) ORV_INLINE_LAMBDA { return conjugate(z); }, parts(dst) + at, n, parts(src) + at);
        return orvOk;
    });
}

} // namespace

OrvStatus orvsConj_16sc(const Orv16sc* src, Orv16sc* dst, int len) { return conj(src, dst, len); }
OrvStatus orvsConj_16sc_I(Orv16sc* srcDst, int len) { return conj(srcDst, srcDst, len); }
OrvStatus orvsConj_32fc(const Orv32fc* src, Orv32fc* dst, int len) { return conj(src, dst, len); }
OrvStatus orvsConj_32fc_I(Orv32fc* srcDst, int len) { return conj(srcDst, srcDst, len); }
OrvStatus orvsConj_64fc(const Orv64fc* src, Orv64fc* dst, int len) { return conj(src, dst, len); }
OrvStatus orvsConj_64fc_I(Orv64fc* srcDst, int len) { return conj(srcDst, srcDst, len); }
