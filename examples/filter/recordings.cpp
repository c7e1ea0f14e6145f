#include "recordings.h"
#include "check.h"

#include <orvs/arith.h>
#include <orvs/convert.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <filesystem>
#include <stdexcept>
#include <system_error>

namespace {

SndfileHandle open_recording(const std::string& path)
{
    SndfileHandle file(path);
    if (file.error() != 0) throw std::runtime_error("cannot read '" + path + "': " + file.strError());
    if (file.frames() < 1) throw std::runtime_error("'" + path + "' holds no samples");
    return file;
}

void require_equal(const char* what, int recording, int noise)
{
    if (recording != noise) {
        throw std::runtime_error(std::string("recording and noise differ in ") + what + ": " +
                                 std::to_string(recording) + " and " + std::to_string(noise));
    }
}

// The next samples of the file, at most as many as the block has; silence follows them. The result is their number.
template <class Sample>
int read_block(SndfileHandle& file, std::vector<Sample>& block)
{
    const sf_count_t got = file.read(block.data(), static_cast<sf_count_t>(block.size()));
    if (file.error() != 0) throw std::runtime_error(std::string("cannot read a recording: ") + file.strError());
    std::fill(block.begin() + got, block.end(), Sample{});
    return static_cast<int>(got);
}

void require_written(SndfileHandle& file, sf_count_t written, sf_count_t len)
{
    if (written != len) throw std::runtime_error(std::string("cannot write the output: ") + file.strError());
}

} // namespace

Input::Input(const std::string& recording, const std::string& noise_path, double noise_db)
    : file(open_recording(recording)), noise_gain(static_cast<Orv32f>(std::pow(10, noise_db / 20)))
{
    if (noise_path.empty()) return;
    noise = open_recording(noise_path);
    require_equal("sample rate", file.samplerate(), noise.samplerate());
    require_equal("channel count", file.channels(), noise.channels());
}

void Input::read(std::vector<Orv16s>& block)
{
    const int len = read_block(file, block);
    if (!noise || len == 0) return;
    read_noise(block.size());
    rounded_noise.resize(block.size());
    check(orvsConvert_32f16s_Sfs(scaled_noise.data(), rounded_noise.data(), len, orvRndNear, -15),
          "orvsConvert_32f16s_Sfs");
    check(orvsAdd_16s_I(rounded_noise.data(), block.data(), len), "orvsAdd_16s_I");
}

void Input::read(std::vector<Orv32f>& block)
{
    const int len = read_block(file, block);
    if (!noise || len == 0) return;
    read_noise(block.size());
    check(orvsAdd_32f_I(scaled_noise.data(), block.data(), len), "orvsAdd_32f_I");
}

void Input::read_noise(std::size_t len)
{
    scaled_noise.resize(len);
    read_block(noise, scaled_noise);
    check(orvsMulC_32f_I(noise_gain, scaled_noise.data(), static_cast<int>(len)), "orvsMulC_32f_I");
}

Output::Output(const std::string& path, SndfileHandle& recording) : subtype(recording.format() & SF_FORMAT_SUBMASK)
{
    if (subtype != SF_FORMAT_PCM_16 && subtype != SF_FORMAT_PCM_24) subtype = SF_FORMAT_FLOAT;
    file = SndfileHandle(path, SFM_WRITE, SF_FORMAT_WAV | subtype, recording.channels(), recording.samplerate());
    if (file.error() != 0) throw std::runtime_error("cannot write '" + path + "': " + file.strError());
}

void Output::write(const Orv16s* samples, int len) { require_written(file, file.write(samples, len), len); }

// To 24 bits the library converts, which rounds to nearest and limits, and the file takes the bytes as they are.
void Output::write(const Orv32f* samples, int len)
{
    if (subtype == SF_FORMAT_FLOAT) return require_written(file, file.write(samples, len), len);
    packed.resize(3 * static_cast<std::size_t>(len));
    check(orvsConvert_32f24s_Sfs(samples, packed.data(), len, -23), "orvsConvert_32f24s_Sfs");
    const auto bytes = static_cast<sf_count_t>(packed.size());
    require_written(file, file.writeRaw(packed.data(), bytes), bytes);
}

Orv32f Output::most() const
{
    switch (subtype) {
    case SF_FORMAT_PCM_16: return 1 - 1.0f / (1 << 15);
    case SF_FORMAT_PCM_24: return 1 - 1.0f / (1 << 23);
    default: return 1;
    }
}

void require_apart(const std::vector<std::string>& inputs, const std::vector<std::string>& outputs)
{
    std::vector<std::string> others = inputs;
    for (const std::string& output : outputs) {
        if (output.empty()) continue;
        for (const std::string& other : others) {
            std::error_code absent; // of a file that does not exist yet
            if (output == other || std::filesystem::equivalent(output, other, absent)) {
                throw std::runtime_error("the output '" + output + "' would overwrite '" + other + "'");
            }
        }
        others.push_back(output);
    }
}
