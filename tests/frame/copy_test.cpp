// orvsCopy and orvsMove: values bit for bit, at every length, alignment, overlap and size.
#include "families.h"
#include "very_large.h"

#include "tests/support/checks.h"
#include "tests/support/compare.h"

#include <set>

namespace orvtest {
namespace {

// ---- Every element arrives, from another array and from the same

const auto same = [](const auto& element) -> const auto& { return element; };

TEST(Copy, every_length_at_every_alignment)
{
    for_each_copy([]<class T>(const Export<OrvStatus, const T*, T*, int>& copy) {
        EXPECT_TRUE(sweep_elements(copy, same, options_by_bytes<T>()));
    });
}

TEST(Move, every_length_at_every_alignment)
{
    for_each_move([]<class T>(const Export<OrvStatus, const T*, T*, int>& move) {
        EXPECT_TRUE(sweep_elements(move, same, options_by_bytes<T>()));
    });
}

/// All lengths up to 700 bytes, and the source at some distances from each kind of boundary.
template <class T>
void check_relative_alignments(const Export<OrvStatus, const T*, T*, int>& copy, const std::vector<int>& sources)
{
    constexpr std::size_t most = 700 / sizeof(T);
    LargeCopy<T> arrays(copy, most);
    for (std::size_t n = 1; n <= most; ++n)
        for (const int source : sources) {
            arrays.place_source(n, misaligned(source));
            for (int bytes = 0; bytes < 64; bytes += sizeof(T) == 1 ? 1 : 3)
                if (!arrays.check(misaligned(bytes))) return;
        }
}

TEST(Copy, source_and_destination_aligned_differently)
{
    for_each_copy([]<class T>(const Export<OrvStatus, const T*, T*, int>& copy) {
        check_relative_alignments(copy, {0, 1, 2, 7, 16, 31, 32});
    });
}

TEST(Move, source_and_destination_aligned_differently)
{
    for_each_move([]<class T>(const Export<OrvStatus, const T*, T*, int>& move) {
        check_relative_alignments(move, {0, 1, 18, 33});
    });
}

// ---- Large arrays

template <class T>
void check_large(const Export<OrvStatus, const T*, T*, int>& copy)
{
    LargeCopy<T> arrays(copy, 0x201000 / sizeof(T));
    for (const std::size_t bytes : {0x8000u, 0x8001u, 0x10000u, 0x100001u, 0x200000u, 0x200010u, 0x200FFFu})
        for (const Placement source : {before_guard, misaligned(0), misaligned(1), misaligned(34)}) {
            arrays.place_source(bytes / sizeof(T), source);
            for (const Placement placement : {before_guard, misaligned(0), misaligned(2), misaligned(33)})
                if (!arrays.check(placement)) return;
        }
    // Source and destination together are twice as large as this.
    const std::size_t beyond = bytes_beyond_caches() / sizeof(T);
    LargeCopy<T> larger(copy, beyond);
    larger.place_source(beyond, before_guard);
    EXPECT_TRUE(larger.check(sizeof(T) % 8 == 0 ? misaligned(0) : misaligned(45))) << copy.name();
}

TEST(Copy, large_arrays)
{
    for_each_copy([](const auto& copy) { check_large(copy); });
}

TEST(Move, large_arrays)
{
    for_each_move([](const auto& move) { check_large(move); });
}

TEST(Copy, large_array_onto_itself)
{
    for_each_copy([]<class T>(const Export<OrvStatus, const T*, T*, int>& copy) {
        const std::vector<std::byte> content = random_bytes(bytes_beyond_caches() / sizeof(T) * sizeof(T));
        std::vector<std::byte> array = content;
        T* data = reinterpret_cast<T*>(array.data());
        for (const std::size_t bytes : {std::size_t{0x8000}, asking_bytes, asking_bytes + 16, array.size()})
            EXPECT_EQ(copy(data, data, static_cast<int>(bytes / sizeof(T))), orvOk) << copy.name();
        EXPECT_TRUE(array == content) << copy.name();
    });
}

TEST(CopyAndMove, more_than_2_GiB)
{
    VeryLargeArray source, destination;
    if (!source.fits() || !destination.fits()) GTEST_SKIP() << "the address space has no room for two such arrays";
    const auto content = [](std::size_t i) { return static_cast<std::byte>(scramble(i / 8) >> (i % 8 * 8)); };
    source.write_shown(content);
    const auto check = [&]<class T>(const Export<OrvStatus, const T*, T*, int>& copy) {
        destination.write_shown([&](std::size_t i) { return ~content(i); });
        EXPECT_EQ(copy(source.data<T>(), destination.data<T>(), source.length<T>()), orvOk) << copy.name();
        EXPECT_EQ(destination.first_other_than(content), "") << copy.name();
        EXPECT_EQ(source.first_other_than(content), "") << copy.name() << " has changed the source";
    };
    check(ORV_EXPORT(orvsCopy_32f));
    check(ORV_EXPORT(orvsCopy_16s));
    check(ORV_EXPORT(orvsCopy_64sc));
    check(ORV_EXPORT(orvsMove_64f));
}

// ---- Overlaps

/// An array and a copy of it that begins some bytes before or behind it, in one piece of memory.
class Overlap {
public:
    /// Arrays of at most so many bytes, at most so far from each other.
    Overlap(std::size_t most, std::size_t farthest)
        : before_(random_bytes(most + farthest)), wanted_(before_), block_(before_.size())
    {}

    /// Moves n elements to the address that is so many bytes ahead. Says whether all was right.
    template <class T>
    bool check(const Export<OrvStatus, const T*, T*, int>& move, std::size_t n, std::ptrdiff_t distance,
               Placement placement)
    {
        const std::size_t bytes = n * sizeof(T), apart = static_cast<std::size_t>(std::abs(distance));
        const std::size_t from = distance < 0 ? apart : 0, to = distance < 0 ? 0 : apart;
        std::byte* memory = block_.place(bytes + apart, placement);
        std::memcpy(memory, before_.data(), bytes + apart);
        const std::string text = move.name() + (" of " + std::to_string(n)) + " elements by " +
                                 std::to_string(distance) + " bytes: the memory " + placement_text(placement);
        const CallNote note([&] { return text; });
        const OrvStatus status =
            move(reinterpret_cast<const T*>(memory + from), reinterpret_cast<T*>(memory + to), static_cast<int>(n));

        std::memcpy(wanted_.data(), before_.data(), bytes + apart);
        std::memcpy(wanted_.data() + to, before_.data() + from, bytes);
        const bool moved = std::memcmp(memory, wanted_.data(), bytes + apart) == 0;
        const std::string damage = block_.damage();
        if (status == orvOk && moved && damage.empty()) return true;
        ADD_FAILURE() << text << ": status " << status << (moved ? "" : ", a wrong byte") << ", damage: " << damage;
        return false;
    }

private:
    const std::vector<std::byte> before_;
    std::vector<std::byte> wanted_;
    GuardedBlock block_;
};

template <class T>
void check_near_overlaps(const Export<OrvStatus, const T*, T*, int>& move, std::vector<Placement> placements)
{
    constexpr int farthest = 130;
    Overlap overlap(700, farthest);
    for (const Placement placement : placements)
        for (std::size_t n = 1; n * sizeof(T) <= 700; ++n)
            for (std::ptrdiff_t distance = -farthest; distance <= farthest; ++distance)
                if (!overlap.check(move, n, distance, placement)) return;
}

TEST(Move, arrays_that_overlap)
{
    for_each_move([](const auto& move) { check_near_overlaps(move, {before_guard}); });
}

TEST(Move, arrays_that_overlap_at_many_addresses)
{
    check_near_overlaps(ORV_EXPORT(orvsMove_8u), {after_guard, misaligned(1), misaligned(13), misaligned(31)});
    check_near_overlaps(ORV_EXPORT(orvsMove_64fc), {after_guard, misaligned(1), misaligned(13), misaligned(31)});
}

TEST(Move, large_arrays_that_overlap)
{
    constexpr std::ptrdiff_t largest = 0x200040;
    Overlap overlap(largest, largest + 1);
    const auto check = [&]<class T>(const Export<OrvStatus, const T*, T*, int>& move) {
        for (const std::ptrdiff_t bytes :
             {std::ptrdiff_t{0x3FF0}, std::ptrdiff_t{0x4000}, std::ptrdiff_t{0x4010}, std::ptrdiff_t{0x7FF0},
              std::ptrdiff_t{0x8000}, std::ptrdiff_t{0x8010}, std::ptrdiff_t{0x200000}, largest}) {
            std::set<std::ptrdiff_t> distances = {bytes / 2, bytes - 33, bytes - 32, bytes - 1, bytes, bytes + 1};
            for (const std::ptrdiff_t d : {1, 2, 3, 4, 8, 16, 32, 64, 128, 256, 4096})
                distances.insert({d - 1, d, d + 1});
            for (const std::ptrdiff_t distance : distances)
                for (const Placement placement : {before_guard, misaligned(static_cast<int>(distance % 31))})
                    if (!overlap.check(move, static_cast<std::size_t>(bytes) / sizeof(T), distance, placement) ||
                        !overlap.check(move, static_cast<std::size_t>(bytes) / sizeof(T), -distance, placement))
                        return;
        }
    };
    check(ORV_EXPORT(orvsMove_8u));
    check(ORV_EXPORT(orvsMove_32f));
}

TEST(Move, by_one_element)
{
    for_each_move([]<class T>(const Export<OrvStatus, const T*, T*, int>& move) {
        Random random(seed_of(move.name(), 1000));
        const std::vector<T> content = inputs<T>(random, 1001);
        std::vector<T> up = content, down = content;
        EXPECT_EQ(move(up.data(), up.data() + 1, 1000), orvOk);
        EXPECT_EQ(move(down.data() + 1, down.data(), 1000), orvOk);

        // One after another: at first the element that stayed.
        std::vector<T> want_up = {content[0]}, want_down(content.begin() + 1, content.end());
        want_up.insert(want_up.end(), content.begin(), content.end() - 1);
        want_down.push_back(content[1000]);
        expect_elements(move, up, want_up, NanView::bits);
        expect_elements(move, down, want_down, NanView::bits);
    });
}

// ---- Bad arguments

TEST(Copy, bad_arguments)
{
    for_each_copy([](const auto& copy) { ArgumentChecks(copy, 4).null_pointers().bad_lengths().run(); });
}

TEST(Move, bad_arguments)
{
    for_each_move([](const auto& move) { ArgumentChecks(move, 4).null_pointers().bad_lengths().run(); });
}

} // namespace
} // namespace orvtest
