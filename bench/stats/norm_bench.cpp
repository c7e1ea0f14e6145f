// Norm and NormDiff. A kind is named by stem, which norm, and element types.
#include "bench/stats/norm_loops.h"
#include "bench/stats/reductions.h"
#include "orvs/stats.h"

namespace {

using bench::call, bench::eigen_array, bench::of_one_source, bench::openblas, bench::Peer, bench::stats;

constexpr Peer loop_norm_inf{"loop", [](auto... x) { loops::norm_inf(x...); }};
constexpr Peer loop_norm_l1{"loop", [](auto... x) { loops::norm_l1(x...); }};
constexpr Peer loop_norm_l2{"loop", [](auto... x) { loops::norm_l2(x...); }};
constexpr Peer loop_norm_diff_l2{"loop", [](auto... x) { loops::norm_diff_l2(x...); }};
constexpr Peer eigen_norm_inf{"eigen",
                              [](auto src, int n, auto norm) { *norm = eigen_array(src, n).abs().maxCoeff(); }};
constexpr Peer eigen_norm_l1{"eigen", [](auto src, int n, auto norm) { *norm = eigen_array(src, n).abs().sum(); }};
constexpr Peer eigen_norm_l2{"eigen", [](auto src, int n, auto norm) { *norm = eigen_array(src, n).matrix().norm(); }};
constexpr Peer eigen_norm_diff_l2{"eigen", [](auto src1, auto src2, int n, auto norm) {
                                      *norm = (eigen_array(src1, n) - eigen_array(src2, n)).matrix().norm();
                                  }};
constexpr auto openblas_norm_inf =
    openblas([](auto src, auto n, auto norm) { *norm = std::abs(src[cblas_isamax(n, src, 1)]); });
constexpr auto openblas_norm_l1 = openblas([](auto src, auto n, auto norm) { *norm = cblas_sasum(n, src, 1); });
/// Guards against overflow, for which it has a wider type.
constexpr auto openblas_norm_l2 = openblas([](auto src, auto n, auto norm) { *norm = cblas_snrm2(n, src, 1); });

const bench::Rows norm_rows{[] {
    of_one_source<Orv32f, Orv32f>(stats("norminf_32f"), call<orvsNorm_Inf_32f>, loop_norm_inf, eigen_norm_inf,
                                  openblas_norm_inf);
    of_one_source<Orv32f, Orv32f>(stats("norml1_32f"), call<orvsNorm_L1_32f>, loop_norm_l1, eigen_norm_l1,
                                  openblas_norm_l1);
    of_one_source<Orv32f, Orv32f>(stats("norml2_32f"), call<orvsNorm_L2_32f>, loop_norm_l2, eigen_norm_l2,
                                  openblas_norm_l2);
    of_one_source<Orv32fc, Orv64f>(stats("norml2_32fc64f", {.widened_32f = 2}), call<orvsNorm_L2_32fc64f>,
                                   loop_norm_l2);
    of_one_source<Orv16s, Orv32f>(stats("norml2_16s32f"), call<orvsNorm_L2_16s32f>, loop_norm_l2);
    bench::of_two_sources<Orv32f, Orv32f>(stats("normdiff_l2_32f"), call<orvsNormDiff_L2_32f>, loop_norm_diff_l2,
                                          eigen_norm_diff_l2);
}};

} // namespace
