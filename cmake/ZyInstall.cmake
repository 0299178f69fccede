# Install rules: find_package(Zyphos) with Zyphos::Charts, Zyphos::Dialogs, Zyphos::Sql and Zyphos::Tables, pkg-config files, headers under include/zyphos.

include(CMakePackageConfigHelpers)

get_property(ZyLibraries GLOBAL PROPERTY ZY_LIBRARIES)
install(TARGETS ${ZyLibraries} EXPORT ZyphosTargets)
install(EXPORT ZyphosTargets NAMESPACE Zyphos:: DESTINATION "${CMAKE_INSTALL_LIBDIR}/cmake/Zyphos")

# The public headers are Charts.h, Dialogs.h, Sql.h and Tables.h and all that they include; backends, kernels and parts stay at home.
set(ZyHeaders Charts.h Dialogs.h Sql.h Tables.h)
set(ZyToRead ${ZyHeaders})
while(ZyToRead)
  list(POP_FRONT ZyToRead Header)
  file(STRINGS "${PROJECT_SOURCE_DIR}/Sources/${Header}" Includes REGEX "^#include \"")
  foreach(Line ${Includes})
    string(REGEX REPLACE "^#include \"([^\"]+)\".*" "\\1" Include "${Line}")
    if(NOT Include IN_LIST ZyHeaders)
      list(APPEND ZyHeaders "${Include}")
      list(APPEND ZyToRead "${Include}")
    endif()
  endforeach()
endwhile()
foreach(Header ${ZyHeaders})
  cmake_path(GET Header PARENT_PATH Folder)
  install(FILES "${PROJECT_SOURCE_DIR}/Sources/${Header}" DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/zyphos/${Folder}")
endforeach()

configure_package_config_file(cmake/ZyphosConfig.cmake.in "${PROJECT_BINARY_DIR}/ZyphosConfig.cmake"
                              INSTALL_DESTINATION "${CMAKE_INSTALL_LIBDIR}/cmake/Zyphos")
write_basic_package_version_file("${PROJECT_BINARY_DIR}/ZyphosConfigVersion.cmake" COMPATIBILITY SameMinorVersion)
install(FILES "${PROJECT_BINARY_DIR}/ZyphosConfig.cmake" "${PROJECT_BINARY_DIR}/ZyphosConfigVersion.cmake"
        DESTINATION "${CMAKE_INSTALL_LIBDIR}/cmake/Zyphos")

# The prefix counts from the file itself, so that an installed tree can be moved. Each library stands before those that
# it links, which were described before it.
file(RELATIVE_PATH ZyPkgConfigPrefix "${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig" "${CMAKE_INSTALL_PREFIX}")
string(PREPEND ZyPkgConfigPrefix "\${pcfiledir}/")
set(ZyPkgConfigLibraries "")
foreach(Library ${ZyLibraries})
  if(NOT Library MATCHES "^zy_(sql|tables|pick_controls|settings_frames|settings_forms)$")
    get_target_property(Options ${Library} ZY_CLASS_OPTIONS)
    list(JOIN Options " " Options)
    string(PREPEND ZyPkgConfigLibraries "${Options} -l${Library} ")
  endif()
endforeach()
get_target_property(ZyPkgConfigSqlOptions zy_sql ZY_CLASS_OPTIONS)
list(JOIN ZyPkgConfigSqlOptions " " ZyPkgConfigSqlOptions)
get_target_property(ZyPkgConfigTablesOptions zy_tables ZY_CLASS_OPTIONS)
list(JOIN ZyPkgConfigTablesOptions " " ZyPkgConfigTablesOptions)
set(ZyPkgConfigDialogsLibraries "")
foreach(Library zy_pick_controls zy_settings_frames zy_settings_forms)
  get_target_property(Options ${Library} ZY_CLASS_OPTIONS)
  list(JOIN Options " " Options)
  string(PREPEND ZyPkgConfigDialogsLibraries "${Options} -l${Library} ")
endforeach()
foreach(File zyphos.pc zyphos-dialogs.pc zyphos-sql.pc zyphos-tables.pc)
  configure_file("cmake/${File}.in" "${PROJECT_BINARY_DIR}/${File}" @ONLY)
  install(FILES "${PROJECT_BINARY_DIR}/${File}" DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig")
endforeach()
