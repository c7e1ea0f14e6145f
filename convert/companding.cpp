// A-law and mu-law.
//
// Both laws are piecewise linear, and arithmetic on whole vectors is several times faster than tables. To decode: in a
// segment, the value is linear in the interval, and the segment's two coefficients come from the upper half of the
// code. To encode: a code is a small floating-point number, and the processor makes floating-point numbers.
#include "orvs/convert.h"

#include "convert/full_scale.h"
#include "convert/g711.h"
#include "frame/blocks.h"
#include "frame/checks.h"
#include "frame/float_state.h"
#include "frame/map.h"
#include "simd/lanes.h"
#include "simd/saturate.h"

using namespace ORV_VARIANT;

namespace {

// ---- Decoding

/// The values of the codes h * 16 + i are step * (i ^ inverted) + base, for the sixteen upper halves h.
struct DecodingLines {
    byte_pattern step_low, step_high, base_low, base_high;
};
template <class Law>
constexpr DecodingLines decoding_lines = [] {
    DecodingLines lines = {};
    for (int h = 0; h < 16; ++h) {
        const int first = 16 * h + Law::inverted % 16; // the one whose interval is 0 behind the inversion
        const int base = Law::decoded(first), step = Law::decoded(first ^ 1) - base;
        lines.step_low.byte[h] = Orv8u(step & 0xff), lines.step_high.byte[h] = Orv8u(step >> 8 & 0xff);
        lines.base_low.byte[h] = Orv8u(base & 0xff), lines.base_high.byte[h] = Orv8u(base >> 8 & 0xff);
    }
    return lines;
}();

/// The values of the codes whose interval and segment unpack to the first and to the second vector.
template <class Law>
ORV_INLINE two<Orv16s> decoded(vec<Orv8u> code)
{
    constexpr const DecodingLines& lines = decoding_lines<Law>;
    const auto half = shift_right_by<4>(code);
    const auto interval = (code ^ splat(Orv8u(Law::inverted))) & splat(Orv8u(15));
    const auto look_up = [=](const byte_pattern& table) ORV_INLINE_LAMBDA { return shuffle_bytes(twice(table), half); };
    const auto step_low = look_up(lines.step_low), step_high = look_up(lines.step_high);
    const auto base_low = look_up(lines.base_low), base_high = look_up(lines.base_high);
    const auto value = [](vec<Orv8u> step, vec<Orv8u> i, vec<Orv8u> base) ORV_INLINE_LAMBDA {
        return multiply_low(as<Orv16s>(step), as<Orv16s>(i)) + as<Orv16s>(base);
    };
    const auto zero = splat(Orv8u(0));
    return {value(unpack_low(step_low, step_high), unpack_low(interval, zero), unpack_low(base_low, base_high)),
            value(unpack_high(step_low, step_high), unpack_high(interval, zero), unpack_high(base_low, base_high))};
}

// Unpacking works within halves of registers: what comes next to each other there starts apart.

template <class Law>
struct Decode {
    static constexpr int N = 32;

    ORV_INLINE two<Orv16s> read(const Orv8u* code) const { return decoded<Law>(cross_quarters(load(code))); }
    template <class Put>
    ORV_INLINE void write(Put put, two<Orv16s> x, Orv16s* d) const
    {
        put(d, x.first);
        put(d + 16, x.second);
    }
};
template <class Law>
struct DecodeToFloat {
    static constexpr int N = 32;

    ORV_INLINE two<Orv16s> read(const Orv8u* code) const { return decoded<Law>(cross_eighths(load(code))); }
    template <class Put>
    ORV_INLINE void write(Put put, two<Orv16s> x, Orv32f* d) const
    {
        const auto zero = splat(Orv16s(0)); // below the samples, which are times 2^16 then
        put(d, to_unit_range<31>(as<Orv32s>(unpack_low(zero, x.first))));
        put(d + 8, to_unit_range<31>(as<Orv32s>(unpack_high(zero, x.first))));
        put(d + 16, to_unit_range<31>(as<Orv32s>(unpack_low(zero, x.second))));
        put(d + 24, to_unit_range<31>(as<Orv32s>(unpack_high(zero, x.second))));
    }
};

template <class Law>
ORV_INLINE OrvStatus decode(const Orv8u* src, Orv16s* dst, int len)
{
    if (const OrvStatus bad = check(len, src, dst)) return bad;
    map_blocks(Decode<Law>{}, len, arrays(src), arrays(dst));
    return orvOk;
}
template <class Law>
ORV_INLINE OrvStatus decode(const Orv8u* src, Orv32f* dst, int len)
{
    if (const OrvStatus bad = check(len, src, dst)) return bad;
    map_blocks(DecodeToFloat<Law>{}, len, arrays(src), arrays(dst));
    return orvOk;
}

// ---- Encoding

/// The exponent and the upper four bits of the fraction of a number as a float, in one integer: for v >= 32, segment
/// and interval, in their places, above those of the float 2^lowest.
template <int lowest>
ORV_INLINE vec<Orv16s> logarithm(vec<Orv16s> v)
{
    const auto zero = splat(Orv16s(0));
    const auto upper_bits = [](vec<Orv16s> words) ORV_INLINE_LAMBDA {
        return shift_right_by<19>(as<Orv32s>(to_float(as<Orv32s>(words))));
    };
    const split<Orv32s> both = {upper_bits(unpack_low(v, zero)), upper_bits(unpack_high(v, zero))};
    return pack_sat(both) - splat(Orv16s((127 + lowest) << 4));
}

ORV_INLINE vec<Orv16s> segment_and_interval(ALaw, vec<Orv16s> v)
{
    // Segments 0 and 1 have the same step; below 32, v / 2 is more than the logarithm, and above, that is more than 15.
    return max(logarithm<4>(v), min(shift_right_by<1>(v), splat(Orv16s(15))));
}
ORV_INLINE vec<Orv16s> segment_and_interval(MuLaw, vec<Orv16s> v)
{
    return logarithm<5>(min(v + splat(Orv16s(33)), splat(Orv16s(8191)))); // 33: every segment begins at a power of two
}

/// Codes in 16-bit lanes.
template <class Law>
ORV_INLINE vec<Orv16s> encoded(vec<Orv16s> x)
{
    const auto sign = sign_mask(x);
    const auto magnitude = shift_right_by<Law::dropped_bits>(x ^ sign); // that of -1 is 0
    return segment_and_interval(Law{}, magnitude) ^ and_not(sign, splat(Orv16s(0x80))) ^ splat(Orv16s(Law::inverted));
}

template <class Law>
struct Encode {
    static constexpr int N = 32;

    // Packs work within halves of registers, so each half takes the samples that end there.
    ORV_INLINE vec<Orv8u> read(const Orv16s* x) const
    {
        return pack_unsigned(encoded<Law>(load_halves(x, x + 16)), encoded<Law>(load_halves(x + 8, x + 24)));
    }
    ORV_INLINE vec<Orv8u> read(const Orv32f* x) const
    {
        const auto four = [=](int at)
                              ORV_INLINE_LAMBDA { return from_unit_range<16>(load_halves(x + at, x + at + 16)); };
        return pack_unsigned(encoded<Law>(pack_sat(split<Orv32s>{four(0), four(4)})),
                             encoded<Law>(pack_sat(split<Orv32s>{four(8), four(12)})));
    }
    template <class Put>
    ORV_INLINE void write(Put put, vec<Orv8u> code, Orv8u* d) const
    {
        put(d, code);
    }
};

template <class Law>
ORV_INLINE OrvStatus encode(const Orv16s* src, Orv8u* dst, int len)
{
    if (const OrvStatus bad = check(len, src, dst)) return bad;
    map_blocks(Encode<Law>{}, len, arrays(src), arrays(dst));
    return orvOk;
}
template <class Law>
ORV_INLINE OrvStatus encode(const Orv32f* src, Orv8u* dst, int len)
{
    if (const OrvStatus bad = check(len, src, dst)) return bad;
    const NearestState state;
    map_blocks(Encode<Law>{}, len, arrays(src), arrays(dst));
    return orvOk;
}

// ---- From law to law

/// Differences of a table of 128 magnitudes for the look-up below: rows of sixteen, each but the first exclusive-ored
/// with the row before it.
struct MagnitudeRows {
    byte_pattern row[8];
};
template <int (*magnitude)(int)>
constexpr MagnitudeRows magnitude_rows = [] {
    MagnitudeRows rows = {};
    for (int i = 0; i < 128; ++i)
        rows.row[i / 16].byte[i % 16] = Orv8u(magnitude(i) ^ (i < 16 ? 0 : magnitude(i - 16)));
    return rows;
}();

/// The look-up of a byte below 128: row r counts as long as the index less 16 r is not negative, since the shuffle
/// gives 0 then. What the rows up to the right one add up to is the entry there.
template <class From, class To, int (*magnitude)(int)>
ORV_INLINE OrvStatus transcode(const Orv8u* src, Orv8u* dst, int len)
{
    if (const OrvStatus bad = check(len, src, dst)) return bad;
    map(
        [](auto code) ORV_INLINE_LAMBDA {
            const auto sign = code & splat(Orv8u(0x80));
            auto index = (code ^ splat(Orv8u(From::inverted))) & splat(Orv8u(0x7f));
            auto found = sign ^ splat(Orv8u(To::inverted));
            for (const byte_pattern& row : magnitude_rows<magnitude>.row) {
                found = found ^ shuffle_bytes(twice(row), index);
                index = index - splat(Orv8u(16));
            }
            return found;
        },
        dst, len, src);
    return orvOk;
}

} // namespace

// ---- A-law

OrvStatus orvsALawToLin_8u16s(const Orv8u* src, Orv16s* dst, int len) { return decode<ALaw>(src, dst, len); }
OrvStatus orvsALawToLin_8u32f(const Orv8u* src, Orv32f* dst, int len) { return decode<ALaw>(src, dst, len); }
OrvStatus orvsLinToALaw_16s8u(const Orv16s* src, Orv8u* dst, int len) { return encode<ALaw>(src, dst, len); }
OrvStatus orvsLinToALaw_32f8u(const Orv32f* src, Orv8u* dst, int len) { return encode<ALaw>(src, dst, len); }

// ---- Mu-law

OrvStatus orvsMuLawToLin_8u16s(const Orv8u* src, Orv16s* dst, int len) { return decode<MuLaw>(src, dst, len); }
OrvStatus orvsMuLawToLin_8u32f(const Orv8u* src, Orv32f* dst, int len) { return decode<MuLaw>(src, dst, len); }
OrvStatus orvsLinToMuLaw_16s8u(const Orv16s* src, Orv8u* dst, int len) { return encode<MuLaw>(src, dst, len); }
OrvStatus orvsLinToMuLaw_32f8u(const Orv32f* src, Orv8u* dst, int len) { return encode<MuLaw>(src, dst, len); }

// ---- Both

OrvStatus orvsALawToMuLaw_8u(const Orv8u* src, Orv8u* dst, int len)
{
    return transcode<ALaw, MuLaw, mu_law_magnitude>(src, dst, len);
}
OrvStatus orvsMuLawToALaw_8u(const Orv8u* src, Orv8u* dst, int len)
{
    return transcode<MuLaw, ALaw, a_law_magnitude>(src, dst, len);
}
