// Complex parts, conjugates, reversal, byte order, bit strings, channels.
#include <algorithm>

#include "bench/convert/layout_loops.h"
#include "bench/support/shapes.h"
#include "orvs/convert.h"

namespace {

using bench::call, bench::one_source, bench::Peer, bench::Row, bench::volk;

bench::Kind layout(const char* name) { return {"layout", name}; }

template <class Build>
void layout_rows(const char* name, Build build)
{
    bench::rows("layout", name, bench::cache_sizes, build);
}

template <class C>
C* complex_array(Row& row, int n)
{
    return reinterpret_cast<C*>(row.array<decltype(C::re)>(2 * n));
}

// ---- Parts

constexpr auto volk_real = volk([](auto src, auto dst, auto n) {
    volk_32fc_deinterleave_real_32f(dst, reinterpret_cast<const lv_32fc_t*>(src), unsigned(n));
});
constexpr auto volk_join = volk([](auto re, auto im, auto dst, auto n) {
    volk_32f_x2_interleave_32fc(reinterpret_cast<lv_32fc_t*>(dst), re, im, unsigned(n));
});
constexpr auto volk_split = volk([](auto src, auto re, auto im, auto n) {
    volk_32fc_deinterleave_32f_x2(re, im, reinterpret_cast<const lv_32fc_t*>(src), unsigned(n));
});
constexpr auto volk_conj = volk([](auto src, auto dst, auto n) {
    volk_32fc_conjugate_32fc(reinterpret_cast<lv_32fc_t*>(dst), reinterpret_cast<const lv_32fc_t*>(src), unsigned(n));
});

const bench::Rows parts{[] {
    layout_rows("real32fc", [](Row& row, int n) {
        const auto* src = complex_array<Orv32fc>(row, n);
        auto* dst = row.array<Orv32f>(n);
        row.limit({src, src + n / 2}, dst, std::size_t(n) * sizeof *dst);
        row.ours([=] { return orvsReal_32fc(src, dst, n); });
        add_peer(row, volk_real, src, dst, n);
        row.peer("loop", [=] { loops::real(src, dst, n); });
    });
    layout_rows("imag16sc", [](Row& row, int n) {
        const auto* src = complex_array<Orv16sc>(row, n);
        auto* dst = row.array<Orv16s>(n);
        row.limit({src, src + n / 2}, dst, std::size_t(n) * sizeof *dst);
        row.ours([=] { return orvsImag_16sc(src, dst, n); });
        row.peer("loop", [=] { loops::imag(src, dst, n); });
    });
    layout_rows("realtocplx32f", [](Row& row, int n) {
        const auto* re = row.array<Orv32f>(2 * n);
        const auto* im = re + n;
        auto* dst = complex_array<Orv32fc>(row, n);
        row.limit({re}, dst, std::size_t(n) * sizeof *dst);
        row.ours([=] { return orvsRealToCplx_32f(re, im, dst, n); });
        add_peer(row, volk_join, re, im, dst, n);
        row.peer("loop", [=] { loops::parts_to_complex(re, im, dst, n); });
    });
    layout_rows("cplxtoreal32fc", [](Row& row, int n) {
        const auto* src = complex_array<Orv32fc>(row, n);
        auto* re = row.array<Orv32f>(2 * n);
        auto* im = re + n;
        row.limit({src}, re, std::size_t(n) * sizeof *src);
        row.ours([=] { return orvsCplxToReal_32fc(src, re, im, n); });
        add_peer(row, volk_split, src, re, im, n);
        row.peer("loop", [=] { loops::complex_to_parts(src, re, im, n); });
    });
    layout_rows("conj32fc", [](Row& row, int n) {
        const auto* src = complex_array<Orv32fc>(row, n);
        auto* dst = complex_array<Orv32fc>(row, n);
        row.limit({src}, dst, std::size_t(n) * sizeof *src);
        row.ours([=] { return orvsConj_32fc(src, dst, n); });
        add_peer(row, volk_conj, src, dst, n);
        row.peer("loop", [=] { loops::conj(src, dst, n); });
    });
}};

// ---- Order of elements and bytes

constexpr Peer loop_flip{"loop", [](auto... x) { loops::flip(x...); }};
constexpr Peer std_flip{"std", [](auto src, auto dst, int n) { std::reverse_copy(src, src + n, dst); }};
constexpr Peer loop_swap{"loop", [](auto... x) { loops::swap_bytes(x...); }};

const bench::Rows order{[] {
    one_source<Orv8u>(layout("flip8u"), call<orvsFlip_8u>, std_flip, loop_flip);
    one_source<Orv32f>(layout("flip32f"), call<orvsFlip_32f>, std_flip, loop_flip);
    one_source<Orv16u>(layout("swapbytes16u"), call<orvsSwapBytes_16u>, loop_swap);
    one_source<Orv32u>(layout("swapbytes32u"), call<orvsSwapBytes_32u>, loop_swap);
    one_source<Orv64u>(layout("swapbytes64u"), call<orvsSwapBytes_64u>, loop_swap);
    layout_rows("flip32f_i", [](Row& row, int n) {
        auto* x = row.array<Orv32f>(n);
        row.limit({x}, x, std::size_t(n) * sizeof *x);
        row.ours([=] { return orvsFlip_32f_I(x, n); });
        row.peer("std", [=] { std::reverse(x, x + n); });
    });
    layout_rows("swapbytes16u_i", [](Row& row, int n) {
        auto* x = row.array<Orv16u>(n);
        row.limit({x}, x, std::size_t(n) * sizeof *x);
        row.ours([=] { return orvsSwapBytes_16u_I(x, n); });
        add_peer(row, volk([](auto p, auto count) { volk_16u_byteswap(p, unsigned(count)); }), x, n);
    });
    layout_rows("swapbytes32u_i", [](Row& row, int n) {
        auto* x = row.array<Orv32u>(n);
        row.limit({x}, x, std::size_t(n) * sizeof *x);
        row.ours([=] { return orvsSwapBytes_32u_I(x, n); });
        add_peer(row, volk([](auto p, auto count) { volk_32u_byteswap(p, unsigned(count)); }), x, n);
    });
    layout_rows("swapbytes64u_i", [](Row& row, int n) {
        auto* x = row.array<Orv64u>(n);
        row.limit({x}, x, std::size_t(n) * sizeof *x);
        row.ours([=] { return orvsSwapBytes_64u_I(x, n); });
        add_peer(row, volk([](auto p, auto count) { volk_64u_byteswap(p, unsigned(count)); }), x, n);
    });
    layout_rows("swapbytes24u", [](Row& row, int n) {
        const auto* src = row.array<Orv8u>(3 * n);
        auto* dst = row.array<Orv8u>(3 * n);
        row.limit({src}, dst, std::size_t(n) * 3);
        row.ours([=] { return orvsSwapBytes_24u(src, dst, n); });
        row.peer("loop", [=] { loops::swap_bytes24(src, dst, n); });
    });
}};

// ---- Bits. The size counts bytes of the destination, or words.

const bench::Rows bits{[] {
    layout_rows("copy1u", [](Row& row, int n) {
        const auto* src = row.array<Orv8u>(n + 1);
        auto* dst = row.array<Orv8u>(n + 1);
        row.limit({src}, dst, std::size_t(n));
        row.ours([=] { return orvsCopy_1u(src, 3, dst, 0, 8 * n); });
        row.peer("loop", [=] { loops::copy_bits(src, 3, dst, n); });
    });
    layout_rows("copybe1u_unaligned", [](Row& row, int n) {
        const auto* src = row.array<Orv8u>(n + 1);
        auto* dst = row.array<Orv8u>(n + 1);
        row.limit({src}, dst, std::size_t(n));
        row.ours([=] { return orvsCopyBE_1u(src, 3, dst, 6, 8 * n); });
        row.peer("loop", [=] { loops::copy_bits(src, 3, dst, n); });
    });
    layout_rows("packbits", [](Row& row, int n) {
        const auto* src = row.array<Orv32u>(n);
        auto* widths = row.array<int>(n);
        for (int i = 0; i < n; ++i) widths[i] = 1 + (widths[i] & 15);
        auto* dst = row.array<Orv8u>(2 * n + 8);
        auto* count = row.array<int>(1);
        row.ours([=] { return orvsPackBits_32u8u(src, widths, n, dst, 0, count); });
        row.peer("loop", [=] { loops::pack_bits(src, widths, dst, n); });
    });
}};

// ---- Channels. The size counts frames.

constexpr auto volk_join_16 = volk([](auto left, auto right, auto dst, auto n) {
    volk_32f_x2_s32f_interleave_16ic(reinterpret_cast<lv_16sc_t*>(dst), left, right, 32768.0f, unsigned(n));
});
constexpr auto volk_split_16 = volk([](auto src, auto left, auto right, auto n) {
    volk_16ic_s32f_deinterleave_32f_x2(left, right, reinterpret_cast<const lv_16sc_t*>(src), 32768.0f, unsigned(n));
});

template <int channels>
struct Floats {
    explicit Floats(Row& row, int n)
    {
        Orv32f* const all = row.array<Orv32f>(channels * n);
        for (int c = 0; c < channels; ++c) channel[c] = all + std::ptrdiff_t(c) * n;
    }
    Orv32f* channel[channels];
};

const bench::Rows channels{[] {
    layout_rows("join16s_2ch", [](Row& row, int n) {
        const Floats<2> x(row, n);
        auto* dst = row.array<Orv16s>(2 * n);
        const auto [left, right] = x.channel;
        row.limit({left, right}, dst, std::size_t(n) * 4);
        row.ours([=] { return orvsJoinScaled_32f16s_D2L(x.channel, 2, n, dst); });
        add_peer(row, volk_join_16, left, right, dst, n);
        row.peer("loop", [=, l = left, r = right] { loops::join2(l, r, dst, n); });
    });
    layout_rows("join16s_6ch", [](Row& row, int n) {
        const Floats<6> x(row, n / 2);
        auto* dst = row.array<Orv16s>(6 * (n / 2));
        row.limit({x.channel[0], x.channel[3]}, dst, std::size_t(n / 2) * 12);
        row.ours([=] { return orvsJoinScaled_32f16s_D2L(x.channel, 6, n / 2, dst); });
        row.peer("loop", [=] { loops::join6(x.channel, dst, n / 2); });
    });
    layout_rows("join16s_8ch", [](Row& row, int n) {
        const Floats<8> x(row, n / 2);
        auto* dst = row.array<Orv16s>(8 * (n / 2));
        row.limit({x.channel[0], x.channel[4]}, dst, std::size_t(n / 2) * 16);
        row.ours([=] { return orvsJoinScaled_32f16s_D2L(x.channel, 8, n / 2, dst); });
    });
    layout_rows("join24s_2ch", [](Row& row, int n) {
        const Floats<2> x(row, n);
        auto* dst = row.array<Orv8u>(6 * n);
        const auto [left, right] = x.channel;
        row.limit({left}, dst, std::size_t(n) * 6);
        row.ours([=] { return orvsJoinScaled_32f24s_D2L(x.channel, 2, n, dst); });
        row.peer("loop", [=, l = left, r = right] { loops::join2_24(l, r, dst, n); });
    });
    layout_rows("split16s_2ch", [](Row& row, int n) {
        const auto* src = row.array<Orv16s>(2 * n);
        const Floats<2> x(row, n);
        const auto [left, right] = x.channel;
        row.limit({}, left, std::size_t(n) * 8);
        row.ours([=] { return orvsSplitScaled_16s32f_D2L(src, x.channel, 2, n); });
        add_peer(row, volk_split_16, src, left, right, n);
        row.peer("loop", [=, l = left, r = right] { loops::split2(src, l, r, n); });
    });
    layout_rows("split16s_6ch", [](Row& row, int n) {
        const auto* src = row.array<Orv16s>(6 * (n / 2));
        const Floats<6> x(row, n / 2);
        row.limit({}, x.channel[0], std::size_t(n / 2) * 24);
        row.ours([=] { return orvsSplitScaled_16s32f_D2L(src, x.channel, 6, n / 2); });
        row.peer("loop", [=] { loops::split6(src, x.channel, n / 2); });
    });
    layout_rows("split16s_8ch", [](Row& row, int n) {
        const auto* src = row.array<Orv16s>(8 * (n / 2));
        const Floats<8> x(row, n / 2);
        row.limit({}, x.channel[0], std::size_t(n / 2) * 32);
        row.ours([=] { return orvsSplitScaled_16s32f_D2L(src, x.channel, 8, n / 2); });
    });
    layout_rows("split24s_2ch", [](Row& row, int n) {
        const auto* src = row.array<Orv8u>(6 * n);
        const Floats<2> x(row, n);
        const auto [left, right] = x.channel;
        row.limit({}, left, std::size_t(n) * 8);
        row.ours([=] { return orvsSplitScaled_24s32f_D2L(src, x.channel, 2, n); });
        row.peer("loop", [=, l = left, r = right] { loops::split2_24(src, l, r, n); });
    });
}};

} // namespace
