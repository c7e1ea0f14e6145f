// Comparing the results of an export outside of a sweep. Each of these also records that the test has looked at them.
#pragma once

#include "api.h"
#include "digest.h"
#include "guarded.h"

#include <gtest/gtest.h>
#include <vector>

namespace orvtest {

bool expect_elements(const char* export_name, const ElementType& type, const void* got, const void* want, std::size_t n,
                     NanView nans);

/// Expects n elements to be the wanted ones, bit for bit, and any NaN for any NaN. f is an export.
template <class AnyExport, Element T>
bool expect_elements(const AnyExport& f, const T* got, const T* want, std::size_t n, NanView nans = NanView::one_value)
{
    return expect_elements(f.name(), element_type<T>(), got, want, n, nans);
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
