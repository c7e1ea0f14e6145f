// Mixes two 16-bit recordings, speech and noise, in fixed point from the first sample to the last.
//
//     mix = limit(limit(speech * gain1) + limit(noise * gain2))
//
// Products are rounded once, to nearest with ties to even, and limit() keeps a value within 16 bits.

#include <orvs/arith.h>
#include <orvs/frame.h>

#include <sndfile.hh>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string>
#include <system_error>
#include <vector>

namespace {

constexpr int block_frames = 4096;

// A gain is a 16-bit number with 14 bits after the point (Q14): 16384 is 0 dB, 32690 is 6 dB, and 1 is -84 dB.
constexpr int gain_fraction_bits = 14;
constexpr int lowest_gain_db = -84;
constexpr int highest_gain_db = 6;

struct Options {
    std::string speech = "/usr/share/sounds/alsa/Front_Center.wav";
    std::string noise = "/usr/share/sounds/alsa/Noise.wav";
    std::string output = "mix.wav";
    double speech_db = 0;
    double noise_db = -12;
    bool help = false;
};

struct UsageError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

// ---- Command line

void print_help()
{
    const Options defaults;
    std::printf("Usage: mix [options] [speech.wav noise.wav]\n"
                "Mixes two 16-bit recordings of the same rate and channel count into a 16-bit WAV file.\n"
                "\n"
                "  -o FILE       output file, default %s\n"
                "  --gain1 DB    gain of the first recording, default %g dB\n"
                "  --gain2 DB    gain of the second recording, default %g dB\n"
                "  --help        this text\n"
                "\n"
                "Gains are held in 16 bits, 14 of them after the point: from %d to %d dB, in steps of 1/16384.\n"
                "The shorter recording is followed by silence. What exceeds 16 bits is limited and counted.\n"
                "Without file names: %s\n"
                "               and: %s\n",
                defaults.output.c_str(), defaults.speech_db, defaults.noise_db, lowest_gain_db, highest_gain_db,
                defaults.speech.c_str(), defaults.noise.c_str());
}

double parse_gain(const std::string& option, const char* text)
{
    char* end = nullptr;
    const double db = std::strtod(text, &end);
    if (end == text || *end != '\0') throw UsageError(option + ": '" + text + "' is not a number");
    if (!(db >= lowest_gain_db && db <= highest_gain_db)) {
        throw UsageError(option + ": '" + text + "' is outside the range of gains, " + std::to_string(lowest_gain_db) +
                         " to " + std::to_string(highest_gain_db) + " dB");
    }
    return db;
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
        else if (option == "-o") options.output = value();
        else if (option == "--gain1") options.speech_db = parse_gain(option, value());
        else if (option == "--gain2") options.noise_db = parse_gain(option, value());
        else if (option[0] == '-') throw UsageError("unknown option " + option);
        else files.push_back(option);
    }
    if (files.size() == 2) {
        options.speech = files[0];
        options.noise = files[1];
    } else if (!files.empty()) {
        throw UsageError("expected two recordings or none, got " + std::to_string(files.size()));
    }
    return options;
}

// ---- Recordings

// Every function of the library reports by its status. Here anything but success ends the program.
void check(OrvStatus status, const char* function)
{
    if (status != orvOk)
        throw std::runtime_error(std::string(function) + " failed with status " + std::to_string(status));
}

struct FreeSamples {
    void operator()(Orv16s* samples) const { orvsFree(samples); }
};
using Samples = std::unique_ptr<Orv16s[], FreeSamples>;

Samples allocate(int len)
{
    Samples samples(orvsMalloc_16s(len));
    if (!samples) throw std::runtime_error("out of memory");
    return samples;
}

SndfileHandle open_recording(const std::string& path)
{
    SndfileHandle file(path);
    if (file.error() != 0) throw std::runtime_error("cannot read '" + path + "': " + file.strError());
    if ((file.format() & SF_FORMAT_SUBMASK) != SF_FORMAT_PCM_16) {
        throw std::runtime_error("'" + path + "' is not a 16-bit PCM recording");
    }
    if (file.frames() < 1) throw std::runtime_error("'" + path + "' holds no samples");
    return file;
}

void require_equal(const char* what, int speech, int noise)
{
    if (speech != noise) {
        throw std::runtime_error(std::string("the recordings differ in ") + what + ": " + std::to_string(speech) +
                                 " and " + std::to_string(noise));
    }
}

SndfileHandle create_output(const Options& options, int channels, int rate)
{
    for (const std::string& input : {options.speech, options.noise}) {
        std::error_code absent; // of an output that does not exist yet
        if (std::filesystem::equivalent(options.output, input, absent)) {
            throw std::runtime_error("the output '" + options.output + "' would overwrite a recording");
        }
    }
    SndfileHandle file(options.output, SFM_WRITE, SF_FORMAT_WAV | SF_FORMAT_PCM_16, channels, rate);
    if (file.error() != 0) throw std::runtime_error("cannot write '" + options.output + "': " + file.strError());
    return file;
}

// One input of the mixer: a recording, its gain, and one block of both.
struct Input {
    Input(const std::string& name, double gain_db)
        : path(name),
          file(open_recording(path)),
          gain(static_cast<Orv16s>(std::lround(std::pow(10, gain_db / 20) * (1 << gain_fraction_bits)))),
          block_len(block_frames * file.channels()),
          block(allocate(block_len)),
          gains(allocate(block_len))
    {
        check(orvsSet_16s(gain, gains.get(), block_len), "orvsSet_16s");
    }

    // The next len samples of the recording, continued by silence.
    void read(int len)
    {
        const int got = static_cast<int>(file.read(block.get(), len));
        if (file.error() != 0) throw std::runtime_error("cannot read '" + path + "': " + file.strError());
        if (got < len) check(orvsZero_16s(block.get() + got, len - got), "orvsZero_16s");
    }

    // dst = limit(block * gain)
    void apply_gain(Orv16s* dst, int len) const
    {
        check(orvsZero_16s(dst, len), "orvsZero_16s");
        check(orvsAddProduct_16s_Sfs(block.get(), gains.get(), dst, len, gain_fraction_bits), "orvsAddProduct_16s_Sfs");
    }

    std::string path;
    SndfileHandle file;
    Orv16s gain;
    int block_len;
    Samples block;
    Samples gains; // the product is one of vectors, so the gain is a vector too
};

// ---- Mixing

struct Summary {
    std::int64_t samples = 0;
    std::int64_t clipped = 0;
    int peak = 0;
    std::chrono::duration<double, std::micro> mixing{};
};

// mix = limit(limit(speech * gain1) + limit(noise * gain2)); scaled is scratch memory.
void mix_block(const Input& speech, const Input& noise, Orv16s* mix, Orv16s* scaled, int len)
{
    speech.apply_gain(mix, len);
    noise.apply_gain(scaled, len);
    check(orvsAdd_16s_I(scaled, mix, len), "orvsAdd_16s_I");
}

// sample * gain, rounded as in the mix but not limited
long unlimited(Orv16s sample, Orv16s gain) { return std::lrint(std::ldexp(sample * gain, -gain_fraction_bits)); }

// A sample is clipped where limiting, of a product or of the sum, changed the result.
void summarize(const Input& speech, const Input& noise, const Orv16s* mix, int len, Summary& summary)
{
    const Orv16s* x1 = speech.block.get();
    const Orv16s* x2 = noise.block.get();
    for (int i = 0; i < len; i++) {
        const long sum = unlimited(x1[i], speech.gain) + unlimited(x2[i], noise.gain);
        if (mix[i] != sum) summary.clipped++;
        summary.peak = std::max(summary.peak, std::abs(int{mix[i]}));
    }
    summary.samples += len;
}

Summary mix_files(Input& speech, Input& noise, SndfileHandle& output)
{
    Summary summary;
    const Samples mix = allocate(speech.block_len);
    const Samples scaled = allocate(speech.block_len);
    const std::int64_t total = std::max(speech.file.frames(), noise.file.frames()) * output.channels();
    while (summary.samples < total) {
        const int len = static_cast<int>(std::min<std::int64_t>(speech.block_len, total - summary.samples));
        speech.read(len);
        noise.read(len);

        const auto start = std::chrono::steady_clock::now();
        mix_block(speech, noise, mix.get(), scaled.get(), len);
        summary.mixing += std::chrono::steady_clock::now() - start;

        summarize(speech, noise, mix.get(), len, summary);
        if (output.write(mix.get(), len) != len) {
            throw std::runtime_error(std::string("cannot write the output: ") + output.strError());
        }
    }
    return summary;
}

// ---- Report

double decibels(double ratio) { return 20 * std::log10(ratio); }

void print_input(const char* name, const Input& input)
{
    std::printf("%-6s  %8.3f s  %+8.2f dB  %s\n", name, double(input.file.frames()) / input.file.samplerate(),
                decibels(std::ldexp(input.gain, -gain_fraction_bits)), input.path.c_str());
}

void print_report(const std::string& output, const Input& speech, const Input& noise, const Summary& summary)
{
    const int channels = speech.file.channels();
    const int rate = speech.file.samplerate();
    const double seconds = double(summary.samples) / channels / rate;
    std::printf("          length         gain  file\n");
    print_input("speech", speech);
    print_input("noise", noise);
    std::printf("mix     %8.3f s               %s (%d Hz, %d channel%s)\n\n", seconds, output.c_str(), rate, channels,
                channels == 1 ? "" : "s");
    std::printf("peak             %9d    %.2f dB of full scale\n", summary.peak, decibels(summary.peak / 32768.0));
    std::printf("clipped samples  %9lld    of %lld\n", static_cast<long long>(summary.clipped),
                static_cast<long long>(summary.samples));
    std::printf("processing       %9.2f us per second of audio\n", summary.mixing.count() / seconds);
}

int run(const Options& options)
{
    Input speech(options.speech, options.speech_db);
    Input noise(options.noise, options.noise_db);
    require_equal("sample rate", speech.file.samplerate(), noise.file.samplerate());
    require_equal("channel count", speech.file.channels(), noise.file.channels());
    SndfileHandle output = create_output(options, speech.file.channels(), speech.file.samplerate());

    const Summary summary = mix_files(speech, noise, output);
    print_report(options.output, speech, noise, summary);
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
        std::fprintf(stderr, "mix: %s\nTry 'mix --help'.\n", error.what());
        return 2;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "mix: %s\n", error.what());
        return EXIT_FAILURE;
    }
}
