# What is installed beside the libraries, and the Debian packages (cpack -G DEB in the build folder).

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

foreach(component development libraries planbook designer)
  install(FILES "${PROJECT_SOURCE_DIR}/LICENSE"
    DESTINATION "${CMAKE_INSTALL_DATADIR}/licenses/planview/" COMPONENT ${component} EXCLUDE_FROM_ALL)
endforeach()
