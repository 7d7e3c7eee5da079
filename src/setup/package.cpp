#include "setup/package.h"

#include "automation/text.h"

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

bool Package::hasOtherVersion() const
{
    const std::wstring family = property(L"UpgradeCode");
    const std::wstring own = property(L"ProductCode");
    wchar_t product[39];
    for (DWORD index = 0; MsiEnumRelatedProductsW(family.c_str(), 0, index, product) == ERROR_SUCCESS; ++index)
        if (!automation::equalIgnoringCase(product, own)) return true;
    return false;
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
