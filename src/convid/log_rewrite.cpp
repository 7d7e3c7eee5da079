#include "convid/log_rewrite.h"

#include "convid/log_file.h"
#include "convid/store_error.h"

namespace convid {

namespace {

// A virus scanner looks at the new copy at once.
constexpr DWORD patienceForCopy = 2'000;

std::wstring replacementOf(const std::wstring& path)
{
    return path + L".new";
}

void writeRecords(LogFile& file, const RecordIndex& index)
{
    constexpr std::size_t blockSize = 1 << 18;
    Bytes block = fileHeader();
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
}

// A removed half of a copy is no loss, and there is nobody to tell.
void removeFile(const std::wstring& path) noexcept
{
    DeleteFileW(path.c_str());
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
    LogFile(copy, OPEN_EXISTING, patienceForCopy).flush();
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

void moveReplacementIntoPlace(const std::wstring& path, DWORD patience)
{
    const DWORD result = retryWhileInUse(patience, [&]() -> DWORD {
        const BOOL moved = MoveFileExW(replacementOf(path).c_str(), path.c_str(),
                                       MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH);
        return moved ? ERROR_SUCCESS : GetLastError();
    });
    if (result == ERROR_SUCCESS) return;
    dropReplacement(path);
    throw systemError(L"The identifier store " + path + L" cannot be replaced", result);
}

void dropReplacement(const std::wstring& path) noexcept
{
    removeFile(replacementOf(path));
}

std::wstring setAside(const std::wstring& path)
{
    const std::wstring copy = copyBeside(path);
    for (int number = 1;; ++number) {
        const std::wstring name = path + L".damaged-" + std::to_wstring(number);
        if (MoveFileExW(copy.c_str(), name.c_str(), MOVEFILE_WRITE_THROUGH)) return name;
        const DWORD code = GetLastError();
        if (code == ERROR_ALREADY_EXISTS || code == ERROR_FILE_EXISTS) continue;
        removeFile(copy);
        throw systemError(L"The damaged identifier store " + path + L" cannot be set aside", code);
    }
}

}
