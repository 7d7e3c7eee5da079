#include "desk/common/store_file.h"
#include "desk/common/text.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

namespace {

std::string refusal(std::wstring_view text)
{
    try {
        desk::parseStore(text);
    } catch (const std::runtime_error& error) {
        return error.what();
    }
    return "accepted";
}

std::wstring temporaryFile()
{
    wchar_t folder[MAX_PATH];
    GetTempPathW(MAX_PATH, folder);
    return folder + (L"desk" + std::to_wstring(GetCurrentProcessId()) + L".txt");
}

}

TEST(StoreText, AwkwardValues_ComeBackTheSame)
{
    desk::StoreRecord record{L"contact", {}, 1};
    record.add(L"Body", L"one\r\ntwo \\ back\\n");
    record.add(L"Subject", L"  blanks = kept  ");
    record.add(L"Nul", std::wstring(L"a\0b", 3));
    const auto read = desk::parseStore(desk::storeText(record));
    ASSERT_EQ(read.size(), 1u);
    EXPECT_EQ(read[0].kind, L"contact");
    EXPECT_EQ(read[0].fields, record.fields);
}

TEST(StoreText, CommentsEmptyLinesAndDosLineEnds_AreAllowed)
{
    const auto read = desk::parseStore(L"\xFEFF# all\r\n\r\n[a]\r\nx=1\r\n# more\r\n[b]\r\n");
    ASSERT_EQ(read.size(), 2u);
    ASSERT_NE(read[0].find(L"x"), nullptr);
    EXPECT_EQ(*read[0].find(L"x"), L"1");
    EXPECT_EQ(read[1].line, 6u);
}

TEST(StoreText, Mistakes_AreRefusedWithTheirLine)
{
    EXPECT_EQ(refusal(L"\nx=1\n"), "line 2: a field before the first [kind]");
    EXPECT_EQ(refusal(L"[a]\nnothing\n"), "line 2: neither [kind] nor Field=value");
    EXPECT_EQ(refusal(L"[a\n"), "line 1: a record starts with [kind]");
    EXPECT_EQ(refusal(L"[a]\nx=\\t\n"), "line 2: a backslash stands before none of \\ n r 0");
}

TEST(StoreFile, WrittenAgain_HoldsTheNewRecordsOnly)
{
    const std::wstring path = temporaryFile();
    EXPECT_TRUE(desk::readStore(path).empty()) << "no file is an empty store";
    desk::StoreRecord record{L"contact", {}, 1};
    record.add(L"FullName", L"\x00C9milie \x20AC");
    desk::writeStore(path, {record, record, record});
    desk::writeStore(path, {record, record});
    const auto read = desk::readStore(path);
    EXPECT_TRUE(DeleteFileW(path.c_str()));
    ASSERT_EQ(read.size(), 2u);
    EXPECT_EQ(read[1].fields, record.fields);
}

TEST(IsoDate, TextAndDate_AreOneAnothersReverse)
{
    EXPECT_EQ(desk::isoText(desk::dateFromIso(L"2023-03-15 06:07:59")), L"2023-03-15 06:07:59");
    EXPECT_EQ(desk::isoText(desk::dateFromIso(L"1999-12-31")), L"1999-12-31 00:00:00");
    EXPECT_THROW(desk::dateFromIso(L"15/03/2023"), std::runtime_error);
    EXPECT_THROW(desk::dateFromIso(L"2023-02-30 00:00:00"), std::runtime_error);
}
