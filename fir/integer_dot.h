// One sum of an integer filter, modulo 2^32: the taps in reverse order times the window of samples, oldest first. The
// newest sample comes as a value, so that nothing waits for its store.
#ifndef ORV_FIR_INTEGER_DOT_H
#define ORV_FIR_INTEGER_DOT_H

#include "frame/reduce.h"

namespace ORV_VARIANT {

ORV_INLINE Orv32u product(Orv16s a, Orv16s b) { return Orv32u(Orv32s(a) * b); }

ORV_INLINE Orv32s window_sum(const Orv16s* tapsRev, const Orv16s* window, int tapsLen, Orv16s newest)
{
    const int older = tapsLen - 1;
    vec<Orv32s> sums = splat(Orv32s(0));
    int i = 0;
    for (; i + 16 <= older; i += 16) sums = sums + multiply_add_pairs(load(tapsRev + i), load(window + i));
    Orv32u sum = i > 0 ? Orv32u(sum_of_lanes(sums)) : 0;
    for (; i < older; ++i) sum += product(tapsRev[i], window[i]);
    return Orv32s(sum + product(tapsRev[older], newest));
}

ORV_INLINE Orv32sc window_sum(const Orv16sc* tapsRev, const Orv16sc* window, int tapsLen, Orv16sc newest)
{
    const int older = tapsLen - 1;
    const auto im_signs = splat_pair(Orv16s(0), Orv16s(-1));
    vec<Orv32s> re_sums = splat(Orv32s(0)), im_sums = re_sums;
    int i = 0;
    for (; i + 8 <= older; i += 8) {
        const auto tap = load(parts(tapsRev + i)), x = load(parts(window + i));
        re_sums = re_sums + multiply_add_pairs((tap ^ im_signs) - im_signs, x);
        im_sums = im_sums + multiply_add_pairs(swap_pairs(tap), x);
    }
    Orv32u re = i > 0 ? Orv32u(sum_of_lanes(re_sums)) : 0, im = i > 0 ? Orv32u(sum_of_lanes(im_sums)) : 0;
    for (; i < tapsLen; ++i) {
        const Orv16sc tap = tapsRev[i], x = i < older ? window[i] : newest;
        re += product(tap.re, x.re) - product(tap.im, x.im);
        im += product(tap.re, x.im) + product(tap.im, x.re);
    }
    return {Orv32s(re), Orv32s(im)};
}

} // namespace ORV_VARIANT

#endif
