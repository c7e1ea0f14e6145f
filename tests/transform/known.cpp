#include "tests/transform/known.h"

#include "tests/transform/signals.h"

namespace orvtest {
namespace {

constexpr int short_order = 12;
constexpr std::size_t period = std::size_t{1} << short_order;

} // namespace

Known::Known(int order, bool is_real)
    : order_(order),
      distance_(std::size_t{1} << (order - short_order)),
      first_(distance_ / 2 - 1), // odd: all roots of unity occur
      roots_(order)
{
    Random random(seed_of("known", static_cast<std::uint64_t>(order)));
    const auto draw = [&] { return noise_value<long double>(random, coarse_bits); };
    for (LongSignal* x : {&repeated_, &spread_})
        for (std::size_t n = 0; n < period; ++n) {
            const long double re = draw();
            x->push_back({re, is_real ? 0 : draw()});
        }
    repeated_spectrum_ = spectrum(repeated_);
    spread_spectrum_ = spectrum(spread_);
}

LongComplex Known::signal(std::size_t n) const
{
    const LongComplex value = repeated_[n % period];
    return (n & (distance_ - 1)) == first_ ? value + spread_[n >> (order_ - short_order)] : value;
}

LongComplex Known::spectrum_at(std::size_t k) const
{
    const LongComplex value = roots_[first_ * k & (size() - 1)] * spread_spectrum_[k % period];
    if ((k & (distance_ - 1)) != 0) return value;
    return value + static_cast<long double>(distance_) * repeated_spectrum_[k >> (order_ - short_order)];
}

template <class T>
void Known::write(T* re, T* im, std::size_t step) const
{
    for (std::size_t n = 0; n < size(); ++n) {
        const LongComplex value = signal(n);
        re[n * step] = static_cast<T>(value.re);
        if (im) im[n * step] = static_cast<T>(value.im);
    }
}

template <class T>
double Known::error_of_signal(const Values<T>& got) const
{
    Deviation of;
    for (std::size_t n = 0; n < size(); ++n) of.add(got[n], signal(n));
    return of.rms();
}

template <class T>
double Known::error_of_spectrum(const Values<T>& got) const
{
    Deviation of;
    for (std::size_t k = 0; k < size(); ++k) of.add(got[k], spectrum_at(k));
    return of.rms();
}

template <class T>
double Known::error_of_perm(const T* got) const
{
    const std::size_t half = size() / 2;
    Deviation of;
    of.add({got[0], 0}, spectrum_at(0));
    of.add({got[1], 0}, spectrum_at(half));
    for (std::size_t k = 1; k < half; ++k) of.add({got[2 * k], got[2 * k + 1]}, spectrum_at(k));
    return of.rms();
}

template void Known::write(Orv32f*, Orv32f*, std::size_t) const;
template void Known::write(Orv64f*, Orv64f*, std::size_t) const;
template double Known::error_of_signal(const Values<Orv32f>&) const;
template double Known::error_of_signal(const Values<Orv64f>&) const;
template double Known::error_of_spectrum(const Values<Orv32f>&) const;
template double Known::error_of_spectrum(const Values<Orv64f>&) const;
template double Known::error_of_perm(const Orv32f*) const;
template double Known::error_of_perm(const Orv64f*) const;

} // namespace orvtest
