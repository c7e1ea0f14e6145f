#include "transform/complex_transform.h"

#include "frame/alignment.h"
#include "transform/engine.h"
#include "transform/large.h"
#include "transform/tiny.h"

namespace ORV_VARIANT {

namespace {

template <Direction d, int order, bool scales, class Array>
void tiny(Array src, Array dst, [[maybe_unused]] typename Array::value factor)
{
    if constexpr (scales) transform_tiny<d, order>(src, dst, factor);
    else transform_tiny<d, order>(src, dst, Unscaled());
}

template <Direction d, class Array, bool scales>
constexpr TinyKernels<Array> kernels = {tiny<d, 0, scales, Array>, tiny<d, 1, scales, Array>, tiny<d, 2, scales, Array>,
                                        tiny<d, 3, scales, Array>, tiny<d, 4, scales, Array>, tiny<d, 5, scales, Array>,
                                        tiny<d, 6, scales, Array>};

template <class T>
bool is_same(InterleavedArray<T> a, InterleavedArray<T> b)
{
    return a.p == b.p;
}
template <class T>
bool is_same(SplitArray<T> a, SplitArray<T> b)
{
    return a.re == b.re || a.im == b.im || a.re == b.im || a.im == b.re;
}

/// Where the engine's passes work: in the destination, if its vectors are aligned and the source is elsewhere.
template <class T>
BlockArray<T> place_to_work(InterleavedArray<T> src, InterleavedArray<T> dst, T* work)
{
    return {is_aligned(dst.p) && !is_same(src, dst) ? dst.p : work};
}
template <class T>
BlockArray<T> place_to_work(SplitArray<T>, SplitArray<T>, T* work)
{
    return {work};
}

template <Direction d, class T, class Array, class Scale>
[[gnu::noinline]] void transform_by_road(const FftSpec<T>& spec, int order, Array src, Array dst, T* work, Scale scale)
{
    if (order < large_order<T>) {
        transform_by_passes<d>(src, dst, order, static_cast<const T*>(spec.tabTwd), spec.tabBitRev,
                               place_to_work(src, dst, work), scale);
    } else {
        large_transform<d>(spec, order, src, dst, is_same(src, dst), BlockArray<T>{work}, scale);
    }
}

} // namespace

template <Direction d, class Array>
const TinyKernels<Array>& tiny_kernels(bool scales)
{
    return scales ? kernels<d, Array, true> : kernels<d, Array, false>;
}

template <Direction d, class T, class Array>
void transform_with_tables(const FftSpec<T>& spec, int order, Array src, Array dst, T* work, bool scales)
{
    if (scales) transform_by_road<d>(spec, order, src, dst, work, spec.factor);
    else transform_by_road<d>(spec, order, src, dst, work, Unscaled());
}

template const TinyKernels<InterleavedArray<Orv32f>>& tiny_kernels<Direction::forward, InterleavedArray<Orv32f>>(bool);
template const TinyKernels<InterleavedArray<Orv32f>>& tiny_kernels<Direction::inverse, InterleavedArray<Orv32f>>(bool);
template const TinyKernels<InterleavedArray<Orv64f>>& tiny_kernels<Direction::forward, InterleavedArray<Orv64f>>(bool);
template const TinyKernels<InterleavedArray<Orv64f>>& tiny_kernels<Direction::inverse, InterleavedArray<Orv64f>>(bool);
template const TinyKernels<SplitArray<Orv32f>>& tiny_kernels<Direction::forward, SplitArray<Orv32f>>(bool);
template const TinyKernels<SplitArray<Orv32f>>& tiny_kernels<Direction::inverse, SplitArray<Orv32f>>(bool);
template const TinyKernels<SplitArray<Orv64f>>& tiny_kernels<Direction::forward, SplitArray<Orv64f>>(bool);
template const TinyKernels<SplitArray<Orv64f>>& tiny_kernels<Direction::inverse, SplitArray<Orv64f>>(bool);
template void transform_with_tables<Direction::forward>(const FftSpec<Orv32f>&, int, InterleavedArray<Orv32f>,
                                                        InterleavedArray<Orv32f>, Orv32f*, bool);
template void transform_with_tables<Direction::inverse>(const FftSpec<Orv32f>&, int, InterleavedArray<Orv32f>,
                                                        InterleavedArray<Orv32f>, Orv32f*, bool);
template void transform_with_tables<Direction::forward>(const FftSpec<Orv64f>&, int, InterleavedArray<Orv64f>,
                                                        InterleavedArray<Orv64f>, Orv64f*, bool);
template void transform_with_tables<Direction::inverse>(const FftSpec<Orv64f>&, int, InterleavedArray<Orv64f>,
                                                        InterleavedArray<Orv64f>, Orv64f*, bool);
template void transform_with_tables<Direction::forward>(const FftSpec<Orv32f>&, int, SplitArray<Orv32f>,
                                                        SplitArray<Orv32f>, Orv32f*, bool);
template void transform_with_tables<Direction::inverse>(const FftSpec<Orv32f>&, int, SplitArray<Orv32f>,
                                                        SplitArray<Orv32f>, Orv32f*, bool);
template void transform_with_tables<Direction::forward>(const FftSpec<Orv64f>&, int, SplitArray<Orv64f>,
                                                        SplitArray<Orv64f>, Orv64f*, bool);
template void transform_with_tables<Direction::inverse>(const FftSpec<Orv64f>&, int, SplitArray<Orv64f>,
                                                        SplitArray<Orv64f>, Orv64f*, bool);

} // namespace ORV_VARIANT
