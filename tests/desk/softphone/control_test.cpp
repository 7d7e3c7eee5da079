#include "softphone_fixture.h"

#include "automation/subscription.h"
#include "desk/common/text.h"
#include "desk/softphone/control.h"

#include <gtest/gtest.h>

namespace {

using automation::AutomationError;
using automation::EventArguments;
using automation::Subscription;
using namespace desk::softphone;

class SoftphoneControl : public SoftphoneFixture {
protected:
    std::wstring ask(std::wstring_view request)
    {
        const std::wstring word = desk::takeWord(request);
        return control.command(word, request).value_or(L"no such command");
    }

    Control control{softphone};
};

}

TEST_F(SoftphoneControl, UnknownCommand_IsLeftToOthers)
{
    EXPECT_FALSE(control.command(L"dance", L""));
}

TEST_F(SoftphoneControl, User_TakesTwoTexts_AndANumber)
{
    EXPECT_EQ(ask(L"user Anne Marie|Martin|4711"), L"ok");
    EXPECT_EQ(application().get(9).object().get(2).text(), L"Anne Marie");
    EXPECT_EQ(application().get(9).object().get(3).text(), L"Martin");
    EXPECT_EQ(softphone.phone().contents.user.number, L"4711");
    EXPECT_EQ(ask(L"user |"), L"ok");
    EXPECT_EQ(application().get(9).object().get(3).text(), L"");
    EXPECT_THROW(ask(L"user Anne"), std::runtime_error);
}

TEST_F(SoftphoneControl, Records_AreAddedListedAndDeleted)
{
    EXPECT_EQ(ask(L"history add id=12.3405 number=0123 last=\"van \\\"X\\\"\" incoming=true"
                  L" begin=\"2023-03-15 06:00:00\" state=3 ack=1"),
              L"12.3405");
    EXPECT_EQ(ask(L"history"),
              L"Id=\"12.3405\" Incoming=\"true\" Number=\"0123\" LastName=\"van \\\"X\\\"\" FirstName=\"\" "
              L"BeginDate=\"2023-03-15 06:00:00\" EndDate=\"2023-03-15 06:00:00\" State=\"3\" Acknowledged=\"1\"");
    EXPECT_EQ(ask(L"entry add number=1 first=Paul"), L"2.1");
    EXPECT_EQ(ask(L"entry add number=2"), L"2.2");
    EXPECT_EQ(ask(L"entries"), L"Id=\"2.1\" Number=\"1\" LastName=\"\" FirstName=\"Paul\"\n"
                               L"Id=\"2.2\" Number=\"2\" LastName=\"\" FirstName=\"\"");
    EXPECT_EQ(ask(L"history delete 12.3405"), L"ok");
    EXPECT_EQ(ask(L"history"), L"");
    EXPECT_EQ(ask(L"entry delete 2.1"), L"ok");
    EXPECT_THROW(ask(L"entry delete 2.1"), std::runtime_error);
    EXPECT_THROW(ask(L"history drop 1.1"), std::runtime_error);
}

TEST_F(SoftphoneControl, Events_AreToldAfterTheAnswer_OrBeforeItWithSync)
{
    int calls = 0;
    softphone.eventWaits = [] {};
    const Subscription subscription(line(), L"", {{L"OnLineNewCall", [&](EventArguments) { ++calls; }}});
    EXPECT_EQ(ask(L"call number=1"), L"ok");
    EXPECT_EQ(calls, 0);
    EXPECT_EQ(ask(L"pending"), L"1");
    EXPECT_EQ(ask(L"call sync number=2"), L"ok");
    EXPECT_EQ(calls, 2);
    EXPECT_EQ(ask(L"pending"), L"0");
    EXPECT_EQ(ask(L"subscribers"), L"Application 0\nLine 1\nHistory 0\nAddressBook 0");
}

TEST_F(SoftphoneControl, Attached_IsWhatAClientSet)
{
    EXPECT_EQ(ask(L"attached"), L"False");
    application().put(14, true);
    EXPECT_EQ(ask(L"attached"), L"True");
}

TEST_F(SoftphoneControl, Count_LiesOnRequest)
{
    EXPECT_EQ(ask(L"count lie 40000 entries"), L"ok");
    EXPECT_EQ(addressBook().get(1).int32(), 40000);
    EXPECT_EQ(history().get(1).int32(), 0);
    EXPECT_EQ(ask(L"count lie 3"), L"ok");
    EXPECT_EQ(history().get(1).int32(), 3);
    EXPECT_EQ(ask(L"count true"), L"ok");
    EXPECT_EQ(addressBook().get(1).int32(), 0);
}

TEST_F(SoftphoneControl, MissingMember_HasNeitherNameNorIdentifier)
{
    EXPECT_EQ(ask(L"missing Application.AddressBook"), L"ok");
    for (const automation::Member member : {automation::Member(L"AddressBook"), automation::Member(12)}) {
        try {
            application().get(member);
            ADD_FAILURE() << member.isNamed();
        } catch (const AutomationError& error) {
            EXPECT_EQ(error.code(), member.isNamed() ? DISP_E_UNKNOWNNAME : DISP_E_MEMBERNOTFOUND);
        }
    }
    EXPECT_TRUE(application().get(11).object());
    recorder.faults.add(L"off");
    EXPECT_TRUE(application().get(12).object());
}

TEST_F(SoftphoneControl, Answer_PlansAWrongOne)
{
    EXPECT_EQ(ask(L"answer Application.User nothing"), L"ok");
    EXPECT_FALSE(application().get(9).object());
    EXPECT_EQ(ask(L"answer off"), L"ok");
    EXPECT_TRUE(application().get(9).object());
    EXPECT_THROW(ask(L"answer User nothing"), std::runtime_error);
    EXPECT_THROW(ask(L"answer Application.User perhaps"), std::runtime_error);
}

TEST_F(SoftphoneControl, Discovery_ClosesEachWay)
{
    EXPECT_EQ(ask(L"discovery"), L"classinfo2 on\nclassinfo on\ntypeinfo on");
    ask(L"discovery classinfo2 off");
    ask(L"discovery typeinfo off");
    EXPECT_EQ(ask(L"discovery"), L"classinfo2 off\nclassinfo on\ntypeinfo off");
    EXPECT_EQ(ask(L"discovery all off"), L"ok");
    EXPECT_THROW(Subscription(history(), L"", {}), AutomationError);
    ask(L"discovery all on");
    EXPECT_TRUE(Subscription(history(), L"", {}));
    EXPECT_THROW(ask(L"discovery classinfo maybe"), std::runtime_error);
}

TEST_F(SoftphoneControl, Quit_RaisesTheEvent)
{
    int quits = 0;
    const Subscription subscription(application(), L"", {{L"OnQuit", [&](EventArguments) { ++quits; }}});
    EXPECT_EQ(ask(L"quit"), L"ok");
    EXPECT_EQ(quits, 1);
}
