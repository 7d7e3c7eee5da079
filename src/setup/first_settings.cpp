#include "setup/first_settings.h"

#include "automation/owners.h"
#include "automation/text.h"
#include "common/ini_file.h"

#include <stdexcept>

namespace hublink::setup {

namespace {

constexpr const wchar_t* programKey = L"SOFTWARE\\Hublink";
constexpr const wchar_t* settingsKey = L"SOFTWARE\\Hublink\\Settings";
constexpr const wchar_t* madeFolderName = L"Connector folder";

void require(LSTATUS result, const char* what)
{
    if (result != ERROR_SUCCESS) throw std::runtime_error(std::string(what) + ": error " + std::to_string(result));
}

// Empty when there is none.
automation::RegistryKey keyToRead(const wchar_t* name)
{
    HKEY opened = nullptr;
    RegOpenKeyExW(HKEY_LOCAL_MACHINE, name, 0, KEY_READ, &opened);
    return automation::RegistryKey(opened);
}

automation::RegistryKey keyToRemember()
{
    HKEY opened = nullptr;
    require(RegCreateKeyExW(HKEY_LOCAL_MACHINE, settingsKey, 0, nullptr, 0, KEY_READ | KEY_WRITE, nullptr, &opened,
                            nullptr),
            "the settings cannot be remembered");
    return automation::RegistryKey(opened);
}

void store(const automation::RegistryKey& key, const wchar_t* name, const std::wstring& value)
{
    require(RegSetValueExW(key.get(), name, 0, REG_SZ, reinterpret_cast<const BYTE*>(value.c_str()),
                           static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t))),
            "a setting cannot be remembered");
}

std::wstring stored(const automation::RegistryKey& key, const wchar_t* name)
{
    DWORD size = 0;
    DWORD type = REG_NONE;
    if (!key) return {};
    if (RegQueryValueExW(key.get(), name, nullptr, &type, nullptr, &size) != ERROR_SUCCESS || type != REG_SZ) return {};
    std::wstring value(size / sizeof(wchar_t), L'\0');
    require(RegQueryValueExW(key.get(), name, nullptr, nullptr, reinterpret_cast<BYTE*>(value.data()), &size),
            "a remembered setting cannot be read");
    return value.substr(0, value.find(L'\0'));
}

bool isEmpty(const wchar_t* name)
{
    const automation::RegistryKey key = keyToRead(name);
    DWORD keys = 0, values = 0;
    return key &&
           RegQueryInfoKeyW(key.get(), nullptr, nullptr, nullptr, &keys, nullptr, nullptr, &values, nullptr, nullptr,
                            nullptr, nullptr) == ERROR_SUCCESS &&
           keys == 0 && values == 0;
}

}

const std::vector<Setting>& settingProperties()
{
    static const std::vector<Setting> given = [] {
        std::vector<Setting> settings(std::begin(settingsTable), std::end(settingsTable));
        std::erase_if(settings, [](const Setting& each) { return !each.property; });
        return settings;
    }();
    return given;
}

void addGiven(const Package& package, ActionData& data)
{
    for (const Setting& each : settingProperties())
        if (const std::wstring value = package.property(each.property); !value.empty()) data.add(each.property, value);
}

void writeInto(const std::wstring& iniFile, const ActionData& data)
{
    const IniFile ini(iniFile);
    for (const Setting& each : settingProperties()) {
        const std::wstring value = data.value(each.property);
        if (!value.empty() && !ini.write(each, automation::toAnsi(value).c_str()))
            throw std::runtime_error("cannot write " + std::string(each.key) + " into " + automation::toAnsi(iniFile));
    }
}

ActionData withRemembered(const ActionData& given)
{
    const automation::RegistryKey key = keyToRead(settingsKey);
    ActionData all;
    for (const Setting& each : settingProperties()) {
        std::wstring value = given.value(each.property);
        if (value.empty()) value = stored(key, each.property);
        if (!value.empty()) all.add(each.property, value);
    }
    return all;
}

void remember(const ActionData& given)
{
    for (const Setting& each : settingProperties())
        if (const std::wstring value = given.value(each.property); !value.empty())
            store(keyToRemember(), each.property, value);
}

void rememberMadeFolder(const std::wstring& folder)
{
    store(keyToRemember(), madeFolderName, folder);
}

std::wstring madeFolder()
{
    return stored(keyToRead(settingsKey), madeFolderName);
}

void forgetAll()
{
    RegDeleteKeyW(HKEY_LOCAL_MACHINE, settingsKey);
    if (isEmpty(programKey)) RegDeleteKeyW(HKEY_LOCAL_MACHINE, programKey);
}

}
