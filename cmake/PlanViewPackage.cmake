# SPDX-License-Identifier: MIT
# What is installed beside the libraries and planbook, and the Debian packages: "cmake --workflow --preset package".

include(CMakePackageConfigHelpers)

get_property(PLANVIEW_COMPONENTS GLOBAL PROPERTY PLANVIEW_COMPONENTS)
list(JOIN PLANVIEW_COMPONENTS " " PLANVIEW_COMPONENTS)
configure_package_config_file(cmake/PlanViewConfig.cmake.in "${PROJECT_BINARY_DIR}/package/PlanViewConfig.cmake"
  INSTALL_DESTINATION "${PLANVIEW_CONFIG_FOLDER}"
  NO_SET_AND_CHECK_MACRO)
# As with PLANVIEW_SOVERSION.
write_basic_package_version_file("${PROJECT_BINARY_DIR}/package/PlanViewConfigVersion.cmake"
  COMPATIBILITY SameMinorVersion)
install(FILES
    "${PROJECT_BINARY_DIR}/package/PlanViewConfig.cmake"
    "${PROJECT_BINARY_DIR}/package/PlanViewConfigVersion.cmake"
  DESTINATION "${PLANVIEW_CONFIG_FOLDER}" COMPONENT development)

# --- What Debian wants beside each package's files --------------------------------------------------------------------

set(PLANVIEW_PACKAGE_CONTACT "The PlanView developers <planview@example.org>" CACHE STRING
  "Who answers for the Debian packages, as Name <address>")

file(READ LICENSE PLANVIEW_LICENCE)
string(REGEX REPLACE "^.*\n(Permission is )" "\\1" PLANVIEW_LICENCE "${PLANVIEW_LICENCE}")
string(STRIP "${PLANVIEW_LICENCE}" PLANVIEW_LICENCE)
string(REPLACE "\n\n" "\n.\n" PLANVIEW_LICENCE "${PLANVIEW_LICENCE}")
string(REPLACE "\n" "\n " PLANVIEW_LICENCE " ${PLANVIEW_LICENCE}")
configure_file(cmake/debian-copyright.txt "${PROJECT_BINARY_DIR}/package/copyright" @ONLY)

find_program(BASH bash REQUIRED)
add_custom_command(OUTPUT package/changelog.gz
  COMMAND "${BASH}" "${PROJECT_SOURCE_DIR}/cmake/debian-changelog" "${PROJECT_SOURCE_DIR}/CHANGELOG.md"
          "${PROJECT_VERSION}" "${PLANVIEW_PACKAGE_CONTACT}" > package/changelog.gz
  DEPENDS "${PROJECT_SOURCE_DIR}/CHANGELOG.md" "${PROJECT_SOURCE_DIR}/cmake/debian-changelog"
  VERBATIM)
add_custom_target(planview_changelog ALL DEPENDS "${PROJECT_BINARY_DIR}/package/changelog.gz")

# The documents as they stand here, so that their links lead somewhere, with the examples.
set(documents "${CMAKE_INSTALL_DATADIR}/doc/libplanview-dev")
install(FILES README.md CHANGELOG.md CONTRIBUTING.md DESTINATION "${documents}" COMPONENT development)
install(FILES bench/README.md DESTINATION "${documents}/bench" COMPONENT development)
install(DIRECTORY docs examples DESTINATION "${documents}" COMPONENT development
  FILES_MATCHING PATTERN "*.md" PATTERN "*.png" PATTERN "*.cpp" PATTERN "*.h" PATTERN CMakeLists.txt PATTERN "us-employment.*"
  PATTERN build EXCLUDE)

# --- The Debian packages ----------------------------------------------------------------------------------------------

# planview_debian_package(COMPONENT name NAME package SUMMARY line [SECTION section] [DEPENDS packages]
#   [RECOMMENDS packages] [DESCRIPTION line...]): what it needs of shared libraries is found out by itself.
set(CPACK_COMPONENTS_ALL "")
macro(planview_debian_package)
  cmake_parse_arguments(DEB "" "COMPONENT;NAME;SUMMARY;SECTION" "DEPENDS;RECOMMENDS;DESCRIPTION" ${ARGN})
  string(TOUPPER "${DEB_COMPONENT}" key)
  list(APPEND CPACK_COMPONENTS_ALL ${DEB_COMPONENT})
  set(CPACK_DEBIAN_${key}_PACKAGE_NAME "${DEB_NAME}")
  set(CPACK_DEBIAN_${key}_PACKAGE_SOURCE planview)
  set(CPACK_DEBIAN_${key}_PACKAGE_SECTION "${DEB_SECTION}")
  list(JOIN DEB_DEPENDS ", " CPACK_DEBIAN_${key}_PACKAGE_DEPENDS)
  list(JOIN DEB_RECOMMENDS ", " CPACK_DEBIAN_${key}_PACKAGE_RECOMMENDS)
  list(JOIN DEB_DESCRIPTION "\n" CPACK_DEBIAN_${key}_DESCRIPTION)
  string(PREPEND CPACK_DEBIAN_${key}_DESCRIPTION "${DEB_SUMMARY}\n")
  install(FILES "${PROJECT_BINARY_DIR}/package/copyright" "${PROJECT_BINARY_DIR}/package/changelog.gz"
    DESTINATION "${CMAKE_INSTALL_DATADIR}/doc/${DEB_NAME}" COMPONENT ${DEB_COMPONENT})
endmacro()

if(BUILD_SHARED_LIBS)
  planview_debian_package(COMPONENT libraries NAME "libplanview${PLANVIEW_SOVERSION}" SECTION libs
    SUMMARY "planning table for applications (shared libraries)"
    DESCRIPTION
      "PlanView shows the tables of an application as a planning grid with a chart"
      "and macros, and tells the application what its user changed."
      ""
      "Applications that were built against PlanView need this package to run.")
endif()
# What the headers and the files for CMake and pkg-config lead to: an archive needs all that it was built with.
set(needed "")
if(BUILD_SHARED_LIBS)
  list(APPEND needed "libplanview${PLANVIEW_SOVERSION} (= ${PROJECT_VERSION})")
endif()
if(PLANVIEW_QT)
  list(APPEND needed qt6-base-dev)
endif()
if(PLANVIEW_QT AND NOT BUILD_SHARED_LIBS)
  list(APPEND needed qt6-svg-dev)
endif()
if(PLANVIEW_XLSX AND NOT BUILD_SHARED_LIBS)
  list(APPEND needed libxlsxwriter-dev libzip-dev libexpat1-dev pkg-config)
endif()
planview_debian_package(COMPONENT development NAME libplanview-dev SECTION libdevel
  DEPENDS ${needed}
  SUMMARY "planning table for applications (development files)"
  DESCRIPTION
    "PlanView shows the tables of an application as a planning grid with a chart"
    "and macros, and tells the application what its user changed. It is a widget"
    "for Qt 6, and works without a screen and without Qt as well."
    ""
    "This package has the headers, what to link with, the files for CMake and"
    "pkg-config, the documentation, and examples of applications.")
if(TARGET planbook)
  # The driver of SQLite is a plug-in, which nothing is linked to.
  planview_debian_package(COMPONENT planbook NAME planbook SECTION misc
    DEPENDS libqt6sql6-sqlite RECOMMENDS fonts-dejavu-core fonts-dejavu-extra qt6-wayland
    SUMMARY "planning books in a table and a chart"
    DESCRIPTION
      "planbook keeps lines of numbers over periods in a book, a single file, and"
      "shows them as a table and a chart in which they are planned: typed, dragged,"
      "pasted, calculated by macros, or recorded once and done again."
      ""
      "It makes books from tables of numbers, downloads them into workbooks of"
      "spreadsheet programs, and takes the values back that were changed there.")
endif()
if(TARGET planview_designer)
  planview_debian_package(COMPONENT designer NAME planview-designer-plugin SECTION libdevel
    RECOMMENDS designer-qt6
    SUMMARY "planning table for applications (plugin for Qt Designer)"
    DESCRIPTION
      "PlanView shows the tables of an application as a planning grid with a chart"
      "and macros, and tells the application what its user changed."
      ""
      "With this package its widget can be put into forms by Qt Designer. To build"
      "an application with such a form takes libplanview-dev alone.")
endif()

# Each package has its own; any other text would stand before all of them.
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${PROJECT_NAME} built using CMake")
set(CPACK_GENERATOR DEB)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS "${PROJECT_BINARY_DIR}/src" "${PROJECT_BINARY_DIR}/src/qt")
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ${BUILD_SHARED_LIBS})
set(CPACK_PACKAGE_CONTACT "${PLANVIEW_PACKAGE_CONTACT}")
set(CPACK_PACKAGING_INSTALL_PREFIX "/usr")
set(CPACK_STRIP_FILES ON)
set(CPACK_VERBATIM_VARIABLES ON)
include(CPack)
