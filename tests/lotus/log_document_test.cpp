#include "lotus/log_document.h"

#include "lotus_fixture.h"

namespace hublink {

namespace {

class LotusLog : public LotusFixture {
protected:
    // A session whose log document is still to be opened.
    void readyWithoutADocument()
    {
        ready();
        notes.load(notesDatabases);
        session.LogDatabase = session.NotesSession.get(L"GetDatabase", {L"", L"log.nsf"}).object();
        session.LogDocument = automation::Object();
        session.NewLogDocument = false;
        forgetCalls();
    }

    std::wstring body() { return field(documents(L"log.nsf").back(), L"Text"); }
};

}

TEST_F(LotusLog, MessageBeforeAnyInitialisation_IsDropped)
{
    session.NewLogDocument = true;
    WriteLotusLog(session, L"early");
    EXPECT_EQ(trapped.errors, std::vector<std::string>{});
    ready();
    EXPECT_EQ(body().find(L"early"), std::wstring::npos);
}

TEST_F(LotusLog, MessageWhileAnInitialisationIsWanted_IsDropped)
{
    readyWithoutADocument();
    session.LotusMustInit = true;
    WriteLotusLog(session, L"lost");
    EXPECT_EQ(notes.recorder().calls().size(), 0u);
    session.LotusMustInit = false;
    session.LotusReady = false;
    WriteLotusLog(session, L"kept");
    EXPECT_EQ(body(), L"\n3/15/2023 12:00:00 PM kept") << "it need not be ready for that";
}

TEST_F(LotusLog, FirstLine_OpensADocument_WithItsItemsInOrder)
{
    readyWithoutADocument();
    WriteLotusLog(session, L"first");
    EXPECT_EQ(record(),
              (std::vector<std::wstring>{
                  L"NotesDatabase.CreateDocument method ()", L"NotesDocument.Form put (BSTR \"Log\")",
                  L"NotesDocument.Type put (BSTR \"LogType\")",
                  L"NotesDocument.AppendItemValue method (BSTR \"From\", BSTR \"Connector Pavex \")",
                  L"NotesDocument.AppendItemValue method (BSTR \"Text\", BSTR \"\\n3/15/2023 12:00:00 PM first\")",
                  L"NotesDocument.AppendItemValue method (BSTR \"What\", BSTR \"Connector Pavex \")",
                  L"NotesDocument.AppendItemValue method (BSTR \"Start\", DATE 2023-03-15 12:00:00)",
                  L"NotesDocument.Save method (BOOL True, BOOL True)"}));
    EXPECT_EQ(body(), L"\n3/15/2023 12:00:00 PM first");
}

TEST_F(LotusLog, FurtherLine_StandsBelowTheOthers_InTheSameDocument)
{
    readyWithoutADocument();
    WriteLotusLog(session, L"first");
    forgetCalls();
    host.time += 0.25;
    WriteLotusLog(session, L"second\nof two lines");
    EXPECT_EQ(
        record(),
        (std::vector<std::wstring>{
            L"NotesDocument.GetItemValue method (BSTR \"Text\")", L"NotesDocument.RemoveItem method (BSTR \"Text\")",
            L"NotesDocument.AppendItemValue method (BSTR \"Text\", BSTR \"\\n3/15/2023 12:00:00 PM first\\n"
            L"3/15/2023 6:00:00 PM second\\nof two lines\")",
            L"NotesDocument.AppendItemValue method (BSTR \"Finish\", DATE 2023-03-15 18:00:00)",
            L"NotesDocument.Save method (BOOL True, BOOL True)"}));
    ASSERT_EQ(documents(L"log.nsf").size(), 1u);
    const desk::StoreRecord document = documents(L"log.nsf")[0];
    EXPECT_EQ(field(document, L"Start:date"), L"2023-03-15 12:00:00");
    EXPECT_EQ(field(document, L"Finish:date"), L"2023-03-15 18:00:00");
    EXPECT_EQ(body(), L"\n3/15/2023 12:00:00 PM first\n3/15/2023 6:00:00 PM second\nof two lines");
}

TEST_F(LotusLog, MidnightLine_HasADateWithoutATime)
{
    readyWithoutADocument();
    host.time = 45000;
    WriteLotusLog(session, L"");
    EXPECT_EQ(body(), L"\n3/15/2023 ");
}

TEST_F(LotusLog, NewDocumentAskedFor_IsOpenedOnce)
{
    readyWithoutADocument();
    WriteLotusLog(session, L"old");
    session.NewLogDocument = true;
    WriteLotusLog(session, L"new");
    WriteLotusLog(session, L"newer");
    EXPECT_FALSE(session.NewLogDocument);
    ASSERT_EQ(documents(L"log.nsf").size(), 2u);
    EXPECT_EQ(field(documents(L"log.nsf")[0], L"Text"), L"\n3/15/2023 12:00:00 PM old");
    EXPECT_EQ(body(), L"\n3/15/2023 12:00:00 PM new\n3/15/2023 12:00:00 PM newer");
}

TEST_F(LotusLog, NewDocumentThatCannotBeOpened_IsAskedForAgainByTheNextLine)
{
    readyWithoutADocument();
    WriteLotusLog(session, L"old");
    session.NewLogDocument = true;
    fault(L"on NotesDatabase.CreateDocument at 1 fail 0x80004005");
    WriteLotusLog(session, L"lost");
    EXPECT_TRUE(session.NewLogDocument);
    WriteLotusLog(session, L"new");
    ASSERT_EQ(documents(L"log.nsf").size(), 2u);
    EXPECT_EQ(field(documents(L"log.nsf")[0], L"Text"), L"\n3/15/2023 12:00:00 PM old");
    EXPECT_EQ(body(), L"\n3/15/2023 12:00:00 PM new");
}

TEST_F(LotusLog, DatabaseThatCannotBeOpened_LosesTheLine_Quietly)
{
    notes.ask(L"available log.nsf off");
    ready();
    trapped.procedures.clear();
    WriteLotusLog(session, L"lost");
    EXPECT_EQ(trapped.procedures, std::vector<std::wstring>{L"WriteLotusLog"});
    EXPECT_FALSE(session.LogDocument);
    EXPECT_TRUE(session.NewLogDocument);
}

TEST_F(LotusLog, FirstLineThatIsNotSaved_IsSavedWithTheNext)
{
    readyWithoutADocument();
    fault(L"on NotesDocument.Save at 1 fail 0x80004005");
    WriteLotusLog(session, L"first");
    WriteLotusLog(session, L"second");
    EXPECT_EQ(documents(L"log.nsf").size(), 1u);
    EXPECT_EQ(body(), L"\n3/15/2023 12:00:00 PM first\n3/15/2023 12:00:00 PM second");
}

TEST_F(LotusLog, FailureAtEveryCall_KeepsWhatIsSaved_AndTheNextLineIsWritten)
{
    readyWithoutADocument();
    WriteLotusLog(session, L"first");
    forgetCalls();
    WriteLotusLog(session, L"second");
    const std::size_t count = notes.recorder().calls().size();
    for (std::size_t n = 1; n <= count; ++n) {
        readyWithoutADocument();
        WriteLotusLog(session, L"first");
        fault(L"at " + std::to_wstring(n) + L" fail 0x80004005");
        WriteLotusLog(session, L"second");
        WriteLotusLog(session, L"third");
        WriteLotusLog(session, L"fourth");
        ASSERT_EQ(documents(L"log.nsf").size(), 2u) << n << ": a document that failed is not touched again";
        EXPECT_EQ(field(documents(L"log.nsf")[0], L"Text"), L"\n3/15/2023 12:00:00 PM first") << n;
        EXPECT_EQ(body(), L"\n3/15/2023 12:00:00 PM third\n3/15/2023 12:00:00 PM fourth") << n;
    }
}

TEST_F(LotusLog, DatabaseThatGivesNoDocument_LosesTheLine_WithoutAnError)
{
    readyWithoutADocument();
    session.NewLogDocument = true;
    fault(L"on NotesDatabase.CreateDocument at 1 answer Nothing");
    WriteLotusLog(session, L"lost");
    EXPECT_EQ(trapped.errors, std::vector<std::string>{});
    EXPECT_TRUE(session.NewLogDocument);
    WriteLotusLog(session, L"kept");
    EXPECT_EQ(body(), L"\n3/15/2023 12:00:00 PM kept");
}

}
