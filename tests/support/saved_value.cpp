#include "support/saved_value.h"

#include "automation/text.h"

#include <gtest/gtest.h>

#include <utility>

namespace support {

namespace {

std::wstring classKey(const std::wstring& progId)
{
    return L"Software\\Classes\\" + progId + L"\\CLSID";
}

}

SavedValue::SavedValue(HKEY root, std::wstring key, std::wstring name)
    : root_(root), key_(std::move(key)), name_(std::move(name))
{
    HKEY opened = nullptr;
    if (RegOpenKeyExW(root_, key_.c_str(), 0, KEY_READ, &opened) != ERROR_SUCCESS) return;
    DWORD size = 0;
    if (RegQueryValueExW(opened, name_.c_str(), nullptr, &type_, nullptr, &size) == ERROR_SUCCESS) {
        content_.emplace(size, '\0');
        RegQueryValueExW(opened, name_.c_str(), nullptr, &type_, reinterpret_cast<BYTE*>(content_->data()), &size);
    }
    RegCloseKey(opened);
}

SavedValue::~SavedValue()
{
    if (content_) {
        set(type_, content_->data(), content_->size());
    } else {
        removeValue();
        removeKey();
    }
}

void SavedValue::set(DWORD type, const void* data, std::size_t size) const
{
    HKEY opened = nullptr;
    RegCreateKeyExW(root_, key_.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &opened, nullptr);
    RegSetValueExW(opened, name_.c_str(), 0, type, static_cast<const BYTE*>(data), static_cast<DWORD>(size));
    RegCloseKey(opened);
}

void SavedValue::removeValue() const
{
    HKEY opened = nullptr;
    if (RegOpenKeyExW(root_, key_.c_str(), 0, KEY_ALL_ACCESS, &opened) != ERROR_SUCCESS) return;
    RegDeleteValueW(opened, name_.c_str());
    RegCloseKey(opened);
}

void SavedValue::removeKey() const
{
    HKEY opened = nullptr;
    DWORD values = 0;
    if (RegOpenKeyExW(root_, key_.c_str(), 0, KEY_READ, &opened) != ERROR_SUCCESS) return;
    RegQueryInfoKeyW(opened, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, &values, nullptr, nullptr, nullptr,
                     nullptr);
    RegCloseKey(opened);
    if (values == 0) RegDeleteKeyW(root_, key_.c_str());
}

HiddenClass::HiddenClass(const std::wstring& progId)
    : machine_(HKEY_LOCAL_MACHINE, classKey(progId), L""), user_(HKEY_CURRENT_USER, classKey(progId), L"")
{
    machine_.removeValue();
    machine_.removeKey();
    user_.removeValue();
    user_.removeKey();
    CLSID ignored;
    EXPECT_TRUE(FAILED(CLSIDFromProgID(progId.c_str(), &ignored))) << automation::toAnsi(progId) << " is in reach";
}

HiddenClass::~HiddenClass() = default;

}
