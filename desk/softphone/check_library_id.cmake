# Fails when the type library does not carry the identifier that the program
# uses: the compiler is known to damage it for some definitions.
#     cmake -D LIBRARY=x.tlb -D IDENTIFIERS=identifiers.h -P check_library_id.cmake
file(STRINGS ${IDENTIFIERS} definition REGEX "#define PAVEX_LIBRARY ")
string(REGEX MATCH "([0-9a-f]+)-([0-9a-f]+)-([0-9a-f]+)-([0-9a-f]+)-([0-9a-f]+)" guid "${definition}")
if(NOT guid)
    message(FATAL_ERROR "${IDENTIFIERS} defines no PAVEX_LIBRARY")
endif()
set(text "${CMAKE_MATCH_4}${CMAKE_MATCH_5}")
# The first three parts are stored lowest byte first.
foreach(part ${CMAKE_MATCH_3} ${CMAKE_MATCH_2} ${CMAKE_MATCH_1})
    string(REGEX MATCHALL ".." bytes ${part})
    list(REVERSE bytes)
    list(JOIN bytes "" reversed)
    string(PREPEND text ${reversed})
endforeach()
file(READ ${LIBRARY} content HEX)
string(FIND ${content} ${text} position)
if(position EQUAL -1)
    file(REMOVE ${LIBRARY})
    message(FATAL_ERROR "${LIBRARY} does not carry the library identifier ${guid}")
endif()
