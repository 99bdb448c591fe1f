# Fails when a C++ source of the project differs from what clang-format makes of it (the
# house style in .clang-format), naming the files; "clang-format -i" on them mends it.
# Usage: cmake -DPROJECT_DIR=<top> -DCLANG_FORMAT=<program> -P CheckFormat.cmake

set(files "")
foreach(dir src apps tests bench fuzz tools)
  file(GLOB_RECURSE found "${PROJECT_DIR}/${dir}/*.cpp" "${PROJECT_DIR}/${dir}/*.h")
  list(APPEND files ${found})
endforeach()
execute_process(COMMAND "${CLANG_FORMAT}" --dry-run -Werror ${files}
                RESULT_VARIABLE result ERROR_VARIABLE complaints)
if(NOT result EQUAL 0)
  string(REGEX MATCHALL "[^\n]*: error: code should be clang-formatted" lines "${complaints}")
  set(names "")
  foreach(line IN LISTS lines)
    string(REGEX REPLACE ":[0-9]+:[0-9]+: error:.*" "" name "${line}")
    list(APPEND names "${name}")
  endforeach()
  list(REMOVE_DUPLICATES names)
  list(JOIN names "\n  " listed)
  message(FATAL_ERROR "Not in the house style (clang-format -i mends them):\n  ${listed}")
endif()
list(LENGTH files count)
message(STATUS "${count} sources in the house style")
