# Compiler settings: word size for everything, warnings for our own code, code generation for the library.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_C_STANDARD 99)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)

if(ORV_VARIANT STREQUAL h9)
    set(ORV_WORD_FLAGS -m32 -msse2 -mfpmath=sse)
elseif(ORV_VARIANT STREQUAL x9)
    set(ORV_WORD_FLAGS -m64)
else()
    message(FATAL_ERROR "ORV_VARIANT must be h9 or x9, not '${ORV_VARIANT}'")
endif()
add_compile_options(${ORV_WORD_FLAGS})
add_link_options(${ORV_WORD_FLAGS})
string(JOIN " " CMAKE_ASM_FLAGS ${ORV_WORD_FLAGS})
if(CMAKE_CXX_COMPILER_ID STREQUAL Clang)
    string(APPEND CMAKE_ASM_FLAGS " -Wno-unused-command-line-argument") # of the C++ options, for the entries
endif()

# Release is what all presets build.
set(ORV_OPTIMIZE "-O2" CACHE STRING "Optimisation of release builds")
set(CMAKE_CXX_FLAGS_RELEASE ${ORV_OPTIMIZE})
set(CMAKE_C_FLAGS_RELEASE ${ORV_OPTIMIZE})
if(ORV_SANITIZE)
    # The code of both libraries is watched, in whatever program it runs: the programs of the tests are only linked so.
    # C callers may pass any number as an enumerated argument; each function says what it makes of the others.
    set(ORV_SANITIZE_FLAGS -fsanitize=address,undefined -fno-sanitize=enum -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(${ORV_SANITIZE_FLAGS})
endif()

# Own code compiles without a warning in both compilers.
add_library(orv_warnings INTERFACE)
target_compile_options(orv_warnings INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wcast-qual -Wmissing-declarations -Werror)
if(CMAKE_CXX_COMPILER_ID STREQUAL GNU)
    # The 32-bit ABI note about vectors passed by value: ours are all inlined.
    target_compile_options(orv_warnings INTERFACE -Wno-psabi -Wno-ignored-attributes)
endif()

# What a library without a C++ runtime needs: no exceptions, no type information, no guards, no stack canaries.
add_library(orv_freestanding INTERFACE)
target_compile_options(orv_freestanding INTERFACE ${ORV_SANITIZE_FLAGS}
    -fvisibility=hidden -fno-stack-protector -fcf-protection=none
    $<$<COMPILE_LANGUAGE:CXX>:-fno-exceptions -fno-rtti -fno-threadsafe-statics>)

# Callers of 32-bit code may come with a stack that is aligned to 4 bytes only.
if(ORV_VARIANT STREQUAL h9)
    target_compile_options(orv_freestanding INTERFACE
        $<IF:$<CXX_COMPILER_ID:GNU>,-mincoming-stack-boundary=2,-mstackrealign>)
endif()

# Code of the variant. A fused multiply-add happens where the source says fma and nowhere else. A loop of stores stays a
# loop: the library calls no memset.
add_library(orv_kernels INTERFACE)
target_compile_options(orv_kernels INTERFACE -mavx2 -mfma -ffp-contract=off -fno-math-errno -fno-builtin
    $<$<CXX_COMPILER_ID:GNU>:-fno-partial-inlining -fno-tree-loop-distribute-patterns -falign-loops=32>)
target_compile_definitions(orv_kernels INTERFACE ORV_VARIANT=${ORV_VARIANT} ORV_BUILD_PREFIX="${ORV_VARIANT}_")
