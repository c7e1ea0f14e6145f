// Fast Fourier transforms beside FFTW's, none of them scaled. A kind is named by the transform (i: the inverse, r: of
// real signals, whose spectrum is in CCS), the element type (32f: real and imaginary parts in two arrays) and _i for in
// place.
#include <algorithm>
#include <bit>
#include <initializer_list>
#include <memory>

#include "bench/support/fftw.h"
#include "bench/support/shapes.h"
#include "orvs/transform.h"

namespace {

using bench::Kind, bench::Row;

Kind fft(const char* name, std::initializer_list<int> orders)
{
    Kind kind{"fft", name, {}};
    for (const int order : orders) kind.sizes.push_back(1 << order);
    return kind;
}

int order_of(int n) { return std::countr_zero(unsigned(n)); }

// ---- What a transform runs on

template <class Spec>
struct SpecType {
    OrvStatus (*init_alloc)(Spec**, int order, int flag, OrvHintAlgorithm);
    OrvStatus (*get_buf_size)(const Spec*, Orv32s*);
    OrvStatus (*free)(Spec*);
};
template <class Spec>
SpecType(OrvStatus (*)(Spec**, int, int, OrvHintAlgorithm), OrvStatus (*)(const Spec*, Orv32s*), OrvStatus (*)(Spec*))
    -> SpecType<Spec>;

constexpr SpecType c_32fc{orvsFFTInitAlloc_C_32fc, orvsFFTGetBufSize_C_32fc, orvsFFTFree_C_32fc};
constexpr SpecType c_32f{orvsFFTInitAlloc_C_32f, orvsFFTGetBufSize_C_32f, orvsFFTFree_C_32f};
constexpr SpecType r_32f{orvsFFTInitAlloc_R_32f, orvsFFTGetBufSize_R_32f, orvsFFTFree_R_32f};
constexpr SpecType c_64fc{orvsFFTInitAlloc_C_64fc, orvsFFTGetBufSize_C_64fc, orvsFFTFree_C_64fc};
constexpr SpecType c_64f{orvsFFTInitAlloc_C_64f, orvsFFTGetBufSize_C_64f, orvsFFTFree_C_64f};
constexpr SpecType r_64f{orvsFFTInitAlloc_R_64f, orvsFFTGetBufSize_R_64f, orvsFFTFree_R_64f};

/// A spec for n elements and a work buffer. Copies share the spec, so it lives as long as an entry of the row.
template <class Spec>
struct Setting {
    std::shared_ptr<const Spec> owner;
    Orv8u* buffer = nullptr;

    Setting(Row& row, const SpecType<Spec>& type, int n)
    {
        Spec* made = nullptr;
        if (type.init_alloc(&made, order_of(n), ORV_FFT_SCALE_NONE, ORV_HINT_ANY) < 0) return; // ours is refused, then
        owner = std::shared_ptr<Spec>(made, type.free);
        int size = 0;
        if (type.get_buf_size(made, &size) == orvOk && size > 0) buffer = row.array<Orv8u>(size);
    }
    const Spec* spec() const { return owner.get(); }
};

/// The transform of an array of count numbers, n elements, has to read and write it, and the usual measure of its
/// arithmetic is 5 n log2(n) operations for complex elements and half of that for real ones.
template <class T>
void limits(Row& row, const T* src, T* dst, int count, int n)
{
    row.limit({src}, dst, std::size_t(count) * sizeof(T));
    row.limit_operations<T>(2.5 * count * order_of(n));
}

// ---- Complex transforms

enum class Direction { forward, inverse };

template <class T>
void fftw_complex(Row& row, Direction direction, T* src, T* dst, int n)
{
    bench::fftw(row, src, 2 * n, [=](auto f, unsigned effort) {
        const int sign = direction == Direction::forward ? f.forward : f.backward;
        return f.plan_dft_1d(n, f.complex(src), f.complex(dst), sign, effort);
    });
}

template <class C, class Spec>
void complex_fft(const Kind& kind, Direction direction, const SpecType<Spec>& type,
                 OrvStatus (*transform)(const C*, C*, const Spec*, Orv8u*))
{
    bench::rows(kind.family, kind.name, kind.sizes, [=](Row& row, int n) {
        using T = decltype(C::re);
        T* src = row.array<T>(2 * n);
        T* dst = row.array<T>(2 * n);
        limits(row, src, dst, 2 * n, n);
        const Setting on(row, type, n);
        row.ours([=] {
            return transform(reinterpret_cast<const C*>(src), reinterpret_cast<C*>(dst), on.spec(), on.buffer);
        });
        fftw_complex(row, direction, src, dst, n);
    });
}

/// Zeros, for a transform whose result is its next input: it multiplies the mean square by n, and other values would
/// leave the range of the type after a few calls. No step takes longer for some values than for others.
template <class T>
T* zeros(Row& row, int count)
{
    T* array = row.array<T>(count);
    std::fill_n(array, count, T{0});
    return array;
}

template <class C, class Spec>
void complex_fft_in_place(const Kind& kind, const SpecType<Spec>& type, OrvStatus (*transform)(C*, const Spec*, Orv8u*))
{
    bench::rows(kind.family, kind.name, kind.sizes, [=](Row& row, int n) {
        using T = decltype(C::re);
        T* array = zeros<T>(row, 2 * n);
        limits(row, array, array, 2 * n, n);
        const Setting on(row, type, n);
        row.ours([=] { return transform(reinterpret_cast<C*>(array), on.spec(), on.buffer); });
        fftw_complex(row, Direction::forward, array, array, n);
    });
}

/// The imaginary parts follow the real ones.
template <class T, class Spec>
void split_fft(const Kind& kind, const SpecType<Spec>& type,
               OrvStatus (*transform)(const T*, const T*, T*, T*, const Spec*, Orv8u*))
{
    bench::rows(kind.family, kind.name, kind.sizes, [=](Row& row, int n) {
        T* src = row.array<T>(2 * n);
        T* dst = row.array<T>(2 * n);
        limits(row, src, dst, 2 * n, n);
        const Setting on(row, type, n);
        row.ours([=] { return transform(src, src + n, dst, dst + n, on.spec(), on.buffer); });
        bench::fftw(row, src, 2 * n, [=](auto f, unsigned effort) {
            const typename decltype(f)::iodim length{n, 1, 1};
            return f.plan_guru_split_dft(1, &length, 0, nullptr, src, src + n, dst, dst + n, effort);
        });
    });
}

const bench::Rows complex_rows{[] {
    complex_fft(fft("fft32fc", {3, 4, 5, 6, 8, 10, 12, 14, 16, 18, 20, 22}), Direction::forward, c_32fc,
                orvsFFTFwd_CToC_32fc);
    complex_fft(fft("ifft32fc", {6, 10, 16}), Direction::inverse, c_32fc, orvsFFTInv_CToC_32fc);
    complex_fft_in_place(fft("fft32fc_i", {6, 10, 16}), c_32fc, orvsFFTFwd_CToC_32fc_I);
    split_fft(fft("fft32f", {6, 10, 16}), c_32f, orvsFFTFwd_CToC_32f);

    complex_fft(fft("fft64fc", {3, 4, 5, 6, 8, 10, 12, 14, 16, 18, 20}), Direction::forward, c_64fc,
                orvsFFTFwd_CToC_64fc);
    complex_fft(fft("ifft64fc", {6, 10, 16}), Direction::inverse, c_64fc, orvsFFTInv_CToC_64fc);
    complex_fft_in_place(fft("fft64fc_i", {6, 10, 16}), c_64fc, orvsFFTFwd_CToC_64fc_I);
    split_fft(fft("fft64f", {6, 10, 16}), c_64f, orvsFFTFwd_CToC_64f);
}};

// ---- Real transforms

template <class T, class Spec>
void real_fft(const Kind& kind, const SpecType<Spec>& type, OrvStatus (*transform)(const T*, T*, const Spec*, Orv8u*))
{
    bench::rows(kind.family, kind.name, kind.sizes, [=](Row& row, int n) {
        T* signal = row.array<T>(n);
        T* spectrum = row.array<T>(n + 2);
        limits(row, signal, spectrum, n, n);
        const Setting on(row, type, n);
        row.ours([=] { return transform(signal, spectrum, on.spec(), on.buffer); });
        bench::fftw(row, signal, n,
                    [=](auto f, unsigned effort) { return f.plan_dft_r2c_1d(n, signal, f.complex(spectrum), effort); });
    });
}

/// The fastest inverse of FFTW uses the spectrum to work in, while ours leaves it as it is.
template <class T, class Spec>
void real_inverse(const Kind& kind, const SpecType<Spec>& type,
                  OrvStatus (*transform)(const T*, T*, const Spec*, Orv8u*))
{
    bench::rows(kind.family, kind.name, kind.sizes, [=](Row& row, int n) {
        T* spectrum = zeros<T>(row, n + 2);
        T* signal = row.array<T>(n);
        limits(row, spectrum, signal, n, n);
        const Setting on(row, type, n);
        row.ours([=] { return transform(spectrum, signal, on.spec(), on.buffer); });
        bench::fftw(row, spectrum, n + 2,
                    [=](auto f, unsigned effort) { return f.plan_dft_c2r_1d(n, f.complex(spectrum), signal, effort); });
    });
}

const bench::Rows real_rows{[] {
    real_fft(fft("rfft32f", {4, 5, 6, 8, 10, 12, 14, 16, 18, 20, 22}), r_32f, orvsFFTFwd_RToCCS_32f);
    real_inverse(fft("irfft32f", {10}), r_32f, orvsFFTInv_CCSToR_32f);
    real_fft(fft("rfft64f", {4, 5, 6, 8, 10, 12, 14, 16, 18, 20, 22}), r_64f, orvsFFTFwd_RToCCS_64f);
    real_inverse(fft("irfft64f", {10}), r_64f, orvsFFTInv_CCSToR_64f);
}};

} // namespace
