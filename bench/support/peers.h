// The libraries that rows compare with.
#ifndef ORV_BENCH_SUPPORT_PEERS_H
#define ORV_BENCH_SUPPORT_PEERS_H

#include <Eigen/Core>
#ifdef ORV_HAVE_OPENBLAS
#include <cblas.h>
#endif
#ifdef ORV_HAVE_VOLK
#include <volk/volk.h>
#endif

#include <complex>
#include <cstddef>
#include <type_traits>

namespace bench {

/// A way to do a row's job: what the table calls it, and a call on the row's arrays.
template <class F>
struct Peer {
    const char* name;
    F call;
};
template <class F>
Peer(const char*, F) -> Peer<F>;

/// VOLK, or nothing where its library was not found for the word size of the program. To compile there as well, f is a
/// lambda with auto parameters: the names in its body are looked up when it is called, which never happens then.
template <class F>
constexpr auto volk([[maybe_unused]] F f)
{
#ifdef ORV_HAVE_VOLK
    return Peer{"volk", f};
#else
    return nullptr;
#endif
}

/// OpenBLAS on one thread, or nothing, in the same way.
template <class F>
constexpr auto openblas([[maybe_unused]] F f)
{
#ifdef ORV_HAVE_OPENBLAS
    return Peer{"openblas", [f](auto... x) {
                    [[maybe_unused]] static const bool one_thread = (openblas_set_num_threads(1), true);
                    f(x...);
                }};
#else
    return nullptr;
#endif
}

/// Complex elements for libraries that have the complex numbers of the standard.
template <class C>
auto standard(C* p)
{
    using Element = std::complex<decltype(C::re)>;
    return reinterpret_cast<std::conditional_t<std::is_const_v<C>, const Element, Element>*>(p);
}
template <class C>
auto standard(C z) requires std::is_class_v<C>
{
    return std::complex{z.re, z.im};
}

/// Eigen's view of a plain array.
template <class T>
auto eigen_array(T* p, int n)
{
    using Array = Eigen::Array<std::remove_const_t<T>, Eigen::Dynamic, 1>;
    return Eigen::Map<std::conditional_t<std::is_const_v<T>, const Array, Array>>(p, n);
}

} // namespace bench

#endif
