// What a kernel has met on its way and a status tells: a zero divisor, a negative radicand.
#ifndef ORV_ARITH_SEEN_H
#define ORV_ARITH_SEEN_H

#include "simd/vec.h"

namespace ORV_VARIANT {

/// Whether any lane of any vector was set.
class Seen {
public:
    template <class T>
    ORV_INLINE void add(vec<T> mask)
    {
        all_ = _mm256_or_si256(all_, reinterpret_cast<__m256i>(mask.r));
    }
    ORV_INLINE bool any() const { return !_mm256_testz_si256(all_, all_); }

private:
    __m256i all_ = _mm256_setzero_si256();
};

} // namespace ORV_VARIANT

#endif
