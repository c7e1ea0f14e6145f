# The core library and the signal-processing library of the chosen variant.

find_package(Python3 REQUIRED COMPONENTS Interpreter)

# ---- liborvcore.so.8.2

file(GLOB ORV_CORE_SOURCES CONFIGURE_DEPENDS core/*.cpp)
add_library(orvcore SHARED ${ORV_CORE_SOURCES})
add_library(orvs::core ALIAS orvcore)
target_include_directories(orvcore PUBLIC $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/include> PRIVATE ${PROJECT_SOURCE_DIR})
target_link_libraries(orvcore PRIVATE $<BUILD_INTERFACE:orv_warnings> $<BUILD_INTERFACE:orv_freestanding>)
set_target_properties(orvcore PROPERTIES VERSION 8.2 SOVERSION 8.2 LINK_DEPENDS ${PROJECT_SOURCE_DIR}/core/exports.map)
target_link_options(orvcore PRIVATE -Wl,--version-script,${PROJECT_SOURCE_DIR}/core/exports.map)
if(NOT ORV_SANITIZE)
    target_link_options(orvcore PRIVATE -nostdlib -Wl,-z,defs)
    target_link_libraries(orvcore PRIVATE -lc -lgcc)
endif()

# ---- Entries, slot table, export map: written from the public headers

set(ORV_GENERATED ${PROJECT_BINARY_DIR}/entries)
file(GLOB ORV_PUBLIC_HEADERS CONFIGURE_DEPENDS include/orvs/*.h)
execute_process(
    COMMAND ${Python3_EXECUTABLE} ${PROJECT_SOURCE_DIR}/tools/gen_entries.py --variant ${ORV_VARIANT}
        --list ${PROJECT_SOURCE_DIR}/tools/exports.tsv --out ${ORV_GENERATED} ${ORV_PUBLIC_HEADERS}
    COMMAND_ERROR_IS_FATAL ANY)
set_property(DIRECTORY ${PROJECT_SOURCE_DIR} APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS
    ${ORV_PUBLIC_HEADERS} ${PROJECT_SOURCE_DIR}/tools/gen_entries.py ${PROJECT_SOURCE_DIR}/tools/exports.tsv)
file(STRINGS ${ORV_GENERATED}/exports.txt ORV_EXPORTS)
list(TRANSFORM ORV_EXPORTS PREPEND ${ORV_GENERATED}/jmp_ OUTPUT_VARIABLE ORV_ENTRIES)
list(TRANSFORM ORV_ENTRIES APPEND .s)

# ---- liborvsh9.so.8.2 or liborvsx9.so.8.2

set(ORV_ROOMS simd frame vmath arith convert stats sort gen transform corr fir iir)
list(TRANSFORM ORV_ROOMS APPEND /*.cpp OUTPUT_VARIABLE ORV_SOURCE_GLOBS)
file(GLOB ORV_SOURCES CONFIGURE_DEPENDS ${ORV_SOURCE_GLOBS})

# The bodies and kernels. Tests of inner services link these objects directly.
add_library(orvs_bodies OBJECT ${ORV_SOURCES})
target_include_directories(orvs_bodies PUBLIC ${PROJECT_SOURCE_DIR}/include ${PROJECT_SOURCE_DIR})
target_link_libraries(orvs_bodies PRIVATE orv_warnings orv_freestanding orv_kernels)

# The OpenMP runtime: Debian's package for x86-64; for 32 bits the same package unpacked into a private folder.
if(ORV_VARIANT STREQUAL h9)
    set(ORV_OPENMP_FOLDERS ${ORV_I386_ROOT}/usr/lib/llvm-14/lib ${ORV_I386_ROOT}/usr/lib/i386-linux-gnu)
else()
    set(ORV_OPENMP_FOLDERS /usr/lib/llvm-14/lib /usr/lib/x86_64-linux-gnu)
endif()
find_library(ORV_OPENMP NAMES libomp.so.5 PATHS ${ORV_OPENMP_FOLDERS} NO_DEFAULT_PATH)
if(NOT ORV_OPENMP)
    message(FATAL_ERROR "No OpenMP runtime libomp.so.5 in ${ORV_OPENMP_FOLDERS}: run tools/setup library")
endif()
get_filename_component(ORV_OPENMP_FOLDER ${ORV_OPENMP} DIRECTORY)

# The slot table comes first, so that it opens the initialised data; the entries follow at their own pitch.
add_library(orvs SHARED ${ORV_GENERATED}/slots.s ${ORV_ENTRIES} $<TARGET_OBJECTS:orvs_bodies>)
add_library(orvs::orvs ALIAS orvs)
set_target_properties(orvs PROPERTIES
    OUTPUT_NAME orvs${ORV_VARIANT} VERSION 8.2 SOVERSION 8.2 LINKER_LANGUAGE CXX
    LINK_DEPENDS ${ORV_GENERATED}/exports.map)
target_include_directories(orvs PUBLIC $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/include>)
target_link_options(orvs PRIVATE -Wl,--version-script,${ORV_GENERATED}/exports.map -Wl,-z,lazy)
if(ORV_SANITIZE)
    target_link_options(orvs PRIVATE -nostartfiles) # _init and _fini are our own
else()
    target_link_options(orvs PRIVATE -nostdlib -Wl,-z,defs)
endif()
# Needed objects in this order; libgcc only lends its static division helpers to the 32-bit variant.
target_link_libraries(orvs PRIVATE -Wl,--no-as-needed orvcore ${ORV_OPENMP} -lc -lm -lgcc)
