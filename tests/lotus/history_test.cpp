#include "history_fixture.h"

namespace hublink {

namespace {

using automation::Value;
using LotusHistory = HistoryFixture;

const Lines fiveOfAnyCall{L"BSTR \"CallState\", I4 3)",
                          L"BSTR \"In\", BOOL False)",
                          L"BSTR \"Ack\", I2 0)",
                          L"BSTR \"Begin\", DATE 2023-03-15 06:00:00)",
                          L"BSTR \"End\", DATE 2023-03-15 12:00:00)",
                          L"BSTR \"Kind\", BSTR \"Outgoing call answered\")"};

Lines before(Lines lines, const Lines& more)
{
    lines.insert(lines.end(), more.begin(), more.end());
    return lines;
}

}

TEST_F(LotusHistory, CallWithoutANumber_CallsOfNotesComeInThisOrder)
{
    ready();
    const std::wstring noteId = create(call(L""));
    EXPECT_EQ(record(), (Lines{L"NotesDatabase.CreateDocument method ()", L"NotesDocument.Form put (BSTR \"Call\")",
                               L"NotesDocument.Type put (BSTR \"CallType\")",
                               L"NotesDocument.AppendItemValue method (BSTR \"CallState\", I4 3)",
                               L"NotesDocument.AppendItemValue method (BSTR \"In\", BOOL False)",
                               L"NotesDocument.AppendItemValue method (BSTR \"Ack\", I2 0)",
                               L"NotesDocument.AppendItemValue method (BSTR \"Begin\", DATE 2023-03-15 06:00:00)",
                               L"NotesDocument.AppendItemValue method (BSTR \"End\", DATE 2023-03-15 12:00:00)",
                               L"NotesDocument.AppendItemValue method (BSTR \"Kind\", BSTR \"Outgoing call answered\")",
                               L"NotesDocument.Save method (BOOL True, BOOL True)", L"NotesDocument.NoteID get ()",
                               L"NotesUIWorkspace.CurrentDatabase get ()"}));
    EXPECT_EQ(noteId, field(documents(historyBase).at(0), L"@NoteID"));
    EXPECT_EQ(saved(), (Fields{{L"Form", L"Call"},
                               {L"Type", L"CallType"},
                               {L"CallState:number", L"3"},
                               {L"In:number", L"0"},
                               {L"Ack:number", L"0"},
                               {L"Begin:date", L"2023-03-15 06:00:00"},
                               {L"End:date", L"2023-03-15 12:00:00"},
                               {L"Kind", L"Outgoing call answered"}}));
}

TEST_F(LotusHistory, CallWithoutANumber_GetsNoneOfTheSixItems_AndNobodyIsSearched)
{
    ready();
    add(L"names.nsf", L"Form=Person\nLastName=No number\nOfficePhoneNumber=");
    create(call(L""));
    for (const wchar_t* item : {L"Number", L"Last", L"First", L"InfoSupdocNoteId", L"InfoSupServer", L"InfoSupBase"})
        EXPECT_EQ(field(documents(historyBase).at(0), item), L"(none)") << desk::utf8(item);
    EXPECT_EQ(calls(L"NotesSession.GetDatabase method"), 0u);
}

TEST_F(LotusHistory, KnownParty_HasTheBooksNames_AndTheLinkToItsDocument)
{
    ready();
    addMarc();
    const std::wstring noteId = field(documents(L"names.nsf").at(0), L"@NoteID");
    create(call(L"0 1.23"));
    EXPECT_EQ(appended(),
              before({L"BSTR \"Number\", BSTR \"0123\")", L"BSTR \"First\", BSTR \"Marc\")",
                      L"BSTR \"Last\", BSTR \"Durand\")", L"BSTR \"InfoSupdocNoteId\", BSTR \"" + noteId + L"\")",
                      L"BSTR \"InfoSupServer\", BSTR \"\")", L"BSTR \"InfoSupBase\", BSTR \"names.nsf\")"},
                     fiveOfAnyCall));
}

TEST_F(LotusHistory, PartyOfTheSecondBook_IsLinkedToThatBook)
{
    ready();
    add(L"books\\company.nsf", L"Form=Employee\nName=Petit\nPhone=0123");
    create(call(L"0123"));
    const auto document = documents(historyBase).at(0);
    EXPECT_EQ(field(document, L"Last"), L"Petit");
    EXPECT_EQ(field(document, L"First"), L"") << "the book's, though it has none";
    EXPECT_EQ(field(document, L"InfoSupdocNoteId"), field(documents(L"books\\company.nsf").at(0), L"@NoteID"));
    EXPECT_EQ(field(document, L"InfoSupServer"), L"CN=Mail1/O=Acme");
    EXPECT_EQ(field(document, L"InfoSupBase"), L"books\\company.nsf");
}

TEST_F(LotusHistory, UnknownParty_HasTheSoftphonesNames_AndAnEmptyLink)
{
    ready();
    addMarc();
    create(call(L"0 4.56"));
    EXPECT_EQ(appended(), before({L"BSTR \"Number\", BSTR \"0456\")", L"BSTR \"First\", BSTR \"Softphone-First\")",
                                  L"BSTR \"Last\", BSTR \"Softphone-Last\")", L"BSTR \"InfoSupdocNoteId\", BSTR \"\")",
                                  L"BSTR \"InfoSupServer\", BSTR \"\")", L"BSTR \"InfoSupBase\", BSTR \"\")"},
                                 fiveOfAnyCall));
}

TEST_F(LotusHistory, Party_IsNotShown)
{
    ready();
    addMarc();
    create(call(L"0123"));
    EXPECT_EQ(notes.ask(L"windows"), L"");
}

TEST_F(LotusHistory, Values_KeepTheirTypes)
{
    ready();
    create({{L"Number", L""},
            {L"State", std::int16_t{12}},
            {L"Incoming", std::int32_t{1}},
            {L"Acknowledged", true},
            {L"BeginDate", L"yesterday"},
            {L"EndDate", Value()}});
    EXPECT_EQ(appended(), (Lines{L"BSTR \"CallState\", I2 12)", L"BSTR \"In\", I4 1)", L"BSTR \"Ack\", BOOL True)",
                                 L"BSTR \"Begin\", BSTR \"yesterday\")", L"BSTR \"End\", EMPTY)",
                                 L"BSTR \"Kind\", BSTR \"Incoming call unanswered\")"}));
}

TEST_F(LotusHistory, State6_7_12And14_AreUnanswered_EvenAcknowledged_AndNoOther)
{
    ready();
    for (std::int32_t state = -1; state <= 20; ++state) {
        const bool unanswered = state == 6 || state == 7 || state == 12 || state == 14;
        for (const bool incoming : {true, false}) {
            const std::wstring direction = incoming ? L"Incoming call" : L"Outgoing call";
            const auto expected = [&](const wchar_t* otherwise) {
                return direction + (unanswered ? L" unanswered" : otherwise);
            };
            EXPECT_EQ(kindOf(incoming, state, 0), expected(L" answered")) << state;
            EXPECT_EQ(kindOf(incoming, state, 1), expected(L" acknowledged")) << state;
            EXPECT_EQ(kindOf(incoming, state, 2), expected(L" answered")) << state;
            EXPECT_EQ(kindOf(incoming, state, -1), expected(L" answered")) << state;
        }
    }
}

TEST_F(LotusHistory, WithADictionary_TheTypeIsInTheUsersLanguage)
{
    ready();
    dictionary = Dictionary(support::projectFile(L"packaging"));
    dictionary.LoadDicoSelected(1036);
    EXPECT_EQ(kindOf(true, 6, 1), L"Appel entrant sans réponse");
    EXPECT_EQ(kindOf(true, 3, 1), L"Appel entrant acquitté");
    EXPECT_EQ(kindOf(true, 3, 0), L"Appel entrant répondu");
    EXPECT_EQ(kindOf(false, 14, 0), L"Appel sortant sans réponse");
    EXPECT_EQ(kindOf(false, 3, 1), L"Appel sortant acquitté");
    EXPECT_EQ(kindOf(false, 3, 0), L"Appel sortant abouti");
}

TEST_F(LotusHistory, DictionaryWithoutTheText_TheEnglishOneIsStored)
{
    ready();
    folder.folder(L"dictionary");
    folder.write(L"dictionary\\1033.ini",
                 support::utf16File(L"[history]\r\nST_FILTRE_LST2=\r\nST_FILTRE_LST3=nicht erreicht\r\n"));
    dictionary = Dictionary(folder.path());
    dictionary.LoadDicoSelected(1033);
    EXPECT_EQ(kindOf(true, 6, 0), L"Incoming call unanswered");
    EXPECT_EQ(kindOf(true, 3, 0), L"Incoming call answered");
    EXPECT_EQ(kindOf(false, 6, 0), L"nicht erreicht");
}

TEST_F(LotusHistory, AmpersandsOfTheDictionary_AreLeftOut)
{
    ready();
    folder.folder(L"dictionary");
    folder.write(L"dictionary\\1033.ini",
                 support::utf16File(L"[history]\r\nST_FILTRE_LST2=&Missed && &gone&\r\nST_FILTRE_LST1=&\r\n"));
    dictionary = Dictionary(folder.path());
    dictionary.LoadDicoSelected(1033);
    EXPECT_EQ(kindOf(true, 3, 0), L"Missed  gone");
    EXPECT_EQ(kindOf(false, 3, 0), L"") << "a text that is an access key only";
}

TEST_F(LotusHistory, FailsAtAnyCall_NothingIsSavedUntilTheSave_AndTheResultStaysAfterwards)
{
    std::wstring noteId;
    const auto prepare = [&] {
        again();
        notes.ask(L"show pavexhistory.nsf Calls");
    };
    bool isSaved = false;
    bool hasResult = false;
    atEachCall(
        notes.recorder(), fails, prepare, [&] { noteId = create(call(L"")); },
        [&](const std::wstring& failed) {
            EXPECT_EQ(documents(historyBase).size(), isSaved ? 1u : 0u) << desk::utf8(failed);
            EXPECT_EQ(noteId.empty(), !hasResult) << desk::utf8(failed);
            hasResult |= failed.find(L".NoteID get") != std::wstring::npos;
            isSaved |= failed.find(L".Save method") != std::wstring::npos;
        });
    EXPECT_TRUE(hasResult);
}

TEST_F(LotusHistory, SearchFailsAtAnyCall_TheCallIsSaved_UnderTheSoftphonesNames)
{
    std::wstring noteId;
    const auto prepare = [&] {
        again();
        addMarc();
    };
    bool searching = false;
    std::size_t calls = 0;
    int mailAddresses = 0;
    atEachCall(
        notes.recorder(), fails, prepare, [&] { noteId = create(call(L"0123")); },
        [&](const std::wstring& failed) {
            searching |= failed.starts_with(L"NotesSession.");
            searching &= failed.find(L".AppendItemValue") == std::wstring::npos;
            if (!searching) return;
            if (asksForMail(failed)) {
                EXPECT_EQ(field(documents(historyBase).at(0), L"Last"), L"Durand");
                ++mailAddresses;
                return;
            }
            ++calls;
            EXPECT_FALSE(noteId.empty()) << desk::utf8(failed);
            const auto document = documents(historyBase).at(0);
            EXPECT_EQ(field(document, L"Last"), L"Softphone-Last") << desk::utf8(failed);
            EXPECT_EQ(field(document, L"First"), L"Softphone-First") << desk::utf8(failed);
            EXPECT_EQ(field(document, L"InfoSupdocNoteId"), L"") << desk::utf8(failed);
            EXPECT_EQ(field(document, L"InfoSupBase"), L"") << desk::utf8(failed);
        });
    EXPECT_GE(calls, 7u);
    EXPECT_EQ(mailAddresses, 2);
}

TEST_F(LotusHistory, NotesIsBusyAtAnyCall_NothingIsLost)
{
    std::wstring noteId;
    const auto prepare = [&] {
        again();
        addMarc();
        notes.ask(L"show pavexhistory.nsf Calls");
    };
    prepare();
    create(call(L"0123"));
    const Fields whole = saved();
    ASSERT_EQ(whole.size(), 14u);
    atEachCall(
        notes.recorder(), isBusy, prepare, [&] { noteId = create(call(L"0123")); },
        [&](const std::wstring& busy) {
            EXPECT_FALSE(noteId.empty()) << desk::utf8(busy);
            EXPECT_EQ(saved(), whole) << desk::utf8(busy);
        });
}

TEST_F(LotusHistory, SessionNotReady_AsksNotesNothing)
{
    ready();
    session.LotusReady = false;
    EXPECT_EQ(create(call(L"0123")), L"");
    EXPECT_EQ(record(), Lines{});
}

TEST_F(LotusHistory, NoHistoryDatabase_FailsQuietly)
{
    ready();
    session.HistoryDatabase = automation::Object();
    EXPECT_EQ(create(call(L"0123")), L"");
    EXPECT_EQ(trapped.procedures, Lines{L"CreateHistoryDocument"});
}

TEST_F(LotusHistory, HistoryCannotBeOpened_FailsQuietly)
{
    notes.ask(L"available pavexhistory.nsf off");
    ready();
    EXPECT_EQ(create(call(L"")), L"");
    EXPECT_EQ(saved(), Fields{});
}

TEST_F(LotusHistory, SessionObjectIsGone_TheCallIsSaved_UnderTheSoftphonesNames)
{
    ready();
    addMarc();
    session.NotesSession = automation::Object();
    EXPECT_FALSE(create(call(L"0123")).empty());
    EXPECT_EQ(field(documents(historyBase).at(0), L"Last"), L"Softphone-Last");
}

TEST_F(LotusHistory, ItemThatLacksAMember_FailsQuietly_AndNothingIsSaved)
{
    ready();
    for (const wchar_t* missing :
         {L"Number", L"LastName", L"FirstName", L"State", L"Incoming", L"Acknowledged", L"BeginDate", L"EndDate"}) {
        Members members = call(L"0456");
        members.erase(missing);
        EXPECT_EQ(create(members), L"") << desk::utf8(missing);
    }
    EXPECT_EQ(CreateHistoryDocument(session, SoftphoneHistoryItem(automation::Object())), L"");
    EXPECT_EQ(saved(), Fields{});
    EXPECT_EQ(trapped.procedures.size(), 9u);
}

TEST_F(LotusHistory, StateThatIsNoNumber_FailsQuietly_AndNothingIsSaved)
{
    ready();
    EXPECT_EQ(create(with(call(L""), L"State", L"ringing")), L"");
    EXPECT_EQ(create(with(call(L""), L"Incoming", L"perhaps")), L"");
    EXPECT_EQ(saved(), Fields{});
}

TEST_F(LotusHistory, NumberThatIsNoText_IsTakenAsOne)
{
    ready();
    addMarc();
    add(L"names.nsf", L"Form=Person\nLastName=Twelve\nOfficePhoneNumber=12");
    create(with(call(L""), L"Number", std::int32_t{12}));
    EXPECT_EQ(field(documents(historyBase).at(0), L"Number"), L"12");
    EXPECT_EQ(field(documents(historyBase).at(0), L"Last"), L"Twelve");
}

TEST_F(LotusHistory, PartysItemsAreNoArray_ThePartyIsNotFound)
{
    ready();
    notes.ask(L"missing text");
    add(L"names.nsf", L"Form=Person\nLastName=Durand\nOfficePhoneNumber=0123");
    create(call(L"0123"));
    EXPECT_EQ(field(documents(historyBase).at(0), L"Last"), L"Softphone-Last");
    EXPECT_EQ(field(documents(historyBase).at(0), L"InfoSupdocNoteId"), L"");
}

}
