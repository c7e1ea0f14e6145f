// Logic and shifts.
#include "bench/arith/logic_loops.h"
#include "bench/support/shapes.h"
#include "orvs/arith.h"

namespace {

using bench::call, bench::one_source, bench::Peer, bench::source_and_value, bench::two_sources, bench::volk;

bench::Kind logic(const char* name) { return {"logic", name}; }

constexpr Peer loop_and{"loop", [](auto... x) { loops::bit_and(x...); }};
constexpr Peer loop_xor_with{"loop", [](auto... x) { loops::bit_xor_with(x...); }};
constexpr Peer loop_not{"loop", [](auto... x) { loops::bit_not(x...); }};
constexpr auto volk_and_32u = volk([](auto src1, auto src2, auto dst, auto n) {
    volk_32i_x2_and_32i(reinterpret_cast<Orv32s*>(dst), reinterpret_cast<const Orv32s*>(src1),
                        reinterpret_cast<const Orv32s*>(src2), unsigned(n));
});

const bench::Rows bitwise{[] {
    two_sources<Orv8u>(logic("and8u"), call<orvsAnd_8u>, loop_and);
    two_sources<Orv32u>(logic("and32u"), call<orvsAnd_32u>, volk_and_32u, loop_and);
    source_and_value<Orv16u>(logic("xorc16u"), call<orvsXorC_16u>, loop_xor_with);
    one_source<Orv8u>(logic("not8u"), call<orvsNot_8u>, loop_not);
}};

constexpr int count = 3;

template <auto f>
constexpr auto shift = [](auto src, auto dst, int n) { return f(src, count, dst, n); };
constexpr Peer loop_left{"loop", [](auto src, auto dst, int n) { loops::shift_left(src, count, dst, n); }};
constexpr Peer loop_right{"loop", [](auto src, auto dst, int n) { loops::shift_right(src, count, dst, n); }};

const bench::Rows shifts{[] {
    one_source<Orv8u>(logic("lshiftc8u"), shift<orvsLShiftC_8u>, loop_left);
    one_source<Orv32s>(logic("lshiftc32s"), shift<orvsLShiftC_32s>, loop_left);
    one_source<Orv8u>(logic("rshiftc8u"), shift<orvsRShiftC_8u>, loop_right);
    one_source<Orv16s>(logic("rshiftc16s"), shift<orvsRShiftC_16s>, loop_right);
}};

} // namespace
