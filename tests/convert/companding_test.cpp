// A-law and mu-law, against intervals and tables as ITU-T Recommendation G.711 lists them.
#include "tests/arith/caller_state.h"
#include "tests/arith/large.h"
#include "tests/support/checks.h"
#include "tests/support/elementwise.h"

#include "orvs/convert.h"

#include <cmath>

namespace orvtest {
namespace {

// ---- The laws by their decision values

/// Interval k holds the magnitudes from decision[k] up to below decision[k + 1].
struct Law {
    int dropped_bits;          ///< of a 16-bit sample
    int inverted;              ///< bits of a code, the sign aside
    int first_interval;        ///< its width, and the width of those after it in the first segment
    int first_segment;         ///< how many more intervals have this width
    std::vector<int> decision; ///< 129 of them
};

Law make_law(int dropped_bits, int inverted, int first_width, int more, int more_width)
{
    Law law = {dropped_bits, inverted, first_width, more, {0, first_width}};
    for (int i = 0; i < more; ++i) law.decision.push_back(law.decision.back() + more_width);
    for (int width = 2 * more_width; law.decision.size() < 129; width *= 2)
        for (int i = 0; i < 16; ++i) law.decision.push_back(law.decision.back() + width);
    return law;
}

/// 32 intervals of 2, 16 of 4, ... 16 of 128; every other bit inverted.
const Law a_law = make_law(3, 0x55, 2, 31, 2);
/// One interval of 1, 15 of 2, 16 of 4, ... 16 of 256; all bits inverted.
const Law mu_law = make_law(2, 0x7f, 1, 15, 2);

Orv8u encoded(const Law& law, int sample)
{
    const int magnitude = (sample < 0 ? -1 - sample : sample) >> law.dropped_bits;
    int interval = 0;
    while (interval < 127 && magnitude >= law.decision[static_cast<std::size_t>(interval) + 1]) ++interval;
    return static_cast<Orv8u>((interval ^ law.inverted) | (sample < 0 ? 0 : 0x80));
}

Orv16s decoded(const Law& law, int code)
{
    const auto interval = static_cast<std::size_t>((code ^ law.inverted) & 0x7f);
    // An interval of width 1 has its value at its start.
    const int middle = (law.decision[interval] + law.decision[interval + 1]) / 2;
    const int value = middle << law.dropped_bits;
    return static_cast<Orv16s>(code & 0x80 ? value : -value);
}

int sample_of(Orv32f x)
{
    if (std::isnan(x)) return -32768;
    const double scaled = double{x} * 32768;
    return scaled >= 32767 ? 32767 : scaled <= -32768 ? -32768 : static_cast<int>(std::nearbyint(scaled));
}

const auto from_a = [](Orv8u code) { return decoded(a_law, code); };
const auto from_mu = [](Orv8u code) { return decoded(mu_law, code); };
const auto from_a_to_float = [](Orv8u code) { return static_cast<Orv32f>(decoded(a_law, code)) / 32768; };
const auto from_mu_to_float = [](Orv8u code) { return static_cast<Orv32f>(decoded(mu_law, code)) / 32768; };
const auto to_a = [](Orv16s x) { return encoded(a_law, x); };
const auto to_mu = [](Orv16s x) { return encoded(mu_law, x); };
const auto float_to_a = [](Orv32f x) { return encoded(a_law, sample_of(x)); };
const auto float_to_mu = [](Orv32f x) { return encoded(mu_law, sample_of(x)); };

// ---- The tables between the laws, in numbers of decoder output values: A-law counts from 1, mu-law from 0

constexpr int mu_to_a[128] = {
    1,   1,   2,   2,   3,   3,   4,   4,   5,   5,   6,   6,   7,   7,   8,   8,   9,   10,  11,  12,  13,  14,
    15,  16,  17,  18,  19,  20,  21,  22,  23,  24,  25,  27,  29,  31,  33,  34,  35,  36,  37,  38,  39,  40,
    41,  42,  43,  44,  46,  48,  49,  50,  51,  52,  53,  54,  55,  56,  57,  58,  59,  60,  61,  62,  64,  65,
    66,  67,  68,  69,  70,  71,  72,  73,  74,  75,  76,  77,  78,  79,  81,  82,  83,  84,  85,  86,  87,  88,
    89,  90,  91,  92,  93,  94,  95,  96,  97,  98,  99,  100, 101, 102, 103, 104, 105, 106, 107, 108, 109, 110,
    111, 112, 113, 114, 115, 116, 117, 118, 119, 120, 121, 122, 123, 124, 125, 126, 127, 128};
constexpr int a_to_mu[128] = {
    1,   3,   5,   7,   9,   11,  13,  15,  16,  17,  18,  19,  20,  21,  22,  23,  24,  25,  26,  27,  28,  29,
    30,  31,  32,  32,  33,  33,  34,  34,  35,  35,  36,  37,  38,  39,  40,  41,  42,  43,  44,  45,  46,  47,
    48,  48,  49,  49,  50,  51,  52,  53,  54,  55,  56,  57,  58,  59,  60,  61,  62,  63,  64,  64,  65,  66,
    67,  68,  69,  70,  71,  72,  73,  74,  75,  76,  77,  78,  79,  79,  80,  81,  82,  83,  84,  85,  86,  87,
    88,  89,  90,  91,  92,  93,  94,  95,  96,  97,  98,  99,  100, 101, 102, 103, 104, 105, 106, 107, 108, 109,
    110, 111, 112, 113, 114, 115, 116, 117, 118, 119, 120, 121, 122, 123, 124, 125, 126, 127};

const auto a_code_to_mu = [](Orv8u code) {
    return static_cast<Orv8u>((a_to_mu[(code ^ a_law.inverted) & 0x7f] ^ mu_law.inverted) | (code & 0x80));
};
const auto mu_code_to_a = [](Orv8u code) {
    return static_cast<Orv8u>(((mu_to_a[(code ^ mu_law.inverted) & 0x7f] - 1) ^ a_law.inverted) | (code & 0x80));
};

// ---- Everything there is

template <class T>
std::vector<T> all_values()
{
    std::vector<T> all;
    for (int x = std::numeric_limits<T>::min(); x <= std::numeric_limits<T>::max(); ++x)
        all.push_back(static_cast<T>(x));
    return all;
}

template <class S, class D, class Oracle>
void expect_all(const Export<OrvStatus, const S*, D*, int>& f, const Oracle& oracle)
{
    const std::vector<S> src = all_values<S>();
    std::vector<D> dst(src.size()), want;
    for (const S x : src) want.push_back(oracle(x));
    expect_value(f, Orv32s{f(src.data(), dst.data(), static_cast<int>(src.size()))}, orvOk);
    expect_elements(f, dst, want);
}

TEST(Companding, every_code_and_every_sample)
{
    expect_all(ORV_EXPORT(orvsALawToLin_8u16s), from_a);
    expect_all(ORV_EXPORT(orvsMuLawToLin_8u16s), from_mu);
    expect_all(ORV_EXPORT(orvsALawToLin_8u32f), from_a_to_float);
    expect_all(ORV_EXPORT(orvsMuLawToLin_8u32f), from_mu_to_float);
    expect_all(ORV_EXPORT(orvsLinToALaw_16s8u), to_a);
    expect_all(ORV_EXPORT(orvsLinToMuLaw_16s8u), to_mu);
    expect_all(ORV_EXPORT(orvsALawToMuLaw_8u), a_code_to_mu);
    expect_all(ORV_EXPORT(orvsMuLawToALaw_8u), mu_code_to_a);
}

/// Every sample as a float, and floats a little below and above the ties between it and its neighbours.
template <class Oracle>
void expect_all_floats(const Export<OrvStatus, const Orv32f*, Orv8u*, int>& f, const Oracle& oracle)
{
    std::vector<Orv32f> src;
    for (int x = -32768; x <= 32767; ++x) {
        const Orv32f tie = (static_cast<Orv32f>(x) + 0.5f) / 32768;
        for (const Orv32f y :
             {static_cast<Orv32f>(x) / 32768, tie, std::nextafter(tie, -2.0f), std::nextafter(tie, 2.0f)})
            src.push_back(y);
    }
    std::vector<Orv8u> dst(src.size()), want;
    for (const Orv32f x : src) want.push_back(oracle(x));
    expect_value(f, Orv32s{f(src.data(), dst.data(), static_cast<int>(src.size()))}, orvOk);
    expect_elements(f, dst, want);
    for (const unsigned state : {round_to_zero, round_up, round_down}) {
        std::fill(dst.begin(), dst.end(), Orv8u{0});
        const CallerState scope(state);
        expect_value(f, Orv32s{f(src.data(), dst.data(), static_cast<int>(src.size()))}, orvOk);
        expect_elements(f, dst, want);
        EXPECT_EQ(_mm_getcsr() & round_to_zero, state & round_to_zero);
    }
}
TEST(Companding, every_sample_as_a_float)
{
    expect_all_floats(ORV_EXPORT(orvsLinToALaw_32f8u), float_to_a);
    expect_all_floats(ORV_EXPORT(orvsLinToMuLaw_32f8u), float_to_mu);
}

// ---- Sweeps

TEST(Companding, every_length_at_every_place)
{
    const SweepOptions options = {.lengths = lengths_around({96, 128, 256, 1000})};
    EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsALawToLin_8u16s), from_a, options));
    EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsMuLawToLin_8u16s), from_mu, options));
    EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsALawToLin_8u32f), from_a_to_float, options));
    EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsMuLawToLin_8u32f), from_mu_to_float, options));
    EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsLinToALaw_16s8u), to_a, options));
    EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsLinToMuLaw_16s8u), to_mu, options));
    EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsLinToALaw_32f8u), float_to_a, options));
    EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsLinToMuLaw_32f8u), float_to_mu, options));
    EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsALawToMuLaw_8u), a_code_to_mu, options));
    EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsMuLawToALaw_8u), mu_code_to_a, options));
}
TEST(Companding, of_large_arrays)
{
    EXPECT_TRUE(check_large(ORV_EXPORT(orvsALawToLin_8u16s).with(), from_a));
    EXPECT_TRUE(check_large(ORV_EXPORT(orvsMuLawToLin_8u32f).with(), from_mu_to_float));
    EXPECT_TRUE(check_large(ORV_EXPORT(orvsLinToALaw_16s8u).with(), to_a));
    EXPECT_TRUE(check_large(ORV_EXPORT(orvsLinToMuLaw_32f8u).with(), float_to_mu));
    EXPECT_TRUE(check_large(ORV_EXPORT(orvsALawToMuLaw_8u).with(), a_code_to_mu));
}
TEST(Companding, checks)
{
    const auto all = [](const auto&... f) { (ArgumentChecks(f, 4).null_pointers().bad_lengths().run(), ...); };
    all(ORV_EXPORT(orvsALawToLin_8u16s), ORV_EXPORT(orvsALawToLin_8u32f), ORV_EXPORT(orvsMuLawToLin_8u16s),
        ORV_EXPORT(orvsMuLawToLin_8u32f), ORV_EXPORT(orvsLinToALaw_16s8u), ORV_EXPORT(orvsLinToALaw_32f8u),
        ORV_EXPORT(orvsLinToMuLaw_16s8u), ORV_EXPORT(orvsLinToMuLaw_32f8u), ORV_EXPORT(orvsALawToMuLaw_8u),
        ORV_EXPORT(orvsMuLawToALaw_8u));
}

// ---- What the Recommendation says about its tables

template <class F, class G, class T>
std::vector<T> there_and_back(const F& there, const G& back, const std::vector<T>& values, auto between)
{
    std::vector<decltype(between)> middle(values.size());
    std::vector<T> result(values.size());
    EXPECT_EQ(there(values.data(), middle.data(), static_cast<int>(values.size())), orvOk);
    EXPECT_EQ(back(middle.data(), result.data(), static_cast<int>(values.size())), orvOk);
    return result;
}

TEST(ALaw, codes_come_back)
{
    const auto decode = ORV_EXPORT(orvsALawToLin_8u16s);
    const auto encode = ORV_EXPORT(orvsLinToALaw_16s8u);
    const std::vector<Orv8u> codes = all_values<Orv8u>();
    expect_elements(encode, there_and_back(decode, encode, codes, Orv16s{}), codes);
    expect_elements(ORV_EXPORT(orvsLinToALaw_32f8u),
                    there_and_back(ORV_EXPORT(orvsALawToLin_8u32f), ORV_EXPORT(orvsLinToALaw_32f8u), codes, Orv32f{}),
                    codes);

    std::vector<Orv16s> first = {-5504, -5248, -6016, -5760, -4480, -4224, -4992, -4736}, values(8);
    EXPECT_EQ(decode(codes.data(), values.data(), 8), orvOk);
    expect_elements(decode, values, first);
    EXPECT_EQ(decode(codes.data() + 128, values.data(), 1), orvOk);
    expect_value(decode, values[0], 5504);
    const Orv16s zero = 0;
    Orv8u code = 0;
    EXPECT_EQ(encode(&zero, &code, 1), orvOk);
    expect_value(encode, code, 213);
}
TEST(MuLaw, codes_come_back_but_one)
{
    const auto decode = ORV_EXPORT(orvsMuLawToLin_8u16s);
    const auto encode = ORV_EXPORT(orvsLinToMuLaw_16s8u);
    const std::vector<Orv8u> codes = all_values<Orv8u>();
    std::vector<Orv8u> want = codes;
    want[127] = 255;
    expect_elements(encode, there_and_back(decode, encode, codes, Orv16s{}), want);
}

/// Codes by the number of their decoder output value, positive.
Orv8u a_code(int number) { return static_cast<Orv8u>(((number - 1) ^ a_law.inverted) | 0x80); }
Orv8u mu_code(int number) { return static_cast<Orv8u>((number ^ mu_law.inverted) | 0x80); }

TEST(Transcoding, changes_few_codes_and_only_their_last_bit)
{
    const auto a_to_mu_law = ORV_EXPORT(orvsALawToMuLaw_8u);
    const auto mu_to_a_law = ORV_EXPORT(orvsMuLawToALaw_8u);
    const std::vector<Orv8u> codes = all_values<Orv8u>();
    const auto flip_last_bits = [&](const std::vector<int>& numbers, auto code) {
        std::vector<Orv8u> want = codes;
        for (const int number : numbers)
            for (const int sign : {0, 0x80}) want[static_cast<std::size_t>(code(number) ^ sign)] ^= 1;
        return want;
    };
    expect_elements(a_to_mu_law, there_and_back(mu_to_a_law, a_to_mu_law, codes, Orv8u{}),
                    flip_last_bits({0, 2, 4, 6, 8, 10, 12, 14}, mu_code));
    expect_elements(mu_to_a_law, there_and_back(a_to_mu_law, mu_to_a_law, codes, Orv8u{}),
                    flip_last_bits({26, 28, 30, 32, 45, 47, 63, 80}, a_code));
}

} // namespace
} // namespace orvtest
