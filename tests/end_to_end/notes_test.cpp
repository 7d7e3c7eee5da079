#include "notes_desk_fixture.h"

#include <cwchar>

namespace {

class NotesAtTheDesk : public NotesDeskFixture {
protected:
    // The user opens a mail from that sender, in front of all windows; its universal identifier.
    std::wstring reads(const std::wstring& sender)
    {
        const std::wstring mail =
            desk.notes(L"add mail\\anna.nsf\nForm=Memo\nSubject=New\nFrom=" + desk::escaped(sender));
        desk.notes(L"open " + mail);
        desk.notes(L"front " + mail);
        return mail;
    }

    // Two ticks of the timer that follows the document in front have begun: one is through.
    void documentTick()
    {
        for (int tick = 0; tick < 2; ++tick) {
            const std::wstring before = desk.notes(L"calls");
            PostMessageW(FindWindowW(L"Hublink", nullptr), WM_TIMER, documentTimer, 0);
            const auto begins = [&] {
                return count(desk.notes(L"calls"), databaseAsked) > count(before, databaseAsked);
            };
            ASSERT_TRUE(desk::player::waitUntil(begins, eventTimeout));
        }
        ASSERT_TRUE(desk::player::waitUntil([] { return idle(); }, eventTimeout));
    }

    // The number before a call's name among the totals, 0 without one.
    static unsigned long count(const std::wstring& totals, const std::wstring& call)
    {
        for (const std::wstring& line : desk::linesOf(totals))
            if (line.ends_with(L" " + call)) return std::wcstoul(line.c_str(), nullptr, 10);
        return 0;
    }

    std::wstring numberOf(const std::wstring& mail)
    {
        const auto record = desk.document(L"mail\\anna.nsf", L"@UniversalID", mail);
        const std::wstring* number = record ? record->find(L"Tel") : nullptr;
        return number ? *number : L"";
    }

    std::size_t errorLines()
    {
        std::size_t found = 0;
        for (const auto& log : desk::parseStore(desk.notes(L"documents connector.nsf")))
            if (const std::wstring* body = log.find(L"Body"))
                for (const std::wstring& line : desk::linesOf(*body))
                    found += line.find(L"Error acces") != std::wstring::npos;
        return found;
    }

    static constexpr WPARAM documentTimer = 3;
    static constexpr const wchar_t* databaseAsked = L"NotesUIWorkspace.CurrentDatabase get";
};

}

TEST_F(NotesAtTheDesk, SoftphoneQuits_TheLogGetsItsLastLine_AndTheProgramEndsAtTheNextTick)
{
    startWithNotes();
    desk.softphone(L"quit");
    EXPECT_TRUE(notesLogGets(L"Stop Connector"));
    desk.tick();
    EXPECT_TRUE(ends());
    EXPECT_TRUE(desk.notesProcess().running());
}

TEST_F(NotesAtTheDesk, MailInFrontInTheFrameOfASecondProcess_GetsItsSendersNumber)
{
    const std::wstring program = desk::player::ownFolder() + L"\\notes2.exe";
    const std::wstring installed = std::wstring(desk::player::partnersFolder) + L"\\notes2.exe";
    ASSERT_TRUE(
        desk::player::waitUntil([&] { return CopyFileW(program.c_str(), installed.c_str(), FALSE); }, eventTimeout));
    startWithNotes();
    desk.notes(L"frame");
    const std::wstring mail = reads(L"claire.petit@example.com");
    DWORD inFront = 0;
    ASSERT_TRUE(desk::player::waitUntil(
        [&] {
            return GetWindowThreadProcessId(GetForegroundWindow(), &inFront) && inFront != desk.notesProcess().id();
        },
        eventTimeout));
    documentTick();
    EXPECT_EQ(numberOf(mail), L"4711");
    EXPECT_NE(inFront, desk.notesProcess().id()) << "the frame is another program's";
    desk.notes(L"back");
    const std::wstring unseen = desk.notes(L"add mail\\anna.nsf\nForm=Memo\nFrom=claire.petit@example.com");
    desk.notes(L"open " + unseen);
    PostMessageW(FindWindowW(L"Hublink", nullptr), WM_TIMER, documentTimer, 0);
    ASSERT_TRUE(desk::player::waitUntil([] { return idle(); }, eventTimeout));
    EXPECT_EQ(numberOf(unseen), L"") << "another program is in front";
}

TEST_F(NotesAtTheDesk, MailsFromStrangeSendersInFront_GetNobodysNumber_AndNoLineIsWritten)
{
    startWithNotes();
    for (const wchar_t* sender : {L"\"Petit, Claire\" <claire.petit@example.com>", L"*", L"?laire.petit@example.com",
                                  L"x\" OR [LastName] CONTAINS \"Durand", L"NOT x", L"CN=Marc Durand/O=Acme", L"<>",
                                  L"=?utf-8?Q?Claire?= <c@x>", L"a@b, claire.petit@example.com", L"(\r\n\t)"}) {
        const std::wstring mail = reads(sender);
        documentTick();
        EXPECT_EQ(numberOf(mail), L"") << desk::utf8(sender);
        desk.notes(L"close-windows");
    }
    const std::wstring known = reads(L"claire.petit@example.com");
    documentTick();
    EXPECT_EQ(numberOf(known), L"4711");
    EXPECT_EQ(errorLines(), 0u);
}

TEST_F(NotesAtTheDesk, StrangeNumbersRing_NobodyIsShown_AndNoLineIsWritten)
{
    desk.setDefault("AllApplication", "PopUp", "true");
    desk.setDefault("AllApplication", "NewContact", "false");
    startWithNotes();
    for (const wchar_t* number : {LR"("\"\"")", LR"("x\" OR [LastName] CONTAINS \"Durand")", L"*", L"0*", L"012345678?",
                                  L"#", L"NOT", LR"("[LastName] IS PRESENT")", L"anonymous", L"4711;ext=1"})
        desk.softphone(L"call Incoming=true Number=" + std::wstring(number));
    desk.softphone(L"call Incoming=true Number=4711");
    EXPECT_TRUE(desk.notesShows(L"Claire Petit/Acme"));
    const std::wstring windows = desk.notes(L"windows");
    EXPECT_EQ(count(desk.notes(L"calls"), L"NotesUIWorkspace.EditDocument method"), 1u) << desk::utf8(windows);
    EXPECT_EQ(errorLines(), 0u);
}
