// Dispatch identifiers of the members that are no fields. One name has one
// identifier in every class.
#pragma once

#include <oaidl.h>

namespace desk::outlook::members {

inline constexpr DISPID application = 0xF000;
inline constexpr DISPID parent = 0xF001;
inline constexpr DISPID objectClass = 0xF00A;
inline constexpr DISPID session = 0xF00B;
inline constexpr DISPID close = 0xF023;
inline constexpr DISPID remove = 0xF04A;
inline constexpr DISPID save = 0xF048;
inline constexpr DISPID send = 0xF075;
inline constexpr DISPID display = 0xF0A6;
inline constexpr DISPID recipients = 0xF814;
inline constexpr DISPID name = 0x3001;
inline constexpr DISPID count = 0x50;
inline constexpr DISPID item = DISPID_VALUE;
inline constexpr DISPID add = 0x5F;
inline constexpr DISPID removeAt = 0x54;

}
