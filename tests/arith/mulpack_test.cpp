// Products of packed spectra. The oracle multiplies value by value, as the formats are defined.
#include "tests/arith/products.h"

#include "orvs/arith.h"

namespace orvtest {
namespace {

enum class Format { pack, perm };

/// A real value, or the two parts of a complex one, by their places.
struct Value {
    std::size_t re, im;
    bool is_real;
};

/// The values of a spectrum of n elements.
std::vector<Value> values_of(Format format, std::size_t n)
{
    std::vector<Value> values = {{0, 0, true}};
    if (n % 2 == 0) {
        const std::size_t last = format == Format::pack ? n - 1 : 1;
        values.push_back({last, last, true});
    }
    const std::size_t first = format == Format::perm && n % 2 == 0 ? 2 : 1;
    for (std::size_t k = 0; k < (n - 1) / 2; ++k) values.push_back({first + 2 * k, first + 2 * k + 1, false});
    return values;
}

template <class T>
struct ComplexOf;
template <>
struct ComplexOf<Orv16s> {
    using type = Orv16sc;
};
template <>
struct ComplexOf<Orv32f> {
    using type = Orv32fc;
};
template <>
struct ComplexOf<Orv64f> {
    using type = Orv64fc;
};

/// One product for all of a spectrum: real(a, b) and complex(a, b) of single values.
template <class T, class Real, class Complex>
std::vector<T> product_of(Format format, const std::vector<T>& a, const std::vector<T>& b, Real real, Complex complex)
{
    using C = typename ComplexOf<T>::type;
    std::vector<T> result(a.size());
    for (const Value& v : values_of(format, a.size())) {
        if (v.is_real) {
            result[v.re] = real(a[v.re], b[v.re]);
        } else {
            const C z = complex(C{a[v.re], a[v.im]}, C{b[v.re], b[v.im]});
            result[v.re] = z.re;
            result[v.im] = z.im;
        }
    }
    return result;
}

/// A form with two sources: f(src1, src2, dst, n). wanted(a, b) has the destination as its first factor in place.
template <class T, class Call, class Oracle>
bool sweep_sources(const char* name, const std::string& parameters, Call f, Oracle wanted, const SweepOptions& options)
{
    for (const int length : options.lengths) {
        const auto n = static_cast<std::size_t>(length);
        Random random(seed_of(name + parameters, n));
        const std::vector<T> a = inputs<T>(random, n), b = inputs<T>(random, n), d = inputs<T>(random, n);
        const auto call = [&](std::span<std::byte* const> p) {
            return f(reinterpret_cast<const T*>(p[0]), reinterpret_cast<const T*>(p[1]), reinterpret_cast<T*>(p[2]),
                     length);
        };
        const auto check = [&](std::optional<std::size_t> in_place_of, const std::vector<T>& before,
                               const std::vector<T>& after) {
            constexpr ElementType type = element_type<T>();
            PlacedCall placed = {};
            placed.name = name;
            placed.parameters = parameters;
            placed.length = length;
            placed.arrays = {{type, false, bytes_of(a), bytes_of(a)},
                             {type, false, bytes_of(b), bytes_of(b)},
                             {type, true, bytes_of(before), bytes_of(after)}};
            placed.in_place_of = in_place_of;
            placed.call = call;
            return check_placements(placed, options);
        };
        if (!check(std::nullopt, d, wanted(a, b)) || !check(0, a, wanted(a, b)) || !check(1, b, wanted(b, a)))
            return false;
    }
    return true;
}

/// A form in place: f(src, srcDst, n), srcDst the first factor.
template <class T, class Call, class Oracle>
bool sweep_in_place(const char* name, const std::string& parameters, Call f, Oracle wanted, const SweepOptions& options)
{
    for (const int length : options.lengths) {
        const auto n = static_cast<std::size_t>(length);
        Random random(seed_of(name + parameters, n));
        const std::vector<T> src = inputs<T>(random, n), dst = inputs<T>(random, n);
        constexpr ElementType type = element_type<T>();
        const auto check = [&](std::optional<std::size_t> in_place_of, const std::vector<T>& before) {
            PlacedCall placed = {};
            placed.name = name;
            placed.parameters = parameters;
            placed.length = length;
            placed.arrays = {{type, false, bytes_of(src), bytes_of(src)},
                             {type, true, bytes_of(before), bytes_of(wanted(before, src))}};
            placed.in_place_of = in_place_of;
            placed.call = [&](std::span<std::byte* const> p) {
                return f(reinterpret_cast<const T*>(p[0]), reinterpret_cast<T*>(p[1]), length);
            };
            return check_placements(placed, options);
        };
        if (!check(std::nullopt, dst) || !check(0, src)) return false; // a square too
    }
    return true;
}

// ---- Floats

template <class T>
void check_floats(Format format, const Export<OrvStatus, const T*, const T*, T*, int>& f,
                  const Export<OrvStatus, const T*, T*, int>& in_place)
{
    const auto wanted = [=](const std::vector<T>& a, const std::vector<T>& b) {
        return product_of(format, a, b, product, product);
    };
    EXPECT_TRUE(sweep_sources<T>(f.name(), "", f, wanted, family_lengths()));
    EXPECT_TRUE(sweep_in_place<T>(in_place.name(), "", in_place, wanted, family_lengths()));
    expect_pointers_before_length(f, 4);
    expect_pointers_before_length(in_place, 4);
}

TEST(MulPack, floats)
{
    check_floats(Format::pack, ORV_EXPORT(orvsMulPack_32f), ORV_EXPORT(orvsMulPack_32f_I));
    check_floats(Format::pack, ORV_EXPORT(orvsMulPack_64f), ORV_EXPORT(orvsMulPack_64f_I));
}
TEST(MulPerm, floats)
{
    check_floats(Format::perm, ORV_EXPORT(orvsMulPerm_32f), ORV_EXPORT(orvsMulPerm_32f_I));
    check_floats(Format::perm, ORV_EXPORT(orvsMulPerm_64f), ORV_EXPORT(orvsMulPerm_64f_I));
}

/// a * conj(b), the second product of each part rounded first.
struct ConjugateProduct {
    template <class C>
    C operator()(const C& a, const C& b) const
    {
        return {std::fma(a.re, b.re, kept(a.im * b.im)), std::fma(a.im, b.re, -kept(a.re * b.im))};
    }
    template <std::floating_point T>
    static T kept(T x)
    {
        asm volatile("" : "+x"(x));
        return x;
    }
};

template <class T>
void check_conjugate(const Export<OrvStatus, const T*, T*, int>& f)
{
    const auto wanted = [](const std::vector<T>& a, const std::vector<T>& b) {
        return product_of(Format::pack, a, b, product, ConjugateProduct{});
    };
    EXPECT_TRUE(sweep_in_place<T>(f.name(), "", f, wanted, family_lengths()));
    expect_pointers_before_length(f, 4);
}

TEST(MulPackConj, floats)
{
    check_conjugate(ORV_EXPORT(orvsMulPackConj_32f_I));
    check_conjugate(ORV_EXPORT(orvsMulPackConj_64f_I));
}

// ---- Integers

void check_integers(Format format, const Export<OrvStatus, const Orv16s*, const Orv16s*, Orv16s*, int, int>& f,
                    const Export<OrvStatus, const Orv16s*, Orv16s*, int, int>& in_place)
{
    const int reach = product_reach(sizeof(Orv16s));
    for (const int scale : scales(reach)) {
        const auto wanted = [&](const std::vector<Orv16s>& a, const std::vector<Orv16s>& b) {
            return product_of(format, a, b, ScaledOracle<Orv16s, Product>{product, scale},
                              ScaledOracle<Orv16sc, Product>{product, scale});
        };
        const SweepOptions options = options_at_scale(family_lengths(), scale, reach);
        const std::string parameters = ", scale " + std::to_string(scale);
        ASSERT_TRUE(sweep_sources<Orv16s>(
            f.name(), parameters, [&](auto... x) { return f(x..., scale); }, wanted, options));
        ASSERT_TRUE(sweep_in_place<Orv16s>(
            in_place.name(), parameters, [&](auto... x) { return in_place(x..., scale); }, wanted, options));
    }
    expect_pointers_before_length(f, 4, 0);
    expect_pointers_before_length(in_place, 4, 0);
}

TEST(MulPack, integers)
{
    check_integers(Format::pack, ORV_EXPORT(orvsMulPack_16s_Sfs), ORV_EXPORT(orvsMulPack_16s_ISfs));
}
TEST(MulPerm, integers)
{
    check_integers(Format::perm, ORV_EXPORT(orvsMulPerm_16s_Sfs), ORV_EXPORT(orvsMulPerm_16s_ISfs));
}

TEST(MulPack, one_element_is_a_plain_product)
{
    const Orv32f a = 3, b = -2.5f;
    Orv32f d[] = {77, 78};
    EXPECT_EQ(orvsMulPack_32f(&a, &b, d, 1), orvOk);
    EXPECT_EQ(d[0], -7.5f);
    EXPECT_EQ(d[1], 78);
}

} // namespace
} // namespace orvtest
