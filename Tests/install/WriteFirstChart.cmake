# Writes the first chart of the README as a program that draws a picture instead of showing a window, chart.png in the folder
# where it runs:
#   cmake -DREADME=README.md -DOUT=FirstChart.cpp -P WriteFirstChart.cmake
file(READ "${README}" Text)
string(REGEX MATCH "```cpp\n(#include [^`]*)```" Program "${Text}")
set(Program "${CMAKE_MATCH_1}")
string(REGEX MATCH "```cpp\n(zy::Bitmap Picture[^`]*)```" Drawing "${Text}")
set(Drawing "${CMAKE_MATCH_1}")
string(FIND "${Program}" "Program.Run()" Place)
if(NOT Drawing OR Place EQUAL -1)
  message(FATAL_ERROR "No first chart in ${README}")
endif()
string(REPLACE "  return Program.Run();" "${Drawing}  return 0;" Program "${Program}")
file(WRITE "${OUT}" "${Program}")
