// The life of the specs of floating-point transforms.
#include "frame/checks.h"
#include "frame/float_state.h"
#include "orvs/frame.h"
#include "simd/float.h"
#include "transform/sizes.h"
#include "transform/spec.h"
#include "transform/tables.h"

using namespace ORV_VARIANT;

namespace {

constexpr int order_of_interface = 30; ///< beyond which GetSize looks at nothing else

bool is_flag(int flag)
{
    return flag == ORV_FFT_SCALE_FWD || flag == ORV_FFT_SCALE_INV || flag == ORV_FFT_SCALE_SQRT ||
           flag == ORV_FFT_SCALE_NONE;
}

// ---- What the two kinds of transform differ in

template <class T>
struct ComplexKind {
    using value = T;
    static constexpr int maximum_order = complex_maximum_order<T>, first_order_with_tables = engine_order;
    static constexpr FftSizes sizes(int order) { return complex_sizes<T>(order); }
    static constexpr int complex_order(int order) { return order; }
};
template <class T>
struct RealKind {
    using value = T;
    static constexpr int maximum_order = complex_maximum_order<T> + 1, first_order_with_tables = recombined_order;
    static constexpr FftSizes sizes(int order) { return real_sizes<T>(order); }
    static constexpr int complex_order(int order) { return order - 1; }
};
template <class Spec>
struct kind_of;
template <>
struct kind_of<OrvsFFTSpec_C_32fc> : ComplexKind<Orv32f> {};
template <>
struct kind_of<OrvsFFTSpec_R_32f> : RealKind<Orv32f> {};
template <>
struct kind_of<OrvsFFTSpec_C_64fc> : ComplexKind<Orv64f> {};
template <>
struct kind_of<OrvsFFTSpec_R_64f> : RealKind<Orv64f> {};

template <class Kind>
inline constexpr bool is_real = Kind::complex_order(1) == 0;

// ---- Sizes

template <class Spec>
OrvStatus get_size(int order, int flag, Orv32s* pSpecSize, Orv32s* pInitSize, Orv32s* pWorkSize)
{
    using Kind = kind_of<Spec>;
    if (order < 0 || order > order_of_interface) return orvErrBadFftOrder;
    if (any_null(pSpecSize, pInitSize, pWorkSize)) return orvErrNullPointer;
    if (!is_flag(flag)) return orvErrBadFftFlag;
    if (order > Kind::maximum_order) return orvErrBadFftOrder;
    const FftSizes sizes = Kind::sizes(order);
    *pSpecSize = sizes.spec;
    *pInitSize = sizes.init;
    *pWorkSize = sizes.work > 0 ? sizes.work + table_alignment : 0;
    return orvOk;
}

template <class Spec>
OrvStatus get_buffer_size(const Spec* spec, Orv32s* pSize)
{
    if (any_null(spec, pSize)) return orvErrNullPointer;
    if (spec->id != Spec::identifier) return orvErrWrongContext;
    *pSize = spec->workSize > 0 ? spec->workSize + table_alignment : 0;
    return orvOk;
}

// ---- Scales

/// 1 / sqrt(2^order). In single precision one step of Newton's on the processor's estimate.
Orv32f reciprocal_root(int order, Orv32f)
{
    const Orv32f n = Orv32f(Orv32u(1) << order);
    const Orv32f r = _mm_cvtss_f32(_mm_rsqrt_ss(_mm_set_ss(n)));
    return r * -0.5f * (n * r * r - 3);
}
Orv64f reciprocal_root(int order, Orv64f) { return 1 / __builtin_sqrt(Orv64f(Orv32u(1) << order)); }

template <class T>
bool set_scale(FftSpec<T>& spec, int flag)
{
    spec.scaleFwd = flag == ORV_FFT_SCALE_FWD || flag == ORV_FFT_SCALE_SQRT;
    spec.scaleInv = flag == ORV_FFT_SCALE_INV || flag == ORV_FFT_SCALE_SQRT;
    if (flag == ORV_FFT_SCALE_SQRT) spec.factor = reciprocal_root(spec.order, T());
    else if (flag != ORV_FFT_SCALE_NONE) spec.factor = power_of_two<T>(spec.order);
    return is_flag(flag);
}

// ---- Tables

/// Of the complex transform of 2^order; the first goes to `at`. Returns what is behind them.
template <class T>
T* build_complex_tables(FftSpec<T>& spec, int order, const Factors<T>& factors, Orv32s* at)
{
    spec.workSize = complex_sizes<T>(order).work;
    spec.tabBitRev = at;
    if (order < large_order<T>) {
        spec.tabTwd = build_bit_reversal<T>(order, at);
        return build_twiddles(order, factors, spec.tabTwd);
    }
    spec.tabTwd = build_tile_reversal<T>(order, tile_order<T>, at);
    int level_order[large_levels + 1] = {order}, level = 0;
    for (; level_order[level] >= large_order<T>; ++level)
        level_order[level + 1] = level_order[level] - tbl_blk_order<T>(level_order[level]);
    T* table = build_twiddles(level_order[level], factors, spec.tabTwd);
    while (level-- > 0) { // the innermost first
        spec.tabStepTwd[level] = table;
        table = build_step_twiddles(level_order[level], factors, table);
    }
    return table;
}

template <class Kind, class T>
void build_tables(FftSpec<T>& spec, const Factors<T>& factors)
{
    const int complex_order = Kind::complex_order(spec.order);
    T* table = reinterpret_cast<T*>(aligned(reinterpret_cast<Orv8u*>(&spec) + sizeof spec));
    if (complex_order >= engine_order) {
        table = build_complex_tables(spec, complex_order, factors, reinterpret_cast<Orv32s*>(table));
    }
    if constexpr (is_real<Kind>) {
        spec.tabRealRec = table;
        spec.tabCcsRec = build_recombination(spec.order, factors, false, spec.tabRealRec);
        build_recombination(spec.order, factors, true, spec.tabCcsRec);
    }
}

// ---- Building

template <class Spec>
OrvStatus init(Spec** ppSpec, int order, int flag, OrvHintAlgorithm hint, Orv8u* specMem, Orv8u* initBuf)
{
    using Kind = kind_of<Spec>;
    using T = typename Kind::value;
    if (!ppSpec) return orvErrNullPointer;
    if (order < 0 || order > Kind::maximum_order) return orvErrBadFftOrder;
    if (!specMem) return orvErrNullPointer;

    Spec& spec = *reinterpret_cast<Spec*>(aligned(specMem));
    static_cast<FftSpec<T>&>(spec) = {};
    spec.order = order;
    spec.hint = hint;
    const StandardState state; // the same tables in any state of the caller
    if (!set_scale<T>(spec, flag)) return orvErrBadFftFlag;

    if (order >= Kind::first_order_with_tables) {
        if (order < computed_factors_order) {
            build_tables<Kind, T>(spec, fixed_factors<T>);
        } else {
            if (!initBuf) return orvErrNullPointer;
            T* sines = reinterpret_cast<T*>(aligned(initBuf));
            build_sines(order, sines);
            build_tables<Kind, T>(spec, Factors<T>(sines, order));
        }
    }
    spec.id = Spec::identifier;
    *ppSpec = &spec;
    return orvOk;
}

template <class Spec>
OrvStatus init_alloc(Spec** ppSpec, int order, int flag, OrvHintAlgorithm hint)
{
    if (!ppSpec) return orvErrNullPointer;
    Orv32s spec_size, init_size, work_size;
    if (const OrvStatus bad = get_size<Spec>(order, flag, &spec_size, &init_size, &work_size)) return bad;

    Orv8u* block = orvsMalloc_8u(spec_size);
    if (!block) return orvErrNoMemory;
    Orv8u* scratch = init_size > 0 ? orvsMalloc_8u(init_size) : nullptr;
    if (init_size > 0 && !scratch) {
        orvsFree(block);
        return orvErrNoMemory;
    }
    Spec* spec;
    const OrvStatus status = init(&spec, order, flag, hint, block, scratch);
    if (scratch) orvsFree(scratch);
    if (status != orvOk) {
        orvsFree(block);
        return status;
    }
    spec->allocated = 1;
    spec->specBlock = block;
    *ppSpec = spec;
    return orvOk;
}

template <class Spec>
OrvStatus free_spec(Spec* spec)
{
    if (!spec) return orvErrNullPointer;
    if (spec->id != Spec::identifier) return orvErrWrongContext;
    spec->id = 0;
    if (spec->allocated == 1) orvsFree(spec->specBlock);
    return orvOk;
}

/// A spec of a split form is that of the interleaved one by another name.
template <class Interleaved, class Split>
OrvStatus rename(OrvStatus status, Interleaved* built, Split** ppSpec)
{
    if (status != orvOk) return status;
    built->id = Split::identifier;
    *ppSpec = reinterpret_cast<Split*>(built);
    return orvOk;
}

} // namespace

// ---- GetSize

OrvStatus orvsFFTGetSize_C_32fc(int order, int flag, OrvHintAlgorithm, Orv32s* pSpecSize, Orv32s* pInitSize,
                                Orv32s* pWorkSize)
{
    return get_size<OrvsFFTSpec_C_32fc>(order, flag, pSpecSize, pInitSize, pWorkSize);
}
OrvStatus orvsFFTGetSize_C_32f(int order, int flag, OrvHintAlgorithm hint, Orv32s* pSpecSize, Orv32s* pInitSize,
                               Orv32s* pWorkSize)
{
    return orvsFFTGetSize_C_32fc(order, flag, hint, pSpecSize, pInitSize, pWorkSize);
}
OrvStatus orvsFFTGetSize_R_32f(int order, int flag, OrvHintAlgorithm, Orv32s* pSpecSize, Orv32s* pInitSize,
                               Orv32s* pWorkSize)
{
    return get_size<OrvsFFTSpec_R_32f>(order, flag, pSpecSize, pInitSize, pWorkSize);
}
OrvStatus orvsFFTGetSize_C_64fc(int order, int flag, OrvHintAlgorithm, Orv32s* pSpecSize, Orv32s* pInitSize,
                                Orv32s* pWorkSize)
{
    return get_size<OrvsFFTSpec_C_64fc>(order, flag, pSpecSize, pInitSize, pWorkSize);
}
OrvStatus orvsFFTGetSize_C_64f(int order, int flag, OrvHintAlgorithm hint, Orv32s* pSpecSize, Orv32s* pInitSize,
                               Orv32s* pWorkSize)
{
    return orvsFFTGetSize_C_64fc(order, flag, hint, pSpecSize, pInitSize, pWorkSize);
}
OrvStatus orvsFFTGetSize_R_64f(int order, int flag, OrvHintAlgorithm, Orv32s* pSpecSize, Orv32s* pInitSize,
                               Orv32s* pWorkSize)
{
    return get_size<OrvsFFTSpec_R_64f>(order, flag, pSpecSize, pInitSize, pWorkSize);
}

// ---- Init

OrvStatus orvsFFTInit_C_32fc(OrvsFFTSpec_C_32fc** ppSpec, int order, int flag, OrvHintAlgorithm hint, Orv8u* specMem,
                             Orv8u* initBuf)
{
    return init(ppSpec, order, flag, hint, specMem, initBuf);
}
OrvStatus orvsFFTInit_C_32f(OrvsFFTSpec_C_32f** ppSpec, int order, int flag, OrvHintAlgorithm hint, Orv8u* specMem,
                            Orv8u* initBuf)
{
    if (!ppSpec) return orvErrNullPointer;
    OrvsFFTSpec_C_32fc* built = nullptr;
    const OrvStatus status = orvsFFTInit_C_32fc(&built, order, flag, hint, specMem, initBuf);
    return rename(status, built, ppSpec);
}
OrvStatus orvsFFTInit_R_32f(OrvsFFTSpec_R_32f** ppSpec, int order, int flag, OrvHintAlgorithm hint, Orv8u* specMem,
                            Orv8u* initBuf)
{
    return init(ppSpec, order, flag, hint, specMem, initBuf);
}
OrvStatus orvsFFTInit_C_64fc(OrvsFFTSpec_C_64fc** ppSpec, int order, int flag, OrvHintAlgorithm hint, Orv8u* specMem,
                             Orv8u* initBuf)
{
    return init(ppSpec, order, flag, hint, specMem, initBuf);
}
OrvStatus orvsFFTInit_C_64f(OrvsFFTSpec_C_64f** ppSpec, int order, int flag, OrvHintAlgorithm hint, Orv8u* specMem,
                            Orv8u* initBuf)
{
    if (!ppSpec) return orvErrNullPointer;
    OrvsFFTSpec_C_64fc* built = nullptr;
    const OrvStatus status = orvsFFTInit_C_64fc(&built, order, flag, hint, specMem, initBuf);
    return rename(status, built, ppSpec);
}
OrvStatus orvsFFTInit_R_64f(OrvsFFTSpec_R_64f** ppSpec, int order, int flag, OrvHintAlgorithm hint, Orv8u* specMem,
                            Orv8u* initBuf)
{
    return init(ppSpec, order, flag, hint, specMem, initBuf);
}

// ---- InitAlloc

OrvStatus orvsFFTInitAlloc_C_32fc(OrvsFFTSpec_C_32fc** ppSpec, int order, int flag, OrvHintAlgorithm hint)
{
    return init_alloc(ppSpec, order, flag, hint);
}
OrvStatus orvsFFTInitAlloc_C_32f(OrvsFFTSpec_C_32f** ppSpec, int order, int flag, OrvHintAlgorithm hint)
{
    if (!ppSpec) return orvErrNullPointer;
    OrvsFFTSpec_C_32fc* built = nullptr;
    const OrvStatus status = orvsFFTInitAlloc_C_32fc(&built, order, flag, hint);
    return rename(status, built, ppSpec);
}
OrvStatus orvsFFTInitAlloc_R_32f(OrvsFFTSpec_R_32f** ppSpec, int order, int flag, OrvHintAlgorithm hint)
{
    return init_alloc(ppSpec, order, flag, hint);
}
OrvStatus orvsFFTInitAlloc_C_64fc(OrvsFFTSpec_C_64fc** ppSpec, int order, int flag, OrvHintAlgorithm hint)
{
    return init_alloc(ppSpec, order, flag, hint);
}
OrvStatus orvsFFTInitAlloc_C_64f(OrvsFFTSpec_C_64f** ppSpec, int order, int flag, OrvHintAlgorithm hint)
{
    if (!ppSpec) return orvErrNullPointer;
    OrvsFFTSpec_C_64fc* built = nullptr;
    const OrvStatus status = orvsFFTInitAlloc_C_64fc(&built, order, flag, hint);
    return rename(status, built, ppSpec);
}
OrvStatus orvsFFTInitAlloc_R_64f(OrvsFFTSpec_R_64f** ppSpec, int order, int flag, OrvHintAlgorithm hint)
{
    return init_alloc(ppSpec, order, flag, hint);
}

// ---- Free

OrvStatus orvsFFTFree_C_32fc(OrvsFFTSpec_C_32fc* spec) { return free_spec(spec); }
OrvStatus orvsFFTFree_C_32f(OrvsFFTSpec_C_32f* spec) { return free_spec(spec); }
OrvStatus orvsFFTFree_R_32f(OrvsFFTSpec_R_32f* spec) { return free_spec(spec); }
OrvStatus orvsFFTFree_C_64fc(OrvsFFTSpec_C_64fc* spec) { return free_spec(spec); }
OrvStatus orvsFFTFree_C_64f(OrvsFFTSpec_C_64f* spec) { return free_spec(spec); }
OrvStatus orvsFFTFree_R_64f(OrvsFFTSpec_R_64f* spec) { return free_spec(spec); }

// ---- GetBufSize

OrvStatus orvsFFTGetBufSize_C_32fc(const OrvsFFTSpec_C_32fc* spec, Orv32s* pSize)
{
    return get_buffer_size(spec, pSize);
}
OrvStatus orvsFFTGetBufSize_C_32f(const OrvsFFTSpec_C_32f* spec, Orv32s* pSize) { return get_buffer_size(spec, pSize); }
OrvStatus orvsFFTGetBufSize_R_32f(const OrvsFFTSpec_R_32f* spec, Orv32s* pSize) { return get_buffer_size(spec, pSize); }
OrvStatus orvsFFTGetBufSize_C_64fc(const OrvsFFTSpec_C_64fc* spec, Orv32s* pSize)
{
    return get_buffer_size(spec, pSize);
}
OrvStatus orvsFFTGetBufSize_C_64f(const OrvsFFTSpec_C_64f* spec, Orv32s* pSize) { return get_buffer_size(spec, pSize); }
OrvStatus orvsFFTGetBufSize_R_64f(const OrvsFFTSpec_R_64f* spec, Orv32s* pSize) { return get_buffer_size(spec, pSize); }
