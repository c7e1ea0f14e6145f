// The next block of a stream.
#include "fir/filter.h"
#include "fir/integer_engine.h"

using namespace ORV_VARIANT;

namespace {

/// State is that of floating or of integer filters.
template <class Form, class State>
OrvStatus filter(const typename Form::Sample* src, typename Form::Sample* dst, int len, State* state, int scale = 0)
{
    if (const OrvStatus bad = check(len, state, src, dst)) return bad;
    auto* const s = record_of<Form>(state);
    if (!s) return orvErrWrongContext;
    return filter_stream<Form>(*s, src, dst, len, scale);
}

} // namespace

// ---- From src to dst

OrvStatus orvsFIR_32f(const Orv32f* src, Orv32f* dst, int len, OrvsFIRState* state)
{
    return filter<Fir_32f>(src, dst, len, state);
}
OrvStatus orvsFIR_32fc(const Orv32fc* src, Orv32fc* dst, int len, OrvsFIRState* state)
{
    return filter<Fir_32fc>(src, dst, len, state);
}
OrvStatus orvsFIR_64f(const Orv64f* src, Orv64f* dst, int len, OrvsFIRState* state)
{
    return filter<Fir_64f>(src, dst, len, state);
}
OrvStatus orvsFIR_64fc(const Orv64fc* src, Orv64fc* dst, int len, OrvsFIRState* state)
{
    return filter<Fir_64fc>(src, dst, len, state);
}
OrvStatus orvsFIR32f_16s_Sfs(const Orv16s* src, Orv16s* dst, int len, OrvsFIRState* state, int scale)
{
    return filter<Fir32f_16s>(src, dst, len, state, scale);
}
OrvStatus orvsFIR32fc_16sc_Sfs(const Orv16sc* src, Orv16sc* dst, int len, OrvsFIRState* state, int scale)
{
    return filter<Fir32fc_16sc>(src, dst, len, state, scale);
}
OrvStatus orvsFIR64f_32f(const Orv32f* src, Orv32f* dst, int len, OrvsFIRState* state)
{
    return filter<Fir64f_32f>(src, dst, len, state);
}
OrvStatus orvsFIR64fc_32fc(const Orv32fc* src, Orv32fc* dst, int len, OrvsFIRState* state)
{
    return filter<Fir64fc_32fc>(src, dst, len, state);
}
OrvStatus orvsFIR64f_32s_Sfs(const Orv32s* src, Orv32s* dst, int len, OrvsFIRState* state, int scale)
{
    return filter<Fir64f_32s>(src, dst, len, state, scale);
}
OrvStatus orvsFIR64fc_32sc_Sfs(const Orv32sc* src, Orv32sc* dst, int len, OrvsFIRState* state, int scale)
{
    return filter<Fir64fc_32sc>(src, dst, len, state, scale);
}
OrvStatus orvsFIR64f_16s_Sfs(const Orv16s* src, Orv16s* dst, int len, OrvsFIRState* state, int scale)
{
    return filter<Fir64f_16s>(src, dst, len, state, scale);
}
OrvStatus orvsFIR64fc_16sc_Sfs(const Orv16sc* src, Orv16sc* dst, int len, OrvsFIRState* state, int scale)
{
    return filter<Fir64fc_16sc>(src, dst, len, state, scale);
}
OrvStatus orvsFIR_32s_Sfs(const Orv32s* src, Orv32s* dst, int len, OrvsFIRState* state, int scale)
{
    return filter<Fir_32s>(src, dst, len, state, scale);
}
OrvStatus orvsFIR_16s_Sfs(const Orv16s* src, Orv16s* dst, int len, OrvsFIRState32s* state, int scale)
{
    return filter<Fir_16s>(src, dst, len, state, scale);
}
OrvStatus orvsFIR32s_16s_Sfs(const Orv16s* src, Orv16s* dst, int len, OrvsFIRState32s* state, int scale)
{
    return filter<Fir32s_16s>(src, dst, len, state, scale);
}
OrvStatus orvsFIR32sc_16sc_Sfs(const Orv16sc* src, Orv16sc* dst, int len, OrvsFIRState32s* state, int scale)
{
    return filter<Fir32sc_16sc>(src, dst, len, state, scale);
}

// ---- In place

OrvStatus orvsFIR_32f_I(Orv32f* srcDst, int len, OrvsFIRState* state)
{
    return filter<Fir_32f>(srcDst, srcDst, len, state);
}
OrvStatus orvsFIR_32fc_I(Orv32fc* srcDst, int len, OrvsFIRState* state)
{
    return filter<Fir_32fc>(srcDst, srcDst, len, state);
}
OrvStatus orvsFIR_64f_I(Orv64f* srcDst, int len, OrvsFIRState* state)
{
    return filter<Fir_64f>(srcDst, srcDst, len, state);
}
OrvStatus orvsFIR_64fc_I(Orv64fc* srcDst, int len, OrvsFIRState* state)
{
    return filter<Fir_64fc>(srcDst, srcDst, len, state);
}
OrvStatus orvsFIR32f_16s_ISfs(Orv16s* srcDst, int len, OrvsFIRState* state, int scale)
{
    return filter<Fir32f_16s>(srcDst, srcDst, len, state, scale);
}
OrvStatus orvsFIR32fc_16sc_ISfs(Orv16sc* srcDst, int len, OrvsFIRState* state, int scale)
{
    return filter<Fir32fc_16sc>(srcDst, srcDst, len, state, scale);
}
OrvStatus orvsFIR64f_32f_I(Orv32f* srcDst, int len, OrvsFIRState* state)
{
    return filter<Fir64f_32f>(srcDst, srcDst, len, state);
}
OrvStatus orvsFIR64fc_32fc_I(Orv32fc* srcDst, int len, OrvsFIRState* state)
{
    return filter<Fir64fc_32fc>(srcDst, srcDst, len, state);
}
OrvStatus orvsFIR64f_32s_ISfs(Orv32s* srcDst, int len, OrvsFIRState* state, int scale)
{
    return filter<Fir64f_32s>(srcDst, srcDst, len, state, scale);
}
OrvStatus orvsFIR64fc_32sc_ISfs(Orv32sc* srcDst, int len, OrvsFIRState* state, int scale)
{
    return filter<Fir64fc_32sc>(srcDst, srcDst, len, state, scale);
}
OrvStatus orvsFIR64f_16s_ISfs(Orv16s* srcDst, int len, OrvsFIRState* state, int scale)
{
    return filter<Fir64f_16s>(srcDst, srcDst, len, state, scale);
}
OrvStatus orvsFIR64fc_16sc_ISfs(Orv16sc* srcDst, int len, OrvsFIRState* state, int scale)
{
    return filter<Fir64fc_16sc>(srcDst, srcDst, len, state, scale);
}
OrvStatus orvsFIR_32s_ISfs(Orv32s* srcDst, int len, OrvsFIRState* state, int scale)
{
    return filter<Fir_32s>(srcDst, srcDst, len, state, scale);
}
OrvStatus orvsFIR_16s_ISfs(Orv16s* srcDst, int len, OrvsFIRState32s* state, int scale)
{
    return filter<Fir_16s>(srcDst, srcDst, len, state, scale);
}
OrvStatus orvsFIR32s_16s_ISfs(Orv16s* srcDst, int len, OrvsFIRState32s* state, int scale)
{
    return filter<Fir32s_16s>(srcDst, srcDst, len, state, scale);
}
OrvStatus orvsFIR32sc_16sc_ISfs(Orv16sc* srcDst, int len, OrvsFIRState32s* state, int scale)
{
    return filter<Fir32sc_16sc>(srcDst, srcDst, len, state, scale);
}
