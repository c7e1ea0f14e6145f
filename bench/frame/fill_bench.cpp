// Copy, Move, Zero and Set, from the first-level cache to sizes that no cache holds.
#include <algorithm>
#include <cstring>

#include "bench/frame/fill_loops.h"
#include "bench/support/peers.h"
#include "bench/support/row.h"
#include "orvs/frame.h"

namespace {

using bench::Row;

constexpr int KB = 1 << 10, MB = 1 << 20;

template <class Build>
void fill_rows(const char* kind, Build build)
{
    bench::rows("move", kind, {1 * KB, 16 * KB, 256 * KB, 1 * MB, 16 * MB, 64 * MB, 256 * MB}, build,
                bench::Unit::bytes);
}

const bench::Rows fill{[] {
    fill_rows("copy", [](Row& row, int n) {
        const auto* src = row.array<Orv8u>(n);
        auto* dst = row.array<Orv8u>(n);
        row.limit({src}, dst, std::size_t(n));
        row.ours([=] { return orvsCopy_8u(src, dst, n); });
        row.peer("memcpy", [=] { std::memcpy(dst, src, std::size_t(n)); });
        row.peer("eigen", [=] { bench::eigen_array(dst, n) = bench::eigen_array(src, n); });
        row.peer("loop", [=] { loops::copy(src, dst, n); });
    });
    fill_rows("move", [](Row& row, int n) {
        const auto* src = row.array<Orv8u>(n);
        auto* dst = row.array<Orv8u>(n);
        row.limit({src}, dst, std::size_t(n));
        row.ours([=] { return orvsMove_8u(src, dst, n); });
        row.peer("memmove", [=] { std::memmove(dst, src, std::size_t(n)); });
    });
    // As in a delay line that shifts its history up: the copy has to begin at the end.
    fill_rows("move_up", [](Row& row, int n) {
        constexpr int up = 64;
        auto* line = row.array<Orv8u>(n + up);
        row.limit({line}, line, std::size_t(n));
        row.ours([=] { return orvsMove_8u(line, line + up, n); });
        row.peer("memmove", [=] { std::memmove(line + up, line, std::size_t(n)); });
    });
    fill_rows("zero", [](Row& row, int n) {
        auto* dst = row.array<Orv8u>(n);
        row.limit({}, dst, std::size_t(n));
        row.ours([=] { return orvsZero_8u(dst, n); });
        row.peer("memset", [=] { std::memset(dst, 0, std::size_t(n)); });
        row.peer("eigen", [=] { bench::eigen_array(dst, n).setZero(); });
        row.peer("loop", [=] { loops::zero(dst, n); });
    });
    fill_rows("set32f", [](Row& row, int n) {
        const int floats = n / int(sizeof(Orv32f));
        auto* dst = row.array<Orv32f>(floats);
        row.limit({}, dst, std::size_t(n));
        row.ours([=] { return orvsSet_32f(0.5f, dst, floats); });
        row.peer("std", [=] { std::fill_n(dst, floats, 0.5f); });
        row.peer("eigen", [=] { bench::eigen_array(dst, floats).setConstant(0.5f); });
        row.peer("loop", [=] { loops::set(0.5f, dst, floats); });
    });
}};

} // namespace
