// The transforms of FFTW, for comparison.
#pragma once

#include "fft_meter.h"

#include <fftw3.h>
#include <memory>
#include <type_traits>

namespace orvtest {

/// What FFTW calls these things in each precision.
template <class T>
struct FftwNames;
template <>
struct FftwNames<float> {
    using Complex = fftwf_complex;
    using Plan = std::remove_pointer_t<fftwf_plan>;
    static constexpr auto plan_complex = fftwf_plan_dft_1d;
    static constexpr auto plan_to_half = fftwf_plan_dft_r2c_1d;
    static constexpr auto plan_from_half = fftwf_plan_dft_c2r_1d;
    static constexpr auto execute = fftwf_execute;
    static constexpr auto destroy = fftwf_destroy_plan;
};
template <>
struct FftwNames<double> {
    using Complex = fftw_complex;
    using Plan = std::remove_pointer_t<fftw_plan>;
    static constexpr auto plan_complex = fftw_plan_dft_1d;
    static constexpr auto plan_to_half = fftw_plan_dft_r2c_1d;
    static constexpr auto plan_from_half = fftw_plan_dft_c2r_1d;
    static constexpr auto execute = fftw_execute;
    static constexpr auto destroy = fftw_destroy_plan;
};

/// Arrays with a plan that transforms one into the other. The copies of one object share them.
template <class T, class E>
class FftwTransform {
public:
    /// make_plan(source, result) may overwrite both.
    template <class MakePlan>
    FftwTransform(std::size_t sources, std::size_t results, MakePlan make_plan)
        : source_(std::make_shared<std::vector<E>>(sources)),
          result_(std::make_shared<std::vector<E>>(results)),
          plan_(make_plan(source_->data(), result_->data()), FftwNames<T>::destroy)
    {}

    const std::vector<E>& operator()(const std::vector<E>& x) const
    {
        std::copy_n(x.begin(), source_->size(), source_->begin());
        FftwNames<T>::execute(plan_.get());
        return *result_;
    }

private:
    std::shared_ptr<std::vector<E>> source_, result_;
    std::shared_ptr<typename FftwNames<T>::Plan> plan_;
};

/// effort is FFTW_ESTIMATE or FFTW_MEASURE. FFTW's half of a spectrum has the layout CCS.
template <class T>
Fft<T> fftw(int order, Direction direction, Kind kind, unsigned effort)
{
    using Names = FftwNames<T>;
    const auto theirs = [](auto* x) { return reinterpret_cast<typename Names::Complex*>(x); };
    const bool forward = direction == Direction::forward;
    const int n = 1 << order;
    const std::size_t length = std::size_t{1} << order;
    if (kind == Kind::complex) {
        using C = ComplexOf<T>;
        return FftwTransform<T, C>(length, length, [&](C* source, C* result) {
            return Names::plan_complex(n, theirs(source), theirs(result), forward ? FFTW_FORWARD : FFTW_BACKWARD,
                                       effort);
        });
    }
    const std::size_t half = packed_size(Layout::ccs, length);
    if (forward) {
        return of_real_signals<T>(direction, FftwTransform<T, T>(length, half, [&](T* source, T* result) {
                                      return Names::plan_to_half(n, source, theirs(result), effort);
                                  }));
    }
    return of_real_signals<T>(direction, FftwTransform<T, T>(half, length, [&](T* source, T* result) {
                                  return Names::plan_from_half(n, theirs(source), result, effort);
                              }));
}

} // namespace orvtest
