# The public headers: those of the components (Charts.h and its like) and all that they include; backends, kernels and parts stay at home.
# They are what is installed, and what the reference describes, for which `cmake -P` on this file prints them.

cmake_policy(VERSION 3.25)

# zy_public_headers(Sources Out): their paths, relative to the folder Sources.
function(zy_public_headers Sources Out)
  set(Headers Charts.h Dialogs.h Models.h PickWidgets.h Sql.h Tables.h Widgets.h)
  set(ToRead ${Headers})
  while(ToRead)
    list(POP_FRONT ToRead Header)
    file(STRINGS "${Sources}/${Header}" Includes REGEX "^#include \"")
    foreach(Line ${Includes})
      string(REGEX REPLACE "^#include \"([^\"]+)\".*" "\\1" Include "${Line}")
      if(NOT Include IN_LIST Headers)
        list(APPEND Headers "${Include}")
        list(APPEND ToRead "${Include}")
      endif()
    endforeach()
  endwhile()
  set(${Out} ${Headers} PARENT_SCOPE)
endfunction()

if(CMAKE_SCRIPT_MODE_FILE STREQUAL CMAKE_CURRENT_LIST_FILE)
  zy_public_headers("${CMAKE_CURRENT_LIST_DIR}/../Sources" Headers)
  list(JOIN Headers "\n" Lines)
  execute_process(COMMAND "${CMAKE_COMMAND}" -E echo "${Lines}")
endif()
