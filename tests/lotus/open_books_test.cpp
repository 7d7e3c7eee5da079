// What the address books' databases, views and answers are kept for, and for how long.
#include "lotus/open_books.h"

#include "automation/array.h"
#include "automation/server/dispatch.h"
#include "lotus/contacts.h"
#include "lotus/number_search.h"
#include "lotus_fixture.h"

#include <optional>

namespace hublink {

namespace {

constexpr DATE noon = 45000.5;
constexpr const wchar_t* ownBook = L"names.nsf";
constexpr const wchar_t* company = L"CN=Mail1/O=Acme!!books\\company.nsf";
constexpr const wchar_t* durand = L"Form=Person\nLastName=Durand\nFirstName=Marc\nFullName=Marc Durand\n"
                                  L"OfficePhoneNumber=014567\nMailAddress=marc@acme.fr\n";
constexpr const wchar_t* abel = L"Form=Person\nLastName=Abel\nFirstName=Ann\nOfficePhoneNumber=014567\n";

// Book 1, keyed, has Marc Durand; book 2 is searched by full text.
class LotusOpenBooks : public LotusFixture {
protected:
    LotusOpenBooks()
    {
        marc = add(ownBook, durand);
        ready();
        savedAt(0);
    }

    // The clock of this machine.
    void later(double seconds) { host.time += seconds / 86'400; }

    // What the books tell of their last change, in seconds of another clock.
    void savedAt(int second)
    {
        const std::wstring time =
            L" 2023-03-15 09:00:" + std::wstring(second < 10 ? L"0" : L"") + std::to_wstring(second);
        notes.ask(std::wstring(L"modified ") + ownBook + time);
        notes.ask(std::wstring(L"modified ") + company + time);
    }

    // The last name of whoever has the number, "" for nobody.
    std::wstring search(const std::wstring& number, Show show = Show::no)
    {
        const LotusSearchResult result = SearchByNumber(session, number, show);
        return result.isFound ? result.person.lastName : L"";
    }

    // Two searches so long apart that the view was opened after the second in which
    // the book was changed.
    void settle()
    {
        for (int times = 0; times < 3; ++times) {
            search(L"014567");
            later(2.5);
        }
    }

    // The calls to Notes of a search.
    Lines callsOf(const std::wstring& number, Show show = Show::no)
    {
        forgetCalls();
        search(number, show);
        return record();
    }

    std::wstring marc;
};

const std::wstring byKey = L"NotesView.GetDocumentByKey method (BSTR \"014567\", BOOL True)";
const std::wstring asksWhenModified = L"NotesDatabase.LastModified get ()";

}

TEST_F(LotusOpenBooks, OutsideAnEventOrWalk_EverySearchOpensItsBookAnew)
{
    const Lines first = callsOf(L"014567");
    EXPECT_EQ(callsOf(L"014567"), first);
    EXPECT_EQ(calls(L"NotesSession.GetDatabase method"), 1u);
    EXPECT_EQ(automation::server::Dispatch::liveCount(), 4) << "session, log and history database, log document";
}

TEST_F(LotusOpenBooks, SecondSearchOfAnEvent_AsksTheOpenViewForTheDocument_AndReadsItsNamesNoMore)
{
    const OpenBooksScope kept(session);
    search(L"014567");
    EXPECT_EQ(callsOf(L"014567", Show::yes),
              (Lines{byKey, L"NotesDocument.NoteID get ()", L"NotesUIWorkspace.CurrentDocument get ()",
                     L"NotesUIWorkspace.OpenDatabase method (BSTR \"\", BSTR \"names.nsf\")",
                     L"NotesUIWorkspace.EditDocument method (BOOL False, DISPATCH)"}));
    EXPECT_EQ(calls(L"NotesView.GetDocumentByKey lookup"), 0u);
}

TEST_F(LotusOpenBooks, SecondSearchForTheNamesOnly_AsksNothing_ButABookThatIsSearchedByFullText)
{
    const OpenBooksScope kept(session);
    search(L"014567");
    search(L"099");
    EXPECT_EQ(callsOf(L"014567"), Lines{});
    EXPECT_EQ(callsOf(L"099"), (Lines{L"NotesDatabase.GetView method (BSTR \"Staff\")",
                                      L"NotesView.FTSearch method (BSTR \"[Phone] CONTAINS \"099\"\", I2 1)"}));
    EXPECT_EQ(search(L"014567"), L"Durand");
    EXPECT_EQ(search(L"099"), L"");
}

TEST_F(LotusOpenBooks, DocumentThatIsShown_IsAsItIsThen)
{
    const OpenBooksScope kept(session);
    search(L"014567");
    notes.ask(L"change " + marc + L"\nFirstName=Marcel");
    EXPECT_EQ(search(L"014567", Show::yes), L"Durand");
    const automation::Object shown = notesWorkspace().get(L"CurrentDocument").object().get(L"Document").object();
    EXPECT_EQ(shown.get(L"FirstName").type() & VT_ARRAY, VT_ARRAY);
    EXPECT_EQ(automation::elementsOf(shown.get(L"FirstName")).at(0).text(), L"Marcel");
}

TEST_F(LotusOpenBooks, AnotherDocumentThatHasTheNumberNow_IsReadAnew)
{
    notes.ask(L"delete " + marc);
    add(company, L"Form=Employee\nName=Zola\nPhone=014567\n");
    const OpenBooksScope kept(session);
    EXPECT_EQ(search(L"014567"), L"Zola");
    const std::wstring zola = field(documents(company).back(), L"@UniversalID");
    notes.ask(L"delete " + zola);
    add(company, L"Form=Employee\nName=Verne\nPhone=014567\n");
    later(2.5);
    EXPECT_EQ(search(L"014567", Show::yes), L"Verne") << "a full-text search follows at once";
}

TEST_F(LotusOpenBooks, WhatOthersChange_IsSeenTwoSecondsLater)
{
    const OpenBooksScope kept(session);
    EXPECT_EQ(search(L"014567"), L"Durand");
    notes.ask(L"delete " + marc);
    later(2.1);
    EXPECT_EQ(search(L"014567"), L"");
    add(ownBook, abel);
    later(2.1);
    EXPECT_EQ(search(L"014567"), L"Abel");
}

TEST_F(LotusOpenBooks, BookThatHasNotChanged_IsAskedWhetherItHas_EveryTwoSeconds_AndNothingElse)
{
    session.LotusAddressBooks.resize(1);
    const OpenBooksScope kept(session);
    settle();
    EXPECT_EQ(callsOf(L"014567"), Lines{asksWhenModified});
    EXPECT_EQ(callsOf(L"014567"), Lines{}) << "a moment later";
    later(60);
    EXPECT_EQ(callsOf(L"014567"), Lines{asksWhenModified});
    EXPECT_EQ(callsOf(L"099"), Lines{L"NotesView.GetDocumentByKey method (BSTR \"099\", BOOL True)"});
}

TEST_F(LotusOpenBooks, BookThatHasChanged_IsOpenedAnewAtItsView)
{
    session.LotusAddressBooks.resize(1);
    const OpenBooksScope kept(session);
    settle();
    notes.ask(L"delete " + marc);
    add(ownBook, abel);
    savedAt(30);
    EXPECT_EQ(search(L"014567"), L"Abel");
    later(2.5);
    EXPECT_EQ(callsOf(L"014567").at(1), L"NotesDatabase.GetView method (BSTR \"($Phones)\")")
        << "another change in that second would not show";
}

// The second is over only when two seconds have passed since it was told first.
TEST_F(LotusOpenBooks, ChangeInTheSecondOfTheLastOne_IsSeen)
{
    const OpenBooksScope kept(session);
    search(L"014567");
    later(2.5);
    savedAt(30);
    EXPECT_EQ(search(L"014567"), L"Durand");
    notes.ask(L"delete " + marc); // still at 30
    later(2.5);
    EXPECT_EQ(search(L"014567"), L"");
}

TEST_F(LotusOpenBooks, BookSearchedByFullText_IsOpenedAnewAfterTwoSeconds_ItsIndexFollowsAtItsOwnPace)
{
    session.LotusAddressBooks.erase(session.LotusAddressBooks.begin());
    const OpenBooksScope kept(session);
    settle();
    EXPECT_EQ(callsOf(L"014567"), (Lines{L"NotesDatabase.GetView method (BSTR \"Staff\")",
                                         L"NotesView.FTSearch method (BSTR \"[Phone] CONTAINS \"014567\"\", I2 1)"}));
}

TEST_F(LotusOpenBooks, BookThatDoesNotTellWhenItChanged_IsOpenedAnewAfterTwoSeconds)
{
    session.LotusAddressBooks.resize(1);
    const OpenBooksScope kept(session);
    settle();
    forgetCalls();
    fault(L"on NotesDatabase.LastModified fail 0x80020006");
    for (int times = 0; times < 3; ++times) {
        EXPECT_EQ(search(L"014567"), L"Durand");
        later(2.5);
    }
    EXPECT_EQ(calls(L"NotesDatabase.GetView method"), 3u);
}

TEST_F(LotusOpenBooks, AfterFiveMinutes_TheDatabaseIsOpenedAnewToo)
{
    session.LotusAddressBooks.resize(1);
    const OpenBooksScope kept(session);
    settle();
    later(280);
    EXPECT_EQ(callsOf(L"014567"), Lines{asksWhenModified});
    later(20);
    EXPECT_EQ(callsOf(L"014567").at(0), L"NotesSession.GetDatabase method (BSTR \"\", BSTR \"names.nsf\")");
}

TEST_F(LotusOpenBooks, ClockThatIsSetBack_LetsNothingOldServe)
{
    session.LotusAddressBooks.resize(1);
    const OpenBooksScope kept(session);
    settle();
    later(-3600);
    EXPECT_EQ(callsOf(L"014567").at(0), L"NotesSession.GetDatabase method (BSTR \"\", BSTR \"names.nsf\")");
}

TEST_F(LotusOpenBooks, ContactThatTheProgramSaves_IsFoundAtOnce)
{
    const OpenBooksScope kept(session);
    EXPECT_EQ(FindNoteIdInPersonalBook(session, L"0612"), L"");
    EXPECT_EQ(search(L"0612"), L"");
    const std::wstring noteId = CreateContactDocument(session, {L"0612", L"Nguyen", L"Linh"}, Show::no);
    EXPECT_EQ(search(L"0612"), L"Nguyen");
    EXPECT_EQ(FindNoteIdInPersonalBook(session, L"0612"), noteId);
}

TEST_F(LotusOpenBooks, ContactThatTheProgramSaves_IsFoundAtOnce_UnderAnotherNameOfItsServerToo)
{
    LotusAddressBook other = session.LotusAddressBooks[0];
    other.Base = L"NAMES";
    const OpenBooksScope kept(session);
    session.LotusAddressBooks.push_back(other);
    EXPECT_EQ(search(L"0612"), L"");
    CreateContactDocument(session, {L"0612", L"Nguyen", L"Linh"}, Show::no);
    session.LotusAddressBooks = {other};
    EXPECT_EQ(search(L"0612"), L"Nguyen");
}

TEST_F(LotusOpenBooks, NumberThatDecidesAboutANewContact_IsLookedForInTheViewAsItIsNow)
{
    const OpenBooksScope kept(session);
    EXPECT_EQ(FindNoteIdInPersonalBook(session, L"0612"), L"");
    add(ownBook, L"Form=Person\nLastName=New\nOfficePhoneNumber=0612\n");
    forgetCalls();
    EXPECT_EQ(FindNoteIdInPersonalBook(session, L"0612"), L"8FA");
    EXPECT_EQ(record(),
              (Lines{L"NotesDatabase.GetView method (BSTR \"($Phones)\")",
                     L"NotesView.GetDocumentByKey method (BSTR \"0612\", BOOL True)", L"NotesDocument.NoteID get ()"}));
}

TEST_F(LotusOpenBooks, SettingsThatAreReadAgain_LetNothingServe)
{
    const OpenBooksScope kept(session);
    search(L"014567");
    std::string otherItem = describedBooks;
    otherItem.replace(otherItem.find("LastName=LastName"), 17, "LastName=FullName");
    session.LotusMustInit = true;
    ready(otherItem);
    EXPECT_EQ(search(L"014567"), L"Marc Durand");
    EXPECT_EQ(calls(L"NotesSession.GetDatabase method"), 1u);
}

TEST_F(LotusOpenBooks, MailAddressThatCouldNotBeRead_IsReadByTheNextSearch)
{
    const auto mail = [&] {
        const LotusSearchResult result = SearchByNumber(session, L"014567", Show::no);
        EXPECT_TRUE(result.isFound);
        return result.person.mail;
    };
    const OpenBooksScope kept(session);
    fault(L"on NotesDocument.GetItemValue at 4 fail 0x80004005");
    EXPECT_EQ(mail(), L"");
    EXPECT_EQ(mail(), L"marc@acme.fr");
}

// A view is asked in vain, then there is nobody any more: what was read meanwhile is
// nobody's.
TEST_F(LotusOpenBooks, FailureOfWhatIsOpen_LeavesNothingOfWhatItRead)
{
    session.LotusAddressBooks.erase(session.LotusAddressBooks.begin());
    const std::wstring zola = add(company, L"Form=Employee\nName=Zola\nPhone=0612\n");
    const OpenBooksScope kept(session);
    EXPECT_EQ(search(L"0612"), L"Zola");
    notes.ask(L"delete " + zola);
    add(company, L"Form=Employee\nName=Verne\nPhone=0612\n");
    later(2.5);
    forgetCalls();
    fault(L"on NotesDocument.GetItemValue at 2 fail 0x80004005");
    fault(L"on NotesView.FTSearch at 2 answer I4 0");
    const LotusSearchResult result = SearchByNumber(session, L"0612", Show::yes, L"", {L"before", L"", L"", L"", L""});
    EXPECT_FALSE(result.isFound);
    EXPECT_EQ(result.person.lastName, L"before");
    EXPECT_EQ(calls(L"NotesView.FTSearch method"), 2u);
}

TEST_F(LotusOpenBooks, TwoDescriptionsOfOneDatabase_HaveAnswersOfTheirOwn)
{
    LotusAddressBook other = session.LotusAddressBooks[0];
    other.LastName = L"FullName";
    const OpenBooksScope kept(session);
    EXPECT_EQ(search(L"014567"), L"Durand");
    session.LotusAddressBooks = {other};
    EXPECT_EQ(search(L"014567"), L"Marc Durand");
}

TEST_F(LotusOpenBooks, SessionThatWasDropped_LetsNothingServe)
{
    const OpenBooksScope kept(session);
    search(L"014567");
    session.NotesSession = automation::Object();
    EXPECT_EQ(search(L"014567"), L"");
}

TEST_F(LotusOpenBooks, EndOfTheEvent_GivesEverythingBack)
{
    search(L"014567");
    const long before = automation::server::Dispatch::liveCount();
    {
        const OpenBooksScope kept(session);
        search(L"014567");
        {
            const OpenBooksScope within(session);
            search(L"014567", Show::yes);
        }
        EXPECT_GT(automation::server::Dispatch::liveCount(), before);
        EXPECT_EQ(callsOf(L"014567"), Lines{}) << "the walk's books outlive an event within it";
        notes.ask(L"close-windows");
    }
    EXPECT_EQ(automation::server::Dispatch::liveCount(), before);
}

// What was open is gone: the outcome is that of a session in which nothing was.
TEST_F(LotusOpenBooks, FailureOfWhatIsOpen_AtEveryCallInTurn_FindsThePersonAllTheSame)
{
    session.LotusAddressBooks.resize(1);
    const auto prepare = [&](OpenBooksScope&) {
        notes.ask(L"close-windows");
        settle();
        forgetCalls();
    };
    std::size_t count = 0;
    {
        OpenBooksScope kept(session);
        prepare(kept);
        search(L"014567", Show::yes);
        while (!notes.recorder().calls()[count].text().starts_with(L"NotesUIWorkspace")) ++count;
    }
    ASSERT_EQ(count, 4u) << "last change, key, and the identifier with its look-up";
    for (std::size_t n = 1; n <= count; ++n) {
        OpenBooksScope kept(session);
        prepare(kept);
        const std::wstring before = lastLogLine();
        fault(L"at " + std::to_wstring(n) + L" fail 0x800706BA");
        EXPECT_EQ(search(L"014567", Show::yes), L"Durand") << n;
        EXPECT_TRUE(notes.ask(L"windows").ends_with(L"\tread\tfront")) << n;
        EXPECT_EQ(lastLogLine(), before) << n;
    }
}

// From a call on nothing answers any more, or a book cannot be opened any more: the
// same person is told, the same lines are written, the same is on the screen.
TEST_F(LotusOpenBooks, LastingFailure_HasTheOutcomeOfASessionInWhichNothingWasOpen)
{
    const auto after = [&](bool keeps, const std::wstring& planned) {
        notes.ask(L"close-windows");
        host.time = noon;
        std::optional<OpenBooksScope> kept;
        if (keeps) kept.emplace(session);
        settle();
        forgetCalls();
        fault(planned);
        const std::wstring name = search(L"014567", Show::yes);
        forgetCalls();
        return name + L"|" + notes.ask(L"windows") + L"|" + lastLogLine();
    };
    for (const wchar_t* planned :
         {L"on NotesDatabase.* fail 0x800706BA", L"on NotesView.* fail 0x800706BA",
          L"on NotesDocument.* fail 0x800706BA", L"on NotesUIWorkspace.* fail 0x800706BA",
          L"on NotesView.GetDocumentByKey answer Nothing", L"on NotesDocument.NoteID fail 0x80004005"})
        EXPECT_EQ(after(true, planned), after(false, planned)) << desk::utf8(planned);
}

// A new walk begins without the workspace of the one before.
TEST_F(LotusOpenBooks, Workspace_ServesAWalk_AndIsReplacedWhenItFails)
{
    const OpenBooksScope kept(session);
    const automation::Object first = currentOpenBooks(session)->acquireWorkspace();
    currentOpenBooks(session)->returnWorkspace(first);
    EXPECT_EQ(currentOpenBooks(session)->acquireWorkspace().dispatch(), first.dispatch());
    EXPECT_NE(currentOpenBooks(session)->acquireWorkspace().dispatch(), first.dispatch()) << "it was not given back";
}

TEST_F(LotusOpenBooks, StrangerWhoWasSavedMeanwhile_IsShown_AndNotMadeASecondTime)
{
    host.settings.bgSetNewContact = true;
    const OpenBooksScope kept(session);
    EXPECT_EQ(search(L"0612"), L"");
    add(ownBook, L"Form=Person\nLastName=Late\nFirstName=Lea\nOfficePhoneNumber=0612\n");
    forgetCalls();
    ShowOrCreateCaller(session, {L"0612", L"Stranger", L""});
    EXPECT_EQ(calls(L"NotesDatabase.CreateDocument method"), 0u);
    EXPECT_EQ(calls(L"NotesUIWorkspace.EditDocument method"), 1u);
}

TEST_F(LotusOpenBooks, ViewThatWasSearchedByFullText_ServesNoOtherNumber)
{
    add(company, L"Form=Employee\nName=Zola\nPhone=077\n");
    const OpenBooksScope kept(session);
    for (const wchar_t* number : {L"077", L"078", L"077"}) search(number);
    EXPECT_EQ(calls(L"NotesView.FTSearch method"), 3u);
    EXPECT_EQ(calls(L"NotesDatabase.GetView method"), 1u + 3u) << "the keyed book's once, the other's each time";
}

TEST_F(LotusOpenBooks, ViewThatWasSearchedByFullText_ServesTheSameNumberForAMoment)
{
    add(company, L"Form=Employee\nName=Zola\nPhone=077\n");
    const OpenBooksScope kept(session);
    EXPECT_EQ(search(L"077"), L"Zola");
    forgetCalls();
    EXPECT_EQ(search(L"077", Show::yes), L"Zola");
    EXPECT_EQ(calls(L"NotesView.FTSearch method"), 0u);
    EXPECT_EQ(calls(L"NotesDatabase.GetView method"), 0u);
    later(2.5);
    EXPECT_EQ(search(L"077", Show::yes), L"Zola");
    EXPECT_EQ(calls(L"NotesView.FTSearch method"), 1u);
}

TEST_F(LotusOpenBooks, FilteredViewThatHasNoDocumentAnyMore_IsOpenedAnew)
{
    add(company, L"Form=Employee\nName=Zola\nPhone=077\n");
    const OpenBooksScope kept(session);
    EXPECT_EQ(search(L"077"), L"Zola");
    forgetCalls();
    fault(L"on NotesView.GetFirstDocument at 1 answer Nothing");
    EXPECT_EQ(search(L"077", Show::yes), L"Zola");
    EXPECT_EQ(calls(L"NotesView.FTSearch method"), 1u);
    EXPECT_EQ(calls(L"NotesView.GetFirstDocument method"), 2u);
}

TEST_F(LotusOpenBooks, BookThatIsOutOfReach_IsOpenedAnewOnce)
{
    const OpenBooksScope kept(session);
    search(L"014567");
    forgetCalls();
    fault(L"on NotesView.GetDocumentByKey at 1 fail 0x800706BA");
    fault(L"on NotesSession.GetDatabase fail 0x800706BA");
    EXPECT_EQ(search(L"014567", Show::yes), L"");
    EXPECT_EQ(calls(L"NotesView.GetDocumentByKey method"), 1u);
    EXPECT_EQ(calls(L"NotesSession.GetDatabase method"), 2u) << "each book once";
    forgetCalls();
}

}
