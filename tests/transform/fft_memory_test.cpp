// Who allocates and releases memory for a fast Fourier transform, and that a refusal of memory does no harm.
#include "tests/support/allocator.h"
#include "tests/support/compare.h"
#include "tests/transform/fft.h"
#include "tests/transform/signals.h"

#include <array>

namespace orvtest {
namespace {

constexpr int orders[] = {0, 4, 5, 6, 7, 8, 10, 11, 13, 18, 19, 20};

/// One for the spec, and one for scratch if it is needed.
template <class Spec>
int allocations_of_init(int order)
{
    Orv32s spec = 0, init = 0, work = 0;
    EXPECT_EQ(spec_exports<Spec>().get_size(order, ORV_FFT_SCALE_INV, ORV_HINT_ANY, &spec, &init, &work), orvOk);
    return init > 0 ? 2 : 1;
}

TEST(FftMemory, init_alloc_keeps_one_block)
{
    for_each_spec_type([]<class Spec>(const SpecExports<Spec>& exports) {
        for (const int order : orders) {
            forget();
            Spec* spec = nullptr;
            const OrvStatus status = exports.init_alloc(&spec, order, ORV_FFT_SCALE_INV, ORV_HINT_ANY);
            expect_value(exports.init_alloc, Orv32s{status}, orvOk);
            EXPECT_EQ(allocator().allocations, allocations_of_init<Spec>(order)) << exports.init_alloc.name();
            EXPECT_EQ(allocator().blocks.size(), 1u) << exports.init_alloc.name() << ", order " << order;
            expect_value(exports.free, Orv32s{exports.free(spec)}, orvOk);
            EXPECT_EQ(allocator().releases, allocator().allocations) << exports.free.name() << ", order " << order;

            expect_value(exports.free, Orv32s{exports.free(spec)}, orvErrWrongContext); // the memory exists here
            EXPECT_EQ(allocator().releases, allocator().allocations) << exports.free.name() << ", order " << order;
        }
    });
    forget();
}

TEST(FftMemory, init_alloc_reports_each_refusal)
{
    for_each_spec_type([]<class Spec>(const SpecExports<Spec>& exports) {
        for (const int order : orders)
            for (int refused = 0; refused < allocations_of_init<Spec>(order); ++refused) {
                forget();
                allocator().refused = refused;
                Spec* spec = nullptr;
                const OrvStatus status = exports.init_alloc(&spec, order, ORV_FFT_SCALE_INV, ORV_HINT_ANY);
                expect_value(exports.init_alloc, Orv32s{status}, orvErrNoMemory);
                EXPECT_EQ(spec, nullptr) << exports.init_alloc.name() << ", order " << order;
                EXPECT_TRUE(allocator().blocks.empty()) << exports.init_alloc.name() << ", order " << order;
            }
    });
    forget();
}

TEST(FftMemory, init_alloc_allocates_nothing_for_bad_arguments)
{
    for_each_spec_type([]<class Spec>(const SpecExports<Spec>& exports) {
        forget();
        Spec* spec = nullptr;
        EXPECT_EQ(exports.init_alloc(nullptr, 12, ORV_FFT_SCALE_INV, ORV_HINT_ANY), orvErrNullPointer);
        EXPECT_EQ(exports.init_alloc(&spec, 30, ORV_FFT_SCALE_INV, ORV_HINT_ANY), orvErrBadFftOrder);
        EXPECT_EQ(exports.init_alloc(&spec, 12, 3, ORV_HINT_ANY), orvErrBadFftFlag);
        EXPECT_TRUE(allocator().blocks.empty()) << exports.init_alloc.name();
    });
    forget();
}

/// A spec and a buffer in memory of the caller, and arrays for any transform of the spec's type.
template <class Spec>
class CallersMemory {
public:
    using T = RealOf<Spec>;

    explicit CallersMemory(int order)
    {
        Orv32s sizes[3] = {};
        EXPECT_EQ(exports_.get_size(order, ORV_FFT_SCALE_INV, ORV_HINT_ANY, &sizes[0], &sizes[1], &sizes[2]), orvOk);
        block_.resize(static_cast<std::size_t>(sizes[0]));
        buffer_.resize(static_cast<std::size_t>(sizes[2]));
        std::vector<Orv8u> scratch(static_cast<std::size_t>(sizes[1]));
        EXPECT_EQ(exports_.init(&spec_, order, ORV_FFT_SCALE_INV, ORV_HINT_ANY, block_.data(), scratch.data()), orvOk);
        Random random(seed_of("memory", static_cast<std::uint64_t>(order)));
        const std::vector<T> values = noise<T>(random, 1024);
        for (std::vector<T>& array : arrays_) {
            array.resize((std::size_t{2} << order) + 2); // of complex values, and of CCS
            for (std::size_t i = 0; i < array.size(); ++i) array[i] = values[i % values.size()];
        }
    }

    Spec* spec() { return spec_; }
    Orv8u* buffer() { return buffer_.data(); }
    bool needs_buffer() const { return !buffer_.empty(); }
    const std::array<std::vector<T>, 4>& arrays() const { return arrays_; }
    bool holds(const std::array<std::vector<T>, 4>& content) const
    {
        for (std::size_t i = 0; i < content.size(); ++i)
            if (std::memcmp(arrays_[i].data(), content[i].data(), content[i].size() * sizeof(T)) != 0) return false;
        return true;
    }

    // The forms of transforms: of one array and of two, apart and in place.

    template <class E>
    OrvStatus call(const Export<OrvStatus, const E*, E*, const Spec*, Orv8u*>& f, Orv8u* buffer)
    {
        return f(array<E>(0), array<E>(2), spec_, buffer);
    }
    template <class E>
    OrvStatus call(const Export<OrvStatus, E*, const Spec*, Orv8u*>& f, Orv8u* buffer)
    {
        return f(array<E>(0), spec_, buffer);
    }
    OrvStatus call(const Export<OrvStatus, const T*, const T*, T*, T*, const Spec*, Orv8u*>& f, Orv8u* buffer)
    {
        return f(array<T>(0), array<T>(1), array<T>(2), array<T>(3), spec_, buffer);
    }
    OrvStatus call(const Export<OrvStatus, T*, T*, const Spec*, Orv8u*>& f, Orv8u* buffer)
    {
        return f(array<T>(0), array<T>(1), spec_, buffer);
    }

private:
    template <class E>
    E* array(std::size_t i)
    {
        return reinterpret_cast<E*>(arrays_[i].data());
    }

    const SpecExports<Spec> exports_ = spec_exports<Spec>();
    std::vector<Orv8u> block_, buffer_;
    Spec* spec_ = nullptr;
    std::array<std::vector<T>, 4> arrays_;
};

TEST(FftMemory, nothing_is_allocated_when_the_caller_provides_all)
{
    for_each_spec_type([]<class Spec>(const SpecExports<Spec>& exports) {
        for (const int order : orders) {
            forget();
            CallersMemory<Spec> memory(order);
            for_each_transform<Spec>([&](const auto& f) {
                expect_value(f, Orv32s{memory.call(f, memory.buffer())}, orvOk);
                EXPECT_EQ(allocator().allocations, 0) << f.name() << ", order " << order;
            });
            expect_value(exports.free, Orv32s{exports.free(memory.spec())}, orvOk);
            EXPECT_EQ(allocator().allocations, 0) << exports.init.name() << ", order " << order;
            EXPECT_EQ(allocator().releases, 0) << exports.free.name() << ", order " << order;
        }
    });
}

TEST(FftMemory, a_transform_allocates_the_buffer_that_it_is_not_given)
{
    for_each_spec_type([]<class Spec>(const SpecExports<Spec>&) {
        for (const int order : orders) {
            CallersMemory<Spec> given(order), not_given(order);
            for_each_transform<Spec>([&](const auto& f) {
                EXPECT_EQ(given.call(f, given.buffer()), orvOk) << f.name() << ", order " << order;
                forget();
                expect_value(f, Orv32s{not_given.call(f, nullptr)}, orvOk);
                EXPECT_EQ(allocator().allocations, given.needs_buffer() ? 1 : 0) << f.name() << ", order " << order;
                EXPECT_EQ(allocator().releases, allocator().allocations) << f.name() << ", order " << order;
                EXPECT_TRUE(not_given.holds(given.arrays())) << f.name() << ", order " << order;
            });
        }
    });
    forget();
}

TEST(FftMemory, a_transform_without_memory_changes_nothing)
{
    for_each_spec_type([]<class Spec>(const SpecExports<Spec>&) {
        for (const int order : orders) {
            CallersMemory<Spec> memory(order);
            if (!memory.needs_buffer()) continue;
            const auto before = memory.arrays();
            for_each_transform<Spec>([&](const auto& f) {
                forget();
                allocator().refused = 0;
                expect_value(f, Orv32s{memory.call(f, nullptr)}, orvErrNoMemory);
                EXPECT_TRUE(memory.holds(before)) << f.name() << ", order " << order;
            });
        }
    });
    forget();
}

} // namespace
} // namespace orvtest
