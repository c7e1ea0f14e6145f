// The harness of functions that compute each element of one destination from the elements at the same place.
//
//     sweep_elements(ORV_EXPORT(orvsSub_32f), [](float a, float b) { return b - a; });
//     sweep_exact(ORV_EXPORT(orvsAdd_16s_Sfs), [](auto a, auto b) { return a + b; });
//
// The types of the arguments tell what they are: a pointer to const is a source, the other pointer the destination, the
// last argument of a call is the length, and a value before it is a scalar. Arguments behind the length are fixed with
// ORV_EXPORT(f).with(...), an unusual order is told with .as(...). The oracle takes one element of each argument before
// the length, in their order: scalars included, the destination only if the function reads it (the oracle's number of
// parameters tells). It returns the wanted element.
//
// A sweep goes over lengths and placements, out of place and, where a source has the destination's type, in that
// source's place. It checks the status, each element bit for bit (any NaN for any NaN), that sources and everything
// around the arrays stay as they were, and that no byte outside the arrays is read or written. It stops at the first
// failure and tells all that is needed to make it again.
#pragma once

#include "api.h"
#include "digest.h"
#include "guarded.h"
#include "operands.h"
#include "sweep.h"
#include "wide.h"

#include <functional>
#include <optional>
#include <span>

namespace orvtest {

struct SweepOptions {
    std::vector<int> lengths = lengths_around();
    bool in_place = true;              ///< also with the destination in the place of each source of its type
    OrvStatus status = orvOk;          ///< the status to expect
    Floats floats = Floats::any;       ///< what floating inputs may be
    NanView nans = NanView::one_value; ///< bits: NaNs keep sign and payload (moves and fills)
    bool few_placements = false;       ///< both guards and a handful of misalignments at every length
};

/// One array of a call, as bytes: what it holds before and what it has to hold after.
struct ArrayArgument {
    ElementType type;
    bool is_destination;
    std::vector<std::byte> before, after;
};

/// A call of given length with all its data, made at many placements.
struct PlacedCall {
    const char* name;       ///< of the export
    std::string parameters; ///< values of the arguments that are no arrays
    int length;
    std::vector<ArrayArgument> arrays;
    std::optional<std::size_t> in_place_of;                     ///< the source in whose place the destination is
    std::function<OrvStatus(std::span<std::byte* const>)> call; ///< takes the addresses of the arrays, in their order
};

/// Makes the call at the placements, and says whether all were right. Reports the first that was not.
bool check_placements(const PlacedCall& placed_call, const SweepOptions& options);

/// Sweeps a call whose oracle gives the wanted element itself. Says whether all was right.
bool sweep_operands(const AnyCall& call, std::span<const OperandType> types, const AnyOracle& oracle,
                    const SweepOptions& options);

template <class... Args, class Oracle>
bool sweep_elements(const Call<Args...>& call, const Oracle& oracle, const SweepOptions& options = {})
{
    return sweep_operands(call, operand_types<Args...>, any_oracle<Args...>(oracle), options);
}
template <class... Args, class Oracle>
bool sweep_elements(const Export<OrvStatus, Args...>& f, const Oracle& oracle, const SweepOptions& options = {})
{
    return sweep_elements(f.with(), oracle, options);
}

/// The number of arguments behind the length, which follows the last array.
template <class... Args>
constexpr std::size_t arguments_behind_length()
{
    std::size_t behind = 0;
    ((behind = std::is_pointer_v<Args> ? 0 : behind + 1), ...);
    return behind - 1;
}

/// The options of one scale among many: all of the sweep at a few scales, one or two for each road; at the others
/// twelve lengths, whose order changes with the scale.
SweepOptions options_at_scale(const SweepOptions& options, int scale, int reach);

/// The law of scale factors over an oracle of exact values, as an oracle of elements.
template <class Result, class Oracle>
struct ExactOracle {
    const Oracle& oracle;
    int scale;
    OrvRoundMode mode;

    template <class... E>
    requires requires(const Oracle& f, const E&... elements) { f(exact(elements)...); }
    Result operator()(const E&... elements) const
    {
        return saturate<Result>(scale_law(oracle(exact(elements)...), scale, mode));
    }
};

/// Sweeps an integer function under the law of scale factors: the oracle gives the exact result of exact operands
/// (Wide, or WideComplex for complex elements), and the law makes the element of it. An export without a scale is taken
/// at scale 0, one with a scale at all scales (a few of them with all lengths), one with scale and rounding mode in all
/// modes too.
template <class... Args, class Oracle>
bool sweep_exact(const Export<OrvStatus, Args...>& f, const Oracle& oracle, const SweepOptions& options = {})
{
    constexpr std::size_t behind_length = arguments_behind_length<Args...>();
    using Result = DestinationElement<Args...>;
    using Element = ExactOracle<Result, Oracle>;
    if constexpr (behind_length == 0) {
        return sweep_elements(f.with(), Element{oracle, 0, orvRndNear}, options);
    } else {
        const int reach = scale_reach(element_type<Result>().component_size);
        for (const int scale : scales(reach)) {
            const SweepOptions how = options_at_scale(options, scale, reach);
            if constexpr (behind_length == 1) {
                if (!sweep_elements(f.with(scale), Element{oracle, scale, orvRndNear}, how)) return false;
            } else {
                for (const OrvRoundMode mode : {orvRndZero, orvRndNear, orvRndFinancial})
                    if (!sweep_elements(f.with(scale, mode), Element{oracle, scale, mode}, how)) return false;
            }
        }
        return true;
    }
}

} // namespace orvtest
