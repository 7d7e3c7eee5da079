// The command line.
#include "check/options.h"

#include <gtest/gtest.h>

namespace hublink::check {

TEST(CheckOptions, None_ShowsTheReportOnly)
{
    const auto options = optionsOf({});
    EXPECT_FALSE(options.notUnderstood);
    EXPECT_EQ(options.saveTo, L"");
    EXPECT_FALSE(options.listsMap);
    EXPECT_FALSE(options.language);
}

TEST(CheckOptions, All_InAnyOrder)
{
    const auto options =
        optionsOf({L"--map", L"--with-names", L"--language", L"FR", L"--save", L"C:\\Mes élèves\\rapport 1.txt"});
    EXPECT_FALSE(options.notUnderstood);
    EXPECT_EQ(options.saveTo, L"C:\\Mes élèves\\rapport 1.txt");
    EXPECT_EQ(options.savedNames, Names::shown);
    EXPECT_TRUE(options.listsMap);
    EXPECT_EQ(PRIMARYLANGID(*options.language), LANG_FRENCH);
}

TEST(CheckOptions, Save_HidesNamesUnlessTold)
{
    EXPECT_EQ(optionsOf({L"--save", L"x"}).savedNames, Names::hidden);
}

TEST(CheckOptions, Help_IsAskedForInTheUsualWays)
{
    for (const wchar_t* word : {L"--help", L"-h", L"-?", L"/?"}) EXPECT_TRUE(optionsOf({word}).asksForHelp);
    EXPECT_FALSE(optionsOf({}).asksForHelp);
}

TEST(CheckOptions, Wrong_AreRefused_AndNamed)
{
    struct {
        std::vector<std::wstring> arguments;
        const wchar_t* named;
    } const wrong[] = {{{L"--frobnicate"}, L"--frobnicate"},
                       {{L"--map", L"--frobnicate", L"--map"}, L"--frobnicate"},
                       {{L"report.txt"}, L"report.txt"},
                       {{L""}, L""},
                       {{L"--save"}, L"--save"},
                       {{L"--save", L""}, L"--save "},
                       {{L"--save", L"--map"}, L"--save --map"},
                       {{L"--language"}, L"--language"},
                       {{L"--language", L"de"}, L"--language de"},
                       {{L"/map"}, L"/map"},
                       {{L"--MAP"}, L"--MAP"},
                       {{L"--with-names"}, L"--with-names (--save ?)"}};
    for (const auto& each : wrong) EXPECT_EQ(optionsOf(each.arguments).notUnderstood, each.named);
}

}
