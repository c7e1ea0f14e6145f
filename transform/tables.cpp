// Tables of factors and of bit-reversed numbers.
#include "transform/tables.h"

#include "transform/engine.h"
#include "vmath/vmath.h"

namespace ORV_VARIANT {

namespace {

std::ptrdiff_t length(int order) { return std::ptrdiff_t(1) << order; }

Orv32u reversed(Orv32u i, int bits)
{
    Orv32u result = 0;
    for (int bit = 0; bit < bits; ++bit) result |= (i >> bit & 1) << (bits - 1 - bit);
    return result;
}

void sine(const Orv32f* x, Orv32f* y, int n) { orvsSin_32f_A24(x, y, n); }
void sine(const Orv64f* x, Orv64f* y, int n) { orvsSin_64f_A53(x, y, n); }
void cosine(const Orv32f* x, Orv32f* y, int n) { orvsCos_32f_A24(x, y, n); }
void cosine(const Orv64f* x, Orv64f* y, int n) { orvsCos_64f_A53(x, y, n); }

/// Writes the factors of butterflies as FactorsInTable reads them: count of each, for vectors of them.
template <class T>
class FactorWriter {
public:
    FactorWriter(T* table, std::ptrdiff_t count) : table_(table), count_(count) {}

    /// W^m of butterfly k.
    void put(std::ptrdiff_t k, int m, Factor<T> w) const
    {
        constexpr std::ptrdiff_t N = vec<T>::N;
        T* vectors = table_ + 2 * N * (k / N * count_ + m - 1);
        const int lane = element_of_lane<T>(int(k % N));
        vectors[lane] = w.re;
        vectors[N + lane] = w.im;
    }

private:
    T* table_;
    std::ptrdiff_t count_;
};

} // namespace

template <class T>
void build_sines(int order, T* table)
{
    const std::ptrdiff_t quarter = length(order - 2), eighth = quarter / 2;
    const double step = 6.28318530717958647692528676655900577 / double(length(order));
    for (std::ptrdiff_t k = 0; k <= eighth; ++k) table[k] = T(step * double(k));
    for (std::ptrdiff_t k = eighth + 1; k <= quarter; ++k) table[k] = T(step * double(quarter - k));
    sine(table, table, int(eighth + 1));
    cosine(table + eighth + 1, table + eighth + 1, int(quarter - eighth));
}

template <class T>
T* build_bit_reversal(int order, Orv32s* table)
{
    const Orv32u count = Orv32u(length(order - 2));
    for (Orv32u i = 0; i < count; ++i) table[i] = Orv32s(2 * reversed(i, order - 2));
    table[count] = 0;
    return reinterpret_cast<T*>(aligned(table + count + 1));
}

template <class T>
T* build_tile_reversal(int order, int shift, Orv32s* table)
{
    const int bits = order - 2 * shift;
    const Orv32u count = Orv32u(length(bits));
    for (Orv32u i = 0; i < count; ++i) table[i] = Orv32s(reversed(i, bits) << shift);
    return reinterpret_cast<T*>(aligned(table + count));
}

template <class T>
T* build_twiddles(int order, const Factors<T>& factors, T* table)
{
    int done = first_pass_levels;
    while (done < order) {
        const int levels = pass_levels<T>(order, done), count = (1 << levels) - 1;
        done += levels;
        const FactorWriter<T> writer(table, count);
        const std::ptrdiff_t span = length(done), part = span >> levels;
        for (std::ptrdiff_t k = 0; k < part; ++k) {
            for (int m = 1; m <= count; ++m) writer.put(k, m, factors.at(k * m, span));
        }
        table += pass_factors(levels, done);
    }
    return aligned(table);
}

template <class T>
T* build_step_twiddles(int order, const Factors<T>& factors, T* table)
{
    const int block_order = tbl_blk_order<T>(order);
    const std::ptrdiff_t block = length(order - block_order), width = tile_side<T>;
    for (std::ptrdiff_t column = 0; column < block; column += width) {
        for (int levels = 0; levels < block_order; levels += 2) {
            const bool is_last = levels + 2 == block_order; // it computes its second and third factors
            const std::ptrdiff_t count = is_last ? 1 : 3;
            const std::ptrdiff_t rows = length(levels), span = 4 * rows * block;
            for (std::ptrdiff_t row = 0; row < rows; ++row) {
                const FactorWriter<T> writer(table, count);
                for (std::ptrdiff_t k = 0; k < width; ++k) {
                    for (int m = 1; m <= count; ++m) {
                        writer.put(k, m, factors.at((row * block + column + k) * m, span));
                    }
                }
                table += 2 * count * width;
            }
        }
    }
    return aligned(table);
}

template <class T>
T* build_recombination(int order, const Factors<T>& factors, bool inverse, T* table)
{
    const std::ptrdiff_t n = length(order), quarter = n / 4;
    const T sign = inverse ? T(-1) : T(1);
    const auto exchanged = [](std::ptrdiff_t k) { return (k - 1) ^ 1; };
    if (order < two_level_order) {
        for (std::ptrdiff_t k = 1; k <= quarter; ++k) {
            const Factor<T> w = factors.at(k, n);
            table[2 * exchanged(k)] = sign * T(0.5) * w.re;
            table[2 * exchanged(k) + 1] = T(__builtin_fma(0.5, double(w.im), 0.5));
        }
        return aligned(table + 2 * quarter);
    }
    constexpr int fine = fine_factors<T>;
    for (std::ptrdiff_t k = 1; k <= fine; ++k) {
        const Factor<T> w = factors.at(k, n);
        table[2 * exchanged(k)] = sign * w.re;
        table[2 * exchanged(k) + 1] = w.im;
    }
    table += 2 * fine;
    for (std::ptrdiff_t k = 0; k < quarter; k += fine, table += 2) {
        const Factor<T> w = factors.at(k, n);
        table[0] = w.re;
        table[1] = sign * w.im;
    }
    return aligned(table);
}

template void build_sines(int, Orv32f*);
template void build_sines(int, Orv64f*);
template Orv32f* build_bit_reversal(int, Orv32s*);
template Orv64f* build_bit_reversal(int, Orv32s*);
template Orv32f* build_tile_reversal(int, int, Orv32s*);
template Orv64f* build_tile_reversal(int, int, Orv32s*);
template Orv32f* build_twiddles(int, const Factors<Orv32f>&, Orv32f*);
template Orv64f* build_twiddles(int, const Factors<Orv64f>&, Orv64f*);
template Orv32f* build_step_twiddles(int, const Factors<Orv32f>&, Orv32f*);
template Orv64f* build_step_twiddles(int, const Factors<Orv64f>&, Orv64f*);
template Orv32f* build_recombination(int, const Factors<Orv32f>&, bool, Orv32f*);
template Orv64f* build_recombination(int, const Factors<Orv64f>&, bool, Orv64f*);

} // namespace ORV_VARIANT
