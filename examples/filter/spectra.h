#ifndef FILTER_SPECTRA_H
#define FILTER_SPECTRA_H

#include <orvs/transform.h>

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

constexpr int frame_order = 12;
constexpr int frame_len = 1 << frame_order;

// The mean power of a stream at the frequencies k / frame_len of the rate, k = 0 ... frame_len / 2.
class MeanSpectrum {
public:
    MeanSpectrum();

    void add(const Orv32f* samples, int len);

    // In units of a sine of full scale. Silence completes the last frame.
    std::vector<double> powers();

private:
    void add_frame();

    std::unique_ptr<OrvsFFTSpec_R_32f, OrvStatus (*)(OrvsFFTSpec_R_32f*)> spec{nullptr, orvsFFTFree_R_32f};
    std::vector<Orv8u> buffer;
    std::vector<Orv32f> frame, window, windowed, spectrum;
    std::vector<Orv64f> wide, squares;
    double frames = 0;
};

// Over all channels.
std::vector<double> mean_powers(std::vector<MeanSpectrum>& channels);

double decibels(double power);

// What became of the frequencies from low to high.
struct Octave {
    double low, high;     // Hz
    double before, after; // power
};

// Octaves from 125 Hz up; the first of the list is all below, the last ends at half the rate.
std::vector<Octave> sum_octaves(const std::vector<double>& before, const std::vector<double>& after, int rate);

void draw(const std::string& picture, const std::string& title, const std::vector<double>& before,
          const std::vector<double>& after, int rate);

#endif
