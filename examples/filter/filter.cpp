// Filters a recording as a live program would, block by block, and shows its spectrum before and after.
//
//     recording + noise -> blocks of 512 samples of each channel -> FIR filter -> WAV file
//
// 16-bit recordings are filtered as they are, with floating-point taps (orvsFIR32f_16s_Sfs): each sample of the output
// is rounded once. Taps of 16 bits (orvsFIR32s_16s_Sfs) would add errors of their own beyond the edges. All other
// recordings are filtered as floats (orvsFIR_32f).

#include "band.h"
#include "check.h"
#include "recordings.h"
#include "spectra.h"

#include <orvs/convert.h>
#include <orvs/fir.h>

#include <sndfile.hh>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <fstream>
#include <memory>
#include <sstream>
#include <stdexcept>
#include <string>
#include <unistd.h>
#include <vector>

namespace {

constexpr int block_len = 512; // samples of each channel; from this length on, long filters use the FFT

constexpr int longest_length = 65535;
constexpr int lowest_stop_db = 21;
constexpr int highest_stop_db = 120;
constexpr int lowest_noise_db = -84;
constexpr int highest_noise_db = 24;

struct Options {
    std::string input = "/usr/share/sounds/alsa/Front_Center.wav";
    std::string noise; // none, but the default recording has some
    std::string output = "filtered.wav";
    std::string before; // not written
    std::string picture = "filter.png";
    Band band = {300, 3400, 511, 60};
    std::vector<Orv32f> taps; // instead of those of the band
    double noise_db = -12;
    bool keep_delay = false;
    bool help = false;
};

constexpr const char* default_noise = "/usr/share/sounds/alsa/Noise.wav";

struct UsageError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

// ---- Command line

void print_help()
{
    const Options defaults;
    const Band& band = defaults.band;
    std::printf(
        "Usage: filter [options] [recording]\n"
        "Filters a recording with an FIR filter, writes it as a WAV file, prints what became of each octave, and\n"
        "draws the spectra before and after with gnuplot.\n"
        "\n"
        "The filter is one of these:\n"
        "  --bandpass LOW,HIGH   keeps the frequencies from LOW to HIGH Hz, default %g,%g\n"
        "  --lowpass HZ          keeps the frequencies up to HZ\n"
        "  --taps A,B,...        y[n] = A * x[n] + B * x[n-1] + ...\n"
        "  --taps-file FILE      the same, one number a line\n"
        "\n"
        "  --length N            taps of a band, an odd number: more make steeper edges, default %d\n"
        "  --stop DB             attenuation of all but the band, default %g\n"
        "  --noise FILE          a recording that is mixed in first\n"
        "  --noise-gain DB       its gain, default %g\n"
        "  --keep-delay          see below\n"
        "  -o FILE               filtered recording, default %s\n"
        "  --before FILE         also writes what goes into the filter\n"
        "  --picture FILE        spectra, PNG, default %s\n"
        "  --help                this text\n"
        "\n"
        "A filter of N symmetric taps, as that of a band, delays all frequencies by (N - 1) / 2 samples. The delay\n"
        "is taken back, and the output is in step with the recording. With --keep-delay it is what a listener\n"
        "hears live: it begins with the delay, and as much is missing in the end. It is also kept if the taps are\n"
        "not symmetric.\n"
        "Recordings of 16 and 24 bits keep their format, all others come out floating.\n"
        "Without a file name: %s\n"
        "         with noise: %s\n",
        band.low, band.high, band.length, band.stop_db, defaults.noise_db, defaults.output.c_str(),
        defaults.picture.c_str(), defaults.input.c_str(), default_noise);
}

template <class Error = UsageError>
double parse_number(const std::string& where, const std::string& text)
{
    char* end = nullptr;
    const double number = std::strtod(text.c_str(), &end);
    if (end == text.c_str() || *end != '\0') throw Error(where + ": '" + text + "' is not a number");
    if (!std::isfinite(static_cast<float>(number))) throw Error(where + ": '" + text + "' is out of range");
    return number;
}

std::vector<double> parse_list(const std::string& option, const std::string& text)
{
    std::vector<double> numbers;
    std::istringstream list(text + ',');
    for (std::string item; std::getline(list, item, ',');) numbers.push_back(parse_number(option, item));
    return numbers;
}

double parse_within(const std::string& option, const std::string& text, int least, int most, const char* what)
{
    const double number = parse_number(option, text);
    if (!(number >= least && number <= most)) {
        throw UsageError(option + ": '" + text + "' is outside the range of " + what + ", " + std::to_string(least) +
                         " to " + std::to_string(most));
    }
    return number;
}

int parse_length(const std::string& option, const std::string& text)
{
    const double length = parse_within(option, text, 3, longest_length, "lengths");
    if (std::fmod(length, 2) != 1) { // an even one would delay by half a sample
        throw UsageError(option + ": '" + text + "' is not an odd number");
    }
    return static_cast<int>(length);
}

void parse_band(const std::string& option, const std::string& text, Band& band)
{
    const std::vector<double> edges = parse_list(option, text);
    if (edges.size() != 2) throw UsageError(option + ": '" + text + "' is not a pair of frequencies");
    if (!(0 < edges[0] && edges[0] < edges[1])) throw UsageError(option + ": '" + text + "' is not an ascending pair");
    band.low = edges[0];
    band.high = edges[1];
}

void parse_edge(const std::string& option, const std::string& text, Band& band)
{
    band.low = 0;
    band.high = parse_number(option, text);
    if (!(band.high > 0)) throw UsageError(option + ": '" + text + "' is not above 0 Hz");
}

std::vector<Orv32f> parse_taps(const std::string& option, const std::string& text)
{
    std::vector<Orv32f> taps;
    for (const double tap : parse_list(option, text)) taps.push_back(static_cast<Orv32f>(tap));
    return taps;
}

std::vector<Orv32f> read_taps(const std::string& path)
{
    std::ifstream file(path);
    std::vector<Orv32f> taps;
    int number = 0;
    for (std::string line; std::getline(file, line);) {
        number++;
        line.erase(line.find_last_not_of(" \t\r") + 1);
        if (line.empty()) continue;
        taps.push_back(
            static_cast<Orv32f>(parse_number<std::runtime_error>(path + ":" + std::to_string(number), line)));
    }
    if (!file.eof()) throw std::runtime_error("cannot read '" + path + "'");
    if (taps.empty()) throw std::runtime_error("'" + path + "' holds no taps");
    return taps;
}

Options parse_command_line(int argc, char** argv)
{
    Options options;
    std::vector<std::string> files;
    int filters = 0;
    for (int i = 1; i < argc; i++) {
        const std::string option = argv[i];
        const auto value = [&] {
            if (++i == argc) throw UsageError(option + " needs a value");
            return std::string(argv[i]);
        };
        const auto within = [&](int least, int most, const char* what) {
            return parse_within(option, value(), least, most, what);
        };
        const bool is_filter =
            option == "--bandpass" || option == "--lowpass" || option == "--taps" || option == "--taps-file";
        if (is_filter && ++filters > 1) throw UsageError(option + ": there is a filter already");
        if (option == "--help") options.help = true;
        else if (option == "--bandpass") parse_band(option, value(), options.band);
        else if (option == "--lowpass") parse_edge(option, value(), options.band);
        else if (option == "--taps") options.taps = parse_taps(option, value());
        else if (option == "--taps-file") options.taps = read_taps(value());
        else if (option == "--length") options.band.length = parse_length(option, value());
        else if (option == "--stop") options.band.stop_db = within(lowest_stop_db, highest_stop_db, "attenuations");
        else if (option == "--noise") options.noise = value();
        else if (option == "--noise-gain") options.noise_db = within(lowest_noise_db, highest_noise_db, "gains");
        else if (option == "--keep-delay") options.keep_delay = true;
        else if (option == "-o") options.output = value();
        else if (option == "--before") options.before = value();
        else if (option == "--picture") options.picture = value();
        else if (option[0] == '-') throw UsageError("unknown option " + option);
        else files.push_back(option);
    }
    if (files.size() == 1) options.input = files[0];
    else if (!files.empty()) throw UsageError("expected one recording or none, got " + std::to_string(files.size()));
    else if (options.noise.empty()) options.noise = default_noise;
    return options;
}

// ---- The filter, as the library has it for each type of samples

using Record = std::unique_ptr<OrvsFIRState, OrvStatus (*)(OrvsFIRState*)>;

struct ShortFilter {
    using Sample = Orv16s;
    static constexpr const char* function = "orvsFIR32f_16s_Sfs";

    explicit ShortFilter(const std::vector<Orv32f>& taps)
    {
        OrvsFIRState* made = nullptr;
        check(orvsFIRInitAlloc32f_16s(&made, taps.data(), static_cast<int>(taps.size()), nullptr),
              "orvsFIRInitAlloc32f_16s");
        record.reset(made);
    }

    OrvStatus filter(const Sample* src, Sample* dst, int len) const
    {
        return orvsFIR32f_16s_Sfs(src, dst, len, record.get(), 0);
    }

    Record record{nullptr, orvsFIRFree32f_16s};
};

struct FloatFilter {
    using Sample = Orv32f;
    static constexpr const char* function = "orvsFIR_32f";

    explicit FloatFilter(const std::vector<Orv32f>& taps)
    {
        OrvsFIRState* made = nullptr;
        check(orvsFIRInitAlloc_32f(&made, taps.data(), static_cast<int>(taps.size()), nullptr), "orvsFIRInitAlloc_32f");
        record.reset(made);
    }

    // Not in place, where a single block as short as ours would go without the FFT.
    OrvStatus filter(const Sample* src, Sample* dst, int len) const { return orvsFIR_32f(src, dst, len, record.get()); }

    Record record{nullptr, orvsFIRFree_32f};
};

// How many samples later symmetric taps bring a sound out; of an even number half a sample stays. For other taps every
// frequency has a delay of its own, and 0 stands for that.
int common_delay(const std::vector<Orv32f>& taps)
{
    const auto opposite = [](Orv32f a, Orv32f b) { return a == -b; };
    const bool symmetric = std::equal(taps.begin(), taps.end(), taps.rbegin()) ||
                           std::equal(taps.begin(), taps.end(), taps.rbegin(), opposite);
    return symmetric ? static_cast<int>(taps.size() - 1) / 2 : 0;
}

// ---- From file to file

// On a terminal, how far a long recording has come.
class Progress {
public:
    explicit Progress(double seconds) : shown(seconds > 60 && isatty(STDERR_FILENO) != 0) {}
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;
    ~Progress()
    {
        if (percent >= 0) std::fputs("\r                \r", stderr);
    }

    void show(double part)
    {
        const int now = static_cast<int>(100 * part);
        if (!shown || now == percent) return;
        percent = now;
        std::fprintf(stderr, "\rfiltering %3d %%", percent);
    }

private:
    bool shown;
    int percent = -1;
};

struct Summary {
    const char* function = nullptr; // what was timed
    std::chrono::duration<double> filtering{};
    std::int64_t calls = 0;
    std::int64_t at_limit = 0;         // samples of the output that reach full scale
    std::vector<double> before, after; // mean spectra
};

// For the spectra.
const Orv32f* as_floats(const Orv32f* samples, std::vector<Orv32f>&) { return samples; }

const Orv32f* as_floats(const Orv16s* samples, std::vector<Orv32f>& floats)
{
    floats.resize(block_len);
    check(orvsConvert_16s32f_Sfs(samples, floats.data(), block_len, 15), "orvsConvert_16s32f_Sfs");
    return floats.data();
}

// The output begins behind the first `dropped` samples that come out of the filter, and is as long as the recording.
template <class Filter>
Summary filter_file(Input& input, Output& output, Output* copy, const std::vector<Orv32f>& taps, int dropped)
{
    const int width = input.file.channels();
    const auto channels = static_cast<std::size_t>(width);
    const sf_count_t frames = input.file.frames();
    std::vector<Filter> filters;
    for (std::size_t c = 0; c < channels; c++) filters.emplace_back(taps);
    std::vector<MeanSpectrum> before(channels), after(channels);
    std::vector<typename Filter::Sample> in(block_len), out(block_len);                // of one channel
    std::vector<typename Filter::Sample> block(block_len * channels), filtered(block); // of all, interleaved
    std::vector<Orv32f> floats;
    const auto within_block = [](sf_count_t place) { return std::clamp<sf_count_t>(place, 0, block_len); };

    Summary summary;
    summary.function = Filter::function;
    Progress progress(double(frames) / input.file.samplerate());
    for (sf_count_t begin = 0; begin < frames + dropped; begin += block_len) {
        input.read(block);
        const int known = static_cast<int>(within_block(frames - begin)); // the rest is silence
        const auto first = within_block(dropped - begin);                 // what of this block goes to the output
        const int wanted = static_cast<int>(within_block(frames + dropped - begin) - first);

        for (std::size_t c = 0; c < channels; c++) {
            for (std::size_t i = 0; i < block_len; i++) in[i] = block[i * channels + c];

            const auto start = std::chrono::steady_clock::now();
            check(filters[c].filter(in.data(), out.data(), block_len), Filter::function);
            summary.filtering += std::chrono::steady_clock::now() - start;
            summary.calls++;

            for (std::size_t i = 0; i < block_len; i++) filtered[i * channels + c] = out[i];
            before[c].add(as_floats(in.data(), floats), known);
            const Orv32f* x = as_floats(out.data(), floats) + first;
            after[c].add(x, wanted);
            summary.at_limit += std::count_if(x, x + wanted, [&](Orv32f y) { return y >= output.most() || y <= -1; });
        }
        if (copy != nullptr && known > 0) copy->write(block.data(), known * width);
        if (wanted > 0) output.write(filtered.data() + first * width, wanted * width);
        progress.show(double(begin) / double(frames + dropped));
    }
    summary.before = mean_powers(before);
    summary.after = mean_powers(after);
    return summary;
}

// ---- Report

std::string description(const Options& options, const std::vector<Orv32f>& taps, int rate)
{
    std::ostringstream text;
    text << taps.size() << (taps.size() == 1 ? " tap" : " taps");
    if (!options.taps.empty()) return text.str();
    const Band& band = options.band;
    if (band.low > 0) text << ", band-pass " << band.low << " to " << band.high;
    else text << ", low-pass to " << band.high;
    text << " Hz, edges " << std::lround(edge_width(band, rate)) << " Hz wide, attenuation " << band.stop_db << " dB";
    return text.str();
}

void print_report(const Options& options, const Input& input, const std::vector<Orv32f>& taps, const Summary& summary)
{
    const int width = input.file.channels();
    const int rate = input.file.samplerate();
    const double seconds = double(input.file.frames()) / rate;
    std::printf("recording  %.3f s  %s (%d Hz, %d channel%s)\n", seconds, options.input.c_str(), rate, width,
                width == 1 ? "" : "s");
    if (!options.noise.empty()) std::printf("noise      %+.2f dB  %s\n", options.noise_db, options.noise.c_str());
    std::printf("filter     %s\n", description(options, taps, rate).c_str());
    if (const int delay = common_delay(taps); delay > 0) {
        std::printf("delay      %d samples, %.2f ms, %s\n", delay, 1000.0 * delay / rate,
                    options.keep_delay ? "kept" : "taken back");
    }
    if (!options.before.empty()) std::printf("before     %s\n", options.before.c_str());
    std::printf("after      %s\n", options.output.c_str());
    if (summary.at_limit > 0) {
        std::printf("full scale reached by %lld of %lld samples\n", static_cast<long long>(summary.at_limit),
                    static_cast<long long>(input.file.frames() * width));
    }

    std::printf("\n            band          before        after       change\n");
    for (const Octave& octave : sum_octaves(summary.before, summary.after, rate)) {
        const double before = decibels(octave.before), after = decibels(octave.after);
        std::printf("%7g to %7g Hz  %7.1f dB  %8.1f dB  %+8.1f dB\n", octave.low, octave.high, before, after,
                    after - before);
    }
    std::printf("\nspeed      %.0f times real time: %lld calls of %s for %d samples each took %.2f ms\n"
                "           (the calls alone, without files and spectra)\n",
                seconds / summary.filtering.count(), static_cast<long long>(summary.calls), summary.function, block_len,
                1000 * summary.filtering.count());
    std::fflush(stdout);
}

std::string file_name(const std::string& path) { return std::filesystem::path(path).filename().string(); }

// The files are complete when this returns.
Summary filter_file(const Options& options, Input& input, const std::vector<Orv32f>& taps)
{
    Output output(options.output, input.file);
    std::unique_ptr<Output> copy;
    if (!options.before.empty()) copy = std::make_unique<Output>(options.before, input.file);
    const int dropped = options.keep_delay ? 0 : common_delay(taps);
    return input.is_short() ? filter_file<ShortFilter>(input, output, copy.get(), taps, dropped)
                            : filter_file<FloatFilter>(input, output, copy.get(), taps, dropped);
}

int run(const Options& options)
{
    Input input(options.input, options.noise, options.noise_db);
    const int rate = input.file.samplerate();
    const std::vector<Orv32f> taps = options.taps.empty() ? design(options.band, rate) : options.taps;
    require_apart({options.input, options.noise}, {options.output, options.before, options.picture});

    const Summary summary = filter_file(options, input, taps);
    print_report(options, input, taps, summary);
    std::string title = file_name(options.input);
    if (!options.noise.empty()) title += " + " + file_name(options.noise);
    title += ": " + description(options, taps, rate);
    draw(options.picture, title, summary.before, summary.after, rate);
    std::printf("picture    %s\n", options.picture.c_str());
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
        std::fprintf(stderr, "filter: %s\nTry 'filter --help'.\n", error.what());
        return 2;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "filter: %s\n", error.what());
        return EXIT_FAILURE;
    }
}
