# Builds the tree in which this port lies.
set(SOURCE_PATH "${CURRENT_PORT_DIR}/../../..")

vcpkg_cmake_configure(
  SOURCE_PATH "${SOURCE_PATH}"
  OPTIONS
    -DZYPHOS_BUILD_TESTS=OFF
    -DZYPHOS_BUILD_EXAMPLES=OFF
    -DZYPHOS_BUILD_BENCHMARKS=OFF
    -DZYPHOS_WERROR=OFF)
vcpkg_cmake_install()
vcpkg_cmake_config_fixup(PACKAGE_NAME Zyphos CONFIG_PATH lib/cmake/Zyphos)
vcpkg_fixup_pkgconfig()
vcpkg_copy_pdbs()
file(REMOVE_RECURSE "${CURRENT_PACKAGES_DIR}/debug/include" "${CURRENT_PACKAGES_DIR}/debug/share")

file(INSTALL "${CMAKE_CURRENT_LIST_DIR}/usage" DESTINATION "${CURRENT_PACKAGES_DIR}/share/${PORT}")
vcpkg_install_copyright(FILE_LIST "${SOURCE_PATH}/LICENSE")
