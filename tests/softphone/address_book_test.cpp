#include "link_fixture.h"

#include "softphone/identifier_map.h"

namespace hublink {

namespace {

class AddressBook : public LinkFixture {
protected:
    AddressBook()
    {
        host.settings.bgWithRepertory = true;
        host.settings.tempo = 200;
        host.settings.tempo1 = 20;
    }

    void entry(std::int32_t low, const wchar_t* number, const wchar_t* lastName, const wchar_t* firstName)
    {
        pavex.addEntry({{1, low}, {number, lastName, firstName}});
    }
};

}

TEST_F(AddressBook, Empty_LogsTheStartLineWithItsBlank_AndOk)
{
    start();
    EXPECT_EQ(synchronisationLines(), (Lines{L"Start repertory Synchronisation ", L"Repertory Synchronisation Ok"}));
    EXPECT_TRUE(host.pauses.empty());
}

TEST_F(AddressBook, SwitchedOff_NothingIsDone)
{
    host.settings.bgWithRepertory = false;
    entry(1, L"0123", L"D", L"M");
    start();
    EXPECT_EQ(synchronisationLines(), Lines{});
    EXPECT_EQ(count(L"contact"), 0u);
}

TEST_F(AddressBook, NewEntries_BecomeContacts_FromTheLastDown_AndAreMapped)
{
    entry(1, L"01.23", L"Durand", L"Marc");
    entry(2, L"04 56", L"Petit", L"Claire");
    start();
    EXPECT_EQ(synchronisationLines(), (Lines{L"Start repertory Synchronisation ", L"1 In OutLook 0456 Petit Claire",
                                             L"2 In OutLook 0123 Durand Marc", L"Repertory Synchronisation Ok"}));
    EXPECT_EQ(field(L"contact", 0, L"LastName"), L"Petit");
    EXPECT_EQ(field(L"contact", 0, L"BusinessTelephoneNumber"), L"0456");
    EXPECT_EQ(mapped(L"1.2"), field(L"contact", 0, L"EntryID"));
    EXPECT_EQ(mapped(L"1.1"), field(L"contact", 1, L"EntryID"));
    EXPECT_EQ(store->records(1).size(), 2u);
    EXPECT_EQ(host.pauses, (std::vector<std::int32_t>{200, 20, 200, 20}));
}

TEST_F(AddressBook, NumberAlreadyInOutlook_IsAdopted_WithoutALogLine_ButWithAPause)
{
    entry(1, L"01 23", L"Durand", L"Marc");
    start(L"[contact]\nLastName=Known\nCarTelephoneNumber=0.12.3\n");
    EXPECT_EQ(synchronisationLines(), (Lines{L"Start repertory Synchronisation ", L"Repertory Synchronisation Ok"}));
    EXPECT_EQ(count(L"contact"), 1u);
    EXPECT_EQ(mapped(L"1.1"), field(L"contact", 0, L"EntryID"));
    EXPECT_EQ(host.pauses, (std::vector<std::int32_t>{200, 20}));
}

TEST_F(AddressBook, MappedEntry_IsSkipped)
{
    entry(1, L"0123", L"Durand", L"Marc");
    store->insert({.idOrvel = L"1.1", .idAppli = L"ANY", .typApplication = 0, .collection = 1});
    start();
    EXPECT_EQ(count(L"contact"), 0u);
    EXPECT_EQ(host.pauses, (std::vector<std::int32_t>{20}));
}

TEST_F(AddressBook, EntryMappedForTheOtherGroupwareOnly_IsStillMirroredInOutlook)
{
    entry(1, L"0123", L"Durand", L"Marc");
    store->insert({.idOrvel = L"1.1", .idAppli = L"NOTEID", .typApplication = 1, .collection = 1});
    start();
    EXPECT_EQ(count(L"contact"), 1u);
    EXPECT_EQ(mapped(L"1.1", 1), L"NOTEID");
}

TEST_F(AddressBook, SecondInitialisation_CreatesNothing)
{
    entry(1, L"0123", L"Durand", L"Marc");
    start();
    link.InitConnector(NewLog::yes);
    EXPECT_EQ(count(L"contact"), 1u);
}

TEST_F(AddressBook, TwoEntriesWithOneNumber_ShareAContact)
{
    entry(1, L"0123", L"Durand", L"Marc");
    entry(2, L"01.23", L"Durand", L"Marc");
    start();
    EXPECT_EQ(count(L"contact"), 1u);
    EXPECT_EQ(mapped(L"1.1"), mapped(L"1.2"));
}

TEST_F(AddressBook, StopDuringTheWalk_AbortIsTheLastLine)
{
    for (int n = 1; n <= 5; ++n) entry(n, std::to_wstring(n).c_str(), L"D", L"M");
    host.onLog = [&](const std::wstring& line) { host.settings.gStop |= line.starts_with(L"2 In OutLook "); };
    start();
    EXPECT_EQ(synchronisationLines().back(), L"Abort Repertory Synchronisation");
    EXPECT_EQ(count(L"contact"), 2u);
}

TEST_F(AddressBook, CreationFails_NothingIsMapped_AndTheNextRunTriesAgain)
{
    entry(1, L"0123", L"Durand", L"Marc");
    outlookCalls.faults.add(L"on ContactItem.Close fail 0x80004005");
    start();
    EXPECT_EQ(mapped(L"1.1"), L"");
    EXPECT_EQ(synchronisationLines().back(), L"Repertory Synchronisation Ok");
    link.InitConnector(NewLog::yes);
    EXPECT_EQ(count(L"contact"), 1u);
    EXPECT_NE(mapped(L"1.1"), L"");
}

TEST_F(AddressBook, OutlookGoneFromTheSecondEntryOn_EveryLineIsWritten_AndTheNextRunMirrorsTheRestOnce)
{
    entry(1, L"0789", L"Adler", L"Alice");
    entry(2, L"0123", L"Durand", L"Marc");
    entry(3, L"0456", L"Petit", L"Claire");
    host.onLog = [&](const std::wstring& line) {
        if (line.starts_with(L"2 In OutLook ")) outlookCalls.faults.add(L"on * fail 0x800706BA");
    };
    start();
    EXPECT_EQ(synchronisationLines(), (Lines{L"Start repertory Synchronisation ", L"1 In OutLook 0456 Petit Claire",
                                             L"2 In OutLook 0123 Durand Marc", L"3 In OutLook 0789 Adler Alice",
                                             L"Repertory Synchronisation Ok"}));
    EXPECT_EQ(store->records(1).size(), 1u);
    EXPECT_NE(mapped(L"1.3"), L"");
    host.onLog = nullptr;
    outlookCalls.faults.add(L"off");
    link.InitConnector(NewLog::yes);
    EXPECT_EQ(count(L"contact"), 3u);
    EXPECT_EQ(store->records(1).size(), 3u);
}

TEST_F(AddressBook, ErrorInTheLoopItself_LogsPbIn_AndTheRestWaits)
{
    entry(1, L"0789", L"Adler", L"Alice");
    entry(2, L"0123", L"Durand", L"Marc");
    entry(3, L"0456", L"Petit", L"Claire");
    softphoneCalls.faults.add(L"on Entry.Number at 3 fail 0x80004005"); // the third's is read twice
    start();
    EXPECT_EQ(synchronisationLines(), (Lines{L"Start repertory Synchronisation ", L"1 In OutLook 0456 Petit Claire",
                                             L"Pb In Repertory Synchronisation"}));
    EXPECT_EQ(count(L"contact"), 1u);
    link.InitConnector(NewLog::yes);
    EXPECT_EQ(count(L"contact"), 3u);
}

TEST_F(AddressBook, MapCannotBeAsked_LogsPbIn_AndNothingIsCreated)
{
    entry(1, L"0123", L"Durand", L"Marc");
    mapCalls.faults.add(L"on Map.ConvertIdOrvel fail 0x80004005");
    start();
    EXPECT_EQ(synchronisationLines(), (Lines{L"Start repertory Synchronisation ", L"Pb In Repertory Synchronisation"}));
    EXPECT_EQ(count(L"contact"), 0u);
}

TEST_F(AddressBook, InsertionOfACreatedContactFails_Silently_AndTheContactIsAdoptedNextTime)
{
    entry(1, L"0123", L"Durand", L"Marc");
    entry(2, L"0456", L"Petit", L"Claire");
    mapCalls.faults.add(L"on Map.InsertId at 1 fail 0x80004005");
    start();
    EXPECT_EQ(synchronisationLines().back(), L"Repertory Synchronisation Ok");
    EXPECT_EQ(mapped(L"1.2"), L"");
    EXPECT_NE(mapped(L"1.1"), L"") << "the walk goes on";
    link.InitConnector(NewLog::yes);
    EXPECT_EQ(count(L"contact"), 2u);
    EXPECT_EQ(mapped(L"1.2"), field(L"contact", 0, L"EntryID"));
}

TEST_F(AddressBook, InsertionOfAnAdoptedContactFails_LogsPbIn_AndTheRestWaits)
{
    entry(1, L"0123", L"Durand", L"Marc");
    entry(2, L"0456", L"Petit", L"Claire");
    mapCalls.faults.add(L"on Map.InsertId at 1 fail 0x80004005");
    start(L"[contact]\nLastName=Known\nBusinessTelephoneNumber=0456\n");
    EXPECT_EQ(synchronisationLines(), (Lines{L"Start repertory Synchronisation ", L"Pb In Repertory Synchronisation"}));
    EXPECT_EQ(count(L"contact"), 1u);
    link.InitConnector(NewLog::yes);
    EXPECT_EQ(mapped(L"1.2"), field(L"contact", 0, L"EntryID"));
    EXPECT_NE(mapped(L"1.1"), L"");
}

TEST_F(AddressBook, MoreEntriesThanSixteenBitsCount_LogsPbIn_AndWalksNothing)
{
    entry(1, L"0123", L"Durand", L"Marc");
    pavex.phone().addressBookCount = 40000;
    start();
    EXPECT_EQ(synchronisationLines(), (Lines{L"Start repertory Synchronisation ", L"Pb In Repertory Synchronisation"}));
    EXPECT_EQ(count(L"contact"), 0u);
}

TEST_F(AddressBook, NewEntryEvent_CreatesAndMaps_WithoutSearching)
{
    start(L"[contact]\nLastName=Known\nBusinessTelephoneNumber=0123\n");
    entry(7, L"01.23", L"Durand", L"Marc");
    host.runDeferred();
    EXPECT_EQ(count(L"contact"), 2u) << "the event does not ask whether the number is known";
    EXPECT_EQ(mapped(L"1.7"), field(L"contact", 1, L"EntryID"));
    EXPECT_EQ(outlookCalls.count(L"Items.Find method"), 0u);
}

TEST_F(AddressBook, NewEntryEvent_SwitchedOff_DoesNothing)
{
    start();
    host.settings.bgWithRepertory = false;
    entry(7, L"01.23", L"Durand", L"Marc");
    host.runDeferred();
    EXPECT_EQ(count(L"contact"), 0u);
}

}
