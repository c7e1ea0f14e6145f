// Sqr, Sqrt and Abs, on one thread. A kind is named by stem, element type and, for scaled forms, scale factor.
#include "bench/arith/roots_loops.h"
#include "bench/support/shapes.h"
#include "orvs/arith.h"
#include "orvs/core.h"

#include <cmath>

namespace {

using bench::add_peer, bench::call, bench::eigen_array, bench::Kind, bench::one_source, bench::Peer, bench::Row,
    bench::standard, bench::volk;

Kind arith(const char* name) { return {"arith", name}; }

/// dst = f(src) of complex elements: f(src, dst, n).
template <class C, class Ours, class... Peers>
void complex_source(const Kind& kind, Ours ours, Peers... peers)
{
    bench::rows(kind.family, kind.name, kind.sizes, [=](Row& row, int n) {
        using Part = decltype(C::re);
        const auto* src = reinterpret_cast<const C*>(row.array<Part>(2 * n));
        auto* dst = reinterpret_cast<C*>(row.array<Part>(2 * n));
        row.limit({src}, dst, std::size_t(n) * sizeof(C));
        row.ours([=] { return ours(src, dst, n); });
        (add_peer(row, peers, src, dst, n), ...);
    });
}

// ---- Sqr

constexpr Peer loop_sqr{"loop", [](auto... x) { loops::sqr(x...); }};
constexpr Peer eigen_sqr{"eigen",
                         [](auto src, auto dst, int n) { eigen_array(dst, n) = eigen_array(src, n).square(); }};
constexpr Peer eigen_sqr_complex{"eigen",
                                 [](auto src, auto dst, int n) { eigen_sqr.call(standard(src), standard(dst), n); }};
template <int scale>
constexpr Peer loop_sqr_scaled{"loop", [](auto... x) { loops::sqr_scaled(x..., scale); }};

const bench::Rows sqr{[] {
    one_source<Orv16s>(arith("sqr16s_sfs15"), call<orvsSqr_16s_Sfs, 15>, loop_sqr_scaled<15>);
    one_source<Orv32f>(arith("sqr32f"), call<orvsSqr_32f>, eigen_sqr, loop_sqr);
    complex_source<Orv32fc>(arith("sqr32fc"), call<orvsSqr_32fc>, eigen_sqr_complex, loop_sqr);
}};

// ---- Sqrt

/// n noisy elements without a sign.
template <class T>
T* radicands(Row& row, int n)
{
    T* array = row.array<T>(n);
    for (int i = 0; i < n; ++i)
        if (array[i] < 0) array[i] = static_cast<T>(-(array[i] + 1));
    return array;
}

/// dst = sqrt(src): f(src, dst, n). From the wider S to D.
template <class S, class D = S, class Ours, class... Peers>
void square_root(const Kind& kind, Ours ours, Peers... peers)
{
    bench::rows(kind.family, kind.name, kind.sizes, [=](Row& row, int n) {
        const S* src = radicands<S>(row, n);
        D* dst = row.array<D>(n);
        const auto bytes = std::size_t(n) * sizeof(S);
        if constexpr (sizeof(S) == sizeof(D)) row.limit({src}, dst, bytes);
        else row.limit_resized(src, bytes, dst, std::size_t(n) * sizeof(D));
        row.ours([=] { return ours(src, dst, n); });
        (add_peer(row, peers, src, dst, n), ...);
    });
}

constexpr Peer instruction{"instruction", [](auto... x) { loops::sqrt(x...); }};
constexpr Peer loop_sqrt{"loop", [](auto... x) { loops::sqrt(x...); }};
constexpr Peer loop_sqrt_exact{"loop", [](auto... x) { loops::sqrt_exact(x...); }};
template <int scale>
constexpr Peer loop_sqrt_scaled{"loop", [](auto... x) { loops::sqrt_scaled(x..., scale); }};
constexpr Peer eigen_sqrt{"eigen", [](auto src, auto dst, int n) { eigen_array(dst, n) = eigen_array(src, n).sqrt(); }};
constexpr Peer eigen_sqrt_complex{"eigen",
                                  [](auto src, auto dst, int n) { eigen_sqrt.call(standard(src), standard(dst), n); }};
constexpr auto volk_sqrt_32f = volk([](auto src, auto dst, auto n) { volk_32f_sqrt_32f(dst, src, unsigned(n)); });

const bench::Rows sqrt_floats{[] {
    orvSetNumThreads(1);
    square_root<Orv32f>(arith("sqrt32f"), call<orvsSqrt_32f>, instruction, volk_sqrt_32f, eigen_sqrt);
    square_root<Orv64f>(arith("sqrt64f"), call<orvsSqrt_64f>, instruction, eigen_sqrt);
    complex_source<Orv32fc>(arith("sqrt32fc"), call<orvsSqrt_32fc>, eigen_sqrt_complex, loop_sqrt);
    complex_source<Orv64fc>(arith("sqrt64fc"), call<orvsSqrt_64fc>, eigen_sqrt_complex, loop_sqrt);
}};

const bench::Rows sqrt_integers{[] {
    square_root<Orv8u>(arith("sqrt8u_sfs0"), call<orvsSqrt_8u_Sfs, 0>, loop_sqrt_scaled<0>);
    square_root<Orv8u>(arith("sqrt8u_sfs-4"), call<orvsSqrt_8u_Sfs, -4>, loop_sqrt_scaled<-4>);
    square_root<Orv16u>(arith("sqrt16u_sfs0"), call<orvsSqrt_16u_Sfs, 0>, loop_sqrt_scaled<0>);
    square_root<Orv16s>(arith("sqrt16s_sfs0"), call<orvsSqrt_16s_Sfs, 0>, loop_sqrt_scaled<0>);
    square_root<Orv16s>(arith("sqrt16s_sfs-7"), call<orvsSqrt_16s_Sfs, -7>, loop_sqrt_scaled<-7>);
    square_root<Orv16s>(arith("sqrt16s_sfs2"), call<orvsSqrt_16s_Sfs, 2>, loop_sqrt_scaled<2>);
    square_root<Orv32s, Orv16s>(arith("sqrt32s16s_sfs1"), call<orvsSqrt_32s16s_Sfs, 1>, loop_sqrt_scaled<1>);
    square_root<Orv64s>(arith("sqrt64s_sfs0"), call<orvsSqrt_64s_Sfs, 0>, loop_sqrt_exact);
    complex_source<Orv16sc>(arith("sqrt16sc_sfs-6"), call<orvsSqrt_16sc_Sfs, -6>, loop_sqrt_scaled<-6>);
}};

// ---- Abs

constexpr Peer loop_abs{"loop", [](auto... x) { loops::abs(x...); }};
constexpr Peer eigen_abs{"eigen", [](auto src, auto dst, int n) { eigen_array(dst, n) = eigen_array(src, n).abs(); }};

const bench::Rows abs_rows{[] {
    one_source<Orv16s>(arith("abs16s"), call<orvsAbs_16s>, loop_abs);
    one_source<Orv32s>(arith("abs32s"), call<orvsAbs_32s>, loop_abs);
    one_source<Orv32f>(arith("abs32f"), call<orvsAbs_32f>, eigen_abs, loop_abs);
}};

} // namespace
