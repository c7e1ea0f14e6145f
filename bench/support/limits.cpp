#include "bench/support/limits.h"

#include <benchmark/benchmark.h>
#include <immintrin.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>

namespace bench {
namespace {

__m256i load(const char* p) { return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(p)); }

struct Plain {
    static void store(char* p, __m256i x) { _mm256_storeu_si256(reinterpret_cast<__m256i*>(p), x); }
};

struct NonTemporal {
    static void store(char* p, __m256i x) { _mm256_stream_si256(reinterpret_cast<__m256i*>(p), x); }
};

/// Aligned stores, but for the first vector and the last, which may overlap with their neighbours: the values do not
/// matter. Each vector is stored before the next is loaded: loads in a bunch, then stores, take longer.
template <class Store, std::size_t vectors, int sources>
void write(const Streams& streams)
{
    const char *a = streams.source[0], *b = streams.source[1], *c = streams.source[2];
    char* d = streams.dst;
    const std::size_t bytes = streams.bytes; // of its own, for a store through d might change any object in memory
    __m256i constant = _mm256_set1_epi8(1);  // not zero: some processors stream zeros at twice the pace of other values
    asm("" : "+x"(constant));                // of unknown value, or the compiler would call memset

    const auto value = [=](std::size_t i) {
        __m256i x = constant;
        if constexpr (sources > 0) x = load(a + i);
        if constexpr (sources > 1) x = _mm256_add_epi32(x, load(b + i));
        if constexpr (sources > 2) x = _mm256_add_epi32(x, load(c + i));
        return x;
    };
    std::size_t i = -reinterpret_cast<std::uintptr_t>(d) % 32;
    if (i > 0) Plain::store(d, value(0));
    for (; i + 32 * vectors <= bytes; i += 32 * vectors) {
        for (std::size_t k = 0; k < vectors; ++k) Store::store(d + i + 32 * k, value(i + 32 * k));
    }
    for (; i + 32 <= bytes; i += 32) Store::store(d + i, value(i));
    if (i < bytes) Plain::store(d + bytes - 32, value(bytes - 32));
}

template <class Store, std::size_t vectors>
void write(const Streams& streams)
{
    switch (streams.sources) {
    case 0: return write<Store, vectors, 0>(streams);
    case 1: return write<Store, vectors, 1>(streams);
    case 2: return write<Store, vectors, 2>(streams);
    case 3: return write<Store, vectors, 3>(streams);
    }
}

template <int sources>
void read(const Streams& streams)
{
    const char *a = streams.source[0], *b = streams.source[1], *c = streams.source[2];
    __m256i sum[4] = {};
    const auto add = [&](__m256i& x, std::size_t i) {
        x = _mm256_add_epi32(x, load(a + i));
        if constexpr (sources > 1) x = _mm256_add_epi32(x, load(b + i));
        if constexpr (sources > 2) x = _mm256_add_epi32(x, load(c + i));
    };
    std::size_t i = 0;
    for (; i + 128 <= streams.bytes; i += 128) {
        for (std::size_t k = 0; k < 4; ++k) add(sum[k], i + 32 * k);
    }
    for (; i + 32 <= streams.bytes; i += 32) add(sum[0], i);
    if (i < streams.bytes) add(sum[0], streams.bytes - 32);
    for (__m256i& x : sum) asm volatile("" : : "x"(x));
}

template <class Store, std::size_t loads, std::size_t stores>
void resize(const Resizing& arrays)
{
    const char* s = arrays.src;
    char* d = arrays.dst;
    for (std::size_t steps = arrays.dst_bytes / (32 * stores); steps > 0; --steps) {
        __m256i x[loads];
        for (std::size_t k = 0; k < loads; ++k) x[k] = load(s + 32 * k);
        for (std::size_t k = stores; k < loads; ++k) x[k % stores] = _mm256_add_epi32(x[k % stores], x[k]);
        for (std::size_t k = 0; k < stores; ++k) Store::store(d + 32 * k, x[k % loads]);
        s += 32 * loads;
        d += 32 * stores;
    }
}

template <class Store>
void resize(const Resizing& arrays)
{
    const std::size_t s = arrays.src_bytes, d = arrays.dst_bytes;
    if (2 * s == d) resize<Store, 1, 2>(arrays);
    else if (4 * s == d) resize<Store, 1, 4>(arrays);
    else if (4 * s == 3 * d) resize<Store, 3, 4>(arrays);
    else if (s == 2 * d) resize<Store, 2, 1>(arrays);
    else if (s == 4 * d) resize<Store, 4, 1>(arrays);
    else if (3 * s == 4 * d) resize<Store, 4, 3>(arrays);
    else std::abort();
}

} // namespace

void move_resized(const Resizing& arrays) { resize<Plain>(arrays); }
void move_resized_past_caches(const Resizing& arrays)
{
    resize<NonTemporal>(arrays);
    _mm_sfence();
}

void move_streams(const Streams& streams)
{
    if (streams.dst) return write<Plain, 4>(streams);
    switch (streams.sources) {
    case 1: return read<1>(streams);
    case 2: return read<2>(streams);
    case 3: return read<3>(streams);
    }
}

void move_streams_in_short_steps(const Streams& streams) { write<Plain, 1>(streams); }

void move_streams_past_caches(const Streams& streams)
{
    write<NonTemporal, 4>(streams);
    _mm_sfence();
}

std::size_t largest_cache()
{
    std::size_t largest = 0;
    for (const benchmark::CPUInfo::CacheInfo& cache : benchmark::CPUInfo::Get().caches) {
        largest = std::max(largest, static_cast<std::size_t>(cache.size));
    }
    return largest;
}

// x = x * x - 1/4 stays between -1/4 and 1/4 from a start there, and never comes near a denormal number. The constant
// stays in memory, because the chains alone fill the eight registers of a 32-bit program.

void multiply_add_32f(double operations)
{
    const __m256 constant = _mm256_set1_ps(-0.25f);
    __m256 x[8];
    for (int k = 0; k < 8; ++k) x[k] = _mm256_set1_ps(0.01f * static_cast<float>(k));
    for (auto steps = static_cast<long>(operations / (8 * 8 * 2)); steps > 0; --steps) {
        for (__m256& chain : x) asm("vfmadd213ps %1, %0, %0" : "+x"(chain) : "m"(constant));
    }
    for (__m256& chain : x) asm volatile("" : : "x"(chain));
}

void multiply_add_64f(double operations)
{
    const __m256d constant = _mm256_set1_pd(-0.25);
    __m256d x[8];
    for (int k = 0; k < 8; ++k) x[k] = _mm256_set1_pd(0.01 * k);
    for (auto steps = static_cast<long>(operations / (8 * 4 * 2)); steps > 0; --steps) {
        for (__m256d& chain : x) asm("vfmadd213pd %1, %0, %0" : "+x"(chain) : "m"(constant));
    }
    for (__m256d& chain : x) asm volatile("" : : "x"(chain));
}

// No chains here: the sums of the pairs are not part of the instruction. Volatile, or the compiler would see that all
// products are the same.
void multiply_add_16s(double operations)
{
    const __m256i constant = _mm256_set1_epi16(77), factor = _mm256_set1_epi16(-3);
    for (auto steps = static_cast<long>(operations / (8 * 16 * 2)); steps > 0; --steps) {
        for (int k = 0; k < 8; ++k) {
            __m256i product;
            asm volatile("vpmaddwd %2, %1, %0" : "=x"(product) : "x"(factor), "m"(constant));
        }
    }
}

void widen_32f(double values)
{
    alignas(64) static const float source[32] = {};
    for (auto steps = static_cast<long>(values / 32); steps > 0; --steps) {
        for (int k = 0; k < 32; k += 4) {
            __m256d wide;
            asm volatile("vcvtps2pd %1, %0" : "=x"(wide) : "m"(*reinterpret_cast<const __m128*>(source + k)));
        }
    }
}

} // namespace bench
