// Half spectra of real signals in their layouts, and a real transform of one direction, layout, length and flag in all
// the ways in which it can be called.
#pragma once

#include "tests/convert/arrays.h"
#include "tests/transform/fft.h"
#include "tests/transform/places.h"
#include "tests/transform/signals.h"

namespace orvtest {

/// X[0] ... X[N/2], in a type C of complex values.
template <class C>
using HalfSpectrum = std::vector<C>;

inline std::size_t packed_size(Layout layout, std::size_t n)
{
    if (layout != Layout::ccs) return n;
    return n == 1 ? 2 : n + 2;
}

/// The half spectrum of a signal of n values in a layout, element by element. What CCS has besides are zeros.
template <class C>
auto packed(Layout layout, const HalfSpectrum<C>& half, std::size_t n)
{
    using T = decltype(C::re);
    std::vector<T> elements = {half[0].re};
    if (layout == Layout::ccs) elements.push_back(0);
    if (layout == Layout::perm && n > 1) elements.push_back(half[n / 2].re);
    for (std::size_t k = 1; 2 * k < n; ++k) {
        elements.push_back(half[k].re);
        elements.push_back(half[k].im);
    }
    if (layout != Layout::perm && n > 1) elements.push_back(half[n / 2].re);
    if (layout == Layout::ccs && n > 1) elements.push_back(0);
    return elements;
}

/// The half spectrum that Perm holds.
template <class T>
HalfSpectrum<ComplexOf<T>> half_of_perm(const std::vector<T>& perm)
{
    const std::size_t n = perm.size();
    HalfSpectrum<ComplexOf<T>> half(n / 2 + 1);
    half[0] = {perm[0], 0};
    if (n > 1) half[n / 2] = {perm[1], 0};
    for (std::size_t k = 1; 2 * k < n; ++k) half[k] = {perm[2 * k], perm[2 * k + 1]};
    return half;
}

template <class T>
class RealFft {
public:
    RealFft(Direction direction, Layout layout, int order, int flag)
        : exports_(real_exports<T>(direction, layout)),
          direction_(direction),
          layout_(layout),
          order_(order),
          flag_(flag),
          spec_(order, flag),
          buffer_(spec_)
    {}

    std::string text() const
    {
        return std::string(exports_.apart.name()) + ", order " + std::to_string(order_) + ", flag " +
               std::to_string(flag_);
    }

    /// The transform in one of the ways.
    std::vector<T> operator()(const std::vector<T>& x) const
    {
        EXPECT_EQ(x.size(), source_size()) << text();
        std::vector<T> transformed(result_size());
        EXPECT_EQ(exports_.apart(x.data(), transformed.data(), spec_, buffer_.data()), orvOk) << text();
        look_at(exports_.apart.name(), transformed.data(), transformed.size());
        return transformed;
    }

    /// What the transform multiplies by.
    T factor() const
    {
        const T factor = (*this)(impulse(source_size(), 0, T(1)))[0];
        const long double wanted = nominal_factor(direction_, order_, flag_);
        EXPECT_LE(std::abs(factor / wanted - 1), flag_ == ORV_FFT_SCALE_SQRT ? factor_bound<T> : 0) << text();
        return factor;
    }

    /// Expects the transform of x to be the wanted one, bit for bit: out of place, in place, and with memory of its
    /// own.
    bool is_in_all_ways(const std::vector<T>& x, const std::vector<T>& wanted, Places places) const
    {
        bool all = true;
        for (Orv8u* const buffer : {buffer_.data(), static_cast<Orv8u*>(nullptr)}) {
            const std::string note = text() + (buffer ? "" : ", no buffer");
            // One array for both is as long as the longer of them. A result does not reach into the rest.
            std::vector<T> shared = x, shared_wanted = wanted;
            shared.resize(packed_size(layout_, length()), 55);
            shared_wanted.insert(shared_wanted.end(),
                                 shared.begin() + static_cast<std::ptrdiff_t>(shared_wanted.size()), shared.end());
            ArrayCalls apart(exports_.apart, note, {source(x), result(wanted)},
                             [&](auto p) { return exports_.apart(in<T>(p[0]), out<T>(p[1]), spec_, buffer); });
            ArrayCalls same(exports_.apart, note + ", in place", {changed(shared, shared_wanted)},
                            [&](auto p) { return exports_.apart(in<T>(p[0]), out<T>(p[0]), spec_, buffer); });
            ArrayCalls in_place(exports_.in_place, note, {changed(shared, shared_wanted)},
                                [&](auto p) { return exports_.in_place(out<T>(p[0]), spec_, buffer); });
            const Places where = buffer ? places : Places::one;
            all = all && at_places(apart, 2, sizeof(T), where) && at_places(same, 1, sizeof(T), Places::one) &&
                  at_places(in_place, 1, sizeof(T), where);
            EXPECT_EQ(buffer_.damage(), "") << text();
        }
        return all;
    }

    void place_buffer(Placement placement) { buffer_.place(buffer_.size(), placement); }

private:
    std::size_t length() const { return std::size_t{1} << order_; }
    std::size_t source_size() const
    {
        return direction_ == Direction::forward ? length() : packed_size(layout_, length());
    }
    std::size_t result_size() const
    {
        return direction_ == Direction::forward ? packed_size(layout_, length()) : length();
    }

    const RealExports<T> exports_;
    const Direction direction_;
    const Layout layout_;
    const int order_, flag_;
    const OwnSpec<RealSpec<T>> spec_;
    mutable WorkBuffer<RealSpec<T>> buffer_;
};

} // namespace orvtest
