# The Debian packages, one per install component, made by CPack's DEB generator from the
# release build (scripts/packages). Names and versions come from project() and the SOVERSION
# beside it; dependencies on other packages from dpkg-shlibdeps over the binaries, plus what
# the binaries load or read at run time, which it cannot see.
set(BRAVCPL5_MAINTAINER "bravcpl5 maintainers <maintainers@users.noreply.c-seed-baa914f1.example>")
set(library_package libbravcpl5-${BRAVCPL5_SOVERSION})

# What Debian puts in every package's documentation folder. Left out of a plain
# `cmake --install`, which installs every component but these rules.
function(bravcpl5_package_documents component package)
  install(FILES "${PROJECT_SOURCE_DIR}/packaging/copyright"
          DESTINATION ${CMAKE_INSTALL_DATAROOTDIR}/doc/${package}
          COMPONENT ${component} EXCLUDE_FROM_ALL)
  set(changelog "${CMAKE_CURRENT_BINARY_DIR}/packaging/${package}/changelog")
  set(PACKAGE ${package})
  configure_file("${PROJECT_SOURCE_DIR}/packaging/changelog.in" "${changelog}" @ONLY)
  bravcpl5_install_gzipped("${changelog}" ${CMAKE_INSTALL_DATAROOTDIR}/doc/${package} ${component}
                           EXCLUDE_FROM_ALL)
endfunction()
bravcpl5_package_documents(library ${library_package})
bravcpl5_package_documents(development libbravcpl5-dev)
bravcpl5_package_documents(tool bravcpl5-config)
bravcpl5_package_documents(sample_host bravcpl5-sample-host)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME bravcpl5)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_CONTACT "${BRAVCPL5_MAINTAINER}")
set(CPACK_PACKAGE_DIRECTORY "${CMAKE_BINARY_DIR}/packages")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_COMPONENTS_ALL library development tool sample_host)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# The release build carries debug information; each package's is split off into its
# -dbgsym package, and the binaries in the package are stripped.
set(CPACK_DEBIAN_DEBUGINFO_PACKAGE ON)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
# A package that needs another of these needs it at the same version.
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS ON)
# The library package's shlibs file, for packages built against it.
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
# Each package's description names its own summary; CPack would put the project's
# before it.
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")

set(CPACK_DEBIAN_LIBRARY_PACKAGE_NAME ${library_package})
set(CPACK_DEBIAN_LIBRARY_PACKAGE_SECTION libs)
# dpkg's trigger updates the dynamic linker's cache.
set(CPACK_DEBIAN_LIBRARY_PACKAGE_CONTROL_EXTRA "${PROJECT_SOURCE_DIR}/packaging/triggers")
# Label products come from gLabels' template files.
set(CPACK_DEBIAN_LIBRARY_PACKAGE_RECOMMENDS glabels-data)
set(CPACK_DEBIAN_LIBRARY_DESCRIPTION "BRAV 5 common printing library
The printing settings library of a desktop business application for dealers
of blinds, shades and shutters: named printer configurations and the printer
each prints to on this workstation, page setups, report fonts and layouts,
report filters and fields, and the dialogs that edit them, over CUPS
and Qt 6.
.
This package holds the shared library.")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libbravcpl5-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_COMPONENT_DEVELOPMENT_DEPENDS library)
# The published headers include Qt's and pugixml's; the CMake package finds both.
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "qt6-base-dev, libpugixml-dev")
set(CPACK_DEBIAN_DEVELOPMENT_DESCRIPTION "BRAV 5 common printing library - development files
The printing settings library of a desktop business application for dealers
of blinds, shades and shutters.
.
This package holds what a host application builds against: the published
headers, the CMake package (find_package(bravcpl5), target
bravcpl5::bravcpl5) and the pkg-config file.")

set(CPACK_DEBIAN_TOOL_PACKAGE_NAME bravcpl5-config)
set(CPACK_DEBIAN_TOOL_PACKAGE_SECTION admin)
set(CPACK_DEBIAN_TOOL_PACKAGE_RECOMMENDS glabels-data)
set(CPACK_DEBIAN_TOOL_DESCRIPTION "printer configurations of BRAV 5 workstations from a shell
bravcpl5-config lists, assigns, checks, exports and imports the printer
configurations of a workstation (which printer each one prints to) and sets
label products from gLabels' templates, for administrators who set up many
workstations. Its output can be read as JSON, and its exit status says
whether anything was found or refused.")

set(CPACK_DEBIAN_SAMPLE_HOST_PACKAGE_NAME bravcpl5-sample-host)
set(CPACK_DEBIAN_SAMPLE_HOST_PACKAGE_SECTION misc)
set(CPACK_COMPONENT_SAMPLE_HOST_DEPENDS library)
# Its own database is SQLite through Qt's plugin, which it loads by name.
set(CPACK_DEBIAN_SAMPLE_HOST_PACKAGE_DEPENDS libqt6sql6-sqlite)
set(CPACK_DEBIAN_SAMPLE_HOST_DESCRIPTION "sample host application of the BRAV 5 printing library
A small back office of a dealer of blinds and shutters that uses the BRAV 5
common printing library the way a host application does: reports with their
printer configurations, preview and print, and every settings dialog of the
library, over a sample settings tree and SQLite database created in the
user's data folder on first run.")

include(CPack)
