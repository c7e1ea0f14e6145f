// Which exports a test binary has looked at, and a digest of what they returned.
//
// Digests compare variants: they depend on values only, not on word size, addresses or the order of tests. Within one
// test, results are digested in the order of looking, so a test looks at its results on one thread and in fixed order.
#pragma once

#include "elements.h"

#include <string>
#include <string_view>

namespace orvtest {

/// Records that the running test has looked at these results of an export.
void look_at(std::string_view export_name, const ElementType& type, const void* elements, std::size_t n,
             NanView nans = NanView::one_value);

template <Element T>
void look_at(std::string_view export_name, const T* elements, std::size_t n, NanView nans = NanView::one_value)
{
    look_at(export_name, element_type<T>(), elements, n, nans);
}

/// One line "name digest" for each export looked at, sorted by name.
std::string digest_lines();

} // namespace orvtest
