// The record behind a spec pointer. Its tables follow it in the same block.
#ifndef ORV_TRANSFORM_SPEC_H
#define ORV_TRANSFORM_SPEC_H

#include "orvs/transform.h"

namespace ORV_VARIANT {

/// Levels that the large road splits a transform into at most.
inline constexpr int large_levels = 3;

template <class T>
struct FftSpec {
    using value = T;

    Orv32s id; ///< of the spec type; 0 once freed
    Orv32s order;
    Orv32s scaleFwd; ///< whether a forward transform multiplies by factor
    Orv32s scaleInv;
    T factor;
    Orv32s hint;
    Orv32s workSize; ///< bytes that a transform works in, once they are aligned
    Orv32s allocated;
    void* specBlock; ///< what Free gives back if allocated
    Orv32s* tabBitRev;
    T* tabTwd;
    T* tabRealRec;
    T* tabCcsRec;
    T* tabStepTwd[large_levels]; ///< the outermost level first
};

/// What all tables begin at a multiple of.
inline constexpr int table_alignment = 64;

} // namespace ORV_VARIANT

struct OrvsFFTSpec_C_32fc : ORV_VARIANT::FftSpec<Orv32f> {
    static constexpr Orv32s identifier = 4;
};
struct OrvsFFTSpec_C_32f : ORV_VARIANT::FftSpec<Orv32f> {
    static constexpr Orv32s identifier = 5;
};
struct OrvsFFTSpec_R_32f : ORV_VARIANT::FftSpec<Orv32f> {
    static constexpr Orv32s identifier = 6;
};
struct OrvsFFTSpec_C_64fc : ORV_VARIANT::FftSpec<Orv64f> {
    static constexpr Orv32s identifier = 7;
};
struct OrvsFFTSpec_C_64f : ORV_VARIANT::FftSpec<Orv64f> {
    static constexpr Orv32s identifier = 8;
};
struct OrvsFFTSpec_R_64f : ORV_VARIANT::FftSpec<Orv64f> {
    static constexpr Orv32s identifier = 9;
};

#endif
