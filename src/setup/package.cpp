#include "setup/package.h"

#include <msiquery.h>

#include <stdexcept>

namespace hublink::setup {

std::wstring Package::property(const std::wstring& name) const
{
    wchar_t none[] = L"";
    DWORD length = 0;
    if (MsiGetPropertyW(handle_, name.c_str(), none, &length) != ERROR_MORE_DATA) return {};
    std::wstring value(++length, L'\0');
    if (MsiGetPropertyW(handle_, name.c_str(), value.data(), &length) != ERROR_SUCCESS)
        throw std::runtime_error("a property cannot be read");
    value.resize(length);
    return value;
}

void Package::setProperty(const std::wstring& name, const std::wstring& value) const
{
    if (MsiSetPropertyW(handle_, name.c_str(), value.c_str()) != ERROR_SUCCESS)
        throw std::runtime_error("a property cannot be set");
}

void Package::log(const std::wstring& line) const
{
    const MSIHANDLE record = MsiCreateRecord(1);
    if (!record) return;
    MsiRecordSetStringW(record, 0, L"Hublink: [1]");
    MsiRecordSetStringW(record, 1, line.c_str());
    MsiProcessMessage(handle_, INSTALLMESSAGE_INFO, record);
    MsiCloseHandle(record);
}

}
