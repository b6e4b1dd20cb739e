# SPDX-License-Identifier: MIT
#
# 64-bit Windows from a Debian or Ubuntu machine (package g++-mingw-w64-x86-64-posix):
#   cmake -S . -B build-windows -G Ninja -DCMAKE_TOOLCHAIN_FILE=cmake/mingw64.cmake
# The windows too, where a Qt for Windows is unpacked: -DCMAKE_PREFIX_PATH=DIRECTORY
# -DQT_HOST_PATH=/usr (its tools for the machine that builds: qt6-base-dev-tools).
# The compiler's own libraries go into the .exe, so that it runs alone on any Windows.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)
set(CMAKE_EXE_LINKER_FLAGS_INIT -static)

# Nothing of the machine that builds is for the machine that runs, but the programs.
set(CMAKE_FIND_ROOT_PATH /usr/x86_64-w64-mingw32 ${CMAKE_PREFIX_PATH})
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES CMAKE_PREFIX_PATH)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# With Wine here the tests run too.
find_program(MORVELLA_WINE NAMES wine64 wine)
if(MORVELLA_WINE)
  set(CMAKE_CROSSCOMPILING_EMULATOR ${MORVELLA_WINE})
endif()
