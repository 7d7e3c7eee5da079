// What Windows is told about the installed programs, and what they ask of it
// before their first instruction: a single function that Windows XP does not
// have would keep them from starting there.
#include "executable.h"

#include "automation/text.h"
#include "support/dummy_program.h"

#include <gtest/gtest.h>

#include <sstream>

namespace {

using programs::executable;
using programs::manifestOf;

constexpr const wchar_t* installed[] = {L"hublink.exe", L"PavexConvId.exe", L"HublinkCheck.exe"};
constexpr const wchar_t* called[] = {L"hublink.exe", L"PavexConvId.exe"}; // by programs through COM
constexpr unsigned windowsXp = 0x0501;

// What may be imported: functions that Windows XP with its Service Pack 2 has, by the
// "minimum supported client" of the vendor's reference. A new one is looked up
// there before it is added; one that came later is asked for with GetProcAddress.
const std::map<std::string, std::set<std::string>>& ofWindowsXp()
{
    static const std::pair<const char*, const char*> libraries[] = {
        {"advapi32.dll",
         "AddAccessAllowedAce CreateProcessAsUserW CreateWellKnownSid CryptAcquireContextA CryptGenRandom "
         "CryptReleaseContext EqualSid GetLengthSid GetNamedSecurityInfoW GetTokenInformation "
         "InitializeAcl InitializeSecurityDescriptor IsWellKnownSid OpenProcessToken RegCloseKey RegCreateKeyExW "
         "RegDeleteKeyW RegDeleteValueA RegEnumKeyW RegOpenKeyExA RegOpenKeyExW RegQueryInfoKeyW "
         "RegQueryValueExA RegQueryValueExW RegQueryValueW RegSetValueExA RegSetValueExW SetEntriesInAclW "
         "SetNamedSecurityInfoW SetSecurityDescriptorDacl SetSecurityDescriptorGroup "
         "SetSecurityDescriptorOwner"},
        {"comctl32.dll", "InitCommonControls"},
        {"gdi32.dll", "GetDeviceCaps"},
        {"kernel32.dll",
         "CloseHandle CompareFileTime CompareStringW CopyFileW CreateDirectoryW CreateEventW CreateFileW "
         "CreateMutexW CreateProcessW CreateSemaphoreW CreateThread CreateToolhelp32Snapshot "
         "DeleteCriticalSection DeleteFileW DuplicateHandle EnterCriticalSection "
         "ExpandEnvironmentStringsW FindClose FindFirstFileW FindNextFileW FlushConsoleInputBuffer FlushFileBuffers "
         "FormatMessageW FreeLibrary GetCommandLineW GetConsoleMode GetConsoleProcessList GetConsoleWindow "
         "GetCurrentDirectoryW "
         "GetCurrentProcess GetCurrentProcessId GetCurrentThread GetCurrentThreadId "
         "GetEnvironmentVariableW GetExitCodeProcess GetExitCodeThread GetFileAttributesExW "
         "GetFileAttributesW GetFileSize GetFileSizeEx GetFileTime GetLastError GetLocalTime "
         "GetModuleFileNameW GetModuleHandleA GetModuleHandleW GetPrivateProfileSectionNamesA "
         "GetPrivateProfileStringA GetPrivateProfileStringW GetProcAddress GetProcessTimes "
         "GetStartupInfoA GetStartupInfoW GetStdHandle GetSystemDirectoryW GetSystemTimeAsFileTime GetTickCount "
         "GetUserDefaultUILanguage GetVersionExW GetWindowsDirectoryW InitializeCriticalSection IsDBCSLeadByteEx "
         "LeaveCriticalSection LoadLibraryA "
         "LoadLibraryW LocalFree lstrlenW MoveFileExW MultiByteToWideChar OpenEventW OpenProcess OutputDebugStringA "
         "OutputDebugStringW Process32FirstW Process32NextW ProcessIdToSessionId QueryPerformanceCounter "
         "QueryPerformanceFrequency ReadConsoleInputW ReadFile ReleaseSemaphore RemoveDirectoryW ResetEvent "
         "ResumeThread SearchPathW "
         "SetEndOfFile SetErrorMode SetEvent SetFileAttributesW SetFilePointerEx SetFileTime SetLastError "
         "SetThreadPriority SetUnhandledExceptionFilter Sleep TerminateProcess TlsAlloc TlsFree "
         "TlsGetValue TlsSetValue TryEnterCriticalSection VirtualProtect VirtualQuery "
         "WaitForMultipleObjects WaitForSingleObject WideCharToMultiByte WriteConsoleW WriteFile "
         "WritePrivateProfileStringA"},
        {"msi.dll", "MsiCloseHandle MsiCreateRecord MsiEnumRelatedProductsW MsiGetPropertyW MsiProcessMessage "
                    "MsiRecordSetStringW MsiSetPropertyW"},
        {"msvcrt.dll",
         "__getmainargs __initenv __mb_cur_max __p__acmdln __p__commode __p__fmode __set_app_type "
         "__setusermatherr _amsg_exit _assert _beginthreadex _cexit _close _endthreadex _errno _exit "
         "_initterm _iob _itoa _lock _onexit _open _read _ultoa _unlock _vsnprintf _vsnwprintf _write "
         "abort atoi calloc ceil exit fflush floor fprintf fputc fputs fputwc free fwprintf fwrite getenv "
         "isspace localeconv malloc memchr memcmp memcpy memmove memset modf qsort rand realloc setlocale "
         "signal sprintf strchr strcmp strcpy strerror strlen strncmp strncpy strstr strtol strtoul "
         "vfprintf vsprintf wcschr wcscmp wcslen wcsncmp wcsstr wcstol wcstoul"},
        {"ole32.dll",
         "CLSIDFromProgID CLSIDFromString CoAddRefServerProcess CoCreateInstance CoDisconnectObject "
         "CoFreeUnusedLibraries CoGetClassObject CoInitializeEx CoInitializeSecurity CoLockObjectExternal "
         "CoMarshalInterThreadInterfaceInStream CoMarshalInterface CoRegisterClassObject CoRegisterMessageFilter "
         "CoReleaseServerProcess CoResumeClassObjects CoRevokeClassObject CoTaskMemFree CoUninitialize "
         "CreateItemMoniker CreateStreamOnHGlobal GetRunningObjectTable StringFromGUID2"},
        {"oleaut32.dll", "LoadRegTypeLib LoadTypeLibEx SafeArrayAccessData SafeArrayDestroy SafeArrayGetDim "
                         "SafeArrayGetElemsize SafeArrayGetLBound SafeArrayGetUBound SafeArrayGetVartype SafeArrayLock "
                         "SafeArrayUnaccessData SafeArrayUnlock SysAllocString SysAllocStringLen SysFreeString "
                         "SysStringLen SystemTimeToVariantTime UnRegisterTypeLib VarBstrFromBool VarBstrFromDate "
                         "VarI2FromStr VarI4FromStr VariantChangeType VariantChangeTypeEx VariantClear VariantCopy "
                         "VariantCopyInd VariantInit VariantTimeToSystemTime VarR8FromStr"},
        {"shell32.dll", "CommandLineToArgvW Shell_NotifyIconA SHGetFolderPathW"},
        {"user32.dll", "CharLowerBuffW ClientToScreen CreateWindowExW DefWindowProcW DestroyWindow DispatchMessageW "
                       "EndDialog EndMenu EnumChildWindows EnumThreadWindows EnumWindows FindWindowExW FindWindowW "
                       "GetAncestor GetClassLongW GetClassNameW GetDC GetDesktopWindow GetForegroundWindow GetMessageW "
                       "GetParent GetProcessWindowStation GetQueueStatus GetUserObjectInformationW "
                       "GetWindow GetWindowLongW GetWindowRect GetWindowThreadProcessId InSendMessage InSendMessageEx "
                       "GetSystemMetrics IsCharAlphaNumericW "
                       "IsWindow IsWindowVisible KillTimer LoadImageW MessageBoxW MsgWaitForMultipleObjects "
                       "MsgWaitForMultipleObjectsEx PeekMessageW PostMessageW PostQuitMessage PostThreadMessageW "
                       "RegisterClassW ReleaseDC ReplyMessage SendMessageTimeoutW SendMessageW SetForegroundWindow "
                       "SetTimer SetWindowLongW TranslateMessage UnregisterClassW wsprintfW"},
        {"userenv.dll", "CreateEnvironmentBlock DestroyEnvironmentBlock"},
        {"wtsapi32.dll", "WTSQueryUserToken"},
    };
    static const auto functions = [] {
        std::map<std::string, std::set<std::string>> result;
        for (const auto& [library, names] : libraries) {
            std::istringstream words(names);
            for (std::string name; words >> name;) result[library].insert(name);
        }
        return result;
    }();
    return functions;
}

// The imports that are none of Windows XP's, as "library function".
std::vector<std::string> tooNew(const programs::Executable& program)
{
    std::vector<std::string> found;
    for (const auto& [library, names] : program.imports) {
        const auto known = ofWindowsXp().find(library);
        for (const std::string& name : names)
            if (known == ofWindowsXp().end() || !known->second.contains(name)) found.push_back(library + " " + name);
    }
    return found;
}

std::wstring beside(const wchar_t* program)
{
    return support::pathBesideTests(program);
}

}

TEST(InstalledPrograms, Imports_AreAllThereInWindowsXp)
{
    for (const wchar_t* program : installed) {
        const programs::Executable found = executable(beside(program));
        EXPECT_TRUE(found.imports.at("kernel32.dll").contains("GetProcAddress")) << "the table was not read";
        for (const std::string& import : tooNew(found))
            ADD_FAILURE() << automation::toAnsi(program) << " does not start in Windows XP: " << import;
    }
}

// What nothing calls is not linked, and is not imported then.
TEST(InstalledPrograms, Imports_HoldWhatProtectsTheProcess)
{
    for (const wchar_t* program : called) {
        const programs::Executable found = executable(beside(program));
        EXPECT_TRUE(found.imports.at("ole32.dll").contains("CoInitializeSecurity")) << automation::toAnsi(program);
        EXPECT_TRUE(found.imports.at("kernel32.dll").contains("SetErrorMode")) << automation::toAnsi(program);
    }
    const programs::Executable hublink = executable(beside(L"hublink.exe"));
    EXPECT_TRUE(hublink.imports.at("comctl32.dll").contains("InitCommonControls"));
}

// They run inside Windows Installer.
TEST(CustomActions, Imports_AreAllThereInWindowsXp)
{
    const programs::Executable found = executable(beside(L"hublink_setup.dll"));
    EXPECT_TRUE(found.imports.at("msi.dll").contains("MsiGetPropertyW")) << "the table was not read";
    for (const std::string& import : tooNew(found))
        ADD_FAILURE() << "the custom actions do not work in Windows XP: " << import;
}

TEST(InstalledPrograms, FunctionOfALaterWindows_IsNoticed)
{
    EXPECT_EQ(tooNew({{{"kernel32.dll", {"Sleep", "GetTickCount64"}}, {"dwmapi.dll", {"DwmFlush"}}}, 0}),
              (std::vector<std::string>{"dwmapi.dll DwmFlush", "kernel32.dll GetTickCount64"}));
}

TEST(InstalledPrograms, Subsystem_IsThatOfWindowsXpOrEarlier)
{
    for (const wchar_t* program : installed) {
        const unsigned version = executable(beside(program)).subsystemVersion;
        EXPECT_GT(version, 0u);
        EXPECT_LE(version, windowsXp) << automation::toAnsi(program);
    }
}

TEST(InstalledPrograms, Manifest_TakesNoMoreRightsThanTheUsers_AndKnowsTheSystems)
{
    for (const wchar_t* program : installed) {
        const std::string manifest = manifestOf(beside(program));
        for (const char* part :
             {R"(<requestedExecutionLevel level="asInvoker" uiAccess="false"/>)",
              "{e2011457-1546-43c5-a5fe-008deee3d3f0}", "{35138b9a-5d96-4fbd-8e2d-a2440225f93a}",
              "{4a2f28e3-53b9-4441-ba9c-d69d4a4a6e38}", "{1f676c76-80e1-4239-95bb-83d0f6d0da78}",
              "{8e0f7a12-bfb3-4fe8-b9a5-48fd50a15a9a}", R"(name="Microsoft.Windows.Common-Controls" version="6.0.0.0")",
              R"(<dpiAware xmlns="http://schemas.microsoft.com/SMI/2005/WindowsSettings">true</dpiAware>)"})
            EXPECT_NE(manifest.find(part), std::string::npos) << automation::toAnsi(program) << " lacks " << part;
    }
}

TEST(InstalledPrograms, Version_IsTheProjects)
{
    for (const wchar_t* program : installed) {
        const programs::ProgramVersion version = programs::versionOf(beside(program));
        EXPECT_EQ(version.file, automation::toWide(PROJECT_VERSION)) << automation::toAnsi(program);
        EXPECT_EQ(version.product, version.file) << automation::toAnsi(program);
        EXPECT_EQ(version.numbers, version.file + L".0") << automation::toAnsi(program);
        EXPECT_EQ(version.originalFile, program);
        EXPECT_EQ(version.name + L".exe", program);
        EXPECT_EQ(version.productName, L"Hublink") << automation::toAnsi(program);
        EXPECT_NE(version.description, L"") << automation::toAnsi(program);
    }
}

TEST(InstalledPrograms, Icon_HasEverySizeThatWindowsShows)
{
    std::set<unsigned> sizes;
    const HMODULE program = LoadLibraryExW(beside(L"hublink.exe").c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE);
    const HRSRC place = FindResourceW(program, MAKEINTRESOURCEW(1), MAKEINTRESOURCEW(14)); // RT_GROUP_ICON
    ASSERT_TRUE(place);
    const auto* const group = static_cast<const BYTE*>(LockResource(LoadResource(program, place)));
    constexpr unsigned head = 6, entry = 14;
    for (unsigned index = 0; index < group[4]; ++index) sizes.insert(group[head + index * entry]);
    FreeLibrary(program);
    EXPECT_EQ(sizes, (std::set<unsigned>{0, 16, 20, 24, 32, 48, 64, 128})) << "0 stands for 256";
}
