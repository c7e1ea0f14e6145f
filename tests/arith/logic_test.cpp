// Bitwise and, or, exclusive or, and complement.
#include "tests/support/checks.h"
#include "tests/support/elementwise.h"

#include "orvs/arith.h"

namespace orvtest {
namespace {

// In the unsigned element types, without the promotion to int.
constexpr auto conjunction = []<class T>(T a, T b) { return static_cast<T>(a & b); };
constexpr auto disjunction = []<class T>(T a, T b) { return static_cast<T>(a | b); };
constexpr auto difference = []<class T>(T a, T b) { return static_cast<T>(a ^ b); };
constexpr auto complement = []<class T>(T a) { return static_cast<T>(~a); };

/// Both forms of one operation and type: values, then checks.
template <class OutOfPlace, class InPlace, class Oracle>
void expect_form(const OutOfPlace& f, const InPlace& in_place, const Oracle& oracle)
{
    const SweepOptions options = {.lengths = lengths_around({127, 128, 256, 1000, 4096})};
    sweep_elements(f, oracle, options);
    sweep_elements(in_place, oracle, options);
}

template <class... Args>
void expect_checks(const Export<OrvStatus, Args...>& f)
{
    if constexpr ((int{!std::is_pointer_v<Args>} + ...) == 1) {
        ArgumentChecks(f, 4).null_pointers().bad_lengths().run();
    } else {
        ArgumentChecks(f, Orv8u{3}, 4).null_pointers().bad_lengths().run(); // the scalar, then the length
    }
}

TEST(And, vectors)
{
    expect_form(ORV_EXPORT(orvsAnd_8u), ORV_EXPORT(orvsAnd_8u_I), conjunction);
    expect_form(ORV_EXPORT(orvsAnd_16u), ORV_EXPORT(orvsAnd_16u_I), conjunction);
    expect_form(ORV_EXPORT(orvsAnd_32u), ORV_EXPORT(orvsAnd_32u_I), conjunction);
}
TEST(And, scalars)
{
    expect_form(ORV_EXPORT(orvsAndC_8u), ORV_EXPORT(orvsAndC_8u_I), conjunction);
    expect_form(ORV_EXPORT(orvsAndC_16u), ORV_EXPORT(orvsAndC_16u_I), conjunction);
    expect_form(ORV_EXPORT(orvsAndC_32u), ORV_EXPORT(orvsAndC_32u_I), conjunction);
}
TEST(Or, vectors)
{
    expect_form(ORV_EXPORT(orvsOr_8u), ORV_EXPORT(orvsOr_8u_I), disjunction);
    expect_form(ORV_EXPORT(orvsOr_16u), ORV_EXPORT(orvsOr_16u_I), disjunction);
    expect_form(ORV_EXPORT(orvsOr_32u), ORV_EXPORT(orvsOr_32u_I), disjunction);
}
TEST(Or, scalars)
{
    expect_form(ORV_EXPORT(orvsOrC_8u), ORV_EXPORT(orvsOrC_8u_I), disjunction);
    expect_form(ORV_EXPORT(orvsOrC_16u), ORV_EXPORT(orvsOrC_16u_I), disjunction);
    expect_form(ORV_EXPORT(orvsOrC_32u), ORV_EXPORT(orvsOrC_32u_I), disjunction);
}
TEST(Xor, vectors)
{
    expect_form(ORV_EXPORT(orvsXor_8u), ORV_EXPORT(orvsXor_8u_I), difference);
    expect_form(ORV_EXPORT(orvsXor_16u), ORV_EXPORT(orvsXor_16u_I), difference);
    expect_form(ORV_EXPORT(orvsXor_32u), ORV_EXPORT(orvsXor_32u_I), difference);
}
TEST(Xor, scalars)
{
    expect_form(ORV_EXPORT(orvsXorC_8u), ORV_EXPORT(orvsXorC_8u_I), difference);
    expect_form(ORV_EXPORT(orvsXorC_16u), ORV_EXPORT(orvsXorC_16u_I), difference);
    expect_form(ORV_EXPORT(orvsXorC_32u), ORV_EXPORT(orvsXorC_32u_I), difference);
}
TEST(Not, vectors)
{
    sweep_elements(ORV_EXPORT(orvsNot_8u), complement);
    sweep_elements(ORV_EXPORT(orvsNot_16u), complement);
    sweep_elements(ORV_EXPORT(orvsNot_32u), complement);
    sweep_elements(ORV_EXPORT(orvsNot_8u_I), complement);
    sweep_elements(ORV_EXPORT(orvsNot_16u_I), complement);
    sweep_elements(ORV_EXPORT(orvsNot_32u_I), complement);
}

TEST(Logic, checks)
{
    const auto all = [](const auto&... f) { (expect_checks(f), ...); };
    all(ORV_EXPORT(orvsAnd_8u), ORV_EXPORT(orvsAnd_8u_I), ORV_EXPORT(orvsAnd_16u), ORV_EXPORT(orvsAnd_16u_I),
        ORV_EXPORT(orvsAnd_32u), ORV_EXPORT(orvsAnd_32u_I), ORV_EXPORT(orvsAndC_8u), ORV_EXPORT(orvsAndC_8u_I),
        ORV_EXPORT(orvsAndC_16u), ORV_EXPORT(orvsAndC_16u_I), ORV_EXPORT(orvsAndC_32u), ORV_EXPORT(orvsAndC_32u_I));
    all(ORV_EXPORT(orvsOr_8u), ORV_EXPORT(orvsOr_8u_I), ORV_EXPORT(orvsOr_16u), ORV_EXPORT(orvsOr_16u_I),
        ORV_EXPORT(orvsOr_32u), ORV_EXPORT(orvsOr_32u_I), ORV_EXPORT(orvsOrC_8u), ORV_EXPORT(orvsOrC_8u_I),
        ORV_EXPORT(orvsOrC_16u), ORV_EXPORT(orvsOrC_16u_I), ORV_EXPORT(orvsOrC_32u), ORV_EXPORT(orvsOrC_32u_I));
    all(ORV_EXPORT(orvsXor_8u), ORV_EXPORT(orvsXor_8u_I), ORV_EXPORT(orvsXor_16u), ORV_EXPORT(orvsXor_16u_I),
        ORV_EXPORT(orvsXor_32u), ORV_EXPORT(orvsXor_32u_I), ORV_EXPORT(orvsXorC_8u), ORV_EXPORT(orvsXorC_8u_I),
        ORV_EXPORT(orvsXorC_16u), ORV_EXPORT(orvsXorC_16u_I), ORV_EXPORT(orvsXorC_32u), ORV_EXPORT(orvsXorC_32u_I));
    all(ORV_EXPORT(orvsNot_8u), ORV_EXPORT(orvsNot_8u_I), ORV_EXPORT(orvsNot_16u), ORV_EXPORT(orvsNot_16u_I),
        ORV_EXPORT(orvsNot_32u), ORV_EXPORT(orvsNot_32u_I));
}

} // namespace
} // namespace orvtest
