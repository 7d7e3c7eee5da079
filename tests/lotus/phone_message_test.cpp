#include "lotus/phone_message.h"

#include "each_call.h"

namespace hublink {

namespace {

constexpr const wchar_t* claire = L"Form=Person\nLastName=Petit\nFirstName=Claire\nOfficePhoneNumber=0299\n";

class PhoneMessage : public LotusDocumentsFixture {
protected:
    // Anna Keller's call to Claire Petit went elsewhere; 01.23 called.
    bool send(const wchar_t* callerFirstName = L"Marc", const wchar_t* callerLastName = L"Durand")
    {
        return SendPhoneMessage(session, {L"01.23", callerLastName, callerFirstName},
                                {L"02.99", L"Called-Last", L"Called-First"});
    }

    void claireWith(const std::wstring& items)
    {
        ready();
        add(L"names.nsf", claire + items);
        forgetCalls();
    }

    // What the message on the screen holds; nothing without one.
    Fields message()
    {
        const auto all = documents(mailFile);
        EXPECT_LE(all.size(), 1u);
        return all.empty() ? Fields{} : itemsOf(all[0]);
    }

    std::wstring sendTo() { return field(documents(mailFile).at(0), L"SendTo"); }
};

}

TEST_F(PhoneMessage, IsComposedInTheUsersMail_FieldByField_WithTheCursorInTheBody)
{
    claireWith(L"FullName=Claire Petit/Acme\nMailAddress=claire@example.com");
    EXPECT_TRUE(send());
    const Lines all = record();
    ASSERT_GE(all.size(), 6u);
    EXPECT_EQ(Lines(all.end() - 6, all.end()),
              (Lines{L"NotesUIWorkspace.ComposeDocument method (BSTR \"CN=Mail1/O=Acme\", "
                     L"BSTR \"mail\\\\anna.nsf\", BSTR \"Phone Message\")",
                     L"NotesUIDocument.FieldAppendText method (BSTR \"SendTo\", BSTR \"claire@example.com\")",
                     L"NotesUIDocument.FieldSetText method (BSTR \"PhoneCaller\", BSTR \"Marc Durand\")",
                     L"NotesUIDocument.FieldSetText method (BSTR \"PhoneNumber\", BSTR \"01.23\")",
                     L"NotesUIDocument.FieldSetText method (BSTR \"PhoneReason\", BSTR \"T\")",
                     L"NotesUIDocument.GotoField method (BSTR \"Body\")"}));
    EXPECT_EQ(message(), (Fields{{L"Form", L"Phone Message"},
                                 {L"SendTo", L"claire@example.com"},
                                 {L"PhoneCaller", L"Marc Durand"},
                                 {L"PhoneNumber", L"01.23"},
                                 {L"PhoneReason", L"T"},
                                 {L"Body", L""}}));
    EXPECT_EQ(notes.model().workspace().current()->currentField->spelling, L"Body");
}

TEST_F(PhoneMessage, IsLeftToTheUser_NeitherSentNorSaved_AndThePersonIsNotShown)
{
    claireWith(L"MailAddress=claire@example.com");
    EXPECT_TRUE(send());
    EXPECT_EQ(notes.ask(L"windows"), L"New Phone Message\tPhone Message\tunsaved\tedit\tfront");
    EXPECT_EQ(calls(L"NotesDocument.Save method") + calls(L"NotesUIDocument.Save method"), 0u);
    EXPECT_EQ(calls(L"NotesUIWorkspace.EditDocument method"), 0u);
    EXPECT_EQ(calls(L"NotesUIWorkspace.OpenDatabase method"), 0u);
    notes.ask(L"close-windows");
    EXPECT_EQ(message(), Fields{});
}

TEST_F(PhoneMessage, SendTo_IsTheMailAddress_ThenTheFullName)
{
    claireWith(L"FullName=Claire Petit/Acme\nInternetAddress=claire@example.com");
    EXPECT_TRUE(send());
    EXPECT_EQ(sendTo(), L"claire@example.com");

    again();
    add(L"names.nsf", claire + std::wstring(L"FullName=Claire Petit/Acme"));
    EXPECT_TRUE(send());
    EXPECT_EQ(sendTo(), L"Claire Petit/Acme");
}

// The search itself asks for one of the two, so that nobody gets as far as
// being addressed by first and last name.
TEST_F(PhoneMessage, CalledPersonKnownByFirstAndLastNameOnly_IsNotFound)
{
    claireWith(L"");
    EXPECT_FALSE(send());
    EXPECT_EQ(calls(L"NotesUIWorkspace.ComposeDocument method"), 0u);
    EXPECT_EQ(message(), Fields{});
}

TEST_F(PhoneMessage, KnownByNameOnlyInTheFirstBook_TheNextBookHasTheAddress)
{
    claireWith(L"");
    add(L"books\\company.nsf", L"Form=Employee\nName=Petit\nPhone=0299\nMail=petit@example.com");
    EXPECT_TRUE(send());
    EXPECT_EQ(sendTo(), L"petit@example.com");
}

TEST_F(PhoneMessage, CallerIsFirstNameBlankLastName_WithoutOuterBlanks)
{
    claireWith(L"FullName=C");
    const auto callerOf = [&](const wchar_t* firstName, const wchar_t* lastName) {
        EXPECT_TRUE(send(firstName, lastName));
        const std::wstring caller = field(documents(mailFile).at(0), L"PhoneCaller");
        notes.ask(L"close-windows");
        return caller;
    };
    EXPECT_EQ(callerOf(L"Marc", L"Durand"), L"Marc Durand");
    EXPECT_EQ(callerOf(L"", L"Durand"), L"Durand");
    EXPECT_EQ(callerOf(L"Marc", L""), L"Marc");
    EXPECT_EQ(callerOf(L"", L""), L"");
    EXPECT_EQ(callerOf(L" Marc", L"von  Durand "), L"Marc von  Durand");
}

TEST_F(PhoneMessage, NobodyHasTheCalledNumber_IsFalse_WhateverTheCallersNumberIs)
{
    ready();
    add(L"names.nsf", L"Form=Person\nFullName=The caller\nOfficePhoneNumber=0123");
    EXPECT_FALSE(send());
    EXPECT_EQ(calls(L"NotesUIWorkspace.ComposeDocument method"), 0u);
}

TEST_F(PhoneMessage, SessionNotReady_AsksNotesNothing)
{
    claireWith(L"FullName=C");
    session.LotusReady = false;
    EXPECT_FALSE(send());
    EXPECT_EQ(record(), Lines{});
}

TEST_F(PhoneMessage, NotesIsGone_IsFalse)
{
    claireWith(L"FullName=C");
    session.NotesSession = automation::Object();
    EXPECT_FALSE(send());
}

TEST_F(PhoneMessage, ClientCannotBeStarted_IsFalse)
{
    claireWith(L"FullName=C");
    notes.withdraw();
    EXPECT_FALSE(send());
    EXPECT_EQ(trapped.procedures, Lines{L"SendPhoneMessage"});
}

TEST_F(PhoneMessage, MailHasNoSuchForm_IsFalse)
{
    claireWith(L"FullName=C");
    session.MailFile = L"log.nsf";
    session.MailServer.clear();
    EXPECT_FALSE(send());
    EXPECT_EQ(notes.ask(L"windows"), L"");
}

TEST_F(PhoneMessage, FailsAtAnyCall_IsFalse_OrGoesToTheFullName_WhereTheMailAddressFails)
{
    bool sent = false;
    const auto prepare = [&] {
        again();
        add(L"names.nsf", claire + std::wstring(L"FullName=C"));
    };
    int sentByName = 0;
    atEachCall(
        notes.recorder(), fails, prepare, [&] { sent = send(); },
        [&](const std::wstring& call) {
            EXPECT_EQ(sent, asksForMail(call)) << desk::utf8(call);
            sentByName += sent && sendTo() == L"C";
        });
    EXPECT_EQ(sentByName, 2);
}

TEST_F(PhoneMessage, NotesIsBusyAtAnyCall_NothingIsLost)
{
    bool sent = false;
    const auto prepare = [&] {
        again();
        add(L"names.nsf", claire + std::wstring(L"FullName=C"));
    };
    atEachCall(
        notes.recorder(), isBusy, prepare, [&] { sent = send(); },
        [&](const std::wstring& call) {
            EXPECT_TRUE(sent) << desk::utf8(call);
            EXPECT_EQ(message(), (Fields{{L"Form", L"Phone Message"},
                                         {L"SendTo", L"C"},
                                         {L"PhoneCaller", L"Marc Durand"},
                                         {L"PhoneNumber", L"01.23"},
                                         {L"PhoneReason", L"T"},
                                         {L"Body", L""}}))
                << desk::utf8(call);
        });
}

}
