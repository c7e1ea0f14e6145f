// Which arguments an accuracy is measured at. They have numbers, so that threads can share them, and are the same in
// every variant and in every run.
#pragma once

#include "function.h"

#include <cstdint>
#include <vector>

namespace orvtest {

/// How many arguments.
enum class Extent {
    sample, ///< in a fraction of a second: every 1009th float, or 2^18 random ones
    all     ///< all floats; of doubles and of pairs 10^8 random ones
};

/// Arguments of a function: special values, the neighbours of hard arguments, and then bit patterns at equal distances
/// or random draws. All pairs of special values, for two arguments.
template <class T>
class Arguments {
public:
    Arguments(const Function& function, Extent extent);

    /// How many there are.
    std::uint64_t count() const { return listed_.size() + spread_; }

    struct Pair {
        T x, y; ///< of one argument, y is 0
    };
    Pair operator[](std::uint64_t i) const;

private:
    void list_special_values();
    void list_neighbours();
    T draw(std::uint64_t number) const;

    Function function_;
    bool by_pattern_;
    std::uint64_t spread_; ///< arguments behind the listed ones
    std::uint64_t stride_; ///< between two bit patterns
    std::vector<Pair> listed_;
};

extern template class Arguments<float>;
extern template class Arguments<double>;

} // namespace orvtest
