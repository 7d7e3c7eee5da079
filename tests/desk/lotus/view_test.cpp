#include "notes_fixture.h"

namespace {

using automation::Object;
using automation::Value;

class NotesView : public NotesFixture {
protected:
    // The first names in the order of the view (or what FTSearch left of it).
    std::wstring firstNames(const Object& shown)
    {
        std::wstring names;
        for (Object each = shown.get(L"GetFirstDocument").object(); each;
             each = shown.get(L"GetNextDocument", {each}).object())
            names += first(each, L"FirstName").text() + L";";
        return names;
    }

    Object byKey(const wchar_t* key, bool exact = false)
    {
        return view(L"People").get(L"GetDocumentByKey", {key, exact}).object();
    }
};

std::wstring people(int count)
{
    std::wstring text;
    for (int number = 0; number < count; ++number)
        text += L"[document]\nForm=Person\nLastName=P" + std::to_wstring(number) + L"\n";
    return text;
}

}

TEST_F(NotesView, Order_IsThatOfTheSortedColumnsWithoutCase_ThenOfCreation)
{
    EXPECT_EQ(firstNames(view(L"People")), L"Ann;Marc;");
    notes.ask(L"add books\\contacts.nsf\nForm=Person\nLastName=Durand\nFirstName=Zoe");
    notes.ask(L"add books\\contacts.nsf\nForm=Person\nLastName=DURAND\nFirstName=marc");
    notes.ask(L"add books\\contacts.nsf\nForm=person\nLastName=Durand\nFirstName=Alice");
    EXPECT_EQ(firstNames(view(L"People")), L"Ann;Alice;Marc;marc;Zoe;");
}

TEST_F(NotesView, DocumentsOfOtherForms_AreNotShown)
{
    EXPECT_EQ(view(L"People").get(L"EntryCount").int32(), 2);
    EXPECT_EQ(view(L"($Phones)").get(L"EntryCount").int32(), 3);
    notes.ask(L"change 8F6@books\\contacts.nsf\nForm=Memo");
    EXPECT_EQ(firstNames(view(L"People")), L"Ann;");
}

TEST_F(NotesView, View_FollowsWhatIsSavedAndDeleted)
{
    const Object shown = view(L"People");
    EXPECT_EQ(shown.get(L"EntryCount").int32(), 2);
    const Object added = contacts().get(L"CreateDocument").object();
    added.put(L"Form", L"Person");
    added.put(L"FirstName", L"Bob");
    added.put(L"LastName", L"Baker");
    EXPECT_EQ(firstNames(shown), L"Ann;Marc;");
    EXPECT_TRUE(added.get(L"Save", {true, false}).isTrue());
    EXPECT_EQ(firstNames(shown), L"Ann;Bob;Marc;");
    added.put(L"LastName", L"Zz");
    added.get(L"Save", {true, false});
    EXPECT_EQ(firstNames(shown), L"Ann;Marc;Bob;");
    EXPECT_TRUE(added.get(L"Remove", {true}).isTrue());
    EXPECT_EQ(firstNames(shown), L"Ann;Marc;");
}

TEST_F(NotesView, ViewObject_IsAskedByKeyAsItWasWhenItWasMade_UntilItIsRefreshed)
{
    const Object shown = view(L"People");
    const auto firstNameOf = [&](const wchar_t* key) {
        const Object found = shown.get(L"GetDocumentByKey", {key, true}).object();
        return found ? first(found, L"FirstName").text() : L"Nothing";
    };
    notes.ask(L"change 8F6@books\\contacts.nsf\nLastName=Martin\nFirstName=Marcel");
    notes.ask(L"add books\\contacts.nsf\nForm=Person\nLastName=Baker\nFirstName=Bob");
    notes.ask(L"delete 8FA@books\\contacts.nsf");
    EXPECT_EQ(firstNameOf(L"Durand"), L"Marcel") << "by the key that it had, with what it has now";
    EXPECT_EQ(firstNameOf(L"Martin"), L"Nothing");
    EXPECT_EQ(firstNameOf(L"Baker"), L"Nothing");
    EXPECT_EQ(firstNameOf(L"Abel"), L"Nothing") << "it was deleted";
    EXPECT_TRUE(byKey(L"Baker")) << "another object of the view";
    shown.call(L"Refresh");
    EXPECT_EQ(firstNameOf(L"Durand"), L"Nothing");
    EXPECT_EQ(firstNameOf(L"Martin"), L"Marcel");
    EXPECT_EQ(firstNameOf(L"Baker"), L"Bob");
}

TEST_F(NotesView, Key_IsComparedWithoutCase_ExactlyOrByItsBeginning)
{
    EXPECT_TRUE(byKey(L"durand", true));
    EXPECT_TRUE(byKey(L"ABEL", true));
    EXPECT_FALSE(byKey(L"dur", true));
    EXPECT_TRUE(byKey(L"DUR"));
    EXPECT_FALSE(byKey(L"uran"));
    EXPECT_FALSE(byKey(L"durando"));
    EXPECT_FALSE(byKey(L"Order of Durand")) << "a memo is not in this view";
    EXPECT_TRUE(view(L"People").get(L"GetDocumentByKey", {L"du"}).object()) << "exact is False by default";
}

TEST_F(NotesView, EmptyKey_MatchesTheFirstDocumentInPart_OrAnEmptyColumnExactly)
{
    EXPECT_EQ(first(byKey(L""), L"FirstName").text(), L"Ann");
    EXPECT_FALSE(byKey(L"", true));
    notes.ask(L"add books\\contacts.nsf\nForm=Person\nFirstName=Nobody");
    EXPECT_EQ(first(byKey(L"", true), L"FirstName").text(), L"Nobody");
}

TEST_F(NotesView, OfSeveralDocumentsWithAKey_TheFirstOfTheViewIsFound)
{
    const Object phones = view(L"($Phones)");
    EXPECT_EQ(phones.get(L"GetDocumentByKey", {L"0612345678", true}).object().get(L"NoteID").text(), L"8F6");
    EXPECT_EQ(phones.get(L"GetDocumentByKey", {L"+33"}).object().get(L"NoteID").text(), L"8FA");
    EXPECT_FALSE(phones.get(L"GetDocumentByKey", {L"0699", true}).object()) << "a second value is not in the column";
}

TEST_F(NotesView, SeveralKeys_AreComparedColumnByColumn)
{
    const auto keys = [](std::initializer_list<Value> values) { return desk::lotus::arrayOf(values); };
    const Object shown = view(L"People");
    EXPECT_TRUE(shown.get(L"GetDocumentByKey", {keys({L"durand", L"marc"}), true}).object());
    EXPECT_FALSE(shown.get(L"GetDocumentByKey", {keys({L"durand", L"ann"}), true}).object());
    EXPECT_TRUE(shown.get(L"GetDocumentByKey", {keys({L"dur", L"m"})}).object());
    const auto failure = failureOf([&] { shown.get(L"GetDocumentByKey", {keys({L"a", L"b", L"c"})}); });
    EXPECT_EQ(failure.source(), L"Lotus Notes");
}

TEST_F(NotesView, NumbersAndDatesAsKeys_AreComparedAsSuch)
{
    notes.load(L"[database]\nFile=n.nsf\n[view]\nName=V\nKey=K\n[document]\nK:number=20\n[document]\nK=20\n"
               L"[document]\nK:date=2023-03-15\n[document]\nK:number=-1.5\n");
    const Object shown = session().get(L"GetDatabase", {L"", L"n"}).object().get(L"GetView", {L"V"}).object();
    const auto idOf = [&](const Value& key) {
        const Object found = shown.get(L"GetDocumentByKey", {key, true}).object();
        return found ? found.get(L"NoteID").text() : L"Nothing";
    };
    EXPECT_EQ(idOf(std::int32_t{20}), L"8F6");
    EXPECT_EQ(idOf(L"20"), L"8FA");
    EXPECT_EQ(idOf(Value::date(45000)), L"8FE");
    EXPECT_EQ(idOf(std::int16_t{2}), L"Nothing");
    EXPECT_EQ(first(shown.get(L"GetFirstDocument").object(), L"K").number(), -1.5);
}

TEST_F(NotesView, NthDocument_CountsFromOne_PastTheEndIsNothing)
{
    const Object shown = view(L"People");
    EXPECT_EQ(first(shown.get(L"GetNthDocument", {std::int32_t{1}}).object(), L"FirstName").text(), L"Ann");
    EXPECT_EQ(first(shown.get(L"GetNthDocument", {std::int32_t{2}}).object(), L"FirstName").text(), L"Marc");
    EXPECT_FALSE(shown.get(L"GetNthDocument", {std::int32_t{3}}).object());
    EXPECT_FALSE(shown.get(L"GetNthDocument", {std::int32_t{0}}).object());
}

TEST_F(NotesView, NthDocument_DoesNotCountAnswers)
{
    notes.ask(L"add books\\contacts.nsf\nForm=Person\nLastName=Aaa\n$Ref=00");
    const Object shown = view(L"People");
    EXPECT_EQ(shown.get(L"EntryCount").int32(), 3);
    EXPECT_EQ(first(shown.get(L"GetFirstDocument").object(), L"LastName").text(), L"Aaa");
    EXPECT_EQ(first(shown.get(L"GetNthDocument", {std::int32_t{2}}).object(), L"FirstName").text(), L"Marc");
    EXPECT_FALSE(shown.get(L"GetNthDocument", {std::int32_t{3}}).object());
}

TEST_F(NotesView, FirstLastNextPrevious_EndInNothing)
{
    const Object shown = view(L"People");
    const Object last = shown.get(L"GetLastDocument").object();
    EXPECT_EQ(first(last, L"FirstName").text(), L"Marc");
    EXPECT_FALSE(shown.get(L"GetNextDocument", {last}).object());
    const Object before = shown.get(L"GetPrevDocument", {last}).object();
    EXPECT_EQ(first(before, L"FirstName").text(), L"Ann");
    EXPECT_FALSE(shown.get(L"GetPrevDocument", {before}).object());
    notes.load(L"[database]\nFile=e.nsf\n[view]\nName=V\n");
    const Object empty = session().get(L"GetDatabase", {L"", L"e"}).object().get(L"GetView", {L"V"}).object();
    EXPECT_FALSE(empty.get(L"GetFirstDocument").object());
    EXPECT_FALSE(empty.get(L"GetLastDocument").object());
}

TEST_F(NotesView, NextOfADocumentThatIsNotThere_IsAnError)
{
    const Object shown = view(L"People");
    const Object memo = view(L"($Phones)").get(L"GetLastDocument").object();
    EXPECT_TRUE(memo);
    EXPECT_EQ(
        failureOf([&] { shown.get(L"GetNextDocument", {contacts().get(L"GetDocumentByID", {L"8FE"})}); }).source(),
        L"Lotus Notes");
    EXPECT_NE(failureOf([&] { shown.get(L"GetNextDocument", {Object()}); }).code(), S_OK);
    const Object ann = person(L"Abel");
    notes.ask(L"delete 8FA@books\\contacts.nsf");
    EXPECT_EQ(failureOf([&] { shown.get(L"GetNextDocument", {ann}); }).description(),
              L"Notes error: Document has been deleted");
}

TEST_F(NotesView, Search_LeavesTheHitsInTheirOrder_UntilCleared)
{
    const Object shown = view(L"($Phones)");
    EXPECT_EQ(shown.get(L"FTSearch", {L"[Phone] CONTAINS \"0612345678\"", std::int16_t{0}}).int32(), 2);
    EXPECT_EQ(shown.get(L"EntryCount").int32(), 2);
    EXPECT_EQ(shown.get(L"GetFirstDocument").object().get(L"NoteID").text(), L"8F6");
    const Object last = shown.get(L"GetLastDocument").object();
    EXPECT_EQ(last.get(L"NoteID").text(), L"8FE");
    EXPECT_FALSE(shown.get(L"GetNextDocument", {last}).object());
    EXPECT_EQ(shown.get(L"GetPrevDocument", {last}).object().get(L"NoteID").text(), L"8F6");
    EXPECT_EQ(shown.get(L"GetNthDocument", {std::int32_t{2}}).object().get(L"NoteID").text(), L"8FE");
    EXPECT_EQ(view(L"($Phones)").get(L"EntryCount").int32(), 3) << "another view object is not filtered";
    shown.call(L"Clear");
    EXPECT_EQ(shown.get(L"EntryCount").int32(), 3);
    EXPECT_EQ(shown.get(L"GetFirstDocument").object().get(L"NoteID").text(), L"8FA");
}

TEST_F(NotesView, Search_TakesAtMostSoMany_ZeroIsAll_AndNoHitLeavesNothing)
{
    const Object shown = view(L"($Phones)");
    EXPECT_EQ(shown.get(L"FTSearch", {L"durand", std::int32_t{1}}).int32(), 1);
    EXPECT_EQ(shown.get(L"EntryCount").int32(), 1);
    EXPECT_EQ(shown.get(L"FTSearch", {L"durand", std::int32_t{0}}).int32(), 2) << "a search starts from the whole view";
    EXPECT_EQ(shown.get(L"FTSearch", {L"durand"}).int32(), 2);
    EXPECT_EQ(shown.get(L"FTSearch", {L"nobody", std::int32_t{0}}).int32(), 0);
    EXPECT_FALSE(shown.get(L"GetFirstDocument").object());
    EXPECT_EQ(shown.get(L"FTSearch", {L"durand", std::int32_t{0}}).type(), VT_I4);
}

TEST_F(NotesView, Search_FindsOnlyDocumentsOfTheView)
{
    EXPECT_EQ(view(L"People").get(L"FTSearch", {L"[Phone] = 0612345678", std::int32_t{0}}).int32(), 1);
}

TEST_F(NotesView, BadQuery_IsAnErrorWithNotesText)
{
    const auto failure = failureOf([&] { view(L"People").get(L"FTSearch", {L"[Phone] CONTAINS", std::int32_t{0}}); });
    EXPECT_EQ(failure.description(), L"Notes error: Query is not understandable");
    EXPECT_EQ(failure.code(), static_cast<HRESULT>(0x800A0000 + 4005));
}

TEST_F(NotesView, FullTextIndex_PutsTheDocumentsWithMostHitsFirst)
{
    const std::wstring documents = L"[view]\nName=V\nKey=K\n[document]\nK=1\nBody=cat\n[document]\nK=2\nBody=cat cat\n"
                                   L"[document]\nK=3\nBody=dog\n[document]\nK=4\nBody=cat, dog and cat\n";
    const auto keysFound = [&](const std::wstring& database, const wchar_t* query) {
        notes.load(database + documents);
        const Object shown = session().get(L"GetDatabase", {L"", L"f"}).object().get(L"GetView", {L"V"}).object();
        shown.get(L"FTSearch", {query, std::int32_t{0}});
        std::wstring keys;
        for (Object each = shown.get(L"GetFirstDocument").object(); each;
             each = shown.get(L"GetNextDocument", {each}).object())
            keys += first(each, L"K").text();
        return keys;
    };
    EXPECT_EQ(keysFound(L"[database]\nFile=f.nsf\n", L"cat or dog"), L"1234");
    EXPECT_EQ(keysFound(L"[database]\nFile=f.nsf\nFullTextIndex=True\n", L"cat or dog"), L"4213");
    EXPECT_EQ(keysFound(L"[database]\nFile=f.nsf\nFullTextIndex=True\n", L"not dog"), L"12");
    EXPECT_EQ(keysFound(L"[database]\nFile=f.nsf\nFullTextIndex=True\n", L"[Body] contains c*"), L"241");
}

TEST_F(NotesView, FullTextIndex_KnowsWhatIsSavedAndForgetsWhatIsNotThereAnyMore)
{
    notes.load(L"[database]\nFile=f.nsf\nFullTextIndex=True\n[view]\nName=V\n[document]\nBody=cat\n");
    const Object database = session().get(L"GetDatabase", {L"", L"f"}).object();
    EXPECT_TRUE(database.get(L"IsFTIndexed").isTrue());
    const auto hits = [&](const wchar_t* query) {
        return database.get(L"GetView", {L"V"}).object().get(L"FTSearch", {query, std::int32_t{0}}).int32();
    };
    EXPECT_EQ(hits(L"cat"), 1);
    notes.ask(L"change 8F6@f.nsf\nBody=dog");
    EXPECT_EQ(hits(L"cat"), 0);
    EXPECT_EQ(hits(L"dog"), 1);
    notes.ask(L"add f.nsf\nBody=cat dog");
    EXPECT_EQ(hits(L"cat or dog"), 2);
    EXPECT_EQ(hits(L"\"cat dog\""), 1);
    notes.ask(L"delete 8F6@f.nsf");
    EXPECT_EQ(hits(L"dog"), 1);
}

TEST_F(NotesView, ThousandsOfDocuments_AreFoundAtOnce)
{
    notes.load(L"[database]\nFile=big.nsf\n[view]\nName=V\nKey=LastName\nForm=Person\n" + people(5'000));
    const Object database = session().get(L"GetDatabase", {L"", L"big"}).object();
    for (int number = 0; number < 5'000; number += 5) {
        const Object shown = database.get(L"GetView", {L"V"}).object();
        ASSERT_TRUE(shown.get(L"GetDocumentByKey", {L"p" + std::to_wstring(number), true}).object());
    }
}
