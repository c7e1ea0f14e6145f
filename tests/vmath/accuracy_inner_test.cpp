// Each kernel keeps the error that its level promises, at a sample of all arguments, and special values are right. The
// program `accuracy` measures at all of them.
#include "kernels.h"

#include "tests/support/digest.h"

#include <gtest/gtest.h>

namespace orvtest {
namespace {

/// The subject, whose results go into the digests besides: both variants compute the same bits.
template <class T>
Subject<T> digested(Subject<T> subject)
{
    std::string name = "vmath " + subject.name + " " + subject.level;
    std::replace(name.begin(), name.end(), ' ', '_');
    subject.compute = [name, compute = subject.compute](const T* x, const T* y, T* dst, int n) {
        compute(x, y, dst, n);
        look_at(name, dst, static_cast<std::size_t>(n));
    };
    return subject;
}

template <class T>
void check_kernels()
{
    for (const Subject<T>& subject : vmath_kernels<T>()) {
        const auto report = measure(digested(subject), Arguments<T>(subject.function, Extent::sample));
        EXPECT_LE(report.worst.error, subject.bound)
            << subject.name << " " << subject.level << ": " << text(report.worst, subject.function.arity);
        EXPECT_LT(report.reference_error, 0.01) << subject.name << ": the reference is not to be trusted";
    }
}

TEST(Accuracy, single_precision) { check_kernels<float>(); }
TEST(Accuracy, double_precision) { check_kernels<double>(); }

} // namespace
} // namespace orvtest
