// Channels of floats and interleaved integers.
//
// One, two, four, six or eight channels are a transposition in registers. Any other number is cut into such groups, a
// hundred frames at a time: a group's part of the frames is contiguous in a buffer on the stack, which lies in the
// first-level cache.
#include "orvs/convert.h"

#include <utility>

#include "convert/full_scale.h"
#include "frame/blocks.h"
#include "frame/checks.h"
#include "frame/float_state.h"
#include "simd/lanes.h"
#include "simd/packed24.h"
#include "simd/saturate.h"

using namespace ORV_VARIANT;

namespace {

/// The samples of all channels of a group at one moment.
template <class Sample, int channels>
struct Frame {
    Sample sample[std::size_t(channels)];
};

// ---- 16 bits: two channels side by side in 32-bit words are a row of the transposition

struct Sample16 {
    Orv8u bytes[2];

    template <int channels>
    struct Join;
    template <int channels>
    struct Split;
};

template <>
struct Sample16::Join<1> {
    static constexpr int N = 16;

    ORV_INLINE vec<Orv16s> read(const Orv32f* x) const
    {
        return cross_quarters(pack_sat(split<Orv32s>{from_unit_range<16>(load(x)), from_unit_range<16>(load(x + 8))}));
    }
    template <class Put>
    ORV_INLINE void write(Put put, vec<Orv16s> y, Frame<Sample16, 1>* frames) const
    {
        put(reinterpret_cast<Orv16s*>(frames), y);
    }
};
template <int channels>
struct Sample16::Join {
    static constexpr int N = 8, rows = channels / 2;

    struct Rows {
        vec<Orv32s> row[std::size_t(rows)];
    };

    template <class... Float>
    ORV_INLINE Rows read(const Float*... channel) const
    {
        const vec<Orv32s> x[] = {from_unit_range<16>(load(channel))...};
        Rows y;
        repeat<rows>([&](auto k) ORV_INLINE_LAMBDA {
            y.row[k] = as<Orv32s>(pack_sat(even_odd<Orv32s>{x[2 * k], x[2 * k + 1]}));
        });
        interleave_rows(y.row);
        return y;
    }
    template <class Put>
    ORV_INLINE void write(Put put, const Rows& y, Frame<Sample16, channels>* frames) const
    {
        auto* p = reinterpret_cast<Orv32s*>(frames);
        repeat<rows>([&](auto k) ORV_INLINE_LAMBDA { put(p + 8 * k, y.row[k]); });
    }
};

template <>
struct Sample16::Split<1> {
    static constexpr int N = 8;

    ORV_INLINE vec<Orv32f> read(const Frame<Sample16, 1>* frames) const
    {
        return to_unit_range<15>(widen(load<Orv16s, 8>(reinterpret_cast<const Orv16s*>(frames))));
    }
    template <class Put>
    ORV_INLINE void write(Put put, vec<Orv32f> x, Orv32f* channel) const
    {
        put(channel, x);
    }
};
template <int channels>
struct Sample16::Split {
    static constexpr int N = 8, rows = channels / 2;

    struct Rows {
        vec<Orv32s> row[std::size_t(rows)];
    };

    ORV_INLINE Rows read(const Frame<Sample16, channels>* frames) const
    {
        const auto* p = reinterpret_cast<const Orv32s*>(frames);
        Rows y;
        repeat<rows>([&](auto k) ORV_INLINE_LAMBDA { y.row[k] = load(p + 8 * k); });
        deinterleave_rows(y.row);
        return y;
    }
    template <class Put, class... Float>
    ORV_INLINE void write(Put put, const Rows& y, Float*... channel) const
    {
        Orv32f* const x[] = {channel...};
        repeat<rows>([&](auto k) ORV_INLINE_LAMBDA {
            put(x[2 * k], to_unit_range<31>(shift_left(y.row[k], by(16))));
            put(x[2 * k + 1], to_unit_range<31>(y.row[k] & splat(Orv32s(-65536))));
        });
    }
};

// ---- 24 bits: each channel is a row

struct Packed24 : Int24 {
    template <int channels>
    struct Join {
        // Whole vectors come of 32 samples.
        static constexpr int N = channels == 1 ? 32 : channels % 4 == 2 ? 16 : 8, vectors = N * channels / 8;

        struct Samples {
            vec<Orv32s> x[std::size_t(vectors)];
        };

        template <class... Float>
        ORV_INLINE Samples read(const Float*... channel) const
        {
            Samples y;
            repeat<N / 8>([&](auto v) ORV_INLINE_LAMBDA {
                const auto least = splat(Orv32s(-0x800000));
                vec<Orv32s> x[] = {max(from_unit_range<24>(load(channel + 8 * v)), least)...};
                interleave_rows(x);
                repeat<channels>([&](auto k) ORV_INLINE_LAMBDA { y.x[v * channels + k] = x[k]; });
            });
            return y;
        }
        template <class Put>
        ORV_INLINE void write(Put put, const Samples& y, Frame<Packed24, channels>* frames) const
        {
            Orv8u* p = frames->sample[0].bytes;
            repeat<vectors / 4>([&](auto k) ORV_INLINE_LAMBDA {
                const vec<Orv32s>* x = y.x + 4 * k;
                const auto all = closed_up(
                    vec<Int24>{{pack24<Int24>(x[0]), pack24<Int24>(x[1])}, {pack24<Int24>(x[2]), pack24<Int24>(x[3])}});
                repeat<3>([&](auto i) ORV_INLINE_LAMBDA { put(p + 96 * k + 32 * i, vec<Orv8u>{all.r[i]}); });
            });
        }
    };

    template <int channels>
    struct Split {
        static constexpr int N = 8;

        struct Rows {
            vec<Orv32s> row[std::size_t(channels)];
        };

        ORV_INLINE Rows read(const Frame<Packed24, channels>* frames) const
        {
            const Int24* p = frames->sample;
            Rows y;
            repeat<channels>([&](auto k) ORV_INLINE_LAMBDA { y.row[k] = unpack24_upper(load<Int24, 8>(p + 8 * k)); });
            deinterleave_rows(y.row);
            return y;
        }
        template <class Put, class... Float>
        ORV_INLINE void write(Put put, const Rows& y, Float*... channel) const
        {
            Orv32f* const x[] = {channel...};
            repeat<channels>([&](auto k) ORV_INLINE_LAMBDA { put(x[k], to_unit_range<31>(y.row[k])); });
        }
    };
};

// ---- Groups of channels that follow one another in a frame

template <class T, std::size_t... k>
ORV_INLINE auto pointers(T* const* channels, std::ptrdiff_t at, std::index_sequence<k...>)
{
    return arrays((channels[k] + at)...);
}

template <class Sample, int channels>
[[gnu::noinline]] void join_group(const Orv32f* const* src, std::ptrdiff_t at, int len, Frame<Sample, channels>* dst)
{
    map_blocks(typename Sample::template Join<channels>{}, len,
               pointers(src, at, std::make_index_sequence<std::size_t(channels)>{}), arrays(dst));
}
template <class Sample, int channels>
[[gnu::noinline]] void split_group(const Frame<Sample, channels>* src, Orv32f* const* dst, std::ptrdiff_t at, int len)
{
    map_blocks(typename Sample::template Split<channels>{}, len, arrays(src),
               pointers(dst, at, std::make_index_sequence<std::size_t(channels)>{}));
}

// ---- Any number of channels

/// Calls group(std::integral_constant<int, channels>, first channel) for groups that make up all channels.
template <class Group>
ORV_INLINE void for_groups(int channels, Group group)
{
    int c = 0;
    for (; channels - c >= 8; c += 8) group(std::integral_constant<int, 8>{}, c);
    if (channels & 4) group(std::integral_constant<int, 4>{}, c), c += 4;
    if (channels & 2) group(std::integral_constant<int, 2>{}, c), c += 2;
    if (channels & 1) group(std::integral_constant<int, 1>{}, c);
}

/// Frames in a buffer: the largest group takes 3 KiB.
constexpr int piece = 128;

template <class Sample>
ORV_INLINE void join_any(const Orv32f* const* src, int channels, int len, Sample* dst)
{
    for (int at = 0, n; at < len; at += n, dst += std::ptrdiff_t(n) * channels) {
        n = len - at < piece ? len - at : piece;
        for_groups(channels, [=](auto count, int first) {
            Frame<Sample, count> buffer[piece];
            join_group<Sample, count>(src + first, at, n, buffer);
            Orv8u* p = dst[first].bytes;
            for (int i = 0; i < n; ++i, p += std::ptrdiff_t(channels) * int(sizeof(Sample))) {
                __builtin_memcpy(p, buffer + i, sizeof buffer[i]);
            }
        });
    }
}
template <class Sample>
ORV_INLINE void split_any(const Sample* src, Orv32f* const* dst, int channels, int len)
{
    for (int at = 0, n; at < len; at += n, src += std::ptrdiff_t(n) * channels) {
        n = len - at < piece ? len - at : piece;
        for_groups(channels, [=](auto count, int first) {
            Frame<Sample, count> buffer[piece];
            const Orv8u* p = src[first].bytes;
            for (int i = 0; i < n; ++i, p += std::ptrdiff_t(channels) * int(sizeof(Sample))) {
                __builtin_memcpy(buffer + i, p, sizeof buffer[i]);
            }
            split_group<Sample, count>(buffer, dst + first, at, n);
        });
    }
}

// ---- Bodies

template <class T>
ORV_INLINE bool any_channel_null(T* const* channels, int count)
{
    for (int k = 0; k < count; ++k) {
        if (!channels[k]) return true;
    }
    return false;
}

template <class Sample, int channels>
ORV_INLINE auto frames(Sample* p)
{
    return reinterpret_cast<Frame<Sample, channels>*>(p);
}
template <class Sample, int channels>
ORV_INLINE auto frames(const Sample* p)
{
    return reinterpret_cast<const Frame<Sample, channels>*>(p);
}

template <class Sample>
ORV_INLINE OrvStatus join(const Orv32f* const* srcs, int channels, int len, void* samples)
{
    if (!samples) return orvErrNullPointer;
    if (channels < 1 || len < 1) return orvErrBadLength;
    if (!srcs || any_channel_null(srcs, channels)) return orvErrNullPointer;
    const NearestState state;
    auto* dst = static_cast<Sample*>(samples);
    switch (channels) {
    case 1: join_group(srcs, 0, len, frames<Sample, 1>(dst)); break;
    case 2: join_group(srcs, 0, len, frames<Sample, 2>(dst)); break;
    case 4: join_group(srcs, 0, len, frames<Sample, 4>(dst)); break;
    case 6: join_group(srcs, 0, len, frames<Sample, 6>(dst)); break;
    case 8: join_group(srcs, 0, len, frames<Sample, 8>(dst)); break;
    default: join_any(srcs, channels, len, dst);
    }
    return orvOk;
}
template <class Sample>
ORV_INLINE OrvStatus split_channels(const void* samples, Orv32f* const* dsts, int channels, int len)
{
    if (!samples) return orvErrNullPointer;
    if (channels < 1 || len < 1) return orvErrBadLength;
    if (!dsts || any_channel_null(dsts, channels)) return orvErrNullPointer;
    const auto* src = static_cast<const Sample*>(samples);
    switch (channels) {
    case 1: split_group(frames<Sample, 1>(src), dsts, 0, len); break;
    case 2: split_group(frames<Sample, 2>(src), dsts, 0, len); break;
    case 4: split_group(frames<Sample, 4>(src), dsts, 0, len); break;
    case 6: split_group(frames<Sample, 6>(src), dsts, 0, len); break;
    case 8: split_group(frames<Sample, 8>(src), dsts, 0, len); break;
    default: split_any(src, dsts, channels, len);
    }
    return orvOk;
}

} // namespace

// ---- JoinScaled

OrvStatus orvsJoinScaled_32f16s_D2L(const Orv32f* const* srcs, int nChannels, int len, Orv16s* dst)
{
    return join<Sample16>(srcs, nChannels, len, dst);
}
OrvStatus orvsJoinScaled_32f24s_D2L(const Orv32f* const* srcs, int nChannels, int len, Orv8u* dst)
{
    return join<Packed24>(srcs, nChannels, len, dst);
}

// ---- SplitScaled

OrvStatus orvsSplitScaled_16s32f_D2L(const Orv16s* src, Orv32f* const* dsts, int nChannels, int len)
{
    return split_channels<Sample16>(src, dsts, nChannels, len);
}
OrvStatus orvsSplitScaled_24s32f_D2L(const Orv8u* src, Orv32f* const* dsts, int nChannels, int len)
{
    return split_channels<Packed24>(src, dsts, nChannels, len);
}
