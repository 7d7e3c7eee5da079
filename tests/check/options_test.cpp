// The command line.
#include "check/options.h"

#include <gtest/gtest.h>

namespace hublink::check {

TEST(CheckOptions, None_ShowsTheReportOnly)
{
    const auto options = optionsOf({});
    ASSERT_TRUE(options);
    EXPECT_EQ(options->saveTo, L"");
    EXPECT_FALSE(options->listsMap);
    EXPECT_FALSE(options->language);
}

TEST(CheckOptions, All_InAnyOrder)
{
    const auto options =
        optionsOf({L"--map", L"--with-names", L"--language", L"FR", L"--save", L"C:\\Mes élèves\\rapport 1.txt"});
    ASSERT_TRUE(options);
    EXPECT_EQ(options->saveTo, L"C:\\Mes élèves\\rapport 1.txt");
    EXPECT_EQ(options->savedNames, Names::shown);
    EXPECT_TRUE(options->listsMap);
    EXPECT_EQ(PRIMARYLANGID(*options->language), LANG_FRENCH);
}

TEST(CheckOptions, Save_HidesNamesUnlessTold)
{
    EXPECT_EQ(optionsOf({L"--save", L"x"})->savedNames, Names::hidden);
}

TEST(CheckOptions, Wrong_AreRefused)
{
    const std::vector<std::vector<std::wstring>> wrong = {
        {L"--frobnicate"}, {L"report.txt"},        {L""},     {L"--save"}, {L"--save", L""}, {L"--save", L"--map"},
        {L"--language"},   {L"--language", L"de"}, {L"/map"}, {L"--MAP"},  {L"--with-names"}};
    for (const auto& arguments : wrong) EXPECT_FALSE(optionsOf(arguments)) << arguments.size();
}

}
