// A filter of streams on FFTW's transforms, by the overlap-save method: what a program has that knows its signal
// processing, and no library for filters.
#ifndef ORV_BENCH_FIR_OVERLAP_SAVE_H
#define ORV_BENCH_FIR_OVERLAP_SAVE_H

#include <algorithm>
#include <bit>
#include <chrono>
#include <limits>
#include <memory>
#include <type_traits>

#include "bench/support/fftw.h"

namespace bench {

/// What a sample consists of: one number, or two.
template <class T>
struct SampleType {
    using Number = T;
    static constexpr int numbers = 1;
};
template <class T>
requires std::is_class_v<T>
struct SampleType<T> {
    using Number = decltype(T::re);
    static constexpr int numbers = 2;
};

#ifdef ORV_HAVE_FFTW

/// T is float, double or Orv32fc. src and dst of a call may be the same.
template <class T>
class OverlapSave {
public:
    OverlapSave(const T* taps, int taps_len, int fft_len, unsigned effort)
        : len_(fft_len),
          past_(taps_len - 1),
          signal_(numbers(len_)),
          spectrum_(2 * spectrum_len()),
          response_(2 * spectrum_len()),
          result_(numbers(len_))
    {
        if constexpr (is_complex) {
            forward_.reset(Names::plan_dft_1d(len_, pairs(signal_), pairs(spectrum_), Names::forward, effort));
            inverse_.reset(Names::plan_dft_1d(len_, pairs(spectrum_), pairs(result_), Names::backward, effort));
        } else {
            forward_.reset(Names::plan_dft_r2c_1d(len_, signal_.get(), pairs(spectrum_), effort));
            inverse_.reset(Names::plan_dft_c2r_1d(len_, pairs(spectrum_), result_.get(), effort));
        }
        clear(signal_, numbers(len_));
        std::copy_n(taps, taps_len, samples(signal_));
        Names::execute(forward_.get());
        const Number unscaled = Number{1} / Number(len_);
        const Number* spectrum = spectrum_.get();
        Number* response = response_.get();
        for (int i = 0; i < 2 * spectrum_len(); ++i) response[i] = spectrum[i] * unscaled;
        clear(signal_, numbers(len_));
    }

    void operator()(const T* src, T* dst, int len)
    {
        const int block = len_ - past_;
        T* signal = samples(signal_); // the past, then new samples; what older ones follow enters no output
        for (int done = 0; done < len; done += block) {
            const int n = std::min(block, len - done);
            std::copy_n(src + done, n, signal + past_);
            Names::execute(forward_.get());
            multiply();
            Names::execute(inverse_.get());
            std::copy_n(samples(result_) + past_, n, dst + done);
            std::copy_n(signal + n, past_, signal);
        }
    }

private:
    using Number = typename SampleType<T>::Number;
    static constexpr bool is_complex = SampleType<T>::numbers == 2;
    using Names = Fftw<Number>;
    struct Free {
        void operator()(Number* p) const { Names::free(p); }
    };
    struct Destroy {
        template <class P>
        void operator()(P* plan) const
        {
            Names::destroy_plan(plan);
        }
    };

    /// Memory at the boundaries that FFTW likes best.
    struct Array : std::unique_ptr<Number[], Free> {
        explicit Array(int count)
            : std::unique_ptr<Number[], Free>(static_cast<Number*>(Names::malloc(std::size_t(count) * sizeof(Number))))
        {}
    };
    using Plan =
        std::unique_ptr<std::remove_pointer_t<decltype(Names::plan_dft_r2c_1d(0, nullptr, nullptr, 0))>, Destroy>;

    static int numbers(int count) { return SampleType<T>::numbers * count; }
    int spectrum_len() const { return is_complex ? len_ : len_ / 2 + 1; }
    static void clear(Array& array, int count) { std::fill_n(array.get(), count, Number{0}); }
    static auto* pairs(Array& array) { return Names::complex(array.get()); }
    static T* samples(Array& array) { return reinterpret_cast<T*>(array.get()); }

    void multiply()
    {
        Number* __restrict x = spectrum_.get();
        const Number* __restrict h = response_.get();
        for (int i = 0; i < 2 * spectrum_len(); i += 2) {
            const Number re = x[i] * h[i] - x[i + 1] * h[i + 1];
            const Number im = x[i] * h[i + 1] + x[i + 1] * h[i];
            x[i] = re;
            x[i + 1] = im;
        }
    }

    int len_, past_;
    Array signal_, spectrum_, response_, result_;
    Plan forward_, inverse_;
};

/// The filter whose transforms have the best length for blocks of len samples: a power of two, by the usual count of
/// operations, and, but for a smoke run, by the clock among those that come near the least count.
template <class T>
std::shared_ptr<OverlapSave<T>> best_overlap_save(const T* taps, int taps_len, const T* src, T* dst, int len,
                                                  unsigned effort, int& fft_len)
{
    constexpr int longest = 1 << 17; // more takes long to plan, and gains nothing even with 8192 taps
    const auto operations = [=](int n) {
        const int block = n - (taps_len - 1);
        return double((len + block - 1) / block) * n * std::countr_zero(unsigned(n));
    };
    const int shortest = 2 * int(std::bit_ceil(unsigned(taps_len)));
    double least = std::numeric_limits<double>::infinity();
    for (int n = shortest; n <= longest; n *= 2) {
        if (operations(n) < least) {
            least = operations(n);
            fft_len = n;
        }
    }
    if (options.smoke()) return std::make_shared<OverlapSave<T>>(taps, taps_len, fft_len, effort);

    std::shared_ptr<OverlapSave<T>> best;
    double best_time = std::numeric_limits<double>::infinity();
    for (int n = shortest; n <= longest; n *= 2) {
        if (operations(n) > 1.5 * least) continue;
        const auto filter = std::make_shared<OverlapSave<T>>(taps, taps_len, n, effort);
        for (int repeat = 0; repeat < 10; ++repeat) {
            const auto start = std::chrono::steady_clock::now();
            (*filter)(src, dst, len);
            const double time = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
            if (time < best_time) {
                best_time = time;
                best = filter;
                fft_len = n;
            }
        }
    }
    return best;
}

/// The filter as a peer of a row, with a patient plan too where that does not take minutes.
template <class T>
void overlap_save(Row& row, const T* taps, int taps_len, const T* src, T* dst, int len)
{
    fftwf_forget_wisdom(); // or plans would depend on the rows before
    fftw_forget_wisdom();
    int fft_len = 0;
    const auto measured =
        best_overlap_save(taps, taps_len, src, dst, len, options.smoke() ? FFTW_ESTIMATE : FFTW_MEASURE, fft_len);
    row.peer("fftw", [=] { (*measured)(src, dst, len); });
    if (options.min_time >= Options{}.min_time && fft_len <= 1 << 12) {
        const auto patient = std::make_shared<OverlapSave<T>>(taps, taps_len, fft_len, FFTW_PATIENT);
        row.peer("fftw-p", [=] { (*patient)(src, dst, len); });
    }
}

#else

template <class T>
void overlap_save(Row&, const T*, int, const T*, T*, int)
{}

#endif

} // namespace bench

#endif
