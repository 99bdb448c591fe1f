# Fails when a source file of the library includes a file of a floor above its own, or a
# service includes a sibling service:
#   ground (library/)  <  printers (printers/)  <  services (printing/, layout/, filters/,
#   none including another)  <  facade (Library, Factory, ReportConfiguration)  <  forms
# The reference report engine (report/) stands beside the forms on everything below them;
# nothing of the library includes it.
# Usage: cmake -DSOURCE_DIR=<src> -P CheckFloors.cmake

set(names ground printers services facade forms report)

# The floor's index in `names`, and for a service its own room.
function(floor_of path out room)
  set(${room} "" PARENT_SCOPE)
  if(path MATCHES "^library/(Library|Factory|ReportConfiguration)\\.")
    set(${out} 3 PARENT_SCOPE)
  elseif(path MATCHES "^library/")
    set(${out} 0 PARENT_SCOPE)
  elseif(path MATCHES "^printers/")
    set(${out} 1 PARENT_SCOPE)
  elseif(path MATCHES "^(printing|layout|filters)/")
    set(${out} 2 PARENT_SCOPE)
    set(${room} "${CMAKE_MATCH_1}" PARENT_SCOPE)
  elseif(path MATCHES "^forms/")
    set(${out} 4 PARENT_SCOPE)
  elseif(path MATCHES "^report/")
    set(${out} 5 PARENT_SCOPE)
  else()
    set(${out} "" PARENT_SCOPE)
  endif()
endfunction()

get_filename_component(SOURCE_DIR "${SOURCE_DIR}" ABSOLUTE)
file(GLOB_RECURSE files RELATIVE "${SOURCE_DIR}" "${SOURCE_DIR}/*.h" "${SOURCE_DIR}/*.cpp")
set(faults "")
foreach(file IN LISTS files)
  floor_of("${file}" own ownRoom)
  if(own STREQUAL "")
    continue()
  endif()
  file(STRINGS "${SOURCE_DIR}/${file}" includes REGEX "^[ \t]*#[ \t]*include[ \t]*\"")
  foreach(line IN LISTS includes)
    string(REGEX REPLACE "^[^\"]*\"([^\"]+)\".*$" "\\1" included "${line}")
    floor_of("${included}" theirs theirRoom)
    if(theirs STREQUAL "")
      continue()
    endif()
    list(GET names ${own} ownName)
    list(GET names ${theirs} theirName)
    if(own EQUAL 5)
      # The report engine may stand on everything below the forms.
      if(theirs EQUAL 4)
        string(APPEND faults "  ${file} (report) includes ${included} (forms)\n")
      endif()
    elseif(theirs GREATER own)
      string(APPEND faults "  ${file} (${ownName}) includes ${included} (${theirName})\n")
    elseif(own EQUAL 2 AND theirs EQUAL 2 AND NOT ownRoom STREQUAL theirRoom)
      string(APPEND faults "  ${file} (${ownRoom}) includes ${included} (the sibling ${theirRoom})\n")
    endif()
  endforeach()
endforeach()
if(faults)
  message(FATAL_ERROR "Includes that run up a floor or across the services:\n${faults}")
endif()
message(STATUS "Every include stays on its floor or below (${SOURCE_DIR})")
