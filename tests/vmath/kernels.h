// The kernels of vmath/ and the errors that vmath/vmath.h promises: what the accuracy test and the program `accuracy`
// measure.
#pragma once

#include "vmath/vmath.h"

#include "tests/accuracy/meter.h"

namespace orvtest {

template <class T>
class Kernels {
public:
    using Kernel = int (*)(const T* src, T* dst, int len);

    /// The three levels of one function.
    void add_levels(const Function& function, Kernel high, Kernel low, Kernel fast)
    {
        constexpr bool single = sizeof(T) == 4;
        constexpr double half_the_bits = 0x1p26; // of 53, the lower 26 may be wrong
        add(of_vectors(name(function), function, high), "HA", single ? 0.55 : 0.52);
        add(of_vectors(name(function), function, low), "LA", 1);
        add(of_vectors(name(function), function, fast), "EP", single ? 4 : half_the_bits);
    }

    void add(Subject<T> subject, const char* level, double bound)
    {
        subject.level = level;
        subject.bound = bound;
        subjects.push_back(std::move(subject));
    }

    static std::string name(const Function& function)
    {
        return function.name + std::string(sizeof(T) == 4 ? " 32f" : " 64f");
    }

    std::vector<Subject<T>> subjects;
};

template <class T>
std::vector<Subject<T>> vmath_kernels();

template <>
inline std::vector<Subject<float>> vmath_kernels()
{
    Kernels<float> kernels;
    return kernels.subjects;
}

template <>
inline std::vector<Subject<double>> vmath_kernels()
{
    Kernels<double> kernels;
    return kernels.subjects;
}

} // namespace orvtest
