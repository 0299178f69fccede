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
run("${Scratch}/cmake/consumer_of_all")
run("${Scratch}/cmake/qt_consumer")

file(GLOB_RECURSE PcFile "${Scratch}/prefix/zyphos.pc")
cmake_path(GET PcFile PARENT_PATH PcFolder)
cmake_path(GET PcFolder PARENT_PATH LibFolder)
foreach(Packages "zyphos" "zyphos zyphos-dialogs zyphos-sql" "zyphos-widgets zyphos-models zyphos")
  separate_arguments(Names UNIX_COMMAND "${Packages}")
  execute_process(COMMAND ${CMAKE_COMMAND} -E env "PKG_CONFIG_PATH=${PcFolder}" pkg-config --cflags --libs ${Names}
                  OUTPUT_VARIABLE Flags OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
  separate_arguments(Flags UNIX_COMMAND "${Flags}")
  if(Packages MATCHES "sql")
    list(APPEND Flags -DLINKS_ALL)
  endif()
  set(Program Consumer.cpp)
  if(Packages MATCHES "widgets")
    set(Program QtConsumer.cpp)
  endif()
  run(${CXX} -std=c++20 -fPIC "${SOURCE}/${Program}" ${Flags} -o "${Scratch}/consumer")
  run(${CMAKE_COMMAND} -E env "LD_LIBRARY_PATH=${LibFolder}" "${Scratch}/consumer")
endforeach()
