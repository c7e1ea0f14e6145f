// What the filters of each compute type are built from.
#ifndef ORV_FIR_ENGINE_H
#define ORV_FIR_ENGINE_H

#include "fir/complex_sums.h"
#include "fir/real_sums.h"
#include "fir/state.h"
#include "orvs/arith.h"
#include "orvs/transform.h"

namespace ORV_VARIANT {

// Blocks from fft_block samples on go through the FFT if there are fft_taps taps or more; blocks of more than shared
// samples are spread over threads.

struct RealThresholds {
    static constexpr int fft_taps = 64, fft_block = 512, shared = 1600;
};
struct ComplexThresholds {
    static constexpr int fft_block = 256, shared = 800;
};

template <>
struct fir_engine<Orv32f> : RealThresholds {
    template <class Sample>
    using SumsOf = RealSums<Orv32f, Sample>;
    using Sums = SumsOf<Orv32f>;
    using Spec = OrvsFFTSpec_R_32f;
    static constexpr auto& get_size = orvsFFTGetSize_R_32f;
    static constexpr auto& init_spec = orvsFFTInit_R_32f;
    static constexpr auto& allocate_spec = orvsFFTInitAlloc_R_32f;
    static constexpr auto& free_spec = orvsFFTFree_R_32f;
    static constexpr auto& forward = orvsFFTFwd_RToPerm_32f;
    static constexpr auto& inverse = orvsFFTInv_PermToR_32f_I;
    static constexpr auto& multiply = orvsMulPerm_32f_I;
    static constexpr int alignment = 16; // of the record
};

template <>
struct fir_engine<Orv64f> : RealThresholds {
    template <class Sample>
    using SumsOf = RealSums<Orv64f, Sample>;
    using Sums = SumsOf<Orv64f>;
    using Spec = OrvsFFTSpec_R_64f;
    static constexpr auto& get_size = orvsFFTGetSize_R_64f;
    static constexpr auto& init_spec = orvsFFTInit_R_64f;
    static constexpr auto& allocate_spec = orvsFFTInitAlloc_R_64f;
    static constexpr auto& free_spec = orvsFFTFree_R_64f;
    static constexpr auto& forward = orvsFFTFwd_RToPerm_64f;
    static constexpr auto& inverse = orvsFFTInv_PermToR_64f_I;
    static constexpr auto& multiply = orvsMulPerm_64f_I;
    static constexpr int alignment = 32;
};

template <>
struct fir_engine<Orv32fc> : ComplexThresholds {
    template <class Sample>
    using SumsOf = ComplexSums<Orv32fc, Sample>;
    using Sums = SumsOf<Orv32fc>;
    using Spec = OrvsFFTSpec_C_32fc;
    static constexpr auto& get_size = orvsFFTGetSize_C_32fc;
    static constexpr auto& init_spec = orvsFFTInit_C_32fc;
    static constexpr auto& allocate_spec = orvsFFTInitAlloc_C_32fc;
    static constexpr auto& free_spec = orvsFFTFree_C_32fc;
    static constexpr auto& forward = orvsFFTFwd_CToC_32fc;
    static constexpr auto& inverse = orvsFFTInv_CToC_32fc_I;
    static constexpr auto& multiply = orvsMul_32fc_I;
    static constexpr int fft_taps = 16, alignment = 16;
};

template <>
struct fir_engine<Orv64fc> : ComplexThresholds {
    template <class Sample>
    using SumsOf = ComplexSums<Orv64fc, Sample>;
    using Sums = SumsOf<Orv64fc>;
    using Spec = OrvsFFTSpec_C_64fc;
    static constexpr auto& get_size = orvsFFTGetSize_C_64fc;
    static constexpr auto& init_spec = orvsFFTInit_C_64fc;
    static constexpr auto& allocate_spec = orvsFFTInitAlloc_C_64fc;
    static constexpr auto& free_spec = orvsFFTFree_C_64fc;
    static constexpr auto& forward = orvsFFTFwd_CToC_64fc;
    static constexpr auto& inverse = orvsFFTInv_CToC_64fc_I;
    static constexpr auto& multiply = orvsMul_64fc_I;
    static constexpr int fft_taps = 32, alignment = 32;
};

// ---- Forms

/// What an entry works on: the identifier that its records have, and the types of its taps and samples.
template <Orv32u identifier, class ComputeType, class SampleType = ComputeType, class TapsType = ComputeType>
struct FirForm {
    static constexpr Orv32u id = identifier;
    using Compute = ComputeType;
    using Sample = SampleType;
    using Taps = TapsType;
    using Record = FirState<Compute>;
};

using Fir_32f = FirForm<fir_id("FI01"), Orv32f>;
using Fir_32fc = FirForm<fir_id("FI02"), Orv32fc>;
using Fir32f_16s = FirForm<fir_id("FI05"), Orv32f, Orv16s>;
using Fir32fc_16sc = FirForm<fir_id("FI06"), Orv32fc, Orv16sc>;
using Fir_64f = FirForm<fir_id("FI13"), Orv64f>;
using Fir_64fc = FirForm<fir_id("FI14"), Orv64fc>;
using Fir64f_32f = FirForm<fir_id("FI17"), Orv64f, Orv32f>;
using Fir64fc_32fc = FirForm<fir_id("FI18"), Orv64fc, Orv32fc>;
using Fir64f_32s = FirForm<fir_id("FI21"), Orv64f, Orv32s>;
using Fir64fc_32sc = FirForm<fir_id("FI22"), Orv64fc, Orv32sc>;
using Fir64f_16s = FirForm<fir_id("FI25"), Orv64f, Orv16s>;
using Fir64fc_16sc = FirForm<fir_id("FI26"), Orv64fc, Orv16sc>;
using Fir_32s = FirForm<fir_id("FI21"), Orv64f, Orv32s, Orv32s>;

} // namespace ORV_VARIANT

#endif
