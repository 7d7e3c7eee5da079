// The document of a person who was found, on the screen.
#include "number_search_fixture.h"

namespace hublink {

namespace {

using LotusShownPerson = NumberSearchFixture;

}

TEST_F(LotusShownPerson, Shown_TheDocumentOpensForReading_InItsDatabase)
{
    add(L"names.nsf", durand);
    EXPECT_TRUE(searchAndShow(L"014567"));
    EXPECT_EQ(callsTo(L"NotesUI"), (Lines{L"NotesUIWorkspace.CurrentDocument get ()",
                                          L"NotesUIWorkspace.OpenDatabase method (BSTR \"\", BSTR \"names.nsf\")",
                                          L"NotesUIWorkspace.EditDocument method (BOOL False, DISPATCH)"}));
    EXPECT_TRUE(notes.ask(L"windows").ends_with(L"\tread\tfront"));
}

TEST_F(LotusShownPerson, NotShown_TheScreenIsNotTouched)
{
    add(L"names.nsf", durand);
    search(L"014567");
    EXPECT_EQ(callsTo(L"NotesUI"), Lines{});
}

TEST_F(LotusShownPerson, ShownDocumentThatIsOpenAlready_TheOldCopyIsClosedAfterTheNewOneOpened)
{
    notes.ask(L"open " + add(L"names.nsf", durand) + L" edit");
    EXPECT_TRUE(searchAndShow(L"014567"));
    EXPECT_EQ(
        callsTo(L"NotesUI"),
        (Lines{L"NotesUIWorkspace.CurrentDocument get ()", L"NotesUIDocument.Document get ()",
               L"NotesUIWorkspace.OpenDatabase method (BSTR \"\", BSTR \"names.nsf\")",
               L"NotesUIWorkspace.EditDocument method (BOOL False, DISPATCH)", L"NotesUIDocument.Close method ()"}));
    const Lines windows = split(notes.ask(L"windows"), L'\n');
    ASSERT_EQ(windows.size(), 1u);
    EXPECT_TRUE(windows[0].ends_with(L"\tread\tfront")) << "the copy for reading, not the user's own";
}

TEST_F(LotusShownPerson, AnotherDocumentThatIsOpen_StaysOpen)
{
    notes.ask(L"open " + add(L"names.nsf", L"Form=Person\nLastName=Abel\n"));
    add(L"names.nsf", durand);
    EXPECT_TRUE(searchAndShow(L"014567"));
    EXPECT_EQ(calls(L"NotesUIDocument.Close method"), 0u);
    EXPECT_EQ(split(notes.ask(L"windows"), L'\n').size(), 2u);
}

TEST_F(LotusShownPerson, DocumentThatCannotBeShown_IsAFailureOfThisBook)
{
    add(L"names.nsf", durand);
    fault(L"on NotesUIWorkspace.OpenDatabase fail 0x80004005");
    EXPECT_FALSE(searchAndShow(L"014567"));
    EXPECT_EQ(person.lastName, L"Durand");
    EXPECT_EQ(lastLogLine(), noAccess(L" names.nsf"));
}

TEST_F(LotusShownPerson, OldCopyThatCannotBeClosed_IsAFailureOfThisBook_WithBothOnTheScreen)
{
    notes.ask(L"open " + add(L"names.nsf", durand));
    fault(L"on NotesUIDocument.Close fail 0x80004005");
    EXPECT_FALSE(searchAndShow(L"014567"));
    EXPECT_EQ(person.noteId, L"8F6");
    EXPECT_EQ(split(notes.ask(L"windows"), L'\n').size(), 2u);
    EXPECT_EQ(lastLogLine(), noAccess(L" names.nsf"));
}

}
