// One output of the forms without a record: the caller's taps, in their order, times a window of samples, oldest first.
#ifndef ORV_FIR_DIRECT_SUMS_H
#define ORV_FIR_DIRECT_SUMS_H

#include "fir/dot.h"
#include "fir/engine.h"
#include "fir/integer_dot.h"
#include "fir/ring.h"
#include "simd/convert.h"

namespace ORV_VARIANT {

template <class T>
ORV_INLINE T add(T a, T b)
{
    if constexpr (std::is_class_v<T>) return {a.re + b.re, a.im + b.im};
    else return a + b;
}
template <class T, class Sample>
ORV_INLINE T as_value(Sample x)
{
    if constexpr (std::is_class_v<T>) return {part_of<T>(x.re), part_of<T>(x.im)};
    else return T(x);
}

/// In T; term j is added to one of four sums.
template <class T>
struct FloatingSum {
    template <class Sample>
    using Tiles = typename fir_engine<T>::template SumsOf<Sample>;

    template <class Sample>
    ORV_INLINE T operator()(const T* taps, const Sample* window, int tapsLen) const
    {
        T sums[4] = {};
        const auto term = [=](int j, T sum) ORV_INLINE_LAMBDA {
            return fma(element_at(taps + (tapsLen - 1 - j)), as_value<T>(element_at(window + j)), sum);
        };
        int j = 0;
        for (; j + 4 <= tapsLen; j += 4) {
            repeat<4>([&](auto k) ORV_INLINE_LAMBDA { sums[k] = term(j + k, sums[k]); });
        }
        repeat<3>([&](auto k) ORV_INLINE_LAMBDA {
            if (j + k < tapsLen) sums[k] = term(j + k, sums[k]);
        });
        return add(add(sums[0], sums[1]), add(sums[2], sums[3]));
    }
};

/// Products of single precision in eight sums of double precision.
struct DoubleSum {
    ORV_INLINE Orv32f operator()(const Orv32f* taps, const Orv32f* window, int tapsLen) const
    {
        vec<Orv64f> low = splat(0.0), high = low; // sums 0 to 3, and 4 to 7
        int j = 0;
        for (; j + 8 <= tapsLen; j += 8) {
            const vec<Orv32f> products = reverse(load(taps + (tapsLen - 8 - j))) * load(window + j);
            low = low + convert_to<Orv64f>(low_half(products));
            high = high + convert_to<Orv64f>(high_half(products));
        }
        Orv64f sums[8];
        store(sums, low);
        store(sums + 4, high);
        repeat<7>([&](auto k) ORV_INLINE_LAMBDA {
            if (j + k < tapsLen) {
                const Orv32f product = element_at(taps + (tapsLen - 1 - j - k)) * element_at(window + j + k);
                sums[k] += Orv64f(product);
            }
        });
        return Orv32f(((sums[0] + sums[1]) + (sums[2] + sums[3])) + ((sums[4] + sums[5]) + (sums[6] + sums[7])));
    }
};

/// Modulo 2^32; taps have 16 or 32 bits.
struct IntegerSum {
    template <class Taps>
    ORV_INLINE Orv32s operator()(const Taps* taps, const Orv16s* window, int tapsLen) const
    {
        Orv32u sum = 0;
        for (int j = 0; j < tapsLen; ++j) {
            sum += Orv32u(element_at(taps + (tapsLen - 1 - j))) * Orv32u(element_at(window + j));
        }
        return Orv32s(sum);
    }
    ORV_INLINE Orv32sc operator()(const Orv32sc* taps, const Orv16sc* window, int tapsLen) const
    {
        Orv32u re = 0, im = 0;
        for (int j = 0; j < tapsLen; ++j) {
            const Orv32sc tap = element_at(taps + (tapsLen - 1 - j));
            const Orv16sc x = element_at(window + j);
            re += Orv32u(tap.re) * Orv32u(x.re) - Orv32u(tap.im) * Orv32u(x.im);
            im += Orv32u(tap.re) * Orv32u(x.im) + Orv32u(tap.im) * Orv32u(x.re);
        }
        return {Orv32s(re), Orv32s(im)};
    }
};

} // namespace ORV_VARIANT

#endif
