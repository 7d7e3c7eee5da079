// Partners that are busy, slow, wrong or die.
#include "desk_test.h"

#include "automation/object.h"
#include "desk/common/control_pipe.h"
#include "support/processes.h"

namespace {

class Partners : public DeskTest {
protected:
    void ring(const std::wstring& fields) { desk.softphone(L"call " + fields); }
    bool serves() {
        desk.outlook(L"close-windows");
        ring(L"Number=0123 Incoming=true");
        return desk.outlookShows(L"Marc Durand - Contact");
    }
};

// The number of saved journal items, the log item among them.
int journalItems(desk::player::Desk& desk)
{
    for (const std::wstring& line : desk::linesOf(desk.outlook(L"count")))
        if (line.ends_with(L" Journal")) return std::stoi(line);
    return 0;
}

constexpr std::string_view people = "[contact]\nFirstName=Marc\nLastName=Durand\nBusinessTelephoneNumber=0123\n"
                                    "[contact]\nFirstName=Claire\nLastName=Petit\nBusinessTelephoneNumber=04.56\n";

}

TEST_F(Partners, OutlookBusyForAWhile_TheCallIsServedAllTheSame)
{
    start(people);
    desk.outlook(L"fault on Items.Find at 1 busy 4");
    desk.outlook(L"fault on ContactItem.Display at 1 busy 3");
    EXPECT_TRUE(serves());
}

TEST_F(Partners, TwoCallsWhileOutlookHangs_AreServedOneAfterTheOther_InOrder)
{
    start(people);
    desk.outlook(L"clear");
    desk.outlook(L"fault on Items.Find at 1 hang 1500");
    ring(L"Number=0123 Incoming=true");
    desk::player::waitFor(300);
    ring(L"Number=0456 Incoming=true");
    EXPECT_TRUE(desk.outlookShows(L"Claire Petit - Contact"));
    EXPECT_TRUE(desk.outlookShows(L"Marc Durand - Contact"));
    const std::wstring record = desk.outlook(L"record");
    const std::size_t shown = record.find(L"ContactItem.Display method");
    const std::size_t second = record.find(L"'0456'");
    EXPECT_LT(shown, second) << "the first call's actions come before the second call's first look-up";
}

TEST_F(Partners, OutlookDiesInTheMiddleOfAWalk_HublinkGoesOn_AndServesTheNextOutlook)
{
    start(people);
    desk.outlook(L"old on");
    desk.outlook(L"fault on ContactItem.CarTelephoneNumber at 2 die");
    ring(L"Number=999 Incoming=true");
    EXPECT_TRUE(desk.outlookProcess().ended(soon));
    tick();
    desk::player::waitFor(300);
    EXPECT_TRUE(desk.hublinkProcess().running());
    desk.startOutlook(people);
    tick();
    EXPECT_TRUE(outlookIsAskedFor(L"NameSpace.GetDefaultFolder"));
    desk::player::waitFor(500);
    EXPECT_TRUE(serves());
}

TEST_F(Partners, CallObjectsOfTheWrongShape_EndQuietly_AndTheNextCallIsServed)
{
    start(people);
    for (const wchar_t* fault : {L"missing Call.Number", L"missing Call.Incoming", L"answer Call.Number nothing",
                                 L"answer Call.Incoming text abc", L"fault on Call.DestinationNumber raise 0x80004005 Pavex|broken"}) {
        const std::wstring told = desk::ask(L"pavex", fault);
        if (told.starts_with(L"error:")) ADD_FAILURE() << desk::utf8(told);
        ring(L"Number=0123 Incoming=true");
        desk::player::waitFor(200);
        desk.softphone(L"clear");
        desk.softphone(L"answer off");
        desk.outlook(L"close-windows");
    }
    EXPECT_TRUE(desk.hublinkProcess().running());
    EXPECT_TRUE(serves());
}

TEST_F(Partners, SoftphoneWithoutClassInformation_IsSubscribedToAllTheSame)
{
    desk.startSoftphone();
    desk.softphone(L"discovery all off");
    desk.startOutlook(people);
    desk.startHublink();
    ASSERT_TRUE(logGets(L"Connector Initialization  Ok"));
    EXPECT_EQ(desk.softphone(L"subscribers"), L"Application 1\nLine 1\nHistory 1\nAddressBook 1");
    EXPECT_TRUE(serves());
}

TEST_F(Partners, SoftphoneAbsentAtTheStart_TheProgramEndsByItself)
{
    desk.startOutlook();
    desk.startHublink();
    desk::player::waitFor(2000);
    // COM starts a softphone for the attachment; without one registered nothing would.
    EXPECT_TRUE(logGets(L"Connector Initialization  Ok"));
    desk::ask(L"pavex", L"exit");
    desk::player::waitFor(500);
    desk.tick();
    desk::player::waitFor(500);
    desk.tick();
    EXPECT_TRUE(ends());
}

TEST_F(Partners, SynchronisationRunsOnceForEveryRecord)
{
    start({}, "[user]\nFirstText=Anna\nSecondText=Keller\n"
              "[entry]\nId=1.1\nNumber=01 11\nLastName=Adler\nFirstName=Alice\n"
              "[entry]\nId=1.2\nNumber=0222\nLastName=Blanc\nFirstName=Bernd\n"
              "[history]\nId=2.1\nNumber=0111\nIncoming=true\nState=6\n");
    EXPECT_TRUE(logGets(L"1 In OutLook 0222 Blanc Bernd"));
    EXPECT_TRUE(logGets(L"2 In OutLook 0111 Adler Alice"));
    EXPECT_TRUE(desk.record(L"journal", L"Subject", L"* Alice Adler (0111)"));
    const std::wstring contacts = desk.outlook(L"contacts");
    ASSERT_TRUE(desk.stopHublink());
    desk.outlook(L"clear");
    desk.startHublink();
    EXPECT_TRUE(outlookIsAskedFor(L"NameSpace.GetDefaultFolder"));
    desk::player::waitFor(1500);
    EXPECT_EQ(desk.outlook(L"contacts"), contacts);
    EXPECT_EQ(desk.outlook(L"calls").find(L"Items.Add"), std::wstring::npos);
}

TEST_F(Partners, MapServerKilled_CallsAreServed_AndTheProgramCanBeStopped)
{
    start(people);
    support::killMapServers();
    EXPECT_TRUE(serves());
    PostMessageW(FindWindowW(L"Hublink", nullptr), WM_CLOSE, 0, 0);
    desk.tick();
    EXPECT_FALSE(ends(1000)) << "the first try ends quietly: the map cannot be told";
    desk.tick();
    EXPECT_TRUE(ends());
    EXPECT_EQ(desk.hublinkProcess().exitCode(), 0u);
}

TEST_F(Partners, MapServerKilled_NothingAnsweredIsLost_AndNothingIsCopiedTwice)
{
    start({}, "[entry]\nId=1.1\nNumber=0111\nLastName=Adler\nFirstName=Alice\n"
              "[history]\nId=2.1\nNumber=0222\nIncoming=true\nState=6\n");
    const std::wstring contacts = desk.outlook(L"contacts");
    support::killMapServers();
    ASSERT_TRUE(desk.stopHublink());
    desk.restartPartners(); // where the service had to end with the server, it has forgotten them
    desk.startHublink();
    EXPECT_TRUE(outlookIsAskedFor(L"NameSpace.GetDefaultFolder"));
    desk::player::waitFor(2500);
    EXPECT_EQ(desk.outlook(L"contacts"), contacts);
    EXPECT_EQ(desk.outlook(L"calls").find(L"Items.Add"), std::wstring::npos);
    std::size_t calls = 0;
    for (const desk::StoreRecord& record : desk::parseStore(desk.outlook(L"journal")))
        calls += record.find(L"Type") && *record.find(L"Type") == L"Phone Call";
    EXPECT_EQ(calls, 1u);
}

TEST_F(Partners, DeletedEntry_StaysMappedUntilTheNextStart)
{
    start({}, "[entry]\nId=1.1\nNumber=0111\nLastName=Adler\nFirstName=Alice\n");
    using automation::Object;
    const auto records = [] {
        return Object::create(L"PavexConvId.OrvelConvertId").get(L"idCollection", {std::int32_t{1}}).object().get(L"Count").int32();
    };
    EXPECT_EQ(records(), 1);
    desk.softphone(L"entry delete 1.1");
    desk::player::waitFor(300);
    EXPECT_EQ(records(), 1);
    ASSERT_TRUE(desk.stopHublink());
    desk.startHublink();
    EXPECT_TRUE(desk::player::waitUntil([&] { return records() == 0; }, soon));
    EXPECT_TRUE(desk.record(L"contacts", L"LastName", L"Adler")) << "the contact itself is left alone";
}

TEST_F(Partners, StrangersAndTheirCallsInTheHistory_LeaveNoObjectBehindInOutlook)
{
    constexpr int calls = 10;
    start(people);
    const std::wstring kept = desk.outlook(L"objects"); // the session's own, and the log item
    for (int n = 0; n < calls; ++n) {
        ring(L"Number=777" + std::to_wstring(n) + L" Incoming=true");
        desk.softphone(L"history add Number=777" + std::to_wstring(n) + L" Incoming=true");
    }
    ASSERT_TRUE(desk::player::waitUntil([&] { return journalItems(desk) == 1 + calls; }, soon));
    EXPECT_TRUE(desk::player::waitUntil([&] { return desk.outlook(L"objects") == kept; }, soon))
        << desk::utf8(desk.outlook(L"objects")) << ", not " << desk::utf8(kept);
}
