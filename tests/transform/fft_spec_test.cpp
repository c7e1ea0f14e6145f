// Specs of the fast Fourier transform: what memory they want, where they lie in it, who refuses them.
#include "tests/arith/caller_state.h"
#include "tests/support/checks.h"
#include "tests/support/compare.h"
#include "tests/transform/fft.h"
#include "tests/transform/signals.h"

#include <array>
#include <bit>
#include <climits>

namespace orvtest {
namespace {

constexpr bool wide_pointers = sizeof(void*) == 8;

// ---- Sizes

struct Sizes {
    Orv64s spec, init, work;
};

/// What the sizes of one precision are made of. Lengths count elements, sizes bytes.
struct Precision {
    Orv64s record;    ///< a spec without tables, wherever its memory begins
    Orv64s real;      ///< size of a real value
    int large_order;  ///< from it on, transforms go by blocks
    int outer_buffer; ///< log2 of the elements in a buffer of such a transform: this, or 4 more
    Orv64s twiddle_slack, base_slack;
};
constexpr Precision single_precision = {wide_pointers ? 184 : 152, 4, 19, 10, 71, 67};
constexpr Precision double_precision = {wide_pointers ? 192 : 156, 8, 18, 9, 79, 71};

constexpr Orv64s rounded_down(Orv64s bytes, Orv64s unit) { return bytes / unit * unit; }
constexpr Orv64s power(int order) { return Orv64s{1} << order; }

/// Tables and buffer of the complex transform of a large order, without what the reversal of bits wants.
constexpr Sizes level_sizes(const Precision& p, int order)
{
    const bool two_steps = order >= p.large_order + 4;
    const int inner = order - (two_steps ? 8 : 4), buffer = p.outer_buffer + (two_steps ? 4 : 0);
    const Orv64s element = 2 * p.real;
    const Sizes below = inner < p.large_order ? Sizes{rounded_down(element * power(inner) + p.twiddle_slack, 64), 0,
                                                      rounded_down(element * power(inner) + 63, 64)}
                                              : level_sizes(p, inner);
    return {below.spec + element * power(order - 1), 0, std::max(below.work, element * power(buffer))};
}

constexpr Sizes large_sizes(const Precision& p, int order)
{
    const Sizes levels = level_sizes(p, order);
    const bool is_single = p.real == 4;
    const Orv64s reversal = is_single ? 4 * power(order - 12) + 4160 : 4 * power(order - 10) + 1088;
    return {levels.spec + reversal, 0, std::max<Orv64s>(levels.work, is_single ? 65536 : 32768)};
}

/// Tables and buffer of a complex transform above the lowest orders.
constexpr Sizes engine_sizes(const Precision& p, int order)
{
    if (order >= p.large_order) return large_sizes(p, order);
    const Orv64s n = power(order), bytes = 2 * p.real * n;
    return {rounded_down(bytes + p.twiddle_slack, 64) + rounded_down(n + 67, 64), 0, rounded_down(bytes + 63, 64)};
}

constexpr Orv64s base_size(const Precision& p, int order)
{
    return order < 11 ? 0 : rounded_down(p.real / 4 * power(order) + p.base_slack, 64) + 64;
}

constexpr Sizes complex_sizes(const Precision& p, int order)
{
    if (order < 7) return {p.record, 0, 0};
    const Sizes engine = engine_sizes(p, order);
    return {engine.spec + 192, base_size(p, order), engine.work + 64};
}

constexpr Sizes real_sizes(const Precision& p, int order)
{
    if (order < 5) return {p.record, 0, 0};
    const Orv64s n = power(order);
    const Orv64s recombination =
        order < 18 ? rounded_down(p.real * n + 126, 128) : rounded_down(n / (p.real == 4 ? 256 : 64) + 16510, 128);
    if (order < 8) return {recombination + 192, 0, 0};
    const Sizes engine = engine_sizes(p, order - 1);
    return {engine.spec + recombination + 192, base_size(p, order), engine.work + 64};
}

// A few sizes, computed by hand.
static_assert(complex_sizes(single_precision, 7).spec == 1088 + 192 + 192);
static_assert(complex_sizes(double_precision, 10).work == 16384 + 64);
static_assert(complex_sizes(single_precision, 11).init == 2112 + 64);
static_assert(complex_sizes(double_precision, 17).init == 262208 + 64);
static_assert(complex_sizes(single_precision, 19).spec == 262208 + 2097152 + 512 + 4160 + 192);
static_assert(complex_sizes(single_precision, 19).work == 262144 + 64);
static_assert(real_sizes(single_precision, 7).spec == 512 + 192);
static_assert(real_sizes(double_precision, 8).spec == 2112 + 192 + 2048 + 192);

template <class Spec>
constexpr Sizes wanted_sizes(int order)
{
    constexpr bool is_real = std::is_same_v<Spec, RealSpec<RealOf<Spec>>>;
    constexpr Precision precision = is_single<Spec> ? single_precision : double_precision;
    return is_real ? real_sizes(precision, order) : complex_sizes(precision, order);
}

/// Numbers that are no hint have to do as well.
constexpr OrvHintAlgorithm hints[] = {ORV_HINT_ANY, ORV_HINT_SPEED, ORV_HINT_PRECISION,
                                      std::bit_cast<OrvHintAlgorithm>(3), std::bit_cast<OrvHintAlgorithm>(-1)};

TEST(FftGetSize, all_orders)
{
    for_each_spec_type([]<class Spec>(const SpecExports<Spec>& exports) {
        for (int order = 0; order <= exports.highest_order; ++order) {
            const Sizes want = wanted_sizes<Spec>(order);
            for (const int flag : scale_flags)
                for (const OrvHintAlgorithm hint : hints) {
                    Orv32s spec = -1, init = -1, work = -1;
                    const OrvStatus status = exports.get_size(order, flag, hint, &spec, &init, &work);
                    expect_value(exports.get_size, Orv32s{status}, orvOk);
                    EXPECT_EQ(spec, want.spec) << exports.get_size.name() << ", order " << order;
                    EXPECT_EQ(init, want.init) << exports.get_size.name() << ", order " << order;
                    EXPECT_EQ(work, want.work) << exports.get_size.name() << ", order " << order;
                }
        }
    });
}

/// Adds a check of each bad flag in the argument of this index: neighbours of the good ones, and the limits of the
/// type.
template <std::size_t index, class Checks>
void add_bad_flags(Checks& checks)
{
    for (const int flag : {0, 3, 5, 6, 7, 9, 10, 12, 15, 16, -1, -8, INT_MIN, INT_MAX})
        static_cast<void>(checks.template bad<index>(flag, orvErrBadFftFlag));
}
/// The same for orders.
template <std::size_t index, class Checks>
void add_bad_orders(Checks& checks, std::vector<int> orders)
{
    for (const int order : orders) static_cast<void>(checks.template bad<index>(order, orvErrBadFftOrder));
}
const std::vector<int> never_an_order = {-1, 31, 32, INT_MIN, INT_MAX};

/// The orders of other types.
template <class Spec>
std::vector<int> too_high_orders()
{
    std::vector<int> orders;
    for (int order = spec_exports<Spec>().highest_order + 1; order <= 30; ++order) orders.push_back(order);
    return orders;
}

TEST(FftGetSize, checks)
{
    for_each_spec_type([]<class Spec>(const SpecExports<Spec>& exports) {
        ArgumentChecks checks(exports.get_size, 5, ORV_FFT_SCALE_INV, ORV_HINT_ANY);
        add_bad_orders<0>(checks, never_an_order);
        static_cast<void>(checks.null_pointers());
        add_bad_flags<1>(checks);
        add_bad_orders<0>(checks, too_high_orders<Spec>());
        checks.run();
    });
}

// ---- Memory of the caller

/// Memory of the sizes that GetSize tells, and what Init makes of it.
template <class Spec>
class Memory {
public:
    explicit Memory(int order)
        : order_(order), sizes_(sizes(order)), block_(sizes_[0]), scratch_(sizes_[1]), buffer_(sizes_[2])
    {}

    void place(Placement for_block, Placement for_scratch)
    {
        block_.place(sizes_[0], for_block);
        scratch_.place(sizes_[1], for_scratch);
    }

    Orv8u* block() { return block_.data(); }
    Orv8u* scratch() { return sizes_[1] ? scratch_.data() : nullptr; }
    std::string damage() const { return block_.damage() + scratch_.damage(); }
    std::vector<Orv8u> content() const { return block_.elements(); }
    void overwrite_scratch() { scratch_.fill(std::vector<Orv8u>(sizes_[1], 0xA5)); }

    /// The first address in the block that is a multiple of 64: the place of the spec.
    Spec* spec()
    {
        const auto address = reinterpret_cast<std::uintptr_t>(block());
        return reinterpret_cast<Spec*>(block() + (64 - address % 64) % 64);
    }

    Spec* init(int flag = ORV_FFT_SCALE_SQRT, OrvHintAlgorithm hint = ORV_HINT_ANY)
    {
        Spec* made = nullptr;
        const auto f = spec_exports<Spec>().init;
        expect_value(f, Orv32s{f(&made, order_, flag, hint, block(), scratch())}, orvOk);
        EXPECT_EQ(made, spec()) << f.name() << ", order " << order_;
        return made;
    }

    /// Some noise, transformed forward and back again, as bytes.
    std::vector<std::byte> transform() { return transform(spec()); }
    std::vector<std::byte> transform(const Spec* spec)
    {
        using T = RealOf<Spec>;
        Random random(seed_of("spec", static_cast<std::uint64_t>(order_)));
        const std::size_t n = std::size_t{1} << order_;
        std::vector<T> re = noise<T>(random, n), im = noise<T>(random, n);
        std::vector<std::byte> results;
        for (const Direction direction : directions) {
            EXPECT_EQ(in_place(direction, spec, re, im), orvOk) << "order " << order_;
            for (const std::vector<T>& part : {re, im}) {
                const std::vector<std::byte> bytes = bytes_of(part);
                results.insert(results.end(), bytes.begin(), bytes.end());
            }
        }
        return results;
    }

private:
    static std::array<std::size_t, 3> sizes(int order)
    {
        Orv32s spec = 0, init = 0, work = 0;
        const auto f = spec_exports<Spec>().get_size;
        EXPECT_EQ(f(order, ORV_FFT_SCALE_SQRT, ORV_HINT_ANY, &spec, &init, &work), orvOk) << f.name();
        return {static_cast<std::size_t>(spec), static_cast<std::size_t>(init), static_cast<std::size_t>(work)};
    }

    template <class T>
    OrvStatus in_place(Direction direction, const Spec* spec, std::vector<T>& re, std::vector<T>& im)
    {
        if constexpr (std::is_same_v<Spec, RealSpec<T>>) {
            return real_exports<T>(direction, Layout::perm).in_place(re.data(), spec, buffer_.data());
        } else if constexpr (std::is_same_v<Spec, SplitSpec<T>>) {
            return complex_exports<T>(direction).split_in_place(re.data(), im.data(), spec, buffer_.data());
        } else {
            std::vector<ComplexOf<T>> x;
            for (std::size_t i = 0; i < re.size(); ++i) x.push_back({re[i], im[i]});
            const OrvStatus status = complex_exports<T>(direction).in_place(x.data(), spec, buffer_.data());
            re = real_parts(x);
            im = imaginary_parts(x);
            return status;
        }
    }

    const int order_;
    const std::array<std::size_t, 3> sizes_;
    GuardedArray<Orv8u> block_, scratch_;
    std::vector<Orv8u> buffer_;
};

TEST(FftInit, ignores_the_state_of_the_caller)
{
    for_each_spec_type([]<class Spec>(const SpecExports<Spec>& exports) {
        for (const int order : {4, 6, 9, 12}) {
            Memory<Spec> memory(order);
            memory.init();
            const std::vector<Orv8u> want = memory.content();
            constexpr unsigned states[] = {round_up, round_down, round_to_zero, flush_to_zero | denormals_are_zero};
            for (const unsigned bits : states) {
                const CallerState state(bits);
                memory.init();
                EXPECT_TRUE(memory.content() == want)
                    << exports.init.name() << ", order " << order << ", state " << bits;
            }
        }
    });
}

TEST(FftInit, works_in_memory_of_any_alignment)
{
    for_each_spec_type([]<class Spec>(const SpecExports<Spec>& exports) {
        for (const int order : {0, 4, 5, 6, 7, 8, 10, 11, 12}) {
            Memory<Spec> memory(order);
            memory.init();
            const std::vector<std::byte> want = memory.transform(); // against the unreadable pages
            for (int bytes = 0; bytes < 64; ++bytes) {
                memory.place(misaligned(bytes), misaligned((7 * bytes + 3) % 64));
                memory.init();
                EXPECT_EQ(memory.damage(), "") << exports.init.name() << ", order " << order << ", " << bytes;
                memory.overwrite_scratch();
                EXPECT_TRUE(memory.transform() == want) << exports.init.name() << ", order " << order << ", " << bytes;
                EXPECT_EQ(memory.damage(), "") << exports.init.name() << ", order " << order << ", " << bytes;
            }
        }
    });
}

TEST(FftInit, large_tables_fit_the_size_told)
{
    for_each_spec_type([]<class Spec>(const SpecExports<Spec>& exports) {
        for (const int order : {15, 17, 18, 19, 20}) {
            Memory<Spec> memory(order);
            memory.init();
            const std::vector<std::byte> want = memory.transform();
            for (const Placement placement : {after_guard, misaligned(1), misaligned(40)}) {
                memory.place(placement, placement);
                memory.init();
                EXPECT_EQ(memory.damage(), "") << exports.init.name() << ", order " << order;
                EXPECT_TRUE(memory.transform() == want) << exports.init.name() << ", order " << order;
                EXPECT_EQ(memory.damage(), "") << exports.init.name() << ", order " << order;
            }
        }
    });
}

TEST(FftInit, tables_of_two_levels_fit_the_size_told)
{
    for_each_spec_type([]<class Spec>(const SpecExports<Spec>& exports) {
        Memory<Spec> memory(23);
        for (const Placement placement : {before_guard, misaligned(1)}) {
            memory.place(placement, placement);
            memory.init();
            EXPECT_EQ(memory.damage(), "") << exports.init.name();
        }
    });
}

TEST(FftInit, low_orders_want_no_scratch)
{
    for_each_spec_type([]<class Spec>(const SpecExports<Spec>& exports) {
        for (int order = 0; order <= 11; ++order) {
            Memory<Spec> memory(order);
            Spec* spec = nullptr;
            const OrvStatus status =
                exports.init(&spec, order, ORV_FFT_SCALE_NONE, ORV_HINT_ANY, memory.block(), nullptr);
            expect_value(exports.init, Orv32s{status}, order < 11 ? orvOk : orvErrNullPointer);
            EXPECT_EQ(spec, order < 11 ? memory.spec() : nullptr);
        }
    });
}

TEST(FftInit, any_hint_gives_the_same_spec)
{
    for_each_spec_type([]<class Spec>(const SpecExports<Spec>& exports) {
        for (const int order : {4, 9, 12}) {
            Memory<Spec> memory(order);
            memory.init();
            const std::vector<std::byte> want = memory.transform();
            for (const OrvHintAlgorithm hint : hints) {
                memory.init(ORV_FFT_SCALE_SQRT, hint);
                EXPECT_TRUE(memory.transform() == want) << exports.init.name() << ", order " << order;
            }
        }
    });
}

TEST(FftInit, transforms_only_read_the_spec)
{
    for_each_spec_type([]<class Spec>(const SpecExports<Spec>& exports) {
        for (const int order : {3, 7, 11, 19}) {
            Memory<Spec> memory(order);
            memory.init();
            const std::vector<Orv8u> before = memory.content();
            memory.transform();
            EXPECT_TRUE(memory.content() == before) << exports.init.name() << ", order " << order;
        }
    });
}

TEST(FftInit, checks)
{
    for_each_spec_type([]<class Spec>(const SpecExports<Spec>& exports) {
        Memory<Spec> memory(11);
        ArgumentChecks checks(exports.init, 11, ORV_FFT_SCALE_INV, ORV_HINT_ANY);
        static_cast<void>(checks.template with_pointer<4>(memory.block()).template with_pointer<5>(memory.scratch()));
        static_cast<void>(checks.template bad<0>(nullptr, orvErrNullPointer));
        add_bad_orders<1>(checks, never_an_order);
        add_bad_orders<1>(checks, too_high_orders<Spec>());
        static_cast<void>(checks.template bad<4>(nullptr, orvErrNullPointer));
        add_bad_flags<2>(checks);
        static_cast<void>(checks.template bad<5>(nullptr, orvErrNullPointer));
        checks.run();
        EXPECT_EQ(memory.damage(), "") << exports.init.name();
    });
}

TEST(FftInit, failure_leaves_no_valid_spec)
{
    for_each_spec_type([]<class Spec>(const SpecExports<Spec>& exports) {
        Memory<Spec> memory(11);
        const auto status_of_use = [&] {
            Orv32s size = 0;
            return Orv32s{exports.get_buf_size(memory.spec(), &size)};
        };
        Spec* spec = nullptr;
        memory.init();
        expect_value(exports.get_buf_size, status_of_use(), orvOk);
        expect_value(exports.init, Orv32s{exports.init(&spec, 11, 3, ORV_HINT_ANY, memory.block(), memory.scratch())},
                     orvErrBadFftFlag);
        expect_value(exports.get_buf_size, status_of_use(), orvErrWrongContext);

        memory.init();
        expect_value(exports.init, Orv32s{exports.init(&spec, 11, 1, ORV_HINT_ANY, memory.block(), nullptr)},
                     orvErrNullPointer);
        expect_value(exports.get_buf_size, status_of_use(), orvErrWrongContext);
        EXPECT_EQ(spec, nullptr) << exports.init.name();
    });
}

// ---- Specs that are allocated

TEST(FftInitAlloc, checks)
{
    for_each_spec_type([]<class Spec>(const SpecExports<Spec>& exports) {
        Spec* spec = nullptr;
        ArgumentChecks checks(exports.init_alloc, 12, ORV_FFT_SCALE_INV, ORV_HINT_ANY);
        static_cast<void>(checks.template with_pointer<0>(&spec));
        static_cast<void>(checks.template bad<0>(nullptr, orvErrNullPointer));
        add_bad_orders<1>(checks, never_an_order);
        add_bad_flags<2>(checks);
        add_bad_orders<1>(checks, too_high_orders<Spec>());
        checks.run();
        expect_value(exports.free, Orv32s{exports.free(spec)}, orvOk);
    });
}

TEST(FftInitAlloc, refusal_leaves_the_pointer_alone)
{
    for_each_spec_type([]<class Spec>(const SpecExports<Spec>& exports) {
        Spec* const before = Memory<Spec>(0).spec(); // whatever it is
        for (const auto& [order, flag] : {std::pair{-1, 1}, {30, 1}, {31, 1}, {5, 3}}) {
            Spec* spec = before;
            EXPECT_LT(exports.init_alloc(&spec, order, flag, ORV_HINT_ANY), orvOk);
            EXPECT_EQ(spec, before) << exports.init_alloc.name() << ", order " << order << ", flag " << flag;
        }
    });
}

TEST(FftInitAlloc, spec_is_that_of_init)
{
    for_each_spec_type([]<class Spec>(const SpecExports<Spec>& exports) {
        for (const int order : {0, 6, 8, 12}) {
            Memory<Spec> memory(order);
            const Spec* made = memory.init();
            Spec* allocated = nullptr;
            const OrvStatus status = exports.init_alloc(&allocated, order, ORV_FFT_SCALE_SQRT, ORV_HINT_SPEED);
            expect_value(exports.init_alloc, Orv32s{status}, orvOk);
            EXPECT_EQ(reinterpret_cast<std::uintptr_t>(allocated) % 64, 0u) << exports.init_alloc.name();
            EXPECT_TRUE(memory.transform(allocated) == memory.transform(made))
                << exports.init_alloc.name() << ", order " << order;
            expect_value(exports.free, Orv32s{exports.free(allocated)}, orvOk);
        }
    });
}

// ---- The buffer

TEST(FftGetBufSize, is_what_get_size_tells)
{
    for_each_spec_type([]<class Spec>(const SpecExports<Spec>& exports) {
        for (int order = 0; order <= 20; ++order) {
            const OwnSpec<Spec> spec(order, ORV_FFT_SCALE_INV);
            Orv32s size = -1;
            expect_value(exports.get_buf_size, Orv32s{exports.get_buf_size(spec, &size)}, orvOk);
            EXPECT_EQ(size, wanted_sizes<Spec>(order).work) << exports.get_buf_size.name() << ", order " << order;
        }
    });
}

// ---- Which specs are refused

constexpr int small_order = 3; // at which all data fit the arrays of the checks

/// Memory that is no spec for the exports of the type: what visit gets are its addresses, as if it were one.
template <class Spec, class Visit>
void for_each_wrong_spec(const Visit& visit)
{
    for_each_spec_type([&]<class Other>(const SpecExports<Other>& exports) {
        Memory<Other> memory(small_order);
        memory.init();
        if (std::is_same_v<Spec, Other>) expect_value(exports.free, Orv32s{exports.free(memory.spec())}, orvOk);
        visit(reinterpret_cast<Spec*>(memory.spec()));
    });
    alignas(64) Orv8u nothing[256] = {};
    visit(reinterpret_cast<Spec*>(nothing));
}

TEST(FftSpec, others_are_refused)
{
    for_each_spec_type([]<class Spec>(const SpecExports<Spec>& exports) {
        for_each_wrong_spec<Spec>([&](Spec* wrong) {
            Orv32s size = -1;
            expect_value(exports.get_buf_size, Orv32s{exports.get_buf_size(wrong, &size)}, orvErrWrongContext);
            EXPECT_EQ(size, -1) << exports.get_buf_size.name();
            expect_value(exports.free, Orv32s{exports.free(wrong)}, orvErrWrongContext);
        });
    });
}

template <class Spec, class... Args>
constexpr std::size_t spec_index()
{
    constexpr bool is_spec[] = {std::is_same_v<Args, const Spec*>...};
    return static_cast<std::size_t>(std::find(is_spec, is_spec + sizeof...(Args), true) - is_spec);
}

/// A null spec first, then a wrong one, then null arrays. The buffer may be null.
template <class Spec, class... Args, std::size_t... I>
void expect_checks(const Export<OrvStatus, Args...>& f, const Spec* spec, Spec* wrong, std::index_sequence<I...>)
{
    constexpr std::size_t at = spec_index<Spec, Args...>();
    ArgumentChecks checks(f);
    static_cast<void>(checks.template with_pointer<at>(spec)
                          .template bad<at>(nullptr, orvErrNullPointer)
                          .template bad<at>(wrong, orvErrWrongContext));
    const auto add_array = [&]<std::size_t index>(std::index_sequence<index>) {
        if constexpr (index != at && index + 1 != sizeof...(Args))
            static_cast<void>(checks.template bad<index>(nullptr, orvErrNullPointer));
    };
    (add_array(std::index_sequence<I>()), ...);
    checks.run();
}

TEST(FftTransforms, checks)
{
    for_each_spec_type([]<class Spec>(const SpecExports<Spec>&) {
        Memory<Spec> memory(small_order);
        memory.init();
        for_each_wrong_spec<Spec>([&](Spec* wrong) {
            for_each_transform<Spec>([&]<class... Args>(const Export<OrvStatus, Args...>& f) {
                expect_checks(f, static_cast<const Spec*>(memory.spec()), wrong, std::index_sequence_for<Args...>());
            });
        });
    });
}

TEST(FftGetBufSize, checks)
{
    for_each_spec_type([]<class Spec>(const SpecExports<Spec>& exports) {
        Memory<Spec> memory(small_order);
        memory.init();
        for_each_wrong_spec<Spec>([&](Spec* wrong) {
            ArgumentChecks checks(exports.get_buf_size);
            static_cast<void>(checks.template with_pointer<0>(static_cast<const Spec*>(memory.spec()))
                                  .null_pointers()
                                  .template bad<0>(wrong, orvErrWrongContext));
            checks.run();
        });
    });
}

TEST(FftFree, checks)
{
    for_each_spec_type([]<class Spec>(const SpecExports<Spec>& exports) {
        Memory<Spec> memory(small_order);
        memory.init();
        expect_value(exports.free, Orv32s{exports.free(nullptr)}, orvErrNullPointer);
        expect_value(exports.free, Orv32s{exports.free(memory.spec())}, orvOk);
        expect_value(exports.free, Orv32s{exports.free(memory.spec())}, orvErrWrongContext);
        EXPECT_EQ(memory.damage(), "") << exports.free.name();
        memory.init(); // the memory is the caller's still
        expect_value(exports.free, Orv32s{exports.free(memory.spec())}, orvOk);
    });
}

} // namespace
} // namespace orvtest
