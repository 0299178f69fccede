# Installs the build in BUILD into a scratch folder, moves it, and builds and runs the consumer against it: with CMake,
# and with the compiler CXX and pkg-config. SOURCE is the folder of this file.
function(run)
  execute_process(COMMAND ${ARGN} COMMAND_ERROR_IS_FATAL ANY)
endfunction()

set(Scratch "${BUILD}/install_test")
file(REMOVE_RECURSE "${Scratch}")
run(${CMAKE_COMMAND} --install "${BUILD}" --prefix "${Scratch}/first")
file(RENAME "${Scratch}/first" "${Scratch}/prefix")

run(${CMAKE_COMMAND} -S "${SOURCE}" -B "${Scratch}/cmake" -G Ninja "-DCMAKE_PREFIX_PATH=${Scratch}/prefix"
    -DCMAKE_CXX_COMPILER=${CXX})
run(${CMAKE_COMMAND} --build "${Scratch}/cmake")
run("${Scratch}/cmake/consumer")
run("${Scratch}/cmake/qt_consumer")

file(GLOB_RECURSE PcFile "${Scratch}/prefix/zyphos.pc")
cmake_path(GET PcFile PARENT_PATH PcFolder)
function(build_by_pkg_config Name Source)
  execute_process(COMMAND ${CMAKE_COMMAND} -E env "PKG_CONFIG_PATH=${PcFolder}" pkg-config --cflags --libs ${ARGN}
                  OUTPUT_VARIABLE Flags OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
  separate_arguments(Flags UNIX_COMMAND "${Flags}")
  run(${CXX} -std=c++20 -fPIC "${SOURCE}/${Source}" ${Flags} -o "${Scratch}/${Name}")
  run("${Scratch}/${Name}")
endfunction()
build_by_pkg_config(consumer Consumer.cpp zyphos)
build_by_pkg_config(qt_consumer QtConsumer.cpp zyphos-widgets zyphos-models zyphos)
