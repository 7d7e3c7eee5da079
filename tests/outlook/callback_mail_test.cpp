#include "outlook/callback_mail.h"

#include "outlook_test.h"

namespace {

class CallbackMail : public OutlookTest {};

}

TEST(FillTemplate, AllPlaceholders_AreReplaced)
{
    EXPECT_EQ(FillTemplate(L"Call <FirstName> <LastName> back at <PhoneNumber>", L"0123", L"Durand", L"Marc"),
              L"Call Marc Durand back at 0123");
}

TEST(FillTemplate, EveryOccurrence_CaseSensitive)
{
    EXPECT_EQ(FillTemplate(L"<LastName><LastName> <lastname> <PhoneNumber>", L"1", L"D", L"M"), L"DD <lastname> 1");
}

TEST(FillTemplate, PlaceholderInTheLastName_IsExpandedByTheLaterStep)
{
    EXPECT_EQ(FillTemplate(L"<LastName>|<FirstName>", L"0123", L"<PhoneNumber>", L"<LastName>"), L"0123|<LastName>");
}

TEST_F(CallbackMail, EmptyTemplate_GivesAnEmptySubjectAndBody_AddressedToTheContact)
{
    open();
    EXPECT_TRUE(SendOutlookMail(session, L"claire@example.com", MakeCallBackText(session, L"1", L"D", L"M")));
    const auto calls = record();
    const auto made = [&](const wchar_t* call) { return std::find(calls.begin(), calls.end(), call) != calls.end(); };
    EXPECT_TRUE(made(L"Application.CreateItem method (I2 0)"));
    EXPECT_TRUE(made(L"MailItem.Subject put (BSTR \"\")"));
    EXPECT_TRUE(made(L"MailItem.Body put (BSTR \"\")"));
    EXPECT_TRUE(made(L"MailItem.To put (BSTR \"claire@example.com\")"));
    EXPECT_EQ(calls.back(), L"MailItem.Display method ()");
}

TEST_F(CallbackMail, FilledTemplate_IsTheSubject_AndNothingIsSentOrSaved)
{
    open();
    session.szCallBackMailSyntaxe = L"Call <FirstName> <LastName> back at <PhoneNumber>";
    EXPECT_TRUE(SendOutlookMail(session, L"c@example.com", MakeCallBackText(session, L"0123", L"Durand", L"Marc")));
    ASSERT_EQ(outlook.inspectors().size(), 1u);
    EXPECT_EQ(*outlook.command(L"windows", L""), L"Call Marc Durand back at 0123 - Message\tmail\tunsaved");
    EXPECT_EQ(calls(L"MailItem.Send method"), 0u);
    EXPECT_EQ(calls(L"MailItem.Save method"), 0u);
    outlook.command(L"close-windows", L"");
}

TEST_F(CallbackMail, OutlookRefusesToDisplay_IsFalse)
{
    open();
    recorder.faults.add(L"on MailItem.Display fail 0x80004004");
    EXPECT_FALSE(SendOutlookMail(session, L"c@example.com", L"subject"));
}
