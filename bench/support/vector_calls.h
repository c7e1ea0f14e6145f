// Elementary functions of other libraries as peers: what they offer for one register or one number, over whole arrays.
#ifndef ORV_BENCH_SUPPORT_VECTOR_CALLS_H
#define ORV_BENCH_SUPPORT_VECTOR_CALLS_H

#include <immintrin.h>
#ifdef ORV_HAVE_SLEEF
#include <sleef.h>
#endif

#include "bench/support/peers.h"

#ifdef ORV_HAVE_LIBMVEC
// The vector functions of the C library, which has no header for them. A name is that of the vector ABI: d for AVX2, N
// for no mask, the number of lanes, a v for each vector that comes in.
extern "C" {
__m256 _ZGVdN8v_expf(__m256);
__m256 _ZGVdN8v_logf(__m256);
__m256 _ZGVdN8v_log10f(__m256);
__m256 _ZGVdN8v_sinf(__m256);
__m256 _ZGVdN8v_cosf(__m256);
__m256 _ZGVdN8v_atanf(__m256);
__m256 _ZGVdN8v_cbrtf(__m256);
__m256 _ZGVdN8vv_atan2f(__m256, __m256);
__m256d _ZGVdN4v_exp(__m256d);
__m256d _ZGVdN4v_log(__m256d);
__m256d _ZGVdN4v_log10(__m256d);
__m256d _ZGVdN4v_sin(__m256d);
__m256d _ZGVdN4v_cos(__m256d);
__m256d _ZGVdN4v_atan(__m256d);
__m256d _ZGVdN4v_cbrt(__m256d);
__m256d _ZGVdN4vv_atan2(__m256d, __m256d);
}
#endif

namespace bench {

/// One 256-bit register at a time.
struct Registers {
    template <class T>
    static constexpr int lanes = 32 / int(sizeof(T));

    static __m256 load(const float* p) { return _mm256_loadu_ps(p); }
    static __m256d load(const double* p) { return _mm256_loadu_pd(p); }
    static void store(float* p, __m256 x) { _mm256_storeu_ps(p, x); }
    static void store(double* p, __m256d x) { _mm256_storeu_pd(p, x); }
};

/// One number at a time.
struct Numbers {
    template <class T>
    static constexpr int lanes = 1;

    template <class T>
    static T load(const T* p)
    {
        return *p;
    }
    template <class T>
    static void store(T* p, T x)
    {
        *p = x;
    }
};

/// f over arrays of n elements, a multiple of the lanes: one call for each step of load and store.
template <class Step, class F>
struct OverArrays {
    F f;

    template <class T>
    void operator()(const T* src, T* dst, int n) const
    {
        for (int i = 0; i < n; i += Step::template lanes<T>) Step::store(dst + i, f(Step::load(src + i)));
    }
    template <class T>
    void operator()(const T* src1, const T* src2, T* dst, int n) const
    {
        for (int i = 0; i < n; i += Step::template lanes<T>)
            Step::store(dst + i, f(Step::load(src1 + i), Step::load(src2 + i)));
    }
    /// f gives two results.
    template <class T>
    void operator()(const T* src, T* dst1, T* dst2, int n) const
    {
        for (int i = 0; i < n; i += Step::template lanes<T>) {
            const auto [first, second] = f(Step::load(src + i));
            Step::store(dst1 + i, first);
            Step::store(dst2 + i, second);
        }
    }
};

/// The scalar functions of the C library.
template <class F>
constexpr auto libm(F f)
{
    return Peer{"libm", OverArrays<Numbers, F>{f}};
}

/// The vector functions of the C library, or nothing for 32 bits, where it has none. f is a lambda with auto
/// parameters, as for volk.
template <class F>
constexpr auto libmvec([[maybe_unused]] F f)
{
#ifdef ORV_HAVE_LIBMVEC
    return Peer{"libmvec", OverArrays<Registers, F>{f}};
#else
    return nullptr;
#endif
}

/// SLEEF's functions of at most 1.0 and 3.5 ulp, or nothing, in the same way.
template <class F>
constexpr auto sleef([[maybe_unused]] const char* name, [[maybe_unused]] F f)
{
#ifdef ORV_HAVE_SLEEF
    return Peer{name, OverArrays<Registers, F>{f}};
#else
    return nullptr;
#endif
}
template <class F>
constexpr auto sleef_u10(F f)
{
    return sleef("sleef_u10", f);
}
template <class F>
constexpr auto sleef_u35(F f)
{
    return sleef("sleef_u35", f);
}

} // namespace bench

#endif
