// What the library asks of the core library, and that it stays right whatever the answers are.
//
// The functions of the core library are defined here. A program's own definitions come first, so that the library's
// calls end here too. They write down who was called, and answer what a test wants.
#include "families.h"

#include <array>
#include <climits>
#include <cstdlib>
#include <string>

namespace {

// ---- The core library of this program. It is called before constructors run, so nothing here needs one.

enum class Function {
    get_cpu_features,
    get_enabled_cpu_features,
    get_max_cache_size,
    get_num_threads,
    get_feature,
    allocate,
    release,
    align
};

struct CoreCall {
    Function function;
    std::intptr_t first, second; // arguments

    friend bool operator==(const CoreCall&, const CoreCall&) = default;
};

constinit std::array<CoreCall, 1 << 16> calls = {};
constinit std::size_t call_count = 0;

void write_down(Function function, std::intptr_t first = 0, std::intptr_t second = 0)
{
    if (call_count < calls.size()) calls[call_count] = {function, first, second};
    ++call_count;
}
std::intptr_t number(const void* pointer) { return reinterpret_cast<std::intptr_t>(pointer); }

constinit OrvStatus cache_status = orvOk;
constinit int cache_bytes = 8 << 20;
constinit void* next_block = nullptr;
constexpr const char* features_variable = "ORV_TEST_FEATURES"; // the mask of enabled features, in hexadecimal

const std::size_t calls_while_loading = call_count; // libraries are loaded before this program's constructors run

} // namespace

OrvStatus orvGetCpuFeatures(Orv64u* features, Orv32u* registers)
{
    write_down(Function::get_cpu_features, number(features), number(registers));
    return orvOk;
}
Orv64u orvGetEnabledCpuFeatures()
{
    write_down(Function::get_enabled_cpu_features);
    const char* mask = std::getenv(features_variable);
    return mask ? std::strtoull(mask, nullptr, 16) : 0x30;
}
OrvStatus orvGetMaxCacheSizeB(int* bytes)
{
    write_down(Function::get_max_cache_size);
    *bytes = cache_bytes;
    return cache_status;
}
int ownGetNumThreads()
{
    write_down(Function::get_num_threads);
    return 1;
}
int ownGetFeature(Orv64u mask)
{
    write_down(Function::get_feature, static_cast<std::intptr_t>(mask));
    return 0;
}
void* orvMalloc(int size)
{
    write_down(Function::allocate, size);
    return next_block;
}
void orvFree(void* block) { write_down(Function::release, number(block)); }
void* orvAlignPtr(void* pointer, int alignment)
{
    write_down(Function::align, number(pointer), alignment);
    return pointer;
}

namespace orvtest {
namespace {

/// The calls since its construction.
class Calls {
public:
    std::vector<CoreCall> all() const { return {calls.begin() + static_cast<std::ptrdiff_t>(first_), end()}; }
    std::size_t count() const { return call_count - first_; }

private:
    static std::array<CoreCall, 1 << 16>::iterator end()
    {
        EXPECT_LE(call_count, calls.size()) << "more calls than there is room for";
        return calls.begin() + static_cast<std::ptrdiff_t>(std::min(call_count, calls.size()));
    }
    const std::size_t first_ = call_count;
};

// ---- Loading

TEST(Loading, identifies_the_processor_and_asks_for_the_enabled_features_once)
{
    ASSERT_EQ(calls_while_loading, 2u);
    EXPECT_EQ(calls[0], (CoreCall{Function::get_cpu_features, 0, 0}));
    EXPECT_EQ(calls[1], (CoreCall{Function::get_enabled_cpu_features, 0, 0}));
}

/// A few calls of each kind, and whether all were right.
bool works()
{
    static Orv32s memory[100];
    next_block = memory;
    Orv32s* block = orvsMalloc_32s(100);
    bool right = block == memory && orvsGetLibVersion()->major == 8;
    right = right && orvsSet_32s(7, block, 60) == orvOk && orvsZero_32s(block, 10) == orvOk;
    right = right && orvsCopy_32s(block, block + 60, 40) == orvOk && orvsMove_32s(block, block + 1, 40) == orvOk;
    for (int i = 0; i < 100; ++i) right = right && block[i] == (i < 11 || (i >= 60 && i < 70) ? 0 : 7);
    orvsFree(block);
    return right;
}

using LoadingDeathTest = testing::Test; // each case in a process of its own

TEST_F(LoadingDeathTest, works_with_any_features)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe"); // the copy starts anew, and loads the library under these features
    for (const char* mask : {"0", "10", "20", "30", "ffffffff00000030", "ffffffffffffffcf"}) {
        ASSERT_EQ(setenv(features_variable, mask, 1), 0);
        const auto tell = [&] {
            std::fprintf(stderr, "features %llx, %zu calls, %s;\n",
                         static_cast<unsigned long long>(orvGetEnabledCpuFeatures()), calls_while_loading,
                         works() ? "works" : "fails");
            std::_Exit(0);
        };
        EXPECT_EXIT(tell(), testing::ExitedWithCode(0), std::string("features ") + mask + ", 2 calls, works;");
    }
    unsetenv(features_variable);
}

// ---- The size of the caches

struct Answer {
    OrvStatus status;
    int bytes;
};
void answer(Answer a)
{
    cache_status = a.status;
    cache_bytes = a.bytes;
}

/// How often filling so many bytes asks for the size of the caches; nothing else is asked.
template <class T, class Fill>
std::size_t questions(const Fill& fill, std::size_t bytes)
{
    LargeFill<T> array(fill, bytes / sizeof(T));
    const Calls asked;
    EXPECT_TRUE(array.check(bytes / sizeof(T), before_guard));
    for (const CoreCall& call : asked.all()) EXPECT_EQ(call.function, Function::get_max_cache_size);
    return asked.count();
}

TEST(CacheSize, zero_asks_above_2_MiB_only)
{
    answer({orvOk, 8 << 20});
    for_each_zero([]<class T>(const Export<OrvStatus, T*, int>& zero) {
        EXPECT_EQ(questions<T>(zero, sizeof(T)), 0u) << zero.name();
        EXPECT_EQ(questions<T>(zero, asking_bytes), 0u) << zero.name();
        EXPECT_EQ(questions<T>(zero, asking_bytes + sizeof(T)), 1u) << zero.name();
    });
}

TEST(CacheSize, set_asks_above_2_MiB_only)
{
    answer({orvOk, 8 << 20});
    for_each_set([]<class T>(const Export<OrvStatus, T, T*, int>& set) {
        EXPECT_EQ(questions<T>(set, sizeof(T)), 0u) << set.name();
        EXPECT_EQ(questions<T>(set, asking_bytes), 0u) << set.name();
        // For 16-byte elements a processor that describes its caches itself is asked instead.
        const std::size_t asked = questions<T>(set, asking_bytes + sizeof(T));
        if (sizeof(T) == 16) EXPECT_LE(asked, 1u) << set.name();
        else EXPECT_EQ(asked, 1u) << set.name();
    });
}

/// Sizes at which a cache of 8 MiB decides, and answers that are none or at a limit.
constexpr Answer answers[] = {{orvOk, 8 << 20},
                              {orvErrBadArgument, 1 << 20},
                              {orvWrnNanInData, 1 << 20},
                              {orvOk, 0},
                              {orvOk, -1},
                              {orvOk, INT_MIN},
                              {orvOk, 1},
                              {orvOk, INT_MAX}};

template <class T, class Fill>
void check_any_answer(const Fill& fill)
{
    LargeFill<T> array(fill, (16 << 20) / sizeof(T));
    for (const std::size_t bytes : {4u << 20, 16u << 20})
        for (const Answer& a : answers) {
            answer(a);
            if (!array.check(bytes / sizeof(T), misaligned(16))) return;
        }
    answer({orvOk, 8 << 20}); // as large as the cache, and larger by one
    EXPECT_TRUE(array.check((8 << 20) / sizeof(T), before_guard));
    EXPECT_TRUE(array.check((8 << 20) / sizeof(T) + 1, before_guard));
}

TEST(CacheSize, fills_are_right_whatever_the_answer)
{
    for_each_zero([]<class T>(const Export<OrvStatus, T*, int>& zero) { check_any_answer<T>(zero); });
    for_each_set([]<class T>(const Export<OrvStatus, T, T*, int>& set) { check_any_answer<T>(set); });
}

template <class T, class Fill>
void check_every_address(const Fill& fill)
{
    constexpr std::size_t n = asking_bytes / sizeof(T) + 13;
    LargeFill<T> array(fill, n + 64);
    for (int bytes = 0; bytes < 64; ++bytes)
        if (!array.check(n + static_cast<std::size_t>(bytes) * 5 % 64, misaligned(bytes))) return;
    for (std::size_t more = 0; more < 64; ++more)
        if (!array.check(n + more, before_guard)) return;
}

TEST(CacheSize, fills_past_small_caches_are_right_at_every_address)
{
    answer({orvOk, 1});
    for_each_zero([]<class T>(const Export<OrvStatus, T*, int>& zero) { check_every_address<T>(zero); });
    for_each_set([]<class T>(const Export<OrvStatus, T, T*, int>& set) { check_every_address<T>(set); });
}

template <class T>
void check_copies(const Export<OrvStatus, const T*, T*, int>& copy)
{
    constexpr std::size_t most = (asking_bytes + 2048) / sizeof(T);
    LargeCopy<T> arrays(copy, most);
    for (const Placement source : {before_guard, misaligned(0), misaligned(1), misaligned(38)}) {
        arrays.place_source(most, source);
        for (int bytes = 0; bytes < 64; bytes += 1 + static_cast<int>(sizeof(T)) % 3 * 2)
            if (!arrays.check(misaligned(bytes))) return;
    }
    for (std::size_t less = 0; less < 40; ++less) {
        arrays.place_source(most - less, before_guard);
        if (!arrays.check(before_guard)) return;
    }
}

TEST(CacheSize, copies_past_small_caches_are_right_at_every_address)
{
    answer({orvOk, 1});
    check_copies(ORV_EXPORT(orvsCopy_8u));
    check_copies(ORV_EXPORT(orvsCopy_16s));
    check_copies(ORV_EXPORT(orvsCopy_64fc));
    check_copies(ORV_EXPORT(orvsMove_8u));
}

TEST(CacheSize, copies_are_right_whatever_the_answer)
{
    for_each_copy([]<class T>(const Export<OrvStatus, const T*, T*, int>& copy) {
        LargeCopy<T> arrays(copy, (4 << 20) / sizeof(T));
        arrays.place_source((4 << 20) / sizeof(T), misaligned(4));
        for (const Answer& a : answers) {
            answer(a);
            if (!arrays.check(misaligned(8))) return;
        }
    });
}

// ---- Memory

Orv64fc some_block[1];

TEST(Memory, allocators_hand_over_the_size_and_hand_back_the_answer)
{
    for_each_malloc([]<class T>(const Export<T*, int>& allocate) {
        for (const int length : {1, 2, 5, 100, 0x07FFFFFF, 0x08000000, 0x10000000, 0x20000001, 0x40000000, 0x7FFFFFFF})
            for (void* given : {static_cast<void*>(some_block), static_cast<void*>(nullptr)}) {
                next_block = given;
                const Calls made;
                const T* got = allocate(length);
                // 32 bits of the product
                const auto product = static_cast<std::uint64_t>(length) * sizeof(T);
                const auto size = static_cast<Orv32s>(static_cast<std::uint32_t>(product & 0xFFFFFFFF));
                EXPECT_EQ(made.all(), (std::vector<CoreCall>{{Function::allocate, size, 0}}))
                    << allocate.name() << " of " << length;
                EXPECT_EQ(static_cast<const void*>(got), given) << allocate.name() << " of " << length;
            }
    });
}

TEST(Memory, lengths_below_one_are_not_handed_over)
{
    next_block = some_block;
    for_each_malloc([](const auto& allocate) {
        for (const int length : {0, -1, INT_MIN}) {
            const Calls made;
            EXPECT_EQ(allocate(length), nullptr) << allocate.name() << " of " << length;
            EXPECT_EQ(made.count(), 0u) << allocate.name() << " of " << length;
        }
    });
}

TEST(Memory, a_release_is_handed_over_as_it_stands)
{
    const auto release = ORV_EXPORT(orvsFree);
    char block[1];
    for (void* pointer :
         {static_cast<void*>(nullptr), static_cast<void*>(block), reinterpret_cast<void*>(std::intptr_t{-1})}) {
        const Calls made;
        release(pointer);
        EXPECT_EQ(made.all(), (std::vector<CoreCall>{{Function::release, number(pointer), 0}}));
    }
}

// The last test of this file, so that all the calls above have been made.
TEST(Nothing, else_is_asked)
{
    EXPECT_TRUE(works());
    const CoreCall* end = calls.data() + std::min(call_count, calls.size());
    for (const CoreCall* call = calls.data() + calls_while_loading; call < end; ++call) {
        EXPECT_NE(call->function, Function::get_cpu_features);
        EXPECT_NE(call->function, Function::get_enabled_cpu_features);
        EXPECT_NE(call->function, Function::get_num_threads);
        EXPECT_NE(call->function, Function::get_feature);
        EXPECT_NE(call->function, Function::align);
    }
}

} // namespace
} // namespace orvtest
