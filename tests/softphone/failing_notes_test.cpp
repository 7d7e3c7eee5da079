// Every call to Notes fails once, in turn, while a forwarded call rings: what is
// served without the failing call still is, and the next call is served as if
// nothing had been.
#include "notes_link_fixture.h"

namespace hublink {

namespace {

class FailingNotes : public NotesLinkFixture {
protected:
    FailingNotes()
    {
        host.settings.bgWithPopUp = true;
        host.settings.bgWithCallBackMail = true;
        host.settings.bgSetNewContact = true;
    }

    // Message, calendar and caller's document, the screens empty before.
    void ringForwarded()
    {
        notes.ask(L"close-windows");
        outlook.command(L"close-windows", L"");
        ring({.party = {L"0123", L"", L""}, .incoming = true, .destinationNumber = L"4711"});
    }

    // A new session with Notes' records as at the start.
    void prepare()
    {
        notes.load(databases);
        lotusSession.LotusMustInit = true;
        link.InitConnector(NewLog::yes);
        outlookCalls.clear();
    }

    // The places of Notes among all calls of a ring, look-ups of names too.
    std::vector<std::size_t> callsOfARing()
    {
        for (int run = 0; run < 2; ++run) { // what is looked up once only is known then
            prepare();
            ringForwarded();
        }
        std::vector<std::size_t> places;
        for (std::size_t place = 0; place < outlookCalls.calls().size(); ++place)
            if (isNotes(place)) places.push_back(place);
        return places;
    }

    void ringWithAFault(std::size_t place, const std::wstring& fault)
    {
        prepare();
        outlookCalls.faults.add(L"at " + std::to_wstring(place + 1) + L" " + fault);
        ringForwarded();
        ASSERT_GT(outlookCalls.calls().size(), place);
        ASSERT_TRUE(isNotes(place)) << "the fault hit another partner";
    }

    bool isNotes(std::size_t place) const
    {
        return std::wstring_view(outlookCalls.calls()[place].className).starts_with(L"Notes");
    }

    bool isOpen(const std::wstring& window)
    {
        const Lines open = openNotes();
        return std::find(open.begin(), open.end(), window) != open.end();
    }

    const Lines whole{L"Marc Durand edit", L"Sales read", L"Marc Durand/Acme read"};

    static constexpr const wchar_t* people =
        L"[contact]\nFirstName=Marc\nLastName=Durand\nMobileTelephoneNumber=0123\n"
        L"[contact]\nFirstName=Claire\nLastName=Petit\nBusinessTelephoneNumber=4711\nEmail1Address=c@example.com\n";
};

}

TEST_F(FailingNotes, AtEveryCallInTurn_TheRestIsServed_NothingIsSaved_AndTheNextCallIsWhole)
{
    host.settings.bgWithOutlook = false;
    start();
    const auto places = callsOfARing();
    ASSERT_EQ(openNotes(), whole);
    ASSERT_GT(places.size(), 60u);
    for (const std::size_t place : places) {
        ringWithAFault(place, L"fail 0x80004005");
        EXPECT_TRUE(isOpen(whole[0]) || isOpen(whole[2])) << "one call costs one action at most: " << place;
        notes.ask(L"close-windows");
        EXPECT_EQ(noteCount(L"Person"), 2u) << place;
        EXPECT_EQ(noteCount(L"Phone Message"), 0u) << place;
        outlookCalls.clear();
        ringForwarded();
        EXPECT_EQ(openNotes(), whole) << "after call " << place;
    }
}

TEST_F(FailingNotes, AtEveryCallInTurn_OutlookIsServedWhole)
{
    start(people);
    const auto places = callsOfARing();
    ASSERT_GT(places.size(), 60u);
    const std::wstring served = windows();
    ASSERT_EQ(std::count(served.begin(), served.end(), L'\n'), 1) << "a mail and a contact";
    for (const std::size_t place : places) {
        ringWithAFault(place, L"fail 0x800706BE");
        EXPECT_EQ(windows(), served) << "with call " << place;
    }
}

TEST_F(FailingNotes, BusyAtEveryCallInTurn_NothingIsLost)
{
    host.settings.bgWithOutlook = false;
    start();
    for (const std::size_t place : callsOfARing()) {
        ringWithAFault(place, L"busy 2");
        EXPECT_EQ(openNotes(), whole) << "busy at call " << place;
    }
}

}
