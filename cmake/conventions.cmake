# How everything in this project is compiled and linked.
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)

set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)

# Windows XP is the oldest system that the program supports.
add_compile_definitions(UNICODE _UNICODE NOMINMAX WIN32_LEAN_AND_MEAN WINVER=0x0501 _WIN32_WINNT=0x0501)

include(${CMAKE_CURRENT_LIST_DIR}/warnings.cmake)

# No run-time dependency, and the same bytes from the same source.
if(MSVC)
    add_compile_options(/EHsc /permissive- /utf-8 /Zc:__cplusplus)
    add_link_options(/Brepro)
    set(CMAKE_POLICY_DEFAULT_CMP0091 NEW) # for GoogleTest, which is older than the next line
    set(CMAKE_MSVC_RUNTIME_LIBRARY "MultiThreaded$<$<CONFIG:Debug>:Debug>")
else()
    add_compile_options(-fstack-protector-strong
                        -D_GLIBCXX_ASSERTIONS -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2
                        -ffunction-sections -fdata-sections
                        -ffile-prefix-map=${CMAKE_SOURCE_DIR}=.)
    add_link_options(-static -Wl,--gc-sections -Wl,--no-insert-timestamp)
    set(CMAKE_CXX_STANDARD_LIBRARIES "${CMAKE_CXX_STANDARD_LIBRARIES} -lssp")
endif()

# ./check lints what it compiles. What has been linted is linted again when it, a
# header that it includes or the rules change, as it is compiled again.
option(LINT "lint with clang-tidy what is compiled")
if(LINT)
    set(versions)
    foreach(folder IN ITEMS . desk tests)
        set(rules ${PROJECT_SOURCE_DIR}/${folder}/.clang-tidy)
        set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${rules})
        file(MD5 ${rules} version)
        string(APPEND versions _${version})
    endforeach()
    set(CMAKE_CXX_CLANG_TIDY clang-tidy-19 --quiet --extra-arg=-Wno-everything --extra-arg=-DRULES${versions})
endif()

# One static library per room. Its includes are written from src/, and it may
# use only the rooms that it names, so the linker keeps the layers apart.
function(add_room name)
    cmake_parse_arguments(ROOM "" "" "SOURCES;USES" ${ARGN})
    add_library(${name} STATIC ${ROOM_SOURCES})
    target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
    target_link_libraries(${name} PUBLIC ${ROOM_USES})
endfunction()

# The resource compiler does not tell what it has read. A program's resources are made
# again when its version changes, or one of the files that are named.
function(resources_read name)
    set_property(SOURCE ${name} APPEND PROPERTY OBJECT_DEPENDS
        ${PROJECT_SOURCE_DIR}/packaging/program_version.rc ${PROJECT_BINARY_DIR}/packaging/version.h ${ARGN})
endfunction()

# A program that is handed out goes without its symbols; Visual C++ keeps them elsewhere.
function(strip_symbols name)
    if(CMAKE_STRIP)
        add_custom_command(TARGET ${name} POST_BUILD COMMAND ${CMAKE_STRIP} $<TARGET_FILE:${name}>)
    endif()
endfunction()
