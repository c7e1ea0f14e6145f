// Roots on several threads: who works on how many, and that results and statuses are those of one thread.
#include "orvs/arith.h"

#include "tests/arith/roots.h"
#include "tests/arith/threads.h"

#include <gtest/gtest.h>

namespace orvtest {
namespace {

/// Elements that are not negative, if that matters.
template <class T>
std::vector<T> radicands(const char* name)
{
    Random random(seed_of(name, 1));
    std::vector<T> values = inputs<T>(random, longest, Floats::small_integers);
    if constexpr (!Complex<T> && std::numeric_limits<T>::is_signed) {
        for (T& x : values)
            if (x < 0) x = x == std::numeric_limits<T>::min() ? T(1) : static_cast<T>(-x);
    }
    return values;
}

/// visit takes a Work<D>; the calls that are to be had from f, apart or in place.
template <class S, class D, class Visit>
void with_radicands(const Root<S, D>& f, Spread spread, const Visit& visit)
{
    std::vector<S> data = radicands<S>(f.name);
    S saved = {};
    Work<D> work = {f.name, [&](std::size_t first, D* dst, int n) { return f.function(&data[first], dst, n); },
                    {},     {},
                    spread, orvWrnSqrtOfNegative};
    if constexpr (!Complex<S> && std::numeric_limits<S>::is_signed) {
        work.put_notable = [&](std::size_t place) { saved = std::exchange(data[place], S(-1)); };
        work.restore = [&](std::size_t place) { data[place] = saved; };
    }
    visit(work);
}

/// Every operation that is spread, once or at a few scales.
template <class Visit>
void for_each_spread(const Visit& visit)
{
    with_radicands(root(ORV_EXPORT(orvsSqrt_32f)), {4096}, visit);
    with_radicands(root(ORV_EXPORT(orvsSqrt_32f_I)), {4096}, visit);
    with_radicands(root(ORV_EXPORT(orvsSqrt_64f)), {512}, visit);
    with_radicands(root(ORV_EXPORT(orvsSqrt_64f_I)), {512}, visit);
    with_radicands(root(ORV_EXPORT(orvsSqrt_32fc)), {512}, visit);
    with_radicands(root(ORV_EXPORT(orvsSqrt_32fc_I)), {512}, visit);
    with_radicands(root(ORV_EXPORT(orvsSqrt_64fc)), {64}, visit);
    with_radicands(root(ORV_EXPORT(orvsSqrt_64fc_I)), {64}, visit);
    with_radicands(root(ORV_EXPORT(orvsSqrt_8u_Sfs), -2), {2048}, visit);
    with_radicands(root(ORV_EXPORT(orvsSqrt_8u_ISfs), 0), {2048}, visit);
    with_radicands(root(ORV_EXPORT(orvsSqrt_16u_Sfs), -2), {2048}, visit);
    with_radicands(root(ORV_EXPORT(orvsSqrt_16u_ISfs), 0), {2048}, visit);
    with_radicands(root(ORV_EXPORT(orvsSqrt_16s_Sfs), 2), {2048}, visit);
    with_radicands(root(ORV_EXPORT(orvsSqrt_16s_ISfs), 0), {2048}, visit);
    with_radicands(root(ORV_EXPORT(orvsSqrt_16sc_Sfs), -2), {256}, visit);
    with_radicands(root(ORV_EXPORT(orvsSqrt_16sc_ISfs), 0), {256}, visit);
    with_radicands(root(ORV_EXPORT(orvsSqrt_32s16s_Sfs), 1), {1024}, visit);
    with_radicands(root(ORV_EXPORT(orvsSqrt_64s16s_Sfs), 17), {512}, visit);
    with_radicands(root(ORV_EXPORT(orvsSqrt_64s_Sfs), -2), {256}, visit);
    with_radicands(root(ORV_EXPORT(orvsSqrt_64s_ISfs), 0), {256}, visit);
}

TEST(SqrtThreads, teams_of_the_right_size_with_the_results_of_one_thread)
{
    for_each_spread([](const auto& work) { work.check(); });
}

/// Scales at which no root is taken.
TEST(SqrtThreads, plain_loops_use_one_thread)
{
    const auto check = [](const auto& work) { work.check(); };
    constexpr Spread never = {INT_MAX};
    for (const int scale : {-8, 5}) with_radicands(root(ORV_EXPORT(orvsSqrt_8u_Sfs), scale), never, check);
    for (const int scale : {-16, 9}) with_radicands(root(ORV_EXPORT(orvsSqrt_16u_Sfs), scale), never, check);
    for (const int scale : {-15, 9}) with_radicands(root(ORV_EXPORT(orvsSqrt_16s_Sfs), scale), never, check);
    for (const int scale : {-15, 9}) with_radicands(root(ORV_EXPORT(orvsSqrt_16s_ISfs), scale), never, check);
    with_radicands(root(ORV_EXPORT(orvsSqrt_16sc_Sfs), 9), never, check);
    for (const int scale : {-15, 17}) with_radicands(root(ORV_EXPORT(orvsSqrt_32s16s_Sfs), scale), never, check);
    for (const int scale : {-15, 33}) with_radicands(root(ORV_EXPORT(orvsSqrt_64s16s_Sfs), scale), never, check);
    for (const int scale : {-63, 33}) with_radicands(root(ORV_EXPORT(orvsSqrt_64s_Sfs), scale), never, check);
}

/// The last scales on either side at which roots are taken.
TEST(SqrtThreads, kernels_use_threads_up_to_their_last_scale)
{
    const auto check = [](const auto& work) { work.check_threshold(); };
    for (const int scale : {-7, 4}) with_radicands(root(ORV_EXPORT(orvsSqrt_8u_Sfs), scale), {2048}, check);
    for (const int scale : {-15, 8}) with_radicands(root(ORV_EXPORT(orvsSqrt_16u_Sfs), scale), {2048}, check);
    for (const int scale : {-14, 8}) with_radicands(root(ORV_EXPORT(orvsSqrt_16s_Sfs), scale), {2048}, check);
    for (const int scale : {-40, 8}) with_radicands(root(ORV_EXPORT(orvsSqrt_16sc_Sfs), scale), {256}, check);
    for (const int scale : {-14, 16}) with_radicands(root(ORV_EXPORT(orvsSqrt_32s16s_Sfs), scale), {1024}, check);
    for (const int scale : {-14, 32}) with_radicands(root(ORV_EXPORT(orvsSqrt_64s16s_Sfs), scale), {512}, check);
    for (const int scale : {-62, 32}) with_radicands(root(ORV_EXPORT(orvsSqrt_64s_Sfs), scale), {256}, check);
}

TEST(SqrtThreads, the_callers_state_holds_on_all_threads)
{
    for_each_spread([](const auto& work) { work.check_in_states(); });
}

} // namespace
} // namespace orvtest
