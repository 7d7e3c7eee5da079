#include "check/output.h"

#include "automation/owners.h"

#include <algorithm>

namespace hublink::check {

namespace {

std::string utf8(const std::wstring& text)
{
    const int length = static_cast<int>(text.size());
    const int size = WideCharToMultiByte(CP_UTF8, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
    std::string bytes(static_cast<std::size_t>(size), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text.data(), length, bytes.data(), size, nullptr, nullptr);
    return bytes;
}

DWORD write(HANDLE file, const std::string& bytes)
{
    for (std::size_t done = 0; done < bytes.size();) {
        DWORD written = 0;
        if (!WriteFile(file, bytes.data() + done, static_cast<DWORD>(bytes.size() - done), &written, nullptr))
            return GetLastError();
        if (written == 0) return ERROR_DISK_FULL;
        done += written;
    }
    return ERROR_SUCCESS;
}

void writeToConsole(HANDLE console, const std::wstring& text)
{
    constexpr std::size_t most = 8'000; // old consoles take no more at once
    for (std::size_t done = 0; done < text.size(); done += most) {
        DWORD written = 0;
        WriteConsoleW(console, text.data() + done, static_cast<DWORD>(std::min(most, text.size() - done)), &written,
                      nullptr);
    }
}

}

void writeOutput(DWORD stream, const std::wstring& text)
{
    const HANDLE output = GetStdHandle(stream);
    if (!output || output == INVALID_HANDLE_VALUE) return;
    DWORD mode = 0;
    if (GetConsoleMode(output, &mode)) writeToConsole(output, text);
    else write(output, utf8(text));
}

DWORD saveAsNewFile(const std::wstring& file, const std::wstring& text)
{
    automation::Handle handle = automation::ownedIfValid(
        CreateFileW(file.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!handle) return GetLastError();
    const DWORD result = write(handle.get(), "\xEF\xBB\xBF" + utf8(text));
    handle.reset();
    if (result != ERROR_SUCCESS) DeleteFileW(file.c_str());
    return result;
}

}
