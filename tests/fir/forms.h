// The exports of the FIR filters by their forms, filters to call them with, and what they must compute.
//
// There are many forms, so nothing here depends on types at compile time: values of all element types are held as
// doubles, component by component, which all of them fit in without rounding.
#pragma once

#include "orvs/fir.h"

#include "tests/support/api.h"
#include "tests/support/guarded.h"
#include "tests/support/inputs.h"

#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

namespace orvtest {

// ---- Values

/// Elements of any type: the components, one behind another.
using Values = std::vector<double>;

std::vector<std::byte> encoded(const ElementType& type, const Values& values);
Values decoded(const ElementType& type, const std::byte* elements, std::size_t n);

/// n elements, uniform within the magnitude; floats of the type's precision, integers whole.
Values drawn(Random& random, const ElementType& type, std::size_t n, double magnitude);

/// n elements from the first on.
Values part(const ElementType& type, const Values& values, std::size_t first, std::size_t n);
/// The elements in reverse order.
Values reversed(const ElementType& type, const Values& values);

/// The last elements of a stream, newest first; past is what came before it, in the same order.
Values newest(const ElementType& type, const Values& past, const Values& x, std::size_t n);

// ---- Exports

/// An export of any signature. Arguments behind the last one are ignored, so that a form without a scale is called with
/// one like the others.
class AnyExport {
public:
    template <class... Args>
    AnyExport(const Export<OrvStatus, Args...>& f) : name_(f.name()), callee_(f.callee()) // implicit, for tables
    {}

    const char* name() const { return name_; }
    std::shared_ptr<const Callee> callee() const { return callee_; }

    template <class... Args>
    OrvStatus operator()(const Args&... args) const
    {
        const AnyArgument arguments[] = {AnyArgument::of(args)...};
        return callee_->call(arguments);
    }

private:
    const char* name_;
    std::shared_ptr<const Callee> callee_;
};

enum class FirEngine { integer, single_precision, double_precision };

/// What all functions of a form have in common.
struct FirTypes {
    const char* form;
    FirEngine engine;
    ElementType taps, samples;
    bool has_factor; ///< integer taps come with a power of two

    bool is_integer() const { return engine == FirEngine::integer; }
    bool is_complex() const { return samples.components == 2; }
    bool is_scaled() const { return samples.number != Number::binary_float; }
    bool is_mixed() const; ///< samples are not of the type that is computed in
};

/// A kind of record and who works on it.
struct FirForm : FirTypes {
    const char* id; ///< four characters, the most significant byte first
    int fft_taps;   ///< the least number of taps with which the FFT is used; 0: never
    AnyExport get_size, init, init_alloc, free, set_taps, get_taps, set_delay, get_delay, filter, filter_in_place, one;
};
const std::vector<FirForm>& fir_forms();
const FirForm& fir_form(const std::string& name);

/// Filters without a record.
struct FirDirectForm : FirTypes {
    AnyExport filter, filter_in_place, one, one_in_place;
};
const std::vector<FirDirectForm>& fir_direct_forms();
const FirDirectForm& fir_direct_form(const std::string& name);

// ---- What filters must compute

/// The 16-bit taps of an integer filter, and their power of two.
struct FirIntegerTaps {
    Values taps;
    int factor;
};
FirIntegerTaps integer_taps(const FirForm& form, const Values& taps, int factor);

/// The values between which each component of a result must be.
struct FirBounds {
    std::vector<long double> low, high;
};
/// The outputs of a filter. Sums of integers are exact modulo 2^32. Those of floats have a tolerance for their
/// rounding, unless the caller knows that they are exact; fft_taps is the form's.
FirBounds fir_bounds(const FirTypes& form, const Values& taps, int factor, const Values& past, const Values& x,
                     int scale, int fft_taps, bool exact = false);
inline FirBounds fir_bounds(const FirForm& form, const Values& taps, int factor, const Values& past, const Values& x,
                            int scale = 0, bool exact = false)
{
    return fir_bounds(form, taps, factor, past, x, scale, form.fft_taps, exact);
}
/// A sum of integers, shifted to the left modulo 2^32, or to the right to nearest even, and saturated to 16 bits.
double shifted_sum(Orv64s sum, int left_shift);
/// The sums of products, exact, of an integer filter. Only their low 32 bits are filtered further.
std::vector<Orv64s> integer_sums(const FirTypes& form, const Values& taps, const Values& past, const Values& x);

/// Expects that results are within the bounds, of which there may be more, and notes them for the digest.
bool expect_within(const AnyExport& f, const FirTypes& form, const Values& got, const FirBounds& bounds,
                   const std::string& what);
/// Expects equal results, and notes them.
bool expect_same(const AnyExport& f, const FirTypes& form, const Values& got, const Values& want,
                 const std::string& what);
/// Expects this status, and notes it.
bool expect_status(const AnyExport& f, OrvStatus got, OrvStatus want, const std::string& what = "");

// ---- Filters

/// How the arrays of a call lie.
struct FirPlaces {
    Placement source = before_guard, destination = before_guard;
};

/// How a filter begins.
struct FirStart {
    int factor = 0;
    Values past = {}; ///< newest first; empty: silence, as null
};

/// A filter: a record that the library allocates, or one in memory of exactly the size told.
class FirFilter {
public:
    FirFilter(const FirForm& form, const Values& taps, const FirStart& start = {});
    FirFilter(const FirForm& form, const Values& taps, const FirStart& start, Placement placement);
    ~FirFilter();
    FirFilter(const FirFilter&) = delete;
    FirFilter& operator=(const FirFilter&) = delete;

    std::size_t taps_len() const { return taps_len_; }
    void* state() const { return state_; }

    Values filter(const Values& x, int scale = 0, const FirPlaces& places = {});
    Values filter_in_place(const Values& x, int scale = 0, Placement placement = before_guard);
    Values one_by_one(const Values& x, int scale = 0);

    /// The taps and their factor as GetTaps gives them.
    FirIntegerTaps taps() const;
    void set_taps(const Values& taps, int factor = 0);
    Values delay() const;
    void set_delay(const Values& past); ///< empty: null

    /// Nothing outside the memory of the filter is written.
    void expect_no_damage(const std::string& what) const;
    std::vector<std::byte> memory() const; ///< of a filter in memory of its own

private:
    const FirForm& form_;
    const std::size_t taps_len_;
    std::unique_ptr<GuardedArray<Orv8u>> block_;
    void* state_ = nullptr;
};

/// The size that a filter of so many taps wants.
std::size_t fir_state_size(const FirForm& form, std::size_t taps_len);

/// How many elements; of one component each for real types.
inline std::size_t count(const ElementType& type, const Values& values)
{
    return values.size() / static_cast<std::size_t>(type.components);
}

} // namespace orvtest
