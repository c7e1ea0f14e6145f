// A-law and mu-law. What the tables of a peer hold does not matter for its speed, so they hold noise.
#include "bench/convert/companding_loops.h"
#include "bench/support/shapes.h"
#include "orvs/convert.h"

namespace {

using bench::call, bench::Peer, bench::Row;

/// dst[i] = f(src[i]), with a table of entries for every source value. The sizes are sources and results in bytes.
template <class S, class D, class Ours, class... Peers>
void companding(const char* name, int entries, Ours ours, Peers... peers)
{
    bench::rows("companding", name, bench::cache_sizes, [=](Row& row, int n) {
        const S* src = row.array<S>(n);
        D* dst = row.array<D>(n);
        // Streams of equal length: what is written, and as much of the source as is left over, or nothing of it.
        const std::size_t bytes = std::size_t(n) * sizeof(D);
        if (sizeof(S) == sizeof(D)) row.limit({src}, dst, bytes);
        else if (sizeof(S) == 2 * sizeof(D)) row.limit({src, src + n / 2}, dst, bytes);
        else row.limit({}, dst, bytes);
        row.ours([=] { return ours(src, dst, n); });
        if (entries > 0) {
            if constexpr (!std::is_floating_point_v<S>) {
                const D* table = row.array<D>(entries);
                row.peer("table", [=] { loops::look_up(table, src, dst, n); });
            }
        }
        (add_peer(row, peers, src, dst, n), ...);
    });
}

const bench::Rows laws{[] {
    constexpr Peer alaw_encode{"loop", [](auto... x) { loops::alaw_encode(x...); }};
    constexpr Peer alaw_decode{"loop", [](auto... x) { loops::alaw_decode(x...); }};
    constexpr Peer mulaw_encode{"loop", [](auto... x) { loops::mulaw_encode(x...); }};
    constexpr Peer mulaw_decode{"loop", [](auto... x) { loops::mulaw_decode(x...); }};
    companding<Orv16s, Orv8u>("alaw_encode16s", 65536, call<orvsLinToALaw_16s8u>, alaw_encode);
    companding<Orv8u, Orv16s>("alaw_decode16s", 256, call<orvsALawToLin_8u16s>, alaw_decode);
    companding<Orv16s, Orv8u>("mulaw_encode16s", 65536, call<orvsLinToMuLaw_16s8u>, mulaw_encode);
    companding<Orv32f, Orv8u>("mulaw_encode32f", 0, call<orvsLinToMuLaw_32f8u>, mulaw_encode);
    companding<Orv8u, Orv16s>("mulaw_decode16s", 256, call<orvsMuLawToLin_8u16s>, mulaw_decode);
    companding<Orv8u, Orv32f>("mulaw_decode32f", 256, call<orvsMuLawToLin_8u32f>);
    companding<Orv8u, Orv8u>("alaw_to_mulaw", 256, call<orvsALawToMuLaw_8u>);
}};

} // namespace
