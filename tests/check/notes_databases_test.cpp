// Notes' data folder as the registry names it, and the two databases in it.
#include "check/notes_databases.h"
#include "check_fixture.h"

#include "common/registry.h"

namespace hublink::check {

namespace {

const NotesDataTexts& texts = english.notesData;
constexpr const wchar_t* history = L"pavexhistory.nsf";
constexpr const wchar_t* log = L"pavexconnectorconfig.nsf";

class CheckNotesData : public testing::Test {
protected:
    CheckNotesData()
    {
        for (const auto* each : {&program5, &data5, &program4, &data4}) each->removeValue();
        settings.LotusCallLog.Base = history;
        settings.LotusPersonalLog.Base = log;
        folder.folder(L"Hublink");
    }

    Findings found() const { return notesDataFindings(notesDataFacts(settings, folder.file(L"Hublink")), texts); }

    const support::ScratchFolder folder;
    const std::wstring data = folder.folder(L"data");
    const support::SavedValue program5{HKEY_LOCAL_MACHINE, L"SOFTWARE\\Lotus\\Notes\\5.0", L"Path"};
    const support::SavedValue data5{HKEY_LOCAL_MACHINE, L"SOFTWARE\\Lotus\\Notes\\5.0", L"DataPath"};
    const support::SavedValue program4{HKEY_LOCAL_MACHINE, L"SOFTWARE\\Lotus\\Notes\\4.0", L"Path"};
    const support::SavedValue data4{HKEY_LOCAL_MACHINE, L"SOFTWARE\\Lotus\\Notes\\4.0", L"DataPath"};
    LotusConfiguration settings;
};

}

TEST_F(CheckNotesData, WithBothDatabases_IsInOrder)
{
    data5.setText(data);
    folder.write(std::wstring(L"data\\") + history, "");
    folder.write(std::wstring(L"data\\") + log, "");
    EXPECT_EQ(found(), (Findings{ok(texts.folder, path(data)), ok(texts.database, history), ok(texts.database, log)}));
}

TEST_F(CheckNotesData, WithoutThem_IsAProblem)
{
    data4.setText(data);
    EXPECT_EQ(remarks(found()), (Findings{problem(texts.historyMissing, history), problem(texts.logMissing, log)}));
}

TEST_F(CheckNotesData, ThatTheNextStartCopies_AreNotes)
{
    data5.setText(data);
    folder.write(std::wstring(L"Hublink\\") + history, "");
    EXPECT_EQ(remarks(found()), (Findings{note(texts.copied, history), problem(texts.logMissing, log)}));
}

TEST_F(CheckNotesData, OfALaterRelease_CannotBeSeen)
{
    EXPECT_EQ(found(), (Findings{note(texts.folderUnknown)}));
    program5.setText(L"C:\\Notes");
    EXPECT_EQ(found(), (Findings{note(texts.folderUnknown)}));
}

TEST_F(CheckNotesData, FolderThatIsGone_IsAProblem)
{
    data5.setText(folder.file(L"gone"));
    EXPECT_EQ(found(), (Findings{problem(texts.folderMissing, path(folder.file(L"gone")))}));
}

TEST_F(CheckNotesData, OnAServerOrNotNamed_AreNotLookedFor)
{
    data5.setText(data);
    settings.LotusCallLog.Server = L"Acme/Server";
    settings.LotusPersonalLog.Base = L"";
    EXPECT_EQ(found(), Findings{});
}

TEST_F(CheckNotesData, OfAnotherName_AreFoundByTheirPath_AndTheirNamesAreNotPassedOn)
{
    data5.setText(data);
    settings.LotusCallLog.Base = L"anna\\calls.nsf";
    settings.LotusPersonalLog.Base = folder.write(L"anna.nsf", "");
    const Findings findings = found();
    EXPECT_EQ(remarks(findings), (Findings{problem(texts.historyMissing, personal(L"anna\\calls.nsf"))}));
    for (const Finding& each : findings) EXPECT_EQ(each.what.discreet.find(L"anna"), std::wstring::npos);
    folder.folder(L"data\\anna");
    folder.write(L"data\\anna\\calls.nsf", "");
    EXPECT_EQ(remarks(found()), Findings{});
}

}
