// What a protected process does when it meets what it is protected from; each
// in a process of its own.
#include "support/process.h"
#include "support/scratch_folder.h"

#include <gtest/gtest.h>

#include <windows.h>

namespace {

constexpr DWORD timeout = 60'000; // milliseconds

// The exit code of the program with those arguments, started in that folder.
DWORD exitCode(const std::wstring& arguments, const std::wstring& folder)
{
    return support::Process(support::command(L"automation_protected.exe") + L" " + arguments, L"", folder.c_str())
        .exitCode(timeout);
}

// A library that lies in a folder where a user, or somebody else, put it.
void putLibrary(const std::wstring& path)
{
    wchar_t system[MAX_PATH] = L"";
    GetSystemDirectoryW(system, MAX_PATH);
    ASSERT_TRUE(CopyFileW((std::wstring(system) + L"\\version.dll").c_str(), path.c_str(), TRUE));
}

}

TEST(ProcessProtection, ExceptionThatNobodyHandles_EndsTheProcess_WithoutABox)
{
    EXPECT_EQ(exitCode(L"throw", L"C:\\"), 70u);
}

TEST(ProcessProtection, LibraryInTheCurrentFolder_IsNotLoaded)
{
    const support::ScratchFolder folder;
    putLibrary(folder.file(L"planted.dll"));
    EXPECT_EQ(exitCode(L"unprotected planted.dll", folder.path()), 0u) << "the library is no library";
    EXPECT_EQ(exitCode(L"load planted.dll", folder.path()), 1u);
}

TEST(ProcessProtection, LibraryOfTheSystem_IsLoaded)
{
    EXPECT_EQ(exitCode(L"load version.dll", L"C:\\"), 0u);
}

TEST(ProcessProtection, Faults_OpenNoBox)
{
    EXPECT_EQ(exitCode(L"errors", L"C:\\"),
              static_cast<DWORD>(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX | SEM_NOOPENFILEERRORBOX));
}
