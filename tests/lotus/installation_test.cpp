#include "lotus/installation.h"

#include "common/files.h"

#include "lotus_fixture.h"

namespace hublink {

namespace {

constexpr const wchar_t* notesKey = L"SOFTWARE\\Lotus\\Notes";

// A release's key in the machine's registry, made for one test.
class ReleaseKey {
public:
    explicit ReleaseKey(const wchar_t* release) : path_(notesKey + (L'\\' + std::wstring(release)))
    {
        RegCreateKeyExW(HKEY_LOCAL_MACHINE, path_.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key_, nullptr);
    }
    ~ReleaseKey()
    {
        RegCloseKey(key_);
        RegDeleteKeyW(HKEY_LOCAL_MACHINE, path_.c_str());
        RegDeleteKeyW(HKEY_LOCAL_MACHINE, notesKey);              // these two as soon as
        RegDeleteKeyW(HKEY_LOCAL_MACHINE, L"SOFTWARE\\Lotus");    // nothing is in them
    }
    ReleaseKey(const ReleaseKey&) = delete;
    ReleaseKey& operator=(const ReleaseKey&) = delete;

    const ReleaseKey& set(const wchar_t* name, const std::wstring& value, DWORD type = REG_SZ) const
    {
        RegSetValueExW(key_, name, 0, type, reinterpret_cast<const BYTE*>(value.c_str()),
                       static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t)));
        return *this;
    }

private:
    const std::wstring path_;
    HKEY key_ = nullptr;
};

class LotusInstallation : public LotusFixture {
protected:
    LotusInstallation()
    {
        host.folder = folder.folder(L"Hublink");
        for (const wchar_t* name : {L"program4", L"data4", L"program5", L"data5"}) folder.folder(name);
        for (const wchar_t* name : {L"ConnectorIni.dll", L"pavexconnectorconfig.nsf", L"pavexhistory.nsf"})
            folder.write(std::wstring(L"Hublink\\") + name, "ours");
        notes.load(L"[database]\nFile=pavexhistory.nsf\n[database]\nFile=pavexconnectorconfig.nsf\n");
    }

    // Which of the three files are in a folder, "dll", "config" and "history".
    std::wstring in(const wchar_t* name) const
    {
        std::wstring found;
        const struct {
            const wchar_t* file;
            const wchar_t* sign;
        } files[] = {{L"ConnectorIni.dll", L"dll "},
                     {L"pavexconnectorconfig.nsf", L"config "},
                     {L"pavexhistory.nsf", L"history "}};
        for (const auto& each : files)
            if (support::readFile(folder.file(std::wstring(name) + L"\\" + each.file)) == "ours") found += each.sign;
        return found;
    }

    static inline const std::vector<std::wstring> bothAdded{
        L"NotesUIWorkspace.AddDatabase method (BSTR \"\", BSTR \"pavexhistory.nsf\")",
        L"NotesUIWorkspace.AddDatabase method (BSTR \"\", BSTR \"pavexconnectorconfig.nsf\")"};
};

}

TEST_F(LotusInstallation, WithoutNotesInTheRegistry_NothingIsCopied_AndTheWorkspaceNotTouched)
{
    InstallLotusDatabases(session);
    EXPECT_EQ(in(L"program5") + in(L"data5") + in(L"program4") + in(L"data4"), L"");
    EXPECT_EQ(notes.recorder().calls().size(), 0u);
    EXPECT_EQ(trapped.errors, std::vector<std::string>{});
}

TEST_F(LotusInstallation, Release5_TakesPrecedenceOver4)
{
    const ReleaseKey four(L"4.0");
    four.set(L"Path", folder.file(L"program4")).set(L"DataPath", folder.file(L"data4"));
    const ReleaseKey five(L"5.0");
    five.set(L"Path", folder.file(L"program5")).set(L"DataPath", folder.file(L"data5"));
    InstallLotusDatabases(session);
    EXPECT_EQ(in(L"program5"), L"dll ");
    EXPECT_EQ(in(L"data5"), L"config history ");
    EXPECT_EQ(in(L"program4") + in(L"data4"), L"");
    EXPECT_EQ(record(), bothAdded);
    EXPECT_EQ(notes.ask(L"icons"), L"pavexhistory.nsf\npavexconnectorconfig.nsf\thighlighted");
}

TEST_F(LotusInstallation, OnlyRelease4_GivesBothFolders)
{
    const ReleaseKey four(L"4.0");
    four.set(L"Path", folder.file(L"program4")).set(L"DataPath", folder.file(L"data4"));
    InstallLotusDatabases(session);
    EXPECT_EQ(in(L"program4"), L"dll ");
    EXPECT_EQ(in(L"data4"), L"config history ");
    EXPECT_EQ(record(), bothAdded);
}

TEST_F(LotusInstallation, Release5WithAnEmptyPath_FallsBackTo4_ForBothFolders)
{
    const ReleaseKey four(L"4.0");
    four.set(L"Path", folder.file(L"program4")).set(L"DataPath", folder.file(L"data4"));
    const ReleaseKey five(L"5.0");
    five.set(L"Path", L"").set(L"DataPath", folder.file(L"data5"));
    InstallLotusDatabases(session);
    EXPECT_EQ(in(L"program4"), L"dll ");
    EXPECT_EQ(in(L"data4"), L"config history ");
    EXPECT_EQ(in(L"data5"), L"");
}

TEST_F(LotusInstallation, Release5WithoutAPath_HoldsAllTheSame)
{
    const ReleaseKey four(L"4.0");
    four.set(L"Path", folder.file(L"program4")).set(L"DataPath", folder.file(L"data4"));
    const ReleaseKey five(L"5.0");
    five.set(L"DataPath", folder.file(L"data5"));
    InstallLotusDatabases(session);
    EXPECT_EQ(in(L"program4") + in(L"data4"), L"") << "a missing value is no empty one";
    EXPECT_EQ(in(L"data5"), L"config history ");
    EXPECT_EQ(record(), bothAdded);
    EXPECT_FALSE(FileExist(L"--Not String--"));
}

TEST_F(LotusInstallation, Release5WithoutADataPath_GetsTheAddInOnly)
{
    const ReleaseKey four(L"4.0");
    four.set(L"Path", folder.file(L"program4")).set(L"DataPath", folder.file(L"data4"));
    const ReleaseKey five(L"5.0");
    five.set(L"Path", folder.file(L"program5"));
    InstallLotusDatabases(session);
    EXPECT_EQ(in(L"program5"), L"dll ");
    EXPECT_EQ(in(L"program4") + in(L"data4"), L"");
    EXPECT_EQ(notes.recorder().calls().size(), 0u);
    EXPECT_FALSE(FileExist(L"--Not String--"));
}

TEST_F(LotusInstallation, OnlyADataPath_GetsTheDatabases_AndTheirPlaceOnTheWorkspace)
{
    const ReleaseKey four(L"4.0");
    four.set(L"DataPath", folder.file(L"data4"));
    InstallLotusDatabases(session);
    EXPECT_EQ(in(L"data4"), L"config history ");
    EXPECT_EQ(record(), bothAdded);
}

TEST_F(LotusInstallation, ValueThatIsNoText_OrTooLong_CountsAsNoFolder)
{
    const ReleaseKey five(L"5.0");
    five.set(L"Path", folder.file(L"program5"), REG_EXPAND_SZ).set(L"DataPath", std::wstring(300, L'x'));
    InstallLotusDatabases(session);
    EXPECT_EQ(in(L"program5"), L"");
    EXPECT_EQ(notes.recorder().calls().size(), 0u);
}

TEST_F(LotusInstallation, FilesThatAreThereAlready_AreLeftAlone)
{
    folder.write(L"program5\\ConnectorIni.dll", "theirs");
    folder.write(L"data5\\pavexhistory.nsf", "theirs");
    const ReleaseKey five(L"5.0");
    five.set(L"Path", folder.file(L"program5")).set(L"DataPath", folder.file(L"data5"));
    InstallLotusDatabases(session);
    EXPECT_EQ(in(L"program5"), L"");
    EXPECT_EQ(in(L"data5"), L"config ");
}

TEST_F(LotusInstallation, ProgramFolderWithoutTheFiles_CopiesNothing_ButAddsTheDatabases)
{
    host.folder = folder.folder(L"empty");
    const ReleaseKey five(L"5.0");
    five.set(L"Path", folder.file(L"program5")).set(L"DataPath", folder.file(L"data5"));
    InstallLotusDatabases(session);
    EXPECT_FALSE(FileExist(folder.file(L"program5\\ConnectorIni.dll")));
    EXPECT_FALSE(FileExist(folder.file(L"data5\\pavexconnectorconfig.nsf")));
    EXPECT_FALSE(FileExist(folder.file(L"data5\\pavexhistory.nsf")));
    EXPECT_EQ(record(), bothAdded);
}

TEST_F(LotusInstallation, WorkspaceThatRefuses_IsNoFailureOfTheInitialisation)
{
    const ReleaseKey five(L"5.0");
    five.set(L"DataPath", folder.file(L"data5")).set(L"Path", folder.file(L"program5"));
    fault(L"on NotesUIWorkspace.AddDatabase fail 0x80004005");
    AddDatabasesToWorkspace();
    EXPECT_EQ(trapped.procedures, std::vector<std::wstring>{L"AddDatabasesToWorkspace"});
    EXPECT_EQ(record(), std::vector<std::wstring>{bothAdded[0]}) << "the first failure ends it";
    writeIni("");
    InitLotus(session, NewLog::yes);
    EXPECT_TRUE(session.LotusReady);
}

TEST_F(LotusInstallation, Initialisation_InstallsAfterTheUserName_BeforeTheLog)
{
    const ReleaseKey five(L"5.0");
    five.set(L"Path", folder.file(L"program5")).set(L"DataPath", folder.file(L"data5"));
    writeIni("[lotus personnel log description]\nbase=log.nsf||||\n");
    InitLotus(session, NewLog::no);
    const std::vector<std::wstring> called = record();
    ASSERT_GT(called.size(), 5u);
    EXPECT_EQ(called[2], L"NotesSession.SetEnvironmentVar method (BSTR \"CTI_PavexUserName\", BSTR \"\")");
    EXPECT_EQ(called[3], bothAdded[0]);
    EXPECT_EQ(called[4], bothAdded[1]);
    EXPECT_EQ(called[5], L"NotesSession.GetDatabase method (BSTR \"\", BSTR \"log.nsf\")");
    EXPECT_EQ(in(L"program5") + in(L"data5"), L"dll config history ");
}

}
