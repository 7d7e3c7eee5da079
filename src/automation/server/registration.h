// Registration of a local automation server for the current user.
#pragma once

#include <windows.h>
#include <cguid.h>
#include <objbase.h>

#include <string>

namespace automation::server {

struct ClassRegistration {
    const wchar_t* progId;
    CLSID classId;
    const wchar_t* description;
    // Identifier of a type library kept in the program's resources; GUID_NULL for none.
    GUID typeLibrary = GUID_NULL;
};

// Registers `program` (a full path) as the class's local server. HKEY_CURRENT_USER
// carries the registration; where the machine's part of the registry may be
// written it gets one too, because some systems look for classes only there.
// Throws AutomationError when not even the user's part can be written.
void registerClass(const ClassRegistration& registration, const std::wstring& program);

// Removes what registerClass wrote. What is not there is no failure.
void unregisterClass(const ClassRegistration& registration);

// The full path of the running program.
std::wstring programPath();

}
