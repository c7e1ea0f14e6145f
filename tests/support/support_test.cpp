// The support proves itself: correct functions pass, and every kind of wrong function is caught and named.
#include "checks.h"
#include "compare.h"
#include "elementwise.h"

#include <climits>
#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>
#include <limits>
#include <set>
#include <x86intrin.h>

namespace orvtest {
namespace {

// ---- Functions to test with -----------------------------------------------------------------------------------------
// They stand in for exports, so they take arrays at any byte address.

template <class T>
std::remove_const_t<T> load(T* p, int i)
{
    std::remove_const_t<T> value;
    std::memcpy(&value, reinterpret_cast<const std::byte*>(p) + i * static_cast<int>(sizeof(T)), sizeof(T));
    return value;
}
template <class T>
void store(T* p, int i, const T& value)
{
    std::memcpy(reinterpret_cast<std::byte*>(p) + i * static_cast<int>(sizeof(T)), &value, sizeof(T));
}

Orv16s sum16(Orv16s a, Orv16s b, int scale)
{
    if (scale > 17) return 0;
    const Orv64s x = (Orv64s{a} + b) * (Orv64s{1} << (scale < -16 ? 16 : scale < 0 ? -scale : 0));
    const int s = scale < 0 ? 0 : scale;
    const Orv64s y = s == 0 ? x : (x + ((Orv64s{1} << (s - 1)) - 1) + ((x >> s) & 1)) >> s;
    return static_cast<Orv16s>(y > 32767 ? 32767 : y < -32768 ? -32768 : y);
}

OrvStatus fake_add(const Orv16s* a, const Orv16s* b, Orv16s* d, int n, int scale)
{
    if (!a || !b || !d) return orvErrNullPointer;
    if (n < 1) return orvErrBadLength;
    for (int i = 0; i < n; ++i) store(d, i, sum16(load(a, i), load(b, i), scale));
    return orvOk;
}

const auto add = [](auto a, auto b) { return a + b; };

OrvStatus fake_add_unscaled(const Orv16s* a, const Orv16s* b, Orv16s* d, int n) { return fake_add(a, b, d, n, 0); }

OrvStatus fake_add_in_place(const Orv16s* src, Orv16s* src_dst, int n, int scale)
{
    return fake_add(src, src_dst, src_dst, n, scale);
}

OrvStatus fake_add_constant(const Orv16sc* a, Orv16sc value, Orv16sc* d, int n, int scale)
{
    for (int i = 0; i < n; ++i) {
        const Orv16sc z = load(a, i);
        store(d, i, {sum16(z.re, value.re, scale), sum16(z.im, value.im, scale)});
    }
    return orvOk;
}

OrvStatus fake_shift(const Orv64s* a, Orv64s* d, int n, int scale, OrvRoundMode mode)
{
    for (int i = 0; i < n; ++i) store(d, i, saturate<Orv64s>(scale_law(Wide(load(a, i)), scale, mode)));
    return orvOk;
}

OrvStatus fake_difference(const Orv16s* a, const Orv16s* b, Orv32f* d, int n)
{
    for (int i = 0; i < n; ++i) store(d, i, static_cast<Orv32f>(load(b, i) - load(a, i)));
    return orvOk;
}

OrvStatus fake_accumulate(const Orv64f* a, const Orv64f* b, Orv64f* sum, int n)
{
    for (int i = 0; i < n; ++i) store(sum, i, load(sum, i) + load(a, i) * load(b, i));
    return orvOk;
}

OrvStatus fake_fill(Orv32fc value, Orv32fc* d, int n)
{
    for (int i = 0; i < n; ++i) store(d, i, value);
    return orvOk;
}

OrvStatus fake_zero(Orv8u* d, int n)
{
    std::memset(d, 0, static_cast<std::size_t>(n));
    return orvOk;
}

OrvStatus fake_copy(const Orv32f* a, Orv32f* d, int n)
{
    std::memmove(d, a, static_cast<std::size_t>(n) * sizeof *d);
    return orvOk;
}

OrvStatus fake_backward_copy(Orv32f* d, int n, const Orv32f* a, int hint)
{
    return hint == 1 ? fake_copy(a, d, n) : orvErrBadArgument;
}

// ---- Correct functions pass -----------------------------------------------------------------------------------------

TEST(Elementwise, passes_correct_functions_of_every_shape)
{
    EXPECT_TRUE(sweep_exact(ORV_EXPORT(fake_add), add));
    EXPECT_TRUE(sweep_exact(ORV_EXPORT(fake_add_unscaled), add));
    EXPECT_TRUE(sweep_exact(ORV_EXPORT(fake_add_in_place), add));
    EXPECT_TRUE(sweep_exact(ORV_EXPORT(fake_add_constant), add));
    EXPECT_TRUE(sweep_exact(ORV_EXPORT(fake_shift), [](auto a) { return a; }, {.lengths = {1, 2, 3}}));
    EXPECT_TRUE(
        sweep_elements(ORV_EXPORT(fake_difference), [](Orv16s a, Orv16s b) { return static_cast<Orv32f>(b - a); }));
    EXPECT_TRUE(
        sweep_elements(ORV_EXPORT(fake_accumulate), [](double a, double b, double old) { return old + a * b; }));
    EXPECT_TRUE(sweep_elements(ORV_EXPORT(fake_zero), [] { return Orv8u{0}; }));
}

const auto same = [](const auto& x) -> const auto& { return x; };

TEST(Elementwise, passes_moves_and_fills_of_nan_bits)
{
    EXPECT_TRUE(sweep_elements(ORV_EXPORT(fake_copy), same, {.nans = NanView::bits}));
    EXPECT_TRUE(sweep_elements(ORV_EXPORT(fake_fill), same, {.nans = NanView::bits}));
}

TEST(Elementwise, takes_unusual_orders_of_arguments)
{
    const auto call = ORV_EXPORT(fake_backward_copy).as([](auto f, const Orv32f* src, Orv32f* dst, int n) {
        return f(dst, n, src, 1);
    });
    EXPECT_TRUE(sweep_elements(call, same));
}

TEST(Elementwise, makes_every_call_that_it_should)
{
    struct Seen {
        bool in_place_of_a, in_place_of_b, ends_at_page, begins_at_page, odd_address;
        std::set<int> lengths, scales;
        std::set<std::uintptr_t> phases;
    };
    static Seen seen;
    seen = {};
    const auto watched = [](const Orv16s* a, const Orv16s* b, Orv16s* d, int n, int scale) {
        const auto address = reinterpret_cast<std::uintptr_t>(d);
        seen.in_place_of_a |= d == a;
        seen.in_place_of_b |= d == b;
        seen.begins_at_page |= address % 4096 == 0;
        seen.ends_at_page |= (address + static_cast<unsigned>(n) * sizeof *d) % 4096 == 0;
        seen.lengths.insert(n);
        seen.scales.insert(scale);
        seen.phases.insert(address % 64);
        return fake_add(a, b, d, n, scale);
    };
    EXPECT_TRUE(sweep_exact(Export("fake_watched", +watched), add));
    EXPECT_TRUE(seen.in_place_of_a && seen.in_place_of_b && seen.begins_at_page && seen.ends_at_page);
    const std::vector<int> lengths = lengths_around();
    EXPECT_EQ(seen.lengths, (std::set<int>(lengths.begin(), lengths.end())));
    EXPECT_EQ(seen.scales.size(), scales(40).size());
    for (const int bytes : misalignments(2, 1)) EXPECT_TRUE(seen.phases.count(static_cast<unsigned>(bytes))) << bytes;
}

// ---- Wrong functions are caught -------------------------------------------------------------------------------------

OrvStatus fake_wrong_at_33(const Orv16s* a, const Orv16s* b, Orv16s* d, int n, int scale)
{
    fake_add(a, b, d, n, scale);
    if (n == 33) store(d, 32, static_cast<Orv16s>(load(d, 32) ^ 1));
    return orvOk;
}

TEST(Elementwise, catches_an_error_at_one_length)
{
    EXPECT_NONFATAL_FAILURE(sweep_exact(ORV_EXPORT(fake_wrong_at_33), add), "fake_wrong_at_33: length 33");
    EXPECT_NONFATAL_FAILURE(sweep_exact(ORV_EXPORT(fake_wrong_at_33), add), "element 32 is ");
}

OrvStatus fake_wrong_at_one_scale(const Orv16s* a, const Orv16s* b, Orv16s* d, int n, int scale)
{
    return fake_add(a, b, d, n, scale == 11 ? 12 : scale);
}
OrvStatus fake_wrong_at_lowest_scale(const Orv16s* a, const Orv16s* b, Orv16s* d, int n, int scale)
{
    return fake_add(a, b, d, n, scale == INT_MIN ? 0 : scale); // -scale overflows
}
OrvStatus fake_wrong_ties(const Orv16s* a, const Orv16s* b, Orv16s* d, int n, int scale)
{
    if (scale <= 0 || scale > 17) return fake_add(a, b, d, n, scale);
    for (int i = 0; i < n; ++i) {
        const int sum = load(a, i) + load(b, i);
        store(d, i, static_cast<Orv16s>((sum + (1 << (scale - 1))) >> scale)); // ties upward
    }
    return orvOk;
}

TEST(Elementwise, catches_errors_of_scale)
{
    EXPECT_NONFATAL_FAILURE(sweep_exact(ORV_EXPORT(fake_wrong_at_one_scale), add), "behind the length 11");
    EXPECT_NONFATAL_FAILURE(sweep_exact(ORV_EXPORT(fake_wrong_at_lowest_scale), add), "behind the length -2147483648");
    EXPECT_NONFATAL_FAILURE(sweep_exact(ORV_EXPORT(fake_wrong_ties), add), "fake_wrong_ties: length");
}

OrvStatus fake_wrong_mode(const Orv64s* a, Orv64s* d, int n, int scale, OrvRoundMode mode)
{
    return fake_shift(a, d, n, scale, mode == orvRndFinancial ? orvRndNear : mode);
}

TEST(Elementwise, catches_an_error_of_one_rounding_mode)
{
    EXPECT_NONFATAL_FAILURE(sweep_exact(ORV_EXPORT(fake_wrong_mode), [](auto a) { return a; }, {.lengths = {70}}),
                            ", 2\n");
}

OrvStatus fake_wrong_in_place(const Orv16s* a, const Orv16s* b, Orv16s* d, int n)
{
    if (d != b) return fake_add(a, b, d, n, 0);
    for (int i = 0; i < n; ++i) store(d, i, sum16(load(a, i), load(b, i == 40 ? 39 : i), 0));
    return orvOk;
}

TEST(Elementwise, catches_an_error_in_place)
{
    EXPECT_NONFATAL_FAILURE(sweep_exact(ORV_EXPORT(fake_wrong_in_place), add), "source 2 is the destination");
    EXPECT_TRUE(sweep_exact(ORV_EXPORT(fake_wrong_in_place), add, {.in_place = false}));
}

OrvStatus fake_wrong_at_odd_address(const Orv16s* a, const Orv16s* b, Orv16s* d, int n)
{
    fake_add(a, b, d, n, 0);
    if (reinterpret_cast<std::uintptr_t>(d) % 64 == 27) store(d, 0, Orv16s{0x5A5A});
    return orvOk;
}

TEST(Elementwise, catches_an_error_at_one_misalignment)
{
    EXPECT_NONFATAL_FAILURE(sweep_exact(ORV_EXPORT(fake_wrong_at_odd_address), add),
                            "the destination begins 27 bytes after a 64-byte boundary");
}

OrvStatus fake_wrong_constant(const Orv16sc* a, Orv16sc value, Orv16sc* d, int n, int scale)
{
    if (value.re == 0 && value.im == 0 && scale == -26) value.im = 1;
    return fake_add_constant(a, value, d, n, scale);
}

TEST(Elementwise, catches_an_error_of_one_constant_at_one_scale)
{
    EXPECT_NONFATAL_FAILURE(sweep_exact(ORV_EXPORT(fake_wrong_constant), add), "scalar (0, 0), behind the length -26");
}

OrvStatus fake_negative_zero(const Orv64f* a, const Orv64f* b, Orv64f* sum, int n)
{
    fake_accumulate(a, b, sum, n);
    for (int i = 0; i < n; ++i)
        if (load(sum, i) == 0) store(sum, i, 0.0);
    return orvOk;
}

OrvStatus fake_quieting_copy(const Orv32f* a, Orv32f* d, int n)
{
    for (int i = 0; i < n; ++i) {
        volatile Orv32f one = 1;
        store(d, i, load(a, i) * one); // quiets signalling NaNs
    }
    return orvOk;
}

TEST(Elementwise, compares_bits)
{
    EXPECT_NONFATAL_FAILURE(
        sweep_elements(ORV_EXPORT(fake_negative_zero), [](double a, double b, double old) { return old + a * b; }),
        "not -0 [0x8000000000000000]");
    EXPECT_NONFATAL_FAILURE(sweep_elements(ORV_EXPORT(fake_quieting_copy), same, {.nans = NanView::bits}), "not nan");
    EXPECT_TRUE(sweep_elements(ORV_EXPORT(fake_quieting_copy), same));
}

OrvStatus fake_changing_source(const Orv32f* a, Orv32f* d, int n)
{
    fake_copy(a, d, n);
    if (n == 7) reinterpret_cast<Orv8u*>(const_cast<Orv32f*>(a))[13] ^= 1;
    return orvOk;
}
OrvStatus fake_warning(const Orv32f* a, Orv32f* d, int n)
{
    fake_copy(a, d, n);
    return n == 9 ? orvWrnDivByZero : orvOk;
}
OrvStatus fake_incomplete(Orv8u* d, int n)
{
    std::memset(d, 0, static_cast<std::size_t>(n > 60 ? n - 1 : n));
    return orvOk;
}

TEST(Elementwise, catches_what_else_a_function_may_do)
{
    EXPECT_NONFATAL_FAILURE(sweep_elements(ORV_EXPORT(fake_changing_source), same), "source 1 has changed at byte 13");
    EXPECT_NONFATAL_FAILURE(sweep_elements(ORV_EXPORT(fake_warning), same), "status 6, not 0");
    EXPECT_NONFATAL_FAILURE(sweep_elements(ORV_EXPORT(fake_incomplete), [] { return Orv8u{0}; }), "element 6");
}

// ---- Access outside the arrays --------------------------------------------------------------------------------------

OrvStatus fake_write_before(const Orv32f* a, Orv32f* d, int n)
{
    fake_copy(a, d, n);
    if (reinterpret_cast<std::uintptr_t>(d) % 4096 != 0) reinterpret_cast<Orv8u*>(d)[-1] ^= 1;
    return orvOk;
}
OrvStatus fake_write_behind(const Orv32f* a, Orv32f* d, int n)
{
    fake_copy(a, d, n);
    auto* behind = reinterpret_cast<Orv8u*>(d) + static_cast<std::size_t>(n) * sizeof *d;
    if (reinterpret_cast<std::uintptr_t>(behind) % 4096 != 0) *behind ^= 1;
    return orvOk;
}

TEST(Elementwise, catches_writes_into_the_canaries)
{
    EXPECT_NONFATAL_FAILURE(sweep_elements(ORV_EXPORT(fake_write_before), same),
                            "a byte outside the destination has changed: 1 bytes before the first byte");
    EXPECT_NONFATAL_FAILURE(sweep_elements(ORV_EXPORT(fake_write_behind), same),
                            "a byte outside the destination has changed: 1 bytes after the last byte");
}

OrvStatus fake_write_one_more(const Orv32f* a, Orv32f* d, int n)
{
    fake_copy(a, d, n);
    store(d, n, 0.0f);
    return orvOk;
}
volatile Orv32f sink;
OrvStatus fake_read_one_more(const Orv32f* a, Orv32f* d, int n)
{
    sink = load(a, n);
    return fake_copy(a, d, n);
}
OrvStatus fake_read_one_before(const Orv32f* a, Orv32f* d, int n)
{
    sink = load(a, -1);
    return fake_copy(a, d, n);
}
OrvStatus fake_read_behind_33(const Orv32f* a, Orv32f* d, int n)
{
    if (n == 33) sink = load(a, n);
    return fake_copy(a, d, n);
}

TEST(ElementwiseDeathTest, guards_catch_reads_and_writes_outside)
{
    EXPECT_DEATH(sweep_elements(ORV_EXPORT(fake_write_one_more), same), "in fake_write_one_more");
    EXPECT_DEATH(sweep_elements(ORV_EXPORT(fake_read_one_more), same), "source 1 ends at an unreadable page");
    EXPECT_DEATH(sweep_elements(ORV_EXPORT(fake_read_one_before), same), "source 1 begins after an unreadable page");
    EXPECT_DEATH(sweep_elements(ORV_EXPORT(fake_read_behind_33), same), "fake_read_behind_33: length 33");
}

// ---- Processor state ------------------------------------------------------------------------------------------------

OrvStatus fake_clean()
{
    _mm_setcsr(_mm_getcsr() | 0x3F); // the sticky flags are free
    return orvOk;
}
OrvStatus fake_rounding_left_changed()
{
    _mm_setcsr(_mm_getcsr() | 0x6000);
    return orvOk;
}
OrvStatus fake_x87_precision_left_changed()
{
    const std::uint16_t single_precision = 0x007F;
    __asm__ volatile("fldcw %0" : : "m"(single_precision));
    return orvOk;
}
OrvStatus fake_x87_stack_left_used()
{
    __asm__ volatile("fldz");
    return orvOk;
}
OrvStatus fake_direction_left_down()
{
    __asm__ volatile("std");
    return orvOk;
}
OrvStatus fake_copy_with_rounding_left_changed(const Orv32f* a, Orv32f* d, int n)
{
    fake_rounding_left_changed();
    return fake_copy(a, d, n);
}

TEST(Export, checks_the_processor_state)
{
    ORV_EXPORT(fake_clean)();
    EXPECT_NONFATAL_FAILURE(ORV_EXPORT(fake_rounding_left_changed)(), "fake_rounding_left_changed: MXCSR");
    EXPECT_NONFATAL_FAILURE(ORV_EXPORT(fake_x87_precision_left_changed)(), "the x87 control word was 0x037f");
    EXPECT_NONFATAL_FAILURE(ORV_EXPORT(fake_x87_stack_left_used)(), "the x87 tag word");
    EXPECT_NONFATAL_FAILURE(ORV_EXPORT(fake_direction_left_down)(), "the direction flag");
    ORV_EXPORT(fake_clean)(); // each of them was repaired
}

TEST(Export, a_sweep_stops_at_the_first_bad_state)
{
    EXPECT_NONFATAL_FAILURE(sweep_elements(ORV_EXPORT(fake_copy_with_rounding_left_changed), same), "MXCSR");
}

OrvStatus fake_crash() { __builtin_trap(); }

TEST(ExportDeathTest, a_crash_names_the_export) { EXPECT_DEATH(ORV_EXPORT(fake_crash)(), "signal 4 .* in fake_crash"); }

// ---- Argument checks ------------------------------------------------------------------------------------------------

TEST(ArgumentChecks, pass_a_function_that_checks_in_order)
{
    ArgumentChecks(ORV_EXPORT(fake_add), 4, 0).null_pointers().bad_lengths().run();
}

OrvStatus fake_length_first(const Orv16s* a, const Orv16s* b, Orv16s* d, int n, int scale)
{
    return n < 1 ? orvErrBadLength : fake_add(a, b, d, n, scale);
}

TEST(ArgumentChecks, tell_one_order_from_another)
{
    ArgumentChecks(ORV_EXPORT(fake_length_first), 4, 0).bad_lengths().null_pointers().run();
    EXPECT_NONFATAL_FAILURE(ArgumentChecks(ORV_EXPORT(fake_length_first), 4, 0).null_pointers().bad_lengths().run(),
                            "fake_length_first, argument 0 = (nullptr), argument 3 = 0: status -6, not -8");
}

OrvStatus fake_unchecked(const Orv16s* a, const Orv16s* b, Orv16s* d, int n, int scale)
{
    return n == INT_MIN ? orvOk : fake_add(a, b, d, n, scale);
}
OrvStatus fake_early_write(const Orv16s* a, const Orv16s* b, Orv16s* d, int n, int scale)
{
    if (d) store(d, 0, Orv16s{0x7A7A});
    return fake_add(a, b, d, n, scale);
}
OrvStatus fake_early_write_before(const Orv16s* a, const Orv16s* b, Orv16s* d, int n, int scale)
{
    if (d) store(d, -1, Orv16s{0x7A7A});
    return fake_add(a, b, d, n, scale);
}
OrvStatus fake_refusal(const Orv16s* a, const Orv16s* b, Orv16s* d, int n, int scale)
{
    const OrvStatus status = fake_add(a, b, d, n, scale);
    return status == orvOk ? orvErrBadArgument : status;
}

TEST(ArgumentChecks, catch_missing_checks_and_early_writes)
{
    const auto check = [](const auto& f) { ArgumentChecks(f, 4, 0).null_pointers().bad_lengths().run(); };
    EXPECT_NONFATAL_FAILURE(check(ORV_EXPORT(fake_unchecked)), "argument 3 = -2147483648: status 0, not -6");
    EXPECT_NONFATAL_FAILURE(check(ORV_EXPORT(fake_early_write)), "has written to array 2 though it failed");
    EXPECT_NONFATAL_FAILURE(check(ORV_EXPORT(fake_early_write_before)), "has written to array 2 though it failed");
    EXPECT_NONFATAL_FAILURE(check(ORV_EXPORT(fake_refusal)), "fake_refusal refuses the valid call");
}

struct Record {
    int kind;
};

OrvStatus fake_with_record(const Orv16s* a, Orv16s* d, int n, int mode, const Record* record)
{
    if (!a || !d || !record) return orvErrNullPointer;
    if (n < 1) return orvErrBadLength;
    if (mode < 0 || mode > 2) return orvErrBadRoundMode;
    if (record->kind != 7) return orvErrWrongContext;
    return orvOk;
}

TEST(ArgumentChecks, take_lists_of_bad_values)
{
    Record valid = {7}, other = {8};
    ArgumentChecks(ORV_EXPORT(fake_with_record), 4, 1)
        .with_pointer<4>(&valid)
        .null_pointers()
        .bad<2>(0, orvErrBadLength)
        .bad<3>(-1, orvErrBadRoundMode)
        .bad<3>(3, orvErrBadRoundMode)
        .bad<4>(&other, orvErrWrongContext)
        .run();
}

// ---- Comparing and digests ------------------------------------------------------------------------------------------

std::string digest_of(const std::string& name)
{
    const std::string lines = digest_lines();
    const std::size_t at = ("\n" + lines).find("\n" + name + " ");
    return at == std::string::npos ? "" : lines.substr(at + name.size() + 1, 16);
}

OrvStatus fake_a() { return orvOk; }
OrvStatus fake_b() { return orvOk; }
OrvStatus fake_c() { return orvOk; }
OrvStatus fake_d() { return orvOk; }

TEST(Compare, tells_the_first_difference)
{
    const auto f = ORV_EXPORT(fake_a);
    EXPECT_TRUE(expect_value(f, Orv32s{5}, 5));
    EXPECT_TRUE(expect_elements(f, std::vector<Orv16s>{1, 2}, std::vector<Orv16s>{1, 2}));
    EXPECT_NONFATAL_FAILURE(expect_value(f, Orv32s{5}, 6), "fake_a: element 0 of 1 is 5, not 6");
    const std::vector<Orv8sc> got = {{1, 2}, {3, 4}}, want = {{1, 2}, {3, -4}};
    EXPECT_NONFATAL_FAILURE(expect_elements(f, got, want), "fake_a: element 1 of 2 is (3, 4), not (3, -4)");
    EXPECT_NONFATAL_FAILURE(expect_elements(f, std::vector<Orv8u>{1}, std::vector<Orv8u>{}), "got.size()");
}

TEST(Compare, sees_damage_around_a_guarded_array)
{
    const std::vector<Orv8u> want = {1, 2, 3};
    GuardedArray<Orv8u> array(want);
    EXPECT_TRUE(expect_elements(ORV_EXPORT(fake_a), array, want));
    array.data()[-5] ^= 1;
    EXPECT_NONFATAL_FAILURE(expect_elements(ORV_EXPORT(fake_a), array, want), "5 bytes before the first byte");
}

TEST(Digest, depends_on_values_only)
{
    const Orv32f quiet = std::numeric_limits<Orv32f>::quiet_NaN();
    const std::vector<Orv32f> values = {0.0f, 1.5f, quiet}, with_other_nan = {0.0f, 1.5f, -quiet},
                              with_other_zero = {-0.0f, 1.5f, quiet};
    expect_elements(ORV_EXPORT(fake_b), values, values);
    expect_elements(ORV_EXPORT(fake_c), with_other_nan, with_other_nan);
    expect_elements(ORV_EXPORT(fake_d), with_other_zero, with_other_zero);
    EXPECT_EQ(digest_of("fake_b"), "a486d1fb3888de7b"); // in every build
    EXPECT_EQ(digest_of("fake_c"), digest_of("fake_b"));
    EXPECT_NE(digest_of("fake_d"), digest_of("fake_b"));
    EXPECT_EQ(digest_of("fake_e"), "");
}

TEST(Digest, of_a_sweep_is_the_same_everywhere)
{
    sweep_exact(Export("fake_pinned_add", &fake_add), add);
    sweep_elements(Export("fake_pinned_fill", &fake_fill), same);
    EXPECT_EQ(digest_of("fake_pinned_add"), "e6c9ee93fd2a082e");
    EXPECT_EQ(digest_of("fake_pinned_fill"), "5c76a3678b0bfb45");
}

// ---- Guarded arrays -------------------------------------------------------------------------------------------------

TEST(GuardedArray, lies_where_it_should)
{
    GuardedArray<Orv64fc> array(100);
    const auto address = [&] { return reinterpret_cast<std::uintptr_t>(array.data()); };
    EXPECT_EQ((address() + 100 * sizeof(Orv64fc)) % 4096, 0u);
    array.place(3, after_guard);
    EXPECT_EQ(address() % 4096, 0u);
    for (int bytes = 0; bytes < 64; ++bytes) {
        array.place(100, misaligned(bytes));
        EXPECT_EQ(address() % 64, static_cast<unsigned>(bytes));
        EXPECT_EQ(array.damage(), "");
    }
}

TEST(GuardedArray, holds_elements_at_odd_addresses)
{
    const std::vector<Orv64f> values = {1.5, -2.5, 1e300};
    GuardedArray<Orv64f> array(values, misaligned(13));
    EXPECT_EQ(array.elements(), values);
    EXPECT_EQ(array.damage(), "");
}

TEST(GuardedArray, finds_damage_on_every_page)
{
    GuardedArray<Orv8u> array(10000, misaligned(1));
    const std::vector<std::pair<std::ptrdiff_t, std::string>> places = {{-1, "1 bytes before the first byte"},
                                                                        {-65, "65 bytes before the first byte"},
                                                                        {10000, "1 bytes after the last byte"},
                                                                        {10200, "201 bytes after the last byte"}};
    for (const auto& [place, text] : places) {
        array.data()[place] ^= 0x80;
        EXPECT_EQ(array.damage(), text);
        array.data()[place] ^= 0x80;
    }
    array.data()[0] ^= 1;
    array.data()[9999] ^= 1;
    EXPECT_EQ(array.damage(), "");
}

TEST(GuardedArrayDeathTest, has_unreadable_pages_on_both_sides)
{
    GuardedArray<Orv8u> array(4000);
    const volatile Orv8u* data = array.data();
    EXPECT_DEATH(sink = data[4000], "in the test itself");
    array.place(4000, after_guard);
    data = array.data();
    EXPECT_DEATH(sink = data[-1], "in the test itself");
}

TEST(GuardedArray, blocks_are_used_again)
{
    const Orv8u* first = GuardedArray<Orv8u>(1000).data();
    const Orv8u* second = GuardedArray<Orv8u>(1000).data();
    EXPECT_EQ(first, second);
    const GuardedArray<Orv8u> a(1000), b(1000);
    EXPECT_NE(a.data(), b.data());
}

TEST(Sample24, has_three_bytes_with_or_without_a_sign)
{
    static_assert(sizeof(Sample24s) == 3 && element_type<Sample24s>().size() == 3);
    for (const std::int32_t value : {0, 1, 0x7FFFFF, -1, -0x800000}) {
        const auto sample = Sample24s::of(value);
        EXPECT_EQ(sample.value(), value);
        EXPECT_EQ(element_text(element_type<Sample24s>(), &sample), std::to_string(value));
    }
    for (const std::int32_t value : {0, 1, 0x800000, 0xFFFFFF}) {
        const auto sample = Sample24u::of(value);
        EXPECT_EQ(sample.value(), value);
        EXPECT_EQ(element_text(element_type<Sample24u>(), &sample), std::to_string(value));
    }
    const Sample24s sample = Sample24s::of(0x030201);
    EXPECT_EQ(sample.bytes[0], 1);
    EXPECT_EQ(sample.bytes[2], 3);
}

} // namespace
} // namespace orvtest
