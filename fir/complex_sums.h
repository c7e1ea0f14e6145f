// The direct sum of complex filters. Real and imaginary parts of the taps multiply whole inputs, in two sums; what
// belongs to the imaginary unit is exchanged and negated once at the end.
#ifndef ORV_FIR_COMPLEX_SUMS_H
#define ORV_FIR_COMPLEX_SUMS_H

#include "frame/complex.h"
#include "simd/convert.h"
#include "simd/lanes.h"
#include "simd/vec.h"

namespace ORV_VARIANT {

/// Samples of another type are converted as they are loaded.
template <class C, class Sample = C>
struct ComplexSums {
    const C* taps;
    int tapsLen;

    using T = part_of<C>;
    static constexpr int lanes = vec<T>::N / 2;
    static constexpr int widest = sizeof(void*) == 8 ? 6 : 3;

    template <int vectors>
    [[gnu::noinline]] void tile(const Sample* x, C* dst) const
    {
        vec<T> by_re[vectors], by_im[vectors];
        repeat<vectors>([&](auto i) ORV_INLINE_LAMBDA { by_re[i] = by_im[i] = splat(T(0)); });
        for (int k = 0; k < tapsLen; ++k, --x) {
            const vec<T> re = splat(element_at(parts(taps + k))), im = splat(element_at(parts(taps + k) + 1));
            repeat<vectors>([&](auto i) ORV_INLINE_LAMBDA {
                const auto loaded = load<part_of<Sample>, 2 * lanes>(parts(x + i * lanes));
                const vec<T> input = in_register(convert_to<T>(loaded));
                by_re[i] = fma(input, re, by_re[i]);
                by_im[i] = fma(input, im, by_im[i]);
            });
        }
        repeat<vectors>([&](auto i)
                            ORV_INLINE_LAMBDA { store(parts(dst + i * lanes), plus_i_times(by_re[i], by_im[i])); });
    }
};

} // namespace ORV_VARIANT

#endif
