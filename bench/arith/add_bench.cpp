// Add, Sub, AddC and AddProduct. A kind is named by stem, element type and, for scaled forms, scale factor.
#include "bench/arith/add_loops.h"
#include "bench/support/shapes.h"
#include "orvs/arith.h"

namespace {

using bench::call, bench::eigen_array, bench::Peer, bench::volk;

bench::Kind arith(const char* name) { return {"arith", name}; }

// ---- dst = src1 + src2

constexpr Peer loop_add{"loop", [](auto... x) { loops::add(x...); }};
constexpr Peer eigen_add{"eigen", [](auto src1, auto src2, auto dst, int n) {
                             eigen_array(dst, n) = eigen_array(src1, n) + eigen_array(src2, n);
                         }};
constexpr auto volk_add_32f =
    volk([](auto src1, auto src2, auto dst, auto n) { volk_32f_x2_add_32f(dst, src1, src2, unsigned(n)); });
constexpr auto volk_add_64f =
    volk([](auto src1, auto src2, auto dst, auto n) { volk_64f_x2_add_64f(dst, src1, src2, unsigned(n)); });

template <int scale>
constexpr Peer loop_add_scaled{"loop", [](auto... x) { loops::add_scaled(x..., scale); }};

const bench::Rows add{[] {
    using bench::two_sources;
    two_sources<Orv8u>(arith("add8u"), call<orvsAdd_8u_Sfs, 0>, loop_add);
    two_sources<Orv8u>(arith("add8u_sfs1"), call<orvsAdd_8u_Sfs, 1>, loop_add_scaled<1>);
    two_sources<Orv8u>(arith("add8u_sfs3"), call<orvsAdd_8u_Sfs, 3>, loop_add_scaled<3>);
    two_sources<Orv16s>(arith("add16s"), call<orvsAdd_16s>, loop_add);
    two_sources<Orv16s>(arith("add16s_sfs1"), call<orvsAdd_16s_Sfs, 1>, loop_add_scaled<1>);
    two_sources<Orv16s>(arith("add16s_sfs3"), call<orvsAdd_16s_Sfs, 3>, loop_add_scaled<3>);
    two_sources<Orv32s>(arith("add32s"), call<orvsAdd_32s_Sfs, 0>, loop_add);
    two_sources<Orv32s>(arith("add32s_sfs2"), call<orvsAdd_32s_Sfs, 2>, loop_add_scaled<2>);
    two_sources<Orv32f>(arith("add32f"), call<orvsAdd_32f>, volk_add_32f, eigen_add, loop_add);
    two_sources<Orv64f>(arith("add64f"), call<orvsAdd_64f>, volk_add_64f, eigen_add, loop_add);
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
constexpr auto volk_sub_32f =
    volk([](auto src1, auto src2, auto dst, auto n) { volk_32f_x2_subtract_32f(dst, src2, src1, unsigned(n)); });

template <int scale>
constexpr Peer loop_sub_scaled{"loop", [](auto... x) { loops::sub_scaled(x..., scale); }};

const bench::Rows sub{[] {
    using bench::two_sources;
    two_sources<Orv8u>(arith("sub8u"), call<orvsSub_8u_Sfs, 0>, loop_sub);
    two_sources<Orv8u>(arith("sub8u_sfs1"), call<orvsSub_8u_Sfs, 1>, loop_sub_scaled<1>);
    two_sources<Orv8u>(arith("sub8u_sfs3"), call<orvsSub_8u_Sfs, 3>, loop_sub_scaled<3>);
    two_sources<Orv16s>(arith("sub16s"), call<orvsSub_16s>, loop_sub);
    two_sources<Orv16s>(arith("sub16s_sfs1"), call<orvsSub_16s_Sfs, 1>, loop_sub_scaled<1>);
    two_sources<Orv16s>(arith("sub16s_sfs3"), call<orvsSub_16s_Sfs, 3>, loop_sub_scaled<3>);
    two_sources<Orv32s>(arith("sub32s"), call<orvsSub_32s_Sfs, 0>, loop_sub);
    two_sources<Orv32s>(arith("sub32s_sfs2"), call<orvsSub_32s_Sfs, 2>, loop_sub_scaled<2>);
    two_sources<Orv32f>(arith("sub32f"), call<orvsSub_32f>, volk_sub_32f, eigen_sub, loop_sub);
    two_sources<Orv64f>(arith("sub64f"), call<orvsSub_64f>, eigen_sub, loop_sub);
}};

// ---- dst = src + value

constexpr Peer loop_addc{"loop", [](auto... x) { loops::addc(x...); }};
constexpr Peer eigen_addc{
    "eigen", [](auto src, auto value, auto dst, int n) { eigen_array(dst, n) = eigen_array(src, n) + value; }};
constexpr auto volk_addc_32f =
    volk([](auto src, auto value, auto dst, auto n) { volk_32f_s32f_add_32f(dst, src, value, unsigned(n)); });

template <int scale>
constexpr Peer loop_addc_scaled{"loop", [](auto... x) { loops::addc_scaled(x..., scale); }};

const bench::Rows addc{[] {
    using bench::source_and_value;
    source_and_value<Orv8u>(arith("addc8u"), call<orvsAddC_8u_Sfs, 0>, loop_addc);
    source_and_value<Orv8u>(arith("addc8u_sfs1"), call<orvsAddC_8u_Sfs, 1>, loop_addc_scaled<1>);
    source_and_value<Orv8u>(arith("addc8u_sfs3"), call<orvsAddC_8u_Sfs, 3>, loop_addc_scaled<3>);
    source_and_value<Orv16s>(arith("addc16s"), call<orvsAddC_16s_Sfs, 0>, loop_addc);
    source_and_value<Orv16s>(arith("addc16s_sfs1"), call<orvsAddC_16s_Sfs, 1>, loop_addc_scaled<1>);
    source_and_value<Orv16s>(arith("addc16s_sfs3"), call<orvsAddC_16s_Sfs, 3>, loop_addc_scaled<3>);
    source_and_value<Orv32s>(arith("addc32s"), call<orvsAddC_32s_Sfs, 0>, loop_addc);
    source_and_value<Orv32s>(arith("addc32s_sfs2"), call<orvsAddC_32s_Sfs, 2>, loop_addc_scaled<2>);
    source_and_value<Orv32f>(arith("addc32f"), call<orvsAddC_32f>, volk_addc_32f, eigen_addc, loop_addc);
    source_and_value<Orv64f>(arith("addc64f"), call<orvsAddC_64f>, eigen_addc, loop_addc);
}};

// ---- srcDst = srcDst + src1 * src2

constexpr Peer loop_addproduct{"loop", [](auto... x) { loops::addproduct(x...); }};
constexpr Peer eigen_addproduct{"eigen", [](auto src1, auto src2, auto src_dst, int n) {
                                    eigen_array(src_dst, n) += eigen_array(src1, n) * eigen_array(src2, n);
                                }};

const bench::Rows addproduct{[] {
    using bench::two_sources_in_place;
    two_sources_in_place<Orv32f>(arith("addproduct32f"), call<orvsAddProduct_32f>, eigen_addproduct, loop_addproduct);
    two_sources_in_place<Orv64f>(arith("addproduct64f"), call<orvsAddProduct_64f>, eigen_addproduct, loop_addproduct);
}};

} // namespace
