// Real functions as the accuracy meter knows them: what is exact, and which arguments are telling.
#pragma once

#include "ulp.h"

#include <type_traits>
#include <vector>

namespace orvtest {

/// The type in which arguments are scanned: an error below one ulp of it is small beside an ulp of T.
template <class T>
using Wider = std::conditional_t<std::is_same_v<T, float>, double, long double>;

/// Of the exponents or the values of random arguments.
struct Span {
    double low, high;
};

/// A function of x, or of x and y. What takes one argument leaves y alone.
struct Function {
    const char* name;
    int arity;

    // By the C library, whose functions have errors of an ulp or few.
    double (*in_double)(double x, double y);
    long double (*in_long_double)(long double x, long double y);

    /// By MPFR in 192 bits; null where MPFR was not found for the word size of the program.
    Exact<long double> (*exact)(long double x, long double y);

    Span exponents; ///< where the function is interesting: random arguments of either sign have these exponents, or
    Span values;    ///< lie evenly among these values
    bool near_one;  ///< or near 1, at all distances

    /// Whose neighbours are tried as well: thresholds, and arguments that are hard to reduce.
    std::vector<long double> (*hard)();

    double operator()(double x, double y) const { return in_double(x, y); }
    long double operator()(long double x, long double y) const { return in_long_double(x, y); }
};

namespace functions {

extern const Function sine, cosine, exponential, logarithm, decibels, arctangent, arctangent2, cube_root;

} // namespace functions

} // namespace orvtest
