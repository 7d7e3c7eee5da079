#include "notes_fixture.h"

namespace {

using automation::Object;
using automation::Value;

class NotesWorkspace : public NotesFixture {
protected:
    Object display(const Object& document, bool edit)
    {
        return workspace().get(L"EditDocument", {edit, document}).object();
    }

    Object compose()
    {
        return workspace().get(L"ComposeDocument", {L"Mail1/Paris/Acme", L"books\\contacts.nsf", L"Person"}).object();
    }

    Object current() { return workspace().get(L"CurrentDocument").object(); }

    static Object documentOf(const Object& window) { return window.get(L"Document").object(); }

    // Titles of the windows, with a * after that of the one in front.
    std::wstring windows()
    {
        std::wstring titles;
        for (const std::wstring& line : desk::linesOf(notes.ask(L"windows")))
            titles += line.substr(0, line.find(L'\t')) + (line.ends_with(L"\tfront") ? L"*;" : L";");
        return titles;
    }
};

constexpr const wchar_t* notEditing = L"You must be in Edit mode to change the value of a field.";
constexpr const wchar_t* notAvailable = L"Document command is not available";

}

TEST_F(NotesWorkspace, NothingOpen_ThereIsNoCurrentDocumentDatabaseView)
{
    EXPECT_FALSE(current());
    EXPECT_FALSE(workspace().get(L"CurrentDatabase").object());
    EXPECT_FALSE(workspace().get(L"CurrentView").object());
    EXPECT_EQ(workspace().get(L"CurrentDocument").type(), VT_DISPATCH);
}

TEST_F(NotesWorkspace, EditDocument_DisplaysTheReference_InTheWantedMode)
{
    const Object marc = person(L"Durand");
    marc.put(L"FullName", L"Marc D.");
    const Object window = display(marc, true);
    EXPECT_TRUE(window.get(L"EditMode").isTrue());
    EXPECT_EQ(window.get(L"WindowTitle").text(), L"Marc D.");
    EXPECT_EQ(notes.ask(L"windows"), L"Marc D.\tPerson\t" + marc.get(L"UniversalID").text() + L"\tedit\tfront");
    EXPECT_FALSE(display(person(L"Abel"), false).get(L"EditMode").isTrue());
    EXPECT_EQ(windows(), L"Marc D.;Ann Abel*;");
}

TEST_F(NotesWorkspace, EditDocument_OfADisplayedDocument_OpensAnotherWindow)
{
    const Object first = display(person(L"Durand"), false);
    display(person(L"Durand"), false);
    EXPECT_EQ(windows(), L"Marc Durand;Marc Durand*;");
    display(documentOf(first), false);
    EXPECT_EQ(windows(), L"Marc Durand;Marc Durand;Marc Durand*;");
}

TEST_F(NotesWorkspace, ChangesOfTheDisplayedReference_ShowAtOnce_OthersDoNot)
{
    const Object marc = person(L"Durand");
    const Object window = display(marc, false);
    marc.put(L"FullName", L"Marc X");
    EXPECT_EQ(window.get(L"WindowTitle").text(), L"Marc X");
    EXPECT_EQ(window.get(L"FieldGetText", {L"FullName"}).text(), L"Marc X");
    documentOf(window).put(L"FullName", L"Marc Y");
    EXPECT_EQ(first(marc, L"FullName").text(), L"Marc Y");
    const Object other = person(L"Durand");
    other.put(L"FullName", L"Marc Z");
    other.get(L"Save", {true, false});
    EXPECT_EQ(window.get(L"WindowTitle").text(), L"Marc Y") << "until it is closed and opened again";
    window.call(L"Close");
    EXPECT_EQ(display(person(L"Durand"), false).get(L"WindowTitle").text(), L"Marc Z");
}

TEST_F(NotesWorkspace, EditDocument_OfADisplayedDocument_WithoutANewInstance_BringsItToTheFront)
{
    display(person(L"Durand"), false);
    display(person(L"Abel"), false);
    EXPECT_EQ(windows(), L"Marc Durand;Ann Abel*;");
    const Object again = workspace().get(L"EditDocument", {true, person(L"Durand"), false, L"", true, false}).object();
    EXPECT_EQ(windows(), L"Marc Durand*;Ann Abel;");
    EXPECT_TRUE(again.get(L"EditMode").isTrue());
}

TEST_F(NotesWorkspace, CurrentDocument_IsTheOneInFront_OrTheOneBehindAfterItsClosing)
{
    display(person(L"Durand"), false);
    const Object ann = display(person(L"Abel"), true);
    EXPECT_EQ(first(documentOf(current()), L"FirstName").text(), L"Ann");
    notes.ask(L"front 8F6@books\\contacts.nsf");
    EXPECT_EQ(first(documentOf(current()), L"FirstName").text(), L"Marc");
    current().call(L"Close");
    EXPECT_EQ(first(documentOf(current()), L"FirstName").text(), L"Ann");
    current().call(L"Close", {true});
    EXPECT_FALSE(current());
}

TEST_F(NotesWorkspace, UserLooksAtAView_NoDocumentIsCurrent)
{
    const Object marc = display(person(L"Durand"), false);
    notes.ask(L"show local.nsf");
    EXPECT_FALSE(current());
    EXPECT_EQ(windows(), L"Marc Durand;");
    EXPECT_EQ(workspace().get(L"CurrentDatabase").object().get(L"Database").object().get(L"FilePath").text(),
              L"local.nsf");
    EXPECT_FALSE(workspace().get(L"CurrentView").object()) << "this database has none";
    notes.ask(L"show books\\contacts.nsf ($phones)");
    const Object shown = workspace().get(L"CurrentView").object();
    EXPECT_EQ(shown.get(L"ViewName").text(), L"($Phones)");
    EXPECT_EQ(shown.get(L"View").object().get(L"EntryCount").int32(), 3);
    notes.ask(L"show books\\contacts.nsf");
    EXPECT_EQ(workspace().get(L"CurrentView").object().get(L"ViewName").text(), L"People") << "the default view";
    EXPECT_EQ(workspace().get(L"CurrentView").object().get(L"ViewAlias").text(), L"ByName");
    notes.ask(L"front " + documentOf(marc).get(L"UniversalID").text());
    EXPECT_TRUE(current());
    workspace().call(L"ViewRefresh");
}

TEST_F(NotesWorkspace, CurrentDatabase_IsThatOfTheDocumentInFront)
{
    notes.ask(L"show local.nsf");
    display(person(L"Durand"), false);
    const auto currentPath = [&] {
        return workspace().get(L"CurrentDatabase").object().get(L"Database").object().get(L"FilePath").text();
    };
    EXPECT_EQ(currentPath(), L"books\\contacts.nsf");
    EXPECT_TRUE(workspace().get(L"GetCurrentDatabase").object());
    notes.ask(L"close-windows");
    EXPECT_EQ(currentPath(), L"local.nsf");
}

TEST_F(NotesWorkspace, Compose_OpensANewDocumentWithTheFormsFields_InEditMode)
{
    const Object window = compose();
    EXPECT_TRUE(window.get(L"EditMode").isTrue());
    EXPECT_TRUE(window.get(L"IsNewDoc").isTrue());
    EXPECT_EQ(window.get(L"WindowTitle").text(), L"New Person");
    const Object document = documentOf(window);
    EXPECT_EQ(document.get(L"NoteID").text(), L"0");
    EXPECT_EQ(first(document, L"Form").text(), L"Person");
    EXPECT_TRUE(document.get(L"HasItem", {L"FullName"}).isTrue());
    EXPECT_EQ(notes.ask(L"windows"), L"New Person\tPerson\tunsaved\tedit\tfront");
    EXPECT_NE(notes.ask(L"documents").find(L"[document]\n@Unsaved=True\n@Database=CN=Mail1/OU=Paris/O=Acme!!books"),
              std::wstring::npos);
}

TEST_F(NotesWorkspace, Compose_WithoutPlace_TakesTheCurrentDatabase_AndKnowsAliases)
{
    EXPECT_EQ(failureOf([&] { workspace().get(L"ComposeDocument", {L"", L"", L"P"}); }).description(),
              L"File does not exist");
    notes.ask(L"show books\\contacts.nsf");
    EXPECT_EQ(workspace().get(L"ComposeDocument", {L"", L"", L"p"}).object().get(L"WindowTitle").text(), L"New Person");
    EXPECT_EQ(failureOf([&] { workspace().get(L"ComposeDocument", {L"", L"", L"Car"}); }).description(),
              L"Cannot locate form: Car");
    EXPECT_EQ(failureOf([&] { workspace().get(L"ComposeDocument", {L"", L"no.nsf", L"P"}); }).description(),
              L"File does not exist");
}

TEST_F(NotesWorkspace, Fields_AreSetAndReadInEditModeOnly)
{
    const Object window = display(person(L"Durand"), false);
    EXPECT_EQ(window.get(L"FieldGetText", {L"lastname"}).text(), L"Durand") << "reading is for both modes";
    for (const wchar_t* member : {L"FieldSetText", L"FieldAppendText"})
        EXPECT_EQ(failureOf([&] { window.call(member, {L"LastName", L"x"}); }).description(), notEditing);
    EXPECT_EQ(failureOf([&] { window.call(L"GotoField", {L"LastName"}); }).description(), notEditing);
    EXPECT_EQ(failureOf([&] { window.call(L"FieldClear", {L"LastName"}); }).description(), notEditing);
    window.put(L"EditMode", true);
    window.call(L"FieldSetText", {L"LastName", L"Dur"});
    window.call(L"FieldAppendText", {L"lastname", L"oc"});
    EXPECT_EQ(window.get(L"FieldGetText", {L"LastName"}).text(), L"Duroc");
    EXPECT_EQ(first(documentOf(window), L"LastName").text(), L"Duroc");
    window.call(L"FieldClear", {L"LastName"});
    EXPECT_EQ(window.get(L"FieldGetText", {L"LastName"}).text(), L"");
    EXPECT_EQ(codeOf([&] { window.call(L"FieldSetText", {L"LastName", L"x"}); }), S_OK);
    window.put(L"EditMode", false);
    EXPECT_FALSE(window.get(L"EditMode").isTrue());
}

TEST_F(NotesWorkspace, UnknownField_IsAnErrorWithItsName)
{
    const Object window = display(person(L"Durand"), true);
    for (const wchar_t* member : {L"FieldSetText", L"FieldAppendText"})
        EXPECT_EQ(failureOf([&] { window.call(member, {L"Shoe", L"43"}); }).description(),
                  L"Cannot locate field definition for Shoe.");
    EXPECT_EQ(failureOf([&] { window.call(L"GotoField", {L"Shoe"}); }).description(),
              L"Cannot locate field definition for Shoe.");
    EXPECT_EQ(failureOf([&] { window.get(L"FieldGetText", {L"Phone"}); }).description(),
              L"Cannot locate field definition for Phone.")
        << "an item is no field of the form";
}

TEST_F(NotesWorkspace, DocumentOfAnUnknownForm_HasItsItemsAsFields)
{
    const Object window = display(contacts().get(L"GetDocumentByID", {L"8FE"}).object(), true);
    EXPECT_EQ(window.get(L"WindowTitle").text(), L"Memo");
    window.call(L"FieldSetText", {L"subject", L"Other"});
    EXPECT_EQ(window.get(L"FieldGetText", {L"Subject"}).text(), L"Other");
    EXPECT_EQ(failureOf([&] { window.call(L"FieldSetText", {L"City", L"x"}); }).description(),
              L"Cannot locate field definition for City.");
}

TEST_F(NotesWorkspace, CurrentField_IsTheOneGoneTo_AndMeantByAnEmptyName)
{
    const Object window = display(person(L"Durand"), true);
    EXPECT_EQ(window.get(L"CurrentField").text(), L"");
    EXPECT_EQ(failureOf([&] { window.call(L"FieldSetText", {L"", L"x"}); }).description(),
              L"Cannot locate field definition for .");
    window.call(L"GotoField", {L"fullname"});
    EXPECT_EQ(window.get(L"CurrentField").text(), L"FullName");
    window.call(L"FieldSetText", {L"", L"Marc A. Durand"});
    EXPECT_EQ(window.get(L"FieldGetText").text(), L"Marc A. Durand");
}

TEST_F(NotesWorkspace, WindowsSave_WritesToTheDatabase_InEditModeOnly)
{
    const Object window = compose();
    window.call(L"FieldSetText", {L"LastName", L"New"});
    window.call(L"Save");
    EXPECT_TRUE(person(L"New"));
    EXPECT_EQ(documentOf(window).get(L"NoteID").text(), L"902");
    EXPECT_FALSE(window.get(L"IsNewDoc").isTrue());
    EXPECT_EQ(notes.changes(), 1);
    window.put(L"EditMode", false);
    EXPECT_EQ(failureOf([&] { window.call(L"Save"); }).description(), notAvailable);
}

TEST_F(NotesWorkspace, TypedText_BecomesANumberWhenItIsSaved)
{
    const Object window = display(person(L"Durand"), true);
    window.call(L"FieldSetText", {L"Age", L"36"});
    EXPECT_EQ(first(documentOf(window), L"Age").type(), VT_BSTR);
    window.call(L"Save");
    EXPECT_EQ(first(documentOf(window), L"Age").type(), VT_R8);
    EXPECT_EQ(first(person(L"Durand"), L"Age").number(), 36.0);
    window.call(L"FieldSetText", {L"Age", L"old"});
    EXPECT_EQ(failureOf([&] { window.call(L"Save"); }).description(), L"Cannot convert text to a number");
    EXPECT_EQ(first(person(L"Durand"), L"Age").number(), 36.0);
    window.call(L"FieldSetText", {L"Age", L""});
    window.call(L"Save");
}

TEST_F(NotesWorkspace, Closing_LosesWhatIsNotSaved_UnlessSaveOptionsSaySo)
{
    const Object window = compose();
    window.call(L"FieldSetText", {L"LastName", L"New"});
    window.call(L"Close");
    EXPECT_FALSE(person(L"New"));
    EXPECT_EQ(windows(), L"");
    EXPECT_EQ(failureOf([&] { window.get(L"EditMode"); }).description(), notAvailable);
    const Object saved = compose();
    saved.call(L"FieldSetText", {L"LastName", L"New"});
    documentOf(saved).put(L"SaveOptions", L"1");
    saved.call(L"Close");
    EXPECT_TRUE(person(L"New"));
}

TEST_F(NotesWorkspace, SavedBehindTheWindowsBack_TheWindowsSaveMakesAConflict)
{
    const Object window = display(person(L"Durand"), true);
    const Object behind = documentOf(window);
    const std::wstring universal = behind.get(L"UniversalID").text();
    behind.put(L"City", L"Paris");
    behind.get(L"Save", {true, false});
    window.call(L"FieldSetText", {L"LastName", L"Duroc"});
    window.call(L"Save");
    EXPECT_TRUE(person(L"Durand")) << "as saved behind its back";
    const Object conflict = person(L"Duroc");
    EXPECT_EQ(conflict.get(L"ParentDocumentUNID").text(), universal);
    EXPECT_TRUE(conflict.get(L"HasItem", {L"$Conflict"}).isTrue());
}

TEST_F(NotesWorkspace, DisplayedDocument_CannotBeDeletedThroughItsWindow)
{
    const Object marc = person(L"Durand");
    const Object window = display(marc, false);
    EXPECT_EQ(failureOf([&] { documentOf(window).get(L"Remove", {true}); }).source(), L"Lotus Notes");
    EXPECT_TRUE(marc.get(L"Remove", {true}).isTrue()) << "through the back it can";
    EXPECT_EQ(window.get(L"FieldGetText", {L"LastName"}).text(), L"Durand");
    EXPECT_EQ(first(documentOf(window), L"LastName").text(), L"Durand");
}

TEST_F(NotesWorkspace, DeletedDocument_CannotBeDisplayed)
{
    const Object marc = person(L"Durand");
    notes.ask(L"delete 8F6@books\\contacts.nsf");
    EXPECT_EQ(failureOf([&] { display(marc, false); }).description(), L"Notes error: Document has been deleted");
    EXPECT_EQ(failureOf([&] { workspace().get(L"EditDocument", {true, L"Durand"}); }).code(), DISP_E_TYPEMISMATCH);
}

TEST_F(NotesWorkspace, EditDocumentWithoutADocument_ChangesTheModeOfTheCurrentOne)
{
    EXPECT_EQ(failureOf([&] { workspace().get(L"EditDocument", {true}); }).description(), notAvailable);
    display(person(L"Durand"), false);
    EXPECT_TRUE(workspace().get(L"EditDocument").object().get(L"EditMode").isTrue());
    EXPECT_FALSE(workspace().get(L"EditDocument", {false}).object().get(L"EditMode").isTrue());
}

TEST_F(NotesWorkspace, ReadOnlyDocument_NeverGetsToEditMode)
{
    const Object window = workspace().get(L"EditDocument", {true, person(L"Durand"), true}).object();
    EXPECT_FALSE(window.get(L"EditMode").isTrue());
    window.put(L"EditMode", true);
    EXPECT_FALSE(window.get(L"EditMode").isTrue());
}

TEST_F(NotesWorkspace, OpenDatabase_ShowsItsView_AndAddsTheIcon)
{
    workspace().call(L"OpenDatabase", {L"mail1/paris/acme", L"BOOKS\\CONTACTS.NSF", L"($phones)"});
    EXPECT_EQ(workspace().get(L"CurrentView").object().get(L"ViewName").text(), L"($Phones)");
    EXPECT_EQ(notes.ask(L"icons"), L"CN=Mail1/OU=Paris/O=Acme!!books\\contacts.nsf\thighlighted");
    workspace().call(L"OpenDatabase", {L"", L"local.nsf", L"", L"", false, true});
    EXPECT_EQ(notes.ask(L"icons"), L"CN=Mail1/OU=Paris/O=Acme!!books\\contacts.nsf\thighlighted") << "temporarily";
    EXPECT_EQ(failureOf([&] { workspace().call(L"OpenDatabase", {L"", L"local.nsf", L"People"}); }).description(),
              L"Cannot locate view: People");
    EXPECT_EQ(failureOf([&] { workspace().call(L"OpenDatabase", {L"", L"no.nsf"}); }).description(),
              L"File does not exist");
    workspace().get(L"CurrentDatabase").object();
    notes.ask(L"show books\\contacts.nsf");
    workspace().get(L"CurrentDatabase").object().call(L"OpenView", {L"($Phones)"});
    EXPECT_EQ(workspace().get(L"CurrentView").object().get(L"ViewName").text(), L"($Phones)");
}

TEST_F(NotesWorkspace, AddDatabase_AddsTheIconOnce_AndHighlightsIt)
{
    const Object own = workspace();
    own.call(L"AddDatabase", {L"", L"local.nsf"});
    own.call(L"AddDatabase", {L"Mail1/Paris/Acme", L"books\\contacts"});
    own.call(L"AddDatabase", {L"", L"LOCAL"});
    EXPECT_EQ(notes.ask(L"icons"), L"local.nsf\thighlighted\nCN=Mail1/OU=Paris/O=Acme!!books\\contacts.nsf");
    EXPECT_FALSE(current());
    EXPECT_EQ(notes.changes(), 2);
    EXPECT_EQ(failureOf([&] { own.call(L"AddDatabase", {L"", L"no.nsf"}); }).description(), L"File does not exist");
    notes.ask(L"available local.nsf off");
    EXPECT_EQ(failureOf([&] { own.call(L"AddDatabase", {L"", L"local.nsf"}); }).description(), L"File does not exist");
}
