// The law of scale factors on vectors: exact values, rounding, saturation, and the loads and stores of short arrays.
#include "frame/scale.h"

#include "tests/support/guarded.h"
#include "tests/support/inputs.h"
#include "tests/support/wide.h"

#include <gtest/gtest.h>
#include <set>
#include <string>
#include <type_traits>

namespace orvtest {
namespace {

namespace library = ORV_VARIANT;
using library::by;
using library::load;
using library::load_n;
using library::splat;
using library::store;
using library::store_n;
using library::vec;

// ---- Operands

/// The values of a type at which sums, shifts and roundings change; all values up to 8 bits.
template <class T>
std::vector<T> telling_values()
{
    constexpr int width = 8 * static_cast<int>(sizeof(T));
    std::set<T> values;
    if (width == 8) {
        for (int i = 0; i < 256; ++i) values.insert(static_cast<T>(i));
    } else {
        for (int bit = 0; bit < width; ++bit)
            for (const std::uint64_t odd : {1u, 3u})
                for (const int near : {-1, 0, 1}) {
                    const std::uint64_t value = (odd << bit) + static_cast<std::uint64_t>(near);
                    values.insert(static_cast<T>(value));
                    values.insert(static_cast<T>(-value));
                }
        for (const T limit : {std::numeric_limits<T>::min(), std::numeric_limits<T>::max()})
            for (const int near : {-2, -1, 0, 1, 2})
                values.insert(static_cast<T>(static_cast<std::uint64_t>(limit) + static_cast<std::uint64_t>(near)));
    }
    return {values.begin(), values.end()};
}

/// Pairs of operands, a multiple of any number of lanes.
template <class T>
struct Pairs {
    std::vector<T> a, b;

    void add(T x, T y)
    {
        a.push_back(x);
        b.push_back(y);
    }
    void fill_up()
    {
        while (a.size() % 32 != 0) add(a[0], b[0]);
    }
};

/// All pairs of 8-bit values. Wider types: every telling value with some others in turn, and random pairs; every
/// exact value near a limit of the type is there.
template <class T>
const Pairs<T>& pairs()
{
    static const Pairs<T> all = [] {
        Pairs<T> made;
        const std::vector<T> values = telling_values<T>();
        const std::size_t step = values.size() <= 256 ? 1 : values.size() / 24;
        for (std::size_t i = 0; i < values.size(); ++i)
            for (std::size_t k = i % step; k < values.size(); k += step) made.add(values[i], values[k]);
        Random random(sizeof(T));
        const std::vector<T> some = inputs<T>(random, 1000), others = inputs<T>(random, 1000);
        for (std::size_t i = 0; i < some.size(); ++i) made.add(some[i], others[i]);
        constexpr T low = std::numeric_limits<T>::min(), high = std::numeric_limits<T>::max();
        for (T i = 0; i < 4; ++i)
            for (T k = 0; k < 4; ++k) {
                made.add(static_cast<T>(low + i), static_cast<T>(high - k));
                made.add(static_cast<T>(high - i), static_cast<T>(low + k));
                made.add(static_cast<T>(low + i), static_cast<T>(low + k));
                made.add(static_cast<T>(high - i), static_cast<T>(high - k));
            }
        made.fill_up();
        return made;
    }();
    return all;
}

/// All values of 8 and 16 bits; of wider types the telling ones and some random ones.
template <class T>
const std::vector<T>& values()
{
    static const std::vector<T> all = [] {
        std::vector<T> made = telling_values<T>();
        if (sizeof(T) == 2)
            for (int i = 0; i < 65536; ++i) made.push_back(static_cast<T>(i));
        Random random(sizeof(T));
        const std::vector<T> more = inputs<T>(random, 1000);
        made.insert(made.end(), more.begin(), more.end());
        while (made.size() % 32 != 0) made.push_back(0);
        return made;
    }();
    return all;
}

template <class T>
std::string type_name()
{
    return (std::is_signed_v<T> ? "signed " : "unsigned ") + std::to_string(8 * sizeof(T)) + " bits";
}

/// Compares op on vectors of pairs with the oracle on each pair.
template <class T, class Op, class Oracle>
bool check_pairs(const Pairs<T>& operands, const Op& op, const Oracle& oracle, const std::string& what)
{
    constexpr std::size_t lanes = vec<T>::N;
    for (std::size_t i = 0; i < operands.a.size(); i += lanes) {
        T got[lanes];
        store(got, op(load(&operands.a[i]), load(&operands.b[i])));
        for (std::size_t k = 0; k < lanes; ++k) {
            const T a = operands.a[i + k], b = operands.b[i + k], want = oracle(a, b);
            if (got[k] == want) continue;
            ADD_FAILURE() << what << ", " << type_name<T>() << ", of " << +a << " and " << +b << " is " << +got[k]
                          << ", not " << +want;
            return false;
        }
    }
    return true;
}

template <class T, class Op, class Oracle>
bool check_values(const Op& op, const Oracle& oracle, const std::string& what)
{
    const Pairs<T> twice = {values<T>(), values<T>()};
    return check_pairs(
        twice, [&](vec<T> v, vec<T>) { return op(v); }, [&](T v, T) { return oracle(v); }, what);
}

std::string at_scale(const char* what, int scale, OrvRoundMode mode = orvRndNear)
{
    return std::string(what) + " at scale " + std::to_string(scale) + " in mode " + std::to_string(mode);
}

// ---- Sums and differences

/// An operation on vectors, and the exact value that it stands for.
struct Sum {
    template <class T>
    auto operator()(vec<T> a, vec<T> b) const
    {
        return library::exact_sum(a, b);
    }
    template <class T>
    static Wide exact(T a, T b)
    {
        return Wide(a) + b;
    }
};
struct Difference {
    template <class T>
    auto operator()(vec<T> a, vec<T> b) const
    {
        return library::exact_difference(a, b);
    }
    template <class T>
    static Wide exact(T a, T b)
    {
        return Wide(a) - b;
    }
};
struct First {
    template <class T>
    auto operator()(vec<T> a, vec<T>) const
    {
        return library::exact_lane(a);
    }
    template <class T>
    static Wide exact(T a, T)
    {
        return a;
    }
};

/// 2 * half + the lowest bit of odd is the exact value.
template <class T, class Operation>
void check_exact(const Operation& operation, const char* what)
{
    check_pairs(
        pairs<T>(), [&](vec<T> a, vec<T> b) { return operation(a, b).half; },
        [&](T a, T b) { return static_cast<T>((Operation::exact(a, b) >> 1).low64()); }, what);
    check_pairs(
        pairs<T>(), [&](vec<T> a, vec<T> b) { return operation(a, b).odd & splat(T(1)); },
        [&](T a, T b) { return static_cast<T>(Operation::exact(a, b).odd()); }, what);
}

template <class... T>
struct Types {
    template <class Visit>
    static void each(const Visit& visit)
    {
        (visit(T{}), ...);
    }
};
using Integers = Types<Orv8u, Orv16u, Orv16s, Orv32u, Orv32s, Orv64u, Orv64s>;
using SignedIntegers = Types<Orv16s, Orv32s, Orv64s>;

TEST(Exact, sums)
{
    Integers::each([]<class T>(T) { check_exact<T>(Sum{}, "sum"); });
}
TEST(Exact, differences)
{
    SignedIntegers::each([]<class T>(T) { check_exact<T>(Difference{}, "difference"); });
}
TEST(Exact, lanes)
{
    Integers::each([]<class T>(T) { check_exact<T>(First{}, "lane"); });
}

// ---- Rounding

/// visit(mode as a constant)
template <class Visit>
void for_each_mode(const Visit& visit)
{
    visit(std::integral_constant<OrvRoundMode, orvRndZero>());
    visit(std::integral_constant<OrvRoundMode, orvRndNear>());
    visit(std::integral_constant<OrvRoundMode, orvRndFinancial>());
}

template <class T, class Operation, OrvRoundMode mode>
void check_half(const Operation& operation, std::integral_constant<OrvRoundMode, mode>, const char* what)
{
    check_pairs(
        pairs<T>(), [&](vec<T> a, vec<T> b) { return library::round_half<mode>(operation(a, b)); },
        [&](T a, T b) { return saturate<T>(scale_law(Operation::exact(a, b), 1, mode)); }, at_scale(what, 1, mode));
}

TEST(RoundHalf, sums)
{
    Integers::each([]<class T>(T) { for_each_mode([](auto mode) { check_half<T>(Sum{}, mode, "sum"); }); });
}
TEST(RoundHalf, differences)
{
    SignedIntegers::each(
        []<class T>(T) { for_each_mode([](auto mode) { check_half<T>(Difference{}, mode, "difference"); }); });
}
TEST(RoundHalf, lanes)
{
    Integers::each([]<class T>(T) { for_each_mode([](auto mode) { check_half<T>(First{}, mode, "lane"); }); });
}

/// 16-bit lanes round to nearest only.
template <OrvRoundMode mode, class T, class HalfOdd>
vec<T> rounded(HalfOdd x, const library::rounding<T>& constants)
{
    if constexpr (mode == orvRndNear) return library::round_shift(x, constants);
    else return library::round_shift<mode>(x, constants);
}
template <class T, OrvRoundMode mode>
constexpr bool rounds = mode == orvRndNear || !std::is_same_v<T, Orv16s>;

template <class T, class Operation, OrvRoundMode mode>
void check_shift(const Operation& operation, std::integral_constant<OrvRoundMode, mode>, const char* what)
{
    if constexpr (rounds<T, mode>) {
        for (int scale = 2; scale <= 8 * static_cast<int>(sizeof(T)); ++scale) {
            const library::rounding<T> constants(scale);
            const bool right = check_pairs(
                pairs<T>(), [&](vec<T> a, vec<T> b) { return rounded<mode, T>(operation(a, b), constants); },
                [&](T a, T b) { return saturate<T>(scale_law(Operation::exact(a, b), scale, mode)); },
                at_scale(what, scale, mode));
            if (!right) return;
        }
    }
}

TEST(RoundShift, sums)
{
    Integers::each([]<class T>(T) { for_each_mode([](auto mode) { check_shift<T>(Sum{}, mode, "sum"); }); });
}
TEST(RoundShift, differences)
{
    SignedIntegers::each(
        []<class T>(T) { for_each_mode([](auto mode) { check_shift<T>(Difference{}, mode, "difference"); }); });
}
TEST(RoundShift, lanes)
{
    Integers::each([]<class T>(T) { for_each_mode([](auto mode) { check_shift<T>(First{}, mode, "lane"); }); });
}

template <class T, OrvRoundMode mode>
void check_trace(std::integral_constant<OrvRoundMode, mode>)
{
    if constexpr (rounds<T, mode>) {
        for (int scale = 3; scale <= 8 * static_cast<int>(sizeof(T)) + 1; ++scale) {
            const library::rounding<T> constants(scale - 1);
            const auto op = [&](vec<T> a, vec<T> b) {
                return rounded<mode, T>(library::with_trace(library::exact_sum(a, b)), constants);
            };
            const auto oracle = [&](T a, T b) { return saturate<T>(scale_law(Sum::exact(a, b), scale, mode)); };
            if (!check_pairs(pairs<T>(), op, oracle, at_scale("sum with a trace", scale, mode))) return;
        }
    }
}

TEST(RoundShift, sums_with_a_trace)
{
    Integers::each([]<class T>(T) { for_each_mode([](auto mode) { check_trace<T>(mode); }); });
}

// ---- Exact values in wide lanes: a * b + c

/// Compares op on vectors of a, b and c with the oracle on a * b + c; c takes the values of b in another order.
template <class T, class Op, class Oracle>
bool check_products(const Op& op, const Oracle& oracle, const std::string& what)
{
    constexpr std::size_t lanes = vec<T>::N;
    const Pairs<T>& operands = pairs<T>();
    const std::size_t n = operands.a.size();
    for (std::size_t i = 0; i < n; i += lanes) {
        const T* c = &operands.b[n - lanes - i];
        T got[lanes];
        store(got, op(library::multiply_add_wide(load(&operands.a[i]), load(&operands.b[i]), load(c))));
        for (std::size_t k = 0; k < lanes; ++k) {
            const T a = operands.a[i + k], b = operands.b[i + k], want = oracle(Wide(a) * b + c[k]);
            if (got[k] == want) continue;
            ADD_FAILURE() << what << " of " << a << " * " << b << " + " << c[k] << " is " << got[k] << ", not " << want;
            return false;
        }
    }
    return true;
}

template <class T>
void check_wide_rounding()
{
    using Twice = std::conditional_t<sizeof(T) == 2, Orv32s, Orv64s>;
    const auto at = [](int scale) { return [scale](const Wide& x) { return saturate<T>(scale_law(x, scale)); }; };
    check_products<T>([](auto x) { return library::pack_sat(x); }, at(0), at_scale("packed", 0));
    check_products<T>([](auto x) { return library::round_half(x); }, at(1), at_scale("rounded", 1));
    for (int scale = 2; scale <= 16 * static_cast<int>(sizeof(T)); ++scale) {
        const library::rounding<Twice> constants(scale);
        const auto op = [&](auto x) { return library::round_shift(x, constants); };
        if (!check_products<T>(op, at(scale), at_scale("rounded", scale))) return;
    }
}

TEST(WideLanes, products_and_sums_of_16_bits) { check_wide_rounding<Orv16s>(); }
TEST(WideLanes, products_and_sums_of_32_bits) { check_wide_rounding<Orv32s>(); }

/// Packing takes the lanes in the order in which an unpacking instruction gives them: within each half of a register.
TEST(PackSat, two_vectors_of_32_bits)
{
    const std::vector<Orv32s>& all = values<Orv32s>();
    for (std::size_t i = 0; i < all.size(); i += 16) {
        Orv32s low[8], high[8];
        for (std::size_t k = 0; k < 4; ++k) {
            low[k] = all[i + k];
            high[k] = all[i + 4 + k];
            low[4 + k] = all[i + 8 + k];
            high[4 + k] = all[i + 12 + k];
        }
        Orv16s got[16];
        store(got, library::pack_sat(library::split<Orv32s>{load(low), load(high)}));
        for (std::size_t k = 0; k < 16; ++k) EXPECT_EQ(got[k], saturate<Orv16s>(Wide(all[i + k]))) << all[i + k];
    }
}
TEST(PackSat, even_and_odd_lanes_of_64_bits)
{
    const std::vector<Orv64s>& all = values<Orv64s>();
    for (std::size_t i = 0; i < all.size(); i += 8) {
        Orv64s even[4], odd[4];
        for (std::size_t k = 0; k < 4; ++k) {
            even[k] = all[i + 2 * k];
            odd[k] = all[i + 2 * k + 1];
        }
        Orv32s got[8];
        store(got, library::pack_sat(library::even_odd<Orv64s>{load(even), load(odd)}));
        for (std::size_t k = 0; k < 8; ++k) EXPECT_EQ(got[k], saturate<Orv32s>(Wide(all[i + k]))) << all[i + k];
    }
}

// ---- Saturation

TEST(Saturated, sums)
{
    Integers::each([]<class T>(T) {
        check_pairs(
            pairs<T>(), [](vec<T> a, vec<T> b) { return library::add_sat(a, b); },
            [](T a, T b) { return saturate<T>(Sum::exact(a, b)); }, "saturated sum");
    });
}

TEST(Saturated, differences)
{
    Types<Orv8u, Orv16u, Orv16s, Orv32s, Orv64s>::each([]<class T>(T) {
        check_pairs(
            pairs<T>(), [](vec<T> a, vec<T> b) { return library::sub_sat(a, b); },
            [](T a, T b) { return saturate<T>(Difference::exact(a, b)); }, "saturated difference");
    });
}

TEST(Saturated, left_shifts)
{
    Integers::each([]<class T>(T) {
        for (int n = 0; n <= 8 * static_cast<int>(sizeof(T)) + 2; ++n) {
            const auto op = [&](vec<T> v) { return library::shift_left_sat(v, by(n)); };
            const auto oracle = [&](T v) { return saturate<T>(scale_law(Wide(v), -n)); };
            if (!check_values<T>(op, oracle, at_scale("left shift", -n))) return;
        }
    });
}

TEST(Saturated, only_the_sign_is_left)
{
    Integers::each([]<class T>(T) {
        check_values<T>([](vec<T> v) { return library::sign_limit(v); },
                        [](T v) {
                            if (v == 0) return T(0);
                            return std::cmp_less(v, 0) ? std::numeric_limits<T>::min() : std::numeric_limits<T>::max();
                        },
                        "limit by the sign");
    });
}

TEST(Saturated, limit_of_the_own_sign)
{
    SignedIntegers::each([]<class T>(T) {
        check_values<T>([](vec<T> v) { return library::limit_by_sign(v); },
                        [](T v) { return v < 0 ? std::numeric_limits<T>::min() : std::numeric_limits<T>::max(); },
                        "limit of the own sign");
    });
}

// ---- Short arrays

/// Which element each lane has after load_n of n elements. Where says at which page the array ends or begins.
template <class T, int lanes>
std::vector<int> order_of_lanes(int n, Placement where)
{
    std::vector<T> elements;
    for (int i = 0; i < n; ++i) elements.push_back(static_cast<T>(i + 1));
    GuardedArray<T> array(elements, where);
    const vec<T, lanes> loaded = load_n<T, lanes>(array.data(), n);
    T got[lanes];
    std::memcpy(got, &loaded.r, sizeof got);
    std::vector<int> order;
    for (const T lane : got) order.push_back(static_cast<int>(lane) - 1);
    return order;
}

template <class T, int lanes = vec<T>::N>
void check_loads()
{
    for (int n = 1; n < lanes; ++n)
        for (const Placement where : {before_guard, after_guard, misaligned(1)}) {
            const std::vector<int> order = order_of_lanes<T, lanes>(n, where);
            std::set<int> seen;
            for (const int i : order) {
                EXPECT_TRUE(i >= 0 && i < n) << "a lane that is not in the array of " << n;
                seen.insert(i);
            }
            EXPECT_EQ(seen.size(), static_cast<std::size_t>(n)) << "not all of the array of " << n;
        }
}

template <class T>
void check_stores()
{
    Random random(sizeof(T));
    for (int n = 1; n < vec<T>::N; ++n)
        for (const Placement where : {before_guard, after_guard, misaligned(0), misaligned(1), misaligned(31)}) {
            const std::vector<T> elements = inputs<T>(random, static_cast<std::size_t>(n));
            const GuardedArray<T> source(elements, where);
            GuardedArray<T> destination(elements.size(), where);
            store_n(destination.data(), load_n(source.data(), n), n);
            const std::vector<T> got = destination.elements();
            EXPECT_EQ(std::memcmp(got.data(), elements.data(), elements.size() * sizeof(T)), 0) << n << " elements";
            EXPECT_EQ(destination.damage(), "") << n << " elements";
        }
}

using AllTypes = Types<Orv8u, Orv8s, Orv16u, Orv16s, Orv32u, Orv32s, Orv32f, Orv64u, Orv64s, Orv64f>;

TEST(ShortArrays, loads_read_the_array_and_nothing_else)
{
    AllTypes::each([]<class T>(T) { check_loads<T>(); });
    check_loads<Orv8u, 16>();
    check_loads<Orv16s, 8>();
    check_loads<Orv16u, 8>();
    check_loads<Orv32s, 4>();
    check_loads<Orv64s, 2>();
}

TEST(ShortArrays, stores_write_the_array_and_nothing_else)
{
    AllTypes::each([]<class T>(T) { check_stores<T>(); });
}

TEST(ShortArrays, equal_numbers_of_lanes_have_equal_orders)
{
    for (int n = 1; n < 16; ++n)
        EXPECT_EQ((order_of_lanes<Orv8u, 16>(n, before_guard)), (order_of_lanes<Orv16s, 16>(n, before_guard)));
    for (int n = 1; n < 8; ++n) {
        const std::vector<int> order = order_of_lanes<Orv32s, 8>(n, before_guard);
        EXPECT_EQ((order_of_lanes<Orv16s, 8>(n, before_guard)), order);
        EXPECT_EQ((order_of_lanes<Orv32f, 8>(n, before_guard)), order);
    }
    for (int n = 1; n < 4; ++n) {
        const std::vector<int> order = order_of_lanes<Orv64s, 4>(n, before_guard);
        EXPECT_EQ((order_of_lanes<Orv32s, 4>(n, before_guard)), order);
        EXPECT_EQ((order_of_lanes<Orv64f, 4>(n, before_guard)), order);
    }
}

} // namespace
} // namespace orvtest
