// The complex transform inside all others.
#ifndef ORV_TRANSFORM_COMPLEX_TRANSFORM_H
#define ORV_TRANSFORM_COMPLEX_TRANSFORM_H

#include "frame/checks.h"
#include "orvs/frame.h"
#include "transform/layouts.h"
#include "transform/spec.h"
#include "transform/tables.h"

namespace ORV_VARIANT {

template <class T>
InterleavedArray<T> interleaved(const void* elements)
{
    return {static_cast<T*>(const_cast<void*>(elements))};
}
template <class T>
SplitArray<T> split_arrays(const T* re, const T* im)
{
    return {const_cast<T*>(re), const_cast<T*>(im)};
}

/// A kernel for one short length; factor multiplies where the kernel is for that.
template <class Array>
using TinyKernel = void (*)(Array src, Array dst, typename Array::value factor);
/// The kernels of orders 0 to 6.
template <class Array>
using TinyKernels = TinyKernel<Array>[engine_order];
template <Direction d, class Array>
const TinyKernels<Array>& tiny_kernels(bool scales);

/// dst = the transform of src, times the spec's factor if it scales; order >= engine_order, and the spec has the tables
/// of that order. dst may be src. work has the spec's workSize and is aligned.
template <Direction d, class T, class Array>
void transform_with_tables(const FftSpec<T>& spec, int order, Array src, Array dst, T* work, bool scales);

template <Direction d, class T>
bool scales(const FftSpec<T>& spec)
{
    return (d == Direction::forward ? spec.scaleFwd : spec.scaleInv) != 0;
}

/// The same below engine_order, in one pass and without tables.
template <Direction d, class T, class Array>
ORV_INLINE void transform_short(const FftSpec<T>& spec, int order, Array src, Array dst)
{
    tiny_kernels<d, Array>(scales<d>(spec))[order](src, dst, spec.factor);
}

/// The same of any order; work may be null where the spec has no workSize.
template <Direction d, class T, class Array>
void transform_complex(const FftSpec<T>& spec, int order, Array src, Array dst, T* work)
{
    if (order < engine_order) transform_short<d>(spec, order, src, dst);
    else transform_with_tables<d>(spec, order, src, dst, work, scales<d>(spec));
}

// ---- What every entry does

/// The checks of a transform in their order. has_null says whether an array is missing.
template <class Spec>
ORV_INLINE OrvStatus check_transform(const Spec* spec, bool has_null)
{
    if (!spec) return orvErrNullPointer;
    if (spec->id != Spec::identifier) return orvErrWrongContext;
    return has_null ? orvErrNullPointer : orvOk;
}

/// What a transform works in: the caller's buffer, or, if there is none, memory for the time of the call.
template <class T>
class WorkMemory {
public:
    WorkMemory(Orv8u* buffer, Orv32s size)
        : allocated_(!buffer && size > 0 ? orvsMalloc_8u(size) : nullptr),
          work_(buffer ? aligned(buffer) : allocated_),
          is_missing_(size > 0 && !work_)
    {}
    ~WorkMemory()
    {
        if (allocated_) orvsFree(allocated_);
    }
    WorkMemory(const WorkMemory&) = delete;
    WorkMemory& operator=(const WorkMemory&) = delete;

    bool is_missing() const { return is_missing_; }
    T* values() const { return reinterpret_cast<T*>(work_); }

private:
    Orv8u *allocated_, *work_;
    bool is_missing_;
};

/// f(spec, work).
template <class T, class F>
ORV_INLINE OrvStatus with_work(const FftSpec<T>& spec, Orv8u* buffer, F f)
{
    const WorkMemory<T> work(buffer, spec.workSize);
    if (work.is_missing()) return orvErrNoMemory;
    f(spec, work.values());
    return orvOk;
}

} // namespace ORV_VARIANT

#endif
