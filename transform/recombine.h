// Between the spectrum X of n real values and that of the n / 2 complex values z[j] = x[2 j] + i x[2 j + 1] that they
// are taken for, whose spectrum is Z:
//
//     forward  X[k] = conj(Z[j]) + t,  X[j] = conj(Z[k] - t),  t = (Z[k] - conj(Z[j])) * (B - i A)
//     inverse  Z[k] = 2 (conj(X[j]) + t),  Z[j] = 2 conj(X[k] - t),  t = (X[k] - conj(X[j])) * (B + i A)
//
// for k = 1 ... n / 4 and j = n / 2 - k, with A = cos(2 pi k / n) / 2 and B = 1 / 2 - sin(2 pi k / n) / 2. (H. V.
// Sorensen and others, "Real-valued fast Fourier transform algorithms", 1987.) Elements are pairs; those at 0 are the
// caller's.
#ifndef ORV_TRANSFORM_RECOMBINE_H
#define ORV_TRANSFORM_RECOMBINE_H

#include "transform/layouts.h"
#include "transform/tables.h"

namespace ORV_VARIANT {

// ---- Vectors in the order of the tables: numbers k + 1, k, k + 3, k + 2

/// From and to ascending order, which the front of the array has.
ORV_INLINE vec<Orv32f> in_table_order(vec<Orv32f> v) { return as<Orv32f>(swap_pairs(as<Orv64f>(v))); }
ORV_INLINE vec<Orv64f> in_table_order(vec<Orv64f> v) { return swap_halves(v); }
/// From and to descending order, which the back has, as numbers k count down there.
ORV_INLINE vec<Orv32f> mirrored(vec<Orv32f> v) { return swap_halves(v); }
ORV_INLINE vec<Orv64f> mirrored(vec<Orv64f> v) { return v; }

template <class T>
ORV_INLINE vec<T> conjugate(vec<T> v)
{
    return v ^ splat_pair(T(0), T(-0.0));
}

// ---- Factors of t: t = difference * (B - i A)

/// Pairs A, B from the table.
template <class T>
class PlainFactors {
public:
    explicit PlainFactors(const T* table) : table_(table) {}

    ORV_INLINE vec<T> multiply(std::ptrdiff_t k, vec<T> difference) const
    {
        const auto ab = load(table_ + 2 * (k - 1));
        // (re, im) * (B - i A) = (re B + im A, im B - re A)
        return fma_add_subtract(difference, odd_twice(ab), swap_pairs(difference) * even_twice(ab));
    }

private:
    const T* table_;
};

/// Products w = cos - i sin of a fine and a coarse factor: B - i A = (1 - i w) / 2.
template <class T>
class TwoLevelFactors {
public:
    /// From number first on, where a run of fine_factors begins.
    TwoLevelFactors(const T* table, std::ptrdiff_t first) : fine_(table), first_(first)
    {
        const T* coarse = table + 2 * (fine_factors<T> + first / fine_factors<T>);
        re_ = splat(coarse[0]);
        im_ = splat(coarse[1]);
    }

    ORV_INLINE vec<T> multiply(std::ptrdiff_t k, vec<T> difference) const
    {
        const auto fine = load(fine_ + 2 * (k - 1 - first_));
        const auto w = fma_subtract_add(fine, re_, swap_pairs(fine) * im_);
        // i w difference, and then difference - i w difference
        const auto turned = negate_even(swap_pairs(difference));
        const auto product = fma_subtract_add(turned, even_twice(w), swap_pairs(turned) * odd_twice(w));
        return (difference - product) * splat(T(0.5));
    }

private:
    const T* fine_;
    std::ptrdiff_t first_;
    vec<T> re_, im_;
};

// ---- The sweep from both ends inward

/// The numbers k from `from` to below `to`; half is n / 2.
template <Direction d, class T, class F>
ORV_INLINE void recombine_range(const T* src, T* dst, std::ptrdiff_t half, std::ptrdiff_t from, std::ptrdiff_t to,
                                const F& factors)
{
    constexpr std::ptrdiff_t N = Pairs<T>::N;
    for (std::ptrdiff_t k = from; k < to; k += N) {
        const std::ptrdiff_t front = 2 * k, back = 2 * (half - k - N + 1);
        const auto a = in_table_order(load(src + front)), b = conjugate(mirrored(load(src + back)));
        const auto t = factors.multiply(k, a - b);
        auto x = b + t, y = conjugate(a - t);
        if constexpr (d == Direction::inverse) x = x + x, y = y + y;
        store(dst + front, in_table_order(x));
        store(dst + back, mirrored(y));
    }
}

/// All numbers; half >= 16, a power of two. dst may be src.
template <Direction d, class T>
void recombine(const T* src, T* dst, std::ptrdiff_t half, const T* table)
{
    const std::ptrdiff_t quarter = half / 2;
    if (2 * half < std::ptrdiff_t(1) << two_level_order) {
        return recombine_range<d>(src, dst, half, 1, quarter + 1, PlainFactors<T>(table));
    }
    for (std::ptrdiff_t run = 0; run < quarter; run += fine_factors<T>) {
        recombine_range<d>(src, dst, half, run + 1, run + fine_factors<T> + 1, TwoLevelFactors<T>(table, run));
    }
}

} // namespace ORV_VARIANT

#endif
