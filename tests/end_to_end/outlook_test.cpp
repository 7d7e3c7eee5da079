// Outlook as users have it: guarded, updated, of an old version, refusing; and strange callers.
#include "desk_fixture.h"

namespace {

constexpr std::string_view people = "[contact]\nFirstName=Marc\nLastName=Durand\nBusinessTelephoneNumber=0123\n"
                                    "Email1Address=marc@example.com\n"
                                    "[contact]\nFirstName=Claire\nLastName=Petit\nBusinessTelephoneNumber=04.56\n";

class OutlookAtTheDesk : public DeskFixture {
protected:
    void ring(const std::wstring& number)
    {
        std::wstring quoted;
        for (const wchar_t c : desk::escaped(number)) quoted += c == L'"' ? std::wstring(L"\\\"") : std::wstring(1, c);
        desk.softphone(L"call Number=\"" + quoted + L"\" LastName=Stranger Incoming=true");
    }

    std::size_t contacts()
    {
        std::size_t saved = 0;
        for (const desk::StoreRecord& record : desk::parseStore(desk.outlook(L"contacts")))
            saved += !record.find(L"Unsaved");
        return saved;
    }

    // Ticks until the session with this Outlook is open.
    bool sessionOpens()
    {
        const bool opened = desk::player::waitUntil(
            [&] {
                desk.tick();
                return desk.outlook(L"calls").find(L"NameSpace.GetDefaultFolder method") != std::wstring::npos;
            },
            eventTimeout);
        return opened && desk::player::waitUntil([] { return idle(); }, eventTimeout);
    }

    bool mainWindowCloses()
    {
        return desk::player::waitUntil(
            [] { return !IsWindowVisible(FindWindowW(nullptr, L"Contacts - Microsoft Outlook")); }, eventTimeout);
    }
};

}

TEST_F(OutlookAtTheDesk, ThatComesBackWithOtherIdentifiers_IsServedByItsOwn)
{
    start(people);
    ring(L"0456");
    ASSERT_TRUE(desk.outlookShows(L"Claire Petit - Contact"));
    desk.closeOutlook();
    tick();
    // Four rows on: what was Find is GetFirst now, what was a number is a name.
    desk.startOutlook("[outlook]\nIdentifiers=4\n" + std::string(people));
    ASSERT_TRUE(sessionOpens());
    ring(L"0456");
    EXPECT_TRUE(desk.outlookShows(L"Claire Petit - Contact"));
    const auto claire = desk.record(L"contacts", L"LastName", L"Petit");
    ASSERT_TRUE(claire);
    EXPECT_EQ(*claire->find(L"BusinessTelephoneNumber"), L"0456") << "rewritten where it stood";
    EXPECT_EQ(contacts(), 2u);
    const std::wstring record = desk.outlook(L"record");
    EXPECT_EQ(record.find(L"DISPID"), std::wstring::npos);
    EXPECT_NE(record.find(L"Items.Find method"), std::wstring::npos);
}

TEST_F(OutlookAtTheDesk, WhoseUserRefusesEveryQuestion_CallersAreRecognised_AndNothingIsDoubled)
{
    desk.setDefault("AllApplication", "NewContact", "true");
    desk.startSoftphone("[user]\nFirstText=Anna\nSecondText=Keller\n"
                        "[entry]\nId=1.1\nNumber=0123\nLastName=Durand\nFirstName=Marc\n"
                        "[history]\nId=2.1\nNumber=0123\nIncoming=true\nState=6\n");
    desk.startOutlook("[outlook]\nGuard=deny 0x80040102\n" + std::string(people));
    desk.startHublink();
    // The log's further lines are refused; the copied call tells how far Hublink is.
    ASSERT_TRUE(desk::player::waitUntil(
        [&] { return desk.record(L"journal", L"Subject", L"* Marc Durand (0123)").has_value(); }, eventTimeout));
    ASSERT_TRUE(desk::player::waitUntil([] { return idle(); }, eventTimeout));
    ring(L"0123");
    EXPECT_TRUE(desk.outlookShows(L"Marc Durand - Contact"));
    EXPECT_EQ(contacts(), 2u);
    EXPECT_NE(desk.outlook(L"questions"), L"0");
}

TEST_F(OutlookAtTheDesk, Version2003ClosedByItsUser_LivesOnForHublink_WhichServesTheNextCall)
{
    start("[outlook]\nVersion=2003\n" + std::string(people));
    desk.outlook(L"exit");
    ASSERT_TRUE(mainWindowCloses());
    tick();
    EXPECT_TRUE(desk.outlookProcess().running());
    ring(L"0456");
    EXPECT_TRUE(desk.outlookShows(L"Claire Petit - Contact"));
    desk.outlook(L"close-windows");
}

TEST_F(OutlookAtTheDesk, ThatRefusesToBeCreated_IsAskedAtEachTick_AndServedWhenItLetsClientsIn)
{
    desk.startSoftphone();
    desk.startOutlook("[outlook]\nCreation=fails 1500\n" + std::string(people));
    desk.startHublink();
    const auto creations = [&] { return std::stoi(desk.outlook(L"creations")); };
    ASSERT_TRUE(desk::player::waitUntil([&] { return creations() >= 3; }, 3 * eventTimeout))
        << "at the start, and at two ticks of its own";
    EXPECT_TRUE(desk.hublinkProcess().running());
    desk.outlook(L"creation works");
    ASSERT_TRUE(sessionOpens());
    ring(L"0123");
    EXPECT_TRUE(desk.outlookShows(L"Marc Durand - Contact"));
}

TEST_F(OutlookAtTheDesk, CallersWithStrangeNumbers_GetOneContactEach_AndNobodyElseIsShown)
{
    desk.setDefault("AllApplication", "NewContact", "true");
    start(people);
    std::size_t expected = 2;
    for (const wchar_t* number : {L"0'or[LastName]>'", L"01'23", L"\"", L"[LastName]", L"*",
                                  L"01\x01"
                                  L"23"}) {
        ++expected;
        for (int call = 0; call < 2; ++call) {
            desk.outlook(L"close-windows");
            ring(number);
            EXPECT_TRUE(desk.outlookShows(L"Stranger - Contact")) << desk::utf8(number);
            EXPECT_EQ(desk::linesOf(desk.outlook(L"windows")).size(), 1u) << desk::utf8(number);
        }
        EXPECT_EQ(contacts(), expected) << desk::utf8(number);
    }
}

TEST_F(OutlookAtTheDesk, KnownUnderDotsBehindAThousandOthers_IsShown_AndNoContactIsWalkedOver)
{
    std::string records;
    for (int n = 0; n < 1000; ++n)
        records += "[contact]\nLastName=Other\nHomeTelephoneNumber=08." + std::to_string(1000 + n) + "\n";
    start(records + std::string(people));
    desk.outlook(L"clear");
    ring(L"0456");
    ASSERT_TRUE(desk.outlookShows(L"Claire Petit - Contact"));
    const std::wstring calls = desk.outlook(L"calls");
    EXPECT_NE(calls.find(L"NameSpace.GetItemFromID method"), std::wstring::npos);
    EXPECT_EQ(calls.find(L"Items.GetNext"), std::wstring::npos);
    EXPECT_EQ(*desk.record(L"contacts", L"LastName", L"Petit")->find(L"BusinessTelephoneNumber"), L"0456");
}
