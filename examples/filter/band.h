#ifndef FILTER_BAND_H
#define FILTER_BAND_H

#include <orvs/types.h>

#include <vector>

// What a filter shall keep: the frequencies from low to high, in Hz. A low-pass has its lower edge at 0.
struct Band {
    double low, high;
    int length;     // number of taps, odd
    double stop_db; // attenuation of all other frequencies, 21 dB or more
};

// The taps of a filter with linear phase. At its edges it attenuates by half, 6 dB, and in the middle not at all.
std::vector<Orv32f> design(const Band& band, int rate);

// In Hz, from the end of what is kept to the beginning of what is attenuated as it should be; the edge is in the
// middle.
double edge_width(const Band& band, int rate);

#endif
