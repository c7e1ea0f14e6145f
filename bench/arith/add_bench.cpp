// Add, Sub, AddC and AddProduct. A kind is named by stem, element type and, for scaled forms, scale factor.
#include "bench/arith/add_loops.h"
#include "bench/support/shapes.h"
#include "orvs/arith.h"

namespace {

using bench::eigen_array, bench::Peer, bench::volk;

bench::Kind arith(const char* name)
{
    return {"arith", name};
}

// ---- dst = src1 + src2

constexpr Peer loop_add{"loop", [](auto... x) { loops::add(x...); }};
constexpr Peer eigen_add{"eigen", [](auto src1, auto src2, auto dst, int n) {
                             eigen_array(dst, n) = eigen_array(src1, n) + eigen_array(src2, n);
                         }};

template <int scale>
constexpr Peer loop_add_scaled{"loop", [](auto... x) { loops::add_scaled(x..., scale); }};

const bench::Rows add{[] {
    using bench::two_sources;
    two_sources<Orv8u>(arith("add8u"), [](auto... x) { return orvsAdd_8u_Sfs(x..., 0); }, loop_add);
    two_sources<Orv8u>(arith("add8u_sfs1"), [](auto... x) { return orvsAdd_8u_Sfs(x..., 1); }, loop_add_scaled<1>);
    two_sources<Orv8u>(arith("add8u_sfs3"), [](auto... x) { return orvsAdd_8u_Sfs(x..., 3); }, loop_add_scaled<3>);
    two_sources<Orv16s>(arith("add16s"), [](auto... x) { return orvsAdd_16s(x...); }, loop_add);
    two_sources<Orv16s>(arith("add16s_sfs1"), [](auto... x) { return orvsAdd_16s_Sfs(x..., 1); }, loop_add_scaled<1>);
    two_sources<Orv16s>(arith("add16s_sfs3"), [](auto... x) { return orvsAdd_16s_Sfs(x..., 3); }, loop_add_scaled<3>);
    two_sources<Orv32s>(arith("add32s"), [](auto... x) { return orvsAdd_32s_Sfs(x..., 0); }, loop_add);
    two_sources<Orv32s>(arith("add32s_sfs2"), [](auto... x) { return orvsAdd_32s_Sfs(x..., 2); }, loop_add_scaled<2>);
    two_sources<Orv32f>(
        arith("add32f"), [](auto... x) { return orvsAdd_32f(x...); },
        volk([](auto src1, auto src2, auto dst, auto n) { volk_32f_x2_add_32f(dst, src1, src2, unsigned(n)); }),
        eigen_add, loop_add);
    two_sources<Orv64f>(
        arith("add64f"), [](auto... x) { return orvsAdd_64f(x...); },
        volk([](auto src1, auto src2, auto dst, auto n) { volk_64f_x2_add_64f(dst, src1, src2, unsigned(n)); }),
        eigen_add, loop_add);
}};

// What a call costs before and after the arithmetic: these arrays take one or two vectors.
const bench::Rows entry{[] {
    bench::rows("entry", "add32f", {1, 4, 16}, [](bench::Row& row, int n) {
        const auto* src1 = row.array<Orv32f>(n);
        const auto* src2 = row.array<Orv32f>(n);
        auto* dst = row.array<Orv32f>(n);
        row.ours([=] { return orvsAdd_32f(src1, src2, dst, n); });
        row.peer("loop", [=] { loops::add(src1, src2, dst, n); });
    });
}};

// ---- dst = src2 - src1

constexpr Peer loop_sub{"loop", [](auto... x) { loops::sub(x...); }};
constexpr Peer eigen_sub{"eigen", [](auto src1, auto src2, auto dst, int n) {
                             eigen_array(dst, n) = eigen_array(src2, n) - eigen_array(src1, n);
                         }};

template <int scale>
constexpr Peer loop_sub_scaled{"loop", [](auto... x) { loops::sub_scaled(x..., scale); }};

const bench::Rows sub{[] {
    using bench::two_sources;
    two_sources<Orv8u>(arith("sub8u"), [](auto... x) { return orvsSub_8u_Sfs(x..., 0); }, loop_sub);
    two_sources<Orv8u>(arith("sub8u_sfs1"), [](auto... x) { return orvsSub_8u_Sfs(x..., 1); }, loop_sub_scaled<1>);
    two_sources<Orv8u>(arith("sub8u_sfs3"), [](auto... x) { return orvsSub_8u_Sfs(x..., 3); }, loop_sub_scaled<3>);
    two_sources<Orv16s>(arith("sub16s"), [](auto... x) { return orvsSub_16s(x...); }, loop_sub);
    two_sources<Orv16s>(arith("sub16s_sfs1"), [](auto... x) { return orvsSub_16s_Sfs(x..., 1); }, loop_sub_scaled<1>);
    two_sources<Orv16s>(arith("sub16s_sfs3"), [](auto... x) { return orvsSub_16s_Sfs(x..., 3); }, loop_sub_scaled<3>);
    two_sources<Orv32s>(arith("sub32s"), [](auto... x) { return orvsSub_32s_Sfs(x..., 0); }, loop_sub);
    two_sources<Orv32s>(arith("sub32s_sfs2"), [](auto... x) { return orvsSub_32s_Sfs(x..., 2); }, loop_sub_scaled<2>);
    two_sources<Orv32f>(
        arith("sub32f"), [](auto... x) { return orvsSub_32f(x...); },
        volk([](auto src1, auto src2, auto dst, auto n) { volk_32f_x2_subtract_32f(dst, src2, src1, unsigned(n)); }),
        eigen_sub, loop_sub);
    two_sources<Orv64f>(
        arith("sub64f"), [](auto... x) { return orvsSub_64f(x...); }, eigen_sub, loop_sub);
}};

// ---- dst = src + value

template <class T>
constexpr T value = T(77.25);

constexpr Peer loop_addc{"loop", []<class T>(const T* src, T* dst, int n) { loops::addc(src, value<T>, dst, n); }};
constexpr Peer eigen_addc{"eigen", []<class T>(const T* src, T* dst, int n) {
                              eigen_array(dst, n) = eigen_array(src, n) + value<T>;
                          }};

template <int scale>
constexpr Peer loop_addc_scaled{
    "loop", []<class T>(const T* src, T* dst, int n) { loops::addc_scaled(src, value<T>, dst, n, scale); }};

template <int scale>
constexpr auto addc_8u = [](const Orv8u* src, Orv8u* dst, int n) {
    return orvsAddC_8u_Sfs(src, value<Orv8u>, dst, n, scale);
};
template <int scale>
constexpr auto addc_16s = [](const Orv16s* src, Orv16s* dst, int n) {
    return orvsAddC_16s_Sfs(src, value<Orv16s>, dst, n, scale);
};
template <int scale>
constexpr auto addc_32s = [](const Orv32s* src, Orv32s* dst, int n) {
    return orvsAddC_32s_Sfs(src, value<Orv32s>, dst, n, scale);
};

const bench::Rows addc{[] {
    using bench::one_source;
    one_source<Orv8u>(arith("addc8u"), addc_8u<0>, loop_addc);
    one_source<Orv8u>(arith("addc8u_sfs1"), addc_8u<1>, loop_addc_scaled<1>);
    one_source<Orv8u>(arith("addc8u_sfs3"), addc_8u<3>, loop_addc_scaled<3>);
    one_source<Orv16s>(arith("addc16s"), addc_16s<0>, loop_addc);
    one_source<Orv16s>(arith("addc16s_sfs1"), addc_16s<1>, loop_addc_scaled<1>);
    one_source<Orv16s>(arith("addc16s_sfs3"), addc_16s<3>, loop_addc_scaled<3>);
    one_source<Orv32s>(arith("addc32s"), addc_32s<0>, loop_addc);
    one_source<Orv32s>(arith("addc32s_sfs2"), addc_32s<2>, loop_addc_scaled<2>);
    one_source<Orv32f>(
        arith("addc32f"), [](auto src, auto dst, int n) { return orvsAddC_32f(src, value<Orv32f>, dst, n); },
        volk([](auto src, auto dst, auto n) { volk_32f_s32f_add_32f(dst, src, value<Orv32f>, unsigned(n)); }),
        eigen_addc, loop_addc);
    one_source<Orv64f>(
        arith("addc64f"), [](auto src, auto dst, int n) { return orvsAddC_64f(src, value<Orv64f>, dst, n); },
        eigen_addc, loop_addc);
}};

// ---- srcDst = srcDst + src1 * src2

constexpr Peer loop_addproduct{"loop", [](auto... x) { loops::addproduct(x...); }};
constexpr Peer eigen_addproduct{"eigen", [](auto src1, auto src2, auto src_dst, int n) {
                                    eigen_array(src_dst, n) += eigen_array(src1, n) * eigen_array(src2, n);
                                }};

const bench::Rows addproduct{[] {
    using bench::two_sources_in_place;
    two_sources_in_place<Orv32f>(
        arith("addproduct32f"), [](auto... x) { return orvsAddProduct_32f(x...); }, eigen_addproduct, loop_addproduct);
    two_sources_in_place<Orv64f>(
        arith("addproduct64f"), [](auto... x) { return orvsAddProduct_64f(x...); }, eigen_addproduct, loop_addproduct);
}};

} // namespace
