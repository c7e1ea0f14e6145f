// A team of threads inside one call: the vector is cut into one slice a thread, and the call returns when all are done.
//
// The region is written on the entry points of the OpenMP runtime (the LLVM ABI, openmp.llvm.org), so that any compiler
// builds it and exactly these names are imported. Nothing here is shared beyond the call.
#ifndef ORV_FRAME_TEAM_H
#define ORV_FRAME_TEAM_H

#include "frame/float_state.h"
#include "orvs/core.h"
#include "simd/vec.h"

extern "C" {

/// The runtime's note of where a region stands in the source; only the flags and the text are looked at.
struct ident_t {
    Orv32s reserved1, flags, reserved2, reserved3;
    const char* source;
};
using kmpc_micro = void (*)(Orv32s* global_thread, Orv32s* bound_thread, ...);

Orv32s __kmpc_global_thread_num(const ident_t*);
Orv32s __kmpc_ok_to_fork(const ident_t*);
void __kmpc_push_num_threads(const ident_t*, Orv32s global_thread, Orv32s count);
void __kmpc_fork_call(const ident_t*, Orv32s argument_count, kmpc_micro, ...);
void __kmpc_serialized_parallel(const ident_t*, Orv32s global_thread);
void __kmpc_end_serialized_parallel(const ident_t*, Orv32s global_thread);
Orv32s __kmpc_master(const ident_t*, Orv32s global_thread);
void __kmpc_end_master(const ident_t*, Orv32s global_thread);
void __kmpc_barrier(const ident_t*, Orv32s global_thread);
int omp_get_num_threads();
int omp_get_thread_num();
}

namespace ORV_VARIANT {

/// The source position that OpenMP tools show for a region; 2 marks the compiler-call form of the entry points.
inline constexpr ident_t team_source = {0, 2, 0, 0, ";orvs;team;0;0;;"};

/// What the threads of one region share. The master finds out how many there are; all of them compute in the caller's
/// floating-point state.
template <class Share>
struct Region {
    const Share* share;
    int threads;
    Orv32u control_word;

    static void run(Orv32s* global_thread, Orv32s*, Region* region)
    {
        if (__kmpc_master(&team_source, *global_thread)) {
            region->threads = omp_get_num_threads();
            __kmpc_end_master(&team_source, *global_thread);
        }
        __kmpc_barrier(&team_source, *global_thread);

        const Orv32u own = read_control_word();
        if (own != region->control_word) write_control_word(region->control_word);
        (*region->share)(omp_get_thread_num(), region->threads);
        if (own != region->control_word) write_control_word(own);
    }
};

/// Runs share(me, threads) on each thread of a team of at most `wanted`, and returns when all are done.
template <class Share>
void on_threads(int wanted, const Share& share)
{
    Region<Share> region = {&share, 0, read_control_word()};
    Orv32s global_thread = __kmpc_global_thread_num(&team_source);
    if (__kmpc_ok_to_fork(&team_source)) {
        __kmpc_push_num_threads(&team_source, global_thread, wanted);
        __kmpc_fork_call(&team_source, 1, reinterpret_cast<kmpc_micro>(&Region<Share>::run), &region);
    } else {
        Orv32s bound_thread = 0;
        __kmpc_serialized_parallel(&team_source, global_thread);
        Region<Share>::run(&global_thread, &bound_thread, &region);
        __kmpc_end_serialized_parallel(&team_source, global_thread);
    }
}

/// The slice of [0, len) that a thread takes; the last one takes the rest.
struct Slice {
    int first, count;

    Slice(int len, int me, int threads)
        : first(me * (len / threads)), count(len / threads + (me == threads - 1 ? len % threads : 0))
    {}
};

/// How many threads a wrapper asks for: at most two in the element-wise families.
enum class TeamSize { two, all };

/// Runs kernel(first, count) over the slices of [0, len) and returns non-zero if any slice did. Without a team to be
/// had (one thread wanted, or a vector shorter than the team) the kernel runs once, here, over all.
template <class Kernel>
[[gnu::noinline]] int on_team(TeamSize size, int len, const Kernel& kernel)
{
    const int wanted = ownGetNumThreads();
    if (wanted <= 1 || len < wanted) return kernel(0, len);
    int team = ownGetNumThreads();
    if (size == TeamSize::two && team > 2) team = 2;

    int warnings = 0; // tells zero from not zero only
    on_threads(team, [&](int me, int threads) {
        const Slice slice(len, me, threads);
        if (kernel(slice.first, slice.count)) __atomic_fetch_add(&warnings, 1, __ATOMIC_RELAXED);
    });
    return warnings;
}

} // namespace ORV_VARIANT

#endif
