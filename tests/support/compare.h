// Comparing the results of an export outside of a sweep. Each of these also records that the test has looked at them.
#pragma once

#include "api.h"
#include "digest.h"
#include "guarded.h"

#include <gtest/gtest.h>
#include <vector>

namespace orvtest {

/// Expects n elements to be the wanted ones, bit for bit, and any NaN for any NaN. f is an export.
template <class AnyExport, Element T>
bool expect_elements(const AnyExport& f, const T* got, const T* want, std::size_t n, NanView nans = NanView::one_value)
{
    constexpr ElementType type = element_type<T>();
    look_at(f.name(), got, n, nans);
    const std::size_t i = first_difference(type, got, want, n, nans);
    if (i == n) return true;
    ADD_FAILURE() << f.name() << ": element " << i << " of " << n << " is " << element_text(type, got + i) << ", not "
                  << element_text(type, want + i);
    return false;
}

template <class AnyExport, Element T>
bool expect_elements(const AnyExport& f, const std::vector<T>& got, const std::vector<T>& want,
                     NanView nans = NanView::one_value)
{
    EXPECT_EQ(got.size(), want.size()) << f.name();
    return got.size() == want.size() && expect_elements(f, got.data(), want.data(), got.size(), nans);
}

template <class AnyExport, Element T>
bool expect_elements(const AnyExport& f, const GuardedArray<T>& got, const std::vector<T>& want,
                     NanView nans = NanView::one_value)
{
    EXPECT_EQ(got.damage(), "") << f.name() << " has written outside the array";
    return expect_elements(f, got.elements(), want, nans);
}

/// Expects one value: a size, a sum, a status.
template <class AnyExport, Element T>
bool expect_value(const AnyExport& f, const T& got, const std::type_identity_t<T>& want)
{
    return expect_elements(f, &got, &want, 1);
}

} // namespace orvtest
