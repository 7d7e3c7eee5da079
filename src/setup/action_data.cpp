#include "setup/action_data.h"

namespace hublink::setup {

ActionData::ActionData(const std::wstring& text)
{
    for (std::size_t start = 0; start < text.size();) {
        const std::size_t end = text.find(L'\n', start);
        const std::wstring line = text.substr(start, end - start);
        const std::size_t equals = line.find(L'=');
        if (equals != std::wstring::npos) add(line.substr(0, equals), line.substr(equals + 1));
        if (end == std::wstring::npos) break;
        start = end + 1;
    }
}

std::wstring ActionData::value(const std::wstring& name) const
{
    const std::vector<std::wstring> all = values(name);
    return all.empty() ? L"" : all.front();
}

std::vector<std::wstring> ActionData::values(const std::wstring& name) const
{
    std::vector<std::wstring> found;
    for (const auto& [each, value] : entries_)
        if (each == name) found.push_back(value);
    return found;
}

std::wstring ActionData::text() const
{
    std::wstring text;
    for (const auto& [name, value] : entries_) text += name + L"=" + value + L"\n";
    return text;
}

}
