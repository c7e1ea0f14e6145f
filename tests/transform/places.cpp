#include "tests/transform/places.h"

namespace orvtest {

bool at_places(ArrayCalls& call, std::size_t arrays, std::size_t element_size, Places places)
{
    if (!call.at(before_guard)) return false;
    if (places == Places::one) return true;
    std::vector<Placement> odd;
    for (std::size_t i = 0; i < arrays; ++i) odd.push_back(misaligned(static_cast<int>(1 + 6 * i)));
    if (!call.at(after_guard) || !call.at(odd)) return false;
    if (places == Places::few) return true;
    for (std::size_t moved = 0; moved < arrays; ++moved)
        for (std::size_t bytes = 0; bytes < 64; bytes += element_size) {
            std::vector<Placement> placements(arrays, misaligned(0));
            placements[moved] = misaligned(static_cast<int>(bytes));
            if (!call.at(placements)) return false;
        }
    return true;
}

} // namespace orvtest
