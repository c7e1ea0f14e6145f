// The loop of all kernels: a function over an array, and its companion for the lanes off the main path.
//
// A function object F has
//   lane                          the type of a lane
//   operator()(vec<lane> x)       the results of the main path
// and, if the main path does not serve every argument,
//   off_path(vec<lane> x)         which lanes it does not serve, as signs of integer lanes
//   companion(lane x, lane* y)    finishes one of those; its code tells what is to be reported, 0 for nothing
//
// Sources and destinations of the other precision are converted on the way. The work takes longer than the memory, so
// stores go through the caches whatever the length.
#ifndef ORV_VMATH_OVER_ARRAY_H
#define ORV_VMATH_OVER_ARRAY_H

#include "frame/float_state.h"
#include "vmath/level.h"

namespace ORV_VARIANT {

template <class F, class T>
ORV_INLINE auto off_path(vec<T> x)
{
    if constexpr (requires { F::off_path(x); }) return F::off_path(x);
    else return splat(word_of<T>(0));
}

/// Finishes lanes, which stand in memory: at y the results of the main path for x. Returns the first code; earlier is
/// one of elements in front of them.
template <class F, class T, class D>
[[gnu::noinline, gnu::cold]] int finish_lanes(const T* x, const word_of<T>* marks, D* y, int n, int earlier)
{
    int code = earlier;
    if constexpr (requires { &F::companion; }) {
        for (int i = 0; i < n; ++i) {
            if (marks[i] >= 0) continue;
            T result;
            const int lane_code = F::companion(x[i], &result);
            put_element(y + i, D(result));
            if (code == 0) code = lane_code;
        }
    }
    return code;
}
template <class F, class T, class D>
ORV_INLINE int finish_lanes(vec<T> x, vec<word_of<T>> off, D* y, int n, int earlier)
{
    T arguments[vec<T>::N];
    word_of<T> marks[vec<T>::N];
    store(arguments, x);
    store(marks, off);
    return finish_lanes<F>(arguments, marks, y, n, earlier);
}

template <class F, class S, class D>
ORV_INLINE int over_array(F f, const S* src, D* dst, int len)
{
    using T = typename F::lane;
    constexpr int N = vec<T>::N;
    const StandardState state;
    int code = 0;

    const auto load_lanes = [](const S* p) ORV_INLINE_LAMBDA { return convert_to<T>(load<S, N>(p)); };
    const auto store_lanes = [](D* p, vec<T> y) ORV_INLINE_LAMBDA { store(p, convert_to<D>(y)); };
    const auto one = [&](vec<T> x, D* p, int n) ORV_INLINE_LAMBDA {
        const auto off = off_path<F>(x);
        store_lanes(p, f(x));
        if (any_sign(off)) [[unlikely]]
            code = finish_lanes<F>(x, off, p, n, code);
    };

    if (len < N) {
        S arguments[N];
        D results[N];
        for (int i = 0; i < N; ++i) arguments[i] = i < len ? element_at(src + i) : S(1);
        one(load_lanes(arguments), results, N);
        for (int i = 0; i < len; ++i) put_element(dst + i, results[i]);
        return code;
    }

    // The last vector overlaps its neighbour, so it is read before anything is stored.
    const int last = len - N;
    const auto last_x = load_lanes(src + last);
    int i = 0;
    for (; i < last - N; i += 2 * N) {
        const auto a = load_lanes(src + i), b = load_lanes(src + i + N);
        const auto off_a = off_path<F>(a), off_b = off_path<F>(b);
        const auto y_a = f(a), y_b = f(b);
        store_lanes(dst + i, y_a);
        store_lanes(dst + i + N, y_b);
        if (any_sign(off_a | off_b)) [[unlikely]] {
            code = finish_lanes<F>(a, off_a, dst + i, N, code);
            code = finish_lanes<F>(b, off_b, dst + i + N, N, code);
        }
    }
    if (i < last) one(load_lanes(src + i), dst + i, N);
    one(last_x, dst + last, N);
    return code;
}

} // namespace ORV_VARIANT

#endif
