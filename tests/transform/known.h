// Long signals whose spectra are known by shorter ones: noise that repeats itself, whose spectrum has few values, plus
// values of noise far from each other, whose spectrum repeats itself.
#pragma once

#include "tests/transform/reference.h"

namespace orvtest {

/// Bits of noise behind the point. All types hold such values, sums of two of them as well.
constexpr int coarse_bits = 21;

class Known {
public:
    Known(int order, bool is_real);

    std::size_t size() const { return std::size_t{1} << order_; }

    /// Writes the signal, which T holds exactly; im is null for a real one.
    template <class T>
    void write(T* re, T* im, std::size_t step) const;

    /// How far values are from the signal and from its spectrum: root mean square, relative to theirs.
    template <class T>
    double error_of_signal(const Values<T>& got) const;
    template <class T>
    double error_of_spectrum(const Values<T>& got) const;
    /// The same for the half spectrum of a real signal in the layout Perm.
    template <class T>
    double error_of_perm(const T* got) const;

private:
    LongComplex signal(std::size_t n) const;
    LongComplex spectrum_at(std::size_t k) const;

    int order_;
    std::size_t distance_, first_; // of the values that are far from each other
    LongSignal repeated_, spread_, repeated_spectrum_, spread_spectrum_;
    Roots roots_;
};

} // namespace orvtest
