// A complex transform of one direction, length and flag, in all the ways in which it can be called.
#pragma once

#include "tests/convert/arrays.h"
#include "tests/transform/fft.h"
#include "tests/transform/places.h"
#include "tests/transform/signals.h"

namespace orvtest {

template <class T>
class ComplexFft {
public:
    using C = ComplexOf<T>;

    ComplexFft(Direction direction, int order, int flag)
        : exports_(complex_exports<T>(direction)),
          direction_(direction),
          order_(order),
          flag_(flag),
          spec_(order, flag),
          split_spec_(order, flag),
          buffer_(spec_),
          split_buffer_(split_spec_)
    {}

    std::string text() const
    {
        return std::string(exports_.apart.name()) + ", order " + std::to_string(order_) + ", flag " +
               std::to_string(flag_);
    }

    /// The transform in one of the ways.
    std::vector<C> operator()(const std::vector<C>& x) const
    {
        std::vector<C> transformed(x.size());
        EXPECT_EQ(exports_.apart(x.data(), transformed.data(), spec_, buffer_.data()), orvOk) << text();
        look_at(exports_.apart.name(), transformed.data(), transformed.size());
        return transformed;
    }

    /// What the transform multiplies by.
    T factor() const
    {
        const std::size_t n = std::size_t{1} << order_;
        const T factor = (*this)(impulse(n, 0, C{1, 0}))[0].re;
        const long double wanted = nominal_factor(direction_, order_, flag_);
        EXPECT_LE(std::abs(factor / wanted - 1), flag_ == ORV_FFT_SCALE_SQRT ? factor_bound<T> : 0) << text();
        return factor;
    }

    /// Expects the transform of x to be the wanted one, bit for bit: out of place, in place, in one array or split into
    /// two, and with memory of its own.
    bool is_in_all_ways(const std::vector<C>& x, const std::vector<C>& wanted, Places places) const
    {
        const std::vector<T> re = real_parts(x), im = imaginary_parts(x);
        const std::vector<T> wanted_re = real_parts(wanted), wanted_im = imaginary_parts(wanted);
        bool all = true;
        for (const bool given : {true, false}) {
            Orv8u* buffer = given ? buffer_.data() : nullptr;
            Orv8u* split_buffer = given ? split_buffer_.data() : nullptr;
            const std::string note = text() + (given ? "" : ", no buffer");
            ArrayCalls apart(exports_.apart, note, {source(x), result(wanted)},
                             [&](auto p) { return exports_.apart(in<C>(p[0]), out<C>(p[1]), spec_, buffer); });
            ArrayCalls same(exports_.apart, note + ", in place", {changed(x, wanted)},
                            [&](auto p) { return exports_.apart(in<C>(p[0]), out<C>(p[0]), spec_, buffer); });
            ArrayCalls in_place(exports_.in_place, note, {changed(x, wanted)},
                                [&](auto p) { return exports_.in_place(out<C>(p[0]), spec_, buffer); });
            ArrayCalls split(exports_.split, note, {source(re), source(im), result(wanted_re), result(wanted_im)},
                             [&](auto p) {
                                 return exports_.split(in<T>(p[0]), in<T>(p[1]), out<T>(p[2]), out<T>(p[3]),
                                                       split_spec_, split_buffer);
                             });
            ArrayCalls split_same(exports_.split, note + ", in place", {changed(re, wanted_re), changed(im, wanted_im)},
                                  [&](auto p) {
                                      return exports_.split(in<T>(p[0]), in<T>(p[1]), out<T>(p[0]), out<T>(p[1]),
                                                            split_spec_, split_buffer);
                                  });
            ArrayCalls split_in_place(
                exports_.split_in_place, note, {changed(re, wanted_re), changed(im, wanted_im)},
                [&](auto p) { return exports_.split_in_place(out<T>(p[0]), out<T>(p[1]), split_spec_, split_buffer); });
            const Places where = given ? places : Places::one;
            all = all && at_places(apart, 2, sizeof(C), where) && at_places(same, 1, sizeof(C), Places::one) &&
                  at_places(in_place, 1, sizeof(C), where) && at_places(split, 4, sizeof(T), where) &&
                  at_places(split_same, 2, sizeof(T), Places::one) && at_places(split_in_place, 2, sizeof(T), where);
            EXPECT_EQ(buffer_.damage(), "") << text();
            EXPECT_EQ(split_buffer_.damage(), "") << text();
        }
        return all;
    }

    /// Moves the buffers.
    void place_buffers(Placement placement)
    {
        buffer_.place(buffer_.size(), placement);
        split_buffer_.place(split_buffer_.size(), placement);
    }

private:
    const ComplexExports<T> exports_;
    const Direction direction_;
    const int order_, flag_;
    const OwnSpec<ComplexSpec<T>> spec_;
    const OwnSpec<SplitSpec<T>> split_spec_;
    mutable WorkBuffer<ComplexSpec<T>> buffer_;
    mutable WorkBuffer<SplitSpec<T>> split_buffer_;
};

} // namespace orvtest
