// Sum, Mean, StdDev and MeanStdDev. A kind is named by stem and element types; _acc is the accurate road of single
// precision. Integers are not scaled.
#include "bench/stats/reductions.h"
#include "bench/stats/sum_loops.h"
#include "orvs/stats.h"

namespace {

using bench::call, bench::eigen_array, bench::of_one_source, bench::openblas, bench::Peer, bench::standard,
    bench::stats, bench::volk;

template <class S>
constexpr Peer loop_sum{"loop", [](auto... x) { loops::sum<S>(x...); }};
constexpr Peer loop_sum_32fc{"loop", [](auto... x) { loops::sum_complex(x...); }};
constexpr Peer eigen_sum{"eigen", [](auto src, int n, auto result) { *result = eigen_array(src, n).sum(); }};
constexpr auto openblas_sum_32f = openblas([](auto src, auto n, auto result) { *result = cblas_ssum(n, src, 1); });
constexpr auto openblas_sum_64f = openblas([](auto src, auto n, auto result) { *result = cblas_dsum(n, src, 1); });
/// In single precision.
constexpr auto volk_sum_32f =
    volk([](auto src, auto n, auto result) { volk_32f_accumulator_s32f(result, src, unsigned(n)); });
constexpr auto volk_sum_32fc = volk(
    [](auto src, auto n, auto result) { volk_32fc_accumulator_s32fc(standard(result), standard(src), unsigned(n)); });

const bench::Rows sum_rows{[] {
    of_one_source<Orv32f, Orv32f>(stats("sum32f"), call<orvsSum_32f, 1>, loop_sum<Orv32f>, eigen_sum, openblas_sum_32f,
                                  volk_sum_32f);
    of_one_source<Orv32f, Orv32f>(stats("sum32f_acc", {.widened_32f = 1}), call<orvsSum_32f, 2>, loop_sum<Orv64f>,
                                  volk_sum_32f);
    of_one_source<Orv64f, Orv64f>(stats("sum64f"), call<orvsSum_64f>, loop_sum<Orv64f>, eigen_sum, openblas_sum_64f);
    of_one_source<Orv32fc, Orv32fc>(stats("sum32fc"), call<orvsSum_32fc, 1>, loop_sum_32fc, volk_sum_32fc);
    of_one_source<Orv16s, Orv32s>(stats("sum16s32s"), call<orvsSum_16s32s_Sfs, 0>, loop_sum<Orv64s>);
    of_one_source<Orv32s, Orv32s>(stats("sum32s"), call<orvsSum_32s_Sfs, 0>, loop_sum<Orv64s>);
}};

template <class S>
constexpr Peer loop_mean{"loop", [](auto... x) { loops::mean<S>(x...); }};
constexpr Peer eigen_mean{"eigen", [](auto src, int n, auto result) { *result = eigen_array(src, n).mean(); }};

const bench::Rows mean_rows{[] {
    of_one_source<Orv32f, Orv32f>(stats("mean32f"), call<orvsMean_32f, 1>, loop_mean<Orv32f>, eigen_mean);
    of_one_source<Orv64f, Orv64f>(stats("mean64f"), call<orvsMean_64f>, loop_mean<Orv64f>, eigen_mean);
    of_one_source<Orv16s, Orv16s>(stats("mean16s"), call<orvsMean_16s_Sfs, 0>, loop_mean<Orv64s>);
    of_one_source<Orv32s, Orv32s>(stats("mean32s"), call<orvsMean_32s_Sfs, 0>, loop_mean<Orv64s>);
}};

template <class S>
constexpr Peer loop_deviation{"loop", [](auto src, int n, auto deviation) {
                                  loops::mean_deviation<S>(src, n, decltype(deviation){}, deviation);
                              }};
template <class S>
constexpr Peer loop_mean_deviation{"loop", [](auto... x) { loops::mean_deviation<S>(x...); }};
/// In single precision.
constexpr auto volk_mean_deviation = volk([](auto src, auto n, auto mean, auto deviation) {
    volk_32f_stddev_and_mean_32f_x2(deviation, mean, src, unsigned(n));
});
constexpr auto volk_deviation = volk([](auto src, auto n, auto deviation) {
    float mean = 0;
    volk_32f_stddev_and_mean_32f_x2(deviation, &mean, src, unsigned(n));
});

const bench::Rows deviation_rows{[] {
    of_one_source<Orv32f, Orv32f>(stats("stddev32f"), call<orvsStdDev_32f, 1>, loop_deviation<Orv32f>, volk_deviation);
    of_one_source<Orv32f, Orv32f>(stats("stddev32f_acc", {.widened_32f = 1}), call<orvsStdDev_32f, 2>,
                                  loop_deviation<Orv64f>, volk_deviation);
    of_one_source<Orv32f, Orv32f, Orv32f>(stats("meanstd32f", {.widened_32f = 1}), call<orvsMeanStdDev_32f, 0>,
                                          loop_mean_deviation<Orv64f>, volk_mean_deviation);
    of_one_source<Orv64f, Orv64f, Orv64f>(stats("meanstd64f"), call<orvsMeanStdDev_64f>, loop_mean_deviation<Orv64f>);
    of_one_source<Orv16s, Orv32s, Orv32s>(stats("meanstd16s32s"), call<orvsMeanStdDev_16s32s_Sfs, 0>,
                                          loop_mean_deviation<Orv64s>);
}};

} // namespace
