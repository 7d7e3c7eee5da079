#include "common/softphone_records.h"

#include "support/raw_partner.h"

#include <gtest/gtest.h>

namespace hublink {

namespace {

using automation::Object;
using automation::Value;
using support::RawPartner;
using Names = std::vector<std::wstring>;
using Ids = std::vector<DISPID>;

// Answers each member with its own dispatch identifier.
class Record final : public RawPartner {
public:
    Record()
        : RawPartner({{L"Number", 10},
                      {L"LastName", 11},
                      {L"FirstName", 12},
                      {L"Incoming", 13},
                      {L"DestinationNumber", 14},
                      {L"BeginDate", 15},
                      {L"EndDate", 16},
                      {L"State", 17},
                      {L"Acknowledged", 18},
                      {L"IdHigh", 19},
                      {L"IdLow", 20}})
    {
        onCall = [](const Call& call) {
            *call.result = Value(std::int32_t{call.id}).release();
            return S_OK;
        };
    }

    // The members that were asked for since the last time, in order.
    Ids asked()
    {
        Ids found;
        for (const Invocation& invocation : invocations) found.push_back(invocation.id);
        invocations.clear();
        return found;
    }
};

}

TEST(SoftphoneRecords, RecordThatNobodyAsks_IsNotTouched)
{
    Record record;
    const SoftphoneCall call{Object(&record)};
    const SoftphoneEntry entry{Object(&record)};
    const SoftphoneHistoryItem item{Object(&record)};
    EXPECT_EQ(record.lookUps, Names{});
    EXPECT_EQ(record.asked(), Ids{});
}

TEST(SoftphoneRecords, EachQuestionToACall_IsOneCall)
{
    Record record;
    const SoftphoneCall call{Object(&record)};
    EXPECT_EQ(call.number(), L"10");
    EXPECT_EQ(call.lastName(), L"11");
    EXPECT_EQ(call.firstName(), L"12");
    EXPECT_TRUE(call.isIncoming());
    EXPECT_EQ(call.destinationNumber(), L"14");
    EXPECT_EQ(record.asked(), (Ids{10, 11, 12, 13, 14}));
}

TEST(SoftphoneRecords, EachQuestionToAHistoryItem_IsOneCall_AndAnsweredAsItIs)
{
    Record record;
    const SoftphoneHistoryItem item{Object(&record)};
    EXPECT_EQ(item.incoming().type(), VT_I4) << "not made a Boolean";
    EXPECT_EQ(item.beginDate().int32(), 15);
    EXPECT_EQ(item.endDate().int32(), 16);
    EXPECT_EQ(item.state().int32(), 17);
    EXPECT_EQ(item.acknowledged().int32(), 18);
    EXPECT_EQ(record.asked(), (Ids{13, 15, 16, 17, 18}));
}

TEST(SoftphoneRecords, EntrysIdentifier_IsAskedByName_TheHighHalfFirst)
{
    Record record;
    const SoftphoneId id = SoftphoneEntry{Object(&record)}.id();
    EXPECT_EQ(textFromSoftphoneId(id), L"19.20");
    EXPECT_EQ(record.lookUps, (Names{L"IdHigh", L"IdLow"}));
    EXPECT_EQ(record.asked(), (Ids{19, 20}));
}

TEST(SoftphoneRecords, HistoryItemsIdentifier_IsAskedByDispatchIdentifier_TheHighHalfFirst)
{
    Record record;
    const SoftphoneId id = SoftphoneHistoryItem{Object(&record)}.id();
    EXPECT_EQ(textFromSoftphoneId(id), L"1.2");
    EXPECT_EQ(record.lookUps, Names{});
    EXPECT_EQ(record.asked(), (Ids{1, 2}));
}

}
