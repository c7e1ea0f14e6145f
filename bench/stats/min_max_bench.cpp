// The extremes: Max, MaxAbs, MinMax, MaxIndx, MinMaxIndx, MinEvery, MaxEvery, MaxOrder. A kind is named by stem and
// element type. A minimum alone costs as much as a maximum.
#include "bench/stats/min_max_loops.h"
#include "bench/stats/reductions.h"
#include "orvs/stats.h"

namespace {

using bench::call, bench::eigen_array, bench::of_one_source, bench::openblas, bench::Peer, bench::stats, bench::volk;

constexpr Peer loop_max{"loop", [](auto... x) { loops::max(x...); }};
constexpr Peer loop_max_abs{"loop", [](auto... x) { loops::max_abs(x...); }};
constexpr Peer loop_min_max{"loop", [](auto... x) { loops::min_max(x...); }};
constexpr Peer eigen_max{"eigen", [](auto src, int n, auto max) { *max = eigen_array(src, n).maxCoeff(); }};
constexpr Peer eigen_min_max{"eigen", [](auto src, int n, auto min, auto max) {
                                 *min = eigen_array(src, n).minCoeff();
                                 *max = eigen_array(src, n).maxCoeff();
                             }};

const bench::Rows extreme_rows{[] {
    of_one_source<Orv32f, Orv32f>(stats("max32f"), call<orvsMax_32f>, loop_max, eigen_max);
    of_one_source<Orv64f, Orv64f>(stats("max64f"), call<orvsMax_64f>, loop_max, eigen_max);
    of_one_source<Orv16s, Orv16s>(stats("max16s"), call<orvsMax_16s>, loop_max);
    of_one_source<Orv32s, Orv32s>(stats("max32s"), call<orvsMax_32s>, loop_max, eigen_max);
    of_one_source<Orv16s, Orv16s>(stats("maxabs16s"), call<orvsMaxAbs_16s>, loop_max_abs);
    of_one_source<Orv32f, Orv32f, Orv32f>(stats("minmax32f"), call<orvsMinMax_32f>, loop_min_max, eigen_min_max);
    of_one_source<Orv16s, Orv16s, Orv16s>(stats("minmax16s"), call<orvsMinMax_16s>, loop_min_max);
    of_one_source<Orv8u, Orv8u, Orv8u>(stats("minmax8u"), call<orvsMinMax_8u>, loop_min_max);
}};

constexpr Peer loop_max_index{"loop", [](auto... x) { loops::max_index(x...); }};
constexpr Peer loop_min_max_index{"loop", [](auto... x) { loops::min_max_index(x...); }};
constexpr auto openblas_max_index_32f = openblas([](auto src, auto n, auto max, auto index) {
    *index = Orv32s(cblas_ismax(n, src, 1));
    *max = src[*index];
});
constexpr auto openblas_max_index_64f = openblas([](auto src, auto n, auto max, auto index) {
    *index = Orv32s(cblas_idmax(n, src, 1));
    *max = src[*index];
});
constexpr auto volk_max_index_32f = volk([](auto src, auto n, auto max, auto index) {
    unsigned place = 0;
    volk_32f_index_max_32u(&place, src, unsigned(n));
    *index = Orv32s(place);
    *max = src[place];
});

const bench::Rows index_rows{[] {
    of_one_source<Orv32f, Orv32f, Orv32s>(stats("maxidx32f"), call<orvsMaxIndx_32f>, loop_max_index,
                                          openblas_max_index_32f, volk_max_index_32f);
    of_one_source<Orv64f, Orv64f, Orv32s>(stats("maxidx64f"), call<orvsMaxIndx_64f>, loop_max_index,
                                          openblas_max_index_64f);
    of_one_source<Orv16s, Orv16s, Orv32s>(stats("maxidx16s"), call<orvsMaxIndx_16s>, loop_max_index);
    of_one_source<Orv32f, Orv32f, Orv32s, Orv32f, Orv32s>(stats("minmaxidx32f"), call<orvsMinMaxIndx_32f>,
                                                          loop_min_max_index);
}};

constexpr Peer loop_min_every{"loop", [](auto... x) { loops::min_every(x...); }};
constexpr Peer loop_max_every{"loop", [](auto... x) { loops::max_every(x...); }};
constexpr auto eigen_max_every = Peer{"eigen", [](auto src1, auto src2, auto dst, int n) {
                                          eigen_array(dst, n) = eigen_array(src1, n).max(eigen_array(src2, n));
                                      }};
constexpr auto volk_max_every =
    volk([](auto src1, auto src2, auto dst, auto n) { volk_32f_x2_max_32f(dst, src1, src2, unsigned(n)); });
/// The forms out of place take an unsigned length.
template <auto f>
constexpr auto every = [](auto src1, auto src2, auto dst, int n) { return f(src1, src2, dst, unsigned(n)); };

const bench::Rows every_rows{[] {
    bench::two_sources<Orv32f>(stats("maxevery32f"), every<orvsMaxEvery_32f>, loop_max_every, eigen_max_every,
                               volk_max_every);
    bench::two_sources<Orv8u>(stats("minevery8u"), every<orvsMinEvery_8u>, loop_min_every);
}};

constexpr Peer loop_max_order{"loop", [](auto... x) { loops::max_order(x...); }};

const bench::Rows order_rows{[] {
    of_one_source<Orv32f, Orv32s>(stats("maxorder32f"), call<orvsMaxOrder_32f>, loop_max_order);
    of_one_source<Orv16s, Orv32s>(stats("maxorder16s"), call<orvsMaxOrder_16s>, loop_max_order);
}};

} // namespace
