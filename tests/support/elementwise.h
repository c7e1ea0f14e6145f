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
#include "inputs.h"
#include "sweep.h"
#include "wide.h"

#include <optional>
#include <span>
#include <type_traits>

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

template <class Argument>
constexpr bool is_destination = std::is_pointer_v<Argument> && !std::is_const_v<std::remove_pointer_t<Argument>>;

/// What the operands of one length are drawn from.
struct Draw {
    Random random;
    std::size_t length;
    std::size_t round; ///< the number of the length in the sweep: scalars take their notable values in turn
    Floats floats;
    std::size_t arrays = 0; ///< so many are drawn
};

/// The index of the destination among the arguments.
template <class... Args>
constexpr std::size_t find_destination()
{
    static_assert((int{is_destination<Args>} + ...) == 1, "a sweep needs one destination");
    std::size_t found = 0, i = 0;
    ((found = is_destination<Args> ? i : found, ++i), ...);
    return found;
}

template <class... Args>
using DestinationElement =
    std::remove_pointer_t<std::tuple_element_t<find_destination<Args...>(), std::tuple<Args...>>>;

/// The content of an argument before the length. A scalar is the same at each place.
template <class Argument>
struct Operand {
    Argument value;

    const Argument& operator[](std::size_t) const { return value; }

    void draw(Draw& from)
    {
        std::vector<Argument> values = notable_values<Argument>(from.floats);
        values.push_back(inputs<Argument>(from.random, 1, from.floats)[0]);
        value = values[from.round % values.size()];
    }
    void add_to(PlacedCall& placed) const
    {
        placed.parameters += ", scalar " + element_text(element_type<Argument>(), &value);
    }
    Argument argument(std::span<std::byte* const>) const { return value; }
};

/// An array has an element for each place.
template <class T>
struct Operand<T*> {
    using Value = std::remove_const_t<T>;
    std::vector<Value> values;
    std::size_t array = 0; ///< its number among the arrays of the call

    const Value& operator[](std::size_t i) const { return values[i]; }

    void draw(Draw& from)
    {
        values = inputs<Value>(from.random, from.length, from.floats);
        array = from.arrays++;
    }
    void add_to(PlacedCall& placed) const
    {
        placed.arrays.push_back({element_type<Value>(), is_destination<T*>, bytes(), bytes()});
    }
    T* argument(std::span<std::byte* const> addresses) const { return reinterpret_cast<T*>(addresses[array]); }

    std::vector<std::byte> bytes() const
    {
        const auto* first = reinterpret_cast<const std::byte*>(values.data());
        return {first, first + values.size() * sizeof(T)};
    }
};

/// The element at one place of an operand, as an argument of the oracle; nothing for a destination that is not read.
template <bool reads_destination, class Argument>
auto oracle_argument(const Operand<Argument>& operand, std::size_t i)
{
    if constexpr (is_destination<Argument> && !reads_destination) return std::tuple<>();
    else return std::tie(operand[i]);
}

/// All operands of a call, and the sweep over their lengths. Args are the types of the arguments before the length.
template <class Oracle, class... Args>
class ElementwiseSweep {
    static constexpr std::size_t destination = find_destination<Args...>();
    static constexpr bool reads_destination =
        std::is_invocable_v<const Oracle&, decltype(std::declval<const Operand<Args>&>()[0])...>;

public:
    using Operands = std::tuple<Operand<Args>...>;
    using Result = DestinationElement<Args...>;

    ElementwiseSweep(const Call<Args...>& call, const Oracle& oracle, const SweepOptions& options)
        : call_(call), oracle_(oracle), options_(options)
    {}

    /// Says whether all was right.
    bool run() const
    {
        for (std::size_t round = 0; round < options_.lengths.size(); ++round)
            if (!run_length(options_.lengths[round], round)) return false;
        return true;
    }

private:
    bool run_length(int length, std::size_t round) const
    {
        const auto n = static_cast<std::size_t>(length);
        Draw from = {Random(seed_of(call_.name + call_.parameters, n)), n, round, options_.floats};
        Operands operands;
        std::apply([&](auto&... operand) { (operand.draw(from), ...); }, operands);

        const auto in_place = [&](const auto& operand) { return check_in_place_of(operand, operands, length); };
        return check(operands, length, std::nullopt) &&
               std::apply([&](const auto&... operand) { return (in_place(operand) && ...); }, operands);
    }

    /// The destination in the place of this operand, if it is a source of the same type.
    template <class Argument>
    bool check_in_place_of(const Operand<Argument>& operand, const Operands& operands, int length) const
    {
        if constexpr (std::is_same_v<Argument, const Result*>) {
            if (!options_.in_place) return true;
            Operands shared = operands;
            std::get<destination>(shared).values = operand.values;
            return check(shared, length, operand.array);
        }
        return true;
    }

    bool check(const Operands& operands, int length, std::optional<std::size_t> in_place_of) const
    {
        PlacedCall placed = {};
        placed.name = call_.name;
        placed.length = length;
        placed.in_place_of = in_place_of;
        std::apply([&](const auto&... operand) { (operand.add_to(placed), ...); }, operands);
        placed.arrays[std::get<destination>(operands).array].after = wanted(operands, static_cast<std::size_t>(length));
        if (!call_.parameters.empty()) placed.parameters += ", behind the length " + call_.parameters;
        placed.call = [&](std::span<std::byte* const> addresses) {
            const auto call = [&](const auto&... operand) {
                return call_.function(operand.argument(addresses)..., length);
            };
            return std::apply(call, operands);
        };
        return check_placements(placed, options_);
    }

    /// What the oracle says, as bytes.
    std::vector<std::byte> wanted(const Operands& operands, std::size_t n) const
    {
        Operand<Result*> results;
        results.values.resize(n);
        for (std::size_t i = 0; i < n; ++i) {
            const auto elements = [&](const auto&... operand) {
                return std::tuple_cat(oracle_argument<reads_destination>(operand, i)...);
            };
            results.values[i] = std::apply(oracle_, std::apply(elements, operands));
        }
        return results.bytes();
    }

    const Call<Args...>& call_;
    const Oracle& oracle_;
    const SweepOptions& options_;
};

/// Sweeps a call whose oracle gives the wanted element itself.
template <class... Args, class Oracle>
bool sweep_elements(const Call<Args...>& call, const Oracle& oracle, const SweepOptions& options = {})
{
    return ElementwiseSweep<Oracle, Args...>(call, oracle, options).run();
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

/// Sweeps an integer function under the law of scale factors: the oracle gives the exact result of exact operands
/// (Wide, or WideComplex for complex elements), and the law makes the element of it. An export without a scale is taken
/// at scale 0, one with a scale at all scales (a few of them with all lengths), one with scale and rounding mode in all
/// modes too.
template <class... Args, class Oracle>
bool sweep_exact(const Export<OrvStatus, Args...>& f, const Oracle& oracle, const SweepOptions& options = {})
{
    constexpr std::size_t behind_length = arguments_behind_length<Args...>();
    using Result = DestinationElement<Args...>;
    // At one scale. The arguments behind the length are last: nothing, scale, or scale and mode.
    const auto sweep = [&](const SweepOptions& how, int scale, OrvRoundMode mode, auto... last) {
        const auto element = [&]<class... E>(
            const E&... e) requires std::invocable<const Oracle&, decltype(exact(e))...>
        {
            return saturate<Result>(scale_law(oracle(exact(e)...), scale, mode));
        };
        return sweep_elements(f.with(last...), element, how);
    };
    if constexpr (behind_length == 0) return sweep(options, 0, orvRndNear);

    const int reach = scale_reach(element_type<Result>().component_size);
    for (const int scale : scales(reach)) {
        const SweepOptions how = options_at_scale(options, scale, reach);
        if constexpr (behind_length == 1)
            if (!sweep(how, scale, orvRndNear, scale)) return false;
        if constexpr (behind_length == 2)
            for (const OrvRoundMode mode : {orvRndZero, orvRndNear, orvRndFinancial})
                if (!sweep(how, scale, mode, scale, mode)) return false;
    }
    return true;
}

} // namespace orvtest
