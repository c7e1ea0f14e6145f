# Installation: headers, both libraries, and what CMake and pkg-config need to find them.
# The installed tree may be moved.

include(CMakePackageConfigHelpers)

# The library finds the core beside itself; the OpenMP runtime comes from the system, or from the same folder.
set_target_properties(orvs PROPERTIES INSTALL_RPATH "$ORIGIN")
set_target_properties(orvcore PROPERTIES EXPORT_NAME core)
target_link_libraries(orvs INTERFACE orvcore) # a program sets the number of threads there

install(TARGETS orvs orvcore EXPORT orvs
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
    INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(DIRECTORY include/orvs DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} FILES_MATCHING PATTERN "*.h")

# find_package(orvs) offers the targets orvs::orvs and orvs::core, to programs of the same word size only.
set(ORV_PACKAGE_FOLDER ${CMAKE_INSTALL_LIBDIR}/cmake/orvs)
install(EXPORT orvs FILE orvsConfig.cmake NAMESPACE orvs:: DESTINATION ${ORV_PACKAGE_FOLDER})
block()
    if(ORV_VARIANT STREQUAL h9)
        set(CMAKE_SIZEOF_VOID_P 4) # CMake asked the compiler without -m32
    endif()
    write_basic_package_version_file(orvsConfigVersion.cmake COMPATIBILITY SameMajorVersion)
endblock()
install(FILES ${PROJECT_BINARY_DIR}/orvsConfigVersion.cmake DESTINATION ${ORV_PACKAGE_FOLDER})

# pkg-config orvs finds its folders from the place of orvs.pc itself.
cmake_path(RELATIVE_PATH CMAKE_INSTALL_PREFIX BASE_DIRECTORY ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig
    OUTPUT_VARIABLE ORV_PREFIX_FROM_PC)
configure_file(cmake/orvs.pc.in orvs.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/orvs.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
