// Complex transforms against their defining sums, and that each of them is one function of its data, however called.
#include "tests/arith/caller_state.h"
#include "tests/support/compare.h"
#include "tests/transform/complex_fft.h"

#include <array>
#include <bit>
#include <thread>

namespace orvtest {
namespace {

constexpr int highest_order = 10; // of those that are compared with the defining sums
constexpr int engine_order = 13;  // beyond the seams of the schedules for lengths up to 2^18

template <class T>
struct Signal {
    std::string name;
    std::vector<ComplexOf<T>> x;
};

template <class T>
std::vector<Signal<T>> signals(int order)
{
    const std::size_t n = std::size_t{1} << order;
    Random random(seed_of("signals", static_cast<std::uint64_t>(order)));
    std::vector<Signal<T>> all = {{"noise", complex_noise<T>(random, n)}};
    for (const std::size_t k : notable_places(n, 64)) {
        all.push_back({"impulse at " + std::to_string(k), impulse(n, k, ComplexOf<T>{1, 0})});
        all.push_back({"imaginary impulse at " + std::to_string(k), impulse(n, k, ComplexOf<T>{0, T(-0.7)})});
        all.push_back({"exponential " + std::to_string(k), exponential<T>(order, k)});
    }
    return all;
}

LongSignal defining_sums(Direction direction, const LongSignal& x)
{
    return direction == Direction::forward ? spectrum_by_definition(x) : inverse_by_definition(x);
}

template <class T>
void expect_defining_sums(int order)
{
    const std::vector<Signal<T>> all = signals<T>(order);
    for (const Direction direction : directions) {
        std::vector<LongSignal> wanted;
        for (const Signal<T>& signal : all) wanted.push_back(defining_sums(direction, widened(signal.x)));
        for (const int flag : scale_flags) {
            const ComplexFft<T> transform(direction, order, flag);
            const T factor = transform.factor();
            const int roundings = order + (flag == ORV_FFT_SCALE_SQRT);
            for (std::size_t i = 0; i < all.size(); ++i)
                EXPECT_LE(deviation(transform(all[i].x), wanted[i], factor).rms(), error_bound_of_one<T>(roundings))
                    << transform.text() << ", " << all[i].name;
        }
    }
}

TEST(FftComplex, single_precision_is_the_defining_sum)
{
    for (int order = 0; order <= highest_order; ++order) expect_defining_sums<Orv32f>(order);
}
TEST(FftComplex, double_precision_is_the_defining_sum)
{
    for (int order = 0; order <= highest_order; ++order) expect_defining_sums<Orv64f>(order);
}

/// So much noise that its error is an average.
template <class T>
void expect_small_errors_of_noise(int order)
{
    const std::size_t n = std::size_t{1} << order;
    for (const Direction direction : directions) {
        const ComplexFft<T> transform(direction, order, ORV_FFT_SCALE_NONE);
        Random random(seed_of("much noise", static_cast<std::uint64_t>(order)));
        Deviation of;
        for (std::size_t values = 0; values < 4096; values += n) {
            const std::vector<ComplexOf<T>> x = complex_noise<T>(random, n), got = transform(x);
            of.add(values_of(got), defining_sums(direction, widened(x)));
        }
        EXPECT_LE(of.rms(), error_bound<T>(order)) << transform.text();
    }
}

TEST(FftComplex, errors_of_noise_grow_with_the_root_of_the_order)
{
    for (int order = 0; order <= highest_order; ++order) {
        expect_small_errors_of_noise<Orv32f>(order);
        expect_small_errors_of_noise<Orv64f>(order);
    }
}

template <class T>
std::vector<ComplexOf<T>> noise_of_order(int order, std::uint64_t number = 0)
{
    Random random(seed_of("noise", static_cast<std::uint64_t>(order) + 100 * number));
    return complex_noise<T>(random, std::size_t{1} << order);
}

/// Visits transforms of both precisions, by direction and order.
template <class Visit>
void for_each_transform_up_to(int order, int flag, const Visit& visit)
{
    for (int n = 0; n <= order; ++n)
        for (const Direction direction : directions) {
            visit(ComplexFft<Orv32f>(direction, n, flag), noise_of_order<Orv32f>(n));
            visit(ComplexFft<Orv64f>(direction, n, flag), noise_of_order<Orv64f>(n));
        }
}

// ---- Integers of a few bits have exact transforms of the lowest orders

TEST(FftComplex, lowest_orders_are_exact)
{
    const auto expect = []<class C>(const C&) {
        using T = decltype(C::re);
        const auto expect_values = [](Direction direction, int order, std::vector<C> x, const std::vector<C>& want) {
            const ComplexFft<T> transform(direction, order, ORV_FFT_SCALE_NONE);
            expect_elements(complex_exports<T>(direction).apart, transform(x), want);
            for (C& value : x) value = {value.im, value.re}; // turns i around
            std::vector<C> turned = want;
            for (C& value : turned) value = {value.im, value.re};
            const bool forward = direction == Direction::forward;
            const Direction other = forward ? Direction::inverse : Direction::forward;
            const ComplexFft<T> back(other, order, ORV_FFT_SCALE_NONE);
            expect_elements(complex_exports<T>(other).apart, back(x), turned);
        };
        for (const Direction direction : directions) {
            expect_values(direction, 0, {{3, -5}}, {{3, -5}});
            expect_values(direction, 1, {{3, -5}, {7, 11}}, {{10, 6}, {-4, -16}});
        }
        expect_values(Direction::forward, 2, {{1, 2}, {3, 5}, {8, 13}, {21, 34}},
                      {{33, 54}, {-36, 7}, {-15, -24}, {22, -29}});
    };
    expect(Orv32fc{});
    expect(Orv64fc{});
}

// ---- Scale

TEST(FftComplex, scale_by_the_length_is_exact)
{
    for (const Direction direction : directions) {
        const bool forward = direction == Direction::forward;
        const int scaling = forward ? ORV_FFT_SCALE_FWD : ORV_FFT_SCALE_INV;
        const int other = forward ? ORV_FFT_SCALE_INV : ORV_FFT_SCALE_FWD;
        const auto expect = [=]<class C>(const std::vector<C>& x, int order) {
            using T = decltype(C::re);
            const auto& f = complex_exports<T>(direction).apart;
            const std::vector<C> plain = ComplexFft<T>(direction, order, ORV_FFT_SCALE_NONE)(x);
            expect_elements(f, ComplexFft<T>(direction, order, other)(x), plain);
            expect_elements(f, ComplexFft<T>(direction, order, scaling)(x), scaled(plain, std::ldexp(T(1), -order)));
        };
        for (int order = 0; order <= engine_order; ++order) {
            expect(noise_of_order<Orv32f>(order), order);
            expect(noise_of_order<Orv64f>(order), order);
        }
    }
}

TEST(FftComplex, magnitude_does_not_matter)
{
    for_each_transform_up_to(
        engine_order, ORV_FFT_SCALE_NONE,
        []<class T, class C>(const ComplexFft<T>& transform, const std::vector<C>& x) {
            const std::vector<C> want = transform(x);
            const int order = std::countr_zero(x.size());
            const int huge = std::numeric_limits<T>::max_exponent - 2 - order;
            const int small = std::numeric_limits<T>::min_exponent + 2 * std::numeric_limits<T>::digits;
            for (const int exponent : {huge, small}) {
                const T factor = std::ldexp(T(1), exponent);
                const std::vector<C> got = transform(scaled(x, factor)), scaled_want = scaled(want, factor);
                EXPECT_EQ(first_difference(element_type<C>(), got.data(), scaled_want.data(), got.size()), got.size())
                    << transform.text() << ", times 2^" << exponent;
            }
        });
}

TEST(FftComplex, subnormal_values_are_values)
{
    for_each_transform_up_to(engine_order, ORV_FFT_SCALE_NONE,
                             []<class T, class C>(const ComplexFft<T>& transform, const std::vector<C>& x) {
                                 const T least = std::numeric_limits<T>::denorm_min();
                                 std::vector<C> small(x.size());
                                 Random random(x.size());
                                 for (C& value : small)
                                     value = {least * static_cast<T>(random.below(100)), least * T(50)};
                                 const std::vector<C> got = transform(small);
                                 long double re = 0;
                                 for (const C& value : small) re += value.re;
                                 const auto n = static_cast<long double>(x.size());
                                 EXPECT_EQ(got[0].re, static_cast<T>(re)) << transform.text(); // a sum without products
                                 EXPECT_EQ(got[0].im, static_cast<T>(50 * n * least)) << transform.text();

                                 if (x.size() == 1) return; // is copied
                                 const CallerState scope(denormals_are_zero);
                                 const std::vector<C> zeros = transform(small);
                                 EXPECT_TRUE(std::all_of(zeros.begin(), zeros.end(), [](const C& z) {
                                     return z.re == 0 && z.im == 0;
                                 })) << transform.text();
                             });
}

TEST(FftComplex, inverse_undoes_forward)
{
    for (int order = 0; order <= engine_order; ++order)
        for (const int flag : scale_flags) {
            const auto expect = [&]<class C>(const std::vector<C>& x) {
                using T = decltype(C::re);
                const ComplexFft<T> forward(Direction::forward, order, flag), inverse(Direction::inverse, order, flag);
                const long double factor = flag == ORV_FFT_SCALE_NONE ? std::ldexp(1.0L, order) : 1;
                const double bound = error_bound<T>(2 * order + 2) + 2 * factor_bound<T>;
                EXPECT_LE(deviation(inverse(forward(x)), widened(x), factor).rms(), bound) << forward.text();
            };
            expect(noise_of_order<Orv32f>(order));
            expect(noise_of_order<Orv64f>(order));
        }
}

// ---- One function, however called

template <class T>
void expect_one_function(int order, int flag, Places places)
{
    for (const Direction direction : directions) {
        const ComplexFft<T> transform(direction, order, flag);
        const std::vector<ComplexOf<T>> x = noise_of_order<T>(order, 1);
        EXPECT_TRUE(transform.is_in_all_ways(x, transform(x), places));
    }
}

TEST(FftComplex, same_bits_wherever_arrays_lie)
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
    const std::vector<ComplexOf<T>> x = noise_of_order<T>(order, 2);
    for (const Direction direction : directions) {
        ComplexFft<T> transform(direction, order, ORV_FFT_SCALE_NONE);
        const std::vector<ComplexOf<T>> want = transform(x);
        transform.place_buffers(after_guard);
        EXPECT_TRUE(transform.is_in_all_ways(x, want, Places::one));
        for (int bytes = 0; bytes < 64; ++bytes) {
            transform.place_buffers(misaligned(bytes));
            ASSERT_TRUE(transform.is_in_all_ways(x, want, Places::one)) << bytes;
        }
    }
}

TEST(FftComplex, same_bits_wherever_the_buffer_lies)
{
    for (const int order : {6, 7, 8}) {
        expect_any_buffer<Orv32f>(order);
        expect_any_buffer<Orv64f>(order);
    }
}

// ---- Values that are none

template <class C>
bool has_nan(const C& z)
{
    return std::isnan(z.re) || std::isnan(z.im);
}
template <class C>
bool is_finite(const C& z)
{
    return std::isfinite(z.re) && std::isfinite(z.im);
}

TEST(FftComplex, infinities_and_nans_spread)
{
    for_each_transform_up_to(
        engine_order, ORV_FFT_SCALE_SQRT, []<class T, class C>(const ComplexFft<T>& transform, std::vector<C> x) {
            const std::size_t place = x.size() / 3;
            const C before = x[place];
            x[place].re = std::numeric_limits<T>::quiet_NaN();
            const std::vector<C> nans = transform(x);
            EXPECT_TRUE(std::all_of(nans.begin(), nans.end(), has_nan<C>)) << transform.text();

            x[place] = {before.re, -std::numeric_limits<T>::infinity()};
            const std::vector<C> infinities = transform(x);
            EXPECT_TRUE(std::none_of(infinities.begin(), infinities.end(), is_finite<C>)) << transform.text();

            x[place] = before;
            const std::vector<C> values = transform(x);
            EXPECT_TRUE(std::all_of(values.begin(), values.end(), is_finite<C>)) << transform.text();
        });
}

// ---- The caller's state

TEST(FftComplex, rounds_as_the_caller_wants)
{
    for_each_transform_up_to(engine_order, ORV_FFT_SCALE_NONE,
                             []<class T, class C>(const ComplexFft<T>& transform, const std::vector<C>& x) {
                                 const int order = std::countr_zero(x.size());
                                 if (order < 3) return; // results may be exact
                                 const LongSignal want = widened(transform(x));
                                 for (const unsigned state : {round_up, round_down, round_to_zero}) {
                                     const auto rounded = [&] {
                                         const CallerState scope(state);
                                         return transform(x);
                                     };
                                     const double difference = deviation(rounded(), want).rms();
                                     EXPECT_GT(difference, 0) << transform.text();
                                     EXPECT_LE(difference, order * double{std::numeric_limits<T>::epsilon()})
                                         << transform.text();
                                 }
                             });
}

// ---- Threads

TEST(FftComplex, threads_share_a_spec)
{
    const auto expect = []<class C>(const std::vector<C>& x, int order) {
        using T = decltype(C::re);
        const OwnSpec<ComplexSpec<T>> spec(order, ORV_FFT_SCALE_INV);
        const auto forward = complex_exports<T>(Direction::forward).apart;
        const auto inverse = complex_exports<T>(Direction::inverse).apart;
        const auto both = [&](std::vector<Orv8u>& buffer) {
            std::vector<C> there(x.size()), back(x.size());
            bool fine = forward(x.data(), there.data(), spec, buffer.data()) == orvOk;
            fine = fine && inverse(there.data(), back.data(), spec, buffer.data()) == orvOk;
            there.insert(there.end(), back.begin(), back.end());
            return fine ? there : std::vector<C>();
        };
        std::vector<Orv8u> own(spec.buffer_size());
        const std::vector<C> want = both(own);
        EXPECT_EQ(want.size(), 2 * x.size());

        std::array<int, 2> wrong = {};
        std::vector<std::thread> threads;
        for (int& count : wrong)
            threads.emplace_back([&] {
                std::vector<Orv8u> buffer(spec.buffer_size());
                for (int i = 0; i < 50; ++i) {
                    const std::vector<C> got = both(buffer);
                    count += got.size() != want.size() ||
                             first_difference(element_type<C>(), got.data(), want.data(), want.size()) != want.size();
                }
            });
        for (std::thread& thread : threads) thread.join();
        EXPECT_EQ(wrong, (std::array<int, 2>{})) << order;
    };
    for (const int order : {5, 9, 13}) {
        expect(noise_of_order<Orv32f>(order), order);
        expect(noise_of_order<Orv64f>(order), order);
    }
}

} // namespace
} // namespace orvtest
