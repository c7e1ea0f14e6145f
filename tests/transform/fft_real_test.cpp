// Real transforms against their defining sums, the layouts of their spectra, and that each transform is one function of
// its data, however called.
#include "tests/arith/caller_state.h"
#include "tests/support/compare.h"
#include "tests/transform/real_fft.h"

#include <array>
#include <bit>
#include <thread>

namespace orvtest {
namespace {

constexpr int highest_order = 10; // of those that are compared with the defining sums
constexpr int engine_order = 14;  // beyond the seams of the schedules for lengths up to 2^18

// ---- Forward: signals of real values

template <class T>
struct Signal {
    std::string name;
    std::vector<T> x;
};

template <class T>
std::vector<Signal<T>> signals(int order)
{
    const std::size_t n = std::size_t{1} << order;
    Random random(seed_of("real signals", static_cast<std::uint64_t>(order)));
    std::vector<Signal<T>> all = {{"noise", noise<T>(random, n)}};
    for (const std::size_t k : notable_places(n, 64)) {
        all.push_back({"impulse at " + std::to_string(k), impulse(n, k, T(-0.7))});
        all.push_back({"cosine " + std::to_string(k), real_parts(exponential<T>(order, k))});
        const std::vector<T> sine = imaginary_parts(exponential<T>(order, k));
        const bool vanishes = std::all_of(sine.begin(), sine.end(), [](T value) { return std::abs(value) < T(0.01); });
        if (!vanishes) all.push_back({"sine " + std::to_string(k), sine});
    }
    return all;
}

template <class T>
void expect_defining_sums(int order)
{
    const std::vector<Signal<T>> all = signals<T>(order);
    std::vector<LongSignal> wanted;
    for (const Signal<T>& signal : all) {
        LongSignal spectrum = spectrum_by_definition(widened(signal.x));
        spectrum.resize(spectrum.size() / 2 + 1);
        wanted.push_back(std::move(spectrum));
    }
    for (const int flag : scale_flags) {
        const RealFft<T> transform(Direction::forward, Layout::perm, order, flag);
        const T factor = transform.factor();
        const int roundings = order + (flag == ORV_FFT_SCALE_SQRT);
        for (std::size_t i = 0; i < all.size(); ++i)
            EXPECT_LE(deviation(half_of_perm(transform(all[i].x)), wanted[i], factor).rms(),
                      error_bound_of_one<T>(roundings))
                << transform.text() << ", " << all[i].name;
    }
}

TEST(FftReal, single_precision_is_the_defining_sum)
{
    for (int order = 0; order <= highest_order; ++order) expect_defining_sums<Orv32f>(order);
}
TEST(FftReal, double_precision_is_the_defining_sum)
{
    for (int order = 0; order <= highest_order; ++order) expect_defining_sums<Orv64f>(order);
}

// ---- Inverse: half spectra

template <class T>
struct Spectrum {
    std::string name;
    HalfSpectrum<ComplexOf<T>> half;
};

/// The whole spectrum.
template <class C>
LongSignal symmetric(const HalfSpectrum<C>& half, std::size_t n)
{
    LongSignal whole(n);
    for (std::size_t k = 0; k < half.size() && k < n; ++k) {
        whole[(n - k) % n] = conjugated(widened(half[k]));
        whole[k] = widened(half[k]);
    }
    return whole;
}

/// Some values of a half spectrum are real.
template <class C>
HalfSpectrum<C> with_real_ends(HalfSpectrum<C> half)
{
    half.front().im = 0;
    half.back().im = 0;
    return half;
}

template <class T>
HalfSpectrum<ComplexOf<T>> noise_spectrum(Random& random, int order)
{
    return with_real_ends(complex_noise<T>(random, (std::size_t{1} << order) / 2 + 1));
}

template <class T>
std::vector<Spectrum<T>> spectra(int order)
{
    using C = ComplexOf<T>;
    Random random(seed_of("half spectra", static_cast<std::uint64_t>(order)));
    std::vector<Spectrum<T>> all;
    all.push_back({"noise", noise_spectrum<T>(random, order)});
    const std::size_t size = (std::size_t{1} << order) / 2 + 1;
    for (const std::size_t k : notable_places(size, 64)) {
        all.push_back({"value at " + std::to_string(k), impulse(size, k, C{T(-0.7), 0})});
        if (k > 0 && k + 1 < size)
            all.push_back({"imaginary value at " + std::to_string(k), impulse(size, k, C{0, T(0.8)})});
    }
    return all;
}

template <class T>
void expect_inverse_sums(int order)
{
    const std::size_t n = std::size_t{1} << order;
    const std::vector<Spectrum<T>> all = spectra<T>(order);
    std::vector<LongSignal> wanted;
    for (const Spectrum<T>& spectrum : all) wanted.push_back(inverse_by_definition(symmetric(spectrum.half, n)));
    for (const int flag : scale_flags) {
        const RealFft<T> transform(Direction::inverse, Layout::perm, order, flag);
        const T factor = transform.factor();
        const int roundings = order + (flag == ORV_FFT_SCALE_SQRT);
        for (std::size_t i = 0; i < all.size(); ++i) {
            const std::vector<T> got = transform(packed(Layout::perm, all[i].half, n));
            EXPECT_LE(deviation(got, wanted[i], factor).rms(), error_bound_of_one<T>(roundings))
                << transform.text() << ", " << all[i].name;
        }
    }
}

TEST(FftReal, single_precision_is_the_inverse_sum)
{
    for (int order = 0; order <= highest_order; ++order) expect_inverse_sums<Orv32f>(order);
}
TEST(FftReal, double_precision_is_the_inverse_sum)
{
    for (int order = 0; order <= highest_order; ++order) expect_inverse_sums<Orv64f>(order);
}

// ---- Errors of noise

/// So much noise that its error is an average.
template <class T>
void expect_small_errors_of_noise(int order)
{
    const std::size_t n = std::size_t{1} << order;
    const RealFft<T> forward(Direction::forward, Layout::perm, order, ORV_FFT_SCALE_NONE);
    const RealFft<T> inverse(Direction::inverse, Layout::perm, order, ORV_FFT_SCALE_NONE);
    Random random(seed_of("much real noise", static_cast<std::uint64_t>(order)));
    Deviation there, back;
    for (std::size_t values = 0; values < 4096; values += n) {
        const std::vector<T> x = noise<T>(random, n);
        LongSignal spectrum = spectrum_by_definition(widened(x));
        spectrum.resize(n / 2 + 1);
        there.add(values_of(half_of_perm(forward(x))), spectrum);

        const HalfSpectrum<ComplexOf<T>> half = noise_spectrum<T>(random, order);
        back.add(values_of(inverse(packed(Layout::perm, half, n))), inverse_by_definition(symmetric(half, n)));
    }
    EXPECT_LE(there.rms(), error_bound<T>(order)) << forward.text();
    EXPECT_LE(back.rms(), error_bound<T>(order)) << inverse.text();
}

TEST(FftReal, errors_of_noise_grow_with_the_root_of_the_order)
{
    for (int order = 0; order <= highest_order; ++order) {
        expect_small_errors_of_noise<Orv32f>(order);
        expect_small_errors_of_noise<Orv64f>(order);
    }
}

// ---- Exact results of the lowest orders

template <class T>
void expect_exact(int order, const std::vector<T>& x, const HalfSpectrum<ComplexOf<T>>& half)
{
    const std::size_t n = x.size();
    for (const Layout layout : layouts) {
        const RealFft<T> forward(Direction::forward, layout, order, ORV_FFT_SCALE_INV);
        const RealFft<T> inverse(Direction::inverse, layout, order, ORV_FFT_SCALE_INV);
        expect_elements(real_exports<T>(Direction::forward, layout).apart, forward(x), packed(layout, half, n));
        expect_elements(real_exports<T>(Direction::inverse, layout).apart, inverse(packed(layout, half, n)), x);
    }
}

TEST(FftReal, lowest_orders_are_exact)
{
    const auto expect = []<class T>(T) {
        expect_exact<T>(0, {-3}, {{-3, 0}});
        expect_exact<T>(1, {3, 5}, {{8, 0}, {-2, 0}});
        expect_exact<T>(2, {1, 2, 4, 8}, {{15, 0}, {-3, 6}, {-5, 0}});
    };
    expect(Orv32f());
    expect(Orv64f());
}

TEST(FftReal, layouts_of_four_values)
{
    // The spectrum is 15, -3 + 6i, -5, -3 - 6i.
    const std::vector<Orv64f> x = {1, 2, 4, 8};
    const auto expect = [&](Layout layout, const std::vector<Orv64f>& want) {
        const RealFft<Orv64f> transform(Direction::forward, layout, 2, ORV_FFT_SCALE_NONE);
        expect_elements(real_exports<Orv64f>(Direction::forward, layout).apart, transform(x), want);
    };
    expect(Layout::perm, {15, -5, -3, 6});
    expect(Layout::pack, {15, -3, 6, -5});
    expect(Layout::ccs, {15, 0, -3, 6, -5, 0});
}

// ---- Layouts

template <class T>
std::vector<T> noise_of_order(int order, std::uint64_t number = 0)
{
    Random random(seed_of("real noise", static_cast<std::uint64_t>(order) + 100 * number));
    return noise<T>(random, std::size_t{1} << order);
}

template <class T>
HalfSpectrum<ComplexOf<T>> spectrum_of_order(int order)
{
    Random random(seed_of("half spectrum", static_cast<std::uint64_t>(order)));
    return noise_spectrum<T>(random, order);
}

template <class T>
void expect_layouts(int order)
{
    const std::vector<T> x = noise_of_order<T>(order);
    const std::size_t n = x.size();
    const int flag = ORV_FFT_SCALE_SQRT;
    const auto forward = half_of_perm(RealFft<T>(Direction::forward, Layout::perm, order, flag)(x));
    for (const Layout layout : layouts) {
        const std::vector<T> got = RealFft<T>(Direction::forward, layout, order, flag)(x);
        const auto& f = real_exports<T>(Direction::forward, layout).apart;
        expect_elements(f, got, packed(layout, forward, n)); // the zeros of CCS too
    }

    const HalfSpectrum<ComplexOf<T>> half = spectrum_of_order<T>(order);
    const RealFft<T> of_perm(Direction::inverse, Layout::perm, order, flag);
    const std::vector<T> inverse = of_perm(packed(Layout::perm, half, n));
    for (const Layout layout : {Layout::pack, Layout::ccs}) {
        const std::vector<T> got = RealFft<T>(Direction::inverse, layout, order, flag)(packed(layout, half, n));
        expect_elements(real_exports<T>(Direction::inverse, layout).apart, got, inverse);
    }
}

TEST(FftReal, layouts_hold_the_same_spectrum)
{
    for (int order = 0; order <= engine_order; ++order) {
        expect_layouts<Orv32f>(order);
        expect_layouts<Orv64f>(order);
    }
}

template <class T>
void expect_imaginary_ends_ignored(int order)
{
    const std::size_t n = std::size_t{1} << order;
    const RealFft<T> transform(Direction::inverse, Layout::ccs, order, ORV_FFT_SCALE_INV);
    const auto& f = real_exports<T>(Direction::inverse, Layout::ccs).apart;
    std::vector<T> ccs = packed(Layout::ccs, spectrum_of_order<T>(order), n);
    const std::vector<T> want = transform(ccs);
    for (const T value : {T(1e6), std::numeric_limits<T>::infinity(), std::numeric_limits<T>::quiet_NaN()}) {
        ccs[1] = ccs.back() = value;
        expect_elements(f, transform(ccs), want, NanView::bits);
    }
}

TEST(FftReal, inverse_ignores_imaginary_parts_of_real_values)
{
    for (int order = 0; order <= engine_order; ++order) {
        expect_imaginary_ends_ignored<Orv32f>(order);
        expect_imaginary_ends_ignored<Orv64f>(order);
    }
}

// ---- Scale

/// Data for a transform of this direction and layout.
template <class T>
std::vector<T> data_for(Direction direction, Layout layout, int order)
{
    if (direction == Direction::forward) return noise_of_order<T>(order);
    return packed(layout, spectrum_of_order<T>(order), std::size_t{1} << order);
}

/// Visits transforms of both precisions, with data for them.
template <class Visit>
void for_each_transform_up_to(int highest, int flag, const Visit& visit)
{
    for (int order = 0; order <= highest; ++order)
        for (const Direction direction : directions) {
            const Layout layout = layouts[order % 3];
            visit(RealFft<Orv32f>(direction, layout, order, flag), data_for<Orv32f>(direction, layout, order), order);
            visit(RealFft<Orv64f>(direction, layout, order, flag), data_for<Orv64f>(direction, layout, order), order);
        }
}

TEST(FftReal, scale_by_the_length_is_exact)
{
    for (const Direction direction : directions) {
        const bool forward = direction == Direction::forward;
        const int scaling = forward ? ORV_FFT_SCALE_FWD : ORV_FFT_SCALE_INV;
        const int other = forward ? ORV_FFT_SCALE_INV : ORV_FFT_SCALE_FWD;
        const auto expect = [=]<class T>(const std::vector<T>& x, Layout layout, int order) {
            const auto& f = real_exports<T>(direction, layout).apart;
            const std::vector<T> plain = RealFft<T>(direction, layout, order, ORV_FFT_SCALE_NONE)(x);
            expect_elements(f, RealFft<T>(direction, layout, order, other)(x), plain);
            const T factor = std::ldexp(T(1), -order);
            expect_elements(f, RealFft<T>(direction, layout, order, scaling)(x), scaled(plain, factor));
        };
        for (int order = 0; order <= engine_order; ++order)
            for (const Layout layout : layouts) {
                expect(data_for<Orv32f>(direction, layout, order), layout, order);
                expect(data_for<Orv64f>(direction, layout, order), layout, order);
            }
    }
}

TEST(FftReal, magnitude_does_not_matter)
{
    for_each_transform_up_to(
        engine_order, ORV_FFT_SCALE_NONE, []<class T>(const RealFft<T>& transform, const std::vector<T>& x, int order) {
            const std::vector<T> want = transform(x);
            const int huge = std::numeric_limits<T>::max_exponent - 3 - order;
            const int small = std::numeric_limits<T>::min_exponent + 2 * std::numeric_limits<T>::digits;
            for (const int exponent : {huge, small}) {
                const T factor = std::ldexp(T(1), exponent);
                const std::vector<T> got = transform(scaled(x, factor)), scaled_want = scaled(want, factor);
                EXPECT_EQ(first_difference(element_type<T>(), got.data(), scaled_want.data(), got.size()), got.size())
                    << transform.text() << ", times 2^" << exponent;
            }
        });
}

TEST(FftReal, subnormal_values_are_values)
{
    const auto expect = []<class T>(T least, int order) {
        const RealFft<T> transform(Direction::forward, Layout::ccs, order, ORV_FFT_SCALE_NONE);
        std::vector<T> small(std::size_t{1} << order);
        Random random(small.size());
        long double sum = 0;
        for (T& value : small) {
            value = least * static_cast<T>(random.below(100));
            sum += value;
        }
        EXPECT_EQ(transform(small)[0], static_cast<T>(sum)) << transform.text(); // without products

        if (order == 0) return; // is copied
        const CallerState scope(denormals_are_zero);
        const std::vector<T> zeros = transform(small);
        EXPECT_TRUE(std::all_of(zeros.begin(), zeros.end(), [](T value) { return value == 0; })) << transform.text();
    };
    for (int order = 0; order <= engine_order; ++order) {
        expect(std::numeric_limits<Orv32f>::denorm_min(), order);
        expect(std::numeric_limits<Orv64f>::denorm_min(), order);
    }
}

template <class T>
void expect_round_trips(int order)
{
    const std::vector<T> x = noise_of_order<T>(order);
    for (const int flag : scale_flags)
        for (const Layout layout : layouts) {
            const RealFft<T> forward(Direction::forward, layout, order, flag);
            const RealFft<T> inverse(Direction::inverse, layout, order, flag);
            const long double factor = flag == ORV_FFT_SCALE_NONE ? std::ldexp(1.0L, order) : 1;
            EXPECT_LE(deviation(inverse(forward(x)), widened(x), factor).rms(),
                      error_bound<T>(2 * order + 2) + 2 * factor_bound<T>)
                << forward.text();
        }
}

TEST(FftReal, inverse_undoes_forward)
{
    for (int order = 0; order <= engine_order; ++order) {
        expect_round_trips<Orv32f>(order);
        expect_round_trips<Orv64f>(order);
    }
}

// ---- One function, however called

template <class T>
void expect_one_function(int order, int flag, Places places)
{
    for (const Direction direction : directions)
        for (const Layout layout : layouts) {
            const RealFft<T> transform(direction, layout, order, flag);
            const std::vector<T> x = data_for<T>(direction, layout, order);
            EXPECT_TRUE(transform.is_in_all_ways(x, transform(x), places));
        }
}

TEST(FftReal, same_bits_wherever_arrays_lie)
{
    for (int order = 0; order <= engine_order; ++order)
        for (const int flag : {ORV_FFT_SCALE_SQRT, ORV_FFT_SCALE_NONE}) {
            const Places places = order <= 10 ? Places::all : Places::few;
            expect_one_function<Orv32f>(order, flag, places);
            expect_one_function<Orv64f>(order, flag, places);
        }
}

template <class T>
void expect_any_buffer(int order)
{
    for (const Direction direction : directions)
        for (const Layout layout : layouts) {
            RealFft<T> transform(direction, layout, order, ORV_FFT_SCALE_NONE);
            const std::vector<T> x = data_for<T>(direction, layout, order), want = transform(x);
            transform.place_buffer(after_guard);
            EXPECT_TRUE(transform.is_in_all_ways(x, want, Places::one));
            for (int bytes = 0; bytes < 64; ++bytes) {
                transform.place_buffer(misaligned(bytes));
                ASSERT_TRUE(transform.is_in_all_ways(x, want, Places::one)) << bytes;
            }
        }
}

TEST(FftReal, same_bits_wherever_the_buffer_lies)
{
    for (const int order : {7, 8, 9}) {
        expect_any_buffer<Orv32f>(order);
        expect_any_buffer<Orv64f>(order);
    }
}

// ---- Values that are none

TEST(FftReal, infinities_and_nans_spread_over_the_spectrum)
{
    const auto expect = []<class T>(std::vector<T> x, int order) {
        const RealFft<T> transform(Direction::forward, Layout::perm, order, ORV_FFT_SCALE_SQRT);
        const auto count = [&](T value, const auto& is_spoilt) {
            x[x.size() / 3] = value;
            const auto half = half_of_perm(transform(x));
            return std::count_if(half.begin(), half.end(),
                                 [&](const auto& z) { return is_spoilt(z.re) || is_spoilt(z.im); });
        };
        const auto all = static_cast<std::ptrdiff_t>(x.size() / 2 + 1);
        const auto is_nan = [](T value) { return std::isnan(value); };
        const auto is_infinite_or_nan = [](T value) { return !std::isfinite(value); };
        const T before = x[x.size() / 3];
        EXPECT_EQ(count(std::numeric_limits<T>::quiet_NaN(), is_nan), all) << transform.text();
        EXPECT_EQ(count(-std::numeric_limits<T>::infinity(), is_infinite_or_nan), all) << transform.text();
        EXPECT_EQ(count(before, is_infinite_or_nan), 0) << transform.text();
    };
    for (int order = 0; order <= engine_order; ++order) {
        expect(noise_of_order<Orv32f>(order), order);
        expect(noise_of_order<Orv64f>(order), order);
    }
}

TEST(FftReal, infinities_and_nans_spread_over_the_signal)
{
    const auto expect = []<class T>(T value, int order) {
        const std::size_t n = std::size_t{1} << order;
        for (const Layout layout : layouts) {
            const RealFft<T> transform(Direction::inverse, layout, order, ORV_FFT_SCALE_NONE);
            auto half = spectrum_of_order<T>(order);
            half[half.size() / 3] = {value, value};
            const std::vector<T> got = transform(packed(layout, half, n));
            const auto is_spoilt = [](T x) { return !std::isfinite(x); };
            EXPECT_TRUE(std::all_of(got.begin(), got.end(), is_spoilt)) << transform.text() << ", " << value;
        }
    };
    for (int order = 0; order <= engine_order; ++order) {
        expect(std::numeric_limits<Orv32f>::quiet_NaN(), order);
        expect(std::numeric_limits<Orv32f>::infinity(), order);
        expect(std::numeric_limits<Orv64f>::quiet_NaN(), order);
        expect(std::numeric_limits<Orv64f>::infinity(), order);
    }
}

// ---- The caller's state

TEST(FftReal, rounds_as_the_caller_wants)
{
    for_each_transform_up_to(
        engine_order, ORV_FFT_SCALE_NONE, []<class T>(const RealFft<T>& transform, const std::vector<T>& x, int order) {
            if (order < 3) return; // results may be exact
            const LongSignal want = widened(transform(x));
            for (const unsigned state : {round_up, round_down, round_to_zero}) {
                const auto rounded = [&] {
                    const CallerState scope(state);
                    return transform(x);
                };
                const double difference = deviation(rounded(), want).rms();
                EXPECT_GT(difference, 0) << transform.text();
                EXPECT_LE(difference, order * double{std::numeric_limits<T>::epsilon()}) << transform.text();
            }
        });
}

// ---- Threads

TEST(FftReal, threads_share_a_spec)
{
    const auto expect = []<class T>(const std::vector<T>& x, int order) {
        const OwnSpec<RealSpec<T>> spec(order, ORV_FFT_SCALE_INV);
        const auto forward = real_exports<T>(Direction::forward, Layout::ccs).in_place;
        const auto inverse = real_exports<T>(Direction::inverse, Layout::ccs).in_place;
        const auto there_and_back = [&](std::vector<T>& data, std::vector<Orv8u>& buffer) {
            return forward(data.data(), spec, buffer.data()) == orvOk &&
                   inverse(data.data(), spec, buffer.data()) == orvOk;
        };
        constexpr int trips = 50; // the errors of all of them add up
        std::array<std::vector<T>, 3> data;
        std::array<bool, 3> fine = {};
        const auto travel = [&](std::size_t traveller) {
            std::vector<Orv8u> buffer(spec.buffer_size());
            data[traveller] = x;
            data[traveller].resize(x.size() + 2);
            fine[traveller] = true;
            for (int i = 0; i < trips; ++i)
                fine[traveller] = there_and_back(data[traveller], buffer) && fine[traveller];
        };
        travel(0);
        std::thread first([&] { travel(1); }), second([&] { travel(2); });
        first.join();
        second.join();
        EXPECT_EQ(fine, (std::array<bool, 3>{true, true, true})) << order;
        EXPECT_EQ(data[1], data[0]) << order;
        EXPECT_EQ(data[2], data[0]) << order;
        data[0].resize(x.size());
        EXPECT_LE(deviation(data[0], widened(x)).rms(), trips * error_bound<T>(2 * order)) << order;
    };
    for (const int order : {5, 9, 14}) {
        expect(noise_of_order<Orv32f>(order), order);
        expect(noise_of_order<Orv64f>(order), order);
    }
}

} // namespace
} // namespace orvtest
