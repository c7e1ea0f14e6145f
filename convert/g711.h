// The laws of ITU-T Recommendation G.711 as formulas on single values, for tables that the compiler computes.
//
// A code is a sign bit (set for positive values), three bits of segment and four of interval; both laws send some of
// the bits inverted. A segment has twice the step of the one before it.
#ifndef ORV_CONVERT_G711_H
#define ORV_CONVERT_G711_H

#include "simd/lanes.h"

namespace ORV_VARIANT {

struct ALaw {
    static constexpr int inverted = 0x55;  ///< every other bit of a code
    static constexpr int dropped_bits = 3; ///< of 16: linear values have 13

    /// The middle of a code's interval, in 16 bits.
    static constexpr int decoded(int code)
    {
        const int c = code ^ inverted, segment = c >> 4 & 7, interval = c & 15;
        const int magnitude = segment == 0 ? 16 * interval + 8 : (16 * interval + 264) << (segment - 1);
        return c & 0x80 ? magnitude : -magnitude;
    }
};

struct MuLaw {
    static constexpr int inverted = 0x7f;  ///< all bits but the sign
    static constexpr int dropped_bits = 2; ///< of 16: linear values have 14

    static constexpr int decoded(int code)
    {
        const int c = code ^ inverted, segment = c >> 4 & 7, interval = c & 15;
        const int magnitude = ((8 * interval + 132) << segment) - 132;
        return c & 0x80 ? magnitude : -magnitude;
    }
};

// ---- Between the laws
//
// The Recommendation tables these conversions, by the numbers of decoder output values. They are no nearest values:
// where the steps of the laws are alike, they keep the interval, so that a conversion there and back changes no bit but
// the last. The tables are runs, in which each number grows by 0, 1/2, 1 or 2.

/// The magnitude in A-law (segment and interval) for one in mu-law: Table 3/G.711.
constexpr int a_law_magnitude(int mu)
{
    if (mu < 16) return mu / 2;
    if (mu < 32) return mu - 8;
    if (mu < 36) return 2 * mu - 40;
    if (mu < 48) return mu - 4;
    if (mu < 50) return 2 * mu - 51;
    if (mu < 64) return mu - 2;
    if (mu < 80) return mu - 1;
    return mu;
}

/// The reverse: Table 4/G.711.
constexpr int mu_law_magnitude(int a)
{
    if (a < 8) return 2 * a + 1;
    if (a < 24) return a + 8;
    if (a < 32) return a / 2 + 20;
    if (a < 44) return a + 4;
    if (a < 48) return a / 2 + 26;
    if (a < 62) return a + 2;
    if (a < 64) return 64;
    if (a < 79) return a + 1;
    return a;
}

} // namespace ORV_VARIANT

#endif
