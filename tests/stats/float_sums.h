// Sums and deviations of floating values, addition by addition, in the orders that the interface fixes.
//
// The lanes of vectors are elements of arrays here. x are the parts of elements one behind another, n their number, and
// unit is 1 for real elements and 2 for complex ones, whose parts take alternate lanes. address is that of x modulo 64
// or any multiple of 32.
#pragma once

#include "orvs/types.h"

#include <cstddef>

namespace orvtest {

constexpr int fast = 1, accurate = 0; // hints

/// One or two sums.
struct Sums {
    double part[2];
};

/// By hint. Elements that do not begin at the address of a float, and complex ones that do not begin at a multiple of
/// their size, have no elements before the first boundary.
Sums ordered_sum(const float* x, std::size_t n, std::size_t unit, std::size_t address, int hint);

Sums ordered_sum(const double* x, std::size_t n, std::size_t unit);

struct MeanAndDeviation {
    double mean, deviation;
};

float ordered_deviation(const float* x, std::size_t n, std::size_t address, int hint);
MeanAndDeviation ordered_deviation(const double* x, std::size_t n, std::size_t address);

/// In extended precision; each result is rounded to single precision once.
struct SingleMeanAndDeviation {
    float mean, deviation;
};
SingleMeanAndDeviation extended_deviation(const float* x, std::size_t n);

/// Of exact sums of values and of their squares, in extended precision.
long double extended_deviation(long double sum, long double squares, std::size_t n);

} // namespace orvtest
