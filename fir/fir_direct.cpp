// Filters without a record: the caller keeps the taps, the delay line and its index.
#include "fir/build.h"
#include "fir/direct_sums.h"
#include "fir/filter.h"
#include "fir/integer_build.h"
#include "fir/ring.h"
#include "fir/samples.h"
#include "fir/tiles.h"
#include "frame/checks.h"
#include "frame/team.h"
#include "orvs/frame.h"

#include <algorithm>

using namespace ORV_VARIANT;

namespace {

// ---- Checks

template <class Taps, class Sample>
OrvStatus check_filter(const Taps* taps, int tapsLen, const Sample* dlyLine, const int* dlyIndex)
{
    if (any_null(taps)) return orvErrNullPointer;
    if (tapsLen < 1) return orvErrBadFirLength;
    if (any_null(dlyLine, dlyIndex)) return orvErrNullPointer;
    return orvOk;
}
bool is_outside(int dlyIndex, int tapsLen) { return dlyIndex < 0 || dlyIndex >= tapsLen; }

// ---- Sample by sample

/// Outputs whose windows lie within src. Where Sum has no tiles, one by one.
template <class Sum, class Taps, class Sample, class Output>
void sum_within(Sum sum, const Taps* taps, int tapsLen, const Sample* x, Output* outputs, int count)
{
    if constexpr (requires { typename Sum::template Tiles<Sample>; }) {
        using Tiles = typename Sum::template Tiles<Sample>;
        if (count >= Tiles::lanes) return filter_direct(Tiles{taps, tapsLen}, x, outputs, count);
    }
    for (int i = 0; i < count; ++i) outputs[i] = sum(taps, x + (i - (tapsLen - 1)), tapsLen);
}

/// Sum of a window in the type that outputs are made from; finish(sums, dst, count) makes them.
template <class Sum, class Taps, class Sample, class Finish>
void filter_by_samples(Sum sum, const Taps* taps, const Sample* src, Sample* dst, int len, const Ring<Sample>& ring,
                       Finish finish)
{
    using Output = decltype(sum(taps, src, 1));
    constexpr int most = 2048 / sizeof(Output); // outputs of a piece
    Output outputs[most];
    // Where src stays, the windows that lie within it need no delay line.
    const int through_ring = src == dst || len < ring.tapsLen ? len : ring.tapsLen - 1;
    for (int at = 0; at < len; at += most) {
        const int n = len - at < most ? len - at : most;
        const int first = through_ring - at < n ? std::max(through_ring - at, 0) : n;
        for (int i = 0; i < first; ++i) outputs[i] = sum(taps, ring.push(element_at(src + at + i)), ring.tapsLen);
        sum_within(sum, taps, ring.tapsLen, src + at + first, outputs + first, n - first);
        finish(outputs, dst + at, n);
    }
    ring.push_all(src + through_ring, len - through_ring);
}

/// How outputs become samples: floating ones by conversion, integer sums by a shift.
struct Converted {
    int scale = 0;
    template <class Compute, class Sample>
    void operator()(const Compute* outputs, Sample* dst, int count) const
    {
        from_compute(outputs, dst, count, scale);
    }
};
struct Shifted {
    SumShift shift;
    template <class Sums, class Sample>
    void operator()(const Sums* sums, Sample* dst, int count) const
    {
        for (int i = 0; i < count; ++i) put_element(dst + i, shift(sums[i]));
    }
};

template <class Sum, class Taps, class Sample, class Finish>
OrvStatus filter_samples(Sum sum, Finish finish, const Sample* src, Sample* dst, int len, const Taps* taps, int tapsLen,
                         Sample* dlyLine, int* dlyIndex)
{
    if (const OrvStatus bad = check(len, src, dst)) return bad;
    if (const OrvStatus bad = check_filter(taps, tapsLen, dlyLine, dlyIndex)) return bad;
    filter_by_samples(sum, taps, src, dst, len, Ring<Sample>{dlyLine, dlyIndex, tapsLen}, finish);
    return orvOk;
}

template <class Sum, class Taps, class Sample, class Finish>
OrvStatus filter_sample(Sum sum, Finish finish, Sample src, Sample* dst, const Taps* taps, int tapsLen, Sample* dlyLine,
                        int* dlyIndex)
{
    if (any_null(dst)) return orvErrNullPointer;
    if (const OrvStatus bad = check_filter(taps, tapsLen, dlyLine, dlyIndex)) return bad;
    const auto output = sum(taps, Ring<Sample>{dlyLine, dlyIndex, tapsLen}.push(src), tapsLen);
    finish(&output, dst, 1);
    return orvOk;
}
template <class Sum, class Taps, class Sample, class Finish>
OrvStatus filter_sample_in_place(Sum sum, Finish finish, Sample* srcDst, const Taps* taps, int tapsLen, Sample* dlyLine,
                                 int* dlyIndex)
{
    if (any_null(srcDst)) return orvErrNullPointer;
    return filter_sample(sum, finish, element_at(srcDst), srcDst, taps, tapsLen, dlyLine, dlyIndex);
}

// ---- A record for the time of a call

/// Takes the past from the window of the delay line and leaves it there; *dlyIndex stays.
template <class Form, class Sample>
OrvStatus filter_with_record(const Sample* src, Sample* dst, int len, const typename Form::Taps* taps,
                             const Ring<Sample>& ring)
{
    FirState<typename Form::Compute>* s;
    if (const OrvStatus bad = allocate<Form>(&s, ring.tapsLen)) return bad;
    to_compute(ring.window(), s->dlyLine, ring.tapsLen);
    set_taps(*s, taps);
    const OrvStatus status = filter_stream<Form>(*s, src, dst, len, 0);
    from_compute(s->dlyLine, ring.window(), ring.tapsLen, 0);
    ring.mirror();
    release(s);
    return status;
}

// ---- Forms whose samples are of the compute type

/// Below this many taps a call needs no record.
template <class T>
constexpr int record_taps = std::is_same_v<T, Orv64fc> ? 16 : 32;

/// Outputs from the tapsLen-th on in place: each piece of input is copied behind the samples before it, which outputs
/// have replaced in the array. first is what the array began with.
template <class Sums, class T>
void filter_few_taps_in_place(const Sums& sums, T* srcDst, int len, const T* first)
{
    constexpr int piece = 3072 / sizeof(T);
    const int before = sums.tapsLen - 1;
    T input[record_taps<T> + piece + Sums::lanes] = {};
    copy_array(first, input, std::size_t(before));
    for (int at = before; at < len; at += piece) {
        const int n = len - at < piece ? len - at : piece;
        copy_array(srcDst + at, input + before, std::size_t(n));
        filter_direct(sums, input + before, srcDst + at, n);
        move_array(input + n, input, std::size_t(before));
    }
}

/// The outputs that need the past go sample by sample, the rest straight from src. What is left in the delay line is
/// the last tapsLen - 1 samples, at its beginning.
template <class T>
void filter_few_taps(const T* src, T* dst, int len, const T* taps, const Ring<T>& ring)
{
    using Sums = typename fir_engine<T>::Sums;
    const int before = ring.tapsLen - 1, rest = len - before;
    const int by_samples = rest < Sums::lanes ? len : before;
    if (rest < 1) return filter_by_samples(FloatingSum<T>(), taps, src, dst, len, ring, Converted());

    T first[record_taps<T>], last[record_taps<T>];
    copy_array(src, first, std::size_t(before));
    copy_array(src + (rest - 1), last, std::size_t(ring.tapsLen));
    filter_by_samples(FloatingSum<T>(), taps, src, dst, by_samples, ring, Converted());
    if (by_samples < len) {
        const Sums sums = {taps, ring.tapsLen};
        if (src == dst) filter_few_taps_in_place(sums, dst, len, first);
        else
            filter_on_threads(sums, src + before, dst + before, rest,
                              len > fir_engine<T>::shared ? ownGetNumThreads() : 1);
    }
    copy_array(last + 1, ring.line, std::size_t(before));
    *ring.index = before;
    copy_array(last, ring.window(), std::size_t(ring.tapsLen));
}

template <class Form, class T>
OrvStatus filter_floats(const T* src, T* dst, int len, const T* taps, int tapsLen, T* dlyLine, int* dlyIndex)
{
    if (const OrvStatus bad = check(len, src, dst)) return bad;
    if (const OrvStatus bad = check_filter(taps, tapsLen, dlyLine, dlyIndex)) return bad;
    const Ring<T> ring = {dlyLine, dlyIndex, tapsLen};
    if (tapsLen < record_taps<T>) filter_few_taps(src, dst, len, taps, ring);
    else if (len > tapsLen) return filter_with_record<Form>(src, dst, len, taps, ring);
    else filter_by_samples(FloatingSum<T>(), taps, src, dst, len, ring, Converted());
    return orvOk;
}

/// Single-precision samples of a double-precision filter: a record from record_len samples on.
template <class Form, int record_len, class T, class Sample>
OrvStatus filter_narrow(const Sample* src, Sample* dst, int len, const T* taps, int tapsLen, Sample* dlyLine,
                        int* dlyIndex)
{
    if (const OrvStatus bad = check(len, src, dst)) return bad;
    if (const OrvStatus bad = check_filter(taps, tapsLen, dlyLine, dlyIndex)) return bad;
    const Ring<Sample> ring = {dlyLine, dlyIndex, tapsLen};
    if (len >= record_len) return filter_with_record<Form>(src, dst, len, taps, ring);
    filter_by_samples(FloatingSum<T>(), taps, src, dst, len, ring, Converted());
    return orvOk;
}

// ---- 16-bit taps, which are fractions of 2^15

/// The past lies newest first in the delay line, before and after.
OrvStatus filter_q15(const Orv16s* src, Orv16s* dst, int len, const Orv16s* taps, int tapsLen, Orv16s* dlyLine,
                     int* dlyIndex, int scale)
{
    if (const OrvStatus bad = check(len, src, dst)) return bad;
    if (const OrvStatus bad = check_filter(taps, tapsLen, dlyLine, dlyIndex)) return bad;
    if (is_outside(*dlyIndex, tapsLen)) return orvErrBadDelayIndex;

    const Orv64s bytes = integer_record_bytes<Fir32s_16s>(tapsLen);
    Orv8u* const block = bytes > largest_size ? nullptr : orvsMalloc_8u(int(bytes));
    if (!block) return orvErrNoMemory;
    auto& s = lay_out<Fir32s_16s>(block, tapsLen);
    s.allocated = 1;
    copy_array(taps, s.tapsTable, std::size_t(tapsLen));
    arrange_taps(s);
    s.tapsFactor = -15;
    set_delay(s, dlyLine + *dlyIndex);
    filter_stream<Fir32s_16s>(s, src, dst, len, scale);
    *dlyIndex = 0;
    get_delay(s, dlyLine);
    release(&s);
    return orvOk;
}

OrvStatus filter_sample_q15(Orv16s src, Orv16s* dst, const Orv16s* taps, int tapsLen, Orv16s* dlyLine, int* dlyIndex,
                            int scale)
{
    if (any_null(dst, taps, dlyLine, dlyIndex)) return orvErrNullPointer;
    if (tapsLen < 1) return orvErrBadFirLength;
    if (is_outside(*dlyIndex, tapsLen)) return orvErrBadDelayIndex;
    const SumShift shift(-int((Orv32u(scale) + 15) % 32));
    const Orv32s sum = IntegerSum()(taps, Ring<Orv16s>{dlyLine, dlyIndex, tapsLen}.push(src), tapsLen);
    put_element(dst, shift(sum));
    return orvOk;
}

} // namespace

// ---- Blocks

OrvStatus orvsFIR_Direct_32f(const Orv32f* src, Orv32f* dst, int len, const Orv32f* taps, int tapsLen, Orv32f* dlyLine,
                             int* dlyIndex)
{
    return filter_samples(DoubleSum(), Converted(), src, dst, len, taps, tapsLen, dlyLine, dlyIndex);
}
OrvStatus orvsFIR_Direct_64f(const Orv64f* src, Orv64f* dst, int len, const Orv64f* taps, int tapsLen, Orv64f* dlyLine,
                             int* dlyIndex)
{
    return filter_floats<Fir_64f>(src, dst, len, taps, tapsLen, dlyLine, dlyIndex);
}
OrvStatus orvsFIR_Direct_32fc(const Orv32fc* src, Orv32fc* dst, int len, const Orv32fc* taps, int tapsLen,
                              Orv32fc* dlyLine, int* dlyIndex)
{
    return filter_floats<Fir_32fc>(src, dst, len, taps, tapsLen, dlyLine, dlyIndex);
}
OrvStatus orvsFIR_Direct_64fc(const Orv64fc* src, Orv64fc* dst, int len, const Orv64fc* taps, int tapsLen,
                              Orv64fc* dlyLine, int* dlyIndex)
{
    return filter_floats<Fir_64fc>(src, dst, len, taps, tapsLen, dlyLine, dlyIndex);
}
OrvStatus orvsFIR64f_Direct_32f(const Orv32f* src, Orv32f* dst, int len, const Orv64f* taps, int tapsLen,
                                Orv32f* dlyLine, int* dlyIndex)
{
    return filter_narrow<Fir64f_32f, 256>(src, dst, len, taps, tapsLen, dlyLine, dlyIndex);
}
OrvStatus orvsFIR64fc_Direct_32fc(const Orv32fc* src, Orv32fc* dst, int len, const Orv64fc* taps, int tapsLen,
                                  Orv32fc* dlyLine, int* dlyIndex)
{
    return filter_narrow<Fir64fc_32fc, 128>(src, dst, len, taps, tapsLen, dlyLine, dlyIndex);
}
OrvStatus orvsFIR32f_Direct_16s_Sfs(const Orv16s* src, Orv16s* dst, int len, const Orv32f* taps, int tapsLen,
                                    Orv16s* dlyLine, int* dlyIndex, int scale)
{
    return filter_samples(FloatingSum<Orv32f>(), Converted{scale}, src, dst, len, taps, tapsLen, dlyLine, dlyIndex);
}
OrvStatus orvsFIR32fc_Direct_16sc_Sfs(const Orv16sc* src, Orv16sc* dst, int len, const Orv32fc* taps, int tapsLen,
                                      Orv16sc* dlyLine, int* dlyIndex, int scale)
{
    return filter_samples(FloatingSum<Orv32fc>(), Converted{scale}, src, dst, len, taps, tapsLen, dlyLine, dlyIndex);
}
OrvStatus orvsFIR64f_Direct_32s_Sfs(const Orv32s* src, Orv32s* dst, int len, const Orv64f* taps, int tapsLen,
                                    Orv32s* dlyLine, int* dlyIndex, int scale)
{
    return filter_samples(FloatingSum<Orv64f>(), Converted{scale}, src, dst, len, taps, tapsLen, dlyLine, dlyIndex);
}
OrvStatus orvsFIR64fc_Direct_32sc_Sfs(const Orv32sc* src, Orv32sc* dst, int len, const Orv64fc* taps, int tapsLen,
                                      Orv32sc* dlyLine, int* dlyIndex, int scale)
{
    return filter_samples(FloatingSum<Orv64fc>(), Converted{scale}, src, dst, len, taps, tapsLen, dlyLine, dlyIndex);
}
OrvStatus orvsFIR64f_Direct_16s_Sfs(const Orv16s* src, Orv16s* dst, int len, const Orv64f* taps, int tapsLen,
                                    Orv16s* dlyLine, int* dlyIndex, int scale)
{
    return filter_samples(FloatingSum<Orv64f>(), Converted{scale}, src, dst, len, taps, tapsLen, dlyLine, dlyIndex);
}
OrvStatus orvsFIR64fc_Direct_16sc_Sfs(const Orv16sc* src, Orv16sc* dst, int len, const Orv64fc* taps, int tapsLen,
                                      Orv16sc* dlyLine, int* dlyIndex, int scale)
{
    return filter_samples(FloatingSum<Orv64fc>(), Converted{scale}, src, dst, len, taps, tapsLen, dlyLine, dlyIndex);
}
OrvStatus orvsFIR_Direct_16s_Sfs(const Orv16s* src, Orv16s* dst, int len, const Orv16s* taps, int tapsLen,
                                 Orv16s* dlyLine, int* dlyIndex, int scale)
{
    return filter_q15(src, dst, len, taps, tapsLen, dlyLine, dlyIndex, scale);
}
OrvStatus orvsFIR32s_Direct_16s_Sfs(const Orv16s* src, Orv16s* dst, int len, const Orv32s* taps, int tapsLen,
                                    int tapsFactor, Orv16s* dlyLine, int* dlyIndex, int scale)
{
    return filter_samples(IntegerSum(), Shifted{{tapsFactor, scale}}, src, dst, len, taps, tapsLen, dlyLine, dlyIndex);
}
OrvStatus orvsFIR32sc_Direct_16sc_Sfs(const Orv16sc* src, Orv16sc* dst, int len, const Orv32sc* taps, int tapsLen,
                                      int tapsFactor, Orv16sc* dlyLine, int* dlyIndex, int scale)
{
    return filter_samples(IntegerSum(), Shifted{{tapsFactor, scale}}, src, dst, len, taps, tapsLen, dlyLine, dlyIndex);
}

// ---- Blocks in place

OrvStatus orvsFIR_Direct_32f_I(Orv32f* srcDst, int len, const Orv32f* taps, int tapsLen, Orv32f* dlyLine, int* dlyIndex)
{
    return filter_samples(DoubleSum(), Converted(), srcDst, srcDst, len, taps, tapsLen, dlyLine, dlyIndex);
}
OrvStatus orvsFIR_Direct_64f_I(Orv64f* srcDst, int len, const Orv64f* taps, int tapsLen, Orv64f* dlyLine, int* dlyIndex)
{
    return filter_floats<Fir_64f>(srcDst, srcDst, len, taps, tapsLen, dlyLine, dlyIndex);
}
OrvStatus orvsFIR_Direct_32fc_I(Orv32fc* srcDst, int len, const Orv32fc* taps, int tapsLen, Orv32fc* dlyLine,
                                int* dlyIndex)
{
    return filter_floats<Fir_32fc>(srcDst, srcDst, len, taps, tapsLen, dlyLine, dlyIndex);
}
OrvStatus orvsFIR_Direct_64fc_I(Orv64fc* srcDst, int len, const Orv64fc* taps, int tapsLen, Orv64fc* dlyLine,
                                int* dlyIndex)
{
    return filter_floats<Fir_64fc>(srcDst, srcDst, len, taps, tapsLen, dlyLine, dlyIndex);
}
OrvStatus orvsFIR64f_Direct_32f_I(Orv32f* srcDst, int len, const Orv64f* taps, int tapsLen, Orv32f* dlyLine,
                                  int* dlyIndex)
{
    return filter_narrow<Fir64f_32f, 256>(srcDst, srcDst, len, taps, tapsLen, dlyLine, dlyIndex);
}
OrvStatus orvsFIR64fc_Direct_32fc_I(Orv32fc* srcDst, int len, const Orv64fc* taps, int tapsLen, Orv32fc* dlyLine,
                                    int* dlyIndex)
{
    return filter_narrow<Fir64fc_32fc, 128>(srcDst, srcDst, len, taps, tapsLen, dlyLine, dlyIndex);
}
OrvStatus orvsFIR32f_Direct_16s_ISfs(Orv16s* srcDst, int len, const Orv32f* taps, int tapsLen, Orv16s* dlyLine,
                                     int* dlyIndex, int scale)
{
    return filter_samples(FloatingSum<Orv32f>(), Converted{scale}, srcDst, srcDst, len, taps, tapsLen, dlyLine,
                          dlyIndex);
}
OrvStatus orvsFIR32fc_Direct_16sc_ISfs(Orv16sc* srcDst, int len, const Orv32fc* taps, int tapsLen, Orv16sc* dlyLine,
                                       int* dlyIndex, int scale)
{
    return filter_samples(FloatingSum<Orv32fc>(), Converted{scale}, srcDst, srcDst, len, taps, tapsLen, dlyLine,
                          dlyIndex);
}
OrvStatus orvsFIR64f_Direct_32s_ISfs(Orv32s* srcDst, int len, const Orv64f* taps, int tapsLen, Orv32s* dlyLine,
                                     int* dlyIndex, int scale)
{
    return filter_samples(FloatingSum<Orv64f>(), Converted{scale}, srcDst, srcDst, len, taps, tapsLen, dlyLine,
                          dlyIndex);
}
OrvStatus orvsFIR64fc_Direct_32sc_ISfs(Orv32sc* srcDst, int len, const Orv64fc* taps, int tapsLen, Orv32sc* dlyLine,
                                       int* dlyIndex, int scale)
{
    return filter_samples(FloatingSum<Orv64fc>(), Converted{scale}, srcDst, srcDst, len, taps, tapsLen, dlyLine,
                          dlyIndex);
}
OrvStatus orvsFIR64f_Direct_16s_ISfs(Orv16s* srcDst, int len, const Orv64f* taps, int tapsLen, Orv16s* dlyLine,
                                     int* dlyIndex, int scale)
{
    return filter_samples(FloatingSum<Orv64f>(), Converted{scale}, srcDst, srcDst, len, taps, tapsLen, dlyLine,
                          dlyIndex);
}
OrvStatus orvsFIR64fc_Direct_16sc_ISfs(Orv16sc* srcDst, int len, const Orv64fc* taps, int tapsLen, Orv16sc* dlyLine,
                                       int* dlyIndex, int scale)
{
    return filter_samples(FloatingSum<Orv64fc>(), Converted{scale}, srcDst, srcDst, len, taps, tapsLen, dlyLine,
                          dlyIndex);
}
OrvStatus orvsFIR_Direct_16s_ISfs(Orv16s* srcDst, int len, const Orv16s* taps, int tapsLen, Orv16s* dlyLine,
                                  int* dlyIndex, int scale)
{
    return filter_q15(srcDst, srcDst, len, taps, tapsLen, dlyLine, dlyIndex, scale);
}
OrvStatus orvsFIR32s_Direct_16s_ISfs(Orv16s* srcDst, int len, const Orv32s* taps, int tapsLen, int tapsFactor,
                                     Orv16s* dlyLine, int* dlyIndex, int scale)
{
    return filter_samples(IntegerSum(), Shifted{{tapsFactor, scale}}, srcDst, srcDst, len, taps, tapsLen, dlyLine,
                          dlyIndex);
}
OrvStatus orvsFIR32sc_Direct_16sc_ISfs(Orv16sc* srcDst, int len, const Orv32sc* taps, int tapsLen, int tapsFactor,
                                       Orv16sc* dlyLine, int* dlyIndex, int scale)
{
    return filter_samples(IntegerSum(), Shifted{{tapsFactor, scale}}, srcDst, srcDst, len, taps, tapsLen, dlyLine,
                          dlyIndex);
}

// ---- Samples

OrvStatus orvsFIROne_Direct_32f(Orv32f src, Orv32f* dst, const Orv32f* taps, int tapsLen, Orv32f* dlyLine,
                                int* dlyIndex)
{
    return filter_sample(DoubleSum(), Converted(), src, dst, taps, tapsLen, dlyLine, dlyIndex);
}
OrvStatus orvsFIROne_Direct_64f(Orv64f src, Orv64f* dst, const Orv64f* taps, int tapsLen, Orv64f* dlyLine,
                                int* dlyIndex)
{
    return filter_sample(FloatingSum<Orv64f>(), Converted(), src, dst, taps, tapsLen, dlyLine, dlyIndex);
}
OrvStatus orvsFIROne_Direct_32fc(Orv32fc src, Orv32fc* dst, const Orv32fc* taps, int tapsLen, Orv32fc* dlyLine,
                                 int* dlyIndex)
{
    return filter_sample(FloatingSum<Orv32fc>(), Converted(), src, dst, taps, tapsLen, dlyLine, dlyIndex);
}
OrvStatus orvsFIROne_Direct_64fc(Orv64fc src, Orv64fc* dst, const Orv64fc* taps, int tapsLen, Orv64fc* dlyLine,
                                 int* dlyIndex)
{
    return filter_sample(FloatingSum<Orv64fc>(), Converted(), src, dst, taps, tapsLen, dlyLine, dlyIndex);
}
OrvStatus orvsFIROne64f_Direct_32f(Orv32f src, Orv32f* dst, const Orv64f* taps, int tapsLen, Orv32f* dlyLine,
                                   int* dlyIndex)
{
    return filter_sample(FloatingSum<Orv64f>(), Converted(), src, dst, taps, tapsLen, dlyLine, dlyIndex);
}
OrvStatus orvsFIROne64fc_Direct_32fc(Orv32fc src, Orv32fc* dst, const Orv64fc* taps, int tapsLen, Orv32fc* dlyLine,
                                     int* dlyIndex)
{
    return filter_sample(FloatingSum<Orv64fc>(), Converted(), src, dst, taps, tapsLen, dlyLine, dlyIndex);
}
OrvStatus orvsFIROne32f_Direct_16s_Sfs(Orv16s src, Orv16s* dst, const Orv32f* taps, int tapsLen, Orv16s* dlyLine,
                                       int* dlyIndex, int scale)
{
    return filter_sample(FloatingSum<Orv32f>(), Converted{scale}, src, dst, taps, tapsLen, dlyLine, dlyIndex);
}
OrvStatus orvsFIROne32fc_Direct_16sc_Sfs(Orv16sc src, Orv16sc* dst, const Orv32fc* taps, int tapsLen, Orv16sc* dlyLine,
                                         int* dlyIndex, int scale)
{
    return filter_sample(FloatingSum<Orv32fc>(), Converted{scale}, src, dst, taps, tapsLen, dlyLine, dlyIndex);
}
OrvStatus orvsFIROne64f_Direct_32s_Sfs(Orv32s src, Orv32s* dst, const Orv64f* taps, int tapsLen, Orv32s* dlyLine,
                                       int* dlyIndex, int scale)
{
    return filter_sample(FloatingSum<Orv64f>(), Converted{scale}, src, dst, taps, tapsLen, dlyLine, dlyIndex);
}
OrvStatus orvsFIROne64fc_Direct_32sc_Sfs(Orv32sc src, Orv32sc* dst, const Orv64fc* taps, int tapsLen, Orv32sc* dlyLine,
                                         int* dlyIndex, int scale)
{
    return filter_sample(FloatingSum<Orv64fc>(), Converted{scale}, src, dst, taps, tapsLen, dlyLine, dlyIndex);
}
OrvStatus orvsFIROne64f_Direct_16s_Sfs(Orv16s src, Orv16s* dst, const Orv64f* taps, int tapsLen, Orv16s* dlyLine,
                                       int* dlyIndex, int scale)
{
    return filter_sample(FloatingSum<Orv64f>(), Converted{scale}, src, dst, taps, tapsLen, dlyLine, dlyIndex);
}
OrvStatus orvsFIROne64fc_Direct_16sc_Sfs(Orv16sc src, Orv16sc* dst, const Orv64fc* taps, int tapsLen, Orv16sc* dlyLine,
                                         int* dlyIndex, int scale)
{
    return filter_sample(FloatingSum<Orv64fc>(), Converted{scale}, src, dst, taps, tapsLen, dlyLine, dlyIndex);
}
OrvStatus orvsFIROne_Direct_16s_Sfs(Orv16s src, Orv16s* dst, const Orv16s* taps, int tapsLen, Orv16s* dlyLine,
                                    int* dlyIndex, int scale)
{
    return filter_sample_q15(src, dst, taps, tapsLen, dlyLine, dlyIndex, scale);
}
OrvStatus orvsFIROne32s_Direct_16s_Sfs(Orv16s src, Orv16s* dst, const Orv32s* taps, int tapsLen, int tapsFactor,
                                       Orv16s* dlyLine, int* dlyIndex, int scale)
{
    return filter_sample(IntegerSum(), Shifted{{tapsFactor, scale}}, src, dst, taps, tapsLen, dlyLine, dlyIndex);
}
OrvStatus orvsFIROne32sc_Direct_16sc_Sfs(Orv16sc src, Orv16sc* dst, const Orv32sc* taps, int tapsLen, int tapsFactor,
                                         Orv16sc* dlyLine, int* dlyIndex, int scale)
{
    return filter_sample(IntegerSum(), Shifted{{tapsFactor, scale}}, src, dst, taps, tapsLen, dlyLine, dlyIndex);
}

// ---- Samples in place

OrvStatus orvsFIROne_Direct_32f_I(Orv32f* srcDst, const Orv32f* taps, int tapsLen, Orv32f* dlyLine, int* dlyIndex)
{
    return filter_sample_in_place(DoubleSum(), Converted(), srcDst, taps, tapsLen, dlyLine, dlyIndex);
}
OrvStatus orvsFIROne_Direct_64f_I(Orv64f* srcDst, const Orv64f* taps, int tapsLen, Orv64f* dlyLine, int* dlyIndex)
{
    return filter_sample_in_place(FloatingSum<Orv64f>(), Converted(), srcDst, taps, tapsLen, dlyLine, dlyIndex);
}
OrvStatus orvsFIROne_Direct_32fc_I(Orv32fc* srcDst, const Orv32fc* taps, int tapsLen, Orv32fc* dlyLine, int* dlyIndex)
{
    return filter_sample_in_place(FloatingSum<Orv32fc>(), Converted(), srcDst, taps, tapsLen, dlyLine, dlyIndex);
}
OrvStatus orvsFIROne_Direct_64fc_I(Orv64fc* srcDst, const Orv64fc* taps, int tapsLen, Orv64fc* dlyLine, int* dlyIndex)
{
    return filter_sample_in_place(FloatingSum<Orv64fc>(), Converted(), srcDst, taps, tapsLen, dlyLine, dlyIndex);
}
OrvStatus orvsFIROne64f_Direct_32f_I(Orv32f* srcDst, const Orv64f* taps, int tapsLen, Orv32f* dlyLine, int* dlyIndex)
{
    return filter_sample_in_place(FloatingSum<Orv64f>(), Converted(), srcDst, taps, tapsLen, dlyLine, dlyIndex);
}
OrvStatus orvsFIROne64fc_Direct_32fc_I(Orv32fc* srcDst, const Orv64fc* taps, int tapsLen, Orv32fc* dlyLine,
                                       int* dlyIndex)
{
    return filter_sample_in_place(FloatingSum<Orv64fc>(), Converted(), srcDst, taps, tapsLen, dlyLine, dlyIndex);
}
OrvStatus orvsFIROne32f_Direct_16s_ISfs(Orv16s* srcDst, const Orv32f* taps, int tapsLen, Orv16s* dlyLine, int* dlyIndex,
                                        int scale)
{
    return filter_sample_in_place(FloatingSum<Orv32f>(), Converted{scale}, srcDst, taps, tapsLen, dlyLine, dlyIndex);
}
OrvStatus orvsFIROne32fc_Direct_16sc_ISfs(Orv16sc* srcDst, const Orv32fc* taps, int tapsLen, Orv16sc* dlyLine,
                                          int* dlyIndex, int scale)
{
    return filter_sample_in_place(FloatingSum<Orv32fc>(), Converted{scale}, srcDst, taps, tapsLen, dlyLine, dlyIndex);
}
OrvStatus orvsFIROne64f_Direct_32s_ISfs(Orv32s* srcDst, const Orv64f* taps, int tapsLen, Orv32s* dlyLine, int* dlyIndex,
                                        int scale)
{
    return filter_sample_in_place(FloatingSum<Orv64f>(), Converted{scale}, srcDst, taps, tapsLen, dlyLine, dlyIndex);
}
OrvStatus orvsFIROne64fc_Direct_32sc_ISfs(Orv32sc* srcDst, const Orv64fc* taps, int tapsLen, Orv32sc* dlyLine,
                                          int* dlyIndex, int scale)
{
    return filter_sample_in_place(FloatingSum<Orv64fc>(), Converted{scale}, srcDst, taps, tapsLen, dlyLine, dlyIndex);
}
OrvStatus orvsFIROne64f_Direct_16s_ISfs(Orv16s* srcDst, const Orv64f* taps, int tapsLen, Orv16s* dlyLine, int* dlyIndex,
                                        int scale)
{
    return filter_sample_in_place(FloatingSum<Orv64f>(), Converted{scale}, srcDst, taps, tapsLen, dlyLine, dlyIndex);
}
OrvStatus orvsFIROne64fc_Direct_16sc_ISfs(Orv16sc* srcDst, const Orv64fc* taps, int tapsLen, Orv16sc* dlyLine,
                                          int* dlyIndex, int scale)
{
    return filter_sample_in_place(FloatingSum<Orv64fc>(), Converted{scale}, srcDst, taps, tapsLen, dlyLine, dlyIndex);
}
OrvStatus orvsFIROne_Direct_16s_ISfs(Orv16s* srcDst, const Orv16s* taps, int tapsLen, Orv16s* dlyLine, int* dlyIndex,
                                     int scale)
{
    if (any_null(srcDst)) return orvErrNullPointer;
    return filter_sample_q15(element_at(srcDst), srcDst, taps, tapsLen, dlyLine, dlyIndex, scale);
}
OrvStatus orvsFIROne32s_Direct_16s_ISfs(Orv16s* srcDst, const Orv32s* taps, int tapsLen, int tapsFactor,
                                        Orv16s* dlyLine, int* dlyIndex, int scale)
{
    return filter_sample_in_place(IntegerSum(), Shifted{{tapsFactor, scale}}, srcDst, taps, tapsLen, dlyLine, dlyIndex);
}
OrvStatus orvsFIROne32sc_Direct_16sc_ISfs(Orv16sc* srcDst, const Orv32sc* taps, int tapsLen, int tapsFactor,
                                          Orv16sc* dlyLine, int* dlyIndex, int scale)
{
    return filter_sample_in_place(IntegerSum(), Shifted{{tapsFactor, scale}}, srcDst, taps, tapsLen, dlyLine, dlyIndex);
}
