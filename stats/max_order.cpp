// How many bits the largest magnitude takes.
#include "orvs/stats.h"

#include <bit>

#include "frame/checks.h"
#include "stats/extremes.h"

using namespace ORV_VARIANT;

namespace {

/// The length is looked at first.
ORV_INLINE OrvStatus check_length_first(int len, const void* src, const void* order)
{
    if (len < 1) return orvErrBadLength;
    if (any_null(src, order)) return orvErrNullPointer;
    return orvOk;
}

template <class T>
ORV_INLINE OrvStatus integer_order(const T* src, int len, Orv32s* order)
{
    if (const OrvStatus bad = check_length_first(len, src, order)) return bad;
    with_extremes<Chains<Largest, T, Magnitude>>(
        src, len, [=](auto m) ORV_INLINE_LAMBDA { put_element(order, Orv32s(std::bit_width(m))); });
    return orvOk;
}

// ---- Floats: magnitudes compare like their bits, and integers raise no flags

template <class T>
constexpr word_of<T> most_finite = std::bit_cast<word_of<T>>(std::numeric_limits<T>::max());

struct Bits {
    template <class T>
    ORV_INLINE static vec<word_of<T>> key(vec<T> v)
    {
        return as<word_of<T>>(magnitude(v));
    }
};
/// Zeros of infinities and not-a-numbers.
struct FiniteBits {
    template <class T>
    ORV_INLINE static vec<word_of<T>> key(vec<T> v)
    {
        const auto bits = Bits::key(v);
        return and_not(is_greater(bits, splat(most_finite<T>)), bits);
    }
};

template <class T, class Of>
word_of<T> largest_bits(const T* src, int len)
{
    word_of<T> bits;
    with_extremes<Chains<Largest, T, Of>>(src, len, [&](word_of<T> found) ORV_INLINE_LAMBDA { bits = found; });
    return bits;
}

template <class T>
OrvStatus float_order(const T* src, int len, Orv32s* order)
{
    if (const OrvStatus bad = check_length_first(len, src, order)) return bad;
    constexpr int fraction_bits = std::numeric_limits<T>::digits - 1, bias = std::numeric_limits<T>::max_exponent - 2;
    auto bits = largest_bits<T, Bits>(src, len);
    const bool all_finite = bits <= most_finite<T>;
    if (!all_finite) bits = largest_bits<T, FiniteBits>(src, len);
    put_element(order, bits == 0 ? 0 : Orv32s(bits >> fraction_bits) - bias);
    return all_finite ? orvOk : orvWrnNanInData;
}

} // namespace

OrvStatus orvsMaxOrder_16s(const Orv16s* src, int len, Orv32s* order) { return integer_order(src, len, order); }
OrvStatus orvsMaxOrder_32s(const Orv32s* src, int len, Orv32s* order) { return integer_order(src, len, order); }
OrvStatus orvsMaxOrder_32f(const Orv32f* src, int len, Orv32s* order) { return float_order(src, len, order); }
OrvStatus orvsMaxOrder_64f(const Orv64f* src, int len, Orv32s* order) { return float_order(src, len, order); }
