# Compiler settings of the tree, and the two functions with which every folder describes its target.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
if(NOT CMAKE_BUILD_TYPE AND NOT CMAKE_CONFIGURATION_TYPES)
  set(CMAKE_BUILD_TYPE Release)
endif()

find_program(ZYPHOS_CCACHE ccache)
if(ZYPHOS_CCACHE AND PROJECT_IS_TOP_LEVEL)
  set(CMAKE_CXX_COMPILER_LAUNCHER "${ZYPHOS_CCACHE}")
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

# zy_add_library(zy_name SOURCES a.cpp ... [LINK targets...]): a library of the tree, installed and exported.
function(zy_add_library Target)
  cmake_parse_arguments(Arg "" "" "SOURCES;LINK" ${ARGN})
  add_library(${Target} ${Arg_SOURCES})
  target_include_directories(
    ${Target} PUBLIC "$<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/Sources>"
                     "$<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/zyphos>")
  target_compile_features(${Target} PUBLIC cxx_std_20)
  target_link_libraries(${Target} PUBLIC ${Arg_LINK})
  zy_compile_options(${Target})
  set_property(GLOBAL APPEND PROPERTY ZY_LIBRARIES ${Target})
endfunction()

# zy_add_program(name SOURCES a.cpp ... LINK targets...): a program of the tree that is not installed.
function(zy_add_program Target)
  cmake_parse_arguments(Arg "" "" "SOURCES;LINK" ${ARGN})
  add_executable(${Target} ${Arg_SOURCES})
  target_link_libraries(${Target} PRIVATE ${Arg_LINK})
  zy_compile_options(${Target})
endfunction()
