#include "check/discreet_path.h"

#include "common/text.h"

#include <windows.h>

#include <algorithm>
#include <vector>

namespace hublink::check {

namespace {

constexpr const wchar_t* separators = L"\\/";
constexpr std::size_t minNameLength = 3; // a shorter one is a part of many words

using Parts = std::vector<std::wstring>;

std::wstring environment(const wchar_t* name)
{
    wchar_t value[1024];
    const DWORD length = GetEnvironmentVariableW(name, value, 1024);
    return length < 1024 ? std::wstring(value, length) : L"";
}

// The user's names, as folders bear them, in lower case.
Parts namesOfUser()
{
    const std::wstring profile = environment(L"USERPROFILE");
    Parts names{environment(L"USERNAME"), profile.substr(profile.find_last_of(separators) + 1)};
    for (std::wstring& name : names) name = lowerCase(std::move(name));
    std::erase(names, L"");
    return names;
}

bool containsUserName(const std::wstring& part, const Parts& names)
{
    return std::any_of(names.begin(), names.end(), [&](const std::wstring& name) {
        return part == name || (name.size() >= minNameLength && part.find(name) != std::wstring::npos);
    });
}

bool holdsProfiles(const std::wstring& part)
{
    return isOneOf(part, {L"users", L"documents and settings", L"dokumente und einstellungen"}) ||
           part.starts_with(L"docume~") || part.starts_with(L"dokume~");
}

bool isNobodysProfile(const std::wstring& part)
{
    return isOneOf(part, {L"public", L"default", L"default user", L"all users"});
}

// A short name says enough of a long one: ANNAKE~1.
bool isUnknownShortName(const std::wstring& part)
{
    const std::size_t tilde = part.find(L'~');
    if (tilde == std::wstring::npos || tilde + 1 == part.size()) return false;
    if (part[tilde + 1] < L'0' || part[tilde + 1] > L'9') return false;
    return !isOneOf(part.substr(0, tilde), {L"progra", L"docume", L"micros", L"common", L"applic", L"locals"});
}

// Which part is the server of a shared folder: \\server\folder, \\?\UNC\server\folder.
// That many as there are of a path without one.
std::size_t serverPart(const Parts& parts)
{
    if (parts.size() < 3 || !parts[0].empty() || !parts[1].empty()) return parts.size();
    if (!isOneOf(parts[2], {L"?", L"."})) return 2;
    return parts.size() > 4 && parts[3] == L"unc" ? 4 : parts.size();
}

Parts partsOf(std::wstring path)
{
    std::replace(path.begin(), path.end(), L'/', L'\\');
    return split(lowerCase(std::move(path)), L'\\');
}

}

std::wstring discreetPath(const std::wstring& path)
{
    const Parts names = namesOfUser();
    const Parts parts = partsOf(path);
    const std::size_t server = serverPart(parts);
    std::wstring text;
    std::size_t start = 0;
    for (std::size_t k = 0; k < parts.size(); ++k) {
        const std::wstring& part = parts[k];
        const bool isProfile = k > 0 && holdsProfiles(parts[k - 1]) && !part.empty() && !isNobodysProfile(part);
        const bool isHidden = k == server || isProfile || isUnknownShortName(part) || containsUserName(part, names);
        text += isHidden ? hidden : path.substr(start, part.size());
        start += part.size();
        text += path.substr(start++, 1); // what separates it from the next one
    }
    return text;
}

}
