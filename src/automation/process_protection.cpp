#include "automation/process_protection.h"

#include <windows.h>

#include <exception>

namespace automation {

namespace {

constexpr UINT endedByException = 70;       // an exit code that no runtime gives
constexpr DWORD searchSystemFolder = 0x800; // LOAD_LIBRARY_SEARCH_SYSTEM32
constexpr int terminationOnCorruption = 1;  // HeapEnableTerminationOnCorruption

// Empty where the system does not have the function.
template <class Function>
Function kernelFunction(const char* name)
{
    const FARPROC address = GetProcAddress(GetModuleHandleW(L"kernel32.dll"), name);
    return reinterpret_cast<Function>(reinterpret_cast<void*>(address));
}

// The current folder, the program's own and those of the path are anybody's.
void loadFromSystemFolderOnly()
{
    using SetDllDirectory = BOOL(WINAPI*)(LPCWSTR);             // Windows XP SP1
    using SetDefaultDllDirectories = BOOL(WINAPI*)(DWORD flags); // Windows 8, or 7 with its updates
    if (const auto withoutCurrent = kernelFunction<SetDllDirectory>("SetDllDirectoryW")) withoutCurrent(L"");
    if (const auto choose = kernelFunction<SetDefaultDllDirectories>("SetDefaultDllDirectories"))
        choose(searchSystemFolder);
}

void endOnDamagedHeap()
{
    using HeapSetInformation = BOOL(WINAPI*)(HANDLE, int, void*, SIZE_T); // Windows XP SP3
    if (const auto set = kernelFunction<HeapSetInformation>("HeapSetInformation"))
        set(nullptr, terminationOnCorruption, nullptr, 0);
}

// The runtime's own way out, abort(), may show a box first.
[[noreturn]] void endQuietly()
{
    OutputDebugStringW(L"ended by an exception that nobody handles\n");
    for (;;) TerminateProcess(GetCurrentProcess(), endedByException);
}

}

void protectProcess()
{
    loadFromSystemFolderOnly();
    endOnDamagedHeap();
    SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX | SEM_NOOPENFILEERRORBOX);
    std::set_terminate(endQuietly);
}

}
