// Fast Fourier transforms of real signals: of half as many complex elements, and a recombination.
#include "transform/complex_transform.h"
#include "transform/recombine.h"
#include "transform/tiny_real.h"

using namespace ORV_VARIANT;

namespace {

// ---- Up to 16 values, in registers

template <Direction d, int order, bool scales, class T>
void tiny(const T* src, T* dst, T factor)
{
    constexpr int n = 1 << order;
    T x[n], y[n];
    repeat<n>([&](auto k) ORV_INLINE_LAMBDA { x[k] = element_at(src + k); });
    if constexpr (d == Direction::forward) transform_real_forward(x, y);
    else transform_real_back(x, y);
    repeat<n>([&](auto k) ORV_INLINE_LAMBDA { put_element(dst + k, scales ? y[k] * factor : y[k]); });
}

template <class T>
using RealKernel = void (*)(const T* src, T* dst, T factor);
template <Direction d, bool scales, class T>
constexpr RealKernel<T> real_kernels[recombined_order] = {
    tiny<d, 0, scales, T>, tiny<d, 1, scales, T>, tiny<d, 2, scales, T>, tiny<d, 3, scales, T>, tiny<d, 4, scales, T>};

template <Direction d, class T>
void transform_tiny_real(const FftSpec<T>& spec, const T* src, T* dst)
{
    const auto& kernels = scales<d>(spec) ? real_kernels<d, true, T> : real_kernels<d, false, T>;
    kernels[spec.order](src, dst, spec.factor);
}

// ---- From recombined_order on

template <Direction d, class T>
void transform_half(const FftSpec<T>& spec, const T* src, T* dst, T* work)
{
    transform_complex<d>(spec, spec.order - 1, interleaved<T>(src), interleaved<T>(dst), work);
}

/// The sum and the difference of the two real values of the spectrum, which are no conjugates of others.
template <class T>
ORV_INLINE void sum_and_difference(T a, T b, T* dst)
{
    put_element(dst, a + b);
    put_element(dst + 1, a - b);
}

/// dst = the spectrum in the layout Perm.
template <class T>
void transform_forward(const FftSpec<T>& spec, const T* src, T* dst, T* work)
{
    if (spec.order < recombined_order) return transform_tiny_real<Direction::forward>(spec, src, dst);
    transform_half<Direction::forward>(spec, src, dst, work);
    sum_and_difference(element_at(dst), element_at(dst + 1), dst);
    recombine<Direction::forward>(static_cast<const T*>(dst), dst, std::ptrdiff_t(1) << (spec.order - 1),
                                  static_cast<const T*>(spec.tabRealRec));
}

/// The inverse from recombined_order on: half_rate is R[N/2], and src + 2 where the complex values begin.
template <class T>
void transform_back(const FftSpec<T>& spec, const T* src, T half_rate, T* dst, T* work)
{
    sum_and_difference(element_at(src), half_rate, dst);
    recombine<Direction::inverse>(src, dst, std::ptrdiff_t(1) << (spec.order - 1),
                                  static_cast<const T*>(spec.tabCcsRec));
    transform_half<Direction::inverse>(spec, dst, dst, work);
}

template <class T>
void transform_perm_back(const FftSpec<T>& spec, const T* src, T* dst, T* work)
{
    if (spec.order < recombined_order) return transform_tiny_real<Direction::inverse>(spec, src, dst);
    transform_back(spec, src, element_at(src + 1), dst, work);
}

// ---- Layouts. Their elements between the first and the last move by one, or stay.

void move(const Orv32f* src, Orv32f* dst, int count) { orvsMove_32f(src, dst, count); }
void move(const Orv64f* src, Orv64f* dst, int count) { orvsMove_64f(src, dst, count); }

template <class T>
void perm_to_pack(T* spectrum, int n)
{
    if (n < 4) return;
    const T half_rate = element_at(spectrum + 1);
    move(spectrum + 2, spectrum + 1, n - 2);
    put_element(spectrum + n - 1, half_rate);
}
template <class T>
void pack_to_perm(const T* src, T* dst, int n)
{
    const T half_rate = element_at(src + n - 1);
    put_element(dst, element_at(src));
    if (n > 2) move(src + 1, dst + 2, n - 2);
    if (n > 1) put_element(dst + 1, half_rate);
}

template <class T>
void perm_to_ccs(T* spectrum, int n)
{
    if (n > 1) {
        put_element(spectrum + n, element_at(spectrum + 1));
        put_element(spectrum + n + 1, 0);
    }
    put_element(spectrum + 1, 0);
}
/// Of few elements.
template <class T>
void ccs_to_perm(const T* src, T* dst, int n)
{
    put_element(dst, element_at(src));
    if (n > 1) put_element(dst + 1, element_at(src + n));
    if (dst != src)
        for (int i = 2; i < n; ++i) put_element(dst + i, element_at(src + i));
}

// ---- Bodies

/// The checks, the work memory, and f(spec, src, dst, work).
template <class Spec, class T, class F>
ORV_INLINE OrvStatus with_arrays(const T* src, T* dst, const Spec* spec, Orv8u* buffer, F f)
{
    if (const OrvStatus bad = check_transform(spec, any_null(src, dst))) return bad;
    const FftSpec<T>& record = *spec;
    return with_work(record, buffer, [=](const FftSpec<T>& on, T* work) { f(on, src, dst, work); });
}

template <class T>
int length(const FftSpec<T>& spec)
{
    return 1 << spec.order;
}

template <class Spec, class T>
OrvStatus forward_to_perm(const T* src, T* dst, const Spec* spec, Orv8u* buffer)
{
    return with_arrays(src, dst, spec, buffer, transform_forward<T>);
}
template <class Spec, class T>
OrvStatus forward_to_pack(const T* src, T* dst, const Spec* spec, Orv8u* buffer)
{
    return with_arrays(src, dst, spec, buffer, [](const FftSpec<T>& record, const T* x, T* spectrum, T* work) {
        transform_forward(record, x, spectrum, work);
        perm_to_pack(spectrum, length(record));
    });
}
template <class Spec, class T>
OrvStatus forward_to_ccs(const T* src, T* dst, const Spec* spec, Orv8u* buffer)
{
    return with_arrays(src, dst, spec, buffer, [](const FftSpec<T>& record, const T* x, T* spectrum, T* work) {
        transform_forward(record, x, spectrum, work);
        perm_to_ccs(spectrum, length(record));
    });
}

template <class Spec, class T>
OrvStatus inverse_from_perm(const T* src, T* dst, const Spec* spec, Orv8u* buffer)
{
    return with_arrays(src, dst, spec, buffer, transform_perm_back<T>);
}
template <class Spec, class T>
OrvStatus inverse_from_pack(const T* src, T* dst, const Spec* spec, Orv8u* buffer)
{
    return with_arrays(src, dst, spec, buffer, [](const FftSpec<T>& record, const T* spectrum, T* x, T* work) {
        pack_to_perm(spectrum, x, length(record));
        transform_perm_back(record, x, x, work);
    });
}
template <class Spec, class T>
OrvStatus inverse_from_ccs(const T* src, T* dst, const Spec* spec, Orv8u* buffer)
{
    return with_arrays(src, dst, spec, buffer, [](const FftSpec<T>& record, const T* spectrum, T* x, T* work) {
        if (record.order < recombined_order) {
            ccs_to_perm(spectrum, x, length(record));
            transform_perm_back(record, x, x, work);
        } else {
            transform_back(record, spectrum, element_at(spectrum + length(record)), x, work);
        }
    });
}

} // namespace

// ---- Forward

OrvStatus orvsFFTFwd_RToPerm_32f(const Orv32f* src, Orv32f* dst, const OrvsFFTSpec_R_32f* spec, Orv8u* buffer)
{
    return forward_to_perm(src, dst, spec, buffer);
}
OrvStatus orvsFFTFwd_RToPerm_32f_I(Orv32f* srcDst, const OrvsFFTSpec_R_32f* spec, Orv8u* buffer)
{
    return orvsFFTFwd_RToPerm_32f(srcDst, srcDst, spec, buffer);
}
OrvStatus orvsFFTFwd_RToPerm_64f(const Orv64f* src, Orv64f* dst, const OrvsFFTSpec_R_64f* spec, Orv8u* buffer)
{
    return forward_to_perm(src, dst, spec, buffer);
}
OrvStatus orvsFFTFwd_RToPerm_64f_I(Orv64f* srcDst, const OrvsFFTSpec_R_64f* spec, Orv8u* buffer)
{
    return orvsFFTFwd_RToPerm_64f(srcDst, srcDst, spec, buffer);
}
OrvStatus orvsFFTFwd_RToPack_32f(const Orv32f* src, Orv32f* dst, const OrvsFFTSpec_R_32f* spec, Orv8u* buffer)
{
    return forward_to_pack(src, dst, spec, buffer);
}
OrvStatus orvsFFTFwd_RToPack_32f_I(Orv32f* srcDst, const OrvsFFTSpec_R_32f* spec, Orv8u* buffer)
{
    return orvsFFTFwd_RToPack_32f(srcDst, srcDst, spec, buffer);
}
OrvStatus orvsFFTFwd_RToPack_64f(const Orv64f* src, Orv64f* dst, const OrvsFFTSpec_R_64f* spec, Orv8u* buffer)
{
    return forward_to_pack(src, dst, spec, buffer);
}
OrvStatus orvsFFTFwd_RToPack_64f_I(Orv64f* srcDst, const OrvsFFTSpec_R_64f* spec, Orv8u* buffer)
{
    return orvsFFTFwd_RToPack_64f(srcDst, srcDst, spec, buffer);
}
OrvStatus orvsFFTFwd_RToCCS_32f(const Orv32f* src, Orv32f* dst, const OrvsFFTSpec_R_32f* spec, Orv8u* buffer)
{
    return forward_to_ccs(src, dst, spec, buffer);
}
OrvStatus orvsFFTFwd_RToCCS_32f_I(Orv32f* srcDst, const OrvsFFTSpec_R_32f* spec, Orv8u* buffer)
{
    return orvsFFTFwd_RToCCS_32f(srcDst, srcDst, spec, buffer);
}
OrvStatus orvsFFTFwd_RToCCS_64f(const Orv64f* src, Orv64f* dst, const OrvsFFTSpec_R_64f* spec, Orv8u* buffer)
{
    return forward_to_ccs(src, dst, spec, buffer);
}
OrvStatus orvsFFTFwd_RToCCS_64f_I(Orv64f* srcDst, const OrvsFFTSpec_R_64f* spec, Orv8u* buffer)
{
    return orvsFFTFwd_RToCCS_64f(srcDst, srcDst, spec, buffer);
}

// ---- Inverse

OrvStatus orvsFFTInv_PermToR_32f(const Orv32f* src, Orv32f* dst, const OrvsFFTSpec_R_32f* spec, Orv8u* buffer)
{
    return inverse_from_perm(src, dst, spec, buffer);
}
OrvStatus orvsFFTInv_PermToR_32f_I(Orv32f* srcDst, const OrvsFFTSpec_R_32f* spec, Orv8u* buffer)
{
    return orvsFFTInv_PermToR_32f(srcDst, srcDst, spec, buffer);
}
OrvStatus orvsFFTInv_PermToR_64f(const Orv64f* src, Orv64f* dst, const OrvsFFTSpec_R_64f* spec, Orv8u* buffer)
{
    return inverse_from_perm(src, dst, spec, buffer);
}
OrvStatus orvsFFTInv_PermToR_64f_I(Orv64f* srcDst, const OrvsFFTSpec_R_64f* spec, Orv8u* buffer)
{
    return orvsFFTInv_PermToR_64f(srcDst, srcDst, spec, buffer);
}
OrvStatus orvsFFTInv_PackToR_32f(const Orv32f* src, Orv32f* dst, const OrvsFFTSpec_R_32f* spec, Orv8u* buffer)
{
    return inverse_from_pack(src, dst, spec, buffer);
}
OrvStatus orvsFFTInv_PackToR_32f_I(Orv32f* srcDst, const OrvsFFTSpec_R_32f* spec, Orv8u* buffer)
{
    return orvsFFTInv_PackToR_32f(srcDst, srcDst, spec, buffer);
}
OrvStatus orvsFFTInv_PackToR_64f(const Orv64f* src, Orv64f* dst, const OrvsFFTSpec_R_64f* spec, Orv8u* buffer)
{
    return inverse_from_pack(src, dst, spec, buffer);
}
OrvStatus orvsFFTInv_PackToR_64f_I(Orv64f* srcDst, const OrvsFFTSpec_R_64f* spec, Orv8u* buffer)
{
    return orvsFFTInv_PackToR_64f(srcDst, srcDst, spec, buffer);
}
OrvStatus orvsFFTInv_CCSToR_32f(const Orv32f* src, Orv32f* dst, const OrvsFFTSpec_R_32f* spec, Orv8u* buffer)
{
    return inverse_from_ccs(src, dst, spec, buffer);
}
OrvStatus orvsFFTInv_CCSToR_32f_I(Orv32f* srcDst, const OrvsFFTSpec_R_32f* spec, Orv8u* buffer)
{
    return orvsFFTInv_CCSToR_32f(srcDst, srcDst, spec, buffer);
}
OrvStatus orvsFFTInv_CCSToR_64f(const Orv64f* src, Orv64f* dst, const OrvsFFTSpec_R_64f* spec, Orv8u* buffer)
{
    return inverse_from_ccs(src, dst, spec, buffer);
}
OrvStatus orvsFFTInv_CCSToR_64f_I(Orv64f* srcDst, const OrvsFFTSpec_R_64f* spec, Orv8u* buffer)
{
    return orvsFFTInv_CCSToR_64f(srcDst, srcDst, spec, buffer);
}
