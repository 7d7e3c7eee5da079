// A call with Notes in use, alone or besides Outlook.
#include "notes_link_fixture.h"

#include "lotus/initialisation.h"
#include "softphone/last_call.h"

namespace hublink {

namespace {

class NotesCall : public NotesLinkFixture {
protected:
    NotesCall()
    {
        host.settings.bgWithPopUp = true;
        host.settings.bgWithCallBackMail = true;
    }

    void startWithNotesOnly()
    {
        host.settings.bgWithOutlook = false;
        start();
    }

    static constexpr const wchar_t* claireInOutlook =
        L"[contact]\nFirstName=Clara\nLastName=Klein\nBusinessTelephoneNumber=4711\n"
        L"Email1Address=clara@example.com\n";
};

}

TEST_F(NotesCall, KnownCaller_IsShownInNotes_AndPublished)
{
    startWithNotesOnly();
    ring({.party = {L"47.11", L"", L""}, .incoming = true, .destinationNumber = L""});
    EXPECT_EQ(openNotes(), Lines{L"Claire Petit/Acme read"});
    EXPECT_EQ(session.gLastNameCalled, L"Petit");
    EXPECT_EQ(session.gFirstNameCalled, L"Claire");
    EXPECT_EQ(environment(L"CTI_InfoLastCall_Server"), L"Mail1/Acme");
    EXPECT_EQ(environment(L"CTI_InfoLastCall_Base"), L"public.nsf");
    EXPECT_EQ(environment(L"CTI_InfoLastCall_docid"), L"8FA");
}

TEST_F(NotesCall, KnownCaller_CostsOneOpeningOfTheBook_AndOneReadingOfTheNames)
{
    startWithNotesOnly();
    ring({.party = {L"4711", L"", L""}, .incoming = true, .destinationNumber = L""});
    ASSERT_EQ(openNotes(), Lines{L"Claire Petit/Acme read"});
    EXPECT_EQ(outlookCalls.count(L"NotesSession.GetDatabase method"), 1u);
    EXPECT_EQ(outlookCalls.count(L"NotesDatabase.GetView method"), 1u);
    EXPECT_EQ(outlookCalls.count(L"NotesView.GetDocumentByKey method"), 2u) << "the document is asked for each time";
    EXPECT_EQ(outlookCalls.count(L"NotesDocument.GetItemValue method"), 4u);
    outlookCalls.clear();
    ring({.party = {L"4711", L"", L""}, .incoming = true, .destinationNumber = L""});
    EXPECT_EQ(outlookCalls.count(L"NotesSession.GetDatabase method"), 1u) << "nothing is kept for the next call";
}

TEST_F(NotesCall, ForwardedCall_AsksForEachNumberOnce_BeforeTheCallerIsShown)
{
    startWithNotesOnly();
    ring({.party = {L"0123", L"", L""}, .incoming = true, .destinationNumber = L"4711"});
    ASSERT_EQ(openNotes(), (Lines{L"Marc Durand edit", L"Sales read", L"Marc Durand/Acme read"}));
    EXPECT_EQ(outlookCalls.count(L"NotesDatabase.GetView method"), 2u) << "the book, and the calendars";
    EXPECT_EQ(outlookCalls.count(L"NotesView.GetDocumentByKey method"), 3u);
}

TEST_F(NotesCall, ObjectsWithIdentifiersOfTheirOwn_AreEachLookedUpForThemselves)
{
    notes.ask(L"identifiers own");
    startWithNotesOnly();
    for (int times = 0; times < 2; ++times) {
        notes.ask(L"close-windows");
        ring({.party = {L"0123", L"", L""}, .incoming = true, .destinationNumber = L"4711"});
        EXPECT_EQ(openNotes(), (Lines{L"Marc Durand edit", L"Sales read", L"Marc Durand/Acme read"}));
        EXPECT_EQ(environment(L"CTI_InfoLastCall_docid"), L"8FA");
    }
}

TEST_F(NotesCall, Stranger_IsPublishedAsNobody_TheOtherTwoVariablesStay)
{
    startWithNotesOnly();
    ring({.party = {L"4711", L"", L""}, .incoming = true, .destinationNumber = L""});
    ring({.party = {L"999", L"Stranger", L"Sam"}, .incoming = true, .destinationNumber = L""});
    EXPECT_EQ(environment(L"CTI_InfoLastCall_docid"), L"");
    EXPECT_EQ(environment(L"CTI_InfoLastCall_Base"), L"public.nsf");
    EXPECT_EQ(session.gLastNameCalled, L"Stranger") << "as the softphone has it";
}

TEST_F(NotesCall, Stranger_OpensANewContact_InEditMode_Unsaved)
{
    host.settings.bgSetNewContact = true;
    startWithNotesOnly();
    ring({.party = {L"06.55", L"Nguyen", L"Linh"}, .incoming = true, .destinationNumber = L""});
    EXPECT_EQ(openNotes(), Lines{L"Linh Nguyen edit"});
    EXPECT_EQ(noteField(L"Person", 2, L"@Unsaved"), L"True");
    EXPECT_EQ(noteField(L"Person", 2, L"Phone"), L"0655");
}

TEST_F(NotesCall, Stranger_WithNewContactOff_OpensNothing)
{
    startWithNotesOnly();
    ring({.party = {L"06.55", L"Nguyen", L"Linh"}, .incoming = true, .destinationNumber = L""});
    EXPECT_EQ(openNotes(), Lines{});
}

TEST_F(NotesCall, Forwarded_ComposesAPhoneMessage_AndOpensTheCalendarsOfTheCalled)
{
    startWithNotesOnly();
    ring({.party = {L"0123", L"", L""}, .incoming = true, .destinationNumber = L"4711"});
    EXPECT_EQ(openNotes(), (Lines{L"Marc Durand edit", L"Sales read", L"Marc Durand/Acme read"}));
    EXPECT_EQ(noteField(L"Phone Message", 0, L"SendTo"), L"claire.petit@example.com");
    EXPECT_EQ(noteField(L"Phone Message", 0, L"PhoneCaller"), L"Marc Durand");
    EXPECT_EQ(noteField(L"Phone Message", 0, L"PhoneNumber"), L"0123");
    EXPECT_EQ(environment(L"CTI_InfoLastCall_docid"), L"8FA") << "published last: the one it was forwarded to";
}

TEST_F(NotesCall, ForwardedWithCallBackMailOff_StillOpensTheCalendar)
{
    host.settings.bgWithCallBackMail = false;
    host.settings.bgWithPopUp = false;
    startWithNotesOnly();
    ring({.party = {L"0123", L"", L""}, .incoming = true, .destinationNumber = L"4711"});
    EXPECT_EQ(openNotes(), Lines{L"Sales read"});
}

TEST_F(NotesCall, Calendars_OnACall_NeedBothSwitches)
{
    for (const char* one : {"ShowGrpwAgenda=true\r\n", "PopUpGrpwAgenda=true\r\n"}) {
        writeIni(one);
        lotusSession.LotusMustInit = true;
        startWithNotesOnly();
        ring({.party = {L"999", L"", L""}, .incoming = true, .destinationNumber = L"4711"});
        EXPECT_EQ(openNotes(), Lines{L"New Phone Message edit"}) << one << "the phone message alone";
        notes.ask(L"close-windows");
    }
}

TEST_F(NotesCall, NotForwarded_OpensNoCalendar)
{
    startWithNotesOnly();
    ring({.party = {L"4711", L"", L""}, .incoming = true, .destinationNumber = L""});
    EXPECT_EQ(openNotes(), Lines{L"Claire Petit/Acme read"});
}

TEST_F(NotesCall, OutgoingCall_IsPublished_AndOpensNothing)
{
    startWithNotesOnly();
    ring({.party = {L"4711", L"", L""}, .incoming = false, .destinationNumber = L""});
    EXPECT_EQ(environment(L"CTI_InfoLastCall_docid"), L"8FA");
    EXPECT_EQ(openNotes(), Lines{});
}

TEST_F(NotesCall, Force_RunsWhatIsSwitchedOff)
{
    host.settings.bgWithCallBackMail = false;
    host.settings.bgWithPopUp = false;
    startWithNotesOnly();
    ring({.party = {L"0123", L"", L""}, .incoming = true, .destinationNumber = L"4711"});
    notes.ask(L"close-windows");
    link.DoCallAction(true, true);
    EXPECT_EQ(openNotes().size(), 3u) << "message, calendar, caller";
}

TEST_F(NotesCall, DisplayGroupwareInfo_OpensTheCalendarsOfTheLastDestination)
{
    startWithNotesOnly();
    session.gDestinationNumber = L"4711";
    link.DisplayGroupwareInfo();
    EXPECT_EQ(openNotes(), Lines{L"Sales read"});
    notes.ask(L"close-windows");
    lotusSession.LotusReady = false;
    link.DisplayGroupwareInfo();
    EXPECT_EQ(openNotes(), Lines{});
}

TEST_F(NotesCall, BothGroupware_AreServed_OutlookFirst)
{
    start(claireInOutlook);
    ring({.party = {L"4711", L"", L""}, .incoming = true, .destinationNumber = L""});
    EXPECT_EQ(windows(), L"Clara Klein - Contact");
    EXPECT_EQ(openNotes(), Lines{L"Claire Petit/Acme read"});
    EXPECT_LT(placeOf(L"ContactItem.Display method"), placeOf(L"NotesUIWorkspace.EditDocument method"));
}

TEST_F(NotesCall, BothGroupware_ForwardedCall_LeavesAMailAndAPhoneMessage_OutlookFirst)
{
    start(claireInOutlook);
    ring({.party = {L"0123", L"", L""}, .incoming = true, .destinationNumber = L"4711"});
    EXPECT_EQ(noteField(L"Phone Message", 0, L"SendTo"), L"claire.petit@example.com");
    EXPECT_LT(placeOf(L"MailItem.Display method"), placeOf(L"NotesUIWorkspace.ComposeDocument method"));
    EXPECT_LT(placeOf(L"NotesUIWorkspace.ComposeDocument method"), placeOf(L"NotesUIWorkspace.EditDocument method"))
        << "the message before the calendars and the caller";
}

TEST_F(NotesCall, NamesOfNotes_ReplaceThoseOfOutlook_WhereADocumentIsFound)
{
    start(claireInOutlook);
    Party party = SetLastCallInfo(session, L"4711");
    EXPECT_EQ(party.lastName + L" " + party.firstName, L"Petit Claire");
    outlook.load(desk::parseStore(L"[contact]\nFirstName=Only\nLastName=Outlook\nBusinessTelephoneNumber=555\n"));
    party = SetLastCallInfo(session, L"555");
    EXPECT_EQ(party.lastName + L" " + party.firstName, L"Outlook Only");
    party = SetLastCallInfo(session, L"999");
    EXPECT_EQ(party.lastName + party.firstName, L"");
}

TEST_F(NotesCall, DocumentVariable_IsClearedBeforeTheSearch_AndSetLast)
{
    startWithNotesOnly();
    SetLastCallInfo(session, L"4711");
    Lines sets;
    for (const std::wstring& line : desk::linesOf(outlookCalls.record()))
        if (line.starts_with(L"NotesSession.") && line.find(L"lookup") == std::wstring::npos) sets.push_back(line);
    EXPECT_EQ(sets,
              (Lines{L"NotesSession.SetEnvironmentVar method (BSTR \"CTI_InfoLastCall_docid\", BSTR \"\")",
                     L"NotesSession.GetDatabase method (BSTR \"Mail1/Acme\", BSTR \"public.nsf\")",
                     L"NotesSession.SetEnvironmentVar method (BSTR \"CTI_InfoLastCall_Server\", BSTR \"Mail1/Acme\")",
                     L"NotesSession.SetEnvironmentVar method (BSTR \"CTI_InfoLastCall_Base\", BSTR \"public.nsf\")",
                     L"NotesSession.SetEnvironmentVar method (BSTR \"CTI_InfoLastCall_docid\", BSTR \"8FA\")"}));
}

TEST_F(NotesCall, NotesGoneWithoutNotice_CallEndsQuietly)
{
    startWithNotesOnly();
    notes.recorder().faults.add(L"on * fail 0x800706BA"); // its objects are dead, and nobody has looked yet
    const Party party = SetLastCallInfo(session, L"4711");
    EXPECT_EQ(party.lastName + party.firstName, L"");
    ring({.party = {L"4711", L"Petit", L"C"}, .incoming = true, .destinationNumber = L"0123"});
    EXPECT_EQ(openNotes(), Lines{});
}

TEST_F(NotesCall, VariableThatCannotBeSet_EndsThePublishing_WithTheNamesThatWereFound)
{
    startWithNotesOnly();
    const struct {
        const wchar_t* at; // of the four, in their order
        const wchar_t* lastName;
        const wchar_t* base;
    } variables[] = {{L"1", L"", L"(none)"},
                     {L"2", L"Petit", L"(none)"},
                     {L"3", L"Petit", L"(none)"},
                     {L"4", L"Petit", L"public.nsf"}};
    for (const auto& variable : variables) {
        notes.load(databases);
        lotusSession.LotusMustInit = true;
        InitLotus(lotusSession, NewLog::yes);
        notes.recorder().faults.add(L"on NotesSession.SetEnvironmentVar at " + std::wstring(variable.at) +
                                    L" fail 0x80004005");
        EXPECT_EQ(SetLastCallInfo(session, L"4711").lastName, variable.lastName) << desk::utf8(variable.at);
        EXPECT_EQ(environment(L"CTI_InfoLastCall_Base"), variable.base) << desk::utf8(variable.at);
        EXPECT_NE(environment(L"CTI_InfoLastCall_docid"), L"8FA") << desk::utf8(variable.at);
    }
}

TEST_F(NotesCall, ForwardedCall_TheEnvironmentNamesTheDestination)
{
    startWithNotesOnly();
    ring({.party = {L"0123", L"", L""}, .incoming = true, .destinationNumber = L"4711"});
    EXPECT_EQ(environment(L"CTI_InfoLastCall_docid"), L"8FA");
    EXPECT_EQ(session.gLastNameCalled + L" " + session.gDestinationLastName, L"Durand Petit");
}

}
