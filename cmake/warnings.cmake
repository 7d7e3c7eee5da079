# What the compilers are to warn of.
if(CMAKE_CXX_COMPILER_FRONTEND_VARIANT STREQUAL "MSVC" OR MSVC)
    add_compile_options(/W4)
elseif(CMAKE_CXX_COMPILER_ID MATCHES "Clang")
    # Everything, but for:
    add_compile_options(
        -Weverything
        -Wno-c++98-compat -Wno-c++98-compat-pedantic # what older standards lack, down to -Wc++20-compat
        -Wno-pre-c++14-compat -Wno-pre-c++17-compat -Wno-pre-c++20-compat-pedantic -Wno-c++20-compat
        -Wno-deprecated-declarations # the library's own std::stable_sort
        -Wno-exit-time-destructors # tables and their texts, which nobody asks for at the end
        -Wno-float-equal # a date or number is looked for as it was stored
        -Wno-global-constructors # the same tables, and every test that GoogleTest registers
        -Wno-padded # no record is kept often enough for a gap to count
        -Wno-shadow-field-in-constructor # a parameter is called like the field that it fills
        -Wno-switch-default # a missing enumerator is told only where there is no default
        -Wno-switch-enum # a default stands for all others
        -Wno-unsafe-buffer-usage # what Windows hands over is a pointer and a count
        -Wno-used-but-marked-unused # in the headers' own macros
        -Wno-weak-vtables) # linked statically, a table in every object is one table in the end
else()
    add_compile_options(-Wall -Wextra -Wpedantic -Wconversion -Wsign-conversion)
endif()
