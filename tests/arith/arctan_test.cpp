// dst = arctan src.
#include "orvs/arith.h"

#include "tests/arith/functions.h"

#include <numbers>

namespace orvtest {
namespace {

TEST(Arctan_32f, the_same_at_each_place)
{
    const auto f = ORV_EXPORT(orvsArctan_32f);
    EXPECT_TRUE(sweep_values(f.with(), telling_floats<Orv32f>(), alone(f)));
}
TEST(Arctan_32f_I, the_same_as_apart)
{
    const auto apart = alone(ORV_EXPORT(orvsArctan_32f));
    EXPECT_TRUE(sweep_values(ORV_EXPORT(orvsArctan_32f_I).with(), telling_floats<Orv32f>(), apart));
}
TEST(Arctan_64f, the_same_at_each_place)
{
    const auto f = ORV_EXPORT(orvsArctan_64f);
    EXPECT_TRUE(sweep_values(f.with(), telling_floats<Orv64f>(), alone(f)));
}
TEST(Arctan_64f_I, the_same_as_apart)
{
    const auto apart = alone(ORV_EXPORT(orvsArctan_64f));
    EXPECT_TRUE(sweep_values(ORV_EXPORT(orvsArctan_64f_I).with(), telling_floats<Orv64f>(), apart));
}

TEST(Arctan, keeps_its_accuracy)
{
    expect_accuracy(ORV_EXPORT(orvsArctan_32f), functions::arctangent, 2);
    expect_accuracy(ORV_EXPORT(orvsArctan_64f), functions::arctangent, 1);
}

template <class T>
void expect_special_arctangents(const Export<OrvStatus, const T*, T*, int>& f)
{
    using Limits = std::numeric_limits<T>;
    constexpr T infinity = Limits::infinity(), nan = Limits::quiet_NaN(), least = Limits::denorm_min();
    constexpr T half_pi = std::numbers::pi_v<T> / 2;
    expect_special<T, T>(f, {{0, T(0)},
                             {-T(0), -T(0)},
                             {infinity, half_pi},
                             {-infinity, -half_pi},
                             {Limits::max(), half_pi},
                             {-Limits::max(), -half_pi},
                             {1, half_pi / 2},
                             {-1, -half_pi / 2},
                             {least, least},
                             {-least, -least},
                             {nan, nan},
                             {-nan, nan},
                             {Limits::signaling_NaN(), nan}});
}

TEST(Arctan, of_special_values)
{
    expect_special_arctangents(ORV_EXPORT(orvsArctan_32f));
    expect_special_arctangents(ORV_EXPORT(orvsArctan_64f));
}

TEST(Arctan, checks_pointers_before_length)
{
    expect_pointers_before_length(ORV_EXPORT(orvsArctan_32f), 4);
    expect_pointers_before_length(ORV_EXPORT(orvsArctan_32f_I), 4);
    expect_pointers_before_length(ORV_EXPORT(orvsArctan_64f), 4);
    expect_pointers_before_length(ORV_EXPORT(orvsArctan_64f_I), 4);
}

TEST(Arctan, does_not_depend_on_the_state)
{
    expect_the_same_in_any_state(ORV_EXPORT(orvsArctan_32f).with(), telling_floats<Orv32f>());
    expect_the_same_in_any_state(ORV_EXPORT(orvsArctan_32f_I).with(), telling_floats<Orv32f>());
    expect_the_same_in_any_state(ORV_EXPORT(orvsArctan_64f).with(), telling_floats<Orv64f>());
    expect_the_same_in_any_state(ORV_EXPORT(orvsArctan_64f_I).with(), telling_floats<Orv64f>());
}

} // namespace
} // namespace orvtest
