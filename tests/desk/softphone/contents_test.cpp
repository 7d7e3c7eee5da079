#include "desk/softphone/record_fields.h"
#include "desk/softphone/store.h"

#include <gtest/gtest.h>

namespace {

using namespace desk::softphone;

std::string failureOf(const std::wstring& store)
{
    try {
        contentsOf(desk::parseStore(store));
    } catch (const std::runtime_error& error) {
        return error.what();
    }
    return "";
}

}

TEST(SoftphoneFields, Values_MayHoldBlanksQuotesAndLineEnds)
{
    const Fields fields =
        parseFields(L" number=0123  last=\"O'Brien \\\"Jim\\\" \\\\ \\n=\"\tfirst=\"\"  incoming=true ");
    EXPECT_EQ(
        fields,
        (Fields{{L"number", L"0123"}, {L"last", L"O'Brien \"Jim\" \\ \n="}, {L"first", L""}, {L"incoming", L"true"}}));
    EXPECT_EQ(parseFields(lineOf(fields)), fields);
}

TEST(SoftphoneFields, OtherForms_AreRefused)
{
    for (const wchar_t* text : {L"number", L"=3", L"last=\"open", L"a b=c", L"last=a\\qb"})
        EXPECT_THROW(parseFields(text), std::runtime_error) << text;
    EXPECT_THROW(callRecordOf({{L"colour", L"red"}}), std::runtime_error);
    EXPECT_THROW(callRecordOf({{L"incoming", L"yes"}}), std::runtime_error);
    EXPECT_THROW(historyRecordOf({{L"state", L"70000"}}), std::runtime_error);
    EXPECT_THROW(historyRecordOf({{L"begin", L"yesterday"}}), std::runtime_error);
}

TEST(SoftphoneFields, Identifier_IsTwoNumbersWithADot)
{
    EXPECT_EQ(recordIdOf(L"12.3405"), (RecordId{12, 3405}));
    EXPECT_EQ(recordIdOf(L"-1.2147483647"), (RecordId{-1, 2147483647}));
    for (const wchar_t* text : {L"", L"12", L"12.", L".5", L"1.2.3", L"a.b", L"1.2147483648"})
        EXPECT_THROW(recordIdOf(text), std::runtime_error) << text;
}

TEST(SoftphoneContents, NewRecord_GetsTheNextFreeIdentifier)
{
    Book<EntryRecord> book(1);
    EXPECT_EQ(book.add({}).id, (RecordId{1, 1}));
    book.add({{1, 7}, {}});
    EXPECT_EQ(book.add({}).id, (RecordId{1, 8}));
    EXPECT_THROW(book.add({{1, 7}, {}}), std::runtime_error);
    EXPECT_TRUE(book.remove({1, 7}));
    EXPECT_FALSE(book.remove({1, 7}));
    EXPECT_EQ(book.records().size(), 2u);
    EXPECT_EQ(book.find({1, 7}), nullptr);
    EXPECT_EQ(book.find({1, 8}), &book.records().at(1));
    EXPECT_EQ(book.add({{2, 1}, {}}).id, (RecordId{2, 1}));
    EXPECT_EQ(book.find({1, 2}), nullptr);
}

TEST(SoftphoneContents, OwnIdentifiersOfBothBooks_AreNeverTheSame)
{
    Contents contents;
    EXPECT_EQ(contents.history.add({}).id, (RecordId{1, 1}));
    EXPECT_EQ(contents.entries.add({}).id, (RecordId{2, 1}));
}

TEST(SoftphoneStore, WrittenContents_AreReadBack)
{
    const std::wstring text = L"[user]\nFirstText=Anne\nSecondText=Martin\nNumber=4711\n\n"
                              L"[entry]\nId=7.1\nNumber=0456\nLastName=Blanc \\\\ Fils\nFirstName=\x017D\n\n"
                              L"[history]\nId=12.3405\nIncoming=true\nNumber=0123\nLastName=Weber\nFirstName=Max\n"
                              L"BeginDate=2023-03-15 06:00:00\nEndDate=2023-03-15 06:01:30\nState=3\nAcknowledged=1\n";
    const Contents contents = contentsOf(desk::parseStore(text));
    EXPECT_EQ(contents.user.secondText, L"Martin");
    EXPECT_EQ(contents.entries.records().at(0).party.lastName, L"Blanc \\ Fils");
    EXPECT_TRUE(contents.history.records().at(0).incoming);
    EXPECT_EQ(desk::storeText(recordsOf(contents)), text);
}

TEST(SoftphoneStore, BadRecord_IsNamedByItsLine)
{
    EXPECT_EQ(failureOf(L"[user]\nFirstText=a\n[entry]\nId=x\n"),
              "line 3: [entry] \"x\" is no identifier of the form 12.3405");
    EXPECT_EQ(failureOf(L"[entry]\nId=1.1\n[entry]\nId=1.1\n"), "line 3: [entry] the identifier 1.1 is in use");
    EXPECT_EQ(failureOf(L"[contact]\n"), "line 1: [contact] is none of user, entry, history");
}
