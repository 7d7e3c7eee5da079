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
    for (const auto& [each, value] : entries_)
        if (each == name) return value;
    return {};
}

std::wstring ActionData::text() const
{
    std::wstring text;
    for (const auto& [name, value] : entries_) text += name + L"=" + value + L"\n";
    return text;
}

}
