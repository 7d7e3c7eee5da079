// Where the softphone is installed, and what it has noted in the registry about its user.
#pragma once

#include "common/configuration.h"

#include <string>

namespace hublink {

// The softphone's key under HKEY_LOCAL_MACHINE; its user's under HKEY_CURRENT_USER.
inline constexpr const wchar_t* softphoneKey = L"SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\App Paths\\Pavex.exe";
inline constexpr const wchar_t* userKey = L"Software\\Orvel\\Pavex\\Name";

inline constexpr const wchar_t* iniFileName = L"pavexconnector.ini";

// Reads the softphone's folder, server and user name. What is missing becomes
// what RegGetString returns then.
void readInstallation(Configuration& configuration);

// The folder of the ini file, without a trailing backslash. Without a softphone
// it lies on the current drive.
std::wstring connectorFolder(const Configuration& configuration);

}
