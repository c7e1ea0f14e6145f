// How the outputs of a direct filter are cut into tiles: runs of outputs whose sums grow side by side in registers.
#ifndef ORV_FIR_TILES_H
#define ORV_FIR_TILES_H

#include <cstddef>

#include "frame/fill.h"
#include "simd/vec.h"

namespace ORV_VARIANT {

/// Calls sums.tile<vectors>(x, dst) until dst has count outputs; x is the newest input of the first one. Tiles are as
/// wide as count allows, and the last one reaches back over outputs that are there already. Of fewer outputs than a
/// vector has lanes a whole vector is computed aside, from as many inputs at x: only the record's own buffer may be
/// filtered so.
template <int vectors, class Sums, class In, class Out>
void filter_tiles(const Sums& sums, const In* x, Out* dst, int count)
{
    constexpr int lanes = Sums::lanes, width = vectors * lanes;
    if (count >= width) {
        for (std::ptrdiff_t next = 0; next < count; next += width) {
            const std::ptrdiff_t at = next <= count - width ? next : count - width;
            sums.template tile<vectors>(x + at, dst + at);
        }
    } else if constexpr (vectors > 1) {
        filter_tiles<(vectors > 4 ? 4 : vectors / 2)>(sums, x, dst, count);
    } else {
        Out whole[lanes];
        sums.template tile<1>(x, whole);
        copy_array(whole, dst, std::size_t(count));
    }
}

template <class Sums, class In, class Out>
ORV_INLINE void filter_direct(const Sums& sums, const In* x, Out* dst, int count)
{
    filter_tiles<Sums::widest>(sums, x, dst, count);
}

} // namespace ORV_VARIANT

#endif
