// The errors that Outlook raises, with its texts.
#pragma once

#include "automation/server/dispatch.h"

#include <string>

namespace desk::outlook {

inline constexpr HRESULT objectDeleted = static_cast<HRESULT>(0x8004010AL);
inline constexpr HRESULT objectChanged = static_cast<HRESULT>(0x80040109L);
inline constexpr HRESULT notFound = static_cast<HRESULT>(0x8004010FL);

[[noreturn]] inline void raise(HRESULT code, std::wstring text)
{
    throw automation::server::Exception{code, L"Microsoft Outlook", std::move(text)};
}

[[noreturn]] inline void raiseBadParameter()
{
    raise(E_INVALIDARG, L"Could not complete the operation. One or more parameter values are not valid.");
}

[[noreturn]] inline void raiseOutOfBounds()
{
    raise(DISP_E_EXCEPTION, L"Array index out of bounds.");
}

[[noreturn]] inline void raiseNotFound()
{
    raise(notFound, L"The attempted operation failed.  An object could not be found.");
}

[[noreturn]] inline void raiseDeleted()
{
    raise(objectDeleted, L"The item has been moved or deleted.");
}

}
