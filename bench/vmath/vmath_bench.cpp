// Elementary functions over vectors, beside the vector functions of other libraries: a kind is named by function and
// element type. ours is the export of the function where there is one, otherwise the kernel of level LA.
#include <cmath>

#include "bench/support/shapes.h"
#include "bench/support/vector_calls.h"
#include "orvs/arith.h"
#include "vmath/vmath.h"

namespace {

using bench::call_kernel, bench::Kind, bench::libm, bench::libmvec, bench::Row, bench::sleef_u10, bench::sleef_u35;

Kind vmath(const char* name) { return {"vmath", name}; }

/// The arguments of a row lie in (low, high].
struct Range {
    double low, high;
};

template <class T>
const T* arguments(Row& row, int n, Range range)
{
    T* array = row.array<T>(n);
    for (int i = 0; i < n; ++i)
        array[i] = static_cast<T>(range.high - (range.high - range.low) * (0.5 + 0.5 * double{array[i]}));
    return array;
}

/// dst = f(src): f(src, dst, n).
template <class T, class Ours, class... Peers>
void function(const Kind& kind, Range range, Ours ours, Peers... peers)
{
    bench::rows(kind.family, kind.name, kind.sizes, [=](Row& row, int n) {
        const T* src = arguments<T>(row, n, range);
        T* dst = row.array<T>(n);
        row.limit({src}, dst, std::size_t(n) * sizeof(T));
        row.ours([=] { return ours(src, dst, n); });
        (add_peer(row, peers, src, dst, n), ...);
    });
}

// ---- Exponential and logarithms

const bench::Rows exponential{[] {
    constexpr Range range{-10, 10};
    constexpr auto libm_exp = libm([](auto x) { return std::exp(x); });
    function<Orv32f>(vmath("exp32f"), range, orvsExp_32f, libm_exp, libmvec([](auto x) { return _ZGVdN8v_expf(x); }),
                     sleef_u10([](auto x) { return Sleef_expf8_u10avx2(x); }));
    function<Orv64f>(vmath("exp64f"), range, orvsExp_64f, libm_exp, libmvec([](auto x) { return _ZGVdN4v_exp(x); }),
                     sleef_u10([](auto x) { return Sleef_expd4_u10avx2(x); }));
}};

const bench::Rows logarithm{[] {
    constexpr Range range{0, 1000};
    constexpr auto libm_ln = libm([](auto x) { return std::log(x); });
    function<Orv32f>(vmath("ln32f"), range, orvsLn_32f, libm_ln, libmvec([](auto x) { return _ZGVdN8v_logf(x); }),
                     sleef_u10([](auto x) { return Sleef_logf8_u10avx2(x); }),
                     sleef_u35([](auto x) { return Sleef_logf8_u35avx2(x); }));
    function<Orv64f>(vmath("ln64f"), range, orvsLn_64f, libm_ln, libmvec([](auto x) { return _ZGVdN4v_log(x); }),
                     sleef_u10([](auto x) { return Sleef_logd4_u10avx2(x); }),
                     sleef_u35([](auto x) { return Sleef_logd4_u35avx2(x); }));
}};

// ---- Sine and cosine

constexpr Range turns{-30, 30};

const bench::Rows sine{[] {
    constexpr auto libm_sin = libm([](auto x) { return std::sin(x); });
    function<Orv32f>(vmath("sin32f"), turns, call_kernel<own_orvs_sSin_S9LAynn>, libm_sin,
                     libmvec([](auto x) { return _ZGVdN8v_sinf(x); }),
                     sleef_u10([](auto x) { return Sleef_sinf8_u10avx2(x); }),
                     sleef_u35([](auto x) { return Sleef_sinf8_u35avx2(x); }));
    function<Orv64f>(vmath("sin64f"), turns, call_kernel<own_orvs_dSin_S9LAynn>, libm_sin,
                     libmvec([](auto x) { return _ZGVdN4v_sin(x); }),
                     sleef_u10([](auto x) { return Sleef_sind4_u10avx2(x); }),
                     sleef_u35([](auto x) { return Sleef_sind4_u35avx2(x); }));
}};

const bench::Rows cosine{[] {
    constexpr auto libm_cos = libm([](auto x) { return std::cos(x); });
    function<Orv32f>(vmath("cos32f"), turns, call_kernel<own_orvs_sCos_S9LAynn>, libm_cos,
                     libmvec([](auto x) { return _ZGVdN8v_cosf(x); }),
                     sleef_u10([](auto x) { return Sleef_cosf8_u10avx2(x); }),
                     sleef_u35([](auto x) { return Sleef_cosf8_u35avx2(x); }));
    function<Orv64f>(vmath("cos64f"), turns, call_kernel<own_orvs_dCos_S9LAynn>, libm_cos,
                     libmvec([](auto x) { return _ZGVdN4v_cos(x); }),
                     sleef_u10([](auto x) { return Sleef_cosd4_u10avx2(x); }),
                     sleef_u35([](auto x) { return Sleef_cosd4_u35avx2(x); }));
}};

/// Both at once: f(src, dst_sin, dst_cos, n). The C library's own pair scatters through vectors of pointers.
template <class T, class Ours, class... Peers>
void sine_and_cosine(const Kind& kind, Range range, Ours ours, Peers... peers)
{
    bench::rows(kind.family, kind.name, kind.sizes, [=](Row& row, int n) {
        const T* src = arguments<T>(row, n, range);
        T* dst_sin = row.array<T>(n);
        T* dst_cos = row.array<T>(n);
        row.limit({src}, dst_sin, std::size_t(n) * sizeof(T));
        row.ours([=] { return ours(src, dst_sin, dst_cos, n); });
        (add_peer(row, peers, src, dst_sin, dst_cos, n), ...);
    });
}

template <class T>
struct Pair {
    T first, second;
};
template <class T>
Pair(T, T) -> Pair<T>;

const bench::Rows sincos{[] {
    sine_and_cosine<Orv32f>(vmath("sincos32f"), turns, call_kernel<own_orvs_sSinCos_S9LAynn>, libm([](auto x) {
                                return Pair{std::sin(x), std::cos(x)};
                            }),
                            libmvec([](auto x) {
                                return Pair{_ZGVdN8v_sinf(x), _ZGVdN8v_cosf(x)};
                            }),
                            sleef_u10([](auto x) { return Sleef_sincosf8_u10avx2(x); }),
                            sleef_u35([](auto x) { return Sleef_sincosf8_u35avx2(x); }));
}};

// ---- Arctangents

const bench::Rows arctangent{[] {
    constexpr Range range{-30, 30};
    constexpr auto libm_atan = libm([](auto x) { return std::atan(x); });
    function<Orv32f>(vmath("atan32f"), range, orvsArctan_32f, libm_atan,
                     libmvec([](auto x) { return _ZGVdN8v_atanf(x); }),
                     sleef_u10([](auto x) { return Sleef_atanf8_u10avx2(x); }),
                     sleef_u35([](auto x) { return Sleef_atanf8_u35avx2(x); }));
    function<Orv64f>(vmath("atan64f"), range, orvsArctan_64f, libm_atan,
                     libmvec([](auto x) { return _ZGVdN4v_atan(x); }),
                     sleef_u10([](auto x) { return Sleef_atand4_u10avx2(x); }),
                     sleef_u35([](auto x) { return Sleef_atand4_u35avx2(x); }));
}};

/// dst = f(src1, src2): f(src1, src2, dst, n).
template <class T, class Ours, class... Peers>
void function_of_two(const Kind& kind, Range range, Ours ours, Peers... peers)
{
    bench::rows(kind.family, kind.name, kind.sizes, [=](Row& row, int n) {
        const T* src1 = arguments<T>(row, n, range);
        const T* src2 = arguments<T>(row, n, range);
        T* dst = row.array<T>(n);
        row.limit({src1, src2}, dst, std::size_t(n) * sizeof(T));
        row.ours([=] { return ours(src1, src2, dst, n); });
        (add_peer(row, peers, src1, src2, dst, n), ...);
    });
}

const bench::Rows arctangent_of_two{[] {
    function_of_two<Orv32f>(vmath("atan2_32f"), {-30, 30}, call_kernel<own_orvs_sAtan2_S9LAynn>,
                            libm([](auto y, auto x) { return std::atan2(y, x); }),
                            libmvec([](auto y, auto x) { return _ZGVdN8vv_atan2f(y, x); }),
                            sleef_u10([](auto y, auto x) { return Sleef_atan2f8_u10avx2(y, x); }),
                            sleef_u35([](auto y, auto x) { return Sleef_atan2f8_u35avx2(y, x); }));
}};

// ---- Cube root

const bench::Rows cube_root{[] {
    function<Orv32f>(vmath("cbrt32f"), {-30, 30}, orvsCubrt_32f, libm([](auto x) { return std::cbrt(x); }),
                     libmvec([](auto x) { return _ZGVdN8v_cbrtf(x); }),
                     sleef_u10([](auto x) { return Sleef_cbrtf8_u10avx2(x); }),
                     sleef_u35([](auto x) { return Sleef_cbrtf8_u35avx2(x); }));
}};

} // namespace
