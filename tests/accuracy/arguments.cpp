#include "arguments.h"

#include "tests/support/inputs.h"

#include <bit>

namespace orvtest {
namespace {

template <class T>
using Bits = std::conditional_t<std::is_same_v<T, float>, std::uint32_t, std::uint64_t>;

template <class T>
std::vector<T> special_values()
{
    using Limits = std::numeric_limits<T>;
    std::vector<T> values;
    for (const T value :
         {T(0), Limits::denorm_min(), Limits::min() - Limits::denorm_min(), Limits::min(), 1 - Limits::epsilon() / 2,
          T(1), 1 + Limits::epsilon(), Limits::max(), Limits::infinity(), Limits::quiet_NaN()}) {
        values.push_back(value);
        values.push_back(-value);
    }
    return values;
}

/// A fraction in [0, 1).
double fraction(std::uint64_t bits) { return static_cast<double>(bits >> 11) * 0x1p-53; }

} // namespace

template <class T>
Arguments<T>::Arguments(const Function& function, Extent extent)
    : function_(function), by_pattern_(sizeof(T) == 4 && function.arity == 1)
{
    // A prime distance meets every low part of a pattern.
    stride_ = extent == Extent::all ? 1 : 1009;
    if (by_pattern_) spread_ = (std::uint64_t{1} << 32) / stride_;
    else spread_ = extent == Extent::all ? 100'000'000 : 1 << 18;
    list_special_values();
    list_neighbours();
}

template <class T>
void Arguments<T>::list_special_values()
{
    for (const T x : special_values<T>()) {
        if (function_.arity == 1) listed_.push_back({x, 0});
        else
            for (const T y : special_values<T>()) listed_.push_back({x, y});
    }
}

template <class T>
void Arguments<T>::list_neighbours()
{
    constexpr T infinity = std::numeric_limits<T>::infinity();
    constexpr int reach = 8;
    for (const long double value : function_.hard()) {
        T x = static_cast<T>(value);
        if (!std::isfinite(x)) continue;
        for (int i = 0; i < reach; ++i) x = std::nextafter(x, -infinity);
        for (int i = -reach; i <= reach; ++i, x = std::nextafter(x, infinity)) {
            if (function_.arity == 1) {
                listed_.push_back({x, 0});
                listed_.push_back({-x, 0});
            } else { // as a quotient, in all quadrants
                for (const T y : {T(1), T(-1)}) listed_.insert(listed_.end(), {{x, y}, {-x, y}, {y, x}, {y, -x}});
            }
        }
    }
}

template <class T>
typename Arguments<T>::Pair Arguments<T>::operator[](std::uint64_t i) const
{
    if (i < listed_.size()) return listed_[static_cast<std::size_t>(i)];
    i -= listed_.size();
    if (by_pattern_) return {std::bit_cast<T>(static_cast<Bits<T>>(i * stride_)), 0};
    if (function_.arity == 1) return {draw(i), 0};
    return {draw(2 * i), draw(2 * i + 1)};
}

template <class T>
T Arguments<T>::draw(std::uint64_t number) const
{
    const std::uint64_t uniform = scramble(number), detail = scramble(~number);
    const T sign = detail >> 63 ? T(-1) : T(1);
    const T significand = static_cast<T>(1 + fraction(uniform)); // in [1, 2]
    const auto among = [&](Span span) { return span.low + fraction(detail << 8) * (span.high - span.low); };
    switch (detail % 8) {
    case 0: return std::bit_cast<T>(static_cast<Bits<T>>(uniform));
    case 1:
    case 2:
        if (!function_.near_one) break;
        return 1 + sign * std::ldexp(significand, static_cast<int>(among({-std::numeric_limits<T>::digits - 1.0, -2})));
    case 3:
    case 4: {
        const Span values = function_.values;
        return static_cast<T>(values.low + fraction(uniform) * (values.high - values.low));
    }
    default: break;
    }
    return sign * std::ldexp(significand, static_cast<int>(std::floor(among(function_.exponents))));
}

template class Arguments<float>;
template class Arguments<double>;

} // namespace orvtest
