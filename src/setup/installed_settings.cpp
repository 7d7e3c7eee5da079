#include "setup/installed_settings.h"

#include "automation/owners.h"
#include "automation/text.h"
#include "common/files.h"
#include "common/installation.h"
#include "setup/first_settings.h"
#include "setup/softphone_place.h"
#include "setup/user_rights.h"

#include <windows.h>

#include <optional>
#include <stdexcept>

namespace hublink::setup {

namespace {

std::optional<std::string> contentOf(const std::wstring& file)
{
    const automation::Handle opened = automation::ownedIfValid(CreateFileW(
        file.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING, 0, nullptr));
    if (!opened) return std::nullopt;
    std::string bytes(GetFileSize(opened.get(), nullptr), '\0');
    DWORD read = 0;
    if (!ReadFile(opened.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &read, nullptr)) return std::nullopt;
    bytes.resize(read);
    return bytes;
}

std::wstring fileIn(const std::wstring& folder)
{
    return folder + (folder.ends_with(L'\\') ? L"" : L"\\") + iniFileName;
}

void replace(const std::wstring& file, const std::wstring& by)
{
    if (!CopyFileW(by.c_str(), file.c_str(), FALSE))
        throw std::runtime_error("cannot write " + automation::toAnsi(file) + ": error " +
                                 std::to_string(GetLastError()));
    SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_NORMAL);
}

void makeConnectorFolder(const std::wstring& folder)
{
    if (CreateDirectoryW(folder.c_str(), nullptr)) rememberMadeFolder(folder);
    else if (GetLastError() != ERROR_ALREADY_EXISTS)
        throw std::runtime_error("cannot make " + automation::toAnsi(folder) + ": error " +
                                 std::to_string(GetLastError()));
}

}

bool isAsInstalled(const std::wstring& programFolder)
{
    const std::wstring folder = connectorFolderHere();
    if (folder.empty()) return false;
    const auto there = contentOf(fileIn(folder));
    return there && there == contentOf(fileIn(programFolder));
}

void installSettings(const std::wstring& programFolder, bool wasAsInstalled, const ActionData& given)
{
    const std::wstring defaults = fileIn(programFolder);
    writeInto(defaults, remember(given));
    const std::wstring folder = connectorFolderHere();
    if (folder.empty()) return;
    makeConnectorFolder(folder);
    const std::wstring file = fileIn(folder);
    if (!FileExist(file)) {
        replace(file, defaults);
        letUsersChange(file);
    } else if (wasAsInstalled) {
        replace(file, defaults); // its rights stay
    } else {
        writeInto(file, given);
    }
}

void removeSettings(bool wasAsInstalled)
{
    const std::wstring folder = connectorFolderHere();
    if (wasAsInstalled && !folder.empty()) DeleteFileW(fileIn(folder).c_str());
    if (const std::wstring made = madeFolder(); !made.empty()) RemoveDirectoryW(made.c_str()); // if it is empty
    forgetAll();
}

}
