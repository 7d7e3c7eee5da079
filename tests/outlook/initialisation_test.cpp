#include "outlook/initialisation.h"

#include "outlook/settings.h"
#include "outlook/settings_reading.h"
#include "outlook_fixture.h"

namespace hublink {

namespace {

class OutlookSettings : public OutlookFixture {
protected:
    OutlookSettings()
    {
        host.settings.szPathPavex = folder.path();
        host.settings.szFileConnectorIni = folder.file(L"pavexconnector.ini");
    }

    void write(const std::string& section) { folder.write(L"pavexconnector.ini", "[outlook]\r\n" + section); }

    support::ScratchFolder folder;
};

class OutlookInitialisation : public OutlookSettings {
protected:
    automation::Object application() { return automation::Object(outlook.application().get()); }
};

constexpr const wchar_t* extensionsKey = L"SOFTWARE\\Microsoft\\Exchange\\Client\\Extensions";

// The machine's key for Exchange client extensions, made for one test.
class ExtensionsKey {
public:
    ExtensionsKey()
    {
        RegCreateKeyExW(HKEY_LOCAL_MACHINE, extensionsKey, 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key_, nullptr);
    }
    ~ExtensionsKey()
    {
        RegCloseKey(key_);
        RegDeleteKeyW(HKEY_LOCAL_MACHINE, extensionsKey);
    }
    ExtensionsKey(const ExtensionsKey&) = delete;
    ExtensionsKey& operator=(const ExtensionsKey&) = delete;

    std::string value(const char* name) const
    {
        char text[256] = "";
        DWORD size = sizeof text;
        return RegQueryValueExA(key_, name, nullptr, nullptr, reinterpret_cast<BYTE*>(text), &size) == ERROR_SUCCESS
                   ? text
                   : "(none)";
    }

    void remove(const wchar_t* name) const { RegDeleteValueW(key_, name); }

private:
    HKEY key_ = nullptr;
};

}

TEST_F(OutlookSettings, MissingFile_GivesTheDefaults)
{
    session.bReplacePhoneNumber = false;
    session.bQuitOutlook = true;
    session.nLanguage = 7;
    EXPECT_TRUE(ReadOutlookIni(session)) << "the three watched texts were and are empty";
    EXPECT_EQ(session.szCallBackMailSyntaxe, L"");
    EXPECT_TRUE(session.bReplacePhoneNumber);
    EXPECT_FALSE(session.bQuitOutlook);
    EXPECT_EQ(session.nLanguage, 0);
}

TEST_F(OutlookSettings, ReplacePhoneNumberInUpperCase_IsFalse)
{
    write("ReplacePhoneNumber=TRUE\r\n");
    ReadOutlookIni(session);
    EXPECT_FALSE(session.bReplacePhoneNumber);
}

TEST_F(OutlookSettings, EveryKey_IsRead)
{
    write("CallBackMailSyntaxe=Call <LastName>\r\nReplacePhoneNumber=false\r\nquitoutlook=true\r\nlanguage=1036\r\n");
    ReadOutlookIni(session);
    EXPECT_EQ(session.szCallBackMailSyntaxe, L"Call <LastName>");
    EXPECT_FALSE(session.bReplacePhoneNumber);
    EXPECT_TRUE(session.bQuitOutlook);
    EXPECT_EQ(session.nLanguage, 1036);
}

TEST_F(OutlookSettings, ChangedTemplate_IsFalse_AndEndsTheSession)
{
    session.bOutlookInit = true;
    write("CallBackMailSyntaxe=new\r\n");
    EXPECT_FALSE(ReadOutlookIni(session));
    EXPECT_FALSE(session.bOutlookInit);
    session.bOutlookInit = true;
    EXPECT_TRUE(ReadOutlookIni(session));
    EXPECT_TRUE(session.bOutlookInit);
}

TEST_F(OutlookSettings, NonNumericLanguage_EndsTheReading_WithWhatWasRead)
{
    session.nLanguage = 5;
    write(
        "CallBackMailSyntaxe=read\r\nquitoutlook=true\r\nlanguage=abc\r\nExtension=true\r\nDllExtensionName=Name\r\n");
    EXPECT_FALSE(ReadOutlookIni(session));
    EXPECT_EQ(session.szCallBackMailSyntaxe, L"read");
    EXPECT_TRUE(session.bQuitOutlook);
    EXPECT_EQ(session.nLanguage, 5);
    EXPECT_EQ(session.szDllExtensionName, L"");
}

TEST_F(OutlookSettings, WithoutExtension_NothingIsRegistered_AndTheTextsStay)
{
    const ExtensionsKey key;
    for (const char* value : {"", "Extension=True\r\n", "Extension=false\r\n", "Extension=1\r\n"}) {
        session.szDllExtensionName = L"kept name";
        session.szRegisteDllExtension = L"kept value";
        write(std::string(value) + "DllExtensionName=Hub\r\nRegisteDllExtension=4.0\r\n");
        EXPECT_TRUE(ReadOutlookIni(session));
        EXPECT_EQ(session.szDllExtensionName, L"kept name");
        EXPECT_EQ(session.szRegisteDllExtension, L"kept value");
        EXPECT_EQ(key.value("Hub"), "(none)");
        EXPECT_EQ(key.value("kept name"), "(none)");
    }
}

TEST_F(OutlookSettings, Extension_EveryPlaceholderIsReplaced_AndTheValueRegistered)
{
    const ExtensionsKey key;
    write("Extension=true\r\nDllExtension=hub.dll\r\nDllExtensionName=Hub\r\nPathDllExtension=C:\\x\r\n"
          "RegisteDllExtension=4.0;<PathDllExtension>\\<DllExtension>;<DllExtension>\r\n");
    EXPECT_FALSE(ReadOutlookIni(session));
    EXPECT_EQ(session.szDllExtensionName, L"Hub");
    EXPECT_EQ(session.szRegisteDllExtension, L"4.0;C:\\x\\hub.dll;hub.dll");
    EXPECT_EQ(key.value("Hub"), "4.0;C:\\x\\hub.dll;hub.dll");
}

TEST_F(OutlookSettings, ExtensionWithoutAPath_TakesTheProgramsFolder)
{
    host.folder = L"D:\\Hublink";
    write("Extension=true\r\nDllExtension=a.dll\r\nDllExtensionName=Hub\r\nRegisteDllExtension=<PathDllExtension>\\<"
          "DllExtension>\r\n");
    ReadOutlookIni(session);
    EXPECT_EQ(session.szRegisteDllExtension, L"D:\\Hublink\\a.dll");
}

TEST_F(OutlookSettings, ExtensionWithTheSoftphonesFolderUnknown_IsRead_ButNotRegistered)
{
    const ExtensionsKey key;
    write("Extension=true\r\nDllExtensionName=Hub\r\nRegisteDllExtension=4.0\r\n");
    for (const wchar_t* unknown : {L"", L"--Not String--"}) {
        host.settings.szPathPavex = unknown;
        ReadOutlookIni(session);
        EXPECT_EQ(session.szRegisteDllExtension, L"4.0");
        EXPECT_EQ(key.value("Hub"), "(none)");
    }
}

TEST_F(OutlookSettings, ExtensionUnchanged_IsRegisteredAtEveryCall)
{
    const ExtensionsKey key;
    write("Extension=true\r\nDllExtensionName=Hub\r\nRegisteDllExtension=4.0\r\n");
    ReadOutlookIni(session);
    key.remove(L"Hub");
    EXPECT_EQ(key.value("Hub"), "(none)");
    EXPECT_TRUE(ReadOutlookIni(session));
    EXPECT_EQ(key.value("Hub"), "4.0");
}

TEST_F(OutlookSettings, ReadAlone_AskForAnExtension_ButRegisterNone_AndLeaveTheSessionOpen)
{
    const ExtensionsKey key;
    session.bOutlookInit = true;
    write("CallBackMailSyntaxe=new\r\nExtension=true\r\nDllExtensionName=Hub\r\nRegisteDllExtension=4.0\r\n");
    const IniFile ini(host.settings.szFileConnectorIni);
    EXPECT_EQ(readOutlookSettings(ini, host.folder, session), ExtensionUse::registered);
    EXPECT_EQ(session.szRegisteDllExtension, L"4.0");
    EXPECT_EQ(key.value("Hub"), "(none)");
    EXPECT_TRUE(session.bOutlookInit);
    write("Extension=True\r\n");
    EXPECT_EQ(readOutlookSettings(ini, host.folder, session), ExtensionUse::none);
}

TEST_F(OutlookInitialisation, SwitchedOff_EndsTheSession_AndTouchesNothing)
{
    session.OutlookApp = application();
    session.bOutlookInit = true;
    host.settings.bgWithOutlook = false;
    InitOutlook(session);
    EXPECT_FALSE(session.bOutlookInit);
    EXPECT_TRUE(session.OutlookApp);
    EXPECT_EQ(recorder.calls().size(), 0u);
}

TEST_F(OutlookInitialisation, HeldApplication_IsReused_AndTheFoldersFetchedInOrder)
{
    session.OutlookApp = application();
    InitOutlook(session);
    EXPECT_TRUE(session.bOutlookInit);
    EXPECT_EQ(carriedOut(), (std::vector<std::wstring>{L"Application.GetNamespace method (BSTR \"MAPI\")",
                                                       L"NameSpace.GetDefaultFolder method (I2 10)",
                                                       L"NameSpace.GetDefaultFolder method (I2 6)",
                                                       L"NameSpace.GetDefaultFolder method (I2 11)"}));
    EXPECT_EQ(session.OutlookContacts.get(L"Name").text(), L"Contacts");
    EXPECT_EQ(session.OutlookInbox.get(L"Name").text(), L"Inbox");
    EXPECT_EQ(session.OutlookJournal.get(L"Name").text(), L"Journal");
}

TEST_F(OutlookInitialisation, SecondInitWhileInitialised_NeitherReadsTheIniNorTouchesOutlook)
{
    open();
    write("CallBackMailSyntaxe=changed\r\n");
    InitOutlook(session);
    EXPECT_EQ(session.szCallBackMailSyntaxe, L"");
    EXPECT_EQ(recorder.calls().size(), 0u);
}

TEST_F(OutlookInitialisation, WithTrace_AReinitialisationIsShown)
{
    host.settings.Trace = true;
    session.OutlookApp = application();
    InitOutlook(session);
    EXPECT_EQ(host.messages, (std::vector<std::wstring>{L"ReInit Outlook"}));
}

TEST_F(OutlookInitialisation, Failure_ClearsTheApplication_AndCounts)
{
    host.settings.Trace = true;
    session.OutlookApp = application();
    recorder.faults.add(L"on NameSpace.GetDefaultFolder fail 0x80004005");
    InitOutlook(session);
    EXPECT_FALSE(session.bOutlookInit);
    EXPECT_FALSE(session.OutlookApp);
    EXPECT_EQ(groupware.nbInitFailure, 1);
    EXPECT_EQ(host.messages, (std::vector<std::wstring>{L"ReInit Outlook", L"Pb Init Outlook"}));
}

TEST_F(OutlookInitialisation, FailureCounter_IsComparedForEqualityOnly_AndNeverStops)
{
    recorder.faults.add(L"on NameSpace.GetDefaultFolder fail 0x80004005");
    for (const std::int16_t limit : {std::int16_t{-1}, std::int16_t{0}}) {
        host.settings.gnb_echec = limit;
        for (int failures = 0; failures < 20; ++failures) {
            session.OutlookApp = application();
            InitOutlook(session);
        }
    }
    EXPECT_EQ(groupware.nbInitFailure, 40);
    EXPECT_EQ(host.stops, 0);
}

TEST_F(OutlookInitialisation, FailureCounterEqualToTheLimit_Stops)
{
    groupware.nbInitFailure = -2; // it cannot get there by itself
    host.settings.gnb_echec = -1;
    session.OutlookApp = application();
    recorder.faults.add(L"on Application.GetNamespace fail 0x80004005");
    InitOutlook(session);
    EXPECT_EQ(host.stops, 1);
}

TEST_F(OutlookInitialisation, FailureCounterOverflow_EndsTheHandlerOnly)
{
    groupware.nbInitFailure = 32767;
    session.OutlookApp = application();
    recorder.faults.add(L"on Application.GetNamespace fail 0x80004005");
    InitOutlook(session);
    EXPECT_EQ(groupware.nbInitFailure, 32767);
    EXPECT_FALSE(session.bOutlookInit);
    EXPECT_FALSE(session.OutlookApp);
    EXPECT_EQ(host.stops, 0);
}

TEST_F(OutlookInitialisation, NonNumericLanguage_DoesNotKeepTheSessionClosed)
{
    write("language=abc\r\n");
    session.OutlookApp = application();
    InitOutlook(session);
    EXPECT_TRUE(session.bOutlookInit);
}

}
