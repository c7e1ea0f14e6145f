// Converts a recording to another sample format: 16-bit, 24-bit, floating, or companded with A-law or mu-law.
//
//     recording -> block of its samples -> block of floats -> block of samples of the output -> WAV file
//
// Full scale of the floats in the middle is [-1, 1). They hold 24 bits, so that no integer but one of 32 bits is
// rounded on the way in.

#include <orvs/convert.h>

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
#include <stdexcept>
#include <string>
#include <system_error>
#include <vector>

namespace {

constexpr int block_frames = 4096;

struct Format {
    const char* name;
    int subtype; // the name that libsndfile has for it
};

constexpr Format formats[] = {
    {"s16", SF_FORMAT_PCM_16}, {"s24", SF_FORMAT_PCM_24}, {"float", SF_FORMAT_FLOAT},
    {"alaw", SF_FORMAT_ALAW},  {"mulaw", SF_FORMAT_ULAW},
};

struct Options {
    std::string input = "/usr/share/sounds/alsa/Front_Center.wav";
    std::string output = "convert.wav";
    int subtype = SF_FORMAT_ULAW;
    bool help = false;
};

struct UsageError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

// ---- Command line

void print_help()
{
    const Options defaults;
    std::printf("Usage: convert [options] [recording]\n"
                "Converts a recording to another sample format and writes it as a WAV file.\n"
                "\n"
                "  -f FORMAT     s16, s24, float, alaw or mulaw, default mulaw\n"
                "  -o FILE       output file, default %s\n"
                "  --help        this text\n"
                "\n"
                "Values beyond full scale, -1 <= x < 1, are counted. All formats but float limit them.\n"
                "Without a file name: %s\n",
                defaults.output.c_str(), defaults.input.c_str());
}

int parse_format(const std::string& option, const std::string& name)
{
    for (const Format& format : formats) {
        if (name == format.name) return format.subtype;
    }
    throw UsageError(option + ": '" + name + "' is none of the formats s16, s24, float, alaw and mulaw");
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
        else if (option == "-f") options.subtype = parse_format(option, value());
        else if (option == "-o") options.output = value();
        else if (option[0] == '-') throw UsageError("unknown option " + option);
        else files.push_back(option);
    }
    if (files.size() == 1) options.input = files[0];
    else if (!files.empty()) throw UsageError("expected one recording or none, got " + std::to_string(files.size()));
    return options;
}

// ---- Recordings

SndfileHandle open_recording(const std::string& path)
{
    SndfileHandle file(path);
    if (file.error() != 0) throw std::runtime_error("cannot read '" + path + "': " + file.strError());
    if (file.frames() < 1) throw std::runtime_error("'" + path + "' holds no samples");
    return file;
}

SndfileHandle create_output(const Options& options, int channels, int rate)
{
    std::error_code absent; // of an output that does not exist yet
    if (std::filesystem::equivalent(options.output, options.input, absent)) {
        throw std::runtime_error("the output '" + options.output + "' would overwrite the recording");
    }
    SndfileHandle file(options.output, SFM_WRITE, SF_FORMAT_WAV | options.subtype, channels, rate);
    if (file.error() != 0) throw std::runtime_error("cannot write '" + options.output + "': " + file.strError());
    return file;
}

int subtype_of(const SndfileHandle& file) { return file.format() & SF_FORMAT_SUBMASK; }

// ---- One block of samples

// Files take and give one of these, whichever suits their format; the library converts between it and the floats.
struct Block {
    explicit Block(std::size_t len) : bytes(3 * len), shorts(len), ints(len), floats(len) {}

    std::vector<Orv8u> bytes; // companded samples of one byte or packed samples of three, as they stand in the file
    std::vector<Orv16s> shorts;
    std::vector<Orv32s> ints;
    std::vector<Orv32f> floats;
};

// The next samples of the file, at most len; the result is their number. 8 and 24 bits are read as the upper bits of
// 16 and 32.
sf_count_t read(SndfileHandle& file, Block& block, int len)
{
    switch (subtype_of(file)) {
    case SF_FORMAT_PCM_S8:
    case SF_FORMAT_PCM_U8:
    case SF_FORMAT_PCM_16: return file.read(block.shorts.data(), len);
    case SF_FORMAT_PCM_24:
    case SF_FORMAT_PCM_32: return file.read(block.ints.data(), len);
    case SF_FORMAT_ALAW:
    case SF_FORMAT_ULAW: return file.readRaw(block.bytes.data(), len);
    default: return file.read(block.floats.data(), len);
    }
}

// What was read, to floats. Scales are powers of two: 15 divides by 2^15.
OrvStatus decode(int subtype, Block& block, int len)
{
    switch (subtype) {
    case SF_FORMAT_PCM_S8:
    case SF_FORMAT_PCM_U8:
    case SF_FORMAT_PCM_16: return orvsConvert_16s32f_Sfs(block.shorts.data(), block.floats.data(), len, 15);
    case SF_FORMAT_PCM_24:
    case SF_FORMAT_PCM_32: return orvsConvert_32s32f_Sfs(block.ints.data(), block.floats.data(), len, 31);
    case SF_FORMAT_ALAW: return orvsALawToLin_8u32f(block.bytes.data(), block.floats.data(), len);
    case SF_FORMAT_ULAW: return orvsMuLawToLin_8u32f(block.bytes.data(), block.floats.data(), len);
    default: return orvOk; // floats already
    }
}

// Floats to what is written: rounded to nearest, ties to even, and limited.
OrvStatus encode(int subtype, Block& block, int len)
{
    switch (subtype) {
    case SF_FORMAT_PCM_16:
        return orvsConvert_32f16s_Sfs(block.floats.data(), block.shorts.data(), len, orvRndNear, -15);
    case SF_FORMAT_PCM_24: return orvsConvert_32f24s_Sfs(block.floats.data(), block.bytes.data(), len, -23);
    case SF_FORMAT_ALAW: return orvsLinToALaw_32f8u(block.floats.data(), block.bytes.data(), len);
    case SF_FORMAT_ULAW: return orvsLinToMuLaw_32f8u(block.floats.data(), block.bytes.data(), len);
    default: return orvOk; // floats still
    }
}

// The result is the number of samples written.
sf_count_t write(SndfileHandle& file, const Block& block, int len)
{
    switch (subtype_of(file)) {
    case SF_FORMAT_PCM_16: return file.write(block.shorts.data(), len);
    case SF_FORMAT_PCM_24: return file.writeRaw(block.bytes.data(), sf_count_t{3} * len) / 3;
    case SF_FORMAT_ALAW:
    case SF_FORMAT_ULAW: return file.writeRaw(block.bytes.data(), len);
    default: return file.write(block.floats.data(), len);
    }
}

// ---- Conversion

// Every function of the library reports by its status. Here anything but success ends the program.
void check(OrvStatus status, const char* step)
{
    if (status != orvOk) throw std::runtime_error(std::string(step) + " failed with status " + std::to_string(status));
}

struct Summary {
    std::int64_t samples = 0;
    std::int64_t beyond = 0; // full scale
    float peak = 0;
    std::chrono::duration<double, std::micro> converting{};
};

void summarize(const Orv32f* x, int len, Summary& summary)
{
    for (int i = 0; i < len; i++) {
        if (!(x[i] >= -1 && x[i] < 1)) summary.beyond++;
        summary.peak = std::max(summary.peak, std::abs(x[i]));
    }
    summary.samples += len;
}

Summary convert_file(SndfileHandle& input, SndfileHandle& output)
{
    Summary summary;
    const int max_len = block_frames * input.channels();
    Block block(static_cast<std::size_t>(max_len));
    while (const int len = static_cast<int>(read(input, block, max_len))) {
        const auto start = std::chrono::steady_clock::now();
        check(decode(subtype_of(input), block, len), "decoding");
        check(encode(subtype_of(output), block, len), "encoding");
        summary.converting += std::chrono::steady_clock::now() - start;

        summarize(block.floats.data(), len, summary);
        if (write(output, block, len) != len) {
            throw std::runtime_error(std::string("cannot write the output: ") + output.strError());
        }
    }
    if (input.error() != 0) throw std::runtime_error(std::string("cannot read the recording: ") + input.strError());
    return summary;
}

// ---- Report

std::string format_name(SndfileHandle& file)
{
    SF_FORMAT_INFO info{};
    info.format = subtype_of(file);
    return file.command(SFC_GET_FORMAT_INFO, &info, sizeof info) == 0 && info.name != nullptr ? info.name : "unknown";
}

void print_report(const Options& options, SndfileHandle& input, SndfileHandle& output, const Summary& summary)
{
    const int channels = input.channels();
    const int rate = input.samplerate();
    const double seconds = double(summary.samples) / channels / rate;
    std::printf("          length  format              file\n");
    std::printf("input   %8.3f s  %-18s  %s\n", double(input.frames()) / rate, format_name(input).c_str(),
                options.input.c_str());
    std::printf("output  %8.3f s  %-18s  %s (%d Hz, %d channel%s)\n\n", seconds, format_name(output).c_str(),
                options.output.c_str(), rate, channels, channels == 1 ? "" : "s");
    std::printf("peak               %9.6f    %.2f dB of full scale\n", summary.peak, 20 * std::log10(summary.peak));
    std::printf("beyond full scale  %9lld    of %lld%s\n", static_cast<long long>(summary.beyond),
                static_cast<long long>(summary.samples),
                subtype_of(output) == SF_FORMAT_FLOAT ? ", kept" : ", clipped");
    std::printf("processing         %9.2f us per second of audio\n", summary.converting.count() / seconds);
}

int run(const Options& options)
{
    SndfileHandle input = open_recording(options.input);
    SndfileHandle output = create_output(options, input.channels(), input.samplerate());

    const Summary summary = convert_file(input, output);
    print_report(options, input, output, summary);
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
        std::fprintf(stderr, "convert: %s\nTry 'convert --help'.\n", error.what());
        return 2;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "convert: %s\n", error.what());
        return EXIT_FAILURE;
    }
}
