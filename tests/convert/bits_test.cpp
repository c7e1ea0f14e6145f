// Bit strings, bit by bit.
#include "tests/convert/arrays.h"
#include "tests/support/checks.h"

#include "orvs/convert.h"

namespace orvtest {
namespace {

/// The weight of a bit in its byte.
unsigned weight(bool little, std::size_t bit) { return 1u << (little ? bit % 8 : 7 - bit % 8); }

bool get(bool little, const std::vector<Orv8u>& string, std::size_t bit)
{
    return (string[bit / 8] & weight(little, bit)) != 0;
}
void set(bool little, std::vector<Orv8u>& string, std::size_t bit, bool value)
{
    const unsigned w = weight(little, bit), rest = string[bit / 8] & ~w;
    string[bit / 8] = static_cast<Orv8u>(value ? rest | w : rest);
}

using Copy = Export<OrvStatus, const Orv8u*, int, Orv8u*, int, int>;

/// Arrays begin with the byte that holds the first bit and end with that of the last; for offsets above 7 the pointers
/// lie before them.
class BitCopies {
public:
    BitCopies(const Copy& f, bool little, int from, int to, int length)
    {
        const auto bytes = [=](int offset) { return static_cast<std::size_t>((offset % 8 + length + 7) / 8); };
        Random random(seed_of(f.name(), static_cast<std::uint64_t>(length) * 64 +
                                            static_cast<std::uint64_t>(from % 8 * 8 + to % 8)));
        const std::vector<Orv8u> src = inputs<Orv8u>(random, bytes(from)), before = inputs<Orv8u>(random, bytes(to));
        std::vector<Orv8u> want = before;
        for (int k = 0; k < length; ++k)
            set(little, want, static_cast<std::size_t>(to % 8 + k),
                get(little, src, static_cast<std::size_t>(from % 8 + k)));
        calls_ = std::make_unique<ArrayCalls>(
            f, std::to_string(length) + " bits from " + std::to_string(from) + " to " + std::to_string(to),
            std::vector<CallArray>{source(src), changed(before, want)},
            [=](auto p) { return f(in<Orv8u>(p[0]) - from / 8, from, out<Orv8u>(p[1]) - to / 8, to, length); });
    }
    ArrayCalls& operator*() { return *calls_; }

private:
    std::unique_ptr<ArrayCalls> calls_;
};

void expect_copies(const Copy& f, bool little)
{
    for (int from = 0; from < 8; ++from)
        for (int to = 0; to < 8; ++to) {
            for (int n = 1; n <= 40; ++n) ASSERT_TRUE((*BitCopies(f, little, from, to, n)).at_many_places(1));
            for (const int n : {63, 64, 65, 255, 256, 257, 263, 264, 265, 300, 511, 512, 513, 520, 777, 1000, 5001})
                ASSERT_TRUE((*BitCopies(f, little, from, to, n)).at_many_places(3));
        }
    for (const int from : {8, 13, 77, 1000})
        for (const int to : {9, 24, 123})
            for (const int n : {1, 3, 8, 100, 999}) ASSERT_TRUE((*BitCopies(f, little, from, to, n)).at_many_places(1));
    EXPECT_TRUE((*BitCopies(f, little, 3, 6, 8 * 0x100800 + 5)).at(before_guard));
    EXPECT_TRUE((*BitCopies(f, little, 2, 2, 8 * 0x100800 + 5)).at(misaligned(0)));
}

TEST(CopyBits, values)
{
    expect_copies(ORV_EXPORT(orvsCopy_1u), true);
    expect_copies(ORV_EXPORT(orvsCopyLE_1u), true);
    expect_copies(ORV_EXPORT(orvsCopyBE_1u), false);
}

TEST(CopyBits, of_large_strings)
{
    const int n = 8 * length_beyond_caches<Orv8u>() + 3;
    EXPECT_TRUE((*BitCopies(ORV_EXPORT(orvsCopy_1u), true, 3, 6, n)).at(misaligned(0)));
}

TEST(CopyBits, orders)
{
    const std::vector<Orv8u> src = {0xB4};
    const auto expect = [&](const Copy& f, const std::vector<Orv8u>& want) {
        std::vector<Orv8u> dst = {0, 0};
        expect_value(f, Orv32s{f(src.data(), 2, dst.data(), 7, 4)}, orvOk);
        expect_elements(f, dst, want);
    };
    expect(ORV_EXPORT(orvsCopy_1u), {0x80, 0x06});
    expect(ORV_EXPORT(orvsCopyLE_1u), {0x80, 0x06});
    expect(ORV_EXPORT(orvsCopyBE_1u), {0x01, 0xA0});
}

TEST(CopyBits, checks)
{
    for (const Copy& f : {ORV_EXPORT(orvsCopy_1u), ORV_EXPORT(orvsCopyLE_1u), ORV_EXPORT(orvsCopyBE_1u)}) {
        ArgumentChecks(f, 3, 5, 20)
            .null_pointers()
            .bad<4>(0, orvErrBadLength)
            .bad<1>(-1, orvErrBadLength)
            .bad<3>(-1, orvErrBadLength)
            .run();
        ArgumentChecks(f, 3, 5, 20)
            .null_pointers()
            .bad<4>(INT_MIN, orvErrBadLength)
            .bad<1>(INT_MIN, orvErrBadLength)
            .bad<3>(INT_MIN, orvErrBadLength)
            .run();
    }
}

// ---- PackBits

using Pack = Export<OrvStatus, const Orv32u*, const int*, int, Orv8u*, int, int*>;

void expect_packed(int length, int offset, int widest)
{
    const Pack f = ORV_EXPORT(orvsPackBits_32u8u);
    Random random(seed_of(f.name(), static_cast<std::uint64_t>(length * 10000 + offset * 100 + widest)));
    const std::vector<Orv32u> words = inputs<Orv32u>(random, static_cast<std::size_t>(length));
    std::vector<int> widths;
    std::vector<bool> string;
    for (const Orv32u word : words) {
        const int width =
            static_cast<int>(random.below(static_cast<std::uint64_t>(widest) + 3)) - 1; // -1 to widest + 1
        widths.push_back(width);
        for (int k = 0; k < std::min(width, 32); ++k) string.push_back((word >> k & 1) != 0);
    }
    const auto first = static_cast<std::size_t>(offset % 8);
    const std::size_t bytes = string.empty() ? 0 : (first + string.size() + 7) / 8;
    const std::vector<Orv8u> before = inputs<Orv8u>(random, bytes);
    std::vector<Orv8u> want = before;
    for (std::size_t k = 0; k < string.size(); ++k) set(true, want, first + k, string[k]);
    const std::vector<int> bits = {static_cast<int>(string.size())};
    ArrayCalls calls(f, std::to_string(length) + " words to " + std::to_string(offset),
                     {source(words), source(widths), changed(before, want), result(bits)}, [=](auto p) {
                         return f(in<Orv32u>(p[0]), in<int>(p[1]), length, out<Orv8u>(p[2]) - offset / 8, offset,
                                  out<int>(p[3]));
                     });
    EXPECT_TRUE(calls.at(before_guard) && calls.at(after_guard) && calls.at(misaligned(4)));
}

TEST(PackBits, values)
{
    for (int length = 1; length <= 60; ++length)
        for (int offset = 0; offset < 8; ++offset)
            for (const int widest : {0, 1, 3, 8, 17, 31, 32, 40}) expect_packed(length, offset, widest);
    for (const int offset : {8, 15, 1001}) expect_packed(5000, offset, 32);
}
TEST(PackBits, least_significant_bits_first)
{
    const Pack f = ORV_EXPORT(orvsPackBits_32u8u);
    const std::vector<Orv32u> words = {5, 0, 9};
    const std::vector<int> widths = {3, 2, 4};
    std::vector<Orv8u> dst = {0, 0xF0};
    int bits = 0;
    expect_value(f, Orv32s{f(words.data(), widths.data(), 3, dst.data(), 0, &bits)}, orvOk);
    expect_elements(f, dst, {0x25, 0xF1});
    expect_value(f, Orv32s{bits}, 9);
}
TEST(PackBits, checks)
{
    const Pack f = ORV_EXPORT(orvsPackBits_32u8u);
    ArgumentChecks(f, 4, 5).null_pointers().bad<2>(0, orvErrBadLength).bad<4>(-1, orvErrBadLength).run();
    ArgumentChecks(f, 4, 5).null_pointers().bad<2>(INT_MIN, orvErrBadLength).bad<4>(INT_MIN, orvErrBadLength).run();
}

} // namespace
} // namespace orvtest
