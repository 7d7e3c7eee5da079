#include "convid/command_line.h"

#include "automation/owners.h"
#include "automation/text.h"

#include <windows.h>
#include <shellapi.h>

namespace convid {

Task taskOf(const std::vector<std::wstring>& arguments)
{
    if (arguments.size() != 1 || arguments[0].empty()) return Task::wrong;
    const std::wstring& argument = arguments[0];
    if (argument[0] != L'/' && argument[0] != L'-') return Task::wrong;
    const std::wstring word = argument.substr(1);
    if (automation::equalWithoutCase(word, L"RegServer")) return Task::registerServer;
    if (automation::equalWithoutCase(word, L"UnregServer")) return Task::unregisterServer;
    if (automation::equalWithoutCase(word, L"Embedding")) return Task::serve;
    return Task::wrong;
}

std::vector<std::wstring> processArguments()
{
    int count = 0;
    const automation::LocalMemory<wchar_t*> words(CommandLineToArgvW(GetCommandLineW(), &count));
    if (!words) return {};
    return std::vector<std::wstring>(words.get() + (count > 0 ? 1 : 0), words.get() + count);
}

}
