#include "link_fixture.h"

#include "softphone/identifier_map.h"
#include "softphone/softphone_members.h"
#include "support/raw_partner.h"

namespace hublink {

namespace {

class IdentifierMap : public LinkFixture {
protected:
    void put(const wchar_t* idAppli, const wchar_t* idOrvel, std::int32_t application, std::int32_t collection)
    {
        store->insert(
            {.idOrvel = idOrvel, .idAppli = idAppli, .typApplication = application, .collection = collection});
    }

    // Entries of the softphone, 1.1 and so on, each mapped.
    void putEntries(int entries)
    {
        for (int n = 1; n <= entries; ++n) {
            pavex.addEntry({{1, n}, {L"0123", L"D", L"M"}});
            put(L"A", (L"1." + std::to_wstring(n)).c_str(), 0, 1);
        }
    }
};

}

TEST_F(IdentifierMap, PurgeAtStart_DropsTheRecordsWhoseSoftphoneRecordHasGone)
{
    pavex.addEntry({{1, 2}, {L"0123", L"D", L"M"}});
    pavex.addHistory({{3, 4}, {L"0123", L"D", L"M"}});
    put(L"A", L"1.2", 0, 1);
    put(L"B", L"1.3", 0, 1);
    put(L"C", L"1.3", 1, 1);
    put(L"D", L"3.4", 0, 0);
    put(L"E", L"3.5", 0, 0);
    start();
    EXPECT_EQ(mapped(L"1.2"), L"A");
    EXPECT_EQ(mapped(L"1.3"), L"");
    EXPECT_EQ(mapped(L"1.3", 1), L"");
    EXPECT_EQ(mapped(L"3.4"), L"D");
    EXPECT_EQ(mapped(L"3.5"), L"");
}

TEST_F(IdentifierMap, EachCollection_IsCheckedAgainstItsOwnSoftphoneRecords)
{
    pavex.addEntry({{1, 2}, {L"0123", L"D", L"M"}});
    put(L"A", L"1.2", 0, 0);
    start();
    EXPECT_EQ(mapped(L"1.2"), L"") << "there is an entry 1.2, but no history item";
}

TEST_F(IdentifierMap, DeletionEvent_RemovesNothing_TheNextStartDoes)
{
    pavex.addEntry({{1, 2}, {L"0123", L"D", L"M"}});
    pavex.addHistory({{3, 4}, {L"0123", L"D", L"M"}});
    put(L"A", L"1.2", 0, 1);
    put(L"D", L"3.4", 0, 0);
    start();
    pavex.removeEntry({1, 2});
    pavex.removeHistory({3, 4});
    host.runDeferred();
    EXPECT_EQ(mapped(L"1.2"), L"A");
    EXPECT_EQ(mapped(L"3.4"), L"D");
    link.InitConnector(NewLog::yes);
    EXPECT_EQ(mapped(L"1.2"), L"");
    EXPECT_EQ(mapped(L"3.4"), L"");
}

TEST_F(IdentifierMap, IdentifierTexts_OneOrTwoDots_UseTheFirstTwoParts)
{
    pavex.addEntry({{5, 7}, {L"0123", L"D", L"M"}});
    start();
    EXPECT_TRUE(link.InPavexRepertory(L"5.7"));
    EXPECT_TRUE(link.InPavexRepertory(L"5.7.9"));
    EXPECT_FALSE(link.InPavexRepertory(L"5.8"));
    EXPECT_FALSE(link.InPavexRepertory(L"57")) << "no dot";
    EXPECT_FALSE(link.InPavexRepertory(L"5.7.9.1")) << "more dots ask for 0.0";
    EXPECT_FALSE(link.InPavexRepertory(L"a.b"));
    EXPECT_FALSE(link.InPavexHistorique(L"5.7"));
}

TEST_F(IdentifierMap, IdentifierWithoutADot_IsPurged)
{
    put(L"A", L"57", 0, 1);
    start();
    EXPECT_EQ(mapped(L"57"), L"");
}

TEST_F(IdentifierMap, Purge_BeginsWithTheHistory)
{
    put(L"A", L"1.9", 0, 1);
    put(L"D", L"2.9", 0, 0);
    link.InitPavex();
    softphoneCalls.clear();
    link.PurgeId();
    EXPECT_EQ(desk::linesOf(softphoneCalls.record()),
              (std::vector<std::wstring>{L"History.Count get ()", L"History.Find method (I4 2, I4 9)",
                                         L"AddressBook.Count get ()", L"AddressBook.Find method (I4 1, I4 9)"}));
}

TEST_F(IdentifierMap, Purge_HasAMapServerObjectOfItsOwn)
{
    start();
    put(L"A", L"1.9", 0, 1);
    session.hashID = automation::Object();
    link.PurgeIdRepertory();
    EXPECT_EQ(mapped(L"1.9"), L"");
}

TEST_F(IdentifierMap, MapThatFailsWhileItIsPurged_KeepsWhatIsNotReached)
{
    const auto kept = [&](const wchar_t* fault) {
        for (int n = 1; n <= 4; ++n) put(L"A", (L"9." + std::to_wstring(n)).c_str(), 0, 1);
        mapCalls.clear();
        mapCalls.faults.add(fault);
        link.PurgeIdRepertory();
        return store->records(1).size();
    };
    start();
    EXPECT_EQ(kept(L"on Map.idCollection fail 0x80004005"), 4u);
    EXPECT_EQ(kept(L"on Collection.NewEnum fail 0x80004005"), 4u);
    EXPECT_EQ(kept(L"on Map.RemoveIdOrvel from 2 fail 0x80004005"), 3u);
    EXPECT_EQ(mapCalls.count(L"Map.RemoveIdOrvel method"), 2u) << "the failure ends the purge";
    EXPECT_EQ(kept(L"on Map.InsertId fail 0x80004005"), 0u) << "which is not asked for";
}

TEST_F(IdentifierMap, StopDuringThePurge_LeavesTheRest)
{
    start();
    for (int n = 0; n < 10; ++n) put(L"A", (L"9." + std::to_wstring(n)).c_str(), 0, 1);
    const automation::Object book = session.adressbookPavex;
    support::RawPartner stopping; // asks for a stop at its third look-up, and has nothing
    int lookUps = 0;
    stopping.onCall = [&](const support::RawPartner::Call& call) {
        if (call.id != softphone::records::byId) return S_OK;
        V_VT(call.result) = VT_DISPATCH;
        V_DISPATCH(call.result) = nullptr;
        host.settings.gStop = ++lookUps == 3;
        return S_OK;
    };
    session.adressbookPavex = automation::Object(&stopping);
    link.PurgeIdRepertory();
    EXPECT_EQ(lookUps, 3);
    EXPECT_EQ(store->records(1).size(), 7u);
    session.adressbookPavex = book;
    host.settings.gStop = false;
    link.PurgeIdRepertory();
    EXPECT_EQ(store->records(1).size(), 0u);
}

TEST_F(IdentifierMap, LookUpFails_WhileTheListAnswers_ThatRecordCountsAsGone)
{
    putEntries(3);
    softphoneCalls.faults.add(L"on AddressBook.Find at 2 fail 0x80004005");
    start();
    EXPECT_EQ(mapped(L"1.1"), L"A");
    EXPECT_EQ(mapped(L"1.2"), L"");
    EXPECT_EQ(mapped(L"1.3"), L"A");
}

TEST_F(IdentifierMap, ListThatDoesNotAnswer_KeepsItsRecords_TheOtherListIsPurged)
{
    for (const wchar_t* list : {L"AddressBook", L"History"}) {
        put(L"A", L"1.9", 0, 1);
        put(L"B", L"2.9", 0, 0);
        softphoneCalls.faults.add(L"on " + std::wstring(list) + L".* fail 0x800706BA");
        start();
        EXPECT_EQ(store->records(1).size() + store->records(0).size(), 1u) << desk::utf8(list);
        EXPECT_NE(mapped(list == std::wstring(L"History") ? L"2.9" : L"1.9"), L"") << desk::utf8(list);
        link.InitConnector(NewLog::yes);
        EXPECT_EQ(store->records(1).size() + store->records(0).size(), 0u) << "it answers again";
    }
}

TEST_F(IdentifierMap, ListThatStopsAnswering_EndsItsPurge_AndKeepsWhatIsNotReached)
{
    putEntries(5);
    put(L"D", L"2.9", 0, 0);
    start();
    ASSERT_EQ(store->records(1).size(), 5u);
    for (int n = 1; n <= 5; ++n) pavex.removeEntry({1, n});
    softphoneCalls.faults.add(L"on AddressBook.* from 4 fail 0x800706BA"); // the count, two look-ups
    link.PurgeId();
    EXPECT_EQ(store->records(1).size(), 3u);
    EXPECT_EQ(softphoneCalls.count(L"AddressBook.Find method"), 3u);
}

TEST_F(IdentifierMap, SoftphoneDiesAtAnyCallOfThePurge_EveryRecordThatItHadStays)
{
    putEntries(3);
    pavex.addHistory({{3, 4}, {L"0123", L"D", L"M"}});
    put(L"D", L"3.4", 0, 0);
    start();
    link.PurgeId();
    const int calls = static_cast<int>(softphoneCalls.calls().size());
    EXPECT_EQ(calls, 1 + 1 + 1 + 3);
    for (int call = 1; call <= calls; ++call) {
        softphoneCalls.clear();
        softphoneCalls.faults.add(L"at " + std::to_wstring(call) + L" fail 0x800706BE");
        softphoneCalls.faults.add(L"on * fail 0x800706BA");
        link.PurgeId();
        EXPECT_EQ(store->records(1).size(), 3u) << "died at call " << call;
        EXPECT_EQ(store->records(0).size(), 1u) << "died at call " << call;
    }
}

TEST_F(IdentifierMap, SoftphoneThatIsNotReached_CostsNoRecord)
{
    put(L"A", L"1.2", 0, 1);
    put(L"D", L"3.4", 0, 0);
    softphoneCalls.faults.add(L"on Application.Line fail 0x80004005");
    start();
    ASSERT_FALSE(session.histo || session.adressbookPavex);
    EXPECT_EQ(mapped(L"1.2"), L"A");
    EXPECT_EQ(mapped(L"3.4"), L"D");
}

TEST_F(IdentifierMap, Purge_AsksEachListForItsCountOnce_AndForEachRecordOnce)
{
    putEntries(5);
    start();
    link.PurgeId();
    EXPECT_EQ(
        desk::linesOf(softphoneCalls.totals()),
        (std::vector<std::wstring>{L"1 AddressBook.Count get", L"5 AddressBook.Find method", L"1 History.Count get"}));
}

// A server that writes into the caller's text and tells how much is meant.
TEST_F(IdentifierMap, MappedId_IsCutToTheReturnedLength)
{
    support::RawPartner server({{L"ConvertIdOrvel", 1}});
    std::int32_t result = 1;
    std::int32_t length = 0;
    server.onCall = [&](const support::RawPartner::Call& call) {
        BSTR text = *V_BSTRREF(&call.argument(1));
        EXPECT_EQ(SysStringLen(text), 1024u);
        EXPECT_EQ(*V_I4REF(&call.argument(2)), 1024);
        std::copy_n(L"ENTRYID and more", 16, text);
        *V_I4REF(&call.argument(2)) = length;
        V_VT(call.result) = VT_I4;
        V_I4(call.result) = result;
        return S_OK;
    };
    const automation::Object map(&server);
    const auto mappedText = [&](std::int32_t written) {
        length = written;
        return mappedId(map, L"1.2", MapApplication::outlook);
    };
    EXPECT_EQ(mappedText(7), L"ENTRYID");
    EXPECT_EQ(mappedText(0), L"");
    EXPECT_EQ(mappedText(-1), L"");
    result = 0;
    EXPECT_EQ(mappedText(7), L"");
}

TEST_F(IdentifierMap, MappedId_IsThatOfTheGroupware)
{
    start();
    insertId(session.hashID, L"ENTRYID", L"1.2", MapApplication::outlook, MapCollection::contacts);
    EXPECT_EQ(mappedId(session.hashID, L"1.2", MapApplication::outlook), L"ENTRYID");
    EXPECT_EQ(mappedId(session.hashID, L"1.2", MapApplication::lotus), L"");
    EXPECT_EQ(mappedId(session.hashID, L"1.3", MapApplication::outlook), L"");
}

}
