// The loop of work that changes the layout: sources and destinations differ in the size of their elements or in number.
//
// An operation works on blocks of Op::N elements. read takes the sources at the block's first element and returns the
// whole result in registers; write puts it to the destinations there. map_blocks covers [0, n) of each array with
// blocks, touches nothing outside, and needs no element to lie in a certain place of a block: the ends overlap their
// neighbours, and arrays shorter than a block go through copies on the stack.
#ifndef ORV_FRAME_BLOCKS_H
#define ORV_FRAME_BLOCKS_H

#include <cstddef>

#include "frame/alignment.h"
#include "frame/bundle.h"
#include "frame/caches.h"
#include "simd/vec.h"

namespace ORV_VARIANT {

struct PlainStore {
    template <class T>
    ORV_INLINE void operator()(T* p, vec<T> v) const
    {
        store(p, v);
    }
};
struct StreamingStore {
    template <class T>
    ORV_INLINE void operator()(T* p, vec<T> v) const
    {
        stream(p, v);
    }
};

/// Is d one of these arrays?
template <class... S>
ORV_INLINE bool is_among(const void* d, const S*... s)
{
    return (... || (d == static_cast<const void*>(s)));
}

/// write(put, i, read(i)) for blocks of N that cover [0, n), n >= N. After the first come blocks from the element
/// second on, several in each round of the loop. Whatever an early store could change is read first, so that a
/// destination may be the source.
template <std::ptrdiff_t N, int in_round, class Put, class Read, class Write>
ORV_INLINE void cover(Put put, std::ptrdiff_t second, std::ptrdiff_t n, Read read, Write write)
{
    const auto last = read(n - N);
    if (n > N) {
        const auto first = read(0);
        std::ptrdiff_t i = second < n - N ? second : n - N;
        const auto next = read(i);
        write(PlainStore{}, 0, first);
        write(PlainStore{}, i, next);
        i += N;
        if constexpr (in_round == 2) {
            for (; i < n - 2 * N; i += 2 * N) {
                write(put, i, read(i));
                write(put, i + N, read(i + N));
            }
        }
        for (; i < n - N; i += N) write(put, i, read(i));
    }
    write(PlainStore{}, n - N, last);
}

/// The same past the caches, where memory sets the pace.
template <std::ptrdiff_t N, class Read, class Write>
[[gnu::noinline]] void cover_streaming(std::ptrdiff_t second, std::ptrdiff_t n, Read read, Write write)
{
    cover<N, 1>(StreamingStore{}, second, n, read, write);
    store_fence();
}

/// Copies n bytes, at least one, between arrays apart from each other. Inlined, because a call takes longer.
ORV_INLINE void copy_few(const Orv8u* s, Orv8u* d, int n)
{
    if (n < 32) return store_n(d, load_n(s, n), n);
    for (int i = 0; i < n - 32; i += 32) store(d + i, load(s + i));
    store(d + n - 32, load(s + n - 32));
}

/// Room for a block of elements: zeros, where nothing is copied.
template <class T, int N>
class ShortBlock {
public:
    ORV_INLINE ShortBlock()
    {
        for (std::size_t i = 0; i < bytes; i += 32) store(memory_ + i, splat(Orv8u(0)));
    }
    ORV_INLINE T* elements() { return reinterpret_cast<T*>(memory_); }
    ORV_INLINE void copy_from(const T* array, int n)
    {
        copy_few(reinterpret_cast<const Orv8u*>(array), memory_, n * int(sizeof(T)));
    }
    ORV_INLINE void copy_to(T* array, int n) const
    {
        copy_few(memory_, reinterpret_cast<Orv8u*>(array), n * int(sizeof(T)));
    }

private:
    static constexpr std::size_t bytes = (std::size_t(N) * sizeof(T) + 31) / 32 * 32;
    Orv8u memory_[bytes];
};

template <class Op, class... S, class... D>
[[gnu::noinline]] void map_short_block(Op op, int n, bundle<const S*...> sources, bundle<D*...> destinations)
{
    bundle<ShortBlock<S, Op::N>...> from;
    bundle<ShortBlock<D, Op::N>...> to;
    from.each_with(sources, [=](auto& block, auto* s) ORV_INLINE_LAMBDA { block.copy_from(s, n); });
    from.apply([&](auto&... s) ORV_INLINE_LAMBDA {
        const auto result = op.read(s.elements()...);
        to.apply([&](auto&... d) ORV_INLINE_LAMBDA { op.write(PlainStore{}, result, d.elements()...); });
    });
    to.each_with(destinations, [=](auto& block, auto* d) ORV_INLINE_LAMBDA { block.copy_to(d, n); });
}

template <class Op, class... S, class... D>
ORV_INLINE void map_blocks(Op op, int n, bundle<const S*...> sources, bundle<D*...> destinations)
{
    constexpr std::ptrdiff_t N = Op::N;
    static_assert((... && (N * sizeof(D) % 32 == 0)), "blocks of whole vectors");
    if (n < N) return map_short_block(op, n, sources, destinations);

    const auto read = [=](std::ptrdiff_t i) ORV_INLINE_LAMBDA {
        return sources.apply([=](const S*... s) ORV_INLINE_LAMBDA { return op.read((s + i)...); });
    };
    const auto write = [=](auto put, std::ptrdiff_t i, const auto& result) ORV_INLINE_LAMBDA {
        destinations.apply([&](D*... d) ORV_INLINE_LAMBDA { op.write(put, result, (d + i)...); });
    };
    const std::ptrdiff_t second =
        destinations.apply([=](auto* d, auto*...) ORV_INLINE_LAMBDA { return last_aligned<N, 1>(d); });

    constexpr std::size_t bytes_of_element = (0 + ... + sizeof(S)) + (0 + ... + sizeof(D));
    // Only to one array: stores past the caches to several at once are slower than plain ones.
    if constexpr (sizeof...(D) == 1) {
        const auto bypass = [&](auto* d) ORV_INLINE_LAMBDA {
            return std::size_t(n) > bypass_minimum / bytes_of_element && is_aligned(d + second) &&
                   !sources.apply([=](const S*... s) ORV_INLINE_LAMBDA { return is_among(d, s...); }) &&
                   worth_bypassing(std::size_t(n) * bytes_of_element);
        };
        if (destinations.apply(bypass)) return cover_streaming<N>(second, n, read, write);
    }
    constexpr int in_round = N * bytes_of_element <= 128 ? 2 : 1; // of short blocks, to spend less on the loop
    cover<N, in_round>(PlainStore{}, second, n, read, write);
}

} // namespace ORV_VARIANT

#endif
