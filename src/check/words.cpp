#include "check/words.h"

#include "common/text.h"

#include <windows.h>

namespace hublink::check {

namespace {

constexpr const wchar_t* hidden = L"***";
constexpr std::size_t minNameLength = 3; // a shorter one is a part of many words

std::wstring environment(const wchar_t* name)
{
    wchar_t value[1024];
    const DWORD length = GetEnvironmentVariableW(name, value, 1024);
    return length < 1024 ? std::wstring(value, length) : L"";
}

// The user's names, as folders bear them, in lower case.
std::vector<std::wstring> namesOfUser()
{
    const std::wstring profile = environment(L"USERPROFILE");
    std::vector<std::wstring> names{environment(L"USERNAME"), profile.substr(profile.find_last_of(L"\\/") + 1)};
    for (std::wstring& name : names) name = lowerCase(std::move(name));
    std::erase(names, L"");
    return names;
}

bool containsUserName(const std::wstring& folder, const std::vector<std::wstring>& names)
{
    const std::wstring text = lowerCase(folder);
    for (const std::wstring& name : names)
        if (text == name || (name.size() >= minNameLength && text.find(name) != std::wstring::npos)) return true;
    return false;
}

std::wstring discreetPath(const std::wstring& path)
{
    const std::vector<std::wstring> names = namesOfUser();
    std::vector<std::wstring> parts = split(path, L'\\');
    const bool isShared = path.starts_with(L"\\\\");
    std::wstring text;
    for (std::size_t k = 0; k < parts.size(); ++k) {
        const bool isServer = isShared && k == 2;
        if (k > 0) text += L'\\';
        text += isServer || containsUserName(parts[k], names) ? hidden : parts[k];
    }
    return text;
}

bool isGap(const wchar_t* at)
{
    return at[0] == L'{' && at[1] >= L'1' && at[1] <= L'9' && at[2] == L'}';
}

}

Words personal(const std::wstring& text)
{
    return {text, text.empty() ? text : hidden};
}

Words path(const std::wstring& path)
{
    return {path, discreetPath(path)};
}

Words filled(const wchar_t* pattern, const std::vector<Words>& words)
{
    Words text;
    for (const wchar_t* at = pattern; *at; ++at) {
        const std::size_t gap = isGap(at) ? static_cast<std::size_t>(at[1] - L'1') : words.size();
        text.full += gap < words.size() ? words[gap].full : std::wstring(1, *at);
        text.discreet += gap < words.size() ? words[gap].discreet : std::wstring(1, *at);
        if (gap < words.size()) at += 2;
    }
    return text;
}

}
