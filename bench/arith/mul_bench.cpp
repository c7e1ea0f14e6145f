// Mul and MulC. A kind is named by stem, element type and, for scaled forms, scale factor.
#include "bench/arith/mul_loops.h"
#include "bench/support/shapes.h"
#include "orvs/arith.h"

namespace {

using bench::call, bench::eigen_array, bench::Peer, bench::standard, bench::volk;

bench::Kind arith(const char* name) { return {"arith", name}; }
/// Half the elements, as many bytes.
bench::Kind complex_arith(const char* name) { return {"arith", name, {1 << 9, 1 << 14, 1 << 21}}; }

// ---- Rows of complex arrays

template <class C>
C* complex_array(bench::Row& row, int n)
{
    return reinterpret_cast<C*>(row.array<decltype(C::re)>(2 * n));
}

/// dst = f(src1, src2): f(src1, src2, dst, n).
template <class C, class Ours, class... Peers>
void two_complex_sources(const bench::Kind& kind, Ours ours, Peers... peers)
{
    bench::rows(kind.family, kind.name, kind.sizes, [=](bench::Row& row, int n) {
        const C* src1 = complex_array<C>(row, n);
        const C* src2 = complex_array<C>(row, n);
        C* dst = complex_array<C>(row, n);
        row.limit({src1, src2}, dst, std::size_t(n) * sizeof(C));
        row.ours([=] { return ours(src1, src2, dst, n); });
        (add_peer(row, peers, src1, src2, dst, n), ...);
    });
}

/// dst = f(src, value): f(src, value, dst, n).
template <class C, class Ours, class... Peers>
void complex_source_and_value(const bench::Kind& kind, Ours ours, Peers... peers)
{
    bench::rows(kind.family, kind.name, kind.sizes, [=](bench::Row& row, int n) {
        const C value = {0.75, -1.25};
        const C* src = complex_array<C>(row, n);
        C* dst = complex_array<C>(row, n);
        row.limit({src}, dst, std::size_t(n) * sizeof(C));
        row.ours([=] { return ours(src, value, dst, n); });
        (add_peer(row, peers, src, value, dst, n), ...);
    });
}

/// A real and a complex source. The limit leaves the real one out.
template <class C, class Ours, class... Peers>
void real_and_complex_source(const bench::Kind& kind, Ours ours, Peers... peers)
{
    bench::rows(kind.family, kind.name, kind.sizes, [=](bench::Row& row, int n) {
        const auto* src1 = row.array<decltype(C::re)>(n);
        const C* src2 = complex_array<C>(row, n);
        C* dst = complex_array<C>(row, n);
        row.limit({src2}, dst, std::size_t(n) * sizeof(C));
        row.ours([=] { return ours(src1, src2, dst, n); });
        (add_peer(row, peers, src1, src2, dst, n), ...);
    });
}

// ---- dst = src1 * src2

constexpr Peer loop_mul{"loop", [](auto... x) { loops::mul(x...); }};
constexpr Peer eigen_mul{"eigen", [](auto src1, auto src2, auto dst, int n) {
                             eigen_array(dst, n) = eigen_array(src1, n) * eigen_array(src2, n);
                         }};
constexpr Peer eigen_mul_complex{"eigen", [](auto src1, auto src2, auto dst, int n) {
                                     eigen_mul.call(standard(src1), standard(src2), standard(dst), n);
                                 }};
constexpr auto volk_mul_32f =
    volk([](auto src1, auto src2, auto dst, auto n) { volk_32f_x2_multiply_32f(dst, src1, src2, unsigned(n)); });
constexpr auto volk_mul_64f =
    volk([](auto src1, auto src2, auto dst, auto n) { volk_64f_x2_multiply_64f(dst, src1, src2, unsigned(n)); });
constexpr auto volk_mul_32fc = volk([](auto src1, auto src2, auto dst, auto n) {
    volk_32fc_x2_multiply_32fc(standard(dst), standard(src1), standard(src2), unsigned(n));
});
/// The low halves of products, which it adds with saturation: less than the same job.
constexpr auto volk_mul_16sc = volk([](auto src1, auto src2, auto dst, auto n) {
    volk_16ic_x2_multiply_16ic(standard(dst), standard(src1), standard(src2), unsigned(n));
});
constexpr auto volk_mul_32f32fc = volk([](auto src1, auto src2, auto dst, auto n) {
    volk_32fc_32f_multiply_32fc(standard(dst), standard(src2), src1, unsigned(n));
});
constexpr Peer loop_mul_32f32fc{"loop", [](auto... x) { loops::mul_real_complex(x...); }};

/// The complex values of packed spectra, without the one or two real ones.
constexpr auto packed = [](auto* spectrum) {
    using Complex =
        std::conditional_t<std::is_const_v<std::remove_pointer_t<decltype(spectrum)>>, const Orv32fc, Orv32fc>;
    return reinterpret_cast<Complex*>(spectrum + 1);
};
constexpr Peer loop_mul_pack{"loop", [](auto src1, auto src2, auto dst, int n) {
                                 loops::mul(packed(src1), packed(src2), packed(dst), (n - 1) / 2);
                             }};
constexpr auto volk_mul_pack = volk([](auto src1, auto src2, auto dst, int n) {
    volk_32fc_x2_multiply_32fc(standard(packed(dst)), standard(packed(src1)), standard(packed(src2)),
                               unsigned((n - 1) / 2));
});

template <int scale>
constexpr Peer loop_mul_scaled{"loop", [](auto... x) { loops::mul_scaled(x..., scale); }};

const bench::Rows mul{[] {
    using bench::two_sources;
    two_sources<Orv8u>(arith("mul8u_sfs3"), call<orvsMul_8u_Sfs, 3>, loop_mul_scaled<3>);
    two_sources<Orv16s>(arith("mul16s"), call<orvsMul_16s>, loop_mul);
    two_sources<Orv16s>(arith("mul16s_sfs1"), call<orvsMul_16s_Sfs, 1>, loop_mul_scaled<1>);
    two_sources<Orv16s>(arith("mul16s_sfs3"), call<orvsMul_16s_Sfs, 3>, loop_mul_scaled<3>);
    two_sources<Orv32s>(arith("mul32s_sfs31"), call<orvsMul_32s_Sfs, 31>, loop_mul_scaled<31>);
    two_complex_sources<Orv16sc>(complex_arith("mul16sc"), call<orvsMul_16sc_Sfs, 0>, volk_mul_16sc, loop_mul);
    two_complex_sources<Orv16sc>(complex_arith("mul16sc_sfs15"), call<orvsMul_16sc_Sfs, 15>, loop_mul_scaled<15>);
    two_sources<Orv32f>(arith("mul32f"), call<orvsMul_32f>, volk_mul_32f, eigen_mul, loop_mul);
    two_sources<Orv64f>(arith("mul64f"), call<orvsMul_64f>, volk_mul_64f, eigen_mul, loop_mul);
    two_complex_sources<Orv32fc>(complex_arith("mul32fc"), call<orvsMul_32fc>, volk_mul_32fc, eigen_mul_complex,
                                 loop_mul);
    two_complex_sources<Orv64fc>(complex_arith("mul64fc"), call<orvsMul_64fc>, eigen_mul_complex, loop_mul);
    two_sources<Orv32f>(arith("mulpack32f"), call<orvsMulPack_32f>, volk_mul_pack, loop_mul_pack);
    real_and_complex_source<Orv32fc>(complex_arith("mul32f32fc"), call<orvsMul_32f32fc>, volk_mul_32f32fc,
                                     loop_mul_32f32fc);
}};

// ---- dst = src * value

constexpr Peer loop_mulc{"loop", [](auto... x) { loops::mulc(x...); }};
constexpr Peer eigen_mulc{
    "eigen", [](auto src, auto value, auto dst, int n) { eigen_array(dst, n) = eigen_array(src, n) * value; }};
constexpr Peer eigen_mulc_complex{"eigen", [](auto src, auto value, auto dst, int n) {
                                      eigen_mulc.call(standard(src), standard(value), standard(dst), n);
                                  }};
constexpr auto volk_mulc_32f =
    volk([](auto src, auto value, auto dst, auto n) { volk_32f_s32f_multiply_32f(dst, src, value, unsigned(n)); });
constexpr auto volk_mulc_32fc = volk([](auto src, auto value, auto dst, auto n) {
    volk_32fc_s32fc_multiply_32fc(standard(dst), standard(src), standard(value), unsigned(n));
});

// ---- srcDst = srcDst * value, by -1: the elements stay what they are for any number of calls

template <class T, class Ours, class... Peers>
void value_in_place(const bench::Kind& kind, Ours ours, Peers... peers)
{
    bench::rows(kind.family, kind.name, kind.sizes, [=](bench::Row& row, int n) {
        T* src_dst = row.array<T>(n);
        row.limit({src_dst}, src_dst, std::size_t(n) * sizeof(T));
        row.ours([=] { return ours(T(-1), src_dst, n); });
        (add_peer(row, peers, T(-1), src_dst, n), ...);
    });
}

constexpr auto openblas_scal_32f =
    bench::openblas([](auto value, auto src_dst, auto n) { cblas_sscal(n, value, src_dst, 1); });
constexpr auto openblas_scal_64f =
    bench::openblas([](auto value, auto src_dst, auto n) { cblas_dscal(n, value, src_dst, 1); });
constexpr Peer eigen_scal{"eigen", [](auto value, auto src_dst, int n) { eigen_array(src_dst, n) *= value; }};

template <int scale>
constexpr Peer loop_mulc_scaled{"loop", [](auto... x) { loops::mulc_scaled(x..., scale); }};

const bench::Rows mulc{[] {
    using bench::source_and_value;
    source_and_value<Orv16s>(arith("mulc16s_sfs3"), call<orvsMulC_16s_Sfs, 3>, loop_mulc_scaled<3>);
    source_and_value<Orv32f>(arith("mulc32f"), call<orvsMulC_32f>, volk_mulc_32f, eigen_mulc, loop_mulc);
    source_and_value<Orv64f>(arith("mulc64f"), call<orvsMulC_64f>, eigen_mulc, loop_mulc);
    value_in_place<Orv32f>(arith("mulc32f_i"), call<orvsMulC_32f_I>, openblas_scal_32f, eigen_scal);
    value_in_place<Orv64f>(arith("mulc64f_i"), call<orvsMulC_64f_I>, openblas_scal_64f, eigen_scal);
    complex_source_and_value<Orv32fc>(complex_arith("mulc32fc"), call<orvsMulC_32fc>, volk_mulc_32fc,
                                      eigen_mulc_complex, loop_mulc);
    complex_source_and_value<Orv64fc>(complex_arith("mulc64fc"), call<orvsMulC_64fc>, eigen_mulc_complex, loop_mulc);
}};

} // namespace
