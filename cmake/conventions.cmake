# How everything in this project is compiled and linked.
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)

set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)

# Windows XP is the oldest system that the program supports.
add_compile_definitions(UNICODE _UNICODE NOMINMAX WIN32_LEAN_AND_MEAN WINVER=0x0501 _WIN32_WINNT=0x0501)

if(MSVC)
    add_compile_options(/W4 /permissive- /utf-8)
else()
    add_compile_options(-Wall -Wextra -Wpedantic -fstack-protector-strong
                        -D_GLIBCXX_ASSERTIONS -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2
                        -ffunction-sections -fdata-sections
                        -ffile-prefix-map=${CMAKE_SOURCE_DIR}=.)
    # No run-time dependency, and the same bytes from the same source.
    add_link_options(-static -Wl,--gc-sections -Wl,--no-insert-timestamp)
    set(CMAKE_CXX_STANDARD_LIBRARIES "${CMAKE_CXX_STANDARD_LIBRARIES} -lssp")
endif()

# One static library per room. Its includes are written from src/, and it may
# use only the rooms that it names, so the linker keeps the layers apart.
function(add_room name)
    cmake_parse_arguments(ROOM "" "" "SOURCES;USES" ${ARGN})
    add_library(${name} STATIC ${ROOM_SOURCES})
    target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
    target_link_libraries(${name} PUBLIC ${ROOM_USES})
endfunction()
