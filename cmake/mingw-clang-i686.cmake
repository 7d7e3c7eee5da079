# Clang for the same target, with MinGW-w64's headers, libraries and linker.
include(${CMAKE_CURRENT_LIST_DIR}/mingw-i686.cmake)

set(CMAKE_C_COMPILER clang-19)
set(CMAKE_CXX_COMPILER clang++-19)
set(CMAKE_C_COMPILER_TARGET ${target})
set(CMAKE_CXX_COMPILER_TARGET ${target})
set(CMAKE_STRIP ${target}-strip) # the linker's own: clang's does not take what it writes
