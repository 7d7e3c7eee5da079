// The classes that clients create objects of.
#pragma once

#include "automation/server/registration.h"

#include <array>

namespace desk::lotus {

inline constexpr const wchar_t* sessionProgId = L"Notes.NotesSession";
inline constexpr const wchar_t* workspaceProgId = L"Notes.NotesUIWorkspace";

// Identifiers of the desk's own: clients go by the names.
inline constexpr CLSID sessionClassId = {0x3E7A9C54, 0x1B62, 0x4D0A, {0x8F, 0x35, 0x60, 0xD2, 0x9A, 0x4E, 0x71, 0xC8}};
inline constexpr CLSID workspaceClassId = {
    0x3E7A9C55, 0x1B62, 0x4D0A, {0x8F, 0x35, 0x60, 0xD2, 0x9A, 0x4E, 0x71, 0xC8}};

inline constexpr automation::server::ClassRegistration sessionClass{
    .progId = sessionProgId, .classId = sessionClassId, .description = L"Notes session (simulated)", .typeLibrary = {}};
inline constexpr automation::server::ClassRegistration workspaceClass{.progId = workspaceProgId,
                                                                      .classId = workspaceClassId,
                                                                      .description = L"Notes workspace (simulated)",
                                                                      .typeLibrary = {}};

inline constexpr std::array<automation::server::ClassRegistration, 2> classes{sessionClass, workspaceClass};

}
