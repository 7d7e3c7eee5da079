#include "automation/process_arguments.h"

#include "automation/owners.h"

#include <windows.h>
#include <shellapi.h>

namespace automation {

std::vector<std::wstring> processArguments()
{
    int count = 0;
    const LocalMemory<wchar_t*> words(CommandLineToArgvW(GetCommandLineW(), &count));
    if (!words) return {};
    return std::vector<std::wstring>(words.get() + (count > 0 ? 1 : 0), words.get() + count);
}

}
