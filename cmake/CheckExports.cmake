# Fails when the shared library exports more of the library than its published surface: the
# published classes (and the base classes they are reached through), the factory and the
# registry file a host may name. Usage: cmake -DLIBRARY=<libbravcpl5.so> -P CheckExports.cmake
set(published
  Library HostLink Service PrinterConfigurations ReportLayout ReportConfiguration
  CreateObject SetRegistryFile RegistryFile)
list(JOIN published "|" alternatives)
# Demangled symbol names that mention the library's namespace: members of the published
# classes, their type information and meta-objects, and the factory.
set(allowed "^bravcpl5_CreateObject$|(^| |\\*)bravcpl5::(${alternatives})(::|\\(|$)")

execute_process(COMMAND nm -DC --defined-only "${LIBRARY}" OUTPUT_VARIABLE symbols
                RESULT_VARIABLE failed)
if(failed)
  message(FATAL_ERROR "nm could not read ${LIBRARY}")
endif()
string(REPLACE "\n" ";" lines "${symbols}")
set(extra "")
set(count 0)
foreach(line IN LISTS lines)
  # "<address> <type> <name>"
  string(REGEX REPLACE "^[0-9a-fA-F]+ [A-Za-z] " "" name "${line}")
  if(NOT name MATCHES "bravcpl5")
    continue()
  endif()
  math(EXPR count "${count} + 1")
  if(NOT name MATCHES "${allowed}")
    string(APPEND extra "  ${name}\n")
  endif()
endforeach()
if(extra)
  message(FATAL_ERROR "Exported but not published:\n${extra}")
endif()
if(count EQUAL 0)
  message(FATAL_ERROR "Nothing of the library is exported from ${LIBRARY}")
endif()
message(STATUS "${count} exported symbols, all published")
