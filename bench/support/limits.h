// What the machine can do at best: bytes moved and multiply-adds done by loops that do nothing else.
#ifndef ORV_BENCH_SUPPORT_LIMITS_H
#define ORV_BENCH_SUPPORT_LIMITS_H

#include <cstddef>

namespace bench {

/// Streams of equal length, at least one vector of 32 bytes. Up to three are read, and at most one is written, which
/// may be among those that are read.
struct Streams {
    const char* source[3] = {};
    int sources = 0;
    char* dst = nullptr;
    std::size_t bytes = 0;
};

/// dst = the sum of the sources, or a constant if there is none; without dst, only reads. Four vectors a step, which is
/// as fast as it gets in the first-level cache.
void move_streams(const Streams& streams);

/// The same with one vector a step: slower there, and often a little faster in the other caches.
void move_streams_in_short_steps(const Streams& streams);

/// The same with non-temporal stores, which do not read dst into the caches first.
void move_streams_past_caches(const Streams& streams);

/// Reads one array and writes another of a different size: loads vectors of the one and stores of the other a step. A
/// pair (loads, stores) is (1, 2), (1, 4), (3, 4) or the other way round.
struct Resizing {
    const char* src;
    std::size_t src_bytes; ///< of the shorter one a multiple of 32, of the other as many steps
    char* dst;
    std::size_t dst_bytes;
};
void move_resized(const Resizing& arrays);
void move_resized_past_caches(const Resizing& arrays);

/// Bytes of the largest cache.
std::size_t largest_cache();

/// That many floating-point operations in 256-bit multiply-adds, on eight chains: enough for two pipelines of four
/// cycles each.
void multiply_add_32f(double operations);
void multiply_add_64f(double operations);

/// The same in 256-bit pairwise multiply-adds of 16-bit numbers: an instruction is 16 products, which it adds two by
/// two, and counts as 32 operations. The additions of the pairs to sums come for nothing.
void multiply_add_16s(double operations);

/// That many floats widened to doubles, four an instruction.
void widen_32f(double values);

} // namespace bench

#endif
