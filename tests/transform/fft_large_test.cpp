// Transforms of long signals: of noise, against a transform in extended precision, and of still longer signals whose
// spectrum is known.
//
// With the environment variable ORV_LARGE set, the orders go up to the highest ones, as far as there is memory.
#include "tests/support/compare.h"
#include "tests/transform/complex_fft.h"
#include "tests/transform/known.h"
#include "tests/transform/real_fft.h"

#include <cstdlib>
#include <functional>
#include <string_view>
#include <unistd.h>

namespace orvtest {
namespace {

// ---- Noise

/// Noise and its spectrum, for all types: a signal is the real part of it, or all.
struct Noise {
    std::vector<Orv64fc> x;
    LongSignal spectrum;

    explicit Noise(int order) : x(std::size_t{1} << order)
    {
        Random random(seed_of("long noise", static_cast<std::uint64_t>(order)));
        for (Orv64fc& value : x) {
            value.re = noise_value<Orv64f>(random, coarse_bits);
            value.im = noise_value<Orv64f>(random, coarse_bits);
        }
        spectrum = orvtest::spectrum(widened(x));
    }

    template <class T>
    std::vector<ComplexOf<T>> complex() const
    {
        std::vector<ComplexOf<T>> values;
        for (const Orv64fc& value : x) values.push_back({static_cast<T>(value.re), static_cast<T>(value.im)});
        return values;
    }
    template <class T>
    std::vector<T> real() const
    {
        std::vector<T> values;
        for (const Orv64fc& value : x) values.push_back(static_cast<T>(value.re));
        return values;
    }
    /// The half spectrum of the real part.
    LongSignal half_spectrum() const
    {
        const std::size_t n = spectrum.size();
        LongSignal half;
        for (std::size_t k = 0; k <= n / 2; ++k)
            half.push_back(0.5L * (spectrum[k] + conjugated(spectrum[(n - k) % n])));
        return half;
    }
};

/// The largest error of noise, as a multiple of their root mean square: larger ones are not met by chance.
constexpr double worst_per_rms = 8;
/// From this order on, arrays are at one place for each way of calling.
constexpr int slow_order = 18;

template <class T>
void expect_close(const Deviation& of, int roundings, const std::string& text)
{
    EXPECT_LE(of.rms(), error_bound<T>(roundings)) << text;
    EXPECT_LE(of.worst(), worst_per_rms * error_bound<T>(roundings)) << text;
}

template <class T>
void expect_complex(const Noise& noise, int order)
{
    using C = ComplexOf<T>;
    const std::vector<C> x = noise.complex<T>();
    const ComplexFft<T> forward(Direction::forward, order, ORV_FFT_SCALE_INV);
    const ComplexFft<T> inverse(Direction::inverse, order, ORV_FFT_SCALE_INV);
    const std::vector<C> there = forward(x), back = inverse(there);
    expect_close<T>(deviation(there, noise.spectrum), order, forward.text());
    expect_close<T>(deviation(back, widened(x)), 2 * order, inverse.text());
    const Places places = order < slow_order ? Places::few : Places::one;
    EXPECT_TRUE(forward.is_in_all_ways(x, there, places));
    EXPECT_TRUE(inverse.is_in_all_ways(there, back, places));

    const auto& f = complex_exports<T>(Direction::forward).apart;
    const ComplexFft<T> by_length(Direction::forward, order, ORV_FFT_SCALE_FWD);
    expect_elements(f, by_length(x), scaled(there, std::ldexp(T(1), -order)));
    const ComplexFft<T> by_root(Direction::forward, order, ORV_FFT_SCALE_SQRT);
    expect_close<T>(deviation(by_root(x), noise.spectrum, by_root.factor()), order + 1, by_root.text());
}

template <class T>
void expect_real(const Noise& noise, int order)
{
    const std::vector<T> x = noise.real<T>();
    const RealFft<T> forward(Direction::forward, Layout::perm, order, ORV_FFT_SCALE_INV);
    const RealFft<T> inverse(Direction::inverse, Layout::perm, order, ORV_FFT_SCALE_INV);
    const std::vector<T> there = forward(x), back = inverse(there);
    const auto half = half_of_perm(there);
    const LongSignal wanted = noise.half_spectrum();
    expect_close<T>(deviation(half, wanted), order, forward.text());
    expect_close<T>(deviation(back, widened(x)), 2 * order, inverse.text());
    const Places places = order < slow_order ? Places::few : Places::one;
    for (const Layout layout : layouts) {
        const RealFft<T> to(Direction::forward, layout, order, ORV_FFT_SCALE_INV);
        const RealFft<T> from(Direction::inverse, layout, order, ORV_FFT_SCALE_INV);
        EXPECT_TRUE(to.is_in_all_ways(x, packed(layout, half, x.size()), places));
        EXPECT_TRUE(from.is_in_all_ways(packed(layout, half, x.size()), back, places));
    }

    const auto& f = real_exports<T>(Direction::forward, Layout::perm).apart;
    const RealFft<T> by_length(Direction::forward, Layout::perm, order, ORV_FFT_SCALE_FWD);
    expect_elements(f, by_length(x), scaled(there, std::ldexp(T(1), -order)));
    const RealFft<T> by_root(Direction::forward, Layout::perm, order, ORV_FFT_SCALE_SQRT);
    expect_close<T>(deviation(half_of_perm(by_root(x)), wanted, by_root.factor()), order + 1, by_root.text());
}

TEST(FftNoise, complex)
{
    for (int order = 11; order <= 19; ++order) {
        const Noise noise(order);
        expect_complex<Orv32f>(noise, order);
        expect_complex<Orv64f>(noise, order);
    }
}
TEST(FftNoise, real)
{
    for (int order = 11; order <= 20; ++order) {
        const Noise noise(order);
        expect_real<Orv32f>(noise, order);
        expect_real<Orv64f>(noise, order);
    }
}

// ---- Known spectra

/// Arrays of a transform, whose data lie in them by its form.
template <class T>
using Arrays = std::vector<std::vector<T>>;

/// Transforms of complex elements. The forms have what they share by name.
template <class T>
struct Interleaved {
    using Spec = ComplexSpec<T>;
    using C = ComplexOf<T>;
    static constexpr bool is_real = false;

    static Arrays<T> arrays(std::size_t n) { return {std::vector<T>(2 * n)}; }
    static const char* name(Direction direction) { return complex_exports<T>(direction).apart.name(); }

    static OrvStatus apart(Direction direction, const Arrays<T>& x, Arrays<T>& y, const Spec* spec)
    {
        const auto* src = reinterpret_cast<const C*>(x[0].data());
        return complex_exports<T>(direction).apart(src, reinterpret_cast<C*>(y[0].data()), spec, nullptr);
    }
    static OrvStatus in_place(Direction direction, Arrays<T>& x, const Spec* spec)
    {
        return complex_exports<T>(direction).in_place(reinterpret_cast<C*>(x[0].data()), spec, nullptr);
    }

    static Values<T> signal(const Arrays<T>& x) { return {x[0].data(), x[0].data() + 1, 2}; }
    static void write(const Known& known, Arrays<T>& x) { known.write(x[0].data(), x[0].data() + 1, 2); }
    static double error_of_spectrum(const Known& known, const Arrays<T>& x)
    {
        return known.error_of_spectrum(signal(x));
    }
};

/// Transforms of real and imaginary parts in two arrays.
template <class T>
struct Split {
    using Spec = SplitSpec<T>;
    static constexpr bool is_real = false;

    static Arrays<T> arrays(std::size_t n) { return {std::vector<T>(n), std::vector<T>(n)}; }
    static const char* name(Direction direction) { return complex_exports<T>(direction).split.name(); }

    static OrvStatus apart(Direction direction, const Arrays<T>& x, Arrays<T>& y, const Spec* spec)
    {
        return complex_exports<T>(direction).split(x[0].data(), x[1].data(), y[0].data(), y[1].data(), spec, nullptr);
    }
    static OrvStatus in_place(Direction direction, Arrays<T>& x, const Spec* spec)
    {
        return complex_exports<T>(direction).split_in_place(x[0].data(), x[1].data(), spec, nullptr);
    }

    static Values<T> signal(const Arrays<T>& x) { return {x[0].data(), x[1].data(), 1}; }
    static void write(const Known& known, Arrays<T>& x) { known.write(x[0].data(), x[1].data(), 1); }
    static double error_of_spectrum(const Known& known, const Arrays<T>& x)
    {
        return known.error_of_spectrum(signal(x));
    }
};

/// Transforms of real values, whose spectrum is in Perm.
template <class T>
struct Perm {
    using Spec = RealSpec<T>;
    static constexpr bool is_real = true;

    static Arrays<T> arrays(std::size_t n) { return {std::vector<T>(n)}; }
    static const char* name(Direction direction) { return real_exports<T>(direction, Layout::perm).apart.name(); }

    static OrvStatus apart(Direction direction, const Arrays<T>& x, Arrays<T>& y, const Spec* spec)
    {
        return real_exports<T>(direction, Layout::perm).apart(x[0].data(), y[0].data(), spec, nullptr);
    }
    static OrvStatus in_place(Direction direction, Arrays<T>& x, const Spec* spec)
    {
        return real_exports<T>(direction, Layout::perm).in_place(x[0].data(), spec, nullptr);
    }

    static Values<T> signal(const Arrays<T>& x) { return {x[0].data(), nullptr, 1}; }
    static void write(const Known& known, Arrays<T>& x) { known.write<T>(x[0].data(), nullptr, 1); }
    static double error_of_spectrum(const Known& known, const Arrays<T>& x) { return known.error_of_perm(x[0].data()); }
};

template <class T>
bool same_bits(const Arrays<T>& a, const Arrays<T>& b)
{
    for (std::size_t i = 0; i < a.size(); ++i)
        if (std::memcmp(a[i].data(), b[i].data(), a[i].size() * sizeof(T)) != 0) return false;
    return true;
}

/// A number that tells whether arrays have changed.
template <class T>
std::size_t hash_of(const Arrays<T>& arrays)
{
    std::size_t hash = 0;
    for (const std::vector<T>& part : arrays) {
        const std::string_view bytes(reinterpret_cast<const char*>(part.data()), part.size() * sizeof(T));
        hash = 3 * hash + std::hash<std::string_view>()(bytes);
    }
    return hash;
}

/// Are results noted? Those of the highest orders are not: not every variant has memory for them.
enum class Notes { yes, no };

template <template <class> class Form, class T>
void expect_known(int order, Notes notes = Notes::yes)
{
    const Known known(order, Form<T>::is_real);
    const OwnSpec<typename Form<T>::Spec> spec(order, ORV_FFT_SCALE_INV);
    const std::string text = std::string(Form<T>::name(Direction::forward)) + ", order " + std::to_string(order);
    const auto error_of_signal = [&](const Arrays<T>& x) { return known.error_of_signal(Form<T>::signal(x)); };
    const auto error_of_spectrum = [&](const Arrays<T>& x) { return Form<T>::error_of_spectrum(known, x); };

    // Two arrays have to do: there are orders at which three would not fit.
    Arrays<T> a = Form<T>::arrays(known.size()), b = a;
    Form<T>::write(known, a);
    std::size_t hash = hash_of(a);
    EXPECT_EQ(Form<T>::apart(Direction::forward, a, b, spec), orvOk) << text;
    EXPECT_EQ(hash_of(a), hash) << text << " has changed its source";
    EXPECT_LE(error_of_spectrum(b), error_bound<T>(order)) << text;
    if (notes == Notes::yes)
        for (const std::vector<T>& part : b) look_at(Form<T>::name(Direction::forward), part.data(), part.size());
    EXPECT_EQ(Form<T>::in_place(Direction::forward, a, spec), orvOk) << text;
    EXPECT_TRUE(same_bits(a, b)) << text << ", in place";

    hash = hash_of(b);
    EXPECT_EQ(Form<T>::apart(Direction::inverse, b, a, spec), orvOk) << text;
    EXPECT_EQ(hash_of(b), hash) << text << ": its inverse has changed its source";
    EXPECT_LE(error_of_signal(a), error_bound<T>(2 * order)) << text << ", inverse";
    EXPECT_EQ(Form<T>::in_place(Direction::inverse, b, spec), orvOk) << text;
    EXPECT_TRUE(same_bits(a, b)) << text << ", inverse, in place";
}

TEST(FftKnown, is_transformed)
{
    for (int order = 20; order <= 23; ++order) {
        expect_known<Interleaved, Orv32f>(order);
        expect_known<Split, Orv32f>(order);
        expect_known<Perm, Orv32f>(order + 1);
    }
    for (int order = 20; order <= 22; ++order) {
        expect_known<Interleaved, Orv64f>(order);
        expect_known<Split, Orv64f>(order);
        expect_known<Perm, Orv64f>(order + 1);
    }
}

/// Makes the check if there is memory for two arrays and a spec of at most their size together.
template <template <class> class Form, class T>
void expect_known_if_it_fits(int order)
{
    const std::uint64_t array = (Form<T>::is_real ? sizeof(T) : 2 * sizeof(T)) * (std::uint64_t{1} << order);
    const std::uint64_t available = sizeof(void*) == 4 ? std::uint64_t{3} << 30
                                                       : static_cast<std::uint64_t>(sysconf(_SC_AVPHYS_PAGES)) *
                                                             static_cast<std::uint64_t>(sysconf(_SC_PAGESIZE));
    if (4 * array <= available) expect_known<Form, T>(order, Notes::no);
    else std::printf("%s of order %d is left out: no memory\n", Form<T>::name(Direction::forward), order);
}

TEST(FftKnown, highest_orders)
{
    if (!std::getenv("ORV_LARGE")) GTEST_SKIP() << "takes minutes and gigabytes; set ORV_LARGE to run it";
    for (int order = 23; order <= 28; ++order) {
        expect_known_if_it_fits<Interleaved, Orv32f>(order);
        expect_known_if_it_fits<Split, Orv32f>(order);
        expect_known_if_it_fits<Perm, Orv32f>(order + 1);
    }
    for (int order = 23; order <= 27; ++order) {
        expect_known_if_it_fits<Interleaved, Orv64f>(order);
        expect_known_if_it_fits<Split, Orv64f>(order);
        expect_known_if_it_fits<Perm, Orv64f>(order + 1);
    }
}

} // namespace
} // namespace orvtest
