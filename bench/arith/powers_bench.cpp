// The integer forms of Exp, Ln, 10Log10, SumLn and Cubrt; floats are among the rows of bench_vmath. A kind is named by
// stem, element types and scale factor.
#include "bench/arith/powers_loops.h"
#include "bench/support/shapes.h"
#include "orvs/arith.h"

#include <cstdlib>

namespace {

using bench::add_peer, bench::call, bench::Kind, bench::Peer, bench::Row;

Kind arith(const char* name) { return {"arith", name}; }

/// n elements from lowest to highest, evenly spread.
template <class T>
T* arguments(Row& row, int n, double lowest, double highest)
{
    T* array = row.array<T>(n);
    for (int i = 0; i < n; ++i)
        array[i] =
            static_cast<T>(lowest + (highest - lowest) * (std::abs(double(array[i])) / (1u << (8 * sizeof(T) - 1))));
    return array;
}

/// dst = f(src): f(src, dst, n).
template <class S, class D, class Ours, class Loop>
void function(const char* name, double lowest, double highest, Ours ours, Loop loop)
{
    const Kind kind = arith(name);
    bench::rows(kind.family, kind.name, kind.sizes, [=](Row& row, int n) {
        const S* src = arguments<S>(row, n, lowest, highest);
        D* dst = row.array<D>(n);
        const auto bytes = std::size_t(n) * sizeof(S);
        if constexpr (sizeof(S) == sizeof(D)) row.limit({src}, dst, bytes);
        else row.limit_resized(src, bytes, dst, std::size_t(n) * sizeof(D));
        row.ours([=] { return ours(src, dst, n); });
        add_peer(row, loop, src, dst, n);
    });
}

template <int scale>
constexpr Peer loop_exp{"loop", [](auto... x) { loops::exp_scaled(x..., scale); }};
template <int scale>
constexpr Peer loop_ln{"loop", [](auto... x) { loops::ln_scaled(x..., scale); }};
template <int scale>
constexpr Peer loop_decibels{"loop", [](auto... x) { loops::decibels_scaled(x..., scale); }};
template <int scale>
constexpr Peer loop_cbrt{"loop", [](auto... x) { loops::cbrt_scaled(x..., scale); }};

const bench::Rows elementwise{[] {
    function<Orv16s, Orv16s>("exp16s_sfs-5", -7, 7, call<orvsExp_16s_Sfs, -5>, loop_exp<-5>);
    function<Orv32s, Orv32s>("exp32s_sfs-4", -7, 18, call<orvsExp_32s_Sfs, -4>, loop_exp<-4>);
    function<Orv16s, Orv16s>("ln16s_sfs-11", 1, 32767, call<orvsLn_16s_Sfs, -11>, loop_ln<-11>);
    function<Orv32s, Orv16s>("ln32s16s_sfs-10", 1, 2147483647, call<orvsLn_32s16s_Sfs, -10>, loop_ln<-10>);
    function<Orv32s, Orv32s>("ln32s_sfs-20", 1, 2147483647, call<orvsLn_32s_Sfs, -20>, loop_ln<-20>);
    function<Orv32s, Orv32s>("10log10_32s_sfs-20", 1, 2147483647, call<orvs10Log10_32s_Sfs, -20>, loop_decibels<-20>);
    function<Orv32s, Orv16s>("cubrt32s16s_sfs-4", -2147483647, 2147483647, call<orvsCubrt_32s16s_Sfs, -4>,
                             loop_cbrt<-4>);
}};

const bench::Rows sums{[] {
    const Kind kind = arith("sumln16s32f");
    bench::rows(kind.family, kind.name, kind.sizes, [](Row& row, int n) {
        const Orv16s* src = arguments<Orv16s>(row, n, 1, 32767);
        Orv32f* sum = row.array<Orv32f>(1);
        row.limit({src}, static_cast<Orv16s*>(nullptr), std::size_t(n) * sizeof(Orv16s));
        row.ours([=] { return orvsSumLn_16s32f(src, n, sum); });
        row.peer("loop", [=] { loops::sum_ln(src, n, sum); });
    });
}};

} // namespace
