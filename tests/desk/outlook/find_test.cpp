#include "mailbox_fixture.h"

namespace {

using automation::Object;

class OutlookFind : public MailboxFixture {
protected:
    void SetUp() override
    {
        outlook.load(L"[contact]\nFullName=Marc Durand\nMobileTelephoneNumber=0612345678\nCompanyName=Pavex\n"
                     L"[contact]\nFullName=Jean O'Brien\nBusinessTelephoneNumber=01 \"23\"\nCompanyName=Pavex\n"
                     L"[distlist]\nDLName=Everybody\n"
                     L"[journal]\nSubject=Call\nStart=2023-03-15 06:00:00\nDuration=12\n");
    }

    std::wstring find(const std::wstring& filter, std::int32_t number = olContacts)
    {
        const Object found = items(number).get(L"Find", {filter}).object();
        return found ? found.get(L"Subject").text() : L"-";
    }

    std::wstring refusal(const std::wstring& filter)
    {
        return failureOf([&] { items(olContacts).get(L"Find", {filter}); }).description();
    }
};

}

TEST_F(OutlookFind, Equality_TakesBothQuotesAndIgnoresCase)
{
    EXPECT_EQ(find(L"[MobileTelephoneNumber] = '0612345678'"), L"Marc Durand");
    EXPECT_EQ(find(L"[mobiletelephonenumber]=\"0612345678\""), L"Marc Durand");
    EXPECT_EQ(find(L"[FullName] = 'MARC DURAND'"), L"Marc Durand");
    EXPECT_EQ(find(L"[FullName] = 'Marc'"), L"-") << "the whole text counts";
}

TEST_F(OutlookFind, QuoteInsideAText_IsDoubled)
{
    EXPECT_EQ(find(L"[FullName] = 'Jean O''Brien'"), L"Jean O'Brien");
    EXPECT_EQ(find(L"[FullName] = \"Jean O'Brien\""), L"Jean O'Brien");
    EXPECT_EQ(find(L"[BusinessTelephoneNumber] = \"01 \"\"23\"\"\""), L"Jean O'Brien");
    EXPECT_EQ(refusal(L"[FullName] = 'Jean O'Brien'"), L"Cannot parse condition. Error at \"Brien'\".");
}

TEST_F(OutlookFind, AndOrNotAndParentheses_BindAsUsual)
{
    EXPECT_EQ(find(L"[CompanyName] = 'pavex' And [FullName] = 'Jean O''Brien'"), L"Jean O'Brien");
    EXPECT_EQ(find(L"[FullName] = 'x' or [MobileTelephoneNumber] = '0612345678'"), L"Marc Durand");
    EXPECT_EQ(find(L"[CompanyName] = 'Pavex' AND NOT [FullName] = 'Marc Durand'"), L"Jean O'Brien");
    EXPECT_EQ(find(L"[FullName] = 'Marc Durand' Or [FullName] = 'x' And [CompanyName] = 'none'"), L"Marc Durand");
    EXPECT_EQ(find(L"([FullName] = 'Marc Durand' Or [FullName] = 'x') And [CompanyName] = 'none'"), L"-");
    EXPECT_EQ(find(L"[FullName] <> 'Marc Durand' And [CompanyName] <> ''"), L"Jean O'Brien");
}

TEST_F(OutlookFind, NumbersAndDates_CompareAsSuch)
{
    EXPECT_EQ(find(L"[Duration] > 9", olJournal), L"Call");
    EXPECT_EQ(find(L"[Duration] < 12", olJournal), L"-");
    EXPECT_EQ(find(L"[Start] >= '3/15/2023 6:00 AM'", olJournal), L"Call");
    EXPECT_EQ(find(L"[Start] > '3/15/2023 6:00 AM'", olJournal), L"-");
}

TEST_F(OutlookFind, NoHit_IsNothing_AndFindNextGoesOn)
{
    EXPECT_EQ(find(L"[FullName] = 'Nobody'"), L"-");
    const Object all = items(olContacts);
    EXPECT_EQ(all.get(L"Find", {L"[CompanyName] = 'Pavex'"}).object().get(L"FullName").text(), L"Marc Durand");
    EXPECT_EQ(all.get(L"FindNext").object().get(L"FullName").text(), L"Jean O'Brien");
    EXPECT_FALSE(all.get(L"FindNext").object());
}

TEST_F(OutlookFind, SyntaxErrors_SayWhere)
{
    EXPECT_EQ(refusal(L""), L"Cannot parse condition. Error at \"\".");
    EXPECT_EQ(refusal(L"[FullName] = 'open"), L"Cannot parse condition. Error at \"'open\".");
    EXPECT_EQ(refusal(L"[FullName] 'x'"), L"Cannot parse condition. Error at \"'x'\".");
    EXPECT_EQ(refusal(L"FullName = 'x'"), L"Cannot parse condition. Error at \"FullName = 'x'\".");
    EXPECT_EQ(refusal(L"([FullName] = 'x'"), L"Cannot parse condition. Error at \"\".");
    EXPECT_EQ(refusal(L"[FullName] = 'x' And"), L"Cannot parse condition. Error at \"\".");
}

TEST_F(OutlookFind, UnknownAndForbiddenFields_AreErrors)
{
    EXPECT_EQ(refusal(L"[ShoeSize] = '43'"), L"The property \"ShoeSize\" is unknown.");
    for (const wchar_t* field : {L"Body", L"EntryID", L"Email1EntryID", L"LastFirstNoSpace", L"Companies", L"Class"})
        EXPECT_EQ(refusal(std::wstring(L"[") + field + L"] = 'x'"), L"Condition is not valid.") << desk::utf8(field);
    EXPECT_EQ(refusal(L"[Duration] = 'abc'"), L"Condition is not valid.");
}

TEST_F(OutlookFind, TelephoneFields_MayAllBeSearched)
{
    for (const wchar_t* field :
         {L"AssistantTelephoneNumber", L"BusinessTelephoneNumber", L"CallbackTelephoneNumber",
          L"CompanyMainTelephoneNumber", L"ISDNNumber", L"RadioTelephoneNumber", L"Business2TelephoneNumber",
          L"CarTelephoneNumber", L"Home2TelephoneNumber", L"HomeTelephoneNumber", L"MobileTelephoneNumber",
          L"OtherTelephoneNumber", L"PrimaryTelephoneNumber", L"BusinessFaxNumber", L"PagerNumber"})
        EXPECT_EQ(find(std::wstring(L"[") + field + L"] = '555'"), L"-") << desk::utf8(field);
}
