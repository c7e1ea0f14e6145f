// What the tests of extremes share: inputs without ambiguous zeros, and extremes by plain loops.
#pragma once

#include "tests/stats/inputs.h"

#include <algorithm>
#include <limits>
#include <vector>

namespace orvtest {

/// Whether x comes before y in the search for the maximum or the minimum.
struct Greater {
    static constexpr bool is_of_maximum = true;
    template <class T>
    bool operator()(T x, T y) const
    {
        return x > y;
    }
};
struct Less {
    static constexpr bool is_of_maximum = false;
    template <class T>
    bool operator()(T x, T y) const
    {
        return x < y;
    }
};

/// Any values; zeros are positive, since equal ones of other signs would both be right.
template <class T>
std::vector<T> values(std::size_t n, Floats floats = Floats::no_nan)
{
    std::vector<T> x = drawn<T>("extremes", n, floats);
    for (T& value : x)
        if (value == 0) value = 0;
    return x;
}

/// A few different values, each at many places.
template <class T>
std::vector<T> repetitive(std::size_t n)
{
    Random random(n);
    std::vector<T> x(n);
    for (T& value : x) value = static_cast<T>(3 + random.below(4));
    return x;
}

/// The first place of the extreme.
template <class Order, class T>
std::size_t first_place(const std::vector<T>& x, Order order)
{
    std::size_t place = 0;
    for (std::size_t i = 1; i < x.size(); ++i)
        if (order(x[i], x[place])) place = i;
    return place;
}
template <class Order, class T>
T extreme(const std::vector<T>& x, Order order)
{
    return x[first_place(x, order)];
}

/// Magnitudes, exactly.
template <class T>
std::vector<std::int64_t> magnitudes(const std::vector<T>& x)
{
    std::vector<std::int64_t> m;
    for (const T value : x) m.push_back(std::abs(std::int64_t{value}));
    return m;
}

/// As the type holds a magnitude.
template <class T>
T limited(std::int64_t magnitude)
{
    return static_cast<T>(std::min<std::int64_t>(magnitude, std::numeric_limits<T>::max()));
}

/// How many floats lie before the next multiple of 32 bytes; none if whole ones do not reach it.
inline std::size_t elements_before(std::size_t address, std::size_t size)
{
    return address % size == 0 ? (32 - address % 32) % 32 / size : 0;
}

/// Lengths on both sides of where vectors, and aligned ones, begin.
inline std::vector<int> lengths_of_searches()
{
    return lengths_around({96, 128, 252, 253, 256, 512, 1000, 1024, 1199, 1200, 2399, 2400, 4097});
}

} // namespace orvtest
