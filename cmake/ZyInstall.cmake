# Install rules: find_package(Zyphos) with Zyphos::Charts, Zyphos::Dialogs, Zyphos::Models, Zyphos::PickWidgets, Zyphos::Sql,
# Zyphos::Tables and Zyphos::Widgets, pkg-config files, headers under include/zyphos. The part "runtime" is what programs run with, "development"
# what they are built with.

include(CMakePackageConfigHelpers)
include(ZyPublicHeaders)

get_property(ZyLibraries GLOBAL PROPERTY ZY_LIBRARIES)
get_property(ZyComponents GLOBAL PROPERTY ZY_COMPONENTS)
set(ZyToInstall ${ZyComponents})
if(NOT BUILD_SHARED_LIBS)
  list(APPEND ZyToInstall ${ZyLibraries})
endif()
install(
  TARGETS ${ZyToInstall} EXPORT ZyphosTargets
  LIBRARY COMPONENT runtime NAMELINK_COMPONENT development
  RUNTIME COMPONENT runtime
  ARCHIVE COMPONENT development)
install(EXPORT ZyphosTargets NAMESPACE Zyphos:: DESTINATION "${CMAKE_INSTALL_LIBDIR}/cmake/Zyphos" COMPONENT development)

zy_public_headers("${PROJECT_SOURCE_DIR}/Sources" ZyHeaders)
foreach(Header ${ZyHeaders})
  cmake_path(GET Header PARENT_PATH Folder)
  install(FILES "${PROJECT_SOURCE_DIR}/Sources/${Header}" DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/zyphos/${Folder}"
          COMPONENT development)
endforeach()

# The texts in other languages, for applications to ship: they belong to the table of this very version.
get_property(ZyLanguageFiles GLOBAL PROPERTY ZY_LANGUAGE_FILES)
set(ZyLanguagesFolder "${CMAKE_INSTALL_DATADIR}/zyphos/languages")
install(FILES ${ZyLanguageFiles} DESTINATION "${ZyLanguagesFolder}" COMPONENT development)

set(ZyDesignerFolder "${CMAKE_INSTALL_LIBDIR}/qt6/plugins/designer")
if(ZYPHOS_DESIGNER_DIR)
  set(ZyDesignerFolder "${ZYPHOS_DESIGNER_DIR}")
endif()
set(ZyDesignerFile "${CMAKE_SHARED_MODULE_PREFIX}zyphos_designer${CMAKE_SHARED_MODULE_SUFFIX}")
configure_package_config_file(
  cmake/ZyphosConfig.cmake.in "${PROJECT_BINARY_DIR}/ZyphosConfig.cmake"
  INSTALL_DESTINATION "${CMAKE_INSTALL_LIBDIR}/cmake/Zyphos" PATH_VARS ZyLanguagesFolder ZyDesignerFolder)
write_basic_package_version_file("${PROJECT_BINARY_DIR}/ZyphosConfigVersion.cmake" COMPATIBILITY SameMinorVersion)
install(FILES "${PROJECT_BINARY_DIR}/ZyphosConfig.cmake" "${PROJECT_BINARY_DIR}/ZyphosConfigVersion.cmake"
        DESTINATION "${CMAKE_INSTALL_LIBDIR}/cmake/Zyphos" COMPONENT development)

# The prefix counts from the file itself, so that an installed tree can be moved. Each library stands before those that
# it links, which were described before it.
file(RELATIVE_PATH ZyPkgConfigPrefix "${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig" "${CMAKE_INSTALL_PREFIX}")
string(PREPEND ZyPkgConfigPrefix "\${pcfiledir}/")
foreach(Component ${ZyComponents})
  set(Libraries "")
  if(BUILD_SHARED_LIBS)
    get_target_property(File ${Component} OUTPUT_NAME)
    set(Libraries "-l${File}")
    if(NOT APPLE)
      # One word, as pkg-config keeps but one of equal words.
      set(Libraries "-Wl,--push-state,--no-as-needed,${Libraries},--pop-state")
    endif()
  else()
    get_target_property(Parts ${Component} ZY_LIBRARIES)
    foreach(Library ${ZyLibraries})
      if(Library IN_LIST Parts)
        get_target_property(Options ${Library} ZY_CLASS_OPTIONS)
        list(JOIN Options " " Options)
        string(PREPEND Libraries "${Options} -l${Library} ")
      endif()
    endforeach()
  endif()
  set(ZyPkgConfigLibraries_${Component} "${Libraries}")
endforeach()
set(ZyPkgConfigRequired "Qt6PrintSupport Qt6Widgets Qt6Gui Qt6Core")
set(ZyPkgConfigSqlRequired "")
if(NOT BUILD_SHARED_LIBS)
  string(APPEND ZyPkgConfigRequired " pugixml")
  string(APPEND ZyPkgConfigLibraries_zy_charts "-lgif")
  list(JOIN ZY_LINK_OPTIONS " " ZyPkgConfigLinkOptions)
  string(PREPEND ZyPkgConfigLibraries_zy_charts "${ZyPkgConfigLinkOptions} ")
  set(ZyPkgConfigSqlRequired " Qt6Sql")
  string(APPEND ZyPkgConfigLibraries_zy_sql "-lzy_data -lzy_framework -lzy_texts")
endif()
foreach(Folder Lib Include)
  string(TOUPPER "CMAKE_INSTALL_${Folder}DIR" Variable)
  set(ZyPkgConfig${Folder}Folder "${${Variable}}")
  if(NOT IS_ABSOLUTE "${${Variable}}")
    string(PREPEND ZyPkgConfig${Folder}Folder "\${prefix}/")
  endif()
endforeach()
foreach(File zyphos.pc zyphos-dialogs.pc zyphos-models.pc zyphos-pick-widgets.pc zyphos-sql.pc zyphos-tables.pc zyphos-widgets.pc)
  configure_file("cmake/${File}.in" "${PROJECT_BINARY_DIR}/${File}" @ONLY)
  install(FILES "${PROJECT_BINARY_DIR}/${File}" DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig" COMPONENT development)
endforeach()
