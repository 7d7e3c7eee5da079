#include "automation/registered_type_library.h"

#include "automation/owners.h"

#include <oleauto.h>

#include <algorithm>
#include <cwchar>
#include <string>
#include <utility>

namespace automation {

namespace {

// The identifier text of the type library that the class names, "" without one.
std::wstring libraryIdOf(const wchar_t* progId)
{
    CLSID classId;
    wchar_t classText[64];
    wchar_t libraryText[64];
    LONG size = sizeof libraryText;
    if (FAILED(CLSIDFromProgID(progId, &classId)) || !StringFromGUID2(classId, classText, 64)) return L"";
    const std::wstring key = std::wstring(L"CLSID\\") + classText + L"\\TypeLib";
    return RegQueryValueW(HKEY_CLASSES_ROOT, key.c_str(), libraryText, &size) == ERROR_SUCCESS ? libraryText : L"";
}

// The latest registered version of a type library. Versions are keys named
// "major.minor" in hexadecimal.
ComPtr<ITypeLib> loadLatestLibrary(const std::wstring& libraryText)
{
    ComPtr<ITypeLib> library;
    IID libraryId;
    HKEY opened = nullptr;
    if (FAILED(CLSIDFromString(const_cast<LPOLESTR>(libraryText.c_str()), &libraryId)) ||
        RegOpenKeyExW(HKEY_CLASSES_ROOT, (L"TypeLib\\" + libraryText).c_str(), 0, KEY_READ, &opened) != ERROR_SUCCESS)
        return library;
    const RegistryKey versions(opened);
    std::pair<unsigned long, unsigned long> latest{0, 0};
    wchar_t name[32];
    for (DWORD index = 0; RegEnumKeyW(versions.get(), index, name, 32) == ERROR_SUCCESS; ++index) {
        wchar_t* rest = nullptr;
        const unsigned long major = std::wcstoul(name, &rest, 16);
        latest = std::max(latest, {major, *rest == L'.' ? std::wcstoul(rest + 1, nullptr, 16) : 0});
    }
    LoadRegTypeLib(libraryId, static_cast<WORD>(latest.first), static_cast<WORD>(latest.second), LOCALE_NEUTRAL,
                   library.receive());
    return library;
}

}

ComPtr<ITypeLib> registeredTypeLibrary(const wchar_t* progId)
{
    return loadLatestLibrary(libraryIdOf(progId));
}

}
