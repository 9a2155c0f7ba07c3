# SPDX-License-Identifier: MIT
# What every target of the project is built with.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
# Calls inside the libraries need no detour then; building a grid is a tenth faster by it. What is exported nevertheless
# (PLANVIEW_EXPORT) is taken to be what it is here, not what another library could put in its place.
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
add_compile_options(-fno-semantic-interposition)

find_program(PLANVIEW_CCACHE ccache)
if(PLANVIEW_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  set(CMAKE_CXX_COMPILER_LAUNCHER "${PLANVIEW_CCACHE}")
endif()

# Line numbers are all of the debugger's information that a sanitizer's report needs; less of it halves the objects.
if(PLANVIEW_SANITIZE)
  add_compile_options(-g1 "-fsanitize=${PLANVIEW_SANITIZE}" -fno-omit-frame-pointer -fno-sanitize-recover=all)
  add_compile_definitions(_GLIBCXX_ASSERTIONS)
  add_link_options("-fsanitize=${PLANVIEW_SANITIZE}")
endif()

# planview_warnings(TARGET): the project's warnings, as errors unless the project is a part of another.
function(planview_warnings target)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wconversion -Wshadow)
  if(PLANVIEW_WERROR)
    target_compile_options(${target} PRIVATE -Werror)
  endif()
  # Optimised, g++ 12 sees an overlap in ("text" + std::string) that is not there (GCC bug 105651).
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    target_compile_options(${target} PRIVATE -Wno-restrict)
  endif()
  # g++ loses track of what is initialised behind the sanitizers' checks.
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND PLANVIEW_SANITIZE)
    target_compile_options(${target} PRIVATE -Wno-maybe-uninitialized)
  endif()
endfunction()
