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

    /// How wrong each level may be, in ulp.
    struct Bounds {
        double high, low, fast;
    };

    /// The three levels of one function.
    void add_levels(const Function& function, Kernel high, Kernel low, Kernel fast, Bounds bounds)
    {
        add(of_vectors(name(function), function, high), "HA", bounds.high);
        add(of_vectors(name(function), function, low), "LA", bounds.low);
        add(of_vectors(name(function), function, fast), "EP", bounds.fast);
    }
    /// A function of one level.
    void add_one(const Function& function, Kernel kernel, double bound)
    {
        add(of_vectors(name(function), function, kernel), "LA", bound);
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
    using namespace functions;
    Kernels<float> kernels;
    kernels.add_levels(sine, own_orvs_sSin_S9HAynn, own_orvs_sSin_S9LAynn, own_orvs_sSin_S9EPnnn, {0.55, 1.6, 1.6});
    kernels.add_levels(cosine, own_orvs_sCos_S9HAynn, own_orvs_sCos_S9LAynn, own_orvs_sCos_S9EPnnn, {0.55, 1.6, 1.6});
    kernels.add_levels(exponential, own_orvs_sExp_S9HAynn, own_orvs_sExp_S9LAynn, own_orvs_sExp_S9EPnnn,
                       {0.55, 0.75, 1.2});
    kernels.add_levels(logarithm, own_orvs_sLn_S9HAynn, own_orvs_sLn_S9LAynn, own_orvs_sLn_S9EPnnn, {0.55, 1.25, 1.8});
    kernels.add_one(arctangent, own_orvs_sAtan_S9LAynn, 2);
    kernels.add_one(cube_root, own_orvs_sCbrt_S9LAynn, 1.1);
    kernels.add(of_vectors("atan2 32f", arctangent2, own_orvs_sAtan2_S9LAynn), "LA", 2);
    kernels.add(of_vectors("sincos 32f sin", sine, own_orvs_sSinCos_S9LAynn, 1), "LA", 1.6);
    kernels.add(of_vectors("sincos 32f cos", cosine, own_orvs_sSinCos_S9LAynn, 2), "LA", 1.6);
    return kernels.subjects;
}

template <>
inline std::vector<Subject<double>> vmath_kernels()
{
    using namespace functions;
    constexpr double fast = 0x1p22; // of 53 bits, the lower 22 may be wrong
    Kernels<double> kernels;
    kernels.add_levels(sine, own_orvs_dSin_S9HAynn, own_orvs_dSin_S9LAynn, own_orvs_dSin_S9EPnnn, {0.55, 2.2, fast});
    kernels.add_levels(cosine, own_orvs_dCos_S9HAynn, own_orvs_dCos_S9LAynn, own_orvs_dCos_S9EPnnn, {0.55, 2.2, fast});
    kernels.add_levels(exponential, own_orvs_dExp_S9HAynn, own_orvs_dExp_S9LAynn, own_orvs_dExp_S9EPnnn,
                       {0.55, 0.7, fast});
    kernels.add_levels(logarithm, own_orvs_dLn_S9HAynn, own_orvs_dLn_S9LAynn, own_orvs_dLn_S9EPnnn, {0.52, 0.52, fast});
    kernels.add_one(arctangent, own_orvs_dAtan_S9LAynn, 1);
    kernels.add(of_vectors("atan2 64f", arctangent2, own_orvs_dAtan2_S9LAynn), "LA", 2);
    kernels.add(of_vectors("sincos 64f sin", sine, own_orvs_dSinCos_S9LAynn, 1), "LA", 0.8);
    kernels.add(of_vectors("sincos 64f cos", cosine, own_orvs_dSinCos_S9LAynn, 2), "LA", 0.8);
    return kernels.subjects;
}

} // namespace orvtest
