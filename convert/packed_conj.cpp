// The packed spectrum of a real signal, expanded to all of its elements.
//
// Of the len elements X[0] .. X[len - 1], the packed layouts hold those up to len / 2; the others mirror them:
// X[len - k] = conj(X[k]). X[0] is real, and so is X[len / 2] for even len. In every layout X[k] stands as re, im for
// 0 < k < len / 2; the layouts differ in where the parts of the real elements are.
#include "orvs/convert.h"

#include "frame/checks.h"
#include "frame/complex.h"
#include "frame/fill.h"

using namespace ORV_VARIANT;

namespace {

// Exported functions by type.
ORV_INLINE void conj_flip(const Orv16sc* src, Orv16sc* dst, int len) { orvsConjFlip_16sc(src, dst, len); }
ORV_INLINE void conj_flip(const Orv32fc* src, Orv32fc* dst, int len) { orvsConjFlip_32fc(src, dst, len); }
ORV_INLINE void conj_flip(const Orv64fc* src, Orv64fc* dst, int len) { orvsConjFlip_64fc(src, dst, len); }

template <class C>
ORV_INLINE void put_real(C* z, part_of<C> re)
{
    put_element(z, C{re, 0});
}

/// count elements whose parts begin at src, which may overlap them.
template <class C>
ORV_INLINE void move_elements(const part_of<C>* src, C* dst, int count)
{
    if (count == 0 || src == parts(dst)) return;
    ownsMove_8u(reinterpret_cast<const Orv8u*>(src), reinterpret_cast<Orv8u*>(dst), std::size_t(count) * sizeof(C));
}

/// How many elements have a mirror image behind the middle.
ORV_INLINE int paired(int len) { return (len - 1) / 2; }

template <class C>
ORV_INLINE void mirror(C* dst, int len)
{
    if (paired(len) > 0) conj_flip(dst + 1, dst + (len - paired(len)), paired(len));
}

/// re[0], then the pairs; for even len, re[len / 2] comes last.
template <class C>
ORV_INLINE OrvStatus from_pack(const C* src, C* dst, int len)
{
    if (const OrvStatus bad = check(len, src, dst)) return bad;
    const auto* packed = parts(src);
    const auto first = element_at(packed),
               last = element_at(packed + (len - 1)); // in place, the pairs move up over the last
    move_elements(packed + 1, dst + 1, paired(len));
    mirror(dst, len);
    put_real(dst, first);
    if (len % 2 == 0) put_real(dst + len / 2, last);
    return orvOk;
}

/// For even len re[0], re[len / 2], then the pairs; for odd len as Pack.
template <class C>
ORV_INLINE OrvStatus from_perm(const C* src, C* dst, int len)
{
    if (const OrvStatus bad = check(len, src, dst)) return bad;
    if (len % 2 != 0) return from_pack(src, dst, len);
    const auto* packed = parts(src);
    const auto first = element_at(packed), middle = element_at(packed + 1);
    move_elements(packed + 2, dst + 1, paired(len));
    mirror(dst, len);
    put_real(dst, first);
    put_real(dst + len / 2, middle);
    return orvOk;
}

/// Elements 0 .. len / 2 as they are.
template <class C>
ORV_INLINE OrvStatus from_ccs(const C* src, C* dst, int len)
{
    if (const OrvStatus bad = check(len, src, dst)) return bad;
    move_elements(parts(src), dst, len / 2 + 1);
    mirror(dst, len);
    return orvOk;
}

} // namespace

// ---- ConjPack

OrvStatus orvsConjPack_16sc(const Orv16sc* src, Orv16sc* dst, int len) { return from_pack(src, dst, len); }
OrvStatus orvsConjPack_16sc_I(Orv16sc* srcDst, int len) { return from_pack(srcDst, srcDst, len); }
OrvStatus orvsConjPack_32fc(const Orv32fc* src, Orv32fc* dst, int len) { return from_pack(src, dst, len); }
OrvStatus orvsConjPack_32fc_I(Orv32fc* srcDst, int len) { return from_pack(srcDst, srcDst, len); }
OrvStatus orvsConjPack_64fc(const Orv64fc* src, Orv64fc* dst, int len) { return from_pack(src, dst, len); }
OrvStatus orvsConjPack_64fc_I(Orv64fc* srcDst, int len) { return from_pack(srcDst, srcDst, len); }

// ---- ConjPerm

OrvStatus orvsConjPerm_16sc(const Orv16sc* src, Orv16sc* dst, int len) { return from_perm(src, dst, len); }
OrvStatus orvsConjPerm_16sc_I(Orv16sc* srcDst, int len) { return from_perm(srcDst, srcDst, len); }
OrvStatus orvsConjPerm_32fc(const Orv32fc* src, Orv32fc* dst, int len) { return from_perm(src, dst, len); }
OrvStatus orvsConjPerm_32fc_I(Orv32fc* srcDst, int len) { return from_perm(srcDst, srcDst, len); }
OrvStatus orvsConjPerm_64fc(const Orv64fc* src, Orv64fc* dst, int len) { return from_perm(src, dst, len); }
OrvStatus orvsConjPerm_64fc_I(Orv64fc* srcDst, int len) { return from_perm(srcDst, srcDst, len); }

// ---- ConjCcs

OrvStatus orvsConjCcs_16sc(const Orv16sc* src, Orv16sc* dst, int len) { return from_ccs(src, dst, len); }
OrvStatus orvsConjCcs_16sc_I(Orv16sc* srcDst, int len) { return from_ccs(srcDst, srcDst, len); }
OrvStatus orvsConjCcs_32fc(const Orv32fc* src, Orv32fc* dst, int len) { return from_ccs(src, dst, len); }
OrvStatus orvsConjCcs_32fc_I(Orv32fc* srcDst, int len) { return from_ccs(srcDst, srcDst, len); }
OrvStatus orvsConjCcs_64fc(const Orv64fc* src, Orv64fc* dst, int len) { return from_ccs(src, dst, len); }
OrvStatus orvsConjCcs_64fc_I(Orv64fc* srcDst, int len) { return from_ccs(srcDst, srcDst, len); }
