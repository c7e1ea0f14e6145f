// The records behind filter pointers. What a record points to follows it in the same block.
#ifndef ORV_FIR_STATE_H
#define ORV_FIR_STATE_H

#include "orvs/fir.h"

#include "frame/complex.h"
#include "orvs/transform.h"
#include "simd/vec.h"

/// Four characters, the first one in the most significant byte, tell the form.
struct OrvsFIRState {
    Orv32u id;
};
struct OrvsFIRState32s {
    Orv32u id;
};

namespace ORV_VARIANT {

consteval Orv32u fir_id(const char (&text)[5])
{
    Orv32u id = 0;
    for (int i = 0; i < 4; ++i) id = id << 8 | Orv32u(text[i]);
    return id;
}

/// Samples that the work buffer of a record holds.
inline constexpr int bounce_len = 4224;

/// What real and complex filters differ in.
template <class T>
struct fir_engine;

/// A transform that blocks may go through; none if fftLen is 0 or -1.
template <class T>
struct FirTransform {
    Orv32s fftLen;
    typename fir_engine<T>::Spec* fftSpec;
    T* fftTaps; ///< the spectrum of the taps
};

/// The record of a filter that computes in T, which is a real or a complex floating type.
template <class T>
struct FirState : OrvsFIRState {
    Orv32s tapsLen;
    T* tapsTable; ///< the taps in reverse order, as single samples meet them
    T* taps;      ///< in their own order, as blocks do
    T* dlyLine;   ///< the past, oldest first, from dlyIndex on; room for a short block behind it
    T* bounce;
    Orv32s directLimit;    ///< new samples that dlyLine takes behind the past
    Orv32s dlyIndex;       ///< moved by single samples only
    FirTransform<T> whole; ///< of all blocks
    FirTransform<T> half;  ///< of half the length, for blocks that fit it
    T* fftData;            ///< whole.fftLen elements a thread
    Orv8u* fftWork;        ///< fftWorkSize bytes a thread
    Orv32s fftWorkSize;
    Orv32s threads;       ///< that the buffers serve
    Orv32s* threadStatus; ///< one a thread
    Orv32s allocated;
};

/// The record of an integer filter of samples T: Orv16s or Orv16sc.
template <class T>
struct FirState32s : OrvsFIRState32s {
    Orv32s tapsLen;
    T* tapsTable;      ///< the taps in reverse order
    Orv32s* laneTable; ///< pairs of taps, as multiply-add instructions take them
    T* dlyLine;
    T* bounce;
    Orv32s directLimit;
    Orv32s dlyIndex;
    Orv32s tapsFactor; ///< y = sum * 2^tapsFactor
    Orv32s allocated;
};

/// The record of a form; null if `state` is that of another one.
template <class Form, class State>
auto* record_of(State* state)
{
    using Record = std::conditional_t<std::is_const_v<State>, const typename Form::Record, typename Form::Record>;
    return state->id == Form::id ? static_cast<Record*>(state) : nullptr;
}

} // namespace ORV_VARIANT

#endif
