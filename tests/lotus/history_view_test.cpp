// The view of the history on the screen, once a call has come into it.
#include "history_fixture.h"

namespace hublink {

namespace {

using LotusHistoryView = HistoryFixture;

}

TEST_F(LotusHistoryView, HistoryInFront_ItsViewIsRefreshedOnce_AfterTheSave)
{
    ready();
    notes.ask(L"show pavexhistory.nsf Calls");
    EXPECT_FALSE(create(call(L"")).empty());
    EXPECT_EQ(calls(refresh), 1u);
    EXPECT_EQ(record().back(), L"NotesUIWorkspace.ViewRefresh method ()");
}

TEST_F(LotusHistoryView, HistoryInFront_IsRecognisedByTheDatabasesOwnFileName)
{
    ready();
    session.LotusCallLog.Base = L"PAVEXHISTORY";
    notes.ask(L"show pavexhistory.nsf Calls");
    create(call(L""));
    EXPECT_EQ(calls(refresh), 1u);
}

TEST_F(LotusHistoryView, AnotherDatabaseInFront_NothingIsRefreshed)
{
    ready();
    notes.ask(L"show names.nsf People");
    EXPECT_FALSE(create(call(L"")).empty());
    EXPECT_EQ(calls(L"NotesUIWorkspace.CurrentDatabase get"), 1u);
    EXPECT_EQ(calls(refresh), 0u);
}

TEST_F(LotusHistoryView, NothingInFront_NothingIsRefreshed_AndNoErrorIsMet)
{
    ready();
    EXPECT_FALSE(create(call(L"")).empty());
    EXPECT_EQ(calls(refresh), 0u);
    EXPECT_EQ(trapped.errors, std::vector<std::string>{});
}

TEST_F(LotusHistoryView, ViewCannotBeRefreshed_TheResultStays)
{
    ready();
    notes.ask(L"show pavexhistory.nsf Calls");
    for (const wchar_t* broken :
         {L"on NotesUIWorkspace.CurrentDatabase fail 0x80004005", L"on NotesUIDatabase.Database fail 0x80004005",
          L"on NotesDatabase.FileName fail 0x80004005", L"on NotesUIWorkspace.ViewRefresh fail 0x80004005"}) {
        fault(broken);
        const std::wstring noteId = create(call(L""));
        EXPECT_EQ(noteId, field(documents(historyBase).back(), L"@NoteID")) << desk::utf8(broken);
        fault(L"off");
    }
    EXPECT_EQ(trapped.errors.size(), 4u);
}

TEST_F(LotusHistoryView, ClientCannotBeStarted_TheResultStays)
{
    ready();
    notes.withdraw();
    const std::wstring noteId = create(call(L""));
    EXPECT_EQ(noteId, field(documents(historyBase).at(0), L"@NoteID"));
}

TEST_F(LotusHistoryView, DatabaseInFrontThatIsNotTold_RefreshesNothing_AndTheResultStays)
{
    ready();
    notes.ask(L"show pavexhistory.nsf Calls");
    fault(L"on NotesUIDatabase.Database answer Nothing");
    const std::wstring noteId = create(call(L""));
    EXPECT_EQ(noteId, field(documents(historyBase).at(0), L"@NoteID"));
    EXPECT_EQ(calls(refresh), 0u);
    EXPECT_EQ(trapped.procedures, Lines{L"CreateHistoryDocument"});
}

}
