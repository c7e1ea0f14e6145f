// Real and imaginary parts.
#include "tests/arith/large.h"
#include "tests/convert/arrays.h"
#include "tests/support/checks.h"
#include "tests/support/elementwise.h"

#include "orvs/convert.h"

namespace orvtest {
namespace {

const SweepOptions bitwise = {.lengths = lengths_around({96, 127, 256, 1000}), .nans = NanView::bits};

constexpr auto real_part = [](const auto& z) -> const auto& { return z.re; };
constexpr auto imag_part = [](const auto& z) -> const auto& { return z.im; };

TEST(Real, values)
{
    EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsReal_16sc), real_part, bitwise));
    EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsReal_32fc), real_part, bitwise));
    EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsReal_64fc), real_part, bitwise));
}
TEST(Imag, values)
{
    EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsImag_16sc), imag_part, bitwise));
    EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsImag_32fc), imag_part, bitwise));
    EXPECT_TRUE(sweep_elements(ORV_EXPORT(orvsImag_64fc), imag_part, bitwise));
}
TEST(RealAndImag, of_large_arrays)
{
    EXPECT_TRUE(check_large(ORV_EXPORT(orvsReal_16sc).with(), real_part));
    EXPECT_TRUE(check_large(ORV_EXPORT(orvsReal_32fc).with(), real_part));
    EXPECT_TRUE(check_large(ORV_EXPORT(orvsReal_64fc).with(), real_part));
    EXPECT_TRUE(check_large(ORV_EXPORT(orvsImag_16sc).with(), imag_part));
    EXPECT_TRUE(check_large(ORV_EXPORT(orvsImag_32fc).with(), imag_part));
    EXPECT_TRUE(check_large(ORV_EXPORT(orvsImag_64fc).with(), imag_part));
}

/// Elements as bytes, so that no value passes through a register that could change it.
template <class C, class T>
std::vector<C> complex_of(const std::vector<T>& re, const std::vector<T>& im)
{
    std::vector<C> z(re.size());
    for (std::size_t i = 0; i < z.size(); ++i) {
        std::memcpy(&z[i].re, &re[i], sizeof(T));
        std::memcpy(&z[i].im, &im[i], sizeof(T));
    }
    return z;
}

template <class C, class T>
void expect_both_parts(const Export<OrvStatus, const C*, T*, T*, int>& f, int length, bool everywhere)
{
    Random random(seed_of(f.name(), static_cast<std::uint64_t>(length)));
    const auto n = static_cast<std::size_t>(length);
    const std::vector<T> re = inputs<T>(random, n), im = inputs<T>(random, n);
    ArrayCalls calls(f, std::to_string(length), {source(complex_of<C>(re, im)), result(re), result(im)},
                     [=](auto p) { return f(in<C>(p[0]), out<T>(p[1]), out<T>(p[2]), length); });
    if (everywhere) calls.at_many_places(17);
    else
        EXPECT_TRUE(calls.at(before_guard) && calls.at(misaligned(0)) &&
                    calls.at({misaligned(3), misaligned(32), misaligned(16)}));
}

TEST(CplxToReal, values)
{
    const auto check = []<class C, class T>(const Export<OrvStatus, const C*, T*, T*, int>& f) {
        for (const int n : layout_lengths()) expect_both_parts(f, n, true);
        expect_both_parts(f, length_beyond_caches<C>(), false);
    };
    check(ORV_EXPORT(orvsCplxToReal_16sc));
    check(ORV_EXPORT(orvsCplxToReal_32fc));
    check(ORV_EXPORT(orvsCplxToReal_64fc));
}

template <class C, class T>
void expect_complex(const Export<OrvStatus, const T*, const T*, C*, int>& f)
{
    const auto both = [](const T& re, const T& im) {
        C z;
        std::memcpy(&z.re, &re, sizeof re);
        std::memcpy(&z.im, &im, sizeof im);
        return z;
    };
    const auto from_real = f.as([](auto g, const T* re, C* dst, int len) { return g(re, nullptr, dst, len); }, "no im");
    const auto from_imag = f.as([](auto g, const T* im, C* dst, int len) { return g(nullptr, im, dst, len); }, "no re");
    const auto real_only = [=](const T& re) { return both(re, T{0}); };
    const auto imag_only = [=](const T& im) { return both(T{0}, im); };
    EXPECT_TRUE(sweep_elements(f, both, bitwise));
    EXPECT_TRUE(sweep_elements(from_real, real_only, bitwise));
    EXPECT_TRUE(sweep_elements(from_imag, imag_only, bitwise));
    EXPECT_TRUE(check_large(f.with(), both));
    EXPECT_TRUE(check_large(from_imag, imag_only));
}

TEST(RealToCplx, values)
{
    expect_complex(ORV_EXPORT(orvsRealToCplx_16s));
    expect_complex(ORV_EXPORT(orvsRealToCplx_32f));
    expect_complex(ORV_EXPORT(orvsRealToCplx_64f));
}

// ---- Checks

TEST(Parts, checks)
{
    const auto all = [](const auto&... f) { (ArgumentChecks(f, 4).null_pointers().bad_lengths().run(), ...); };
    all(ORV_EXPORT(orvsReal_16sc), ORV_EXPORT(orvsReal_32fc), ORV_EXPORT(orvsReal_64fc));
    all(ORV_EXPORT(orvsImag_16sc), ORV_EXPORT(orvsImag_32fc), ORV_EXPORT(orvsImag_64fc));
    all(ORV_EXPORT(orvsCplxToReal_16sc), ORV_EXPORT(orvsCplxToReal_32fc), ORV_EXPORT(orvsCplxToReal_64fc));
}

/// The destination, then the length, then the sources, one of which has to be there.
template <class C, class T>
void expect_checks(const Export<OrvStatus, const T*, const T*, C*, int>& f)
{
    const std::vector<T> src(4, T{3});
    const std::vector<C> before(4, C{T{7}, T{8}});
    std::vector<C> dst = before;
    const T* const some = src.data();
    for (const int len : {4, 0, -1}) {
        expect_value(f, Orv32s{f(some, some, nullptr, len)}, orvErrNullPointer);
        expect_value(f, Orv32s{f(nullptr, nullptr, nullptr, len)}, orvErrNullPointer);
    }
    for (const int len : {0, -1, INT_MIN})
        for (const T* re : {some, static_cast<const T*>(nullptr)})
            for (const T* im : {some, static_cast<const T*>(nullptr)})
                expect_value(f, Orv32s{f(re, im, dst.data(), len)}, orvErrBadLength);
    expect_value(f, Orv32s{f(nullptr, nullptr, dst.data(), 4)}, orvErrNullPointer);
    expect_elements(f, dst, before);
}

TEST(RealToCplx, checks)
{
    expect_checks(ORV_EXPORT(orvsRealToCplx_16s));
    expect_checks(ORV_EXPORT(orvsRealToCplx_32f));
    expect_checks(ORV_EXPORT(orvsRealToCplx_64f));
}

} // namespace
} // namespace orvtest
