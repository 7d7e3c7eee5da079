#include "link_fixture.h"

namespace hublink {

namespace {

class History : public LinkFixture {
protected:
    History()
    {
        host.settings.bgWithHisto = true;
        host.settings.tempo = 200;
        host.settings.tempo1 = 20;
    }

    void item(std::int32_t low, const wchar_t* number)
    {
        desk::softphone::HistoryRecord record;
        record.id = {2, low};
        record.party = {number, L"Nguyen", L"Linh"};
        record.begin = 45000.25;
        record.end = 45000.5;
        pavex.addHistory(record);
    }
};

}

TEST_F(History, Empty_LogsItsTwoLines)
{
    start();
    EXPECT_EQ(synchronisationLines(), (Lines{L"start History Synchronisation ", L"History Synchronisation Ok"}));
}

TEST_F(History, EveryItem_BecomesAJournalItem_FromTheFirstUp_AndIsMapped)
{
    item(1, L"111");
    item(2, L"222");
    start();
    EXPECT_EQ(field(L"journal", 0, L"Subject"), L"Linh Nguyen (111)");
    EXPECT_EQ(field(L"journal", 1, L"Subject"), L"Linh Nguyen (222)");
    EXPECT_EQ(mapped(L"2.1"), field(L"journal", 0, L"EntryID"));
    EXPECT_EQ(mapped(L"2.2"), field(L"journal", 1, L"EntryID"));
    EXPECT_EQ(store->records(0).size(), 2u);
    EXPECT_EQ(host.pauses, (std::vector<std::int32_t>{200, 20, 200, 20}));
    EXPECT_EQ(count(L"contact"), 0u);
}

TEST_F(History, AllItemsMapped_NothingIsCreated_AndTheOnlyPauseIsTempo1)
{
    item(1, L"111");
    item(2, L"222");
    start();
    host.pauses.clear();
    link.InitConnector(NewLog::yes);
    EXPECT_EQ(count(L"journal"), 2u);
    EXPECT_EQ(host.pauses, (std::vector<std::int32_t>{20, 20}));
}

TEST_F(History, NewContactOn_UnknownPartiesBecomeContacts)
{
    host.settings.bgSetNewContact = true;
    item(1, L"1 11");
    start();
    EXPECT_EQ(count(L"contact"), 1u);
    EXPECT_EQ(field(L"contact", 0, L"BusinessTelephoneNumber"), L"111");
}

TEST_F(History, NewContactSwitch_IsReadAtThatMoment)
{
    host.settings.bgSetNewContact = true;
    host.settings.tempo = 1;
    item(1, L"111");
    item(2, L"222");
    item(3, L"333");
    host.onPause = [&] { host.settings.bgSetNewContact = host.pauses.size() >= 4; }; // two pauses an item
    start();
    ASSERT_EQ(store->records(0).size(), 3u);
    ASSERT_EQ(count(L"contact"), 2u);
    EXPECT_EQ(field(L"contact", 0, L"BusinessTelephoneNumber"), L"111");
    EXPECT_EQ(field(L"contact", 1, L"BusinessTelephoneNumber"), L"333");
}

TEST_F(History, StopDuringTheLoop_EndsWithAbort_AfterTheItemUnderWay)
{
    for (int n = 1; n <= 3; ++n) item(n, std::to_wstring(n * 111).c_str());
    host.onPause = [&] { host.settings.gStop |= host.pauses.size() == 3; };
    start();
    EXPECT_EQ(synchronisationLines().back(), L"Abort History Synchronisation");
    EXPECT_EQ(count(L"journal"), 2u);
    EXPECT_NE(mapped(L"2.2"), L"");
    EXPECT_EQ(mapped(L"2.3"), L"");
}

TEST_F(History, StopBeforeTheLoop_CopiesNothing)
{
    item(1, L"111");
    host.onLog = [&](const std::wstring& line) { host.settings.gStop |= line == L"start History Synchronisation "; };
    start();
    EXPECT_EQ(synchronisationLines(), (Lines{L"start History Synchronisation ", L"Abort History Synchronisation"}));
    EXPECT_EQ(count(L"journal"), 0u);
}

TEST_F(History, CreationFails_NoMapRecord_AndTheItemIsMirroredNextTime)
{
    item(1, L"111");
    outlookCalls.faults.add(L"on JournalItem.Close fail 0x80004005");
    start();
    EXPECT_EQ(mapped(L"2.1"), L"");
    EXPECT_EQ(synchronisationLines().back(), L"History Synchronisation Ok");
    link.InitConnector(NewLog::yes);
    EXPECT_EQ(count(L"journal"), 1u);
    EXPECT_NE(mapped(L"2.1"), L"");
}

TEST_F(History, ErrorInTheLoopItself_LogsPbIn_WithASmallI_AndTheRestWaits)
{
    for (int n = 1; n <= 3; ++n) item(n, std::to_wstring(n * 111).c_str());
    softphoneCalls.faults.add(L"on History.Item at 2 fail 0x80004005");
    start();
    EXPECT_EQ(synchronisationLines(), (Lines{L"start History Synchronisation ", L"Pb in History Synchronisation"}));
    EXPECT_EQ(count(L"journal"), 1u);
    link.InitConnector(NewLog::yes);
    EXPECT_EQ(count(L"journal"), 3u);
}

TEST_F(History, MapCannotBeAsked_LogsPbIn_AndNothingIsCopied)
{
    item(1, L"111");
    mapCalls.faults.add(L"on Map.ConvertIdOrvel fail 0x80004005");
    start();
    EXPECT_EQ(synchronisationLines(), (Lines{L"start History Synchronisation ", L"Pb in History Synchronisation"}));
    EXPECT_EQ(count(L"journal"), 0u);
}

TEST_F(History, InsertionIntoTheMapFails_Silently_AndTheItemIsCopiedAgainNextTime)
{
    item(1, L"111");
    item(2, L"222");
    mapCalls.faults.add(L"on Map.InsertId at 1 fail 0x80004005");
    start();
    EXPECT_EQ(synchronisationLines(), (Lines{L"start History Synchronisation ", L"History Synchronisation Ok"}));
    EXPECT_EQ(mapped(L"2.1"), L"");
    EXPECT_NE(mapped(L"2.2"), L"") << "the walk goes on";
    link.InitConnector(NewLog::yes);
    EXPECT_EQ(count(L"journal"), 3u);
    EXPECT_NE(mapped(L"2.1"), L"");
}

TEST_F(History, NewItemEvent_IsMirroredWithoutAskingTheMap_AndMakesNoContact)
{
    host.settings.bgSetNewContact = true;
    start();
    item(5, L"555");
    host.runDeferred();
    EXPECT_EQ(count(L"journal"), 1u);
    EXPECT_EQ(count(L"contact"), 0u);
    EXPECT_EQ(mapped(L"2.5"), field(L"journal", 0, L"EntryID"));
}

TEST_F(History, NewItemEvent_SwitchedOff_DoesNothing)
{
    start();
    host.settings.bgWithHisto = false;
    item(5, L"555");
    host.runDeferred();
    EXPECT_EQ(count(L"journal"), 0u);
}

}
