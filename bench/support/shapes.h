// Rows of the common shapes: every function of a shape gets the same arrays, limit and order of arguments.
#ifndef ORV_BENCH_SUPPORT_SHAPES_H
#define ORV_BENCH_SUPPORT_SHAPES_H

#include <cstddef>
#include <string>
#include <vector>

#include "bench/support/peers.h"
#include "bench/support/row.h"

namespace bench {

/// Elements that lie in the first-level cache, in the second-level cache, and in memory.
inline const std::vector<int> cache_sizes = {1 << 10, 1 << 15, 1 << 22};

/// A family, a kind and sizes: what the name of a row is made of.
struct Kind {
    std::string family, name;
    std::vector<int> sizes = cache_sizes;
};

/// f with its last arguments fixed, for example call<orvsAdd_16s_Sfs, 3>. The call is a direct one.
template <auto f, auto... last>
inline constexpr auto call = [](auto... arguments) { return f(arguments..., last...); };

/// A kernel of the library's own, whose result is no status.
template <auto f>
inline constexpr auto call_kernel = [](auto... arguments) {
    f(arguments...);
    return orvOk;
};

template <class F, class... Arguments>
void add_peer(Row& row, const Peer<F>& peer, Arguments... arguments)
{
    row.peer(peer.name, [=] { peer.call(arguments...); });
}
template <class... Arguments>
void add_peer(Row&, std::nullptr_t, Arguments...)
{}

/// dst = f(src): f(src, dst, n).
template <class T, class Ours, class... Peers>
void one_source(const Kind& kind, Ours ours, Peers... peers)
{
    rows(kind.family, kind.name, kind.sizes, [=](Row& row, int n) {
        const T* src = row.array<T>(n);
        T* dst = row.array<T>(n);
        row.limit({src}, dst, std::size_t(n) * sizeof(T));
        row.ours([=] { return ours(src, dst, n); });
        (add_peer(row, peers, src, dst, n), ...);
    });
}

/// dst = f(src, value): f(src, value, dst, n).
template <class T, class Ours, class... Peers>
void source_and_value(const Kind& kind, Ours ours, Peers... peers)
{
    rows(kind.family, kind.name, kind.sizes, [=](Row& row, int n) {
        const T value = static_cast<T>(77.25);
        const T* src = row.array<T>(n);
        T* dst = row.array<T>(n);
        row.limit({src}, dst, std::size_t(n) * sizeof(T));
        row.ours([=] { return ours(src, value, dst, n); });
        (add_peer(row, peers, src, value, dst, n), ...);
    });
}

/// dst = f(src1, src2): f(src1, src2, dst, n).
template <class T, class Ours, class... Peers>
void two_sources(const Kind& kind, Ours ours, Peers... peers)
{
    rows(kind.family, kind.name, kind.sizes, [=](Row& row, int n) {
        const T* src1 = row.array<T>(n);
        const T* src2 = row.array<T>(n);
        T* dst = row.array<T>(n);
        row.limit({src1, src2}, dst, std::size_t(n) * sizeof(T));
        row.ours([=] { return ours(src1, src2, dst, n); });
        (add_peer(row, peers, src1, src2, dst, n), ...);
    });
}

/// srcDst = f(src1, src2, srcDst): f(src1, src2, srcDst, n).
template <class T, class Ours, class... Peers>
void two_sources_in_place(const Kind& kind, Ours ours, Peers... peers)
{
    rows(kind.family, kind.name, kind.sizes, [=](Row& row, int n) {
        const T* src1 = row.array<T>(n);
        const T* src2 = row.array<T>(n);
        T* src_dst = row.array<T>(n);
        row.limit({src1, src2, src_dst}, src_dst, std::size_t(n) * sizeof(T));
        row.ours([=] { return ours(src1, src2, src_dst, n); });
        (add_peer(row, peers, src1, src2, src_dst, n), ...);
    });
}

} // namespace bench

#endif
