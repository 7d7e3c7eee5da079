#include "outlook/journal.h"

#include "outlook/log_item.h"
#include "outlook_fixture.h"
#include "support/softphone_record.h"

namespace hublink {

namespace {

using automation::Value;

class LogItem : public OutlookFixture {};

class Journal : public OutlookFixture {
protected:
    // A call of the softphone's history; what is not given is a plain answered outgoing one.
    struct Call {
        std::wstring number = L"0123456";
        std::wstring lastName{};
        std::wstring firstName{};
        bool incoming = false;
        std::int16_t state = 3;
        std::int16_t acknowledged = 0;
    };

    std::wstring create(const Call& call, bool createContact = false)
    {
        const SoftphoneHistoryItem item(support::record({{L"Incoming", call.incoming},
                                                         {L"Number", call.number},
                                                         {L"LastName", call.lastName},
                                                         {L"FirstName", call.firstName},
                                                         {L"BeginDate", Value::date(45000.25)},
                                                         {L"EndDate", Value::date(45000.5)},
                                                         {L"State", call.state},
                                                         {L"Acknowledged", call.acknowledged}}));
        return CreateOutlookHistoItem(session, item, createContact);
    }

    std::wstring journal(const wchar_t* name) { return field(L"journal", 0, name); }

    std::wstring bodyFor(bool incoming, std::int16_t state, std::int16_t acknowledged)
    {
        create({.incoming = incoming, .state = state, .acknowledged = acknowledged});
        const std::wstring body = field(L"journal", count(L"journal") - 1, L"Body");
        return body;
    }
};

constexpr const wchar_t* marc = L"[contact]\nFirstName=Marc\nLastName=Durand\nBusinessTelephoneNumber=0123456\n";

}

TEST_F(LogItem, FirstLine_CreatesTheItem_WithStartEqualToEnd)
{
    open();
    LogToOutlookJournal(session, L"Start Connector Initialization");
    ASSERT_EQ(count(L"journal"), 1u);
    EXPECT_EQ(field(L"journal", 0, L"Subject"), L"Connector Log");
    EXPECT_EQ(field(L"journal", 0, L"Type"), L"Pavex Connector");
    EXPECT_EQ(field(L"journal", 0, L"Start"), L"2023-03-15 12:00:00");
    EXPECT_EQ(field(L"journal", 0, L"End"), L"2023-03-15 12:00:00");
    EXPECT_EQ(field(L"journal", 0, L"Body"), L"3/15/2023 12:00:00 PM Start Connector Initialization");
    EXPECT_EQ(carriedOut(),
              (std::vector<std::wstring>{
                  L"Application.CreateItem method (I2 4)", L"JournalItem.Subject put (BSTR \"Connector Log\")",
                  L"JournalItem.Start put (DATE 2023-03-15 12:00:00)",
                  L"JournalItem.End put (DATE 2023-03-15 12:00:00)", L"JournalItem.Type put (BSTR \"Pavex Connector\")",
                  L"JournalItem.Body put (BSTR \"3/15/2023 12:00:00 PM Start Connector Initialization\")",
                  L"JournalItem.Close method (I2 0)"}));
}

TEST_F(LogItem, SecondLine_MovesOnlyEnd_AndIsJoinedByABareLineFeed)
{
    open();
    LogToOutlookJournal(session, L"first");
    host.time = 45000.75;
    forgetCalls();
    LogToOutlookJournal(session, L"second");
    EXPECT_EQ(carriedOut(),
              (std::vector<std::wstring>{
                  L"JournalItem.End put (DATE 2023-03-15 18:00:00)", L"JournalItem.Body get ()",
                  L"JournalItem.Body put (BSTR \"3/15/2023 12:00:00 PM first\\n3/15/2023 6:00:00 PM second\")",
                  L"JournalItem.Close method (I2 0)"}));
    ASSERT_EQ(count(L"journal"), 1u);
    EXPECT_EQ(field(L"journal", 0, L"Start"), L"2023-03-15 12:00:00");
    EXPECT_EQ(field(L"journal", 0, L"End"), L"2023-03-15 18:00:00");
    EXPECT_EQ(field(L"journal", 0, L"Body"), L"3/15/2023 12:00:00 PM first\n3/15/2023 6:00:00 PM second");
}

TEST_F(LogItem, AtMidnight_TheTimeIsLeftOut_AsTheUsersLocaleHasIt)
{
    open();
    host.time = 45000;
    LogToOutlookJournal(session, L"line");
    EXPECT_EQ(field(L"journal", 0, L"Body"), L"3/15/2023 line");
}

TEST_F(LogItem, Failure_LosesThatLineOnly)
{
    open();
    LogToOutlookJournal(session, L"first");
    recorder.faults.add(L"on JournalItem.Body put fail 0x80004005");
    LogToOutlookJournal(session, L"lost");
    recorder.faults.clear();
    LogToOutlookJournal(session, L"third");
    EXPECT_EQ(field(L"journal", 0, L"Body"), L"3/15/2023 12:00:00 PM first\n3/15/2023 12:00:00 PM third");
}

TEST_F(LogItem, FirstLineFailsAfterTheItemWasMade_TheNextLineIsAppendedToThatItem)
{
    open();
    recorder.faults.add(L"on JournalItem.Subject put at 1 fail 0x80004005");
    LogToOutlookJournal(session, L"lost");
    EXPECT_EQ(count(L"journal"), 0u);
    LogToOutlookJournal(session, L"second");
    EXPECT_EQ(count(L"journal"), 1u);
    EXPECT_EQ(calls(L"Application.CreateItem method"), 1u);
    EXPECT_EQ(field(L"journal", 0, L"Body"), L"\n3/15/2023 12:00:00 PM second") << "appended to an empty body";
    EXPECT_EQ(field(L"journal", 0, L"Subject"), L"") << "the item is never named again";
}

TEST_F(LogItem, GuardThatRefusesTheBody_EachFurtherLineIsLost_AtOneQuestion)
{
    open();
    outlook.command(L"guard", L"deny");
    LogToOutlookJournal(session, L"first");
    EXPECT_EQ(outlook.guard().questions(), 0u) << "the first line is only written";
    LogToOutlookJournal(session, L"lost");
    EXPECT_EQ(outlook.guard().questions(), 1u);
    outlook.command(L"guard", L"off");
    LogToOutlookJournal(session, L"third");
    EXPECT_EQ(field(L"journal", 0, L"Body"), L"3/15/2023 12:00:00 PM first\n3/15/2023 12:00:00 PM third");
}

TEST_F(LogItem, AfterAReinitialisation_TheSameItemGoesOn)
{
    open();
    LogToOutlookJournal(session, L"first");
    session.bOutlookInit = false;
    InitOutlook(session);
    LogToOutlookJournal(session, L"second");
    EXPECT_EQ(count(L"journal"), 1u);
}

TEST_F(Journal, IncomingCallFromAKnownContact_HasStarNamesAndNumber)
{
    open(marc);
    const std::wstring id = create({.lastName = L"X", .firstName = L"Y", .incoming = true});
    EXPECT_EQ(id, journal(L"EntryID"));
    EXPECT_EQ(journal(L"Subject"), L"* Marc Durand (0123456)");
    EXPECT_EQ(journal(L"Type"), L"Phone Call");
    EXPECT_EQ(journal(L"Start"), L"2023-03-15 06:00:00");
    EXPECT_EQ(journal(L"End"), L"2023-03-15 12:00:00");
    EXPECT_EQ(journal(L"Recipient"), L"Marc Durand");
}

TEST_F(Journal, ItemOfACall_IsFilledInOrder)
{
    open(marc);
    create({.incoming = true});
    std::vector<std::wstring> made;
    for (const std::wstring& call : carriedOut())
        if (call.starts_with(L"Application.") || call.starts_with(L"JournalItem.") || call.starts_with(L"Recipients."))
            made.push_back(call);
    EXPECT_EQ(
        made,
        (std::vector<std::wstring>{
            L"Application.CreateItem method (I2 4)", L"JournalItem.Subject put (BSTR \"* Marc Durand (0123456)\")",
            L"JournalItem.Start put (DATE 2023-03-15 06:00:00)", L"JournalItem.End put (DATE 2023-03-15 12:00:00)",
            L"JournalItem.Type put (BSTR \"Phone Call\")", L"JournalItem.Recipients get ()",
            L"Recipients.Add method (BSTR \"Marc Durand\")", L"JournalItem.Body put (BSTR \"Incoming call answered\")",
            L"JournalItem.Close method (I2 0)", L"JournalItem.EntryID get ()"}));
}

TEST_F(Journal, KnownCallerWithContactCreation_IsTheRecipient_AndNoSecondContactIsMade)
{
    open(marc);
    create({.lastName = L"X", .firstName = L"Y"}, true);
    EXPECT_EQ(count(L"contact"), 1u);
    EXPECT_EQ(journal(L"Recipient"), L"Marc Durand");
}

TEST_F(Journal, GuardThatRefuses_TheCallIsCopiedWithoutARecipient_AndNoContactIsDoubled)
{
    for (const wchar_t* refusal : {L"deny 0x80004004", L"deny 0x80040102"}) {
        session.bOutlookInit = false;
        open(marc);
        outlook.command(L"guard", refusal);
        const std::wstring id = create({.lastName = L"X", .firstName = L"Y"}, true);
        EXPECT_EQ(count(L"contact"), 1u) << "the caller is recognised though the mail address is refused";
        EXPECT_EQ(id, journal(L"EntryID"));
        EXPECT_EQ(journal(L"Subject"), L"Marc Durand (0123456)");
        EXPECT_EQ(journal(L"Recipient"), L"");
        EXPECT_EQ(journal(L"Body"), L"Outgoing call answered");
    }
}

TEST_F(Journal, OutgoingCallWithoutAName_HasABlankBetweenTheEmptyNames)
{
    open();
    create({.number = L"0654"});
    EXPECT_EQ(journal(L"Subject"), L"  (0654)");
}

TEST_F(Journal, UnknownCallerWithoutContactCreation_RecipientIsBlankAndNumber_AndNoContact)
{
    open();
    create({.number = L"06.54", .lastName = L"Nguyen", .firstName = L"Linh", .incoming = true}, false);
    EXPECT_EQ(journal(L"Subject"), L"* Linh Nguyen (06.54)");
    EXPECT_EQ(journal(L"Recipient"), L" 06.54");
    EXPECT_EQ(count(L"contact"), 0u);
}

TEST_F(Journal, UnknownCallerWithContactCreation_BecomesAContactAndIsTheRecipient)
{
    open();
    create({.number = L"06.54", .lastName = L"Nguyen", .firstName = L"Linh"}, true);
    ASSERT_EQ(count(L"contact"), 1u);
    EXPECT_EQ(field(L"contact", 0, L"BusinessTelephoneNumber"), L"0654");
    EXPECT_EQ(calls(L"ContactItem.Display method"), 0u);
    EXPECT_EQ(field(L"journal", 1, L"Recipient"), L"Linh Nguyen");
    EXPECT_EQ(field(L"journal", 0, L"Subject"), L"Connector Log") << "the new contact's line comes first";
}

TEST_F(Journal, ContactCreationFails_RecipientIsTheNumber)
{
    open();
    recorder.faults.add(L"on ContactItem.Close fail 0x80004005");
    create({.number = L"0654", .lastName = L"Nguyen"}, true);
    EXPECT_EQ(journal(L"Recipient"), L" 0654");
}

TEST_F(Journal, EmptyNumber_HasNoIdentity_AndNoRecipient)
{
    open(L"[contact]\nLastName=Mute\n");
    create({.number = L"", .incoming = true});
    EXPECT_EQ(journal(L"Subject"), L"* No identity");
    EXPECT_EQ(journal(L"Recipient"), L"");
    EXPECT_EQ(calls(L"Items.Find method"), 0u);
}

TEST_F(Journal, StateTwelveAndAcknowledged_IsUnanswered)
{
    open();
    EXPECT_EQ(bodyFor(true, 12, 1), L"Incoming call unanswered");
}

TEST_F(Journal, CallState_DecidesTheSixTexts)
{
    open();
    for (const std::int16_t state : std::initializer_list<std::int16_t>{6, 7, 12, 14}) {
        EXPECT_EQ(bodyFor(true, state, 0), L"Incoming call unanswered") << state;
        EXPECT_EQ(bodyFor(false, state, 1), L"Outgoing call unanswered") << state;
    }
    EXPECT_EQ(bodyFor(true, 3, 1), L"Incoming call acknowledged");
    EXPECT_EQ(bodyFor(false, 5, 1), L"Outgoing call acknowledged");
    EXPECT_EQ(bodyFor(true, 3, 0), L"Incoming call answered");
    EXPECT_EQ(bodyFor(false, 13, 2), L"Outgoing call answered");
}

TEST_F(Journal, WithALanguageInTheIniFile_InitOutlookLoadsItsDictionary)
{
    const support::ScratchFolder folder;
    folder.folder(L"dictionary");
    folder.write(L"dictionary\\1036.ini",
                 support::utf16File(L"[history]\r\nTI_NAMECALL_UNKNOWN=&Inconnu\r\nST_FILTRE_LST2=Appel &entrant\r\n"));
    folder.write(L"dictionary\\1040.ini", support::utf16File(L"[history]\r\nTI_NAMECALL_UNKNOWN=Sconosciuto\r\n"));
    folder.write(L"pavexconnector.ini", "[outlook]\r\nlanguage=1036\r\n");
    host.settings.szFileConnectorIni = folder.file(L"pavexconnector.ini");
    dictionary = Dictionary(folder.path());
    open();
    create({.number = L"", .incoming = true});
    EXPECT_EQ(journal(L"Subject"), L"* Inconnu");
    EXPECT_EQ(journal(L"Body"), L"Appel entrant");
    folder.write(L"pavexconnector.ini", "[outlook]\r\nlanguage=1040\r\n");
    session.bOutlookInit = false;
    InitOutlook(session);
    create({.number = L"", .incoming = true});
    EXPECT_EQ(field(L"journal", 1, L"Subject"), L"* Sconosciuto") << "another initialisation, another language";
}

TEST_F(Journal, ItemWithoutAState_FailsQuietly_AndNothingIsKept)
{
    open();
    const SoftphoneHistoryItem item(support::record(
        {{L"Incoming", true}, {L"Number", L""}, {L"BeginDate", Value::date(1)}, {L"EndDate", Value::date(1)}}));
    EXPECT_EQ(CreateOutlookHistoItem(session, item, true), L"");
    EXPECT_EQ(count(L"journal"), 0u) << "an unsaved item is discarded";
}

TEST_F(Journal, AddRecipient_TwoEmptyNames_AddsASingleBlank)
{
    open();
    const automation::Object item = session.OutlookApp.get(L"CreateItem", {std::int16_t{4}}).object();
    EXPECT_TRUE(AddRecipient(session, item, L"", L""));
    bool added = false;
    for (const std::wstring& call : record()) added |= call == L"Recipients.Add method (BSTR \" \")";
    EXPECT_TRUE(added);
}

TEST_F(Journal, AddRecipient_AddsFirstNameThenLastName_AndNothingToNoItem)
{
    open();
    const automation::Object item = session.OutlookApp.get(L"CreateItem", {std::int16_t{4}}).object();
    EXPECT_TRUE(AddRecipient(session, item, L"Durand", L"Marc"));
    EXPECT_EQ(record().back(), L"Recipients.Add method (BSTR \"Marc Durand\")");
    EXPECT_FALSE(AddRecipient(session, automation::Object(), L"Durand", L"Marc"));
}

}
