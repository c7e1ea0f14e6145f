// The order of argument checks of exports whose signatures are not known at compile time.
#pragma once

#include "tests/fir/forms.h"
#include "tests/support/checks.h"

#include <climits>
#include <initializer_list>

namespace orvtest {

/// is_pointer tells the arguments, others has the values of those that are none. Arguments behind the last one of the
/// export are ignored.
class FirChecks : public AnyArgumentChecks {
public:
    FirChecks(const AnyExport& f, std::initializer_list<bool> is_pointer, std::initializer_list<AnyArgument> others)
        : AnyArgumentChecks(f.name(), f.callee(), is_pointer, others)
    {}

    /// A pointer for the valid call, instead of an array of arbitrary bytes.
    FirChecks& pointer(std::size_t index, const void* value)
    {
        set_pointer(index, AnyArgument::of(value));
        return *this;
    }
    FirChecks& null(std::initializer_list<std::size_t> indices)
    {
        for (const std::size_t index : indices)
            bad(index, AnyArgument::of<const void*>(nullptr), "null", orvErrNullPointer);
        return *this;
    }
    /// Lengths below 1.
    FirChecks& lengths(std::size_t index, OrvStatus status)
    {
        for (const int n : {0, -1, INT_MIN}) bad(index, AnyArgument::of(n), std::to_string(n), status);
        return *this;
    }
    FirChecks& bad(std::size_t index, const AnyArgument& value, const std::string& text, OrvStatus status)
    {
        add(index, value, text, status);
        return *this;
    }
};

} // namespace orvtest
