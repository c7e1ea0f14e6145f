#include "compare.h"

namespace orvtest {

bool expect_elements(const char* export_name, const ElementType& type, const void* got, const void* want, std::size_t n,
                     NanView nans)
{
    look_at(export_name, type, got, n, nans);
    const std::size_t i = first_difference(type, got, want, n, nans);
    if (i == n) return true;
    const std::size_t at = i * type.size();
    ADD_FAILURE() << export_name << ": element " << i << " of " << n << " is "
                  << element_text(type, static_cast<const std::byte*>(got) + at) << ", not "
                  << element_text(type, static_cast<const std::byte*>(want) + at);
    return false;
}

} // namespace orvtest
