#include "convid/log_rewrite.h"

#include "convid/file_retry.h"
#include "convid/log_file.h"
#include "convid/log_replay.h"
#include "convid/store_error.h"

namespace convid {

namespace {

// A virus scanner looks at a new copy at once.
constexpr automation::Milliseconds copyTimeout = 2'000;

std::wstring replacementOf(const std::wstring& path)
{
    return path + L".new";
}

// The header comes last, when everything behind it is on the disk: wherever the
// writing is cut short, the file is not taken for a whole one.
void writeRecords(LogFile& file, const RecordIndex& index)
{
    constexpr std::size_t blockSize = 1 << 18;
    const Bytes header = fileHeader();
    Bytes block(header.size(), 0);
    std::uint64_t end = 0;
    const auto writeBlock = [&] {
        file.write(end, block);
        end += block.size();
        block.clear();
    };
    for (const RecordPointer& record : index) {
        const Bytes entry = insertEntry(*record);
        block.insert(block.end(), entry.begin(), entry.end());
        if (block.size() >= blockSize) writeBlock();
    }
    writeBlock();
    file.flush();
    file.write(0, header);
    file.flush();
}

// Only half-written copies are removed, so a failure is not reported.
void removeFile(const std::wstring& path) noexcept
{
    DeleteFileW(path.c_str());
}

StoreError examinationError(const std::wstring& path, DWORD code)
{
    return systemError(L"The identifier store " + path + L" cannot be examined", code);
}

bool isNotFound(DWORD code)
{
    return code == ERROR_FILE_NOT_FOUND || code == ERROR_PATH_NOT_FOUND;
}

// Throws StoreError when that cannot be determined.
bool isFile(const std::wstring& path)
{
    const DWORD attributes = GetFileAttributesW(path.c_str());
    if (attributes != INVALID_FILE_ATTRIBUTES) return (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
    const DWORD code = GetLastError();
    if (isNotFound(code)) return false;
    throw examinationError(path, code);
}

// Whether it holds a store from beginning to end. Throws StoreError when it
// cannot be read, or comes from a newer program.
bool isComplete(const std::wstring& replacement)
{
    const LogFile file(replacement, OPEN_EXISTING, copyTimeout);
    RecordIndex index;
    const Replay found = replay(file, index);
    return !found.blank && !found.torn && !found.damaged;
}

// Gives the file the next free name among the store's damaged ones.
std::wstring renameAsDamaged(const std::wstring& file, const std::wstring& path)
{
    for (int number = 1;; ++number) {
        const std::wstring name = path + L".damaged-" + std::to_wstring(number);
        if (MoveFileExW(file.c_str(), name.c_str(), MOVEFILE_WRITE_THROUGH)) return name;
        const DWORD code = GetLastError();
        if (code != ERROR_ALREADY_EXISTS && code != ERROR_FILE_EXISTS)
            throw systemError(L"The identifier store " + file + L" cannot be set aside", code);
    }
}

// Copies under a passing name, so that a damaged store's own name always
// stands for the whole of it.
std::wstring copyBeside(const std::wstring& path)
{
    const std::wstring copy = path + L".copy";
    if (!CopyFileW(path.c_str(), copy.c_str(), FALSE)) {
        const DWORD code = GetLastError();
        removeFile(copy);
        throw systemError(L"The damaged identifier store " + path + L" cannot be set aside", code);
    }
    LogFile(copy, OPEN_EXISTING, copyTimeout).flush();
    return copy;
}

}

void writeReplacement(const std::wstring& path, const RecordIndex& index)
try {
    LogFile file(replacementOf(path), CREATE_ALWAYS, 0);
    writeRecords(file, index);
} catch (const StoreError&) {
    dropReplacement(path);
    throw;
}

void moveReplacementIntoPlace(const std::wstring& path, automation::Milliseconds timeout)
{
    const DWORD result = replaceWithRetries(timeout, [&]() -> DWORD {
        const BOOL moved =
            MoveFileExW(replacementOf(path).c_str(), path.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH);
        return moved ? ERROR_SUCCESS : GetLastError();
    });
    if (result == ERROR_SUCCESS) return;
    dropReplacement(path);
    throw systemError(L"The identifier store " + path + L" cannot be replaced", result);
}

Presence presenceOf(const std::wstring& path) noexcept
{
    WIN32_FILE_ATTRIBUTE_DATA found;
    if (GetFileAttributesExW(path.c_str(), GetFileExInfoStandard, &found)) {
        const bool isFolder = (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
        const bool isEmpty = !isFolder && found.nFileSizeHigh == 0 && found.nFileSizeLow == 0;
        return isEmpty ? Presence::missing : Presence::there;
    }
    return isNotFound(GetLastError()) ? Presence::missing : Presence::unknown;
}

void dropReplacement(const std::wstring& path) noexcept
{
    if (presenceOf(path) == Presence::there) removeFile(replacementOf(path));
}

void recoverReplacement(const std::wstring& path, automation::Milliseconds timeout)
{
    const Presence store = presenceOf(path);
    // A new store made now would have the only good copy removed beside it.
    if (store == Presence::unknown) throw examinationError(path, GetLastError());
    if (store == Presence::there || !isFile(replacementOf(path))) return;
    if (isComplete(replacementOf(path))) moveReplacementIntoPlace(path, timeout);
    else setReplacementAside(path);
}

void setReplacementAside(const std::wstring& path)
{
    if (isFile(replacementOf(path))) renameAsDamaged(replacementOf(path), path);
}

std::wstring setAside(const std::wstring& path)
{
    const std::wstring copy = copyBeside(path);
    try {
        return renameAsDamaged(copy, path);
    } catch (const StoreError&) {
        removeFile(copy);
        throw;
    }
}

}
