// The oracle of conjugates.
#pragma once

#include "tests/support/elements.h"

#include <cstring>

namespace orvtest {

/// Integers saturate; of a float the sign bit changes, and it stays what it is otherwise.
struct Conjugate {
    template <Complex C>
    C operator()(const C& z) const
    {
        using T = decltype(C::re);
        C conjugated;
        std::memcpy(&conjugated, &z, sizeof z);
        if constexpr (std::floating_point<T>) {
            unsigned char* const last_byte = reinterpret_cast<unsigned char*>(&conjugated) + sizeof z - 1;
            *last_byte ^= 0x80; // little-endian
        } else {
            conjugated.im = static_cast<T>(z.im == -32768 ? 32767 : -z.im);
        }
        return conjugated;
    }
};
constexpr Conjugate conjugate;

} // namespace orvtest
