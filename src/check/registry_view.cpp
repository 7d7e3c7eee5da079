#include "check/registry_view.h"

#include "automation/owners.h"

namespace hublink::check {

namespace {

using automation::RegistryKey;

RegistryKey opened(HKEY root, const std::wstring& key, REGSAM access)
{
    HKEY handle = nullptr;
    if (RegOpenKeyExW(root, key.c_str(), 0, access, &handle) != ERROR_SUCCESS) return {};
    return RegistryKey(handle);
}

std::wstring expanded(const std::wstring& text)
{
    std::wstring result(32'768, L'\0'); // the longest that the function makes
    const DWORD size = ExpandEnvironmentStringsW(text.c_str(), result.data(), static_cast<DWORD>(result.size()));
    if (size == 0 || size > result.size()) return text;
    result.resize(size - 1);
    return result;
}

}

std::wstring textInView(HKEY root, const std::wstring& key, const wchar_t* value, REGSAM view)
{
    const RegistryKey owned = opened(root, key, KEY_QUERY_VALUE | view);
    DWORD type = REG_NONE;
    DWORD size = 0;
    if (!owned || RegQueryValueExW(owned.get(), value, nullptr, &type, nullptr, &size) != ERROR_SUCCESS) return L"";
    if (type != REG_SZ && type != REG_EXPAND_SZ) return L"";
    std::wstring text(size / sizeof(wchar_t), L'\0');
    size = static_cast<DWORD>(text.size() * sizeof(wchar_t));
    if (RegQueryValueExW(owned.get(), value, nullptr, &type, reinterpret_cast<BYTE*>(text.data()), &size) !=
        ERROR_SUCCESS)
        return L"";
    text.resize(size / sizeof(wchar_t));
    text.resize(text.find(L'\0') == std::wstring::npos ? text.size() : text.find(L'\0'));
    return type == REG_EXPAND_SZ ? expanded(text) : text;
}

bool keyIsWritable(HKEY root, const std::wstring& key)
{
    return static_cast<bool>(opened(root, key, KEY_SET_VALUE));
}

bool isFolder(const std::wstring& path)
{
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

}
