// Tells which frequencies a recording consists of: its averaged power spectrum, the strongest peaks, and a picture.
//
//     recording -> frames of 2^order samples -> spectrum of each frame -> mean of |X[k]|^2 over frames and channels
//
// The average of the spectra of short frames: P. D. Welch, "The use of fast Fourier transform for the estimation of
// power spectra" (1967). Frames are taken as they are, without a window.

#include <orvs/arith.h>
#include <orvs/frame.h>
#include <orvs/transform.h>

#include <sndfile.hh>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <csignal>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iomanip>
#include <memory>
#include <sstream>
#include <stdexcept>
#include <string>
#include <system_error>
#include <vector>

namespace {

constexpr int lowest_order = 5;
constexpr int highest_order = 20;
constexpr int printed_peaks = 5;

constexpr double lowest_db = -200; // what silence counts as
constexpr double drawn_db = 120;   // from the strongest level down

struct Options {
    std::string input = "/usr/share/sounds/alsa/Front_Center.wav";
    std::string output = "spectrum.png";
    int order = 12;
    bool overlap = false;
    bool help = false;
};

struct UsageError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

// ---- Command line

void print_help()
{
    const Options defaults;
    std::printf("Usage: spectrum [options] [recording]\n"
                "Prints the strongest peaks of a recording's averaged power spectrum and draws it with gnuplot.\n"
                "\n"
                "  -n ORDER      frames of 2^ORDER samples, ORDER from %d to %d, default %d\n"
                "  --overlap     each frame begins in the middle of the one before\n"
                "  -o FILE       picture, PNG, default %s\n"
                "  --help        this text\n"
                "\n"
                "Levels are those of sines: 0 dB is a sine of full scale. Frequencies lie rate / 2^ORDER apart; a\n"
                "sine between two of them shows up to 3 dB too low and a sixth of that distance off.\n"
                "Without a file name: %s\n",
                lowest_order, highest_order, defaults.order, defaults.output.c_str(), defaults.input.c_str());
}

int parse_order(const std::string& option, const char* text)
{
    char* end = nullptr;
    const long order = std::strtol(text, &end, 10);
    if (end == text || *end != '\0') throw UsageError(option + ": '" + text + "' is not a whole number");
    if (order < lowest_order || order > highest_order) {
        throw UsageError(option + ": '" + text + "' is outside the range of orders, " + std::to_string(lowest_order) +
                         " to " + std::to_string(highest_order));
    }
    return static_cast<int>(order);
}

Options parse_command_line(int argc, char** argv)
{
    Options options;
    std::vector<std::string> files;
    for (int i = 1; i < argc; i++) {
        const std::string option = argv[i];
        const auto value = [&] {
            if (++i == argc) throw UsageError(option + " needs a value");
            return argv[i];
        };
        if (option == "--help") options.help = true;
        else if (option == "--overlap") options.overlap = true;
        else if (option == "-n") options.order = parse_order(option, value());
        else if (option == "-o") options.output = value();
        else if (option[0] == '-') throw UsageError("unknown option " + option);
        else files.push_back(option);
    }
    if (files.size() == 1) options.input = files[0];
    else if (!files.empty()) throw UsageError("expected one recording or none, got " + std::to_string(files.size()));
    return options;
}

// ---- Files

SndfileHandle open_recording(const Options& options)
{
    const std::string& path = options.input;
    SndfileHandle file(path);
    if (file.error() != 0) throw std::runtime_error("cannot read '" + path + "': " + file.strError());
    if (file.frames() < 1 << options.order) {
        throw std::runtime_error("'" + path + "' holds " + std::to_string(file.frames()) + " samples, a frame " +
                                 std::to_string(1 << options.order) + ": a lower order makes shorter frames");
    }
    return file;
}

// Finds out what would go wrong in the end.
void prepare_picture(const Options& options)
{
    std::error_code absent; // of a picture that does not exist yet
    if (std::filesystem::equivalent(options.output, options.input, absent)) {
        throw std::runtime_error("the picture '" + options.output + "' would overwrite the recording");
    }
    if (std::system("gnuplot --version >/dev/null 2>&1") != 0) {
        throw std::runtime_error("gnuplot is missing, which draws the picture (Debian: gnuplot-nox)");
    }
    if (!std::ofstream(options.output)) throw std::runtime_error("cannot write '" + options.output + "'");
}

// ---- The spectrum

// Every function of the library reports by its status. Here anything but success ends the program.
void check(OrvStatus status, const char* function)
{
    if (status != orvOk)
        throw std::runtime_error(std::string(function) + " failed with status " + std::to_string(status));
}

struct FreeSpec {
    void operator()(OrvsFFTSpec_R_32f* spec) const { orvsFFTFree_R_32f(spec); }
};
using Spec = std::unique_ptr<OrvsFFTSpec_R_32f, FreeSpec>;

Spec make_spec(int order)
{
    OrvsFFTSpec_R_32f* spec = nullptr;
    check(orvsFFTInitAlloc_R_32f(&spec, order, ORV_FFT_SCALE_FWD, ORV_HINT_ANY), "orvsFFTInitAlloc_R_32f");
    return Spec(spec);
}

std::size_t work_size(const OrvsFFTSpec_R_32f* spec)
{
    Orv32s bytes = 0;
    check(orvsFFTGetBufSize_R_32f(spec, &bytes), "orvsFFTGetBufSize_R_32f");
    return static_cast<std::size_t>(bytes);
}

// The mean power at the frequencies k / frame_len of the sample rate, k = 0 ... frame_len / 2.
class MeanSpectrum {
public:
    explicit MeanSpectrum(int order)
        : frame_len(1 << order),
          spec(make_spec(order)),
          buffer(work_size(spec.get())),
          spectrum(static_cast<std::size_t>(frame_len) + 2),
          squares(spectrum.size())
    {}

    // Each complex value stands as two numbers, its parts, and the power is the sum of their squares: the squares are
    // summed up as they come.
    void add(const Orv32f* frame)
    {
        check(orvsFFTFwd_RToCCS_32f(frame, spectrum.data(), spec.get(), buffer.data()), "orvsFFTFwd_RToCCS_32f");
        check(orvsAddProduct_32f(spectrum.data(), spectrum.data(), squares.data(), frame_len + 2),
              "orvsAddProduct_32f");
        frames++;
    }

    // Half the amplitude of a sine stands at its frequency and half at the negative one; the first frequency and the
    // last have no such partner.
    std::vector<double> levels() const
    {
        std::vector<double> levels;
        for (std::size_t k = 0; k < squares.size(); k += 2) {
            const bool paired = k != 0 && k + 2 != squares.size();
            const double power = (double{squares[k]} + squares[k + 1]) * (paired ? 4 : 1) / frames;
            levels.push_back(std::max(lowest_db, 10 * std::log10(power)));
        }
        return levels;
    }

private:
    int frame_len;
    Spec spec;
    std::vector<Orv8u> buffer;
    std::vector<Orv32f> spectrum;
    std::vector<Orv32f> squares;
    double frames = 0;
};

struct Analysis {
    std::vector<double> levels;
    std::int64_t frames = 0;  // in each channel
    std::int64_t samples = 0; // that are in a frame, in each channel
    std::chrono::duration<double, std::micro> transforming{};
};

// What is left behind the last whole frame is left out.
Analysis analyse(SndfileHandle& file, const Options& options)
{
    const int channels = file.channels();
    const int len = 1 << options.order;
    const int step = options.overlap ? len / 2 : len;
    const auto width = static_cast<std::size_t>(channels);
    std::vector<Orv32f> block(static_cast<std::size_t>(len) * width); // a frame, its channels interleaved
    std::vector<Orv32f> frame(static_cast<std::size_t>(len));
    MeanSpectrum mean(options.order);

    Analysis analysis;
    int known = 0; // samples of the block that were in the previous one
    while (file.readf(&block[static_cast<std::size_t>(known) * width], len - known) == len - known) {
        for (std::size_t channel = 0; channel < width; channel++) {
            for (std::size_t i = 0; i < frame.size(); i++) frame[i] = block[i * width + channel];

            const auto start = std::chrono::steady_clock::now();
            mean.add(frame.data());
            analysis.transforming += std::chrono::steady_clock::now() - start;
        }
        analysis.frames++;
        analysis.samples += len - known;
        known = len - step;
        if (known > 0) {
            check(orvsCopy_32f(&block[static_cast<std::size_t>(step) * width], block.data(), known * channels),
                  "orvsCopy_32f");
        }
    }
    if (file.error() != 0) throw std::runtime_error("cannot read '" + options.input + "': " + file.strError());
    analysis.levels = mean.levels();
    return analysis;
}

struct Peak {
    double frequency;
    double level;
};

// The strongest that are drawn, in descending order. A peak lies at the vertex of the parabola through the highest
// level and both its neighbours.
std::vector<Peak> find_peaks(const std::vector<double>& levels, double spacing)
{
    std::vector<Peak> peaks;
    const double least = *std::max_element(levels.begin(), levels.end()) - drawn_db;
    for (std::size_t k = 1; k + 1 < levels.size(); k++) {
        const double before = levels[k - 1], level = levels[k], after = levels[k + 1];
        if (!(before < level && level >= after && level > least)) continue;
        const double offset = (before - after) / (before - 2 * level + after) / 2;
        peaks.push_back({(static_cast<double>(k) + offset) * spacing, level - (before - after) * offset / 4});
    }
    const auto stronger = [](const Peak& a, const Peak& b) { return a.level > b.level; };
    std::sort(peaks.begin(), peaks.end(), stronger);
    if (peaks.size() > printed_peaks) peaks.resize(printed_peaks);
    return peaks;
}

// ---- Picture

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

std::string script(const Options& options, const std::vector<double>& levels, const std::vector<Peak>& peaks,
                   double spacing)
{
    const auto [least, most] = std::minmax_element(levels.begin(), levels.end());
    std::ostringstream out;
    out << "set terminal pngcairo size 1200,600 noenhanced\n"
        << "set output " << quoted(options.output) << '\n'
        << "set title " << quoted(std::filesystem::path(options.input).filename().string()) << '\n'
        << "set xlabel 'Hz'\n"
        << "set ylabel 'dB of full scale'\n"
        << "set logscale x\n"
        << "set xrange [" << spacing << ':' << spacing * static_cast<double>(levels.size() - 1) << "]\n"
        << "set yrange [" << std::max(*least, *most - drawn_db) << ':' << *most + 5 << "]\n"
        << "set grid\n";
    out << std::fixed << std::setprecision(4) << "$spectrum << end\n";
    for (std::size_t k = 0; k < levels.size(); k++) out << static_cast<double>(k) * spacing << ' ' << levels[k] << '\n';
    out << "end\n$peaks << end\n";
    for (const Peak& peak : peaks) out << peak.frequency << ' ' << peak.level << '\n';
    out << "end\nplot $spectrum with lines notitle";
    if (!peaks.empty()) out << ", $peaks with points pointtype 6 pointsize 2 notitle";
    out << '\n';
    return out.str();
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

void draw(const Options& options, const std::string& script)
{
    std::signal(SIGPIPE, SIG_IGN); // should gnuplot end before it has read all, its exit status tells
    std::FILE* gnuplot = popen("gnuplot", "w");
    if (gnuplot == nullptr) throw std::runtime_error("cannot start gnuplot");
    std::fwrite(script.data(), 1, script.size(), gnuplot);
    if (pclose(gnuplot) != 0 || !is_whole_picture(options.output)) {
        throw std::runtime_error("gnuplot could not write '" + options.output + "'");
    }
}

// ---- Report

void print_report(const Options& options, SndfileHandle& file, const Analysis& analysis, const std::vector<Peak>& peaks,
                  double spacing)
{
    const int channels = file.channels();
    const int rate = file.samplerate();
    const double seconds = double(analysis.samples) / rate;
    std::printf("recording  %8.3f s  %s (%d Hz, %d channel%s)\n", double(file.frames()) / rate, options.input.c_str(),
                rate, channels, channels == 1 ? "" : "s");
    std::printf("frames     %8lld    of %d samples, frequencies %.2f Hz apart\n\n",
                static_cast<long long>(analysis.frames), 1 << options.order, spacing);
    for (const Peak& peak : peaks) {
        std::printf("peak       %11.2f Hz  %7.2f dB of full scale\n", peak.frequency, peak.level);
    }
    if (peaks.empty()) std::printf("no peaks\n");
    std::printf("processing %11.2f us per second of audio\n", analysis.transforming.count() / seconds);
}

int run(const Options& options)
{
    SndfileHandle file = open_recording(options);
    prepare_picture(options);

    const Analysis analysis = analyse(file, options);
    const double spacing = double(file.samplerate()) / (1 << options.order);
    const std::vector<Peak> peaks = find_peaks(analysis.levels, spacing);
    draw(options, script(options, analysis.levels, peaks, spacing));
    print_report(options, file, analysis, peaks, spacing);
    return EXIT_SUCCESS;
}

} // namespace

int main(int argc, char** argv)
{
    try {
        const Options options = parse_command_line(argc, argv);
        if (!options.help) return run(options);
        print_help();
        return EXIT_SUCCESS;
    } catch (const UsageError& error) {
        std::fprintf(stderr, "spectrum: %s\nTry 'spectrum --help'.\n", error.what());
        return 2;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "spectrum: %s\n", error.what());
        return EXIT_FAILURE;
    }
}
