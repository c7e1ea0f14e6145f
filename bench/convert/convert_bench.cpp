// Conversions. A kind is named by source and destination type and, for scaled forms, scale factor.
#include "bench/convert/convert_loops.h"
#include "bench/support/shapes.h"
#include "orvs/convert.h"

namespace {

using bench::call, bench::Peer, bench::volk;

bench::Kind convert(const char* name) { return {"convert", name}; }

/// dst = f(src): f(src, dst, n). An element has so many bytes in memory, which are three for bytes of packed samples.
template <class S, class D, int src_bytes = int(sizeof(S)), int dst_bytes = int(sizeof(D)), class Ours, class... Peers>
void converted(const bench::Kind& kind, Ours ours, Peers... peers)
{
    bench::rows(kind.family, kind.name, kind.sizes, [=](bench::Row& row, int n) {
        const S* src = row.array<S>(n * (src_bytes / int(sizeof(S))));
        D* dst = row.array<D>(n * (dst_bytes / int(sizeof(D))));
        const auto elements = std::size_t(n);
        row.limit_resized(src, elements * src_bytes, dst, elements * dst_bytes);
        row.ours([=] { return ours(src, dst, n); });
        (bench::add_peer(row, peers, src, dst, n), ...);
    });
}

constexpr Peer loop_convert{"loop", [](auto... x) { loops::convert(x...); }};
constexpr Peer loop_near{"loop", [](auto... x) { loops::convert_near(x...); }};

// ---- Widening, and to floating types

constexpr auto volk_16s32f =
    volk([](auto src, auto dst, auto n) { volk_16i_s32f_convert_32f(dst, src, 1, unsigned(n)); });
constexpr auto volk_32s32f =
    volk([](auto src, auto dst, auto n) { volk_32i_s32f_convert_32f(dst, src, 1, unsigned(n)); });
constexpr auto volk_32f64f = volk([](auto src, auto dst, auto n) { volk_32f_convert_64f(dst, src, unsigned(n)); });
constexpr auto volk_64f32f = volk([](auto src, auto dst, auto n) { volk_64f_convert_32f(dst, src, unsigned(n)); });
constexpr Peer loop_24s32f{"loop", [](auto... x) { loops::convert_24s32f(x...); }};

const bench::Rows widening{[] {
    converted<Orv16s, Orv32f>(convert("cvt16s32f"), call<orvsConvert_16s32f>, volk_16s32f, loop_convert);
    converted<Orv32s, Orv32f>(convert("cvt32s32f"), call<orvsConvert_32s32f>, volk_32s32f, loop_convert);
    converted<Orv32f, Orv64f>(convert("cvt32f64f"), call<orvsConvert_32f64f>, volk_32f64f, loop_convert);
    converted<Orv64f, Orv32f>(convert("cvt64f32f"), call<orvsConvert_64f32f>, volk_64f32f, loop_convert);
    converted<Orv8u, Orv32f>(convert("cvt8u32f"), call<orvsConvert_8u32f>, loop_convert);
    converted<Orv8u, Orv32f, 3>(convert("cvt24s32f"), call<orvsConvert_24s32f>, loop_24s32f);
}};

// ---- Floating to integer

constexpr auto volk_32f16s =
    volk([](auto src, auto dst, auto n) { volk_32f_s32f_convert_16i(dst, src, 1, unsigned(n)); });
constexpr auto volk_32f32s =
    volk([](auto src, auto dst, auto n) { volk_32f_s32f_convert_32i(dst, src, 1, unsigned(n)); });
constexpr Peer loop_financial{"loop", [](auto... x) { loops::convert_financial(x...); }};
constexpr Peer loop_32f24s{"loop", [](auto... x) { loops::convert_32f24s(x...); }};

const bench::Rows to_integer{[] {
    converted<Orv32f, Orv16s>(convert("cvt32f16s"), call<orvsConvert_32f16s_Sfs, orvRndNear, 0>, volk_32f16s,
                              loop_near);
    converted<Orv32f, Orv16s>(convert("cvt32f16s_sfs3"), call<orvsConvert_32f16s_Sfs, orvRndNear, 3>, volk_32f16s);
    converted<Orv32f, Orv16s>(convert("cvt32f16s_fin"), call<orvsConvert_32f16s_Sfs, orvRndFinancial, 0>,
                              loop_financial);
    converted<Orv32f, Orv32s>(convert("cvt32f32s"), call<orvsConvert_32f32s_Sfs, orvRndNear, 0>, volk_32f32s,
                              loop_near);
    converted<Orv32f, Orv8u>(convert("cvt32f8u"), call<orvsConvert_32f8u_Sfs, orvRndNear, 0>, loop_near);
    converted<Orv32f, Orv8u, 4, 3>(convert("cvt32f24s"), call<orvsConvert_32f24s_Sfs, 0>, loop_32f24s);
    converted<Orv64f, Orv64s>(convert("cvt64f64s"), call<orvsConvert_64f64s_Sfs, orvRndNear, 0>, loop_near);
}};

// ---- Integer narrowing

constexpr Peer loop_narrow{"loop", [](auto... x) { loops::narrow_scaled(x..., 3); }};

const bench::Rows narrowing{
    [] { converted<Orv32s, Orv16s>(convert("cvt32s16s_sfs3"), call<orvsConvert_32s16s_Sfs, 3>, loop_narrow); }};

// ---- Half precision

constexpr Peer loop_16f32f{"loop", [](auto... x) { loops::convert_16f32f(x...); }};
constexpr Peer loop_32f16f{"loop", [](auto... x) { loops::convert_32f16f(x...); }};
constexpr Peer f16c_16f32f{"f16c", [](auto... x) { loops::f16c_16f32f(x...); }};
constexpr Peer f16c_32f16f{"f16c", [](auto... x) { loops::f16c_32f16f(x...); }};

const bench::Rows half{[] {
    converted<Orv16f, Orv32f>(convert("cvt16f32f"), call<orvsConvert_16f32f>, f16c_16f32f, loop_16f32f);
    converted<Orv32f, Orv16f>(convert("cvt32f16f"), call<orvsConvert_32f16f, orvRndNear>, f16c_32f16f, loop_32f16f);
}};

// What a call costs before and after its work: the control word is read twice and not written, or written twice.
const bench::Rows entry{[] {
    bench::rows("entry", "cvt32f16s", {1, 16}, [](bench::Row& row, int n) {
        auto* src = row.array<Orv32f>(n);
        auto* dst = row.array<Orv16s>(n);
        row.ours([=] { return orvsConvert_32f16s_Sfs(src, dst, n, orvRndNear, 0); });
        row.peer("stateless", [=] { orvsConvert_16s32f(dst, src, n); });
        row.peer("financial", [=] { orvsConvert_32f16s_Sfs(src, dst, n, orvRndFinancial, 0); });
    });
}};

} // namespace
