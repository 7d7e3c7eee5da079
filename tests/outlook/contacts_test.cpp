#include "outlook/contacts.h"

#include "outlook_fixture.h"
#include "support/softphone_record.h"

namespace hublink {

namespace {

class OutlookContacts : public OutlookFixture {
protected:
    std::wstring logBody() { return field(L"journal", 0, L"Body"); }
};

}

TEST_F(OutlookContacts, FromAnEntry_GetsExactlyThreeProperties_TheNumberStripped)
{
    open();
    const auto entry = softphoneEntry(L"01 23.45", L"Durand", L"Marc");
    const std::wstring id = CreateOutlookContact(session, entry);
    ASSERT_EQ(count(L"contact"), 1u);
    EXPECT_EQ(id, field(L"contact", 0, L"EntryID"));
    EXPECT_EQ(field(L"contact", 0, L"FirstName"), L"Marc");
    EXPECT_EQ(field(L"contact", 0, L"LastName"), L"Durand");
    EXPECT_EQ(field(L"contact", 0, L"BusinessTelephoneNumber"), L"012345");
    std::vector<std::wstring> made = carriedOut();
    made.resize(7); // the log line follows
    EXPECT_EQ(made, (std::vector<std::wstring>{L"Folder.Items get ()", L"Items.Add method ()",
                                               L"ContactItem.FirstName put (BSTR \"Marc\")",
                                               L"ContactItem.LastName put (BSTR \"Durand\")",
                                               L"ContactItem.BusinessTelephoneNumber put (BSTR \"012345\")",
                                               L"ContactItem.Close method (I2 0)", L"ContactItem.EntryID get ()"}));
}

TEST_F(OutlookContacts, FromAnEntry_LeavesItsLineInTheLogItem)
{
    open();
    CreateOutlookContact(session, softphoneEntry(L"01 23.45", L"Durand", L"Marc"));
    EXPECT_EQ(session.szLastLogText, L"New contact 012345 Durand Marc");
    EXPECT_EQ(logBody(), L"3/15/2023 12:00:00 PM New contact 012345 Durand Marc");
}

TEST_F(OutlookContacts, FromAnEntry_IsClosedOnce_AndNotDisplayed)
{
    open();
    CreateOutlookContact(session, softphoneEntry(L"1", L"A", L"B"));
    EXPECT_EQ(calls(L"ContactItem.Close method"), 1u);
    EXPECT_EQ(calls(L"ContactItem.Display method"), 0u);
}

TEST_F(OutlookContacts, FromAnEntryWithoutAName_FailsQuietly_WithoutALogLine)
{
    open();
    EXPECT_EQ(CreateOutlookContact(session, SoftphoneEntry(automation::Object())), L"");
    EXPECT_EQ(count(L"contact"), 0u);
    EXPECT_EQ(count(L"journal"), 0u);
    EXPECT_EQ(session.szLastLogText, L"");
}

TEST_F(OutlookContacts, SavingFails_EmptyIdentifier_AndNoLogLine)
{
    open();
    recorder.faults.add(L"on ContactItem.Close fail 0x80004005");
    EXPECT_EQ(NewOutlookContact(session, {L"0123", L"Durand", L"Marc"}, Show::yes), L"");
    EXPECT_EQ(calls(L"ContactItem.Display method"), 0u);
    EXPECT_EQ(count(L"journal"), 0u);
}

TEST_F(OutlookContacts, FromTexts_Displayed_OpensAfterSaving_ThenTheLine)
{
    open();
    const std::wstring id = NewOutlookContact(session, {L"01.23 45", L"Durand", L"Marc"}, Show::yes);
    EXPECT_FALSE(id.empty());
    EXPECT_EQ(id, field(L"contact", 0, L"EntryID"));
    EXPECT_EQ(field(L"contact", 0, L"BusinessTelephoneNumber"), L"012345");
    std::vector<std::wstring> methods;
    for (const std::wstring& call : record())
        if (call.find(L" method (") != std::wstring::npos && call.starts_with(L"ContactItem.")) methods.push_back(call);
    EXPECT_EQ(methods,
              (std::vector<std::wstring>{L"ContactItem.Close method (I2 0)", L"ContactItem.Display method ()"}));
    EXPECT_EQ(logBody(), L"3/15/2023 12:00:00 PM New contact 012345 Durand Marc");
}

TEST_F(OutlookContacts, FromTexts_NotDisplayed_OpensNothing)
{
    open();
    EXPECT_FALSE(NewOutlookContact(session, {L"0123", L"", L""}, Show::no).empty());
    EXPECT_EQ(calls(L"ContactItem.Display method"), 0u);
    EXPECT_EQ(logBody(), L"3/15/2023 12:00:00 PM New contact 0123  ");
}

TEST_F(OutlookContacts, LastLogText_HoldsTheMostRecentLineOnly)
{
    open();
    NewOutlookContact(session, {L"1", L"A", L"B"}, Show::no);
    NewOutlookContact(session, {L"2", L"C", L"D"}, Show::no);
    EXPECT_EQ(session.szLastLogText, L"New contact 2 C D");
}

TEST_F(OutlookContacts, IdentifierUnreadableAfterSaving_NothingIsReturned_TheContactStays_WithoutALogLine)
{
    open();
    recorder.faults.add(L"on ContactItem.EntryID get fail 0x80004005");
    EXPECT_EQ(CreateOutlookContact(session, softphoneEntry(L"0123", L"Durand", L"Marc")), L"");
    EXPECT_EQ(NewOutlookContact(session, {L"0456", L"Petit", L"Claire"}, Show::yes), L"");
    EXPECT_EQ(count(L"contact"), 2u) << "saved before: the next initialisation finds them by number";
    EXPECT_EQ(count(L"journal"), 0u);
    EXPECT_EQ(session.szLastLogText, L"");
    outlook.command(L"close-windows", L"");
}

TEST_F(OutlookContacts, DisplayFails_NothingIsReturned_TheContactStays_WithoutALogLine)
{
    open();
    recorder.faults.add(L"on ContactItem.Display fail 0x80004005");
    EXPECT_EQ(NewOutlookContact(session, {L"0123", L"Durand", L"Marc"}, Show::yes), L"");
    EXPECT_EQ(count(L"contact"), 1u);
    EXPECT_EQ(calls(L"ContactItem.EntryID get"), 0u);
    EXPECT_EQ(count(L"journal"), 0u);
}

TEST_F(OutlookContacts, GuardThatRefuses_DoesNotKeepAContactFromBeingMade)
{
    open();
    outlook.command(L"guard", L"deny");
    EXPECT_FALSE(NewOutlookContact(session, {L"0123", L"Durand", L"Marc"}, Show::no).empty());
    EXPECT_EQ(outlook.guard().questions(), 0u);
}

}
