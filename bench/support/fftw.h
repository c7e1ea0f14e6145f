// FFTW's transforms as peers.
#ifndef ORV_BENCH_SUPPORT_FFTW_H
#define ORV_BENCH_SUPPORT_FFTW_H

#ifdef ORV_HAVE_FFTW
#include <fftw3.h>
#endif

#include <algorithm>
#include <memory>
#include <type_traits>
#include <vector>

#include "bench/support/row.h"

namespace bench {

#ifdef ORV_HAVE_FFTW

/// FFTW's functions and types for elements of T, under the names that they have without a prefix.
template <class T>
struct Fftw;

struct FftwSigns {
    static constexpr int forward = FFTW_FORWARD, backward = FFTW_BACKWARD;
};

template <>
struct Fftw<float> : FftwSigns {
    using iodim = fftwf_iodim;
    static constexpr auto plan_dft_1d = fftwf_plan_dft_1d;
    static constexpr auto plan_dft_r2c_1d = fftwf_plan_dft_r2c_1d;
    static constexpr auto plan_dft_c2r_1d = fftwf_plan_dft_c2r_1d;
    static constexpr auto plan_guru_split_dft = fftwf_plan_guru_split_dft;
    static constexpr auto execute = fftwf_execute;
    static constexpr auto malloc = fftwf_malloc;
    static constexpr auto free = fftwf_free;
    static constexpr auto destroy_plan = fftwf_destroy_plan;
    static constexpr auto forget_wisdom = fftwf_forget_wisdom;
    static fftwf_complex* complex(float* p) { return reinterpret_cast<fftwf_complex*>(p); }
};

template <>
struct Fftw<double> : FftwSigns {
    using iodim = fftw_iodim;
    static constexpr auto plan_dft_1d = fftw_plan_dft_1d;
    static constexpr auto plan_dft_r2c_1d = fftw_plan_dft_r2c_1d;
    static constexpr auto plan_dft_c2r_1d = fftw_plan_dft_c2r_1d;
    static constexpr auto plan_guru_split_dft = fftw_plan_guru_split_dft;
    static constexpr auto execute = fftw_execute;
    static constexpr auto malloc = fftw_malloc;
    static constexpr auto free = fftw_free;
    static constexpr auto destroy_plan = fftw_destroy_plan;
    static constexpr auto forget_wisdom = fftw_forget_wisdom;
    static fftw_complex* complex(double* p) { return reinterpret_cast<fftw_complex*>(p); }
};

/// Plans of different effort as peers of a row, on the row's own arrays: plan(Fftw<T>{}, effort) makes one. It is a
/// lambda with an auto parameter, as for volk; without FFTW nothing happens. Planning overwrites the arrays, so the
/// count numbers from src, all that the plans read, get their values back.
template <class T, class Plan>
void fftw(Row& row, T* src, int count, Plan plan)
{
    using Names = Fftw<T>;
    const std::vector<T> signal(src, src + count);
    const auto add = [&](const char* name, unsigned effort) {
        Names::forget_wisdom(); // or a plan would depend on the rows before
        const auto made = plan(Names{}, effort);
        const std::shared_ptr<std::remove_pointer_t<decltype(made)>> owner(made, Names::destroy_plan);
        row.peer(name, [owner] { Names::execute(owner.get()); });
    };
    // Patience takes two minutes for 2^18 complex elements, and their transform then 0.6 of the time.
    const bool patient = options.min_time >= Options{}.min_time && count <= 2 << 18;
    add("fftw", options.smoke() ? FFTW_ESTIMATE : FFTW_MEASURE);
    if (patient) add("fftw-p", FFTW_PATIENT);
    std::copy(signal.begin(), signal.end(), src);
}

#else

template <class T, class Plan>
void fftw(Row&, T*, int, Plan)
{}

#endif

} // namespace bench

#endif
