// The number of threads that the library may use.
#pragma once

#include "orvs/core.h"

#include <gtest/gtest.h>

namespace orvtest {

/// While it lives, the library may use so many threads.
class Threads {
public:
    explicit Threads(int count) : before_(orvGetNumThreads()) { EXPECT_EQ(orvSetNumThreads(count), orvOk); }
    ~Threads() { orvSetNumThreads(before_); }
    Threads(const Threads&) = delete;
    Threads& operator=(const Threads&) = delete;

private:
    int before_;
};

} // namespace orvtest
