// Who has a number in the personal book.
#include "number_search_fixture.h"

namespace hublink {

namespace {

using LotusPersonalNoteId = NumberSearchFixture;

}

TEST_F(LotusPersonalNoteId, PersonalNoteIdOfANumberThatNoQueryCanSay_IsEmpty_AndNothingIsAsked)
{
    session.LotusAddressBooks[0].ViewTel = L"";
    add(L"names.nsf", durand);
    for (const wchar_t* number : {L"01\"4567", L"01*", L"?????7"})
        EXPECT_EQ(FindNoteIdInPersonalBook(session, number), L"") << desk::utf8(number);
    EXPECT_EQ(calls(L"NotesView.FTSearch method"), 0u);
    EXPECT_EQ(trapped.errors, std::vector<std::string>{});
}

TEST_F(LotusPersonalNoteId, PersonalNoteId_IsFoundByTheUnchangedNumberOnly)
{
    add(L"names.nsf", durand);
    EXPECT_EQ(FindNoteIdInPersonalBook(session, L"014567"), L"8F6");
    EXPECT_EQ(callsTo(L"NotesView."), Lines{keyed(L"014567")});
    forgetCalls();
    EXPECT_EQ(FindNoteIdInPersonalBook(session, L"01.45 67"), L"");
    EXPECT_EQ(callsTo(L"NotesView."), Lines{keyed(L"01.45 67")});
}

TEST_F(LotusPersonalNoteId, PersonalNoteIdWithoutAPhoneView_IsFoundByFullText)
{
    session.LotusAddressBooks[0].ViewTel = L"";
    add(L"names.nsf", durand);
    EXPECT_EQ(FindNoteIdInPersonalBook(session, L"014567"), L"8F6");
    EXPECT_EQ(callsTo(L"NotesView."),
              (Lines{L"NotesView.FTSearch method (BSTR \"[OfficePhoneNumber] CONTAINS \"014567\" OR "
                     L"[CellPhoneNumber] CONTAINS \"014567\"\", I2 1)",
                     L"NotesView.GetFirstDocument method ()"}));
    EXPECT_EQ(FindNoteIdInPersonalBook(session, L"099"), L"");
    session.LotusAddressBooks[0].MainView = L"";
    EXPECT_EQ(FindNoteIdInPersonalBook(session, L"014567"), L"");
}

TEST_F(LotusPersonalNoteId, PersonalNoteIdWithoutAPersonalBook_OrASession_IsEmpty)
{
    add(L"names.nsf", durand);
    session.LotusReady = false;
    EXPECT_EQ(FindNoteIdInPersonalBook(session, L"014567"), L"");
    session.LotusReady = true;
    session.nSelectedPersonal = -1;
    EXPECT_EQ(FindNoteIdInPersonalBook(session, L"014567"), L"");
    EXPECT_EQ(notes.recorder().calls().size(), 0u);
    EXPECT_EQ(trapped.errors, std::vector<std::string>{});
}

TEST_F(LotusPersonalNoteId, PersonalNoteIdOfAFailingBook_IsEmpty_WithoutALogLine)
{
    const std::wstring before = lastLogLine();
    notes.ask(L"available names.nsf off");
    EXPECT_EQ(FindNoteIdInPersonalBook(session, L"014567"), L"");
    EXPECT_EQ(trapped.procedures, Lines{L"FindNoteIdInPersonalBook"});
    EXPECT_EQ(lastLogLine(), before);
}

}
