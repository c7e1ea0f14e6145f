#include "fft_meter.h"

namespace orvtest {
namespace {

/// Short transforms are measured on several signals, of so many values in all: the error found is then certain to about
/// a hundredth.
constexpr std::size_t values_in_all = 1 << 16;

template <class T>
std::vector<ComplexOf<T>> noise_to_transform(Random& random, std::size_t n, Direction direction, Kind kind)
{
    constexpr int all_bits = 63; // even small values have all digits of T
    std::vector<ComplexOf<T>> x(n);
    for (ComplexOf<T>& value : x) value = {noise_value<T>(random, all_bits), noise_value<T>(random, all_bits)};
    if (kind == Kind::complex) return x;
    if (direction == Direction::forward) {
        for (ComplexOf<T>& value : x) value.im = 0;
    } else {
        for (std::size_t k = 1; k < n / 2; ++k) x[n - k] = {x[k].re, -x[k].im};
        x[0].im = x[n / 2].im = 0;
    }
    return x;
}

LongSignal exact_transform(LongSignal x, Direction direction)
{
    if (direction == Direction::forward) return spectrum(x);
    for (LongComplex& value : x) value = conjugated(value);
    LongSignal result = spectrum(x);
    for (LongComplex& value : result) value = conjugated(value);
    return result;
}

} // namespace

template <class T>
std::vector<double> fft_errors(const std::vector<Fft<T>>& ffts, int order, Direction direction, Kind kind)
{
    const std::size_t n = std::size_t{1} << order;
    Random random(seed_of("fft_errors", n));
    std::vector<Deviation> deviations(ffts.size());
    for (std::size_t measured = 0; measured < values_in_all; measured += n) {
        const std::vector<ComplexOf<T>> x = noise_to_transform<T>(random, n, direction, kind);
        const LongSignal exact = exact_transform(widened(x), direction);
        for (std::size_t i = 0; i < ffts.size(); ++i) deviations[i].add(values_of(ffts[i](x)), exact);
    }

    std::vector<double> errors;
    for (const Deviation& deviation : deviations) {
        const double error = deviation.rms() / (std::numeric_limits<T>::epsilon() * std::sqrt(order));
        errors.push_back(std::isnan(error) ? std::numeric_limits<double>::infinity() : error);
    }
    return errors;
}

template std::vector<double> fft_errors<float>(const std::vector<Fft<float>>&, int, Direction, Kind);
template std::vector<double> fft_errors<double>(const std::vector<Fft<double>>&, int, Direction, Kind);

} // namespace orvtest
