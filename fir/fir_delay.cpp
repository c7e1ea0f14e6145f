// The past of filters: setting and reading it.
#include "fir/delay.h"
#include "fir/engine.h"
#include "fir/integer_engine.h"
#include "frame/checks.h"

using namespace ORV_VARIANT;

namespace {

template <class Form, class State>
OrvStatus set_delay_of(State* state, const typename Form::Sample* dlyLine)
{
    if (any_null(state)) return orvErrNullPointer;
    auto* const s = record_of<Form>(state);
    if (!s) return orvErrWrongContext;
    set_delay(*s, dlyLine);
    return orvOk;
}

template <class Form, class State>
OrvStatus get_delay_of(const State* state, typename Form::Sample* dlyLine)
{
    if (any_null(state, dlyLine)) return orvErrNullPointer;
    const auto* const s = record_of<Form>(state);
    if (!s) return orvErrWrongContext;
    get_delay(*s, dlyLine);
    return orvOk;
}

} // namespace

// ---- SetDlyLine

OrvStatus orvsFIRSetDlyLine_32f(OrvsFIRState* state, const Orv32f* dlyLine)
{
    return set_delay_of<Fir_32f>(state, dlyLine);
}
OrvStatus orvsFIRSetDlyLine_32fc(OrvsFIRState* state, const Orv32fc* dlyLine)
{
    return set_delay_of<Fir_32fc>(state, dlyLine);
}
OrvStatus orvsFIRSetDlyLine_64f(OrvsFIRState* state, const Orv64f* dlyLine)
{
    return set_delay_of<Fir_64f>(state, dlyLine);
}
OrvStatus orvsFIRSetDlyLine_64fc(OrvsFIRState* state, const Orv64fc* dlyLine)
{
    return set_delay_of<Fir_64fc>(state, dlyLine);
}
OrvStatus orvsFIRSetDlyLine32f_16s(OrvsFIRState* state, const Orv16s* dlyLine)
{
    return set_delay_of<Fir32f_16s>(state, dlyLine);
}
OrvStatus orvsFIRSetDlyLine32fc_16sc(OrvsFIRState* state, const Orv16sc* dlyLine)
{
    return set_delay_of<Fir32fc_16sc>(state, dlyLine);
}
OrvStatus orvsFIRSetDlyLine64f_32f(OrvsFIRState* state, const Orv32f* dlyLine)
{
    return set_delay_of<Fir64f_32f>(state, dlyLine);
}
OrvStatus orvsFIRSetDlyLine64fc_32fc(OrvsFIRState* state, const Orv32fc* dlyLine)
{
    return set_delay_of<Fir64fc_32fc>(state, dlyLine);
}
OrvStatus orvsFIRSetDlyLine64f_32s(OrvsFIRState* state, const Orv32s* dlyLine)
{
    return set_delay_of<Fir64f_32s>(state, dlyLine);
}
OrvStatus orvsFIRSetDlyLine64fc_32sc(OrvsFIRState* state, const Orv32sc* dlyLine)
{
    return set_delay_of<Fir64fc_32sc>(state, dlyLine);
}
OrvStatus orvsFIRSetDlyLine64f_16s(OrvsFIRState* state, const Orv16s* dlyLine)
{
    return set_delay_of<Fir64f_16s>(state, dlyLine);
}
OrvStatus orvsFIRSetDlyLine64fc_16sc(OrvsFIRState* state, const Orv16sc* dlyLine)
{
    return set_delay_of<Fir64fc_16sc>(state, dlyLine);
}
OrvStatus orvsFIRSetDlyLine_16s(OrvsFIRState32s* state, const Orv16s* dlyLine)
{
    return set_delay_of<Fir_16s>(state, dlyLine);
}
OrvStatus orvsFIRSetDlyLine32s_16s(OrvsFIRState32s* state, const Orv16s* dlyLine)
{
    return set_delay_of<Fir32s_16s>(state, dlyLine);
}
OrvStatus orvsFIRSetDlyLine32sc_16sc(OrvsFIRState32s* state, const Orv16sc* dlyLine)
{
    return set_delay_of<Fir32sc_16sc>(state, dlyLine);
}

// ---- GetDlyLine

OrvStatus orvsFIRGetDlyLine_32f(const OrvsFIRState* state, Orv32f* dlyLine)
{
    return get_delay_of<Fir_32f>(state, dlyLine);
}
OrvStatus orvsFIRGetDlyLine_32fc(const OrvsFIRState* state, Orv32fc* dlyLine)
{
    return get_delay_of<Fir_32fc>(state, dlyLine);
}
OrvStatus orvsFIRGetDlyLine_64f(const OrvsFIRState* state, Orv64f* dlyLine)
{
    return get_delay_of<Fir_64f>(state, dlyLine);
}
OrvStatus orvsFIRGetDlyLine_64fc(const OrvsFIRState* state, Orv64fc* dlyLine)
{
    return get_delay_of<Fir_64fc>(state, dlyLine);
}
OrvStatus orvsFIRGetDlyLine32f_16s(const OrvsFIRState* state, Orv16s* dlyLine)
{
    return get_delay_of<Fir32f_16s>(state, dlyLine);
}
OrvStatus orvsFIRGetDlyLine32fc_16sc(const OrvsFIRState* state, Orv16sc* dlyLine)
{
    return get_delay_of<Fir32fc_16sc>(state, dlyLine);
}
OrvStatus orvsFIRGetDlyLine64f_32f(const OrvsFIRState* state, Orv32f* dlyLine)
{
    return get_delay_of<Fir64f_32f>(state, dlyLine);
}
OrvStatus orvsFIRGetDlyLine64fc_32fc(const OrvsFIRState* state, Orv32fc* dlyLine)
{
    return get_delay_of<Fir64fc_32fc>(state, dlyLine);
}
OrvStatus orvsFIRGetDlyLine64f_32s(const OrvsFIRState* state, Orv32s* dlyLine)
{
    return get_delay_of<Fir64f_32s>(state, dlyLine);
}
OrvStatus orvsFIRGetDlyLine64fc_32sc(const OrvsFIRState* state, Orv32sc* dlyLine)
{
    return get_delay_of<Fir64fc_32sc>(state, dlyLine);
}
OrvStatus orvsFIRGetDlyLine64f_16s(const OrvsFIRState* state, Orv16s* dlyLine)
{
    return get_delay_of<Fir64f_16s>(state, dlyLine);
}
OrvStatus orvsFIRGetDlyLine64fc_16sc(const OrvsFIRState* state, Orv16sc* dlyLine)
{
    return get_delay_of<Fir64fc_16sc>(state, dlyLine);
}
OrvStatus orvsFIRGetDlyLine_16s(const OrvsFIRState32s* state, Orv16s* dlyLine)
{
    return get_delay_of<Fir_16s>(state, dlyLine);
}
OrvStatus orvsFIRGetDlyLine32s_16s(const OrvsFIRState32s* state, Orv16s* dlyLine)
{
    return get_delay_of<Fir32s_16s>(state, dlyLine);
}
OrvStatus orvsFIRGetDlyLine32sc_16sc(const OrvsFIRState32s* state, Orv16sc* dlyLine)
{
    return get_delay_of<Fir32sc_16sc>(state, dlyLine);
}
