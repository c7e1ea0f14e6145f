// The ideal filter of a band has endless taps, a difference of two sincs. A window makes them end; that of Kaiser gives
// the steepest edges, nearly, for a chosen attenuation.
//
// A. V. Oppenheim, R. W. Schafer, "Discrete-Time Signal Processing", chapter 7. J. F. Kaiser, "Nonrecursive digital
// filter design using the I0-sinh window function" (1974).

#include "band.h"

#include <cmath>
#include <sstream>
#include <stdexcept>

namespace {

constexpr double pi = 3.14159265358979323846;

// The modified Bessel function of the first kind and order 0: the sum of ((x / 2)^k / k!)^2.
double bessel_i0(double x)
{
    double sum = 0, term = 1;
    for (int k = 1; term > sum * 1e-17; k++) {
        sum += term;
        term *= (x / 2 / k) * (x / 2 / k);
    }
    return sum;
}

// Kaiser's formula for the parameter of the window.
double kaiser_beta(double stop_db)
{
    if (stop_db > 50) return 0.1102 * (stop_db - 8.7);
    return 0.5842 * std::pow(stop_db - 21, 0.4) + 0.07886 * (stop_db - 21);
}

// Tap k of the ideal low-pass, counted from the middle; the edge is in turns a sample.
double sinc(double edge, int k) { return k == 0 ? 2 * edge : std::sin(2 * pi * edge * k) / (pi * k); }

} // namespace

std::vector<Orv32f> design(const Band& band, int rate)
{
    if (band.high >= rate / 2.0) {
        std::ostringstream message;
        message << "the edge " << band.high << " Hz is not below half the rate, " << rate / 2.0 << " Hz";
        throw std::runtime_error(message.str());
    }
    const double low = band.low / rate, high = band.high / rate;
    const double center = low > 0 ? (low + high) / 2 : 0;
    const double beta = kaiser_beta(band.stop_db);
    const int middle = band.length / 2;
    std::vector<double> taps;
    double gain = 0; // at the center
    for (int k = -middle; k <= middle; k++) {
        const double place = double(k) / middle; // from -1 to 1
        const double window = bessel_i0(beta * std::sqrt(1 - place * place)) / bessel_i0(beta);
        taps.push_back((sinc(high, k) - sinc(low, k)) * window);
        gain += taps.back() * std::cos(2 * pi * center * k);
    }
    std::vector<Orv32f> rounded;
    for (const double tap : taps) rounded.push_back(static_cast<Orv32f>(tap / gain));
    return rounded;
}

double edge_width(const Band& band, int rate) { return (band.stop_db - 7.95) / 14.36 / (band.length - 1) * rate; }
