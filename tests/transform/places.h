// Where the arrays of a transform lie.
#pragma once

#include "tests/convert/arrays.h"

namespace orvtest {

enum class Places {
    all, ///< against both unreadable pages, each array at each distance of elements from a boundary, and at odd
         ///< addresses
    few, ///< against the unreadable pages, and at one odd address
    one  ///< against the unreadable page at the end
};

/// Makes the call with its arrays, which are so many, at the places; says whether all was right.
bool at_places(ArrayCalls& call, std::size_t arrays, std::size_t element_size, Places places);

} // namespace orvtest
