#include "link_test.h"

#include "softphone/identifier_map.h"
#include "support/raw_partner.h"

namespace {

class IdentifierMap : public LinkTest {
protected:
    void put(const wchar_t* idAppli, const wchar_t* idOrvel, std::int32_t application, std::int32_t collection)
    {
        store->insert({.idOrvel = idOrvel, .idAppli = idAppli, .typApplication = application, .collection = collection});
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
    link.InitConnector(true);
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

TEST_F(IdentifierMap, StopDuringThePurge_LeavesTheRest)
{
    start();
    for (int n = 0; n < 10; ++n) put(L"A", (L"9." + std::to_wstring(n)).c_str(), 0, 1);
    const automation::Object book = link.adressbookPavex;
    support::RawPartner stopping; // asks for a stop at its third look-up, and has nothing
    int lookUps = 0;
    stopping.onCall = [&](const support::RawPartner::Call& call) {
        V_VT(call.result) = VT_DISPATCH;
        V_DISPATCH(call.result) = nullptr;
        host.settings.gStop = ++lookUps == 3;
        return S_OK;
    };
    link.adressbookPavex = automation::Object(&stopping);
    link.PurgeIdRepertory();
    EXPECT_EQ(lookUps, 3);
    EXPECT_EQ(store->records(1).size(), 7u);
    link.adressbookPavex = book;
    host.settings.gStop = false;
    link.PurgeIdRepertory();
    EXPECT_EQ(store->records(1).size(), 0u);
}

TEST_F(IdentifierMap, LookUpInTheSoftphoneFails_TheRecordCountsAsGone)
{
    pavex.addEntry({{1, 2}, {L"0123", L"D", L"M"}});
    put(L"A", L"1.2", 0, 1);
    softphoneCalls.faults.add(L"on AddressBook.* fail 0x80004005");
    start();
    EXPECT_EQ(mapped(L"1.2"), L"");
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
    insertId(link.hashID, L"ENTRYID", L"1.2", MapApplication::outlook, MapCollection::contacts);
    EXPECT_EQ(mappedId(link.hashID, L"1.2", MapApplication::outlook), L"ENTRYID");
    EXPECT_EQ(mappedId(link.hashID, L"1.2", MapApplication::lotus), L"");
    EXPECT_EQ(mappedId(link.hashID, L"1.3", MapApplication::outlook), L"");
}
