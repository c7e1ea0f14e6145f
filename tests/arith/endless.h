// Arrays of more elements than memory holds: the same pages again and again. For 64-bit programs.
#pragma once

#include "tests/arith/family.h"

#if defined(__x86_64__) && !defined(__SANITIZE_ADDRESS__) // the sanitizer's shadow of such arrays takes too long
#define ORV_ENDLESS_ARRAYS 1

#include <cerrno>
#include <sys/mman.h>
#include <system_error>
#include <unistd.h>

namespace orvtest {

/// An array of complex elements of 8 bytes with one element more than half the largest int and some thousands, so that
/// the number of its parts is beyond the type. Its first chunk, the last whole one and the incomplete one behind it are
/// memory of their own; all chunks between show the same memory.
template <Complex T>
class EndlessArray {
public:
    static_assert(sizeof(T) == 8);
    static constexpr int length = 0x3FFFFFFE + 5003;

    EndlessArray()
    {
        constexpr int access = PROT_READ | PROT_WRITE;
        const int shared = memfd_create("shared chunk", MFD_CLOEXEC);
        require(shared >= 0 && ftruncate(shared, chunk) == 0, "shared memory");
        void* all = mmap(nullptr, chunks * chunk, access, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
        require(all != MAP_FAILED, "address space");
        data_ = static_cast<T*>(all);
        for (std::size_t k = 1; k < chunks - 2; ++k)
            require(mmap(at(k), chunk, access, MAP_SHARED | MAP_FIXED | MAP_POPULATE, shared, 0) != MAP_FAILED,
                    "mapping");
        close(shared);
    }
    ~EndlessArray() { munmap(data_, chunks * chunk); }
    EndlessArray(const EndlessArray&) = delete;
    EndlessArray& operator=(const EndlessArray&) = delete;

    T* data() { return data_; }

    /// All memory, once: the first chunk, the shared one, and both at the end.
    void fill(Random& random)
    {
        for (const std::size_t k : own_chunks) {
            const std::vector<T> values = inputs<T>(random, chunk_length, Floats::finite);
            std::memcpy(at(k), values.data(), chunk);
        }
    }
    std::vector<T> content() const
    {
        std::vector<T> all;
        for (const std::size_t k : own_chunks) all.insert(all.end(), at(k), at(k) + chunk_length);
        return all;
    }
    /// How many elements of the content the array has.
    static constexpr std::size_t content_length()
    {
        return 3 * chunk_length + (static_cast<std::size_t>(length) - (chunks - 1) * chunk_length);
    }

private:
    static constexpr std::size_t chunk = std::size_t{2} << 20;
    static constexpr std::size_t chunk_length = chunk / sizeof(T);
    static constexpr std::size_t chunks = (static_cast<std::size_t>(length) + chunk_length - 1) / chunk_length;
    static constexpr std::size_t own_chunks[] = {0, 1, chunks - 2, chunks - 1};

    T* at(std::size_t k) const { return data_ + k * chunk_length; }
    static void require(bool succeeded, const char* what)
    {
        if (!succeeded) throw std::system_error(errno, std::generic_category(), what);
    }

    T* data_ = nullptr;
};

/// Calls f on endless arrays and compares with the oracle what can be told apart in them.
template <Complex T, class Oracle>
void expect_right_without_end(const Call<const T*, T*>& f, const Oracle& oracle)
{
    EndlessArray<T> source, destination;
    Random random(1);
    source.fill(random);
    destination.fill(random);
    const std::vector<T> values = source.content();
    std::vector<T> want = destination.content();
    for (std::size_t i = 0; i < source.content_length(); ++i) want[i] = oracle(values[i]);

    ASSERT_EQ(f.function(source.data(), destination.data(), source.length), orvOk);
    const std::vector<T> got = destination.content();
    const std::size_t i = first_difference(element_type<T>(), got.data(), want.data(), want.size());
    EXPECT_EQ(i, want.size()) << f.name << ": element " << i << " of those that can be told apart";
    const std::vector<T> after = source.content();
    EXPECT_EQ(first_difference(element_type<T>(), after.data(), values.data(), values.size()), values.size())
        << f.name << " has changed its source";
}

} // namespace orvtest

#endif
