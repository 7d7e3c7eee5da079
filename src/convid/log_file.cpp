#include "convid/log_file.h"

#include "convid/file_retry.h"
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

StoreError openError(const std::wstring& path, DWORD code)
{
    if (code == ERROR_SHARING_VIOLATION)
        return systemError(L"The identifier store " + path + L" is in use by another program", code);
    return systemError(L"The identifier store " + path + L" cannot be opened", code);
}

}

LogFile::LogFile(std::wstring path, DWORD disposition, automation::Milliseconds timeout) : path_(std::move(path))
{
    const DWORD result = retryWhile(isInUse, timeout, [&]() -> DWORD {
        if (isWriteProtected(path_)) return ERROR_ACCESS_DENIED;
        handle_ = automation::ownedIfValid(CreateFileW(path_.c_str(), GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ,
                                                       nullptr, disposition, FILE_ATTRIBUTE_NORMAL, nullptr));
        return handle_ ? ERROR_SUCCESS : GetLastError();
    });
    if (!handle_) throw openError(path_, result);
}

LogFile LogFile::openForReading(std::wstring path, automation::Milliseconds timeout)
{
    automation::Handle handle;
    const DWORD result = retryWhile(isInUse, timeout, [&]() -> DWORD {
        handle = automation::ownedIfValid(CreateFileW(path.c_str(), GENERIC_READ,
                                                      FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                                      OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
        return handle ? ERROR_SUCCESS : GetLastError();
    });
    if (!handle) throw openError(path, result);
    return LogFile(std::move(path), std::move(handle));
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

void LogFile::truncate(std::uint64_t size)
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
