# Debian packages by `cpack`: what programs run with, and what they are built with. Where static libraries are built there is
# the latter alone. scripts/packages.sh makes them of the shared ones.

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME zyphos)
set(CPACK_PACKAGE_CONTACT "The Zyphos authors")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${PROJECT_DESCRIPTION}")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_RESOURCE_FILE_LICENSE "${PROJECT_SOURCE_DIR}/LICENSE")
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libzyphos-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION "Headers, CMake and pkg-config files.")
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "qt6-base-dev (>= 6.4)")
if(BUILD_SHARED_LIBS)
  set(CPACK_COMPONENTS_ALL runtime development)
  set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME "libzyphos${ZY_SOVERSION}")
  set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
  set(CPACK_DEBIAN_RUNTIME_PACKAGE_SHLIBDEPS ON)
  set(CPACK_DEBIAN_RUNTIME_PACKAGE_GENERATE_SHLIBS ON)
  set(CPACK_DEBIAN_RUNTIME_PACKAGE_RECOMMENDS "qt6-image-formats-plugins")
  set(CPACK_DEBIAN_RUNTIME_PACKAGE_SUGGESTS "libqt6sql6-sqlite, libqt6sql6-psql")
  set(CPACK_COMPONENT_RUNTIME_DESCRIPTION "Shared libraries.")
  string(PREPEND CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS
         "${CPACK_DEBIAN_RUNTIME_PACKAGE_NAME} (= ${PROJECT_VERSION}), ")
else()
  set(CPACK_COMPONENTS_ALL development)
  string(APPEND CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS ", libgif-dev, libpugixml-dev")
endif()

# Each package tells its licence.
foreach(Component ${CPACK_COMPONENTS_ALL})
  string(TOUPPER ${Component} Upper)
  install(FILES "${PROJECT_SOURCE_DIR}/LICENSE" DESTINATION "${CMAKE_INSTALL_DATADIR}/doc/${CPACK_DEBIAN_${Upper}_PACKAGE_NAME}"
          RENAME copyright COMPONENT ${Component})
endforeach()
include(CPack)
