# SPDX-License-Identifier: MIT
# The target "docs": the reference of the public headers, in docs/reference/html of the build directory. It fails on
# anything that is public and has no comment. Only where Doxygen is installed.

find_package(Doxygen QUIET)
if(DOXYGEN_FOUND)
  set(PLANVIEW_DOXYFILE "${CMAKE_CURRENT_BINARY_DIR}/docs/Doxyfile")
  configure_file(docs/Doxyfile.in "${PLANVIEW_DOXYFILE}" @ONLY)
  add_custom_target(docs
    COMMAND Doxygen::doxygen "${PLANVIEW_DOXYFILE}"
    COMMENT "Reference of the public headers: ${CMAKE_CURRENT_BINARY_DIR}/docs/reference/html/index.html"
    VERBATIM)
  if(PLANVIEW_TESTS)
    add_test(NAME public_headers_documented COMMAND Doxygen::doxygen "${PLANVIEW_DOXYFILE}")
  endif()
endif()
