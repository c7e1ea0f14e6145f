// Vectors in reverse order; with conjugation, ConjFlip.
#include "orvs/convert.h"

#include "convert/conjugate.h"
#include "convert/reversal.h"
#include "frame/checks.h"
#include "frame/complex.h"

using namespace ORV_VARIANT;

namespace {

constexpr auto as_is = [](auto v) ORV_INLINE_LAMBDA { return v; };

/// Word and unit: an element is unit lanes of Word, whatever it means.
template <class Word, int unit = 1, class T>
ORV_INLINE OrvStatus flip_in_place(T* srcDst, int len)
{
    if (const OrvStatus bad = check(len, srcDst)) return bad;
    reverse_in_place<unit>(reinterpret_cast<Word*>(srcDst), std::ptrdiff_t(len) * unit, as_is);
    return orvOk;
}
template <class Word, int unit = 1, class T>
ORV_INLINE OrvStatus flip(const T* src, T* dst, int len)
{
    if (src == dst) return flip_in_place<Word, unit>(dst, len);
    if (const OrvStatus bad = check(len, src, dst)) return bad;
    reverse_to<unit>(reinterpret_cast<const Word*>(src), reinterpret_cast<Word*>(dst), std::ptrdiff_t(len) * unit,
                     as_is);
    return orvOk;
}

template <class C>
ORV_INLINE OrvStatus conj_flip(const C* src, C* dst, int len)
{
    if (const OrvStatus bad = check(len, src, dst)) return bad;
    const auto op = [](auto z) ORV_INLINE_LAMBDA { return conjugate(z); };
    const std::ptrdiff_t n = 2 * std::ptrdiff_t(len);
    if (src == dst) reverse_in_place<2>(parts(dst), n, op);
    else reverse_to<2>(parts(src), parts(dst), n, op);
    return orvOk;
}

} // namespace

// ---- Flip

OrvStatus orvsFlip_8u(const Orv8u* src, Orv8u* dst, int len) { return flip<Orv8u>(src, dst, len); }
OrvStatus orvsFlip_8u_I(Orv8u* srcDst, int len) { return flip_in_place<Orv8u>(srcDst, len); }
OrvStatus orvsFlip_16u(const Orv16u* src, Orv16u* dst, int len) { return flip<Orv16u>(src, dst, len); }
OrvStatus orvsFlip_16u_I(Orv16u* srcDst, int len) { return flip_in_place<Orv16u>(srcDst, len); }
OrvStatus orvsFlip_32f(const Orv32f* src, Orv32f* dst, int len) { return flip<Orv32u>(src, dst, len); }
OrvStatus orvsFlip_32f_I(Orv32f* srcDst, int len) { return flip_in_place<Orv32u>(srcDst, len); }
OrvStatus orvsFlip_32fc(const Orv32fc* src, Orv32fc* dst, int len) { return flip<Orv64u>(src, dst, len); }
OrvStatus orvsFlip_32fc_I(Orv32fc* srcDst, int len) { return flip_in_place<Orv64u>(srcDst, len); }
OrvStatus orvsFlip_64f(const Orv64f* src, Orv64f* dst, int len) { return flip<Orv64u>(src, dst, len); }
OrvStatus orvsFlip_64f_I(Orv64f* srcDst, int len) { return flip_in_place<Orv64u>(srcDst, len); }
OrvStatus orvsFlip_64fc(const Orv64fc* src, Orv64fc* dst, int len) { return flip<Orv64u, 2>(src, dst, len); }
OrvStatus orvsFlip_64fc_I(Orv64fc* srcDst, int len) { return flip_in_place<Orv64u, 2>(srcDst, len); }

// ---- ConjFlip

OrvStatus orvsConjFlip_16sc(const Orv16sc* src, Orv16sc* dst, int len) { return conj_flip(src, dst, len); }
OrvStatus orvsConjFlip_32fc(const Orv32fc* src, Orv32fc* dst, int len) { return conj_flip(src, dst, len); }
OrvStatus orvsConjFlip_64fc(const Orv64fc* src, Orv64fc* dst, int len) { return conj_flip(src, dst, len); }
