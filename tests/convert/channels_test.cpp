// Channels of floats and interleaved samples.
#include "tests/arith/caller_state.h"
#include "tests/convert/arrays.h"

#include "orvs/convert.h"

#include <cfenv>
#include <cmath>

namespace orvtest {
namespace {

template <class Sample>
constexpr int bits = sizeof(Sample) == 2 ? 16 : 24; // samples of 24 bits are told by their bytes

/// x * 2^(bits - 1), to nearest with ties to even, saturated; the least integer for a NaN.
int quantized(Orv32f x, int width)
{
    const int highest = (1 << (width - 1)) - 1;
    if (std::isnan(x)) return -highest - 1;
    const double scaled = std::ldexp(double{x}, width - 1); // exact
    if (scaled >= highest) return highest;
    if (scaled <= -highest - 1) return -highest - 1;
    return static_cast<int>(std::nearbyint(scaled));
}

template <class Sample>
void append(std::vector<Sample>& samples, int value)
{
    if constexpr (sizeof(Sample) == 2) {
        samples.push_back(static_cast<Sample>(value));
    } else {
        for (int shift = 0; shift < 24; shift += 8) samples.push_back(static_cast<Sample>(value >> shift & 0xff));
    }
}

/// Values of all sizes, most of them where integers are told apart, some on ties.
std::vector<Orv32f> channel(Random& random, int width, std::size_t n)
{
    std::vector<Orv32f> x = inputs<Orv32f>(random, n);
    for (std::size_t i = 0; i < n; ++i) {
        const auto integer = static_cast<std::int32_t>(random.bits()) >> (31 - width); // a little more than full scale
        if (i % 4 == 1) x[i] = std::ldexp(static_cast<Orv32f>(integer), 1 - width);
        if (i % 4 == 2) x[i] = std::ldexp(static_cast<Orv32f>(integer >> 3 | 1), 1 - width + 2); // halves of integers
        if (i % 4 == 3) x[i] = std::ldexp(static_cast<Orv32f>(static_cast<std::int32_t>(random.bits())), -31);
    }
    return x;
}

template <class Sample>
using Join = Export<OrvStatus, const Orv32f* const*, int, int, Sample*>;
template <class Sample>
using Split = Export<OrvStatus, const Sample*, Orv32f* const*, int, int>;

std::string size_text(int channels, int length)
{
    return std::to_string(channels) + " channels of " + std::to_string(length);
}

template <class Sample>
void expect_joined(const Join<Sample>& f, int channels, int length, bool everywhere)
{
    const auto c = static_cast<std::size_t>(channels), n = static_cast<std::size_t>(length);
    Random random(seed_of(f.name(), 100 * n + c));
    std::vector<std::vector<Orv32f>> x;
    std::vector<CallArray> arrays;
    for (std::size_t k = 0; k < c; ++k) {
        x.push_back(channel(random, bits<Sample>, n));
        arrays.push_back(source(x[k]));
    }
    std::vector<Sample> want;
    for (std::size_t i = 0; i < n; ++i)
        for (std::size_t k = 0; k < c; ++k) append(want, quantized(x[k][i], bits<Sample>));
    arrays.push_back(result(want));
    ArrayCalls calls(f, size_text(channels, length), std::move(arrays), [=](auto p) {
        std::vector<const Orv32f*> srcs;
        for (std::size_t k = 0; k < c; ++k) srcs.push_back(in<Orv32f>(p[k]));
        return f(srcs.data(), channels, length, out<Sample>(p[c]));
    });
    if (everywhere) EXPECT_TRUE(calls.at_many_places());
    else EXPECT_TRUE(calls.at(before_guard) && calls.at(misaligned(0)));
}

template <class Sample>
void expect_split(const Split<Sample>& f, int channels, int length, bool everywhere)
{
    const auto c = static_cast<std::size_t>(channels), n = static_cast<std::size_t>(length);
    Random random(seed_of(f.name(), 100 * n + c));
    std::vector<Sample> samples;
    std::vector<std::vector<Orv32f>> want(c);
    for (std::size_t i = 0; i < n * c; ++i) {
        const int value = static_cast<std::int32_t>(random.bits()) >> (32 - bits<Sample>);
        append(samples, value);
        want[i % c].push_back(std::ldexp(static_cast<Orv32f>(value), 1 - bits<Sample>));
    }
    std::vector<CallArray> arrays = {source(samples)};
    for (const std::vector<Orv32f>& x : want) arrays.push_back(result(x));
    ArrayCalls calls(f, size_text(channels, length), std::move(arrays), [=](auto p) {
        std::vector<Orv32f*> dsts;
        for (std::size_t k = 0; k < c; ++k) dsts.push_back(out<Orv32f>(p[k + 1]));
        return f(in<Sample>(p[0]), dsts.data(), channels, length);
    });
    if (everywhere) EXPECT_TRUE(calls.at_many_places());
    else EXPECT_TRUE(calls.at(before_guard) && calls.at(misaligned(0)));
}

/// Every number of channels up to three groups, at lengths around blocks and pieces; and large arrays.
template <class Expect>
void for_sizes(const Expect& expect)
{
    for (int channels = 1; channels <= 9; ++channels) {
        for (int n = 1; n <= 70; ++n) expect(channels, n, true);
        for (const int n : {127, 128, 129, 255, 256, 257, 383, 1000}) expect(channels, n, true);
    }
    for (const int channels : {11, 15, 16, 17, 23, 64})
        for (const int n : {1, 7, 8, 33, 128, 131}) expect(channels, n, true);
    for (const int channels : {1, 2, 6, 7}) expect(channels, length_beyond_caches<Orv32f>() / channels + 3, false);
}

TEST(JoinScaled, values)
{
    for_sizes([](auto... size) { expect_joined<Orv16s>(ORV_EXPORT(orvsJoinScaled_32f16s_D2L), size...); });
    for_sizes([](auto... size) { expect_joined<Orv8u>(ORV_EXPORT(orvsJoinScaled_32f24s_D2L), size...); });
}
TEST(SplitScaled, values)
{
    for_sizes([](auto... size) { expect_split<Orv16s>(ORV_EXPORT(orvsSplitScaled_16s32f_D2L), size...); });
    for_sizes([](auto... size) { expect_split<Orv8u>(ORV_EXPORT(orvsSplitScaled_24s32f_D2L), size...); });
}

TEST(SplitScaled, every_sample_of_16_bits_and_back)
{
    const auto split = ORV_EXPORT(orvsSplitScaled_16s32f_D2L);
    const auto join = ORV_EXPORT(orvsJoinScaled_32f16s_D2L);
    std::vector<Orv16s> samples;
    for (int x = -32768; x <= 32767; ++x) samples.push_back(static_cast<Orv16s>(x));
    std::vector<Orv32f> left(32768), right(32768);
    Orv32f* const to[] = {left.data(), right.data()};
    const Orv32f* const from[] = {left.data(), right.data()};
    expect_value(split, Orv32s{split(samples.data(), to, 2, 32768)}, orvOk);
    EXPECT_EQ(left[0], -1);
    EXPECT_EQ(right[32767], 32767 / 32768.0f);
    std::vector<Orv16s> back(65536);
    expect_value(join, Orv32s{join(from, 2, 32768, back.data())}, orvOk);
    expect_elements(join, back, samples);
}

TEST(JoinScaled, limits_and_ties)
{
    const auto f = ORV_EXPORT(orvsJoinScaled_32f16s_D2L);
    const Orv32f lsb = 1 / 32768.0f, infinity = std::numeric_limits<Orv32f>::infinity();
    const std::vector<Orv32f> x = {1,           2,      infinity,        -1,         -2,
                                   -infinity,   NAN,    0.5f * lsb,      1.5f * lsb, -0.5f * lsb,
                                   -2.5f * lsb, 1e-45f, 32767.49f * lsb, 3e38f,      -3e38f};
    const Orv32f* const srcs[] = {x.data()};
    std::vector<Orv16s> dst(x.size());
    expect_value(f, Orv32s{f(srcs, 1, static_cast<int>(x.size()), dst.data())}, orvOk);
    expect_elements(f, dst,
                    {32767, 32767, 32767, -32768, -32768, -32768, -32768, 0, 2, 0, -2, 0, 32767, 32767, -32768});
}

TEST(JoinScaled, rounds_to_nearest_in_any_state)
{
    const auto f = ORV_EXPORT(orvsJoinScaled_32f16s_D2L);
    const Orv32f x = 1.75f / 32768, y = -1.75f / 32768;
    const std::vector<Orv32f> a(40, x), b(40, y);
    const Orv32f* const srcs[] = {a.data(), b.data()};
    for (const unsigned state : {round_to_zero, round_up, round_down}) {
        const CallerState scope(state);
        std::vector<Orv16s> dst(80), want;
        for (int i = 0; i < 40; ++i) want.insert(want.end(), {2, -2});
        expect_value(f, Orv32s{f(srcs, 2, 40, dst.data())}, orvOk);
        expect_elements(f, dst, want);
        EXPECT_EQ(_mm_getcsr() & round_to_zero, state & round_to_zero);
    }
}

// ---- Checks: the samples, the counts, the array of channels, each channel

template <class Sample>
void expect_checks(const Join<Sample>& f)
{
    const std::vector<Orv32f> x(4, 0.5f);
    const Orv32f* const srcs[] = {x.data(), x.data(), x.data()};
    const std::vector<Sample> before(64, 77);
    std::vector<Sample> dst = before;
    for (const int bad : {0, -1, INT_MIN}) {
        expect_value(f, Orv32s{f(nullptr, bad, bad, nullptr)}, orvErrNullPointer);
        expect_value(f, Orv32s{f(nullptr, bad, 4, dst.data())}, orvErrBadLength);
        expect_value(f, Orv32s{f(nullptr, 3, bad, dst.data())}, orvErrBadLength);
        expect_value(f, Orv32s{f(srcs, bad, 4, dst.data())}, orvErrBadLength);
    }
    expect_value(f, Orv32s{f(srcs, 3, 4, nullptr)}, orvErrNullPointer);
    expect_value(f, Orv32s{f(nullptr, 3, 4, dst.data())}, orvErrNullPointer);
    for (int k = 0; k < 3; ++k) {
        const Orv32f* one_missing[] = {x.data(), x.data(), x.data()};
        one_missing[k] = nullptr;
        expect_value(f, Orv32s{f(one_missing, 3, 4, dst.data())}, orvErrNullPointer);
        expect_value(f, Orv32s{f(one_missing, 3, 0, dst.data())}, orvErrBadLength);
    }
    expect_elements(f, dst, before);
}
template <class Sample>
void expect_checks(const Split<Sample>& f)
{
    const std::vector<Sample> src(64, 77);
    const std::vector<Orv32f> before(4, 0.5f);
    std::vector<Orv32f> x[3] = {before, before, before};
    Orv32f* const dsts[] = {x[0].data(), x[1].data(), x[2].data()};
    for (const int bad : {0, -1, INT_MIN}) {
        expect_value(f, Orv32s{f(nullptr, nullptr, bad, bad)}, orvErrNullPointer);
        expect_value(f, Orv32s{f(src.data(), nullptr, bad, 4)}, orvErrBadLength);
        expect_value(f, Orv32s{f(src.data(), nullptr, 3, bad)}, orvErrBadLength);
        expect_value(f, Orv32s{f(src.data(), dsts, bad, 4)}, orvErrBadLength);
    }
    expect_value(f, Orv32s{f(nullptr, dsts, 3, 4)}, orvErrNullPointer);
    expect_value(f, Orv32s{f(src.data(), nullptr, 3, 4)}, orvErrNullPointer);
    for (int k = 0; k < 3; ++k) {
        Orv32f* one_missing[] = {x[0].data(), x[1].data(), x[2].data()};
        one_missing[k] = nullptr;
        expect_value(f, Orv32s{f(src.data(), one_missing, 3, 4)}, orvErrNullPointer);
        expect_value(f, Orv32s{f(src.data(), one_missing, 3, 0)}, orvErrBadLength);
    }
    for (const std::vector<Orv32f>& channel : x) expect_elements(f, channel, before);
}

TEST(JoinScaled, checks)
{
    expect_checks<Orv16s>(ORV_EXPORT(orvsJoinScaled_32f16s_D2L));
    expect_checks<Orv8u>(ORV_EXPORT(orvsJoinScaled_32f24s_D2L));
}
TEST(SplitScaled, checks)
{
    expect_checks<Orv16s>(ORV_EXPORT(orvsSplitScaled_16s32f_D2L));
    expect_checks<Orv8u>(ORV_EXPORT(orvsSplitScaled_24s32f_D2L));
}

} // namespace
} // namespace orvtest
