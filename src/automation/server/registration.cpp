#include "automation/server/registration.h"

#include "automation/com_ptr.h"
#include "automation/error.h"
#include "automation/owners.h"

#include <oleauto.h>

namespace automation::server {

namespace {

std::wstring guidText(const GUID& guid)
{
    wchar_t text[64];
    StringFromGUID2(guid, text, 64);
    return text;
}

LSTATUS setDefaultValue(HKEY root, const std::wstring& key, const std::wstring& value)
{
    HKEY opened = nullptr;
    const LSTATUS result = RegCreateKeyExW(root, key.c_str(), 0, nullptr, 0, KEY_WRITE, nullptr, &opened, nullptr);
    if (result != ERROR_SUCCESS) return result;
    const RegistryKey owned(opened);
    return RegSetValueExW(owned.get(), nullptr, 0, REG_SZ, reinterpret_cast<const BYTE*>(value.c_str()),
                          static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t)));
}

LSTATUS writeClass(HKEY root, const ClassRegistration& registration, const std::wstring& program)
{
    const std::wstring classes = L"Software\\Classes\\";
    const std::wstring progId = classes + registration.progId;
    const std::wstring classKey = classes + L"CLSID\\" + guidText(registration.classId);
    const std::pair<std::wstring, std::wstring> entries[] = {
        {progId, registration.description},
        {progId + L"\\CLSID", guidText(registration.classId)},
        {classKey, registration.description},
        {classKey + L"\\ProgID", registration.progId},
        {classKey + L"\\LocalServer32", L"\"" + program + L"\""},
    };
    for (const auto& [key, value] : entries) {
        const LSTATUS result = setDefaultValue(root, key, value);
        if (result != ERROR_SUCCESS) return result;
    }
    if (registration.typeLibrary == GUID_NULL) return ERROR_SUCCESS;
    return setDefaultValue(root, classKey + L"\\TypeLib", guidText(registration.typeLibrary));
}

// RegDeleteKey removes only keys without subkeys, so the leaves go first.
void removeClass(HKEY root, const ClassRegistration& registration)
{
    const std::wstring classes = L"Software\\Classes\\";
    const std::wstring progId = classes + registration.progId;
    const std::wstring classKey = classes + L"CLSID\\" + guidText(registration.classId);
    for (const std::wstring& key : {progId + L"\\CLSID", progId, classKey + L"\\ProgID", classKey + L"\\LocalServer32",
                                    classKey + L"\\TypeLib", classKey})
        RegDeleteKeyW(root, key.c_str());
}

void registerTypeLibrary(const std::wstring& program)
{
    ComPtr<ITypeLib> library;
    check(LoadTypeLibEx(program.c_str(), REGKIND_REGISTER, library.receive()), L"LoadTypeLibEx");
}

}

void registerClass(const ClassRegistration& registration, const std::wstring& program)
{
    const LSTATUS result = writeClass(HKEY_CURRENT_USER, registration, program);
    if (result != ERROR_SUCCESS)
        throw AutomationError(registration.progId, HRESULT_FROM_WIN32(static_cast<DWORD>(result)));
    writeClass(HKEY_LOCAL_MACHINE, registration, program);
    if (registration.typeLibrary != GUID_NULL) registerTypeLibrary(program);
}

void unregisterClass(const ClassRegistration& registration)
{
    removeClass(HKEY_CURRENT_USER, registration);
    removeClass(HKEY_LOCAL_MACHINE, registration);
    if (registration.typeLibrary != GUID_NULL)
        UnRegisterTypeLib(registration.typeLibrary, 1, 0, LOCALE_NEUTRAL, SYS_WIN32);
}

std::wstring programPath()
{
    std::wstring path(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length = GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
        if (length < path.size()) {
            path.resize(length);
            return path;
        }
        path.resize(path.size() * 2);
    }
}

}
