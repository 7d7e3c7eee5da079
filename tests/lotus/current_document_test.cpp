#include "current_document_fixture.h"

namespace hublink {

namespace {

using CurrentDocument = CurrentDocumentFixture;

class CurrentCall : public CurrentDocumentFixture {
protected:
    CurrentCall() { open(); }

    static std::wstring call(const std::wstring& number, const std::wstring& link)
    {
        return L"Form=Call\nInfoSupServer=S\nInfoSupBase=b.nsf\nNumber=" + number + L"\nInfoSupdocNoteId=" + link;
    }
};

}

TEST_F(CurrentCall, LinkIsRight_IsLeftUntouchedAndUnsaved)
{
    front(historyBase, call(L"0299", noteIdOf(ownBook)));
    EXPECT_EQ(update(), L"0299");
    EXPECT_EQ(deeds(), Lines{});
    EXPECT_TRUE(nothingWasSaved());
    EXPECT_EQ(saved(historyBase, L"InfoSupServer"), L"S") << "only the identifier is compared";
}

TEST_F(CurrentCall, LinkIsStale_IsWrittenAnew_TheIdentifierFirstAndLast)
{
    front(historyBase, call(L"02.99", L"FFF"));
    EXPECT_EQ(update(), L"02.99") << "as it is written there";
    const std::wstring noteId = noteIdOf(ownBook);
    const std::wstring identifier =
        L"NotesDocument.ReplaceItemValue method (BSTR \"InfoSupdocNoteId\", BSTR \"" + noteId + L"\")";
    EXPECT_EQ(deeds(),
              thenSavedAndShownAnew(
                  {identifier, L"NotesDocument.ReplaceItemValue method (BSTR \"InfoSupServer\", BSTR \"\")",
                   L"NotesDocument.ReplaceItemValue method (BSTR \"InfoSupBase\", BSTR \"names.nsf\")", identifier}));
    EXPECT_EQ(saved(historyBase, L"InfoSupdocNoteId"), noteId);
    EXPECT_EQ(saved(historyBase, L"InfoSupServer"), L"");
    EXPECT_EQ(saved(historyBase, L"InfoSupBase"), L"names.nsf");
    EXPECT_EQ(saved(historyBase, L"Number"), L"02.99");
    EXPECT_EQ(trapped.errors, std::vector<std::string>{});
}

TEST_F(CurrentCall, LinkIsMissing_IsWritten_ToTheBookThatHasTheNumber)
{
    add(L"books\\company.nsf", L"Form=Employee\nName=Novak\nPhone=0500");
    front(historyBase, L"Form=Call\nNumber=0500");
    EXPECT_EQ(update(), L"0500");
    EXPECT_EQ(saved(historyBase, L"InfoSupdocNoteId"), noteIdOf(L"books\\company.nsf"));
    EXPECT_EQ(saved(historyBase, L"InfoSupServer"), L"CN=Mail1/O=Acme");
    EXPECT_EQ(saved(historyBase, L"InfoSupBase"), L"books\\company.nsf");
}

TEST_F(CurrentCall, NobodyHasTheNumberAnyMore_TheLinkIsEmptied)
{
    front(historyBase, call(L"0600", L"8FA"));
    EXPECT_EQ(update(), L"0600");
    EXPECT_EQ(saved(historyBase, L"InfoSupdocNoteId"), L"");
    EXPECT_EQ(saved(historyBase, L"InfoSupServer"), L"");
    EXPECT_EQ(saved(historyBase, L"InfoSupBase"), L"");
}

TEST_F(CurrentCall, NobodyHasTheNumber_AndNoLink_IsLeftUntouched)
{
    front(historyBase, call(L"0600", L""));
    EXPECT_EQ(update(), L"0600");
    EXPECT_EQ(deeds(), Lines{});
}

TEST_F(CurrentCall, WithoutANumber_NobodyIsSearched)
{
    for (const wchar_t* document : {L"Form=Call\nNumber=\nNumber+=0299", L"Form=Call"}) {
        front(historyBase, document);
        EXPECT_EQ(update(), L"");
        EXPECT_EQ(calls(L"NotesSession.GetDatabase method"), 0u);
        EXPECT_TRUE(nothingWasSaved());
    }
}

TEST_F(CurrentCall, MailSwitches_MakeNoDifference)
{
    session.bCallInMail = session.bAlwaysVerifyPhoneNumber = false;
    front(historyBase, call(L"0299", L"FFF"));
    EXPECT_EQ(update(), L"0299");
    EXPECT_EQ(saved(historyBase, L"InfoSupdocNoteId"), noteIdOf(ownBook));
}

TEST_F(CurrentCall, MissingItemsThatAreNoArrays_EndQuietly)
{
    notes.ask(L"missing text");
    front(historyBase, L"Form=Call");
    EXPECT_EQ(update(), L"");
    front(historyBase, L"Form=Call\nNumber=0299");
    EXPECT_EQ(update(), L"");
    EXPECT_TRUE(nothingWasSaved());
    EXPECT_EQ(trapped.procedures, (Lines{L"UpdateCurrentDocumentNumber", L"UpdateCurrentDocumentNumber"}));
}

TEST_F(CurrentCall, NumberThatIsNoText_IsTakenAsOne)
{
    front(historyBase, L"Form=Call\nNumber:number=299");
    EXPECT_EQ(update(), L"299");
}

// The first question, whether this is the mail file, has the same answer when
// it fails, and the view in front and the person's mail address are not used; a
// search that fails has found nobody.
TEST_F(CurrentCall, FailsAtAnyOtherCall_ResultIsEmpty_AndTheSaveIsWholeOrNone)
{
    std::wstring number;
    const auto prepare = [&] {
        open();
        front(historyBase, call(L"0299", L"FFF"));
    };
    bool isSaved = false;
    bool searching = false;
    bool isPlaceAsked = false;
    atEachCall(
        notes.recorder(), fails, prepare, [&] { number = update(); },
        [&](const std::wstring& failed) {
            searching |= failed.starts_with(L"NotesSession.");
            searching &= failed.find(L".ReplaceItemValue") == std::wstring::npos;
            const bool isMail = !isPlaceAsked && failed == L"NotesDatabase.Server get ()";
            isPlaceAsked |= isMail;
            const bool isFound = isMail || asksForMail(failed) || failed.find(L".CurrentView") != std::wstring::npos;
            EXPECT_EQ(number, searching || isFound ? L"0299" : L"") << desk::utf8(failed);
            EXPECT_EQ(saved(historyBase, L"InfoSupdocNoteId"), isFound || isSaved ? noteIdOf(ownBook)
                                                               : searching        ? L""
                                                                                  : L"FFF")
                << desk::utf8(failed);
            EXPECT_EQ(saved(historyBase, L"InfoSupBase"), isFound || isSaved ? L"names.nsf"
                                                          : searching        ? L""
                                                                             : L"b.nsf")
                << desk::utf8(failed);
            isSaved |= failed.find(L".Save ") != std::wstring::npos;
        });
    EXPECT_TRUE(isSaved);
}

TEST_F(CurrentCall, NotesIsBusyAtAnyCall_NothingIsLost)
{
    std::wstring number;
    const auto prepare = [&] {
        open();
        front(historyBase, call(L"0299", L"FFF"));
    };
    atEachCall(
        notes.recorder(), isBusy, prepare, [&] { number = update(); },
        [&](const std::wstring& busy) {
            EXPECT_EQ(number, L"0299") << desk::utf8(busy);
            EXPECT_EQ(saved(historyBase, L"InfoSupdocNoteId"), noteIdOf(ownBook)) << desk::utf8(busy);
        });
}

TEST_F(CurrentDocument, NothingInFront_EndsQuietly)
{
    open();
    EXPECT_EQ(update(), L"");
    EXPECT_TRUE(nothingWasSaved());
}

TEST_F(CurrentDocument, OfAnyOtherDatabase_IsLeftAlone)
{
    open();
    notes.ask(L"open " + field(documents(ownBook).at(0), L"@UniversalID"));
    forgetCalls();
    EXPECT_EQ(update(), L"");
    EXPECT_EQ(calls(L"NotesUIWorkspace.CurrentDocument get"), 0u);
    EXPECT_TRUE(nothingWasSaved());
}

TEST_F(CurrentDocument, SessionNotReady_AsksNotesNothing)
{
    open();
    front(mailFile, L"Form=Memo\nFrom=claire@example.com");
    session.LotusReady = false;
    EXPECT_EQ(update(), L"");
    EXPECT_EQ(record(), Lines{});
}

TEST_F(CurrentDocument, ClientIsGone_EndsQuietly)
{
    open();
    front(mailFile, L"Form=Memo\nFrom=claire@example.com");
    notes.withdraw();
    EXPECT_EQ(update(), L"");
    EXPECT_EQ(trapped.procedures, Lines{L"UpdateCurrentDocumentNumber"});
}

TEST_F(CurrentDocument, NewMailThatWasNeverSaved_IsNotTouched)
{
    open();
    notes.create(L"Notes.NotesUIWorkspace")
        .call(L"ComposeDocument", {session.MailServer, session.MailFile, L"Phone Message"});
    EXPECT_EQ(update(), L"");
    EXPECT_TRUE(nothingWasSaved());
    EXPECT_EQ(deeds(), Lines{});
}

TEST_F(CurrentCall, OpenForEditing_GetsItsLinkAllTheSame_AndIsShownForReading)
{
    front(historyBase, call(L"0299", L"FFF"), L" edit");
    EXPECT_EQ(update(), L"0299");
    EXPECT_EQ(saved(historyBase, L"InfoSupdocNoteId"), noteIdOf(ownBook));
    EXPECT_TRUE(notes.ask(L"windows").ends_with(L"\tread\tfront"));
    EXPECT_EQ(calls(L"NotesUIDocument.EditMode get"), 0u);
}

TEST_F(CurrentCall, HistoryInACompletePath_IsRecognisedByItsFileName)
{
    notes.ask(L"data-folder C:\\Lotus\\Notes\\Data");
    front(historyBase, call(L"0299", L"FFF"));
    EXPECT_EQ(update(), L"0299");
    EXPECT_EQ(calls(L"NotesDatabase.FileName get"), 1u);
}

TEST_F(CurrentCall, ShownDocumentWithoutAStoredOne_EndsQuietly)
{
    front(historyBase, call(L"0299", L"FFF"));
    fault(L"on NotesUIDocument.Document answer Nothing");
    EXPECT_EQ(update(), L"");
    EXPECT_TRUE(nothingWasSaved());
    EXPECT_EQ(trapped.errors, std::vector<std::string>{});
}

TEST_F(CurrentCall, ViewInFrontThatCannotBeTold_LosesNothing)
{
    for (const wchar_t* answer : {L"fail 0x80004005", L"answer Nothing", L"raise 0x800A113C Lotus Notes|no view"}) {
        open();
        front(historyBase, call(L"0299", L"FFF"));
        fault(L"on NotesUIWorkspace.CurrentView " + std::wstring(answer));
        EXPECT_EQ(update(), L"0299") << desk::utf8(answer);
        EXPECT_EQ(saved(historyBase, L"InfoSupdocNoteId"), noteIdOf(ownBook)) << desk::utf8(answer);
    }
}

}
