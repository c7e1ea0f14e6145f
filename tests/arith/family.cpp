#include "tests/arith/family.h"

#include <set>

namespace orvtest {

SweepOptions family_lengths()
{
    std::set<int> lengths;
    for (const int n : lengths_around({256, 445, 1014, 1185, 1200, 2731})) lengths.insert(n);
    for (int n = longest_dense_length + 1; n <= 160; ++n) lengths.insert(n);
    SweepOptions options;
    options.lengths.assign(lengths.begin(), lengths.end());
    return options;
}

std::vector<std::uint64_t> critical_words(const ElementType& type, int near, std::size_t random_values, int step)
{
    const int width = 8 * static_cast<int>(type.component_size);
    const std::uint64_t half = std::uint64_t{1} << (width - 1), mask = half | (half - 1);
    // Keys in the order of the type: a signed value is moved up by half of the range.
    const std::uint64_t moved = type.number == Number::signed_integer ? half : 0;
    std::set<std::uint64_t> keys;
    const auto add = [&](std::uint64_t value) { keys.insert((value + moved) & mask); };
    const auto add_around = [&](std::uint64_t center, int reach) {
        for (int distance = -reach; distance <= reach; ++distance) add(center + static_cast<std::uint64_t>(distance));
    };
    add_around(0, 8 * near);
    add_around(half, 8 * near);
    for (int bit = 1; bit < width; bit += step)
        for (const std::uint64_t odd : {1u, 3u, 5u}) {
            add_around(odd << bit, near);
            add_around(-(odd << bit), near);
        }
    Random random(static_cast<std::uint64_t>(width));
    for (std::size_t i = 0; i < random_values; ++i) add(random.bits());

    std::vector<std::uint64_t> words;
    for (const std::uint64_t key : keys) words.push_back(key - moved);
    return words;
}

void add_pair_failure(const char* name, AnyElement a, AnyElement b, int scale, AnyElement got, AnyElement want)
{
    const auto text = [](AnyElement x) { return element_text(x.type, x.element); };
    ADD_FAILURE() << name << " of " << text(a) << " and " << text(b) << " at scale " << scale << " is " << text(got)
                  << ", not " << text(want);
}

} // namespace orvtest
