// Partners that are busy, slow, wrong or die.
#include "desk_fixture.h"

#include "automation/object.h"
#include "desk/common/control_pipe.h"
#include "support/processes.h"

namespace {

class Partners : public DeskFixture {
protected:
    void ring(const std::wstring& fields) { desk.softphone(L"call " + fields); }
    using Counts = std::pair<std::int32_t, std::int32_t>; // calls, entries

    static Counts mapRecords()
    {
        const automation::Object map = automation::Object::create(L"PavexConvId.OrvelConvertId");
        const auto count = [&](std::int32_t collection) {
            return map.get(L"idCollection", {collection}).object().get(L"Count").int32();
        };
        return {count(0), count(1)};
    }

    // Journal items that stand for a call.
    std::size_t phoneCalls()
    {
        std::size_t found = 0;
        for (const desk::StoreRecord& record : desk::parseStore(desk.outlook(L"journal")))
            found += record.find(L"Type") && *record.find(L"Type") == L"Phone Call";
        return found;
    }

    bool serves()
    {
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

constexpr std::string_view oneOfEach = "[entry]\nId=1.1\nNumber=0111\nLastName=Adler\nFirstName=Alice\n"
                                       "[history]\nId=2.1\nNumber=0222\nIncoming=true\nState=6\n";
constexpr std::string_view people = "[contact]\nFirstName=Marc\nLastName=Durand\nBusinessTelephoneNumber=0123\n"
                                    "[contact]\nFirstName=Claire\nLastName=Petit\nBusinessTelephoneNumber=04.56\n";

}

TEST_F(Partners, OutlookBusyForAWhile_TheCallIsServedAllTheSame)
{
    start(people);
    desk.outlook(L"fault on Items.Find at 1 busy 4");
    desk.outlook(L"fault on ContactItem.Display at 1 busy 3");
    EXPECT_TRUE(serves()) << "Outlook was asked:\n"
                          << desk::utf8(desk.outlook(L"record")) << "\nthe softphone:\n"
                          << desk::utf8(desk.softphone(L"record"));
}

TEST_F(Partners, TwoCallsWhileOutlookHangs_AreServedOneAfterTheOther_InOrder)
{
    start(people);
    desk.outlook(L"clear");
    desk.outlook(L"fault on Items.Find at 1 hang 1500");
    ring(L"Number=0123 Incoming=true");
    ASSERT_TRUE(outlookIsAskedFor(L"Items.Find"));
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
    EXPECT_TRUE(desk.outlookProcess().ended(eventTimeout));
    tick();
    settle();
    EXPECT_TRUE(desk.hublinkProcess().running());
    desk.startOutlook(people);
    tick();
    EXPECT_TRUE(outlookIsAskedFor(L"NameSpace.GetDefaultFolder"));
    settle();
    EXPECT_TRUE(serves());
}

TEST_F(Partners, CallObjectsOfTheWrongShape_EndQuietly_AndTheNextCallIsServed)
{
    start(people);
    ASSERT_TRUE(serves()); // the names of its members are known from here on
    const std::pair<const wchar_t*, const wchar_t*> faults[] = {
        {L"missing Call.Number", L"Call.Number"},
        {L"missing Call.Incoming", L"Call.Incoming"},
        {L"answer Call.Number nothing", L"Call.Number"},
        {L"answer Call.Incoming text abc", L"Call.Incoming"},
        {L"fault on Call.DestinationNumber raise 0x80004005 Pavex|broken", L"Call.DestinationNumber"}};
    for (const auto& [fault, member] : faults) {
        desk.outlook(L"close-windows");
        desk.softphone(L"clear");
        desk.softphone(fault);
        ring(L"Number=0123 Incoming=true");
        EXPECT_TRUE(desk::player::waitUntil(
            [&, asked = member + std::wstring(L" get")] { return timesAsked(desk.softphone(L"calls"), asked) > 0; },
            eventTimeout))
            << desk::utf8(fault) << " was not met";
        desk.softphone(L"fault off");
        desk.softphone(L"answer off");
        settle();
        EXPECT_EQ(desk.outlook(L"windows"), L"") << desk::utf8(fault);
    }
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

TEST_F(Partners, SoftphoneThatIsNotInstalled_TheProgramEndsByItself_AndTheMapIsKept)
{
    start({}, oneOfEach);
    ASSERT_TRUE(desk.stopHublink());
    desk.uninstallSoftphone();
    ASSERT_EQ(mapRecords(), (Counts{1, 1}));
    desk.startHublink();
    EXPECT_TRUE(isLogged(L"Connector Initialization  Ok", 2));
    tick();
    EXPECT_TRUE(isLogged(L"Stop Connector Pavex HS", 1));
    desk.tick();
    EXPECT_TRUE(ends());
    EXPECT_TRUE(support::processesNamed(L"pavex.exe").empty());
    EXPECT_EQ(mapRecords(), (Counts{1, 1}));
}

TEST_F(Partners, ListThatStopsAnswering_KeepsItsMapRecords_TheOtherListIsPurged)
{
    start({}, oneOfEach);
    ASSERT_TRUE(desk.stopHublink());
    desk.softphone(L"entry delete 1.1");
    desk.softphone(L"history delete 2.1");
    desk.softphone(L"fault on AddressBook.* from 2 fail 0x800706BA"); // its count is told, its first look-up fails
    desk.startHublink();
    EXPECT_TRUE(isLogged(L"Pb In Repertory Synchronisation", 1));
    EXPECT_TRUE(isLogged(L"Connector Initialization  Ok", 2));
    EXPECT_EQ(mapRecords(), (Counts{0, 1}));
}

TEST_F(Partners, SoftphoneDiesWhileTheMapIsPurged_NoRecordIsUnmapped_AndNothingIsCopiedTwice)
{
    start({}, oneOfEach);
    ASSERT_TRUE(desk.stopHublink());
    desk.softphone(L"fault on History.Find at 1 die");
    desk.startHublink();
    EXPECT_TRUE(desk.softphoneProcess().ended(eventTimeout));
    EXPECT_TRUE(desk::player::waitUntil(
        [&] {
            desk.tick();
            return ends(100);
        },
        eventTimeout));
    EXPECT_EQ(mapRecords(), (Counts{1, 1}));
    desk.reopenSoftphone();
    desk.startHublink();
    EXPECT_TRUE(isLogged(L"History Synchronisation Ok", 2));
    EXPECT_EQ(phoneCalls(), 1u);
}

TEST_F(Partners, Synchronisation_CopiesEveryRecordOnce_AlsoAtTheNextStart)
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
    desk.startHublink();
    EXPECT_TRUE(isLogged(L"Repertory Synchronisation Ok", 2));
    EXPECT_TRUE(isLogged(L"History Synchronisation Ok", 2));
    EXPECT_EQ(desk.outlook(L"contacts"), contacts);
    EXPECT_EQ(phoneCalls(), 1u);
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
    start({}, oneOfEach);
    const std::wstring contacts = desk.outlook(L"contacts");
    support::killMapServers();
    ASSERT_TRUE(desk.stopHublink());
    desk.restartPartners(); // where the service had to end with the server, it has forgotten them
    desk.startHublink();
    EXPECT_TRUE(isLogged(L"Repertory Synchronisation Ok", 2));
    EXPECT_TRUE(isLogged(L"History Synchronisation Ok", 2));
    EXPECT_EQ(desk.outlook(L"contacts"), contacts);
    EXPECT_EQ(phoneCalls(), 1u);
}

TEST_F(Partners, DeletedEntry_StaysMappedUntilTheNextStart)
{
    start({}, "[entry]\nId=1.1\nNumber=0111\nLastName=Adler\nFirstName=Alice\n");
    EXPECT_EQ(mapRecords().second, 1);
    desk.softphone(L"entry delete 1.1");
    settle(); // the event has been handled
    EXPECT_EQ(mapRecords().second, 1);
    ASSERT_TRUE(desk.stopHublink());
    desk.startHublink();
    EXPECT_TRUE(desk::player::waitUntil([&] { return mapRecords().second == 0; }, eventTimeout));
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
    ASSERT_TRUE(desk::player::waitUntil([&] { return journalItems(desk) == 1 + calls; }, eventTimeout));
    EXPECT_TRUE(desk::player::waitUntil([&] { return desk.outlook(L"objects") == kept; }, eventTimeout))
        << desk::utf8(desk.outlook(L"objects")) << ", not " << desk::utf8(kept);
}
