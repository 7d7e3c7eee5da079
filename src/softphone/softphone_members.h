// The members of the softphone's own objects, which are bound by dispatch identifier:
// its type library publishes interfaces, not names that a late-bound client could ask
// for. Those of its records are in common/softphone_records.cpp.
#pragma once

#include <windows.h>
#include <oaidl.h>

namespace hublink::softphone {

inline constexpr const wchar_t* progId = L"Pavex.Application";

namespace application {
inline constexpr DISPID user = 9;
inline constexpr DISPID line = 10;
inline constexpr DISPID history = 11;
inline constexpr DISPID addressBook = 12;
inline constexpr DISPID attached = 14; // Boolean, set by an attaching client
}

namespace user {
inline constexpr DISPID firstText = 2;
inline constexpr DISPID secondText = 3;
}

// The history and the address book alike.
namespace records {
inline constexpr DISPID count = 1;
inline constexpr DISPID atIndex = 3; // 0-based
inline constexpr DISPID byId = 4;    // (IdHigh, IdLow): the record, or Nothing
}

}
