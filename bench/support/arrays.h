// The arrays that a row works on.
#ifndef ORV_BENCH_SUPPORT_ARRAYS_H
#define ORV_BENCH_SUPPORT_ARRAYS_H

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <random>
#include <type_traits>
#include <vector>

namespace bench {

/// Arrays at 64-byte boundaries, in huge pages where the system grants them: with small pages, the physical addresses
/// that a run happens to get decide how much of an array its L2 cache holds.
class Arrays {
public:
    /// n elements of noise, offset elements after a boundary: all values for integers, [-1, 1) for floating types.
    /// Every page is written, so that no entry pays for the first touch.
    template <class T>
    T* make(std::size_t n, std::size_t offset)
    {
        static_assert(std::is_arithmetic_v<T>);
        T* array = static_cast<T*>(allocate((n + offset) * sizeof(T))) + offset;
        for (std::size_t i = 0; i < n; ++i) array[i] = noise<T>();
        return array;
    }

private:
    struct Free {
        void operator()(void* p) const { std::free(p); }
    };

    void* allocate(std::size_t bytes);

    template <class T>
    T noise()
    {
        // Marsaglia's xorshift: 256 MB of it should not take longer than the measurement.
        state ^= state << 13;
        state ^= state >> 7;
        state ^= state << 17;
        if constexpr (std::is_floating_point_v<T>) {
            return static_cast<T>(static_cast<std::int32_t>(state >> 32)) * static_cast<T>(0x1p-31);
        } else {
            return static_cast<T>(state >> 32);
        }
    }

    std::uint64_t state = 0x9e3779b97f4a7c15;
    std::vector<std::unique_ptr<void, Free>> blocks;
};

} // namespace bench

#endif
