// Windows Installer and what it leaves, as an administrator uses and sees them.
#pragma once

#include <windows.h>

#include <optional>
#include <set>
#include <string>

namespace installer {

// Copies of both packages on this computer's own disk.
std::wstring thisPackage();
std::wstring nextPackage();
// The later version's, with an action that fails once Hublink has been stopped.
std::wstring failingPackage();

// Runs msiexec with these arguments, silently, and waits. Returns its exit code; what
// it logged is in log().
DWORD msiexec(const std::wstring& arguments);
std::string log();

DWORD install(const std::wstring& package, const std::wstring& properties = {});
// As "msiexec /fa" does, which Wine does not know.
DWORD repair(const std::wstring& package);
DWORD remove(const std::wstring& package);

inline constexpr DWORD succeeded = ERROR_SUCCESS;
inline constexpr DWORD refused = ERROR_INSTALL_FAILURE;

// What the zip holds, too.
std::set<std::wstring> shippedFiles();

// The files below a folder, by their paths from there.
std::set<std::wstring> filesBelow(const std::wstring& folder);

// Nothing for a value, or a key, that is not there. The default value has the name "".
std::optional<std::wstring> registryText(HKEY root, const std::wstring& key, const std::wstring& name);
bool isKey(const std::wstring& belowLocalMachine);
void setRegistryText(HKEY root, const std::wstring& key, const std::wstring& name, const std::wstring& value);

// The versions of Hublink in the list of installed programs.
std::multiset<std::wstring> installedVersions();

// Whether the Start menu has a shortcut of that name.
bool isInStartMenu(const std::wstring& name);

bool exists(const std::wstring& fileOrFolder);

}
