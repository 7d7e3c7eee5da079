#include "convid/log_file.h"

#include "convid/store_error.h"

#include <utility>

namespace convid {

namespace {

// Asked for expressly: some systems do not hold an administrator to it.
bool isWriteProtected(const std::wstring& path)
{
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_READONLY) != 0;
}

}

LogFile::LogFile(std::wstring path, DWORD disposition, DWORD patience) : path_(std::move(path))
{
    const DWORD result = retryWhile(isInUse, patience, [&]() -> DWORD {
        if (isWriteProtected(path_)) return ERROR_ACCESS_DENIED;
        handle_ = automation::orNone(CreateFileW(path_.c_str(), GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ, nullptr,
                                                 disposition, FILE_ATTRIBUTE_NORMAL, nullptr));
        return handle_ ? ERROR_SUCCESS : GetLastError();
    });
    if (result == ERROR_SHARING_VIOLATION)
        throw systemError(L"The identifier store " + path_ + L" is in use by another program", result);
    if (!handle_) throw systemError(L"The identifier store " + path_ + L" cannot be opened", result);
}

std::uint64_t LogFile::size() const
{
    LARGE_INTEGER size;
    if (!GetFileSizeEx(handle_.get(), &size)) fail(L"examined");
    return static_cast<std::uint64_t>(size.QuadPart);
}

std::size_t LogFile::read(std::uint64_t offset, std::span<std::uint8_t> target) const
{
    seek(offset);
    std::size_t filled = 0;
    while (filled < target.size()) {
        DWORD count = 0;
        if (!ReadFile(handle_.get(), target.data() + filled, static_cast<DWORD>(target.size() - filled), &count,
                      nullptr))
            fail(L"read");
        if (count == 0) break;
        filled += count;
    }
    return filled;
}

void LogFile::write(std::uint64_t offset, ByteView bytes)
{
    seek(offset);
    DWORD count = 0;
    if (!WriteFile(handle_.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &count, nullptr)) fail(L"written");
    if (count == bytes.size()) return;
    SetLastError(ERROR_DISK_FULL);
    fail(L"written");
}

void LogFile::cut(std::uint64_t size)
{
    seek(size);
    if (!SetEndOfFile(handle_.get())) fail(L"shortened");
}

void LogFile::flush()
{
    if (!FlushFileBuffers(handle_.get())) fail(L"flushed");
}

void LogFile::seek(std::uint64_t offset) const
{
    LARGE_INTEGER position;
    position.QuadPart = static_cast<LONGLONG>(offset);
    if (!SetFilePointerEx(handle_.get(), position, nullptr, FILE_BEGIN)) fail(L"positioned");
}

void LogFile::fail(const wchar_t* operation) const
{
    const DWORD code = GetLastError();
    throw systemError(L"The identifier store " + path_ + L" cannot be " + operation, code);
}

}
