// The life of filters.
#include "fir/build.h"
#include "fir/integer_build.h"
#include "frame/checks.h"
#include "orvs/frame.h"

using namespace ORV_VARIANT;

namespace {

// ---- Floating filters

template <class Form>
OrvStatus get_state_size(int tapsLen, int* size)
{
    if (any_null(size)) return orvErrNullPointer;
    if (tapsLen < 1) return orvErrBadFirLength;
    const Needs<Form> needs(tapsLen);
    if (needs.bytes > largest_size) return orvErrBadFirLength;
    *size = int(needs.bytes);
    return orvOk;
}

template <class Form>
OrvStatus init(OrvsFIRState** state, const typename Form::Taps* taps, int tapsLen, const typename Form::Sample* dlyLine,
               Orv8u* buffer)
{
    using T = typename Form::Compute;
    if (any_null(state, taps, buffer)) return orvErrNullPointer;
    if (tapsLen < 1) return orvErrBadFirLength;

    const Needs<Form> needs(tapsLen);
    auto& s = lay_out<T>(buffer, Form::id, tapsLen, needs.fft, needs.threads, false);
    set_delay(s, dlyLine);
    set_taps(s, taps); // without the FFT if it fails
    *state = &s;
    return orvOk;
}

template <class Form>
OrvStatus init_alloc(OrvsFIRState** state, const typename Form::Taps* taps, int tapsLen,
                     const typename Form::Sample* dlyLine)
{
    using T = typename Form::Compute;
    if (any_null(state, taps)) return orvErrNullPointer;
    if (tapsLen < 1) return orvErrBadFirLength;

    FirState<T>* s;
    if (const OrvStatus bad = allocate<Form>(&s, tapsLen)) return bad;
    set_delay(*s, dlyLine);
    set_taps(*s, taps);
    *state = s;
    return orvOk;
}

// ---- Integer filters

template <class Form>
OrvStatus get_integer_state_size(int tapsLen, int* size)
{
    if (any_null(size)) return orvErrNullPointer;
    if (tapsLen < 1) return orvErrBadFirLength;
    const Orv64s bytes = integer_record_bytes<Form>(tapsLen);
    if (bytes > largest_size) return orvErrBadFirLength;
    *size = int(bytes);
    return orvOk;
}

template <class Form>
OrvStatus init(OrvsFIRState32s** state, const typename Form::Taps* taps, int tapsLen, int tapsFactor,
               const typename Form::Sample* dlyLine, Orv8u* buffer)
{
    if (any_null(state, taps, buffer)) return orvErrNullPointer;
    if (tapsLen < 1) return orvErrBadFirLength;
    auto& s = lay_out<Form>(buffer, tapsLen);
    set_delay(s, dlyLine);
    set_taps(s, taps, tapsFactor);
    *state = &s;
    return orvOk;
}

template <class Form>
OrvStatus init_alloc(OrvsFIRState32s** state, const typename Form::Taps* taps, int tapsLen, int tapsFactor,
                     const typename Form::Sample* dlyLine)
{
    if (any_null(state, taps)) return orvErrNullPointer;
    int bytes;
    if (const OrvStatus bad = get_integer_state_size<Form>(tapsLen, &bytes)) return bad;
    Orv8u* const block = orvsMalloc_8u(bytes);
    if (!block) return orvErrNoMemory;
    auto& s = lay_out<Form>(block, tapsLen);
    set_delay(s, dlyLine);
    set_taps(s, taps, tapsFactor);
    s.allocated = 1;
    *state = &s;
    return orvOk;
}

// ---- Both

template <class Form, class State>
OrvStatus free_filter(State* state)
{
    if (any_null(state)) return orvErrNullPointer;
    auto* const s = record_of<Form>(state);
    if (!s) return orvErrWrongContext;
    if (s->allocated) release(s);
    return orvOk;
}

} // namespace

// ---- GetStateSize

OrvStatus orvsFIRGetStateSize_32f(int tapsLen, int* size) { return get_state_size<Fir_32f>(tapsLen, size); }
OrvStatus orvsFIRGetStateSize_32fc(int tapsLen, int* size) { return get_state_size<Fir_32fc>(tapsLen, size); }
OrvStatus orvsFIRGetStateSize_64f(int tapsLen, int* size) { return get_state_size<Fir_64f>(tapsLen, size); }
OrvStatus orvsFIRGetStateSize_64fc(int tapsLen, int* size) { return get_state_size<Fir_64fc>(tapsLen, size); }
OrvStatus orvsFIRGetStateSize32f_16s(int tapsLen, int* size) { return get_state_size<Fir32f_16s>(tapsLen, size); }
OrvStatus orvsFIRGetStateSize32fc_16sc(int tapsLen, int* size) { return get_state_size<Fir32fc_16sc>(tapsLen, size); }
OrvStatus orvsFIRGetStateSize64f_32f(int tapsLen, int* size) { return get_state_size<Fir64f_32f>(tapsLen, size); }
OrvStatus orvsFIRGetStateSize64fc_32fc(int tapsLen, int* size) { return get_state_size<Fir64fc_32fc>(tapsLen, size); }
OrvStatus orvsFIRGetStateSize64f_32s(int tapsLen, int* size) { return get_state_size<Fir64f_32s>(tapsLen, size); }
OrvStatus orvsFIRGetStateSize64fc_32sc(int tapsLen, int* size) { return get_state_size<Fir64fc_32sc>(tapsLen, size); }
OrvStatus orvsFIRGetStateSize64f_16s(int tapsLen, int* size) { return get_state_size<Fir64f_16s>(tapsLen, size); }
OrvStatus orvsFIRGetStateSize64fc_16sc(int tapsLen, int* size) { return get_state_size<Fir64fc_16sc>(tapsLen, size); }
OrvStatus orvsFIRGetStateSize_32s(int tapsLen, int* size) { return get_state_size<Fir_32s>(tapsLen, size); }
OrvStatus orvsFIRGetStateSize_16s(int tapsLen, int* size) { return get_integer_state_size<Fir_16s>(tapsLen, size); }
OrvStatus orvsFIRGetStateSize32s_16s(int tapsLen, int* size)
{
    return get_integer_state_size<Fir32s_16s>(tapsLen, size);
}
OrvStatus orvsFIRGetStateSize32sc_16sc(int tapsLen, int* size)
{
    return get_integer_state_size<Fir32sc_16sc>(tapsLen, size);
}
OrvStatus orvsFIRGetStateSize32s_16s32f(int tapsLen, int* size)
{
    return get_integer_state_size<Fir32s_16s32f>(tapsLen, size);
}
OrvStatus orvsFIRGetStateSize32sc_16sc32fc(int tapsLen, int* size)
{
    return get_integer_state_size<Fir32sc_16sc32fc>(tapsLen, size);
}

// ---- Init

OrvStatus orvsFIRInit_32f(OrvsFIRState** state, const Orv32f* taps, int tapsLen, const Orv32f* dlyLine, Orv8u* buffer)
{
    return init<Fir_32f>(state, taps, tapsLen, dlyLine, buffer);
}
OrvStatus orvsFIRInit_32fc(OrvsFIRState** state, const Orv32fc* taps, int tapsLen, const Orv32fc* dlyLine,
                           Orv8u* buffer)
{
    return init<Fir_32fc>(state, taps, tapsLen, dlyLine, buffer);
}
OrvStatus orvsFIRInit_64f(OrvsFIRState** state, const Orv64f* taps, int tapsLen, const Orv64f* dlyLine, Orv8u* buffer)
{
    return init<Fir_64f>(state, taps, tapsLen, dlyLine, buffer);
}
OrvStatus orvsFIRInit_64fc(OrvsFIRState** state, const Orv64fc* taps, int tapsLen, const Orv64fc* dlyLine,
                           Orv8u* buffer)
{
    return init<Fir_64fc>(state, taps, tapsLen, dlyLine, buffer);
}
OrvStatus orvsFIRInit32f_16s(OrvsFIRState** state, const Orv32f* taps, int tapsLen, const Orv16s* dlyLine,
                             Orv8u* buffer)
{
    return init<Fir32f_16s>(state, taps, tapsLen, dlyLine, buffer);
}
OrvStatus orvsFIRInit32fc_16sc(OrvsFIRState** state, const Orv32fc* taps, int tapsLen, const Orv16sc* dlyLine,
                               Orv8u* buffer)
{
    return init<Fir32fc_16sc>(state, taps, tapsLen, dlyLine, buffer);
}
OrvStatus orvsFIRInit64f_32f(OrvsFIRState** state, const Orv64f* taps, int tapsLen, const Orv32f* dlyLine,
                             Orv8u* buffer)
{
    return init<Fir64f_32f>(state, taps, tapsLen, dlyLine, buffer);
}
OrvStatus orvsFIRInit64fc_32fc(OrvsFIRState** state, const Orv64fc* taps, int tapsLen, const Orv32fc* dlyLine,
                               Orv8u* buffer)
{
    return init<Fir64fc_32fc>(state, taps, tapsLen, dlyLine, buffer);
}
OrvStatus orvsFIRInit64f_32s(OrvsFIRState** state, const Orv64f* taps, int tapsLen, const Orv32s* dlyLine,
                             Orv8u* buffer)
{
    return init<Fir64f_32s>(state, taps, tapsLen, dlyLine, buffer);
}
OrvStatus orvsFIRInit64fc_32sc(OrvsFIRState** state, const Orv64fc* taps, int tapsLen, const Orv32sc* dlyLine,
                               Orv8u* buffer)
{
    return init<Fir64fc_32sc>(state, taps, tapsLen, dlyLine, buffer);
}
OrvStatus orvsFIRInit64f_16s(OrvsFIRState** state, const Orv64f* taps, int tapsLen, const Orv16s* dlyLine,
                             Orv8u* buffer)
{
    return init<Fir64f_16s>(state, taps, tapsLen, dlyLine, buffer);
}
OrvStatus orvsFIRInit64fc_16sc(OrvsFIRState** state, const Orv64fc* taps, int tapsLen, const Orv16sc* dlyLine,
                               Orv8u* buffer)
{
    return init<Fir64fc_16sc>(state, taps, tapsLen, dlyLine, buffer);
}
OrvStatus orvsFIRInit_32s(OrvsFIRState** state, const Orv32s* taps, int tapsLen, const Orv32s* dlyLine, Orv8u* buffer)
{
    return init<Fir_32s>(state, taps, tapsLen, dlyLine, buffer);
}
OrvStatus orvsFIRInit_16s(OrvsFIRState32s** state, const Orv16s* taps, int tapsLen, int tapsFactor,
                          const Orv16s* dlyLine, Orv8u* buffer)
{
    return init<Fir_16s>(state, taps, tapsLen, tapsFactor, dlyLine, buffer);
}
OrvStatus orvsFIRInit32s_16s(OrvsFIRState32s** state, const Orv32s* taps, int tapsLen, int tapsFactor,
                             const Orv16s* dlyLine, Orv8u* buffer)
{
    return init<Fir32s_16s>(state, taps, tapsLen, tapsFactor, dlyLine, buffer);
}
OrvStatus orvsFIRInit32sc_16sc(OrvsFIRState32s** state, const Orv32sc* taps, int tapsLen, int tapsFactor,
                               const Orv16sc* dlyLine, Orv8u* buffer)
{
    return init<Fir32sc_16sc>(state, taps, tapsLen, tapsFactor, dlyLine, buffer);
}
OrvStatus orvsFIRInit32s_16s32f(OrvsFIRState32s** state, const Orv32f* taps, int tapsLen, const Orv16s* dlyLine,
                                Orv8u* buffer)
{
    return init<Fir32s_16s32f>(state, taps, tapsLen, 0, dlyLine, buffer);
}
OrvStatus orvsFIRInit32sc_16sc32fc(OrvsFIRState32s** state, const Orv32fc* taps, int tapsLen, const Orv16sc* dlyLine,
                                   Orv8u* buffer)
{
    return init<Fir32sc_16sc32fc>(state, taps, tapsLen, 0, dlyLine, buffer);
}

// ---- InitAlloc

OrvStatus orvsFIRInitAlloc_32f(OrvsFIRState** state, const Orv32f* taps, int tapsLen, const Orv32f* dlyLine)
{
    return init_alloc<Fir_32f>(state, taps, tapsLen, dlyLine);
}
OrvStatus orvsFIRInitAlloc_32fc(OrvsFIRState** state, const Orv32fc* taps, int tapsLen, const Orv32fc* dlyLine)
{
    return init_alloc<Fir_32fc>(state, taps, tapsLen, dlyLine);
}
OrvStatus orvsFIRInitAlloc_64f(OrvsFIRState** state, const Orv64f* taps, int tapsLen, const Orv64f* dlyLine)
{
    return init_alloc<Fir_64f>(state, taps, tapsLen, dlyLine);
}
OrvStatus orvsFIRInitAlloc_64fc(OrvsFIRState** state, const Orv64fc* taps, int tapsLen, const Orv64fc* dlyLine)
{
    return init_alloc<Fir_64fc>(state, taps, tapsLen, dlyLine);
}
OrvStatus orvsFIRInitAlloc32f_16s(OrvsFIRState** state, const Orv32f* taps, int tapsLen, const Orv16s* dlyLine)
{
    return init_alloc<Fir32f_16s>(state, taps, tapsLen, dlyLine);
}
OrvStatus orvsFIRInitAlloc32fc_16sc(OrvsFIRState** state, const Orv32fc* taps, int tapsLen, const Orv16sc* dlyLine)
{
    return init_alloc<Fir32fc_16sc>(state, taps, tapsLen, dlyLine);
}
OrvStatus orvsFIRInitAlloc64f_32f(OrvsFIRState** state, const Orv64f* taps, int tapsLen, const Orv32f* dlyLine)
{
    return init_alloc<Fir64f_32f>(state, taps, tapsLen, dlyLine);
}
OrvStatus orvsFIRInitAlloc64fc_32fc(OrvsFIRState** state, const Orv64fc* taps, int tapsLen, const Orv32fc* dlyLine)
{
    return init_alloc<Fir64fc_32fc>(state, taps, tapsLen, dlyLine);
}
OrvStatus orvsFIRInitAlloc64f_32s(OrvsFIRState** state, const Orv64f* taps, int tapsLen, const Orv32s* dlyLine)
{
    return init_alloc<Fir64f_32s>(state, taps, tapsLen, dlyLine);
}
OrvStatus orvsFIRInitAlloc64fc_32sc(OrvsFIRState** state, const Orv64fc* taps, int tapsLen, const Orv32sc* dlyLine)
{
    return init_alloc<Fir64fc_32sc>(state, taps, tapsLen, dlyLine);
}
OrvStatus orvsFIRInitAlloc64f_16s(OrvsFIRState** state, const Orv64f* taps, int tapsLen, const Orv16s* dlyLine)
{
    return init_alloc<Fir64f_16s>(state, taps, tapsLen, dlyLine);
}
OrvStatus orvsFIRInitAlloc64fc_16sc(OrvsFIRState** state, const Orv64fc* taps, int tapsLen, const Orv16sc* dlyLine)
{
    return init_alloc<Fir64fc_16sc>(state, taps, tapsLen, dlyLine);
}
OrvStatus orvsFIRInitAlloc_32s(OrvsFIRState** state, const Orv32s* taps, int tapsLen, const Orv32s* dlyLine)
{
    return init_alloc<Fir_32s>(state, taps, tapsLen, dlyLine);
}
OrvStatus orvsFIRInitAlloc_16s(OrvsFIRState32s** state, const Orv16s* taps, int tapsLen, int tapsFactor,
                               const Orv16s* dlyLine)
{
    return init_alloc<Fir_16s>(state, taps, tapsLen, tapsFactor, dlyLine);
}
OrvStatus orvsFIRInitAlloc32s_16s(OrvsFIRState32s** state, const Orv32s* taps, int tapsLen, int tapsFactor,
                                  const Orv16s* dlyLine)
{
    return init_alloc<Fir32s_16s>(state, taps, tapsLen, tapsFactor, dlyLine);
}
OrvStatus orvsFIRInitAlloc32sc_16sc(OrvsFIRState32s** state, const Orv32sc* taps, int tapsLen, int tapsFactor,
                                    const Orv16sc* dlyLine)
{
    return init_alloc<Fir32sc_16sc>(state, taps, tapsLen, tapsFactor, dlyLine);
}
OrvStatus orvsFIRInitAlloc32s_16s32f(OrvsFIRState32s** state, const Orv32f* taps, int tapsLen, const Orv16s* dlyLine)
{
    return init_alloc<Fir32s_16s32f>(state, taps, tapsLen, 0, dlyLine);
}
OrvStatus orvsFIRInitAlloc32sc_16sc32fc(OrvsFIRState32s** state, const Orv32fc* taps, int tapsLen,
                                        const Orv16sc* dlyLine)
{
    return init_alloc<Fir32sc_16sc32fc>(state, taps, tapsLen, 0, dlyLine);
}

// ---- Free

OrvStatus orvsFIRFree_32f(OrvsFIRState* state) { return free_filter<Fir_32f>(state); }
OrvStatus orvsFIRFree_32fc(OrvsFIRState* state) { return free_filter<Fir_32fc>(state); }
OrvStatus orvsFIRFree_64f(OrvsFIRState* state) { return free_filter<Fir_64f>(state); }
OrvStatus orvsFIRFree_64fc(OrvsFIRState* state) { return free_filter<Fir_64fc>(state); }
OrvStatus orvsFIRFree32f_16s(OrvsFIRState* state) { return free_filter<Fir32f_16s>(state); }
OrvStatus orvsFIRFree32fc_16sc(OrvsFIRState* state) { return free_filter<Fir32fc_16sc>(state); }
OrvStatus orvsFIRFree64f_32f(OrvsFIRState* state) { return free_filter<Fir64f_32f>(state); }
OrvStatus orvsFIRFree64fc_32fc(OrvsFIRState* state) { return free_filter<Fir64fc_32fc>(state); }
OrvStatus orvsFIRFree64f_32s(OrvsFIRState* state) { return free_filter<Fir64f_32s>(state); }
OrvStatus orvsFIRFree64fc_32sc(OrvsFIRState* state) { return free_filter<Fir64fc_32sc>(state); }
OrvStatus orvsFIRFree64f_16s(OrvsFIRState* state) { return free_filter<Fir64f_16s>(state); }
OrvStatus orvsFIRFree64fc_16sc(OrvsFIRState* state) { return free_filter<Fir64fc_16sc>(state); }
OrvStatus orvsFIRFree_32s(OrvsFIRState* state) { return free_filter<Fir_32s>(state); }
OrvStatus orvsFIRFree_16s(OrvsFIRState32s* state) { return free_filter<Fir_16s>(state); }
OrvStatus orvsFIRFree32s_16s(OrvsFIRState32s* state) { return free_filter<Fir32s_16s>(state); }
OrvStatus orvsFIRFree32sc_16sc(OrvsFIRState32s* state) { return free_filter<Fir32sc_16sc>(state); }
