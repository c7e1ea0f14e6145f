// What the tests of functions of one argument share: sweeps over chosen values, statuses that depend on the elements,
// the caller's floating-point state, which results do not depend on, and errors in ulp.
#pragma once

#include "tests/accuracy/meter.h"
#include "tests/arith/calls.h"

#include <gtest/gtest.h>

namespace orvtest {

// ---- Statuses

/// The status of functions that have no warnings.
struct NoWarning {
    template <class S>
    OrvStatus operator()(const S*, std::size_t) const
    {
        return orvOk;
    }
};

/// The first element that is not positive decides the status of logarithms; not-a-numbers do not.
struct LogarithmWarning {
    template <class S>
    OrvStatus operator()(const S* x, std::size_t n) const
    {
        for (std::size_t i = 0; i < n; ++i) {
            if (x[i] == 0) return orvWrnLnOfZero;
            if (x[i] < 0) return orvWrnLnOfNegative;
        }
        return orvOk;
    }
};

// ---- Calls apart and in place

/// The arrays of a call of n elements from src.
template <class S, class D>
PlacedCall placed_call(const Call<const S*, D*>& f, const std::vector<S>& src, const std::vector<D>& want)
{
    const auto n = static_cast<int>(src.size());
    PlacedCall placed = {f.name, ", behind the length " + f.parameters, n, {}, std::nullopt, {}};
    placed.arrays.push_back({element_type<S>(), false, bytes_of(src), bytes_of(src)});
    placed.arrays.push_back(
        {element_type<D>(), true, std::vector(src.size() * sizeof(D), std::byte{0x5A}), bytes_of(want)});
    placed.call = [&f, n](std::span<std::byte* const> addresses) {
        return f.function(reinterpret_cast<const S*>(addresses[0]), reinterpret_cast<D*>(addresses[1]), n);
    };
    return placed;
}
template <class T>
PlacedCall placed_call(const Call<T*>& f, const std::vector<T>& src, const std::vector<T>& want)
{
    const auto n = static_cast<int>(src.size());
    PlacedCall placed = {f.name, ", behind the length " + f.parameters, n, {}, std::nullopt, {}};
    placed.arrays.push_back({element_type<T>(), true, bytes_of(src), bytes_of(want)});
    placed.call = [&f, n](std::span<std::byte* const> addresses) {
        return f.function(reinterpret_cast<T*>(addresses[0]), n);
    };
    return placed;
}

/// The results for all elements of src in one call.
template <class S, class D>
OrvStatus call_on(const Call<const S*, D*>& f, const std::vector<S>& src, std::vector<D>& results)
{
    results.resize(src.size());
    return f.function(src.data(), results.data(), static_cast<int>(src.size()));
}
template <class T>
OrvStatus call_on(const Call<T*>& f, const std::vector<T>& src, std::vector<T>& results)
{
    results = src;
    return f.function(results.data(), static_cast<int>(src.size()));
}

/// The source's and the destination's elements of a call.
template <class... Args>
struct ElementsOf;
template <class S, class D>
struct ElementsOf<const S*, D*> {
    using Source = S;
    using Result = D;
};
template <class T>
struct ElementsOf<T*> {
    using Source = T;
    using Result = T;
};
template <class... Args>
using SourceOf = typename ElementsOf<Args...>::Source;
template <class... Args>
using ResultOf = typename ElementsOf<Args...>::Result;

// ---- Sweeps

template <class S, class Oracle>
auto results_of(const Oracle& oracle, const std::vector<S>& src)
{
    std::vector<std::invoke_result_t<const Oracle&, S>> results;
    results.reserve(src.size());
    for (const S& x : src) results.push_back(oracle(x));
    return results;
}

/// Lengths around vectors and around the blocks of logarithms.
inline SweepOptions function_lengths()
{
    SweepOptions options;
    options.lengths = lengths_around({96, 128, 256, 1024, 4096, 8192});
    return options;
}

/// Sweeps over lengths and placements, apart and in place, with elements drawn from these values.
template <class... Args, class Oracle, class StatusOf = NoWarning>
bool sweep_values(const Call<Args...>& f, const std::vector<SourceOf<Args...>>& values, const Oracle& oracle,
                  const SweepOptions& options = function_lengths(), const StatusOf& status_of = {})
{
    using S = SourceOf<Args...>;
    using D = ResultOf<Args...>;
    for (const int length : options.lengths) {
        const auto n = static_cast<std::size_t>(length);
        Random random(seed_of(f.name + f.parameters, n));
        std::vector<S> src;
        for (std::size_t i = 0; i < n; ++i)
            src.push_back(values[static_cast<std::size_t>(random.below(values.size()))]);
        PlacedCall placed = placed_call(f, src, results_of(oracle, src));
        SweepOptions how = options;
        how.status = status_of(src.data(), n);
        if (!check_placements(placed, how)) return false;
        if constexpr (sizeof...(Args) == 2 && std::is_same_v<S, D>) {
            placed.in_place_of = 0;
            placed.arrays[1].before = placed.arrays[0].before;
            if (!check_placements(placed, how)) return false;
        }
    }
    return true;
}

/// Compares with the oracle in one call over all values.
template <class... Args, class Oracle, class StatusOf = NoWarning>
bool expect_values(const Call<Args...>& f, const std::vector<SourceOf<Args...>>& values, const Oracle& oracle,
                   const StatusOf& status_of = {})
{
    using S = SourceOf<Args...>;
    using D = ResultOf<Args...>;
    std::vector<D> got;
    const OrvStatus status = call_on(f, values, got);
    EXPECT_EQ(status, status_of(values.data(), values.size())) << f.name << " (" << f.parameters << ")";
    look_at(f.name, got.data(), got.size());
    for (std::size_t i = 0; i < values.size(); ++i) {
        const D want = oracle(values[i]);
        if (same_element(element_type<D>(), &got[i], &want)) continue;
        ADD_FAILURE() << f.name << " (" << f.parameters << ") of " << element_text(element_type<S>(), &values[i])
                      << " is " << element_text(element_type<D>(), &got[i]) << ", not "
                      << element_text(element_type<D>(), &want);
        return false;
    }
    return true;
}

/// The export's own result for a value alone. Its accuracy is another matter; what sweeps show is that results do not
/// depend on the place of an element.
template <class S, class D>
struct Alone {
    Call<const S*, D*> f;

    D operator()(const S& x) const
    {
        D y;
        f.function(&x, &y, 1);
        return y;
    }
};
template <class S, class D>
Alone<S, D> alone(const Export<OrvStatus, const S*, D*, int>& f)
{
    return {f.with()};
}

// ---- Warnings

/// Elements that have no logarithm, at every place of vectors of several lengths and then as pairs: the first decides
/// the status, and the others stay as they are. ordinary is a value without a warning.
template <class... Args, class Oracle>
void expect_first_to_warn(const Call<Args...>& f, SourceOf<Args...> ordinary, const Oracle& oracle)
{
    using S = SourceOf<Args...>;
    const S zero = 0, negative = -3;
    std::vector<S> src;
    std::vector<ResultOf<Args...>> got;
    const auto check = [&] {
        const OrvStatus status = call_on(f, src, got);
        EXPECT_EQ(status, LogarithmWarning()(src.data(), src.size())) << f.name << ", length " << src.size();
        const auto want = results_of(oracle, src);
        EXPECT_EQ(first_difference(element_type<ResultOf<Args...>>(), got.data(), want.data(), want.size()),
                  want.size())
            << f.name << ", length " << src.size();
        return !testing::Test::HasFailure();
    };
    for (std::size_t n = 1; n <= 70; n += n < 36 ? 1 : 34) {
        src.assign(n, ordinary);
        for (std::size_t i = 0; i < n; ++i)
            for (const S first : {zero, negative}) {
                src[i] = first;
                if (!check()) return;
                for (std::size_t k = i + 1; k < n; k += k < i + 9 ? 1 : 13) {
                    src[k] = first == zero ? negative : zero;
                    if (!check()) return;
                    src[k] = ordinary;
                }
                src[i] = ordinary;
            }
    }
    // In different blocks, and in the last vector alone.
    for (const std::size_t n : {std::size_t{4097}, std::size_t{8200}, std::size_t{12289}})
        for (const auto& [i, k] : {std::pair<std::size_t, std::size_t>{0, n - 1},
                                   {4095, 4096},
                                   {1, 4096},
                                   {n - 2, n - 1},
                                   {n - 1, n - 1},
                                   {4095, n - 1}})
            for (const S first : {zero, negative}) {
                src.assign(n, ordinary);
                src[k] = first == zero ? negative : zero;
                src[i] = first;
                if (!check()) return;
            }
}

// ---- The caller's floating-point state, which results do not depend on

/// Parts of the values in any state, with exceptions masked and not. Flags may come up.
template <class... Args>
void expect_the_same_in_any_state(const Call<Args...>& f, const std::vector<SourceOf<Args...>>& values)
{
    using D = ResultOf<Args...>;
    for (const int length : {1, 3, 7, 8, 17, 40, 300, 5000}) {
        const std::vector<SourceOf<Args...>> src(values.begin(),
                                                 values.begin() + std::min(length, static_cast<int>(values.size())));
        std::vector<D> want;
        const OrvStatus status = call_on(f, src, want);
        look_at(f.name, want.data(), want.size());
        const auto call = [&](D* dst, int n) {
            if constexpr (sizeof...(Args) == 1) {
                std::copy(src.begin(), src.end(), dst);
                return f.function(dst, n);
            } else {
                return f.function(src.data(), dst, n);
            }
        };
        for (const Exceptions exceptions : {Exceptions::masked, Exceptions::unmasked})
            expect_the_same_in_any_state(f.name, want, status, call, exceptions, flag_bits);
    }
}

// ---- Floating results

/// Floats that meet all roads of a kernel: random ones of all classes, and dense ones near 1.
template <class T>
std::vector<T> telling_floats()
{
    Random random(sizeof(T));
    std::vector<T> values = inputs<T>(random, 6000);
    using Limits = std::numeric_limits<T>;
    for (const T x : {T(0), Limits::denorm_min(), Limits::min(), Limits::max(), Limits::infinity(), T(1), T(0.5), T(87),
                      T(89), T(104), T(708), T(710), T(746)}) {
        values.insert(values.begin(), x);
        values.insert(values.begin(), -x);
    }
    for (std::size_t i = 0; i < values.size(); i += 3) values[i] = std::fabs(values[i]);
    return values;
}

/// Expects these values of f bit for bit, any not-a-number for any other.
template <class S, class D>
void expect_special(const Export<OrvStatus, const S*, D*, int>& f, std::initializer_list<std::pair<S, D>> pairs)
{
    for (const auto& [x, y] : pairs)
        for (const std::size_t n : {std::size_t{1}, std::size_t{4}, std::size_t{11}, std::size_t{40}}) {
            const std::vector<S> src(n, x);
            std::vector<D> d(n);
            EXPECT_GE(f(src.data(), d.data(), static_cast<int>(n)), orvOk);
            expect_elements(f, d, std::vector<D>(n, y));
        }
}

/// Expects errors of at most bound ulp at a sample of all arguments. The results go into the digests.
template <class T>
void expect_accuracy(const Export<OrvStatus, const T*, T*, int>& f, const Function& function, double bound)
{
    const Subject<T> subject = {f.name(), function, [&f](const T* x, const T*, T* dst, int n) {
                                    EXPECT_GE(f(x, dst, n), orvOk);
                                    look_at(f.name(), dst, static_cast<std::size_t>(n));
                                }};
    const auto report = measure(subject, Arguments<T>(function, Extent::sample));
    EXPECT_LE(report.worst.error, bound) << f.name() << ": " << text(report.worst, 1);
    EXPECT_LT(report.reference_error, 0.01) << f.name() << ": the reference is not to be trusted";
}
/// The same where source and result differ in type: ulps are those of the result.
template <class S, class D>
void expect_accuracy_of_result(const Export<OrvStatus, const S*, D*, int>& f, const Function& function, double bound)
{
    const Arguments<S> arguments(function, Extent::sample);
    std::vector<S> src;
    for (std::uint64_t i = 0; i < arguments.count(); ++i) src.push_back(arguments[i].x);
    std::vector<D> got(src.size());
    EXPECT_GE(f(src.data(), got.data(), static_cast<int>(src.size())), orvOk);
    look_at(f.name(), got.data(), got.size());
    double worst = 0;
    std::size_t at = 0;
    for (std::size_t i = 0; i < src.size(); ++i) {
        const long double exact = function(static_cast<long double>(src[i]), 0.0L);
        const double error = ulp_error(got[i], exact);
        if (error > worst) worst = error, at = i;
    }
    EXPECT_LE(worst, bound) << f.name() << " at " << element_text(element_type<S>(), &src[at]);
}

} // namespace orvtest
