// A user's wish to stop is let through before each record of a long work.
#include "automation/outgoing_call.h"
#include "link_fixture.h"

namespace hublink {

namespace {

class StopBetweenRecords : public LinkFixture {
protected:
    StopBetweenRecords()
    {
        host.onStopCheck = [this] {
            outsideCalls = outsideCalls && !automation::OutgoingCall::inProgress();
            host.settings.gStop |= host.stopChecks == stopAt;
        };
    }

    // Initialised with nothing to do, so that only what a test begins itself is counted.
    void startIdle()
    {
        start();
        host.stopChecks = 0;
    }

    void putRecords(int records)
    {
        for (int n = 0; n < records; ++n)
            store->insert(
                {.idOrvel = L"9." + std::to_wstring(n), .idAppli = L"A", .typApplication = 0, .collection = 1});
    }

    int stopAt = 0; // the look at which the user wants to stop
    bool outsideCalls = true;
};

}

TEST_F(StopBetweenRecords, Purge_LooksBeforeEachRecord_AndLeavesTheRest)
{
    startIdle();
    putRecords(10);
    stopAt = 4;
    link.PurgeIdRepertory();
    EXPECT_EQ(host.stopChecks, 4);
    EXPECT_EQ(store->records(1).size(), 7u);
    EXPECT_TRUE(outsideCalls);
}

TEST_F(StopBetweenRecords, AddressBook_LooksBeforeEachEntry_AndAborts)
{
    startIdle();
    for (int n = 1; n <= 10; ++n) pavex.addEntry({{1, n}, {std::to_wstring(n), L"D", L"M"}});
    stopAt = 4;
    link.InsertRepertory();
    EXPECT_EQ(host.stopChecks, 4);
    EXPECT_EQ(count(L"contact"), 3u);
    EXPECT_EQ(host.log.back(), L"Abort Repertory Synchronisation");
    EXPECT_TRUE(outsideCalls);
}

TEST_F(StopBetweenRecords, History_LooksBeforeEachItem_AndAborts)
{
    startIdle();
    for (int n = 1; n <= 10; ++n) {
        desk::softphone::HistoryRecord record;
        record.id = {2, n};
        record.party.number = std::to_wstring(n);
        pavex.addHistory(record);
    }
    stopAt = 4;
    link.InitHisto();
    EXPECT_EQ(host.stopChecks, 4);
    EXPECT_EQ(count(L"journal"), 3u);
    EXPECT_EQ(host.log.back(), L"Abort History Synchronisation");
    EXPECT_TRUE(outsideCalls);
}

}
