// The tables of levels, and who takes a kernel from them.
#include "vmath/vmath.h"

constexpr orv_skernel own_orvs_sSin_S9_ttab[] = {own_orvs_sSin_S9LAynn, own_orvs_sSin_S9HAynn, own_orvs_sSin_S9EPnnn};
constexpr orv_skernel own_orvs_sCos_S9_ttab[] = {own_orvs_sCos_S9LAynn, own_orvs_sCos_S9HAynn, own_orvs_sCos_S9EPnnn};
constexpr orv_skernel own_orvs_sExp_S9_ttab[] = {own_orvs_sExp_S9LAynn, own_orvs_sExp_S9HAynn, own_orvs_sExp_S9EPnnn};
constexpr orv_skernel own_orvs_sLn_S9_ttab[] = {own_orvs_sLn_S9LAynn, own_orvs_sLn_S9HAynn, own_orvs_sLn_S9EPnnn};
constexpr orv_dkernel own_orvs_dSin_S9_ttab[] = {own_orvs_dSin_S9LAynn, own_orvs_dSin_S9HAynn, own_orvs_dSin_S9EPnnn};
constexpr orv_dkernel own_orvs_dCos_S9_ttab[] = {own_orvs_dCos_S9LAynn, own_orvs_dCos_S9HAynn, own_orvs_dCos_S9EPnnn};
constexpr orv_dkernel own_orvs_dExp_S9_ttab[] = {own_orvs_dExp_S9LAynn, own_orvs_dExp_S9HAynn, own_orvs_dExp_S9EPnnn};
constexpr orv_dkernel own_orvs_dLn_S9_ttab[] = {own_orvs_dLn_S9LAynn, own_orvs_dLn_S9HAynn, own_orvs_dLn_S9EPnnn};

int orvsSin_32f_A24(const Orv32f* src, Orv32f* dst, int len) { return own_orvs_sSin_S9_ttab[1](src, dst, len); }
int orvsCos_32f_A24(const Orv32f* src, Orv32f* dst, int len) { return own_orvs_sCos_S9_ttab[1](src, dst, len); }
int orvsSin_64f_A53(const Orv64f* src, Orv64f* dst, int len) { return own_orvs_dSin_S9_ttab[1](src, dst, len); }
int orvsCos_64f_A53(const Orv64f* src, Orv64f* dst, int len) { return own_orvs_dCos_S9_ttab[1](src, dst, len); }
int orvsExp_32f_A21(const Orv32f* src, Orv32f* dst, int len) { return own_orvs_sExp_S9_ttab[0](src, dst, len); }
int orvsLn_32f_A21(const Orv32f* src, Orv32f* dst, int len) { return own_orvs_sLn_S9_ttab[0](src, dst, len); }
int orvsExp_64f_A52(const Orv64f* src, Orv64f* dst, int len) { return own_orvs_dExp_S9_ttab[0](src, dst, len); }
int orvsLn_64f_A53(const Orv64f* src, Orv64f* dst, int len) { return own_orvs_dLn_S9_ttab[1](src, dst, len); }
