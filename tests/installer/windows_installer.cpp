#include "installer/windows_installer.h"

#include "automation/owners.h"
#include "automation/text.h"
#include "desk/player/windows_files.h"
#include "support/scratch_folder.h"

#include <msi.h>
#include <msiquery.h>
#include <shlobj.h>

#include <algorithm>
#include <stdexcept>
#include <vector>

namespace installer {

namespace {

constexpr const wchar_t* logFile = L"C:\\msiexec.log";
constexpr const wchar_t* uninstallKey = L"SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Uninstall";

// The build machine's root is drive Z: to the test.
std::wstring onDriveZ(const char* buildFile)
{
    std::wstring file = L"Z:" + automation::toWide(buildFile);
    std::replace(file.begin(), file.end(), L'/', L'\\');
    return file;
}

std::wstring copied(const char* buildFile)
{
    const std::wstring file = onDriveZ(buildFile);
    const std::wstring copy = L"C:" + file.substr(file.rfind(L'\\'));
    desk::player::copyFile(file, copy);
    return copy;
}

void change(const std::wstring& package, const std::vector<std::wstring>& statements)
{
    const auto succeeds = [](UINT result) {
        if (result != ERROR_SUCCESS) throw std::runtime_error("a package for the tests cannot be made");
    };
    PMSIHANDLE database;
    succeeds(MsiOpenDatabaseW(package.c_str(), MSIDBOPEN_TRANSACT, &database));
    for (const std::wstring& statement : statements) {
        PMSIHANDLE view;
        succeeds(MsiDatabaseOpenViewW(database, statement.c_str(), &view));
        succeeds(MsiViewExecute(view, 0));
    }
    succeeds(MsiDatabaseCommit(database));
}

void addFilesBelow(const std::wstring& folder, const std::wstring& path, std::set<std::wstring>& found)
{
    WIN32_FIND_DATAW entry;
    const auto search = automation::ownedIfValid<automation::FileSearch>(
        FindFirstFileW((folder + L"\\" + path + L"*").c_str(), &entry));
    if (!search) return;
    do {
        const std::wstring name = entry.cFileName;
        if (name == L"." || name == L"..") continue;
        if (entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) addFilesBelow(folder, path + name + L"\\", found);
        else found.insert(path + name);
    } while (FindNextFileW(search.get(), &entry));
}

automation::RegistryKey opened(HKEY root, const std::wstring& key)
{
    HKEY handle = nullptr;
    RegOpenKeyExW(root, key.c_str(), 0, KEY_READ, &handle);
    return automation::RegistryKey(handle);
}

std::vector<std::wstring> subkeys(HKEY root, const std::wstring& key)
{
    std::vector<std::wstring> names;
    const automation::RegistryKey owner = opened(root, key);
    wchar_t name[256];
    for (DWORD index = 0; owner && RegEnumKeyW(owner.get(), index, name, 256) == ERROR_SUCCESS; ++index)
        names.emplace_back(name);
    return names;
}

}

std::wstring thisPackage()
{
    return copied(THIS_PACKAGE);
}

std::wstring nextPackage()
{
    return copied(NEXT_PACKAGE);
}

std::wstring failingPackage()
{
    const std::wstring package = nextPackage();
    // A program (34) whose exit code counts, in the installation's script (1024), and the script
    // carried out before it comes to files: undoing it, Wine would remove the earlier version's too.
    change(package, {L"INSERT INTO `CustomAction` (`Action`, `Type`, `Source`, `Target`) "
                     L"VALUES ('Fail', 1058, 'TARGETDIR', 'cmd.exe /c exit 1')",
                     L"INSERT INTO `InstallExecuteSequence` (`Action`, `Sequence`) VALUES ('Fail', 1600)",
                     L"UPDATE `InstallExecuteSequence` SET `Sequence` = 1610 WHERE `Action` = 'InstallExecute'"});
    return package;
}

DWORD msiexec(const std::wstring& arguments)
{
    DeleteFileW(logFile);
    wchar_t folder[MAX_PATH];
    GetSystemDirectoryW(folder, MAX_PATH);
    const desk::player::Process process(std::wstring(folder) + L"\\msiexec.exe", arguments + L" /qn /l*v " + logFile);
    if (!process.ended(100'000)) throw std::runtime_error("msiexec does not end");
    return process.exitCode();
}

std::string log()
{
    const std::string bytes = support::readFile(logFile);
    if (!bytes.starts_with("\xFF\xFE")) return bytes;
    return automation::toAnsi({reinterpret_cast<const wchar_t*>(bytes.data()) + 1, bytes.size() / sizeof(wchar_t) - 1});
}

DWORD install(const std::wstring& package, const std::wstring& properties)
{
    return msiexec(L"/i \"" + package + L"\" " + properties);
}

DWORD repair(const std::wstring& package)
{
    return install(package, L"REINSTALL=ALL REINSTALLMODE=amus");
}

DWORD remove(const std::wstring& package)
{
    return msiexec(L"/x \"" + package + L"\"");
}

std::set<std::wstring> shippedFiles()
{
    return filesBelow(onDriveZ(SHIPPED_FOLDER));
}

std::set<std::wstring> filesBelow(const std::wstring& folder)
{
    std::set<std::wstring> found;
    addFilesBelow(folder, L"", found);
    return found;
}

std::optional<std::wstring> registryText(HKEY root, const std::wstring& key, const std::wstring& name)
{
    const automation::RegistryKey owner = opened(root, key);
    wchar_t text[1024] = L"";
    DWORD size = sizeof text - sizeof(wchar_t);
    if (!owner || RegQueryValueExW(owner.get(), name.c_str(), nullptr, nullptr, reinterpret_cast<BYTE*>(text), &size) !=
                      ERROR_SUCCESS)
        return std::nullopt;
    return text;
}

bool isKey(const std::wstring& belowLocalMachine)
{
    return static_cast<bool>(opened(HKEY_LOCAL_MACHINE, belowLocalMachine));
}

void setRegistryText(HKEY root, const std::wstring& key, const std::wstring& name, const std::wstring& value)
{
    desk::player::setRegistryText(root, key.c_str(), name.c_str(), value);
}

std::multiset<std::wstring> installedVersions()
{
    std::multiset<std::wstring> versions;
    for (const std::wstring& product : subkeys(HKEY_LOCAL_MACHINE, uninstallKey)) {
        const std::wstring key = uninstallKey + (L"\\" + product);
        if (registryText(HKEY_LOCAL_MACHINE, key, L"DisplayName") == L"Hublink")
            versions.insert(registryText(HKEY_LOCAL_MACHINE, key, L"DisplayVersion").value_or(L"none"));
    }
    return versions;
}

bool isInStartMenu(const std::wstring& name)
{
    // Wine's own installer takes the user's menu, Windows's that of all users.
    for (const int menu : {CSIDL_COMMON_PROGRAMS, CSIDL_PROGRAMS}) {
        wchar_t folder[MAX_PATH];
        if (FAILED(SHGetFolderPathW(nullptr, menu, nullptr, SHGFP_TYPE_CURRENT, folder))) continue;
        if (exists(std::wstring(folder) + L"\\" + name + L".lnk")) return true;
    }
    return false;
}

bool exists(const std::wstring& fileOrFolder)
{
    return GetFileAttributesW(fileOrFolder.c_str()) != INVALID_FILE_ATTRIBUTES;
}

}
