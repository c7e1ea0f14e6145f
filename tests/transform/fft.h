// The exports of the fast Fourier transform by their types, and specs and buffers to call them with.
#pragma once

#include "orvs/transform.h"

#include "tests/support/api.h"
#include "tests/support/guarded.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace orvtest {

enum class Direction { forward, inverse };
enum class Layout { perm, pack, ccs };

inline constexpr Direction directions[] = {Direction::forward, Direction::inverse};
inline constexpr Layout layouts[] = {Layout::perm, Layout::pack, Layout::ccs};
inline constexpr int scale_flags[] = {ORV_FFT_SCALE_FWD, ORV_FFT_SCALE_INV, ORV_FFT_SCALE_SQRT, ORV_FFT_SCALE_NONE};

// ---- Types. T is the type of real values.

template <class T>
struct FftTypes;
template <>
struct FftTypes<Orv32f> {
    using Complex = Orv32fc;
    using ComplexSpec = OrvsFFTSpec_C_32fc;
    using SplitSpec = OrvsFFTSpec_C_32f;
    using RealSpec = OrvsFFTSpec_R_32f;
};
template <>
struct FftTypes<Orv64f> {
    using Complex = Orv64fc;
    using ComplexSpec = OrvsFFTSpec_C_64fc;
    using SplitSpec = OrvsFFTSpec_C_64f;
    using RealSpec = OrvsFFTSpec_R_64f;
};

template <class T>
using ComplexOf = typename FftTypes<T>::Complex;
template <class T>
using ComplexSpec = typename FftTypes<T>::ComplexSpec;
template <class T>
using SplitSpec = typename FftTypes<T>::SplitSpec;
template <class T>
using RealSpec = typename FftTypes<T>::RealSpec;

template <class Spec>
constexpr bool is_single = std::is_same_v<Spec, OrvsFFTSpec_C_32fc> || std::is_same_v<Spec, OrvsFFTSpec_C_32f> ||
                           std::is_same_v<Spec, OrvsFFTSpec_R_32f>;
/// The type of the real values that transforms on a spec work on.
template <class Spec>
using RealOf = std::conditional_t<is_single<Spec>, Orv32f, Orv64f>;

// ---- Exports

template <class Spec>
struct SpecExports {
    int highest_order;
    Export<OrvStatus, int, int, OrvHintAlgorithm, Orv32s*, Orv32s*, Orv32s*> get_size;
    Export<OrvStatus, Spec**, int, int, OrvHintAlgorithm, Orv8u*, Orv8u*> init;
    Export<OrvStatus, Spec**, int, int, OrvHintAlgorithm> init_alloc;
    Export<OrvStatus, Spec*> free;
    Export<OrvStatus, const Spec*, Orv32s*> get_buf_size;
};

template <class Spec>
SpecExports<Spec> spec_exports();
template <>
inline SpecExports<OrvsFFTSpec_C_32fc> spec_exports()
{
    return {28,
            ORV_EXPORT(orvsFFTGetSize_C_32fc),
            ORV_EXPORT(orvsFFTInit_C_32fc),
            ORV_EXPORT(orvsFFTInitAlloc_C_32fc),
            ORV_EXPORT(orvsFFTFree_C_32fc),
            ORV_EXPORT(orvsFFTGetBufSize_C_32fc)};
}
template <>
inline SpecExports<OrvsFFTSpec_C_32f> spec_exports()
{
    return {28,
            ORV_EXPORT(orvsFFTGetSize_C_32f),
            ORV_EXPORT(orvsFFTInit_C_32f),
            ORV_EXPORT(orvsFFTInitAlloc_C_32f),
            ORV_EXPORT(orvsFFTFree_C_32f),
            ORV_EXPORT(orvsFFTGetBufSize_C_32f)};
}
template <>
inline SpecExports<OrvsFFTSpec_R_32f> spec_exports()
{
    return {29,
            ORV_EXPORT(orvsFFTGetSize_R_32f),
            ORV_EXPORT(orvsFFTInit_R_32f),
            ORV_EXPORT(orvsFFTInitAlloc_R_32f),
            ORV_EXPORT(orvsFFTFree_R_32f),
            ORV_EXPORT(orvsFFTGetBufSize_R_32f)};
}
template <>
inline SpecExports<OrvsFFTSpec_C_64fc> spec_exports()
{
    return {27,
            ORV_EXPORT(orvsFFTGetSize_C_64fc),
            ORV_EXPORT(orvsFFTInit_C_64fc),
            ORV_EXPORT(orvsFFTInitAlloc_C_64fc),
            ORV_EXPORT(orvsFFTFree_C_64fc),
            ORV_EXPORT(orvsFFTGetBufSize_C_64fc)};
}
template <>
inline SpecExports<OrvsFFTSpec_C_64f> spec_exports()
{
    return {27,
            ORV_EXPORT(orvsFFTGetSize_C_64f),
            ORV_EXPORT(orvsFFTInit_C_64f),
            ORV_EXPORT(orvsFFTInitAlloc_C_64f),
            ORV_EXPORT(orvsFFTFree_C_64f),
            ORV_EXPORT(orvsFFTGetBufSize_C_64f)};
}
template <>
inline SpecExports<OrvsFFTSpec_R_64f> spec_exports()
{
    return {28,
            ORV_EXPORT(orvsFFTGetSize_R_64f),
            ORV_EXPORT(orvsFFTInit_R_64f),
            ORV_EXPORT(orvsFFTInitAlloc_R_64f),
            ORV_EXPORT(orvsFFTFree_R_64f),
            ORV_EXPORT(orvsFFTGetBufSize_R_64f)};
}

template <class Visit>
void for_each_spec_type(const Visit& visit)
{
    visit(spec_exports<OrvsFFTSpec_C_32fc>());
    visit(spec_exports<OrvsFFTSpec_C_32f>());
    visit(spec_exports<OrvsFFTSpec_R_32f>());
    visit(spec_exports<OrvsFFTSpec_C_64fc>());
    visit(spec_exports<OrvsFFTSpec_C_64f>());
    visit(spec_exports<OrvsFFTSpec_R_64f>());
}

/// The complex transforms of one direction.
template <class T>
struct ComplexExports {
    using C = ComplexOf<T>;

    Export<OrvStatus, const C*, C*, const ComplexSpec<T>*, Orv8u*> apart;
    Export<OrvStatus, C*, const ComplexSpec<T>*, Orv8u*> in_place;
    Export<OrvStatus, const T*, const T*, T*, T*, const SplitSpec<T>*, Orv8u*> split;
    Export<OrvStatus, T*, T*, const SplitSpec<T>*, Orv8u*> split_in_place;
};

template <class T>
ComplexExports<T> complex_exports(Direction direction);
template <>
inline ComplexExports<Orv32f> complex_exports(Direction direction)
{
    if (direction == Direction::forward)
        return {ORV_EXPORT(orvsFFTFwd_CToC_32fc), ORV_EXPORT(orvsFFTFwd_CToC_32fc_I), ORV_EXPORT(orvsFFTFwd_CToC_32f),
                ORV_EXPORT(orvsFFTFwd_CToC_32f_I)};
    return {ORV_EXPORT(orvsFFTInv_CToC_32fc), ORV_EXPORT(orvsFFTInv_CToC_32fc_I), ORV_EXPORT(orvsFFTInv_CToC_32f),
            ORV_EXPORT(orvsFFTInv_CToC_32f_I)};
}
template <>
inline ComplexExports<Orv64f> complex_exports(Direction direction)
{
    if (direction == Direction::forward)
        return {ORV_EXPORT(orvsFFTFwd_CToC_64fc), ORV_EXPORT(orvsFFTFwd_CToC_64fc_I), ORV_EXPORT(orvsFFTFwd_CToC_64f),
                ORV_EXPORT(orvsFFTFwd_CToC_64f_I)};
    return {ORV_EXPORT(orvsFFTInv_CToC_64fc), ORV_EXPORT(orvsFFTInv_CToC_64fc_I), ORV_EXPORT(orvsFFTInv_CToC_64f),
            ORV_EXPORT(orvsFFTInv_CToC_64f_I)};
}

/// The real transforms of one direction and layout.
template <class T>
struct RealExports {
    Export<OrvStatus, const T*, T*, const RealSpec<T>*, Orv8u*> apart;
    Export<OrvStatus, T*, const RealSpec<T>*, Orv8u*> in_place;
};

template <class T>
RealExports<T> real_exports(Direction direction, Layout layout);
template <>
inline RealExports<Orv32f> real_exports(Direction direction, Layout layout)
{
    const bool forward = direction == Direction::forward;
    switch (layout) {
    case Layout::perm:
        if (forward) return {ORV_EXPORT(orvsFFTFwd_RToPerm_32f), ORV_EXPORT(orvsFFTFwd_RToPerm_32f_I)};
        return {ORV_EXPORT(orvsFFTInv_PermToR_32f), ORV_EXPORT(orvsFFTInv_PermToR_32f_I)};
    case Layout::pack:
        if (forward) return {ORV_EXPORT(orvsFFTFwd_RToPack_32f), ORV_EXPORT(orvsFFTFwd_RToPack_32f_I)};
        return {ORV_EXPORT(orvsFFTInv_PackToR_32f), ORV_EXPORT(orvsFFTInv_PackToR_32f_I)};
    default:
        if (forward) return {ORV_EXPORT(orvsFFTFwd_RToCCS_32f), ORV_EXPORT(orvsFFTFwd_RToCCS_32f_I)};
        return {ORV_EXPORT(orvsFFTInv_CCSToR_32f), ORV_EXPORT(orvsFFTInv_CCSToR_32f_I)};
    }
}
template <>
inline RealExports<Orv64f> real_exports(Direction direction, Layout layout)
{
    const bool forward = direction == Direction::forward;
    switch (layout) {
    case Layout::perm:
        if (forward) return {ORV_EXPORT(orvsFFTFwd_RToPerm_64f), ORV_EXPORT(orvsFFTFwd_RToPerm_64f_I)};
        return {ORV_EXPORT(orvsFFTInv_PermToR_64f), ORV_EXPORT(orvsFFTInv_PermToR_64f_I)};
    case Layout::pack:
        if (forward) return {ORV_EXPORT(orvsFFTFwd_RToPack_64f), ORV_EXPORT(orvsFFTFwd_RToPack_64f_I)};
        return {ORV_EXPORT(orvsFFTInv_PackToR_64f), ORV_EXPORT(orvsFFTInv_PackToR_64f_I)};
    default:
        if (forward) return {ORV_EXPORT(orvsFFTFwd_RToCCS_64f), ORV_EXPORT(orvsFFTFwd_RToCCS_64f_I)};
        return {ORV_EXPORT(orvsFFTInv_CCSToR_64f), ORV_EXPORT(orvsFFTInv_CCSToR_64f_I)};
    }
}

/// Every transform that runs on a spec of the type.
template <class Spec, class Visit>
void for_each_transform(const Visit& visit)
{
    using T = RealOf<Spec>;
    for (const Direction direction : directions) {
        if constexpr (std::is_same_v<Spec, RealSpec<T>>) {
            for (const Layout layout : layouts) {
                const RealExports<T> exports = real_exports<T>(direction, layout);
                visit(exports.apart);
                visit(exports.in_place);
            }
        } else {
            const ComplexExports<T> exports = complex_exports<T>(direction);
            if constexpr (std::is_same_v<Spec, ComplexSpec<T>>) {
                visit(exports.apart);
                visit(exports.in_place);
            } else {
                visit(exports.split);
                visit(exports.split_in_place);
            }
        }
    }
}

// ---- What a transform needs

/// A spec that InitAlloc makes.
template <class Spec>
class OwnSpec {
public:
    OwnSpec(int order, int flag)
    {
        EXPECT_EQ(exports_.init_alloc(&spec_, order, flag, ORV_HINT_ANY), orvOk)
            << exports_.init_alloc.name() << ", order " << order << ", flag " << flag;
    }
    ~OwnSpec() { EXPECT_EQ(exports_.free(spec_), orvOk) << exports_.free.name(); }
    OwnSpec(const OwnSpec&) = delete;
    OwnSpec& operator=(const OwnSpec&) = delete;

    operator const Spec*() const { return spec_; }

    std::size_t buffer_size() const
    {
        Orv32s size = 0;
        EXPECT_EQ(exports_.get_buf_size(spec_, &size), orvOk) << exports_.get_buf_size.name();
        return static_cast<std::size_t>(size);
    }

private:
    const SpecExports<Spec> exports_ = spec_exports<Spec>();
    Spec* spec_ = nullptr;
};

/// A buffer of exactly the size that the spec tells. Where that is 0 its address is that of an unreadable byte.
template <class Spec>
class WorkBuffer : public GuardedArray<Orv8u> {
public:
    explicit WorkBuffer(const OwnSpec<Spec>& spec, Placement placement = before_guard)
        : GuardedArray<Orv8u>(spec.buffer_size(), placement)
    {}
};

// ---- What results may be

/// What a transform of this order, flag and direction multiplies by.
inline long double nominal_factor(Direction direction, int order, int flag)
{
    const bool inverse = direction == Direction::inverse;
    if (flag == ORV_FFT_SCALE_SQRT) return 1 / std::sqrt(std::ldexp(1.0L, order));
    return flag == (inverse ? ORV_FFT_SCALE_INV : ORV_FFT_SCALE_FWD) ? std::ldexp(1.0L, -order) : 1.0L;
}

/// The largest error of a transform of noise: root mean square, relative to the result's.
template <class T>
double error_bound(int order)
{
    return 0.35 * std::numeric_limits<T>::epsilon() * std::sqrt(std::max(order, 1));
}
/// The same for any one signal. Where all energy is in one value, nothing is averaged.
template <class T>
double error_bound_of_one(int order)
{
    return 2 * error_bound<T>(order);
}
/// The largest error of the factor 1 / sqrt(N), relative. In single precision it comes from an approximate root.
template <class T>
constexpr double factor_bound = (sizeof(T) == 4 ? 3 : 1) * double{std::numeric_limits<T>::epsilon()};

} // namespace orvtest
