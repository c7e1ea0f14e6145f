// The error meter of transforms: how far a computed spectrum is from the exact one, as a whole.
//
//     const std::vector<Fft<float>> ffts = {...};         // transforms of length 2^order
//     const std::vector<double> errors = fft_errors<float>(ffts, order, Direction::forward, Kind::complex);
//
// The error is relative and of the whole result, |computed - exact| / |exact| with Euclidean norms (the square roots of
// the sums of squares), on white noise in [-1, 1]. Rounding errors of a fast transform are nearly independent and come
// in `order` stages, so this grows with the square root of the order (Gentleman, Sande: Fast Fourier transforms for fun
// and profit, 1966; Schatzman: Accuracy of the discrete Fourier transform and the fast Fourier transform, 1996). It is
// counted in units of eps sqrt(order), where eps is the spacing of the type at 1.
#pragma once

#include "tests/transform/real_fft.h"

#include <functional>

namespace orvtest {

/// A transform of complex values, without a factor.
template <class T>
using Fft = std::function<std::vector<ComplexOf<T>>(const std::vector<ComplexOf<T>>&)>;

/// One from real values to the half of their spectrum in the layout CCS, or back.
template <class T>
using HalfFft = std::function<std::vector<T>(const std::vector<T>&)>;

/// What the signal consists of. Noise for an inverse transform to real values has the symmetry of their spectrum.
enum class Kind { real, complex };

/// A transform of real signals as one of complex ones, whose imaginary parts or whose other half it does not look at.
template <class T>
Fft<T> of_real_signals(Direction direction, HalfFft<T> fft)
{
    using C = ComplexOf<T>;
    if (direction == Direction::forward) {
        return [fft](const std::vector<C>& x) {
            const std::vector<T> ccs = fft(real_parts(x));
            std::vector<C> spectrum(x.size());
            for (std::size_t k = 0; k <= x.size() / 2; ++k) {
                spectrum[(x.size() - k) % x.size()] = {ccs[2 * k], -ccs[2 * k + 1]};
                spectrum[k] = {ccs[2 * k], ccs[2 * k + 1]};
            }
            return spectrum;
        };
    }
    return [fft](const std::vector<C>& spectrum) {
        std::vector<C> x;
        for (const T value : fft(packed(Layout::ccs, spectrum, spectrum.size()))) x.push_back({value, 0});
        return x;
    };
}

/// The errors of some transforms on the same noise; infinite where a result is no number.
template <class T>
std::vector<double> fft_errors(const std::vector<Fft<T>>& ffts, int order, Direction direction, Kind kind);

extern template std::vector<double> fft_errors<float>(const std::vector<Fft<float>>&, int, Direction, Kind);
extern template std::vector<double> fft_errors<double>(const std::vector<Fft<double>>&, int, Direction, Kind);

} // namespace orvtest
