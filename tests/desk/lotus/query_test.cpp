#include "automation/server/dispatch.h"
#include "desk/common/text.h"
#include "desk/lotus/query.h"

#include <gtest/gtest.h>

namespace {

using namespace desk::lotus;

Note note(std::initializer_list<std::pair<const wchar_t*, const wchar_t*>> items)
{
    Note made;
    for (const auto& [name, text] : items) made.items.push_back(textItem(itemName(name), text));
    return made;
}

const Note marc = note({{L"LastName", L"Durand"},
                        {L"FirstName", L"Marc Antoine"},
                        {L"Phone", L"06.12.34.56.78"},
                        {L"Office", L"+33 1 42 (home)"},
                        {L"Body", L"The end. \"Gene and Joan\" wrote:\r\nMarc's well-known cat"},
                        {L"Empty", L""}});

unsigned hits(const wchar_t* query)
{
    return parseQuery(query)->hits(marc);
}

bool isBad(const wchar_t* query)
{
    try {
        parseQuery(query);
        return false;
    } catch (const automation::server::Exception& error) {
        return error.description == L"Notes error: Query is not understandable";
    }
}

}

TEST(Query, Item_ContainsAWord_WithoutCase)
{
    EXPECT_TRUE(hits(L"[LastName] CONTAINS \"durand\""));
    EXPECT_TRUE(hits(L"[lastname] contains DURAND"));
    EXPECT_TRUE(hits(L"FIELD LastName CONTAINS durand"));
    EXPECT_TRUE(hits(L"field LastName = durand"));
    EXPECT_TRUE(hits(L"[LastName]=durand"));
    EXPECT_FALSE(hits(L"[FirstName] CONTAINS \"durand\""));
    EXPECT_FALSE(hits(L"[Nowhere] CONTAINS \"durand\""));
}

TEST(Query, PartOfAWord_IsNoHit_UnlessWithWildcards)
{
    EXPECT_FALSE(hits(L"[LastName] CONTAINS \"dur\""));
    EXPECT_FALSE(hits(L"[LastName] CONTAINS \"urand\""));
    EXPECT_TRUE(hits(L"[LastName] CONTAINS \"dur*\""));
    EXPECT_TRUE(hits(L"[LastName] CONTAINS *ran?"));
    EXPECT_TRUE(hits(L"[LastName] CONTAINS ??????"));
    EXPECT_FALSE(hits(L"[LastName] CONTAINS ?????"));
}

TEST(Query, TelephoneNumberWithoutBlanks_IsOneWord)
{
    EXPECT_TRUE(hits(L"[Phone] CONTAINS \"06.12.34.56.78\""));
    EXPECT_FALSE(hits(L"[Phone] CONTAINS \"0612345678\""));
    EXPECT_FALSE(hits(L"[Phone] CONTAINS \"06 12 34 56 78\""));
    EXPECT_FALSE(hits(L"[Phone] CONTAINS \"12.34\""));
    EXPECT_EQ(wordsOf(L"+33-1/42.5 0033 #4711"), (std::vector<std::wstring>{L"+33-1/42.5", L"0033", L"#4711"}));
}

TEST(Query, WordsInARow_ArePartOfOneValue)
{
    EXPECT_TRUE(hits(L"[FirstName] CONTAINS \"marc antoine\""));
    EXPECT_TRUE(hits(L"[FirstName] CONTAINS marc antoine"));
    EXPECT_FALSE(hits(L"[FirstName] CONTAINS \"antoine marc\""));
    EXPECT_TRUE(hits(L"[Office] CONTAINS \"+33 1 42\""));
    EXPECT_TRUE(hits(L"[Office] CONTAINS \"1 42\""));
    EXPECT_FALSE(hits(L"\"Antoine 06.12.34.56.78\"")) << "not across values";
    Note list;
    list.items.push_back(textItem(itemName(L"L"), L"cat"));
    list.items[0].texts.emplace_back(L"dog");
    EXPECT_FALSE(parseQuery(L"\"cat dog\"")->hits(list));
    EXPECT_TRUE(parseQuery(L"[L] CONTAINS dog")->hits(list));
}

TEST(Query, WithoutAnItem_AllTextsAreSearched)
{
    EXPECT_TRUE(hits(L"durand"));
    EXPECT_TRUE(hits(L"\"end\""));
    EXPECT_TRUE(hits(L"cat"));
    EXPECT_FALSE(hits(L"dog"));
}

TEST(Query, Operators_BindAsDocumented)
{
    EXPECT_TRUE(hits(L"dog OR cat"));
    EXPECT_TRUE(hits(L"dog | cat"));
    EXPECT_TRUE(hits(L"dog, cat"));
    EXPECT_FALSE(hits(L"dog AND cat"));
    EXPECT_TRUE(hits(L"durand & cat"));
    EXPECT_TRUE(hits(L"not dog"));
    EXPECT_FALSE(hits(L"durand AND NOT cat"));
    EXPECT_TRUE(hits(L"cat OR dog AND dog"));
    EXPECT_FALSE(hits(L"(cat OR dog) AND dog"));
    EXPECT_TRUE(hits(L"[LastName] CONTAINS \"x\" OR [Phone] CONTAINS \"x\" OR [FirstName] CONTAINS \"marc\""));
}

TEST(Query, OperatorInQuotes_IsAWord)
{
    EXPECT_TRUE(hits(L"\"gene and joan\""));
    EXPECT_TRUE(hits(L"[Body] CONTAINS \"and\""));
    EXPECT_FALSE(hits(L"[Body] CONTAINS \"or\""));
}

TEST(Query, PunctuationAroundAWord_IsNotPartOfIt)
{
    EXPECT_EQ(wordsOf(L"The end. \"Joan\" wrote: Marc's well-known (cat), x=1; 'y' - z"),
              (std::vector<std::wstring>{L"the", L"end", L"joan", L"wrote", L"marc's", L"well-known", L"cat", L"x",
                                         L"1", L"y", L"z"}));
    EXPECT_TRUE(wordsOf(L" .. - \"\" ").empty());
}

TEST(Query, Presence_IsThatOfAnyText)
{
    EXPECT_TRUE(hits(L"[Phone] IS PRESENT"));
    EXPECT_FALSE(hits(L"[Empty] IS PRESENT"));
    EXPECT_FALSE(hits(L"[Nowhere] is present"));
    EXPECT_TRUE(hits(L"NOT [Nowhere] IS PRESENT"));
}

TEST(Query, NumbersAndDates_AreNotSearched)
{
    Note numbers;
    Item& age = numbers.items.emplace_back(Item{&itemName(L"Age"), ItemType::number});
    age.numbers.push_back(35);
    EXPECT_FALSE(parseQuery(L"[Age] CONTAINS 35")->hits(numbers));
    EXPECT_TRUE(parseQuery(L"[Age] IS PRESENT")->hits(numbers));
}

TEST(Query, Hits_AreCounted)
{
    EXPECT_EQ(hits(L"marc"), 1u) << "Marc's is another word";
    EXPECT_EQ(hits(L"marc OR durand OR dog"), 2u);
    EXPECT_EQ(hits(L"marc AND durand"), 2u);
}

TEST(Query, WhatMakesNoSense_IsRefused)
{
    for (const wchar_t* query :
         {L"", L"  ", L"\"open", L"[Phone", L"[Phone]", L"[Phone] CONTAINS", L"[Phone] CONTAINS \"\"", L"cat OR",
          L"OR cat", L"(cat", L"cat)", L"cat [Phone] = x", L"[] = x", L"CONTAINS x", L"[Phone] CONTAINS [Office]",
          L"NOT", L"[Phone] IS PRESENT x"})
        EXPECT_TRUE(isBad(query)) << desk::utf8(query);
}
