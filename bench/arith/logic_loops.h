// Plain loops as peers of logic and shifts.
#ifndef ORV_BENCH_ARITH_LOGIC_LOOPS_H
#define ORV_BENCH_ARITH_LOGIC_LOOPS_H

namespace loops {

// T is Orv8u, Orv16s, Orv32s or Orv32u.

template <class T>
void bit_and(const T* src1, const T* src2, T* dst, int n);
template <class T>
void bit_xor_with(const T* src, T value, T* dst, int n);
template <class T>
void bit_not(const T* src, T* dst, int n);
template <class T>
void shift_left(const T* src, int count, T* dst, int n);
template <class T>
void shift_right(const T* src, int count, T* dst, int n);

} // namespace loops

#endif
