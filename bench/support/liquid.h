// Filters of liquid-dsp as peers.
#ifndef ORV_BENCH_SUPPORT_LIQUID_H
#define ORV_BENCH_SUPPORT_LIQUID_H

#ifdef ORV_HAVE_LIQUID
#include <complex> // first: liquid's complex type is then the standard's

#include <liquid/liquid.h>
#endif

#include <memory>
#include <type_traits>

#include "bench/support/peers.h"
#include "bench/support/row.h"

namespace bench {

#ifdef ORV_HAVE_LIQUID

/// liquid's names for samples of T, without a prefix. There are none for double precision.
template <class T>
struct Liquid {
    static constexpr bool present = false;
};

template <>
struct Liquid<float> {
    static constexpr bool present = true;
    static constexpr auto create = firfilt_rrrf_create;
    static constexpr auto destroy = firfilt_rrrf_destroy;
    static constexpr auto push = firfilt_rrrf_push;
    static constexpr auto execute = firfilt_rrrf_execute;
    static constexpr auto execute_block = firfilt_rrrf_execute_block;
    static float* samples(const float* p) { return const_cast<float*>(p); } // no function of liquid takes const
};

template <>
struct Liquid<Orv32fc> {
    static constexpr bool present = true;
    static constexpr auto create = firfilt_cccf_create;
    static constexpr auto destroy = firfilt_cccf_destroy;
    static constexpr auto push = firfilt_cccf_push;
    static constexpr auto execute = firfilt_cccf_execute;
    static constexpr auto execute_block = firfilt_cccf_execute_block;
    static std::complex<float>* samples(const Orv32fc* p) { return standard(const_cast<Orv32fc*>(p)); }
};

/// A peer that filters: run(Liquid<T>{}, filter) is a call. It is a lambda with auto parameters, as for volk.
template <class T, class Run>
void liquid([[maybe_unused]] Row& row, [[maybe_unused]] const T* taps, [[maybe_unused]] int taps_len,
            [[maybe_unused]] Run run)
{
    using Names = Liquid<T>;
    if constexpr (Names::present) {
        const auto made = Names::create(Names::samples(taps), unsigned(taps_len));
        const std::shared_ptr<std::remove_pointer_t<decltype(made)>> owner(made, Names::destroy);
        row.peer("liquid", [=] { run(Names{}, owner.get()); });
    }
}

#else

template <class T, class Run>
void liquid(Row&, const T*, int, Run)
{}

#endif

} // namespace bench

#endif
