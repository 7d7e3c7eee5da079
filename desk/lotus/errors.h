// The errors that Notes raises, with its numbers and texts. A number reaches
// automation clients in the code that Visual Basic shows as that number.
#pragma once

#include "automation/server/dispatch.h"

#include <string>

namespace desk::lotus {

constexpr HRESULT notesCode(unsigned number) noexcept
{
    return static_cast<HRESULT>(0x800A0000u | number);
}

namespace numbers {
inline constexpr unsigned notesError = 4000;    // everything without a number of its own
inline constexpr unsigned badQuery = 4005;
inline constexpr unsigned notOpen = 4063;
inline constexpr unsigned userInterface = 4412; // of the user-interface classes
}

[[noreturn]] inline void raise(unsigned number, std::wstring text)
{
    throw automation::server::Exception{notesCode(number), L"Lotus Notes", std::move(text)};
}

[[noreturn]] inline void raiseNotOpen()
{
    raise(numbers::notOpen, L"Database has not been opened yet.");
}

[[noreturn]] inline void raiseDeleted()
{
    raise(numbers::notesError, L"Notes error: Document has been deleted");
}

[[noreturn]] inline void raiseNoFile()
{
    raise(numbers::userInterface, L"File does not exist");
}

[[noreturn]] inline void raiseNotEditing()
{
    raise(numbers::userInterface, L"You must be in Edit mode to change the value of a field.");
}

[[noreturn]] inline void raiseNoField(const std::wstring& name)
{
    raise(numbers::userInterface, L"Cannot locate field definition for " + name + L".");
}

[[noreturn]] inline void raiseNotAvailable()
{
    raise(numbers::userInterface, L"Document command is not available");
}

}
