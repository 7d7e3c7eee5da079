// Puts the connector's own Notes files beside the user's Notes data.
#pragma once

#include "lotus/lotus_session.h"

#include <string>

namespace hublink {

inline constexpr const wchar_t* notesSettingsDatabase = L"pavexconnectorconfig.nsf";
inline constexpr const wchar_t* notesHistoryDatabase = L"pavexhistory.nsf";

struct NotesFolders {
    std::wstring program;
    std::wstring data;
};

// What the registry names, each as RegGetString returns it. Release 5 takes precedence over 4; later ones
// are not looked for.
NotesFolders notesFolders();

// Finds the Notes program and data folders in the registry and copies the
// connector's files there, unless they are there already; then the databases
// get their place on the user's workspace.
void InstallLotusDatabases(const LotusSession& session);

// Puts the two databases on the workspace. No error leaves it.
void AddDatabasesToWorkspace();

}
