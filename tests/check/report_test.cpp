// The report's text.
#include "check/report.h"
#include "check_fixture.h"

namespace hublink::check {

namespace {

Report reportOf(Findings findings)
{
    return {{L"Heading"}, {{L"Subject", std::move(findings), {}}}};
}

}

TEST(Report, Findings_BeginWithTheirMark_AndSayWhatToDo)
{
    const Report report = reportOf({{Mark::ok, L"Fine.", {}},
                                    {Mark::note, L"Worth knowing.", L"Nothing."},
                                    {Mark::problem, L"Broken.", L"Mend it."}});
    EXPECT_EQ(textOf(report, Names::shown, english.report), L"Heading\r\n"
                                                            L"\r\n"
                                                            L"Subject\r\n"
                                                            L"ok        Fine.\r\n"
                                                            L"note      Worth knowing.\r\n"
                                                            L"          -> Nothing.\r\n"
                                                            L"problem   Broken.\r\n"
                                                            L"          -> Mend it.\r\n"
                                                            L"\r\n"
                                                            L"Problems: 1. Notes: 1.\r\n");
}

TEST(Report, InFrench_HasFrenchMarks)
{
    const Report report = reportOf({{Mark::ok, L"Bien.", {}}, {Mark::problem, L"Cassé.", L"Réparez."}});
    EXPECT_EQ(textOf(report, Names::shown, french.report), L"Heading\r\n"
                                                           L"\r\n"
                                                           L"Subject\r\n"
                                                           L"ok        Bien.\r\n"
                                                           L"problème  Cassé.\r\n"
                                                           L"          -> Réparez.\r\n"
                                                           L"\r\n"
                                                           L"Problèmes : 1. Notes : 0.\r\n");
}

TEST(Report, WithoutProblems_SaysSo)
{
    const std::wstring text = textOf(reportOf({{Mark::note, L"n", {}}}), Names::shown, english.report);
    EXPECT_TRUE(text.ends_with(L"\r\nNo problem was found. Notes: 1.\r\n"));
}

TEST(Report, HiddenNames_AreInNeitherFindingsNorAdviceNorLists)
{
    const Words anna = filled(L"{1}", {personal(L"anna")});
    Report report = reportOf({{Mark::problem, anna, anna}});
    report.sections[0].lines.push_back(anna);
    EXPECT_NE(textOf(report, Names::shown, english.report).find(L"anna"), std::wstring::npos);
    EXPECT_EQ(textOf(report, Names::hidden, english.report).find(L"anna"), std::wstring::npos);
}

TEST(Report, CharactersThatWouldBreakALine_AreReplaced)
{
    const Report report = reportOf({{Mark::ok, std::wstring(L"a\r\nb\0c\x1B[31m", 11), {}}});
    EXPECT_NE(textOf(report, Names::shown, english.report).find(L"ok        a??b?c?[31m\r\n"), std::wstring::npos);
}

TEST(Report, Marks_AreCounted)
{
    const Report report = reportOf({{Mark::ok, L"a", {}}, {Mark::problem, L"b", {}}, {Mark::problem, L"c", {}}});
    EXPECT_EQ(count(report, Mark::ok), 1u);
    EXPECT_EQ(count(report, Mark::note), 0u);
    EXPECT_EQ(count(report, Mark::problem), 2u);
}

}
