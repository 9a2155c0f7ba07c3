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

# planview_debian_package(COMPONENT name NAME package [SECTION section] [DEPENDS packages] [RECOMMENDS packages]
#   SUMMARY text): what it needs of shared libraries is found out by itself.
set(CPACK_COMPONENTS_ALL "")
macro(planview_debian_package)
  cmake_parse_arguments(DEB "" "COMPONENT;NAME;SECTION;DEPENDS;RECOMMENDS;SUMMARY" "" ${ARGN})
  string(TOUPPER "${DEB_COMPONENT}" key)
  list(APPEND CPACK_COMPONENTS_ALL ${DEB_COMPONENT})
  set(CPACK_DEBIAN_${key}_PACKAGE_NAME "${DEB_NAME}")
  set(CPACK_DEBIAN_${key}_PACKAGE_SECTION "${DEB_SECTION}")
  set(CPACK_DEBIAN_${key}_PACKAGE_DEPENDS "${DEB_DEPENDS}")
  set(CPACK_DEBIAN_${key}_PACKAGE_RECOMMENDS "${DEB_RECOMMENDS}")
  set(CPACK_DEBIAN_${key}_DESCRIPTION "${DEB_SUMMARY}")
  install(FILES "${PROJECT_SOURCE_DIR}/LICENSE" DESTINATION "${CMAKE_INSTALL_DATADIR}/doc/${DEB_NAME}"
    RENAME copyright COMPONENT ${DEB_COMPONENT})
endmacro()

set(sameLibraries "")
if(BUILD_SHARED_LIBS)
  set(sameLibraries "libplanview${PLANVIEW_SOVERSION} (= ${PROJECT_VERSION})")
  planview_debian_package(COMPONENT libraries NAME "libplanview${PLANVIEW_SOVERSION}" SECTION libs
    SUMMARY "planning table for applications: shared libraries")
endif()
planview_debian_package(COMPONENT development NAME libplanview-dev SECTION libdevel
  DEPENDS "${sameLibraries}" RECOMMENDS "qt6-base-dev, qt6-svg-dev, libxlsxwriter-dev, libzip-dev, libexpat1-dev"
  SUMMARY "planning table for applications: headers and libraries to build with")
if(TARGET planbook)
  # The driver of SQLite is a plug-in, which nothing is linked to.
  planview_debian_package(COMPONENT planbook NAME planbook SECTION misc
    DEPENDS "libqt6sql6-sqlite" RECOMMENDS "fonts-dejavu-core, fonts-dejavu-extra, qt6-wayland"
    SUMMARY "planning books in a table and a chart")
endif()
if(TARGET planview_designer)
  planview_debian_package(COMPONENT designer NAME planview-designer-plugin SECTION libdevel
    RECOMMENDS "designer-qt6"
    SUMMARY "planning table for applications: plugin for Qt Designer")
endif()

set(CPACK_GENERATOR DEB)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS "${PROJECT_BINARY_DIR}/src" "${PROJECT_BINARY_DIR}/src/qt")
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ${BUILD_SHARED_LIBS})
set(CPACK_PACKAGE_CONTACT "The PlanView developers <planview@localhost>")
set(CPACK_PACKAGING_INSTALL_PREFIX "/usr")
set(CPACK_STRIP_FILES ON)
set(CPACK_VERBATIM_VARIABLES ON)
include(CPack)
