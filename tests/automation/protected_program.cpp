// A program that protects itself and then meets what it is protected from.
//   automation_protected throw            an exception that nobody handles
//   automation_protected load LIBRARY     0 when the library was loaded, 1 when not
//   automation_protected unprotected LIBRARY    the same without the protection
//   automation_protected errors           its error mode
#include "automation/process_arguments.h"
#include "automation/process_protection.h"

#include <windows.h>

#include <stdexcept>
#include <string_view>

namespace {

int loadLibrary(const wchar_t* name)
{
    return LoadLibraryW(name) ? 0 : 1;
}

int run(std::wstring_view what, const wchar_t* name)
{
    if (what == L"unprotected") return loadLibrary(name);
    automation::protectProcess();
    if (what == L"throw") throw std::runtime_error("nobody handles this");
    if (what == L"load") return loadLibrary(name);
    return static_cast<int>(SetErrorMode(0));
}

}

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int)
{
    const std::vector<std::wstring> arguments = automation::processArguments();
    return run(arguments.empty() ? L"" : arguments[0], arguments.size() > 1 ? arguments[1].c_str() : L"");
}
