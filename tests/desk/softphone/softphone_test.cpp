#include "softphone_fixture.h"
#include "support/failure.h"

#include <gtest/gtest.h>

namespace {

using automation::AutomationError;
using automation::Object;
using automation::Value;
using namespace desk::softphone;

class SoftphoneMembers : public SoftphoneFixture {
protected:
    void SetUp() override
    {
        softphone.phone().contents.user = {L"Anne", L"Martin", L"4711"};
        softphone.addHistory({{12, 3405}, {L"0123", L"Weber", L"Max"}, true, 45000.25, 45000.5, 3, 1});
        softphone.addHistory({{12, 3406}, {L"0124", L"Meyer", L"Eva"}, false, 45001.25, 45001.5, 2, 0});
        softphone.addEntry({{7, 1}, {L"0456", L"Blanc", L"Paul"}});
    }
};

}

TEST_F(SoftphoneMembers, SubObjects_AreTheSameEachTime)
{
    for (const DISPID id : {9, 10, 11, 12})
        EXPECT_EQ(application().get(id).object().dispatch(), application().get(id).object().dispatch()) << id;
    EXPECT_NE(history().dispatch(), addressBook().dispatch());
}

TEST_F(SoftphoneMembers, User_GivesTwoTexts)
{
    const Object user = application().get(9).object();
    EXPECT_EQ(user.get(2).text(), L"Anne");
    EXPECT_EQ(user.get(3).text(), L"Martin");
}

TEST_F(SoftphoneMembers, Attached_IsABooleanThatIsKept)
{
    EXPECT_EQ(application().get(14).type(), VT_BOOL);
    EXPECT_FALSE(application().get(14).isTrue());
    application().put(14, true);
    EXPECT_TRUE(application().get(14).isTrue());
    EXPECT_TRUE(softphone.phone().attached);
}

TEST_F(SoftphoneMembers, HistoryItem_GivesItsFieldsInTheirTypes)
{
    EXPECT_EQ(history().get(1).type(), VT_I4);
    EXPECT_EQ(history().get(1).int32(), 2);
    const Object item = history().get(3, {0L}).object();
    EXPECT_EQ(item.get(1).int32(), 12);
    EXPECT_EQ(item.get(2).int32(), 3405);
    EXPECT_EQ(item.get(L"IdLow").int32(), 3405);
    EXPECT_EQ(item.get(L"Incoming").type(), VT_BOOL);
    EXPECT_TRUE(item.get(L"incoming").isTrue());
    EXPECT_EQ(item.get(L"Number").text(), L"0123");
    EXPECT_EQ(item.get(L"LastName").text(), L"Weber");
    EXPECT_EQ(item.get(L"FirstName").text(), L"Max");
    EXPECT_EQ(item.get(L"BeginDate").type(), VT_DATE);
    EXPECT_EQ(item.get(L"BeginDate").asDate(), 45000.25);
    EXPECT_EQ(item.get(L"EndDate").asDate(), 45000.5);
    EXPECT_EQ(item.get(L"State").int32(), 3);
    EXPECT_EQ(item.get(L"Acknowledged").int32(), 1);
}

TEST_F(SoftphoneMembers, Find_GivesTheRecordOrNothing)
{
    EXPECT_EQ(history().get(4, {12L, 3406L}).object().get(L"LastName").text(), L"Meyer");
    const Value none = history().get(4, {12L, 1L});
    EXPECT_EQ(none.type(), VT_DISPATCH);
    EXPECT_FALSE(none.object());
    EXPECT_EQ(addressBook().get(4, {7L, 1L}).object().get(L"Number").text(), L"0456");
    EXPECT_FALSE(addressBook().get(4, {1L, 7L}).object());
}

TEST_F(SoftphoneMembers, IndexOutsideTheRange_IsAnErrorWithAText)
{
    for (const long index : {-1L, 2L, 40000L}) {
        try {
            history().get(3, {index});
            ADD_FAILURE() << index;
        } catch (const AutomationError& error) {
            EXPECT_EQ(error.code(), DISP_E_BADINDEX);
            EXPECT_EQ(error.source(), L"Pavex");
            EXPECT_NE(error.description().find(std::to_wstring(index)), std::wstring::npos);
        }
    }
}

TEST_F(SoftphoneMembers, Entry_IsReachedByName)
{
    const Object entry = addressBook().get(3, {0L}).object();
    EXPECT_EQ(entry.get(L"IdHigh").int32(), 7);
    EXPECT_EQ(entry.get(L"idlow").int32(), 1);
    EXPECT_EQ(entry.get(L"Number").text(), L"0456");
    EXPECT_EQ(entry.get(L"LastName").text(), L"Blanc");
    EXPECT_EQ(entry.get(L"FirstName").text(), L"Paul");
    EXPECT_EQ(codeOf([&] { entry.get(L"Company"); }), DISP_E_UNKNOWNNAME);
}

TEST_F(SoftphoneMembers, ItemHeldByAClient_OutlivesItsRecord)
{
    const Object item = history().get(3, {0L}).object();
    softphone.removeHistory({12, 3405});
    EXPECT_EQ(item.get(L"LastName").text(), L"Weber");
    EXPECT_EQ(history().get(1).int32(), 1);
}

TEST_F(SoftphoneMembers, ToldCount_TakesTheTrueOnesPlace)
{
    softphone.phone().addressBookCount = 40000;
    EXPECT_EQ(addressBook().get(1).type(), VT_I4);
    EXPECT_EQ(addressBook().get(1).int32(), 40000);
    EXPECT_EQ(history().get(1).int32(), 2);
}

TEST_F(SoftphoneMembers, LineState_FollowsTheCall)
{
    EXPECT_EQ(line().get(1).text(), L"Idle");
    softphone.ring({{L"0123", L"", L""}, true, L""});
    EXPECT_EQ(line().get(L"State").text(), L"Incoming call");
    softphone.hangUp();
    EXPECT_EQ(line().get(1).text(), L"Idle");
}

TEST_F(SoftphoneMembers, Calls_AreRecorded)
{
    recorder.clear();
    history().get(4, {12L, 3406L}).object().get(L"Number");
    EXPECT_EQ(recorder.record(), L"Application.History get ()\n"
                                 L"History.Find method (I4 12, I4 3406)\n"
                                 L"HistoryItem.Number lookup\n"
                                 L"HistoryItem.Number get ()");
}

TEST_F(SoftphoneMembers, PlannedFaults_ReachTheClient)
{
    recorder.faults.add(L"on History.Count at 1 busy");
    recorder.faults.add(L"on User.FirstText raise 0x80004005 Pavex|no user");
    const Object calls = history(); // busy callees are asked again by the client layer
    EXPECT_EQ(calls.get(1).int32(), 2);
    EXPECT_EQ(recorder.count(L"History.Count get"), 2u);
    EXPECT_EQ(codeOf([&] { application().get(9).object().get(2); }), E_FAIL);
}

TEST_F(SoftphoneMembers, PlannedAnswer_TakesTheMembersPlace)
{
    Answers& answers = softphone.phone().answers;
    answers.set(L"application.user nothing");
    answers.set(L"History.Count text many");
    answers.set(L"HistoryItem.BeginDate empty");
    answers.set(L"HistoryItem.Incoming number 7");
    answers.set(L"HistoryItem.Number truth true");
    EXPECT_FALSE(application().get(9).object());
    EXPECT_EQ(history().get(1).text(), L"many");
    const Object item = history().get(3, {0L}).object();
    EXPECT_EQ(item.get(L"BeginDate").type(), VT_EMPTY);
    EXPECT_EQ(item.get(L"Incoming").type(), VT_I4);
    EXPECT_EQ(item.get(L"Number").type(), VT_BOOL);
    answers.set(L"off");
    EXPECT_EQ(history().get(1).int32(), 2);
}
