// A computer on which nothing of Hublink has ever been, with the softphone or without.
#pragma once

#include "common/ini_file.h"
#include "desk/player/windows_files.h"
#include "installer/windows_installer.h"
#include "support/scratch_folder.h"

#include <gtest/gtest.h>

class InstallerTest : public testing::Test {
protected:
    static constexpr const wchar_t* folder = L"C:\\Program Files\\Hublink";
    static constexpr const wchar_t* softphoneKey =
        L"SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\App Paths\\Pavex.exe";
    static constexpr const wchar_t* runKey = L"SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Run";
    static constexpr const wchar_t* mapClassKey = L"SOFTWARE\\Classes\\PavexConvId.OrvelConvertId\\CLSID";
    static constexpr const wchar_t* mapServerKey =
        L"SOFTWARE\\Classes\\CLSID\\{6FC819A5-645C-4241-8809-6BBBE1AF913F}\\LocalServer32";

    void installSoftphone(const std::wstring& where = L"C:\\Pavex")
    {
        softphone = where;
        desk::player::makeFolder(where);
        installer::setRegistryText(HKEY_LOCAL_MACHINE, softphoneKey, L"Path", where);
    }

    std::wstring iniFile() const { return softphone + L"\\Connector\\pavexconnector.ini"; }

    std::string ini(const char* section, const char* key) const { return setting(iniFile(), section, key); }

    static std::string setting(const std::wstring& file, const char* section, const char* key)
    {
        char value[1024];
        GetPrivateProfileStringA(section, key, "(none)", value, sizeof value, automation::toAnsi(file).c_str());
        return value;
    }

    static void edit(const std::wstring& file, const char* section, const char* key, const char* value)
    {
        ASSERT_TRUE(WritePrivateProfileStringA(section, key, value, automation::toAnsi(file).c_str()));
    }

    std::wstring softphone;
};
