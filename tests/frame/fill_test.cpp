// orvsZero and orvsSet: values bit for bit, at every length, alignment and size.
#include "families.h"
#include "very_large.h"

#include "tests/support/checks.h"
#include "tests/support/compare.h"

namespace orvtest {
namespace {

// ---- Every element has the value

TEST(Zero, every_length_at_every_alignment)
{
    for_each_zero([]<class T>(const Export<OrvStatus, T*, int>& zero) {
        EXPECT_TRUE(sweep_elements(
            zero, [] { return T{}; }, options_by_bytes<T>()));
    });
}

TEST(Set, every_length_at_every_alignment)
{
    for_each_set([]<class T>(const Export<OrvStatus, T, T*, int>& set) {
        EXPECT_TRUE(sweep_elements(
            set, [](const T& value) -> const T& { return value; }, options_by_bytes<T>()));
    });
}

/// All lengths up to so many bytes; the sweeps above try only few alignments beyond 70 elements.
constexpr std::size_t dense_bytes = 700;

template <class T, class Fill>
void check_every_length_at_every_address(const Fill& fill)
{
    LargeFill<T> array(fill, dense_bytes);
    for (std::size_t n = 1; n * sizeof(T) <= dense_bytes; ++n)
        for (int bytes = 0; bytes < 64; ++bytes)
            if (!array.check(n, misaligned(bytes))) return;
}

TEST(Zero, up_to_700_bytes_at_every_address)
{
    for_each_zero(
        []<class T>(const Export<OrvStatus, T*, int>& zero) { check_every_length_at_every_address<T>(zero); });
}

TEST(Set, up_to_700_bytes_at_every_address)
{
    for_each_set(
        []<class T>(const Export<OrvStatus, T, T*, int>& set) { check_every_length_at_every_address<T>(set); });
}

// ---- Large arrays

template <class T, class Fill>
void check_large(const Fill& fill)
{
    constexpr std::size_t asking = asking_bytes / sizeof(T);
    LargeFill<T> array(fill, asking + 4099);
    for (const std::size_t n : {asking / 2, asking / 2 + 1, asking - 1, asking, asking + 1, asking + 4099})
        for (const Placement placement :
             {before_guard, after_guard, misaligned(1), misaligned(8), misaligned(63 / sizeof(T) * sizeof(T))})
            if (!array.check(n, placement)) return;
    const std::size_t beyond = bytes_beyond_caches() / sizeof(T);
    LargeFill<T> larger(fill, beyond);
    for (const Placement placement : {before_guard, misaligned(61)})
        if (!larger.check(beyond, placement)) return;
}

TEST(Zero, large_arrays)
{
    for_each_zero([]<class T>(const Export<OrvStatus, T*, int>& zero) { check_large<T>(zero); });
}

TEST(Set, large_arrays)
{
    for_each_set([]<class T>(const Export<OrvStatus, T, T*, int>& set) { check_large<T>(set); });
}

TEST(Zero, more_than_2_GiB)
{
    VeryLargeArray array;
    if (!array.fits()) GTEST_SKIP() << "the address space has no room for so large an array";
    const auto check = [&]<class T>(const Export<OrvStatus, T*, int>& zero) {
        array.write_shown([](std::size_t) { return std::byte{0x5A}; });
        EXPECT_EQ(zero(array.data<T>(), array.length<T>()), orvOk) << zero.name();
        EXPECT_EQ(array.first_other_than([](std::size_t) { return std::byte{0}; }), "") << zero.name();
    };
    check(ORV_EXPORT(orvsZero_32f));
    check(ORV_EXPORT(orvsZero_64sc));
}

TEST(Set, more_than_2_GiB)
{
    VeryLargeArray array;
    if (!array.fits()) GTEST_SKIP() << "the address space has no room for so large an array";
    const auto check = [&]<class T>(const Export<OrvStatus, T, T*, int>& set) {
        array.write_shown([](std::size_t) { return std::byte{0x5A}; });
        const T value = telling_value<T>();
        EXPECT_EQ(set(value, array.data<T>(), array.length<T>()), orvOk) << set.name();
        const auto wanted = [&](std::size_t i) { return reinterpret_cast<const std::byte*>(&value)[i % sizeof value]; };
        EXPECT_EQ(array.first_other_than(wanted), "") << set.name();
    };
    check(ORV_EXPORT(orvsSet_16s));
    check(ORV_EXPORT(orvsSet_32s));
    check(ORV_EXPORT(orvsSet_64f));
    check(ORV_EXPORT(orvsSet_64fc));
}

// ---- The bits of the value

/// A value of these component bits, made without a floating-point instruction.
template <class T, class... Bits>
T value_of_bits(Bits... bits)
{
    const std::common_type_t<Bits...> words[] = {bits...};
    static_assert(sizeof words == sizeof(T));
    T value;
    std::memcpy(&value, words, sizeof value);
    return value;
}

template <class T>
void expect_kept_bits(const Export<OrvStatus, T, T*, int>& set, const T& value)
{
    for (const std::size_t n : {1u, 2u, 3u, 5u, 8u, 37u, 300u}) {
        GuardedArray<T> dst(n);
        EXPECT_EQ(set(value, dst.data(), static_cast<int>(n)), orvOk);
        std::vector<T> want(n);
        for (T& element : want) std::memcpy(&element, &value, sizeof value);
        expect_elements(set, dst, want, NanView::bits);
    }
}

TEST(Set, keeps_sign_and_payload_of_not_a_numbers)
{
    constexpr std::uint32_t signalling32 = 0x7FA12345, quiet32 = 0xFFC54321, minus_zero32 = 0x80000000, least32 = 1;
    for (const std::uint32_t bits : {signalling32, quiet32, minus_zero32, least32, 0xFF800001u})
        expect_kept_bits(ORV_EXPORT(orvsSet_32f), value_of_bits<Orv32f>(bits));
    expect_kept_bits(ORV_EXPORT(orvsSet_32fc), value_of_bits<Orv32fc>(signalling32, minus_zero32));
    expect_kept_bits(ORV_EXPORT(orvsSet_32fc), value_of_bits<Orv32fc>(quiet32, signalling32));

    constexpr std::uint64_t signalling64 = 0x7FF123456789ABCD, quiet64 = 0xFFF8000000054321, minus_zero64 = 1ull << 63,
                            least64 = 1;
    for (const std::uint64_t bits : {signalling64, quiet64, minus_zero64, least64})
        expect_kept_bits(ORV_EXPORT(orvsSet_64f), value_of_bits<Orv64f>(bits));
    expect_kept_bits(ORV_EXPORT(orvsSet_64fc), value_of_bits<Orv64fc>(signalling64, minus_zero64));
    expect_kept_bits(ORV_EXPORT(orvsSet_64fc), value_of_bits<Orv64fc>(quiet64, signalling64));
}

template <class T>
void expect_real_part_first(const Export<OrvStatus, T, T*, int>& set)
{
    using Component = decltype(T::re);
    const T value = {1, 2};
    T dst[3] = {};
    EXPECT_EQ(set(value, dst, 3), orvOk);
    Component components[6];
    std::memcpy(components, dst, sizeof dst);
    const Component want[6] = {1, 2, 1, 2, 1, 2};
    expect_elements(set, components, want, 6);
}

TEST(Set, stores_the_real_part_before_the_imaginary_part)
{
    expect_real_part_first(ORV_EXPORT(orvsSet_16sc));
    expect_real_part_first(ORV_EXPORT(orvsSet_32sc));
    expect_real_part_first(ORV_EXPORT(orvsSet_64sc));
    expect_real_part_first(ORV_EXPORT(orvsSet_32fc));
    expect_real_part_first(ORV_EXPORT(orvsSet_64fc));
}

// ---- Bad arguments

TEST(Zero, bad_arguments)
{
    for_each_zero([](const auto& zero) { ArgumentChecks(zero, 4).null_pointers().bad_lengths().run(); });
}

TEST(Set, bad_arguments)
{
    for_each_set([]<class T>(const Export<OrvStatus, T, T*, int>& set) {
        ArgumentChecks(set, telling_value<T>(), 4).null_pointers().bad_lengths().run();
    });
}

} // namespace
} // namespace orvtest
