// Both synchronisations with Notes in use, alone or besides Outlook.
#include "notes_link_fixture.h"

#include "automation/error.h"
#include "lotus/initialisation.h"

namespace hublink {

namespace {

class NotesSynchronisation : public NotesLinkFixture {
protected:
    NotesSynchronisation()
    {
        host.settings.bgWithRepertory = true;
        host.settings.bgWithHisto = true;
        host.settings.tempo = 200;
        host.settings.tempo1 = 20;
    }

    void entry(std::int32_t low, const wchar_t* number, const wchar_t* lastName, const wchar_t* firstName)
    {
        pavex.addEntry({{2, low}, {number, lastName, firstName}});
    }

    void pastCall(std::int32_t low, const wchar_t* number, std::int16_t state = 3)
    {
        pavex.addHistory({.id = {1, low},
                          .party = {number, L"Name", L"First"},
                          .incoming = true,
                          .begin = 45000.25,
                          .end = 45000.5,
                          .state = state,
                          .acknowledged = 0});
    }
};

}

TEST_F(NotesSynchronisation, NewEntry_BecomesAContactInEach_NotesFirst_WithOneCounter)
{
    entry(1, L"01.23.45", L"Durand", L"Marc");
    start();
    EXPECT_EQ(synchronisationLines(), (Lines{L"Start repertory Synchronisation ", L"1 In lotus 012345 Durand Marc",
                                             L"2 In OutLook 012345 Durand Marc", L"Repertory Synchronisation Ok",
                                             L"start History Synchronisation ", L"History Synchronisation Ok"}));
    EXPECT_EQ(noteField(L"Person", 2, L"Phone"), L"012345");
    EXPECT_EQ(noteField(L"Person", 2, L"@Unsaved"), L"(none)");
    EXPECT_EQ(mapped(L"2.1", 1), noteField(L"Person", 2, L"@NoteID"));
    EXPECT_EQ(mapped(L"2.1", 0), field(L"contact", 0, L"EntryID"));
    EXPECT_EQ(store->records(1).size(), 2u);
    EXPECT_EQ(host.pauses, (std::vector<std::int32_t>{200, 200, 20}));
}

TEST_F(NotesSynchronisation, ObjectsWithIdentifiersOfTheirOwn_AreMirroredAsAnyOther)
{
    notes.ask(L"identifiers own");
    host.settings.bgWithOutlook = false;
    entry(1, L"01.23.45", L"Durand", L"Marc");
    entry(2, L"47 11", L"Petit", L"Claire");
    for (int low = 1; low < 4; ++low) pastCall(low, low == 3 ? L"99" : L"4711");
    start();
    EXPECT_EQ(noteField(L"Person", 2, L"FullName"), L"Claire Petit") << "known in the other book only";
    EXPECT_EQ(noteField(L"Person", 3, L"FullName"), L"Marc Durand");
    EXPECT_EQ(noteCount(L"Call"), 3u);
    EXPECT_EQ(noteField(L"Call", 0, L"InfoSupdocNoteId"), L"8FA");
    EXPECT_EQ(noteField(L"Call", 1, L"InfoSupdocNoteId"), L"8FA");
    EXPECT_EQ(noteField(L"Call", 2, L"LastName"), L"Name");
    EXPECT_EQ(noteField(L"Call", 2, L"TypeCall"), L"Incoming call answered");
    EXPECT_EQ(mapped(L"2.1", 1), noteField(L"Person", 3, L"@NoteID"));
}

TEST_F(NotesSynchronisation, PersonAddedDuringTheWalk_IsLinkedInTheCallsThatFollow)
{
    host.settings.bgWithOutlook = false;
    for (int low = 1; low < 5; ++low) pastCall(low, L"0777");
    host.onPause = [&] {
        if (noteCount(L"Call") == 2 && noteCount(L"Person") == 2)
            notes.ask(L"add names.nsf\nForm=Person\nLastName=New\nPhone=0777");
        host.time += 2.5 / 86'400;
    };
    start();
    EXPECT_EQ(noteField(L"Call", 1, L"LastName"), L"Name") << "as the softphone has it";
    EXPECT_EQ(noteField(L"Call", 2, L"LastName"), L"New");
    EXPECT_EQ(noteField(L"Call", 3, L"LastName"), L"New");
}

// With what is open still good, to be asked about, and to be opened anew.
TEST_F(NotesSynchronisation, FailureAtEveryCallOfAWalk_LeavesNoCallHalfMirrored_AndTheNextWalkMirrorsTheRest)
{
    host.settings.bgWithOutlook = false;
    host.settings.bgWithHisto = false;
    start();
    host.onPause = [&] { host.time += 1.3 / 86'400; };
    std::int32_t low = 0;
    const auto walk = [&](const std::wstring& fault) {
        notes.load(databases);
        for (const wchar_t* number : {L"4711", L"4711", L"0777", L"4711"}) pastCall(++low, number);
        lotusSession.LotusMustInit = true;
        InitLotus(lotusSession, NewLog::yes);
        outlookCalls.clear();
        if (!fault.empty()) outlookCalls.faults.add(fault);
        link.InitHisto();
    };
    walk(L"");
    const std::size_t made = outlookCalls.calls().size();
    ASSERT_GT(outlookCalls.count(L"NotesDatabase.LastModified get"), 1u);
    for (std::size_t place = 1; place <= made; ++place) {
        walk(L"at " + std::to_wstring(place) + L" fail 0x80004005");
        ASSERT_GE(outlookCalls.calls().size(), place);
        const std::wstring failed = outlookCalls.calls()[place - 1].text();
        outlookCalls.clear();
        link.InitHisto();
        const std::size_t calls = noteCount(L"Call");
        EXPECT_TRUE(calls == 4 || (calls == 5 && failed.starts_with(L"NotesDocument.N"))) << desk::utf8(failed);
        for (std::size_t n = 0; n < calls; ++n) {
            const bool isKnown = noteField(L"Call", n, L"InfoSupdocNoteId") == L"8FA";
            EXPECT_EQ(noteField(L"Call", n, L"LastName"), isKnown ? L"Petit" : L"Name") << desk::utf8(failed);
            EXPECT_EQ(noteField(L"Call", n, L"InfoSupBase"), isKnown ? L"public.nsf" : L"") << desk::utf8(failed);
            EXPECT_FALSE(isKnown && noteField(L"Call", n, L"Number") == L"0777") << desk::utf8(failed);
        }
    }
}

TEST_F(NotesSynchronisation, CallsOfOneNumber_AskTheBooksForItOnce)
{
    host.settings.bgWithOutlook = false;
    for (int low = 1; low < 6; ++low) pastCall(low, L"4711");
    host.settings.bgWithHisto = false;
    start();
    host.settings.bgWithHisto = true;
    link.InitHisto();
    EXPECT_EQ(noteCount(L"Call"), 5u);
    EXPECT_EQ(noteField(L"Call", 4, L"LastName"), L"Petit");
    EXPECT_EQ(outlookCalls.count(L"NotesView.GetDocumentByKey method"), 1u);
    EXPECT_EQ(outlookCalls.count(L"NotesUIWorkspace.CurrentDatabase lookup"), 1u);
}

TEST_F(NotesSynchronisation, EntryMappedForNotesOnly_OnlyOutlookWorksOnIt)
{
    entry(1, L"0123", L"Durand", L"Marc");
    store->insert({.idOrvel = L"2.1", .idAppli = L"8FE", .typApplication = 1, .collection = 1});
    start();
    EXPECT_EQ(noteCount(L"Person"), 2u);
    EXPECT_EQ(count(L"contact"), 1u);
    EXPECT_EQ(synchronisationLines().at(1), L"1 In OutLook 0123 Durand Marc");
    EXPECT_EQ(host.pauses, (std::vector<std::int32_t>{200, 20}));
}

TEST_F(NotesSynchronisation, EntryOfThePersonalBook_IsAdopted_WithoutALogLine_ButWithAPause)
{
    host.settings.bgWithOutlook = false;
    entry(1, L"06 12", L"Known", L"Kim");
    notes.ask(L"add names.nsf\nForm=Person\nLastName=Known\nPhone=0612\n@NoteID=91A");
    start();
    EXPECT_EQ(mapped(L"2.1", 1), L"91A");
    EXPECT_EQ(noteCount(L"Person"), 3u);
    EXPECT_EQ(synchronisationLines().at(1), L"Repertory Synchronisation Ok");
    EXPECT_EQ(host.pauses, (std::vector<std::int32_t>{200, 20}));
}

TEST_F(NotesSynchronisation, EntryOfAPublicBookOnly_IsCreatedInThePersonalOne)
{
    host.settings.bgWithOutlook = false;
    entry(1, L"4711", L"Petit", L"Claire");
    start();
    EXPECT_EQ(noteField(L"Person", 2, L"@Database"), L"names.nsf");
}

TEST_F(NotesSynchronisation, SecondRun_CopiesNothing)
{
    entry(1, L"0123", L"Durand", L"Marc");
    pastCall(1, L"4711");
    start();
    host.pauses.clear();
    link.InitConnector(NewLog::yes);
    EXPECT_EQ(noteCount(L"Person"), 3u);
    EXPECT_EQ(noteCount(L"Call"), 1u);
    EXPECT_EQ(count(L"contact"), 1u);
    EXPECT_EQ(count(L"journal"), 2u) << "the call and the log item";
    EXPECT_EQ(host.pauses, (std::vector<std::int32_t>{20, 20}));
}

TEST_F(NotesSynchronisation, UnmappedCall_GetsOneDocumentAndOneJournalItem_NotesFirst)
{
    start();
    pastCall(1, L"47.11");
    link.InitConnector(NewLog::yes);
    EXPECT_EQ(noteField(L"Call", 0, L"Number"), L"4711");
    EXPECT_EQ(noteField(L"Call", 0, L"LastName"), L"Petit");
    EXPECT_EQ(noteField(L"Call", 0, L"InfoSupdocNoteId"), L"8FA");
    EXPECT_EQ(noteField(L"Call", 0, L"TypeCall"), L"Incoming call answered");
    EXPECT_EQ(mapped(L"1.1", 1), noteField(L"Call", 0, L"@NoteID"));
    EXPECT_EQ(mapped(L"1.1", 0), field(L"journal", 0, L"EntryID"));
    EXPECT_EQ(store->records(0).size(), 2u);
    EXPECT_EQ(host.pauses, (std::vector<std::int32_t>{200, 200, 20}));
    EXPECT_LT(placeOf(L"NotesDocument.Save method"), placeOf(L"Application.CreateItem method"));
}

TEST_F(NotesSynchronisation, DocumentThatCannotBeSaved_IsNotMapped_AndTriedAgain)
{
    pastCall(1, L"4711");
    host.settings.bgWithOutlook = false;
    notes.recorder().faults.add(L"on NotesDocument.AppendItemValue fail 0x80004005");
    start();
    EXPECT_EQ(mapped(L"1.1", 1), L"");
    EXPECT_EQ(synchronisationLines().back(), L"History Synchronisation Ok");
    link.InitConnector(NewLog::yes);
    EXPECT_EQ(noteCount(L"Call"), 1u);
    EXPECT_NE(mapped(L"1.1", 1), L"");
}

TEST_F(NotesSynchronisation, NewRecordsAfterwards_ComeIntoBoth)
{
    start();
    entry(7, L"0777", L"New", L"Nora");
    pastCall(7, L"0777");
    host.runDeferred();
    EXPECT_EQ(noteField(L"Person", 2, L"LastName"), L"New");
    EXPECT_EQ(noteCount(L"Call"), 1u);
    EXPECT_EQ(count(L"contact"), 1u);
    EXPECT_EQ(count(L"journal"), 2u) << "the call and the log item";
    EXPECT_NE(mapped(L"2.7", 1), L"");
    EXPECT_NE(mapped(L"1.7", 1), L"");
    EXPECT_LT(placeOf(L"ContactItem.Close method"), placeOf(L"NotesDocument.Save method")) << "Outlook's come first";
}

TEST_F(NotesSynchronisation, NewCallAfterwards_ComesIntoOutlookFirst)
{
    start();
    pastCall(7, L"0777");
    host.runDeferred();
    EXPECT_LT(placeOf(L"JournalItem.Close method"), placeOf(L"NotesDocument.Save method"));
}

TEST_F(NotesSynchronisation, NewRecordsWithSwitchesOff_AreLeftAlone)
{
    start();
    host.settings.bgWithRepertory = host.settings.bgWithHisto = false;
    entry(7, L"0777", L"New", L"Nora");
    pastCall(7, L"0777");
    host.runDeferred();
    EXPECT_EQ(noteCount(L"Person"), 2u);
    EXPECT_EQ(noteCount(L"Call"), 0u);
}

TEST_F(NotesSynchronisation, NoPersonalBook_LogsTheEntryEachTime_AndMapsNothing)
{
    host.settings.bgWithOutlook = false;
    WritePrivateProfileStringW(L"lotus base description 2", L"PersonalAddressBook", L"false", ini.c_str());
    entry(1, L"0123", L"Durand", L"Marc");
    start();
    EXPECT_EQ(synchronisationLines().at(1), L"1 In lotus 0123 Durand Marc");
    EXPECT_EQ(mapped(L"2.1", 1), L"");
    EXPECT_EQ(noteCount(L"Person"), 2u);
    EXPECT_NE(noteField(L"Log", 0, L"Body").find(L" Create contact 0123 Durand Marc"), std::wstring::npos);
}

TEST_F(NotesSynchronisation, Initialisation_OpensBoth_AndANewLogDocumentWhenToldSo)
{
    start();
    EXPECT_TRUE(lotusSession.LotusReady);
    EXPECT_EQ(noteCount(L"Log"), 1u);
    lotusSession.LotusMustInit = true;
    link.InitConnector(NewLog::no);
    EXPECT_EQ(noteCount(L"Log"), 1u);
    lotusSession.LotusMustInit = true;
    link.InitConnector(NewLog::yes);
    EXPECT_EQ(noteCount(L"Log"), 2u);
}

TEST_F(NotesSynchronisation, Initialisation_AsksOutlookBeforeNotes)
{
    start();
    outlookSession.bOutlookInit = false;
    lotusSession.LotusMustInit = true;
    outlookCalls.clear();
    link.InitConnector(NewLog::yes);
    EXPECT_LT(placeOf(L"Application.GetNamespace"), placeOf(L"NotesSession.GetEnvironmentString"));
    EXPECT_LT(placeOf(L"NameSpace.GetDefaultFolder"), placeOf(L"NotesSession.GetEnvironmentString"));
}

}
