#include "lotus/contacts.h"

#include "each_call.h"
#include "support/softphone_record.h"

namespace hublink {

namespace {

class LotusContacts : public LotusDocumentsFixture {
protected:
    std::wstring create(Show show = Show::no)
    {
        return CreateContactDocument(session, {L"01.23 45", L"Durand", L"Marc"}, show);
    }

    void showOrCreate() { ShowOrCreateCaller(session, {L"01.23 45", L"Durand", L"Marc"}); }

    std::wstring windows() { return notes.ask(L"windows"); }

    // What the only contact holds; nothing when there is none.
    Fields contact()
    {
        const auto all = documents(ownBook);
        EXPECT_LE(all.size(), 1u);
        return all.empty() ? Fields{} : itemsOf(all[0]);
    }
};

const Fields marc{{L"Form", L"Person"},    {L"Type", L"PersonType"}, {L"OfficePhoneNumber", L"012345"},
                  {L"FirstName", L"Marc"}, {L"LastName", L"Durand"}, {L"FullName", L"Marc Durand"}};

const Lines marcIsWritten{L"NotesSession.GetDatabase method (BSTR \"\", BSTR \"names.nsf\")",
                          L"NotesDatabase.CreateDocument method ()",
                          L"NotesDocument.Form put (BSTR \"Person\")",
                          L"NotesDocument.Type put (BSTR \"PersonType\")",
                          L"NotesDocument.AppendItemValue method (BSTR \"OfficePhoneNumber\", BSTR \"012345\")",
                          L"NotesDocument.AppendItemValue method (BSTR \"FirstName\", BSTR \"Marc\")",
                          L"NotesDocument.AppendItemValue method (BSTR \"LastName\", BSTR \"Durand\")",
                          L"NotesDocument.AppendItemValue method (BSTR \"FullName\", BSTR \"Marc Durand\")"};

Lines marcIsWrittenThen(const Lines& more)
{
    Lines lines = marcIsWritten;
    lines.insert(lines.end(), more.begin(), more.end());
    return lines;
}

}

TEST_F(LotusContacts, Silent_IsWrittenAndSavedAtOnce_AndNotShown)
{
    ready();
    const std::wstring noteId = create(Show::no);
    EXPECT_EQ(record(),
              marcIsWrittenThen({L"NotesDocument.Save method (BOOL True, BOOL True)", L"NotesDocument.NoteID get ()"}));
    EXPECT_EQ(contact(), marc);
    EXPECT_EQ(noteId, field(documents(ownBook)[0], L"@NoteID"));
    EXPECT_EQ(windows(), L"");
}

TEST_F(LotusContacts, Shown_IsOpenedForEditing_AndLeftForTheUserToSave)
{
    ready();
    EXPECT_FALSE(create(Show::yes).empty());
    EXPECT_EQ(record(), marcIsWrittenThen({L"NotesUIWorkspace.OpenDatabase method (BSTR \"\", BSTR \"names.nsf\")",
                                           L"NotesUIWorkspace.EditDocument method (BOOL True, DISPATCH)",
                                           L"NotesDocument.NoteID get ()"}));
    EXPECT_EQ(field(documents(ownBook).at(0), L"@Unsaved"), L"True");
    EXPECT_EQ(windows(), L"New Person\tPerson\tunsaved\tedit\tfront");
    notes.ask(L"close-windows");
    EXPECT_EQ(contact(), Fields{});
}

TEST_F(LotusContacts, SeveralPhoneItems_OnlyTheFirstIsWritten)
{
    ready();
    create();
    EXPECT_EQ(field(documents(ownBook).at(0), L"OfficePhoneNumber"), L"012345");
    EXPECT_EQ(field(documents(ownBook).at(0), L"CellPhoneNumber"), L"(none)");
}

TEST_F(LotusContacts, FirstPhoneItemHasNoName_TheNumberIsWrittenNowhere)
{
    ready();
    session.LotusAddressBooks[0].PhoneNumber = {L"", L"CellPhoneNumber"};
    create();
    EXPECT_EQ(contact(), (Fields{marc[0], marc[1], marc[3], marc[4], marc[5]}));
}

TEST_F(LotusContacts, ItemWithoutAName_IsNotWritten)
{
    ready();
    session.LotusAddressBooks[0].FirstName.clear();
    create();
    EXPECT_EQ(contact(), (Fields{marc[0], marc[1], marc[2], marc[4], marc[5]}));

    again();
    session.LotusAddressBooks[0].LastName.clear();
    create();
    EXPECT_EQ(contact(), (Fields{marc[0], marc[1], marc[2], marc[3], marc[5]}));

    again();
    session.LotusAddressBooks[0].FullName.clear();
    create();
    EXPECT_EQ(contact(), (Fields{marc[0], marc[1], marc[2], marc[3], marc[4]}));
}

TEST_F(LotusContacts, NoItemHasAName_TheDocumentHasItsFormAndTypeOnly)
{
    ready();
    LotusAddressBook& book = session.LotusAddressBooks[0];
    book.PhoneNumber.clear();
    book.FirstName = book.LastName = book.FullName = L"";
    EXPECT_FALSE(create().empty());
    EXPECT_EQ(contact(), (Fields{marc[0], marc[1]}));
}

TEST_F(LotusContacts, NoNames_TheFullNameIsABlank)
{
    ready();
    CreateContactDocument(session, {L"+33-1 23.x", L"", L""}, Show::no);
    EXPECT_EQ(contact(), (Fields{marc[0],
                                 marc[1],
                                 {L"OfficePhoneNumber", L"+33-123x"},
                                 {L"FirstName", L""},
                                 {L"LastName", L""},
                                 {L"FullName", L" "}}));
}

TEST_F(LotusContacts, SelectedPersonalBook_IsTheOneWrittenTo)
{
    ready();
    session.nSelectedPersonal = 1;
    create();
    EXPECT_EQ(contact(), Fields{});
    const auto staff = documents(L"books\\company.nsf");
    ASSERT_EQ(staff.size(), 1u);
    EXPECT_EQ(itemsOf(staff[0]), (Fields{{L"Form", L"Employee"},
                                         {L"Type", L"EmployeeType"},
                                         {L"Phone", L"012345"},
                                         {L"GivenName", L"Marc"},
                                         {L"Name", L"Durand"},
                                         {L"WholeName", L"Marc Durand"}}));
}

TEST_F(LotusContacts, NoPersonalBookOrNoSession_CreatesNothing)
{
    ready();
    session.nSelectedPersonal = -1;
    EXPECT_EQ(create(Show::no), L"");
    EXPECT_EQ(create(Show::yes), L"");
    session.nSelectedPersonal = 0;
    session.LotusReady = false;
    EXPECT_EQ(create(Show::no), L"");
    EXPECT_EQ(create(Show::yes), L"");
    EXPECT_EQ(record(), Lines{});
}

TEST_F(LotusContacts, SelectedBookIsGoneFromTheList_FailsQuietly)
{
    ready();
    session.nSelectedPersonal = 7;
    EXPECT_EQ(create(), L"");
    EXPECT_EQ(trapped.procedures, Lines{L"CreateContactDocument"});
}

TEST_F(LotusContacts, BookCannotBeOpened_FailsQuietly)
{
    ready();
    notes.ask(L"available names.nsf off");
    EXPECT_EQ(create(), L"");
    EXPECT_EQ(contact(), Fields{});
}

TEST_F(LotusContacts, SilentFailsAtAnyCall_ResultIsEmpty_AndNothingIsSavedBeforeTheSave)
{
    std::wstring noteId;
    atEachCall(
        notes.recorder(), fails, [&] { again(); }, [&] { noteId = create(Show::no); },
        [&](const std::wstring& call) {
            EXPECT_EQ(noteId, L"") << desk::utf8(call);
            const bool saved = call == L"NotesDocument.NoteID get ()";
            EXPECT_EQ(contact(), saved ? marc : Fields{}) << desk::utf8(call);
        });
}

TEST_F(LotusContacts, NotesIsBusyAtAnyCall_NothingIsLost)
{
    std::wstring noteId;
    atEachCall(
        notes.recorder(), isBusy, [&] { again(); }, [&] { noteId = create(Show::no); },
        [&](const std::wstring& call) {
            EXPECT_FALSE(noteId.empty()) << desk::utf8(call);
            EXPECT_EQ(contact(), marc) << desk::utf8(call);
        });
}

TEST_F(LotusContacts, KnownCaller_IsShownForReading_AndNothingIsCreated)
{
    ready();
    host.settings.bgSetNewContact = true;
    const std::wstring id = add(ownBook, L"Form=Person\nLastName=Known\nOfficePhoneNumber=012345");
    showOrCreate();
    EXPECT_EQ(windows(), L"Person\tPerson\t" + id + L"\tread\tfront");
    EXPECT_EQ(calls(L"NotesDatabase.CreateDocument method"), 0u);
    EXPECT_EQ(documents(ownBook).size(), 1u);
    EXPECT_EQ(logLine().find(L"Create contact"), std::wstring::npos);
}

TEST_F(LotusContacts, KnownCallerInTheSecondBook_IsShown)
{
    ready();
    host.settings.bgSetNewContact = true;
    const std::wstring id = add(L"books\\company.nsf", L"Form=Employee\nPhone=012345");
    showOrCreate();
    EXPECT_EQ(windows(), L"Employee\tEmployee\t" + id + L"\tread\tfront");
    EXPECT_EQ(contact(), Fields{});
}

TEST_F(LotusContacts, UnknownCaller_NewContactsUnwanted_NothingHappens)
{
    ready();
    showOrCreate();
    EXPECT_EQ(windows(), L"");
    EXPECT_EQ(calls(L"NotesDatabase.CreateDocument method"), 0u);
}

TEST_F(LotusContacts, UnknownCaller_NewContactIsOpened_AndLoggedWithTheNumberAsItCame)
{
    ready();
    host.settings.bgSetNewContact = true;
    showOrCreate();
    EXPECT_EQ(windows(), L"New Person\tPerson\tunsaved\tedit\tfront");
    EXPECT_EQ(contact(), marc);
    EXPECT_EQ(calls(L"NotesDocument.Save method"), 1u) << "of the log document";
    EXPECT_EQ(logLine(), L"3/15/2023 12:00:00 PM Create contact 01.23 45 Durand Marc");
}

TEST_F(LotusContacts, UnknownCaller_NoPersonalBook_NeitherContactNorLine)
{
    ready();
    host.settings.bgSetNewContact = true;
    session.nSelectedPersonal = -1;
    showOrCreate();
    EXPECT_EQ(windows(), L"");
    EXPECT_EQ(logLine().find(L"Create contact"), std::wstring::npos);
}

TEST_F(LotusContacts, UnknownCaller_TheContactCannotBeShown_NoLine)
{
    ready();
    host.settings.bgSetNewContact = true;
    fault(L"on NotesUIWorkspace.EditDocument fail 0x80004005");
    showOrCreate();
    EXPECT_EQ(windows(), L"");
    EXPECT_EQ(logLine().find(L"Create contact"), std::wstring::npos);
}

TEST_F(LotusContacts, ShowOrCreate_SessionNotReady_AsksNotesNothing)
{
    ready();
    host.settings.bgSetNewContact = true;
    session.LotusReady = false;
    showOrCreate();
    EXPECT_EQ(record(), Lines{});
}

TEST_F(LotusContacts, ShowOrCreate_NotesIsGone_FailsQuietly)
{
    ready();
    host.settings.bgSetNewContact = true;
    session.NotesSession = automation::Object();
    showOrCreate();
    EXPECT_EQ(windows(), L"");
    EXPECT_EQ(calls(L"NotesDatabase.CreateDocument method"), 0u);
}

TEST_F(LotusContacts, FromAnEntry_IsSaved_AndLoggedWithTheNormalisedNumber)
{
    ready();
    const std::wstring noteId = CreateContactFromEntry(session, softphoneEntry(L"01.23 45", L"Durand", L"Marc"));
    EXPECT_EQ(contact(), marc);
    EXPECT_EQ(noteId, field(documents(ownBook).at(0), L"@NoteID"));
    EXPECT_EQ(field(documents(ownBook).at(0), L"@Unsaved"), L"(none)");
    EXPECT_EQ(windows(), L"");
    EXPECT_EQ(logLine(), L"3/15/2023 12:00:00 PM Create contact 012345 Durand Marc");
}

TEST_F(LotusContacts, FromAnEntry_WithoutNames_LeavesTheBlanksInTheLine)
{
    ready();
    CreateContactFromEntry(session, softphoneEntry(L"1", L"", L""));
    EXPECT_EQ(logLine(), L"3/15/2023 12:00:00 PM Create contact 1  ");
}

TEST_F(LotusContacts, FromAnEntry_NoPersonalBook_CreatesNothing_AndLogsItsLineStill)
{
    ready();
    session.nSelectedPersonal = -1;
    EXPECT_EQ(CreateContactFromEntry(session, softphoneEntry(L"01.23 45", L"Durand", L"Marc")), L"");
    EXPECT_EQ(contact(), Fields{});
    EXPECT_EQ(logLine(), L"3/15/2023 12:00:00 PM Create contact 012345 Durand Marc");
}

TEST_F(LotusContacts, FromAnEntry_SavingFails_LogsItsLineStill)
{
    ready();
    fault(L"on NotesDocument.Save at 1 fail 0x80004005");
    EXPECT_EQ(CreateContactFromEntry(session, softphoneEntry(L"1", L"Durand", L"Marc")), L"");
    EXPECT_EQ(contact(), Fields{});
    EXPECT_EQ(logLine(), L"3/15/2023 12:00:00 PM Create contact 1 Durand Marc");
}

TEST_F(LotusContacts, FromAnEntry_NotesIsGone_LogsItsLineStill)
{
    ready();
    session.NotesSession = automation::Object();
    EXPECT_EQ(CreateContactFromEntry(session, softphoneEntry(L"1", L"Durand", L"Marc")), L"");
    EXPECT_EQ(logLine(), L"3/15/2023 12:00:00 PM Create contact 1 Durand Marc");
}

TEST_F(LotusContacts, FromAnEntry_BeforeAnyInitialisation_NothingHappens)
{
    EXPECT_EQ(CreateContactFromEntry(session, softphoneEntry(L"1", L"Durand", L"Marc")), L"");
    EXPECT_EQ(record(), Lines{});
}

TEST_F(LotusContacts, FromAnEntryThatLacksAMember_FailsQuietly_WithoutALine)
{
    ready();
    EXPECT_EQ(CreateContactFromEntry(session, SoftphoneEntry(automation::Object())), L"");
    const SoftphoneEntry withoutFirstName(support::record({{L"Number", L"1"}, {L"LastName", L"Durand"}}));
    EXPECT_EQ(CreateContactFromEntry(session, withoutFirstName), L"");
    EXPECT_EQ(contact(), Fields{});
    EXPECT_EQ(record(), Lines{});
}

TEST_F(LotusContacts, FromAnEntry_NumberThatIsNoText_IsTakenAsOne)
{
    ready();
    const SoftphoneEntry entry(support::record(
        {{L"Number", std::int32_t{12345}}, {L"LastName", automation::Value()}, {L"FirstName", L"Marc"}}));
    EXPECT_FALSE(CreateContactFromEntry(session, entry).empty());
    EXPECT_EQ(field(documents(ownBook).at(0), L"OfficePhoneNumber"), L"12345");
    EXPECT_EQ(logLine(), L"3/15/2023 12:00:00 PM Create contact 12345  Marc");
}

}
