#include "lotus/calendars.h"

#include "each_call.h"

namespace hublink {

namespace {

constexpr const wchar_t* claire = L"Form=Person\nLastName=Petit\nFirstName=Claire\nFullName=Claire Petit/Acme\n"
                                  L"OfficePhoneNumber=0299\nMailAddress=claire@example.com";

class GroupCalendars : public LotusDocumentsFixture {
protected:
    // Switched on, with Claire Petit in the user's own address book.
    void open()
    {
        again();
        session.bShowGrpwAgenda = true;
        add(L"names.nsf", claire);
        forgetCalls();
    }

    std::wstring calendar(const std::wstring& name, const std::wstring& items)
    {
        return add(mailFile, L"Form=(GroupCalendar)\nCalendarName=" + name + L"\n" + items);
    }

    void show() { ShowGroupCalendars(session, L"02 99"); }

    // The documents on the screen, in the order of opening.
    Lines shown()
    {
        Lines ids;
        for (const desk::lotus::DocumentWindow& window : notes.model().workspace().windows()) {
            EXPECT_FALSE(window.editing);
            ids.push_back(window.note->saved()->universalId);
        }
        return ids;
    }
};

}

TEST_F(GroupCalendars, Query_NamesTheFormInDoubleQuotes)
{
    EXPECT_EQ(GroupCalendarQuery(), L"[Form] CONTAINS \"(GroupCalendar)\"");
}

TEST_F(GroupCalendars, EveryCalendarThatListsThePerson_IsOpenedForReading)
{
    open();
    const std::wstring sales = calendar(L"a", L"Members=Marc Durand/Acme\nMembers+=Claire Petit/Acme");
    calendar(L"b", L"Members=Marc Durand/Acme\nMembers+=Anna Keller/Acme");
    const std::wstring board = calendar(L"c", L"Members=Claire Petit/Acme\nMembers+=Anna Keller/Acme");
    show();
    EXPECT_EQ(shown(), (Lines{sales, board}));
}

TEST_F(GroupCalendars, CallsOfNotes_ComeInThisOrder)
{
    open();
    calendar(L"a", L"Members=Marc Durand/Acme");
    calendar(L"b", L"Members=Claire Petit/Acme");
    forgetCalls();
    show();
    const Lines all = record();
    const auto mail = std::find(all.begin(), all.end(),
                                L"NotesSession.GetDatabase method (BSTR \"CN=Mail1/O=Acme\", "
                                L"BSTR \"mail\\\\anna.nsf\")");
    EXPECT_EQ(Lines(mail, all.end()),
              (Lines{L"NotesSession.GetDatabase method (BSTR \"CN=Mail1/O=Acme\", BSTR \"mail\\\\anna.nsf\")",
                     L"NotesDatabase.GetView method (BSTR \"(GroupCalendarFolder)\")",
                     L"NotesView.FTSearch method (BSTR \"[Form] CONTAINS \"(GroupCalendar)\"\", I2 0)",
                     L"NotesView.GetNthDocument method (I4 1)", L"NotesDocument.GetItemValue method (BSTR \"Members\")",
                     L"NotesView.GetNthDocument method (I4 2)", L"NotesDocument.GetItemValue method (BSTR \"Members\")",
                     L"NotesUIWorkspace.EditDocument method (BOOL False, DISPATCH)"}));
}

TEST_F(GroupCalendars, FullName_IsComparedExactly)
{
    open();
    calendar(L"a", L"Members=claire petit/Acme\nMembers+=Claire Petit/Acme \nMembers+=Claire Petit");
    show();
    EXPECT_EQ(calls(L"NotesView.GetNthDocument method"), 1u);
    EXPECT_EQ(shown(), Lines{});
}

TEST_F(GroupCalendars, SwitchedOffOrNotReady_AsksNotesNothing)
{
    open();
    calendar(L"a", L"Members=Claire Petit/Acme");
    forgetCalls();
    session.bShowGrpwAgenda = false;
    show();
    session.bShowGrpwAgenda = true;
    session.LotusReady = false;
    show();
    EXPECT_EQ(record(), Lines{});
}

TEST_F(GroupCalendars, PopUpSwitch_MakesNoDifference)
{
    open();
    const std::wstring sales = calendar(L"a", L"Members=Claire Petit/Acme");
    session.bPopUpGrpwAgenda = false;
    show();
    EXPECT_EQ(shown(), Lines{sales});
}

TEST_F(GroupCalendars, NobodyHasTheNumber_TheMailIsNotOpened)
{
    open();
    calendar(L"a", L"Members=Claire Petit/Acme");
    forgetCalls();
    ShowGroupCalendars(session, L"0300");
    EXPECT_EQ(calls(L"NotesView.GetNthDocument method"), 0u);
    EXPECT_EQ(session.mailDatabase.dispatch(), nullptr);
}

TEST_F(GroupCalendars, PersonWithoutAFullName_TheNextBookIsAsked)
{
    open();
    const std::wstring sales = calendar(L"a", L"Members=\nMembers+=P. Novak/Acme");
    add(L"names.nsf", L"Form=Person\nLastName=Novak\nOfficePhoneNumber=0300");
    ShowGroupCalendars(session, L"0300");
    EXPECT_EQ(session.mailDatabase.dispatch(), nullptr);
    EXPECT_EQ(shown(), Lines{});

    add(L"books\\company.nsf", L"Form=Employee\nWholeName=P. Novak/Acme\nPhone=0300");
    ShowGroupCalendars(session, L"0300");
    EXPECT_EQ(shown(), Lines{sales});
}

TEST_F(GroupCalendars, NoGroupCalendars_NoDocumentIsAskedFor)
{
    open();
    add(mailFile, L"Form=Memo\nMembers=Claire Petit/Acme");
    show();
    EXPECT_EQ(calls(L"NotesView.FTSearch method"), 1u);
    EXPECT_EQ(calls(L"NotesView.GetNthDocument method"), 0u);
    EXPECT_EQ(shown(), Lines{});
}

TEST_F(GroupCalendars, MailDatabase_IsOpenedOnce_AndAnewAfterAnInitialisation)
{
    open();
    show();
    show();
    const auto mailOpened = [&] {
        Lines lines = record();
        return std::count_if(lines.begin(), lines.end(), [](const std::wstring& line) {
            return line.starts_with(L"NotesSession.GetDatabase") && line.find(L"anna") != std::wstring::npos;
        });
    };
    EXPECT_EQ(mailOpened(), 1);
    open();
    show();
    EXPECT_EQ(mailOpened(), 1);
}

TEST_F(GroupCalendars, MembersOfAnotherKind_AreNobodysName)
{
    open();
    calendar(L"a", L"Members:number=12");
    calendar(L"b", L"Members:date=2023-03-15");
    calendar(L"c", L"Members:richtext=Claire Petit");
    calendar(L"d", L"Members=");
    calendar(L"e", L"Other=1");
    const std::wstring last = calendar(L"f", L"Members=Claire Petit/Acme");
    show();
    EXPECT_EQ(shown(), Lines{last});
    EXPECT_EQ(trapped.errors, std::vector<std::string>{});
}

TEST_F(GroupCalendars, MembersAreNoArray_EndsQuietly)
{
    open();
    notes.ask(L"missing text");
    calendar(L"a", L"Other=1");
    show();
    EXPECT_EQ(shown(), Lines{});
    EXPECT_EQ(trapped.procedures, Lines{L"ShowGroupCalendars"});
}

TEST_F(GroupCalendars, NoSuchViewOrNoMail_EndsQuietly)
{
    open();
    calendar(L"a", L"Members=Claire Petit/Acme");
    session.MailServer.clear();
    session.MailFile = L"log.nsf";
    show();
    open();
    session.MailFile = L"nowhere.nsf";
    show();
    EXPECT_EQ(shown(), Lines{});
    EXPECT_EQ(trapped.procedures, (Lines{L"ShowGroupCalendars", L"ShowGroupCalendars"}));
}

TEST_F(GroupCalendars, MailThatCouldNotBeReached_IsAskedForAgain)
{
    open();
    const std::wstring sales = calendar(L"a", L"Members=Claire Petit/Acme");
    notes.ask(L"available " + std::wstring(mailFile) + L" off");
    show();
    EXPECT_EQ(shown(), Lines{});
    notes.ask(L"available " + std::wstring(mailFile) + L" on");
    show();
    EXPECT_EQ(shown(), Lines{sales});
}

TEST_F(GroupCalendars, NotesIsGone_EndsQuietly)
{
    open();
    session.NotesSession = automation::Object();
    show();
    EXPECT_EQ(shown(), Lines{});
}

TEST_F(GroupCalendars, OneCalendarCannotBeOpened_TheEarlierOnesStay)
{
    open();
    const std::wstring first = calendar(L"a", L"Members=Claire Petit/Acme");
    calendar(L"b", L"Members=Claire Petit/Acme");
    fault(L"on NotesUIWorkspace.EditDocument at 2 fail 0x80004005");
    show();
    EXPECT_EQ(shown(), Lines{first});
}

TEST_F(GroupCalendars, FailsAtAnyCall_EndsQuietly_WithNoMoreThanWasOpened)
{
    std::wstring first;
    std::size_t failures = 0;
    const auto prepare = [&] {
        open();
        first = calendar(L"a", L"Members=Claire Petit/Acme");
        calendar(L"b", L"Members=Marc Durand/Acme");
    };
    prepare();
    show();
    const std::size_t callsForTwo = callsMade(notes.recorder());
    atEachCall(
        notes.recorder(), fails, prepare, [&] { show(); },
        [&](const std::wstring& call) {
            ++failures;
                            // The last two calls are the second calendar and its members.
            const bool openedBefore = failures > callsForTwo - 2;
            const bool isOpened = openedBefore || asksForMail(call);
            EXPECT_EQ(shown(), isOpened ? Lines{first} : Lines{}) << desk::utf8(call);
        });
    EXPECT_EQ(failures, callsForTwo);
}

TEST_F(GroupCalendars, NotesIsBusyAtAnyCall_NothingIsLost)
{
    std::wstring sales;
    const auto prepare = [&] {
        open();
        sales = calendar(L"a", L"Members=Claire Petit/Acme");
    };
    atEachCall(
        notes.recorder(), isBusy, prepare, [&] { show(); },
        [&](const std::wstring& call) { EXPECT_EQ(shown(), Lines{sales}) << desk::utf8(call); });
}

TEST_F(GroupCalendars, CalendarThatHasGoneMeanwhile_EndsIt_TheEarlierOnesStay)
{
    open();
    const std::wstring first = calendar(L"a", L"Members=Claire Petit/Acme");
    calendar(L"b", L"Members=Claire Petit/Acme");
    calendar(L"c", L"Members=Claire Petit/Acme");
    fault(L"on NotesView.GetNthDocument at 2 answer Nothing");
    show();
    EXPECT_EQ(shown(), Lines{first});
    EXPECT_EQ(trapped.procedures, Lines{L"ShowGroupCalendars"});
}

TEST_F(GroupCalendars, PersonListedTwice_OpensTheCalendarOnce)
{
    open();
    const std::wstring sales = calendar(L"a", L"Members=Claire Petit/Acme\nMembers+=Claire Petit/Acme");
    show();
    EXPECT_EQ(shown(), Lines{sales});
}

TEST_F(GroupCalendars, MembersAsATypedArray_AreReadAsAnyOther)
{
    open();
    notes.ask(L"arrays typed");
    calendar(L"a", L"Members:number=12");
    const std::wstring sales = calendar(L"b", L"Members=Marc Durand/Acme\nMembers+=Claire Petit/Acme");
    show();
    EXPECT_EQ(shown(), Lines{sales});
}

}
