// Aligned memory from the core library.
#include "orvs/frame.h"

#include "orvs/core.h"

/// The size is computed in 32 bits and wraps, as the interface has it: the core library takes a 32-bit size.
template <class T>
static T* allocate(int len)
{
    if (len < 1) return nullptr;
    return static_cast<T*>(orvMalloc(int(unsigned(len) * unsigned(sizeof(T)))));
}

Orv8u* orvsMalloc_8u(int len) { return allocate<Orv8u>(len); }
Orv8s* orvsMalloc_8s(int len) { return allocate<Orv8s>(len); }
Orv8sc* orvsMalloc_8sc(int len) { return allocate<Orv8sc>(len); }
Orv16u* orvsMalloc_16u(int len) { return allocate<Orv16u>(len); }
Orv16s* orvsMalloc_16s(int len) { return allocate<Orv16s>(len); }
Orv16sc* orvsMalloc_16sc(int len) { return allocate<Orv16sc>(len); }
Orv32u* orvsMalloc_32u(int len) { return allocate<Orv32u>(len); }
Orv32s* orvsMalloc_32s(int len) { return allocate<Orv32s>(len); }
Orv32sc* orvsMalloc_32sc(int len) { return allocate<Orv32sc>(len); }
Orv32f* orvsMalloc_32f(int len) { return allocate<Orv32f>(len); }
Orv32fc* orvsMalloc_32fc(int len) { return allocate<Orv32fc>(len); }
Orv64s* orvsMalloc_64s(int len) { return allocate<Orv64s>(len); }
Orv64sc* orvsMalloc_64sc(int len) { return allocate<Orv64sc>(len); }
Orv64f* orvsMalloc_64f(int len) { return allocate<Orv64f>(len); }
Orv64fc* orvsMalloc_64fc(int len) { return allocate<Orv64fc>(len); }

void orvsFree(void* ptr) { orvFree(ptr); }
