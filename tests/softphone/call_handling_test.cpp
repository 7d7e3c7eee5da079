#include "link_fixture.h"

namespace hublink {

namespace {

constexpr const wchar_t* people =
    L"[contact]\nFirstName=Marc\nLastName=Durand\nMobileTelephoneNumber=01.23\n"
    L"[contact]\nFirstName=Claire\nLastName=Petit\nBusinessTelephoneNumber=4711\nEmail1Address=claire@example.com\n"
    L"[contact]\nFirstName=Paul\nLastName=Mute\nBusinessTelephoneNumber=4712\n";

class CallHandling : public LinkFixture {
protected:
    CallHandling()
    {
        host.settings.bgWithPopUp = true;
        host.settings.bgWithCallBackMail = true;
    }

    ~CallHandling() override { outlook.command(L"close-windows", L""); }

    void begin()
    {
        start(people);
        outlookSession.szCallBackMailSyntaxe = L"<FirstName> <LastName> <PhoneNumber>";
    }

    static desk::softphone::CallRecord incoming(const wchar_t* number, const wchar_t* destination = L"")
    {
        return {{number, L"", L""}, true, destination};
    }
};

}

TEST_F(CallHandling, KnownCaller_IsShown_AndTheNamesAreTheContacts)
{
    begin();
    ring(incoming(L"0123"));
    EXPECT_EQ(windows(), L"Marc Durand - Contact");
    EXPECT_EQ(session.gPhoneNumberCalled, L"0123");
    EXPECT_EQ(session.gLastNameCalled, L"Durand");
    EXPECT_EQ(session.gFirstNameCalled, L"Marc");
    EXPECT_EQ(session.gDestinationNumber, L"");
}

TEST_F(CallHandling, NotForwarded_OnlyThePopUpActionsRun)
{
    begin();
    ring(incoming(L"4711"));
    EXPECT_EQ(windows(), L"Claire Petit - Contact");
    EXPECT_EQ(outlookCalls.count(L"Application.CreateItem method"), 0u);
}

TEST_F(CallHandling, Forwarded_AMailToTheDestinationNamesTheCaller_ThenTheCallerIsShown)
{
    begin();
    ring(incoming(L"0123", L"4711"));
    EXPECT_EQ(windows(), L"Marc Durand 0123 - Message\nMarc Durand - Contact");
    EXPECT_EQ(session.gDestinationLastName, L"Petit");
    EXPECT_EQ(session.gDestinationFirstName, L"Claire");
    EXPECT_NE(outlookCalls.record().find(L"MailItem.To put (BSTR \"claire@example.com\")"), std::wstring::npos);
}

TEST_F(CallHandling, ForwardedWithTheMailSwitchedOff_NoMail)
{
    host.settings.bgWithCallBackMail = false;
    begin();
    ring(incoming(L"0123", L"4711"));
    EXPECT_EQ(windows(), L"Marc Durand - Contact");
}

TEST_F(CallHandling, DestinationWithoutAMailAddress_NoMail)
{
    begin();
    ring(incoming(L"0123", L"4712"));
    EXPECT_EQ(windows(), L"Marc Durand - Contact");
}

TEST_F(CallHandling, UnknownDestination_NoMail_AndItsNamesAreCleared)
{
    begin();
    ring(incoming(L"0123", L"4711"));
    outlook.command(L"close-windows", L"");
    ring(incoming(L"0123", L"99"));
    EXPECT_EQ(windows(), L"Marc Durand - Contact");
    EXPECT_EQ(session.gDestinationLastName, L"");
}

TEST_F(CallHandling, UnknownCallerWithNewContactOff_NothingIsShown)
{
    begin();
    ring({{L"555", L"Nguyen", L"Linh"}, true, L""});
    EXPECT_EQ(windows(), L"");
    EXPECT_EQ(count(L"contact"), 3u);
    EXPECT_EQ(session.gLastNameCalled, L"Nguyen") << "the softphone's own names serve where no contact is known";
    EXPECT_EQ(session.gFirstNameCalled, L"Linh");
}

TEST_F(CallHandling, UnknownCallerWithNewContactOn_IsCreatedAndShown)
{
    host.settings.bgSetNewContact = true;
    begin();
    ring({{L"5.5 5", L"Nguyen", L"Linh"}, true, L""});
    EXPECT_EQ(windows(), L"Linh Nguyen - Contact");
    EXPECT_EQ(field(L"contact", 3, L"BusinessTelephoneNumber"), L"555");
}

TEST_F(CallHandling, PopUpOff_NothingIsShownOrCreated)
{
    host.settings.bgWithPopUp = false;
    host.settings.bgSetNewContact = true;
    begin();
    ring(incoming(L"0123"));
    ring(incoming(L"555"));
    EXPECT_EQ(windows(), L"");
    EXPECT_EQ(count(L"contact"), 3u);
}

TEST_F(CallHandling, OutgoingCall_RefreshesTheNames_AndRunsNoAction)
{
    begin();
    ring({{L"4711", L"", L""}, false, L""});
    EXPECT_EQ(session.gLastNameCalled, L"Petit");
    EXPECT_EQ(windows(), L"");
    EXPECT_EQ(softphoneCalls.count(L"Call.DestinationNumber get"), 0u);
}

TEST_F(CallHandling, OutgoingCallAfterAForwardedOne_ClearsTheDestinationNumberOnly)
{
    begin();
    ring(incoming(L"0123", L"4711"));
    ring({{L"4712", L"", L""}, false, L""});
    EXPECT_EQ(session.gDestinationNumber, L"");
    EXPECT_EQ(session.gDestinationLastName, L"Petit");
}

TEST_F(CallHandling, EmptyNumber_KeepsTheNamesOfThePreviousCall_AndRunsNoAction)
{
    begin();
    ring(incoming(L"0123"));
    outlook.command(L"close-windows", L"");
    ring({{L"", L"Nguyen", L"Linh"}, true, L"4711"});
    EXPECT_EQ(session.gPhoneNumberCalled, L"");
    EXPECT_EQ(session.gLastNameCalled, L"Durand");
    EXPECT_EQ(session.gFirstNameCalled, L"Marc");
    EXPECT_EQ(session.gDestinationNumber, L"");
    EXPECT_EQ(windows(), L"");
}

TEST_F(CallHandling, CallWithoutOneOfTheProperties_EndsQuietly)
{
    begin();
    for (const wchar_t* member : {L"Call.Number", L"Call.Incoming", L"Call.DestinationNumber"}) {
        softphoneCalls.faults.add(L"on " + std::wstring(member) + L" fail 0x80020003");
        softphoneCalls.faults.add(L"on " + std::wstring(member) + L" lookup fail 0x80020006");
        ring(incoming(L"0123", L"4711"));
        EXPECT_EQ(windows(), L"") << desk::utf8(member);
        softphoneCalls.clear();
    }
    ring(incoming(L"0123"));
    EXPECT_EQ(windows(), L"Marc Durand - Contact") << "the next call is served";
}

// The softphone's names are read of unknown callers only.
TEST_F(CallHandling, CallOfAStrangerWithoutOneOfTheNames_EndsQuietly)
{
    host.settings.bgSetNewContact = true;
    begin();
    for (const wchar_t* member : {L"Call.LastName", L"Call.FirstName"}) {
        softphoneCalls.faults.add(L"on " + std::wstring(member) + L" fail 0x80020003");
        softphoneCalls.faults.add(L"on " + std::wstring(member) + L" lookup fail 0x80020006");
        ring({{L"555", L"Nguyen", L"Linh"}, true, L""});
        EXPECT_EQ(windows(), L"") << desk::utf8(member);
        softphoneCalls.clear();
    }
    ring({{L"555", L"Nguyen", L"Linh"}, true, L""});
    EXPECT_EQ(windows(), L"Linh Nguyen - Contact") << "the next call is served";
}

TEST_F(CallHandling, DirectionIsRead_BeforeTheNumberIsLookedAt)
{
    begin();
    ring(incoming(L""));
    EXPECT_EQ(softphoneCalls.count(L"Call.Incoming get"), 1u);
    EXPECT_EQ(softphoneCalls.count(L"Call.DestinationNumber get"), 0u);
    EXPECT_EQ(windows(), L"");
}

TEST_F(CallHandling, ContactWithoutALastName_TheSoftphonesNamesServe)
{
    begin();
    outlook.load(desk::parseStore(L"[contact]\nFirstName=Firm\nBusinessTelephoneNumber=555\n"));
    ring({{L"555", L"Nguyen", L"Linh"}, true, L""});
    EXPECT_EQ(session.gLastNameCalled, L"Nguyen");
    EXPECT_EQ(session.gFirstNameCalled, L"Linh");
    EXPECT_EQ(windows(), L"Firm - Contact");
}

TEST_F(CallHandling, OutlookNotReady_NothingIsAskedOfIt)
{
    begin();
    outlookSession.bOutlookInit = false;
    ring({{L"0123", L"Nguyen", L"Linh"}, true, L"4711"});
    EXPECT_EQ(outlookCalls.calls().size(), 0u);
    EXPECT_EQ(session.gLastNameCalled, L"Nguyen");
}

TEST_F(CallHandling, Forced_RunsTheActionsThatAreSwitchedOff)
{
    begin();
    ring(incoming(L"0123", L"4711"));
    outlook.command(L"close-windows", L"");
    host.settings.bgWithPopUp = false;
    host.settings.bgWithCallBackMail = false;
    link.DoCallAction(false, true);
    EXPECT_EQ(windows(), L"");
    link.DoCallAction(true, true);
    EXPECT_EQ(windows(), L"Marc Durand 0123 - Message\nMarc Durand - Contact");
    outlook.command(L"close-windows", L"");
    link.DoCallAction(true, false);
    EXPECT_EQ(windows(), L"Marc Durand - Contact");
}

TEST_F(CallHandling, Forced_MakesNoContact_WithNewContactOff)
{
    begin();
    ring({{L"555", L"Nguyen", L"Linh"}, true, L""});
    link.DoCallAction(true, true);
    EXPECT_EQ(windows(), L"");
    host.settings.bgSetNewContact = true;
    link.DoCallAction(true, true);
    EXPECT_EQ(windows(), L"Linh Nguyen - Contact");
}

TEST_F(CallHandling, ForcedBeforeAnyCall_PreparesNoMessage)
{
    begin();
    link.DoCallAction(true, true);
    EXPECT_EQ(outlookCalls.count(L"Application.CreateItem method"), 0u);
    link.DisplayGroupwareInfo();
    ring(incoming(L"0123"));
    EXPECT_EQ(session.gLastNameCalled, L"Durand") << "the next call is served";
}

// The names are looked up first: what is switched meanwhile holds for this call.
TEST_F(CallHandling, EachSwitch_IsReadAtTheMomentOfUse)
{
    begin();
    bool* const switches[] = {&host.settings.bgWithCallBackMail, &host.settings.bgWithPopUp};
    const wchar_t* const left[] = {L"Marc Durand - Contact", L"Marc Durand 0123 - Message"};
    for (int n = 0; n < 2; ++n) {
        outlookCalls.hang = [&, n](DWORD) { *switches[n] = false; };
        outlookCalls.faults.add(L"on Items.Find at 1 hang");
        ring(incoming(L"0123", L"4711"));
        EXPECT_EQ(windows(), left[n]);
        outlook.command(L"close-windows", L"");
        *switches[n] = true;
    }
}

TEST_F(CallHandling, CallMembers_AreLookedUpOnceForAllCalls)
{
    begin();
    ring(incoming(L"0123"));
    ring(incoming(L"4711"));
    EXPECT_EQ(softphoneCalls.count(L"Call.Number lookup"), 1u);
    EXPECT_EQ(softphoneCalls.count(L"Call.Number get"), 2u);
}

// Each party is looked up for its names and again for its mail or its window.
TEST_F(CallHandling, NumbersWithDots_OneTableServesTheWholeCall_AndNoWalkRuns)
{
    start(L"[contact]\nFirstName=Marc\nLastName=Durand\nMobileTelephoneNumber=01.23\n"
          L"[contact]\nFirstName=Claire\nLastName=Petit\nBusinessTelephoneNumber=47 "
          L"11\nEmail1Address=claire@example.com\n");
    outlookSession.bReplacePhoneNumber = false;
    for (unsigned long rings = 1; rings <= 2; ++rings) {
        ring(incoming(L"0123", L"4711"));
        EXPECT_EQ(windows(), L"Untitled - Message\nMarc Durand - Contact");
        EXPECT_EQ(outlookCalls.count(L"Items.Find method"), 4 * rings) << "what the user may have changed is asked";
        EXPECT_EQ(outlookCalls.count(L"Folder.GetTable method"), rings) << "the next call reads it anew";
        EXPECT_EQ(outlookCalls.count(L"Table.GetArray method"), 2 * rings) << "once a party";
        EXPECT_EQ(outlookCalls.count(L"NameSpace.GetItemFromID method"), 4 * rings);
        EXPECT_EQ(outlookCalls.count(L"Items.GetFirst method"), 0u);
        outlook.command(L"close-windows", L"");
    }
}

TEST_F(CallHandling, StrangerIsCalled_OneTableServesBothLookUps)
{
    host.settings.bgSetNewContact = true;
    begin();
    ring(incoming(L"999"));
    EXPECT_EQ(outlookCalls.count(L"Folder.GetTable method"), 1u);
    EXPECT_EQ(outlookCalls.count(L"Table.GetArray method"), 1u);
    EXPECT_EQ(outlookCalls.count(L"Items.Find method"), 2u);
    EXPECT_EQ(count(L"contact"), 4u);
}

}
