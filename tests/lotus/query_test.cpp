#include "lotus/book_search.h"
#include "lotus/documents.h"
#include "lotus/number_search.h"

#include "lotus_fixture.h"

#include "automation/error.h"

namespace hublink {

namespace {

using Names = std::vector<std::wstring>;

bool enough(const LotusPerson& person, const wchar_t* wanted)
{
    return WantedFieldsPresent(person, wanted);
}

class LotusItems : public LotusFixture {
protected:
    // A document of log.nsf with these items.
    automation::Object document(const std::wstring& items)
    {
        const std::wstring id = add(L"log.nsf", items);
        const automation::Object session = notes.create(L"Notes.NotesSession");
        const automation::Object database = session.get(L"GetDatabase", {L"", L"log.nsf"}).object();
        return database.get(L"GetDocumentByUNID", {id}).object();
    }
};

}

TEST(LotusQuery, EveryItem_IsATermOfItsOwn_JoinedByOr)
{
    EXPECT_EQ(BuildFullTextQuery({L"Office", L"Cell Phone", L"Home"}, L"0123"),
              L"[Office] CONTAINS \"0123\" OR [Cell Phone] CONTAINS \"0123\" OR [Home] CONTAINS \"0123\"");
    EXPECT_EQ(BuildFullTextQuery({L"Mail"}, L"a@b.c"), L"[Mail] CONTAINS \"a@b.c\"");
}

TEST(LotusQuery, NoItems_AreNoQuery_ButAnEmptyNameIsATerm)
{
    EXPECT_EQ(BuildFullTextQuery({}, L"0123"), L"");
    EXPECT_EQ(BuildFullTextQuery({L""}, L"0123"), L"[] CONTAINS \"0123\"");
    EXPECT_EQ(BuildFullTextQuery({L"", L"a"}, L""), L"[] CONTAINS \"\" OR [a] CONTAINS \"\"");
}

// The builder says nothing about values that no query can say; who searches does.
TEST(LotusQuery, QuoteInTheValue_StaysAsItIs)
{
    EXPECT_EQ(BuildFullTextQuery({L"a"}, L"1\"2"), L"[a] CONTAINS \"1\"2\"");
}

TEST(LotusWantedFields, OneWanted_MustBeFilled)
{
    const LotusPerson nobody;
    EXPECT_FALSE(enough(nobody, L"LastName"));
    EXPECT_FALSE(enough(nobody, L"FirstName"));
    EXPECT_FALSE(enough(nobody, L"InternetAddress"));
    EXPECT_FALSE(enough(nobody, L"FullName"));
    EXPECT_TRUE(enough({L"x", L"", L"", L"", L""}, L"LastName"));
    EXPECT_TRUE(enough({L"", L"x", L"", L"", L""}, L"FirstName"));
    EXPECT_TRUE(enough({L"", L"", L"x", L"", L""}, L"FullName"));
    EXPECT_TRUE(enough({L"", L"", L"", L"x", L""}, L"InternetAddress"));
}

TEST(LotusWantedFields, OfTwoWanted_OneFilledIsEnough)
{
    EXPECT_TRUE(enough({L"x", L"", L"", L"", L""}, L"LastName,FirstName"));
    EXPECT_TRUE(enough({L"", L"x", L"", L"", L""}, L"LastName,FirstName"));
    EXPECT_FALSE(enough({L"", L"", L"x", L"x", L"x"}, L"LastName,FirstName"));
}

TEST(LotusWantedFields, SeveralWanted_AllButOneMayBeMissing)
{
    const wchar_t* const all = L"LastName,FirstName,InternetAddress,FullName";
    EXPECT_TRUE(enough({L"", L"", L"", L"mail", L""}, all));
    EXPECT_FALSE(enough({L"", L"", L"", L"", L"id"}, all));
}

TEST(LotusWantedFields, NamesThatAreNoFields_CountAsPresent)
{
    const LotusPerson nobody;
    EXPECT_TRUE(enough(nobody, L"Phone"));
    EXPECT_TRUE(enough(nobody, L"lastname")) << "case matters";
    EXPECT_TRUE(enough(nobody, L"LastName,Phone"));
    EXPECT_FALSE(enough(nobody, L"MyLastNameHere")) << "the word anywhere is enough";
}

TEST_F(LotusItems, FirstNonEmptyValue_IsFirstInTheOrderOfNamesThenOfValues)
{
    const automation::Object found = document(L"A=\nA+=\nB=\nB+=second\nB+=third\nC=other\n");
    EXPECT_EQ(FirstNonEmptyItemValue(found, {L"A", L"B", L"C"}), L"second");
    EXPECT_EQ(FirstNonEmptyItemValue(found, {L"C", L"B"}), L"other");
    EXPECT_EQ(FirstNonEmptyItemValue(found, {L"Missing", L"A"}), L"");
    EXPECT_EQ(FirstNonEmptyItemValue(found, {}), L"");
}

TEST_F(LotusItems, FirstNonEmptyValue_AsksForNoMoreThanItNeeds)
{
    const automation::Object found = document(L"A=\nB=b\nC=c\n");
    forgetCalls();
    FirstNonEmptyItemValue(found, {L"A", L"B", L"C"});
    EXPECT_EQ(record(), (Names{L"NotesDocument.GetItemValue method (BSTR \"A\")",
                               L"NotesDocument.GetItemValue method (BSTR \"B\")"}));
}

TEST_F(LotusItems, ValueOfAnotherType_BecomesAText)
{
    const automation::Object found =
        document(L"Number:number=612345678\nDate:date=2023-03-15 12:00:00\nRich:richtext=two\\nlines\n");
    EXPECT_EQ(firstItemValue(found, L"Number"), L"612345678");
    EXPECT_EQ(firstItemValue(found, L"Date"), L"3/15/2023 12:00:00 PM");
    EXPECT_EQ(FirstNonEmptyItemValue(found, {L"Rich"}), L"two\nlines");
}

TEST_F(LotusItems, BareValueInPlaceOfAnArray_IsAnError)
{
    const automation::Object found = document(L"A=a\n");
    EXPECT_EQ(firstItemValue(found, L"Missing"), L"");
    notes.ask(L"missing text");
    EXPECT_THROW(firstItemValue(found, L"Missing"), automation::AutomationError);
    EXPECT_EQ(firstItemValue(found, L"A"), L"a");
}

TEST_F(LotusItems, FirstNonEmptyValue_IsNoneWhenAnItemCannotBeRead_AndNoErrorLeaves)
{
    const automation::Object found = document(L"A=a\n");
    for (const wchar_t* answer : {L"answer BSTR a", L"answer Nothing", L"answer NULL", L"fail 0x80004005"}) {
        trapped.procedures.clear();
        fault(L"on NotesDocument.GetItemValue at 1 " + std::wstring(answer));
        EXPECT_EQ(FirstNonEmptyItemValue(found, {L"B", L"A"}), L"") << desk::utf8(answer);
        EXPECT_EQ(trapped.procedures, Names{L"readFirstNonEmptyItemValue"}) << desk::utf8(answer);
    }
    EXPECT_EQ(FirstNonEmptyItemValue(automation::Object(), {L"A"}), L"");
}

}
