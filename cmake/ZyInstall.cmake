# Install rules: find_package(Zyphos) with Zyphos::Charts, a pkg-config file, headers under include/zyphos.

include(CMakePackageConfigHelpers)

get_property(ZyLibraries GLOBAL PROPERTY ZY_LIBRARIES)
install(TARGETS ${ZyLibraries} EXPORT ZyphosTargets)
install(EXPORT ZyphosTargets NAMESPACE Zyphos:: DESTINATION "${CMAKE_INSTALL_LIBDIR}/cmake/Zyphos")
install(DIRECTORY "${PROJECT_SOURCE_DIR}/Sources/" DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/zyphos"
        FILES_MATCHING PATTERN "*.h" PATTERN "*.inl")

configure_package_config_file(cmake/ZyphosConfig.cmake.in "${PROJECT_BINARY_DIR}/ZyphosConfig.cmake"
                              INSTALL_DESTINATION "${CMAKE_INSTALL_LIBDIR}/cmake/Zyphos")
write_basic_package_version_file("${PROJECT_BINARY_DIR}/ZyphosConfigVersion.cmake" COMPATIBILITY SameMinorVersion)
install(FILES "${PROJECT_BINARY_DIR}/ZyphosConfig.cmake" "${PROJECT_BINARY_DIR}/ZyphosConfigVersion.cmake"
        DESTINATION "${CMAKE_INSTALL_LIBDIR}/cmake/Zyphos")

# The prefix counts from the file itself, so that an installed tree can be moved.
file(RELATIVE_PATH ZyPkgConfigPrefix "${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig" "${CMAKE_INSTALL_PREFIX}")
string(PREPEND ZyPkgConfigPrefix "\${pcfiledir}/")
# Each library before those that it links, which were described before it.
set(ZyPkgConfigLibraries ${ZyLibraries})
list(REVERSE ZyPkgConfigLibraries)
list(TRANSFORM ZyPkgConfigLibraries PREPEND "-l")
list(JOIN ZyPkgConfigLibraries " " ZyPkgConfigLibraries)
configure_file(cmake/zyphos.pc.in "${PROJECT_BINARY_DIR}/zyphos.pc" @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/zyphos.pc" DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig")
