// Div, Div_Round, DivC and DivCRev, on one thread but for the rows that say two. A kind is named by stem, element type
// and, for scaled forms, scale factor.
#include "bench/arith/div_loops.h"
#include "bench/support/shapes.h"
#include "orvs/arith.h"
#include "orvs/core.h"

namespace {

using bench::add_peer, bench::call, bench::eigen_array, bench::Kind, bench::Peer, bench::Row, bench::standard,
    bench::volk;

Kind arith(const char* name) { return {"arith", name}; }

/// n noisy elements other than 0, which nobody divides by here.
template <class T>
T* divisors(Row& row, int n)
{
    T* array = row.array<T>(n);
    for (int i = 0; i < n; ++i)
        if (array[i] == 0) array[i] = 1;
    return array;
}

/// dst = src2 / src1: f(src1, src2, dst, n).
template <class T, class Ours, class... Peers>
void division(const Kind& kind, Ours ours, Peers... peers)
{
    bench::rows(kind.family, kind.name, kind.sizes, [=](Row& row, int n) {
        const T* src1 = divisors<T>(row, n);
        const T* src2 = row.array<T>(n);
        T* dst = row.array<T>(n);
        row.limit({src1, src2}, dst, std::size_t(n) * sizeof(T));
        row.ours([=] { return ours(src1, src2, dst, n); });
        (add_peer(row, peers, src1, src2, dst, n), ...);
    });
}

constexpr Peer loop_div{"loop", [](auto... x) { loops::div(x...); }};
constexpr Peer eigen_div{"eigen", [](auto src1, auto src2, auto dst, int n) {
                             eigen_array(dst, n) = eigen_array(src2, n) / eigen_array(src1, n);
                         }};
constexpr auto volk_div_32f =
    volk([](auto src1, auto src2, auto dst, auto n) { volk_32f_x2_divide_32f(dst, src2, src1, unsigned(n)); });

template <int scale, OrvRoundMode mode = orvRndNear>
constexpr Peer loop_div_scaled{"loop", [](auto... x) { loops::div_scaled(x..., mode, scale); }};

const bench::Rows div_real{[] {
    orvSetNumThreads(1);
    division<Orv32f>(arith("div32f"), call<orvsDiv_32f>, volk_div_32f, eigen_div, loop_div);
    division<Orv64f>(arith("div64f"), call<orvsDiv_64f>, eigen_div, loop_div);
    division<Orv8u>(arith("div8u"), call<orvsDiv_8u_Sfs, 0>, loop_div_scaled<0>);
    division<Orv16u>(arith("div16u"), call<orvsDiv_16u_Sfs, 0>, loop_div_scaled<0>);
    division<Orv16s>(arith("div16s_sfs0"), call<orvsDiv_16s_Sfs, 0>, loop_div_scaled<0>);
    division<Orv16s>(arith("div16s_sfs-8"), call<orvsDiv_16s_Sfs, -8>, loop_div_scaled<-8>);
    division<Orv32s>(arith("div32s"), call<orvsDiv_32s_Sfs, 0>, loop_div_scaled<0>);
    division<Orv16s>(arith("div_round16s"), call<orvsDiv_Round_16s_Sfs, orvRndFinancial, 0>,
                     loop_div_scaled<0, orvRndFinancial>);
}};

constexpr Peer eigen_div_complex{"eigen", [](auto src1, auto src2, auto dst, int n) {
                                     eigen_div.call(standard(src1), standard(src2), standard(dst), n);
                                 }};
constexpr auto volk_div_32fc = volk([](auto src1, auto src2, auto dst, auto n) {
    volk_32fc_x2_divide_32fc(standard(dst), standard(src2), standard(src1), unsigned(n));
});

const bench::Rows div_complex{[] {
    bench::rows("arith", "div32fc", bench::cache_sizes, [](Row& row, int n) {
        const auto* src1 = reinterpret_cast<const Orv32fc*>(divisors<Orv32f>(row, 2 * n));
        const auto* src2 = reinterpret_cast<const Orv32fc*>(row.array<Orv32f>(2 * n));
        auto* dst = reinterpret_cast<Orv32fc*>(row.array<Orv32f>(2 * n));
        row.limit({src1, src2}, dst, std::size_t(n) * sizeof(Orv32fc));
        row.ours([=] { return orvsDiv_32fc(src1, src2, dst, n); });
        add_peer(row, volk_div_32fc, src1, src2, dst, n);
        add_peer(row, eigen_div_complex, src1, src2, dst, n);
        add_peer(row, loop_div, src1, src2, dst, n);
    });
}};

// ---- Two threads, the same function on one as the peer

template <auto f>
constexpr auto on_two_threads = [](auto... arguments) {
    orvSetNumThreads(2);
    const OrvStatus status = f(arguments...);
    orvSetNumThreads(1);
    return status;
};
template <auto f>
constexpr Peer on_one_thread{"one_thread", [](auto... arguments) { f(arguments...); }};

const bench::Rows div_threads{[] {
    constexpr auto div16s = call<orvsDiv_16s_Sfs, 0>;
    division<Orv32f>(arith("div32f_2threads"), on_two_threads<orvsDiv_32f>, on_one_thread<orvsDiv_32f>);
    division<Orv64f>(arith("div64f_2threads"), on_two_threads<orvsDiv_64f>, on_one_thread<orvsDiv_64f>);
    division<Orv16s>(arith("div16s_2threads"), on_two_threads<div16s>, on_one_thread<div16s>);
}};

// ---- dst = src / value and dst = value / src

constexpr Peer loop_divc{"loop", [](auto... x) { loops::divc(x...); }};
constexpr Peer eigen_divc{
    "eigen", [](auto src, auto value, auto dst, int n) { eigen_array(dst, n) = eigen_array(src, n) / value; }};
constexpr auto volk_divc_32f =
    volk([](auto src, auto value, auto dst, auto n) { volk_32f_s32f_multiply_32f(dst, src, 1 / value, unsigned(n)); });

template <int scale>
constexpr Peer loop_divc_scaled{"loop", [](auto... x) { loops::divc_scaled(x..., scale); }};

constexpr Peer loop_divcrev{"loop", [](auto... x) { loops::divcrev(x...); }};
constexpr Peer eigen_divcrev{
    "eigen", [](auto src, auto value, auto dst, int n) { eigen_array(dst, n) = value / eigen_array(src, n); }};

const bench::Rows divc{[] {
    using bench::source_and_value;
    source_and_value<Orv16s>(arith("divc16s_sfs3"), call<orvsDivC_16s_Sfs, 3>, loop_divc_scaled<3>);
    source_and_value<Orv32f>(arith("divc32f"), call<orvsDivC_32f>, volk_divc_32f, eigen_divc, loop_divc);
}};

const bench::Rows divcrev{[] {
    bench::rows("arith", "divcrev32f", bench::cache_sizes, [](Row& row, int n) {
        const Orv32f value = 77.25f;
        const Orv32f* src = divisors<Orv32f>(row, n);
        Orv32f* dst = row.array<Orv32f>(n);
        row.limit({src}, dst, std::size_t(n) * sizeof(Orv32f));
        row.ours([=] { return orvsDivCRev_32f(src, value, dst, n); });
        add_peer(row, eigen_divcrev, src, value, dst, n);
        add_peer(row, loop_divcrev, src, value, dst, n);
    });
}};

} // namespace
