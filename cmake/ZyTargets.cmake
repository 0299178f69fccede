# Compiler settings of the tree, and the functions with which every folder describes its target.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
if(BUILD_SHARED_LIBS AND MSVC)
  message(FATAL_ERROR "Shared libraries need exports that the classes do not declare for this compiler")
endif()
# Files of one number go together. Before 1.0 each minor version may break what was linked with the one before.
if(PROJECT_VERSION_MAJOR EQUAL 0)
  set(ZY_SOVERSION "0.${PROJECT_VERSION_MINOR}")
else()
  set(ZY_SOVERSION ${PROJECT_VERSION_MAJOR})
endif()
if(NOT CMAKE_BUILD_TYPE AND NOT CMAKE_CONFIGURATION_TYPES)
  set(CMAKE_BUILD_TYPE Release)
endif()

find_program(ZYPHOS_CCACHE ccache)
if(ZYPHOS_CCACHE AND PROJECT_IS_TOP_LEVEL)
  set(CMAKE_CXX_COMPILER_LAUNCHER "${ZYPHOS_CCACHE}")
endif()

# What makes programs with static libraries small: they leave out what they do not call, and where the C library reads
# that, they tell in bits which addresses are to be moved.
set(ZY_LINK_OPTIONS "")
if(NOT MSVC AND NOT APPLE)
  set(ZY_LINK_OPTIONS -Wl,--gc-sections)
  include(CheckCXXSourceCompiles)
  set(CMAKE_REQUIRED_LINK_OPTIONS -Wl,-z,pack-relative-relocs)
  check_cxx_source_compiles(
    "#include <features.h>
     #if !__GLIBC_PREREQ(2, 36)
     #error
     #endif
     int main() {}"
    ZY_PACKS_RELOCATIONS)
  unset(CMAKE_REQUIRED_LINK_OPTIONS)
  if(ZY_PACKS_RELOCATIONS)
    list(APPEND ZY_LINK_OPTIONS -Wl,-z,pack-relative-relocs)
  endif()
endif()

function(zy_compile_options Target)
  if(NOT MSVC)
    target_compile_options(${Target} PRIVATE -Wall -Wextra -Wpedantic -Wshadow -Wconversion)
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
      target_compile_options(${Target} PRIVATE -Wno-restrict)  # false alarms on joined strings (GCC bug 105651)
    endif()
    if(ZYPHOS_WERROR)
      target_compile_options(${Target} PRIVATE -Werror)
    endif()
  endif()
  if(ZYPHOS_SANITIZE)
    target_compile_options(${Target} PRIVATE -fsanitize=${ZYPHOS_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(${Target} PRIVATE -fsanitize=${ZYPHOS_SANITIZE})
  endif()
endfunction()

# Every program that links Target gets all classes of its sources, also those that only a stored form names: the linker
# takes the object files for the sake of the variables that ZY_PUBLISHED makes. A program whose property
# ZYPHOS_NAMED_CLASSES_ONLY is set gets those that it refers to.
function(zy_keep_classes Target)
  set(Options "")
  foreach(Source ${ARGN})
    file(READ "${Source}" Text)
    string(REGEX MATCHALL "ZY_PUBLISHED\\([ \n]*[A-Za-z0-9_]+" Tables "${Text}")
    foreach(Table ${Tables})
      string(REGEX REPLACE ".*[( \n]" "zy_class_" Name "${Table}")
      if(MSVC)
        list(APPEND Options "/INCLUDE:${Name}")
      elseif(APPLE)
        list(APPEND Options "-Wl,-u,_${Name}")
      else()
        list(APPEND Options "-Wl,-u,${Name}")
      endif()
    endforeach()
  endforeach()
  target_link_options(${Target} INTERFACE "$<$<NOT:$<BOOL:$<TARGET_PROPERTY:ZYPHOS_NAMED_CLASSES_ONLY>>>:${Options}>")
  set_property(TARGET ${Target} PROPERTY ZY_CLASS_OPTIONS "${Options}")
endfunction()

# Headers of the tree for those who build in it, and for those who find it installed.
function(zy_include_directories Target Scope)
  target_include_directories(
    ${Target} ${Scope} "$<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/Sources>" "$<BUILD_INTERFACE:${PROJECT_BINARY_DIR}/include>"
                       "$<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>"
                       "$<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/zyphos>")
  target_compile_features(${Target} ${Scope} cxx_std_20)
endfunction()

# zy_add_library(zy_name [SOURCES a.cpp ...] [COMPACT b.cpp ...] [LINK targets...]): a library of the tree, installed and
# exported, or where shared libraries are built a part of the file of its component. COMPACT are sources that no paint and
# no loop over data runs through: a release has them small rather than quick.
function(zy_add_library Target)
  cmake_parse_arguments(Arg "" "" "SOURCES;COMPACT;LINK" ${ARGN})
  if(NOT MSVC)
    set_source_files_properties(${Arg_COMPACT} PROPERTIES COMPILE_OPTIONS "$<$<CONFIG:Release>:-Os>")
  endif()
  list(APPEND Arg_SOURCES ${Arg_COMPACT})
  if(BUILD_SHARED_LIBS)
    add_library(${Target} OBJECT ${Arg_SOURCES})
    set_target_properties(${Target} PROPERTIES VISIBILITY_INLINES_HIDDEN ON)
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
      target_compile_options(${Target} PRIVATE -fno-semantic-interposition)
    endif()
  else()
    add_library(${Target} STATIC ${Arg_SOURCES})
    zy_keep_classes(${Target} ${Arg_SOURCES})
    if(NOT MSVC AND NOT APPLE)
      target_compile_options(${Target} PRIVATE $<$<CONFIG:Release>:-ffunction-sections> $<$<CONFIG:Release>:-fdata-sections>)
    endif()
    target_link_options(${Target} INTERFACE ${ZY_LINK_OPTIONS})
  endif()
  zy_include_directories(${Target} PUBLIC)
  target_link_libraries(${Target} PUBLIC ${Arg_LINK})
  zy_compile_options(${Target})
  set_property(GLOBAL APPEND PROPERTY ZY_LIBRARIES ${Target})
endfunction()

# zy_add_component(zy_name Name LIBRARIES libraries... [LINK targets...]): what applications link as Zyphos::Name. The
# libraries stand in the order in which they were described.
function(zy_add_component Target Name)
  cmake_parse_arguments(Arg "" "" "LIBRARIES;LINK" ${ARGN})
  string(TOLOWER "zyphos-${Name}" File)
  if(BUILD_SHARED_LIBS)
    add_library(${Target} SHARED)
    target_link_libraries(${Target} PRIVATE ${Arg_LIBRARIES} PUBLIC ${Arg_LINK})
    zy_include_directories(${Target} INTERFACE)
    zy_compile_options(${Target})
    set_target_properties(${Target} PROPERTIES OUTPUT_NAME ${File} LINKER_LANGUAGE CXX VERSION ${PROJECT_VERSION}
                                               SOVERSION ${ZY_SOVERSION})
    set_property(TARGET ${Arg_LIBRARIES} PROPERTY ZY_COMPONENT ${Target})
    if(NOT APPLE)
      set(Map "${PROJECT_SOURCE_DIR}/cmake/exports.map")
      target_link_options(${Target} PRIVATE "LINKER:--version-script=${Map}")
      if(NOT ZYPHOS_SANITIZE)
        target_link_options(${Target} PRIVATE "LINKER:--no-undefined")
      endif()
      set_property(TARGET ${Target} PROPERTY LINK_DEPENDS "${Map}")
      # A program may know classes by nothing but their names in a stored form, and needs the file all the same.
      target_link_options(${Target} INTERFACE "LINKER:--no-as-needed")
    endif()
  else()
    add_library(${Target} INTERFACE)
    target_link_libraries(${Target} INTERFACE ${Arg_LIBRARIES} ${Arg_LINK})
  endif()
  set_target_properties(${Target} PROPERTIES EXPORT_NAME ${Name})
  set_property(TARGET ${Target} PROPERTY ZY_LIBRARIES ${Arg_LIBRARIES})
  add_library(Zyphos::${Name} ALIAS ${Target})
  set_property(GLOBAL APPEND PROPERTY ZY_COMPONENTS ${Target})
endfunction()

# zy_add_program(name SOURCES a.cpp ... LINK targets...): a program of the tree that is not installed.
function(zy_add_program Target)
  cmake_parse_arguments(Arg "" "" "SOURCES;LINK" ${ARGN})
  add_executable(${Target} ${Arg_SOURCES})
  foreach(Library ${Arg_LINK})
    if(TARGET ${Library})
      get_target_property(Component ${Library} ZY_COMPONENT)  # the file that has it, where shared libraries are built
      if(Component)
        set(Library ${Component})
      endif()
    endif()
    target_link_libraries(${Target} PRIVATE ${Library})
  endforeach()
  zy_compile_options(${Target})
endfunction()
