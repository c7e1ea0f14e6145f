#ifndef FILTER_RECORDINGS_H
#define FILTER_RECORDINGS_H

#include <orvs/types.h>

#include <sndfile.hh>

#include <string>
#include <vector>

// A recording with noise mixed in, if there is some; both are continued by silence, and end with the recording.
class Input {
public:
    Input(const std::string& recording, const std::string& noise_path, double noise_db);

    // 16-bit recordings are read as they are, all others as floats; full scale of floats is [-1, 1).
    bool is_short() const { return (file.format() & SF_FORMAT_SUBMASK) == SF_FORMAT_PCM_16; }

    // Fills the block; channels are interleaved.
    void read(std::vector<Orv16s>& block);
    void read(std::vector<Orv32f>& block);

    SndfileHandle file;

private:
    void read_noise(std::size_t len);

    SndfileHandle noise;
    Orv32f noise_gain;
    std::vector<Orv32f> scaled_noise;
    std::vector<Orv16s> rounded_noise;
};

// A WAV file, 16 or 24 bits if the recording has them, otherwise of floats.
class Output {
public:
    Output(const std::string& path, SndfileHandle& recording);

    void write(const Orv16s* samples, int len);
    void write(const Orv32f* samples, int len);

    // The greatest value in the file, as a float.
    Orv32f most() const;

private:
    int subtype;
    SndfileHandle file;
    std::vector<Orv8u> packed;
};

// Nothing that is read, and no other output, may be overwritten. An empty name stands for no file.
void require_apart(const std::vector<std::string>& inputs, const std::vector<std::string>& outputs);

#endif
