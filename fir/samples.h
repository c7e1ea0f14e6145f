// Samples to and from the type that a filter computes in.
#ifndef ORV_FIR_SAMPLES_H
#define ORV_FIR_SAMPLES_H

#include "frame/complex.h"
#include "frame/fill.h"
#include "orvs/convert.h"

namespace ORV_VARIANT {

template <class T>
inline void to_compute(const T* src, T* dst, int len)
{
    copy_array(src, dst, std::size_t(len));
}
inline void to_compute(const Orv16s* src, Orv32f* dst, int len) { orvsConvert_16s32f(src, dst, len); }
inline void to_compute(const Orv16s* src, Orv64f* dst, int len) { orvsConvert_16s64f_Sfs(src, dst, len, 0); }
inline void to_compute(const Orv32s* src, Orv64f* dst, int len) { orvsConvert_32s64f(src, dst, len); }
inline void to_compute(const Orv32f* src, Orv64f* dst, int len) { orvsConvert_32f64f(src, dst, len); }

/// Integers are src * 2^-scale, to nearest and saturated; floating samples know no scale.
template <class T>
inline void from_compute(const T* src, T* dst, int len, int)
{
    copy_array(src, dst, std::size_t(len));
}
inline void from_compute(const Orv64f* src, Orv32f* dst, int len, int) { orvsConvert_64f32f(src, dst, len); }
inline void from_compute(const Orv32f* src, Orv16s* dst, int len, int scale)
{
    orvsConvert_32f16s_Sfs(src, dst, len, orvRndNear, scale);
}
inline void from_compute(const Orv64f* src, Orv16s* dst, int len, int scale)
{
    orvsConvert_64f16s_Sfs(src, dst, len, orvRndNear, scale);
}
inline void from_compute(const Orv64f* src, Orv32s* dst, int len, int scale)
{
    orvsConvert_64f32s_Sfs(src, dst, len, orvRndNear, scale);
}

// Complex samples, part by part. Pieces are short, so twice their length is a length.

template <class Sample, class Compute>
requires(std::is_class_v<Sample> && !std::is_same_v<Sample, Compute>) inline void to_compute(const Sample* src,
                                                                                             Compute* dst, int len)
{
    to_compute(parts(src), parts(dst), 2 * len);
}
template <class Compute, class Sample>
requires(std::is_class_v<Sample> &&
         !std::is_same_v<Sample, Compute>) inline void from_compute(const Compute* src, Sample* dst, int len, int scale)
{
    from_compute(parts(src), parts(dst), 2 * len, scale);
}

/// Newest first becomes oldest first, and back.
template <class T>
inline void reverse(T* samples, int len)
{
    if constexpr (sizeof(T) == 2) orvsFlip_16u_I(reinterpret_cast<Orv16u*>(samples), len);
    else if constexpr (sizeof(T) == 4) orvsFlip_32f_I(reinterpret_cast<Orv32f*>(samples), len);
    else if constexpr (sizeof(T) == 8) orvsFlip_64f_I(reinterpret_cast<Orv64f*>(samples), len);
    else orvsFlip_64fc_I(reinterpret_cast<Orv64fc*>(samples), len);
}

} // namespace ORV_VARIANT

#endif
