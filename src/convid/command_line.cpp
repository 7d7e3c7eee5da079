#include "convid/command_line.h"

#include "automation/text.h"

namespace convid {

Task taskOf(const std::vector<std::wstring>& arguments)
{
    if (arguments.size() != 1 || arguments[0].empty()) return Task::wrong;
    const std::wstring& argument = arguments[0];
    if (argument[0] != L'/' && argument[0] != L'-') return Task::wrong;
    const std::wstring word = argument.substr(1);
    if (automation::equalIgnoringCase(word, L"RegServer")) return Task::registerServer;
    if (automation::equalIgnoringCase(word, L"UnregServer")) return Task::unregisterServer;
    if (automation::equalIgnoringCase(word, L"Embedding")) return Task::serve;
    return Task::wrong;
}

}
