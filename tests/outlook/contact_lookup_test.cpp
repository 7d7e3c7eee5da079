#include "outlook/contact_lookup.h"

#include "outlook_fixture.h"

namespace hublink {

namespace {

constexpr const wchar_t* marcWithDots =
    L"[contact]\nFirstName=Marc\nLastName=Durand\nHomeTelephoneNumber=01 23.45.67\nEmail1Address=marc@example.com\n";
constexpr const wchar_t* marcStripped = L"[contact]\nFirstName=Marc\nLastName=Durand\nHomeTelephoneNumber=01234567\n";

class ContactLookup : public OutlookFixture {
protected:
    std::wstring find(const std::wstring& number)
    {
        const OutlookPerson person = FindOutlookContact(session, number, {lastName, firstName, mail, L"before"});
        lastName = person.lastName;
        firstName = person.firstName;
        mail = person.email1Address;
        return person.entryId;
    }

    std::wstring lastName = L"before";
    std::wstring firstName = L"before";
    std::wstring mail = L"before";
};

}

TEST(BuildPhoneFilter, Number_GivesThirteenClausesInOrder_ToTheBlank)
{
    EXPECT_EQ(
        BuildPhoneFilter(L"012"),
        L"[BusinessTelephoneNumber] = '012' or [AssistantTelephoneNumber] = '012' or "
        L"[CallbackTelephoneNumber] = '012' or [CompanyMainTelephoneNumber] = '012' or [ISDNNumber] = '012' or "
        L"[RadioTelephoneNumber] = '012' or [Business2TelephoneNumber] = '012' or [CarTelephoneNumber] = '012' or "
        L"[Home2TelephoneNumber] = '012' or [HomeTelephoneNumber] = '012' or [MobileTelephoneNumber] = '012' or "
        L"[OtherTelephoneNumber] = '012' or [PrimaryTelephoneNumber] = '012'");
}

TEST(BuildPhoneFilter, QuoteInTheNumber_IsDoubled_AndNothingElseIsTouched)
{
    EXPECT_TRUE(BuildPhoneFilter(L"0'1").starts_with(L"[BusinessTelephoneNumber] = '0''1' or "));
    EXPECT_TRUE(BuildPhoneFilter(L"''").ends_with(L" or [PrimaryTelephoneNumber] = ''''''"));
    EXPECT_TRUE(BuildPhoneFilter(L"\"[a]%*").starts_with(L"[BusinessTelephoneNumber] = '\"[a]%*' or "));
}

TEST_F(ContactLookup, PhoneNumberMatches_SetsRewriteOnlyForAnotherLayoutAndTheSwitch)
{
    bool needsRewrite = false;
    session.bReplacePhoneNumber = true;
    EXPECT_TRUE(PhoneNumberMatches(session, L"0123", L"0123", needsRewrite));
    EXPECT_FALSE(needsRewrite);
    EXPECT_FALSE(PhoneNumberMatches(session, L"0123", L"01-23", needsRewrite));
    session.bReplacePhoneNumber = false;
    EXPECT_TRUE(PhoneNumberMatches(session, L"0123", L"01.2 3", needsRewrite));
    EXPECT_FALSE(needsRewrite);
    session.bReplacePhoneNumber = true;
    EXPECT_TRUE(PhoneNumberMatches(session, L"0123", L"01.2 3", needsRewrite));
    EXPECT_TRUE(needsRewrite);
    EXPECT_TRUE(PhoneNumberMatches(session, L"0123", L"0123", needsRewrite));
    EXPECT_TRUE(needsRewrite) << "it is never set back";
}

TEST_F(ContactLookup, NumberStoredWithDots_IsFoundByWalk_AndRewritten)
{
    open(marcWithDots);
    const std::wstring id = find(L"01234567");
    EXPECT_FALSE(id.empty());
    EXPECT_EQ(id, field(L"contact", 0, L"EntryID"));
    EXPECT_EQ(lastName, L"Durand");
    EXPECT_EQ(firstName, L"Marc");
    EXPECT_EQ(mail, L"marc@example.com");
    EXPECT_EQ(field(L"contact", 0, L"HomeTelephoneNumber"), L"01234567");
    EXPECT_EQ(calls(L"ContactItem.Close method"), 1u);
}

TEST_F(ContactLookup, NumberStoredWithDots_RewritingOff_NothingIsWritten)
{
    open(marcWithDots);
    session.bReplacePhoneNumber = false;
    EXPECT_FALSE(find(L"01234567").empty());
    EXPECT_EQ(field(L"contact", 0, L"HomeTelephoneNumber"), L"01 23.45.67");
    EXPECT_EQ(calls(L"ContactItem.Close method"), 0u);
    EXPECT_EQ(calls(L"ContactItem.HomeTelephoneNumber put"), 0u);
}

TEST_F(ContactLookup, StrippedNumber_IsFoundByTheFilter_AndNeverRewritten)
{
    open(marcStripped);
    EXPECT_FALSE(find(L"01 23.45.67").empty());
    EXPECT_EQ(calls(L"Items.GetFirst method"), 0u);
    EXPECT_EQ(calls(L"ContactItem.Close method"), 0u);
    EXPECT_EQ(calls(L"ContactItem.HomeTelephoneNumber put"), 0u);
}

TEST_F(ContactLookup, NumberWithDashes_DoesNotMatchTheBareNumber)
{
    open(L"[contact]\nLastName=Dash\nBusinessTelephoneNumber=01-23-45\n");
    EXPECT_EQ(find(L"012345"), L"");
    EXPECT_EQ(lastName, L"before") << "nothing found: the texts stay";
    EXPECT_EQ(firstName, L"before");
    EXPECT_EQ(mail, L"before");
}

TEST_F(ContactLookup, TwoContactsWithTheNumber_TheWalkTakesTheFirstInFolderOrder)
{
    open(
        L"[contact]\nLastName=First\nCarTelephoneNumber=01.23\n[contact]\nLastName=Second\nCarTelephoneNumber=01 23\n");
    EXPECT_FALSE(find(L"0123").empty());
    EXPECT_EQ(lastName, L"First");
    EXPECT_EQ(field(L"contact", 1, L"CarTelephoneNumber"), L"01 23") << "the walk stops at the first";
}

TEST_F(ContactLookup, TwoContactsWithTheNumber_TheFilterTakesOutlooksFirst)
{
    open(L"[contact]\nLastName=First\nISDNNumber=0123\n[contact]\nLastName=Second\nBusinessTelephoneNumber=0123\n");
    EXPECT_FALSE(find(L"0123").empty());
    EXPECT_EQ(lastName, L"First");
}

TEST_F(ContactLookup, TwoFieldsWithTheNumber_OnlyTheFirstInTheListIsRewritten)
{
    open(L"[contact]\nLastName=Twice\nPrimaryTelephoneNumber=01.23\nRadioTelephoneNumber=0.123\n");
    EXPECT_FALSE(find(L"0123").empty());
    EXPECT_EQ(field(L"contact", 0, L"RadioTelephoneNumber"), L"0123");
    EXPECT_EQ(field(L"contact", 0, L"PrimaryTelephoneNumber"), L"01.23");
}

TEST_F(ContactLookup, EveryOneOfTheThirteenFields_IsSearched)
{
    for (const wchar_t* name :
         {L"BusinessTelephoneNumber", L"AssistantTelephoneNumber", L"CallbackTelephoneNumber",
          L"CompanyMainTelephoneNumber", L"ISDNNumber", L"RadioTelephoneNumber", L"Business2TelephoneNumber",
          L"CarTelephoneNumber", L"Home2TelephoneNumber", L"HomeTelephoneNumber", L"MobileTelephoneNumber",
          L"OtherTelephoneNumber", L"PrimaryTelephoneNumber"}) {
        session.bOutlookInit = false;
        open(L"[contact]\nLastName=Other\n[contact]\nLastName=Wanted\n" + std::wstring(name) + L"=0.1 2\n");
        EXPECT_FALSE(find(L"012").empty()) << testing::PrintToString(std::wstring(name));
        EXPECT_EQ(field(L"contact", 1, name), L"012");
    }
}

TEST_F(ContactLookup, FieldOutsideTheThirteen_IsNotSearched)
{
    open(L"[contact]\nLastName=Fax\nBusinessFaxNumber=0123\nPagerNumber=0123\n");
    EXPECT_EQ(find(L"0123"), L"");
}

TEST_F(ContactLookup, EmptyNumber_IsNotGuarded_AndFindsAContactWithoutNumbers)
{
    open(L"[contact]\nLastName=Mute\n");
    EXPECT_FALSE(find(L"").empty());
    EXPECT_EQ(lastName, L"Mute");
}

TEST_F(ContactLookup, NumberThatIsACondition_IsANumberAllTheSame)
{
    open(marcStripped);
    EXPECT_EQ(find(L"0'or[LastName]>'"), L"");
    EXPECT_EQ(lastName, L"before");
}

TEST_F(ContactLookup, QuoteInTheNumber_FindsWhoeverHasIt)
{
    open(std::wstring(marcStripped) + L"[contact]\nLastName=Quote\nCarTelephoneNumber=01'23\n");
    EXPECT_FALSE(find(L"01'23").empty());
    EXPECT_EQ(lastName, L"Quote");
    EXPECT_EQ(calls(L"Items.GetFirst method"), 0u) << "found by the filter";
}

TEST_F(ContactLookup, DistributionListBeforeTheContact_EndsTheWalkQuietly)
{
    open(L"[distlist]\nDLName=Everybody\n" + std::wstring(marcWithDots));
    EXPECT_EQ(find(L"01234567"), L"");
    EXPECT_EQ(field(L"contact", 0, L"HomeTelephoneNumber"), L"01 23.45.67");
}

TEST_F(ContactLookup, DistributionListBehindTheContact_DoesNotMatter)
{
    open(std::wstring(marcWithDots) + L"[distlist]\nDLName=Everybody\n");
    EXPECT_FALSE(find(L"01234567").empty());
}

TEST_F(ContactLookup, MemberNames_AreLookedUpOnceForAllContacts)
{
    open(L"[contact]\nLastName=A\n[contact]\nLastName=B\nCarTelephoneNumber=0 1\n");
    find(L"01");
    find(L"01");
    EXPECT_EQ(calls(L"ContactItem.BusinessTelephoneNumber lookup"), 1u);
    EXPECT_EQ(calls(L"Items.Find lookup"), 1u);
}

TEST_F(ContactLookup, OutlookFailingInTheWalk_EndsItWithNoContact)
{
    open(L"[contact]\nLastName=A\nCarTelephoneNumber=9.9\n" + std::wstring(marcWithDots));
    outlook.setVersion(desk::outlook::Version::v2003);
    recorder.faults.add(L"on Items.GetNext fail 0x800706BA");
    EXPECT_FALSE(WalkOutlookContacts(session, L"01234567"));
}

TEST_F(ContactLookup, SavingTheRewrittenNumberFails_NothingIsReturned)
{
    open(marcWithDots);
    recorder.faults.add(L"on ContactItem.Close fail 0x80004005");
    EXPECT_EQ(find(L"01234567"), L"");
}

TEST_F(ContactLookup, Show_ContactFoundByFilter_IsDisplayedWithoutArguments)
{
    open(marcStripped);
    EXPECT_TRUE(ShowOutlookContact(session, L"01.234567"));
    EXPECT_EQ(record().back(), L"ContactItem.Display method ()");
}

TEST_F(ContactLookup, Show_ContactFoundByWalk_IsRewrittenAndDisplayed)
{
    open(marcWithDots);
    EXPECT_TRUE(ShowOutlookContact(session, L"01234567"));
    EXPECT_EQ(calls(L"ContactItem.Display method"), 1u);
    EXPECT_EQ(field(L"contact", 0, L"HomeTelephoneNumber"), L"01234567");
}

TEST_F(ContactLookup, Show_NobodyHasTheNumber_IsFalse)
{
    open(marcStripped);
    EXPECT_FALSE(ShowOutlookContact(session, L"999"));
    EXPECT_EQ(calls(L"ContactItem.Display method"), 0u);
}

TEST_F(ContactLookup, Show_DisplayFails_IsFalse)
{
    open(marcStripped);
    recorder.faults.add(L"on ContactItem.Display fail 0x80004005");
    EXPECT_FALSE(ShowOutlookContact(session, L"01234567"));
}

TEST_F(ContactLookup, Identifier_IsReadBeforeTheThreeTexts)
{
    open(marcStripped);
    find(L"01234567");
    std::vector<std::wstring> read;
    for (const std::wstring& call : record())
        if (call.starts_with(L"ContactItem.") && call.find(L" get ") != std::wstring::npos) read.push_back(call);
    EXPECT_EQ(read, (std::vector<std::wstring>{L"ContactItem.EntryID get ()", L"ContactItem.LastName get ()",
                                               L"ContactItem.FirstName get ()", L"ContactItem.Email1Address get ()"}));
}

TEST_F(ContactLookup, MailAddressRefused_TheContactIsRecognised_AndTheNamesAreRead)
{
    for (const wchar_t* refusal : {L"deny 0x80004004", L"deny 0x80040102"}) {
        for (const wchar_t* contact : {marcStripped, marcWithDots}) {
            session.bOutlookInit = false;
            open(contact);
            lastName = firstName = mail = L"before";
            outlook.command(L"guard", refusal);
            EXPECT_EQ(find(L"01234567"), field(L"contact", 0, L"EntryID")) << desk::utf8(refusal);
            EXPECT_EQ(lastName, L"Durand");
            EXPECT_EQ(firstName, L"Marc");
            EXPECT_EQ(mail, L"before") << "what is refused stays as it was";
        }
    }
}

TEST_F(ContactLookup, IdentifierRefused_NobodyIsFound)
{
    open(marcStripped);
    recorder.faults.add(L"on ContactItem.EntryID get fail 0x80004005");
    EXPECT_EQ(find(L"01234567"), L"");
    EXPECT_EQ(lastName, L"before") << "nothing was read before it";
    EXPECT_EQ(calls(L"Items.GetFirst method"), 0u) << "an error ends the procedure: no walk";
}

TEST_F(ContactLookup, FilterGivesAContactWithoutAnIdentifier_TheWalkFindsIt)
{
    open(marcStripped);
    recorder.faults.add(L"on ContactItem.EntryID get at 1 answer BSTR ");
    EXPECT_EQ(find(L"01234567"), field(L"contact", 0, L"EntryID"));
    EXPECT_EQ(calls(L"NameSpace.GetItemFromID method"), 1u);
    EXPECT_EQ(calls(L"ContactItem.EntryID get"), 2u);
}

TEST_F(ContactLookup, DistributionListBeforeTheContact_KnownNames_EndsTheWalkQuietlyAllTheSame)
{
    open(marcWithDots);
    EXPECT_FALSE(find(L"01234567").empty()) << "the names of a contact's members are known now";
    outlook.load(desk::parseStore(L"[distlist]\nDLName=Everybody\n" + std::wstring(marcWithDots)));
    EXPECT_EQ(find(L"01234567"), L"");
    EXPECT_EQ(field(L"contact", 0, L"HomeTelephoneNumber"), L"01 23.45.67");
}

TEST_F(ContactLookup, NumberMaskedByOutlookAsItWasTyped_IsNotFound)
{
    open(marcStripped);
    outlook.command(L"type", field(L"contact", 0, L"EntryID") + L"\nCarTelephoneNumber=+12223334444\n");
    outlook.command(L"save-windows", L"");
    ASSERT_EQ(field(L"contact", 0, L"CarTelephoneNumber"), L"+1 (222) 333-4444");
    EXPECT_EQ(find(L"+12223334444"), L"") << "only dots and blanks are separators";
    EXPECT_FALSE(find(L"+1(222)333-4444").empty()) << "a call that comes with the same signs";
}

TEST_F(ContactLookup, ContactThatItsUserIsTypingInto_IsSavedWithWhatWasTyped_AndClosed)
{
    open(marcWithDots);
    const std::wstring id = field(L"contact", 0, L"EntryID");
    outlook.command(L"type", id + L"\nCompanyName=Half a na\n");
    EXPECT_EQ(find(L"01234567"), id);
    EXPECT_EQ(field(L"contact", 0, L"HomeTelephoneNumber"), L"01234567");
    EXPECT_EQ(field(L"contact", 0, L"CompanyName"), L"Half a na") << "saved and closed: nothing typed is lost";
    EXPECT_EQ(outlook.inspectors().size(), 0u);
}

TEST_F(ContactLookup, ContactThatItsUserIsTypingInto_FoundByTheFilter_IsLeftAlone)
{
    open(marcStripped);
    outlook.command(L"type", field(L"contact", 0, L"EntryID") + L"\nCompanyName=Half a na\n");
    EXPECT_TRUE(ShowOutlookContact(session, L"01234567"));
    EXPECT_EQ(field(L"contact", 0, L"CompanyName"), L"") << "not saved";
    ASSERT_EQ(outlook.inspectors().size(), 1u);
    outlook.command(L"save-windows", L"");
    EXPECT_EQ(field(L"contact", 0, L"CompanyName"), L"Half a na");
}

}
