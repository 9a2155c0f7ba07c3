# SPDX-License-Identifier: MIT
# What makes a library of the project one that others can use: the target PlanView::NAME, its installation, its pkg-config
# file. PlanViewPackage.cmake adds what belongs to all of them together.

include(GNUInstallDirs)

set(PLANVIEW_CONFIG_FOLDER "${CMAKE_INSTALL_LIBDIR}/cmake/PlanView")
# While the major version is 0, a minor one may change what hosts were built against.
set(PLANVIEW_SOVERSION "${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR}")

# planview_publish(TARGET NAME DESCRIPTION text
#   [PUBLIC targets] [PRIVATE targets]               what it is linked to, of this project the static libraries
#   [FIND packages] [FIND_PRIVATE packages]          what find_package(PlanView) looks for, each with its arguments
#   [MODULES_PRIVATE modules]                        the same for the targets PkgConfig::module
#   [REQUIRES modules] [REQUIRES_PRIVATE modules])   the same for pkg-config
#
# TARGET is a static library. With BUILD_SHARED_LIBS a shared one is made of its objects and published in its place, and
# what is private in it is nothing that its hosts have to find. Tests, benchmarks and fuzzers use TARGET all the same: it
# hides nothing from them.
function(planview_publish target name)
  set(lists PUBLIC PRIVATE FIND FIND_PRIVATE MODULES_PRIVATE REQUIRES REQUIRES_PRIVATE)
  cmake_parse_arguments(ARG "" "DESCRIPTION" "${lists}" ${ARGN})
  target_link_libraries(${target} PUBLIC ${ARG_PUBLIC} PRIVATE ${ARG_PRIVATE})
  set_target_properties(${target} PROPERTIES OUTPUT_NAME "planview-${name}" EXPORT_NAME ${name})
  set(published ${target})
  set(modules "")
  if(BUILD_SHARED_LIBS)
    set(published ${target}_shared)
    planview_shared_twin(${target} ${name})
    list(TRANSFORM ARG_PUBLIC REPLACE "^planview_.*$" "\\0_shared")
    target_link_libraries(${published} PUBLIC ${ARG_PUBLIC} PRIVATE ${ARG_PRIVATE})
  else()
    # An archive needs everything whenever something is linked to it.
    list(APPEND ARG_FIND ${ARG_FIND_PRIVATE})
    list(APPEND ARG_REQUIRES ${ARG_REQUIRES_PRIVATE})
    set(ARG_REQUIRES_PRIVATE "")
    set(modules ${ARG_MODULES_PRIVATE})
  endif()
  add_library(PlanView::${name} ALIAS ${published})
  if(PLANVIEW_INSTALL)
    set_property(GLOBAL APPEND PROPERTY PLANVIEW_COMPONENTS ${name})
    planview_install_library(${published} ${name})
    planview_install_needs(${name} "${ARG_FIND}" "${modules}")
    planview_install_pkg_config(${name} "${ARG_DESCRIPTION}" "${ARG_REQUIRES}" "${ARG_REQUIRES_PRIVATE}")
  endif()
endfunction()

function(planview_shared_twin target name)
  set(twin ${target}_shared)
  add_library(${twin} SHARED "$<TARGET_OBJECTS:${target}>")
  get_target_property(headers ${target} HEADER_SET)
  target_sources(${twin} PUBLIC FILE_SET HEADERS BASE_DIRS "${PROJECT_SOURCE_DIR}/include" FILES ${headers})
  target_compile_features(${twin} PUBLIC cxx_std_20)
  set_target_properties(${twin} PROPERTIES
    OUTPUT_NAME "planview-${name}"
    EXPORT_NAME ${name}
    LINKER_LANGUAGE CXX
    VERSION "${PROJECT_VERSION}"
    SOVERSION "${PLANVIEW_SOVERSION}")
  if(NOT PLANVIEW_SANITIZE)
    # What the core does not export cannot be used by the other libraries; found here, not when a host starts.
    target_link_options(${twin} PRIVATE "LINKER:-z,defs")
  endif()
endfunction()

function(planview_install_library target name)
  install(TARGETS ${target} EXPORT PlanView-${name}
    ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT development
    LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT libraries NAMELINK_COMPONENT development
    FILE_SET HEADERS DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}" COMPONENT development)
  install(EXPORT PlanView-${name} NAMESPACE PlanView:: DESTINATION "${PLANVIEW_CONFIG_FOLDER}" COMPONENT development)
endfunction()

# PlanView-NAME-needs.cmake, which PlanViewConfig.cmake reads.
function(planview_install_needs name packages modules)
  set(content "")
  foreach(package ${packages})
    string(APPEND content "planview_needs(${package})\n")
  endforeach()
  foreach(module ${modules})
    string(APPEND content "planview_needs_module(${module})\n")
  endforeach()
  file(CONFIGURE OUTPUT "${PROJECT_BINARY_DIR}/package/PlanView-${name}-needs.cmake" CONTENT "${content}" @ONLY)
  install(FILES "${PROJECT_BINARY_DIR}/package/PlanView-${name}-needs.cmake"
    DESTINATION "${PLANVIEW_CONFIG_FOLDER}" COMPONENT development)
endfunction()

function(planview_install_pkg_config PC_NAME PC_DESCRIPTION requires requiresPrivate)
  list(JOIN requires " " PC_REQUIRES)
  list(JOIN requiresPrivate " " PC_REQUIRES_PRIVATE)
  file(RELATIVE_PATH PC_PREFIX "/${CMAKE_INSTALL_LIBDIR}/pkgconfig" "/")
  string(REGEX REPLACE "/$" "" PC_PREFIX "${PC_PREFIX}")
  configure_file("${PROJECT_SOURCE_DIR}/cmake/planview.pc.in"
    "${PROJECT_BINARY_DIR}/package/planview-${PC_NAME}.pc" @ONLY)
  install(FILES "${PROJECT_BINARY_DIR}/package/planview-${PC_NAME}.pc"
    DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig" COMPONENT development)
endfunction()
