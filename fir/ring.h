// The caller's delay line: 2 * tapsLen samples, each stored twice, so that the last tapsLen of them are contiguous
// wherever they begin.
#ifndef ORV_FIR_RING_H
#define ORV_FIR_RING_H

#include <cstddef>

#include "frame/fill.h"
#include "simd/vec.h"

namespace ORV_VARIANT {

template <class T>
struct Ring {
    T* line;
    int* index; ///< where the next sample goes
    int tapsLen;

    /// The window, oldest first, that ends with the new sample.
    ORV_INLINE const T* push(T sample) const
    {
        put_element(line + *index, sample);
        put_element(line + *index + tapsLen, sample);
        *index = *index + 1 < tapsLen ? *index + 1 : 0;
        return line + *index;
    }

    /// As pushing all of src leaves it.
    void push_all(const T* src, int len) const
    {
        const int last = len < tapsLen ? len : tapsLen;
        *index = int((Orv64s(*index) + (len - last)) % tapsLen);
        for (int i = len - last; i < len; ++i) push(element_at(src + i));
    }

    T* window() const { return line + *index; }

    /// After the window has been written anew: what has been read twice as samples go round.
    void mirror() const { copy_array(line + tapsLen, line, std::size_t(*index)); }
};

} // namespace ORV_VARIANT

#endif
