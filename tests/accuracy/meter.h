// The accuracy meter: the largest error of a computed function over many arguments, in ulp.
//
//     const auto subject = of_vectors("exp 32f", functions::exponential, orvsExp_32f);
//     const auto report = measure(subject, Arguments<float>(subject.function, Extent::sample));
//     EXPECT_LE(report.worst.error, 1.0) << text(report.worst, 1);
//
// All arguments are scanned with the C library in a wider type as the reference. The worst ones are then measured again
// with MPFR, and so is a share of the others, which shows how far the reference can be trusted.
#pragma once

#include "arguments.h"

#include <algorithm>
#include <functional>
#include <string>
#include <type_traits>

namespace orvtest {

/// Something that computes a function, and what it promises.
template <class T>
struct Subject {
    std::string name;
    Function function;
    std::function<void(const T* x, const T* y, T* dst, int n)> compute;

    std::string level = ""; ///< of accuracy, for tables
    double bound = wrong;   ///< the largest error allowed, in ulp
    Span domain = {-std::numeric_limits<double>::infinity(), std::numeric_limits<double>::infinity()};
    ///< where it holds: of other arguments only zeros, infinities and not-a-numbers are measured
};

/// A kernel or an export over vectors: f(src, dst, len).
template <class T, class Result>
Subject<T> of_vectors(std::string name, const Function& function, Result (*f)(const T*, T*, int))
{
    return {std::move(name), function, [f](const T* x, const T*, T* dst, int n) { f(x, dst, n); }};
}
/// f(src1, src2, dst, len) for a function of src1 and src2.
template <class T, class Result>
Subject<T> of_vectors(std::string name, const Function& function, Result (*f)(const T*, const T*, T*, int))
{
    return {std::move(name), function, [f](const T* x, const T* y, T* dst, int n) { f(x, y, dst, n); }};
}
/// One result of two, number 1 or 2: f(src, dst1, dst2, len).
template <class T, class Result>
Subject<T> of_vectors(std::string name, const Function& function, Result (*f)(const T*, T*, T*, int), int result)
{
    return {std::move(name), function, [f, result](const T* x, const T*, T* dst, int n) {
                std::vector<T> other(static_cast<std::size_t>(n));
                f(x, result == 1 ? dst : other.data(), result == 1 ? other.data() : dst, n);
            }};
}
/// A function of numbers.
template <class T>
Subject<T> of_numbers(std::string name, const Function& function, T (*f)(T))
{
    return {std::move(name), function, [f](const T* x, const T*, T* dst, int n) { std::transform(x, x + n, dst, f); }};
}
template <class T>
Subject<T> of_numbers(std::string name, const Function& function, T (*f)(T, T))
{
    return {std::move(name), function,
            [f](const T* x, const T* y, T* dst, int n) { std::transform(x, x + n, y, dst, f); }};
}

/// An argument, what was computed there, and how wrong that is.
template <class T>
struct Finding {
    double error = 0; ///< in ulp, or `wrong`
    T x = 0, y = 0, computed = 0;
    long double exact = 0; ///< rounded
};

template <class T>
struct Report {
    Finding<T> worst;
    std::uint64_t arguments = 0;
    bool confirmed = false; ///< the worst error is MPFR's
    std::uint64_t compared = 0;
    double reference_error = 0; ///< of the C library in the wider type, in ulp of T, the largest among those compared
};

/// Computes on so many threads.
template <class T>
Report<T> measure(const Subject<T>& subject, const Arguments<T>& arguments, int threads = 1);

/// "0.5016 ulp at 0x1.8p+1: 20.0855373, exact 20.0855369231877", for messages. The argument is exact, in hexadecimal.
template <class T>
std::string text(const Finding<T>& finding, int arity);

extern template Report<float> measure(const Subject<float>&, const Arguments<float>&, int);
extern template Report<double> measure(const Subject<double>&, const Arguments<double>&, int);
extern template std::string text(const Finding<float>&, int);
extern template std::string text(const Finding<double>&, int);

} // namespace orvtest
