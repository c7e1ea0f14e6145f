// A file of their own, so that no caller's constants reach the loops.
#include "bench/fir/fir_loops.h"

#include "bench/arith/scaled_loop.h"

namespace loops {
namespace {

constexpr int chunk = 512;

/// sum[i] += the first taps times the samples up to x[i]: one pass.
template <int taps_a_pass, class Sum, class T>
void add_taps(Sum* __restrict sum, const T* x, int n, const T* taps)
{
    for (int i = 0; i < n; ++i) {
        Sum s = sum[i];
        for (int k = 0; k < taps_a_pass; ++k) s += Sum{taps[k]} * x[i - k];
        sum[i] = s;
    }
}

template <int taps_a_pass, class Sum, class T>
void add_all_taps(Sum* sum, const T* x, int n, const T* taps, int taps_len)
{
    int k = 0;
    for (; k + taps_a_pass <= taps_len; k += taps_a_pass) add_taps<taps_a_pass>(sum, x - k, n, taps + k);
    for (; k < taps_len; ++k) add_taps<1>(sum, x - k, n, taps + k);
}

/// by_re[i] += taps[k].re * x[i - 2 * k], by_im likewise: as real filters of all the numbers.
template <int taps_a_pass, class T>
void add_complex_taps(T* __restrict by_re, T* __restrict by_im, const T* x, int n, const Orv32fc* taps)
{
    for (int i = 0; i < n; ++i) {
        T re = by_re[i], im = by_im[i];
        for (int k = 0; k < taps_a_pass; ++k) {
            re += taps[k].re * x[i - 2 * k];
            im += taps[k].im * x[i - 2 * k];
        }
        by_re[i] = re;
        by_im[i] = im;
    }
}

} // namespace

template <class T>
void fir(const T* x, T* dst, int len, const T* taps, int taps_len)
{
    for (int done = 0; done < len; done += chunk) {
        const int n = std::min(chunk, len - done);
        T sum[chunk] = {};
        add_all_taps<4>(sum, x + done, n, taps, taps_len);
        std::copy_n(sum, n, dst + done);
    }
}

template <>
void fir(const Orv32fc* x, Orv32fc* dst, int len, const Orv32fc* taps, int taps_len)
{
    for (int done = 0; done < len; done += chunk) {
        const int n = std::min(chunk, len - done);
        Orv32f by_re[2 * chunk] = {}, by_im[2 * chunk] = {};
        const auto* numbers = reinterpret_cast<const Orv32f*>(x + done);
        int k = 0;
        for (; k + 4 <= taps_len; k += 4) add_complex_taps<4>(by_re, by_im, numbers - 2 * k, 2 * n, taps + k);
        for (; k < taps_len; ++k) add_complex_taps<1>(by_re, by_im, numbers - 2 * k, 2 * n, taps + k);
        for (int i = 0; i < n; ++i) {
            dst[done + i] = {by_re[2 * i] - by_im[2 * i + 1], by_re[2 * i + 1] + by_im[2 * i]};
        }
    }
}

void fir_scaled(const Orv16s* x, Orv16s* dst, int len, const Orv16s* taps, int taps_len, int scale)
{
    // With the eight registers of a 32-bit program one tap a pass is faster.
    constexpr int taps_a_pass = sizeof(void*) == 8 ? 2 : 1;
    for (int done = 0; done < len; done += chunk) {
        const int n = std::min(chunk, len - done);
        Orv32s sum[chunk] = {};
        add_all_taps<taps_a_pass>(sum, x + done, n, taps, taps_len);
        for (int i = 0; i < n; ++i) dst[done + i] = scaled<Orv16s>(sum[i], scale);
    }
}

void fir_scaled_dot(const Orv16s* x, Orv16s* dst, int len, const Orv16s* reversed, int taps_len, int scale)
{
    constexpr int outputs = 4;
    const Orv16s* oldest = x - (taps_len - 1);
    int i = 0;
    for (; i + outputs <= len; i += outputs) {
        Orv32s a = 0, b = 0, c = 0, d = 0;
        for (int k = 0; k < taps_len; ++k) {
            const Orv32s tap = reversed[k];
            a += tap * oldest[i + k];
            b += tap * oldest[i + k + 1];
            c += tap * oldest[i + k + 2];
            d += tap * oldest[i + k + 3];
        }
        dst[i] = scaled<Orv16s>(a, scale);
        dst[i + 1] = scaled<Orv16s>(b, scale);
        dst[i + 2] = scaled<Orv16s>(c, scale);
        dst[i + 3] = scaled<Orv16s>(d, scale);
    }
    for (; i < len; ++i) {
        Orv32s sum = 0;
        for (int k = 0; k < taps_len; ++k) sum += Orv32s{reversed[k]} * oldest[i + k];
        dst[i] = scaled<Orv16s>(sum, scale);
    }
}

/// Sixteen partial sums, which the compiler may keep in lanes: it must not reorder a single one.
Orv32f Ring::push(Orv32f sample)
{
    constexpr int lanes = 16;
    Orv32f* line = line_.data();
    line[next_] = line[next_ + len_] = sample;
    if (++next_ == len_) next_ = 0;
    const Orv32f* x = line + next_;
    const Orv32f* taps = reversed_.data();

    Orv32f partial[lanes] = {}, sum = 0;
    int k = 0;
    for (; k + lanes <= len_; k += lanes) {
        for (int j = 0; j < lanes; ++j) partial[j] += taps[k + j] * x[k + j];
    }
    for (; k < len_; ++k) sum += taps[k] * x[k];
    for (int half = lanes / 2; half > 0; half /= 2) {
        for (int j = 0; j < half; ++j) partial[j] += partial[j + half];
    }
    return sum + partial[0];
}

template void fir(const Orv32f*, Orv32f*, int, const Orv32f*, int);
template void fir(const Orv64f*, Orv64f*, int, const Orv64f*, int);

} // namespace loops
