# Installs a text file compressed as Debian wants man pages and changelogs: gzip -9n, so
# the archive holds neither a name nor a time and builds of one tree give the same bytes.
# Where there is no gzip (Windows), the file is installed as it is.
# Usage: bravcpl5_install_gzipped(<file> <destination> <component> [EXCLUDE_FROM_ALL])
find_program(GZIP_PROGRAM gzip)

function(bravcpl5_install_gzipped file destination component)
  get_filename_component(name "${file}" NAME)
  get_filename_component(source "${file}" ABSOLUTE)
  if(NOT GZIP_PROGRAM)
    install(FILES "${source}" DESTINATION "${destination}" COMPONENT ${component} ${ARGN})
    return()
  endif()
  set(copy "${CMAKE_CURRENT_BINARY_DIR}/gzipped/${component}/${name}")
  add_custom_command(OUTPUT "${copy}.gz"
    COMMAND ${CMAKE_COMMAND} -E copy "${source}" "${copy}"
    COMMAND "${GZIP_PROGRAM}" -9nf "${copy}"
    DEPENDS "${source}"
    VERBATIM)
  string(MAKE_C_IDENTIFIER "gzipped_${component}_${name}" target)
  add_custom_target(${target} ALL DEPENDS "${copy}.gz")
  install(FILES "${copy}.gz" DESTINATION "${destination}" COMPONENT ${component} ${ARGN})
endfunction()
