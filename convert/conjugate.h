// Conjugates of interleaved parts.
#ifndef ORV_CONVERT_CONJUGATE_H
#define ORV_CONVERT_CONJUGATE_H

#include "simd/saturate.h"
#include "simd/vec.h"

namespace ORV_VARIANT {

/// re, -im. Of a float the sign bit changes, whatever the value; -32768 becomes 32767.
template <class T>
ORV_INLINE vec<T> conjugate(vec<T> v)
{
    if constexpr (is_float<T>) {
        using Word = std::conditional_t<sizeof(T) == 4, Orv32s, Orv64s>;
        return as<T>(as<Word>(v) ^ splat_pair(Word(0), min_of<Word>));
    } else {
        const auto all_ones = splat_pair(T(0), T(-1));
        return sub_sat(v ^ all_ones, all_ones); // ~im + 1
    }
}

} // namespace ORV_VARIANT

#endif
