// The published identifiers as the program uses them.
#pragma once

#include "desk/softphone/identifiers.h"

#include <windows.h>

#include <cstdint>

namespace desk::softphone {

namespace detail {

constexpr std::uint32_t digitOf(char c)
{
    if (c >= '0' && c <= '9') return static_cast<std::uint32_t>(c - '0');
    if (c >= 'a' && c <= 'f') return static_cast<std::uint32_t>(c - 'a' + 10);
    throw "no hexadecimal digit";
}

constexpr std::uint32_t numberOf(const char* text, int digits)
{
    std::uint32_t number = 0;
    for (int index = 0; index < digits; ++index) number = number * 16 + digitOf(text[index]);
    return number;
}

constexpr GUID guidOf(const char (&text)[37])
{
    GUID guid{numberOf(text, 8),
              static_cast<unsigned short>(numberOf(text + 9, 4)),
              static_cast<unsigned short>(numberOf(text + 14, 4)),
              {}};
    for (int index = 0; index < 8; ++index)
        guid.Data4[index] = static_cast<unsigned char>(numberOf(text + (index < 2 ? 19 : 20) + 2 * index, 2));
    return guid;
}

}

#define PAVEX_TEXT_OF(...) #__VA_ARGS__
#define PAVEX_GUID(...) ::desk::softphone::detail::guidOf(PAVEX_TEXT_OF(__VA_ARGS__))

inline constexpr GUID libraryId = PAVEX_GUID(PAVEX_LIBRARY);

inline constexpr GUID applicationClassId = PAVEX_GUID(PAVEX_APPLICATION_CLASS);
inline constexpr GUID lineClassId = PAVEX_GUID(PAVEX_LINE_CLASS);
inline constexpr GUID historyClassId = PAVEX_GUID(PAVEX_HISTORY_CLASS);
inline constexpr GUID addressBookClassId = PAVEX_GUID(PAVEX_ADDRESS_BOOK_CLASS);

inline constexpr GUID applicationId = PAVEX_GUID(PAVEX_APPLICATION);
inline constexpr GUID userId = PAVEX_GUID(PAVEX_USER);
inline constexpr GUID lineId = PAVEX_GUID(PAVEX_LINE);
inline constexpr GUID historyId = PAVEX_GUID(PAVEX_HISTORY);
inline constexpr GUID historyItemId = PAVEX_GUID(PAVEX_HISTORY_ITEM);
inline constexpr GUID addressBookId = PAVEX_GUID(PAVEX_ADDRESS_BOOK);

inline constexpr GUID applicationEventsId = PAVEX_GUID(PAVEX_APPLICATION_EVENTS);
inline constexpr GUID lineEventsId = PAVEX_GUID(PAVEX_LINE_EVENTS);
inline constexpr GUID historyEventsId = PAVEX_GUID(PAVEX_HISTORY_EVENTS);
inline constexpr GUID addressBookEventsId = PAVEX_GUID(PAVEX_ADDRESS_BOOK_EVENTS);

#undef PAVEX_GUID
#undef PAVEX_TEXT_OF

inline constexpr wchar_t progId[] = L"Pavex.Application";

}
