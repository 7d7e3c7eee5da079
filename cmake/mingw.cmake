# MinGW-w64 for the processor that is set. The variant with Windows's own threads:
# the POSIX one brings in functions that Windows XP does not have.
set(CMAKE_SYSTEM_NAME Windows)
set(target ${CMAKE_SYSTEM_PROCESSOR}-w64-mingw32)

set(CMAKE_C_COMPILER ${target}-gcc-win32)  # for GoogleTest's project only
set(CMAKE_CXX_COMPILER ${target}-g++-win32)
set(CMAKE_RC_COMPILER ${target}-windres)

set(CMAKE_FIND_ROOT_PATH /usr/${target})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)

# Runs a test under Wine without lending it the caller's pipes.
set(CMAKE_CROSSCOMPILING_EMULATOR "${CMAKE_CURRENT_LIST_DIR}/../scripts/wine-run.sh")
