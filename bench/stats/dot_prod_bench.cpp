// DotProd. A kind is named by element types and scale factor.
#include "bench/stats/dot_prod_loops.h"
#include "bench/stats/reductions.h"
#include "orvs/stats.h"

namespace {

using bench::call, bench::eigen_array, bench::of_two_sources, bench::openblas, bench::Peer, bench::standard,
    bench::stats, bench::volk;

constexpr Peer loop_dot{"loop", [](auto... x) { loops::dot(x...); }};
constexpr Peer loop_dot_complex{"loop", [](auto... x) { loops::dot_complex(x...); }};
template <int scale>
constexpr Peer loop_dot_scaled{"loop", [](auto... x) { loops::dot_scaled(x..., scale); }};
constexpr Peer eigen_dot{
    "eigen", [](auto src1, auto src2, int n, auto dp) { *dp = (eigen_array(src1, n) * eigen_array(src2, n)).sum(); }};
constexpr auto openblas_dot_32f =
    openblas([](auto src1, auto src2, auto n, auto dp) { *dp = cblas_sdot(n, src1, 1, src2, 1); });
constexpr auto openblas_dot_64f =
    openblas([](auto src1, auto src2, auto n, auto dp) { *dp = cblas_ddot(n, src1, 1, src2, 1); });
constexpr auto openblas_dot_32f64f =
    openblas([](auto src1, auto src2, auto n, auto dp) { *dp = cblas_dsdot(n, src1, 1, src2, 1); });
constexpr auto openblas_dot_32fc =
    openblas([](auto src1, auto src2, auto n, auto dp) { cblas_cdotu_sub(n, src1, 1, src2, 1, dp); });
constexpr auto volk_dot_32f =
    volk([](auto src1, auto src2, auto n, auto dp) { volk_32f_x2_dot_prod_32f(dp, src1, src2, unsigned(n)); });
constexpr auto volk_dot_32fc = volk([](auto src1, auto src2, auto n, auto dp) {
    volk_32fc_x2_dot_prod_32fc(standard(dp), standard(src1), standard(src2), unsigned(n));
});

const bench::Rows float_rows{[] {
    of_two_sources<Orv32f, Orv32f>(stats("dot32f"), call<orvsDotProd_32f>, loop_dot, eigen_dot, openblas_dot_32f,
                                   volk_dot_32f);
    of_two_sources<Orv64f, Orv64f>(stats("dot64f"), call<orvsDotProd_64f>, loop_dot, eigen_dot, openblas_dot_64f);
    of_two_sources<Orv32f, Orv64f>(stats("dot32f64f", {.widened_32f = 2}), call<orvsDotProd_32f64f>, loop_dot,
                                   openblas_dot_32f64f);
    of_two_sources<Orv32fc, Orv32fc>(stats("dot32fc"), call<orvsDotProd_32fc>, loop_dot_complex, openblas_dot_32fc,
                                     volk_dot_32fc);
    of_two_sources<Orv32fc, Orv64fc>(stats("dot32fc64fc", {.widened_32f = 4}), call<orvsDotProd_32fc64fc>,
                                     loop_dot_complex);
}};

const bench::Rows integer_rows{[] {
    of_two_sources<Orv16s, Orv64s>(stats("dot16s64s", {.products_16s = 1}), call<orvsDotProd_16s64s>, loop_dot);
    of_two_sources<Orv16sc, Orv64sc>(stats("dot16sc64sc", {.products_16s = 4}), call<orvsDotProd_16sc64sc>,
                                     loop_dot_complex);
    of_two_sources<Orv32s, Orv32s>(stats("dot32s_sfs31"), call<orvsDotProd_32s_Sfs, 31>, loop_dot_scaled<31>);
}};

} // namespace
