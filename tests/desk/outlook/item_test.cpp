#include "automation/conversion.h"
#include "mailbox_fixture.h"

namespace {

using automation::Object;
using automation::Value;

class OutlookItem : public MailboxFixture {
protected:
    Object newContact() { return items(olContacts).get(L"Add").object(); }
    Object newEntry() { return items(olJournal).get(L"Add").object(); }
    Object firstContact() { return items(olContacts).get(L"GetFirst").object(); }
};

}

TEST_F(OutlookItem, EntryId_IsEmptyUntilTheFirstSave_AndThenStays)
{
    const Object contact = newContact();
    EXPECT_EQ(contact.get(L"EntryID").text(), L"");
    contact.put(L"LastName", L"Durand");
    contact.call(L"Save");
    const std::wstring id = contact.get(L"EntryID").text();
    EXPECT_EQ(id.size(), 48u);
    EXPECT_EQ(id.find_first_not_of(L"0123456789ABCDEF"), std::wstring::npos);
    contact.put(L"FirstName", L"Marc");
    contact.call(L"Save");
    EXPECT_EQ(contact.get(L"EntryID").text(), id);
    const Object other = newContact();
    other.call(L"Save");
    EXPECT_NE(other.get(L"EntryID").text(), id);
    EXPECT_EQ(failureOf([&] { contact.put(L"EntryID", L"x"); }).code(), DISP_E_MEMBERNOTFOUND);
}

TEST_F(OutlookItem, Close_SavesWithZero_AndElseDiscards)
{
    const Object kept = newContact();
    kept.put(L"FullName", L"Kept");
    kept.call(L"Close", {std::int16_t{0}});
    for (const std::int16_t mode : {std::int16_t{1}, std::int16_t{2}}) {
        const Object dropped = newContact();
        dropped.put(L"FullName", L"Dropped");
        dropped.call(L"Close", {mode});
    }
    EXPECT_EQ(items(olContacts).get(L"Count").int32(), 1);
    EXPECT_EQ(firstContact().get(L"FullName").text(), L"Kept");
    EXPECT_EQ(failureOf([&] { newContact().call(L"Close"); }).code(), DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(failureOf([&] { newContact().call(L"Close", {std::int16_t{3}}); }).code(), E_INVALIDARG);
}

TEST_F(OutlookItem, ChangesWithoutSave_AreSeenByNoOtherReference)
{
    outlook.load(L"[contact]\nFullName=Marc Durand\n");
    const Object one = firstContact();
    one.put(L"Body", L"changed");
    EXPECT_FALSE(one.get(L"Saved").isTrue());
    EXPECT_EQ(one.get(L"Body").text(), L"changed");
    EXPECT_EQ(firstContact().get(L"Body").text(), L"");
    one.call(L"Close", {std::int16_t{1}});
    EXPECT_EQ(one.get(L"Body").text(), L"");
    EXPECT_TRUE(one.get(L"Saved").isTrue());
}

TEST_F(OutlookItem, TwoReferencesThatBothChange_SecondSaveFails)
{
    outlook.load(L"[contact]\nFullName=Marc Durand\n");
    const Object one = firstContact();
    const Object other = firstContact();
    one.put(L"Body", L"one");
    other.put(L"Body", L"other");
    one.call(L"Save");
    const auto error = failureOf([&] { other.call(L"Save"); });
    EXPECT_EQ(error.code(), static_cast<HRESULT>(0x80040109L));
    EXPECT_EQ(error.description(), L"The operation cannot be performed because the message has been changed.");
    EXPECT_EQ(firstContact().get(L"Body").text(), L"one");
}

TEST_F(OutlookItem, ContactsName_IsMadeOfItsPartsAndTakenApart)
{
    const Object contact = newContact();
    contact.put(L"FirstName", L"Marc");
    contact.put(L"LastName", L"Durand");
    EXPECT_EQ(contact.get(L"FullName").text(), L"Marc Durand");
    EXPECT_EQ(contact.get(L"Subject").text(), L"Marc Durand");
    EXPECT_EQ(contact.get(L"FileAs").text(), L"Durand, Marc");
    contact.put(L"FullName", L"Jean Paul Martin");
    EXPECT_EQ(contact.get(L"FirstName").text(), L"Jean");
    EXPECT_EQ(contact.get(L"MiddleName").text(), L"Paul");
    EXPECT_EQ(contact.get(L"LastName").text(), L"Martin");
    contact.put(L"FullName", L"Cole, Cy");
    EXPECT_EQ(contact.get(L"FullName").text(), L"Cy Cole");
    EXPECT_EQ(contact.get(L"LastNameAndFirstName").text(), L"Cole, Cy");
}

TEST_F(OutlookItem, DistributionList_HasNoTelephones_ByNameNorByRememberedIdentifier)
{
    outlook.load(L"[contact]\nMobileTelephoneNumber=1\n[distlist]\nDLName=All\n");
    const automation::SharedIdCache names = automation::makeIdCache();
    const Object contact = firstContact().usingIdCache(names);
    EXPECT_EQ(contact.get(L"MobileTelephoneNumber").text(), L"1");
    const DISPID id = *names->find(L"MobileTelephoneNumber");
    const Object list = items(olContacts).get(L"Item", {std::int32_t{2}}).object();
    EXPECT_EQ(list.get(L"Class").int32(), 69);
    EXPECT_EQ(list.get(L"DLName").text(), L"All");
    EXPECT_EQ(failureOf([&] { list.get(L"MobileTelephoneNumber"); }).code(), DISP_E_UNKNOWNNAME);
    EXPECT_EQ(failureOf([&] { list.get(id); }).code(), DISP_E_MEMBERNOTFOUND);
}

TEST_F(OutlookItem, JournalTimes_DependOnOneAnother)
{
    const Object entry = newEntry();
    EXPECT_EQ(entry.get(L"Type").text(), L"Phone call");
    const DATE start = desk::dateFromIso(L"2023-03-15 06:00:00");
    entry.put(L"Start", Value::date(start));
    EXPECT_EQ(entry.get(L"Start").type(), VT_DATE);
    EXPECT_EQ(desk::isoText(entry.get(L"End").asDate()), L"2023-03-15 06:00:00");
    entry.put(L"Duration", std::int32_t{7});
    EXPECT_EQ(desk::isoText(entry.get(L"End").asDate()), L"2023-03-15 06:07:00");
    entry.put(L"End", Value::date(desk::dateFromIso(L"2023-03-15 06:30:00")));
    EXPECT_EQ(entry.get(L"Duration").int32(), 30);
    EXPECT_EQ(failureOf([&] { entry.put(L"Start", L"no date"); }).code(), DISP_E_TYPEMISMATCH);
}

TEST_F(OutlookItem, RecipientsAdd_ReturnsTheRecipient)
{
    outlook.load(L"[contact]\nFullName=Marc Durand\nEmail1Address=marc@pavex.example\n");
    const Object entry = newEntry();
    const Object recipients = entry.get(L"Recipients").object();
    const Object recipient = recipients.get(L"Add", {L"marc durand"}).object();
    EXPECT_EQ(recipient.get(L"Name").text(), L"marc durand");
    EXPECT_FALSE(recipient.get(L"Resolved").isTrue());
    EXPECT_TRUE(recipient.get(L"Resolve").isTrue());
    EXPECT_EQ(recipient.get(L"Address").text(), L"marc@pavex.example");
    EXPECT_EQ(recipients.get(L"Count").int32(), 1);
    EXPECT_EQ(entry.get(L"ContactNames").text(), L"marc durand");
    entry.call(L"Save");
    EXPECT_EQ(items(olJournal).get(L"GetFirst").object().get(L"Recipients").object().get(L"Count").int32(), 1);
    EXPECT_EQ(failureOf([&] { recipients.get(L"Add", {L""}); }).code(), E_INVALIDARG);
}

TEST_F(OutlookItem, MailAddressees_AreItsRecipients)
{
    const Object mail = outlook.application().get(L"CreateItem", {std::int16_t{0}}).object();
    mail.put(L"To", L"a@x.example; b@x.example");
    mail.put(L"CC", L"c@x.example");
    const Object recipients = mail.get(L"Recipients").object();
    EXPECT_EQ(recipients.get(L"Count").int32(), 3);
    recipients.get(L"Item", {std::int32_t{2}}).object().put(L"Type", std::int32_t{2});
    EXPECT_EQ(mail.get(L"To").text(), L"a@x.example");
    mail.put(L"Subject", L"Hello");
    mail.call(L"Save");
    EXPECT_EQ(outlook.ask(L"mails"), L"[mail]\nEntryID=" + mail.get(L"EntryID").text() +
                                         L"\nSubject=Hello\nTo=a@x.example\nCC=b@x.example; c@x.example\n");
}

TEST_F(OutlookItem, SentMail_LiesInSentItems_AndCannotBeUsedAnyMore)
{
    const Object mail = outlook.application().get(L"CreateItem", {std::int16_t{0}}).object();
    EXPECT_EQ(failureOf([&] { mail.call(L"Send"); }).code(), E_FAIL) << "nobody to send it to";
    mail.put(L"To", L"a@x.example");
    mail.call(L"Display");
    mail.call(L"Send");
    EXPECT_EQ(outlook.ask(L"windows"), L"");
    EXPECT_EQ(items(5).get(L"Count").int32(), 1);
    EXPECT_EQ(failureOf([&] { mail.get(L"Subject"); }).description(), L"The item has been moved or deleted.");
}

TEST_F(OutlookItem, DeletedItem_LeavesItsFolder)
{
    outlook.load(L"[contact]\nFullName=Marc Durand\n");
    const Object contact = firstContact();
    const Object other = firstContact();
    contact.call(L"Delete");
    EXPECT_EQ(items(olContacts).get(L"Count").int32(), 0);
    EXPECT_EQ(failureOf([&] { contact.get(L"FullName"); }).code(), static_cast<HRESULT>(0x8004010AL));
    EXPECT_EQ(outlook.ask(L"contacts"), L"");
}

TEST_F(OutlookItem, UnsetFields_HaveTheirEmptyValues)
{
    const Object contact = newContact();
    EXPECT_EQ(contact.get(L"MobileTelephoneNumber").type(), VT_BSTR);
    EXPECT_EQ(contact.get(L"MobileTelephoneNumber").text(), L"");
    EXPECT_EQ(desk::isoText(contact.get(L"Birthday").asDate()), L"4501-01-01 00:00:00");
    EXPECT_EQ(contact.get(L"Importance").int32(), 1);
    EXPECT_FALSE(contact.get(L"UnRead").isTrue());
}

TEST_F(OutlookItem, ItemFromItsEntryId_IsFoundOrAnError)
{
    outlook.load(L"[contact]\nFullName=Marc Durand\n");
    const Object session = outlook.application().get(L"Session").object();
    const std::wstring id = firstContact().get(L"EntryID").text();
    EXPECT_EQ(session.get(L"GetItemFromID", {id}).object().get(L"FullName").text(), L"Marc Durand");
    EXPECT_EQ(failureOf([&] { session.get(L"GetItemFromID", {L"00"}); }).code(), static_cast<HRESULT>(0x8004010FL));
}

namespace {

class OutlookGuard : public MailboxFixture {
protected:
    OutlookGuard() { outlook.load(L"[contact]\nFullName=Marc Durand\nEmail1Address=marc@example.com\n"); }

    automation::Object contact() { return items(olContacts).get(L"GetFirst").object(); }
    std::wstring questions() { return outlook.ask(L"questions"); }
};

}

TEST_F(OutlookGuard, Off_AsksNothing)
{
    EXPECT_EQ(contact().get(L"Email1Address").text(), L"marc@example.com");
    EXPECT_EQ(questions(), L"0");
}

TEST_F(OutlookGuard, Deny_RefusesWhatIsProtected_WithTheCodeThatWasSet)
{
    outlook.ask(L"guard deny");
    EXPECT_EQ(failureOf([&] { contact().get(L"Email1Address"); }).code(), E_ABORT);
    outlook.ask(L"guard deny 0x80040102");
    EXPECT_EQ(failureOf([&] { contact().get(L"Body"); }).code(), static_cast<HRESULT>(0x80040102L));
    const auto journal = items(olJournal).get(L"Add").object();
    EXPECT_EQ(failureOf([&] { journal.get(L"Recipients"); }).code(), static_cast<HRESULT>(0x80040102L));
    const auto columns = folder(olContacts).get(L"GetTable").object().get(L"Columns").object();
    EXPECT_EQ(failureOf([&] { columns.call(L"Add", {L"FullName"}); }).code(), static_cast<HRESULT>(0x80040102L));
    EXPECT_EQ(questions(), L"4");
}

TEST_F(OutlookGuard, Deny_LetsEverythingElseBe)
{
    outlook.ask(L"guard deny");
    EXPECT_EQ(contact().get(L"FullName").text(), L"Marc Durand");
    EXPECT_FALSE(contact().get(L"EntryID").text().empty());
    contact().put(L"Email1Address", L"other@example.com");
    contact().put(L"Body", L"what is written is not protected");
    EXPECT_EQ(questions(), L"0");
}

TEST_F(OutlookGuard, Allow_CountsEachQuestion)
{
    const auto journal = items(olJournal).get(L"Add").object();
    outlook.ask(L"guard allow");
    EXPECT_EQ(contact().get(L"Email1Address").text(), L"marc@example.com");
    journal.get(L"Recipients").object().call(L"Add", {L"Marc"});
    EXPECT_EQ(questions(), L"3") << "the collection, and its member";
}
