// Taps of filters: replacing and reading them.
#include "fir/integer_engine.h"
#include "fir/taps.h"
#include "frame/checks.h"
#include "simd/float.h"

using namespace ORV_VARIANT;

namespace {

template <class Form>
OrvStatus set_taps_of(const typename Form::Taps* taps, OrvsFIRState* state)
{
    if (any_null(taps, state)) return orvErrNullPointer;
    auto* const s = record_of<Form>(state);
    if (!s) return orvErrWrongContext;
    return set_taps(*s, taps);
}

template <class Form>
OrvStatus set_taps_of(const typename Form::Taps* taps, OrvsFIRState32s* state, int tapsFactor)
{
    if (any_null(taps, state)) return orvErrNullPointer;
    auto* const s = record_of<Form>(state);
    if (!s) return orvErrWrongContext;
    set_taps(*s, taps, tapsFactor);
    return orvOk;
}

template <class Form>
OrvStatus get_taps_of(const OrvsFIRState* state, typename Form::Taps* taps)
{
    if (any_null(state, taps)) return orvErrNullPointer;
    const auto* const s = record_of<Form>(state);
    if (!s) return orvErrWrongContext;
    from_compute(s->taps, taps, s->tapsLen, 0);
    return orvOk;
}

/// The stored taps in the order of the caller, each as convert makes it.
template <class Form, class Convert>
void copy_taps(const typename Form::Record& s, typename Form::Taps* taps, Convert convert)
{
    auto* const to = values(taps);
    const auto* const from = values(s.tapsTable);
    constexpr int unit = values_of<typename Form::Sample>;
    for (int k = 0; k < s.tapsLen; ++k) {
        for (int part = 0; part < unit; ++part) {
            put_element(to + k * unit + part, convert(from[(s.tapsLen - 1 - k) * unit + part]));
        }
    }
}

template <class Form>
OrvStatus get_taps_of(const OrvsFIRState32s* state, typename Form::Taps* taps, int* tapsFactor)
{
    if (any_null(state, taps, tapsFactor)) return orvErrNullPointer;
    const auto* const s = record_of<Form>(state);
    if (!s) return orvErrWrongContext;
    copy_taps<Form>(*s, taps, [](Orv16s tap) { return tap; });
    put_element(tapsFactor, s->tapsFactor);
    return orvOk;
}

template <class Form>
OrvStatus get_scaled_taps_of(const OrvsFIRState32s* state, typename Form::Taps* taps)
{
    if (any_null(state, taps)) return orvErrNullPointer;
    const auto* const s = record_of<Form>(state);
    if (!s) return orvErrWrongContext;
    const Orv32f factor = power_of_two<Orv32f>(s->tapsFactor);
    copy_taps<Form>(*s, taps, [=](Orv16s tap) { return Orv32f(tap) * factor; });
    return orvOk;
}

} // namespace

// ---- SetTaps

OrvStatus orvsFIRSetTaps_32f(const Orv32f* taps, OrvsFIRState* state) { return set_taps_of<Fir_32f>(taps, state); }
OrvStatus orvsFIRSetTaps_32fc(const Orv32fc* taps, OrvsFIRState* state) { return set_taps_of<Fir_32fc>(taps, state); }
OrvStatus orvsFIRSetTaps_64f(const Orv64f* taps, OrvsFIRState* state) { return set_taps_of<Fir_64f>(taps, state); }
OrvStatus orvsFIRSetTaps_64fc(const Orv64fc* taps, OrvsFIRState* state) { return set_taps_of<Fir_64fc>(taps, state); }
OrvStatus orvsFIRSetTaps32f_16s(const Orv32f* taps, OrvsFIRState* state)
{
    return set_taps_of<Fir32f_16s>(taps, state);
}
OrvStatus orvsFIRSetTaps32fc_16sc(const Orv32fc* taps, OrvsFIRState* state)
{
    return set_taps_of<Fir32fc_16sc>(taps, state);
}
OrvStatus orvsFIRSetTaps64f_32f(const Orv64f* taps, OrvsFIRState* state)
{
    return set_taps_of<Fir64f_32f>(taps, state);
}
OrvStatus orvsFIRSetTaps64fc_32fc(const Orv64fc* taps, OrvsFIRState* state)
{
    return set_taps_of<Fir64fc_32fc>(taps, state);
}
OrvStatus orvsFIRSetTaps64f_32s(const Orv64f* taps, OrvsFIRState* state)
{
    return set_taps_of<Fir64f_32s>(taps, state);
}
OrvStatus orvsFIRSetTaps64fc_32sc(const Orv64fc* taps, OrvsFIRState* state)
{
    return set_taps_of<Fir64fc_32sc>(taps, state);
}
OrvStatus orvsFIRSetTaps64f_16s(const Orv64f* taps, OrvsFIRState* state)
{
    return set_taps_of<Fir64f_16s>(taps, state);
}
OrvStatus orvsFIRSetTaps64fc_16sc(const Orv64fc* taps, OrvsFIRState* state)
{
    return set_taps_of<Fir64fc_16sc>(taps, state);
}
OrvStatus orvsFIRSetTaps_32s(const Orv32s* taps, OrvsFIRState* state) { return set_taps_of<Fir_32s>(taps, state); }
OrvStatus orvsFIRSetTaps_16s(const Orv16s* taps, OrvsFIRState32s* state, int tapsFactor)
{
    return set_taps_of<Fir_16s>(taps, state, tapsFactor);
}
OrvStatus orvsFIRSetTaps32s_16s(const Orv32s* taps, OrvsFIRState32s* state, int tapsFactor)
{
    return set_taps_of<Fir32s_16s>(taps, state, tapsFactor);
}
OrvStatus orvsFIRSetTaps32sc_16sc(const Orv32sc* taps, OrvsFIRState32s* state, int tapsFactor)
{
    return set_taps_of<Fir32sc_16sc>(taps, state, tapsFactor);
}
OrvStatus orvsFIRSetTaps32s_16s32f(const Orv32f* taps, OrvsFIRState32s* state)
{
    return set_taps_of<Fir32s_16s32f>(taps, state, 0);
}
OrvStatus orvsFIRSetTaps32sc_16sc32fc(const Orv32fc* taps, OrvsFIRState32s* state)
{
    return set_taps_of<Fir32sc_16sc32fc>(taps, state, 0);
}

// ---- GetTaps

OrvStatus orvsFIRGetTaps_32f(const OrvsFIRState* state, Orv32f* taps) { return get_taps_of<Fir_32f>(state, taps); }
OrvStatus orvsFIRGetTaps_32fc(const OrvsFIRState* state, Orv32fc* taps) { return get_taps_of<Fir_32fc>(state, taps); }
OrvStatus orvsFIRGetTaps_64f(const OrvsFIRState* state, Orv64f* taps) { return get_taps_of<Fir_64f>(state, taps); }
OrvStatus orvsFIRGetTaps_64fc(const OrvsFIRState* state, Orv64fc* taps) { return get_taps_of<Fir_64fc>(state, taps); }
OrvStatus orvsFIRGetTaps32f_16s(const OrvsFIRState* state, Orv32f* taps)
{
    return get_taps_of<Fir32f_16s>(state, taps);
}
OrvStatus orvsFIRGetTaps32fc_16sc(const OrvsFIRState* state, Orv32fc* taps)
{
    return get_taps_of<Fir32fc_16sc>(state, taps);
}
OrvStatus orvsFIRGetTaps64f_32f(const OrvsFIRState* state, Orv64f* taps)
{
    return get_taps_of<Fir64f_32f>(state, taps);
}
OrvStatus orvsFIRGetTaps64fc_32fc(const OrvsFIRState* state, Orv64fc* taps)
{
    return get_taps_of<Fir64fc_32fc>(state, taps);
}
OrvStatus orvsFIRGetTaps64f_32s(const OrvsFIRState* state, Orv64f* taps)
{
    return get_taps_of<Fir64f_32s>(state, taps);
}
OrvStatus orvsFIRGetTaps64fc_32sc(const OrvsFIRState* state, Orv64fc* taps)
{
    return get_taps_of<Fir64fc_32sc>(state, taps);
}
OrvStatus orvsFIRGetTaps64f_16s(const OrvsFIRState* state, Orv64f* taps)
{
    return get_taps_of<Fir64f_16s>(state, taps);
}
OrvStatus orvsFIRGetTaps64fc_16sc(const OrvsFIRState* state, Orv64fc* taps)
{
    return get_taps_of<Fir64fc_16sc>(state, taps);
}
OrvStatus orvsFIRGetTaps_32s(const OrvsFIRState* state, Orv32s* taps) { return get_taps_of<Fir_32s>(state, taps); }
OrvStatus orvsFIRGetTaps_16s(const OrvsFIRState32s* state, Orv16s* taps, int* tapsFactor)
{
    return get_taps_of<Fir_16s>(state, taps, tapsFactor);
}
OrvStatus orvsFIRGetTaps32s_16s(const OrvsFIRState32s* state, Orv32s* taps, int* tapsFactor)
{
    return get_taps_of<Fir32s_16s>(state, taps, tapsFactor);
}
OrvStatus orvsFIRGetTaps32sc_16sc(const OrvsFIRState32s* state, Orv32sc* taps, int* tapsFactor)
{
    return get_taps_of<Fir32sc_16sc>(state, taps, tapsFactor);
}
OrvStatus orvsFIRGetTaps32s_16s32f(const OrvsFIRState32s* state, Orv32f* taps)
{
    return get_scaled_taps_of<Fir32s_16s32f>(state, taps);
}
OrvStatus orvsFIRGetTaps32sc_16sc32fc(const OrvsFIRState32s* state, Orv32fc* taps)
{
    return get_scaled_taps_of<Fir32sc_16sc32fc>(state, taps);
}
