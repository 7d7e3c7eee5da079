// What a table told serves again within an event.
#include "contact_table_fixture.h"

#include "outlook/contacts.h"

namespace hublink {

namespace {

using desk::outlook::Version;
using ContactTableInEvent = ContactTableFixture;

}

TEST_F(ContactTableInEvent, SecondQuestionInAnEvent_OnlyTheRowsAreCounted)
{
    openAs(Version::v2016, people(600) + personWith(L"9.9"));
    const TableAnswerCacheScope answers(session);
    for (const wchar_t* number : {L"99", L"98"}) {
        const PossibleOwner first = ownerOf(number);
        forgetCalls();
        EXPECT_EQ(ownerOf(number), first);
        EXPECT_EQ(carriedOut(), (std::vector<std::wstring>{L"Table.GetRowCount method ()"}));
    }
}

TEST_F(ContactTableInEvent, AnotherNumberInAnEvent_TheTableServesFromItsStart_AndIsReadAgain)
{
    openAs(Version::v2016, people(600) + personWith(L"9.9"));
    const TableAnswerCacheScope answers(session);
    EXPECT_EQ(ownerOf(L"98"), PossibleOwner::nobody);
    forgetCalls();
    EXPECT_EQ(ownerOf(L"99"), PossibleOwner::oneContact);
    EXPECT_EQ(calls(L"Folder.GetTable method"), 0u);
    EXPECT_EQ(calls(L"Table.MoveToStart method"), 1u);
    EXPECT_EQ(calls(L"Table.GetArray method"), 2u);
}

TEST_F(ContactTableInEvent, ContactThatComesWithinAnEvent_IsSeenBySecondQuestion)
{
    openAs(Version::v2016, people(3));
    const TableAnswerCacheScope answers(session);
    EXPECT_EQ(ownerOf(L"99"), PossibleOwner::nobody);
    outlook.command(L"add", L"contact\nLastName=Late\nCarTelephoneNumber=9.9\n");
    EXPECT_EQ(walkFindsWhom(L"99"), L"Late");
    EXPECT_TRUE(wasTakenByIdentifier());
}

TEST_F(ContactTableInEvent, ContactThatGoesWithinAnEvent_IsNotFoundBySecondQuestion)
{
    openAs(Version::v2016, people(3) + personWith(L"9.9"));
    const TableAnswerCacheScope answers(session);
    EXPECT_EQ(walkFindsWhom(L"99"), L"Wanted");
    outlook.command(L"delete", field(L"contact", 3, L"EntryID"));
    EXPECT_EQ(walkFindsWhom(L"99"), L"nobody");
}

TEST_F(ContactTableInEvent, ContactThatIsMadeWithinAnEvent_IsFoundBySecondQuestion)
{
    openAs(Version::v2016, people(3));
    const TableAnswerCacheScope answers(session);
    EXPECT_FALSE(walkFinds(L"99"));
    NewOutlookContact(session, {L"9.9", L"Made", L""}, Show::no);
    EXPECT_EQ(walkFindsWhom(L"99"), L"Made");
    EXPECT_EQ(calls(L"Folder.GetTable method"), 2u) << "what was told before is forgotten";
}

TEST_F(ContactTableInEvent, SessionOpenedAgainWithinAnEvent_TheTableIsReadAgain)
{
    openAs(Version::v2016, people(3));
    const TableAnswerCacheScope answers(session);
    EXPECT_FALSE(walkFinds(L"99"));
    session.bOutlookInit = false;
    InitOutlook(session);
    EXPECT_FALSE(walkFinds(L"99"));
    EXPECT_EQ(calls(L"Folder.GetTable method"), 2u);
}

TEST_F(ContactTableInEvent, AnswersAreOlderThanTwoSeconds_TheTableIsReadAgain)
{
    openAs(Version::v2016, people(3));
    const TableAnswerCacheScope answers(session);
    EXPECT_FALSE(walkFinds(L"99"));
    session.answerCache.startTick -= 2'001; // a message box has held the event up
    EXPECT_FALSE(walkFinds(L"99"));
    EXPECT_EQ(calls(L"Folder.GetTable method"), 2u);
}

TEST_F(ContactTableInEvent, WithoutAnEvent_EachQuestionReadsTheTable)
{
    openAs(Version::v2016, people(3));
    EXPECT_FALSE(walkFinds(L"99"));
    {
        const TableAnswerCacheScope answers(session);
    }
    EXPECT_FALSE(walkFinds(L"99"));
    EXPECT_EQ(calls(L"Folder.GetTable method"), 2u);
}

}
