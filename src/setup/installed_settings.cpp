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

// What an installation makes in the softphone's folder: gone again unless it is kept.
class MadePlace {
public:
    MadePlace() = default;
    MadePlace(const MadePlace&) = delete;
    MadePlace& operator=(const MadePlace&) = delete;
    ~MadePlace()
    {
        if (!file_.empty()) DeleteFileW(file_.c_str());
        if (!folder_.empty()) RemoveDirectoryW(folder_.c_str());
    }

    void makeFolder(const std::wstring& folder)
    {
        if (CreateDirectoryW(folder.c_str(), nullptr)) folder_ = folder;
        else if (GetLastError() != ERROR_ALREADY_EXISTS)
            throw std::runtime_error("cannot make " + automation::toAnsi(folder) + ": error " +
                                     std::to_string(GetLastError()));
    }

    void makeFile(const std::wstring& file, const std::wstring& defaults)
    {
        file_ = file;
        replace(file, defaults);
        letUsersChange(file);
    }

    void keep()
    {
        if (!folder_.empty()) rememberMadeFolder(folder_);
        folder_.clear();
        file_.clear();
    }

private:
    std::wstring folder_;
    std::wstring file_;
};

// Windows Installer takes a file that was changed after it was created for one that its
// user has edited, and an upgrade would leave it (vendor's reference, "File Versioning Rules").
void passAsUnedited(const std::wstring& file)
{
    const automation::Handle opened =
        automation::ownedIfValid(CreateFileW(file.c_str(), FILE_READ_ATTRIBUTES | FILE_WRITE_ATTRIBUTES,
                                             FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING, 0, nullptr));
    FILETIME changed;
    if (opened && GetFileTime(opened.get(), nullptr, nullptr, &changed))
        SetFileTime(opened.get(), &changed, nullptr, nullptr);
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
    writeInto(defaults, withRemembered(given));
    passAsUnedited(defaults);
    MadePlace made;
    if (const std::wstring folder = connectorFolderHere(); !folder.empty()) {
        made.makeFolder(folder);
        const std::wstring file = fileIn(folder);
        if (!FileExist(file)) made.makeFile(file, defaults);
        else if (wasAsInstalled) replace(file, defaults); // its rights stay
        else writeInto(file, given);
    }
    remember(given);
    made.keep();
}

void removeSettings(bool wasAsInstalled)
{
    const std::wstring folder = connectorFolderHere();
    if (wasAsInstalled && !folder.empty()) DeleteFileW(fileIn(folder).c_str());
    if (const std::wstring made = madeFolder(); !made.empty()) RemoveDirectoryW(made.c_str()); // if it is empty
    forgetAll();
}

}
