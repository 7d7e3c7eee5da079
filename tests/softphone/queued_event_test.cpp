// Events that arrive while a synchronisation is under way.
#include "link_fixture.h"
#include "softphone/softphone_members.h"
#include "support/raw_partner.h"

namespace hublink {

namespace {

class QueuedEvent : public LinkFixture {
protected:
    QueuedEvent()
    {
        host.settings.bgWithHisto = true;
        host.settings.bgWithRepertory = true;
    }

    // Journal items of calls; the log item is no call.
    int calls()
    {
        int found = 0;
        for (std::size_t index = 0; index < count(L"journal"); ++index)
            found += field(L"journal", index, L"Type") == L"Phone Call";
        return found;
    }

    // New records of the softphone as soon as that line is logged.
    void addRecordsAt(const wchar_t* line)
    {
        host.onLog = [this, line](const std::wstring& logged) {
            if (logged != line) return;
            pavex.addEntry({{1, 1}, {L"0123", L"Durand", L"Marc"}});
            desk::softphone::HistoryRecord record;
            record.id = {2, 1};
            record.party = {L"0456", L"Nguyen", L"Linh"};
            pavex.addHistory(record);
        };
    }
};

}

TEST_F(QueuedEvent, RecordsThatComeBeforeTheWalks_AreMirroredOnce)
{
    addRecordsAt(L"Start Connector Initialization");
    start();
    host.runDeferred();
    EXPECT_EQ(count(L"contact"), 1u);
    EXPECT_EQ(calls(), 1);
}

// A softphone that adds a record and raises its event just before it answers
// how many there are.
TEST_F(QueuedEvent, RecordsThatComeWhileTheyAreCounted_AreMirroredOnce)
{
    start();
    const automation::Object book = session.adressbookPavex;
    support::RawPartner counting;
    counting.onCall = [&](const support::RawPartner::Call& call) {
        if (call.id == softphone::records::count) pavex.addEntry({{1, 1}, {L"0123", L"Durand", L"Marc"}});
        automation::Value answer =
            call.id == softphone::records::count ? book.get(call.id) : book.get(call.id, {V_I4(&call.argument(0))});
        *call.result = answer.release();
        return S_OK;
    };
    session.adressbookPavex = automation::Object(&counting);
    link.InsertRepertory();
    session.adressbookPavex = book;
    host.runDeferred();
    EXPECT_EQ(count(L"contact"), 1u);
}

TEST_F(QueuedEvent, RecordsThatAreTooManyToCount_AreMirroredByTheirEvents)
{
    start();
    const automation::Object book = session.adressbookPavex;
    support::RawPartner counting;
    counting.onCall = [](const support::RawPartner::Call& call) {
        V_VT(call.result) = VT_I4;
        V_I4(call.result) = 40'000;
        return S_OK;
    };
    pavex.addEntry({{1, 1}, {L"0123", L"Durand", L"Marc"}});
    session.adressbookPavex = automation::Object(&counting);
    link.InsertRepertory();
    session.adressbookPavex = book;
    EXPECT_EQ(host.log.back(), L"Pb In Repertory Synchronisation");
    host.runDeferred();
    EXPECT_EQ(count(L"contact"), 1u);
}

TEST_F(QueuedEvent, RecordsThatComeAfterTheWalks_AreMirroredByTheirEvents)
{
    addRecordsAt(L"History Synchronisation Ok");
    start();
    EXPECT_EQ(count(L"contact"), 0u);
    host.runDeferred();
    EXPECT_EQ(count(L"contact"), 1u);
    EXPECT_NE(mapped(L"1.1"), L"");
    EXPECT_NE(mapped(L"2.1"), L"");
}

}
