// Filters of streams beside plain loops, overlap-save on FFTW and liquid-dsp. A kind is named by the form and the
// number of taps, with _i for in place and _2threads for two threads against one; a size is a block of samples. Each
// entry of a row filters a stream of its own, of which all blocks are the same. Ours runs on one thread but where a row
// says otherwise.
#include <algorithm>
#include <bit>
#include <initializer_list>
#include <memory>
#include <string>
#include <vector>

#include "bench/fir/fir_loops.h"
#include "bench/fir/overlap_save.h"
#include "bench/support/liquid.h"
#include "bench/support/shapes.h"
#include "orvs/core.h"
#include "orvs/fir.h"

namespace {

using bench::Kind, bench::Row;

const int processors = orvGetNumThreads();
[[maybe_unused]] const OrvStatus one_thread = orvSetNumThreads(1);

Kind fir(const char* form, int taps_len, std::initializer_list<int> sizes, const char* suffix = "")
{
    std::string name = form;
    name.append("_").append(std::to_string(taps_len)).append(suffix);
    return {"fir", name, sizes};
}

// ---- Arrays

template <class T>
using number_of = typename bench::SampleType<T>::Number;
template <class T>
constexpr int numbers = bench::SampleType<T>::numbers;

template <class T>
T* samples(Row& row, int n)
{
    return reinterpret_cast<T*>(row.array<number_of<T>>(numbers<T> * n));
}

/// Zeros, for a filter in place, whose output is its next input: others would grow from call to call until they are
/// infinite, or fade until they are denormal.
template <class T>
T* zeros(Row& row, int n)
{
    T* array = samples<T>(row, n);
    std::fill_n(array, n, T{});
    return array;
}

// ---- The ways to filter

/// What ours runs on: T are the taps, S the samples.
template <class T, class S = T>
struct Form {
    OrvStatus (*init_alloc)(OrvsFIRState**, const T*, int, const S*);
    OrvStatus (*free)(OrvsFIRState*);
    OrvStatus (*filter)(const S*, S*, int, OrvsFIRState*);
    int fft_from_taps, fft_from_len; ///< above both, blocks go through the FFT

    /// A record, or null, which the calls refuse.
    std::shared_ptr<OrvsFIRState> make(const T* taps, int taps_len) const
    {
        OrvsFIRState* made = nullptr;
        if (init_alloc(&made, taps, taps_len, nullptr) < 0) return nullptr;
        return {made, free};
    }
};

constexpr Form<Orv32f> f32{orvsFIRInitAlloc_32f, orvsFIRFree_32f, orvsFIR_32f, 64, 512};
constexpr Form<Orv64f> f64{orvsFIRInitAlloc_64f, orvsFIRFree_64f, orvsFIR_64f, 64, 512};
constexpr Form<Orv32fc> fc32{orvsFIRInitAlloc_32fc, orvsFIRFree_32fc, orvsFIR_32fc, 16, 256};

/// A loop with the past of a stream: sums(x, dst, n) finds the past before x. The loop reads the block itself but for
/// the outputs that need samples of the one before; in place, it reads a copy, piece by piece.
template <class S, class Sums>
class LoopFilter {
public:
    LoopFilter(int taps_len, Sums sums)
        : past_(taps_len - 1), line_(std::size_t(past_ + std::max(past_, piece))), sums_(sums)
    {}

    void operator()(const S* src, S* dst, int len)
    {
        const bool in_place = src == dst;
        const int copied = in_place ? len : std::min(len, past_);
        for (int done = 0, n = 0; done < copied; done += n) {
            n = std::min(in_place ? piece : copied, copied - done);
            S* x = line_.data() + past_;
            std::copy_n(src + done, n, x);
            sums_(x, dst + done, n);
            std::copy_n(line_.data() + n, past_, line_.data());
        }
        if (len > copied) {
            sums_(src + copied, dst + copied, len - copied);
            std::copy_n(src + len - past_, past_, line_.data());
        }
    }

private:
    static constexpr int piece = 4096;
    int past_;
    std::vector<S> line_;
    Sums sums_;
};

template <class S, class Sums>
void loop(Row& row, const char* name, int taps_len, Sums sums, const S* src, S* dst, int len)
{
    const auto filter = std::make_shared<LoopFilter<S, Sums>>(taps_len, sums);
    row.peer(name, [=] { (*filter)(src, dst, len); });
}

template <class T>
void peers(Row& row, const T* taps, int taps_len, const T* src, T* dst, int len)
{
    bench::overlap_save(row, taps, taps_len, src, dst, len);
    if (taps_len >= 1024) return; // direct sums are hopeless
    const auto sums = [=](const T* x, T* d, int n) { loops::fir(x, d, n, taps, taps_len); };
    loop(row, "loop", taps_len, sums, src, dst, len);
    if (double(taps_len) * len > 1 << 24) return; // and take minutes without vectors
    bench::liquid(row, taps, taps_len, [=](auto liquid, auto filter) {
        liquid.execute_block(filter, liquid.samples(src), unsigned(len), liquid.samples(dst));
    });
}

/// Direct sums take a multiply-add a tap and sample, four if complex.
template <class T>
double direct_operations(int taps_len, int len)
{
    return 2.0 * numbers<T> * numbers<T> * taps_len * len;
}

/// By the FFT a call takes as many blocks of the record's transform, there and back, as it has; the usual count for one
/// is 5 n log2(n), and half for real numbers. What is left takes a transform of half the length, if the record has one
/// and it fits.
template <class T>
double fft_operations(const Form<T>& form, int taps_len, int len)
{
    const auto there_and_back = [](int n) { return 2 * 2.5 * numbers<T> * n * std::countr_zero(unsigned(n)); };
    const int n = std::max(8, 2 * int(std::bit_ceil(unsigned(taps_len) + 1))), past = taps_len - 1;
    const int block = n - past, half_block = n / 2 - past, left = len % block;
    const double whole = len / block * there_and_back(n);
    if (left == 0) return whole;
    return whole + there_and_back(half_block >= form.fft_from_len && half_block >= left ? n / 2 : n);
}

template <class T>
void limits(Row& row, double operations, const T* src, T* dst, int len)
{
    row.limit({src}, dst, std::size_t(len) * sizeof(T));
    row.limit_operations<number_of<T>>(operations);
}

// ---- Floating samples

template <class T>
void filters(const Kind& kind, const Form<T>& form, int taps_len)
{
    bench::rows(kind.family, kind.name, kind.sizes, [=](Row& row, int len) {
        const T* taps = samples<T>(row, taps_len);
        const T* src = samples<T>(row, len);
        T* dst = samples<T>(row, len);
        const bool fft = taps_len >= form.fft_from_taps && len >= form.fft_from_len;
        limits(row, fft ? fft_operations(form, taps_len, len) : direct_operations<T>(taps_len, len), src, dst, len);
        const auto record = form.make(taps, taps_len);
        row.ours([=] { return form.filter(src, dst, len, record.get()); });
        peers(row, taps, taps_len, src, dst, len);
    });
}

constexpr int mega = 1 << 20;

const bench::Rows block_rows{[] {
    for (const int taps_len : {16, 64, 256, 1024}) filters(fir("fir32f", taps_len, {512, 4096, mega}), f32, taps_len);
    filters(fir("fir32f", 8192, {512, 1 << 15, mega}), f32, 8192);
    for (const int taps_len : {16, 64, 256}) filters(fir("fir64f", taps_len, {512, 4096, mega}), f64, taps_len);
    for (const int taps_len : {16, 64, 256}) filters(fir("fir32fc", taps_len, {512, 4096, mega}), fc32, taps_len);
    filters({"fir", "fir32f_small", {64}}, f32, 32); // where the cost of the call itself shows
}};

/// The last piece of a block in place is always summed directly, and this block is one piece.
const bench::Rows in_place_rows{[] {
    for (const int taps_len : {16, 64, 256}) {
        const Kind kind = fir("fir32f", taps_len, {4096}, "_i");
        bench::rows(kind.family, kind.name, kind.sizes, [=](Row& row, int len) {
            const Orv32f* taps = samples<Orv32f>(row, taps_len);
            Orv32f* src_dst = zeros<Orv32f>(row, len);
            limits(row, direct_operations<Orv32f>(taps_len, len), src_dst, src_dst, len);
            const auto record = f32.make(taps, taps_len);
            row.ours([=] { return orvsFIR_32f_I(src_dst, len, record.get()); });
            peers(row, taps, taps_len, src_dst, src_dst, len);
        });
    }
}};

// ---- One sample a call

const bench::Rows one_rows{[] {
    constexpr int taps_len = 32;
    const Kind kind = fir("fir_one32f", taps_len, {1});
    bench::rows(kind.family, kind.name, kind.sizes, [=](Row& row, int) {
        const Orv32f* taps = samples<Orv32f>(row, taps_len);
        const Orv32f* src = samples<Orv32f>(row, 1);
        Orv32f* dst = samples<Orv32f>(row, 1);
        row.limit_operations<Orv32f>(2.0 * taps_len);
        const auto record = f32.make(taps, taps_len);
        row.ours([=] { return orvsFIROne_32f(*src, dst, record.get()); });
        const auto ring = std::make_shared<loops::Ring>(taps, taps_len);
        row.peer("loop", [=] { *dst = ring->push(*src); });
        bench::liquid(row, taps, taps_len, [=](auto liquid, auto filter) {
            liquid.push(filter, *src);
            liquid.execute(filter, dst);
        });
    });
}};

// ---- Integer samples

using RecordOfIntegers = std::shared_ptr<OrvsFIRState32s>;

RecordOfIntegers make_16s(const Orv16s* taps, int taps_len)
{
    OrvsFIRState32s* made = nullptr;
    if (orvsFIRInitAlloc_16s(&made, taps, taps_len, 0, nullptr) < 0) return nullptr;
    return {made, orvsFIRFree_16s};
}

RecordOfIntegers make_32s16s(const Orv16s* taps, int taps_len)
{
    const std::vector<Orv32s> wide(taps, taps + taps_len);
    OrvsFIRState32s* made = nullptr;
    if (orvsFIRInitAlloc32s_16s(&made, wide.data(), taps_len, 0, nullptr) < 0) return nullptr;
    return {made, orvsFIRFree32s_16s};
}

template <class Make, class Filter>
void integer_filters(const char* name, Make make, Filter filter, int taps_len, std::initializer_list<int> sizes)
{
    const Kind kind = fir(name, taps_len, sizes);
    bench::rows(kind.family, kind.name, kind.sizes, [=](Row& row, int len) {
        constexpr int scale = 15;
        Orv16s* taps = samples<Orv16s>(row, taps_len);
        for (int k = 0; k < taps_len; ++k) taps[k] >>= 8; // or sums of the loops leave 32 bits
        const Orv16s* src = samples<Orv16s>(row, len);
        Orv16s* dst = samples<Orv16s>(row, len);
        row.limit({src}, dst, std::size_t(len) * sizeof(Orv16s));
        row.limit_operations<Orv16s>(2.0 * taps_len * len);
        const auto record = make(taps, taps_len);
        row.ours([=] { return filter(src, dst, len, record.get(), scale); });

        const auto sums = [=](const Orv16s* x, Orv16s* d, int n) { loops::fir_scaled(x, d, n, taps, taps_len, scale); };
        loop(row, "loop", taps_len, sums, src, dst, len);
        std::vector<Orv16s> reversed(taps, taps + taps_len);
        std::reverse(reversed.begin(), reversed.end());
        const auto dots = [=](const Orv16s* x, Orv16s* d, int n) {
            loops::fir_scaled_dot(x, d, n, reversed.data(), taps_len, scale);
        };
        loop(row, "loop_dot", taps_len, dots, src, dst, len);
    });
}

const bench::Rows integer_rows{[] {
    for (const int taps_len : {16, 64, 256}) {
        integer_filters("fir16s", make_16s, bench::call<orvsFIR_16s_Sfs>, taps_len, {512, 4096, mega});
        integer_filters("fir32s16s", make_32s16s, bench::call<orvsFIR32s_16s_Sfs>, taps_len, {4096});
    }
}};

// ---- Two threads beside one

/// A record serves as many threads as there were when it was made, at most.
template <class T>
void two_threads(const char* name, const Form<T>& form, int taps_len)
{
    const Kind kind = fir(name, taps_len, {mega}, "_2threads");
    bench::rows(kind.family, kind.name, kind.sizes, [=](Row& row, int len) {
        const T* taps = samples<T>(row, taps_len);
        const T* src = samples<T>(row, len);
        T* dst = samples<T>(row, len);
        const auto single = form.make(taps, taps_len);
        orvSetNumThreads(2);
        const auto twofold = form.make(taps, taps_len);
        orvSetNumThreads(1);
        row.ours([=] {
            orvSetNumThreads(2);
            const OrvStatus status = form.filter(src, dst, len, twofold.get());
            orvSetNumThreads(1);
            return status;
        });
        row.peer("1thread", [=] { form.filter(src, dst, len, single.get()); });
    });
}

const bench::Rows thread_rows{[] {
    if (processors < 2) return;
    for (const int taps_len : {64, 256, 8192}) two_threads("fir32f", f32, taps_len);
    for (const int taps_len : {16, 256}) two_threads("fir64f", f64, taps_len);
    for (const int taps_len : {8, 64}) two_threads("fir32fc", fc32, taps_len);
}};

} // namespace
