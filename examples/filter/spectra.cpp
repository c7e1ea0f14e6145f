// Spectra are averages of those of short frames, which overlap by half and lie under a Hann window: P. D. Welch, "The
// use of fast Fourier transform for the estimation of power spectra" (1967).

#include "spectra.h"
#include "check.h"

#include <orvs/arith.h>
#include <orvs/convert.h>

#include <algorithm>
#include <cmath>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iomanip>
#include <sstream>
#include <stdexcept>

namespace {

constexpr double lowest_db = -200; // what silence counts as
constexpr double drawn_db = 120;   // from the strongest level down

// As a string of gnuplot, where all characters but the quote stand for themselves. No string goes over a line's end.
std::string quoted(const std::string& text)
{
    std::string result = "'";
    for (const char c : text) {
        result += c == '\n' ? ' ' : c;
        if (c == '\'') result += c;
    }
    return result + "'";
}

// A PNG file ends with an empty chunk of this name and its check sum.
bool is_whole_picture(const std::string& path)
{
    const std::string end = "IEND\xae\x42\x60\x82";
    std::string found(end.size(), '\0');
    std::ifstream file(path, std::ios::binary);
    file.seekg(-static_cast<std::streamoff>(end.size()), std::ios::end);
    return file.read(&found[0], static_cast<std::streamsize>(found.size())) && found == end;
}

} // namespace

MeanSpectrum::MeanSpectrum() : window(frame_len), windowed(frame_len), spectrum(frame_len + 2)
{
    wide.resize(spectrum.size());
    squares.resize(spectrum.size());
    OrvsFFTSpec_R_32f* made = nullptr;
    check(orvsFFTInitAlloc_R_32f(&made, frame_order, ORV_FFT_SCALE_NONE, ORV_HINT_ANY), "orvsFFTInitAlloc_R_32f");
    spec.reset(made);
    Orv32s bytes = 0;
    check(orvsFFTGetBufSize_R_32f(made, &bytes), "orvsFFTGetBufSize_R_32f");
    buffer.resize(static_cast<std::size_t>(bytes));
    const double turn = 2 * std::acos(-1.0);
    for (std::size_t i = 0; i < window.size(); i++) {
        window[i] = static_cast<Orv32f>(0.5 - 0.5 * std::cos(turn * double(i) / frame_len));
    }
}

void MeanSpectrum::add(const Orv32f* samples, int len)
{
    frame.insert(frame.end(), samples, samples + len);
    while (frame.size() >= frame_len) add_frame();
}

// Each complex value stands as two numbers, its parts, and the power is the sum of their squares.
void MeanSpectrum::add_frame()
{
    const int len = static_cast<int>(spectrum.size());
    check(orvsMul_32f(frame.data(), window.data(), windowed.data(), frame_len), "orvsMul_32f");
    check(orvsFFTFwd_RToCCS_32f(windowed.data(), spectrum.data(), spec.get(), buffer.data()), "orvsFFTFwd_RToCCS_32f");
    check(orvsConvert_32f64f(spectrum.data(), wide.data(), len), "orvsConvert_32f64f");
    check(orvsAddProduct_64f(wide.data(), wide.data(), squares.data(), len), "orvsAddProduct_64f");
    frames++;
    frame.erase(frame.begin(), frame.begin() + frame_len / 2);
}

std::vector<double> MeanSpectrum::powers()
{
    const std::size_t known = frames > 0 ? frame_len / 2 : 0; // samples of the frame that were in the one before
    if (frame.size() > known) {
        frame.resize(frame_len);
        add_frame();
    }
    // By Parseval's theorem the sum over the spectrum of a frame is the energy of the frame times frame_len; the window
    // leaves 3/8 of it on average. A sine of full scale has a mean square of 1/2.
    const double unit = 0.5 * frames * frame_len * frame_len * 3 / 8;
    std::vector<double> powers;
    for (std::size_t k = 0; k < squares.size(); k += 2) {
        const bool paired = k != 0 && k + 2 != squares.size(); // with the negative frequency
        powers.push_back((squares[k] + squares[k + 1]) * (paired ? 2 : 1) / unit);
    }
    return powers;
}

std::vector<double> mean_powers(std::vector<MeanSpectrum>& channels)
{
    std::vector<double> mean(frame_len / 2 + 1);
    for (MeanSpectrum& channel : channels) {
        const std::vector<double> powers = channel.powers();
        for (std::size_t k = 0; k < mean.size(); k++) mean[k] += powers[k] / double(channels.size());
    }
    return mean;
}

double decibels(double power) { return power > 0 ? std::max(lowest_db, 10 * std::log10(power)) : lowest_db; }

std::vector<Octave> sum_octaves(const std::vector<double>& before, const std::vector<double>& after, int rate)
{
    const double highest = rate / 2.0;
    std::vector<Octave> octaves = {{0, std::min(125.0, highest), 0, 0}};
    for (std::size_t k = 0; k < before.size(); k++) {
        const double frequency = double(k) * rate / frame_len;
        while (frequency >= octaves.back().high && octaves.back().high < highest) {
            const double low = octaves.back().high;
            octaves.push_back({low, std::min(2 * low, highest), 0, 0});
        }
        octaves.back().before += before[k];
        octaves.back().after += after[k];
    }
    return octaves;
}

void draw(const std::string& picture, const std::string& title, const std::vector<double>& before,
          const std::vector<double>& after, int rate)
{
    if (std::system("gnuplot --version >/dev/null 2>&1") != 0) {
        throw std::runtime_error("no picture: gnuplot is missing, which draws it (Debian: gnuplot-nox)");
    }
    std::vector<double> levels; // before and after, of each frequency
    for (std::size_t k = 0; k < before.size(); k++) {
        levels.push_back(decibels(before[k]));
        levels.push_back(decibels(after[k]));
    }
    const auto [least, most] = std::minmax_element(levels.begin(), levels.end());
    const double spacing = double(rate) / frame_len;
    std::ostringstream script;
    script << "set terminal pngcairo size 1200,600 noenhanced\n"
           << "set output " << quoted(picture) << '\n'
           << "set title " << quoted(title) << '\n'
           << "set xlabel 'Hz'\n"
           << "set ylabel 'dB of full scale'\n"
           << "set logscale x\n"
           << "set xrange [" << spacing << ':' << rate / 2.0 << "]\n"
           << "set yrange [" << std::max(*least - 5, *most - drawn_db) << ':' << *most + 5 << "]\n"
           << "set grid\n"
           << "$spectra << end\n"
           << std::fixed << std::setprecision(4);
    for (std::size_t k = 0; k < before.size(); k++) {
        script << double(k) * spacing << ' ' << levels[2 * k] << ' ' << levels[2 * k + 1] << '\n';
    }
    script << "end\n"
           << "plot $spectra using 1:2 with lines linecolor 'gray60' title 'before', "
           << "$spectra using 1:3 with lines linecolor 'blue' title 'after'\n";

    std::signal(SIGPIPE, SIG_IGN); // should gnuplot end before it has read all, its exit status tells
    std::FILE* gnuplot = popen("gnuplot", "w");
    if (gnuplot == nullptr) throw std::runtime_error("no picture: cannot start gnuplot");
    const std::string text = script.str();
    std::fwrite(text.data(), 1, text.size(), gnuplot);
    if (pclose(gnuplot) != 0 || !is_whole_picture(picture)) {
        throw std::runtime_error("no picture: gnuplot could not write '" + picture + "'");
    }
}
