#include "outlook/callback_mail.h"

#include "outlook_fixture.h"

namespace hublink {

namespace {

class CallbackMail : public OutlookFixture {};

}

TEST(FillTemplate, AllPlaceholders_AreReplaced)
{
    EXPECT_EQ(FillTemplate(L"Call <FirstName> <LastName> back at <PhoneNumber>", {L"0123", L"Durand", L"Marc"}),
              L"Call Marc Durand back at 0123");
}

TEST(FillTemplate, EveryOccurrence_IsReplaced_CaseSensitively)
{
    EXPECT_EQ(FillTemplate(L"<LastName><LastName> <lastname> <PhoneNumber>", {L"1", L"D", L"M"}), L"DD <lastname> 1");
}

TEST(FillTemplate, PlaceholderInTheLastName_IsExpandedByTheLaterStep)
{
    EXPECT_EQ(FillTemplate(L"<LastName>|<FirstName>", {L"0123", L"<PhoneNumber>", L"<LastName>"}), L"0123|<LastName>");
}

TEST_F(CallbackMail, EmptyTemplate_GivesAnEmptySubjectAndBody_AddressedToTheContact)
{
    open();
    EXPECT_TRUE(SendOutlookMail(session, L"claire@example.com", MakeCallBackText(session, {L"1", L"D", L"M"})));
    EXPECT_EQ(carriedOut(), (std::vector<std::wstring>{
                                L"Application.CreateItem method (I2 0)", L"MailItem.Subject put (BSTR \"\")",
                                L"MailItem.Body put (BSTR \"\")", L"MailItem.To put (BSTR \"claire@example.com\")",
                                L"MailItem.Display method ()"}));
}

TEST_F(CallbackMail, FilledTemplate_IsTheSubject_AndNothingIsSentOrSaved)
{
    open();
    session.szCallBackMailSyntaxe = L"Call <FirstName> <LastName> back at <PhoneNumber>";
    EXPECT_TRUE(SendOutlookMail(session, L"c@example.com", MakeCallBackText(session, {L"0123", L"Durand", L"Marc"})));
    ASSERT_EQ(outlook.inspectors().size(), 1u);
    EXPECT_EQ(*outlook.command(L"windows", L""), L"Call Marc Durand back at 0123 - Message\tmail\tunsaved");
    EXPECT_EQ(calls(L"MailItem.Send method"), 0u);
    EXPECT_EQ(calls(L"MailItem.Save method"), 0u);
    outlook.command(L"close-windows", L"");
}

TEST_F(CallbackMail, GuardThatRefuses_DoesNotKeepTheMailFromOpening)
{
    open();
    outlook.command(L"guard", L"deny");
    EXPECT_TRUE(SendOutlookMail(session, L"c@example.com", L"subject"));
    EXPECT_EQ(outlook.guard().questions(), 0u) << "what is only written is not guarded";
    outlook.command(L"close-windows", L"");
}

TEST_F(CallbackMail, OutlookRefusesToDisplay_IsFalse)
{
    open();
    recorder.faults.add(L"on MailItem.Display fail 0x80004004");
    EXPECT_FALSE(SendOutlookMail(session, L"c@example.com", L"subject"));
}

}
