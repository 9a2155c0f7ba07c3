# SPDX-License-Identifier: MIT
# Builds for Windows (x86-64) on Debian, and runs there what has been built under Wine: the preset "mingw". For the core.

set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
# With the threads of POSIX; those of Windows have no std::mutex in this compiler.
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix) # for GoogleTest
set(CMAKE_CROSSCOMPILING_EMULATOR wine)

# Programs come from this system, everything else from the compiler's own folder.
set(CMAKE_FIND_ROOT_PATH /usr/x86_64-w64-mingw32)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# A program that needs no library of the compiler beside it.
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static")
