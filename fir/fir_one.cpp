// The next sample of a stream.
#include "fir/dot.h"
#include "fir/engine.h"
#include "fir/integer_dot.h"
#include "fir/integer_engine.h"
#include "fir/samples.h"
#include "frame/checks.h"

using namespace ORV_VARIANT;

namespace {

/// Stores the sample twice, so that the past is contiguous wherever it begins. Returns the window that ends with it.
template <class Record, class T>
ORV_INLINE const T* push(Record& s, T sample)
{
    T* const at = s.dlyLine + s.dlyIndex;
    at[0] = at[s.tapsLen] = sample;
    s.dlyIndex = s.dlyIndex + 1 < s.tapsLen ? s.dlyIndex + 1 : 0;
    return s.dlyLine + s.dlyIndex;
}

template <class Form, class Sample>
ORV_INLINE OrvStatus filter_one(Sample src, Sample* dst, OrvsFIRState* state, int scale = 0)
{
    using T = typename Form::Compute;
    if (any_null(dst, state)) return orvErrNullPointer;
    auto* const s = record_of<Form>(state);
    if (!s) return orvErrWrongContext;
    T input;
    if constexpr (std::is_same_v<Sample, T>) input = src;
    else to_compute(&src, &input, 1);
    const T* const window = push(*s, input);
    const T output = window_sum(s->tapsTable, window, s->tapsLen, input);
    if constexpr (std::is_same_v<Sample, T>) put_element(dst, output);
    else from_compute(&output, dst, 1, scale);
    return orvOk;
}

template <class Form, class Sample>
ORV_INLINE OrvStatus filter_one(Sample src, Sample* dst, OrvsFIRState32s* state, int scale)
{
    if (any_null(dst, state)) return orvErrNullPointer;
    auto* const s = record_of<Form>(state);
    if (!s) return orvErrWrongContext;
    const Sample* const window = push(*s, src);
    const auto sum = window_sum(s->tapsTable, window, s->tapsLen, src);
    put_element(dst, SumShift(s->tapsFactor, scale)(sum));
    return orvOk;
}

} // namespace

OrvStatus orvsFIROne_32f(Orv32f src, Orv32f* dst, OrvsFIRState* state) { return filter_one<Fir_32f>(src, dst, state); }
OrvStatus orvsFIROne_32fc(Orv32fc src, Orv32fc* dst, OrvsFIRState* state)
{
    return filter_one<Fir_32fc>(src, dst, state);
}
OrvStatus orvsFIROne_64f(Orv64f src, Orv64f* dst, OrvsFIRState* state) { return filter_one<Fir_64f>(src, dst, state); }
OrvStatus orvsFIROne_64fc(Orv64fc src, Orv64fc* dst, OrvsFIRState* state)
{
    return filter_one<Fir_64fc>(src, dst, state);
}
OrvStatus orvsFIROne32f_16s_Sfs(Orv16s src, Orv16s* dst, OrvsFIRState* state, int scale)
{
    return filter_one<Fir32f_16s>(src, dst, state, scale);
}
OrvStatus orvsFIROne32fc_16sc_Sfs(Orv16sc src, Orv16sc* dst, OrvsFIRState* state, int scale)
{
    return filter_one<Fir32fc_16sc>(src, dst, state, scale);
}
OrvStatus orvsFIROne64f_32f(Orv32f src, Orv32f* dst, OrvsFIRState* state)
{
    return filter_one<Fir64f_32f>(src, dst, state);
}
OrvStatus orvsFIROne64fc_32fc(Orv32fc src, Orv32fc* dst, OrvsFIRState* state)
{
    return filter_one<Fir64fc_32fc>(src, dst, state);
}
OrvStatus orvsFIROne64f_32s_Sfs(Orv32s src, Orv32s* dst, OrvsFIRState* state, int scale)
{
    return filter_one<Fir64f_32s>(src, dst, state, scale);
}
OrvStatus orvsFIROne64fc_32sc_Sfs(Orv32sc src, Orv32sc* dst, OrvsFIRState* state, int scale)
{
    return filter_one<Fir64fc_32sc>(src, dst, state, scale);
}
OrvStatus orvsFIROne64f_16s_Sfs(Orv16s src, Orv16s* dst, OrvsFIRState* state, int scale)
{
    return filter_one<Fir64f_16s>(src, dst, state, scale);
}
OrvStatus orvsFIROne64fc_16sc_Sfs(Orv16sc src, Orv16sc* dst, OrvsFIRState* state, int scale)
{
    return filter_one<Fir64fc_16sc>(src, dst, state, scale);
}
OrvStatus orvsFIROne_32s_Sfs(Orv32s src, Orv32s* dst, OrvsFIRState* state, int scale)
{
    return filter_one<Fir_32s>(src, dst, state, scale);
}
OrvStatus orvsFIROne_16s_Sfs(Orv16s src, Orv16s* dst, OrvsFIRState32s* state, int scale)
{
    return filter_one<Fir_16s>(src, dst, state, scale);
}
OrvStatus orvsFIROne32s_16s_Sfs(Orv16s src, Orv16s* dst, OrvsFIRState32s* state, int scale)
{
    return filter_one<Fir32s_16s>(src, dst, state, scale);
}
OrvStatus orvsFIROne32sc_16sc_Sfs(Orv16sc src, Orv16sc* dst, OrvsFIRState32s* state, int scale)
{
    return filter_one<Fir32sc_16sc>(src, dst, state, scale);
}
