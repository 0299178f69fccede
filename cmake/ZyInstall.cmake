# Install rules: find_package(Zyphos) with Zyphos::Charts, Zyphos::Dialogs, Zyphos::Models, Zyphos::PickWidgets, Zyphos::Sql and
# Zyphos::Widgets, pkg-config files, headers under include/zyphos.

include(CMakePackageConfigHelpers)

get_property(ZyLibraries GLOBAL PROPERTY ZY_LIBRARIES)
install(TARGETS ${ZyLibraries} EXPORT ZyphosTargets)
install(EXPORT ZyphosTargets NAMESPACE Zyphos:: DESTINATION "${CMAKE_INSTALL_LIBDIR}/cmake/Zyphos")

# The public headers are those of these six and all that they include; backends, kernels and parts stay at home.
set(ZyHeaders Charts.h Dialogs.h Models.h PickWidgets.h Sql.h Widgets.h)
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
# zy_pkg_config_libraries(OUT library...): the libraries as a linker takes them.
function(zy_pkg_config_libraries Out)
  set(Result "")
  foreach(Library ${ARGN})
    get_target_property(Options ${Library} ZY_CLASS_OPTIONS)
    list(JOIN Options " " Options)
    string(PREPEND Result "${Options} -l${Library} ")
  endforeach()
  set(${Out} "${Result}" PARENT_SCOPE)
endfunction()
set(ZyDialogs zy_pick_controls zy_settings_frames zy_settings_forms)
set(ZyCharts ${ZyLibraries})
list(REMOVE_ITEM ZyCharts zy_sql zy_models zy_widgets zy_pick_widgets ${ZyDialogs})
zy_pkg_config_libraries(ZyPkgConfigLibraries ${ZyCharts})
zy_pkg_config_libraries(ZyPkgConfigSqlLibraries zy_sql)
zy_pkg_config_libraries(ZyPkgConfigDialogsLibraries ${ZyDialogs})
zy_pkg_config_libraries(ZyPkgConfigModelsLibraries zy_models)
zy_pkg_config_libraries(ZyPkgConfigWidgetsLibraries zy_widgets)
zy_pkg_config_libraries(ZyPkgConfigPickWidgetsLibraries zy_pick_widgets)
foreach(File zyphos.pc zyphos-dialogs.pc zyphos-models.pc zyphos-pick-widgets.pc zyphos-sql.pc zyphos-widgets.pc)
  configure_file("cmake/${File}.in" "${PROJECT_BINARY_DIR}/${File}" @ONLY)
  install(FILES "${PROJECT_BINARY_DIR}/${File}" DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig")
endforeach()
