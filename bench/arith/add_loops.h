// Plain loops as peers of Add, Sub, AddC and AddProduct: what a program has without a library, compiled for the same
// processor.
#ifndef ORV_BENCH_ARITH_ADD_LOOPS_H
#define ORV_BENCH_ARITH_ADD_LOOPS_H

namespace loops {

// T is Orv8u, Orv16s, Orv32s, Orv32f or Orv64f; the forms without scale saturate integers.

template <class T>
void add(const T* src1, const T* src2, T* dst, int n);
template <class T>
void sub(const T* src1, const T* src2, T* dst, int n);
template <class T>
void addc(const T* src, T value, T* dst, int n);

// T is Orv8u, Orv16s or Orv32s, scale at least 1: rounded to nearest, ties to even, and saturated.

template <class T>
void add_scaled(const T* src1, const T* src2, T* dst, int n, int scale);
template <class T>
void sub_scaled(const T* src1, const T* src2, T* dst, int n, int scale);
template <class T>
void addc_scaled(const T* src, T value, T* dst, int n, int scale);

// T is Orv32f or Orv64f.

template <class T>
void addproduct(const T* src1, const T* src2, T* srcDst, int n);

} // namespace loops

#endif
