#include "desk_fixture.h"

#include "automation/enumeration.h"
#include "automation/object.h"

namespace {

class Trace : public DeskFixture {
protected:
    void startWithTrace(std::string_view softphone = {}, const std::string& features = {})
    {
        desk.startSoftphone(softphone);
        desk.startOutlook();
        desk::player::writeFile(desk.iniFile(), "[Application]\r\ntype=OUTLOOK\r\ntrace=true\r\n" + features);
        desk.startHublink();
    }

    // A tick that is over when this returns. Only where it opens no box.
    static void tickToItsEnd()
    {
        DWORD_PTR result = 0;
        ASSERT_TRUE(
            SendMessageTimeoutW(FindWindowW(L"Hublink", nullptr), WM_TIMER, 1, 0, SMTO_NORMAL, eventTimeout, &result));
    }
};

std::vector<std::wstring> mappedIds()
{
    using automation::Object;
    std::vector<std::wstring> ids;
    automation::Enumeration records(
        Object::create(L"PavexConvId.OrvelConvertId").get(L"idCollection", {std::int32_t{1}}).object());
    automation::Value record;
    while (records.next(record)) ids.push_back(record.object().get(L"idAppli").text());
    return ids;
}

}

TEST_F(Trace, EveryLogLine_IsShownAndWaitsForTheUser_AndTheEndIsAnnounced)
{
    startWithTrace();
    EXPECT_TRUE(boxShows(L"First Init Outlook"));
    EXPECT_TRUE(boxShows(L"Start Connector Initialization"));
    EXPECT_TRUE(boxShows(L"Connector Initialization  Ok"));
    ASSERT_TRUE(desk::player::waitUntil([] { return idle(); }, eventTimeout));
    PostMessageW(FindWindowW(L"Hublink", nullptr), WM_CLOSE, 0, 0);
    EXPECT_TRUE(boxShows(L"Stop Connector"));
    desk.tick();
    EXPECT_TRUE(boxShows(L"The End !!!"));
    EXPECT_TRUE(ends());
}

TEST_F(Trace, BoxLeftOpenForAMinute_BoxesDoNotPileUp_AndCallsAreServed)
{
    startWithTrace();
    EXPECT_TRUE(boxShows(L"First Init Outlook"));
    EXPECT_TRUE(boxShows(L"Start Connector Initialization"));
    EXPECT_TRUE(boxShows(L"Connector Initialization  Ok"));
    settle();
    desk.softphone(L"die"); // withdrawn first: a killed class stays dead for a while under some systems
    desk.tick();
    ASSERT_TRUE(desk::player::waitUntil([] { return !desk::player::messageBoxes(L"Hublink").empty(); }, eventTimeout));
    EXPECT_EQ(desk::player::messageBoxes(L"Hublink")[0].text, L"Stop Connector Pavex HS");
    for (int ticks = 0; ticks < 12; ++ticks) desk.tick(); // a minute of them
    desk::player::waitFor(500);
    EXPECT_EQ(desk::player::messageBoxes(L"Hublink").size(), 1u);
    EXPECT_TRUE(desk.hublinkProcess().running());
    EXPECT_TRUE(boxShows(L"Stop Connector Pavex HS"));
    EXPECT_TRUE(boxShows(L"Stop Connector"));
}

TEST_F(Trace, EndAnnounced_MoreTicks_AnnounceItOnce)
{
    startWithTrace();
    EXPECT_TRUE(boxShows(L"First Init Outlook"));
    EXPECT_TRUE(boxShows(L"Start Connector Initialization"));
    EXPECT_TRUE(boxShows(L"Connector Initialization  Ok"));
    settle();
    PostMessageW(FindWindowW(L"Hublink", nullptr), WM_CLOSE, 0, 0);
    EXPECT_TRUE(boxShows(L"Stop Connector"));
    for (int ticks = 0; ticks < 5; ++ticks) desk.tick();
    settle();
    EXPECT_EQ(desk::player::messageBoxes(L"Hublink").size(), 1u);
    EXPECT_TRUE(boxShows(L"The End !!!"));
    EXPECT_TRUE(ends());
}

// The log line comes before the contact. Its box lets ticks through, and at the
// first initialisation none is under way yet: one that finds a new Outlook
// initialises within it and sees the entry unmapped. (The program's own timer
// starts later, so it takes a tick from outside.)
TEST_F(Trace, InitialisationWithinTheBoxOfAnEntry_FindsItUnmapped_AndItsContactIsMadeTwice)
{
    startWithTrace("[entry]\nId=1.1\nNumber=0111\nLastName=Adler\nFirstName=Alice\n",
                   "[AllApplication]\r\nRepertory=true\r\n");
    const auto boxIsOpen = [](const wchar_t* text) {
        const auto boxes = desk::player::messageBoxes(L"Hublink");
        return !boxes.empty() && boxes[0].text == text;
    };
    constexpr const wchar_t* entryLine = L"1 In OutLook 0111 Adler Alice";
    EXPECT_TRUE(boxShows(L"First Init Outlook"));
    EXPECT_TRUE(boxShows(L"Start Connector Initialization"));
    EXPECT_TRUE(boxShows(L"Start repertory Synchronisation "));
    ASSERT_TRUE(desk::player::waitUntil([&] { return boxIsOpen(entryLine); }, eventTimeout));
    const HWND firstBox = desk::player::messageBoxes(L"Hublink")[0].window;
    EXPECT_EQ(desk.outlook(L"contacts"), L"") << "nothing is made before the line is acknowledged";

    desk.closeOutlook();
    tickToItsEnd();
    desk.startOutlook();
    desk.tick();
    EXPECT_TRUE(boxShows(L"First Init Outlook"));
    EXPECT_TRUE(boxShows(L"Start Connector Initialization"));
    EXPECT_TRUE(boxShows(L"Start repertory Synchronisation "));
    EXPECT_TRUE(desk::player::waitUntil([&] { return desk::player::messageBoxes(L"Hublink").at(0).window != firstBox; },
                                        eventTimeout));
    EXPECT_TRUE(boxShows(entryLine)) << "the entry is not mapped yet";
    EXPECT_TRUE(boxShows(L"Repertory Synchronisation Ok"));
    EXPECT_TRUE(boxShows(L"Connector Initialization  Ok"));
    EXPECT_EQ(desk::parseStore(desk.outlook(L"contacts")).size(), 1u);
    const std::vector<std::wstring> mappedWithin = mappedIds();

    EXPECT_TRUE(boxShows(entryLine)) << "the first one goes on where it was";
    EXPECT_TRUE(boxShows(L"Repertory Synchronisation Ok"));
    const auto contacts = desk::parseStore(desk.outlook(L"contacts"));
    ASSERT_EQ(contacts.size(), 2u);
    EXPECT_EQ(mappedWithin, std::vector{*contacts[0].find(L"EntryID")});
    EXPECT_EQ(mappedIds(), std::vector{*contacts[1].find(L"EntryID")});
    EXPECT_TRUE(boxShows(L"Connector Initialization  Ok"));
}
